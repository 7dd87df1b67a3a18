// A search for a text finds the same in memory as the engine finds, and sees what was written since.
#include "supporto/prova.h"

#include "platform/database/clienti.h"
#include "platform/database/somiglianza.h"
#include "platform/database/testicolonna.h"

#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

class TestTestiColonna : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void comeIlMotore_data();
    void comeIlMotore();
    void ognuno();
    void senzaMaiuscole_data();
    void senzaMaiuscole();
    void oltreLaPrimaLettura();
    void fraRigheScelte();
    void siVedeQuelloCheEScritto_data();
    void siVedeQuelloCheEScritto();
    void unAltraColonna();
    void colonnaConAltroCheTesto();
    void troppoTesto();
    void tabellaVuotata();

private:
    QList<int> Trovati(Recordset& Righe, const QString& Criterio, bool Indietro = false) const;
    Database Db;
};
PROVA(TestTestiColonna);

namespace {

const QStringList Nomi{u"Verdi"_s, u"verdi anna"_s, u"Àlvari"_s, u"àLVARI"_s, u"alvari"_s,  u""_s,
                       u"ROSSI"_s, u"rosso*"_s,     u"ro?so"_s,  u"[a]"_s,    u"Straße"_s,  u"D\"Amico"_s,
                       u"5"_s,     u"😀 Neri"_s,     u"Ⱥlfa"_s,   u"İlir"_s,   u"K elvin"_s, u"zz"_s};

}  // namespace

void TestTestiColonna::init()
{
    Db = ArchivioClienti();
    Db.CreaIndice(u"Clienti"_s, u"Nominativo"_s, {u"Nominativo"_s});  // which has an order of its own
    Transazione Tutte(Db);
    Db.Execute(u"DELETE FROM Clienti"_s);
    for (const QString& Nome : Nomi)
        Db.Execute(u"INSERT INTO Clienti (Nominativo) VALUES (?)"_s, {Nome});
    Db.Execute(u"INSERT INTO Clienti (Nominativo) VALUES (NULL)"_s);
    Db.Execute(u"INSERT INTO Clienti (Nominativo) VALUES (CAST(X'41FF42' AS TEXT))"_s);  // broken UTF-8
    Tutte.Conferma();
}

/// The keys of the rows that one search after the other finds.
QList<int> TestTestiColonna::Trovati(Recordset& Righe, const QString& Criterio, bool Indietro) const
{
    QList<int> Tutti;
    if (Indietro)
        Righe.FindLast(Criterio);
    else
        Righe.FindFirst(Criterio);
    while (!Righe.NoMatch()) {
        Tutti += Righe.Value(u"ID"_s).toInt();
        if (Indietro)
            Righe.FindPrevious(Criterio);
        else
            Righe.FindNext(Criterio);
    }
    return Tutti;
}

void TestTestiColonna::comeIlMotore_data()
{
    QTest::addColumn<QString>("Confronto");
    QTest::addColumn<int>("Quanti");
    const auto Riga = [](const QString& Confronto, int Quanti) {
        QTest::newRow(qPrintable(Confronto)) << Confronto << Quanti;
    };
    Riga(u"= 'verdi'"_s, 1);
    Riga(u"= 'ÀLVARI'"_s, 2);
    Riga(u"= ''"_s, 1);
    Riga(u"= 'STRAßE'"_s, 1);
    Riga(u"= 'ⱥLFA'"_s, 1);
    Riga(u"= 'k elvin'"_s, 1);
    Riga(u"<> 'verdi'"_s, 18);
    Riga(u"<> ''"_s, 18);
    Riga(u"< 'b'"_s, 5);
    Riga(u"<= 'rossi'"_s, 9);
    Riga(u"> 'verdi'"_s, 7);
    Riga(u">= 'verdi'"_s, 8);
    Riga(u"Like '*ROSS*'"_s, 2);
    Riga(u"Like 'à*'"_s, 2);
    Riga(u"Like '*I'"_s, 6);
    Riga(u"Like 'verdi'"_s, 1);
    Riga(u"Like 'ro?so'"_s, 1);
    Riga(u"Like 'ross*[*]'"_s, 1);
    Riga(u"Like '*[*]*'"_s, 1);
    Riga(u"Like '#'"_s, 1);
    Riga(u"Like '[!a-z]*'"_s, 7);
    Riga(u"Like '*'"_s, 19);
    Riga(u"Like '**'"_s, 19);
    Riga(u"Like ''"_s, 1);
    Riga(u"Like '*😀*'"_s, 1);
    Riga(u"Like '[a'"_s, 0);
    Riga(u"Not Like '*r*'"_s, 8);
    Riga(u"Not Like '*'"_s, 0);
    Riga(u"Like 'a?b'"_s, 1);
}

