// Every window as a screen reader is told of it: by the toolkit's own tree, and through the bus of the
// desktop.
#include "moduli.h"
#include "passi.h"
#include "studiocompleto.h"

#include <QRegularExpression>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

class TestAccessibili : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void scrivania();
    void modulo_data() { RigheModuli(); }
    void modulo();
    void impostazioni_data() { RigheImpostazioni(); }
    void impostazioni();
    void parcella_data() { RigheSchede(); }
    void parcella();
    void guida_data();
    void guida();
    void sulBus_data();
    void sulBus();

private:
    void Guarda() { QCOMPARE(P->Chiedi(u"nomi"_s), QString()); }

    std::unique_ptr<Programma> P;
};
PROVA(TestAccessibili);

namespace {

/// A line of what leggi_schermo.py tells.
struct Letto
{
    QString Ruolo;
    QString Nome;
    QString Testo;
};

/// What is wrong with the controls of a window, as they come over the bus.
QStringList DifettiDi(const QList<Letto>& Controlli)
{
    static const QStringList Comandi{
        u"push button"_s, u"button"_s,      u"check box"_s, u"radio button"_s,  u"text"_s,
        u"combo box"_s,   u"spin button"_s, u"slider"_s,    u"page tab"_s,      u"tool bar"_s,
        u"table"_s,       u"tree table"_s,  u"list"_s,      u"toggle button"_s, u"menu item"_s};
    static const QRegularExpression Lettera(u"[\\p{L}\\p{N}]"_s);
    QStringList Difetti;
    QStringList Visti;
    for (const Letto& Uno : Controlli) {
        if (!Comandi.contains(Uno.Ruolo))
            continue;
        const QString Chi = Uno.Ruolo + u" «"_s + Uno.Nome + u'»';
        if (!Uno.Nome.contains(Lettera))
            Difetti << u"senza nome: "_s + Chi;
        else if (Visti.contains(Chi))
            Difetti << u"due volte: "_s + Chi;
        if (Uno.Testo == u"//" || (Uno.Ruolo == u"combo box" && Uno.Nome == Uno.Testo))
            Difetti << u"letto «%1»: "_s.arg(Uno.Testo) + Chi;
        Visti << Chi;
    }
    return Difetti;
}

/// A bus of its own, over which the program and the reader find each other.
class Bus
{
public:
    Bus()
    {
        Demone.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address=1"_s});
        if (Demone.waitForStarted() && Demone.waitForReadyRead())
            qputenv("DBUS_SESSION_BUS_ADDRESS", Demone.readLine().trimmed());
        qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
        qputenv("LC_ALL", "C.UTF-8");
    }
    ~Bus()
    {
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        qunsetenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON");
        Demone.kill();
        Demone.waitForFinished();
    }
    Bus(const Bus&) = delete;
    Bus& operator=(const Bus&) = delete;

    [[nodiscard]] bool Vivo() const { return Demone.state() == QProcess::Running; }

private:
    QProcess Demone;
};

constexpr int SenzaLettore = 3;
constexpr int LettoreMuto = 4;  ///< the program does not answer the bus

/// What is told of the active window.
/// @return the status of the reader
int Leggi(QList<Letto>& Controlli)
{
    QProcess Lettore;
    Lettore.start(u"/usr/bin/python3"_s,
                  {SorgenteDiProva(u"tests/video/leggi_schermo.py"_s), u"calcanova"_s});
    if (!Lettore.waitForFinished(60000))
        return LettoreMuto;
    Controlli.clear();
    for (const QString& Riga :
         QString::fromUtf8(Lettore.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts))
        Controlli.append({Riga.section(u'\t', 0, 0), Riga.section(u'\t', 1, 1), Riga.section(u'\t', 2, 2)});
    return Lettore.exitCode();
}

}  // namespace

void TestAccessibili::cleanup()
{
    P.reset();
}

void TestAccessibili::scrivania()
{
    P = std::make_unique<Programma>();
    QVERIFY2(P->AllaScrivania(), qPrintable(P->Stato()));
    Guarda();
}

void TestAccessibili::modulo()
{
    QFETCH(QString, Tasti);
    QFETCH(QString, Titolo);
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(Tasti);
    QVERIFY2(P->Aperta(Titolo), qPrintable(P->Stato()));
    Guarda();
}

void TestAccessibili::impostazioni()
{
    QFETCH(QString, Titolo);
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    QVERIFY2(P->AlleImpostazioni(Titolo), qPrintable(P->Stato()));
    Guarda();
}

