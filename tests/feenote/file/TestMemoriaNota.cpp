// What a file keeps beside its columns: a note reopened is the note that was printed.
#include "file_prova.h"

#include "feenote/file/memorianota.h"
#include "feenote/modDatiStampa.h"
#include "feenote/modFatturaXml.h"
#include "feenote/modParti.h"

#include <functional>

using namespace Qt::StringLiterals;

using Cambio = std::function<void(Parcella&)>;

namespace {

constexpr auto IbanStudio = "IT60X0542811101000000123456";

/// The record with what no opening brings back taken away: place, mark, the state of a new window.
Parcella SenzaFinestra(Parcella Nota)
{
    Nota.Percorso.clear();
    Nota.Nome.clear();
    Nota.Fuoco = CampoNota::Nessuno;
    Nota.Modificata = false;
    Nota.RicalcoloNecessario = false;
    Nota.AvvisoNotaGiudiziale = false;
    return Nota;
}

/// A note of before the states has none.
Parcella SenzaStato(Parcella Nota)
{
    Nota.Stato = {};
    return Nota;
}

}  // namespace

class TestMemoriaNota : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void torna_data();
    void torna();
    void soloTreTabelle();
    void nulladiCioCheStaNelleColonne();
    void senzaMemoriaComeDalleColonne();
    void percentoSpentoResta();
    void regimeSiToglie();
    void ibanSenzaIban();
    void ilBloccoResisteAlDocumento();
    void tipoDelClienteLegato();
    void righeDaRicalcolare();
    void ricalcoloFattoNonSiRicorda();
    void notaAssociataNonTornaDaSe();
    void ilVuotoDiChiNonHaFinestra();
    void chiRiscriveSiStampa();
    void tabellaDiAltri_data();
    void tabellaDiAltri();
};
PROVA(TestMemoriaNota);

