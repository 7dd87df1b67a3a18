// Words without an end: the work grows with their length and not with its square, and the lines are the same.
#include "supporto/pagine.h"
#include "supporto/prova.h"

#include "documenti.h"
#include "platform/pages/stesura.h"

using namespace Qt::StringLiterals;
using namespace documenti;

namespace {

constexpr AreaStampa Area{950.0, 700.0, 8000.0, 12000.0};  // dots

Documento ConParagrafo(const QString& Testo)
{
    Superficie vp;
    PreparaPagina(vp);
    vp.Paragraph(Testo);
    return Finito(vp);
}

Documento ConTabella(const QString& Testo)
{
    Superficie vp;
    PreparaPagina(vp);
    ScriviTabella(vp, {u"8cm"_s, u"3cm"_s}, {Allineamento::Sinistra, Allineamento::Destra},
                  {{Testo, u"1.000,00"_s}, {u"fine"_s, u"2,00"_s}});
    return Finito(vp);
}

Stesura Stesa(const Documento& Doc)
{
    FontDocumento Font;
    return Stendi(Doc, Area, Font);
}

/// The lines of the passages as stretches of the text stream, in its order.
std::vector<Selezione> Linee(const Stesura& Fatta)
{
    std::vector<Selezione> Tutte;
    for (const Pezzo& Uno : Fatta.Pezzi)
        for (const RigaStesa& Riga : Uno.Righe)
            if (Riga.Brano >= 0)
                Tutte.push_back({Riga.Inizio, Riga.Inizio + Riga.Lunghezza});
    std::ranges::sort(Tutte, {}, &Selezione::Da);
    return Tutte;
}

}  // namespace

class TestParolaSenzaFine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ilLavoroCresceConLaParola_data();
    void ilLavoroCresceConLaParola();
    void righePiene();
    void comeInUnPezzo_data();
    void comeInUnPezzo();
    void nellaCella();
    void ilCursoreTrovaOgniLettera();
};
PROVA(TestParolaSenzaFine);

void TestParolaSenzaFine::ilLavoroCresceConLaParola_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<bool>("Tabella");
    const QString Lunga(100'000, u'w');
    QTest::newRow("paragraph") << Lunga << false;
    QTest::newRow("cell") << Lunga << true;
    QTest::newRow("blanks that break no line") << QString(Lunga).replace(u"www"_s, u"ww\u00a0"_s) << false;
    QTest::newRow("after words") << u"Rossi Maria e altri "_s + Lunga << false;
}

/// What the toolkit reads for each line is at most a passage: their lengths are the work.
void TestParolaSenzaFine::ilLavoroCresceConLaParola()
{
    QFETCH(QString, Testo);
    QFETCH(bool, Tabella);
    constexpr qsizetype Abbastanza = 4096;  // letters
    const Stesura Fatta = Stesa(Tabella ? ConTabella(Testo) : ConParagrafo(Testo));
    qsizetype InTutto = 0;
    for (const Brano& Uno : Fatta.Brani) {
        const qsizetype Lungo = Uno.Disposto->text().size();
        QVERIFY2(Lungo <= Abbastanza, qPrintable(QString::number(Lungo)));
        InTutto += Lungo;
    }
    QVERIFY2(InTutto < Testo.size() * 5 / 4, qPrintable(QString::number(InTutto)));
}

/// A part that ends within the word does not show in the lines: each but the last is full.
void TestParolaSenzaFine::righePiene()
{
    const std::vector<Selezione> Tutte = Linee(Stesa(ConParagrafo(QString(9000, u'w'))));
    QVERIFY(Tutte.size() > 20);
    const qsizetype Piena = Tutte.front().A - Tutte.front().Da;
    qsizetype Dove = 0;
    for (std::size_t i = 0; i < Tutte.size(); ++i) {
        QCOMPARE(Tutte[i].Da, Dove);
        Dove = Tutte[i].A;
        if (i + 1 < Tutte.size())
            QCOMPARE(Dove - Tutte[i].Da, Piena);
    }
    QCOMPARE(Dove, qsizetype(9000));
}

void TestParolaSenzaFine::comeInUnPezzo_data()
{
    QTest::addColumn<QString>("Testo");
    const QString Lunga(MassimoParola * 3 / 2, u'w');
    QTest::newRow("alone") << Lunga;
    QTest::newRow("between words") << u"Rossi Maria, "_s + Lunga + u" e altri ancora"_s;
    QTest::newRow("twice") << Lunga + u" contro "_s + Lunga;
    QTest::newRow("on lines") << u"uno\u2028"_s + Lunga + u"\u2028due"_s;
    QTest::newRow("letters in pairs") << QString(u"𝄞"_s).repeated(MassimoParola);
    QTest::newRow("of different width") << QString(u"ilWm,"_s).repeated(MassimoParola / 3);
}

/// The lines are those of the text laid out in one go.
void TestParolaSenzaFine::comeInUnPezzo()
{
    QFETCH(QString, Testo);
    FontDocumento Font;
    const FontMisurato& Suo = Font({});
    const std::vector<Brano> Brani = BraniDi(Testo, {}, Font, Allineamento::Sinistra, 0.0, Area.Larghezza, 0);
    QVERIFY(Brani.size() > 1);
    const auto Intero = Disponi(Testo, Suo, Allineamento::Sinistra, Area.Larghezza);
    const std::vector<RigaStesa> Righe = RigheDi(Brani, 0);
    QCOMPARE(int(Righe.size()), Intero->lineCount());
    for (int i = 0; i < Intero->lineCount(); ++i) {
        const QTextLine Attesa = Intero->lineAt(i);
        QCOMPARE(Righe[size_t(i)].Inizio, qsizetype(Attesa.textStart()));
        QCOMPARE(Righe[size_t(i)].Lunghezza, qsizetype(Attesa.textLength()));
        QCOMPARE(Righe[size_t(i)].Dove.width(), Attesa.naturalTextRect().width());
    }
}

/// Lines of a cell stand below each other, whatever part they belong to.
void TestParolaSenzaFine::nellaCella()
{
    const Stesura Fatta = Stesa(ConTabella(QString(MassimoParola * 2, u'w')));
    double Fondo = 0.0;
    int Ordine = 0;
    for (const Pezzo& Uno : Fatta.Pezzi)
        for (const RigaStesa& Riga : Uno.Righe) {
            if (Riga.Brano < 0 || Riga.Lunghezza < 20)
                continue;
            QCOMPARE(Riga.NellaCella, Ordine++);
            Fondo += Riga.Dove.height();
        }
    QVERIFY(Ordine > 20);
    double Alte = 0.0;
    for (const Pezzo& Uno : Fatta.Pezzi)
        Alte += Uno.Misure.Altezza;
    QVERIFY(Alte >= Fondo);
}

/// A place in the text is found on the page and given back, across the parts.
void TestParolaSenzaFine::ilCursoreTrovaOgniLettera()
{
    QString Testo;
    for (int i = 0; Testo.size() < 3 * MassimoParola; ++i)
        Testo += QString::number(i);
    const Impaginazione Fatta(ConParagrafo(Testo));
    for (qsizetype Posto = 0; Posto < Testo.size(); Posto += 37) {
        const RettangoloPagina Qui = Fatta.Cursore(Posto);
        QCOMPARE(Fatta.PostoIn(Qui.Pagina, Qui.Mm.center() + QPointF(0.1, 0.0)), Posto);
    }
}

#include "TestParolaSenzaFine.moc"
