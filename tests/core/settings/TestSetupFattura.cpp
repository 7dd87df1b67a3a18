#include "core/settings/tavolosetup.h"

#include "core/impostazioni.h"

#include <memory>

class TestSetupFattura : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { T = std::make_unique<TavoloSetup>(); }
    void cleanup() { T.reset(); }

    void predefiniti();
    void memorizza();
    void laSessioneLoSa();
    void senzaToccarlaNonCambiaLIndirizzo();
    void propone();
    void proponeDaCioCheSiVede();
    void senzaIndirizzoLoDice();
    void soloUnaPersonaHaNomeECognome();
    void avvisa_data();
    void avvisa();
    void ilContatoreNonTornaIndietro();
    void ilContatoreCorretto();
    void indietroSoloSeSiVuole();
    void ilContatoreSbagliato();
    void ilNomeAccanto();
    void codiciSconosciuti();
    void siApreSullaCasella_data();
    void siApreSullaCasella();

private:
    [[nodiscard]] QComboBox* Elenco(const QString& Nome) const { return T->Trova<QComboBox>(Nome); }
    frmSetup& Apri() { return T->Apri(frmSetup::SchedaFatturaElettronica); }

    std::unique_ptr<TavoloSetup> T;
};
PROVA(TestSetupFattura);

namespace {

const QStringList CaselleSede{u"txtVia"_s, u"txtCivico"_s, u"txtCap"_s, u"txtComune"_s, u"txtProv"_s};

QStringList Sede(const TavoloSetup& T)
{
    QStringList Letta;
    for (const QString& Nome : CaselleSede)
        Letta << T.Campo(Nome)->text();
    return Letta;
}

}  // namespace

void TestSetupFattura::predefiniti()
{
    Apri();
    QCOMPARE(Elenco(u"cmbTipoStudio"_s)->currentData().toString(), u"P"_s);
    QCOMPARE(Elenco(u"cmbRegime"_s)->currentText(), u"RF01 - Ordinario"_s);
    QCOMPARE(Elenco(u"cmbRegime"_s)->count(), 19);
    QCOMPARE(T->Trova<QLabel>(u"lblRitenuta"_s)->text(), u"ritenuta dei clienti: RT01"_s);
    QCOMPARE(Sede(*T), QStringList({{}, {}, {}, {}, {}}));
    QCOMPARE(T->Campo(u"txtProgTrasm"_s)->text(), u"0"_s);
    QVERIFY(T->Trova<QLabel>(u"lblProposta"_s)->isHidden());
}

void TestSetupFattura::memorizza()
{
    Registratore Box;
    Apri();
    Scegli(Elenco(u"cmbTipoStudio"_s), 1);
    Scegli(Elenco(u"cmbRegime"_s), 1);
    T->Scrivi(u"txtVia"_s, u"Via  Roma"_s);
    T->Scrivi(u"txtCivico"_s, u"12/A"_s);
    T->Scrivi(u"txtCap"_s, u"55100"_s);
    T->Scrivi(u"txtComune"_s, u"Lucca"_s);
    T->Scrivi(u"txtProv"_s, u"lu"_s);
    T->Scrivi(u"txtPecStudio"_s, u"studio@pec.example"_s);
    T->Memorizza(Box);
    const QList<std::pair<QString, QString>> Attese{
        {u"TipoStudio"_s, u"A"_s},       {u"RegimeFiscale"_s, u"RF19"_s},
        {u"StudioVia"_s, u"Via Roma"_s}, {u"StudioCivico"_s, u"12/A"_s},
        {u"StudioCap"_s, u"55100"_s},    {u"StudioComune"_s, u"Lucca"_s},
        {u"StudioProv"_s, u"LU"_s},      {u"StudioPec"_s, u"studio@pec.example"_s}};
    for (const auto& [Chiave, Valore] : Attese)
        QCOMPARE(T->Parametro(Chiave), Valore);
    QCOMPARE(T->Parametro(u"StudioIndir"_s), u"x"_s);
    QCOMPARE(T->Parametro(u"StudioCitta"_s), u"x"_s);
}

