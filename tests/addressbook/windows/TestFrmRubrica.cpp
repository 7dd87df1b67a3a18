// The browser of the address book: opening, columns, order, filter, keys.
#include "archivio.h"

#include "addressbook/windows/frmRicerche.h"
#include "addressbook/windows/frmScheda.h"
#include "platform/base/numerierrore.h"
#include "platform/system/file.h"

#include <QFile>
#include <QMenu>
#include <QRadioButton>

using namespace Qt::StringLiterals;

class TestFrmRubrica : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { A = std::make_unique<ArchivioDiProva>(); }
    void cleanup() { A.reset(); }

    void didascaliaEContrassegno();
    void leColonneSecondoLeDescrizioni();
    void iBottoni_data();
    void iBottoni();
    void nascostiSenzaTasti();
    void lArchivioVuoto();
    void lArchivioVuotoDiSolaLettura();
    void lArchivioCheManca_data();
    void lArchivioCheManca();
    void senzaArchivioIlFileRubrica();
    void laRicercaSottoLaScheda();
    void dalComandoCambiaArchivio();
    void laRigaLegata();
    void siRiapre();
    void unaPerOgniChiamante();
    void siOrdina();
    void ogniColonnaIlSuoVerso();
    void laRigaRestaOrdinando();
    void siFiltra_data();
    void siFiltra();
    void escSvuotaIlFiltro();
    void leLettereVannoNelFiltro();
    void ilFiltroSegueLeScritture();
    void siCopia();
    void leFrecceConControl();
    void ilMenuContestuale();
    void leLarghezzeTornano();
    void ilPostoTorna();
    void ognunoHaUnNome();

private:
    std::unique_ptr<ArchivioDiProva> A;
};
PROVA(TestFrmRubrica);

void TestFrmRubrica::didascaliaEContrassegno()
{
    const frmRubrica* F = A->Apri(A->DaNota(3));
    QVERIFY(F);
    QCOMPARE(F->windowTitle(), u"Archivio: clienti"_s);
    QCOMPARE(F->Tag(), 3);
    QVERIFY(!F->isModal());
}

void TestFrmRubrica::leColonneSecondoLeDescrizioni()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    const QAbstractItemModel* Modello = Lista(F)->Vista()->model();
    QStringList Titoli;
    for (int i = 0; i < Modello->columnCount(); ++i)
        Titoli += Modello->headerData(i, Qt::Horizontal).toString();
    QCOMPARE(Titoli, (QStringList{u"N."_s, u"Nominativo"_s, u"Città"_s, u"CAP"_s}));
    // 800, 3000, 2000 and 1000 twips.
    const QHeaderView* Testata = Lista(F)->Vista()->horizontalHeader();
    for (const auto& [Colonna, Pixel] :
         {std::pair(0, 53), std::pair(1, 200), std::pair(2, 133), std::pair(3, 67)})
        QCOMPARE(Testata->sectionSize(Colonna), Pixel);
    QCOMPARE(Cella(F, 1, 1), u"Àlvari Nicolò"_s);
    QCOMPARE(Conto(F), u"5 nominativi"_s);
}

void TestFrmRubrica::iBottoni_data()
{
    QTest::addColumn<bool>("Modifiche");
    QTest::addColumn<bool>("Selezione");
    QTest::addColumn<QString>("Visibili");
    QTest::newRow("da una parcella") << true << true
                                     << u"selez new edit view delete search rimetti importa esporta"_s;
    QTest::newRow("dal comando") << true << false << u"new edit view delete search rimetti importa esporta"_s;
    QTest::newRow("solo per scegliere") << false << true << u"selez view search esporta"_s;
    QTest::newRow("solo per guardare") << false << false << u"view search esporta"_s;
}

