// Six notes under the tariff in force, each filled by mouse and keyboard and printed in the document that
// suits it. The figures were reckoned by hand from the tables of D.m. 55/2014: fees to the cent, 15 % of
// general expenses, 4 % of pension fund, 22 % of VAT, 20 % of withholding, each of them rounded as it arises.
#include "feenote/modVariazione.h"
#include "feenote/tariffa_prova.h"
#include "feenote/windows/noteaperte.h"
#include "platform/kit/etichetta.h"
#include "stampa.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>

#include <algorithm>

using namespace Qt::StringLiterals;

class TestNote55 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void tribunale();
    void giudiceDiPace();
    void lavoro();
    void ingiunzione();
    void penale();
    void stragiudiziale();
    void laNotaDelDodici();
    void leOpzioniSeguonoIlDecreto();
    void laCasellaDelleParti();
    void cambiareTariffaChiede();
    void larghezzeEBordi();
    void ilFileDiceCioCheLArchivioNonDicePiu();
    void senzaArchivioSiLeggeESiStampa();

private:
    void Compila(int Categoria, int Ufficio, const QString& Valore);
    void Opzione(int Numero) const;
    void Parti(const QString& Quante) const;
    [[nodiscard]] QString Stampata(int Tipo) const;
    [[nodiscard]] QRadioButton* Bottone(int Numero) const
    {
        return F->findChild<QRadioButton*>(u"optAumRid_%1"_s.arg(Numero));
    }

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
};
PROVA(TestNote55);

namespace {

/// The printed text without the blanks that bring its columns under one another.
QString Accostato(const QString& Pagine)
{
    return QString(Pagine).simplified();
}

/// A fee and what the law puts on top of it, in cents, by whole numbers alone.
struct Conto
{
    qint64 SpeseGen, Imponibile, Cassa, Iva, Totale, Ritenuta, Netto;
};

qint64 PerCento(qint64 Centesimi, int Percento)
{
    return (Centesimi * Percento + 50) / 100;
}

Conto ContoDi(qint64 Onorari)
{
    Conto Fatto{};
    Fatto.SpeseGen = PerCento(Onorari, 15);
    Fatto.Imponibile = Onorari + Fatto.SpeseGen;
    Fatto.Cassa = PerCento(Fatto.Imponibile, 4);
    Fatto.Iva = PerCento(Fatto.Imponibile + Fatto.Cassa, 22);
    Fatto.Totale = Fatto.Imponibile + Fatto.Cassa + Fatto.Iva;
    Fatto.Ritenuta = PerCento(Fatto.Imponibile, 20);
    Fatto.Netto = Fatto.Totale - Fatto.Ritenuta;
    return Fatto;
}

/// "1.234,56".
QString Euro(qint64 Centesimi)
{
    QString Interi = QString::number(Centesimi / 100);
    for (qsizetype i = Interi.size() - 3; i > 0; i -= 3)
        Interi.insert(i, u'.');
    return Interi + u',' + QString::number(Centesimi % 100).rightJustified(2, u'0');
}

const QString Decreto55 = u"Onorari secondo i parametri del D.m. 10 marzo 2014, n. 55"_s;

}  // namespace

#define CONTIENE(Testo, Parte)                                                                               \
    QVERIFY2((Testo).contains(Parte), qPrintable(QString(Parte) + u"\n\n"_s + (Testo)))

void TestNote55::init()
{
    T = std::make_unique<Tavolo>();
    sessione::StudioNome = u"Avv. Laura Conti"_s;
    sessione::Tariffa = u"55"_s;
    sessione::IVA = 22;
    F = T->Apri();
    QVERIFY(F);
    QCOMPARE(F->Nota.Tariffa, &Dm55);
    F->resize(845, 555);
}

void TestNote55::cleanup()
{
    if (F)
        F->SetModificata(false);
    T.reset();
}

void TestNote55::Compila(int Categoria, int Ufficio, const QString& Valore)
{
    Scrivi(Controllo<QLineEdit>(F, "txtCliente"), u"Rossi Mario"_s);
    Scrivi(Controllo<QLineEdit>(F, "txtControp"), u"Bianchi Srl"_s);
    Scegli(Controllo<QComboBox>(F, "cmbCateg"), Categoria);
    Scegli(Controllo<QComboBox>(F, "cmbAutor"), IndiceAutorita(F->Nota, Ufficio));
    if (!Valore.isEmpty()) {
        Scrivi(Controllo<QLineEdit>(F, "txtImporto"), Valore);
        Premi(Qt::Key_Tab);
    }
    Respiro();
}

