// Colours, icons, mnemonics, spoken names and places of windows.
#include "platform/grid/griglia.h"
#include "platform/kit/aspetto.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "supporto/finestre.h"
#include "supporto/prova.h"

#include <QApplication>
#include <QCheckBox>
#include <QCursor>
#include <QDir>
#include <QFontInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QScreen>
#include <QStyle>
#include <QTabWidget>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QPalette PaletteScura()
{
    QPalette Colori;
    for (const auto Fondo : {QPalette::Window, QPalette::Base, QPalette::Button})
        Colori.setColor(Fondo, QColor(0x20, 0x20, 0x20));
    for (const auto Testo : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        Colori.setColor(Testo, QColor(0xF0, 0xF0, 0xF0));
    return Colori;
}

/// The darkest and the lightest opaque point of a picture.
std::pair<int, int> Luci(const QIcon& Icona, QIcon::Mode Modo = QIcon::Normal)
{
    constexpr int Lato = 48;
    const QImage Immagine = Icona.pixmap(QSize(Lato, Lato), Modo).toImage();
    int Scura = 256;
    int Chiara = -1;
    for (int y = 0; y < Immagine.height(); ++y) {
        for (int x = 0; x < Immagine.width(); ++x) {
            const QColor Punto = Immagine.pixelColor(x, y);
            if (Punto.alpha() < 240)
                continue;
            Scura = std::min(Scura, Punto.lightness());
            Chiara = std::max(Chiara, Punto.lightness());
        }
    }
    return {Scura, Chiara};
}

QChar Lettera(const QString& Testo)
{
    const QString Sequenza = QKeySequence::mnemonic(Testo).toString();
    return Sequenza.isEmpty() ? QChar() : Sequenza.back().toLower();
}

}  // namespace

class TestAspetto : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void twipEPixel_data();
    void twipEPixel();
    void coloriInOrdineClassico();
    void coloriPerLaPalette();
    void preparata();
    void immagineAllaMisura();
    void ogniNomeHaLaSuaIcona_data();
    void ogniNomeHaLaSuaIcona();
    void ogniDisegnoSeguaLeRegole();
    void leIconeSeguonoLaPalette();
    void iconaCheNonCE();
    void mnemonici();
    void mnemoniciGiaDati();
    void mnemoniciPerPagina();
    void mnemoniciFinite();
    void nomiAccessibili();
    void nomeDellaGriglia();
    void postoRicordato();
    void soloLUtenteCambiaIlPosto();
    void ilTitoloRestaInVista();
    void maiPiuPiccolaDelContenuto();
    void laFinestraCresceColCarattere();
    void postoGuasto_data();
    void postoGuasto();
    void finestraPiuGrandeDelloSchermo();
    void finestraMassimizzata();
};
PROVA(TestAspetto);

void TestAspetto::twipEPixel_data()
{
    QTest::addColumn<int>("Twip");
    QTest::addColumn<int>("Pixel");
    QTest::newRow("zero") << 0 << 0;
    QTest::newRow("un punto") << 15 << 1;
    QTest::newRow("una riga di scheda") << 360 << 24;
    QTest::newRow("al più vicino, sotto") << 22 << 1;
    QTest::newRow("al più vicino, sopra") << 23 << 2;
    QTest::newRow("negativo") << -30 << -2;
}

void TestAspetto::twipEPixel()
{
    QFETCH(int, Twip);
    QFETCH(int, Pixel);
    QCOMPARE(aspetto::Pixel(Twip), Pixel);
    QCOMPARE(aspetto::Pixel(aspetto::Twip(Pixel)), Pixel);
}

void TestAspetto::coloriInOrdineClassico()
{
    QCOMPARE(aspetto::DaBgr(0xFEF8ED), QColor(237, 248, 254));
    QCOMPARE(aspetto::DaBgr(128), QColor(128, 0, 0));
    QCOMPARE(aspetto::DaBgr(-1), QApplication::palette().color(QPalette::Window));
    QCOMPARE(aspetto::ABgr(QColor(237, 248, 254)), 0xFEF8ED);
    QCOMPARE(aspetto::ABgr(aspetto::DaBgr(0x123456)), 0x123456);
}

