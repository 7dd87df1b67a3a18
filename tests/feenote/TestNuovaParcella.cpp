// A new note, and the request of the companion application.
#include "nota_prova.h"

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

class TestNuovaParcella : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void vuota();
    void cancellaTutto();
    void richiestaApplicata();
    void richiestaSoloConRiferimento();
    void valoreDellaRichiesta_data();
    void valoreDellaRichiesta();
    void indiciFuoriLista_data();
    void indiciFuoriLista();
    void parti();
    void partiAssenti();
    void senzaArchivio();
};
PROVA(TestNuovaParcella);

void TestNuovaParcella::vuota()
{
    const Studio Ufficio;
    sessione::IVA = 22.0F;
    sessione::CP = 4.5F;
    Registratore Messaggi;
    Parcella Nota;
    NuovaParcella(Nota);
    QCOMPARE(Nota.CodCateg, u"CIV"_s);
    QCOMPARE(Nota.cmbCateg, NessunaVoce);
    QCOMPARE(Nota.cmbAutor, NessunaVoce);
    QCOMPARE(Nota.cmbValore, NessunaVoce);
    QCOMPARE(int(Nota.ListaAutorita.size()), 16);
    QCOMPARE(int(Nota.ListaScaglioni.size()), 8);
    QVERIFY(Nota.cmbAutorAbilitata && Nota.cmbValoreAbilitata && Nota.txtImporto.Abilitata);
    QCOMPARE(Nota.ImportoPrec, 0.0);
    QCOMPARE(Nota.Scaglione, 0);
    QVERIFY(Nota.chkIva.Attiva && Nota.chkCP.Attiva && !Nota.chkRA.Attiva && !Nota.chkSpeseGen.Attiva);
    QCOMPARE(Nota.txtIVA.Testo, u"22"_s);
    QCOMPARE(Nota.txtCP.Testo, u"4,5"_s);
    QCOMPARE(Nota.txtRA.Testo + Nota.txtSpeGen.Testo, QString());
    QVERIFY(!Nota.chkMinMax.Attiva);
    QCOMPARE(Nota.AumRidIdx, 5);
    QCOMPARE(Nota.AumRidLimiti, u"-100;300"_s);
    QCOMPARE(Nota.cmbTipoStampa, NessunaVoce);
    QVERIFY(!Nota.RicalcoloNecessario);
    QVERIFY(!Nota.Modificata);
    QVERIFY(Nota.Pronta);
    // The rates are in the memory from which print types restore.
    ScegliTipoStampa(Nota, StampaNotaGiudiziale);
    ScegliTipoStampa(Nota, StampaPrenotula);
    QCOMPARE(Nota.txtIVA.Testo, u"22"_s);
}

void TestNuovaParcella::cancellaTutto()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nuova;
    NuovaParcella(Nuova);

    Parcella Nota = NotaCivile();
    RigaOnorario(Nota, u"Studio"_s, 100);
    RigaSpesa(Nota, 1.0, 2.0);
    RigaAcconto(Nota, u"E"_s, 1.0, 2.0, 3.0);
    Nota.txtCliente.Testo = u"Rossi"_s;
    Nota.IDCli = 4;
    Nota.Percorso = u"nota.mdb"_s;
    Nota.Psw = u"segreta"_s;
    Nota.NsRif = u"7"_s;
    Nota.txtParcMultipla = u"altra"_s;
    Nota.txtDatiPar[DatoTestoSuperiore] = u"testo"_s;
    Nota.chkRegSempl.Attiva = true;
    ScegliTipoStampa(Nota, StampaNotaGiudiziale);
    // What belongs to the window, not to the note, stays.
    Nota.Nome = u"Nuova parcella"_s;
    Nota.InsUltimaOno = false;
    Nota.IDMultipla = 2;
    NuovaParcella(Nota);
    Nuova.Nome = u"Nuova parcella"_s;
    Nuova.InsUltimaOno = false;
    Nuova.IDMultipla = 2;
    QVERIFY(Nota == Nuova);
}