void TestNote55::Opzione(int Numero) const
{
    QVERIFY(Bottone(Numero));
    QVERIFY(Bottone(Numero)->isVisible());
    ::Clic(Bottone(Numero));
    QCOMPARE(F->Nota.AumRidIdx, Numero);
}

void TestNote55::Parti(const QString& Quante) const
{
    auto* Box = Controllo<QLineEdit>(F, "txtParti");
    QVERIFY(Box->isVisible());
    Scrivi(Box, Quante);
    Premi(Qt::Key_Tab);
    Respiro();
}

QString TestNote55::Stampata(int Tipo) const
{
    ClicScheda(F, SchedaDiStampa);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), Tipo);
    Respiro();
    return Accostato(Controllo<VistaStampa>(F, "vp")->Pagine().Testo());
}

void TestNote55::tribunale()
{
    Compila(CategCivile, IDTribunale55, u"30000"_s);
    Opzione(101);
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(Controllo<QLabel>(F, "lblAumRidOno")->text(), u"+30%"_s);
    QCOMPARE(Testi(F->Nota.xOnorari, {OnoDescr, OnoImporto}),
             (QStringList{u"Fase di studio della controversia|2211,3"_s,
                          u"Fase introduttiva del giudizio|1565,2"_s,
                          u"Fase istruttoria e/o di trattazione|2347,8"_s, u"Fase decisionale|3776,5"_s}));
    const QString Testo = Stampata(StampaNotaGiudiziale);
    for (
        const QString& Parte :
        {u"NOTA SPESE GIUDIZIALE"_s, u"Valore: 30.000,00 €"_s, Decreto55 + u" ONORARI"_s,
         u"Fase di studio della controversia n. 1 2.211,30"_s,
         u"Fase introduttiva del giudizio n. 1 1.565,20"_s,
         u"Fase istruttoria e/o di trattazione n. 1 2.347,80"_s, u"Fase decisionale n. 1 3.776,50"_s,
         u"________ 9.900,80"_s,
         u"Aumento del 30% per atti telematici che agevolano la consultazione (art. 4, comma 1-bis, D.m. 55/2014)"_s,
         u"TOTALE EURO 9.900,80 (novemilanovecento/80)"_s, u"Oltre a iva, c.p. avv., come per legge"_s})
        CONTIENE(Testo, Parte);
}

void TestNote55::giudiceDiPace()
{
    // The keyboard alone: lists by their letters and arrows, the value typed.
    F->FuocoIniziale();
    Digita(u"Verdi Anna"_s);
    ScegliDaTastiera(Controllo<QComboBox>(F, "cmbCateg"), CategCivile);
    ScegliDaTastiera(Controllo<QComboBox>(F, "cmbAutor"), IndiceAutorita(F->Nota, IDGiudiceDiPace55));
    Scrivi(Controllo<QLineEdit>(F, "txtImporto"), u"5000"_s);
    Premi(Qt::Key_Tab);
    Respiro();
    QTest::keyClick(F, Qt::Key_PageDown, Qt::ControlModifier);
    QCOMPARE(F->Scheda(), int(SchedaListaOnorari));
    const QString Testo = Stampata(StampaPrenotula);
    for (const QString& Parte :
         {u"Preavviso di parcella"_s, u"Valore: 5.000,00 €"_s, Decreto55,
          u"Fase di studio della controversia n. 1 236,00"_s, u"Fase introduttiva del giudizio n. 1 252,00"_s,
          u"Fase istruttoria e/o di trattazione n. 1 352,00"_s, u"Fase decisionale n. 1 425,00"_s,
          u"Onorari 1.265,00"_s, u"Spese generali 15% 189,75"_s, u"Cassa previdenza avvocati 4% 58,19"_s,
          u"I.V.A. 22% 332,85"_s, u"TOTALE EURO 1.845,79"_s})
        CONTIENE(Testo, Parte);
    const Conto Suo = ContoDi(126500);
    QCOMPARE(Euro(Suo.Totale), u"1.845,79"_s);
}

