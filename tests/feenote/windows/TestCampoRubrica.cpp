// A party's box: the mark of its link, the names offered while one is typed, the keys to the address book.
#include "tavolo.h"

#include "addressbook/richiesta.h"
#include "core/aperture.h"
#include "core/sessione.h"

#include <QContextMenuEvent>
#include <QListWidget>
#include <QMenu>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

const QString Collegato =
    u"Collegato all'archivio: Rossi D'Àvila\nPer scollegarlo c'è il menu del pulsante di modifica."_s;

}  // namespace

class TestCampoRubrica : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void dallaTerzaLettera();
    void laListaNonScegliePerConto();
    void laSceltaDaTastiera();
    void laSceltaColMouse();
    void laControparteHaISuoi();
    void escChiudeSoloLaLista();
    void laListaSeNeVa();
    void ilClicAltroveVaAltrove();
    void leggeFraUnTastoEUnAltro();
    void iTastiArrivanoPrimaDeiNomi();
    void laRigaSparitaSiDice();
    void senzaArchivioSiScrive();
    void iTastiDellaRubrica_data();
    void iTastiDellaRubrica();
    void ilSegnoDiceIlNome();
    void ilSegnoScollega();
    void ilSegnoUgualeNonScollega();
    void ilMenuScollega();
    void ilSegnoDiChiNonSiTrova();
    void ilSegnoDopoLaRilettura();

private:
    /// A note with the box of the client in use, and this many clients in the archive beside Rossi, Verdi.
    void Apri();
    [[nodiscard]] QLineEdit* Cliente() const { return Controllo<QLineEdit>(F, "txtCliente"); }
    [[nodiscard]] static QListWidget* Lista(const QLineEdit* Box)
    {
        return Box->findChild<QListWidget*>(u"lstNomi_"_s + Box->objectName());
    }
    [[nodiscard]] QListWidget* Lista() const { return Lista(Cliente()); }
    [[nodiscard]] QStringList Offerti() const;
    void ClicSegno() const;
    [[nodiscard]] QAction* Segno() const { return F->findChild<QAction*>(u"segno_txtCliente"_s); }
    void DigitaNome(const QString& Testo) const;

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    std::vector<RichiestaRubrica> Chieste;
    int Rossi = 0;
    int Rossini = 0;
};
PROVA(TestCampoRubrica);

void TestCampoRubrica::init()
{
    T = std::make_unique<Tavolo>();
    Chieste.clear();
    Rossini = T->Ufficio.AggiungiCliente(u"Rossini Gioachino"_s);
    Rossi = T->Ufficio.AggiungiCliente({{u"Nominativo"_s, u"Rossi D'Àvila"_s}, {u"Citta"_s, u"Lucca"_s}});
    T->Ufficio.AggiungiCliente(u"Verdi Anna"_s);
    T->Ufficio.AggiungiControparte(u"Rossetti Spa"_s);
}

void TestCampoRubrica::cleanup()
{
    T.reset();
}

void TestCampoRubrica::Apri()
{
    Aperture.RubricaParcella = [this](const RichiestaRubrica& Chiesta) { Chieste.push_back(Chiesta); };
    F = T->Apri();
    QVERIFY(F);
    Cliente()->setFocus();
}

QStringList TestCampoRubrica::Offerti() const
{
    QStringList Testi;
    for (int i = 0; Lista()->isVisible() && i < Lista()->count(); ++i)
        Testi += Lista()->item(i)->text();
    return Testi;
}

void TestCampoRubrica::DigitaNome(const QString& Testo) const
{
    Digita(Testo);
    for (int i = 0; i < 20 && !Lista()->isVisible(); ++i)
        Respiro();
}

void TestCampoRubrica::dallaTerzaLettera()
{
    Apri();
    DigitaNome(u"  ro"_s);
    QCOMPARE(Offerti(), QStringList());
    DigitaNome(u"s"_s);
    QCOMPARE(Offerti(), (QStringList{u"Rossi D'Àvila – Lucca"_s, u"Rossini Gioachino"_s}));
    DigitaNome(u"sin"_s);
    QCOMPARE(Offerti(), QStringList{u"Rossini Gioachino"_s});
    Premi(Qt::Key_Backspace);
    Premi(Qt::Key_Backspace);
    Premi(Qt::Key_Backspace);
    QCOMPARE(Offerti().size(), 2);
    Premi(Qt::Key_Backspace);
    QCOMPARE(Offerti(), QStringList());
    QCOMPARE(Cliente()->text(), u"  ro"_s);
}

