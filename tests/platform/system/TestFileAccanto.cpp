// Files that are written beside their place, by two programs at once.
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "platform/base/numerierrore.h"
#include "platform/system/attese.h"
#include "platform/system/file.h"
#include "platform/system/fileaccanto.h"
#include "platform/system/guasti.h"
#include "platform/system/sincrono.h"

#include <QDateTime>
#include <QScopedValueRollback>

#include <fcntl.h>
#include <linux/capability.h>
#include <sys/file.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class TestFileAccanto : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void chiScriveNonPerdeIlSuo();
    void chiNonSiVedePerdeIlPosto();
    void siAspettaChiVive_data();
    void siAspettaChiVive();
    void diUnMorto_data();
    void diUnMorto();
    void iRestiDiAltriNomi();
    void iRestiCheNonSiPossonoScrivere();
    void iRestiSenzaCheNessunoLiChieda();
    void laCartellaNonConferma_data();
    void laCartellaNonConferma();
    void ilNomeNonSiToglie();
    void laCopiaNonConfermata();

private:
    QString Cartella;
    QString File;
    int AttesaSolita = attese::TurnoMs;
};
PROVA(TestFileAccanto);

void TestFileAccanto::init()
{
    Cartella = NuovaCartella();
    File = Cartella + u"x.doc"_s;
    attese::TurnoMs = 100;
}

void TestFileAccanto::cleanup()
{
    attese::TurnoMs = AttesaSolita;
    guasti::SenzaFileAnonimi = false;
    guasti::SenzaBlocchi = false;
    guasti::PrimaDellaCartella = nullptr;
}

void TestFileAccanto::chiScriveNonPerdeIlSuo()
{
    guasti::SenzaFileAnonimi = true;
    {
        FileAccanto Primo(File, Lettori::Cartella);
        Primo.Scrivi("mezzo");
        QCOMPARE(NumeroErrore([&] { ScriviFile(File, "altro", Lettori::Cartella); }), errori::GiaInUso);
        Primo.Scrivi(" e intero");
        Primo.Posa();
    }
    QCOMPARE(LeggiFile(File), "mezzo e intero"_ba);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"x.doc"_s});
}

/// Where a disk shows nobody's locks the second takes the first one's file for a dead program's: what is half
/// written takes no place all the same.
void TestFileAccanto::chiNonSiVedePerdeIlPosto()
{
    guasti::SenzaFileAnonimi = true;
    ScriviFile(File, "prima", Lettori::Cartella);
    guasti::SenzaBlocchi = true;
    {
        FileAccanto Primo(File, Lettori::Cartella);
        Primo.Scrivi("uno");
        FileAccanto Secondo(File, Lettori::Cartella);
        Secondo.Scrivi("met");
        QCOMPARE(NumeroErrore([&] { Primo.Posa(); }), errori::GiaInUso);
        QCOMPARE(LeggiFile(File), "prima"_ba);
        Secondo.Scrivi("à");
        Secondo.Posa();
    }
    QCOMPARE(LeggiFile(File), "metà"_ba);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"x.doc"_s});
}

void TestFileAccanto::siAspettaChiVive_data()
{
    QTest::addColumn<bool>("ConNome");
    QTest::newRow("a name from the first byte on") << true;
    QTest::newRow("a name at the end") << false;
}

void TestFileAccanto::siAspettaChiVive()
{
    QFETCH(bool, ConNome);
    guasti::SenzaFileAnonimi = ConNome;
    const QByteArray Accanto = QFile::encodeName(Cartella + u".~x.doc.tmp"_s);
    const int Vivo = ::open(Accanto.constData(), O_CREAT | O_RDWR | O_CLOEXEC, 0600);
    QCOMPARE(::flock(Vivo, LOCK_EX), 0);
    QCOMPARE(NumeroErrore([&] { ScriviFile(File, "x"); }), errori::GiaInUso);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u".~x.doc.tmp"_s});
    ::close(Vivo);
    ScriviFile(File, "x");
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"x.doc"_s});
}