void TestFrmRubrica::iBottoni()
{
    RichiestaRubrica Chiesta = A->DaNota();
    QFETCH(bool, Modifiche);
    QFETCH(bool, Selezione);
    Chiesta.Modifiche = Modifiche;
    Chiesta.Selezione = Selezione;
    const frmRubrica* F = A->Apri(Chiesta);
    QVERIFY(F);
    QStringList Visibili;
    for (const QAction* Uno : Controllo<QToolBar>(F, "barRubr")->actions())
        if (Uno->isVisible())
            Visibili += Uno->objectName();
    QTEST(Visibili.join(u' '), "Visibili");
    QCOMPARE(Controllo<QRadioButton>(F, "optArchivio_0")->isVisible(), !Selezione);
}

void TestFrmRubrica::nascostiSenzaTasti()
{
    RichiestaRubrica Chiesta = A->DaScrivania();
    Chiesta.Modifiche = false;
    frmRubrica* F = A->Apri(Chiesta);
    QVERIFY(F);
    VaiA(F, 0);
    for (const Qt::Key Tasto : {Qt::Key_Insert, Qt::Key_F2, Qt::Key_Delete})
        Premi(Tasto);
    Respiro();
    QVERIFY(!F->findChild<QDialog*>(u"frmScheda"_s));
    for (const QString& Parola : {u"new"_s, u"edit"_s, u"delete"_s, u"selez"_s, u"altro"_s})
        F->Comando(Parola);
    QVERIFY(!F->findChild<QDialog*>(u"frmScheda"_s));
    QCOMPARE(Lista(F)->Righe(), 5);
    QVERIFY(A->Scelte.empty());
}

void TestFrmRubrica::lArchivioVuoto()
{
    OpenDatabase(A->File).Execute(u"DELETE FROM clienti"_s);
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    QCOMPARE(Lista(F)->Vista()->model()->columnCount(), 4);
    QCOMPARE(Conto(F), u"0 nominativi"_s);
    for (const char* Chiave : {"selez", "edit", "view", "delete", "rimetti"})
        QVERIFY2(!Azione(F, Chiave)->isEnabled(), Chiave);
    QVERIFY(Azione(F, "new")->isEnabled());
    Premi(Qt::Key_Return);
    Premi(Qt::Key_Delete);
    ClicTitolo(F, 1);
    Digita(u"x"_s);
    QTRY_COMPARE(Conto(F), u"0 di 0"_s);
}

/// Where nothing can be inserted the empty list does not ask for it.
void TestFrmRubrica::lArchivioVuotoDiSolaLettura()
{
    OpenDatabase(A->File).Execute(u"DELETE FROM clienti"_s);
    const auto Aspetto = [this](int Posto, bool Modifiche) {
        RichiestaRubrica Chiesta = A->DaNota(Posto);
        Chiesta.Modifiche = Modifiche;
        const frmRubrica* F = A->Apri(Chiesta);
        return F ? Lista(F)->Vista()->viewport()->grab().toImage() : QImage();
    };
    const QImage Scrivibile = Aspetto(1, true);
    const QImage SoloDaGuardare = Aspetto(2, false);
    QVERIFY(!Scrivibile.isNull() && Scrivibile != SoloDaGuardare);
    QVERIFY(ChiudiRubriche());
    Respiro();
    QVERIFY(QFile::setPermissions(A->File, QFile::ReadOwner | QFile::ReadUser));
    QVERIFY(Aspetto(3, true) == SoloDaGuardare);
}

void TestFrmRubrica::lArchivioCheManca_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    QTest::addColumn<QString>("Tabella");
    QTest::addColumn<int>("Numero");
    QTest::newRow("nessun file") << QByteArray() << u"clienti"_s << 3024;
    QTest::newRow("un altro file") << QByteArray(4000, 'x') << u"clienti"_s << 3343;
    QTest::newRow("senza la tabella") << QByteArray("si") << u"amici"_s << 3078;
}

