// What keeps an electronic invoice from being written: one sentence, and the field that it leads to.
#include "fattura_prova.h"

#include "feenote/einvoice/testi.h"

using namespace Qt::StringLiterals;
using namespace fattura_prova;

namespace {

/// Everything that an invoice is made of, to be spoilt.
struct Pezzi
{
    Parcella DaNota;
    Cedente Studio = Avvocato();
    Cessionario Cliente = Societa();
    SceltaFattura Sua;
};

struct Guasto
{
    const char* Nome;
    std::function<void(Pezzi&)> Rovina;
    CampoFattura Dove;
    QString Dice;
};

Pezzi Interi()
{
    Pezzi Tutti;
    Tutti.DaNota = Nota({.Onorari = {100000}, .SpeseGen = 1500, .CP = 400, .IVA = 2200, .RA = 2000});
    Tutti.Sua = Scelta(Tutti.DaNota);
    return Tutti;
}

Composizione Componi(const Pezzi& Da)
{
    return ComponiFatturaElettronica(Da.DaNota, Da.Studio, Da.Cliente, Da.Sua, Giorno);
}

void Acconto(Parcella& DaNota, double Corrispettivi)
{
    const int Riga = DaNota.xAcconti.AggiungiRiga();
    DaNota.xAcconti(Riga, AccValuta) = u"E"_s;
    DaNota.xAcconti(Riga, AccCorrispettivi) = Corrispettivi;
}

QList<Guasto> Guasti()
{
    using enum CampoFattura;
    return {
        // ---- the office
        {"studio senza partita IVA", [](Pezzi& P) { P.Studio.PartitaIva.clear(); }, StudioPartitaIva,
         u"Manca la partita IVA dello studio"_s},
        {"partita IVA dello studio con la cifra sbagliata",
         [](Pezzi& P) { P.Studio.PartitaIva = u"01234567890"_s; }, StudioPartitaIva,
         u"Non è valida la partita IVA dello studio: 01234567890"_s},
        {"persona senza codice fiscale", [](Pezzi& P) { P.Studio.CodiceFiscale.clear(); },
         StudioCodiceFiscale, u"Manca il codice fiscale dello studio"_s},
        {"codice fiscale dello studio sbagliato",
         [](Pezzi& P) { P.Studio.CodiceFiscale = u"RSSMRA80A01H501X"_s; }, StudioCodiceFiscale,
         u"Non è valido il codice fiscale dello studio"_s},
        {"persona con il codice di una società", [](Pezzi& P) { P.Studio.CodiceFiscale = u"01234567897"_s; },
         StudioCodiceFiscale, u"sedici caratteri"_s},
        {"studio senza nome",
         [](Pezzi& P) {
             P.Studio.Nome.clear();
             P.Studio.Cognome.clear();
         },
         StudioNome, u"Manca il nome dello studio"_s},
        {"studio senza indirizzo", [](Pezzi& P) { P.Studio.Indirizzo.Indirizzo.clear(); }, StudioIndirizzo,
         u"Manca l'indirizzo dello studio"_s},
        {"studio senza CAP", [](Pezzi& P) { P.Studio.Indirizzo.Cap.clear(); }, StudioCap, u"Manca il CAP"_s},
        {"CAP corto", [](Pezzi& P) { P.Studio.Indirizzo.Cap = u"0010"_s; }, StudioCap,
         u"Non è valido il CAP dello studio: 0010"_s},
        {"studio senza comune", [](Pezzi& P) { P.Studio.Indirizzo.Comune.clear(); }, StudioComune,
         u"Manca il comune"_s},
        {"provincia scritta per intero", [](Pezzi& P) { P.Studio.Indirizzo.Provincia = u"Roma"_s; },
         StudioProvincia, u"la sigla della provincia"_s},
        {"numero civico lungo", [](Pezzi& P) { P.Studio.Indirizzo.NumeroCivico = u"123456789"_s; },
         StudioCivico, u"Più di 8 caratteri"_s},
        {"senza regime", [](Pezzi& P) { P.Studio.Regime.clear(); }, StudioRegime,
         u"Manca il regime fiscale"_s},
        {"regime che non c'è", [](Pezzi& P) { P.Studio.Regime = u"RF03"_s; }, StudioRegime, u"RF03"_s},
        {"IBAN sbagliato", [](Pezzi& P) { P.Studio.Iban = u"IT61X0542811101000000123456"_s; }, StudioIban,
         u"l'IBAN dello studio"_s},
        // ---- the client
        {"nessun cliente", [](Pezzi& P) { P.Cliente = {}; }, Cliente,
         u"Collegare la parcella a un cliente"_s},
        {"cliente senza codici", [](Pezzi& P) { P.Cliente.PartitaIva.clear(); }, ClienteCodiceFiscale,
         u"Manca il codice fiscale o la partita IVA del cliente"_s},
        {"partita IVA del cliente con la cifra sbagliata",
         [](Pezzi& P) { P.Cliente.PartitaIva = u"09876543210"_s; }, ClientePartitaIva, u"09876543210"_s},
        {"codice fiscale del cliente con il carattere sbagliato",
         [](Pezzi& P) {
             P.Cliente = Persona();
             P.Cliente.CodiceFiscale = u"BNCLRA75C41F205A"_s;
         },
         ClienteCodiceFiscale, u"BNCLRA75C41F205A"_s},
        {"cliente senza nome", [](Pezzi& P) { P.Cliente.Denominazione.clear(); }, ClienteNome,
         u"Manca il nome del cliente"_s},
        {"cliente senza indirizzo", [](Pezzi& P) { P.Cliente.Indirizzo.Indirizzo.clear(); }, ClienteIndirizzo,
         u"Manca l'indirizzo del cliente"_s},
        {"cliente senza CAP", [](Pezzi& P) { P.Cliente.Indirizzo.Cap.clear(); }, ClienteCap,
         u"Manca il CAP del cliente"_s},
        {"cliente senza comune", [](Pezzi& P) { P.Cliente.Indirizzo.Comune.clear(); }, ClienteComune,
         u"Manca il comune del cliente"_s},
        {"nazione per intero", [](Pezzi& P) { P.Cliente.Indirizzo.Nazione = u"Germania"_s; }, ClienteNazione,
         u"la sigla della nazione"_s},
        {"nazione che nessuno ha",
         [](Pezzi& P) {
             P.Cliente = Estera();
             P.Cliente.Indirizzo.Nazione = u"XX"_s;
         },
         ClienteNazione, u"Non è valida la sigla della nazione del cliente: XX"_s},
        {"nazione che si scrive altrimenti",
         [](Pezzi& P) {
             P.Cliente = Estera();
             P.Cliente.Indirizzo.Nazione = u"UK"_s;
         },
         ClienteNazione, u"UK"_s},
        {"estero e nessuno dice dove",
         [](Pezzi& P) {
             P.Cliente = Estera();
             P.Cliente.Indirizzo.Nazione = u"??"_s;
         },
         ClienteNazione, u"Manca la nazione del cliente"_s},
        {"codice destinatario corto", [](Pezzi& P) { P.Cliente.CodiceDestinatario = u"ABC123"_s; },
         ClienteDestinatario, u"sette lettere e cifre: ABC123"_s},
        {"codice degli esteri per un italiano", [](Pezzi& P) { P.Cliente.CodiceDestinatario = u"XXXXXXX"_s; },
         ClienteDestinatario, u"per i clienti esteri"_s},
        {"PEC che non è un indirizzo",
         [](Pezzi& P) {
             P.Cliente.CodiceDestinatario.clear();
             P.Cliente.Pec = u"cliente pec.it"_s;
         },
         ClientePec, u"la PEC del cliente"_s},
        {"estera senza codici",
         [](Pezzi& P) {
             P.Cliente = Estera();
             P.Cliente.PartitaIva.clear();
         },
         ClientePartitaIva, u"Manca la partita IVA o il codice del cliente"_s},
        {"estera con un codice lungo",
         [](Pezzi& P) {
             P.Cliente = Estera();
             P.Cliente.PartitaIva = QString(29, u'1');
         },
         ClientePartitaIva, u"Non è valida la partita IVA del cliente"_s},
        {"il cliente è lo studio", [](Pezzi& P) { P.Cliente.PartitaIva = u"01234567897"_s; },
         ClientePartitaIva, u"lo stesso codice"_s},
        {"nome in un altro alfabeto", [](Pezzi& P) { P.Cliente.Denominazione = u"ООО Ромашка"_s; },
         ClienteNome, u"non ammette"_s},
        {"nome di segni invisibili", [](Pezzi& P) { P.Cliente.Denominazione = QString(3, QChar(0xAD)); },
         ClienteNome, u"Manca il nome del cliente"_s},
        {"comune di segni invisibili", [](Pezzi& P) { P.Cliente.Indirizzo.Comune = QString(QChar(0x200B)); },
         ClienteComune, u"Manca il comune del cliente"_s},
        {"figura nel comune", [](Pezzi& P) { P.Cliente.Indirizzo.Comune = u"Milano 🏛"_s; }, ClienteComune,
         u"🏛"_s},
        // ---- public administration
        {"amministrazione senza codice dell'ufficio",
         [](Pezzi& P) {
             P.Cliente = Comune();
             P.Cliente.CodiceDestinatario.clear();
             P.Sua.Formato = u"FPA12"_s;
         },
         ClienteDestinatario, u"Manca il codice dell'ufficio"_s},
        {"codice dell'ufficio lungo",
         [](Pezzi& P) {
             P.Cliente = Comune();
             P.Cliente.CodiceDestinatario = u"UFXX123"_s;
             P.Sua.Formato = u"FPA12"_s;
         },
         ClienteDestinatario, u"sei lettere e cifre"_s},
        {"amministrazione con il formato dei privati",
         [](Pezzi& P) {
             P.Cliente = Comune();
             P.Cliente.CodiceDestinatario.clear();
         },
         SceltaFormato, u"il formato è FPA12"_s},
        {"formato pubblico verso un estero",
         [](Pezzi& P) {
             P.Cliente = Estera();
             P.Cliente.CodiceDestinatario = u"UFXX12"_s;
             P.Sua.Formato = u"FPA12"_s;
         },
         SceltaFormato, u"il cliente è estero"_s},
        {"CIG senza contratto",
         [](Pezzi& P) {
             P.Sua.Contratto = DocumentoCitato{{}, {}, {}, u"Z1234567AB"_s};
         },
         SceltaContratto, u"numero del contratto"_s},
        // ---- the document
        {"parcella che non è una fattura", [](Pezzi& P) { P.Sua.Documento = StampaPrenotula; },
         NotaTipoStampa, u"Fattura sintetica o dalla Fattura analitica"_s},
        {"senza numero", [](Pezzi& P) { P.Sua.Numero = u"  "_s; }, NotaNumero, u"Manca il numero"_s},
        {"numero senza cifre", [](Pezzi& P) { P.Sua.Numero = u"bis"_s; }, NotaNumero, u"non ha cifre"_s},
        {"numero di 21 caratteri", [](Pezzi& P) { P.Sua.Numero = QString(21, u'1'); }, NotaNumero,
         u"Più di 20 caratteri"_s},
        {"senza data", [](Pezzi& P) { P.Sua.Data = {}; }, NotaData, u"Manca la data"_s},
        {"data di domani", [](Pezzi& P) { P.Sua.Data = Giorno.addDays(1); }, NotaData,
         u"deve ancora venire"_s},
        {"data prima del 1970", [](Pezzi& P) { P.Sua.Data = QDate(1969, 12, 31); }, NotaData, u"1970"_s},
        {"progressivo vuoto", [](Pezzi& P) { P.Sua.Progressivo.clear(); }, SceltaProgressivo,
         u"progressivo"_s},
        {"progressivo lungo", [](Pezzi& P) { P.Sua.Progressivo = u"000001"_s; }, SceltaProgressivo,
         u"«000001»"_s},
        {"tipo che non si scrive", [](Pezzi& P) { P.Sua.Tipo = u"TD02"_s; }, SceltaTipo, u"TD02"_s},
        {"formato che non c'è", [](Pezzi& P) { P.Sua.Formato = u"FSM10"_s; }, SceltaFormato,
         u"FPR12 o FPA12"_s},
        {"modo di pagamento che non c'è", [](Pezzi& P) { P.Sua.Modalita = u"MP99"_s; }, SceltaModalita,
         u"MP99"_s},
        {"nota di credito senza fattura", [](Pezzi& P) { P.Sua.Tipo = u"TD04"_s; }, SceltaCollegata,
         u"fattura che storna"_s},
        {"nota di credito prima della fattura",
         [](Pezzi& P) {
             P.Sua.Tipo = u"TD04"_s;
             P.Sua.Collegate = {{u"3"_s, QDate(2026, 1, 16), {}, {}}};
         },
         SceltaCollegata, u"anteriore"_s},
        {"nota di credito con il numero della fattura",
         [](Pezzi& P) {
             P.Sua.Tipo = u"TD04"_s;
             P.Sua.Collegate = {{u"7/2026"_s, P.Sua.Data, {}, {}}};
         },
         NotaNumero, u"darle i suoi"_s},
        {"fattura citata senza data",
         [](Pezzi& P) {
             P.Sua.Collegate = {{u"3"_s, {}, {}, {}}};
         },
         SceltaCollegata, u"il numero e la data"_s},
        {"fattura citata senza numero",
         [](Pezzi& P) {
             P.Sua.Collegate = {{{}, QDate(2025, 1, 1), {}, {}}};
         },
         SceltaCollegata, u"il numero e la data"_s},
        // ---- regime and taxes
        {"parcella agevolata di uno studio ordinario",
         [](Pezzi& P) {
             P.DaNota.chkRegSempl.Attiva = true;
             P.DaNota.chkIva = P.DaNota.chkRA = {false, false};
             P.Sua.Natura = u"N4"_s;
         },
         StudioRegime, u"RF01 Ordinario"_s},
        {"IVA di un forfettario",
         [](Pezzi& P) {
             P.Studio.Regime = u"RF19"_s;
             P.DaNota.chkRA.Attiva = false;
         },
         NotaRegime, u"senza IVA"_s},
        {"ritenuta di un forfettario",
         [](Pezzi& P) {
             P.Studio.Regime = u"RF19"_s;
             P.DaNota.chkIva.Attiva = false;
         },
         NotaRegime, u"senza ritenuta"_s},
        {"senza IVA e senza motivo", [](Pezzi& P) { P.DaNota.chkIva.Attiva = false; }, NotaIva,
         u"spuntare l'IVA"_s},
        {"natura che non si sceglie",
         [](Pezzi& P) {
             P.DaNota.chkIva.Attiva = false;
             P.Sua.Natura = u"N6.3"_s;
         },
         SceltaNatura, u"per quale motivo"_s},
        {"scissione con la ritenuta", [](Pezzi& P) { P.Sua.ScissionePagamenti = true; }, SceltaScissione,
         u"non vale per i compensi con ritenuta"_s},
        {"scissione con l'IVA per cassa",
         [](Pezzi& P) {
             P.Sua.ScissionePagamenti = true;
             P.DaNota.chkRA.Attiva = false;
             P.DaNota.chkIvaDiff.Attiva = true;
         },
         SceltaScissione, u"non tutte e due"_s},
        {"scissione senza IVA",
         [](Pezzi& P) {
             P.Sua.ScissionePagamenti = true;
             P.DaNota.chkRA.Attiva = P.DaNota.chkIva.Attiva = false;
             P.Sua.Natura = u"N4"_s;
         },
         SceltaScissione, u"Senza IVA"_s},
        {"IVA con tre decimali", [](Pezzi& P) { P.DaNota.txtIVA.Testo = u"21,125"_s; }, NotaIva,
         u"più di due decimali"_s},
        {"IVA sotto l'uno per cento", [](Pezzi& P) { P.DaNota.txtIVA.Testo = u"0,22"_s; }, NotaIva,
         u"meno dell'1%"_s},
        {"cassa con tre decimali", [](Pezzi& P) { P.DaNota.txtCP.Testo = u"4,005"_s; }, NotaCP,
         u"cassa previdenza"_s},
        {"ritenuta oltre il cento", [](Pezzi& P) { P.DaNota.txtRA.Testo = u"120"_s; }, NotaRA,
         u"più di 100"_s},
        // ---- amounts
        {"importo zero", [](Pezzi& P) { P.DaNota.xOnorari(0, OnoImporto) = 0.0; }, NotaOnorari,
         u"Il totale della fattura è zero"_s},
        {"importo negativo", [](Pezzi& P) { P.DaNota.xOnorari(0, OnoImporto) = -10.0; }, NotaOnorari,
         u"L'imponibile della fattura è negativo: -11,50 euro"_s},
        {"acconti oltre i compensi", [](Pezzi& P) { Acconto(P.DaNota, 1150.01); }, NotaAcconti,
         u"Gli acconti superano compensi e spese imponibili: l'imponibile è -0,01 euro"_s},
        {"nota di credito di cui gli acconti non lasciano niente",
         [](Pezzi& P) {
             P.Sua.Tipo = u"TD04"_s;
             P.Sua.Collegate = {{u"6/2026"_s, QDate(2026, 1, 10), {}, {}}};
             Acconto(P.DaNota, 1150);
         },
         NotaAcconti, u"Tolti gli acconti la nota di credito è di 0,00 euro: cancellare"_s},
        {"totale negativo",
         [](Pezzi& P) {
             Acconto(P.DaNota, 1150);
             P.DaNota.xAcconti(0, AccSpeseEsenti) = 5.0;
         },
         NotaOnorari, u"negativo: -5,00 euro"_s},
        {"da pagare meno di niente",
         [](Pezzi& P) {
             Acconto(P.DaNota, 0);
             P.DaNota.xAcconti(0, AccSpeseEsenti) = 1230.0;
         },
         NotaRA, u"da pagare è negativo: -0,88 euro"_s},
        {"frazioni di centesimo", [](Pezzi& P) { P.DaNota.xOnorari(0, OnoImporto) = 100.005; }, NotaOnorari,
         u"frazioni di centesimo"_s},
        {"frazioni che insieme fanno centesimi",
         [](Pezzi& P) {
             P.DaNota.xOnorari(0, OnoImporto) = 100.005;
             P.DaNota.xOnorari.AggiungiRiga();
             P.DaNota.xOnorari(1, OnoImporto) = 100.005;
         },
         NotaOnorari, u"frazioni di centesimo"_s},
        {"importo smisurato", [](Pezzi& P) { P.DaNota.xOnorari(0, OnoImporto) = 1e12; }, NotaOnorari,
         u"troppo grandi"_s},
    };
}

}  // namespace

