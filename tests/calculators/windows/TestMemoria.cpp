// Calculators that were opened, used and closed leave nothing behind.
#include "tuttelecalcolatrici.h"

#include "calculators/windows/frmUltimiCalcoli.h"
#include "supporto/memoria.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {

void ApriEChiudi(const CalcolatriceProvata& Quale)
{
    QDialog* Finestra = Quale.Apri();
    Respiro();
    Chiudi(Finestra);
    Respiro();
}

/// A calculator with its list over it, another calculation remembered each time.
void ConLElenco()
{
    static int Volta = 0;
    auto* Finestra = new frmContrib;
    Finestra->Mostra();
    Respiro();
    Scrivi(Finestra, "txtValore_0", QString::number(1000 + ++Volta));
    DalMenu(Finestra, "mnuUltimi");
    Respiro();
    Chiudi(Finestra->findChild<frmUltimiCalcoli*>());
    Chiudi(Finestra);
    Respiro();
}

using Giro = std::function<void()>;

}  // namespace

class TestMemoria : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void molteComeUna_data();
    void molteComeUna();
};
PROVA(TestMemoria);

/// Caches of the toolkit grow with the first windows, whichever they are.
void TestMemoria::initTestCase()
{
    constexpr int Prime = 20;
    const Banco Tavolo;
    for (int i = 0; i < Prime; ++i)
        ApriEChiudi(TutteLeCalcolatrici.front());
}

void TestMemoria::molteComeUna_data()
{
    QTest::addColumn<Giro>("UnaVolta");
    for (size_t i = 0; i < TutteLeCalcolatrici.size(); ++i)
        QTest::newRow(qPrintable(TabellaCalcolatrici[i].NelFile.toString()))
            << Giro([i] { ApriEChiudi(TutteLeCalcolatrici[i]); });
    QTest::newRow("con l'elenco degli ultimi calcoli") << Giro(ConLElenco);
}

void TestMemoria::molteComeUna()
{
    QFETCH(Giro, UnaVolta);
    constexpr int Prime = 4;  // what the toolkit keeps for this window
    constexpr int Volte = 12;
    constexpr qint64 PerFinestra = 3000;  // bytes; a window takes hundreds of thousands
    const Banco Tavolo;
    for (int i = 0; i < Prime; ++i)
        UnaVolta();
    const Resti Lasciati;
    for (int i = 0; i < Volte; ++i)
        UnaVolta();
    QCOMPARE(Lasciati.Widget(), 0);
    const qint64 Cresciuti = Lasciati.Byte();
    QVERIFY2(Cresciuti < Volte * PerFinestra, qPrintable(QString::number(Cresciuti)));
}

#include "TestMemoria.moc"
