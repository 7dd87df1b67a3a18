// The state at the head of a note's window: what goes out, payments and number lead on, the user chooses.
#include "stampa.h"

#include "core/aperture.h"
#include "feenote/file/memoriastato.h"
#include "feenote/modAcconti.h"
#include "feenote/modStato.h"
#include "platform/preview/stampante.h"
#include "platform/system/percorsi.h"

#include <QMenu>
#include <QPrinter>
#include <QScopeGuard>
#include <QScopedValueRollback>
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
    void mentreSiDomanda();
    void pagamentiDiPrima();
    void siSalvaESiRilegge();
    void laNotaDiPrima();

    void unaIntattaLoTieneSubito();
    void laProtettaNonChiede();
    void unaToccataAspetta();
    void chiNonSiScrive_data();
    void chiNonSiScrive();
    void cambiataDaAltri();
    void ilPassoTornaAlFile();
    void importiCheNonSiLeggono();

private:
    /// The note on screen saved, and read back as it stands in its file.
    QString Salvata(const QString& Nome = u"salvata.mdb"_s)
    {
        const QString File = sessione::ParcellePath + Nome;
        ScriviNota(File, F->Nota);
        if (!F->Carica(File))
            return {};
        ClicScheda(F, SchedaDiStampa);
        return File;
    }
    [[nodiscard]] static StatoNota NelFile(const QString& File)
    {
        return LeggiStatoLetto(LeggiMemoria(OpenDatabase(File, true))).Stato;
    }
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
    QVERIFY(F->Nota.Modificata && InfoParcelle[1].Modificata);
    // No step: there is nothing to take back.
    QVERIFY(!Controllo<QToolButton>(F, "cmdAnnulla")->isEnabled());
}

/// A question that waits for its answer knows the note as it was.
void TestStatoNota::mentreSiDomanda()
{
    F->Nuova({});
    F->SetModificata(true);
    const StatoTenuto Era = F->Nota.Stato;
    const auto Mostra = Registratore::AlMostrare();
    bool Premuta = false;
    const QScopedValueRollback Mano(Registratore::AlMostrare(), std::function<void()>([&] {
                                        if (Mostra)
                                            Mostra();
                                        Premuta = true;
                                        Bottone()->menu()->actions().at(3)->trigger();
                                    }));
    T->Voce.Attendi(u"Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, vbCancel,
                    u"Domanda:"_s);
    QVERIFY(!F->ChiediChiusura());
    QVERIFY(Premuta);
    QCOMPARE(F->Nota.Stato, Era);
    QVERIFY(Bottone()->menu()->actions().at(0)->isChecked());
    F->SetModificata(false);
}

/// A choice over payments that were there already holds when the note is opened and worked on.
void TestStatoNota::pagamentiDiPrima()
{
    Parcella Nota = F->Nota;
    Nota.xAcconti(NuovoAcconto(Nota), AccCorrispettivi) = 1e6;
    Nota.Stato = {};
    (void)ScegliStato(Nota, Inviata);
    const QString File = sessione::ParcellePath + u"pagata prima.mdb"_s;
    ScriviNota(File, Nota);
    QVERIFY(F->Carica(File));
    QVERIFY(CoperturaDi(F->Nota).Coperta);
    ClicScheda(F, SchedaBase);
    Scrivi(F, "txtCliente", u"Verdi"_s);
    QVERIFY(F->Nota.Modificata);
    QCOMPARE(F->Nota.Stato.Stato, Inviata);
    F->SetModificata(false);
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
    QVERIFY(Bottone()->toolTip().startsWith(u"È di una versione precedente"_s));
    QVERIFY(!F->Nota.Modificata);
}

/// A print leaves nothing to be saved: the end of the window asks about nothing, the next save neither.
void TestStatoNota::unaIntattaLoTieneSubito()
{
    Documento(StampaPrenotula);
    const QString File = Salvata();
    int Rinfrescate = 0;
    const QScopedValueRollback Elenco(Aperture.RinfrescaTrova, std::function<void()>([&] { ++Rinfrescate; }));
    Stampa();
    QCOMPARE(Rinfrescate, 1);  // a list on view shows the state
    QCOMPARE(Detto(), u"Stato: inviata"_s);
    QVERIFY(!F->Nota.Modificata && !InfoParcelle[1].Modificata);
    QCOMPARE(NelFile(File), Inviata);
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.Stato, F->Nota.Stato);
    QVERIFY(NoteDaRecuperare().isEmpty());
    // Our own writing is nobody else's.
    ClicScheda(F, SchedaBase);
    Scrivi(F, "txtCliente", u"Verdi"_s);
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(Cliente(File), u"Verdi"_s);
    QCOMPARE(NelFile(File), Inviata);
    QVERIFY(F->ChiediChiusura());
}

