// The month calendar: days told apart, walked over with the keys, picked with either hand.
#include "platform/calendar/calendario.h"
#include "platform/kit/aspetto.h"
#include "platform/system/orologio.h"
#include "supporto/finestre.h"
#include "supporto/prova.h"

#include <QApplication>
#include <QHelpEvent>
#include <QImage>
#include <QLabel>
#include <QLocale>
#include <QSignalSpy>
#include <QToolButton>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <map>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QDate Adesso2012(2012, 7, 18);

QWidget* Mese(const CalendarioMensile& C)
{
    return C.findChild<QWidget*>(u"mese"_s);
}

QString Titolo(const CalendarioMensile& C)
{
    return C.findChild<QLabel*>(u"lblMese"_s)->text();
}

/// Where a day stands for a mouse over the grid.
QPoint Centro(const CalendarioMensile& C, const QDate& Giorno)
{
    return Mese(C)->mapFrom(&C, C.Riquadro(Giorno).center());
}

/// The colour of a day's ground, near a corner, where no number is.
QColor Fondo(const CalendarioMensile& C, const QDate& Giorno)
{
    // The strokes of the suspension cross some of the points: the commonest one counts.
    const QImage Foto = const_cast<CalendarioMensile&>(C).grab().toImage();
    const QRect Dove = C.Riquadro(Giorno).adjusted(1, 1, -1, -1);
    std::map<QRgb, int> Volte;
    for (int x = Dove.left(); x <= Dove.right(); ++x)
        for (int y = Dove.top(); y <= Dove.bottom(); ++y)
            ++Volte[Foto.pixel(x, y)];
    return QColor(std::max_element(Volte.begin(), Volte.end(), [](const auto& A, const auto& B) {
                      return A.second < B.second;
                  })->first);
}

bool HaColore(const CalendarioMensile& C, const QDate& Giorno, const QColor& Cercato)
{
    const QImage Foto = const_cast<CalendarioMensile&>(C).grab().toImage();
    const QRect Dove = C.Riquadro(Giorno);
    for (int x = Dove.left(); x <= Dove.right(); ++x)
        for (int y = Dove.top(); y <= Dove.bottom(); ++y)
            if (Foto.pixelColor(x, y) == Cercato)
                return true;
    return false;
}

}  // namespace

class TestCalendario : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void cominciaDaOggi();
    void nomiItalianiConOgniLingua();
    void tasti_data();
    void tasti();
    void invioESpazioScelgono();
    void ilCodiceNonSceglie();
    void siSceglieConIlMouse();
    void trascinareNonSceglie();
    void ilTastoDestroNonSceglie();
    void fuoriDaiGiorniNonSceglie();
    void frecceDellaTestata();
    void laRotellaGiraIMesi();
    void fineDelCalendario();
    void dataInvalida();
    void ogniGiornoHaLaSuaCasella();
    void regoleEAspetto();
    void coloriDiversi();
    void segnaInizioEScadenza();
    void leRegolePossonoCambiare();
    void suggerimento();
    void nomeParlato();
    void ogniControlloHaUnNome();
    void laLegendaDiceTutto();
    void segniPropri();
    void segniConScadenzaESospensione();
    void segniToltiDallaLegenda();
    void scuro();

private:
    std::unique_ptr<CalendarioMensile> C;
};
PROVA(TestCalendario);

void TestCalendario::init()
{
    InstallaOrologio([] { return QDateTime(Adesso2012, QTime(10, 0)); });
    C = std::make_unique<CalendarioMensile>();
    C->resize(C->sizeHint());
    QVERIFY(MostraAttiva(*C));
    C->setFocus();
}

void TestCalendario::cleanup()
{
    C.reset();
    InstallaOrologio({});
}

void TestCalendario::cominciaDaOggi()
{
    QCOMPARE(C->Data(), Adesso2012);
    QCOMPARE(Titolo(*C), u"luglio 2012"_s);
    QVERIFY(C->Aspetto(Adesso2012).Oggi);
}

void TestCalendario::nomiItalianiConOgniLingua()
{
    const QLocale Prima;
    QLocale::setDefault(QLocale(QLocale::German));
    C->ImpostaData(QDate(2013, 12, 4));
    QCOMPARE(Titolo(*C), u"dicembre 2013"_s);
    QCOMPARE(C->Descrizione(QDate(2013, 12, 4)), u"mercoledì 4 dicembre 2013"_s);
    QLocale::setDefault(Prima);
}