void TestNote55::lavoro()
{
    Compila(CategCivile, IDLavoro55, u"30000"_s);
    Parti(u"3"_s);
    QCOMPARE(Controllo<QLabel>(F, "lblAumentoParti")->text(), u"+60%"_s);
    ClicScheda(F, SchedaListaOnorari);
    const QString Testo = Stampata(StampaPreventivo);
    for (const QString& Parte :
         {u"Preventivo di massima"_s, Decreto55, u"Fase di studio della controversia n. 1 5.192,00"_s,
          u"Fase introduttiva del giudizio n. 1 1.923,20"_s,
          u"Fase istruttoria e/o di trattazione n. 1 3.008,00"_s, u"Fase decisionale n. 1 4.688,00"_s,
          u"Aumento del 60% per 3 parti assistite (art. 4, comma 2, D.m. 55/2014)"_s, u"Onorari 14.811,20"_s,
          u"Spese generali 15% 2.221,68"_s, u"Cassa previdenza avvocati 4% 681,32"_s,
          u"I.V.A. 22% 3.897,12"_s, u"TOTALE EURO 21.611,32"_s})
        CONTIENE(Testo, Parte);
    QCOMPARE(Euro(ContoDi(1481120).Totale), u"21.611,32"_s);
}

void TestNote55::ingiunzione()
{
    Compila(CategCivile, IDMonitorio55, u"1000"_s);
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(Testi(F->Nota.xOnorari, {OnoImporto, OnoMin, OnoMax}), (QStringList{u"473|236,5|709,5"_s}));
    // The panel, by a quarter of the way and then by its row "MINIMO".
    ClicCella(Controllo<Griglia>(F, "tdbOnor"), 0, 1);
    ::Clic(Controllo(PaginaIn(F), "barListaOnoDir_variaz"));
    auto* Cursore = Controllo<QSlider>(F, "sldGraduaOno");
    Cursore->setFocus();
    for (int Passi = 50; Passi > 25; --Passi)
        Premi(Qt::Key_Left);
    QCOMPARE(Cursore->value(), 25);
    QCOMPARE(Controllo<QLabel>(F, "lblImpOno")->text(), u"354,75"_s);  // 236,50 and a quarter of 473
    ::Clic(Controllo(F, "cmdModOno"));
    QCOMPARE(Testi(F->Nota.xOnorari, {OnoImporto}), (QStringList{u"354,75"_s}));
    ClicScheda(F, SchedaImposte);
    ::Clic(Controllo<QCheckBox>(F, "chkRA"));
    const QString Testo = Stampata(StampaFatturaAnalitica);
    const Conto Suo = ContoDi(35475);
    for (const QString& Parte :
         {u"Fattura N°"_s, Decreto55,
          u"Procedimento monitorio: studio, istruttoria, conclusiva n. 1 354,75"_s, u"Onorari 354,75"_s,
          u"Spese generali 15% 53,21"_s, u"Cassa previdenza avvocati 4% 16,32"_s, u"I.V.A. 22% 93,34"_s,
          u"TOTALE EURO 517,62"_s, u"Ritenuta Acconto 20% -81,59"_s,
          u"Importo dovuto al netto della R.A. 436,03"_s})
        CONTIENE(Testo, Parte);
    QCOMPARE((QStringList{Euro(Suo.SpeseGen), Euro(Suo.Cassa), Euro(Suo.Iva), Euro(Suo.Totale),
                          Euro(Suo.Ritenuta), Euro(Suo.Netto)}),
             (QStringList{u"53,21"_s, u"16,32"_s, u"93,34"_s, u"517,62"_s, u"81,59"_s, u"436,03"_s}));
}

void TestNote55::penale()
{
    Compila(CategPenale, IDMonocratico55, {});
    Opzione(123);  // legal aid: a third less, exactly
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(Controllo<QLabel>(F, "lblAumRidOno")->text(), u"-33,33%"_s);
    QCOMPARE(Testi(F->Nota.xOnorari, {OnoImporto}),
             (QStringList{u"315,33"_s, u"378"_s, u"756"_s, u"945,33"_s}));
    const QString Testo = Stampata(StampaFatturaSintetica);
    for (const QString& Parte : {Decreto55, u"Onorari 2.394,66"_s, u"Spese generali 15% 359,20"_s,
                                 u"Importi imponibili 2.753,86"_s, u"Cassa previdenza avvocati 4% 110,15"_s,
                                 u"I.V.A. 22% 630,08"_s, u"Totale fattura: euro 3.494,09"_s})
        CONTIENE(Testo, Parte);
    QCOMPARE(Euro(ContoDi(239466).Totale), u"3.494,09"_s);
}

