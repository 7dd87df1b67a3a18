// From a fiscal code back to its person: birth, sex, town, the last letter, letters in the place of digits.
#include "supporto/prova.h"

#include "calculators/modCodFis.h"
#include "calculators/modComuni.h"
#include "calculators/modLeggiCodFis.h"
#include "core/modControlli.h"
#include "core/sessione.h"

#include <QRandomGenerator>
#include <QSet>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// All codes that stand for the same person: the base form, then those with letters in the place of one digit
/// or more, 128 in all.
QStringList VariantiOmocode(const QString& Codice)
{
    constexpr QStringView Sostituti = u"LMNPQRSTUV";
    constexpr std::array<qsizetype, 7> PostiCifre{6, 7, 9, 10, 12, 13, 14};
    const QString Base = Codice.chopped(1);
    QStringList Tutte;
    for (unsigned Quali = 0; Quali < 1U << PostiCifre.size(); ++Quali) {
        QString Variante = Base;
        for (size_t i = 0; i < PostiCifre.size(); ++i)
            if ((Quali >> i & 1U) != 0)
                Variante[PostiCifre[i]] = Sostituti[Base[PostiCifre[i]].digitValue()];
        Tutte << Variante + ControlloCodFis(Variante);
    }
    return Tutte;
}

const QDate Giorno(2026, 11, 21);

LetturaCodFis Letta(const QString& Codice)
{
    return LeggiCodFis(Codice, Giorno);
}

}  // namespace

class TestLeggiCodFis : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void persona();
    void letture_data();
    void letture();
    void difetti_data();
    void difetti();
    void ultimaLettera();
    void omocodia();
    void variantiTutte();
    void inCorso_data();
    void inCorso();
    void comuni_data();
    void comuni();
    void personeACaso();
};
PROVA(TestLeggiCodFis);

void TestLeggiCodFis::initTestCase()
{
    sessione::PercorsoProg = ProgrammaDiProva();
}

void TestLeggiCodFis::persona()
{
    const LetturaCodFis Rossi = Letta(u" rss mra 85m45 f205k "_s);
    QVERIFY(Rossi.Letto());
    QCOMPARE(Rossi.Codice, u"RSSMRA85M45F205K"_s);
    QCOMPARE(Rossi.Base, Rossi.Codice);
    QCOMPARE(Rossi.Cognome + Rossi.Nome, u"RSSMRA"_s);
    QVERIFY(Rossi.Donna && Rossi.Torna && !Rossi.Omocodo);
    QCOMPARE(Rossi.Nascite, QList<QDate>{QDate(1985, 8, 5)});
    QCOMPARE(Rossi.CodiceComune, u"F205"_s);
    QCOMPARE(FraseNascita(Rossi), u"05/08/1985"_s);
    QCOMPARE(FraseSesso(Rossi), u"femmina"_s);
    QVERIFY(NoteLettura(Rossi).isEmpty());
}

void TestLeggiCodFis::letture_data()
{
    QTest::addColumn<QDate>("Nascita");
    QTest::addColumn<QString>("Frase");
    QTest::newRow("un secolo solo") << QDate(1980, 1, 1) << u"01/01/1980"_s;
    QTest::newRow("oggi") << Giorno << u"21/11/2026 oppure 21/11/1926"_s;
    QTest::newRow("domani fu un secolo fa") << QDate(1926, 11, 22) << u"22/11/1926"_s;
    QTest::newRow("due secoli") << QDate(2012, 8, 5) << u"05/08/2012 oppure 05/08/1912"_s;
    QTest::newRow("centoventi anni") << QDate(1906, 11, 21) << u"21/11/2006 oppure 21/11/1906"_s;
    QTest::newRow("centoventi e un giorno") << QDate(2006, 11, 20) << u"20/11/2006"_s;
    QTest::newRow("29 febbraio del solo 2000") << QDate(2000, 2, 29) << u"29/02/2000"_s;
    QTest::newRow("29 febbraio di due secoli") << QDate(2008, 2, 29) << u"29/02/2008 oppure 29/02/1908"_s;
}

