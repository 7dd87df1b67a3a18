// Two notes in one: the window of the associated note, the link between the two, figures that follow it.
#include "multiple.h"

#include "core/aperture.h"
#include "core/posti.h"
#include "feenote/windows/noteaperte.h"
#include "platform/base/numerierrore.h"
#include "platform/preview/stampante.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/file.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;
using namespace salvataggi;

class TestMultipleCollegate : public QObject, private BancoMultipla
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void siApreNellaSuaFinestra();
    void nonPrendeIlPostoDellaPrincipale();
    void quellaCheNonSiApre();
    void premutoDiNuovo();
    void giaApertaSiCollega();
    void laMetaDiUnAltraCoppiaResta();
    void gliImportiSeguonoLaFinestra();
    void gliImportiSeguonoAncheSenzaLegame();
    void lAnteprimaSegueLaFinestra();
    void quelCheEsceNonAspetta_data();
    void quelCheEsceNonAspetta();
    void chiusaSenzaSalvareTornaIlFile();
    void chiusaSenzaLegameTornaIlFile();
    void sceltaUnAltraSiScioglie();
    void laStessaSceltaNonScioglie();
    void eliminataSiScioglie();
    void chiusaLaPrincipaleVaAncheLei();
    void salvataConUnAltroNome();
    void cancellataEChiusa();
    void ilPannelloChiusoTace();
    void ilTitoloDiceConChiSiStampa();
    void ilTitoloSegueINomi();
    void ilTitoloDiPrimaTorna_data();
    void ilTitoloDiPrimaTorna();
};
PROVA(TestMultipleCollegate);

void TestMultipleCollegate::siApreNellaSuaFinestra()
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

void TestMultipleCollegate::nonPrendeIlPostoDellaPrincipale()
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

void TestMultipleCollegate::quellaCheNonSiApre()
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

void TestMultipleCollegate::premutoDiNuovo()
{
    Associa(File);
    frmParcelle* Compagna = ApriAltra();
    QVERIFY(MostraAttiva(*F));
    ApriAltra();
    QCOMPARE(UltimaParcella(), 2);
    QTRY_VERIFY(Compagna->isActiveWindow());
    QCOMPARE(F->Socio(), 2);
}

void TestMultipleCollegate::giaApertaSiCollega()
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

void TestMultipleCollegate::laMetaDiUnAltraCoppiaResta()
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

void TestMultipleCollegate::gliImportiSeguonoLaFinestra()
{
    Associa(File);
    frmParcelle* Compagna = ApriAltra();
    ClicScheda(Compagna, SchedaListaSpese);
    ScriviCella(Controllo<Griglia>(Compagna, "tdbDir"), 0, DirEsente, u"30"_s);
    QVERIFY(Compagna->Nota.Modificata);
    QCOMPARE(Esenti(), u"Esenti: 30,00"_s);
    QCOMPARE(F->Nota.Multi.TotSpeseEsentiMulti, 30.0);
    QVERIFY(!F->Nota.Modificata);
    Compagna->SetModificata(false);
}

void TestMultipleCollegate::gliImportiSeguonoAncheSenzaLegame()
{
    frmParcelle* Aperta = T->Apri(File, 2);
    Associa(File);
    ClicScheda(Aperta, SchedaListaSpese);
    ScriviCella(Controllo<Griglia>(Aperta, "tdbDir"), 0, DirEsente, u"31"_s);
    QCOMPARE(Esenti(), u"Esenti: 31,00"_s);
    Aperta->SetModificata(false);
}

/// The page of the main note is on view while the other one is typed into.
void TestMultipleCollegate::lAnteprimaSegueLaFinestra()
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

void TestMultipleCollegate::quelCheEsceNonAspetta_data()
{
    QTest::addColumn<QByteArray>("Tasto");
    for (const char* Tasto : {"barPrint_print", "barPrint_pdf", "barPrint_invia"})
        QTest::newRow(Tasto) << QByteArray(Tasto);
}

