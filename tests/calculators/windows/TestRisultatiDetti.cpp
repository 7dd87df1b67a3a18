// What a screen reader is told of a calculation, with the focus in a box above it.
#include "bancocalcoli.h"

#include "calculators/windows/frmCodFis.h"
#include "calculators/windows/frmContrib.h"
#include "calculators/windows/frmInteressi.h"
#include "calculators/windows/frmIstat.h"
#include "calculators/windows/frmTerminiSeq.h"
#include "platform/kit/annuncio.h"

#include <QScopedValueRollback>
#include <QTimer>

using namespace Qt::StringLiterals;

using Mossa = void (*)(QDialog*);
using Apertura = QDialog* (*)();

namespace {

template <class Modulo>
QDialog* ApriUno()
{
    return Apri<Modulo>();
}

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
    void ognuno_data();
    void ognuno();
    void unaVoltaAllaFine();
};
PROVA(TestRisultatiDetti);

void TestRisultatiDetti::ognuno_data()
{
    QTest::addColumn<Apertura>("Finestra");
    QTest::addColumn<Mossa>("Fai");
    QTest::addColumn<QString>("Atteso");
    QTest::newRow("term") << Apertura(ApriUno<frmTermini>) << Mossa([](QDialog* F) { CalcolaTermine(F, 0); })
                          << u"2012"_s;
    QTest::newRow("sequence") << Apertura(ApriUno<frmTerminiSeq>)
                              << Mossa([](QDialog* F) { CalcolaSequenza(F, 0); }) << u"201"_s;
    QTest::newRow("interests") << Apertura(ApriUno<frmInteressi>)
                               << Mossa([](QDialog* F) { CalcolaInteressi(F, 0); }) << u"25,07"_s;
    QTest::newRow("revaluation") << Apertura(ApriUno<frmIstat>)
                                 << Mossa([](QDialog* F) { CalcolaIstat(F, 0); }) << u"1.1"_s;
    QTest::newRow("fiscal code") << Apertura(ApriUno<frmCodFis>)
                                 << Mossa([](QDialog* F) { CalcolaCodice(F, 0); }) << u"RSSMRA80A01H501U"_s;
    QTest::newRow("fiscal code read")
        << Apertura(ApriUno<frmCodFis>)
        << Mossa([](QDialog* F) { Scrivi(F, "txtLetto", u"RSSMRA80A01H501U"_s); }) << u"1980"_s;
    QTest::newRow("filing fee") << Apertura(ApriUno<frmContrib>)
                                << Mossa([](QDialog* F) { CalcolaContributo(F, 0); }) << u"43,00"_s;
}

void TestRisultatiDetti::ognuno()
{
    QFETCH(Apertura, Finestra);
    QFETCH(Mossa, Fai);
    QFETCH(QString, Atteso);
    const QScopedValueRollback Presto(PausaAnnuncioMs, 20);
    QDialog* F = Finestra();
    QVERIFY(F);
    Fai(F);
    QTRY_VERIFY2(Detto(F).contains(Atteso), qPrintable(Detto(F)));
}

/// The panel reckons at each digit, and says the fee once.
void TestRisultatiDetti::unaVoltaAllaFine()
{
    const QScopedValueRollback Lunga(PausaAnnuncioMs, 3000);
    QDialog* F = ApriUno<frmContrib>();
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