void TestMemoriaNota::torna_data()
{
    QTest::addColumn<Cambio>("Che");
    const auto Caso = [](const char* Nome, const Cambio& Che) { QTest::newRow(Nome) << Che; };
    // The memory of the switches follows, since what the regime has cleared is saved as cleared.
    Caso("regime agevolato", [](Parcella& Nota) {
        CambiaRegime(Nota, true);
        RicordaStampa(Nota);
    });
    Caso("regime nella nota giudiziale", [](Parcella& Nota) {
        ScegliTipoStampa(Nota, StampaNotaGiudiziale);
        CambiaRegime(Nota, true);
        RicordaStampa(Nota);
    });
    Caso("scelte e file della fattura elettronica", [](Parcella& Nota) {
        CambiaDatiPar(Nota, DatoNumFatt, u"12"_s);
        (void)CambiaFatturaXml(Nota, {.Tipo = u"TD04"_s,
                                      .Destinatario = u"PA"_s,
                                      .Scissione = true,
                                      .BolloAddebitato = true,
                                      .Natura = u"N2.1"_s,
                                      .Modalita = u"-"_s,
                                      .Scadenza = u"31/12/2026"_s,
                                      .CitataNumero = u"7/2026"_s,
                                      .CitataData = u"01/02/2026"_s,
                                      .ContrattoNumero = u"C1"_s,
                                      .Cup = u"CUP"_s,
                                      .Cig = u"CIG"_s,
                                      .File = {},
                                      .Quando = {},
                                      .Progressivo = {},
                                      .DiFattura = {}});
        SegnaFatturaScritta(Nota, u"IT01234567897_0000A.xml"_s, u"0000A"_s);
    });
    Caso("IVA differita", [](Parcella& Nota) { CambiaIvaDifferita(Nota, true); });
    Caso("IBAN", [](Parcella& Nota) { CambiaIban(Nota, true); });
    Caso("fattura d'acconto", [](Parcella& Nota) { CambiaFatturaAcconto(Nota, true); });
    Caso("tabella degli acconti", [](Parcella& Nota) { CambiaAcconti(Nota, true); });
    Caso("acconti sotto un documento che li spegne", [](Parcella& Nota) {
        CambiaAcconti(Nota, true);
        ScegliTipoStampa(Nota, StampaContratto);
    });
    Caso("sintetica che non espone gli acconti", [](Parcella& Nota) {
        ScegliTipoStampa(Nota, StampaFatturaSintetica);
        CambiaAcconti(Nota, false);
    });
    Caso("numero e data della prenotula", [](Parcella& Nota) {
        CambiaDatiPar(Nota, DatoNumero, u"7/bis"_s);
        CambiaDatiPar(Nota, DatoData, u"primo marzo"_s);
    });
    Caso("società e rappresentante", [](Parcella& Nota) {
        CambiaContrTipo(Nota, 1);
        CambiaRappresentante(Nota, &Rappresentante::Nome, u"Verdi Anna"_s);
        CambiaRappresentante(Nota, &Rappresentante::DataNascita, u"01/02/1970"_s);
        CambiaRappresentante(Nota, &Rappresentante::LuogoNascita, u"Lucca"_s);
        CambiaRappresentante(Nota, &Rappresentante::Residenza, u"Pisa, via Roma 1"_s);
    });
    // Or the row of the client would propose both anew, over what the user has chosen.
    Caso("il cliente di cui sono tipo e rappresentante", [](Parcella& Nota) {
        Nota.ContrTipoDi = 12;
        Nota.RapprDi = 12;
        Nota.RapprLegato = u"Verdi Anna"_s;
    });
    Caso("blocco del cliente", [](Parcella& Nota) {
        CambiaParteStampata(Nota, ParteNota::Cliente, u"Spett.le\nRossi Mario\nvia Roma 1"_s);
    });
    Caso("un blocco per ogni forma", [](Parcella& Nota) {
        CambiaParteStampata(Nota, ParteNota::Cliente, u"Spett.le\nRossi Mario\nvia Roma 1"_s);
        ScegliDocumento(Nota, StampaContratto);
        CambiaParteStampata(Nota, ParteNota::Cliente, u"Rossi Mario nato a Monza"_s);
        ScegliDocumento(Nota, StampaFatturaAnalitica);
    });
    Caso("blocco svuotato", [](Parcella& Nota) { CambiaParteStampata(Nota, ParteNota::Cliente, QString()); });
    Caso("controparte della sola stampa",
         [](Parcella& Nota) { CambiaParteStampata(Nota, ParteNota::Controparte, u"altri"_s); });
    Caso("oggetto della sola stampa",
         [](Parcella& Nota) { CambiaParteStampata(Nota, ParteNota::Oggetto, u"altro oggetto"_s); });
    Caso("controparte tolta dalla sola stampa",
         [](Parcella& Nota) { CambiaParteStampata(Nota, ParteNota::Controparte, QString()); });
    Caso("oggetto tolto dalla sola stampa",
         [](Parcella& Nota) { CambiaParteStampata(Nota, ParteNota::Oggetto, QString()); });
    Caso("imposte spuntate nella nota giudiziale", [](Parcella& Nota) {
        ScegliTipoStampa(Nota, StampaNotaGiudiziale);
        (void)ClicImposta(Nota, Imposta::CP, true);
        (void)ClicImposta(Nota, Imposta::SpeseGen, true);
        (void)ClicImposta(Nota, Imposta::IVA, true);
        CambiaPercento(Nota, Imposta::IVA, u"10"_s);
    });
    Caso("percorso della nota associata", [](Parcella& Nota) { Nota.txtPathParcMult = u"/tmp/altra.mdb"_s; });
}

void TestMemoriaNota::torna()
{
    QFETCH(Cambio, Che);
    const Studio Ufficio;
    Registratore Messaggi;
    sessione::Iban = QString::fromLatin1(IbanStudio);
    // What a load makes of the columns alone is the same before and after: the memory adds the rest.
    const Parcella Prima = Riletta(Ufficio, NotaPiena());
    Parcella Nota = Prima;
    Che(Nota);
    QVERIFY2(SenzaFinestra(Nota) != SenzaFinestra(Prima), "il caso non cambia nulla");
    const Parcella Letta = Riletta(Ufficio, Nota);
    QVERIFY(SenzaFinestra(Letta) == SenzaFinestra(Nota));
    QVERIFY(!Letta.Modificata);
}

void TestMemoriaNota::soloTreTabelle()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPiena();
    CambiaIvaDifferita(Nota, true);
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    const Database Aperto = OpenDatabase(File, true);
    QCOMPARE(Aperto.Tabelle(), QStringList({u"ParcellaParam"_s, u"ParcellaRighe"_s, u"ParcellaAcconti"_s}));
    QVERIFY(!Aperto.EsisteTabella(u"_Calcanova"_s));
    QVERIFY(!Aperto.EsisteCampo(u"_Calcanova"_s, u"Nome"_s));
    for (const TabellaNota& Tabella : TabelleNota())
        QCOMPARE(Aperto.Campi(Tabella.Nome), Tabella.Colonne);
}

// A full note of which nothing was changed that the columns lack: they hold it all, but for the keys' mark
// and the state with its figures.
void TestMemoriaNota::nulladiCioCheStaNelleColonne()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaPiena());
    Parcella Letta;
    CaricaDati(Letta, File);
    ScriviNota(File, Letta);
    QCOMPARE(MemoriaDi(File).keys(), (QStringList{u"ChiaviDisgiunte"_s, u"Stato"_s, u"Stato.Importi"_s}));
}

