// The state of a note that prints with another one: what is open of both, while the other one is not at hand.
#include "nota_prova.h"
#include "notadamille.h"

#include "feenote/modAcconti.h"
#include "feenote/modStato.h"
#include "platform/system/orologio.h"

using namespace Qt::StringLiterals;
using enum StatoNota;

namespace {

/// 1.000,00 here and 1.000,00 there, with 15 % of general expenses, 4 % of fund, 22 % of VAT.
constexpr double Netto = 1459.12;
constexpr double NettoDiDue = 2918.24;
/// Of a payment of 100,00 with fund and VAT.
constexpr double Cento = 126.88;

void Paga(TabellaRighe& Acconti, double Quanto)
{
    const int Riga = Acconti.AggiungiRiga();
    Acconti(Riga, AccValuta) = u"E"_s;
    Acconti(Riga, AccCorrispettivi) = Quanto;
}

NotaAssociata Socio(double Pagato = 0)
{
    NotaAssociata Altra;
    Altra.TotOnorariMulti = 1000;
    if (Pagato > 0)
        Paga(Altra.xAccontiMulti, Pagato);
    return Altra;
}

void Associa(Parcella& Nota, const NotaAssociata& Altra)
{
    Nota.txtParcMultipla = u"altra"_s;
    Nota.txtPathParcMult = u"/note/altra.mdb"_s;
    Nota.Multi = Altra;
}

Parcella Sola()
{
    return NotaDaMille(StampaPrenotula);
}

Parcella DiDue(double Pagato = 0)
{
    Parcella Nuova = Sola();
    Associa(Nuova, Socio(Pagato));
    return Nuova;
}

/// As the file gives it back: the path of the other note, and what the state has kept of it.
Parcella Riaperta(Parcella Nota)
{
    Nota.Stato.Socio = SocioDellaNota(Nota);
    Nota.txtParcMultipla.clear();
    Nota.Multi = {};
    return Nota;
}

}  // namespace

class TestStatoSocio : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        AzzeraSessione();
        InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
    }
    void cleanup() { InstallaOrologio({}); }
    void siRicorda();
    void pagatiPrimaDelDocumento();
    void siPagaDaRiaperta();
    void laStessaNonPaga();
    void pagatiFrattanto();
    void tolta();
    void associataDopo();
    void sceltaAMano();
    void bozza();
    void uscitaDaSola();
    void quelloDelMomento();
};
PROVA(TestStatoSocio);

/// What was paid there since stays taken off when the note is opened alone, and what is paid here goes on
/// from it.
void TestStatoSocio::siRicorda()
{
    Parcella Nota = DiDue();
    QVERIFY(NotaInviata(Nota, StampaPrenotula));
    QVERIFY(Nota.Stato.ConSocio);
    QCOMPARE(ImportiDellaNota(Nota).Netto, NettoDiDue);
    QCOMPARE(RestiDellaNota(Nota).last(), NettoDiDue);
    Nota.Multi = Socio(500);
    QCOMPARE(RestiDellaNota(Nota).last(), NettoDiDue - 5 * Cento);
    Parcella Letta = Riaperta(Nota);
    QCOMPARE(ImportiDellaNota(Letta).Netto, NettoDiDue);
    QCOMPARE(RestiDellaNota(Letta).last(), NettoDiDue - 5 * Cento);
    Paga(Letta.xAcconti, 100);
    QCOMPARE(RestiDellaNota(Letta).last(), NettoDiDue - 6 * Cento);
    // And a second time.
    QCOMPARE(RestiDellaNota(Riaperta(Letta)).last(), NettoDiDue - 6 * Cento);
}

/// Payments that the document has taken off itself are not taken off twice.
void TestStatoSocio::pagatiPrimaDelDocumento()
{
    Parcella Nota = DiDue(500);
    QVERIFY(NotaInviata(Nota, StampaPrenotula));
    QCOMPARE(ImportiDellaNota(Nota).Netto, NettoDiDue - 5 * Cento);
    QCOMPARE(RestiDellaNota(Nota).last(), NettoDiDue - 5 * Cento);
    QCOMPARE(RestiDellaNota(Riaperta(Nota)).last(), NettoDiDue - 5 * Cento);
}

