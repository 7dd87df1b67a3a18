// Files that each check refuses or warns of, and those that all of them let through.
#include "fattura_prova.h"

#include <QStringEncoder>

using namespace Qt::StringLiterals;
using namespace fattura_prova;

namespace {

QByteArray Esempio(const QString& Nome)
{
    const QByteArray Letto = Contenuto(FileDiProva(u"feenote/einvoice/esempi/"_s + Nome));
    if (Letto.isEmpty())
        qFatal("no sample");
    return Letto;
}

QStringList Codici(const QList<EsitoControllo>& Esiti)
{
    QStringList Trovati;
    for (const EsitoControllo& Esito : Esiti)
        if (!Trovati.contains(Esito.Codice))
            Trovati += Esito.Codice;
    Trovati.sort();
    return Trovati;
}

/// A change of the first sample that breaks a check.
struct Rottura
{
    const char* Nome;
    QByteArray Da, A;
    QString Codici;  ///< all that must be found, divided by blanks
    bool Rifiuta;
};

/// An element with so many attributes.
QByteArray Attributi(int Quanti)
{
    QByteArray Byte = "<a";
    for (int i = 0; i < Quanti; ++i)
        Byte += " a" + QByteArray::number(i) + (i % 2 == 0 ? "=\">\"" : " = '>'");
    return Byte + "/>";
}

/// The same in UTF-16, the values with a text of their own.
QByteArray DueByte(const QByteArray& Byte, const QString& Valore = {})
{
    const QString Testo =
        QChar(0xFEFF) + QString::fromLatin1(Byte).replace(u'>', Valore.isEmpty() ? u">"_s : Valore);
    return QByteArray(reinterpret_cast<const char*>(Testo.utf16()), Testo.size() * 2);
}

const QList<Rottura>& Rotture()
{
    static const QByteArray LineaN1 = "<AliquotaIVA>0.00</AliquotaIVA><Natura>N1</Natura></DettaglioLinee>";
    static const QByteArray Cassa = "<AliquotaIVA>22.00</AliquotaIVA></DatiCassaPrevidenziale>";
    static const QByteArray Prezzo =
        "<PrezzoUnitario>1000.00</PrezzoUnitario><PrezzoTotale>1000.00</PrezzoTotale>";
    static const QList<Rottura> Tutte{
        // ---- lines, funds, summaries
        {"riga a zero senza natura", LineaN1, "<AliquotaIVA>0.00</AliquotaIVA></DettaglioLinee>",
         u"00400 00422"_s, true},
        {"riga con IVA e natura",
         "<AliquotaIVA>22.00</AliquotaIVA><Ritenuta>SI</Ritenuta></DettaglioLinee>\n      "
         "<DettaglioLinee><NumeroLinea>2",
         "<AliquotaIVA>22.00</AliquotaIVA><Ritenuta>SI</Ritenuta><Natura>N1</Natura></DettaglioLinee>\n      "
         "<DettaglioLinee><NumeroLinea>2",
         u"00401 00422"_s, true},
        {"ritenuta senza dati",
         "<DatiRitenuta><TipoRitenuta>RT01</TipoRitenuta><ImportoRitenuta>230.00</"
         "ImportoRitenuta><AliquotaRitenuta>20.00</AliquotaRitenuta><CausalePagamento>A</CausalePagamento></"
         "DatiRitenuta>",
         "", u"00411"_s, true},
        {"cassa a zero senza natura", Cassa, "<AliquotaIVA>0.00</AliquotaIVA></DatiCassaPrevidenziale>",
         u"00413 00422"_s, true},
        {"cassa con IVA e natura", Cassa,
         "<AliquotaIVA>22.00</AliquotaIVA><Natura>N1</Natura></DatiCassaPrevidenziale>", u"00414 00422"_s,
         true},
        {"aliquota senza riepilogo", "<PrezzoTotale>150.00</PrezzoTotale><AliquotaIVA>22.00",
         "<PrezzoTotale>150.00</PrezzoTotale><AliquotaIVA>10.00", u"00419 00422 00443"_s, false},
        {"scissione con inversione",
         "<AliquotaIVA>0.00</AliquotaIVA><Natura>N1</Natura><ImponibileImporto>125.00</"
         "ImponibileImporto><Imposta>0.00</Imposta>",
         "<AliquotaIVA>0.00</AliquotaIVA><Natura>N6.1</Natura><ImponibileImporto>125.00</"
         "ImponibileImporto><Imposta>0.00</Imposta><EsigibilitaIVA>S</EsigibilitaIVA>",
         u"00420 00422 00444"_s, false},
        {"imposta: due centesimi", "<Imposta>263.12</Imposta>", "<Imposta>263.14</Imposta>", u" 00421"_s,
         false},
        {"imponibile: un euro e un centesimo", "<ImponibileImporto>125.00</ImponibileImporto>",
         "<ImponibileImporto>126.01</ImponibileImporto>", u" 00422"_s, false},
        {"prezzo: due centesimi", Prezzo,
         "<PrezzoUnitario>999.98</PrezzoUnitario><PrezzoTotale>1000.00</PrezzoTotale>", u"00423"_s, true},
        {"prezzo per quantità", Prezzo,
         "<Quantita>3.00</Quantita><PrezzoUnitario>333.33</PrezzoUnitario><PrezzoTotale>1000.02</"
         "PrezzoTotale>",
         u"00423"_s, true},
        {"prezzo con uno sconto non fatto", Prezzo,
         "<PrezzoUnitario>1000.00</PrezzoUnitario><ScontoMaggiorazione><Tipo>SC</Tipo><Percentuale>10.00</"
         "Percentuale></ScontoMaggiorazione><PrezzoTotale>1000.00</PrezzoTotale>",
         u"00423"_s, true},
        {"aliquota come frazione", "<PrezzoTotale>150.00</PrezzoTotale><AliquotaIVA>22.00",
         "<PrezzoTotale>150.00</PrezzoTotale><AliquotaIVA>0.22", u"00419 00422 00424 00443"_s, true},
        {"riepilogo a zero senza natura",
         "<AliquotaIVA>0.00</AliquotaIVA><Natura>N1</Natura><ImponibileImporto>",
         "<AliquotaIVA>0.00</AliquotaIVA><ImponibileImporto>", u"00422 00429 00444"_s, false},
        {"riepilogo con IVA e natura", "<DatiRiepilogo><AliquotaIVA>22.00</AliquotaIVA>",
         "<DatiRiepilogo><AliquotaIVA>22.00</AliquotaIVA><Natura>N4</Natura>", u"00422 00430"_s, false},
        {"sconto del documento vuoto", "<ImportoTotaleDocumento>",
         "<ScontoMaggiorazione><Tipo>SC</Tipo></ScontoMaggiorazione><ImportoTotaleDocumento>", u"00437"_s,
         false},
        {"sconto della riga vuoto", "<PrezzoUnitario>1000.00</PrezzoUnitario>",
         "<PrezzoUnitario>1000.00</PrezzoUnitario><ScontoMaggiorazione><Tipo>SC</Tipo></ScontoMaggiorazione>",
         u"00438"_s, false},
        {"natura senza riepilogo", LineaN1,
         "<AliquotaIVA>0.00</AliquotaIVA><Natura>N4</Natura></DettaglioLinee>", u"00422 00444"_s, false},
        {"totale del documento", "<ImportoTotaleDocumento>1584.12", "<ImportoTotaleDocumento>1584.14", u" "_s,
         false},
        // ---- document
        {"data di domani", "<Data>2026-01-15</Data>", "<Data>2026-01-21</Data>", u"00403"_s, true},
        {"numero senza cifre", "<Numero>1/2026</Numero>", "<Numero>bis</Numero>", u"00425"_s, false},
        // ---- parties
        {"destinatario di sei caratteri", "<CodiceDestinatario>0000000", "<CodiceDestinatario>000000",
         u"00427"_s, false},
        {"formato e versione diversi", "versione=\"FPR12\"", "versione=\"FPA12\"", u"00428"_s, false},
        {"destinatario degli esteri", "<CodiceDestinatario>0000000", "<CodiceDestinatario>XXXXXXX",
         u"00313"_s, false},
        {"chi trasmette non torna", "<IdTrasmittente><IdPaese>IT</IdPaese><IdCodice>01234567897",
         "<IdTrasmittente><IdPaese>IT</IdPaese><IdCodice>01234567890", u"00300"_s, false},
        {"cedente che non torna", "<IdFiscaleIVA><IdPaese>IT</IdPaese><IdCodice>01234567897",
         "<IdFiscaleIVA><IdPaese>IT</IdPaese><IdCodice>01234567890", u"00301"_s, false},
        {"codice fiscale del cedente che non torna", "RSSMRA80A01H501U", "RSSMRA80A01H501X", u" "_s, false},
        {"cessionario che non torna", "<IdCodice>09876543217", "<IdCodice>09876543210", u"00305"_s, false},
        {"codice fiscale del cessionario che non torna", "<IdCodice>09876543217</IdCodice></IdFiscaleIVA>",
         "<IdCodice>09876543217</IdCodice></IdFiscaleIVA><CodiceFiscale>09876543210</CodiceFiscale>",
         u"00306"_s, false},
        {"rappresentante che non torna", "<CessionarioCommittente>",
         "<RappresentanteFiscale><DatiAnagrafici><IdFiscaleIVA><IdPaese>IT</IdPaese><IdCodice>01234567890</"
         "IdCodice></IdFiscaleIVA><Anagrafica><Denominazione>R</Denominazione></Anagrafica></"
         "DatiAnagrafici></RappresentanteFiscale><CessionarioCommittente>",
         u"00303"_s, false},
        {"IBAN che non torna", "<ImportoPagamento>1354.12</ImportoPagamento>",
         "<ImportoPagamento>1354.12</ImportoPagamento><IBAN>IT61X0542811101000000123456</IBAN>", u" "_s,
         false},
        {"cessionario senza codici",
         "<IdFiscaleIVA><IdPaese>IT</IdPaese><IdCodice>09876543217</IdCodice></IdFiscaleIVA>", "", u"00417"_s,
         false},
        {"gli stessi ai due lati", "09876543217", "01234567897", u"00471"_s, true},
        {"due soggetti in un'autofattura", "<TipoDocumento>TD01", "<TipoDocumento>TD27", u"00472"_s, false},
        {"integrazione di un italiano", "<TipoDocumento>TD01", "<TipoDocumento>TD17", u"00473"_s, false},
        {"splafonamento senza IVA", "<TipoDocumento>TD01", "<TipoDocumento>TD21", u"00472 00474"_s, false},
    };
    return Tutte;
}

}  // namespace