void TestAccessibili::parcella()
{
    QFETCH(QString, Titolo);
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    if (Titolo != u"Dati base") {
        QVERIFY2(P->CompilaDatiBase(), qPrintable(P->Stato()));
        QVERIFY2(P->AllaScheda(Titolo), qPrintable(P->Stato()));
    }
    Guarda();
}

void TestAccessibili::guida_data()
{
    QTest::addColumn<QString>("Tastiera");
    QTest::newRow("American keyboard") << u"us"_s;
    QTest::newRow("Italian keyboard") << u"it"_s;
}

/// The page of keys, by the physical keys: "?" stands beside the 0 here, beside Shift there.
void TestAccessibili::guida()
{
    QFETCH(QString, Tastiera);
    QVERIFY2(QProcess::execute(u"setxkbmap"_s, {Tastiera}) == 0,
             "setxkbmap (x11-xkb-utils) is not installed");
    const auto Rimetti = qScopeGuard([] { QProcess::execute(u"setxkbmap"_s, {u"us"_s}); });
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    P->Premi(u"ctrl+question"_s);
    QVERIFY2(P->Aperta(u"Calcanova - Guida: La tastiera"_s), qPrintable(P->Stato()));
    Guarda();
}

void TestAccessibili::sulBus_data()
{
    QTest::addColumn<QString>("Passi");
    QTest::addColumn<QString>("Finestra");
    QTest::addColumn<QString>("Atteso");
    const auto Riga = [](const char* Nome, const QString& Passi, const QString& Finestra,
                         const QString& Atteso = {}) { QTest::newRow(Nome) << Passi << Finestra << Atteso; };
    Riga("scrivania", {}, u"frmStudio"_s);
    Riga("parcella", u"nota"_s, u"frmMain"_s, u"text|Cliente"_s);
    for (const SchedaParcella& Scheda : SchedeParcella)
        Riga(Scheda.Nome, u"nota;compila;scheda "_s + QString::fromUtf8(Scheda.Titolo), u"frmMain"_s);
    Riga("pannello degli importi",
         u"nota;compila;scheda Onorari;clic barListaOnoDir_variaz;vede sldGraduaOno"_s, u"frmMain"_s,
         u"push button|CONFERMA"_s);
    Riga("conti del documento", u"nota;compila;premi ctrl+t"_s, u"frmCatena"_s);
    Riga("documento",
         u"nota;compila;scheda Onorari;premi ctrl+p;fuoco cmbTipoStampa;premi Down;"
         "vede chkUnaPagina"_s,
         u"frmMain"_s);
    Riga(
        "documento da controllare",
        u"nota;compila;scheda Onorari;premi ctrl+p;fuoco cmbTipoStampa;premi Down Down Down;vede lstControlli"_s,
        u"frmMain"_s, u"list|Da controllare"_s);
    Riga("fattura elettronica", u"fattura"_s, u"frmMain"_s);
    Riga("anteprima della fattura", u"fattura;clic cmdAnteprimaXml;vede txtAnteprimaXml"_s, u"frmMain"_s);
    Riga("controllo di una fattura",
         u"fattura;clic cmdControllaXml;aperta Controlla;digita $CASA/guasta.xml;premi Return"_s,
         u"frmControlloFattura"_s);
    for (const Modulo& Calcolo : Calcolatrici())
        Riga(Calcolo.Nome, u"nota;premi "_s + QString::fromUtf8(Calcolo.Tasti), {});
    const QString Termini = u"nota;premi ctrl+shift+t;finestra frmTermini;digita 01072026;premi Return;"
                            "digita 60;premi Return Return Return Return Return Return;vede cmdStrada;"_s;
    Riga("termini ricorrenti", u"nota;premi ctrl+shift+t;finestra frmTermini;premi ctrl+t"_s,
         u"frmRicorrenti"_s);
    Riga("strada del termine", Termini + u"premi ctrl+d"_s, u"frmStrada"_s);
    Riga("calendario dello studio", Termini + u"premi ctrl+g"_s, u"frmAgenda"_s);
    Riga("stampa di un calcolo", Termini + u"premi ctrl+p"_s, u"frmPrint"_s);
    Riga("ultimi calcoli", Termini + u"premi ctrl+l"_s, u"frmUltimiCalcoli"_s);
    Riga("calcolo in vigore", u"nota;premi ctrl+shift+c;finestra frmContrib;vai cmbNorme;premi Down"_s,
         u"frmContrib"_s);
    for (const QString& Scheda : {u"Dati studio"_s, u"Dati contabili"_s, u"Setup"_s,
                                  u"Personalizza desktop"_s, u"Fattura elettronica"_s, u"Documenti"_s})
        Riga(qPrintable(u"impostazioni, "_s + Scheda), u"nota;impostazioni "_s + Scheda, u"frmSetup"_s,
             Scheda == u"Dati studio" ? u"text|Nome dello studio"_s : QString());
    Riga("icona personale", u"nota;impostazioni Personalizza desktop;clic cmdAddIco"_s, u"frmIcons"_s);
    Riga("scelta di una cartella", u"nota;impostazioni Setup;clic cmdSelDir_2"_s, u"frmSfoglia"_s);
    Riga("trova", u"nota;premi ctrl+o"_s, u"frmTrovaParcella"_s);
    Riga("rubrica", u"nota;premi ctrl+shift+r"_s, u"frmRubrica"_s);
    Riga("rubrica, per una parcella", u"nota;premi F4"_s, u"frmRubrica"_s);
    Riga("scheda da leggere", u"nota;premi ctrl+shift+r;finestra frmRubrica;premi Return"_s, u"frmScheda"_s);
    Riga("scheda da scrivere", u"nota;premi ctrl+shift+r;finestra frmRubrica;premi Insert"_s, u"frmScheda"_s);
    Riga("ricerca per campo", u"nota;premi ctrl+shift+r;finestra frmRubrica;premi ctrl+f"_s,
         u"frmRicerche"_s);
    Riga("importa", u"nota;premi ctrl+shift+r;finestra frmRubrica;premi ctrl+i"_s, u"frmImporta"_s);
    Riga("documenti", u"nota;premi ctrl+shift+d"_s, u"frmDocumenti"_s);
    Riga("guida", u"nota;premi F1"_s, u"frmWeb"_s);
    Riga("ricerca nella guida", u"nota;premi F1;finestra frmWeb;premi ctrl+f"_s, u"frmWeb"_s);
    Riga("aggiornamento", u"scrivania;clic %1"_s.arg(IconaAggiornamento()), u"frmUpgrade"_s);
    Riga("domanda", u"nota;digita Rossi;premi ctrl+w"_s, {});
}

