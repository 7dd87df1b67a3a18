// What all calculators share beside their own commands: the list of the last calculations, the sheet, the
// copy as a table.
#include "banconorme.h"

#include "calculators/norme/terminiricorrenti.h"
#include "calculators/windows/frmCodFis.h"
#include "calculators/windows/frmContrib.h"
#include "calculators/windows/frmInteressi.h"
#include "calculators/windows/frmIstat.h"
#include "calculators/windows/frmTermini.h"
#include "calculators/windows/frmTerminiSeq.h"
#include "calculators/windows/frmUltimiCalcoli.h"
#include "platform/grid/griglia.h"
#include "platform/system/file.h"

#include "calculators/norme/norme.h"

#include <QAction>
#include <QCheckBox>
#include <QMenuBar>
#include <QMimeData>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

using Apritore = QDialog* (*)();
using Conto = void (*)(QDialog* F, int Quale);

template <class Modulo>
QDialog* ApriModulo()
{
    return Apri<Modulo>();
}

void CalcolaTermine(QDialog* F, int Quale)
{
    Scrivi(F, "mskDecorr", u"20072012"_s);
    Scrivi(F, "txtIncrNum", QString::number(20 + Quale));
    Clic(Controllo(F, "cmdEsegui"));
}

void CalcolaSequenza(QDialog* F, int Quale)
{
    Scegli(F, "cmbArticolo", Quale % 2);
    Scrivi(F, "mskDecorr", Quale < 2 ? u"12112012"_s : u"10072012"_s);
    Clic(Controllo(F, "cmdEsegui"));
}

void CalcolaInteressi(QDialog* F, int Quale)
{
    Scegli(F, "cmbInteressi", Quale % 2);
    Scrivi(F, "txtCapitale", QString::number(1000 * (Quale + 1)));
    Scrivi(F, "mskDataIni", u"01012012"_s);
    Scrivi(F, "mskDataFin", u"31122012"_s);
    Clic(Controllo(F, "cmdCalcola"));
}

void CalcolaIstat(QDialog* F, int Quale)
{
    Scrivi(F, "mskDataIni", u"01012020"_s);
    Scrivi(F, "mskDataFin", u"01012024"_s);
    Scrivi(F, "txtImporto", QString::number(1000 * (Quale + 1)));
    Clic(Controllo(F, "cmdCalcola"));
}

void CalcolaCodice(QDialog* F, int Quale)
{
    Scrivi(F, "txtCognome", Quale == 0 ? u"Rossi"_s : u"Fo"_s);
    Scrivi(F, "txtNome", Quale == 0 ? u"Mario"_s : u"Anna"_s);
    Scrivi(F, "txtDataNascita", u"01011980"_s);
    Scegli(F, "cboSesso", Quale % 2);
    Scrivi(F, "txtComune", u"roma"_s);
    Premi(Qt::Key_Return);
}

void CalcolaContributo(QDialog* F, int Quale)
{
    Scrivi(F, "txtValore_0", QString::number(1000 * (Quale + 1)));
    Premi(Qt::Key_Return);
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

bool Attiva(const QDialog* Finestra, const char* Nome)
{
    return Controllo<QAction>(Finestra, Nome)->isEnabled();
}

/// Opens the list by its key.
frmUltimiCalcoli* ApriElenco(QDialog* F)
{
    if (!MostraAttiva(*F))
        return nullptr;
    Premi(Qt::Key_L, Qt::ControlModifier);
    Respiro();
    return Aperta<frmUltimiCalcoli>(F);
}

/// The list is closed and the calculator in front again.
bool ChiudiElenco(QDialog* F, frmUltimiCalcoli* Elenco)
{
    Chiudi(Elenco);
    F->activateWindow();
    return MostraAttiva(*F);
}

/// Takes the current row of the list; the calculator is in front again.
bool Riprendi(QDialog* F)
{
    Premi(Qt::Key_Return);
    Respiro();
    const bool Chiuso = !F->findChild<frmUltimiCalcoli*>() || !F->findChild<frmUltimiCalcoli*>()->isVisible();
    F->activateWindow();
    return MostraAttiva(*F) && Chiuso;
}

QStringList Colonna(const frmUltimiCalcoli* Elenco, int Quale)
{
    const auto* Tabella = Controllo<Griglia>(Elenco, "tdbCalcoli");
    QStringList Testi;
    for (int Riga = 0; Riga < Tabella->Righe(); ++Riga)
        Testi << Tabella->Vista()->model()->index(Riga, Quale).data().toString();
    return Testi;
}

}  // namespace

