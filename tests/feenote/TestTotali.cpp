// Running sums and the tax chain. Every figure is derived by hand in the comments.
#include "nota_prova.h"

#include "feenote/modSpese.h"
#include "platform/base/regionale.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

Aliquota Percentuale(double Percento)
{
    return {Percento > 0, Percento, CStr(Percento), true};
}

/// A chain at the usual rates: 12,5 % general expenses, 4 % pension fund, 21 % VAT, 20 % withholding.
DatiCatena Usuali(double Onorari)
{
    DatiCatena Dati;
    Dati.Onorari = Onorari;
    Dati.SpeseGen = Percentuale(12.5);
    Dati.CP = Percentuale(4);
    Dati.IVA = Percentuale(21);
    Dati.RA = Percentuale(20);
    return Dati;
}

/// Switches every rate on at the session's default.
void AccendiTutto(Parcella& Nota)
{
    for (const Imposta Quale : {Imposta::IVA, Imposta::RA, Imposta::CP, Imposta::SpeseGen})
        QVERIFY(!ClicImposta(Nota, Quale, true));
}

// ---- the same chain in whole cents

/// Half cents go away from zero.
qint64 Quoziente(qint64 Dividendo, qint64 Divisore)
{
    const qint64 Assoluto = (2 * std::abs(Dividendo) + Divisore) / (2 * Divisore);
    return Dividendo < 0 ? -Assoluto : Assoluto;
}

/// Amounts in cents, percentages in hundredths.
struct CatenaIntera
{
    qint64 Onorari = 0, SpeseImp = 0, SpeseEsenti = 0;
    qint64 PagatiOnorari = 0, PagateImp = 0, PagateEsenti = 0;
    qint64 PercGen = 0, PercCP = 0, PercIVA = 0, PercRA = 0;

    [[nodiscard]] static qint64 Tassa(qint64 Perc, qint64 Base) { return Quoziente(Perc * Base, 10000); }
    [[nodiscard]] qint64 SpeseGen() const { return Tassa(PercGen, Onorari); }
    [[nodiscard]] qint64 Base() const { return Onorari - PagatiOnorari + SpeseImp - PagateImp + SpeseGen(); }
    [[nodiscard]] qint64 CP() const { return Tassa(PercCP, Base()); }
    [[nodiscard]] qint64 IVA() const { return Tassa(PercIVA, Base() + CP()); }
    [[nodiscard]] qint64 RA() const { return Tassa(PercRA, Base()); }
    /// What the printed rows come to.
    [[nodiscard]] qint64 Totale() const { return Base() + CP() + IVA() + SpeseEsenti - PagateEsenti; }
};

Aliquota InCentesimi(qint64 Perc)
{
    return Perc == 0 ? Aliquota() : Percentuale(double(Perc) / 100);
}

DatiCatena InEuro(const CatenaIntera& Cifre)
{
    const auto Euro = [](qint64 Centesimi) { return double(Centesimi) / 100; };
    DatiCatena Dati;
    Dati.Onorari = Euro(Cifre.Onorari);
    Dati.SpeseImp = Euro(Cifre.SpeseImp);
    Dati.SpeseEsenti = Euro(Cifre.SpeseEsenti);
    Dati.Acconti = {Euro(Cifre.PagatiOnorari), Euro(Cifre.PagateImp), Euro(Cifre.PagateEsenti)};
    Dati.SpeseGen = InCentesimi(Cifre.PercGen);
    Dati.CP = InCentesimi(Cifre.PercCP);
    Dati.IVA = InCentesimi(Cifre.PercIVA);
    Dati.RA = InCentesimi(Cifre.PercRA);
    return Dati;
}

QString InFila(const QList<double>& Euro)
{
    QStringList Testi;
    for (const double Importo : Euro)
        Testi += TestoImporto(Importo);
    return Testi.join(u' ');
}

QString Scritta(const Catena& Conti)
{
    return InFila(
        {Conti.SpeseGen, Conti.Imponibile, Conti.CP, Conti.IVA, Conti.Totale, Conti.RA, Conti.Netto});
}

