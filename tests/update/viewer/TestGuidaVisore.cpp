#include "supporto/finestre.h"
#include "supporto/mani.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/kit/collega.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "update/viewer/elencoguida.h"
#include "update/viewer/frmWeb.h"
#include "update/viewer/pagina.h"
#include "update/viewer/pannelloguida.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScopeGuard>
#include <QScrollBar>
#include <QStackedWidget>
#include <QToolButton>
#include <QTreeWidget>

#include <memory>

using namespace Qt::StringLiterals;

/// The guide in the viewer: contents, search, what is marked on a page.
class TestGuidaVisore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void elenco();
    void elencoMancante();
    void cerca_data();
    void cerca();
    void brano();
    void soloConLaGuida();
    void indice();
    void capitoloApertoEChiuso();
    void ricercaDaTastiera();
    void paroleSegnate();
    void escSvuotaPoiChiude();
    void letteraCominciaLaRicerca();
    void indietro();
    void senzaRisultati();
    void dueVolteInPrimoPiano();
    void alBuio();

private:
    void Mostra(const QString& Nome)
    {
        W->Guida = Cartella;
        W->Indirizzo = Cartella + Nome;
        W->Titolo = u"Guida"_s;
        W->Mostra();
        QVERIFY(MostraAttiva(*W));
    }
    template <class T>
    T* Trova(const QString& Nome) const
    {
        return W->findChild<T*>(Nome);
    }
    [[nodiscard]] QString InVista() const { return NomeFile(Trova<Pagina>(u"Web1"_s)->source().path()); }
    [[nodiscard]] QTreeWidget* Indice() const { return Trova<QTreeWidget>(u"treIndice"_s); }
    [[nodiscard]] QListWidget* Trovati() const { return Trova<QListWidget>(u"lstTrovati"_s); }
    [[nodiscard]] QLineEdit* Casella() const { return Trova<QLineEdit>(u"txtGuida"_s); }

    QString Cartella;
    std::unique_ptr<frmWeb> W;
};
PROVA(TestGuidaVisore);

void TestGuidaVisore::init()
{
    AzzeraSessione();
    Registratore::AlMostrare() = BoxDavanti;
    sessione::PercorsoProg = NuovaCartella();
    sessione::UserFolder = NuovaCartella();
    Cartella = sessione::PercorsoProg + u"aiuto/"_s;
    InstallaUltimaRete([](const Errore& Guasto) { GestioneErrori(Guasto); });
    CreaCartella(Cartella);
    ScriviFile(
        Cartella + u"uno.htm"_s,
        "<html><head><title>Termini</title></head><body><h1>Termini</h1><p>Il sabato e la domenica.</p>"
        "<h2><a name=\"norme\"></a>Norme</h2><p>Età del sabato, legge.</p></body></html>");
    ScriviFile(Cartella + u"due.htm"_s,
               "<html><body><h1>Interessi</h1><p>Il tasso legale.</p></body></html>");
    ScriviFile(Cartella + u"tre.htm"_s, "<html><body><h1>Rubrica</h1><p>I nominativi.</p></body></html>");
    ScriviFile(
        Cartella + u"elenco.txt"_s,
        "C\tCalcoli\nP\tuno.htm\tTermini\nS\tuno.htm\tTermini\tIl sabato e la domenica.\n"
        "S\tuno.htm#norme\tNorme\tEtà del sabato, legge.\n"
        "P\tdue.htm\tInteressi\nS\tdue.htm\tInteressi\tIl tasso legale, anche di sabato, nei termini.\n"
        "C\tArchivi\nP\ttre.htm\tRubrica\nS\ttre.htm\tRubrica\tI nominativi.\n");
    W = std::make_unique<frmWeb>();
}

void TestGuidaVisore::cleanup()
{
    W.reset();
    Registratore::AlMostrare() = {};
    InstallaUltimaRete(nullptr);
    AzzeraSessione();
}

