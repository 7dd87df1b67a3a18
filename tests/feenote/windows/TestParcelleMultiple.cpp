// Two notes in one, by mouse and keyboard: the choice, the other note's window, figures that follow it.
#include "salvataggi.h"

#include "core/aperture.h"
#include "core/posti.h"
#include "feenote/windows/noteaperte.h"
#include "platform/base/errore.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/file.h"

#include <QPushButton>

using namespace Qt::StringLiterals;
using namespace salvataggi;

class TestParcelleMultiple : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void sceltaNelTrova();
    void annullataLaScelta();
    void senzaTrova();
    void mentreSiSceglieIlTastoTace();
    void seStessaNo();
    void ilGuastoTieneQuellaDiPrima();
    void quelCheNonSiLegge_data();
    void quelCheNonSiLegge();
    void siElimina();
    void leOpzioniNonModificano();
    void laStampaSegue();
    void siApreNellaSuaFinestra();
    void nonPrendeIlPostoDellaPrincipale();
    void quellaCheNonSiApre();
    void premutoDiNuovo();
    void giaApertaSiCollega();
    void laMetaDiUnAltraCoppiaResta();
    void gliImportiSeguonoLaFinestra();
    void gliImportiSeguonoAncheSenzaLegame();
    void lAnteprimaSegueLaFinestra();
    void ilModelloDiventaScrivibile();
    void chiusaSenzaSalvareTornaIlFile();
    void chiusaSenzaLegameTornaIlFile();
    void sceltaUnAltraSiScioglie();
    void laStessaSceltaNonScioglie();
    void eliminataSiScioglie();
    void chiusaLaPrincipaleVaAncheLei();
    void salvataConUnAltroNome();
    void salvataSuQuellaAssociata();
    void rinominataSoloOfferta();
    void ilFileECambiato();
    void ilFileEGuastoSiDiceUnaVolta();
    void cancellataEChiusa();
    void siOffreDiNuovo();
    void tastiSulNome();
    void iDettagli();

private:
    void Associa(const QString& Percorso);
    frmParcelle* ApriAltra();  ///< by its button
    [[nodiscard]] QString Onorari() const { return TestoDi(F, "lblOnora"); }
    [[nodiscard]] QString Esenti() const { return TestoDi(F, "lblSpese"); }

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    QString File;    ///< the note to associate
    QString Scelta;  ///< what the finder answers
    int Richieste = 0;
    Parcella Altra;
};
PROVA(TestParcelleMultiple);

void TestParcelleMultiple::init()
{
    T = std::make_unique<Tavolo>();
    Altra = NotaPiena();
    File = T->Ufficio.File(u"Altra Nota.mdb"_s);
    ScriviNota(File, Altra);
    const QString Mia = T->Ufficio.File(u"principale.mdb"_s);
    ScriviNota(Mia, NotaCivile());
    F = T->Apri(Mia);
    QVERIFY(F);
    ClicScheda(F, SchedaImposte);
    QCOMPARE(F->Scheda(), int(SchedaImposte));
    Richieste = 0;
    Aperture.TrovaParcella = [this](int Selettore, const QString& Cartella, int Indice,
                                    const QString& Parent) {
        ++Richieste;
        const bool Giusta = Selettore == 0 && Cartella.isEmpty() && Indice == 1 && Parent == u"multiple";
        return Giusta ? Scelta : u"chiamata sbagliata"_s;
    };
    F->MostraTutto();
}

void TestParcelleMultiple::cleanup()
{
    T.reset();
}

void TestParcelleMultiple::Associa(const QString& Percorso)
{
    Scelta = Percorso;
    Clic(Controllo(F, "cmdOpenPar"));
}

frmParcelle* TestParcelleMultiple::ApriAltra()
{
    Clic(Controllo(F, "cmdModPar"));
    return Parcelle(2);
}