void TestLeggiCodFis::letture()
{
    QFETCH(QDate, Nascita);
    QFETCH(QString, Frase);
    const LetturaCodFis Lettura = Letta(CalcoloCodFis(u"Rossi"_s, u"Mario"_s, Nascita, u"M"_s, u"H501"_s));
    QVERIFY2(Lettura.Letto(), qPrintable(Lettura.Difetto));
    QCOMPARE(FraseNascita(Lettura), Frase);
    QCOMPARE(NoteLettura(Lettura).join(u'|').contains(u"il secolo non si può sapere"),
             Frase.contains(u"oppure"));
    QCOMPARE(FraseSesso(Lettura), u"maschio"_s);
}

void TestLeggiCodFis::difetti_data()
{
    QTest::addColumn<QString>("Codice");
    QTest::addColumn<QString>("Frase");
    QTest::newRow("corto") << u"RSSMRA80A01H501"_s
                           << u"Un codice fiscale ha 16 caratteri: questo ne ha 15."_s;
    QTest::newRow("lungo") << u"RSSMRA80A01H501UU"_s
                           << u"Un codice fiscale ha 16 caratteri: questo ne ha 17."_s;
    QTest::newRow("cifra nel cognome")
        << u"R5SMRA80A01H501U"_s << u"Al 2° posto \"5\" sta dove occorre una lettera."_s;
    QTest::newRow("lettera nell'anno")
        << u"RSSMRAA0A01H501U"_s << u"Al 7° posto \"A\" sta dove occorre una cifra."_s;
    QTest::newRow("mese") << u"RSSMRA80F01H501U"_s << u"Al 9° posto \"F\" non è la lettera di un mese."_s;
    QTest::newRow("accento") << u"RSSMRÀ80A01H501U"_s << u"Al 6° posto \"À\" sta dove occorre una lettera."_s;
    QTest::newRow("i senza punto") << u"RSSMRı80A01H501U"_s
                                   << u"Al 6° posto \"ı\" sta dove occorre una lettera."_s;
    QTest::newRow("giorno 00")
        << u"RSSMRA80A00H501U"_s
        << u"Il giorno di nascita 00 non è possibile: va da 01 a 31, per le donne da 41 a 71."_s;
    QTest::newRow("giorno 32")
        << u"RSSMRA80A32H501U"_s
        << u"Il giorno di nascita 32 non è possibile: va da 01 a 31, per le donne da 41 a 71."_s;
    QTest::newRow("giorno 40")
        << u"RSSMRA80A40H501U"_s
        << u"Il giorno di nascita 40 non è possibile: va da 01 a 31, per le donne da 41 a 71."_s;
    QTest::newRow("giorno 72")
        << u"RSSMRA80A72H501U"_s
        << u"Il giorno di nascita 72 non è possibile: va da 01 a 31, per le donne da 41 a 71."_s;
    QTest::newRow("31 aprile") << u"RSSMRA80D31H501U"_s
                               << u"Il giorno di nascita non è del calendario, o non è ancora venuto."_s;
    QTest::newRow("ente")
        << u"12345678903"_s
        << u"Undici cifre sono il codice di una società o di un ente: non indicano una persona."_s;
}

void TestLeggiCodFis::difetti()
{
    QFETCH(QString, Codice);
    QFETCH(QString, Frase);
    const LetturaCodFis Lettura = Letta(Codice);
    QCOMPARE(Lettura.Difetto, Frase);
    QVERIFY(!Lettura.Letto());
    QVERIFY(NoteLettura(Lettura).isEmpty());
}