void TestFrmRubrica::lArchivioCheManca()
{
    QFETCH(QByteArray, Contenuto);
    QFETCH(QString, Tabella);
    QFETCH(int, Numero);
    RichiestaRubrica Chiesta = A->DaNota();
    Chiesta.RecordSource = Tabella;
    if (Contenuto != "si") {
        Chiesta.DataSource = NuovaCartella() + u"altro.mdb"_s;
        if (!Contenuto.isEmpty()) {
            QFile Altro(Chiesta.DataSource);
            QVERIFY(Altro.open(QIODevice::WriteOnly));
            Altro.write(Contenuto);
        }
    }
    A->Voce.Attendi(
        u"Errore: %1%2%3 (%4)"_s
            .arg(DescrizioneErrore(Numero), Numero == 3078 ? u" nel file "_s : u": "_s, Chiesta.DataSource)
            .arg(Numero),
        vbOK, u"Errore:"_s);
    QVERIFY(!A->Apri(Chiesta));
    QCOMPARE(QFile::exists(Chiesta.DataSource), !Contenuto.isEmpty());
    QVERIFY(A->Apri(A->DaNota()));
}

/// The card holds the rows: meanwhile nothing of the search can be pressed in vain.
void TestFrmRubrica::laRicercaSottoLaScheda()
{
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    F->Comando(u"search"_s);
    auto* Cerca = F->findChild<frmRicerche*>();
    QVERIFY(Cerca && Cerca->isVisible());
    QApplication::setActiveWindow(Cerca);
    Scrivi(Controllo<QLineEdit>(Cerca, "txtValore"), u"Rossi Ada"_s);
    QVERIFY(Controllo(Cerca, "cmdFind_0")->isEnabled());
    F->Comando(u"view"_s);
    auto* Scheda = F->findChild<frmScheda*>();
    QVERIFY(Scheda && Cerca->isVisible());
    QVERIFY(!Controllo(Cerca, "cmdFind_0")->isEnabled() && !Controllo(Cerca, "txtValore")->isEnabled());
    Scheda->close();
    QTRY_VERIFY(!F->findChild<frmScheda*>());
    QVERIFY(Controllo(Cerca, "cmdFind_0")->isEnabled());
    QApplication::setActiveWindow(Cerca);
    QCOMPARE(NomeFuoco(), u"txtValore"_s);
    Premi(Qt::Key_F3);
    QCOMPARE(Corrente(F), u"Rossi Ada"_s);
}

void TestFrmRubrica::senzaArchivioIlFileRubrica()
{
    sessione::PercorsoProg = NuovaCartella();
    RichiestaRubrica Chiesta = A->DaNota();
    Chiesta.DataSource.clear();
    A->Voce.Attendi(
        u"Errore: %1: %2rubrica.mdb (3024)"_s.arg(DescrizioneErrore(3024), sessione::PercorsoProg));
    QVERIFY(!A->Apri(Chiesta));
    QVERIFY(!QFile::exists(sessione::PercorsoProg + u"rubrica.mdb"_s));
    QVERIFY(QFile::copy(A->File, sessione::PercorsoProg + u"rubrica.mdb"_s));
    QCOMPARE(Nomi(A->Apri(Chiesta)).size(), 5);
}

void TestFrmRubrica::dalComandoCambiaArchivio()
{
    const frmRubrica* F = A->Apri(A->DaScrivania());
    QVERIFY(F);
    QVERIFY(Controllo<QRadioButton>(F, "optArchivio_0")->isChecked());
    Clic(Controllo(F, "optArchivio_1"));
    QCOMPARE(F->windowTitle(), u"Archivio: controparti"_s);
    QCOMPARE(Nomi(F), (QStringList{u"Gamma Spa"_s, u"Delta Srl"_s}));
    // A table that cannot be opened leaves the one on view.
    OpenDatabase(A->File).Execute(u"DROP TABLE clienti"_s);
    A->Voce.Attendi(u"Errore: %1 nel file %2 (3078)"_s.arg(DescrizioneErrore(3078), A->File));
    Clic(Controllo(F, "optArchivio_0"));
    QCOMPARE(F->windowTitle(), u"Archivio: controparti"_s);
    QVERIFY(Controllo<QRadioButton>(F, "optArchivio_1")->isChecked());
    QCOMPARE(Nomi(F).size(), 2);
}

