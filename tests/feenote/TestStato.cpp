// The state of a note: which event leads where, what a document that has gone out leaves behind.
#include "nota_prova.h"
#include "notadamille.h"

#include "feenote/modAcconti.h"
#include "feenote/modDatiStampa.h"
#include "feenote/modDuplica.h"
#include "feenote/modFatturaXml.h"
#include "feenote/modStato.h"
#include "platform/system/orologio.h"

#include <functional>

using namespace Qt::StringLiterals;
using enum StatoNota;

namespace {

using Atto = std::function<void(Parcella&, Copertura&)>;

Parcella Nota()
{
    return NotaDaMille(StampaPrenotula);
}
constexpr double Netto = 1459.12;

void Numera(Parcella& Nota)
{
    Nota.txtDatiPar[DatoNumFatt] = u"12"_s;
    Nota.txtDatiPar[DatoDataFatt] = u"10/11/2026"_s;
}

/// Payments of fees and general expenses: nothing is left of the net.
void Salda(Parcella& Nota, double Quanto = 1150)
{
    const int Riga = NuovoAcconto(Nota);
    Nota.xAcconti(Riga, AccCorrispettivi) = Quanto;
}

void Stampa(Parcella& Nota, int Tipo)
{
    ScegliTipoStampa(Nota, Tipo);
    (void)NotaInviata(Nota, Tipo);
}

void InStato(Parcella& Nota, Copertura& Vista, const QString& Quale)
{
    if (Quale == u"ignoto")
        Nota.Stato = {};
    else if (Quale == u"inviata")
        Stampa(Nota, StampaPrenotula);
    else if (Quale != u"bozza") {
        Numera(Nota);
        if (Quale != u"pagata a mano")
            Stampa(Nota, StampaFatturaAnalitica);
        if (Quale == u"pagata a mano")
            (void)ScegliStato(Nota, Pagata);
        else if (Quale == u"pagata")
            Salda(Nota);
    }
    (void)SegueStato(Nota, Vista);
}

}  // namespace

class TestStato : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { InstallaOrologio({}); }
    void passaggi_data();
    void passaggi();
    void giorni();
    void laSceltaReggeFinoAlSeguente();
    void pagamenti_data();
    void pagamenti();
    void ilNumeroVaETorna();
    void importiDelDocumentoUscito();
    void documentoCheNonSostituisce();
    void copiaDiUnaPagata();
    void restoMaiSottoZero();
    void notaGiudizialeInVista();
    void ilFileElettronico();
    void laNotaDiCredito();
    void sceltaPerSbaglio();
    void pagamentiPrimaEDopo();
    void documentoSceltoAMano();
    void duplicata();
    void nomi();
};
PROVA(TestStato);

void TestStato::init()
{
    AzzeraSessione();
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
}

