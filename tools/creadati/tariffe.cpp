#include "creadati/tariffe.h"

#include "creadati/colonne.h"
#include "creadati/compensi.h"
#include "creadati/importi.h"
#include "creadati/tabellatesto.h"
#include "creadati/tariffa55.h"
#include "platform/base/errore.h"

#include <QRegularExpression>
#include <QSet>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// A description becomes a note's line, which holds this many characters.
constexpr int MassimoDescrizione = 60;
constexpr QStringView Indeterminato = u"Valore Indeterminato";

const QStringList Categorie{Civile.toString(), Penale.toString(), Stragiudiziale.toString()};
const QStringList Materie{u"C"_s, u"S"_s};

/// In what the tables of two tariffs differ.
struct FormaTariffa
{
    QString Suffisso;          ///< stands behind the names of its tables
    QList<int> Indeterminati;  ///< civil brackets of undetermined value
    bool ConVuoti = false;     ///< an item may lack amounts in some brackets and offices
};
const FormaTariffa Del2012{{}, {ScaglioneIndeterminato}, false};
const FormaTariffa Del2014{u"55"_s, {ScaglioneIndeterminato, 13, 14}, true};

QString FileTabella(const QString& Cartella, const QString& Nome, const FormaTariffa& Forma)
{
    return Cartella + Nome + Forma.Suffisso + u".csv"_s;
}

QString LeggiScelta(const TabellaTesto& Tabella, int Riga, const QString& Colonna, const QStringList& Ammesse)
{
    QString Cella = Tabella.Testo(Riga, Colonna);
    if (!Ammesse.contains(Cella))
        Tabella.Rifiuta(Riga, Colonna, u"«%1» non è fra %2"_s.arg(Cella, Ammesse.join(u", "_s)));
    return Cella;
}

/// The keys met so far in one column, within a category or matter.
class Viste
{
public:
    void Aggiungi(const TabellaTesto& Tabella, int Riga, const QString& Colonna, const QString& Ambito,
                  int Chiave)
    {
        const QString Intera = Colonna + u'/' + Ambito + u'/' + QString::number(Chiave);
        if (Chiavi.contains(Intera))
            Tabella.Rifiuta(Riga, Colonna, u"il numero %1 è già in una riga precedente"_s.arg(Chiave));
        Chiavi.insert(Intera);
    }

private:
    QSet<QString> Chiavi;
};

// ---- Authorities ---------------------------------------------------------------------------------

using colonne::Categoria;
using colonne::Gruppo;
const auto Compatibili = u"compatibili"_s;

AutoritaTariffa LeggiEnte(const TabellaTesto& Tabella, int Riga)
{
    AutoritaTariffa Ente;
    Ente.Categ = LeggiScelta(Tabella, Riga, Categoria, Categorie);
    Ente.IDX = Tabella.Intero(Riga, u"ordine"_s, 1, 32767);
    Ente.Dati.IDAut = Tabella.Intero(Riga, u"numero"_s, 1, 32767);
    Ente.Dati.DesAut = Tabella.Testo(Riga, u"nome"_s, 100);
    Ente.Dati.PreLoad = Tabella.SiNo(Riga, u"precarica"_s);
    Ente.Gruppo = Tabella.Testo(Riga, Gruppo, 60, Ente.Categ == Stragiudiziale);
    Ente.Compatib = Tabella.Testo(Riga, Compatibili, 255);
    return Ente;
}

/// The program looks for comma, number, comma: without the outer commas the first and the last number
/// would never be found.
void ControllaCompatibili(const TabellaTesto& Tabella, int Riga, const QList<AutoritaTariffa>& Enti)
{
    static const QRegularExpression Elenco(u"\\A,(?:[1-9][0-9]{0,4},)+\\z"_s);
    const QString Testo = Enti[Riga].Compatib;
    if (Testo == u"*")
        return;
    if (!Elenco.match(Testo).hasMatch())
        Tabella.Rifiuta(Riga, Compatibili, u"serve * oppure un elenco di numeri chiuso fra virgole"_s);
    for (const QString& Numero : Testo.split(u',', Qt::SkipEmptyParts)) {
        const bool Noto = std::ranges::any_of(Enti, [&](const AutoritaTariffa& Altro) {
            return Altro.Categ == Enti[Riga].Categ && Altro.Dati.IDAut == Numero.toInt();
        });
        if (!Noto)
            Tabella.Rifiuta(Riga, Compatibili,
                            u"la categoria %1 non ha l'autorità %2"_s.arg(Enti[Riga].Categ, Numero));
    }
}

