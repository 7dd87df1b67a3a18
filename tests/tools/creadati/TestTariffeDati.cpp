#include "banco.h"
#include "supporto/registratore.h"

#include "creadati/formule.h"
#include "platform/database/database.h"

using namespace Qt::StringLiterals;

class TestTariffeDati : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cifreCivili_data();
    void cifreCivili();
    void cifrePenali_data();
    void cifrePenali();
    void formuleStragiudiziali_data();
    void formuleStragiudiziali();
    void vociEScaglioni();
    void tabelleVuote_data();
    void tabelleVuote();
    void tipiDelModello();
    void stessiByteAdOgniGiro();
    void rifiuta_data();
    void rifiuta();
    void rifiutaFormulaCheTrabocca();
    void rifiutaPiuDiVentunoScaglioni();
    void mancaUnaTabella();
    void uscitaNonScrivibile();
    void usoSbagliato();
    void formule_data();
    void formule();

private:
    [[nodiscard]] Recordset Riga(const QString& Sql) const { return Base.OpenRecordset(Sql); }

    QString Uscita;
    Database Base;
};
PROVA(TestTariffeDati);

namespace {

/// The three amounts of a bracket or an office, beside those of the row of data.
void ImportiAttesi(const Recordset& Voce, const QString& Numero)
{
    QTEST(Voce.Value(Numero + u"Med"_s).toDouble(), "Medio");
    QTEST(Voce.Value(Numero + u"Min"_s).toDouble(), "Minimo");
    QTEST(Voce.Value(Numero + u"Max"_s).toDouble(), "Massimo");
}

}  // namespace

void TestTariffeDati::initTestCase()
{
    Uscita = NuovaCartella();
    int Stato = -1;
    QCOMPARE(Esegui({Dati(), Uscita}, Stato), QString());
    QCOMPARE(Stato, 0);
    Base = OpenDatabase(Uscita + u"parcelle.mdb"_s, true);
}

// ---- What the decree fixes -----------------------------------------------------------------------

void TestTariffeDati::cifreCivili_data()
{
    QTest::addColumn<int>("Ufficio");
    QTest::addColumn<QString>("Codice");
    QTest::addColumn<int>("Scaglione");
    QTest::addColumn<double>("Medio");
    QTest::addColumn<double>("Minimo");
    QTest::addColumn<double>("Massimo");

    const auto Voce = [](const char* Nome, int Ufficio, const char* Codice, int Scaglione, double Medio,
                         double Minimo, double Massimo) {
        QTest::newRow(Nome) << Ufficio << QString::fromLatin1(Codice) << Scaglione << Medio << Minimo
                            << Massimo;
    };
    Voce("tribunale, studio", 2, "1", 3, 1200, 600, 1920);
    Voce("tribunale, introduttiva", 2, "2", 3, 600, 300, 960);
    Voce("tribunale, istruttoria +150%", 2, "3", 3, 1200, 360, 3000);
    Voce("tribunale, decisoria", 2, "4", 3, 1500, 750, 2400);
    Voce("tribunale fino a 5.000 come fino a 25.000", 2, "1", 1, 550, 275, 880);
    Voce("istruttoria +130% fino a 500.000", 2, "3", 5, 3250, 975, 7475);
    Voce("istruttoria +100% fino a 1.500.000", 2, "3", 6, 5400, 1620, 10800);
    Voce("oltre 1.500.000 come lo scaglione prima", 2, "4", 7, 6750, 3375, 10800);
    Voce("indeterminato: metà e due volte e mezza", 2, "1", 8, 1200, 600, 3000);
    Voce("indeterminato, decisoria", 2, "4", 8, 1500, 750, 3750);
    Voce("giudice di pace, cifre proprie", 1, "1", 1, 300, 120, 450);
    Voce("giudice di pace, istruttoria +100 -80", 1, "3", 1, 300, 60, 600);
    Voce("giudice di pace, decisoria +30 -70", 1, "4", 1, 400, 120, 520);
    Voce("giudice di pace oltre 5.000, -40%", 1, "1", 2, 330, 165, 528);
    Voce("appello +20%", 4, "1", 3, 1440, 720, 2304);
    Voce("TAR come l'appello", 6, "4", 3, 1800, 900, 2880);
    Voce("cassazione", 8, "1", 3, 1600, 800, 2720);
    Voce("cassazione fino a 25.000: il mezzo euro sale", 8, "4", 2, 855, 428, 1454);
    Voce("Consiglio di Stato +350%", 9, "1", 6, 7200, 3600, 12240);
    Voce("corte costituzionale", 11, "4", 3, 2000, 1000, 3400);
    Voce("ingiunzione fino a 5.000", 13, "19", 1, 375, 50, 700);
    Voce("ingiunzione fino a 1.500.000", 14, "19", 6, 1750, 1000, 2500);
    Voce("precetto oltre 1.500.000", 14, "20", 7, 800, 700, 900);
    Voce("ingiunzione senza valore indeterminato", 14, "19", 8, 0, 0, 0);
    Voce("esecuzione mobiliare", 15, "5", 3, 800, 400, 1280);
    Voce("esecuzione immobiliare", 15, "6", 3, 1800, 900, 2880);
    Voce("presso terzi, mobiliare -10%", 15, "7", 3, 720, 360, 1152);
    Voce("affari tavolari, mobiliare -20%", 15, "8", 3, 640, 320, 1024);
    Voce("arbitrato rituale come il tribunale", 16, "3", 4, 2000, 600, 5000);
}

