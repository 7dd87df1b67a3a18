#include "supporto/accessibili.h"
#include "tuttelefinestre.h"

/// Every window as a screen reader walks it.
class TestAccessibiliTutte : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ogniControlloHaUnNomeSuo();
    void ilGuastoSiVede_data();
    void ilGuastoSiVede();
};
PROVA(TestAccessibiliTutte);

void TestAccessibiliTutte::ogniControlloHaUnNomeSuo()
{
    QStringList Difetti;
    int Finestre_ = 0;
    int Controlli = 0;
    Finestre F;
    F.Tutte([&](const QString& Nome, QWidget* Finestra) {
        QVERIFY2(Finestra, qPrintable(Nome));
        int Quanti = 0;
        for (const QString& Difetto : accessibili::Difetti(Finestra, &Quanti))
            Difetti << Nome + u": "_s + Difetto;
        QVERIFY2(Quanti > 1, qPrintable(Nome));
        Controlli += Quanti;
        ++Finestre_;
    });
    NienteDi(Difetti);
    QVERIFY(Finestre_ > 20 && Controlli > 300);
}

void TestAccessibiliTutte::ilGuastoSiVede_data()
{
    QTest::addColumn<int>("Quale");
    QTest::addColumn<QString>("Detto");
    QTest::newRow("no name") << 0 << u"senza nome: QToolButton prova"_s;
    QTest::newRow("a sign") << 1 << u"il nome è un segno, «…»: QToolButton prova"_s;
    QTest::newRow("twice") << 2 << u"due volte «Calendario»: QToolButton prova, QToolButton seconda"_s;
    QTest::newRow("mask") << 3 << u"maschera vuota letta «//»: QLineEdit prova"_s;
}

void TestAccessibiliTutte::ilGuastoSiVede()
{
    QFETCH(int, Quale);
    QFETCH(QString, Detto);
    QWidget Finestra;
    auto* Bottone = new QToolButton(&Finestra);
    Bottone->setObjectName(u"prova"_s);
    if (Quale == 1)
        Bottone->setText(u"…"_s);
    if (Quale == 2) {
        Bottone->setText(u"Calendario"_s);
        auto* Secondo = new QToolButton(&Finestra);
        Secondo->setObjectName(u"seconda"_s);
        Secondo->setText(u"Calendario"_s);
    }
    if (Quale == 3) {
        delete Bottone;
        auto* Maschera = new QLineEdit(u"//"_s, &Finestra);
        Maschera->setObjectName(u"prova"_s);
        Maschera->setAccessibleName(u"Data"_s);
    }
    Finestra.show();
    QCOMPARE(accessibili::Difetti(&Finestra), QStringList{Detto});
}

#include "TestAccessibiliTutte.moc"
