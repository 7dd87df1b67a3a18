// When the document is composed anew, counted on its surface: by what a page shows, once, and by nothing
// else.
#include "tavolo.h"

#include "platform/preview/vistastampa.h"
#include "platform/system/shell.h"

#include <QPlainTextEdit>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

/// Text of a box of one line or of several.
QString TestoDi(const QWidget* Box)
{
    if (const auto* Riga = qobject_cast<const QLineEdit*>(Box))
        return Riga->text();
    return qobject_cast<const QPlainTextEdit*>(Box)->toPlainText();
}

/// Every ordered pair of documents, one after the other, the same one twice too.
QList<int> OgniPassaggio()
{
    QList<int> Giro;
    for (int A = 0; A <= StampaSoloContabile; ++A) {
        Giro += {A, A};
        for (int B = A + 1; B <= StampaSoloContabile; ++B)
            Giro += {B, A};
    }
    return Giro;
}

}  // namespace

class TestRicomposizione : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void ogniDocumentoUnaVolta();
    void ogniPassaggioMostraISuoiInterruttori();
    void ogniCasellaAllUscita_data();
    void ogniCasellaAllUscita();
    void ogniSegno_data();
    void ogniSegno();
    void lOpzioneSceltaNonSiSceglieDueVolte();
    void impostePrimaDellaPagina_data();
    void impostePrimaDellaPagina();
    void percentoCheNonENumero();
    void leAltreSchede();
    void guardareNonCompone();
    void laCasellaLasciataDalComando();

private:
    void Documento(int Tipo) const { ScegliDaTastiera(Controllo<QComboBox>(F, "cmbTipoStampa"), Tipo); }
    /// Compositions that an act has caused.
    template <class Atto>
    [[nodiscard]] int Composizioni(Atto&& Fai) const
    {
        const int Prima = vp->Foglio().Iniziati();
        Fai();
        Respiro();
        return vp->Foglio().Iniziati() - Prima;
    }
    /// On the pages; the court's name stands there in capitals.
    [[nodiscard]] bool SiLegge(const QString& Testo) const
    {
        return vp->Pagine().Testo().contains(Testo, Qt::CaseInsensitive);
    }
    [[nodiscard]] QString Interruttori() const;

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    VistaStampa* vp = nullptr;
};
PROVA(TestRicomposizione);

void TestRicomposizione::init()
{
    T = std::make_unique<Tavolo>();
    sessione::Iban = u"IT60X0542811101000000123456"_s;
    F = T->Apri();
    QVERIFY(F);
    CompilaCivile(F);
    Scrivi(Controllo<QLineEdit>(F, "txtCliente"), u"Rossi Mario"_s);
    ClicScheda(F, SchedaDiStampa);
    vp = Controllo<VistaStampa>(F, "vp");
    QCOMPARE(vp->Foglio().Iniziati(), 0);
}

void TestRicomposizione::cleanup()
{
    T.reset();
}

/// The switches as they stand on the screen: tick, box, "!" behind what is disabled.
QString TestRicomposizione::Interruttori() const
{
    QString Tutto;
    const auto Segno = [&](const char* Nome, const QString& Testo) {
        const auto* Box = Controllo<QCheckBox>(F, Nome);
        Tutto += (Box->isChecked() ? u"[x]"_s : u"[ ]"_s) + Testo + (Box->isEnabledTo(F) ? u" "_s : u"! "_s);
    };
    for (const auto& [Nome, Casella] : {std::pair("chkIva", "txtIVA"), std::pair("chkRA", "txtRA"),
                                        std::pair("chkCP", "txtCP"), std::pair("chkSpeseGen", "txtSpeGen")}) {
        const auto* Box = Controllo<QLineEdit>(F, Casella);
        Segno(Nome, Box->text());
        if (Box->isEnabledTo(F) != Controllo(F, Nome)->isEnabledTo(F))
            Tutto += u"(casella!) "_s;
    }
    Segno("chkMinMax", {});
    Segno("chkAcconti", {});
    return Tutto;
}