class TestControlli : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void gliEsempi_data();
    void gliEsempi();
    void ogniControlloHaUnFile_data();
    void ogniControlloHaUnFile();
    void altriControlli();
    void leTolleranze_data();
    void leTolleranze();
    void unaRigaPerAliquota();
    void lottoDoppio();
    void naturaGenerica();
    void ilNomeDelFile_data();
    void ilNomeDelFile();
    void fileCheNonSono_data();
    void fileCheNonSono();
    void altreCodifiche_data();
    void altreCodifiche();
    void moltiErrori();
    void ilPostoDellErrore();
};
PROVA(TestControlli);

void TestControlli::gliEsempi_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Attesi");
    QTest::newRow("ufficiale 1") << u"IT01234567890_FPR01.xml"_s << u"00300 00301 00306"_s;
    QTest::newRow("ufficiale 2") << u"IT01234567890_FPR02.xml"_s << u"00300 00301 00306"_s;
    QTest::newRow("ordinario") << u"ordinario.xml"_s << u"00001"_s;
    QTest::newRow("forfettario") << u"forfettario.xml"_s << u"00001"_s;
}

void TestControlli::gliEsempi()
{
    QFETCH(QString, Nome);
    const QList<EsitoControllo> Esiti = ControllaFattura(Esempio(Nome), Nome, Giorno);
    QTEST(Codici(Esiti).join(u' '), "Attesi");
    QVERIFY(Accettabile(Esiti));
}

