// The filing fee on its road from the calculator to the expenses of a note, and back by one step.
#include "scena.h"

#include "calculators/windows/frmContrib.h"
#include "core/app/apritori.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/base/regionale.h"
#include "platform/grid/griglia.h"
#include "platform/system/orologio.h"
#include "supporto/mani.h"
#include "ufficio.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

#include <memory>

class TestStradaContributo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void nellaNotaDavanti();
    void conLaSchedaDelleSpeseInVista();
    void fraDueNote();
    void senzaDatiBase();
    void laCellaApertaSiScrivePrima();
    void laCellaDaCorreggereFerma();
    void chiusaLaNotaNonSiPuo();
    void lAnticipazioneOfferta();

private:
    static frmParcelle* Nuova(int Posto);
    static void Compila(const frmParcelle* F, const QString& Oggetto);
    static frmContrib* Calcola(const QString& Valore);
    static QToolButton* Porta(const frmContrib* C) { return C->findChild<QToolButton*>(u"cmdPorta_0"_s); }
    static QString Detto(const frmContrib* C)
    {
        const auto* Riga = C->findChild<QLabel*>(u"lblPortata"_s);
        return Riga->isVisible() ? Riga->text() : QString();
    }
    static QStringList Spese(const frmParcelle* F);

    std::unique_ptr<Scena> S;
    std::unique_ptr<Registratore> Box;
};
PROVA(TestStradaContributo);

void TestStradaContributo::init()
{
    S = std::make_unique<Scena>();
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
    (void)SalvaUfficio();
    for (const QString& Chiave : {u"StudioIndir"_s, u"StudioCitta"_s, u"StudioMail"_s})
        Scena::Salva(Chiave, u"Studio Bianchi"_s);
    RiempiApritori();
    Box = std::make_unique<Registratore>();
    Main({});
}

void TestStradaContributo::cleanup()
{
    delete SeCaricato<frmContrib>.data();
    AzzeraFinestre();
    Box.reset();
    S.reset();
    InstallaOrologio({});
}

frmParcelle* TestStradaContributo::Nuova(int Posto)
{
    EseguiComando(u"new"_s, 0, {});
    return Parcelle(Posto);
}

void TestStradaContributo::Compila(const frmParcelle* F, const QString& Oggetto)
{
    Scrivi(F, "txtCliente", Oggetto);
    ScegliConFrecce(Controllo<QComboBox>(F, "cmbCateg"), 0);
    ScegliConFrecce(Controllo<QComboBox>(F, "cmbAutor"), 2);
    Scrivi(F, "txtImporto", u"30000"_s);
    Premi(Qt::Key_Tab);
    Respiro();
}

/// The calculator from the frame's command, with the fee of a value.
frmContrib* TestStradaContributo::Calcola(const QString& Valore)
{
    EseguiComando(u"contrib"_s, 0, {});
    frmContrib* C = SeCaricato<frmContrib>;
    if (!C || !MostraAttiva(*C))
        return nullptr;
    Scrivi(C, "txtValore_0", Valore);
    Controllo(C, "cmdSkImpugn")->setFocus();
    return C;
}

QStringList TestStradaContributo::Spese(const frmParcelle* F)
{
    QStringList Righe;
    const TabellaRighe& Tabella = F->Nota.xDiritti;
    for (int i = 0; i < Tabella.Righe(); ++i)
        Righe << QStringList{CStr(Tabella(i, DirData)), CStr(Tabella(i, DirDescr)).left(24),
                             CStr(Tabella(i, DirImponibile)), CStr(Tabella(i, DirEsente))}
                     .join(u'|');
    return Righe;
}

namespace {

const QStringList DuePortate{u"22/11/2026|Contributo unificato di |0|518"_s,
                             u"22/11/2026|Anticipazione forfettari|0|27"_s};

}  // namespace

void TestStradaContributo::nellaNotaDavanti()
{
    frmParcelle* F = Nuova(1);
    QVERIFY(F);
    Compila(F, u"Rossi"_s);
    frmContrib* C = Calcola(u"30000"_s);
    QVERIFY(C);
    QVERIFY(Porta(C)->isEnabled());
    Clic(Porta(C));
    QCOMPARE(Spese(F), DuePortate);
    QCOMPARE(Detto(C), u"Portato in «Nuova parcella - Rossi»: contributo 518,00, anticipazione 27,00"_s);
    QVERIFY(C->isVisible());
    QVERIFY(F->Nota.Modificata);
    QCOMPARE(F->findChild<QLabel*>(u"lblSpese"_s)->text(), u"Esenti: 545,00"_s);

    auto* Annulla = F->findChild<QToolButton*>(u"cmdAnnulla"_s);
    QCOMPARE(Annulla->toolTip(), u"Annulla: contributo unificato (Ctrl+Z)"_s);
    Annulla->click();
    QVERIFY(F->Nota.xDiritti.Vuota());
    QVERIFY(Annulla->toolTip() != u"Annulla: contributo unificato (Ctrl+Z)");
    F->findChild<QToolButton*>(u"cmdRipeti"_s)->click();
    QCOMPARE(Spese(F), DuePortate);
    F->SetModificata(false);
}

