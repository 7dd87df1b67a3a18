// The choice of the tariff: from the line of a new note to the settings and back.
#include "scena.h"

#include "core/app/apritori.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "supporto/mani.h"
#include "tariffs/decreto.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include <memory>

class TestStradaTariffa : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void laRigaPortaAllaScelta();
    void chiSalvaLaSchedaHaScelto();
    void chiSalvaAltroveNonHaScelto();
    void sceltaRipensata();
    void laNotaConRigheTieneLaSua();
    void chiNonHaChiestoTieneLaSua();
    void valoreScrittoAMano();
    void loScaglionePersoSiRichiede();

private:
    static frmSetup& Modulo() { return Singola<frmSetup>(); }
    static QComboBox* ListaDelleNuove() { return Modulo().findChild<QComboBox*>(u"cmbTariffa"_s); }
    void Memorizza()
    {
        Box->Attendi(u"Le impostazioni sono state memorizzate!"_s);
        if (Parcelle(1))
            Box->Attendi(
                u"Per essere certi della piena operatività è consigliabile riavviare il programma."_s);
        QTest::mouseClick(Modulo().findChild<QWidget*>(u"cmdSaveImpost"_s), Qt::LeftButton);
    }
    static frmParcelle* Nuova(int Posto)
    {
        EseguiComando(u"new"_s, 0, {});
        return Parcelle(Posto);
    }
    static QToolButton* Riga(const frmParcelle* Finestra)
    {
        return Finestra->findChild<QToolButton*>(u"cmdTariffa"_s);
    }
    static QComboBox* Lista(const frmParcelle* Finestra)
    {
        return Finestra->findChild<QComboBox*>(u"cmbTariffa"_s);
    }
    static QString Striscia(const frmParcelle* Finestra)
    {
        return Finestra->findChild<QLabel*>(u"lblDatiBase"_s)->text();
    }

    std::unique_ptr<Scena> S;
    std::unique_ptr<Registratore> Box;
};
PROVA(TestStradaTariffa);

void TestStradaTariffa::init()
{
    S = std::make_unique<Scena>();
    const QString Utente = NuovaCartella();
    ScriviFile(Utente + u"avvisokr5.ini"_s, "[avvisokr5]\nletto=21/11/2026\n");
    Scena::Salva(u"PercorsoProcedura"_s, ProgrammaDiProva());
    Scena::Salva(u"CercaAgg"_s, u"N"_s);
    Scena::Salva(u"UserFolder"_s, Utente);
    for (const QString& Chiave : {u"StudioNome"_s, u"StudioIndir"_s, u"StudioCitta"_s, u"StudioMail"_s})
        Scena::Salva(Chiave, u"Studio Bianchi"_s);
    RiempiApritori();
    Box = std::make_unique<Registratore>();
    Main({});
}

void TestStradaTariffa::cleanup()
{
    AzzeraFinestre();
    Box.reset();
    S.reset();
}

void TestStradaTariffa::laRigaPortaAllaScelta()
{
    frmParcelle* F = Nuova(1);
    QCOMPARE(Riga(F)->text().remove(u'&'), u"Tariffa: D.m. 140/2012 - cambia"_s);
    QVERIFY(Riga(F)->isVisible());
    QVERIFY(!Lista(F)->isVisible());
    QTest::mouseClick(Riga(F), Qt::LeftButton);
    QVERIFY(Modulo().isVisible());
    QCOMPARE(Modulo().findChild<QTabWidget*>(u"tabSetup"_s)->currentIndex(),
             int(frmSetup::SchedaDatiContabili));
    QVERIFY(ListaDelleNuove()->isVisible());
    QCOMPARE(ListaDelleNuove()->currentText(), u"D.m. 140/2012"_s);  // the default
    ListaDelleNuove()->setFocus();
    Premi(Qt::Key_Down);
    QCOMPARE(ListaDelleNuove()->currentText(), u"D.m. 55/2014"_s);
    Memorizza();
    QCOMPARE(Scena::Parametro(u"Tariffa"_s), u"55"_s);
    // The note that led there is still new, and follows.
    QCOMPARE(F->Nota.Tariffa, &Dm55);
    QVERIFY(!F->Nota.Modificata);
    QVERIFY(!Riga(F)->isVisible());
    QVERIFY(Lista(F)->isVisible());
    QCOMPARE(Lista(F)->currentText(), u"D.m. 55/2014"_s);
    QCOMPARE(Striscia(F), u"D.m. 55/2014"_s);
    F->SetModificata(true);
    const frmParcelle* Seconda = Nuova(2);
    QCOMPARE(Seconda->Nota.Tariffa, &Dm55);
    QVERIFY(!Riga(Seconda)->isVisible());
    F->SetModificata(false);
}

void TestStradaTariffa::chiSalvaLaSchedaHaScelto()
{
    frmParcelle* F = Nuova(1);
    QTest::mouseClick(Riga(F), Qt::LeftButton);
    Memorizza();  // the list says D.m. 140/2012, and that is what was seen and stored
    QCOMPARE(Scena::Parametro(u"Tariffa"_s), u"140"_s);
    QVERIFY(!Riga(F)->isVisible());
    QCOMPARE(Lista(F)->currentText(), u"D.m. 140/2012"_s);
    QCOMPARE(F->Nota.Tariffa, &Dm140);
    QCOMPARE(Striscia(F), QString());
}

