// A document that passes its page by little is tightened to take one, and no further than can be read.
#include "platform/pages/disegni.h"
#include "platform/pages/documenti.h"
#include "platform/pages/impaginazione.h"
#include "supporto/pagine.h"
#include "supporto/prova.h"

#include <set>

using namespace Qt::StringLiterals;

namespace {

/// Lines of twelve points, one in four blank.
Documento Righe(int Quante)
{
    Superficie vp;
    documenti::PreparaPagina(vp);
    for (int i = 1; i <= Quante; ++i)
        vp.Paragraph(i % 4 == 0 ? QString() : u"Riga %1 del documento"_s.arg(i));
    return documenti::Finito(vp);
}

/// The most of them that one page holds as it is.
int Capienza()
{
    int Quante = 40;
    while (Impaginazione(Righe(Quante + 1)).NumeroPagine() == 1)
        ++Quante;
    return Quante;
}

Documento Stretto(Documento Doc)
{
    Doc.UnaPagina = true;
    return Doc;
}

}  // namespace

class TestUnaPagina : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ciStaGia();
    void traboccaDiUnaRiga();
    void traboccaDiPiu();
    void traboccaDiUnaPagina();
    void ilMenoCheBasta();
    void comeStesaDaCapo();
    void iLimiti();
    void iGradiCrescono();
    void unoDopoLAltro();
    void leTabelle();
    void ilTestoELoStesso();
    void senzaLaSceltaNullaCambia();
    void unAltraCarta();
};
PROVA(TestUnaPagina);

void TestUnaPagina::ciStaGia()
{
    const Documento Doc = Righe(Capienza());
    const Impaginazione Fatta(Stretto(Doc));
    QCOMPARE(Fatta.Grado(), 0);
    QCOMPARE(Fatta.NumeroPagine(), 1);
    QCOMPARE(Fatta.Righe(1).back().Mm, Impaginazione(Doc).Righe(1).back().Mm);
}

void TestUnaPagina::traboccaDiUnaRiga()
{
    const Documento Doc = Righe(Capienza() + 1);
    QCOMPARE(Impaginazione(Doc).NumeroPagine(), 2);
    const Impaginazione Fatta(Stretto(Doc));
    QCOMPARE(Fatta.NumeroPagine(), 1);
    QVERIFY(Fatta.Grado() > 0);
    // Blank rows alone give so much.
    QVERIFY(Fatta.Grado() <= PassiStrettezza);
    QCOMPARE(pagine::Difetto(Fatta), QString());
}

void TestUnaPagina::traboccaDiPiu()
{
    const Impaginazione Fatta(Stretto(Righe(Capienza() * 5 / 4)));
    QCOMPARE(Fatta.NumeroPagine(), 1);
    QVERIFY(Fatta.Grado() > PassiStrettezza);
    QCOMPARE(pagine::Difetto(Fatta), QString());
}

/// What cannot take one page stands as it would without the wish.
void TestUnaPagina::traboccaDiUnaPagina()
{
    for (const int Quante : {Capienza() * 2, Capienza() * 5}) {
        const Impaginazione Larga(Righe(Quante));
        const Impaginazione Fatta(Stretto(Righe(Quante)));
        QCOMPARE(Fatta.Grado(), 0);
        QVERIFY(Fatta.NumeroPagine() > 1);
        QCOMPARE(Fatta.NumeroPagine(), Larga.NumeroPagine());
        QCOMPARE(Fatta.Righe(1).back().Mm, Larga.Righe(1).back().Mm);
    }
}

void TestUnaPagina::ilMenoCheBasta()
{
    const int Inizio = Capienza() + 1;
    std::set<int> Gradi;
    for (int Quante = Inizio; Quante < Inizio + 16; Quante += 3) {
        const Impaginazione Fatta(Stretto(Righe(Quante)));
        Gradi.insert(Fatta.Grado());
        Documento PiuLargo = Righe(Quante);
        PiuLargo.Stretta = StrettezzaDi(Fatta.Grado() - 1);
        QCOMPARE(Impaginazione(PiuLargo).NumeroPagine(), 2);
    }
    QVERIFY(Gradi.size() > 2);
}

/// What is tightened stands as if it had been laid out so from the beginning, by whatever way its step was
/// found: paragraphs, cells, tabs, words without an end.
void TestUnaPagina::comeStesaDaCapo()
{
    const auto Misto = [](int Quante) {
        Superficie vp;
        documenti::PreparaPagina(vp);
        vp.Text(u"Rossi\tVia Roma\n"_s + documenti::Parole(40));
        vp.SpaceBefore(6);
        vp.Paragraph({});
        documenti::ScriviElenco(
            vp, 6, u"Voce %1 con una descrizione più lunga della sua cella: "_s + documenti::Parole(4));
        vp.FontSize(9);
        vp.TextAlign(Allineamento::Destra);
        vp.Paragraph(QString(3000, u'x'));
        vp.Paragraph(QString(65, u' ') + u"Avv. Laura Conti"_s);
        vp.FontSize(12);
        for (int i = 1; i <= Quante; ++i)
            vp.Paragraph(i % 3 == 0 ? QString() : u"Riga %1"_s.arg(i));
        return documenti::Finito(vp);
    };
    int Quante = 1;
    while (Impaginazione(Misto(Quante)).NumeroPagine() == 1)
        ++Quante;
    std::set<int> Parti;
    for (Impaginazione Fatta(Stretto(Misto(Quante))); Fatta.Grado() > 0;
         Fatta = Impaginazione(Stretto(Misto(++Quante)))) {
        Parti.insert((Fatta.Grado() - 1) / PassiStrettezza);
        Documento DaCapo = Misto(Quante);
        DaCapo.Stretta = StrettezzaDi(Fatta.Grado());
        const Impaginazione Attesa(DaCapo);
        QCOMPARE(Fatta.NumeroPagine(), 1);
        QCOMPARE(Fatta.Testo(), Attesa.Testo());
        const auto Luoghi = [](const Impaginazione& Di) {
            QString Tutti;
            for (const RigaImpaginata& Riga : Di.Righe(1))
                Tutti += u"%1 %2 %3 %4 %5, %6 di %7\n"_s.arg(Riga.Mm.x())
                             .arg(Riga.Mm.y())
                             .arg(Riga.Mm.width())
                             .arg(Riga.Mm.height())
                             .arg(Riga.BaseMm)
                             .arg(Riga.Lunghezza)
                             .arg(Riga.Inizio);
            return Tutti;
        };
        QCOMPARE(Luoghi(Fatta), Luoghi(Attesa));
        constexpr double Dpi = 96.0;
        QCOMPARE(disegni::Disegnata(Fatta, 1, Dpi), disegni::Disegnata(Attesa, 1, Dpi));
    }
    QCOMPARE(Parti, (std::set<int>{0, 1, 2}));  // blank rows alone, lines too, letters too
}

