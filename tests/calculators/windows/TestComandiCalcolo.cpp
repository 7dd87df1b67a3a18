// What all calculators share beside their own commands: the list of the last calculations, the sheet, the
// copy as a table.
#include "bancocalcoli.h"

#include "calculators/windows/frmCodFis.h"
#include "calculators/windows/frmContrib.h"
#include "calculators/windows/frmInteressi.h"
#include "calculators/windows/frmIstat.h"
#include "calculators/windows/frmTermini.h"
#include "calculators/windows/frmTerminiSeq.h"
#include "platform/system/file.h"

#include <QCheckBox>
#include <QMimeData>

using namespace Qt::StringLiterals;

namespace {

using Apritore = QDialog* (*)();
using Conto = void (*)(QDialog* F, int Quale);

template <class Modulo>
QDialog* ApriModulo()
{
    return Apri<Modulo>();
}

/// Every calculator with a calculation, and where its result stands.
void Righe()
{
    QTest::addColumn<Apritore>("Nuovo");
    QTest::addColumn<Conto>("Calcola");
    QTest::addColumn<QByteArray>("Risultato");
    QTest::addColumn<QString>("Atteso");
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Esito");
    QTest::newRow("termini") << Apritore(ApriModulo<frmTermini>) << Conto(CalcolaTermine)
                             << QByteArray("lblRisult")
                             << u"La scadenza è Lunedì,  24 Settembre  2012\n(Posticipata)"_s
                             << u"Termine di 20 giorni dal 20/07/2012"_s
                             << u"Lunedì, 24 Settembre 2012 (Posticipata)"_s;
    QTest::newRow("sequenziali") << Apritore(ApriModulo<frmTerminiSeq>) << Conto(CalcolaSequenza)
                                 << QByteArray("lblRisult")
                                 << u"\n  1° termine (30 giorni):  Mercoledì,  12 Dicembre  2012\n\n"
                                    "  2° termine (30 giorni):  Venerdì,  11 Gennaio  2013\n\n"
                                    "  3° termine (20 giorni):  Giovedì,  31 Gennaio  2013"_s
                                 << u"Art. 183, 6° co. cpc (deposito memorie), udienza del 12/11/2012"_s
                                 << u"12/12/2012, 11/01/2013, 31/01/2013"_s;
    QTest::newRow("interessi") << Apritore(ApriModulo<frmInteressi>) << Conto(CalcolaInteressi)
                               << QByteArray("lblTotale") << u"25,07"_s
                               << u"Legali, 1.000,00 euro dal 01/01/2012 al 31/12/2012"_s << u"25,07 euro"_s;
    QTest::newRow("istat") << Apritore(ApriModulo<frmIstat>) << Conto(CalcolaIstat)
                           << QByteArray("lblImpRival") << u"1.161,64  "_s
                           << u"1.000,00 euro dal 01/01/2020 al 01/01/2024"_s << u"1.161,64 euro"_s;
    QTest::newRow("codice fiscale") << Apritore(ApriModulo<frmCodFis>) << Conto(CalcolaCodice)
                                    << QByteArray("txtCodiceFiscale") << u"RSSMRA80A01H501U"_s
                                    << u"Rossi Mario"_s << u"RSSMRA80A01H501U"_s;
    QTest::newRow("contributo") << Apritore(ApriModulo<frmContrib>) << Conto(CalcolaContributo)
                                << QByteArray("lblContr_0") << u"43,00"_s
                                << u"Contributo ordinario, valore 1.000,00"_s << u"43,00 euro"_s;
}

}  // namespace

class TestComandiCalcolo : public QObject, private ConCalcoli
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void siApreVuota_data() { Righe(); }
    void siApreVuota();
    void tornaDallElenco_data() { Righe(); }
    void tornaDallElenco();
    void dalMenuEColMouse_data() { Righe(); }
    void dalMenuEColMouse();
    void spenta_data() { Righe(); }
    void spenta();
    void scheda_data() { Righe(); }
    void scheda();
    void copiaTabella_data() { Righe(); }
    void copiaTabella();
    void senzaRisultatoRiposano_data() { Righe(); }
    void senzaRisultatoRiposano();
    void svuotatoNonTorna_data() { Righe(); }
    void svuotatoNonTorna();
    void campiMancanti_data() { Righe(); }
    void campiMancanti();
};
PROVA(TestComandiCalcolo);

