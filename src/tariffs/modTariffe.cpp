#include "tariffs/modTariffe.h"

#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/file.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// Matter of the bracket table: criminal cases share the civil brackets.
QString Materia(const QString& Categ)
{
    return Categ == Stragiudiziale ? u"S"_s : u"C"_s;
}

ScaglioneValore RigaScaglione(const Recordset& Righe)
{
    ScaglioneValore Scaglione;
    Scaglione.DesVal = Righe.Value(u"DesVal"_s).toString();
    Scaglione.NumSca = Righe.Value(u"NumSca"_s).toInt();
    Scaglione.DaVal = Righe.Value(u"DaVal"_s).toDouble();
    Scaglione.AVal = Righe.Value(u"AVal"_s).toDouble();
    Scaglione.RicValore = Righe.Value(u"RicValore"_s).toBool();
    return Scaglione;
}

Autorita RigaAutorita(const Recordset& Righe)
{
    return {Righe.Value(u"IDAut"_s).toInt(), Righe.Value(u"DesAut"_s).toString(),
            Righe.Value(u"PreLoad"_s).toBool()};
}

/// The rows of a query with one value; a failure leaves those before it.
template <class Riga>
Letti<Riga> LeggiElenco(const Decreto& Legge, const QString& Query, const QString& Valore,
                        Riga (*Leggi)(const Recordset&))
{
    Letti<Riga> Elenco;
    try {
        Recordset Righe = ApriTariffe(Legge).OpenRecordset(Query, {Valore});
        for (; !Righe.Eof(); Righe.MoveNext())
            Elenco.Voci.append(Leggi(Righe));
    } catch (const Errore& Guasto) {
        Elenco.Guasto = std::make_shared<const Errore>(Guasto);
    }
    return Elenco;
}

/// The honoraria of a category; closed for an unknown one. Only the criminal catalogue hides the rows
/// whose display order is not above 0: the civil and the extrajudicial one show them too.
Recordset ApriOnorari(const Database& Tariffe, const QString& Categ, int IDAut)
{
    if (Categ == Civile)
        return Tariffe.OpenRecordset(
            u"SELECT * FROM OnorariCiv WHERE IDAutor=? OR NVoce='999' ORDER BY NVis"_s, {IDAut});
    if (Categ == Penale)
        return Tariffe.OpenRecordset(u"SELECT * FROM OnorariPen WHERE NVis>0 ORDER BY NVis"_s);
    if (Categ == Stragiudiziale)
        return Tariffe.OpenRecordset(u"SELECT * FROM OnorariStra ORDER BY NVis"_s);
    return {};
}

/// The table and the key column of a category's catalogue.
struct TabellaVoci
{
    QStringView Categ;
    QStringView Nome;
    QStringView Chiave;
};

constexpr std::array Cataloghi{
    TabellaVoci{Civile, u"OnorariCiv", u"CodOno"},
    TabellaVoci{Penale, u"OnorariPen", u"IDOno"},
    TabellaVoci{Stragiudiziale, u"OnorariStra", u"IDOno"},
};

/// Keys of all items of a category, whatever the authority.
QSet<QString> ChiaviPresenti(const Database& Tariffe, const QString& Categ)
{
    QSet<QString> Chiavi;
    const auto Catalogo = std::ranges::find(Cataloghi, QStringView(Categ), &TabellaVoci::Categ);
    if (Catalogo == Cataloghi.end())
        return Chiavi;
    Recordset Righe =
        Tariffe.OpenRecordset(u"SELECT DISTINCT %1 FROM %2"_s.arg(Catalogo->Chiave, Catalogo->Nome));
    for (; !Righe.Eof(); Righe.MoveNext())
        Chiavi.insert(CStr(Righe.Value(Catalogo->Chiave.toString())));
    return Chiavi;
}

constexpr QStringView TabellaPrecedenti = u"ChiaviPrecedenti";

QVariant CellaScaglione(const Recordset& Voce, int Scaglione, const QString& Estremo)
{
    return Voce.Value(QString::number(Scaglione) + Estremo);
}

/// The first version of a declared database that has all that is read of it.
constexpr int VersioneTariffa = 1;

/// A file that stands under a decree's name may be another one's, or one from before the program.
/// @throws Errore 3343
void VerificaTariffa(const Database& Tariffe, const Decreto& Legge)
{
    constexpr QStringView Tabella = u"Tariffa";
    const auto Rifiuta = [](const QString& Motivo) { throw Errore(errori::FormatoDatabase, Motivo); };
    const Recordset Riga =
        Tariffe.EsisteTabella(Tabella.toString()) ? Tariffe.OpenRecordset(Tabella.toString()) : Recordset();
    if (!Riga.Aperto() || Riga.Eof())
        Rifiuta(u"non dice di quale tariffa è"_s);
    if (CStr(Riga.Value(u"Codice"_s)) != Legge.Sigla)
        Rifiuta(u"è l'archivio di un'altra tariffa"_s);
    if (NumeroDi(Riga.Value(u"Versione"_s)) < VersioneTariffa)
        Rifiuta(u"è più vecchio del programma"_s);
}

/// Why the database of a decree cannot be used, and what becomes of the notes that follow it.
QString FraseInservibile(const Decreto& Legge, const Errore& Guasto)
{
    const QString Motivo = Guasto.Numero == errori::DatabaseMancante
                               ? u"manca dalla cartella del programma"_s
                               : u"non si può usare (%1)"_s.arg(Guasto.Descrizione);
    return u"L'archivio della tariffa %1, %2, %3: gli importi delle parcelle restano quelli che sono, e "
           u"senza l'archivio non si possono ricalcolare né salvare"_s.arg(Legge.Nome, Legge.File, Motivo);
}

}  // namespace

