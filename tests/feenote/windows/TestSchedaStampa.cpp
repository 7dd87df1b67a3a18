// Tab 4 by mouse and keyboard: the document, its data, what composes it anew.
#include "tavolo.h"

#include "core/aperture.h"
#include "core/comandi.h"
#include "core/posti.h"
#include "feenote/modParti.h"
#include "platform/preview/stampante.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QAction>
#include <QGroupBox>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

const QString AvvisoIban =
    u"Per esporre l'IBAN occorre prima inserirlo nel quadro Dati Studio del menu Impostazioni"_s;
const QString AvvisoNotaSpese =
    u"Si consiglia di non esporre cassa previdenza e imposte nella nota giudiziale."_s;

/// Types into a box of several lines over what it holds.
void ScriviTesto(QPlainTextEdit* Box, const QString& Testo)
{
    Box->setFocus();
    Box->selectAll();
    Box->insertPlainText(QString());
    for (qsizetype i = 0; const QString& Riga : Testo.split(u'\n')) {
        if (i++ > 0)
            Premi(Qt::Key_Return);
        Digita(Riga);
    }
}

/// Lines enough for several pages.
void Riempi(frmParcelle* F, int Righe)
{
    for (int i = 0; i < Righe; ++i) {
        const int Riga = F->Nota.xOnorari.AggiungiRiga();
        F->Nota.xOnorari(Riga, OnoDescr) = u"Prestazione %1"_s.arg(i + 1);
        F->Nota.xOnorari(Riga, OnoImporto) = 100.0;
    }
}

}  // namespace

class TestSchedaStampa : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void senzaDocumento();
    void ogniDocumentoHaIlSuoPannello_data();
    void ogniDocumentoHaIlSuoPannello();
    void iPannelliNonSiAllargano();
    void segnarlaNonSpostaNulla();
    void ilClicCompone();
    void ilFuocoVaAllaPagina();
    void numeroEDataAllUscita();
    void ogniTastoSegnaMaNonCompone();
    void uscireSenzaScrivereNonCompone();
    void leCaselleConPiuRighe();
    void oggettoTornaAllaPrimaScheda();
    void laPrimaSchedaRiempieLeCaselle();
    void ogniFormaIlSuoBlocco();
    void ilBloccoScrittoRestaFraLePrenotule();
    void salvareRicompone();
    void gliInterruttoriSiVedonoAllApertura();
    void interruttoriRicordatiOltreLaNotaSpese();
    void regimeAgevolato();
    void accontiEMediDisabilitati_data();
    void accontiEMediDisabilitati();
    void iban();
    void ibanToltoDalleImpostazioni();
    void ivaDifferita();
    void schedaIvaDifferita();
    void avvisoDellaNotaSpese_data();
    void avvisoDellaNotaSpese();
    void avvisoChiuso();
    void personaOSocieta();
    void rappresentante();
    void pagine();
    void paginaUnoDopoOgniComposizione();
    void zoom_data();
    void zoom();
    void ctrlPVaAllaStampa();
    void ilSocioNonStampa();
    void parametriMancanti();
    void notaNuovaSenzaVecchiePagine();
    void pdf();
    void pdfAnnullato();
    void pdfSopraUnAltro();
    void ogniComposizioneScriveIlDocumento();
    void documentoCheNonSiScrive();
    void word();
    void wordInUso();
    void editorAlternativo();
    void laGuida();
    void senzaStampante();
    void clienteLunghissimo();
    void notaVuota();
    void tastieraSola();

private:
    void Documento(int Tipo);
    [[nodiscard]] QString Pagine() const { return vp->Pagine().Testo(); }
    /// Marks the document on view; a composition takes the mark away.
    void Segna() const { vp->Foglio().Tag = u"segno"_s; }
    [[nodiscard]] bool Composto() const { return vp->Foglio().Tag != u"segno"; }
    [[nodiscard]] QString txtPage() const { return Controllo<QLabel>(F, "txtPage")->text(); }
    void Premuto(const char* Chiave) const { Clic(Controllo(F, Chiave)); }
    /// The word-processor document of the note on view, as bytes; empty while there is none.
    [[nodiscard]] QByteArray Esportato() const
    {
        return EsisteFile(FileDocumento(1)) ? LeggiFile(FileDocumento(1)) : QByteArray();
    }

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    VistaStampa* vp = nullptr;
};
PROVA(TestSchedaStampa);

void TestSchedaStampa::init()
{
    T = std::make_unique<Tavolo>();
    sessione::StudioNome = u"Avv. Laura Conti"_s;
    F = T->Apri();
    QVERIFY(F);
    CompilaCivile(F);
    Scrivi(Controllo<QLineEdit>(F, "txtCliente"), u"Rossi Mario"_s);
    Scrivi(Controllo<QLineEdit>(F, "txtControp"), u"Bianchi Srl"_s);
    Scrivi(Controllo<QLineEdit>(F, "txtOggetto"), u"Sfratto"_s);
    F->resize(845, 555);
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(F->Scheda(), int(SchedaDiStampa));
    vp = Controllo<VistaStampa>(F, "vp");
}

void TestSchedaStampa::cleanup()
{
    T.reset();
}

void TestSchedaStampa::Documento(int Tipo)
{
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), Tipo);
    Respiro();
    QCOMPARE(F->Nota.cmbTipoStampa, Tipo);
}

