// Who may read what the program makes, whatever the system's habit of new files.
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/permessi.h"

#include <QFileInfo>
#include <QScopedValueRollback>

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

mode_t Modo(const QString& File)
{
    struct stat Suo = {};
    return ::stat(QFile::encodeName(File).constData(), &Suo) == 0 ? Suo.st_mode & 07777 : 0;
}

void Imposta(const QString& File, mode_t Nuovo)
{
    QVERIFY(::chmod(QFile::encodeName(File).constData(), Nuovo) == 0);
}

}  // namespace

class TestPermessi : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { ::umask(Prima); }
    void unFileNuovo_data();
    void unFileNuovo();
    void unoCheCEra_data();
    void unoCheCEra();
    void ilGruppoDellaCartella();
    void ilGruppoRifiutato_data();
    void ilGruppoRifiutato();
    void cartelle_data();
    void cartelle();
    void unFileAlPostoDellaCartella();
    void ilSupportoDecide_data();
    void ilSupportoDecide();
    void siLegge_data();
    void siLegge();
    void diChiE();
    void dietroUnCollegamento();
    void dietroUnaCartellaSenzaNome();
    void dietroUnaCartellaCollegata_data();
    void dietroUnaCartellaCollegata();

private:
    QString Cartella;
    mode_t Prima = 022;
};
PROVA(TestPermessi);

void TestPermessi::init()
{
    Cartella = NuovaCartella();
    Prima = ::umask(0);
}

void TestPermessi::unFileNuovo_data()
{
    QTest::addColumn<int>("DellaCartella");
    QTest::addColumn<int>("Chi");
    QTest::addColumn<int>("Atteso");
    const auto Riga = [](const char* Nome, int DellaCartella, Lettori Chi, int Atteso) {
        QTest::newRow(Nome) << DellaCartella << int(Chi) << Atteso;
    };
    Riga("the user's folder", 0700, Lettori::Cartella, 0600);
    Riga("one that others may look into", 0755, Lettori::Cartella, 0600);
    Riga("one of a group", 0770, Lettori::Cartella, 0660);
    Riga("one of a group, others may look", 02775, Lettori::Cartella, 0660);
    Riga("one of everybody", 0777, Lettori::Cartella, 0666);
    Riga("one where everybody keeps his own", 01777, Lettori::Cartella, 0600);
    Riga("one of a group where each keeps his own", 03770, Lettori::Cartella, 0600);
    Riga("the user's alone in a group's folder", 0770, Lettori::SoloUtente, 0600);
    Riga("as the system likes", 0700, Lettori::Tutti, 0644);
}

void TestPermessi::unFileNuovo()
{
    QFETCH(int, DellaCartella);
    QFETCH(int, Chi);
    const QString File = Cartella + u"f"_s;
    ScriviFile(File, "x");
    Imposta(File, 0644);
    Imposta(Cartella, mode_t(DellaCartella));
    DaiPermessi(File, {}, Lettori(Chi));
    const mode_t Trovato = Modo(File);
    Imposta(Cartella, 0700);
    QTEST(int(Trovato), "Atteso");
}

void TestPermessi::unoCheCEra_data()
{
    QTest::addColumn<int>("Era");
    QTest::addColumn<int>("Chi");
    QTest::addColumn<int>("Atteso");
    QTest::newRow("of the user") << 0600 << int(Lettori::Cartella) << 0600;
    QTest::newRow("of an office") << 0664 << int(Lettori::Cartella) << 0664;
    QTest::newRow("read-only") << 0444 << int(Lettori::Cartella) << 0444;
    QTest::newRow("no bit that runs it as another") << 06755 << int(Lettori::Tutti) << 0755;
    QTest::newRow("the user's alone from now on") << 0644 << int(Lettori::SoloUtente) << 0600;
}