void TestStradaTariffa::chiSalvaAltroveNonHaScelto()
{
    frmParcelle* F = Nuova(1);
    EseguiComando(u"setup"_s, 0, {});
    Modulo().ChangeTab(frmSetup::SchedaDatiStudio);
    Memorizza();
    QCOMPARE(Scena::Parametro(u"Tariffa"_s), QString());
    QVERIFY(Riga(F)->isVisible());
}

void TestStradaTariffa::sceltaRipensata()
{
    frmParcelle* F = Nuova(1);
    QTest::mouseClick(Riga(F), Qt::LeftButton);
    ListaDelleNuove()->setFocus();
    Premi(Qt::Key_Down);
    Modulo().close();
    QCOMPARE(Scena::Parametro(u"Tariffa"_s), QString());
    QVERIFY(Riga(F)->isVisible());
    QCOMPARE(F->Nota.Tariffa, &Dm140);
    EseguiComando(u"setup"_s, 0, {});  // anew from what is stored
    QCOMPARE(ListaDelleNuove()->currentText(), u"D.m. 140/2012"_s);
    // Opened otherwise, what is stored is for the notes to come: this one has not asked.
    Modulo().ChangeTab(frmSetup::SchedaDatiContabili);
    ListaDelleNuove()->setFocus();
    Premi(Qt::Key_Down);
    Memorizza();
    QCOMPARE(Scena::Parametro(u"Tariffa"_s), u"55"_s);
    QCOMPARE(F->Nota.Tariffa, &Dm140);
}

void TestStradaTariffa::laNotaConRigheTieneLaSua()
{
    frmParcelle* F = Nuova(1);
    F->Nota.xOnorari.AggiungiRiga();
    QTest::mouseClick(Riga(F), Qt::LeftButton);
    ListaDelleNuove()->setFocus();
    Premi(Qt::Key_Down);
    Memorizza();
    QCOMPARE(Scena::Parametro(u"Tariffa"_s), u"55"_s);
    QCOMPARE(F->Nota.Tariffa, &Dm140);
    QVERIFY(Lista(F)->isVisible());  // where it can be changed, with the question that this brings
}

void TestStradaTariffa::chiNonHaChiestoTieneLaSua()
{
    frmParcelle* F = Nuova(1);
    F->SetModificata(true);
    frmParcelle* Altra = Nuova(2);
    QTest::mouseClick(Riga(Altra), Qt::LeftButton);
    ListaDelleNuove()->setFocus();
    Premi(Qt::Key_Down);
    Memorizza();
    QCOMPARE(Altra->Nota.Tariffa, &Dm55);
    QCOMPARE(F->Nota.Tariffa, &Dm140);
    QVERIFY(!Riga(F)->isVisible());
    // A later save is nobody's answer any more.
    EseguiComando(u"setup"_s, 0, {});
    Modulo().ChangeTab(frmSetup::SchedaDatiContabili);
    ListaDelleNuove()->setFocus();
    Premi(Qt::Key_Up);
    Memorizza();
    QCOMPARE(Scena::Parametro(u"Tariffa"_s), u"140"_s);
    QCOMPARE(Altra->Nota.Tariffa, &Dm55);
    F->SetModificata(false);
}

void TestStradaTariffa::valoreScrittoAMano()
{
    Scena::Salva(u"Tariffa"_s, u"quella nuova"_s);
    ImpostaVariabili();
    const frmParcelle* F = Nuova(1);
    QVERIFY(Riga(F)->isVisible());
    EseguiComando(u"setup"_s, 0, {});
    Modulo().ChangeTab(frmSetup::SchedaDatiContabili);
    QCOMPARE(ListaDelleNuove()->currentText(), u"D.m. 140/2012"_s);
}

/// A bracket of one tariff is none of the other's: the pages that need one are closed until it is chosen.
void TestStradaTariffa::loScaglionePersoSiRichiede()
{
    frmParcelle* F = Nuova(1);
    QVERIFY(MostraAttiva(Singola<frmMain>()));
    ScegliConFrecce(Controllo<QComboBox>(F, "cmbCateg"), CategCivile);
    ScegliConFrecce(Controllo<QComboBox>(F, "cmbAutor"), 1);
    ScegliConFrecce(Controllo<QComboBox>(F, "cmbValore"), 1);
    QTest::mouseClick(Riga(F), Qt::LeftButton);
    F->VaiAllaScheda(SchedaListaSpese);
    QCOMPARE(F->Scheda(), int(SchedaListaSpese));
    QVERIFY(MostraAttiva(Modulo()));
    ListaDelleNuove()->setFocus();
    Premi(Qt::Key_Down);
    Memorizza();
    QCOMPARE(F->Nota.Tariffa, &Dm55);
    QCOMPARE(F->Nota.cmbValore, NessunaVoce);
    QCOMPARE(F->Scheda(), int(SchedaBase));
    Box->Attendi(u"Non è stato specificato lo scaglione di valore della causa!"_s);
    F->VaiAllaScheda(SchedaListaOnorari);
    QCOMPARE(F->Scheda(), int(SchedaBase));
    F->SetModificata(false);
}

#include "TestStradaTariffa.moc"
