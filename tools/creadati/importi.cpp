#include "creadati/importi.h"

#include "creadati/colonne.h"
#include "creadati/formule.h"
#include "creadati/tabellatesto.h"

using namespace Qt::StringLiterals;

namespace {

using colonne::Codice;
using colonne::Gruppo;
using colonne::Medio;
using colonne::Scaglione;
const auto Minimo = u"minimo"_s;
const auto Massimo = u"massimo"_s;

const ScaglioneValore& LeggiScaglione(const TabellaTesto& Tabella, int Riga, const Tariffe& Dati,
                                      const QString& Materia)
{
    const int Numero = Tabella.Intero(Riga, Scaglione, 1, MassimoScaglioni);
    const auto Righe = Dati.Scaglioni.constFind(Materia);
    const auto Trovato = std::ranges::find(*Righe, Numero, &ScaglioneValore::NumSca);
    if (Trovato == Righe->end())
        Tabella.Rifiuta(Riga, Scaglione, u"la materia %1 non ha lo scaglione %2"_s.arg(Materia).arg(Numero));
    return *Trovato;
}

Terna LeggiTerna(const TabellaTesto& Tabella, int Riga)
{
    const Terna Letta{Tabella.Importo(Riga, Minimo), Tabella.Importo(Riga, Medio),
                      Tabella.Importo(Riga, Massimo)};
    if (Letta.Minimo > Letta.Medio)
        Tabella.Rifiuta(Riga, Minimo, u"il minimo supera il medio"_s);
    if (Letta.Medio > Letta.Massimo)
        Tabella.Rifiuta(Riga, Medio, u"il medio supera il massimo"_s);
    return Letta;
}

template <typename Valore>
void Aggiungi(const TabellaTesto& Tabella, int Riga, std::map<ChiaveImporto, Valore>& Importi,
              const ChiaveImporto& Chiave, const Valore& Letto)
{
    if (!Importi.emplace(Chiave, Letto).second)
        Tabella.Rifiuta(Riga, Codice, u"la voce %1 è già in una riga precedente"_s.arg(Chiave.Codice));
}

/// An item that a group has in one bracket it has in all: the columns of its row are all read.
void ControllaScaglioniCompleti(const TabellaTesto& Tabella, const Tariffe& Dati)
{
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        ChiaveImporto Chiave{Tabella.Testo(Riga, Gruppo), Tabella.Intero(Riga, Codice, 1, 32767), 0};
        for (const ScaglioneValore& Uno : Dati.Scaglioni[u"C"_s]) {
            Chiave.Scaglione = Uno.NumSca;
            if (!Dati.Civili.contains(Chiave))
                Tabella.Rifiuta(Riga, Scaglione,
                                u"alla voce %1 manca lo scaglione %2"_s.arg(Chiave.Codice).arg(Uno.NumSca));
        }
    }
}

QString LeggiFormula(const TabellaTesto& Tabella, int Riga, const QString& Colonna)
{
    const QString Testo = Tabella.Testo(Riga, Colonna, MassimoFormula);
    const QString Difetto = DifettoFormula(Testo);
    if (!Difetto.isEmpty())
        Tabella.Rifiuta(Riga, Colonna, Difetto);
    return Testo;
}

/// A formula's value somewhere in its bracket.
double ValoreAmmesso(const TabellaTesto& Tabella, int Riga, const QString& Colonna, const QString& Formula,
                     double x)
{
    const std::optional<double> Valore = ValoreFormula(Formula, x);
    if (!Valore)
        Tabella.Rifiuta(Riga, Colonna, u"la formula non ha un valore per x = %1"_s.arg(x, 0, 'f', 2));
    if (*Valore < 0)
        Tabella.Rifiuta(Riga, Colonna, u"la formula è negativa per x = %1"_s.arg(x, 0, 'f', 2));
    return *Valore;
}

