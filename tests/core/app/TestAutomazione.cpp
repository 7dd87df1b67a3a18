// The start by the companion application, end to end: its request, the program's own windows, its archive and
// the signals that it hears. It is a process of its own; so, at the end, is the program.
#include "scena.h"

#include "compagna/compagna.h"
#include "core/aperture.h"
#include "core/app/apritori.h"
#include "core/app/avvio.h"
#include "core/posti.h"
#include "feenote/windows/tavolo.h"
#include "platform/network/segnale.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"

#include <QElapsedTimer>
#include <QProcess>

#include <memory>

namespace {

const QString Trasferisco = u"E' stata salvata la parcella come fattura.\n"
                            u"Trasferisco i dati della fattura anche all'applicazione Praxivo?"_s;
const QString GuastoPV2 = u"Si è verificato un errore nel salvataggio dei dati fattura su PV"_s;
const QString SoloLaSua = u"P7|3|01/02/2026|A|E|250,5|1"_s;

QByteArrayList Refresh(int Quanti)
{
    return QByteArrayList(Quanti, QByteArray("refresh\0", 8));
}

/// An invoice of the matter P12 as a file, with one line of 1.200 euro.
void ScriviFattura(const QString& File)
{
    AzzeraSessione();
    sessione::PercorsoProg = ProgrammaDiProva();
    sessione::RichiestaPV2.ID = u"P12"_s;
    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"Studio"_s, 1200.0);
    ScegliTipoStampa(Nota, StampaFatturaSintetica);
    Nota.txtDatiPar[DatoNumFatt] = u"8"_s;
    Nota.txtDatiPar[DatoDataFatt] = u"20/11/2026"_s;
    ScriviNota(File, Nota);
    AzzeraSessione();
}

/// The program itself, ended with the object.
class Programma
{
public:
    explicit Programma(const QStringList& Argomenti)
    {
        QProcessEnvironment Ambiente = QProcessEnvironment::systemEnvironment();
        Ambiente.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        Processo.setProcessEnvironment(Ambiente);
        Processo.setStandardErrorFile(QProcess::nullDevice());
        Processo.start(ProgrammaDiProva() + u"calcanova"_s, Argomenti);
    }
    ~Programma()
    {
        if (Processo.state() == QProcess::NotRunning)
            return;
        Processo.kill();
        Processo.waitForFinished();
    }
    Programma(const Programma&) = delete;
    Programma& operator=(const Programma&) = delete;

    QProcess Processo;
};

}  // namespace

class TestAutomazione : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void dallaRichiestaAllaFattura();
    void archivioInUso();
    void ilRiferimentoConLeVirgolette();
    void ilFileDellaPratica();
    void ilFileApertoDallUfficio();
    void senzaCompagna();
    void richiesteCheNonSiLeggono_data();
    void richiesteCheNonSiLeggono();
    void unAltraLetteraFinisce();
    void ilProgrammaVeroApreIlFile();
    void ilProgrammaVeroFinisce();

private:
    static frmMain& Cornice() { return Singola<frmMain>(); }
    /// The companion's settings, which the start reads.
    static void Conosci(const Compagna& Lei);
    /// The first note comes to the front, an invoice with one line of honoraria.
    void PreparaFattura();
    /// Saves the note; the awaited boxes follow the one that tells so.
    void AttendiSalvata(const QString& Nome) const;

    std::unique_ptr<Scena> S;
    std::unique_ptr<Registratore> Box;
    QString Note;
    frmParcelle* F = nullptr;
};
PROVA(TestAutomazione);

void TestAutomazione::init()
{
    S = std::make_unique<Scena>();
    Box = std::make_unique<Registratore>();
    QFile::remove(qEnvironmentVariable("XDG_CONFIG_HOME") + u"/Calcanova/Praxivo.ini"_s);
    InstallaSegnale();
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 21), QTime(10, 0)); });
    Note = NuovaCartella();
    const QString Utente = NuovaCartella();
    ScriviFile(Utente + u"avvisokr5.ini"_s, "[avvisokr5]\nletto=21/11/2026\n");
    Scena::Salva(u"PercorsoProcedura"_s, ProgrammaDiProva());
    Scena::Salva(u"StudioNome"_s, u"Studio Bianchi"_s);
    Scena::Salva(u"CercaAgg"_s, u"N"_s);
    Scena::Salva(u"UserFolder"_s, Utente);
    Scena::Salva(u"ParcellePath"_s, Note);
    RiempiApritori();
}

