// Rows of the address book written for other programs, in pieces, beside the file that they replace.
#include "studio.h"

#include "addressbook/exchange/esporta.h"
#include "addressbook/modScheda.h"
#include "platform/base/errore.h"
#include "platform/base/fogliocsv.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"
#include "supporto/guasti.h"

#include <QDir>
#include <QScopedValueRollback>

#include <limits>

using namespace Qt::StringLiterals;

class TestEsporta : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void siEsporta();
    void lEsportazioneRitorna_data();
    void lEsportazioneRitorna();
    void iPostiScelti();
    void senzaNome();
    void lEstensione();
    void aPezzi_data();
    void aPezzi();
    void leChiaviAgliEstremi();
    void ilFileDiPrimaResta_data();
    void ilFileDiPrimaResta();
    void siFerma();
};
PROVA(TestEsporta);

namespace {

Recordset Clienti(const Studio& S)
{
    return OpenDatabase(S.File, true).OpenRecordset(u"clienti"_s);
}

QByteArray Esportati(const Recordset& Righe, FormatoEsporta Forma, const QList<int>& Posti = {})
{
    const QString File = NuovaCartella() + u"nomi"_s;
    EsportaNominativi(File, Righe, Forma, Posti);
    return LeggiFile(File);
}

/// More rows than three pieces hold, a part of them without a name.
void RiempiDiMolti(const Studio& S)
{
    const Database Db = OpenDatabase(S.File);
    Recordset Righe = Db.OpenRecordset(u"clienti"_s);
    for (int i = 0; i < 650; ++i) {
        Righe.AddNew();
        if (i % 7 != 0)
            Righe.ImpostaValue(u"Nominativo"_s, u"%1 \"Nicolò\"; %2"_s.arg(QChar(u'A' + i * 5 % 23)).arg(i));
        Righe.ImpostaValue(u"Telefono"_s, u"+39 %1"_s.arg(i));
        if (i % 3 == 0)
            Righe.ImpostaValue(u"DataNascita"_s, QDate(1980, 1, 31).addDays(i));
        Righe.Update();
    }
}

/// The same read row by row, and put together at once.
QByteArray Attesi(Recordset Righe, const QList<int>& Posti)
{
    QStringList Nomi;
    std::vector<QStringList> Fatte(1);
    for (const ColonnaRubrica& Colonna : ColonneRubrica(Righe.Campi()))
        if (Colonna.Nome != u"ID"_s) {
            Nomi += Colonna.Nome;
            Fatte[0] += Colonna.Titolo;
        }
    for (const int Posto : Posti) {
        Righe.ImpostaAbsolutePosition(Posto);
        QStringList Celle;
        for (const QString& Nome : std::as_const(Nomi))
            Celle += TestoScheda(Righe.Value(Nome));
        Fatte.push_back(Celle);
    }
    return ScriviCsv(Fatte);
}

QList<int> Da(int Primo, int Quanti, int Passo = 1)
{
    QList<int> Posti;
    for (int i = 0; i < Quanti; ++i)
        Posti += Primo + i * Passo;
    return Posti;
}

}  // namespace

void TestEsporta::siEsporta()
{
    const Studio S;
    S.Riempi();
    const QByteArray Righe = Esportati(Clienti(S), FormatoEsporta::Csv);
    const QStringList Linee = QString::fromUtf8(Righe).split(u"\r\n"_s);
    QVERIFY(Righe.startsWith("\xEF\xBB\xBF"));  // or a spreadsheet reads it in another code
    QCOMPARE(
        Linee[0],
        u"Nominativo;Indirizzo;CAP;Città;Prov.;Nazione;Codice fiscale;Partita IVA;Data di nascita;Comune "
        "di nascita;Telefono;Cellulare;E-mail;PEC;Codice destinatario;Tipo soggetto;Legale "
        "rappresentante;Note"_s);
    QVERIFY2(Linee[1].startsWith(
                 u"\"'=Rossi; \"\"Nicolò\"\"\";\"Via Roma, 1\";00184;;;;RSSNCL80A31D704Z;;31/01/1980;;'+39 "
                 "0583;;'@a;"),
             qPrintable(Linee[1]));
    const QByteArray Schede = Esportati(Clienti(S), FormatoEsporta::Vcard);
    QCOMPARE(Schede.count("BEGIN:VCARD\r\nVERSION:4.0\r\n"), 2);
    QVERIFY(Schede.contains("KIND:org\r\nFN:Alfa Srl\r\n"));
}

void TestEsporta::lEsportazioneRitorna_data()
{
    QTest::addColumn<int>("Forma");
    QTest::newRow("rows") << int(FormatoEsporta::Csv);
    QTest::newRow("cards") << int(FormatoEsporta::Vcard);
}

