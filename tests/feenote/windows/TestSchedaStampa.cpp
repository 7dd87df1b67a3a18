// Tab 4 by mouse and keyboard: the document, its data, what composes it anew.
#include "stampa.h"

#include "core/aperture.h"
#include "core/comandi.h"
#include "feenote/modParti.h"
#include "platform/system/percorsi.h"

#include <QGroupBox>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

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

}  // namespace

class TestSchedaStampa : public QObject, private BancoStampa
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void senzaDocumento();
    void ogniDocumentoHaIlSuoPannello_data();
    void ogniDocumentoHaIlSuoPannello();
    void iPannelliNonSiAllargano();
    void segnarlaNonSpostaNulla();
    void ilClicCompone();
    void ilFuocoVaAllaPagina();
    void numeroEDataAllUscita();
    void laDataSiCompletaAllUscita();
    void ogniTastoSegnaMaNonCompone();
    void uscireSenzaScrivereNonCompone();
    void leCaselleConPiuRighe();
    void oggettoTornaAllaPrimaScheda();
    void ogniFormaIlSuoBlocco();
    void laPrimaSchedaRiempieLeCaselle();
    void ilBloccoScrittoRestaFraLePrenotule();
    void salvareRicompone();
    void ctrlPVaAllaStampa();
    void ilSocioNonStampa();
    void parametriMancanti();
    void notaNuovaSenzaVecchiePagine();
    void clienteLunghissimo();
    void notaVuota();
    void tastieraSola();
};
PROVA(TestSchedaStampa);

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

/// As in every other box of a date: with or without separators, with a year of two digits.
void TestSchedaStampa::laDataSiCompletaAllUscita()
{
    for (const auto& [Tipo, Nome, Quale] :
         {std::tuple{StampaPrenotula, "txtDatiPar_1", DatoData},
          std::tuple{StampaFatturaAnalitica, "txtDatiPar_12", DatoDataFatt}}) {
        Documento(Tipo);
        for (const QString& Digitata : {u"23112026"_s, u"23/11/26"_s}) {
            auto* Box = Controllo<QLineEdit>(F, Nome);
            Scrivi(Box, Digitata);
            QCOMPARE(F->Nota.DatiPar(Quale), Digitata);
            Premi(Qt::Key_Tab);
            QCOMPARE(Box->text(), u"23/11/2026"_s);
            QCOMPARE(F->Nota.DatiPar(Quale), u"23/11/2026"_s);
            QVERIFY2(Pagine().contains(u"23/11/2026"_s), qPrintable(Pagine()));
        }
    }
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
    const QStringList Atteso{u"chkUnaPagina"_s,  u"txtDatiPar_21"_s,    u"txtDatiPar_22"_s,
                             u"txtDatiPar_23"_s, u"txtDatiPar_24"_s,    u"txtDatiStaCli"_s,
                             u"txtDatiStaOgg"_s, u"txtDatiStaControp"_s};
    QCOMPARE(Giro.first(Atteso.size()), Atteso);
}

#include "TestSchedaStampa.moc"
