// Office, client and choices of an electronic invoice as settings, archive and note hold them.
#include "feenote/nota_prova.h"
#include "feenote/notadamille.h"

#include "addressbook/modClienti.h"
#include "feenote/einvoice/adattatori.h"
#include "feenote/modFatturaXml.h"
#include "feenote/modStato.h"

using namespace Qt::StringLiterals;

class TestAdattatori : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { AzzeraSessione(); }
    void cleanup() { AzzeraSessione(); }

    void cedente();
    void cedenteSenzaNomi_data();
    void cedenteSenzaNomi();
    void nomi_data();
    void nomi();
    void nazioni_data();
    void nazioni();
    void generi_data();
    void generi();
    void indirizzo();
    void indirizzoEstero();
    void senzaLegame();
    void scelte();
    void scelteSbagliate_data();
    void scelteSbagliate();
    void formato_data();
    void formato();
    void notaDiCreditoDiUnaDiPrima();
};
PROVA(TestAdattatori);

namespace {

DatiCliente Mario()
{
    DatiCliente Riga;
    Riga.Nominativo = u"Rossi Mario"_s;
    Riga.Indirizzo = u"Via Roma, 12"_s;
    Riga.Cap = u"55100"_s;
    Riga.Citta = u"Lucca"_s;
    Riga.Prov = u"LU"_s;
    Riga.CodFis = u"RSSMRA80A01H501U"_s;
    Riga.Pec = u"rossi@pec.example"_s;
    Riga.CodDestinatario = u"ABC1234"_s;
    return Riga;
}

}  // namespace

void TestAdattatori::cedente()
{
    sessione::TipoStudio = u"P"_s;
    sessione::StudioNome = u"Studio Conti"_s;
    sessione::StudioTitolareNome = u"Laura"_s;
    sessione::StudioTitolareCognome = u"Conti"_s;
    sessione::StudioPIva = u"01234567897"_s;
    sessione::StudioCodFisc = u"CNTLRA70A41E715E"_s;
    sessione::StudioVia = u"Via Fillungo"_s;
    sessione::StudioCivico = u"3"_s;
    sessione::StudioCap = u"55100"_s;
    sessione::StudioComune = u"Lucca"_s;
    sessione::StudioProv = u"LU"_s;
    sessione::RegimeFiscale = u"RF19"_s;
    sessione::Iban = u"IT60X0542811101000000123456"_s;
    sessione::StudioMail = u"conti@studio.example"_s;
    Cedente Atteso;
    Atteso.PartitaIva = u"01234567897"_s;
    Atteso.CodiceFiscale = u"CNTLRA70A41E715E"_s;
    Atteso.Nome = u"Laura"_s;
    Atteso.Cognome = u"Conti"_s;
    Atteso.Indirizzo = {u"Via Fillungo"_s, u"3"_s, u"55100"_s, u"Lucca"_s, u"LU"_s, u"IT"_s};
    Atteso.Regime = u"RF19"_s;
    Atteso.Iban = u"IT60X0542811101000000123456"_s;
    Atteso.Email = u"conti@studio.example"_s;
    QVERIFY(CedenteDaImpostazioni() == Atteso);
    sessione::StudioPec = u"conti@pec.example"_s;
    QCOMPARE(CedenteDaImpostazioni().Email, u"conti@pec.example"_s);
    // The address of paper is not taken in silence.
    sessione::StudioVia.clear();
    sessione::StudioIndir = u"Via Fillungo, 3"_s;
    QCOMPARE(CedenteDaImpostazioni().Indirizzo.Indirizzo, QString());
}

void TestAdattatori::cedenteSenzaNomi_data()
{
    QTest::addColumn<QString>("Tipo");
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<GenereStudio>("Genere");
    QTest::newRow("a person without a first name") << u"P"_s << QString() << GenereStudio::PersonaFisica;
    QTest::newRow("an association has none") << u"A"_s << u"Laura"_s << GenereStudio::Associazione;
    QTest::newRow("a company has none") << u"S"_s << u"Laura"_s << GenereStudio::Societa;
}

