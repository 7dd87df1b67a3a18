// "Da controllare" above the preview, by mouse and keyboard: what it lists, where each row leads, its room;
// and the marks of amounts beyond their range among the lines.
#include "bancocontrolli.h"

#include "feenote/modParametri.h"
#include "platform/base/regionale.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QPlainTextEdit>
#include <QSlider>
#include <QToolTip>

using namespace Qt::StringLiterals;

class TestElencoControlli : public QObject, private BancoControlli
{
    Q_OBJECT
private Q_SLOTS:
    void init() { PreparaControlli(); }
    void cleanup() { SgombraControlli(); }
    void nienteDaControllare();
    void senzaDocumentoNonSiVede();
    void ilQuadroDellaFatturaPrendeIlSuoPosto();
    void seguePerOgniCambio();
    void segueLaSchedaDelCliente();
    void archivioIlleggibile();
    void clienteAssente();
    void suggerimentoConSegni();
    void laVoceDelFilePortaAlQuadro();
    void laControparteToltaDallaStampa();
    void leRigheLontaneSiVedono();
    void dalTabulatore();
    void chiusoRestaChiuso();
    void laPaginaTieneIlSuoPosto();
    void conUnaDomandaNonPorta();
    void perChiAscolta();
    void fuoriVistaNonCosta();
    void nonEUnRifiuto();
    void ilSegnoFraLeRighe();
    void ilSegnoSegue();
    void ilPannelloNonMente();
};
PROVA(TestElencoControlli);

void TestElencoControlli::nienteDaControllare()
{
    QCOMPARE(Voci(), QStringList());
    QVERIFY(Controllo(F, "lblControlli")->isVisible());
    QCOMPARE(TestoDi(F, "lblControlli"), u"Niente da controllare"_s);
    QVERIFY(!Testa()->isVisible());
    QVERIFY(!Elenco()->isVisible());
}

void TestElencoControlli::senzaDocumentoNonSiVede()
{
    F->Nota.cmbTipoStampa = NessunaVoce;
    F->MostraTutto();
    QVERIFY(!Controllo(F, "fraControlli")->isVisible());
}

void TestElencoControlli::ilQuadroDellaFatturaPrendeIlSuoPosto()
{
    ApriPannello();
    QVERIFY(!Controllo(F, "fraControlli")->isVisible());
    Clic(Controllo<QAbstractButton>(F, "cmdFatturaXml"));
    QVERIFY(Controllo(F, "fraControlli")->isVisible());
}

void TestElencoControlli::seguePerOgniCambio()
{
    // Each letter counts, before the box is left.
    auto* Data = Controllo<QLineEdit>(F, "txtDatiPar_12");
    Data->setFocus();
    Data->selectAll();
    Digita(u"32"_s);
    QCOMPARE(Voci(), QStringList{u"La data della fattura non è una data: «32»"_s});
    QCOMPARE(Testa()->text(), u"Da controllare: 1"_s);
    QVERIFY(Testa()->isVisible() && Elenco()->isVisible() && !Controllo(F, "lblControlli")->isVisible());
    Digita(u"/13/26 pippo"_s);
    QCOMPARE(Voci(), QStringList{u"La data della fattura non è una data: «32/13/26 pippo»"_s});
    Data->clear();
    Digita(u"1/3/26"_s);
    QCOMPARE(Voci(), QStringList());
    QVERIFY2(Data->hasFocus(), "while the box is in edit");
    // A step back, another tab and another document.
    auto* Numero = Controllo<QLineEdit>(F, "txtDatiPar_11");
    Scrivi(Numero, {});
    QCOMPARE(Voci(), QStringList{u"La fattura è senza numero"_s});
    Premi(Qt::Key_Tab);
    Clic(Controllo(F, "cmdAnnulla"));
    QCOMPARE(Voci(), QStringList());
    ClicScheda(F, SchedaImposte);
    Scrivi(Controllo<QLineEdit>(F, "txtIVA"), u"21"_s);
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(Voci(), QStringList{u"I.V.A. al 21%: dal 01/10/2013 è il 22%"_s});
    Documento(StampaContratto);
    QCOMPARE(Voci(), QStringList());
}

void TestElencoControlli::segueLaSchedaDelCliente()
{
    CambiaCliente(u"CodFis"_s, u"RSSMRA80A01H501V"_s);
    QCOMPARE(Voci(), QStringList());  // nobody has told the note yet
    F->NominativoCambiato(u"clienti"_s, IDCliente);
    QCOMPARE(Voci(), QStringList{u"Il codice fiscale del cliente non torna: RSSMRA80A01H501V"_s});
    CambiaCliente(u"CodFis"_s, u"RSSMRA80A01H501U"_s);
    QEvent Torna(QEvent::WindowActivate);  // another program has written the row
    QApplication::sendEvent(Controllo(F, "SchedaStampa"), &Torna);
    QCOMPARE(Voci(), QStringList());
}

