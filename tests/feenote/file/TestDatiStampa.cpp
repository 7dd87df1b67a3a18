// Print data: what each document asks for, texts that two tabs share, the client block, the IBAN.
#include "feenote/modDatiStampa.h"
#include "feenote/modParti.h"
#include "file_prova.h"

using namespace Qt::StringLiterals;

class TestDatiStampa : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ogniDocumentoChiedeISuoiDati_data();
    void ogniDocumentoChiedeISuoiDati();
    void gliAltriTratti_data();
    void gliAltriTratti();
    void nessunDocumento();
    void leParole_data();
    void leParole();
    void troppoLunghi();
    void tornanoAllaPrimaScheda_data();
    void tornanoAllaPrimaScheda();
    void ilBloccoScrittoResta_data();
    void ilBloccoScrittoResta();
    void unSoloBloccoPerTutti_data();
    void unSoloBloccoPerTutti();
    void ogniFormaIlSuoBlocco();
    void ilBloccoLegatoNonPassaAlleAltreForme();
    void ilNomeTornaAllaPrimaScheda_data();
    void ilNomeTornaAllaPrimaScheda();
    void ilBloccoCedeAlCliente();
    void ilBloccoNonCedeAllOggetto();
    void bloccoDiUnClienteLegato();
    void clienteLegatoSparito();
    void bloccoAllApertura();
    void svuotareDissocia_data();
    void svuotareDissocia();
    void societaDallArchivio_data();
    void societaDallArchivio();
    void laSceltaDelTipoResta();
    void altroClienteAltroTipo();
    void rubricaDallaPrimaScheda();
    void rubricaDallaStampa();
    void rubricaPerLaSolaStampa();
    void rubricaPerLaSolaStampaSenzaRiga();
    void rubricaConParolaIgnota();
    void ibanSenzaIban();
    void ibanConIban();
    void ogniDatoSegnaLaNota();
    void ilDocumentoNonSegnaLaNota();
};
PROVA(TestDatiStampa);

namespace {

/// Clicks of the documents one after the other, then the block written by the user in the first one.
Parcella ConBlocco(int Tipo, const QString& Blocco)
{
    Parcella Nota = NotaCivile();
    CambiaParte(Nota, ParteNota::Cliente, u"Rossi Mario"_s);
    Nota.IDCli = 7;  // so that the block does not go back to the first tab
    Nota.cmbTipoStampa = Tipo;
    CambiaParteStampata(Nota, ParteNota::Cliente, Blocco);
    return Nota;
}

}  // namespace

void TestDatiStampa::ogniDocumentoChiedeISuoiDati_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Titolo");
    QTest::addColumn<int>("Pannello");
    QTest::addColumn<bool>("Iban");
    QTest::addColumn<bool>("Parti");
    const auto Riga = [](const char* Nome, int Tipo, const QString& Titolo, PannelloStampa Pannello,
                         bool Iban, bool Parti) {
        QTest::newRow(Nome) << Tipo << Titolo << int(Pannello) << Iban << Parti;
    };
    Riga("prenotula", 0, u" Dati stampa prenotula: "_s, PannelloStampa::Numero, true, true);
    Riga("preventivo", 1, u" Dati stampa preventivo: "_s, PannelloStampa::Numero, false, true);
    Riga("fattura sintetica", 2, u" Dati stampa fattura: "_s, PannelloStampa::Fattura, true, true);
    Riga("fattura analitica", 3, u" Dati stampa fattura: "_s, PannelloStampa::Fattura, true, true);
    Riga("nota spese", 4, u" Dati stampa nota spese: "_s, PannelloStampa::Deposito, false, true);
    Riga("contratto", 5, u" Dati stampa contratto: "_s, PannelloStampa::Incarico, false, true);
    Riga("informativa", 6, u" Dati stampa informativa: "_s, PannelloStampa::Incarico, false, true);
    Riga("solo conti: nessuna parte", 7, u" Dati stampa parte contabile: "_s, PannelloStampa::Testi, false,
         false);
}

void TestDatiStampa::ogniDocumentoChiedeISuoiDati()
{
    QFETCH(int, Tipo);
    const TipoDocumento& Dati = TipoDi(Tipo);
    QTEST(Dati.Titolo.toString(), "Titolo");
    QTEST(int(Dati.Pannello), "Pannello");
    QTEST(Dati.Iban, "Iban");
    QTEST(Dati.Parti, "Parti");
}

