// The municipalities as delivered, and the tables that creadati refuses.
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "creadati/comuni.h"
#include "platform/database/database.h"
#include "platform/system/file.h"

using namespace Qt::StringLiterals;

class TestComuniDati : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void righeEColonne();
    void codici_data();
    void codici();
    void ordinati();
    void giornoDellElenco();
    void rifiuta_data();
    void rifiuta();

private:
    Recordset Comuni;
};
PROVA(TestComuniDati);

void TestComuniDati::initTestCase()
{
    Comuni = OpenDatabase(ProgrammaDiProva() + u"Comuni.mdb"_s, true).OpenRecordset(u"Comuni"_s);
    Comuni.ImpostaIndex(u"COMUNI2L"_s);
}

void TestComuniDati::righeEColonne()
{
    QCOMPARE(Comuni.RecordCount(), 10930);
    QStringList Nomi;
    for (const Campo& Uno : Comuni.Campi())
        Nomi << Uno.Name;
    QCOMPARE(Nomi, (QStringList{u"COMU_DESCR"_s, u"COMU_PROV"_s, u"COMU_COD"_s}));
}

void TestComuniDati::codici_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Provincia");
    QTest::addColumn<QString>("Codice");

    QTest::newRow("capitale") << u"Roma"_s << u"RM"_s << u"H501"_s;
    QTest::newRow("accento") << u"Agliè"_s << u"TO"_s << u"A074"_s;
    QTest::newRow("apostrofo") << u"L'Aquila"_s << u"AQ"_s << u"A345"_s;
    QTest::newRow("bilingue, parte italiana") << u"Bolzano"_s << u"BZ"_s << u"A952"_s;
    QTest::newRow("soppresso") << u"Abbadia Alpina"_s << u"TO"_s << u"A003"_s;
    QTest::newRow("omonimo soppresso") << u"Badia (PV)"_s << u"PV"_s << u"A538"_s;
    QTest::newRow("stato estero") << u"Stati Uniti"_s << u"EE"_s << u"Z404"_s;
}

void TestComuniDati::codici()
{
    QFETCH(QString, Nome);
    Comuni.Seek(u"="_s, Nome);
    QVERIFY(!Comuni.NoMatch());
    QTEST(Comuni.Value(u"COMU_PROV"_s).toString(), "Provincia");
    QTEST(Comuni.Value(u"COMU_COD"_s).toString(), "Codice");
}

// The lookup reads the table in the order of its index: the rows lie in that order.
void TestComuniDati::ordinati()
{
    const Recordset PerRiga =
        OpenDatabase(ProgrammaDiProva() + u"Comuni.mdb"_s, true).OpenRecordset(u"Comuni"_s);
    Recordset Prima = PerRiga;
    Comuni.MoveFirst();
    for (; !Comuni.Eof(); Comuni.MoveNext(), Prima.MoveNext())
        if (Comuni.Value(u"COMU_DESCR"_s) != Prima.Value(u"COMU_DESCR"_s))
            QFAIL(qPrintable(Comuni.Value(u"COMU_DESCR"_s).toString()));
}

void TestComuniDati::giornoDellElenco()
{
    QCOMPARE(LeggiStatoComuni(SorgenteDiProva(u"dati/"_s)), QDate(2024, 5, 31));
    const QString Cartella = NuovaCartella();
    ScriviFile(Cartella + u"comuni_stato.csv"_s, "al\n2024-05-31\n2025-01-01\n");
    const ErroreVisto Guasto = ErroreDi([&] { (void)LeggiStatoComuni(Cartella); });
    QCOMPARE(Guasto.Numero, 5);
    QVERIFY2(Guasto.Descrizione.endsWith(u"occorre una riga sola"), qPrintable(Guasto.Descrizione));
    ScriviComuni({{u"Roma"_s, u"RM"_s, u"H501"_s}}, QDate(2024, 5, 31), Cartella + u"Comuni.mdb"_s);
    QCOMPARE(OpenDatabase(Cartella + u"Comuni.mdb"_s, true).Annotazioni().value(u"Al"_s), u"31/05/2024"_s);
}

void TestComuniDati::rifiuta_data()
{
    QTest::addColumn<QByteArray>("Righe");
    QTest::addColumn<QString>("Frase");

    QTest::newRow("nome doppio, altre maiuscole")
        << QByteArray("Roma;RM;H501\nROMA;RM;H502\n")
        << u"riga 3, colonna nome: il nome è già in una riga precedente"_s;
    QTest::newRow("provincia lunga") << QByteArray("Roma;Roma;H501\n")
                                     << u"riga 2, colonna provincia: la provincia ha due lettere maiuscole"_s;
    QTest::newRow("codice minuscolo")
        << QByteArray("Roma;RM;h501\n")
        << u"riga 2, colonna codice: il codice ha una lettera maiuscola e tre cifre"_s;
    QTest::newRow("nome mancante") << QByteArray(";RM;H501\n") << u"riga 2, colonna nome: il testo manca"_s;
}

void TestComuniDati::rifiuta()
{
    QFETCH(QByteArray, Righe);
    QFETCH(QString, Frase);
    const QString Cartella = NuovaCartella();
    ScriviFile(Cartella + u"comuni.csv"_s, "nome;provincia;codice\n" + Righe);
    const ErroreVisto Guasto = ErroreDi([&] { (void)LeggiComuni(Cartella); });
    QCOMPARE(Guasto.Numero, 5);
    QCOMPARE(Guasto.Descrizione, u"comuni.csv, "_s + Frase);
}

#include "TestComuniDati.moc"
