// A filter of the address book whose texts are still being read, and what is done meanwhile.
#include "archivio.h"

#include "addressbook/windows/frmScheda.h"
#include "platform/base/numerierrore.h"
#include "platform/database/connessione.h"
#include "platform/system/attese.h"

#include <QDialog>
#include <QMenu>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

class TestFiltroInAttesa : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { A.reset(); }

    void giuDalFiltro_data();
    void giuDalFiltro();
    void ilComandoAspetta();
    void laRigaTolta_data();
    void laRigaTolta();
    void laRigaRimasta();
    void nuovo();
    void laScheda();
    void nullaSottoUnaDomanda();
    void nullaDietro_data();
    void nullaDietro();
    void siEliminaLaRigaChiesta();
    void cancellatoPrimaDellaFine();
    void letturaFallita();
    void rifiutatoSottoLeModifiche();

private:
    /// Behind the names of the archive so many that their texts come in portions.
    static constexpr int Altri = 20'000;

    /// Pastes a filter, which has to wait.
    static void InAttesa(const frmRubrica* F, const QString& Testo)
    {
        Vaglio(F)->setFocus();
        Incolla(Vaglio(F), Testo);
        QCOMPARE(Conto(F), u"Lettura dell'archivio..."_s);
    }
    static frmScheda* Scheda(const frmRubrica* F)
    {
        auto* Trovata = F->findChild<frmScheda*>();
        return Trovata && Trovata->isVisible() ? Trovata : nullptr;
    }
    static void Compila(const frmRubrica* F, const QString& Nome)
    {
        QVERIFY(Scheda(F));
        QApplication::setActiveWindow(Scheda(F));
        Scrivi(Scheda(F)->findChild<QLineEdit*>(u"txtFieldData_1"_s), Nome);
    }
    void AttendiElimina(int Risposta)
    {
        A->Voce.Attendi(u"Confermi la cancellazione del nominativo selezionato?"_s, Risposta, u"Domanda:"_s);
    }

    std::unique_ptr<ArchivioDiProva> A;
};
PROVA(TestFiltroInAttesa);

void TestFiltroInAttesa::init()
{
    A = std::make_unique<ArchivioDiProva>();
    OpenDatabase(A->File).Execute(
        u"INSERT INTO clienti (Nominativo) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
        "SELECT i+1 FROM n WHERE i<%1) SELECT 'Nome ' || i FROM n"_s.arg(Altri));
}

void TestFiltroInAttesa::giuDalFiltro_data()
{
    QTest::addColumn<int>("Tasto");
    QTest::newRow("Invio") << int(Qt::Key_Return);
    QTest::newRow("freccia giù") << int(Qt::Key_Down);
}

/// The key goes down to the filtered rows, and Enter chooses the first of them.
void TestFiltroInAttesa::giuDalFiltro()
{
    QFETCH(int, Tasto);
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    InAttesa(F, u"forli"_s);
    Premi(Qt::Key(Tasto));
    QCOMPARE(Conto(F), u"1 di 20.005"_s);
    QVERIFY(Lista(F)->Vista()->hasFocus());
    Premi(Qt::Key_Return);
    QCOMPARE(A->Scelte.size(), std::size_t(1));
    QCOMPARE(A->Scelte[0].Valori.at(1).toString(), u"Àlvari Nicolò"_s);
}

/// A button that is pressed behind the last letter is meant for what the letters leave.
void TestFiltroInAttesa::ilComandoAspetta()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    InAttesa(F, u"bruni"_s);
    Clic(Controllo(F, "barRubr_selez"));
    QCOMPARE(A->Scelte.size(), std::size_t(1));
    QCOMPARE(A->Scelte[0].Valori.at(1).toString(), u"BRUNI Carla"_s);
}

void TestFiltroInAttesa::laRigaTolta_data()
{
    QTest::addColumn<int>("Tasto");
    QTest::newRow("Canc") << int(Qt::Key_Delete);
    QTest::newRow("Invio") << int(Qt::Key_Return);
    QTest::newRow("F2") << int(Qt::Key_F2);
}