void TestNuovaParcella::richiestaApplicata()
{
    const Studio Ufficio;
    Registratore Messaggi;
    sessione::RichiestaPV2 = Chiedi(CategCivile, 2, 30000);
    sessione::RichiestaPV2.Scelta = 11;
    Parcella Nota;
    NuovaParcella(Nota, u"2024/7"_s);
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

void TestNuovaParcella::richiestaSoloConRiferimento()
{
    const Studio Ufficio;
    Registratore Messaggi;
    sessione::RichiestaPV2 = Chiedi(CategPenale, 2, 30000);
    Parcella Nota;
    NuovaParcella(Nota);
    QCOMPARE(Nota.cmbCateg, NessunaVoce);
    QCOMPARE(Nota.NsRif, QString());
    QCOMPARE(Nota.txtImporto.Testo, QString());
}

void TestNuovaParcella::valoreDellaRichiesta_data()
{
    QTest::addColumn<int>("Categoria");
    QTest::addColumn<double>("Valore");
    QTest::addColumn<QString>("Importo");
    QTest::addColumn<int>("Indice");
    QTest::addColumn<int>("Scaglione");
    QTest::addColumn<bool>("Segnalato");
    QTest::newRow("indice di scaglione") << 0 << 2.0 << QString() << 2 << 3 << false;
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

void TestNuovaParcella::valoreDellaRichiesta()
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
    NuovaParcella(Nota, u"2024/7"_s);
    QTEST(Nota.txtImporto.Testo, "Importo");
    QTEST(Nota.cmbValore, "Indice");
    QTEST(Nota.Scaglione, "Scaglione");
    QCOMPARE(Nota.ImportoPrec, Valore >= 100 ? Valore : 0.0);
    QCOMPARE(Nota.IdxValorePrec, Nota.cmbValore);
}

void TestNuovaParcella::indiciFuoriLista_data()
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

void TestNuovaParcella::indiciFuoriLista()
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
    NuovaParcella(Nota, u"2024/7"_s);
    QCOMPARE(Nota.cmbCateg, NessunaVoce);
    QCOMPARE(Nota.CodCateg, u"CIV"_s);
    QCOMPARE(Nota.cmbAutor, NessunaVoce);
    QCOMPARE(Nota.IdxAutorPrec, NessunaVoce);
    QCOMPARE(Nota.txtImporto.Testo, u"30.000,00"_s);
    QCOMPARE(Nota.NsRif, u"2024/7"_s);
}

void TestNuovaParcella::parti()
{
    const Studio Ufficio;
    Registratore Messaggi;
    sessione::RichiestaPV2 = Chiedi(0, 2, 0);
    sessione::RichiestaPV2.IDCli = Ufficio.AggiungiCliente(u"Rossi Mario"_s);
    sessione::RichiestaPV2.IDCon = Ufficio.AggiungiControparte(u"Bianchi Srl"_s, u"BIANCHI"_s);
    Parcella Nota;
    NuovaParcella(Nota, u"2024/7"_s);
    QCOMPARE(Nota.txtCliente.Testo, u"Rossi Mario"_s);
    QCOMPARE(Nota.txtControp.Testo, u"Bianchi Srl"_s);  // the archive's name; a saved note takes the other
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"Rossi Mario"_s);
    QCOMPARE(Nota.txtDatiStaControp.Testo, u"Bianchi Srl"_s);
    QCOMPARE(Nota.IDCli, sessione::RichiestaPV2.IDCli);
    QCOMPARE(Nota.IDCon, sessione::RichiestaPV2.IDCon);
}

void TestNuovaParcella::partiAssenti()
{
    const Studio Ufficio;
    Registratore Messaggi;
    sessione::RichiestaPV2 = Chiedi(0, 2, 0);
    sessione::RichiestaPV2.IDCli = 777;
    sessione::RichiestaPV2.IDCon = 888;
    Parcella Nota;
    Messaggi.Attendi(ClienteAssente, vbOK, u"Errore:"_s);  // of the counterparty nothing is said
    NuovaParcella(Nota, u"2024/7"_s);
    QCOMPARE(Nota.IDCli, 777);
    QCOMPARE(Nota.IDCon, 888);
    QCOMPARE(Nota.txtCliente.Testo + Nota.txtControp.Testo, QString());
}

void TestNuovaParcella::senzaArchivio()
{
    const Studio Ufficio;
    QVERIFY(QFile::remove(sessione::ArchivioCliCon));
    Registratore Messaggi;
    sessione::RichiestaPV2 = Chiedi(0, 2, 0);
    sessione::RichiestaPV2.IDCli = 1;
    Messaggi.Attendi(ClienteAssente);
    Parcella Nota;
    NuovaParcella(Nota, u"2024/7"_s);
    QCOMPARE(Nota.NsRif, u"2024/7"_s);
}

#include "TestNuovaParcella.moc"
