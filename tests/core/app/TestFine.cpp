// How the last note, any note, or the command "off" ends the program: normal, low and companion sessions.
#include "feenote/modNuovaParcella.h"
#include "ufficio.h"

#include "core/aperture.h"
#include "core/app/altriavvii.h"
#include "core/app/apritori.h"
#include "core/app/avvio.h"
#include "core/comandi.h"
#include "core/posti.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/file/modRecupero.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/network/staffetta.h"
#include "platform/system/file.h"

#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScopeGuard>
#include <QThread>
#include <QToolBar>
#include <QToolButton>

#include <memory>

namespace {

QString PrimaDiChiudere(const frmParcelle* Finestra)
{
    return Finestra->windowTitle() + u"\nVuoi salvare la parcella prima di chiudere?"_s;
}

}  // namespace

class TestFine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void normaleTornaAllaScrivania();
    void normaleConUnAltraAperta();
    void bassoFinisceConLUltima();
    void bassoConUnaCoppia();
    void praticaFinisceSubito();
    void praticaNonTieneLeMisure();
    void praticaAnnullata();
    void praticaSalvata();
    void fileDiUnaPraticaApertoDaSolo();
    void fileSenzaPraticaDallaCompagna();
    void laSchedaTieneIlProgramma_data();
    void laSchedaTieneIlProgramma();
    void laCorniceSenzaNote();
    void spegniChiedeAOgnuna();
    void cioCheArrivaAllaDomandaFinale();
    void spegniSalva();
    void spegniDaUnaPraticaNonChiedeOltre();
    void ilTrovaparcelleRiguarda();
    void tasti_data();
    void tasti();
    void ctrlSSalva_data();
    void ctrlSSalva();
    void ctrlPAllaStampa();
    void ogniTastoHaIlSuggerimento();

private:
    static frmMain& Cornice() { return Singola<frmMain>(); }
    /// A second note, beside the first one, which is modified by then.
    static void ApriSeconda()
    {
        Parcelle(1)->SetModificata(true);
        EseguiComando(u"new"_s, 0, {});
    }
    /// A file of a note, saved for a matter when it has a reference.
    [[nodiscard]] QString FileDiNota(const QString& Riferimento) const;

    std::unique_ptr<Scena> S;
    std::unique_ptr<Registratore> Box;
    QString Note;  ///< the folder of notes
};
PROVA(TestFine);

void TestFine::init()
{
    S = std::make_unique<Scena>();
    Box = std::make_unique<Registratore>();
    Note = SalvaUfficio();
    RiempiApritori();
}

void TestFine::cleanup()
{
    Box.reset();
    AzzeraFinestre();
    LasciaRecupero();
    S.reset();
    Aperture.AreaParcelle = nullptr;
    Aperture.ParcellaAttivata = nullptr;
    Aperture.UltimaParcellaChiusa = nullptr;
}

QString TestFine::FileDiNota(const QString& Riferimento) const
{
    sessione::PercorsoProg = ProgrammaDiProva();
    sessione::RichiestaPV2.ID = Riferimento;
    Parcella Nota;
    NuovaParcella(Nota);
    const QString File = Note + u"rossi.mdb"_s;
    ScriviNota(File, Nota);
    sessione::RichiestaPV2 = {};
    return File;
}

void TestFine::normaleTornaAllaScrivania()
{
    Main({});
    EseguiComando(u"new"_s, 0, {});
    SeCaricato<frmStudio>->hide();
    QVERIFY(ChiudiParcella(1));
    QVERIFY(SeCaricato<frmStudio>->isVisible());
    QTRY_VERIFY(!Cornice().isVisible());
    QVERIFY2(S->Eventi.isEmpty(), "il programma va avanti");
    for (const QString& Chiave :
         {u"MainWidth"_s, u"MainHeight"_s, u"FormWidth"_s, u"FormHeight"_s, u"FormState"_s})
        QVERIFY2(!Scena::Parametro(Chiave).isEmpty(), qPrintable(Chiave));
}

void TestFine::normaleConUnAltraAperta()
{
    Main({});
    EseguiComando(u"new"_s, 0, {});
    ApriSeconda();
    SeCaricato<frmStudio>->hide();
    QVERIFY(ChiudiParcella(2));
    Respiro();
    QVERIFY(Cornice().isVisible() && !SeCaricato<frmStudio>->isVisible());
    QVERIFY2(Scena::Parametro(u"FormWidth"_s).isEmpty(), "non era l'ultima");
    Parcelle(1)->SetModificata(false);
}

