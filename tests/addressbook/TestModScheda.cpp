#include "supporto/prova.h"

#include "addressbook/archivio_schede.h"
#include "addressbook/chiavi.h"
#include "addressbook/modScheda.h"
#include "platform/database/connessione.h"
#include "platform/system/attese.h"
#include "supporto/guasti.h"
#include "supporto/registratore.h"

#include <QScopedValueRollback>
#include <QThread>

#include <thread>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

DatoreDiChiavi ChiaviDi(const Database& Archivio)
{
    return [&Archivio] { return PrimaChiaveLibera(Archivio, u"clienti"_s); };
}

}  // namespace

class TestModScheda : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void codiciDeiTipi_data();
    void codiciDeiTipi();
    void larghezze_data();
    void larghezze();
    void testi_data();
    void testi();
    void valori_data();
    void valori();
    void rifiuti_data();
    void rifiuti();
    void ognuntipoSiScriveESiSvuota();
    void controparteSegueIlNome_data();
    void controparteSegueIlNome();
    void controparteInMemo();
    void avvisi_data();
    void avvisi();
    void didascalie();
    void siSalva();
    void laChiaveCheNessunoDa();
    void laChiaveDiChiNonCE_data();
    void laChiaveDiChiNonCE();
    void nienteDaTrattenere();
    void dueProgrammiDueChiavi();
    void laChiaveDiUnSalvataggioFallito();
    void cambiataDaAltri_data();
    void cambiataDaAltri();
    void eliminataDaAltri();

private:
    Campo Colonna(const QString& Nome) const { return *TrovaCampo(Db.Campi(u"clienti"_s), Nome); }
    Database Db;
    Recordset Righe;
};
PROVA(TestModScheda);

void TestModScheda::init()
{
    Db = ArchivioSchede();
    Righe = Db.OpenRecordset(u"clienti"_s);
}

void TestModScheda::codiciDeiTipi_data()
{
    QTest::addColumn<int>("Codice");
    const QList<std::pair<const char*, int>> Nomi{
        {"Boolean", 1},  {"Byte", 2},   {"Integer", 3}, {"Long", 4},      {"Counter", 4},
        {"Currency", 5}, {"Single", 6}, {"Double", 7},  {"Date/Time", 8}, {"Text", 10},
        {"Binary", 11},  {"Memo", 12},  {"Decimal", 0}, {"", 0}};
    for (const auto& [Nome, Codice] : Nomi)
        QTest::newRow(Nome) << Codice;
}

void TestModScheda::codiciDeiTipi()
{
    QTEST(GetFieldType(QString::fromLatin1(QTest::currentDataTag())), "Codice");
}

void TestModScheda::larghezze_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<int>("Twip");
    const QList<std::pair<int, int>> Larghe{{1, 850},   {2, 650},  {3, 900},  {4, 1100},  {5, 1800},
                                            {6, 1800},  {7, 2200}, {8, 2000}, {10, 3250}, {11, 3250},
                                            {12, 3250}, {9, 3250}, {0, 3250}, {-1, 3250}, {32767, 3250}};
    for (const auto& [Tipo, Twip] : Larghe)
        QTest::addRow("tipo %d", Tipo) << Tipo << Twip;
}

void TestModScheda::larghezze()
{
    QFETCH(int, Tipo);
    QTEST(GetFieldWidth(Tipo), "Twip");
}

void TestModScheda::testi_data()
{
    QTest::addColumn<QVariant>("Valore");
    QTest::addColumn<QString>("Testo");
    QTest::newRow("nullo") << QVariant() << QString();
    QTest::newRow("vero") << QVariant(true) << u"Sì"_s;
    QTest::newRow("falso") << QVariant(false) << u"No"_s;
    QTest::newRow("giorno") << QVariant(QDate(2021, 3, 4)) << u"04/03/2021"_s;
    QTest::newRow("con l'ora") << QVariant(QDateTime(QDate(2021, 3, 4), QTime(9, 5)))
                               << u"04/03/2021 09:05:00"_s;
    QTest::newRow("numero") << QVariant(1234.5) << u"1234,5"_s;
    QTest::newRow("intero") << QVariant(7) << u"7"_s;
    QTest::newRow("testo") << QVariant(u" a "_s) << u" a "_s;
}