void TestTariffeDati::cifreCivili()
{
    QFETCH(int, Ufficio);
    QFETCH(QString, Codice);
    QFETCH(int, Scaglione);
    const Recordset Voce =
        Base.OpenRecordset(u"SELECT * FROM OnorariCiv WHERE IDAutor=? AND CodOno=?"_s, {Ufficio, Codice});
    QCOMPARE(Voce.RecordCount(), 1);
    ImportiAttesi(Voce, QString::number(Scaglione));
}

void TestTariffeDati::cifrePenali_data()
{
    QTest::addColumn<int>("Ufficio");
    QTest::addColumn<int>("Codice");
    QTest::addColumn<double>("Medio");
    QTest::addColumn<double>("Minimo");
    QTest::addColumn<double>("Massimo");

    QTest::newRow("monocratico, studio") << 23 << 101 << 300.0 << 150.0 << 1200.0;
    QTest::newRow("monocratico, introduttiva") << 23 << 102 << 600.0 << 300.0 << 900.0;
    QTest::newRow("monocratico, istruttoria") << 23 << 103 << 900.0 << 270.0 << 1800.0;
    QTest::newRow("monocratico, decisoria") << 23 << 104 << 900.0 << 270.0 << 1350.0;
    QTest::newRow("sorveglianza, per ogni ora") << 24 << 105 << 20.0 << 10.0 << 30.0;
    QTest::newRow("giudice di pace, ora -20%") << 21 << 105 << 16.0 << 8.0 << 24.0;
    QTest::newRow("udienza preliminare +20%") << 22 << 101 << 360.0 << 180.0 << 1440.0;
    QTest::newRow("collegiale +30%") << 25 << 104 << 1170.0 << 351.0 << 1755.0;
    QTest::newRow("assise, ora") << 26 << 105 << 50.0 << 25.0 << 75.0;
    QTest::newRow("tribunale di sorveglianza +60%") << 28 << 101 << 480.0 << 240.0 << 1920.0;
    QTest::newRow("assise d'appello +160%") << 29 << 103 << 2340.0 << 702.0 << 4680.0;
    QTest::newRow("magistrature superiori +220%") << 30 << 102 << 1920.0 << 960.0 << 2880.0;
    QTest::newRow("voce libera senza importi") << 30 << 999 << 0.0 << 0.0 << 0.0;
}

void TestTariffeDati::cifrePenali()
{
    QFETCH(int, Ufficio);
    QFETCH(int, Codice);
    const Recordset Voce = Base.OpenRecordset(u"SELECT * FROM OnorariPen WHERE IDOno=?"_s, {Codice});
    QCOMPARE(Voce.RecordCount(), 1);
    ImportiAttesi(Voce, QString::number(Ufficio));
}

void TestTariffeDati::formuleStragiudiziali_data()
{
    QTest::addColumn<int>("Codice");
    QTest::addColumn<int>("Scaglione");
    QTest::addColumn<QString>("Minimo");
    QTest::addColumn<QString>("Massimo");

    QTest::newRow("consultazione, importo fisso") << 201 << 3 << u"150"_s << u"480"_s;
    QTest::newRow("trattativa, primo scaglione") << 206 << 1 << u"50+x*0.03"_s << u"150+x*0.08"_s;
    QTest::newRow("trattativa, ultimo scaglione")
        << 206 << 7 << u"9475+(x-1500000)*0.0025"_s << u"27250+(x-1500000)*0.005"_s;
    QTest::newRow("conciliazione, da zero") << 212 << 2 << u"0"_s << u"220+(x-5000)*0.024"_s;
    QTest::newRow("recupero crediti") << 213 << 1 << u"x*0.04"_s << u"x*0.1"_s;
    QTest::newRow("trasferta a ora") << 219 << 7 << u"50"_s << u"120"_s;
    QTest::newRow("voce libera senza formule") << 999 << 1 << QString() << QString();
}

