// Tab 1 by mouse and keyboard: the catalogue, the lines taken from it, what is typed into them.
#include "core/aperture.h"
#include "core/posti.h"
#include "platform/base/regionale.h"
#include "tavolo.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

const QString DataSbagliata = u"La data inserita non è valida!\nFormato valido: gg/mm/aaaa"_s;
const QString NonNumero = u"Immettere un valore numerico!"_s;

QString GiaInserito(const QString& Descr)
{
    return u"L'onorario "_s + Descr + u" è stato già inserito. Procedo con l'inserimento?"_s;
}

const QList<int> Visibili{OnoData, OnoDescr, OnoQta,     OnoImporto, OnoMedio,
                          OnoMin,  OnoMax,   OnoCodVoce, OnoNVoce};

void CompilaStragiudiziale(const frmParcelle* Finestra)
{
    Scegli(Controllo<QComboBox>(Finestra, "cmbCateg"), CategStragiudiziale);
    Scrivi(Controllo<QLineEdit>(Finestra, "txtImporto"), u"30000"_s);
    Premi(Qt::Key_Tab);
}

}  // namespace

class TestSchedaOnorari : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void entrandoSiPrecaricano();
    void laNotaVuotaSiPrecaricaOgniVolta();
    void piediERiepilogo();
    void doppioClicInserisce();
    void laNuovaRigaInCima();
    void laSecondaVoltaSiChiede_data();
    void laSecondaVoltaSiChiede();
    void voceNonPrevistaNonChiede();
    void invioSulCatalogoInserisce();
    void ilBottoneInserisce();
    void laBarraSiRaggiungeDaTastiera();
    void cercaNelCatalogo();
    void rigaSelezionata();
    void leOreSiChiedono();
    void leOreAbbandonate_data();
    void leOreAbbandonate();
    void laColonnaDelleQuantitaSiRichiude();
    void laColonnaDelleQuantitaSiRivede_data();
    void laColonnaDelleQuantitaSiRivede();
    void laRicercaEDelSuoCatalogo();
    void importoDigitatoTieneLaForbice();
    void rigaScrittaAMano();
    void dataSbagliata_data();
    void dataSbagliata();
    void importoIncollato_data();
    void importoIncollato();
    void descrizioneLunghissima_data();
    void descrizioneLunghissima();
    void ricercaLunghissima();
    void ilFuocoSiVede();
    void laCellaRifiutataFermaLaScheda();
    void laCellaApertaSiSalvaColComando();
    void ilRicalcoloTieneLaData();
    void etichettaDellaVariazione();
    void schedaInformativa();
    void schedaInformativaMancante();
    void suggerimentoDelCatalogo();

private:
    /// Civil note on tab 1, with the standard items.
    void Entra();

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    Griglia* Lista = nullptr;
    Griglia* Righe = nullptr;
};
PROVA(TestSchedaOnorari);

void TestSchedaOnorari::init()
{
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
    Lista = Controllo<Griglia>(F, "tdbListaOno");
    Righe = Controllo<Griglia>(F, "tdbOnor");
}

void TestSchedaOnorari::cleanup()
{
    T.reset();
}

void TestSchedaOnorari::Entra()
{
    CompilaCivile(F);
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(F->Scheda(), int(SchedaListaOnorari));
}

void TestSchedaOnorari::entrandoSiPrecaricano()
{
    Parcella Attesa = NotaCivile();
    Catalogo Voci;
    QVERIFY(EntraOnorari(Attesa, Voci) >= 4);

    Entra();
    QCOMPARE(Testi(F->Nota.xOnorari, Visibili), Testi(Attesa.xOnorari, Visibili));
    QVERIFY(InfoParcelle[1].Modificata);
    QCOMPARE(Lista->Righe(), Voci.datOno.RecordCount());
    QVERIFY(!Righe->ColonnaVisibile(OnoQta));
}

