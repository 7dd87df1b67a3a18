// A native copy holds what the Access file holds: the real reading program, on files written here.
#include "platform/accesso/accesso.h"
#include "platform/base/numerierrore.h"
#include "supporto/guasti.h"
#include "supporto/prova.h"
#include "supporto/scrittoreaccess.h"

#include <QDate>
#include <QDateTime>
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

RapportoAccess Converti(const FileScritto& Come, QString& Copia)
{
    const QString Cartella = NuovaCartella();
    Copia = Cartella + u"copia.mdb"_s;
    return ConvertiAccess(ScriviAccess(Cartella + u"origine.mdb"_s, Come), Copia).value();
}

QString PercheNo(const RapportoAccess& Rapporto, const QString& Cosa)
{
    for (const TralasciatoAccess& Voce : Rapporto.Tralasciati)
        if (Voce.Cosa == Cosa)
            return Voce.Perche;
    return {};
}

void Edizioni()
{
    QTest::addColumn<EdizioneAccess>("Edizione");
    QTest::newRow("jet3") << EdizioneAccess::Jet3;
    QTest::newRow("jet4") << EdizioneAccess::Jet4;
    QTest::newRow("ace2007") << EdizioneAccess::Ace2007;
    QTest::newRow("ace2019") << EdizioneAccess::Ace2019;
}

/// A text of that many letters that says where it is cut.
QString Frase(int Lettere)
{
    QString Testo;
    while (Testo.size() < Lettere)
        Testo += u"%1 è così; "_s.arg(Testo.size());
    return Testo.first(Lettere);
}

TabellaScritta DiTutto()
{
    TabellaScritta Tabella{.Nome = u"Di tutto"_s};
    Tabella.Colonne = {
        {.Nome = u"ID"_s, .Tipo = tipoaccess::Lungo, .Descrizione = u"V=N"_s, .Contatore = true},
        {.Nome = u"Vero"_s, .Tipo = tipoaccess::Booleano},
        {.Nome = u"Piccolo"_s, .Tipo = tipoaccess::Byte},
        {.Nome = u"Corto"_s, .Tipo = tipoaccess::Intero},
        {.Nome = u"Lungo"_s, .Tipo = tipoaccess::Lungo},
        {.Nome = u"Soldi"_s, .Tipo = tipoaccess::Valuta, .Descrizione = u"L=Importo,F=#,##0.00"_s},
        {.Nome = u"Singolo"_s, .Tipo = tipoaccess::Singolo},
        {.Nome = u"Doppio"_s, .Tipo = tipoaccess::Doppio},
        {.Nome = u"Giorno"_s, .Tipo = tipoaccess::Data},
        {.Nome = u"Città"_s, .Tipo = tipoaccess::Testo, .Caratteri = 60, .Descrizione = u"L=Città di,S=30"_s},
        {.Nome = u"Note"_s, .Tipo = tipoaccess::Memo},
        {.Nome = u"Guid"_s, .Tipo = tipoaccess::Guid},
        {.Nome = u"Decimale"_s, .Tipo = tipoaccess::Decimale, .Scala = 3},
        {.Nome = u"Grande"_s, .Tipo = tipoaccess::Grande},
        {.Nome = u"Foto"_s, .Tipo = tipoaccess::Ole},
        {.Nome = u"Grezzo"_s, .Tipo = tipoaccess::Binario},
        {.Nome = u"Allegati"_s, .Tipo = tipoaccess::Complesso}};
    const QByteArray Guid = QByteArray::fromHex("33221100554477668899aabbccddeeff");
    Tabella.Righe = {
        {7, true, 200, -1234, -123456789, 1234.5678, 12.7f, 1e-10, QDate(1999, 12, 31), u"Forlì"_s,
         u"breve"_s, Guid, -1234567, 9007199254740991LL, QByteArray("xx"), QByteArray("yy"), 1},
        {3, false, 0, 32767, 2147483647, -0.01, -1.5f, 0.0,
         QDateTime(QDate(1850, 3, 2), QTime(18, 30, 15), Qt::UTC), u"€ “così” – ñ"_s, Frase(1500), QVariant(),
         0, -5LL, QVariant(), QVariant(), QVariant()},
        {900, QVariant(), QVariant(), QVariant(), QVariant(), QVariant(), QVariant(), QVariant(), QVariant(),
         QVariant(), QVariant(), QVariant(), QVariant(), QVariant(), QVariant(), QVariant(), QVariant()},
        {10, true, 1, 1, 1, 1.0, 1.0f, 1.0, QDate(2026, 11, 22), u""_s, Frase(100000), QVariant(), 5, 1LL,
         QVariant(), QVariant(), QVariant()}};
    Tabella.Indici = {{u"PrimaryKey"_s, {0}, true, true}, {u"Città"_s, {9}}, {u"Due"_s, {8, 4}, false, true}};
    return Tabella;
}

}  // namespace