/// The row that was clicked has gone with the filter: nothing is done with the one in its place.
void TestFiltroInAttesa::laRigaTolta()
{
    QFETCH(int, Tasto);
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    InAttesa(F, u"forli"_s);
    VaiA(F, 3);
    Premi(Qt::Key(Tasto));
    QCOMPARE(Corrente(F), u"Àlvari Nicolò"_s);
    QVERIFY(A->Scelte.empty());
    QVERIFY(A->Voce.Mostrati().isEmpty());
    QVERIFY(!Scheda(F));
    QCOMPARE(Chiavi(A->File).size(), Altri + 5);
}

void TestFiltroInAttesa::laRigaRimasta()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    InAttesa(F, u"rossi"_s);
    VaiA(F, 4);
    Premi(Qt::Key_Return);
    QCOMPARE(A->Scelte.size(), std::size_t(1));
    QCOMPARE(A->Scelte[0].Valori.at(1).toString(), u"Rossi Ada"_s);
}

/// A row that was just made stays the current one, whatever the filter says.
void TestFiltroInAttesa::nuovo()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    InAttesa(F, u"rossi"_s);
    Premi(Qt::Key_Insert);
    Compila(F, u"Abate"_s);
    Premi(Qt::Key_F10);
    QTRY_VERIFY(!Scheda(F));
    QTest::qWait(300);
    QCOMPARE(Corrente(F), u"Abate"_s);
    QCOMPARE(Conto(F), u"3 di 20.006"_s);
    QApplication::setActiveWindow(RubricaDi(1));
    Premi(Qt::Key_Return);
    QCOMPARE(A->Scelte.size(), std::size_t(1));
    QCOMPARE(A->Scelte[0].Valori.at(1).toString(), u"Abate"_s);
}

/// A card is one of the filtered rows, and keeps its row and its edit.
void TestFiltroInAttesa::laScheda()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    InAttesa(F, u"forli"_s);
    Premi(Qt::Key_F2);
    Compila(F, u"Àlvari Ugo"_s);
    QTest::qWait(300);
    QCOMPARE(F->RigheMostrate().EditMode(), 1);
    Premi(Qt::Key_F10);
    QTRY_VERIFY(!Scheda(F));
    QCOMPARE(Conto(F), u"1 di 20.005"_s);
    QCOMPARE(Corrente(F), u"Àlvari Ugo"_s);
}

/// A filter that begins to wait while the question is up changes nothing behind it, and asks nothing.
void TestFiltroInAttesa::nullaSottoUnaDomanda()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    VaiA(F, 3);
    QStringList Viste;
    const QScopedValueRollback Mano(Registratore::AlMostrare(), std::function([&] {
                                        {
                                            Connessione AltroProgramma(A->File, Connessione::Modo::Scrittura);
                                            AltroProgramma.Esegui(
                                                u"UPDATE clienti SET Cap='55100' WHERE ID=5"_s);
                                        }
                                        Vaglio(F)->setText(u"forli"_s);
                                        QTest::qWait(300);
                                        Viste.append(Corrente(F));
                                    }));
    AttendiElimina(vbYes);
    Premi(Qt::Key_Delete);
    QCOMPARE(Viste, QStringList{u"Rossi Mario"_s});
    QCOMPARE(Chiavi(A->File).first(5), (QList<int>{1, 2, 3, 5, 6}));
    QTRY_COMPARE(Conto(F), u"1 di 20.004"_s);  // and comes into force when it is answered
}

void TestFiltroInAttesa::nullaDietro_data()
{
    QTest::addColumn<QString>("Davanti");
    QTest::addColumn<bool>("Aspetta");
    QTest::newRow("il menu delle righe") << u"menu"_s << true;
    QTest::newRow("una finestra che ferma il programma") << u"programma"_s << true;
    QTest::newRow("una finestra che ferma questa") << u"questa"_s << true;
    QTest::newRow("una finestra che ne ferma un'altra") << u"altra"_s << false;
}

