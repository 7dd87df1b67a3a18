// The invoice in the window: its number by the counter, and what a save does behind the file.
#include "tavolo.h"

#include "compagna/archivio.h"
#include "core/modErrori.h"
#include "core/posti.h"
#include "feenote/companion/modPV2.h"
#include "feenote/modNumeraFattura.h"
#include "platform/base/numerierrore.h"
#include "platform/base/regionale.h"
#include "platform/kit/collega.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/impostazioni.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QPushButton>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

const QString Progressivo = u"Procedo all'aggiornamento del progressivo?"_s;
const QString GiaScritti = u"I campi Numero e Data fattura sono già valorizzati!"_s;
const QString SenzaNumero = u"I dati della fattura non possono essere inviati a Praxivo\n"
                            u"in quanto non è stato specificato il numero della fattura!"_s;
const QString Trasferisco = u"E' stata salvata la parcella come fattura.\n"
                            u"Trasferisco i dati della fattura anche all'applicazione Praxivo?"_s;
const QString GuastoPV2 = u"Si è verificato un errore nel salvataggio dei dati fattura su PV"_s;
const QString SenzaPagine = u"Non trovato percorso cartella Parcelle PV2!\n"
                            u"Verificare le impostazioni nel pannello 'Personalizzazione' di PV2"_s;

QString Salvata(const QString& Nome)
{
    return u"La parcella "_s + Nome + u" è stata salvata correttamente!"_s;
}

/// Watches the boxes: what is true while one is on screen. The recorder goes on answering.
class Osservatore
{
public:
    explicit Osservatore(std::function<void(const QString& Testo)> Vede)
    {
        Prima = InstallaMessaggi({});
        Messaggi Suoi = Prima;
        Suoi.Box = [Vede = std::move(Vede), Risponde = Prima.Box](const QString& Testo, int Bandiere,
                                                                  const QString& Titolo) {
            Vede(Testo);
            return Risponde(Testo, Bandiere, Titolo);
        };
        InstallaMessaggi(Suoi);
    }
    ~Osservatore() { InstallaMessaggi(Prima); }
    Osservatore(const Osservatore&) = delete;
    Osservatore& operator=(const Osservatore&) = delete;

private:
    Messaggi Prima;
};

}  // namespace

class TestConsegna : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void ilTastoStaNelPannelloDellaFattura();
    void numeraComponeEChiede();
    void rifiutatoIlNumeroResta();
    void unSoloCampoScrittoBasta_data();
    void unSoloCampoScrittoBasta();
    void ilCampoApertoSiConclude();
    void lUltimoNumero();
    void progressivoCheNonSiScrive();
    void progressivoCheNonSiConosce();
    void laLarghezzaDeiCampi();
    void salvareEsportaAncheDaUnAltraScheda();
    void salvareSenzaDocumento();
    void laSessioneDellUfficioNonConsegna();
    void laFatturaDellaPratica();
    void ilSalvataggioEFinitoPrimaDellaDomanda();
    void rifiutataNonSiTrasferisce();
    void senzaNumeroSiDice();
    void unAltroDocumentoDellaPratica();
    void anchIlModelloConsegna();
    void salvataDueVolte();
    void salvataggioAnnullato();
    void archivioGuasto();
    void senzaCartellaDellePagine();
    void cartellaDellePagineCheManca();
    void laSessioneDelRiferimentoNonHaArchivio();
    void laNotaDiUnAltraPraticaNonHaContatore();
    void laRichiestaDaLaNotaAlContatore();
    void ogniNuovaNotaEDellaPratica();

private:
    void Documento(int Tipo);
    void Fattura(const QString& Numero, const QString& Data);
    /// The session of a matter, with the companion's archive and folder.
    void ApriPratica();
    /// Saves the note under a name; the awaited boxes follow the one that tells so.
    void AttendiSalvata(const QString& Nome)
    {
        T->Voce.AttendiSalva(sessione::ParcellePath + Nome);
        T->Voce.Attendi(Salvata(Nome), vbOK, u"Messaggio:"_s);
    }
    [[nodiscard]] QLineEdit* Numero() const { return Controllo<QLineEdit>(F, "txtDatiPar_11"); }
    [[nodiscard]] QLineEdit* Data() const { return Controllo<QLineEdit>(F, "txtDatiPar_12"); }
    [[nodiscard]] QString Pagine() const { return vp->Pagine().Testo(); }
    [[nodiscard]] static QString Documenti() { return sessione::UserFolder + Barra(u"doc"_s); }
    [[nodiscard]] QStringList Fatture() const;

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    VistaStampa* vp = nullptr;
    QStringList Segnali;
    QString Clessidre;
};
PROVA(TestConsegna);

