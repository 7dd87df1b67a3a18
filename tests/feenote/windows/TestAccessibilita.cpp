// What a screen reader and a keyboard meet in the window: names, tooltips, the order of Tab.
#include "tavolo.h"

#include <QAbstractItemView>
#include <QHeaderView>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

/// Controls that a user acts on; the parts that Qt makes for itself have a "qt_" name or are no stop.
bool DaNominare(const QWidget* Uno)
{
    if (Uno->objectName().startsWith(u"qt_") || qobject_cast<const QScrollBar*>(Uno) ||
        qobject_cast<const QHeaderView*>(Uno))
        return false;
    for (const QWidget* Padre = Uno->parentWidget(); Padre; Padre = Padre->parentWidget()) {
        if (qobject_cast<const QComboBox*>(Padre) || qobject_cast<const QLineEdit*>(Padre) ||
            qobject_cast<const QTabBar*>(Padre) || qobject_cast<const QTableView*>(Padre))
            return false;
    }
    return qobject_cast<const QLineEdit*>(Uno) || qobject_cast<const QComboBox*>(Uno) ||
           qobject_cast<const QAbstractButton*>(Uno) || qobject_cast<const QAbstractItemView*>(Uno) ||
           qobject_cast<const QTabWidget*>(Uno);
}

QString Nome(const QWidget* Uno)
{
    if (!Uno->accessibleName().isEmpty())
        return Uno->accessibleName();
    const auto* Bottone = qobject_cast<const QAbstractButton*>(Uno);
    const bool Parlante = Bottone && !qobject_cast<const QToolButton*>(Uno);
    return Parlante ? Bottone->text() : QString();
}

}  // namespace

class TestAccessibilita : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void ogniControlloHaUnNome();
    void ogniBottoneDiBarraHaIlSuggerimento();
    void ogniBarraHaUnNome();
    void ilTastoCheSvuotaHaUnNome();
    void ogniEtichettaHaIlSuoCampo();
    void tabVaNellOrdineDiLettura_data();
    void tabVaNellOrdineDiLettura();
    void sulPiccoloSchermo();

private:
    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
};
PROVA(TestAccessibilita);

void TestAccessibilita::init()
{
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
    CompilaCivile(F);
}

void TestAccessibilita::cleanup()
{
    T.reset();
}

void TestAccessibilita::ogniControlloHaUnNome()
{
    int Visti = 0;
    for (const QWidget* Uno : F->findChildren<QWidget*>()) {
        if (!DaNominare(Uno))
            continue;
        ++Visti;
        QVERIFY2(!Nome(Uno).isEmpty(),
                 qPrintable(QString::fromLatin1(Uno->metaObject()->className()) + u' ' + Uno->objectName()));
    }
    QVERIFY(Visti > 40);
}

void TestAccessibilita::ogniBottoneDiBarraHaIlSuggerimento()
{
    int Visti = 0;
    for (const QToolButton* Uno : F->findChildren<QToolButton*>()) {
        if (!DaNominare(Uno))
            continue;
        ++Visti;
        QVERIFY2(!Uno->toolTip().isEmpty(), qPrintable(Uno->objectName()));
    }
    QVERIFY(Visti > 10);
}

void TestAccessibilita::ogniBarraHaUnNome()
{
    QStringList Nomi;
    for (const QToolBar* Barra : F->findChildren<QToolBar*>()) {
        QVERIFY2(!Barra->accessibleName().isEmpty(), qPrintable(Barra->objectName()));
        Nomi += Barra->accessibleName();
    }
    QCOMPARE(Nomi.size(), 3);
    QCOMPARE(Nomi.removeDuplicates(), 0);
}

void TestAccessibilita::ilTastoCheSvuotaHaUnNome()
{
    int Visti = 0;
    for (const QLineEdit* Box : F->findChildren<QLineEdit*>()) {
        if (!Box->isClearButtonEnabled())
            continue;
        ++Visti;
        QCOMPARE(Box->findChild<QToolButton*>()->accessibleName(), u"Svuota la casella"_s);
    }
    QCOMPARE(Visti, 3);  // the two catalogues' searches and the document's
}

void TestAccessibilita::ogniEtichettaHaIlSuoCampo()
{
    for (const QLabel* Una : F->findChildren<QLabel*>())
        if (Una->text().endsWith(u':') && Una->objectName() != u"lblRif_0")
            QVERIFY2(Una->buddy(), qPrintable(Una->objectName()));
}

