// Two notes in one, by mouse and keyboard: the choice, the panel, the file that is read again.
#include "multiple.h"

#include "core/aperture.h"
#include "core/posti.h"
#include "feenote/windows/noteaperte.h"
#include "platform/base/numerierrore.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/file.h"

#include <QPushButton>
#include <QScopeGuard>

using namespace Qt::StringLiterals;
using namespace salvataggi;

class TestParcelleMultiple : public QObject, private BancoMultipla
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void sceltaNelTrova();
    void annullataLaScelta();
    void senzaTrova();
    void mentreSiSceglieIlTastoTace();
    void seStessaNo();
    void ilGuastoTieneQuellaDiPrima();
    void importiCheNonSiLeggono();
    void quelCheNonSiLegge_data();
    void quelCheNonSiLegge();
    void siElimina();
    void leOpzioniNonModificano();
    void laStampaSegue();
    void ilModelloDiventaScrivibile();
    void salvataSuQuellaAssociata_data();
    void salvataSuQuellaAssociata();
    void rinominataSoloOfferta();
    void ilFileECambiato();
    void cambiatoPrimaDelSalvataggio();
    void ilFileEGuastoSiDiceUnaVolta();
    void siOffreDiNuovo();
    void tastiSulNome();
    void ilClicSulNome();
    void chiTrascinaSulNomeLoSeleziona();
    void iDettagli();

private:
    /// Somebody else saves the other note, with this exempt expense.
    void CambiaSulDisco(double Esente)
    {
        Altra.xDiritti(0, DirEsente) = Esente;
        Altra.xDiritti.AggiungiRiga();
        ScriviNota(File, Altra);
        QFile Scritto(File);
        QVERIFY(Scritto.open(QIODevice::ReadWrite));
        QVERIFY(
            Scritto.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
    }
};
PROVA(TestParcelleMultiple);

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
    T->Voce.Attendi(u"Errore: "_s + DescrizioneErrore(3343) + u": "_s + Rotto + u" (3343)"_s, vbOK,
                    u"Errore:"_s);
    Associa(Rotto);
    QCOMPARE(TestoDi(F, "txtParcMultipla"), u"Altra Nota"_s);
    QCOMPARE(F->Nota.txtPathParcMult, File);
    QCOMPARE(Esenti(), u"Esenti: 27,00"_s);
    QVERIFY2(F->Socio() == 2 && Compagna->Socio() == 1, "the link stays too");
    QVERIFY(Controllo(F, "cmdOpenPar")->isEnabled());
}

/// The sums of both have a 0 there: it is told once, while the window waits.
void TestParcelleMultiple::importiCheNonSiLeggono()
{
    OpenDatabase(File).Execute(
        u"UPDATE ParcellaAcconti SET Corr='mille' WHERE rowid=(SELECT min(rowid) FROM ParcellaAcconti)"_s);
    bool InDomanda = false;
    QString Detto;
    Messaggi Nuovi;
    Nuovi.Box = [&](const QString& Testo, int, const QString&) {
        InDomanda = !ChiudiParcella(1);
        Detto += Testo;
        return vbOK;
    };
    const Messaggi Prima = InstallaMessaggi(Nuovi);
    const auto Torna = qScopeGuard([&] { InstallaMessaggi(Prima); });
    Associa(File);
    QVERIFY2(
        Detto.startsWith(u"Attenzione, un importo della parcella associata \"Altra Nota\" non si legge"_s),
        qPrintable(Detto));
    QVERIFY(InDomanda);
    QCOMPARE(F->Nota.Multi.Illeggibili, 1);
    Detto.clear();
    F->ControllaMulti();
    QCOMPARE(Detto, QString());
}