/// The document of both is paid when both are, not when this note is.
void TestStatoSocio::siPagaDaRiaperta()
{
    Parcella Nota = DiDue();
    (void)NotaInviata(Nota, StampaPrenotula);
    Nota.Multi = Socio(500);
    Parcella Letta = Riaperta(Nota);
    Copertura Vista = CoperturaDi(Letta);
    QVERIFY(!Vista.Coperta);
    QVERIFY(!SegueStato(Letta, Vista));
    Paga(Letta.xAcconti, 1150);
    QVERIFY(!SegueStato(Letta, Vista));
    QCOMPARE(Letta.Stato.Stato, Inviata);
    Paga(Letta.xAcconti, 650);
    QVERIFY(SegueStato(Letta, Vista));
    QCOMPARE(Letta.Stato.Stato, Pagata);
    QCOMPARE(RestiDellaNota(Letta).last(), 0.0);
    // Opened again it stays paid, whatever is typed.
    Letta = Riaperta(Letta);
    Vista = CoperturaDi(Letta);
    QVERIFY(Vista.Coperta);
    Letta.xAcconti(0, AccDescr) = u"bonifico"_s;
    QVERIFY(!SegueStato(Letta, Vista));
    QCOMPARE(Letta.Stato.Stato, Pagata);
}

/// To associate the note again is no payment.
void TestStatoSocio::laStessaNonPaga()
{
    Parcella Nota = DiDue(2300);
    Nota.Stato.Stato = Ignoto;  // the payments are older than the state
    (void)ScegliStato(Nota, Inviata);
    Parcella Letta = Riaperta(Nota);
    Copertura Vista = CoperturaDi(Letta);
    Associa(Letta, Socio(2300));
    QVERIFY(!SegueStato(Letta, Vista));
    QCOMPARE(Letta.Stato.Stato, Inviata);
}

/// Payments that have come there meanwhile show with the association.
void TestStatoSocio::pagatiFrattanto()
{
    Parcella Nota = DiDue();
    (void)NotaInviata(Nota, StampaPrenotula);
    Parcella Letta = Riaperta(Nota);
    Copertura Vista = CoperturaDi(Letta);
    Associa(Letta, Socio(2300));
    QVERIFY(UscitaConSocio(Letta));
    QVERIFY(SegueStato(Letta, Vista));
    QCOMPARE(Letta.Stato.Stato, Pagata);
}

/// Taken away, the other note still has paid its part of the document; a document of this one alone knows
/// nothing of it.
void TestStatoSocio::tolta()
{
    Parcella Nota = DiDue();
    (void)NotaInviata(Nota, StampaPrenotula);
    Nota.Multi = Socio(500);
    TieniSocio(Nota);
    Nota.txtParcMultipla.clear();
    Nota.txtPathParcMult.clear();
    Nota.Multi = {};
    QCOMPARE(RestiDellaNota(Nota).last(), NettoDiDue - 5 * Cento);
    QCOMPARE(RestiDellaNota(Riaperta(Nota)).last(), NettoDiDue - 5 * Cento);
    Copertura Vista = CoperturaDi(Nota);
    Paga(Nota.xAcconti, 1150);
    QVERIFY(!SegueStato(Nota, Vista));
    (void)NotaInviata(Nota, StampaPrenotula);
    QVERIFY(!Nota.Stato.ConSocio);
    QVERIFY(!UscitaConSocio(Nota));
    QCOMPARE(SocioDellaNota(Nota), std::nullopt);
    QCOMPARE(ImportiDellaNota(Nota).Netto, 0.0);
}

