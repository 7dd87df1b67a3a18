// The bracket of a value that is being typed: named under the box, taken at once, never by a box of its own.
#include "feenote/modParametri.h"
#include "feenote/windows/rigaofferta.h"
#include "tavolo.h"

using namespace Qt::StringLiterals;

namespace {

const QString Ricalcolo =
    u"Sono state già inserite delle prestazioni e la modifica comporterà il ricalcolo con i "
    "nuovi parametri.\nConfermi la modifica?"_s;

void ConScorciatoie(Qt::Key Tasto, Qt::KeyboardModifiers Con)
{
    QTest::keyClick(QApplication::focusWidget(), Tasto, Con);
}

}  // namespace

class TestScaglioneOfferto : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { T.reset(); }
    void segueLeCifre();
    void preso_data();
    void preso();
    void lasciareLaCasellaFaLoStesso();
    void conLeRigheChiede_data();
    void conLeRigheChiede();
    void unAltraCategoria();
    void nienteSiSposta();

private:
    [[nodiscard]] QString Offerto() const { return Bottone->isVisible() ? Bottone->text() : QString(); }
    [[nodiscard]] QString Scelto() const { return TestoScaglione(F->Nota); }

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    QToolButton* Bottone = nullptr;
    QLineEdit* Valore = nullptr;
};
PROVA(TestScaglioneOfferto);

void TestScaglioneOfferto::init()
{
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
    Scegli(Controllo<QComboBox>(F, "cmbCateg"), CategCivile);
    Scegli(Controllo<QComboBox>(F, "cmbAutor"), IndiceAutorita(F->Nota, IDTribunale));
    Bottone = Controllo<QToolButton>(F, "cmdScaglione");
    Valore = Controllo<QLineEdit>(F, "txtImporto");
    Valore->setFocus();
}

void TestScaglioneOfferto::segueLeCifre()
{
    QCOMPARE(Offerto(), QString());
    Digita(u"6"_s);
    QCOMPARE(Offerto(), u"Scaglione: fino a € 5.000,00"_s);
    Digita(u"0000"_s);
    QCOMPARE(Offerto(), u"Scaglione: da € 50.000,01 a € 100.000,00"_s);
    QCOMPARE(Valore->accessibleDescription(), Offerto());
    QCOMPARE(Scelto(), QString());
    Premi(Qt::Key_Backspace);
    QCOMPARE(Offerto(), u"Scaglione: da € 5.000,01 a € 25.000,00"_s);
    Valore->selectAll();
    Premi(Qt::Key_Delete);
    QCOMPARE(Offerto(), QString());
    QCOMPARE(Valore->accessibleDescription(), QString());
    QCOMPARE(QApplication::focusWidget(), Valore);
}

void TestScaglioneOfferto::preso_data()
{
    QTest::addColumn<QString>("Come");
    for (const QString& Come : {u"clic"_s, u"Ctrl+Invio"_s, u"Ctrl+Invio del tastierino"_s})
        QTest::newRow(qPrintable(Come)) << Come;
}

void TestScaglioneOfferto::preso()
{
    QFETCH(QString, Come);
    Digita(u"60000"_s);
    if (Come == u"clic")
        Clic(Bottone);
    else if (Come == u"Ctrl+Invio")
        ConScorciatoie(Qt::Key_Return, Qt::ControlModifier);
    else
        ConScorciatoie(Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier);
    QCOMPARE(Scelto(), u"da € 50.000,01 a € 100.000,00"_s);
    QCOMPARE(Controllo<QComboBox>(F, "cmbValore")->currentText(), Scelto());
    QCOMPARE(Valore->text(), u"60.000,00"_s);
    QCOMPARE(F->Nota.ImportoPrec, 60000.0);
    QCOMPARE(Offerto(), QString());
    QCOMPARE(QApplication::focusWidget(), Valore);
    QCOMPARE(Controllo<QToolButton>(F, "cmdAnnulla")->toolTip(), u"Annulla: valore esatto (Ctrl+Z)"_s);
}

void TestScaglioneOfferto::lasciareLaCasellaFaLoStesso()
{
    Digita(u"60000"_s);
    Premi(Qt::Key_Tab);
    Respiro();
    QCOMPARE(Scelto(), u"da € 50.000,01 a € 100.000,00"_s);
    QCOMPARE(Offerto(), QString());
}