void TestSchedaOnorari::laNotaVuotaSiPrecaricaOgniVolta()
{
    Entra();
    const int Quante = F->Nota.xOnorari.Righe();
    ClicScheda(F, SchedaBase);
    ClicScheda(F, SchedaListaOnorari);
    QVERIFY2(F->Nota.xOnorari.Righe() == Quante, "con le righe non si ripete");
    F->Nota.xOnorari.Azzera(OnoColonne);
    ClicScheda(F, SchedaBase);
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(F->Nota.xOnorari.Righe(), Quante);
}

void TestSchedaOnorari::piediERiepilogo()
{
    Entra();
    const Somme Sommate = CalcolaSomme(F->Nota);
    const auto Testo = [](double Valore) { return Format(Valore, u"#,##0.00;-#,##0.00;0"); };
    QCOMPARE(Righe->TestoPie(OnoDescr), u"Totali "_s);
    QCOMPARE(Righe->TestoPie(OnoImporto), Testo(Sommate.TotOnorari));
    QCOMPARE(Righe->TestoPie(OnoMedio), Testo(Sommate.TotMed));
    QCOMPARE(Righe->TestoPie(OnoMin), Testo(Sommate.TotMin));
    QCOMPARE(Righe->TestoPie(OnoMax), Testo(Sommate.TotMax));
    QCOMPARE(Controllo<QLabel>(F, "lblOnora")->text(), u"Onor.: "_s + Testo(Sommate.TotOnorari));
    QCOMPARE(Controllo<QLabel>(F, "lblTotal")->text(), u"Totale: "_s + Testo(Sommate.TotOnorari));
    QVERIFY(Sommate.TotOnorari > 0);
}

void TestSchedaOnorari::doppioClicInserisce()
{
    Entra();
    F->Nota.xOnorari.Azzera(OnoColonne);
    DoppioClic(Lista, 1);
    QCOMPARE(F->Nota.xOnorari.Righe(), 1);
    QCOMPARE(F->Nota.xOnorari(0, OnoDescr).toString(), u"Fase introduttiva del procedimento"_s);
    QCOMPARE(Righe->RigaCorrente(), std::optional(0));
    QVERIFY2(Lista->RigaCorrente() == std::optional(1), "il catalogo resta sulla sua voce");
}

/// What follows the place of the insertion is on view below it.
void TestSchedaOnorari::laNuovaRigaInCima()
{
    constexpr int Quante = 60;
    Entra();
    const int Ultima = Lista->Righe() - 1;
    Lista->ImpostaRigaCorrente(Ultima);
    while (F->Nota.xOnorari.Righe() < Quante)
        DoppioClic(Lista, Ultima);
    QCOMPARE(Righe->RigaCorrente(), std::optional(Quante - 1));
    T->Voce.Attendi(u"Le nuove prestazioni saranno inserite nella riga selezionata!"_s, vbOK,
                    u"Avvertenza:"_s);
    Clic(PaginaIn(F)->findChild<QToolButton*>(u"barListaOnoDir_currentrow"_s));
    Righe->ImpostaPrimaRiga(0);
    Righe->ImpostaRigaCorrente(2);
    QCOMPARE(Righe->PrimaRiga(), 0);
    DoppioClic(Lista, Ultima);
    QCOMPARE(F->Nota.xOnorari.Righe(), Quante + 1);
    QCOMPARE(Righe->RigaCorrente(), std::optional(2));
    QCOMPARE(Righe->PrimaRiga(), 2);
}

void TestSchedaOnorari::laSecondaVoltaSiChiede_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<int>("InPiu");
    QTest::newRow("sì") << vbYes << 1;
    QTest::newRow("no") << vbNo << 0;
}

void TestSchedaOnorari::laSecondaVoltaSiChiede()
{
    QFETCH(int, Risposta);
    QFETCH(int, InPiu);
    Entra();
    const int Prima = F->Nota.xOnorari.Righe();
    T->Voce.Attendi(GiaInserito(u"Fase introduttiva del procedimento"_s), Risposta, u"Domanda:"_s);
    DoppioClic(Lista, 1);
    QCOMPARE(F->Nota.xOnorari.Righe(), Prima + InPiu);
}

