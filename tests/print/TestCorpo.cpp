#include "supporto/guasti.h"
#include "supporto/prova.h"

#include "campioni.h"
#include "print/modCorpo.h"
#include "print/modTestata.h"

using namespace Qt::StringLiterals;

class TestCorpo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void colonne_data();
    void colonne();
    void laTriplaSoloSeEspostaEAbilitata_data();
    void laTriplaSoloSeEspostaEAbilitata();
    void righeDellaTabellaAperta();

    void intestazione();
    void indirizzoVuotoSenzaRighe();
    void codiciDelloStudio_data();
    void codiciDelloStudio();

    void titoloSezione_data();
    void titoloSezione();
    void titoloSezioneNumeraEScala();

    void senzaRigheNessunaTabella();
    void onorariSuTreColonne();
    void onorariConTripla();
    void formatoDelleTabelle();
    void quantita_data();
    void quantita();
    void testoAlPostoDellImporto();
    void spese();
    void totaliDellAssociata();

    void tabellaAcconti();
    void accontiMostrati_data();
    void accontiMostrati();
    void sommeDegliAcconti_data();
    void sommeDegliAcconti();

    void ordineDelleSezioni_data();
    void ordineDelleSezioni();
};
PROVA(TestCorpo);

namespace {

using campioni::TabellaDi;
using campioni::TestiBlocchi;
using campioni::TestiRiga;

/// What a block leaves on an empty document.
template <class F>
Documento Disegnato(F&& Blocco)
{
    Superficie vp;
    vp.StartDoc();
    std::forward<F>(Blocco)(vp);
    vp.EndDoc();
    return vp.Contenuto();
}

Documento Corpo(const Parcella& Nota, int Tipo = StampaPrenotula)
{
    return Disegnato([&](Superficie& vp) {
        StatoStampa Stato;
        StampaCorpo(vp, Stato, Nota, Tipo);
    });
}

Tabella Onorari(const Parcella& Nota)
{
    return TabellaDi(Disegnato([&](Superficie& vp) { StampaOnorari(vp, Nota, Nota.xOnorari, false); }), 0);
}

Tabella Spese(const Parcella& Nota)
{
    return TabellaDi(Disegnato([&](Superficie& vp) { StampaSpese(vp, Nota, Nota.xDiritti, false); }), 0);
}

Tabella Intestazione(const Parcella& Nota = campioni::Civile())
{
    return TabellaDi(Disegnato([&](Superficie& vp) { IntestazioneStudio(vp, Nota, StampaPrenotula); }), 0);
}

DescrColonna Colonna(const QString& Titolo, const QString& Larghezza, Allineamento Come, int Punti, int Campo)
{
    return {Titolo, Larghezza, Come, u"Times New Roman"_s, Punti, false, false, Campo};
}

}  // namespace

void TestCorpo::init()
{
    campioni::ImpostaStudio();
}

// ---- columns

void TestCorpo::colonne_data()
{
    using Colonne = std::vector<DescrColonna>;
    constexpr auto Sinistra = Allineamento::Sinistra;
    constexpr auto Destra = Allineamento::Destra;
    QTest::addColumn<int>("Quale");
    QTest::addColumn<bool>("MinMax");
    QTest::addColumn<Colonne>("Attese");

    const Colonne Tre{Colonna(u"ONORARI"_s, u"9cm"_s, Sinistra, 10, 1), Colonna({}, u"1cm"_s, Sinistra, 9, 2),
                      Colonna(u"Importo"_s, u"1.8cm"_s, Destra, 9, 3)};
    Colonne Quattro = Tre;
    Quattro.push_back(Colonna(u"(Medio-Minimo-Massimo)"_s, u"5.5cm"_s, Allineamento::Centro, 9, 5));
    QTest::newRow("onorari") << 1 << false << Tre;
    QTest::newRow("onorari con la tripla") << 1 << true << Quattro;
    QTest::newRow("spese, mai con la tripla")
        << 2 << true
        << Colonne{Colonna(u"SPESE"_s, u"9cm"_s, Sinistra, 10, 1), Colonna({}, u"1cm"_s, Sinistra, 9, 2),
                   Colonna(u"Imponibile"_s, u"1.8cm"_s, Destra, 9, 3),
                   Colonna(u"Esente"_s, u"1.8cm"_s, Destra, 9, 4)};
    QTest::newRow("acconti") << 3 << true
                             << Colonne{Colonna(u"ACCONTI"_s, u"10cm"_s, Sinistra, 10, 0),
                                        Colonna(u"Corrispett."_s, u"1.8cm"_s, Destra, 9, 2),
                                        Colonna(u"Spese imp."_s, u"1.8cm"_s, Destra, 9, 3),
                                        Colonna(u"Sp.esenti"_s, u"1.8cm"_s, Destra, 9, 4)};
}