Q_DECLARE_METATYPE(Apritore)
Q_DECLARE_METATYPE(Conto)

class TestComandiCalcolo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
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
    void rinominaETogli();
    void svuota();
    void svuotatoNonTorna_data() { Righe(); }
    void svuotatoNonTorna();
    void campiMancanti_data() { Righe(); }
    void campiMancanti();
    void tastiDellElenco();
    void elencoVuoto();
    void elencoDanneggiato();
    void elencoCheNonSiScrive();
    void voceNonPiuInElenco();
    void accessibile();

    void terminiDelCatalogo();
    void catenaDelCatalogo();
    void moraScelta_data();
    void moraScelta();
    void legaliNonScelgonoLaMora();
    void comuneSenzaCodice();
    void dueMeta();
    void letturaRicordata();
    void contributoCheProsegue();
    void contributoVigente();

private:
    std::unique_ptr<Banco> B;
};
PROVA(TestComandiCalcolo);

void TestComandiCalcolo::init()
{
    B = std::make_unique<Banco>();
    B->ConTassi();
    delete SeCaricato<frmPrint>.data();
}

void TestComandiCalcolo::cleanup()
{
    B.reset();
}

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

void TestComandiCalcolo::rinominaETogli()
{
    QDialog* F = Apri<frmIstat>();
    for (const int Quale : {0, 1, 2})
        CalcolaIstat(F, Quale);
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    auto* Tabella = Controllo<Griglia>(Elenco, "tdbCalcoli");
    ClicCella(Tabella, 1, 0);
    B->Voce.AttendiImmissione(u"Nome del calcolo:"_s, u" Causa Rossi "_s);
    Clic(Controllo(Elenco, "cmdRinomina"));
    QCOMPARE(Colonna(Elenco, 0).at(1), u"Causa Rossi"_s);
    QCOMPARE(Tabella->RigaCorrente(), 1);
    B->Voce.AttendiImmissione(u"Nome del calcolo:"_s, QString());
    Clic(Controllo(Elenco, "cmdRinomina"));
    QCOMPARE(Colonna(Elenco, 0).at(1), u"Causa Rossi"_s);
    ClicCella(Tabella, 0, 0);
    Clic(Controllo(Elenco, "cmdElimina"));
    QCOMPARE(Colonna(Elenco, 1), (QStringList{u"2.323,28 euro"_s, u"1.161,64 euro"_s}));
    QVERIFY(ChiudiElenco(F, Elenco));
    // The calculation on view was taken out: made again, it comes in again.
    QVERIFY(MostraAttiva(*F));
    Clic(Controllo(F, "cmdCalcola"));
    Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QCOMPARE(Colonna(Elenco, 1).first(), u"3.484,92 euro"_s);
    QCOMPARE(Colonna(Elenco, 0).at(1), u"Causa Rossi"_s);
}

