// The buttons that lead to the address book, and what comes back from it.
#include "tavolo.h"

#include "addressbook/richiesta.h"
#include "core/aperture.h"
#include "core/sessione.h"
#include "feenote/windows/noteaperte.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/percorsi.h"

#include <QDialog>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

class TestCliCon : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void senzaRubricaNessunBottone();
    void laRubricaArrivaDopo();
    void ogniBottoneChiede_data();
    void ogniBottoneChiede();
    void modificaSoloChiELegato();
    void laSceltaDallaPrimaScheda();
    void laSceltaDallaStampa();
    void rispostaIncompleta();
    void laParolaSconosciutaNonFaNulla();
    void laChiaveChiedeLaRiga();
    void ilNumeroCambiaConLaNota();
    void laNotaChiusaChiudeLaRubrica();
    void laNotaSostituitaChiudeLaRubrica();
    void laSchedaApertaNonFermaLaNota();
    void laSceltaPerUnAltraNota();
    void laSceltaSenzaNome_data();
    void laSceltaSenzaNome();
    void ilFuocoNonSiRuba();
    void ilNomeCambiatoSegue();
    void ilTestoDiversoResta();
    void lIndirizzoCambiatoSegue();
    void laControparteSegue();
    void soloStampaSuNotaLegata_data();
    void soloStampaSuNotaLegata();
    void sceltaSalvataRinominataCancellata();
    void archivioAssente();

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
    QVERIFY(F->Numero() > 0);
    const RichiestaRubrica Attesa{.Indice = 1,
                                  .Numero = F->Numero(),
                                  .DataSource = sessione::ArchivioCliCon,
                                  .RecordSource = Tabella,
                                  .Modifiche = true,
                                  .Selezione = true,
                                  .Parent = Parola,
                                  .MenuStart = MenuStart,
                                  .KeyStart = KeyStart,
                                  .ID = Tabella == u"clienti" ? 12 : 34};
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

void TestCliCon::laRubricaArrivaDopo()
{
    F = T->Apri();
    QVERIFY(F);
    CompilaCivile(F);
    ClicScheda(F, SchedaDiStampa);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaContratto);
    Aperture.RubricaParcella = [this](const RichiestaRubrica& Una) { Chieste.push_back(Una); };
    Respiro();
    for (const char* Nome : BottoniStampa)
        QVERIFY2(Controllo(F, Nome)->isVisible(), Nome);
    ClicScheda(F, SchedaBase);
    for (const char* Nome : BottoniBase)
        QVERIFY2(Controllo(F, Nome)->isVisible(), Nome);
    Clic(Controllo(F, "cmdVisCliCon_0"));
    QCOMPARE(Chieste.size(), std::size_t(1));
}

void TestCliCon::laParolaSconosciutaNonFaNulla()
{
    ConRubrica();
    const int ID = T->Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    const Parcella Prima = F->Nota;
    for (const QString& Parola : {u"CLI"_s, u"c_clienti"_s, QString()})
        F->oRubrica_SelDone(Parola, {ID, u"Verdi Anna"_s});
    QVERIFY(F->Nota == Prima);
}