/// Nothing is said of a client whose archive cannot be read, and it is left in peace for a while.
void TestElencoControlli::archivioIlleggibile()
{
    const QString Archivio = sessione::ArchivioCliCon;
    sessione::ArchivioCliCon = T->Ufficio.File(u"manca/DatiStudio.mdb"_s);
    T->Voce.Attendi(u"Errore: L'archivio dei clienti non si legge: Database non trovato: %1 (3024)"_s.arg(
        sessione::ArchivioCliCon));
    F->NominativoCambiato(u"clienti"_s, IDCliente);
    QCOMPARE(Voci(), QStringList());
    sessione::ArchivioCliCon = Archivio;
    CambiaCliente(u"CodFis"_s, u"RSSMRA80A01H501V"_s);
    F->NominativoCambiato(u"clienti"_s, IDCliente);
    QCOMPARE(Voci(), QStringList());  // not asked again so soon
}

/// A row that is gone from an archive that can be read is told.
void TestElencoControlli::clienteAssente()
{
    F->Nota.IDCli = IDCliente + 1000;
    F->MostraTutto();
    QCOMPARE(Voci(), QStringList{u"Il cliente collegato non si trova nell'archivio"_s});
    Fai(Gesto::Invio, 0);
    QCOMPARE(NomeFuoco(), u"txtCliente"_s);
}

/// A description is no page: its signs are shown as they are.
void TestElencoControlli::suggerimentoConSegni()
{
    F->Nota.xOnorari(RigaConLimiti(5000, 750, 2400), OnoDescr) = u"Fase <b>decisoria</b>"_s;
    F->MostraTutto();
    QCOMPARE(Voci().size(), 1);
    QVERIFY2(Elenco()->item(0)->toolTip().contains(u"Fase <b>decisoria</b>"),
             qPrintable(Elenco()->item(0)->toolTip()));
}

void TestElencoControlli::laVoceDelFilePortaAlQuadro()
{
    SalvaImpostazioni({{u"ProgTrasm"_s, u"3"_s}});
    const auto Prima = InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_12"), u"01/11/2026"_s);
    ClicScheda(F, SchedaImposte);
    ClicScheda(F, SchedaDiStampa);
    const int Posto =
        PostoDi(u"Il file della fattura elettronica non è scritto: il termine era il 13/11/2026"_s);
    if (Posto >= 0)
        Fai(Gesto::Invio, Posto);
    InstallaOrologio(Prima);
    QVERIFY(Posto >= 0);
    QVERIFY(Pannello()->isVisible());
    QVERIFY(Controllo<QAbstractButton>(F, "cmdFatturaXml")->isChecked());
}

/// The box of the base tab has the name: what is missing stands among the words of the print.
void TestElencoControlli::laControparteToltaDallaStampa()
{
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaInformativa);
    F->Nota.txtControp.Testo = u"Neri Carlo"_s;
    F->Nota.txtDatiStaControp.Testo.clear();
    F->MostraTutto();
    const int Posto = PostoDi(u"La controparte non è indicata nel documento"_s);
    QVERIFY(Posto >= 0);
    Fai(Gesto::Clic, Posto);
    QCOMPARE(F->Scheda(), int(SchedaDiStampa));
    QVERIFY(Controllo(F, "txtDatiStaControp")->hasFocus());
}

void TestElencoControlli::leRigheLontaneSiVedono()
{
    Riempi(300);
    const int Riga = RigaConLimiti(5000, 750, 2400);
    Fai(Gesto::Clic, PostoDi(u"Onorario %1"_s.arg(Riga + 1)));
    const auto* Lista = Controllo<Griglia>(F, "tdbOnor");
    QCOMPARE(Lista->RigaCorrente(), std::optional(Riga));
    const QTableView* Vista = Lista->Vista();
    QVERIFY(Vista->viewport()->rect().contains(Vista->visualRect(Vista->currentIndex()).center()));
}

void TestElencoControlli::dalTabulatore()
{
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_11"), {});
    QCOMPARE(Voci().size(), 1);
    auto* Controparte = Controllo<QPlainTextEdit>(F, "txtDatiStaControp");
    Controparte->setFocus();
    QCOMPARE(OrdineTab(Controparte, 4),
             QStringList({u"txtDatiStaControp"_s, u"cmdControlli"_s, u"lstControlli"_s, u"fogliStampa"_s}));
    Elenco()->setFocus();
    QVERIFY2(Elenco()->item(0)->isSelected(), "the row with the focus is marked");
    Premi(Qt::Key_Tab);
    QVERIFY2(!Elenco()->item(0)->isSelected(), "a list that only asks for a look is not");
    // Nothing to look at: neither is a stop.
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_11"), u"12"_s);
    Respiro();
    Controparte->setFocus();
    QCOMPARE(OrdineTab(Controparte, 2), QStringList({u"txtDatiStaControp"_s, u"fogliStampa"_s}));
}

