// The finder on the real form: the list, the search, the order, the choice.
#include "bancotrova.h"

#include "core/parametri.h"
#include "platform/kit/aspetto.h"

#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

class TestFrmTrovaParcella : public QObject, private BancoTrova
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void ognunoHaUnNome();
    void siElenca_data();
    void siElenca();
    void leColonne();
    void siApre_data();
    void siApre();
    void siSceglieUnaNota();
    void lASceltaAnnullata();
    void siFiltraScrivendo();
    void siCercaPerNome_data();
    void siCercaPerNome();
    void laCasellaVuotaMostraTutto();
    void ilTestoNonResta();
    void siOrdina();
    void ordinataDaTastiera();
    void lOrdineMentreArrivano();
    void lOrdineFinoAllaChiusura();
    void siInterrompe();
    void leLettere();
    void segnoDellaBarra();
    void escChiude();
    void ricordaIlPosto();
    void ricordaLeLarghezze();
};
PROVA(TestFrmTrovaParcella);

void TestFrmTrovaParcella::ognunoHaUnNome()
{
    Apri();
    QStringList Senza;
    for (const QWidget* Uno : F->findChildren<QWidget*>())
        if (Uno->focusPolicy() != Qt::NoFocus && Uno->isVisible() && Uno->accessibleName().isEmpty() &&
            !Uno->objectName().startsWith(u"qt_"))
            Senza += QString::fromLatin1(Uno->metaObject()->className()) + u' ' + Uno->objectName();
    QCOMPARE(Senza, QStringList());
}

void TestFrmTrovaParcella::siElenca_data()
{
    QTest::addColumn<int>("Quale");
    QTest::addColumn<QString>("Titolo");
    QTest::addColumn<QStringList>("Trovate");
    QTest::newRow("notes") << 0 << u"Apri da parcelle salvate"_s
                           << QStringList{u"[vecchie]"_s, u"rossi 9"_s, u"rossi 10"_s, u"verdi"_s};
    QTest::newRow("templates") << 1 << u"Apri da modelli"_s << QStringList{u"tipo"_s};
    QTest::newRow("a folder") << 2 << u"Apri parcella"_s << QStringList{u"neri"_s};
}

void TestFrmTrovaParcella::siElenca()
{
    QFETCH(int, Quale);
    QFETCH(QString, Titolo);
    QFETCH(QStringList, Trovate);
    SalvaNota(sessione::ModelliPath + u"tipo.mdb"_s);
    Apri(Quale, Note + u"vecchie"_s);
    QCOMPARE(F->windowTitle(), Titolo);
    QCOMPARE(Nomi(), Trovate);
    QVERIFY(Opzione(Quale)->isChecked());
    QCOMPARE(Percorso()->text(), Quale == 0   ? Note
                                 : Quale == 1 ? sessione::ModelliPath
                                              : Note + u"vecchie/"_s);
    QCOMPARE(Percorso()->isReadOnly(), Quale != 2);
    const qint64 Archivi = Quale == 0 ? 3 : 1;
    QVERIFY2(Stato().startsWith(u"Trovati %1 archivi in 1 cartelle per un totale di "_s.arg(Archivi)),
             qPrintable(Stato()));
    QCOMPARE(QApplication::focusWidget(), Testo());
    QVERIFY(!F->isModal());
}

void TestFrmTrovaParcella::leColonne()
{
    Data(Note + u"rossi 10.mdb"_s, QDateTime({2026, 3, 5}, {10, 0}));
    Apri();
    QStringList Titoli;
    for (int i = 0; i < TrovaColonne; ++i)
        Titoli += Lista()->Vista()->model()->headerData(i, Qt::Horizontal).toString();
    QCOMPARE(Titoli, (QStringList{u"Nome parcella"_s, u"Data"_s, u"Cliente"_s, u"Controparte"_s,
                                  u"Dimensione"_s, u"Nella cartella"_s, u"Stato"_s}));
    const int Riga = RigaDi(u"rossi 10"_s);
    QCOMPARE(Cella(Riga, TrovaData), u"05/03/2026"_s);
    QCOMPARE(Cella(Riga, TrovaCliente), u"Rossi Mario"_s);
    QCOMPARE(Cella(Riga, TrovaControparte), u"Bianchi"_s);
    QVERIFY(Cella(Riga, TrovaDimensione).endsWith(u" KB"));
    QCOMPARE(Cella(Riga, TrovaCartella), Note);
    const QString Suggerito = Lista()->Suggerimento(Riga);
    for (const QString& Parte :
         {Note + u"rossi 10.mdb"_s, u"Oggetto di rossi 10.mdb"_s, u"Doppio click per aprire la parcella"_s})
        QVERIFY2(Suggerito.contains(Parte), qPrintable(Parte));
}

