#include "scena.h"

#include "core/app/apritori.h"
#include "core/desktop/iconastudio.h"
#include "core/settings/frmIcons.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/grid/griglia.h"
#include "platform/system/aparte.h"
#include "platform/system/attese.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTimer>

#include <memory>

/// From the settings to what they change, with the program's own windows and openers.
class TestStradaImpostazioni : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void leAliquoteNellaProssimaParcella();
    void primoAvvioConLeImpostazioniInMezzo();
    void primoAvvioSenzaArchivio();
    void ilModelloSullaScrivania();
    void laCartellaUtenteSiPortaCopieETassi();
    void laCartellaUtenteVuota();
    void dalMenuDellIcona();

private:
    static frmSetup& Modulo() { return Singola<frmSetup>(); }
    static QLineEdit* Campo(const QString& Nome) { return Modulo().findChild<QLineEdit*>(Nome); }
    static void Memorizza()
    {
        QTest::mouseClick(Modulo().findChild<QWidget*>(u"cmdSaveImpost"_s), Qt::LeftButton);
    }
    static QString IvaDellaNota(int Indice)
    {
        return Parcelle(Indice)->findChild<QLineEdit*>(u"txtIVA"_s)->text();
    }

    std::unique_ptr<Scena> S;
    QString Utente;
};
PROVA(TestStradaImpostazioni);

namespace {

const QString Memorizzate = u"Le impostazioni sono state memorizzate!"_s;
const QString Consiglio =
    u"Per essere certi della piena operatività è consigliabile riavviare il programma."_s;
const QString MaiPersonalizzato =
    u"Il programma non è stato ancora personalizzato. E' pertanto necessario procedere\n"
    u"all'inserimento dei dati identificativi dello studio."_s;

}  // namespace

void TestStradaImpostazioni::init()
{
    S = std::make_unique<Scena>();
    Utente = NuovaCartella();
    ScriviFile(Utente + u"avvisokr5.ini"_s, "[avvisokr5]\nletto=21/11/2026\n");
    Scena::Salva(u"PercorsoProcedura"_s, ProgrammaDiProva());
    Scena::Salva(u"CercaAgg"_s, u"N"_s);
    Scena::Salva(u"UserFolder"_s, Utente);
    for (const QString& Chiave : {u"StudioNome"_s, u"StudioIndir"_s, u"StudioCitta"_s, u"StudioMail"_s})
        Scena::Salva(Chiave, u"Studio Bianchi"_s);
    RiempiApritori();
}

void TestStradaImpostazioni::cleanup()
{
    attese::CopiaMs = 2000;
    AzzeraFinestre();
    S.reset();
}

void TestStradaImpostazioni::leAliquoteNellaProssimaParcella()
{
    Registratore Box;
    Main({});
    EseguiComando(u"new"_s, 0, {});
    Parcelle(1)->SetModificata(true);  // or the untouched first note would be used again
    QCOMPARE(IvaDellaNota(1), u"21"_s);
    EseguiComando(u"setup"_s, 0, {});
    QVERIFY(Modulo().isVisible());
    Modulo().ChangeTab(1);
    QTest::mouseClick(Modulo().findChild<QWidget*>(u"cmdVigenti"_s), Qt::LeftButton);
    Box.Attendi(Memorizzate);
    Box.Attendi(Consiglio, vbOK, u"Messaggio:"_s);
    Memorizza();
    // The open note keeps what it shows, the next one takes the new.
    QCOMPARE(IvaDellaNota(1), u"21"_s);
    EseguiComando(u"new"_s, 0, {});
    QCOMPARE(IvaDellaNota(2), u"22"_s);
    Parcelle(1)->SetModificata(false);
}

void TestStradaImpostazioni::primoAvvioConLeImpostazioniInMezzo()
{
    Registratore Box;
    Scena::Salva(u"StudioNome"_s, {});
    Box.Attendi(MaiPersonalizzato);
    Box.Attendi(Memorizzate);
    int Scheda = -1;
    bool Modale = false;
    QTimer Mano;
    connect(&Mano, &QTimer::timeout, this, [&] {
        if (!Modulo().isVisible())
            return;
        Mano.stop();
        Modale = Modulo().isModal();
        Scheda = Modulo().findChild<QTabWidget*>(u"tabSetup"_s)->currentIndex();
        Campo(u"txtNomeStudio"_s)->setText(u"Studio Verdi"_s);
        Memorizza();
        Modulo().close();
    });
    Mano.start(20);
    Main({});
    QTRY_COMPARE(sessione::StudioNome, u"Studio Verdi"_s);
    QVERIFY(Modale);
    QCOMPARE(Scheda, 0);
    QVERIFY(!Modulo().isVisible());
    QVERIFY(Singola<frmStudio>().isVisible());
}

void TestStradaImpostazioni::primoAvvioSenzaArchivio()
{
    Registratore Box;
    Scena::Salva(u"StudioNome"_s, {});
    Scena::Salva(u"PercorsoProcedura"_s, NuovaCartella());
    // The folder is put right on its tab; the name is missing still, and asked for in the same activation.
    Box.Attendi(u"Impostare la cartella dell'archivio parcelle!"_s);
    Box.Attendi(u"Non è stato specificato il nome dello studio!"_s);
    Box.Attendi(MaiPersonalizzato);
    int Volte = 0;
    QTimer Mano;
    connect(&Mano, &QTimer::timeout, this, [&] {
        if (!Modulo().isVisible())
            return;
        if (++Volte == 1) {
            Campo(u"txtDirectoryProc"_s)->setText(ProgrammaDiProva());
            Memorizza();  // refused: the name
            Scena::Salva(u"PercorsoProcedura"_s, ProgrammaDiProva());
            ImpostaVariabili();
        }
        Modulo().close();
    });
    Mano.start(20);
    Main({});
    QTRY_COMPARE(Volte, 2);
    Mano.stop();
}

