// An expense that was just inserted: its amount is open, and the one in force is offered.
#include "feenote/modControlliNota.h"
#include "feenote/windows/rigaofferta.h"
#include "platform/base/regionale.h"
#include "platform/kit/aspetto.h"
#include "platform/system/orologio.h"
#include "tavolo.h"

#include <QScopeGuard>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

constexpr int VoceContributo = 0;
constexpr int VoceAnticipazione = 1;
constexpr int VoceMarca = 2;

/// A key as it comes from the keyboard: the shortcuts are asked behind the widget's own.
void ConScorciatoie(Qt::Key Tasto, Qt::KeyboardModifiers Con)
{
    QTest::keyClick(QApplication::focusWidget(), Tasto, Con);
}

}  // namespace

class TestOffertaSpesa : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void laCellaDellImportoEAperta_data();
    void laCellaDellImportoEAperta();
    void quelCheSiScriveSostituisce();
    void invioVaAllaCellaSeguente();
    void escLaChiude();
    void ctrlZRiprendeLInserimento();
    void ctrlZDopoAverScritto();
    void unaDopoLAltra();
    void offerta_data();
    void offerta();
    void presaEUnPasso_data();
    void presaEUnPasso();
    void dalCatalogoColTasto();
    void conInvioDelTastierino();
    void nonPresaNonCambiaNiente();
    void chiScriveVince();
    void svanisce_data();
    void svanisce();
    void svanisceDaSola();
    void tornandoAllaRigaTorna();
    void dalRilievoAllUnicaRiga();
    void colGiornoDellaRiga();
    void nonSiOffre_data();
    void nonSiOffre();
    void ilCorsoDelleNote();
    void quantita();
    void diChiELImporto();
    void annunci();

private:
    [[nodiscard]] QToolButton* Offerta() const { return Controllo<QToolButton>(F, "cmdOfferta"); }
    [[nodiscard]] QToolButton* Annulla() const { return Controllo<QToolButton>(F, "cmdAnnulla"); }
    [[nodiscard]] QString Importi(int Riga) const
    {
        return CStr(F->Nota.xDiritti(Riga, DirImponibile)) + u'|' + CStr(F->Nota.xDiritti(Riga, DirEsente));
    }
    void InserisciDaTastiera(int Voce)
    {
        Lista->setFocus();
        Lista->ImpostaRigaCorrente(Voce);
        Premi(Qt::Key_Return);
    }

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    Griglia* Lista = nullptr;
    Griglia* Righe = nullptr;
};
PROVA(TestOffertaSpesa);

void TestOffertaSpesa::init()
{
    T = std::make_unique<Tavolo>();
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
    Aperture.AnticipazioneNotifiche = [](const QDate& Giorno) {
        return std::optional(ImportoDiLegge{Giorno == QDate(2026, 11, 22) ? 27.0 : 1.0,
                                            u"D.P.R. 115/2002, art. 30"_s,
                                            u"Non per lavoro e previdenza."_s});
    };
    F = T->Apri();
    QVERIFY(F);
    CompilaCivile(F);
    ClicScheda(F, SchedaListaSpese);
    Lista = Controllo<Griglia>(F, "tdbListaDir");
    Righe = Controllo<Griglia>(F, "tdbDir");
}

void TestOffertaSpesa::cleanup()
{
    T.reset();
    InstallaOrologio({});
}

// ---- the open amount ----------------------------------------------------------------------------

void TestOffertaSpesa::laCellaDellImportoEAperta_data()
{
    QTest::addColumn<QString>("Come");
    for (const QString& Come : {u"doppio clic"_s, u"Invio"_s, u"pulsante"_s})
        QTest::newRow(qPrintable(Come)) << Come;
}

void TestOffertaSpesa::laCellaDellImportoEAperta()
{
    QFETCH(QString, Come);
    if (Come == u"doppio clic") {
        DoppioClic(Lista, VoceMarca);
    } else if (Come == u"Invio") {
        InserisciDaTastiera(VoceMarca);
    } else {
        Lista->ImpostaRigaCorrente(VoceMarca);
        Clic(Controllo(PaginaIn(F), "barListaOnoDir_select"));
    }
    QCOMPARE(F->Nota.xDiritti.Righe(), 1);
    QVERIFY(Righe->InModifica());
    QCOMPARE(Righe->RigaCorrente(), std::optional(0));
    QCOMPARE(Righe->ColonnaCorrente(), int(DirImponibile));
    const QLineEdit* Cella = LaCella(Righe);
    QVERIFY(Cella);
    QCOMPARE(QApplication::focusWidget(), Cella);
    QCOMPARE(Cella->text(), u"0"_s);
    QCOMPARE(Cella->selectedText(), u"0"_s);
    QCOMPARE(Annulla()->toolTip(), u"Annulla: nuova riga delle spese (Ctrl+Z)"_s);
}

