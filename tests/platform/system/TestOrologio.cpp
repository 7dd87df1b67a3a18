#include "supporto/prova.h"

#include "platform/system/orologio.h"

class TestOrologio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { InstallaOrologio({}); }
    void senzaFonteETempoDelSistema();
    void laFonteFissaOggiEAdesso();
    void rendeLaFontePrecedente();
};
PROVA(TestOrologio);

namespace {

const QDateTime Fisso(QDate(2014, 8, 1), QTime(23, 59, 58));

}  // namespace

void TestOrologio::senzaFonteETempoDelSistema()
{
    const QDateTime Prima = QDateTime::currentDateTime();
    const QDateTime Letto = Adesso();
    const QDate Giorno = Oggi();
    const QDateTime Dopo = QDateTime::currentDateTime();
    QVERIFY(Prima <= Letto && Letto <= Dopo);
    QVERIFY(Prima.date() <= Giorno && Giorno <= Dopo.date());
}

void TestOrologio::laFonteFissaOggiEAdesso()
{
    InstallaOrologio([] { return Fisso; });
    QCOMPARE(Adesso(), Fisso);
    QCOMPARE(Oggi(), QDate(2014, 8, 1));
}

void TestOrologio::rendeLaFontePrecedente()
{
    QVERIFY(!InstallaOrologio([] { return Fisso; }));
    const auto Precedente = InstallaOrologio([] { return Fisso.addDays(1); });
    QCOMPARE(Precedente(), Fisso);
    QCOMPARE(Oggi(), QDate(2014, 8, 2));
    InstallaOrologio({});
    QVERIFY(Adesso() > Fisso.addYears(1));
}

#include "TestOrologio.moc"