void TestSchedaStampa::senzaDocumento()
{
    QCOMPARE(Controllo<QComboBox>(F, "cmbTipoStampa")->currentIndex(), -1);
    QVERIFY(!vp->isVisible());
    QVERIFY(Controllo(F, "lblSenzaDocumento")->isVisible());
    QVERIFY(Controllo(F, "lblSenzaDocumento")->isEnabled());  // in the colour of text
    QVERIFY(!Controllo(F, "fraDatiPar")->isVisible());
    QVERIFY(!Controllo(F, "fraParti")->isVisible());
    QVERIFY(!Controllo(F, "barPrint_print")->isEnabled());
    QCOMPARE(txtPage(), QString());
}

void TestSchedaStampa::ogniDocumentoHaIlSuoPannello_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Titolo");
    QTest::addColumn<QStringList>("Visti");
    const QStringList Numero{u"txtDatiPar_0"_s, u"txtDatiPar_1"_s};
    const QStringList Fattura{u"txtDatiPar_11"_s, u"txtDatiPar_12"_s, u"chkRegSempl"_s, u"chkFattAcc"_s,
                              u"chkIvaDiff"_s,    u"cmdSkIvaDiff"_s,  u"chkIBAN"_s};
    const QStringList Incarico{u"optContrTipo_0"_s, u"optContrTipo_1"_s};
    const QStringList Parti{u"txtDatiStaCli"_s, u"txtDatiStaOgg"_s, u"txtDatiStaControp"_s};
    QTest::newRow("prenotula") << 0 << u" Dati stampa prenotula: "_s
                               << Numero + Parti + QStringList{u"chkIBAN"_s};
    QTest::newRow("preventivo: senza IBAN") << 1 << u" Dati stampa preventivo: "_s << Numero + Parti;
    QTest::newRow("fattura sintetica") << 2 << u" Dati stampa fattura: "_s << Fattura + Parti;
    QTest::newRow("fattura analitica") << 3 << u" Dati stampa fattura: "_s << Fattura + Parti;
    QTest::newRow("nota spese") << 4 << u" Dati stampa nota spese: "_s
                                << QStringList{u"txtDatiPar_21"_s, u"txtDatiPar_22"_s, u"txtDatiPar_23"_s,
                                               u"txtDatiPar_24"_s} +
                                       Parti;
    QTest::newRow("contratto") << 5 << u" Dati stampa contratto: "_s << Incarico + Parti;
    QTest::newRow("informativa") << 6 << u" Dati stampa informativa: "_s << Incarico + Parti;
    QTest::newRow("solo conti") << 7 << u" Dati stampa parte contabile: "_s
                                << QStringList{u"txtDatiPar_31"_s, u"txtDatiPar_32"_s};
}

void TestSchedaStampa::ogniDocumentoHaIlSuoPannello()
{
    QFETCH(int, Tipo);
    QFETCH(QStringList, Visti);
    Documento(Tipo);
    QTEST(Controllo<QGroupBox>(F, "fraDatiPar")->title(), "Titolo");
    static const QRegularExpression Dati(
        u"^(txtDati(Par|Sta)|chk(IBAN|RegSempl|FattAcc|IvaDiff)|cmdSk|opt|txtContr)"_s);
    QStringList Trovati;
    for (const QWidget* Uno : PaginaIn(F)->findChildren<QWidget*>(Dati))
        if (Uno->isVisible())
            Trovati.append(Uno->objectName());
    Trovati.sort();
    Visti.sort();
    QCOMPARE(Trovati, Visti);
}

void TestSchedaStampa::iPannelliNonSiAllargano()
{
    F->resize(1366, 900);
    for (int Tipo = StampaPrenotula; Tipo <= StampaSoloContabile; ++Tipo) {
        Documento(Tipo);
        Respiro();
        for (const char* Nome : {"fraDatiPar", "fraParti"}) {
            const auto* Riquadro = PaginaIn(F)->findChild<QGroupBox*>(QString::fromLatin1(Nome));
            if (Riquadro->isVisible())
                QCOMPARE(Riquadro->height(), Riquadro->sizeHint().height());
        }
    }
}

void TestSchedaStampa::segnarlaNonSpostaNulla()
{
    Documento(StampaPrenotula);
    F->SetModificata(false);
    Respiro();
    const QPoint Prima = vp->mapTo(F, QPoint());
    F->SetModificata(true);
    Respiro();
    QVERIFY(Controllo(F, "pctSave")->isVisible());
    QCOMPARE(vp->mapTo(F, QPoint()), Prima);
}

void TestSchedaStampa::ilClicCompone()
{
    Documento(StampaPrenotula);
    QVERIFY(vp->isVisible());
    QVERIFY2(Pagine().contains(u"Preavviso di parcella"_s), qPrintable(Pagine()));
    QVERIFY(Pagine().contains(u"Rossi Mario"_s));
    QCOMPARE(txtPage(), u"1/1"_s);
    Documento(StampaSoloContabile);
    QVERIFY(!Pagine().contains(u"Preavviso di parcella"_s));
    QVERIFY(!Pagine().contains(u"Rossi Mario"_s));
}

void TestSchedaStampa::ilFuocoVaAllaPagina()
{
    Documento(StampaPrenotula);
    QVERIFY(vp->hasFocus() || vp->isAncestorOf(QApplication::focusWidget()));
}

