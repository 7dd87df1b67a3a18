// The text of the pages: stream, places under a point, selections, search.
#include "supporto/pagine.h"
#include "supporto/prova.h"

#include "documenti.h"

using namespace Qt::StringLiterals;
using namespace documenti;

namespace {

constexpr QChar Linea = QChar(QChar::LineSeparator);

/// A paragraph, a blank row, a table of two columns with a cell of two lines, a list over two pages.
Impaginazione Esempio()
{
    Superficie vp;
    PreparaPagina(vp);
    vp.Paragraph(u"Preavviso di parcella n. 12"_s);
    vp.Paragraph({});
    ScriviTabella(vp, {u"8cm"_s, u"9cm"_s}, {Allineamento::Sinistra, Allineamento::Sinistra},
                  {{u"Avv. Giulia Neri\nVia Roma 12"_s, u"Mario Rossi"_s}, {}, {u"C.F."_s, {}}});
    ScriviElenco(vp, 70);
    vp.Paragraph(u"fine"_s);
    return Impaginazione(Finito(vp));
}

Selezione Di(const Impaginazione& Fatta, const QString& Parte)
{
    const qsizetype Da = Fatta.Testo().indexOf(Parte);
    return {Da, Da + Parte.size()};
}

}  // namespace

class TestImpaginazioneTesto : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ilTestoInOrdine();
    void ogniPuntoDaIlSuoCarattere();
    void puntiFuoriDalTesto();
    void ilCursoreInFondoAllaRigaSpezzata();
    void rettangoliDiUnaSelezione();
    void rettangoliSuDuePagine();
    void parole_data();
    void parole();
    void blocchi();
    void copia_data();
    void copia();
    void cerca_data();
    void cerca();
    void cercaTutteInOrdine();
    void paginaDelPosto();
    void postiFuoriDalTesto();
};
PROVA(TestImpaginazioneTesto);

void TestImpaginazioneTesto::ilTestoInOrdine()
{
    const Impaginazione Fatta = Esempio();
    QVERIFY(Fatta.Testo().startsWith(
        u"Preavviso di parcella n. 12\n\nAvv. Giulia Neri"_s + Linea +
        u"Via Roma 12\tMario Rossi\n\nC.F.\t\nONORARI\tImporto\n\nVoce 1\t1001,00\n"_s));
    QVERIFY(Fatta.Testo().endsWith(u"Voce 70\t1070,00\n\t________\n\t99.999,99\nfine\n"_s));
    QCOMPARE(Fatta.Testo().count(u"ONORARI"_s), 1);  // repeated on the second page, told once
}

void TestImpaginazioneTesto::ogniPuntoDaIlSuoCarattere()
{
    const Impaginazione Fatta = Esempio();
    QCOMPARE(Fatta.NumeroPagine(), 2);
    int Provati = 0;
    for (int Pagina = 1; Pagina <= 2; ++Pagina)
        for (const RigaImpaginata& Riga : Fatta.Righe(Pagina))
            for (qsizetype Posto = Riga.Inizio; Posto < Riga.Inizio + Riga.Lunghezza; ++Posto) {
                const RettangoloPagina Qui = Fatta.Cursore(Posto);
                QCOMPARE(Qui.Pagina, Pagina);
                // A little to the right of its left edge, at half the height of its line.
                const QPointF Punto(Qui.Mm.left() + 0.1, Riga.Mm.center().y());
                QCOMPARE(Fatta.PostoIn(Pagina, Punto), Posto);
                ++Provati;
            }
    QVERIFY(Provati > 500);
}

void TestImpaginazioneTesto::puntiFuoriDalTesto()
{
    const Impaginazione Fatta = Esempio();
    QCOMPARE(Fatta.PostoIn(1, QPointF(-50.0, -50.0)), 0);
    QCOMPARE(Fatta.PostoIn(1, QPointF(205.0, 16.0)), Fatta.BloccoIn(0).A);  // right of the first line
    QCOMPARE(Fatta.PostoIn(2, QPointF(205.0, 290.0)), Fatta.BloccoIn(Fatta.Testo().size() - 1).A);
    // below the one line of the second cell, beside the second line of the first
    const RigaImpaginata Seconda = pagine::CercaRiga(Fatta, u"Via Roma"_s).Riga;
    const Selezione Cliente = Di(Fatta, u"Mario Rossi"_s);
    QCOMPARE(Fatta.PostoIn(1, QPointF(101.0, Seconda.Mm.center().y())), Cliente.Da);
    QVERIFY(Fatta.SulTesto(1, QPointF(21.0, 17.0)));
    QVERIFY(!Fatta.SulTesto(1, QPointF(180.0, 17.0)));
    QVERIFY(!Fatta.SulTesto(9, QPointF(21.0, 17.0)));
}