void TestParcelleMultiple::sceltaNelTrova()
{
    for (const char* Nome :
         {"cmdModPar", "cmdNoMulti", "chkMultiParam", "optMultiAntPos_0", "optMultiAntPos_1"})
        QVERIFY2(!Controllo(F, Nome)->isEnabled(), Nome);
    QCOMPARE(Esenti(), u"Esenti: 0"_s);
    Associa(File);
    QCOMPARE(Richieste, 1);
    QCOMPARE(TestoDi(F, "txtParcMultipla"), u"Altra Nota"_s);
    QCOMPARE(F->Nota.txtPathParcMult, File);
    for (const char* Nome : {"cmdOpenPar", "cmdModPar", "cmdNoMulti", "chkMultiParam", "optMultiAntPos_0"})
        QVERIFY2(Controllo(F, Nome)->isEnabled(), Nome);
    QCOMPARE(Esenti(), u"Esenti: 27,00"_s);
    QVERIFY(TestoDi(F, "lblDatiBase").endsWith(u" (Parcella multipla)"_s));
    QVERIFY2(!F->Nota.Modificata && !InfoParcelle[1].Modificata, "an association is no change of the note");
}

void TestParcelleMultiple::annullataLaScelta()
{
    Associa(File);
    Associa({});
    QCOMPARE(Richieste, 2);
    QCOMPARE(TestoDi(F, "txtParcMultipla"), u"Altra Nota"_s);
    QVERIFY(Controllo(F, "cmdOpenPar")->isEnabled());
}

void TestParcelleMultiple::senzaTrova()
{
    Aperture.TrovaParcella = {};
    Clic(Controllo(F, "cmdOpenPar"));
    QVERIFY(!F->Nota.Multipla());
}

void TestParcelleMultiple::mentreSiSceglieIlTastoTace()
{
    bool Acceso = true;
    bool Chiusa = true;
    Aperture.TrovaParcella = [&](int, const QString&, int, const QString&) {
        Acceso = Controllo(F, "cmdOpenPar")->isEnabled();
        Chiusa = ChiudiParcella(1);
        return QString();
    };
    Clic(Controllo(F, "cmdOpenPar"));
    QVERIFY(!Acceso);
    QVERIFY2(!Chiusa, "the note waits for its finder");
    QVERIFY(Controllo(F, "cmdOpenPar")->isEnabled());
}

void TestParcelleMultiple::seStessaNo()
{
    T->Voce.Attendi(u"La parcella non può essere associata a se stessa!"_s, vbOK, u"Errore:"_s);
    Associa(F->Nota.Percorso);
    QVERIFY(!F->Nota.Multipla());
    QCOMPARE(TestoDi(F, "txtParcMultipla"), QString());
    QVERIFY(Controllo(F, "cmdOpenPar")->isEnabled());
}

void TestParcelleMultiple::ilGuastoTieneQuellaDiPrima()
{
    Associa(File);
    frmParcelle* Compagna = ApriAltra();
    const QString Rotto = T->Ufficio.File(u"rotto.mdb"_s);
    ScriviFile(Rotto, QByteArray(9000, 'x'));
    T->Voce.Attendi(u"Errore: "_s + DescrizioneErrore(3343) + u" (3343)"_s, vbOK, u"Errore:"_s);
    Associa(Rotto);
    QCOMPARE(TestoDi(F, "txtParcMultipla"), u"Altra Nota"_s);
    QCOMPARE(F->Nota.txtPathParcMult, File);
    QCOMPARE(Esenti(), u"Esenti: 27,00"_s);
    QVERIFY2(F->Socio() == 2 && Compagna->Socio() == 1, "the link stays too");
    QVERIFY(Controllo(F, "cmdOpenPar")->isEnabled());
}

void TestParcelleMultiple::quelCheNonSiLegge_data()
{
    QTest::addColumn<QString>("Come");
    QTest::addColumn<QString>("Messaggio");
    const auto Riga = [](const char* Nome, const QString& Come, int Numero) {
        QTest::newRow(Nome) << Come << u"Errore: %1 (%2)"_s.arg(DescrizioneErrore(Numero)).arg(Numero);
    };
    Riga("gone since it was listed", u"manca"_s, 3024);
    Riga("cut by half", u"tagliato"_s, 3343);
    QTest::newRow("more lines than a note has")
        << u"troppe"_s << u"Errore: La parcella contiene troppe righe (1000)"_s;
}

