// A note on its whole road: asked for by the companion application, made by hand, numbered, protected, saved,
// handed over, kept as a template.
#include "scena.h"

#include "compagna/compagna.h"
#include "core/aperture.h"
#include "core/app/apritori.h"
#include "core/app/avvio.h"
#include "core/comandi.h"
#include "core/posti.h"
#include "feenote/finder/windows/frmTrovaParcella.h"
#include "feenote/modNomiProposti.h"
#include "feenote/windows/selettore.h"
#include "platform/network/segnale.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"

#include <QListWidget>
#include <QPushButton>
#include <QSlider>

#include <memory>

class TestStradaPratica : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void laStrada();

private:
    void Richiesta();
    void Onorari();
    void PannelloECursore();
    void TagliaEIncolla();
    void TaglioAnnullato();
    void RigaTrascinata();
    void AccontiEImposte();
    void NumeroDellaFattura();
    void ProtettaESalvata();
    void PasswordSbagliata();
    void ComeModello();
    void ModelloRiaperto();
    void Fine();

    /// Keys of a client and of a counterparty of this office.
    [[nodiscard]] static int Aggiungi(const QString& Tabella, const QString& Nominativo);
    [[nodiscard]] QToolButton* Tasto(const char* Nome) const
    {
        return Controllo<QToolButton>(PaginaIn(F), Nome);
    }
    [[nodiscard]] QString Pannello(const char* Nome) const { return Controllo<QLabel>(F, Nome)->text(); }

    std::unique_ptr<Scena> S;
    std::unique_ptr<Registratore> Box;
    std::unique_ptr<Compagna> Lei;
    QString Note;
    QString File;
    QString Modello;
    frmParcelle* F = nullptr;
};
PROVA(TestStradaPratica);

void TestStradaPratica::init()
{
    S = std::make_unique<Scena>();
    InstallaSegnale();
    InstallaOrologio([] { return QDateTime(QDate(2026, 3, 5), QTime(10, 0)); });
    Box = std::make_unique<Registratore>();
    Lei = std::make_unique<Compagna>();
    QVERIFY(Lei->Pronta());

    Note = NuovaCartella();
    QDir().mkpath(Note + u"Modelli"_s);
    const QString Archivio = NuovaCartella() + u"DatiStudio.mdb"_s;
    QFile::copy(ProgrammaDiProva() + u"DatiStudio.mdb"_s, Archivio);
    sessione::ArchivioCliCon = Archivio;
    const QString Utente = NuovaCartella();
    ScriviFile(Utente + u"avvisokr5.ini"_s, "[avvisokr5]\nletto=21/11/2026\n");
    Scena::Salva(u"PercorsoProcedura"_s, ProgrammaDiProva());
    Scena::Salva(u"StudioNome"_s, u"Studio Bianchi"_s);
    Scena::Salva(u"CercaAgg"_s, u"N"_s);
    Scena::Salva(u"ParcellePath"_s, Note);
    Scena::Salva(u"ArchivioCliCon"_s, Archivio);
    Scena::Salva(u"UserFolder"_s, Utente);
    SaveSetting(u"Praxivo"_s, u"Parametri"_s, u"ArchivioPrat"_s, Lei->Archivio());
    SaveSetting(u"Praxivo"_s, u"Parametri"_s, u"PreviewParcPath"_s, Lei->Pagine() + u"anteprima.htm"_s);
    RiempiApritori();
}

void TestStradaPratica::cleanup()
{
    Lei.reset();
    Box.reset();
    AzzeraFinestre();
    LasciaRecupero();
    delete SeCaricato<frmTrovaParcella>.data();
    S.reset();
    InstallaOrologio({});
    Aperture.AreaParcelle = nullptr;
    Aperture.ParcellaAttivata = nullptr;
    Aperture.UltimaParcellaChiusa = nullptr;
}

int TestStradaPratica::Aggiungi(const QString& Tabella, const QString& Nominativo)
{
    Recordset Righe = OpenDatabase(sessione::ArchivioCliCon).OpenRecordset(Tabella);
    Righe.AddNew();
    Righe.ImpostaValue(u"Nominativo"_s, Nominativo);
    Righe.Update();
    Righe.MoveLast();
    return Righe.Value(u"ID"_s).toInt();
}

