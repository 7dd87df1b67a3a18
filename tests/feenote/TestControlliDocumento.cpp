// What is worth a look before printing in an invoice and its client: number, date, terms, codes.
#include "controlli.h"

#include "feenote/modFatturaXml.h"
#include "platform/base/regionale.h"

using namespace Qt::StringLiterals;
using enum GenereRilievo;

class TestControlliDocumento : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Ufficio = std::make_unique<Studio>(); }
    void cleanup() { Ufficio.reset(); }
    void numero_data();
    void numero();
    void data_data();
    void data();
    void dataDellaPrenotula_data();
    void dataDellaPrenotula();
    void senzaCliente_data();
    void senzaCliente();
    void controparteSenzaNome_data();
    void controparteSenzaNome();
    void codiciDellaScheda_data();
    void codiciDellaScheda();
    void codiciDelBlocco_data();
    void codiciDelBlocco();
    void lAccontoFatturatoTardi_data();
    void lAccontoFatturatoTardi();
    void pagataSenzaFattura_data();
    void pagataSenzaFattura();
    void ilFileNonScritto_data();
    void ilFileNonScritto();

private:
    std::unique_ptr<Studio> Ufficio;
};
PROVA(TestControlliDocumento);

void TestControlliDocumento::numero_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Numero");
    QTest::addColumn<bool>("Manca");
    QTest::newRow("analitica senza") << int(StampaFatturaAnalitica) << QString() << true;
    QTest::newRow("sintetica senza") << int(StampaFatturaSintetica) << QString() << true;
    QTest::newRow("soli spazi") << int(StampaFatturaAnalitica) << u"  "_s << true;
    QTest::newRow("8/a") << int(StampaFatturaAnalitica) << u"8/a"_s << false;
    QTest::newRow("la prenotula non ne ha") << int(StampaPrenotula) << QString() << false;
    QTest::newRow("il preventivo non ne ha") << int(StampaPreventivo) << QString() << false;
}

void TestControlliDocumento::numero()
{
    QFETCH(const int, Tipo);
    QFETCH(const QString, Numero);
    QFETCH(const bool, Manca);
    Parcella Nota = FatturaInRegola();
    ScegliTipoStampa(Nota, Tipo);
    Nota.txtDatiPar[DatoNumFatt] = Numero;
    const Guardata Esito = Guarda(Nota);
    QCOMPARE(Esito.Frasi, Manca ? QStringList{u"La fattura è senza numero"_s} : QStringList());
    if (Manca) {
        QCOMPARE(Esito.Tutti.first().Luogo, LuogoRilievo::NumeroFattura);
        QCOMPARE(Esito.Tutti.first().Gravita, GravitaRilievo::Errore);
    }
}

void TestControlliDocumento::data_data()
{
    QTest::addColumn<QString>("Data");
    QTest::addColumn<QString>("Frase");
    QTest::newRow("manca") << QString() << u"La fattura è senza data"_s;
    QTest::newRow("spazi") << u"   "_s << u"La fattura è senza data"_s;
    QTest::newRow("nessuna data") << u"32/13/26 pippo"_s
                                  << u"La data della fattura non è una data: «32/13/26 pippo»"_s;
    QTest::newRow("30 febbraio") << u"30/02/2026"_s
                                 << u"La data della fattura non è una data: «30/02/2026»"_s;
    QTest::newRow("anno di due cifre") << u"1/3/26"_s << QString();
    QTest::newRow("coi punti") << u"20.11.2026"_s << QString();
    QTest::newRow("oggi") << u"22/11/2026"_s << QString();
    QTest::newRow("domani") << u"23/11/2026"_s << u"La data della fattura deve ancora venire: 23/11/2026"_s;
}

