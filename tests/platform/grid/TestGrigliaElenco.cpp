// A grid that only lists: pictures, the tool tips of rows, letters that seek.
#include "platform/grid/griglia.h"
#include "supporto/finestre.h"
#include "supporto/prova.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QPixmap>
#include <QSignalSpy>
#include <QTableView>
#include <QToolTip>

#include <memory>

using namespace Qt::StringLiterals;

class TestGrigliaElenco : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void leLettereCercano();
    void leLettereDopoUnaPausaComincianoDaCapo();
    void senzaRicercaLeLettereNonSonoDiNessuno();
    void loSpazioNonComincia();
    void lImmagineStaDavanti();
    void ilSuggerimentoDellaRiga();
    void ilSegnoDellaCella();
    void ilSegnoSiDipinge_data();
    void ilSegnoSiDipinge();
    void invioSenzaChiLoAscolti();
    void invioPerConto();
    void laLarghezzaInPixel();

private:
    [[nodiscard]] QPoint Centro(int Riga, int Colonna) const
    {
        const QTableView* Vista = G->Vista();
        return Vista->visualRect(Vista->model()->index(Riga, Colonna)).center();
    }
    void ChiediSuggerimento(int Riga, int Colonna) const
    {
        QWidget* Sotto = G->Vista()->viewport();
        const QPoint Dove = Centro(Riga, Colonna);
        QHelpEvent Evento(QEvent::ToolTip, Dove, Sotto->mapToGlobal(Dove));
        QApplication::sendEvent(Sotto, &Evento);
    }

    TabellaRighe Righe{2};
    std::unique_ptr<Griglia> G;
    QStringList Cercate;
};
PROVA(TestGrigliaElenco);

void TestGrigliaElenco::init()
{
    Righe.Azzera(2);
    for (const QString& Nome : {u"alfa"_s, u"beta"_s, u"gamma"_s}) {
        const int Riga = Righe.AggiungiRiga();
        Righe(Riga, 0) = Nome;
        Righe(Riga, 1) = QString(200, u'x');
    }
    G = std::make_unique<Griglia>();
    QList<ColonnaGriglia> Colonne(2);
    Colonne[0].Titolo = u"Nome"_s;
    Colonne[1].Titolo = u"Testo"_s;
    Colonne[1].Campo = 1;
    G->ImpostaColonne(Colonne);
    G->Lega(&Righe);
    G->resize(400, 300);
    QVERIFY(MostraAttiva(*G));
    G->setFocus();
    Cercate.clear();
    G->CercaLettere = [this](const QString& Lettere) { Cercate += Lettere; };
}

void TestGrigliaElenco::cleanup()
{
    QToolTip::hideText();
    G.reset();
}

void TestGrigliaElenco::leLettereCercano()
{
    Digita(u"bè 1"_s);
    QCOMPARE(Cercate, (QStringList{u"b"_s, u"bè"_s, u"bè "_s, u"bè 1"_s}));
    QInputMethodEvent Composta;
    Composta.setCommitString(u"ö"_s);
    QApplication::sendEvent(G->Vista(), &Composta);
    QCOMPARE(Cercate.last(), u"bè 1ö"_s);
}

void TestGrigliaElenco::leLettereDopoUnaPausaComincianoDaCapo()
{
    const int Prima = QApplication::keyboardInputInterval();
    QApplication::setKeyboardInputInterval(20);
    Digita(u"b"_s);
    QTest::qWait(60);
    Digita(u"g"_s);
    QApplication::setKeyboardInputInterval(Prima);
    QCOMPARE(Cercate, (QStringList{u"b"_s, u"g"_s}));
}

void TestGrigliaElenco::senzaRicercaLeLettereNonSonoDiNessuno()
{
    G->CercaLettere = {};
    Digita(u"g"_s);
    QCOMPARE(G->RigaCorrente(), 0);
    QVERIFY(!G->InModifica());
}

void TestGrigliaElenco::loSpazioNonComincia()
{
    Premi(Qt::Key_Space);
    QCOMPARE(Cercate, QStringList());
}

void TestGrigliaElenco::lImmagineStaDavanti()
{
    const QImage Senza = G->Vista()->viewport()->grab().toImage();
    QPixmap Rossa(16, 16);
    Rossa.fill(Qt::red);
    QList<ColonnaGriglia> Colonne(2);
    Colonne[0].Caratteri = 20;
    Colonne[0].Immagine = [Rossa](int Riga) { return Riga == 1 ? QIcon(Rossa) : QIcon(); };
    Colonne[1].Campo = 1;
    G->ImpostaColonne(Colonne);
    const QImage Con = G->Vista()->viewport()->grab().toImage();
    const auto Rossi = [&](int Riga) {
        const QRect Dove = G->Vista()->visualRect(G->Vista()->model()->index(Riga, 0));
        int Quanti = 0;
        for (int X = Dove.left(); X < Dove.left() + 30; ++X)
            Quanti += Con.pixelColor(X, Dove.center().y()) == QColor(Qt::red);
        return Quanti;
    };
    QVERIFY(Senza.pixelColor(10, Centro(1, 0).y()) != QColor(Qt::red));
    QCOMPARE(Rossi(1), 16);
    QCOMPARE(Rossi(0), 0);
}

void TestGrigliaElenco::ilSuggerimentoDellaRiga()
{
    G->Suggerimento = [](int Riga) { return Riga == 1 ? u"/note/beta.mdb <1>"_s : QString(); };
    ChiediSuggerimento(1, 0);
    QTRY_VERIFY(QToolTip::text().contains(u"/note/beta.mdb <1>"));
    ChiediSuggerimento(0, 1);
    QTRY_VERIFY2(QToolTip::text().contains(u"xxxx"), "a text that does not fit");
    ChiediSuggerimento(0, 0);
    QTRY_VERIFY(!QToolTip::isVisible() || QToolTip::text().isEmpty());
}

