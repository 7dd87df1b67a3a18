#include "supporto/prova.h"

#include "platform/base/errore.h"

#include <QSet>

#include <new>
#include <stdexcept>

using namespace Qt::StringLiterals;

class TestErrore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ogniNumeroHaLaSuaFrase_data();
    void ogniNumeroHaLaSuaFrase();
    void leFrasiSonoDistinte();
    void numeroIgnotoHaUnaFraseGenerica();
    void descrizioneDelChiamante();
    void whatEInUtf8ESopravviveAllaCopia();
    void correnteRiconosceLEccezione();
    void correnteInUnCatchInterno();
};
PROVA(TestErrore);

namespace {

constexpr int Noti[] = {5,    6,    7,    9,    11,   13,   31,   52,   53,   55,   57,   58,   61,   70,
                        75,   76,   321,  482,  1000, 1025, 3010, 3015, 3019, 3020, 3021, 3022, 3024, 3026,
                        3027, 3034, 3043, 3044, 3047, 3061, 3070, 3077, 3078, 3085, 3142, 3144, 3159, 3163,
                        3167, 3204, 3246, 3260, 3265, 3284, 3314, 3317, 3343, 3380, 3421};
constexpr int Ignoto = 4242;

template <typename Eccezione>
Errore CorrenteDopo(const Eccezione& Lanciata)
{
    try {
        throw Lanciata;
    } catch (...) {
        return ErroreCorrente();
    }
}

}  // namespace

void TestErrore::ogniNumeroHaLaSuaFrase_data()
{
    QTest::addColumn<int>("Numero");
    for (const int Numero : Noti)
        QTest::newRow(QByteArray::number(Numero).constData()) << Numero;
}

void TestErrore::ogniNumeroHaLaSuaFrase()
{
    QFETCH(int, Numero);
    const QString Frase = DescrizioneErrore(Numero);
    QVERIFY(!Frase.isEmpty());
    QVERIFY(Frase != DescrizioneErrore(Ignoto));
    QVERIFY(Frase.front().isUpper());
    QVERIFY(!Frase.endsWith(u'.'));
    QCOMPARE(Errore(Numero).Numero, Numero);
    QCOMPARE(Errore(Numero).Descrizione, Frase);
}

void TestErrore::leFrasiSonoDistinte()
{
    QSet<QString> Frasi;
    for (const int Numero : Noti)
        Frasi.insert(DescrizioneErrore(Numero));
    QCOMPARE(Frasi.size(), qsizetype(std::size(Noti)));
}

void TestErrore::numeroIgnotoHaUnaFraseGenerica()
{
    QVERIFY(!DescrizioneErrore(Ignoto).isEmpty());
    QCOMPARE(DescrizioneErrore(Ignoto), DescrizioneErrore(-1));
    QCOMPARE(DescrizioneErrore(Ignoto), DescrizioneErrore(0));
    QCOMPARE(Errore(Ignoto).Numero, Ignoto);
}

void TestErrore::descrizioneDelChiamante()
{
    const Errore E(75, u"Cartella protetta"_s);
    QCOMPARE(E.Numero, 75);
    QCOMPARE(E.Descrizione, u"Cartella protetta"_s);
    QCOMPARE(E.what(), "Cartella protetta");
}

void TestErrore::whatEInUtf8ESopravviveAllaCopia()
{
    const Errore Copia = [] { return Errore(Errore(1, u"Città non trovata"_s)); }();
    QCOMPARE(QString::fromUtf8(Copia.what()), u"Città non trovata"_s);
    const std::exception& Base = Copia;
    QCOMPARE(QString::fromUtf8(Base.what()), Copia.Descrizione);
}

void TestErrore::correnteRiconosceLEccezione()
{
    const Errore Stesso = CorrenteDopo(Errore(3021, u"Fine"_s));
    QCOMPARE(Stesso.Numero, 3021);
    QCOMPARE(Stesso.Descrizione, u"Fine"_s);
    QCOMPARE(CorrenteDopo(std::bad_alloc()).Numero, 7);
    QCOMPARE(CorrenteDopo(std::runtime_error("x")).Numero, 1000);
    QCOMPARE(CorrenteDopo(std::out_of_range("x")).Numero, 1000);
    QCOMPARE(CorrenteDopo(42).Numero, 1000);
    QCOMPARE(CorrenteDopo(42).Descrizione, DescrizioneErrore(1000));
}

void TestErrore::correnteInUnCatchInterno()
{
    try {
        throw Errore(6);
    } catch (...) {
        QCOMPARE(CorrenteDopo(Errore(13)).Numero, 13);
        QCOMPARE(ErroreCorrente().Numero, 6);
    }
}

#include "TestErrore.moc"
