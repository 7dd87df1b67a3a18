// Every window as a screen reader is told of it: by the toolkit's own tree, and through the bus of the
// desktop.
#include "moduli.h"

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
    QVERIFY2(P->Aperta(u"Calcanova 3"_s), qPrintable(P->Stato()));
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
    QTest::addColumn<QString>("Tasti");
    QTest::addColumn<QString>("Titolo");
    QTest::addColumn<QString>("Atteso");
    QTest::newRow("note") << QString() << QString() << u"text|Cliente"_s;
    for (const Modulo& Calcolo : Calcolatrici)
        QTest::newRow(Calcolo.Nome) << QString::fromUtf8(Calcolo.Tasti) << QString::fromUtf8(Calcolo.Titolo)
                                    << QString();
    QTest::newRow(Impostazioni.Nome) << QString::fromUtf8(Impostazioni.Tasti)
                                     << QString::fromUtf8(Impostazioni.Titolo) << u"text|Nome dello studio"_s;
    QTest::newRow(Trova.Nome) << QString::fromUtf8(Trova.Tasti) << QString::fromUtf8(Trova.Titolo)
                              << QString();
    QTest::newRow("rubrica") << u"ctrl+shift+r"_s << u"Archivio: clienti"_s << QString();
    QTest::newRow(ElencoDocumenti.Nome)
        << QString::fromUtf8(ElencoDocumenti.Tasti) << QString::fromUtf8(ElencoDocumenti.Titolo) << QString();
}

void TestAccessibili::sulBus()
{
    QFETCH(QString, Tasti);
    QFETCH(QString, Titolo);
    QFETCH(QString, Atteso);
    const Bus Desktop;
    QVERIFY2(Desktop.Vivo(), "dbus-daemon is not installed");
    P = std::make_unique<Programma>();
    QVERIFY2(P->NuovaParcella(), qPrintable(P->Stato()));
    if (!Tasti.isEmpty()) {
        P->Premi(Tasti);
        QVERIFY2(P->Aperta(Titolo), qPrintable(P->Stato()));
    }
    QList<Letto> Controlli;
    int Esito = 0;
    constexpr int Pochi = 8;
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
}

#include "TestAccessibili.moc"
