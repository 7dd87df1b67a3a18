#include "ufficio.h"

#include "calculators/windows/frmInteressi.h"
#include "calculators/windows/frmTermini.h"
#include "core/app/apritori.h"
#include "core/app/tastoguida.h"
#include "core/comandi.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/system/messaggi.h"
#include "update/viewer/frmWeb.h"
#include "update/viewer/pagina.h"

#include <QAbstractItemView>
#include <QAction>
#include <QColorDialog>
#include <QComboBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QScopeGuard>
#include <QTabWidget>

#include <memory>

/// F1 in the program's own windows.
class TestTastoGuida : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void schedeDellaParcella_data();
    void schedeDellaParcella();
    void corniceSenzaParcelle();
    void schedeDelleImpostazioni_data();
    void schedeDelleImpostazioni();
    void finestre_data();
    void finestre();
    void dialoghi_data();
    void dialoghi();
    void nessunaPagina();
    void unTastoUnaFinestra();
    void conModificatori_data();
    void conModificatori();
    void laPaginaDeiTasti_data();
    void laPaginaDeiTasti();
    void laPaginaDeiTastiDaPulsanti();
    void sopraUnaFinestraModale();
    void conLaSuaFinestraModale();
    void listaAperta();
    void nellaGuida();
    void guidaMancante();
    void comandiDelleGuide();

private:
    static frmWeb* Visore()
    {
        for (QWidget* Finestra : QApplication::topLevelWidgets())
            if (auto* Web = qobject_cast<frmWeb*>(Finestra); Web && Web->isVisible() && !Web->Guida.isEmpty())
                return Web;
        return nullptr;
    }
    static QString InVista()
    {
        const frmWeb* Web = Visore();
        return Web ? QFileInfo(Web->findChild<Pagina*>(u"Web1"_s)->source().path()).completeBaseName()
                   : QString();
    }

    std::unique_ptr<Scena> S;
};
PROVA(TestTastoGuida);

void TestTastoGuida::initTestCase()
{
    InstallaTastoGuida();
}

void TestTastoGuida::init()
{
    S = std::make_unique<Scena>();
    (void)SalvaUfficio();
    S->Preparata();
    sessione::ArchivioCliCon = ProgrammaDiProva() + u"DatiStudio.mdb"_s;
    RiempiApritori();
}

void TestTastoGuida::cleanup()
{
    if (frmWeb* Web = Visore())
        Web->close();
    AzzeraFinestre();
    S.reset();
}

void TestTastoGuida::schedeDellaParcella_data()
{
    QTest::addColumn<int>("Scheda");
    QTest::addColumn<QString>("Pagina");
    QTest::newRow("base data") << 0 << u"SchedaDatiBase"_s;
    QTest::newRow("honoraria") << 1 << u"SchedaOnorari"_s;
    QTest::newRow("expenses") << 2 << u"SchedaSpese"_s;
    QTest::newRow("payments") << 3 << u"SchedaAcconti"_s;
    QTest::newRow("print") << 4 << u"SchedaStampa"_s;
}

void TestTastoGuida::schedeDellaParcella()
{
    QFETCH(int, Scheda);
    QFETCH(QString, Pagina);
    const Registratore Box;
    Aperture.ApriParcella({}, 0, {});
    auto* Schede = Parcelle(1)->findChild<QTabWidget*>(u"tabParcelle"_s);
    QVERIFY(Schede);
    {
        const QSignalBlocker SenzaRegole(Schede);  // a new note would refuse to leave its first tab
        Schede->setCurrentIndex(Scheda);
    }
    // From the frame, from the note, from inside the tab.
    auto& Cornice = Singola<frmMain>();
    QCOMPARE(PaginaDellaGuida(&Cornice), Pagina);
    QCOMPARE(PaginaDellaGuida(Parcelle(1)), Pagina);
    QCOMPARE(PaginaDellaGuida(Schede->tabBar()), Pagina);
    const auto Dentro = Schede->currentWidget()->findChildren<QWidget*>();
    QVERIFY(!Dentro.isEmpty());
    QCOMPARE(PaginaDellaGuida(Dentro.first()), Pagina);
    QTest::keyClick(Parcelle(1), Qt::Key_F1);
    QCOMPARE(InVista(), Pagina);
}

