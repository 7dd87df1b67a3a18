// The criterion of a search as text, and what it finds among rows.
#include "supporto/prova.h"

#include "addressbook/archivio_schede.h"
#include "addressbook/modRicerca.h"
#include "addressbook/modScheda.h"
#include "supporto/guasti.h"

using namespace Qt::StringLiterals;

class TestModRicerca : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void laTabella();
    void operatoriPerTipo_data();
    void operatoriPerTipo();
    void tasti_data();
    void tasti();
    void criteri_data();
    void criteri();
    void siTrova_data();
    void siTrova();
    void nomiStrani_data();
    void nomiStrani();
    void rifiutati_data();
    void rifiutati();
    void ilSuccessivoEIlPrecedente();
    void senzaRigaCorrente();
    void tabellaVuota();

private:
    Campo Colonna(const QString& Nome) const { return *TrovaCampo(Righe.Campi(), Nome); }
    int Corrente() const { return Righe.Value(u"ID"_s).toInt(); }
    Database Db;
    Recordset Righe;
};
PROVA(TestModRicerca);

void TestModRicerca::init()
{
    Db = ArchivioSchede();
    Righe = Db.OpenRecordset(u"clienti"_s);
}

void TestModRicerca::laTabella()
{
    QStringList Tutti;
    for (const QStringView Testo : TabellaOperatori)
        Tutti += Testo.toString();
    QCOMPARE(
        Tutti.join(u'|'),
        u"Uguale a|Diverso da|Maggiore di|Maggiore o uguale a|Minore di|Minore o uguale a|Vuoto|Non "
        "vuoto|Inizia per|Termina per|Contiene|Non contiene|=|<>|>|>=|<|<=|=|<>|Like|Like|Like|Not Like"_s);
}

void TestModRicerca::operatoriPerTipo_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<int>("Operatori");
    QTest::addColumn<int>("Lunghezza");
    QTest::newRow("testo") << u"Nominativo"_s << 12 << 20;
    QTest::newRow("data") << u"DataNascita"_s << 12 << 10;
    QTest::newRow("memo") << u"Note"_s << 8 << 9;
    QTest::newRow("logico") << u"Attivo"_s << 8 << 9;
    QTest::newRow("intero") << u"Anni"_s << 8 << 9;
    QTest::newRow("valuta") << u"Saldo"_s << 8 << 9;
    QTest::newRow("contatore") << u"ID"_s << 8 << 9;
}

void TestModRicerca::operatoriPerTipo()
{
    QFETCH(QString, Nome);
    QTEST(OperatoriDi(Colonna(Nome).Type), "Operatori");
    QTEST(LunghezzaRicerca(Colonna(Nome)), "Lunghezza");
}

void TestModRicerca::tasti_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Passano");
    QTest::newRow("data") << 8 << u"09/"_s;
    for (const int Tipo : {2, 3, 4, 19})
        QTest::addRow("numero %d", Tipo) << Tipo << u"09"_s;
    for (const int Tipo : {1, 5, 6, 7, 10, 12})
        QTest::addRow("altro %d", Tipo) << Tipo << u"09/-,.aà "_s;
}

void TestModRicerca::tasti()
{
    QFETCH(int, Tipo);
    QString Passati;
    for (const QChar Carattere : u"09/-,.aà "_s)
        if (TastoRicerca(TipoCampo(Tipo), Carattere))
            Passati += Carattere;
    QTEST(Passati, "Passano");
}