void TestAccessibili::sulBus()
{
    QFETCH(QString, Passi);
    QFETCH(QString, Finestra);
    QFETCH(QString, Atteso);
    const Bus Desktop;
    QVERIFY2(Desktop.Vivo(), "dbus-daemon is not installed");
    const StudioCompleto Studio;
    P = std::make_unique<Programma>(QStringList{}, Studio.Impostazioni());
    QFile Guasta(P->Casa() + u"/guasta.xml"_s);
    QVERIFY(Guasta.open(QIODevice::WriteOnly) && Guasta.write("<a/>") == 4);
    Guasta.close();
    for (const QString& Uno : Passi.split(u';', Qt::SkipEmptyParts))
        QVERIFY2(Passo(*P, Uno), qPrintable(Uno + u": "_s + P->Stato()));
    if (!Finestra.isEmpty())
        QVERIFY2(Passo(*P, u"finestra "_s + Finestra), qPrintable(P->Stato()));
    QList<Letto> Controlli;
    int Esito = 0;
    constexpr int Pochi = 4;
    // The program comes onto the bus when its services have started.
    for (int Prova = 0; Prova < 20 && Esito == 0 && Controlli.size() < Pochi; ++Prova) {
        Esito = Leggi(Controlli);
        QTest::qWait(200);
    }
    QVERIFY2(Esito != SenzaLettore, "gir1.2-atspi-2.0 and python3-gi, or at-spi2-core, are not installed");
    QCOMPARE(Esito, 0);
    QVERIFY2(Controlli.size() >= Pochi, "the tree of the window comes over the bus");
    for (const QString& Difetto : DifettiDi(Controlli))
        QTest::qFail(qPrintable(Difetto), __FILE__, __LINE__);
    const bool Trovato = Atteso.isEmpty() || std::ranges::any_of(Controlli, [&](const Letto& Uno) {
                             return Uno.Ruolo + u'|' + Uno.Nome == Atteso;
                         });
    QVERIFY2(Trovato, qPrintable(Atteso));
    if (QTest::currentTestFailed())
        P->Fotografa(u"fallita_bus_"_s + QString::fromUtf8(QTest::currentDataTag()).replace(u' ', u'_'));
}

#include "TestAccessibili.moc"
