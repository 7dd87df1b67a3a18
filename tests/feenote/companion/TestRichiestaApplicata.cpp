// What the request of the companion application makes of a new note, and a note's reference of the session.
#include "feenote/nota_prova.h"

#include "supporto/danni.h"

#include "feenote/companion/modRichiesta.h"
#include "feenote/modCambioTariffa.h"
#include "feenote/modDatiStampa.h"
#include "feenote/modParti.h"
#include "platform/system/messaggi.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

const QString ClienteAssente = u"Il cliente associato alla parcella non è stato trovato!"_s;

const QString IndiceFuori = u"Errore: Indice fuori dai limiti (9)"_s;

Richiesta Chiedi(int Categoria, int Autorita, double Valore)
{
    Richiesta Dati;
    Dati.ID = u"2024/7"_s;
    Dati.Categoria = Categoria;
    Dati.Autorita = Autorita;
    Dati.Valore = Valore;
    return Dati;
}

}  // namespace

class TestRichiestaApplicata : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void richiestaApplicata();
    void valoreDellaRichiesta_data();
    void valoreDellaRichiesta();
    void indiciFuoriLista_data();
    void indiciFuoriLista();
    void parti();
    void partiAssenti();
    void mentreSiDiceNonSiCompone();
    void senzaArchivio_data();
    void senzaArchivio();
    void ilBloccoScrittoResta();
    void ilRiferimentoFaLaSessione();
    void delSoloRiferimentoNonSiSceglieNulla_data();
    void delSoloRiferimentoNonSiSceglieNulla();
    void conLaTariffaDelloStudio_data();
    void conLaTariffaDelloStudio();
    void senzaLaTariffaDelloStudio();

private:
    /// A new note with the session's request applied.
    static void Apri(Parcella& Nota)
    {
        NuovaParcella(Nota);
        ApplicaRichiesta(Nota, sessione::RichiestaPV2);
    }
};
PROVA(TestRichiestaApplicata);

void TestRichiestaApplicata::richiestaApplicata()
{
    const Studio Ufficio;
    Registratore Messaggi;
    sessione::RichiestaPV2 = Chiedi(CategCivile, 2, 30000);
    sessione::RichiestaPV2.Scelta = 11;
    Parcella Nota;
    Apri(Nota);
    QCOMPARE(Nota.cmbCateg, 0);
    QCOMPARE(Nota.CodCateg, u"CIV"_s);
    QCOMPARE(Nota.IDAutSelezionata(), IDTribunale);
    QCOMPARE(Nota.txtImporto.Testo, u"30.000,00"_s);
    QCOMPARE(Nota.ImportoPrec, 30000.0);
    QCOMPARE(Nota.Scaglione, 3);
    QCOMPARE(Nota.NsRif, u"2024/7"_s);
    QCOMPARE(Nota.Scelta, 11);
    QVERIFY(Nota.chkIva.Attiva);
    QVERIFY(!Nota.RicalcoloNecessario);
    QVERIFY(!Nota.Modificata);
    QCOMPARE(Nota.Fuoco, CampoNota::Nessuno);
}

void TestRichiestaApplicata::conLaTariffaDelloStudio_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<int>("Autorita");  // places and brackets as the other program counts them
    QTest::addColumn<double>("Valore");
    QTest::addColumn<int>("Ufficio");
    QTest::addColumn<int>("Scaglione");
    QTest::newRow("court, by the value") << int(CategCivile) << 2 << 30000.0 << 102 << 4;
    QTest::newRow("court, undetermined") << int(CategCivile) << 2 << 7.0 << 102 << 8;
    QTest::newRow("court, a bracket that is another one here") << int(CategCivile) << 2 << 1.0 << 102 << 0;
    QTest::newRow("order for payment") << int(CategCivile) << 3 << 1000.0 << 108 << 1;
    QTest::newRow("single judge of the criminal court") << int(CategPenale) << 2 << 0.0 << 138 << 138;
}