void TestSchedaStampa::numeroEDataAllUscita()
{
    Documento(StampaPrenotula);
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_0"), u"12/A"_s);
    Premi(Qt::Key_Tab);
    QVERIFY2(Pagine().contains(u"n. 12/A"_s), qPrintable(Pagine()));
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_1"), u"5 marzo 2024"_s);
    Premi(Qt::Key_Return);
    QVERIFY2(Pagine().contains(u" del 5 marzo 2024"_s), qPrintable(Pagine()));
    QCOMPARE(F->Nota.DatiPar(DatoNumero), u"12/A"_s);
}

void TestSchedaStampa::ogniTastoSegnaMaNonCompone()
{
    Documento(StampaPrenotula);
    F->SetModificata(false);
    Segna();
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_0"), u"1"_s);
    QVERIFY(F->Nota.Modificata);
    QVERIFY(!Composto());
    ScriviTesto(Controllo<QPlainTextEdit>(F, "txtDatiStaOgg"), u"Altro"_s);
    QVERIFY2(Composto(), "lasciando il numero");
    Segna();
    Digita(u"!"_s);
    QVERIFY(!Composto());
    QCOMPARE(F->Nota.txtDatiStaOgg.Testo, u"Altro!"_s);
    Premi(Qt::Key_Tab);
    QVERIFY(Composto());
}

void TestSchedaStampa::uscireSenzaScrivereNonCompone()
{
    Documento(StampaPrenotula);
    Segna();
    for (const char* Nome : {"txtDatiPar_0", "txtDatiPar_1", "txtDatiStaCli", "txtDatiStaOgg",
                             "txtDatiStaControp", "cmbTipoStampa"}) {
        Controllo(F, Nome)->setFocus();
        Respiro();
    }
    QVERIFY(!Composto());
    QVERIFY(!vp->hasFocus());
}

void TestSchedaStampa::leCaselleConPiuRighe()
{
    Documento(StampaSoloContabile);
    ScriviTesto(Controllo<QPlainTextEdit>(F, "txtDatiPar_31"), u"sopra"_s);
    Premi(Qt::Key_Return);
    Digita(u"due"_s);
    Premi(Qt::Key_Tab);
    QVERIFY2(Controllo(F, "txtDatiPar_32")->hasFocus(), "Tab va avanti, non nel testo");
    QCOMPARE(F->Nota.DatiPar(DatoTestoSuperiore), u"sopra\ndue"_s);
    QVERIFY(Pagine().startsWith(u"sopra"_s));
    Digita(u"sotto"_s);
    Controllo(F, "cmbTipoStampa")->setFocus();
    QVERIFY2(Pagine().contains(u"sotto"_s), qPrintable(Pagine()));
}

void TestSchedaStampa::oggettoTornaAllaPrimaScheda()
{
    Documento(StampaPrenotula);
    ScriviTesto(Controllo<QPlainTextEdit>(F, "txtDatiStaOgg"), u"Risoluzione"_s);
    ScriviTesto(Controllo<QPlainTextEdit>(F, "txtDatiStaControp"), u"Gialli Spa"_s);
    ClicScheda(F, SchedaBase);
    QCOMPARE(Controllo<QLineEdit>(F, "txtOggetto")->text(), u"Risoluzione"_s);
    QCOMPARE(Controllo<QLineEdit>(F, "txtControp")->text(), u"Gialli Spa"_s);
    QCOMPARE(F->Nota.txtOggetto.Testo, u"Risoluzione"_s);
}

/// Rows in the head of the invoice and the sentence of the contract live side by side.
void TestSchedaStampa::ogniFormaIlSuoBlocco()
{
    auto* Blocco = Controllo<QPlainTextEdit>(F, "txtDatiStaCli");
    Documento(StampaPrenotula);
    ScriviTesto(Blocco, u"Rossi Maria\nVia Verdi 3"_s);
    Documento(StampaContratto);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Rossi Maria"_s);
    ScriviTesto(Blocco, u"Rossi Maria nata a Monza"_s);
    Documento(StampaFatturaAnalitica);
    QCOMPARE(Blocco->toPlainText(), u"Rossi Maria\nVia Verdi 3"_s);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Rossi Maria"_s);
    QVERIFY(!Pagine().contains(u"nata a Monza"_s));
    Documento(StampaInformativa);
    QVERIFY(Pagine().contains(u"Rossi Maria nata a Monza"_s));
}

void TestSchedaStampa::laPrimaSchedaRiempieLeCaselle()
{
    Documento(StampaPrenotula);
    QCOMPARE(Controllo<QPlainTextEdit>(F, "txtDatiStaCli")->toPlainText(), u"Rossi Mario"_s);
    ClicScheda(F, SchedaBase);
    Scrivi(Controllo<QLineEdit>(F, "txtCliente"), u"Neri Ugo"_s);
    Segna();
    ClicScheda(F, SchedaDiStampa);
    QVERIFY2(Composto(), "aprendo la scheda");
    QCOMPARE(Controllo<QPlainTextEdit>(F, "txtDatiStaCli")->toPlainText(), u"Neri Ugo"_s);
    QVERIFY(Pagine().contains(u"Neri Ugo"_s));
}