void TestAutomazione::cleanup()
{
    AzzeraFinestre();
    LasciaRecupero();
    InstallaOrologio({});
    Box.reset();
    S.reset();
    Aperture.AreaParcelle = nullptr;
    Aperture.ParcellaAttivata = nullptr;
    Aperture.UltimaParcellaChiusa = nullptr;
}

void TestAutomazione::Conosci(const Compagna& Lei)
{
    SaveSetting(u"Praxivo"_s, u"Parametri"_s, u"ArchivioPrat"_s, Lei.Archivio());
    SaveSetting(u"Praxivo"_s, u"Parametri"_s, u"PreviewParcPath"_s, Lei.Pagine() + u"anteprima.htm"_s);
}

void TestAutomazione::PreparaFattura()
{
    F = Parcelle(1);
    QVERIFY(F);
    QVERIFY(MostraAttiva(Cornice()));
    RigaOnorario(F->Nota, u"Studio"_s, 1200.0);
    ClicScheda(F, SchedaDiStampa);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaFatturaAnalitica);
    Respiro();
    Box->Attendi(u"Procedo all'aggiornamento del progressivo?"_s, vbYes);
    Clic(Controllo(F, "cmdProgFatt"));
}

void TestAutomazione::AttendiSalvata(const QString& Nome) const
{
    Box->AttendiSalva(Note + Nome);
    Box->Attendi(u"La parcella "_s + Nome + u" è stata salvata correttamente!"_s);
}

void TestAutomazione::dallaRichiestaAllaFattura()
{
    Compagna Lei;
    QVERIFY(Lei.Pronta());
    Conosci(Lei);
    Scena::Salva(u"ProgFatt"_s, u"41"_s);
    Main(u"PV2|N|P12|0|2|30000|0|0|11|"_s);
    QVERIFY(!SeCaricato<frmStudio>);
    PreparaFattura();
    QCOMPARE(F->windowTitle(), u"[P12] Nuova parcella"_s);
    QCOMPARE(Controllo<QLabel>(F, "lblRif_1")->text(), u"P12"_s);
    QCOMPARE(F->Nota.IDAutSelezionata(), IDTribunale);
    QCOMPARE(F->Nota.txtImporto.Testo, u"30.000,00"_s);
    QCOMPARE(Scena::Parametro(u"ProgFatt"_s), u"42"_s);

    AttendiSalvata(u"P12-rossi.mdb"_s);
    Box->Attendi(Trasferisco, vbYes);
    Cornice().barParcelle_ButtonClick(u"save"_s);
    QCOMPARE(Lei.Fatture(), (QStringList{SoloLaSua, u"P12|42|21/11/2026|A|E|1200|11"_s}));
    QCOMPARE(Lei.Uditi(), Refresh(2));
    QVERIFY(EsisteFile(Lei.Pagine() + u"p12-rossi.htm"_s));

    // The same invoice once more: one row, a new amount.
    F->Nota.xOnorari(0, OnoImporto) = 1300.25;
    F->SetModificata(true);
    AttendiSalvata(u"P12-rossi.mdb"_s);
    Box->Attendi(Trasferisco, vbYes);
    Cornice().barParcelle_ButtonClick(u"save"_s);
    QCOMPARE(Lei.Fatture(), (QStringList{SoloLaSua, u"P12|42|21/11/2026|A|E|1300,25|11"_s}));
    QCOMPARE(Lei.Uditi(), Refresh(4));

    QCOMPARE(S->Eventi, QStringList());
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
}

