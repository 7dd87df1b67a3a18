#include "feenote/modOnorari.h"

#include "core/modErrori.h"
#include "core/sessione.h"
#include "feenote/modParametri.h"
#include "feenote/modQuantita.h"
#include "feenote/modVariazione.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/messaggi.h"
#include "tariffs/modEvaluate.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// Order for payment and writ of execution: they admit no undetermined value.
constexpr int VoceIngiunzione = 19;
constexpr int VocePrecetto = 20;

/// Medium, minimum and maximum of one unit of an item.
struct Terna
{
    double Med = 0.0;
    double Min = 0.0;
    double Max = 0.0;
};

DatiOnorario Moltiplica(const Terna& Unitaria, double Quant)
{
    DatiOnorario Dati;
    Dati.Quant = Quant;
    Dati.Importo = Quant * Unitaria.Med;
    Dati.Medio = Quant * Unitaria.Med;
    Dati.Min = Quant * Unitaria.Min;
    Dati.Max = Quant * Unitaria.Max;
    return Dati;
}

Terna TernaDaTabella(const Recordset& Voce, int Scaglione)
{
    return {ImportoCatalogo(Voce, Scaglione, u"Med"_s), ImportoCatalogo(Voce, Scaglione, u"Min"_s),
            ImportoCatalogo(Voce, Scaglione, u"Max"_s)};
}

/// The value of the case as formulas take it: to two decimals.
double IncognitaFormule(const Parcella& Nota)
{
    return NumeroDi(Format(Nota.ImportoPrec, u"#.00"));
}

/// Evaluates a formula of the catalogue. A failure goes to `Guasto` (code and text) and counts 0.
template <class F>
double ValutaFormula(const Parcella& Nota, const Recordset& Voce, const QString& Estremo, F&& Guasto)
{
    int Codice = 0;
    const QString Formula = FormulaCatalogo(Voce, Nota.Scaglione, Estremo);
    const double Valore = ValutaEspressione(Formula, IncognitaFormule(Nota), Codice);
    if (Codice != 0)
        Guasto(Codice);
    return Valore;
}

/// The table gives only the ends of an out-of-court item; its medium is the mid-point.
template <class F>
Terna TernaDaFormule(const Parcella& Nota, const Recordset& Voce, F&& Guasto)
{
    Terna Risultato;
    Risultato.Min = ValutaFormula(Nota, Voce, u"Min"_s, Guasto);
    Risultato.Max = ValutaFormula(Nota, Voce, u"Max"_s, Guasto);
    Risultato.Med = Medio(Risultato.Min, Risultato.Max);
    return Risultato;
}

bool GiaInserito(const Parcella& Nota, int NVoce)
{
    for (int Riga = 0; Riga < Nota.xOnorari.Righe(); ++Riga)
        if (NumeroDi(Nota.xOnorari(Riga, OnoNVoce)) == NVoce)
            return true;
    return false;
}

int NumeroVoce(const Recordset& Voce)
{
    return int(NumeroDi(Voce.Value(u"NVoce"_s)));
}

QString Descrizione(const Recordset& Voce)
{
    return Voce.Value(u"DescrOno"_s, QString()).toString();
}

/// The note's variation and what its parties add, for the line of an item.
void Varia(const Parcella& Nota, DatiOnorario& Dati)
{
    if (Dati.NVoce == VoceLibera)
        return;
    Dati.VarPerc = VariazioneDi(Nota, Dati.CodVoce);
    Dati.AumParti = AumentoParti(Nota);
}

/// True for an item of the tariff that has no amount for the bracket, or the court, of the note.
bool NonPrevista(const Parcella& Nota, const Recordset& Voce)
{
    return ::NonPrevista(*Nota.Tariffa, Nota.CodCateg, Voce, Nota.Scaglione);
}