void TestTariffeDati::formuleStragiudiziali()
{
    QFETCH(int, Codice);
    QFETCH(int, Scaglione);
    const Recordset Voce = Base.OpenRecordset(u"SELECT * FROM OnorariStra WHERE IDOno=?"_s, {Codice});
    QCOMPARE(Voce.RecordCount(), 1);
    const QString Numero = QString::number(Scaglione);
    QTEST(Voce.Value(Numero + u"Min"_s).toString(), "Minimo");
    QTEST(Voce.Value(Numero + u"Max"_s).toString(), "Massimo");
    QVERIFY(!Voce.Value(Numero + u"Med"_s).isValid());
}

void TestTariffeDati::vociEScaglioni()
{
    const Recordset Ora = Riga(u"SELECT * FROM OnorariPen WHERE IDOno=105"_s);
    QCOMPARE(Ora.Value(u"QtaOno"_s).toString(), u"H"_s);
    QCOMPARE(Ora.Value(u"NVoce"_s).toString(), u"95"_s);
    const Recordset Studio = Riga(u"SELECT * FROM OnorariCiv WHERE IDAutor=2 AND CodOno='1'"_s);
    QCOMPARE(Studio.Value(u"DescrOno"_s).toString(), u"Fase di studio della controversia"_s);
    QVERIFY(!Studio.Value(u"QtaOno"_s).isValid());
    QCOMPARE(Riga(u"SELECT * FROM OnorariCiv WHERE NVoce='999'"_s).RecordCount(), 1);

    const Recordset Indeterminato = Riga(u"SELECT * FROM Scaglioni WHERE Materia='C' AND NumSca=8"_s);
    QCOMPARE(Indeterminato.Value(u"DesVal"_s).toString().left(20), u"Valore Indeterminato"_s);
    const Recordset Oltre = Riga(u"SELECT * FROM Scaglioni WHERE Materia='C' AND NumSca=7"_s);
    QCOMPARE(Oltre.Value(u"DaVal"_s).toDouble(), 1500000.01);
    QCOMPARE(Oltre.Value(u"AVal"_s).toDouble(), 999999999999.99);
    QCOMPARE(Oltre.Value(u"RicValore"_s).toBool(), true);

    QCOMPARE(Riga(u"Diritti"_s).RecordCount(), 40);
    const Recordset Marca = Riga(u"SELECT * FROM Diritti WHERE IDDir=3"_s);
    QCOMPARE(Marca.Value(u"DescrDir"_s).toString(), u"Marca da bollo"_s);
}

// ---- Template tables -----------------------------------------------------------------------------

void TestTariffeDati::tabelleVuote_data()
{
    QTest::addColumn<QString>("Tabella");
    QTest::addColumn<QString>("Colonne");

    QTest::newRow("parametri")
        << u"ParcellaParam"_s
        << u"IDCli IDCon Categ Autor Valore Importo TipoStampa AumRidVarP AumRidIdx Testo1 Testo2 VisMinMax "
           u"IVA RA "
           "CP SpeseGen NsRif Cliente Controp Oggetto DataFatt NumFatt DepAut DepSez DepRuolo DepGiud Psw"_s;
    QTest::newRow("righe")
        << u"ParcellaRighe"_s
        << u"OnoDir Data Descr NVoce CodOnoDir Qta Importo Imp1 Imp2 Imp3 Imp4 Imp5 Imp6 VarP"_s;
    QTest::newRow("acconti") << u"ParcellaAcconti"_s << u"DesAcc Valuta Corr SpImp SpEse"_s;
    QTest::newRow("valori delle vecchie tariffe") << u"DirittiValori"_s << u"CodDir NumSca Valore"_s;
}

void TestTariffeDati::tabelleVuote()
{
    QFETCH(QString, Tabella);
    QStringList Nomi;
    for (const Campo& Uno : Base.Campi(Tabella))
        Nomi.append(Uno.Name);
    QTEST(Nomi.join(u' '), "Colonne");
    QCOMPARE(Base.OpenRecordset(Tabella).RecordCount(), 0);
}