/// The page follows the partner after a moment; what goes out in that moment has the sums of now already.
void TestMultipleCollegate::quelCheEsceNonAspetta()
{
    QFETCH(QByteArray, Tasto);
    const Stampanti Prima =
        InstallaStampanti({[] { return QStringList{u"Ufficio"_s}; }, [](const QPrinter&) { return true; }});
    const auto Rimetti = qScopeGuard([&] { InstallaStampanti(Prima); });
    const QByteArray Percorso = qgetenv("PATH");
    const auto RimettiPercorso = qScopeGuard([&] { qputenv("PATH", Percorso); });
    qputenv("PATH", QFile::encodeName(T->Ufficio.Cartella()));  // without a mail program
    Associa(File);
    frmParcelle* Compagna = ApriAltra();
    ClicScheda(F, SchedaDiStampa);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaPrenotula);
    const auto* vp = Controllo<VistaStampa>(F, "vp");
    QString Uscita;
    const auto Leggi = [&] { Uscita = vp->Pagine().Testo(); };
    T->Voce.ScegliStampante = [&](QPrinter&) { return Leggi(), false; };
    T->Voce.Tollera();
    if (Tasto == "barPrint_pdf")
        T->Voce.AttendiSalva({});
    Compagna->Nota.xDiritti(0, DirEsente) = 4321.0;
    Compagna->SetModificata(true);
    QVERIFY2(!vp->Pagine().Testo().contains(u"4.321,00"_s), "la pagina aspetta che si smetta di scrivere");
    Controllo<QAbstractButton>(F, Tasto.constData())->click();
    if (Tasto != "barPrint_print")
        Leggi();
    QVERIFY2(Uscita.contains(u"4.321,00"_s), qPrintable(Uscita));
    F->SetModificata(false);
    Compagna->SetModificata(false);
}

void TestMultipleCollegate::chiusaSenzaSalvareTornaIlFile()
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

void TestMultipleCollegate::chiusaSenzaLegameTornaIlFile()
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

void TestMultipleCollegate::sceltaUnAltraSiScioglie()
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

void TestMultipleCollegate::laStessaSceltaNonScioglie()
{
    Associa(File);
    ApriAltra();
    Associa(File);
    QCOMPARE(F->Socio(), 2);
}

void TestMultipleCollegate::eliminataSiScioglie()
{
    Associa(File);
    frmParcelle* Compagna = ApriAltra();
    Clic(Controllo(F, "cmdNoMulti"));
    QVERIFY(!F->Nota.Multipla());
    QCOMPARE(F->Socio(), 0);
    QCOMPARE(Compagna->Socio(), 0);
    QVERIFY(Compagna->isVisible() && Compagna->HaStampa());
}

void TestMultipleCollegate::chiusaLaPrincipaleVaAncheLei()
{
    Associa(File);
    const frmParcelle* Compagna = ApriAltra();
    QVERIFY(ChiudiParcella(1));
    QVERIFY(!F->isVisible() && !Compagna->isVisible());
    QVERIFY(InfoParcelle[1].Libera && InfoParcelle[2].Libera);
    QCOMPARE(Compagna->Socio(), 0);
}

void TestMultipleCollegate::salvataConUnAltroNome()
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

void TestMultipleCollegate::cancellataEChiusa()
{
    Associa(File);
    frmParcelle* Compagna = ApriAltra();
    QVERIFY(QFile::remove(File));
    NotaCancellata(File);
    QCOMPARE(F->FinestraMulti(), Compagna);
    T->Voce.Attendi(u"altra nota\nVuoi salvare la parcella prima di chiudere?"_s, vbNo);
    T->Voce.Attendi(u"Errore: "_s + DescrizioneErrore(3024) + u": "_s + File + u" (3024)"_s, vbOK,
                    u"Errore:"_s);
    QVERIFY(ChiudiParcella(2));
    QCOMPARE(F->Socio(), 0);
    QCOMPARE(Esenti(), u"Esenti: 27,00"_s);
}