void TestFine::bassoFinisceConLUltima()
{
    Main(u"-low"_s);
    ApriSeconda();
    QVERIFY(ChiudiParcella(2));
    QCOMPARE(S->Eventi, QStringList());
    Parcelle(1)->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    QVERIFY(!SeCaricato<frmStudio>);
    QVERIFY2(!Scena::Parametro(u"FormWidth"_s).isEmpty() && !Scena::Parametro(u"MainWidth"_s).isEmpty(),
             "le misure prima della fine");
}

void TestFine::bassoConUnaCoppia()
{
    // Both windows go together: the program would be left without any.
    Main(u"-low"_s);
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 1, {});
    Parcelle(1)->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    QVERIFY(InfoParcelle[1].Libera && InfoParcelle[2].Libera);
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
}

void TestFine::praticaFinisceSubito()
{
    Main(u"PV2|N|P12|0|0|0|0|0|0|"_s);
    EseguiComando(u"new"_s, 0, {});  // the first one is not "Nuova parcella": it stays
    QCOMPARE(UltimaParcella(), 2);
    Parcelle(1)->SetModificata(true);
    QVERIFY(ChiudiParcella(2));
    // Whatever else is open: nobody is asked about the modified one.
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    QVERIFY(!InfoParcelle[1].Libera && InfoParcelle[1].Modificata);
    QVERIFY(Box->Mostrati().isEmpty());
}

void TestFine::praticaNonTieneLeMisure()
{
    Main(u"PV2|N|P12|0|0|0|0|0|0|"_s);
    Cornice().resize(700, 500);
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    for (const QString& Chiave :
         {u"MainWidth"_s, u"MainHeight"_s, u"FormWidth"_s, u"FormHeight"_s, u"FormState"_s})
        QVERIFY2(Scena::Parametro(Chiave).isEmpty(), qPrintable(Chiave));
    QVERIFY(!SeCaricato<frmStudio>);
}

