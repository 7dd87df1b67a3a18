// Rows of a grid as a whole: selection, dragging, footer, widths, many rows, recordsets.
#include "platform/base/regionale.h"
#include "platform/database/database.h"
#include "platform/grid/griglia.h"
#include "platform/grid/griglia_pie.h"
#include "platform/kit/aspetto.h"
#include "supporto/finestre.h"
#include "supporto/prova.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableView>
#include <QVBoxLayout>

#include <functional>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(std::function<void(TabellaRighe&)>)

namespace {

QList<ColonnaGriglia> TreColonne()
{
    QList<ColonnaGriglia> Colonne(3);
    const QStringList Titoli{u"Voce"_s, u"Descrizione"_s, u"Importo"_s};
    for (int i = 0; i < Colonne.size(); ++i) {
        Colonne[i].Titolo = Titoli[i];
        Colonne[i].Campo = i;
        Colonne[i].NomeCampo = Titoli[i];
    }
    Colonne[1].Stira = true;
    Colonne[1].Caratteri = 20;
    Colonne[2].Allinea = Qt::AlignRight;
    return Colonne;
}

struct Finestra : QWidget
{
    explicit Finestra(int Quante = 6) : Righe(3), Griglia_(new Griglia(this))
    {
        for (int i = 0; i < Quante; ++i)
            Righe(Righe.AggiungiRiga(), 0) = i;
        auto* Disposizione = new QVBoxLayout(this);
        Disposizione->addWidget(Griglia_);
        Griglia_->ImpostaColonne(TreColonne());
        Griglia_->Lega(&Righe);
        resize(500, 320);
    }

    [[nodiscard]] QTableView* Vista() const { return Griglia_->Vista(); }
    [[nodiscard]] QWidget* Selettore() const { return Vista()->verticalHeader()->viewport(); }
    [[nodiscard]] QPoint SuRiga(int Riga, double Parte = 0.5) const
    {
        const QRect Cella = Vista()->visualRect(Vista()->model()->index(Riga, 0));
        return {8, Cella.top() + int(Cella.height() * Parte)};
    }
    void Clic(int Riga, Qt::KeyboardModifiers Modificatori = Qt::NoModifier)
    {
        QTest::mouseClick(Selettore(), Qt::LeftButton, Modificatori, SuRiga(Riga));
    }
    /// QTest's own moves carry no button.
    void Muovi(const QPoint& Punto)
    {
        QMouseEvent Evento(QEvent::MouseMove, Punto, Selettore()->mapToGlobal(Punto), Qt::NoButton,
                           Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(Selettore(), &Evento);
    }
    void Trascina(int Da, const QPoint& A)
    {
        QTest::mousePress(Selettore(), Qt::LeftButton, Qt::NoModifier, SuRiga(Da));
        Muovi((SuRiga(Da) + A) / 2);
        Muovi(A);
        QTest::mouseRelease(Selettore(), Qt::LeftButton, Qt::NoModifier, A);
    }

    TabellaRighe Righe;
    Griglia* Griglia_;
};

}  // namespace

class TestGrigliaRighe : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void laSelezioneTieneLOrdineDeiClic();
    void laSelezioneDaTastiera();
    void laSelezioneConLeFrecce();
    void laRigaSelezionataSiVede();
    void ilTrattoDelMaiuscoloSegueIlPuntatore();
    void laSelezioneEDiRigheNonDiNumeri_data();
    void laSelezioneEDiRigheNonDiNumeri();
    void escLasciaLaSelezione();
    void ilClicSullaCellaNonSceglie();
    void rilegaTogliLeRigheCheNonCiSono();
    void rilegaTieneRigaEScorrimento();
    void rilegaNonCostaPerRiga();
    void unMilioneDiRigheSubito();
    void siTrascina_data();
    void siTrascina();
    void laLineaDicePrimaDove_data();
    void laLineaDicePrimaDove();
    void laManoCheTremaNonTrascina();
    void trascinareFuori();
    void trascinareSenzaPermesso();
    void escFermaIlTrascinamento();
    void laRigaCorrenteSiAnnunciaUnaVolta();
    void piePerColonna();
    void ilPieSegueLeColonne();
    void laColonnaCheStira();
    void chiSiStiraTieneIlTitolo();
    void larghezzeAndataERitorno();
    void legareTieneLeColonne();
    void larghezzeDiAltreColonne_data();
    void larghezzeDiAltreColonne();
    void colonnaNascosta();
    void laLarghezzaAspettaLaColonna();
    void laColonnaNascostaRestaDovEra();
    void ilBordoDiChiSiStiraNonSiTrascina();
    void righeDiUnRecordset();
    void rigaSparitaDalRecordset();
    void fraseVuota();
    void titoloCliccato();
};
PROVA(TestGrigliaRighe);

