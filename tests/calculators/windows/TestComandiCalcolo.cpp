// What all calculators share beside their own commands: the list of the last calculations, the sheet, the
// copy as a table.
#include "tuttelecalcolatrici.h"

#include "platform/system/file.h"

#include <QCheckBox>
#include <QMimeData>

using namespace Qt::StringLiterals;

class TestComandiCalcolo : public QObject, private ConCalcoli
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void siApreVuota_data() { RigheCalcolatrici(); }
    void siApreVuota();
    void tornaDallElenco_data() { RigheCalcolatrici(); }
    void tornaDallElenco();
    void dalMenuEColMouse_data() { RigheCalcolatrici(); }
    void dalMenuEColMouse();
    void spenta_data() { RigheCalcolatrici(); }
    void spenta();
    void scheda_data() { RigheCalcolatrici(); }
    void scheda();
    void copiaTabella_data() { RigheCalcolatrici(); }
    void copiaTabella();
    void senzaRisultatoRiposano_data() { RigheCalcolatrici(); }
    void senzaRisultatoRiposano();
    void svuotatoNonTorna_data() { RigheCalcolatrici(); }
    void svuotatoNonTorna();
    void campiMancanti_data() { RigheCalcolatrici(); }
    void campiMancanti();
};
PROVA(TestComandiCalcolo);

// A remembered calculation changes nothing of how a window opens.
void TestComandiCalcolo::siApreVuota()
{
    const CalcolatriceProvata& Provata = QuestaCalcolatrice();
    QDialog* F = Provata.Apri();
    Provata.Calcola(F, 0);
    QCOMPARE(TestoDi(F, Provata.Risultato), Provata.Atteso);
    Chiudi(F);
    F = Provata.Apri();
    QCOMPARE(TestoDi(F, Provata.Risultato), QString());
    for (QLineEdit* Casella : F->findChildren<QLineEdit*>())
        if (Casella->objectName() != u"mskDataFin" && !Casella->text().remove(u'/').isEmpty())
            QVERIFY2(!Casella->isVisible(), qPrintable(Casella->objectName() + u' ' + Casella->text()));
}

void TestComandiCalcolo::tornaDallElenco()
{
    const CalcolatriceProvata& Provata = QuestaCalcolatrice();
    QDialog* F = Provata.Apri();
    Provata.Calcola(F, 0);
    QCOMPARE(TestoDi(F, Provata.Risultato), Provata.Atteso);
    Chiudi(F);
    F = Provata.Apri();
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QCOMPARE(Colonna(Elenco, 0), QStringList{Provata.Nome.toString()});
    QCOMPARE(Colonna(Elenco, 1), QStringList{Provata.Esito.toString()});
    QCOMPARE(Colonna(Elenco, 2), QStringList{u"21/11/2026 10:00"_s});
    QVERIFY(Riprendi(F));
    QCOMPARE(TestoDi(F, Provata.Risultato), Provata.Atteso);
    // What was taken up again is the same calculation: the list has not grown.
    Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QCOMPARE(Colonna(Elenco, 0).size(), 1);
}

// Over another calculation on view, from the menu, with a double click.
void TestComandiCalcolo::dalMenuEColMouse()
{
    const CalcolatriceProvata& Provata = QuestaCalcolatrice();
    QDialog* F = Provata.Apri();
    Provata.Calcola(F, 0);
    if (F->findChild<QAction*>(u"mnuNew"_s))
        DalMenu(F, "mnuNew");
    Provata.Calcola(F, 1);
    QVERIFY(TestoDi(F, Provata.Risultato) != Provata.Atteso);
    QVERIFY(MostraAttiva(*F));
    DalMenu(F, "mnuUltimi");
    Respiro();
    auto* Elenco = Aperta<frmUltimiCalcoli>(F);
    QVERIFY(Elenco);
    const QStringList Nomi = Colonna(Elenco, 0);
    QCOMPARE(Nomi.size(), 2);
    QCOMPARE(Nomi[1], Provata.Nome);
    DoppioClic(Controllo<Griglia>(Elenco, "tdbCalcoli"), 1);
    QCOMPARE(TestoDi(F, Provata.Risultato), Provata.Atteso);
}

void TestComandiCalcolo::spenta()
{
    const CalcolatriceProvata& Provata = QuestaCalcolatrice();
    QDialog* F = Provata.Apri();
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    auto* Ricorda = Controllo<QCheckBox>(Elenco, "chkRicorda");
    QVERIFY(Ricorda->isChecked());
    Clic(Ricorda);
    QVERIFY(!sessione::RicordaCalcoli);
    QVERIFY(ChiudiElenco(F, Elenco));
    Provata.Calcola(F, 0);
    Chiudi(F);
    QVERIFY(!EsisteFile(FileCalcoli()));
    F = Provata.Apri();
    Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QVERIFY(!Controllo<QCheckBox>(Elenco, "chkRicorda")->isChecked());
    QVERIFY(Colonna(Elenco, 0).isEmpty());
    Clic(Controllo(Elenco, "chkRicorda"));
    QVERIFY(sessione::RicordaCalcoli);
}