void TestTariffeDati::tipiDelModello()
{
    QHash<QString, Campo> Campi;
    for (const auto& Tabella : {u"ParcellaParam"_s, u"ParcellaRighe"_s, u"ParcellaAcconti"_s}) {
        for (const Campo& Uno : Base.Campi(Tabella))
            Campi.insert(Tabella + u'.' + Uno.Name, Uno);
    }
    for (const auto& Lungo : {u"IDCli"_s, u"IDCon"_s, u"Categ"_s, u"Autor"_s, u"Valore"_s, u"TipoStampa"_s})
        QCOMPARE(Campi[u"ParcellaParam."_s + Lungo].Type, TipoCampo::Lungo);
    QCOMPARE(Campi[u"ParcellaParam.SpeseGen"_s].Type, TipoCampo::Singolo);
    QCOMPARE(Campi[u"ParcellaParam.IVA"_s].Type, TipoCampo::Doppio);
    QCOMPARE(Campi[u"ParcellaParam.Cliente"_s].Type, TipoCampo::Memo);
    QCOMPARE(Campi[u"ParcellaParam.DataFatt"_s].Type, TipoCampo::Data);
    QCOMPARE(Campi[u"ParcellaParam.Psw"_s].Size, 18);
    QCOMPARE(Campi[u"ParcellaRighe.OnoDir"_s].Size, 1);
    QCOMPARE(Campi[u"ParcellaRighe.Data"_s].Type, TipoCampo::Data);
    QCOMPARE(Campi[u"ParcellaRighe.Descr"_s].Size, 60);
    QCOMPARE(Campi[u"ParcellaRighe.Qta"_s].Type, TipoCampo::Testo);
    QCOMPARE(Campi[u"ParcellaRighe.Imp6"_s].Type, TipoCampo::Doppio);
    QCOMPARE(Campi[u"ParcellaAcconti.SpEse"_s].Type, TipoCampo::Doppio);

    Recordset Valori = Base.OpenRecordset(u"DirittiValori"_s);
    Valori.ImpostaIndex(u"CodDir"_s);
    Valori.Seek(u"="_s, 1);
    QVERIFY(Valori.NoMatch());
}

void TestTariffeDati::stessiByteAdOgniGiro()
{
    const QString Altra = NuovaCartella();
    int Stato = -1;
    Esegui({Dati(), Altra}, Stato);
    QCOMPARE(Stato, 0);
    for (const auto& Nome : {u"parcelle.mdb"_s, u"parcelle55.mdb"_s, u"DatiStudio.mdb"_s, u"Tassi.dat"_s,
                             u"Comuni.mdb"_s, u"Norme.mdb"_s}) {
        QVERIFY(!Contenuto(Uscita + Nome).isEmpty());
        QCOMPARE(Contenuto(Altra + Nome), Contenuto(Uscita + Nome));
    }
    QCOMPARE(QDir(Altra).entryList(QDir::Files | QDir::Hidden).size(), 6);
}

// ---- Refusals ------------------------------------------------------------------------------------