void TestElencoControlli::chiusoRestaChiuso()
{
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_11"), {});
    QCOMPARE(Voci().size(), 1);
    Testa()->setFocus();
    Premi(Qt::Key_Space);
    QVERIFY(Testa()->isVisible() && !Elenco()->isVisible());
    QCOMPARE(Testa()->arrowType(), Qt::RightArrow);
    QCOMPARE(Impostazione(u"Disposizione_lstControlli"_s), u"chiuso"_s);
    // What comes does not open it, its count goes on.
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_12"), {});
    QCOMPARE(Voci().size(), 2);
    QVERIFY(!Elenco()->isVisible());
    QCOMPARE(Testa()->text(), u"Da controllare: 2"_s);
    Clic(Testa());
    QVERIFY(Elenco()->isVisible());
    QCOMPARE(Testa()->arrowType(), Qt::DownArrow);
    QCOMPARE(Impostazione(u"Disposizione_lstControlli"_s), QString());
}

void TestElencoControlli::laPaginaTieneIlSuoPosto()
{
    for (int i = 0; i < 30; ++i)
        RigaSpesa(F->Nota, 0.0, QVariant());
    RigaConLimiti(5000, 750, 2400);
    QCOMPARE(Voci().size(), 1 + MassimoRilieviDiRighe + 1);
    for (const QSize Misura : {QSize(853, 512), QSize(1200, 900)}) {
        F->resize(Misura);
        for (int i = 0; i < 5; ++i)
            Respiro();
        const int Riga = Elenco()->sizeHintForRow(0);
        QVERIFY2(Elenco()->height() <= 5 * Riga + 2 * Elenco()->frameWidth(),
                 qPrintable(CStr(Elenco()->height())));
        QVERIFY2(Elenco()->height() >= 2 * Riga, qPrintable(CStr(Elenco()->height())));
        QVERIFY2(vp->height() > 2 * Controllo(F, "fraControlli")->height(),
                 qPrintable(u"%1 %2"_s.arg(vp->height()).arg(Controllo(F, "fraControlli")->height())));
    }
}

void TestElencoControlli::conUnaDomandaNonPorta()
{
    RigaConLimiti(5000, 750, 2400);
    F->Nota.txtDatiPar[DatoNumFatt].clear();
    F->Nota.txtDatiPar[DatoDataFatt].clear();
    F->MostraTutto();
    const auto Prima = Registratore::AlMostrare();
    int Durante = NessunaVoce;
    Registratore::AlMostrare() = [&] {
        Fai(Gesto::Clic, PostoDi(u"Onorario 2"_s));
        Durante = F->Scheda();
    };
    T->Voce.Attendi(u"Procedo all'aggiornamento del progressivo?"_s, vbNo, u"Domanda:"_s);
    Clic(Controllo(F, "cmdProgFatt"));
    Registratore::AlMostrare() = Prima;
    QCOMPARE(Durante, int(SchedaDiStampa));
    Fai(Gesto::Clic, PostoDi(u"Onorario 2"_s));
    QCOMPARE(F->Scheda(), int(SchedaListaOnorari));
}

void TestElencoControlli::perChiAscolta()
{
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_11"), {});
    RigaConLimiti(5000, 750, 2400);
    QCOMPARE(Voci().size(), 2);
    QCOMPARE(Elenco()->accessibleName(), u"Da controllare"_s);
    QCOMPARE(Elenco()->accessibleDescription(), u"Invio o Spazio portano al campo"_s);
    const QAccessibleInterface* Lista = QAccessible::queryAccessibleInterface(Elenco());
    QVERIFY(Lista && Lista->childCount() == 2);
    QCOMPARE(Lista->child(0)->text(QAccessible::Name), u"Errore: La fattura è senza numero"_s);
    QCOMPARE(Lista->child(1)->text(QAccessible::Name),
             u"Onorario 2 (Fase decisoria): 5.000,00, oltre il massimo di 2.400,00"_s);
    QVERIFY(!Testa()->toolTip().isEmpty());
    QCOMPARE(Testa()->accessibleName(), u"Da controllare: 2, elenco aperto"_s);
    Clic(Testa());
    QCOMPARE(Testa()->accessibleName(), u"Da controllare: 2, elenco chiuso"_s);
}

/// While another tab is in view nothing is reckoned: what the list held before stands until it is seen.
void TestElencoControlli::fuoriVistaNonCosta()
{
    ClicScheda(F, SchedaImposte);
    F->Nota.txtDatiPar[DatoNumFatt].clear();
    F->MostraTutto();
    QCOMPARE(Voci(), QStringList());
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(Voci(), QStringList{u"La fattura è senza numero"_s});
}

