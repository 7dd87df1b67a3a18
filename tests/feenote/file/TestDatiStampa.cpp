// Print data: what each document asks for, texts that two tabs share, the IBAN.
#include "datistampa.h"

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
