#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "creaguide/composizione.h"
#include "platform/base/errore.h"

using namespace Qt::StringLiterals;

class TestMarcatura : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void blocchi();
    void paragrafoSuPiuRighe();
    void voci();
    void tratti();
    void tabella();
    void tabellaDeiDati();
    void paginaNuova();
    void rifiuti_data();
    void rifiuti();
};
PROVA(TestMarcatura);

namespace {

TabellaDati Prova(const QString& Nome)
{
    if (Nome != u"prova")
        throw Errore(5, u"Tabella sconosciuta: "_s + Nome);
    return {{3.0, 2.0}, {false, true}, {{u"Dal"_s, u"Tasso"_s}, {u"01/01/2024"_s, u"2,50"_s}}};
}

Guida Leggi(const QString& Testo)
{
    return LeggiGuida(u"prova.txt"_s, Testo, Prova);
}

const Paragrafo& ParagrafoDi(const Guida& Letta, size_t Quale)
{
    return std::get<Paragrafo>(Letta.Doc.Blocchi.at(Quale));
}

}  // namespace

void TestMarcatura::blocchi()
{
    const Guida Letta = Leggi(u"# Titolo\n\nPrimo.\n\n## Sezione\nSecondo.\r\n### Parte\nTerzo.\n"_s);
    QCOMPARE(Letta.Titolo, u"Titolo"_s);
    QCOMPARE(Letta.Doc.Blocchi.size(), size_t(6));
    QCOMPARE(ParagrafoDi(Letta, 0).Testo(), u"Titolo"_s);
    QCOMPARE(ParagrafoDi(Letta, 1).Testo(), u"Primo."_s);
    QVERIFY(ParagrafoDi(Letta, 2).Font.Grassetto);
    QVERIFY(ParagrafoDi(Letta, 2).Font.Punti < ParagrafoDi(Letta, 0).Font.Punti);
    QCOMPARE(ParagrafoDi(Letta, 3).Testo(), u"Secondo."_s);
    QCOMPARE(ParagrafoDi(Letta, 4).Testo(), u"Parte"_s);
    QVERIFY(ParagrafoDi(Letta, 4).Font.Punti < ParagrafoDi(Letta, 2).Font.Punti);
    QCOMPARE(ParagrafoDi(Letta, 5).Testo(), u"Terzo."_s);
    QCOMPARE(Letta.Doc.PiePagina, u"Pagina %d"_s);
}

void TestMarcatura::paragrafoSuPiuRighe()
{
    const Guida Letta = Leggi(u"# T\nuna riga\n  e l'altra  \n\nnuovo"_s);
    QCOMPARE(Letta.Doc.Blocchi.size(), size_t(3));
    QCOMPARE(ParagrafoDi(Letta, 1).Testo(), u"una riga e l'altra"_s);
}

void TestMarcatura::voci()
{
    const Guida Letta = Leggi(u"# T\n- una voce\nsu due righe\n- altra\n12. numerata\n-meno\n\n3.5 no"_s);
    QCOMPARE(ParagrafoDi(Letta, 1).Testo(), u"•\tuna voce su due righe"_s);
    QVERIFY(ParagrafoDi(Letta, 1).Spazi.PrimaRigaCm < 0.0);
    QCOMPARE(ParagrafoDi(Letta, 2).Testo(), u"•\taltra"_s);
    QCOMPARE(ParagrafoDi(Letta, 3).Testo(), u"12.\tnumerata -meno"_s);
    QCOMPARE(ParagrafoDi(Letta, 4).Testo(), u"3.5 no"_s);
    QCOMPARE(ParagrafoDi(Letta, 4).Spazi.SinistroCm, 0.0);
}

void TestMarcatura::tratti()
{
    const Guida Letta = Leggi(u"# T\ndi **regola** e __non__ **__sempre__**"_s);
    const auto& Tratti = ParagrafoDi(Letta, 1).Tratti;
    QStringList Visti;
    for (const Tratto& Uno : Tratti)
        Visti << Uno.Testo + (Uno.Font.Grassetto ? u"*"_s : QString()) +
                     (Uno.Font.Corsivo ? u"/"_s : QString());
    QCOMPARE(Visti, (QStringList{u"di "_s, u"regola*"_s, u" e "_s, u"non/"_s, u" "_s, u"sempre*/"_s}));
}