void TestAspetto::coloriPerLaPalette()
{
    const QPalette Prima = QApplication::palette();
    const auto Rimetti = qScopeGuard([&] { QApplication::setPalette(Prima); });
    QVERIFY(!aspetto::Scuro());
    QCOMPARE(aspetto::Accento(), QColor(0x1F, 0x4E, 0x79));
    QCOMPARE(aspetto::Sbagliato(), QColor(0x80, 0, 0));
    QApplication::setPalette(PaletteScura());
    QVERIFY(aspetto::Scuro());
    QVERIFY(aspetto::Accento().lightness() > 128);
    QVERIFY(aspetto::Sbagliato().lightness() > 128);
    QCOMPARE(aspetto::RigaSelezionata(), QColor(247, 223, 111));
    QVERIFY(aspetto::TestoRigaSelezionata().lightness() < 64);
}

void TestAspetto::preparata()
{
    QCOMPARE(QApplication::style()->objectName().toLower(), u"fusion"_s);
    QVERIFY2(QFontInfo(QApplication::font()).family() == QApplication::font().family(),
             "una famiglia che c'è");
    QVERIFY(!QFontInfo(QApplication::font()).fixedPitch());
    QVERIFY(!QApplication::windowIcon().isNull());
    QCOMPARE(QLocale().language(), QLocale::Italian);
}

void TestAspetto::immagineAllaMisura()
{
    const QString Cartella = NuovaCartella();
    QImage Larga(300, 100, QImage::Format_RGB32);
    Larga.fill(Qt::red);
    QVERIFY(Larga.save(Cartella + u"larga.jpg"_s));
    for (const QSize& Misura : {QSize(40, 30), QSize(600, 300)}) {
        const QPixmap Letta = aspetto::LeggiImmagine(Cartella + u"larga.jpg"_s, Misura);
        QCOMPARE(Letta.size(), Misura);
        QVERIFY(Letta.toImage().pixelColor(Misura.width() / 2, Misura.height() / 2).red() > 200);
    }
    ScriviFile(Cartella + u"nessuna.jpg"_s, "words");
    for (const QString& File : {Cartella + u"nessuna.jpg"_s, Cartella + u"manca.jpg"_s, QString()})
        QVERIFY(aspetto::LeggiImmagine(File, QSize(40, 30)).isNull());
}

void TestAspetto::ogniNomeHaLaSuaIcona_data()
{
    QTest::addColumn<QString>("Nome");
    for (const char* Nome :
         {"new",    "open",    "save",    "lock",      "clienti",   "contrib",  "inter",
          "istat",  "termini", "sequenz", "guida",     "docum",     "setup",    "help",
          "kr2",    "codfis",  "link",    "novita",    "upgrade",   "select",   "info",
          "variaz", "taglia",  "copia",   "incolla",   "annulla",   "lastrow",  "currentrow",
          "up",     "down",    "zoom",    "print",     "word",      "wp",       "pdf",
          "prev",   "next",    "exit",    "lucchetto", "dischetto", "calcanova"})
        QTest::newRow(Nome) << QString::fromLatin1(Nome);
}

void TestAspetto::ogniNomeHaLaSuaIcona()
{
    QFETCH(QString, Nome);
    const QIcon Icona = aspetto::Icona(Nome);
    QVERIFY(!Icona.isNull());
    QVERIFY2(Luci(Icona).second >= 0, "il disegno non lascia segno");
    QCOMPARE(Icona.pixmap(16, 16).size(), QSize(16, 16));
    QVERIFY2(Icona.pixmap(16, 16).cacheKey() == Icona.pixmap(16, 16).cacheKey(),
             "a bar reads no drawing twice");
}

void TestAspetto::ogniDisegnoSeguaLeRegole()
{
    for (const QString& Nome : QDir(u":/icone"_s).entryList()) {
        QFile File(u":/icone/"_s + Nome);
        QVERIFY(File.open(QIODevice::ReadOnly));
        const QByteArray Testo = File.readAll();
        QVERIFY2(Testo.contains("viewBox=\"0 0 24 24\"") && Testo.contains("stroke-width=\"1.5\"") &&
                     Testo.contains("stroke-linecap=\"round\""),
                 qPrintable(Nome));
        QVERIFY2(Testo.count("fill=\"#") <= 1, qPrintable(Nome + u": più di un riempimento"_s));
    }
}

