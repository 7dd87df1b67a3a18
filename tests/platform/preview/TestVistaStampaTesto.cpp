// The preview's text: selected by mouse and keys, copied, searched.
#include "supporto/prova.h"
#include "vista_prova.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

using namespace Qt::StringLiterals;

class TestVistaStampaTesto : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void trascinareSeleziona();
    void doppioClicLaParolaTriploLaRiga();
    void trascinareDopoIlDoppioClicPrendeParole();
    void maiuscClicEstende();
    void clicLascia();
    void trascinareOltreIlBordoScorre();
    void copiaNegliAppunti();
    void selezionaTutto();
    void frecceConMaiusc();
    void puntatoreSulTesto();
    void menuDelTesto();
    void sceltaTinta();
    void cercaConta();
    void cercaRicominciaDaCapo();
    void cercaSenzaRisultati();
    void cercaDaSelezione();
    void escChiudeELasciaSelezionato();
    void pulsantiDellaRicerca();
    void ricercaDopoRicomposizione();
    void trovateTinte();
};
PROVA(TestVistaStampaTesto);

namespace {

QPoint PrimoMeta(const QRect& Riquadro)
{
    return {Riquadro.left() + 1, Riquadro.center().y()};
}

QPoint UltimoMeta(const QRect& Riquadro)
{
    return {Riquadro.right() - 1, Riquadro.center().y()};
}

void Trascina(const Scena& S, QPoint Da, QPoint A)
{
    QWidget* Tela = S.Fogli->viewport();
    QTest::mousePress(Tela, Qt::LeftButton, {}, Da);
    QTest::mouseMove(Tela, (Da + A) / 2);
    QTest::mouseMove(Tela, A);
    QTest::mouseRelease(Tela, Qt::LeftButton, {}, A);
}

/// Opens the search and types.
void Cerca(const QString& Testo)
{
    Premi(Qt::Key_F, Qt::ControlModifier);
    Digita(Testo);
}

QString Conto(const Scena& S)
{
    return S.vp.findChild<QLabel*>(u"lblRicerca"_s)->text();
}

QWidget* Barra(const Scena& S)
{
    return S.vp.findChild<QWidget*>(u"barRicerca"_s);
}

}  // namespace

void TestVistaStampaTesto::trascinareSeleziona()
{
    Scena S(40);
    Trascina(S, PrimoMeta(S.Riquadro(u"Riga 3 "_s)), UltimoMeta(S.Riquadro(u"Riga 4 del documento"_s)));
    QCOMPARE(S.vp.TestoScelto(), u"Riga 3 del documento\nRiga 4 del documento"_s);
    Trascina(S, UltimoMeta(S.Riquadro(u"Riga 4 del documento"_s)), PrimoMeta(S.Riquadro(u"Riga 3 "_s)));
    QCOMPARE(S.vp.TestoScelto(), u"Riga 3 del documento\nRiga 4 del documento"_s);
}

void TestVistaStampaTesto::doppioClicLaParolaTriploLaRiga()
{
    Scena S(40);
    QWidget* Tela = S.Fogli->viewport();
    const QPoint Punto = UltimoMeta(S.Riquadro(u"Riga 3 del documento"_s));
    QTest::mouseClick(Tela, Qt::LeftButton, {}, Punto);
    QTest::mouseDClick(Tela, Qt::LeftButton, {}, Punto);
    QCOMPARE(S.vp.TestoScelto(), u"documento"_s);
    QTest::mouseClick(Tela, Qt::LeftButton, {}, Punto);
    QCOMPARE(S.vp.TestoScelto(), u"Riga 3 del documento"_s);
    QTest::mouseClick(Tela, Qt::LeftButton, {}, Punto);
    QVERIFY(S.vp.Scelta().Vuota());
}

