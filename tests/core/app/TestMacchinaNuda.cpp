// The program on machines that lack what a desktop has: it opens a note all the same, or says what is
// missing.
#include "core/app/apritori.h"
#include "core/app/processo.h"
#include "core/app/scena.h"

#include "feenote/windows/tavolo.h"
#include "platform/system/file.h"

#include <QDateTime>
#include <QDirIterator>
#include <QFileInfo>

#include <memory>

namespace {

/// The program folder as a package lays it out: nobody writes there. It can be removed again with the object.
class ProgrammaInstallato
{
public:
    ProgrammaInstallato()
    {
        const QString Da = ProgrammaDiProva();
        QDirIterator Giro(Da, QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (Giro.hasNext()) {
            const QFileInfo Voce(Giro.next());
            const QString A = Cartella + Voce.filePath().mid(Da.size());
            QDir().mkpath(Voce.isDir() ? A : QFileInfo(A).path());
            if (!Voce.isDir() && QFile::copy(Voce.filePath(), A))
                QFile::setPermissions(A, QFile::ReadOwner | QFile::ReadOther |
                                             (Voce.isExecutable() ? QFile::ExeOwner : QFile::Permissions()));
        }
        Chiudi(QFile::ReadOwner | QFile::ExeOwner);
    }
    ~ProgrammaInstallato() { Chiudi(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner); }
    ProgrammaInstallato(const ProgrammaInstallato&) = delete;
    ProgrammaInstallato& operator=(const ProgrammaInstallato&) = delete;

    /// Every file with its length and its last change, hidden ones too.
    [[nodiscard]] QStringList ComeStanno() const
    {
        QStringList Tutti;
        QDirIterator Giro(Cartella, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (Giro.hasNext()) {
            const QFileInfo Voce(Giro.next());
            Tutti += u"%1 %2 %3"_s.arg(Voce.filePath())
                         .arg(Voce.size())
                         .arg(Voce.lastModified().toMSecsSinceEpoch());
        }
        Tutti.sort();
        return Tutti;
    }

    const QString Cartella = NuovaCartella();

private:
    void Chiudi(QFile::Permissions Come) const
    {
        QStringList Tutte{Cartella};
        QDirIterator Giro(Cartella, QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (Giro.hasNext())
            Tutte += Giro.next();
        for (const QString& Una : Tutte)
            QFile::setPermissions(Una, Come);
    }
};

}  // namespace

class TestMacchinaNuda : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { S.reset(); }
    void apreLaParcella_data();
    void apreLaParcella();
    void casaNonScrivibile_data();
    void casaNonScrivibile();
    void cartellaDelProgrammaNonScrivibile_data();
    void cartellaDelProgrammaNonScrivibile();
    void doveNonSiScriveNullaSiDice();

private:
    std::unique_ptr<Scena> S;
    QString File;
};
PROVA(TestMacchinaNuda);

void TestMacchinaNuda::init()
{
    S = std::make_unique<Scena>();
    sessione::PercorsoProg = ProgrammaDiProva();
    File = NuovaCartella() + u"perché no.mdb"_s;
    ScriviNota(File, NotaCivile());
    EseguiSu(File, u"ALTER TABLE ParcellaParam DROP COLUMN SpeseGen"_s);  // whoever opens it puts it back
}

void TestMacchinaNuda::apreLaParcella_data()
{
    using Ambiente = QMap<QString, QString>;
    QTest::addColumn<Ambiente>("Diverso");
    QTest::addColumn<QByteArray>("Dice");

    const QString Vuota = NuovaCartella();
    ScriviFile(Vuota + u"fonts.conf"_s,
               "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig>"
               "<dir>/nessuno</dir></fontconfig>");
    QTest::newRow("no fonts") << Ambiente{{u"FONTCONFIG_FILE"_s, Vuota + u"fonts.conf"_s}}
                              << "Nessun carattere installato"_ba;
    QTest::newRow("no theme") << Ambiente{{u"QT_QPA_PLATFORMTHEME"_s, u"che-non-ha"_s},
                                          {u"QT_STYLE_OVERRIDE"_s, u"che-non-ha"_s},
                                          {u"XDG_DATA_DIRS"_s, Vuota}}
                              << ""_ba;
    QTest::newRow("no folders of the desktop")
        << Ambiente{{u"HOME"_s, Vuota + u"casa"_s},       {u"XDG_CONFIG_HOME"_s, QString()},
                    {u"XDG_DATA_HOME"_s, QString()},      {u"XDG_DATA_DIRS"_s, QString()},
                    {u"XDG_CONFIG_DIRS"_s, QString()},    {u"XDG_RUNTIME_DIR"_s, QString()},
                    {u"XDG_DOCUMENTS_DIR"_s, QString()},  {u"TMPDIR"_s, Vuota},
                    {u"XDG_CURRENT_DESKTOP"_s, QString()}}
        << ""_ba;
    QTest::newRow("locale C") << Ambiente{{u"LC_ALL"_s, u"C"_s}, {u"LANG"_s, u"C"_s}} << ""_ba;
    QTest::newRow("no locale") << Ambiente{{u"LC_ALL"_s, QString()}, {u"LANG"_s, QString()}} << ""_ba;
}

void TestMacchinaNuda::apreLaParcella()
{
    using Ambiente = QMap<QString, QString>;
    QFETCH(Ambiente, Diverso);
    QFETCH(QByteArray, Dice);
    ProgrammaVero Vero({File}, Diverso);
    QTRY_VERIFY_WITH_TIMEOUT(EsisteCampo(File, u"ParcellaParam"_s, u"SpeseGen"_s), 20000);
    QVERIFY2(!Vero.Processo.waitForFinished(300), "the note is on screen");
    QVERIFY2(Vero.Processo.readAllStandardError().contains(Dice), Dice.constData());
}

void TestMacchinaNuda::casaNonScrivibile_data()
{
    QTest::addColumn<QStringList>("Argomenti");
    QTest::newRow("the desktop") << QStringList();
    QTest::newRow("a note") << QStringList{File};
    QTest::newRow("low") << QStringList{u"-low"_s};
}

void TestMacchinaNuda::casaNonScrivibile()
{
    // Where nobody writes, the superuser either. What is told then is TestPrimoUso's; here it stays alive to
    // tell it.
    QFETCH(QStringList, Argomenti);
    const QString Casa = u"/proc/sys/casa"_s;
    ProgrammaVero Vero(Argomenti, {{u"HOME"_s, Casa},
                                   {u"XDG_CONFIG_HOME"_s, QString()},
                                   {u"XDG_DATA_HOME"_s, QString()},
                                   {u"XDG_DOCUMENTS_DIR"_s, QString()},
                                   {u"XDG_RUNTIME_DIR"_s, Casa}});
    QVERIFY2(!Vero.Processo.waitForFinished(800), Vero.Processo.readAllStandardError().constData());
}

void TestMacchinaNuda::cartellaDelProgrammaNonScrivibile_data()
{
    QTest::addColumn<QStringList>("Argomenti");
    QTest::newRow("a note") << QStringList{File};
    QTest::newRow("low") << QStringList{u"-low"_s};
}

/// An installed program: it works, and leaves nothing where it stands, not even for the superuser, whom no
/// permission stops.
void TestMacchinaNuda::cartellaDelProgrammaNonScrivibile()
{
    QFETCH(QStringList, Argomenti);
    const ProgrammaInstallato Installato;
    const QStringList Prima = Installato.ComeStanno();
    QVERIFY(Prima.size() > 100);
    ProgrammaVero Vero(Argomenti, {}, {}, Installato.Cartella);
    if (Argomenti.contains(File))
        QTRY_VERIFY_WITH_TIMEOUT(EsisteCampo(File, u"ParcellaParam"_s, u"SpeseGen"_s), 20000);
    QVERIFY2(!Vero.Processo.waitForFinished(400), Vero.Processo.readAllStandardError().constData());
    QCOMPARE(Installato.ComeStanno(), Prima);
}

/// The same seen from inside: nothing is tried there, so that nothing is told.
void TestMacchinaNuda::doveNonSiScriveNullaSiDice()
{
    const ProgrammaInstallato Installato;
    const QStringList Prima = Installato.ComeStanno();
    const Registratore Box;
    (void)Scena::AllestisciStudio();
    Scena::Salva(u"PercorsoProcedura"_s, Installato.Cartella);
    RiempiApritori();
    Main({});
    QCOMPARE(sessione::PercorsoProg, Installato.Cartella);
    EseguiComando(u"new"_s, 0, {});
    QVERIFY(SeCaricato<frmMain> && SeCaricato<frmMain>->isVisible());
    ScriviNota(File, NotaCivile());
    QCOMPARE(Installato.ComeStanno(), Prima);
}

#include "TestMacchinaNuda.moc"
