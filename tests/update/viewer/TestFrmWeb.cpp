#include "bancoweb.h"

using namespace Qt::StringLiterals;

class TestFrmWeb : public QObject, private BancoWeb
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void mostraLaPagina();
    void nomeTrovatoQualunqueSiaIlCaso();
    void lettereAccentate_data();
    void lettereAccentate();
    void paginaMancante();
    void paginaMancanteLasciaQuellaInVista();
    void avanzaSenzaPrendereIlFuoco();
    void casellaSoloConIlMarcatore();
    void marcatoreAllaChiusura_data();
    void marcatoreAllaChiusura();
    void marcatoreNellaCartellaUtente();
    void marcatoreRifiutatoOvunque();
    void casellaVuotaPerOgniVisore();
    void cerca();
    void cercaRicominciaDaCapo();
    void escChiudePrimaLaRicerca();
    void ingrandimento();
    void tavolozzaScura();
    void seguonoLaFinestra();
    void ricordaIlPosto();
};
PROVA(TestFrmWeb);

void TestFrmWeb::mostraLaPagina()
{
    const Registratore Box;
    Mostra(u"uno.htm"_s);
    QVERIFY(W->isVisible());
    QCOMPARE(W->windowTitle(), u"Titolo"_s);
    QCOMPARE(Web1()->toPlainText(), u"Prima\ntesto di prova"_s);
    QVERIFY(!Trova<QToolButton>(u"cmdIndietro"_s)->isEnabled());
    QVERIFY(!W->isModal());
}

void TestFrmWeb::nomeTrovatoQualunqueSiaIlCaso()
{
    const Registratore Box;
    Scrivi(u"Scheda Uno (art. 3, comma 1) 100%.HTM"_s, "<p>trovata</p>");
    Mostra(u"scheda uno (ART. 3, comma 1) 100%.htm"_s);
    QCOMPARE(Web1()->toPlainText(), u"trovata"_s);
}

void TestFrmWeb::lettereAccentate_data()
{
    QTest::addColumn<QByteArray>("Html");

    QTest::newRow("declared as UTF-8")
        << QByteArray("<html><head><meta charset=\"utf-8\"></head><body>perch\xC3\xA9</body></html>");
    QTest::newRow("declared as Latin-1")
        << QByteArray("<html><head><meta charset=\"iso-8859-1\"></head><body>perch\xE9</body></html>");
    QTest::newRow("UTF-8 that says nothing") << QByteArray("<p>perch\xC3\xA9</p>");
}

void TestFrmWeb::lettereAccentate()
{
    QFETCH(QByteArray, Html);
    const Registratore Box;
    Scrivi(u"uno.htm"_s, Html);
    Mostra(u"uno.htm"_s);
    QCOMPARE(Web1()->toPlainText(), u"perché"_s);
}

void TestFrmWeb::paginaMancante()
{
    Registratore Box;
    Box.Attendi(u"Errore: File non trovato (53)"_s, vbOK, u"Errore:"_s);
    QVERIFY(!Protetta([this] { Mostra(u"tre.htm"_s); }));
    QVERIFY(!W->isVisible());
}

void TestFrmWeb::paginaMancanteLasciaQuellaInVista()
{
    Registratore Box;
    Mostra(u"uno.htm"_s);
    W->Titolo = u"Altro"_s;
    W->Indirizzo = Prog + u"tre.htm"_s;
    Box.Attendi(u"Errore: File non trovato (53)"_s, vbOK, u"Errore:"_s);
    QVERIFY(!Protetta([this] { W->Mostra(); }));
    QCOMPARE(W->windowTitle(), u"Titolo"_s);
    QVERIFY(Web1()->toPlainText().startsWith(u"Prima"));
}

void TestFrmWeb::avanzaSenzaPrendereIlFuoco()
{
    const Registratore Box;
    Mostra(u"uno.htm"_s);
    QLineEdit Altrove;
    QVERIFY(MostraAttiva(Altrove));
    Altrove.setFocus();
    Mostra(u"due.htm"_s);
    Respiro();
    QCOMPARE(Web1()->toPlainText(), u"Seconda"_s);
    QCOMPARE(QApplication::activeWindow(), &Altrove);
}

void TestFrmWeb::casellaSoloConIlMarcatore()
{
    const Registratore Box;
    auto* Casella = Trova<QCheckBox>(u"chkNoRepeat"_s);
    QCOMPARE(Casella->text().remove(u'&'), u"Non visualizzare più questo messaggio"_s);
    Mostra(u"uno.htm"_s);
    QVERIFY(!Casella->isVisible());
    W->close();
    W->Marcatore = u"avvisokr5"_s;
    Mostra(u"uno.htm"_s);
    QVERIFY(Casella->isVisible());
}