void TestStato::passaggi_data()
{
    QTest::addColumn<QString>("Da");
    QTest::addColumn<QString>("Che");
    QTest::addColumn<StatoNota>("A");
    const QStringList Stati{u"ignoto"_s,    u"bozza"_s,  u"inviata"_s,
                            u"fatturata"_s, u"pagata"_s, u"pagata a mano"_s};
    struct Riga
    {
        QString Che;
        std::array<StatoNota, 6> A;
    };
    const std::array Righe{
        Riga{u"prenotula"_s, {Inviata, Inviata, Inviata, Fatturata, Pagata, Pagata}},
        Riga{u"preventivo"_s, {Inviata, Inviata, Inviata, Fatturata, Pagata, Pagata}},
        Riga{u"nota spese giudiziale"_s, {Inviata, Inviata, Inviata, Fatturata, Pagata, Pagata}},
        Riga{u"contratto"_s, {Ignoto, Bozza, Inviata, Fatturata, Pagata, Pagata}},
        Riga{u"informativa"_s, {Ignoto, Bozza, Inviata, Fatturata, Pagata, Pagata}},
        Riga{u"nessun documento"_s, {Ignoto, Bozza, Inviata, Fatturata, Pagata, Pagata}},
        Riga{u"fattura senza numero"_s, {Inviata, Inviata, Inviata, Inviata, Pagata, Pagata}},
        Riga{u"fattura senza data"_s, {Inviata, Inviata, Inviata, Inviata, Pagata, Pagata}},
        Riga{u"fattura"_s, {Fatturata, Fatturata, Fatturata, Fatturata, Pagata, Pagata}},
        Riga{u"sintetica"_s, {Fatturata, Fatturata, Fatturata, Fatturata, Pagata, Pagata}},
        Riga{u"file elettronico"_s, {Fatturata, Fatturata, Fatturata, Fatturata, Pagata, Pagata}},
        Riga{u"saldo"_s, {Pagata, Pagata, Pagata, Pagata, Pagata, Pagata}},
        Riga{u"acconto"_s, {Ignoto, Bozza, Inviata, Fatturata, Pagata, Pagata}},
        Riga{u"acconto tolto"_s, {Ignoto, Bozza, Inviata, Fatturata, Fatturata, Pagata}},
        Riga{u"altra prestazione"_s, {Ignoto, Bozza, Inviata, Fatturata, Pagata, Pagata}},
        Riga{u"altra prestazione e saldo"_s, {Ignoto, Bozza, Pagata, Pagata, Pagata, Pagata}},
        Riga{u"numero tolto"_s, {Ignoto, Bozza, Inviata, Inviata, Pagata, Pagata}},
        Riga{u"a mano bozza"_s, {Bozza, Bozza, Bozza, Bozza, Bozza, Bozza}},
        Riga{u"a mano inviata"_s, {Inviata, Inviata, Inviata, Inviata, Inviata, Inviata}},
        Riga{u"a mano fatturata"_s, {Fatturata, Fatturata, Fatturata, Fatturata, Fatturata, Fatturata}},
        Riga{u"a mano pagata"_s, {Pagata, Pagata, Pagata, Pagata, Pagata, Pagata}},
    };
    for (const Riga& Una : Righe)
        for (qsizetype i = 0; i < Stati.size(); ++i)
            QTest::newRow(qPrintable(Una.Che + u", da "_s + Stati[i]))
                << Stati[i] << Una.Che << Una.A[size_t(i)];
}

