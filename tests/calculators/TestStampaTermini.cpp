// The printed sheets of the calculators of terms.
#include "calcolotermine.h"
#include "supporto/guasti.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "calculators/modStampaTermini.h"

using namespace Qt::StringLiterals;

namespace {

const Paragrafo& Riga(const Superficie& vp, size_t Posto)
{
    return std::get<Paragrafo>(vp.Contenuto().Blocchi.at(Posto));
}

QStringList Testi(const Superficie& vp)
{
    QStringList Tutti;
    for (size_t i = 0; i < vp.Contenuto().Blocchi.size(); ++i)
        Tutti << Riga(vp, i).Testo();
    return Tutti;
}

}  // namespace

class TestStampaTermini : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void foglioDelTermine();
    void avvisoSottoIlRisultato();
    void fontEMargini();
    void senzaLogo();
    void sabatoMostraIlTermineLibero();
    void senzaSelezione();
    void foglioDellaSequenza();
    void nessunCalcolo_data();
    void nessunCalcolo();
    void articoloInesistente();
};
PROVA(TestStampaTermini);

void TestStampaTermini::foglioDelTermine()
{
    // The date as typed, two-digit year and all.
    const DatiTermine Dati{u"20/07/12__"_s, u"20"_s, TipoGiorni, {true, false, false, false}};
    Superficie vp;
    vp.Paragraph(u"di prima"_s);
    QVERIFY(StampaTermine(vp, Dati, TestoTermine(CalcolaTermine(Dati))));
    QCOMPARE(Testi(vp), (QStringList{u"CALCOLO TERMINI "_s,
                                     {},
                                     {},
                                     {},
                                     u"Data decorrenza: 20/07/12__"_s,
                                     {},
                                     u"Incremento: 20 Giorni"_s,
                                     {},
                                     u"Sospensione feriale: Sì"_s,
                                     {},
                                     u"Termine libero: No"_s,
                                     {},
                                     u"Proroga del sabato: No"_s,
                                     {},
                                     u"Scadenza: Successiva"_s,
                                     {},
                                     {},
                                     u"RISULTATO ELABORAZIONE:"_s,
                                     {},
                                     u"La scadenza è Lunedì,  24 Settembre  2012\n(Posticipata)"_s}));
    QVERIFY(!vp.InCorso());
}

void TestStampaTermini::avvisoSottoIlRisultato()
{
    Superficie vp;
    const QString Avviso = AvvisoSettembre.toString();
    QVERIFY(StampaTermine(vp, {u"01/07/2026"_s, u"60"_s, TipoGiorni, {}}, u"La scadenza è x"_s, Avviso));
    QCOMPARE(Testi(vp).mid(Testi(vp).size() - 2),
             (QStringList{u"La scadenza è x"_s,
                          u"Dal 2015 la sospensione termina il 31 agosto: v. Avvertenze"_s}));
    QVERIFY(StampaSequenza(vp, u"01/07/2026"_s, 0, {}, u"\r\nx"_s, Avviso));
    QCOMPARE(Testi(vp).last(), Avviso);
}

void TestStampaTermini::fontEMargini()
{
    Superficie vp;
    QVERIFY(StampaTermine(vp, {u"20/07/2012"_s, u"20"_s, TipoGiorni, {}}, u"x"_s));
    QCOMPARE(Riga(vp, 0).Allinea, Allineamento::Centro);
    QCOMPARE(Riga(vp, 0).Tratti[0].Font, (Carattere{u"Arial"_s, 12, true, false, false}));
    QCOMPARE(Riga(vp, 4).Allinea, Allineamento::Sinistra);
    QCOMPARE(Riga(vp, 4).Tratti[0].Font, (Carattere{u"Arial"_s, 10, false, false, false}));
    QCOMPARE(Riga(vp, 17).Tratti[0].Font, (Carattere{u"Arial"_s, 10, true, false, true}));
    QCOMPARE(Riga(vp, 19).Tratti[0].Font, (Carattere{u"Arial"_s, 10, false, false, false}));
    const Documento& Doc = vp.Contenuto();
    QCOMPARE(Doc.MargineSinistroCm, 2.0);
    QCOMPARE(Doc.MargineDestroCm, 1.4);
    QCOMPARE(Doc.MargineAltoCm, 2.0);
    QCOMPARE(Doc.MargineBassoCm, 3.0);
    QCOMPARE(vp.Zoom, 80);
}

