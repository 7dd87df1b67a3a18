// The two counters of the settings where the file that holds them is damaged.
#include "core/impostazioni.h"
#include "core/parametri.h"
#include "core/settings/modulosetup.h"
#include "platform/system/impostazioni.h"
#include "supporto/danni.h"

#include <QTabBar>
#include <QTabWidget>

using namespace Qt::StringLiterals;

class TestSetupContatori : public QObject, ModuloSetup
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { S.reset(); }

    void iContatoriNonRicominciano_data();
    void iContatoriNonRicominciano();
    void ilContatorePersoSiChiede_data();
    void ilContatorePersoSiChiede();
    void laDomandaNonScegliePerLUtente();
    void laSchedaPortataDavantiNonSceglie_data();
    void laSchedaPortataDavantiNonSceglie();
    void laSceltaRestaDietroUnRifiuto();
    void escSenzaTariffaScelta();
    void senzaDannoNonSiChiede();
    void toltoQuelCheNonSiLeggevaSiChiede();
    void unaMisuraRicordataNonRendeINumeri();
    void lettoDanneggiatoETornatoInteroSiChiede();

private:
    void Riempi();

    inline static const QString Entrambi =
        u"Nelle impostazioni danneggiate i numeri dell'ultima fattura e dell'ultimo file XML non si leggono: "
        u"con "
        u"0 si potrebbero ripetere numeri già usati.\nMemorizzarli ugualmente?"_s;
    inline static const QString Andati =
        u"Con le impostazioni di prima possono essere andati persi i numeri dell'ultima fattura e "
        u"dell'ultimo file "
        u"XML: "
        u"con 0 si potrebbero ripetere numeri già usati.\nMemorizzarli ugualmente?"_s;
};
PROVA(TestSetupContatori);

void TestSetupContatori::init()
{
    Prepara();
}

void TestSetupContatori::Riempi()
{
    Modulo->Mostra(0);
    for (const QString& Nome : {u"txtNomeStudio"_s, u"txtIndStudio"_s, u"txtCittaStudio"_s, u"txtEMail"_s})
        Campo(Nome)->setText(u"nuovo"_s);
}

void TestSetupContatori::iContatoriNonRicominciano_data()
{
    QTest::addColumn<QByteArray>("Resto");  // of the file, behind the first comment
    QTest::addColumn<bool>("Intero");
    QTest::addColumn<QString>("Fattura");
    QTest::addColumn<QString>("Trasmissione");

    QTest::newRow("nothing is left") << QByteArray() << false << u"41"_s << u"17"_s;
    QTest::newRow("cut before them") << "[Parametri]\nstudiocitta=Pi"_ba << false << u"41"_s << u"17"_s;
    QTest::newRow("cut in a number") << "[Parametri]\nprogtrasm=18\nprogfatt=4"_ba << false << u"41"_s
                                     << u"18"_s;
    QTest::newRow("cut behind them") << "[Parametri]\nprogfatt=43\nprogtrasm=19\nstud"_ba << false << u"43"_s
                                     << u"19"_s;
    QTest::newRow("whole, without them")
        << "[Parametri]\nstudiocitta=Pisa\n"_ba << true << u"41"_s << u"17"_s;
    QTest::newRow("whole, with empty ones")
        << "[Parametri]\nprogfatt=\nprogtrasm=\n"_ba << true << u"41"_s << u"17"_s;
    QTest::newRow("whole, with lower ones")
        << "[Parametri]\nprogfatt=3\nprogtrasm=4\n"_ba << true << u"3"_s << u"4"_s;
}

/// The next invoice and its file would take numbers that have gone out. What stands in a whole file is what
/// somebody has stored there.
void TestSetupContatori::iContatoriNonRicominciano()
{
    QFETCH(QByteArray, Resto);
    QFETCH(bool, Intero);
    QFETCH(QString, Fattura);
    QFETCH(QString, Trasmissione);
    Registratore Box;
    Scena::Salva(u"ProgFatt"_s, u"41"_s);
    Scena::Salva(u"ProgTrasm"_s, u"17"_s);
    const QString File = Scena::FileImpostazioni();
    const QByteArray Inizio = LeggiFile(File).split('\n').first() + '\n';
    Riempi();
    ScriviFile(File, Resto.isEmpty() ? QByteArray() : Intero ? Resto : Inizio + Resto);
    for (int Volta = 0; Volta < 2; ++Volta) {
        Box.Attendi(Memorizzate);
        Memorizza();
        QCOMPARE(Scena::Parametro(u"ProgFatt"_s), Fattura);
        QCOMPARE(Scena::Parametro(u"ProgTrasm"_s), Trasmissione);
        QCOMPARE(sessione::ProgFatt, Fattura.toInt());
        QCOMPARE(Campo(u"txtNumFatt"_s)->text(), Fattura);
    }
    // What is typed counts, in a damaged file as in a whole one.
    ScriviFile(File, Inizio + "[Parametri]\nprogfatt=43\n");
    Campo(u"txtNumFatt"_s)->setText(u"9"_s);
    Box.Attendi(Memorizzate);
    Memorizza();
    QCOMPARE(Scena::Parametro(u"ProgFatt"_s), u"9"_s);
    QCOMPARE(Scena::Parametro(u"ProgTrasm"_s), Trasmissione);
}

