// The room that parts of a document leave each other where no blank row stands between them.
#include "supporto/prova.h"

#include "documenti.h"

#include "print/modCorpo.h"
#include "print/modTestata.h"

using namespace Qt::StringLiterals;

namespace {

const Paragrafo* Testo(const BloccoDocumento& Uno)
{
    const auto* Suo = std::get_if<Paragrafo>(&Uno);
    return Suo && !Suo->Testo().trimmed().isEmpty() ? Suo : nullptr;
}

/// A table whose first row, or last one, says something: a blank one is room enough.
bool TabellaPiena(const BloccoDocumento& Uno, bool InCima)
{
    const auto* Sua = std::get_if<Tabella>(&Uno);
    return Sua && std::ranges::any_of(InCima ? Sua->Righe.front() : Sua->Righe.back(),
                                      [](const Cella& Una) { return !Una.Testo.trimmed().isEmpty(); });
}

/// The row that begins with a text.
Rientri SpaziDi(const Documento& Doc, const QString& Inizio)
{
    for (const BloccoDocumento& Uno : Doc.Blocchi)
        if (const Paragrafo* Riga = Testo(Uno); Riga && Riga->Testo().trimmed().startsWith(Inizio))
            return Riga->Spazi;
    QTest::qFail(qPrintable(u"manca: "_s + Inizio), __FILE__, __LINE__);
    return {};
}

}  // namespace

class TestSpaziature : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { campioni::ImpostaStudio(); }

    void nessunTestoToccaUnaTabella_data();
    void nessunTestoToccaUnaTabella();
    void vociDellIntestazione_data();
    void vociDellIntestazione();
    void ilTitoloDellaNotaSpese();
    void postoPerFirmareIlPreventivo();
    void articoliDelContratto();
};
PROVA(TestSpaziature);

void TestSpaziature::nessunTestoToccaUnaTabella_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<bool>("Associata");
    for (const int Tipo : {StampaPrenotula, StampaPreventivo, StampaFatturaSintetica, StampaFatturaAnalitica,
                           StampaNotaGiudiziale, StampaContratto, StampaSoloContabile}) {
        QTest::addRow("tipo %d", Tipo) << Tipo << false;
        QTest::addRow("tipo %d, con associata", Tipo) << Tipo << true;
    }
}

void TestSpaziature::nessunTestoToccaUnaTabella()
{
    QFETCH(int, Tipo);
    QFETCH(bool, Associata);
    const Parcella Nota = Associata ? documenti::Completa(campioni::ConAssociata(true))
                                    : documenti::Completa(campioni::Civile());
    const Documento Doc = documenti::Composto(Nota, Tipo);
    for (std::size_t i = 1; i < Doc.Blocchi.size(); ++i) {
        const Paragrafo* Sopra = Testo(Doc.Blocchi[i - 1]);
        const Paragrafo* Sotto = Testo(Doc.Blocchi[i]);
        if (Sopra && TabellaPiena(Doc.Blocchi[i], true))
            QVERIFY2(Sopra->Spazi.SottoPunti >= SpazioBlocco, qPrintable(Sopra->Testo()));
        if (Sotto && TabellaPiena(Doc.Blocchi[i - 1], false))
            QVERIFY2(Sotto->Spazi.SopraPunti >= SpazioBlocco, qPrintable(Sotto->Testo()));
    }
}

void TestSpaziature::vociDellIntestazione_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QStringList>("Voci");
    const QStringList Solite{u"Controparte:"_s, u"Oggetto:"_s, u"Valore:"_s};
    QTest::newRow("prenotula") << 0 << Solite;
    QTest::newRow("preventivo") << 1 << Solite;
    QTest::newRow("fattura sintetica") << 2 << Solite.first(2);
    QTest::newRow("fattura analitica") << 3 << Solite;
    QTest::newRow("nota spese") << 4 << QStringList{u"per "_s, u"contro"_s, u"Valore:"_s};
}

void TestSpaziature::vociDellIntestazione()
{
    QFETCH(int, Tipo);
    QFETCH(QStringList, Voci);
    const Documento Doc = documenti::Composto(documenti::Completa(campioni::Civile()), Tipo);
    for (const QString& Voce : Voci)
        QCOMPARE(SpaziDi(Doc, Voce).SopraPunti, SpazioVoce);
}

void TestSpaziature::ilTitoloDellaNotaSpese()
{
    const Documento Doc = documenti::Composto(documenti::Completa(campioni::Civile()), StampaNotaGiudiziale);
    const Rientri Titolo = SpaziDi(Doc, u"NOTA SPESE GIUDIZIALE"_s);
    QCOMPARE(Titolo.SopraPunti, SpazioBlocco);
    QCOMPARE(Titolo.SottoPunti, SpazioVoce);
}

void TestSpaziature::postoPerFirmareIlPreventivo()
{
    Parcella Nota = documenti::Completa(campioni::Civile());
    const Documento Doc = documenti::Composto(Nota, StampaPreventivo);
    QCOMPARE(SpaziDi(Doc, u"Data"_s).SopraPunti, SpazioBlocco);
    QCOMPARE(SpaziDi(Doc, u"Il Cliente"_s).SopraPunti, 2 * SpazioBlocco);
    // Whatever comes first stands away from the head.
    Nota.txtDatiPar.clear();
    QCOMPARE(SpaziDi(documenti::Composto(Nota, StampaPreventivo), u"Preventivo di massima"_s).SopraPunti,
             SpazioBlocco);
    Nota.txtDatiPar[DatoNumero] = u"3"_s;
    const Documento Numerato = documenti::Composto(Nota, StampaPreventivo);
    QCOMPARE(SpaziDi(Numerato, u"Preventivo n. 3"_s).SopraPunti, SpazioBlocco);
    QCOMPARE(SpaziDi(Numerato, u"Preventivo di massima"_s).SopraPunti, SpazioVoce);
}

void TestSpaziature::articoliDelContratto()
{
    const Documento Doc = documenti::Composto(documenti::Completa(campioni::Civile()), StampaContratto);
    QCOMPARE(SpaziDi(Doc, u"I - Determinazione"_s).SopraPunti, SpazioBlocco);
    for (const QString& Articolo : {u"Art. 1"_s, u"Art. 2"_s})
        QCOMPARE(SpaziDi(Doc, Articolo).SopraPunti, 2 * SpazioVoce);
    for (const QString& Rata : {u"a) euro"_s, u"b) euro"_s, u"c) euro"_s, u"d) euro"_s})
        QCOMPARE(SpaziDi(Doc, Rata).SopraPunti, SpazioVoce);
}

#include "TestSpaziature.moc"