void TestStato::passaggi()
{
    static const QMap<QString, Atto> Atti{
        {u"prenotula"_s, [](Parcella& N, Copertura&) { Stampa(N, StampaPrenotula); }},
        {u"preventivo"_s, [](Parcella& N, Copertura&) { Stampa(N, StampaPreventivo); }},
        {u"nota spese giudiziale"_s, [](Parcella& N, Copertura&) { Stampa(N, StampaNotaGiudiziale); }},
        {u"contratto"_s, [](Parcella& N, Copertura&) { Stampa(N, StampaContratto); }},
        {u"informativa"_s, [](Parcella& N, Copertura&) { Stampa(N, StampaInformativa); }},
        {u"nessun documento"_s, [](Parcella& N, Copertura&) { (void)NotaInviata(N, NessunaVoce); }},
        {u"fattura senza numero"_s,
         [](Parcella& N, Copertura& V) {
             N.txtDatiPar[DatoNumFatt] = u" "_s;
             N.txtDatiPar[DatoDataFatt] = u"10/11/2026"_s;
             Stampa(N, StampaFatturaAnalitica);
             (void)SegueStato(N, V);
         }},
        {u"fattura senza data"_s,
         [](Parcella& N, Copertura& V) {
             N.txtDatiPar[DatoNumFatt] = u"12"_s;
             N.txtDatiPar[DatoDataFatt] = u"32/13/26"_s;
             Stampa(N, StampaFatturaAnalitica);
             (void)SegueStato(N, V);
         }},
        {u"fattura"_s,
         [](Parcella& N, Copertura&) {
             Numera(N);
             Stampa(N, StampaFatturaAnalitica);
         }},
        {u"sintetica"_s,
         [](Parcella& N, Copertura&) {
             Numera(N);
             Stampa(N, StampaFatturaSintetica);
         }},
        {u"file elettronico"_s,
         [](Parcella& N, Copertura&) {
             Numera(N);
             SegnaFatturaScritta(N, u"IT1_1.xml"_s, u"1"_s);
         }},
        {u"saldo"_s, [](Parcella& N, Copertura&) { Salda(N); }},
        {u"acconto"_s, [](Parcella& N, Copertura&) { Salda(N, 10); }},
        {u"acconto tolto"_s, [](Parcella& N, Copertura&) { N.xAcconti.Azzera(AccColonne); }},
        {u"altra prestazione"_s,
         [](Parcella& N, Copertura&) { N.xOnorari(N.xOnorari.AggiungiRiga(), OnoImporto) = 50.0; }},
        {u"altra prestazione e saldo"_s,
         [](Parcella& N, Copertura&) {
             N.xOnorari(N.xOnorari.AggiungiRiga(), OnoImporto) = 600.0;
             Salda(N);
         }},
        {u"numero tolto"_s, [](Parcella& N, Copertura&) { N.txtDatiPar.remove(DatoNumFatt); }},
        {u"a mano bozza"_s, [](Parcella& N, Copertura&) { (void)ScegliStato(N, Bozza); }},
        {u"a mano inviata"_s, [](Parcella& N, Copertura&) { (void)ScegliStato(N, Inviata); }},
        {u"a mano fatturata"_s, [](Parcella& N, Copertura&) { (void)ScegliStato(N, Fatturata); }},
        {u"a mano pagata"_s, [](Parcella& N, Copertura&) { (void)ScegliStato(N, Pagata); }},
    };
    QFETCH(QString, Da);
    QFETCH(QString, Che);
    QFETCH(StatoNota, A);
    Parcella Prova = Nota();
    Copertura Vista;
    InStato(Prova, Vista, Da);
    Prova.Modificata = false;
    const StatoTenuto Era = Prova.Stato;
    Atti[Che](Prova, Vista);
    const bool Segnata = Prova.Modificata;
    const bool Seguita = SegueStato(Prova, Vista);
    QCOMPARE(Prova.Stato.Stato, A);
    if (Prova.Stato != Era)
        QVERIFY(Prova.Modificata && (Segnata || Seguita));
    // Asked once more nothing moves.
    QVERIFY(!SegueStato(Prova, Vista));
}

void TestStato::giorni()
{
    Parcella Prova = Nota();
    Copertura Vista;
    QCOMPARE(Prova.Stato.Dal(), QString());
    Stampa(Prova, StampaPrenotula);
    QCOMPARE(Prova.Stato.Dal(), u"22/11/2026"_s);
    InstallaOrologio([] { return QDateTime(QDate(2026, 12, 1), QTime(10, 0)); });
    Stampa(Prova, StampaPrenotula);  // a copy
    QCOMPARE(Prova.Stato.Dal(), u"22/11/2026"_s);
    Numera(Prova);
    Stampa(Prova, StampaFatturaAnalitica);
    QCOMPARE(Prova.Stato.Dal(), u"01/12/2026"_s);
    InstallaOrologio([] { return QDateTime(QDate(2026, 12, 20), QTime(10, 0)); });
    Salda(Prova);
    QVERIFY(SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Dal(), u"20/12/2026"_s);
    Prova.xAcconti.Azzera(AccColonne);
    QVERIFY(SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Stato, Fatturata);
    QCOMPARE(Prova.Stato.Dal(), u"01/12/2026"_s);
    QCOMPARE(Prova.Stato.Giorni[size_t(Pagata)], QString());
    QVERIFY(ScegliStato(Prova, Bozza));
    QCOMPARE(Prova.Stato.Dal(), u"20/12/2026"_s);
    QVERIFY(!ScegliStato(Prova, Bozza));
    QVERIFY(!ScegliStato(Prova, Ignoto));
}