/// Where an item has no amount: in criminal matters the court plays the role of the bracket.
QString DoveNonPrevista(const Parcella& Nota)
{
    return (Nota.CodCateg == Penale ? u"per l'autorità selezionata nella tariffa "_s
                                    : u"per lo scaglione selezionato nella tariffa "_s) +
           Nota.Tariffa->Nome.toString() + u'!';
}

int RigaDestinazione(Parcella& Nota, int Riga, std::optional<int> Corrente)
{
    if (Riga == RigaNuova) {
        if (Nota.xOnorari.Vuota())
            Nota.RigheDaRicalcolare = false;  // the lines it spoke of are gone
        const int Nuova = RowIns(Nota, TipoRiga::Onorari, Corrente);
        Nota.xOnorari.InserisciRiga(Nuova);
        return Nuova;
    }
    return Riga >= RigaConBase ? Riga - RigaConBase : Riga;
}

/// What must be settled before a line is made: refusals, the second insertion. False: no line.
bool InserzioneAmmessa(const Parcella& Nota, const Recordset& Voce, int NVoce, bool Chiedi)
{
    if (Nota.CodCateg == Civile && (NVoce == VoceIngiunzione || NVoce == VocePrecetto) &&
        Nota.Scaglione == ScaglioneIndeterminato) {
        MsgErrore(u"Per il procedimento di ingiunzione e per gli atti precetto il valore non può essere "
                  u"indeterminato!"_s);
        return false;
    }
    if (NonPrevista(Nota, Voce)) {
        MsgErrore(u"L'onorario "_s + Descrizione(Voce) + u" non è previsto "_s + DoveNonPrevista(Nota));
        return false;
    }
    if (!Chiedi || NVoce == VoceLibera || !GiaInserito(Nota, NVoce))
        return true;
    const QString Domanda =
        u"L'onorario "_s + Descrizione(Voce) + u" è stato già inserito. Procedo con l'inserimento?"_s;
    return MsgBox(Domanda, vbYesNo + vbQuestion, TitoloDomanda.toString()) == vbYes;
}

/// A failed formula is told with the evaluator's text, and the insertion goes on with 0 for it.
Terna TernaPerInserimento(const Parcella& Nota, const Recordset& Voce, int NVoce)
{
    if (Nota.CodCateg != Stragiudiziale)
        return TernaDaTabella(Voce, Nota.Scaglione);
    if (NVoce == VoceLibera)
        return {};
    if (sessione::ModoDebug)
        TraceDebug(u"calcolo strag 1. Min="_s + FormulaCatalogo(Voce, Nota.Scaglione, u"Min"_s) + u" Imp="_s +
                   CStr(IncognitaFormule(Nota)));
    const Terna Risultato =
        TernaDaFormule(Nota, Voce, [](int Codice) { MsgErrore(MessaggioErrore(Codice)); });
    if (sessione::ModoDebug)
        TraceDebug(u"calcolo strag 2. Min= "_s + CStr(Risultato.Min));
    return Risultato;
}

void AvvisaNonPrevisto(const QString& Descr, const QString& Dove)
{
    MsgBox(u"Attenzione, l'onorario "_s + Descr + u" non è previsto "_s + Dove, vbInformation,
           TitoloMessaggio.toString());
}

/// An older-tariff share of the case cannot be worked out without a value. Formula texts can.
bool MancaValore(const Parcella& Nota, const Terna& Unitaria)
{
    return Nota.ImportoPrec == 0 && Nota.CodCateg != Stragiudiziale && (Unitaria.Min < 0 || Unitaria.Max < 0);
}

Terna TernaPerRicalcolo(const Parcella& Nota, const Recordset& Voce)
{
    if (Nota.CodCateg != Stragiudiziale)
        return TernaDaTabella(Voce, Nota.Scaglione);
    return TernaDaFormule(Nota, Voce, [](int Codice) { throw Errore(Codice, MessaggioErrore(Codice)); });
}