/// The rows stay as they are behind what holds this window back, and behind nothing else.
void TestFiltroInAttesa::nullaDietro()
{
    QFETCH(QString, Davanti);
    QFETCH(bool, Aspetta);
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    VaiA(F, 3);
    InAttesa(F, u"forli"_s);
    QWidget Altra;
    Altra.show();
    QDialog Finestra(Davanti == u"altra"_s ? &Altra : Davanti == u"questa"_s ? F : nullptr);
    Finestra.setWindowModality(Davanti == u"programma"_s ? Qt::ApplicationModal : Qt::WindowModal);
    if (Davanti == u"menu"_s)
        Lista(F)->ApriMenu(3, F->mapToGlobal(QPoint(50, 50)));
    else
        Finestra.show();
    QTest::qWait(300);
    QCOMPARE(Corrente(F), Aspetta ? u"Rossi Mario"_s : u"Àlvari Nicolò"_s);
    if (auto* Menu = F->findChild<QMenu*>(u"menuRubrica"_s))
        Menu->close();
    Finestra.close();
    QTRY_COMPARE(Corrente(F), u"Àlvari Nicolò"_s);
}

void TestFiltroInAttesa::siEliminaLaRigaChiesta()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    VaiA(F, 3);
    const QScopedValueRollback Mano(Registratore::AlMostrare(), std::function([&] {
                                        Recordset StesseRighe = F->RigheMostrate();
                                        StesseRighe.MoveFirst();
                                    }));
    AttendiElimina(vbYes);
    Premi(Qt::Key_Delete);
    QCOMPARE(Chiavi(A->File).first(5), (QList<int>{1, 2, 3, 5, 6}));
}

void TestFiltroInAttesa::cancellatoPrimaDellaFine()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    InAttesa(F, u"f"_s);
    Premi(Qt::Key_Backspace);
    QCOMPARE(Conto(F), u"20.005 nominativi"_s);
    QTest::qWait(300);
    QCOMPARE(Conto(F), u"20.005 nominativi"_s);
}

void TestFiltroInAttesa::letturaFallita()
{
    const QScopedValueRollback Breve(attese::BlocchiMs, 30);
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    InAttesa(F, u"f"_s);
    Connessione AltroProgramma(A->File, Connessione::Modo::Scrittura);
    AltroProgramma.Esegui(u"BEGIN EXCLUSIVE"_s);
    A->Voce.Attendi(u"Errore: %1 (3260)"_s.arg(DescrizioneErrore(3260)), vbOK, u"Errore:"_s);
    QTRY_COMPARE(A->Voce.Mostrati().size(), 1);
    QCOMPARE(Conto(F), u"20.005 nominativi"_s);
    QCOMPARE(Vaglio(F)->text(), QString());
    AltroProgramma.Esegui(u"COMMIT"_s);
    Digita(u"forli"_s);
    QTRY_COMPARE(Conto(F), u"1 di 20.005"_s);
}

/// Words that are not in force do not stay in the box.
void TestFiltroInAttesa::rifiutatoSottoLeModifiche()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    Vaglio(F)->setFocus();
    Digita(u"rossi"_s);
    QTRY_COMPARE(Conto(F), u"2 di 20.005"_s);
    Premi(Qt::Key_F2);
    Compila(F, u"Russo Mario"_s);
    Clic(Controllo(Scheda(F), "barScheda_off"));
    QTRY_VERIFY(!Scheda(F));
    QApplication::setActiveWindow(RubricaDi(1));
    Vaglio(F)->setFocus();
    A->Voce.Attendi(u"Salvare le modifiche alla scheda?"_s, vbCancel);
    Premi(Qt::Key_Backspace);
    QCOMPARE(Vaglio(F)->text(), u"rossi"_s);
    QCOMPARE(Conto(F), u"2 di 20.005"_s);
    QVERIFY(F->RigheMostrate().Toccato());
    A->Voce.Attendi(u"Salvare le modifiche alla scheda?"_s, vbNo);
    Premi(Qt::Key_Backspace);
    QCOMPARE(Vaglio(F)->text(), u"ross"_s);
}

#include "TestFiltroInAttesa.moc"
