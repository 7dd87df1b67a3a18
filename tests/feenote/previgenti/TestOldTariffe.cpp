// The bracket of the older tariff: what the dialog says, stores, and gives back.
#include "feenote/previgenti/frmOldTariffe.h"
#include "feenote/windows/tavolo.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString SenzaScaglione =
    u"Attenzione: non si possono inserire diritti con la tariffa previgente se non viene "
    u"specificato il relativo scaglione!"_s;

}  // namespace

class TestOldTariffe : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void spiegazioni_data();
    void spiegazioni();
    void confermaConUnaVoce();
    void confermareRicorda();
    void chiudereSenzaAvverte();
    void chiudereConUnoScaglioneTace();

private:
    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    std::unique_ptr<frmOldTariffe> D;
};
PROVA(TestOldTariffe);

void TestOldTariffe::init()
{
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
    D = std::make_unique<frmOldTariffe>(F, frmOldTariffe::PerApplicare);
    D->AggiungiScaglione(u"da euro 0 a euro 600"_s, 1);
    D->AggiungiScaglione(u"da euro 600 a euro 1.600"_s, 2);
    D->Apri();
}

void TestOldTariffe::cleanup()
{
    if (F)
        F->Nota.ScaglioneOld = 1;  // what is left open closes in silence
    D.reset();
    T.reset();
}

void TestOldTariffe::spiegazioni_data()
{
    QTest::addColumn<int>("Motivo");
    QTest::addColumn<QString>("Testo");
    QTest::newRow("applicare")
        << int(frmOldTariffe::PerApplicare)
        << u"Per l'applicazione delle tariffe richieste è necessario specificare in quale dei "
           u"seguenti scaglioni della tariffa previgente, è compreso il valore della causa."_s;
    QTest::newRow("ricalcolare")
        << int(frmOldTariffe::PerRicalcolare)
        << u"Per ricalcolare l'importo dei diritti già inseriti è necessario precisare in quali dei seguenti "
           u"scaglioni della tariffa previgente è compreso il valore della causa.\n"
           u"Dopo aver precisato lo scaglione, cliccare nuovamente sulla tariffa."_s;
}

void TestOldTariffe::spiegazioni()
{
    QFETCH(int, Motivo);
    QFETCH(QString, Testo);
    const frmOldTariffe Altra(F, frmOldTariffe::Motivo(Motivo));
    QCOMPARE(Altra.windowTitle(), u"Selezione scaglione tariffe previgenti"_s);
    QCOMPARE(Controllo<QLabel>(&Altra, "lblSpiegazione")->text(), Testo);
}

void TestOldTariffe::confermaConUnaVoce()
{
    QVERIFY(D->isModal());
    QVERIFY(D->isEnabled());
    QVERIFY(!F->isEnabled());
    auto* Conferma = Controllo<QPushButton>(D.get(), "cmdConferma");
    QVERIFY(!Conferma->isEnabled());
    Controllo<QComboBox>(D.get(), "cmbOldScaglioni")->setCurrentIndex(0);
    QVERIFY(Conferma->isEnabled());
}

void TestOldTariffe::confermareRicorda()
{
    Controllo<QComboBox>(D.get(), "cmbOldScaglioni")->setCurrentIndex(1);
    Controllo<QPushButton>(D.get(), "cmdConferma")->click();
    QCOMPARE(F->Nota.ScaglioneOld, 2);
    QVERIFY(!D->isVisible());
    QVERIFY(F->isEnabled());
}

void TestOldTariffe::chiudereSenzaAvverte()
{
    T->Voce.Attendi(SenzaScaglione, vbOK, u"Messaggio:"_s);
    QTest::keyClick(D.get(), Qt::Key_Escape);
    QVERIFY(!D->isVisible());
    QVERIFY(F->isEnabled());
    QVERIFY(Controllo(F, "cmbAutor")->isEnabled());
    QVERIFY(Controllo(F, "cmbValore")->isEnabled());
}

void TestOldTariffe::chiudereConUnoScaglioneTace()
{
    F->Nota.ScaglioneOld = 1;
    QVERIFY(D->close());
    QVERIFY(F->isEnabled());
}

#include "TestOldTariffe.moc"