void TestSetupFattura::laSessioneLoSa()
{
    Registratore Box;
    Apri();
    T->Scrivi(u"txtTitolareNome"_s, u"Anna"_s);
    T->Scrivi(u"txtTitolareCognome"_s, u"Verdi"_s);
    T->Scrivi(u"txtComune"_s, u"Lucca"_s);
    Scegli(Elenco(u"cmbRegime"_s), 1);
    T->Memorizza(Box);
    QCOMPARE(sessione::StudioTitolareNome, u"Anna"_s);
    QCOMPARE(sessione::StudioTitolareCognome, u"Verdi"_s);
    QCOMPARE(sessione::StudioComune, u"Lucca"_s);
    QCOMPARE(sessione::RegimeFiscale, u"RF19"_s);
    QCOMPARE(sessione::TipoStudio, u"P"_s);
}

void TestSetupFattura::senzaToccarlaNonCambiaLIndirizzo()
{
    Registratore Box;
    TavoloSetup::Salva(u"StudioIndir"_s, u"Via Roma, 12"_s);
    TavoloSetup::Salva(u"StudioCitta"_s, u"55100 Lucca (LU)"_s);
    Apri();
    QCOMPARE(Sede(*T), QStringList({{}, {}, {}, {}, {}}));  // nothing is proposed in silence
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"StudioVia"_s), QString());
    QCOMPARE(T->Parametro(u"StudioIndir"_s), u"Via Roma, 12"_s);
}

void TestSetupFattura::propone()
{
    TavoloSetup::Salva(u"StudioIndir"_s, u"Via Roma, 12"_s);
    TavoloSetup::Salva(u"StudioCitta"_s, u"55100 Lucca (LU)"_s);
    Apri();
    T->Premi(u"cmdRicava"_s);
    QCOMPARE(Sede(*T), (QStringList{u"Via Roma"_s, u"12"_s, u"55100"_s, u"Lucca"_s, u"LU"_s}));
    const auto* Detto = T->Trova<QLabel>(u"lblProposta"_s);
    QVERIFY(Detto->isVisible());
    QVERIFY2(Detto->text().contains(u"Via Roma, 12"_s) && Detto->text().contains(u"controllare"_s),
             qPrintable(Detto->text()));
    QCOMPARE(T->Parametro(u"StudioVia"_s), QString());
}

void TestSetupFattura::proponeDaCioCheSiVede()
{
    T->Apri(0);
    T->Scrivi(u"txtIndStudio"_s, u"Piazza Duomo 3"_s);
    T->Scrivi(u"txtCittaStudio"_s, u"Pisa"_s);
    T->Modulo->ChangeTab(frmSetup::SchedaFatturaElettronica);
    T->Premi(u"cmdRicava"_s);
    QCOMPARE(Sede(*T), (QStringList{u"Piazza Duomo"_s, u"3"_s, {}, u"Pisa"_s, {}}));
}

void TestSetupFattura::senzaIndirizzoLoDice()
{
    TavoloSetup::Salva(u"StudioIndir"_s, {});
    TavoloSetup::Salva(u"StudioCitta"_s, {});
    Apri();
    T->Scrivi(u"txtVia"_s, u"Via Roma"_s);
    T->Premi(u"cmdRicava"_s);
    QCOMPARE(T->Campo(u"txtVia"_s)->text(), u"Via Roma"_s);
    QVERIFY(T->Trova<QLabel>(u"lblProposta"_s)->text().contains(u"è vuoto"_s));
}

void TestSetupFattura::soloUnaPersonaHaNomeECognome()
{
    Apri();
    QVERIFY(T->Campo(u"txtTitolareNome"_s)->isEnabled());
    for (const int Voce : {1, 2}) {
        Scegli(Elenco(u"cmbTipoStudio"_s), Voce);
        QVERIFY(!T->Campo(u"txtTitolareNome"_s)->isEnabled());
        QVERIFY(!T->Campo(u"txtTitolareCognome"_s)->isEnabled());
        QCOMPARE(T->Trova<QLabel>(u"lblRitenuta"_s)->text(), u"ritenuta dei clienti: RT02"_s);
    }
}

