// The finder on the real form: keys, mouse, files.
#include "feenote/windows/tavolo.h"

#include "feenote/finder/finder_prova.h"
#include "feenote/finder/windows/frmTrovaParcella.h"
#include "platform/system/file.h"

#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <QToolTip>

#include <memory>

using namespace Qt::StringLiterals;

class TestFrmTrovaParcella : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

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
    void dentroEFuori();
    void ilTestoNellAltraCartella();
    void oltreLaRadice();
    void lePreferenzeDelleCartelle();
    void ilPercorsoScritto();
    void ilPercorsoCheManca();
    void siSfoglia();
    void leSottocartelle();
    void laTendinaCambiaCartella();
    void siOrdina();
    void ordinataDaTastiera();
    void lOrdineMentreArrivano();
    void lOrdineFinoAllaChiusura();
    void siInterrompe();
    void laCartellaChiusaLasciaLeRighe();
    void laPrimaCartellaCheManca();
    void siCancella();
    void ilModelloProtetto();
    void cancellataMentreEAperta();
    void rinominataMentreEAperta();
    void sparitaTraElencoEClic();
    void siRinfresca_data();
    void siRinfresca();
    void dopoIlSalvataggio();
    void nascostaNonSiRinfresca();
    void laNotaApertaSiVede();
    void leLettere();
    void escChiude();

private:
    /// Waits for the end of the walk.
    void Finita()
    {
        QTRY_VERIFY(!F->InRicerca());
        Respiro();
    }
    /// What a window manager does with a window that comes up.
    void Davanti()
    {
        QApplication::setActiveWindow(F.get());
        QVERIFY(QTest::qWaitForWindowActive(F.get()));
    }
    void Apri(int Quale = 0, const QString& Cartella = {})
    {
        (void)F->OpenParcMod(Quale, Cartella, 0, {});
        Davanti();
        Finita();
    }
    Griglia* Lista() const { return Controllo<Griglia>(F.get(), "tdbParcelle"); }
    QLineEdit* Testo() const { return Controllo<QLineEdit>(F.get(), "txtDesPar"); }
    QLineEdit* Percorso() const { return Controllo<QLineEdit>(F.get(), "txtSearchPath"); }
    QString Stato() const { return Controllo<QLabel>(F.get(), "panRicerca")->text(); }
    QString Mostrate() const { return Controllo<QLabel>(F.get(), "panMostrate")->text(); }
    QStringList Nomi() const
    {
        QStringList Tutti;
        for (int Riga = 0; Riga < Lista()->Righe(); ++Riga)
            Tutti += Cella(Riga, TrovaNome);
        return Tutti;
    }
    QString Cella(int Riga, int Colonna) const
    {
        return Lista()->Vista()->model()->index(Riga, Colonna).data().toString();
    }
    int RigaDi(const QString& Nome) const { return int(Nomi().indexOf(Nome)); }
    QString Corrente() const
    {
        const auto Riga = Lista()->RigaCorrente();
        return Riga ? Cella(*Riga, TrovaNome) : QString();
    }
    void Doppio(const QString& Nome)
    {
        QVERIFY2(RigaDi(Nome) >= 0, qPrintable(Nome));
        Lista()->ImpostaRigaCorrente(RigaDi(Nome));
        DoppioClic(Lista(), RigaDi(Nome));
        if (F->isVisible())
            Finita();
    }
    void VaiSu(const QString& Nome)
    {
        QVERIFY2(RigaDi(Nome) >= 0, qPrintable(Nome));
        Lista()->setFocus();
        Lista()->ImpostaRigaCorrente(RigaDi(Nome));
    }
    void ClicTitolo(int Colonna)
    {
        QHeaderView* Testata = Lista()->Vista()->horizontalHeader();
        const QPoint Dove(Testata->sectionViewportPosition(Colonna) + 20, Testata->height() / 2);
        QTest::mouseClick(Testata->viewport(), Qt::LeftButton, Qt::NoModifier, Dove);
    }
    QRadioButton* Opzione(int Quale) const
    {
        return Controllo<QRadioButton>(F.get(), qPrintable(u"optFolder_%1"_s.arg(Quale)));
    }

    std::unique_ptr<Tavolo> T;
    std::unique_ptr<frmTrovaParcella> F;
    QString Note;
    QStringList AperteDaQui;
};
PROVA(TestFrmTrovaParcella);