void TestModRicerca::criteri_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<int>("Operatore");
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Criterio");
    const auto Riga = [](const char* Perche, const QString& Nome, int Operatore, const QString& Testo,
                         const QString& Criterio) {
        QTest::newRow(Perche) << Nome << Operatore << Testo << Criterio;
    };
    const QString N = u"Nominativo"_s;
    const QString D = u"DataNascita"_s;
    Riga("uguale", N, UgualeA, u"Rossi"_s, u"Nominativo = \"Rossi\""_s);
    Riga("diverso", N, DiversoDa, u"Rossi"_s, u"Nominativo <> \"Rossi\""_s);
    Riga("maggiore", N, MaggioreDi, u"Ro"_s, u"Nominativo > \"Ro\""_s);
    Riga("maggiore o uguale", N, MaggioreOUgualeA, u"Ro"_s, u"Nominativo >= \"Ro\""_s);
    Riga("minore", N, MinoreDi, u"Ro"_s, u"Nominativo < \"Ro\""_s);
    Riga("minore o uguale", N, MinoreOUgualeA, u"Ro"_s, u"Nominativo <= \"Ro\""_s);
    Riga("vuoto", N, CampoVuoto, u"resta"_s, u"Nominativo = \"\""_s);
    Riga("non vuoto", N, CampoNonVuoto, u"resta"_s, u"Nominativo <> \"\""_s);
    Riga("inizia", N, IniziaPer, u"Ro"_s, u"Nominativo Like \"Ro*\""_s);
    Riga("termina", N, TerminaPer, u"si"_s, u"Nominativo Like \"*si\""_s);
    Riga("contiene", N, Contiene, u"os"_s, u"Nominativo Like \"*os*\""_s);
    Riga("non contiene", N, NonContiene, u"os"_s, u"Nominativo Not Like \"*os*\""_s);
    Riga("virgolette", N, UgualeA, u"D\"A"_s, u"Nominativo = \"D\"\"A\""_s);
    Riga("apostrofo", N, Contiene, u"'; DROP"_s, u"Nominativo Like \"*'; DROP*\""_s);
    Riga("data", D, UgualeA, u"1/1/1980"_s, u"DataNascita = DateValue('1/1/1980')"_s);
    Riga("data che inizia", D, IniziaPer, u"1/1/1980"_s, u"DataNascita Like DateValue('1/1/1980')"_s);
    Riga("data che non contiene", D, NonContiene, u"1/1/1980"_s,
         u"DataNascita Not Like DateValue('1/1/1980')"_s);
    Riga("data vuota", D, CampoVuoto, {}, u"DataNascita = Null"_s);
    Riga("data non vuota", D, CampoNonVuoto, {}, u"DataNascita <> Null"_s);
    Riga("numero", u"Anni"_s, MaggioreDi, u"40"_s, u"Anni > 40"_s);
    Riga("numero vuoto", u"Anni"_s, CampoVuoto, {}, u"Anni = 0"_s);
    Riga("numero con la virgola", u"Saldo"_s, UgualeA, u"12,5"_s, u"Saldo = 12.5"_s);
    Riga("migliaia", u"Saldo"_s, UgualeA, u"1.234,5"_s, u"Saldo = 1234.5"_s);
    Riga("centomila", u"Saldo"_s, UgualeA, u"100000"_s, u"Saldo = 100000"_s);
    Riga("un milione", u"Saldo"_s, UgualeA, u"1.000.000"_s, u"Saldo = 1000000"_s);
    Riga("un centomillesimo", u"Misura"_s, UgualeA, u"0,00001"_s, u"Misura = 0.00001"_s);
    Riga("tutte le cifre", u"Misura"_s, UgualeA, u"-123456789,0625"_s, u"Misura = -123456789.0625"_s);
    Riga("numero com'è scritto", u"Saldo"_s, UgualeA, u"dodici"_s, u"Saldo = dodici"_s);
    Riga("logico sì", u"Attivo"_s, UgualeA, u"sì"_s, u"Attivo = True"_s);
    Riga("logico vero", u"Attivo"_s, UgualeA, u"Vero"_s, u"Attivo = True"_s);
    Riga("logico no", u"Attivo"_s, DiversoDa, u"No"_s, u"Attivo <> False"_s);
    Riga("logico falso", u"Attivo"_s, UgualeA, u"falso"_s, u"Attivo = False"_s);
    Riga("logico vuoto", u"Attivo"_s, CampoVuoto, {}, u"Attivo = 0"_s);
    Riga("memo com'è scritto", u"Note"_s, UgualeA, u"ciao"_s, u"Note = ciao"_s);
    Riga("memo con un numero", u"Note"_s, UgualeA, u"1.250"_s, u"Note = 1.250"_s);
}

void TestModRicerca::criteri()
{
    QFETCH(QString, Nome);
    QFETCH(int, Operatore);
    QFETCH(QString, Testo);
    QTEST(CriterioRicerca(Colonna(Nome), Operatore, Testo), "Criterio");
}