/// A sheet with head and logo may have stood on the same surface: nothing of it stays.
void TestStampaTermini::senzaLogo()
{
    const DatiTermine Dati{u"20/07/2012"_s, u"20"_s, TipoGiorni, {}};
    Superficie vp;
    vp.HeadPicture(FiguraTesta{"png", 6.0, 2.0});
    vp.Author(u"Studio Bianchi"_s);
    vp.Subject(u"CALCOLO INTERESSI"_s);
    QVERIFY(StampaTermine(vp, Dati, TestoTermine(CalcolaTermine(Dati))));
    QVERIFY(!vp.Contenuto().Testa);
    QCOMPARE(vp.Contenuto().DiSe, Proprieta());
}

void TestStampaTermini::sabatoMostraIlTermineLibero()
{
    Superficie vp;
    QVERIFY(StampaTermine(vp, {u"20/07/2012"_s, u"2"_s, TipoMesi, {false, true, false, true}}, u"x"_s));
    QCOMPARE(Testi(vp)[6], u"Incremento: 2 Mesi"_s);
    QCOMPARE(Testi(vp)[8], u"Sospensione feriale: No"_s);
    QCOMPARE(Testi(vp)[12], u"Proroga del sabato: Sì"_s);
    QCOMPARE(Testi(vp)[14], u"Scadenza: Antecedente"_s);
    QVERIFY(StampaTermine(vp, {u"20/07/2012"_s, u"2"_s, TipoMesi, {false, false, true, false}}, u"x"_s));
    QCOMPARE(Testi(vp)[12], u"Proroga del sabato: No"_s);
}

void TestStampaTermini::senzaSelezione()
{
    Superficie vp;
    QVERIFY(StampaTermine(vp, {u"20/07/2012"_s, u"2"_s, -1, {}}, u"x"_s));
    QCOMPARE(Testi(vp)[6], u"Incremento: 2 "_s);
}

void TestStampaTermini::foglioDellaSequenza()
{
    Superficie vp;
    QVERIFY(StampaSequenza(vp, u"12/11/2012"_s, 1, {true, false, true, false}, u"\r\n  1°"_s));
    QCOMPARE(Testi(vp), (QStringList{u"CALCOLO TERMINI SEQUENZIALI"_s,
                                     {},
                                     {},
                                     {},
                                     u"Articolo: Art. 190 cpc (deposito conclusionale e repliche)"_s,
                                     {},
                                     u"Data udienza: 12/11/2012"_s,
                                     {},
                                     u"Sospensione feriale: Sì"_s,
                                     {},
                                     u"Proroga del sabato: Sì"_s,
                                     {},
                                     {},
                                     u"RISULTATO ELABORAZIONE:"_s,
                                     {},
                                     u"\n  1°"_s}));
}

void TestStampaTermini::nessunCalcolo_data()
{
    QTest::addColumn<QString>("Risultato");
    QTest::newRow("vuoto") << QString();
    QTest::newRow("spazi e a capo") << u" \r\n "_s;
}

void TestStampaTermini::nessunCalcolo()
{
    QFETCH(QString, Risultato);
    Registratore Box;
    Superficie vp;
    vp.Paragraph(u"di prima"_s);
    Box.Attendi(u"Non è stato effettuato alcun calcolo!"_s, vbOK, u"Errore:"_s);
    QVERIFY(!StampaTermine(vp, {}, Risultato));
    Box.Attendi(u"Non è stato effettuato alcun calcolo!"_s, vbOK, u"Errore:"_s);
    QVERIFY(!StampaSequenza(vp, {}, 0, {}, Risultato));
    QCOMPARE(Testi(vp), QStringList{u"di prima"_s});
}

void TestStampaTermini::articoloInesistente()
{
    Superficie vp;
    QCOMPARE(NumeroErrore([&] { (void)StampaSequenza(vp, {}, 2, {}, u"x"_s); }), 9);
}

#include "TestStampaTermini.moc"