void TestOffertaSpesa::quelCheSiScriveSostituisce()
{
    InserisciDaTastiera(VoceMarca);
    Digita(u"16,5"_s);
    QCOMPARE(LaCella(Righe)->text(), u"16,5"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(Importi(0), u"16,5|"_s);
    QVERIFY(!Righe->InModifica());
}

void TestOffertaSpesa::invioVaAllaCellaSeguente()
{
    InserisciDaTastiera(VoceMarca);
    Premi(Qt::Key_Return);
    QCOMPARE(Righe->ColonnaCorrente(), int(DirEsente));
    QCOMPARE(QApplication::focusWidget(), Righe->Vista());
    QCOMPARE(Importi(0), u"0|"_s);
}

void TestOffertaSpesa::escLaChiude()
{
    InserisciDaTastiera(VoceMarca);
    Digita(u"5"_s);
    Premi(Qt::Key_Escape);
    QVERIFY(!Righe->InModifica());
    QCOMPARE(Importi(0), u"0|"_s);
    QCOMPARE(F->Nota.xDiritti.Righe(), 1);
}

void TestOffertaSpesa::ctrlZRiprendeLInserimento()
{
    InserisciDaTastiera(VoceMarca);
    ConScorciatoie(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(F->Nota.xDiritti.Vuota());
    QVERIFY(!Righe->InModifica());
    ConScorciatoie(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(F->Nota.xDiritti.Righe(), 1);
}

/// Letters of the cell go back first.
void TestOffertaSpesa::ctrlZDopoAverScritto()
{
    InserisciDaTastiera(VoceMarca);
    Digita(u"7"_s);
    Premi(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(Righe->InModifica());
    QCOMPARE(LaCella(Righe)->text(), u"0"_s);
    QCOMPARE(F->Nota.xDiritti.Righe(), 1);
    ConScorciatoie(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(F->Nota.xDiritti.Vuota());
}

void TestOffertaSpesa::unaDopoLAltra()
{
    DoppioClic(Lista, VoceMarca);
    DoppioClic(Lista, VoceContributo);
    QCOMPARE(F->Nota.xDiritti.Righe(), 2);
    Digita(u"43"_s);
    Premi(Qt::Key_F6, Qt::ShiftModifier);  // back to the catalogue, the amount written
    QCOMPARE(QApplication::focusWidget(), Lista->Vista());
    QCOMPARE(Importi(0), u"0|"_s);
    QCOMPARE(Importi(1), u"43|"_s);
}

// ---- the offer ----------------------------------------------------------------------------------

void TestOffertaSpesa::offerta_data()
{
    QTest::addColumn<bool>("DaTastiera");
    QTest::newRow("doppio clic") << false;
    QTest::newRow("Invio") << true;
}

void TestOffertaSpesa::offerta()
{
    QFETCH(bool, DaTastiera);
    F->resize(aspetto::Pixel(12800), aspetto::Pixel(8800));  // as notes open
    Respiro();
    QVERIFY(!Offerta()->isVisible());
    const QRect Prima = Righe->geometry();
    DaTastiera ? InserisciDaTastiera(VoceAnticipazione) : DoppioClic(Lista, VoceAnticipazione);
    Respiro();
    QVERIFY(Offerta()->isVisible());
    QCOMPARE(Offerta()->text(), u"27,00 esente: Ctrl+Invio (D.P.R. 115/2002, art. 30)"_s);
    QVERIFY(Offerta()->toolTip().contains(u"Non per lavoro e previdenza."));
    QVERIFY(Offerta()->toolTip().contains(u"Non fino a € 1.033,00 davanti al giudice di pace"));
    QCOMPARE(Offerta()->accessibleName(), Offerta()->text());
    QCOMPARE(Importi(0), u"0|"_s);
    QCOMPARE(Righe->geometry(), Prima);  // nothing has moved
    QVERIFY(Offerta()->fontMetrics().horizontalAdvance(Offerta()->text()) <= Offerta()->width());
}

void TestOffertaSpesa::presaEUnPasso_data()
{
    QTest::addColumn<bool>("ColTasto");
    QTest::newRow("clic") << false;
    QTest::newRow("Ctrl+Invio") << true;
}

void TestOffertaSpesa::presaEUnPasso()
{
    QFETCH(bool, ColTasto);
    DoppioClic(Lista, VoceAnticipazione);
    Respiro();
    if (ColTasto)
        ConScorciatoie(Qt::Key_Return, Qt::ControlModifier);
    else
        Clic(Offerta());
    QCOMPARE(Importi(0), u"0|27"_s);
    QVERIFY(!Righe->InModifica());
    QVERIFY(!Offerta()->isVisible());
    QCOMPARE(QApplication::focusWidget(), Righe->Vista());
    QCOMPARE(Righe->ColonnaCorrente(), int(DirEsente));
    QCOMPARE(Righe->TestoPie(DirEsente), u"27,00"_s);
    QCOMPARE(Controllo<QLabel>(F, "lblSpese")->text(), u"Esenti: 27,00"_s);
    QVERIFY(F->Nota.Modificata);
    QCOMPARE(Annulla()->toolTip(), u"Annulla: anticipazione esente (Ctrl+Z)"_s);

    ConScorciatoie(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(F->Nota.xDiritti.Righe(), 1);
    QCOMPARE(Importi(0), u"0|"_s);
    QVERIFY2(!Offerta()->isVisible(), "chi l'ha annullata non la vede tornare");
    ConScorciatoie(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(Importi(0), u"0|27"_s);
}

/// The keys hold on the whole page, not only in the lines.
void TestOffertaSpesa::dalCatalogoColTasto()
{
    DoppioClic(Lista, VoceAnticipazione);
    Lista->setFocus();
    ConScorciatoie(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(Importi(0), u"0|27"_s);
    QCOMPARE(F->Nota.xDiritti.Righe(), 1);
    // Without an offer the key is the catalogue's, as it was.
    Lista->setFocus();
    ConScorciatoie(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(F->Nota.xDiritti.Righe(), 2);
}

void TestOffertaSpesa::conInvioDelTastierino()
{
    DoppioClic(Lista, VoceAnticipazione);
    ConScorciatoie(Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier);
    QCOMPARE(Importi(0), u"0|27"_s);
}

void TestOffertaSpesa::nonPresaNonCambiaNiente()
{
    DoppioClic(Lista, VoceAnticipazione);
    Premi(Qt::Key_Return);
    Premi(Qt::Key_Return);
    ClicScheda(F, SchedaImposte);
    QCOMPARE(Importi(0), u"0|"_s);
    QCOMPARE(Annulla()->toolTip(), u"Annulla: nuova riga delle spese (Ctrl+Z)"_s);
}

/// An amount in the open cell is the user's own: it is written, and there is nothing left to offer.
void TestOffertaSpesa::chiScriveVince()
{
    DoppioClic(Lista, VoceAnticipazione);
    Digita(u"8"_s);
    ConScorciatoie(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(Importi(0), u"8|"_s);
    QVERIFY(!Offerta()->isVisible());
}

void TestOffertaSpesa::svanisce_data()
{
    QTest::addColumn<std::function<void(TestOffertaSpesa*)>>("Cosa");
    using Atto = std::function<void(TestOffertaSpesa*)>;
    QTest::newRow("con un importo scritto") << Atto([](TestOffertaSpesa*) {
        Digita(u"27"_s);
        Premi(Qt::Key_Return);
    });
    QTest::newRow("su un'altra riga") << Atto([](TestOffertaSpesa* Q) { Q->Righe->ImpostaRigaCorrente(0); });
    QTest::newRow("con un'altra spesa") << Atto([](TestOffertaSpesa* Q) { DoppioClic(Q->Lista, VoceMarca); });
    QTest::newRow("cambiando scheda") << Atto([](TestOffertaSpesa* Q) {
        ClicScheda(Q->F, SchedaImposte);
        ClicScheda(Q->F, SchedaListaSpese);
    });
    QTest::newRow("annullando l'inserimento") << Atto([](TestOffertaSpesa* Q) { Clic(Q->Annulla()); });
    QTest::newRow("con un'altra parcella") << Atto([](TestOffertaSpesa* Q) { Q->F->Nuova({}); });
}

void TestOffertaSpesa::svanisce()
{
    QFETCH(std::function<void(TestOffertaSpesa*)>, Cosa);
    DoppioClic(Lista, VoceMarca);
    DoppioClic(Lista, VoceAnticipazione);
    QVERIFY(Offerta()->isVisible());
    Cosa(this);
    Respiro();
    QVERIFY(!Offerta()->isVisibleTo(F));
    const auto* Riga = F->findChild<RigaOfferta*>();
    QVERIFY(Riga && !Riga->InOfferta());
}

/// Watches for the offer's coming: a machine at work may see it gone before the test looks.
class Comparsa : public QObject
{
public:
    explicit Comparsa(QWidget* Dove) { Dove->installEventFilter(this); }
    bool eventFilter(QObject* Chi, QEvent* Evento) override
    {
        Vista = Vista || Evento->type() == QEvent::Show;
        return QObject::eventFilter(Chi, Evento);
    }
    bool Vista = false;
};

void TestOffertaSpesa::svanisceDaSola()
{
    const Comparsa Apparsa(Offerta());
    const auto Rimetti = qScopeGuard([Durata = RigaOfferta::DurataMs] { RigaOfferta::DurataMs = Durata; });
    RigaOfferta::DurataMs = 60;
    DoppioClic(Lista, VoceAnticipazione);
    QVERIFY(Apparsa.Vista);
    QTRY_VERIFY(!Offerta()->isVisible());
    QVERIFY(Righe->InModifica());  // the user's cell is not touched
    ConScorciatoie(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(Importi(0), u"0|"_s);
}

/// A line that was left at 0, by whomever, is offered its amount when it is in hand again.
void TestOffertaSpesa::tornandoAllaRigaTorna()
{
    DoppioClic(Lista, VoceAnticipazione);
    DoppioClic(Lista, VoceMarca);
    QVERIFY(!Offerta()->isVisible());
    Premi(Qt::Key_Escape);
    Premi(Qt::Key_Up);
    QVERIFY(Offerta()->isVisible());
    QCOMPARE(Importi(0), u"0|"_s);
    ConScorciatoie(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(Importi(0), u"0|27"_s);
    Premi(Qt::Key_Down);
    Premi(Qt::Key_Up);
    QVERIFY(!Offerta()->isVisible());
}

/// The remark of an expense at 0 leads to its line, which was the current one all along, and to its offer.
void TestOffertaSpesa::dalRilievoAllUnicaRiga()
{
    DoppioClic(Lista, VoceAnticipazione);
    Premi(Qt::Key_Escape);
    ClicScheda(F, SchedaDiStampa);
    ClicScheda(F, SchedaListaSpese);
    QVERIFY(!Offerta()->isVisible());
    ClicScheda(F, SchedaDiStampa);
    Rilievo Zero{};
    Zero.Luogo = LuogoRilievo::Spese;
    Zero.Riga = 0;
    Zero.Colonna = DirImponibile;
    F->VaiAlRilievo(Zero);
    Respiro();
    QCOMPARE(F->Scheda(), int(SchedaListaSpese));
    QVERIFY(Offerta()->isVisible());
    ConScorciatoie(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(Importi(0), u"0|27"_s);
}

/// A line with a day of its own is offered what was in force then.
void TestOffertaSpesa::colGiornoDellaRiga()
{
    Aperture.AnticipazioneNotifiche = [](const QDate& Giorno) {
        return std::optional(ImportoDiLegge{Giorno.year() < 2014 ? 8.0 : 27.0, u"art. 30"_s});
    };
    DoppioClic(Lista, VoceAnticipazione);
    QVERIFY(Offerta()->text().startsWith(u"27,00 "));
    ScriviCella(Righe, 0, DirData, u"05032013"_s);
    QVERIFY(Offerta()->isVisible());
    QVERIFY2(Offerta()->text().startsWith(u"8,00 "), qPrintable(Offerta()->text()));
    Clic(Offerta());
    QCOMPARE(Importi(0), u"0|8"_s);
}

void TestOffertaSpesa::nonSiOffre_data()
{
    QTest::addColumn<int>("Voce");
    QTest::addColumn<bool>("ConNorme");
    QTest::newRow("un'altra voce") << VoceContributo << true;
    QTest::newRow("senza norme") << VoceAnticipazione << false;
}

void TestOffertaSpesa::nonSiOffre()
{
    QFETCH(int, Voce);
    QFETCH(bool, ConNorme);
    if (!ConNorme)
        Aperture.AnticipazioneNotifiche = {};
    DoppioClic(Lista, Voce);
    Respiro();
    QVERIFY(!Offerta()->isVisible());
    ConScorciatoie(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(Importi(0), u"0|"_s);
}

/// Before a tax court nobody advances the sum.
void TestOffertaSpesa::ilCorsoDelleNote()
{
    ClicScheda(F, SchedaBase);
    Scegli(Controllo<QComboBox>(F, "cmbAutor"), IndiceAutorita(F->Nota, 3));
    ClicScheda(F, SchedaListaSpese);
    DoppioClic(Lista, VoceAnticipazione);
    Respiro();
    QVERIFY(!Offerta()->isVisible());
    QVERIFY(Righe->InModifica());
}

// ---- what an amount is --------------------------------------------------------------------------

void TestOffertaSpesa::quantita()
{
    auto* Nota = Controllo<QLabel>(F, "lblNotaRiga");
    DoppioClic(Lista, VoceMarca);
    QVERIFY(!Nota->isVisible());
    ScriviCella(Righe, 0, DirQta, u"3"_s);
    QVERIFY(Nota->isVisible());
    QCOMPARE(Nota->text(), u"Q.tà 3: l'importo è il totale della riga"_s);
    DoppioClic(Lista, VoceAnticipazione);
    QVERIFY(Offerta()->isVisible() && !Nota->isVisible());
    Righe->ImpostaRigaCorrente(0);
    QVERIFY(Nota->isVisible());
    ScriviCella(Righe, 0, DirImponibile, u"12,5"_s);
    QCOMPARE(Righe->TestoPie(DirImponibile), u"12,50"_s);
    ScriviCella(Righe, 0, DirQta, u"1"_s);
    QVERIFY(!Nota->isVisible());
}

void TestOffertaSpesa::diChiELImporto()
{
    const QAbstractItemModel* Modello = Righe->Vista()->model();
    for (const int Colonna : {int(DirImponibile), int(DirEsente)})
        QCOMPARE(Modello->headerData(Colonna, Qt::Horizontal, Qt::ToolTipRole).toString(),
                 u"Totale della riga: la quantità non lo moltiplica"_s);
    QVERIFY(Modello->headerData(DirQta, Qt::Horizontal, Qt::ToolTipRole)
                .toString()
                .contains(u"totale della riga"));
    QVERIFY(Modello->headerData(DirDescr, Qt::Horizontal, Qt::ToolTipRole).toString().isEmpty());
    DoppioClic(Lista, VoceMarca);
    QCOMPARE(LaCella(Righe)->toolTip(), u"Totale della riga: la quantità non lo moltiplica"_s);
    QCOMPARE(LaCella(Righe)->accessibleDescription(), LaCella(Righe)->toolTip());
    // Of an honorarium the amount follows from the quantity.
    const QAbstractItemModel* Onorari = Controllo<Griglia>(F, "tdbOnor")->Vista()->model();
    for (int Colonna = 0; Colonna < Onorari->columnCount(); ++Colonna)
        QVERIFY(Onorari->headerData(Colonna, Qt::Horizontal, Qt::ToolTipRole).toString().isEmpty());
}

void TestOffertaSpesa::annunci()
{
    const auto Detto = [this] {
        const auto* Annuncio = F->window()->findChild<QWidget*>(u"annuncio"_s);
        return Annuncio ? Annuncio->accessibleName() : QString();
    };
    DoppioClic(Lista, VoceMarca);
    QCOMPARE(Detto(), u"Inserita: Marca da bollo"_s);
    DoppioClic(Lista, VoceAnticipazione);
    QVERIFY2(Detto().endsWith(u". 27,00 esente: Ctrl+Invio"), qPrintable(Detto()));
    ConScorciatoie(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(Detto(), u"27,00 esente"_s);
    ClicScheda(F, SchedaListaOnorari);
    T->Voce.Tollera();
    DoppioClic(Controllo<Griglia>(F, "tdbListaOno"), Controllo<Griglia>(F, "tdbListaOno")->Righe() - 1);
    QVERIFY2(Detto().startsWith(u"Inserito: "), qPrintable(Detto()));
}

#include "TestOffertaSpesa.moc"