void TestDatiStampa::gliAltriTratti_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<int>("Acconti");
    QTest::addColumn<QString>("Tratti");
    const auto Riga = [](int Tipo, const QString& Nome, UsoAcconti Acconti, const QString& Tratti) {
        QTest::newRow(qPrintable(Nome)) << Tipo << Nome << int(Acconti) << Tratti;
    };
    Riga(0, u"Prenotula"_s, UsoAcconti::Sempre, {});
    Riga(1, u"Preventivo"_s, UsoAcconti::Sempre, {});
    Riga(2, u"Fattura sintetica"_s, UsoAcconti::SeEsposti, u"impone minmax fattura carta"_s);
    Riga(3, u"Fattura analitica"_s, UsoAcconti::Sempre, u"fattura"_s);
    Riga(4, u"Nota spese giudiziale"_s, UsoAcconti::Mai, u"senza acconti"_s);
    Riga(5, u"Contratto cliente"_s, UsoAcconti::Sempre, u"minmax acconti soloTesto"_s);
    Riga(6, u"Resa informativa"_s, UsoAcconti::Sempre, u"minmax acconti soloTesto"_s);
    Riga(7, u"Solo parte contabile!"_s, UsoAcconti::Sempre, {});
}

void TestDatiStampa::gliAltriTratti()
{
    QFETCH(int, Tipo);
    const TipoDocumento& Dati = TipoDi(Tipo);
    QTEST(Dati.Nome.toString(), "Nome");
    QTEST(int(Dati.Acconti), "Acconti");
    QStringList Tratti;
    const auto Se = [&](bool Vero, const QString& Parola) {
        if (Vero)
            Tratti += Parola;
    };
    Se(Dati.ForzaSenzaImposte, u"senza"_s);
    Se(Dati.ImponeAcconti, u"impone"_s);
    Se(Dati.DisabilitaMinMax, u"minmax"_s);
    Se(Dati.DisabilitaAcconti, u"acconti"_s);
    Se(Dati.EFattura, u"fattura"_s);
    Se(!Dati.Riepilogo, u"soloTesto"_s);
    Se(Dati.CartaIntestata, u"carta"_s);
    QTEST(Tratti.join(u' '), "Tratti");
    QCOMPARE(VociTipoStampa().value(Tipo), Dati.Nome.toString());
}

void TestDatiStampa::nessunDocumento()
{
    QCOMPARE(VociTipoStampa().size(), 8);
    QCOMPARE(FraseTipiStampa(), u"i tipi di stampa vanno da 0 a 7"_s);
    for (const int Tipo : {-1, 8}) {
        QCOMPARE(int(TipoDi(Tipo).Pannello), int(PannelloStampa::Nessuno));
        QVERIFY(!TipoDi(Tipo).Parti && !TipoDi(Tipo).Iban);
    }
}

void TestDatiStampa::leParole_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<int>("Contraente");
    QTest::addColumn<int>("Forma");
    const auto Riga = [](const char* Nome, int Tipo, int Contraente, FormaBlocco Forma) {
        QTest::newRow(Nome) << Tipo << Contraente << int(Forma);
    };
    Riga("in testa alla prenotula", 0, 0, FormaBlocco::Testata);
    Riga("anche di una società", 3, 1, FormaBlocco::Testata);
    Riga("solo il nome nella nota spese", 4, 1, FormaBlocco::Nome);
    Riga("persona nel contratto", 5, 0, FormaBlocco::Persona);
    Riga("società nel contratto", 5, 1, FormaBlocco::Societa);
    Riga("società nell'informativa", 6, 1, FormaBlocco::Societa);
    Riga("nessuno nei soli conti", 7, 0, FormaBlocco::Nessuna);
    Riga("nessun documento", -1, 0, FormaBlocco::Nessuna);
}

void TestDatiStampa::leParole()
{
    QFETCH(int, Tipo);
    QFETCH(int, Contraente);
    Parcella Nota;
    Nota.cmbTipoStampa = Tipo;
    Nota.optContrTipo = Contraente;
    QTEST(int(FormaDelBlocco(Nota)), "Forma");
}