void TestStatoNota::laProtettaNonChiede()
{
    Documento(StampaPrenotula);
    F->Nota.Psw = u"->>abc"_s;
    T->Voce.Attendi(u"Attenzione, la parcella è protetta! Le modifiche potranno essere salvate\n"
                    u"solo dopo aver specificato la chiave di protezione."_s);
    const QString File = Salvata();
    QVERIFY(!F->Nota.Psw.isEmpty());
    T->Voce.AttendiSalva(CartellaDiProva() + u"protetta.pdf"_s);
    T->Voce.Attendi(u"Il documento protetta.pdf è stato salvato correttamente!"_s);
    Premuto("barPrint_pdf");
    QCOMPARE(NelFile(File), Inviata);
    QVERIFY(!F->Nota.Modificata);
    QCOMPARE(Parametro(File, u"Psw"_s).toString(), u"097098099"_s);
}

/// Who has changed the note decides himself whether what he changed is kept.
void TestStatoNota::unaToccataAspetta()
{
    Documento(StampaPrenotula);
    const QString File = Salvata();
    ClicScheda(F, SchedaBase);
    Scrivi(F, "txtCliente", u"Verdi"_s);
    ClicScheda(F, SchedaDiStampa);
    const QByteArray Era = LeggiFile(File);
    Stampa();
    QCOMPARE(Detto(), u"Stato: inviata"_s);
    QVERIFY(F->Nota.Modificata);
    QVERIFY(LeggiFile(File) == Era);
}

void TestStatoNota::chiNonSiScrive_data()
{
    QTest::addColumn<bool>("Modello");
    QTest::newRow("a template stays as it is") << true;
    QTest::newRow("what is read-only too") << false;
}

void TestStatoNota::chiNonSiScrive()
{
    QFETCH(bool, Modello);
    Documento(StampaPrenotula);
    const QString File = (Modello ? sessione::ModelliPath : sessione::ParcellePath) + u"ferma.mdb"_s;
    ScriviNota(File, F->Nota, Modello);
    QVERIFY(F->Carica(File));
    ClicScheda(F, SchedaDiStampa);
    ImpostaSolaLettura(File, !Modello);
    const QByteArray Era = LeggiFile(File);
    Stampa();
    QCOMPARE(Detto(), u"Stato: inviata"_s);
    QVERIFY(!F->Nota.Modificata && !InfoParcelle[1].Modificata);
    QVERIFY(LeggiFile(File) == Era);
    QVERIFY(F->ChiediChiusura());
}

/// What somebody else has saved since gets no state of ours unasked: it is another note by now.
void TestStatoNota::cambiataDaAltri()
{
    Documento(StampaPrenotula);
    const QString File = Salvata();
    ImpostaDataFile(File, DataFile(File).addSecs(60));
    const QByteArray Era = LeggiFile(File);
    Stampa();
    QVERIFY(F->Nota.Modificata);
    QVERIFY(LeggiFile(File) == Era);
    QFile::remove(File);
    F->SetModificata(false);
    F->Nota.Stato = StatoDiNuova();
    Stampa();
    QVERIFY(F->Nota.Modificata);
    QVERIFY(!EsisteFile(File));
}

void TestStatoNota::ilPassoTornaAlFile()
{
    Documento(StampaPrenotula);
    (void)Salvata();
    Stampa();
    QVERIFY(!Controllo<QToolButton>(F, "cmdAnnulla")->isEnabled());
    ClicScheda(F, SchedaBase);
    Scrivi(F, "txtCliente", u"Verdi"_s);
    QVERIFY(F->Nota.Modificata);
    Clic(Controllo(F, "cmdAnnulla"));
    QVERIFY(!F->Nota.Modificata);
    QCOMPARE(Detto(), u"Stato: inviata"_s);
}

/// A state with figures that hold a 0 which nobody has written does not go into the file unasked.
void TestStatoNota::importiCheNonSiLeggono()
{
    Documento(StampaPrenotula);
    const QString File = sessione::ParcellePath + u"guasta.mdb"_s;
    ScriviNota(File, F->Nota);
    OpenDatabase(File).Execute(u"UPDATE ParcellaRighe SET Importo='mille' WHERE rowid=1"_s);
    const QByteArray Era = LeggiFile(File);
    T->Voce.Attendi(u"Attenzione, un importo della parcella non si legge: al suo posto è 0.\n"
                    u"Prima di salvarla occorre scriverlo di nuovo."_s,
                    vbOK, u"Avvertenza:"_s);
    QVERIFY(F->Carica(File));
    QVERIFY(F->Nota.Modificata);
    // No step back leads to what the file holds.
    ClicScheda(F, SchedaBase);
    Scrivi(F, "txtCliente", u"Verdi"_s);
    Clic(Controllo(F, "cmdAnnulla"));
    QVERIFY(F->Nota.Modificata);
    ClicScheda(F, SchedaDiStampa);
    Stampa();
    QVERIFY(F->Nota.Modificata);
    QVERIFY(LeggiFile(File) == Era);
    F->SetModificata(false);
}

#include "TestStatoNota.moc"