void TestSetupFattura::avvisa_data()
{
    QTest::addColumn<QString>("Casella");
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Avviso");
    QTest::addColumn<bool>("Torna");
    const auto Riga = [](const QString& Casella, const QString& Testo, const QString& Avviso, bool Torna) {
        QTest::newRow(qPrintable(Casella + u' ' + Testo)) << Casella << Testo << Avviso << Torna;
    };
    Riga(u"txtCap"_s, u"5510"_s, u"lblAvvisoSede"_s, false);
    Riga(u"txtCap"_s, u"5510O"_s, u"lblAvvisoSede"_s, false);
    Riga(u"txtCap"_s, u"55100"_s, u"lblAvvisoSede"_s, true);
    Riga(u"txtProv"_s, u"L"_s, u"lblAvvisoSede"_s, false);
    Riga(u"txtProv"_s, u"lu"_s, u"lblAvvisoSede"_s, true);
    Riga(u"txtPecStudio"_s, u"studio"_s, u"lblAvvisoPec"_s, false);
    Riga(u"txtPecStudio"_s, u"studio@"_s, u"lblAvvisoPec"_s, false);
    Riga(u"txtPecStudio"_s, u"studio@pec.it"_s, u"lblAvvisoPec"_s, true);
}

void TestSetupFattura::avvisa()
{
    QFETCH(QString, Casella);
    QFETCH(QString, Testo);
    QFETCH(QString, Avviso);
    QFETCH(bool, Torna);
    Registratore Box;
    Apri();
    QVERIFY(!T->Trova<QLabel>(Avviso)->isVisible());
    T->Scrivi(Casella, Testo);
    QCOMPARE(T->Trova<QLabel>(Avviso)->isVisible(), !Torna);
    T->Memorizza(Box);  // marked, not refused
}

void TestSetupFattura::ilContatoreNonTornaIndietro()
{
    Registratore Box;
    TavoloSetup::Salva(u"ProgTrasm"_s, u"4"_s);
    Apri();
    TavoloSetup::Salva(u"ProgTrasm"_s, u"5"_s);  // a note has written a file meanwhile
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"ProgTrasm"_s), u"5"_s);
}

void TestSetupFattura::ilContatoreCorretto()
{
    Registratore Box;
    Apri();
    T->Scrivi(u"txtProgTrasm"_s, u"120"_s);
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"ProgTrasm"_s), u"120"_s);
    T->Scrivi(u"txtProgTrasm"_s, u"121"_s);
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"ProgTrasm"_s), u"121"_s);
}

/// Another program may have gone on since the form was opened: what stands in the store counts.
void TestSetupFattura::indietroSoloSeSiVuole()
{
    Registratore Box;
    TavoloSetup::Salva(u"ProgTrasm"_s, u"5"_s);
    Apri();
    T->Scrivi(u"txtProgTrasm"_s, u"10"_s);
    TavoloSetup::Salva(u"ProgTrasm"_s, u"12"_s);
    const QString Domanda =
        u"Il numero dell'ultimo file XML torna indietro, era 12: si ripeterebbero nomi già "
        "usati.\nMemorizzarlo ugualmente?"_s;
    Box.Attendi(Domanda, vbNo, u"Domanda:"_s);
    T->Premi(u"cmdSaveImpost"_s);
    QCOMPARE(T->Parametro(u"ProgTrasm"_s), u"12"_s);
    QCOMPARE(Box.Ultimo().Bandiere, vbYesNo | vbQuestion | vbDefaultButton2);
    T->Scrivi(u"txtProgTrasm"_s, {});
    Box.Attendi(Domanda, vbYes);
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"ProgTrasm"_s), u"0"_s);
}