void TestControlliDocumento::data()
{
    QFETCH(const QString, Data);
    QFETCH(const QString, Frase);
    Parcella Nota = FatturaInRegola();
    Nota.txtDatiPar[DatoDataFatt] = Data;
    const Guardata Esito = Guarda(Nota);
    QCOMPARE(Esito.Frasi, Frase.isEmpty() ? QStringList() : QStringList{Frase});
    if (!Frase.isEmpty())
        QCOMPARE(Esito.Tutti.first().Luogo, LuogoRilievo::DataFattura);
    // The same box belongs to no other document.
    ScegliTipoStampa(Nota, StampaPrenotula);
    QCOMPARE(Guarda(Nota).Frasi, QStringList());
}

void TestControlliDocumento::dataDellaPrenotula_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Data");
    QTest::addColumn<bool>("Detta");
    QTest::newRow("senza") << int(StampaPrenotula) << QString() << false;
    QTest::newRow("nessuna data") << int(StampaPrenotula) << u"pippo"_s << true;
    QTest::newRow("del preventivo") << int(StampaPreventivo) << u"31/11/2026"_s << true;
    QTest::newRow("buona") << int(StampaPreventivo) << u"30/11/2026"_s << false;
    QTest::newRow("la nota spese non ne ha") << int(StampaNotaGiudiziale) << u"pippo"_s << false;
}

void TestControlliDocumento::dataDellaPrenotula()
{
    QFETCH(const int, Tipo);
    QFETCH(const QString, Data);
    QFETCH(const bool, Detta);
    Parcella Nota = FatturaInRegola();
    ScegliTipoStampa(Nota, Tipo);
    Nota.txtDatiPar[DatoData] = Data;
    const Guardata Esito = Guarda(Nota);
    QCOMPARE(Esito.Frasi,
             Detta ? QStringList{u"La data del documento non è una data: «%1»"_s.arg(Data)} : QStringList());
    if (Detta) {
        QCOMPARE(Esito.Tutti.first().Luogo, LuogoRilievo::DataDocumento);
        QCOMPARE(Esito.Tutti.first().Gravita, GravitaRilievo::Avviso);
    }
}

void TestControlliDocumento::senzaCliente_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Cliente");
    QTest::addColumn<QString>("Blocco");
    QTest::addColumn<bool>("Legato");
    QTest::addColumn<QString>("Frase");
    QTest::addColumn<int>("Luogo");
    const QString Rossi = u"Rossi Mario"_s;
    QTest::newRow("fattura") << int(StampaFatturaAnalitica) << QString() << QString() << false
                             << u"La fattura è senza cliente"_s << int(LuogoRilievo::Cliente);
    QTest::newRow("prenotula") << int(StampaPrenotula) << u" "_s << QString() << false
                               << u"Manca il cliente"_s << int(LuogoRilievo::Cliente);
    QTest::newRow("tolto dalla stampa") << int(StampaPrenotula) << Rossi << QString() << false
                                        << u"Manca il cliente"_s << int(LuogoRilievo::BloccoCliente);
    QTest::newRow("c'è") << int(StampaPrenotula) << Rossi << Rossi << false << QString() << 0;
    QTest::newRow("legato, con le parole dell'utente")
        << int(StampaFatturaAnalitica) << QString() << Rossi << true
        << u"Il cliente collegato non si trova nell'archivio"_s << int(LuogoRilievo::Cliente);
    QTest::newRow("legato, senza nulla") << int(StampaFatturaAnalitica) << QString() << QString() << true
                                         << u"La fattura è senza cliente"_s << int(LuogoRilievo::Cliente);
    QTest::newRow("la parte contabile non nomina nessuno")
        << int(StampaSoloContabile) << Rossi << QString() << false << QString() << 0;
}

void TestControlliDocumento::senzaCliente()
{
    QFETCH(const int, Tipo);
    QFETCH(const QString, Cliente);
    QFETCH(const QString, Blocco);
    QFETCH(const bool, Legato);
    QFETCH(const QString, Frase);
    QFETCH(const int, Luogo);
    Parcella Nota = FatturaInRegola();
    ScegliTipoStampa(Nota, Tipo);
    Nota.IDCli = Legato ? 7 : 0;
    Nota.txtCliente.Testo = Cliente;
    Nota.txtDatiStaCli.Testo = Blocco;
    const Guardata Esito = Guarda(Nota, std::nullopt);
    QCOMPARE(Esito.Frasi, Frase.isEmpty() ? QStringList() : QStringList{Frase});
    if (!Frase.isEmpty())
        QCOMPARE(int(Esito.Tutti.first().Luogo), Luogo);
}