void TestControlli::ogniControlloHaUnFile_data()
{
    QTest::addColumn<int>("Quale");
    for (qsizetype i = 0; i < Rotture().size(); ++i)
        QTest::newRow(Rotture()[i].Nome) << int(i);
}

void TestControlli::ogniControlloHaUnFile()
{
    QFETCH(int, Quale);
    const Rottura& Una = Rotture()[Quale];
    QByteArray Byte = Esempio(u"ordinario.xml"_s);
    QCOMPARE(Codici(ControllaFattura(Byte, {}, Giorno)), QStringList());
    QVERIFY2(Byte.contains(Una.Da), "the sample has no such text");
    if (Una.Nome == "gli stessi ai due lati"_ba)
        Byte.replace("<CodiceFiscale>RSSMRA80A01H501U</CodiceFiscale>", "");
    const qsizetype Posto = Byte.indexOf(Una.Da);
    Byte.replace(Posto, Una.Da.size(), Una.A);
    const QList<EsitoControllo> Esiti = ControllaFattura(Byte, {}, Giorno);
    QCOMPARE(Codici(Esiti).join(u' '), Una.Codici == u" " ? QString() : Una.Codici);
    QVERIFY(!Esiti.isEmpty());
    QCOMPARE(!Accettabile(Esiti), Una.Rifiuta);
    for (const EsitoControllo& Esito : Esiti)
        QVERIFY(Esito.Linea > 0 && !Esito.Frase.isEmpty());
}

