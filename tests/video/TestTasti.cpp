// Keys and wheel that mean nothing where they are: a modifier by itself closes no cell, leaves no box and
// brings nothing up; the wheel chooses nothing in a list, and nothing at all without the focus. Rows and
// cells by the mouse.
#include "moduli.h"

using namespace Qt::StringLiterals;

class TestTasti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void modificatoriNelModulo_data() { RigheModuli(); }
    void modificatoriNelModulo();
    void modificatoriNelleImpostazioni_data() { RigheImpostazioni(); }
    void modificatoriNelleImpostazioni();
    void modificatoriNellaScheda_data() { RigheSchede(); }
    void modificatoriNellaScheda();
    void modificatoriMentreSiScrive();
    void modificatoriNelleCelle_data();
    void modificatoriNelleCelle();
    void rotellaNelModulo_data() { RigheModuli(); }
    void rotellaNelModulo();
    void rotellaNelleImpostazioni_data() { RigheImpostazioni(); }
    void rotellaNelleImpostazioni();
    void rotellaNellaScheda_data() { RigheSchede(); }
    void rotellaNellaScheda();
    void rotellaSulPannello();
    void doppioClic();
    void righeTrascinate();
    void menuDelleRighe();
    void letteraSulCatalogo();

private:
    /// A tab of the note that is open, with what may be entered entered.
    void Apri(const QString& Scheda);
    /// A note with the first items of the catalogue among its lines.
    void ConVoci(int Quante);
    void SfioraOgniFermata();
    void GiraSuiValori();

    std::unique_ptr<Programma> P;
};
PROVA(TestTasti);

static const QStringList Modificatori{u"Control_L"_s, u"Control_R"_s, u"Shift_L"_s, u"Alt_L"_s};

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

void TestTasti::Apri(const QString& Scheda)
{
    QVERIFY2(P->CompilaDatiBase(), qPrintable(P->Stato()));
    QVERIFY2(P->AllaScheda(Scheda), qPrintable(P->Stato()));
}

/// The lines that come with the authority, and those of the catalogue that are not among them.
void TestTasti::ConVoci(int Quante)
{
    Apri(u"Onorari"_s);
    QStringList Voci;
    for (int Riga = 0; !P->TestoCella(u"tdbOnor"_s, Riga, 1).isEmpty(); ++Riga)
        Voci += P->TestoCella(u"tdbOnor"_s, Riga, 1);
    for (int Voce = 0; Voci.size() < Quante; ++Voce) {
        const QString Nome = P->TestoCella(u"tdbListaOno"_s, Voce, 1);
        if (Nome.isEmpty() || Voci.contains(Nome.left(60)))
            continue;
        P->Clic(P->Cella(u"tdbListaOno"_s, Voce, 1), 2);
        ATTENDI_CHE(P->TestoCella(u"tdbOnor"_s, int(Voci.size()), 1) == Nome.left(60));
        Voci += Nome.left(60);
    }
}

// ---- modifiers by themselves

/// At each stop of Tab, until the first comes again.
void TestTasti::SfioraOgniFermata()
{
    constexpr int Massimo = 80;
    ATTENDI_CHE(!P->Fuoco().isEmpty());
    const QString Prima = P->Fuoco();
    QString Qui = Prima;
    for (int i = 0; i < Massimo; ++i) {
        const QString Testo = P->Testo(Qui);
        for (const QString& Tasto : Modificatori) {
            P->Sfiora(Tasto);
            // Alt goes to the menus where there are any, and from there back.
            if (Tasto == u"Alt_L" && P->Fuoco() == u"barMenu")
                P->Sfiora(Tasto);
            QVERIFY2(P->Fermo(Qui), qPrintable(Tasto + u" su "_s + Qui + u": "_s + P->Stato()));
            QCOMPARE(P->Testo(Qui), Testo);
        }
        P->Premi(u"Tab"_s);
        Qui = P->Fuoco();
        if (Qui == Prima)
            return;
    }
    QFAIL(qPrintable(u"il giro non finisce: "_s + P->Stato()));
}