void TestComandiCalcolo::scheda()
{
    const CalcolatriceProvata& Provata = QuestaCalcolatrice();
    sessione::StudioNome = u"Studio Bianchi"_s;
    QDialog* F = Provata.Apri();
    Provata.Calcola(F, 0);
    QVERIFY(Attiva(F, "mnuScheda"));
    DalMenu(F, "mnuScheda");
    QVERIFY(SeCaricato<frmPrint> && SeCaricato<frmPrint>->isVisible());
    QVERIFY(SeCaricato<frmPrint>->windowTitle().startsWith(u"Stampa documento: "));
    const auto& Blocchi = SeCaricato<frmPrint>->vpFree().Foglio().Contenuto().Blocchi;
    const auto* Testa = std::get_if<Tabella>(&Blocchi.front());
    QVERIFY(Testa);
    QCOMPARE(Testa->Righe[0][0].Testo, u"Studio Bianchi"_s);
    QCOMPARE(Testa->Righe[0][1].Testo, u"21/11/2026"_s);
}

void TestComandiCalcolo::copiaTabella()
{
    const CalcolatriceProvata& Provata = QuestaCalcolatrice();
    QDialog* F = Provata.Apri();
    Provata.Calcola(F, 0);
    QVERIFY(MostraAttiva(*F));
    Premi(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    const QMimeData* Dati = QApplication::clipboard()->mimeData();
    QVERIFY(Dati && Dati->hasHtml() && Dati->hasFormat(u"text/rtf"_s));
    QVERIFY2(Dati->text().contains(u'\t'), qPrintable(Dati->text()));
    // Every cell of the plain text is one of the table.
    for (const QString& Riga : Dati->text().split(u'\n'))
        for (const QString& Cella : Riga.split(u'\t'))
            QVERIFY2(Dati->html().contains(u'>' + Cella.toHtmlEscaped() + u"</td>"_s), qPrintable(Cella));
}

void TestComandiCalcolo::senzaRisultatoRiposano()
{
    const CalcolatriceProvata& Provata = QuestaCalcolatrice();
    QDialog* F = Provata.Apri();
    QVERIFY(!Attiva(F, "mnuScheda") && !Attiva(F, "mnuCopiaTabella") && Attiva(F, "mnuUltimi"));
    Provata.Calcola(F, 0);
    QVERIFY(Attiva(F, "mnuScheda") && Attiva(F, "mnuCopiaTabella"));
    DalMenu(F, "mnuNew");
    QVERIFY(!Attiva(F, "mnuScheda") && !Attiva(F, "mnuCopiaTabella"));
    // Nor does their key do anything.
    QApplication::clipboard()->setText(u"di prima"_s);
    Premi(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(Appunti(), u"di prima"_s);
}

// What was taken out of the list stays out, although it is on view still: nobody has made it again.
void TestComandiCalcolo::svuotatoNonTorna()
{
    const CalcolatriceProvata& Provata = QuestaCalcolatrice();
    QDialog* F = Provata.Apri();
    Provata.Calcola(F, 0);
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QCOMPARE(Colonna(Elenco, 0).size(), 1);
    B->Voce.Attendi(u"Confermi la cancellazione di tutti i calcoli in elenco?"_s, vbYes);
    Clic(Controllo(Elenco, "cmdSvuota"));
    QVERIFY(ChiudiElenco(F, Elenco));
    DalMenu(F, "mnuCopiaTabella");
    Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QVERIFY(Colonna(Elenco, 0).isEmpty());
    QVERIFY(ChiudiElenco(F, Elenco));
    Chiudi(F);
    Respiro();
    QVERIFY2(!LeggiFile(FileCalcoli()).contains("nome"), LeggiFile(FileCalcoli()).constData());
}

// Entries of a damaged file, or of a program that knew fewer fields: whatever is missing, a window goes on
// with something that it knows.
void TestComandiCalcolo::campiMancanti()
{
    const CalcolatriceProvata& Provata = QuestaCalcolatrice();
    B->Voce.Tollera();
    QDialog* F = Provata.Apri();
    Provata.Calcola(F, 0);
    Chiudi(F);
    CalcoloRicordato Intero;
    Calcolatrice Quale{};
    for (size_t i = 0; i < TabellaCalcolatrici.size(); ++i)
        if (const auto Lista = UltimiCalcoli(Calcolatrice(i)); !Lista.isEmpty()) {
            Intero = Lista.first();
            Quale = Calcolatrice(i);
        }
    QVERIFY(Intero.Campi.size() > 1);
    const QStringList Chiavi = Intero.Campi.keys();
    for (const bool Sola : {true, false}) {
        F = Provata.Apri();
        for (const QString& Chiave : Chiavi) {
            CalcoloRicordato Parte = Intero;
            if (Sola)
                Parte.Campi = {{Chiave, Intero.Campi.value(Chiave)}};
            else
                Parte.Campi.remove(Chiave);
            Parte.Campi.insert(u"cmbNorme"_s, VociNorme[Sola ? 1 : 0].toString());
            SvuotaCalcoli(Quale);
            RicordaCalcolo(Quale, Parte);
            QVERIFY(ApriElenco(F));
            (void)Riprendi(F);
            for (const QComboBox* Lista : F->findChildren<QComboBox*>())
                if (Lista->count() > 0 && Lista->objectName() != u"cmbIncrTipo")
                    QVERIFY2(Lista->currentIndex() >= 0,
                             qPrintable(Lista->objectName() + u" senza "_s + Chiave));
        }
        Chiudi(F);
    }
}

#include "TestComandiCalcolo.moc"
