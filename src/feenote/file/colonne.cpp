#include "feenote/file/colonne.h"

#include "core/modTesti.h"
#include "core/sessione.h"
#include "feenote/file/lettorejson.h"
#include "feenote/file/modPassword.h"
#include "feenote/modDatiStampa.h"
#include "feenote/modInterruttori.h"
#include "feenote/modVariazione.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/database/valori.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// ---- values -------------------------------------------------------------------------------------

int Intero(const QVariant& Valore)
{
    return int(std::clamp(NumeroDi(Valore), -2147483648.0, 2147483647.0));
}

/// A list index; Null is no selection.
int Indice(const QVariant& Valore)
{
    return Valore.isValid() ? Intero(Valore) : NessunaVoce;
}

QVariant DataONull(const QString& Testo)
{
    const std::optional<QDate> Data = LeggiData(Testo);
    return Data ? QVariant(*Data) : QVariant();
}

/// The beginning of a text; a character of two units is not cut in half.
QString PrimiCaratteri(const QString& Testo, int Massimo)
{
    const bool Spezza = Testo.size() > Massimo && Testo[Massimo - 1].isHighSurrogate();
    return Testo.left(Spezza ? Massimo - 1 : Massimo);
}

/// A quantity is text in the file; one too large to be held as a number stays the text that it was.
QVariant NumeroOTesto(const QVariant& Valore)
{
    try {
        return CDbl(CStr(Valore));
    } catch (const Errore&) {
        return CStr(Valore);
    }
}

// ---- the row of parameters ----------------------------------------------------------------------

constexpr auto Lungo = TipoCampo::Lungo;
constexpr auto Corto = TipoCampo::Intero;
constexpr auto Singolo = TipoCampo::Singolo;
constexpr auto Doppio = TipoCampo::Doppio;
constexpr auto Data = TipoCampo::Data;
constexpr auto Testo = TipoCampo::Testo;
constexpr auto Memo = TipoCampo::Memo;

/// The place of what is chosen, or of what the file had chosen from a list that is not there.
QVariant IndiceScelto(int Scelto, const SceltaTenuta& Tenuta)
{
    return Scelto == NessunaVoce ? Tenuta.Indice : Scelto;
}

/// A text of the print data, described in the group "stampa".
template <DatoStampa Quale>
constexpr ColonnaParam Dato(QStringView Nome, TipoCampo Tipo, int Caratteri, QStringView Json)
{
    return {Nome,
            Tipo,
            Caratteri,
            Presenza::Facoltativa,
            [](const Parcella& Nota) { return QVariant(Nota.DatiPar(Quale)); },
            [](NotaLetta& Letta, const QVariant& Valore) {
                if (const QString Scritto = CStr(Valore); !Scritto.isEmpty())
                    Letta.Nota.txtDatiPar[Quale] = Scritto;
            },
            Json,
            [](const Parcella& Nota) { return QJsonValue(Nota.DatiPar(Quale)); },
            [](Parcella& Nota, OggettoJson& Dati, const QString& Campo) {
                if (const QString Scritto = Dati.Testo(Campo, MassimoDatiPar(Quale)); !Scritto.isEmpty())
                    Nota.txtDatiPar[Quale] = Scritto;
            }};
}

/// A tax: its switch and box, and where the memory of the switches keeps both.
template <Spunta Parcella::*Tick, Casella Parcella::*Box, bool MemoriaStampa::*TickProprio,
          QString MemoriaStampa::*TestoProprio, bool Centesimi>
