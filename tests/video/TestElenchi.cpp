// Lists that the arrows walk through: each step shows the next entry, asks nothing and leaves the focus where
// it is; what the entry brings with it comes when the list is left.
#include "moduli.h"

using namespace Qt::StringLiterals;

class TestElenchi : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void conLeRighe_data();
    void conLeRighe();
    void documenti();

private:
    std::unique_ptr<Programma> P;
};
PROVA(TestElenchi);

void TestElenchi::cleanup()
{
    if (QTest::currentTestFailed() && P)
        P->Fotografa(u"fallita_"_s + QString::fromLatin1(QTest::currentTestFunction()));
    P.reset();
}

void TestElenchi::conLeRighe_data()
{
    QTest::addColumn<QString>("Lista");
    QTest::newRow("authority") << u"cmbAutor"_s;
    QTest::newRow("category") << u"cmbCateg"_s;
}

/// A note with lines, whose amounts hang on the list.
void TestElenchi::conLeRighe()
{
    QFETCH(QString, Lista);
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    QVERIFY2(P->CompilaDatiBase(), qPrintable(P->Stato()));
    QVERIFY2(P->AllaScheda(u"Onorari"_s), qPrintable(P->Stato()));
    ATTENDI_CHE(!P->TestoCella(u"tdbOnor"_s, 0, 1).isEmpty());
    P->Premi(u"ctrl+Prior"_s);
    ATTENDI(u"testo tabParcelle"_s, "Dati base");
    QVERIFY2(P->VaiA(Lista), qPrintable(P->Stato()));
    const QString Inizio = P->Testo(Lista);
    constexpr int Passi = 6;
    QStringList Visti{Inizio};
    for (int i = 0; i < Passi; ++i) {
        P->Premi(u"Down"_s);
        QVERIFY2(P->Fermo(Lista), qPrintable(P->Stato()));
        if (P->Testo(Lista) == Visti.last())
            break;  // the last entry
        QVERIFY2(!Visti.contains(P->Testo(Lista)), qPrintable(P->Testo(Lista)));
        Visti << P->Testo(Lista);
    }
    QVERIFY2(Visti.size() > 1, qPrintable(Visti.join(u" | "_s)));
    // Back where it began: nothing has changed, so nothing is asked.
    for (int i = 0; i < Passi && P->Testo(Lista) != Inizio; ++i)
        P->Premi(u"Up"_s);
    QCOMPARE(P->Testo(Lista), Inizio);
    P->Premi(u"Tab"_s);
    ATTENDI_CHE(P->Fuoco() != Lista);
    QCOMPARE(P->Messaggio(), QString());
}

/// All documents of the print tab, one Down after the other.
void TestElenchi::documenti()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    QVERIFY2(P->CompilaDatiBase(), qPrintable(P->Stato()));
    QVERIFY2(P->AllaScheda(u"Onorari"_s), qPrintable(P->Stato()));
    P->Premi(u"ctrl+p"_s);
    ATTENDI(u"fuoco"_s, "cmbTipoStampa");
    QStringList Visti;
    for (int i = 0; i < 20; ++i) {
        P->Premi(u"Down"_s);
        QVERIFY2(P->Fermo(u"cmbTipoStampa"_s), qPrintable(P->Stato()));
        if (Visti.contains(P->Testo(u"cmbTipoStampa"_s)))
            break;
        Visti << P->Testo(u"cmbTipoStampa"_s);
    }
    QVERIFY2(Visti.size() >= 8, qPrintable(Visti.join(u" | "_s)));
}

#include "TestElenchi.moc"