void TestControlli::altriControlli()
{
    const QByteArray Base = Esempio(u"ordinario.xml"_s);
    const auto Trova = [&](QList<std::pair<QByteArray, QByteArray>> Cambi) {
        QByteArray Byte = Base;
        for (const auto& [Da, A] : Cambi) {
            if (!Byte.contains(Da))
                qFatal("the sample has no such text");
            Byte.replace(Da, A);
        }
        return Codici(ControllaFattura(Byte, {}, Giorno)).join(u' ');
    };
    const QByteArray Collegata = "</DatiGeneraliDocumento><DatiFattureCollegate><IdDocumento>9</IdDocumento>"
                                 "<Data>2026-01-16</Data></DatiFattureCollegate>";
    QCOMPARE(Trova({{"<TipoDocumento>TD01", "<TipoDocumento>TD04"}, {"</DatiGeneraliDocumento>", Collegata}}),
             u"00418"_s);
    QCOMPARE(Trova({{"</DatiGeneraliDocumento>", Collegata}}), QString());
    // the fund subject to withholding, the withholding not declared; its lines are not subject
    QCOMPARE(
        Trova({{"<AliquotaIVA>22.00</AliquotaIVA></DatiCassaPrevidenziale>",
                "<AliquotaIVA>22.00</AliquotaIVA><Ritenuta>SI</Ritenuta></DatiCassaPrevidenziale>"},
               {"<Ritenuta>SI</Ritenuta></DettaglioLinee>", "</DettaglioLinee>"},
               {"<DatiRitenuta><TipoRitenuta>RT01</TipoRitenuta><ImportoRitenuta>230.00</ImportoRitenuta>"
                "<AliquotaRitenuta>20.00</AliquotaRitenuta><CausalePagamento>A</CausalePagamento></"
                "DatiRitenuta>",
                ""}}),
        u"00415"_s);
    QCOMPARE(Trova({{"<TipoDocumento>TD01", "<TipoDocumento>TD16"},
                    {"<IdFiscaleIVA><IdPaese>IT</IdPaese><IdCodice>09876543217</IdCodice></IdFiscaleIVA>",
                     "<CodiceFiscale>09876543217</CodiceFiscale>"}}),
             u"00475"_s);
    QCOMPARE(Trova({{"<IdFiscaleIVA><IdPaese>IT</IdPaese>", "<IdFiscaleIVA><IdPaese>FR</IdPaese>"}}),
             u"00476"_s);
}

void TestControlli::leTolleranze_data()
{
    QTest::addColumn<QByteArray>("Da");
    QTest::addColumn<QByteArray>("A");
    QTest::addColumn<QString>("Attesi");
    const QByteArray Prezzo = "<PrezzoUnitario>1000.00</PrezzoUnitario>";
    QTest::newRow("imposta: un centesimo") << "<Imposta>263.12"_ba
                                           << "<Imposta>263.13"_ba << QString();
    QTest::newRow("imposta: un centesimo in meno") << "<Imposta>263.12"_ba
                                                   << "<Imposta>263.11"_ba << QString();
    QTest::newRow("imponibile: un euro") << "<ImponibileImporto>125.00"_ba
                                         << "<ImponibileImporto>126.00"_ba << QString();
    QTest::newRow("imponibile arrotondato")
        << "<Natura>N1</Natura><ImponibileImporto>125.00"_ba
        << "<Natura>N1</Natura><Arrotondamento>3.00</Arrotondamento><ImponibileImporto>128.00"_ba
        << QString();
    QTest::newRow("prezzo: un centesimo")
        << Prezzo << "<PrezzoUnitario>1000.01</PrezzoUnitario>"_ba << QString();
    QTest::newRow("prezzo: poco più di un centesimo")
        << Prezzo << "<PrezzoUnitario>1000.0100001</PrezzoUnitario>"_ba << u"00423"_s;
    QTest::newRow("prezzo con sconti di seguito")
        << Prezzo
        << "<Quantita>2.00</Quantita><PrezzoUnitario>600.00</PrezzoUnitario><ScontoMaggiorazione><Tipo>SC</Tipo><Percentuale>10.00</Percentuale></ScontoMaggiorazione><ScontoMaggiorazione><Tipo>SC</Tipo><Importo>50.00</Importo></ScontoMaggiorazione><ScontoMaggiorazione><Tipo>MG</Tipo><Importo>10.00</Importo></ScontoMaggiorazione>"_ba
        << QString();
}