void TestCampoRubrica::laListaNonScegliePerConto()
{
    Apri();
    DigitaNome(u"rossini gioachino"_s);
    QCOMPARE(Offerti(), QStringList{u"Rossini Gioachino"_s});
    QCOMPARE(Lista()->currentRow(), -1);
    // Enter goes on to the next field, as it does without a list.
    Premi(Qt::Key_Return);
    QVERIFY(!Lista()->isVisible());
    QVERIFY(!Cliente()->hasFocus());
    QCOMPARE(F->Nota.IDCli, 0);
    QCOMPARE(F->Nota.txtCliente.Testo, u"rossini gioachino"_s);
    // Nor does Tab take a row that the arrows have marked.
    Cliente()->setFocus();
    DigitaNome(u" "_s);
    QVERIFY(Lista()->isVisible());
    Premi(Qt::Key_Down);
    QCOMPARE(Lista()->currentRow(), 0);
    Premi(Qt::Key_Tab);
    QVERIFY(!Lista()->isVisible());
    QVERIFY(!Cliente()->hasFocus());
    QCOMPARE(F->Nota.IDCli, 0);
}

void TestCampoRubrica::laSceltaDaTastiera()
{
    Apri();
    DigitaNome(u"ros"_s);
    Premi(Qt::Key_Up);
    QCOMPARE(Lista()->currentRow(), -1);
    Premi(Qt::Key_Down);
    Premi(Qt::Key_Down);
    Premi(Qt::Key_Down);
    QCOMPARE(Lista()->currentRow(), 1);
    QCOMPARE(Cliente()->text(), u"ros"_s);
    Premi(Qt::Key_Up);
    Premi(Qt::Key_Return);
    Respiro();
    QVERIFY(!Lista()->isVisible());
    QCOMPARE(F->Nota.IDCli, Rossi);
    QCOMPARE(Cliente()->text(), u"Rossi D'Àvila"_s);
    QVERIFY(Cliente()->hasFocus());
    QVERIFY(F->Nota.Modificata);
    QVERIFY(Controllo(F, "cmdModCliCon_0")->isEnabled());
    // Typing goes on behind the name; the other parties are one Enter away, whatever buttons stand between.
    DigitaNome(u" e altri"_s);
    QCOMPARE(Cliente()->text(), u"Rossi D'Àvila e altri"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(NomeFuoco(), u"txtControp"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(NomeFuoco(), u"txtOggetto"_s);
}

void TestCampoRubrica::laSceltaColMouse()
{
    Apri();
    DigitaNome(u"anna verdi"_s);
    QListWidget* Nomi = Lista();
    QCOMPARE(Nomi->count(), 1);
    QTest::mouseClick(Nomi->viewport(), Qt::LeftButton, Qt::NoModifier,
                      Nomi->visualItemRect(Nomi->item(0)).center());
    Respiro();
    QCOMPARE(Cliente()->text(), u"Verdi Anna"_s);
    QVERIFY(F->Nota.IDCli > 0);
    QVERIFY(!Nomi->isVisible());
}

void TestCampoRubrica::laControparteHaISuoi()
{
    Apri();
    auto* Controp = Controllo<QLineEdit>(F, "txtControp");
    Controp->setFocus();
    DigitaNome(u"ros"_s);
    for (int i = 0; i < 20 && !Lista(Controp)->isVisible(); ++i)
        Respiro();
    QCOMPARE(Lista(Controp)->count(), 1);
    QCOMPARE(Lista(Controp)->item(0)->text(), u"Rossetti Spa"_s);
    Premi(Qt::Key_Down);
    Premi(Qt::Key_Enter);
    Respiro();
    QVERIFY(F->Nota.IDCon > 0);
    QCOMPARE(F->Nota.txtControp.Testo, u"Rossetti Spa"_s);
    QCOMPARE(F->Nota.IDCli, 0);
    // The subject is nobody's name.
    QCOMPARE(F->findChildren<QListWidget*>(QRegularExpression(u"^lstNomi_"_s)).size(), 2);
}

void TestCampoRubrica::escChiudeSoloLaLista()
{
    Apri();
    DigitaNome(u"ros"_s);
    QVERIFY(Lista()->isVisible());
    Premi(Qt::Key_Escape);
    QVERIFY(!Lista()->isVisible());
    QVERIFY(F->isVisible());
    QCOMPARE(Cliente()->text(), u"ros"_s);
    DigitaNome(u"s"_s);
    QVERIFY(Lista()->isVisible());
}

void TestCampoRubrica::laListaSeNeVa()
{
    Apri();
    DigitaNome(u"ros"_s);
    QVERIFY(Lista()->isVisible());
    F->move(F->pos() + QPoint(20, 20));
    Respiro();
    QVERIFY2(!Lista()->isVisible(), "the box has gone from under it");
    DigitaNome(u"s"_s);
    QVERIFY(Lista()->isVisible());
    Controllo(F, "txtOggetto")->setFocus();
    QVERIFY(!Lista()->isVisible());
    // What code writes offers nothing.
    Cliente()->setFocus();
    F->oRubrica_SelDone(u"cli"_s, {Rossini, u"Rossini Gioachino"_s});
    Respiro();
    QVERIFY(!Lista()->isVisible());
}

/// A list that nobody has asked for takes no click away from what lies beside it.
void TestCampoRubrica::ilClicAltroveVaAltrove()
{
    Apri();
    DigitaNome(u"ros"_s);
    QVERIFY(Lista()->isVisible());
    QCOMPARE(QApplication::activePopupWidget(), nullptr);
    Clic(Controllo(F, "cmdVisCliCon_0"));
    QCOMPARE(Chieste.size(), std::size_t(1));
    Cliente()->setFocus();
    DigitaNome(u"s"_s);
    QTest::mouseClick(Controllo(F, "txtOggetto"), Qt::LeftButton);
    QVERIFY(!Lista()->isVisible());
    QCOMPARE(NomeFuoco(), u"txtOggetto"_s);
}

void TestCampoRubrica::leggeFraUnTastoEUnAltro()
{
    constexpr int Altri = 12'000;
    {
        const Database Db = OpenDatabase(sessione::ArchivioCliCon);
        Transazione Insieme(Db);
        for (int i = 0; i < Altri; ++i)
            Db.Execute(u"INSERT INTO clienti (Nominativo) VALUES (?)"_s, {u"Cliente numero %1"_s.arg(i)});
        Insieme.Conferma();
    }
    Apri();
    Digita(u"ros"_s);
    QVERIFY2(!Lista()->isVisible(), "the names are still being read");
    Digita(u"sini"_s);
    QCOMPARE(Cliente()->text(), u"rossini"_s);
    QTRY_VERIFY(Lista()->isVisible());
    QCOMPARE(Offerti(), QStringList{u"Rossini Gioachino"_s});
}

void TestCampoRubrica::iTastiArrivanoPrimaDeiNomi()
{
    Apri();
    Digita(u"ros"_s);
    Controllo(F, "txtOggetto")->setFocus();
    for (int i = 0; i < 20; ++i)
        Respiro();
    QVERIFY2(!Lista()->isVisible(), "who has left the box is offered nothing");
}

void TestCampoRubrica::laRigaSparitaSiDice()
{
    Apri();
    DigitaNome(u"rossini"_s);
    EseguiSu(sessione::ArchivioCliCon, u"DELETE FROM clienti WHERE ID=?"_s, {Rossini});
    Premi(Qt::Key_Down);
    T->Voce.Attendi(u"Il nominativo scelto non è più nell'archivio!"_s, vbOK, u"Avvertenza:"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Nota.IDCli, 0);
    QCOMPARE(F->Nota.txtCliente.Testo, u"rossini"_s);
}

void TestCampoRubrica::senzaArchivioSiScrive()
{
    QVERIFY(QFile::remove(sessione::ArchivioCliCon));
    Apri();
    DigitaNome(u"rossini"_s);
    QVERIFY(!Lista()->isVisible());
    QCOMPARE(F->Nota.txtCliente.Testo, u"rossini"_s);
}

void TestCampoRubrica::iTastiDellaRubrica_data()
{
    QTest::addColumn<int>("Tasto");
    QTest::addColumn<int>("Con");
    QTest::addColumn<bool>("Legato");
    QTest::addColumn<QString>("MenuStart");
    const auto Riga = [](const char* Nome, Qt::Key Tasto, Qt::KeyboardModifier Con, bool Legato,
                         const char16_t* Menu) {
        QTest::newRow(Nome) << int(Tasto) << int(Con) << Legato << QString::fromUtf16(Menu);
    };
    Riga("F4", Qt::Key_F4, Qt::NoModifier, false, u"");
    Riga("F4 of a linked box", Qt::Key_F4, Qt::NoModifier, true, u"");
    Riga("Alt+Down", Qt::Key_Down, Qt::AltModifier, false, u"");
    Riga("Ctrl+Enter: a new card", Qt::Key_Return, Qt::ControlModifier, false, u"new");
    Riga("Ctrl+Enter: the card of the linked row", Qt::Key_Return, Qt::ControlModifier, true, u"edit");
    Riga("Ctrl+Enter of the keypad", Qt::Key_Enter, Qt::ControlModifier, true, u"edit");
}

void TestCampoRubrica::iTastiDellaRubrica()
{
    QFETCH(int, Tasto);
    QFETCH(int, Con);
    QFETCH(bool, Legato);
    QFETCH(QString, MenuStart);
    Apri();
    if (Legato)
        F->oRubrica_SelDone(u"cli"_s, {Rossi, u"Rossi D'Àvila"_s});
    Respiro();
    DigitaNome(u"ros"_s);  // the list plays no part
    Premi(Qt::Key(Tasto), Qt::KeyboardModifiers(Con));
    Respiro();
    QVERIFY(!Lista()->isVisible());
    QCOMPARE(Chieste.size(), std::size_t(1));
    QCOMPARE(Chieste[0].Parent, u"cli"_s);
    QCOMPARE(Chieste[0].MenuStart, MenuStart);
    QCOMPARE(Chieste[0].KeyStart, MenuStart == u"edit" ? u"ID=%1"_s.arg(Rossi) : QString());
    QCOMPARE(Chieste[0].ID, Legato ? Rossi : 0);
    auto* Controp = Controllo<QLineEdit>(F, "txtControp");
    Controp->setFocus();
    Premi(Qt::Key(Tasto), Qt::KeyboardModifiers(Con));
    Respiro();
    QCOMPARE(Chieste.back().Parent, u"con"_s);
}

void TestCampoRubrica::ilSegnoDiceIlNome()
{
    Apri();
    QVERIFY(!Segno()->isVisible());
    F->oRubrica_SelDone(u"cli"_s, {Rossi, u"Rossi D'Àvila"_s});
    QVERIFY(Segno()->isVisible());
    QCOMPARE(Segno()->toolTip(), Collegato);
    QCOMPARE(Cliente()->accessibleDescription(), Segno()->toolTip());
    const QImage Catena = Segno()->icon().pixmap(16, 16).toImage();
    Cliente()->selectAll();
    Digita(u"Neri Ugo"_s);
    QCOMPARE(F->Nota.IDCli, Rossi);
    QCOMPARE(Segno()->toolTip(),
             u"Collegato all'archivio: Rossi D'Àvila\nIl testo è diverso, ma alla riapertura tornerà il nome "
             u"dell'archivio.\nUn clic sul segno lo scollega."_s);
    QVERIFY(Segno()->icon().pixmap(16, 16).toImage() != Catena);
    Cliente()->selectAll();
    Digita(u"Rossi D'Àvila"_s);
    QCOMPARE(Segno()->toolTip(), Collegato);
    QVERIFY(Segno()->icon().pixmap(16, 16).toImage() == Catena);
    T->Voce.Attendi(u"Il cliente è stato dissociato dalla parcella!"_s, vbOK, u"Avvertenza:"_s);
    Scrivi(Cliente(), {});
    QVERIFY(!Segno()->isVisible());
    QVERIFY(!F->findChild<QAction*>(u"segno_txtControp"_s)->isVisible());
}

void TestCampoRubrica::ClicSegno() const
{
    for (QToolButton* Bottone : Cliente()->findChildren<QToolButton*>())
        if (Bottone->defaultAction() == Segno() && Bottone->isVisible())
            return QTest::mouseClick(Bottone, Qt::LeftButton);
    QFAIL("no mark");
}

/// A click beside the text's end does not cost the link.
void TestCampoRubrica::ilSegnoUgualeNonScollega()
{
    Apri();
    F->oRubrica_SelDone(u"cli"_s, {Rossi, u"Rossi D'Àvila"_s});
    F->SetModificata(false);
    ClicSegno();
    QCOMPARE(F->Nota.IDCli, Rossi);
    QVERIFY(Segno()->isVisible() && !F->Nota.Modificata);
}

void TestCampoRubrica::ilSegnoScollega()
{
    Apri();
    F->oRubrica_SelDone(u"cli"_s, {Rossi, u"Rossi D'Àvila"_s});
    Cliente()->setFocus();
    Cliente()->selectAll();
    Digita(u"Neri Ugo"_s);
    F->SetModificata(false);
    T->Voce.Attendi(u"Il cliente è stato dissociato dalla parcella!"_s, vbOK, u"Avvertenza:"_s);
    ClicSegno();
    QCOMPARE(F->Nota.IDCli, 0);
    QCOMPARE(F->Nota.txtCliente.Testo, u"Neri Ugo"_s);
    QCOMPARE(F->Nota.txtDatiStaCli.Testo, u"Neri Ugo"_s);
    QVERIFY(F->Nota.Modificata);
    QVERIFY(!Segno()->isVisible());
    QVERIFY(!Controllo(F, "cmdModCliCon_0")->isEnabled());
    // As text it is saved, and comes back.
    const QString File = T->Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, F->Nota);
    QCOMPARE(::Cliente(File), u"Neri Ugo"_s);
    QCOMPARE(Parametro(File, u"IDCli"_s).toInt(), 0);
}

void TestCampoRubrica::ilMenuScollega()
{
    Apri();
    const int ID = T->Ufficio.AggiungiControparte(u"Bianchi Srl"_s);
    F->oRubrica_SelDone(u"con"_s, {ID, u"Bianchi Srl"_s});
    auto* Modifica = Controllo<QToolButton>(F, "cmdModCliCon_1");
    QVERIFY(Modifica->menu());
    const QList<QAction*> Voci = Modifica->menu()->actions();
    QCOMPARE(Voci.size(), 2);
    QCOMPARE(Voci[0]->text(), u"Modifica la controparte collegata"_s);
    QCOMPARE(Voci[1]->text(), u"Scollega dall'archivio"_s);
    // The right button of the mouse opens them too.
    bool Aperto = false;
    QTimer::singleShot(0, Modifica, [&] {
        Aperto = Modifica->menu()->isVisible();
        Modifica->menu()->close();
    });
    const QPoint Centro = Modifica->rect().center();
    QContextMenuEvent Tasto(QContextMenuEvent::Mouse, Centro, Modifica->mapToGlobal(Centro));
    QApplication::sendEvent(Modifica, &Tasto);
    QVERIFY(Aperto);
    Voci[0]->trigger();
    QCOMPARE(Chieste.back().MenuStart, u"edit"_s);
    QCOMPARE(Chieste.back().KeyStart, u"ID=%1"_s.arg(ID));
    T->Voce.Attendi(u"La controparte è stata dissociata dalla parcella!"_s, vbOK, u"Avvertenza:"_s);
    Voci[1]->trigger();
    QCOMPARE(F->Nota.IDCon, 0);
    QCOMPARE(F->Nota.txtControp.Testo, u"Bianchi Srl"_s);
    QVERIFY(!Modifica->isEnabled());
    Voci[1]->trigger();  // a second time there is nothing to drop, and no message
    QCOMPARE(F->Nota.IDCon, 0);
}

void TestCampoRubrica::ilSegnoDiChiNonSiTrova()
{
    Parcella Nota = NotaCivile();
    Nota.IDCli = 4711;
    Nota.txtCliente.Testo = u"Rossi Mario"_s;
    const QString File = T->Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    T->Voce.Attendi(u"Il cliente associato alla parcella non è stato trovato!"_s, vbOK, u"Errore:"_s);
    F = T->Apri(File);
    QVERIFY(F);
    QVERIFY(Segno()->isVisible());
    QCOMPARE(Segno()->toolTip(), u"Collegato all'archivio, ma il nominativo non è stato trovato"_s);
}

void TestCampoRubrica::ilSegnoDopoLaRilettura()
{
    Parcella Nota = NotaCivile();
    Nota.IDCli = Rossi;
    Nota.txtCliente.Testo = u"Eredi Rossi"_s;
    const QString File = T->Ufficio.File(u"nota.mdb"_s);
    ScriviNota(File, Nota);
    F = T->Apri(File);
    QVERIFY(F);
    QCOMPARE(Cliente()->text(), u"Rossi D'Àvila"_s);
    QCOMPARE(Segno()->toolTip(), Collegato);
}

#include "TestCampoRubrica.moc"