void TestAutomazione::archivioInUso()
{
    Compagna Lei;
    Conosci(Lei);
    Main(u"PV2|N|P12|0|2|30000|0|0|11|"_s);
    PreparaFattura();
    QVERIFY(Lei.Blocca());
    AttendiSalvata(u"P12-rossi.mdb"_s);
    Box->Attendi(Trasferisco, vbYes);
    Box->Attendi(GuastoPV2, vbOK, u"Errore!"_s);
    S->Clessidre.clear();
    QElapsedTimer Orologio;
    Orologio.start();
    QVERIFY(F->SalvaParcella(false));
    QVERIFY2(Orologio.elapsed() >= 2900, "three seconds of patience");
    QVERIFY(S->Clessidre.contains(u'+') && S->Clessidre.endsWith(u'-'));
    QVERIFY(!F->Nota.Modificata);
    QVERIFY(EsisteFile(Note + u"P12-rossi.mdb"_s));
    QVERIFY(Lei.Sblocca());
    QCOMPARE(Lei.Fatture(), QStringList{SoloLaSua});
    QCOMPARE(Lei.Uditi(), Refresh(2));

    F->SetModificata(true);
    AttendiSalvata(u"P12-rossi.mdb"_s);
    Box->Attendi(Trasferisco, vbYes);
    QVERIFY(F->SalvaParcella(false));
    QCOMPARE(Lei.Fatture().size(), 2);
}

void TestAutomazione::ilRiferimentoConLeVirgolette()
{
    Compagna Lei;
    Conosci(Lei);
    Main(u"PV2|N|P'1); DROP--|0|2|30000|0|0|x|"_s);
    PreparaFattura();
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_11"), u"4'); DELETE"_s);
    Premi(Qt::Key_Tab);
    AttendiSalvata(u"P'1); DROP---nota.mdb"_s);
    Box->Attendi(Trasferisco, vbYes);
    QVERIFY(F->SalvaParcella(false));
    QCOMPARE(Lei.Fatture(), (QStringList{SoloLaSua, u"P'1); DROP--|4'); DELETE|21/11/2026|A|E|1200|0"_s}));
    QVERIFY(OpenDatabase(Lei.Archivio(), true).EsisteTabella(u"Pratiche"_s));
}

void TestAutomazione::ilFileDellaPratica()
{
    const QString File = Note + u"P12-rossi.mdb"_s;
    ScriviFattura(File);
    Compagna Lei;
    Conosci(Lei);
    Main(u"PV2|E|"_s + File);
    F = Parcelle(1);
    QCOMPARE(F->windowTitle(), u"p12-rossi"_s);
    QCOMPARE(sessione::RichiestaPV2.ID, u"P12"_s);
    QCOMPARE(sessione::ArchivioPrat, Lei.Archivio());
    F->SetModificata(true);
    AttendiSalvata(u"P12-rossi.mdb"_s);
    Box->Attendi(Trasferisco, vbYes);
    QVERIFY(F->SalvaParcella(false));
    // No request, no counter.
    QCOMPARE(Lei.Fatture(), (QStringList{SoloLaSua, u"P12|8|20/11/2026|A|E|1200|0"_s}));
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
}

void TestAutomazione::ilFileApertoDallUfficio()
{
    const QString File = Note + u"P12-rossi.mdb"_s;
    ScriviFattura(File);
    Compagna Lei;
    Conosci(Lei);
    Main({});
    Aperture.ApriParcella(File, 0, {});
    F = Parcelle(1);
    QCOMPARE(sessione::RichiestaPV2.ID, u"P12"_s);
    F->SetModificata(true);
    AttendiSalvata(u"P12-rossi.mdb"_s);
    Box->Attendi(Trasferisco, vbYes);
    QVERIFY(F->SalvaParcella(false));
    QVERIFY2(Lei.Fatture() == QStringList{SoloLaSua},
             "an ordinary session knows no archive of the companion");
    QVERIFY(EsisteFile(Lei.Pagine() + u"p12-rossi.htm"_s));
    QCOMPARE(Lei.Uditi(), Refresh(2));
}

