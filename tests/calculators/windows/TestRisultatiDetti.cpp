// What a screen reader is told of a calculation, with the focus in a box above it.
#include "tuttelecalcolatrici.h"

#include "platform/kit/annuncio.h"

#include <QScopedValueRollback>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// What was announced in a window last.
QString Detto(const QWidget* Finestra)
{
    const auto* Annuncio = Finestra->findChild<QWidget*>(u"annuncio"_s, Qt::FindDirectChildrenOnly);
    return Annuncio ? Annuncio->accessibleName() : QString();
}

}  // namespace

class TestRisultatiDetti : public QObject, ConCalcoli
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void ognuno_data() { RigheCalcolatrici(); }
    void ognuno();
    void codiceLetto();
    void unaVoltaAllaFine();
};
PROVA(TestRisultatiDetti);

void TestRisultatiDetti::ognuno()
{
    const CalcolatriceProvata& Provata = QuestaCalcolatrice();
    const QScopedValueRollback Presto(PausaAnnuncioMs, 20);
    QDialog* F = Provata.Apri();
    QVERIFY(F);
    Provata.Calcola(F, 0);
    QTRY_VERIFY2(Detto(F).contains(Provata.Detto), qPrintable(Detto(F)));
}

void TestRisultatiDetti::codiceLetto()
{
    const QScopedValueRollback Presto(PausaAnnuncioMs, 20);
    QDialog* F = Apri<frmCodFis>();
    QVERIFY(F);
    Scrivi(F, "txtLetto", u"RSSMRA80A01H501U"_s);
    QTRY_VERIFY2(Detto(F).contains(u"1980"), qPrintable(Detto(F)));
}

/// The panel reckons at each digit, and says the fee once.
void TestRisultatiDetti::unaVoltaAllaFine()
{
    const QScopedValueRollback Lunga(PausaAnnuncioMs, 3000);
    QDialog* F = Apri<frmContrib>();
    QVERIFY(F);
    Scegli(F, "cmbNorme", InVigore);
    Scrivi(F, "txtValoreVigente", u"20000"_s);
    const QList<QTimer*> Pause = F->findChildren<QTimer*>(u"pausaAnnuncio"_s);
    QCOMPARE(Pause.size(), 1);
    QVERIFY2(Detto(F).isEmpty(), qPrintable(Detto(F)));
    Pause.first()->setInterval(0);
    QTRY_VERIFY2(Detto(F).contains(u"237,00"), qPrintable(Detto(F)));
    QTRY_VERIFY(F->findChildren<QTimer*>(u"pausaAnnuncio"_s).isEmpty());
}

#include "TestRisultatiDetti.moc"