void TestFrmTrovaParcella::init()
{
    T = std::make_unique<Tavolo>();
    Note = T->Ufficio.File(u"note/"_s);
    sessione::ParcellePath = Note;
    SalvaNota(Note + u"rossi 10.mdb"_s, u"Rossi Mario"_s, u"Bianchi"_s);
    QDir().mkpath(Note + u"vecchie"_s);
    for (const auto& [Nome, Da] : {std::pair(u"rossi 9.mdb"_s, 0), std::pair(u"vecchie/neri.mdb"_s, 0)})
        QVERIFY(QFile::copy(Note + u"rossi 10.mdb"_s, Note + Nome));
    SalvaNota(Note + u"verdi.mdb"_s, u"Perché Anna"_s);
    AperteDaQui.clear();
    Aperture.ApriParcella = [this](const QString& File, int Socio, const QString& ID) {
        AperteDaQui += File;
        ApriParcella(File, Socio, ID);
    };
    F = std::make_unique<frmTrovaParcella>();
    Aperture.RinfrescaTrova = [this] { F->RinfrescaTrova(); };
}

void TestFrmTrovaParcella::cleanup()
{
    F.reset();
    T.reset();
}

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
                                  u"Dimensione"_s, u"Nella cartella"_s}));
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

void TestFrmTrovaParcella::dentroEFuori()
{
    QDir().mkpath(Note + u"vecchie/piu"_s);
    Apri();
    Doppio(u"[vecchie]"_s);
    QCOMPARE(Nomi(), (QStringList{u"[Torna alla cartella superiore]"_s, u"[piu]"_s, u"neri"_s}));
    QVERIFY(Opzione(2)->isChecked());
    QCOMPARE(Percorso()->text(), Note + u"vecchie/"_s);
    QCOMPARE(F->windowTitle(), u"Apri da parcelle salvate"_s);
    VaiSu(u"[piu]"_s);
    Premi(Qt::Key_Return);
    Finita();
    QCOMPARE(Nomi(), QStringList{u"[Torna alla cartella superiore]"_s});
    QCOMPARE(Stato(), u"Non è stata trovata alcuna parcella che soddisfi i criteri impostati"_s);
    Premi(Qt::Key_Backspace);
    Finita();
    QCOMPARE(Corrente(), u"[piu]"_s);
    Doppio(u"[Torna alla cartella superiore]"_s);
    QCOMPARE(Percorso()->text(), Note);
    QCOMPARE(Nomi().first(), u"[vecchie]"_s);
    QCOMPARE(Corrente(), u"[vecchie]"_s);
}

void TestFrmTrovaParcella::ilTestoNellAltraCartella()
{
    SalvaNota(Note + u"vecchie/gialli.mdb"_s, u"Ubaldi"_s);
    Apri();
    Scrivi(Testo(), u"rossi"_s);
    Premi(Qt::Key_Return);
    Finita();
    Doppio(u"[vecchie]"_s);
    QCOMPARE(Nomi(), QStringList{u"[Torna alla cartella superiore]"_s});
    // Typed and not asked for: it leaves rows by their client too, and keeps none from being read.
    Scrivi(Testo(), u"ubaldi"_s);
    Doppio(u"[Torna alla cartella superiore]"_s);
    QCOMPARE(Nomi(), QStringList{u"[vecchie]"_s});
    Doppio(u"[vecchie]"_s);
    QCOMPARE(Nomi(), (QStringList{u"[Torna alla cartella superiore]"_s, u"gialli"_s}));
    QCOMPARE(Mostrate(), u"Mostrate 1 di 2"_s);
}

void TestFrmTrovaParcella::oltreLaRadice()
{
    Apri();
    VaiSu(u"verdi"_s);
    Premi(Qt::Key_Backspace);
    Finita();
    QCOMPARE(Percorso()->text(), T->Ufficio.Cartella());
    QCOMPARE(Corrente(), u"[note]"_s);
    QVERIFY2(!Nomi().contains(u"[Torna alla cartella superiore]"_s), "here is where the search begins now");
    Doppio(u"[note]"_s);
    QCOMPARE(Nomi().first(), u"[Torna alla cartella superiore]"_s);
}