void TestGrigliaRighe::laSelezioneTieneLOrdineDeiClic()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    F.Clic(3);
    QCOMPARE(F.Griglia_->Selezione(), QList<int>{3});
    QCOMPARE(F.Griglia_->RigaCorrente(), std::optional(3));
    F.Clic(0, Qt::ControlModifier);
    F.Clic(5, Qt::ControlModifier);
    QCOMPARE(F.Griglia_->Selezione(), QList<int>({3, 0, 5}));
    F.Clic(0, Qt::ControlModifier);
    QCOMPARE(F.Griglia_->Selezione(), QList<int>({3, 5}));
    F.Clic(3);
    QVERIFY2(F.Griglia_->Selezione() == QList<int>{3}, "fra più righe scelte il clic ne sceglie una sola");
    F.Clic(3);
    QVERIFY2(F.Griglia_->Selezione().isEmpty(), "la sola riga scelta si lascia");
    F.Clic(4);
    F.Clic(1, Qt::ShiftModifier);
    QCOMPARE(F.Griglia_->Selezione(), QList<int>({4, 3, 2, 1}));
    F.Clic(2);
    QCOMPARE(F.Griglia_->Selezione(), QList<int>({2}));
    F.Griglia_->AzzeraSelezione();
    QVERIFY(F.Griglia_->Selezione().isEmpty());
    F.Griglia_->ConsentiNuove(true);
    F.Clic(6);
    QVERIFY2(F.Griglia_->Selezione().isEmpty(), "la riga vuota non si seleziona");
    F.Griglia_->Seleziona(6);
    QVERIFY(F.Griglia_->Selezione().isEmpty());
}

void TestGrigliaRighe::laSelezioneDaTastiera()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    F.Griglia_->setFocus();
    F.Griglia_->ImpostaRigaCorrente(2);
    Premi(Qt::Key_Space, Qt::ShiftModifier);
    F.Griglia_->ImpostaRigaCorrente(1);
    Premi(Qt::Key_Space, Qt::ShiftModifier);
    QCOMPARE(F.Griglia_->Selezione(), QList<int>({2, 1}));
    Premi(Qt::Key_Space, Qt::ShiftModifier);
    QCOMPARE(F.Griglia_->Selezione(), QList<int>({2}));
    Premi(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(F.Griglia_->Selezione(), QList<int>({2, 0, 1, 3, 4, 5}));
}