class TestConversione : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void Tipi_data() { Edizioni(); }
    void Tipi()
    {
        QFETCH(EdizioneAccess, Edizione);
        QString Copia;
        const RapportoAccess Rapporto = Converti({.Edizione = Edizione, .Tabelle = {DiTutto()}}, Copia);
        QCOMPARE(Rapporto.Tabelle, (QList<TabellaAccess>{{u"Di tutto"_s, 4}}));
        QCOMPARE(PercheNo(Rapporto, u"Di tutto.Foto"_s), u"oggetto OLE"_s);
        QCOMPARE(PercheNo(Rapporto, u"Di tutto.Grezzo"_s), u"campo binario"_s);
        QCOMPARE(PercheNo(Rapporto, u"Di tutto.Allegati"_s), u"allegati o valori multipli"_s);
        QCOMPARE(Rapporto.Tralasciati.size(), 3);

        const Database Db = OpenDatabase(Copia);
        const QList<Campo> Attesi{{u"ID"_s, TipoCampo::Lungo, 0, u"V=N"_s, true},
                                  {u"Vero"_s, TipoCampo::Booleano, 0, {}, false},
                                  {u"Piccolo"_s, TipoCampo::Byte, 0, {}, false},
                                  {u"Corto"_s, TipoCampo::Intero, 0, {}, false},
                                  {u"Lungo"_s, TipoCampo::Lungo, 0, {}, false},
                                  {u"Soldi"_s, TipoCampo::Valuta, 0, u"L=Importo,F=#,##0.00"_s, false},
                                  {u"Singolo"_s, TipoCampo::Singolo, 0, {}, false},
                                  {u"Doppio"_s, TipoCampo::Doppio, 0, {}, false},
                                  {u"Giorno"_s, TipoCampo::Data, 0, {}, false},
                                  {u"Città"_s, TipoCampo::Testo, 60, u"L=Città di,S=30"_s, false},
                                  {u"Note"_s, TipoCampo::Memo, 0, {}, false},
                                  {u"Guid"_s, TipoCampo::Testo, 38, {}, false},
                                  {u"Decimale"_s, TipoCampo::Doppio, 0, {}, false},
                                  {u"Grande"_s, TipoCampo::Doppio, 0, {}, false}};
        QCOMPARE(Db.Campi(u"Di tutto"_s), Attesi);

        Recordset Righe = Db.OpenRecordset(u"Di tutto"_s);
        Righe.FindFirst(u"ID=7"_s);
        QCOMPARE(Righe.Value(u"Vero"_s), QVariant(true));
        QCOMPARE(Righe.Value(u"Piccolo"_s), QVariant(200));
        QCOMPARE(Righe.Value(u"Corto"_s), QVariant(-1234));
        QCOMPARE(Righe.Value(u"Lungo"_s), QVariant(-123456789));
        QCOMPARE(Righe.Value(u"Soldi"_s), QVariant(1234.5678));
        QCOMPARE(Righe.Value(u"Singolo"_s), QVariant(12.7));
        QCOMPARE(Righe.Value(u"Doppio"_s), QVariant(1e-10));
        QCOMPARE(Righe.Value(u"Giorno"_s), QVariant(QDate(1999, 12, 31)));
        QCOMPARE(Righe.Value(u"Città"_s), QVariant(u"Forlì"_s));
        QCOMPARE(Righe.Value(u"Note"_s), QVariant(u"breve"_s));
        QCOMPARE(Righe.Value(u"Guid"_s), QVariant(u"{00112233-4455-6677-8899-AABBCCDDEEFF}"_s));
        QCOMPARE(Righe.Value(u"Decimale"_s), QVariant(-1234.567));
        QCOMPARE(Righe.Value(u"Grande"_s), QVariant(9007199254740991.0));
        Righe.FindFirst(u"ID=3"_s);
        QCOMPARE(Righe.Value(u"Vero"_s), QVariant(false));
        QCOMPARE(Righe.Value(u"Soldi"_s), QVariant(-0.01));
        QCOMPARE(Righe.Value(u"Giorno"_s).toDateTime().toString(Qt::ISODate).left(19),
                 u"1850-03-02T18:30:15"_s);
        QCOMPARE(Righe.Value(u"Città"_s), QVariant(u"€ “così” – ñ"_s));
        QCOMPARE(Righe.Value(u"Note"_s), QVariant(Frase(1500)));
        QCOMPARE(Righe.Value(u"Grande"_s), QVariant(-5.0));
        Righe.FindFirst(u"ID=900"_s);
        for (const Campo& C : Attesi.sliced(2))
            QVERIFY2(Righe.Value(C.Name).isNull(), qPrintable(C.Name));
        Righe.FindFirst(u"ID=10"_s);
        QCOMPARE(Righe.Value(u"Città"_s), QVariant(u""_s));
        QCOMPARE(Righe.Value(u"Note"_s).toString(), Frase(100000));
    }

    /// Old notes point at keys: none is changed, none given out again.
    void Chiavi_data()
    {
        QTest::addColumn<quint32>("Ultimo");
        QTest::addColumn<int>("Prossima");
        QTest::newRow("of the rows") << 0U << 901;
        QTest::newRow("given to a row that is gone") << 1500U << 1501;
        QTest::newRow("of a damaged head") << 0xfffffff0U << 901;
    }
    void Chiavi()
    {
        QFETCH(quint32, Ultimo);
        QFETCH(int, Prossima);
        TabellaScritta Tabella = DiTutto();
        Tabella.UltimoContatore = Ultimo;
        QString Copia;
        (void)Converti({.Tabelle = {Tabella}}, Copia);
        const Database Db = OpenDatabase(Copia);
        Recordset Righe = Db.OpenRecordset(u"SELECT ID FROM \"Di tutto\" ORDER BY ID"_s);
        QList<int> Lette;
        for (; !Righe.Eof(); Righe.MoveNext())
            Lette += Righe.Value(u"ID"_s).toInt();
        QCOMPARE(Lette, (QList<int>{3, 7, 10, 900}));
        Recordset Tutte = Db.OpenRecordset(u"Di tutto"_s);
        Tutte.AddNew();
        Tutte.ImpostaValue(u"Lungo"_s, 1);
        Tutte.Update();
        QCOMPARE(Tutte.Value(u"ID"_s).toInt(), Prossima);
    }

    void Indici_data() { Edizioni(); }
    void Indici()
    {
        QFETCH(EdizioneAccess, Edizione);
        QString Copia;
        (void)Converti({.Edizione = Edizione, .Tabelle = {DiTutto()}}, Copia);
        const Database Db = OpenDatabase(Copia);
        Recordset Righe = Db.OpenRecordset(u"Di tutto"_s);
        Righe.ImpostaIndex(u"città"_s);
        Righe.Seek(u"="_s, u"FORLÌ"_s);
        QCOMPARE(Righe.Value(u"ID"_s).toInt(), 7);
        Righe.ImpostaIndex(u"Due"_s);
        Righe.Seek(u"="_s, QVariantList{QDate(1999, 12, 31), -123456789});
        QCOMPARE(Righe.Value(u"ID"_s).toInt(), 7);
        const ErroreVisto Guasto = ErroreDi([&] {
            Db.Execute(u"INSERT INTO \"Di tutto\" (Giorno, Lungo) VALUES (?, ?)"_s,
                       {QDate(1999, 12, 31), -123456789});
        });
        QCOMPARE(Guasto.Numero, errori::ValoreDoppio);
    }

    /// A key that no counter fills is one all the same, and a table without a key keeps the order of its
    /// rows.
    void SenzaContatore()
    {
        const TabellaScritta Codici{.Nome = u"Codici"_s,
                                    .Colonne = {{.Nome = u"Codice"_s}, {.Nome = u"Testo"_s}},
                                    .Righe = {{u"B"_s, u"due"_s}, {u"A"_s, u"uno"_s}},
                                    .Indici = {{u"PrimaryKey"_s, {0}, true}}};
        const TabellaScritta Senza{.Nome = u"Senza"_s,
                                   .Colonne = {{.Nome = u"N"_s, .Tipo = tipoaccess::Intero}},
                                   .Righe = {{3}, {1}, {2}, {1}}};
        QString Copia;
        const RapportoAccess Rapporto = Converti({.Tabelle = {Codici, Senza}}, Copia);
        QCOMPARE(Rapporto.Tabelle, (QList<TabellaAccess>{{u"Codici"_s, 2}, {u"Senza"_s, 4}}));
        QVERIFY(Rapporto.Tralasciati.isEmpty());
        const Database Db = OpenDatabase(Copia);
        QVERIFY(NumeroErrore([&] { Db.Execute(u"INSERT INTO Codici VALUES ('A','tre')"_s); }) != 0);
        Recordset Righe = Db.OpenRecordset(u"Senza"_s);
        QList<int> Lette;
        for (; !Righe.Eof(); Righe.MoveNext())
            Lette += Righe.Value(u"N"_s).toInt();
        QCOMPARE(Lette, (QList<int>{3, 1, 2, 1}));
    }

    /// A counter with equal or missing numbers is no key: the rows come in all the same.
    void ContatoreGuasto()
    {
        const auto Con = [](const QVariant& Seconda) {
            return TabellaScritta{.Nome = u"clienti"_s,
                                  .Colonne = {{.Nome = u"ID"_s, .Tipo = tipoaccess::Lungo, .Contatore = true},
                                              {.Nome = u"Nominativo"_s}},
                                  .Righe = {{5, u"Rossi"_s}, {Seconda, u"Bianchi"_s}},
                                  .Indici = {{u"PrimaryKey"_s, {0}, true}}};
        };
        for (const QVariant& Seconda : {QVariant(5), QVariant()}) {
            QString Copia;
            const RapportoAccess Rapporto = Converti({.Tabelle = {Con(Seconda)}}, Copia);
            QCOMPARE(Rapporto.Tabelle, (QList<TabellaAccess>{{u"clienti"_s, 2}}));
            QCOMPARE(PercheNo(Rapporto, u"clienti"_s),
                     u"il contatore ha valori doppi o mancanti: resta come numero"_s);
            const Database Db = OpenDatabase(Copia);
            QCOMPARE(Db.OpenRecordset(u"clienti"_s).RecordCount(), 2);
            QVERIFY(!Db.Campi(u"clienti"_s)[0].Contatore);
        }
    }

    /// Rows stand on many pages, in others than theirs, or are gone; the list of the pages has two forms.
    void Righe_data()
    {
        QTest::addColumn<EdizioneAccess>("Edizione");
        QTest::addColumn<bool>("Grande");
        for (const bool Grande : {false, true}) {
            QTest::newRow(Grande ? "jet3, large map" : "jet3") << EdizioneAccess::Jet3 << Grande;
            QTest::newRow(Grande ? "jet4, large map" : "jet4") << EdizioneAccess::Jet4 << Grande;
        }
    }
    void Righe()
    {
        QFETCH(EdizioneAccess, Edizione);
        QFETCH(bool, Grande);
        TabellaScritta Tabella{.Nome = u"T"_s,
                               .Colonne = {{.Nome = u"ID"_s, .Tipo = tipoaccess::Lungo, .Contatore = true},
                                           {.Nome = u"A"_s, .Caratteri = 255},
                                           {.Nome = u"B"_s, .Caratteri = 255},
                                           {.Nome = u"C"_s, .Caratteri = 255}},
                               .MappaGrande = Grande};
        for (int i = 0; i < 1000; ++i)
            Tabella.Righe.append({i + 1, Frase(i % 256), Frase(255 - i % 200), Frase(i % 90)});
        Tabella.Tolte = {0, 17, 999};
        Tabella.Traslocate = {1, 16, 500};
        QString Copia;
        const RapportoAccess Rapporto = Converti({.Edizione = Edizione, .Tabelle = {Tabella}}, Copia);
        QCOMPARE(Rapporto.Tabelle, (QList<TabellaAccess>{{u"T"_s, 997}}));
        QVERIFY(Rapporto.Tralasciati.isEmpty());
        Recordset Lette = OpenDatabase(Copia).OpenRecordset(u"SELECT * FROM T ORDER BY ID"_s);
        for (int i = 0; i < 1000; ++i) {
            if (Tabella.Tolte.contains(i))
                continue;
            QCOMPARE(Lette.Value(u"ID"_s).toInt(), i + 1);
            QCOMPARE(Lette.Value(u"A"_s).toString(), Frase(i % 256));
            QCOMPARE(Lette.Value(u"B"_s).toString(), Frase(255 - i % 200));
            QCOMPARE(Lette.Value(u"C"_s).toString(), Frase(i % 90));
            Lette.MoveNext();
        }
        QVERIFY(Lette.Eof());
    }

    /// What stands in no table of the office is named.
    void Tralasciate()
    {
        const auto Semplice = [](const QString& Nome) {
            return TabellaScritta{
                .Nome = Nome, .Colonne = {{.Nome = u"N"_s, .Tipo = tipoaccess::Intero}}, .Righe = {{1}}};
        };
        TabellaScritta Sistema = Semplice(u"MSysQueries"_s);
        Sistema.DiSistema = true;
        TabellaScritta Collegata = Semplice(u"Altrove"_s);
        Collegata.Collegata = true;
        const TabellaScritta Foto{.Nome = u"Foto"_s, .Colonne = {{.Nome = u"F"_s, .Tipo = tipoaccess::Ole}}};
        QString Copia;
        const RapportoAccess Rapporto =
            Converti({.Tabelle = {Sistema, Collegata, Semplice(u"_Campi"_s), Foto, Semplice(u"clienti"_s),
                                  Semplice(u"CLIENTI"_s), Semplice(u"~TMPCLP1"_s)}},
                     Copia);
        QCOMPARE(Rapporto.Tabelle, (QList<TabellaAccess>{{u"clienti"_s, 1}}));
        QCOMPARE(PercheNo(Rapporto, u"MSysQueries"_s), u"tabella di sistema"_s);
        QCOMPARE(PercheNo(Rapporto, u"~TMPCLP1"_s), u"tabella di sistema"_s);
        QCOMPARE(PercheNo(Rapporto, u"Altrove"_s), u"tabella collegata a un altro file"_s);
        QCOMPARE(PercheNo(Rapporto, u"_Campi"_s), u"nome riservato al programma"_s);
        QCOMPARE(PercheNo(Rapporto, u"Foto"_s), u"nessun campo che si possa leggere"_s);
        QCOMPARE(PercheNo(Rapporto, u"CLIENTI"_s), u"nome già usato da un'altra tabella"_s);
        QCOMPARE(OpenDatabase(Copia).Tabelle(), QStringList{u"clienti"_s});
    }

    /// The old files have letters of one byte, in the code page of their country.
    void PagineDiCodici()
    {
        const TabellaScritta Tabella{
            .Nome = u"T"_s,
            .Colonne = {{.Nome = u"A"_s}, {.Nome = u"M"_s, .Tipo = tipoaccess::Memo}},
            .Righe = {{u"Łódź"_s, u"Łódź "_s.repeated(2000)}}};
        QString Copia;
        (void)Converti({.Edizione = EdizioneAccess::Jet3, .Tabelle = {Tabella}, .PaginaCodici = 1250}, Copia);
        const Recordset Riga = OpenDatabase(Copia).OpenRecordset(u"T"_s);
        QCOMPARE(Riga.Value(u"A"_s).toString(), u"Łódź"_s);
        QCOMPARE(Riga.Value(u"M"_s).toString(), u"Łódź "_s.repeated(2000));
    }

    /// A file that was encoded, with or without a password, gives what it holds.
    void Codificato_data()
    {
        QTest::addColumn<EdizioneAccess>("Edizione");
        QTest::newRow("jet3") << EdizioneAccess::Jet3;
        QTest::newRow("jet4") << EdizioneAccess::Jet4;
    }
    void Codificato()
    {
        QFETCH(EdizioneAccess, Edizione);
        QString Copia;
        const RapportoAccess Rapporto =
            Converti({.Edizione = Edizione, .Tabelle = {DiTutto()}, .Chiave = 0x12345678U}, Copia);
        QCOMPARE(Rapporto.Tabelle, (QList<TabellaAccess>{{u"Di tutto"_s, 4}}));
        Recordset Riga = OpenDatabase(Copia).OpenRecordset(u"Di tutto"_s);
        Riga.FindFirst(u"ID=10"_s);
        QCOMPARE(Riga.Value(u"Note"_s).toString(), Frase(100000));
    }

    /// A definition of many columns goes on over several pages.
    void MolteColonne()
    {
        TabellaScritta Tabella{.Nome = u"Larga"_s};
        RigaScritta Riga;
        for (int i = 0; i < 255; ++i) {
            Tabella.Colonne.append({.Nome = u"Colonna numero %1"_s.arg(i),
                                    .Tipo = tipoaccess::Intero,
                                    .Descrizione = u"L=%1"_s.arg(i)});
            Riga.append(i);
        }
        Tabella.Righe = {Riga};
        Tabella.Indici = {{u"Ultima"_s, {254}}};
        for (const EdizioneAccess Edizione : {EdizioneAccess::Jet3, EdizioneAccess::Jet4}) {
            QString Copia;
            const RapportoAccess Rapporto = Converti({.Edizione = Edizione, .Tabelle = {Tabella}}, Copia);
            QCOMPARE(Rapporto.Tabelle, (QList<TabellaAccess>{{u"Larga"_s, 1}}));
            const Database Db = OpenDatabase(Copia);
            QCOMPARE(Db.Campi(u"Larga"_s)[200].Description, u"L=200"_s);
            Recordset Righe = Db.OpenRecordset(u"Larga"_s);
            Righe.ImpostaIndex(u"Ultima"_s);
            QCOMPARE(Righe.Value(u"Colonna numero 254"_s).toInt(), 254);
        }
    }

    /// The file is read, and nothing else is done to it.
    void FileIntatto()
    {
        const QString Cartella = NuovaCartella();
        const QString File = ScriviAccess(Cartella + u"a.mdb"_s, {.Tabelle = {DiTutto()}});
        QFile Prima(File);
        QVERIFY(Prima.open(QIODevice::ReadOnly));
        const QByteArray Byte = Prima.readAll();
        Prima.close();
        QVERIFY(QFile::setPermissions(File, QFile::ReadOwner));
        QVERIFY(ConvertiAccess(File, Cartella + u"b.mdb"_s).has_value());
        QFile Dopo(File);
        QVERIFY(Dopo.open(QIODevice::ReadOnly));
        QCOMPARE(Dopo.readAll(), Byte);
        QCOMPARE(QDir(Cartella).entryList(QDir::Files | QDir::Hidden), (QStringList{u"a.mdb"_s, u"b.mdb"_s}));
    }
};

PROVA(TestConversione);
#include "TestConversione.moc"