void TestCalendario::tasti_data()
{
    QTest::addColumn<int>("Tasto");
    QTest::addColumn<bool>("Ctrl");
    QTest::addColumn<QDate>("Dopo");
    QTest::newRow("giorno prima") << int(Qt::Key_Left) << false << QDate(2012, 2, 28);
    QTest::newRow("giorno dopo, nel mese che segue") << int(Qt::Key_Right) << false << QDate(2012, 3, 1);
    QTest::newRow("settimana prima") << int(Qt::Key_Up) << false << QDate(2012, 2, 22);
    QTest::newRow("settimana dopo") << int(Qt::Key_Down) << false << QDate(2012, 3, 7);
    QTest::newRow("mese prima") << int(Qt::Key_PageUp) << false << QDate(2012, 1, 29);
    QTest::newRow("mese dopo") << int(Qt::Key_PageDown) << false << QDate(2012, 3, 29);
    QTest::newRow("anno prima, senza il 29") << int(Qt::Key_PageUp) << true << QDate(2011, 2, 28);
    QTest::newRow("anno dopo") << int(Qt::Key_PageDown) << true << QDate(2013, 2, 28);
    QTest::newRow("primo del mese") << int(Qt::Key_Home) << false << QDate(2012, 2, 1);
    QTest::newRow("ultimo del mese") << int(Qt::Key_End) << false << QDate(2012, 2, 29);
}

void TestCalendario::tasti()
{
    QFETCH(int, Tasto);
    QFETCH(bool, Ctrl);
    QFETCH(QDate, Dopo);
    QSignalSpy Scelte(C.get(), &CalendarioMensile::DataScelta);
    C->ImpostaData(QDate(2012, 2, 29));
    Premi(Qt::Key(Tasto), Ctrl ? Qt::ControlModifier : Qt::NoModifier);
    QCOMPARE(C->Data(), Dopo);
    QVERIFY(!C->Riquadro(Dopo).isEmpty());
    QVERIFY2(Scelte.isEmpty(), "walking picks nothing");
}

void TestCalendario::invioESpazioScelgono()
{
    QSignalSpy Scelte(C.get(), &CalendarioMensile::DataScelta);
    for (const Qt::Key Tasto : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        Premi(Tasto);
        QCOMPARE(Scelte.size(), 1);
        QCOMPARE(Scelte.takeFirst().at(0).toDate(), Adesso2012);
    }
}

void TestCalendario::ilCodiceNonSceglie()
{
    QSignalSpy Scelte(C.get(), &CalendarioMensile::DataScelta);
    C->ImpostaData(QDate(2020, 1, 1));
    QCOMPARE(C->Data(), QDate(2020, 1, 1));
    QVERIFY(Scelte.isEmpty());
}

void TestCalendario::siSceglieConIlMouse()
{
    QSignalSpy Scelte(C.get(), &CalendarioMensile::DataScelta);
    const QDate Giorno(2012, 7, 31);
    QTest::mouseClick(Mese(*C), Qt::LeftButton, {}, Centro(*C, Giorno));
    QCOMPARE(Scelte.size(), 1);
    QCOMPARE(Scelte.first().at(0).toDate(), Giorno);
    QCOMPARE(C->Data(), Giorno);
}

void TestCalendario::trascinareNonSceglie()
{
    QSignalSpy Scelte(C.get(), &CalendarioMensile::DataScelta);
    QTest::mousePress(Mese(*C), Qt::LeftButton, {}, Centro(*C, QDate(2012, 7, 10)));
    QTest::mouseRelease(Mese(*C), Qt::LeftButton, {}, Centro(*C, QDate(2012, 7, 20)));
    QVERIFY(Scelte.isEmpty());
}

void TestCalendario::ilTastoDestroNonSceglie()
{
    QSignalSpy Scelte(C.get(), &CalendarioMensile::DataScelta);
    QTest::mouseClick(Mese(*C), Qt::RightButton, {}, Centro(*C, QDate(2012, 7, 10)));
    QVERIFY(Scelte.isEmpty());
    QCOMPARE(C->Data(), Adesso2012);
}