// A remembered calculation changes nothing of how a window opens.
void TestComandiCalcolo::siApreVuota()
{
    QFETCH(Apritore, Nuovo);
    QFETCH(Conto, Calcola);
    QFETCH(QByteArray, Risultato);
    QDialog* F = Nuovo();
    Calcola(F, 0);
    QTEST(TestoDi(F, Risultato.constData()), "Atteso");
    Chiudi(F);
    F = Nuovo();
    QCOMPARE(TestoDi(F, Risultato.constData()), QString());
    for (QLineEdit* Casella : F->findChildren<QLineEdit*>())
        if (Casella->objectName() != u"mskDataFin" && !Casella->text().remove(u'/').isEmpty())
            QVERIFY2(!Casella->isVisible(), qPrintable(Casella->objectName() + u' ' + Casella->text()));
}

void TestComandiCalcolo::tornaDallElenco()
{
    QFETCH(Apritore, Nuovo);
    QFETCH(Conto, Calcola);
    QFETCH(QByteArray, Risultato);
    QFETCH(QString, Atteso);
    QFETCH(QString, Nome);
    QFETCH(QString, Esito);
    QDialog* F = Nuovo();
    Calcola(F, 0);
    QCOMPARE(TestoDi(F, Risultato.constData()), Atteso);
    Chiudi(F);
    F = Nuovo();
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QCOMPARE(Colonna(Elenco, 0), QStringList{Nome});
    QCOMPARE(Colonna(Elenco, 1), QStringList{Esito});
    QCOMPARE(Colonna(Elenco, 2), QStringList{u"21/11/2026 10:00"_s});
    QVERIFY(Riprendi(F));
    QCOMPARE(TestoDi(F, Risultato.constData()), Atteso);
    // What was taken up again is the same calculation: the list has not grown.
    Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QCOMPARE(Colonna(Elenco, 0).size(), 1);
}

// Over another calculation on view, from the menu, with a double click.
void TestComandiCalcolo::dalMenuEColMouse()
{
    QFETCH(Apritore, Nuovo);
    QFETCH(Conto, Calcola);
    QFETCH(QByteArray, Risultato);
    QFETCH(QString, Atteso);
    QFETCH(QString, Nome);
    QDialog* F = Nuovo();
    Calcola(F, 0);
    if (F->findChild<QAction*>(u"mnuNew"_s))
        DalMenu(F, "mnuNew");
    Calcola(F, 1);
    QVERIFY(TestoDi(F, Risultato.constData()) != Atteso);
    QVERIFY(MostraAttiva(*F));
    DalMenu(F, "mnuUltimi");
    Respiro();
    auto* Elenco = Aperta<frmUltimiCalcoli>(F);
    QVERIFY(Elenco);
    const QStringList Nomi = Colonna(Elenco, 0);
    QCOMPARE(Nomi.size(), 2);
    QCOMPARE(Nomi[1], Nome);
    DoppioClic(Controllo<Griglia>(Elenco, "tdbCalcoli"), 1);
    QCOMPARE(TestoDi(F, Risultato.constData()), Atteso);
}

void TestComandiCalcolo::spenta()
{
    QFETCH(Apritore, Nuovo);
    QFETCH(Conto, Calcola);
    QDialog* F = Nuovo();
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    auto* Ricorda = Controllo<QCheckBox>(Elenco, "chkRicorda");
    QVERIFY(Ricorda->isChecked());
    Clic(Ricorda);
    QVERIFY(!sessione::RicordaCalcoli);
    QVERIFY(ChiudiElenco(F, Elenco));
    Calcola(F, 0);
    Chiudi(F);
    QVERIFY(!EsisteFile(FileCalcoli()));
    F = Nuovo();
    Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QVERIFY(!Controllo<QCheckBox>(Elenco, "chkRicorda")->isChecked());
    QVERIFY(Colonna(Elenco, 0).isEmpty());
    Clic(Controllo(Elenco, "chkRicorda"));
    QVERIFY(sessione::RicordaCalcoli);
}

void TestComandiCalcolo::scheda()
{
    QFETCH(Apritore, Nuovo);
    QFETCH(Conto, Calcola);
    sessione::StudioNome = u"Studio Bianchi"_s;
    QDialog* F = Nuovo();
    Calcola(F, 0);
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
    QFETCH(Apritore, Nuovo);
    QFETCH(Conto, Calcola);
    QDialog* F = Nuovo();
    Calcola(F, 0);
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
    QFETCH(Apritore, Nuovo);
    QFETCH(Conto, Calcola);
    QDialog* F = Nuovo();
    QVERIFY(!Attiva(F, "mnuScheda") && !Attiva(F, "mnuCopiaTabella") && Attiva(F, "mnuUltimi"));
    Calcola(F, 0);
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
    QFETCH(Apritore, Nuovo);
    QFETCH(Conto, Calcola);
    QDialog* F = Nuovo();
    Calcola(F, 0);
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
    QFETCH(Apritore, Nuovo);
    QFETCH(Conto, Calcola);
    B->Voce.Tollera();
    QDialog* F = Nuovo();
    Calcola(F, 0);
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
        F = Nuovo();
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