void TestSetupFattura::ilContatoreSbagliato()
{
    Registratore Box;
    Apri();
    T->Campo(u"txtProgTrasm"_s)->setText(u"70000000"_s);
    T->Modulo->ChangeTab(0);
    Box.Attendi(u"Immettere un valore numerico!"_s, vbOK, u"Errore:"_s);
    T->Premi(u"cmdSaveImpost"_s);
    QCOMPARE(T->Trova<QTabWidget>(u"tabSetup"_s)->currentIndex(), int(frmSetup::SchedaFatturaElettronica));
    QCOMPARE(T->Parametro(u"ProgTrasm"_s), QString());
}

void TestSetupFattura::ilNomeAccanto()
{
    Apri();
    T->Scrivi(u"txtProgTrasm"_s, u"36"_s);
    QCOMPARE(T->Trova<QLabel>(u"lblNomeTrasm"_s)->text(), u"nel nome del file: 00010"_s);
    T->Scrivi(u"txtProgTrasm"_s, u"0"_s);
    QCOMPARE(T->Trova<QLabel>(u"lblNomeTrasm"_s)->text(), QString());
}

void TestSetupFattura::codiciSconosciuti()
{
    TavoloSetup::Salva(u"TipoStudio"_s, u"Z"_s);
    TavoloSetup::Salva(u"RegimeFiscale"_s, u"RF99"_s);
    ImpostaVariabili();
    QCOMPARE(sessione::TipoStudio, u"P"_s);
    QCOMPARE(sessione::RegimeFiscale, u"RF99"_s);
    Apri();
    QCOMPARE(Elenco(u"cmbTipoStudio"_s)->currentIndex(), 0);
    QCOMPARE(Elenco(u"cmbRegime"_s)->currentText(), u"RF99 - sconosciuto"_s);
}

void TestSetupFattura::siApreSullaCasella_data()
{
    using enum impostazioni::CasellaStudio;
    QTest::addColumn<int>("Quale");
    QTest::addColumn<int>("Scheda");
    QTest::addColumn<QString>("Casella");
    const auto Riga = [](impostazioni::CasellaStudio Quale, int Scheda, const char* Casella) {
        QTest::newRow(Casella) << int(Quale) << Scheda << QString::fromLatin1(Casella);
    };
    Riga(Nome, frmSetup::SchedaDatiStudio, "txtNomeStudio");
    Riga(PartitaIva, frmSetup::SchedaDatiStudio, "txtPivaStudio");
    Riga(CodiceFiscale, frmSetup::SchedaDatiStudio, "txtCodFisStudio");
    Riga(Iban, frmSetup::SchedaDatiStudio, "txtIBAN");
    Riga(Email, frmSetup::SchedaDatiStudio, "txtEMail");
    Riga(Genere, frmSetup::SchedaFatturaElettronica, "cmbTipoStudio");
    Riga(Regime, frmSetup::SchedaFatturaElettronica, "cmbRegime");
    Riga(Via, frmSetup::SchedaFatturaElettronica, "txtVia");
    Riga(Civico, frmSetup::SchedaFatturaElettronica, "txtCivico");
    Riga(Cap, frmSetup::SchedaFatturaElettronica, "txtCap");
    Riga(Comune, frmSetup::SchedaFatturaElettronica, "txtComune");
    Riga(Provincia, frmSetup::SchedaFatturaElettronica, "txtProv");
    Riga(Pec, frmSetup::SchedaFatturaElettronica, "txtPecStudio");
    Riga(Progressivo, frmSetup::SchedaFatturaElettronica, "txtProgTrasm");
}

void TestSetupFattura::siApreSullaCasella()
{
    QFETCH(int, Quale);
    QFETCH(int, Scheda);
    QFETCH(QString, Casella);
    auto& Modulo = Singola<frmSetup>();
    Modulo.MostraCasella(impostazioni::CasellaStudio(Quale));
    QVERIFY(QTest::qWaitForWindowActive(&Modulo));
    QTRY_COMPARE(QApplication::focusWidget(), Modulo.findChild<QWidget*>(Casella));
    QCOMPARE(Modulo.findChild<QTabWidget*>(u"tabSetup"_s)->currentIndex(), Scheda);
}

#include "TestSetupFattura.moc"