void TestModScheda::testi()
{
    QFETCH(QVariant, Valore);
    QTEST(TestoScheda(Valore), "Testo");
}

void TestModScheda::valori_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QVariant>("Valore");
    const auto Riga = [](const char* Perche, const QString& Nome, const QString& Testo, const QVariant& V) {
        QTest::newRow(Perche) << Nome << Testo << V;
    };
    const QDate Giorno(2020, 3, 1);
    Riga("data con barre", u"DataNascita"_s, u"1/3/2020"_s, Giorno);
    Riga("data con trattini", u"DataNascita"_s, u"01-03-2020"_s, Giorno);
    Riga("data con punti", u"DataNascita"_s, u"01.03.20"_s, Giorno);
    Riga("otto cifre", u"DataNascita"_s, u"01032020"_s, Giorno);
    Riga("sei cifre", u"DataNascita"_s, u"010320"_s, Giorno);
    Riga("secolo di oggi", u"DataNascita"_s, u"010329"_s, QDate(2029, 3, 1));
    Riga("secolo scorso", u"DataNascita"_s, u"010330"_s, QDate(1930, 3, 1));
    Riga("con spazi", u"DataNascita"_s, u" 1/3/2020 "_s, Giorno);
    Riga("con l'ora", u"DataNascita"_s, u"1/3/2020 9:05"_s, QDateTime(Giorno, QTime(9, 5)));
    Riga("con i secondi", u"DataNascita"_s, u"01/03/2020 23.59.58"_s, QDateTime(Giorno, QTime(23, 59, 58)));
    Riga("data svuotata", u"DataNascita"_s, u"  "_s, {});
    for (const char* Si : {"Sì", "sì", "SI", "Vero", "vero", "1", "-1", " Sì "})
        Riga(Si, u"Attivo"_s, QString::fromUtf8(Si), true);
    for (const char* No : {"No", "NO", "Falso", "0"})
        Riga(No, u"Attivo"_s, QString::fromUtf8(No), false);
    Riga("logico svuotato", u"Attivo"_s, {}, false);
    Riga("byte", u"Classe"_s, u"255"_s, 255);
    Riga("migliaia", u"Numero"_s, u"1.250"_s, 1250);
    Riga("intero al pari", u"Anni"_s, u"2,5"_s, 2);
    Riga("valuta", u"Saldo"_s, u"1.250,75"_s, 1250.75);
    Riga("negativo", u"Misura"_s, u"-0,5"_s, -0.5);
    Riga("numero svuotato", u"Saldo"_s, u" "_s, {});
    Riga("testo com'è", u"Nominativo"_s, u" D'Àlò \"srl\" "_s, u" D'Àlò \"srl\" "_s);
    Riga("testo svuotato", u"Nominativo"_s, {}, QString(u""_s));
    Riga("memo svuotato", u"Note"_s, {}, QString(u""_s));
    Riga("memo di due righe", u"Note"_s, u"a\nb"_s, u"a\nb"_s);
}

void TestModScheda::valori()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Testo);
    QFETCH(QVariant, Valore);
    const QVariant Letto = ValoreScheda(Colonna(Nome), Testo);
    QCOMPARE(Letto.isNull(), Valore.isNull());
    QCOMPARE(Letto.typeId(), Valore.typeId());
    QCOMPARE(Letto, Valore);
}