void TestFrmTrovaParcella::lePreferenzeDelleCartelle()
{
    SalvaNota(sessione::ModelliPath + u"tipo.mdb"_s);
    Apri();
    Clic(Opzione(1));
    Finita();
    QCOMPARE(Nomi(), QStringList{u"tipo"_s});
    QCOMPARE(F->windowTitle(), u"Apri da modelli"_s);
    Clic(Opzione(2));
    Finita();
    QCOMPARE(Percorso()->text(), sessione::ModelliPath);
    QCOMPARE(F->windowTitle(), u"Apri da modelli"_s);
    QCOMPARE(QApplication::focusWidget(), Percorso());
    Clic(Opzione(0));
    Finita();
    QCOMPARE(Nomi().size(), 4);
}

void TestFrmTrovaParcella::ilPercorsoScritto()
{
    Apri();
    Clic(Opzione(2));
    Finita();
    Scrivi(Percorso(), Note + u"vecchie"_s);
    Premi(Qt::Key_Return);
    Finita();
    QCOMPARE(Nomi(), QStringList{u"neri"_s});
}

void TestFrmTrovaParcella::ilPercorsoCheManca()
{
    Apri();
    Clic(Opzione(2));
    Finita();
    Scrivi(Percorso(), u"/manca/qui"_s);
    T->Voce.Attendi(u"Errore: Percorso non trovato (76)"_s, vbOK, u"Errore:"_s);
    Premi(Qt::Key_Return);
    Finita();
    QCOMPARE(Nomi().size(), 4);
    QCOMPARE(Percorso()->text(), u"/manca/qui/"_s);
    VaiSu(u"[vecchie]"_s);
    Premi(Qt::Key_Return);
    Finita();
    QCOMPARE(Percorso()->text(), Note + u"vecchie/"_s);
}

void TestFrmTrovaParcella::siSfoglia()
{
    QStringList Chiesto;
    QString Risposta;
    Aperture.ScegliCartella = [&](const QString& Titolo, const QString& Inizio) {
        Chiesto << Titolo << Inizio;
        return Risposta;
    };
    Apri();
    Clic(Controllo<QPushButton>(F.get(), "cmdSfoglia"));
    Finita();
    QCOMPARE(Chiesto, (QStringList{u"Cerca le parcelle nella cartella"_s, Note}));
    QVERIFY2(Opzione(0)->isChecked(), "cancelled: nothing changes");
    Risposta = Note + u"vecchie/"_s;
    Clic(Controllo<QPushButton>(F.get(), "cmdSfoglia"));
    Finita();
    QVERIFY(Opzione(2)->isChecked());
    QCOMPARE(Nomi(), QStringList{u"neri"_s});
}

void TestFrmTrovaParcella::leSottocartelle()
{
    Apri();
    Clic(Controllo<QCheckBox>(F.get(), "chkSubDir"));
    Finita();
    QCOMPARE(Nomi(), (QStringList{u"neri"_s, u"rossi 9"_s, u"rossi 10"_s, u"verdi"_s, u"[vecchie]"_s}));
    QVERIFY2(Stato().startsWith(u"Trovati 4 archivi in 2 cartelle"_s), qPrintable(Stato()));
    QCOMPARE(Cella(0, TrovaCartella), Note + u"vecchie/"_s);
}

