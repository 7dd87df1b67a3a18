// A native copy of an Access file, as a script asks for one.
#include "chiamata.h"

#include "platform/database/database.h"
#include "supporto/scrittoreaccess.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

class TestCliImporta : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void laCopia();
    void ilRecord();
    void ilNomeConUnPercento();
    void nonSovrascrive();
    void rifiuta_data();
    void rifiuta();

private:
    QString Cartella;
    QString File;
};
PROVA(TestCliImporta);

void TestCliImporta::init()
{
    Cartella = NuovaCartella();
    const TabellaScritta Clienti{
        .Nome = u"clienti"_s,
        .Colonne = {{.Nome = u"ID"_s, .Tipo = tipoaccess::Lungo, .Contatore = true},
                    {.Nome = u"Nominativo"_s, .Descrizione = u"L=Cognome e nome"_s},
                    {.Nome = u"Foto"_s, .Tipo = tipoaccess::Ole}},
        .Righe = {{4, u"Rossi Mario"_s, QVariant()}, {9, u"Bianchi Ada"_s, QVariant()}}};
    TabellaScritta Controparti = Clienti;
    Controparti.Nome = u"controparti"_s;
    Controparti.Righe = {};
    File = ScriviAccess(Cartella + u"Studio.mdb"_s, {.Tabelle = {Clienti, Controparti}});
}

void TestCliImporta::laCopia()
{
    const QString Copia = Cartella + u"nativo.mdb"_s;
    const Esito Detto = Chiama({u"importa"_s, File, Copia});
    QCOMPARE(Detto.Stato, 0);
    QCOMPARE(Detto.Uscita, u"clienti=2;controparti=0\n"_s);
    const Database Db = OpenDatabase(Copia);
    QCOMPARE(Db.Campi(u"clienti"_s)[1].Description, u"L=Cognome e nome"_s);
    Recordset Righe = Db.OpenRecordset(u"clienti"_s);
    Righe.FindFirst(u"ID=9"_s);
    QCOMPARE(Righe.Value(u"Nominativo"_s).toString(), u"Bianchi Ada"_s);
}

void TestCliImporta::ilNomeConUnPercento()
{
    const QString Sconti = ScriviAccess(
        Cartella + u"Sconti.mdb"_s, {.Tabelle = {{.Nome = u"Sconto %2"_s,
                                                  .Colonne = {{.Nome = u"ID"_s, .Tipo = tipoaccess::Lungo}},
                                                  .Righe = {{4}}}}});
    QCOMPARE(Chiama({u"importa"_s, Sconti, Cartella + u"sconti nativi.mdb"_s}).Uscita, u"Sconto %2=1\n"_s);
}

void TestCliImporta::ilRecord()
{
    const Esito Detto = Chiama({u"--json"_s, u"importa"_s, File, Cartella + u"nativo.mdb"_s});
    QCOMPARE(Detto.Stato, 0);
    const QJsonObject Record = QJsonDocument::fromJson(Detto.Uscita.toUtf8()).object();
    QCOMPARE(Record[u"tabelle"_s].toArray()[0].toObject(),
             (QJsonObject{{u"nome"_s, u"clienti"_s}, {u"righe"_s, 2}}));
    QCOMPARE(Record[u"tralasciati"_s].toArray()[0].toObject(),
             (QJsonObject{{u"cosa"_s, u"clienti.Foto"_s}, {u"perche"_s, u"oggetto OLE"_s}}));
}

void TestCliImporta::nonSovrascrive()
{
    QFile Presente(Cartella + u"nativo.mdb"_s);
    QVERIFY(Presente.open(QIODevice::ReadWrite));
    QCOMPARE(Presente.write("mio"), 3);
    Presente.close();
    const Esito Detto = Chiama({u"importa"_s, File, Presente.fileName()});
    QCOMPARE(Detto.Stato, 1);
    QVERIFY2(Detto.Guasti.contains(u"(3204)"_s), qPrintable(Detto.Guasti));
    QVERIFY(Presente.open(QIODevice::ReadOnly));
    QCOMPARE(Presente.readAll(), "mio");
}

void TestCliImporta::rifiuta_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Atteso");
    QTest::newRow("missing") << u"manca.mdb"_s << u"(53)"_s;
    QTest::newRow("native") << u"altro.mdb"_s << u"non è un archivio di Access (3343)"_s;
    QTest::newRow("cut") << u"tagliato.mdb"_s << u"copiarlo di nuovo dall'originale (3343)"_s;
}

void TestCliImporta::rifiuta()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Atteso);
    {
        (void)CreateDatabase(Cartella + u"altro.mdb"_s);
    }
    QFile Intero(File);
    QVERIFY(Intero.open(QIODevice::ReadOnly));
    QFile Tagliato(Cartella + u"tagliato.mdb"_s);
    QVERIFY(Tagliato.open(QIODevice::WriteOnly));
    QVERIFY(Tagliato.write(Intero.read(6000)) == 6000);
    Tagliato.close();
    const Esito Detto = Chiama({u"importa"_s, Cartella + Nome, Cartella + u"nativo.mdb"_s});
    QCOMPARE(Detto.Stato, 1);
    QVERIFY2(Detto.Guasti.contains(Atteso), qPrintable(Detto.Guasti));
    QVERIFY(!QFile::exists(Cartella + u"nativo.mdb"_s));
}

#include "TestCliImporta.moc"
