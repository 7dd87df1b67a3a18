// The credit note takes away what its invoice had taken away: one sum on paper, in the file and in the state.
#include "nota_prova.h"
#include "notadamille.h"

#include "feenote/modAcconti.h"
#include "feenote/modFatturaXml.h"
#include "feenote/modStato.h"
#include "feenote/modStorno.h"
#include "platform/base/regionale.h"
#include "platform/system/orologio.h"

using namespace Qt::StringLiterals;
using enum StatoNota;

namespace {

constexpr double Intero = 1459.12;
constexpr double Meno400 = 951.60;  // 750,00 with fund and VAT

void Paga(Parcella& Nota, const QString& Descrizione, double Compensi, double Esenti = 0)
{
    const int Riga = NuovoAcconto(Nota);
    Nota.xAcconti(Riga, AccDescr) = Descrizione;
    Nota.xAcconti(Riga, AccCorrispettivi) = Compensi;
    Nota.xAcconti(Riga, AccSpeseImp) = 0.0;
    Nota.xAcconti(Riga, AccSpeseEsenti) = Esenti;
}

void Emetti(Parcella& Nota, const QString& Numero)
{
    Nota.txtDatiPar[DatoNumFatt] = Numero;
    Nota.txtDatiPar[DatoDataFatt] = u"9/11/2026"_s;
    SegnaFatturaScritta(Nota, u"IT1.xml"_s, Numero);
}

/// The panel: the invoice that was written becomes the one cited.
void ComeCredito(Parcella& Nota, const QString& Citata = u"12/2026"_s)
{
    Nota.FatturaXml.Tipo = u"TD04"_s;
    Nota.FatturaXml.CitataNumero = Citata;
    Nota.FatturaXml.CitataData = u"09/11/2026"_s;
    Nota.txtDatiPar.remove(DatoNumFatt);
    Nota.txtDatiPar.remove(DatoDataFatt);
}

/// The payments that the document lists, by their names.
QString Elenco(const Parcella& Nota, int Tipo = StampaFatturaAnalitica)
{
    const AccontiDetratti Detratti = AccontiDelDocumento(Nota, Tipo);
    QStringList Nomi;
    for (const TabellaRighe* Righe : {&Detratti.Propri, &Detratti.Altri})
        for (int Riga = 0; Riga < Righe->Righe(); ++Riga)
            Nomi += CStr((*Righe)(Riga, AccDescr));
    return Nomi.join(u", "_s);
}

double Totale(const Parcella& Nota, int Tipo = StampaFatturaAnalitica)
{
    return CatenaFiscale(Nota, Tipo).Totale;
}

}  // namespace

class TestNotaDiCredito : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        AzzeraSessione();
        InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
    }
    void cleanup() { InstallaOrologio({}); }
    void pagataDopo_data();
    void pagataDopo();
    void accontoGiaFatturato();
    void quelliDellAssociata();
    void soloICorrispettiviDellaFattura();
    void unaParte();
    void righeCambiate();
    void rimborsata();
    void qualeFattura();
    void citataAltroveDopoTante_data();
    void citataAltroveDopoTante();
    void senzaLaFattura();
    void gliAltriDocumenti();
};
PROVA(TestNotaDiCredito);

void TestNotaDiCredito::pagataDopo_data()
{
    QTest::addColumn<double>("Pagati");
    QTest::newRow("in part") << 400.0;
    QTest::newRow("in full") << 1150.0;
    QTest::newRow("more than asked") << 2000.0;
}

/// What was paid of the invoice is no less to take back.
void TestNotaDiCredito::pagataDopo()
{
    QFETCH(double, Pagati);
    Parcella Nota = NotaDaMille(StampaFatturaAnalitica);
    Copertura Vista;
    Emetti(Nota, u"12"_s);
    Paga(Nota, u"bonifico"_s, Pagati);
    (void)SegueStato(Nota, Vista);
    QCOMPARE(Nota.Stato.Stato, Pagati < 1150 ? Fatturata : Pagata);
    ComeCredito(Nota);
    for (const bool Uscita : {false, true}) {
        if (Uscita)
            Emetti(Nota, u"13"_s);
        for (const int Tipo : {StampaFatturaAnalitica, StampaFatturaSintetica}) {
            QCOMPARE(Totale(Nota, Tipo), Intero);
            QCOMPARE(Elenco(Nota, Tipo), QString());
        }
    }
    QCOMPARE(ImportiDellaNota(Nota).Totale, Intero);
    QCOMPARE(ImportiDellaNota(Nota), Nota.Stato.Emessi[0].Importi);
}

