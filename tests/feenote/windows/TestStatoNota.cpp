// The state at the head of a note's window: what goes out, payments and number lead on, the user chooses.
#include "stampa.h"

#include "feenote/modAcconti.h"
#include "feenote/modStato.h"
#include "platform/preview/stampante.h"
#include "platform/system/percorsi.h"

#include <QMenu>
#include <QPrinter>
#include <QScopeGuard>
#include <QTimer>

using namespace Qt::StringLiterals;
using enum StatoNota;

class TestStatoNota : public QObject, private BancoStampa
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        Prepara();
        Riempi(2);
        F->SetModificata(false);
    }
    void cleanup() { Sgombra(); }

    void laStampa();
    void stampaAnnullata();
    void ilPdf();
    void inWord();
    void ilContrattoNonCambia();
    void laFatturaConNumero();
    void gliAccontiEIlPasso();
    void siScegliaColMouse();
    void siScegliaDaTastiera();
    void siSalvaESiRilegge();
    void laNotaDiPrima();

private:
    [[nodiscard]] QToolButton* Bottone() const { return Controllo<QToolButton>(F, "cmdStato"); }
    [[nodiscard]] QString Detto() const { return Bottone()->text(); }
    void Stampa()
    {
        const Stampanti Altre = InstallaStampanti(
            {[] { return QStringList{u"Ufficio"_s}; }, [](const QPrinter&) { return true; }});
        const auto Rimetti = qScopeGuard([&] { InstallaStampanti(Altre); });
        T->Voce.ScegliStampante = [](QPrinter& Scelta) {
            Scelta.setOutputFileName(CartellaDiProva() + u"stampa.pdf"_s);
            return true;
        };
        Premuto("barPrint_print");
    }
    void Numera()
    {
        Scrivi(F, "txtDatiPar_11", u"12"_s);
        Scrivi(F, "txtDatiPar_12", u"09/11/2026"_s);
    }
    /// The whole of the fees, as a payment typed into the grid.
    void Salda()
    {
        ClicScheda(F, SchedaImposte);
        auto* Acconti = Controllo<Griglia>(F, "tdbAcconti");
        ScriviCella(Acconti, 0, AccCorrispettivi, u"200"_s);
        Premi(Qt::Key_Down);
        Respiro();
        QCOMPARE(F->Nota.xAcconti.Righe(), 1);
    }
};
PROVA(TestStatoNota);

void TestStatoNota::laStampa()
{
    Documento(StampaPrenotula);
    F->SetModificata(false);
    QCOMPARE(Detto(), u"Stato: bozza"_s);
    Stampa();
    QCOMPARE(F->Nota.Stato.Stato, Inviata);
    QCOMPARE(Detto(), u"Stato: inviata"_s);
    QCOMPARE(Bottone()->accessibleName(), u"Stato: inviata"_s);
    QVERIFY(Bottone()->toolTip().startsWith(u"Inviata dal "_s));
    QVERIFY(F->Nota.Modificata);
    // A copy changes nothing.
    F->SetModificata(false);
    Stampa();
    QVERIFY(!F->Nota.Modificata);
}

void TestStatoNota::stampaAnnullata()
{
    Documento(StampaPrenotula);
    F->SetModificata(false);
    const Stampanti Altre =
        InstallaStampanti({[] { return QStringList{u"Ufficio"_s}; }, [](const QPrinter&) { return true; }});
    const auto Rimetti = qScopeGuard([&] { InstallaStampanti(Altre); });
    T->Voce.ScegliStampante = [](QPrinter&) { return false; };
    Premuto("barPrint_print");
    QCOMPARE(F->Nota.Stato.Stato, Bozza);
    T->Voce.AttendiSalva({});
    Premuto("barPrint_pdf");
    QCOMPARE(F->Nota.Stato.Stato, Bozza);
    QVERIFY(!F->Nota.Modificata);
}

void TestStatoNota::ilPdf()
{
    Documento(StampaPrenotula);
    const QString File = CartellaDiProva() + u"nota.pdf"_s;
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(u"Il documento nota.pdf è stato salvato correttamente!"_s);
    Premuto("barPrint_pdf");
    QCOMPARE(Detto(), u"Stato: inviata"_s);
    QVERIFY(F->Nota.Modificata);
}

void TestStatoNota::inWord()
{
    Documento(StampaPrenotula);
    T->Voce.Tollera();  // no program opens it here; it was written all the same
    Premuto("barPrint_word");
    QCOMPARE(Detto(), u"Stato: inviata"_s);
}