void TestStradaContributo::conLaSchedaDelleSpeseInVista()
{
    frmParcelle* F = Nuova(1);
    Compila(F, u"Rossi"_s);
    F->VaiAllaScheda(SchedaListaSpese);
    QCOMPARE(F->Scheda(), int(SchedaListaSpese));
    frmContrib* C = Calcola(u"30000"_s);
    Clic(Porta(C));
    const auto* Righe = F->findChild<Griglia*>(u"tdbDir"_s);
    QCOMPARE(Righe->Righe(), 2);
    QCOMPARE(Righe->RigaCorrente(), std::optional(1));
    QVERIFY(!Righe->InModifica());
    QCOMPARE(Righe->TestoPie(DirEsente), u"545,00"_s);
    F->SetModificata(false);
}

void TestStradaContributo::fraDueNote()
{
    frmParcelle* Prima = Nuova(1);
    Compila(Prima, u"Rossi"_s);
    frmParcelle* Seconda = Nuova(2);
    QVERIFY(Seconda && Seconda != Prima);
    Compila(Seconda, u"Verdi"_s);
    frmContrib* C = Calcola(u"30000"_s);
    Clic(Porta(C));
    auto* Menu = C->findChild<QMenu*>(u"menuNote"_s);
    QVERIFY(Menu);
    QCOMPARE(Menu->actions()[0]->text(), u"Nuova parcella:2 - Verdi"_s);
    QCOMPARE(Menu->actions()[1]->text(), u"Nuova parcella - Rossi"_s);
    QTest::keyClick(Menu, Qt::Key_Return);
    QCOMPARE(Spese(Seconda), DuePortate);
    QVERIFY(Prima->Nota.xDiritti.Vuota());
    Respiro();
    // Another one in front comes first.
    AttivaParcella(1);
    Clic(Porta(C));
    Menu = C->findChild<QMenu*>(u"menuNote"_s);
    QVERIFY(Menu);
    QCOMPARE(Menu->actions()[0]->text(), u"Nuova parcella - Rossi"_s);
    QTest::keyClick(Menu, Qt::Key_Return);
    QCOMPARE(Spese(Prima), DuePortate);
    Prima->SetModificata(false);
    Seconda->SetModificata(false);
}

void TestStradaContributo::senzaDatiBase()
{
    frmParcelle* F = Nuova(1);
    frmContrib* C = Calcola(u"30000"_s);
    Clic(Porta(C));
    QVERIFY(F->Nota.xDiritti.Vuota());
    QVERIFY(!F->Nota.Modificata);
    QCOMPARE(Detto(C), u"Non portato in «Nuova parcella»: prima completare i dati base "
                       "(Non è stata specificata la categoria della pratica)"_s);
    QVERIFY(Box->Mostrati().isEmpty());
}

/// A cell that stands open in the note is the user's, and is written first.
void TestStradaContributo::laCellaApertaSiScrivePrima()
{
    frmParcelle* F = Nuova(1);
    Compila(F, u"Rossi"_s);
    F->VaiAllaScheda(SchedaListaSpese);
    auto* Righe = F->findChild<Griglia*>(u"tdbDir"_s);
    DoppioClic(F->findChild<Griglia*>(u"tdbListaDir"_s), 2);
    QVERIFY(Righe->InModifica());
    LaCella(Righe)->setText(u"16"_s);
    frmContrib* C = Calcola(u"30000"_s);
    Clic(Porta(C));
    QCOMPARE(Spese(F), QStringList{u"|Marca da bollo|16|"_s} + DuePortate);
    F->SetModificata(false);
}

void TestStradaContributo::laCellaDaCorreggereFerma()
{
    frmParcelle* F = Nuova(1);
    Compila(F, u"Rossi"_s);
    F->VaiAllaScheda(SchedaListaSpese);
    auto* Righe = F->findChild<Griglia*>(u"tdbDir"_s);
    DoppioClic(F->findChild<Griglia*>(u"tdbListaDir"_s), 2);
    frmContrib* C = Calcola(u"30000"_s);
    Righe->ApriCella(0, DirImponibile);
    LaCella(Righe)->setText(u"abc"_s);
    Box->Attendi(u"Immettere un valore numerico!"_s);
    Porta(C)->click();
    QCOMPARE(F->Nota.xDiritti.Righe(), 1);
    QCOMPARE(Detto(C), u"Non portato in «Nuova parcella - Rossi»: una cella è da correggere"_s);
    LaCella(Righe)->setText(u"1"_s);
    F->SetModificata(false);
}

void TestStradaContributo::chiusaLaNotaNonSiPuo()
{
    frmParcelle* F = Nuova(1);
    Compila(F, u"Rossi"_s);
    frmContrib* C = Calcola(u"30000"_s);
    QVERIFY(Porta(C)->isEnabled());
    F->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    QTRY_VERIFY(!Porta(C)->isEnabled());
    QVERIFY(Porta(C)->toolTip().contains(u"nessuna parcella è aperta"));
}

/// The delivered norms stand behind the offer.
void TestStradaContributo::lAnticipazioneOfferta()
{
    frmParcelle* F = Nuova(1);
    Compila(F, u"Rossi"_s);
    F->VaiAllaScheda(SchedaListaSpese);
    DoppioClic(F->findChild<Griglia*>(u"tdbListaDir"_s), 1);
    auto* Offerta = F->findChild<QToolButton*>(u"cmdOfferta"_s);
    QVERIFY(Offerta->isVisible());
    QCOMPARE(Offerta->text(), u"27,00 esente: Ctrl+Invio (D.P.R. 115/2002, art. 30)"_s);
    Offerta->click();
    QCOMPARE(Spese(F), QStringList({u"|Anticipazione forfettari|0|27"_s}));
    F->SetModificata(false);
}

#include "TestStradaContributo.moc"