void TestRicomposizione::ogniDocumentoUnaVolta()
{
    for (int Tipo = 0; Tipo <= StampaSoloContabile; ++Tipo) {
        QCOMPARE(Composizioni([&] { Documento(Tipo); }), 1);
        QVERIFY(vp->hasFocus() || vp->isAncestorOf(QApplication::focusWidget()));
        QVERIFY2(Composizioni([&] { Documento(Tipo); }) == 0, "sceglierlo di nuovo non lo cambia");
    }
}

void TestRicomposizione::ogniPassaggioMostraISuoiInterruttori()
{
    ClicScheda(F, SchedaImposte);
    Scrivi(Controllo<QLineEdit>(F, "txtIVA"), u"10"_s);
    Clic(Controllo(F, "chkSpeseGen"));
    Clic(Controllo(F, "chkMinMax"));
    ClicScheda(F, SchedaDiStampa);

    const QString Tutti = u"[x]10 [ ] [x]4 [x]12,5 [x] [ ] "_s;
    const QString SenzaDettaglio = u"[x]10 [ ] [x]4 [x]12,5 [ ]! [x] "_s;
    const QString PerIlGiudice = u"[ ] [ ]! [ ] [ ] [x] [ ]! "_s;
    const QString DaFirmare = u"[x]10 [ ] [x]4 [x]12,5 [x]! [ ]! "_s;
    const QStringList Attesi{Tutti, Tutti, SenzaDettaglio, Tutti, PerIlGiudice, DaFirmare, DaFirmare, Tutti};
    int Prima = -1;
    for (const int Tipo : OgniPassaggio()) {
        Documento(Tipo);
        const QString Passaggio = u"da %1 a %2: "_s.arg(Prima).arg(Tipo);
        QCOMPARE(Passaggio + Interruttori(), Passaggio + Attesi[Tipo]);
        Prima = Tipo;
    }
}

void TestRicomposizione::ogniCasellaAllUscita_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QByteArray>("Nome");
    const auto Caselle = [](int Tipo, const QList<QByteArray>& Nomi) {
        for (const QByteArray& Nome : Nomi)
            QTest::addRow("%d %s", Tipo, Nome.constData()) << Tipo << Nome;
    };
    const QList<QByteArray> Parti{"txtDatiStaCli", "txtDatiStaOgg", "txtDatiStaControp"};
    Caselle(0, QList<QByteArray>{"txtDatiPar_0", "txtDatiPar_1"} + Parti);
    Caselle(1, {"txtDatiPar_0", "txtDatiPar_1"});
    Caselle(2, {"txtDatiPar_11", "txtDatiPar_12"});
    Caselle(3, {"txtDatiPar_11", "txtDatiPar_12"});
    Caselle(4, {"txtDatiPar_21", "txtDatiPar_22", "txtDatiPar_23", "txtDatiPar_24", "txtDatiStaCli",
                "txtDatiStaControp"});
    Caselle(5,
            QList<QByteArray>{"txtContrRappr", "txtContrNascita", "txtContrLuogo", "txtContrResid"} + Parti);
    Caselle(6, {"txtContrRappr", "txtDatiStaCli"});
    Caselle(7, {"txtDatiPar_31", "txtDatiPar_32"});
}