void TestLeggiCodFis::ultimaLettera()
{
    const LetturaCodFis Lettura = Letta(u"RSSMRA80A01H501X"_s);
    QVERIFY(Lettura.Letto() && !Lettura.Torna);
    QCOMPARE(Lettura.Controllo, QChar(u'U'));
    QCOMPARE(NoteLettura(Lettura),
             QStringList{u"L'ultima lettera è errata: dovrebbe essere U. Il codice è scritto male."_s});
    QVERIFY(Letta(u"RSSMRA80A01H501U"_s).Torna);
    QVERIFY(!Letta({}).Letto() && Letta({}).Difetto.isEmpty());
}

void TestLeggiCodFis::omocodia()
{
    // The rightmost digit first: 1 is M; the last letter is reckoned anew.
    const QString Variante = u"RSSMRA80A01H50M"_s + ControlloCodFis(u"RSSMRA80A01H50M"_s);
    const LetturaCodFis Lettura = Letta(Variante);
    QVERIFY(Lettura.Letto() && Lettura.Torna && Lettura.Omocodo);
    QCOMPARE(Lettura.Base, u"RSSMRA80A01H501U"_s);
    QCOMPARE(Lettura.CodiceComune, u"H501"_s);
    QCOMPARE(
        NoteLettura(Lettura),
        QStringList{u"Codice omocodo: ha lettere al posto di cifre. La forma di base è RSSMRA80A01H501U."_s});
    // The letter of each digit, as the ministry has them.
    QVERIFY(Letta(u"RSSMRAUVALMHRSTX"_s).Base.startsWith(u"RSSMRA89A01H567"));
    QVERIFY(Letta(u"RSSMRAUVALMHNPQX"_s).Base.startsWith(u"RSSMRA89A01H234"));
    // With the letters of digits in its day a woman is one still.
    const LetturaCodFis Donna = Letta(u"RSSMRA85MQRF205"_s + ControlloCodFis(u"RSSMRA85MQRF205"_s));
    QVERIFY(Donna.Letto() && Donna.Donna);
    QCOMPARE(Donna.Nascite, QList<QDate>{QDate(1985, 8, 5)});
}

void TestLeggiCodFis::variantiTutte()
{
    const QStringList Tutte = VariantiOmocode(u"RSSMRA80A01H501U"_s);
    QCOMPARE(Tutte.size(), 128);
    QCOMPARE(Tutte.first(), u"RSSMRA80A01H501U"_s);
    QCOMPARE(QSet<QString>(Tutte.begin(), Tutte.end()).size(), 128);
    for (const QString& Variante : Tutte) {
        const LetturaCodFis Lettura = Letta(Variante);
        QVERIFY2(Lettura.Letto() && Lettura.Torna, qPrintable(Variante));
        QCOMPARE(Lettura.Base, u"RSSMRA80A01H501U"_s);
        QCOMPARE(Lettura.Omocodo, Variante != Tutte.first());
    }
}

void TestLeggiCodFis::inCorso_data()
{
    QTest::addColumn<QString>("Codice");
    QTest::addColumn<bool>("InCorso");
    QTest::newRow("vuoto") << QString() << false;
    QTest::newRow("principio") << u"rss mr"_s << true;
    QTest::newRow("fuori posto") << u"R5"_s << false;
    QTest::newRow("quindici") << u"RSSMRA80A01H501"_s << true;
    QTest::newRow("intero") << u"RSSMRA80A01H501U"_s << false;
}

void TestLeggiCodFis::inCorso()
{
    QFETCH(QString, Codice);
    QFETCH(bool, InCorso);
    QCOMPARE(CodFisInCorso(Codice), InCorso);
}

void TestLeggiCodFis::comuni_data()
{
    QTest::addColumn<QString>("Codice");
    QTest::addColumn<QString>("Frase");
    QTest::newRow("capoluogo") << u"H501"_s << u"Roma (RM)"_s;
    QTest::newRow("stato estero") << u"Z110"_s << u"Francia (stato estero)"_s;
    QTest::newRow("più nomi") << u"A001"_s << u"Abano / Abano Terme (PD)"_s;
    QTest::newRow("ignoto") << u"A000"_s << QString();
    QTest::newRow("non è un criterio") << u"' OR 1=1 --"_s << QString();
}