void TestMemoriaNota::senzaMemoriaComeDalleColonne()
{
    const Studio Ufficio;
    Registratore Messaggi;
    sessione::Iban = QString::fromLatin1(IbanStudio);
    const Parcella Prima = Riletta(Ufficio, NotaPiena());
    Parcella Nota = Prima;
    CambiaIvaDifferita(Nota, true);
    CambiaIban(Nota, true);
    CambiaAcconti(Nota, true);
    CambiaContrTipo(Nota, 1);
    CambiaDatiPar(Nota, DatoNumero, u"7"_s);
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    EseguiSu(File, u"DROP TABLE \"_Calcanova\""_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    QVERIFY(Letta == SenzaStato(Prima));
}

void TestMemoriaNota::percentoSpentoResta()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPiena();
    Nota.txtIVA.Testo = u"10"_s;
    Nota.chkIva.Attiva = false;
    const Parcella Letta = Riletta(Ufficio, Nota);
    QVERIFY(!Letta.chkIva.Attiva);
    QCOMPARE(Letta.txtIVA.Testo, QString());
}

// What the regime has cleared is not in the file: lifting it leaves the boxes to be ticked anew.
void TestMemoriaNota::regimeSiToglie()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPiena();
    CambiaRegime(Nota, true);
    Parcella Letta = Riletta(Ufficio, Nota);
    QVERIFY(Letta.chkRegSempl.Attiva && !Letta.chkIva.Abilitata && !Letta.chkIvaDiff.Abilitata);
    QVERIFY(CatenaFiscale(Letta, StampaFatturaSintetica).Dati.RegimeAgevolato);
    CambiaRegime(Letta, false);
    QVERIFY(Letta.chkIva.Abilitata && !Letta.chkIva.Attiva);
    QCOMPARE(Letta.txtIVA.Testo, QString());
}

void TestMemoriaNota::ibanSenzaIban()
{
    const Studio Ufficio;
    Registratore Messaggi;
    sessione::Iban = QString::fromLatin1(IbanStudio);
    Parcella Nota = NotaPiena();
    CambiaIban(Nota, true);
    const QString File = Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    sessione::Iban.clear();
    Parcella Letta;
    CaricaDati(Letta, File);
    QVERIFY(!Letta.chkIBAN.Attiva);
}

// The block was written for the head of the page: it is there when the note is opened on a document that
// names no client, and holds on the next one that does.
void TestMemoriaNota::ilBloccoResisteAlDocumento()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPiena();
    Nota.IDCli = Ufficio.AggiungiCliente(u"Rossi Mario"_s);
    CambiaParteStampata(Nota, ParteNota::Cliente, u"Spett.le Rossi"_s);
    ScegliDocumento(Nota, StampaSoloContabile);
    Parcella Letta = Riletta(Ufficio, Nota);
    ScegliDocumento(Letta, StampaPrenotula);
    QCOMPARE(Letta.txtDatiStaCli.Testo, u"Spett.le Rossi"_s);
}

// The row of the client says person; the user has chosen company.
void TestMemoriaNota::tipoDelClienteLegato()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPiena();
    Nota.IDCli = Ufficio.AggiungiCliente(u"Rossi Mario"_s);
    Nota.txtCliente.Testo = u"Rossi Mario"_s;
    ScegliDocumento(Nota, StampaContratto);
    CambiaContrTipo(Nota, 1);
    CambiaRappresentante(Nota, &Rappresentante::Nome, u"Verdi Anna"_s);
    const Parcella Letta = Riletta(Ufficio, Nota);
    QCOMPARE(Letta.optContrTipo, 1);
    QCOMPARE(Letta.Rappr.Nome, u"Verdi Anna"_s);
    QCOMPARE(Letta.txtDatiStaCli.Testo, Nota.txtDatiStaCli.Testo);
}

void TestMemoriaNota::righeDaRicalcolare()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPiena();
    SegnaRicalcolo(Nota);
    Parcella Letta = Riletta(Ufficio, Nota);
    QVERIFY(!Letta.RicalcoloNecessario);
    QVERIFY(Letta.RigheDaRicalcolare);
    // Saved again as it is, and again it is so.
    QVERIFY(Riletta(Ufficio, Letta).RigheDaRicalcolare);
    // Without lines there is nothing that is older than the parameters.
    while (!Letta.xOnorari.Vuota())
        Letta.xOnorari.EliminaRiga(0);
    QVERIFY(!Riletta(Ufficio, Letta).RigheDaRicalcolare);
}