void TestSchedaOnorari::voceNonPrevistaNonChiede()
{
    Entra();
    const int Prima = F->Nota.xOnorari.Righe();
    const int Ultima = Lista->Righe() - 1;
    Lista->ImpostaRigaCorrente(Ultima);
    DoppioClic(Lista, Ultima);
    DoppioClic(Lista, Ultima);
    QCOMPARE(F->Nota.xOnorari.Righe(), Prima + 2);
    QCOMPARE(F->Nota.xOnorari(Prima, OnoNVoce).toInt(), 999);
}

void TestSchedaOnorari::invioSulCatalogoInserisce()
{
    Entra();
    F->Nota.xOnorari.Azzera(OnoColonne);
    Lista->setFocus();
    Lista->ImpostaRigaCorrente(2);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Nota.xOnorari.Righe(), 1);
    QCOMPARE(F->Nota.xOnorari(0, OnoNVoce).toInt(), 3);
}

void TestSchedaOnorari::ilBottoneInserisce()
{
    Entra();
    F->Nota.xOnorari.Azzera(OnoColonne);
    Lista->ImpostaRigaCorrente(0);
    Clic(Controllo(PaginaIn(F), "barListaOnoDir_select"));
    QCOMPARE(F->Nota.xOnorari.Righe(), 1);
}

void TestSchedaOnorari::laBarraSiRaggiungeDaTastiera()
{
    Entra();
    F->Nota.xOnorari.Azzera(OnoColonne);
    Lista->ImpostaRigaCorrente(0);
    Lista->setFocus();
    QWidget* Bottone = Controllo(PaginaIn(F), "barListaOnoDir_select");
    for (int i = 0; i < 6 && QApplication::focusWidget() != Bottone; ++i)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), Bottone);
    QTest::keyClick(Bottone, Qt::Key_Space);
    QCOMPARE(F->Nota.xOnorari.Righe(), 1);
}

void TestSchedaOnorari::cercaNelCatalogo()
{
    Entra();
    const int Prima = F->Nota.xOnorari.Righe();
    Controllo(F, "txtCercaOno")->setFocus();
    Digita(u"DECISORIA"_s);
    QCOMPARE(Lista->RigaCorrente(), std::optional(3));
    Digita(u"zzz"_s);
    QVERIFY2(Lista->RigaCorrente() == std::optional(3), "ciò che non si trova non muove");
    Premi(Qt::Key_Return);
    QVERIFY2(F->Nota.xOnorari.Righe() == Prima, "Invio nella ricerca non inserisce");
    QVERIFY(Lista->isAncestorOf(QApplication::focusWidget()));
    Controllo(F, "txtCercaOno")->setFocus();
    Premi(Qt::Key_Down);
    QVERIFY(Lista->isAncestorOf(QApplication::focusWidget()));
}

void TestSchedaOnorari::rigaSelezionata()
{
    Entra();
    auto* Barra = Controllo<QToolBar>(PaginaIn(F), "barListaOnoDir");
    auto* Ultima = Barra->findChild<QToolButton*>(u"barListaOnoDir_lastrow"_s);
    auto* Corrente = Barra->findChild<QToolButton*>(u"barListaOnoDir_currentrow"_s);
    QVERIFY(Ultima->isChecked());
    T->Voce.Attendi(u"Le nuove prestazioni saranno inserite nella riga selezionata!"_s, vbOK,
                    u"Avvertenza:"_s);
    Clic(Corrente);
    QVERIFY(Corrente->isChecked() && !Ultima->isChecked());
    Righe->ImpostaRigaCorrente(1);
    DoppioClic(Lista, Lista->Righe() - 1);
    QCOMPARE(F->Nota.xOnorari(1, OnoNVoce).toInt(), 999);
    QCOMPARE(Righe->RigaCorrente(), std::optional(1));

    T->Voce.Attendi(u"Le nuove prestazioni saranno inserite nell'ultima riga!"_s, vbOK, u"Avvertenza:"_s);
    Clic(Ultima);
    DoppioClic(Lista, Lista->Righe() - 1);
    QCOMPARE(F->Nota.xOnorari(F->Nota.xOnorari.UpperBound(1), OnoNVoce).toInt(), 999);
}