void TestTastoGuida::corniceSenzaParcelle()
{
    QCOMPARE(PaginaDellaGuida(&Singola<frmMain>()), u"frmMain"_s);
}

void TestTastoGuida::schedeDelleImpostazioni_data()
{
    QTest::addColumn<int>("Scheda");
    QTest::addColumn<QString>("Pagina");
    QTest::newRow("office") << 0 << u"frmSetup"_s;
    QTest::newRow("rates") << 1 << u"SchedaContabili"_s;
    QTest::newRow("folders") << 2 << u"SchedaCartelle"_s;
    QTest::newRow("desktop") << 3 << u"SchedaDesktop"_s;
}

void TestTastoGuida::schedeDelleImpostazioni()
{
    QFETCH(int, Scheda);
    QFETCH(QString, Pagina);
    auto& Modulo = Singola<frmSetup>();
    Modulo.Mostra(Scheda);
    QCOMPARE(PaginaDellaGuida(&Modulo), Pagina);
    QTest::keyClick(&Modulo, Qt::Key_F1);
    QCOMPARE(InVista(), Pagina);
}

void TestTastoGuida::finestre_data()
{
    QTest::addColumn<QString>("Parola");
    QTest::newRow("open") << u"open"_s;
    for (const Comando& Riga : Comandi())
        if (ApreFinestra(Riga))
            QTest::newRow(qPrintable(Riga.Parola.toString())) << Riga.Parola.toString();
}

/// The page of a window bears the name of its class.
void TestTastoGuida::finestre()
{
    QFETCH(QString, Parola);
    const Registratore Box;
    const QWidgetList Prima = QApplication::topLevelWidgets();
    EseguiComando(Parola, 0, {});
    Respiro();
    QWidget* Aperta = nullptr;
    for (QWidget* Finestra : QApplication::topLevelWidgets())
        if (Finestra->isVisible() && !Prima.contains(Finestra))
            Aperta = Finestra;
    QVERIFY2(Aperta, "the command opens its window");
    const auto Chiudi = qScopeGuard([&] { Aperta->close(); });
    const QString Pagina = QString::fromLatin1(Aperta->metaObject()->className());
    for (const QWidget* Dentro : Aperta->findChildren<QLineEdit*>())
        QCOMPARE(PaginaDellaGuida(Dentro), Pagina);
    QTest::keyClick(Aperta->focusWidget() ? Aperta->focusWidget() : Aperta, Qt::Key_F1);
    QCOMPARE(InVista(), Pagina);
}

void TestTastoGuida::dialoghi_data()
{
    QTest::addColumn<int>("Quale");
    QTest::addColumn<QString>("Pagina");
    QTest::newRow("message") << 0 << u"messaggi"_s;
    QTest::newRow("input") << 1 << u"domande"_s;
    QTest::newRow("file") << 2 << u"sceltafile"_s;
    QTest::newRow("colour") << 3 << u"sceltacolore"_s;
}

void TestTastoGuida::dialoghi()
{
    QFETCH(int, Quale);
    QFETCH(QString, Pagina);
    // Above a window with a page of its own, which is not meant.
    auto& Sotto = Singola<frmSetup>();
    const std::array<std::unique_ptr<QDialog>, 4> Tutti{
        std::make_unique<QMessageBox>(&Sotto), std::make_unique<QInputDialog>(&Sotto),
        std::make_unique<QFileDialog>(&Sotto), std::make_unique<QColorDialog>(&Sotto)};
    QCOMPARE(PaginaDellaGuida(Tutti[size_t(Quale)].get()), Pagina);
}

void TestTastoGuida::nessunaPagina()
{
    QWidget Altra;
    QCOMPARE(PaginaDellaGuida(&Altra), u"indice"_s);
    QCOMPARE(PaginaDellaGuida(nullptr), u"indice"_s);
}