void TestFine::praticaAnnullata()
{
    Main(u"PV2|N|P12|0|0|0|0|0|0|"_s);
    Parcelle(1)->SetModificata(true);
    Box->Attendi(u"[P12] Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, vbCancel,
                 u"Domanda:"_s);
    QVERIFY(!ChiudiParcella(1));
    QCOMPARE(Box->Ultimo().Bandiere, vbYesNoCancel + vbQuestion);
    // Yes, and then the save is cancelled: the note stays, and so does the program.
    Box->Attendi(u"[P12] Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, vbYes);
    Box->AttendiSalva({});
    QVERIFY(!ChiudiParcella(1));
    QCOMPARE(S->Eventi, QStringList());
    QVERIFY(Parcelle(1)->isVisible() && InfoParcelle[1].Modificata);
    Parcelle(1)->SetModificata(false);
}

void TestFine::praticaSalvata()
{
    Main(u"PV2|N|P12|0|0|0|0|0|0|"_s);
    Parcelle(1)->SetModificata(true);
    Box->Attendi(PrimaDiChiudere(Parcelle(1)), vbYes);
    Box->AttendiSalva(Note + u"P12-rossi.mdb"_s);
    Box->Attendi(u"La parcella P12-rossi.mdb è stata salvata correttamente!"_s);
    QVERIFY(ChiudiParcella(1));
    QVERIFY(EsisteFile(Note + u"P12-rossi.mdb"_s));
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
}

void TestFine::fileDiUnaPraticaApertoDaSolo()
{
    // The reference in the file makes the session a companion's, an ordinary open too.
    const QString File = FileDiNota(u"P12"_s);
    Main({});
    ApriParcella(File, 0, {});
    QCOMPARE(sessione::RichiestaPV2.ID, u"P12"_s);
    QVERIFY(Parcelle(1)->findChild<QWidget*>(u"lblRif_1"_s)->isVisible());
    SeCaricato<frmStudio>->hide();
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    QVERIFY(!SeCaricato<frmStudio>->isVisible());
}

void TestFine::fileSenzaPraticaDallaCompagna()
{
    const QString File = FileDiNota({});
    Main(u"PV2|E|"_s + File);
    QCOMPARE(Parcelle(1)->windowTitle(), u"rossi"_s);
    QVERIFY(!SeCaricato<frmStudio>);
    QVERIFY(ChiudiParcella(1));
    // No matter: the note was the last one of a session like any other.
    QCOMPARE(S->Eventi, QStringList());
    QVERIFY(SeCaricato<frmStudio> && SeCaricato<frmStudio>->isVisible());
}

void TestFine::laSchedaTieneIlProgramma_data()
{
    QTest::addColumn<QString>("Riga");
    QTest::addColumn<bool>("Altra");
    QTest::newRow("the note of a matter") << u"PV2|N|P12|0|0|0|0|0|0|"_s << false;
    QTest::newRow("one of a matter's notes") << u"PV2|N|P12|0|0|0|0|0|0|"_s << true;
    QTest::newRow("the last note of a low session") << u"-low"_s << false;
}

/// Who stays with an open card of the address book keeps the note too, and is asked again at the next close.
void TestFine::laSchedaTieneIlProgramma()
{
    QFETCH(QString, Riga);
    QFETCH(bool, Altra);
    Main(Riga);
    if (Altra)
        EseguiComando(u"new"_s, 0, {});
    int Domande = 0;
    bool Risposta = false;
    Aperture.ChiudiRubriche = [&] {
        ++Domande;
        return Risposta;
    };
    QVERIFY(!ChiudiParcella(1));
    QCOMPARE(Domande, 1);
    QCOMPARE(S->Eventi, QStringList());
    QVERIFY(Parcelle(1)->isVisible() && !InfoParcelle[1].Libera);
    Risposta = true;
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
}

/// The frame of a low session can lose its note to a file that does not open.
void TestFine::laCorniceSenzaNote()
{
    Main(u"-low"_s);
    bool Risposta = false;
    Aperture.ChiudiRubriche = [&] { return Risposta; };
    DopoUltimaParcella();
    QCOMPARE(S->Eventi, QStringList());
    Risposta = true;
    DopoUltimaParcella();
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
}

void TestFine::spegniChiedeAOgnuna()
{
    Main({});
    EseguiComando(u"new"_s, 0, {});
    ApriSeconda();
    Parcelle(2)->SetModificata(true);
    Box->Attendi(PrimaDiChiudere(Parcelle(1)), vbCancel, u"Domanda:"_s);
    Box->Attendi(PrimaDiChiudere(Parcelle(2)), vbNo, u"Domanda:"_s);
    EseguiComando(u"off"_s, 0, {});
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    QVERIFY2(!InfoParcelle[1].Libera, "annullata: non si scarica, ma il programma finisce");
    QVERIFY(InfoParcelle[2].Libera);
}

/// A file that another start hands over while the last question stands: the start has ended, and so does the
/// session; the file gets a start of its own.
void TestFine::cioCheArrivaAllaDomandaFinale()
{
    const QString File = Note + u"Però già € così.mdb"_s;
    QVERIFY(ComeUnaSessione({}, [] { Main({}); }));
    const auto Giunti = qScopeGuard([] { delete qApp->findChild<QObject*>(u"fileGiunti"_s); });
    EseguiComando(u"new"_s, 0, {});
    Parcelle(1)->SetModificata(true);
    bool Preso = false;
    const auto AlMostrare = Registratore::AlMostrare();
    const auto Torna = qScopeGuard([&] { Registratore::AlMostrare() = AlMostrare; });
    Registratore::AlMostrare() = [&] {
        const std::unique_ptr<QThread> Altro(QThread::create(
            [&] { Preso = PassaFile(PercorsoImpostazioni(NomeApplicazione.toString()), File); }));
        Altro->start();
        (void)QTest::qWaitFor([&] { return Altro->isFinished() && FileInArrivo(); });
        Altro->wait();
    };
    Box->Attendi(PrimaDiChiudere(Parcelle(1)), vbNo, u"Domanda:"_s);
    EseguiComando(u"off"_s, 0, {});
    QVERIFY(Preso);
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    QVERIFY(S->Avviati.isEmpty());
    QVERIFY(QMetaObject::invokeMethod(qApp, "aboutToQuit"));
    QCOMPARE(S->Avviati, QList<QStringList>{{File}});
    QCOMPARE(S->Eventi.last(), u"avvia "_s + QCoreApplication::applicationFilePath() + u" in "_s + Note);
    QVERIFY(!FileInArrivo());
}

void TestFine::spegniSalva()
{
    Main({});
    EseguiComando(u"new"_s, 0, {});
    Parcelle(1)->SetModificata(true);
    Box->Attendi(PrimaDiChiudere(Parcelle(1)), vbYes);
    Box->AttendiSalva(Note + u"rossi.mdb"_s);
    Box->Attendi(u"La parcella rossi.mdb è stata salvata correttamente!"_s);
    EseguiComando(u"off"_s, 0, {});
    QVERIFY(EsisteFile(Note + u"rossi.mdb"_s));
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
}

void TestFine::spegniDaUnaPraticaNonChiedeOltre()
{
    Main(u"PV2|N|P12|0|0|0|0|0|0|"_s);
    EseguiComando(u"new"_s, 0, {});
    Parcelle(2)->SetModificata(true);
    EseguiComando(u"off"_s, 0, {});
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    QVERIFY(InfoParcelle[1].Libera && !InfoParcelle[2].Libera);
}

void TestFine::ilTrovaparcelleRiguarda()
{
    int Sguardi = 0;
    Aperture.RinfrescaTrova = [&] { ++Sguardi; };
    Main({});
    EseguiComando(u"new"_s, 0, {});
    ApriSeconda();
    QVERIFY(ChiudiParcella(2));
    QCOMPARE(Sguardi, 1);
    Parcelle(1)->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Sguardi, 2);
    QVERIFY2(SeCaricato<frmStudio>->isVisible(), "l'ultima torna alla scrivania comunque");
}

