#include "calculators/modIstat.h"

#include "calculators/modTassi.h"
#include "core/modTesti.h"
#include "core/sessione.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/base/nomidate.h"
#include "platform/base/regionale.h"
#include "platform/database/database.h"
#include "platform/system/messaggi.h"
#include "platform/system/orologio.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int DecimaliCoefficiente = 5;
constexpr int DecimaliPercento = 3;
constexpr int LettereMese = 3;
constexpr int ValutaLireIstat = 1;

QString Importo(double Valore)
{
    return Format(Valore, ModelloImporto) + u"  "_s;
}

/// "\ngen 2012": the second line of an index.
QString SottoIndice(int Mese, int Anno)
{
    return u'\n' + NomeMese(Mese).left(LettereMese).toLower() + u' ' + CStr(Anno);
}

/// The index of the current row as plain text; an empty cell counts 0.
QString TestoIndice(const Recordset& Indici)
{
    return CStr(NumeroDi(Indici.Value(u"Indice"_s)));
}

/// The answer to a question about the update, as the end of the calculation.
FineIstat Chiedi(const QString& Avviso)
{
    return ChiediAggiornamento(Avviso) ? FineIstat::Aggiorna : FineIstat::Interrotta;
}

void Cerca(Recordset& Indici, const QDate& Data)
{
    Indici.Seek(u"="_s, QVariantList{Data.year(), Data.month()});
}

/// Leaves the table on the final month's row, or on the latest one after asking.
/// @return the end of the calculation, none to go on
std::optional<FineIstat> CercaFinale(Recordset& Indici, const QDate& Data, bool& AggiornamentoChiesto)
{
    Cerca(Indici, Data);
    if (!Indici.NoMatch())
        return std::nullopt;
    Indici.MoveLast();
    if (!AggiornamentoChiesto) {
        AggiornamentoChiesto = ChiediAggiornamento(u"Attenzione: ultimo indice disponibile %1 %2. "_s.arg(
            NomeMese(Indici.Value(u"Mese"_s).toInt()), CStr(Indici.Value(u"Anno"_s))));
        if (AggiornamentoChiesto)
            return FineIstat::Aggiorna;
    }
    MsgBox(u"Il calcolo verrà effettuato utilizzando l'ultimo indice disponibile."_s, vbExclamation,
           TitoloAvvertenza.toString());
    return std::nullopt;
}

/// The linking coefficient between the bases of two dates; Null when no row holds.
std::optional<double> Coefficiente(const Database& Archivio, const QString& DataIni, const QString& DataFin)
{
    const Recordset Righe = Archivio.OpenRecordset(u"SELECT Coefficiente FROM CoefficientiRaccordo "
                                                   "WHERE DataFin_Dal<=datevalue(?)"
                                                   "AND DataFin_Al>=datevalue(?)"
                                                   "AND DataIni_Dal<=datevalue(?)"
                                                   "AND DataIni_Al>=datevalue(?)"_s,
                                                   {DataFin, DataFin, DataIni, DataIni});
    return Righe.Eof() ? std::nullopt : std::optional(NumeroDi(Righe.Value(u"Coefficiente"_s)));
}

double Diviso(double Dividendo, double Divisore)
{
    if (Divisore == 0.0)
        throw Errore(errori::DivisionePerZero);
    return Dividendo / Divisore;
}

}  // namespace

std::optional<Mancanza<CampoIstat>> CheckIstat(const DatiIstat& Dati)
{
    const auto DataIni = LeggiData(Dati.DataIni);
    const auto DataFin = LeggiData(Dati.DataFin);
    if (!DataIni)
        return Mancanza{u"E' stata inserita una data iniziale non valida!"_s, CampoIstat::DataIni};
    if (!DataFin)
        return Mancanza{u"E' stata inserita una data finale non valida!"_s, CampoIstat::DataFin};
    if (Dati.Importo.isEmpty())
        return Mancanza{u"Non è stato specificato l'importo da rivalutare."_s, CampoIstat::Importo};
    if (*DataIni >= *DataFin)
        return Mancanza{u"La data di arrivo non è superiore di quella di partenza."_s, CampoIstat::DataFin};
    if (*DataFin > Oggi())
        return Mancanza{u"La rivalutazione non può essere calcolata per date successive a quella odierna."_s,
                        CampoIstat::DataFin};
    return std::nullopt;
}