void TestFrmTrovaParcella::laTendinaCambiaCartella()
{
    SalvaNota(sessione::ModelliPath + u"tipo.mdb"_s);
    Apri();
    const QMenu* Tendina = Controllo<QToolButton>(F.get(), "barTrova_open")->defaultAction()->menu();
    QVERIFY(Tendina);
    QCOMPARE(Tendina->actions().size(), 2);
    Tendina->actions().at(1)->trigger();
    Finita();
    QCOMPARE(Nomi(), QStringList{u"tipo"_s});
    QVERIFY(Opzione(1)->isChecked());
    Tendina->actions().at(0)->trigger();
    Finita();
    QCOMPARE(F->windowTitle(), u"Apri da parcelle salvate"_s);
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

void TestFrmTrovaParcella::laCartellaChiusaLasciaLeRighe()
{
    Apri();
    QVERIFY(QFile::setPermissions(Note + u"vecchie"_s, {}));
    T->Voce.Attendi(u"Errore: Errore di accesso al percorso o al file (75)"_s, vbOK, u"Errore:"_s);
    Doppio(u"[vecchie]"_s);
    QVERIFY(
        QFile::setPermissions(Note + u"vecchie"_s, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QCOMPARE(Nomi().size(), 4);
    QVERIFY(Opzione(0)->isChecked());
    QCOMPARE(Percorso()->text(), Note);
    QVERIFY2(Stato().startsWith(u"Trovati 3 archivi"_s), qPrintable(Stato()));
    // The folder itself goes: one message, rows kept.
    QVERIFY(QDir().rename(Note, T->Ufficio.File(u"altrove"_s)));
    T->Voce.Attendi(u"Errore: Percorso non trovato (76)"_s, vbOK, u"Errore:"_s);
    Premi(Qt::Key_F5);
    Finita();
    QCOMPARE(Nomi().size(), 4);
}

void TestFrmTrovaParcella::laPrimaCartellaCheManca()
{
    sessione::ParcellePath = T->Ufficio.File(u"non ancora/"_s);
    T->Voce.Attendi(u"Errore: Percorso non trovato (76)"_s, vbOK, u"Errore:"_s);
    Apri();
    QVERIFY(F->isVisible());
    QCOMPARE(Nomi(), QStringList());
    QCOMPARE(Percorso()->text(), sessione::ParcellePath);
    SalvaNota(sessione::ParcellePath + u"prima.mdb"_s);
    Premi(Qt::Key_F5);
    Finita();
    QCOMPARE(Nomi(), QStringList{u"prima"_s});
}

void TestFrmTrovaParcella::siCancella()
{
    Apri();
    VaiSu(u"rossi 9"_s);
    T->Voce.Attendi(u"Confermi la cancellazione della parcella: 'rossi 9'?"_s, vbYes, u"Domanda:"_s);
    T->Voce.Attendi(u"La parcella è stata eliminata!"_s, vbOK, u"Messaggio:"_s);
    Premi(Qt::Key_Delete);
    QVERIFY(!EsisteFile(Note + u"rossi 9.mdb"_s));
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"rossi 10"_s, u"verdi"_s}));
    QCOMPARE(Corrente(), u"rossi 10"_s);
    QVERIFY2(Stato().startsWith(u"Trovati 2 archivi"_s), qPrintable(Stato()));
    VaiSu(u"[vecchie]"_s);
    Premi(Qt::Key_Delete);  // a folder is nothing to be deleted here
    QVERIFY(EsisteCartella(Note + u"vecchie"_s));
    QVERIFY(!Controllo<QToolButton>(F.get(), "barTrova_delete")->isEnabled());
    VaiSu(u"verdi"_s);
    T->Voce.Attendi(u"Confermi la cancellazione della parcella: 'verdi'?"_s, vbNo, u"Domanda:"_s);
    Clic(Controllo<QToolButton>(F.get(), "barTrova_delete"));
    QVERIFY(EsisteFile(Note + u"verdi.mdb"_s));
}