void TestCorpo::colonne()
{
    QFETCH(int, Quale);
    QFETCH(bool, MinMax);
    QFETCH(std::vector<DescrColonna>, Attese);
    Parcella Nota;
    Nota.chkMinMax.Attiva = MinMax;
    QVERIFY(PreparaColonne(Nota, TabellaStampa(Quale)) == Attese);
}

void TestCorpo::laTriplaSoloSeEspostaEAbilitata_data()
{
    QTest::addColumn<bool>("Attiva");
    QTest::addColumn<bool>("Abilitata");
    QTest::addColumn<int>("Colonne");
    QTest::newRow("esposta") << true << true << 4;
    QTest::newRow("non esposta") << false << true << 3;
    QTest::newRow("disabilitata da contratto e informativa") << true << false << 3;
}

void TestCorpo::laTriplaSoloSeEspostaEAbilitata()
{
    QFETCH(bool, Attiva);
    QFETCH(bool, Abilitata);
    Parcella Nota = campioni::Stragiudiziale();
    Nota.chkMinMax = {Attiva, Abilitata};
    const Tabella Una = Onorari(Nota);
    QTEST(int(Una.LarghezzeCm.size()), "Colonne");
    // Rule and total keep the column of the amounts.
    QCOMPARE(TestiRiga(Una, 4).value(2), u"________"_s);
    QCOMPARE(TestiRiga(Una, 5).value(2), u"5.500,00"_s);
}

void TestCorpo::righeDellaTabellaAperta()
{
    Superficie vp;
    QVERIFY(NumeroErrore([&] { AggiungiRigaTab(vp); }) != 0);
    vp.StartTable();
    vp.TableCell(AttrTabella::Colonne, QVariant(1));
    QCOMPARE(AggiungiRigaTab(vp), 1);
    QCOMPARE(AggiungiRigaTab(vp), 2);
    QCOMPARE(vp.TableCell(AttrTabella::Righe).toInt(), 2);
}

// ---- office head

void TestCorpo::intestazione()
{
    const Tabella Testa = Intestazione();
    QCOMPARE(Testa.LarghezzeCm, (std::vector<double>{8.0, 0.5, 9.5}));
    QCOMPARE(Testa.Bordo, 0);
    QCOMPARE(int(Testa.Righe.size()), 2);
    QCOMPARE(TestiRiga(Testa, 0),
             (QStringList{u"Avv. Giulia Neri\nVia Roma 12\n20121 Milano (MI)"_s, QString(), QString()}));
    QCOMPARE(TestiRiga(Testa, 1), (QStringList{u"C.F. NREGLI70A41F205X\nP.I. 01234567890"_s, QString(),
                                               u"Mario Rossi\nVia Verdi 3\n20100 Milano"_s}));
    QCOMPARE(Testa.Righe[0][0].Font, (Carattere{u"Times New Roman"_s, 12.0}));
    QCOMPARE(Testa.Righe[1][0].Font, (Carattere{u"Times New Roman"_s, 10.0}));
    QCOMPARE(Testa.Righe[1][2].Font, (Carattere{u"Times New Roman"_s, 12.0}));
    QCOMPARE(Testa.Righe[0][0].Allinea, Allineamento::AltoSinistra);
    QCOMPARE(Testa.Righe[1][2].Allinea, Allineamento::AltoSinistra);
}

void TestCorpo::indirizzoVuotoSenzaRighe()
{
    sessione::StudioIndir.clear();
    QCOMPARE(TestiRiga(Intestazione(), 0).value(0), u"Avv. Giulia Neri\n20121 Milano (MI)"_s);
    sessione::StudioCitta.clear();
    QCOMPARE(TestiRiga(Intestazione(), 0).value(0), u"Avv. Giulia Neri"_s);
}

