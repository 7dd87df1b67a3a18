// The menu of a grid: what it offers where, and that its entries do what the keys do.
#include "platform/grid/griglia.h"
#include "supporto/finestre.h"
#include "supporto/prova.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QSignalSpy>
#include <QTableView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

struct Finestra : QWidget
{
    Finestra() : Righe(2), Grid(new Griglia(this))
    {
        QList<ColonnaGriglia> Colonne(2);
        for (int i = 0; i < Colonne.size(); ++i) {
            Colonne[i].Titolo = u"Colonna %1"_s.arg(i);
            Colonne[i].Campo = i;
            Colonne[i].Modificabile = true;
        }
        Grid->ImpostaColonne(Colonne);
        for (int i = 0; i < 3; ++i)
            Righe(Righe.AggiungiRiga(), 1) = u"voce %1"_s.arg(i);
        Grid->Lega(&Righe);
        auto* Disposizione = new QVBoxLayout(this);
        Disposizione->addWidget(Grid);
        resize(400, 300);
    }

    /// The right button over a cell, as the display server tells it; row 3 is the empty one.
    QMenu* Chiedi(int Riga, int Colonna = 1)
    {
        const QTableView* Vista = Grid->Vista();
        const QPoint Punto = Vista->visualRect(Vista->model()->index(Riga, Colonna)).center();
        QTest::mousePress(Vista->viewport(), Qt::RightButton, {}, Punto);
        QContextMenuEvent Evento(QContextMenuEvent::Mouse, Punto, Vista->viewport()->mapToGlobal(Punto));
        QCoreApplication::sendEvent(Vista->viewport(), &Evento);
        QTest::mouseRelease(Vista->viewport(), Qt::RightButton, {}, Punto);
        return Menu();
    }

    QMenu* ChiediDaTastiera()
    {
        QContextMenuEvent Evento(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QCoreApplication::sendEvent(Grid->Vista()->viewport(), &Evento);
        return Menu();
    }

    static QMenu* Menu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

    /// Names of the entries, those that can do nothing in brackets.
    static QStringList Voci(const QMenu* Menu)
    {
        QStringList Nomi;
        for (const QAction* Azione : Menu->actions())
            if (!Azione->isSeparator())
                Nomi += Azione->isEnabled() ? Azione->objectName() : u'(' + Azione->objectName() + u')';
        return Nomi;
    }

    void Scegli(QMenu* Menu, const QString& Nome)
    {
        auto* Azione = Menu->findChild<QAction*>(Nome);
        Menu->setActiveAction(Azione);
        QTest::keyClick(Menu, Qt::Key_Return);
        Respiro();
        activateWindow();  // offscreen nobody gives it back what the menu has taken
        Respiro();
    }

    TabellaRighe Righe;
    Griglia* Grid;
};

}  // namespace

class TestGrigliaMenu : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup();
    void leVoci_data();
    void leVoci();
    void iComandi_data();
    void iComandi();
    void laRigaCheSiChiede();
    void laSelezioneDiPiuRigheResta();
    void conLaTastiera();
    void dalSelettore();
    void ilTestoDellaCella();
    void unaNuovaRiga();
    void laCellaApertaSiChiudePrima();
    void ilMenuDelModulo();
};
PROVA(TestGrigliaMenu);

void TestGrigliaMenu::cleanup()
{
    if (QMenu* Menu = Finestra::Menu())
        Menu->close();
}

void TestGrigliaMenu::leVoci_data()
{
    QTest::addColumn<bool>("Comandi");
    QTest::addColumn<bool>("Nuove");
    QTest::addColumn<bool>("Cancella");
    QTest::addColumn<int>("Riga");
    QTest::addColumn<QString>("Attese");
    QTest::newRow("elenco che si legge soltanto") << false << false << false << 0 << u"copiaTesto tutte"_s;
    QTest::newRow("righe con tutti i comandi")
        << true << true << true << 0 << u"taglia copia incolla annulla elimina nuova copiaTesto tutte"_s;
    QTest::newRow("righe senza comandi") << false << true << true << 0 << u"elimina nuova copiaTesto tutte"_s;
    QTest::newRow("la riga vuota non si taglia")
        << true << true << true << 3
        << u"(taglia) (copia) incolla annulla (elimina) nuova (copiaTesto) tutte"_s;
}

void TestGrigliaMenu::leVoci()
{
    QFETCH(bool, Comandi);
    QFETCH(bool, Nuove);
    QFETCH(bool, Cancella);
    QFETCH(int, Riga);
    QFETCH(QString, Attese);
    Finestra F;
    F.Grid->ConsentiComandi(Comandi);
    F.Grid->ConsentiNuove(Nuove);
    if (Cancella)
        connect(F.Grid, &Griglia::Cancella, &F, [] {});
    QVERIFY(MostraAttiva(F));
    const QMenu* Menu = F.Chiedi(Riga);
    QVERIFY(Menu);
    QCOMPARE(Finestra::Voci(Menu).join(u' '), Attese);
}

void TestGrigliaMenu::iComandi_data()
{
    QTest::addColumn<QString>("Voce");
    QTest::addColumn<ComandoRighe>("Atteso");
    QTest::newRow("taglia") << u"taglia"_s << ComandoRighe::Taglia;
    QTest::newRow("copia") << u"copia"_s << ComandoRighe::Copia;
    QTest::newRow("incolla") << u"incolla"_s << ComandoRighe::Incolla;
    QTest::newRow("annulla") << u"annulla"_s << ComandoRighe::Annulla;
}