void TestUnaPagina::iLimiti()
{
    const Strettezza Massima = StrettezzaDi(GradoMassimo);
    QCOMPARE(Massima.Bianche, BiancheMinime);
    QCOMPARE(Massima.Interlinea, InterlineaMinima);
    QCOMPARE(Massima.Corpo, CorpoMinimo);
    QCOMPARE(StrettezzaDi(GradoMassimo + 9), Massima);
    QCOMPARE(PuntiStretti(12, Massima), 11.0);  // in half points, the greater one
    QCOMPARE(PuntiStretti(10, Massima), 9.0);
    QCOMPARE(PuntiStretti(11, Massima), 10.0);
    QCOMPARE(PuntiStretti(9.5, Massima), 9.0);
    QCOMPARE(PuntiStretti(9, Massima), 9.0);
    QCOMPARE(PuntiStretti(8, Massima), 8.0);
    QCOMPARE(PuntiStretti(12, {}), 12.0);
}

void TestUnaPagina::iGradiCrescono()
{
    QCOMPARE(StrettezzaDi(0), Strettezza());
    for (int Grado = 1; Grado <= GradoMassimo; ++Grado) {
        const Strettezza Prima = StrettezzaDi(Grado - 1);
        const Strettezza Poi = StrettezzaDi(Grado);
        QVERIFY(Poi.Bianche <= Prima.Bianche && Poi.Interlinea <= Prima.Interlinea &&
                Poi.Corpo <= Prima.Corpo);
        QVERIFY(!(Poi == Prima));
    }
}

/// Blank rows give all that they can before lines come nearer, lines before letters are smaller.
void TestUnaPagina::unoDopoLAltro()
{
    for (int Grado = 0; Grado <= GradoMassimo; ++Grado) {
        const Strettezza Quanto = StrettezzaDi(Grado);
        QCOMPARE(Quanto.Bianche == BiancheMinime, Grado >= PassiStrettezza);
        QCOMPARE(Quanto.Interlinea<1.0, Grado> PassiStrettezza);
        QCOMPARE(Quanto.Interlinea == InterlineaMinima, Grado >= 2 * PassiStrettezza);
        QCOMPARE(Quanto.Corpo<1.0, Grado> 2 * PassiStrettezza);
    }
}

void TestUnaPagina::leTabelle()
{
    const auto Elenco = [](int Voci) {
        Superficie vp;
        documenti::PreparaPagina(vp);
        documenti::ScriviElenco(vp, Voci);
        return documenti::Finito(vp);
    };
    int Voci = 30;
    while (Impaginazione(Elenco(Voci)).NumeroPagine() == 1)
        ++Voci;
    const Impaginazione Fatta(Stretto(Elenco(Voci + 2)));
    QCOMPARE(Fatta.NumeroPagine(), 1);
    QCOMPARE(pagine::Difetto(Fatta), QString());
}

/// Search and copies know nothing of it.
void TestUnaPagina::ilTestoELoStesso()
{
    const Documento Doc = Righe(Capienza() + 3);
    const Impaginazione Fatta(Stretto(Doc));
    QCOMPARE(Fatta.Testo(), Impaginazione(Doc).Testo());
    QCOMPARE(Fatta.CercaTutte(u"Riga 3 del"_s).size(), 1);
    const auto Prima = pagine::CercaRiga(Fatta, u"Riga 1 del"_s);
    const auto Seconda = pagine::CercaRiga(Fatta, u"Riga 2 del"_s);
    QVERIFY(Seconda.Riga.Mm.top() >= Prima.Riga.Mm.bottom() - 0.01);
}

void TestUnaPagina::senzaLaSceltaNullaCambia()
{
    const Impaginazione Fatta(Righe(Capienza() + 1));
    QCOMPARE(Fatta.NumeroPagine(), 2);
    QCOMPARE(Fatta.Grado(), 0);
}

/// It is the sheet in use that counts: a shorter one asks for more.
void TestUnaPagina::unAltraCarta()
{
    const Documento Doc = Stretto(Righe(Capienza() - 2));
    QCOMPARE(Impaginazione(Doc).Grado(), 0);
    const Impaginazione Lettera(Doc, {215.9, 279.4});
    QCOMPARE(Lettera.NumeroPagine(), 1);
    QVERIFY(Lettera.Grado() > 0);
}

#include "TestUnaPagina.moc"