void TestModScheda::rifiuti_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<int>("Numero");
    const auto Riga = [](const char* Perche, const QString& Nome, const QString& Testo, int Numero) {
        QTest::newRow(Perche) << Nome << Testo << Numero;
    };
    Riga("giorno che non c'è", u"DataNascita"_s, u"31/02/2020"_s, 3421);
    Riga("cifre che non sono un giorno", u"DataNascita"_s, u"310220"_s, 3421);
    Riga("sette cifre", u"DataNascita"_s, u"1032020"_s, 3421);
    Riga("anno in testa", u"DataNascita"_s, u"2020/03/01"_s, 3421);
    Riga("ora sbagliata", u"DataNascita"_s, u"1/3/2020 25:00"_s, 3421);
    Riga("parola per un logico", u"Attivo"_s, u"forse"_s, 3421);
    Riga("due per un logico", u"Attivo"_s, u"2"_s, 3421);
    Riga("lettere per un numero", u"Anni"_s, u"abc"_s, 3421);
    Riga("punto decimale", u"Saldo"_s, u"12.5"_s, 3421);
    Riga("oltre i 32 bit", u"Numero"_s, u"3000000000"_s, 3421);
    Riga("oltre la misura", u"Nominativo"_s, QString(21, u'x'), 3163);
}

void TestModScheda::rifiuti()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Testo);
    const ErroreVisto Guasto = ErroreDi([&] { (void)ValoreScheda(Colonna(Nome), Testo); });
    QTEST(Guasto.Numero, "Numero");
    QVERIFY2(Guasto.Descrizione.contains(Nome), qPrintable(Guasto.Descrizione));
}

/// Through the file and back: written, then emptied.
void TestModScheda::ognuntipoSiScriveESiSvuota()
{
    const QMap<QString, QString> Scritti{
        {u"Nominativo"_s, u"Ça"_s}, {u"DataNascita"_s, u"29/02/2020"_s},
        {u"Attivo"_s, u"Sì"_s},     {u"Classe"_s, u"12"_s},
        {u"Anni"_s, u"-5"_s},       {u"Numero"_s, u"2147483647"_s},
        {u"Saldo"_s, u"10,1"_s},    {u"Peso"_s, u"12,7"_s},
        {u"Misura"_s, u"0,0005"_s}, {u"Note"_s, u"riga\nriga"_s},
    };
    const auto Scrivi = [&](const QString& Nome, const QString& Testo) {
        Righe.Edit();
        ScriviScheda(Righe, Colonna(Nome), Testo);
        Righe.Update();
        return TestoScheda(Db.OpenRecordset(u"clienti"_s).Value(Nome));
    };
    for (auto Uno = Scritti.cbegin(); Uno != Scritti.cend(); ++Uno)
        QCOMPARE(Scrivi(Uno.key(), Uno.value()), Uno.value());
    for (const QString& Nome : Scritti.keys()) {
        const QString Attivo = Nome == u"Attivo" ? u"No"_s : QString();
        QCOMPARE(Scrivi(Nome, {}), Attivo);
        const QVariant Vuoto = Db.OpenRecordset(u"clienti"_s).Value(Nome);
        const bool ATesto = Nome == u"Nominativo" || Nome == u"Note" || Nome == u"Attivo";
        QVERIFY2(Vuoto.isNull() != ATesto, qPrintable(Nome));
    }
}

void TestModScheda::controparteSegueIlNome_data()
{
    QTest::addColumn<int>("ID");
    QTest::addColumn<QStringList>("Nomi");
    QTest::addColumn<QVariant>("Attesa");
    const QStringList Nuovo{u"Russo"_s};
    QTest::newRow("era uguale") << 1 << Nuovo << QVariant(u"Russo"_s);
    QTest::newRow("ne aveva un altro") << 2 << Nuovo << QVariant(u"Neri spa"_s);
    QTest::newRow("non ne aveva") << 3 << Nuovo << QVariant(u"Russo"_s);
    QTest::newRow("riga nuova") << 0 << Nuovo << QVariant(u"Russo"_s);
    QTest::newRow("cambiato due volte") << 1 << QStringList{u"Russo"_s, u"Verde"_s} << QVariant(u"Verde"_s);
    QTest::newRow("più lungo della colonna")
        << 1 << QStringList{u"Rossi Antonio"_s} << QVariant(u"Rossi An"_s);
    QTest::newRow("tagliato dalla colonna, poi cambiato")
        << 1 << QStringList{u"Rossi Antonio"_s, u"Verde"_s} << QVariant(u"Verde"_s);
}