void TestSetupContatori::ilContatorePersoSiChiede_data()
{
    QTest::addColumn<QByteArray>("Resto");  // of the file, behind the first comment
    QTest::addColumn<bool>("Fattura");      // lost
    QTest::addColumn<bool>("Trasmissione");

    QTest::newRow("nothing is left") << QByteArray() << true << true;
    QTest::newRow("cut before them") << "[Parametri]\nstudiocitta=Pisa\n"_ba << true << true;
    QTest::newRow("cut in the first") << "[Parametri]\nprogfatt=4"_ba << true << true;
    QTest::newRow("cut in the second") << "[Parametri]\nprogfatt=41\nprogtrasm=1"_ba << false << true;
    QTest::newRow("cut behind them") << "[Parametri]\nprogfatt=41\nprogtrasm=17\nstud"_ba << false << false;
}

/// The usual order: the start tells that the file is damaged, and the settings are opened after that. None of
/// them is stored before the user has seen what has become of the counters.
void TestSetupContatori::ilContatorePersoSiChiede()
{
    QFETCH(QByteArray, Resto);
    QFETCH(bool, Fattura);
    QFETCH(bool, Trasmissione);
    const QString DiFile =
        u"Nelle impostazioni danneggiate il numero dell'ultimo file XML non si legge: con 0 si "
        u"potrebbero ripetere numeri già usati.\nMemorizzarlo ugualmente?"_s;
    Registratore Box;
    Scena::Salva(u"ProgFatt"_s, u"41"_s);
    Scena::Salva(u"ProgTrasm"_s, u"17"_s);
    const QString File = Scena::FileImpostazioni();
    const QByteArray Guasto =
        Resto.isEmpty() ? QByteArray() : LeggiFile(File).split('\n').first() + '\n' + Resto;
    ScriviFile(File, Guasto);
    Riempi();
    const auto* Schede = Modulo->findChild<QTabWidget*>(u"tabSetup"_s);
    if (Fattura) {
        Box.Attendi(Entrambi, vbNo);
        Memorizza();
        QCOMPARE(LeggiFile(File), Guasto);
        QCOMPARE(Schede->currentIndex(), int(frmSetup::SchedaDatiContabili));
        QTRY_COMPARE(QApplication::focusWidget(), Campo(u"txtNumFatt"_s));
        Campo(u"txtNumFatt"_s)->setText(u"41"_s);
    }
    if (Trasmissione) {
        Box.Attendi(DiFile, vbNo);
        Memorizza();
        QCOMPARE(LeggiFile(File), Guasto);
        QCOMPARE(Schede->currentIndex(), int(frmSetup::SchedaFatturaElettronica));
        QTRY_COMPARE(QApplication::focusWidget(), Campo(u"txtProgTrasm"_s));
        Box.Attendi(DiFile, vbYes);  // an office that has never written one
    }
    Box.Attendi(Memorizzate);
    Memorizza();
    QCOMPARE(Scena::Parametro(u"ProgFatt"_s), u"41"_s);
    QCOMPARE(Scena::Parametro(u"ProgTrasm"_s), Trasmissione ? u"0"_s : u"17"_s);
    // What was answered once is not asked again.
    Box.Attendi(Memorizzate);
    Memorizza();
}

