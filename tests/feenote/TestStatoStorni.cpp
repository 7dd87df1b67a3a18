// An invoice and its credit note in one file: what has gone out before stands beside what has gone out last.
#include "nota_prova.h"
#include "notadamille.h"

#include "feenote/modAcconti.h"
#include "feenote/modDuplica.h"
#include "feenote/modFatturaXml.h"
#include "feenote/modStato.h"
#include "platform/system/orologio.h"

using namespace Qt::StringLiterals;
using enum StatoNota;

namespace {

constexpr double Netto = 1459.12;

Parcella Nota()
{
    return NotaDaMille(StampaFatturaAnalitica);
}

/// The invoice, or the credit note, of a number goes out as a file.
void Emetti(Parcella& Nota, int Numero, bool Credito = false)
{
    Nota.FatturaXml.Tipo = Credito ? u"TD04"_s : QString();
    Nota.txtDatiPar[DatoNumFatt] = QString::number(Numero);
    Nota.txtDatiPar[DatoDataFatt] = u"9/11/2026"_s;
    SegnaFatturaScritta(Nota, u"IT1_%1.xml"_s.arg(Numero), QString::number(Numero));
}

QString Numeri(const Parcella& Nota)
{
    QStringList Tutti;
    for (const DocumentoEmesso& Uno : Nota.Stato.Emessi)
        Tutti += (Uno.Storno ? u"-"_s : QString()) + Uno.Numero;
    return Tutti.join(u' ') + u" | "_s + (Nota.Stato.Storno ? u"-"_s : QString()) + Nota.Stato.Numero;
}

}  // namespace

class TestStatoStorni : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        AzzeraSessione();
        InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
    }
    void cleanup() { InstallaOrologio({}); }
    void laFatturaResta();
    void pagatiDopo();
    void unaParte();
    void laCopiaNonCambia();
    void unaDopoLAltra();
    void ilNumeroCorretto();
    void primaDelNumero();
    void sceltaAMano();
    void righeTolteDopo();
    void pagataSoloInTutto();
    void scissioneDeiPagamenti();
    void quelloDelPrimoStato_data();
    void quelloDelPrimoStato();
};
PROVA(TestStatoStorni);

void TestStatoStorni::laFatturaResta()
{
    Parcella Prova = Nota();
    Emetti(Prova, 12);
    QCOMPARE(Numeri(Prova), u" | 12"_s);
    QCOMPARE(Prova.Stato.Data, u"09/11/2026"_s);
    const ImportiDocumento Sue = ImportiDellaNota(Prova);
    QCOMPARE(Sue.Netto, Netto);
    Prova.xOnorari(0, OnoImporto) = 100.0;
    Emetti(Prova, 13, true);
    QCOMPARE(Numeri(Prova), u"12 | -13"_s);
    QCOMPARE(Prova.Stato.Emessi, (QList<DocumentoEmesso>{{.Documento = StampaFatturaAnalitica,
                                                          .Numero = u"12"_s,
                                                          .Data = u"09/11/2026"_s,
                                                          .Importi = Sue,
                                                          .Dal = u"22/11/2026"_s,
                                                          .ConFile = true}}));
    QCOMPARE(ImportiDellaNota(Prova).Netto, 145.91);
    // The same on paper: the number is typed, the print says the rest.
    Parcella Carta = Nota();
    Carta.txtDatiPar[DatoNumFatt] = u" 12 "_s;
    Carta.txtDatiPar[DatoDataFatt] = u"09/11/2026"_s;
    (void)NotaInviata(Carta, StampaFatturaAnalitica);
    Carta.FatturaXml.Tipo = u"TD04"_s;
    Carta.txtDatiPar[DatoNumFatt] = u"13"_s;
    (void)NotaInviata(Carta, StampaFatturaAnalitica);
    QCOMPARE(Numeri(Carta), u"12 | -13"_s);
}