void TestSchedaStampa::ilBloccoScrittoRestaFraLePrenotule()
{
    F->Nota.IDCli = T->Ufficio.AggiungiCliente(u"Rossi Mario"_s);
    Documento(StampaPrenotula);
    ScriviTesto(Controllo<QPlainTextEdit>(F, "txtDatiStaCli"), u"Eredi Rossi"_s);
    Documento(StampaPreventivo);
    QCOMPARE(F->Nota.txtDatiStaCli.Testo, u"Eredi Rossi"_s);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Rossi Mario"_s);
    Documento(StampaPrenotula);
    QVERIFY(Pagine().contains(u"Eredi Rossi"_s));
    Documento(StampaNotaGiudiziale);
    QCOMPARE(Controllo<QPlainTextEdit>(F, "txtDatiStaCli")->toPlainText(), u"Rossi Mario"_s);
}

void TestSchedaStampa::salvareRicompone()
{
    Documento(StampaPrenotula);
    const QString File = T->Ufficio.File(u"nota.mdb"_s);
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(u"La parcella nota.mdb è stata salvata correttamente!"_s);
    Segna();
    QVERIFY(F->SalvaParcella(false));
    QVERIFY(Composto());
    QVERIFY2(EsisteFile(sessione::UserFolder + Barra(u"doc"_s) + u"nota.doc"_s), "col nome che ha preso");
}

void TestSchedaStampa::gliInterruttoriSiVedonoAllApertura()
{
    Riempi(F, 1);
    Documento(StampaPrenotula);
    QVERIFY(Pagine().contains(u"I.V.A. 21%"_s));
    ClicScheda(F, SchedaImposte);
    Segna();
    Clic(Controllo(F, "chkIva"));
    Clic(Controllo(F, "chkRA"));
    QVERIFY2(!Composto(), "una pagina che nessuno vede aspetta");
    ClicScheda(F, SchedaDiStampa);
    QVERIFY(Composto());
    QVERIFY(!Pagine().contains(u"I.V.A."_s));
    QVERIFY(Pagine().contains(u"Ritenuta Acconto 20%"_s));
}

void TestSchedaStampa::interruttoriRicordatiOltreLaNotaSpese()
{
    ClicScheda(F, SchedaImposte);
    Scrivi(Controllo<QLineEdit>(F, "txtIVA"), u"10"_s);
    Clic(Controllo(F, "chkRA"));
    Clic(Controllo(F, "chkAcconti"));
    ClicScheda(F, SchedaDiStampa);
    Documento(StampaNotaGiudiziale);
    for (const char* Nome : {"chkIva", "chkCP", "chkRA", "chkSpeseGen"})
        QVERIFY2(!Controllo<QCheckBox>(F, Nome)->isChecked(), Nome);
    for (const char* Nome : {"chkAcconti", "chkRA", "txtRA"})
        QVERIFY2(!Controllo(F, Nome)->isEnabledTo(F), Nome);
    QCOMPARE(Controllo<QLineEdit>(F, "txtIVA")->text(), QString());
    Documento(StampaPrenotula);
    QCOMPARE(Controllo<QLineEdit>(F, "txtIVA")->text(), u"10"_s);
    QCOMPARE(Controllo<QLineEdit>(F, "txtRA")->text(), u"20"_s);
    QVERIFY(Controllo<QCheckBox>(F, "chkAcconti")->isChecked());
    QVERIFY(Controllo(F, "chkRA")->isEnabledTo(F));
    QVERIFY2(Pagine().contains(u"I.V.A. 10%"_s), qPrintable(Pagine()));
}

void TestSchedaStampa::regimeAgevolato()
{
    ClicScheda(F, SchedaImposte);
    Clic(Controllo(F, "chkRA"));
    ClicScheda(F, SchedaDiStampa);
    Documento(StampaFatturaAnalitica);
    Clic(Controllo(F, "chkIvaDiff"));
    Segna();
    Clic(Controllo(F, "chkRegSempl"));
    QVERIFY(Composto());
    QVERIFY(!F->Nota.chkIva.Vale() && !F->Nota.chkRA.Vale() && !F->Nota.chkIvaDiff.Attiva);
    QVERIFY(!Controllo(F, "chkIvaDiff")->isEnabled());
    Documento(StampaPrenotula);
    Documento(StampaFatturaAnalitica);
    QVERIFY2(!F->Nota.chkIva.Attiva, "nessun documento la rimette");
    Clic(Controllo(F, "chkRegSempl"));
    QVERIFY(F->Nota.chkIva.Vale() && F->Nota.chkRA.Vale());
    QVERIFY(Controllo(F, "chkIvaDiff")->isEnabled());
    QVERIFY(!F->Nota.chkIvaDiff.Attiva);
}

void TestSchedaStampa::accontiEMediDisabilitati_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<bool>("Acconti");
    QTest::addColumn<bool>("Medi");
    QTest::newRow("prenotula") << 0 << true << true;
    QTest::newRow("preventivo") << 1 << true << true;
    QTest::newRow("fattura sintetica") << 2 << true << false;
    QTest::newRow("fattura analitica") << 3 << true << true;
    QTest::newRow("nota spese") << 4 << false << true;
    QTest::newRow("contratto") << 5 << false << false;
    QTest::newRow("informativa") << 6 << false << false;
    QTest::newRow("solo conti") << 7 << true << true;
}

