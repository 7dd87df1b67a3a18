// Which tables stay whole: the writers reckon it without fonts and must come to what the pages come to.
#include "supporto/pagine.h"
#include "supporto/prova.h"

#include "platform/document/superficie.h"
#include "print/writers/formatabella.h"
#include "print/writers/misuretesto.h"
#include "print/writers/scrittorertf.h"

using namespace Qt::StringLiterals;

namespace {

Documento ConTabella(int Righe, const QString& Testo, double Punti)
{
    Superficie vp;
    vp.MarginTop(u"3cm"_s);
    vp.MarginBottom(u"1.5cm"_s);
    vp.StartDoc();
    vp.FontSize(Punti);
    vp.StartTable();
    vp.TableCell(AttrTabella::Colonne, 2);
    vp.TableCell(AttrTabella::Righe, Righe);
    vp.ColonnaTabella(AttrTabella::LarghezzaColonna, 1, u"7cm"_s);
    vp.ColonnaTabella(AttrTabella::LarghezzaColonna, 2, u"3cm"_s);
    for (int Riga = 1; Riga <= Righe; ++Riga)
        vp.CellaTabella(AttrTabella::Testo, Riga, 1, Testo);
    vp.EndTable();
    vp.EndDoc();
    return vp.Contenuto();
}

}  // namespace

class TestTabelleIntere : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void altezze_data();
    void altezze();
    void lunghePiuDiMezzaPagina();
    void pocheRigheSottoITitoli();
    void righeDelTesto_data();
    void righeDelTesto();
};
PROVA(TestTabelleIntere);

void TestTabelleIntere::altezze_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<double>("Punti");
    QTest::newRow("short rows") << u"Acconto"_s << 11.0;
    QTest::newRow("rows of two lines")
        << u"Acconto versato alla sottoscrizione del contratto, fattura n. 12"_s << 10.0;
    QTest::newRow("line breaks") << u"Avv. Giulia Neri\nVia Roma 12\n20121 Milano"_s << 12.0;
}

/// The limit lies where the pages have it, within a row.
void TestTabelleIntere::altezze()
{
    QFETCH(QString, Testo);
    QFETCH(double, Punti);
    int Ultima = 0;
    for (int Righe = 2; Righe < 80; ++Righe)
        if (const Documento Doc = ConTabella(Righe, Testo, Punti);
            TabellaIntera(std::get<Tabella>(Doc.Blocchi.at(0)), Doc, Carta()))
            Ultima = Righe;
    QVERIFY(Ultima > 3 && Ultima < 70);
    const Impaginazione Fatta(ConTabella(Ultima, Testo, Punti));
    const QRectF Area = Fatta.AreaTestoMm();
    const double Alta = Fatta.Righe(1).back().Mm.bottom() - Area.top();
    const double Riga = Alta / Ultima;
    QVERIFY2(std::abs(Alta - Area.height() / 2.0) <= Riga, qPrintable(QString::number(Alta)));
}

void TestTabelleIntere::lunghePiuDiMezzaPagina()
{
    const Documento Corta = ConTabella(10, u"Acconto"_s, 11.0);
    const Documento Lunga = ConTabella(40, u"Acconto"_s, 11.0);
    QCOMPARE(ScriviRtf(Corta).count("\\keepn"), 2 * 9);
    QCOMPARE(ScriviRtf(Lunga).count("\\keepn"), 2 * 2);  // the first row and the last but one
}

void TestTabelleIntere::pocheRigheSottoITitoli()
{
    for (const int Righe : {8, 9}) {
        Documento Doc = ConTabella(Righe, u"Acconto"_s, 11.0);
        auto& Tutta = std::get<Tabella>(Doc.Blocchi.at(0));
        Tutta.Righe[1][0].Testo.clear();  // the blank row below the headings
        QCOMPARE(TabellaIntera(Tutta, Doc, Carta()), Righe == 8);
    }
}

void TestTabelleIntere::righeDelTesto_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<double>("Cm");
    const QString Frase =
        u"L'avvocato può recedere per giusta causa, e in particolare se il cliente non paga le "
        u"somme dovute nonostante un sollecito scritto, tace fatti rilevanti o viene meno il "
        u"rapporto di fiducia."_s;
    for (const double Cm : {3.0, 5.0, 7.5, 11.0, 17.0})
        QTest::addRow("%g cm", Cm) << Frase << Cm;
    QTest::newRow("a word too wide") << QString(100, u'a') << 5.0;
    QTest::newRow("nothing") << QString() << 5.0;
    QTest::newRow("line breaks") << u"a\n\nb"_s << 5.0;
}

void TestTabelleIntere::righeDelTesto()
{
    QFETCH(QString, Testo);
    QFETCH(double, Cm);
    Documento Doc;
    Doc.MargineSinistroCm = 1.0;
    Doc.MargineDestroCm = 20.0 - Cm;
    Paragrafo Solo;
    Solo.Tratti.push_back({Testo, {}});
    if (Testo.isEmpty())
        Solo.Tratti.clear();
    Doc.Blocchi.emplace_back(Solo);
    const int Vere = static_cast<int>(Impaginazione(Doc).Righe(1).size());
    QVERIFY2(std::abs(RigheTesto(Testo, Carattere(), Cm) - Vere) <= (Vere > 6 ? 1 : 0),
             qPrintable(u"%1 invece di %2"_s.arg(RigheTesto(Testo, Carattere(), Cm)).arg(Vere)));
}

#include "TestTabelleIntere.moc"