void TestGuidaVisore::elenco()
{
    const ElencoGuida Letto(Cartella);
    QCOMPARE(Letto.Pagine().size(), size_t(3));
    QCOMPARE(Letto.Pagine()[1].Capitolo, u"Calcoli"_s);
    QCOMPARE(Letto.Pagine()[2].Capitolo, u"Archivi"_s);
    QCOMPARE(Letto.Pagine()[1].File, u"due.htm"_s);
    QCOMPARE(Letto.Pagine()[1].Titolo, u"Interessi"_s);
}

void TestGuidaVisore::elencoMancante()
{
    QVERIFY(ElencoGuida(NuovaCartella()).Pagine().empty());
    QVERIFY(ElencoGuida(NuovaCartella()).Cerca(u"x"_s).isEmpty());
    // A list that was cut short says what it holds.
    ScriviFile(Cartella + u"elenco.txt"_s,
               "S\tprima.htm\tx\ty\nC\nP\tuno.htm\nC\tA\nP\tuno.htm\tUno\nS\tuno.htm\n");
    QCOMPARE(ElencoGuida(Cartella).Pagine().size(), size_t(1));
}

void TestGuidaVisore::cerca_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QStringList>("Mete");
    QTest::newRow("one word, titles first")
        << u"termini"_s << QStringList{u"uno.htm"_s, u"uno.htm#norme"_s, u"due.htm"_s};
    QTest::newRow("title of a section") << u"norme"_s << QStringList{u"uno.htm#norme"_s};
    QTest::newRow("every word") << u"sabato tasso"_s << QStringList{u"due.htm"_s};
    QTest::newRow("case and accents") << u"ETA"_s << QStringList{u"uno.htm#norme"_s};
    QTest::newRow("part of a word") << u"domen"_s << QStringList{u"uno.htm"_s};
    QTest::newRow("nothing") << u"zebra"_s << QStringList{};
    QTest::newRow("blanks") << u"   "_s << QStringList{};
}

void TestGuidaVisore::cerca()
{
    QFETCH(QString, Testo);
    QFETCH(QStringList, Mete);
    QStringList Viste;
    for (const TrovatoGuida& Trovato : ElencoGuida(Cartella).Cerca(Testo))
        Viste << Trovato.Meta;
    QCOMPARE(Viste, Mete);
}

void TestGuidaVisore::brano()
{
    const QString Lungo =
        QString(u"parola "_s).repeated(60) + u"cercata "_s + QString(u"altra "_s).repeated(60);
    ScriviFile(Cartella + u"elenco.txt"_s,
               "C\tA\nP\tuno.htm\tUno\nS\tuno.htm\tUno\t" + Lungo.trimmed().toUtf8() + "\n");
    const QList<TrovatoGuida> Trovati = ElencoGuida(Cartella).Cerca(u"cercata"_s);
    QCOMPARE(Trovati.size(), 1);
    QVERIFY2(Trovati[0].Brano.startsWith(u"… parola") && Trovati[0].Brano.endsWith(u"altra …"),
             qPrintable(Trovati[0].Brano));
    QVERIFY(Trovati[0].Brano.contains(u" cercata ") && Trovati[0].Brano.size() < 220);
}

void TestGuidaVisore::soloConLaGuida()
{
    // A sheet fills the window; the same viewer with the guide has its contents beside it.
    W->Indirizzo = Cartella + u"uno.htm"_s;
    W->Titolo = u"Scheda"_s;
    W->Mostra();
    QVERIFY(MostraAttiva(*W));
    QVERIFY(!Trova<QWidget>(u"pnlGuida"_s)->isVisible());
    const QWidget* Web1 = Trova<QWidget>(u"Web1"_s);
    QVERIFY(Web1->width() >= W->width() - 40);
    W->close();
    Mostra(u"uno.htm"_s);
    QVERIFY(Trova<QWidget>(u"pnlGuida"_s)->isVisible());
    QVERIFY(Web1->width() > W->width() / 2);
    // The page fills what is beside the contents.
    const int Prima = Web1->width();
    W->resize(W->width() + 200, W->height());
    QTRY_COMPARE(Web1->width(), Prima + 200);
}