QList<AutoritaTariffa> LeggiEnti(const TabellaTesto& Tabella)
{
    QList<AutoritaTariffa> Enti;
    Viste Chiavi;
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        Enti.append(LeggiEnte(Tabella, Riga));
        Chiavi.Aggiungi(Tabella, Riga, u"numero"_s, {}, Enti.last().Dati.IDAut);
        Chiavi.Aggiungi(Tabella, Riga, u"ordine"_s, Enti.last().Categ, Enti.last().IDX);
    }
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga)
        ControllaCompatibili(Tabella, Riga, Enti);
    return Enti;
}

// ---- Brackets ------------------------------------------------------------------------------------

using colonne::Da;
using colonne::Numero;
const auto Materia = u"materia"_s;

bool SenzaValore(const ScaglioneValore& Scaglione)
{
    return Scaglione.DesVal.startsWith(Indeterminato);
}

ScaglioneValore LeggiScaglione(const TabellaTesto& Tabella, int Riga)
{
    ScaglioneValore Letto;
    Letto.NumSca = Tabella.Intero(Riga, Numero, 1, MassimoScaglioni);
    Letto.DaVal = Tabella.Importo(Riga, Da);
    Letto.AVal = Tabella.Importo(Riga, u"a"_s);
    Letto.RicValore = Tabella.SiNo(Riga, u"valore richiesto"_s);
    Letto.DesVal = Tabella.Testo(Riga, u"testo"_s, 100);
    if (Letto.DaVal > Letto.AVal)
        Tabella.Rifiuta(Riga, Da, u"il limite inferiore supera quello superiore"_s);
    return Letto;
}

/// Brackets follow each other to the cent, the first from one cent on; undetermined value has no limits.
void ControllaLimiti(const TabellaTesto& Tabella, int Riga, const QList<ScaglioneValore>& Precedenti,
                     const ScaglioneValore& Letto)
{
    if (SenzaValore(Letto)) {
        if (Letto.AVal > 0)
            Tabella.Rifiuta(Riga, u"a"_s, u"il valore indeterminato non ha limiti"_s);
        return;
    }
    double Atteso = 0.01;
    for (const ScaglioneValore& Prima : Precedenti) {
        if (!SenzaValore(Prima))
            Atteso = Prima.AVal + 0.01;
    }
    // A whole number of cents apart, so that half a cent tells them apart whatever the binary value.
    if (Letto.DaVal > Atteso + 0.005)
        Tabella.Rifiuta(Riga, Da,
                        u"lo scaglione lascia un vuoto: doveva cominciare da %1"_s.arg(Atteso, 0, 'f', 2));
    if (Letto.DaVal < Atteso - 0.005)
        Tabella.Rifiuta(
            Riga, Da,
            u"lo scaglione si sovrappone al precedente: doveva cominciare da %1"_s.arg(Atteso, 0, 'f', 2));
}

/// The program refuses order for payment and writ of execution by the number 8.
void ControllaIndeterminato(const TabellaTesto& Tabella, int Riga, const ScaglioneValore& Letto,
                            const QList<int>& Ammessi)
{
    if (SenzaValore(Letto) && !Ammessi.contains(Letto.NumSca)) {
        QStringList Numeri;
        for (const int Ammesso : Ammessi)
            Numeri.append(QString::number(Ammesso));
        Tabella.Rifiuta(Riga, Numero,
                        u"il valore indeterminato sta al numero %1"_s.arg(Numeri.join(u" o "_s)));
    }
    if (!SenzaValore(Letto) && Ammessi.contains(Letto.NumSca))
        Tabella.Rifiuta(Riga, u"testo"_s,
                        u"il numero %1 comincia con «%2»"_s.arg(Letto.NumSca).arg(Indeterminato));
}

