// The address book beside its search and beside a card that waits.
#include "bancocomandi.h"

using namespace Qt::StringLiterals;

class TestRubricaConLaScheda : public QObject, private BancoComandi
{
    Q_OBJECT
private Q_SLOTS:
    void init() { A = std::make_unique<ArchivioDiProva>(); }
    void cleanup() { A.reset(); }
    void siCerca();
    void laRicercaToglieIlFiltro();
    void laRicercaSegueLOrdine();
    void laSchedaAppesa();
    void laSchedaAppesaPrimaDiUnComando();
    void laSchedaAppesaEIlTastoDestro_data();
    void laSchedaAppesaEIlTastoDestro();
    void siChiudeConLaSchedaAperta();
    void siRiapreConLaSchedaAperta();
    void laParcellaSiChiudeConLaSchedaAperta();
};
PROVA(TestRubricaConLaScheda);

void TestRubricaConLaScheda::siCerca()
{
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    Lista(F)->setFocus();
    QTest::keyClick(Lista(F)->Vista(), Qt::Key_F, Qt::ControlModifier);
    auto* Cerca = F->findChild<frmRicerche*>();
    QVERIFY(Cerca && Cerca->isVisible());
    QVERIFY(!Cerca->isModal());
    auto* Dove = Controllo<QComboBox>(Cerca, "cmbCampo");
    QCOMPARE(Dove->count(), 2);
    QCOMPARE(Dove->itemText(1), u"Codice fiscale"_s);
    F->Comando(u"search"_s);  // again: not four
    QCOMPARE(Dove->count(), 2);
    QApplication::setActiveWindow(Cerca);
    Scegli(Controllo<QComboBox>(Cerca, "cmbOper"), 8);
    Scrivi(Controllo<QLineEdit>(Cerca, "txtValore"), u"rossi"_s);
    Clic(Controllo(Cerca, "cmdFind_0"));
    QCOMPARE(Corrente(F), u"Rossi Mario"_s);
    // Called again it keeps what was chosen in it.
    QApplication::setActiveWindow(F);
    QTest::keyClick(Lista(F)->Vista(), Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(Controllo<QComboBox>(Cerca, "cmbOper")->currentIndex(), 8);
    QCOMPARE(Controllo<QLineEdit>(Cerca, "txtValore")->text(), u"rossi"_s);
    // With the dialog closed the key goes on from there, and back.
    Cerca->close();
    QApplication::setActiveWindow(F);
    Lista(F)->setFocus();
    QTest::keyClick(Lista(F)->Vista(), Qt::Key_F3);
    QCOMPARE(Corrente(F), u"Rossi Ada"_s);
    QTest::keyClick(Lista(F)->Vista(), Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(Corrente(F), u"Rossi Mario"_s);
    VaiA(F, 4);
    A->Voce.Attendi(u"Non ho trovato nessun altro elemento che soddisfi i criteri impostati!"_s, vbOK,
                    u"Messaggio:"_s);
    QTest::keyClick(Lista(F)->Vista(), Qt::Key_F3);
    QCOMPARE(Corrente(F), u"Rossi Ada"_s);
}

void TestRubricaConLaScheda::laRicercaToglieIlFiltro()
{
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    Vaglio(F)->setText(u"rossi"_s);
    QTRY_COMPARE(Conto(F), u"2 di 5"_s);
    F->Comando(u"search"_s);
    QCOMPARE(Conto(F), u"5 nominativi"_s);
    QVERIFY(Vaglio(F)->text().isEmpty());
}

void TestRubricaConLaScheda::laRicercaSegueLOrdine()
{
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    F->Comando(u"search"_s);
    auto* Cerca = F->findChild<frmRicerche*>();
    QVERIFY(Cerca);
    ClicTitolo(F, 1);
    QApplication::setActiveWindow(Cerca);
    Scegli(Controllo<QComboBox>(Cerca, "cmbOper"), 8);
    Scrivi(Controllo<QLineEdit>(Cerca, "txtValore"), u"rossi"_s);
    Clic(Controllo(Cerca, "cmdFind_0"));
    QCOMPARE(Corrente(F), u"Rossi Ada"_s);
    // It closes with its browser.
    F->close();
    QVERIFY(!Cerca->isVisible());
}

/// "off" leaves the edit open; the line under the grid ends it.
void TestRubricaConLaScheda::laSchedaAppesa()
{
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    QWidget* Linea = Controllo(F, "panSospeso");
    QVERIFY(!Linea->isVisible());
    F->Comando(u"edit"_s);
    ScriviScheda(F, 1, u"Verdi Bruno"_s);
    Premuto(F, u"off"_s);
    QVERIFY(Linea->isVisible());
    QCOMPARE(F->RigheMostrate().EditMode(), 1);
    QCOMPARE(Cella(F, 0, 1), u"verdi Anna"_s);  // the grid shows the file
    Clic(Linea->findChild<QPushButton*>(u"cmdSalvaModifiche"_s));
    QVERIFY(!Linea->isVisible());
    QCOMPARE(Cella(F, 0, 1), u"Verdi Bruno"_s);
    QCOMPARE(A->Cambiati, QStringList{u"clienti 1"_s});
    F->Comando(u"new"_s);
    ScriviScheda(F, 1, u"Altro"_s);
    Premuto(F, u"off"_s);
    Clic(Linea->findChild<QPushButton*>(u"cmdAnnullaModifiche"_s));
    QCOMPARE(Chiavi(A->File).size(), 5);
    QCOMPARE(F->RigheMostrate().EditMode(), 0);
}

void TestRubricaConLaScheda::laSchedaAppesaPrimaDiUnComando()
{
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    F->Comando(u"edit"_s);
    ScriviScheda(F, 1, u"Verdi Bruno"_s);
    Premuto(F, u"off"_s);
    QApplication::setActiveWindow(F);
    const QString Domanda = u"Salvare le modifiche alla scheda?"_s;
    // Cancel: another row, another order, a choice stay out.
    for (const auto& Fai :
         {std::function([&] { ClicCella(Lista(F), 2, 1); }), std::function([&] { ClicTitolo(F, 1); }),
          std::function([&] { F->Comando(u"selez"_s); })}) {
        A->Voce.Attendi(Domanda, vbCancel);
        Fai();
        QCOMPARE(F->RigheMostrate().EditMode(), 1);
        QCOMPARE(Lista(F)->RigaCorrente(), std::optional(0));
    }
    QVERIFY(!Lista(F)->Vista()->horizontalHeader()->isSortIndicatorShown());
    A->Voce.Attendi(Domanda, vbYes);
    ClicCella(Lista(F), 2, 1);
    QCOMPARE(Corrente(F), u"BRUNI Carla"_s);
    QCOMPARE(Cella(F, 0, 1), u"Verdi Bruno"_s);
}

void TestRubricaConLaScheda::laSchedaAppesaEIlTastoDestro_data()
{
    QTest::addColumn<bool>("Selettore");
    QTest::newRow("su una cella") << false;
    QTest::newRow("sul selettore di riga") << true;
}

/// Who stays on his edit is asked once, and has no menu of another row.
void TestRubricaConLaScheda::laSchedaAppesaEIlTastoDestro()
{
    QFETCH(bool, Selettore);
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    F->Comando(u"edit"_s);
    ScriviScheda(F, 1, u"Verdi Bruno"_s);
    Premuto(F, u"off"_s);
    QApplication::setActiveWindow(F);
    const QString Domanda = u"Salvare le modifiche alla scheda?"_s;
    QWidget* Dove =
        Selettore ? Lista(F)->Vista()->verticalHeader()->viewport() : Lista(F)->Vista()->viewport();
    const QPoint Punto(10, CentroCella(Lista(F), 2, 1).y());
    const auto TastoDestro = [&] {
        QTest::mouseClick(Dove, Qt::RightButton, Qt::NoModifier, Punto);
        QContextMenuEvent Evento(QContextMenuEvent::Mouse, Punto, Dove->mapToGlobal(Punto));
        QApplication::sendEvent(Dove, &Evento);
    };
    A->Voce.Attendi(Domanda, vbCancel);
    TastoDestro();
    QCOMPARE(F->RigheMostrate().EditMode(), 1);
    QVERIFY(F->RigheMostrate().Toccato());
    QCOMPARE(Corrente(F), u"verdi Anna"_s);
    QVERIFY(!F->findChild<QMenu*>(u"menuRubrica"_s));
    A->Voce.Attendi(Domanda, vbYes);
    TastoDestro();
    QCOMPARE(Corrente(F), u"BRUNI Carla"_s);
    QCOMPARE(Cella(F, 0, 1), u"Verdi Bruno"_s);
    auto* Menu = F->findChild<QMenu*>(u"menuRubrica"_s);
    QVERIFY(Menu);
    Menu->close();
}

void TestRubricaConLaScheda::siChiudeConLaSchedaAperta()
{
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    F->Comando(u"edit"_s);
    ScriviScheda(F, 1, u"Verdi Bruno"_s);
    const QString Domanda = u"Salvare le modifiche alla scheda?"_s;
    A->Voce.Attendi(Domanda, vbCancel);
    F->close();
    QVERIFY(F->isVisible() && Scheda(F));
    A->Voce.Attendi(Domanda, vbNo);  // once, not twice
    F->close();
    QVERIFY(!RubricaDi(1));
    QCOMPARE(OpenDatabase(A->File).OpenRecordset(u"clienti"_s).Value(u"Nominativo"_s).toString(),
             u"verdi Anna"_s);
}

void TestRubricaConLaScheda::siRiapreConLaSchedaAperta()
{
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    F->Comando(u"edit"_s);
    ScriviScheda(F, 1, u"Verdi Bruno"_s);
    RichiestaRubrica Altra = A->DaNota();
    Altra.RecordSource = u"controparti"_s;
    const QString Domanda = u"Salvare le modifiche alla scheda?"_s;
    A->Voce.Attendi(Domanda, vbCancel);
    QCOMPARE(A->Apri(Altra), F);
    QCOMPARE(F->windowTitle(), u"Archivio: clienti"_s);
    QVERIFY(Scheda(F));
    A->Voce.Attendi(Domanda, vbYes);
    QCOMPARE(A->Apri(Altra), F);
    QCOMPARE(F->windowTitle(), u"Archivio: controparti"_s);
    QVERIFY(!Scheda(F));
    QCOMPARE(A->Cambiati, QStringList{u"clienti 1"_s});
}

/// What was typed is asked about; who stays on the card has a browser that chooses for nobody.
void TestRubricaConLaScheda::laParcellaSiChiudeConLaSchedaAperta()
{
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    F->Comando(u"edit"_s);
    ScriviScheda(F, 1, u"Verdi Bruno"_s);
    A->Voce.Attendi(u"Salvare le modifiche alla scheda?"_s, vbCancel);
    ChiudiRubricaDi(1, 71);
    QVERIFY(!RubricaDi(1));
    QVERIFY(F->isVisible());
    // The end of the program asks of this one too.
    A->Voce.Attendi(u"Salvare le modifiche alla scheda?"_s, vbCancel);
    QVERIFY(!ChiudiRubriche());
    Premuto(F, u"do"_s);
    QVERIFY(!Azione(F, "selez")->isVisible());
    F->Comando(u"selez"_s);
    QVERIFY(A->Scelte.empty());
    QApplication::setActiveWindow(F);
    Premi(Qt::Key_Escape);
    QVERIFY(!F->isVisible());
}

#include "TestRubricaConLaScheda.moc"
