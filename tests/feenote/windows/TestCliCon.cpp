// The buttons that lead to the address book, and what comes back from it.
#include "tavolo.h"

#include "addressbook/richiesta.h"
#include "core/aperture.h"
#include "core/sessione.h"
#include "platform/preview/vistastampa.h"

#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

class TestCliCon : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void senzaRubricaNessunBottone();
    void ogniBottoneChiede_data();
    void ogniBottoneChiede();
    void modificaSoloChiELegato();
    void laSceltaDallaPrimaScheda();
    void laSceltaDallaStampa();
    void rispostaIncompleta();

private:
    /// The window of a note, with an address book that takes note of what it is asked.
    void ConRubrica();

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    std::vector<RichiestaRubrica> Chieste;
};
PROVA(TestCliCon);

namespace {

constexpr std::array BottoniBase{"cmdVisCliCon_0", "cmdInsCliCon_0", "cmdModCliCon_0",
                                 "cmdVisCliCon_1", "cmdInsCliCon_1", "cmdModCliCon_1"};
constexpr std::array BottoniStampa{"cmdContrSelAnag_0", "cmdContrInsAnag_0", "cmdContrSelAnag_1",
                                   "cmdContrInsAnag_1"};

}  // namespace

void TestCliCon::init()
{
    T = std::make_unique<Tavolo>();
    Chieste.clear();
}

void TestCliCon::cleanup()
{
    T.reset();
}

void TestCliCon::ConRubrica()
{
    Aperture.RubricaParcella = [this](const RichiestaRubrica& Una) { Chieste.push_back(Una); };
    F = T->Apri();
    QVERIFY(F);
    CompilaCivile(F);
}

void TestCliCon::senzaRubricaNessunBottone()
{
    F = T->Apri();
    QVERIFY(F);
    CompilaCivile(F);
    for (const char* Nome : BottoniBase)
        QVERIFY2(!Controllo(F, Nome)->isVisible(), Nome);
    ClicScheda(F, SchedaDiStampa);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaContratto);
    for (const char* Nome : BottoniStampa)
        QVERIFY2(!Controllo(F, Nome)->isVisible(), Nome);
}

void TestCliCon::ogniBottoneChiede_data()
{
    QTest::addColumn<int>("Scheda");
    QTest::addColumn<QString>("Tabella");
    QTest::addColumn<QString>("Parola");
    QTest::addColumn<QString>("MenuStart");
    QTest::addColumn<QString>("KeyStart");
    const auto Riga = [](const char* Nome, int Scheda, const char16_t* Tabella, const char16_t* Parola,
                         const char16_t* Menu, const char16_t* Chiave) {
        QTest::newRow(Nome) << Scheda << QString::fromUtf16(Tabella) << QString::fromUtf16(Parola)
                            << QString::fromUtf16(Menu) << QString::fromUtf16(Chiave);
    };
    Riga("cmdVisCliCon_0", SchedaBase, u"clienti", u"cli", u"", u"");
    Riga("cmdVisCliCon_1", SchedaBase, u"controparti", u"con", u"", u"");
    Riga("cmdInsCliCon_0", SchedaBase, u"clienti", u"cli", u"new", u"");
    Riga("cmdInsCliCon_1", SchedaBase, u"controparti", u"con", u"new", u"");
    Riga("cmdModCliCon_0", SchedaBase, u"clienti", u"cli", u"edit", u"ID=12");
    Riga("cmdModCliCon_1", SchedaBase, u"controparti", u"con", u"edit", u"ID=34");
    Riga("cmdContrSelAnag_0", SchedaDiStampa, u"clienti", u"c_cli", u"", u"");
    Riga("cmdContrSelAnag_1", SchedaDiStampa, u"controparti", u"c_con", u"", u"");
    Riga("cmdContrInsAnag_0", SchedaDiStampa, u"clienti", u"c_cli", u"new", u"");
    Riga("cmdContrInsAnag_1", SchedaDiStampa, u"controparti", u"c_con", u"new", u"");
}