QString Scritta(const CatenaIntera& Cifre)
{
    QList<double> Euro;
    for (const qint64 Centesimi : {Cifre.SpeseGen(), Cifre.Base(), Cifre.CP(), Cifre.IVA(), Cifre.Totale(),
                                   Cifre.RA(), Cifre.Totale() - Cifre.RA()})
        Euro += double(Centesimi) / 100;
    return InFila(Euro);
}

}  // namespace

class TestTotali : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void sommeDelleRighe();
    void sommeVuote();
    void pannelli();
    void pannelliConLaNotaAssociata();
    void catenaSuMilleEuro();
    void notaCivile();
    void notaPenale();
    void notaStragiudiziale();
    void basiDelleImposte();
    void accontiOltreGliOnorari();
    void arrotondamenti_data();
    void arrotondamenti();
    void imponibileNonArrotondato();
    void interruttoriECaselle_data();
    void interruttoriECaselle();
    void interruttoriDisabilitati();
    void notaGiudizialeIgnoraGliAcconti();
    void notaAssociataSommata();
    void laBaseSenzaResto();
    void comeInCentesimi_data();
    void comeInCentesimi();
    void conImponibile_data();
    void conImponibile();
    void riep();
};
PROVA(TestTotali);

void TestTotali::sommeDelleRighe()
{
    Parcella Nota;
    DatiOnorario Dati;
    Dati.Importo = 100;
    Dati.Medio = 200;
    Dati.Min = 50;
    Dati.Max = 300;
    AddModOnor(Nota, Dati, RigaNuova);
    AddModOnor(Nota, Dati, RigaNuova);
    RigaSpesa(Nota, 10.5, 5.0);
    RigaSpesa(Nota, {}, {});  // neither amount: 0 in both sums
    RigaSpesa(Nota, u"1,25"_s, u"a forfait"_s);
    const Somme Attese{200, 400, 100, 600, 11.75, 5.0};
    QCOMPARE(CalcolaSomme(Nota), Attese);
}

void TestTotali::sommeVuote()
{
    QCOMPARE(CalcolaSomme(Parcella()), Somme());
    const PannelliRiep Testi{u"Onor.: 0"_s, u"Sp.Imp: 0"_s, u"Esenti: 0"_s, u"Totale: 0"_s};
    QCOMPARE(TestiRiep(Parcella()), Testi);
}

void TestTotali::pannelli()
{
    Parcella Nota;
    AccendiTutto(Nota);
    RigaOnorario(Nota, u"Studio"_s, 1200);
    RigaSpesa(Nota, 10.5, -5.0);
    // No tax in the total.
    const PannelliRiep Testi{u"Onor.: 1.200,00"_s, u"Sp.Imp: 10,50"_s, u"Esenti: -5,00"_s,
                             u"Totale: 1.205,50"_s};
    QCOMPARE(TestiRiep(Nota), Testi);
}

void TestTotali::pannelliConLaNotaAssociata()
{
    Parcella Nota;
    RigaOnorario(Nota, u"Studio"_s, 1200);
    Nota.Multi.TotOnorariMulti = 300;
    Nota.Multi.TotSpeseImpMulti = 20;
    Nota.Multi.TotSpeseEsentiMulti = 1;
    QCOMPARE(TestiRiep(Nota).Total, u"Totale: 1.200,00"_s);
    Nota.txtParcMultipla = u"rossi"_s;
    const PannelliRiep Testi{u"Onor.: 1.500,00"_s, u"Sp.Imp: 20,00"_s, u"Esenti: 1,00"_s,
                             u"Totale: 1.521,00"_s};
    QCOMPARE(TestiRiep(Nota), Testi);
}

void TestTotali::catenaSuMilleEuro()
{
    const Catena Conti = CatenaFiscale(Usuali(1000));
    QCOMPARE(Conti.SpeseGen, 125.0);  // 12.5 % of 1000
    QCOMPARE(Conti.Imponibile, 1125.0);
    QCOMPARE(Conti.CP, 45.0);    // 4 % of 1125
    QCOMPARE(Conti.IVA, 245.7);  // 21 % of 1170
    QCOMPARE(Conti.Totale, 1415.7);
    QCOMPARE(Conti.RA, 225.0);  // 20 % of 1125
    QCOMPARE(Conti.Netto, 1190.7);
}