void TestComandiCalcolo::svuota()
{
    QDialog* F = Apri<frmIstat>();
    CalcolaIstat(F, 0);
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    const QString Domanda = u"Confermi la cancellazione di tutti i calcoli in elenco?"_s;
    B->Voce.Attendi(Domanda, vbNo, u"Domanda:"_s);
    Clic(Controllo(Elenco, "cmdSvuota"));
    QCOMPARE(Colonna(Elenco, 0).size(), 1);
    B->Voce.Attendi(Domanda, vbYes);
    Clic(Controllo(Elenco, "cmdSvuota"));
    QVERIFY(Colonna(Elenco, 0).isEmpty());
    QVERIFY(!Controllo(Elenco, "cmdSvuota")->isEnabled());
    QVERIFY(UltimiCalcoli(Calcolatrice::Istat).isEmpty());
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
    for (size_t i = 0; i < NomiCalcolatrici.size(); ++i)
        if (const auto Lista = UltimiCalcoli(Calcolatrice(i)); !Lista.isEmpty()) {
            Intero = Lista.first();
            Quale = Calcolatrice(i);
        }
    QVERIFY(Intero.Campi.size() > 1);
    const QStringList Chiavi = Intero.Campi.keys();
    for (const QString& Chiave : Chiavi)
        for (const bool Sola : {true, false}) {
            CalcoloRicordato Parte = Intero;
            if (Sola)
                Parte.Campi = {{Chiave, Intero.Campi.value(Chiave)}};
            else
                Parte.Campi.remove(Chiave);
            Parte.Campi.insert(u"cmbNorme"_s, VociNorme[Sola ? 1 : 0].toString());
            SvuotaCalcoli(Quale);
            RicordaCalcolo(Quale, Parte);
            F = Nuovo();
            QVERIFY(ApriElenco(F));
            (void)Riprendi(F);
            for (const QComboBox* Lista : F->findChildren<QComboBox*>())
                if (Lista->count() > 0 && Lista->objectName() != u"cmbIncrTipo")
                    QVERIFY2(Lista->currentIndex() >= 0,
                             qPrintable(Lista->objectName() + u" senza "_s + Chiave));
            Chiudi(F);
        }
}

void TestComandiCalcolo::tastiDellElenco()
{
    QDialog* F = Apri<frmIstat>();
    CalcolaIstat(F, 0);
    CalcolaIstat(F, 1);
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QCOMPARE(NomeFuoco(), u"tdbCalcoli"_s);
    Premi(Qt::Key_Down);
    B->Voce.AttendiImmissione(u"Nome del calcolo:"_s, u"mille"_s);
    Premi(Qt::Key_F2);
    QCOMPARE(Colonna(Elenco, 0).at(1), u"mille"_s);
    Premi(Qt::Key_Delete);
    QCOMPARE(Colonna(Elenco, 1), QStringList{u"2.323,28 euro"_s});
    Premi(Qt::Key_Escape);
    Respiro();
    QVERIFY(!Aperta<frmUltimiCalcoli>(F));
    QCOMPARE(TestoDi(F, "lblImpRival"), u"2.323,28  "_s);
}

void TestComandiCalcolo::elencoVuoto()
{
    QDialog* F = Apri<frmIstat>();
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    for (const char* Nome : {"cmdRiprendi", "cmdRinomina", "cmdElimina", "cmdSvuota"})
        QVERIFY2(!Controllo(Elenco, Nome)->isEnabled(), Nome);
    QCOMPARE(NomeFuoco(), u"cmdChiudi"_s);
    Premi(Qt::Key_F2);
    Premi(Qt::Key_Return);
    Respiro();
    QVERIFY(!Aperta<frmUltimiCalcoli>(F));
}

void TestComandiCalcolo::elencoDanneggiato()
{
    CreaCartellaPrivata(CartellaDati());
    ScriviFile(FileCalcoli(), "{\"ultimi");
    QDialog* F = Apri<frmIstat>();
    B->Voce.Attendi(FraseElencoGuasto());
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QVERIFY(Colonna(Elenco, 0).isEmpty());
    QVERIFY(ChiudiElenco(F, Elenco));
    CalcolaIstat(F, 0);
    QCOMPARE(UltimiCalcoli(Calcolatrice::Istat).size(), 1);
    // What was put aside holds the lists of all windows: emptying one says that it goes too.
    Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    B->Voce.Attendi(
        u"Confermi la cancellazione di tutti i calcoli in elenco?\nSi cancella anche l'elenco danneggiato "
        "che era stato messo da parte."_s,
        vbNo);
    Clic(Controllo(Elenco, "cmdSvuota"));
    QVERIFY(EsisteFile(FileCalcoliGuasto()));
}

