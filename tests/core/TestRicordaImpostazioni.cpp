#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "core/parametri.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

class TestRicordaImpostazioni : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ilRifiutoSiDiceUnaVolta();
    void dopoUnSuccessoSiRidice_data();
    void dopoUnSuccessoSiRidice();
};
PROVA(TestRicordaImpostazioni);

void TestRicordaImpostazioni::ilRifiutoSiDiceUnaVolta()
{
    const QString File = qEnvironmentVariable("XDG_CONFIG_HOME") + u"/Calcanova/KR5.ini"_s;
    const auto Rifiutata = [](const QString& Chiave) {
        return NumeroErrore([&] { RicordaImpostazioni({{Chiave, u"1"_s}}); }) != 0;
    };
    for (int Volta = 0; Volta < 2; ++Volta) {
        // A folder stands where the store should be.
        QFile::remove(File);
        QVERIFY(QDir().mkpath(File));
        QVERIFY(Rifiutata(u"FormWidth"_s));
        QVERIFY(!Rifiutata(u"FormHeight"_s));
        QVERIFY(!Rifiutata(u"MainWidth"_s));
        QVERIFY(QDir(File).removeRecursively());
        QVERIFY(!Rifiutata(u"FormWidth"_s));
        QCOMPARE(Impostazione(u"FormWidth"_s), u"1"_s);
        QCOMPARE(Impostazione(u"FormHeight"_s), QString());
    }
}

void TestRicordaImpostazioni::dopoUnSuccessoSiRidice_data()
{
    QTest::addColumn<int>("Come");
    QTest::newRow("a value by itself") << 0;
    QTest::newRow("what the user has asked for") << 1;
    QTest::newRow("a value that follows the one before") << 2;
    QTest::newRow("the settings") << 3;
}

/// The next refusal is another one, whoever could store between the two.
void TestRicordaImpostazioni::dopoUnSuccessoSiRidice()
{
    QFETCH(int, Come);
    const QString File = qEnvironmentVariable("XDG_CONFIG_HOME") + u"/Calcanova/KR5.ini"_s;
    const auto Rifiutata = [&] {
        QFile::remove(File);
        QDir().mkpath(File);
        const bool Detto = NumeroErrore([] { RicordaImpostazioni({{u"FormWidth"_s, u"1"_s}}); }) != 0;
        QDir(File).removeRecursively();
        return Detto;
    };
    (void)Rifiutata();
    QVERIFY(!Rifiutata());
    switch (Come) {
    case 0:
        RicordaImpostazioni({{u"FormWidth"_s, u"2"_s}});
        break;
    case 1:
        SalvaImpostazione(u"FormWidth"_s, u"2"_s);
        break;
    case 2:
        MutaImpostazione(u"FormWidth"_s, [](const QString&) { return u"2"_s; });
        break;
    default:
        SalvaImpostazioni({{u"FormWidth"_s, u"2"_s}});
    }
    QVERIFY(Rifiutata());
    QVERIFY(!Rifiutata());
}

#include "TestRicordaImpostazioni.moc"
