#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "platform/base/tabellarighe.h"

using namespace Qt::StringLiterals;

class TestTabellaRighe : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void vuotaHaLimiteMenoUno();
    void dimensioneSconosciuta();
    void aggiungeERendeLIndice();
    void cellaMaiScrittaENull();
    void inserisceInOgniPunto();
    void inserisceInsieme();
    void elimina();
    void fuoriDallaTabella_data();
    void fuoriDallaTabella();
    void fuoriDalleRighe();
    void azzeraCambiaLarghezza();
    void laCopiaEIndipendente();
    void ugualiCellaPerCella();
    void laChiaveRestaAllaRiga();
};
PROVA(TestTabellaRighe);

namespace {

TabellaRighe Tabella(std::initializer_list<QString> Prime)
{
    TabellaRighe T(2);
    for (const QString& Prima : Prime)
        T(T.AggiungiRiga(), 0) = Prima;
    return T;
}

QStringList Prime(const TabellaRighe& T)
{
    QStringList Colonna;
    for (int Riga = 0; Riga <= T.UpperBound(1); ++Riga)
        Colonna += T(Riga, 0).toString();
    return Colonna;
}

}  // namespace

void TestTabellaRighe::vuotaHaLimiteMenoUno()
{
    const TabellaRighe Niente;
    QCOMPARE(Niente.UpperBound(1), -1);
    QCOMPARE(Niente.UpperBound(2), -1);
    QVERIFY(Niente.Vuota());

    const TabellaRighe SenzaRighe(13);
    QCOMPARE(SenzaRighe.UpperBound(1), -1);
    QCOMPARE(SenzaRighe.UpperBound(2), 12);
    QVERIFY(SenzaRighe.Vuota());
}

void TestTabellaRighe::dimensioneSconosciuta()
{
    const TabellaRighe T(2);
    QCOMPARE(NumeroErrore([&] { return T.UpperBound(0); }), 9);
    QCOMPARE(NumeroErrore([&] { return T.UpperBound(3); }), 9);
}

void TestTabellaRighe::aggiungeERendeLIndice()
{
    TabellaRighe T(3);
    QCOMPARE(T.AggiungiRiga(), 0);
    QCOMPARE(T.AggiungiRiga(), 1);
    QCOMPARE(T.UpperBound(1), 1);
    QCOMPARE(T.Righe(), 2);
    QCOMPARE(T.Colonne(), 3);
    QVERIFY(!T.Vuota());
}

void TestTabellaRighe::cellaMaiScrittaENull()
{
    TabellaRighe T(2);
    T.AggiungiRiga();
    QVERIFY(!T(0, 1).isValid());
    T(0, 1) = 12.5;
    QCOMPARE(T(0, 1), QVariant(12.5));
    QVERIFY(!T(0, 0).isValid());
}

void TestTabellaRighe::inserisceInOgniPunto()
{
    TabellaRighe T = Tabella({u"a"_s, u"b"_s});
    T.InserisciRiga(0);
    QCOMPARE(Prime(T), QStringList({u""_s, u"a"_s, u"b"_s}));
    T.InserisciRiga(2);
    QCOMPARE(Prime(T), QStringList({u""_s, u"a"_s, u""_s, u"b"_s}));
    T.InserisciRiga(T.UpperBound(1) + 1);
    QCOMPARE(Prime(T), QStringList({u""_s, u"a"_s, u""_s, u"b"_s, u""_s}));
    T(4, 1) = 1;  // the new row has every column
    QCOMPARE(T(4, 1), QVariant(1));
}

void TestTabellaRighe::inserisceInsieme()
{
    TabellaRighe T = Tabella({u"a"_s, u"b"_s});
    T.InserisciRighe(1, 3);
    QCOMPARE(Prime(T), QStringList({u"a"_s, u""_s, u""_s, u""_s, u"b"_s}));
    T(1, 0) = u"x"_s;  // no row shares its cells with another
    T.InserisciRighe(0, 0);
    QCOMPARE(Prime(T), QStringList({u"a"_s, u"x"_s, u""_s, u""_s, u"b"_s}));
    QCOMPARE(NumeroErrore([&] {
                 T.InserisciRighe(6, 1);
                 return 0;
             }),
             9);
    QCOMPARE(NumeroErrore([&] {
                 T.InserisciRighe(0, -1);
                 return 0;
             }),
             9);
}