void TestGrigliaMenu::iComandi()
{
    QFETCH(QString, Voce);
    QFETCH(ComandoRighe, Atteso);
    Finestra F;
    F.Grid->ConsentiComandi(true);
    F.Grid->ComandoPossibile = [Atteso](ComandoRighe Quale) { return Quale == Atteso; };
    QList<ComandoRighe> Avuti;
    QList<int> Scelte;
    connect(F.Grid, &Griglia::Comando, &F, [&](ComandoRighe Quale) {
        Avuti += Quale;
        Scelte = F.Grid->Selezione();
    });
    QVERIFY(MostraAttiva(F));
    QMenu* Menu = F.Chiedi(1);
    QVERIFY(Menu);
    for (const QString& Altra : {u"taglia"_s, u"copia"_s, u"incolla"_s, u"annulla"_s})
        QCOMPARE(Menu->findChild<QAction*>(Altra)->isEnabled(), Altra == Voce);
    F.Scegli(Menu, Voce);
    QCOMPARE(Avuti, QList<ComandoRighe>{Atteso});
    QCOMPARE(Scelte, QList<int>{1});
    QVERIFY2(F.Grid->Vista()->hasFocus(), "il fuoco resta alle righe");
}

void TestGrigliaMenu::laRigaCheSiChiede()
{
    Finestra F;
    F.Grid->ConsentiComandi(true);
    QVERIFY(MostraAttiva(F));
    F.Grid->Seleziona(0);
    QVERIFY(F.Chiedi(2));
    QCOMPARE(F.Grid->Selezione(), QList<int>{2});
    QCOMPARE(F.Grid->RigaCorrente(), std::optional(2));
}

void TestGrigliaMenu::laSelezioneDiPiuRigheResta()
{
    Finestra F;
    F.Grid->ConsentiComandi(true);
    QVERIFY(MostraAttiva(F));
    F.Grid->Seleziona(2);
    F.Grid->Seleziona(0);
    QVERIFY(F.Chiedi(0));
    QCOMPARE(F.Grid->Selezione(), QList<int>({2, 0}));
}

void TestGrigliaMenu::conLaTastiera()
{
    Finestra F;
    QSignalSpy Cancella(F.Grid, &Griglia::Cancella);
    QVERIFY(MostraAttiva(F));
    F.Grid->ImpostaRigaCorrente(1);
    QMenu* Menu = F.ChiediDaTastiera();
    QVERIFY(Menu);
    F.Scegli(Menu, u"elimina"_s);
    QCOMPARE(Cancella.count(), 1);
    QCOMPARE(F.Grid->Selezione(), QList<int>{1});
}

void TestGrigliaMenu::dalSelettore()
{
    Finestra F;
    F.Grid->ConsentiComandi(true);
    QVERIFY(MostraAttiva(F));
    QWidget* Selettore = F.Grid->Vista()->verticalHeader()->viewport();
    const QPoint Punto(5, F.Grid->Vista()->rowViewportPosition(2) + 5);
    QContextMenuEvent Evento(QContextMenuEvent::Mouse, Punto, Selettore->mapToGlobal(Punto));
    QCoreApplication::sendEvent(Selettore, &Evento);
    QVERIFY(Finestra::Menu());
    QCOMPARE(F.Grid->Selezione(), QList<int>{2});
}

void TestGrigliaMenu::ilTestoDellaCella()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    QApplication::clipboard()->clear();
    QMenu* Menu = F.Chiedi(2);
    QVERIFY(Menu);
    F.Scegli(Menu, u"copiaTesto"_s);
    QCOMPARE(QApplication::clipboard()->text(), u"voce 2"_s);
    QVERIFY2(F.Grid->Selezione().isEmpty(), "dove non si cambiano righe il menu non ne sceglie");
}

void TestGrigliaMenu::unaNuovaRiga()
{
    Finestra F;
    F.Grid->ConsentiNuove(true);
    QVERIFY(MostraAttiva(F));
    QMenu* Menu = F.Chiedi(0);
    QVERIFY(Menu);
    F.Scegli(Menu, u"nuova"_s);
    QVERIFY(F.Grid->InModifica());
    Digita(u"x"_s);
    QVERIFY(F.Grid->Concludi());
    QCOMPARE(F.Grid->Righe(), 4);
    QCOMPARE(F.Righe(3, 0).toString(), u"x"_s);
}

void TestGrigliaMenu::laCellaApertaSiChiudePrima()
{
    Finestra F;
    F.Grid->ConsentiComandi(true);
    bool Buona = false;
    QList<ColonnaGriglia> Colonne = F.Grid->Colonne();
    for (ColonnaGriglia& Colonna : Colonne)
        Colonna.Convalida = [&Buona](int, const QString&) { return Buona; };
    F.Grid->ImpostaColonne(Colonne);
    QVERIFY(MostraAttiva(F));
    F.Grid->ImpostaRigaCorrente(0, 0);
    Premi(Qt::Key_F2);
    Digita(u"no"_s);
    QVERIFY(!F.Chiedi(2));
    QVERIFY(F.Grid->InModifica());
    Buona = true;
    QVERIFY(F.Chiedi(2));
    QVERIFY(!F.Grid->InModifica());
    QCOMPARE(F.Righe(0, 0).toString(), u"no"_s);
}

void TestGrigliaMenu::ilMenuDelModulo()
{
    Finestra F;
    F.Grid->ConsentiComandi(true);
    QSignalSpy Chiesto(F.Grid, &Griglia::MenuContestuale);
    QVERIFY(MostraAttiva(F));
    QVERIFY(!F.Chiedi(1));
    QCOMPARE(Chiesto.count(), 1);
    QCOMPARE(Chiesto.first().first().toInt(), 1);
}

#include "TestGrigliaMenu.moc"