void TestAdattatori::cedenteSenzaNomi()
{
    QFETCH(QString, Tipo);
    QFETCH(QString, Nome);
    sessione::TipoStudio = Tipo;
    sessione::StudioNome = u"Studio Conti"_s;
    sessione::StudioTitolareNome = Nome;
    sessione::StudioTitolareCognome = u"Conti"_s;
    const Cedente Fatto = CedenteDaImpostazioni();
    QCOMPARE(Fatto.Denominazione, u"Studio Conti"_s);
    QVERIFY(Fatto.Nome.isEmpty() || Fatto.Cognome.isEmpty());
    QTEST(Fatto.Genere, "Genere");
}

void TestAdattatori::nomi_data()
{
    QTest::addColumn<QString>("Nominativo");
    QTest::addColumn<QString>("CodFis");
    QTest::addColumn<QString>("Cognome");
    QTest::addColumn<QString>("Nome");
    const auto Riga = [](const char* Perche, const QString& Nominativo, const QString& CodFis,
                         const QString& Cognome, const QString& Nome) {
        QTest::newRow(Perche) << Nominativo << CodFis << Cognome << Nome;
    };
    Riga("family name first", u"Rossi Mario"_s, u"RSSMRA80A01H501U"_s, u"Rossi"_s, u"Mario"_s);
    Riga("first name first", u"Mario Rossi"_s, u"rssmra80a01h501u"_s, u"Rossi"_s, u"Mario"_s);
    Riga("double family name", u"De Luca Maria"_s, u"DLCMRA80A01H501X"_s, u"De Luca"_s, u"Maria"_s);
    Riga("accent, four consonants", u"Bianchi Niccolò"_s, u"BNCNCL85T10E715S"_s, u"Bianchi"_s, u"Niccolò"_s);
    Riga("few letters", u"Fo Dario"_s, u"FOXDRA26C24H501X"_s, u"Fo"_s, u"Dario"_s);
    Riga("apostrophe", u"D'Alò Ada"_s, u"DLADAA80A41H501X"_s, u"D'Alò"_s, u"Ada"_s);
    Riga("an accented vowel that counts", u"Rossi Noè"_s, u"RSSNOE80A01H501X"_s, u"Rossi"_s, u"Noè"_s);
    Riga("another person's code", u"Rossi Mario"_s, u"VRDNNA80A41H501X"_s, {}, {});
    Riga("both orders fit", u"Rossi Rossi"_s, u"RSSRSS80A01H501X"_s, u"Rossi"_s, u"Rossi"_s);
    Riga("two orders, two persons", u"Fabio Fabia"_s, u"FBAFBA80A01H501X"_s, {}, {});
    Riga("a title in front", u"Dott. Rossi Mario"_s, u"RSSMRA80A01H501U"_s, {}, {});
    Riga("a company's code", u"Rossi Mario"_s, u"01234567897"_s, {}, {});
    Riga("one word", u"Rossi"_s, u"RSSMRA80A01H501U"_s, {}, {});
    Riga("no code", u"Rossi Mario"_s, {}, {}, {});
}

void TestAdattatori::nomi()
{
    QFETCH(QString, Nominativo);
    QFETCH(QString, CodFis);
    const auto [Cognome, Nome] = CognomeENome(Nominativo, CodFis);
    QTEST(Cognome, "Cognome");
    QTEST(Nome, "Nome");
    DatiCliente Riga = Mario();
    Riga.Nominativo = Nominativo;
    Riga.CodFis = CodFis;
    QCOMPARE(CessionarioDaRiga(Riga).Denominazione, Cognome.isEmpty() ? Nominativo : QString());
}