class TestMancanze : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void nienteMancaAllaFatturaIntera();
    void ognunaHaLaSuaFrase_data();
    void ognunaHaLaSuaFrase();
    void iTestiLunghiSiTagliano();
    void laDescrizioneInvisibile();
    void iCaratteriSiScrivonoAltrimenti();
    void iTestiPuliti_data();
    void iTestiPuliti();
    void ilTaglio_data();
    void ilTaglio();
    void gliAvvisi_data();
    void gliAvvisi();
};
PROVA(TestMancanze);

void TestMancanze::nienteMancaAllaFatturaIntera()
{
    const Composizione Fatta = Componi(Interi());
    QCOMPARE(Frasi(Fatta.Mancanze), QStringList());
    QCOMPARE(Frasi(Fatta.Avvisi), QStringList());
}

void TestMancanze::ognunaHaLaSuaFrase_data()
{
    QTest::addColumn<int>("Quale");
    const QList<Guasto> Tutti = Guasti();
    for (qsizetype i = 0; i < Tutti.size(); ++i)
        QTest::newRow(Tutti[i].Nome) << int(i);
}

void TestMancanze::ognunaHaLaSuaFrase()
{
    QFETCH(int, Quale);
    const Guasto Uno = Guasti()[Quale];
    Pezzi Tutti = Interi();
    Uno.Rovina(Tutti);
    const Composizione Fatta = Componi(Tutti);
    QCOMPARE(Frasi(Fatta.Mancanze).size(), 1);
    QVERIFY2(Fatta.Mancanze[0].Messaggio.contains(Uno.Dice), qPrintable(Fatta.Mancanze[0].Messaggio));
    QCOMPARE(int(Fatta.Mancanze[0].Dove), int(Uno.Dove));
    QVERIFY(!Fatta.Completa());
}