void TestFrmTrovaParcella::siApre_data()
{
    QTest::addColumn<QString>("Come");
    QTest::newRow("double click") << u"doppio"_s;
    QTest::newRow("Enter") << u"invio"_s;
    QTest::newRow("the toolbar") << u"barra"_s;
    QTest::newRow("typed, down, Enter") << u"scritta"_s;
}

void TestFrmTrovaParcella::siApre()
{
    QFETCH(QString, Come);
    Apri();
    if (Come == u"scritta") {
        Digita(u"perche"_s);
        Premi(Qt::Key_Down);
        Premi(Qt::Key_Return);
    } else {
        VaiSu(u"verdi"_s);
        if (Come == u"doppio")
            DoppioClic(Lista(), RigaDi(u"verdi"_s));
        else if (Come == u"invio")
            Premi(Qt::Key_Return);
        else
            Clic(Controllo<QToolButton>(F.get(), "barTrova_open"));
    }
    QCOMPARE(AperteDaQui, QStringList{Note + u"verdi.mdb"_s});
    QVERIFY2(!F->isVisible(), "the form hides and stays loaded");
    QVERIFY(Parcelle(1) && Parcelle(1)->isVisible());
    QCOMPARE(Parcelle(1)->Nota.Percorso, Note + u"verdi.mdb"_s);
}

void TestFrmTrovaParcella::siSceglieUnaNota()
{
    bool Modale = false;
    bool Visti = false;
    QTimer::singleShot(0, F.get(), [&] {
        Davanti();
        Finita();
        Modale = F->isModal();
        Visti = Controllo<QToolButton>(F.get(), "barTrova_selez")->isVisible() &&
                !Controllo<QToolButton>(F.get(), "barTrova_open")->isVisible();
        VaiSu(u"rossi 9"_s);
        Clic(Controllo<QToolButton>(F.get(), "barTrova_selez"));
    });
    QCOMPARE(F->OpenParcMod(0, {}, 3, u"multiple"_s), Note + u"rossi 9.mdb"_s);
    QVERIFY(Modale && Visti);
    QCOMPARE(F->Destinazione(), 3);
    QVERIFY(AperteDaQui.isEmpty() && !F->isVisible());
    Apri();
    QVERIFY(!F->isModal());
    QVERIFY(Controllo<QToolButton>(F.get(), "barTrova_open")->isVisible());
}

void TestFrmTrovaParcella::lASceltaAnnullata()
{
    Apri();
    QTimer::singleShot(0, F.get(), [&] {
        Davanti();
        Finita();
        // The menu changes the folder, not what the form was asked for.
        Controllo<QAction>(F.get(), "menu_openmod")->trigger();
        Finita();
        QCOMPARE(F->Parent, u"multiple"_s);
        QCOMPARE(F->Destinazione(), 2);
        QCOMPARE(F->windowTitle(), u"Apri da modelli"_s);
        QTest::keyClick(F.get(), Qt::Key_Escape);
    });
    QCOMPARE(F->OpenParcMod(0, {}, 2, u"multiple"_s), QString());
    QVERIFY(!F->isVisible());
}

void TestFrmTrovaParcella::siFiltraScrivendo()
{
    Apri();
    Digita(u"rossi"_s);
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"rossi 9"_s, u"rossi 10"_s}));
    QCOMPARE(Corrente(), u"rossi 9"_s);
    QCOMPARE(Mostrate(), u"Mostrate 2 di 3"_s);
    Digita(u" bianchi 10"_s);
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"rossi 10"_s}));
    Scrivi(Testo(), u"ANNA"_s);
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"verdi"_s}));
    Scrivi(Testo(), {});
    QCOMPARE(Nomi().size(), 4);
    QCOMPARE(Mostrate(), QString());
    QVERIFY2(!F->InRicerca(), "an emptied filter walks nothing");
}

void TestFrmTrovaParcella::siCercaPerNome_data()
{
    QTest::addColumn<QString>("Cercato");
    QTest::addColumn<bool>("Bottone");
    QTest::addColumn<QStringList>("Trovate");
    const QStringList Rossi{u"rossi 9"_s, u"rossi 10"_s, u"[vecchie]"_s};
    QTest::newRow("Enter") << u"ROSSI"_s << false << Rossi;
    QTest::newRow("the button") << u"ROSSI"_s << true << Rossi;
    QTest::newRow("clients are not looked at") << u"anna"_s << false << QStringList{u"[vecchie]"_s};
    QTest::newRow("nothing to look for") << QString() << true << QStringList{};
    QTest::newRow("blanks") << u"  "_s << false << QStringList{};
}