QHash<QString, QList<ScaglioneValore>> LeggiTabellaScaglioni(const TabellaTesto& Tabella,
                                                             const FormaTariffa& Forma)
{
    QHash<QString, QList<ScaglioneValore>> Scaglioni;
    Viste Chiavi;
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        const QString Ambito = LeggiScelta(Tabella, Riga, Materia, Materie);
        QList<ScaglioneValore>& Righe = Scaglioni[Ambito];
        if (Righe.size() == MassimoScaglioni)
            Tabella.Rifiuta(Riga, Materia, u"la materia %1 ha più di 21 scaglioni"_s.arg(Ambito));
        const ScaglioneValore Letto = LeggiScaglione(Tabella, Riga);
        Chiavi.Aggiungi(Tabella, Riga, Numero, Ambito, Letto.NumSca);
        if (Ambito == Materie.first())
            ControllaIndeterminato(Tabella, Riga, Letto, Forma.Indeterminati);
        ControllaLimiti(Tabella, Riga, Righe, Letto);
        Righe.append(Letto);
    }
    for (const QString& Ambito : Materie) {
        if (Scaglioni[Ambito].isEmpty())
            Tabella.RifiutaInFondo(Materia, u"la materia %1 non ha scaglioni"_s.arg(Ambito));
    }
    for (const int Atteso : Forma.Indeterminati) {
        if (std::ranges::find(Scaglioni[Materie.first()], Atteso, &ScaglioneValore::NumSca) ==
            Scaglioni[Materie.first()].end())
            Tabella.RifiutaInFondo(u"testo"_s, u"manca il valore indeterminato al numero %1"_s.arg(Atteso));
    }
    return Scaglioni;
}

// ---- Items ---------------------------------------------------------------------------------------

using colonne::Codice;
const auto Voce = u"voce"_s;
const auto Quantita = u"quantità"_s;

VoceTariffa LeggiVoce(const TabellaTesto& Tabella, int Riga)
{
    VoceTariffa Letta;
    Letta.Codice = Tabella.Intero(Riga, Codice, 1, 32767);
    // 1000 is where the program's codes for rewriting a line begin; 999 is the free item.
    Letta.NVoce = Tabella.Intero(Riga, Voce, 1, VoceLibera);
    Letta.NVis = Tabella.Intero(Riga, u"ordine"_s, 0, 32767);
    Letta.Descrizione = Tabella.Testo(Riga, u"descrizione"_s, MassimoDescrizione);
    return Letta;
}

/// Quantity rule: empty, H for hours, > and a floor, or anything else for a plain question.
QString LeggiQuantita(const TabellaTesto& Tabella, int Riga)
{
    static const QRegularExpression Minimo(u"\\A>[0-9]{1,9}([.][0-9]{1,2})?\\z"_s);
    QString Regola = Tabella.Testo(Riga, Quantita, 20, true);
    if (Regola.startsWith(u'>') && !Minimo.match(Regola).hasMatch())
        Tabella.Rifiuta(Riga, Quantita, u"dopo > serve un importo"_s);
    return Regola;
}

/// A key of two categories would give a line the price of another service once the category changes. The free
/// item has no price and is one and the same in all of them.
void ControllaDisgiunta(const TabellaTesto& Tabella, int Riga, const QString& Categ,
                        const QHash<QString, QList<VoceTariffa>>& Voci, const VoceTariffa& Letta)
{
    for (auto Altra = Voci.begin(); Altra != Voci.end(); ++Altra) {
        const bool Comune = std::ranges::any_of(Altra.value(), [&](const VoceTariffa& Una) {
            return Una.Codice == Letta.Codice && (Una.NVoce != VoceLibera || Letta.NVoce != VoceLibera);
        });
        if (Altra.key() != Categ && Comune)
            Tabella.Rifiuta(Riga, Codice,
                            u"il codice %1 è già della categoria %2"_s.arg(Letta.Codice).arg(Altra.key()));
    }
}

QHash<QString, QList<VoceTariffa>> LeggiVoci(const TabellaTesto& Tabella)
{
    QHash<QString, QList<VoceTariffa>> Voci;
    Viste Chiavi;
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        const QString Categ = LeggiScelta(Tabella, Riga, Categoria, Categorie);
        VoceTariffa Letta = LeggiVoce(Tabella, Riga);
        Letta.Quantita = LeggiQuantita(Tabella, Riga);
        Chiavi.Aggiungi(Tabella, Riga, Codice, Categ, Letta.Codice);
        Chiavi.Aggiungi(Tabella, Riga, Voce, Categ, Letta.NVoce);
        ControllaDisgiunta(Tabella, Riga, Categ, Voci, Letta);
        Voci[Categ].append(Letta);
    }
    for (const QString& Categ : Categorie) {
        if (std::ranges::find(Voci[Categ], VoceLibera, &VoceTariffa::NVoce) == Voci[Categ].end())
            Tabella.RifiutaInFondo(Voce, u"alla categoria %1 manca la voce 999"_s.arg(Categ));
    }
    return Voci;
}

bool HaCodice(const QList<VoceTariffa>& Voci, int Chiave)
{
    return std::ranges::any_of(Voci, [&](const VoceTariffa& Una) { return Una.Codice == Chiave; });
}

