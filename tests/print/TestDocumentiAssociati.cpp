// The documents of two notes in one, when the second one was saved and read back: the same expected texts as
// for one filled by hand.
#include "supporto/prova.h"

#include "documenti.h"
#include "feenote/file/modMultipla.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/modNuovaParcella.h"
#include "feenote/modParametri.h"
#include "platform/system/file.h"
#include "print/writers/scrittoretesto.h"

using namespace Qt::StringLiterals;

class TestDocumentiAssociati : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dorati_data();
    void dorati();

private:
    documenti::DataFissa Oggi{QDate(2014, 1, 10)};
};
PROVA(TestDocumentiAssociati);

namespace {

const QString Autorita = u"Tribunale collegiale"_s;

/// The note that the samples have beside them, as its user would have entered it.
Parcella NotaDiFianco(const Parcella& Campione, int Categ)
{
    Parcella Altra;
    NuovaParcella(Altra);
    for (int Voce = 0; Voce == 0 || Voce < Altra.ListaAutorita.size(); ++Voce) {
        SelezionaInSilenzio(Altra, Categ, Voce, NessunaVoce);
        if (TestoAutorita(Altra) == Autorita)
            break;
    }
    ImpostaValoreInSilenzio(Altra, 10000.0);
    Altra.txtOggetto.Testo = Campione.Multi.Oggetto;
    Altra.xOnorari = Campione.Multi.xOnorari;
    Altra.xDiritti = Campione.Multi.xDiritti;
    Altra.xAcconti = Campione.Multi.xAcconti;
    return Altra;
}

}  // namespace

void TestDocumentiAssociati::dorati_data()
{
    QTest::addColumn<bool>("Prima");
    QTest::addColumn<int>("Tipo");
    for (const int Tipo : {StampaPreventivo, StampaFatturaSintetica, StampaFatturaAnalitica,
                           StampaNotaGiudiziale, StampaContratto, StampaInformativa})
        QTest::addRow("associata_prima_%d", Tipo) << true << Tipo;
    for (const int Tipo :
         {StampaPreventivo, StampaFatturaSintetica, StampaFatturaAnalitica, StampaNotaGiudiziale})
        QTest::addRow("associata_dopo_%d", Tipo) << false << Tipo;
}

void TestDocumentiAssociati::dorati()
{
    QFETCH(bool, Prima);
    QFETCH(int, Tipo);
    campioni::ImpostaStudio();
    Parcella Nota = documenti::Completa(campioni::ConAssociata(Prima));
    if (Prima)
        Nota.optContrTipo = 1;
    else
        Nota.Multi.Oggetto = u"parere sul contratto"_s;

    sessione::PercorsoProg = ProgrammaDiProva();
    const QString File = NuovaCartella() + u"altra nota.mdb"_s;
    ScriviNota(File, NotaDiFianco(Nota, Prima ? 1 : 2));
    TogliMulti(Nota);
    QVERIFY(AssociaMulti(Nota, File));
    QCOMPARE(Nota.txtParcMultipla, u"altra nota"_s);

    sessione::PercorsoProg = NuovaCartella();  // no clauses beside it
    const QString Nome = u"dorati/"_s + QString::fromUtf8(QTest::currentDataTag()) + u".txt"_s;
    const QString Atteso = QString::fromUtf8(LeggiFile(FileDiProva(Nome)));
    QVERIFY(!Atteso.isEmpty());
    QCOMPARE(ScriviTesto(documenti::Composto(Nota, Tipo)).split(u'\n'), Atteso.split(u'\n'));
}

#include "TestDocumentiAssociati.moc"
