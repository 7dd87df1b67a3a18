// A fiscal code typed into its box: what it says comes as it is typed, what is wrong is said there.
#include "banco.h"

#include "calculators/windows/frmCodFis.h"
#include "platform/kit/aspetto.h"

#include <QAccessible>
#include <QAction>
#include <QMimeData>

using namespace Qt::StringLiterals;

namespace {

const QString FraseVuota = u"Scrivere o incollare un codice: qui si leggono nascita, sesso e comune."_s;

}  // namespace

class TestLetturaCodFis : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void vuota();
    void ordineDelTabulatore();
    void siVedeTutta();
    void mentreSiScrive();
    void incollato_data();
    void incollato();
    void sbagliati_data();
    void sbagliati();
    void lasciatoIncompleto();
    void fuoriPostoSubito();
    void ultimaLettera();
    void copie();
    void senzaArchivio();
    void nonToccaIlCalcolo();
    void nuovoSvuota();
    void stampaLaLettura();
    void invioLeggeSoltanto();
    void svuotaConUnClic();
    void lettoreDiSchermo();
    void paletteScura();

private:
    [[nodiscard]] QLineEdit* Letto() const { return Controllo<QLineEdit>(F, "txtLetto"); }
    [[nodiscard]] QString Lettura() const { return TestoDi(F, "lblLettura"); }
    [[nodiscard]] QString Note() const { return TestoDi(F, "lblNoteLettura"); }
    [[nodiscard]] bool Rosso() const
    {
        const auto* Riga = Controllo<QLabel>(F, "lblNoteLettura");
        return Letto()->palette().color(QPalette::Text) == aspetto::Sbagliato() &&
               Riga->palette().color(Riga->foregroundRole()) == aspetto::Sbagliato();
    }

    std::unique_ptr<Banco> B;
    QPointer<frmCodFis> F;
};
PROVA(TestLetturaCodFis);

void TestLetturaCodFis::init()
{
    B = std::make_unique<Banco>();
    F = Apri<frmCodFis>();
    QVERIFY(F);
}

void TestLetturaCodFis::cleanup()
{
    B.reset();
}

void TestLetturaCodFis::vuota()
{
    QCOMPARE(Lettura(), FraseVuota);
    QCOMPARE(Note(), QString());
    QVERIFY(!Controllo(F, "cmdCopiaLettura")->isEnabled() && !Rosso());
}

void TestLetturaCodFis::ordineDelTabulatore()
{
    QCOMPARE(OrdineTab(Controllo(F, "txtComune"), 3),
             (QStringList{u"txtComune"_s, u"txtCodiceFiscale"_s, u"txtLetto"_s}));
}

// The longest reading has its room, and the window grows for what is more than that.
void TestLetturaCodFis::siVedeTutta()
{
    Incolla(Letto(), u"RSSMRA12M45A001X"_s);
    Respiro();
    for (const char* Nome : {"lblLettura", "lblNoteLettura"}) {
        const auto* Riga = Controllo<QLabel>(F, Nome);
        QVERIFY2(Riga->height() >= Riga->heightForWidth(Riga->width()), Nome);
    }
}

void TestLetturaCodFis::mentreSiScrive()
{
    Letto()->setFocus();
    Digita(u"rss mra"_s);
    QCOMPARE(Lettura(), u"Mancano 10 caratteri."_s);
    QVERIFY(Note().isEmpty() && !Rosso());
    Digita(u"85m45f205"_s);
    QCOMPARE(Lettura(), u"Manca un carattere."_s);
    Digita(u"k"_s);
    QCOMPARE(Lettura(), u"Data di nascita: 05/08/1985\nSesso: femmina\nComune di nascita: Milano (MI)"_s);
    QVERIFY(Note().isEmpty() && !Rosso());
    Premi(Qt::Key_Backspace);
    QCOMPARE(Lettura(), u"Manca un carattere."_s);
}

void TestLetturaCodFis::incollato_data()
{
    QTest::addColumn<QString>("Codice");
    QTest::addColumn<QString>("Frase");
    QTest::addColumn<QString>("Nota");
    QTest::newRow("con righe e bianchi")
        << u" RSSMRA85\tM45 F205K\n"_s
        << u"Data di nascita: 05/08/1985\nSesso: femmina\nComune di nascita: "
           "Milano (MI)"_s
        << QString();
    QTest::newRow("stato estero")
        << u"RSSMRA80A01Z110B"_s
        << u"Data di nascita: 01/01/1980\nSesso: maschio\nComune di nascita: Francia "
           "(stato estero)"_s
        << QString();
    QTest::newRow("due secoli, più nomi")
        << u"RSSMRA12M45A001S"_s
        << u"Data di nascita: 05/08/2012 oppure 05/08/1912\nSesso: femmina\nComune di nascita: Abano / Abano "
           u"Terme "
           "(PD)"_s
        << u"Il codice ha soltanto due cifre dell'anno: il secolo non si può sapere."_s;
    QTest::newRow("omocodo") << u"RSSMRA80A01H50MM"_s
                             << u"Data di nascita: 01/01/1980\nSesso: maschio\nComune di nascita: Roma (RM)"_s
                             << u"Codice omocodo: ha lettere al posto di cifre. La forma di base è "
                                "RSSMRA80A01H501U."_s;
}