void TestAdattatori::nazioni_data()
{
    QTest::addColumn<QString>("Nazione");
    QTest::addColumn<QString>("PIva");
    QTest::addColumn<QString>("Tipo");
    QTest::addColumn<QString>("Attesa");
    QTest::newRow("nothing said") << QString() << QString() << QString() << u"IT"_s;
    QTest::newRow("said") << u"DE"_s << QString() << QString() << u"DE"_s;
    QTest::newRow("by the VAT number") << QString() << u"FR12345678901"_s << QString() << u"FR"_s;
    QTest::newRow("Greece") << QString() << u"EL123456789"_s << QString() << u"GR"_s;
    QTest::newRow("Italian VAT number") << QString() << u"IT01234567897"_s << QString() << u"IT"_s;
    QTest::newRow("Germany") << QString() << u"DE 123456789"_s << QString() << u"DE"_s;
    QTest::newRow("Switzerland") << QString() << u"CHE-123.456.789 MWST"_s << QString() << u"CH"_s;
    QTest::newRow("Netherlands") << QString() << u"NL123456789B01"_s << QString() << u"NL"_s;
    // What else stands in the box tells of no country.
    for (const QString& Altro :
         {u"RSSMRA80A01H501U"_s, u"DLSMRA80A01H501M"_s, u"PI01234567897"_s, u"CF01234567897"_s,
          u"VAT01234567897"_s, u"nessuna"_s, u"no"_s, u"NE"_s, u"DE12345678"_s, u"FR1234567890"_s, u"RO12"_s})
        QTest::newRow(qPrintable(u"no country in "_s + Altro)) << QString() << Altro << QString() << u"IT"_s;
    QTest::newRow("the column counts") << u"AT"_s << u"DE123456789"_s << QString() << u"AT"_s;
    QTest::newRow("abroad, nobody says where") << QString() << QString() << u"Estero"_s << u"??"_s;
}

void TestAdattatori::nazioni()
{
    QFETCH(QString, Nazione);
    QFETCH(QString, PIva);
    QFETCH(QString, Tipo);
    DatiCliente Riga = Mario();
    Riga.Nazione = Nazione;
    Riga.PIva = PIva;
    Riga.TipoSoggetto = Tipo;
    QTEST(CessionarioDaRiga(Riga).Indirizzo.Nazione, "Attesa");
}

void TestAdattatori::generi_data()
{
    QTest::addColumn<QString>("Tipo");
    QTest::addColumn<QString>("CodFis");
    QTest::addColumn<QString>("PIva");
    QTest::addColumn<QString>("Codice");
    QTest::addColumn<GenereCliente>("Genere");
    using enum GenereCliente;
    QTest::newRow("person") << QString() << u"RSSMRA80A01H501U"_s << QString() << u"ABC1234"_s << Persona;
    QTest::newRow("company") << QString() << u"01234567897"_s << u"01234567897"_s << u"ABC1234"_s << Societa;
    QTest::newRow("public office by its code")
        << QString() << u"01234567897"_s << QString() << u"UFAB12"_s << PubblicaAmministrazione;
    QTest::newRow("public office by its card")
        << u"PA"_s << u"01234567897"_s << QString() << QString() << PubblicaAmministrazione;
    QTest::newRow("foreign person") << u"Estero"_s << QString() << QString() << QString() << Persona;
    QTest::newRow("foreign company") << u"Estero"_s << QString() << u"DE123456789"_s << QString() << Societa;
}

void TestAdattatori::generi()
{
    QFETCH(QString, Tipo);
    QFETCH(QString, CodFis);
    QFETCH(QString, PIva);
    QFETCH(QString, Codice);
    DatiCliente Riga = Mario();
    Riga.TipoSoggetto = Tipo;
    Riga.CodFis = CodFis;
    Riga.PIva = PIva;
    Riga.CodDestinatario = Codice;
    QTEST(CessionarioDaRiga(Riga).Genere, "Genere");
}

void TestAdattatori::indirizzo()
{
    const Cessionario Cliente = CessionarioDaRiga(Mario());
    const Sede Attesa{u"Via Roma"_s, u"12"_s, u"55100"_s, u"Lucca"_s, u"LU"_s, u"IT"_s};
    QVERIFY(Cliente.Indirizzo == Attesa);
    QCOMPARE(Cliente.CodiceDestinatario, u"ABC1234"_s);
    QCOMPARE(Cliente.Pec, u"rossi@pec.example"_s);
    DatiCliente Lungo = Mario();
    Lungo.Indirizzo = u"Via Roma, 12345/1234"_s;  // more than the file's number of the house takes
    QCOMPARE(CessionarioDaRiga(Lungo).Indirizzo.Indirizzo, Lungo.Indirizzo);
    QCOMPARE(CessionarioDaRiga(Lungo).Indirizzo.NumeroCivico, QString());
}