void TestFrmWeb::marcatoreAllaChiusura_data()
{
    QTest::addColumn<QString>("Marcatore");
    QTest::addColumn<bool>("Spunta");
    QTest::addColumn<QString>("Modo");
    QTest::addColumn<bool>("Scritto");

    QTest::newRow("ticked, button") << u"avvisokr5"_s << true << u"cmdChiudi"_s << true;
    QTest::newRow("ticked, Esc") << u"avvisokr5"_s << true << u"esc"_s << true;
    QTest::newRow("ticked, window closed") << u"avvisokr5"_s << true << u"x"_s << true;
    QTest::newRow("not ticked") << u"avvisokr5"_s << false << u"x"_s << false;
    QTest::newRow("no marker") << u""_s << true << u"x"_s << false;
}

void TestFrmWeb::marcatoreAllaChiusura()
{
    QFETCH(QString, Marcatore);
    QFETCH(bool, Spunta);
    QFETCH(QString, Modo);
    QFETCH(bool, Scritto);
    const Registratore Box;
    W->Marcatore = Marcatore;
    Mostra(u"uno.htm"_s);
    QVERIFY(MostraAttiva(*W));
    Trova<QCheckBox>(u"chkNoRepeat"_s)->setChecked(Spunta);
    QVERIFY(!EsisteFile(Prog + u"avvisokr5.ini"_s));
    if (Modo == u"cmdChiudi")
        Trova<QPushButton>(Modo)->click();
    else if (Modo == u"esc")
        QTest::keyClick(W.get(), Qt::Key_Escape);
    else
        W->close();
    QVERIFY(!W->isVisible());
    QCOMPARE(EsisteFile(Prog + u"avvisokr5.ini"_s), Scritto);
    QCOMPARE(QDir(Prog).entryList({u"*.ini"_s}, QDir::Files).size(), Scritto ? 1 : 0);
    QVERIFY(QDir(Utente).isEmpty());
    if (Scritto)
        QCOMPARE(LeggiFile(Prog + u"avvisokr5.ini"_s).simplified(),
                 QByteArray("[avvisokr5] letto=09/03/2026"));
}