void TestCalendario::fuoriDaiGiorniNonSceglie()
{
    QSignalSpy Scelte(C.get(), &CalendarioMensile::DataScelta);
    QTest::mouseClick(Mese(*C), Qt::LeftButton, {}, QPoint(3, 3));  // the names of the days
    // The first of July 2012 is a Sunday: the six places before it are empty.
    QTest::mouseClick(Mese(*C), Qt::LeftButton, {},
                      Centro(*C, QDate(2012, 7, 1)) - QPoint(C->Riquadro(QDate(2012, 7, 1)).width(), 0));
    QVERIFY(Scelte.isEmpty());
    QCOMPARE(C->Data(), Adesso2012);
}

void TestCalendario::frecceDellaTestata()
{
    const auto Premuta = [this](const QString& Nome) {
        QTest::mouseClick(C->findChild<QToolButton*>(Nome), Qt::LeftButton);
        return C->Data();
    };
    QCOMPARE(Premuta(u"cmdAnnoPrima"_s), QDate(2011, 7, 18));
    QCOMPARE(Premuta(u"cmdMesePrima"_s), QDate(2011, 6, 18));
    QCOMPARE(Premuta(u"cmdMeseDopo"_s), QDate(2011, 7, 18));
    QCOMPARE(Premuta(u"cmdAnnoDopo"_s), Adesso2012);
    QVERIFY2(Mese(*C)->hasFocus(), "the buttons leave the focus with the days");
}