void TestGuidaVisore::indice()
{
    Mostra(u"due.htm"_s);
    QCOMPARE(Indice()->topLevelItemCount(), 2);
    QCOMPARE(Indice()->topLevelItem(0)->text(0), u"Calcoli"_s);
    QCOMPARE(Indice()->topLevelItem(0)->childCount(), 2);
    // The page on view is the marked one, its chapter open.
    QVERIFY(Indice()->currentItem());
    QCOMPARE(Indice()->currentItem()->text(0), u"Interessi"_s);
    QVERIFY(Indice()->topLevelItem(0)->isExpanded() && !Indice()->topLevelItem(1)->isExpanded());
    const QRect Voce = Indice()->visualItemRect(Indice()->topLevelItem(0)->child(0));
    QTest::mouseClick(Indice()->viewport(), Qt::LeftButton, {}, Voce.center());
    QCOMPARE(InVista(), u"uno.htm"_s);
    Indice()->setFocus();
    Indice()->setCurrentItem(Indice()->topLevelItem(1)->child(0));
    QTest::keyClick(Indice(), Qt::Key_Return);
    QCOMPARE(InVista(), u"tre.htm"_s);
    // A chapter that was opened for its page closes with it.
    QVERIFY(!Indice()->topLevelItem(0)->isExpanded() && Indice()->topLevelItem(1)->isExpanded());
}

void TestGuidaVisore::capitoloApertoEChiuso()
{
    Mostra(u"uno.htm"_s);
    QTreeWidgetItem* Archivi = Indice()->topLevelItem(1);
    const auto Premi = [&] {
        QTest::mouseClick(Indice()->viewport(), Qt::LeftButton, {},
                          Indice()->visualItemRect(Archivi).center());
    };
    Premi();
    QVERIFY(Archivi->isExpanded());
    Premi();
    QVERIFY(!Archivi->isExpanded());
    QCOMPARE(InVista(), u"uno.htm"_s);
}