void TestCliCon::laChiaveChiedeLaRiga()
{
    ConRubrica();
    // Beyond sixteen bits.
    F->oRubrica_SelDone(u"cli"_s, {2'000'000'000, u"Verdi Anna"_s});
    QCOMPARE(F->Nota.IDCli, 2'000'000'000);
    // A key that no counter gives links nothing; the name is the user's text.
    for (const int Chiave : {0, -7}) {
        F->oRubrica_SelDone(u"cli"_s, {Chiave, u"Neri Ugo"_s});
        QCOMPARE(F->Nota.IDCli, 0);
        QCOMPARE(F->Nota.txtCliente.Testo, u"Neri Ugo"_s);
        QVERIFY(!Controllo<QToolButton>(F, "cmdModCliCon_0")->isEnabled());
        F->oRubrica_SelDone(u"c_con"_s, {Chiave, u"Neri Ugo"_s});
        QCOMPARE(F->Nota.IDCon, 0);
    }
}

void TestCliCon::ilNumeroCambiaConLaNota()
{
    ConRubrica();
    const int Primo = F->Numero();
    QVERIFY(Primo > 0);
    frmParcelle* Altra = T->Apri({}, 2);
    QVERIFY(Altra && Altra != F);
    QVERIFY(Altra->Numero() > 0 && Altra->Numero() != Primo);
    QVERIFY(ChiudiParcella(2));
    QCOMPARE(Altra->Numero(), 0);
    F->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(F->Numero(), 0);
    QCOMPARE(T->Apri(), F);
    QVERIFY2(F->Numero() > Primo, "the place is the same, the note is another");
}

void TestCliCon::laNotaChiusaChiudeLaRubrica()
{
    ConRubrica();
    QList<std::pair<int, int>> Chiuse;
    Aperture.ParcellaChiusa = [&](int Indice, int Numero) { Chiuse.append({Indice, Numero}); };
    const int Numero = F->Numero();
    // A close that the user refuses closes nothing.
    F->SetModificata(true);
    T->Voce.Attendi(u"Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, vbCancel,
                    u"Domanda:"_s);
    QVERIFY(!ChiudiParcella(1));
    QVERIFY(Chiuse.isEmpty());
    T->Voce.Attendi(u"Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, vbNo, u"Domanda:"_s);
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Chiuse, (QList<std::pair<int, int>>{{1, Numero}}));
}

/// A card is modal to its book alone.
void TestCliCon::laSchedaApertaNonFermaLaNota()
{
    ConRubrica();
    F->SetModificata(false);
    QWidget Rubrica;
    Rubrica.show();
    QDialog Scheda(&Rubrica);
    Scheda.setWindowModality(Qt::WindowModal);
    Scheda.show();
    QCOMPARE(QApplication::activeModalWidget(), &Scheda);
    QVERIFY(ChiudiParcella(1));
    Scheda.hide();
    // One that belongs to the note's own window does hold it back.
    QVERIFY(T->Apri());
    QDialog Propria(F);
    Propria.setWindowModality(Qt::WindowModal);
    Propria.show();
    QVERIFY(!ChiudiParcella(1));
    Propria.hide();
    QVERIFY(ChiudiParcella(1));
}

void TestCliCon::laNotaSostituitaChiudeLaRubrica()
{
    Aperture.RubricaParcella = [](const RichiestaRubrica&) {};
    QList<std::pair<int, int>> Chiuse;
    Aperture.ParcellaChiusa = [&](int Indice, int Numero) { Chiuse.append({Indice, Numero}); };
    F = T->Apri();
    QVERIFY(F);
    QVERIFY2(Chiuse.isEmpty(), "no note was there before the first");
    const int Numero = F->Numero();
    const QString File = T->Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, NotaCivile());
    // The untouched first note gives its window to the file.
    QCOMPARE(T->Apri(File), F);
    QCOMPARE(Chiuse, (QList<std::pair<int, int>>{{1, Numero}}));
    QVERIFY(F->Numero() != Numero);
}

void TestCliCon::laSceltaPerUnAltraNota()
{
    ConRubrica();
    const int ID = T->Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    const int Vecchio = F->Numero();
    F->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    ConsegnaScelta(1, Vecchio, u"cli"_s, {ID, u"Verdi Anna"_s});  // nobody is there
    QVERIFY(T->Apri());
    const Parcella Prima = F->Nota;
    ConsegnaScelta(1, Vecchio, u"cli"_s, {ID, u"Verdi Anna"_s});
    ConsegnaScelta(9, F->Numero(), u"cli"_s, {ID, u"Verdi Anna"_s});
    ConsegnaScelta(1, 0, u"cli"_s, {ID, u"Verdi Anna"_s});
    QVERIFY2(F->Nota == Prima, "the client of one matter never lands in another");
    ConsegnaScelta(1, F->Numero(), u"cli"_s, {ID, u"Verdi Anna"_s});
    QCOMPARE(F->Nota.IDCli, ID);
}

void TestCliCon::laSceltaSenzaNome_data()
{
    QTest::addColumn<QVariantList>("Valori");
    QTest::newRow("Null") << QVariantList{5, QVariant()};
    QTest::newRow("empty") << QVariantList{5, u""_s};
    QTest::newRow("blanks") << QVariantList{5, u"  "_s, u"Lucca"_s};
    QTest::newRow("no second column") << QVariantList{5};
}

void TestCliCon::laSceltaSenzaNome()
{
    QFETCH(QVariantList, Valori);
    ConRubrica();
    const int ID = T->Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    F->oRubrica_SelDone(u"cli"_s, {ID, u"Verdi Anna"_s});
    const Parcella Prima = F->Nota;
    for (const QString& Parola : {u"cli"_s, u"c_con"_s}) {
        T->Voce.Attendi(u"Il nominativo scelto non ha un nome!"_s, vbOK, u"Avvertenza:"_s);
        ConsegnaScelta(1, F->Numero(), Parola, Valori);
    }
    QVERIFY2(F->Nota == Prima, "the link of before is not dropped");
}

void TestCliCon::ilFuocoNonSiRuba()
{
    ConRubrica();
    const int ID = T->Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    ClicScheda(F, SchedaImposte);
    Controllo<QLineEdit>(F, "txtIVA")->setFocus();
    F->oRubrica_SelDone(u"cli"_s, {ID, u"Verdi Anna"_s});
    Respiro();
    QCOMPARE(NomeFuoco(), u"txtIVA"_s);
    ClicScheda(F, SchedaBase);
    QVERIFY2(!Controllo<QLineEdit>(F, "txtCliente")->hasFocus(), "nor does it come with the tab");
    F->oRubrica_SelDone(u"con"_s, {ID, u"Verdi Anna"_s});
    Respiro();
    QCOMPARE(NomeFuoco(), u"txtControp"_s);
}

void TestCliCon::ilNomeCambiatoSegue()
{
    ConRubrica();
    const int ID = T->Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    F->oRubrica_SelDone(u"cli"_s, {ID, u"Verdi Anna"_s});
    Respiro();
    F->SetModificata(false);
    EseguiSu(sessione::ArchivioCliCon, u"UPDATE clienti SET Nominativo='Verdi Anna Maria' WHERE ID=?"_s,
             {ID});
    SegueNominativo(u"controparti"_s, ID);
    SegueNominativo(u"clienti"_s, ID + 1);
    QCOMPARE(Controllo<QLineEdit>(F, "txtCliente")->text(), u"Verdi Anna"_s);
    QVERIFY(!F->Nota.Modificata);
    Controllo<QLineEdit>(F, "txtOggetto")->setFocus();
    SegueNominativo(u"clienti"_s, ID);
    Respiro();
    QCOMPARE(Controllo<QLineEdit>(F, "txtCliente")->text(), u"Verdi Anna Maria"_s);
    QCOMPARE(F->Nota.IDCli, ID);
    QVERIFY(F->Nota.Modificata);
    QCOMPARE(NomeFuoco(), u"txtOggetto"_s);
    // A second save of the same card finds nothing to change.
    F->SetModificata(false);
    SegueNominativo(u"clienti"_s, ID);
    QVERIFY(!F->Nota.Modificata);
    // A name that was emptied drops no link.
    EseguiSu(sessione::ArchivioCliCon, u"UPDATE clienti SET Nominativo='' WHERE ID=?"_s, {ID});
    SegueNominativo(u"clienti"_s, ID);
    QCOMPARE(F->Nota.IDCli, ID);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Verdi Anna Maria"_s);
}

/// What the user has typed over the name is his, as long as the row keeps its own.
void TestCliCon::ilTestoDiversoResta()
{
    ConRubrica();
    const int ID = T->Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    F->oRubrica_SelDone(u"cli"_s, {ID, u"Verdi Anna"_s});
    Scrivi(Controllo<QLineEdit>(F, "txtCliente"), u"Eredi Verdi"_s);
    QCOMPARE(F->Nota.IDCli, ID);
    SegueNominativo(u"clienti"_s, ID);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Eredi Verdi"_s);
    EseguiSu(sessione::ArchivioCliCon, u"UPDATE clienti SET Nominativo='Verdi Maria' WHERE ID=?"_s, {ID});
    SegueNominativo(u"clienti"_s, ID);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Verdi Maria"_s);
}

void TestCliCon::lIndirizzoCambiatoSegue()
{
    ConRubrica();
    const int ID = T->Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    F->oRubrica_SelDone(u"cli"_s, {ID, u"Verdi Anna"_s});
    ClicScheda(F, SchedaDiStampa);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaPreventivo);
    F->SetModificata(false);
    EseguiSu(sessione::ArchivioCliCon, u"UPDATE clienti SET Citta='Lucca' WHERE ID=?"_s, {ID});
    SegueNominativo(u"clienti"_s, ID);
    Respiro();
    QCOMPARE(Controllo<QPlainTextEdit>(F, "txtDatiStaCli")->toPlainText(), u"Verdi Anna\nLucca"_s);
    QVERIFY(Controllo<VistaStampa>(F, "vp")->Pagine().Testo().contains(u"Lucca"_s));
    QVERIFY2(!F->Nota.Modificata, "nothing of it stands in the note's file");
}

void TestCliCon::laControparteSegue()
{
    ConRubrica();
    const int ID = T->Ufficio.AggiungiControparte(u"Bianchi Srl"_s, u"Bianchi Srl"_s);
    F->oRubrica_SelDone(u"con"_s, {ID, u"Bianchi Srl"_s});
    EseguiSu(sessione::ArchivioCliCon,
             u"UPDATE controparti SET Nominativo='Bianchi Spa', Controp='Bianchi Spa' WHERE ID=?"_s, {ID});
    SegueNominativo(u"controparti"_s, ID);
    QCOMPARE(Controllo<QLineEdit>(F, "txtControp")->text(), u"Bianchi Spa"_s);
    // The name of its notes is the one that the next opening shows.
    EseguiSu(sessione::ArchivioCliCon, u"UPDATE controparti SET Controp='Eredi Bianchi' WHERE ID=?"_s, {ID});
    SegueNominativo(u"controparti"_s, ID);
    QCOMPARE(Controllo<QLineEdit>(F, "txtControp")->text(), u"Eredi Bianchi"_s);
}

void TestCliCon::soloStampaSuNotaLegata_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<bool>("Societa");
    QTest::addColumn<QString>("Blocco");
    QTest::newRow("estimate") << int(StampaPreventivo) << false << u"Gamma Spa\nTorino"_s;
    QTest::newRow("agreement with a person")
        << int(StampaContratto) << false << u"Gamma Spa residente in Torino"_s;
    QTest::newRow("agreement with a company")
        << int(StampaContratto) << true << u"Gamma Spa con sede in Torino"_s;
    QTest::newRow("information with a company")
        << int(StampaInformativa) << true << u"Gamma Spa con sede in Torino"_s;
}

