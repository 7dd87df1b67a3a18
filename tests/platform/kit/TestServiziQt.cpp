// The real boxes and dialogs, the busy pointer, the focus moves and the breath of long work.
#include "platform/kit/collega.h"
#include "platform/kit/servizi_qt.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "supporto/finestre.h"
#include "supporto/maschera.h"
#include "supporto/prova.h"

#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// Runs a look at the dialog that opens next, which must close it.
template <class Dialogo>
void Prossimo(std::function<void(Dialogo&)> Guarda)
{
    QTimer::singleShot(0, qApp, [Guarda = std::move(Guarda)] {
        auto* Aperto = qobject_cast<Dialogo*>(QApplication::activeModalWidget());
        if (!Aperto) {
            QTest::qFail("nessun dialogo aperto", __FILE__, __LINE__);
            if (QWidget* Altro = QApplication::activeModalWidget())
                Altro->close();
            return;
        }
        Guarda(*Aperto);
    });
}

void Crea(const QString& File)
{
    QFile Nuovo(File);
    QVERIFY(Nuovo.open(QIODevice::WriteOnly));
}

QString FileRicordi()
{
    return QSettings(QSettings::UserScope, u"QtProject"_s).fileName();
}

/// What another program has left in the folder of everybody's settings, as this one's own unfinished files
/// are named.
QString LavoroAltrui()
{
    return CartellaFile(FileRicordi()) + u".~altrui.tmp"_s;
}

}  // namespace

class TestServiziQt : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void box_data();
    void box();
    void ilTestoEPiano();
    void pulsantiConScritteProprie();
    void pulsantiInItaliano();
    void ilBoxStaSopraLaFinestra();
    void chiusoSenzaRisposta_data();
    void chiusoSenzaRisposta();
    void laFinestraSottoSeNeVa();
    void immissione();
    void immissioneAnnullata();
    void apriFile();
    void salvaSenzaDomande();
    void salvaNelTipoScelto_data();
    void salvaNelTipoScelto();
    void dialogoInItaliano();
    void dialogoAnnullato();
    void iRicordiDelSoloUtente_data();
    void iRicordiDelSoloUtente();
    void colore();
    void clessidra();
    void clessidraDuranteUnMessaggio();
    void prossimoCampo();
    void fileCheNonCE();
    void avviaProgramma();
    void connessoRestaDellaRete();
    void terminaLasciaIlCiclo();
    void terminaPrimaDelCiclo();
    void respiraFermaTutto();
    void respiraSiInterrompe_data();
    void respiraSiInterrompe();
    void respiraHaUnPulsantePerFermare_data();
    void respiraHaUnPulsantePerFermare();
    void cioCheAspettaIlRespiro();
    void unaScatolaDuranteIlRespiro();
};
PROVA(TestServiziQt);

void TestServiziQt::initTestCase()
{
    InstallaServiziQt();
    // Before the first dialog: leftovers are looked for once.
    QVERIFY(LavoroAltrui().startsWith(CartellaDiProva()));
    CreaCartella(CartellaFile(FileRicordi()));
    Crea(LavoroAltrui());
    ImpostaDataFile(LavoroAltrui(), QDateTime::currentDateTime().addSecs(-3600));
}

void TestServiziQt::box_data()
{
    QTest::addColumn<int>("Bandiere");
    QTest::addColumn<int>("DaPremere");
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<int>("Icona");
    QTest::addColumn<int>("Predefinito");
    using B = QMessageBox;
    QTest::newRow("errore") << (vbOKOnly | vbCritical) << int(B::Ok) << vbOK << int(B::Critical)
                            << int(B::Ok);
    QTest::newRow("domanda, sì") << (vbYesNo | vbQuestion) << int(B::Yes) << vbYes << int(B::Question)
                                 << int(B::Yes);
    QTest::newRow("domanda, no per prima")
        << (vbYesNo | vbQuestion | vbDefaultButton2) << int(B::No) << vbNo << int(B::Question) << int(B::No);
    QTest::newRow("tre risposte") << (vbYesNoCancel | vbExclamation) << int(B::Cancel) << vbCancel
                                  << int(B::Warning) << int(B::Yes);
    QTest::newRow("ok o annulla") << (vbOKCancel | vbInformation) << int(B::Ok) << vbOK << int(B::Information)
                                  << int(B::Ok);
    QTest::newRow("senza icona") << vbOKOnly << int(B::Ok) << vbOK << int(B::NoIcon) << int(B::Ok);
}