void TestDatiStampa::troppoLunghi()
{
    Parcella Nota;
    CambiaParteStampata(Nota, ParteNota::Cliente, QString(2001, u'x'));
    QCOMPARE(Nota.txtDatiStaCli.Testo.size(), 2000);
    CambiaParteStampata(Nota, ParteNota::Oggetto, QString(5000, u'x'));
    QCOMPARE(Nota.txtDatiStaOgg.Testo.size(), 4000);
    CambiaDatiPar(Nota, DatoNumFatt, QString(256, u'1'));
    QCOMPARE(Nota.DatiPar(DatoNumFatt).size(), 255);
    CambiaDatiPar(Nota, DatoTestoSuperiore, QString(65536, u'x'));
    QCOMPARE(Nota.DatiPar(DatoTestoSuperiore).size(), 65535);
}

void TestDatiStampa::tornanoAllaPrimaScheda_data()
{
    QTest::addColumn<int>("Quale");
    QTest::addColumn<bool>("Legata");
    QTest::addColumn<bool>("Torna");
    const auto Riga = [](const char* Nome, ParteNota Quale, bool Legata, bool Torna) {
        QTest::newRow(Nome) << int(Quale) << Legata << Torna;
    };
    Riga("cliente libero", ParteNota::Cliente, false, true);
    Riga("cliente dell'archivio", ParteNota::Cliente, true, false);
    Riga("controparte libera", ParteNota::Controparte, false, true);
    Riga("controparte dell'archivio", ParteNota::Controparte, true, false);
    Riga("oggetto, sempre", ParteNota::Oggetto, true, true);
}

void TestDatiStampa::tornanoAllaPrimaScheda()
{
    QFETCH(int, Quale);
    QFETCH(bool, Legata);
    QFETCH(bool, Torna);
    const auto Parte = ParteNota(Quale);
    Parcella Nota;
    Nota.IDCli = Nota.IDCon = Legata ? 3 : 0;
    CambiaParte(Nota, Parte, u"prima"_s);
    QCOMPARE(ParteStampata(Nota, Parte).Testo, u"prima"_s);
    CambiaParteStampata(Nota, Parte, u"dopo"_s);
    QCOMPARE(ParteScritta(Nota, Parte).Testo, u"prima"_s);
    LasciaParteStampata(Nota, Parte);
    QCOMPARE(ParteScritta(Nota, Parte).Testo, Torna ? u"dopo"_s : u"prima"_s);
    QCOMPARE(ParteStampata(Nota, Parte).Testo, u"dopo"_s);
}

void TestDatiStampa::ilBloccoScrittoResta_data()
{
    QTest::addColumn<QList<int>>("Clic");
    QTest::addColumn<int>("Contraente");
    QTest::addColumn<bool>("Resta");
    QTest::newRow("lo stesso documento") << QList{0} << 0 << true;
    QTest::newRow("la stessa forma") << QList{1, 3} << 0 << true;
    QTest::newRow("per un documento senza cliente") << QList{7, 2} << 0 << true;
    QTest::newRow("un'altra forma") << QList{4} << 0 << false;
    QTest::newRow("un'altra forma, e ritorno") << QList{5, 0} << 0 << true;
    QTest::newRow("una società in testa si scrive uguale") << QList{0} << 1 << true;
    QTest::newRow("una società nel contratto") << QList{5} << 1 << false;
}

void TestDatiStampa::ilBloccoScrittoResta()
{
    QFETCH(QList<int>, Clic);
    QFETCH(int, Contraente);
    QFETCH(bool, Resta);
    const Studio Ufficio;
    Parcella Nota = ConBlocco(StampaPrenotula, u"scritto a mano"_s);
    Nota.IDCli = Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    CambiaContrTipo(Nota, Contraente);
    for (const int Tipo : Clic)
        ScegliDocumento(Nota, Tipo);
    QCOMPARE(Nota.txtDatiStaCli.Testo == u"scritto a mano", Resta);
}