/// Payments behind the credit note are still those of the invoice.
void TestStatoStorni::pagatiDopo()
{
    Parcella Prova = Nota();
    Emetti(Prova, 12);
    Emetti(Prova, 13, true);
    QCOMPARE(RestiDellaNota(Prova)[0], Netto);
    Prova.xAcconti(NuovoAcconto(Prova), AccCorrispettivi) = 100.0;
    QCOMPARE(RestiDellaNota(Prova)[0], 1332.24);
    Prova.xAcconti(NuovoAcconto(Prova), AccCorrispettivi) = 5000.0;
    QCOMPARE(RestiDellaNota(Prova)[0], 0.0);
}

/// Of a document of two notes the payments of the other one count too, as long as it is known.
void TestStatoStorni::unaParte()
{
    Parcella Prova = Nota();
    Prova.txtParcMultipla = u"altra"_s;
    Prova.txtPathParcMult = u"/note/altra.mdb"_s;
    Prova.Multi.TotOnorariMulti = 1000;
    Emetti(Prova, 12);
    const int Riga = Prova.Multi.xAccontiMulti.AggiungiRiga();
    Prova.Multi.xAccontiMulti(Riga, AccValuta) = u"E"_s;
    Prova.Multi.xAccontiMulti(Riga, AccCorrispettivi) = 100.0;
    TieniSocio(Prova);
    Prova.txtParcMultipla.clear();
    Prova.txtPathParcMult.clear();
    Prova.Multi = {};
    Emetti(Prova, 13, true);
    QVERIFY(!Prova.Stato.ConSocio);
    QVERIFY(UscitaConSocio(Prova));
    QVERIFY(Prova.Stato.Emessi[0].ConSocio);
    QCOMPARE(RestiDellaNota(Prova)[0], 2 * Netto - 126.88);
    QCOMPARE(RestiDellaNota(Prova).last(), Netto);
}

/// Printed again behind its credit note, an invoice is a copy: it is not owed anew.
void TestStatoStorni::laCopiaNonCambia()
{
    Parcella Prova = Nota();
    Emetti(Prova, 12);
    Emetti(Prova, 13, true);
    const StatoTenuto Era = Prova.Stato;
    Prova.FatturaXml.Tipo.clear();
    Prova.txtDatiPar[DatoNumFatt] = u"12"_s;
    QVERIFY(!NotaInviata(Prova, StampaFatturaAnalitica));
    QCOMPARE(Prova.Stato, Era);
    // One of that number and another day is another one.
    Prova.txtDatiPar[DatoDataFatt] = u"10/11/2026"_s;
    QVERIFY(NotaInviata(Prova, StampaFatturaAnalitica));
    QCOMPARE(Numeri(Prova), u"12 -13 | 12"_s);
}

void TestStatoStorni::unaDopoLAltra()
{
    Parcella Prova = Nota();
    QStringList Viste;
    for (int Numero = 12; Numero <= 18; ++Numero) {
        Emetti(Prova, Numero, Numero % 2 == 1);
        Viste += Numeri(Prova);
    }
    QCOMPARE(Viste,
             (QStringList{u" | 12"_s, u"12 | -13"_s, u"12 -13 | 14"_s, u"12 -13 14 | -15"_s,
                          u"12 -13 14 -15 | 16"_s, u"-13 14 -15 16 | -17"_s, u"14 -15 16 -17 | 18"_s}));
    // Two invoices without a credit note between them: the file of the first is written.
    Emetti(Prova, 19);
    QCOMPARE(Numeri(Prova), u"-15 16 -17 18 | 19"_s);
}

/// A number that is put right is that of the invoice; the one of the credit note in hand is not.
void TestStatoStorni::ilNumeroCorretto()
{
    Parcella Prova = Nota();
    Copertura Vista;
    Prova.txtDatiPar[DatoNumFatt] = u"12"_s;
    Prova.txtDatiPar[DatoDataFatt] = u"9/11/2026"_s;
    (void)NotaInviata(Prova, StampaFatturaAnalitica);
    Prova.txtDatiPar[DatoNumFatt] = u"21"_s;
    QVERIFY(SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Numero, u"21"_s);
    Prova.FatturaXml.Tipo = u"TD04"_s;
    Prova.txtDatiPar.remove(DatoNumFatt);
    QVERIFY(!SegueStato(Prova, Vista));
    Prova.txtDatiPar[DatoNumFatt] = u"22"_s;
    QVERIFY(!SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Numero, u"21"_s);
    Emetti(Prova, 22, true);
    QCOMPARE(Numeri(Prova), u"21 | -22"_s);
}

