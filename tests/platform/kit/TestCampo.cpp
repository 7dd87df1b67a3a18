// Leaving boxes, refusing to be left, keys let in, on real widgets with the focus.
#include "platform/base/errore.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "supporto/finestre.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTabBar>
#include <QToolTip>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// A dialog with three boxes and a default button that counts.
struct Modulo : QDialog
{
    Modulo()
        : A(new QLineEdit(this)), B(new QLineEdit(this)), C(new QLineEdit(this)), Ok(new QPushButton(this))
    {
        auto* Disposizione = new QVBoxLayout(this);
        for (QWidget* Campo : {static_cast<QWidget*>(A), static_cast<QWidget*>(B), static_cast<QWidget*>(C),
                               static_cast<QWidget*>(Ok)})
            Disposizione->addWidget(Campo);
        Ok->setDefault(true);
        Collega(Ok, &QPushButton::clicked, this, [this] { ++Premuto; });
    }
    QLineEdit* A;
    QLineEdit* B;
    QLineEdit* C;
    QPushButton* Ok;
    int Premuto = 0;
};

/// A procedure that counts its calls and answers as told.
struct Conto
{
    int Chiamate = 0;
    bool Risposta = true;
    std::function<bool()> operator()()
    {
        return [this] {
            ++Chiamate;
            return Risposta;
        };
    }
};

}  // namespace

class TestCampo : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void siLasciaSoloSeToccato();
    void ilTestoDelCodiceNonTocca();
    void sempreSiLasciaOgniVolta();
    void laFinestraNonEUnUscita_data();
    void laFinestraNonEUnUscita();
    void ilRifiutoRidaIlFuoco();
    void ilRifiutoNonFaUscireIlVicino();
    void unMessaggioNonRientra();
    void unErroreNonImprigiona();
    void ilModuloChiusoDallaRegola();
    void ilModuloDistruttoNonSiLascia();
    void laSecondaRegolaSostituisce();
    void listaScrivibile();
    void testoLungo();
    void leSchedeLascianoPrimaIlCampo_data();
    void leSchedeLascianoPrimaIlCampo();
    void concludiCampo();
    void concludiConUnAltroProgrammaDavanti();
    void concludiSenzaFuoco();
    void invioPassaAvanti();
    void filtroDeiTasti();
    void ilTastoTenutoFuoriSiDice_data();
    void ilTastoTenutoFuoriSiDice();
    void filtroNonToccaIncolla();
    void virgola_data();
    void virgola();
    void virgolaSenzaFiltro();
    void soloLettura();
    void numerico_data();
    void numerico();
    void numericoSempre();
    void percentoSenzaSegno();
    void ilFuocoTornaDoveSiVede();

private:
    std::unique_ptr<Modulo> M;
};
PROVA(TestCampo);

void TestCampo::init()
{
    M = std::make_unique<Modulo>();
    QVERIFY(MostraAttiva(*M));
    M->A->setFocus();
}

void TestCampo::cleanup()
{
    M.reset();
}

void TestCampo::siLasciaSoloSeToccato()
{
    Conto Regola;
    AlLascia(M->A, Regola());
    M->B->setFocus();
    QCOMPARE(Regola.Chiamate, 0);
    M->A->setFocus();
    Digita(u"1"_s);
    M->B->setFocus();
    QCOMPARE(Regola.Chiamate, 1);
    M->A->setFocus();
    M->B->setFocus();
    QVERIFY2(Regola.Chiamate == 1, "accettato, il campo torna intatto");
}

void TestCampo::ilTestoDelCodiceNonTocca()
{
    Conto Regola;
    AlLascia(M->A, Regola());
    M->A->setText(u"scritto dal codice"_s);
    M->B->setFocus();
    QCOMPARE(Regola.Chiamate, 0);
}

void TestCampo::sempreSiLasciaOgniVolta()
{
    Conto Regola;
    AlLasciaSempre(M->A, Regola());
    M->B->setFocus();
    M->A->setFocus();
    M->B->setFocus();
    QCOMPARE(Regola.Chiamate, 2);
}