void TestConsegna::init()
{
    T = std::make_unique<Tavolo>();
    QFile::remove(qEnvironmentVariable("XDG_CONFIG_HOME") + u"/Calcanova/KR5.ini"_s);
    SaveSetting(u"Praxivo"_s, u"Parametri"_s, u"PreviewParcPath"_s, {});
    MemorizzaUltimaStampa(UltimaStampa());
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 21), QTime(10, 0)); });
    Segnali.clear();
    Clessidre.clear();
    Shell Tavola;
    Tavola.Segnala = [this](const QString& Titolo, const QString& Testo) {
        Segnali += Titolo + u'<' + Testo;
    };
    Tavola.Clessidra = [this](bool Attiva) { Clessidre += Attiva ? u'+' : u'-'; };
    InstallaShell(Tavola);
    InstallaUltimaRete([](const Errore& Guasto) { GestioneErrori(Guasto); });
    sessione::StudioNome = u"Avv. Laura Conti"_s;
    F = T->Apri();
    QVERIFY(F);
    CompilaCivile(F);
    Scrivi(Controllo<QLineEdit>(F, "txtCliente"), u"Rossi Mario"_s);
    RigaOnorario(F->Nota, u"Studio"_s, 1200.0);
    F->Nota.xOnorari(RigaOnorario(F->Nota, u"Decisione"_s, 300.0), OnoImporto) = 300.5;
    ClicScheda(F, SchedaDiStampa);
    QCOMPARE(F->Scheda(), int(SchedaDiStampa));
    vp = Controllo<VistaStampa>(F, "vp");
}

void TestConsegna::cleanup()
{
    InstallaUltimaRete({});
    InstallaShell({});
    InstallaOrologio({});
    MemorizzaUltimaStampa(UltimaStampa());
    T.reset();
}

void TestConsegna::Documento(int Tipo)
{
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), Tipo);
    Respiro();
    QCOMPARE(F->Nota.cmbTipoStampa, Tipo);
}

void TestConsegna::Fattura(const QString& N, const QString& Giorno)
{
    Documento(StampaFatturaSintetica);
    Scrivi(Numero(), N);
    Scrivi(Data(), Giorno);
    Premi(Qt::Key_Tab);
}

void TestConsegna::ApriPratica()
{
    sessione::RichiestaPV2.ID = u"P12"_s;
    sessione::RichiestaPV2.Scelta = 11;
    F->Nota.NsRif = sessione::RichiestaPV2.ID;
    F->Nota.Scelta = sessione::RichiestaPV2.Scelta;
    sessione::ArchivioPrat = T->Ufficio.File(u"pratiche.mdb"_s);
    CreaArchivioPratiche(sessione::ArchivioPrat);
    const QString Cartella = T->Ufficio.File(u"Praxivo"_s);
    CreaCartella(Cartella);
    SaveSetting(u"Praxivo"_s, u"Parametri"_s, u"PreviewParcPath"_s, Barra(Cartella) + u"anteprima.htm"_s);
}

QStringList TestConsegna::Fatture() const
{
    QStringList Righe;
    Recordset Una = OpenDatabase(sessione::ArchivioPrat, true).OpenRecordset(u"Fatture"_s);
    for (Una.MoveNext(); !Una.Eof(); Una.MoveNext()) {  // behind the one that was always there
        QStringList Celle;
        for (const QString& Nome :
             {u"Rif"_s, u"NumF"_s, u"DataF"_s, u"TipoF"_s, u"ModoF"_s, u"CorriF"_s, u"IDContab"_s})
            Celle.append(CStr(Una.Value(Nome)));
        Righe.append(Celle.join(u'|'));
    }
    return Righe;
}

// ---- the counter