void TestAdattatori::indirizzoEstero()
{
    DatiCliente Riga = Mario();
    Riga.Indirizzo = u"12 Rue de Rivoli 3"_s;
    Riga.Nazione = u"FR"_s;
    QCOMPARE(CessionarioDaRiga(Riga).Indirizzo.Indirizzo, Riga.Indirizzo);
    QCOMPARE(CessionarioDaRiga(Riga).Indirizzo.NumeroCivico, QString());
}

void TestAdattatori::senzaLegame()
{
    const Studio Ufficio;
    Parcella Nota;
    QVERIFY(CessionarioDellaNota(Nota) == Cessionario());
    Nota.IDCli = 77;
    QVERIFY(CessionarioDellaNota(Nota) == Cessionario());
    Nota.IDCli = Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    QCOMPARE(CessionarioDellaNota(Nota).Denominazione, u"Verdi Anna"_s);
}

void TestAdattatori::scelte()
{
    Parcella Nota;
    SceltaFattura Scelta = SceltaDellaNota(Nota, {});
    QCOMPARE(Scelta.Tipo, u"TD01"_s);
    QCOMPARE(Scelta.Modalita, u"MP05"_s);
    QVERIFY(Scelta.Collegate.isEmpty() && !Scelta.Contratto && Scelta.Scadenza.isNull());
    Nota.FatturaXml.Tipo = u"TD04"_s;
    Nota.FatturaXml.Scissione = true;
    Nota.FatturaXml.BolloAddebitato = true;
    Nota.FatturaXml.Natura = u"N4"_s;
    Nota.FatturaXml.Modalita = u"-"_s;
    Nota.FatturaXml.Scadenza = u"31/12/2026"_s;
    Nota.FatturaXml.CitataNumero = u" 7 "_s;
    Nota.FatturaXml.CitataData = u"1/2/2026"_s;
    Nota.FatturaXml.Cig = u"Z12"_s;
    Scelta = SceltaDellaNota(Nota, {});
    QCOMPARE(Scelta.Tipo, u"TD04"_s);
    QVERIFY(Scelta.ScissionePagamenti && Scelta.BolloAddebitato);
    QCOMPARE(Scelta.Natura, u"N4"_s);
    QCOMPARE(Scelta.Modalita, QString());
    QCOMPARE(Scelta.Scadenza, QDate(2026, 12, 31));
    QCOMPARE(Scelta.Collegate.size(), 1);
    QCOMPARE(Scelta.Collegate.first().Numero, u"7"_s);
    QCOMPARE(Scelta.Collegate.first().Data, QDate(2026, 2, 1));
    QVERIFY(Scelta.Contratto);
    QCOMPARE(Scelta.Contratto->Cig, u"Z12"_s);
    Nota.FatturaXml.Scadenza = u"domani"_s;
    QVERIFY(SceltaDellaNota(Nota, {}).Scadenza.isNull());
}

void TestAdattatori::scelteSbagliate_data()
{
    QTest::addColumn<QString>("Scadenza");
    QTest::addColumn<QString>("Numero");
    QTest::addColumn<QString>("Data");
    QTest::addColumn<QString>("Frase");
    QTest::newRow("nothing") << QString() << QString() << QString() << QString();
    QTest::newRow("all right") << u"31/12/2026"_s << u"7"_s << u"1/2/2026"_s << QString();
    QTest::newRow("no such day") << u"31/02/2027"_s << QString() << QString()
                                 << u"La scadenza non è una data: 31/02/2027"_s;
    QTest::newRow("number alone") << QString() << u"7"_s << QString()
                                  << u"Manca la data della fattura citata"_s;
    QTest::newRow("date alone") << QString() << QString() << u"1/2/2026"_s
                                << u"Manca il numero della fattura citata"_s;
    QTest::newRow("cited date") << QString() << u"7"_s << u"ieri"_s
                                << u"La data della fattura citata non è una data: ieri"_s;
}