void TestStato::laSceltaReggeFinoAlSeguente()
{
    Parcella Prova = Nota();
    Copertura Vista;
    InStato(Prova, Vista, u"pagata"_s);
    QCOMPARE(Prova.Stato.Stato, Pagata);
    // Though the payments cover the net, the choice holds until there is another one.
    QVERIFY(ScegliStato(Prova, Fatturata));
    QVERIFY(!SegueStato(Prova, Vista));
    Prova.xOnorari(0, OnoImporto) = 900.0;
    QVERIFY(!SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Stato, Fatturata);
    Salda(Prova, 1);
    QVERIFY(SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Stato, Pagata);
    // Chosen by hand it asks for no payment.
    QVERIFY(ScegliStato(Prova, Bozza));
    QVERIFY(ScegliStato(Prova, Pagata));
    Prova.xAcconti.Azzera(AccColonne);
    QVERIFY(!SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Stato, Pagata);
}

void TestStato::pagamenti_data()
{
    QTest::addColumn<double>("Corrispettivi");
    QTest::addColumn<double>("Esenti");
    QTest::addColumn<QString>("Valuta");
    QTest::addColumn<bool>("Coperta");
    QTest::newRow("a cent short") << 1149.99 << 27.0 << u"E"_s << false;
    QTest::newRow("exactly") << 1150.0 << 27.0 << u"E"_s << true;
    QTest::newRow("more than that") << 2000.0 << 27.0 << u"E"_s << true;
    QTest::newRow("without the exempt part") << 1150.0 << 0.0 << u"E"_s << false;
    QTest::newRow("lire") << 1150 * 1936.27 << 27 * 1936.27 << u"L"_s << true;
    QTest::newRow("as many lire as euro") << 1150.0 << 27.0 << u"L"_s << false;
    QTest::newRow("a row of nothing") << 0.0 << 0.0 << u"E"_s << false;
}

void TestStato::pagamenti()
{
    QFETCH(double, Corrispettivi);
    QFETCH(double, Esenti);
    QFETCH(QString, Valuta);
    QFETCH(bool, Coperta);
    for (const int Tipo : {int(NessunaVoce), int(StampaPrenotula), int(StampaFatturaSintetica),
                           int(StampaFatturaAnalitica), int(StampaNotaGiudiziale), int(StampaContratto)}) {
        Parcella Prova = Nota();
        if (Tipo >= 0)
            ScegliTipoStampa(Prova, Tipo);
        Prova.chkAcconti.Attiva = false;  // listed or not
        Prova.xDiritti.AggiungiRiga();
        Prova.xDiritti(0, DirEsente) = 27.0;
        const int Riga = NuovoAcconto(Prova);
        Prova.xAcconti(Riga, AccValuta) = Valuta;
        Prova.xAcconti(Riga, AccCorrispettivi) = Corrispettivi;
        Prova.xAcconti(Riga, AccSpeseEsenti) = Esenti;
        QCOMPARE(CoperturaDi(Prova).Coperta, Coperta);
    }
    Parcella Vuota = Nota();
    Vuota.xOnorari.Azzera(OnoColonne);
    Salda(Vuota);
    QVERIFY(!CoperturaDi(Vuota).Coperta);  // a note that asks for nothing is not paid
}