void TestTariffeDati::rifiuta_data()
{
    QTest::addColumn<QString>("Tabella");
    QTest::addColumn<int>("Numero");
    QTest::addColumn<QString>("Prima");
    QTest::addColumn<QString>("Dopo");
    QTest::addColumn<QString>("Frase");

    // Row `Numero` of the file has `Prima` replaced by `Dopo`; a row made empty is passed over.
    const auto Caso = [](const char* Nome, const QString& Tabella, int Numero, const QString& Prima,
                         const QString& Dopo, const QString& Frase) {
        QTest::newRow(Nome) << Tabella + u".csv"_s << Numero << Prima << Dopo
                            << Tabella + u".csv, riga "_s + Frase + u'\n';
    };
    // A row taken away, missed in another table.
    const auto Altrove = [](const char* Nome, const QString& Tabella, int Numero, const QString& Prima,
                            const QString& Frase) {
        QTest::newRow(Nome) << Tabella + u".csv"_s << Numero << Prima << QString() << Frase + u'\n';
    };
    const auto Autorita = u"autorita"_s;
    const auto Scaglioni = u"scaglioni"_s;
    const auto Voci = u"voci"_s;
    const auto Civili = u"onorari_civili"_s;
    const auto Precedenti = u"chiavi_precedenti"_s;
    const auto Penali = u"onorari_penali"_s;
    const auto Stragiudiziali = u"onorari_stragiudiziali"_s;

    Caso("colonna mancante", Voci, 1, u"ordine;"_s, {}, u"1, colonna ordine: colonna mancante"_s);
    Caso("colonna in più", Voci, 1, u"quantità"_s, u"quantità;note"_s,
         u"1, colonna note: colonna sconosciuta"_s);
    Caso("cifra che non è un numero", Civili, 36, u"1200"_s, u"1200,5"_s,
         u"36, colonna medio: «1200,5» non è un importo"_s);
    Caso("carattere fuori da Windows-1252", Voci, 4, u"Fase"_s, u"Fāse"_s,
         u"4, colonna descrizione: U+0101 non è un carattere di Windows-1252"_s);

    Caso("categoria sconosciuta", Autorita, 4, u"CIV"_s, u"TAV"_s,
         u"4, colonna categoria: «TAV» non è fra CIV, PEN, STR"_s);
    Caso("autorità ripetuta", Autorita, 20, u";23;"_s, u";22;"_s,
         u"20, colonna numero: il numero 22 è già in una riga precedente"_s);
    Caso("ordine ripetuto", Autorita, 4, u"CIV;3"_s, u"CIV;2"_s,
         u"4, colonna ordine: il numero 2 è già in una riga precedente"_s);
    Caso("gruppo mancante", Autorita, 4, u";tribunale;"_s, u";;"_s, u"4, colonna gruppo: il testo manca"_s);
    Caso("autorità civile senza importi", Autorita, 4, u";tribunale;"_s, u";tribunali;"_s,
         u"4, colonna gruppo: il gruppo «tribunali» non ha importi civili"_s);
    Caso("autorità penale senza importi", Autorita, 20, u";monocratico;"_s, u";unico;"_s,
         u"20, colonna gruppo: al gruppo «unico» manca l'importo penale della voce 101"_s);
    Caso("precarica che non è sì né no", Autorita, 4, u"sì"_s, u"1"_s,
         u"4, colonna precarica: «1» non è né sì né no"_s);
    Caso("compatibili senza la prima virgola", Autorita, 3, u";,13"_s, u";13"_s,
         u"3, colonna compatibili: serve * oppure un elenco di numeri chiuso fra virgole"_s);
    Caso("compatibili senza l'ultima virgola", Autorita, 3, u"14,"_s, u"14"_s,
         u"3, colonna compatibili: serve * oppure un elenco di numeri chiuso fra virgole"_s);
    Caso("compatibile che non esiste", Autorita, 3, u"14,"_s, u"17,"_s,
         u"3, colonna compatibili: la categoria CIV non ha l'autorità 17"_s);
    Caso("compatibile di un'altra categoria", Autorita, 3, u"14,"_s, u"23,"_s,
         u"3, colonna compatibili: la categoria CIV non ha l'autorità 23"_s);

    Caso("materia sconosciuta", Scaglioni, 10, u"S;1"_s, u"P;1"_s,
         u"10, colonna materia: «P» non è fra C, S"_s);
    Caso("scaglione ripetuto", Scaglioni, 3, u"C;2"_s, u"C;1"_s,
         u"3, colonna numero: il numero 1 è già in una riga precedente"_s);
    Caso("primo scaglione oltre un centesimo", Scaglioni, 2, u"0.01"_s, u"0.02"_s,
         u"2, colonna da: lo scaglione lascia un vuoto: doveva cominciare da 0.01"_s);
    Caso("vuoto di un centesimo", Scaglioni, 4, u"25000.01"_s, u"25000.02"_s,
         u"4, colonna da: lo scaglione lascia un vuoto: doveva cominciare da 25000.01"_s);
    Caso("sovrapposizione di un centesimo", Scaglioni, 12, u"25000.01"_s, u"25000.00"_s,
         u"12, colonna da: lo scaglione si sovrappone al precedente: doveva cominciare da 25000.01"_s);
    Caso("limiti scambiati", Scaglioni, 4, u"25000.01;50000.00"_s, u"50000.00;25000.01"_s,
         u"4, colonna da: il limite inferiore supera quello superiore"_s);
    Caso("scaglione tolto in mezzo", Scaglioni, 5,
         u"C;4;50000.01;100000.00;no;da € 50.000,01 a € 100.000,00"_s, {},
         u"6, colonna da: lo scaglione lascia un vuoto: doveva cominciare da 50000.01"_s);
    Caso("indeterminato a un altro numero", Scaglioni, 9, u"C;8"_s, u"C;9"_s,
         u"9, colonna numero: il valore indeterminato sta al numero 8"_s);
    Caso("indeterminato con altre maiuscole", Scaglioni, 9, u"Valore I"_s, u"Valore i"_s,
         u"9, colonna testo: il numero 8 comincia con «Valore Indeterminato»"_s);
    Caso("indeterminato con un limite", Scaglioni, 9, u"0.00;0.00"_s, u"0.00;0.01"_s,
         u"9, colonna a: il valore indeterminato non ha limiti"_s);
    Caso("indeterminato mancante", Scaglioni, 9, u"C;8;0.00;0.00;no;Valore Indeterminato o indeterminabile"_s,
         {}, u"16, colonna testo: manca il valore indeterminato al numero 8"_s);

    Caso("voce 1000", Voci, 19, u"999;999;999"_s, u"999;1000;999"_s,
         u"19, colonna voce: 1000 non è fra 1 e 999"_s);
    Caso("voce che non è un numero", Voci, 5, u"4;4;4"_s, u"4;4a;4"_s,
         u"5, colonna voce: «4a» non è un numero intero"_s);
    Caso("voce ripetuta nella categoria", Voci, 5, u"4;4;4"_s, u"4;3;4"_s,
         u"5, colonna voce: il numero 3 è già in una riga precedente"_s);
    Caso("codice ripetuto nella categoria", Voci, 5, u"4;4;4"_s, u"3;4;4"_s,
         u"5, colonna codice: il numero 3 è già in una riga precedente"_s);
    Caso("codice di un'altra categoria", Voci, 14, u"PEN;101"_s, u"PEN;1"_s,
         u"14, colonna codice: il codice 1 è già della categoria CIV"_s);
    Caso("codice della voce libera altrui", Voci, 14, u"PEN;101"_s, u"PEN;999"_s,
         u"14, colonna codice: il codice 999 è già della categoria CIV"_s);
    Caso("codice precedente ripetuto", Precedenti, 3, u"PEN;2;102"_s, u"PEN;1;102"_s,
         u"3, colonna precedente: il numero 1 è già in una riga precedente"_s);
    Caso("codice precedente di una voce presente", Precedenti, 2, u"PEN;1;101"_s, u"PEN;105;101"_s,
         u"2, colonna precedente: il codice 105 è di una voce presente"_s);
    Caso("codice precedente che non porta a nulla", Precedenti, 2, u"PEN;1;101"_s, u"PEN;1;201"_s,
         u"2, colonna codice: nessuna voce ha il codice 201"_s);
    Caso("descrizione di 61 caratteri", Voci, 5, u"Fase decisoria"_s, QString(61, u'a'),
         u"5, colonna descrizione: il testo supera i 60 caratteri"_s);
    Caso("minimo della quantità senza importo", Voci, 20, u";N"_s, u";>x"_s,
         u"20, colonna quantità: dopo > serve un importo"_s);
    Caso("manca la 999 civile", Voci, 13, u"CIV;999;999;999;Voce non prevista;"_s, {},
         u"39, colonna voce: alla categoria CIV manca la voce 999"_s);
    Caso("manca la 999 penale", Voci, 19, u"PEN;999;999;999;Voce non prevista;"_s, {},
         u"39, colonna voce: alla categoria PEN manca la voce 999"_s);
    Caso("manca la 999 stragiudiziale", Voci, 39, u"STR;999;999;999;Voce non prevista;"_s, {},
         u"38, colonna voce: alla categoria STR manca la voce 999"_s);
    Caso("voce civile in nessun gruppo", Voci, 12, u"precetto;"_s, u"precetto;\nCIV;21;21;3;Altro;"_s,
         u"13, colonna codice: nessun gruppo civile ha la voce 21"_s);

    Caso("importi di un gruppo senza autorità", Civili, 34, u"tribunale"_s, u"pretura"_s,
         u"34, colonna gruppo: nessuna autorità CIV appartiene al gruppo «pretura»"_s);
    Caso("importi di una voce sconosciuta", Civili, 34, u"tribunale;1;1"_s, u"tribunale;77;1"_s,
         u"34, colonna codice: la voce 77 non è fra le voci CIV"_s);
    Caso("importi della voce libera", Civili, 34, u"tribunale;1;1"_s, u"tribunale;999;1"_s,
         u"34, colonna codice: la voce 999 non ha importi"_s);
    Caso("scaglione sconosciuto", Civili, 34, u"tribunale;1;1"_s, u"tribunale;1;9"_s,
         u"34, colonna scaglione: la materia C non ha lo scaglione 9"_s);
    Caso("riga ripetuta", Civili, 35, u"tribunale;1;2"_s, u"tribunale;1;1"_s,
         u"35, colonna codice: la voce 1 è già in una riga precedente"_s);
    Caso("scaglione senza importi", Civili, 201, u"esecuzione;9;8;900;1800;4500"_s, {},
         u"194, colonna scaglione: alla voce 9 manca lo scaglione 8"_s);
    Caso("minimo sopra il medio", Civili, 36, u"600;1200"_s, u"1201;1200"_s,
         u"36, colonna minimo: il minimo supera il medio"_s);
    Caso("medio sopra il massimo", Penali, 12, u"300;1200"_s, u"1201;1200"_s,
         u"12, colonna medio: il medio supera il massimo"_s);
    Altrove(
        "importo penale mancante", Penali, 41, u"superiori;105;32;64;96"_s,
        u"autorita.csv, riga 27, colonna gruppo: al gruppo «superiori» manca l'importo penale della voce 105"_s);
    Caso("formula con prodotto sottinteso", Stragiudiziali, 37, u"50+x*0.03"_s, u"50+3x"_s,
         u"37, colonna minimo: segno fuori posto alla posizione 5"_s);
    Caso("formula negativa", Stragiudiziali, 37, u"50+x*0.03"_s, u"x-1"_s,
         u"37, colonna minimo: la formula è negativa per x = 0.01"_s);
    Caso("formula divisa per zero a un estremo", Stragiudiziali, 37, u"50+x*0.03"_s, u"1/(5000-x)"_s,
         u"37, colonna minimo: la formula non ha un valore per x = 5000.00"_s);
    Caso("minimo sopra il massimo in fondo allo scaglione", Stragiudiziali, 37, u"50+x*0.03"_s,
         u"50+x*0.11"_s, u"37, colonna minimo: il minimo supera il massimo per x = 5000.00"_s);
    Caso("minimo sopra il massimo in cima allo scaglione", Stragiudiziali, 37, u"50+x*0.03"_s, u"151"_s,
         u"37, colonna minimo: il minimo supera il massimo per x = 0.01"_s);
    Caso("minimo sopra il massimo solo a metà", Stragiudiziali, 37, u"50+x*0.03"_s, u"x*(5000-x)"_s,
         u"37, colonna minimo: il minimo supera il massimo per x = 2500.01"_s);
    Altrove("formule di uno scaglione mancanti", Stragiudiziali, 134, u"219;7;50;120"_s,
            u"voci.csv, riga 38, colonna codice: alla voce 219 mancano le formule dello scaglione 7"_s);
    Caso("spesa ripetuta", u"spese"_s, 3, u"2;2;2"_s, u"1;2;2"_s,
         u"3, colonna codice: il numero 1 è già in una riga precedente"_s);
    Caso("spesa con descrizione lunga", u"spese"_s, 4, u"Marca da bollo"_s, QString(61, u'x'),
         u"4, colonna descrizione: il testo supera i 60 caratteri"_s);
}