QString PercorsoTariffe(const Decreto& Legge)
{
    return TrovaFile(sessione::PercorsoProg + Legge.File.toString());
}

Database ApriTariffe(const Decreto& Legge)
{
    if (!Legge.Dichiarato)
        return OpenDatabase(PercorsoTariffe(Legge), true);
    try {
        Database Tariffe = OpenDatabase(PercorsoTariffe(Legge), true);
        VerificaTariffa(Tariffe, Legge);
        return Tariffe;
    } catch (const Errore& Guasto) {
        throw Errore(Guasto.Numero, FraseInservibile(Legge, Guasto));
    }
}

Letti<Autorita> LeggiAutorita(const Decreto& Legge, const QString& Categ)
{
    return LeggiElenco<Autorita>(
        Legge,
        u"SELECT IDAut, DesAut, TipoAut,PreLoad FROM Autorità WHERE TipoAut=? COLLATE SenzaMaiuscole "
        u"ORDER BY IDX"_s,
        Categ, RigaAutorita);
}

std::optional<QString> LeggiCompatib(const Decreto& Legge, int IDAut, const QString& Categ)
{
    const Recordset Righe = ApriTariffe(Legge).OpenRecordset(
        u"SELECT IDAut, Compatib FROM Autorità WHERE IDAut=? AND TipoAut=? COLLATE SenzaMaiuscole"_s,
        {IDAut, Categ});
    if (Righe.Eof())
        return std::nullopt;
    return Righe.Value(u"Compatib"_s).toString();
}

Letti<ScaglioneValore> LeggiScaglioni(const Decreto& Legge, const QString& Categ)
{
    // No ordering: the list shows the brackets as the table holds them.
    Letti<ScaglioneValore> Elenco = LeggiElenco<ScaglioneValore>(
        Legge, u"SELECT * FROM Scaglioni WHERE Materia=? COLLATE SenzaMaiuscole"_s, Materia(Categ),
        RigaScaglione);
    if (Elenco.Voci.size() > MassimoScaglioni) {
        Elenco.Voci.resize(MassimoScaglioni);
        Elenco.Guasto = std::make_shared<const Errore>(errori::Indice);
    }
    return Elenco;
}

Catalogo ApriCatalogo(const Decreto& Legge, const QString& Categ, int IDAut)
{
    const Database Tariffe = ApriTariffe(Legge);
    Catalogo Aperto;
    Aperto.datOno = ApriOnorari(Tariffe, Categ, IDAut);
    Aperto.datDir = Tariffe.OpenRecordset(u"SELECT * FROM Diritti WHERE NVis>0 ORDER BY NVis"_s);
    Aperto.ChiaveOno = Categ == Civile ? u"CodOno"_s : u"IDOno"_s;
    return Aperto;
}

Recordset ApriDirittiValori(const Decreto& Legge)
{
    Recordset Valori = ApriTariffe(Legge).OpenRecordset(u"DirittiValori"_s);
    Valori.ImpostaIndex(u"CodDir"_s);
    return Valori;
}

ChiaviTradotte LeggiChiaviPrecedenti(const Decreto& Legge, const QString& Categ)
{
    ChiaviTradotte Chiavi;
    const Database Tariffe = ApriTariffe(Legge);
    if (!Tariffe.EsisteTabella(TabellaPrecedenti.toString()))
        return Chiavi;
    const QSet<QString> Presenti = ChiaviPresenti(Tariffe, Categ);
    Recordset Righe = Tariffe.OpenRecordset(
        u"SELECT Precedente, Chiave FROM ChiaviPrecedenti WHERE Categoria=? COLLATE SenzaMaiuscole"_s,
        {Categ});
    for (; !Righe.Eof(); Righe.MoveNext()) {
        const QString Precedente = CStr(Righe.Value(u"Precedente"_s));
        if (!Presenti.contains(Precedente))
            Chiavi.insert(Precedente, CStr(Righe.Value(u"Chiave"_s)));
    }
    return Chiavi;
}

bool HaChiaviPrecedenti(const Decreto& Legge)
{
    return ApriTariffe(Legge).EsisteTabella(TabellaPrecedenti.toString());
}

QString CriterioVoce(const QString& Categ, const QString& ChiaveOno, const QVariant& Codice, int IDAut)
{
    static const QRegularExpression Intero(u"\\A-?[0-9]+\\z"_s);
    QString Testo = CStr(Codice);
    if (!Intero.match(Testo).hasMatch())
        Testo = u'\'' + Testo.replace(u'\'', u"''"_s) + u'\'';
    QString Criterio = ChiaveOno + u'=' + Testo;
    if (Categ == Civile)
        Criterio += u" and IDAutor="_s + QString::number(IDAut);
    return Criterio;
}

double ImportoCatalogo(const Recordset& Voce, int Scaglione, const QString& Estremo)
{
    return NumeroDi(CellaScaglione(Voce, Scaglione, Estremo));
}

QString FormulaCatalogo(const Recordset& Voce, int Scaglione, const QString& Estremo)
{
    return CellaScaglione(Voce, Scaglione, Estremo).toString();
}

bool SenzaImporto(const Recordset& Voce, int Scaglione)
{
    return !CellaScaglione(Voce, Scaglione, u"Min"_s).isValid() &&
           !CellaScaglione(Voce, Scaglione, u"Max"_s).isValid();
}