void TestControlliDocumento::controparteSenzaNome_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Casella");  // of the base tab
    QTest::addColumn<QString>("Stampa");   // the words of the print
    QTest::addColumn<QString>("Legata");   // what is said of one that is linked
    QTest::addColumn<QString>("Slegata");
    const QString SenzaNome = u"La controparte non ha un nome"_s;
    const QString Manca = u"Manca la controparte"_s;
    const QString NonIndicata = u"La controparte non è indicata nel documento"_s;
    const struct
    {
        const char* Nome;
        QString Casella, Stampa;
        QString Testata;  // said on a document with the parties' head
        QString Sole;     // on one that prints the words alone
        QString Resa;     // on the statement, of one that is not linked
    } Casi[]{
        {"nulla", {}, {}, SenzaNome, SenzaNome, Manca},
        {"spazi", u" "_s, u" "_s, SenzaNome, SenzaNome, Manca},
        {"in stampa", {}, u"Neri Carlo"_s, SenzaNome, {}, {}},
        {"in stampa, con uno spazio", u" "_s, u"Neri Carlo"_s, {}, {}, {}},
        {"tolta dalla stampa", u"Neri Carlo"_s, {}, {}, NonIndicata, NonIndicata},
        {"spazi in stampa", u"Neri Carlo"_s, u" "_s, {}, NonIndicata, NonIndicata},
        {"dappertutto", u"Neri Carlo"_s, u"Neri Carlo"_s, {}, {}, {}},
    };
    for (const auto& Caso : Casi) {
        for (const int Tipo :
             {StampaPrenotula, StampaPreventivo, StampaFatturaSintetica, StampaFatturaAnalitica})
            QTest::addRow("%d, %s", Tipo, Caso.Nome)
                << Tipo << Caso.Casella << Caso.Stampa << Caso.Testata << QString();
        for (const int Tipo : {StampaNotaGiudiziale, StampaContratto})
            QTest::addRow("%d, %s", Tipo, Caso.Nome)
                << Tipo << Caso.Casella << Caso.Stampa << Caso.Sole << QString();
        QTest::addRow("%d, %s", int(StampaInformativa), Caso.Nome)
            << int(StampaInformativa) << Caso.Casella << Caso.Stampa << Caso.Sole << Caso.Resa;
        QTest::addRow("%d, %s", int(StampaSoloContabile), Caso.Nome)
            << int(StampaSoloContabile) << Caso.Casella << Caso.Stampa << QString() << QString();
    }
}

/// The head of the page says him only where there is something in the box of the base tab; the court's note,
/// the contract and the statement of information print what was typed for them. In the sentence of the
/// statement a gap is left without them.
void TestControlliDocumento::controparteSenzaNome()
{
    QFETCH(const int, Tipo);
    QFETCH(const QString, Casella);
    QFETCH(const QString, Stampa);
    QFETCH(const QString, Legata);
    QFETCH(const QString, Slegata);
    const auto Detta = [](const Parcella& Nota) {
        QString Frase;
        for (const Rilievo& Trovato : Guarda(Nota).Tutti)
            if (Trovato.Genere == ControparteSenzaNome)
                Frase += Trovato.Frase;
        return Frase;
    };
    Parcella Nota = FatturaInRegola();
    ScegliTipoStampa(Nota, Tipo);
    Nota.txtControp.Testo = Casella;
    Nota.txtDatiStaControp.Testo = Stampa;
    QCOMPARE(Detta(Nota), Slegata);
    Nota.IDCon = 3;
    QCOMPARE(Detta(Nota), Legata);
    // None is missed while the archive has still to say it.
    Nota.NomiAttesi = NomiTenuti();
    QCOMPARE(Detta(Nota), QString());
}