void TestStatoNota::ilContrattoNonCambia()
{
    Documento(StampaContratto);
    F->SetModificata(false);
    Stampa();
    QCOMPARE(Detto(), u"Stato: bozza"_s);
    QVERIFY(!F->Nota.Modificata);
}

void TestStatoNota::laFatturaConNumero()
{
    Documento(StampaFatturaAnalitica);
    Stampa();
    QCOMPARE(Detto(), u"Stato: inviata"_s);
    Numera();
    QCOMPARE(Detto(), u"Stato: inviata"_s);
    Stampa();
    QCOMPARE(Detto(), u"Stato: fatturata"_s);
    Scrivi(F, "txtDatiPar_11", QString());
    QCOMPARE(Detto(), u"Stato: inviata"_s);
    Scrivi(F, "txtDatiPar_11", u"13"_s);
    QCOMPARE(Detto(), u"Stato: fatturata"_s);
}

/// Payments are steps; what they made of the state goes with them, and what went out stays.
void TestStatoNota::gliAccontiEIlPasso()
{
    Documento(StampaPrenotula);
    Stampa();
    Salda();
    QCOMPARE(Detto(), u"Stato: pagata"_s);
    Clic(Controllo(F, "cmdAnnulla"));
    QCOMPARE(Detto(), u"Stato: inviata"_s);
    Clic(Controllo(F, "cmdRipeti"));
    QCOMPARE(Detto(), u"Stato: pagata"_s);
    while (Controllo<QToolButton>(F, "cmdAnnulla")->isEnabled())
        Clic(Controllo(F, "cmdAnnulla"));
    QCOMPARE(Detto(), u"Stato: inviata"_s);
}

void TestStatoNota::siScegliaColMouse()
{
    F->Nuova({});
    QTimer::singleShot(0, this, [this] {
        QMenu* Menu = Bottone()->menu();
        QVERIFY(Menu->isVisible());
        QVERIFY(Menu->actions().at(0)->isChecked());
        QTest::mouseClick(Menu, Qt::LeftButton, Qt::NoModifier,
                          Menu->actionGeometry(Menu->actions().at(3)).center());
    });
    Clic(Bottone());
    Respiro();
    QCOMPARE(Detto(), u"Stato: pagata"_s);
    QVERIFY(F->Nota.Modificata);
    // No step: there is nothing to take back.
    QVERIFY(!Controllo<QToolButton>(F, "cmdAnnulla")->isEnabled());
}

void TestStatoNota::siScegliaDaTastiera()
{
    Bottone()->setFocus(Qt::TabFocusReason);
    QTimer::singleShot(0, this, [this] {
        QMenu* Menu = Bottone()->menu();
        QVERIFY(Menu->isVisible());
        QTest::keyClick(Menu, Qt::Key_Down);
        QTest::keyClick(Menu, Qt::Key_Down);
        QTest::keyClick(Menu, Qt::Key_Return);
    });
    QTest::keyClick(Bottone(), Qt::Key_Space);
    Respiro();
    QCOMPARE(Detto(), u"Stato: inviata"_s);
}

void TestStatoNota::siSalvaESiRilegge()
{
    Documento(StampaPrenotula);
    Stampa();
    const QString File = T->Ufficio.File(u"salvata.mdb"_s);
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(u"La parcella salvata.mdb è stata salvata correttamente!"_s);
    QVERIFY(F->SalvaParcella(false));
    const StatoTenuto Era = F->Nota.Stato;
    QVERIFY(F->Carica(File));
    QCOMPARE(F->Nota.Stato, Era);
    QCOMPARE(Detto(), u"Stato: inviata"_s);
    QVERIFY(!F->Nota.Modificata);
    F->Nuova({});
    QCOMPARE(Detto(), u"Stato: bozza"_s);
}

void TestStatoNota::laNotaDiPrima()
{
    const QString File = T->Ufficio.File(u"vecchia.mdb"_s);
    ScriviNota(File, NotaPiena());
    EseguiSu(File, u"DROP TABLE \"_Calcanova\""_s);
    QVERIFY(F->Carica(File));
    QCOMPARE(Detto(), u"Stato: non noto"_s);
    QVERIFY(Bottone()->toolTip().startsWith(u"Nata in una versione precedente"_s));
    QVERIFY(!F->Nota.Modificata);
}

#include "TestStatoNota.moc"