namespace {

/// The user goes to a document, writes in its client block and leaves the box.
void ScriviNel(Parcella& Nota, int Tipo, const QString& Blocco)
{
    ScegliDocumento(Nota, Tipo);
    CambiaParteStampata(Nota, ParteNota::Cliente, Blocco);
    LasciaParteStampata(Nota, ParteNota::Cliente);
}

QString BloccoDi(Parcella& Nota, int Tipo, int Contraente = 0)
{
    Nota.optContrTipo = Contraente;
    ScegliDocumento(Nota, Tipo);
    return Nota.txtDatiStaCli.Testo;
}

const QString Righe = u"Rossi Maria\nVia Verdi 3\n20100 Milano (MI)"_s;
const QString Frase = u"Rossi Maria nata a Monza, residente in Via Verdi 3"_s;

}  // namespace

void TestDatiStampa::unSoloBloccoPerTutti_data()
{
    QTest::addColumn<int>("Scritto");
    QTest::newRow("scritto in testa") << int(StampaPrenotula);
    QTest::newRow("scritto nella nota spese") << int(StampaNotaGiudiziale);
    QTest::newRow("scritto nel contratto") << int(StampaContratto);
}

void TestDatiStampa::unSoloBloccoPerTutti()
{
    QFETCH(int, Scritto);
    Parcella Nota = NotaCivile();
    ScriviNel(Nota, Scritto, Righe);
    ScriviNel(Nota, Scritto, Righe + u"\nC.F. X"_s);  // the same form, once more
    for (const int Tipo : {StampaFatturaSintetica, StampaNotaGiudiziale, StampaContratto, StampaPrenotula})
        QCOMPARE(BloccoDi(Nota, Tipo), Righe + u"\nC.F. X"_s);
    QCOMPARE(BloccoDi(Nota, StampaInformativa, 1), Righe + u"\nC.F. X"_s);
}

void TestDatiStampa::ogniFormaIlSuoBlocco()
{
    Parcella Nota = NotaCivile();
    ScriviNel(Nota, StampaPrenotula, Righe);
    ScriviNel(Nota, StampaContratto, Frase);
    QCOMPARE(BloccoDi(Nota, StampaFatturaAnalitica), Righe);
    QCOMPARE(BloccoDi(Nota, StampaNotaGiudiziale), Righe);
    QCOMPARE(BloccoDi(Nota, StampaContratto, 1), Righe);
    QCOMPARE(BloccoDi(Nota, StampaInformativa), Frase);

    ScriviNel(Nota, StampaPreventivo, u"Eredi Rossi"_s);  // the others keep theirs
    QCOMPARE(BloccoDi(Nota, StampaNotaGiudiziale), Righe);
    ScriviNel(Nota, StampaNotaGiudiziale, u"Rossi Maria"_s);
    QCOMPARE(BloccoDi(Nota, StampaPrenotula), u"Eredi Rossi"_s);
    QCOMPARE(BloccoDi(Nota, StampaContratto), Frase);

    CambiaParte(Nota, ParteNota::Cliente, u"Neri Ugo"_s);
    for (const int Tipo : {StampaPrenotula, StampaNotaGiudiziale, StampaContratto})
        QCOMPARE(BloccoDi(Nota, Tipo), u"Neri Ugo"_s);
    QCOMPARE(BloccoDi(Nota, StampaContratto, 1), u"Neri Ugo"_s);
}

void TestDatiStampa::ilBloccoLegatoNonPassaAlleAltreForme()
{
    const Studio Ufficio;
    Parcella Nota = NotaCivile();
    Nota.IDCli = Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    Nota.txtCliente.Testo = u"Verdi Anna"_s;
    ScriviNel(Nota, StampaPrenotula, Righe);
    QCOMPARE(BloccoDi(Nota, StampaNotaGiudiziale), u"Verdi Anna"_s);
    ScriviNel(Nota, StampaContratto, Frase);
    QCOMPARE(BloccoDi(Nota, StampaNotaGiudiziale), u"Verdi Anna"_s);
    QCOMPARE(BloccoDi(Nota, StampaPreventivo), Righe);
    QCOMPARE(BloccoDi(Nota, StampaContratto), Frase);
    QCOMPARE(Nota.txtCliente.Testo, u"Verdi Anna"_s);
}

