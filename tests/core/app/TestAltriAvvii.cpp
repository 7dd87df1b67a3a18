// A start with a file while a session is running, seen from outside: the program itself, twice.
#include "core/app/altriavvii.h"
#include "core/app/processo.h"
#include "core/app/scena.h"

#include "feenote/windows/tavolo.h"
#include "platform/network/staffetta.h"
#include "platform/system/file.h"

#include <QElapsedTimer>
#include <QThread>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

constexpr int AttesaMs = 20000;

/// A note from before a column: whoever opens it gives it that column, which can be seen from outside.
void ScriviVecchia(const QString& File)
{
    AzzeraSessione();
    sessione::PercorsoProg = ProgrammaDiProva();
    ScriviNota(File, NotaCivile());
    EseguiSu(File, u"ALTER TABLE ParcellaParam DROP COLUMN SpeseGen"_s);
    AzzeraSessione();
}

bool Aperta(const QString& File)
{
    bool Trovata = false;
    // An error is no matter: it is being written to just now.
    (void)NumeroErrore([&] { Trovata = EsisteCampo(File, u"ParcellaParam"_s, u"SpeseGen"_s); });
    return Trovata;
}

bool InAscolto()
{
    return QFileInfo::exists(PresaStaffetta(PercorsoImpostazioni(NomeApplicazione.toString())));
}

}  // namespace

class TestAltriAvvii : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void laSessioneApertaLoPrende_data();
    void laSessioneApertaLoPrende();
    void lAltraNonLoPrende_data();
    void lAltraNonLoPrende();
    void altreImpostazioni();
    void senzaFileNonCambiaNulla();
    void finitaNonAscolta();
    void treInsieme_data();
    void treInsieme();
    void cioCheEArrivatoLaTiene();
    void doveNessunoPuoAscoltare();

private:
    std::unique_ptr<Scena> S;
    QString Note;
};
PROVA(TestAltriAvvii);

void TestAltriAvvii::init()
{
    S = std::make_unique<Scena>();
    Note = NuovaCartella();
    // An office that is asked nothing at the start.
    Scena::Salva(u"StudioNome"_s, u"Studio Bianchi"_s);
    Scena::Salva(u"CercaAgg"_s, u"N"_s);
    Scena::Salva(u"ParcellePath"_s, Note);
    const QString Utente = NuovaCartella();
    ScriviFile(Utente + u"avvisokr5.ini"_s, {});
    Scena::Salva(u"UserFolder"_s, Utente);
    for (const QString& Nome : {u"Però già € così.mdb"_s, u"seconda.mdb"_s})
        ScriviVecchia(Note + Nome);
}

void TestAltriAvvii::cleanup()
{
    delete qApp->findChild<QObject*>(u"fileGiunti"_s);
    S.reset();
    QFile::remove(PresaStaffetta(PercorsoImpostazioni(NomeApplicazione.toString())));  // of the killed ones
}

void TestAltriAvvii::laSessioneApertaLoPrende_data()
{
    QTest::addColumn<QStringList>("Argomenti");
    QTest::addColumn<QString>("Nome");
    const QString Accenti = u"Però già € così.mdb"_s;
    QTest::newRow("the desktop") << QStringList{} << u"./"_s + Accenti;
    QTest::newRow("one begun with a file") << QStringList{u"seconda.mdb"_s} << Accenti;
}

void TestAltriAvvii::laSessioneApertaLoPrende()
{
    QFETCH(QStringList, Argomenti);
    QFETCH(QString, Nome);
    ProgrammaVero Prima(Argomenti, {}, Note);
    QTRY_VERIFY_WITH_TIMEOUT(InAscolto(), AttesaMs);
    ProgrammaVero Seconda({Nome}, {}, Note);
    QTRY_VERIFY_WITH_TIMEOUT(Seconda.FinitoBene(), AttesaMs);
    QTRY_VERIFY_WITH_TIMEOUT(Aperta(Note + Nome), AttesaMs);
    QVERIFY(!Prima.Finito());
}

void TestAltriAvvii::lAltraNonLoPrende_data()
{
    QTest::addColumn<QStringList>("Argomenti");
    QTest::newRow("low") << QStringList{u"-low"_s};
    QTest::newRow("the companion's file") << QStringList{u"PV2|E|"_s + QString(u"seconda.mdb"_s)};
    QTest::newRow("the companion's matter") << QStringList{u"PV2|N|P12|0|2|30000|0|0|11|"_s};
}

void TestAltriAvvii::lAltraNonLoPrende()
{
    QFETCH(QStringList, Argomenti);
    const ProgrammaVero Prima(Argomenti, {}, Note);
    QTest::qWait(400);
    QVERIFY(!InAscolto());
    const QString File = Note + u"Però già € così.mdb"_s;
    const ProgrammaVero Seconda({File});
    QTRY_VERIFY_WITH_TIMEOUT(Aperta(File), AttesaMs);
    QTRY_VERIFY_WITH_TIMEOUT(InAscolto(), AttesaMs);
    QVERIFY2(!Seconda.Finito(), "it has opened the file by itself");
}