constexpr ColonnaParam Percento(QStringView Nome, TipoCampo Tipo, Presenza Dal, QStringView Json)
{
    return {Nome, Tipo, 0, Dal,
            [](const Parcella& Nota) {
                const MemoriaStampa Propria = StampaPropria(Nota);
                const double Perc = Propria.*TickProprio ? NumeroDi(Propria.*TestoProprio) : 0.0;
                return QVariant(Centesimi ? Arrotonda2(Perc) : Perc);
            },
            [](NotaLetta& Letta, const QVariant& Valore) {
                const double Perc = NumeroDi(Valore);
                (Letta.Nota.*Tick).Attiva = Perc > 0;
                // A whole percent shows without decimals, 0 as an empty box.
                (Letta.Nota.*Box).Testo = Format(Perc, Perc == std::floor(Perc) ? u"##" : u"##.##");
            },
            Json,
            // A rate that is off is null, as a description switches it off; so is one of 0, which the file
            // does not tell from it.
            [](const Parcella& Nota) {
                const double Perc = (Nota.*Tick).Attiva ? (Nota.*Box).Numero() : 0.0;
                return Perc > 0.0 ? QJsonValue(Perc) : QJsonValue();
            },
            nullptr};
}

/// A party's name, or the subject: the box of the first tab.
template <Casella Parcella::*Box>
constexpr ColonnaParam Nominato(QStringView Nome, void (*Leggi)(NotaLetta&, const QVariant&),
                                QStringView Json)
{
    return {Nome,
            Memo,
            0,
            Presenza::Facoltativa,
            [](const Parcella& Nota) { return QVariant((Nota.*Box).Testo); },
            Leggi,
            Json,
            [](const Parcella& Nota) { return QJsonValue((Nota.*Box).Testo); },
            [](Parcella& Nota, OggettoJson& Dati, const QString& Campo) {
                (Nota.*Box).Testo = Dati.Testo(Campo, MassimoMemo);
            }};
}

