#include "supporto/prova.h"

#include "documenti.h"
#include "print/modRiepilogo.h"

using namespace Qt::StringLiterals;

class TestFatture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void numero_data();
    void numero();
    void lAnnoEDiOggi();
    void oggettoAncheVuoto();
    void oggettoDellAssociata_data();
    void oggettoDellAssociata();
    void valore_data();
    void valore();
    void ivaDifferita_data();
    void ivaDifferita();
    void iban_data();
    void iban();
    void laFatturaDiAccontoSiStampaUguale_data();
    void laFatturaDiAccontoSiStampaUguale();

    void formaDelleTabelle();
    void accontiNonEsposti();
    void accontiInLireUnoPerUno();
    void accontiDellAssociataRimossa();
    void percentualiAZero();
    void importiEsenti_data();
    void importiEsenti();
    void nettoNegativo();
    void senzaRitenuta();
    void regime_data();
    void regime();

private:
    documenti::DataFissa Oggi{QDate(2014, 1, 10)};
};
PROVA(TestFatture);

namespace {

using campioni::TabellaDi;
using campioni::TestiBlocchi;
using campioni::TestiRiga;
using documenti::ComeSta;
using documenti::Completa;
using documenti::Composto;

constexpr int Prestazioni = 1;  // tables of the short invoice, behind the head
constexpr int Riepilogo = 2;

/// A single fee, all four percentages, both documents chosen from the list.
Parcella UnOnorario(double Euro)
{
    Parcella Nota = Completa(campioni::Vuota());
    campioni::ApplicaTutte(Nota);
    campioni::AggiungiOnorario(Nota.xOnorari, u"Consulenza"_s, 1.0, Euro);
    return Nota;
}

/// The rows of a table as "cell|cell|cell".
QStringList RigheDi(const Tabella& Una)
{
    QStringList Righe;
    for (int Riga = 0; Riga < static_cast<int>(Una.Righe.size()); ++Riga)
        Righe += TestiRiga(Una, Riga).join(u'|');
    return Righe;
}

QStringList RigheSintetica(const Parcella& Nota, int Quale)
{
    return RigheDi(TabellaDi(Composto(Nota, StampaFatturaSintetica), Quale));
}

void RigheFatture()
{
    QTest::addColumn<int>("Tipo");
    QTest::newRow("sintetica") << int(StampaFatturaSintetica);
    QTest::newRow("analitica") << int(StampaFatturaAnalitica);
}

}  // namespace

void TestFatture::init()
{
    campioni::ImpostaStudio();
}

// ---- head and foot

void TestFatture::numero_data()
{
    QTest::addColumn<QString>("Numero");
    QTest::addColumn<QString>("Data");
    QTest::addColumn<QString>("Riga");
    const QString Posto(15, u' ');
    QTest::newRow("numero e data") << u"7"_s << u"30/12/2013"_s << u"Fattura N° 7/2014 del 30/12/2013"_s;
    QTest::newRow("spazi attorno") << u" 7 bis "_s << QString() << u"Fattura N° 7 bis/2014 del "_s;
    QTest::newRow("senza numero: posto e nessun anno")
        << QString() << u"30/12/2013"_s << u"Fattura N° "_s + Posto + u" del 30/12/2013"_s;
    QTest::newRow("solo spazi") << u"  "_s << QString() << u"Fattura N° "_s + Posto + u" del "_s;
}

void TestFatture::numero()
{
    QFETCH(QString, Numero);
    QFETCH(QString, Data);
    Parcella Nota = campioni::Civile();
    Nota.txtDatiPar[DatoNumFatt] = Numero;
    Nota.txtDatiPar[DatoDataFatt] = Data;
    for (const int Tipo : {StampaFatturaSintetica, StampaFatturaAnalitica}) {
        const QStringList Testi = TestiBlocchi(Composto(Nota, Tipo));
        QCOMPARE(Testi.value(1), QString());  // behind the head
        QTEST(Testi.value(2), "Riga");
    }
}

void TestFatture::lAnnoEDiOggi()
{
    const documenti::DataFissa Capodanno(QDate(2015, 1, 1));
    QCOMPARE(TestiBlocchi(Composto(Completa(campioni::Civile()), StampaFatturaAnalitica)).value(2),
             u"Fattura N° 45/2015 del 30/12/2013"_s);
}

void TestFatture::oggettoAncheVuoto()
{
    Parcella Nota = Completa(campioni::Civile());
    Nota.txtDatiStaOgg.Testo.clear();
    for (const int Tipo : {StampaFatturaSintetica, StampaFatturaAnalitica})
        QVERIFY(TestiBlocchi(Composto(Nota, Tipo)).contains(u"Oggetto: "_s));
}

