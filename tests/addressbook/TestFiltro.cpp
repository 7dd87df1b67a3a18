// The filter of the address book: words in any cell, whatever case and accents.
#include "addressbook/filtro.h"
#include "supporto/prova.h"

using namespace Qt::StringLiterals;

class TestFiltro : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void passa_data();
    void passa();
    void vuotoLasciaTutto();
    void cercaFraTutte();
    void dopoAzzera();
};
PROVA(TestFiltro);

void TestFiltro::passa_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<bool>("Atteso");
    const auto Riga = [](const char* Nome, const char16_t* Testo, bool Atteso) {
        QTest::newRow(Nome) << QString::fromUtf16(Testo) << Atteso;
    };
    Riga("a word as it stands", u"Nicolò", true);
    Riga("the inside of a word", u"icol", true);
    Riga("without case", u"NICOLÒ", true);
    Riga("without accents", u"nicolo", true);
    Riga("an accent that the row has not", u"Róssi", true);
    Riga("a decomposed accent", u"Nicolo\u0300", true);
    Riga("words of two cells, the other way round", u"forlì rossi", true);
    Riga("one of the words missing", u"forlì bianchi", false);
    Riga("blanks around and between", u"  rossi \t forli ", true);
    Riga("a word does not run into the next cell", u"nicoloforli", false);
    Riga("nor does the last cell's first line into its second", u"rigaseconda", false);
    Riga("a word of the second line", u"seconda", true);
    Riga("the other apostrophe", u"d\u2019angelo", true);
    Riga("signs of a query are plain characters", u"*", false);
    Riga("a quote is one too", u"o'r", false);
    Riga("a percent that is there", u"50%", true);
    Riga("the same word twice", u"rossi rossi", true);
}

void TestFiltro::passa()
{
    QFETCH(QString, Testo);
    QFETCH(bool, Atteso);
    const QByteArray Riga =
        RigaPiana({u"Rossi Nicolò"_s, u"Forlì"_s, u"D'Angelo 50%"_s, u"prima riga\nseconda"_s});
    QCOMPARE(Filtro(Testo).Passa(Riga), Atteso);
    // Among others, at the start, in the middle and at the end.
    RighePiane Tutte;
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(Tutte.Aggiungi(Riga), 2 * i);
        Tutte.Aggiungi(RigaPiana({u"Neri"_s, {}}));
    }
    QCOMPARE(Tutte.Righe(), 6);
    QCOMPARE(Tutte.Riga(4), QByteArrayView(Riga));
    QCOMPARE(Tutte.Riga(5), QByteArrayView("neri\x1f"));
    QCOMPARE(Tutte.Cerca(Filtro(Testo)), Atteso ? (std::vector{0, 2, 4}) : std::vector<int>());
}

void TestFiltro::vuotoLasciaTutto()
{
    for (const QString& Testo : {QString(), u" \t "_s}) {
        const Filtro Per(Testo);
        QVERIFY(Per.Vuoto());
        QVERIFY(Per.Passa(RigaPiana({})));
        RighePiane Righe;
        QCOMPARE(Righe.Cerca(Per), std::vector<int>());
        Righe.Aggiungi(RigaPiana({u"Rossi"_s}));
        Righe.Aggiungi(RigaPiana({}));
        QCOMPARE(Righe.Cerca(Per), (std::vector{0, 1}));
    }
    QVERIFY(!Filtro(u"a"_s).Vuoto());
    QVERIFY(Filtro(u"a  b"_s) == Filtro(u"A b"_s));
}

void TestFiltro::cercaFraTutte()
{
    RighePiane Righe;
    constexpr int Quante = 1000;
    for (int i = 0; i < Quante; ++i)
        Righe.Aggiungi(RigaPiana({u"Cliente %1"_s.arg(i), i % 2 == 0 ? u"Pari"_s : u"Dispari"_s}));
    QCOMPARE(Righe.Cerca(Filtro(u"cliente 99 dispari"_s)),
             (std::vector{99, 199, 299, 399, 499, 599, 699, 799, 899, 991, 993, 995, 997, 999}));
    QCOMPARE(Righe.Cerca(Filtro(u"pari"_s)).size(), size_t(Quante));
    QCOMPARE(Righe.Cerca(Filtro(u"dispari"_s)).size(), size_t(Quante / 2));
}

void TestFiltro::dopoAzzera()
{
    RighePiane Righe;
    Righe.Aggiungi(RigaPiana({u"Rossi"_s}));
    Righe.Azzera();
    QCOMPARE(Righe.Righe(), 0);
    QVERIFY(Righe.Cerca(Filtro(u"rossi"_s)).empty());
    QCOMPARE(Righe.Aggiungi(RigaPiana({u"Verdi"_s})), 0);
    QCOMPARE(Righe.Cerca(Filtro(u"verdi"_s)), std::vector{0});
}

#include "TestFiltro.moc"