void TestCorpo::codiciDelloStudio_data()
{
    QTest::addColumn<QString>("CodFisc");
    QTest::addColumn<QString>("PIva");
    QTest::addColumn<QString>("Cella");
    QTest::newRow("tutti e due") << u"ABC"_s << u"123"_s << u"C.F. ABC\nP.I. 123"_s;
    QTest::newRow("solo partita iva") << QString() << u"123"_s << u"P.I. 123"_s;
    QTest::newRow("solo codice fiscale") << u"ABC"_s << QString() << u"C.F. ABC\n"_s;
    QTest::newRow("nessuno") << QString() << QString() << QString();
}

void TestCorpo::codiciDelloStudio()
{
    QFETCH(QString, CodFisc);
    QFETCH(QString, PIva);
    sessione::StudioCodFisc = CodFisc;
    sessione::StudioPIva = PIva;
    QTEST(TestiRiga(Intestazione(), 1).value(0), "Cella");
}

// ---- section titles

void TestCorpo::titoloSezione_data()
{
    QTest::addColumn<QString>("Categ");
    QTest::addColumn<QStringList>("Righe");
    QTest::newRow("civile") << u"Civile o Amministrativa"_s
                            << QStringList{u"1) Prestazioni in materia: Civile o Amministrativa"_s,
                                           u"Autorità: Tribunale"_s, u"Valore: 10,00 €"_s, QString()};
    QTest::newRow("penale: senza valore")
        << u"Penale"_s
        << QStringList{u"1) Prestazioni in materia: Penale"_s, u"Autorità: Tribunale"_s, QString()};
    QTest::newRow("stragiudiziale: senza autorità")
        << u"STRAGIUDIZIALE"_s
        << QStringList{u"1) Prestazioni in materia: STRAGIUDIZIALE"_s, u"Valore: 10,00 €"_s, QString()};
    QTest::newRow("senza categoria") << QString()
                                     << QStringList{u"1) Prestazioni in materia: "_s,
                                                    u"Autorità: Tribunale"_s, u"Valore: 10,00 €"_s,
                                                    QString()};
}

void TestCorpo::titoloSezione()
{
    QFETCH(QString, Categ);
    StatoStampa Stato;
    const Documento Doc =
        Disegnato([&](Superficie& vp) { TitoloSezione(vp, Stato, Categ, u"Tribunale"_s, u"10,00 €"_s); });
    QTEST(TestiBlocchi(Doc), "Righe");
}

void TestCorpo::titoloSezioneNumeraEScala()
{
    StatoStampa Stato;
    const Documento Doc = Disegnato([&](Superficie& vp) {
        TitoloSezione(vp, Stato, u"Penale"_s, u"Tribunale"_s, {});
        TitoloSezione(vp, Stato, u"Penale"_s, u"Tribunale"_s, {});
    });
    QCOMPARE(Stato.ContaSezioni, 2);
    QCOMPARE(TestiBlocchi(Doc).value(3), u"2) Prestazioni in materia: Penale"_s);
    QCOMPARE(std::get<Paragrafo>(Doc.Blocchi[3]).Tratti[0].Font.Punti, 12.0);
    QCOMPARE(std::get<Paragrafo>(Doc.Blocchi[4]).Tratti[0].Font.Punti, 10.0);
}

// ---- fees and expenses

void TestCorpo::senzaRigheNessunaTabella()
{
    QVERIFY(Corpo(campioni::Vuota()).Blocchi.empty());
    Parcella SoloSpese = campioni::Penale();
    SoloSpese.xOnorari.Azzera(OnoColonne);
    const Documento Doc = Corpo(SoloSpese);
    QCOMPARE(campioni::NumeroTabelle(Doc), 1);
    QCOMPARE(TestiRiga(TabellaDi(Doc, 0), 0).value(0), u"SPESE"_s);
}