void TestMancanze::iTestiLunghiSiTagliano()
{
    Pezzi Tutti = Interi();
    Tutti.Cliente.Denominazione = u"Consorzio "_s.repeated(12);
    Tutti.DaNota.xOnorari(0, OnoDescr) = u"assistenza "_s.repeated(120);
    Tutti.DaNota.txtDatiStaOgg.Testo = u"causa "_s.repeated(60);
    const Composizione Fatta = Componi(Tutti);
    QCOMPARE(Frasi(Fatta.Avvisi).size(), 2);
    QVERIFY(Frasi(Fatta.Avvisi)[0].contains(u"tagliato a 80 caratteri, la denominazione del cliente"));
    QVERIFY(Frasi(Fatta.Avvisi)[1].contains(u"tagliato a 1000 caratteri"));
    QCOMPARE(Fatta.Fattura.Cessionario.Denominazione, u"Consorzio "_s.repeated(8).trimmed());
    QVERIFY(Fatta.Fattura.Linee[0].Descrizione.size() <= 1000);
    // The subject goes on in further elements: nothing of it is lost.
    QCOMPARE(Fatta.Fattura.Causali.size(), 2);
    QCOMPARE(Fatta.Fattura.Causali.join(u' '), (u"Oggetto: "_s + u"causa "_s.repeated(60)).trimmed());
    for (const QString& Causale : Fatta.Fattura.Causali)
        QVERIFY(Causale.size() <= 200);
    ScriviEControlla(Fatta, NuovaCartella() + u"a.xml"_s);
}

