// The copy of the office's logo: stored, read back, told when it is no longer what was stored.
#include "core/modLogo.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"
#include "supporto/prova.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

class TestLogo : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup()
    {
        Domani(2);
        logo::TogliAltri({});
        InstallaOrologio({});
    }
    void conservatoELetto();
    void soloDellUtente();
    void loStessoNonSiRiscrive();
    void danneggiato_data();
    void danneggiato();
    void soloLUltimoResta();
    void impronta_data();
    void impronta();
    void posto();
    void misure_data();
    void misure();

private:
    static void Domani(int Giorni)
    {
        InstallaOrologio([Giorni] { return QDateTime::currentDateTime().addDays(Giorni); });
    }
};
PROVA(TestLogo);

void TestLogo::conservatoELetto()
{
    const QString Fatta = logo::Conserva("uno");
    QCOMPARE(logo::ImprontaValida(Fatta), Fatta);
    QCOMPARE(logo::Leggi(Fatta), QByteArray("uno"));
    QVERIFY(!logo::Leggi({}));
    QCOMPARE(logo::File({}), QString());
}

void TestLogo::soloDellUtente()
{
    const QFileInfo Copia(logo::File(logo::Conserva("uno")));
    QVERIFY(Copia.exists());
    QCOMPARE(int(Copia.permissions() & QFile::Permissions(0x0077)), 0);
    // Nor does anybody else see what the folder holds.
    QVERIFY(QFile::setPermissions(CartellaDati(), QFile::Permissions(0x7755)));
    (void)logo::Conserva("due");
    QCOMPARE(int(QFileInfo(CartellaDati()).permissions() & QFile::Permissions(0x0077)), 0);
}

/// Settings that are saved with the logo they had ask nothing of the disk.
void TestLogo::loStessoNonSiRiscrive()
{
    const QString Copia = logo::File(logo::Conserva("uno"));
    QFile File(Copia);
    QVERIFY(File.open(QIODevice::ReadWrite));
    const QDateTime Allora = QDateTime::currentDateTime().addDays(-3);
    QVERIFY(File.setFileTime(Allora, QFileDevice::FileModificationTime));
    File.close();
    QCOMPARE(logo::File(logo::Conserva("uno")), Copia);
    QCOMPARE(DataFile(Copia).toSecsSinceEpoch(), Allora.toSecsSinceEpoch());
    ScriviFile(Copia, "unp");
    (void)logo::Conserva("uno");
    QCOMPARE(LeggiFile(Copia), QByteArray("uno"));
}

void TestLogo::danneggiato_data()
{
    QTest::addColumn<QByteArray>("Poi");
    QTest::newRow("un byte") << QByteArray("unp");
    QTest::newRow("troncato") << QByteArray("un");
    QTest::newRow("vuoto") << QByteArray("");
    QTest::newRow("sparito") << QByteArray();
}

void TestLogo::danneggiato()
{
    QFETCH(QByteArray, Poi);
    const QString Fatta = logo::Conserva("uno");
    if (Poi.isNull())
        EliminaFile(logo::File(Fatta));
    else
        ScriviFile(logo::File(Fatta), Poi);
    QVERIFY(!logo::Leggi(Fatta));
}

void TestLogo::soloLUltimoResta()
{
    const QString Primo = logo::Conserva("uno");
    const QString Secondo = logo::Conserva("due");
    ScriviFile(CartellaDati() + u"altra.png"_s, "x");
    logo::TogliAltri(Secondo);
    QVERIFY(EsisteFile(logo::File(Primo)));  // another program may still print with it
    Domani(2);
    logo::TogliAltri(Secondo);
    QVERIFY(!EsisteFile(logo::File(Primo)));
    QVERIFY(EsisteFile(logo::File(Secondo)));
    QVERIFY(EsisteFile(CartellaDati() + u"altra.png"_s));
}

void TestLogo::impronta_data()
{
    QTest::addColumn<QString>("Valore");
    QTest::addColumn<bool>("Valida");
    QTest::newRow("cifre") << QString(64, u'a') << true;
    QTest::newRow("corta") << QString(63, u'a') << false;
    QTest::newRow("maiuscole") << QString(64, u'A') << false;
    QTest::newRow("un percorso") << QString(u"../../"_s + QString(58, u'a')) << false;
}

void TestLogo::impronta()
{
    QFETCH(QString, Valore);
    QFETCH(bool, Valida);
    QCOMPARE(logo::ImprontaValida(Valore), Valida ? Valore : QString());
    QCOMPARE(logo::File(Valore).isEmpty(), !Valida);
}

void TestLogo::posto()
{
    QCOMPARE(logo::PostoNoto(u"C"_s), u"C"_s);
    QCOMPARE(logo::PostoNoto(u"X"_s), QString());
}

void TestLogo::misure_data()
{
    const QByteArray Testata("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
    QTest::addColumn<QByteArray>("Png");
    QTest::addColumn<int>("Larghezza");
    QTest::newRow("intere") << Testata + QByteArray("\0\0\1\0\0\0\0\2", 8) << 256;
    QTest::newRow("nulle") << Testata + QByteArray("\0\0\0\0\0\0\0\2", 8) << 0;
    QTest::newRow("negative") << Testata + QByteArray("\xff\0\0\0\0\0\0\2", 8) << 0;
    QTest::newRow("a metà") << Testata + QByteArray("\0\0\1\0\0\0\0", 7) << 0;
    QTest::newRow("non PNG") << QByteArray(40, 'x') << 0;
    QTest::newRow("niente") << QByteArray() << 0;
}

void TestLogo::misure()
{
    QFETCH(QByteArray, Png);
    const auto Lette = logo::MisurePng(Png);
    QTEST(Lette ? Lette->Larghezza : 0, "Larghezza");
}

#include "TestLogo.moc"