void TestCorpo::onorariSuTreColonne()
{
    const Tabella Una = Onorari(campioni::Civile());
    const QStringList Vuota{QString(), QString(), QString()};
    QCOMPARE(int(Una.Righe.size()), 9);
    QCOMPARE(TestiRiga(Una, 0), (QStringList{u"ONORARI"_s, QString(), u"Importo"_s}));
    QCOMPARE(TestiRiga(Una, 1), Vuota);
    QCOMPARE(TestiRiga(Una, 2), (QStringList{u"Fase di studio"_s, u"n. 1"_s, u"1.200,00"_s}));
    QCOMPARE(TestiRiga(Una, 6), (QStringList{QString(), QString(), u"________"_s}));
    QCOMPARE(TestiRiga(Una, 7), (QStringList{QString(), QString(), u"4.500,00"_s}));
    QCOMPARE(TestiRiga(Una, 8), Vuota);
}

void TestCorpo::onorariConTripla()
{
    const Tabella Una = Onorari(campioni::Stragiudiziale());
    QCOMPARE(TestiRiga(Una, 0).value(3), u"(Medio-Minimo-Massimo)"_s);
    QCOMPARE(TestiRiga(Una, 2), (QStringList{u"Consulenza scritta"_s, u"n. 1"_s, u"2.000,00"_s,
                                             u"(2.000,00-1.000,00-4.000,00)"_s}));
    QCOMPARE(TestiRiga(Una, 4),
             (QStringList{QString(), QString(), u"________"_s, u"________________________"_s}));
    QCOMPARE(TestiRiga(Una, 5),
             (QStringList{QString(), QString(), u"5.500,00"_s, u"(5.500,00-2.750,00-11.000,00)"_s}));
}

void TestCorpo::formatoDelleTabelle()
{
    const Documento Doc = Corpo(campioni::Stragiudiziale());
    QCOMPARE(campioni::NumeroTabelle(Doc), 3);
    const std::vector<std::vector<double>> Larghezze{
        {9.0, 1.0, 1.8, 5.5}, {9.0, 1.0, 1.8, 1.8}, {10.0, 1.8, 1.8, 1.8}};
    for (int Quale = 0; Quale < 3; ++Quale) {
        const Tabella Una = TabellaDi(Doc, Quale);
        QCOMPARE(Una.LarghezzeCm, Larghezze[std::size_t(Quale)]);
        QCOMPARE(Una.Bordo, 0);
        for (const std::vector<Cella>& Riga : Una.Righe) {  // headings and totals as the lines
            QCOMPARE(Riga[0].Font, (Carattere{u"Times New Roman"_s, 10.0}));
            QCOMPARE(Riga[2].Font, (Carattere{u"Times New Roman"_s, 9.0}));
            QCOMPARE(Riga[0].Allinea, Allineamento::Sinistra);
            QCOMPARE(Riga[2].Allinea, Allineamento::Destra);
        }
    }
    QCOMPARE(TabellaDi(Doc, 0).Righe[2][3].Allinea, Allineamento::Centro);
}

void TestCorpo::quantita_data()
{
    QTest::addColumn<QVariant>("Quantita");
    QTest::addColumn<QString>("Cella");
    QTest::newRow("intera") << QVariant(3) << u"n. 3"_s;
    QTest::newRow("decimale") << QVariant(2.5) << u"n. 2,5"_s;
    QTest::newRow("testo di un numero") << QVariant(u"4"_s) << u"n. 4"_s;
    QTest::newRow("zero") << QVariant(0.0) << QString();
    QTest::newRow("negativa") << QVariant(-1) << QString();
    QTest::newRow("nessuna") << QVariant() << QString();
    QTest::newRow("altro testo") << QVariant(u"molte"_s) << QString();
}

void TestCorpo::quantita()
{
    QFETCH(QVariant, Quantita);
    Parcella Nota;
    campioni::AggiungiOnorario(Nota.xOnorari, u"Voce"_s, Quantita, 1.0);
    campioni::AggiungiSpesa(Nota.xDiritti, u"Voce"_s, Quantita, 1.0, 0.0);
    QTEST(TestiRiga(Onorari(Nota), 2).value(1), "Cella");
    QTEST(TestiRiga(Spese(Nota), 2).value(1), "Cella");
}

void TestCorpo::testoAlPostoDellImporto()
{
    Parcella Nota;
    campioni::AggiungiOnorario(Nota.xOnorari, u"Voce"_s, 1, 100.0);
    Nota.xOnorari(0, OnoImporto) = u"gratis"_s;
    const Tabella Una = Onorari(Nota);
    QCOMPARE(TestiRiga(Una, 2).value(2), u"0"_s);
    QCOMPARE(TestiRiga(Una, 4).value(2), u"0"_s);
}

