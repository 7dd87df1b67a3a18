// Connecting the signals of controls, with the error report around every event procedure.
#pragma once

#include <QObject>

#include <concepts>
#include <functional>
#include <tuple>
#include <type_traits>
#include <utility>

struct Errore;

/// Where an error ends that no procedure has caught; core's error report is installed here at the start.
/// Returns the former one.
std::function<void(const Errore&)> InstallaUltimaRete(std::function<void(const Errore&)> Nuova);

/// Hands the exception in flight to the report installed by InstallaUltimaRete. Call it inside a catch block
/// only.
void RiportaEccezione() noexcept;

namespace dettagli {

template <class F, class Tupla, size_t... I>
void ChiamaCon(F& Procedura, Tupla& Valori, std::index_sequence<I...>)
{
    std::invoke(Procedura, std::get<I>(Valori)...);
}

template <class F, class Tupla, size_t N>
constexpr bool Chiamabile = []<size_t... I>(std::index_sequence<I...>)
{
    return std::invocable<F&, std::tuple_element_t<I, Tupla>...>;
}
(std::make_index_sequence<N>{});

/// Calls with as many of the leading arguments of the signal as the procedure takes.
template <size_t N, class F, class Tupla>
void Chiama(F& Procedura, Tupla& Valori)
{
    if constexpr (Chiamabile<F, Tupla, N>)
        ChiamaCon(Procedura, Valori, std::make_index_sequence<N>{});
    else
        Chiama<N - 1>(Procedura, Valori);
}

}  // namespace dettagli

/// Connects a signal to a callable that lives as long as `Contesto`. An exception goes to the report
/// installed by InstallaUltimaRete. The sender may be of a class derived from the signal's.
template <class Mittente, class M, class... A, class F>
requires std::derived_from<Mittente, M> &&(!std::is_member_pointer_v<F>)QMetaObject::Connection
    Collega(const Mittente* Da, void (M::*Segnale)(A...), QObject* Contesto, F Procedura)
{
    return QObject::connect(Da, Segnale, Contesto, [Procedura = std::move(Procedura)](A... Valori) mutable {
        try {
            auto Tutti = std::forward_as_tuple(Valori...);
            dettagli::Chiama<sizeof...(A)>(Procedura, Tutti);
        } catch (...) {
            RiportaEccezione();
        }
    });
}

/// Connects a signal to a member of a form.
template <class Mittente, class M, class... A, class Modulo, class R, class... B>
requires std::derived_from<Mittente, M> && std::derived_from<Modulo, QObject> QMetaObject::Connection
Collega(const Mittente* Da, void (M::*Segnale)(A...), Modulo* A_, R (Modulo::*Membro)(B...))
{
    return Collega(Da, Segnale, static_cast<QObject*>(A_),
                   [A_, Membro](B... Valori) { (A_->*Membro)(Valori...); });
}