void TestNote55::stragiudiziale()
{
    Compila(CategStragiudiziale, IDStragiudiziale55, u"30000"_s);
    QVERIFY(!Controllo(F, "txtParti")->isVisible());
    ClicScheda(F, SchedaListaOnorari);
    DoppioClic(Controllo<Griglia>(F, "tdbListaOno"), 0);
    Respiro();
    QCOMPARE(Testi(F->Nota.xOnorari, {OnoDescr, OnoImporto, OnoMin, OnoMax}),
             (QStringList{u"Assistenza stragiudiziale|2410|1205|3615"_s}));
    const QString Testo = Stampata(StampaContratto);
    for (const QString& Parte :
         {u"di valore pari a 30.000,00 €"_s, Decreto55, u"Assistenza stragiudiziale n. 1 2.410,00"_s,
          u"rimborso delle spese generali nella misura forfettaria del 15% degli onorari sopra indicati"_s})
        CONTIENE(Testo, Parte);
}

void TestNote55::laNotaDelDodici()
{
    // The office has gone over to the tariff in force; a note of before is what it always was.
    const QString File = T->Ufficio.File(u"vecchia.mdb"_s);
    {
        sessione::Tariffa.clear();
        Parcella Vecchia = NotaCivile();
        sessione::Tariffa = u"55"_s;
        Catalogo Voci;
        EntraOnorari(Vecchia, Voci);
        ScriviNota(File, Vecchia);
    }
    const QByteArray Prima = LeggiFile(File);
    F->SetModificata(false);
    ApriParcella(File, 0, {});
    frmParcelle* Sua = FinestraConFile(File);
    QVERIFY(Sua);
    QVERIFY(MostraAttiva(*Sua));
    F = Sua;
    QCOMPARE(Controllo<QComboBox>(F, "cmbTariffa")->currentText(), u"D.m. 140/2012"_s);
    QVERIFY(!Controllo(F, "txtParti")->isVisible());
    QVERIFY(Bottone(0)->isVisible());
    QCOMPARE(
        Controllo<QLabel>(F, "lblDatiBase")->text(),
        u"Civile o Amministrativa - Tribunale ordinario - da € 25.000,01 a € 50.000,00 - Valore: 30.000,00 €"_s);
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(Testi(F->Nota.xOnorari, {OnoImporto}), (QStringList{u"1200"_s, u"600"_s, u"1200"_s, u"1500"_s}));
    const QString Testo = Stampata(StampaPrenotula);
    QVERIFY2(!Testo.contains(u"parametri"), qPrintable(Testo));
    QVERIFY2(!Testo.contains(u"D.m."), qPrintable(Testo));
    CONTIENE(Testo, u"Onorari 4.500,00"_s);
    QCOMPARE(LeggiFile(File), Prima);
}