/// The partner may have a note of its own beside it from before; its panel opens nothing as long as it is
/// one.
void TestMultipleCollegate::ilPannelloChiusoTace()
{
    const QString Terza = T->Ufficio.File(u"terza.mdb"_s);
    ScriviNota(Terza, NotaCivile());
    frmParcelle* Compagna = T->Apri(File, 2);
    Compagna->AssociaNota(Terza);
    QVERIFY(Compagna->Nota.Multipla());
    QVERIFY(MostraAttiva(*F));
    Associa(File);
    ApriAltra();
    QVERIFY(!Compagna->HaStampa());
    QVERIFY(MostraAttiva(*Compagna));
    ClicScheda(Compagna, SchedaImposte);
    auto* Nome = Controllo<QLineEdit>(Compagna, "txtParcMultipla");
    QVERIFY(!Nome->isEnabled());
    QTest::mouseClick(Nome, Qt::LeftButton, {}, QPoint(20, Nome->height() / 2));
    QTest::keyClick(Nome, Qt::Key_Delete);
    Respiro();
    QVERIFY(!Parcelle(3));
    QVERIFY2(Compagna->Nota.Multipla() && Compagna->Socio() == 1, "nothing of it has changed");
}

void TestMultipleCollegate::ilTitoloDiceConChiSiStampa()
{
    Associa(File);
    const frmParcelle* Compagna = ApriAltra();
    QCOMPARE(Compagna->windowTitle(), u"altra nota (multipla di principale)"_s);
    QCOMPARE(Compagna->Titolo(), u"altra nota"_s);
    QCOMPARE(InfoParcelle[2].Nome, u"altra nota"_s);
    QCOMPARE(F->windowTitle(), u"principale"_s);
}

void TestMultipleCollegate::ilTitoloSegueINomi()
{
    Associa(File);
    frmParcelle* Compagna = ApriAltra();
    NotaRinominata(F->Nota.Percorso, T->Ufficio.File(u"Gialli.mdb"_s));
    QCOMPARE(F->windowTitle(), u"gialli"_s);
    QCOMPARE(Compagna->windowTitle(), u"altra nota (multipla di gialli)"_s);
    NotaRinominata(File, T->Ufficio.File(u"Blu.mdb"_s));
    QCOMPARE(Compagna->windowTitle(), u"blu (multipla di gialli)"_s);
    F->SetModificata(true);
    SalvaCome(*T, u"Neri.mdb"_s);
    QCOMPARE(Compagna->windowTitle(), u"blu (multipla di neri)"_s);
    Compagna->SetModificata(true);
    SalvaCome(*T, u"Bianchi.mdb"_s, false, 2);
    QCOMPARE(Compagna->windowTitle(), u"bianchi (multipla di neri)"_s);
}

void TestMultipleCollegate::ilTitoloDiPrimaTorna_data()
{
    QTest::addColumn<QString>("Come");
    QTest::newRow("the association is taken away") << u"tolta"_s;
    QTest::newRow("another note is chosen") << u"altra"_s;
    QTest::newRow("both close, another note takes the place") << u"chiuse"_s;
}

void TestMultipleCollegate::ilTitoloDiPrimaTorna()
{
    QFETCH(QString, Come);
    const frmParcelle* Compagna = T->Apri(File, 2);
    QVERIFY(MostraAttiva(*F));
    Associa(File);
    QCOMPARE(Compagna->windowTitle(), u"altra nota"_s);  // read from the window, not linked to it
    ApriAltra();
    QCOMPARE(Compagna->windowTitle(), u"altra nota (multipla di principale)"_s);
    QString Atteso = u"altra nota"_s;
    if (Come == u"tolta") {
        Clic(Controllo(F, "cmdNoMulti"));
    } else if (Come == u"altra") {
        const QString Seconda = T->Ufficio.File(u"seconda.mdb"_s);
        ScriviNota(Seconda, NotaCivile());
        Associa(Seconda);
    } else {
        QVERIFY(ChiudiParcella(1));
        ApriParcella({}, 0, {});
        Parcelle(1)->SetModificata(true);
        ApriParcella({}, 0, {});
        Parcelle(1)->SetModificata(false);
        Atteso = u"Nuova parcella:2"_s;
    }
    QCOMPARE(Compagna->windowTitle(), Atteso);
}

#include "TestMultipleCollegate.moc"