void TestTasti::modificatoriNelModulo()
{
    QFETCH(QString, Tasti);
    QFETCH(QString, Titolo);
    P->Premi(Tasti);
    QVERIFY2(P->Aperta(Titolo), qPrintable(P->Stato()));
    SfioraOgniFermata();
}

void TestTasti::modificatoriNelleImpostazioni()
{
    QFETCH(QString, Titolo);
    QVERIFY2(P->AlleImpostazioni(Titolo), qPrintable(P->Stato()));
    SfioraOgniFermata();
}

void TestTasti::modificatoriNellaScheda()
{
    QFETCH(QString, Titolo);
    Apri(Titolo);
    if (!QTest::currentTestFailed())
        SfioraOgniFermata();
}

/// In the middle of a number whose leaving asks, and would refuse what stands there.
void TestTasti::modificatoriMentreSiScrive()
{
    P->Clic(u"txtImporto"_s);
    ATTENDI(u"fuoco"_s, "txtImporto");
    P->Digita(u"1-"_s);
    for (const QString& Tasto : Modificatori) {
        P->Sfiora(Tasto);
        QVERIFY2(P->Fermo(u"txtImporto"_s), qPrintable(Tasto + u": "_s + P->Stato()));
    }
    P->Digita(u"5"_s);
    QCOMPARE(P->Testo(u"txtImporto"_s), u"1-5"_s);
}

void TestTasti::modificatoriNelleCelle_data()
{
    QTest::addColumn<QString>("Scheda");
    QTest::addColumn<QString>("Griglia");
    QTest::addColumn<int>("Colonna");
    QTest::addColumn<QString>("Primo");
    QTest::addColumn<QString>("Secondo");
    QTest::newRow("data di un onorario") << u"Onorari"_s << u"tdbOnor"_s << 0 << u"1"_s << u"2"_s;
    QTest::newRow("descrizione di un onorario") << u"Onorari"_s << u"tdbOnor"_s << 1 << u"1"_s << u"2"_s;
    QTest::newRow("importo di un onorario") << u"Onorari"_s << u"tdbOnor"_s << 3 << u"1"_s << u"2"_s;
    QTest::newRow("data di una spesa") << u"Spese inserite"_s << u"tdbDir"_s << 0 << u"1"_s << u"2"_s;
    QTest::newRow("descrizione di una spesa") << u"Spese inserite"_s << u"tdbDir"_s << 1 << u"1"_s << u"2"_s;
    QTest::newRow("quantità di una spesa") << u"Spese inserite"_s << u"tdbDir"_s << 2 << u"1"_s << u"2"_s;
    QTest::newRow("imponibile di una spesa") << u"Spese inserite"_s << u"tdbDir"_s << 3 << u"1"_s << u"2"_s;
    QTest::newRow("esente di una spesa") << u"Spese inserite"_s << u"tdbDir"_s << 4 << u"1"_s << u"2"_s;
    QTest::newRow("descrizione di un acconto")
        << u"Acconti e imposte"_s << u"tdbAcconti"_s << 0 << u"1"_s << u"2"_s;
    // Of a currency the cell holds one letter.
    QTest::newRow("valuta di un acconto")
        << u"Acconti e imposte"_s << u"tdbAcconti"_s << 1 << u"E"_s << QString();
    QTest::newRow("acconto per corrispettivi")
        << u"Acconti e imposte"_s << u"tdbAcconti"_s << 2 << u"1"_s << u"2"_s;
    QTest::newRow("acconto per spese imponibili")
        << u"Acconti e imposte"_s << u"tdbAcconti"_s << 3 << u"1"_s << u"2"_s;
    QTest::newRow("acconto per spese esenti")
        << u"Acconti e imposte"_s << u"tdbAcconti"_s << 4 << u"1"_s << u"2"_s;
}