void TestStato::ilNumeroVaETorna()
{
    Parcella Prova = Nota();
    Copertura Vista;
    Stampa(Prova, StampaFatturaAnalitica);
    Numera(Prova);
    QVERIFY(!SegueStato(Prova, Vista));  // the number alone is no invoice
    QCOMPARE(Prova.Stato.Stato, Inviata);
    Stampa(Prova, StampaFatturaAnalitica);
    QCOMPARE(Prova.Stato.Stato, Fatturata);
    Prova.txtDatiPar[DatoNumFatt].clear();  // to be typed anew
    QVERIFY(SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Stato, Inviata);
    Prova.txtDatiPar[DatoNumFatt] = u"13"_s;
    QVERIFY(SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Stato, Fatturata);
    // Beneath a payment too.
    Salda(Prova);
    (void)SegueStato(Prova, Vista);
    Prova.txtDatiPar.remove(DatoDataFatt);
    (void)SegueStato(Prova, Vista);
    QCOMPARE(Prova.Stato.Stato, Pagata);
    Prova.xAcconti.Azzera(AccColonne);
    (void)SegueStato(Prova, Vista);
    QCOMPARE(Prova.Stato.Stato, Inviata);
}

void TestStato::importiDelDocumentoUscito()
{
    Parcella Prova = Nota();
    QCOMPARE(ImportiDellaNota(Prova), (ImportiDocumento{1150, 46, 263.12, Netto, 0, Netto}));
    QCOMPARE(RestiDellaNota(Prova).last(), Netto);
    Salda(Prova, 150);
    // A draft is what it would print.
    QCOMPARE(ImportiDellaNota(Prova).Imponibile, 1000.0);
    Prova.xAcconti.Azzera(AccColonne);
    Stampa(Prova, StampaPrenotula);
    Salda(Prova, 150);
    Prova.xOnorari(Prova.xOnorari.AggiungiRiga(), OnoImporto) = 5.0;
    QCOMPARE(ImportiDellaNota(Prova), (ImportiDocumento{1150, 46, 263.12, Netto, 0, Netto}));
    QCOMPARE(RestiDellaNota(Prova).last(), 1268.8);  // what was asked for, less 150,00 x 1,04 x 1,22
    Stampa(Prova, StampaPrenotula);
    QCOMPARE(ImportiDellaNota(Prova).Imponibile, 1005.75);
}

void TestStato::documentoCheNonSostituisce()
{
    Parcella Prova = Nota();
    Stampa(Prova, StampaPrenotula);
    Stampa(Prova, StampaPreventivo);
    QCOMPARE(Prova.Stato.Documento, int(StampaPrenotula));
    Numera(Prova);
    Stampa(Prova, StampaFatturaSintetica);
    QCOMPARE(Prova.Stato.Documento, int(StampaFatturaSintetica));
    QVERIFY(Prova.Stato.Emessa);
    Stampa(Prova, StampaPrenotula);
    QCOMPARE(Prova.Stato.Documento, int(StampaFatturaSintetica));
    QVERIFY(ChiedePagamento(StampaSoloContabile));
    QVERIFY(!ChiedePagamento(StampaPreventivo));
    QVERIFY(!ChiedePagamento(StampaNotaGiudiziale));
    QVERIFY(!ChiedePagamento(NessunaVoce));
}

void TestStato::copiaDiUnaPagata()
{
    Parcella Prova = Nota();
    Copertura Vista;
    InStato(Prova, Vista, u"pagata"_s);
    Stampa(Prova, StampaFatturaAnalitica);
    QCOMPARE(ImportiDellaNota(Prova).Netto, Netto);
    QCOMPARE(RestiDellaNota(Prova).last(), 0.0);
    // Paid before anything went out: what was paid is the whole of it.
    Parcella Mai = Nota();
    Copertura Sua;
    Salda(Mai);
    QVERIFY(SegueStato(Mai, Sua));
    QCOMPARE(ImportiDellaNota(Mai).Netto, Netto);
    QCOMPARE(RestiDellaNota(Mai).last(), 0.0);
}

void TestStato::restoMaiSottoZero()
{
    Parcella Prova = Nota();
    Stampa(Prova, StampaPrenotula);
    Salda(Prova, 5000);
    QCOMPARE(RestiDellaNota(Prova).last(), 0.0);
}