void TestRichiestaApplicata::conLaTariffaDelloStudio()
{
    QFETCH(int, Categoria);
    QFETCH(int, Autorita);
    QFETCH(double, Valore);
    QFETCH(int, Ufficio);
    QFETCH(int, Scaglione);
    const Studio Suo;
    Registratore Messaggi;
    sessione::Tariffa = u"55"_s;
    sessione::RichiestaPV2 = Chiedi(Categoria, Autorita, Valore);
    Parcella Nota;
    Apri(Nota);
    QCOMPARE(Nota.Tariffa, &Dm55);
    QCOMPARE(Nota.IDAutSelezionata(), Ufficio);
    QCOMPARE(Nota.Scaglione, Scaglione);
    QVERIFY(Nota.chkSpeseGen.Attiva);
    QCOMPARE(Nota.txtSpeGen.Testo, u"15"_s);
    QVERIFY(!Nota.Modificata);
    QVERIFY(!Nota.RicalcoloNecessario);
    // The percent is the decree's, not the user's: it goes with it.
    QVERIFY(CambiaTariffa(Nota, Dm140));
    QVERIFY(!Nota.chkSpeseGen.Attiva);
}

/// Without its own database the note stays where the request was read, with everything that it asks.
void TestRichiestaApplicata::senzaLaTariffaDelloStudio()
{
    const Studio Suo;
    (void)Suo.TariffeProprie();  // a program folder that has the first decree alone
    Registratore Messaggi;
    sessione::Tariffa = u"55"_s;
    sessione::RichiestaPV2 = Chiedi(CategCivile, 2, 30000);
    Messaggi.Tollera();
    Parcella Nota;
    Apri(Nota);
    QCOMPARE(Nota.Tariffa, &Dm140);
    QCOMPARE(Nota.IDAutSelezionata(), IDTribunale);
    QCOMPARE(Nota.Scaglione, 3);
    QVERIFY(!Nota.chkSpeseGen.Attiva);
    QVERIFY(!Nota.ListaAutorita.isEmpty());
}

void TestRichiestaApplicata::valoreDellaRichiesta_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<double>("Valore");
    QTest::addColumn<QString>("Importo");
    QTest::addColumn<int>("Indice");
    QTest::addColumn<int>("Scaglione");
    QTest::addColumn<bool>("Segnalato");
    QTest::newRow("indice di scaglione") << 0 << 2.0 << QString() << 2 << 3 << false;
    QTest::newRow("indice con decimali: il più vicino") << 0 << 2.6 << QString() << 3 << 4 << false;
    QTest::newRow("indice appena sopra") << 0 << 2.4 << QString() << 2 << 3 << false;
    QTest::newRow("poco sotto lo zero: nessuno") << 0 << -0.6 << QString() << -1 << 0 << false;
    QTest::newRow("indice zero") << 0 << 0.0 << QString() << 0 << 1 << false;
    QTest::newRow("valore indeterminato") << 0 << 7.0 << QString() << 7 << 8 << false;
    QTest::newRow("indice inesistente") << 0 << 99.0 << QString() << -1 << 0 << true;
    QTest::newRow("cento e' gia' un valore") << 0 << 100.0 << u"100,00"_s << 0 << 1 << false;
    QTest::newRow("stragiudiziale") << 2 << 30000.0 << u"30.000,00"_s << 2 << 3 << false;
    QTest::newRow("penale: fa da scaglione l'autorita")
        << 1 << 2.0 << QString() << -1 << IDMonocratico << false;
    QTest::newRow("sotto il nulla") << 0 << -2.0 << QString() << -1 << 0 << true;
    QTest::newRow("ben sotto il nulla") << 0 << -1e300 << QString() << -1 << 0 << true;
    QTest::newRow("negativo") << 0 << -1.0 << QString() << -1 << 0 << false;
}