void TestDatiStampa::ilNomeTornaAllaPrimaScheda_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Blocco");
    QTest::addColumn<QString>("Cliente");
    const QString Prima = u"com'era"_s;
    QTest::newRow("una riga in testa") << int(StampaPrenotula) << u"Eredi Rossi "_s << u"Eredi Rossi "_s;
    QTest::newRow("più righe in testa") << int(StampaFatturaAnalitica) << Righe << u"Rossi Maria"_s;
    QTest::newRow("sotto una riga vuota")
        << int(StampaPreventivo) << u" \n Rossi Maria \nVia"_s << u"Rossi Maria"_s;
    QTest::newRow("una riga nella nota spese") << int(StampaNotaGiudiziale) << u"Rossi"_s << u"Rossi"_s;
    QTest::newRow("vuotato") << int(StampaPrenotula) << QString() << QString();
    QTest::newRow("la frase del contratto") << int(StampaContratto) << Frase << Prima;
    QTest::newRow("la frase dell'informativa") << int(StampaInformativa) << u"Rossi\nMaria"_s << Prima;
}

void TestDatiStampa::ilNomeTornaAllaPrimaScheda()
{
    QFETCH(int, Tipo);
    QFETCH(QString, Blocco);
    Parcella Nota = NotaCivile();
    CambiaParte(Nota, ParteNota::Cliente, u"com'era"_s);
    ScriviNel(Nota, Tipo, Blocco);
    QTEST(Nota.txtCliente.Testo, "Cliente");
    QCOMPARE(Nota.txtDatiStaCli.Testo, Blocco);
    QCOMPARE(BloccoDi(Nota, Tipo), Blocco);
}

void TestDatiStampa::ilBloccoCedeAlCliente()
{
    const Studio Ufficio;
    Parcella Nota = ConBlocco(StampaPrenotula, u"scritto a mano"_s);
    CambiaParte(Nota, ParteNota::Cliente, u"Neri Ugo"_s);
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"Neri Ugo"_s);
    Nota.IDCli = 0;
    ScegliDocumento(Nota, StampaPrenotula);
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"Neri Ugo"_s);
}

void TestDatiStampa::ilBloccoNonCedeAllOggetto()
{
    const Studio Ufficio;
    Parcella Nota = ConBlocco(StampaPrenotula, u"scritto a mano"_s);
    CambiaParte(Nota, ParteNota::Oggetto, u"Sfratto"_s);
    CambiaParte(Nota, ParteNota::Controparte, u"Bianchi Srl"_s);
    ScegliDocumento(Nota, StampaPreventivo);
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"scritto a mano"_s);
}

void TestDatiStampa::bloccoDiUnClienteLegato()
{
    const Studio Ufficio;
    Parcella Nota = NotaCivile();
    Nota.IDCli = Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    Nota.txtCliente.Testo = u"Verdi Anna"_s;
    ScegliDocumento(Nota, StampaNotaGiudiziale);
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"Verdi Anna"_s);
}

void TestDatiStampa::clienteLegatoSparito()
{
    const Studio Ufficio;
    Registratore Voce;
    Parcella Nota = NotaCivile();
    CambiaParte(Nota, ParteNota::Cliente, u"Verdi Anna"_s);
    Nota.IDCli = 9999;
    Voce.Attendi(u"Cliente non trovato!"_s, vbOK, u"Errore:"_s);
    ScegliDocumento(Nota, StampaPrenotula);
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"Verdi Anna"_s);
}

void TestDatiStampa::bloccoAllApertura()
{
    const Studio Ufficio;
    Parcella Nota = NotaPiena();
    Nota.IDCli = Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    const Database Archivio = OpenDatabase(sessione::ArchivioCliCon);
    Archivio.Execute(u"UPDATE clienti SET Indirizzo='Via Larga 3' WHERE ID=?"_s, {Nota.IDCli});
    const Parcella Letta = Riletta(Ufficio, Nota);
    QCOMPARE(Letta.cmbTipoStampa, int(StampaFatturaAnalitica));
    QVERIFY2(Letta.txtDatiStaCli.Testo.contains(u"Via Larga 3"_s), qPrintable(Letta.txtDatiStaCli.Testo));
    QVERIFY(!Letta.Modificata);
}

// ---- the address book

void TestDatiStampa::svuotareDissocia_data()
{
    QTest::addColumn<int>("Quale");
    QTest::addColumn<QString>("Avviso");
    QTest::newRow("cliente") << int(ParteNota::Cliente) << u"Il cliente è stato dissociato dalla parcella!"_s;
    QTest::newRow("controparte") << int(ParteNota::Controparte)
                                 << u"La controparte è stata dissociata dalla parcella!"_s;
}