void TestStradaPratica::laStrada()
{
    for (const auto Passo :
         {&TestStradaPratica::Richiesta, &TestStradaPratica::Onorari, &TestStradaPratica::PannelloECursore,
          &TestStradaPratica::TagliaEIncolla, &TestStradaPratica::TaglioAnnullato,
          &TestStradaPratica::RigaTrascinata, &TestStradaPratica::AccontiEImposte,
          &TestStradaPratica::NumeroDellaFattura, &TestStradaPratica::ProtettaESalvata,
          &TestStradaPratica::PasswordSbagliata, &TestStradaPratica::ComeModello,
          &TestStradaPratica::ModelloRiaperto, &TestStradaPratica::Fine}) {
        (this->*Passo)();
        if (QTest::currentTestFailed())
            return;
    }
}

/// Civil, the third authority of the list, 30.000 euro: the bracket from 25.000,01 to 50.000,00.
void TestStradaPratica::Richiesta()
{
    const int Cliente = Aggiungi(u"clienti"_s, u"Rossi Mario"_s);
    const int Controparte = Aggiungi(u"controparti"_s, u"Società \"L'Aquila\" & C."_s);
    Main(u"PV2|N|P12|0|2|30000|%1|%2|7|"_s.arg(Cliente).arg(Controparte));
    F = Parcelle(1);
    QVERIFY(F && MostraAttiva(Singola<frmMain>()));
    QCOMPARE(F->windowTitle(), u"[P12] Nuova parcella"_s);
    QCOMPARE(Controllo<QLineEdit>(F, "txtCliente")->text(), u"Rossi Mario"_s);
    QCOMPARE(Controllo<QLineEdit>(F, "txtControp")->text(), u"Società \"L'Aquila\" & C."_s);
    QCOMPARE(Controllo<QComboBox>(F, "cmbAutor")->currentText(), u"Tribunale ordinario"_s);
    QCOMPARE(Controllo<QLineEdit>(F, "txtImporto")->text(), u"30.000,00"_s);
    QCOMPARE(Controllo<QComboBox>(F, "cmbValore")->currentText(), u"da € 25.000,01 a € 50.000,00"_s);
    QCOMPARE(Pannello("lblRif_1"), u"P12"_s);
}

/// The four phases come by themselves: 1.200 + 600 + 1.200 + 1.500 = 4.500. Two free items follow.
void TestStradaPratica::Onorari()
{
    ClicScheda(F, SchedaListaOnorari);
    auto* Righe = Controllo<Griglia>(F, "tdbOnor");
    auto* Catalogo = Controllo<Griglia>(F, "tdbListaOno");
    QCOMPARE(Testi(F->Nota.xOnorari, {OnoNVoce, OnoImporto}),
             (QStringList{u"1|1200"_s, u"2|600"_s, u"3|1200"_s, u"4|1500"_s}));
    DoppioClic(Catalogo, Catalogo->Righe() - 1);
    ScriviCella(Righe, 4, OnoDescr, u"Conciliazione"_s);
    ScriviCella(Righe, 4, OnoImporto, u"150"_s);
    DoppioClic(Catalogo, Catalogo->Righe() - 1);
    ScriviCella(Righe, 5, OnoDescr, u"Trasferta"_s);
    ScriviCella(Righe, 5, OnoImporto, u"250"_s);
    QCOMPARE(Pannello("lblOnora"), u"Onor.: 4.900,00"_s);  // 4.500 + 150 + 250
}

/// The first phase goes from 600 to 1.920. Twelve steps up from the minimum: 600 + 1.320 x 0,12 = 758,40,
/// whole euro 758.
void TestStradaPratica::PannelloECursore()
{
    auto* Righe = Controllo<Griglia>(F, "tdbOnor");
    ClicCella(Righe, 0, OnoDescr);
    Clic(Tasto("barListaOnoDir_variaz"));
    Respiro();
    auto* Fasce = Controllo<QListWidget>(F, "tdbFasceOno");
    QTest::mouseClick(Fasce->viewport(), Qt::LeftButton, Qt::NoModifier,
                      Fasce->visualItemRect(Fasce->item(0)).center());
    QCOMPARE(Pannello("lblImpOno"), u"600,00"_s);
    Controllo<QSlider>(F, "sldGraduaOno")->setFocus();
    for (int i = 0; i < 12; ++i)
        Premi(Qt::Key_Right);
    QCOMPARE(Pannello("lblImpOno"), u"758,00"_s);
    Clic(Controllo<QPushButton>(F, "cmdModOno"));
    QCOMPARE(NumeroDi(F->Nota.xOnorari(0, OnoImporto)), 758.0);
    QCOMPARE(Pannello("lblOnora"), u"Onor.: 4.458,00"_s);  // 4.900 - 1.200 + 758
}