FineIstat CalcolaRivalutazione(const QString& Archivio, const DatiIstat& Dati, bool& AggiornamentoChiesto,
                               RisultatiIstat& Etichette)
{
    const double Digitato = CDbl(Dati.Importo);
    const double ImportoEuro = Dati.Valuta == ValutaLireIstat ? LireEuro(Digitato) : Digitato;
    const QDate DataIni = CDate(Dati.DataIni);
    const QDate DataFin = CDate(Dati.DataFin);

    const Database Tassi = ApriArchivio(Archivio, true);
    Recordset Indici = Tassi.OpenRecordset(u"IndiciIstat"_s);
    Indici.ImpostaIndex(u"Indice"_s);
    Cerca(Indici, DataIni);
    if (Indici.NoMatch())
        return Chiedi(
            u"Attenzione: indici Istat non aggiornati (%1/%2)."_s.arg(DataIni.month()).arg(DataIni.year()));
    Etichette.lblIndIni = TestoIndice(Indici);
    if (const auto Fine = CercaFinale(Indici, DataFin, AggiornamentoChiesto))
        return *Fine;
    Etichette.lblIndFin = TestoIndice(Indici);

    const auto Raccordo = Coefficiente(Tassi, Dati.DataIni, Dati.DataFin);
    if (!Raccordo)
        return Chiedi(u"Attenzione: coefficienti di rivalutazione Istat non aggiornati."_s);
    ScriviRisultati(Etichette, ImportoEuro, *Raccordo);
    Etichette.lblIndIni += SottoIndice(DataIni.month(), DataIni.year());
    Etichette.lblIndFin += SottoIndice(Indici.Value(u"Mese"_s).toInt(), Indici.Value(u"Anno"_s).toInt());
    return FineIstat::Completa;
}

void ScriviRisultati(RisultatiIstat& Etichette, double ImportoEuro, double Coefficiente)
{
    Etichette.lblImporto = Importo(ImportoEuro);
    Etichette.lblCoeffRacc = CStr(Coefficiente);
    Etichette.lblCoeffRiv = CStr(
        Round(Diviso(CDbl(Etichette.lblCoeffRacc) * CDbl(Etichette.lblIndFin), CDbl(Etichette.lblIndIni)),
              DecimaliCoefficiente));
    Etichette.lblImpRival = Importo(Round(CDbl(Etichette.lblCoeffRiv) * ImportoEuro, 2));
    Etichette.lblRivalutaz = Importo(Round(CDbl(Etichette.lblImpRival) - ImportoEuro, 2));
    Etichette.lblVarPerc = CStr(Round(CDbl(Etichette.lblCoeffRiv) * 100 - 100, DecimaliPercento));
}

QList<PuntoIndice> SerieIndici(const QString& Archivio, const QDate& Da, const QDate& A)
{
    const Database Tassi = ApriArchivio(Archivio, true);
    Recordset Base = Tassi.OpenRecordset(u"SELECT Coefficiente, DataFin_Al FROM CoefficientiRaccordo "
                                         "WHERE DataIni_Dal<=? AND DataIni_Al>=? ORDER BY DataFin_Dal"_s,
                                         {Da, Da});
    Recordset Indici = Tassi.OpenRecordset(
        u"SELECT Anno, Mese, Indice FROM IndiciIstat WHERE Anno*12+Mese BETWEEN ? AND ? ORDER BY Anno, Mese"_s,
        {Da.year() * 12 + Da.month(), A.year() * 12 + A.month()});
    QList<PuntoIndice> Serie;
    for (; !Indici.Eof() && !Base.Eof(); Indici.MoveNext()) {
        const int Anno = Indici.Value(u"Anno"_s).toInt();
        const int Mese = Indici.Value(u"Mese"_s).toInt();
        while (!Base.Eof() && Base.Value(u"DataFin_Al"_s).toDate() < QDate(Anno, Mese, 1))
            Base.MoveNext();
        if (Base.Eof())
            break;
        Serie.append(
            {Anno, Mese, Indici.Value(u"Indice"_s).toDouble() * Base.Value(u"Coefficiente"_s).toDouble()});
    }
    return Serie;
}
