// Two invoices that stand in one file: a payment is spent once, on the oldest of them first.
#include "nota_prova.h"
#include "notadamille.h"

#include "feenote/modAcconti.h"
#include "feenote/modFatturaXml.h"
#include "feenote/modStato.h"
#include "platform/system/orologio.h"

using namespace Qt::StringLiterals;
using enum StatoNota;

namespace {

constexpr double Netto = 1459.12;   ///< of 1.000,00
constexpr double DiCento = 145.91;  ///< of 100,00
constexpr double Cento = 126.88;    ///< a payment of 100,00 with fund and VAT
constexpr double Cinquecento = 634.4;

/// An invoice, or a credit note, of one line goes out.
void Emetti(Parcella& Nota, int Numero, double Onorario, bool Credito = false)
{
    Nota.FatturaXml.Tipo = Credito ? u"TD04"_s : QString();
    Nota.txtDatiPar[DatoNumFatt] = QString::number(Numero);
    Nota.txtDatiPar[DatoDataFatt] = u"9/11/2026"_s;
    Nota.xOnorari(0, OnoImporto) = Onorario;
    SegnaFatturaScritta(Nota, u"IT1_%1.xml"_s.arg(Numero), QString::number(Numero));
}

void Paga(Parcella& Nota, double Importo)
{
    Nota.xAcconti(NuovoAcconto(Nota), AccCorrispettivi) = Importo;
}

/// Invoice 12, of which credit note 13 takes 100,00 back, and invoice 14.
Parcella DueVive(double Primo = 1000.0, double Secondo = 1000.0)
{
    Parcella Nota = NotaDaMille(StampaFatturaAnalitica);
    Emetti(Nota, 12, Primo);
    Emetti(Nota, 13, 100.0, true);
    Emetti(Nota, 14, Secondo);
    return Nota;
}

QString Due(double Prima, double Seconda)
{
    return u"%1 %2"_s.arg(Prima, 0, 'f', 2).arg(Seconda, 0, 'f', 2);
}

/// What is left of invoice 12 and of invoice 14, before the credit note.
QString Resti(const Parcella& Nota)
{
    return Due(RestiDellaNota(Nota)[0], RestiDellaNota(Nota).last());
}

}  // namespace

class TestStatoPagamenti : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        AzzeraSessione();
        InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
    }
    void cleanup() { InstallaOrologio({}); }
    void primaLaPiuVecchia_data();
    void primaLaPiuVecchia();
    void piuDiTutte();
    void pagataQuandoLoSonoTutte();
    void stornataIntera();
    void inAcconto();
    void ilSaldoNominaLAcconto();
    void treFatture();
    void centesimi();
    void stornoSottoZero();
    void scissionePrimaODopo();
    void laCoppia();
    void laCoppiaDopo();
    void dueDellaCoppia();
    void leDueListe_data();
    void leDueListe();
    void senzaSaperDiChi();
    void ilRestoDelSocio();
    void laPiuVecchiaStornata();
    void citataNonPiuTenuta();
    void citataAltrove();
    void tolteDaUnaLista();
    void rigaDopoIlPagamento_data();
    void rigaDopoIlPagamento();
};
PROVA(TestStatoPagamenti);

void TestStatoPagamenti::primaLaPiuVecchia_data()
{
    QTest::addColumn<double>("Pagato");
    QTest::addColumn<double>("Prima");
    QTest::addColumn<double>("Seconda");
    QTest::newRow("nothing") << 0.0 << Netto << Netto;
    QTest::newRow("a part of the first") << 500.0 << Netto - Cinquecento << Netto;
    // 1.150,00 less the 115,00 that were taken back
    QTest::newRow("the first") << 1035.0 << DiCento << Netto;
    QTest::newRow("the first and some of the next") << 1135.0 << DiCento << Netto - Cento;
    QTest::newRow("both") << 2185.0 << DiCento << 0.0;
}

/// What the credit note takes back nobody pays: it goes to the next invoice.
void TestStatoPagamenti::primaLaPiuVecchia()
{
    QFETCH(double, Pagato);
    Parcella Prova = DueVive();
    Paga(Prova, Pagato);
    QFETCH(double, Prima);
    QFETCH(double, Seconda);
    QCOMPARE(Resti(Prova), Due(Prima, Seconda));
}