void TestFrmTrovaParcella::ilModelloProtetto()
{
    EseguiSu(Note + u"verdi.mdb"_s, u"UPDATE ParcellaParam SET Psw=?"_s, {CodificaPsw(u"chiave"_s)});
    ImpostaSolaLettura(Note + u"verdi.mdb"_s, true);
    Apri();
    VaiSu(u"verdi"_s);
    QVERIFY(Lista()->Suggerimento(RigaDi(u"verdi"_s)).contains(u"modello"));
    T->Voce.Attendi(u"La parcella è un modello: procedo con l'operazione?"_s, vbYes, u"Domanda:"_s);
    T->Voce.AttendiImmissione(u"Specificare la password"_s, u"sbagli"_s);
    T->Voce.Attendi(u"La password immessa non è corretta!\nL'operazione non è stata effettuata."_s);
    Premi(Qt::Key_Delete);
    QVERIFY(SolaLettura(Note + u"verdi.mdb"_s));
    T->Voce.Attendi(u"La parcella è un modello: procedo con l'operazione?"_s, vbYes, u"Domanda:"_s);
    T->Voce.AttendiImmissione(u"Specificare la password"_s, u"chiave"_s);
    T->Voce.Attendi(u"Confermi la cancellazione della parcella: 'verdi'?"_s, vbYes, u"Domanda:"_s);
    T->Voce.Attendi(u"La parcella è stata eliminata!"_s);
    Premi(Qt::Key_Delete);
    QVERIFY(!EsisteFile(Note + u"verdi.mdb"_s));
}

void TestFrmTrovaParcella::cancellataMentreEAperta()
{
    frmParcelle* Finestra = T->Apri(Note + u"verdi.mdb"_s);
    QVERIFY(Finestra);
    Apri();
    VaiSu(u"verdi"_s);
    T->Voce.Attendi(u"Confermi la cancellazione della parcella: 'verdi'?"_s, vbYes);
    T->Voce.Attendi(u"La parcella è stata eliminata!"_s);
    Premi(Qt::Key_Delete);
    QVERIFY(Finestra->isVisible());
    QCOMPARE(Finestra->Nota.Percorso, QString());
    QVERIFY2(InfoParcelle[1].Modificata, "what is on screen is asked about before it goes");
    QCOMPARE(Finestra->Nota.txtCliente.Testo, u"Perché Anna"_s);
}

void TestFrmTrovaParcella::rinominataMentreEAperta()
{
    frmParcelle* Finestra = T->Apri(Note + u"verdi.mdb"_s);
    frmParcelle* Altra = T->Apri(Note + u"rossi 10.mdb"_s, 2);
    QVERIFY(Finestra && Altra);
    Altra->Nota.txtPathParcMult = Note + u"verdi.mdb"_s;
    Altra->Nota.txtParcMultipla = u"verdi"_s;
    Apri();
    VaiSu(u"verdi"_s);
    T->Voce.AttendiImmissione(u"Immettere il nuovo nome da assegnare alla parcella:"_s, u"Gialli"_s);
    T->Voce.Attendi(u"La parcella è stata rinominata!"_s, vbOK, u"Messaggio:"_s);
    Premi(Qt::Key_F2);
    QVERIFY(EsisteFile(Note + u"Gialli.mdb"_s) && !EsisteFile(Note + u"verdi.mdb"_s));
    QCOMPARE(Corrente(), u"Gialli"_s);
    QCOMPARE(Finestra->Nota.Percorso, Note + u"Gialli.mdb"_s);
    QCOMPARE(Finestra->windowTitle(), u"gialli"_s);
    QCOMPARE(InfoParcelle[1].Nome, u"gialli"_s);
    QVERIFY2(!InfoParcelle[1].Modificata, "its contents are what they were");
    QCOMPARE(Altra->Nota.txtPathParcMult, Note + u"Gialli.mdb"_s);
    QCOMPARE(Altra->Nota.txtParcMultipla, u"Gialli"_s);
    // A path that is only remembered associates nothing.
    Altra->Nota.txtParcMultipla.clear();
    T->Voce.AttendiImmissione(u"Immettere il nuovo nome da assegnare alla parcella:"_s, u"Blu"_s);
    T->Voce.Attendi(u"La parcella è stata rinominata!"_s, vbOK, u"Messaggio:"_s);
    Premi(Qt::Key_F2);
    QCOMPARE(Altra->Nota.txtPathParcMult, Note + u"Blu.mdb"_s);
    QVERIFY(!Altra->Nota.Multipla());
    QCOMPARE(Altra->windowTitle(), u"rossi 10"_s);
}

