// The notes on pages: figures that hold on every machine and platform, and notes nobody would like to print.
#include "supporto/pagine.h"
#include "supporto/prova.h"

#include "campioni.h"
#include "print/modStampe.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

Impaginazione Pagine(const Parcella& Nota, int Tipo = StampaPrenotula)
{
    Superficie vp;
    if (!Anteprima(vp, Nota, Tipo))
        return {};
    return Impaginazione(vp.Contenuto());
}

/// A note with so many fees, each with its triple.
Parcella ConOnorari(int Quanti)
{
    Parcella Nota = campioni::Civile();
    for (int i = 1; i <= Quanti; ++i)
        campioni::AggiungiOnorario(Nota.xOnorari, u"Esame degli atti, voce %1"_s.arg(i), 1.0, 100.0 + i, 50.0,
                                   200.0);
    return Nota;
}

struct Attesa
{
    const char16_t* Testo;
    int Pagina;
    double SinistraMm;
    double BaseMm;
    double DestraMm;
};

}  // namespace

class TestPagine : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { campioni::ImpostaStudio(); }
    void cleanupTestCase() { AzzeraSessione(); }
    void doveStannoLeRighe();
    void quantePagine_data();
    void quantePagine();
    void ilRiepilogoRestaIntero();
    void laFirmaLungaRestaADestra();
    void notaVuota();
    void noteDifficili_data();
    void noteDifficili();
    void ilPdfDiceLaComposizione();
    void laSuperficieContaLePagine();
};
PROVA(TestPagine);

void TestPagine::doveStannoLeRighe()
{
    // Millimetres from the upper left corner of an A4 sheet.
    const std::array Attese{
        Attesa{u"Avv. Giulia Neri", 1, 20.00, 18.77, 47.98},
        Attesa{u"Mario Rossi", 1, 104.61, 33.38, 125.43},
        Attesa{u"Valore: 30.000,00", 1, 20.00, 70.63, 53.39},
        Attesa{u"Fase istruttoria", 1, 20.00, 96.085, 41.11},
        Attesa{u"4.500,00", 1, 126.89, 106.385, 138.00},
        Attesa{u"________", 1, 125.30, 101.755, 138.04},
        Attesa{u"TOTALE EURO", 1, 20.00, 167.495, 46.19},
        Attesa{u"6.370,65", 1, 106.44, 167.495, 120.00},
        Attesa{u"(cinquemila", 1, 63.43, 183.575, 120.00},
        Attesa{u"N.B. : la presente", 1, 20.00, 196.975, 177.33},
        Attesa{u"     Avv. Giulia Neri", 1, 20.00, 205.905, 108.33},
    };
    const Impaginazione Fatta = Pagine(campioni::Civile());
    QCOMPARE(Fatta.NumeroPagine(), 1);
    for (const Attesa& Una : Attese) {
        const pagine::RigaTrovata Sua = pagine::CercaRiga(Fatta, QString::fromUtf16(Una.Testo));
        QCOMPARE(Sua.Pagina, Una.Pagina);
        const QString Dove = u"%1: %2 %3 %4"_s.arg(QString::fromUtf16(Una.Testo))
                                 .arg(Sua.Riga.Mm.left(), 0, 'f', 2)
                                 .arg(Sua.Riga.BaseMm, 0, 'f', 2)
                                 .arg(Sua.Riga.Mm.right(), 0, 'f', 2);
        QVERIFY2(std::abs(Sua.Riga.Mm.left() - Una.SinistraMm) < 0.01 &&
                     std::abs(Sua.Riga.BaseMm - Una.BaseMm) < 0.01 &&
                     std::abs(Sua.Riga.Mm.right() - Una.DestraMm) < 0.01,
                 qPrintable(Dove));
    }
}

void TestPagine::quantePagine_data()
{
    QTest::addColumn<int>("Onorari");
    QTest::addColumn<int>("Attese");
    QTest::newRow("a short note") << 0 << 1;
    QTest::newRow("the fees and the summary part") << 40 << 2;
    QTest::newRow("three pages") << 100 << 3;
    QTest::newRow("1,000 lines") << 1000 << 18;
}

void TestPagine::quantePagine()
{
    QFETCH(int, Onorari);
    const Impaginazione Fatta = Pagine(ConOnorari(Onorari));
    QCOMPARE(pagine::Difetto(Fatta), QString());
    QTEST(Fatta.NumeroPagine(), "Attese");
}

void TestPagine::ilRiepilogoRestaIntero()
{
    for (int Onorari = 15; Onorari <= 50; ++Onorari) {
        const Impaginazione Fatta = Pagine(ConOnorari(Onorari));
        const int Pagina = pagine::CercaRiga(Fatta, u"RIEPILOGO"_s).Pagina;
        QCOMPARE(pagine::CercaRiga(Fatta, u"TOTALE EURO"_s).Pagina, Pagina);
        QCOMPARE(pagine::CercaRiga(Fatta, u"Importo dovuto"_s).Pagina, Pagina);
        // the signature is never alone
        const int Ultima = Fatta.NumeroPagine();
        int Piene = 0;
        for (const RigaImpaginata& Riga : Fatta.Righe(Ultima))
            Piene += pagine::TestoDi(Fatta, Riga).trimmed().isEmpty() ? 0 : 1;
        QVERIFY(Piene > 1);
    }
}