void TestFatture::oggettoDellAssociata_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Associata");
    QTest::addColumn<QString>("Oggetto");
    QTest::addColumn<bool>("Esposto");
    QTest::newRow("sintetica") << int(StampaFatturaSintetica) << u"altra"_s << u"difesa"_s << true;
    QTest::newRow("analitica: lo dicono le sezioni")
        << int(StampaFatturaAnalitica) << u"altra"_s << u"difesa"_s << false;
    QTest::newRow("associazione rimossa") << int(StampaFatturaSintetica) << QString() << u"difesa"_s << false;
    QTest::newRow("senza oggetto") << int(StampaFatturaSintetica) << u"altra"_s << QString() << false;
}

void TestFatture::oggettoDellAssociata()
{
    QFETCH(int, Tipo);
    QFETCH(QString, Associata);
    QFETCH(QString, Oggetto);
    Parcella Nota = Completa(campioni::ConAssociata(true));
    Nota.txtParcMultipla = Associata;
    Nota.Multi.OggettoMulti = Oggetto;
    const QStringList Testi = TestiBlocchi(Composto(Nota, Tipo));
    QTEST(Testi.contains(u"   "_s + Oggetto), "Esposto");
}

void TestFatture::valore_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Categoria");
    QTest::addColumn<QString>("Associata");
    QTest::addColumn<QString>("Riga");
    QTest::newRow("analitica") << int(StampaFatturaAnalitica) << u"CIV"_s << QString()
                               << u"Valore: 30.000,00 €"_s;
    QTest::newRow("sintetica: mai") << int(StampaFatturaSintetica) << u"CIV"_s << QString() << QString();
    QTest::newRow("penale") << int(StampaFatturaAnalitica) << u"PEN"_s << QString() << QString();
    QTest::newRow("con la nota associata")
        << int(StampaFatturaAnalitica) << u"CIV"_s << u"altra"_s << QString();
}

void TestFatture::valore()
{
    QFETCH(int, Tipo);
    QFETCH(QString, Categoria);
    QFETCH(QString, Associata);
    Parcella Nota = Completa(campioni::Civile());
    Nota.CodCateg = Categoria;
    Nota.txtParcMultipla = Associata;
    Nota.Multi.CategMulti = u"Penale"_s;
    QTEST(TestiBlocchi(Composto(Nota, Tipo)).filter(u"Valore: "_s).join(u'|'), "Riga");
}

void TestFatture::ivaDifferita_data()
{
    RigheFatture();
}

void TestFatture::ivaDifferita()
{
    QFETCH(int, Tipo);
    const QString Frase =
        u"N.B. fattura con i.v.a. per cassa ai sensi dell'art. 32-bis del D.L. n. 83 del 22/6/2012."_s;
    Parcella Nota = Completa(campioni::Civile());
    QCOMPARE(TestiBlocchi(Composto(Nota, Tipo)).count(Frase), 0);
    Nota.chkIvaDiff.Attiva = true;
    const QStringList Testi = TestiBlocchi(Composto(Nota, Tipo));
    QCOMPARE(Testi.count(Frase), 1);
    const qsizetype Posto = Testi.indexOf(Frase);
    QCOMPARE(Testi.mid(Posto - 3, 3), (QStringList{u"#"_s, QString(), QString()}));
}

void TestFatture::iban_data()
{
    documenti::RighePerTipo();
}

void TestFatture::iban()
{
    QFETCH(int, Tipo);
    Parcella Nota = Completa(campioni::Civile());
    Nota.chkIBAN.Attiva = true;
    const bool Esposto =
        Tipo == StampaPrenotula || Tipo == StampaFatturaSintetica || Tipo == StampaFatturaAnalitica;
    QCOMPARE(TestiBlocchi(Composto(Nota, Tipo)).filter(u"IT60X0542811101000000123456"_s).size(),
             Esposto ? 1 : 0);
}

void TestFatture::laFatturaDiAccontoSiStampaUguale_data()
{
    RigheFatture();
}

void TestFatture::laFatturaDiAccontoSiStampaUguale()
{
    QFETCH(int, Tipo);
    Parcella Nota = Completa(campioni::Civile());
    const QStringList Prima = TestiBlocchi(Composto(Nota, Tipo));
    Nota.chkFattAcc.Attiva = true;
    QCOMPARE(TestiBlocchi(Composto(Nota, Tipo)), Prima);
}

// ---- the tables of the short invoice