void TestMancanze::laDescrizioneInvisibile()
{
    Pezzi Tutti = Interi();
    Tutti.DaNota.xOnorari(0, OnoDescr) = QString(QChar(0xAD));
    const Composizione Fatta = Componi(Tutti);
    QCOMPARE(Fatta.Fattura.Linee[0].Descrizione, u"Prestazione professionale"_s);
    ScriviEControlla(Fatta, NuovaCartella() + u"a.xml"_s);
}

void TestMancanze::iCaratteriSiScrivonoAltrimenti()
{
    Pezzi Tutti = Interi();
    Tutti.Cliente.Denominazione = u"Società “Łódź” & <Figli>"_s;
    Tutti.DaNota.xOnorari(0, OnoDescr) = u"Attività\nd’udienza – € 10"_s;
    Tutti.Sua.Numero = u"7–bis/2026"_s;
    const Composizione Fatta = Componi(Tutti);
    const QString File = NuovaCartella() + u"a.xml"_s;
    ScriviEControlla(Fatta, File);
    const QByteArray Byte = Contenuto(File);
    QCOMPARE(Testo(Byte, u"CessionarioCommittente/DatiAnagrafici/Anagrafica/Denominazione"_s),
             u"Società \"Lódz\" & <Figli>"_s);
    QCOMPARE(Testi(Byte, u"DettaglioLinee/Descrizione"_s)[0], u"Attività d'udienza - EUR 10"_s);
    QCOMPARE(Testo(Byte, u"DatiGeneraliDocumento/Numero"_s), u"7-bis/2026"_s);
    QCOMPARE(Frasi(Fatta.Avvisi).size(), 2);  // the paper has the number as it was typed
    for (const QChar Carattere : u"“Łź”’–€"_s)
        QVERIFY(Frasi(Fatta.Avvisi)[1].contains(Carattere));
}