void TestVistaStampaTesto::trascinareDopoIlDoppioClicPrendeParole()
{
    Scena S(40);
    QWidget* Tela = S.Fogli->viewport();
    const QRect Seconda = S.Riquadro(u"Riga 2 "_s);
    const QPoint Partenza = S.Riquadro(u"Riga 3 del"_s).center();
    QMouseEvent Doppio(QEvent::MouseButtonDblClick, Partenza, Tela->mapToGlobal(Partenza), Qt::LeftButton,
                       Qt::LeftButton, {});
    QCoreApplication::sendEvent(Tela, &Doppio);
    QTest::mouseMove(Tela, {Seconda.left() + 6, Seconda.center().y()});
    QTest::mouseRelease(Tela, Qt::LeftButton, {}, PrimoMeta(Seconda));
    QCOMPARE(S.vp.TestoScelto(), u"Riga 2 del documento\nRiga"_s);
}

void TestVistaStampaTesto::maiuscClicEstende()
{
    Scena S(40);
    QTest::mouseClick(S.Fogli->viewport(), Qt::LeftButton, {}, PrimoMeta(S.Riquadro(u"Riga 5 "_s)));
    QTest::mouseClick(S.Fogli->viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      UltimoMeta(S.Riquadro(u"Riga 6 del documento"_s)));
    QCOMPARE(S.vp.TestoScelto(), u"Riga 5 del documento\nRiga 6 del documento"_s);
    QTest::mouseClick(S.Fogli->viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      PrimoMeta(S.Riquadro(u"Riga 4 "_s)));
    QCOMPARE(S.vp.TestoScelto(), u"Riga 4 del documento\n"_s);
}

void TestVistaStampaTesto::clicLascia()
{
    Scena S(40);
    S.vp.SelezionaTutto();
    QTest::mouseClick(S.Fogli->viewport(), Qt::LeftButton, {}, S.Riquadro(u"Riga 5 "_s).center());
    QVERIFY(S.vp.Scelta().Vuota());
}