void TestRichiestaApplicata::valoreDellaRichiesta()
{
    QFETCH(int, Categoria);
    QFETCH(double, Valore);
    QFETCH(bool, Segnalato);
    const Studio Ufficio;
    Registratore Messaggi;
    sessione::RichiestaPV2 = Chiedi(Categoria, 2, Valore);
    Parcella Nota;
    if (Segnalato)
        Messaggi.Attendi(IndiceFuori, vbOK, u"Errore:"_s);
    Apri(Nota);
    QTEST(Nota.txtImporto.Testo, "Importo");
    QTEST(Nota.cmbValore, "Indice");
    QTEST(Nota.Scaglione, "Scaglione");
    QCOMPARE(Nota.ImportoPrec, Valore >= 100 ? Valore : 0.0);
    QCOMPARE(Nota.IdxValorePrec, Nota.cmbValore);
}

void TestRichiestaApplicata::indiciFuoriLista_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<int>("Autorita");
    QTest::addColumn<bool>("Segnalato");
    QTest::newRow("entrambi") << 3 << 99 << true;
    QTest::newRow("categoria") << 3 << NessunaVoce << true;
    QTest::newRow("autorita") << NessunaVoce << 99 << true;
    QTest::newRow("sotto il nulla") << -2 << NessunaVoce << true;
    QTest::newRow("nulla di scelto") << NessunaVoce << NessunaVoce << false;
}

void TestRichiestaApplicata::indiciFuoriLista()
{
    QFETCH(int, Categoria);
    QFETCH(int, Autorita);
    QFETCH(bool, Segnalato);
    const Studio Ufficio;
    Registratore Messaggi;
    sessione::RichiestaPV2 = Chiedi(Categoria, Autorita, 30000);
    Parcella Nota;
    if (Segnalato)
        Messaggi.Attendi(IndiceFuori, vbOK, u"Errore:"_s);  // once, and the rest of the request holds
    Apri(Nota);
    QCOMPARE(Nota.cmbCateg, NessunaVoce);
    QCOMPARE(Nota.CodCateg, u"CIV"_s);
    QCOMPARE(Nota.cmbAutor, NessunaVoce);
    QCOMPARE(Nota.IdxAutorPrec, NessunaVoce);
    QCOMPARE(Nota.txtImporto.Testo, u"30.000,00"_s);
    QCOMPARE(Nota.NsRif, u"2024/7"_s);
}

void TestRichiestaApplicata::parti()
{
    const Studio Ufficio;
    Registratore Messaggi;
    sessione::RichiestaPV2 = Chiedi(0, 2, 0);
    sessione::RichiestaPV2.IDCli = Ufficio.AggiungiCliente(u"Rossi Mario"_s);
    sessione::RichiestaPV2.IDCon = Ufficio.AggiungiControparte(u"Bianchi Srl"_s, u"BIANCHI"_s);
    Parcella Nota;
    Apri(Nota);
    QCOMPARE(Nota.txtCliente.Testo, u"Rossi Mario"_s);
    QCOMPARE(Nota.txtControp.Testo, u"Bianchi Srl"_s);  // the archive's name; a saved note takes the other
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"Rossi Mario"_s);
    QCOMPARE(Nota.txtDatiStaControp.Testo, u"Bianchi Srl"_s);
    QCOMPARE(Nota.IDCli, sessione::RichiestaPV2.IDCli);
    QCOMPARE(Nota.IDCon, sessione::RichiestaPV2.IDCon);
}

void TestRichiestaApplicata::partiAssenti()
{
    const Studio Ufficio;
    Registratore Messaggi;
    sessione::RichiestaPV2 = Chiedi(0, 2, 0);
    sessione::RichiestaPV2.IDCli = 777;
    sessione::RichiestaPV2.IDCon = 888;
    Parcella Nota;
    Messaggi.Attendi(ClienteAssente, vbOK, u"Errore:"_s);  // of the counterparty nothing is said
    Apri(Nota);
    QCOMPARE(Nota.IDCli, 777);
    QCOMPARE(Nota.IDCon, 888);
    QCOMPARE(Nota.txtCliente.Testo + Nota.txtControp.Testo, QString());
}

