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

#include "TestRicordaImpostazioni.moc"