/// Printing, exporting and saving ask nothing because of it.
void TestElencoControlli::nonEUnRifiuto()
{
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_11"), {});
    RigaConLimiti(99999, 600, 1920);
    QCOMPARE(Voci().size(), 2);
    const QString File = T->Ufficio.File(u"rossi.pdf"_s);
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(u"Il documento rossi.pdf è stato salvato correttamente!"_s);
    Premuto("barPrint_pdf");
    QVERIFY(EsisteFile(File));
    QVERIFY2(!Pagine().contains(u"oltre il massimo") && Pagine().contains(u"99.999,00"),
             qPrintable(Pagine()));
}

void TestElencoControlli::ilSegnoFraLeRighe()
{
    const int Riga = RigaConLimiti(99999, 600, 1920);
    const int Sotto = RigaConLimiti(100, 600, 1920);
    const int Giusta = RigaConLimiti(1920, 600, 1920);
    ClicScheda(F, SchedaListaOnorari);
    const QTableView* Vista = Controllo<Griglia>(F, "tdbOnor")->Vista();
    const auto Detto = [&](int Numero, int Colonna) {
        return Vista->model()->index(Numero, Colonna).data(Qt::AccessibleDescriptionRole).toString();
    };
    QCOMPARE(Detto(Riga, OnoImporto), u"oltre il massimo di 1.920,00"_s);
    QCOMPARE(Detto(Sotto, OnoImporto), u"sotto il minimo di 600,00"_s);
    QCOMPARE(Detto(Giusta, OnoImporto), QString());
    QCOMPARE(Detto(Riga, OnoMax), QString());
    QCOMPARE(Detto(F->Nota.xOnorari.Righe(), OnoImporto), QString());  // the empty row
    const QRect Cella = Vista->visualRect(Vista->model()->index(Riga, OnoImporto));
    QHelpEvent Evento(QEvent::ToolTip, Cella.center(), Vista->viewport()->mapToGlobal(Cella.center()));
    QApplication::sendEvent(Vista->viewport(), &Evento);
    QVERIFY2(QToolTip::text().contains(u"oltre il massimo di 1.920,00"), qPrintable(QToolTip::text()));
    QToolTip::hideText();
}

void TestElencoControlli::ilSegnoSegue()
{
    const int Riga = RigaConLimiti(1200, 600, 1920);
    ClicScheda(F, SchedaListaOnorari);
    auto* Lista = Controllo<Griglia>(F, "tdbOnor");
    const auto Detto = [&] {
        return Lista->Vista()
            ->model()
            ->index(Riga, OnoImporto)
            .data(Qt::AccessibleDescriptionRole)
            .toString();
    };
    QCOMPARE(Detto(), QString());
    ScriviCella(Lista, Riga, OnoImporto, u"99999"_s);
    QCOMPARE(Detto(), u"oltre il massimo di 1.920,00"_s);
    ScriviCella(Lista, Riga, OnoImporto, u"1920"_s);
    QCOMPARE(Detto(), QString());
}

void TestElencoControlli::ilPannelloNonMente()
{
    const int Riga = RigaConLimiti(99999, 600, 1920);
    ClicScheda(F, SchedaListaOnorari);
    auto* Lista = Controllo<Griglia>(F, "tdbOnor");
    Lista->ImpostaRigaCorrente(Riga, OnoImporto);
    Clic(Controllo(PaginaIn(F), "barListaOnoDir_variaz"));
    const auto* Avviso = Controllo<QLabel>(F, "lblAvvisoGradua");
    const auto* Cursore = Controllo<QSlider>(F, "sldGraduaOno");
    QVERIFY(Avviso->isVisible());
    QCOMPARE(Avviso->text(), u"L'importo è oltre il massimo di 1.920,00"_s);
    QCOMPARE(Cursore->accessibleDescription(), Avviso->text());
    // Moved, the slider says what it shows.
    Controllo<QSlider>(F, "sldGraduaOno")->setFocus();
    Premi(Qt::Key_End);
    QVERIFY(!Avviso->isVisible());
    QCOMPARE(Cursore->accessibleDescription(), QString());
    // An amount in between, which is not where the slider was left.
    Premi(Qt::Key_Escape);
    ScriviCella(Lista, Riga, OnoImporto, u"1000"_s);
    Lista->ImpostaRigaCorrente(Riga, OnoImporto);
    Clic(Controllo(PaginaIn(F), "barListaOnoDir_variaz"));
    QCOMPARE(Avviso->text(), u"Il cursore non segna l'importo attuale"_s);
    QVERIFY(Avviso->isVisible());
}

#include "TestElencoControlli.moc"
