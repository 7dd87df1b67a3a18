// Recovery copies are one user's: where they stand, and who may read them.
#include "file_prova.h"

#include "feenote/file/modRecupero.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "supporto/guasti.h"

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class TestRecuperoPermessi : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void delSoloUtente();
    void nellaCartellaDiUnCollega_data();
    void nellaCartellaDiUnCollega();
};
PROVA(TestRecuperoPermessi);

namespace {

int Modo(const QString& File)
{
    struct stat Suo = {};
    return ::stat(QFile::encodeName(File).constData(), &Suo) == 0 ? int(Suo.st_mode & 0777) : 0;
}

}  // namespace

void TestRecuperoPermessi::delSoloUtente()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    const mode_t Prima = ::umask(0);
    sessione::UserFolder = NuovaCartella();
    const QString Copie = sessione::UserFolder + u"recupero/"_s;
    // One from before, open to everybody, becomes the user's.
    CreaCartella(Copie);
    QVERIFY(::chmod(QFile::encodeName(Copie).constData(), 0777) == 0);
    AggiornaCopia(NotaPiena(), 1);
    ::umask(Prima);
    QCOMPARE(Modo(Copie), 0700);
    const QStringList Note = NomiDeiFile(Copie, u".mdb"_s);
    QCOMPARE(Note.size(), 1);
    QCOMPARE(Modo(Copie + Note.first()), 0600);
    // What stands beside a copy names the note and its place.
    const QStringList Lati = NomiDeiFile(Copie, u".json"_s);
    QCOMPARE(Lati.size(), 1);
    QCOMPARE(Modo(Copie + Lati.first()), 0600);
    TogliCopia(1);
    LasciaRecupero();
}

void TestRecuperoPermessi::nellaCartellaDiUnCollega_data()
{
    QTest::addColumn<bool>("ConLeSue");
    QTest::newRow("his copies stand there") << true;
    QTest::newRow("he lets nobody write there") << false;
}

void TestRecuperoPermessi::nellaCartellaDiUnCollega()
{
    QFETCH(bool, ConLeSue);
    const Studio Ufficio;
    const Registratore Messaggi;
    sessione::UserFolder = NuovaCartella();
    const QString Sue = sessione::UserFolder + u"recupero/"_s;
    const CartellaChiusa Chiusa(ConLeSue ? (CreaCartella(Sue), Sue) : sessione::UserFolder);
    AggiornaCopia(NotaPiena(), 1);
    const QString Proprie = CartellaDati() + u"recupero/"_s;
    QCOMPARE(NomiDeiFile(Proprie, u".mdb"_s).size(), 1);
    QCOMPARE(Modo(Proprie), 0700);
    QVERIFY(ContenutoDi(Sue).isEmpty());
    // As the next start finds it, once this process is no more.
    const QString Copia = Proprie + NomiDeiFile(Proprie, u".mdb"_s).first();
    QVERIFY(NoteDaRecuperare().isEmpty());
    LasciaRecupero();
    const QList<CopiaRecupero> Trovate = NoteDaRecuperare();
    QCOMPARE(Trovate.size(), 1);
    QCOMPARE(Trovate.first().File, Copia);
    Parcella Ripresa;
    RecuperaNota(Ripresa, Trovate.first());
    QCOMPARE(Ripresa.txtCliente.Testo, u"Rossi Mario"_s);
    EliminaCopia(Trovate.first());
}

#include "TestRecuperoPermessi.moc"
