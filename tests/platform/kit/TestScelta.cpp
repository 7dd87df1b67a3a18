// Lists and options that act on a choice, and the wheel that makes none.
#include "platform/kit/campo.h"
#include "platform/kit/rotella.h"
#include "platform/kit/scelta.h"
#include "supporto/finestre.h"
#include "supporto/prova.h"

#include <QAbstractItemView>
#include <QButtonGroup>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

struct Modulo : QWidget
{
    Modulo()
    {
        auto* Colonna = new QVBoxLayout(this);
        Lista = new QComboBox;
        Lista->addItems({u"zero"_s, u"uno"_s, u"due"_s, u"tre"_s});
        Altro = new QLineEdit;
        Colonna->addWidget(Lista);
        Colonna->addWidget(Altro);
        AlScegliere(
            Lista,
            [this](int Voce, ModoScelta Come) {
                Scelte.append(Voce);
                Modi.append(Come);
                if (Voce == Rifiutata)
                    Lista->setCurrentIndex(0);
            },
            [this] { return Attende; });
    }

    void DallaLista(int Voce)
    {
        Lista->setFocus();
        Lista->showPopup();
        const QPoint Dove = Lista->view()->visualRect(Lista->model()->index(Voce, 0)).center();
        QTest::mouseMove(Lista->view()->viewport(), Dove);
        QTest::mouseClick(Lista->view()->viewport(), Qt::LeftButton, Qt::NoModifier, Dove);
        Respiro();
        QApplication::setActiveWindow(this);
    }

    QComboBox* Lista;
    QLineEdit* Altro;
    QList<int> Scelte;
    QList<ModoScelta> Modi;
    bool Attende = false;
    int Rifiutata = -1;
};

}  // namespace

class TestScelta : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void sceltaDallaListaAgisceSubito();
    void laStessaVoceNonAgisce();
    void iPassiAgisconoSeNonSiAttende();
    void iPassiAspettano_data();
    void iPassiAspettano();
    void ilComandoConcludeIPassi();
    void tornatiDovEraNonAgisce();
    void cioCheScriveIlCodiceNonEScelta();
    void laRifiutataSiPuoRiprovare();
    void lOpzioneGiaScelta();
    void laRotellaNonSceglie_data();
    void laRotellaNonSceglie();
    void laRotellaNonPrendeIlFuoco();
};
PROVA(TestScelta);

void TestScelta::sceltaDallaListaAgisceSubito()
{
    Modulo M;
    M.Attende = true;
    QVERIFY(MostraAttiva(M));
    M.DallaLista(2);
    QCOMPARE(M.Scelte, QList<int>{2});
    QVERIFY(M.Modi.last() == ModoScelta::Scelta);
}

void TestScelta::laStessaVoceNonAgisce()
{
    Modulo M;
    QVERIFY(MostraAttiva(M));
    M.DallaLista(0);
    QVERIFY(M.Scelte.isEmpty());
    M.DallaLista(1);
    M.DallaLista(1);
    QCOMPARE(M.Scelte, QList<int>{1});
}

void TestScelta::iPassiAgisconoSeNonSiAttende()
{
    Modulo M;
    QVERIFY(MostraAttiva(M));
    M.Lista->setFocus();
    Premi(Qt::Key_Down);
    Premi(Qt::Key_Down);
    QCOMPARE(M.Scelte, QList<int>({1, 2}));
    QVERIFY(M.Modi.last() == ModoScelta::Passo);
    Premi(Qt::Key_Tab);
    QVERIFY2(M.Scelte.size() == 2, "uscire non ripete");
}

void TestScelta::iPassiAspettano_data()
{
    QTest::addColumn<Qt::Key>("Conferma");
    QTest::newRow("Tab") << Qt::Key_Tab;
    QTest::newRow("Invio") << Qt::Key_Return;
}

void TestScelta::iPassiAspettano()
{
    QFETCH(Qt::Key, Conferma);
    Modulo M;
    M.Attende = true;
    QVERIFY(MostraAttiva(M));
    M.Lista->setFocus();
    for (int i = 0; i < 3; ++i)
        Premi(Qt::Key_Down);
    QVERIFY2(M.Scelte.isEmpty(), "per via non si agisce");
    QCOMPARE(M.Lista->currentIndex(), 3);
    Premi(Conferma);
    QCOMPARE(M.Scelte, QList<int>{3});
    QVERIFY(M.Modi.last() == ModoScelta::Scelta);
    M.Altro->setFocus();
    QCOMPARE(M.Scelte, QList<int>{3});
}

void TestScelta::ilComandoConcludeIPassi()
{
    Modulo M;
    M.Attende = true;
    QVERIFY(MostraAttiva(M));
    M.Lista->setFocus();
    Premi(Qt::Key_Down);
    QVERIFY(ConcludiCampo());
    QCOMPARE(M.Scelte, QList<int>{1});
    Premi(Qt::Key_Down);
    M.Altro->setFocus(Qt::MouseFocusReason);
    QCOMPARE(M.Scelte, QList<int>({1, 2}));
}

void TestScelta::tornatiDovEraNonAgisce()
{
    Modulo M;
    M.Attende = true;
    QVERIFY(MostraAttiva(M));
    M.Lista->setFocus();
    Premi(Qt::Key_Down);
    Premi(Qt::Key_Up);
    Premi(Qt::Key_Tab);
    QVERIFY(M.Scelte.isEmpty());
}