void TestParcelleMultiple::quelCheNonSiLegge()
{
    QFETCH(QString, Come);
    QFETCH(QString, Messaggio);
    const QString Altro = T->Ufficio.File(u"guasto.mdb"_s);
    if (Come != u"manca")
        QVERIFY(QFile::copy(File, Altro));
    if (Come == u"tagliato") {
        QFile Meta(Altro);
        QVERIFY(Meta.resize(Meta.size() / 2));
    } else if (Come == u"troppe") {
        EseguiSu(Altro, u"INSERT INTO ParcellaRighe (OnoDir) WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL "
                        u"SELECT n+1 FROM c WHERE n<100001) SELECT 'O' FROM c"_s);
    }
    T->Voce.Attendi(Messaggio, vbOK, u"Errore:"_s);
    Associa(Altro);
    QVERIFY2(!F->Nota.Multipla(), "nothing of it is billed");
    QCOMPARE(Esenti(), u"Esenti: 0"_s);
    QVERIFY(Controllo(F, "cmdOpenPar")->isEnabled() && !Controllo(F, "cmdNoMulti")->isEnabled());
    // Another one can be chosen at once.
    Associa(File);
    QCOMPARE(Esenti(), u"Esenti: 27,00"_s);
}

void TestParcelleMultiple::siElimina()
{
    Associa(File);
    Clic(Controllo(F, "cmdNoMulti"));
    QCOMPARE(TestoDi(F, "txtParcMultipla"), QString());
    QCOMPARE(Esenti(), u"Esenti: 0"_s);
    QVERIFY(!TestoDi(F, "lblDatiBase").contains(u"multipla"_s));
    QVERIFY(!Controllo(F, "cmdNoMulti")->isEnabled() && !Controllo(F, "chkMultiParam")->isEnabled());
    QVERIFY(!F->Nota.Modificata);
}

void TestParcelleMultiple::leOpzioniNonModificano()
{
    Associa(File);
    Clic(Controllo(F, "optMultiAntPos_1"));
    QCOMPARE(F->Nota.optMultiAntPos, 1);
    Clic(Controllo(F, "chkMultiParam"));
    QVERIFY(F->Nota.chkMultiParam);
    Clic(Controllo(F, "optMultiAntPos_0"));
    QCOMPARE(F->Nota.optMultiAntPos, 0);
    QVERIFY(Controllo<QRadioButton>(F, "optMultiAntPos_0")->isChecked());
    QVERIFY(!F->Nota.Modificata);
}

/// The document that was chosen before has the other note's lines, and loses them with the association.
void TestParcelleMultiple::laStampaSegue()
{
    ClicScheda(F, SchedaDiStampa);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaPrenotula);
    auto* vp = Controllo<VistaStampa>(F, "vp");
    const QString Riepilogo = u"3) RIEPILOGO"_s;
    QVERIFY(!vp->Pagine().Testo().contains(Riepilogo));
    ClicScheda(F, SchedaImposte);
    Associa(File);
    ClicScheda(F, SchedaDiStampa);
    QVERIFY(vp->Pagine().Testo().contains(Riepilogo));
    ClicScheda(F, SchedaImposte);
    Clic(Controllo(F, "cmdNoMulti"));
    ClicScheda(F, SchedaDiStampa);
    QVERIFY(!vp->Pagine().Testo().contains(Riepilogo));
    F->SetModificata(false);
}