void TestGrigliaRighe::laSelezioneConLeFrecce()
{
    Finestra F;
    F.Griglia_->ConsentiNuove(true);
    QVERIFY(MostraAttiva(F));
    F.Griglia_->setFocus();
    F.Griglia_->ImpostaRigaCorrente(2);
    Premi(Qt::Key_Down, Qt::ShiftModifier);
    Premi(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(F.Griglia_->Selezione(), QList<int>({2, 3, 4}));
    QCOMPARE(F.Griglia_->RigaCorrente(), std::optional(4));
    Premi(Qt::Key_Up, Qt::ShiftModifier);
    QVERIFY2(F.Griglia_->Selezione() == QList<int>({2, 3}), "tornando indietro se ne lascia una");
    for (int i = 0; i < 3; ++i)
        Premi(Qt::Key_Up, Qt::ShiftModifier);
    QVERIFY2(F.Griglia_->Selezione() == QList<int>({2, 1, 0}), "oltre l'inizio si prosegue dall'altra parte");
    Premi(Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(F.Griglia_->Selezione(), QList<int>({2, 1, 0}));
    // Another run leaves what is selected.
    F.Griglia_->ImpostaRigaCorrente(5);
    Premi(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(F.Griglia_->Selezione(), QList<int>({2, 1, 0, 5}));
    QVERIFY2(F.Griglia_->RigaCorrente() == std::optional(5), "la riga vuota non si seleziona");
    Premi(Qt::Key_Up);
    QVERIFY2(F.Griglia_->Selezione() == QList<int>({2, 1, 0, 5}), "la freccia sola non tocca la selezione");
}

void TestGrigliaRighe::laRigaSelezionataSiVede()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    F.Griglia_->Seleziona(2);
    const QImage Vista = F.Vista()->viewport()->grab().toImage();
    const QRect Cella = F.Vista()->visualRect(F.Vista()->model()->index(2, 2));
    QCOMPARE(Vista.pixelColor(Cella.left() + 2, Cella.top() + 3), QColor(247, 223, 111));
    const QRect Altra = F.Vista()->visualRect(F.Vista()->model()->index(4, 2));
    QCOMPARE(Vista.pixelColor(Altra.left() + 2, Altra.top() + 3), F.palette().color(QPalette::Base));
}

void TestGrigliaRighe::ilTrattoDelMaiuscoloSegueIlPuntatore()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    F.Clic(5);
    F.Clic(1, Qt::ControlModifier);
    F.Clic(4, Qt::ShiftModifier);
    QCOMPARE(F.Griglia_->Selezione(), QList<int>({5, 1, 2, 3, 4}));
    F.Clic(2, Qt::ShiftModifier);
    QVERIFY2(F.Griglia_->Selezione() == QList<int>({5, 1, 2}), "il tratto si accorcia");
    F.Clic(0, Qt::ShiftModifier);
    QVERIFY2(F.Griglia_->Selezione() == QList<int>({5, 1, 0}), "e passa dall'altra parte");
}

void TestGrigliaRighe::laSelezioneEDiRigheNonDiNumeri_data()
{
    using Mossa = std::function<void(TabellaRighe&)>;
    QTest::addColumn<Mossa>("Fai");
    QTest::addColumn<QList<int>>("Attese");
    // Selected are 3, then 1.
    QTest::newRow("una riga prima di tutte")
        << Mossa([](TabellaRighe& T) { T.InserisciRiga(0); }) << QList<int>{4, 2};
    QTest::newRow("due righe nel mezzo")
        << Mossa([](TabellaRighe& T) { T.InserisciRighe(3, 2); }) << QList<int>{5, 1};
    QTest::newRow("una in fondo") << Mossa([](TabellaRighe& T) { T.AggiungiRiga(); }) << QList<int>{3, 1};
    QTest::newRow("tolta una prima") << Mossa([](TabellaRighe& T) { T.EliminaRiga(0); }) << QList<int>{2, 0};
    QTest::newRow("tolta una scelta") << Mossa([](TabellaRighe& T) { T.EliminaRiga(3); }) << QList<int>{1};
    QTest::newRow("tolta e rimessa un'altra al suo posto") << Mossa([](TabellaRighe& T) {
        T.EliminaRiga(3);
        T.InserisciRiga(3);
    }) << QList<int>{1};
    QTest::newRow("altre righe in tutto") << Mossa([](TabellaRighe& T) {
        T.Azzera(3);
        for (int i = 0; i < 6; ++i)
            T.AggiungiRiga();
    }) << QList<int>{};
}

void TestGrigliaRighe::laSelezioneEDiRigheNonDiNumeri()
{
    QFETCH(std::function<void(TabellaRighe&)>, Fai);
    QFETCH(QList<int>, Attese);
    Finestra F;
    F.Griglia_->ConsentiNuove(true);
    QVERIFY(MostraAttiva(F));
    F.Clic(3);
    F.Clic(1, Qt::ControlModifier);
    Fai(F.Righe);
    F.Griglia_->Rilega();
    QCOMPARE(F.Griglia_->Selezione(), Attese);
}

void TestGrigliaRighe::escLasciaLaSelezione()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    F.Griglia_->setFocus();
    F.Clic(3);
    F.Clic(1, Qt::ControlModifier);
    Premi(Qt::Key_Escape);
    QVERIFY(F.Griglia_->Selezione().isEmpty());
}

void TestGrigliaRighe::ilClicSullaCellaNonSceglie()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    QTest::mouseClick(F.Vista()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      F.Vista()->visualRect(F.Vista()->model()->index(2, 1)).center());
    QVERIFY(F.Griglia_->Selezione().isEmpty());
    QCOMPARE(F.Griglia_->RigaCorrente(), std::optional(2));
}

void TestGrigliaRighe::rilegaTogliLeRigheCheNonCiSono()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    QSignalSpy Cambiata(F.Griglia_, &Griglia::RigaCambiata);
    F.Griglia_->Seleziona(5);
    F.Griglia_->Seleziona(1);
    F.Griglia_->ImpostaRigaCorrente(5);
    F.Righe.EliminaRiga(5);
    F.Righe.EliminaRiga(4);
    F.Griglia_->Rilega();
    QCOMPARE(F.Griglia_->Righe(), 4);
    QCOMPARE(F.Griglia_->Selezione(), QList<int>{1});
    QCOMPARE(F.Griglia_->RigaCorrente(), std::optional(3));
    QCOMPARE(Cambiata.last(), QVariantList({3}));
    F.Righe.Azzera(3);
    F.Griglia_->Rilega();
    QVERIFY(!F.Griglia_->RigaCorrente());
    QCOMPARE(Cambiata.last(), QVariantList({-1}));
    F.Righe.AggiungiRiga();
    F.Griglia_->Rilega();
    QVERIFY2(F.Griglia_->RigaCorrente() == 0, "una griglia con righe ne ha una corrente");
}