void TestCalendario::laRotellaGiraIMesi()
{
    const auto Gira = [this](int Angolo) {
        QWheelEvent Evento(QPointF(20, 20), C->mapToGlobal(QPointF(20, 20)), {}, QPoint(0, Angolo), {}, {},
                           Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(C.get(), &Evento);
    };
    Gira(-120);
    QCOMPARE(Titolo(*C), u"agosto 2012"_s);
    Gira(240);
    QCOMPARE(Titolo(*C), u"giugno 2012"_s);
    // A touchpad sends a notch in pieces.
    for (int i = 0; i < 4; ++i)
        Gira(-30);
    QCOMPARE(Titolo(*C), u"luglio 2012"_s);
}

void TestCalendario::fineDelCalendario()
{
    C->ImpostaData(QDate(9999, 12, 31));
    Premi(Qt::Key_Right);
    Premi(Qt::Key_PageDown);
    QCOMPARE(C->Data(), QDate(9999, 12, 31));
    C->ImpostaData(QDate(100, 1, 15));
    Premi(Qt::Key_PageUp, Qt::ControlModifier);
    QCOMPARE(C->Data(), QDate(100, 1, 1));
    QCOMPARE(Titolo(*C), u"gennaio 100"_s);
}

void TestCalendario::dataInvalida()
{
    C->ImpostaData(QDate());
    QCOMPARE(C->Data(), Adesso2012);
}

void TestCalendario::ogniGiornoHaLaSuaCasella()
{
    // July 2012 begins on a Sunday and touches six weeks.
    for (int i = 1; i <= 31; ++i) {
        const QRect Una = C->Riquadro(QDate(2012, 7, i));
        QVERIFY(C->rect().contains(Una));
        for (int k = 1; k < i; ++k)
            QVERIFY(!Una.intersects(C->Riquadro(QDate(2012, 7, k))));
    }
    QVERIFY(C->Riquadro(QDate(2012, 8, 1)).isEmpty());
    QCOMPARE(C->Riquadro(QDate(2012, 7, 8)).left(), C->Riquadro(QDate(2012, 7, 1)).left());
}

void TestCalendario::regoleEAspetto()
{
    const QDate Ferragosto(2012, 8, 15);
    QCOMPARE(C->Aspetto(Ferragosto), AspettoGiorno());
    C->ImpostaRegole(
        {[=](const QDate& D) { return D == Ferragosto; }, [](const QDate& D) { return D.month() == 8; }});
    C->Segna(QDate(2012, 8, 12), {QDate(2012, 8, 16)});
    QCOMPARE(C->Aspetto(Ferragosto), (AspettoGiorno{.Festivo = true, .Sospeso = true}));
    QCOMPARE(C->Aspetto(QDate(2012, 8, 12)),
             (AspettoGiorno{.Domenica = true, .Sospeso = true, .Inizio = true}));
    QCOMPARE(C->Aspetto(QDate(2012, 8, 16)), (AspettoGiorno{.Sospeso = true, .Scadenza = true}));
    QCOMPARE(C->Aspetto(QDate(2012, 9, 3)), AspettoGiorno());
}

void TestCalendario::coloriDiversi()
{
    C->ImpostaData(QDate(2012, 8, 1));
    C->ImpostaRegole(
        {[](const QDate& D) { return D.day() == 15; }, [](const QDate& D) { return D.day() >= 27; }});
    C->Segna({}, {QDate(2012, 8, 22)});
    const QColor Semplice = Fondo(*C, QDate(2012, 8, 7));
    const QColor Festivo = Fondo(*C, QDate(2012, 8, 15));
    const QColor Sospeso = Fondo(*C, QDate(2012, 8, 28));
    const QColor Scadenza = Fondo(*C, QDate(2012, 8, 22));
    QCOMPARE(Semplice, C->palette().color(QPalette::Base));
    QCOMPARE(Scadenza, aspetto::Accento());
    QVERIFY(Festivo != Semplice && Sospeso != Semplice && Festivo != Sospeso && Scadenza != Festivo);
    QVERIFY(!HaColore(*C, QDate(2012, 8, 7), aspetto::Sbagliato()));
    QVERIFY2(HaColore(*C, QDate(2012, 8, 5), aspetto::Sbagliato()), "a Sunday's number");
}

void TestCalendario::segnaInizioEScadenza()
{
    const QDate Inizio(2012, 7, 3);
    const QDate Fine(2012, 7, 24);
    C->Segna(Inizio, {Fine});
    QVERIFY(HaColore(*C, Inizio, aspetto::Accento()));
    QCOMPARE(Fondo(*C, Inizio), C->palette().color(QPalette::Base));
    QCOMPARE(Fondo(*C, Fine), aspetto::Accento());
    C->Segna({}, {});
    QVERIFY(!HaColore(*C, Inizio, aspetto::Accento()));
    QVERIFY(!HaColore(*C, Fine, aspetto::Accento()));
}

void TestCalendario::leRegolePossonoCambiare()
{
    bool Con = false;
    C->ImpostaRegole({{}, [&](const QDate&) { return Con; }});
    const QColor Prima = Fondo(*C, QDate(2012, 7, 11));
    Con = true;
    C->Ridisegna();
    QVERIFY(Fondo(*C, QDate(2012, 7, 11)) != Prima);
}

void TestCalendario::suggerimento()
{
    const QPoint Dove = Centro(*C, QDate(2012, 7, 29));
    QHelpEvent Evento(QEvent::ToolTip, Dove, Mese(*C)->mapToGlobal(Dove));
    QCoreApplication::sendEvent(Mese(*C), &Evento);
    QCOMPARE(QToolTip::text(), u"domenica 29 luglio 2012"_s);
    QToolTip::hideText();
}

void TestCalendario::nomeParlato()
{
    C->ImpostaRegole({[](const QDate&) { return true; }, [](const QDate&) { return true; }});
    C->ImpostaNomeInizio(u"Udienza"_s);
    C->Segna(Adesso2012, {Adesso2012});
    QCOMPARE(C->Descrizione(Adesso2012),
             u"mercoledì 18 luglio 2012, oggi, festivo, sospensione feriale, udienza, scadenza"_s);
    Premi(Qt::Key_Right);
    QCOMPARE(Mese(*C)->accessibleName(),
             u"Calendario, giovedì 19 luglio 2012, festivo, sospensione feriale"_s);
}

void TestCalendario::ogniControlloHaUnNome()
{
    int Visti = 0;
    for (const QWidget* Uno : C->findChildren<QWidget*>()) {
        if (!qobject_cast<const QToolButton*>(Uno) && Uno->focusPolicy() == Qt::NoFocus)
            continue;
        ++Visti;
        QVERIFY2(!Uno->accessibleName().isEmpty(), qPrintable(Uno->objectName()));
    }
    QCOMPARE(Visti, 5);
}

void TestCalendario::laLegendaDiceTutto()
{
    QStringList Voci;
    for (const QLabel* Una : C->findChildren<QLabel*>())
        if (Una->objectName() != u"lblMese")
            Voci << Una->text();
    Voci.sort();
    QCOMPARE(Voci, (QStringList{u"Decorrenza"_s, u"Domenica"_s, u"Festivo"_s, u"Oggi"_s, u"Scadenza"_s,
                                u"Sospensione feriale"_s}));
    const int Alto = C->sizeHint().height();
    C->MostraLegenda(false);
    for (const QLabel* Una : C->findChildren<QLabel*>())
        QCOMPARE(Una->isVisibleTo(C.get()), Una->objectName() == u"lblMese");
    QVERIFY(C->sizeHint().height() < Alto);
}

namespace {

const SegnoCalendario Contati{u"Giorni contati"_s, u'c', QColor(0x1F, 0x4E, 0x79)};
const SegnoCalendario Recuperati{u"Giorni recuperati"_s, u'r', QColor(0x6A, 0x3D, 0x9A)};

/// The first two weeks of July are counted, the third is made up.
int Quale(const QDate& Giorno)
{
    return Giorno.day() <= 14 ? 0 : Giorno.day() <= 21 ? 1 : Giorno.day() == 31 ? 9 : -1;
}

QStringList VociLegenda(const CalendarioMensile& C)
{
    QStringList Voci;
    for (const QLabel* Una : C.findChildren<QLabel*>())
        if (Una->objectName() != u"lblMese")
            Voci << Una->text();
    return Voci;
}

}  // namespace

void TestCalendario::segniPropri()
{
    const QDate Semplice(2012, 7, 24);
    const QColor Prima = Fondo(*C, Semplice);
    C->ImpostaSegni({Contati, Recuperati}, Quale);
    QCOMPARE(C->Aspetto(QDate(2012, 7, 14)).Segno, std::optional(Contati));
    QCOMPARE(C->Aspetto(QDate(2012, 7, 16)).Segno, std::optional(Recuperati));
    QCOMPARE(C->Aspetto(Semplice).Segno, std::nullopt);
    // A number that the list does not have is no kind.
    QCOMPARE(C->Aspetto(QDate(2012, 7, 31)).Segno, std::nullopt);
    QCOMPARE(C->Descrizione(QDate(2012, 7, 16)), u"lunedì 16 luglio 2012, giorni recuperati"_s);
    const QColor Uno = Fondo(*C, QDate(2012, 7, 11));
    const QColor Due = Fondo(*C, QDate(2012, 7, 19));
    QVERIFY(Uno != Prima && Due != Prima && Uno != Due);
    QCOMPARE(Fondo(*C, Semplice), Prima);
    QVERIFY(VociLegenda(*C).contains(Contati.Nome) && VociLegenda(*C).contains(Recuperati.Nome));
}

// The colour is not the only sign: the letter is painted too.
void TestCalendario::segniConScadenzaESospensione()
{
    const QDate Giorno(2012, 7, 11);
    SegnoCalendario Muto = Contati;
    Muto.Lettera = u' ';
    C->ImpostaSegni({Muto}, Quale);
    const QImage Senza = C->grab(C->Riquadro(Giorno)).toImage();
    C->ImpostaSegni({Contati}, Quale);
    QVERIFY(C->grab(C->Riquadro(Giorno)).toImage() != Senza);
    C->ImpostaRegole({{}, [](const QDate&) { return true; }});
    C->Segna(QDate(2012, 7, 10), {Giorno});
    QCOMPARE(C->Aspetto(Giorno),
             (AspettoGiorno{.Sospeso = true, .Scadenza = true, .Segno = std::optional(Contati)}));
    QCOMPARE(Fondo(*C, Giorno), aspetto::Accento());
}

void TestCalendario::segniToltiDallaLegenda()
{
    const QStringList Prima = VociLegenda(*C);
    const int Alto = C->sizeHint().height();
    C->ImpostaSegni({Contati, Recuperati}, Quale);
    QCOMPARE(VociLegenda(*C).size(), Prima.size() + 2);
    QVERIFY(C->sizeHint().height() > Alto);
    C->ImpostaSegni({Recuperati}, Quale);
    QCOMPARE(VociLegenda(*C), Prima + QStringList{Recuperati.Nome});
    C->ImpostaSegni({}, {});
    QCOMPARE(VociLegenda(*C), Prima);
    QCOMPARE(C->Aspetto(QDate(2012, 7, 14)).Segno, std::nullopt);
}

void TestCalendario::scuro()
{
    const QPalette Chiara = QApplication::palette();
    QPalette Scura(QColor(60, 60, 64), QColor(45, 45, 48));
    QApplication::setPalette(Scura);
    Respiro();
    QVERIFY(aspetto::Scuro());
    C->Segna({}, {QDate(2012, 7, 24)});
    QCOMPARE(Fondo(*C, QDate(2012, 7, 24)), aspetto::Accento());
    QCOMPARE(Fondo(*C, QDate(2012, 7, 17)), Scura.color(QPalette::Base));
    QApplication::setPalette(Chiara);
}

#include "TestCalendario.moc"