/// What nobody asked for goes to the invoice that was taken back, as if it were alone.
void TestStatoPagamenti::piuDiTutte()
{
    Parcella Prova = DueVive();
    Paga(Prova, 2235.0);
    QCOMPARE(Resti(Prova), Due(82.47, 0.0));  // 50,00 with taxes: 63,44
    Paga(Prova, 9000.0);
    QCOMPARE(Resti(Prova), Due(0.0, 0.0));
}

void TestStatoPagamenti::pagataQuandoLoSonoTutte()
{
    Parcella Prova = DueVive();
    Copertura Vista;
    Paga(Prova, 1150.0);
    QVERIFY(!SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Stato, Fatturata);
    Paga(Prova, 1035.0);
    QVERIFY(SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Stato, Pagata);
    Prova.xAcconti.EliminaRiga(1);
    QVERIFY(SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Stato, Fatturata);
}

/// Of an invoice that was taken back whole nothing is owed: its payments are those of the next.
void TestStatoPagamenti::stornataIntera()
{
    Parcella Prova = NotaDaMille(StampaFatturaAnalitica);
    Emetti(Prova, 12, 1000.0);
    Emetti(Prova, 13, 1000.0, true);
    Emetti(Prova, 14, 1000.0);
    Paga(Prova, 500.0);
    QCOMPARE(Resti(Prova), Due(Netto, Netto - Cinquecento));
    Paga(Prova, 650.0);
    QCOMPARE(Resti(Prova), Due(Netto, 0.0));
}

/// The payment that an invoice names is its own: the next one, a short invoice that lists none, is not paid
/// by it.
void TestStatoPagamenti::inAcconto()
{
    Parcella Prova = NotaDaMille(StampaFatturaAnalitica);
    Paga(Prova, 500.0);
    Emetti(Prova, 12, 1000.0);
    QCOMPARE(ImportiDellaNota(Prova).Netto, Netto - Cinquecento);
    Emetti(Prova, 13, 100.0, true);
    ScegliTipoStampa(Prova, StampaFatturaSintetica);
    Prova.chkAcconti.Attiva = false;
    Emetti(Prova, 14, 1000.0);
    QCOMPARE(ImportiDellaNota(Prova).Netto, Netto);
    QCOMPARE(Resti(Prova), Due(Netto - Cinquecento, Netto));
    Paga(Prova, 100.0);
    QCOMPARE(Resti(Prova), Due(Netto - Cinquecento - Cento, Netto));
    // All of it was paid before it went out.
    Parcella Saldata = NotaDaMille(StampaFatturaAnalitica);
    Paga(Saldata, 1150.0);
    Emetti(Saldata, 12, 1000.0);
    ScegliTipoStampa(Saldata, StampaFatturaSintetica);
    Emetti(Saldata, 13, 1.0, true);
    Saldata.chkAcconti.Attiva = false;
    Emetti(Saldata, 14, 1000.0);
    QCOMPARE(Resti(Saldata), Due(0.0, Netto));
}

/// The final invoice takes away itself what was paid on account: it asks for the rest, and the payment is
/// that of the invoice on account.
void TestStatoPagamenti::ilSaldoNominaLAcconto()
{
    Parcella Prova = NotaDaMille(StampaFatturaAnalitica);
    Emetti(Prova, 12, 500.0);
    Emetti(Prova, 13, 100.0, true);
    Paga(Prova, 460.0);
    Emetti(Prova, 14, 1000.0);
    QCOMPARE(ImportiDellaNota(Prova).Netto, 875.47);
    QCOMPARE(Resti(Prova), Due(DiCento, 875.47));
    Paga(Prova, 100.0);
    QCOMPARE(Resti(Prova), Due(DiCento, 875.47 - Cento));
}

void TestStatoPagamenti::treFatture()
{
    Parcella Prova = DueVive();
    Emetti(Prova, 15, 200.0, true);
    Emetti(Prova, 16, 1000.0);
    Paga(Prova, 1035.0 + 920.0 + 100.0);
    QCOMPARE(RestiDellaNota(Prova)[0], DiCento);
    QCOMPARE(RestiDellaNota(Prova)[2], 291.82);
    QCOMPARE(RestiDellaNota(Prova).last(),
             1332.25);  // the taxes of 2.055,00 are a cent less than those of its parts
    QCOMPARE(RestiDellaNota(Prova)[1], DiCento);  // no payment is a credit note's
}