void TestSchedaStampa::accontiEMediDisabilitati()
{
    QFETCH(int, Tipo);
    Documento(StampaContratto);  // which disables both
    Documento(Tipo);
    QTEST(Controllo(F, "chkAcconti")->isEnabledTo(F), "Acconti");
    QTEST(Controllo(F, "chkMinMax")->isEnabledTo(F), "Medi");
}

void TestSchedaStampa::iban()
{
    Documento(StampaPrenotula);
    auto* Box = Controllo<QCheckBox>(F, "chkIBAN");
    T->Voce.Attendi(AvvisoIban, vbOK, u"Messaggio:"_s);
    Clic(Box);
    QVERIFY(!Box->isChecked());
    QVERIFY(!F->Nota.chkIBAN.Attiva);

    sessione::Iban = u"IT60X0542811101000000123456"_s;
    Clic(Box);
    QVERIFY(Box->isChecked());
    QVERIFY(Pagine().contains(sessione::Iban));
    Documento(StampaPreventivo);
    QVERIFY(!Pagine().contains(sessione::Iban));
    Documento(StampaFatturaAnalitica);
    QVERIFY2(Box->isVisible() && Box->isChecked(), "una casella per i tre documenti");
}

void TestSchedaStampa::ibanToltoDalleImpostazioni()
{
    Documento(StampaPrenotula);
    sessione::Iban = u"IT60X0542811101000000123456"_s;
    auto* Box = Controllo<QCheckBox>(F, "chkIBAN");
    Clic(Box);
    sessione::Iban.clear();
    ClicScheda(F, SchedaImposte);
    ClicScheda(F, SchedaDiStampa);
    QVERIFY2(!Pagine().contains(u"IBAN"_s), "nessuna frase senza il suo numero");
    QVERIFY(!Box->isChecked());
    QVERIFY(!F->Nota.chkIBAN.Attiva);
}

void TestSchedaStampa::ivaDifferita()
{
    Documento(StampaFatturaAnalitica);
    Segna();
    Clic(Controllo(F, "chkFattAcc"));
    QVERIFY(F->Nota.chkFattAcc.Attiva);
    QVERIFY2(!Composto(), "l'acconto non cambia la fattura");
    Clic(Controllo(F, "chkIvaDiff"));
    QVERIFY(F->Nota.chkIvaDiff.Attiva && Composto());
}

void TestSchedaStampa::schedaIvaDifferita()
{
    Documento(StampaFatturaSintetica);
    QVERIFY2(!Controllo(F, "cmdSkIvaDiff")->isEnabled(), "chi mostra le pagine non c'è");
    QString Aperta;
    Aperture.PaginaWeb = [&](const QString& Pagina, const QString& Titolo) {
        Aperta = Pagina + u'|' + Titolo;
    };
    F->MostraTutto();
    Clic(Controllo(F, "cmdSkIvaDiff"));
    QCOMPARE(Aperta, sessione::PercorsoProg + u"SkIvaDiff.htm|VDM - Scheda informativa Iva differita"_s);
}

void TestSchedaStampa::avvisoDellaNotaSpese_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<bool>("Avviso");
    QTest::newRow("I.V.A.") << u"chkIva"_s << true;
    QTest::newRow("cassa") << u"chkCP"_s << true;
    QTest::newRow("non le spese generali") << u"chkSpeseGen"_s << false;
}

void TestSchedaStampa::avvisoDellaNotaSpese()
{
    QFETCH(QString, Nome);
    QFETCH(bool, Avviso);
    QString Aperta;
    Aperture.PaginaWeb = [&](const QString& Pagina, const QString& Titolo) {
        Aperta = Pagina + u'|' + Titolo;
    };
    Documento(StampaNotaGiudiziale);
    ClicScheda(F, SchedaImposte);
    if (Avviso)
        T->Voce.Attendi(AvvisoNotaSpese, vbOK, u"Avvertenza:"_s);
    Clic(Controllo(F, Nome.toLatin1().constData()));
    const QString Scheda =
        sessione::PercorsoProg + u"SchedaNotaSpese.htm|KR5 - Scheda informativa nota spese giudiziale"_s;
    QCOMPARE(Aperta, Avviso ? Scheda : QString());
    Clic(Controllo(F, Nome.toLatin1().constData()));
    Clic(Controllo(F, Nome.toLatin1().constData()));  // once for each window
}

void TestSchedaStampa::avvisoChiuso()
{
    bool Aperta = false;
    Aperture.PaginaWeb = [&](const QString&, const QString&) { Aperta = true; };
    Documento(StampaNotaGiudiziale);
    ClicScheda(F, SchedaImposte);
    QStringList Pulsanti;
    const Messaggi Voce = InstallaMessaggi({});
    Messaggi Ascolto = Voce;
    Ascolto.BoxPulsanti = [&](const QString& Testo, int Bandiere, const QString& Titolo,
                              const QStringList& Scritti) {
        Pulsanti = Scritti;
        return Voce.BoxPulsanti(Testo, Bandiere, Titolo, Scritti);
    };
    InstallaMessaggi(Ascolto);
    const auto Rimetti = qScopeGuard([&] { InstallaMessaggi(Voce); });
    T->Voce.Attendi(AvvisoNotaSpese, vbCancel, u"Avvertenza:"_s);
    Clic(Controllo(F, "chkIva"));
    QCOMPARE(Pulsanti, (QStringList{u" VEDI SCHEDA "_s, u"Chiudi"_s}));
    QCOMPARE(T->Voce.Ultimo().Bandiere, vbOKCancel + vbInformation);
    QVERIFY(!Aperta);
    QVERIFY2(F->Nota.chkIva.Attiva, "il consiglio non cambia la scelta");
}

