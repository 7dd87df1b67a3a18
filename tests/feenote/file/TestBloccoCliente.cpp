// The block of the client in the print data: whose it is, what fills it, when it gives way.
#include "datistampa.h"

using namespace Qt::StringLiterals;

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

class TestBloccoCliente : public QObject
{
    Q_OBJECT
private Q_SLOTS:
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
};
PROVA(TestBloccoCliente);

void TestBloccoCliente::ilBloccoScrittoResta_data()
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

void TestBloccoCliente::ilBloccoScrittoResta()
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

void TestBloccoCliente::unSoloBloccoPerTutti_data()
{
    QTest::addColumn<int>("Scritto");
    QTest::newRow("scritto in testa") << int(StampaPrenotula);
    QTest::newRow("scritto nella nota spese") << int(StampaNotaGiudiziale);
    QTest::newRow("scritto nel contratto") << int(StampaContratto);
}

void TestBloccoCliente::unSoloBloccoPerTutti()
{
    QFETCH(int, Scritto);
    Parcella Nota = NotaCivile();
    ScriviNel(Nota, Scritto, Righe);
    ScriviNel(Nota, Scritto, Righe + u"\nC.F. X"_s);  // the same form, once more
    for (const int Tipo : {StampaFatturaSintetica, StampaNotaGiudiziale, StampaContratto, StampaPrenotula})
        QCOMPARE(BloccoDi(Nota, Tipo), Righe + u"\nC.F. X"_s);
    QCOMPARE(BloccoDi(Nota, StampaInformativa, 1), Righe + u"\nC.F. X"_s);
}

void TestBloccoCliente::ogniFormaIlSuoBlocco()
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

void TestBloccoCliente::ilBloccoLegatoNonPassaAlleAltreForme()
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

void TestBloccoCliente::ilNomeTornaAllaPrimaScheda_data()
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

void TestBloccoCliente::ilNomeTornaAllaPrimaScheda()
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

void TestBloccoCliente::ilBloccoCedeAlCliente()
{
    const Studio Ufficio;
    Parcella Nota = ConBlocco(StampaPrenotula, u"scritto a mano"_s);
    CambiaParte(Nota, ParteNota::Cliente, u"Neri Ugo"_s);
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"Neri Ugo"_s);
    Nota.IDCli = 0;
    ScegliDocumento(Nota, StampaPrenotula);
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"Neri Ugo"_s);
}

void TestBloccoCliente::ilBloccoNonCedeAllOggetto()
{
    const Studio Ufficio;
    Parcella Nota = ConBlocco(StampaPrenotula, u"scritto a mano"_s);
    CambiaParte(Nota, ParteNota::Oggetto, u"Sfratto"_s);
    CambiaParte(Nota, ParteNota::Controparte, u"Bianchi Srl"_s);
    ScegliDocumento(Nota, StampaPreventivo);
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"scritto a mano"_s);
}

void TestBloccoCliente::bloccoDiUnClienteLegato()
{
    const Studio Ufficio;
    Parcella Nota = NotaCivile();
    Nota.IDCli = Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    Nota.txtCliente.Testo = u"Verdi Anna"_s;
    ScegliDocumento(Nota, StampaNotaGiudiziale);
    QCOMPARE(Nota.txtDatiStaCli.Testo, u"Verdi Anna"_s);
}

void TestBloccoCliente::clienteLegatoSparito()
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

void TestBloccoCliente::bloccoAllApertura()
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

void TestBloccoCliente::svuotareDissocia_data()
{
    QTest::addColumn<int>("Quale");
    QTest::addColumn<QString>("Avviso");
    QTest::newRow("cliente") << int(ParteNota::Cliente) << u"Il cliente è stato dissociato dalla parcella!"_s;
    QTest::newRow("controparte") << int(ParteNota::Controparte)
                                 << u"La controparte è stata dissociata dalla parcella!"_s;
}

void TestBloccoCliente::svuotareDissocia()
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

void TestBloccoCliente::societaDallArchivio_data()
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

void TestBloccoCliente::societaDallArchivio()
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

void TestBloccoCliente::laSceltaDelTipoResta()
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

void TestBloccoCliente::altroClienteAltroTipo()
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

#include "TestBloccoCliente.moc"