void TestConsegna::ilTastoStaNelPannelloDellaFattura()
{
    auto* Tasto = Controllo<QPushButton>(F, "cmdProgFatt");
    for (int Tipo = 0; Tipo < VociTipoStampa().size(); ++Tipo) {
        Documento(Tipo);
        QCOMPARE(Tasto->isVisible(), Tipo == StampaFatturaSintetica || Tipo == StampaFatturaAnalitica);
    }
    QCOMPARE(QString(Tasto->text()).remove(u'&'), u"Numerazione automatica"_s);
    QVERIFY(Tasto->accessibleName().contains(u"Numerazione automatica"_s));
}

void TestConsegna::numeraComponeEChiede()
{
    Documento(StampaFatturaAnalitica);
    F->SetModificata(false);
    sessione::ProgFatt = 41;
    Clessidre.clear();
    QString AllaDomanda;
    const Osservatore Occhi([&](const QString&) {
        AllaDomanda = u"%1 %2 %3 %4 %5"_s.arg(Numero()->text(), Data()->text(), Clessidre)
                          .arg(sessione::ProgFatt)
                          .arg(Pagine().contains(u"n. 42/"_s) || Pagine().contains(u"42"_s));
    });
    T->Voce.Attendi(Progressivo, vbYes, u"Domanda:"_s);
    Clic(Controllo(F, "cmdProgFatt"));
    QCOMPARE(AllaDomanda, u"42 21/11/2026 +- 41 1"_s);
    QCOMPARE(T->Voce.Ultimo().Bandiere, vbYesNo + vbQuestion);
    QCOMPARE(sessione::ProgFatt, 42);
    QCOMPARE(GetSetting(u"KR5"_s, u"Parametri"_s, u"ProgFatt"_s), u"42"_s);
    QVERIFY(F->Nota.Modificata && InfoParcelle[1].Modificata);
    QCOMPARE(F->Nota.DatiPar(DatoNumFatt), u"42"_s);
    QCOMPARE(F->Nota.DatiPar(DatoDataFatt), u"21/11/2026"_s);
    QVERIFY(LeggiFile(Documenti() + u"Nuova parcella.doc"_s).contains("21/11/2026"));
}

void TestConsegna::rifiutatoIlNumeroResta()
{
    Documento(StampaFatturaSintetica);
    sessione::ProgFatt = 41;
    T->Voce.Attendi(Progressivo, vbNo);
    Clic(Controllo(F, "cmdProgFatt"));
    QCOMPARE(Numero()->text(), u"42"_s);
    QCOMPARE(sessione::ProgFatt, 41);
    QCOMPARE(GetSetting(u"KR5"_s, u"Parametri"_s, u"ProgFatt"_s), QString());
    T->Voce.Attendi(GiaScritti, vbOK, u"Errore:"_s);
    Clic(Controllo(F, "cmdProgFatt"));
    QCOMPARE(Numero()->text(), u"42"_s);
    QCOMPARE(sessione::ProgFatt, 41);
}

void TestConsegna::unSoloCampoScrittoBasta_data()
{
    QTest::addColumn<QString>("N");
    QTest::addColumn<QString>("Giorno");
    QTest::newRow("numero senza data") << u"7"_s << QString();
    QTest::newRow("data senza numero") << QString() << u"01/02/2026"_s;
}

void TestConsegna::unSoloCampoScrittoBasta()
{
    QFETCH(QString, N);
    QFETCH(QString, Giorno);
    Fattura(N, Giorno);
    T->Voce.Attendi(GiaScritti, vbOK, u"Errore:"_s);
    Clic(Controllo(F, "cmdProgFatt"));
    QCOMPARE(Numero()->text(), N);
    QCOMPARE(Data()->text(), Giorno);
}

void TestConsegna::ilCampoApertoSiConclude()
{
    // A number still being typed counts, though nobody has left its box: the button is pressed by its key.
    Documento(StampaFatturaSintetica);
    Scrivi(Numero(), u"9"_s);
    T->Voce.Attendi(GiaScritti, vbOK, u"Errore:"_s);
    Controllo<QPushButton>(F, "cmdProgFatt")->click();
    QCOMPARE(Numero()->text(), u"9"_s);
    QCOMPARE(Data()->text(), QString());
    QVERIFY(Pagine().contains(u"n. 9/"_s) || Pagine().contains(u"9/2026"_s));
}

