// F1 in the windows of the program: its page comes to the front, is searched and left by the keyboard, and
// the window behind it has the focus again.
#include "moduli.h"

using namespace Qt::StringLiterals;

class TestGuida : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void daUnModulo_data() { RigheModuli(); }
    void daUnModulo();
    void daUnaScheda_data() { RigheSchede(); }
    void daUnaScheda();
    void cercaEIndietro();

private:
    std::unique_ptr<Programma> P;
};
PROVA(TestGuida);

static const QString TitoloGuida = u"Calcanova - Guida: "_s;

void TestGuida::init()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
}

void TestGuida::cleanup()
{
    if (QTest::currentTestFailed())
        P->Fotografa(u"fallita_"_s + QString::fromLatin1(QTest::currentTestFunction()));
    P.reset();
}

void TestGuida::daUnModulo()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Tasti);
    QFETCH(QString, Titolo);
    P->Premi(Tasti);
    QVERIFY2(P->Aperta(Titolo), qPrintable(P->Stato()));
    const QString Prima = P->Fuoco();
    P->Premi(u"F1"_s);
    QVERIFY2(P->Aperta(TitoloGuida), qPrintable(P->Stato()));
    ATTENDI(u"fuoco"_s, "Web1");
    P->Fotografa(u"guida_"_s + Nome);
    P->Premi(u"Escape"_s);
    QVERIFY2(P->Aperta(Titolo), qPrintable(P->Stato()));
    QTRY_COMPARE(P->Fuoco(), Prima);
}

void TestGuida::daUnaScheda()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Titolo);
    QVERIFY2(P->CompilaDatiBase(), qPrintable(P->Stato()));
    QVERIFY2(P->AllaScheda(Titolo), qPrintable(P->Stato()));
    P->Premi(u"F1"_s);
    QVERIFY2(P->Aperta(TitoloGuida + Titolo), qPrintable(P->Stato()));
    P->Fotografa(u"guida_"_s + Nome);
    P->Premi(u"Escape"_s);
    QVERIFY2(P->Aperta(u"Calcanova 3"_s), qPrintable(P->Stato()));
}

void TestGuida::cercaEIndietro()
{
    P->Premi(u"F1"_s);
    QVERIFY2(P->Aperta(TitoloGuida), qPrintable(P->Stato()));
    P->Digita(u"coeff raccordo"_s);
    ATTENDI(u"fuoco"_s, "txtGuida");
    ATTENDI(u"testo txtGuida"_s, "coeff raccordo");
    P->Premi(u"Return"_s);
    QVERIFY2(P->Aperta(TitoloGuida + u"Rivalutazione Istat"_s), qPrintable(P->Stato()));
    P->Fotografa(u"guida_ricerca"_s);
    P->Premi(u"alt+Left"_s);
    QVERIFY2(P->Aperta(TitoloGuida + u"Dati base"_s), qPrintable(P->Stato()));
    // The first Esc empties the box, the second one closes.
    P->Premi(u"Escape"_s);
    ATTENDI(u"testo txtGuida"_s, "");
    P->Premi(u"Escape"_s);
    QVERIFY2(P->Aperta(u"Calcanova 3"_s), qPrintable(P->Stato()));
}

#include "TestGuida.moc"
