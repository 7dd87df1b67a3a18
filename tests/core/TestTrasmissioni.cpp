// The counter of the files of electronic invoices: never the same number twice.
#include "supporto/altroprogramma.h"
#include "supporto/guasti.h"

#include "core/impostazioni.h"
#include "core/modRegimi.h"
#include "core/modTrasmissioni.h"
#include "core/parametri.h"
#include "platform/system/cartelle.h"
#include "platform/system/percorsi.h"

#include <QFile>
#include <QScopeGuard>
#include <QSet>

using namespace Qt::StringLiterals;

class TestTrasmissioni : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void lAltro();

    void testi_data();
    void testi();
    void avanzaEResta();
    void guardareNonPrende();
    void allaFine();
    void testoSbagliato_data();
    void testoSbagliato();
    void nonSiPuoConservare();
    void dueProgrammiMaiLoStesso();
    void regimiETipi();
};
PROVA(TestTrasmissioni);

namespace {

constexpr int Giri = 25;

QString FileNumeri(const QString& Cartella, const QString& Parte)
{
    return Cartella + Parte + u".txt"_s;
}

void PrendiMolti(const QString& Cartella, const QString& Parte)
{
    QStringList Presi;
    for (int i = 0; i < Giri; ++i)
        Presi.append(QString::number(PrendiTrasmissione()));
    ScriviFile(FileNumeri(Cartella, Parte), Presi.join(u'\n').toLatin1());
}

void Prendi()
{
    (void)PrendiTrasmissione();
}

void Guarda()
{
    (void)ProssimaTrasmissione();
}

}  // namespace

void TestTrasmissioni::init()
{
    SalvaImpostazione(chiavi::ProgTrasm.toString(), u"0"_s);
}

void TestTrasmissioni::lAltro()
{
    if (AltroProgramma::Parte() != u"prende")
        return;
    const QString Insieme = AltroProgramma::Cartella();
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(Insieme));
    AltroProgramma::Segnala(Insieme + u"pronto"_s);
    PrendiMolti(Insieme, u"altro"_s);
}

void TestTrasmissioni::testi_data()
{
    QTest::addColumn<int>("Numero");
    QTest::addColumn<QString>("Testo");
    QTest::newRow("first") << 1 << u"00001"_s;
    QTest::newRow("letters behind the digits") << 10 << u"0000A"_s;
    QTest::newRow("carried") << 36 << u"00010"_s;
    QTest::newRow("last") << UltimoProgTrasm << u"ZZZZZ"_s;
}

void TestTrasmissioni::testi()
{
    QFETCH(int, Numero);
    QTEST(TestoProgTrasm(Numero), "Testo");
}

void TestTrasmissioni::avanzaEResta()
{
    QCOMPARE(PrendiTrasmissione(), 1);
    QCOMPARE(PrendiTrasmissione(), 2);
    QCOMPARE(Impostazione(chiavi::ProgTrasm.toString()), u"2"_s);
}

void TestTrasmissioni::guardareNonPrende()
{
    QCOMPARE(ProssimaTrasmissione(), 1);
    QCOMPARE(ProssimaTrasmissione(), 1);
    QCOMPARE(PrendiTrasmissione(), 1);
    QCOMPARE(ProssimaTrasmissione(), 2);
}

void TestTrasmissioni::allaFine()
{
    SalvaImpostazione(chiavi::ProgTrasm.toString(), QString::number(UltimoProgTrasm - 1));
    QCOMPARE(PrendiTrasmissione(), UltimoProgTrasm);
    QCOMPARE(NumeroErrore(Prendi), 1000);
    QCOMPARE(NumeroErrore(Guarda), 1000);
    QCOMPARE(Impostazione(chiavi::ProgTrasm.toString()), QString::number(UltimoProgTrasm));
}

void TestTrasmissioni::testoSbagliato_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::newRow("word") << u"dodici"_s;
    QTest::newRow("negative") << u"-3"_s;
    QTest::newRow("fraction") << u"3,5"_s;
}

void TestTrasmissioni::testoSbagliato()
{
    QFETCH(QString, Testo);
    SalvaImpostazione(chiavi::ProgTrasm.toString(), Testo);
    QCOMPARE(NumeroErrore(Prendi), 1000);
    QCOMPARE(NumeroErrore(Guarda), 1000);
    QCOMPARE(Impostazione(chiavi::ProgTrasm.toString()), Testo);
}

void TestTrasmissioni::nonSiPuoConservare()
{
    SalvaImpostazione(chiavi::ProgTrasm.toString(), u"7"_s);
    const QByteArray Prima = qgetenv("XDG_CONFIG_HOME");
    const auto Torna = qScopeGuard([&] { qputenv("XDG_CONFIG_HOME", Prima); });
    const QString Cartella = NuovaCartella();
    ScriviFile(Cartella + u"Calcanova"_s, "un file dove va la cartella");
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(Cartella));
    QCOMPARE(NumeroErrore(Prendi), 75);
    qputenv("XDG_CONFIG_HOME", Prima);
    QCOMPARE(PrendiTrasmissione(), 8);
}

void TestTrasmissioni::dueProgrammiMaiLoStesso()
{
    const QString Insieme = NuovaCartella();
    const QByteArray Prima = qgetenv("XDG_CONFIG_HOME");
    const auto Torna = qScopeGuard([&] { qputenv("XDG_CONFIG_HOME", Prima); });
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(Insieme));
    AltroProgramma Altro(u"TestTrasmissioni"_s, u"prende"_s, Insieme);
    QVERIFY(AltroProgramma::Aspetta(Insieme + u"pronto"_s));
    PrendiMolti(Insieme, u"questo"_s);
    QVERIFY(Altro.Finito());
    QSet<QByteArray> Diversi;
    int Quanti = 0;
    for (const QString& Parte : {u"questo"_s, u"altro"_s})
        for (const QByteArray& Numero : LeggiFile(FileNumeri(Insieme, Parte)).split('\n')) {
            Diversi.insert(Numero);
            ++Quanti;
        }
    QCOMPARE(Quanti, 2 * Giri);
    QCOMPARE(Diversi.size(), 2 * Giri);
    QCOMPARE(ProssimaTrasmissione(), 2 * Giri + 1);
}

void TestTrasmissioni::regimiETipi()
{
    QCOMPARE(regimi::Voci().size(), size_t(19));
    QCOMPARE(regimi::Noto(u" rf19 "_s), u"RF19"_s);
    QCOMPARE(regimi::Noto(u"rf03"_s), u"RF03"_s);  // told by the invoice, not replaced
    QCOMPARE(regimi::Noto({}), u"RF01"_s);
    QCOMPARE(tipostudio::Noto(u"s"_s), u"S"_s);
    QCOMPARE(tipostudio::Noto(u"?"_s), u"P"_s);
    QCOMPARE(tipostudio::Ritenuta(u"P"_s), u"RT01"_s);
    QCOMPARE(tipostudio::Ritenuta(u"A"_s), u"RT02"_s);
    QCOMPARE(tipostudio::Ritenuta(u"S"_s), u"RT02"_s);
}

#include "TestTrasmissioni.moc"