void TestPermessi::unoCheCEra()
{
    QFETCH(int, Era);
    QFETCH(int, Chi);
    const QString Nuovo = Cartella + u"nuovo"_s;
    const QString Vecchio = Cartella + u"vecchio"_s;
    ScriviFile(Nuovo, "x");
    ScriviFile(Vecchio, "y");
    Imposta(Vecchio, mode_t(Era));
    DaiPermessi(Nuovo, Vecchio, Lettori(Chi));
    QTEST(int(Modo(Nuovo)), "Atteso");
}

void TestPermessi::ilGruppoDellaCartella()
{
    constexpr uint Altro = 54321;
    const QString File = Cartella + u"f"_s;
    ScriviFile(File, "x");
    if (::chown(QFile::encodeName(Cartella).constData(), uid_t(-1), Altro) != 0)
        QSKIP("only the superuser gives folders away");
    Imposta(Cartella, 0770);
    DaiPermessi(File, {}, Lettori::Cartella);
    QCOMPARE(QFileInfo(File).groupId(), Altro);
    QCOMPARE(Modo(File), mode_t(0660));
}

void TestPermessi::ilGruppoRifiutato_data()
{
    QTest::addColumn<int>("Era");
    QTest::addColumn<int>("DellaCartella");
    QTest::addColumn<int>("Atteso");
    QTest::newRow("what everybody reads") << 0644 << 0700 << 0644;
    QTest::newRow("what everybody reads and the group writes") << 0664 << 0700 << 0644;
    QTest::newRow("the group's alone") << 0660 << 0700 << 0600;
    QTest::newRow("everybody's but the group's") << 0604 << 0700 << 0644;
    QTest::newRow("a new one in a folder of everybody's") << 0 << 0777 << 0666;
    QTest::newRow("a new one in a group's folder") << 0 << 0770 << 0600;
}

/// A former file, or a folder, of a group that this user is not of: the group that the new file has instead
/// is not let in by the other's rights, nor shut out of what everybody may do.
void TestPermessi::ilGruppoRifiutato()
{
    QFETCH(int, Era);
    QFETCH(int, DellaCartella);
    const QString Nuovo = Cartella + u"nuovo"_s;
    const QString Vecchio = Cartella + u"vecchio"_s;
    ScriviFile(Nuovo, "x");
    if (Era != 0) {
        ScriviFile(Vecchio, "y");
        Imposta(Vecchio, mode_t(Era));
    }
    Imposta(Cartella, mode_t(DellaCartella));
    {
        const QScopedValueRollback Rifiuta(guasti::GruppoRifiutato, true);
        DaiPermessi(Nuovo, Era != 0 ? Vecchio : QString(), Lettori::Cartella);
    }
    Imposta(Cartella, 0700);
    QTEST(int(Modo(Nuovo)), "Atteso");
}

void TestPermessi::cartelle_data()
{
    QTest::addColumn<int>("Sopra");
    QTest::addColumn<int>("Atteso");
    QTest::newRow("under the user's") << 0755 << 0700;
    QTest::newRow("under a group's") << 0770 << 0770;
    QTest::newRow("under a group's that hands its group down") << 02770 << 02770;
    QTest::newRow("under everybody's own") << 01777 << 0700;
}

void TestPermessi::cartelle()
{
    QFETCH(int, Sopra);
    Imposta(Cartella, mode_t(Sopra));
    CreaCartellaDiUtente(Cartella + u"a/b"_s);
    QTEST(int(Modo(Cartella + u"a"_s)), "Atteso");
    QTEST(int(Modo(Cartella + u"a/b"_s)), "Atteso");
    CreaCartellaPrivata(Cartella + u"c/d"_s);
    QTEST(int(Modo(Cartella + u"c"_s)), "Atteso");
    QCOMPARE(int(Modo(Cartella + u"c/d"_s)) & 0777, 0700);
    Imposta(Cartella + u"a"_s, 0711);
    CreaCartellaDiUtente(Cartella + u"a"_s);
    QVERIFY2(Modo(Cartella + u"a"_s) == 0711, "one that is there is nobody's business");
}