void TestFileAccanto::diUnMorto_data()
{
    siAspettaChiVive_data();
}

void TestFileAccanto::diUnMorto()
{
    QFETCH(bool, ConNome);
    guasti::SenzaFileAnonimi = ConNome;
    QFile Resto(Cartella + u".~x.doc.tmp"_s);
    QVERIFY(Resto.open(QIODevice::WriteOnly));
    Resto.close();
    ScriviFile(File, "x");
    QCOMPARE(LeggiFile(File), "x"_ba);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"x.doc"_s});
}

/// A file that was last touched so many seconds ago.
void Resto(const QString& Nome, int Secondi)
{
    ScriviFile(Nome, "a meta'");
    ImpostaDataFile(Nome, QDateTime::currentDateTime().addSecs(-Secondi));
}

constexpr int Fa = 600;

void TestFileAccanto::iRestiDiAltriNomi()
{
    Resto(Cartella + u".~morto.doc.tmp"_s, Fa);
    Resto(Cartella + u".~domani.doc.tmp"_s, -Fa);
    const QStringList Restano{u".~cartella.tmp"_s, u".~collegato.tmp"_s, u".~giovane.doc.tmp"_s,
                              u".~lock.x.doc#"_s,  u".~nota.mdb.tmp"_s,  u".~vivo.doc.tmp"_s,
                              u"vero.doc"_s,       u"~x.doc.tmp"_s};
    for (const QString& Nome :
         {u".~lock.x.doc#"_s, u".~nota.mdb.tmp"_s, u".~vivo.doc.tmp"_s, u"vero.doc"_s, u"~x.doc.tmp"_s})
        Resto(Cartella + Nome, Fa);
    Resto(Cartella + u".~giovane.doc.tmp"_s, 200);
    CreaCartella(Cartella + u".~cartella.tmp"_s);
    QVERIFY(QFile::link(Cartella + u"vero.doc"_s, Cartella + u".~collegato.tmp"_s));
    const int Vivo =
        ::open(QFile::encodeName(Cartella + u".~vivo.doc.tmp"_s).constData(), O_RDONLY | O_CLOEXEC);
    QCOMPARE(::flock(Vivo, LOCK_EX), 0);
    TogliRestiAccanto(Cartella);
    QCOMPARE(ContenutoDi(Cartella), Restano);
    ::close(Vivo);
    TogliRestiAccanto(Cartella);
    QVERIFY(!ContenutoDi(Cartella).contains(u".~vivo.doc.tmp"));
    if (::geteuid() == 0) {
        Resto(Cartella + u".~altrui.doc.tmp"_s, Fa);
        QCOMPARE(::chown(QFile::encodeName(Cartella + u".~altrui.doc.tmp"_s).constData(), 54321, 54321), 0);
        TogliRestiAccanto(Cartella);
        QVERIFY2(ContenutoDi(Cartella).contains(u".~altrui.doc.tmp"), "another user's");
    }
    TogliRestiAccanto(Cartella + u"manca"_s);
}