void TestFrmTrovaParcella::siCercaPerNome()
{
    QFETCH(QString, Cercato);
    QFETCH(bool, Bottone);
    QFETCH(QStringList, Trovate);
    Apri();
    Scrivi(Testo(), Cercato);
    if (Trovate.isEmpty())
        T->Voce.Attendi(u"Inserire il testo da cercare!"_s, vbOK, u"Messaggio:"_s);
    else if (Trovate.size() == 1)
        T->Voce.Attendi(u"Non è stata trovata alcuna parcella!"_s);
    if (Bottone)
        Clic(Controllo<QPushButton>(F.get(), "cmdTrova"));
    else
        Premi(Qt::Key_Return);
    Finita();
    if (Trovate.isEmpty()) {
        QCOMPARE(QApplication::focusWidget(), Testo());
        return;
    }
    QCOMPARE(Nomi(), Trovate);
    if (Trovate.size() > 1) {
        QCOMPARE(Corrente(), u"rossi 9"_s);
        QCOMPARE(QApplication::focusWidget(), Lista()->Vista());
    } else {
        QCOMPARE(Stato(), u"Non è stata trovata alcuna parcella che soddisfi i criteri impostati"_s);
    }
}

void TestFrmTrovaParcella::laCasellaVuotaMostraTutto()
{
    Apri();
    Scrivi(Testo(), u"verdi"_s);
    Premi(Qt::Key_Return);
    Finita();
    QCOMPARE(Nomi(), (QStringList{u"verdi"_s, u"[vecchie]"_s}));
    Scrivi(Testo(), {});
    Finita();
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"rossi 9"_s, u"rossi 10"_s, u"verdi"_s}));
}

void TestFrmTrovaParcella::ilTestoNonResta()
{
    Apri();
    Scrivi(Testo(), u"verdi"_s);
    Premi(Qt::Key_Return);
    Finita();
    Controllo<QCheckBox>(F.get(), "chkSubDir")->setChecked(true);
    F->close();
    Apri();
    QCOMPARE(Testo()->text(), QString());
    QCOMPARE(Nomi().size(), 5);
    QVERIFY2(Controllo<QCheckBox>(F.get(), "chkSubDir")->isChecked(), "the walk below stays as it was");
}

void TestFrmTrovaParcella::siOrdina()
{
    Apri();
    VaiSu(u"rossi 10"_s);
    const QString Domanda = u"Desideri ordinare le parcelle per la colonna Cliente?"_s;
    T->Voce.Attendi(Domanda, vbNo, u"Domanda:"_s);
    ClicTitolo(TrovaCliente);
    QCOMPARE(Nomi().last(), u"verdi"_s);
    T->Voce.Attendi(Domanda, vbYes, u"Domanda:"_s);
    ClicTitolo(TrovaCliente);
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"verdi"_s, u"rossi 9"_s, u"rossi 10"_s}));
    QCOMPARE(Corrente(), u"rossi 10"_s);
    QHeaderView* Testata = Lista()->Vista()->horizontalHeader();
    QCOMPARE(Testata->sortIndicatorSection(), int(TrovaCliente));
    T->Voce.Attendi(Domanda, vbYes, u"Domanda:"_s);
    ClicTitolo(TrovaCliente);
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"rossi 9"_s, u"rossi 10"_s, u"verdi"_s}));
    QCOMPARE(Testata->sortIndicatorOrder(), Qt::DescendingOrder);
}

void TestFrmTrovaParcella::ordinataDaTastiera()
{
    Apri();
    QTest::keyClick(F.get(), Qt::Key_1, Qt::ControlModifier);
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"verdi"_s, u"rossi 10"_s, u"rossi 9"_s}));
    QTest::keyClick(F.get(), Qt::Key_3, Qt::ControlModifier);
    QCOMPARE(Nomi().at(1), u"verdi"_s);
}