void TestFrmRubrica::laRigaLegata()
{
    RichiestaRubrica Chiesta = A->DaNota();
    Chiesta.ID = 3;
    frmRubrica* F = A->Apri(Chiesta);
    QVERIFY(F);
    QCOMPARE(Corrente(F), u"BRUNI Carla"_s);
    Chiesta.ID = 700;
    F = A->Apri(Chiesta);
    QCOMPARE(Corrente(F), u"verdi Anna"_s);
}

void TestFrmRubrica::siRiapre()
{
    frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    RichiestaRubrica Altra = A->DaNota();
    Altra.RecordSource = u"controparti"_s;
    Altra.Parent = u"con"_s;
    QCOMPARE(A->Apri(Altra), F);
    QCOMPARE(F->windowTitle(), u"Archivio: controparti"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(A->Scelte.size(), std::size_t(1));
    QCOMPARE(A->Scelte[0].Parent, u"con"_s);
    QCOMPARE(A->Scelte[0].Valori.at(1).toString(), u"Gamma Spa"_s);
}

void TestFrmRubrica::unaPerOgniChiamante()
{
    const frmRubrica* Prima = A->Apri(A->DaNota(1));
    const frmRubrica* Seconda = A->Apri(A->DaNota(2));
    const frmRubrica* Scrivania = A->Apri(A->DaScrivania());
    QVERIFY(Prima && Seconda && Scrivania && Prima != Seconda && Seconda != Scrivania);
    ChiudiRubricaDi(1, 5);  // another note of that place
    QCOMPARE(RubricaDi(1), Prima);
    ChiudiRubricaDi(1, 71);
    QVERIFY(!RubricaDi(1));
    QCOMPARE(RubricaDi(2), Seconda);
    // Another note in the place: the browser of the former one takes no choice for it.
    RichiestaRubrica Nuova = A->DaNota(2);
    Nuova.Numero = 99;
    QVERIFY(A->Apri(Nuova) != Seconda);
    QVERIFY(ChiudiRubriche());
    QVERIFY(!RubricaDi(2) && !RubricaDi(0));
}

void TestFrmRubrica::siOrdina()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    const QHeaderView* Testata = Lista(F)->Vista()->horizontalHeader();
    QVERIFY(!Testata->isSortIndicatorShown());
    const QStringList Crescenti{u"Àlvari Nicolò"_s, u"BRUNI Carla"_s, u"Rossi Ada"_s, u"Rossi Mario"_s,
                                u"verdi Anna"_s};
    ClicTitolo(F, 1);
    QCOMPARE(Nomi(F), Crescenti);
    QVERIFY(Testata->isSortIndicatorShown());
    QCOMPARE(Testata->sortIndicatorSection(), 1);
    QCOMPARE(Testata->sortIndicatorOrder(), Qt::AscendingOrder);
    ClicTitolo(F, 1);
    QCOMPARE(Nomi(F), QStringList(Crescenti.rbegin(), Crescenti.rend()));
    QCOMPARE(Testata->sortIndicatorOrder(), Qt::DescendingOrder);
    ClicTitolo(F, 1);
    QCOMPARE(Nomi(F), Crescenti);
}

void TestFrmRubrica::ogniColonnaIlSuoVerso()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    ClicTitolo(F, 2);
    // Null stands first, level rows in the order of their keys.
    QCOMPARE(Nomi(F), (QStringList{u"Rossi Ada"_s, u"Àlvari Nicolò"_s, u"verdi Anna"_s, u"Rossi Mario"_s,
                                   u"BRUNI Carla"_s}));
    ClicTitolo(F, 0);
    QCOMPARE(Nomi(F).first(), u"verdi Anna"_s);
    ClicTitolo(F, 2);
    QCOMPARE(Nomi(F).first(), u"BRUNI Carla"_s);  // its second click: downwards
    ClicTitolo(F, 0);
    QCOMPARE(Nomi(F).first(), u"Rossi Ada"_s);
    const QHeaderView* Testata = Lista(F)->Vista()->horizontalHeader();
    QCOMPARE(Testata->sortIndicatorSection(), 0);
    QCOMPARE(Testata->sortIndicatorOrder(), Qt::DescendingOrder);
}