Formule LeggiFormule(const TabellaTesto& Tabella, int Riga, const ScaglioneValore& Limiti)
{
    const Formule Lette{LeggiFormula(Tabella, Riga, Minimo), LeggiFormula(Tabella, Riga, Massimo)};
    for (const double x : {Limiti.DaVal, Limiti.DaVal + (Limiti.AVal - Limiti.DaVal) / 2, Limiti.AVal}) {
        const double Basso = ValoreAmmesso(Tabella, Riga, Minimo, Lette.Minimo, x);
        const double Alto = ValoreAmmesso(Tabella, Riga, Massimo, Lette.Massimo, x);
        if (Basso > Alto)
            Tabella.Rifiuta(Riga, Minimo, u"il minimo supera il massimo per x = %1"_s.arg(x, 0, 'f', 2));
    }
    return Lette;
}

}  // namespace

QString LeggiGruppo(const TabellaTesto& Tabella, int Riga, const Tariffe& Dati, QStringView Categ)
{
    const QString Nome = Tabella.Testo(Riga, Gruppo, 60);
    const bool Noto = std::ranges::any_of(
        Dati.Enti, [&](const AutoritaTariffa& Ente) { return Ente.Categ == Categ && Ente.Gruppo == Nome; });
    if (!Noto)
        Tabella.Rifiuta(Riga, Gruppo, u"nessuna autorità %1 appartiene al gruppo «%2»"_s.arg(Categ, Nome));
    return Nome;
}

int LeggiCodice(const TabellaTesto& Tabella, int Riga, const Tariffe& Dati, QStringView Categ)
{
    const int Valore = Tabella.Intero(Riga, Codice, 1, 32767);
    for (const VoceTariffa& Voce : Dati.Voci[Categ.toString()]) {
        if (Voce.Codice != Valore)
            continue;
        if (Voce.NVoce == VoceLibera)
            Tabella.Rifiuta(Riga, Codice, u"la voce 999 non ha importi"_s);
        return Valore;
    }
    Tabella.Rifiuta(Riga, Codice, u"la voce %1 non è fra le voci %2"_s.arg(Valore).arg(Categ));
}

void LeggiOnorariCivili(const QString& Cartella, Tariffe& Dati)
{
    const TabellaTesto Tabella(Cartella + u"onorari_civili.csv"_s,
                               {Gruppo, Codice, Scaglione, Minimo, Medio, Massimo});
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        const ChiaveImporto Chiave{LeggiGruppo(Tabella, Riga, Dati, Civile),
                                   LeggiCodice(Tabella, Riga, Dati, Civile),
                                   LeggiScaglione(Tabella, Riga, Dati, u"C"_s).NumSca};
        Aggiungi(Tabella, Riga, Dati.Civili, Chiave, LeggiTerna(Tabella, Riga));
    }
    ControllaScaglioniCompleti(Tabella, Dati);
}

void LeggiOnorariPenali(const QString& Cartella, Tariffe& Dati)
{
    const TabellaTesto Tabella(Cartella + u"onorari_penali.csv"_s, {Gruppo, Codice, Minimo, Medio, Massimo});
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        const ChiaveImporto Chiave{LeggiGruppo(Tabella, Riga, Dati, Penale),
                                   LeggiCodice(Tabella, Riga, Dati, Penale), 0};
        Aggiungi(Tabella, Riga, Dati.Penali, Chiave, LeggiTerna(Tabella, Riga));
    }
}

void LeggiOnorariStragiudiziali(const QString& Percorso, Tariffe& Dati)
{
    const TabellaTesto Tabella(Percorso, {Codice, Scaglione, Minimo, Massimo});
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        const int Voce = LeggiCodice(Tabella, Riga, Dati, Stragiudiziale);
        const ScaglioneValore& Limiti = LeggiScaglione(Tabella, Riga, Dati, u"S"_s);
        const ChiaveImporto Chiave{QString(), Voce, Limiti.NumSca};
        Aggiungi(Tabella, Riga, Dati.Stragiudiziali, Chiave, LeggiFormule(Tabella, Riga, Limiti));
    }
}
