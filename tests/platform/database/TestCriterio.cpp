#include "supporto/prova.h"

#include "platform/database/criterio.h"
#include "supporto/guasti.h"

using namespace Qt::StringLiterals;

class TestCriterio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void letti_data();
    void letti();
    void rifiutati_data();
    void rifiutati();
    void colonnaSconosciuta();
    void smisurati();
    void identificatori();
};

PROVA(TestCriterio);

namespace {

/// A table with the columns ID, Nome, 1Med, "Cod Fis" and 2024.
QString Identifica(const QString& Nome)
{
    for (const QString& Colonna : {u"ID"_s, u"Nome"_s, u"1Med"_s, u"Cod Fis"_s, u"2024"_s})
        if (Colonna.compare(Nome, Qt::CaseInsensitive) == 0)
            return Identificatore(Colonna);
    return {};
}

}  // namespace

void TestCriterio::letti_data()
{
    QTest::addColumn<QString>("Criterio");
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<QVariantList>("Valori");

    QTest::newRow("chiave") << u"ID=12"_s << u"(\"ID\" = CAST(? AS NUMERIC))"_s << QVariantList{12.0};
    QTest::newRow("testo legato") << u"Nome = \"x' OR 1=1\""_s << u"(\"Nome\" = ? COLLATE SenzaMaiuscole)"_s
                                  << QVariantList{u"x' OR 1=1"_s};
    QTest::newRow("segni doppi") << u"nome<>'l''uno \"\" '"_s << u"(\"Nome\" <> ? COLLATE SenzaMaiuscole)"_s
                                 << QVariantList{u"l'uno \"\" "_s};
    QTest::newRow("vuoto") << u"Nome = \"\""_s << u"(\"Nome\" = ? COLLATE SenzaMaiuscole)"_s
                           << QVariantList{u""_s};
    QTest::newRow("nome con una cifra davanti")
        << u"1Med<=-0.5"_s << u"(\"1Med\" <= CAST(? AS NUMERIC))"_s << QVariantList{-0.5};
    QTest::newRow("nome fra quadre") << u"[cod fis] Is Null"_s << u"(\"Cod Fis\" IS NULL)"_s
                                     << QVariantList{};
    QTest::newRow("cifre fra quadre")
        << u"[2024] = 'x'"_s << u"(\"2024\" = ? COLLATE SenzaMaiuscole)"_s << QVariantList{u"x"_s};
    QTest::newRow("somiglia") << u"Nome Like '*a*'"_s << u"(corrisponde(?, \"Nome\"))"_s
                              << QVariantList{u"*a*"_s};
    QTest::newRow("non somiglia") << u"Nome Not Like \"*a*\""_s << u"(NOT corrisponde(?, \"Nome\"))"_s
                                  << QVariantList{u"*a*"_s};
    QTest::newRow("date") << u"Nome>#2/1/2012# and Nome<datevalue( '01-02-2012' )"_s
                          << u"(\"Nome\" > ?) AND (\"Nome\" < ?)"_s
                          << QVariantList{QDate(2012, 2, 1), QDate(2012, 2, 1)};
    QTest::newRow("senza spazi")
        << u"(ID=1)OR(NOT ID=2)"_s
        << u"((\"ID\" = CAST(? AS NUMERIC))) OR ((NOT (\"ID\" = CAST(? AS NUMERIC))))"_s
        << QVariantList{1.0, 2.0};
    QTest::newRow("parole e nomi")
        << u"Nome='or' aNd ID=1"_s
        << u"(\"Nome\" = ? COLLATE SenzaMaiuscole) AND (\"ID\" = CAST(? AS NUMERIC))"_s
        << QVariantList{u"or"_s, 1.0};
}

void TestCriterio::letti()
{
    QFETCH(QString, Criterio);
    const Condizione Letta = LeggiCriterio(Criterio, Identifica);
    QTEST(Letta.Sql, "Sql");
    QTEST(Letta.Valori, "Valori");
}