/// Older archives keep it as a text without a limit.
void TestModScheda::controparteInMemo()
{
    Db.CreaTabella(u"parti"_s, {{u"ID"_s, TipoCampo::Lungo, 0, {}, true},
                                {u"Nominativo"_s, TipoCampo::Testo, 20, {}, false},
                                {u"Controp"_s, TipoCampo::Memo, 0, {}, false}});
    Recordset Parti = Db.OpenRecordset(u"parti"_s);
    Parti.AddNew();
    ScriviScheda(Parti, *TrovaCampo(Parti.Campi(), u"Nominativo"_s), u"Rossi Antonio"_s);
    Parti.Update();
    QCOMPARE(Parti.Value(u"Controp"_s).toString(), u"Rossi Antonio"_s);
}

void TestModScheda::controparteSegueIlNome()
{
    QFETCH(int, ID);
    QFETCH(QStringList, Nomi);
    CreaControparti(Db);
    Recordset Parti = Db.OpenRecordset(u"controparti"_s);
    if (ID == 0) {
        Parti.AddNew();
    } else {
        Parti.FindFirst(u"ID=%1"_s.arg(ID));
        Parti.Edit();
    }
    const Campo Nominativo = *TrovaCampo(Parti.Campi(), u"nominativo"_s);
    for (const QString& Nome : Nomi)
        ScriviScheda(Parti, Nominativo, Nome);
    Parti.Update();
    QTEST(Parti.Value(u"Controp"_s), "Attesa");
    QCOMPARE(Parti.Value(u"Nominativo"_s).toString(), Nomi.last());
}

void TestModScheda::avvisi_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Avviso");
    const QString CodFis = u"Il codice fiscale non torna: controllare le cifre"_s;
    const QString PIva = u"La partita IVA non torna: controllare le cifre"_s;
    const QString Nome = u"senza nominativo: non si potrà scegliere"_s;
    const auto Riga = [](const char* Perche, const QString& Campo, const QString& Testo, const QString& A) {
        QTest::newRow(Perche) << Campo << Testo << A;
    };
    Riga("codice buono", u"CodFis"_s, u"rssmra80a01h501u"_s, {});
    Riga("codice sbagliato", u"CodFis"_s, u"RSSMRA80A01H501X"_s, CodFis);
    Riga("codice di società", u"CodFis"_s, u"00743110157"_s, {});
    Riga("codice corto", u"codfis"_s, u"RSSMRA"_s, CodFis);
    Riga("codice vuoto", u"CodFis"_s, u" "_s, {});
    Riga("partita buona", u"PIva"_s, u"IT00743110157"_s, {});
    Riga("partita sbagliata", u"PIva"_s, u"00743110158"_s, PIva);
    Riga("partita straniera", u"PIva"_s, u"DE123456789"_s, {});
    Riga("nome vuoto", u"Nominativo"_s, u"  "_s, Nome);
    Riga("nome", u"Nominativo"_s, u"x"_s, {});
    Riga("altro campo", u"Citta"_s, {}, {});
    const QString Destinatario =
        u"Il codice destinatario ha 7 lettere o cifre, 6 quello di una pubblica amministrazione"_s;
    Riga("destinatario buono", u"CodDestinatario"_s, u"abc1234"_s, {});
    Riga("destinatario di un ufficio", u"CodDestinatario"_s, u"UFAB12"_s, {});
    Riga("destinatario corto", u"CodDestinatario"_s, u"ABC12"_s, Destinatario);
    Riga("destinatario con un segno", u"CodDestinatario"_s, u"ABC-123"_s, Destinatario);
    Riga("destinatario con un accento", u"CodDestinatario"_s, u"ABCÈ123"_s, Destinatario);
    Riga("nazione buona", u"Nazione"_s, u"de"_s, {});
    Riga("nazione sbagliata", u"Nazione"_s, u"D"_s,
         u"La nazione è una sigla di due lettere: IT, DE, FR..."_s);
    Riga("tipo buono", u"TipoSoggetto"_s, u"Società"_s, {});
    Riga("tipo sbagliato", u"TipoSoggetto"_s, u"altro"_s,
         u"Scrivere Persona, Società, PA oppure Estero; vuoto, lo dicono i codici"_s);
}