void TestStradaImpostazioni::ilModelloSullaScrivania()
{
    Registratore Box;
    Main({});
    frmStudio& Scrivania = Singola<frmStudio>();
    Respiro();
    (void)Scrivania.grab();  // the first paint asks for the picture, which comes behind it
    Respiro();
    const QImage Prima = Scrivania.grab().toImage();
    EseguiComando(u"setup"_s, 0, {});
    Modulo().ChangeTab(3);
    auto* Modelli = Modulo().findChild<QComboBox*>(u"cmbTemplates"_s);
    Scegli(Modelli, Modelli->findText(u"Pergamena"_s));
    // The form alone has changed so far.
    QCOMPARE(Scrivania.grab().toImage().pixelColor(2, 2), Prima.pixelColor(2, 2));
    Box.Attendi(Memorizzate);
    Memorizza();
    Respiro();
    const QImage Dopo = Scrivania.grab().toImage();
    QVERIFY2(Prima.pixelColor(2, 2).lightness() < 128, qPrintable(Prima.pixelColor(2, 2).name()));
    QVERIFY2(Dopo.pixelColor(2, 2).lightness() > 200, qPrintable(Dopo.pixelColor(2, 2).name()));
    QVERIFY(Scrivania.imgMenu(0)->ColoreTesto().lightness() < 100);
}

void TestStradaImpostazioni::laCartellaUtenteSiPortaCopieETassi()
{
    Registratore Box;
    attese::CopiaMs = 20;
    Main({});
    EseguiComando(u"new"_s, 0, {});
    Parcelle(1)->SetModificata(true);
    const auto Copie = [](const QString& Cartella) {
        return QDir(Cartella + u"recupero"_s).entryList({u"*.mdb"_s}, QDir::Files).size();
    };
    QTRY_COMPARE(Copie(Utente), 1);
    const QString Nuova = NuovaCartella();
    // Names of people that an import of an earlier version has left: the start has looked for them already.
    AttendiLavoriAParte(5000);
    const QString Resto = Utente + u".importa-"_s + QString(32, u'a') + u".mdb"_s;
    ScriviFile(Resto, "x");
    ImpostaDataFile(Resto, Adesso().addDays(-7));
    EseguiComando(u"setup"_s, 0, {});
    Campo(u"txtCartellaUtente"_s)->setText(Nuova);
    Box.Attendi(Memorizzate);
    Box.Attendi(Consiglio);
    Memorizza();
    QCOMPARE(Copie(Utente), 0);
    QTRY_COMPARE(Copie(Nuova), 1);
    QVERIFY(EsisteFile(Nuova + u"Tassi.dat"_s));
    QTRY_VERIFY(!EsisteFile(Resto));
    Parcelle(1)->SetModificata(false);
    QCOMPARE(Copie(Nuova), 0);
}

/// Left empty it is the one of the first use: made with its rates, stored and shown, before the next start.
void TestStradaImpostazioni::laCartellaUtenteVuota()
{
    Registratore Box;
    Main({});
    const QString Propria = CartellaSpeciale(5) + Barra(u"KR5"_s);
    QDir(Propria).removeRecursively();
    EseguiComando(u"setup"_s, 0, {});
    Campo(u"txtCartellaUtente"_s)->clear();
    Box.Tollera();
    Memorizza();
    QCOMPARE(Box.UltimoTesto(), Memorizzate);
    QCOMPARE(sessione::UserFolder, Propria);
    QVERIFY(EsisteFile(Propria + u"Tassi.dat"_s));
    QCOMPARE(Scena::Parametro(u"UserFolder"_s), Propria);
    QCOMPARE(Campo(u"txtCartellaUtente"_s)->text(), Propria);
}

void TestStradaImpostazioni::dalMenuDellIcona()
{
    Registratore Box;
    ScriviFile(Utente + u"kr5.ini"_s, "[desktop]\r\nL0=Sito\r\nL0_c=www.x.example\r\nL0_i=sito.gif\r\n");
    Main({});
    QTimer::singleShot(0, this, [] {
        auto* Editor = qobject_cast<frmIcons*>(QApplication::activeModalWidget());
        QVERIFY(Editor);
        QCOMPARE(Editor->findChild<QLineEdit*>(u"txtTitIco"_s)->text(), u"Sito"_s);
        Editor->reject();
    });
    Aperture.IconaPersonale(0, false);
    QCOMPARE(Modulo().findChild<QTabWidget*>(u"tabSetup"_s)->currentIndex(), 3);
    Box.Attendi(u"Confermi la cancellazione dell'icona Sito?"_s, vbYes, u"Domanda:"_s);
    Aperture.IconaPersonale(0, true);
    QCOMPARE(Modulo().findChild<Griglia*>(u"tdbIcone"_s)->Righe(), 0);
    Box.Attendi(Memorizzate);
    Memorizza();
    Respiro();
    QVERIFY(IconeUtente.Vuota());
    // A row that has gone since the menu was opened.
    Aperture.IconaPersonale(0, true);
    Aperture.IconaPersonale(0, false);
}

#include "TestStradaImpostazioni.moc"