void TestConsegna::lUltimoNumero()
{
    Documento(StampaFatturaSintetica);
    F->SetModificata(false);
    sessione::ProgFatt = UltimoProgFatt;
    T->Voce.Attendi(u"Il progressivo delle fatture è arrivato all'ultimo numero (32767)!\n"
                    "Correggerlo nelle impostazioni oppure indicare il numero a mano."_s,
                    vbOK, u"Errore:"_s);
    Clic(Controllo(F, "cmdProgFatt"));
    QCOMPARE(Numero()->text() + Data()->text(), QString());
    QVERIFY(!F->Nota.Modificata);
    QCOMPARE(sessione::ProgFatt, 32767);
}

void TestConsegna::progressivoCheNonSiScrive()
{
    Documento(StampaFatturaSintetica);
    sessione::ProgFatt = 41;
    const QString File = qEnvironmentVariable("XDG_CONFIG_HOME") + u"/Calcanova/KR5.ini"_s;
    const auto DiNuovo = qScopeGuard([] { guasti::LimiteFile = 0; });
    guasti::LimiteFile = 1;
    T->Voce.Attendi(Progressivo, vbYes);
    T->Voce.Attendi(u"Errore: Impossibile scrivere le impostazioni nel file %1: %2 (75)"_s.arg(
                        File, DescrizioneErrore(61)),
                    vbOK, u"Errore:"_s);
    Clic(Controllo(F, "cmdProgFatt"));
    QCOMPARE(sessione::ProgFatt, 41);
    QCOMPARE(Numero()->text(), u"42"_s);
}

void TestConsegna::progressivoCheNonSiConosce()
{
    Documento(StampaFatturaSintetica);
    F->SetModificata(false);
    sessione::ProgFatt = 41;
    const QString File = qEnvironmentVariable("XDG_CONFIG_HOME") + u"/Calcanova/KR5.ini"_s;
    QFile::remove(File);
    QVERIFY(QDir().mkpath(File + u"/dentro"_s));
    const auto DiNuovo = qScopeGuard([&] { QDir(File).removeRecursively(); });
    T->Voce.Attendi(
        u"Il file delle impostazioni %1 non si legge: al suo posto c'è una cartella: il numero delle "
        "fatture non si conosce"_s.arg(File),
        vbOK, u"Errore:"_s);
    Clic(Controllo(F, "cmdProgFatt"));
    QCOMPARE(Numero()->text() + Data()->text(), QString());
    QVERIFY(!F->Nota.Modificata);
    QCOMPARE(sessione::ProgFatt, 41);
}

void TestConsegna::laLarghezzaDeiCampi()
{
    // As long as the file's column of the number.
    Documento(StampaFatturaSintetica);
    Incolla(Numero(), QString(300, u'9'));
    Incolla(Data(), QString(300, u'x'));
    Premi(Qt::Key_Tab);
    QCOMPARE(F->Nota.DatiPar(DatoNumFatt), QString(255, u'9'));
    QCOMPARE(F->Nota.DatiPar(DatoDataFatt), QString(255, u'x'));
    AttendiSalvata(u"lunga.mdb"_s);
    QVERIFY(F->SalvaParcella(false));
    const QString File = T->Ufficio.File(u"lunga.mdb"_s);
    QCOMPARE(Parametro(File, u"NumFatt"_s).toString(), QString(255, u'9'));
    QVERIFY2(Parametro(File, u"DataFatt"_s).isNull(), "what is no date has no place in the file");
}

// ---- behind a save

void TestConsegna::salvareEsportaAncheDaUnAltraScheda()
{
    Documento(StampaPrenotula);
    ClicScheda(F, SchedaBase);
    QCOMPARE(F->Scheda(), int(SchedaBase));
    Scrivi(Controllo<QLineEdit>(F, "txtCliente"), u"Verdi Anna"_s);
    AttendiSalvata(u"verdi.mdb"_s);
    QVERIFY(F->SalvaParcella(false));
    QCOMPARE(F->Scheda(), int(SchedaBase));
    QVERIFY(LeggiFile(Documenti() + u"verdi.doc"_s).contains("Verdi Anna"));
    QCOMPARE(Segnali, QStringList{u"Praxivo - Gestione pratiche<refresh"_s});
}