/// A comparison with a second one that is always true is the engine's affair, one alone is not.
void TestTestiColonna::comeIlMotore()
{
    QFETCH(QString, Confronto);
    const QString Solo = u"Nominativo "_s + Confronto;
    for (const QString& Sql :
         {u"Clienti"_s, u"SELECT * FROM Clienti ORDER BY -ID"_s, u"SELECT * FROM Clienti WHERE ID>8"_s}) {
        Recordset Righe = Db.OpenRecordset(Sql);
        for (const bool Indietro : {false, true}) {
            const QList<int> Qui = Trovati(Righe, Solo, Indietro);
            QCOMPARE(Qui, Trovati(Righe, Solo + u" AND ID<>0"_s, Indietro));
            if (Sql == u"Clienti")
                QTEST(int(Qui.size()), "Quanti");
        }
    }
}

/// Each name finds itself, whatever its letters are.
void TestTestiColonna::ognuno()
{
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    for (const QString& Nome : Nomi) {
        QString Doppie = Nome;
        Doppie.replace(u'"', u"\"\""_s);
        const QList<int> Qui = Trovati(Righe, u"Nominativo = \""_s + Doppie + u'"');
        const auto Uguali = std::ranges::count_if(Nomi, [&Nome](const QString& Altro) {
            return ConfrontaSenzaMaiuscole(Altro.toUtf8(), Nome.toUtf8()) == 0;
        });
        QCOMPARE(Qui.size(), Uguali);
    }
}

void TestTestiColonna::senzaMaiuscole_data()
{
    QTest::addColumn<QByteArray>("Testo");
    QTest::addColumn<QByteArray>("Piegato");
    QTest::newRow("vuoto") << QByteArray() << QByteArray();
    QTest::newRow("lettere") << QByteArray("AbZ[z09") << QByteArray("abz[z09");
    QTest::newRow("accenti") << QByteArray("ÀÈbÙ") << QByteArray("àèbù");
    QTest::newRow("tre byte") << QByteArray("K€Z") << QByteArray("k€z");
    QTest::newRow("si allunga") << QByteArray("AȺB") << QByteArray("aⱥb");
    QTest::newRow("quattro byte") << QByteArray("A😀𐐀") << QByteArray("a😀𐐨");
    QTest::newRow("byte spezzato") << QByteArray("A\xff"
                                                 "B\xc3")
                                   << QByteArray("a\xef\xbf\xbd"
                                                 "b\xef\xbf\xbd");
}

void TestTestiColonna::senzaMaiuscole()
{
    QFETCH(QByteArray, Testo);
    QByteArray Accodato("Prima ");
    AccodaSenzaMaiuscole(Accodato, Testo);
    QVERIFY(Accodato.startsWith("Prima "));  // what stands there is not its affair
    QTEST(Accodato.sliced(6), "Piegato");
}

void TestTestiColonna::oltreLaPrimaLettura()
{
    constexpr int Quante = 3000;
    Db.Execute(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<%1) "
               "INSERT INTO Clienti (ID, Nominativo) SELECT 1000+3*i, 'Nome '||i FROM n"_s.arg(Quante));
    for (const QString& Sql : {u"Clienti"_s, u"SELECT * FROM Clienti ORDER BY Nominativo DESC"_s}) {
        Recordset Righe = Db.OpenRecordset(Sql);
        Righe.FindFirst(u"Nominativo = 'nome 2999'"_s);
        QCOMPARE(Righe.Value(u"ID"_s), QVariant(1000 + 3 * 2999));
        Righe.FindFirst(u"Nominativo = 'nome 1'"_s);
        QCOMPARE(Righe.Value(u"ID"_s), QVariant(1003));
        QCOMPARE(Trovati(Righe, u"Nominativo Like 'nome 29*'"_s).size(), 111);
        QCOMPARE(Trovati(Righe, u"Nominativo Like '*E 300?'"_s).size(), 1);
        QCOMPARE(Trovati(Righe, u"Nominativo Like '*E 300'"_s, true), QList<int>{1900});
    }
    // From the middle on, with nothing read yet.
    Recordset Nuove = Db.OpenRecordset(u"Clienti"_s);
    Nuove.MoveLast();
    Nuove.FindNext(u"Nominativo Like 'nome*'"_s);
    QVERIFY(Nuove.NoMatch());
    Nuove.FindPrevious(u"Nominativo Like 'nome*'"_s);
    QCOMPARE(Nuove.Value(u"Nominativo"_s).toString(), u"Nome 2999"_s);
}