void TestControlliDocumento::codiciDellaScheda_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("CodFis");
    QTest::addColumn<QString>("PIva");
    QTest::addColumn<QString>("Nazione");
    QTest::addColumn<QList<int>>("Generi");
    const auto Riga = [](const char* Nome, int Tipo, const QString& CodFis, const QString& PIva,
                         const QString& Nazione, const QList<GenereRilievo>& Generi) {
        QList<int> Numeri;
        for (const GenereRilievo Uno : Generi)
            Numeri += int(Uno);
        QTest::newRow(Nome) << Tipo << CodFis << PIva << Nazione << Numeri;
    };
    const QString CodFis = u"RSSMRA80A01H501U"_s;
    const QString PIva = u"01234567897"_s;
    const int Fattura = StampaFatturaAnalitica;
    Riga("solo il codice fiscale", Fattura, CodFis, {}, {}, {});
    Riga("solo la partita IVA", Fattura, {}, PIva, {}, {});
    Riga("scritti a gruppi", Fattura, u"RSS MRA 80a01 h501-u"_s, u"IT 012.345.678-97"_s, {}, {});
    Riga("società", Fattura, PIva, PIva, {}, {});
    Riga("nessuno dei due", Fattura, {}, {}, {}, {ClienteSenzaCodici});
    Riga("nessuno dei due, prenotula", StampaPrenotula, {}, {}, {}, {ClienteSenzaCodici});
    Riga("soli spazi", Fattura, u" "_s, u" "_s, {}, {ClienteSenzaCodici});
    Riga("lettera di controllo", Fattura, u"RSSMRA80A01H501V"_s, {}, {}, {CodiceFiscaleErrato});
    Riga("cifra di controllo", Fattura, CodFis, u"01234567898"_s, {}, {PartitaIvaErrata});
    Riga("tutti e due", Fattura, u"RSSMRA80A01H501V"_s, u"123"_s, {},
         {CodiceFiscaleErrato, PartitaIvaErrata});
    Riga("la nota spese dice il nome solo", StampaNotaGiudiziale, u"abc"_s, {}, {}, {});
    Riga("la parte contabile non nomina nessuno", StampaSoloContabile, u"abc"_s, {}, {}, {});
    Riga("il contratto li scrive", StampaContratto, u"abc"_s, {}, {}, {CodiceFiscaleErrato});
    Riga("altro paese, altre regole", Fattura, {}, u"DE123"_s, u"DE"_s, {});
}

void TestControlliDocumento::codiciDellaScheda()
{
    QFETCH(const int, Tipo);
    QFETCH(const QString, CodFis);
    QFETCH(const QString, PIva);
    QFETCH(const QString, Nazione);
    QFETCH(const QList<int>, Generi);
    Parcella Nota = FatturaInRegola();
    ScegliTipoStampa(Nota, Tipo);
    DatiCliente Riga = ClienteInRegola();
    Riga.CodFis = CodFis;
    Riga.PIva = PIva;
    Riga.Nazione = Nazione;
    const Guardata Esito = Guarda(Nota, Riga);
    QList<int> Trovati;
    for (const Rilievo& Detto : Esito.Tutti) {
        Trovati += int(Detto.Genere);
        QCOMPARE(Detto.Luogo,
                 Detto.Genere == PartitaIvaErrata ? LuogoRilievo::PartitaIva : LuogoRilievo::CodiceFiscale);
    }
    QCOMPARE(Trovati, Generi);
    // Nobody knows of an archive that cannot be read.
    QCOMPARE(ControllaNota(Nota, {.Oggi = GiornoControlli, .ArchivioLetto = false}), QList<Rilievo>());
    // A link that leads nowhere is told, where the document would say the codes.
    const Guardata Assente = Guarda(Nota, std::nullopt);
    const bool ConCodici = Tipo != StampaNotaGiudiziale && Tipo != StampaSoloContabile;
    QCOMPARE(Assente.Generi, ConCodici ? QList{ClienteAssente} : QList<GenereRilievo>());
}