void TestParcelleMultiple::siApreNellaSuaFinestra()
{
    Associa(File);
    frmParcelle* Compagna = ApriAltra();
    QVERIFY(Compagna && Compagna->isVisible());
    QCOMPARE(Compagna->Nota.Percorso, File);
    QCOMPARE(F->Socio(), 2);
    QCOMPARE(F->Nota.IDMultipla, 2);
    QCOMPARE(Compagna->Socio(), 1);
    QVERIFY(F->HaStampa() && !Compagna->HaStampa());
    ClicScheda(Compagna, SchedaImposte);
    QVERIFY(!Controllo(Compagna, "fraMultipla")->isEnabled());
    QVERIFY(!Controllo(Compagna, "fraMultipla")->toolTip().isEmpty());
    QVERIFY(!Controllo(Compagna, "cmdOpenPar")->isEnabled());
    QVERIFY(Controllo(F, "cmdOpenPar")->isEnabled());
}

void TestParcelleMultiple::nonPrendeIlPostoDellaPrincipale()
{
    QVERIFY(ChiudiParcella(1));
    F = T->Apri();  // untouched: another note would take its place
    CompilaCivile(F);
    ClicScheda(F, SchedaImposte);
    F->SetModificata(false);
    QCOMPARE(F->windowTitle(), u"Nuova parcella"_s);
    Associa(File);
    const frmParcelle* Compagna = ApriAltra();
    QVERIFY(Compagna);
    QCOMPARE(F->windowTitle(), u"Nuova parcella"_s);
    QCOMPARE(F->Nota.txtPathParcMult, File);
    QCOMPARE(Compagna->Nota.Percorso, File);
    QCOMPARE(F->Socio(), 2);
}

void TestParcelleMultiple::quellaCheNonSiApre()
{
    Associa(File);
    ScriviFile(File, QByteArray(9000, 'x'));
    T->Voce.Attendi(u"Errore: Altra Nota.mdb non è una parcella di Calcanova (3343)"_s, vbOK, u"Errore:"_s);
    ApriAltra();
    QCOMPARE(F->Socio(), 0);
    QVERIFY2(!Parcelle(2)->isVisible() && InfoParcelle[2].Libera, "no empty note stands for it");
    QCOMPARE(TestoDi(F, "txtParcMultipla"), u"Altra Nota"_s);
    QCOMPARE(Esenti(), u"Esenti: 27,00"_s);
}

void TestParcelleMultiple::premutoDiNuovo()
{
    Associa(File);
    frmParcelle* Compagna = ApriAltra();
    QVERIFY(MostraAttiva(*F));
    ApriAltra();
    QCOMPARE(UltimaParcella(), 2);
    QTRY_VERIFY(Compagna->isActiveWindow());
    QCOMPARE(F->Socio(), 2);
}

void TestParcelleMultiple::giaApertaSiCollega()
{
    frmParcelle* Compagna = T->Apri(File, 2);
    ClicScheda(Compagna, SchedaDiStampa);
    QVERIFY(MostraAttiva(*F));
    Associa(File);
    QCOMPARE(F->Socio(), 0);
    ApriAltra();
    QCOMPARE(UltimaParcella(), 2);
    QCOMPARE(F->Socio(), 2);
    QCOMPARE(Compagna->Socio(), 1);
    QVERIFY(!Compagna->HaStampa());
    QVERIFY2(Compagna->Scheda() != SchedaDiStampa, "a closed tab is not in view");
    QTRY_VERIFY(Compagna->isActiveWindow());
}

void TestParcelleMultiple::laMetaDiUnAltraCoppiaResta()
{
    Associa(File);
    frmParcelle* Compagna = ApriAltra();
    const QString Terza = T->Ufficio.File(u"terza.mdb"_s);
    ScriviNota(Terza, NotaCivile());
    frmParcelle* Altra3 = T->Apri(Terza, 3);
    ClicScheda(Altra3, SchedaImposte);
    Aperture.TrovaParcella = [this](int, const QString&, int, const QString&) { return File; };
    Clic(Controllo(Altra3, "cmdOpenPar"));
    Clic(Controllo(Altra3, "cmdModPar"));
    QCOMPARE(Altra3->Socio(), 0);
    QCOMPARE(F->Socio(), 2);
    QCOMPARE(Compagna->Socio(), 1);
    QCOMPARE(UltimaParcella(), 3);
}

