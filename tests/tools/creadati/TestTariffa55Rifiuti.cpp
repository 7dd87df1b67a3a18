// Tables of the tariff of 2014 that are refused: the sentence names file, row and column.
#include "banco.h"

using namespace Qt::StringLiterals;

class TestTariffa55Rifiuti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rifiuta_data();
    void rifiuta();
    void voceDiDueTariffe();
};
PROVA(TestTariffa55Rifiuti);

void TestTariffa55Rifiuti::rifiuta_data()
{
    QTest::addColumn<QString>("Tabella");
    QTest::addColumn<int>("Numero");
    QTest::addColumn<QString>("Prima");
    QTest::addColumn<QString>("Dopo");
    QTest::addColumn<QString>("Frase");

    const auto Caso = [](const char* Nome, const QString& Tabella, int Numero, const QString& Prima,
                         const QString& Dopo, const QString& Frase) {
        const QString File = Tabella + u"55.csv"_s;
        QTest::newRow(Nome) << File << Numero << Prima << Dopo << File + u", riga "_s + Frase + u'\n';
    };
    const auto Compensi = u"compensi"_s;
    const auto Variazioni = u"variazioni"_s;
    const auto Corrispondenze = u"corrispondenze"_s;

    Caso("categoria", Compensi, 2, u"CIV;"_s, u"TAV;"_s,
         u"2, colonna categoria: «TAV» non è fra CIV, PEN, STR"_s);
    Caso("unità", Compensi, 2, u";euro;"_s, u";lire;"_s,
         u"2, colonna unità: «lire» non è né euro né percento"_s);
    Caso("quota di una causa", Compensi, 2, u";euro;"_s, u";percento;"_s,
         u"2, colonna unità: una quota del valore è soltanto stragiudiziale"_s);
    Caso("gruppo senza uffici", Compensi, 2, u"giudice di pace"_s, u"pretura"_s,
         u"2, colonna gruppo: nessuna autorità CIV appartiene al gruppo «pretura»"_s);
    Caso("voce sconosciuta", Compensi, 2, u";301;"_s, u";300;"_s,
         u"2, colonna codice: la voce 300 non è fra le voci CIV"_s);
    Caso("limite di nessuno scaglione", Compensi, 2, u";1100.00;"_s, u";1000.00;"_s,
         u"2, colonna a: nessuno scaglione ha questo limite"_s);
    Caso("inizio di nessuno scaglione", Compensi, 2, u";0.01;"_s, u";0.02;"_s,
         u"2, colonna da: nessuno scaglione ha questo limite"_s);
    Caso("limiti scambiati", Compensi, 3, u";1100.01;5200.00;"_s, u";5200.01;5200.00;"_s,
         u"3, colonna da: il limite inferiore supera quello superiore"_s);
    Caso("due cifre per uno scaglione", Compensi, 3, u";1100.01;5200.00;"_s, u";0.01;1100.00;"_s,
         u"3, colonna medio: la voce 301 ha già un importo qui"_s);
    Caso("valore nel penale", Compensi, 462, u";401;;;"_s, u";401;0.01;1100.00;"_s,
         u"462, colonna da: nel penale il valore non conta"_s);
    Caso("quota staccata", Compensi, 522, u";2000000.01;4000000.00;"_s, u";4000000.01;6000000.00;"_s,
         u"522, colonna da: la quota non segue la riga che la precede"_s);
    Caso("gradino su uno scaglione pieno", u"gradini"_s, 2, u"7;6;30"_s, u"5;6;30"_s,
         u"2, colonna scaglione: lo scaglione 5 ha già importi"_s);
    Caso("gradino da nessuno scaglione", u"gradini"_s, 2, u"7;6;30"_s, u"7;15;30"_s,
         u"2, colonna da: la materia C non ha lo scaglione 15"_s);
    Caso("indeterminato fuori posto", u"scaglioni"_s, 14, u"C;13;"_s, u"C;15;"_s,
         u"14, colonna numero: il valore indeterminato sta al numero 8 o 13 o 14"_s);
    Caso("indeterminato che non si chiama così", u"scaglioni"_s, 15, u"Valore Indeterminato"_s,
         u"Valore incerto"_s, u"15, colonna testo: il numero 14 comincia con «Valore Indeterminato»"_s);
    Caso("indeterminato che manca", u"scaglioni"_s, 14,
         u"C;13;0.00;0.00;no;Valore Indeterminato (52.000 - 260.000)"_s, {},
         u"33, colonna testo: manca il valore indeterminato al numero 13"_s);
    Caso("ufficio penale senza importi", u"autorita"_s, 43, u";monocratico;"_s, u";minorile;"_s,
         u"43, colonna gruppo: il gruppo «minorile» non ha importi penali"_s);

    Caso("numero del 2012", Variazioni, 2, u"101;CIV"_s, u"10;CIV"_s,
         u"2, colonna numero: 10 non è fra 101 e 32767"_s);
    Caso("numero ripetuto", Variazioni, 3, u"102;CIV"_s, u"101;CIV"_s,
         u"3, colonna numero: il numero 101 è già in una riga precedente"_s);
    Caso("frase senza percento", Variazioni, 2, u"del %1%"_s, u"del 30%"_s,
         u"2, colonna frase: la frase vuole una volta %1"_s);
    Caso("segno", Variazioni, 2, u";+;"_s, u";x;"_s, u"2, colonna segno: «x» non è né + né -"_s);
    Caso("limite oltre la proposta", Variazioni, 2, u";30;1;"_s, u";1;30;"_s,
         u"2, colonna ultimo: il limite supera la percentuale proposta"_s);
    Caso("terzi che non tornano", Variazioni, 5, u";33;1;1;"_s, u";34;1;1;"_s,
         u"5, colonna terzi: i terzi non fanno la percentuale proposta"_s);
    Caso("voce di un'altra categoria", Variazioni, 3, u";,304,;"_s, u";,404,;"_s,
         u"3, colonna voci: il numero 404 non è della categoria"_s);
    Caso("voce libera", Variazioni, 3, u";,304,;"_s, u";,399,;"_s,
         u"3, colonna voci: il numero 399 non è della categoria"_s);
    Caso("elenco senza la virgola in fondo", Variazioni, 3, u";,304,;"_s, u";,304;"_s,
         u"3, colonna voci: serve * oppure un elenco di numeri chiuso fra virgole"_s);
    Caso("ufficio di un'altra categoria", Variazioni, 7, u",121,122,"_s, u",121,131,"_s,
         u"7, colonna uffici: il numero 131 non è della categoria"_s);
    Caso("parti con un vuoto", u"parti"_s, 3, u";11;30;"_s, u";12;30;"_s,
         u"3, colonna da: doveva cominciare da 11"_s);
    Caso("parti dalla prima", u"parti"_s, 2, u";2;10;"_s, u";1;10;"_s,
         u"2, colonna da: 1 non è fra 2 e 999"_s);
    Caso("genere", Corrispondenze, 2, u"A;CIV"_s, u"B;CIV"_s, u"2, colonna genere: «B» non è né A né V"_s);
    Caso("ufficio che non c'è", Corrispondenze, 2, u";101"_s, u";100"_s,
         u"2, colonna codice: il numero 100 non è della categoria"_s);
    Caso("due nomi", u"tariffa"_s, 2, u"55;"_s, u"55;a;b;2022-10-23;1\n55;"_s,
         u"3, colonna codice: serve una riga sola"_s);

    QTest::newRow("chiave del 2012")
        << u"voci55.csv"_s << 2 << u"CIV;301;"_s << u"CIV;13;"_s
        << u"compensi55.csv, riga 2, colonna codice: la voce 301 non è fra le voci CIV\n"_s;
    QTest::newRow("voce libera del 2012")
        << u"voci55.csv"_s << 18 << u"CIV;399;"_s << u"CIV;999;"_s
        << u"corrispondenze55.csv, riga 52, colonna codice: il numero 399 non è della categoria\n"_s;
    QTest::newRow("voce di due tariffe")
        << u"voci55.csv"_s << 28 << u"STR;505;"_s << u"STR;215;"_s
        << u"onorari_stragiudiziali55.csv, riga 2, colonna codice: la voce 505 non è fra le voci STR\n"_s;
    QTest::newRow("corrispondenza con nulla")
        << u"corrispondenze55.csv"_s << 2 << u"A;CIV;1;"_s << u"A;CIV;17;"_s
        << u"corrispondenze55.csv: la tariffa del 2012 non ha il numero 17\n"_s;
    QTest::newRow("ufficio di due tariffe")
        << u"autorita55.csv"_s << 48 << u"STR;3;163;"_s << u"STR;4;43;Altro;;no;*\nSTR;3;163;"_s
        << u"l'autorità 43 è di due tariffe\n"_s;
}

void TestTariffa55Rifiuti::rifiuta()
{
    QFETCH(QString, Tabella);
    QFETCH(int, Numero);
    QFETCH(QString, Prima);
    QFETCH(QString, Dopo);
    QFETCH(QString, Frase);
    RifiutaRiga(Tabella, Numero, Prima, Dopo, Frase);
}

void TestTariffa55Rifiuti::voceDiDueTariffe()
{
    const QString Cartella = CopiaTabelle();
    for (const QString& Nome : {u"voci55.csv"_s, u"onorari_stragiudiziali55.csv"_s}) {
        QByteArray Tabella = Contenuto(Cartella + Nome);
        QVERIFY(Tabella.contains("505;"));
        Scrivi(Cartella + Nome, Tabella.replace("505;", "215;"));
    }
    int Stato = -1;
    QCOMPARE(Esegui({Cartella, NuovaCartella()}, Stato), u"la voce 215 è di due tariffe\n"_s);
    QCOMPARE(Stato, 1);
}

#include "TestTariffa55Rifiuti.moc"