void TestTotali::notaCivile()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    AccendiTutto(Nota);
    const Catena Conti = CatenaFiscale(Nota, StampaPrenotula);
    QCOMPARE(Conti.Dati.Onorari, 4500.0);  // 1200 + 600 + 1200 + 1500
    QCOMPARE(Conti.SpeseGen, 562.5);       // 12.5 %
    QCOMPARE(Conti.Imponibile, 5062.5);
    QCOMPARE(Conti.CP, 202.5);     // 4 %
    QCOMPARE(Conti.IVA, 1105.65);  // 21 % of 5265
    QCOMPARE(Conti.Totale, 6370.65);
    QCOMPARE(Conti.RA, 1012.5);  // 20 % of 5062.50
    QCOMPARE(Conti.Netto, 5358.15);
}

void TestTotali::notaPenale()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaPenale();
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    QVERIFY(VaiAVoce(Voci, 105));
    Messaggi.AttendiImmissione(u"delle ore impiegate"_s, u"2,5"_s);
    InserisciOnorario(Nota, Voci);
    AccendiTutto(Nota);
    const Catena Conti = CatenaFiscale(Nota, StampaFatturaAnalitica);
    QCOMPARE(Conti.Dati.Onorari, 2760.0);  // 300 + 600 + 900 + 900, and 3 hours at 20
    QCOMPARE(Conti.SpeseGen, 345.0);       // 12.5 %
    QCOMPARE(Conti.Imponibile, 3105.0);
    QCOMPARE(Conti.CP, 124.2);    // 4 %
    QCOMPARE(Conti.IVA, 678.13);  // 21 % of 3229.20 = 678.132
    QCOMPARE(Conti.Totale, 3907.33);
    QCOMPARE(Conti.RA, 621.0);  // 20 % of 3105
    QCOMPARE(Conti.Netto, 3286.33);
}

void TestTotali::notaStragiudiziale()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaStragiudiziale();
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    QVERIFY(VaiAVoce(Voci, 206));
    InserisciOnorario(Nota, Voci);
    RigaSpesa(Nota, 10.0, 27.0);
    // A new note: VAT and pension fund alone.
    const Catena Conti = CatenaFiscale(Nota, StampaPrenotula);
    QCOMPARE(Conti.Dati.Onorari, 1312.0);  // half way between 675 and 1950, to the even euro
    QCOMPARE(Conti.SpeseGen, 0.0);
    QCOMPARE(Conti.Imponibile, 1322.0);
    QCOMPARE(Conti.CP, 52.88);       // 4 %
    QCOMPARE(Conti.IVA, 288.72);     // 21 % of 1374.88 = 288.7248
    QCOMPARE(Conti.Totale, 1690.6);  // 1322 + 52.88 + 288.72 + 27
    QCOMPARE(Conti.RA, 0.0);
    QCOMPARE(Conti.Netto, 1690.6);
}

void TestTotali::basiDelleImposte()
{
    DatiCatena Dati = Usuali(1000);
    Dati.SpeseImp = 100;
    Dati.SpeseEsenti = 50;
    Dati.Acconti = {300, 40, 10};
    const Catena Conti = CatenaFiscale(Dati);
    QCOMPARE(Conti.SpeseGen, 125.0);    // on the fees before the payments
    QCOMPARE(Conti.Imponibile, 885.0);  // 1000 - 300 + 100 - 40 + 125
    QCOMPARE(Conti.CP, 35.4);           // on the base after them
    QCOMPARE(Conti.IVA, 193.28);        // 21 % of 920.40 = 193.284
    QCOMPARE(Conti.Totale, 1153.68);    // 885 + 35.40 + 193.28 + 50 - 10
    QCOMPARE(Conti.RA, 177.0);          // without the pension fund
    QCOMPARE(Conti.Netto, 976.68);
}