void TestAspetto::leIconeSeguonoLaPalette()
{
    const QPalette Prima = QApplication::palette();
    const auto Rimetti = qScopeGuard([&] { QApplication::setPalette(Prima); });
    const QIcon Icona = aspetto::Icona(u"copia"_s);
    QVERIFY(Luci(Icona).second < 100);
    QApplication::setPalette(PaletteScura());
    QVERIFY2(Luci(Icona).first > 150, "la stessa icona, dopo il cambio");
    QVERIFY2(Luci(Icona, QIcon::Disabled).second < 0, "spenta è trasparente");
}

void TestAspetto::iconaCheNonCE()
{
    QVERIFY(aspetto::Icona(u"nessuna"_s).isNull());
}

void TestAspetto::mnemonici()
{
    QWidget Modulo;
    auto* Disposizione = new QVBoxLayout(&Modulo);
    auto* Campo = new QLineEdit;
    auto* Etichetta = new QLabel(u"Importo:"_s);
    Etichetta->setBuddy(Campo);
    auto* Libera = new QLabel(u"Importo in lettere"_s);
    auto* Primo = new QPushButton(u"Inserisci"_s);
    auto* Secondo = new QPushButton(u"Nuovo calcolo"_s);
    auto* Casella = new QCheckBox(u"èè 5"_s);
    auto* Icona = new QToolButton;
    for (QWidget* Oggetto : QWidgetList{Etichetta, Campo, Libera, Primo, Secondo, Casella, Icona})
        Disposizione->addWidget(Oggetto);
    aspetto::AssegnaMnemonici(&Modulo);
    QCOMPARE(Etichetta->text(), u"&Importo:"_s);
    QCOMPARE(Libera->text(), u"Importo in lettere"_s);
    QCOMPARE(Primo->text(), u"I&nserisci"_s);
    QCOMPARE(Secondo->text(), u"Nuovo &calcolo"_s);
    QCOMPARE(Casella->text(), u"èè &5"_s);
    QVERIFY(Icona->text().isEmpty());
    aspetto::AssegnaMnemonici(&Modulo);
    QVERIFY2(Primo->text() == u"I&nserisci", "la seconda volta non cambia nulla");

    // Around pages no letter is taken that one of them has by hand.
    QWidget Intorno;
    auto* Schede = new QTabWidget(&Intorno);
    auto* Prima = new QPushButton(u"Oggett&i"_s);
    Schede->addTab(Prima, u"Io"_s);
    aspetto::AssegnaMnemonici(&Intorno);
    QCOMPARE(Schede->tabText(0), u"I&o"_s);
    QCOMPARE(Prima->text(), u"Oggett&i"_s);

    // A button with keys of its own keeps them: a letter would be its shortcut in their place.
    QWidget Altro;
    auto* ConTasti = new QPushButton(u"Stampa"_s, &Altro);
    ConTasti->setShortcut(QKeySequence(u"Ctrl+P"_s));
    aspetto::AssegnaMnemonici(&Altro);
    QCOMPARE(ConTasti->text(), u"Stampa"_s);
    QCOMPARE(ConTasti->shortcut(), QKeySequence(u"Ctrl+P"_s));
}

void TestAspetto::mnemoniciGiaDati()
{
    QWidget Modulo;
    auto* Disposizione = new QVBoxLayout(&Modulo);
    auto* Primo = new QPushButton(u"Sfoglia"_s);
    auto* Dato = new QPushButton(u"&Salva"_s);
    Disposizione->addWidget(Primo);
    Disposizione->addWidget(Dato);
    aspetto::AssegnaMnemonici(&Modulo);
    QCOMPARE(Dato->text(), u"&Salva"_s);
    QVERIFY2(Lettera(Primo->text()) == u'f', "una lettera già data, anche più sotto, non si riusa");
}