/// Nobody has chosen what the question would have brought on view: the office goes on with the tariff in
/// force.
void TestSetupContatori::laDomandaNonScegliePerLUtente()
{
    Registratore Box;
    const QString File = Scena::FileImpostazioni();
    ScriviFile(File, LeggiFile(File).split('\n').first() + "\n[Parametri]\nprogtrasm=17\n");
    Riempi();
    const auto* Schede = Modulo->findChild<QTabWidget*>(u"tabSetup"_s);
    Box.Attendi(
        u"Nelle impostazioni danneggiate il numero dell'ultima fattura non si legge: con 0 si potrebbero "
        u"ripetere numeri già usati.\nMemorizzarlo ugualmente?"_s,
        vbYes);
    Box.Attendi(Memorizzate);
    Memorizza();
    QCOMPARE(Schede->currentIndex(), int(frmSetup::SchedaDatiStudio));
    QCOMPARE(Scena::Parametro(u"ProgFatt"_s), u"0"_s);
    QCOMPARE(GetSetting(NomeApplicazione.toString(), SezioneParametri.toString(), chiavi::Tariffa.toString(),
                        u"manca"_s),
             u"manca"_s);
}

void TestSetupContatori::laSchedaPortataDavantiNonSceglie_data()
{
    QTest::addColumn<bool>("Numero");  // refused, instead of lost
    QTest::addColumn<bool>("Torna");   // away from the page and back, by the user
    QTest::addColumn<QString>("Tariffa");

    QTest::newRow("no to the question") << false << false << u"manca"_s;
    QTest::newRow("no to the question, back by himself") << false << true << u"140"_s;
    QTest::newRow("a number refused") << true << false << u"manca"_s;
    QTest::newRow("a number refused, back by himself") << true << true << u"140"_s;
}

/// Whoever is led to the number has been asked for a number: the tariff beside it is none that he has chosen.
void TestSetupContatori::laSchedaPortataDavantiNonSceglie()
{
    QFETCH(bool, Numero);
    QFETCH(bool, Torna);
    QFETCH(QString, Tariffa);
    Registratore Box;
    const QString File = Scena::FileImpostazioni();
    if (!Numero)
        ScriviFile(File, LeggiFile(File).split('\n').first() + "\n[Parametri]\nprogtrasm=17\n");
    Riempi();
    auto* Schede = Modulo->findChild<QTabWidget*>(u"tabSetup"_s);
    if (Numero) {
        Campo(u"txtNumFatt"_s)->setText(u"99999"_s);
        Box.Attendi(u"Immettere un valore numerico!"_s);
    } else {
        Box.Attendi(u"Nelle impostazioni danneggiate il numero dell'ultima fattura non si legge: con 0 si "
                    u"potrebbero ripetere numeri già usati.\nMemorizzarlo ugualmente?"_s,
                    vbNo);
    }
    Memorizza();
    QCOMPARE(Schede->currentIndex(), int(frmSetup::SchedaDatiContabili));
    Campo(u"txtNumFatt"_s)->setText(u"41"_s);
    if (Torna)
        for (const int Scheda : {frmSetup::SchedaDatiStudio, frmSetup::SchedaDatiContabili})
            QTest::mouseClick(Schede->tabBar(), Qt::LeftButton, {},
                              Schede->tabBar()->tabRect(Scheda).center());
    QCOMPARE(Schede->currentIndex(), int(frmSetup::SchedaDatiContabili));
    Box.Attendi(Memorizzate);
    Memorizza();
    QCOMPARE(Scena::Parametro(u"ProgFatt"_s), u"41"_s);
    QCOMPARE(GetSetting(NomeApplicazione.toString(), SezioneParametri.toString(), chiavi::Tariffa.toString(),
                        u"manca"_s),
             Tariffa);
}

/// Whoever saves with the page in view has chosen, also where something on another page has to be completed
/// first. Closed without that, the form forgets it.
void TestSetupContatori::laSceltaRestaDietroUnRifiuto()
{
    const auto Conservata = [] {
        return GetSetting(NomeApplicazione.toString(), SezioneParametri.toString(),
                          chiavi::Tariffa.toString(), u"manca"_s);
    };
    Registratore Box;
    for (const bool Chiude : {true, false}) {
        Riempi();
        Modulo->ChangeTab(frmSetup::SchedaDatiContabili);
        Campo(u"txtEMail"_s)->clear();
        Box.Attendi(u"Non è stata specificata la mail!"_s);
        Memorizza();
        QCOMPARE(Modulo->findChild<QTabWidget*>(u"tabSetup"_s)->currentIndex(),
                 int(frmSetup::SchedaDatiStudio));
        if (Chiude) {
            Modulo->close();
            Riempi();
        }
        Campo(u"txtEMail"_s)->setText(u"x"_s);
        Box.Attendi(Memorizzate);
        Memorizza();
        QCOMPARE(Conservata(), Chiude ? u"manca"_s : u"140"_s);
        Modulo->close();
    }
}