void TestGuidaVisore::ricercaDaTastiera()
{
    Mostra(u"tre.htm"_s);
    QTest::keyClick(W.get(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(Casella()->hasFocus());
    QTest::keyClicks(Casella(), u"sabato"_s);
    QCOMPARE(Trovati()->count(), 3);
    QVERIFY(Trovati()->isVisible());
    QCOMPARE(Trova<QLabel>(u"lblTrovati"_s)->text(), u"3 risultati"_s);
    QVERIFY2(Trovati()->item(1)->text().startsWith(u"Termini › Norme\n"),
             qPrintable(Trovati()->item(1)->text()));
    QTest::keyClick(Casella(), Qt::Key_Return);
    QCOMPARE(InVista(), u"uno.htm"_s);
    QTest::keyClick(Casella(), Qt::Key_Down);
    QVERIFY(Trovati()->hasFocus());
    QTest::keyClick(Trovati(), Qt::Key_Down);
    QTest::keyClick(Trovati(), Qt::Key_Return);
    QCOMPARE(Trova<Pagina>(u"Web1"_s)->source().fragment(), u"norme"_s);
    QVERIFY(W->isVisible());
}

void TestGuidaVisore::paroleSegnate()
{
    Mostra(u"tre.htm"_s);
    QTest::keyClicks(Casella(), u"sabato"_s);
    QTest::mouseClick(Trovati()->viewport(), Qt::LeftButton, {},
                      Trovati()->visualItemRect(Trovati()->item(0)).center());
    auto* Web1 = Trova<Pagina>(u"Web1"_s);
    QCOMPARE(Web1->extraSelections().size(), 2);
    QCOMPARE(Web1->extraSelections()[0].cursor.selectedText(), u"sabato"_s);
    // Another page has none.
    QVERIFY(Web1->Naviga(Cartella + u"due.htm"_s));
    QVERIFY(Web1->extraSelections().isEmpty());
}

void TestGuidaVisore::escSvuotaPoiChiude()
{
    Mostra(u"uno.htm"_s);
    Casella()->setFocus();
    QTest::keyClicks(Casella(), u"tasso"_s);
    QTest::keyClick(Casella(), Qt::Key_Escape);
    QCOMPARE(Casella()->text(), QString());
    QVERIFY(Indice()->isVisible() && W->isVisible());
    QTest::keyClick(Casella(), Qt::Key_Escape);
    QVERIFY(!W->isVisible());
}

void TestGuidaVisore::letteraCominciaLaRicerca()
{
    Mostra(u"uno.htm"_s);
    auto* Web1 = Trova<Pagina>(u"Web1"_s);
    Web1->setFocus();
    QTest::keyClick(Web1, Qt::Key_T);
    QVERIFY(Casella()->hasFocus());
    QCOMPARE(Casella()->text(), u"t"_s);
    QTest::keyClicks(Casella(), u"asso"_s);
    QCOMPARE(Casella()->text(), u"tasso"_s);
    QCOMPARE(Trovati()->count(), 1);
    // A sheet has nothing to search in: the letter does nothing there.
    W->close();
    W->Guida.clear();
    W->Mostra();
    QVERIFY(MostraAttiva(*W));
    Casella()->clear();
    QTest::keyClick(Web1, Qt::Key_T);
    QCOMPARE(Casella()->text(), QString());
}

void TestGuidaVisore::indietro()
{
    Mostra(u"uno.htm"_s);
    Casella()->setFocus();
    QTest::keyClicks(Casella(), u"tasso"_s);
    QTest::keyClick(Casella(), Qt::Key_Return);
    QCOMPARE(InVista(), u"due.htm"_s);
    QCOMPARE(W->windowTitle(), u"Guida"_s);  // of a page without a title
    QTest::mouseClick(Trova<QToolButton>(u"cmdIndietro"_s), Qt::LeftButton);
    QCOMPARE(InVista(), u"uno.htm"_s);
    QCOMPARE(W->windowTitle(), u"Guida: Termini"_s);
    QCOMPARE(Indice()->currentItem()->text(0), u"Termini"_s);
    QTest::keyClick(W.get(), Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(InVista(), u"due.htm"_s);
}

void TestGuidaVisore::senzaRisultati()
{
    Mostra(u"uno.htm"_s);
    QTest::keyClicks(Casella(), u"zebra"_s);
    QCOMPARE(Trova<QLabel>(u"lblTrovati"_s)->text(), u"Nessun risultato"_s);
    QTest::keyClick(Casella(), Qt::Key_Return);
    QTest::keyClick(Casella(), Qt::Key_Down);
    QCOMPARE(InVista(), u"uno.htm"_s);
    QVERIFY(W->isVisible());
}

void TestGuidaVisore::dueVolteInPrimoPiano()
{
    Mostra(u"uno.htm"_s);
    QWidget Altra;
    QVERIFY(MostraAttiva(Altra));
    W->Indirizzo = Cartella + u"tre.htm"_s;
    W->Mostra();
    QTRY_VERIFY(W->isActiveWindow());
    QCOMPARE(InVista(), u"tre.htm"_s);
    QVERIFY(Trova<Pagina>(u"Web1"_s)->hasFocus());
    // The page before is one step back.
    QTest::keyClick(W.get(), Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(InVista(), u"uno.htm"_s);
}

void TestGuidaVisore::alBuio()
{
    // Desktops that give dark colours often leave the hint of an empty box black.
    const QPalette Solita = QApplication::palette();
    const auto Rimetti = qScopeGuard([&] { QApplication::setPalette(Solita); });
    QPalette Scura = Solita;
    Scura.setColor(QPalette::Base, QColor(27, 30, 32));
    Scura.setColor(QPalette::Text, QColor(252, 252, 252));
    Scura.setColor(QPalette::PlaceholderText, Qt::black);
    QApplication::setPalette(Scura);
    const frmWeb Web;
    for (const QString& Nome : {u"txtGuida"_s, u"txtCerca"_s}) {
        const QPalette Sua = Web.findChild<QLineEdit*>(Nome)->palette();
        QVERIFY2(Sua.color(QPalette::PlaceholderText).lightness() >
                     Sua.color(QPalette::Base).lightness() + 80,
                 qPrintable(Nome));
    }
}

#include "TestGuidaVisore.moc"