void TestConsegna::salvareSenzaDocumento()
{
    ApriPratica();
    AttendiSalvata(u"P12-uno.mdb"_s);
    F->SetModificata(true);
    QVERIFY(F->SalvaParcella(false));
    QVERIFY2(!EsisteFile(Documenti() + u"P12-uno.doc"_s), "no document was chosen");
    QVERIFY(QDir(T->Ufficio.File(u"Praxivo"_s)).isEmpty());
    QCOMPARE(Fatture(), QStringList());
    QCOMPARE(Segnali.size(), 1);
}

void TestConsegna::laSessioneDellUfficioNonConsegna()
{
    ApriPratica();
    sessione::RichiestaPV2 = {};
    Fattura(u"8"_s, u"21/11/2026"_s);
    AttendiSalvata(u"uno.mdb"_s);
    QVERIFY(F->SalvaParcella(false));
    QVERIFY(EsisteFile(Documenti() + u"uno.doc"_s));
    QVERIFY(QDir(T->Ufficio.File(u"Praxivo"_s)).isEmpty());
    QCOMPARE(Fatture(), QStringList());
    QCOMPARE(Segnali.size(), 1);
}

void TestConsegna::laFatturaDellaPratica()
{
    ApriPratica();
    Fattura(u"8/A"_s, u"21/11/26"_s);
    AttendiSalvata(u"P12-uno.mdb"_s);
    T->Voce.Attendi(Trasferisco, vbYes, u"Domanda:"_s);
    QVERIFY(F->SalvaParcella(false));
    QCOMPARE(Fatture(), QStringList{u"P12|8/A|21/11/2026|A|E|1500,5|11"_s});
    QCOMPARE(Segnali, QStringList(2, u"Praxivo - Gestione pratiche<refresh"_s));
    QVERIFY(EsisteFile(Documenti() + u"p12-uno.doc"_s));
    const QByteArray Pagina = LeggiFile(T->Ufficio.File(u"Praxivo/p12-uno.htm"_s));
    QVERIFY(Pagina.contains("Rossi Mario"));
}

void TestConsegna::ilSalvataggioEFinitoPrimaDellaDomanda()
{
    ApriPratica();
    Fattura(u"8"_s, u"21/11/2026"_s);
    AttendiSalvata(u"P12-uno.mdb"_s);
    T->Voce.Attendi(Trasferisco, vbNo);
    QStringList Visto;
    const Osservatore Occhi([&](const QString& Testo) {
        if (Testo == Trasferisco)
            Visto = {
                InfoParcelle[1].Modificata ? u"modificata"_s : u"salvata"_s,
                EsisteFile(Documenti() + u"p12-uno.doc"_s) ? u"doc"_s : QString(),
                EsisteFile(T->Ufficio.File(u"Praxivo/p12-uno.htm"_s)) ? u"htm"_s : QString(),
                QString::number(
                    QDir(sessione::UserFolder + u"recupero"_s).entryList({u"*.mdb"_s}, QDir::Files).size()),
                QString::number(Segnali.size())};
    });
    QVERIFY(F->SalvaParcella(false));
    QCOMPARE(Visto, (QStringList{u"salvata"_s, u"doc"_s, u"htm"_s, u"0"_s, u"0"_s}));
    QCOMPARE(Segnali.size(), 1);
}

void TestConsegna::rifiutataNonSiTrasferisce()
{
    ApriPratica();
    Fattura(u"8"_s, u"21/11/2026"_s);
    AttendiSalvata(u"P12-uno.mdb"_s);
    T->Voce.Attendi(Trasferisco, vbNo, u"Domanda:"_s);
    QVERIFY(F->SalvaParcella(false));
    QCOMPARE(Fatture(), QStringList());
    QCOMPARE(Segnali.size(), 1);
}

void TestConsegna::senzaNumeroSiDice()
{
    ApriPratica();
    MemorizzaUltimaStampa({9.0, u"99"_s, {}, false});  // of another note
    Fattura({}, u"21/11/2026"_s);
    AttendiSalvata(u"P12-uno.mdb"_s);
    T->Voce.Attendi(SenzaNumero, vbOK, u"Errore:"_s);
    QVERIFY(F->SalvaParcella(false));
    QCOMPARE(Fatture(), QStringList());
    QVERIFY(EsisteFile(T->Ufficio.File(u"Praxivo/p12-uno.htm"_s)));
    QCOMPARE(Segnali.size(), 1);
}

