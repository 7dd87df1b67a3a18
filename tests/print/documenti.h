// What the tests of the documents share: notes with all print data, documents chosen as in the list.
#pragma once

#include "campioni.h"
#include "feenote/modInterruttori.h"
#include "platform/system/orologio.h"
#include "print/modStampe.h"

#include <QTest>

namespace documenti {

using namespace Qt::StringLiterals;

/// A fixed day for as long as the object lives.
class DataFissa
{
public:
    explicit DataFissa(const QDate& Giorno)
        : Precedente(InstallaOrologio([Giorno] { return QDateTime(Giorno, QTime(9, 0)); }))
    {}
    ~DataFissa() { InstallaOrologio(Precedente); }
    DataFissa(const DataFissa&) = delete;
    DataFissa& operator=(const DataFissa&) = delete;

private:
    std::function<QDateTime()> Precedente;
};

/// Invoice and filing data, subject of the associated note, who signs for a company.
inline Parcella Completa(Parcella Nota)
{
    Nota.txtDatiPar[DatoNumFatt] = u" 45 "_s;
    Nota.txtDatiPar[DatoDataFatt] = u"30/12/2013"_s;
    Nota.txtDatiPar[DatoDepAutorita] = u"Tribunale di Milano"_s;
    Nota.txtDatiPar[DatoDepSezione] = u"V civile"_s;
    Nota.txtDatiPar[DatoDepRuolo] = u"1234/2013"_s;
    Nota.txtDatiPar[DatoDepGiudice] = u"Bruno Conti"_s;
    Nota.Multi.OggettoMulti = u"difesa nel procedimento penale"_s;
    Nota.Rappr = {u"Carla Bruni"_s, u"02/03/1960"_s, u"Como"_s, u"Via Po 1, Como"_s};
    return Nota;
}

/// Two notes in one, the second behind: the parameters of both, their triples, expenses and payments in both,
/// an increase of the decree.
inline Parcella ConParametri()
{
    Parcella Nota = Completa(campioni::ConAssociata(false));
    Nota.chkMultiParam = true;
    Nota.chkMinMax.Attiva = true;
    Nota.txtImporto.Testo = u"30.000,00"_s;
    Nota.AumRidIdx = 0;
    Nota.AumRidVarP = 20;
    Nota.Multi.CategMulti = u"Penale"_s;
    Nota.Multi.OggettoMulti.clear();
    Nota.xOnorari(0, OnoMin) = 600.0;
    Nota.xOnorari(0, OnoMax) = 2400.0;
    Nota.Multi.xOnorariMulti(0, OnoMin) = 450.0;
    Nota.Multi.xOnorariMulti(0, OnoMax) = 1800.0;
    campioni::AggiungiSpesa(Nota.xDiritti, u"Notifiche"_s, 2.0, 30.0, 10.0);
    campioni::AggiungiAcconto(Nota.xAcconti, u"Bonifico del 02/04/2013"_s, u"E"_s, 500.0, 20.0, 10.0);
    campioni::AggiungiAcconto(Nota.xAcconti, u"Contanti"_s, u"L"_s, 100000.0, 50000.0);
    return Nota;
}

/// The client as this document words it; the head of a page keeps the sample's own rows.
inline void ScriviCliente(Parcella& Nota, int Tipo)
{
    const bool Discorsivo = Tipo == StampaContratto || Tipo == StampaInformativa;
    QString& Blocco = Nota.txtDatiStaCli.Testo;
    if (Tipo == StampaNotaGiudiziale)
        Blocco = Blocco.section(u'\n', 0, 0).trimmed();
    else if (Discorsivo && !Blocco.isEmpty())
        Blocco = Nota.optContrTipo == 1
                     ? u"Gamma S.p.A. con sede in Corso Italia 7 - 10100 Torino (TO) P.IVA 01234567890"_s
                     : u"Mario Rossi nato a Monza il 01/01/1970 residente in Via Verdi 3 - 20100 Milano (MI) "
                       u"C.F. RSSMRA70A01F205X"_s;
}

/// The note with a document chosen in the list.
inline Parcella ScegliTipo(Parcella Nota, int Tipo)
{
    if (!Nota.chkRegSempl.Attiva)
        RicordaStampa(Nota);
    ScegliTipoStampa(Nota, Tipo);
    return Nota;
}

/// The document of a note as it stands.
inline Documento ComeSta(const Parcella& Nota, int Tipo)
{
    Superficie vp;
    [[maybe_unused]] const bool Riuscito = Anteprima(vp, Nota, Tipo);
    return vp.Contenuto();
}

/// The document of a note for which it has been chosen.
inline Documento Composto(Parcella Nota, int Tipo)
{
    Nota = ScegliTipo(std::move(Nota), Tipo);
    ScriviCliente(Nota, Tipo);
    return ComeSta(Nota, Tipo);
}

/// Rows of data, one for each document.
inline void RighePerTipo()
{
    QTest::addColumn<int>("Tipo");
    for (int Tipo = StampaPrenotula; Tipo <= StampaSoloContabile; ++Tipo)
        QTest::newRow(qPrintable(VociTipoStampa().value(Tipo))) << Tipo;
}

}  // namespace documenti