void TestSchedaStampa::personaOSocieta()
{
    Documento(StampaContratto);
    QVERIFY(Controllo<QRadioButton>(F, "optContrTipo_0")->isChecked());
    QVERIFY(!Controllo(F, "txtContrRappr")->isVisible());
    Segna();
    Clic(Controllo(F, "optContrTipo_1"));
    QCOMPARE(F->Nota.optContrTipo, 1);
    QVERIFY(Composto());
    Respiro();
    QVERIFY(Controllo(F, "txtContrRappr")->isVisible());
}

void TestSchedaStampa::rappresentante()
{
    Documento(StampaContratto);
    Clic(Controllo(F, "optContrTipo_1"));
    Respiro();
    Scrivi(Controllo<QLineEdit>(F, "txtContrRappr"), u"Verdi Anna"_s);
    Premi(Qt::Key_Tab);
    Digita(u"01/02/1960"_s);
    Premi(Qt::Key_Tab);
    Digita(u"Lucca"_s);
    Premi(Qt::Key_Tab);
    Digita(u"Pisa"_s);
    Segna();
    Premi(Qt::Key_Tab);
    QVERIFY(Composto());
    const Rappresentante Atteso{u"Verdi Anna"_s, u"01/02/1960"_s, u"Lucca"_s, u"Pisa"_s};
    QVERIFY(F->Nota.Rappr == Atteso);
}

void TestSchedaStampa::pagine()
{
    Riempi(F, 150);
    Documento(StampaPrenotula);
    const int Tutte = vp->NumeroPagine();
    QVERIFY(Tutte >= 3);
    QCOMPARE(txtPage(), u"1/%1"_s.arg(Tutte));
    Premuto("barPrint_up");
    QCOMPARE(txtPage(), u"1/%1"_s.arg(Tutte));
    Premuto("barPrint_down");
    QCOMPARE(txtPage(), u"2/%1"_s.arg(Tutte));
    QCOMPARE(vp->PaginaInVista(), 2);
    for (int i = 0; i < Tutte; ++i)
        Premuto("barPrint_down");
    QCOMPARE(txtPage(), u"%1/%1"_s.arg(Tutte));
    Premuto("barPrint_up");
    QCOMPARE(txtPage(), u"%1/%2"_s.arg(Tutte - 1).arg(Tutte));
}

void TestSchedaStampa::paginaUnoDopoOgniComposizione()
{
    Riempi(F, 150);
    Documento(StampaPrenotula);
    const int Tutte = vp->NumeroPagine();
    Premuto("barPrint_down");
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_0"), u"7"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(txtPage(), u"1/%1"_s.arg(Tutte));
    Documento(StampaSoloContabile);
    QCOMPARE(vp->PaginaInVista(), 1);
    QCOMPARE(txtPage(), u"1/%1"_s.arg(vp->NumeroPagine()));
}

void TestSchedaStampa::zoom_data()
{
    QTest::addColumn<QString>("Voce");
    QTest::addColumn<int>("Percento");
    QTest::newRow("120%") << u"z120"_s << 120;
    QTest::newRow("100%") << u"z100"_s << 100;
    QTest::newRow("90%") << u"z90"_s << 90;
    QTest::newRow("80%") << u"z80"_s << 80;
    QTest::newRow("70%") << u"z70"_s << 70;
    QTest::newRow("adatta") << u"z999"_s << 0;
    QTest::newRow("il bottone stesso") << QString() << 100;
}

void TestSchedaStampa::zoom()
{
    QFETCH(QString, Voce);
    QFETCH(int, Percento);
    Documento(StampaPrenotula);
    QCOMPARE(vp->Zoom(), 80);
    auto* Bottone = Controllo<QToolButton>(F, "barPrint_zoom");
    if (Voce.isEmpty())
        QTest::mouseClick(Bottone, Qt::LeftButton, Qt::NoModifier, QPoint(6, Bottone->height() / 2));
    else
        Bottone->defaultAction()->menu()->findChild<QAction*>(Voce)->trigger();
    QCOMPARE(vp->Adattato(), Percento == 0);
    if (Percento > 0)
        QCOMPARE(vp->Zoom(), Percento);
}

void TestSchedaStampa::ctrlPVaAllaStampa()
{
    Aperture.VaiAllaScheda = [](int Indice, int Scheda) { Parcelle(Indice)->VaiAllaScheda(Scheda); };
    ClicScheda(F, SchedaImposte);
    Controllo(F, "txtIVA")->setFocus();
    Premi(Qt::Key_P, Qt::ControlModifier);
    Respiro();
    QCOMPARE(F->Scheda(), int(SchedaDiStampa));
}

void TestSchedaStampa::ilSocioNonStampa()
{
    Aperture.VaiAllaScheda = [](int Indice, int Scheda) { Parcelle(Indice)->VaiAllaScheda(Scheda); };
    ApriParcella({}, 1, {});
    frmParcelle* Altra = Parcelle(2);
    QVERIFY(Altra && MostraAttiva(*Altra));
    QVERIFY(!Altra->HaStampa());
    CompilaCivile(Altra);
    EseguiComando(u"print"_s, 2, {});
    QCOMPARE(Altra->Scheda(), int(SchedaBase));
    EseguiComando(u"print"_s, 1, {});
    QCOMPARE(F->Scheda(), int(SchedaDiStampa));
}