/// What all invoices ask together pays them, though the taxes of the sum are two cents less.
void TestStatoPagamenti::centesimi()
{
    Parcella Prova = NotaDaMille(StampaFatturaAnalitica);
    Copertura Vista;
    Emetti(Prova, 12, 101.0);
    Emetti(Prova, 13, 10.0, true);
    Emetti(Prova, 14, 101.0);
    Paga(Prova, 104.65);
    Paga(Prova, 116.15);
    QCOMPARE(Resti(Prova), Due(14.59, 0.0));
    QVERIFY(SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Stato, Pagata);
    // Ten cents less are a debt.
    Prova.xAcconti(1, AccCorrispettivi) = 116.05;
    QCOMPARE(Resti(Prova), Due(14.59, 0.14));
}

/// A credit note on paper that names more payments than it has lines takes nothing back, and asks for
/// nothing.
void TestStatoPagamenti::stornoSottoZero()
{
    Parcella Prova = NotaDaMille(StampaFatturaAnalitica);
    Copertura Vista;
    Paga(Prova, 500.0);
    Emetti(Prova, 12, 1000.0);
    Emetti(Prova, 13, 100.0, true);
    QVERIFY(Prova.Stato.Importi->Netto < 0);
    QCOMPARE(RestiDellaNota(Prova)[0], Netto - Cinquecento);
    Paga(Prova, 650.0);
    QCOMPARE(RestiDellaNota(Prova)[0], 0.0);
    QVERIFY(SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Stato, Pagata);
}

/// What pays an invoice without VAT brings the next one its VAT, and the other way round.
void TestStatoPagamenti::scissionePrimaODopo()
{
    for (const bool Prima : {true, false}) {
        Parcella Prova = NotaDaMille(StampaFatturaAnalitica);
        Prova.FatturaXml.Scissione = Prima;
        Emetti(Prova, 12, 1000.0);
        Emetti(Prova, 13, 100.0, true);
        Prova.FatturaXml.Scissione = !Prima;
        Emetti(Prova, 14, 1000.0);
        Paga(Prova, 1135.0);
        QCOMPARE(Resti(Prova), Prima ? Due(119.6, Netto - Cento) : Due(DiCento, 1196.0 - 104.0));
    }
}

/// Payments of the associated note pay what both have asked for, and nothing else.
void TestStatoPagamenti::laCoppia()
{
    Parcella Prova = NotaDaMille(StampaFatturaAnalitica);
    Prova.txtParcMultipla = u"altra"_s;
    Prova.txtPathParcMult = u"/note/altra.mdb"_s;
    Prova.Multi.TotOnorariMulti = 1000;
    Emetti(Prova, 12, 1000.0);
    const int Riga = Prova.Multi.xAccontiMulti.AggiungiRiga();
    Prova.Multi.xAccontiMulti(Riga, AccValuta) = u"E"_s;
    Prova.Multi.xAccontiMulti(Riga, AccCorrispettivi) = 1150.0;
    TieniSocio(Prova);
    Prova.txtParcMultipla.clear();
    Prova.txtPathParcMult.clear();
    Prova.Multi = {};
    Emetti(Prova, 13, 100.0, true);
    Emetti(Prova, 14, 1000.0);
    QCOMPARE(Resti(Prova), Due(Netto, Netto));
    Paga(Prova, 1035.0);
    QCOMPARE(Resti(Prova), Due(DiCento, Netto));
    Paga(Prova, 100.0);
    QCOMPARE(Resti(Prova), Due(DiCento, Netto - Cento));
}

/// The other way round: what this note's payments leave of the invoice of both the associated note pays.
void TestStatoPagamenti::laCoppiaDopo()
{
    Parcella Prova = NotaDaMille(StampaFatturaAnalitica);
    Emetti(Prova, 12, 1000.0);
    Emetti(Prova, 13, 100.0, true);
    Prova.txtParcMultipla = u"altra"_s;
    Prova.txtPathParcMult = u"/note/altra.mdb"_s;
    Prova.Multi.TotOnorariMulti = 1000;
    Emetti(Prova, 14, 1000.0);
    const int Riga = Prova.Multi.xAccontiMulti.AggiungiRiga();
    Prova.Multi.xAccontiMulti(Riga, AccValuta) = u"E"_s;
    Prova.Multi.xAccontiMulti(Riga, AccCorrispettivi) = 100.0;
    QCOMPARE(Resti(Prova), Due(Netto, 2 * Netto - Cento));
    Paga(Prova, 1035.0);
    QCOMPARE(Resti(Prova), Due(DiCento, 2 * Netto - Cento));
    Paga(Prova, 100.0);
    QCOMPARE(Resti(Prova), Due(DiCento, 2 * Netto - 2 * Cento));
}