void TestCliCon::soloStampaSuNotaLegata()
{
    QFETCH(int, Tipo);
    QFETCH(bool, Societa);
    QFETCH(QString, Blocco);
    ConRubrica();
    const int Legato = T->Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    F->oRubrica_SelDone(u"cli"_s, {Legato, u"Verdi Anna"_s});
    F->oRubrica_SelDone(u"con"_s, {77, u"Bianchi Srl"_s});
    ClicScheda(F, SchedaDiStampa);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), Tipo);
    if (Societa)
        Clic(Controllo(F, "optContrTipo_1"));
    const int ID = T->Ufficio.AggiungiCliente(
        {{u"Nominativo"_s, u"Gamma Spa"_s}, {u"Citta"_s, u"Torino"_s}, {u"RapprLegale"_s, u"Carla Bruni"_s}});
    F->oRubrica_SelDone(u"c_cli"_s, {ID, u"Gamma Spa"_s});
    F->oRubrica_SelDone(u"c_con"_s, {78, u"D'Àvila \"Due\""_s});
    Respiro();
    QCOMPARE(Controllo<QPlainTextEdit>(F, "txtDatiStaCli")->toPlainText(), Blocco);
    QCOMPARE(Controllo<QRadioButton>(F, "optContrTipo_1")->isChecked(), Societa);
    QCOMPARE(F->Nota.Rappr.Nome, Societa ? u"Carla Bruni"_s : QString());
    QCOMPARE(Controllo<QPlainTextEdit>(F, "txtDatiStaControp")->toPlainText(), u"D'Àvila \"Due\""_s);
    QVERIFY(Controllo<VistaStampa>(F, "vp")->Pagine().Testo().contains(u"Gamma Spa"_s));
    // Only what is printed has changed.
    QCOMPARE(F->Nota.IDCli, Legato);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Verdi Anna"_s);
    QCOMPARE(F->Nota.IDCon, 77);
    QCOMPARE(F->Nota.txtControp.Testo, u"Bianchi Srl"_s);
    // And it holds, as what the user writes there does.
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaFatturaAnalitica);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), Tipo);
    QCOMPARE(Controllo<QPlainTextEdit>(F, "txtDatiStaCli")->toPlainText(), Blocco);
}