void TestFrmTrovaParcella::lOrdineMentreArrivano()
{
    SalvaMolte(Note + u"molte/"_s, 10'000);
    (void)F->OpenParcMod(2, Note + u"molte"_s, 0, {});
    Davanti();
    QTRY_VERIFY(Lista()->Righe() > 10);
    QVERIFY(F->InRicerca());
    QTest::keyClick(F.get(), Qt::Key_1, Qt::ControlModifier);
    QVERIFY(F->InRicerca());
    QCOMPARE(Nomi().first(), u"0"_s);
    QCOMPARE(Lista()->Vista()->horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
    Finita();
    QCOMPARE(Nomi().first(), u"9999"_s);
}

void TestFrmTrovaParcella::lOrdineFinoAllaChiusura()
{
    Apri();
    QTest::keyClick(F.get(), Qt::Key_1, Qt::ControlModifier);
    Doppio(u"[vecchie]"_s);
    Doppio(u"[Torna alla cartella superiore]"_s);
    QCOMPARE(Nomi().at(1), u"verdi"_s);
    Doppio(u"verdi"_s);
    QVERIFY(!F->isVisible());
    Apri();
    QCOMPARE(Nomi().at(1), u"verdi"_s);
    F->close();
    Apri();
    QCOMPARE(Nomi().at(1), u"rossi 9"_s);
}

void TestFrmTrovaParcella::siInterrompe()
{
    SalvaMolte(Note + u"molte/"_s, 10'000);
    (void)F->OpenParcMod(2, Note + u"molte"_s, 0, {});
    Davanti();
    QCOMPARE(Stato(), u"Ricerca in corso, attendere prego... (premere <Interr> per interrompere)"_s);
    QVERIFY(F->InRicerca());
    Premi(Qt::Key_Pause);
    QVERIFY(!F->InRicerca() && F->isVisible());
    QVERIFY2(Stato().endsWith(u" (ricerca interrotta)"), qPrintable(Stato()));
    const qsizetype Quante = Nomi().size();
    QTest::qWait(100);
    QCOMPARE(Nomi().size(), Quante);
    // A new list begins while one is under way.
    (void)F->OpenParcMod(2, Note + u"molte"_s, 0, {});
    Apri();
    QCOMPARE(Nomi().last(), u"verdi"_s);
}

void TestFrmTrovaParcella::leLettere()
{
    Apri();
    VaiSu(u"[vecchie]"_s);
    Digita(u"v"_s);
    QCOMPARE(Corrente(), u"verdi"_s);
    QTest::qWait(QApplication::keyboardInputInterval() + 50);
    Digita(u"rossi 1"_s);
    QCOMPARE(Corrente(), u"rossi 10"_s);
    QTest::keyClick(F.get(), Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(QApplication::focusWidget(), Testo());
}

/// The sign of what has no room is drawn in the colours of the desktop.
void TestFrmTrovaParcella::segnoDellaBarra()
{
    Apri();
    const auto* Altri = F->findChild<QToolButton*>(u"qt_toolbar_ext_button"_s);
    QCOMPARE(Altri->icon().pixmap(16).toImage(), aspetto::Icona(u"annodopo"_s).pixmap(16).toImage());
}

void TestFrmTrovaParcella::escChiude()
{
    Apri();
    Premi(Qt::Key_Escape);
    QVERIFY(!F->isVisible());
    QVERIFY(AperteDaQui.isEmpty());
}

void TestFrmTrovaParcella::ricordaIlPosto()
{
    ProvaPosto(u"frmTrovaParcella"_s, [this] {
        Apri();
        return F.get();
    });
}

void TestFrmTrovaParcella::ricordaLeLarghezze()
{
    const QString Chiave = u"Disposizione_tdbParcelle"_s;
    SalvaImpostazione(Chiave, {});
    Apri();
    F->resize(F->size() + QSize(60, 0));
    F->close();
    QVERIFY2(Impostazione(Chiave).isEmpty(), "nobody has moved a column");
    Apri();
    QHeaderView* Testata = Lista()->Vista()->horizontalHeader();
    const int Prima = Testata->sectionSize(TrovaCliente);
    const QPoint Orlo(Testata->sectionViewportPosition(TrovaCliente) + Prima - 1, Testata->height() / 2);
    TrascinaCon(Testata->viewport(), Orlo, Orlo + QPoint(25, 0));
    QCOMPARE(Testata->sectionSize(TrovaCliente), Prima + 25);
    Doppio(u"verdi"_s);  // which hides it
    QVERIFY(!F->isVisible());
    F = std::make_unique<frmTrovaParcella>();
    Apri();
    QCOMPARE(Lista()->Vista()->columnWidth(TrovaCliente), Prima + 25);
    SalvaImpostazione(Chiave, {});
}

#include "TestFrmTrovaParcella.moc"