/// Payments of the associated note are spent once as well.
void TestStatoPagamenti::dueDellaCoppia()
{
    Parcella Prova = NotaDaMille(StampaFatturaAnalitica);
    Prova.txtParcMultipla = u"altra"_s;
    Prova.txtPathParcMult = u"/note/altra.mdb"_s;
    Prova.Multi.TotOnorariMulti = 1000;
    Emetti(Prova, 12, 1000.0);
    Emetti(Prova, 13, 100.0, true);  // with the associated note: 1.100,00
    Emetti(Prova, 14, 1000.0);
    const int Riga = Prova.Multi.xAccontiMulti.AggiungiRiga();
    Prova.Multi.xAccontiMulti(Riga, AccValuta) = u"E"_s;
    Prova.Multi.xAccontiMulti(Riga, AccCorrispettivi) = 1000.0;
    Paga(Prova, 135.0);
    QCOMPARE(Resti(Prova), Due(2 * Netto - 1313.21, 2 * Netto - Cento));
}

void TestStatoPagamenti::leDueListe_data()
{
    QTest::addColumn<double>("PropriPrima");
    QTest::addColumn<double>("SuoiPrima");
    QTest::addColumn<double>("PropriDopo");
    QTest::addColumn<double>("SuoiDopo");
    QTest::addColumn<double>("Sola");
    QTest::addColumn<double>("DiDue");
    const double DueCento = 253.76;
    const double SeiCento = 761.28;
    QTest::newRow("nothing") << 0.0 << 0.0 << 0.0 << 0.0 << Netto << 2 * Netto;
    // What the invoice of both has taken away was the associated note's, this note's money is another.
    QTest::newRow("theirs, then ours")
        << 0.0 << 500.0 << 600.0 << 0.0 << Netto - SeiCento << 2 * Netto - Cinquecento;
    QTest::newRow("theirs, then as much of ours")
        << 0.0 << 500.0 << 500.0 << 0.0 << Netto - Cinquecento << 2 * Netto - Cinquecento;
    // What it has taken away of this note's pays the one before.
    QTest::newRow("ours, then theirs")
        << 200.0 << 0.0 << 0.0 << 500.0 << Netto - DueCento << 2 * Netto - DueCento - Cinquecento;
    QTest::newRow("ours, then as much of theirs")
        << 500.0 << 0.0 << 0.0 << 500.0 << Netto - Cinquecento << 2 * Netto - 2 * Cinquecento;
    QTest::newRow("of both, then of both")
        << 200.0 << 100.0 << 400.0 << 500.0 << Netto - SeiCento << 2 * Netto - DueCento - Cento - Cinquecento;
}

/// Invoice 12 of this note alone, invoice 14 of both: either has its own payments, before 14 went out and
/// after; also of a note that was opened again without the other one.
void TestStatoPagamenti::leDueListe()
{
    QFETCH(double, PropriPrima);
    QFETCH(double, SuoiPrima);
    QFETCH(double, PropriDopo);
    QFETCH(double, SuoiDopo);
    Parcella Prova = NotaDaMille(StampaFatturaAnalitica);
    const auto Pagano = [&Prova](double Propri, double Suoi) {
        if (Propri > 0)
            Paga(Prova, Propri);
        const int Riga = Prova.Multi.xAccontiMulti.AggiungiRiga();
        Prova.Multi.xAccontiMulti(Riga, AccValuta) = u"E"_s;
        Prova.Multi.xAccontiMulti(Riga, AccCorrispettivi) = Suoi;
    };
    Emetti(Prova, 12, 1000.0);
    Prova.txtParcMultipla = u"altra"_s;
    Prova.txtPathParcMult = u"/note/altra.mdb"_s;
    Prova.Multi.TotOnorariMulti = 1000;
    Pagano(PropriPrima, SuoiPrima);
    Emetti(Prova, 14, 1000.0);
    Pagano(PropriDopo, SuoiDopo);
    QFETCH(double, Sola);
    QFETCH(double, DiDue);
    QCOMPARE(Resti(Prova), Due(Sola, DiDue));
    // A copy takes away what the invoice had taken away, of either list.
    (void)NotaInviata(Prova, StampaFatturaAnalitica);
    QCOMPARE(Resti(Prova), Due(Sola, DiDue));
    // Opened again the associated note is known by its sums alone.
    TieniSocio(Prova);
    Prova.txtParcMultipla.clear();
    Prova.Multi = {};
    QCOMPARE(Resti(Prova), Due(Sola, DiDue));
    // And a further invoice, before which 14 stands.
    Emetti(Prova, 16, 1000.0);
    QCOMPARE(Due(RestiDellaNota(Prova)[0], RestiDellaNota(Prova)[1]), Due(Sola, DiDue));
}