void TestCampo::laFinestraNonEUnUscita_data()
{
    QTest::addColumn<int>("Motivo");
    QTest::addColumn<int>("Chiamate");
    QTest::newRow("altra finestra") << int(Qt::ActiveWindowFocusReason) << 0;
    QTest::newRow("menu aperto") << int(Qt::PopupFocusReason) << 0;
    QTest::newRow("Tab") << int(Qt::TabFocusReason) << 1;
    QTest::newRow("clic") << int(Qt::MouseFocusReason) << 1;
    QTest::newRow("scorciatoia") << int(Qt::ShortcutFocusReason) << 1;
    QTest::newRow("codice") << int(Qt::OtherFocusReason) << 1;
}

void TestCampo::laFinestraNonEUnUscita()
{
    QFETCH(int, Motivo);
    Conto Regola;
    AlLasciaSempre(M->A, Regola());
    QFocusEvent Uscita(QEvent::FocusOut, Qt::FocusReason(Motivo));
    QCoreApplication::sendEvent(M->A, &Uscita);
    QTEST(Regola.Chiamate, "Chiamate");
}

void TestCampo::ilRifiutoRidaIlFuoco()
{
    Conto Regola;
    Regola.Risposta = false;
    AlLascia(M->A, Regola());
    Digita(u"abc"_s);
    M->B->setFocus();
    QVERIFY2(M->B->hasFocus(), "il ritorno è accodato");
    Respiro();
    QVERIFY(M->A->hasFocus());
    QCOMPARE(M->A->selectedText(), u"abc"_s);
    M->B->setFocus();
    Respiro();
    QCOMPARE(Regola.Chiamate, 2);
    Regola.Risposta = true;
    M->B->setFocus();
    Respiro();
    QVERIFY(M->B->hasFocus());
}

void TestCampo::ilRifiutoNonFaUscireIlVicino()
{
    Conto Prima;
    Prima.Risposta = false;
    Conto Vicino;
    AlLascia(M->A, Prima());
    AlLasciaSempre(M->B, Vicino());
    Digita(u"x"_s);
    M->B->setFocus();
    Respiro();
    QVERIFY(M->A->hasFocus());
    QVERIFY2(Vicino.Chiamate == 0, "il fuoco reso al primo campo non è un'uscita dal secondo");
}

void TestCampo::unMessaggioNonRientra()
{
    int Chiamate = 0;
    AlLasciaSempre(M->A, [&] {
        ++Chiamate;
        // What a box over the form does: it takes the focus and gives it back.
        M->A->setFocus();
        M->C->setFocus();
        return true;
    });
    M->B->setFocus();
    QCOMPARE(Chiamate, 1);
}

void TestCampo::unErroreNonImprigiona()
{
    int Numero = 0;
    const auto Precedente = InstallaUltimaRete([&](const Errore& E) { Numero = E.Numero; });
    AlLasciaSempre(M->A, []() -> bool { throw Errore(13); });
    M->B->setFocus();
    Respiro();
    InstallaUltimaRete(Precedente);
    QCOMPARE(Numero, 13);
    QVERIFY(M->B->hasFocus());
}

void TestCampo::ilModuloDistruttoNonSiLascia()
{
    Conto Lasciata;
    auto Suo = std::make_unique<Modulo>();
    AlLascia(Suo->A, Lasciata());
    QVERIFY(MostraAttiva(*Suo));
    Suo->A->setFocus();
    Digita(u"a"_s);
    Suo.reset();  // the focus goes with the box
    QCOMPARE(Lasciata.Chiamate, 0);
}

void TestCampo::ilModuloChiusoDallaRegola()
{
    AlLasciaSempre(M->A, [&] {
        M.reset();
        return false;
    });
    QFocusEvent Uscita(QEvent::FocusOut, Qt::TabFocusReason);
    QCoreApplication::sendEvent(M->A, &Uscita);
    Respiro();
    QVERIFY(!M);
}

void TestCampo::laSecondaRegolaSostituisce()
{
    Conto Prima;
    Conto Seconda;
    AlLascia(M->A, Prima());
    AlLasciaSempre(M->A, Seconda());
    M->B->setFocus();
    QCOMPARE(Prima.Chiamate, 0);
    QCOMPARE(Seconda.Chiamate, 1);
}

