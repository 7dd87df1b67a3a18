#include "creadati/archivio_tassi.h"

#include "creadati/scrittura.h"

using namespace Qt::StringLiterals;

namespace {

Campo CampoData(const QString& Nome)
{
    return CampoDi(TipoCampo::Data, Nome);
}

void ScriviPeriodi(const Database& Db, const QString& Nome, const QList<TassoPeriodo>& Periodi)
{
    const TabellaNuova Tabella{
        Nome, {CampoData(u"Dal"_s), CampoData(u"Al"_s), CampoDi(TipoCampo::Singolo, u"Tasso"_s)}};
    Crea(Db, Tabella);
    Db.CreaIndice(Nome, u"Dal"_s, {u"Dal"_s}, true);
    for (const TassoPeriodo& Uno : Periodi)
        AggiungiRiga(Db, Tabella, {Uno.Dal, Uno.Al, Uno.TassoPerc});
}

void ScriviIndici(const Database& Db, const QList<IndiceMese>& Indici)
{
    const TabellaNuova Tabella{u"IndiciIstat"_s,
                               {CampoDi(TipoCampo::Intero, u"Anno"_s), CampoDi(TipoCampo::Intero, u"Mese"_s),
                                CampoDi(TipoCampo::Doppio, u"Indice"_s)}};
    Crea(Db, Tabella);
    Db.CreaIndice(Tabella.Nome, u"Indice"_s, {u"Anno"_s, u"Mese"_s}, true);
    for (const IndiceMese& Uno : Indici)
        AggiungiRiga(Db, Tabella, {Uno.Anno, Uno.Mese, Uno.Indice});
}

void ScriviCoefficienti(const Database& Db, const QList<CoefficienteRaccordo>& Tutti)
{
    const TabellaNuova Tabella{u"CoefficientiRaccordo"_s,
                               {CampoDi(TipoCampo::Doppio, u"Coefficiente"_s), CampoData(u"DataIni_Dal"_s),
                                CampoData(u"DataIni_Al"_s), CampoData(u"DataFin_Dal"_s),
                                CampoData(u"DataFin_Al"_s)}};
    Crea(Db, Tabella);
    for (const CoefficienteRaccordo& Uno : Tutti)
        AggiungiRiga(Db, Tabella,
                     {Uno.Coefficiente, Uno.Iniziale.Dal, Uno.Iniziale.Al, Uno.Finale.Dal, Uno.Finale.Al});
}

}  // namespace

void ScriviTassi(const Tassi& Dati, const QString& Percorso)
{
    const Database Db = CreateDatabase(Percorso);
    Transazione Tutto(Db);
    ScriviPeriodi(Db, u"InteressiLegali"_s, Dati.Legali);
    ScriviPeriodi(Db, u"InteressiMora"_s, Dati.Mora);
    ScriviIndici(Db, Dati.Indici);
    ScriviCoefficienti(Db, Coefficienti(Dati.Basi));
    Tutto.Conferma();
}