void TestDatiStampa::svuotareDissocia()
{
    QFETCH(int, Quale);
    QFETCH(QString, Avviso);
    const auto Parte = ParteNota(Quale);
    Registratore Voce;
    Parcella Nota;
    Nota.IDCli = Nota.IDCon = 3;
    int& Legame = Parte == ParteNota::Cliente ? Nota.IDCli : Nota.IDCon;
    CambiaParte(Nota, Parte, u"R"_s);
    QCOMPARE(Legame, 3);
    CambiaParteStampata(Nota, Parte, {});  // what prints has no link
    QCOMPARE(Legame, 3);
    Voce.Attendi(Avviso, vbOK, u"Avvertenza:"_s);
    CambiaParte(Nota, Parte, {});
    QCOMPARE(Legame, 0);
    QCOMPARE(Nota.IDCli + Nota.IDCon, 3);
    QCOMPARE(Voce.Ultimo().Bandiere, vbExclamation);
    CambiaParte(Nota, Parte, {});  // told once
    CambiaParte(Nota, ParteNota::Oggetto, {});
}

void TestDatiStampa::societaDallArchivio_data()
{
    QTest::addColumn<QString>("CodFis");
    QTest::addColumn<QString>("PIva");
    QTest::addColumn<QString>("Rappr");
    QTest::addColumn<bool>("Societa");
    QTest::newRow("codice di undici cifre") << u"01234567890"_s << QString() << QString() << true;
    QTest::newRow("con chi la rappresenta") << QString() << QString() << u"Carla Bruni"_s << true;
    QTest::newRow("persona") << u"RSSMRA70A01F205X"_s << QString() << QString() << false;
    QTest::newRow("persona con partita IVA")
        << u"RSSMRA70A01F205X"_s << u"01234567890"_s << QString() << false;
    QTest::newRow("undici segni, non cifre") << u"0123456789X"_s << QString() << QString() << false;
    QTest::newRow("dodici cifre") << u"012345678901"_s << QString() << QString() << false;
    QTest::newRow("nulla") << QString() << QString() << QString() << false;
}

void TestDatiStampa::societaDallArchivio()
{
    QFETCH(QString, CodFis);
    QFETCH(QString, PIva);
    QFETCH(QString, Rappr);
    QFETCH(bool, Societa);
    const Studio Ufficio;
    Parcella Nota = NotaCivile();
    Nota.IDCli = Ufficio.AggiungiCliente({{u"Nominativo"_s, u"Gamma"_s},
                                          {u"Citta"_s, u"Torino"_s},
                                          {u"CodFis"_s, CodFis},
                                          {u"PIva"_s, PIva},
                                          {u"RapprLegale"_s, Rappr}});
    Nota.txtCliente.Testo = u"Gamma"_s;
    Nota.Modificata = false;
    ScegliDocumento(Nota, StampaPrenotula);  // no document of its kind: nothing is asked of the row
    QCOMPARE(Nota.optContrTipo, 0);
    ScegliDocumento(Nota, StampaContratto);
    QCOMPARE(Nota.optContrTipo == 1, Societa);
    QCOMPARE(Nota.txtDatiStaCli.Testo.contains(u" con sede in Torino"), Societa);
    QCOMPARE(Nota.Rappr.Nome, Rappr);
    QVERIFY(!Nota.Modificata);
}

void TestDatiStampa::laSceltaDelTipoResta()
{
    const Studio Ufficio;
    Parcella Nota = NotaCivile();
    Nota.IDCli = Ufficio.AggiungiCliente({{u"Nominativo"_s, u"Gamma"_s}, {u"CodFis"_s, u"01234567890"_s}});
    Nota.txtCliente.Testo = u"Gamma"_s;
    ScegliDocumento(Nota, StampaContratto);
    CambiaContrTipo(Nota, 0);
    ScegliDocumento(Nota, StampaPrenotula);
    ScegliDocumento(Nota, StampaInformativa);
    QCOMPARE(Nota.optContrTipo, 0);

    Parcella Prima = NotaCivile();
    Prima.IDCli = Nota.IDCli;
    Prima.optContrTipo = 1;  // as another program's note would come
    Prima.IDCli = Ufficio.AggiungiCliente(u"Rossi Mario"_s);
    ScegliDocumento(Prima, StampaContratto);
    QCOMPARE(Prima.optContrTipo, 1);  // a row that says nothing takes nothing away
}