void TestImpaginazioneTesto::ilCursoreInFondoAllaRigaSpezzata()
{
    Superficie vp;
    PreparaPagina(vp);
    vp.Paragraph(Parole(30));
    const Impaginazione Fatta(Finito(vp));
    const RigaImpaginata& Prima = Fatta.Righe(1)[0];
    const qsizetype Posto = Fatta.PostoIn(1, QPointF(209.0, Prima.Mm.center().y()));
    QCOMPARE(Fatta.Cursore(Posto).Mm.top(), Prima.Mm.top());
    QVERIFY(Fatta.Testo()[Posto].isSpace());
}

void TestImpaginazioneTesto::rettangoliDiUnaSelezione()
{
    const Impaginazione Fatta = Esempio();
    const Selezione Parola = Di(Fatta, u"parcella"_s);
    const QList<RettangoloPagina> Uno = Fatta.Rettangoli(Parola);
    QCOMPARE(Uno.size(), 1);
    QVERIFY(std::abs(Uno[0].Mm.left() - Fatta.Cursore(Parola.Da).Mm.left()) < 1e-9);
    QVERIFY(std::abs(Uno[0].Mm.right() - Fatta.Cursore(Parola.A).Mm.left()) < 1e-9);
    QVERIFY(Uno[0].Mm.width() > 10.0 && Uno[0].Mm.width() < 20.0);
    QCOMPARE(Fatta.Rettangoli({Parola.A, Parola.Da}).size(), 1);  // drawn backwards
    QVERIFY(Fatta.Rettangoli({3, 3}).isEmpty());
    // the line, the blank row, the first line of the head
    QCOMPARE(Fatta.Rettangoli({5, Di(Fatta, u"Giulia"_s).A}).size(), 3);
}

void TestImpaginazioneTesto::rettangoliSuDuePagine()
{
    const Impaginazione Fatta = Esempio();
    const QList<RettangoloPagina> Tutti = Fatta.Rettangoli(Fatta.Tutto());
    std::size_t Attesi = 0;
    for (int Pagina = 1; Pagina <= 2; ++Pagina)
        Attesi += Fatta.Righe(Pagina).size();
    QCOMPARE(std::size_t(Tutti.size()), Attesi);
    QCOMPARE(Tutti.front().Pagina, 1);
    QCOMPARE(Tutti.back().Pagina, 2);
}

void TestImpaginazioneTesto::parole_data()
{
    QTest::addColumn<QString>("Intorno");
    QTest::addColumn<int>("Scarto");
    QTest::addColumn<QString>("Parola");
    QTest::newRow("a word") << u"parcella"_s << 3 << u"parcella"_s;
    QTest::newRow("an amount is one word") << u"99.999,99"_s << 2 << u"99.999,99"_s;
    QTest::newRow("at the end of a cell the word before") << u"Rossi"_s << 5 << u"Rossi"_s;
    QTest::newRow("a blank") << u"Mario Rossi"_s << 5 << u" "_s;
    QTest::newRow("a point of an abbreviation") << u"Avv."_s << 1 << u"Avv"_s;
    QTest::newRow("a line break divides words") << u"Neri"_s << 1 << u"Neri"_s;
}

void TestImpaginazioneTesto::parole()
{
    QFETCH(QString, Intorno);
    QFETCH(int, Scarto);
    const Impaginazione Fatta = Esempio();
    const Selezione Scelta = Fatta.ParolaIn(Di(Fatta, Intorno).Da + Scarto);
    QTEST(Fatta.Testo().mid(Scelta.Da, Scelta.A - Scelta.Da), "Parola");
}

void TestImpaginazioneTesto::blocchi()
{
    const Impaginazione Fatta = Esempio();
    QCOMPARE(Fatta.BloccoIn(Di(Fatta, u"Roma"_s).Da),
             Di(Fatta, u"Avv. Giulia Neri"_s + Linea + u"Via Roma 12"_s));
    QVERIFY(Fatta.BloccoIn(Di(Fatta, u"\n\nAvv"_s).Da + 1).Vuota());
}

void TestImpaginazioneTesto::copia_data()
{
    QTest::addColumn<QString>("Da");
    QTest::addColumn<QString>("A");
    QTest::addColumn<QString>("Copia");
    QTest::newRow("within a cell a line stays a line")
        << u"Giulia"_s << u"Via Roma"_s << u"Giulia Neri\nVia Roma"_s;
    QTest::newRow("a row stays a row")
        << u"Avv."_s << u"Mario Rossi"_s << u"Avv. Giulia Neri Via Roma 12\tMario Rossi"_s;
    QTest::newRow("rows and cells") << u"ONORARI"_s << u"Voce 2"_s
                                    << u"ONORARI\tImporto\n\nVoce 1\t1001,00\nVoce 2"_s;
    QTest::newRow("no blanks at line ends") << u"C.F."_s << u"ONORARI"_s << u"C.F.\nONORARI"_s;
    QTest::newRow("across the pages") << u"Voce 44\t"_s << u"Voce 45"_s << u"Voce 44\t1044,00\nVoce 45"_s;
}

