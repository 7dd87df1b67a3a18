// The list of saved notes as a script gets it.
#include "chiamata.h"

#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

class TestCliTrova : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void comeNelTrova_data();
    void comeNelTrova();
    void ilRecord();
    void rifiuta_data();
    void rifiuta();

private:
    void Crea(const QString& Nome, const QByteArray& Parti) const
    {
        const QString File = Radice + Nome;
        QDir().mkpath(CartellaFile(File));
        const QString Json = NuovaCartella() + u"d.json"_s;
        ScriviFile(Json, "{\"categoria\":\"CIV\",\"autorita\":2,\"valore\":30000,\"precarica\":false," +
                             Parti + "}");
        QCOMPARE(Chiama({u"crea"_s, Json, File}).Guasti, QString());
        QFile Aperto(File);
        QVERIFY(Aperto.open(QIODevice::ReadOnly));
        QVERIFY(Aperto.setFileTime(QDateTime({2026, 3, 5}, {10, 0}), QFileDevice::FileModificationTime));
    }
    [[nodiscard]] QString Kb(const QString& Nome) const
    {
        return QString::number((QFileInfo(Radice + Nome).size() + 1023) / 1024);
    }

    QString Radice;
};
PROVA(TestCliTrova);

void TestCliTrova::init()
{
    Radice = NuovaCartella();
    Crea(u"rossi 10.mdb"_s,
         "\"cliente\":\"Rossi Mario\",\"controparte\":\"Bianchi\",\"oggetto\":\"Sfratto\"");
    Crea(u"rossi 9.mdb"_s, "\"cliente\":\"Rossi Anna\"");
    Crea(u"sotto/verdi.mdb"_s, "\"cliente\":\"Verdi\"");
    ScriviFile(Radice + u"estraneo.mdb"_s, "x");
}

void TestCliTrova::comeNelTrova_data()
{
    QTest::addColumn<QStringList>("Valori");
    QTest::addColumn<QString>("Uscita");
    const QString Nove = u"rossi 9|05/03/2026|Rossi Anna||%1 KB|%2\n"_s;
    const QString Dieci = u"rossi 10|05/03/2026|Rossi Mario|Bianchi|%1 KB|%2\n"_s;
    const QString Due = u"Trovati 2 archivi in 1 cartelle per un totale di %3 KBytes\n"_s;
    QTest::newRow("a folder") << QStringList{} << u"[sotto]|DATA||||%2\n"_s + Nove + Dieci + Due;
    QTest::newRow("by a text, the folders behind")
        << QStringList{u"ROSSI"_s} << Nove + Dieci + u"[sotto]|DATA||||%2\n"_s + Due;
    QTest::newRow("the folders below too")
        << QStringList{QString(), u"1"_s}
        << Nove + Dieci + u"verdi|05/03/2026|Verdi||%1 KB|%2sotto/\n[sotto]|DATA||||%2\n"_s +
               u"Trovati 3 archivi in 2 cartelle per un totale di %4 KBytes\n"_s;
    QTest::newRow("none") << QStringList{u"bianchi"_s}
                          << u"[sotto]|DATA||||%2\n"
                             "Non è stata trovata alcuna parcella che soddisfi i criteri impostati\n"_s;
}

void TestCliTrova::comeNelTrova()
{
    QFETCH(QStringList, Valori);
    QFETCH(QString, Uscita);
    const Esito Fatto = Chiama(QStringList{u"trova"_s, Radice} + Valori);
    const qint64 Due =
        QFileInfo(Radice + u"rossi 9.mdb"_s).size() + QFileInfo(Radice + u"rossi 10.mdb"_s).size();
    const qint64 Tre = Due + QFileInfo(Radice + u"sotto/verdi.mdb"_s).size();
    QCOMPARE(Fatto.Guasti, QString());
    QCOMPARE(Fatto.Stato, 0);
    Uscita.replace(u"DATA"_s, QFileInfo(Radice + u"sotto"_s).lastModified().toString(u"dd/MM/yyyy"_s));
    Uscita.replace(u"%1"_s, Kb(u"rossi 9.mdb"_s)).replace(u"%2"_s, Radice);
    Uscita.replace(u"%3"_s, QString::number((Due + 1023) / 1024))
        .replace(u"%4"_s, QString::number((Tre + 1023) / 1024));
    QCOMPARE(Fatto.Uscita, Uscita);
}

void TestCliTrova::ilRecord()
{
    const Esito Fatto = Chiama({u"--json"_s, u"trova"_s, Radice});
    const QJsonObject Record = QJsonDocument::fromJson(Fatto.Uscita.toUtf8()).object();
    QCOMPARE(Record[u"archivi"_s].toInt(), 2);
    QCOMPARE(Record[u"percorse"_s].toInt(), 1);
    QCOMPARE(Record[u"cartelle"_s].toArray(), QJsonArray{Radice + u"sotto/"_s});
    const QJsonObject Dieci = Record[u"note"_s].toArray().at(1).toObject();
    QCOMPARE(Dieci[u"file"_s].toString(), Radice + u"rossi 10.mdb"_s);
    QCOMPARE(Dieci[u"oggetto"_s].toString(), u"Sfratto"_s);
    QCOMPARE(Dieci[u"modello"_s].toBool(true), false);
    QCOMPARE(Dieci[u"byte"_s].toInteger(), QFileInfo(Radice + u"rossi 10.mdb"_s).size());
}

void TestCliTrova::rifiuta_data()
{
    QTest::addColumn<QStringList>("Valori");
    QTest::addColumn<int>("Stato");
    QTest::addColumn<QString>("Guasti");
    QTest::newRow("no such folder") << QStringList{u"/manca/qui"_s} << 1
                                    << u"Errore: Percorso non trovato (76)\n"_s;
    QTest::newRow("neither 0 nor 1") << QStringList{u"."_s, QString(), u"2"_s} << 1
                                     << u"Errore: sottocartelle: «2» non è 0 né 1 (13)\n"_s;
    QTest::newRow("without a folder")
        << QStringList{} << 2 << u"Uso: calcanova-cli trova CARTELLA [TESTO [SOTTOCARTELLE]]\n"_s;
}

void TestCliTrova::rifiuta()
{
    QFETCH(QStringList, Valori);
    const Esito Fatto = Chiama(QStringList{u"trova"_s} + Valori);
    QTEST(Fatto.Stato, "Stato");
    QTEST(Fatto.Guasti, "Guasti");
    QCOMPARE(Fatto.Uscita, QString());
}

#include "TestCliTrova.moc"