void TestDatiStampa::altroClienteAltroTipo()
{
    const Studio Ufficio;
    Parcella Nota = NotaCivile();
    Nota.txtCliente.Testo = u"Gamma"_s;
    Nota.IDCli = Ufficio.AggiungiCliente({{u"Nominativo"_s, u"Gamma"_s}, {u"CodFis"_s, u"01234567890"_s}});
    ScegliDocumento(Nota, StampaContratto);
    QCOMPARE(Nota.optContrTipo, 1);
    Nota.IDCli = Ufficio.AggiungiCliente(u"Rossi Mario"_s);
    ScegliDocumento(Nota, StampaContratto);
    QCOMPARE(Nota.optContrTipo, 0);
}

void TestDatiStampa::rubricaDallaPrimaScheda()
{
    const Studio Ufficio;
    Parcella Nota = ConBlocco(StampaPrenotula, u"scritto a mano"_s);
    const int Cliente =
        Ufficio.AggiungiCliente({{u"Nominativo"_s, u"Verdi Anna"_s}, {u"Citta"_s, u"Lucca"_s}});
    RiceviDaRubrica(Nota, u"cli"_s, Cliente, u"Verdi Anna"_s);
    QCOMPARE(Nota.IDCli, Cliente);
    QCOMPARE(Nota.txtCliente.Testo, u"Verdi Anna"_s);
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"Verdi Anna\nLucca"_s);
    QCOMPARE(Nota.Fuoco, CampoNota::Cliente);
    QVERIFY(Nota.Modificata);

    const int Avversario = Ufficio.AggiungiControparte(u"Bianchi Srl"_s);
    RiceviDaRubrica(Nota, u"con"_s, Avversario, u"Bianchi Srl"_s);
    QCOMPARE(Nota.IDCon, Avversario);
    QCOMPARE(Nota.txtControp.Testo, u"Bianchi Srl"_s);
    QCOMPARE(Nota.txtDatiStaControp.Testo, u"Bianchi Srl"_s);
    QCOMPARE(Nota.Fuoco, CampoNota::Controparte);
    QCOMPARE(Nota.IDCli, Cliente);
}

void TestDatiStampa::rubricaDallaStampa()
{
    const Studio Ufficio;
    Parcella Nota = NotaCivile();
    Nota.cmbTipoStampa = StampaContratto;
    const int Cliente = Ufficio.AggiungiCliente(
        {{u"Nominativo"_s, u"Gamma Spa"_s}, {u"Citta"_s, u"Torino"_s}, {u"RapprLegale"_s, u"Carla Bruni"_s}});
    RiceviDaRubrica(Nota, u"c_cli"_s, Cliente, u"Gamma Spa"_s);
    QCOMPARE(Nota.IDCli, Cliente);
    QCOMPARE(Nota.txtCliente.Testo, u"Gamma Spa"_s);
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"Gamma Spa con sede in Torino"_s);
    QCOMPARE(Nota.Rappr.Nome, u"Carla Bruni"_s);
    QVERIFY2(Nota.Fuoco == CampoNota::Nessuno, "la casella sta su un'altra scheda");

    RiceviDaRubrica(Nota, u"c_con"_s, 9, u"Bianchi Srl"_s);
    QCOMPARE(Nota.IDCon, 9);
    QCOMPARE(Nota.txtControp.Testo, u"Bianchi Srl"_s);
    QCOMPARE(Nota.txtDatiStaControp.Testo, u"Bianchi Srl"_s);
}