/// What the invoice did not ask for is not given back either.
void TestNotaDiCredito::accontoGiaFatturato()
{
    Parcella Nota = NotaDaMille(StampaFatturaAnalitica);
    Paga(Nota, u"fattura 3"_s, 400);
    Emetti(Nota, u"12"_s);
    QCOMPARE(ImportiDellaNota(Nota).Totale, Meno400);
    Paga(Nota, u"saldo"_s, 750);
    ComeCredito(Nota);
    for (const bool Uscita : {false, true}) {
        if (Uscita)
            Emetti(Nota, u"13"_s);
        QCOMPARE(Totale(Nota), Meno400);
        QCOMPARE(Elenco(Nota), u"fattura 3"_s);
    }
    QCOMPARE(ImportiDellaNota(Nota), Nota.Stato.Emessi[0].Importi);
}

/// Both lists are longer by now; the first rows of each are those of the invoice.
void TestNotaDiCredito::quelliDellAssociata()
{
    Parcella Nota = NotaDaMille(StampaFatturaAnalitica);
    Nota.txtParcMultipla = u"altra"_s;
    Nota.Multi.TotOnorariMulti = 1000;
    Paga(Nota, u"uno"_s, 100);
    Parcella Altra;
    Paga(Altra, u"due"_s, 200, 10);
    Nota.Multi.xAccontiMulti = Altra.xAcconti;
    Emetti(Nota, u"12"_s);
    const ImportiDocumento Sue = ImportiDellaNota(Nota);
    Paga(Nota, u"tre"_s, 300);
    Paga(Altra, u"quattro"_s, 400);
    Nota.Multi.xAccontiMulti = Altra.xAcconti;
    ComeCredito(Nota);
    QCOMPARE(Elenco(Nota), u"uno, due"_s);
    Emetti(Nota, u"13"_s);
    QCOMPARE(ImportiDellaNota(Nota), Sue);
}

/// A short invoice that listed no payments had taken none away.
void TestNotaDiCredito::soloICorrispettiviDellaFattura()
{
    Parcella Nota = NotaDaMille(StampaFatturaSintetica);
    Paga(Nota, u"fattura 3"_s, 400);
    CambiaAcconti(Nota, false);
    Emetti(Nota, u"12"_s);
    QCOMPARE(ImportiDellaNota(Nota).Totale, Intero);
    ComeCredito(Nota);
    CambiaAcconti(Nota, true);
    QCOMPARE(Totale(Nota, StampaFatturaSintetica), Intero);
    QCOMPARE(Elenco(Nota, StampaFatturaSintetica), QString());
    // The tick of the short document holds for a credit note too.
    Parcella Altra = NotaDaMille(StampaFatturaSintetica);
    Paga(Altra, u"fattura 3"_s, 400);
    Emetti(Altra, u"12"_s);
    ComeCredito(Altra);
    QCOMPARE(Totale(Altra, StampaFatturaSintetica), Meno400);
    CambiaAcconti(Altra, false);
    QCOMPARE(Totale(Altra, StampaFatturaSintetica), Intero);
}

/// A credit note of one line: the payments that stand in its way can be taken out of the list.
void TestNotaDiCredito::unaParte()
{
    Parcella Nota = NotaDaMille(StampaFatturaAnalitica);
    Paga(Nota, u"fattura 3"_s, 400);
    Emetti(Nota, u"12"_s);
    ComeCredito(Nota);
    Nota.xOnorari(0, OnoImporto) = 100.0;
    QVERIFY(Totale(Nota) < 0);
    Nota.xAcconti.EliminaRiga(0);
    QCOMPARE(Totale(Nota), 145.91);
}

/// Rows that no longer make the invoice's sum: one row bears it.
void TestNotaDiCredito::righeCambiate()
{
    Parcella Nota = NotaDaMille(StampaFatturaAnalitica);
    Paga(Nota, u"fattura 3"_s, 400);
    Emetti(Nota, u"12"_s);
    ComeCredito(Nota);
    Nota.xAcconti(0, AccCorrispettivi) = 500.0;
    QCOMPARE(Elenco(Nota), u"Acconti detratti dalla fattura"_s);
    QCOMPARE(Totale(Nota), Meno400);
    Nota.xAcconti(0, AccCorrispettivi) = 300.0;
    QCOMPARE(Elenco(Nota), u"fattura 3"_s);
    QCOMPARE(CalcolaAcconti(Nota, StampaFatturaAnalitica).AccontiCorrispettivi, 300.0);
}