constexpr std::array Parametri{
    ColonnaParam{u"IDCli", Lungo, 0, Presenza::DaSempre,
                 [](const Parcella& Nota) { return QVariant(Nota.IDCli); },
                 [](NotaLetta& Letta, const QVariant& Valore) { Letta.Nota.IDCli = Intero(Valore); },
                 u"idCliente", [](const Parcella& Nota) { return QJsonValue(Nota.IDCli); }},
    ColonnaParam{u"IDCon", Lungo, 0, Presenza::DaSempre,
                 [](const Parcella& Nota) { return QVariant(Nota.IDCon); },
                 [](NotaLetta& Letta, const QVariant& Valore) { Letta.Nota.IDCon = Intero(Valore); },
                 u"idControparte", [](const Parcella& Nota) { return QJsonValue(Nota.IDCon); }},
    ColonnaParam{u"Categ", Lungo, 0, Presenza::DaSempre,
                 [](const Parcella& Nota) { return QVariant(Nota.cmbCateg); },
                 [](NotaLetta& Letta, const QVariant& Valore) { Letta.Categ = Indice(Valore); }, u"categoria",
                 [](const Parcella& Nota) { return QJsonValue(Nota.CodCateg); }},
    ColonnaParam{u"Autor", Lungo, 0, Presenza::DaSempre,
                 [](const Parcella& Nota) { return IndiceScelto(Nota.cmbAutor, Nota.AutoritaTenuta); },
                 [](NotaLetta& Letta, const QVariant& Valore) { Letta.Autor = Indice(Valore); }, u"autorita",
                 [](const Parcella& Nota) { return QJsonValue(TestoAutorita(Nota)); }},
    ColonnaParam{u"Valore", Lungo, 0, Presenza::DaSempre,
                 [](const Parcella& Nota) { return IndiceScelto(Nota.cmbValore, Nota.ScaglioneTenuto); },
                 [](NotaLetta& Letta, const QVariant& Valore) { Letta.Valore = Indice(Valore); },
                 u"scaglione", [](const Parcella& Nota) { return QJsonValue(TestoScaglione(Nota)); }},
    ColonnaParam{u"Importo", Doppio, 0, Presenza::DaSempre,
                 [](const Parcella& Nota) { return QVariant(Arrotonda2(Nota.txtImporto.Numero())); },
                 [](NotaLetta& Letta, const QVariant& Valore) { Letta.Importo = NumeroDi(Valore); },
                 u"valore", [](const Parcella& Nota) { return QJsonValue(Nota.ImportoPrec); }},
    ColonnaParam{u"TipoStampa", Lungo, 0, Presenza::Facoltativa,
                 [](const Parcella& Nota) { return QVariant(Nota.cmbTipoStampa); },
                 [](NotaLetta& Letta, const QVariant& Valore) { Letta.TipoStampa = Indice(Valore); },
                 u"stampa/tipo", [](const Parcella& Nota) { return QJsonValue(Nota.cmbTipoStampa); }},
    ColonnaParam{u"AumRidVarP", Doppio, 0, Presenza::DaSempre,
                 [](const Parcella& Nota) { return QVariant(Nota.AumRidVarP); },
                 [](NotaLetta& Letta, const QVariant& Valore) { Letta.AumRidVarP = NumeroDi(Valore); },
                 u"variazione/percento", [](const Parcella& Nota) { return QJsonValue(Nota.AumRidVarP); }},
    ColonnaParam{u"AumRidIdx", Lungo, 0, Presenza::DaSempre,
                 [](const Parcella& Nota) { return QVariant(VariazioneDelFile(Nota)); },
                 [](NotaLetta& Letta, const QVariant& Valore) { Letta.AumRidIdx = Indice(Valore); },
                 u"variazione/opzione", [](const Parcella& Nota) { return QJsonValue(Nota.AumRidIdx); }},
    Dato<DatoTestoSuperiore>(u"Testo1", Memo, 0, u"stampa/testoSuperiore"),
    Dato<DatoTestoInferiore>(u"Testo2", Memo, 0, u"stampa/testoInferiore"),
    ColonnaParam{
        u"VisMinMax", Corto, 0, Presenza::Facoltativa,
        [](const Parcella& Nota) { return QVariant(StampaPropria(Nota).MinMax ? 1 : 0); },
        [](NotaLetta& Letta, const QVariant& Valore) { Letta.Nota.chkMinMax.Attiva = NumeroDi(Valore) != 0; },
        u"stampa/esponiMinMax", [](const Parcella& Nota) { return QJsonValue(Nota.chkMinMax.Attiva); },
        [](Parcella& Nota, OggettoJson& Dati, const QString& Campo) {
            CambiaMinMax(Nota, Dati.Booleano(Campo).value_or(false));
        }},
    Percento<&Parcella::chkIva, &Parcella::txtIVA, &MemoriaStampa::Iva, &MemoriaStampa::TestoIva, false>(
        u"IVA", Doppio, Presenza::Facoltativa, u"percentuali/iva"),
    Percento<&Parcella::chkRA, &Parcella::txtRA, &MemoriaStampa::RA, &MemoriaStampa::TestoRA, false>(
        u"RA", Doppio, Presenza::Facoltativa, u"percentuali/ritenuta"),
    Percento<&Parcella::chkCP, &Parcella::txtCP, &MemoriaStampa::CP, &MemoriaStampa::TestoCP, true>(
        u"CP", Doppio, Presenza::Facoltativa, u"percentuali/cassa"),
    Percento<&Parcella::chkSpeseGen, &Parcella::txtSpeGen, &MemoriaStampa::SpeseGen,
             &MemoriaStampa::TestoSpeseGen, true>(u"SpeseGen", Singolo, Presenza::Aggiunta,
                                                  u"percentuali/speseGenerali"),
    // The matter of the session, not that of the note: a session of the companion application saves all its
    // notes for its matter. Without one the column stays Null.
    ColonnaParam{u"NsRif", Testo, MassimoBreve, Presenza::Facoltativa,
                 [](const Parcella&) {
                     const QString& ID = sessione::RichiestaPV2.ID;
                     return ID.isEmpty() ? QVariant() : QVariant(ID);
                 },
                 [](NotaLetta& Letta, const QVariant& Valore) { Letta.NsRif = Valore; }, u"riferimento",
                 [](const Parcella& Nota) { return QJsonValue(Nota.NsRif); }},
    Nominato<&Parcella::txtCliente>(
        u"Cliente", [](NotaLetta& Letta, const QVariant& Valore) { Letta.Cliente = CStr(Valore); },
        u"cliente"),
    Nominato<&Parcella::txtControp>(
        u"Controp", [](NotaLetta& Letta, const QVariant& Valore) { Letta.Controp = CStr(Valore); },
        u"controparte"),
    Nominato<&Parcella::txtOggetto>(
        u"Oggetto",
        [](NotaLetta& Letta, const QVariant& Valore) { Letta.Nota.txtOggetto.Testo = CStr(Valore); },
        u"oggetto"),
    ColonnaParam{u"DataFatt", Data, 0, Presenza::Facoltativa,
                 [](const Parcella& Nota) { return DataONull(Nota.DatiPar(DatoDataFatt)); },
                 [](NotaLetta& Letta, const QVariant& Valore) {
                     if (const QString Giorno = CStr(Valore); !Giorno.isEmpty())
                         Letta.Nota.txtDatiPar[DatoDataFatt] = Giorno;
                 },
                 u"stampa/dataFattura",
                 [](const Parcella& Nota) { return QJsonValue(Nota.DatiPar(DatoDataFatt)); },
                 [](Parcella& Nota, OggettoJson& Dati, const QString& Campo) {
                     if (const QString Giorno = Dati.Data(Campo); !Giorno.isEmpty())
                         Nota.txtDatiPar[DatoDataFatt] = Giorno;
                 }},
    Dato<DatoNumFatt>(u"NumFatt", Testo, MassimoBreve, u"stampa/numeroFattura"),
    Dato<DatoDepAutorita>(u"DepAut", Testo, MassimoBreve, u"stampa/autorita"),
    Dato<DatoDepSezione>(u"DepSez", Testo, MassimoBreve, u"stampa/sezione"),
    Dato<DatoDepRuolo>(u"DepRuolo", Testo, MassimoBreve, u"stampa/ruolo"),
    Dato<DatoDepGiudice>(u"DepGiud", Testo, MassimoBreve, u"stampa/giudice"),
    ColonnaParam{u"Psw", Testo, 3 * MassimoPsw, Presenza::DaSempre,
                 [](const Parcella& Nota) { return QVariant(PswDaScrivere(Nota)); },
                 [](NotaLetta& Letta, const QVariant& Valore) { Letta.Psw = CStr(Valore); }, u"protetta",
                 [](const Parcella& Nota) { return QJsonValue(!Nota.Psw.isEmpty()); }},
};