/// The signature of two lawyers takes two lines, and both stand to the right.
void TestPagine::laFirmaLungaRestaADestra()
{
    for (const int Tipo : {int(StampaPrenotula), int(StampaPreventivo)}) {
        Parcella Nota = campioni::Civile();
        sessione::Firma = u"Avv. Maria Antonietta De Gregoriis Avv. Giovanni Battista Della Rovere"_s;
        const Impaginazione Fatta = Pagine(Nota, Tipo);
        QCOMPARE(pagine::Difetto(Fatta), QString());
        const QString Prima = pagine::TestoDi(Fatta, pagine::CercaRiga(Fatta, u"De Gregoriis"_s).Riga);
        const QString Seconda = pagine::TestoDi(Fatta, pagine::CercaRiga(Fatta, u"Della Rovere"_s).Riga);
        QVERIFY2(Prima.trimmed().endsWith(u"Avv. Giovanni"_s), qPrintable(Prima));
        QCOMPARE(Seconda.trimmed(), u"Battista Della Rovere"_s);
        QVERIFY2(Seconda.size() - Seconda.trimmed().size() >= 65, qPrintable(Seconda));
    }
}

void TestPagine::notaVuota()
{
    AzzeraSessione();
    Parcella Nota;
    Nota.Pronta = true;
    for (const int Tipo : {int(StampaPrenotula), int(StampaSoloContabile)}) {
        const Impaginazione Fatta = Pagine(Nota, Tipo);
        QCOMPARE(Fatta.NumeroPagine(), 1);
        QCOMPARE(pagine::Difetto(Fatta), QString());
        QCOMPARE(pagine::CercaRiga(Fatta, u"RIEPILOGO"_s).Pagina, 1);
    }
}

void TestPagine::noteDifficili_data()
{
    QTest::addColumn<QString>("Cliente");
    QTest::addColumn<QString>("Voce");
    QTest::addColumn<double>("Importo");
    QTest::newRow("a client of 500 characters") << QString(500, u'M') << u"voce"_s << 100.0;
    QTest::newRow("a description of 60 wide letters") << u"Rossi"_s << QString(60, u'W') << 100.0;
    QTest::newRow("12 digits") << u"Rossi"_s << u"voce"_s << 123456789012.0;
    QTest::newRow("all of them") << QString(500, u'M') << QString(60, u'W') << -123456789012.34;
}

void TestPagine::noteDifficili()
{
    QFETCH(QString, Cliente);
    QFETCH(QString, Voce);
    QFETCH(double, Importo);
    Parcella Nota = campioni::Civile();
    Nota.chkMinMax.Attiva = Nota.chkAcconti.Attiva = true;
    Nota.txtDatiStaCli.Testo = Cliente;
    campioni::AggiungiOnorario(Nota.xOnorari, Voce, 100000.0, Importo, Importo, Importo);
    campioni::AggiungiSpesa(Nota.xDiritti, Voce, 1.0, Importo, Importo);
    campioni::AggiungiAcconto(Nota.xAcconti, Voce, u"E"_s, Importo, Importo, Importo);
    const Impaginazione Fatta = Pagine(Nota);
    QCOMPARE(pagine::Difetto(Fatta), QString());
    // neither an amount nor a quantity is ever broken
    if (std::abs(Importo) < 1e6)
        return;
    QCOMPARE(pagine::CercaRiga(Fatta, u"100000"_s).Pagina, 1);
    QCOMPARE(pagine::CercaRiga(Fatta, u"123.456.789.012,"_s).Pagina, 1);
}

void TestPagine::ilPdfDiceLaComposizione()
{
    const Impaginazione Fatta = Pagine(campioni::Civile());
    const QByteArray Pdf = Fatta.Pdf(u"Prenotula"_s);
    QCOMPARE(pagine::FontMancanti(Pdf), QStringList());
    QStringList Lette = pagine::ParoleDiPagina(Pdf, 1);
    QVERIFY(Lette.size() > 30);
    QCOMPARE(Lette.mid(Lette.size() - 2), (QStringList{u"Pagina"_s, u"1"_s}));
    Lette.resize(Lette.size() - 2);
    // Rules are drawn.
    QStringList Attese = Fatta.Testo().simplified().split(u' ');
    Attese.removeIf([](const QString& Parola) { return QString(Parola).remove(u'_').isEmpty(); });
    QVERIFY(Attese.size() > 30);
    QCOMPARE(Lette, Attese);
}

void TestPagine::laSuperficieContaLePagine()
{
    Superficie vp;
    vp.Impaginatore = [](const Documento& Doc) { return Impaginazione(Doc).NumeroPagine(); };
    QVERIFY(Anteprima(vp, ConOnorari(100), StampaPrenotula));
    QCOMPARE(vp.PageCount(), 3);
    QVERIFY(Anteprima(vp, ConOnorari(0), StampaPrenotula));
    QCOMPARE(vp.PageCount(), 1);
}

#include "TestPagine.moc"