void TestVistaStampaTesto::trascinareOltreIlBordoScorre()
{
    Scena S(190);
    QWidget* Tela = S.Fogli->viewport();
    QTest::mousePress(Tela, Qt::LeftButton, {}, PrimoMeta(S.Riquadro(u"Riga 3 "_s)));
    const QPoint Sotto(200, Tela->height() + 60);
    QMouseEvent Mossa(QEvent::MouseMove, Sotto, Tela->mapToGlobal(Sotto), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(Tela, &Mossa);
    QTRY_VERIFY(S.Barra()->value() > 300);
    QTest::mouseRelease(Tela, Qt::LeftButton, {}, Sotto);
    const int Fermo = S.Barra()->value();
    QTest::qWait(120);
    QCOMPARE(S.Barra()->value(), Fermo);
    QVERIFY(S.vp.TestoScelto().count(u'\n') > 30);
}

void TestVistaStampaTesto::copiaNegliAppunti()
{
    Scena S(40);
    QGuiApplication::clipboard()->setText(u"prima"_s);
    Premi(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"prima"_s);  // nothing selected, nothing lost
    S.Fogli->Scegli(S.Dove(u"Riga 7 del"_s));
    Premi(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"Riga 7 del"_s);
}

void TestVistaStampaTesto::selezionaTutto()
{
    Scena S(190);
    Premi(Qt::Key_A, Qt::ControlModifier);
    QVERIFY(S.vp.TestoScelto().startsWith(u"Riga 1 "));
    QVERIFY(S.vp.TestoScelto().trimmed().endsWith(u"Riga 190 del documento"));
}

void TestVistaStampaTesto::frecceConMaiusc()
{
    Scena S(190);
    const Selezione Riga = S.Dove(u"Riga 4 "_s);
    S.Fogli->Scegli({Riga.Da, Riga.Da});
    for (int i = 0; i < 4; ++i)
        Premi(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(S.vp.TestoScelto(), u"Riga"_s);
    Premi(Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(S.vp.TestoScelto(), u"Rig"_s);
    S.Fogli->Scegli({Riga.Da, Riga.Da});
    Premi(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(S.vp.TestoScelto().trimmed(), u"Riga 4 del documento"_s);
    Premi(Qt::Key_Up, Qt::ShiftModifier);
    QVERIFY(S.vp.Scelta().Vuota());
    Premi(Qt::Key_End, Qt::ShiftModifier);
    QCOMPARE(S.vp.PaginaInVista(), 4);
    QVERIFY(S.vp.TestoScelto().trimmed().endsWith(u"Riga 190 del documento"));
    // From the foot of a page to the head of the next.
    const Selezione Fine = S.vp.Pagine().TestoDiPagina(1);
    S.Fogli->Scegli({Fine.A - 3, Fine.A - 3});
    Premi(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(S.vp.Pagine().PaginaDi(S.vp.Scelta().A), 2);
}

void TestVistaStampaTesto::puntatoreSulTesto()
{
    Scena S(40);
    QWidget* Tela = S.Fogli->viewport();
    const QPoint Testo = S.Riquadro(u"Riga 3 "_s).center();
    QMouseEvent Sopra(QEvent::MouseMove, Testo, Tela->mapToGlobal(Testo), Qt::NoButton, {}, {});
    QCoreApplication::sendEvent(Tela, &Sopra);
    QCOMPARE(Tela->cursor().shape(), Qt::IBeamCursor);
    const QPoint Margine(3, 3);
    QMouseEvent Via(QEvent::MouseMove, Margine, Tela->mapToGlobal(Margine), Qt::NoButton, {}, {});
    QCoreApplication::sendEvent(Tela, &Via);
    QCOMPARE(Tela->cursor().shape(), Qt::ArrowCursor);
}

void TestVistaStampaTesto::menuDelTesto()
{
    Scena S(40);
    const auto Apri = [&S] {
        QContextMenuEvent Evento(QContextMenuEvent::Mouse, {50, 50}, S.Fogli->mapToGlobal(QPoint(50, 50)));
        QCoreApplication::sendEvent(S.Fogli->viewport(), &Evento);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    };
    QMenu* Menu = Apri();
    QVERIFY(Menu);
    QStringList Scritte;
    for (const QAction* Voce : Menu->actions())
        Scritte += Voce->text().remove(u'&');
    QCOMPARE(Scritte, (QStringList{u"Copia"_s, u"Seleziona tutto"_s, {}, u"Cerca..."_s}));
    QVERIFY(!Menu->actions().constFirst()->isEnabled());
    Menu->actions().at(1)->trigger();
    QVERIFY(!S.vp.Scelta().Vuota());
    Menu->close();

    Menu = Apri();
    QVERIFY(Menu->actions().constFirst()->isEnabled());
    Menu->actions().constFirst()->trigger();
    QVERIFY(QGuiApplication::clipboard()->text().startsWith(u"Riga 1 "));
    Menu->actions().constLast()->trigger();
    QVERIFY(!Barra(S)->isHidden());
    Menu->close();
}

void TestVistaStampaTesto::sceltaTinta()
{
    Scena S(40);
    const QPoint Interlinea = S.Riquadro(u"Riga 3 "_s).topLeft() + QPoint(8, 1);
    QCOMPARE(S.Pixel(Interlinea), QColor(Qt::white));
    S.Fogli->Scegli(S.Dove(u"Riga 3 "_s));
    const QColor Tinta = S.Pixel(Interlinea);
    QVERIFY(Tinta.blue() > 230 && Tinta.red() < 200);
}

void TestVistaStampaTesto::cercaConta()
{
    Scena S(190);
    Cerca(u"riga 19"_s);
    QCOMPARE(S.vp.findChild<QLineEdit*>(u"txtRicerca"_s)->placeholderText(), u"Cerca nel documento"_s);
    QCOMPARE(Conto(S), u"1 di 2"_s);  // the 19th and the 190th
    QCOMPARE(S.vp.PaginaInVista(), 1);
    Premi(Qt::Key_Return);
    QCOMPARE(Conto(S), u"2 di 2"_s);
    QCOMPARE(S.vp.PaginaInVista(), 4);
    QVERIFY(S.Fogli->viewport()->rect().contains(S.Riquadro(u"Riga 190"_s)));
    Premi(Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(Conto(S), u"1 di 2"_s);
}

void TestVistaStampaTesto::cercaRicominciaDaCapo()
{
    Scena S(190);
    Cerca(u"Riga 18"_s);
    QCOMPARE(Conto(S), u"1 di 11"_s);
    Premi(Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(Conto(S), u"11 di 11"_s);
    Premi(Qt::Key_F3);
    QCOMPARE(Conto(S), u"1 di 11"_s);
}

void TestVistaStampaTesto::cercaSenzaRisultati()
{
    Scena S(40);
    Cerca(u"zibaldone"_s);
    QCOMPARE(Conto(S), u"Nessun risultato"_s);
    for (const QString& Nome : {u"cmdRicerca_up"_s, u"cmdRicerca_down"_s})
        QVERIFY(!S.vp.findChild<QToolButton*>(Nome)->isEnabled());
    Premi(Qt::Key_F3);
    QCOMPARE(Conto(S), u"Nessun risultato"_s);
    S.vp.findChild<QLineEdit*>(u"txtRicerca"_s)->clear();
    QCOMPARE(Conto(S), QString());
}

void TestVistaStampaTesto::cercaDaSelezione()
{
    Scena S(40);
    S.Fogli->Scegli(S.Dove(u"Riga 3 "_s));
    Premi(Qt::Key_F3);
    QCOMPARE(S.vp.findChild<QLineEdit*>(u"txtRicerca"_s)->text(), u"Riga 3"_s);
    QCOMPARE(Conto(S), u"1 di 11"_s);  // and 30 to 39
    Premi(Qt::Key_F3);
    QCOMPARE(Conto(S), u"2 di 11"_s);
}

void TestVistaStampaTesto::escChiudeELasciaSelezionato()
{
    Scena S(40);
    Cerca(u"Riga 12"_s);
    Premi(Qt::Key_Escape);
    QVERIFY(Barra(S)->isHidden());
    QVERIFY(S.Fogli->hasFocus());
    QCOMPARE(S.vp.TestoScelto(), u"Riga 12"_s);
}

void TestVistaStampaTesto::pulsantiDellaRicerca()
{
    Scena S(40);
    Cerca(u"Riga 2"_s);
    QCOMPARE(Conto(S), u"1 di 11"_s);
    QTest::mouseClick(S.vp.findChild<QToolButton*>(u"cmdRicerca_down"_s), Qt::LeftButton);
    QCOMPARE(Conto(S), u"2 di 11"_s);
    QTest::mouseClick(S.vp.findChild<QToolButton*>(u"cmdRicerca_up"_s), Qt::LeftButton);
    QCOMPARE(Conto(S), u"1 di 11"_s);
    QTest::mouseClick(S.vp.findChild<QToolButton*>(u"cmdRicerca_chiudi"_s), Qt::LeftButton);
    QVERIFY(Barra(S)->isHidden());
}

void TestVistaStampaTesto::ricercaDopoRicomposizione()
{
    Scena S(190);
    Cerca(u"Riga 18"_s);
    Premi(Qt::Key_F3);
    QCOMPARE(Conto(S), u"2 di 11"_s);
    ScriviRighe(S.vp, 181);
    QCOMPARE(Conto(S), u"2 di 3"_s);
    ScriviRighe(S.vp, 10);
    QCOMPARE(Conto(S), u"Nessun risultato"_s);
    Premi(Qt::Key_F3);
    ScriviRighe(S.vp, 40);
    QCOMPARE(Conto(S), u"1 di 1"_s);
}

void TestVistaStampaTesto::trovateTinte()
{
    Scena S(40);
    Cerca(u"Riga 1"_s);
    const QColor Corrente = S.Pixel(S.Riquadro(u"Riga 1 "_s).topLeft() + QPoint(8, 2));
    const QColor Altra = S.Pixel(S.Riquadro(u"Riga 10"_s).topLeft() + QPoint(8, 2));
    QVERIFY(Corrente != QColor(Qt::white) && Altra != QColor(Qt::white));
    QVERIFY2(Corrente.blue() < Altra.blue(), "the current one is the stronger");
    Premi(Qt::Key_Escape);
    QCOMPARE(S.Pixel(S.Riquadro(u"Riga 10"_s).topLeft() + QPoint(8, 2)), QColor(Qt::white));
}

#include "TestVistaStampaTesto.moc"