void TestStato::notaGiudizialeInVista()
{
    Parcella Prova = Nota();
    Numera(Prova);
    Stampa(Prova, StampaFatturaAnalitica);
    ScegliTipoStampa(Prova, StampaNotaGiudiziale);  // which takes the taxes away
    QCOMPARE(ImportiDellaNota(Prova).Netto, Netto);
    QCOMPARE(RestiDellaNota(Prova).last(), Netto);
    Salda(Prova, 1149.99);
    QVERIFY(!CoperturaDi(Prova).Coperta);
}

void TestStato::ilFileElettronico()
{
    Parcella Prova = Nota();
    Numera(Prova);
    SegnaFatturaScritta(Prova, u"IT1_1.xml"_s, u"1"_s);
    QCOMPARE(Prova.Stato.Stato, Fatturata);
    QCOMPARE(Prova.Stato.Documento, int(StampaFatturaAnalitica));
    ScegliTipoStampa(Prova, StampaFatturaSintetica);
    SegnaFatturaScritta(Prova, u"IT1_2.xml"_s, u"2"_s);
    QCOMPARE(Prova.Stato.Documento, int(StampaFatturaSintetica));
}

/// The file of a credit note: what it takes back is owed no more. Choosing one takes number and date away,
/// and the invoice stands until the credit note is written.
void TestStato::laNotaDiCredito()
{
    Parcella Prova = Nota();
    Copertura Vista;
    InStato(Prova, Vista, u"fatturata"_s);
    QVERIFY(!Prova.Stato.Storno);
    Prova.FatturaXml.Tipo = u"TD04"_s;
    Prova.txtDatiPar.remove(DatoNumFatt);
    Prova.txtDatiPar.remove(DatoDataFatt);
    QVERIFY(!SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Stato, Fatturata);
    QVERIFY(!Prova.Stato.Storno);
    Numera(Prova);
    SegnaFatturaScritta(Prova, u"IT1_2.xml"_s, u"2"_s);
    QVERIFY(Prova.Stato.Storno);
    QCOMPARE(Prova.Stato.Stato, Fatturata);
    Prova.txtDatiPar.remove(DatoNumFatt);
    QVERIFY(SegueStato(Prova, Vista));
    // One of a note that was paid.
    Parcella Saldata = Nota();
    Copertura Sua;
    InStato(Saldata, Sua, u"pagata"_s);
    Saldata.FatturaXml.Tipo = u"TD04"_s;
    SegnaFatturaScritta(Saldata, u"IT1_3.xml"_s, u"3"_s);
    QVERIFY(Saldata.Stato.Storno);
}

/// A slip of the mouse is put right by the former state: what had gone out is still known.
void TestStato::sceltaPerSbaglio()
{
    Parcella Prova = Nota();
    Copertura Vista;
    InStato(Prova, Vista, u"fatturata"_s);
    const StatoTenuto Era = Prova.Stato;
    InstallaOrologio([] { return QDateTime(QDate(2026, 12, 1), QTime(10, 0)); });
    Prova.xOnorari(Prova.xOnorari.AggiungiRiga(), OnoImporto) = 500.0;
    for (const StatoNota Sbagliato : {Bozza, Inviata, Pagata}) {
        QVERIFY(ScegliStato(Prova, Sbagliato));
        (void)SegueStato(Prova, Vista);
        QCOMPARE(Prova.Stato.Stato, Sbagliato);
        QCOMPARE(ImportiDellaNota(Prova).Netto == Netto, Sbagliato != Bozza);
        QVERIFY(ScegliStato(Prova, Fatturata));
        QCOMPARE(Prova.Stato.Dal(), u"22/11/2026"_s);
        QCOMPARE(Prova.Stato.Documento, Era.Documento);
        QCOMPARE(Prova.Stato.Emessa, Era.Emessa);
        QCOMPARE(ImportiDellaNota(Prova).Netto, Netto);
    }
    // A draft that goes out begins anew.
    QVERIFY(ScegliStato(Prova, Bozza));
    Stampa(Prova, StampaPrenotula);
    QVERIFY(!SegueStato(Prova, Vista));
    QCOMPARE(Prova.Stato.Stato, Inviata);
    QCOMPARE(Prova.Stato.Documento, int(StampaPrenotula));
    QVERIFY(ScegliStato(Prova, Bozza));
    QCOMPARE(SoloBozza(Prova.Stato).Documento, -1);
    QCOMPARE(SoloBozza(Era), Era);
}