void TestControlliDocumento::codiciDelBlocco_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Blocco");
    QTest::addColumn<QString>("Frase");
    QTest::addColumn<bool>("Errore");
    const int Fattura = StampaFatturaSintetica;
    const QString Senza = u"Fra i dati del cliente non si trova codice fiscale né partita IVA"_s;
    QTest::newRow("senza") << Fattura << u"Rossi Mario\nvia Roma 1"_s << Senza << false;
    QTest::newRow("prenotula senza") << int(StampaPrenotula) << u"Rossi Mario"_s << QString() << false;
    QTest::newRow("codice fiscale") << Fattura << u"Rossi Mario\nC.F.: rssmra80a01h501u"_s << QString()
                                    << false;
    QTest::newRow("telefono di undici cifre")
        << Fattura << u"Rossi Mario\ntel. 05512345676\nC.F. RSSMRA80A01H501U"_s << QString() << false;
    QTest::newRow("telefono e basta") << Fattura << u"Rossi Mario\ntel. 05512345676"_s << Senza << false;
    QTest::newRow("altro paese") << Fattura << u"Muster GmbH\nVAT DE123456789"_s << QString() << false;
    QTest::newRow("lettera sbagliata")
        << Fattura << u"Rossi Mario C.F. RSSMRA80A01H501V"_s
        << u"Il codice fiscale del cliente non torna: RSSMRA80A01H501V"_s << true;
    QTest::newRow("lettera sbagliata, senza dire che è")
        << Fattura << u"Rossi Mario RSSMRA80A01H501V"_s
        << u"Il codice fiscale del cliente non torna: RSSMRA80A01H501V"_s << false;
    QTest::newRow("cifra sbagliata") << Fattura << u"Alfa Srl P.IVA 01234567898"_s
                                     << u"La partita IVA del cliente non torna: 01234567898"_s << true;
}

void TestControlliDocumento::codiciDelBlocco()
{
    QFETCH(const int, Tipo);
    QFETCH(const QString, Blocco);
    QFETCH(const QString, Frase);
    QFETCH(const bool, Errore);
    Parcella Nota = FatturaInRegola();
    ScegliTipoStampa(Nota, Tipo);
    Nota.IDCli = 0;
    Nota.txtDatiStaCli.Testo = Blocco;
    const Guardata Esito = Guarda(Nota, std::nullopt);
    QCOMPARE(Esito.Frasi, Frase.isEmpty() ? QStringList() : QStringList{Frase});
    if (Frase.isEmpty())
        return;
    QCOMPARE(Esito.Tutti.first().Luogo, LuogoRilievo::BloccoCliente);
    QCOMPARE(Esito.Tutti.first().Gravita, Errore ? GravitaRilievo::Errore : GravitaRilievo::Avviso);
}