void TestGrigliaRighe::rilegaTieneRigaEScorrimento()
{
    Finestra F(500);
    QVERIFY(MostraAttiva(F));
    F.Griglia_->ImpostaRigaCorrente(210);
    F.Griglia_->ImpostaPrimaRiga(205);
    QCOMPARE(F.Griglia_->PrimaRiga(), 205);
    F.Righe.InserisciRiga(300);
    F.Righe.EliminaRiga(400);
    F.Righe.AggiungiRiga();
    F.Griglia_->Rilega();
    QCOMPARE(F.Griglia_->Righe(), 501);
    QCOMPARE(F.Griglia_->PrimaRiga(), 205);
    QCOMPARE(F.Griglia_->RigaCorrente(), std::optional(210));
}

void TestGrigliaRighe::rilegaNonCostaPerRiga()
{
    int Chieste = 0;
    Finestra F(100000);
    QList<ColonnaGriglia> Colonne = TreColonne();
    Colonne[0].Mostra = [&](const QVariant& Valore, int) {
        ++Chieste;
        return CStr(Valore);
    };
    F.Griglia_->ImpostaColonne(Colonne);
    QVERIFY(MostraAttiva(F));
    F.grab();
    Chieste = 0;
    F.Righe(0, 0) = -1;
    F.Griglia_->Rilega();
    QVERIFY2(Chieste == 0, "Rilega non legge le celle");
    F.grab();
    QVERIFY2(Chieste > 0 && Chieste < 100,
             qPrintable(u"si leggono le righe in vista: "_s + QString::number(Chieste)));
}

void TestGrigliaRighe::unMilioneDiRigheSubito()
{
    int Chieste = 0;
    Finestra F(0);
    QList<ColonnaGriglia> Colonne = TreColonne();
    Colonne[0].Mostra = [&](const QVariant& Valore, int) {
        ++Chieste;
        return CStr(Valore);
    };
    F.Griglia_->ImpostaColonne(Colonne);
    for (int i = 0; i < 1000000; ++i)
        F.Righe.AggiungiRiga();
    F.Griglia_->Rilega();
    QVERIFY(MostraAttiva(F));
    F.Griglia_->ImpostaRigaCorrente(999999);
    F.grab();
    QVERIFY2(Chieste > 0 && Chieste < 1000, qPrintable(QString::number(Chieste)));
    QVERIFY(F.Griglia_->PrimaRiga() > 999900);
}

void TestGrigliaRighe::siTrascina_data()
{
    QTest::addColumn<int>("SuRiga");
    QTest::addColumn<double>("Parte");
    QTest::addColumn<int>("Destinazione");
    QTest::newRow("metà alta: la riga") << 4 << 0.25 << 4;
    QTest::newRow("metà bassa: la stessa riga") << 4 << 0.75 << 4;
    QTest::newRow("in cima") << 0 << 0.1 << 0;
    QTest::newRow("sull'ultima") << 5 << 0.9 << 5;
    QTest::newRow("sulla riga vuota: in fondo") << 6 << 0.2 << 6;
}

void TestGrigliaRighe::siTrascina()
{
    QFETCH(int, SuRiga);
    QFETCH(double, Parte);
    Finestra F;
    F.Griglia_->ConsentiNuove(true);
    F.Griglia_->ConsentiTrascina(true);
    QVERIFY(MostraAttiva(F));
    QSignalSpy Trascinata(F.Griglia_, &Griglia::Trascinata);
    F.Clic(1);
    F.Clic(2, Qt::ControlModifier);
    F.Trascina(2, F.SuRiga(SuRiga, Parte));
    QCOMPARE(Trascinata.size(), 1);
    QTEST(Trascinata[0][0].toInt(), "Destinazione");
    QVERIFY2(F.Griglia_->Selezione() == QList<int>({1, 2}), "trascinare non toglie la selezione");
    QCOMPARE(F.Righe(1, 0).toInt(), 1);
}

void TestGrigliaRighe::laLineaDicePrimaDove_data()
{
    QTest::addColumn<QList<int>>("Scelte");
    QTest::addColumn<int>("SuRiga");
    QTest::addColumn<int>("PrimaDi");  // the row count: behind the last one
    QTest::newRow("in su: prima della riga") << QList{4} << 1 << 1;
    QTest::newRow("in giù: dietro la riga") << QList{1} << 4 << 5;
    QTest::newRow("due in giù: dietro quel che resta") << QList{0, 1} << 2 << 4;
    QTest::newRow("due lontane") << QList{0, 5} << 3 << 4;
    QTest::newRow("in fondo") << QList{2} << 6 << 6;
}

