#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "platform/base/numerierrore.h"
#include "platform/network/firma.h"
#include "platform/system/file.h"
#include "platform/system/shell.h"

#include <QFile>
#include <QProcess>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

class TestFirma : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void laFirmaVale();
    void laFirmaNonVale_data();
    void laFirmaNonVale();
    void leChiaviSonoOgniVoltaAltre();
    void senzaChiaveNonSiFirma();
    void laChiaveCheSiConsegna();
    void chiaveDaConsegnareAssente();
};
PROVA(TestFirma);

namespace {

const QByteArray Byte = QByteArrayLiteral("versione=[3.0.15]\r\n01/12/2026\r\n\0\xFF fine");

QByteArray ConUnBitCambiato(QByteArray Testo)
{
    QByteArray Letto = QByteArray::fromBase64(Testo);
    Letto[0] = char(Letto[0] ^ 1);
    return Letto.toBase64();
}

}  // namespace

void TestFirma::laFirmaVale()
{
    const CoppiaChiavi Chiavi = NuoveChiavi();
    const QByteArray Firma = FirmaByte(Byte, Chiavi.Segreta);
    QVERIFY(FirmaValida(Byte, Firma, Chiavi.Pubblica));
    QVERIFY(FirmaValida(Byte, "\r\n" + Firma + " \n", Chiavi.Pubblica + "\n"));
    QVERIFY(FirmaValida({}, FirmaByte({}, Chiavi.Segreta), Chiavi.Pubblica));
}

void TestFirma::laFirmaNonVale_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    QTest::addColumn<QByteArray>("Firma");
    QTest::addColumn<QByteArray>("Pubblica");

    const CoppiaChiavi Chiavi = NuoveChiavi();
    const QByteArray Firma = FirmaByte(Byte, Chiavi.Segreta);
    const auto Riga = [](const char* Nome, const QByteArray& Contenuto, const QByteArray& Segno,
                         const QByteArray& Chiave) { QTest::newRow(Nome) << Contenuto << Segno << Chiave; };
    Riga("another byte", Byte + ' ', Firma, Chiavi.Pubblica);
    Riga("one byte less", Byte.chopped(1), Firma, Chiavi.Pubblica);
    Riga("another key", Byte, Firma, NuoveChiavi().Pubblica);
    Riga("another signature", Byte, ConUnBitCambiato(Firma), Chiavi.Pubblica);
    Riga("no signature", Byte, {}, Chiavi.Pubblica);
    Riga("no key", Byte, Firma, {});
    Riga("the secret key", Byte, Firma, Chiavi.Segreta);
    Riga("a signature cut off", Byte, Firma.chopped(4), Chiavi.Pubblica);
    Riga("a signature and more", Byte, Firma + "AAAA", Chiavi.Pubblica);
    Riga("a page", Byte, "<html>404</html>", Chiavi.Pubblica);
    Riga("zeros", Byte, QByteArray(64, '\0').toBase64(), QByteArray(32, '\0').toBase64());
}

void TestFirma::laFirmaNonVale()
{
    QFETCH(QByteArray, Contenuto);
    QFETCH(QByteArray, Firma);
    QFETCH(QByteArray, Pubblica);
    QVERIFY(!FirmaValida(Contenuto, Firma, Pubblica));
}

void TestFirma::leChiaviSonoOgniVoltaAltre()
{
    const CoppiaChiavi Prima = NuoveChiavi();
    const CoppiaChiavi Seconda = NuoveChiavi();
    QVERIFY(Prima.Pubblica != Seconda.Pubblica);
    QVERIFY(Prima.Segreta != Seconda.Segreta);
    QVERIFY(!Prima.Pubblica.contains('\n'));
}

void TestFirma::senzaChiaveNonSiFirma()
{
    QCOMPARE(NumeroErrore([] { (void)FirmaByte(Byte, {}); }), errori::Argomento);
    QCOMPARE(NumeroErrore([] { (void)FirmaByte(Byte, NuoveChiavi().Pubblica); }), errori::Argomento);
}

namespace {

/// Runs the step of the build that lays the key beside the executable. @return its exit status
int Consegna(const QString& Chiave, const QString& Cartella)
{
    QProcess Passo;
    Passo.start(u"cmake"_s, {u"-DCALCANOVA_CHIAVE="_s + Chiave, u"-DCARTELLA_PROGRAMMA="_s + Cartella,
                             u"-P"_s, SorgenteDiProva(u"cmake/Chiave.cmake"_s)});
    return Passo.waitForFinished() ? Passo.exitCode() : -1;
}

}  // namespace

void TestFirma::laChiaveCheSiConsegna()
{
    const QString Accanto = CartellaEseguibile() + u"calcanova.pub"_s;
    QFile::remove(Accanto);
    const auto Pulizia = qScopeGuard([&] { QFile::remove(Accanto); });
    QCOMPARE(ChiavePubblica(), QByteArray());
    QCOMPARE(Consegna({}, CartellaEseguibile()), 0);
    QCOMPARE(ChiavePubblica(), QByteArray());

    const CoppiaChiavi Chiavi = NuoveChiavi();
    const QString File = NuovaCartella() + u"chiave dello studio.pub"_s;
    ScriviFile(File, Chiavi.Pubblica + '\n');
    QCOMPARE(Consegna(File, CartellaEseguibile()), 0);
    QCOMPARE(ChiavePubblica(), Chiavi.Pubblica + '\n');
    QVERIFY(FirmaValida(Byte, FirmaByte(Byte, Chiavi.Segreta), ChiavePubblica()));
}

void TestFirma::chiaveDaConsegnareAssente()
{
    const QString Cartella = NuovaCartella();
    QVERIFY(Consegna(Cartella + u"mai.pub"_s, Cartella) > 0);
    QVERIFY(!EsisteFile(Cartella + u"calcanova.pub"_s));
}

#include "TestFirma.moc"