void TestTasti::modificatoriNelleCelle()
{
    QFETCH(QString, Scheda);
    QFETCH(QString, Griglia);
    QFETCH(int, Colonna);
    QFETCH(QString, Primo);
    QFETCH(QString, Secondo);
    Apri(Scheda);
    if (QTest::currentTestFailed())
        return;
    P->Clic(P->Cella(Griglia, 0, Colonna));
    P->Premi(u"F2"_s);
    ATTENDI(u"fuoco"_s, "cella");
    P->Digita(Primo);
    for (const QString& Tasto : Modificatori) {
        P->Sfiora(Tasto);
        QVERIFY2(P->Fermo(u"cella"_s), qPrintable(Tasto + u": "_s + P->Stato()));
    }
    P->Digita(Secondo);
    QCOMPARE(P->Testo(u"cella"_s), Primo + Secondo);
    // Select all, cut, undo, paste are the text's.
    P->Premi({u"ctrl+a"_s, u"ctrl+x"_s});
    QCOMPARE(P->Testo(u"cella"_s), QString());
    P->Premi(u"ctrl+z"_s);
    QCOMPARE(P->Testo(u"cella"_s), Primo + Secondo);
    P->Premi({u"ctrl+a"_s, u"ctrl+v"_s});
    QCOMPARE(P->Testo(u"cella"_s), Primo + Secondo);
    QVERIFY2(P->Fermo(u"cella"_s), qPrintable(P->Stato()));
    P->Premi(u"Escape"_s);
    ATTENDI_CHE(P->Fuoco() == Griglia);
}

// ---- the wheel

/// Over all that holds a value: without the focus it stands whatever it is, with the focus a list stands too,
/// and so does a text.
void TestTasti::GiraSuiValori()
{
    const QStringList Tutti = P->Chiedi(u"valori"_s).split(u' ', Qt::SkipEmptyParts);
    QVERIFY2(!Tutti.isEmpty(), qPrintable(P->Stato()));
    const auto Gira = [this](const QString& Nome) {
        const QString Prima = P->Testo(Nome);
        for (const int Scatto : {1, -1, -1, 1}) {
            P->Rotella(P->Posto(Nome), Scatto);
            QVERIFY2(P->Testo(Nome) == Prima,
                     qPrintable(Nome + u": da "_s + Prima + u" a "_s + P->Testo(Nome)));
        }
        QCOMPARE(P->Messaggio(), QString());
    };
    for (const QString& Nome : Tutti) {
        if (P->Fuoco() == Nome)
            P->Premi(u"Tab"_s);
        const QString Prima = P->Fuoco();
        Gira(Nome);
        if (QTest::currentTestFailed())
            return;
        QCOMPARE(P->Fuoco(), Prima);
    }
    const QStringList Liste = P->Chiedi(u"liste"_s).split(u' ', Qt::SkipEmptyParts);
    for (const QString& Nome : Liste) {
        QVERIFY2(P->VaiA(Nome), qPrintable(Nome + u": "_s + P->Stato()));
        Gira(Nome);
        if (QTest::currentTestFailed())
            return;
    }
}

void TestTasti::rotellaNelModulo()
{
    QFETCH(QString, Tasti);
    QFETCH(QString, Titolo);
    P->Premi(Tasti);
    QVERIFY2(P->Aperta(Titolo), qPrintable(P->Stato()));
    GiraSuiValori();
}

void TestTasti::rotellaNelleImpostazioni()
{
    QFETCH(QString, Titolo);
    QVERIFY2(P->AlleImpostazioni(Titolo), qPrintable(P->Stato()));
    GiraSuiValori();
}

void TestTasti::rotellaNellaScheda()
{
    QFETCH(QString, Titolo);
    Apri(Titolo);
    if (!QTest::currentTestFailed())
        GiraSuiValori();
}

/// The slider of the amounts is a value like the others, and moves where it has the focus.
void TestTasti::rotellaSulPannello()
{
    ConVoci(1);
    if (QTest::currentTestFailed())
        return;
    P->Clic(u"barListaOnoDir_variaz"_s);
    ATTENDI(u"fuoco"_s, "sldGraduaOno");
    const QString Prima = P->Testo(u"sldGraduaOno"_s);
    P->Rotella(P->Posto(u"sldGraduaOno"_s), 1);
    ATTENDI_CHE(P->Testo(u"sldGraduaOno"_s) != Prima);
    const QString Dopo = P->Testo(u"sldGraduaOno"_s);
    P->Premi(u"Tab"_s);
    ATTENDI_CHE(P->Fuoco() != u"sldGraduaOno");
    P->Rotella(P->Posto(u"sldGraduaOno"_s), 1);
    QCOMPARE(P->Testo(u"sldGraduaOno"_s), Dopo);
}

