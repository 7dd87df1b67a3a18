// Codes and days of payment in the words of whoever has written them.
#include "feenote/modCodiciScritti.h"
#include "platform/base/regionale.h"
#include "supporto/prova.h"

using namespace Qt::StringLiterals;

class TestCodiciScritti : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void codici_data();
    void codici();
    void giornoPagato_data();
    void giornoPagato();
};
PROVA(TestCodiciScritti);

/// A code is told as "c" or "p", "+" where it agrees, "?" where only its form tells it.
void TestCodiciScritti::codici_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Attesi");
    const QString Rossi = u"c+RSSMRA80A01H501U"_s;
    const QString Alfa = u"p+01234567897"_s;
    QTest::newRow("niente") << u"Rossi Mario\nvia Roma 1\n55100 Lucca"_s << QString();
    QTest::newRow("C.F.") << u"Rossi C.F. RSSMRA80A01H501U"_s << Rossi;
    QTest::newRow("minuscolo, coi due punti") << u"cod. fisc.: rssmra80a01h501u"_s << Rossi;
    QTest::newRow("codice fiscale, a gruppi") << u"Codice fiscale RSS MRA 80A01 H501U"_s << Rossi;
    QTest::newRow("solo la forma") << u"Rossi RSSMRA80A01H501U Lucca"_s << u"c+?RSSMRA80A01H501U"_s;
    QTest::newRow("solo la forma, sbagliato") << u"Rossi RSSMRA80A01H501V"_s << u"c?RSSMRA80A01H501V"_s;
    QTest::newRow("sbagliato") << u"C.F. RSSMRA80A01H501V"_s << u"cRSSMRA80A01H501V"_s;
    QTest::newRow("corto") << u"CF RSSMRA80A01H5"_s << u"cRSSMRA80A01H5"_s;
    QTest::newRow("P.IVA") << u"Alfa Srl P.IVA 01234567897"_s << Alfa;
    QTest::newRow("Partita IVA con IT, a gruppi") << u"Partita IVA IT 01234 567 897"_s << Alfa;
    QTest::newRow("P. I.V.A.") << u"P. I.V.A. n. 01234567897"_s << Alfa;
    QTest::newRow("tutti e due i nomi davanti") << u"C.F. e P.IVA 01234567897"_s << Alfa;
    QTest::newRow("i nomi per esteso") << u"Codice fiscale e partita IVA: 01234567897"_s << Alfa;
    QTest::newRow("l'uno dietro l'altro")
        << u"P.IVA 01234567897 C.F. RSSMRA80A01H501U"_s << Alfa + u' ' + Rossi;
    QTest::newRow("cifra sbagliata") << u"P.IVA 01234567898"_s << u"p01234567898"_s;
    QTest::newRow("tre cifre") << u"P.IVA 123"_s << u"p123"_s;
    QTest::newRow("una cifra in meno e il CAP") << u"P.IVA 0123456789 - 20121 Milano"_s << u"p0123456789"_s;
    QTest::newRow("una cifra in meno e altro") << u"P.IVA 0123456789 20121 Milano"_s << u"p0123456789"_s;
    QTest::newRow("una cifra in più") << u"P.IVA 012345678970"_s << Alfa;
    QTest::newRow("il numero e il CAP") << u"P.IVA 01234567897 - 20121 Milano"_s << Alfa;
    QTest::newRow("nome senza numero") << u"esente da partita IVA, via Roma 1"_s << QString();
    QTest::newRow("undici cifre che tornano") << u"Alfa Srl 01234567897"_s << u"p+?01234567897"_s;
    QTest::newRow("undici cifre che non tornano") << u"tel. 05512345676"_s << QString();
    QTest::newRow("dieci cifre") << u"tel. 3331234567"_s << QString();
    QTest::newRow("altro paese") << u"VAT DE123456789"_s << u"estero"_s;
    QTest::newRow("altro paese con P.IVA") << u"P.IVA DE123456789"_s << u"estero"_s;
}

void TestCodiciScritti::codici()
{
    QFETCH(const QString, Testo);
    QFETCH(const QString, Attesi);
    const CodiciScritti Letti = LeggiCodici(Testo);
    QStringList Detti;
    for (const CodiceScritto& Uno : Letti.Codici)
        Detti += (Uno.Partita ? u"p"_s : u"c"_s) + (Uno.Torna ? u"+"_s : QString()) +
                 (Uno.Nominato ? QString() : u"?"_s) + Uno.Codice;
    if (Letti.Esteri)
        Detti += u"estero"_s;
    QCOMPARE(Detti.join(u' '), Attesi);
}

void TestCodiciScritti::giornoPagato_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Giorno");
    QTest::newRow("niente") << u"acconto"_s << QString();
    QTest::newRow("una data") << u"acconto del 5/3/2026"_s << u"05/03/2026"_s;
    QTest::newRow("l'ultima") << u"5/3/2026, 7.3.26 e 6-3-2026"_s << u"07/03/2026"_s;
    QTest::newRow("il bonifico, non la fattura")
        << u"acconto fatt. n. 3 del 10/3/2026, bonifico del 2/1/2026"_s << u"02/01/2026"_s;
    QTest::newRow("il preventivo non conta") << u"come da preventivo del 10/3/2026"_s << QString();
    QTest::newRow("ricevuto") << u"ricevuti il 2/1/2026, nota del 3/3/2026"_s << u"02/01/2026"_s;
    QTest::newRow("separatori diversi") << u"5/3-2026"_s << QString();
    QTest::newRow("nessuna data") << u"99/99/2026 e 12/2026"_s << QString();
    QTest::newRow("oltre oggi") << u"entro il 23/11/2026"_s << QString();
    QTest::newRow("oggi") << u"il 22/11/2026"_s << u"22/11/2026"_s;
}

void TestCodiciScritti::giornoPagato()
{
    QFETCH(const QString, Testo);
    QFETCH(const QString, Giorno);
    const auto Letto = GiornoPagato(Testo, QDate(2026, 11, 22));
    QCOMPARE(Letto ? Format(*Letto, u"dd/mm/yyyy") : QString(), Giorno);
}

#include "TestCodiciScritti.moc"