void TestImpaginazioneTesto::copia()
{
    QFETCH(QString, Da);
    QFETCH(QString, A);
    const Impaginazione Fatta = Esempio();
    QString Cercato = A;
    Cercato.replace(u"\nVia"_s, Linea + u"Via"_s);
    QTEST(Fatta.TestoDi({Di(Fatta, Da).Da, Di(Fatta, Cercato).A}), "Copia");
}

void TestImpaginazioneTesto::cerca_data()
{
    QTest::addColumn<QString>("Cercato");
    QTest::addColumn<QString>("Trovato");  // empty: nothing
    QTest::newRow("case does not matter") << u"PARCELLA"_s << u"parcella"_s;
    QTest::newRow("a blank stands for a line break") << u"neri via"_s << (u"Neri"_s + Linea + u"Via"_s);
    QTest::newRow("a blank stands for the next cell") << u"voce 1 1001,00"_s << u"Voce 1\t1001,00"_s;
    QTest::newRow("signs are no pattern") << u"n. 12"_s << u"n. 12"_s;
    QTest::newRow("a point is a point") << u"C.F."_s << u"C.F."_s;
    QTest::newRow("no such text") << u"C?F"_s << QString();
    QTest::newRow("nothing asked") << QString() << QString();
    QTest::newRow("blanks asked") << u"   "_s << QString();
}

void TestImpaginazioneTesto::cerca()
{
    QFETCH(QString, Cercato);
    QFETCH(QString, Trovato);
    const Impaginazione Fatta = Esempio();
    const QList<Selezione> Trovati = Fatta.CercaTutte(Cercato);
    QCOMPARE(Trovati.isEmpty(), Trovato.isEmpty());
    if (!Trovati.isEmpty())
        QCOMPARE(Fatta.Testo().mid(Trovati[0].Da, Trovati[0].A - Trovati[0].Da), Trovato);
}

void TestImpaginazioneTesto::cercaTutteInOrdine()
{
    Superficie vp;
    PreparaPagina(vp);
    vp.Paragraph(u"perché Perché PERCHÉ"_s);
    const Impaginazione Fatta(Finito(vp));
    QCOMPARE(Fatta.CercaTutte(u"perché"_s), (QList<Selezione>{{0, 6}, {7, 13}, {14, 20}}));
}

void TestImpaginazioneTesto::paginaDelPosto()
{
    const Impaginazione Fatta = Esempio();
    QCOMPARE(Fatta.PaginaDi(0), 1);
    QCOMPARE(Fatta.PaginaDi(Fatta.Testo().size()), 2);
    const Selezione Prima = Fatta.TestoDiPagina(1);
    const Selezione Seconda = Fatta.TestoDiPagina(2);
    QCOMPARE(Prima.Da, 0);
    QVERIFY(Prima.A < Seconda.Da);
    QCOMPARE(Fatta.PaginaDi(Prima.A), 1);
    QCOMPARE(Fatta.PaginaDi(Seconda.Da), 2);
    QVERIFY(Fatta.TestoDiPagina(3).Vuota());
}

void TestImpaginazioneTesto::postiFuoriDalTesto()
{
    const Impaginazione Fatta = Esempio();
    const qsizetype Fine = Fatta.Testo().size();
    QCOMPARE(Fatta.TestoDi({-5, 9}), u"Preavviso"_s);
    QCOMPARE(Fatta.TestoDi({Fine - 5, Fine + 50}), u"fine\n"_s);
    QCOMPARE(Fatta.Cursore(Fine + 9).Pagina, 2);
    QCOMPARE(Fatta.Cursore(-9).Mm, Fatta.Cursore(0).Mm);
    QVERIFY(Fatta.ParolaIn(Fine + 9).Vuota());
    QVERIFY(!Fatta.ParolaIn(-9).Vuota());

    const Impaginazione Vuota;
    QCOMPARE(Vuota.PostoIn(1, QPointF(50, 50)), 0);
    QVERIFY(Vuota.Rettangoli({0, 5}).isEmpty());
    QVERIFY(Vuota.TestoDi({0, 5}).isEmpty());
    QCOMPARE(Vuota.Cursore(0).Pagina, 1);
}

#include "TestImpaginazioneTesto.moc"