void TestFrmWeb::marcatoreNellaCartellaUtente()
{
    const Registratore Box;
    W->Marcatore = u"avvisokr5"_s;
    Mostra(u"uno.htm"_s);
    Trova<QCheckBox>(u"chkNoRepeat"_s)->setChecked(true);
    // The user folder may not be there yet.
    sessione::UserFolder = Utente + u"nuova/"_s;
    QVERIFY(QFile::setPermissions(Prog, QFile::ReadOwner | QFile::ExeOwner));
    W->close();
    QVERIFY(QFile::setPermissions(Prog, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QVERIFY(!EsisteFile(Prog + u"avvisokr5.ini"_s));
    QVERIFY(EsisteFile(Utente + u"nuova/avvisokr5.ini"_s));
}

void TestFrmWeb::marcatoreRifiutatoOvunque()
{
    // Nobody is told: the notice comes again, no more.
    const Registratore Box;
    W->Marcatore = u"avvisokr5"_s;
    Mostra(u"uno.htm"_s);
    Trova<QCheckBox>(u"chkNoRepeat"_s)->setChecked(true);
    sessione::UserFolder.clear();
    QVERIFY(QFile::setPermissions(Prog, QFile::ReadOwner | QFile::ExeOwner));
    W->close();
    QVERIFY(QFile::setPermissions(Prog, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QVERIFY(!W->isVisible());
    QVERIFY(QDir(Prog).entryList({u"*.ini"_s}).isEmpty());
}

void TestFrmWeb::casellaVuotaPerOgniVisore()
{
    const Registratore Box;
    W->Marcatore = u"avvisokr5"_s;
    Mostra(u"uno.htm"_s);
    Trova<QCheckBox>(u"chkNoRepeat"_s)->setChecked(true);
    W->close();
    Mostra(u"uno.htm"_s);
    QVERIFY(!Trova<QCheckBox>(u"chkNoRepeat"_s)->isChecked());
}

void TestFrmWeb::cerca()
{
    const Registratore Box;
    Scrivi(u"uno.htm"_s, "<p>termine breve</p><p>termine lungo</p>");
    Mostra(u"uno.htm"_s);
    QVERIFY(MostraAttiva(*W));
    auto* Riquadro = Trova<QWidget>(u"fraCerca"_s);
    auto* Esito = Trova<QLabel>(u"lblCerca"_s);
    QVERIFY(!Riquadro->isVisible());
    QTest::keyClick(W.get(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(Riquadro->isVisible());
    Digita(u"TERMINE l"_s);
    QCOMPARE(Web1()->textCursor().selectedText(), u"termine l"_s);
    QCOMPARE(Esito->text(), QString());
    Digita(u"z"_s);
    QCOMPARE(Esito->text(), u"Nessun risultato"_s);
    Premi(Qt::Key_Backspace);
    QCOMPARE(Esito->text(), QString());
    QCOMPARE(Web1()->textCursor().selectedText(), u"termine l"_s);
}

void TestFrmWeb::cercaRicominciaDaCapo()
{
    const Registratore Box;
    Scrivi(u"uno.htm"_s, "<p>termine breve</p><p>termine lungo</p>");
    Mostra(u"uno.htm"_s);
    QVERIFY(MostraAttiva(*W));
    QTest::keyClick(W.get(), Qt::Key_F, Qt::ControlModifier);
    Digita(u"termine"_s);
    QCOMPARE(Web1()->textCursor().selectionStart(), 0);
    Premi(Qt::Key_Return);
    const int Seconda = Web1()->textCursor().selectionStart();
    QVERIFY(Seconda > 0);
    Premi(Qt::Key_Return);
    QCOMPARE(Web1()->textCursor().selectionStart(), 0);
    Premi(Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(Web1()->textCursor().selectionStart(), Seconda);
    Trova<QToolButton>(u"cmdPrecedente"_s)->click();
    QCOMPARE(Web1()->textCursor().selectionStart(), 0);
    Trova<QToolButton>(u"cmdSuccessivo"_s)->click();
    QCOMPARE(Web1()->textCursor().selectionStart(), Seconda);
}

void TestFrmWeb::escChiudePrimaLaRicerca()
{
    const Registratore Box;
    Mostra(u"uno.htm"_s);
    QVERIFY(MostraAttiva(*W));
    Trova<QToolButton>(u"cmdCerca"_s)->click();
    QTest::keyClick(W.get(), Qt::Key_Escape);
    QVERIFY(W->isVisible());
    QVERIFY(!Trova<QWidget>(u"fraCerca"_s)->isVisible());
    QTest::keyClick(W.get(), Qt::Key_Escape);
    QVERIFY(!W->isVisible());
}

void TestFrmWeb::ingrandimento()
{
    const Registratore Box;
    Mostra(u"uno.htm"_s);
    const int Prima = Web1()->font().pointSize();
    const auto Ruota = [this](int Verso) {
        const QPointF Punto(20, 20);
        QWheelEvent Evento(Punto, Web1()->viewport()->mapToGlobal(Punto), {}, {0, 120 * Verso}, Qt::NoButton,
                           Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(Web1()->viewport(), &Evento);
    };
    Ruota(1);
    QCOMPARE(Web1()->font().pointSize(), Prima + 1);
    Ruota(-1);
    QCOMPARE(Web1()->font().pointSize(), Prima);
    for (int i = 0; i < 40; ++i)
        Ruota(1);
    const int Massimo = Web1()->font().pointSize();
    QVERIFY(Massimo > Prima + 1);
    Ruota(1);
    QCOMPARE(Web1()->font().pointSize(), Massimo);
    Web1()->GrandezzaNormale();
    QCOMPARE(Web1()->font().pointSize(), Prima);
}

void TestFrmWeb::tavolozzaScura()
{
    const Registratore Box;
    const QPalette Chiara = QApplication::palette();
    Mostra(u"uno.htm"_s);
    const auto ColoreTitolo = [this] {
        return Web1()->document()->begin().begin().fragment().charFormat().foreground().color();
    };
    const QColor Chiaro = ColoreTitolo();
    QVERIFY(Chiaro.lightness() < 128);
    QPalette Scura = Chiara;
    Scura.setColor(QPalette::Window, QColor(40, 40, 40));
    Scura.setColor(QPalette::WindowText, Qt::white);
    Scura.setColor(QPalette::Base, QColor(30, 30, 30));
    Scura.setColor(QPalette::Text, Qt::white);
    QApplication::setPalette(Scura);
    Respiro();
    const QColor Scuro = ColoreTitolo();
    QApplication::setPalette(Chiara);
    QVERIFY2(Scuro.lightness() > 128, qPrintable(Scuro.name()));
    Respiro();
    QCOMPARE(ColoreTitolo(), Chiaro);
}

void TestFrmWeb::seguonoLaFinestra()
{
    const Registratore Box;
    W->Marcatore = u"avvisokr5"_s;
    Mostra(u"uno.htm"_s);
    for (const QSize Misura : {QSize(900, 700), QSize(400, 300)}) {
        W->resize(Misura);
        Respiro();
        const auto* Casella = Trova<QCheckBox>(u"chkNoRepeat"_s);
        QVERIFY(Web1()->geometry().bottom() < Casella->geometry().top());
        QVERIFY(Casella->geometry().bottom() < W->height());
        QVERIFY(Web1()->width() > W->width() - 40);
    }
}

void TestFrmWeb::ricordaIlPosto()
{
    const Registratore Box;
    ProvaPosto(u"frmWeb"_s, [this] {
        W = std::make_unique<frmWeb>();
        Mostra(u"uno.htm"_s);
        return W.get();
    });
    // A notice comes up at its own size.
    W = std::make_unique<frmWeb>();
    W->Marcatore = u"avvisokr5"_s;
    W->resize(680, 507);
    Mostra(u"uno.htm"_s);
    QCOMPARE(W->size(), QSize(680, 507));
    SpostaDaUtente(*W, QRect(30, 40, 500, 400));
    W->close();
    QCOMPARE(GetSetting(u"KR5"_s, u"Parametri"_s, u"Posto_frmWebavvisokr5"_s), QString());
}

#include "TestFrmWeb.moc"
