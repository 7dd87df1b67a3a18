// The decree of the fees on paper: one row more in the documents of a note whose decree is named, none in any
// other.
#include "supporto/prova.h"

#include "documenti.h"
#include "print/modCorpo.h"
#include "print/writers/scrittoretesto.h"

using namespace Qt::StringLiterals;

class TestTariffaStampa : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void unaRigaInPiu_data();
    void unaRigaInPiu();
    void dueNote_data();
    void dueNote();
    void senzaOnorari_data();
    void senzaOnorari();
    void frasiDelRiepilogo_data();
    void frasiDelRiepilogo();

private:
    documenti::DataFissa Oggi{QDate(2026, 11, 22)};
};
PROVA(TestTariffaStampa);

namespace {

const QString Frase = u"Onorari secondo i parametri del D.m. 10 marzo 2014, n. 55"_s;

QStringList Righe(const Parcella& Nota, int Tipo)
{
    return ScriviTesto(documenti::Composto(Nota, Tipo)).split(u'\n');
}

/// The statement of information has no fees to name a decree for.
bool HaOnorari(int Tipo)
{
    return Tipo != StampaInformativa;
}

}  // namespace

void TestTariffaStampa::init()
{
    campioni::ImpostaStudio();
    sessione::PercorsoProg = NuovaCartella();  // no clauses beside it
}

void TestTariffaStampa::unaRigaInPiu_data()
{
    documenti::RighePerTipo();
}

void TestTariffaStampa::unaRigaInPiu()
{
    QFETCH(int, Tipo);
    Parcella Nota = documenti::Completa(campioni::Civile());
    QCOMPARE(Nota.Tariffa, &Dm140);
    const QStringList Prima = Righe(Nota, Tipo);
    QVERIFY(!Prima.join(u'\n').contains(u"parametri del"));
    Nota.Tariffa = &Dm55;
    QStringList Dopo = Righe(Nota, Tipo);
    QCOMPARE(Dopo.count(Frase), HaOnorari(Tipo) ? 1 : 0);
    if (HaOnorari(Tipo) && Tipo != StampaFatturaSintetica)  // above the fees, nowhere else
        QVERIFY2(Dopo.value(Dopo.indexOf(Frase) + 1).startsWith(u"ONORARI"), qPrintable(Dopo.join(u'\n')));
    Dopo.removeAll(Frase);
    if (Tipo != StampaFatturaSintetica) {
        QCOMPARE(Dopo, Prima);
        return;
    }
    // There it is one row of the head, which has its own distance.
    Dopo.removeAll(QString());
    QStringList SenzaVuote = Prima;
    SenzaVuote.removeAll(QString());
    QCOMPARE(Dopo, SenzaVuote);
}

void TestTariffaStampa::dueNote_data()
{
    QTest::addColumn<bool>("Propria");  // D.m. 55/2014, each of them
    QTest::addColumn<bool>("Altra");
    QTest::addColumn<int>("Quante");
    QTest::addColumn<QString>("Sintetica");
    QTest::newRow("both") << true << true << 2 << Frase;
    QTest::newRow("this one") << true << false << 1 << Frase + u" (parcella principale)"_s;
    QTest::newRow("the other one") << false << true << 1 << Frase + u" (parcella associata)"_s;
    QTest::newRow("none") << false << false << 0 << QString();
}

void TestTariffaStampa::dueNote()
{
    QFETCH(bool, Propria);
    QFETCH(bool, Altra);
    QFETCH(int, Quante);
    QFETCH(QString, Sintetica);
    for (const bool Davanti : {false, true}) {
        Parcella Nota = documenti::Completa(campioni::ConAssociata(Davanti));
        Nota.Tariffa = Propria ? &Dm55 : &Dm140;
        Nota.Multi.Tariffa = Altra ? &Dm55 : &Dm140;
        const QStringList Analitica = Righe(Nota, StampaFatturaAnalitica);
        QCOMPARE(Analitica.count(Frase), Quante);
        // Each stands above the fees that it is about: the other note's line is "Esame degli atti".
        const auto Esame = std::ranges::find_if(
            Analitica, [](const QString& Riga) { return Riga.startsWith(u"Esame degli atti"); });
        const qsizetype Posto = Esame - Analitica.begin();
        const QStringList PrimaDiEssa = Analitica.mid(std::max<qsizetype>(Posto - 4, 0), 4);
        QCOMPARE(PrimaDiEssa.contains(Frase), Altra);
        const QStringList Breve = Righe(Nota, StampaFatturaSintetica);
        QCOMPARE(Breve.filter(u"Onorari secondo"_s),
                 Sintetica.isEmpty() ? QStringList() : QStringList{Sintetica});
    }
}

void TestTariffaStampa::senzaOnorari_data()
{
    documenti::RighePerTipo();
}

void TestTariffaStampa::senzaOnorari()
{
    QFETCH(int, Tipo);
    Parcella Nota = documenti::Completa(campioni::Vuota());
    Nota.Tariffa = &Dm55;
    campioni::AggiungiSpesa(Nota.xDiritti, u"Bolli"_s, 1.0, 0.0, 16.0);
    QVERIFY(Righe(Nota, Tipo).filter(u"parametri del"_s).isEmpty());
}

void TestTariffaStampa::frasiDelRiepilogo_data()
{
    QTest::addColumn<int>("Parti");
    QTest::addColumn<int>("Variazione");
    QTest::addColumn<QStringList>("Attese");
    const QString DelleParti = u"Aumento del 30% per 2 parti assistite (art. 4, comma 2, D.m. 55/2014)"_s;
    const QString Libera = u"Applicata riduzione del 10% "_s;
    QTest::newRow("neither") << 1 << 0 << QStringList();
    QTest::newRow("parties") << 2 << 0 << QStringList{DelleParti};
    QTest::newRow("variation") << 1 << -10 << QStringList{Libera};
    QTest::newRow("both, parties in front") << 2 << -10 << QStringList{DelleParti, Libera};
}

void TestTariffaStampa::frasiDelRiepilogo()
{
    QFETCH(int, Parti);
    QFETCH(int, Variazione);
    QFETCH(QStringList, Attese);
    Parcella Nota = documenti::Completa(campioni::Civile());
    Nota.Tariffa = &Dm55;
    Nota.ListaParti = {{2, 10, 30, u"art. 4, comma 2"_s}};
    Nota.PartiAssistite = Parti;
    Nota.AumRidVarP = Variazione;
    QStringList Trovate;
    for (const BloccoDocumento& Uno : documenti::Composto(Nota, StampaPrenotula).Blocchi)
        if (const auto* Riga = std::get_if<Paragrafo>(&Uno);
            Riga && (Riga->Testo().startsWith(u"Aumento") || Riga->Testo().startsWith(u"Applicat")))
            Trovate += Riga->Testo();
    QCOMPARE(Trovate, Attese);
}

#include "TestTariffaStampa.moc"