/// What the catalogue says of a code; nothing when the authority lacks it.
struct VoceTrovata
{
    int NVoce = 0;
    std::optional<Terna> Unitaria;  ///< nothing: the tariff has no amount for the bracket
};

/// Looks codes up in a clone of the catalogue, each of them once: the catalogue on screen keeps its place.
class RicercaVoci
{
public:
    RicercaVoci(const Parcella& DiNota, const Catalogo& In)
        : Nota(DiNota), Chiave(In.ChiaveOno), Voci(In.datOno.Clone())
    {}

    const std::optional<VoceTrovata>& operator()(const QVariant& Codice)
    {
        const QString Criterio = CriterioVoce(Nota.CodCateg, Chiave, Codice, Nota.IDAutSelezionata());
        auto Trovata = Gia.find(Criterio);
        if (Trovata == Gia.end())
            Trovata = Gia.insert(Criterio, Cerca(Criterio));
        return *Trovata;
    }

private:
    std::optional<VoceTrovata> Cerca(const QString& Criterio)
    {
        Voci.FindFirst(Criterio);
        if (Voci.NoMatch())
            return std::nullopt;
        if (NonPrevista(Nota, Voci))
            return VoceTrovata{NumeroVoce(Voci), std::nullopt};
        return VoceTrovata{NumeroVoce(Voci), TernaPerRicalcolo(Nota, Voci)};
    }

    const Parcella& Nota;
    QString Chiave;
    Recordset Voci;
    QHash<QString, std::optional<VoceTrovata>> Gia;  ///< by their criterion
};

void RicalcolaRiga(Parcella& Nota, RicercaVoci& Ricerca, int Riga)
{
    TabellaRighe& Righe = Nota.xOnorari;
    const QVariant Codice = Righe(Riga, OnoCodVoce);
    if (NumeroDi(Codice) <= 0 || NumeroDi(Righe(Riga, OnoNVoce)) >= PrimaVoceFuoriTariffa)
        return;

    const QString Descr = CStr(Righe(Riga, OnoDescr));
    const std::optional<VoceTrovata>& Voce = Ricerca(Codice);
    if (!Voce) {
        AvvisaNonPrevisto(Descr, u"per l'autorità selezionata!"_s);
        return;
    }
    // An item keeps its code across authorities, while its number in the decree may differ.
    if (Nota.CodCateg == Civile)
        Righe(Riga, OnoNVoce) = Voce->NVoce;
    if (!Voce->Unitaria) {
        AvvisaNonPrevisto(Descr, DoveNonPrevista(Nota));
        return;
    }
    if (MancaValore(Nota, *Voce->Unitaria)) {
        MsgBox(u"Attenzione, l'onorario "_s + Descr +
                   u" prevedendo un valore definito della causa non sarà ricalcolato"_s,
               vbInformation, TitoloMessaggio.toString());
        return;
    }

    DatiOnorario Dati = Moltiplica(*Voce->Unitaria, NumeroDi(Righe(Riga, OnoQta)));
    Dati.NVoce = int(NumeroDi(Righe(Riga, OnoNVoce)));
    Dati.Descr = Descr;
    Dati.CodVoce = Codice;
    Varia(Nota, Dati);
    const QVariant Data = Righe(Riga, OnoData);
    AddModOnor(Nota, Dati, Riga + RigaConBase);
    Righe(Riga, OnoData) = Data;  // the day of the service does not change with the tariff
}

}  // namespace