void TestCampo::listaScrivibile()
{
    auto* Lista = new QComboBox(M.get());
    Lista->setEditable(true);
    M->layout()->addWidget(Lista);
    Lista->show();
    Conto Regola;
    AlLascia(Lista, Regola());
    Lista->setFocus();
    M->B->setFocus();
    QCOMPARE(Regola.Chiamate, 0);
    Lista->setFocus();
    Lista->lineEdit()->insert(u"x"_s);
    M->B->setFocus();
    QCOMPARE(Regola.Chiamate, 1);
}

void TestCampo::testoLungo()
{
    auto* Testo = new QPlainTextEdit(M.get());
    M->layout()->addWidget(Testo);
    Testo->show();
    Conto Regola;
    AlLascia(Testo, Regola());
    Testo->setFocus();
    Digita(u"oggetto"_s);
    M->B->setFocus();
    QCOMPARE(Regola.Chiamate, 1);
    Testo->setFocus();
    M->B->setFocus();
    QCOMPARE(Regola.Chiamate, 1);
}

void TestCampo::concludiCampo()
{
    Conto Regola;
    AlLascia(M->A, Regola());
    QVERIFY(ConcludiCampo());
    QCOMPARE(Regola.Chiamate, 0);
    Digita(u"1"_s);
    QVERIFY(ConcludiCampo());
    QCOMPARE(Regola.Chiamate, 1);
    M->B->setFocus();
    QVERIFY2(Regola.Chiamate == 1, "già concluso: uscendo non si ripete");
    M->A->setFocus();
    Digita(u"2"_s);
    Regola.Risposta = false;
    QVERIFY(!ConcludiCampo());
    QVERIFY(M->A->hasFocus());
}

void TestCampo::concludiConUnAltroProgrammaDavanti()
{
    Conto Regola;
    Regola.Risposta = false;
    AlLascia(M->A, Regola());
    Digita(u"1"_s);
    QApplication::setActiveWindow(nullptr);
    QVERIFY(!QApplication::focusWidget());
    QCOMPARE(Regola.Chiamate, 0);
    QVERIFY(!ConcludiCampo());
    QCOMPARE(Regola.Chiamate, 1);
}

void TestCampo::concludiSenzaFuoco()
{
    M->A->clearFocus();
    QVERIFY(ConcludiCampo());
    M.reset();
    QVERIFY(ConcludiCampo());
}

void TestCampo::invioPassaAvanti()
{
    FiltraTasti(M->A, u""_s);
    Conto Regola;
    AlLascia(M->A, Regola());
    Digita(u"1"_s);
    Premi(Qt::Key_Return);
    QVERIFY(M->B->hasFocus());
    QVERIFY2(M->B->window()->testAttribute(Qt::WA_KeyboardFocusChange), "the focus is drawn");
    QCOMPARE(Regola.Chiamate, 1);
    QCOMPARE(M->Premuto, 0);
    Premi(Qt::Key_Return);
    QVERIFY2(M->Premuto == 1, "un campo senza filtro lascia il pulsante predefinito");
}

void TestCampo::filtroDeiTasti()
{
    FiltraTasti(M->A, u"LEle"_s);
    Digita(u"lzeèzE"_s);
    QCOMPARE(M->A->text(), u"leE"_s);
    QVERIFY(M->A->isModified());
    QCOMPARE(TastiRifiutati(M->A), u"zè"_s);
    Premi(Qt::Key_Backspace);
    Premi(Qt::Key_Home);
    QVERIFY2(M->A->text() == u"le" && M->A->cursorPosition() == 0, "il filtro vede solo caratteri");
}

