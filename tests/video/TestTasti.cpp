// Keys and wheel that mean nothing where they are: a modifier by itself closes no cell and leaves no box, the
// wheel over a list without the focus chooses nothing.
#include "moduli.h"

using namespace Qt::StringLiterals;

class TestTasti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void modificatoriNellaCasella_data();
    void modificatoriNellaCasella();
    void modificatoriNellaCella_data();
    void modificatoriNellaCella();
    void rotellaSulleListe_data();
    void rotellaSulleListe();
    void rotellaSulleListeDellaParcella();
    void doppioClicETrascinamento();

private:
    /// A note whose catalogue of items is on view.
    void AgliOnorari();
    void GiraSulleListe();

    std::unique_ptr<Programma> P;
};
PROVA(TestTasti);

void TestTasti::init()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
}

void TestTasti::cleanup()
{
    if (QTest::currentTestFailed())
        P->Fotografa(u"fallita_"_s + QString::fromLatin1(QTest::currentTestFunction()));
    P.reset();
}

static void RigheModificatori()
{
    QTest::addColumn<QString>("Tasto");
    for (const char* Tasto : {"Control_L", "Control_R", "Shift_L", "Alt_L"})
        QTest::newRow(Tasto) << QString::fromLatin1(Tasto);
}

void TestTasti::modificatoriNellaCasella_data()
{
    RigheModificatori();
}

void TestTasti::modificatoriNellaCasella()
{
    QFETCH(QString, Tasto);
    P->Clic(u"txtImporto"_s);
    ATTENDI(u"fuoco"_s, "txtImporto");
    P->Digita(u"12"_s);
    P->Giu(Tasto);
    P->Su(Tasto);
    QCOMPARE(P->Messaggio(), QString());
    // Alt by itself may show the letters of the menu; the next key types all the same.
    P->Digita(u"5"_s);
    QCOMPARE(P->Fuoco(), u"txtImporto"_s);
    QCOMPARE(P->Testo(u"txtImporto"_s), u"125"_s);
}

void TestTasti::AgliOnorari()
{
    for (const QString& Lista : {u"cmbCateg"_s, u"cmbAutor"_s}) {
        P->Clic(Lista);
        ATTENDI_CHE(!P->Chiedi(u"popup"_s).isEmpty());
        P->Premi({u"Home"_s, u"Down"_s, u"Return"_s});
        ATTENDI(u"popup"_s, "");
        ATTENDI_CHE(!P->Testo(Lista).isEmpty());
    }
    P->Clic(u"txtImporto"_s);
    P->Digita(u"30000"_s);
    P->Premi({u"Tab"_s, u"ctrl+Next"_s});
    ATTENDI_CHE(P->Chiedi(u"visto tdbListaOno"_s) == u"1" || !P->Messaggio().isEmpty());
    QCOMPARE(P->Messaggio(), QString());
    ATTENDI_CHE(!P->Chiedi(u"cella tdbListaOno 0 1"_s).isEmpty());
}

void TestTasti::modificatoriNellaCella_data()
{
    RigheModificatori();
}

void TestTasti::modificatoriNellaCella()
{
    QFETCH(QString, Tasto);
    AgliOnorari();
    if (QTest::currentTestFailed())
        return;
    P->Clic(P->Cella(u"tdbListaOno"_s, 0, 1), 2);
    ATTENDI_CHE(!P->Chiedi(u"cella tdbOnor 0 1"_s).isEmpty());
    P->Clic(P->Cella(u"tdbOnor"_s, 0, 1));
    P->Premi(u"F2"_s);
    ATTENDI(u"fuoco"_s, "cella");
    P->Digita(u"x"_s);
    P->Giu(Tasto);
    P->Su(Tasto);
    QCOMPARE(P->Messaggio(), QString());
    P->Digita(u"y"_s);
    QCOMPARE(P->Fuoco(), u"cella"_s);
    QVERIFY2(P->Testo(u"cella"_s).contains(u"xy"), qPrintable(P->Testo(u"cella"_s)));
    P->Premi(u"ctrl+a"_s);
    QCOMPARE(P->Fuoco(), u"cella"_s);
}

/// Over each list on view that has no focus: its choice stands.
void TestTasti::GiraSulleListe()
{
    const QStringList Liste = P->Chiedi(u"liste"_s).split(u' ', Qt::SkipEmptyParts);
    for (const QString& Lista : Liste) {
        if (P->Fuoco() == Lista)
            P->Premi(u"Tab"_s);
        const QString Prima = P->Testo(Lista);
        for (const int Scatto : {1, -1}) {
            P->Rotella(P->Posto(Lista), Scatto);
            QVERIFY2(P->Testo(Lista) == Prima,
                     qPrintable(Lista + u": da "_s + Prima + u" a "_s + P->Testo(Lista)));
        }
        QCOMPARE(P->Messaggio(), QString());
    }
}

void TestTasti::rotellaSulleListe_data()
{
    RigheModuli();
}

void TestTasti::rotellaSulleListe()
{
    QFETCH(QString, Tasti);
    QFETCH(QString, Titolo);
    P->Premi(Tasti);
    QVERIFY2(P->Aperta(Titolo), qPrintable(P->Stato()));
    GiraSulleListe();
}

void TestTasti::rotellaSulleListeDellaParcella()
{
    QVERIFY(P->Chiedi(u"liste"_s).contains(u"cmbCateg"));
    GiraSulleListe();
}

// A double click takes an item into the note; dragging in the grid marks lines and loses none.
void TestTasti::doppioClicETrascinamento()
{
    AgliOnorari();
    if (QTest::currentTestFailed())
        return;
    for (const int Voce : {0, 1}) {
        P->Clic(P->Cella(u"tdbListaOno"_s, Voce, 1), 2);
        ATTENDI_CHE(!P->Chiedi(u"cella tdbOnor %1 1"_s.arg(Voce)).isEmpty());
    }
    P->Trascina(P->Cella(u"tdbOnor"_s, 0, 1).center(), P->Cella(u"tdbOnor"_s, 1, 1).center());
    ATTENDI_CHE(!P->Chiedi(u"cella tdbOnor 1 1"_s).isEmpty());
    QCOMPARE(P->Messaggio(), QString());
}

#include "TestTasti.moc"