/// A document of the user's that stands where a folder is wanted stays as open as he has made it.
void TestPermessi::unFileAlPostoDellaCartella()
{
    const QString File = Cartella + u"nota.odt"_s;
    ScriviFile(File, "testo");
    Imposta(File, 0644);
    for (const QString& Voluta : {File, File + u"/sotto"_s, File + u"/sotto/ancora"_s}) {
        QCOMPARE(NumeroErrore([&] { CreaCartellaDiUtente(Voluta); }), 75);
        QCOMPARE(int(Modo(File)), 0644);
        QCOMPARE(LeggiFile(File), "testo"_ba);
    }
}

void TestPermessi::ilSupportoDecide_data()
{
    QTest::addColumn<int>("Codice");
    QTest::addColumn<int>("Numero");
    QTest::newRow("knows nothing of it") << EOPNOTSUPP << 0;
    QTest::newRow("has no such call") << ENOSYS << 0;
    QTest::newRow("none that it keeps") << EINVAL << 0;
    QTest::newRow("refuses its owner") << EPERM << 0;
    QTest::newRow("may not be searched") << EACCES << 75;
    QTest::newRow("is read-only") << EROFS << 75;
}

/// A share that has its own say on permissions is written to all the same.
void TestPermessi::ilSupportoDecide()
{
    QFETCH(int, Codice);
    const QString File = Cartella + u"f"_s;
    const QScopedValueRollback Rifiuta(guasti::PermessiRifiutati, Codice);
    QTEST(NumeroErrore([&] { ScriviFile(File, "x", Lettori::SoloUtente); }), "Numero");
    QTEST(NumeroErrore([&] { (void)CreaFile(File + u"2"_s, "x", Lettori::Cartella); }), "Numero");
    QTEST(NumeroErrore([&] { CreaCartellaPrivata(Cartella + u"d"_s); }), "Numero");
    QCOMPARE(int(Modo(Cartella + u"d"_s)) & 0777, 0700);
    QCOMPARE(EsisteFile(File), Codice != EACCES && Codice != EROFS);
}

void TestPermessi::siLegge_data()
{
    QTest::addColumn<int>("Suo");
    QTest::addColumn<bool>("Attesa");
    QTest::newRow("the owner") << 0400 << true;
    QTest::newRow("the group") << 0040 << true;
    QTest::newRow("the others") << 0004 << true;
    QTest::newRow("writers alone") << 0222 << false;
    QTest::newRow("nobody") << 0 << false;
}

void TestPermessi::siLegge()
{
    QFETCH(int, Suo);
    const QString File = Cartella + u"nota.mdb"_s;
    ScriviFile(File, "x");
    Imposta(File, mode_t(Suo));
    QTEST(Leggibile(QFileInfo(File)), "Attesa");
}

void TestPermessi::diChiE()
{
    // A link of this user's to what is his, and one that another has put there.
    const QString Nome = Cartella + u"link"_s;
    QVERIFY(QFile::link(Cartella.chopped(1), Nome));
    QVERIFY(DiQuestoUtente(Nome) && DiQuestoUtente(Nome + u'/'));
    if (::geteuid() == 0 && ::lchown(QFile::encodeName(Nome).constData(), 54321, gid_t(-1)) == 0) {
        QVERIFY(!DiQuestoUtente(Nome));
        QVERIFY(!DiQuestoUtente(Nome + u'/'));
    }
    QVERIFY(DiQuestoUtente(Cartella));
    QVERIFY(!DiQuestoUtente(Cartella + u"nulla"_s));
    if (::geteuid() != 0)
        QVERIFY(!DiQuestoUtente(u"/"_s));
    else if (::chown(QFile::encodeName(Cartella).constData(), 54321, gid_t(-1)) == 0)
        QVERIFY(!DiQuestoUtente(Cartella));
}