/// A payment given back is written as one below 0.
void TestNotaDiCredito::rimborsata()
{
    Parcella Nota = NotaDaMille(StampaFatturaAnalitica);
    Emetti(Nota, u"12"_s);
    Paga(Nota, u"rimborso"_s, -400);
    ComeCredito(Nota);
    QCOMPARE(Totale(Nota), Intero);
    Parcella Altra = NotaDaMille(StampaFatturaAnalitica);
    Paga(Altra, u"fattura 3"_s, 400);
    Emetti(Altra, u"12"_s);
    Paga(Altra, u"rimborso"_s, -400);
    ComeCredito(Altra);
    QCOMPARE(Totale(Altra), Meno400);
}

/// Of two invoices the one that is cited; one that is neither has none of their payments.
void TestNotaDiCredito::qualeFattura()
{
    Parcella Nota = NotaDaMille(StampaFatturaAnalitica);
    Paga(Nota, u"fattura 3"_s, 400);
    Emetti(Nota, u"12"_s);
    ComeCredito(Nota);
    Emetti(Nota, u"13"_s);
    Nota.FatturaXml.Tipo.clear();
    Paga(Nota, u"fattura 12"_s, 100);
    Emetti(Nota, u"14"_s);
    ComeCredito(Nota, u"14"_s);
    QCOMPARE(Elenco(Nota), u"fattura 3, fattura 12"_s);
    ComeCredito(Nota, u" 12/2026"_s);
    QCOMPARE(Elenco(Nota), u"fattura 3"_s);
    ComeCredito(Nota, u"99"_s);
    QCOMPARE(Elenco(Nota), QString());
    QVERIFY(CitataAltrove(Nota));
}

void TestNotaDiCredito::citataAltroveDopoTante_data()
{
    QTest::addColumn<int>("Fatture");
    for (const int Quante : {1, 3, 4, 5, 6})
        QTest::addRow("%d", Quante) << Quante;
}

/// However many went out before, the copy says what the credit note has said.
void TestNotaDiCredito::citataAltroveDopoTante()
{
    QFETCH(int, Fatture);
    Parcella Nota = NotaDaMille(StampaFatturaAnalitica);
    Paga(Nota, u"bonifico"_s, 400);
    for (int i = 0; i < Fatture; ++i)
        Emetti(Nota, QString::number(12 + i));
    ComeCredito(Nota, u"99"_s);
    for (int i = 0; i < 2; ++i) {
        QVERIFY(CitataAltrove(Nota));
        QCOMPARE(Elenco(Nota), QString());
        Emetti(Nota, u"30"_s);
    }
}

/// A credit note in a file of its own says itself what it takes away, and its state says the same.
void TestNotaDiCredito::senzaLaFattura()
{
    Parcella Nota = NotaDaMille(StampaFatturaAnalitica);
    Paga(Nota, u"fattura 3"_s, 400);
    ComeCredito(Nota);
    QCOMPARE(Totale(Nota), Meno400);
    Emetti(Nota, u"13"_s);
    QCOMPARE(ImportiDellaNota(Nota).Totale, Meno400);
    QCOMPARE(Totale(Nota), Meno400);
    // An invoice that is called a draft again has never been one.
    Parcella Bozza = NotaDaMille(StampaFatturaAnalitica);
    Emetti(Bozza, u"12"_s);
    Paga(Bozza, u"fattura 3"_s, 400);
    (void)ScegliStato(Bozza, StatoNota::Bozza);
    ComeCredito(Bozza);
    QCOMPARE(Totale(Bozza), Meno400);
}

/// The other documents of a note whose panel says credit note, and an invoice, take all payments away.
void TestNotaDiCredito::gliAltriDocumenti()
{
    Parcella Nota = NotaDaMille(StampaFatturaAnalitica);
    Emetti(Nota, u"12"_s);
    Paga(Nota, u"bonifico"_s, 400);
    QCOMPARE(Totale(Nota), Meno400);
    ComeCredito(Nota);
    QCOMPARE(Totale(Nota, StampaPrenotula), Meno400);
    QCOMPARE(Totale(Nota, StampaSoloContabile), Meno400);
    QCOMPARE(Elenco(Nota, StampaPrenotula), u"bonifico"_s);
    QCOMPARE(Elenco(Nota, StampaNotaGiudiziale), QString());
}

#include "TestNotaDiCredito.moc"
