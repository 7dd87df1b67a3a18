#include "calculators/norme/regolenorme.h"

#include "calculators/norme/contributovigente.h"
#include "calculators/norme/rifiuto.h"
#include "calculators/norme/terminiricorrenti.h"
#include "platform/base/regionale.h"

#include <QSet>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

bool SiIncontrano(const Vigenza& A, const Vigenza& B)
{
    return (!A.Al.isValid() || !B.Dal.isValid() || A.Al >= B.Dal) &&
           (!B.Al.isValid() || !A.Dal.isValid() || B.Al >= A.Dal);
}

/// Each period begins on the day behind the one before; the last one has no end.
void ControllaSospensioni(const QList<NormaSospensione>& Tutte)
{
    if (Tutte.isEmpty() || Tutte.last().Quando.Al.isValid())
        Rifiuta(u"Sospensioni: manca il periodo in vigore"_s);
    for (qsizetype i = 1; i < Tutte.size(); ++i)
        if (!Tutte[i - 1].Quando.Al.isValid() || Tutte[i].Quando.Dal != Tutte[i - 1].Quando.Al.addDays(1))
            Rifiuta(u"Sospensioni, riga %1: il periodo non segue il precedente"_s.arg(i + 1));
}

void ControllaFeste(const QList<NormaFesta>& Tutte)
{
    if (Tutte.isEmpty())
        Rifiuta(u"Feste: la tabella è vuota"_s);
    for (qsizetype i = 0; i < Tutte.size(); ++i)
        for (qsizetype j = 0; j < i; ++j)
            if (Tutte[i].Giorno == Tutte[j].Giorno && SiIncontrano(Tutte[i].Quando, Tutte[j].Quando))
                Rifiuta(u"Feste, riga %1: il giorno è già festivo in quel periodo"_s.arg(i + 1));
}

template <class Riga>
QSet<QString> CodiciUnici(const QList<Riga>& Tutte, const QString& Tabella)
{
    QSet<QString> Codici;
    for (const Riga& Una : Tutte) {
        const QString Codice = Una.Codice.toUpper();
        if (Codici.contains(Codice))
            Rifiuta(u"%1: il codice %2 è doppio"_s.arg(Tabella, Una.Codice));
        Codici.insert(Codice);
    }
    return Codici;
}

void ControllaRegole(const Norme& Insieme)
{
    const QSet<QString> Codici = CodiciUnici(Insieme.Regole(), u"Regole"_s);
    for (const QStringView Codice : regole::Tutte)
        if (!Codici.contains(Codice.toString().toUpper()))
            Rifiuta(u"Regole: manca «%1»"_s.arg(Codice));
}

void ControllaMaterie(const Norme& Insieme)
{
    const QSet<QString> Codici = CodiciUnici(Insieme.Materie(), u"Materie"_s);
    for (const TermineRicorrente& Termine : Insieme.Termini())
        if (!Termine.Materia.isEmpty() && !Codici.contains(Termine.Materia.toUpper()))
            Rifiuta(u"Termini: %1 è di una materia che non c'è"_s.arg(Termine.Codice));
}

void ControllaCatene(const Norme& Insieme)
{
    // A code names a term or a chain, never both.
    if (CodiciUnici(Insieme.Termini(), u"Termini"_s).intersects(CodiciUnici(Insieme.Catene(), u"Catene"_s)))
        Rifiuta(u"Catene: un codice è già di un termine"_s);
    for (const CatenaTermini& Catena : Insieme.Catene())
        for (const AnelloCatena& Anello : Catena.Anelli) {
            const TermineRicorrente* Termine = TrovaTermine(Insieme, Anello.Termine);
            if (!Termine || Termine->Regola)
                Rifiuta(
                    u"Catene: %1 ha un termine che non si computa, %2"_s.arg(Catena.Codice, Anello.Termine));
            const TermineRicorrente* Altro =
                Anello.Inizio == InizioAnello::Aumento ? TrovaTermine(Insieme, Anello.Da) : nullptr;
            if (Altro && (Altro->Tipo != Termine->Tipo || Altro->Antecedente != Termine->Antecedente))
                Rifiuta(u"Catene: %1 aumenta un termine di altra misura, %2"_s.arg(Catena.Codice, Anello.Da));
        }
}

qint64 Centesimi(double Euro)
{
    return qint64(std::llround(Euro * 100));
}

/// The brackets of one kind and time: from 0, each a cent behind the one before, the last without an end.
void ControllaScaglioni(const QList<VoceContributo>& Tutte)
{
    const VoceContributo* Prima = nullptr;
    for (const VoceContributo& Voce : Tutte) {
        if (Voce.Genere != GenereContributo::Scaglione) {
            if (Prima && Prima->AEuro)
                Rifiuta(u"Contributi: agli scaglioni di «%1» manca l'ultimo"_s.arg(Prima->Codice));
            Prima = nullptr;
            continue;
        }
        const bool Continua = Prima && Prima->AEuro;
        if (Continua && (Voce.Codice != Prima->Codice || Voce.Quando != Prima->Quando ||
                         Centesimi(*Voce.DaEuro) != Centesimi(*Prima->AEuro) + 1))
            Rifiuta(u"Contributi: uno scaglione di «%1» non segue il precedente"_s.arg(Voce.Codice));
        if (!Continua && Centesimi(*Voce.DaEuro) != 0)
            Rifiuta(u"Contributi: gli scaglioni di «%1» non cominciano da 0"_s.arg(Voce.Codice));
        Prima = &Voce;
    }
    if (Prima && Prima->AEuro)
        Rifiuta(u"Contributi: agli scaglioni di «%1» manca l'ultimo"_s.arg(Prima->Codice));
}

/// No two amounts of one kind, value and day.
void ControllaContributi(const QList<VoceContributo>& Tutte)
{
    ControllaScaglioni(Tutte);
    for (qsizetype i = 0; i < Tutte.size(); ++i)
        for (qsizetype j = 0; j < i; ++j)
            if (Tutte[i].Codice == Tutte[j].Codice && Tutte[i].DaEuro == Tutte[j].DaEuro &&
                SiIncontrano(Tutte[i].Quando, Tutte[j].Quando))
                Rifiuta(u"Contributi: «%1» ha due importi nello stesso tempo"_s.arg(Tutte[i].Codice));
}

}  // namespace

void ControllaNorme(const Norme& Insieme)
{
    ControllaSospensioni(Insieme.Sospensioni());
    ControllaFeste(Insieme.Feste());
    ControllaMaterie(Insieme);
    ControllaRegole(Insieme);
    ControllaCatene(Insieme);
    ControllaContributi(Insieme.Contributi());
}
