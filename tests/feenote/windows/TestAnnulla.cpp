// Steps back and again by buttons and keys.
#include "tavolo.h"

#include "feenote/modTotali.h"
#include "selettore.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

class TestAnnulla : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { T.reset(); }
    void unaNotaNuovaNonHaPassi();
    void importiNellaGriglia();
    void ilTagliaTornaColTastoDiSempre();
    void dopoUnPassoIlTaglioNonSiRaddoppia();
    void unTestoSiRifaLetteraPerLettera();
    void ilValoreColLaSuaDomanda();
    void ilDocumentoInVistaResta();
    void iParametriDaUnAltraScheda();
    void laParolaChiaveNonSiPerde();
    void iParametriPortanoAllaBase();
    void ilSalvataggioNonPerdeIPassi();
    void unAltraNotaNonEreditaIPassi();
    void unAltraNotaNonEreditaLeLettere();
    void laDomandaAperta();
    void gliZeriDellAccontoNonSonoUnPasso();

private:
    [[nodiscard]] QToolButton* Annulla() const { return Controllo<QToolButton>(F, "cmdAnnulla"); }
    [[nodiscard]] QToolButton* Ripeti() const { return Controllo<QToolButton>(F, "cmdRipeti"); }

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
};
PROVA(TestAnnulla);

namespace {

/// A key as it comes from the keyboard: the window's shortcuts are asked behind the widget's own.
void PremiConScorciatoie(Qt::Key Tasto, Qt::KeyboardModifiers Con)
{
    QTest::keyClick(QApplication::focusWidget(), Tasto, Con);
}

}  // namespace

void TestAnnulla::init()
{
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
}

void TestAnnulla::unaNotaNuovaNonHaPassi()
{
    QVERIFY(!Annulla()->isEnabled() && !Ripeti()->isEnabled());
    QCOMPARE(Annulla()->toolTip(), u"Niente da annullare (Ctrl+Z)"_s);
    QCOMPARE(Ripeti()->toolTip(), u"Niente da ripetere (Ctrl+Y)"_s);
    CompilaCivile(F);
    QCOMPARE(Annulla()->toolTip(), u"Annulla: valore esatto (Ctrl+Z)"_s);
}