/// The draft of a credit note asks for nothing either; with its number it takes its invoice back.
void TestStatoStorni::primaDelNumero()
{
    Parcella Prova = Nota();
    Prova.FatturaXml.Tipo = u"TD04"_s;
    QVERIFY(NotaInviata(Prova, StampaFatturaAnalitica));
    QCOMPARE(Prova.Stato.Stato, Inviata);
    QVERIFY(Prova.Stato.Storno);
    QVERIFY(!Prova.Stato.Emessa);
    Emetti(Prova, 13, true);
    QCOMPARE(Numeri(Prova), u" | -13"_s);
    QVERIFY(Prova.Stato.Emessa);
    // A pro-forma note is none, whatever the panel of the invoice says.
    Parcella Prenotula = Nota();
    Prenotula.FatturaXml.Tipo = u"TD04"_s;
    (void)NotaInviata(Prenotula, StampaPrenotula);
    QVERIFY(!Prenotula.Stato.Storno);
}

void TestStatoStorni::sceltaAMano()
{
    Parcella Prova = Nota();
    Prova.FatturaXml.Tipo = u"TD04"_s;
    QVERIFY(ScegliStato(Prova, Inviata));
    QVERIFY(Prova.Stato.Storno);
    Prova.FatturaXml.Tipo.clear();
    QVERIFY(ScegliStato(Prova, Fatturata));
    QVERIFY(!Prova.Stato.Storno);
    // Of a document that has gone out a choice changes nothing but the state.
    Emetti(Prova, 12);
    Prova.FatturaXml.Tipo = u"TD04"_s;
    QVERIFY(ScegliStato(Prova, Pagata));
    QVERIFY(!Prova.Stato.Storno);
}

/// Lines that are taken away behind a document do not make less of what it asked.
void TestStatoStorni::righeTolteDopo()
{
    Parcella Prova = Nota();
    Copertura Vista;
    Emetti(Prova, 12);
    Prova.xOnorari(0, OnoImporto) = 500.0;
    Prova.xAcconti(NuovoAcconto(Prova), AccCorrispettivi) = 575.0;
    QVERIFY(!SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Stato, Fatturata);
    QCOMPARE(RestiDellaNota(Prova).last(), 729.56);
    Prova.xAcconti(NuovoAcconto(Prova), AccCorrispettivi) = 575.0;
    QVERIFY(SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Stato, Pagata);
}

/// A payment that covers the lines of the credit note is none of what the credit note leaves of its invoice.
void TestStatoStorni::pagataSoloInTutto()
{
    Parcella Prova = Nota();
    Copertura Vista;
    Emetti(Prova, 12);
    Prova.xAcconti(NuovoAcconto(Prova), AccCorrispettivi) = 300.0;
    (void)SegueStato(Prova, Vista);
    Prova.xOnorari(0, OnoImporto) = 100.0;
    Emetti(Prova, 13, true);
    (void)SegueStato(Prova, Vista);
    QCOMPARE(Prova.Stato.Stato, Fatturata);
    QCOMPARE(RestiDellaNota(Prova)[0], 1078.48);
    QVERIFY(!Vista.Coperta);
    // 1.150,00 less 115,00 and 300,00.
    Prova.xAcconti(NuovoAcconto(Prova), AccCorrispettivi) = 735.0;
    (void)SegueStato(Prova, Vista);
    QCOMPARE(Prova.Stato.Stato, Pagata);
    Prova.xAcconti.EliminaRiga(1);
    (void)SegueStato(Prova, Vista);
    QCOMPARE(Prova.Stato.Stato, Fatturata);
    // The next invoice is paid, what is left of the first is not.
    Emetti(Prova, 14);
    Prova.xAcconti(NuovoAcconto(Prova), AccCorrispettivi) = 115.0;
    (void)SegueStato(Prova, Vista);
    QCOMPARE(Prova.Stato.Stato, Fatturata);
    // A credit note alone has asked nobody for money.
    Parcella Sola = Nota();
    Copertura Sua;
    Emetti(Sola, 13, true);
    Sola.xAcconti(NuovoAcconto(Sola), AccCorrispettivi) = 5000.0;
    (void)SegueStato(Sola, Sua);
    QCOMPARE(Sola.Stato.Stato, Fatturata);
}