void TestTestiColonna::fraRigheScelte()
{
    Recordset Parte = Db.OpenRecordset(u"Clienti"_s).Ristretto({6, 11, 22});
    QCOMPARE(Trovati(Parte, u"Nominativo Like '*r*'"_s), (QList<int>{6, 11}));
    QCOMPARE(Trovati(Parte, u"Nominativo Like '*r*'"_s, true), (QList<int>{11, 6}));
}

void TestTestiColonna::siVedeQuelloCheEScritto_data()
{
    QTest::addColumn<QString>("Chi");
    for (const char* Chi : {"lo stesso insieme", "la stessa connessione", "un altro programma"})
        QTest::newRow(Chi) << QString::fromLatin1(Chi);
}

void TestTestiColonna::siVedeQuelloCheEScritto()
{
    QFETCH(QString, Chi);
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    const QString Criterio = u"Nominativo = 'Bruni'"_s;
    QCOMPARE(Trovati(Righe, Criterio), QList<int>());
    const int ID = Db.OpenRecordset(u"SELECT ID FROM Clienti ORDER BY ID"_s).Value(u"ID"_s).toInt();
    const QString Sql = u"UPDATE Clienti SET Nominativo='BRUNI' WHERE ID=?"_s;
    if (Chi == u"lo stesso insieme") {
        Righe.MoveFirst();
        Righe.Edit();
        Righe.ImpostaValue(u"Nominativo"_s, u"BRUNI"_s);
        Righe.Update();
    } else if (Chi == u"la stessa connessione") {
        Db.Execute(Sql, {ID});
    } else {
        AltraConnessione(Db).Execute(Sql, {ID});
    }
    QCOMPARE(Trovati(Righe, Criterio), QList<int>{ID});
    Righe.FindFirst(Criterio);
    Righe.Delete();
    QCOMPARE(Trovati(Righe, Criterio), QList<int>());
}

void TestTestiColonna::unAltraColonna()
{
    Db.Execute(u"UPDATE Clienti SET Codice='verdi' WHERE Nominativo='ROSSI'"_s);
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    const QList<int> PerNome = Trovati(Righe, u"Nominativo = 'verdi'"_s);
    const QList<int> PerCodice = Trovati(Righe, u"Codice = 'VERDI'"_s);
    QCOMPARE(PerNome.size(), 1);
    QCOMPARE(PerCodice.size(), 1);
    QVERIFY(PerNome != PerCodice);
    QCOMPARE(Trovati(Righe, u"Nominativo = 'verdi'"_s), PerNome);
}

/// A file of another tool may hold anything in a column of text: the engine compares it then.
void TestTestiColonna::colonnaConAltroCheTesto()
{
    Db.Execute(u"INSERT INTO Clienti (Nominativo) VALUES (X'524F5353')"_s);  // bytes
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    for (const QString& Confronto : {u"= 'rossi'"_s, u"> 'verdi'"_s, u"Like '*oss*'"_s}) {
        const QString Solo = u"Nominativo "_s + Confronto;
        QCOMPARE(Trovati(Righe, Solo), Trovati(Righe, Solo + u" AND ID<>0"_s));
        QVERIFY(!Trovati(Righe, Solo).isEmpty());
    }
}

/// More text than memory is to be spent on: the engine looks through the file.
void TestTestiColonna::troppoTesto()
{
    const QScopedValueRollback Poco(TestiColonna::MassimoByte, qsizetype(40));
    for (const QString& Sql : {u"Clienti"_s, u"SELECT * FROM Clienti ORDER BY -ID"_s}) {
        Recordset Righe = Db.OpenRecordset(Sql);
        for (const QString& Confronto : {u"= 'verdi'"_s, u"= 'zz'"_s, u"Like '*r*'"_s}) {
            const QString Solo = u"Nominativo "_s + Confronto;
            QCOMPARE(Trovati(Righe, Solo), Trovati(Righe, Solo + u" AND ID<>0"_s));
            QVERIFY(!Trovati(Righe, Solo).isEmpty());
        }
    }
}

void TestTestiColonna::tabellaVuotata()
{
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    QCOMPARE(Trovati(Righe, u"Nominativo = 'verdi'"_s).size(), 1);
    Db.Execute(u"DELETE FROM Clienti"_s);
    QCOMPARE(Trovati(Righe, u"Nominativo = 'verdi'"_s), QList<int>());
    Recordset Vuote = Db.OpenRecordset(u"Clienti"_s);
    QCOMPARE(Trovati(Vuote, u"Nominativo = 'verdi'"_s), QList<int>());
}

#include "TestTestiColonna.moc"