void TestAltriAvvii::altreImpostazioni()
{
    const ProgrammaVero Prima({}, {}, Note);
    QTRY_VERIFY_WITH_TIMEOUT(InAscolto(), AttesaMs);
    // Another office's settings: its own folders, its own archive.
    const QString Altre = NuovaCartella();
    CreaCartella(Altre + u"Calcanova"_s);
    ScriviFile(Altre + u"Calcanova/KR5.ini"_s, LeggiFile(Scena::FileImpostazioni()));
    const QString File = Note + u"seconda.mdb"_s;
    const ProgrammaVero Seconda({File}, {{u"XDG_CONFIG_HOME"_s, Altre}});
    QTRY_VERIFY_WITH_TIMEOUT(Aperta(File), AttesaMs);
    QTest::qWait(300);
    QVERIFY(!Seconda.Finito());
}

void TestAltriAvvii::senzaFileNonCambiaNulla()
{
    const ProgrammaVero Prima({}, {}, Note);
    QTRY_VERIFY_WITH_TIMEOUT(InAscolto(), AttesaMs);
    const ProgrammaVero Seconda({});
    const ProgrammaVero Terza({u"manca.mdb"_s}, {}, Note);
    QTest::qWait(500);
    QVERIFY2(!Seconda.Finito(), "a second desktop, as always");
    QVERIFY2(!Terza.Finito(), "what names no file is the desktop");
}

void TestAltriAvvii::finitaNonAscolta()
{
    // The companion's program ends by itself; a session that has ended leaves no socket.
    const ProgrammaVero Nulla({u"PV2|X"_s});
    QTRY_VERIFY_WITH_TIMEOUT(Nulla.FinitoBene(), AttesaMs);
    QVERIFY(!InAscolto());
}

void TestAltriAvvii::treInsieme_data()
{
    QTest::addColumn<int>("Giro");
    for (int Giro = 1; Giro <= 2; ++Giro)
        QTest::addRow("round %d", Giro) << Giro;
}

/// What is selected in a file manager is opened by as many starts at one moment: one of them is the session.
void TestAltriAvvii::treInsieme()
{
    const QStringList Nomi{u"Però già € così.mdb"_s, u"seconda.mdb"_s, u"terza.mdb"_s};
    ScriviVecchia(Note + Nomi[2]);
    std::vector<std::unique_ptr<ProgrammaVero>> Avvii;
    for (const QString& Nome : Nomi)
        Avvii.push_back(std::make_unique<ProgrammaVero>(QStringList{Nome}, QMap<QString, QString>{}, Note));
    const auto Finiti = [&] {
        return std::ranges::count_if(
            Avvii, [](const std::unique_ptr<ProgrammaVero>& Avvio) { return Avvio->FinitoBene(); });
    };
    QTRY_COMPARE_WITH_TIMEOUT(int(Finiti()), 2, 2 * AttesaMs);
    for (const QString& Nome : Nomi)
        QTRY_VERIFY2_WITH_TIMEOUT(Aperta(Note + Nome), qPrintable(Nome), AttesaMs);
    QCOMPARE(int(Finiti()), 2);
    QVERIFY(InAscolto());
}

/// The session's own file is none, and no window is up: what has come meanwhile keeps it, and is opened.
void TestAltriAvvii::cioCheEArrivatoLaTiene()
{
    const QString Quali = PercorsoImpostazioni(NomeApplicazione.toString());
    QStringList Aperti;
    Aperture.ApriParcella = [&](const QString& File, auto&&...) { Aperti << File; };
    bool Preso = false;
    QVERIFY(ComeUnaSessione(Note + u"seconda.mdb"_s, [&] {
        const std::unique_ptr<QThread> Altro(
            QThread::create([&] { Preso = PassaFile(Quali, Note + u"Però già € così.mdb"_s); }));
        Altro->start();
        while (!Altro->isFinished())
            QTest::qWait(1);
        QTest::qWait(200);
        QVERIFY2(Aperti.isEmpty(), "opened before the session's own file");
        FineSenzaFinestre();
        QVERIFY2(!S->Eventi.contains(u"fine"_s), "ended with a file that has come");
    }));
    QVERIFY(Preso);
    QTRY_COMPARE(Aperti, QStringList{Note + u"Però già € così.mdb"_s});
    QTRY_VERIFY2(S->Eventi.contains(u"fine"_s), "and no window came up");
}

/// Where no socket can be made each start opens its own file, and waits for none that stands before a
/// message.
void TestAltriAvvii::doveNessunoPuoAscoltare()
{
    ScriviFile(Note + u"rotta.mdb"_s, "no database");
    // Longer than the name of a socket may be.
    const QString Lunga = NuovaCartella() + u"x"_s.repeated(120);
    CreaCartellaPrivata(Lunga);
    const QMap<QString, QString> Ambiente{{u"XDG_RUNTIME_DIR"_s, Lunga}};
    const ProgrammaVero Prima({u"rotta.mdb"_s}, Ambiente, Note);
    QTest::qWait(500);
    QElapsedTimer Tempo;
    Tempo.start();
    const ProgrammaVero Seconda({u"seconda.mdb"_s}, Ambiente, Note);
    QTRY_VERIFY_WITH_TIMEOUT(Aperta(Note + u"seconda.mdb"_s), 2 * AttesaMs);
    QVERIFY2(Tempo.elapsed() < 15000, "it has waited for its turn");
    QVERIFY(!Prima.Finito() && !Seconda.Finito());
}

#include "TestAltriAvvii.moc"