void TestParcelleMultiple::quelCheNonSiLegge_data()
{
    QTest::addColumn<QString>("Come");
    QTest::addColumn<QString>("Messaggio");
    const auto Riga = [](const char* Nome, const QString& Come, int Numero) {
        QTest::newRow(Nome) << Come
                            << u"Errore: "_s + DescrizioneErrore(Numero) + u": %1 ("_s +
                                   QString::number(Numero) + u')';
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
    T->Voce.Attendi(Messaggio.contains(u"%1") ? Messaggio.arg(Altro) : Messaggio, vbOK, u"Errore:"_s);
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

void TestParcelleMultiple::ilModelloDiventaScrivibile()
{
    ImpostaSolaLettura(File, true);
    Associa(File);
    QCOMPARE(Esenti(), u"Esenti: 27,00"_s);
    QVERIFY(!SolaLettura(File));
}

void TestParcelleMultiple::salvataSuQuellaAssociata_data()
{
    QTest::addColumn<bool>("Collegamento");
    QTest::newRow("by its own path") << false;
    QTest::newRow("that was chosen through a link") << true;
}

void TestParcelleMultiple::salvataSuQuellaAssociata()
{
    QFETCH(bool, Collegamento);
    const QString Giro = T->Ufficio.File(u"giro.mdb"_s);
    QVERIFY(QFile::link(File, Giro));
    Associa(Collegamento ? Giro : File);
    QCOMPARE(Esenti(), u"Esenti: 27,00"_s);
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
    CambiaSulDisco(40.0);
    QCOMPARE(Esenti(), u"Esenti: 27,00"_s);
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(Esenti(), u"Esenti: 40,00"_s);
}

/// The page is composed behind the save, with the figures of the file as it is by then.
void TestParcelleMultiple::cambiatoPrimaDelSalvataggio()
{
    Associa(File);
    ClicScheda(F, SchedaDiStampa);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaPrenotula);
    const auto* vp = Controllo<VistaStampa>(F, "vp");
    CambiaSulDisco(4321.0);
    QVERIFY(!vp->Pagine().Testo().contains(u"4.321,00"_s));
    F->SetModificata(true);
    SalvaCome(*T, u"mia.mdb"_s);
    QCOMPARE(Esenti(), u"Esenti: 4.321,00"_s);
    QVERIFY(vp->Pagine().Testo().contains(u"4.321,00"_s));
}

void TestParcelleMultiple::ilFileEGuastoSiDiceUnaVolta()
{
    Associa(File);
    ScriviFile(File, QByteArray(9000, 'x'));
    T->Voce.Attendi(u"Errore: "_s + DescrizioneErrore(3343) + u": "_s + File + u" (3343)"_s, vbOK,
                    u"Errore:"_s);
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(Esenti(), u"Esenti: 27,00"_s);
    ClicScheda(F, SchedaImposte);
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(TestoDi(F, "txtParcMultipla"), u"Altra Nota"_s);
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

void TestParcelleMultiple::ilClicSulNome()
{
    auto* Nome = Controllo<QLineEdit>(F, "txtParcMultipla");
    const auto Premuto = [Nome](Qt::MouseButton Tasto) {
        QTest::mouseClick(Nome, Tasto, {}, QPoint(20, Nome->height() / 2));
        Respiro();
    };
    Premuto(Qt::LeftButton);
    QVERIFY2(!Parcelle(2), "there is nothing to open");
    QVERIFY(Nome->cursor().shape() != Qt::PointingHandCursor);
    Associa(File);
    QCOMPARE(Nome->cursor().shape(), Qt::PointingHandCursor);
    Premuto(Qt::MiddleButton);
    QVERIFY(!Parcelle(2));
    Premuto(Qt::LeftButton);
    QVERIFY(Parcelle(2) && Parcelle(2)->isVisible());
    QCOMPARE(Parcelle(2)->Nota.Percorso, File);
    QCOMPARE(F->Socio(), 2);
    // Once more: it is there already, and comes to the front.
    QVERIFY(MostraAttiva(*F));
    Premuto(Qt::LeftButton);
    QCOMPARE(UltimaParcella(), 2);
    QTRY_VERIFY(Parcelle(2)->isActiveWindow());
}

void TestParcelleMultiple::chiTrascinaSulNomeLoSeleziona()
{
    Associa(File);
    auto* Nome = Controllo<QLineEdit>(F, "txtParcMultipla");
    TrascinaCon(Nome, {6, Nome->height() / 2}, {60, Nome->height() / 2});
    Respiro();
    QVERIFY(Nome->hasSelectedText());
    QVERIFY(!Parcelle(2));
    // Let go outside it, a press is taken back.
    QTest::mousePress(Nome, Qt::LeftButton, {}, {6, Nome->height() / 2});
    QTest::mouseRelease(Nome, Qt::LeftButton, {}, {6, Nome->height() + 30});
    Respiro();
    QVERIFY(!Parcelle(2));
}

void TestParcelleMultiple::iDettagli()
{
    QCOMPARE(Controllo(F, "txtParcMultipla")->toolTip(), QString());
    Associa(File);
    const QString Testo = Controllo(F, "txtParcMultipla")->toolTip();
    QVERIFY(Testo.contains(File));
    QVERIFY(Testo.contains(u"Oggetto: Sfratto & c.d."_s));
    const double Totale = F->Nota.Multi.TotOnorariMulti + 10.5 + 27.0;
    QVERIFY(Testo.contains(u"Totale: "_s + TestoImporto(Totale)));
}

#include "TestParcelleMultiple.moc"