/// What one archive writes another one reads, field by field.
void TestEsporta::lEsportazioneRitorna()
{
    QFETCH(int, Forma);
    const Studio Primo;
    Primo.Riempi();
    const QString File = Primo.Scrivi(u"nomi"_s, Esportati(Clienti(Primo), FormatoEsporta(Forma)));
    const Studio Secondo;
    const SorgenteNominativi Da(File);
    OpzioniSorgente Come;
    const TabellaEstranea Lette = Da.Leggi(Come);
    const Database Db = OpenDatabase(Secondo.File);
    ImportaNominativi Opera(Db, u"clienti"_s, Lette, AbbinaColonne(Lette.Titoli, Db.Campi(u"clienti"_s)),
                            Doppioni::Salta);
    QVERIFY(Opera.Prepara() && Opera.Scrivi(File));
    QCOMPARE(Secondo.Righe(Studio::Riempite()), Primo.Righe(Studio::Riempite()));
    QCOMPARE(Opera.Avvisi(), QStringList());
}

void TestEsporta::iPostiScelti()
{
    const Studio S;
    for (const QString& Nome : {u"a"_s, u"b"_s, u"c"_s})
        S.Esegui(u"INSERT INTO clienti (Nominativo) VALUES (?)"_s, {Nome});
    const QByteArray Schede = Esportati(Clienti(S), FormatoEsporta::Vcard, {2, 0});
    QVERIFY(Schede.indexOf("FN:a") > 0 && Schede.indexOf("FN:c") > Schede.indexOf("FN:a"));
    QVERIFY(!Schede.contains("FN:b"));
}

/// A card is of a name: of the other rows it is said that they are not there.
void TestEsporta::senzaNome()
{
    const Studio S;
    for (const QString& Nome : {u"a"_s, QString(), u"  "_s})
        S.Esegui(u"INSERT INTO clienti (Nominativo, Citta) VALUES (?, 'Lucca')"_s, {Nome});
    const Recordset Righe = Clienti(S);
    const QString File = S.Cartella + u"nomi"_s;
    const NominativiEsportati Schede = EsportaNominativi(File, Righe, FormatoEsporta::Vcard);
    QCOMPARE(LeggiFile(File).count("BEGIN:VCARD"), Schede.Quanti);
    QCOMPARE(Schede.Quanti, 1);
    QCOMPARE(FraseTralasciati(Schede), u"2 senza nome, tralasciati"_s);
    QCOMPARE(FraseTralasciati(EsportaNominativi(File, Righe, FormatoEsporta::Vcard, {0, 1})),
             u"1 senza nome, tralasciato"_s);
    const NominativiEsportati Foglio = EsportaNominativi(File, Righe, FormatoEsporta::Csv);
    QCOMPARE(Foglio.Quanti, 3);
    QCOMPARE(LeggiFile(File).count("Lucca"), 3);
    QCOMPARE(FraseTralasciati(Foglio), QString());
}

void TestEsporta::lEstensione()
{
    QCOMPARE(FormatoDi(u"/x/nomi.VCF"_s), FormatoEsporta::Vcard);
    QCOMPARE(FormatoDi(u"/x/nomi.csv"_s), FormatoEsporta::Csv);
    QCOMPARE(ConEstensione(u"/x/nomi"_s), u"/x/nomi.csv"_s);
    QCOMPARE(ConEstensione(u"/x/nomi.vcf"_s), u"/x/nomi.vcf"_s);
    QCOMPARE(ConEstensione(u"/x/nomi.CSV"_s), u"/x/nomi.CSV"_s);
    QCOMPARE(ConEstensione(u"/x/nomi.txt"_s), u"/x/nomi.txt"_s);
    QCOMPARE(ConEstensione(u"/x/Elenco 22.11.2026"_s), u"/x/Elenco 22.11.2026.csv"_s);
}

void TestEsporta::aPezzi_data()
{
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<QList<int>>("Posti");
    const QString Tutti = u"SELECT * FROM clienti"_s;
    QTest::newRow("all") << Tutti << Da(0, 650);
    for (const int Quanti : {1, 199, 200, 201, 400, 401})
        QTest::addRow("%d of them", Quanti) << Tutti << Da(17, Quanti);
    QTest::newRow("every third") << Tutti << Da(1, 210, 3);
    QTest::newRow("far apart") << Tutti << QList<int>{0, 649};
    QTest::newRow("ordered by the name") << u"SELECT * FROM clienti ORDER BY Nominativo"_s << Da(0, 650);
    QTest::newRow("backwards") << u"SELECT * FROM clienti ORDER BY ID DESC"_s << Da(0, 650);
    QTest::newRow("filtered") << u"SELECT * FROM clienti WHERE Nominativo Is Not Null"_s << Da(0, 557);
}