void TestTotali::accontiOltreGliOnorari()
{
    DatiCatena Dati = Usuali(1000);
    Dati.Acconti.AccontiCorrispettivi = 2125;
    const Catena Conti = CatenaFiscale(Dati);
    QCOMPARE(Conti.Imponibile, -1000.0);  // 1000 - 2125 + 125
    QCOMPARE(Conti.CP, -40.0);
    QCOMPARE(Conti.IVA, -218.4);  // 21 % of -1040
    QCOMPARE(Conti.RA, -200.0);
    QCOMPARE(Conti.Totale, -1258.4);
    QCOMPARE(Conti.Netto, -1058.4);
}

void TestTotali::arrotondamenti_data()
{
    QTest::addColumn<double>("Onorari");
    QTest::addColumn<double>("Percento");
    QTest::addColumn<double>("SpeseGen");
    // A half cent goes away from zero: the rounding of the taxes is not that of the lines.
    QTest::newRow("mezzo centesimo pari") << 1.0 << 0.5 << 0.01;
    QTest::newRow("mezzo centesimo su 2") << 5.0 << 0.5 << 0.03;
    QTest::newRow("mezzo centesimo binario scarso") << 2.01 << 50.0 << 1.01;
    QTest::newRow("negativo") << -1.0 << 0.5 << -0.01;
    QTest::newRow("sotto il mezzo centesimo") << 0.98 << 0.5 << 0.0;
}

void TestTotali::arrotondamenti()
{
    QFETCH(double, Onorari);
    QFETCH(double, Percento);
    DatiCatena Dati;
    Dati.Onorari = Onorari;
    Dati.SpeseGen = Percentuale(Percento);
    QTEST(CatenaFiscale(Dati).SpeseGen, "SpeseGen");
}

void TestTotali::imponibileNonArrotondato()
{
    DatiCatena Dati;
    Dati.SpeseImp = 0.125;
    Dati.SpeseEsenti = 0.006;
    Dati.CP = Percentuale(100);
    const Catena Conti = CatenaFiscale(Dati);
    QCOMPARE(Conti.Imponibile, 0.125);
    QCOMPARE(Conti.CP, 0.13);
    QCOMPARE(Conti.Totale, 0.26);  // of 0.261; a rounded base would have made it 0.266
}

void TestTotali::interruttoriECaselle_data()
{
    QTest::addColumn<bool>("Attiva");
    QTest::addColumn<QString>("Casella");
    QTest::addColumn<double>("Cassa");
    QTest::newRow("attiva") << true << u"4"_s << 40.0;
    QTest::newRow("spenta") << false << u"4"_s << 0.0;
    QTest::newRow("casella svuotata") << true << QString() << 0.0;
    QTest::newRow("zero") << true << u"0"_s << 0.0;
    QTest::newRow("negativa") << true << u"-4"_s << 0.0;
    QTest::newRow("non e' un numero") << true << u"4%"_s << 0.0;
    QTest::newRow("punto decimale") << true << u"2.5"_s << 0.0;
    QTest::newRow("virgola e spazi") << true << u" 2,5 "_s << 25.0;
}

void TestTotali::interruttoriECaselle()
{
    QFETCH(bool, Attiva);
    QFETCH(QString, Casella);
    Parcella Nota;
    RigaSpesa(Nota, 1000.0, 0.0);
    Nota.chkCP.Attiva = Attiva;
    Nota.txtCP.Testo = Casella;
    const Catena Conti = CatenaFiscale(Nota, StampaPrenotula);
    QTEST(Conti.CP, "Cassa");
    QCOMPARE(Conti.Dati.CP.Attiva, Attiva);
    QCOMPARE(Conti.Dati.CP.Testo, Casella.trimmed());
}

void TestTotali::interruttoriDisabilitati()
{
    const Studio Ufficio;
    Parcella Nota;
    RigaOnorario(Nota, u"Studio"_s, 1000);
    AccendiTutto(Nota);
    for (Spunta Parcella::*Tick :
         {&Parcella::chkIva, &Parcella::chkRA, &Parcella::chkCP, &Parcella::chkSpeseGen})
        (Nota.*Tick).Abilitata = false;
    const Catena Conti = CatenaFiscale(Nota, StampaPrenotula);
    QCOMPARE(Conti.IVA, 0.0);
    QCOMPARE(Conti.RA, 0.0);
    QCOMPARE(Conti.SpeseGen, 125.0);  // these two go by the tick alone
    QCOMPARE(Conti.CP, 45.0);
}