void TestNote55::leOpzioniSeguonoIlDecreto()
{
    Compila(CategCivile, IDTribunale55, u"30000"_s);
    QVERIFY(Bottone(101)->isVisible());
    QVERIFY(!Bottone(101)->font().bold());  // as its frame's title is
    QVERIFY(!Bottone(0)->isVisible());
    QVERIFY(!Bottone(106));  // of the administrative courts
    QVERIFY(Bottone(5)->isChecked());
    Scegli(Controllo<QComboBox>(F, "cmbAutor"), IndiceAutorita(F->Nota, IDTar55));
    QVERIFY(Bottone(106)->isVisible());
    Opzione(106);
    QVERIFY(Bottone(106)->isChecked());
    QCOMPARE(Controllo<QLineEdit>(F, "txtAumRid")->text(), u"50"_s);
    QVERIFY(!Controllo(F, "cmbAumRid")->isEnabled());
    T->Voce.Attendi(u"La variazione «Motivi aggiunti (art. 4, co. 10-bis)» non è prevista per l'autorità "
                    u"selezionata e viene tolta."_s);
    Scegli(Controllo<QComboBox>(F, "cmbAutor"), IndiceAutorita(F->Nota, IDTribunale55));
    Respiro();
    QVERIFY(!Bottone(106));
    QVERIFY(Bottone(5)->isChecked());
    // The arrows go through the options as they stand: up the increases, over, down the reductions.
    Bottone(5)->setFocus(Qt::TabFocusReason);
    QList<int> Viste;
    for (const Qt::Key Freccia : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Right,
                                  Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down}) {
        Premi(Freccia);
        Viste += F->Nota.AumRidIdx;
        QVERIFY(Bottone(F->Nota.AumRidIdx)->hasFocus());
    }
    QCOMPARE(Viste, (QList{105, 104, 103, 102, 101, 111, 112, 113, 115, 116, 5}));
    // Back to the eleven.
    Scegli(Controllo<QComboBox>(F, "cmbTariffa"), 0);
    Respiro();
    QCOMPARE(F->Nota.Tariffa, &Dm140);
    for (int Numero = 0; Numero <= 10; ++Numero)
        QVERIFY(Bottone(Numero)->isVisible());
    QVERIFY(!Bottone(101));
    ::Clic(Bottone(6));
    QCOMPARE(F->Nota.AumRidVarP, -50);
}