void TestRichiestaApplicata::senzaArchivio_data()
{
    QTest::addColumn<int>("Come");

    for (int Come = 0; Come < Danni; ++Come)
        QTest::newRow(NomiDanni[size_t(Come)]) << Come;
}

/// Nobody is said to be missing; the names come when the archive does, and nothing is printed before.
void TestRichiestaApplicata::senzaArchivio()
{
    QFETCH(int, Come);
    const Studio Ufficio;
    sessione::RichiestaPV2 = Chiedi(0, 2, 0);
    sessione::RichiestaPV2.IDCli = Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    sessione::RichiestaPV2.IDCon = Ufficio.AggiungiControparte(u"Neri Carlo"_s);
    const QByteArray Sano = LeggiFile(sessione::ArchivioCliCon);
    Rovina(sessione::ArchivioCliCon, Come);
    Registratore Messaggi;
    Messaggi.Tollera();
    Parcella Nota;
    Apri(Nota);
    QCOMPARE(Messaggi.Mostrati().size(), 1);
    QVERIFY2(Messaggi.UltimoTesto().contains(u"DatiStudio.mdb"_s), qPrintable(Messaggi.UltimoTesto()));
    QCOMPARE(Nota.NsRif, u"2024/7"_s);
    QVERIFY(Nota.ArchivioNonLetto.has_value());
    QVERIFY(!RiprovaArchivio(Nota));
    ScegliDocumento(Nota, StampaPrenotula);
    QVERIFY(Nota.ArchivioNonLetto.has_value());
    QCOMPARE(Messaggi.Mostrati().size(), 2);

    QDir().rmdir(sessione::ArchivioCliCon);
    QFile::remove(sessione::ArchivioCliCon);
    ScriviFile(sessione::ArchivioCliCon, Sano);
    QVERIFY(RiprovaArchivio(Nota));
    QCOMPARE(Nota.txtCliente.Testo, u"Verdi Anna"_s);
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"Verdi Anna"_s);
    QCOMPARE(Nota.txtControp.Testo, u"Neri Carlo"_s);
    QVERIFY(!Nota.ArchivioNonLetto);
    QCOMPARE(Messaggi.Mostrati().size(), 2);
}

/// A client who is worded by the user waits for no archive. The names come with it, and his text stays.
void TestRichiestaApplicata::ilBloccoScrittoResta()
{
    for (const bool Controparte : {false, true}) {
        const Studio Ufficio;
        sessione::RichiestaPV2 = Chiedi(0, 2, 0);
        sessione::RichiestaPV2.IDCli = Ufficio.AggiungiCliente(u"Verdi Anna"_s);
        if (Controparte)
            sessione::RichiestaPV2.IDCon = Ufficio.AggiungiControparte(u"Neri Carlo"_s);
        const QByteArray Sano = LeggiFile(sessione::ArchivioCliCon);
        Rovina(sessione::ArchivioCliCon, Svuotato);
        Registratore Messaggi;
        Messaggi.Tollera();
        Parcella Nota;
        Apri(Nota);
        ScegliDocumento(Nota, StampaPrenotula);
        CambiaParteStampata(Nota, ParteNota::Cliente, u"Verdi Anna, Lucca"_s);
        QCOMPARE(Nota.ArchivioNonLetto.has_value(), Controparte);
        Nota.Modificata = false;

        ScriviFile(sessione::ArchivioCliCon, Sano);
        QVERIFY(RiprovaArchivio(Nota));
        QCOMPARE(Nota.txtDatiStaCli.Testo, u"Verdi Anna, Lucca"_s);
        QVERIFY(!Nota.Modificata);
        QCOMPARE(Nota.txtControp.Testo, Controparte ? u"Neri Carlo"_s : QString());
        QCOMPARE(Nota.txtCliente.Testo, u"Verdi Anna"_s);
        QCOMPARE(Nota.NomeCli, u"Verdi Anna"_s);

        // Another form has no text of the user's: the archive words the client.
        ScegliDocumento(Nota, StampaNotaGiudiziale);
        QCOMPARE(Nota.txtCliente.Testo, u"Verdi Anna"_s);
        QCOMPARE(Nota.txtDatiStaCli.Testo, u"Verdi Anna"_s);
    }
}