void TestCliCon::sceltaSalvataRinominataCancellata()
{
    ConRubrica();
    const QString File = T->Ufficio.File(u"nota.mdb"_s);
    const int ID = T->Ufficio.AggiungiCliente(u"D'Àvila \"Nicolò\""_s);
    F->oRubrica_SelDone(u"cli"_s, {ID, u"D'Àvila \"Nicolò\""_s});
    ScriviNota(File, F->Nota);
    QCOMPARE(Cliente(File), u"D'Àvila \"Nicolò\""_s);
    F->SetModificata(false);
    QVERIFY(ChiudiParcella(1));

    QVERIFY(T->Apri(File));
    QCOMPARE(F->Nota.IDCli, ID);
    QCOMPARE(Controllo<QLineEdit>(F, "txtCliente")->text(), u"D'Àvila \"Nicolò\""_s);
    QVERIFY(ChiudiParcella(1));

    EseguiSu(sessione::ArchivioCliCon, u"UPDATE clienti SET Nominativo='Bruni' WHERE ID=?"_s, {ID});
    QVERIFY(T->Apri(File));
    QCOMPARE(Controllo<QLineEdit>(F, "txtCliente")->text(), u"Bruni"_s);
    QVERIFY(ChiudiParcella(1));

    EseguiSu(sessione::ArchivioCliCon, u"DELETE FROM clienti WHERE ID=?"_s, {ID});
    T->Voce.Attendi(u"Il cliente associato alla parcella non è stato trovato!"_s, vbOK, u"Errore:"_s);
    QVERIFY(T->Apri(File));
    QCOMPARE(Controllo<QLineEdit>(F, "txtCliente")->text(), u"D'Àvila \"Nicolò\""_s);
    QCOMPARE(F->Nota.IDCli, ID);
    // The book opens for it all the same.
    Clic(Controllo(F, "cmdModCliCon_0"));
    QCOMPARE(Chieste.back().KeyStart, u"ID=%1"_s.arg(ID));
}

