#include "feenote/modQuantita.h"

#include "core/modErrori.h"
#include "core/modTesti.h"
#include "platform/base/regionale.h"
#include "platform/system/messaggi.h"

#include <algorithm>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int MinutiOra = 60;

double QuantitaDigitata(const QString& Risposta)
{
    return NumeroDi(Sostituisci(Risposta, u"."_s, u","_s));
}

/// Minutes that a fraction of an hour must exceed to count as one; nothing for an item charged otherwise.
std::optional<int> MinutiDiFrazione(const QString& QtaOno)
{
    if (!QtaOno.startsWith(CodiceOreEFrazioni))
        return std::nullopt;
    return std::clamp(int(NumeroDi(QtaOno.mid(1))), 0, MinutiOra);
}

}  // namespace

double ArrotondaQuantita(const QString& Risposta)
{
    constexpr double FrazioneIniziata =
        0.49;  // not a half: two hundredths are enough, the unit itself is not
    const double Valore = QuantitaDigitata(Risposta);
    return Valore > 0 ? Round(Valore + FrazioneIniziata) : 0.0;
}

double QuantitaContata(const QString& QtaOno, const QString& Risposta)
{
    const std::optional<int> Minuti = MinutiDiFrazione(QtaOno);
    if (!Minuti)
        return ArrotondaQuantita(Risposta);
    constexpr int Decimali = 6;  // a third of an hour typed with a few digits stays what it is
    const double Ore = QuantitaDigitata(Risposta);
    const double Intere = std::floor(std::max(0.0, Ore));
    return Intere + (Round((Ore - Intere) * MinutiOra, Decimali) > *Minuti ? 1 : 0);
}

double GetQuant(const QString& Descr, const QString& QtaOno)
{
    QString Domanda = u"Per la voce "_s + (Descr.isEmpty() ? u"selezionata"_s : Descr) +
                      u" occorre specificare il numero"_s;
    if (QtaOno.startsWith(u'H'))
        Domanda += u" delle ore impiegate (per ogni ora e frazione d'ora)."_s;
    const std::optional<int> Minuti = MinutiDiFrazione(QtaOno);
    if (Minuti)
        Domanda += u" delle ore impiegate (per ogni ora e frazione d'ora oltre i %1 minuti: 1,5 è un'ora e "
                   u"mezza)."_s.arg(*Minuti);
    Domanda += u"\n\nImmettere la quantità:"_s;
    const QString Risposta = InputBox(Domanda, u"Immissione quantità"_s);
    const double Quantita = QuantitaContata(QtaOno, Risposta);
    if (Minuti && Quantita == 0 && QuantitaDigitata(Risposta) > 0) {
        MsgErrore(u"Una frazione d'ora fino a %1 minuti non si conta!"_s.arg(*Minuti));
        return 0.0;
    }
    if (Quantita <= MassimaQuantita)
        return Quantita;
    MsgErrore(u"La quantità è troppo grande: al massimo 999.999.999!"_s);
    return 0.0;
}