void TestCampo::ilTastoTenutoFuoriSiDice_data()
{
    QTest::addColumn<QString>("Tipo");
    QTest::addColumn<QString>("Tasti");
    QTest::addColumn<QString>("Resta");
    QTest::addColumn<QString>("Detto");
    QTest::newRow("i giorni di un termine")
        << u"0123456789"_s << u"abc-5,5"_s << u"55"_s << u"«,» non è stato scritto: qui vanno solo cifre"_s;
    QTest::newRow("una data fra gli importi")
        << u","_s << u"1/3"_s << u"13"_s
        << u"«/» non è stato scritto: qui va un importo (cifre, virgola, punto e -)"_s;
    QTest::newRow("una lettera in una data")
        << u"d"_s << u"1/o"_s << u"1/"_s << u"«o» non è stato scritto: qui va una data (cifre, / e -)"_s;
    QTest::newRow("un numero intero")
        << u"n"_s << u"1,"_s << u"1"_s << u"«,» non è stato scritto: qui va un numero (cifre e -)"_s;
    QTest::newRow("una percentuale")
        << u"1234567890,."_s << u"-2"_s << u"2"_s
        << u"«-» non è stato scritto: qui va una percentuale (cifre e virgola)"_s;
    QTest::newRow("ciò che passa") << u","_s << u"1.234,5"_s << u"1.234,5"_s << QString();
    QTest::newRow("uno spazio") << u","_s << u"1 2"_s << u"12"_s << QString();
    QTest::newRow("lettere scelte") << u"LEle"_s << u"x"_s << QString() << QString();
}

void TestCampo::ilTastoTenutoFuoriSiDice()
{
    QFETCH(const QString, Tipo);
    QFETCH(const QString, Tasti);
    QFETCH(const QString, Resta);
    QFETCH(const QString, Detto);
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());
    FiltraTasti(M->A, Tipo);
    M->A->setFocus();
    Digita(Tasti);
    QCOMPARE(M->A->text(), Resta);
    QCOMPARE(QToolTip::isVisible() ? QToolTip::text() : QString(), Detto);
    QVERIFY2(M->A->hasFocus(), "the hint takes no focus");
    QToolTip::hideText();
}

void TestCampo::filtroNonToccaIncolla()
{
    FiltraTasti(M->A, u"n"_s);
    QApplication::clipboard()->setText(u"12 e altro"_s);
    Premi(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(M->A->text(), u"12 e altro"_s);
}

void TestCampo::virgola_data()
{
    QTest::addColumn<QString>("Tipo");
    QTest::addColumn<bool>("Percento");
    QTest::addColumn<bool>("Tastierino");
    QTest::addColumn<QString>("Scritto");
    QTest::newRow("importo, tastierino") << u","_s << false << true << u"1,"_s;
    QTest::newRow("importo, tasto del punto") << u","_s << false << false << u"1."_s;
    QTest::newRow("percentuale, tastierino") << u","_s << true << true << u"1,"_s;
    QTest::newRow("percentuale, tasto del punto") << u","_s << true << false << u"1,"_s;
    QTest::newRow("data, tastierino") << u"d"_s << false << true << u"1"_s;
    QTest::newRow("elenco senza virgola, tastierino") << u"1."_s << false << true << u"1."_s;
}

void TestCampo::virgola()
{
    QFETCH(QString, Tipo);
    QFETCH(bool, Percento);
    QFETCH(bool, Tastierino);
    FiltraTasti(M->A, Tipo, Percento);
    Digita(u"1"_s);
    Digita(u"."_s, Tastierino ? Qt::KeypadModifier : Qt::NoModifier);
    QTEST(M->A->text(), "Scritto");
}

void TestCampo::virgolaSenzaFiltro()
{
    VirgolaDalTastierino(M->A);
    Digita(u"a1."_s);
    Digita(u"."_s, Qt::KeypadModifier);
    QCOMPARE(M->A->text(), u"a1.,"_s);
    M->A->clear();
    VirgolaDalTastierino(M->A, true);
    Digita(u"a1.5"_s);
    QCOMPARE(M->A->text(), u"a1,5"_s);
}

void TestCampo::soloLettura()
{
    FiltraTasti(M->A, u","_s, true);
    M->A->setReadOnly(true);
    Digita(u"1.5"_s);
    QVERIFY(M->A->text().isEmpty());
}

void TestCampo::leSchedeLascianoPrimaIlCampo_data()
{
    QTest::addColumn<bool>("Accetta");
    QTest::newRow("accettato") << true;
    QTest::newRow("rifiutato, la scheda resta") << false;
}

void TestCampo::leSchedeLascianoPrimaIlCampo()
{
    QFETCH(bool, Accetta);
    auto* Schede = new QTabBar(M.get());
    Schede->addTab(u"Prima"_s);
    Schede->addTab(u"Seconda"_s);
    M->layout()->addWidget(Schede);
    LasciaPrima(Schede);
    Respiro();
    Conto Regola;
    Regola.Risposta = Accetta;
    AlLascia(M->A, Regola());
    QTest::keyClicks(M->A, u"12"_s);
    QTest::mouseClick(Schede, Qt::LeftButton, {}, Schede->tabRect(1).center());
    QCOMPARE(Regola.Chiamate, 1);
    QCOMPARE(Schede->currentIndex(), Accetta ? 1 : 0);
    QVERIFY(M->A->hasFocus());
}

void TestCampo::numerico_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<bool>("Accettato");
    QTest::newRow("vuoto") << u" "_s << true;
    QTest::newRow("numero") << u"30.000,50"_s << true;
    QTest::newRow("punto al posto della virgola") << u"30000.50"_s << false;
    QTest::newRow("lettere") << u"abc"_s << false;
    QTest::newRow("solo segno") << u"-"_s << false;
    QTest::newRow("oltre ogni numero") << u"1e400"_s << false;
}