void TestFrmRubrica::laRigaRestaOrdinando()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    VaiA(F, 3);
    QCOMPARE(Corrente(F), u"Rossi Mario"_s);
    ClicTitolo(F, 1);
    QCOMPARE(Corrente(F), u"Rossi Mario"_s);
    Vaglio(F)->setText(u"lucca"_s);
    QTRY_COMPARE(Nomi(F), (QStringList{u"Rossi Mario"_s, u"verdi Anna"_s}));
    QCOMPARE(Corrente(F), u"Rossi Mario"_s);
    ClicTitolo(F, 1);
    QCOMPARE(Nomi(F), (QStringList{u"verdi Anna"_s, u"Rossi Mario"_s}));
    QCOMPARE(Corrente(F), u"Rossi Mario"_s);
}

void TestFrmRubrica::siFiltra_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QStringList>("Attesi");
    QTest::addColumn<QString>("Frase");
    QTest::newRow("una parte") << u"oss"_s << QStringList{u"Rossi Mario"_s, u"Rossi Ada"_s} << u"2 di 5"_s;
    QTest::newRow("senza accenti") << u"NICOLO"_s << QStringList{u"Àlvari Nicolò"_s} << u"1 di 5"_s;
    QTest::newRow("con l'accento") << u"forlì"_s << QStringList{u"Àlvari Nicolò"_s} << u"1 di 5"_s;
    QTest::newRow("più parole in più colonne")
        << u"lucca rossi"_s << QStringList{u"Rossi Mario"_s} << u"1 di 5"_s;
    QTest::newRow("non fra due colonne") << u"annalucca"_s << QStringList{} << u"0 di 5"_s;
    QTest::newRow("la chiave") << u"3"_s << QStringList{u"BRUNI Carla"_s} << u"1 di 5"_s;
    QTest::newRow("non le colonne nascoste") << u"segreto"_s << QStringList{} << u"0 di 5"_s;
    QTest::newRow("virgolette") << u"\"'; DROP TABLE clienti"_s << QStringList{} << u"0 di 5"_s;
    QTest::newRow("jolly") << u"*"_s << QStringList{} << u"0 di 5"_s;
}

void TestFrmRubrica::siFiltra()
{
    QFETCH(QString, Testo);
    OpenDatabase(A->File).Execute(u"UPDATE clienti SET CodFis='segreto'"_s);
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    Vaglio(F)->setFocus();
    Digita(Testo);
    QFETCH(QString, Frase);
    QTRY_COMPARE(Conto(F), Frase);
    QTEST(Nomi(F), "Attesi");
}

void TestFrmRubrica::escSvuotaIlFiltro()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    Vaglio(F)->setFocus();
    Digita(u"rossi"_s);
    QTRY_COMPARE(Nomi(F).size(), 2);
    Premi(Qt::Key_Down);
    QVERIFY(Lista(F)->Vista()->hasFocus());
    Premi(Qt::Key_Escape);
    QCOMPARE(Nomi(F).size(), 5);
    QVERIFY(F->isVisible());
    Premi(Qt::Key_Escape);
    QVERIFY(!RubricaDi(1));
}

void TestFrmRubrica::leLettereVannoNelFiltro()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    Lista(F)->setFocus();
    Digita(u"brù"_s);
    QCOMPARE(Vaglio(F)->text(), u"brù"_s);
    QTRY_COMPARE(Nomi(F), QStringList{u"BRUNI Carla"_s});
    Premi(Qt::Key_Return);
    QVERIFY(A->Scelte.empty());  // the first Enter goes to the row, the second one chooses it
    Premi(Qt::Key_Return);
    QCOMPARE(A->Scelte.size(), std::size_t(1));
    QCOMPARE(A->Scelte[0].Valori.at(0).toInt(), 3);
}

