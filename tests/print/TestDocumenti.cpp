// The documents as a whole: expected texts written by hand.
#include "supporto/prova.h"

#include "documenti.h"
#include "platform/percorsi.h"
#include "print/scrittoretesto.h"

#include <functional>

using namespace Qt::StringLiterals;

class TestDocumenti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void dorati_data();
    void dorati();
    void dueVolteLoStesso_data();
    void dueVolteLoStesso();
    void clienteDiMilleLettere_data();
    void clienteDiMilleLettere();

private:
    documenti::DataFissa Oggi{QDate(2014, 1, 10)};
};
PROVA(TestDocumenti);

namespace {

/// What stands behind a row of expected texts.
struct Caso
{
    Parcella Nota;
    std::function<void()> Studio = [] {};
};

Caso CasoCivile()
{
    Caso Uno{documenti::Completa(campioni::Civile())};
    Uno.Nota.chkIvaDiff.Attiva = true;
    Uno.Nota.chkIBAN.Attiva = true;
    return Uno;
}

Caso CasoPenale()
{
    return {documenti::Completa(campioni::Penale()), [] { sessione::Firma.clear(); }};
}

Caso CasoAssociata()
{
    Caso Uno{documenti::Completa(campioni::ConAssociata(true))};
    Uno.Nota.optContrTipo = 1;
    return Uno;
}

/// The subsidised regime, on an invoice whose number is written by hand.
Caso CasoRegime()
{
    Caso Uno{documenti::Completa(campioni::Civile()), [] { sessione::Firma.clear(); }};
    Uno.Nota.txtDatiPar[DatoNumFatt] = u"  "_s;
    Uno.Nota.txtDatiPar[DatoDataFatt].clear();
    RicordaStampa(Uno.Nota);
    CambiaRegime(Uno.Nota, true);
    return Uno;
}

Caso CasoVuota()
{
    return {campioni::Vuota(), [] {
                sessione::StudioIndir.clear();
                sessione::StudioCitta.clear();
                sessione::StudioCodFisc.clear();
            }};
}

}  // namespace

Q_DECLARE_METATYPE(Caso)

void TestDocumenti::init()
{
    campioni::ImpostaStudio();
    sessione::PercorsoProg = NuovaCartella();  // no clauses beside it
}

void TestDocumenti::dorati_data()
{
    QTest::addColumn<Caso>("Quale");
    QTest::addColumn<int>("Tipo");
    const auto Aggiungi = [](const char* Nome, const Caso& Quale, const QList<int>& Tipi) {
        for (const int Tipo : Tipi)
            QTest::addRow("%s_%d", Nome, Tipo) << Quale << Tipo;
    };
    const QList<int> Tutti{StampaPreventivo,     StampaFatturaSintetica, StampaFatturaAnalitica,
                           StampaNotaGiudiziale, StampaContratto,        StampaInformativa};
    Aggiungi("civile", CasoCivile(), Tutti);
    Aggiungi("associata_prima", CasoAssociata(), Tutti);
    Aggiungi("penale", CasoPenale(), {StampaPreventivo, StampaNotaGiudiziale});
    Aggiungi("stragiudiziale", {documenti::Completa(campioni::Stragiudiziale())}, {StampaFatturaSintetica});
    Aggiungi("regime", CasoRegime(), {StampaFatturaSintetica, StampaFatturaAnalitica});
    Aggiungi("vuota", CasoVuota(), {StampaContratto});
}

void TestDocumenti::dorati()
{
    QFETCH(Caso, Quale);
    QFETCH(int, Tipo);
    Quale.Studio();
    const QString Nome = u"dorati/"_s + QString::fromUtf8(QTest::currentDataTag()) + u".txt"_s;
    const QString Atteso = QString::fromUtf8(LeggiFile(FileDiProva(Nome)));
    QCOMPARE(ScriviTesto(documenti::Composto(Quale.Nota, Tipo)).split(u'\n'), Atteso.split(u'\n'));
}

void TestDocumenti::dueVolteLoStesso_data()
{
    documenti::RighePerTipo();
}

void TestDocumenti::dueVolteLoStesso()
{
    QFETCH(int, Tipo);
    const Parcella Nota = documenti::ScegliTipo(CasoAssociata().Nota, Tipo);
    Superficie vp;
    QVERIFY(Anteprima(vp, Nota, Tipo));
    const Documento Prima = vp.Contenuto();
    vp.FontBold(true);  // the text state of one document is not that of the next
    vp.TextAlign(Allineamento::Destra);
    QVERIFY(Anteprima(vp, Nota, Tipo));
    QCOMPARE(ScriviTesto(vp.Contenuto()), ScriviTesto(Prima));
    QCOMPARE(vp.Contenuto().MargineAltoCm, Prima.MargineAltoCm);
}

void TestDocumenti::clienteDiMilleLettere_data()
{
    documenti::RighePerTipo();
}

void TestDocumenti::clienteDiMilleLettere()
{
    QFETCH(int, Tipo);
    const QString Nome = u"{\\Ditta} <Rossi & \U0001F600> "_s.repeated(40).trimmed();
    Parcella Nota = documenti::ScegliTipo(CasoCivile().Nota, Tipo);
    Nota.txtDatiStaCli.Testo = Nome;
    const QString Testo = ScriviTesto(documenti::ComeSta(Nota, Tipo)).simplified();
    QVERIFY(Tipo == StampaSoloContabile || Testo.count(u"{\\Ditta} <Rossi & \U0001F600>"_s) == 40);
}

#include "TestDocumenti.moc"