void TestCliCon::ogniBottoneChiede()
{
    QFETCH(int, Scheda);
    QFETCH(QString, Tabella);
    QFETCH(QString, Parola);
    QFETCH(QString, MenuStart);
    QFETCH(QString, KeyStart);
    ConRubrica();
    F->Nota.IDCli = 12;
    F->Nota.IDCon = 34;
    F->MostraTutto();
    if (Scheda == SchedaDiStampa) {
        ClicScheda(F, SchedaDiStampa);
        Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaPreventivo);
        Respiro();
    }
    auto* Bottone = Controllo<QToolButton>(F, QTest::currentDataTag());
    QVERIFY(!Bottone->toolTip().isEmpty());
    Clic(Bottone);
    QCOMPARE(Chieste.size(), std::size_t(1));
    const RichiestaRubrica Attesa{.Indice = 1,
                                  .DataSource = sessione::ArchivioCliCon,
                                  .RecordSource = Tabella,
                                  .Modifiche = true,
                                  .Selezione = true,
                                  .Parent = Parola,
                                  .MenuStart = MenuStart,
                                  .KeyStart = KeyStart};
    QVERIFY(Chieste[0] == Attesa);
}

void TestCliCon::modificaSoloChiELegato()
{
    ConRubrica();
    auto* Modifica = Controllo<QToolButton>(F, "cmdModCliCon_0");
    QVERIFY(!Modifica->isEnabled());
    const int ID = T->Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    F->oRubrica_SelDone(u"cli"_s, {ID, u"Verdi Anna"_s});
    QVERIFY(Modifica->isEnabled());
    QVERIFY(!Controllo(F, "cmdModCliCon_1")->isEnabled());
    T->Voce.Attendi(u"Il cliente è stato dissociato dalla parcella!"_s, vbOK, u"Avvertenza:"_s);
    Scrivi(Controllo<QLineEdit>(F, "txtCliente"), {});
    QVERIFY(!Modifica->isEnabled());
    QCOMPARE(F->Nota.IDCli, 0);
}

void TestCliCon::laSceltaDallaPrimaScheda()
{
    ConRubrica();
    const int ID = T->Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    F->oRubrica_SelDone(u"cli"_s, {ID, u"Verdi Anna"_s, u"Lucca"_s});
    Respiro();
    QCOMPARE(F->Nota.IDCli, ID);
    auto* Box = Controllo<QLineEdit>(F, "txtCliente");
    QCOMPARE(Box->text(), u"Verdi Anna"_s);
    QVERIFY(Box->hasFocus());
    QVERIFY(F->Nota.Modificata);
}

void TestCliCon::laSceltaDallaStampa()
{
    ConRubrica();
    ClicScheda(F, SchedaDiStampa);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaContratto);
    const int ID = T->Ufficio.AggiungiCliente(
        {{u"Nominativo"_s, u"Gamma Spa"_s}, {u"Citta"_s, u"Torino"_s}, {u"RapprLegale"_s, u"Carla Bruni"_s}});
    F->oRubrica_SelDone(u"c_cli"_s, {ID, u"Gamma Spa"_s});
    F->oRubrica_SelDone(u"c_con"_s, {7, u"Bianchi Srl"_s});
    Respiro();
    QCOMPARE(Controllo<QPlainTextEdit>(F, "txtDatiStaCli")->toPlainText(), u"Gamma Spa con sede in Torino"_s);
    QVERIFY(Controllo<QRadioButton>(F, "optContrTipo_1")->isChecked());
    QCOMPARE(Controllo<QLineEdit>(F, "txtContrRappr")->text(), u"Carla Bruni"_s);
    QCOMPARE(Controllo<QPlainTextEdit>(F, "txtDatiStaControp")->toPlainText(), u"Bianchi Srl"_s);
    const QString Composte = Controllo<VistaStampa>(F, "vp")->Pagine().Testo();
    QVERIFY(Composte.contains(u"Gamma Spa con sede in Torino in persona del legale rappresentante, "
                              u"Sig.Carla Bruni"_s));
    QVERIFY(Composte.contains(u" contro Bianchi Srl"_s));
}

void TestCliCon::rispostaIncompleta()
{
    ConRubrica();
    const Parcella Prima = F->Nota;
    F->oRubrica_SelDone(u"cli"_s, {});
    F->oRubrica_SelDone(u"cli"_s, {3});
    QVERIFY(F->Nota == Prima);
}

#include "TestCliCon.moc"