/// @param Categ empty for any
bool HaUfficio(const Tariffe& Dati, const QString& Categ, int IDAut)
{
    return std::ranges::any_of(Dati.Enti, [&](const AutoritaTariffa& Ente) {
        return (Categ.isEmpty() || Ente.Categ == Categ) && Ente.Dati.IDAut == IDAut;
    });
}

/// A former key leads to an item of its category and is none of that category's present ones.
QList<ChiavePrecedente> LeggiPrecedenti(const QString& Cartella, const Tariffe& Dati)
{
    const auto Precedente = u"precedente"_s;
    const TabellaTesto Tabella(Cartella + u"chiavi_precedenti.csv"_s, {Categoria, Precedente, Codice});
    QList<ChiavePrecedente> Lette;
    Viste Chiavi;
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        const ChiavePrecedente Letta{LeggiScelta(Tabella, Riga, Categoria, Categorie),
                                     Tabella.Intero(Riga, Precedente, 1, 32767),
                                     Tabella.Intero(Riga, Codice, 1, 32767)};
        const QList<VoceTariffa> Voci = Dati.Voci[Letta.Categ];
        Chiavi.Aggiungi(Tabella, Riga, Precedente, Letta.Categ, Letta.Precedente);
        if (HaCodice(Voci, Letta.Precedente))
            Tabella.Rifiuta(Riga, Precedente, u"il codice %1 è di una voce presente"_s.arg(Letta.Precedente));
        if (!HaCodice(Voci, Letta.Codice))
            Tabella.Rifiuta(Riga, Codice, u"nessuna voce ha il codice %1"_s.arg(Letta.Codice));
        Lette.append(Letta);
    }
    return Lette;
}

QList<VoceTariffa> LeggiSpese(const QString& Cartella)
{
    const TabellaTesto Tabella(Cartella + u"spese.csv"_s, {Codice, Voce, u"ordine"_s, u"descrizione"_s});
    QList<VoceTariffa> Spese;
    Viste Chiavi;
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        Spese.append(LeggiVoce(Tabella, Riga));
        Chiavi.Aggiungi(Tabella, Riga, Codice, {}, Spese.last().Codice);
        Chiavi.Aggiungi(Tabella, Riga, Voce, {}, Spese.last().NVoce);
    }
    return Spese;
}

// ---- Tables against each other -------------------------------------------------------------------

bool HaPenali(const Tariffe& Dati, const QString& Nome)
{
    return std::ranges::any_of(Dati.Penali,
                               [&](const auto& Importo) { return Importo.first.Gruppo == Nome; });
}

/// An authority whose group lacks amounts would open with an empty or a broken catalogue.
void ControllaGruppi(const TabellaTesto& Tabella, const Tariffe& Dati, bool ConVuoti)
{
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        const AutoritaTariffa& Ente = Dati.Enti[Riga];
        if (Ente.Categ == Civile) {
            const auto Primo = Dati.Civili.lower_bound({Ente.Gruppo, 0, 0});
            if (Primo == Dati.Civili.end() || Primo->first.Gruppo != Ente.Gruppo)
                Tabella.Rifiuta(Riga, Gruppo, u"il gruppo «%1» non ha importi civili"_s.arg(Ente.Gruppo));
        }
        if (Ente.Categ != Penale)
            continue;
        if (ConVuoti) {
            if (!HaPenali(Dati, Ente.Gruppo))
                Tabella.Rifiuta(Riga, Gruppo, u"il gruppo «%1» non ha importi penali"_s.arg(Ente.Gruppo));
            continue;
        }
        for (const VoceTariffa& Una : Dati.Voci[Ente.Categ]) {
            if (Una.NVoce != VoceLibera && !Dati.Penali.contains({Ente.Gruppo, Una.Codice, 0}))
                Tabella.Rifiuta(Riga, Gruppo,
                                u"al gruppo «%1» manca l'importo penale della voce %2"_s.arg(Ente.Gruppo)
                                    .arg(Una.Codice));
        }
    }
}