void TestLetturaCodFis::incollato()
{
    QFETCH(QString, Codice);
    Incolla(Letto(), Codice);
    QTEST(Lettura(), "Frase");
    QTEST(Note(), "Nota");
    QVERIFY(!Rosso());
}

void TestLetturaCodFis::sbagliati_data()
{
    QTest::addColumn<QString>("Codice");
    QTest::addColumn<QString>("Nota");
    QTest::newRow("lungo") << u"RSSMRA85M45F205KK"_s
                           << u"Un codice fiscale ha 16 caratteri: questo ne ha 17."_s;
    QTest::newRow("mese") << u"RSSMRA85Q45F205K"_s << u"Al 9° posto \"Q\" non è la lettera di un mese."_s;
    QTest::newRow("giorno")
        << u"RSSMRA85M35F205K"_s
        << u"Il giorno di nascita 35 non è possibile: va da 01 a 31, per le donne da 41 a 71."_s;
    QTest::newRow("ente")
        << u"12345678903"_s
        << u"Undici cifre sono il codice di una società o di un ente: non indicano una persona."_s;
}

void TestLetturaCodFis::sbagliati()
{
    QFETCH(QString, Codice);
    Incolla(Letto(), Codice);
    QTEST(Note(), "Nota");
    QCOMPARE(Lettura(), QString());
    QVERIFY(Rosso());
    QVERIFY(!Controllo(F, "cmdCopiaLettura")->isEnabled());
}

// A code that is too short is said so when it is left, not before.
void TestLetturaCodFis::lasciatoIncompleto()
{
    Scrivi(Letto(), u"RSSMRA85"_s);
    QVERIFY(!Rosso());
    Premi(Qt::Key_Tab);
    QCOMPARE(Note(), u"Un codice fiscale ha 16 caratteri: questo ne ha 8."_s);
    QVERIFY(Rosso());
    Scrivi(Letto(), QString());
    QCOMPARE(Lettura(), FraseVuota);
    QVERIFY(Note().isEmpty() && !Rosso());
}

void TestLetturaCodFis::fuoriPostoSubito()
{
    Scrivi(Letto(), u"RS1"_s);
    QCOMPARE(Note(), u"Al 3° posto \"1\" sta dove occorre una lettera."_s);
    QVERIFY(Rosso());
}

void TestLetturaCodFis::ultimaLettera()
{
    Incolla(Letto(), u"RSSMRA85M45F205X"_s);
    QVERIFY(Lettura().contains(u"05/08/1985"));
    QCOMPARE(Note(), u"L'ultima lettera è errata: dovrebbe essere K. Il codice è scritto male."_s);
    QVERIFY(Rosso());
}

void TestLetturaCodFis::copie()
{
    Incolla(Letto(), u"RSSMRA85M45F205K"_s);
    const QString Atteso = u"Data di nascita: 05/08/1985\nSesso: femmina\nComune di nascita: Milano (MI)"_s;
    Letto()->deselect();
    CopiaConTasti();
    QCOMPARE(Appunti(), Atteso);
    QApplication::clipboard()->clear();
    Clic(Controllo(F, "cmdCopiaLettura"));
    QCOMPARE(Appunti(), Atteso);
    QVERIFY(QApplication::clipboard()->mimeData()->html().contains(u"<td>05/08/1985</td>"));
    // What is selected by hand is copied as it is.
    Letto()->setFocus();
    Letto()->setSelection(0, 3);
    CopiaConTasti();
    QCOMPARE(Appunti(), u"RSS"_s);
}

void TestLetturaCodFis::senzaArchivio()
{
    Chiudi(F);
    sessione::PercorsoProg = NuovaCartella();
    B->Voce.Tollera();
    F = Apri<frmCodFis>();
    QVERIFY(F);
    Incolla(Letto(), u"RSSMRA85M45F205K"_s);
    QCOMPARE(
        Lettura(),
        u"Data di nascita: 05/08/1985\nSesso: femmina\nComune di nascita: il codice F205 non è in elenco"_s);
}

