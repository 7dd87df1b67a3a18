// The fiscal code: worked examples, and the decree's values of each character once more.
#include "casi.h"
#include "supporto/alcaso.h"

#include "calculators/modCodFis.h"
#include "platform/base/regionale.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView Alfabeto = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ";
/// What a letter from A on, or the digit with the same number, is worth in an odd place.
constexpr std::array Dispari{1,  0,  5, 7, 9, 13, 15, 17, 19, 21, 2,  4,  18,
                             20, 11, 3, 6, 8, 12, 14, 16, 10, 22, 25, 24, 23};

int Valore(QChar C, bool Dispar)
{
    const int Posto = C.isDigit() ? C.digitValue() : int(Alfabeto.indexOf(C));
    return Dispar ? Dispari[size_t(Posto)] : Posto;
}

/// Three letters out of those of a text, by sorting them into places.
QString TreLettere(const QString& Testo, bool Nome)
{
    QList<QChar> Consonanti;
    QList<QChar> Vocali;
    for (const QChar C : Testo.toUpper())
        if (Alfabeto.contains(C))
            (QStringView(u"AEIOU").contains(C) ? Vocali : Consonanti).append(C);
    if (Nome && Consonanti.size() >= 4)
        Consonanti.removeAt(1);
    const QList<QChar> Tutte = Consonanti + Vocali + QList<QChar>(3, u'X');
    return QString(Tutte[0]) + Tutte[1] + Tutte[2];
}

QString CodiceDaCapo(const QString& Cognome, const QString& Nome, const QDate& Nascita, bool Donna,
                     const QString& Comune)
{
    constexpr std::array Mesi{u'A', u'B', u'C', u'D', u'E', u'H', u'L', u'M', u'P', u'R', u'S', u'T'};
    QString Codice = TreLettere(Cognome, false) + TreLettere(Nome, true) +
                     QString::number(1000 + Nascita.year() % 100).right(2) +
                     QChar(Mesi[size_t(Nascita.month() - 1)]);
    Codice += QString::number(100 + Nascita.day() + (Donna ? 40 : 0)).right(2) + Comune;
    int Somma = 0;
    bool Dispar = true;
    for (const QChar C : std::as_const(Codice)) {
        Somma += Valore(C, Dispar);
        Dispar = !Dispar;
    }
    return Codice + Alfabeto[Somma % 26];
}

QString ParolaACaso(QRandomGenerator& Sorte)
{
    constexpr QStringView Segni = u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ '-àèìòùéçñ";
    QString Parola;
    for (int i = Sorte.bounded(12); i > 0; --i)
        Parola += Segni[Sorte.bounded(int(Segni.size()))];
    return Parola;
}

}  // namespace

class TestCodFis : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void esempi_data();
    void esempi();
    void personeACaso();
    void ogniCarattere();
    void senzaComune();
    void comuneNonTrovato();
    void codiceDelComuneComeE();
    void lettereCheNonSonoDellAlfabeto();
};
PROVA(TestCodFis);

void TestCodFis::esempi_data()
{
    QTest::addColumn<QStringList>("Riga");
    const auto Righe = Casi(u"codfis.csv"_s);
    QVERIFY(Righe.size() >= 12);
    for (size_t i = 0; i < Righe.size(); ++i)
        QTest::newRow(NomeCaso(i, Righe[i]).constData()) << Righe[i];
}

void TestCodFis::esempi()
{
    QFETCH(QStringList, Riga);
    QCOMPARE(Riga.size(), 7);
    QCOMPARE(CalcoloCodFis(Riga[0], Riga[1], CDate(Riga[2]), Riga[3], Riga[4]), Riga[5]);
}

void TestCodFis::personeACaso()
{
    const int Casi = CasiAlCaso(10'000);
    QRandomGenerator Sorte(1974);
    for (int i = 0; i < Casi; ++i) {
        const QString Cognome = ParolaACaso(Sorte);
        const QString Nome = ParolaACaso(Sorte);
        const QDate Nascita = QDate(1890, 1, 1).addDays(Sorte.bounded(50000));
        const bool Donna = Sorte.bounded(2) == 1;
        const QString Comune =
            Alfabeto[Sorte.bounded(26)] + QString::number(1000 + Sorte.bounded(1000)).right(3);
        const QString Avuto = CalcoloCodFis(Cognome, Nome, Nascita, Donna ? u"F"_s : u"M"_s, Comune);
        if (Avuto != CodiceDaCapo(Cognome, Nome, Nascita, Donna, Comune))
            QFAIL(qPrintable(Cognome + u'|' + Nome + u'|' + Nascita.toString(Qt::ISODate) + u'|' + Avuto));
    }
}

// Every letter in an odd place (the first of the municipality is the 12th, the surname begins at the 1st).
void TestCodFis::ogniCarattere()
{
    const QDate Nascita(2001, 1, 1);
    for (const QChar C : QStringView(u"BCDFGHJKLMNPQRSTVWXYZ")) {
        const QString Cognome(3, C);
        QCOMPARE(CalcoloCodFis(Cognome, u"Bob"_s, Nascita, u"M"_s, u"A001"_s),
                 CodiceDaCapo(Cognome, u"Bob"_s, Nascita, false, u"A001"_s));
    }
}

void TestCodFis::senzaComune()
{
    // R8 S12 S12 M12 R8 A0 8:19 0:0 A1 0:0 1:0, odd places first: the sum is 72.
    const QString Codice = CalcoloCodFis(u"Rossi"_s, u"Mario"_s, QDate(1980, 1, 1), u"M"_s, QString());
    QCOMPARE(Codice.size(), 12);
    QCOMPARE(Codice, u"RSSMRA80A01"_s + Codice.last(1));
    int Somma = 0;
    for (int i = 0; i < 11; ++i)
        Somma += Valore(Codice[i], i % 2 == 0);
    QCOMPARE(Codice.last(1), QString(Alfabeto[Somma % 26]));
}

void TestCodFis::comuneNonTrovato()
{
    const QString Senza = CalcoloCodFis(u"Rossi"_s, u"Mario"_s, QDate(1980, 1, 1), u"M"_s, QString());
    const QString Codice = CalcoloCodFis(u"Rossi"_s, u"Mario"_s, QDate(1980, 1, 1), u"M"_s, u"?"_s);
    QCOMPARE(Codice.left(12), u"RSSMRA80A01?"_s);
    // 16383 is 3 more than a multiple of 26.
    const qsizetype Prima = Alfabeto.indexOf(Senza.back());
    QCOMPARE(Codice.last(1), QString(Alfabeto[(Prima + 3) % 26]));
}

void TestCodFis::codiceDelComuneComeE()
{
    const QString Codice = CalcoloCodFis(u"Rossi"_s, u"Mario"_s, QDate(1980, 1, 1), u"M"_s, u"H501H501"_s);
    // What stands behind the 15th place takes no part in the check character.
    QCOMPARE(Codice, u"RSSMRA80A01H501H501U"_s);
}

// Unicode turns a long s, a dotless i and the Kelvin sign into plain letters; the decree does not know them.
void TestCodFis::lettereCheNonSonoDellAlfabeto()
{
    QCOMPARE(
        CalcoloCodFis(u"\u017F\u0131\u212Ab"_s, u"\u00DFd"_s, QDate(1980, 1, 1), u"M"_s, u"H501"_s).left(6),
        u"BXXDXX"_s);
}

#include "TestCodFis.moc"