void TestFrmRubrica::ilFiltroSegueLeScritture()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    Vaglio(F)->setText(u"oss"_s);
    QTRY_COMPARE(Conto(F), u"2 di 5"_s);
    OpenDatabase(A->File).Execute(u"INSERT INTO clienti (Nominativo) VALUES ('Rossini Ugo')"_s);
    Vaglio(F)->setText(u"ross"_s);
    QTRY_COMPARE(Conto(F), u"3 di 6"_s);
    OpenDatabase(A->File).Execute(u"DELETE FROM clienti WHERE ID=4"_s);
    Vaglio(F)->clear();
    QTRY_COMPARE(Conto(F), u"5 nominativi"_s);
    QVERIFY(!Nomi(F).contains(u"Rossi Mario"_s));
}

void TestFrmRubrica::siCopia()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    VaiA(F, 2);
    Premi(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(Appunti(), u"BRUNI Carla"_s);
    Lista(F)->Seleziona(2);
    Lista(F)->Seleziona(0);
    Premi(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(Appunti(), u"1\tverdi Anna\tLucca\t\n3\tBRUNI Carla\tPisa\t"_s);
}

void TestFrmRubrica::leFrecceConControl()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    Lista(F)->setFocus();
    Premi(Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(Corrente(F), u"Rossi Ada"_s);
    Premi(Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(Corrente(F), u"verdi Anna"_s);
}

void TestFrmRubrica::ilMenuContestuale()
{
    const frmRubrica* F = A->Apri(A->DaNota());
    QVERIFY(F);
    Lista(F)->ApriMenu(1, F->mapToGlobal(QPoint(50, 50)));
    auto* Menu = F->findChild<QMenu*>(u"menuRubrica"_s);
    QVERIFY(Menu);
    QCOMPARE(Corrente(F), u"Àlvari Nicolò"_s);
    QVERIFY(Menu->actions().contains(Azione(F, "edit")));
    const auto Tasti = [&](const QString& Nome) {
        return Menu->findChild<QAction*>(Nome)->text().section(u'\t', 1);
    };
    QCOMPARE(Tasti(u"menu_selez"_s), u"Invio"_s);
    QCOMPARE(Tasti(u"menu_view"_s), u"Doppio clic"_s);
    Menu->findChild<QAction*>(u"copiaRiga"_s)->trigger();
    QCOMPARE(Appunti(), u"2\tÀlvari Nicolò\tForlì\t"_s);
    Menu->findChild<QAction*>(u"menu_selez"_s)->trigger();
    QCOMPARE(A->Scelte.size(), std::size_t(1));
}

void TestFrmRubrica::leLarghezzeTornano()
{
    const frmRubrica* F = A->Apri(A->DaScrivania());
    QVERIFY(F);
    QHeaderView* Testata = Lista(F)->Vista()->horizontalHeader();
    const int Bordo = Testata->sectionViewportPosition(1) + Testata->sectionSize(1) - 1;
    TrascinaCon(Testata->viewport(), {Bordo, 10}, {Bordo + 60, 10});
    const int Larga = Testata->sectionSize(1);
    QVERIFY(Larga > 240);
    ClicTitolo(F, 1);
    QCOMPARE(Testata->sectionSize(1), Larga);  // rows in another order leave the columns alone
    Clic(Controllo(F, "optArchivio_1"));
    QCOMPARE(Testata->sectionSize(1), 200);
    Clic(Controllo(F, "optArchivio_0"));
    QCOMPARE(Testata->sectionSize(1), Larga);
    QVERIFY(ChiudiRubriche());
    Respiro();
    F = A->Apri(A->DaScrivania());
    QVERIFY(F);
    QCOMPARE(Lista(F)->Vista()->horizontalHeader()->sectionSize(1), Larga);
}

void TestFrmRubrica::ilPostoTorna()
{
    ProvaPosto(u"frmRubrica"_s, [this]() -> QWidget* {
        (void)ChiudiRubriche();
        Respiro();
        return A->Apri(A->DaScrivania());
    });
}

void TestFrmRubrica::ognunoHaUnNome()
{
    const frmRubrica* F = A->Apri(A->DaScrivania());
    QVERIFY(F);
    QCOMPARE(SenzaNome(F), QStringList());
}

#include "TestFrmRubrica.moc"