/// A file that does not tell whose payments an invoice of both has taken away: the associated note's first,
/// as far as there are any.
void TestStatoPagamenti::senzaSaperDiChi()
{
    Parcella Prova = NotaDaMille(StampaFatturaAnalitica);
    Emetti(Prova, 12, 1000.0);
    Prova.txtParcMultipla = u"altra"_s;
    Prova.txtPathParcMult = u"/note/altra.mdb"_s;
    Prova.Multi.TotOnorariMulti = 1000;
    const int Riga = Prova.Multi.xAccontiMulti.AggiungiRiga();
    Prova.Multi.xAccontiMulti(Riga, AccValuta) = u"E"_s;
    Prova.Multi.xAccontiMulti(Riga, AccCorrispettivi) = 500.0;
    Paga(Prova, 100.0);
    Emetti(Prova, 14, 1000.0);
    QVERIFY(Prova.Stato.Importi->DelSocio);
    Prova.Stato.Importi->DelSocio.reset();
    Paga(Prova, 400.0);
    QCOMPARE(Resti(Prova), Due(Netto - Cinquecento, 2 * Netto - Cinquecento - Cento));
    // A payment that is written over to the other list is not paid twice.
    Prova.Stato.Importi->DelSocio = AccontiTenuti{};
    Prova.xAcconti = TabellaRighe(AccColonne);
    Prova.Multi.xAccontiMulti(Riga, AccCorrispettivi) = 600.0;
    QCOMPARE(Resti(Prova), Due(Netto, 2 * Netto - Cinquecento - Cento));
}

/// What the first of two invoices of both has not needed of the associated note's payments is the next one's.
void TestStatoPagamenti::ilRestoDelSocio()
{
    Parcella Prova = NotaDaMille(StampaFatturaAnalitica);
    Emetti(Prova, 12, 1000.0);
    Prova.txtParcMultipla = u"altra"_s;
    Prova.txtPathParcMult = u"/note/altra.mdb"_s;
    Emetti(Prova, 14, 300.0);
    Emetti(Prova, 16, 500.0);
    Paga(Prova, 1150.0);
    const int Riga = Prova.Multi.xAccontiMulti.AggiungiRiga();
    Prova.Multi.xAccontiMulti(Riga, AccValuta) = u"E"_s;
    Prova.Multi.xAccontiMulti(Riga, AccCorrispettivi) = 500.0;
    // 300,00 with general expenses are 345,00; 155,00 of 575,00 are left for 16.
    QCOMPARE(Resti(Prova), Due(0.0, 532.9));
    QCOMPARE(RestiDellaNota(Prova)[1], 0.0);
}

/// A credit note takes back the invoice that it cites, be it not the one before it.
void TestStatoPagamenti::laPiuVecchiaStornata()
{
    Parcella Prova = NotaDaMille(StampaFatturaAnalitica);
    Copertura Vista;
    Emetti(Prova, 12, 1000.0);
    Emetti(Prova, 30, 1000.0);
    Prova.FatturaXml.CitataNumero = u"12/2026"_s;
    Prova.FatturaXml.CitataData = u"9/11/2026"_s;
    Emetti(Prova, 31, 1000.0, true);
    Paga(Prova, 500.0);
    const auto DueResti = [&Prova] { return Due(RestiDellaNota(Prova)[0], RestiDellaNota(Prova)[1]); };
    QCOMPARE(DueResti(), Due(Netto, Netto - Cinquecento));
    (void)SegueStato(Prova, Vista);
    QCOMPARE(Prova.Stato.Stato, Fatturata);
    Parcella Saldata = Prova;
    Copertura Sua = Vista;
    Paga(Saldata, 650.0);
    (void)SegueStato(Saldata, Sua);
    QCOMPARE(Saldata.Stato.Stato, Pagata);
    // The next invoice takes the citation out of the note.
    Prova.FatturaXml.CitataNumero.clear();
    Prova.FatturaXml.CitataData.clear();
    QCOMPARE(DueResti(), Due(Netto, Netto - Cinquecento));
    Emetti(Prova, 32, 1000.0);
    QCOMPARE(DueResti(), Due(Netto, Netto - Cinquecento));
    // A second credit note that cites none takes back the last invoice before it.
    Emetti(Prova, 33, 100.0, true);
    Emetti(Prova, 34, 100.0, true);
    Paga(Prova, 650.0 + 1150.0 - 230.0);
    (void)SegueStato(Prova, Vista);
    QCOMPARE(Prova.Stato.Stato, Pagata);
}