void TestSchedaStampa::parametriMancanti()
{
    F->Nuova({});
    Respiro();
    T->Voce.Tollera();
    EseguiComando(u"print"_s, 1, {});
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(F->Scheda(), int(SchedaBase));
}

void TestSchedaStampa::notaNuovaSenzaVecchiePagine()
{
    Documento(StampaPrenotula);
    F->Nuova({});
    QVERIFY(Controllo<QComboBox>(F, "cmbTipoStampa")->currentIndex() == -1);
    CompilaCivile(F);
    ClicScheda(F, SchedaDiStampa);
    QVERIFY(!vp->isVisible());
    QCOMPARE(txtPage(), QString());
    Documento(StampaPrenotula);
    QVERIFY(!Pagine().contains(u"Rossi Mario"_s));
}

void TestSchedaStampa::pdf()
{
    Documento(StampaPrenotula);
    const QString File = T->Ufficio.File(u"uscita.pdf"_s);
    T->Voce.AttendiSalva(T->Ufficio.File(u"uscita"_s));
    T->Voce.Attendi(u"Il documento uscita.pdf è stato salvato correttamente!"_s);
    Premuto("barPrint_pdf");
    QCOMPARE(T->Voce.InizioDialogo(), sessione::ParcellePath + u"Nuova parcella.pdf"_s);
    QFile Scritto(File);
    QVERIFY(Scritto.open(QIODevice::ReadOnly));
    QVERIFY(Scritto.readAll().startsWith("%PDF-"));
}

void TestSchedaStampa::pdfAnnullato()
{
    Documento(StampaPrenotula);
    T->Voce.AttendiSalva({});
    Premuto("barPrint_pdf");
    QVERIFY(T->Voce.Mostrati().isEmpty());
}

void TestSchedaStampa::pdfSopraUnAltro()
{
    Documento(StampaPrenotula);
    const QString File = T->Ufficio.File(u"c'è già.pdf"_s);
    QFile Altro(File);
    QVERIFY(Altro.open(QIODevice::WriteOnly));
    Altro.write("altro");
    Altro.close();
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(u"Il documento c'è già.pdf esiste già: si vuole sostituirlo?"_s, vbNo, u"Domanda:"_s);
    Premuto("barPrint_pdf");
    QVERIFY(Altro.open(QIODevice::ReadOnly));
    QCOMPARE(Altro.readAll(), "altro"_ba);
}

void TestSchedaStampa::ogniComposizioneScriveIlDocumento()
{
    QCOMPARE(Esportato(), QByteArray());
    Documento(StampaPrenotula);
    QVERIFY(Esportato().startsWith("{\\rtf1"));
    QVERIFY(Esportato().contains("Rossi Mario"));
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_0"), u"12/A"_s);
    QVERIFY(!Esportato().contains("12/A"));
    Premi(Qt::Key_Tab);
    QVERIFY(Esportato().contains("12/A"));
}

void TestSchedaStampa::documentoCheNonSiScrive()
{
    ScriviFile(sessione::UserFolder + u"doc"_s, "not a folder");
    Documento(StampaPrenotula);
    QVERIFY2(T->Voce.Mostrati().isEmpty(), "la pagina c'è: chi la guarda non si disturba");
    QVERIFY(Pagine().contains(u"Rossi Mario"_s));
    T->Voce.Attendi(u"Attenzione, il documento Nuova parcella.doc non è stato trovato!"_s, vbOK,
                    u"Errore:"_s);
    Premuto("barPrint_word");
}

void TestSchedaStampa::word()
{
    QStringList Aperti;
    QByteArray Letto;
    Shell Finta;
    Finta.ApriFile = [&](const QString& File) {
        Aperti.append(File);
        Letto = LeggiFile(File);
        return 0;
    };
    const Shell Vera = InstallaShell(Finta);
    const auto Rimetti = qScopeGuard([&] { InstallaShell(Vera); });
    QVERIFY2(!Controllo(F, "barPrint_word")->isEnabled(), "senza documento non c'è nulla da esportare");
    Documento(StampaPrenotula);
    // The field that is being written is left first: what opens holds it.
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_0"), u"7/B"_s);
    Premuto("barPrint_word");
    QCOMPARE(Aperti, QStringList{FileDocumento(1)});
    QVERIFY(Letto.contains("7/B"));
}

void TestSchedaStampa::wordInUso()
{
    Documento(StampaPrenotula);
    const QByteArray Prima = Esportato();
    ImpostaSolaLettura(FileDocumento(1), true);
    Segna();
    T->Voce.Attendi(
        u"Attenzione, il documento Nuova parcella.doc è già aperto da un'altra applicazione e non "
        u"può essere aggiornato.\nChiudere il documento e riprovare."_s,
        vbOK, u"Errore:"_s);
    Premuto("barPrint_word");
    QVERIFY2(!Composto(), "la pagina resta com'è");
    ImpostaSolaLettura(FileDocumento(1), false);
    QCOMPARE(Esportato(), Prima);
}