void TestControlli::leTolleranze()
{
    QFETCH(QByteArray, Da);
    QFETCH(QByteArray, A);
    QByteArray Byte = Esempio(u"ordinario.xml"_s);
    QVERIFY(Byte.contains(Da));
    Byte.replace(Da, A);
    // the document's own total is another matter
    QStringList Trovati = Codici(ControllaFattura(Byte, {}, Giorno));
    Trovati.removeAll(QString());
    QTEST(Trovati.join(u' '), "Attesi");
}

/// A rate that is missing is told once for each rate, however many lines have it.
void TestControlli::unaRigaPerAliquota()
{
    QByteArray Byte = Esempio(u"ordinario.xml"_s);
    Byte.replace("<AliquotaIVA>22.00</AliquotaIVA><Ritenuta>", "<AliquotaIVA>10.00</AliquotaIVA><Ritenuta>");
    QList<EsitoControllo> Esiti = ControllaFattura(Byte, {}, Giorno);
    QCOMPARE(std::ranges::count(Esiti, u"00419"_s, &EsitoControllo::Codice), 1);
}

void TestControlli::lottoDoppio()
{
    const QByteArray Byte = Esempio(u"ordinario.xml"_s);
    const qsizetype Da = Byte.indexOf("<FatturaElettronicaBody>");
    const QByteArray Fine = "</FatturaElettronicaBody>";
    const qsizetype A = Byte.indexOf(Fine) + Fine.size();
    QByteArray Corpo = Byte.sliced(Da, A - Da);
    QByteArray Doppio = Byte;
    Doppio.insert(A, Corpo);
    const QList<EsitoControllo> Esiti = ControllaFattura(Doppio, {}, Giorno);
    QCOMPARE(Codici(Esiti), QStringList{u"00409"_s});
    QVERIFY(!Accettabile(Esiti));
    QByteArray Seconda = Byte;
    Seconda.insert(A, Corpo.replace("1/2026", "2/2026"));
    QCOMPARE(Codici(ControllaFattura(Seconda, {}, Giorno)), QStringList());
}

void TestControlli::naturaGenerica()
{
    QByteArray Byte = Esempio(u"forfettario.xml"_s);
    Byte.replace("N2.2", "N2");
    QCOMPARE(Codici(ControllaFattura(Byte, {}, Giorno)), QStringList{u"00445"_s});
    Byte.replace("2026-01-15", "2020-12-31");
    QCOMPARE(Codici(ControllaFattura(Byte, {}, Giorno)), QStringList());
}

void TestControlli::ilNomeDelFile_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<bool>("Buono");
    QTest::newRow("buono") << u"IT01234567897_0000A.xml"_s << true;
    QTest::newRow("con il codice fiscale") << u"ITRSSMRA80A01H501U_zzzzz.xml"_s << true;
    QTest::newRow("progressivo di sei") << u"IT01234567897_000001.xml"_s << false;
    QTest::newRow("senza progressivo") << u"IT01234567897.xml"_s << false;
    QTest::newRow("un'altra estensione") << u"IT01234567897_1.XML"_s << false;
    QTest::newRow("un nome qualunque") << u"fattura rossi.xml"_s << false;
    QTest::newRow("non ancora uno") << QString() << true;
}

void TestControlli::ilNomeDelFile()
{
    QFETCH(QString, Nome);
    QFETCH(bool, Buono);
    const QList<EsitoControllo> Esiti = ControllaFattura(Esempio(u"ordinario.xml"_s), Nome, Giorno);
    QCOMPARE(Codici(Esiti), Buono ? QStringList() : QStringList{u"00001"_s});
    QVERIFY(Accettabile(Esiti));  // a copy may be called as one likes
}