// ---- the lines ----------------------------------------------------------------------------------

constexpr int MassimoCodice = 50;  ///< a cell of the grid takes what is typed or pasted

// NVoce of an expense takes the key of the item and CodOnoDir its number, crossed against their names: files
// have always been written so, and nothing reads their meaning.
constexpr std::array Righe{
    ColonnaLinea{u"OnoDir", Testo, 1},
    ColonnaLinea{
        u"Data", Data, 0, {FormaCella::Data, OnoData, u"data"}, {FormaCella::Data, DirData, u"data"}},
    ColonnaLinea{u"Descr",
                 Testo,
                 MassimoDescr,
                 {FormaCella::Descrizione, OnoDescr, u"descrizione"},
                 {FormaCella::Descrizione, DirDescr, u"descrizione"}},
    ColonnaLinea{u"NVoce",
                 Testo,
                 MassimoCodice,
                 {FormaCella::Intero, OnoNVoce, u"voce"},
                 {FormaCella::Testo, DirIDDir, u"codice"}},
    ColonnaLinea{u"CodOnoDir",
                 Testo,
                 MassimoCodice,
                 {FormaCella::Testo, OnoCodVoce, u"codice"},
                 {FormaCella::Testo, DirNVoce, u"voce"}},
    ColonnaLinea{u"Qta",
                 Testo,
                 MassimoCodice,
                 {FormaCella::Quantita, OnoQta, u"quantita"},
                 {FormaCella::Testo, DirQta, u"quantita"}},
    ColonnaLinea{u"Importo",
                 Doppio,
                 0,
                 {FormaCella::Importo, OnoImporto, u"importo"},
                 {FormaCella::Importo, DirImponibile, u"imponibili"}},
    ColonnaLinea{u"Imp1",
                 Doppio,
                 0,
                 {FormaCella::Importo, OnoMedio, u"medio"},
                 {FormaCella::Importo, DirEsente, u"esenti"}},
    ColonnaLinea{u"Imp2", Doppio, 0, {FormaCella::Importo, OnoMin, u"minimo"}},
    ColonnaLinea{u"Imp3", Doppio, 0, {FormaCella::Importo, OnoMax, u"massimo"}},
    ColonnaLinea{u"Imp4", Doppio, 0, {FormaCella::Importo, OnoBaseMedio, u"baseMedio"}},
    ColonnaLinea{u"Imp5", Doppio, 0, {FormaCella::Importo, OnoBaseMin, u"baseMinimo"}},
    ColonnaLinea{u"Imp6", Doppio, 0, {FormaCella::Importo, OnoBaseMax, u"baseMassimo"}},
    ColonnaLinea{u"VarP", Doppio, 0, {FormaCella::Numero, OnoVarPerc, u"variazione"}},
};