/// The two free items are no fees of the tariff: they go among the expenses, 400 of them taxable.
void TestStradaPratica::TagliaEIncolla()
{
    auto* Onorari = Controllo<Griglia>(F, "tdbOnor");
    ClicSelettore(Onorari, 4);
    ClicSelettore(Onorari, 5, Qt::ControlModifier);
    Onorari->setFocus();
    Box->Attendi(u"Confermi la cancellazione delle voci selezionate?"_s, vbYes, u"Domanda:"_s);
    Premi(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(Pannello("lblOnora"), u"Onor.: 4.058,00"_s);  // 758 + 600 + 1.200 + 1.500

    ClicScheda(F, SchedaListaSpese);
    auto* Spese = Controllo<Griglia>(F, "tdbDir");
    DoppioClic(Controllo<Griglia>(F, "tdbListaDir"), 0);
    ScriviCella(Spese, 0, DirEsente, u"237"_s);
    Spese->setFocus();
    Premi(Qt::Key_V, Qt::ControlModifier);
    // Column by column: the medium amount of a fee has come into the exempt column, and goes.
    QCOMPARE(Pannello("lblSpese"), u"Esenti: 637,00"_s);  // 237 + 150 + 250
    for (const int Riga : {1, 2})
        ScriviCella(Spese, Riga, DirEsente, u"0"_s);
    QCOMPARE(Testi(F->Nota.xDiritti, {DirDescr, DirImponibile, DirEsente}),
             (QStringList{u"Contributo unificato di iscrizione a ruolo||237"_s, u"Conciliazione|150|"_s,
                          u"Trasferta|250|"_s}));
    QCOMPARE(Pannello("lblSpImp"), u"Sp.Imp: 400,00"_s);
    QCOMPARE(Pannello("lblSpese"), u"Esenti: 237,00"_s);
}

void TestStradaPratica::TaglioAnnullato()
{
    auto* Spese = Controllo<Griglia>(F, "tdbDir");
    const TabellaRighe Prima = F->Nota.xDiritti;
    ClicSelettore(Spese, 1);
    Spese->setFocus();
    Box->Attendi(u"Confermi la cancellazione della voce selezionata?"_s, vbYes, u"Domanda:"_s);
    Premi(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(Pannello("lblSpImp"), u"Sp.Imp: 250,00"_s);
    Premi(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(F->Nota.xDiritti, Prima);
    QCOMPARE(Pannello("lblSpImp"), u"Sp.Imp: 400,00"_s);
}

void TestStradaPratica::RigaTrascinata()
{
    ClicScheda(F, SchedaListaOnorari);
    auto* Righe = Controllo<Griglia>(F, "tdbOnor");
    Box->Attendi(u"Confermi lo spostamento della riga?"_s, vbYes, u"Domanda:"_s);
    Trascina(Righe, 3, SulSelettore(Righe, 0));
    QCOMPARE(Testi(F->Nota.xOnorari, {OnoNVoce, OnoImporto}),
             (QStringList{u"4|1500"_s, u"1|758"_s, u"2|600"_s, u"3|1200"_s}));
}

/// Fees paid: 500 euro and 1.936.270 lire, which are 1.000 euro. Taxable expenses paid: 193.627 lire, 100
/// euro.
///
/// General expenses 12,5 % of 4.058                          507,25
/// Base 4.058 - 1.500 + 400 - 100 + 507,25                 3.365,25
/// Pension fund 4 % of it                                    134,61
/// VAT 21 % of 3.499,86 = 734,9706                           734,97
/// Total with 237 exempt                                   4.471,83
/// Withheld 20 % of 3.365,25                                 673,05
/// Net                                                     3.798,78
void TestStradaPratica::AccontiEImposte()
{
    ClicScheda(F, SchedaImposte);
    auto* Acconti = Controllo<Griglia>(F, "tdbAcconti");
    ScriviCella(Acconti, 0, AccDescr, u"Fondo spese"_s);
    ScriviCella(Acconti, 0, AccCorrispettivi, u"500"_s);
    ScriviCella(Acconti, 1, AccDescr, u"Saldo del 2001"_s);
    ScriviCella(Acconti, 1, AccCorrispettivi, u"1936270"_s);
    ScriviCella(Acconti, 1, AccSpeseImp, u"193627"_s);
    ClicCella(Acconti, 1, AccValuta);
    QCOMPARE(Testi(F->Nota.xAcconti, {AccValuta, AccCorrispettivi, AccSpeseImp}),
             (QStringList{u"E|500|"_s, u"L|1936270|193627"_s}));
    Clic(Controllo(F, "chkSpeseGen"));
    Clic(Controllo(F, "chkRA"));
    const Catena Conti = CatenaFiscale(F->Nota, StampaFatturaAnalitica);
    QCOMPARE(Conti.Dati.Acconti, (SommeAcconti{1500.0, 100.0, 0.0}));
    QCOMPARE(Conti.SpeseGen, 507.25);
    QCOMPARE(Conti.Imponibile, 3365.25);
    QCOMPARE(Conti.CP, 134.61);
    QCOMPARE(Conti.IVA, 734.97);
    QCOMPARE(Conti.Totale, 4471.83);
    QCOMPARE(Conti.RA, 673.05);
    QCOMPARE(Conti.Netto, 3798.78);
}

void TestStradaPratica::NumeroDellaFattura()
{
    ClicScheda(F, SchedaDiStampa);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaFatturaAnalitica);
    QVERIFY(MostraAttiva(Singola<frmMain>()));
    Box->Attendi(u"Procedo all'aggiornamento del progressivo?"_s, vbYes, u"Domanda:"_s);
    Clic(Controllo<QPushButton>(F, "cmdProgFatt"));
    QCOMPARE(Controllo<QLineEdit>(F, "txtDatiPar_11")->text(), u"1"_s);
    QCOMPARE(Controllo<QLineEdit>(F, "txtDatiPar_12")->text(), u"05/03/2026"_s);
    QCOMPARE(Scena::Parametro(u"ProgFatt"_s), u"1"_s);
}

void TestStradaPratica::ProtettaESalvata()
{
    Box->AttendiImmissione(u"Immettere la password per la protezione della parcella:"_s, u"Lucca2026"_s);
    Box->Attendi(
        u"E' stata impostata la password: Lucca2\nLa protezione diverrà operativa al salvataggio della parcella."_s,
        vbOK, u"Messaggio:"_s);
    QTest::mouseClick(Singola<frmMain>().findChild<QWidget*>(u"barParcelle_lock"_s), Qt::LeftButton);
    QVERIFY(Controllo(F, "pctLock")->isVisible());

    File = Note + u"P12-Rossi.mdb"_s;
    Box->AttendiSalva(Note + u"Rossi"_s);
    Box->Attendi(
        u"La parcella, essendo associato ad una pratica, deve iniziare col codice seguito dal trattino!\n"
        u"Il nome della parcella è stato modificato in: P12-Rossi.mdb"_s,
        vbOK, u"Errore salvataggio:"_s);
    Box->Attendi(u"La parcella P12-Rossi.mdb è stata salvata correttamente!"_s, vbOK, u"Messaggio:"_s);
    Box->Attendi(u"E' stata salvata la parcella come fattura.\n"
                 u"Trasferisco i dati della fattura anche all'applicazione Praxivo?"_s,
                 vbYes, u"Domanda:"_s);
    QTest::mouseClick(Singola<frmMain>().findChild<QWidget*>(u"barParcelle_save"_s), Qt::LeftButton);
    QCOMPARE(F->windowTitle(), u"p12-rossi"_s);
    QVERIFY(!F->Nota.Modificata);
    QCOMPARE(Lei->Fatture().last(), u"P12|1|05/03/2026|A|E|4058|7"_s);
    // Once for the row, once for the note itself, each with the null of its text.
    QCOMPARE(Lei->Uditi(), QByteArrayList(2, QByteArray("refresh", 8)));
    QVERIFY(EsisteFile(Lei->Pagine() + u"p12-rossi.htm"_s));
}

void TestStradaPratica::PasswordSbagliata()
{
    const QByteArray Prima = LeggiFile(File);
    ClicScheda(F, SchedaBase);
    Scrivi(Controllo<QLineEdit>(F, "txtOggetto"), u"Sfratto"_s);
    Box->AttendiImmissione(u"Specificare la password per modificare la parcella:"_s, u"Lucca2026"_s);
    Box->Attendi(u"La password immessa non è corretta!\nL'operazione non è stata effettuata."_s, vbOK,
                 u"Errore:"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(LeggiFile(File), Prima);
    QVERIFY(F->Nota.Modificata);
    QCOMPARE(Lei->Uditi().size(), 2);
}

/// A template may not be handed over as an invoice: the question is asked, and the answer is No.
void TestStradaPratica::ComeModello()
{
    Modello = Note + u"Modelli/P12-tipo.mdb"_s;
    Box->AttendiSalva(Modello);
    Box->Attendi(u"La parcella P12-tipo.mdb è stata salvata correttamente!"_s, vbOK, u"Messaggio:"_s);
    Box->Attendi(u"E' stata salvata la parcella come fattura.\n"
                 u"Trasferisco i dati della fattura anche all'applicazione Praxivo?"_s,
                 vbNo, u"Domanda:"_s);
    EseguiComando(u"savemod"_s, 1, {});
    QCOMPARE(Box->InizioDialogo(), sessione::ModelliPath + u"P12-"_s);
    QVERIFY(SolaLettura(Modello));
    QCOMPARE(Lei->Uditi().size(), 3);
    QCOMPARE(Lei->Fatture().size(), 2);
}

void TestStradaPratica::ModelloRiaperto()
{
    Box->Attendi(u"Attenzione, la parcella è protetta! Le modifiche potranno essere salvate\n"
                 u"solo dopo aver specificato la chiave di protezione."_s,
                 vbOK, u"Messaggio:"_s);
    QTRY_VERIFY(QApplication::activeWindow());  // the last box has given the focus back
    EseguiComando(u"openmod"_s, 0, {});
    auto& Trova = Singola<frmTrovaParcella>();
    QVERIFY(MostraAttiva(Trova));
    QTRY_VERIFY(!Trova.InRicerca());
    QCOMPARE(Trova.Elenco().Note(), 1);
    Digita(u"p12"_s);
    Premi(Qt::Key_Down);
    Premi(Qt::Key_Return);
    QVERIFY(!Trova.isVisible());
    const frmParcelle* Nuova = Parcelle(2);
    QVERIFY(Nuova && Nuova->isVisible());
    QCOMPARE(Nuova->windowTitle(), u"p12-tipo"_s);
    QCOMPARE(Nuova->Nota.txtOggetto.Testo, u"Sfratto"_s);
    QCOMPARE(Testi(Nuova->Nota.xOnorari, {OnoNVoce, OnoImporto}),
             (QStringList{u"4|1500"_s, u"1|758"_s, u"2|600"_s, u"3|1200"_s}));
    QCOMPARE(CatenaFiscale(Nuova->Nota, StampaFatturaAnalitica).Netto, 3798.78);
    QVERIFY(SolaLettura(Modello));

    Scrivi(Controllo<QLineEdit>(Nuova, "txtOggetto"), u"Sfratto bis"_s);
    Box->AttendiSalva(Modello);
    Box->Attendi(u"La parcella P12-tipo.mdb non può essere sovrascritta!"_s, vbOK, u"Errore:"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(Box->InizioDialogo(), sessione::ParcellePath + u"P12-"_s + NomeProposto(Nuova->Nota));
    QVERIFY(Box->InizioDialogo().endsWith(u" - Sfratto bis"));
    QVERIFY(InfoParcelle[2].Modificata);
}

void TestStradaPratica::Fine()
{
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    QCOMPARE(Lei->Fatture(),
             (QStringList{u"P7|3|01/02/2026|A|E|250,5|1"_s, u"P12|1|05/03/2026|A|E|4058|7"_s}));
}

#include "TestStradaPratica.moc"
