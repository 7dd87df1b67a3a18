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
    void primaEDopoConESenzaTitolo_data();
    void primaEDopoConESenzaTitolo();

private:
    documenti::DataFissa Oggi{QDate(2014, 1, 10)};
};
PROVA(TestDocumentiAssociati);

namespace {

const QString Autorita = u"Tribunale collegiale"_s;

/// The note that a sample has beside it, as its user would have entered it.
Parcella NotaDiFianco(const Parcella& Campione)
{
    Parcella Altra;
    NuovaParcella(Altra);
    const auto Categ = int(VociCategoria().indexOf(Campione.Multi.CategMulti));
    for (int Voce = 0; Voce == 0 || Voce < Altra.ListaAutorita.size(); ++Voce) {
        SelezionaInSilenzio(Altra, Categ, Voce, NessunaVoce);
        if (TestoAutorita(Altra) == Autorita)
            break;
    }
    ImpostaValoreInSilenzio(Altra, 10000.0);
    Altra.txtOggetto.Testo = Campione.Multi.OggettoMulti;
    Altra.xOnorari = Campione.Multi.xOnorariMulti;
    Altra.xDiritti = Campione.Multi.xDirittiMulti;
    Altra.xAcconti = Campione.Multi.xAccontiMulti;
    return Altra;
}

/// A sample with the second note saved and associated with it, instead of filled by hand.
Parcella Associata(Parcella Nota)
{
    sessione::PercorsoProg = ProgrammaDiProva();
    const QString File = NuovaCartella() + u"altra nota.mdb"_s;
    ScriviNota(File, NotaDiFianco(Nota));
    TogliMulti(Nota);
    if (!AssociaMulti(Nota, File))
        QTest::qFail("refused", __FILE__, __LINE__);
    sessione::PercorsoProg = NuovaCartella();  // no clauses beside it
    return Nota;
}

Parcella Prima()
{
    Parcella Nota = documenti::Completa(campioni::ConAssociata(true));
    Nota.optContrTipo = 1;
    return Nota;
}

Parcella Dopo()
{
    Parcella Nota = documenti::Completa(campioni::ConAssociata(false));
    Nota.Multi.OggettoMulti = u"parere sul contratto"_s;
    return Nota;
}

Parcella ConTesti(Parcella Nota)
{
    campioni::ImpostaTesti(Nota, u"Testo superiore"_s, u"Testo inferiore"_s);
    return Nota;
}

}  // namespace

void TestDocumentiAssociati::dorati_data()
{
    QTest::addColumn<Parcella>("Campione");
    QTest::addColumn<int>("Tipo");
    const auto Aggiungi = [](const char* Nome, const Parcella& Campione, const QList<int>& Tipi) {
        for (const int Tipo : Tipi)
            QTest::addRow("%s_%d", Nome, Tipo) << Campione << Tipo;
    };
    Aggiungi("associata_prima", Prima(),
             {StampaPreventivo, StampaFatturaSintetica, StampaFatturaAnalitica, StampaNotaGiudiziale,
              StampaContratto, StampaInformativa});
    Aggiungi("associata_dopo", Dopo(),
             {StampaPreventivo, StampaFatturaSintetica, StampaFatturaAnalitica, StampaNotaGiudiziale});
    for (const int Tipo : {StampaPrenotula, StampaSoloContabile}) {
        QTest::addRow("associata_prima_%d", Tipo) << ConTesti(campioni::ConAssociata(true)) << Tipo;
        QTest::addRow("associata_dopo_%d", Tipo) << ConTesti(campioni::ConAssociata(false)) << Tipo;
    }
    Aggiungi("associata_parametri", documenti::ConParametri(),
             {StampaPrenotula, StampaFatturaSintetica, StampaNotaGiudiziale});
}

void TestDocumentiAssociati::dorati()
{
    QFETCH(Parcella, Campione);
    QFETCH(int, Tipo);
    campioni::ImpostaStudio();
    const Parcella Nota = Associata(Campione);
    QCOMPARE(Nota.txtParcMultipla, u"altra nota"_s);
    const QString Nome = u"dorati/"_s + QString::fromUtf8(QTest::currentDataTag()) + u".txt"_s;
    const QString Atteso = QString::fromUtf8(LeggiFile(FileDiProva(Nome)));
    QVERIFY(!Atteso.isEmpty());
    QCOMPARE(ScriviTesto(documenti::Composto(Nota, Tipo)).split(u'\n'), Atteso.split(u'\n'));
}

void TestDocumentiAssociati::primaEDopoConESenzaTitolo_data()
{
    QTest::addColumn<bool>("Davanti");
    QTest::addColumn<bool>("Titolo");
    QTest::addColumn<int>("Tipo");
    for (const bool Davanti : {true, false})
        for (const bool Titolo : {true, false})
            for (int Tipo = 0; ETipoStampa(Tipo); ++Tipo)
                QTest::addRow("%s, %s, %s", qPrintable(TipoDi(Tipo).Nome.toString()),
                              Davanti ? "before" : "after", Titolo ? "with its own title" : "without")
                    << Davanti << Titolo << Tipo;
}

/// The eight documents say of a saved note what they say of one in memory, in its place and with its title.
void TestDocumentiAssociati::primaEDopoConESenzaTitolo()
{
    QFETCH(bool, Davanti);
    QFETCH(bool, Titolo);
    QFETCH(int, Tipo);
    campioni::ImpostaStudio();
    Parcella Campione = ConTesti(documenti::ConParametri());
    Campione.Multi.OggettoMulti = u"difesa nel procedimento penale"_s;
    Campione.optMultiAntPos = Davanti ? 1 : 0;
    Campione.chkMultiParam = Titolo;
    const QString Testo = ScriviTesto(documenti::Composto(Associata(Campione), Tipo));
    QCOMPARE(Testo.split(u'\n'), ScriviTesto(documenti::Composto(Campione, Tipo)).split(u'\n'));

    // The short invoice has no lines, contract and statement have no sections.
    const qsizetype Sua = Testo.indexOf(u"Esame degli atti"_s);
    const qsizetype Mia = Testo.indexOf(u"Fase di studio"_s);
    const bool Sezioni = Tipo == StampaPrenotula || Tipo == StampaPreventivo ||
                         Tipo == StampaFatturaAnalitica || Tipo == StampaNotaGiudiziale ||
                         Tipo == StampaSoloContabile;
    if (!Sezioni)
        return;
    QVERIFY(Sua > 0 && Mia > 0);
    QCOMPARE(Sua < Mia, Davanti);
    // Its own section always has a title, the main note's by the tick alone.
    QCOMPARE(Testo.count(u") Prestazioni in materia: "_s), Titolo ? 2 : 1);
    const int Numero = Titolo && !Davanti ? 2 : 1;
    QVERIFY(Testo.contains(u"%1) Prestazioni in materia: Penale"_s.arg(Numero)));
    QVERIFY(Testo.contains(u"3) RIEPILOGO:"_s));
}

#include "TestDocumentiAssociati.moc"