void TestMancanze::iTestiPuliti_data()
{
    QTest::addColumn<QString>("Scritto");
    QTest::addColumn<bool>("Latino");
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Rifiutati");
    QTest::newRow("latino") << u"È già l'ora, señor Müßig: ½"_s << true << u"È già l'ora, señor Müßig: ½"_s
                            << QString();
    QTest::newRow("base") << u"È già n° 7, Müßig"_s << false << u"E gia n. 7, Mussig"_s << QString();
    QTest::newRow("accento dietro la lettera") << u"perche\u0301"_s << true << u"perch\u00E9"_s << QString();
    QTest::newRow("spazi di ogni genere")
        << u"\u00A0a\t\r\nb\u2003c \u3000"_s << true << u"a b c"_s << QString();
    QTest::newRow("invisibili") << u"a\u200Bb\u00ADc\uFEFF\u0001\u0085d"_s << true << u"abc d"_s << QString();
    QTest::newRow("legature e larghe") << u"ﬁne Ａ１"_s << true << u"fine A1"_s << QString();
    QTest::newRow("cirillico") << u"a Ж b Ж"_s << true << u"a b"_s << u"Ж"_s;
    QTest::newRow("greco e figure") << u"α🏛x"_s << true << u"x"_s << u"α🏛"_s;
    QTest::newRow("sostituto") << u"x\uFFFD"_s << true << u"x"_s << u"\uFFFD"_s;
    QTest::newRow("metà di una coppia") << (u"x"_s + QChar(0xD83C)) << true << u"x"_s << u"\uFFFD"_s;
}