void TestModScheda::avvisi()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Testo);
    QTEST(AvvisoScheda(Nome, Testo), "Avviso");
}

void TestModScheda::didascalie()
{
    QCOMPARE(DidascaliaScheda(u"new"_s), u"Inserimento dati"_s);
    QCOMPARE(DidascaliaScheda(u"edit"_s), u"Modifica dati"_s);
    QCOMPARE(DidascaliaScheda(u"view"_s), u"Visualizzazione dati"_s);
}

void TestModScheda::siSalva()
{
    Righe.Edit();
    ScriviScheda(Righe, Colonna(u"Nominativo"_s), u"Gallo"_s);
    QVERIFY(SalvaScheda(Righe, ChiaviDi(Db)));
    QCOMPARE(Db.OpenRecordset(u"clienti"_s).Value(u"Nominativo"_s).toString(), u"Gallo"_s);
}

/// In an old archive the keys may be plain numbers: a new row goes on behind the highest, or keeps what the
/// user has typed.
void TestModScheda::laChiaveCheNessunoDa()
{
    const Database Vecchio = CreateDatabase(NuovaCartella() + u"vecchio.mdb"_s);
    Vecchio.CreaTabella(u"clienti"_s, {CampoScheda(u"Id"_s, TipoCampo::Lungo),
                                       CampoScheda(u"Nominativo"_s, TipoCampo::Testo, 20)});
    Vecchio.Execute(u"INSERT INTO clienti (Id, Nominativo) VALUES (12, 'Verdi'), (9, 'Neri')"_s);
    Recordset Suoi = Vecchio.OpenRecordset(u"clienti"_s);
    const auto Nuova = [&](const QVariant& Scritta) {
        Suoi.AddNew();
        Suoi.ImpostaValue(u"Nominativo"_s, u"Rossi"_s);
        if (Scritta.isValid())
            Suoi.ImpostaValue(u"Id"_s, Scritta);
        (void)SalvaScheda(Suoi, ChiaviDi(Vecchio));
        return Suoi.Value(u"Id"_s).toInt();
    };
    QCOMPARE(Nuova({}), 13);
    QCOMPARE(Nuova(40), 40);
    QCOMPARE(Nuova({}), 41);
    Suoi.Edit();
    Suoi.ImpostaValue(u"Nominativo"_s, u"Rossi Ada"_s);
    QVERIFY(SalvaScheda(Suoi, ChiaviDi(Vecchio)));
    QCOMPARE(Suoi.Value(u"Id"_s).toInt(), 41);
    // Where the engine gives them it goes on doing so.
    Righe.AddNew();
    Righe.ImpostaValue(u"Nominativo"_s, u"Rossi"_s);
    QVERIFY(SalvaScheda(Righe, ChiaviDi(Db)));
    QCOMPARE(Righe.Value(u"ID"_s).toInt(), 5);
}

void TestModScheda::laChiaveDiChiNonCE_data()
{
    QTest::addColumn<QString>("Dichiarata");
    QTest::newRow("un numero") << u"INTEGER"_s;
    QTest::newRow("un contatore che torna indietro") << u"INTEGER PRIMARY KEY"_s;
    QTest::newRow("un contatore del motore") << u"INTEGER PRIMARY KEY AUTOINCREMENT"_s;
}

