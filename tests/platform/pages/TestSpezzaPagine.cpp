// Where pages break, on strips of paper: heights in whole numbers, a page of 10.
#include "supporto/prova.h"

#include "platform/document/larghezzecolonne.h"
#include "platform/pages/spezzapagine.h"

using namespace Qt::StringLiterals;

namespace {

/// Strips told by a word each: a height, "b" blank, "u" joined to the one before, "n" begins a page, "t2"
/// repeats 2 above.
std::vector<Striscia> Strisce(const QString& Parole)
{
    std::vector<Striscia> Tutte;
    for (const QString& Parola : Parole.split(u' ', Qt::SkipEmptyParts)) {
        Striscia Una;
        Una.Altezza = Parola.section(u':', 0, 0).toDouble();
        const QString Segni = Parola.section(u':', 1);
        Una.Bianca = Segni.contains(u'b');
        Una.Unita = Segni.contains(u'u');
        Una.NuovaPagina = Segni.contains(u'n');
        if (const qsizetype Titoli = Segni.indexOf(u't'); Titoli >= 0)
            Una.TitoliSopra = Segni.mid(Titoli + 1, 1).toDouble();
        Tutte.push_back(Una);
    }
    return Tutte;
}

/// Page and top of each strip; "*" one that takes no room, "T" one below repeated headings.
QString Posti(const QString& Parole)
{
    QStringList Tutti;
    for (const PostoStriscia& Uno : SpezzaPagine(Strisce(Parole), 10.0))
        Tutti += u"%1@%2"_s.arg(Uno.Pagina).arg(Uno.Y) + (Uno.InFondo ? u"*"_s : u""_s) +
                 (Uno.ConTitoli ? u"T"_s : u""_s);
    return Tutti.join(u' ');
}

}  // namespace

class TestSpezzaPagine : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void riempieESpezza_data();
    void riempieESpezza();
    void sommeNonEsatteStannoComunque();
    void larghezze_data();
    void larghezze();
};
PROVA(TestSpezzaPagine);

void TestSpezzaPagine::riempieESpezza_data()
{
    QTest::addColumn<QString>("Parole");
    QTest::addColumn<QString>("Attesi");
    QTest::newRow("nothing") << u""_s << u""_s;
    QTest::newRow("a full page is one page") << u"4 6"_s << u"1@0 1@4"_s;
    QTest::newRow("one more is the next page") << u"4 6 1"_s << u"1@0 1@4 2@0"_s;
    QTest::newRow("a blank one at the end takes no room") << u"4 6 1:b"_s << u"1@0 1@4 1@10*"_s;
    QTest::newRow("nor do several") << u"4 6 1:b 1:b 3"_s << u"1@0 1@4 1@10* 1@10* 2@0"_s;
    QTest::newRow("a blank one that fits takes its room") << u"4 1:b 3"_s << u"1@0 1@4 1@5"_s;
    QTest::newRow("a joined one takes the one before along") << u"4 4 4:u"_s << u"1@0 2@0 2@4"_s;
    QTest::newRow("a chain goes whole") << u"4 2 2:u 2:u 2:u"_s << u"1@0 2@0 2@2 2@4 2@6"_s;
    QTest::newRow("a chain longer than a page breaks where the page ends")
        << u"4 4:u 4:u 4:u"_s << u"1@0 1@4 2@0 2@4"_s;
    QTest::newRow("blank ones before a chain stay behind") << u"6 1:b 3 3:u"_s << u"1@0 1@6 2@0 2@3"_s;
    QTest::newRow("blank ones inside a chain go along") << u"6 2 1:bu 3:u"_s << u"1@0 2@0 2@2 2@3"_s;
    QTest::newRow("headings take their room on the next page") << u"8 4:t2 4:t2"_s << u"1@0 2@2T 2@6"_s;
    QTest::newRow("headings are counted when it fills") << u"8 5:t2 4:t2"_s << u"1@0 2@2T 3@2T"_s;
    QTest::newRow("no headings on the first page") << u"4:t2 4:t2"_s << u"1@0 1@4"_s;
    QTest::newRow("a page asked for") << u"4 2:n 3"_s << u"1@0 2@0 2@2"_s;
    QTest::newRow("on the first page it is there already") << u"4:n 2"_s << u"1@0 1@4"_s;
    QTest::newRow("a page asked for, whatever it is joined to") << u"4 2:nu 3"_s << u"1@0 2@0 2@2"_s;
    QTest::newRow("a blank one that begins a page") << u"4 1:bn 3"_s << u"1@0 2@0 2@1"_s;
    QTest::newRow("a chain does not go back over it") << u"4 2:n 5 5:u"_s << u"1@0 2@0 3@0 3@5"_s;
    QTest::newRow("higher than a page") << u"2 15 3"_s << u"1@0 2@0 3@0"_s;
}

void TestSpezzaPagine::riempieESpezza()
{
    QFETCH(QString, Parole);
    QTEST(Posti(Parole), "Attesi");
}

void TestSpezzaPagine::sommeNonEsatteStannoComunque()
{
    const std::vector<Striscia> Dieci(10, Striscia{0.1, false, false, 0.0});
    QCOMPARE(SpezzaPagine(Dieci, 1.0).back().Pagina, 1);  // ten times 0.1 is a little more or less than 1
}

void TestSpezzaPagine::larghezze_data()
{
    using Lista = QList<double>;
    QTest::addColumn<Lista>("Chieste");
    QTest::addColumn<Lista>("Necessarie");
    QTest::addColumn<Lista>("Attese");
    QTest::newRow("as asked") << Lista{50, 30} << Lista{0, 0} << Lista{50, 30};
    QTest::newRow("too wide, in proportion") << Lista{150, 50} << Lista{0, 0} << Lista{75, 25};
    QTest::newRow("a narrow one grows into the room") << Lista{50, 10} << Lista{0, 40} << Lista{50, 40};
    QTest::newRow("then at the cost of the other") << Lista{80, 20} << Lista{0, 40} << Lista{60, 40};
    QTest::newRow("who needs its width gives none")
        << Lista{40, 20, 40} << Lista{40, 30, 0} << Lista{40, 30, 30};
    QTest::newRow("two fifths stay") << Lista{80, 20} << Lista{0, 500} << Lista{32, 68};
    QTest::newRow("what is missing is missing to all")
        << Lista{80, 10, 10} << Lista{0, 100, 100} << Lista{32, 34, 34};
}

void TestSpezzaPagine::larghezze()
{
    QFETCH(QList<double>, Chieste);
    QFETCH(QList<double>, Necessarie);
    QFETCH(QList<double>, Attese);
    const std::vector<double> Fatte = LarghezzeColonne(Chieste, Necessarie, 100.0);
    QCOMPARE(qsizetype(Fatte.size()), Attese.size());
    for (qsizetype i = 0; i < Attese.size(); ++i)
        QVERIFY2(std::abs(Fatte[static_cast<std::size_t>(i)] - Attese[i]) < 1e-9,
                 qPrintable(u"column %1: %2"_s.arg(i).arg(Fatte[static_cast<std::size_t>(i)])));
}

#include "TestSpezzaPagine.moc"