void TestTastoGuida::unTastoUnaFinestra()
{
    const Registratore Box;
    EseguiComando(u"termini"_s, 0, {});
    EseguiComando(u"inter"_s, 0, {});
    QTest::keyClick(SeCaricato<frmTermini>, Qt::Key_F1);
    const frmWeb* Prima = Visore();
    QVERIFY(Prima);
    QCOMPARE(InVista(), u"frmTermini"_s);
    QTest::keyClick(SeCaricato<frmInteressi>, Qt::Key_F1);
    QCOMPARE(Visore(), Prima);
    QCOMPARE(InVista(), u"frmInteressi"_s);
    // The sheets have their own viewer, and stay on view.
    Aperture.PaginaWeb(ProgrammaDiProva() + u"assistenza.htm"_s, u"Assistenza"_s);
    QCOMPARE(InVista(), u"frmInteressi"_s);
    QVERIFY(SeCaricato<frmWeb> && SeCaricato<frmWeb>.data() != Prima);
    SeCaricato<frmWeb>->close();
    SeCaricato<frmTermini>->close();
    SeCaricato<frmInteressi>->close();
}

void TestTastoGuida::conModificatori_data()
{
    QTest::addColumn<int>("Modificatori");
    QTest::newRow("Shift") << int(Qt::ShiftModifier);
    QTest::newRow("Ctrl") << int(Qt::ControlModifier);
    QTest::newRow("Alt") << int(Qt::AltModifier);
}

void TestTastoGuida::conModificatori()
{
    QFETCH(int, Modificatori);
    QWidget Altra;
    QTest::keyClick(&Altra, Qt::Key_F1, Qt::KeyboardModifiers(Modificatori));
    QVERIFY(!Visore());
}

void TestTastoGuida::laPaginaDeiTasti_data()
{
    QTest::addColumn<int>("Tasto");
    QTest::addColumn<int>("Modificatori");
    QTest::addColumn<bool>("Apre");
    QTest::newRow("Ctrl+?") << int(Qt::Key_Question) << int(Qt::ControlModifier) << true;
    QTest::newRow("Ctrl+Shift+?") << int(Qt::Key_Question) << int(Qt::ControlModifier | Qt::ShiftModifier)
                                  << true;
    QTest::newRow("?") << int(Qt::Key_Question) << int(Qt::ShiftModifier) << false;
    QTest::newRow("Ctrl+Alt+?") << int(Qt::Key_Question) << int(Qt::ControlModifier | Qt::AltModifier)
                                << false;
    QTest::newRow("Ctrl+/") << int(Qt::Key_Slash) << int(Qt::ControlModifier) << false;
}

void TestTastoGuida::laPaginaDeiTasti()
{
    QFETCH(int, Tasto);
    QFETCH(int, Modificatori);
    QFETCH(bool, Apre);
    // In a box of text, which has a use for many keys.
    QLineEdit Altra;
    QVERIFY(MostraAttiva(Altra));
    QTest::keyClick(&Altra, Qt::Key(Tasto), Qt::KeyboardModifiers(Modificatori));
    QCOMPARE(InVista(), Apre ? u"tastiera"_s : QString());
}

void TestTastoGuida::laPaginaDeiTastiDaPulsanti()
{
    const Registratore Box;
    auto& Scrivania = Singola<frmStudio>();
    Scrivania.Mostra();
    QTest::mouseClick(Scrivania.findChild<QWidget*>(u"cmdTasti"_s), Qt::LeftButton);
    QCOMPARE(InVista(), u"tastiera"_s);
    Visore()->close();
    Singola<frmMain>().findChild<QAction*>(u"menu_tasti"_s)->trigger();
    QCOMPARE(InVista(), u"tastiera"_s);
}