void TestConsegna::unAltroDocumentoDellaPratica()
{
    ApriPratica();
    Documento(StampaPrenotula);
    F->SetModificata(true);
    AttendiSalvata(u"P12-uno.mdb"_s);
    QVERIFY(F->SalvaParcella(false));
    QVERIFY(EsisteFile(T->Ufficio.File(u"Praxivo/p12-uno.htm"_s)));
    QCOMPARE(Fatture(), QStringList());
    QCOMPARE(Segnali.size(), 1);
}

void TestConsegna::anchIlModelloConsegna()
{
    ApriPratica();
    Fattura(u"8"_s, u"21/11/2026"_s);
    T->Voce.AttendiSalva(sessione::ModelliPath + u"P12-modello.mdb"_s);
    T->Voce.Attendi(Salvata(u"P12-modello.mdb"_s));
    T->Voce.Attendi(Trasferisco, vbYes);
    QVERIFY(F->SalvaParcella(true));
    QCOMPARE(Fatture().size(), 1);
}

void TestConsegna::salvataDueVolte()
{
    ApriPratica();
    Fattura(u"8"_s, u"21/11/2026"_s);
    for (const auto& [Importo, Giorno] : {std::pair(300.5, u"21/11/2026"_s), std::pair(800.0, u"domani"_s)}) {
        F->Nota.xOnorari(1, OnoImporto) = Importo;
        Scrivi(Data(), Giorno);
        Premi(Qt::Key_Tab);
        AttendiSalvata(u"P12-uno.mdb"_s);
        T->Voce.Attendi(Trasferisco, vbYes);
        QVERIFY(F->SalvaParcella(false));
    }
    QCOMPARE(Fatture(), QStringList{u"P12|8||A|E|2000|11"_s});
}

void TestConsegna::salvataggioAnnullato()
{
    ApriPratica();
    Fattura(u"8"_s, u"21/11/2026"_s);
    T->Voce.AttendiSalva({});
    QVERIFY(!F->SalvaParcella(false));
    QCOMPARE(Fatture(), QStringList());
    QCOMPARE(Segnali, QStringList());
    QVERIFY(F->Nota.Modificata);
}

void TestConsegna::archivioGuasto()
{
    ApriPratica();
    ScriviFile(sessione::ArchivioPrat, "rumore");
    Fattura(u"8"_s, u"21/11/2026"_s);
    AttendiSalvata(u"P12-uno.mdb"_s);
    T->Voce.Attendi(Trasferisco, vbYes);
    T->Voce.Attendi(GuastoPV2, vbOK, u"Errore!"_s);
    QVERIFY(F->SalvaParcella(false));
    QVERIFY(!F->Nota.Modificata);
    QCOMPARE(F->windowTitle(), u"p12-uno"_s);
    QCOMPARE(Cliente(T->Ufficio.File(u"P12-uno.mdb"_s)), u"Rossi Mario"_s);
    QCOMPARE(LeggiFile(sessione::ArchivioPrat), "rumore"_ba);
}

void TestConsegna::senzaCartellaDellePagine()
{
    ApriPratica();
    SaveSetting(u"Praxivo"_s, u"Parametri"_s, u"PreviewParcPath"_s, {});
    Fattura(u"8"_s, u"21/11/2026"_s);
    AttendiSalvata(u"P12-uno.mdb"_s);
    T->Voce.Attendi(SenzaPagine, vbOK, u"Errore:"_s);
    T->Voce.Attendi(Trasferisco, vbYes);
    QVERIFY(F->SalvaParcella(false));
    QCOMPARE(Fatture().size(), 1);
}

void TestConsegna::cartellaDellePagineCheManca()
{
    ApriPratica();
    QVERIFY(QDir().rmdir(T->Ufficio.File(u"Praxivo"_s)));
    Fattura(u"8"_s, u"21/11/2026"_s);
    AttendiSalvata(u"P12-uno.mdb"_s);
    T->Voce.Attendi(TestoErrore(76), vbOK, u"Errore:"_s);
    T->Voce.Attendi(Trasferisco, vbYes);
    QVERIFY(F->SalvaParcella(false));
    QCOMPARE(Fatture().size(), 1);
}