/// This thread of the superuser asks for leave as anybody does, while the object lives.
class SenzaPrivilegi
{
public:
    SenzaPrivilegi()
    {
        ::syscall(SYS_capget, &Testata, Prima);
        __user_cap_data_struct Ora[2] = {Prima[0], Prima[1]};
        Ora[0].effective &= ~((1U << CAP_DAC_OVERRIDE) | (1U << CAP_DAC_READ_SEARCH));
        ::syscall(SYS_capset, &Testata, Ora);
    }
    ~SenzaPrivilegi() { ::syscall(SYS_capset, &Testata, Prima); }
    SenzaPrivilegi(const SenzaPrivilegi&) = delete;
    SenzaPrivilegi& operator=(const SenzaPrivilegi&) = delete;

private:
    __user_cap_header_struct Testata = {_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct Prima[2] = {};
};

/// A share locks what is open for writing alone: a file that cannot be opened so is never locked, and stays.
void TestFileAccanto::iRestiCheNonSiPossonoScrivere()
{
    const SenzaPrivilegi Chiunque;
    const QString Chiuso = Cartella + u".~chiuso.doc.tmp"_s;
    Resto(Chiuso, Fa);
    QVERIFY(QFile::setPermissions(Chiuso, QFile::ReadOwner));
    TogliRestiAccanto(Cartella);
    QVERIFY(EsisteFile(Chiuso));
    QVERIFY(QFile::setPermissions(Chiuso, QFile::ReadOwner | QFile::WriteOwner));
    TogliRestiAccanto(Cartella);
    QVERIFY(!EsisteFile(Chiuso));
}

/// They go with the first file of any name that comes into their folder.
void TestFileAccanto::iRestiSenzaCheNessunoLiChieda()
{
    const QString Altrove = NuovaCartella();
    Resto(Altrove + u"x"_s, Fa);
    QVERIFY(QFile::rename(Altrove + u"x"_s, Cartella + u".~morto.doc.tmp"_s));
    ScriviFile(File, "x");
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"x.doc"_s});
}

void TestFileAccanto::laCartellaNonConferma_data()
{
    QTest::addColumn<bool>("SenzaFileAnonimi");
    QTest::newRow("senza nome") << false;
    QTest::newRow("col nome") << true;
}

/// Who is told that a new file was not written finds none; who replaces one is told that it stands.
void TestFileAccanto::laCartellaNonConferma()
{
    QFETCH(bool, SenzaFileAnonimi);
    guasti::SenzaFileAnonimi = SenzaFileAnonimi;
    guasti::PrimaDellaCartella = [](const QString&) { return false; };
    const QString Refuso = DescrizioneErrore(errori::Periferica);
    try {
        (void)CreaFile(File, "nuovo", Lettori::Cartella);
        QFAIL("it was refused");
    } catch (const NonConfermato&) {
        QFAIL("nothing stands there");
    } catch (const Errore& Guasto) {
        QCOMPARE(Guasto.Descrizione, Refuso);
    }
    QCOMPARE(ContenutoDi(Cartella), QStringList());
    guasti::PrimaDellaCartella = nullptr;
    ScriviFile(File, "prima", Lettori::Cartella);
    guasti::PrimaDellaCartella = [](const QString&) { return false; };
    try {
        ScriviFile(File, "dopo", Lettori::Cartella);
        QFAIL("it was refused");
    } catch (const NonConfermato& Guasto) {
        QCOMPARE(Guasto.Numero, errori::Periferica);
        QCOMPARE(Guasto.Descrizione, Refuso + u"; il file x.doc è però al suo posto"_s);
    }
    QCOMPARE(LeggiFile(File), "dopo"_ba);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"x.doc"_s});
}

/// What another program has put there meanwhile is its own.
void TestFileAccanto::ilNomeNonSiToglie()
{
    guasti::PrimaDellaCartella = [this](const QString& Quale) {
        QFile Altrui(Quale);
        if (Altrui.remove() && Altrui.open(QIODevice::WriteOnly))
            Altrui.write("altrui");
        return false;
    };
    QVERIFY_THROWS_EXCEPTION(NonConfermato, (void)CreaFile(File, "nuovo", Lettori::Cartella));
    QCOMPARE(LeggiFile(File), "altrui"_ba);
}

void TestFileAccanto::laCopiaNonConfermata()
{
    ScriviFile(File, "prima", Lettori::Cartella);
    guasti::PrimaDellaCartella = [](const QString&) { return false; };
    QVERIFY_THROWS_EXCEPTION(Errore, (void)CopiaFile(File, Cartella + u"copia"_s, 100));
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"x.doc"_s});
}

#include "TestFileAccanto.moc"