void TestCorpo::spese()
{
    const Tabella Una = Spese(campioni::Penale());
    QCOMPARE(int(Una.Righe.size()), 7);
    QCOMPARE(TestiRiga(Una, 0), (QStringList{u"SPESE"_s, QString(), u"Imponibile"_s, u"Esente"_s}));
    QCOMPARE(TestiRiga(Una, 2), (QStringList{u"Diritti di copia"_s, u"n. 3"_s, u"25,50"_s, u"0"_s}));
    QCOMPARE(TestiRiga(Una, 3), (QStringList{u"Marche da bollo"_s, QString(), u"0"_s, u"16,00"_s}));
    QCOMPARE(TestiRiga(Una, 4), (QStringList{QString(), QString(), u"________"_s, u"________"_s}));
    QCOMPARE(TestiRiga(Una, 5), (QStringList{QString(), QString(), u"25,50"_s, u"16,00"_s}));
    QCOMPARE(TestiRiga(Una, 6), (QStringList{QString(), QString(), QString(), QString()}));
}

void TestCorpo::totaliDellAssociata()
{
    Parcella Nota = campioni::ConAssociata(true);
    Nota.Multi.TotOnorariMulti = 901.0;  // as it was read, whatever the copied lines sum to
    Nota.Multi.TotSpeseImpMulti = 13.3;
    Nota.Multi.TotSpeseEsentiMulti = 6.0;
    const Documento Doc = Disegnato([&](Superficie& vp) {
        StampaOnorari(vp, Nota, Nota.Multi.xOnorariMulti, true);
        StampaSpese(vp, Nota, Nota.Multi.xDirittiMulti, true);
    });
    QCOMPARE(TestiRiga(TabellaDi(Doc, 0), 4).value(2), u"901,00"_s);
    QCOMPARE(TestiRiga(TabellaDi(Doc, 1), 4), (QStringList{QString(), QString(), u"13,30"_s, u"6,00"_s}));
}

// ---- payments

void TestCorpo::tabellaAcconti()
{
    Parcella Nota = campioni::ConAssociata(true);
    campioni::AggiungiAcconto(Nota.xAcconti, u"Bonifico"_s, u"E"_s, 100.0, 20.0, 3.0);
    const Documento Doc = Corpo(Nota);
    const Tabella Una = TabellaDi(Doc, campioni::NumeroTabelle(Doc) - 1);
    QCOMPARE(int(Una.Righe.size()), 6);
    QCOMPARE(TestiRiga(Una, 0),
             (QStringList{u"ACCONTI"_s, u"Corrispett."_s, u"Spese imp."_s, u"Sp.esenti"_s}));
    QCOMPARE(TestiRiga(Una, 1), (QStringList{QString(), QString(), QString(), QString()}));
    QCOMPARE(TestiRiga(Una, 2), (QStringList{u"Bonifico"_s, u"100,00"_s, u"20,00"_s, u"3,00"_s}));
    QCOMPARE(TestiRiga(Una, 3), (QStringList{u"Fondo spese"_s, u"200,00"_s, u"0"_s, u"0"_s}));
    QCOMPARE(TestiRiga(Una, 4), (QStringList{QString(), u"________"_s, u"________"_s, u"________"_s}));
    QCOMPARE(TestiRiga(Una, 5), (QStringList{QString(), u"300,00"_s, u"20,00"_s, u"3,00"_s}));
}

void TestCorpo::accontiMostrati_data()
{
    QTest::addColumn<bool>("Attiva");
    QTest::addColumn<bool>("Abilitata");
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QString>("Associata");
    QTest::addColumn<bool>("Propri");
    QTest::addColumn<int>("RigheTabella");
    QTest::newRow("propri") << true << true << 0 << QString() << true << 5;
    QTest::newRow("solo dell'associata") << true << true << 0 << u"altra"_s << false << 5;
    QTest::newRow("propri e dell'associata") << true << true << 7 << u"altra"_s << true << 6;
    QTest::newRow("associata tolta: i suoi non contano") << true << true << 0 << QString() << false << 0;
    QTest::newRow("non esposti") << false << true << 0 << QString() << true << 0;
    QTest::newRow("disabilitati") << true << false << 0 << QString() << true << 0;
    QTest::newRow("nota giudiziale") << true << true << 4 << u"altra"_s << true << 0;
}

