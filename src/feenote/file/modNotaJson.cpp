// A fee note told as JSON.
#include "feenote/file/modDescrizione.h"
#include "feenote/modTotali.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

QJsonObject Parametri(const Parcella& Nota)
{
    return {
        {u"categoria"_s, Nota.CodCateg},
        {u"autorita"_s, TestoAutorita(Nota)},
        {u"scaglione"_s, TestoScaglione(Nota)},
        {u"valore"_s, Nota.ImportoPrec},
        {u"numeroScaglione"_s, Nota.Scaglione},
        {u"variazione"_s, QJsonObject{{u"opzione"_s, Nota.AumRidIdx}, {u"percento"_s, Nota.AumRidVarP}}},
    };
}

QJsonArray Onorari(const TabellaRighe& Righe)
{
    QJsonArray Elenco;
    for (int Riga = 0; Riga < Righe.Righe(); ++Riga) {
        const auto Testo = [&](int Colonna) { return CStr(Righe(Riga, Colonna)); };
        const auto Numero = [&](int Colonna) { return NumeroDi(Righe(Riga, Colonna)); };
        Elenco.append(QJsonObject{
            {u"data"_s, Testo(OnoData)},
            {u"descrizione"_s, Testo(OnoDescr)},
            {u"quantita"_s, Numero(OnoQta)},
            {u"importo"_s, Numero(OnoImporto)},
            {u"medio"_s, Numero(OnoMedio)},
            {u"minimo"_s, Numero(OnoMin)},
            {u"massimo"_s, Numero(OnoMax)},
            {u"codice"_s, Testo(OnoCodVoce)},
            {u"voce"_s, Numero(OnoNVoce)},
            {u"variazione"_s, Numero(OnoVarPerc)},
            {u"baseMedio"_s, Numero(OnoBaseMedio)},
            {u"baseMinimo"_s, Numero(OnoBaseMin)},
            {u"baseMassimo"_s, Numero(OnoBaseMax)},
        });
    }
    return Elenco;
}

QJsonArray Spese(const TabellaRighe& Righe)
{
    QJsonArray Elenco;
    for (int Riga = 0; Riga < Righe.Righe(); ++Riga) {
        Elenco.append(QJsonObject{
            {u"data"_s, CStr(Righe(Riga, DirData))},
            {u"descrizione"_s, CStr(Righe(Riga, DirDescr))},
            {u"quantita"_s, CStr(Righe(Riga, DirQta))},
            {u"imponibili"_s, NumeroDi(Righe(Riga, DirImponibile))},
            {u"esenti"_s, NumeroDi(Righe(Riga, DirEsente))},
            {u"voce"_s, CStr(Righe(Riga, DirNVoce))},
            {u"codice"_s, CStr(Righe(Riga, DirIDDir))},
        });
    }
    return Elenco;
}

QJsonArray Acconti(const TabellaRighe& Righe)
{
    QJsonArray Elenco;
    for (int Riga = 0; Riga < Righe.Righe(); ++Riga) {
        Elenco.append(QJsonObject{
            {u"descrizione"_s, CStr(Righe(Riga, AccDescr))},
            {u"valuta"_s, CStr(Righe(Riga, AccValuta))},
            {u"corrispettivi"_s, NumeroDi(Righe(Riga, AccCorrispettivi))},
            {u"speseImponibili"_s, NumeroDi(Righe(Riga, AccSpeseImp))},
            {u"speseEsenti"_s, NumeroDi(Righe(Riga, AccSpeseEsenti))},
        });
    }
    return Elenco;
}

/// A rate that is off is null, as a description switches it off.
QJsonValue Percentuale(const Spunta& Tick, const Casella& Box)
{
    return Tick.Attiva ? QJsonValue(Box.Numero()) : QJsonValue();
}

QJsonObject Percentuali(const Parcella& Nota)
{
    return {
        {u"speseGenerali"_s, Percentuale(Nota.chkSpeseGen, Nota.txtSpeGen)},
        {u"cassa"_s, Percentuale(Nota.chkCP, Nota.txtCP)},
        {u"iva"_s, Percentuale(Nota.chkIva, Nota.txtIVA)},
        {u"ritenuta"_s, Percentuale(Nota.chkRA, Nota.txtRA)},
    };
}

QJsonObject Stampa(const Parcella& Nota)
{
    return {
        {u"tipo"_s, Nota.cmbTipoStampa},
        {u"esponiMinMax"_s, Nota.chkMinMax.Attiva},
        {u"esponiAcconti"_s, Nota.chkAcconti.Attiva},
        {u"testoSuperiore"_s, Nota.DatiPar(DatoTestoSuperiore)},
        {u"testoInferiore"_s, Nota.DatiPar(DatoTestoInferiore)},
        {u"numeroFattura"_s, Nota.DatiPar(DatoNumFatt)},
        {u"dataFattura"_s, Nota.DatiPar(DatoDataFatt)},
        {u"autorita"_s, Nota.DatiPar(DatoDepAutorita)},
        {u"sezione"_s, Nota.DatiPar(DatoDepSezione)},
        {u"ruolo"_s, Nota.DatiPar(DatoDepRuolo)},
        {u"giudice"_s, Nota.DatiPar(DatoDepGiudice)},
    };
}

QJsonObject Totali(const Parcella& Nota)
{
    const Somme Proprie = CalcolaSomme(Nota);
    return {
        {u"onorari"_s, Proprie.TotOnorari},
        {u"medi"_s, Proprie.TotMed},
        {u"minimi"_s, Proprie.TotMin},
        {u"massimi"_s, Proprie.TotMax},
        {u"speseImponibili"_s, Proprie.TotSpeseImp},
        {u"speseEsenti"_s, Proprie.TotSpeseEsenti},
    };
}

}  // namespace

QByteArray DescriviNota(const Parcella& Nota)
{
    QJsonObject Tutto = Parametri(Nota);
    Tutto[u"onorari"_s] = Onorari(Nota.xOnorari);
    Tutto[u"spese"_s] = Spese(Nota.xDiritti);
    Tutto[u"acconti"_s] = Acconti(Nota.xAcconti);
    Tutto[u"percentuali"_s] = Percentuali(Nota);
    Tutto[u"cliente"_s] = Nota.txtCliente.Testo;
    Tutto[u"controparte"_s] = Nota.txtControp.Testo;
    Tutto[u"oggetto"_s] = Nota.txtOggetto.Testo;
    Tutto[u"idCliente"_s] = Nota.IDCli;
    Tutto[u"idControparte"_s] = Nota.IDCon;
    Tutto[u"riferimento"_s] = Nota.NsRif;
    Tutto[u"protetta"_s] = !Nota.Psw.isEmpty();
    Tutto[u"stampa"_s] = Stampa(Nota);
    Tutto[u"totali"_s] = Totali(Nota);
    return QJsonDocument(Tutto).toJson(QJsonDocument::Indented);
}