/// An item that nothing gives an amount to: a civil one in no group, an extrajudicial one in a bracket.
void ControllaVoci(const TabellaTesto& Tabella, const Tariffe& Dati, bool ConVuoti)
{
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        const QString Categ = Tabella.Testo(Riga, Categoria);
        const int Chiave = Tabella.Intero(Riga, Codice, 1, 32767);
        if (Tabella.Intero(Riga, Voce, 1, VoceLibera) == VoceLibera)
            continue;
        if (Categ == Civile &&
            std::ranges::none_of(Dati.Civili, [&](const auto& Uno) { return Uno.first.Codice == Chiave; }))
            Tabella.Rifiuta(Riga, Codice, u"nessun gruppo civile ha la voce %1"_s.arg(Chiave));
        if (Categ != Stragiudiziale)
            continue;
        if (ConVuoti && std::ranges::any_of(Dati.Stragiudiziali, [&](const auto& Formula) {
                return Formula.first.Codice == Chiave;
            }))
            continue;
        for (const ScaglioneValore& Uno : Dati.Scaglioni[u"S"_s]) {
            if (!Dati.Stragiudiziali.contains({QString(), Chiave, Uno.NumSca}))
                Tabella.Rifiuta(
                    Riga, Codice,
                    u"alla voce %1 mancano le formule dello scaglione %2"_s.arg(Chiave).arg(Uno.NumSca));
        }
    }
}

/// The tables that every tariff has; what gives the amounts is read between them and the checks.
Tariffe Leggi(const QString& Cartella, const FormaTariffa& Forma,
              const std::function<void(const QString&, Tariffe&)>& Importi)
{
    const TabellaTesto TabellaEnti(
        FileTabella(Cartella, u"autorita"_s, Forma),
        {Categoria, u"ordine"_s, Numero, u"nome"_s, Gruppo, u"precarica"_s, Compatibili});
    const TabellaTesto TabellaScaglioni(FileTabella(Cartella, u"scaglioni"_s, Forma),
                                        {Materia, Numero, Da, u"a"_s, u"valore richiesto"_s, u"testo"_s});
    const TabellaTesto TabellaVoci(FileTabella(Cartella, u"voci"_s, Forma),
                                   {Categoria, Codice, Voce, u"ordine"_s, u"descrizione"_s, Quantita});
    Tariffe Dati;
    Dati.Enti = LeggiEnti(TabellaEnti);
    Dati.Scaglioni = LeggiTabellaScaglioni(TabellaScaglioni, Forma);
    Dati.Voci = LeggiVoci(TabellaVoci);
    Importi(Cartella, Dati);
    ControllaGruppi(TabellaEnti, Dati, Forma.ConVuoti);
    ControllaVoci(TabellaVoci, Dati, Forma.ConVuoti);
    Dati.Spese = LeggiSpese(Cartella);
    return Dati;
}

}  // namespace

Tariffe LeggiTariffe(const QString& Cartella)
{
    Tariffe Dati = Leggi(Cartella, Del2012, [](const QString& Tabelle, Tariffe& Lette) {
        LeggiOnorariCivili(Tabelle, Lette);
        LeggiOnorariPenali(Tabelle, Lette);
        LeggiOnorariStragiudiziali(Tabelle + u"onorari_stragiudiziali.csv"_s, Lette);
    });
    Dati.Precedenti = LeggiPrecedenti(Cartella, Dati);
    return Dati;
}

Tariffe LeggiTariffa55(const QString& Cartella)
{
    Tariffe Dati = Leggi(Cartella, Del2014, [](const QString& Tabelle, Tariffe& Lette) {
        LeggiCompensi(Tabelle, Lette);
        LeggiOnorariStragiudiziali(Tabelle + u"onorari_stragiudiziali55.csv"_s, Lette);
    });
    LeggiParticolari(Cartella, Dati);
    return Dati;
}

void ConfrontaTariffe(const Tariffe& Prima, const Tariffe& Dopo)
{
    for (const AutoritaTariffa& Ente : Dopo.Enti)
        if (HaUfficio(Prima, {}, Ente.Dati.IDAut))
            throw Errore(errori::Argomento, u"l'autorità %1 è di due tariffe"_s.arg(Ente.Dati.IDAut));
    for (const QList<VoceTariffa>& Nuove : Dopo.Voci)
        for (const VoceTariffa& Nuova : Nuove)
            for (const QList<VoceTariffa>& Voci : Prima.Voci)
                if (HaCodice(Voci, Nuova.Codice))
                    throw Errore(errori::Argomento, u"la voce %1 è di due tariffe"_s.arg(Nuova.Codice));
    for (const CorrispondenzaTariffa& Pari : Dopo.Corrispondenze)
        if (Pari.Ufficio ? !HaUfficio(Prima, Pari.Categ, Pari.Precedente)
                         : !HaCodice(Prima.Voci[Pari.Categ], Pari.Precedente))
            throw Errore(
                errori::Argomento,
                u"corrispondenze55.csv: la tariffa del 2012 non ha il numero %1"_s.arg(Pari.Precedente));
}