/// Of six documents the first is let go: its credit note is none of another invoice.
void TestStatoPagamenti::citataNonPiuTenuta()
{
    Parcella Prova = NotaDaMille(StampaFatturaAnalitica);
    Emetti(Prova, 12, 1000.0);
    Emetti(Prova, 30, 1000.0);
    Prova.FatturaXml.CitataNumero = u"12"_s;
    Prova.FatturaXml.CitataData = u"9/11/2026"_s;
    Emetti(Prova, 31, 1000.0, true);
    Emetti(Prova, 32, 1000.0);
    Emetti(Prova, 33, 1000.0);
    Emetti(Prova, 34, 1000.0);
    QCOMPARE(Prova.Stato.Emessi[0].Numero, u"30"_s);
    Paga(Prova, 500.0);
    QCOMPARE(RestiDellaNota(Prova)[0], Netto - Cinquecento);
}

/// An invoice of another file is cited: that of this one is not taken back, and not paid by it.
void TestStatoPagamenti::citataAltrove()
{
    Parcella Prova = NotaDaMille(StampaFatturaAnalitica);
    Emetti(Prova, 12, 500.0);
    Prova.FatturaXml.CitataNumero = u"7"_s;
    Prova.FatturaXml.CitataData = u"9/11/2026"_s;
    Emetti(Prova, 13, 1000.0, true);
    Copertura Vista;
    Paga(Prova, 100.0);
    (void)SegueStato(Prova, Vista);
    QCOMPARE(Prova.Stato.Stato, Fatturata);
    QCOMPARE(RestiDellaNota(Prova)[0], Netto / 2 - Cento);
}

/// A payment that has gone from this note's list takes nothing of the associated note's away.
void TestStatoPagamenti::tolteDaUnaLista()
{
    Parcella Prova = NotaDaMille(StampaFatturaAnalitica);
    Paga(Prova, 500.0);
    Emetti(Prova, 12, 1000.0);
    Prova.xAcconti = TabellaRighe(AccColonne);
    Prova.txtParcMultipla = u"altra"_s;
    Prova.txtPathParcMult = u"/note/altra.mdb"_s;
    Prova.Multi.TotOnorariMulti = 1000;
    Emetti(Prova, 14, 1000.0);
    const int Riga = Prova.Multi.xAccontiMulti.AggiungiRiga();
    Prova.Multi.xAccontiMulti(Riga, AccValuta) = u"E"_s;
    Prova.Multi.xAccontiMulti(Riga, AccCorrispettivi) = 500.0;
    QCOMPARE(Resti(Prova), Due(Netto - Cinquecento, 2 * Netto - Cinquecento));
}

void TestStatoPagamenti::rigaDopoIlPagamento_data()
{
    QTest::addColumn<double>("Onorario");
    QTest::addColumn<double>("Pagato");
    QTest::addColumn<double>("Aggiunto");
    QTest::newRow("550 and 550") << 550.0 << 632.5 << 550.0;
    QTest::newRow("550 and 50") << 550.0 << 632.5 << 50.0;
    QTest::newRow("800 and 400") << 800.0 << 920.0 << 400.0;
    QTest::newRow("333,33 and 1") << 333.33 << 383.33 << 1.0;
}

/// Taxes of the payment are rounded with those of the invoice that it pays, not with those of a longer note.
void TestStatoPagamenti::rigaDopoIlPagamento()
{
    QFETCH(double, Onorario);
    QFETCH(double, Pagato);
    QFETCH(double, Aggiunto);
    Parcella Nota = NotaDaMille(StampaFatturaAnalitica);
    Copertura Vista;
    Emetti(Nota, 12, Onorario);
    Paga(Nota, Pagato);
    (void)SegueStato(Nota, Vista);
    QCOMPARE(Nota.Stato.Stato, Pagata);
    Nota.xOnorari(0, OnoImporto) = Onorario + Aggiunto;
    (void)SegueStato(Nota, Vista);
    QCOMPARE(Nota.Stato.Stato, Pagata);
    QCOMPARE(RestiDellaNota(Nota), QList<double>{0.0});
}

#include "TestStatoPagamenti.moc"