void TestGrigliaRighe::laLineaDicePrimaDove()
{
    QFETCH(QList<int>, Scelte);
    QFETCH(int, SuRiga);
    QFETCH(int, PrimaDi);
    Finestra F;
    F.Griglia_->ConsentiNuove(true);
    F.Griglia_->ConsentiTrascina(true);
    QVERIFY(MostraAttiva(F));
    for (const int Riga : Scelte)
        F.Griglia_->Seleziona(Riga);
    QTest::mousePress(F.Selettore(), Qt::LeftButton, Qt::NoModifier, F.SuRiga(Scelte.first()));
    F.Muovi(F.SuRiga(SuRiga));
    const QImage Foto = F.Vista()->viewport()->grab().toImage();
    const int Y = F.Vista()->visualRect(F.Vista()->model()->index(PrimaDi, 0)).top();
    const int X = F.Vista()->columnViewportPosition(2) + 3;
    QCOMPARE(Foto.pixelColor(X, std::max(0, Y)), aspetto::Accento());
    for (int Altra = 0; Altra <= 6; ++Altra) {
        const int Sopra = F.Vista()->visualRect(F.Vista()->model()->index(Altra, 0)).top();
        QVERIFY2(Altra == PrimaDi || Foto.pixelColor(X, Sopra) != aspetto::Accento(), "una linea sola");
    }
    QTest::mouseRelease(F.Selettore(), Qt::LeftButton, Qt::NoModifier, F.SuRiga(SuRiga));
    QVERIFY2(F.Vista()->viewport()->grab().toImage().pixelColor(X, std::max(0, Y)) != aspetto::Accento(),
             "lasciate le righe la linea sparisce");
}

void TestGrigliaRighe::laManoCheTremaNonTrascina()
{
    Finestra F;
    F.Griglia_->ConsentiTrascina(true);
    QVERIFY(MostraAttiva(F));
    QSignalSpy Trascinata(F.Griglia_, &Griglia::Trascinata);
    QTest::mousePress(F.Selettore(), Qt::LeftButton, Qt::NoModifier, F.SuRiga(2, 0.1));
    F.Muovi(F.SuRiga(2, 0.9) + QPoint(10, 0));
    QTest::mouseRelease(F.Selettore(), Qt::LeftButton, Qt::NoModifier, F.SuRiga(2, 0.9));
    QVERIFY(Trascinata.isEmpty());
    QCOMPARE(F.Griglia_->Selezione(), QList<int>{2});
}

void TestGrigliaRighe::trascinareFuori()
{
    Finestra F;
    F.Griglia_->ConsentiTrascina(true);
    QVERIFY(MostraAttiva(F));
    QSignalSpy Trascinata(F.Griglia_, &Griglia::Trascinata);
    QSignalSpy Fuori(F.Griglia_, &Griglia::TrascinataFuori);
    F.Trascina(2, QPoint(8, F.Selettore()->height() - 3));
    QCOMPARE(Fuori.size(), 1);
    F.Trascina(3, QPoint(8, F.Selettore()->height() + 200));
    QVERIFY2(Fuori.size() == 1, "fuori dalla griglia non accade nulla");
    QVERIFY(Trascinata.isEmpty());
}

void TestGrigliaRighe::trascinareSenzaPermesso()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    QSignalSpy Trascinata(F.Griglia_, &Griglia::Trascinata);
    F.Trascina(2, F.SuRiga(4));
    QVERIFY(Trascinata.isEmpty());
    QCOMPARE(F.Griglia_->Selezione(), QList<int>{2});
}

void TestGrigliaRighe::escFermaIlTrascinamento()
{
    Finestra F;
    F.Griglia_->ConsentiTrascina(true);
    QVERIFY(MostraAttiva(F));
    F.Griglia_->setFocus();
    QSignalSpy Trascinata(F.Griglia_, &Griglia::Trascinata);
    QTest::mousePress(F.Selettore(), Qt::LeftButton, Qt::NoModifier, F.SuRiga(1));
    F.Muovi(F.SuRiga(4));
    Premi(Qt::Key_Escape);
    QTest::mouseRelease(F.Selettore(), Qt::LeftButton, Qt::NoModifier, F.SuRiga(4));
    QVERIFY(Trascinata.isEmpty());
}