void TestParcelleMultiple::gliImportiSeguonoLaFinestra()
{
    Associa(File);
    frmParcelle* Compagna = ApriAltra();
    ClicScheda(Compagna, SchedaListaSpese);
    ScriviCella(Controllo<Griglia>(Compagna, "tdbDir"), 0, DirEsente, u"30"_s);
    QVERIFY(Compagna->Nota.Modificata);
    QCOMPARE(Esenti(), u"Esenti: 30,00"_s);
    QCOMPARE(F->Nota.Multi.TotSpeseEsenti, 30.0);
    QVERIFY(!F->Nota.Modificata);
    Compagna->SetModificata(false);
}

void TestParcelleMultiple::gliImportiSeguonoAncheSenzaLegame()
{
    frmParcelle* Aperta = T->Apri(File, 2);
    Associa(File);
    ClicScheda(Aperta, SchedaListaSpese);
    ScriviCella(Controllo<Griglia>(Aperta, "tdbDir"), 0, DirEsente, u"31"_s);
    QCOMPARE(Esenti(), u"Esenti: 31,00"_s);
    Aperta->SetModificata(false);
}

/// The page of the main note is on view while the other one is typed into.
void TestParcelleMultiple::lAnteprimaSegueLaFinestra()
{
    Associa(File);
    frmParcelle* Compagna = ApriAltra();
    ClicScheda(F, SchedaDiStampa);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaPrenotula);
    const auto* vp = Controllo<VistaStampa>(F, "vp");
    QVERIFY(!vp->Pagine().Testo().contains(u"4.321,00"_s));
    QVERIFY(MostraAttiva(*Compagna));
    ClicScheda(Compagna, SchedaListaSpese);
    ScriviCella(Controllo<Griglia>(Compagna, "tdbDir"), 0, DirEsente, u"4321"_s);
    QTRY_VERIFY(vp->Pagine().Testo().contains(u"4.321,00"_s));
    F->SetModificata(false);
    Compagna->SetModificata(false);
}

void TestParcelleMultiple::ilModelloDiventaScrivibile()
{
    ImpostaSolaLettura(File, true);
    Associa(File);
    QCOMPARE(Esenti(), u"Esenti: 27,00"_s);
    QVERIFY(!SolaLettura(File));
}

void TestParcelleMultiple::chiusaSenzaSalvareTornaIlFile()
{
    Associa(File);
    frmParcelle* Compagna = ApriAltra();
    ClicScheda(Compagna, SchedaListaSpese);
    ScriviCella(Controllo<Griglia>(Compagna, "tdbDir"), 0, DirEsente, u"30"_s);
    QCOMPARE(Esenti(), u"Esenti: 30,00"_s);
    T->Voce.Attendi(u"altra nota\nVuoi salvare la parcella prima di chiudere?"_s, vbNo);
    QVERIFY(ChiudiParcella(2));
    QCOMPARE(F->Socio(), 0);
    QVERIFY(F->isVisible());
    QCOMPARE(Esenti(), u"Esenti: 27,00"_s);
    QCOMPARE(TestoDi(F, "txtParcMultipla"), u"Altra Nota"_s);
}

void TestParcelleMultiple::chiusaSenzaLegameTornaIlFile()
{
    frmParcelle* Aperta = T->Apri(File, 2);
    ClicScheda(Aperta, SchedaListaSpese);
    ScriviCella(Controllo<Griglia>(Aperta, "tdbDir"), 0, DirEsente, u"32"_s);
    Associa(File);
    QCOMPARE(Esenti(), u"Esenti: 32,00"_s);
    T->Voce.Attendi(u"altra nota\nVuoi salvare la parcella prima di chiudere?"_s, vbNo);
    QVERIFY(ChiudiParcella(2));
    QCOMPARE(Esenti(), u"Esenti: 27,00"_s);
}