// The two halves of the window are apart: neither takes the other's result away.
void TestLetturaCodFis::nonToccaIlCalcolo()
{
    Scrivi(F, "txtCognome", u"Rossi"_s);
    Scrivi(F, "txtNome", u"Mario"_s);
    Scrivi(F, "txtDataNascita", u"01011980"_s);
    Scrivi(F, "txtComune", u"roma"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(TestoDi(F, "txtCodiceFiscale"), u"RSSMRA80A01H501U"_s);
    Incolla(Letto(), u"RSSMRA85M45F205K"_s);
    QCOMPARE(TestoDi(F, "txtCodiceFiscale"), u"RSSMRA80A01H501U"_s);
    Scrivi(F, "txtNome", u"Maria"_s);
    QCOMPARE(TestoDi(F, "txtCodiceFiscale"), QString());
    QVERIFY(Lettura().contains(u"05/08/1985"));
}

void TestLetturaCodFis::nuovoSvuota()
{
    Scrivi(F, "txtCognome", u"Rossi"_s);
    Scegli(F, "cboSesso", 1);
    Scrivi(F, "txtComune", u"roma"_s);
    QVERIFY(!TestoDi(F, "lblProvincia").isEmpty());
    Incolla(Letto(), u"RSSMRA85M45F205K"_s);
    DalMenu(F, "mnuNew");
    for (const char* Nome :
         {"txtCognome", "txtNome", "txtComune", "txtLetto", "lblProvincia", "txtCodiceFiscale"})
        QVERIFY2(TestoDi(F, Nome).isEmpty(), Nome);
    QCOMPARE(Controllo<QComboBox>(F, "cboSesso")->currentIndex(), 0);
    QCOMPARE(Lettura(), FraseVuota);
    QCOMPARE(NomeFuoco(), u"txtCognome"_s);
}

void TestLetturaCodFis::stampaLaLettura()
{
    const auto* Scheda = Controllo<QAction>(F, "mnuScheda");
    QVERIFY(!Scheda->isEnabled());
    Incolla(Letto(), u"RSSMRA85M45F205K"_s);
    QVERIFY(Scheda->isEnabled());
    DalMenu(F, "mnuCopiaTabella");
    QVERIFY2(Appunti().contains(u"Data di nascita\t05/08/1985\n"), qPrintable(Appunti()));
    QVERIFY(Appunti().contains(u"Ultima lettera\tesatta"));
    Scrivi(Letto(), u"RSS"_s);
    QVERIFY(!Scheda->isEnabled());
}

/// Enter behind a code is about that code, and leaves the person beside it alone.
void TestLetturaCodFis::invioLeggeSoltanto()
{
    Scrivi(F, "txtCognome", u"Rossi"_s);
    QVERIFY(Controllo(F, "cmdElabora")->isEnabled());
    for (const Qt::Key Tasto : {Qt::Key_Return, Qt::Key_Enter}) {
        Scrivi(Letto(), u"RSSMRA85M45F205K"_s);
        Premi(Tasto);  // a box that nobody awaits would fail
        QCOMPARE(NomeFuoco(), u"txtLetto"_s);
        QCOMPARE(Letto()->selectedText(), u"RSSMRA85M45F205K"_s);
        QVERIFY(Lettura().contains(u"05/08/1985"));
        QCOMPARE(TestoDi(F, "txtCodiceFiscale"), QString());
    }
    DalMenu(F, "mnuCopiaTabella");
    QVERIFY2(Appunti().startsWith(u"Codice fiscale\tRSSMRA85M45F205K\n"), qPrintable(Appunti()));
}

void TestLetturaCodFis::svuotaConUnClic()
{
    Incolla(Letto(), u"RSSMRA85M45F205K"_s);
    auto* Svuota = Letto()->findChild<QToolButton*>();
    QVERIFY(Svuota && Svuota->isVisible());
    QTest::mouseClick(Svuota, Qt::LeftButton);
    QCOMPARE(Lettura(), FraseVuota);
}

void TestLetturaCodFis::lettoreDiSchermo()
{
    QCOMPARE(Letto()->accessibleName(), u"Codice da leggere"_s);
    Incolla(Letto(), u"RSSMRA85M45F205X"_s);
    const QString Detto = Controllo(F, "lblLettura")->accessibleName();
    QVERIFY2(Detto.contains(u"05/08/1985") && Detto.contains(u"dovrebbe essere K"), qPrintable(Detto));
    QCOMPARE(Letto()->accessibleDescription(), Detto);
    QCOMPARE(Controllo(F, "cmdCopiaLettura")->accessibleName(), u"Copia quello che dice il codice letto"_s);
}

void TestLetturaCodFis::paletteScura()
{
    const QPalette Prima = QApplication::palette();
    Incolla(Letto(), u"RSSMRA85M45F205X"_s);
    QPalette Scura = Prima;
    Scura.setColor(QPalette::Window, Qt::black);
    Scura.setColor(QPalette::WindowText, Qt::white);
    Scura.setColor(QPalette::Base, Qt::black);
    Scura.setColor(QPalette::Text, Qt::white);
    QApplication::setPalette(Scura);
    // An application that runs its loop tells its windows; that of a test does not.
    QEvent Cambiata(QEvent::PaletteChange);
    QApplication::sendEvent(F, &Cambiata);
    QVERIFY(aspetto::Scuro());
    QVERIFY(Rosso());
    QApplication::setPalette(Prima);
}

#include "TestLetturaCodFis.moc"