void TestDatiStampa::rubricaPerLaSolaStampa()
{
    const Studio Ufficio;
    Parcella Nota = ConBlocco(StampaContratto, u"scritto a mano"_s);
    Nota.IDCon = 4;
    CambiaParte(Nota, ParteNota::Controparte, u"Bianchi Srl"_s);
    CambiaContrTipo(Nota, 1);
    const int Altro = Ufficio.AggiungiCliente(
        {{u"Nominativo"_s, u"Delta Srl"_s}, {u"Citta"_s, u"Pisa"_s}, {u"RapprLegale"_s, u"Ugo Neri"_s}});
    RiceviDaRubrica(Nota, u"c_cli"_s, Altro, u"Delta Srl"_s);
    RiceviDaRubrica(Nota, u"c_con"_s, 5, u"Verdi Spa"_s);
    QCOMPARE(Nota.IDCli, 7);
    QCOMPARE(Nota.IDCon, 4);
    QCOMPARE(Nota.txtCliente.Testo, u"Rossi Mario"_s);
    QCOMPARE(Nota.txtControp.Testo, u"Bianchi Srl"_s);
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"Delta Srl con sede in Pisa"_s);
    QCOMPARE(Nota.txtDatiStaControp.Testo, u"Verdi Spa"_s);
    QCOMPARE(Nota.Rappr.Nome, u"Ugo Neri"_s);
    ScegliDocumento(Nota, StampaInformativa);  // the same form: it stays
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"Delta Srl con sede in Pisa"_s);
}

void TestDatiStampa::rubricaPerLaSolaStampaSenzaRiga()
{
    const Studio Ufficio;
    Parcella Nota = ConBlocco(StampaContratto, u"scritto a mano"_s);
    RiceviDaRubrica(Nota, u"c_cli"_s, 999, u"Delta Srl"_s);
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"Delta Srl"_s);
    Nota.cmbTipoStampa = NessunaVoce;
    RiceviDaRubrica(Nota, u"c_cli"_s, 999, u"Gamma Spa"_s);
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"Gamma Spa"_s);
}

void TestDatiStampa::rubricaConParolaIgnota()
{
    const Parcella Prima = ConBlocco(StampaContratto, u"scritto a mano"_s);
    for (const QString& Parola : {u"CLI"_s, u"cliente"_s, QString()}) {
        Parcella Nota = Prima;
        RiceviDaRubrica(Nota, Parola, 3, u"Verdi Anna"_s);
        QVERIFY(Nota == Prima);
    }
}

void TestDatiStampa::ibanSenzaIban()
{
    const Studio Ufficio;
    Registratore Voce;
    Parcella Nota;
    Voce.Attendi(u"Per esporre l'IBAN occorre prima inserirlo nel quadro Dati Studio del menu Impostazioni"_s,
                 vbOK, u"Messaggio:"_s);
    CambiaIban(Nota, true);
    QVERIFY(!Nota.chkIBAN.Attiva);
    QVERIFY(!Nota.Modificata);
}

void TestDatiStampa::ibanConIban()
{
    const Studio Ufficio;
    sessione::Iban = u"IT60X0542811101000000123456"_s;
    const Registratore Voce;
    Parcella Nota;
    CambiaIban(Nota, true);
    QVERIFY(Nota.chkIBAN.Attiva && Nota.Modificata);
    sessione::Iban.clear();
    CambiaIban(Nota, false);
    QVERIFY(!Nota.chkIBAN.Attiva);
}

void TestDatiStampa::ogniDatoSegnaLaNota()
{
    const Studio Ufficio;
    const QList<std::function<void(Parcella&)>> Modifiche{
        [](Parcella& Nota) { CambiaDatiPar(Nota, DatoNumero, u"1"_s); },
        [](Parcella& Nota) { CambiaParteStampata(Nota, ParteNota::Oggetto, u"x"_s); },
        [](Parcella& Nota) { CambiaContrTipo(Nota, 1); },
        [](Parcella& Nota) { CambiaRappresentante(Nota, &Rappresentante::Nome, u"x"_s); },
        [](Parcella& Nota) { CambiaIvaDifferita(Nota, true); },
        [](Parcella& Nota) { CambiaFatturaAcconto(Nota, true); },
    };
    for (const auto& Modifica : Modifiche) {
        Parcella Nota = NotaCivile();
        SetModificata(Nota, false);
        const Parcella Prima = Nota;
        Modifica(Nota);
        QVERIFY(Nota.Modificata);
        QVERIFY(!(Nota == Prima));
    }
}

void TestDatiStampa::ilDocumentoNonSegnaLaNota()
{
    const Studio Ufficio;
    Parcella Nota = NotaCivile();
    SetModificata(Nota, false);
    for (int Tipo = StampaPrenotula; Tipo <= StampaSoloContabile; ++Tipo)
        ScegliDocumento(Nota, Tipo);
    QVERIFY2(!Nota.Modificata, "guardare un documento non cambia la nota");
}

#include "TestDatiStampa.moc"
