#include "tariffs/modTariffe.h"

#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/percorsi.h"

#include <QRegularExpression>

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

QVariant CellaScaglione(const Recordset& Voce, int Scaglione, const QString& Estremo)
{
    return Voce.Value(QString::number(Scaglione) + Estremo);
}

}  // namespace

QString PercorsoTariffe()
{
    return TrovaFile(sessione::PercorsoProg + u"parcelle.mdb"_s);
}

Database ApriTariffe()
{
    return OpenDatabase(PercorsoTariffe(), true);
}

QList<Autorita> LeggiAutorita(const QString& Categ)
{
    QList<Autorita> Elenco;
    Recordset Righe = ApriTariffe().OpenRecordset(
        u"SELECT IDAut, DesAut, TipoAut,PreLoad FROM Autorità WHERE TipoAut=? ORDER BY IDX"_s, {Categ});
    for (; !Righe.Eof(); Righe.MoveNext())
        Elenco.append({Righe.Value(u"IDAut"_s).toInt(), Righe.Value(u"DesAut"_s).toString(),
                       Righe.Value(u"PreLoad"_s).toBool()});
    return Elenco;
}

std::optional<QString> LeggiCompatib(int IDAut, const QString& Categ)
{
    const Recordset Righe = ApriTariffe().OpenRecordset(
        u"SELECT IDAut, Compatib FROM Autorità WHERE IDAut=? AND TipoAut=?"_s, {IDAut, Categ});
    if (Righe.Eof())
        return std::nullopt;
    return Righe.Value(u"Compatib"_s).toString();
}

void LeggiScaglioni(const QString& Categ, const std::function<void(const ScaglioneValore&)>& Aggiungi)
{
    // No ordering: the list shows the brackets as the table holds them.
    Recordset Righe =
        ApriTariffe().OpenRecordset(u"SELECT * FROM Scaglioni WHERE Materia=?"_s, {Materia(Categ)});
    for (int Letti = 0; !Righe.Eof(); Righe.MoveNext(), ++Letti) {
        if (Letti == MassimoScaglioni)
            throw Errore(9);
        Aggiungi(RigaScaglione(Righe));
    }
}

Catalogo ApriCatalogo(const QString& Categ, int IDAut)
{
    const Database Tariffe = ApriTariffe();
    Catalogo Aperto;
    Aperto.datOno = ApriOnorari(Tariffe, Categ, IDAut);
    Aperto.datDir = Tariffe.OpenRecordset(u"SELECT * FROM Diritti WHERE NVis>0 ORDER BY NVis"_s);
    Aperto.ChiaveOno = Categ == Civile ? u"CodOno"_s : u"IDOno"_s;
    return Aperto;
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