void TestCriterio::rifiutati_data()
{
    QTest::addColumn<QString>("Criterio");

    QTest::newRow("vuoto") << u""_s;
    QTest::newRow("solo spazi") << u"  "_s;
    QTest::newRow("senza valore") << u"ID="_s;
    QTest::newRow("senza segno") << u"ID 5"_s;
    QTest::newRow("rovesciato") << u"5=ID"_s;
    QTest::newRow("virgola") << u"ID=3,5"_s;
    QTest::newRow("numero con lettere") << u"ID=12abc"_s;
    QTest::newRow("numero senza fine") << u"ID=1e999"_s;
    QTest::newRow("parola nuda") << u"Nome=Rossi"_s;
    QTest::newRow("virgolette aperte") << u"Nome=\"Rossi"_s;
    QTest::newRow("virgolette dentro") << u"Nome=\"a\"b\""_s;
    QTest::newRow("data che non e") << u"Nome=DateValue('31/02/2012')"_s;
    QTest::newRow("data vuota") << u"Nome=DateValue('')"_s;
    QTest::newRow("data nuda") << u"Nome=DateValue(2012)"_s;
    QTest::newRow("data americana rovesciata") << u"Nome=#31/01/2012#"_s;
    QTest::newRow("cancelletto aperto") << u"Nome=#01/01/2012"_s;
    QTest::newRow("parentesi aperta") << u"(ID=1"_s;
    QTest::newRow("parentesi chiusa") << u"ID=1)"_s;
    QTest::newRow("quadra aperta") << u"[ID=1"_s;
    QTest::newRow("quadre vuote") << u"[]=1"_s;
    QTest::newRow("cifre nude") << u"2024='x'"_s;
    QTest::newRow("coda") << u"ID=1; DROP TABLE x"_s;
    QTest::newRow("commento") << u"ID=1 -- x"_s;
    QTest::newRow("AND appeso") << u"ID=1 AND"_s;
    QTest::newRow("funzione") << u"length(Nome)=1"_s;
    QTest::newRow("sottoquery") << u"ID=(SELECT 1)"_s;
    QTest::newRow("Is senza Null") << u"ID Is 5"_s;
    QTest::newRow("Not senza Like") << u"ID Not = 5"_s;
    QTest::newRow("Between") << u"ID Between 1 And 2"_s;
}

void TestCriterio::rifiutati()
{
    QFETCH(QString, Criterio);
    QCOMPARE(NumeroErrore([&] { (void)LeggiCriterio(Criterio, Identifica); }), 3077);
}

void TestCriterio::colonnaSconosciuta()
{
    QCOMPARE(NumeroErrore([] { (void)LeggiCriterio(u"Manca=1"_s, Identifica); }), 3070);
    QCOMPARE(NumeroErrore([] { (void)LeggiCriterio(u"ID=1 AND [Nome\"--]=1"_s, Identifica); }), 3070);
}

void TestCriterio::smisurati()
{
    const QString Parentesi = QString(40, u'(') + u"ID=1"_s + QString(40, u')');
    QCOMPARE(NumeroErrore([&] { (void)LeggiCriterio(Parentesi, Identifica); }), 0);
    const QString Troppe = QString(60, u'(') + u"ID=1"_s + QString(60, u')');
    QCOMPARE(NumeroErrore([&] { (void)LeggiCriterio(Troppe, Identifica); }), 3077);
    QCOMPARE(NumeroErrore([] { (void)LeggiCriterio(u"NOT "_s.repeated(60) + u"ID=1"_s, Identifica); }), 3077);
    QCOMPARE(NumeroErrore([] { (void)LeggiCriterio(u"ID=1 OR "_s.repeated(300) + u"ID=1"_s, Identifica); }),
             3077);
    QCOMPARE(NumeroErrore([] { (void)LeggiCriterio(u"ID=1 "_s + QString(9000, u' '), Identifica); }), 3077);
}

void TestCriterio::identificatori()
{
    QCOMPARE(Identificatore(u"1Med"_s), u"\"1Med\""_s);
    QCOMPARE(Identificatore(u"a\"b"_s), u"\"a\"\"b\""_s);
    QCOMPARE(Identificatore(u"Autorità"_s), u"\"Autorità\""_s);
}

#include "TestCriterio.moc"