void TestScaglioneOfferto::conLeRigheChiede_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::newRow("sì") << int(vbYes);
    QTest::newRow("no") << int(vbNo);
}

/// The same question as from the list; a refusal takes the value back with the bracket.
void TestScaglioneOfferto::conLeRigheChiede()
{
    QFETCH(int, Risposta);
    Digita(u"30000"_s);
    Premi(Qt::Key_Tab);
    Respiro();
    ClicScheda(F, SchedaListaOnorari);
    QVERIFY(!F->Nota.xOnorari.Vuota());
    ClicScheda(F, SchedaBase);
    const QString Prima = Scelto();
    Scrivi(Valore, u"60000"_s);
    QCOMPARE(Offerto(), u"Scaglione: da € 50.000,01 a € 100.000,00"_s);
    T->Voce.Attendi(Ricalcolo, Risposta, u"Domanda:"_s);
    ConScorciatoie(Qt::Key_Return, Qt::ControlModifier);
    Respiro();
    QCOMPARE(Scelto() == Prima, Risposta == vbNo);
    QCOMPARE(Valore->text(), Risposta == vbNo ? u"30.000,00"_s : u"60.000,00"_s);
    QCOMPARE(Offerto(), QString());
}

/// The bracket goes with the category, the value stays: its bracket is named again.
void TestScaglioneOfferto::unAltraCategoria()
{
    Digita(u"30000"_s);
    Premi(Qt::Key_Tab);
    Respiro();
    QCOMPARE(Offerto(), QString());
    Scegli(Controllo<QComboBox>(F, "cmbCateg"), CategPenale);
    QCOMPARE(Offerto(), QString());
    F->Nota.txtImporto.Testo = u"30000"_s;
    Scegli(Controllo<QComboBox>(F, "cmbCateg"), CategStragiudiziale);
    QCOMPARE(Offerto(), u"Scaglione: da € 25.000,01 a € 50.000,00"_s);
    Clic(Bottone);
    QCOMPARE(Scelto(), u"da € 25.000,01 a € 50.000,00"_s);
}

/// In a narrow window the limits alone are read, and all of it over the button.
void TestScaglioneOfferto::nienteSiSposta()
{
    const QRect Riquadro = Controllo(F, "fraProcedimento")->geometry();
    const QRect Lista = Controllo(F, "cmbValore")->geometry();
    Digita(u"60000"_s);
    Respiro();
    QVERIFY(!Offerto().isEmpty());
    QCOMPARE(Controllo(F, "fraProcedimento")->geometry(), Riquadro);
    QCOMPARE(Controllo(F, "cmbValore")->geometry(), Lista);
    const auto* Offerta = static_cast<BottoneOfferta*>(Bottone);
    constexpr int Orli = 8;
    Bottone->resize(Bottone->fontMetrics().horizontalAdvance(Bottone->text()) + Orli, Bottone->height());
    QCOMPARE(Offerta->Mostrato(), u"Scaglione: da € 50.000,01 a € 100.000,00"_s);
    Bottone->resize(Bottone->fontMetrics().horizontalAdvance(Bottone->text()), Bottone->height());
    QCOMPARE(Offerta->Mostrato(), u"da 50.000,01 a 100.000,00"_s);
    Bottone->resize(Bottone->fontMetrics().horizontalAdvance(u"da 50.000,01 a 100.000,00"_s),
                    Bottone->height());
    QCOMPARE(Offerta->Mostrato(), u"50.000–100.000"_s);
    Bottone->resize(Bottone->minimumSizeHint());
    QCOMPARE(Offerta->Mostrato(), u"50–100 mila"_s);
    Bottone->resize(60, Bottone->height());
    QVERIFY(Offerta->Mostrato().endsWith(u"…"));
    QVERIFY(Bottone->toolTip().endsWith(u"da € 50.000,01 a € 100.000,00"));
    // Where there is room for both the value keeps its own.
    F->resize(1100, 700);
    Respiro();
    const QRect Casella = Valore->geometry();
    Valore->selectAll();
    Premi(Qt::Key_Delete);
    Respiro();
    QCOMPARE(Offerto(), QString());
    QCOMPARE(Valore->geometry(), Casella);
}

#include "TestScaglioneOfferto.moc"