void TestAspetto::mnemoniciPerPagina()
{
    QWidget Modulo;
    auto* Disposizione = new QVBoxLayout(&Modulo);
    auto* Fuori = new QPushButton(u"Chiudi"_s);
    auto* Linguette = new QTabWidget;
    Disposizione->addWidget(Linguette);
    Disposizione->addWidget(Fuori);
    QList<QPushButton*> Dentro;
    for (const QString& Titolo : {u"Uno"_s, u"Due"_s}) {
        auto* Pagina = new QWidget;
        auto* Pulsante = new QPushButton(u"Copia"_s, Pagina);
        Dentro += Pulsante;
        Linguette->addTab(Pagina, Titolo);
    }
    aspetto::AssegnaMnemonici(&Modulo);
    QCOMPARE(Fuori->text(), u"&Chiudi"_s);
    QCOMPARE(Linguette->tabText(0), u"&Uno"_s);
    QVERIFY2(Lettera(Dentro[0]->text()) == u'o', "c è del pulsante sempre in vista");
    QCOMPARE(Dentro[0]->text(), Dentro[1]->text());
}

void TestAspetto::mnemoniciFinite()
{
    QWidget Modulo;
    auto* Disposizione = new QVBoxLayout(&Modulo);
    QList<QPushButton*> Pulsanti;
    for (int i = 0; i < 3; ++i) {
        Pulsanti += new QPushButton(u"ab"_s);
        Disposizione->addWidget(Pulsanti.last());
    }
    aspetto::AssegnaMnemonici(&Modulo);
    QCOMPARE(Pulsanti[0]->text(), u"&ab"_s);
    QCOMPARE(Pulsanti[1]->text(), u"a&b"_s);
    QCOMPARE(Pulsanti[2]->text(), u"ab"_s);
}

void TestAspetto::nomiAccessibili()
{
    QWidget Modulo;
    auto* Disposizione = new QVBoxLayout(&Modulo);
    auto* Campo = new QLineEdit;
    auto* Etichetta = new QLabel(u"&Valore della causa:"_s);
    Etichetta->setBuddy(Campo);
    auto* Pulsante = new QPushButton(u"&Salva && chiudi"_s);
    auto* Icona = new QToolButton;
    Icona->setToolTip(u"Calcola interessi"_s);
    auto* Cerca = new QLineEdit;
    Cerca->setPlaceholderText(u"Cerca nel catalogo"_s);
    Cerca->setClearButtonEnabled(true);
    auto* Gruppo = new QGroupBox(u" Parcelle multiple: "_s);
    auto* NelGruppo = new QLineEdit(Gruppo);
    auto* Dato = new QLineEdit;
    Dato->setAccessibleName(u"Già dato"_s);
    Dato->setToolTip(u"Altro"_s);
    auto* Scheda = new QWidget;
    auto* Righe = new QFormLayout(Scheda);
    auto* NelModulo = new QLineEdit;
    Righe->addRow(u"Cognome:"_s, NelModulo);
    for (QWidget* Oggetto : QWidgetList{Etichetta, Campo, Pulsante, Icona, Cerca, Gruppo, Dato, Scheda})
        Disposizione->addWidget(Oggetto);
    aspetto::AssegnaNomiAccessibili(&Modulo);
    QCOMPARE(Campo->accessibleName(), u"Valore della causa"_s);
    QCOMPARE(Pulsante->accessibleName(), u"Salva & chiudi"_s);
    QCOMPARE(Icona->accessibleName(), u"Calcola interessi"_s);
    QCOMPARE(Cerca->accessibleName(), u"Cerca nel catalogo"_s);
    QCOMPARE(Cerca->findChild<QToolButton*>()->accessibleName(), u"Svuota la casella"_s);
    QCOMPARE(NelGruppo->accessibleName(), u"Parcelle multiple"_s);
    QCOMPARE(Dato->accessibleName(), u"Già dato"_s);
    QCOMPARE(NelModulo->accessibleName(), u"Cognome"_s);
}

void TestAspetto::nomeDellaGriglia()
{
    QWidget Modulo;
    auto* Disposizione = new QVBoxLayout(&Modulo);
    auto* Righe = new Griglia;
    Righe->setAccessibleName(u"Onorari inseriti"_s);
    Disposizione->addWidget(Righe);
    aspetto::AssegnaNomiAccessibili(&Modulo);
    QCOMPARE(Righe->Vista()->accessibleName(), u"Onorari inseriti"_s);
}

