// The commands of the two calculators of terms open their windows, one each.
#include "scena.h"

#include "calculators/windows/frmTermini.h"
#include "calculators/windows/frmTerminiSeq.h"
#include "core/app/apritori.h"
#include "core/comandi.h"

#include <memory>

class TestApriTermini : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void ognunoLaSua();
    void unaSola();
    void dopoLaChiusuraUnaNuova();

private:
    std::unique_ptr<Scena> S;
};
PROVA(TestApriTermini);

void TestApriTermini::init()
{
    S = std::make_unique<Scena>();
    RiempiApritori();
}

void TestApriTermini::cleanup()
{
    delete SeCaricato<frmTermini>.data();
    delete SeCaricato<frmTerminiSeq>.data();
    S.reset();
}

void TestApriTermini::ognunoLaSua()
{
    EseguiComando(u"termini"_s, 0, {});
    QVERIFY(SeCaricato<frmTermini> && SeCaricato<frmTermini>->isVisible());
    QVERIFY(!SeCaricato<frmTerminiSeq>);
    QVERIFY2(!SeCaricato<frmTermini>->isModal(), "the notes go on");
    EseguiComando(u"sequenz"_s, 0, {});
    QVERIFY(SeCaricato<frmTerminiSeq> && SeCaricato<frmTerminiSeq>->isVisible());
}

void TestApriTermini::unaSola()
{
    EseguiComando(u"termini"_s, 0, {});
    const auto* Prima = SeCaricato<frmTermini>.data();
    EseguiComando(u"termini"_s, 0, {});
    QCOMPARE(SeCaricato<frmTermini>.data(), Prima);
}

void TestApriTermini::dopoLaChiusuraUnaNuova()
{
    EseguiComando(u"sequenz"_s, 0, {});
    SeCaricato<frmTerminiSeq>->close();
    QTRY_VERIFY(!SeCaricato<frmTerminiSeq>);
    EseguiComando(u"sequenz"_s, 0, {});
    QVERIFY(SeCaricato<frmTerminiSeq> && SeCaricato<frmTerminiSeq>->isVisible());
}

#include "TestApriTermini.moc"