void TestSchedaOnorari::leOreSiChiedono()
{
    CompilaStragiudiziale(F);
    ClicScheda(F, SchedaListaOnorari);
    QVERIFY2(F->Nota.xOnorari.Vuota(), "fuori dal giudizio non si precarica");
    T->Voce.AttendiImmissione(u"Per la voce Consultazione orale occorre specificare il numero"_s, u"2,5"_s);
    DoppioClic(Lista, 0);
    QCOMPARE(F->Nota.xOnorari.Righe(), 1);
    QCOMPARE(F->Nota.xOnorari(0, OnoQta).toDouble(), 3.0);
    QVERIFY(Righe->ColonnaVisibile(OnoQta));
}

void TestSchedaOnorari::leOreAbbandonate_data()
{
    QTest::addColumn<QString>("Risposta");
    QTest::newRow("vuota") << QString();
    QTest::newRow("zero") << u"0"_s;
    QTest::newRow("parola") << u"abc"_s;
}

void TestSchedaOnorari::leOreAbbandonate()
{
    QFETCH(QString, Risposta);
    CompilaStragiudiziale(F);
    ClicScheda(F, SchedaListaOnorari);
    T->Voce.AttendiImmissione(u"Consultazione orale"_s, Risposta);
    DoppioClic(Lista, 0);
    QVERIFY(F->Nota.xOnorari.Vuota());
    QVERIFY(!Righe->ColonnaVisibile(OnoQta));
}

void TestSchedaOnorari::laColonnaDelleQuantitaSiRichiude()
{
    CompilaStragiudiziale(F);
    ClicScheda(F, SchedaListaOnorari);
    T->Voce.AttendiImmissione(u"Consultazione orale"_s, u"1"_s);
    DoppioClic(Lista, 0);
    QVERIFY2(Righe->ColonnaVisibile(OnoQta), "anche una sola ora si vede");
    F->Nuova({});
    QVERIFY(!Righe->ColonnaVisibile(OnoQta));
    QCOMPARE(Lista->Righe(), 0);
}

void TestSchedaOnorari::laColonnaDelleQuantitaSiRivede_data()
{
    QTest::addColumn<double>("Quantita");
    QTest::addColumn<int>("NVoce");
    QTest::addColumn<bool>("Vista");
    QTest::newRow("una fase") << 1.0 << 1 << false;
    QTest::newRow("un'ora sola") << 1.0 << 95 << true;
    QTest::newRow("due fasi") << 2.0 << 1 << true;
    QTest::newRow("quantità svuotata") << 0.0 << 1 << true;
}

void TestSchedaOnorari::laColonnaDelleQuantitaSiRivede()
{
    QFETCH(double, Quantita);
    QFETCH(int, NVoce);
    Scegli(Controllo<QComboBox>(F, "cmbCateg"), CategPenale);
    Scegli(Controllo<QComboBox>(F, "cmbAutor"), IndiceAutorita(F->Nota, IDMonocratico));
    Catalogo Voci = ApriCatalogo(Dm140, Penale.toString(), IDMonocratico);
    Voci.datOno.FindFirst(u"NVoce='%1'"_s.arg(NVoce));
    QVERIFY(!Voci.datOno.NoMatch());
    (void)InserisciOnorario(F->Nota, Voci, {}, Quantita);
    const QString File = T->Ufficio.File(u"ore.mdb"_s);
    ScriviNota(File, F->Nota);
    frmParcelle* Riaperta = Tavolo::Apri(File, 2);
    QVERIFY(Riaperta);
    ClicScheda(Riaperta, SchedaListaOnorari);
    QTEST(Controllo<Griglia>(Riaperta, "tdbOnor")->ColonnaVisibile(OnoQta), "Vista");
}