void TestTariffeDati::rifiuta()
{
    QFETCH(QString, Tabella);
    QFETCH(int, Numero);
    QFETCH(QString, Prima);
    QFETCH(QString, Dopo);
    QFETCH(QString, Frase);
    RifiutaRiga(Tabella, Numero, Prima, Dopo, Frase);
}

void TestTariffeDati::rifiutaFormulaCheTrabocca()
{
    Registratore Messaggi;
    Messaggi.Attendi(u"overflow"_s);
    const QString Cartella = CopiaTabelle();
    const QString Tabella = Cartella + u"onorari_stragiudiziali.csv"_s;
    QByteArray Formule = Contenuto(Tabella);
    Formule.replace("9475+(x-1500000)*0.0025", "x" + QByteArray("*x").repeated(59));
    Scrivi(Tabella, Formule);
    int Stato = -1;
    QCOMPARE(
        Esegui({Cartella, NuovaCartella()}, Stato),
        u"onorari_stragiudiziali.csv, riga 43, colonna minimo: la formula non ha un valore per x = 1500000.01\n"_s);
    QCOMPARE(Stato, 1);
}

void TestTariffeDati::rifiutaPiuDiVentunoScaglioni()
{
    // Beyond 1.500.000 the last matter goes on in brackets of one cent each.
    const auto Prova = [](int Quanti) {
        const QString Cartella = CopiaTabelle();
        QByteArray Scaglioni = Contenuto(Cartella + u"scaglioni.csv"_s);
        Scaglioni.replace("S;7;1500000.01;999999999999.99;", "S;7;1500000.01;1500000.01;");
        for (int n = 8; n <= Quanti; ++n) {
            const QByteArray Limite = "1500000." + QByteArray::number(n - 6).rightJustified(2, '0');
            Scaglioni +=
                "S;" + QByteArray::number(std::min(n, 21)) + ';' + Limite + ';' + Limite + ";sì;oltre\n";
        }
        Scrivi(Cartella + u"scaglioni.csv"_s, Scaglioni);
        int Stato = -1;
        return Esegui({Cartella, NuovaCartella()}, Stato);
    };
    QCOMPARE(Prova(22), u"scaglioni.csv, riga 31, colonna materia: la materia S ha più di 21 scaglioni\n"_s);
    // Twenty-one pass this check, and are refused only for want of formulas.
    QCOMPARE(Prova(21),
             u"voci.csv, riga 20, colonna codice: alla voce 201 mancano le formule dello scaglione 8\n"_s);
}