/// A row that has gone takes its key with it, whoever gives the keys of its table.
void TestModScheda::laChiaveDiChiNonCE()
{
    QFETCH(QString, Dichiarata);
    const Database Vecchio = CreateDatabase(NuovaCartella() + u"vecchio.mdb"_s);
    Vecchio.Execute(u"CREATE TABLE clienti (Id %1, Nominativo TEXT)"_s.arg(Dichiarata));
    Vecchio.Execute(u"INSERT INTO clienti (Id, Nominativo) VALUES (12, 'Verdi'), (9, 'Neri')"_s);
    const auto Nuova = [&] {
        Recordset Suoi = Vecchio.OpenRecordset(u"clienti"_s);
        Suoi.AddNew();
        Suoi.ImpostaValue(u"Nominativo"_s, u"Rossi"_s);
        (void)SalvaScheda(Suoi, ChiaviDi(Vecchio));
        return Suoi.Value(u"Id"_s).toInt();
    };
    const auto Togli = [&](int Chiave) {
        TrattieniChiavi(Vecchio, u"Clienti"_s, Chiave);
        Vecchio.Execute(u"DELETE FROM clienti WHERE Id=?"_s, {Chiave});
    };
    Togli(12);
    Togli(9);
    QCOMPARE(Nuova(), 13);
    QCOMPARE(Nuova(), 14);
    Togli(14);
    Togli(13);
    QCOMPARE(Nuova(), 15);
    QCOMPARE(UltimaChiaveData(Vecchio, u"clienti"_s), 15);
    // More than the engine has ever seen.
    TrattieniChiavi(Vecchio, u"clienti"_s, 40);
    QCOMPARE(Nuova(), 41);
    QCOMPARE(Nuova(), 42);
}

/// Where another program keeps something of its own under that name, a name can be deleted all the same.
void TestModScheda::nienteDaTrattenere()
{
    const Database Altrui = CreateDatabase(NuovaCartella() + u"vecchio.mdb"_s);
    Altrui.Execute(u"CREATE TABLE clienti (Id INTEGER, Nominativo TEXT)"_s);
    Altrui.Execute(u"CREATE TABLE _Calcanova (Altro INTEGER)"_s);
    TrattieniChiavi(Altrui, u"clienti"_s, 12);
    QCOMPARE(PrimaChiaveLibera(Altrui, u"clienti"_s).value_or(0), 1);
}

/// Another program is adding a row just now: whoever comes second gets the next key.
void TestModScheda::dueProgrammiDueChiavi()
{
    const QString File = NuovaCartella() + u"vecchio.mdb"_s;
    const Database Vecchio = CreateDatabase(File);
    Vecchio.CreaTabella(u"clienti"_s, {CampoScheda(u"Id"_s, TipoCampo::Lungo),
                                       CampoScheda(u"Nominativo"_s, TipoCampo::Testo, 20)});
    Recordset Suoi = Vecchio.OpenRecordset(u"clienti"_s);
    for (int i = 0; i < 3; ++i) {
        Connessione Sua(File, Connessione::Modo::Scrittura);
        Sua.Esegui(u"BEGIN IMMEDIATE"_s);
        Sua.Esegui(
            u"INSERT INTO clienti (Id, Nominativo) SELECT coalesce(max(Id),0)+1, 'Neri' FROM clienti"_s);
        std::jthread AltroProgramma([&Sua] {
            QThread::msleep(100);
            Sua.Esegui(u"COMMIT"_s);
        });
        Suoi.AddNew();
        Suoi.ImpostaValue(u"Nominativo"_s, u"Rossi"_s);
        QVERIFY(SalvaScheda(Suoi, ChiaviDi(Vecchio)));
        QCOMPARE(Suoi.Value(u"Id"_s).toInt(), 2 * i + 2);
    }
    QCOMPARE(Vecchio.OpenRecordset(u"clienti"_s).RecordCount(), 6);
}