int AddModOnor(Parcella& Nota, const DatiOnorario& Dati, int Riga, std::optional<int> Corrente)
{
    const bool ConBase = Riga == RigaNuova || Riga >= RigaConBase;
    const int Destinazione = RigaDestinazione(Nota, Riga, Corrente);
    TabellaRighe& Righe = Nota.xOnorari;
    const int Decimali = Nota.Tariffa->Decimali;
    if (ConBase) {
        Righe(Destinazione, OnoBaseMedio) = ArrotondaRiga(Dati.Medio, Decimali);
        Righe(Destinazione, OnoBaseMin) = ArrotondaRiga(Dati.Min, Decimali);
        Righe(Destinazione, OnoBaseMax) = ArrotondaRiga(Dati.Max, Decimali);
        Righe(Destinazione, OnoVarPerc) = Dati.VarPerc;
    }
    // The variation works on the raw product, which is rounded once, after it.
    const auto Variato = [&](double Valore) {
        if (Dati.AumParti != 0)
            Valore *= 1 + Dati.AumParti / 100.0;
        if (Dati.VarPerc != 0)
            Valore *= 1 + PercentoEsatto(Nota, Dati.VarPerc) / 100.0;
        return ArrotondaRiga(Valore, Decimali);
    };
    Righe(Destinazione, OnoData) = QString();
    Righe(Destinazione, OnoDescr) = Dati.Descr;
    Righe(Destinazione, OnoQta) = Dati.Quant;
    Righe(Destinazione, OnoImporto) = Variato(Dati.Importo);
    Righe(Destinazione, OnoMedio) = Variato(Dati.Medio);
    Righe(Destinazione, OnoMin) = Variato(Dati.Min);
    Righe(Destinazione, OnoMax) = Variato(Dati.Max);
    Righe(Destinazione, OnoCodVoce) = Dati.CodVoce;
    Righe(Destinazione, OnoNVoce) = Dati.NVoce;
    SetModificata(Nota, true);
    return Destinazione;
}

bool NonPrevista(const Decreto& Legge, QStringView Categ, const Recordset& Voce, int Scaglione)
{
    if (!Legge.Dichiarato || NumeroVoce(Voce) == VoceLibera)
        return false;
    if (Categ == Stragiudiziale)
        return SenzaImporto(Voce, Scaglione);
    constexpr std::array<QStringView, 3> Importi{u"Med", u"Min", u"Max"};
    return std::ranges::any_of(Importi, [&](QStringView Nome) {
        return !Voce.Value(QString::number(Scaglione) + Nome.toString()).isValid();
    });
}

double Medio(double Min, double Max)
{
    return Max > 0 ? Arrotonda2(Min + (Max - Min) / 2) : 0.0;
}

void LoadOnoDir(Parcella& Nota, Catalogo& Voci)
{
    Voci =
        ApriCatalogo(*Nota.Tariffa, Nota.cmbCateg < 0 ? QString() : Nota.CodCateg, Nota.IDAutSelezionata());
    // A failed formula is told once: the note keeps what was recalculated before it, and is not asked again.
    if (Nota.RicalcoloNecessario && !Nota.xOnorari.Vuota() && Voci.datOno.Aperto()) {
        const std::optional<OpzioneAumRid> Opzione = Nota.OpzioneSalvata;
        const std::optional<AumentoSalvato> Parti = Nota.PartiSalvate;
        LasciaVariazioneSalvata(Nota);
        if (Protetta([&] { RicalcolaOnorari(Nota, Voci); })) {
            Nota.RigheDaRicalcolare = false;
            Nota.VariazioneTenuta = AumRidLibera;  // the lines are those of the option in force
        } else {
            Nota.OpzioneSalvata = Opzione;
            Nota.PartiSalvate = Parti;
        }
    }
    Nota.RicalcoloNecessario = false;
}

int EntraOnorari(Parcella& Nota, Catalogo& Voci)
{
    LoadOnoDir(Nota, Voci);
    const bool Precarica = Nota.ListaAutorita.value(Nota.cmbAutor).PreLoad;
    if (Nota.CodCateg == Stragiudiziale || !Precarica || !Nota.xOnorari.Vuota())
        return 0;
    return PrecaricaOnorari(Nota, Voci);
}