// Payments are written and read without conversion.
constexpr std::array Acconti{
    ColonnaLinea{u"DesAcc", Testo, MassimoBreve, {FormaCella::Testo, AccDescr, u"descrizione"}},
    ColonnaLinea{u"Valuta", Testo, 10, {FormaCella::Testo, AccValuta, u"valuta"}},
    ColonnaLinea{u"Corr", Doppio, 0, {FormaCella::Numero, AccCorrispettivi, u"corrispettivi"}},
    ColonnaLinea{u"SpImp", Doppio, 0, {FormaCella::Numero, AccSpeseImp, u"speseImponibili"}},
    ColonnaLinea{u"SpEse", Doppio, 0, {FormaCella::Numero, AccSpeseEsenti, u"speseEsenti"}},
};

template <class Colonna>
TabellaNota Tabella(QStringView Nome, std::span<const Colonna> Colonne)
{
    TabellaNota Nuova{Nome.toString(), {}};
    for (const Colonna& Voce : Colonne)
        Nuova.Colonne.append({Voce.Nome.toString(), Voce.Tipo, Voce.Caratteri, {}, false});
    return Nuova;
}

/// The type as ALTER TABLE names it.
QString TipoAggiunto(const ColonnaParam& Colonna)
{
    return Colonna.Tipo == Singolo
               ? u"Single"_s
               : Dichiarazione({Colonna.Nome.toString(), Colonna.Tipo, Colonna.Caratteri, {}, false});
}

QList<const ColonnaParam*> Mancanti(const QString& Percorso)
{
    QList<const ColonnaParam*> Elenco;
    for (const ColonnaParam& Colonna : Parametri) {
        if (Colonna.Dal == Presenza::Aggiunta &&
            !EsisteCampo(Percorso, TabellaParam.toString(), Colonna.Nome.toString()))
            Elenco.append(&Colonna);
    }
    return Elenco;
}

}  // namespace

std::span<const ColonnaParam> ColonneParam()
{
    return Parametri;
}

QStringView GruppoJson(QStringView Percorso)
{
    return Percorso.left(std::max<qsizetype>(Percorso.indexOf(u'/'), 0));
}