void TestControlliDocumento::lAccontoFatturatoTardi_data()
{
    QTest::addColumn<bool>("InAcconto");
    QTest::addColumn<QString>("Descrizione");
    QTest::addColumn<QString>("DataFattura");
    QTest::addColumn<QString>("Frase");
    const auto Riga = [](const char* Nome, bool InAcconto, const QString& Descrizione, const QString& Data,
                         const QString& Frase) {
        QTest::newRow(Nome) << InAcconto << Descrizione << Data << Frase;
    };
    const QString Tardi =
        u"L'acconto del 05/10/2026 andava fatturato entro il 17/10/2026: 12 giorni dal pagamento"_s;
    Riga("al dodicesimo giorno", true, u"bonifico del 05/10/2026"_s, u"17/10/2026"_s, {});
    Riga("al tredicesimo", true, u"bonifico del 05/10/2026"_s, u"18/10/2026"_s, Tardi);
    Riga("anno di due cifre, coi punti", true, u"5.10.26 bonifico"_s, u"18/10/2026"_s, Tardi);
    Riga("non datata: conta oggi", true, u"bonifico del 05/10/2026"_s, {}, Tardi);
    Riga("l'ultimo pagamento conta", true, u"05/10/2026 e 10/11/2026"_s, u"20/11/2026"_s, {});
    Riga("una fattura a saldo", false, u"bonifico del 05/10/2026"_s, u"18/10/2026"_s, {});
    Riga("senza data", true, u"bonifico"_s, u"18/10/2026"_s, {});
    Riga("numeri che non sono date", true, u"R.G. 12/2026, IBAN 99/99/2026"_s, u"18/10/2026"_s, {});
    Riga("quando il termine non c'era", true, u"acconto del 30/06/2019"_s, u"18/10/2026"_s, {});
    Riga("il primo giorno del termine", true, u"acconto del 01/07/2019"_s, u"18/10/2026"_s,
         u"L'acconto del 01/07/2019 andava fatturato entro il 13/07/2019: 12 giorni dal pagamento"_s);
    Riga("numero dentro un altro", true, u"n. 105/10/20261"_s, u"20/11/2026"_s, {});
    Riga("data futura", true, u"entro il 05/12/2026"_s, u"20/11/2026"_s, {});
}

void TestControlliDocumento::lAccontoFatturatoTardi()
{
    QFETCH(const bool, InAcconto);
    QFETCH(const QString, Descrizione);
    QFETCH(const QString, DataFattura);
    QFETCH(const QString, Frase);
    Parcella Nota = FatturaInRegola();
    Nota.chkFattAcc.Attiva = InAcconto;
    Nota.txtDatiPar[DatoDataFatt] = DataFattura;
    RigaAcconto(Nota, u"E"_s, 100.0, 0.0, 0.0);
    const int Riga = RigaAcconto(Nota, u"E"_s, 100.0, 0.0, 0.0);
    Nota.xAcconti(Riga, AccDescr) = Descrizione;
    Guardata Esito = Guarda(Nota);
    Esito.Frasi.removeAll(u"La fattura è senza data"_s);
    QCOMPARE(Esito.Frasi, Frase.isEmpty() ? QStringList() : QStringList{Frase});
    if (Frase.isEmpty())
        return;
    QCOMPARE(Esito.Tutti.last().Luogo, LuogoRilievo::Acconti);
    QCOMPARE(Esito.Tutti.last().Riga, Riga);
    ScegliTipoStampa(Nota, StampaPrenotula);
    QCOMPARE(Guarda(Nota).Frasi, QStringList());
}

void TestControlliDocumento::pagataSenzaFattura_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<int>("Stato");
    QTest::addColumn<QString>("Dal");
    QTest::addColumn<QString>("Acconto");
    QTest::addColumn<bool>("Numera");
    QTest::addColumn<bool>("Detta");
    const auto Riga = [](const char* Nome, StatoNota Stato, const QString& Dal, bool Detta,
                         int Tipo = StampaPrenotula, const QString& Acconto = {}, bool Numera = true) {
        QTest::newRow(Nome) << Tipo << int(Stato) << Dal << Acconto << Numera << Detta;
    };
    using enum StatoNota;
    Riga("al dodicesimo giorno", Pagata, u"10/11/2026"_s, false);
    Riga("al tredicesimo", Pagata, u"09/11/2026"_s, true);
    Riga("al tredicesimo, fattura in vista", Pagata, u"09/11/2026"_s, true, StampaFatturaAnalitica);
    Riga("inviata", Inviata, u"09/11/2026"_s, false);
    Riga("il giorno non si sa", Pagata, {}, false);
    Riga("di un anno fa", Pagata, u"21/11/2025"_s, false);
    Riga("il preventivo non chiede nulla", Pagata, u"09/11/2026"_s, false, StampaPreventivo);
    Riga("acconto con la sua fattura", Pagata, u"09/11/2026"_s, false, StampaPrenotula, u"come da Fatt. 3"_s);
    Riga("acconto e basta", Pagata, u"09/11/2026"_s, true, StampaPrenotula, u"bonifico"_s);
    Riga("studio che numera altrove", Pagata, u"09/11/2026"_s, false, StampaPrenotula, {}, false);
}