/// A key that was found for a save which failed is somebody else's by the next attempt.
void TestModScheda::laChiaveDiUnSalvataggioFallito()
{
    const QString File = NuovaCartella() + u"vecchio.mdb"_s;
    const QScopedValueRollback Poco(attese::BlocchiMs, 50);
    const Database Vecchio = CreateDatabase(File);
    Vecchio.CreaTabella(u"clienti"_s, {CampoScheda(u"Id"_s, TipoCampo::Lungo),
                                       CampoScheda(u"Nominativo"_s, TipoCampo::Testo, 20)});
    Recordset Suoi = Vecchio.OpenRecordset(u"clienti"_s);
    Suoi.AddNew();
    Suoi.ImpostaValue(u"Nominativo"_s, u"Rossi"_s);
    Connessione AltroProgramma(File, Connessione::Modo::Scrittura);
    // A reader lets it write, and not confirm.
    AltroProgramma.Esegui(u"BEGIN"_s);
    {
        Istruzione Legge(AltroProgramma, u"SELECT count(*) FROM clienti"_s);
        QVERIFY(Legge.Avanza());
        QCOMPARE(NumeroErrore([&] { (void)SalvaScheda(Suoi, ChiaviDi(Vecchio)); }), 3260);
    }
    AltroProgramma.Esegui(u"ROLLBACK"_s);
    QCOMPARE(Suoi.EditMode(), 2);
    QCOMPARE(Suoi.Value(u"Nominativo"_s).toString(), u"Rossi"_s);
    AltroProgramma.Esegui(u"INSERT INTO clienti (Id, Nominativo) VALUES (1, 'Neri')"_s);
    QVERIFY(SalvaScheda(Suoi, ChiaviDi(Vecchio)));
    QCOMPARE(Suoi.Value(u"Id"_s).toInt(), 2);
    QCOMPARE(Vecchio.OpenRecordset(u"clienti"_s).RecordCount(), 2);
}

void TestModScheda::cambiataDaAltri_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::newRow("si sovrascrive") << vbYes;
    QTest::newRow("ci si ripensa") << vbNo;
}

void TestModScheda::cambiataDaAltri()
{
    QFETCH(int, Risposta);
    Registratore Voce;
    Righe.Edit();
    ScriviScheda(Righe, Colonna(u"Anni"_s), u"50"_s);
    Db.Execute(u"UPDATE clienti SET Anni=44 WHERE ID=1"_s);
    Voce.Attendi(u"Nel frattempo un altro programma ha cambiato questa scheda.\n"
                 "Salvare le proprie modifiche al posto delle sue?"_s,
                 Risposta, u"Domanda:"_s);
    QCOMPARE(SalvaScheda(Righe, ChiaviDi(Db)), Risposta == vbYes);
    QCOMPARE(Voce.Ultimo().Bandiere, vbYesNo | vbQuestion | vbDefaultButton2);
    QCOMPARE(Db.OpenRecordset(u"clienti"_s).Value(u"Anni"_s), QVariant(Risposta == vbYes ? 50 : 44));
    QCOMPARE(Righe.EditMode(), Risposta == vbYes ? 0 : 1);
}

void TestModScheda::eliminataDaAltri()
{
    Righe.Edit();
    ScriviScheda(Righe, Colonna(u"Anni"_s), u"50"_s);
    Db.Execute(u"DELETE FROM clienti WHERE ID=1"_s);
    QCOMPARE(NumeroErrore([&] { (void)SalvaScheda(Righe, ChiaviDi(Db)); }), 3167);
    QCOMPARE(Righe.EditMode(), 1);
    QCOMPARE(Righe.Value(u"Anni"_s), QVariant(50));
}

#include "TestModScheda.moc"