/// It comes before what the row says, and is read out; where there is none nothing changes.
void TestGrigliaElenco::ilSegnoDellaCella()
{
    QList<ColonnaGriglia> Colonne = G->Colonne();
    Colonne[0].Segno = [](int Riga) { return Riga == 1 ? u"oltre <il massimo>"_s : QString(); };
    G->ImpostaColonne(Colonne);
    G->Suggerimento = [](int Riga) { return u"riga %1"_s.arg(Riga); };
    ChiediSuggerimento(1, 0);
    QTRY_VERIFY(QToolTip::text().contains(u"oltre <il massimo>"));
    ChiediSuggerimento(1, 1);
    QTRY_VERIFY(QToolTip::text().contains(u"riga 1"));
    ChiediSuggerimento(0, 0);
    QTRY_VERIFY(QToolTip::text().contains(u"riga 0"));
    const QAbstractItemModel* Modello = G->Vista()->model();
    const auto Letto = [&](int Riga, int Colonna) {
        return Modello->index(Riga, Colonna).data(Qt::AccessibleDescriptionRole).toString();
    };
    QCOMPARE(Letto(1, 0), u"oltre <il massimo>"_s);
    QCOMPARE(Letto(1, 1), QString());
    QCOMPARE(Letto(0, 0), QString());
    // A row that has gone from the table is asked nothing.
    G->ConsentiNuove(true);
    Righe.EliminaRiga(2);
    Righe.EliminaRiga(1);
    QCOMPARE(Letto(1, 0), QString());
    G->Rilega();
    QCOMPARE(Letto(1, 0), QString());
}

void TestGrigliaElenco::ilSegnoSiDipinge_data()
{
    QTest::addColumn<bool>("Scelta");
    QTest::newRow("riga comune") << false;
    QTest::newRow("riga scelta") << true;
}

/// Colour and sign: the cell is painted otherwise than its neighbour of the same text.
void TestGrigliaElenco::ilSegnoSiDipinge()
{
    QFETCH(const bool, Scelta);
    Righe(0, 0) = Righe(2, 0) = u"9"_s;
    QList<ColonnaGriglia> Colonne = G->Colonne();
    Colonne[0].Allinea = Qt::AlignRight;
    Colonne[0].Segno = [](int Riga) { return Riga == 2 ? u"oltre"_s : QString(); };
    G->ImpostaColonne(Colonne);
    G->ImpostaRigaCorrente(1);
    if (Scelta)
        for (const int Riga : {0, 2})
            G->Seleziona(Riga);
    const auto Cella = [this](int Riga) {
        const QTableView* Vista = G->Vista();
        const QRect Dove = Vista->visualRect(Vista->model()->index(Riga, 0));
        return Vista->viewport()->grab(Dove).toImage();
    };
    const QImage Comune = Cella(0);
    const QImage Segnata = Cella(2);
    QVERIFY(Comune.size() == Segnata.size() && Comune != Segnata);
    // The sign stands at the free end of the cell: there the common one is empty.
    const QRect Capo(0, 0, Comune.width() / 4, Comune.height() - 2);
    const auto Colori = [](const QImage& Parte) {
        QSet<QRgb> Tutti;
        for (int Y = 0; Y < Parte.height(); ++Y)
            for (int X = 0; X < Parte.width(); ++X)
                Tutti.insert(Parte.pixel(X, Y));
        return Tutti.size();
    };
    QCOMPARE(Colori(Comune.copy(Capo)), 1);
    QVERIFY(Colori(Segnata.copy(Capo)) > 1);
}

void TestGrigliaElenco::invioSenzaChiLoAscolti()
{
    QSignalSpy Doppi(G.get(), &Griglia::DoppioClic);
    Premi(Qt::Key_Return);
    QCOMPARE(Doppi.count(), 1);
}

void TestGrigliaElenco::invioPerConto()
{
    QSignalSpy Doppi(G.get(), &Griglia::DoppioClic);
    QSignalSpy Invii(G.get(), &Griglia::Invio);
    G->ImpostaRigaCorrente(1);
    Premi(Qt::Key_Return);
    Premi(Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(Doppi.count(), 0);
    QCOMPARE(Invii.count(), 2);
    QCOMPARE(Invii.at(1).at(0).toInt(), 1);
    QTest::mouseClick(G->Vista()->viewport(), Qt::LeftButton, Qt::NoModifier, Centro(1, 0));
    QTest::mouseDClick(G->Vista()->viewport(), Qt::LeftButton, Qt::NoModifier, Centro(1, 0));
    QCOMPARE(Doppi.count(), 1);
    QCOMPARE(Invii.count(), 2);
}

/// In the place of the characters; a title is read whole all the same.
void TestGrigliaElenco::laLarghezzaInPixel()
{
    QList<ColonnaGriglia> Colonne = G->Colonne();
    QCOMPARE(Colonne.size(), 2);
    QCOMPARE(Colonne[1].Titolo, u"Testo"_s);
    Colonne[0].Larghezza = 133;
    Colonne[1].Larghezza = 20;
    Colonne[1].Titolo = u"Un titolo assai lungo"_s;
    G->ImpostaColonne(Colonne);
    QCOMPARE(G->Vista()->columnWidth(0), 133);
    QVERIFY(G->Vista()->columnWidth(1) >
            G->Vista()->horizontalHeader()->fontMetrics().horizontalAdvance(Colonne[1].Titolo));
}

#include "TestGrigliaElenco.moc"
