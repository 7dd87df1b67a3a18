// The file of an electronic invoice: its name, its bytes, and that it appears whole or not at all.
#include "fattura_prova.h"
#include "supporto/guasti.h"

#include "core/modTrasmissioni.h"
#include "feenote/einvoice/anteprima.h"
#include "feenote/einvoice/codici.h"
#include "feenote/einvoice/schematipi.h"
#include "platform/base/numerierrore.h"
#include "platform/system/guasti.h"

using namespace Qt::StringLiterals;
using namespace fattura_prova;

namespace {

Composizione Intera()
{
    return Componi(
        {.Onorari = {100000}, .Spese = {{0, 10000}}, .SpeseGen = 1500, .CP = 400, .IVA = 2200, .RA = 2000},
        Avvocato(), Societa());
}

/// The error that a save ends with; the number 0 where it comes to its end.
ErroreVisto Salva(const QString& File, const FatturaElettronica& Fattura)
{
    return ErroreDi([&] { SalvaFattura(File, Fattura, Giorno); });
}

}  // namespace

class TestScrittura : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ilProgressivo_data();
    void ilProgressivo();
    void progressiviOltreIlLimite();
    void ilNome();
    void inUtf8ConIlPunto();
    void unFileCheCERimane();
    void cioCheIControlliRifiutanoNonSiScrive_data();
    void cioCheIControlliRifiutanoNonSiScrive();
    void ilDiscoPienoNonLasciaNulla();
    void laCartellaCheNonC();
    void lAnteprima();
    void lAnteprimaNonEsegueNulla();
    void ogniRegimeHaIlSuoNome();
    void iCodiciSonoDelloSchema();
};
PROVA(TestScrittura);

void TestScrittura::ilProgressivo_data()
{
    QTest::addColumn<int>("Numero");
    QTest::addColumn<QString>("Testo");
    QTest::newRow("primo") << 1 << u"00001"_s;
    QTest::newRow("ultima cifra") << 9 << u"00009"_s;
    QTest::newRow("prima lettera") << 10 << u"0000A"_s;
    QTest::newRow("ultima lettera") << 35 << u"0000Z"_s;
    QTest::newRow("due cifre") << 36 << u"00010"_s;
    QTest::newRow("ultimo") << UltimoProgTrasm << u"ZZZZZ"_s;
}

void TestScrittura::ilProgressivo()
{
    QFETCH(int, Numero);
    QTEST(ProgressivoFile(Numero), "Testo");
}

void TestScrittura::progressiviOltreIlLimite()
{
    for (const int Numero : {0, -1, UltimoProgTrasm + 1})
        QVERIFY(NumeroErrore([&] { (void)ProgressivoFile(Numero); }) != 0);
}

void TestScrittura::ilNome()
{
    QCOMPARE(NomeFileFattura(Intera().Fattura), u"ITRSSMRA80A01H501U_0000A.xml"_s);
}