int PrecaricaOnorari(Parcella& Nota, Catalogo& Voci)
{
    int Inserite = 0;
    int Saltate = 0;
    for (Voci.datOno.MoveFirst(); !Voci.datOno.Eof(); Voci.datOno.MoveNext()) {
        // As text: "95" stands above "900" and is left to the user.
        if (Voci.datOno.Value(u"NVoce"_s, QString()).toString() >= u"900")
            continue;
        if (NonPrevista(Nota, Voci.datOno)) {
            ++Saltate;
            continue;
        }
        DatiOnorario Dati = Moltiplica(TernaDaTabella(Voci.datOno, Nota.Scaglione), 1.0);
        Dati.NVoce = NumeroVoce(Voci.datOno);
        Dati.Descr = Descrizione(Voci.datOno);
        Dati.CodVoce = Voci.datOno.Value(Voci.ChiaveOno);
        Varia(Nota, Dati);
        // No current row, whatever the list's mode: inserting at one would turn the phases round.
        AddModOnor(Nota, Dati, RigaNuova, std::nullopt);
        ++Inserite;
    }
    Voci.datOno.MoveFirst();
    // A court that has no such phase is no matter for a word; one that none of them is for, is.
    if (Inserite == 0 && Saltate > 0)
        MsgBox(u"Attenzione, nessuna voce è prevista "_s + DoveNonPrevista(Nota), vbInformation,
               TitoloMessaggio.toString());
    return Inserite;
}

std::optional<int> InserisciOnorario(Parcella& Nota, const Catalogo& Voci, std::optional<int> Corrente,
                                     std::optional<double> Quantita)
{
    const Recordset& Voce = Voci.datOno;
    const int NVoce = NumeroVoce(Voce);
    if (!InserzioneAmmessa(Nota, Voce, NVoce, !Quantita))
        return std::nullopt;

    const QString QtaOno = Voce.Value(u"QtaOno"_s, QString()).toString();
    double Quant = Quantita.value_or(1.0);
    if (!Quantita && !QtaOno.isEmpty()) {
        Quant = GetQuant(Descrizione(Voce), QtaOno);
        if (Quant == 0)
            return std::nullopt;
    }
    DatiOnorario Dati = Moltiplica(TernaPerInserimento(Nota, Voce, NVoce), Quant);
    Dati.NVoce = NVoce;
    Dati.Descr = Descrizione(Voce);
    Dati.CodVoce = Voce.Value(Voci.ChiaveOno);
    Varia(Nota, Dati);
    return AddModOnor(Nota, Dati, RigaNuova, Corrente);
}

void RicalcolaOnorari(Parcella& Nota, const Catalogo& Voci)
{
    RicercaVoci Ricerca(Nota, Voci);
    for (int Riga = 0; Riga < Nota.xOnorari.Righe(); ++Riga)
        RicalcolaRiga(Nota, Ricerca, Riga);
}

bool ChiedonoQuantita(const Parcella& Nota, const Catalogo& Voci)
{
    QSet<QString> Guardate;
    for (int Riga = 0; Riga < Nota.xOnorari.Righe(); ++Riga) {
        if (NumeroDi(Nota.xOnorari(Riga, OnoQta)) != 1)
            return true;
        const QVariant Codice = Nota.xOnorari(Riga, OnoCodVoce);
        const QString Criterio = CriterioVoce(Nota.CodCateg, Voci.ChiaveOno, Codice, Nota.IDAutSelezionata());
        if (!Voci.datOno.Aperto() || NumeroDi(Codice) <= 0 || Guardate.contains(Criterio))
            continue;
        Guardate += Criterio;
        Recordset Voce = Voci.datOno.Clone();
        Voce.FindFirst(Criterio);
        if (!Voce.NoMatch() && !Voce.Value(u"QtaOno"_s, QString()).toString().isEmpty())
            return true;
    }
    return false;
}

QString FileScheda(const QString& CodCateg, const QVariant& Chiave)
{
    return CodCateg.left(1) + Format(NumeroDi(Chiave), u"000") + u".htm"_s;
}