void TestRicomposizione::ogniCasellaAllUscita()
{
    QFETCH(int, Tipo);
    QFETCH(QByteArray, Nome);
    Documento(Tipo);
    if (Nome.startsWith("txtContr"))
        Clic(Controllo(F, "optContrTipo_1"));
    Respiro();
    auto* Box = Controllo(F, Nome.constData());
    const QString Prima = TestoDi(Box);
    F->SetModificata(false);

    Box->setFocus();
    QCOMPARE(Composizioni([] { Digita(u"7 x"_s); }), 0);
    QVERIFY(TestoDi(Box) != Prima && F->Nota.Modificata);
    QCOMPARE(Composizioni([] { Premi(Qt::Key_Tab); }), 1);
    QVERIFY2(SiLegge(u"7 x"_s), qPrintable(vp->Pagine().Testo()));

    QCOMPARE(Composizioni([&] {
                 Box->setFocus();
                 Premi(Qt::Key_Tab);
             }),
             0);  // left as it was
    QVERIFY(!Box->hasFocus());

    // Behind the leaving the letters are one step of the note, and the page follows it at once.
    Box->setFocus();
    QCOMPARE(Composizioni([] { Premi(Qt::Key_Z, Qt::ControlModifier); }), 1);
    QCOMPARE(TestoDi(Box), Prima);
    QVERIFY2(!SiLegge(u"7 x"_s), qPrintable(vp->Pagine().Testo()));
}

void TestRicomposizione::ogniSegno_data()
{
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<QByteArray>("Nome");
    QTest::addColumn<int>("Volte");
    QTest::newRow("IBAN, prenotula") << 0 << QByteArray("chkIBAN") << 1;
    QTest::newRow("IBAN, fattura") << 2 << QByteArray("chkIBAN") << 1;
    QTest::newRow("regime") << 2 << QByteArray("chkRegSempl") << 1;
    QTest::newRow("regime, analitica") << 3 << QByteArray("chkRegSempl") << 1;
    QTest::newRow("I.V.A. differita") << 3 << QByteArray("chkIvaDiff") << 1;
    QTest::newRow("l'acconto non si stampa") << 2 << QByteArray("chkFattAcc") << 0;
}

void TestRicomposizione::ogniSegno()
{
    QFETCH(int, Tipo);
    QFETCH(QByteArray, Nome);
    QFETCH(int, Volte);
    Documento(Tipo);
    for (const bool Acceso : {true, false}) {
        F->SetModificata(false);
        QCOMPARE(Composizioni([&] { Clic(Controllo(F, Nome.constData())); }), Volte);
        QCOMPARE(Controllo<QCheckBox>(F, Nome.constData())->isChecked(), Acceso);
        QVERIFY(F->Nota.Modificata);
    }
}

void TestRicomposizione::lOpzioneSceltaNonSiSceglieDueVolte()
{
    Documento(StampaContratto);
    QCOMPARE(Composizioni([&] { Clic(Controllo(F, "optContrTipo_1")); }), 1);
    F->SetModificata(false);
    QCOMPARE(Composizioni([&] { Clic(Controllo(F, "optContrTipo_1")); }), 0);
    QVERIFY(!F->Nota.Modificata);
    QCOMPARE(Composizioni([&] { Clic(Controllo(F, "optContrTipo_0")); }), 1);
}

void TestRicomposizione::impostePrimaDellaPagina_data()
{
    QTest::addColumn<QByteArray>("Nome");
    for (const char* Nome : {"chkIva", "chkRA", "chkCP", "chkSpeseGen", "chkAcconti", "chkMinMax", "txtIVA",
                             "txtRA", "txtCP", "txtSpeGen"})
        QTest::newRow(Nome) << QByteArray(Nome);
}

void TestRicomposizione::impostePrimaDellaPagina()
{
    QFETCH(QByteArray, Nome);
    Documento(StampaPrenotula);
    QCOMPARE(Composizioni([&] { ClicScheda(F, SchedaImposte); }), 0);
    auto* Controllato = Controllo(F, Nome.constData());
    if (auto* Box = qobject_cast<QLineEdit*>(Controllato))
        QCOMPARE(Composizioni([&] {
                     Scrivi(Box, u"7"_s);
                     Premi(Qt::Key_Tab);
                 }),
                 0);
    else
        QCOMPARE(Composizioni([&] { Clic(Controllato); }), 0);
    QVERIFY(F->Nota.Modificata);
    QCOMPARE(Composizioni([&] { ClicScheda(F, SchedaDiStampa); }), 1);
}