void TestControlli::fileCheNonSono_data()
{
    QTest::addColumn<QByteArray>("Byte");
    QTest::addColumn<QString>("Codice");
    QTest::addColumn<QString>("Dice");
    QTest::newRow("vuoto") << QByteArray() << u"00106"_s << u"vuoto"_s;
    QTest::newRow("bianco") << " \n"_ba << u"00106"_s << u"vuoto"_s;
    QTest::newRow("firmato") << "\x30\x80\x06\x09"_ba << QString() << u"firmati"_s;
    QTest::newRow("compresso") << "PK\x03\x04..."_ba << QString() << u"compresso"_s;
    QTest::newRow("grande") << QByteArray((5 << 20) + 1, 'x') << u"00003"_s << u"5 MB"_s;
    QTest::newRow("non XML") << "fattura n. 1"_ba << u"00200"_s << u"ben formato"_s;
    QTest::newRow("troncato") << "<?xml version=\"1.0\"?><a><b>"_ba << u"00200"_s << u"ben formato"_s;
    QTest::newRow("un altro XML") << "<html/>"_ba << u"00200"_s << u"non è una fattura elettronica"_s;
    QTest::newRow("fattura senza spazio dei nomi")
        << "<FatturaElettronica versione=\"FPR12\"/>"_ba << u"00200"_s << u"non è una fattura elettronica"_s;
    QTest::newRow("tipo di documento")
        << "<!DOCTYPE a [<!ENTITY x \"y\">]><a>&x;</a>"_ba << u"00200"_s << u"tipo di documento"_s;
    QTest::newRow("entità di fuori") << "<!DOCTYPE a SYSTEM \"file:///etc/passwd\"><a/>"_ba << u"00200"_s
                                     << u"tipo di documento"_s;
    QTest::newRow("risate")
        << "<!DOCTYPE a [<!ENTITY b \"bbbbbbbbbb\"><!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;\"><!ENTITY d \"&c;&c;&c;&c;&c;&c;\">]><a>&d;</a>"_ba
        << u"00200"_s << u"tipo di documento"_s;
    QTest::newRow("codifica ignota") << "<?xml version=\"1.0\" encoding=\"EBCDIC-IT\"?><a/>"_ba << u"00200"_s
                                     << u"non si legge qui: EBCDIC-IT"_s;
    QTest::newRow("un attributo di troppo") << Attributi(65) << u"00200"_s << u"troppi attributi"_s;
    QTest::newRow("moltissimi attributi") << Attributi(100'000) << u"00200"_s << u"troppi attributi"_s;
    QTest::newRow("moltissimi, a due byte")
        << DueByte(Attributi(100'000)) << u"00200"_s << u"troppi attributi"_s;
    QTest::newRow("moltissimi, fra segni che a byte paiono altro")
        << DueByte(Attributi(40'000), u"\u013C"_s) << u"00200"_s << u"troppi attributi"_s;
    QTest::newRow("una codifica che nasconde i segni")
        << "<?xml version='1.0' encoding='UTF-7'?><a/>"_ba << u"00200"_s << u"non si legge qui: UTF-7"_s;
    QTest::newRow("di un elaboratore grande")
        << "<?xml version='1.0' encoding='IBM037'?><a/>"_ba << u"00200"_s << u"non si legge qui: IBM037"_s;
    QTest::newRow("byte che non sono UTF-8")
        << "<a>\xE8</a>"_ba << u"00200"_s << u"non è nella sua codifica: UTF-8"_s;
    QTest::newRow("quanti ne stanno") << Attributi(64) << u"00200"_s << u"non è una fattura"_s;
    QTest::newRow("profondo") << QByteArray("<a>").repeated(1'000'000) << u"00200"_s << u"troppo annidati"_s;
    QTest::newRow("numeroso") << "<a>" + QByteArray("<b/>").repeated(400'000) + "</a>" << u"00200"_s
                              << u"troppi elementi"_s;
}

void TestControlli::fileCheNonSono()
{
    QFETCH(QByteArray, Byte);
    QFETCH(QString, Codice);
    QFETCH(QString, Dice);
    const QList<EsitoControllo> Esiti = ControllaFattura(Byte, {}, Giorno);
    QCOMPARE(Esiti.size(), 1);
    QCOMPARE(Esiti[0].Codice, Codice);
    QVERIFY2(Esiti[0].Frase.contains(Dice), qPrintable(Esiti[0].Frase));
    QVERIFY(!Accettabile(Esiti));
}

/// The two samples in other encodings, each declared or marked.
void TestControlli::altreCodifiche_data()
{
    QTest::addColumn<QByteArray>("Codifica");
    QTest::addColumn<bool>("Segnata");
    QTest::newRow("UTF-8 con il segno") << "UTF-8"_ba << true;
    QTest::newRow("UTF-16 con il segno") << "UTF-16LE"_ba << true;
    QTest::newRow("UTF-16 al contrario") << "UTF-16BE"_ba << true;
    QTest::newRow("UTF-16 senza segno") << "UTF-16LE"_ba << false;
    QTest::newRow("latina") << "ISO-8859-1"_ba << false;
    QTest::newRow("latina con l'euro") << "ISO-8859-15"_ba << false;
    QTest::newRow("di Windows") << "windows-1252"_ba << false;
}

void TestControlli::altreCodifiche()
{
    QFETCH(QByteArray, Codifica);
    QFETCH(bool, Segnata);
    QString Testo =
        QString::fromUtf8(Esempio(u"ordinario.xml"_s)).replace(u"CLIENTE DI PROVA"_s, u"SOCIETÀ"_s);
    if (!Codifica.startsWith("UTF"))
        Testo.replace(u"encoding=\"UTF-8\""_s, u"encoding=\"%1\""_s.arg(QString::fromLatin1(Codifica)));
    QStringEncoder Scrivano(Codifica.constData(),
                            Segnata ? QStringConverter::Flag::WriteBom : QStringConverter::Flag::Default);
    QVERIFY2(Scrivano.isValid(), "the toolkit does not know the encoding");
    const QByteArray Byte = Scrivano(Testo);
    QCOMPARE(Detti(ControllaFattura(Byte, {}, Giorno)), QStringList());
}

void TestControlli::moltiErrori()
{
    QByteArray Byte = Esempio(u"ordinario.xml"_s);
    Byte.replace("<DatiRiepilogo>", QByteArray("<Niente/>").repeated(200) + "<DatiRiepilogo>");
    const QList<EsitoControllo> Esiti = ControllaFattura(Byte, {}, Giorno);
    QCOMPARE(Esiti.size(), 51);
    QCOMPARE(Esiti.last().Codice, u"00201"_s);
    QCOMPARE(Codici(Esiti), (QStringList{u"00200"_s, u"00201"_s}));
    // As many as are shown are not more than those.
    QByteArray Cinquanta = Esempio(u"ordinario.xml"_s);
    Cinquanta.replace("<PrezzoTotale>125.00", QByteArray("<Niente/>").repeated(50) + "<PrezzoTotale>125.00");
    QCOMPARE(ControllaFattura(Cinquanta, {}, Giorno).size(), 50);
    QCOMPARE(Codici(ControllaFattura(Cinquanta, {}, Giorno)), QStringList{u"00200"_s});
}

void TestControlli::ilPostoDellErrore()
{
    QByteArray Byte = Esempio(u"ordinario.xml"_s);
    Byte.replace("<PrezzoTotale>150.00", "<PrezzoTotale>150,00");
    const QList<EsitoControllo> Esiti = ControllaFattura(Byte, {}, Giorno);
    QCOMPARE(Esiti.size(), 1);
    QCOMPARE(Esiti[0].Elemento, u"FatturaElettronicaBody/DatiBeniServizi/DettaglioLinee[2]/PrezzoTotale"_s);
    QCOMPARE(Esiti[0].Linea, qint64(Byte.first(Byte.indexOf("150,00")).count('\n') + 1));
    QVERIFY(Esiti[0].Frase.contains(u"«150,00»"));
    QCOMPARE(TestoEsito(Esiti[0]),
             u"Rifiuto, linea %1: %2 (00200)"_s.arg(QString::number(Esiti[0].Linea), Esiti[0].Frase));
    QCOMPARE(TestoEsito(ControllaFattura({}, {}, Giorno)[0]), u"Rifiuto: Il file è vuoto. (00106)"_s);
}

#include "TestControlli.moc"