void TestFatture::formaDelleTabelle()
{
    const Documento Doc = Composto(Completa(campioni::Civile()), StampaFatturaSintetica);
    QCOMPARE(campioni::NumeroTabelle(Doc), 3);
    const Tabella Prima = TabellaDi(Doc, Prestazioni);
    QCOMPARE(Prima.LarghezzeCm, (std::vector<double>{9.0, 2.4, 2.4}));
    QCOMPARE(Prima.Bordo, 0);
    QCOMPARE(Prima.Righe[0][0].Allinea, Allineamento::Sinistra);
    for (const std::size_t Colonna : {std::size_t{1}, std::size_t{2}}) {
        QCOMPARE(Prima.Righe[0][Colonna].Allinea, Allineamento::Centro);
        QCOMPARE(Prima.Righe[1][Colonna].Allinea, Allineamento::Destra);
    }
    const Tabella Seconda = TabellaDi(Doc, Riepilogo);
    QCOMPARE(Seconda.LarghezzeCm, (std::vector<double>{2.0, 8.0, 2.4}));
    QCOMPARE(Seconda.Bordo, 0);
    QCOMPARE(Seconda.Righe.front()[0].Unione, 3);
    QCOMPARE(Seconda.Righe.front()[0].Testo.trimmed(), u"RIEPILOGO"_s);
    QCOMPARE(Seconda.Righe[1][1].Allinea, Allineamento::Sinistra);
    QCOMPARE(Seconda.Righe[1][2].Allinea, Allineamento::Destra);
    QCOMPARE(Seconda.Righe.back()[0].Unione, 3);
    QCOMPARE(Seconda.Righe.back()[0].Allinea, Allineamento::Destra);
}

void TestFatture::accontiNonEsposti()
{
    Parcella Nota = documenti::ScegliTipo(UnOnorario(1000), StampaFatturaSintetica);
    campioni::AggiungiAcconto(Nota.xAcconti, u"Acconto"_s, u"E"_s, 300.0);
    QVERIFY(Nota.chkAcconti.Attiva);  // the document lists them by itself
    QVERIFY(RigheDi(TabellaDi(ComeSta(Nota, StampaFatturaSintetica), Prestazioni))
                .contains(u"Totali:|825,00|0"_s));

    // The total is the sum of what is read above it.
    Nota.chkAcconti.Attiva = false;
    const QStringList Righe = RigheDi(TabellaDi(ComeSta(Nota, StampaFatturaSintetica), Prestazioni));
    QCOMPARE(Righe.filter(u"Acconti"_s).size(), 0);
    QVERIFY(Righe.contains(u"Totali:|1.125,00|0"_s));
    QVERIFY(RigheDi(TabellaDi(ComeSta(Nota, StampaFatturaSintetica), Riepilogo))
                .contains(u"|Importi imponibili|1.125,00"_s));
}

void TestFatture::accontiInLireUnoPerUno()
{
    Parcella Nota = UnOnorario(1000);
    // 10 lire are 0,01 each; 20 together would still be 0,01.
    campioni::AggiungiAcconto(Nota.xAcconti, u"Spiccioli"_s, u"L"_s, 10.0, 10.0, 10.0);
    campioni::AggiungiAcconto(Nota.xAcconti, u"Nulla"_s, u"E"_s, 0.0);
    const QStringList Righe = RigheSintetica(Nota, Prestazioni);
    QVERIFY(Righe.contains(u" - Spiccioli|-0,02|-0,01"_s));
    QVERIFY(Righe.contains(u" - Nulla|-0|-0"_s));
    QCOMPARE(Righe.last(), u"Totali:|1.124,98|-0,01"_s);
}

void TestFatture::accontiDellAssociataRimossa()
{
    Parcella Nota = Completa(campioni::ConAssociata(true));
    QCOMPARE(RigheSintetica(Nota, Prestazioni).filter(u" - "_s), QStringList{u" - Fondo spese|-200,00|-0"_s});
    Nota.txtParcMultipla.clear();
    const QStringList Righe = RigheSintetica(Nota, Prestazioni);
    QCOMPARE(Righe.filter(u"Acconti"_s).size(), 0);
    QCOMPARE(Righe.last(), u"Totali:|5.062,50|0"_s);
}

void TestFatture::percentualiAZero()
{
    Parcella Nota = UnOnorario(1000);
    Nota.txtSpeGen.Testo = u"0"_s;
    Nota.txtCP.Testo.clear();
    Nota.txtIVA.Testo = u"nessuna"_s;
    Nota.txtRA.Testo = u"-20"_s;
    QCOMPARE(RigheSintetica(Nota, Prestazioni).filter(u"Spese generali"_s).size(), 0);
    QCOMPARE(RigheSintetica(Nota, Riepilogo).mid(1),
             (QStringList{u"|Importi imponibili|1.000,00"_s, u"||_________"_s,
                          u"|Totale fattura: euro|1.000,00"_s, u"(mille/00)||"_s}));
}