void TestFine::tasti_data()
{
    QTest::addColumn<int>("Tasto");
    QTest::addColumn<QString>("Accaduto");
    QTest::newRow("nuova") << int(Qt::Key_N) << u"parcella"_s;
    QTest::newRow("apri") << int(Qt::Key_O) << u"trova 0"_s;
}

void TestFine::tasti()
{
    QFETCH(int, Tasto);
    QFETCH(QString, Accaduto);
    Main({});
    EseguiComando(u"new"_s, 0, {});
    QVERIFY(MostraAttiva(Cornice()));
    Aperture.ApriParcella = [this](const QString&, int, const QString&) { S->Annota(u"parcella"_s); };
    Aperture.TrovaParcella = [this](int Selettore, const QString&, int, const QString&) {
        S->Annota(u"trova %1"_s.arg(Selettore));
        return QString();
    };
    Parcelle(1)->findChild<QWidget*>(u"txtCliente"_s)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key(Tasto), Qt::ControlModifier);
    QCOMPARE(S->Eventi, QStringList{Accaduto});
}

void TestFine::ctrlSSalva_data()
{
    QTest::addColumn<QString>("Riga");
    QTest::newRow("normale") << QString();
    QTest::newRow("basso, senza bottoni") << u"-low"_s;
    QTest::newRow("pratica") << u"PV2|N|P12|0|0|0|0|0|0|"_s;
}

void TestFine::ctrlSSalva()
{
    QFETCH(QString, Riga);
    Main(Riga);
    if (Riga.isEmpty())
        EseguiComando(u"new"_s, 0, {});
    QVERIFY(MostraAttiva(Cornice()));
    auto* Cliente = Parcelle(1)->findChild<QLineEdit*>(u"txtCliente"_s);
    Cliente->setFocus();
    QTest::keyClick(Cliente, Qt::Key_S, Qt::ControlModifier);
    const auto* Svanisce = Parcelle(1)->findChild<QLabel*>(u"lblSalvata"_s);
    QVERIFY(Svanisce->isVisible());
    QCOMPARE(Svanisce->text(), u"Niente da salvare"_s);
    Digita(u"Rossi"_s);
    const QString File = Note + u"P12-rossi.mdb"_s;
    Box->AttendiSalva(File);
    Box->Attendi(u"La parcella P12-rossi.mdb è stata salvata correttamente!"_s);
    QTest::keyClick(Cliente, Qt::Key_S, Qt::ControlModifier);
    QVERIFY(EsisteFile(File));
    QVERIFY(!InfoParcelle[1].Modificata);
    QTRY_COMPARE(QApplication::focusWidget(), Cliente);
}

void TestFine::ctrlPAllaStampa()
{
    // An empty note has nothing to print: the parameters say so, and the first tab stays.
    Main(u"-low"_s);
    QVERIFY(MostraAttiva(Cornice()));
    auto* Cliente = Parcelle(1)->findChild<QLineEdit*>(u"txtCliente"_s);
    Cliente->setFocus();
    Box->Tollera();
    QTest::keyClick(Cliente, Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(Box->Mostrati().size(), 1);
    QCOMPARE(Parcelle(1)->Scheda(), int(SchedaBase));
}

void TestFine::ogniTastoHaIlSuggerimento()
{
    Main({});
    EseguiComando(u"new"_s, 0, {});
    int Visti = 0;
    for (const QToolButton* Uno : Cornice().findChildren<QToolButton*>()) {
        // Those that the toolkit makes for itself: the arrows of tab bars, the cross that empties a box.
        const QWidget* Padre = Uno->parentWidget();
        if (Uno->objectName().startsWith(u"qt_") || qobject_cast<const QTabBar*>(Padre) ||
            qobject_cast<const QLineEdit*>(Padre))
            continue;
        ++Visti;
        QVERIFY2(!Uno->toolTip().isEmpty(), qPrintable(Uno->objectName()));
        QVERIFY2(Uno->toolTip() != Uno->objectName(), qPrintable(Uno->objectName()));
    }
    QVERIFY2(Visti > 40, qPrintable(QString::number(Visti)));
    for (const QToolBar* Barra : Cornice().findChildren<QToolBar*>()) {
        for (const QAction* Azione : Barra->actions())
            QVERIFY2(Azione->isSeparator() || !Barra->widgetForAction(const_cast<QAction*>(Azione)) ||
                         Azione->text().isEmpty() || !Azione->toolTip().isEmpty(),
                     qPrintable(Azione->text()));
    }
}

#include "TestFine.moc"