void TestModRicerca::siTrova_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<int>("Operatore");
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QList<int>>("Trovati");
    const auto Riga = [](const char* Perche, const QString& Nome, int Operatore, const QString& Testo,
                         const QList<int>& Trovati) {
        QTest::newRow(Perche) << Nome << Operatore << Testo << Trovati;
    };
    // Rows: 1 Verdi Anna, 2 Bianchi, 3 Nicolò, 4 without a name, 5 with an empty one, 6 with odd signs.
    const QString N = u"Nominativo"_s;
    Riga("senza maiuscole", N, UgualeA, u"BIANCHI"_s, {2});
    Riga("diverso", N, DiversoDa, u"bianchi"_s, {1, 3, 5, 6});
    Riga("maggiore", N, MaggioreDi, u"nicol"_s, {1, 3});
    Riga("minore o uguale", N, MinoreOUgualeA, u"bianchi"_s, {2, 5, 6});
    Riga("vuoto non è nullo", N, CampoVuoto, {}, {5});
    Riga("non vuoto non è nullo", N, CampoNonVuoto, {}, {1, 2, 3, 6});
    Riga("inizia", N, IniziaPer, u"ver"_s, {1});
    Riga("termina", N, TerminaPer, u"ANNA"_s, {1});
    Riga("contiene", N, Contiene, u"an"_s, {1, 2});
    Riga("non contiene", N, NonContiene, u"an"_s, {3, 5, 6});
    Riga("l'accento conta", N, IniziaPer, u"nicolo"_s, {});
    Riga("l'accento maiuscolo", N, TerminaPer, u"Ò"_s, {3});
    Riga("virgolette", N, Contiene, u"\"srl\""_s, {6});
    Riga("asterisco in mezzo", N, IniziaPer, u"v*anna"_s, {1});
    Riga("un carattere", N, UgualeA, u"bianch?"_s, {});
    Riga("un carattere che somiglia", N, TerminaPer, u"bianch?"_s, {2});
    Riga("lista", N, IniziaPer, u"[bn]i"_s, {2, 3});
    Riga("asterisco uguale", N, UgualeA, u"*\"srl\" 3"_s, {6});
    Riga("apostrofo", N, Contiene, u"'; DROP"_s, {});
    Riga("data", u"DataNascita"_s, UgualeA, u"1/1/80"_s, {1});
    Riga("data che somiglia", u"DataNascita"_s, Contiene, u"01/01/1980"_s, {1});
    Riga("data vuota", u"DataNascita"_s, CampoVuoto, {}, {2, 3, 4, 5, 6});
    Riga("data non vuota", u"DataNascita"_s, CampoNonVuoto, {}, {1});
    Riga("numero", u"Anni"_s, MaggioreOUgualeA, u"43"_s, {1});
    Riga("virgola", u"Saldo"_s, UgualeA, u"1.234,5"_s, {1});
    Riga("centomila", u"Numero"_s, UgualeA, u"100000"_s, {1});
    Riga("un milione", u"Saldo"_s, MinoreDi, u"1.000.000"_s, {1});
    Riga("un centomillesimo", u"Misura"_s, MinoreDi, u"0,00001"_s, {1});
    Riga("logico", u"Attivo"_s, UgualeA, u"Sì"_s, {1});
    Riga("contatore", u"ID"_s, UgualeA, u"3"_s, {3});
}

void TestModRicerca::siTrova()
{
    Db.Execute(u"INSERT INTO clienti (Nominativo) VALUES (?), (?)"_s, {u""_s, u"*\"srl\" 3"_s});
    Righe = Db.OpenRecordset(u"clienti"_s);
    QFETCH(QString, Nome);
    QFETCH(int, Operatore);
    QFETCH(QString, Testo);
    const QString Criterio = CriterioRicerca(Colonna(Nome), Operatore, Testo);
    QList<int> Trovati;
    for (auto Passo = PassoRicerca::Primo; CercaRiga(Righe, Criterio, Passo);
         Passo = PassoRicerca::Successivo)
        Trovati += Corrente();
    QTEST(Trovati, "Trovati");
}

void TestModRicerca::nomiStrani_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Criterio");
    QTest::newRow("con uno spazio") << u"Data nascita"_s << u"[Data nascita] = \"x\""_s;
    QTest::newRow("accentato") << u"Città"_s << u"Città = \"x\""_s;
    QTest::newRow("con una cifra in testa") << u"1Med"_s << u"1Med = \"x\""_s;
    QTest::newRow("solo cifre") << u"2024"_s << u"[2024] = \"x\""_s;
    QTest::newRow("parola del motore") << u"Not"_s << u"[Not] = \"x\""_s;
    QTest::newRow("punteggiatura") << u"P.IVA"_s << u"[P.IVA] = \"x\""_s;
}