// ---- rows

void TestTasti::doppioClic()
{
    ConVoci(2);
    if (QTest::currentTestFailed())
        return;
    P->Clic(P->Cella(u"tdbOnor"_s, 1, 1), 2);
    ATTENDI(u"fuoco"_s, "cella");
    QCOMPARE(P->Testo(u"cella"_s), P->TestoCella(u"tdbOnor"_s, 1, 1));
    P->Premi(u"Escape"_s);
    ATTENDI(u"fuoco"_s, "tdbOnor");
}

/// By the cells nothing is dragged; by the row selector a row goes where the line shows.
void TestTasti::righeTrascinate()
{
    ConVoci(3);
    if (QTest::currentTestFailed())
        return;
    QStringList Voci;
    for (int Riga = 0; Riga < 3; ++Riga)
        Voci += P->TestoCella(u"tdbOnor"_s, Riga, 1);
    P->Trascina(P->Cella(u"tdbOnor"_s, 0, 1).center(), P->Cella(u"tdbOnor"_s, 1, 1).center());
    QCOMPARE(P->TestoCella(u"tdbOnor"_s, 0, 1), Voci[0]);
    P->Trascina(P->Cella(u"tdbOnor"_s, 0, -1).center(), P->Cella(u"tdbOnor"_s, 2, -1).center());
    ATTENDI_CHE(P->Messaggio().contains(u"spostamento"));
    P->Rispondi(u"Return"_s);
    ATTENDI_CHE(P->TestoCella(u"tdbOnor"_s, 2, 1) == Voci[0]);
    QCOMPARE(P->TestoCella(u"tdbOnor"_s, 0, 1), Voci[1]);
    QCOMPARE(P->TestoCella(u"tdbOnor"_s, 1, 1), Voci[2]);
    QVERIFY2(P->Fermo(u"tdbOnor"_s), qPrintable(P->Stato()));
}

/// The right button on a line, and the menu key: what is chosen there acts on that line, and the keys stay
/// with the grid.
void TestTasti::menuDelleRighe()
{
    ConVoci(3);
    if (QTest::currentTestFailed())
        return;
    const QString Seconda = P->TestoCella(u"tdbOnor"_s, 1, 1);
    const QString Terza = P->TestoCella(u"tdbOnor"_s, 2, 1);
    P->ClicDestro(P->Cella(u"tdbOnor"_s, 1, 1));
    ATTENDI(u"popup"_s, "menuRighe");
    P->Fotografa(u"menu_delle_righe"_s);
    P->Premi({u"Down"_s, u"Return"_s});  // cut
    ATTENDI_CHE(P->Messaggio().contains(u"cancellazione"));
    P->Rispondi(u"Return"_s);
    ATTENDI_CHE(P->TestoCella(u"tdbOnor"_s, 1, 1) == Terza);
    ATTENDI(u"fuoco"_s, "tdbOnor");
    P->Premi(u"Menu"_s);
    ATTENDI(u"popup"_s, "menuRighe");
    P->Premi(u"Escape"_s);
    ATTENDI(u"popup"_s, "");
    ATTENDI(u"fuoco"_s, "tdbOnor");
    P->Premi(u"ctrl+z"_s);
    ATTENDI_CHE(P->TestoCella(u"tdbOnor"_s, 1, 1) == Seconda);
}

void TestTasti::letteraSulCatalogo()
{
    Apri(u"Onorari"_s);
    if (QTest::currentTestFailed())
        return;
    QVERIFY2(P->VaiA(u"tdbListaOno"_s), qPrintable(P->Stato()));
    P->Digita(u"fase d"_s);
    ATTENDI(u"fuoco"_s, "txtCercaOno");
    ATTENDI(u"testo txtCercaOno"_s, "fase d");
}

#include "TestTasti.moc"