void TestSchedaStampa::editorAlternativo()
{
    QStringList Avviati;
    Shell Finta;
    Finta.Avvia = [&](const QString& Programma, const QStringList& Argomenti, const QString&) {
        Avviati.append(Programma + u'|' + Argomenti.join(u'|'));
        return 0;
    };
    const Shell Vera = InstallaShell(Finta);
    const auto Rimetti = qScopeGuard([&] {
        InstallaShell(Vera);
        sessione::WP = u"-1"_s;
    });
    Documento(StampaPrenotula);
    for (const QString& Nessuno : {u"-1"_s, QString()}) {
        sessione::WP = Nessuno;
        ClicScheda(F, SchedaBase);
        ClicScheda(F, SchedaDiStampa);
        QVERIFY2(!Controllo(F, "barPrint_wp")->isEnabled(), "nessun editor nelle impostazioni");
    }
    ClicScheda(F, SchedaBase);
    sessione::WP = u"/usr/bin/editor"_s;
    ClicScheda(F, SchedaDiStampa);
    Premuto("barPrint_wp");
    QCOMPARE(Avviati, QStringList{u"/usr/bin/editor|"_s + FileDocumento(1)});
}

void TestSchedaStampa::laGuida()
{
    sessione::PercorsoProg = T->Ufficio.Cartella();
    ClicScheda(F, SchedaBase);
    ClicScheda(F, SchedaDiStampa);
    const auto* Bottone = Controllo<QToolButton>(F, "barPrint_help");
    QVERIFY2(!Bottone->isEnabled(), "there is no guide");
    QVERIFY2(Bottone->toolTip().startsWith(u"Guida contestuale: "), qPrintable(Bottone->toolTip()));
    ScriviFile(sessione::PercorsoProg + u"GuidaGiuridica.pdf"_s, "%PDF");
    ClicScheda(F, SchedaBase);
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(Bottone->toolTip(), u"Guida contestuale"_s);
    Aperture.SchedaCorrente = [this](int) { return F->Scheda(); };
    int Pagina = 0;
    Shell Finta;
    Finta.HaProgramma = [](const QString&) { return true; };
    Finta.ApriPdf = [&](const QString&, int Quale) {
        Pagina = Quale;
        return 0;
    };
    const Shell Vera = InstallaShell(Finta);
    const auto Rimetti = qScopeGuard([&] { InstallaShell(Vera); });
    Premuto("barPrint_help");  // before any document is chosen, too
    QCOMPARE(Pagina, 18);
}

void TestSchedaStampa::senzaStampante()
{
    const Stampanti Prima = InstallaStampanti({[] { return QStringList(); }, {}});
    const auto Rimetti = qScopeGuard([&] { InstallaStampanti(Prima); });
    Documento(StampaPrenotula);
    const QString Testo = Pagine();
    for (int Volta = 0; Volta < 2; ++Volta) {
        T->Voce.Attendi(
            u"Nessuna stampante installata.\nInstallare una stampante, oppure salvare il documento in PDF."_s);
        if (Volta == 0)
            Premuto("barPrint_print");
        else
            Premi(Qt::Key_P, Qt::ControlModifier);
        Respiro();
    }
    QCOMPARE(Pagine(), Testo);
    QCOMPARE(txtPage(), u"1/1"_s);
}

void TestSchedaStampa::clienteLunghissimo()
{
    Documento(StampaPrenotula);
    auto* Box = Controllo<QPlainTextEdit>(F, "txtDatiStaCli");
    Box->setFocus();
    Box->selectAll();
    QApplication::clipboard()->setText(QString(500, u'W'));
    Box->paste();
    Premi(Qt::Key_Tab);
    QCOMPARE(F->Nota.txtDatiStaCli.Testo.size(), 500);
    QVERIFY(Pagine().count(u'W') >= 500);
    Box->setFocus();
    Box->selectAll();
    QApplication::clipboard()->setText(QString(3000, u'x'));
    Box->paste();
    QCOMPARE(Box->toPlainText().size(), MassimoParte(ParteNota::Cliente));
}

void TestSchedaStampa::notaVuota()
{
    F->Nuova({});
    CompilaCivile(F);
    ClicScheda(F, SchedaDiStampa);
    for (int Tipo = StampaPrenotula; Tipo <= StampaSoloContabile; ++Tipo) {
        Documento(Tipo);
        QVERIFY(vp->NumeroPagine() >= 1);
        QVERIFY(txtPage().startsWith(u"1/"_s));
    }
}

void TestSchedaStampa::tastieraSola()
{
    ScegliDaTastiera(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaNotaGiudiziale);
    QCOMPARE(F->Nota.cmbTipoStampa, int(StampaNotaGiudiziale));
    Controllo(F, "cmbTipoStampa")->setFocus();
    QStringList Giro;
    for (int i = 0; i < 8; ++i) {
        Premi(Qt::Key_Tab);
        Giro.append(QApplication::focusWidget()->objectName());
    }
    const QStringList Atteso{u"txtDatiPar_21"_s,    u"txtDatiPar_22"_s, u"txtDatiPar_23"_s,
                             u"txtDatiPar_24"_s,    u"txtDatiStaCli"_s, u"txtDatiStaOgg"_s,
                             u"txtDatiStaControp"_s};
    QCOMPARE(Giro.first(Atteso.size()), Atteso);
}

#include "TestSchedaStampa.moc"