void TestModRicerca::nomiStrani()
{
    QFETCH(QString, Nome);
    Db.CreaTabella(u"strana"_s, {CampoScheda(Nome, TipoCampo::Testo, 10)});
    Recordset Strana = Db.OpenRecordset(u"strana"_s);
    Strana.AddNew();
    Strana.ImpostaValue(Nome, u"X"_s);
    Strana.Update();
    const QString Criterio = CriterioRicerca(Strana.Campi().first(), UgualeA, u"x"_s);
    QTEST(Criterio, "Criterio");
    QVERIFY(CercaRiga(Strana, Criterio, PassoRicerca::Primo));
}

/// What the engine cannot read is its error, and the row stays.
void TestModRicerca::rifiutati_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Testo");
    QTest::newRow("giorno che non c'è") << u"DataNascita"_s << u"31/02/2020"_s;
    QTest::newRow("apice in una data") << u"DataNascita"_s << u"'; DROP"_s;
    QTest::newRow("memo") << u"Note"_s << u"ciao"_s;
    QTest::newRow("parola per un numero") << u"Anni"_s << u"dieci"_s;
}

void TestModRicerca::rifiutati()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Testo);
    Righe.ImpostaAbsolutePosition(2);
    const QString Criterio = CriterioRicerca(Colonna(Nome), UgualeA, Testo);
    for (const auto Passo : {PassoRicerca::Primo, PassoRicerca::Successivo, PassoRicerca::Precedente})
        QCOMPARE(NumeroErrore([&] { (void)CercaRiga(Righe, Criterio, Passo); }), 3077);
    QCOMPARE(Corrente(), 3);
}

void TestModRicerca::ilSuccessivoEIlPrecedente()
{
    const QString Criterio = u"Nominativo Like \"*i*\""_s;  // 1, 2, 3
    QVERIFY(CercaRiga(Righe, Criterio, PassoRicerca::Successivo));
    QCOMPARE(Corrente(), 2);
    QVERIFY(CercaRiga(Righe, Criterio, PassoRicerca::Successivo));
    QCOMPARE(Corrente(), 3);
    QVERIFY(!CercaRiga(Righe, Criterio, PassoRicerca::Successivo));
    QCOMPARE(Corrente(), 3);
    QVERIFY(CercaRiga(Righe, Criterio, PassoRicerca::Precedente));
    QCOMPARE(Corrente(), 2);
    QVERIFY(CercaRiga(Righe, Criterio, PassoRicerca::Primo));
    QCOMPARE(Corrente(), 1);
    QVERIFY(!CercaRiga(Righe, Criterio, PassoRicerca::Precedente));
    QCOMPARE(Corrente(), 1);
}

/// After a deletion, and behind the last row: the search begins at an end.
void TestModRicerca::senzaRigaCorrente()
{
    const QString Criterio = u"Nominativo Like \"*i*\""_s;
    for (const bool Eliminata : {true, false}) {
        init();
        Righe.ImpostaAbsolutePosition(1);
        if (Eliminata) {
            Righe.Delete();
        } else {
            Righe.MoveLast();
            Righe.MoveNext();
        }
        QVERIFY(CercaRiga(Righe, Criterio, PassoRicerca::Successivo));
        QCOMPARE(Corrente(), 1);
    }
    init();
    Righe.ImpostaAbsolutePosition(1);
    Righe.Delete();
    QVERIFY(CercaRiga(Righe, Criterio, PassoRicerca::Precedente));
    QCOMPARE(Corrente(), 3);
    Righe.Delete();
    QVERIFY(!CercaRiga(Righe, u"Nominativo = \"nessuno\""_s, PassoRicerca::Successivo));
}

void TestModRicerca::tabellaVuota()
{
    Db.Execute(u"DELETE FROM clienti"_s);
    Righe = Db.OpenRecordset(u"clienti"_s);
    for (const auto Passo : {PassoRicerca::Primo, PassoRicerca::Successivo, PassoRicerca::Precedente})
        QVERIFY(!CercaRiga(Righe, u"Nominativo = \"x\""_s, Passo));
}

#include "TestModRicerca.moc"