QString CampoJson(QStringView Percorso)
{
    return Percorso.sliced(Percorso.indexOf(u'/') + 1).toString();
}

std::span<const ColonnaLinea> ColonneRighe()
{
    return Righe;
}

std::span<const ColonnaLinea> ColonneAcconti()
{
    return Acconti;
}

QVariant CellaPerFile(const ColonnaLinea& Colonna, const CellaNota& Come, const QVariant& Cella)
{
    switch (Come.Forma) {
    case FormaCella::Assente:
        break;
    case FormaCella::Data:
        return DataONull(CStr(Cella));
    case FormaCella::Descrizione:
        return PrimiCaratteri(CStr(Cella), Colonna.Caratteri);
    case FormaCella::Testo:
    case FormaCella::Quantita:
        return CStr(Cella);
    case FormaCella::Importo:
        return Arrotonda2(NumeroDi(Cella));
    case FormaCella::Numero:
        return NumeroDi(Cella);
    case FormaCella::Intero:
        return Colonna.Tipo == Testo ? QVariant(CStr(Cella)) : QVariant(Arrotonda2(NumeroDi(Cella)));
    }
    return {};
}

QVariant CellaDalFile(const CellaNota& Come, const QVariant& Valore)
{
    switch (Come.Forma) {
    case FormaCella::Assente:
        break;
    case FormaCella::Data:
    case FormaCella::Descrizione:
    case FormaCella::Testo:
        return CStr(Valore);
    case FormaCella::Quantita:
        return NumeroOTesto(Valore);
    case FormaCella::Importo:
    case FormaCella::Numero:
        return NumeroDi(Valore);
    case FormaCella::Intero:
        return Intero(Valore);
    }
    return {};
}

QList<TabellaNota> TabelleNota()
{
    return {Tabella(TabellaParam, ColonneParam()), Tabella(TabellaRigheNota, ColonneRighe()),
            Tabella(TabellaAccontiNota, ColonneAcconti())};
}

bool HaColonneIgnote(const Database& File)
{
    if (File.Specie() != SpecieNota)
        return false;
    const QList<TabellaNota> Tabelle = TabelleNota();
    return std::ranges::any_of(Tabelle, [&File](const TabellaNota& Tabella) {
        const QList<Campo> Presenti = File.Campi(Tabella.Nome);
        return std::ranges::any_of(Presenti, [&Tabella](const Campo& Colonna) {
            return std::ranges::none_of(Tabella.Colonne, [&Colonna](const Campo& Nota) {
                return Nota.Name.compare(Colonna.Name, Qt::CaseInsensitive) == 0;
            });
        });
    });
}

bool DaAggiornare(const QString& Percorso)
{
    return !Mancanti(Percorso).isEmpty();
}

void AggiornaColonne(const QString& Percorso)
{
    if (Mancanti(Percorso).isEmpty())
        return;
    const Database File = OpenDatabase(Percorso);
    Transazione Tutte(File);
    // Another program may have given it some of them while this one waited for its turn.
    for (const ColonnaParam* Colonna : Mancanti(Percorso))
        File.Execute(u"ALTER TABLE %1 ADD %2 %3"_s.arg(TabellaParam, Colonna->Nome, TipoAggiunto(*Colonna)));
    Tutte.Conferma();
}

void LeggiParametri(const Database& File, NotaLetta& Letta)
{
    const Recordset Riga = File.OpenRecordset(TabellaParam.toString());
    if (Riga.Eof())
        throw Errore(errori::NessunRecord);
    for (const ColonnaParam& Colonna : Parametri) {
        QVariant Valore;
        try {
            Valore = Riga.Value(Colonna.Nome.toString());
        } catch (const Errore& Guasto) {
            if (Guasto.Numero == errori::ElementoMancante && Colonna.Dal != Presenza::DaSempre)
                continue;
            throw;
        }
        Colonna.Leggi(Letta, Valore);
    }
}