void TestTabellaRighe::elimina()
{
    TabellaRighe T = Tabella({u"a"_s, u"b"_s, u"c"_s});
    T.EliminaRiga(1);
    QCOMPARE(Prime(T), QStringList({u"a"_s, u"c"_s}));
    T.EliminaRiga(1);
    T.EliminaRiga(0);
    QVERIFY(T.Vuota());
    QCOMPARE(T.Colonne(), 2);
}

void TestTabellaRighe::fuoriDallaTabella_data()
{
    QTest::addColumn<int>("Riga");
    QTest::addColumn<int>("Colonna");

    QTest::newRow("row before the first") << -1 << 0;
    QTest::newRow("row behind the last") << 2 << 0;
    QTest::newRow("column before the first") << 0 << -1;
    QTest::newRow("column behind the last") << 0 << 2;
}

void TestTabellaRighe::fuoriDallaTabella()
{
    QFETCH(int, Riga);
    QFETCH(int, Colonna);
    TabellaRighe T = Tabella({u"a"_s, u"b"_s});
    const TabellaRighe Fissa = T;
    QCOMPARE(NumeroErrore([&] { T(Riga, Colonna) = 1; }), 9);
    QCOMPARE(NumeroErrore([&] { return Fissa(Riga, Colonna).isValid(); }), 9);
    QVERIFY(T == Fissa);
}

void TestTabellaRighe::fuoriDalleRighe()
{
    TabellaRighe T = Tabella({u"a"_s});
    QCOMPARE(NumeroErrore([&] { T.InserisciRiga(-1); }), 9);
    QCOMPARE(NumeroErrore([&] { T.InserisciRiga(2); }), 9);
    QCOMPARE(NumeroErrore([&] { T.EliminaRiga(-1); }), 9);
    QCOMPARE(NumeroErrore([&] { T.EliminaRiga(1); }), 9);
    QCOMPARE(Prime(T), QStringList({u"a"_s}));
}

void TestTabellaRighe::azzeraCambiaLarghezza()
{
    TabellaRighe T = Tabella({u"a"_s});
    T.Azzera(5);
    QVERIFY(T.Vuota());
    QCOMPARE(T.UpperBound(2), 4);
    T(T.AggiungiRiga(), 4) = u"e"_s;
    QCOMPARE(T(0, 4), QVariant(u"e"_s));
}

void TestTabellaRighe::laCopiaEIndipendente()
{
    TabellaRighe Prima = Tabella({u"a"_s});
    TabellaRighe Seconda = Prima;
    Seconda(0, 0) = u"x"_s;
    Seconda.AggiungiRiga();
    QCOMPARE(Prime(Prima), QStringList({u"a"_s}));
    QCOMPARE(Prime(Seconda), QStringList({u"x"_s, u""_s}));
}

void TestTabellaRighe::ugualiCellaPerCella()
{
    QVERIFY(Tabella({u"a"_s, u"b"_s}) == Tabella({u"a"_s, u"b"_s}));
    QVERIFY(Tabella({u"a"_s, u"b"_s}) != Tabella({u"a"_s, u"c"_s}));
    QVERIFY(TabellaRighe(2) != TabellaRighe(3));
}

void TestTabellaRighe::laChiaveRestaAllaRiga()
{
    TabellaRighe T = Tabella({u"a"_s, u"b"_s, u"c"_s});
    const quint64 DiA = T.Chiave(0);
    const quint64 DiB = T.Chiave(1);
    const quint64 DiC = T.Chiave(2);
    T.InserisciRighe(1, 2);
    T.EliminaRiga(0);
    QCOMPARE(T.Chiave(2), DiB);
    QVERIFY2(T.RigheDi({DiC, DiA, DiB}) == QList<int>({3, 2}), "nell'ordine chiesto, senza quella tolta");
    QVERIFY(T.Chiave(0) != T.Chiave(1) && T.Chiave(0) != DiA);
    QVERIFY(Tabella({u"a"_s}).Chiave(0) != Tabella({u"a"_s}).Chiave(0));
    QVERIFY2(Tabella({u"a"_s}) == Tabella({u"a"_s}), "le chiavi non contano nel confronto");
    QCOMPARE(NumeroErrore([&] { return T.Chiave(4); }), 9);
    T.Azzera(2);
    QVERIFY(T.RigheDi({DiB}).isEmpty());
}

#include "TestTabellaRighe.moc"