void TestAdattatori::scelteSbagliate()
{
    QFETCH(QString, Scadenza);
    QFETCH(QString, Numero);
    QFETCH(QString, Data);
    QFETCH(QString, Frase);
    const Studio Ufficio;
    Parcella Nota;
    Nota.FatturaXml.Scadenza = Scadenza;
    Nota.FatturaXml.CitataNumero = Numero;
    Nota.FatturaXml.CitataData = Data;
    const QList<MancanzaFattura> Dette = MancanzeDelleScelte(Nota);
    QCOMPARE(Dette.size(), Frase.isEmpty() ? 0 : 1);
    if (Frase.isEmpty())
        return;
    QCOMPARE(Dette.first().Messaggio, Frase);
    // Whoever composes from the note hears of it.
    QVERIFY(ComponiDellaNota(Nota, u"00001"_s, QDate(2026, 11, 22)).Mancanze.contains(Dette.first()));
}

void TestAdattatori::formato_data()
{
    QTest::addColumn<QString>("Detto");
    QTest::addColumn<GenereCliente>("Genere");
    QTest::addColumn<QString>("Formato");
    QTest::newRow("private") << QString() << GenereCliente::Societa << u"FPR12"_s;
    QTest::newRow("public") << QString() << GenereCliente::PubblicaAmministrazione << u"FPA12"_s;
    QTest::newRow("the user says public") << u"PA"_s << GenereCliente::Societa << u"FPA12"_s;
    QTest::newRow("the user says private") << u"PR"_s << GenereCliente::PubblicaAmministrazione << u"FPR12"_s;
}

void TestAdattatori::formato()
{
    QFETCH(QString, Detto);
    QFETCH(GenereCliente, Genere);
    Parcella Nota;
    Nota.FatturaXml.Destinatario = Detto;
    Cessionario Cliente;
    Cliente.Genere = Genere;
    QTEST(SceltaDellaNota(Nota, Cliente).Formato, "Formato");
}

/// The older of two invoices is to be taken back: its number is typed, and goes into the citation.
void TestAdattatori::notaDiCreditoDiUnaDiPrima()
{
    Parcella Nota = NotaDaMille(StampaFatturaAnalitica);
    Nota.txtDatiPar[DatoDataFatt] = u"09/11/2026"_s;
    for (const QString& Numero : {u"12"_s, u"30"_s}) {
        Nota.txtDatiPar[DatoNumFatt] = Numero;
        SegnaFatturaScritta(Nota, Numero + u".xml"_s, Numero);
    }
    Nota.txtDatiPar[DatoNumFatt] = u"12"_s;
    QVERIFY(CambiaTipoFattura(Nota, u"TD04"_s));
    QCOMPARE(Nota.FatturaXml.CitataNumero, u"12/2026"_s);
    QCOMPARE(Nota.FatturaXml.CitataData, u"09/11/2026"_s);
    QCOMPARE(Nota.DatiPar(DatoNumFatt) + Nota.DatiPar(DatoDataFatt), QString());
    QVERIFY(CambiaTipoFattura(Nota, QString()));
    QCOMPARE(Nota.DatiPar(DatoNumFatt), u"12"_s);
    QCOMPARE(Nota.DatiPar(DatoDataFatt), u"09/11/2026"_s);
    QCOMPARE(Nota.FatturaXml.CitataNumero, QString());
    // Whichever file was written last.
    SegnaFatturaScritta(Nota, u"di nuovo.xml"_s, u"31"_s);
    Nota.txtDatiPar[DatoNumFatt] = u"30"_s;
    QVERIFY(CambiaTipoFattura(Nota, u"TD04"_s));
    QCOMPARE(Nota.FatturaXml.CitataNumero, u"30/2026"_s);
    QVERIFY(CambiaTipoFattura(Nota, QString()));
    QCOMPARE(Nota.DatiPar(DatoNumFatt), u"30"_s);
}

#include "TestAdattatori.moc"