void TestServiziQt::box()
{
    QFETCH(int, Bandiere);
    QFETCH(int, DaPremere);
    QFETCH(int, Icona);
    QFETCH(int, Predefinito);
    Prossimo<QMessageBox>([&](QMessageBox& Aperto) {
        QCOMPARE(Aperto.text(), u"Testo"_s);
        QCOMPARE(Aperto.windowTitle(), u"Titolo:"_s);
        QCOMPARE(int(Aperto.icon()), Icona);
        QCOMPARE(Aperto.defaultButton(), Aperto.button(QMessageBox::StandardButton(Predefinito)));
        Aperto.button(QMessageBox::StandardButton(DaPremere))->click();
    });
    QTEST(MsgBox(u"Testo"_s, Bandiere, u"Titolo:"_s), "Risposta");
}

void TestServiziQt::ilTestoEPiano()
{
    Prossimo<QMessageBox>([](QMessageBox& Aperto) {
        QCOMPARE(Aperto.textFormat(), Qt::PlainText);
        QCOMPARE(Aperto.text(), u"<b>Rossi</b> & C."_s);
        Aperto.reject();
    });
    QCOMPARE(MsgBox(u"<b>Rossi</b> & C."_s), vbOK);
}

void TestServiziQt::pulsantiConScritteProprie()
{
    Prossimo<QMessageBox>([](QMessageBox& Aperto) {
        QCOMPARE(Aperto.button(QMessageBox::Ok)->text(), u" VEDI SCHEDA "_s);
        QCOMPARE(Aperto.button(QMessageBox::Cancel)->text(), u"Chiudi"_s);
        Aperto.button(QMessageBox::Cancel)->click();
    });
    QCOMPARE(MsgBoxPulsanti(u"Testo"_s, vbOKCancel, u"Titolo"_s, {u" VEDI SCHEDA "_s, u"Chiudi"_s}),
             vbCancel);
}

void TestServiziQt::pulsantiInItaliano()
{
    QVERIFY2(QFile::exists(QLibraryInfo::path(QLibraryInfo::TranslationsPath) + u"/qtbase_it.qm"_s),
             "mancano le traduzioni di Qt, che il programma richiede");
    Prossimo<QMessageBox>([](QMessageBox& Aperto) {
        QCOMPARE(Aperto.button(QMessageBox::Yes)->text().remove(u'&'), u"Sì"_s);
        QCOMPARE(Aperto.button(QMessageBox::Cancel)->text().remove(u'&'), u"Annulla"_s);
        Aperto.reject();
    });
    QCOMPARE(MsgBox(u"Testo"_s, vbYesNoCancel), vbCancel);
}

void TestServiziQt::ilBoxStaSopraLaFinestra()
{
    QWidget Finestra;
    QVERIFY(MostraAttiva(Finestra));
    Prossimo<QMessageBox>([&](QMessageBox& Aperto) {
        QCOMPARE(Aperto.parentWidget(), &Finestra);
        Aperto.accept();
    });
    MsgBox(u"Testo"_s);
}

void TestServiziQt::chiusoSenzaRisposta_data()
{
    QTest::addColumn<int>("Bandiere");
    QTest::addColumn<int>("Risposta");
    QTest::newRow("ok") << vbOKOnly << vbOK;
    QTest::newRow("ok o annulla") << vbOKCancel << vbCancel;
    QTest::newRow("sì o no") << vbYesNo << vbNo;
    QTest::newRow("tre risposte") << vbYesNoCancel << vbCancel;
}