void TestAnnulla::importiNellaGriglia()
{
    CompilaCivile(F);
    ClicScheda(F, SchedaListaOnorari);
    Griglia* Righe = Controllo<Griglia>(F, "tdbOnor");
    QVERIFY(F->Nota.xOnorari.Righe() > 0);
    const double Prima = F->Nota.xOnorari(0, OnoImporto).toDouble();
    ScriviCella(Righe, 0, OnoImporto, u"1234,5"_s);
    QCOMPARE(F->Nota.xOnorari(0, OnoImporto).toDouble(), 1234.5);
    QCOMPARE(Annulla()->toolTip(), u"Annulla: cella degli onorari (Ctrl+Z)"_s);
    Righe->setFocus();
    PremiConScorciatoie(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(F->Nota.xOnorari(0, OnoImporto).toDouble(), Prima);
    QCOMPARE(Ripeti()->toolTip(), u"Ripeti: cella degli onorari (Ctrl+Y)"_s);
    PremiConScorciatoie(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(F->Nota.xOnorari(0, OnoImporto).toDouble(), 1234.5);
    Clic(Annulla());
    QCOMPARE(F->Nota.xOnorari(0, OnoImporto).toDouble(), Prima);
    Clic(Ripeti());
    QCOMPARE(F->Nota.xOnorari(0, OnoImporto).toDouble(), 1234.5);
    QCOMPARE(Righe->TestoPie(OnoImporto), TestoImporto(CalcolaSomme(F->Nota).TotOnorari));
}

/// Lines that were cut come back by Ctrl+Z whatever was done since, as they always did.
void TestAnnulla::ilTagliaTornaColTastoDiSempre()
{
    CompilaCivile(F);
    ClicScheda(F, SchedaListaOnorari);
    Griglia* Righe = Controllo<Griglia>(F, "tdbOnor");
    const int Quante = F->Nota.xOnorari.Righe();
    QVERIFY(Quante > 1);
    ClicSelettore(Righe, 0);
    T->Voce.Attendi(u"Confermi la cancellazione della voce selezionata?"_s, vbYes, u"Domanda:"_s);
    Premi(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(F->Nota.xOnorari.Righe(), Quante - 1);
    ScriviCella(Righe, 0, OnoImporto, u"55"_s);
    Righe->setFocus();
    PremiConScorciatoie(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(F->Nota.xOnorari.Righe(), Quante);
    QCOMPARE(F->Nota.xOnorari(1, OnoImporto).toDouble(), 55.0);
    // Pressed once too often it cuts nothing.
    T->Voce.Attendi(u"Impossibile annullare!"_s, vbOK, u"Errore:"_s);
    PremiConScorciatoie(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(F->Nota.xOnorari.Righe(), Quante);
}

/// The value of a note with lines asks, and is one step with its bracket.
void TestAnnulla::ilValoreColLaSuaDomanda()
{
    CompilaCivile(F);
    ClicScheda(F, SchedaListaOnorari);
    ClicScheda(F, SchedaBase);
    const QString Scaglione = TestoScaglione(F->Nota);
    Scrivi(Controllo<QLineEdit>(F, "txtImporto"), u"60000"_s);
    T->Voce.Attendi(u"Sono state già inserite delle prestazioni e la modifica comporterà il ricalcolo con i "
                    "nuovi parametri.\nConfermi la modifica?"_s,
                    vbYes, u"Domanda:"_s);
    Premi(Qt::Key_Tab);
    Respiro();
    QVERIFY(TestoScaglione(F->Nota) != Scaglione);
    Clic(Annulla());
    QCOMPARE(TestoScaglione(F->Nota), Scaglione);
    QCOMPARE(F->Nota.ImportoPrec, 30000.0);
    QCOMPARE(Controllo<QLineEdit>(F, "txtImporto")->text(), u"30.000,00"_s);
}

void TestAnnulla::ilDocumentoInVistaResta()
{
    CompilaCivile(F);
    Scrivi(F, "txtOggetto", u"Sfratto"_s);
    Premi(Qt::Key_Tab);
    ClicScheda(F, SchedaDiStampa);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaFatturaAnalitica);
    Clic(Annulla());
    QCOMPARE(F->Nota.txtOggetto.Testo, QString());
    QCOMPARE(F->Nota.cmbTipoStampa, int(StampaFatturaAnalitica));
    QCOMPARE(Controllo<QComboBox>(F, "cmbTipoStampa")->currentIndex(), int(StampaFatturaAnalitica));
    QCOMPARE(F->Scheda(), int(SchedaDiStampa));
}

/// Parameters are tested when their tab is left, so that a step over them leads there from any other.
void TestAnnulla::iParametriDaUnAltraScheda()
{
    CompilaCivile(F);
    ClicScheda(F, SchedaImposte);
    const int Autorita = F->Nota.cmbAutor;
    while (F->Nota.cmbAutor == Autorita)
        Clic(Annulla());
    QCOMPARE(F->Scheda(), int(SchedaBase));
    T->Voce.Tollera();
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(F->Scheda(), int(SchedaBase));
    QVERIFY(!T->Voce.Mostrati().isEmpty());
}

void TestAnnulla::laParolaChiaveNonSiPerde()
{
    Scrivi(F, "txtCliente", u"Rossi"_s);
    Premi(Qt::Key_Tab);
    F->Nota.Psw = u"->>segreta"_s;
    Clic(Annulla());
    QCOMPARE(F->Nota.Psw, u"->>segreta"_s);
    QVERIFY(F->Nota.Modificata);
    QVERIFY(InfoParcelle[size_t(F->Indice())].Modificata);
}

void TestAnnulla::dopoUnPassoIlTaglioNonSiRaddoppia()
{
    CompilaCivile(F);
    ClicScheda(F, SchedaListaOnorari);
    Griglia* Righe = Controllo<Griglia>(F, "tdbOnor");
    const int Quante = F->Nota.xOnorari.Righe();
    ClicSelettore(Righe, 0);
    T->Voce.Attendi(u"Confermi la cancellazione della voce selezionata?"_s, vbYes, u"Domanda:"_s);
    Premi(Qt::Key_X, Qt::ControlModifier);
    Clic(Annulla());
    QCOMPARE(F->Nota.xOnorari.Righe(), Quante);
    QVERIFY(Righe->Selezione().isEmpty());
    QVERIFY(!PaginaIn(F)->findChild<QToolButton*>(u"barListaOnoDir_annulla"_s)->isEnabled());
}

/// A box has its own letters to take back first; then the note's steps go on.
void TestAnnulla::unTestoSiRifaLetteraPerLettera()
{
    auto* Cliente = Controllo<QLineEdit>(F, "txtCliente");
    auto* Oggetto = Controllo<QLineEdit>(F, "txtOggetto");
    Scrivi(Cliente, u"Rossi"_s);
    Scrivi(Oggetto, u"Sfratto"_s);
    Premi(Qt::Key_Tab);
    Clic(Annulla());
    QCOMPARE(F->Nota.txtOggetto.Testo, QString());
    QCOMPARE(F->Nota.txtCliente.Testo, u"Rossi"_s);
    Cliente->setFocus();
    QVERIFY2(!Cliente->isUndoAvailable(), "a box that was left has its letters behind it");
    PremiConScorciatoie(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(F->Nota.txtCliente.Testo, QString());
    QCOMPARE(Cliente->text(), QString());
    QVERIFY2(!F->Nota.Modificata, "nothing is left of what was typed");
    PremiConScorciatoie(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    PremiConScorciatoie(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Rossi"_s);
    QCOMPARE(F->Nota.txtOggetto.Testo, u"Sfratto"_s);
    // With letters of its own to take back the box keeps the key.
    Oggetto->setFocus();
    Oggetto->end(false);
    Digita(u"x"_s);
    PremiConScorciatoie(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Oggetto->text(), u"Sfratto"_s);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Rossi"_s);
}

void TestAnnulla::iParametriPortanoAllaBase()
{
    CompilaCivile(F);
    const int Autorita = F->Nota.cmbAutor;
    ClicScheda(F, SchedaListaOnorari);
    Clic(Annulla());  // the lines that came with the first entry
    QCOMPARE(F->Scheda(), int(SchedaListaOnorari));
    while (F->Nota.cmbAutor == Autorita)
        Clic(Annulla());
    QCOMPARE(F->Scheda(), int(SchedaBase));
    QCOMPARE(Controllo<QComboBox>(F, "cmbAutor")->currentIndex(), F->Nota.cmbAutor);
    Clic(Ripeti());
    QCOMPARE(Controllo<QComboBox>(F, "cmbAutor")->currentIndex(), Autorita);
}

void TestAnnulla::ilSalvataggioNonPerdeIPassi()
{
    Scrivi(F, "txtCliente", u"Rossi"_s);
    const QString File = T->Ufficio.File(u"passi.mdb"_s);
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(u"La parcella passi.mdb è stata salvata correttamente!"_s, vbOK, u"Messaggio:"_s);
    QVERIFY(F->SalvaParcella(false));
    QVERIFY(!F->Nota.Modificata);
    Clic(Annulla());
    QCOMPARE(F->Nota.txtCliente.Testo, QString());
    QVERIFY(F->Nota.Modificata);
    QCOMPARE(F->Nota.Percorso, File);
    Clic(Ripeti());
    QVERIFY(!F->Nota.Modificata);
}

void TestAnnulla::unAltraNotaNonEreditaIPassi()
{
    Scrivi(F, "txtCliente", u"Rossi"_s);
    F->Nuova({});
    QVERIFY(!Annulla()->isEnabled());
}

/// A box that was emptied letter by letter and never left shows what the next note has, and keeps nothing.
void TestAnnulla::unAltraNotaNonEreditaLeLettere()
{
    auto* Cliente = Controllo<QLineEdit>(F, "txtCliente");
    Cliente->setFocus();
    Digita(u"Rossi"_s);
    for (int i = 0; i < 5; ++i)
        Premi(Qt::Key_Backspace);
    QCOMPARE(F->Nota.txtCliente.Testo, QString());
    F->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Tavolo::Apri(), F);
    Cliente->setFocus();
    for (int i = 0; i < 5; ++i) {
        PremiConScorciatoie(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(Cliente->text(), QString());
        QCOMPARE(F->Nota.txtCliente.Testo, QString());
    }
}

/// While a question of the note waits nothing is taken from under it.
void TestAnnulla::laDomandaAperta()
{
    Scrivi(F, "txtCliente", u"Rossi"_s);
    const auto Torna =
        qScopeGuard([Prima = Registratore::AlMostrare()] { Registratore::AlMostrare() = Prima; });
    Registratore::AlMostrare() = [this] { Annulla()->click(); };
    T->Voce.Attendi(u"Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, vbCancel,
                    u"Domanda:"_s);
    QVERIFY(!F->ChiediChiusura());
    QCOMPARE(F->Nota.txtCliente.Testo, u"Rossi"_s);
}

/// A payment that is left gets zeros in its empty cells: neither the next step nor a look at another page is
/// called after them.
void TestAnnulla::gliZeriDellAccontoNonSonoUnPasso()
{
    CompilaCivile(F);
    ClicScheda(F, SchedaListaOnorari);
    ClicScheda(F, SchedaImposte);
    auto* Acconti = Controllo<Griglia>(F, "tdbAcconti");
    ScriviCella(Acconti, 0, AccDescr, u"Fondo spese"_s);
    ScriviCella(Acconti, 0, AccCorrispettivi, u"500"_s);
    Acconti->setFocus();
    Premi(Qt::Key_Down);
    Respiro();
    QCOMPARE(F->Nota.xAcconti(0, AccSpeseImp), QVariant(0.0));
    const QString Pagamento = Annulla()->toolTip();
    QVERIFY2(Pagamento.contains(u"degli acconti"_s), qPrintable(Pagamento));

    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(Annulla()->toolTip(), Pagamento);
    ClicScheda(F, SchedaImposte);
    Clic(Controllo(F, "chkRA"));
    QCOMPARE(Annulla()->toolTip(), u"Annulla: spese e imposte (Ctrl+Z)"_s);
    Clic(Annulla());
    QCOMPARE(F->Nota.xAcconti(0, AccSpeseImp), QVariant(0.0));
    QCOMPARE(F->Nota.xAcconti(0, AccCorrispettivi).toDouble(), 500.0);
    QCOMPARE(Annulla()->toolTip(), Pagamento);
    Clic(Annulla());
    QVERIFY(F->Nota.xAcconti.Righe() == 0 || F->Nota.xAcconti(0, AccCorrispettivi).toDouble() == 0);
}

#include "TestAnnulla.moc"