void TestCorpo::accontiMostrati()
{
    QFETCH(bool, Attiva);
    QFETCH(bool, Abilitata);
    QFETCH(int, Tipo);
    QFETCH(QString, Associata);
    QFETCH(bool, Propri);
    Parcella Nota;
    Nota.chkAcconti = {Attiva, Abilitata};
    Nota.txtParcMultipla = Associata;
    Nota.Multi.CategMulti = u"Penale"_s;
    campioni::AggiungiAcconto(Nota.Multi.xAccontiMulti, u"Fondo spese"_s, u"L"_s, 387254.0);
    if (Propri)
        campioni::AggiungiAcconto(Nota.xAcconti, u"Bonifico"_s, u"E"_s, 100.0);
    QTEST(int(TabellaDi(Corpo(Nota, Tipo), 0).Righe.size()), "RigheTabella");
}

void TestCorpo::sommeDegliAcconti_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<bool>("Esposti");
    QTest::addColumn<double>("Corrispettivi");
    QTest::newRow("esposti") << 0 << true << 2000.0;
    QTest::newRow("non esposti: riducono lo stesso") << 0 << false << 2000.0;
    QTest::newRow("nota giudiziale") << 4 << true << 0.0;
}

void TestCorpo::sommeDegliAcconti()
{
    QFETCH(int, Tipo);
    QFETCH(bool, Esposti);
    Parcella Nota = campioni::Stragiudiziale();
    Nota.chkAcconti.Attiva = Esposti;
    Superficie vp;
    StatoStampa Stato;
    Stato.Acconti = {7.0, 7.0, 7.0};  // what an earlier table left
    StampaCorpo(vp, Stato, Nota, Tipo);
    QTEST(Stato.Acconti.AccontiCorrispettivi, "Corrispettivi");
    QCOMPARE(Stato.Acconti.AccontiSpeseImp, Tipo == StampaNotaGiudiziale ? 0.0 : 100.0);
    QCOMPARE(Stato.Acconti.AccontiSpeseEsenti, Tipo == StampaNotaGiudiziale ? 0.0 : 50.0);
}

// ---- order of the sections

void TestCorpo::ordineDelleSezioni_data()
{
    QTest::addColumn<bool>("Prima");
    QTest::addColumn<bool>("Parametri");
    QTest::addColumn<QString>("Ordine");
    QTest::newRow("anteponi, parametri esposti")
        << true << true << u"1) Penale;900,00;2) Civile o Amministrativa;4.500,00"_s;
    QTest::newRow("anteponi") << true << false << u"1) Penale;900,00;4.500,00"_s;
    QTest::newRow("aggiungi, parametri esposti")
        << false << true << u"1) Civile o Amministrativa;4.500,00;2) Penale;900,00"_s;
    QTest::newRow("aggiungi") << false << false << u"4.500,00;1) Penale;900,00"_s;
}

void TestCorpo::ordineDelleSezioni()
{
    QFETCH(bool, Prima);
    QFETCH(bool, Parametri);
    Parcella Nota = campioni::ConAssociata(Prima);
    Nota.chkMultiParam = Parametri;
    Nota.Multi.CategMulti = u"Penale"_s;
    Nota.Multi.xDirittiMulti.Azzera(DirColonne);
    Nota.chkAcconti.Attiva = false;

    // Titles in short, and the total of each table of fees.
    QStringList Ordine;
    const Documento Doc = Corpo(Nota);
    for (const BloccoDocumento& Uno : Doc.Blocchi) {
        if (const auto* Una = std::get_if<Tabella>(&Uno))
            Ordine += TestiRiga(*Una, int(Una->Righe.size()) - 2).value(2);
        else if (const QString Testo = std::get<Paragrafo>(Uno).Testo(); Testo.contains(u") Prestazioni"_s))
            Ordine += QString(Testo).remove(u"Prestazioni in materia: "_s);
    }
    QTEST(Ordine.join(u';'), "Ordine");
}

#include "TestCorpo.moc"