void TestScelta::cioCheScriveIlCodiceNonEScelta()
{
    Modulo M;
    M.Attende = true;
    QVERIFY(MostraAttiva(M));
    M.Lista->setFocus();
    Premi(Qt::Key_Down);
    M.Lista->setCurrentIndex(3);  // another note is shown meanwhile
    Premi(Qt::Key_Tab);
    QVERIFY(M.Scelte.isEmpty());
    M.Lista->setFocus();
    Premi(Qt::Key_Up);
    Premi(Qt::Key_Tab);
    QCOMPARE(M.Scelte, QList<int>{2});
}

void TestScelta::laRifiutataSiPuoRiprovare()
{
    Modulo M;
    M.Rifiutata = 2;
    QVERIFY(MostraAttiva(M));
    M.DallaLista(2);
    QCOMPARE(M.Lista->currentIndex(), 0);
    M.DallaLista(2);
    QCOMPARE(M.Scelte, QList<int>({2, 2}));
}

void TestScelta::lOpzioneGiaScelta()
{
    QWidget Finestra;
    auto* Colonna = new QVBoxLayout(&Finestra);
    QButtonGroup Gruppo;
    for (int i = 0; i < 3; ++i) {
        auto* Opzione = new QRadioButton(QString::number(i));
        Colonna->addWidget(Opzione);
        Gruppo.addButton(Opzione, i);
    }
    QList<int> Scelte;
    AlScegliere(&Gruppo, [&](int Scelta) { Scelte.append(Scelta); });
    QVERIFY(MostraAttiva(Finestra));
    const auto Clicca = [&](int Quale) {
        QTest::mouseClick(Gruppo.button(Quale), Qt::LeftButton, Qt::NoModifier,
                          {8, Gruppo.button(Quale)->height() / 2});
    };
    Clicca(1);
    Clicca(1);
    QCOMPARE(Scelte, QList<int>{1});
    Premi(Qt::Key_Space);
    QCOMPARE(Scelte, QList<int>{1});
    Premi(Qt::Key_Down);
    QCOMPARE(Scelte, QList<int>({1, 2}));
    Gruppo.button(0)->setChecked(true);  // by code
    Clicca(0);
    QCOMPARE(Scelte, QList<int>({1, 2}));
}

void TestScelta::laRotellaNonSceglie_data()
{
    QTest::addColumn<QString>("Quale");
    QTest::addColumn<bool>("ConFuoco");
    QTest::addColumn<bool>("Cambia");
    QTest::newRow("lista") << u"lista"_s << false << false;
    QTest::newRow("lista col fuoco: mai") << u"lista"_s << true << false;
    QTest::newRow("numero") << u"numero"_s << false << false;
    QTest::newRow("numero col fuoco") << u"numero"_s << true << true;
    QTest::newRow("data") << u"data"_s << false << false;
    QTest::newRow("cursore") << u"cursore"_s << false << false;
    QTest::newRow("cursore col fuoco") << u"cursore"_s << true << true;
}

void TestScelta::laRotellaNonSceglie()
{
    QFETCH(QString, Quale);
    QFETCH(bool, ConFuoco);
    QFETCH(bool, Cambia);
    QScrollArea Pagina;
    auto* Contenuto = new QWidget;
    auto* Colonna = new QVBoxLayout(Contenuto);
    auto* Lista = new QComboBox;
    Lista->addItems({u"a"_s, u"b"_s, u"c"_s});
    Lista->setCurrentIndex(1);
    auto* Numero = new QSpinBox;
    Numero->setValue(5);
    auto* Data = new QDateEdit(QDate(2026, 3, 12));
    auto* Cursore = new QSlider(Qt::Horizontal);
    Cursore->setValue(50);
    const QMap<QString, QWidget*> Tutti{
        {u"lista"_s, Lista}, {u"numero"_s, Numero}, {u"data"_s, Data}, {u"cursore"_s, Cursore}};
    for (QWidget* Controllo : Tutti)
        Colonna->addWidget(Controllo);
    Contenuto->setMinimumHeight(2000);
    Colonna->addStretch();
    Pagina.setWidget(Contenuto);
    Pagina.resize(300, 300);
    QVERIFY(MostraAttiva(Pagina));
    if (ConFuoco)
        Tutti[Quale]->setFocus();
    else
        Pagina.setFocus();
    const auto Stato = [&] {
        return QVariantList{Lista->currentIndex(), Numero->value(), Data->date(), Cursore->value()};
    };
    const QVariantList Prima = Stato();
    Rotella(Tutti[Quale]);
    QCOMPARE(Stato() != Prima, Cambia);
    QCOMPARE(Pagina.verticalScrollBar()->value() > 0, !Cambia);
}

void TestScelta::laRotellaNonPrendeIlFuoco()
{
    QWidget Finestra;
    auto* Colonna = new QVBoxLayout(&Finestra);
    const QList<QWidget*> Controlli{new QComboBox, new QSpinBox, new QSlider, new QPlainTextEdit,
                                    new QLineEdit};
    for (QWidget* Controllo : Controlli)
        Colonna->addWidget(Controllo);
    QVERIFY(MostraAttiva(Finestra));
    for (const QWidget* Controllo : Controlli)
        QVERIFY2(Controllo->focusPolicy() != Qt::WheelFocus, Controllo->metaObject()->className());
}

#include "TestScelta.moc"