void TestSchedaOnorari::laRicercaEDelSuoCatalogo()
{
    Entra();
    auto* Cerca = Controllo<QLineEdit>(F, "txtCercaOno");
    Scrivi(Cerca, u"fase"_s);
    ClicScheda(F, SchedaListaSpese);
    ClicScheda(F, SchedaListaOnorari);
    QVERIFY2(Cerca->text() == u"fase", "il catalogo è lo stesso");
    ClicScheda(F, SchedaBase);
    F->Nota.xOnorari.Azzera(OnoColonne);
    Scegli(Controllo<QComboBox>(F, "cmbCateg"), CategPenale);
    Scegli(Controllo<QComboBox>(F, "cmbAutor"), IndiceAutorita(F->Nota, IDMonocratico));
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(Cerca->text(), QString());
}

void TestSchedaOnorari::importoDigitatoTieneLaForbice()
{
    Entra();
    const QList<double> Prima = Importi(F->Nota, 0);
    ScriviCella(Righe, 0, OnoImporto, u"777,5"_s);
    QCOMPARE(Importi(F->Nota, 0), (QList<double>{777.5, Prima[1], Prima[2], Prima[3]}));
    QCOMPARE(Controllo<QLabel>(F, "lblOnora")->text(), TestiRiep(F->Nota).Onora);
    QCOMPARE(Righe->TestoPie(OnoImporto), Format(CalcolaSomme(F->Nota).TotOnorari, u"#,##0.00"));
}

void TestSchedaOnorari::rigaScrittaAMano()
{
    Entra();
    const int Nuova = F->Nota.xOnorari.Righe();
    ScriviCella(Righe, Nuova, OnoDescr, u"Trasferta a Lucca"_s);
    QCOMPARE(F->Nota.xOnorari.Righe(), Nuova + 1);
    ScriviCella(Righe, Nuova, OnoImporto, u"150"_s);
    QCOMPARE(Importi(F->Nota, Nuova), (QList<double>{150, 150, 150, 150}));
    QVERIFY(!F->Nota.xOnorari(Nuova, OnoNVoce).isValid());
    // The free item of the catalogue has no range of its own either.
    Lista->ImpostaRigaCorrente(Lista->Righe() - 1);
    DoppioClic(Lista, Lista->Righe() - 1);
    ScriviCella(Righe, Nuova + 1, OnoImporto, u"90"_s);
    QCOMPARE(Importi(F->Nota, Nuova + 1), (QList<double>{90, 90, 90, 90}));
}

void TestSchedaOnorari::dataSbagliata_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::newRow("giorno che non c'è") << u"31/02/2012"_s;
    QTest::newRow("mese oltre dodici") << u"12/31/2012"_s;
    QTest::newRow("parola") << u"abc"_s;
}

void TestSchedaOnorari::dataSbagliata()
{
    QFETCH(QString, Testo);
    Entra();
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, OnoData);
    Premi(Qt::Key_F2);
    QVERIFY(LaCella(Righe));
    Incolla(LaCella(Righe), Testo);
    T->Voce.Attendi(DataSbagliata, vbOK, u"Errore:"_s);
    Premi(Qt::Key_Return);
    Respiro();
    QVERIFY(Righe->InModifica());
    QCOMPARE(QApplication::focusWidget(), LaCella(Righe));
    QVERIFY(CStr(F->Nota.xOnorari(0, OnoData)).isEmpty());
    Scrivi(LaCella(Righe), u"29022012"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(CStr(F->Nota.xOnorari(0, OnoData)), u"29/02/2012"_s);
}

void TestSchedaOnorari::importoIncollato_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::newRow("parola") << u"abc"_s;
    QTest::newRow("il punto non è un decimale") << u"30000.50"_s;
    QTest::newRow("un milione di caratteri") << QString(1000000, u'x');
}