void TestRichiestaApplicata::mentreSiDiceNonSiCompone()
{
    const Studio Ufficio;
    sessione::RichiestaPV2 = Chiedi(0, 2, 0);
    sessione::RichiestaPV2.IDCli = 777;
    Parcella Nota;
    bool Pronta = true;
    Messaggi Tavola;
    Tavola.Box = [&](const QString&, int, const QString&) {
        Pronta = Nota.Pronta;
        return vbOK;
    };
    const Messaggi Prima = InstallaMessaggi(Tavola);
    Apri(Nota);
    InstallaMessaggi(Prima);
    QVERIFY(!Pronta);
    QVERIFY(Nota.Pronta);
}

void TestRichiestaApplicata::ilRiferimentoFaLaSessione()
{
    const Studio Ufficio;
    sessione::RichiestaPV2 = Chiedi(CategPenale, 2, 30000);
    sessione::RichiestaPV2.Scelta = 7;
    const Richiesta InCorso = sessione::RichiestaPV2;
    Parcella Nota;
    NuovaParcella(Nota);
    AdottaRiferimento(Nota);
    QVERIFY(sessione::RichiestaPV2 == InCorso);  // a note without one leaves the session as it is
    QCOMPARE(Nota.Scelta, 0);

    // A file of the matter that the request is for.
    Nota.NsRif = u"2024/7"_s;
    AdottaRiferimento(Nota);
    QVERIFY(sessione::RichiestaPV2 == InCorso);
    QCOMPARE(Nota.Scelta, 7);

    // Of another matter: nothing that was asked for the first one is left, not even on the way back.
    Parcella Altra;
    NuovaParcella(Altra);
    for (const QString& Rif : {u"P77"_s, u"2024/7"_s}) {
        Altra.NsRif = Rif;
        AdottaRiferimento(Altra);
        QCOMPARE(sessione::RichiestaPV2.ID, Rif);
        QVERIFY(sessione::RichiestaPV2.IDCli == 0 && sessione::RichiestaPV2.IDCon == 0);
        QCOMPARE(sessione::RichiestaPV2.Scelta, 0);
        QCOMPARE(Altra.Scelta, 0);
    }
}

void TestRichiestaApplicata::delSoloRiferimentoNonSiSceglieNulla_data()
{
    QTest::addColumn<QString>("Scelta");
    for (const char* Legge : {"140", "55"})
        QTest::newRow(Legge) << QString::fromLatin1(Legge);
}

/// Of a matter that a file has brought along nobody has named category, authority and value.
void TestRichiestaApplicata::delSoloRiferimentoNonSiSceglieNulla()
{
    QFETCH(QString, Scelta);
    const Studio Ufficio;
    sessione::Tariffa = Scelta;
    Parcella DaFile;
    NuovaParcella(DaFile);
    DaFile.NsRif = u"P77"_s;
    AdottaRiferimento(DaFile);
    Parcella Attesa;
    NuovaParcella(Attesa);
    Attesa.NsRif = u"P77"_s;
    Parcella Nuova;
    NuovaParcella(Nuova);
    ApplicaRichiesta(Nuova, sessione::RichiestaPV2);
    QCOMPARE(Nuova.cmbCateg, NessunaVoce);
    QCOMPARE(Nuova.cmbAutor, NessunaVoce);
    QCOMPARE(Nuova.cmbValore, NessunaVoce);
    QVERIFY(Nuova == Attesa);
}

#include "TestRichiestaApplicata.moc"