/// Where a piece ends shows nowhere.
void TestEsporta::aPezzi()
{
    QFETCH(QString, Sql);
    QFETCH(QList<int>, Posti);
    const Studio S;
    RiempiDiMolti(S);
    S.Esegui(u"DELETE FROM clienti WHERE ID BETWEEN 300 AND 330"_s);
    for (int i = 0; i < 31; ++i)
        S.Esegui(u"INSERT INTO clienti (Nominativo) VALUES (?)"_s, {u"Dopo %1"_s.arg(i)});
    const Recordset Righe = OpenDatabase(S.File, true).OpenRecordset(Sql);
    QVERIFY(Righe.RecordCount() > Posti.last());
    const QByteArray Scritti = Esportati(Righe, FormatoEsporta::Csv, Posti);
    QCOMPARE(Scritti, Attesi(Righe, Posti));
    QCOMPARE(Scritti.count("\r\n"), Posti.size() + 1);
    if (Posti.size() == Righe.RecordCount())
        QCOMPARE(Esportati(Righe, FormatoEsporta::Csv), Scritti);
}

/// Keys as far from each other as there are numbers.
void TestEsporta::leChiaviAgliEstremi()
{
    const Studio S;
    for (const qint64 Chiave : {std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max()}) {
        S.Esegui(u"INSERT INTO clienti (ID, Nominativo) VALUES (?, 'a')"_s, {Chiave});
        const Recordset Righe = Clienti(S);
        QCOMPARE(Esportati(Righe, FormatoEsporta::Csv), Attesi(Righe, Da(0, Righe.RecordCount())));
    }
}

void TestEsporta::ilFileDiPrimaResta_data()
{
    QTest::addColumn<bool>("AncheSenzaNome");
    QTest::addColumn<int>("Guasto");
    for (const bool SenzaNome : {false, true}) {
        const char* Come = SenzaNome ? ", with a name" : "";
        QTest::addRow("a full disk%s", Come) << SenzaNome << 61;
        QTest::addRow("a row that is gone%s", Come) << SenzaNome << int(errori::RecordEliminato);
        QTest::addRow("a row that is gone, by its order%s", Come) << SenzaNome << -1;
    }
}

/// What fails behind the first piece leaves the former file, and nothing beside it.
void TestEsporta::ilFileDiPrimaResta()
{
    QFETCH(bool, AncheSenzaNome);
    QFETCH(int, Guasto);
    const Studio S;
    RiempiDiMolti(S);
    const QString File = NuovaCartella() + u"nomi.csv"_s;
    ScriviFile(File, "prima");
    const QScopedValueRollback Nome(guasti::SenzaFileAnonimi, AncheSenzaNome);
    const QScopedValueRollback Limite(guasti::LimiteFile, Guasto == 61 ? qint64(10'000) : qint64(0));
    const Recordset Righe = OpenDatabase(S.File, true)
                                .OpenRecordset(Guasto == -1 ? u"SELECT * FROM clienti ORDER BY ID DESC"_s
                                                            : u"SELECT * FROM clienti"_s);
    const bool Tolta = Guasto != 61;
    if (Tolta)
        S.Esegui(u"DELETE FROM clienti WHERE ID = (SELECT min(ID) + 350 FROM clienti)"_s);
    QCOMPARE(NumeroErrore([&] { EsportaNominativi(File, Righe, FormatoEsporta::Csv); }),
             Tolta ? int(errori::RecordEliminato) : Guasto);
    QCOMPARE(LeggiFile(File), QByteArray("prima"));
    QCOMPARE(QDir(CartellaFile(File)).entryList(QDir::Files | QDir::Hidden), QStringList{u"nomi.csv"_s});
}

void TestEsporta::siFerma()
{
    const Studio S;
    RiempiDiMolti(S);
    const QString File = S.Scrivi(u"nomi.csv"_s, "prima");
    QList<int> Viste;
    const auto Prosegui = [&](int Fatte, int Tutte) {
        Viste += {Fatte, Tutte};
        return Fatte < 400;
    };
    QCOMPARE(EsportaNominativi(File, Clienti(S), FormatoEsporta::Csv, {}, Prosegui).Quanti, 0);
    QCOMPARE(Viste, (QList<int>{0, 650, 200, 650, 400, 650}));
    QCOMPARE(LeggiFile(File), QByteArray("prima"));
}

#include "TestEsporta.moc"