void TestParcelleMultiple::sceltaUnAltraSiScioglie()
{
    Associa(File);
    frmParcelle* Compagna = ApriAltra();
    const QString Seconda = T->Ufficio.File(u"seconda.mdb"_s);
    ScriviNota(Seconda, NotaCivile());
    Associa(Seconda);
    QCOMPARE(TestoDi(F, "txtParcMultipla"), u"seconda"_s);
    QCOMPARE(Esenti(), u"Esenti: 0"_s);
    QCOMPARE(F->Socio(), 0);
    QCOMPARE(Compagna->Socio(), 0);
    QVERIFY(Compagna->isVisible() && Compagna->HaStampa());
    ClicScheda(Compagna, SchedaImposte);
    QVERIFY(Controllo(Compagna, "fraMultipla")->isEnabled());
    // Nothing of the former one comes over any more.
    ClicScheda(Compagna, SchedaListaSpese);
    ScriviCella(Controllo<Griglia>(Compagna, "tdbDir"), 0, DirEsente, u"99"_s);
    QCOMPARE(Esenti(), u"Esenti: 0"_s);
    Compagna->SetModificata(false);
}

void TestParcelleMultiple::laStessaSceltaNonScioglie()
{
    Associa(File);
    ApriAltra();
    Associa(File);
    QCOMPARE(F->Socio(), 2);
}

void TestParcelleMultiple::eliminataSiScioglie()
{
    Associa(File);
    frmParcelle* Compagna = ApriAltra();
    Clic(Controllo(F, "cmdNoMulti"));
    QVERIFY(!F->Nota.Multipla());
    QCOMPARE(F->Socio(), 0);
    QCOMPARE(Compagna->Socio(), 0);
    QVERIFY(Compagna->isVisible() && Compagna->HaStampa());
}

void TestParcelleMultiple::chiusaLaPrincipaleVaAncheLei()
{
    Associa(File);
    const frmParcelle* Compagna = ApriAltra();
    QVERIFY(ChiudiParcella(1));
    QVERIFY(!F->isVisible() && !Compagna->isVisible());
    QVERIFY(InfoParcelle[1].Libera && InfoParcelle[2].Libera);
    QCOMPARE(Compagna->Socio(), 0);
}

void TestParcelleMultiple::salvataConUnAltroNome()
{
    Associa(File);
    frmParcelle* Compagna = ApriAltra();
    ClicScheda(Compagna, SchedaListaSpese);
    ScriviCella(Controllo<Griglia>(Compagna, "tdbDir"), 0, DirEsente, u"33"_s);
    const QString Nuovo = SalvaCome(*T, u"Terza.mdb"_s, false, 2);
    QCOMPARE(Compagna->Nota.Percorso, Nuovo);
    QCOMPARE(TestoDi(F, "txtParcMultipla"), u"Terza"_s);
    QCOMPARE(F->Nota.txtPathParcMult, Nuovo);
    QCOMPARE(F->Socio(), 2);
    QVERIFY(ChiudiParcella(2));
    QCOMPARE(Esenti(), u"Esenti: 33,00"_s);  // as the new file has it
}

void TestParcelleMultiple::salvataSuQuellaAssociata()
{
    Associa(File);
    Tocca(F);
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(GiaEsiste(NomeFile(File)), vbYes);
    T->Voce.Attendi(Salvata(NomeFile(File)));
    EseguiComando(u"savepar"_s, 1, {});
    QCOMPARE(F->Nota.Percorso, File);
    QVERIFY2(!F->Nota.Multipla(), "a note is never its own partner");
    QCOMPARE(Esenti(), u"Esenti: 0"_s);
}

void TestParcelleMultiple::rinominataSoloOfferta()
{
    F->Nota.txtPathParcMult = File;
    NotaRinominata(File, T->Ufficio.File(u"Gialli.mdb"_s));
    QCOMPARE(F->Nota.txtPathParcMult, T->Ufficio.File(u"Gialli.mdb"_s));
    QVERIFY2(!F->Nota.Multipla(), "no figures were read");
    QCOMPARE(Controllo<QPushButton>(F, "cmdRiassocia")->text(), u"Associa di nuovo: Gialli"_s);
}

