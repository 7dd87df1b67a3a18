// The names of an archive as a script gets them.
#include "chiamata.h"
#include "supporto/maschera.h"

#include "platform/database/database.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

class TestCliRubrica : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void comeIlFiltro_data();
    void comeIlFiltro();
    void ilRecord();
    void inUnFile();
    void rifiuta_data();
    void rifiuta();

private:
    [[nodiscard]] Esito Rubrica(const QStringList& Valori) const
    {
        return Chiama(QStringList{u"rubrica"_s} + Valori + QStringList{u"--archivio"_s, File});
    }
    QString File;
};
PROVA(TestCliRubrica);

void TestCliRubrica::init()
{
    File = NuovaCartella() + u"studio.mdb"_s;
    const Database Db = CreateDatabase(File);
    Db.CreaTabella(u"clienti"_s, {{u"ID"_s, TipoCampo::Lungo, 0, {}, true},
                                  {u"Nominativo"_s, TipoCampo::Testo, 60, {}, false},
                                  {u"Segreto"_s, TipoCampo::Testo, 60, u"V=N"_s, false},
                                  {u"Socio"_s, TipoCampo::Booleano, 0, {}, false},
                                  {u"Note"_s, TipoCampo::Memo, 0, {}, false}});
    Db.Execute(
        u"INSERT INTO clienti (Nominativo, Segreto, Socio, Note) VALUES ('Nicolò Rossi', 'x', -1, ?)"_s,
        {u"prima\nseconda"_s});
    Db.Execute(u"INSERT INTO clienti (Nominativo) VALUES ('rossi Anna')"_s);
}

void TestCliRubrica::comeIlFiltro_data()
{
    QTest::addColumn<QStringList>("Valori");
    QTest::addColumn<QString>("Uscita");
    const QString Nicolo = u"1|Nicolò Rossi|Sì|prima seconda\n"_s;
    const QString Anna = u"2|rossi Anna|No|\n"_s;
    QTest::newRow("all") << QStringList{u"clienti"_s} << Nicolo + Anna + u"2 di 2\n"_s;
    QTest::newRow("words") << QStringList{u"CLIENTI"_s, u"ROSSI nicolo"_s} << Nicolo + u"1 di 2\n"_s;
    QTest::newRow("across a line break") << QStringList{u"clienti"_s, u"seconda"_s} << Nicolo + u"1 di 2\n"_s;
    QTest::newRow("not in a hidden column") << QStringList{u"clienti"_s, u"x"_s} << u"0 di 2\n"_s;
}

void TestCliRubrica::comeIlFiltro()
{
    QFETCH(QStringList, Valori);
    const Esito Fatto = Rubrica(Valori);
    QCOMPARE(Fatto.Guasti, QString());
    QCOMPARE(Fatto.Stato, 0);
    QTEST(Fatto.Uscita, "Uscita");
}

void TestCliRubrica::ilRecord()
{
    const Esito Fatto = Rubrica({u"clienti"_s, u"nicolo"_s, u"--json"_s});
    const QJsonObject Record = QJsonDocument::fromJson(Fatto.Uscita.toUtf8()).object();
    QCOMPARE(Record[u"tutti"_s].toInt(), 2);
    QCOMPARE(Record[u"nominativi"_s].toArray(), (QJsonArray{QJsonObject{{u"ID"_s, u"1"_s},
                                                                        {u"Nominativo"_s, u"Nicolò Rossi"_s},
                                                                        {u"Socio"_s, u"Sì"_s},
                                                                        {u"Note"_s, u"prima\nseconda"_s}}}));
}

/// The rows that the words leave, as a spreadsheet and as cards; nobody else reads the file.
void TestCliRubrica::inUnFile()
{
    const QString Csv = NuovaCartella() + u"nomi.csv"_s;
    ApriAlGruppo(CartellaFile(Csv));
    const Esito Fatto = Rubrica({u"clienti"_s, u"nicolo"_s, u"--csv"_s, Csv});
    QCOMPARE(Fatto.Guasti, QString());
    QCOMPARE(Fatto.Uscita, u"1\n"_s);
    QCOMPARE(
        LeggiFile(Csv),
        QByteArray(
            "\xEF\xBB\xBFNominativo;Socio;Note\r\nNicol\xC3\xB2 Rossi;S\xC3\xAC;\"prima\nseconda\"\r\n"));
    QCOMPARE(QFileInfo(Csv).permissions() & DiAltri, QFile::Permissions());
    const QString Vcf = NuovaCartella() + u"nomi.vcf"_s;
    QCOMPARE(Rubrica({u"clienti"_s, u"--vcard"_s, Vcf}).Uscita, u"2\n"_s);
    QCOMPARE(LeggiFile(Vcf).count("BEGIN:VCARD"), 2);
    // No card without a name: what is told is what stands in the file.
    OpenDatabase(File).Execute(u"UPDATE clienti SET Nominativo=' ' WHERE ID=1"_s);
    const QString Una = NuovaCartella() + u"nomi.vcf"_s;
    QCOMPARE(Rubrica({u"clienti"_s, u"--vcard"_s, Una}).Uscita, u"1\n1 senza nome, tralasciato\n"_s);
    QCOMPARE(LeggiFile(Una).count("BEGIN:VCARD"), 1);
    const QString Ancora = NuovaCartella() + u"nomi.vcf"_s;
    const QJsonObject Record =
        QJsonDocument::fromJson(Rubrica({u"clienti"_s, u"--vcard"_s, Ancora, u"--json"_s}).Uscita.toUtf8())
            .object();
    QCOMPARE(Record[u"esportati"_s].toInt(), 1);
    QCOMPARE(Record[u"senzaNome"_s].toInt(), 1);
    QCOMPARE(Chiama({u"lettere"_s, u"1"_s, u"--csv"_s, Csv}).Stato, 2);
}

void TestCliRubrica::rifiuta_data()
{
    QTest::addColumn<QStringList>("Argomenti");
    QTest::addColumn<int>("Stato");
    QTest::addColumn<QString>("Guasto");
    QTest::newRow("no table") << QStringList{u"rubrica"_s} << 2 << QString();
    QTest::newRow("another table") << QStringList{u"rubrica"_s, u"amici"_s, u"--archivio"_s, u"FILE"_s} << 1
                                   << u"(3078)"_s;
    QTest::newRow("no archive") << QStringList{u"rubrica"_s, u"clienti"_s, u"--archivio"_s,
                                               u"/nessuna/studio.mdb"_s}
                                << 1 << u"(3024)"_s;
    QTest::newRow("option without its file")
        << QStringList{u"rubrica"_s, u"clienti"_s, u"--archivio"_s} << 2 << u"--archivio"_s;
}

void TestCliRubrica::rifiuta()
{
    QFETCH(QStringList, Argomenti);
    QFETCH(QString, Guasto);
    Argomenti.replaceInStrings(u"FILE"_s, File);
    const Esito Fatto = Chiama(Argomenti);
    QTEST(Fatto.Stato, "Stato");
    QVERIFY2(Fatto.Guasti.contains(Guasto), qPrintable(Fatto.Guasti));
    QCOMPARE(Fatto.Uscita, QString());
}

#include "TestCliRubrica.moc"
