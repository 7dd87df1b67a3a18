#include "scena.h"

#include "core/aperture.h"
#include "core/app/apritori.h"
#include "core/app/avvio.h"
#include "core/app/paginaavviso.h"
#include "core/comandi.h"
#include "core/desktop/iconastudio.h"
#include "core/posti.h"
#include "feenote/finder/windows/frmTrovaParcella.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/kit/campo.h"
#include "platform/system/file.h"

#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>

#include <memory>

/// The start with the program's own windows, from the icon to the frame and back.
class TestStrade : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void dallIconaAllaCorniceERitorno();
    void dueParcelleEIlBersaglio();
    void chiusaUnaSiSalvaLAltra_data();
    void ilLavoroDiIeri();
    void chiusaUnaSiSalvaLAltra();
    void ilModelloDaUnaParcellaSalvata();
    void primoUsoLAvvisoDopoLeDomande();
    void ultimaChiusaDallaSuaFinestra();
    void basso();
    void pratica();
    void senzaParcelleMdb();
    void unFileCheNonEUnaParcella_data();
    void unFileCheNonEUnaParcella();
    void scrivaniaChiusaDuranteUnaDomanda();
    void corniceDietroLaScrivania();
    void apriMostraIlTrova_data();
    void apriMostraIlTrova();

private:
    static frmMain& Cornice() { return Singola<frmMain>(); }
    static frmStudio& Scrivania() { return Singola<frmStudio>(); }

    std::unique_ptr<Scena> S;
};
PROVA(TestStrade);

void TestStrade::init()
{
    S = std::make_unique<Scena>();
    Scena::Salva(u"PercorsoProcedura"_s, ProgrammaDiProva());
    Scena::Salva(u"StudioNome"_s, u"Studio Bianchi"_s);
    Scena::Salva(u"CercaAgg"_s, u"N"_s);
    // An office that has read the notice, which would come up in front of the desktop.
    const QString Utente = NuovaCartella();
    Scena::Salva(u"UserFolder"_s, Utente);
    ScriviFile(Utente + u"avvisokr5.ini"_s, "[avvisokr5]\nletto=21/11/2026\n");
    RiempiApritori();
}

void TestStrade::cleanup()
{
    AzzeraFinestre();
    delete SeCaricato<frmTrovaParcella>.data();
    S.reset();
    Aperture.AreaParcelle = nullptr;
    Aperture.ParcellaAttivata = nullptr;
    Aperture.UltimaParcellaChiusa = nullptr;
}

void TestStrade::dallIconaAllaCorniceERitorno()
{
    const Registratore Box;
    Main(u""_s);
    QVERIFY(MostraAttiva(Scrivania()));
    QTest::mouseClick(Scrivania().imgMenu(0), Qt::LeftButton);
    QVERIFY(Cornice().isVisible());
    QVERIFY2(Scrivania().isVisible(), "the desktop stays where it is");
    QVERIFY(Parcelle(1) && Parcelle(1)->isVisible());
    QTRY_COMPARE(Cornice().Tag(), u"1"_s);
    Cornice().close();
    QTRY_VERIFY(!Cornice().isVisible());
    QVERIFY(Scrivania().isVisible());
    QVERIFY(!ParcellaAperta());
    QVERIFY(!Scena::Parametro(u"MainWidth"_s).isEmpty());
    QVERIFY(!Scena::Parametro(u"FormWidth"_s).isEmpty());
    // The closed window is used again.
    QTest::mouseClick(Scrivania().imgMenu(0), Qt::LeftButton);
    QVERIFY(Cornice().isVisible() && Parcelle(1)->isVisible());
    QCOMPARE(UltimaParcella(), 1);
    QTRY_COMPARE(Cornice().Tag(), u"1"_s);
}

void TestStrade::dueParcelleEIlBersaglio()
{
    const Registratore Box;
    Main(u""_s);
    Cornice().barParcelle_ButtonClick(u"new"_s);
    const frmParcelle* Intatta = Parcelle(1);
    Cornice().barParcelle_ButtonClick(u"new"_s);
    QCOMPARE(UltimaParcella(), 1);
    QCOMPARE(Parcelle(1), Intatta);
    QCOMPARE(Cornice().Area()->subWindowList().size(), 1);
    QCOMPARE(Cornice().Tag(), u"1"_s);
    QCOMPARE(Parcelle(1)->windowTitle(), u"Nuova parcella"_s);
    QVERIFY(Parcelle(1)->isVisible());
    Parcelle(1)->SetModificata(true);  // or the untouched first note would be used again
    Cornice().barParcelle_ButtonClick(u"new"_s);
    QCOMPARE(UltimaParcella(), 2);
    QCOMPARE(Cornice().Tag(), u"2"_s);
    QCOMPARE(Parcelle(2)->Socio(), 0);
    auto* Prima = qobject_cast<QMdiSubWindow*>(Parcelle(1)->parentWidget());
    QVERIFY(Prima);
    Cornice().Area()->setActiveSubWindow(Prima);
    QCOMPARE(Cornice().Tag(), u"1"_s);
    Parcelle(1)->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    Respiro();
    QVERIFY2(Cornice().isVisible(), "a note is open still");
    QTRY_COMPARE(Cornice().Tag(), u"2"_s);
}