void TestAspetto::postoRicordato()
{
    const QRect Schermo = QGuiApplication::primaryScreen()->availableGeometry();
    QCursor::setPos(Schermo.center());
    QWidget Prima;
    Prima.setGeometry(Schermo.left() + 30, Schermo.top() + 40, 320, 240);
    aspetto::RicordaPosto(&Prima, u"frmProva"_s);
    QCOMPARE(GetSetting(u"KR5"_s, u"Parametri"_s, u"Posto_frmProva"_s),
             u"%1,%2,320,240"_s.arg(Schermo.left() + 30).arg(Schermo.top() + 40));
    QWidget Dopo;
    aspetto::RimettiAlPosto(&Dopo, u"frmProva"_s);
    QCOMPARE(Dopo.geometry(), Prima.geometry());
}

void TestAspetto::soloLUtenteCambiaIlPosto()
{
    const auto Ricordato = [] { return GetSetting(u"KR5"_s, u"Parametri"_s, u"Posto_frmUtente"_s); };
    const QRect Schermo = QGuiApplication::primaryScreen()->availableGeometry();
    QCursor::setPos(Schermo.center());
    QWidget Finestra;
    Finestra.resize(320, 240);
    aspetto::RicordaPostoDi(&Finestra, u"frmUtente"_s);
    aspetto::RicordaPostoDi(&Finestra, u"frmUtente"_s);
    QVERIFY(MostraAttiva(Finestra));
    QTRY_VERIFY(Finestra.isVisible());
    Finestra.hide();
    QVERIFY2(Ricordato().isEmpty(), "nessuno l'ha toccata");

    Finestra.show();
    QVERIFY(QTest::qWaitForWindowExposed(&Finestra));
    Finestra.repaint();
    Finestra.setGeometry(Schermo.left() + 50, Schermo.top() + 60, 400, 300);
    Finestra.close();
    QCOMPARE(Ricordato(), u"%1,%2,400,300"_s.arg(Schermo.left() + 50).arg(Schermo.top() + 60));

    // A screen that has become too small forces it: that is not kept.
    const QString Grande = u"%1,%2,%3,300"_s.arg(Schermo.left()).arg(Schermo.top()).arg(Schermo.width() * 2);
    SaveSetting(u"KR5"_s, u"Parametri"_s, u"Posto_frmUtente"_s, Grande);
    Finestra.show();
    QVERIFY(QTest::qWaitForWindowExposed(&Finestra));
    Finestra.repaint();
    QVERIFY(Finestra.width() <= Schermo.width());
    Finestra.close();
    QCOMPARE(Ricordato(), Grande);
}

void TestAspetto::ilTitoloRestaInVista()
{
    const QRect Schermo = QGuiApplication::primaryScreen()->availableGeometry();
    QCursor::setPos(Schermo.center());
    SaveSetting(u"KR5"_s, u"Parametri"_s, u"Posto_frmTitolo"_s,
                u"%1,%2,300,200"_s.arg(Schermo.left()).arg(Schermo.top()));
    QWidget Finestra;
    aspetto::RimettiAlPosto(&Finestra, u"frmTitolo"_s);
    QVERIFY2(Finestra.y() - Schermo.top() >= 20, "sopra il contenuto c'è il posto per il titolo");
}

void TestAspetto::maiPiuPiccolaDelContenuto()
{
    QWidget Finestra;
    auto* Colonna = new QVBoxLayout(&Finestra);
    auto* Dentro = new QWidget;
    Dentro->setMinimumSize(420, 330);
    Colonna->addWidget(Dentro);
    Finestra.setMinimumSize(100, 80);  // a number of the designer's
    SaveSetting(u"KR5"_s, u"Parametri"_s, u"Posto_frmStretta"_s, u"40,40,150,100"_s);
    aspetto::RimettiAlPosto(&Finestra, u"frmStretta"_s);
    QVERIFY(Finestra.width() >= 420 && Finestra.height() >= 330);
    Finestra.resize(120, 90);
    QVERIFY(Finestra.width() >= 420 && Finestra.height() >= 330);
}