void TestCampo::numerico()
{
    QFETCH(QString, Testo);
    QFETCH(bool, Accettato);
    Registratore Box;
    Conto Regola;
    CampoNumericoSempre(M->A, Regola());
    QVERIFY(M->A->alignment().testFlag(Qt::AlignRight));
    QApplication::clipboard()->setText(Testo);
    Premi(Qt::Key_V, Qt::ControlModifier);
    if (!Accettato)
        Box.Attendi(u"Immettere un valore numerico!"_s, vbOK, u"Errore:"_s);
    M->B->setFocus();
    Respiro();
    QCOMPARE(M->A->text(), Testo);
    QCOMPARE(M->A->hasFocus(), !Accettato);
    QCOMPARE(Regola.Chiamate, Accettato ? 1 : 0);
    if (!Accettato)
        QCOMPARE(Box.Mostrati().constFirst().Bandiere, vbCritical);
}

void TestCampo::numericoSempre()
{
    Registratore Box;
    Conto Regola;
    CampoNumericoSempre(M->A, Regola());
    M->A->setText(u"abc"_s);  // by code: untouched, and looked at all the same
    Box.Attendi(u"Immettere un valore numerico!"_s, vbOK, u"Errore:"_s);
    M->B->setFocus();
    Respiro();
    QVERIFY(M->A->hasFocus());
    QCOMPARE(Regola.Chiamate, 0);
    M->A->setText(u"12,5"_s);
    M->B->setFocus();
    Respiro();
    QVERIFY(M->B->hasFocus());
    QCOMPARE(Regola.Chiamate, 1);
}

void TestCampo::percentoSenzaSegno()
{
    CampoPercento(M->A, {});
    QTest::keyClicks(M->A, u"-1a2.5"_s);
    QCOMPARE(M->A->text(), u"12,5"_s);
}

void TestCampo::ilFuocoTornaDoveSiVede()
{
    QDialog Finestra;
    auto* Pagina = new QScrollArea(&Finestra);
    Pagina->setWidget(new QWidget);
    Pagina->setWidgetResizable(true);
    auto* Colonna = new QVBoxLayout(Pagina->widget());
    QLineEdit* Ultimo = nullptr;
    for (int i = 0; i < 30; ++i)
        Colonna->addWidget(Ultimo = new QLineEdit(Pagina->widget()));
    (new QVBoxLayout(&Finestra))->addWidget(Pagina);
    Finestra.resize(200, 150);
    QVERIFY(MostraAttiva(Finestra));
    QVERIFY2(Ultimo->visibleRegion().isEmpty(), "si vede da subito: non prova nulla");
    RidaiFuoco(Ultimo);
    QTRY_VERIFY(Ultimo->hasFocus());
    QCOMPARE(Ultimo->visibleRegion().boundingRect(), Ultimo->rect());
}

#include "TestCampo.moc"