void TestFrmTrovaParcella::sparitaTraElencoEClic()
{
    Apri();
    QVERIFY(QFile::remove(Note + u"verdi.mdb"_s));
    T->Voce.Attendi(u"Errore: File non trovato (53)"_s, vbOK, u"Errore:"_s);
    Doppio(u"verdi"_s);
    QVERIFY(F->isVisible() && AperteDaQui.isEmpty());
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"rossi 9"_s, u"rossi 10"_s}));
    QVERIFY(QFile::remove(Note + u"rossi 9.mdb"_s));
    VaiSu(u"rossi 9"_s);
    T->Voce.Attendi(u"Errore: File non trovato (53)"_s, vbOK, u"Errore:"_s);
    Premi(Qt::Key_Delete);
    Finita();
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"rossi 10"_s}));
}

void TestFrmTrovaParcella::siRinfresca_data()
{
    QTest::addColumn<bool>("Tasto");
    QTest::newRow("F5") << true;
    QTest::newRow("a note has closed") << false;
}

void TestFrmTrovaParcella::siRinfresca()
{
    QFETCH(bool, Tasto);
    Apri();
    VaiSu(u"rossi 10"_s);
    QVERIFY(QFile::copy(Note + u"verdi.mdb"_s, Note + u"alfa.mdb"_s));
    if (Tasto)
        Premi(Qt::Key_F5);
    else
        F->RinfrescaTrova();
    QCOMPARE(Nomi().size(), 4);  // the rows of before stay meanwhile
    Finita();
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"alfa"_s, u"rossi 9"_s, u"rossi 10"_s, u"verdi"_s}));
    QCOMPARE(Corrente(), u"rossi 10"_s);
}

void TestFrmTrovaParcella::dopoIlSalvataggio()
{
    frmParcelle* Finestra = T->Apri(Note + u"verdi.mdb"_s);
    QVERIFY(Finestra);
    Scrivi(Controllo<QLineEdit>(Finestra, "txtCliente"), u"Blu Carla"_s);
    Apri();
    QCOMPARE(Cella(RigaDi(u"verdi"_s), TrovaCliente), u"Perché Anna"_s);
    T->Voce.AttendiSalva(Note + u"verdi.mdb"_s);
    T->Voce.Attendi(u"La parcella verdi.mdb è stata salvata correttamente!"_s);
    QVERIFY(Finestra->SalvaParcella(false));
    Finita();
    QCOMPARE(Cella(RigaDi(u"verdi"_s), TrovaCliente), u"Blu Carla"_s);
    QVERIFY(QFile::copy(Note + u"verdi.mdb"_s, Note + u"zeta.mdb"_s));
    QVERIFY(ChiudiParcella(1));
    Finita();
    QCOMPARE(Nomi().last(), u"zeta"_s);
}

void TestFrmTrovaParcella::nascostaNonSiRinfresca()
{
    Apri();
    F->close();
    F->RinfrescaTrova();
    QVERIFY(!F->InRicerca());
}

void TestFrmTrovaParcella::laNotaApertaSiVede()
{
    QVERIFY(T->Apri(Note + u"verdi.mdb"_s));
    Apri();
    QVERIFY(Lista()->Suggerimento(RigaDi(u"verdi"_s)).contains(u"È già aperta"));
    QVERIFY(!Lista()->Suggerimento(RigaDi(u"rossi 9"_s)).contains(u"È già aperta"));
    const auto Immagine = [this](const QString& Nome) {
        return Lista()
            ->Vista()
            ->model()
            ->index(RigaDi(Nome), TrovaNome)
            .data(Qt::DecorationRole)
            .value<QIcon>()
            .pixmap(16)
            .toImage();
    };
    QVERIFY(Immagine(u"verdi"_s) != Immagine(u"rossi 9"_s));
    QCOMPARE(Immagine(u"rossi 10"_s), Immagine(u"rossi 9"_s));
    Doppio(u"verdi"_s);
    QCOMPARE(AperteDaQui, QStringList{Note + u"verdi.mdb"_s});
    QVERIFY2(Parcelle(2) && Parcelle(2)->isVisible(), "the double click opens it once more");
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

void TestFrmTrovaParcella::escChiude()
{
    Apri();
    Premi(Qt::Key_Escape);
    QVERIFY(!F->isVisible());
    QVERIFY(AperteDaQui.isEmpty());
}

#include "TestFrmTrovaParcella.moc"