void TestControlliDocumento::pagataSenzaFattura()
{
    QFETCH(const int, Tipo);
    QFETCH(const int, Stato);
    QFETCH(const QString, Dal);
    QFETCH(const QString, Acconto);
    QFETCH(const bool, Numera);
    QFETCH(const bool, Detta);
    Parcella Nota = FatturaInRegola();
    ScegliTipoStampa(Nota, Tipo);
    Nota.Stato.Stato = StatoNota(Stato);
    Nota.Stato.Giorni[size_t(Stato)] = Dal;
    Nota.xAcconti(RigaAcconto(Nota, u"E"_s, 100.0, 0.0, 0.0), AccDescr) = Acconto;
    const DatiCliente Cliente = ClienteInRegola();
    const auto Frasi = [&] {
        QStringList Lette;
        for (const Rilievo& Detto :
             ControllaNota(Nota, {.Oggi = GiornoControlli, .Cliente = &Cliente, .Numera = Numera})) {
            Lette += Detto.Frase;
            if (Detto.Genere == TermineScaduto)
                Lette += CStr(int(Detto.Luogo));
        }
        return Lette;
    };
    QCOMPARE(Frasi(), QStringList());  // it has its invoice
    Nota.txtDatiPar[DatoNumFatt].clear();
    QStringList Lette = Frasi();
    Lette.removeAll(u"La fattura è senza numero"_s);
    const LuogoRilievo Luogo =
        Tipo == StampaFatturaAnalitica ? LuogoRilievo::NumeroFattura : LuogoRilievo::Documento;
    QCOMPARE(Lette,
             Detta ? QStringList({u"Manca la fattura di questa parcella, segnata come pagata il 09/11/2026"_s,
                                  CStr(int(Luogo))})
                   : QStringList());
}

void TestControlliDocumento::ilFileNonScritto_data()
{
    QTest::addColumn<bool>("ScriveXml");
    QTest::addColumn<QString>("Data");
    QTest::addColumn<bool>("Scritta");
    QTest::addColumn<bool>("Detto");
    QTest::newRow("al dodicesimo giorno") << true << u"10/11/2026"_s << false << false;
    QTest::newRow("al tredicesimo") << true << u"09/11/2026"_s << false << true;
    QTest::newRow("scritta") << true << u"09/11/2026"_s << true << false;
    QTest::newRow("studio che li scrive altrove") << false << u"09/11/2026"_s << false << false;
    QTest::newRow("di un anno fa") << true << u"22/11/2025"_s << false << true;
    QTest::newRow("di piu' di un anno fa") << true << u"21/11/2025"_s << false << false;
}

void TestControlliDocumento::ilFileNonScritto()
{
    QFETCH(const bool, ScriveXml);
    QFETCH(const QString, Data);
    QFETCH(const bool, Scritta);
    QFETCH(const bool, Detto);
    Parcella Nota = FatturaInRegola();
    Nota.txtDatiPar[DatoDataFatt] = Data;
    if (Scritta)
        SegnaFatturaScritta(Nota, u"IT01234567897_00001.xml"_s, u"00001"_s);
    const Guardata Esito = Guarda(Nota, ClienteInRegola(), ScriveXml);
    QCOMPARE(Esito.Generi, Detto ? QList{TermineScaduto} : QList<GenereRilievo>());
    if (!Detto)
        return;
    QCOMPARE(Esito.Tutti.first().Luogo, LuogoRilievo::FatturaXml);
    QVERIFY(Esito.Frasi.first().startsWith(
        u"Il file della fattura elettronica non è scritto: il termine era il "));
    // What has no number is told of that alone.
    Nota.txtDatiPar[DatoNumFatt].clear();
    QCOMPARE(Guarda(Nota, ClienteInRegola(), ScriveXml).Generi, QList{NumeroMancante});
}

#include "TestControlliDocumento.moc"