void TestSchedaOnorari::importoIncollato()
{
    QFETCH(QString, Testo);
    Entra();
    const QList<double> Prima = Importi(F->Nota, 0);
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, OnoImporto);
    Premi(Qt::Key_F2);
    Incolla(LaCella(Righe), Testo);
    T->Voce.Attendi(NonNumero, vbOK, u"Errore:"_s);
    Premi(Qt::Key_Return);
    Respiro();
    QVERIFY(Righe->InModifica());
    QCOMPARE(Importi(F->Nota, 0), Prima);
    Premi(Qt::Key_Escape);
    QVERIFY(!Righe->InModifica());
}

void TestSchedaOnorari::descrizioneLunghissima_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::newRow("un milione di caratteri") << QString(1000000, u'à');
    QTest::newRow("duecentomila righe") << u"riga\n"_s.repeated(200000);
}

void TestSchedaOnorari::descrizioneLunghissima()
{
    QFETCH(QString, Testo);
    Entra();
    const QList<double> Prima = Importi(F->Nota, 0);
    const int Quante = F->Nota.xOnorari.Righe();
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, OnoDescr);
    Premi(Qt::Key_F2);
    Incolla(LaCella(Righe), Testo);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Nota.xOnorari(0, OnoDescr).toString(), Testo.left(MassimoDescr));
    QCOMPARE(Importi(F->Nota, 0), Prima);
    QCOMPARE(F->Nota.xOnorari.Righe(), Quante);
    ScriviCella(Righe, 1, OnoDescr, u"Si continua"_s);
    QCOMPARE(F->Nota.xOnorari(1, OnoDescr).toString(), u"Si continua"_s);
}

void TestSchedaOnorari::ricercaLunghissima()
{
    Entra();
    Lista->ImpostaRigaCorrente(2);
    auto* Box = Controllo<QLineEdit>(F, "txtCercaOno");
    Incolla(Box, u"riga\n"_s.repeated(200000));
    QVERIFY(Box->text().size() <= 60);
    QCOMPARE(Lista->RigaCorrente(), std::optional(2));
}

void TestSchedaOnorari::ilFuocoSiVede()
{
    Entra();
    for (Griglia* Una : {Lista, Righe}) {
        Una->ImpostaRigaCorrente(0, 1);
        Controllo(F, "txtCercaOno")->setFocus();
        Respiro();
        const QImage Senza = Una->Vista()->viewport()->grab().toImage();
        Una->setFocus();
        Respiro();
        QVERIFY2(Una->Vista()->viewport()->grab().toImage() != Senza, qPrintable(Una->objectName()));
    }
}

void TestSchedaOnorari::laCellaRifiutataFermaLaScheda()
{
    Entra();
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, OnoImporto);
    Premi(Qt::Key_F2);
    Incolla(LaCella(Righe), u"abc"_s);
    T->Voce.Attendi(NonNumero);
    ClicScheda(F, SchedaImposte);
    QCOMPARE(F->Scheda(), int(SchedaListaOnorari));
    QVERIFY(Righe->InModifica());
    T->Voce.Attendi(NonNumero);
    QVERIFY2(!F->SalvaParcella(false), "nemmeno il salvataggio");
}

void TestSchedaOnorari::laCellaApertaSiSalvaColComando()
{
    Entra();
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, OnoImporto);
    Digita(u"555"_s);
    T->Voce.AttendiSalva({});
    Clic(Controllo(F, "pctSave"));
    QCOMPARE(F->Nota.xOnorari(0, OnoImporto).toDouble(), 555.0);
}

void TestSchedaOnorari::ilRicalcoloTieneLaData()
{
    Entra();
    const QList<double> Prima = Importi(F->Nota, 0);
    ScriviCella(Righe, 0, OnoData, u"05/03/2024"_s);
    ClicScheda(F, SchedaBase);
    T->Voce.Attendi(
        u"Sono state già inserite delle prestazioni e la modifica comporterà il ricalcolo con i nuovi "
        u"parametri.\nConfermi la modifica?"_s,
        vbYes, u"Domanda:"_s);
    Scegli(Controllo<QComboBox>(F, "cmbAutor"), IndiceAutorita(F->Nota, IDGiudiceDiPace));
    QCOMPARE(Importi(F->Nota, 0), Prima);  // never at once
    ClicScheda(F, SchedaListaOnorari);
    QVERIFY(Importi(F->Nota, 0) != Prima);
    QCOMPARE(CStr(F->Nota.xOnorari(0, OnoData)), u"05/03/2024"_s);
    QVERIFY(!F->Nota.RicalcoloNecessario);
}