void TestParcelleMultiple::ilFileECambiato()
{
    Associa(File);
    Altra.xDiritti(0, DirEsente) = 40.0;
    Altra.xDiritti.AggiungiRiga();
    ScriviNota(File, Altra);
    QFile Scritto(File);
    QVERIFY(Scritto.open(QIODevice::ReadWrite));
    QVERIFY(Scritto.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
    Scritto.close();
    QCOMPARE(Esenti(), u"Esenti: 27,00"_s);
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(Esenti(), u"Esenti: 40,00"_s);
}

void TestParcelleMultiple::ilFileEGuastoSiDiceUnaVolta()
{
    Associa(File);
    ScriviFile(File, QByteArray(9000, 'x'));
    T->Voce.Attendi(u"Errore: "_s + DescrizioneErrore(3343) + u" (3343)"_s, vbOK, u"Errore:"_s);
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(Esenti(), u"Esenti: 27,00"_s);
    ClicScheda(F, SchedaImposte);
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(TestoDi(F, "txtParcMultipla"), u"Altra Nota"_s);
}

void TestParcelleMultiple::cancellataEChiusa()
{
    Associa(File);
    frmParcelle* Compagna = ApriAltra();
    QVERIFY(QFile::remove(File));
    NotaCancellata(File);
    QCOMPARE(F->FinestraMulti(), Compagna);
    T->Voce.Attendi(u"altra nota\nVuoi salvare la parcella prima di chiudere?"_s, vbNo);
    T->Voce.Attendi(u"Errore: "_s + DescrizioneErrore(3024) + u" (3024)"_s, vbOK, u"Errore:"_s);
    QVERIFY(ChiudiParcella(2));
    QCOMPARE(F->Socio(), 0);
    QCOMPARE(Esenti(), u"Esenti: 27,00"_s);
}

void TestParcelleMultiple::siOffreDiNuovo()
{
    const auto* Offerta = Controllo<QPushButton>(F, "cmdRiassocia");
    QVERIFY(!Offerta->isVisible());
    Associa(File);
    QVERIFY(!Offerta->isVisible());
    Tocca(F);
    const QString Mia = SalvaCome(*T, u"con multipla.mdb"_s);
    QVERIFY(ChiudiParcella(1));
    F = T->Apri(Mia);
    QVERIFY2(!F->Nota.Multipla(), "a note opens without one");
    ClicScheda(F, SchedaImposte);
    QVERIFY(Offerta->isVisible());
    QCOMPARE(Offerta->text(), u"Associa di nuovo: Altra Nota"_s);
    Clic(Controllo(F, "cmdRiassocia"));
    QCOMPARE(TestoDi(F, "txtParcMultipla"), u"Altra Nota"_s);
    QCOMPARE(Esenti(), u"Esenti: 27,00"_s);
    QVERIFY(!Offerta->isVisible());
    QVERIFY(!F->Nota.Modificata);
}

void TestParcelleMultiple::tastiSulNome()
{
    Associa(File);
    Controllo(F, "txtParcMultipla")->setFocus();
    Premi(Qt::Key_Return, Qt::ControlModifier);
    QVERIFY(Parcelle(2) && Parcelle(2)->isVisible());
    QVERIFY(MostraAttiva(*F));
    Controllo(F, "txtParcMultipla")->setFocus();
    Premi(Qt::Key_Delete);
    QVERIFY(!F->Nota.Multipla());
    Premi(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(UltimaParcella(), 2);
}

void TestParcelleMultiple::iDettagli()
{
    QCOMPARE(Controllo(F, "txtParcMultipla")->toolTip(), QString());
    Associa(File);
    const QString Testo = Controllo(F, "txtParcMultipla")->toolTip();
    QVERIFY(Testo.contains(File));
    QVERIFY(Testo.contains(u"Oggetto: Sfratto &amp; c.d."_s));
    const double Totale = F->Nota.Multi.TotOnorari + 10.5 + 27.0;
    QVERIFY(Testo.contains(u"Totale: "_s + TestoImporto(Totale)));
}

#include "TestParcelleMultiple.moc"