// A list that cannot be written is told once; the calculation is there all the same.
void TestComandiCalcolo::elencoCheNonSiScrive()
{
    QVERIFY(QDir().mkpath(FileCalcoli()));
    QDialog* F = Apri<frmIstat>();
    B->Voce.Tollera();
    CalcolaIstat(F, 0);
    QCOMPARE(TestoDi(F, "lblImpRival"), u"1.161,64  "_s);
    CalcolaIstat(F, 1);
    QCOMPARE(TestoDi(F, "lblImpRival"), u"2.323,28  "_s);
    QCOMPARE(B->Voce.Mostrati().size(), 1);
    QVERIFY2(B->Voce.UltimoTesto().startsWith(u"Errore: "), qPrintable(B->Voce.UltimoTesto()));
    QVERIFY(QDir().rmdir(FileCalcoli()));
    // It is told again when it comes back.
    CalcolaIstat(F, 2);
    QCOMPARE(B->Voce.Mostrati().size(), 1);
    QCOMPARE(UltimiCalcoli(Calcolatrice::Istat).size(), 1);
}

void TestComandiCalcolo::voceNonPiuInElenco()
{
    RicordaCalcolo(Calcolatrice::Sequenziali,
                   {u"vecchio"_s, u"x"_s, Adesso(), {{u"cmbArticolo"_s, u"Art. 999"_s}}});
    QDialog* F = Apri<frmTerminiSeq>();
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    B->Voce.Attendi(u"Il calcolo non si può riprendere: \"Art. 999\" non è più in elenco."_s, vbOK,
                    u"Errore:"_s);
    Clic(Controllo(Elenco, "cmdRiprendi"));
    QCOMPARE(TestoDi(F, "lblRisult"), QString());
}

void TestComandiCalcolo::accessibile()
{
    QDialog* F = Apri<frmIstat>();
    CalcolaIstat(F, 0);
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QCOMPARE(SenzaNome(Elenco).join(u", "_s), QString());
    QVERIFY(Elenco->minimumSizeHint().width() <= 910);
    QVERIFY(Elenco->minimumSizeHint().height() <= 470);
    QCOMPARE(OrdineTab(Controllo<Griglia>(Elenco, "tdbCalcoli")->Vista(), 5).mid(1),
             (QStringList{u"chkRicorda"_s, u"cmdRinomina"_s, u"cmdElimina"_s, u"cmdSvuota"_s}));
}

// ---- what single windows remember besides ---------------------------------------------------------

void TestComandiCalcolo::terminiDelCatalogo()
{
    auto* F = Apri<frmTermini>();
    Scegli(F, "cmbNorme", 1);
    const auto Lette = NormeVigenti();
    const TermineRicorrente* Appello = TrovaTermine(*Lette, u"CPC-325-APPELLO");
    if (!Appello)
        Appello = CercaTermini(*Lette, u"325"_s).first();
    Scrivi(F, "mskDecorr", u"20072026"_s);
    F->UsaTermine(*Appello);
    const QString Atteso = TestoDi(F, "lblRisult");
    const QString Termine = TestoDi(F, "lblTermine");
    QVERIFY(!Atteso.isEmpty() && !Termine.isEmpty());
    Chiudi(F);
    F = Apri<frmTermini>();
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QVERIFY2(Colonna(Elenco, 0).first().contains(Appello->Articolo), qPrintable(Colonna(Elenco, 0).first()));
    QVERIFY(Riprendi(F));
    QCOMPARE(Controllo<QComboBox>(F, "cmbNorme")->currentIndex(), 1);
    QCOMPARE(TestoDi(F, "lblRisult"), Atteso);
    QCOMPARE(TestoDi(F, "lblTermine"), Termine);
    // A plain term taken up behind it leaves the catalogue.
    DalMenu(F, "mnuNew");
    Scegli(F, "cmbNorme", 0);
    Scegli(F, "cmbIncrTipo", 0);
    CalcolaTermine(F, 0);
    QCOMPARE(TestoDi(F, "lblRisult"), u"La scadenza è Lunedì,  24 Settembre  2012\n(Posticipata)"_s);
}

void TestComandiCalcolo::catenaDelCatalogo()
{
    auto* F = Apri<frmTermini>();
    Scegli(F, "cmbNorme", 1);
    const auto Lette = NormeVigenti();
    QVERIFY(!Lette->Catene().isEmpty());
    Scrivi(F, "mskDecorr", u"20072026"_s);
    F->UsaCatena(Lette->Catene().first());
    const QString Atteso = TestoDi(F, "lblRisult");
    QVERIFY(!Atteso.isEmpty());
    Chiudi(F);
    F = Apri<frmTermini>();
    QVERIFY(ApriElenco(F));
    QVERIFY(Riprendi(F));
    QCOMPARE(TestoDi(F, "lblRisult"), Atteso);
    QVERIFY(!Controllo(F, "txtIncrNum")->isEnabled());
}

