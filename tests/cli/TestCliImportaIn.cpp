// Names of any file into the archive, as a script takes them in.
#include "chiamata.h"

#include "platform/database/database.h"
#include "platform/system/file.h"
#include "supporto/scrittoreaccess.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

class TestCliImportaIn : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void siAggiungono();
    void laProva();
    void daAccess();
    void rifiuta_data();
    void rifiuta();

private:
    [[nodiscard]] Esito Importa(const QStringList& Valori) const
    {
        return Chiama(QStringList{u"importa"_s} + Valori + QStringList{u"--archivio"_s, Archivio});
    }
    [[nodiscard]] QStringList Nomi(const QString& Tabella = u"clienti"_s) const
    {
        QStringList Tutti;
        for (Recordset R = OpenDatabase(Archivio, true).OpenRecordset(Tabella); !R.Eof(); R.MoveNext())
            Tutti.append(R.Value(u"Nominativo"_s).toString());
        return Tutti;
    }
    QString Cartella;
    QString Archivio;
    QString File;
};
PROVA(TestCliImportaIn);

void TestCliImportaIn::init()
{
    Cartella = NuovaCartella();
    Archivio = Cartella + u"studio.mdb"_s;
    QFile::copy(ProgrammaDiProva() + u"DatiStudio.mdb"_s, Archivio);
    QFile::setPermissions(Archivio, QFile::ReadOwner | QFile::WriteOwner);
    File = Cartella + u"nomi.csv"_s;
    ScriviFile(File, "Cognome;Nome;Fax\nRossi;Mario;1\n;;2\n");
}

void TestCliImportaIn::siAggiungono()
{
    const Esito Fatto = Importa({File, u"--in"_s, u"clienti"_s});
    QCOMPARE(Fatto.Guasti, QString());
    QCOMPARE(Fatto.Stato, 0);
    QCOMPARE(Fatto.Uscita, u"1 nominativo aggiunto, 1 senza nome, tralasciato.\n"_s);
    QCOMPARE(Nomi(), QStringList{u"Rossi Mario"_s});
    // The same file again doubles nothing.
    const QJsonObject Detto =
        QJsonDocument::fromJson(Importa({File, u"--in"_s, u"clienti"_s, u"--json"_s}).Uscita.toUtf8())
            .object();
    QCOMPARE(Detto[u"presenti"_s].toInt(), 1);
    QCOMPARE(Detto[u"aggiunti"_s].toInt(), 0);
    QCOMPARE(Detto[u"colonne"_s].toObject()[u"Cognome"_s].toString(), u"+Cognome"_s);
    QCOMPARE(Detto[u"colonne"_s].toObject()[u"Fax"_s].toString(), QString());
    QCOMPARE(Detto[u"avvisi"_s].toArray().first().toString(), u"riga 3: senza nome, tralasciata"_s);
    QCOMPARE(Nomi(), QStringList{u"Rossi Mario"_s});
    QCOMPARE(Nomi(u"controparti"_s), QStringList());
}

void TestCliImportaIn::laProva()
{
    const QByteArray Prima = LeggiFile(Archivio);
    const Esito Fatto = Importa({File, u"--in"_s, u"controparti"_s, u"--prova"_s});
    QCOMPARE(Fatto.Uscita, u"1 nominativo da aggiungere, 1 senza nome, tralasciato.\n"_s);
    QCOMPARE(LeggiFile(Archivio), Prima);
    QVERIFY(!QFile::exists(Archivio + u".prima"_s));
}

void TestCliImportaIn::daAccess()
{
    const QString Vecchio =
        ScriviAccess(Cartella + u"vecchio.mdb"_s, {.Tabelle = {{.Nome = u"controparti"_s,
                                                                .Colonne = {{.Nome = u"Nominativo"_s}},
                                                                .Righe = {{u"Gamma Spa"_s}}}}});
    const Esito Fatto = Importa({Vecchio, u"--in"_s, u"controparti"_s, u"--utente"_s, NuovaCartella()});
    QCOMPARE(Fatto.Guasti, QString());
    QCOMPARE(Nomi(u"controparti"_s), QStringList{u"Gamma Spa"_s});
}

void TestCliImportaIn::rifiuta_data()
{
    QTest::addColumn<QStringList>("Valori");
    QTest::addColumn<int>("Stato");
    QTest::addColumn<QString>("Guasto");
    QTest::newRow("no table for the archive")
        << QStringList{u"FILE"_s, u"x.mdb"_s} << 2
        << u"Con il comando importa l'opzione --archivio vale solo con --in."_s;
    QTest::newRow("a target beside the table") << QStringList{u"FILE"_s, u"x.mdb"_s, u"--in"_s, u"clienti"_s}
                                               << 2 << u"Uso: calcanova-cli importa"_s;
    QTest::newRow("no table") << QStringList{u"FILE"_s, u"--in"_s, u"amici"_s} << 1 << u"(3078)"_s;
    QTest::newRow("no file") << QStringList{u"/nulla.csv"_s, u"--in"_s, u"clienti"_s} << 1 << u"(53)"_s;
    QTest::newRow("a trial of nothing")
        << QStringList{u"FILE"_s, u"x.mdb"_s, u"--prova"_s} << 2 << u"--prova"_s;
    QTest::newRow("nothing that is a name") << QStringList{u"FAX"_s, u"--in"_s, u"clienti"_s} << 1
                                            << u"Nessuna colonna del file va nel nominativo"_s;
}

void TestCliImportaIn::rifiuta()
{
    QFETCH(QStringList, Valori);
    QFETCH(QString, Guasto);
    ScriviFile(Cartella + u"fax.csv"_s, "Fax;Tel\n1;2\n");
    Valori.replaceInStrings(u"FILE"_s, File).replaceInStrings(u"FAX"_s, Cartella + u"fax.csv"_s);
    const QByteArray Prima = LeggiFile(Archivio);
    const Esito Fatto = Importa(Valori);
    QTEST(Fatto.Stato, "Stato");
    QVERIFY2(Fatto.Guasti.contains(Guasto), qPrintable(Fatto.Guasti));
    QCOMPARE(LeggiFile(Archivio), Prima);
}

#include "TestCliImportaIn.moc"