void TestPermessi::dietroUnCollegamento()
{
    const QString Vero = Cartella + u"vero"_s;
    QVERIFY(QFile::link(Vero, Cartella + u"uno"_s));
    QVERIFY(QFile::link(Cartella + u"uno"_s, Cartella + u"due"_s));
    QCOMPARE(FileVero(Vero), Vero);
    QCOMPARE(FileVero(Cartella + u"due"_s), Vero);  // which is not there yet
    QVERIFY(QFile::link(Cartella + u"giro"_s, Cartella + u"giro"_s));
    (void)FileVero(Cartella + u"giro"_s);  // comes back
}

void TestPermessi::dietroUnaCartellaCollegata_data()
{
    QTest::addColumn<QString>("Testo");  // of the link, in the folder that another link leads to
    QTest::addColumn<QString>("Vero");
    QTest::addColumn<bool>("Presente");
    for (const bool Presente : {true, false}) {
        const char* Come = Presente ? "there" : "not there yet";
        QTest::addRow("one folder up, %s", Come) << u"../x.mdb"_s << u"vera/x.mdb"_s << Presente;
        QTest::addRow("beside it, %s", Come) << u"./x.mdb"_s << u"vera/sotto/x.mdb"_s << Presente;
        QTest::addRow("up and down, %s", Come) << u"../sotto/../x.mdb"_s << u"vera/x.mdb"_s << Presente;
        QTest::addRow("through another link, %s", Come) << u"altro.mdb"_s << u"vera/x.mdb"_s << Presente;
    }
}

/// A folder whose name is no text is reached by a link that has one, and so is what a link in it leads to.
void TestPermessi::dietroUnaCartellaSenzaNome()
{
    const QByteArray Vera = QFile::encodeName(Cartella) + "citt\xe0";
    if (::mkdir(Vera.constData(), 0700) != 0)
        QSKIP("every name is text here");
    const QString Collegata = Cartella + u"collegata/"_s;
    QVERIFY(::symlink(Vera.constData(), QFile::encodeName(Collegata.chopped(1)).constData()) == 0);
    QVERIFY(::symlink("x.mdb", (Vera + "/link.mdb").constData()) == 0);
    const QString Atteso = Collegata + u"x.mdb"_s;
    QCOMPARE(FileVero(Collegata + u"link.mdb"_s), Atteso);
    ScriviFile(Collegata + u"link.mdb"_s, "nuovo");
    QCOMPARE(LeggiFile(Atteso), "nuovo"_ba);
}

/// What a link says counts from where it truly stands, as the system follows it.
void TestPermessi::dietroUnaCartellaCollegata()
{
    QFETCH(QString, Testo);
    QFETCH(QString, Vero);
    QFETCH(bool, Presente);
    const QString Sotto = Cartella + u"vera/sotto"_s;
    const QString Atteso = QFileInfo(Cartella).canonicalFilePath() + u'/' + Vero;
    const auto Collega = [](const QString& A, const QString& Da) {
        return ::symlink(QFile::encodeName(A).constData(), QFile::encodeName(Da).constData()) == 0;
    };
    QVERIFY(QDir().mkpath(Sotto) && Collega(Sotto, Cartella + u"d"_s));
    QVERIFY(Collega(u"../x.mdb"_s, Sotto + u"/altro.mdb"_s));
    QVERIFY(Collega(Testo, Sotto + u"/link.mdb"_s));
    if (Presente)
        ScriviFile(Atteso, "vero");
    const QString Nome = Cartella + u"d/link.mdb"_s;
    QCOMPARE(FileVero(Nome), Atteso);
    ScriviFile(Nome, "nuovo");
    QCOMPARE(LeggiFile(Atteso), "nuovo"_ba);
    QVERIFY(QFileInfo(Nome).isSymLink());
}

#include "TestPermessi.moc"