void TestScrittura::inUtf8ConIlPunto()
{
    FatturaElettronica Fattura = Intera().Fattura;
    Fattura.Cessionario.Denominazione = u"Società & Figli <\"uno\">"_s;
    const QByteArray Byte = XmlFattura(Fattura);
    QVERIFY(Byte.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"));
    QVERIFY(Byte.contains("<Denominazione>Societ\xC3\xA0 &amp; Figli &lt;"));
    QVERIFY(Byte.contains("<PrezzoTotale>1000.00</PrezzoTotale>"));
    QVERIFY(!Byte.contains(','));
}

void TestScrittura::unFileCheCERimane()
{
    const QString File = Posa(NuovaCartella(), u"a.xml"_s, "mio");
    const auto [Numero, Frase] = Salva(File, Intera().Fattura);
    QCOMPARE(Numero, 58);
    QCOMPARE(Frase, u"Il file a.xml esiste già"_s);
    QCOMPARE(Contenuto(File), "mio"_ba);
}

void TestScrittura::cioCheIControlliRifiutanoNonSiScrive_data()
{
    QTest::addColumn<int>("Quale");
    QTest::addColumn<QString>("Codice");
    QTest::newRow("imposta") << 0 << u"00421"_s;
    QTest::newRow("imponibile") << 1 << u"00422"_s;
    QTest::newRow("riepilogo") << 2 << u"00419"_s;
    QTest::newRow("ritenuta") << 3 << u"00411"_s;
    QTest::newRow("forma") << 4 << u"00200"_s;
    QTest::newRow("cifra di controllo") << 5 << u"00305"_s;
    QTest::newRow("data") << 6 << u"00403"_s;
    QTest::newRow("totale") << 7 << u"totale del documento"_s;
}

void TestScrittura::cioCheIControlliRifiutanoNonSiScrive()
{
    QFETCH(int, Quale);
    QFETCH(QString, Codice);
    static const QList<std::function<void(FatturaElettronica&)>> Modi{
        [](FatturaElettronica& F) {
            F.Riepiloghi[0].Imposta += 0.02;
            F.Totale += 0.02;
        },
        [](FatturaElettronica& F) {
            F.Riepiloghi[1].Imponibile += 1.01;
            F.Totale += 1.01;
        },
        [](FatturaElettronica& F) {
            F.Riepiloghi.removeFirst();
            F.Totale = 100.0;
        },
        [](FatturaElettronica& F) { F.Ritenuta.reset(); },
        [](FatturaElettronica& F) { F.Cessionario.Indirizzo.Comune = u"Θήβα"_s; },
        [](FatturaElettronica& F) { F.Cessionario.IdFiscaleIva->Codice = u"09876543210"_s; },
        [](FatturaElettronica& F) { F.Data = Giorno.addDays(1); },
        [](FatturaElettronica& F) { F.Totale += 0.02; },
    };
    FatturaElettronica Fattura = Intera().Fattura;
    Modi[Quale](Fattura);
    const QString Cartella = NuovaCartella();
    const auto [Numero, Frase] = Salva(Cartella + u"a.xml"_s, Fattura);
    QCOMPARE(Numero, NumeroFatturaRifiutata);
    QVERIFY2(Frase.contains(Codice), qPrintable(Frase));
    QCOMPARE(QDir(Cartella).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
}

void TestScrittura::ilDiscoPienoNonLasciaNulla()
{
    const QString Cartella = NuovaCartella();
    guasti::LimiteFile = 1000;
    const auto [Numero, Frase] = Salva(Cartella + u"a.xml"_s, Intera().Fattura);
    guasti::LimiteFile = 0;
    QCOMPARE(Numero, int(errori::DiscoPieno));
    QCOMPARE(QDir(Cartella).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
}

void TestScrittura::laCartellaCheNonC()
{
    QCOMPARE(Salva(NuovaCartella() + u"manca/a.xml"_s, Intera().Fattura).Numero,
             int(errori::PercorsoMancante));
}

void TestScrittura::lAnteprima()
{
    const QString Pagina = PaginaFattura(Intera().Fattura);
    for (const QString& Parola :
         {u"TD01 Fattura n. 7/2026 del 15/01/2026"_s, u"Mario Rossi"_s, u"CLIENTE DI PROVA S.R.L."_s,
          u"Partita IVA: IT01234567897"_s, u"Codice destinatario: ABC1234"_s, u"RF01 Ordinario"_s,
          u"Fase 1"_s, u"1.000,00"_s, u"Cassa previdenza (TC01) 4% su 1.150,00"_s, u"-230,00"_s, u"263,12"_s,
          u"Totale documento: euro 1.559,12"_s, u"MP05 Bonifico"_s, u"IT60X0542811101000000123456"_s,
          u"1.329,12"_s, u"Art. 15 DPR 633/1972"_s, u"immediata"_s, u"Imposta di bollo"_s})
        QVERIFY2(Pagina.contains(Parola), qPrintable(Parola));
}

void TestScrittura::lAnteprimaNonEsegueNulla()
{
    FatturaElettronica Fattura = Intera().Fattura;
    const QString Cattivo = u"<img src=\"http://x\">&\"%1%2"_s;
    for (QString* Testo :
         {&Fattura.Cedente.Nome, &Fattura.Cessionario.Denominazione, &Fattura.Numero, &Fattura.Tipo,
          &Fattura.Regime, &Fattura.Linee[0].Descrizione, &Fattura.Cessionario.Indirizzo.Comune,
          &Fattura.Riepiloghi[0].RiferimentoNormativo, &Fattura.PecDestinatario, &Fattura.EmailCedente,
          &Fattura.Pagamento->Iban, &Fattura.Cessionario.CodiceFiscale})
        *Testo = Cattivo;
    Fattura.Causali = {Cattivo};
    Fattura.Collegate = {{Cattivo, {}, Cattivo, Cattivo}};
    const QString Pagina = PaginaFattura(Fattura);
    QVERIFY(!Pagina.contains(u"<img"));
    QCOMPARE(Pagina.count(u"&lt;img src=&quot;http://x&quot;&gt;&amp;&quot;%1%2"_s), 16);
}

/// Whatever regime the settings offer, the page says it as they do.
void TestScrittura::ogniRegimeHaIlSuoNome()
{
    FatturaElettronica Fattura = Intera().Fattura;
    constexpr size_t DelloSchema = 19;
    QCOMPARE(regimi::Voci().size(), DelloSchema);
    for (const VoceCodificata& Voce : regimi::Voci()) {
        Fattura.Regime = Voce.Codice.toString();
        const QString Attesa = u"Regime fiscale: %1 %2<"_s.arg(Voce.Codice, Voce.Nome);
        QVERIFY2(PaginaFattura(Fattura).contains(Attesa), qPrintable(Attesa));
    }
}

void TestScrittura::iCodiciSonoDelloSchema()
{
    for (const auto& [Voci, Tipo] :
         {std::pair{TipiFattura(), u"TipoDocumentoType"_s}, std::pair{regimi::Voci(), u"RegimeFiscaleType"_s},
          std::pair{ModalitaPagamento(), u"ModalitaPagamentoType"_s},
          std::pair{NatureSenzaIva(), u"NaturaType"_s}}) {
        QVERIFY(!Voci.empty());
        for (const VoceCodificata& Voce : Voci)
            QVERIFY2(ValoreValido(Tipo, Voce.Codice.toString()), qPrintable(Voce.Codice.toString()));
    }
}

#include "TestScrittura.moc"