void TestServiziQt::chiusoSenzaRisposta()
{
    QFETCH(int, Bandiere);
    Prossimo<QMessageBox>([](QMessageBox& Aperto) { Aperto.reject(); });
    QTEST(MsgBox(u"Testo"_s, Bandiere), "Risposta");
}

void TestServiziQt::laFinestraSottoSeNeVa()
{
    auto* Finestra = new QWidget;
    QVERIFY(MostraAttiva(*Finestra));
    Prossimo<QMessageBox>([&](QMessageBox&) { delete Finestra; });
    QCOMPARE(MsgBox(u"Testo"_s, vbYesNo), vbNo);
    QVERIFY(!QApplication::activeModalWidget());

    Finestra = new QWidget;
    QVERIFY(MostraAttiva(*Finestra));
    Prossimo<QInputDialog>([&](QInputDialog&) { delete Finestra; });
    QCOMPARE(InputBox(u"Testo"_s, u"Titolo"_s, u"già scritto"_s), QString());
    QVERIFY(!QApplication::activeModalWidget());
}

void TestServiziQt::immissione()
{
    Prossimo<QInputDialog>([](QInputDialog& Aperto) {
        QCOMPARE(Aperto.windowTitle(), u"Titolo"_s);
        QCOMPARE(Aperto.textValue(), u"prima"_s);
        const auto* Scritta = Aperto.findChild<QLabel*>();
        QVERIFY(Scritta);
        QCOMPARE(Scritta->text(), u"Nome <nuovo>:"_s);
        QCOMPARE(Scritta->textFormat(), Qt::PlainText);
        Aperto.setTextValue(u"dopo"_s);
        Aperto.accept();
    });
    QCOMPARE(InputBox(u"Nome <nuovo>:"_s, u"Titolo"_s, u"prima"_s), u"dopo"_s);
}

void TestServiziQt::immissioneAnnullata()
{
    Prossimo<QInputDialog>([](QInputDialog& Aperto) { Aperto.reject(); });
    QVERIFY(InputBox(u"Nome:"_s, u"Titolo"_s, u"prima"_s).isEmpty());
}

void TestServiziQt::apriFile()
{
    const QString Cartella = NuovaCartella();
    Crea(Cartella + u"nota.mdb"_s);
    Prossimo<QFileDialog>([&](QFileDialog& Aperto) {
        QCOMPARE(Aperto.acceptMode(), QFileDialog::AcceptOpen);
        QCOMPARE(QDir(Aperto.directory()), QDir(Cartella));
        QCOMPARE(Aperto.nameFilters(), QStringList({u"Parcelle (*.mdb)"_s, u"Tutti (*.* *.x)"_s}));
        Aperto.selectFile(u"nota.mdb"_s);
        static_cast<QDialog&>(Aperto).done(QDialog::Accepted);
    });
    QCOMPARE(DialogoApri(u"Apri"_s, Cartella, u"Parcelle (*.mdb)|*.mdb|Tutti|*.*;*.x"_s),
             Cartella + u"nota.mdb"_s);
}

void TestServiziQt::salvaSenzaDomande()
{
    const QString Cartella = NuovaCartella();
    Crea(Cartella + u"nota.mdb"_s);
    Prossimo<QFileDialog>([&](QFileDialog& Aperto) {
        QCOMPARE(Aperto.acceptMode(), QFileDialog::AcceptSave);
        QVERIFY(Aperto.testOption(QFileDialog::DontConfirmOverwrite));
        QVERIFY(Aperto.defaultSuffix().isEmpty());
        QCOMPARE(QFileInfo(Aperto.selectedFiles().value(0)).fileName(), u"nota.mdb"_s);
        QMetaObject::invokeMethod(&Aperto, "accept");
        QVERIFY2(!Aperto.isVisible(), "nessuna domanda sul file che c'è già");
    });
    QCOMPARE(DialogoSalva(u"Salva"_s, Cartella + u"nota.mdb"_s, u"Parcelle (*.mdb)"_s),
             Cartella + u"nota.mdb"_s);
    Prossimo<QFileDialog>([](QFileDialog& Aperto) { QMetaObject::invokeMethod(&Aperto, "accept"); });
    QCOMPARE(DialogoSalva(u"Salva"_s, Cartella + u"nuova"_s, u"Parcelle (*.mdb)"_s), Cartella + u"nuova"_s);
}