void TestFatture::importiEsenti_data()
{
    QTest::addColumn<double>("Spese");
    QTest::addColumn<QList<double>>("Acconti");
    QTest::addColumn<QString>("Riga");
    QTest::newRow("nessuno") << 0.0 << QList<double>{} << QString();
    QTest::newRow("da pagare") << 118.0 << QList<double>{}
                               << u"|Importi esenti, art. 15 d.p.r. 633/72|118,00"_s;
    QTest::newRow("pagati al centesimo, salvo il resto binario")
        << 0.3 << QList<double>{0.1, 0.2} << QString();
    QTest::newRow("pagati oltre") << 10.0 << QList<double>{15.0}
                                  << u"|Importi esenti, art. 15 d.p.r. 633/72|-5,00"_s;
}

void TestFatture::importiEsenti()
{
    QFETCH(double, Spese);
    QFETCH(QList<double>, Acconti);
    Parcella Nota = UnOnorario(1000);
    campioni::AggiungiSpesa(Nota.xDiritti, u"Bolli"_s, 1.0, 0.0, Spese);
    for (const double Euro : Acconti)
        campioni::AggiungiAcconto(Nota.xAcconti, u"Bolli"_s, u"E"_s, 0.0, 0.0, Euro);
    QTEST(RigheSintetica(Nota, Riepilogo).filter(u"Importi esenti"_s).join(QString()), "Riga");
}

void TestFatture::nettoNegativo()
{
    Parcella Nota = UnOnorario(1000);
    Nota.chkSpeseGen.Attiva = false;
    campioni::AggiungiAcconto(Nota.xAcconti, u"Acconto"_s, u"E"_s, 2437.5);
    QCOMPARE(RigheSintetica(Nota, Riepilogo).mid(1),
             (QStringList{u"|Importi imponibili|-1.437,50"_s, u"|Cassa previdenza avvocati 4%|-57,50"_s,
                          u"|I.V.A. 21%|-313,95"_s, u"||_________"_s, u"|Totale fattura: euro|-1.808,95"_s,
                          u"|Ritenuta d'acconto 20%|--287,50"_s, u"||_________"_s,
                          u"|Totale dovuto al netto della R/A: euro|-1.521,45"_s,
                          u"(menomillecinquecentoventuno/45)||"_s}));
}

void TestFatture::senzaRitenuta()
{
    Parcella Nota = UnOnorario(1000);
    Nota.chkRA.Attiva = false;
    const QStringList Righe = RigheSintetica(Nota, Riepilogo);
    QCOMPARE(Righe.filter(u"Ritenuta"_s).size(), 0);
    QCOMPARE(Righe.filter(u"al netto"_s).size(), 0);
    QCOMPARE(Righe.last(), u"(millequattrocentoquindici/70)||"_s);
}

void TestFatture::regime_data()
{
    RigheFatture();
}

void TestFatture::regime()
{
    QFETCH(int, Tipo);
    Parcella Nota = UnOnorario(1000);
    const QString Frase =
        u"(operazione effettuata ai sensi dell'art. 27, commi 1 e 2, D.L. 6 luglio 2011 n. 98;\n"
        u"prestazione non soggetta a ritenuta d'acconto ai sensi del comma 5.2 del Provvedimento\n"
        u"Agenzia delle entrate del 22.12.2011 n. 185820)"_s;
    QCOMPARE(TestiBlocchi(Composto(Nota, Tipo)).count(Frase), 0);
    // A regime that has only disabled VAT and withholding lets them drop out all the same.
    Nota = documenti::ScegliTipo(Nota, Tipo);
    Nota.chkRegSempl.Attiva = true;
    Nota.chkIva.Abilitata = false;
    Nota.chkRA.Abilitata = false;
    const Documento Doc = ComeSta(Nota, Tipo);
    QCOMPARE(TestiBlocchi(Doc).count(Frase), 1);
    const QStringList Righe = RigheDi(TabellaDi(Doc, campioni::NumeroTabelle(Doc) - 1));
    QCOMPARE(Righe.filter(u"I.V.A."_s).size(), 0);
    QCOMPARE(Righe.filter(u"Ritenuta"_s).size(), 0);
    QVERIFY(Righe.last().startsWith(u"(millecentosettanta/00)"_s));
}

#include "TestFatture.moc"