void TestAutomazione::senzaCompagna()
{
    // The companion's settings are there, it is not: the archive takes the row, the signal goes nowhere.
    QString Archivio;
    {
        const Compagna Lei;
        Conosci(Lei);
        Archivio = Lei.Archivio();
    }
    Main(u"PV2|N|P12|0|2|30000|0|0|11|"_s);
    PreparaFattura();
    AttendiSalvata(u"P12-rossi.mdb"_s);
    Box->Attendi(Trasferisco, vbYes);
    QVERIFY(F->SalvaParcella(false));
    QCOMPARE(OpenDatabase(Archivio, true).OpenRecordset(u"Fatture"_s).RecordCount(), 2);
}

void TestAutomazione::richiesteCheNonSiLeggono_data()
{
    QTest::addColumn<QString>("Campi");
    QTest::addColumn<int>("Numero");
    QTest::newRow("sei campi") << u"P12|0|2|30000|0|0|"_s << 0;
    QTest::newRow("l'ultimo non chiuso") << u"P12|0|2|30000|0|0|11"_s << 0;
    QTest::newRow("categoria a parole") << u"P12|civile|2|30000|0|0|11|"_s << 13;
    QTest::newRow("valore col punto decimale") << u"P12|0|2|300.5|0|0|11|"_s << 13;
    QTest::newRow("categoria oltre i 16 bit") << u"P12|32768|2|30000|0|0|11|"_s << 6;
    QTest::newRow("autorità oltre i 16 bit") << u"P12|0|40000|30000|0|0|11|"_s << 6;
    QTest::newRow("cliente oltre i 32 bit") << u"P12|0|2|30000|2147483648|0|11|"_s << 6;
    QTest::newRow("controparte oltre i 32 bit") << u"P12|0|2|30000|0|99999999999|11|"_s << 6;
    QTest::newRow("progressivo oltre i 16 bit") << u"P12|0|2|30000|0|0|32768|"_s << 6;
    QTest::newRow("valore oltre ogni numero") << u"P12|0|2|1E400|0|0|11|"_s << 6;
}

void TestAutomazione::richiesteCheNonSiLeggono()
{
    QFETCH(QString, Campi);
    QFETCH(int, Numero);
    if (Numero != 0)
        Box->Attendi(TestoErrore(Numero), vbOK, u"Errore:"_s);
    Box->Attendi(u"Errore di automazione programma VDM!"_s, vbOK, u"Calcanova"_s);
    Main(u"PV2|N|"_s + Campi);
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    QVERIFY(!ParcellaAperta());
    QVERIFY(!SeCaricato<frmMain> && !SeCaricato<frmStudio>);
    QCOMPARE(sessione::RichiestaPV2.ID, QString());
}

void TestAutomazione::unAltraLetteraFinisce()
{
    SaveSetting(u"Praxivo"_s, u"Parametri"_s, u"ArchivioPrat"_s, u"/pratiche.mdb"_s);
    Main(u"PV2|X|P12|0|2|30000|0|0|11|"_s);
    QVERIFY(!ParcellaAperta());
    QCOMPARE(sessione::ArchivioPrat, u"/pratiche.mdb"_s);
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
}

void TestAutomazione::ilProgrammaVeroApreIlFile()
{
    // Seen from outside: opening a file of older days gives it the column that it lacks.
    const QString File = Note + u"P12 rossi contro bianchi.mdb"_s;
    ScriviFattura(File);
    EseguiSu(File, u"ALTER TABLE ParcellaParam DROP COLUMN SpeseGen"_s);
    Programma Vero({u"PV2|E|"_s + File});
    QVERIFY(Vero.Processo.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(EsisteCampo(File, u"ParcellaParam"_s, u"SpeseGen"_s), 20000);
    QVERIFY2(!Vero.Processo.waitForFinished(500), "the note is on screen");
}

void TestAutomazione::ilProgrammaVeroFinisce()
{
    Programma Vero({u"PV2|X|P12|0|2|30000|0|0|11|"_s});
    QVERIFY2(Vero.Processo.waitForFinished(20000), "nothing is open, and the notice has been read");
    QCOMPARE(Vero.Processo.exitStatus(), QProcess::NormalExit);
    QCOMPARE(Vero.Processo.exitCode(), 0);
}

#include "TestAutomazione.moc"