void TestSchedaOnorari::etichettaDellaVariazione()
{
    CompilaCivile(F);
    Clic(Controllo(F, "optAumRid_6"));
    ClicScheda(F, SchedaListaOnorari);
    auto* Etichetta = Controllo<QLabel>(F, "lblAumRidOno");
    QCOMPARE(Etichetta->text(), u"-50%"_s);
    QCOMPARE(Etichetta->toolTip(), u"Applicata riduzione per Difese  a spese dello Stato (art. 9)"_s);
    QCOMPARE(Base(F->Nota, 0).first() / 2, Importi(F->Nota, 0).first());
    ClicScheda(F, SchedaBase);
    Clic(Controllo(F, "optAumRid_5"));
    ClicScheda(F, SchedaListaOnorari);
    QVERIFY(Etichetta->text().isEmpty() && Etichetta->toolTip().isEmpty());
}

void TestSchedaOnorari::schedaInformativa()
{
    QString Pagina;
    QString Titolo;
    Aperture.PaginaWeb = [&](const QString& Quale, const QString& Come) {
        Pagina = Quale;
        Titolo = Come;
    };
    sessione::PercorsoProg = T->Ufficio.Cartella();
    QFile::copy(ProgrammaDiProva() + u"parcelle.mdb"_s, T->Ufficio.File(u"parcelle.mdb"_s));
    QDir().mkpath(T->Ufficio.File(u"note"_s));
    QFile Scheda(T->Ufficio.File(u"note/C002.htm"_s));
    QVERIFY(Scheda.open(QIODevice::WriteOnly));
    Scheda.close();

    Entra();
    Lista->ImpostaRigaCorrente(1);
    QCOMPARE(FileScheda(F->Nota.CodCateg, F->Nota.xOnorari(1, OnoCodVoce)), u"C002.htm"_s);
    Clic(Controllo(PaginaIn(F), "barListaOnoDir_info"));
    // At the table of the note's court.
    const QString AlTribunale = Scheda.fileName() + u"#a2"_s;
    QCOMPARE(Pagina, AlTribunale);
    QCOMPARE(Titolo, u"KR5 - Scheda informativa prestazione"_s);

    Pagina.clear();
    QContextMenuEvent Destro(QContextMenuEvent::Mouse, CentroCella(Lista, 1, 0),
                             Lista->Vista()->viewport()->mapToGlobal(CentroCella(Lista, 1, 0)));
    QApplication::sendEvent(Lista->Vista()->viewport(), &Destro);
    QCOMPARE(Pagina, AlTribunale);
}

void TestSchedaOnorari::schedaInformativaMancante()
{
    QString Pagina;
    Aperture.PaginaWeb = [&](const QString& Quale, const QString&) { Pagina = Quale; };
    Entra();
    sessione::PercorsoProg = T->Ufficio.Cartella();  // here no sheet is
    Lista->ImpostaRigaCorrente(0);
    Clic(Controllo(PaginaIn(F), "barListaOnoDir_info"));
    QCOMPARE(Pagina, T->Ufficio.File(u"note/blank.htm"_s));
}

void TestSchedaOnorari::suggerimentoDelCatalogo()
{
    Entra();
    QWidget* Vista = Lista->Vista()->viewport();
    const QPoint Dove = CentroCella(Lista, 0, 1);
    QHelpEvent Aiuto(QEvent::ToolTip, Dove, Vista->mapToGlobal(Dove));
    QApplication::sendEvent(Vista, &Aiuto);
    QCOMPARE(QToolTip::text(),
             u" Per visualizzare la scheda informativa di\nFase di studio della controversia\n"
             u" selezionare la voce e cliccare sul pulsante Info"_s);
    QToolTip::hideText();
}

#include "TestSchedaOnorari.moc"
