#include "banco.h"

#include "update/controllotassi.h"

class TestControlloTassi : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void buoni_data();
    void buoni();
    void guasti_data();
    void guasti();
    void tuttiIPezzi();
    void ilPresenteNonConta();

private:
    QString Presente;
};
PROVA(TestControlloTassi);

namespace {

/// A copy of the delivered archive after some statements.
QString Copia(const QStringList& Sql = {})
{
    const QString File = NuovaCartella() + u"Tassi.dat"_s;
    QFile::copy(ProgrammaDiProva() + u"Tassi.dat"_s, File);
    const Database Archivio = OpenDatabase(File);
    for (const QString& Comando : Sql)
        Archivio.Execute(Comando);
    return File;
}

}  // namespace

void TestControlloTassi::initTestCase()
{
    Presente = Copia();
}

void TestControlloTassi::buoni_data()
{
    QTest::addColumn<QStringList>("Sql");

    QTest::newRow("the same") << QStringList();
    QTest::newRow("a month more") << QStringList{
        u"INSERT INTO IndiciIstat (Anno, Mese, Indice) VALUES (2030, 1, 1)"_s};
    QTest::newRow("a rate more") << QStringList{
        u"INSERT INTO InteressiLegali (Dal, Al, Tasso) VALUES ('2030-01-01', '2030-12-31', 1.5)"_s};
    QTest::newRow("the last rate has no end") << QStringList{
        u"UPDATE InteressiMora SET Al = NULL WHERE Dal = (SELECT MAX(Dal) FROM InteressiMora)"_s};
    QTest::newRow("an older row less")
        << QStringList{u"DELETE FROM InteressiLegali WHERE Dal = (SELECT MIN(Dal) FROM InteressiLegali)"_s};
}

void TestControlloTassi::buoni()
{
    QFETCH(QStringList, Sql);
    QCOMPARE(DifettoTassi(Copia(Sql), Presente), QString());
}

void TestControlloTassi::guasti_data()
{
    QTest::addColumn<QStringList>("Sql");
    QTest::addColumn<QString>("Difetto");

    const QString Estraneo = u"il file non è un archivio di tassi"_s;
    for (const QString& Tabella :
         {u"InteressiLegali"_s, u"InteressiMora"_s, u"IndiciIstat"_s, u"CoefficientiRaccordo"_s}) {
        QTest::newRow(qPrintable(u"without "_s + Tabella))
            << QStringList{u"DROP TABLE "_s + Tabella} << Estraneo;
        QTest::newRow(qPrintable(u"empty "_s + Tabella))
            << QStringList{u"DELETE FROM "_s + Tabella} << u"la tabella "_s + Tabella + u" è vuota"_s;
    }
    QTest::newRow("a column less") << QStringList{u"ALTER TABLE InteressiMora DROP COLUMN Tasso"_s}
                                   << Estraneo;
    QTest::newRow("a month less")
        << QStringList{u"DELETE FROM IndiciIstat WHERE Anno*100+Mese = (SELECT MAX(Anno*100+Mese) FROM IndiciIstat)"_s}
        << u"la tabella IndiciIstat finisce prima di quella in uso"_s;
    QTest::newRow("a default rate less")
        << QStringList{u"DELETE FROM InteressiMora WHERE Dal = (SELECT MAX(Dal) FROM InteressiMora)"_s}
        << u"la tabella InteressiMora finisce prima di quella in uso"_s;
    QTest::newRow("a day less") << QStringList{u"UPDATE InteressiLegali SET Al = date(Al, '-1 day') WHERE "
                                               u"Dal = (SELECT MAX(Dal) FROM "
                                               u"InteressiLegali)"_s}
                                << u"la tabella InteressiLegali finisce prima di quella in uso"_s;
    QTest::newRow("coefficients that end before")
        << QStringList{u"DELETE FROM CoefficientiRaccordo WHERE DataFin_Al = (SELECT MAX(DataFin_Al) FROM "
                       u"CoefficientiRaccordo)"_s}
        << u"la tabella CoefficientiRaccordo finisce prima di quella in uso"_s;
}

void TestControlloTassi::guasti()
{
    QFETCH(QStringList, Sql);
    QTEST(DifettoTassi(Copia(Sql), Presente), "Difetto");
}

void TestControlloTassi::tuttiIPezzi()
{
    const QByteArray Intero = LeggiFile(Presente);
    const QString File = NuovaCartella() + u"Tassi.dat"_s;
    // Cut anywhere it is none, and neither is what another engine writes.
    for (const int Parti : {0, 1, 2, 3, 5, 7, 9}) {
        ScriviFile(File, Intero.left(Intero.size() * Parti / 10));
        QVERIFY2(!DifettoTassi(File, Presente).isEmpty(), qPrintable(QString::number(Parti)));
    }
    QByteArray Altro = Intero;
    Altro.replace(0, 16, "\0\1\0\0Standard Jet"_ba);
    ScriviFile(File, Altro);
    QCOMPARE(DifettoTassi(File, Presente), u"il file non è un archivio di tassi"_s);
}

void TestControlloTassi::ilPresenteNonConta()
{
    const QString Rotto = NuovaCartella() + u"Tassi.dat"_s;
    QCOMPARE(DifettoTassi(Presente, Rotto), QString());
    ScriviFile(Rotto, "rotto");
    QCOMPARE(DifettoTassi(Presente, Rotto), QString());
}

#include "TestControlloTassi.moc"