// The rule that is proposed with a first day gives way to the one that was chosen.
void TestComandiCalcolo::moraScelta_data()
{
    QTest::addColumn<bool>("Dopo");
    QTest::newRow("entro il 2012, contro la proposta") << false;
    QTest::newRow("dopo il 2012") << true;
}

void TestComandiCalcolo::moraScelta()
{
    QFETCH(bool, Dopo);
    QDialog* F = Apri<frmInteressi>();
    Scegli(F, "cmbNorme", 1);
    Scegli(F, "cmbInteressi", 1);
    Scrivi(F, "txtCapitale", u"1000"_s);
    Scrivi(F, "mskDataIni", u"01012014"_s);
    Scrivi(F, "mskDataFin", u"31122014"_s);
    Clic(Controllo(F, Dopo ? "optDataFine_1" : "optDataFine_0"));
    Clic(Controllo(F, "cmdCalcola"));
    const QString Atteso = TestoDi(F, "lblTotale");
    QVERIFY(!Atteso.isEmpty());
    Chiudi(F);
    F = Apri<frmInteressi>();
    QVERIFY(ApriElenco(F));
    QVERIFY(Riprendi(F));
    QCOMPARE(Controllo<QRadioButton>(F, "optDataFine_1")->isChecked(), Dopo);
    QCOMPARE(TestoDi(F, "lblTotale"), Atteso);
}

// A legal calculation says nothing of the rule of default interest.
void TestComandiCalcolo::legaliNonScelgonoLaMora()
{
    QDialog* F = Apri<frmInteressi>();
    Scegli(F, "cmbNorme", 1);
    CalcolaInteressi(F, 0);
    Chiudi(F);
    F = Apri<frmInteressi>();
    QVERIFY(ApriElenco(F));
    QVERIFY(Riprendi(F));
    Scegli(F, "cmbInteressi", 1);
    Scrivi(F, "mskDataIni", u"01012020"_s);
    QVERIFY(Controllo<QRadioButton>(F, "optDataFine_1")->isChecked());
}

// A code that is computed and one that is read are two calculations, in the list as on the sheet.
void TestComandiCalcolo::dueMeta()
{
    QDialog* F = Apri<frmCodFis>();
    CalcolaCodice(F, 0);
    for (const QString& Codice : {u"RSSMRA85M45F205K"_s, u"RSSMRA85M45F205X"_s, u"RSS"_s}) {
        Scrivi(F, "txtLetto", Codice);
        Premi(Qt::Key_Tab);
    }
    QStringList Voci;
    for (const CalcoloRicordato& Calcolo : UltimiCalcoli(Calcolatrice::CodiceFiscale))
        Voci << Calcolo.Nome + u": "_s + Calcolo.Esito;
    QCOMPARE(Voci,
             (QStringList{
                 u"Lettura di RSSMRA85M45F205X: 05/08/1985, femmina, Milano (MI), ultima lettera errata"_s,
                 u"Lettura di RSSMRA85M45F205K: 05/08/1985, femmina, Milano (MI)"_s,
                 u"Rossi Mario: RSSMRA80A01H501U"_s}));
    Scrivi(F, "txtLetto", u"RSSMRA85M45F205K"_s);
    DalMenu(F, "mnuCopiaTabella");
    QVERIFY2(Appunti().startsWith(u"Codice fiscale\tRSSMRA85M45F205K\n"), qPrintable(Appunti()));
    // The button of the computed code copies that one, wherever the focus is.
    Clic(Controllo(F, "cmdCopia"));
    QCOMPARE(Appunti(), u"RSSMRA80A01H501U"_s);
    Controllo(F, "txtNome")->setFocus();
    DalMenu(F, "mnuCopiaTabella");
    QVERIFY2(Appunti().startsWith(u"Cognome\tRossi\n"), qPrintable(Appunti()));
}