void TestTariffeDati::mancaUnaTabella()
{
    const QString Cartella = CopiaTabelle();
    QVERIFY(QFile::remove(Cartella + u"spese.csv"_s));
    int Stato = -1;
    QCOMPARE(Esegui({Cartella, NuovaCartella()}, Stato), u"Manca la tabella spese.csv\n"_s);
    QCOMPARE(Stato, 1);
}

void TestTariffeDati::uscitaNonScrivibile()
{
    const QString File = NuovaCartella() + u"file"_s;
    Scrivi(File, "x");
    int Stato = -1;
    QVERIFY(!Esegui({Dati(), File}, Stato).isEmpty());
    QCOMPARE(Stato, 1);
}

void TestTariffeDati::usoSbagliato()
{
    int Stato = -1;
    QCOMPARE(Esegui({Dati()}, Stato), u"Uso: creadati <cartella delle tabelle> <cartella di uscita>\n"_s);
    QCOMPARE(Stato, 2);
}

// ---- Formulas ------------------------------------------------------------------------------------

void TestTariffeDati::formule_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Difetto");

    QTest::newRow("numero") << u"150"_s << QString();
    QTest::newRow("valore") << u"x"_s << QString();
    QTest::newRow("scaglione") << u"200+(x-5000)*0.02"_s << QString();
    QTest::newRow("parentesi annidate") << u"((x))/2"_s << QString();
    QTest::newRow("vuota") << QString() << u"la formula è incompleta"_s;
    QTest::newRow("operatore in fondo") << u"x*"_s << u"la formula è incompleta"_s;
    QTest::newRow("parentesi aperta") << u"(x"_s << u"parentesi non chiusa"_s;
    QTest::newRow("parentesi chiusa in più") << u"x)"_s << u"segno fuori posto alla posizione 2"_s;
    QTest::newRow("parentesi vuota") << u"()"_s << u"segno fuori posto alla posizione 2"_s;
    QTest::newRow("meno davanti") << u"-x"_s << u"segno fuori posto alla posizione 1"_s;
    QTest::newRow("due operatori") << u"2*-3"_s << u"segno fuori posto alla posizione 3"_s;
    QTest::newRow("prodotto sottinteso") << u"2x"_s << u"segno fuori posto alla posizione 2"_s;
    QTest::newRow("prodotto sottinteso con parentesi")
        << u"2(x)"_s << u"segno fuori posto alla posizione 2"_s;
    QTest::newRow("virgola decimale") << u"x*0,5"_s << u"segno non ammesso alla posizione 4"_s;
    QTest::newRow("spazio") << u"x *2"_s << u"segno non ammesso alla posizione 2"_s;
    QTest::newRow("funzione") << u"sqrt(x)"_s << u"segno non ammesso alla posizione 1"_s;
    QTest::newRow("X maiuscola") << u"X"_s << u"segno non ammesso alla posizione 1"_s;
    QTest::newRow("punto senza decimali") << u"2.*x"_s << u"segno non ammesso alla posizione 2"_s;
}

void TestTariffeDati::formule()
{
    QFETCH(QString, Testo);
    QTEST(DifettoFormula(Testo), "Difetto");
}

#include "TestTariffeDati.moc"