void TestGrigliaRighe::laRigaCorrenteSiAnnunciaUnaVolta()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    QSignalSpy Cambiata(F.Griglia_, &Griglia::RigaCambiata);
    F.Griglia_->ImpostaRigaCorrente(2);
    F.Griglia_->ImpostaRigaCorrente(2, 1);
    F.Griglia_->Rilega();
    QCOMPARE(Cambiata.size(), 1);
    QCOMPARE(Cambiata[0], QVariantList({2}));
    QCOMPARE(F.Griglia_->ColonnaCorrente(), 1);
}

void TestGrigliaRighe::piePerColonna()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    auto* Pie = F.Griglia_->layout()->itemAt(1)->widget();
    QVERIFY2(!Pie->isVisible(), "senza testi il piè non si vede");
    F.Griglia_->Pie(1, u"Totali "_s);
    F.Griglia_->Pie(2, u"1.234,50"_s);
    QVERIFY(Pie->isVisible());
    QCOMPARE(F.Griglia_->TestoPie(2), u"1.234,50"_s);
    QCOMPARE(Pie->accessibleName(), u"Descrizione: Totali; Importo: 1.234,50"_s);
}

void TestGrigliaRighe::ilPieSegueLeColonne()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    F.Griglia_->Pie(2, u"9"_s);
    auto* Pie = dynamic_cast<PieGriglia*>(F.Griglia_->layout()->itemAt(1)->widget());
    QVERIFY(Pie);
    const auto SottoLaColonna = [&](int Colonna) {
        const QRect Cella = F.Vista()->visualRect(F.Vista()->model()->index(0, Colonna));
        const int Sinistra = F.Vista()->viewport()->mapTo(F.Griglia_, Cella.topLeft()).x();
        const QRect Testo = Pie->Riquadro(Colonna);
        return Pie->mapTo(F.Griglia_, Testo.topLeft()).x() == Sinistra && Testo.width() == Cella.width();
    };
    QHeaderView* Testata = F.Vista()->horizontalHeader();
    QVERIFY(SottoLaColonna(0) && SottoLaColonna(1) && SottoLaColonna(2));
    Testata->resizeSection(0, 150);
    QVERIFY(SottoLaColonna(0) && SottoLaColonna(1) && SottoLaColonna(2));
    Testata->moveSection(2, 0);
    QVERIFY(SottoLaColonna(0) && SottoLaColonna(1) && SottoLaColonna(2));
    Testata->resizeSection(0, 900);
    QScrollBar* Barra = F.Griglia_->findChild<QScrollBar*>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(Barra);
    QTRY_VERIFY(Barra->isVisible());
    Barra->setValue(120);
    QCOMPARE(F.Vista()->horizontalScrollBar()->value(), 120);
    QVERIFY(SottoLaColonna(0) && SottoLaColonna(1) && SottoLaColonna(2));
    F.Vista()->horizontalScrollBar()->setValue(60);
    QCOMPARE(Barra->value(), 60);
}

void TestGrigliaRighe::laColonnaCheStira()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    const auto Somma = [&] {
        return F.Vista()->columnWidth(0) + F.Vista()->columnWidth(1) + F.Vista()->columnWidth(2);
    };
    QCOMPARE(Somma(), F.Vista()->viewport()->width());
    F.resize(700, 320);
    QCOMPARE(Somma(), F.Vista()->viewport()->width());
    F.Griglia_->MostraColonna(2, false);
    QCOMPARE(Somma(), F.Vista()->viewport()->width());
    F.resize(120, 320);
    QVERIFY2(F.Vista()->columnWidth(1) >= 20 * F.fontMetrics().horizontalAdvance(u'0'),
             "mai sotto la propria larghezza");
}

void TestGrigliaRighe::chiSiStiraTieneIlTitolo()
{
    Finestra F;
    QList<ColonnaGriglia> Colonne = TreColonne();
    Colonne[1].Titolo = u"Descrizione della prestazione"_s;
    Colonne[1].Caratteri = 4;
    F.Griglia_->ImpostaColonne(Colonne);
    QVERIFY(MostraAttiva(F));
    F.resize(120, 320);
    const QHeaderView* Testata = F.Vista()->horizontalHeader();
    QVERIFY(F.Vista()->columnWidth(1) > Testata->fontMetrics().horizontalAdvance(Colonne[1].Titolo));
}

void TestGrigliaRighe::larghezzeAndataERitorno()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    F.Vista()->horizontalHeader()->resizeSection(0, 133);
    F.Vista()->horizontalHeader()->moveSection(2, 0);
    const QString Ricordate = F.Griglia_->Larghezze();
    Finestra G;
    QVERIFY(MostraAttiva(G));
    G.Griglia_->ImpostaLarghezze(Ricordate);
    QCOMPARE(G.Vista()->columnWidth(0), 133);
    QCOMPARE(G.Vista()->horizontalHeader()->logicalIndex(0), 2);
    QCOMPARE(G.Griglia_->Larghezze(), Ricordate);
}

