#include "platform/system/aparte.h"

#include "platform/system/attese.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace {

/// What is under way. It is never taken down: a thread may still hang in the system when the program ends.
struct InCorso
{
    std::mutex Turno;
    std::condition_variable Detto;
    int Quanti = 0;

    static InCorso& Tutti()
    {
        static auto* const Sempre = new InCorso;
        return *Sempre;
    }
    void Conta(int Piu)
    {
        const std::lock_guard Mio(Turno);
        Quanti += Piu;
        Detto.notify_all();
    }
};

/// The answer of a disk, if it comes in time.
/// @param Cartella that is asked
std::optional<bool> EntroIlTempo(const QString& Cartella, const std::function<bool()>& Chiedi)
{
    struct Risposta
    {
        std::mutex Turno;
        std::condition_variable Detto;
        std::optional<bool> Esiste;
    };
    const auto Avuta = std::make_shared<Risposta>();
    FaiAParte([Avuta, Cartella, Chiedi] {
        if (const auto Attesa = guasti::PrimaDiScorrere)
            Attesa(Cartella);
        const bool Trovata = Chiedi();
        const std::lock_guard Mio(Avuta->Turno);
        Avuta->Esiste = Trovata;
        Avuta->Detto.notify_all();
    });
    std::unique_lock Mio(Avuta->Turno);
    Avuta->Detto.wait_for(Mio, std::chrono::milliseconds(attese::CartellaMs),
                          [&] { return Avuta->Esiste.has_value(); });
    return Avuta->Esiste;
}

}  // namespace

void FaiAParte(std::function<void()> Lavoro)
{
    InCorso& Tutti = InCorso::Tutti();
    Tutti.Conta(1);
    try {
        std::thread([&Tutti, Fai = std::move(Lavoro)]() mutable {
            {
                // The work is under way until what it holds is let go.
                const auto Suo = std::move(Fai);
                try {
                    Suo();
                } catch (...) {
                }
            }
            Tutti.Conta(-1);
        }).detach();
    } catch (const std::system_error&) {
        Tutti.Conta(-1);  // a machine without room for a thread goes without
    }
}

bool AttendiLavoriAParte(int Ms)
{
    InCorso& Tutti = InCorso::Tutti();
    std::unique_lock Mio(Tutti.Turno);
    return Tutti.Detto.wait_for(Mio, std::chrono::milliseconds(Ms), [&] { return Tutti.Quanti == 0; });
}

void AttendiOFinisci(int Ms, int Esito)
{
    if (AttendiLavoriAParte(Ms))
        return;
    (void)std::fflush(nullptr);
    std::_Exit(Esito);
}

std::optional<bool> EsisteFileEntro(const QString& Percorso)
{
    return EntroIlTempo(CartellaFile(Percorso), [Percorso] { return EsisteFile(Percorso); });
}

bool EsisteCartellaEntro(const QString& Percorso)
{
    return EntroIlTempo(Percorso, [Percorso] { return EsisteCartella(Percorso); }).value_or(true);
}