/// Payments that the document takes away are none of it; those that come later are, whatever else changes.
void TestStato::pagamentiPrimaEDopo()
{
    Parcella Prova = Nota();
    Salda(Prova, 150);
    Stampa(Prova, StampaPrenotula);
    QCOMPARE(ImportiDellaNota(Prova).Netto, 1268.8);
    QCOMPARE(RestiDellaNota(Prova).last(), 1268.8);
    Prova.xOnorari(Prova.xOnorari.AggiungiRiga(), OnoImporto) = 600.0;
    QCOMPARE(RestiDellaNota(Prova).last(), 1268.8);
    Salda(Prova, 400);
    QCOMPARE(RestiDellaNota(Prova).last(), 761.28);  // less 400,00 x 1,04 x 1,22
    // Taken away again, with the one that the document knows: never more than was asked for.
    Prova.xAcconti.Azzera(AccColonne);
    QCOMPARE(RestiDellaNota(Prova).last(), 1268.8);
    // A short invoice that does not list its payments asks for all: they count as paid.
    Parcella Corta = Nota();
    Salda(Corta, 150);
    ScegliTipoStampa(Corta, StampaFatturaSintetica);
    Corta.chkAcconti.Attiva = false;
    (void)NotaInviata(Corta, StampaFatturaSintetica);
    QCOMPARE(ImportiDellaNota(Corta).Netto, Netto);
    QCOMPARE(RestiDellaNota(Corta).last(), 1268.8);
}

void TestStato::documentoSceltoAMano()
{
    for (const int InVista : {int(StampaContratto), int(StampaPreventivo), int(StampaNotaGiudiziale)}) {
        Parcella Prova = Nota();
        ScegliTipoStampa(Prova, InVista);
        QVERIFY(ScegliStato(Prova, Inviata));
        QCOMPARE(DocumentoDelloStato(Prova.Stato.Documento, InVista, Prova.Stato.Stato), -1);
        QCOMPARE(RestiDellaNota(Prova).last(), Netto);
        QCOMPARE(DocumentoDelloStato(-1, InVista, Bozza), InVista);
    }
    QCOMPARE(DocumentoDelloStato(-1, StampaPrenotula, Fatturata), int(StampaPrenotula));
    QCOMPARE(DocumentoDelloStato(StampaFatturaAnalitica, StampaContratto, Pagata),
             int(StampaFatturaAnalitica));
    QCOMPARE(DocumentoDelloStato(StampaFatturaAnalitica, StampaContratto, Bozza), int(StampaContratto));
}

void TestStato::duplicata()
{
    Parcella Prova = Nota();
    Stampa(Prova, StampaPrenotula);
    QCOMPARE(Duplicata(Prova, true).Stato, StatoDiNuova());
}

void TestStato::nomi()
{
    for (const StatoNota Stato : StatiNota)
        QCOMPARE(StatoDelNome(NomeStato(Stato).toUpper()), std::optional(Stato));
    QCOMPARE(NomeStato(Ignoto), QString());
    QCOMPARE(StatoDelNome(QString()), std::nullopt);
    QCOMPARE(StatoDelNome(u"sollecitata"), std::nullopt);
}

#include "TestStato.moc"