/// The kind that is chosen says what is written, where the name does not.
void TestServiziQt::salvaNelTipoScelto_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Tipo");
    QTest::addColumn<QString>("Atteso");
    const QString Fogli = u"Foglio CSV (*.csv)"_s;
    const QString Schede = u"Rubrica vCard (*.vcf)"_s;
    QTest::newRow("without an ending") << u"nomi"_s << Schede << u"nomi.vcf"_s;
    QTest::newRow("a date is no ending") << u"nomi 22.11"_s << Schede << u"nomi 22.11.vcf"_s;
    QTest::newRow("with its ending") << u"nomi.VCF"_s << Schede << u"nomi.VCF"_s;
    QTest::newRow("with another's") << u"nomi.csv"_s << Schede << u"nomi.csv"_s;
    QTest::newRow("the first kind") << u"nomi"_s << Fogli << u"nomi"_s;
}

void TestServiziQt::salvaNelTipoScelto()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Tipo);
    QFETCH(QString, Atteso);
    const QString Cartella = NuovaCartella();
    Prossimo<QFileDialog>([&](QFileDialog& Aperto) {
        Aperto.selectNameFilter(Tipo);
        Aperto.findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(Nome);  // typed behind the choice
        QMetaObject::invokeMethod(&Aperto, "accept");
    });
    QCOMPARE(DialogoSalva(u"Salva"_s, Cartella + u"proposto.csv"_s,
                          u"Foglio CSV (*.csv)|*.csv|Rubrica vCard (*.vcf)|*.vcf"_s),
             Cartella + Atteso);
}

void TestServiziQt::dialogoInItaliano()
{
    const QString Cartella = NuovaCartella();
    QVERIFY(QDir(Cartella).mkdir(u"Modelli"_s));
    Crea(Cartella + u"nota.mdb"_s);
    QStringList Tipi;
    bool Larghe = false;
    Prossimo<QFileDialog>([&](QFileDialog& Aperto) {
        const auto* Elenco = Aperto.findChild<QTreeView*>(u"treeView"_s);
        const QAbstractItemModel* Modello = Elenco->model();
        (void)QTest::qWaitFor([&] { return Modello->rowCount(Elenco->rootIndex()) == 2; });
        constexpr int Tipo = 2;
        for (int i = 0; i < Modello->rowCount(Elenco->rootIndex()); ++i)
            Tipi += Modello->index(i, Tipo, Elenco->rootIndex()).data().toString();
        Larghe = true;
        for (int i = 0; i < Elenco->header()->count(); ++i)
            Larghe = Larghe && Elenco->header()->sectionSize(i) >= Elenco->header()->sectionSizeHint(i);
        Aperto.reject();
    });
    (void)DialogoSalva(u"Salva"_s, Cartella, u"Tutti (*)"_s);
    Tipi.sort();
    QCOMPARE(Tipi, QStringList({u"Cartella"_s, u"File MDB"_s}));
    QVERIFY2(Larghe, "the titles of the columns are whole");
}

void TestServiziQt::dialogoAnnullato()
{
    Prossimo<QFileDialog>([](QFileDialog& Aperto) { Aperto.reject(); });
    QVERIFY(DialogoApri(u"Apri"_s, NuovaCartella(), u""_s).isEmpty());
}