/// The archive has gone while the book was open: what was chosen is linked, and what cannot be worded waits
/// for it.
void TestCliCon::archivioAssente()
{
    ConRubrica();
    QVERIFY(QFile::remove(sessione::ArchivioCliCon));
    F->oRubrica_SelDone(u"cli"_s, {3, u"Verdi Anna"_s});
    QCOMPARE(F->Nota.IDCli, 3);
    ClicScheda(F, SchedaDiStampa);
    const QString Detto =
        u"Errore: L'archivio dei clienti non si legge: Database non trovato: %1 (3024)"_s.arg(
            PercorsoNativo(sessione::ArchivioCliCon));
    T->Voce.Attendi(Detto, vbOK, u"Errore:"_s);
    Scegli(Controllo<QComboBox>(F, "cmbTipoStampa"), StampaPreventivo);
    QCOMPARE(Controllo<QPlainTextEdit>(F, "txtDatiStaCli")->toPlainText(), u"Verdi Anna"_s);
    // Nobody is printed by his name alone.
    T->Voce.Attendi(Detto, vbOK, u"Errore:"_s);
    F->oRubrica_SelDone(u"c_cli"_s, {4, u"Neri Ugo"_s});
    QCOMPARE(Controllo<QPlainTextEdit>(F, "txtDatiStaCli")->toPlainText(), u"Verdi Anna"_s);
    T->Voce.Attendi(Detto, vbOK, u"Errore:"_s);
    SegueNominativo(u"clienti"_s, 3);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Verdi Anna"_s);
}

#include "TestCliCon.moc"