/// An office that has never chosen, as each has at first, has changed nothing by looking.
void TestSetupContatori::escSenzaTariffaScelta()
{
    const Registratore Box;
    Modulo->Mostra(0);
    QVERIFY(QTest::qWaitForWindowActive(Modulo));
    Modulo->ChangeTab(frmSetup::SchedaDatiContabili);
    QTest::keyClick(Modulo, Qt::Key_Escape);
    QVERIFY(!Modulo->isVisible());
    QCOMPARE(Box.Mostrati().size(), 0);
}

/// What could not be read while the form was opened, and can now, has lost nothing.
void TestSetupContatori::senzaDannoNonSiChiede()
{
    Registratore Box;
    const QString File = Scena::FileImpostazioni();
    Scena::Salva(u"StudioNome"_s, u"Studio Verdi"_s);
    const QByteArray Intero = LeggiFile(File);
    QVERIFY(!Intero.contains("progfatt"));
    Rovina(File, Cartella);
    Riempi();
    QVERIFY(QDir().rmdir(File));
    ScriviFile(File, Intero);
    Box.Attendi(Memorizzate);
    Memorizza();
    QCOMPARE(Scena::Parametro(u"ProgFatt"_s), u"0"_s);
}

/// What stood in the place of the settings says nothing of the numbers that the office has come to: taken
/// away and not brought back, they are lost.
void TestSetupContatori::toltoQuelCheNonSiLeggevaSiChiede()
{
    Registratore Box;
    Scena::Salva(u"ProgFatt"_s, u"41"_s);
    Scena::Salva(u"ProgTrasm"_s, u"17"_s);
    const QString File = Scena::FileImpostazioni();
    Rovina(File, Cartella);
    Riempi();
    QVERIFY(QDir().rmdir(File));
    Box.Attendi(Andati, vbNo);
    Memorizza();
    QVERIFY(!EsisteFile(File));
    Campo(u"txtNumFatt"_s)->setText(u"41"_s);
    Campo(u"txtProgTrasm"_s)->setText(u"17"_s);
    Box.Attendi(Memorizzate);
    Memorizza();
    QCOMPARE(Scena::Parametro(u"ProgFatt"_s), u"41"_s);
    QCOMPARE(Scena::Parametro(u"ProgTrasm"_s), u"17"_s);
}

/// Any window that closes remembers its place, and makes a sound file where there was none: it has not got
/// what an office has stored.
void TestSetupContatori::unaMisuraRicordataNonRendeINumeri()
{
    Registratore Box;
    Scena::Salva(u"ProgFatt"_s, u"41"_s);
    Scena::Salva(u"ProgTrasm"_s, u"17"_s);
    const QString File = Scena::FileImpostazioni();
    Rovina(File, Cartella);
    Riempi();
    QVERIFY(QDir().rmdir(File));
    RicordaImpostazioni({{u"frmTrova"_s, u"10"_s}});
    QVERIFY(FraseImpostazioniGuaste().isEmpty());
    Box.Attendi(Andati, vbNo);
    Memorizza();
    QCOMPARE(Scena::Parametro(u"ProgFatt"_s), QString());
    // One number is asked for by its own name.
    Campo(u"txtNumFatt"_s)->setText(u"41"_s);
    Box.Attendi(
        u"Con le impostazioni di prima può essere andato perso il numero dell'ultimo file XML: con 0 si "
        u"potrebbero ripetere numeri già usati.\nMemorizzarlo ugualmente?"_s,
        vbYes);
    Box.Attendi(Memorizzate);
    Memorizza();
    QCOMPARE(Scena::Parametro(u"ProgFatt"_s), u"41"_s);
}

/// A file that another program has made anew meanwhile is sound, and has not got the numbers that were lost.
void TestSetupContatori::lettoDanneggiatoETornatoInteroSiChiede()
{
    Registratore Box;
    const QString File = Scena::FileImpostazioni();
    ScriviFile(File, {});
    Riempi();
    ScriviFile(File, "[Parametri]\nstudiocitta=Pisa\n");
    QVERIFY(FraseImpostazioniGuaste().isEmpty());
    Box.Attendi(Andati, vbYes);
    Box.Attendi(Memorizzate);
    Memorizza();
    QCOMPARE(Scena::Parametro(u"ProgFatt"_s), u"0"_s);
}

#include "TestSetupContatori.moc"