void TestTotali::notaGiudizialeIgnoraGliAcconti()
{
    Parcella Nota;
    RigaOnorario(Nota, u"Studio"_s, 1000);
    RigaAcconto(Nota, u"E"_s, 300.0, 20.0, 10.0);
    QCOMPARE(CatenaFiscale(Nota, StampaNotaGiudiziale).Totale, 1000.0);
    QCOMPARE(CatenaFiscale(Nota, StampaFatturaAnalitica).Totale, 670.0);
}

void TestTotali::notaAssociataSommata()
{
    const Studio Ufficio;
    Parcella Nota;
    RigaOnorario(Nota, u"Studio"_s, 600);
    AccendiTutto(Nota);
    Nota.Multi.TotOnorariMulti = 400;
    Nota.Multi.TotSpeseImpMulti = 7;
    Nota.Multi.TotSpeseEsentiMulti = 3;
    QCOMPARE(CatenaFiscale(Nota, StampaPrenotula).Dati.Onorari, 600.0);
    Nota.txtParcMultipla = u"rossi"_s;
    const Catena Conti = CatenaFiscale(Nota, StampaPrenotula);
    QVERIFY(Conti.Dati.Multipla);
    QCOMPARE(Conti.SpeseGen, 125.0);
    QCOMPARE(Conti.Imponibile, 1132.0);
    QCOMPARE(Conti.Dati.SpeseEsenti, 3.0);
}

void TestTotali::laBaseSenzaResto()
{
    // 205,29 and 8,21 of pension fund are 213,50, of which the double says a trifle less; 21 % of it is a
    // tie.
    CatenaIntera Cifre;
    Cifre.Onorari = 1'667'800;
    Cifre.SpeseImp = 101'342;
    Cifre.SpeseEsenti = 41'669;
    Cifre.PagatiOnorari = 1'748'613;
    Cifre.PercCP = 400;
    Cifre.PercIVA = 2100;
    const Catena Conti = CatenaFiscale(InEuro(Cifre));
    QCOMPARE(TestoImporto(Conti.Imponibile), u"205,29"_s);
    QCOMPARE(Conti.CP, 8.21);
    QCOMPARE(Conti.IVA, 44.84);
    QCOMPARE(Conti.Totale, 675.03);
    // A base with more than cents keeps what it has.
    DatiCatena Fini;
    Fini.SpeseImp = 0.12345;
    Fini.CP = Percentuale(100);
    QCOMPARE(CatenaFiscale(Fini).Imponibile, 0.12345);
}