void TestGrigliaRighe::legareTieneLeColonne()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    F.Vista()->horizontalHeader()->resizeSection(0, 133);
    F.Vista()->horizontalHeader()->moveSection(2, 0);
    F.Griglia_->MostraColonna(1, false);
    const QString Prima = F.Griglia_->Larghezze();
    TabellaRighe Altra(3);
    Altra.AggiungiRiga();
    F.Griglia_->Lega(&Altra);
    F.Griglia_->ConsentiNuove(true);
    QCOMPARE(F.Griglia_->Larghezze(), Prima);
    QVERIFY(!F.Griglia_->ColonnaVisibile(1));
    F.Griglia_->Lega(&F.Righe);
}

void TestGrigliaRighe::larghezzeDiAltreColonne_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::newRow("nessuna") << QString();
    QTest::newRow("due per tre colonne") << u"10@0;20@1"_s;
    QTest::newRow("due nello stesso posto") << u"10@0;20@0;30@2"_s;
    QTest::newRow("posto che non c'è") << u"10@0;20@1;30@3"_s;
    QTest::newRow("larghezza nulla") << u"0@0;20@1;30@2"_s;
    QTest::newRow("parole") << u"a;b;c"_s;
}

void TestGrigliaRighe::larghezzeDiAltreColonne()
{
    QFETCH(QString, Testo);
    Finestra F;
    QVERIFY(MostraAttiva(F));
    const QString Prima = F.Griglia_->Larghezze();
    F.Griglia_->ImpostaLarghezze(Testo);
    QCOMPARE(F.Griglia_->Larghezze(), Prima);
}

void TestGrigliaRighe::colonnaNascosta()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    QVERIFY(F.Griglia_->ColonnaVisibile(0));
    F.Griglia_->MostraColonna(0, false);
    QVERIFY(!F.Griglia_->ColonnaVisibile(0));
    QVERIFY(F.Vista()->visualRect(F.Vista()->model()->index(0, 0)).isEmpty());
    QVERIFY2(F.Griglia_->Larghezze().section(u'@', 0, 0).toInt() > 0, "nascosta non si ricorda larga zero");
    QList<ColonnaGriglia> Colonne = TreColonne();
    Colonne[1].Visibile = false;
    F.Griglia_->ImpostaColonne(Colonne);
    QVERIFY(F.Griglia_->ColonnaVisibile(0));
    QVERIFY(!F.Griglia_->ColonnaVisibile(1));
}

void TestGrigliaRighe::laLarghezzaAspettaLaColonna()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    F.Vista()->horizontalHeader()->resizeSection(0, 150);
    F.Griglia_->MostraColonna(0, false);
    const QString Ricordate = F.Griglia_->Larghezze();
    QCOMPARE(Ricordate.section(u'@', 0, 0), u"150"_s);
    Finestra G;
    QVERIFY(MostraAttiva(G));
    G.Griglia_->MostraColonna(0, false);
    G.Griglia_->ImpostaLarghezze(Ricordate);
    QCOMPARE(G.Griglia_->Larghezze(), Ricordate);
    G.Griglia_->MostraColonna(0, true);
    QCOMPARE(G.Vista()->columnWidth(0), 150);
}

void TestGrigliaRighe::laColonnaNascostaRestaDovEra()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    QHeaderView* Testata = F.Vista()->horizontalHeader();
    F.Griglia_->MostraColonna(1, false);
    Testata->moveSection(2, 1);  // as a title dragged a little to the left
    QCOMPARE(Testata->visualIndex(1), 1);
    Testata->moveSection(2, 0);  // before the first one, which the hidden one follows
    QCOMPARE(Testata->logicalIndex(0), 2);
    QCOMPARE(Testata->logicalIndex(1), 0);
    QCOMPARE(Testata->logicalIndex(2), 1);
}

void TestGrigliaRighe::ilBordoDiChiSiStiraNonSiTrascina()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    QList<ColonnaGriglia> Colonne = TreColonne();
    Colonne[1].Stira = true;
    F.Griglia_->ImpostaColonne(Colonne);
    const QHeaderView* Testata = F.Vista()->horizontalHeader();
    const auto Cursore = [&](int Colonna) {
        const QPoint Bordo(Testata->sectionViewportPosition(Colonna) + Testata->sectionSize(Colonna) - 1,
                           Testata->height() / 2);
        QTest::mouseMove(Testata->viewport(), Bordo - QPoint(30, 0));
        QTest::mouseMove(Testata->viewport(), Bordo);
        Respiro();
        return Testata->cursor().shape();
    };
    QCOMPARE(Cursore(0), Qt::SplitHCursor);
    QVERIFY(Cursore(1) != Qt::SplitHCursor);
}