void TestComandiCalcolo::comuneSenzaCodice()
{
    QDialog* F = Apri<frmCodFis>();
    B->Voce.Tollera();  // "Comune non in elenco."
    CalcolaCodice(F, 0);
    Scrivi(F, "txtComune", u"xyz"_s);
    Clic(Controllo(F, "cmdElabora"));
    const QString Atteso = TestoDi(F, "txtCodiceFiscale");
    QVERIFY2(Atteso.contains(u'?'), qPrintable(Atteso));
    Chiudi(F);
    F = Apri<frmCodFis>();
    QVERIFY(ApriElenco(F));
    QVERIFY(Riprendi(F));
    QCOMPARE(TestoDi(F, "txtCodiceFiscale"), Atteso);
}

void TestComandiCalcolo::letturaRicordata()
{
    QDialog* F = Apri<frmCodFis>();
    Scrivi(F, "txtLetto", u"RSSMRA85M45F205K"_s);
    Premi(Qt::Key_Return);
    Chiudi(F);
    F = Apri<frmCodFis>();
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QCOMPARE(Colonna(Elenco, 0), QStringList{u"Lettura di RSSMRA85M45F205K"_s});
    QCOMPARE(Colonna(Elenco, 1), QStringList{u"05/08/1985, femmina, Milano (MI)"_s});
    QVERIFY(Riprendi(F));
    QCOMPARE(TestoDi(F, "txtLetto"), u"RSSMRA85M45F205K"_s);
    QVERIFY(TestoDi(F, "lblLettura").contains(u"05/08/1985"));
}

// The page computes at every value that is left: what adds to a calculation carries it on.
void TestComandiCalcolo::contributoCheProsegue()
{
    QDialog* F = Apri<frmContrib>();
    Scrivi(F, "txtValore_0", u"1000"_s);
    Premi(Qt::Key_Return);
    Scrivi(F, "txtValore_1", u"1000"_s);
    Premi(Qt::Key_Return);
    const auto Esiti = [] {
        Respiro();
        QStringList Tutti;
        for (const CalcoloRicordato& Calcolo : UltimiCalcoli(Calcolatrice::Contributo))
            Tutti << Calcolo.Esito;
        return Tutti;
    };
    QCOMPARE(Esiti(), QStringList{u"43,00; 21,50 euro"_s});
    // Another value is another calculation.
    Scrivi(F, "txtValore_0", u"2000"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(Esiti(), (QStringList{u"98,00; 21,50 euro"_s, u"43,00; 21,50 euro"_s}));
    // What is on view when the window goes counts too, and once.
    Chiudi(F);
    QCOMPARE(Esiti().size(), 2);
}

void TestComandiCalcolo::contributoVigente()
{
    QDialog* F = Apri<frmContrib>();
    Scegli(F, "cmbNorme", 1);
    Scrivi(F, "txtValoreVigente", u"30000"_s);
    Premi(Qt::Key_Tab);
    Clic(Controllo(F, "chkDimezzato"));
    const QString Atteso = TestoDi(F, "lblVigente");
    QVERIFY(!Atteso.isEmpty());
    QVERIFY(Attiva(F, "mnuScheda"));
    Chiudi(F);
    F = Apri<frmContrib>();
    QCOMPARE(TestoDi(F, "lblVigente"), QString());
    auto* Elenco = ApriElenco(F);
    QVERIFY(Elenco);
    QCOMPARE(Colonna(Elenco, 1).first(), Atteso + u" euro"_s);
    QVERIFY2(Colonna(Elenco, 0).first().endsWith(u", valore 30.000,00"),
             qPrintable(Colonna(Elenco, 0).first()));
    QVERIFY(Riprendi(F));
    QCOMPARE(TestoDi(F, "lblVigente"), Atteso);
    QVERIFY(Controllo<QCheckBox>(F, "chkDimezzato")->isChecked());
    // Without the panel nothing of it is on the sheet.
    Scegli(F, "cmbNorme", 0);
    QVERIFY(!Attiva(F, "mnuScheda"));
}

#include "TestComandiCalcolo.moc"