void TestMarcatura::tabella()
{
    const Guida Letta = Leggi(u"# T\n|= 6.5 3>\n| Voce | Euro\n| a | 1,00\n\ndopo"_s);
    const auto& Fatta = std::get<Tabella>(Letta.Doc.Blocchi.at(1));
    QCOMPARE(Fatta.LarghezzeCm, (std::vector<double>{6.5, 3.0}));
    QCOMPARE(Fatta.Righe.size(), size_t(2));
    QVERIFY(Fatta.Righe[0][0].Font.Grassetto);
    QVERIFY(!Fatta.Righe[1][0].Font.Grassetto);
    QCOMPARE(Fatta.Righe[1][1].Testo, u"1,00"_s);
    QCOMPARE(Fatta.Righe[1][1].Allinea, Allineamento::Destra);
    QCOMPARE(Fatta.Righe[1][0].Allinea, Allineamento::Sinistra);
    QCOMPARE(Fatta.Bordo, 1);
    QCOMPARE(ParagrafoDi(Letta, 3).Testo(), u"dopo"_s);
}

void TestMarcatura::tabellaDeiDati()
{
    const Guida Letta = Leggi(u"# T\n%tabella prova"_s);
    const auto& Fatta = std::get<Tabella>(Letta.Doc.Blocchi.at(1));
    // A blank row below the headings has them repeated on the next page.
    QCOMPARE(Fatta.Righe.size(), size_t(3));
    QCOMPARE(Fatta.Righe[0][1].Testo, u"Tasso"_s);
    QCOMPARE(Fatta.Righe[1][0].Testo, QString());
    QCOMPARE(Fatta.Righe[2][1].Testo, u"2,50"_s);
}

void TestMarcatura::paginaNuova()
{
    const Guida Letta = Leggi(u"# T\nuno\n%pagina\ndue\n\ntre"_s);
    QVERIFY(!ParagrafoDi(Letta, 1).NuovaPagina);
    QVERIFY(ParagrafoDi(Letta, 2).NuovaPagina);
    QVERIFY(!ParagrafoDi(Letta, 3).NuovaPagina);
}

void TestMarcatura::rifiuti_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Motivo");

    QTest::newRow("empty") << u""_s << u"riga 1: manca il titolo"_s;
    QTest::newRow("text before the title") << u"testo\n\n# T"_s << u"riga 2: il titolo viene per primo"_s;
    QTest::newRow("two titles") << u"# T\n# U"_s << u"riga 2: un secondo titolo"_s;
    QTest::newRow("unknown directive") << u"# T\n%capitolo"_s << u"riga 2: direttiva sconosciuta: capitolo"_s;
    QTest::newRow("unknown table") << u"# T\n%tabella altra"_s << u"Tabella sconosciuta: altra"_s;
    QTest::newRow("row without a table") << u"# T\n| a | b"_s << u"riga 2: la riga ha 2 celle invece di 0"_s;
    QTest::newRow("row too short") << u"# T\n|= 3 3\n| a"_s << u"riga 3: la riga ha 1 celle invece di 2"_s;
    QTest::newRow("width that is none") << u"# T\n|= 3 x\n"_s << u"riga 2: «x» non è una larghezza"_s;
    QTest::newRow("width of nothing") << u"# T\n|= 0 3\n"_s << u"riga 2: «0» non è una larghezza"_s;
    QTest::newRow("bold without end") << u"# T\n**a\n"_s << u"riga 3: grassetto o corsivo senza fine"_s;
    QTest::newRow("italics without end") << u"# T\na__\n"_s << u"riga 3: grassetto o corsivo senza fine"_s;
}

void TestMarcatura::rifiuti()
{
    QFETCH(QString, Testo);
    QFETCH(QString, Motivo);
    const ErroreVisto Guasto = ErroreDi([&] { (void)Leggi(Testo); });
    QCOMPARE(Guasto.Numero, 5);
    QVERIFY2(Guasto.Descrizione.endsWith(Motivo), qPrintable(Guasto.Descrizione));
}

#include "TestMarcatura.moc"
