// A note from outside that is small and would be large in memory, or keeps what is not the program's.
#include "file_prova.h"

#include "feenote/file/improntanota.h"
#include "feenote/file/memorianota.h"
#include "feenote/file/modSalvataggio.h"
#include "feenote/modStato.h"
#include "platform/system/file.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

class TestNotaOstile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void righeSenzaFine_data();
    void righeSenzaFine();
    void moltoTestoSiLegge();
    void importiCheNonSiLeggono_data();
    void importiCheNonSiLeggono();
    void memoriaCalcolata();
    void memoriaDiUnAltro();

private:
    QString File;
};
PROVA(TestNotaOstile);

void TestNotaOstile::init()
{
    File = NuovaCartella() + u"nota.mdb"_s;
}

void TestNotaOstile::righeSenzaFine_data()
{
    QTest::addColumn<QString>("Tabella");
    QTest::addColumn<QString>("Colonna");
    QTest::newRow("a text") << u"ParcellaRighe"_s << u"Descr"_s;
    QTest::newRow("a day") << u"ParcellaRighe"_s << u"Data"_s;
    QTest::newRow("an amount of a payment") << u"ParcellaAcconti"_s << u"Corr"_s;
}

/// A column that is added gives its default to every row, which the file holds once.
void TestNotaOstile::righeSenzaFine()
{
    QFETCH(QString, Tabella);
    QFETCH(QString, Colonna);
    const Studio Ufficio;
    const Registratore Messaggi;
    ScriviNota(File, NotaPiena());
    EseguiSu(File, u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<2000) "
                   "INSERT INTO %1 SELECT %1.* FROM %1, n"_s.arg(Tabella));
    EseguiSu(File, u"ALTER TABLE %1 DROP COLUMN %2"_s.arg(Tabella, Colonna));
    EseguiSu(File, u"ALTER TABLE %1 ADD COLUMN %2 TEXT DEFAULT '%3'"_s.arg(Tabella, Colonna,
                                                                           QString(900'000, u'x')));
    QVERIFY(QFileInfo(File).size() < 3'000'000);
    Parcella Letta;
    QElapsedTimer Orologio;
    Orologio.start();
    const ErroreVisto Guasto = ErroreDi([&] { CaricaDati(Letta, File); });
    QCOMPARE(Guasto.Descrizione, u"La parcella contiene troppi dati"_s);
    QVERIFY2(Orologio.elapsed() < 3000, qPrintable(QString::number(Orologio.elapsed())));
}

/// What a note really holds is no matter of this limit.
void TestNotaOstile::moltoTestoSiLegge()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    Parcella Nota = NotaPiena();
    Nota.txtOggetto.Testo = u"oggetto "_s.repeated(100'000);
    while (Nota.xDiritti.Righe() < 2000)
        Nota.xDiritti.AggiungiRiga();
    for (int i = 0; i < Nota.xDiritti.Righe(); ++i)
        Nota.xDiritti(i, DirDescr) = QString(MassimoDescr, u'à');
    ScriviNota(File, Nota);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.xDiritti.Righe(), 2000);
    QCOMPARE(Letta.xDiritti(1999, DirDescr).toString().size(), MassimoDescr);
}

void TestNotaOstile::importiCheNonSiLeggono_data()
{
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<int>("Quanti");
    QTest::newRow("none") << QString() << 0;
    QTest::newRow("a number as text") << u"UPDATE ParcellaAcconti SET Corr=' 1,5 '"_s << 0;
    QTest::newRow("nothing") << u"UPDATE ParcellaAcconti SET Corr='', SpImp=NULL"_s << 0;
    QTest::newRow("a payment") << u"UPDATE ParcellaAcconti SET Corr='mille' WHERE rowid=1"_s << 1;
    QTest::newRow("fees") << u"UPDATE ParcellaRighe SET Importo='1,2,3', Imp1='x' "
                             "WHERE rowid=(SELECT min(rowid) FROM ParcellaRighe WHERE OnoDir='O')"_s
                          << 2;
    QTest::newRow("an expense") << u"UPDATE ParcellaRighe SET Importo='- -' "
                                   "WHERE rowid=(SELECT min(rowid) FROM ParcellaRighe WHERE OnoDir='D')"_s
                                << 1;
}

/// The note opens, says what stands as 0, and counts as changed: nothing of it goes into its file unasked.
void TestNotaOstile::importiCheNonSiLeggono()
{
    QFETCH(QString, Sql);
    QFETCH(int, Quanti);
    const Studio Ufficio;
    Registratore Messaggi;
    ScriviNota(File, NotaPiena());
    if (!Sql.isEmpty())
        EseguiSu(File, Sql);
    if (Quanti == 1)
        Messaggi.Attendi(u"Attenzione, un importo della parcella non si legge: al suo posto è 0.\n"
                         u"Prima di salvarla occorre scriverlo di nuovo."_s,
                         vbOK, u"Avvertenza:"_s);
    else if (Quanti > 1)
        Messaggi.Attendi(u"Attenzione, 2 importi della parcella non si leggono: al loro posto è 0.\n"
                         u"Prima di salvarla occorre scriverli di nuovo."_s,
                         vbOK, u"Avvertenza:"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.Modificata, Quanti > 0);
    QCOMPARE(Letta.xAcconti.Righe(), NotaPiena().xAcconti.Righe());
}

void TestNotaOstile::memoriaCalcolata()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Messaggi.Tollera();
    ScriviNota(File, NotaPiena());
    EseguiSu(File, u"DROP TABLE \"_Calcanova\""_s);
    EseguiSu(File, u"CREATE TABLE \"_Calcanova\" (Nome TEXT, Valore TEXT GENERATED ALWAYS AS "
                   "(hex(zeroblob(8000000))))"_s);
    EseguiSu(File, u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<900) "
                   "INSERT INTO \"_Calcanova\" (Nome) SELECT i FROM n"_s);
    QElapsedTimer Orologio;
    Orologio.start();
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.txtOggetto.Testo, NotaPiena().txtOggetto.Testo);
    QVERIFY2(Orologio.elapsed() < 3000, qPrintable(QString::number(Orologio.elapsed())));
}

/// The state of a print goes into the file without a question: not over what another program keeps there.
void TestNotaOstile::memoriaDiUnAltro()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Messaggi.Tollera();
    ScriviNota(File, NotaPiena());
    EseguiSu(File, u"DROP TABLE \"_Calcanova\""_s);
    EseguiSu(File, u"CREATE TABLE \"_Calcanova\" (Chiave TEXT, Dato TEXT)"_s);
    EseguiSu(File, u"INSERT INTO \"_Calcanova\" VALUES ('prezioso','x')"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QVERIFY(NotaInviata(Letta, StampaPrenotula));
    const QByteArray Era = LeggiFile(File);
    QCOMPARE(ScriviSoloStato(Letta, [] { return true; }), EsitoStato::Fallito);
    QCOMPARE(ScriviSoloFattura(Letta, [] { return true; }), EsitoStato::Fallito);
    QCOMPARE(LeggiFile(File), Era);
}

#include "TestNotaOstile.moc"