void TestServiziQt::iRicordiDelSoloUtente_data()
{
    QTest::addColumn<bool>("Presente");
    QTest::newRow("none is there") << false;
    QTest::newRow("another program has left one for everybody") << true;
}

/// The toolkit keeps the folders that it has shown, which are named for clients.
void TestServiziQt::iRicordiDelSoloUtente()
{
    QFETCH(bool, Presente);
    const QString Ricordi = FileRicordi();
    QVERIFY(Ricordi.startsWith(CartellaDiProva()));
    const QString Cartella = NuovaCartella() + u"Rossi contro Bianchi"_s;
    QVERIFY(QDir().mkpath(Cartella));
    Crea(Cartella + u"/nota.mdb"_s);
    QFile::remove(Ricordi);
    const SenzaMaschera Aperta;
    if (Presente)
        Crea(Ricordi);
    QFile::Permissions Durante = DiAltri;
    Prossimo<QFileDialog>([&](QFileDialog& Aperto) {
        Durante = QFile::permissions(Ricordi) & DiAltri;
        Aperto.selectFile(u"nota.mdb"_s);
        static_cast<QDialog&>(Aperto).done(QDialog::Accepted);
    });
    QVERIFY(!DialogoApri(u"Apri"_s, Cartella, u"Parcelle (*.mdb)|*.mdb"_s).isEmpty());
    QCOMPARE(Durante, QFile::Permissions());
    QFile Scritti(Ricordi);
    QVERIFY(Scritti.open(QIODevice::ReadOnly));
    QVERIFY(Scritti.readAll().contains("Rossi"));
    QCOMPARE(Scritti.permissions() & DiAltri, QFile::Permissions());
    QVERIFY(EsisteFile(LavoroAltrui()));
}

void TestServiziQt::colore()
{
    Prossimo<QColorDialog>([](QColorDialog& Aperto) {
        QCOMPARE(Aperto.currentColor(), QColor(237, 248, 254));
        Aperto.setCurrentColor(QColor(1, 2, 3));
        Aperto.accept();
    });
    QCOMPARE(DialogoColore(0xFEF8ED), std::optional(0x030201));
    Prossimo<QColorDialog>([](QColorDialog& Aperto) { Aperto.reject(); });
    QVERIFY(!DialogoColore(0));
}

void TestServiziQt::clessidra()
{
    Clessidra(true);
    Clessidra(true);
    QVERIFY(QApplication::overrideCursor());
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    Clessidra(false);
    QVERIFY2(!QApplication::overrideCursor(), "un solo spegnimento basta");
    Clessidra(false);
}

void TestServiziQt::clessidraDuranteUnMessaggio()
{
    Clessidra(true);
    Prossimo<QMessageBox>([](QMessageBox& Aperto) {
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        Aperto.accept();
    });
    MsgBox(u"Testo"_s);
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    Clessidra(false);
}

void TestServiziQt::prossimoCampo()
{
    QWidget Finestra;
    auto* Disposizione = new QVBoxLayout(&Finestra);
    auto* A = new QLineEdit;
    auto* B = new QLineEdit;
    Disposizione->addWidget(A);
    Disposizione->addWidget(B);
    QVERIFY(MostraAttiva(Finestra));
    A->setFocus();
    ProssimoCampo();
    QVERIFY(B->hasFocus());
}

void TestServiziQt::fileCheNonCE()
{
    const QString Assente = NuovaCartella() + u"assente.pdf"_s;
    QCOMPARE(ApriConSistema(Assente), 53);
    QCOMPARE(ApriPdfConSistema(Assente, 3), 53);
}

void TestServiziQt::avviaProgramma()
{
    const QString Cartella = NuovaCartella();
    QCOMPARE(AvviaProgramma(u"touch"_s, {u"avviato"_s}, Cartella), 0);
    QTRY_VERIFY(QFile::exists(Cartella + u"avviato"_s));
    QVERIFY(AvviaProgramma(Cartella + u"nessun programma"_s, {}, Cartella) != 0);
}