/// A public client pays the VAT to the treasury: it is neither open nor in what he pays.
void TestStatoStorni::scissioneDeiPagamenti()
{
    Parcella Prova = Nota();
    Copertura Vista;
    Prova.FatturaXml.Scissione = true;
    QCOMPARE(ImportiDellaNota(Prova).Netto, 1196.0);
    Emetti(Prova, 12);
    QCOMPARE(ImportiDellaNota(Prova).Totale, Netto);
    QCOMPARE(ImportiDellaNota(Prova).IVA, 263.12);
    QCOMPARE(ImportiDellaNota(Prova).Netto, 1196.0);
    QCOMPARE(RestiDellaNota(Prova).last(), 1196.0);
    Prova.xAcconti(NuovoAcconto(Prova), AccCorrispettivi) = 100.0;
    QCOMPARE(RestiDellaNota(Prova).last(), 1092.0);
    QVERIFY(!SegueStato(Prova, Vista));
    Prova.xAcconti(NuovoAcconto(Prova), AccCorrispettivi) = 1050.0;
    QVERIFY(SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Stato, Pagata);
    // The document keeps what it asked, whatever is ticked afterwards.
    Prova.FatturaXml.Scissione = false;
    QCOMPARE(RestiDellaNota(Prova).last(), 0.0);
    Emetti(Prova, 13, true);
    QCOMPARE(RestiDellaNota(Prova)[0], 0.0);
    // A pro-forma note asks for all of it.
    Parcella Prenotula = Nota();
    Prenotula.FatturaXml.Scissione = true;
    (void)NotaInviata(Prenotula, StampaPrenotula);
    QCOMPARE(ImportiDellaNota(Prenotula).Netto, Netto);
}

void TestStatoStorni::quelloDelPrimoStato_data()
{
    QTest::addColumn<int>("Come");
    QTest::addColumn<QString>("Attesi");
    QTest::newRow("never gone out") << 0 << u" | -13"_s;
    QTest::newRow("as a pro-forma note only") << 1 << u" | -13"_s;
    QTest::newRow("a copy of the note") << 2 << u" | -13"_s;
    QTest::newRow("called a draft again") << 3 << u" | -13"_s;
    QTest::newRow("called sent, as no invoice") << 4 << u" | -13"_s;
    QTest::newRow("paid") << 5 << u"12 | -13"_s;
}

/// Only an invoice that counts stands beside its credit note.
void TestStatoStorni::quelloDelPrimoStato()
{
    QFETCH(int, Come);
    QFETCH(QString, Attesi);
    Parcella Prova = Nota();
    if (Come == 1)
        (void)NotaInviata(Prova, StampaPrenotula);
    else if (Come > 1)
        Emetti(Prova, 12);
    if (Come == 2)
        Prova = Duplicata(Prova, true);
    else if (Come > 2)
        (void)ScegliStato(Prova, Come == 3 ? Bozza : Come == 4 ? Inviata : Pagata);
    Emetti(Prova, 13, true);
    QCOMPARE(Numeri(Prova), Attesi);
    (void)ScegliStato(Prova, Bozza);
    QVERIFY(SoloBozza(Prova.Stato).Emessi.isEmpty());
}

#include "TestStatoStorni.moc"