void TestTastoGuida::sopraUnaFinestraModale()
{
    // Under a modal form the guide would be there and take no key.
    auto& Modulo = Singola<frmSetup>();
    QTimer::singleShot(0, &Modulo, [&] {
        const auto Chiudi = qScopeGuard([&] { Modulo.reject(); });
        QTest::keyClick(&Modulo, Qt::Key_F1);
        QVERIFY(Visore());
        QCOMPARE(Visore()->parentWidget(), &Modulo);
        auto* Casella = Visore()->findChild<QLineEdit*>(u"txtGuida"_s);
        QTest::mouseClick(Casella, Qt::LeftButton);
        QTest::keyClicks(Casella, u"iban"_s);
        QCOMPARE(Casella->text(), u"iban"_s);
    });
    Modulo.MostraModale(0);
    // Later it stands by itself again.
    EseguiComando(u"termini"_s, 0, {});
    QTest::keyClick(SeCaricato<frmTermini>, Qt::Key_F1);
    QVERIFY(Visore() && !Visore()->parentWidget());
    QCOMPARE(InVista(), u"frmTermini"_s);
    SeCaricato<frmTermini>->close();
}

void TestTastoGuida::conLaSuaFinestraModale()
{
    // A box that goes takes the guide along; the next F1 makes another.
    {
        QMessageBox Box;
        QTimer::singleShot(0, &Box, [&] {
            const auto Chiudi = qScopeGuard([&] { Box.reject(); });
            QTest::keyClick(&Box, Qt::Key_F1);
            QCOMPARE(InVista(), u"messaggi"_s);
        });
        Box.exec();
    }
    QVERIFY(!Visore());
    QWidget Altra;
    QTest::keyClick(&Altra, Qt::Key_F1);
    QCOMPARE(InVista(), u"indice"_s);
}

void TestTastoGuida::listaAperta()
{
    const Registratore Box;
    EseguiComando(u"inter"_s, 0, {});
    auto* Lista = SeCaricato<frmInteressi>->findChild<QComboBox*>(u"cmbInteressi"_s);
    QVERIFY(Lista && MostraAttiva(*SeCaricato<frmInteressi>));
    Lista->showPopup();
    QVERIFY(QApplication::activePopupWidget());
    QTest::keyClick(Lista->view(), Qt::Key_F1);
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(InVista(), u"frmInteressi"_s);
    SeCaricato<frmInteressi>->close();
}

void TestTastoGuida::nellaGuida()
{
    QWidget Altra;
    QTest::keyClick(&Altra, Qt::Key_F1);
    QVERIFY(Visore());
    QTest::keyClick(Visore()->findChild<QWidget*>(u"Web1"_s), Qt::Key_F1);
    QCOMPARE(InVista(), u"frmWeb"_s);
    // A box of the viewer's own cannot take it along.
    QMessageBox Box(Visore());
    QTimer::singleShot(0, &Box, [&] {
        const auto Chiudi = qScopeGuard([&] { Box.reject(); });
        QTest::keyClick(&Box, Qt::Key_F1);
        QCOMPARE(InVista(), u"messaggi"_s);
        QVERIFY(!Visore()->parentWidget());
    });
    Box.exec();
    QTest::keyClick(Visore(), Qt::Key_Escape);
    QVERIFY(!Visore());
}

void TestTastoGuida::guidaMancante()
{
    sessione::PercorsoProg = NuovaCartella();
    Registratore Box;
    Box.Attendi(u"La guida manca dalla cartella del programma: reinstallarlo la rimette al suo posto."_s);
    QWidget Altra;
    QTest::keyClick(&Altra, Qt::Key_F1);
    QVERIFY(!Visore());
}

void TestTastoGuida::comandiDelleGuide()
{
    // The words open their documents, as ever.
    EseguiComando(u"help"_s, 0, {});
    EseguiComando(u"guida"_s, 0, {});
    QVERIFY(S->Eventi.contains(u"pdf GuidaOperativa.pdf"_s));
    QVERIFY(S->Eventi.contains(u"pdf GuidaGiuridica.pdf"_s));
    QVERIFY(!Visore());
}

#include "TestTastoGuida.moc"