void TestAspetto::laFinestraCresceColCarattere()
{
    const auto Mostrata = [](int Corpo, const QString& Nome, const QSize& Disegnata) {
        QWidget Finestra;
        QFont Suo = Finestra.font();
        Suo.setPointSize(Corpo);
        Finestra.setFont(Suo);
        if (Disegnata.isValid())
            Finestra.resize(Disegnata);
        aspetto::RicordaPostoDi(&Finestra, Nome);
        Finestra.show();
        return Finestra.size();
    };
    const QSize Schermo = QGuiApplication::primaryScreen()->availableGeometry().size();
    QCOMPARE(Mostrata(10, u"frmDieci"_s, {200, 160}), QSize(200, 160));
    QCOMPARE(Mostrata(8, u"frmOtto"_s, {200, 160}), QSize(200, 160));
    QCOMPARE(Mostrata(15, u"frmQuindici"_s, {200, 160}), QSize(300, 240));
    const QSize Grande = Mostrata(15, u"frmLarga"_s, Schermo);
    QVERIFY2(Grande.width() <= Schermo.width() && Grande.height() <= Schermo.height(),
             "non oltre lo schermo");
    SaveSetting(u"KR5"_s, u"Parametri"_s, u"Posto_frmSua"_s, u"40,50,210,170"_s);
    QCOMPARE(Mostrata(15, u"frmSua"_s, {200, 160}), QSize(210, 170));
}

void TestAspetto::postoGuasto_data()
{
    QTest::addColumn<QString>("Ricordato");
    QTest::newRow("mai ricordato") << u""_s;
    QTest::newRow("parole") << u"a,b,c,d"_s;
    QTest::newRow("pochi numeri") << u"1,2,3"_s;
    QTest::newRow("senza misura") << u"1,2,0,0"_s;
    QTest::newRow("su uno schermo che non c'è più") << u"90000,90000,300,200"_s;
    QTest::newRow("oltre ogni schermo") << u"1000001,40,280,190"_s;
    QTest::newRow("oltre ogni schermo, dall'altra parte") << u"40,-1000001,280,190"_s;
    QTest::newRow("oltre ogni numero") << u"2147483647,2147483647,280,190"_s;
}

void TestAspetto::postoGuasto()
{
    QFETCH(QString, Ricordato);
    SaveSetting(u"KR5"_s, u"Parametri"_s, u"Posto_frmGuasta"_s, Ricordato);
    const QRect Schermo = QGuiApplication::primaryScreen()->availableGeometry();
    QCursor::setPos(Schermo.center());
    QWidget Finestra;
    Finestra.resize(300, 200);
    aspetto::RimettiAlPosto(&Finestra, u"frmGuasta"_s);
    QCOMPARE(Finestra.size(), QSize(300, 200));
    QVERIFY2(Schermo.contains(Finestra.geometry()), "sullo schermo, intera");
    // In the middle, the title bar counted.
    QVERIFY((Finestra.geometry().center() - Schermo.center()).manhattanLength() <= 20);
}

void TestAspetto::finestraPiuGrandeDelloSchermo()
{
    const QRect Schermo = QGuiApplication::primaryScreen()->availableGeometry();
    QCursor::setPos(Schermo.center());
    SaveSetting(u"KR5"_s, u"Parametri"_s, u"Posto_frmGrande"_s,
                u"0,0,%1,%2"_s.arg(Schermo.width() * 2).arg(50));
    QWidget Finestra;
    aspetto::RimettiAlPosto(&Finestra, u"frmGrande"_s);
    QVERIFY2(Finestra.width() <= Schermo.width() && Finestra.width() > Schermo.width() - 20,
             "resta il bordo");
    QVERIFY(Schermo.contains(Finestra.geometry()));
}

void TestAspetto::finestraMassimizzata()
{
    const QRect Schermo = QGuiApplication::primaryScreen()->availableGeometry();
    QWidget Finestra;
    Finestra.setGeometry(Schermo.left() + 20, Schermo.top() + 20, 310, 210);
    Finestra.show();
    Finestra.showMaximized();
    QTRY_VERIFY(Finestra.isMaximized());
    aspetto::RicordaPosto(&Finestra, u"frmMassima"_s);
    QWidget Dopo;
    aspetto::RimettiAlPosto(&Dopo, u"frmMassima"_s);
    QVERIFY(Dopo.windowState().testFlag(Qt::WindowMaximized));
    QVERIFY(GetSetting(u"KR5"_s, u"Parametri"_s, u"Posto_frmMassima"_s).contains(u",310,210,max"_s));
}

#include "TestAspetto.moc"