void TestMancanze::iTestiPuliti()
{
    QFETCH(QString, Scritto);
    QFETCH(bool, Latino);
    const TestoPulito Fatto = PulisciTesto(Scritto, Latino ? AlfabetoFattura::Latino : AlfabetoFattura::Base);
    QTEST(Fatto.Testo, "Testo");
    QTEST(Fatto.Rifiutati, "Rifiutati");
    QCOMPARE(PulisciTesto(Fatto.Testo, Latino ? AlfabetoFattura::Latino : AlfabetoFattura::Base).Testo,
             Fatto.Testo);
}

void TestMancanze::ilTaglio_data()
{
    QTest::addColumn<QString>("Scritto");
    QTest::addColumn<int>("Massimo");
    QTest::addColumn<QStringList>("Pezzi");
    QTest::newRow("ci sta") << u"uno due"_s << 7 << QStringList{u"uno due"_s};
    QTest::newRow("dietro una parola") << u"uno due"_s << 6 << QStringList{u"uno"_s, u"due"_s};
    QTest::newRow("lo spazio è il primo di troppo")
        << u"uno due tre"_s << 7 << QStringList{u"uno due"_s, u"tre"_s};
    QTest::newRow("parola lunga") << u"abcdefgh"_s << 3 << QStringList{u"abc"_s, u"def"_s, u"gh"_s};
    QTest::newRow("vuoto") << u"  "_s << 3 << QStringList();
}