void TestServiziQt::connessoRestaDellaRete()
{
    Shell Prima = InstallaShell({});
    Prima.Connesso = [] { return true; };
    InstallaShell(std::move(Prima));
    InstallaServiziQt();
    QVERIFY(InternetConnesso());
}

void TestServiziQt::terminaLasciaIlCiclo()
{
    QTimer::singleShot(0, qApp, [] { Termina(3); });
    QCOMPARE(QApplication::exec(), 3);
}

void TestServiziQt::terminaPrimaDelCiclo()
{
    Termina(4);
    QTimer Troppo;
    Troppo.setSingleShot(true);
    Collega(&Troppo, &QTimer::timeout, qApp, [] { QCoreApplication::exit(-1); });
    Troppo.start(5000);
    QCOMPARE(QApplication::exec(), 4);
}

void TestServiziQt::respiraFermaTutto()
{
    QWidget Finestra;
    auto* Disposizione = new QVBoxLayout(&Finestra);
    auto* Campo = new QLineEdit;
    auto* Pulsante = new QPushButton;
    Disposizione->addWidget(Campo);
    Disposizione->addWidget(Pulsante);
    QVERIFY(MostraAttiva(Finestra));
    Campo->setFocus();
    int Premuto = 0;
    int Scaduto = 0;
    Collega(Pulsante, &QPushButton::clicked, &Finestra, [&] { ++Premuto; });
    QTimer Orologio;
    Collega(&Orologio, &QTimer::timeout, &Finestra, [&] { ++Scaduto; });
    Orologio.start(0);
    const auto Accoda = [](QWidget* Chi, QEvent* Evento) { QCoreApplication::postEvent(Chi, Evento); };
    Accoda(Campo, new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, u"a"_s));
    const QPointF Punto = Pulsante->rect().center();
    Accoda(Pulsante, new QMouseEvent(QEvent::MouseButtonPress, Punto, Pulsante->mapToGlobal(Punto),
                                     Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
    Accoda(Pulsante, new QMouseEvent(QEvent::MouseButtonRelease, Punto, Pulsante->mapToGlobal(Punto),
                                     Qt::LeftButton, Qt::NoButton, Qt::NoModifier));
    Accoda(&Finestra, new QCloseEvent);
    QVERIFY(Respira());
    QVERIFY(Campo->text().isEmpty());
    QCOMPARE(Premuto, 0);
    QCOMPARE(Scaduto, 0);
    QVERIFY(Finestra.isVisible());
    QTRY_VERIFY2(Scaduto > 0, "l'orologio riprende dopo");
}

void TestServiziQt::respiraSiInterrompe_data()
{
    QTest::addColumn<int>("Tasto");
    QTest::addColumn<bool>("Continua");
    QTest::newRow("Esc") << int(Qt::Key_Escape) << false;
    QTest::newRow("Interr") << int(Qt::Key_Pause) << false;
    QTest::newRow("un altro tasto") << int(Qt::Key_Space) << true;
}

void TestServiziQt::respiraSiInterrompe()
{
    QFETCH(int, Tasto);
    QLineEdit Campo;
    QVERIFY(MostraAttiva(Campo));
    QCoreApplication::postEvent(&Campo, new QKeyEvent(QEvent::KeyPress, Tasto, Qt::NoModifier));
    QTEST(Respira(), "Continua");
    QVERIFY2(Respira(), "il tasto vale una volta");
}

void TestServiziQt::respiraHaUnPulsantePerFermare_data()
{
    QTest::addColumn<QString>("Come");
    QTest::addColumn<bool>("Continua");
    QTest::newRow("clic") << u"clic"_s << false;
    QTest::newRow("clic accanto") << u"accanto"_s << true;
    QTest::newRow("clic destro") << u"destro"_s << true;
    QTest::newRow("Spazio col fuoco") << u"spazio"_s << false;
    QTest::newRow("Invio col fuoco") << u"invio"_s << false;
    QTest::newRow("Spazio senza fuoco") << u"altrove"_s << true;
    QTest::newRow("nascosto") << u"nascosto"_s << true;
}

void TestServiziQt::respiraHaUnPulsantePerFermare()
{
    QFETCH(QString, Come);
    QWidget Finestra;
    auto* Disposizione = new QVBoxLayout(&Finestra);
    auto* Campo = new QLineEdit;
    auto* Pulsante = new QPushButton(u"Ferma"_s);
    Disposizione->addWidget(Campo);
    Disposizione->addWidget(Pulsante);
    QVERIFY(MostraAttiva(Finestra));
    (Come == u"spazio" || Come == u"invio" ? static_cast<QWidget*>(Pulsante) : Campo)->setFocus();
    int Premuto = 0;
    Collega(Pulsante, &QPushButton::clicked, &Finestra, [&] { ++Premuto; });
    if (Come == u"clic" || Come == u"accanto" || Come == u"destro" || Come == u"nascosto") {
        QWidget* Sotto = Come == u"accanto" ? static_cast<QWidget*>(Campo) : Pulsante;
        const QPointF Punto = Sotto->rect().center();
        const Qt::MouseButton Tasto = Come == u"destro" ? Qt::RightButton : Qt::LeftButton;
        QCoreApplication::postEvent(Sotto,
                                    new QMouseEvent(QEvent::MouseButtonPress, Punto,
                                                    Sotto->mapToGlobal(Punto), Tasto, Tasto, Qt::NoModifier));
        Pulsante->setVisible(Come != u"nascosto");
    } else {
        QCoreApplication::postEvent(QApplication::focusWidget(),
                                    new QKeyEvent(QEvent::KeyPress,
                                                  Come == u"invio" ? Qt::Key_Return : Qt::Key_Space,
                                                  Qt::NoModifier));
    }
    QTEST(Respira(Pulsante), "Continua");
    QCOMPARE(Premuto, 0);  // it asks to stop, and does nothing else
    QVERIFY2(Respira(Pulsante), "la richiesta vale una volta");
}

void TestServiziQt::cioCheAspettaIlRespiro()
{
    int Subito = 0;
    int Dopo = 0;
    bool InCorso = false;
    QMetaObject::invokeMethod(
        qApp,
        [&] {
            ++Subito;
            InCorso = RespiroInCorso();
        },
        Qt::QueuedConnection);
    InCodaDopoIlRespiro(qApp, [&] {
        ++Dopo;
        InCorso = RespiroInCorso();
    });
    QVERIFY(!RespiroInCorso());
    for (int i = 0; i < 3; ++i)
        QVERIFY(Respira());
    QCOMPARE(Subito, 1);
    QVERIFY(InCorso);
    QCOMPARE(Dopo, 0);
    QTRY_COMPARE(Dopo, 1);
    QVERIFY(!InCorso);
    // It goes with its context.
    {
        QObject Contesto;
        InCodaDopoIlRespiro(&Contesto, [&] { ++Dopo; });
        QVERIFY(Respira());
    }
    QCoreApplication::processEvents();
    QCOMPARE(Dopo, 1);
}

void TestServiziQt::unaScatolaDuranteIlRespiro()
{
    QWidget Finestra;
    QVERIFY(MostraAttiva(Finestra));
    int Risposta = 0;
    QMetaObject::invokeMethod(
        &Finestra, [&] { Risposta = MsgBox(u"Testo"_s, vbOKCancel); }, Qt::QueuedConnection);
    QTimer Mano;
    Collega(&Mano, &QTimer::timeout, &Finestra, [] {
        if (QWidget* Scatola = QApplication::activeModalWidget())
            QTest::keyClick(Scatola, Qt::Key_Escape);
    });
    Mano.start(20);
    QVERIFY2(Respira(), "the key is the box's");
    QCOMPARE(Risposta, vbCancel);
}

#include "TestServiziQt.moc"