/// A document of this note alone is not paid by the payments of one that is associated afterwards.
void TestStatoSocio::associataDopo()
{
    Parcella Nota = Sola();
    (void)NotaInviata(Nota, StampaPrenotula);
    Associa(Nota, Socio(500));
    QVERIFY(!UscitaConSocio(Nota));
    QCOMPARE(ImportiDellaNota(Nota).Netto, Netto);
    QCOMPARE(RestiDellaNota(Nota).last(), Netto);
    QCOMPARE(RestiDellaNota(Riaperta(Nota)).last(), Netto);
    Paga(Nota.xAcconti, 100);
    QCOMPARE(RestiDellaNota(Nota).last(), 1332.24);
}

/// A state without a document has the figures of both while the note names the other one.
void TestStatoSocio::sceltaAMano()
{
    Parcella Nota = DiDue(100);
    (void)ScegliStato(Nota, Inviata);
    QCOMPARE(ImportiDellaNota(Nota).Netto, NettoDiDue - Cento);
    Parcella Letta = Riaperta(Nota);
    QCOMPARE(ImportiDellaNota(Letta), ImportiDellaNota(Nota));
    QCOMPARE(RestiDellaNota(Letta).last(), NettoDiDue - Cento);
    Letta.txtPathParcMult.clear();
    QCOMPARE(ImportiDellaNota(Letta).Netto, Netto);
    QCOMPARE(RestiDellaNota(Letta).last(), Netto);
}

void TestStatoSocio::bozza()
{
    Parcella Letta = Riaperta(DiDue());
    QCOMPARE(ImportiDellaNota(Letta).Netto, NettoDiDue);
    Letta.Stato = SoloBozza(Letta.Stato);
    QCOMPARE(ImportiDellaNota(Letta).Netto, NettoDiDue);
    // As a draft it has not gone out with the other one any more.
    Parcella Tolta = DiDue();
    (void)NotaInviata(Tolta, StampaPrenotula);
    (void)ScegliStato(Tolta, Bozza);
    Tolta = Riaperta(Tolta);
    Tolta.txtPathParcMult.clear();
    QVERIFY(!UscitaConSocio(Tolta));
    QCOMPARE(ImportiDellaNota(Tolta).Netto, Netto);
}

/// What prints of a note that was opened alone is a document of it alone.
void TestStatoSocio::uscitaDaSola()
{
    Parcella Letta = Riaperta(DiDue(500));
    QVERIFY(NotaInviata(Letta, StampaPrenotula));
    QVERIFY(!Letta.Stato.ConSocio);
    QCOMPARE(ImportiDellaNota(Letta).Netto, Netto);
    QCOMPARE(RestiDellaNota(Letta).last(), Netto);
}

void TestStatoSocio::quelloDelMomento()
{
    Parcella Nota = DiDue(500);
    const SocioTenuto Visto{1000, 0, 0, 500, 0, 0};
    QCOMPARE(SocioDellaNota(Nota), std::optional(Visto));
    Nota.Stato.Socio = SocioTenuto{};
    QCOMPARE(SocioDellaNota(Nota), std::optional(Visto));
    QCOMPARE(SocioDellaNota(Sola()), std::nullopt);
    Nota.Multi.TotSpeseImpMulti = 7;
    Nota.Multi.TotSpeseEsentiMulti = 8;
    Nota.Multi.xAccontiMulti(0, AccSpeseImp) = 3.0;
    Nota.Multi.xAccontiMulti(0, AccSpeseEsenti) = 4.0;
    QCOMPARE(SocioDellaNota(Nota), std::optional(SocioTenuto{1000, 7, 8, 500, 3, 4}));
    // The figures that are added are those that were seen.
    const ImportiDocumento Con = ImportiDellaNota(Nota);
    QCOMPARE(ImportiDellaNota(Riaperta(Nota)), Con);
    QCOMPARE(RestiDellaNota(Riaperta(Nota)).last(), RestiDellaNota(Nota).last());
}

#include "TestStatoSocio.moc"