void TestGrigliaRighe::righeDiUnRecordset()
{
    Database Db = CreateDatabase(NuovaCartella() + u"righe.mdb"_s);
    Db.Execute(u"CREATE TABLE Voci (Voce INTEGER PRIMARY KEY, Descrizione TEXT, Importo DOUBLE)"_s);
    Db.Execute(u"WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 199) "
               "INSERT INTO Voci SELECT i, 'riga ' || i, i + 0.5 FROM n"_s);
    Recordset Voci = Db.OpenRecordset(u"Voci"_s);
    Voci.ImpostaAbsolutePosition(7);
    Finestra F(0);
    F.Griglia_->Lega(Voci);
    QVERIFY(MostraAttiva(F));
    QCOMPARE(F.Griglia_->Righe(), 200);
    QCOMPARE(F.Vista()->model()->index(150, 1).data().toString(), u"riga 150"_s);
    QCOMPARE(F.Vista()->model()->index(2, 2).data().toString(), u"2,5"_s);
    F.grab();
    QVERIFY2(Voci.AbsolutePosition() == 7, "disegnare non sposta il cursore di chi la usa");
    F.Griglia_->ConsentiNuove(true);
    QVERIFY2(F.Vista()->model()->rowCount() == 200, "non si scrive in un recordset");

    Voci.AddNew();
    Voci.ImpostaValue(u"Voce"_s, 900);
    Voci.ImpostaValue(u"Descrizione"_s, u"aggiunta"_s);
    Voci.Update();
    F.Griglia_->Rilega();
    QCOMPARE(F.Griglia_->Righe(), 201);
    QCOMPARE(F.Vista()->model()->index(200, 1).data().toString(), u"aggiunta"_s);
}

void TestGrigliaRighe::rigaSparitaDalRecordset()
{
    Database Db = CreateDatabase(NuovaCartella() + u"righe.mdb"_s);
    Db.Execute(u"CREATE TABLE Voci (Voce INTEGER PRIMARY KEY, Descrizione TEXT, Importo DOUBLE)"_s);
    Db.Execute(u"INSERT INTO Voci VALUES (1, 'uno', 1), (2, 'due', 2)"_s);
    Finestra F(0);
    F.Griglia_->Lega(Db.OpenRecordset(u"Voci"_s));
    Db.Execute(u"DELETE FROM Voci WHERE Voce = 1"_s);
    QVERIFY2(F.Vista()->model()->index(0, 1).data().toString().isEmpty(),
             "una riga sparita è vuota, senza messaggi");
    QCOMPARE(F.Vista()->model()->index(1, 1).data().toString(), u"due"_s);
}

void TestGrigliaRighe::fraseVuota()
{
    Finestra F(0);
    QVERIFY(MostraAttiva(F));
    const QImage Senza = F.Vista()->viewport()->grab().toImage();
    F.Griglia_->FraseVuota(u"Nessuna voce: sceglierne una dal catalogo."_s);
    const QImage Con = F.Vista()->viewport()->grab().toImage();
    QVERIFY(Con != Senza);
    F.Righe.AggiungiRiga();
    F.Griglia_->Rilega();
    const QImage Piena = F.Vista()->viewport()->grab().toImage();
    F.Griglia_->FraseVuota({});
    QVERIFY2(F.Vista()->viewport()->grab().toImage() == Piena, "con righe la frase non c'è");
}

void TestGrigliaRighe::titoloCliccato()
{
    Finestra F;
    QVERIFY(MostraAttiva(F));
    F.Griglia_->ImpostaRigaCorrente(2, 0);
    QSignalSpy Clic(F.Griglia_, &Griglia::ClicTitolo);
    const QHeaderView* Testata = F.Vista()->horizontalHeader();
    QTest::mouseClick(Testata->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(Testata->sectionViewportPosition(1) + 20, 8));
    QCOMPARE(Clic.size(), 1);
    QCOMPARE(Clic[0], QVariantList({1}));
    QCOMPARE(F.Griglia_->RigaCorrente(), std::optional(2));
    QVERIFY2(F.Griglia_->ColonnaCorrente() == 0, "il titolo non porta via la cella corrente");
}

#include "TestGrigliaRighe.moc"