void TestAccessibilita::tabVaNellOrdineDiLettura_data()
{
    QTest::addColumn<int>("Scheda");
    QTest::addColumn<QStringList>("Ordine");
    QTest::newRow("dati base") << int(SchedaBase)
                               << QStringList{u"txtCliente"_s, u"txtControp"_s,  u"txtOggetto"_s,
                                              u"cmbCateg"_s,   u"cmbAutor"_s,    u"cmbValore"_s,
                                              u"txtImporto"_s, u"optAumRid_5"_s, u"cmbAumRid"_s,
                                              u"txtAumRid"_s};
    QTest::newRow("onorari") << int(SchedaListaOnorari)
                             << QStringList{u"txtCercaOno"_s,
                                            u"tdbListaOno"_s,
                                            u"barListaOnoDir_select"_s,
                                            u"barListaOnoDir_info"_s,
                                            u"barListaOnoDir_variaz"_s,
                                            u"barListaOnoDir_taglia"_s,
                                            u"barListaOnoDir_copia"_s,
                                            u"barListaOnoDir_help"_s,
                                            u"barListaOnoDir_lastrow"_s,
                                            u"barListaOnoDir_currentrow"_s,
                                            u"tdbOnor"_s};
    QTest::newRow("spese") << int(SchedaListaSpese)
                           << QStringList{u"txtCercaDir"_s,
                                          u"tdbListaDir"_s,
                                          u"barListaOnoDir_select"_s,
                                          u"barListaOnoDir_taglia"_s,
                                          u"barListaOnoDir_copia"_s,
                                          u"barListaOnoDir_help"_s,
                                          u"barListaOnoDir_lastrow"_s,
                                          u"barListaOnoDir_currentrow"_s,
                                          u"tdbDir"_s};
    QTest::newRow("imposte") << int(SchedaImposte)
                             << QStringList{u"chkSpeseGen"_s, u"txtSpeGen"_s, u"chkCP"_s, u"txtCP"_s,
                                            u"chkIva"_s,      u"txtIVA"_s,    u"chkRA"_s, u"txtRA"_s,
                                            u"chkAcconti"_s,  u"chkMinMax"_s};
}

void TestAccessibilita::tabVaNellOrdineDiLettura()
{
    QFETCH(int, Scheda);
    QFETCH(QStringList, Ordine);
    ClicScheda(F, Scheda);
    QCOMPARE(F->Scheda(), Scheda);
    QWidget* Primo = PaginaIn(F)->findChild<QWidget*>(Ordine.first());
    Primo->setFocus();
    QStringList Incontrati;
    for (int i = 0; i < Ordine.size(); ++i) {
        const QWidget* Uno = QApplication::focusWidget();
        const auto* Elenco = dynamic_cast<const Griglia*>(Uno->parentWidget());
        Incontrati.append(Elenco ? Elenco->objectName() : Uno->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(Incontrati, Ordine);
}

void TestAccessibilita::sulPiccoloSchermo()
{
    // 1366x768 at 150 % are 910x512, and the frame takes its part.
    QVERIFY2(F->minimumSizeHint().width() <= 800, qPrintable(QString::number(F->minimumSizeHint().width())));
    QVERIFY2(F->minimumSizeHint().height() <= 340,
             qPrintable(QString::number(F->minimumSizeHint().height())));
    ClicScheda(F, SchedaListaOnorari);
    const int Altezza = F->minimumSizeHint().height();
    Clic(Controllo(PaginaIn(F), "barListaOnoDir_variaz"));
    QVERIFY(Controllo(F, "pctInsModOno")->isVisible());
    QVERIFY2(F->minimumSizeHint().height() <= Altezza, "il pannello aperto non allunga la finestra");
    QVERIFY(F->minimumSizeHint().width() <= 800);
    // In a window of the usual size nothing needs scrolling.
    F->resize(845, 555);
    for (const int Scheda : {int(SchedaBase), int(SchedaImposte)}) {
        ClicScheda(F, Scheda);
        const auto* Cornice = qobject_cast<const QScrollArea*>(PaginaIn(F));
        QVERIFY(Cornice);
        QCOMPARE(Cornice->horizontalScrollBar()->maximum(), 0);
        QCOMPARE(Cornice->verticalScrollBar()->maximum(), 0);
    }
}

#include "TestAccessibilita.moc"