void TestRicomposizione::percentoCheNonENumero()
{
    Documento(StampaPrenotula);
    ClicScheda(F, SchedaImposte);
    auto* Box = Controllo<QLineEdit>(F, "txtIVA");
    Incolla(Box, u"1,2,3"_s);
    // What is no number is shown as wrong, holds nobody back and counts for nothing.
    QCOMPARE(Composizioni([&] { ClicScheda(F, SchedaDiStampa); }), 1);
    QCOMPARE(F->Scheda(), int(SchedaDiStampa));
    QCOMPARE(Box->text(), u"1,2,3"_s);
    QCOMPARE(CatenaFiscale(F->Nota, StampaPrenotula).IVA, 0.0);
    ClicScheda(F, SchedaImposte);
    Scrivi(Box, u"22"_s);
    QCOMPARE(Composizioni([&] { ClicScheda(F, SchedaDiStampa); }), 1);
    QCOMPARE(F->Nota.txtIVA.Testo, u"22"_s);
}

void TestRicomposizione::leAltreSchede()
{
    Documento(StampaPrenotula);
    QCOMPARE(Composizioni([&] {
                 ClicScheda(F, SchedaBase);
                 Scrivi(Controllo<QLineEdit>(F, "txtCliente"), u"Neri Ugo"_s);
                 Premi(Qt::Key_Tab);
                 ClicScheda(F, SchedaListaOnorari);
                 ClicScheda(F, SchedaListaSpese);
             }),
             0);
    QCOMPARE(Composizioni([&] { ClicScheda(F, SchedaDiStampa); }), 1);
    QVERIFY(vp->Pagine().Testo().contains(u"Neri Ugo"_s));
}

void TestRicomposizione::guardareNonCompone()
{
    Documento(StampaFatturaAnalitica);
    for (const char* Tasto : {"barPrint_up", "barPrint_down", "barPrint_zoom"})
        QCOMPARE(Composizioni([&] { Clic(Controllo(F, Tasto)); }), 0);
    vp->setFocus();
    for (const Qt::Key Tasto : {Qt::Key_PageDown, Qt::Key_End, Qt::Key_Home, Qt::Key_Plus, Qt::Key_A})
        QCOMPARE(Composizioni([&] { Premi(Tasto, Qt::ControlModifier); }), 0);
    QCOMPARE(F->Scheda(), int(SchedaDiStampa));
    QCOMPARE(Composizioni([&] { F->resize(F->size() + QSize(80, 40)); }), 0);
    QCOMPARE(Composizioni([&] {
                 F->MostraTutto();
                 F->RefreshGrid();
             }),
             0);
}

void TestRicomposizione::laCasellaLasciataDalComando()
{
    Shell Finta;
    Finta.ApriFile = [](const QString&) { return 0; };
    Finta.HaProgramma = [](const QString&) { return true; };
    const Shell Vera = InstallaShell(Finta);
    const auto Rimetti = qScopeGuard([&] { InstallaShell(Vera); });
    F->resize(845, 555);  // wide enough for the whole toolbar
    Documento(StampaPrenotula);
    QCOMPARE(Composizioni([&] { Clic(Controllo(F, "barPrint_word")); }), 1);
    // A box in edit is left first, which composes for its part.
    Scrivi(Controllo<QLineEdit>(F, "txtDatiPar_0"), u"1"_s);
    QCOMPARE(Composizioni([&] { Clic(Controllo(F, "barPrint_word")); }), 2);

    T->Voce.AttendiSalva(T->Ufficio.File(u"nota.mdb"_s));
    T->Voce.Attendi(u"La parcella nota.mdb è stata salvata correttamente!"_s);
    QCOMPARE(Composizioni([&] { QVERIFY(F->SalvaParcella(false)); }), 1);
}

#include "TestRicomposizione.moc"