void TestMancanze::ilTaglio()
{
    QFETCH(QString, Scritto);
    QFETCH(int, Massimo);
    QTEST(DividiTesto(Scritto, Massimo), "Pezzi");
}

void TestMancanze::gliAvvisi_data()
{
    QTest::addColumn<int>("Quale");
    QTest::addColumn<QString>("Dice");
    QTest::newRow("vecchia di 12 giorni") << 0 << QString();
    QTest::newRow("vecchia di 13 giorni") << 1 << u"più di 12 giorni fa"_s;
    QTest::newRow("ritenuta di una persona") << 2 << u"non opera la ritenuta"_s;
    QTest::newRow("senza recapito") << 3 << u"area riservata"_s;
    QTest::newRow("e-mail dello studio storta") << 4 << u"e-mail dello studio non è valido"_s;
    QTest::newRow("scadenza prima della fattura") << 5 << u"scadenza del pagamento"_s;
    QTest::newRow("scissione") << 6 << u"paga 1196,00 euro"_s;
    QTest::newRow("IVA e natura scelta") << 7 << u"la natura scelta (N4) non conta"_s;
    QTest::newRow("un altro numero sulla carta")
        << 8 << u"n. 7/2025, sulla carta stampata oggi la n. 7/2026"_s;
    QTest::newRow("per cassa in regime ordinario") << 9 << u"è per cassa, il regime dello studio è RF01"_s;
    QTest::newRow("immediata in regime per cassa") << 10 << u"RF17"_s;
    QTest::newRow("forfettario verso un'impresa estera") << 11 << u"di regola la natura è N2.1"_s;
}

void TestMancanze::gliAvvisi()
{
    QFETCH(int, Quale);
    QFETCH(QString, Dice);
    static const QList<std::function<void(Pezzi&)>> Modi{
        [](Pezzi& P) { P.Sua.Data = Giorno.addDays(-12); },
        [](Pezzi& P) { P.Sua.Data = Giorno.addDays(-13); },
        [](Pezzi& P) { P.Cliente = Persona(); },
        [](Pezzi& P) { P.Cliente.CodiceDestinatario.clear(); },
        [](Pezzi& P) { P.Studio.Email = u"studio@example"_s; },
        [](Pezzi& P) { P.Sua.Scadenza = QDate(2026, 1, 14); },
        [](Pezzi& P) {
            P.DaNota.chkRA.Attiva = false;
            P.Sua.ScissionePagamenti = true;
        },
        [](Pezzi& P) { P.Sua.Natura = u"N4"_s; },
        [](Pezzi& P) { P.Sua.Numero = u"7/2025"_s; },
        [](Pezzi& P) { P.DaNota.chkIvaDiff.Attiva = true; },
        [](Pezzi& P) { P.Studio.Regime = u"RF17"_s; },
        [](Pezzi& P) {
            P.Studio.Regime = u"RF19"_s;
            P.DaNota.chkIva = P.DaNota.chkRA = {false, false};
            P.Cliente = Estera();
        },
    };
    Pezzi Tutti = Interi();
    Modi[Quale](Tutti);
    const Composizione Fatta = Componi(Tutti);
    QCOMPARE(Fatta.Avvisi.size(), Dice.isEmpty() ? 0 : 1);
    QVERIFY2(Dice.isEmpty() || Fatta.Avvisi[0].Messaggio.contains(Dice),
             qPrintable(Frasi(Fatta.Avvisi).join(u'\n')));
    ScriviEControlla(Fatta, NuovaCartella() + u"a.xml"_s);
}

#include "TestMancanze.moc"