void TestLeggiCodFis::comuni()
{
    QFETCH(QString, Codice);
    QFETCH(QString, Frase);
    const ArchivioComuni Archivio(PercorsoComuni());
    QCOMPARE(FraseComuni(Archivio.DelCodice(Codice)), Frase);
    QCOMPARE(Archivio.Al(), u"31/05/2024"_s);
    // Names that have changed their province say it each.
    QCOMPARE(FraseComuni({{u"Cles"_s, u"TN"_s, u"C794"_s}, {u"Cles nuova"_s, u"BZ"_s, u"C794"_s}}),
             u"Cles (TN) / Cles nuova (BZ)"_s);
}

// Persons drawn at random: what their code was made of comes back, whatever digits are letters.
void TestLeggiCodFis::personeACaso()
{
    constexpr int Persone = 10'000;
    const ArchivioComuni Archivio(PercorsoComuni());
    Database Db = OpenDatabase(PercorsoComuni(), true);
    QList<Comune> Tutti;
    const QStringList Righe =
        Db.OpenRecordset(u"SELECT group_concat(COMU_DESCR || ';' || COMU_PROV || ';' || "
                         "COMU_COD, char(10)) AS Righe FROM Comuni"_s)
            .Value(u"Righe"_s)
            .toString()
            .split(u'\n');
    for (const QString& Riga : Righe) {
        const QStringList Celle = Riga.split(u';');
        Tutti << Comune{Celle[0], Celle[1], Celle[2]};
    }
    QVERIFY(Tutti.size() > 10'000);
    QRandomGenerator Caso(20261121);
    const auto Nome = [&Caso] {
        QString Lettere;
        const int Quante = Caso.bounded(1, 12);
        for (int i = 0; i < Quante; ++i)
            Lettere += QChar(u'a' + Caso.bounded(26));
        return Lettere;
    };
    const QDate Primo = Giorno.addYears(-120);
    for (int i = 0; i < Persone; ++i) {
        const QDate Nascita = Primo.addDays(Caso.bounded(int(Primo.daysTo(Giorno)) + 1));
        const QString Sesso = Caso.bounded(2) == 0 ? u"M"_s : u"F"_s;
        const Comune Dove = Tutti[Caso.bounded(int(Tutti.size()))];
        const QString Cognome = Nome();
        const QString Codice = CalcoloCodFis(Cognome, Nome(), Nascita, Sesso, Dove.Codice);
        // All forms of every tenth person: 128 of each.
        const QStringList Forme = i % 10 == 0 ? VariantiOmocode(Codice) : QStringList{Codice};
        QCOMPARE(Forme.size(), i % 10 == 0 ? 128 : 1);
        for (const QString& Variante : Forme) {
            const LetturaCodFis Lettura = Letta(Variante);
            QVERIFY2(Lettura.Letto() && Lettura.Torna, qPrintable(Variante + u' ' + Lettura.Difetto));
            QVERIFY2(Lettura.Nascite.contains(Nascita), qPrintable(Variante));
            // Of two centuries the person lives in one: the other is a hundred years off.
            for (const QDate& Altra : Lettura.Nascite)
                QVERIFY(Altra == Nascita || Altra.addYears(100) == Nascita || Nascita.addYears(100) == Altra);
            QCOMPARE(Lettura.Donna, Sesso == u"F");
            QCOMPARE(Lettura.CodiceComune, Dove.Codice);
            QCOMPARE(Lettura.Base, Codice);
        }
        if (i % 100 == 0)
            QVERIFY2(Archivio.DelCodice(Dove.Codice).contains(Dove), qPrintable(Dove.Nome));
    }
}

#include "TestLeggiCodFis.moc"
