// The number in the head of a note's file, by which file managers know it; and files of a newer version,
// which bear it too.
#include "file_prova.h"

#include "feenote/file/modScrittura.h"
#include "platform/base/numerierrore.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "supporto/registratore.h"

#include <QtEndian>

using namespace Qt::StringLiterals;

class TestSpecie : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void parcellaEModello_data();
    void parcellaEModello();
    void laPrimaSalvataLaDa();
    void versioneNuova_data();
    void versioneNuova();
    void altraOrigine();
    void versioneNuovaIllegibile_data();
    void versioneNuovaIllegibile();
};
PROVA(TestSpecie);

namespace {

const QString Avviso =
    u"Attenzione, la parcella è stata scritta da una versione più recente del programma! I dati che "
    u"questa\nversione non conosce non vengono mostrati, e andrebbero perduti salvandola."_s;

/// The number where other programs look for it: at byte 68, the highest byte first.
quint32 NellaTesta(const QString& File)
{
    return qFromBigEndian<quint32>(LeggiFile(File).constData() + 68);
}

}  // namespace

void TestSpecie::parcellaEModello_data()
{
    QTest::addColumn<bool>("Modello");
    QTest::newRow("a note") << false;
    QTest::newRow("a template") << true;
}

void TestSpecie::parcellaEModello()
{
    QFETCH(bool, Modello);
    const Studio Ufficio;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaPiena(), Modello);
    QCOMPARE(NellaTesta(File), quint32(0x43616C6E));
    QCOMPARE(LeggiFile(File).left(16), QByteArray("SQLite format 3\0", 16));
    QCOMPARE(NellaTesta(ProgrammaDiProva() + u"parcelle.mdb"_s), 0U);
    QCOMPARE(NellaTesta(ProgrammaDiProva() + u"DatiStudio.mdb"_s), 0U);
}

void TestSpecie::laPrimaSalvataLaDa()
{
    const Studio Ufficio;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaPiena());
    OpenDatabase(File).ImpostaSpecie(0);  // as every version before has left it
    QCOMPARE(NellaTesta(File), 0U);
    const Registratore Box;
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.txtCliente.Testo, u"Rossi Mario"_s);
    QCOMPARE(NellaTesta(File), 0U);  // reading changes nothing
    ScriviNota(File, Letta);
    QCOMPARE(NellaTesta(File), quint32(SpecieNota));
}

void TestSpecie::versioneNuova_data()
{
    QTest::addColumn<QString>("Sql");
    QTest::newRow("a column of the parameters") << u"ALTER TABLE ParcellaParam ADD Mediazione TEXT"_s;
    QTest::newRow("a column of the lines") << u"ALTER TABLE ParcellaRighe ADD Fase TEXT"_s;
    QTest::newRow("a column of the payments") << u"ALTER TABLE ParcellaAcconti ADD Conto TEXT"_s;
    QTest::newRow("a value beside them") << QString();
}

void TestSpecie::versioneNuova()
{
    QFETCH(QString, Sql);
    const Studio Ufficio;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaPiena());
    if (Sql.isEmpty()) {
        const Database Nuova = OpenDatabase(File);
        QMap<QString, QString> Valori = Nuova.Annotazioni();
        Valori[u"Mediazione"_s] = u"1"_s;
        Nuova.Annota(Valori);
    } else {
        EseguiSu(File, Sql);
    }
    Registratore Box;
    Box.Attendi(Avviso, vbOK, u"Avvertenza:"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.txtCliente.Testo, u"Rossi Mario"_s);
    QCOMPARE(Letta.xOnorari.Righe(), NotaPiena().xOnorari.Righe());
}

void TestSpecie::altraOrigine()
{
    // Without the number a further column is some other program's, and nothing to be told.
    const Studio Ufficio;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaPiena());
    EseguiSu(File, u"ALTER TABLE ParcellaParam ADD Mediazione TEXT"_s);
    OpenDatabase(File).ImpostaSpecie(0);
    const Registratore Box;
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.txtCliente.Testo, u"Rossi Mario"_s);
}

void TestSpecie::versioneNuovaIllegibile_data()
{
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<bool>("Specie");
    QTest::addColumn<int>("Numero");
    const QString Parametri = u"ALTER TABLE ParcellaParam RENAME TO Parametri"_s;
    const QString Colonna = u"ALTER TABLE ParcellaParam DROP COLUMN Categ"_s;
    QTest::newRow("its parameters stand elsewhere") << Parametri << true << errori::TabellaMancante;
    QTest::newRow("a column that every file had") << Colonna << true << errori::ElementoMancante;
    QTest::newRow("its lines stand elsewhere")
        << u"ALTER TABLE ParcellaRighe RENAME TO Righe"_s << true << errori::TabellaMancante;
    QTest::newRow("a file of another origin") << Parametri << false << errori::TabellaMancante;
    QTest::newRow("the same without a column") << Colonna << false << errori::ElementoMancante;
}

void TestSpecie::versioneNuovaIllegibile()
{
    QFETCH(QString, Sql);
    QFETCH(bool, Specie);
    QFETCH(int, Numero);
    const Studio Ufficio;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaPiena());
    EseguiSu(File, Sql);
    if (!Specie)
        OpenDatabase(File).ImpostaSpecie(0);
    const Registratore Box;
    Parcella Letta;
    const ErroreVisto Guasto = ErroreDi([&] { CaricaDati(Letta, File); });
    QCOMPARE(Guasto.Numero, Numero);
    const QString Attesa = Specie ? u"La parcella è stata scritta da una versione più recente del "
                                    "programma: per aprirla occorre aggiornarlo"_s
                                  : DescrizioneErrore(Numero);
    QVERIFY2(Guasto.Descrizione.startsWith(Attesa), qPrintable(Guasto.Descrizione));
    QCOMPARE(Letta.Percorso, QString());
}

#include "TestSpecie.moc"