void TestNote55::laCasellaDelleParti()
{
    Compila(CategCivile, IDTribunale55, u"30000"_s);
    ClicScheda(F, SchedaListaOnorari);
    ClicScheda(F, SchedaBase);
    Parti(u"12"_s);
    QCOMPARE(F->Nota.PartiAssistite, 12);
    QVERIFY(Controllo(F, "barRicalcolo")->isVisible());
    Parti(u""_s);
    QCOMPARE(Controllo<QLineEdit>(F, "txtParti")->text(), u"1"_s);
    QCOMPARE(Controllo<QLabel>(F, "lblAumentoParti")->text(), QString());
    Incolla(Controllo<QLineEdit>(F, "txtParti"), u"-3"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(F->Nota.PartiAssistite, 1);
}

void TestNote55::cambiareTariffaChiede()
{
    Compila(CategCivile, IDTribunale55, u"30000"_s);
    ClicScheda(F, SchedaListaOnorari);
    ClicScheda(F, SchedaBase);
    const QString Domanda =
        u"Sono state già inserite delle prestazioni e la modifica comporterà il ricalcolo con i "
        u"nuovi parametri.\nConfermi la modifica?"_s;
    auto* Lista = Controllo<QComboBox>(F, "cmbTariffa");
    T->Voce.Attendi(Domanda, vbNo);
    Scegli(Lista, 0);
    QCOMPARE(Lista->currentText(), u"D.m. 55/2014"_s);
    QCOMPARE(F->Nota.Tariffa, &Dm55);
    T->Voce.Attendi(Domanda, vbYes);
    Scegli(Lista, 0);
    QCOMPARE(F->Nota.Tariffa, &Dm140);
    QVERIFY(Controllo(F, "barRicalcolo")->isVisible());
    ::Clic(Controllo(F, "cmdRicalcola"));
    QCOMPARE(Testi(F->Nota.xOnorari, {OnoImporto}), (QStringList{u"1200"_s, u"600"_s, u"1200"_s, u"1500"_s}));
}

void TestNote55::larghezzeEBordi()
{
    // The page with the most options is within the screen of 1366x768 at 150 %, and does not scroll sideways.
    Compila(CategCivile, IDTar55, u"30000"_s);
    QVERIFY2(F->minimumSizeHint().width() <= 800, qPrintable(QString::number(F->minimumSizeHint().width())));
    const auto* Cornice = qobject_cast<const QScrollArea*>(PaginaIn(F));
    QVERIFY(Cornice);
    QCOMPARE(Cornice->horizontalScrollBar()->maximum(), 0);
    QCOMPARE(Cornice->verticalScrollBar()->maximum(), 0);  // nor down, at the size that it opens with
    // A banner that is longer than its row leaves out what says least, then its middle, not the value, and is
    // read whole in its tooltip.
    const auto* Striscia = Controllo<Etichetta>(F, "lblDatiBase");
    Scegli(Controllo<QComboBox>(F, "cmbValore"), 13);  // of particular importance
    QVERIFY(Striscia->text().endsWith(u"di particolare importanza (fino a 520.000)"_s));
    const QStringList Capi = Striscia->Mostrato().split(u'…');
    QCOMPARE(Capi.size(), 2);
    QVERIFY2(Capi[0].startsWith(u"D.m. 55/2014 - Tribunale amministrativo "), qPrintable(Capi[0]));
    QVERIFY(Capi[1].endsWith(u" (fino a 520.000)"_s) && Striscia->text().endsWith(Capi[1]));
    QCOMPARE(Striscia->toolTip(), Striscia->text());
}

/// What the database does not say any more is on view none the less: it stands in the amounts and is printed.
void TestNote55::ilFileDiceCioCheLArchivioNonDicePiu()
{
    const QString File = T->Ufficio.File(u"nota.mdb"_s);
    {
        Parcella Nota = Nota55(CategCivile, IDTribunale55, u"30000"_s);
        ScegliAumRid(Nota, 102);
        CaricaParti(Nota, 3);
        Catalogo Voci;
        EntraOnorari(Nota, Voci);
        ScriviNota(File, Nota);
    }
    const Database Tariffe = Tariffa55Propria(T->Ufficio);
    Tariffe.Execute(u"DROP TABLE Variazioni"_s);
    Tariffe.Execute(u"DROP TABLE PartiAssistite"_s);
    F->SetModificata(false);
    T->Voce.Tollera();
    ApriParcella(File, 0, {});
    F = FinestraConFile(File);
    QVERIFY(F);
    QVERIFY(MostraAttiva(*F));
    QVERIFY(Controllo(F, "txtParti")->isVisible());
    QCOMPARE(Controllo<QLabel>(F, "lblAumentoParti")->text(), u"+60%"_s);
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(Controllo<QLabel>(F, "lblAumRidOno")->text(), u"3 parti: +60%  +25%"_s);
    const QString Testo = Stampata(StampaPrenotula);
    CONTIENE(Testo, u"Aumento del 60% per 3 parti assistite (art. 4, comma 2, D.m. 55/2014)"_s);
    CONTIENE(Testo, u"Aumento del 25% della fase decisionale per conciliazione o transazione"_s);
}

void TestNote55::senzaArchivioSiLeggeESiStampa()
{
    const QString File = T->Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota55ConFasi(CategCivile, IDTribunale55, u"30000"_s));
    (void)T->Ufficio.TariffeProprie();  // a program folder with the first decree alone
    const QString Frase =
        u"L'archivio della tariffa D.m. 55/2014, parcelle55.mdb, manca dalla cartella del programma: gli "
        u"importi delle "
        u"parcelle restano quelli che sono, e senza l'archivio non si possono ricalcolare né salvare"_s;
    const QString Rapporto = u"Errore: %1 (3024)"_s.arg(Frase);
    F->SetModificata(false);
    T->Voce.Attendi(Rapporto);  // one, whatever could not be read
    ApriParcella(File, 0, {});
    F = FinestraConFile(File);
    QVERIFY(F);
    QVERIFY(MostraAttiva(*F));
    QCOMPARE(Controllo<QComboBox>(F, "cmbTariffa")->currentText(), u"D.m. 55/2014"_s);
    QCOMPARE(Controllo<QLineEdit>(F, "txtImporto")->text(), u"30.000,00"_s);
    T->Voce.Attendi(Rapporto);
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(F->Scheda(), int(SchedaListaOnorari));
    const QStringList Importi{u"1701"_s, u"1204"_s, u"1806"_s, u"2905"_s};
    QCOMPARE(Testi(F->Nota.xOnorari, {OnoImporto}), Importi);
    const QString Testo = Stampata(StampaPrenotula);
    CONTIENE(Testo, u"Fase decisionale n. 1 2.905,00"_s);
    CONTIENE(Testo, u"Onorari 7.616,00"_s);
    const QByteArray Prima = LeggiFile(File);
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(u"Codice errore: 3024\n"_s + Frase);
    QVERIFY(!F->SalvaParcella(false));
    QCOMPARE(LeggiFile(File), Prima);
    QCOMPARE(Testi(F->Nota.xOnorari, {OnoImporto}), Importi);
}

#include "TestNote55.moc"