void TestConsegna::laSessioneDelRiferimentoNonHaArchivio()
{
    // A file of a matter, opened in a session of the office's own: its reference is all that is known.
    ApriPratica();
    Fattura(u"8"_s, u"21/11/2026"_s);
    AttendiSalvata(u"P12-uno.mdb"_s);
    T->Voce.Attendi(Trasferisco, vbNo);
    QVERIFY(F->SalvaParcella(false));
    const QString Archivio = std::exchange(sessione::ArchivioPrat, {});
    sessione::RichiestaPV2 = {};
    F->SetModificata(false);
    F->Carica(T->Ufficio.File(u"P12-uno.mdb"_s));
    QCOMPARE(sessione::RichiestaPV2.ID, u"P12"_s);
    F->SetModificata(true);
    AttendiSalvata(u"P12-uno.mdb"_s);
    T->Voce.Attendi(Trasferisco, vbYes);
    QVERIFY(F->SalvaParcella(false));
    sessione::ArchivioPrat = Archivio;
    QCOMPARE(Fatture(), QStringList());
}

void TestConsegna::laNotaDiUnAltraPraticaNonHaContatore()
{
    ApriPratica();
    Fattura(u"9"_s, u"21/11/2026"_s);
    AttendiSalvata(u"P12-uno.mdb"_s);
    T->Voce.Attendi(Trasferisco, vbNo);
    QVERIFY(F->SalvaParcella(false));
    OpenDatabase(T->Ufficio.File(u"P12-uno.mdb"_s)).Execute(u"UPDATE ParcellaParam SET NsRif='P77'"_s);

    F->Carica(T->Ufficio.File(u"P12-uno.mdb"_s));
    F->SetModificata(true);
    // The session has gone over to the other matter, whose code the name must begin with.
    T->Voce.AttendiSalva(sessione::ParcellePath + u"P12-uno.mdb"_s);
    T->Voce.Attendi(
        u"La parcella, essendo associato ad una pratica, deve iniziare col codice seguito dal trattino!\n"
        u"Il nome della parcella è stato modificato in: P77-P12-uno.mdb"_s,
        vbOK, u"Errore salvataggio:"_s);
    T->Voce.Attendi(Salvata(u"P77-P12-uno.mdb"_s), vbOK, u"Messaggio:"_s);
    T->Voce.Attendi(Trasferisco, vbYes);
    QVERIFY(F->SalvaParcella(false));
    QCOMPARE(Fatture(), QStringList{u"P77|9|21/11/2026|A|E|1500,5|0"_s});
}

void TestConsegna::laRichiestaDaLaNotaAlContatore()
{
    ApriPratica();
    F->Nuova(u"P12"_s);
    RigaOnorario(F->Nota, u"Studio"_s, 1200.0);
    ClicScheda(F, SchedaDiStampa);
    Fattura(u"9"_s, u"21/11/2026"_s);
    AttendiSalvata(u"P12-uno.mdb"_s);
    T->Voce.Attendi(Trasferisco, vbYes);
    QVERIFY(F->SalvaParcella(false));
    QCOMPARE(Fatture(), QStringList{u"P12|9|21/11/2026|A|E|1200|11"_s});
}

/// The toolbar's "new" in a matter's session: another note of the matter, with its parties and its counter.
void TestConsegna::ogniNuovaNotaEDellaPratica()
{
    ApriPratica();
    sessione::RichiestaPV2.Categoria = CategPenale;
    sessione::RichiestaPV2.IDCli = T->Ufficio.AggiungiCliente(u"Verdi Ada"_s);
    F->SetModificata(true);
    ApriParcella({}, 0, {});
    frmParcelle* Seconda = Parcelle(2);
    QVERIFY(Seconda && Seconda->isVisible());
    QCOMPARE(Seconda->windowTitle(), u"Nuova parcella:2"_s);
    QCOMPARE(TestoDi(Seconda, "txtCliente"), u"Verdi Ada"_s);
    QCOMPARE(Controllo<QComboBox>(Seconda, "cmbCateg")->currentIndex(), int(CategPenale));
    QVERIFY(Controllo(Seconda, "lblRif_0")->isVisible());
    QCOMPARE(TestoDi(Seconda, "lblRif_1"), u"P12"_s);
    QCOMPARE(Seconda->Nota.Scelta, 11);
    QVERIFY(!Seconda->Nota.Modificata);
}

#include "TestConsegna.moc"