void TestTotali::comeInCentesimi_data()
{
    QTest::addColumn<int>("Seme");
    QTest::addColumn<qint64>("Massimo");    // cents
    QTest::addColumn<qint64>("Passo");      // of the percentages, hundredths
    QTest::addColumn<bool>("QuasiPagato");  // payments that leave a few euro of the fees
    QTest::newRow("parcelle comuni") << 1 << qint64(2'000'000) << qint64(50) << false;
    QTest::newRow("quasi tutto pagato") << 2 << qint64(2'000'000) << qint64(50) << true;
    QTest::newRow("ogni percentuale") << 3 << qint64(1'000'000'000) << qint64(1) << false;
    QTest::newRow("ogni percentuale, quasi tutto pagato") << 4 << qint64(1'000'000'000) << qint64(1) << true;
    QTest::newRow("miliardi") << 5 << qint64(2'000'000'000'000) << qint64(100) << false;
    QTest::newRow("miliardi quasi tutti pagati") << 6 << qint64(2'000'000'000'000) << qint64(100) << true;
}

void TestTotali::comeInCentesimi()
{
    QFETCH(int, Seme);
    QFETCH(qint64, Massimo);
    QFETCH(qint64, Passo);
    QFETCH(bool, QuasiPagato);
    constexpr int Casi = 5000;
    QRandomGenerator Caso(static_cast<quint32>(Seme));
    const auto Fino = [&Caso](qint64 Limite) { return Caso.bounded(Limite + 1); };
    const auto Percento = [&](qint64 Limite) { return Fino(Limite / Passo) * Passo; };
    for (int i = 0; i < Casi; ++i) {
        CatenaIntera Cifre;
        Cifre.Onorari = Fino(Massimo);
        Cifre.SpeseImp = Fino(Massimo / 10);
        Cifre.SpeseEsenti = Fino(Massimo / 10);
        Cifre.PercGen = Percento(2500);
        Cifre.PercCP = Percento(500);
        Cifre.PercIVA = Percento(2500);
        Cifre.PercRA = Percento(10000);
        Cifre.PagateImp = Fino(Cifre.SpeseImp);
        Cifre.PagateEsenti = Fino(Massimo / 10);
        Cifre.PagatiOnorari = QuasiPagato ? Cifre.Base() - Fino(100'000) + 50'000 : Fino(2 * Massimo);
        const QString Trovata = Scritta(CatenaFiscale(InEuro(Cifre)));
        if (Trovata != Scritta(Cifre))
            QFAIL(qPrintable(u"case %1: %2 for %3"_s.arg(i).arg(Trovata, Scritta(Cifre))));
    }
}

void TestTotali::conImponibile_data()
{
    QTest::addColumn<double>("Onorari");
    QTest::addColumn<double>("Acconto");
    QTest::addColumn<double>("EsentiPoi");
    QTest::addColumn<double>("OnorariPoi");
    QTest::newRow("centesimi") << 1000.0 << 100.01 << 0.0 << 0.0;
    // 1.000,005 and 125,00: base 1.125,005, and 1.024,995 less the payment; each is rounded by itself.
    QTest::newRow("mezzi centesimi") << 1000.005 << 100.01 << 0.0 << 0.0;
    QTest::newRow("mezzi centesimi, tutto pagato") << 1000.005 << 1125.0 << 0.0 << 0.0;
    QTest::newRow("un terzo d'ora") << 333.335 << 0.37 << 0.0 << 0.0;
    QTest::newRow("spese esenti di poi") << 1000.005 << 100.01 << 300.0 << 0.0;
    QTest::newRow("mezzi centesimi, quasi pagato") << 1000.005 << 1124.0 << 0.0 << 0.0;
    QTest::newRow("due centesimi di poi") << 1000.0 << 100.01 << 0.0 << 0.02;
    QTest::newRow("una riga di poi") << 1000.0 << 100.01 << 300.0 << 50.0;
}

/// The figures of a document say what it was made of to the cent: the lines stay where they make that still,
/// and expenses that are not taxed are no part of it.
void TestTotali::conImponibile()
{
    QFETCH(double, Onorari);
    QFETCH(double, Acconto);
    QFETCH(double, EsentiPoi);
    QFETCH(double, OnorariPoi);
    DatiCatena Uscita = Usuali(Onorari);
    Uscita.Acconti.AccontiCorrispettivi = Acconto;
    const double Chiesto = Arrotonda2(CatenaFiscale(Uscita).Imponibile) + Acconto;
    DatiCatena Poi = Uscita;
    Poi.SpeseEsenti += EsentiPoi;
    Poi.Onorari += OnorariPoi;
    const DatiCatena Sua = ConImponibile(Poi, Chiesto);
    QCOMPARE(Sua.SpeseEsenti, EsentiPoi);
    QCOMPARE(Sua.Acconti, Uscita.Acconti);
    QCOMPARE(Sua.Onorari, OnorariPoi == 0 ? Onorari : Arrotonda2(Chiesto));
    QCOMPARE(Sua.SpeseGen.Vale, OnorariPoi == 0);
    const double Torna = CatenaFiscale(Sua).Imponibile + Acconto - Chiesto;
    QVERIFY2(std::abs(Torna) < 0.0051, qPrintable(CStr(Torna)));
}

void TestTotali::riep()
{
    QCOMPARE(Riep(0), u"lblRiep1"_s);
    QCOMPARE(Riep(11), u"lblRiep12"_s);
}

#include "TestTotali.moc"
