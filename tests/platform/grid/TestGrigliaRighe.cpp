// Rows of a grid as a whole: selection, dragging, many rows, recordsets.
#include "righe.h"

using namespace Qt::StringLiterals;

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
    void righeDiUnRecordset();
    void rigaSparitaDalRecordset();
    void fraseVuota();
};
PROVA(TestGrigliaRighe);

void TestGrigliaRighe::laSelezioneTieneLOrdineDeiClic()
{
    FinestraRighe F;
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
    FinestraRighe F;
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
    FinestraRighe F;
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
    FinestraRighe F;
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
    FinestraRighe F;
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
    FinestraRighe F;
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
    FinestraRighe F;
    QVERIFY(MostraAttiva(F));
    F.Griglia_->setFocus();
    F.Clic(3);
    F.Clic(1, Qt::ControlModifier);
    Premi(Qt::Key_Escape);
    QVERIFY(F.Griglia_->Selezione().isEmpty());
}

void TestGrigliaRighe::ilClicSullaCellaNonSceglie()
{
    FinestraRighe F;
    QVERIFY(MostraAttiva(F));
    QTest::mouseClick(F.Vista()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      F.Vista()->visualRect(F.Vista()->model()->index(2, 1)).center());
    QVERIFY(F.Griglia_->Selezione().isEmpty());
    QCOMPARE(F.Griglia_->RigaCorrente(), std::optional(2));
}

void TestGrigliaRighe::rilegaTogliLeRigheCheNonCiSono()
{
    FinestraRighe F;
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
    FinestraRighe F(500);
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
    FinestraRighe F(100000);
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
    FinestraRighe F(0);
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
    FinestraRighe F;
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
    FinestraRighe F;
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
    FinestraRighe F;
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
    FinestraRighe F;
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
    FinestraRighe F;
    QVERIFY(MostraAttiva(F));
    QSignalSpy Trascinata(F.Griglia_, &Griglia::Trascinata);
    F.Trascina(2, F.SuRiga(4));
    QVERIFY(Trascinata.isEmpty());
    QCOMPARE(F.Griglia_->Selezione(), QList<int>{2});
}

void TestGrigliaRighe::escFermaIlTrascinamento()
{
    FinestraRighe F;
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
    FinestraRighe F;
    QVERIFY(MostraAttiva(F));
    QSignalSpy Cambiata(F.Griglia_, &Griglia::RigaCambiata);
    F.Griglia_->ImpostaRigaCorrente(2);
    F.Griglia_->ImpostaRigaCorrente(2, 1);
    F.Griglia_->Rilega();
    QCOMPARE(Cambiata.size(), 1);
    QCOMPARE(Cambiata[0], QVariantList({2}));
    QCOMPARE(F.Griglia_->ColonnaCorrente(), 1);
}

void TestGrigliaRighe::righeDiUnRecordset()
{
    Database Db = CreateDatabase(NuovaCartella() + u"righe.mdb"_s);
    Db.Execute(u"CREATE TABLE Voci (Voce INTEGER PRIMARY KEY, Descrizione TEXT, Importo DOUBLE)"_s);
    Db.Execute(u"WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 199) "
               "INSERT INTO Voci SELECT i, 'riga ' || i, i + 0.5 FROM n"_s);
    Recordset Voci = Db.OpenRecordset(u"Voci"_s);
    Voci.ImpostaAbsolutePosition(7);
    FinestraRighe F(0);
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
    FinestraRighe F(0);
    F.Griglia_->Lega(Db.OpenRecordset(u"Voci"_s));
    Db.Execute(u"DELETE FROM Voci WHERE Voce = 1"_s);
    QVERIFY2(F.Vista()->model()->index(0, 1).data().toString().isEmpty(),
             "una riga sparita è vuota, senza messaggi");
    QCOMPARE(F.Vista()->model()->index(1, 1).data().toString(), u"due"_s);
}

void TestGrigliaRighe::fraseVuota()
{
    FinestraRighe F(0);
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

#include "TestGrigliaRighe.moc"