void TestMemoriaNota::ricalcoloFattoNonSiRicorda()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPiena();
    SegnaRicalcolo(Nota);
    Parcella Letta = Riletta(Ufficio, Nota);
    Letta.RicalcoloNecessario = true;
    Catalogo Voci;
    LoadOnoDir(Letta, Voci);
    QVERIFY(!Letta.RigheDaRicalcolare);
    QVERIFY(!Riletta(Ufficio, Letta).RigheDaRicalcolare);
}

void TestMemoriaNota::notaAssociataNonTornaDaSe()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPiena();
    Nota.txtParcMultipla = u"altra"_s;
    Nota.txtPathParcMult = u"/tmp/altra.mdb"_s;
    Nota.Multi.TotOnorariMulti = 100;
    const Parcella Letta = Riletta(Ufficio, Nota);
    QVERIFY(!Letta.Multipla());
    QCOMPARE(Letta.txtPathParcMult, u"/tmp/altra.mdb"_s);
}

/// A record that no window has filled has nothing for the print; that is no wish of its user's.
void TestMemoriaNota::ilVuotoDiChiNonHaFinestra()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPiena();
    Nota.txtControp.Testo = u"Bianchi Srl"_s;
    Nota.txtDatiStaControp.Testo.clear();
    Nota.txtDatiStaOgg.Testo.clear();
    const Parcella Letta = Riletta(Ufficio, Nota);
    QCOMPARE(Letta.txtDatiStaControp.Testo, u"Bianchi Srl"_s);
    QCOMPARE(Letta.txtDatiStaOgg.Testo, Nota.txtOggetto.Testo);
    QVERIFY(!Letta.txtDatiStaOgg.Testo.isEmpty());
}

/// What was taken out of the print and is typed anew on the first tab prints again.
void TestMemoriaNota::chiRiscriveSiStampa()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = Riletta(Ufficio, NotaPiena());
    CambiaParteStampata(Nota, ParteNota::Controparte, QString());
    Nota = Riletta(Ufficio, Nota);
    QVERIFY(Nota.txtDatiStaControp.Testo.isEmpty() && !Nota.txtControp.Testo.isEmpty());
    CambiaParte(Nota, ParteNota::Controparte, u"Neri Spa"_s);
    Nota = Riletta(Ufficio, Nota);
    QCOMPARE(Nota.txtDatiStaControp.Testo, u"Neri Spa"_s);
}

void TestMemoriaNota::tabellaDiAltri_data()
{
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<QString>("Avviso");
    QTest::newRow("altre colonne") << u"CREATE TABLE \"_Calcanova\" (Chiave TEXT, Testo TEXT)"_s << QString();
    QTest::newRow("una vista")
        << u"CREATE VIEW \"_Calcanova\" AS SELECT 'chkIvaDiff' AS Nome, '1' AS Valore"_s << QString();
    QTest::newRow("valori che non dicono nulla")
        << u"CREATE TABLE \"_Calcanova\" AS SELECT 'chkIvaDiff' AS Nome, 'forse' AS Valore"_s << QString();
    QTest::newRow("nomi ignoti")
        << u"CREATE TABLE \"_Calcanova\" AS SELECT 'DelFuturo' AS Nome, '1' AS Valore"_s
        << u"Attenzione, la parcella è stata scritta da una versione più recente del programma! I dati che "
           u"questa\nversione "
           u"non conosce non vengono mostrati, e andrebbero perduti salvandola."_s;
    QTest::newRow("numero che non lo è")
        << u"CREATE TABLE \"_Calcanova\" AS SELECT 'optContrTipo' AS Nome, 'x' AS Valore"_s << QString();
    QTest::newRow("valori Null")
        << u"CREATE TABLE \"_Calcanova\" AS SELECT 'txtDatiPar.Numero' AS Nome, NULL AS Valore"_s
        << QString();
}

void TestMemoriaNota::tabellaDiAltri()
{
    QFETCH(QString, Sql);
    QFETCH(QString, Avviso);
    const Studio Ufficio;
    Registratore Messaggi;
    const Parcella Prima = Riletta(Ufficio, NotaPiena());
    const QString File = Ufficio.File(u"nota.mdb"_s);
    EseguiSu(File, u"DROP TABLE \"_Calcanova\""_s);
    EseguiSu(File, Sql);
    if (!Avviso.isEmpty())
        Messaggi.Attendi(Avviso, vbOK, u"Avvertenza:"_s);
    Parcella Letta;
    CaricaDati(Letta, File);
    Letta.txtDatiPar.removeIf([](const auto& Dato) { return Dato.value().isEmpty(); });
    QVERIFY(Letta == SenzaStato(Prima));
}

#include "TestMemoriaNota.moc"