void TestStrade::chiusaUnaSiSalvaLAltra_data()
{
    QTest::addColumn<int>("Chiusa");
    QTest::addColumn<bool>("DallaCroce");

    for (const int Chiusa : {1, 2}) {
        QTest::addRow("%d by its cross", Chiusa) << Chiusa << true;
        QTest::addRow("%d by the command", Chiusa) << Chiusa << false;
    }
}

/// A note saved, closed and found again by keys alone; asked for once more, its window comes to the front.
void TestStrade::ilLavoroDiIeri()
{
    Registratore Box;
    Main(u""_s);
    auto& Scrivania = Singola<frmStudio>();
    (void)QTest::qWaitForWindowActive(&Scrivania);
    QTest::keySequence(&Scrivania, QKeySequence(u"Ctrl+N"_s));
    QTRY_VERIFY(Parcelle(1) && Cornice().isActiveWindow());
    Digita(u"Rossi"_s);
    Box.AttendiSalva(sessione::ParcellePath + u"Rossi"_s);
    Box.Attendi(u"La parcella Rossi.mdb è stata salvata correttamente!"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(Box.InizioDialogo(), sessione::ParcellePath + u"Rossi"_s);
    QVERIFY(!InfoParcelle[1].Modificata);
    QVERIFY(ChiudiParcella(1));
    QTRY_VERIFY(Scrivania.isActiveWindow());
    Scrivania.resize(1100, 400);  // the strip has room beside the icons
    Respiro();
    QTest::keySequence(&Scrivania, QKeySequence(u"Ctrl+R"_s));
    Premi(Qt::Key_Return);
    QTRY_VERIFY(!InfoParcelle[1].Libera);
    QCOMPARE(Parcelle(1)->Nota.Percorso, sessione::ParcellePath + u"Rossi.mdb"_s);
    QCOMPARE(Parcelle(1)->Nota.txtCliente.Testo, u"Rossi"_s);
    // Behind another note, by the keys of the frame.
    Cornice().barParcelle_ButtonClick(u"new"_s);
    QCOMPARE(Cornice().Tag(), u"2"_s);
    QVERIFY(MostraAttiva(Cornice()));
    QTest::keySequence(&Cornice(), QKeySequence(u"Ctrl+R"_s));
    QWidget* Tendina = QApplication::activePopupWidget();
    QVERIFY(Tendina);
    QTest::keyClick(Tendina, Qt::Key_1);
    QTRY_COMPARE(Cornice().Tag(), u"1"_s);
    QCOMPARE(UltimaParcella(), 2);
}

void TestStrade::chiusaUnaSiSalvaLAltra()
{
    QFETCH(int, Chiusa);
    QFETCH(bool, DallaCroce);
    const Registratore Box;
    Main(u""_s);
    Cornice().barParcelle_ButtonClick(u"new"_s);
    Parcelle(1)->SetModificata(true);
    Cornice().barParcelle_ButtonClick(u"new"_s);
    QVERIFY(MostraAttiva(Cornice()));
    AttivaParcella(Chiusa);
    const int Rimasta = 3 - Chiusa;
    Parcelle(Chiusa)->SetModificata(false);
    if (DallaCroce)
        Parcelle(Chiusa)->parentWidget()->close();
    else
        QVERIFY(ChiudiParcella(Chiusa));
    Respiro();
    QCOMPARE(Cornice().Tag(), QString::number(Rimasta));
    QVERIFY(Cornice().isActiveWindow());
    // What is typed goes into the note that is left, and Ctrl+S saves it.
    Digita(u"Rossi"_s);
    QVERIFY(ConcludiCampo());
    QCOMPARE(Parcelle(Rimasta)->Nota.txtCliente.Testo, u"Rossi"_s);
    QVERIFY(!InfoParcelle[size_t(Chiusa)].Modificata);
    Aperture.SalvaSulPosto = [this](int Indice) { S->Annota(u"salva %1"_s.arg(Indice)); };
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(S->Eventi, QStringList{u"salva %1"_s.arg(Rimasta)});
    Parcelle(Rimasta)->SetModificata(false);
}

void TestStrade::ilModelloDaUnaParcellaSalvata()
{
    Registratore Box;
    Main(u""_s);
    EseguiComando(u"new"_s, 0, {});
    QVERIFY(MostraAttiva(Cornice()));
    Box.AttendiSalva({});
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(Box.TitoloDialogo(), u"Salva parcella come modello"_s);
    QVERIFY2(!InfoParcelle[1].Modificata && !Parcelle(1)->Nota.Modificata, "cancelled: it is what it was");
    const QString File = NuovaCartella() + u"appalto.mdb"_s;
    Box.AttendiSalva(File);
    Box.Attendi(u"La parcella appalto.mdb è stata salvata correttamente!"_s);
    Cornice().findChild<QAction*>(u"menu_savemod"_s)->trigger();
    QVERIFY(SolaLettura(File));
    QVERIFY(!InfoParcelle[1].Modificata);
}

void TestStrade::primoUsoLAvvisoDopoLeDomande()
{
    // A first use: the question of the office's name comes before the notice, which would lie under it.
    Registratore Box;
    Scena::Salva(u"StudioNome"_s, {});
    QVERIFY(QFile::remove(Scena::Parametro(u"UserFolder"_s) + u"avvisokr5.ini"_s));
    QVERIFY2(!EsisteFile(ProgrammaDiProva() + u"avvisokr5.ini"_s), "the program's folder has no marker");
    Box.Attendi(u"Il programma non è stato ancora personalizzato. E' pertanto necessario procedere\n"
                u"all'inserimento dei dati identificativi dello studio."_s);
    Aperture.Impostazioni = [this](int, bool) { S->Annota(u"impostazioni"_s); };
    Aperture.Avviso = [this](const PaginaAvviso&) { S->Annota(u"avviso"_s); };
    Main(u""_s);
    QTRY_COMPARE(S->Eventi, (QStringList{u"impostazioni"_s, u"avviso"_s}));
}

void TestStrade::ultimaChiusaDallaSuaFinestra()
{
    Registratore Box;
    Main(u""_s);
    EseguiComando(u"new"_s, 0, {});
    Parcelle(1)->SetModificata(true);
    Box.Attendi(Parcelle(1)->windowTitle() + u"\nVuoi salvare la parcella prima di chiudere?"_s, vbCancel);
    Box.Attendi(Parcelle(1)->windowTitle() + u"\nVuoi salvare la parcella prima di chiudere?"_s, vbNo);
    Parcelle(1)->parentWidget()->close();
    Respiro();
    QVERIFY2(Cornice().isVisible() && Parcelle(1)->isVisible(), "refused");
    Parcelle(1)->parentWidget()->close();
    QTRY_VERIFY(!Cornice().isVisible());
    QVERIFY(Scrivania().isVisible());
}

void TestStrade::basso()
{
    const Registratore Box;
    Main(u"-low"_s);
    QVERIFY(Cornice().isVisible() && Parcelle(1)->isVisible());
    QVERIFY(!Cornice().findChild<QWidget*>(u"barParcelle_new"_s)->isVisible());
    QVERIFY(!SeCaricato<frmStudio>);
    QCOMPARE(S->Eventi, QStringList());
    Cornice().close();
    Respiro();
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    QVERIFY(!SeCaricato<frmStudio>);
}

void TestStrade::pratica()
{
    const Registratore Box;
    Main(u"PV2|N|P12|0|0|0|0|0|0|"_s);
    QCOMPARE(Parcelle(1)->windowTitle(), u"[P12] Nuova parcella"_s);
    Parcelle(1)->SetModificata(false);
    QCOMPARE(S->Eventi, QStringList());
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    // The sizes are those of a session of the office's own.
    QCOMPARE(Scena::Parametro(u"MainWidth"_s), QString());
}

void TestStrade::senzaParcelleMdb()
{
    Registratore Box;
    Box.Tollera();
    Scena::Salva(u"PercorsoProcedura"_s, NuovaCartella());
    Main(u"-low"_s);
    QVERIFY(!Box.Mostrati().isEmpty());
    for (const MessaggioMostrato& Uno : Box.Mostrati()) {
        QCOMPARE(Uno.Titolo, u"Errore:"_s);
        QCOMPARE(Uno.Bandiere, vbCritical);
    }
    // The note is there, can be written in and is kept.
    QVERIFY(Parcelle(1) && Parcelle(1)->isVisible());
    auto* Oggetto = Parcelle(1)->findChild<QLineEdit*>(u"txtOggetto"_s);
    QVERIFY(Oggetto && Oggetto->isEnabled());
    QVERIFY(MostraAttiva(Cornice()));
    Oggetto->setFocus();
    Digita(u"Opposizione"_s);
    QVERIFY(ConcludiCampo());
    QVERIFY(InfoParcelle[1].Modificata);
    QCOMPARE(S->Eventi, QStringList());
    Parcelle(1)->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
}

void TestStrade::unFileCheNonEUnaParcella_data()
{
    QTest::addColumn<QByteArray>("Contenuto");

    QTest::newRow("missing") << QByteArray();
    QTest::newRow("no database") << "rumore"_ba;
    QTest::newRow("zeros") << QByteArray(8192, '\0');
}

void TestStrade::unFileCheNonEUnaParcella()
{
    QFETCH(QByteArray, Contenuto);
    Registratore Box;
    Box.Tollera();
    const QString File = NuovaCartella() + u"rossi.mdb"_s;
    if (!Contenuto.isEmpty())
        ScriviFile(File, Contenuto);
    Main(u"PV2|E|"_s + File);
    QVERIFY(!Box.Mostrati().isEmpty());
    QCOMPARE(Box.Mostrato(0).Titolo, u"Errore:"_s);
    QVERIFY(Cornice().isVisible() && Parcelle(1)->isVisible());
    QVERIFY2(Parcelle(1)->Nota.Percorso.isEmpty(), "a save would replace the file");
    QCOMPARE(EsisteFile(File) ? LeggiFile(File) : QByteArray(), Contenuto);
    QCOMPARE(S->Eventi, QStringList());
}

void TestStrade::scrivaniaChiusaDuranteUnaDomanda()
{
    // A system that ends closes the windows whatever is asked: the question is answered by nobody.
    Main(u""_s);
    EseguiComando(u"new"_s, 0, {});
    Parcelle(1)->SetModificata(true);
    Messaggi Mie;
    Mie.Box = [this](const QString&, int, const QString&) {
        Scrivania().close();
        S->Annota(u"senza risposta"_s);
        return vbCancel;
    };
    const Messaggi Precedenti = InstallaMessaggi(Mie);
    Cornice().close();
    InstallaMessaggi(Precedenti);
    Respiro();
    QCOMPARE(S->Eventi, (QStringList{u"fine"_s, u"senza risposta"_s}));
    QVERIFY2(InfoParcelle[1].Modificata && !InfoParcelle[1].Libera, "the note is as it was");
    QVERIFY(Cornice().isVisible());
}

void TestStrade::corniceDietroLaScrivania()
{
    const Registratore Box;
    Main(u""_s);
    EseguiComando(u"new"_s, 0, {});
    Parcelle(1)->SetModificata(true);
    Cornice().showMinimized();
    Scrivania().Mostra();
    QTest::mouseClick(Scrivania().imgMenu(0), Qt::LeftButton);
    QCOMPARE(UltimaParcella(), 2);
    QVERIFY2(!Cornice().isMinimized(), "the new note would not be seen");
    QTRY_VERIFY(Cornice().isActiveWindow());
}

void TestStrade::apriMostraIlTrova_data()
{
    QTest::addColumn<QString>("Comando");
    QTest::addColumn<QString>("Titolo");
    QTest::addColumn<bool>("Modelli");

    QTest::newRow("open") << u"open"_s << u"Apri da parcelle salvate"_s << false;
    QTest::newRow("notes") << u"openpar"_s << u"Apri da parcelle salvate"_s << false;
    QTest::newRow("templates") << u"openmod"_s << u"Apri da modelli"_s << true;
}

void TestStrade::apriMostraIlTrova()
{
    QFETCH(QString, Comando);
    QFETCH(QString, Titolo);
    QFETCH(bool, Modelli);
    const Registratore Box;
    Scena::Salva(u"ParcellePath"_s, NuovaCartella());
    Main(u""_s);
    QVERIFY(QDir().mkpath(sessione::ModelliPath));
    EseguiComando(Comando, 0, {});
    frmTrovaParcella& Trova = Singola<frmTrovaParcella>();
    QVERIFY(Trova.isVisible() && !Trova.isModal());
    QCOMPARE(Trova.windowTitle(), Titolo);
    QCOMPARE(Trova.findChild<QLineEdit*>(u"txtSearchPath"_s)->text(),
             Modelli ? sessione::ModelliPath : sessione::ParcellePath);
    QTRY_VERIFY(!Trova.InRicerca());
    Trova.close();
    QVERIFY2(!ParcellaAperta(), "closed");
    QVERIFY(Scrivania().isVisible());
}

#include "TestStrade.moc"
