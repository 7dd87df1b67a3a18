// The rows of a grid and their cells, by keyboard and mouse on the real widget.
#include "celle.h"

using namespace Qt::StringLiterals;

class TestGriglia : public QObject, private BancoCelle
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void unTastoApreLaCellaEInvioLaScrive();
    void escRidaIlTestoDiPrima();
    void f2TieneIlTesto();
    void doppioClicApre();
    void tabVaAllaCellaDopoEInFondoEsce();
    void backtabTornaIndietro();
    void invioVaACapo();
    void f6EsceDallaGriglia();
    void unClicAltroveScrive();
    void frecciaScrive();
    void laRigaNuovaNasceAllaPrimaCella();
    void laRigaNuovaVuotaNonNasce();
    void tabDallUltimaCellaVaAllaRigaNuova();
    void concludiSenzaCellaAperta();
    void testoCambiatoDalCodiceSiVede();
    void grigliaSenzaCelleScrivibili();
    void canc();
    void copiaIlTestoMostrato();
    void comandiSulleRighe();
    void clicSuCella();
    void ilDoppioClicSonoDueClic();
    void menuContestuale();
    void distruttaConLaCellaAperta();
    void laVistaHaIlNomeDellaGriglia();
};
PROVA(TestGriglia);

void TestGriglia::unTastoApreLaCellaEInvioLaScrive()
{
    QSignalSpy Scritte(F->Griglia_, &Griglia::CellaScritta);
    F->Vai(0, Descrizione);
    Digita(u"nuovo"_s);
    QVERIFY(F->Griglia_->InModifica());
    QCOMPARE(F->Righe(0, Descrizione).toString(), u"prima"_s);
    Premi(Qt::Key_Return);
    QVERIFY(!F->Griglia_->InModifica());
    QCOMPARE(F->Righe(0, Descrizione).toString(), u"nuovo"_s);
    QCOMPARE(Scritte.size(), 1);
    QCOMPARE(Scritte[0], QVariantList({0, int(Descrizione)}));
    QCOMPARE(F->Griglia_->ColonnaCorrente(), int(Importo));
    QVERIFY(F->Vista()->hasFocus());
}

void TestGriglia::escRidaIlTestoDiPrima()
{
    QSignalSpy Scritte(F->Griglia_, &Griglia::CellaScritta);
    F->Vai(1, Descrizione);
    Digita(u"errore"_s);
    Premi(Qt::Key_Escape);
    QVERIFY(!F->Griglia_->InModifica());
    QCOMPARE(F->Righe(1, Descrizione).toString(), u"seconda"_s);
    QVERIFY(Scritte.isEmpty());
    QVERIFY(F->Vista()->hasFocus());
}

void TestGriglia::f2TieneIlTesto()
{
    QSignalSpy Scritte(F->Griglia_, &Griglia::CellaScritta);
    F->Vai(0, Descrizione);
    Premi(Qt::Key_F2);
    QVERIFY(F->Cella());
    QCOMPARE(F->Cella()->selectedText(), u"prima"_s);
    Premi(Qt::Key_Return);
    QVERIFY2(Scritte.isEmpty(), "un testo non toccato non si scrive");
    Premi(Qt::Key_F2);
    QVERIFY2(F->Cella(), "cella dopo: Importo");
    Premi(Qt::Key_Escape);
    F->Vai(0, Nota);
    Premi(Qt::Key_F2);
    QVERIFY2(!F->Griglia_->InModifica(), "la colonna non si modifica");
}

void TestGriglia::doppioClicApre()
{
    F->Clic(2, Descrizione);
    QVERIFY(!F->Griglia_->InModifica());
    QTest::mouseDClick(F->Vista()->viewport(), Qt::LeftButton, Qt::NoModifier, F->Centro(2, Descrizione));
    QVERIFY(F->Cella());
    QCOMPARE(F->Cella()->text(), u"terza"_s);
}

void TestGriglia::tabVaAllaCellaDopoEInFondoEsce()
{
    F->Vai(2, Data);
    Premi(Qt::Key_Tab);
    QCOMPARE(F->Griglia_->ColonnaCorrente(), int(Descrizione));
    Digita(u"z"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(F->Righe(2, Descrizione).toString(), u"z"_s);
    QCOMPARE(F->Griglia_->ColonnaCorrente(), int(Importo));
    Digita(u"7"_s);
    Premi(Qt::Key_Tab);
    QCOMPARE(F->Righe(2, Importo).toDouble(), 7.0);
    QVERIFY2(F->Dopo->hasFocus(), "dall'ultima cella si esce dalla griglia");
}

void TestGriglia::backtabTornaIndietro()
{
    F->Vai(1, Data);
    Premi(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(F->Griglia_->RigaCorrente(), std::optional(0));
    QCOMPARE(F->Griglia_->ColonnaCorrente(), int(Importo));
    Digita(u"5"_s);
    Premi(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(F->Righe(0, Importo).toDouble(), 5.0);
    QCOMPARE(F->Griglia_->ColonnaCorrente(), int(Descrizione));
}

void TestGriglia::invioVaACapo()
{
    F->Vai(0, Importo);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Griglia_->RigaCorrente(), std::optional(1));
    QCOMPARE(F->Griglia_->ColonnaCorrente(), int(Data));
}

void TestGriglia::unClicAltroveScrive()
{
    F->Vai(0, Descrizione);
    Digita(u"uno"_s);
    F->Clic(2, Importo);
    QCOMPARE(F->Righe(0, Descrizione).toString(), u"uno"_s);
    QCOMPARE(F->Griglia_->RigaCorrente(), std::optional(2));
    F->Vai(1, Descrizione);
    Digita(u"due"_s);
    F->Dopo->setFocus(Qt::MouseFocusReason);
    QCOMPARE(F->Righe(1, Descrizione).toString(), u"due"_s);
    QVERIFY(F->Dopo->hasFocus());
    F->Vai(1, Descrizione);
    Digita(u"tre"_s);
    QTest::mouseClick(F->Vista()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(30, F->Vista()->viewport()->height() - 5));
    QCOMPARE(F->Righe(1, Descrizione).toString(), u"tre"_s);
}

void TestGriglia::frecciaScrive()
{
    F->Vai(0, Descrizione);
    Digita(u"uno"_s);
    Premi(Qt::Key_Down);
    QCOMPARE(F->Righe(0, Descrizione).toString(), u"uno"_s);
    QCOMPARE(F->Griglia_->RigaCorrente(), std::optional(1));
    QCOMPARE(F->Griglia_->ColonnaCorrente(), int(Descrizione));
}

void TestGriglia::laRigaNuovaNasceAllaPrimaCella()
{
    F->Griglia_->ConsentiNuove(true);
    QSignalSpy Cambiata(F->Griglia_, &Griglia::RigaCambiata);
    QSignalSpy Scritte(F->Griglia_, &Griglia::CellaScritta);
    int ChiestaRiga = -1;
    F->Convalida([&](int Riga, const QString&) {
        ChiestaRiga = Riga;
        return F->Righe.Righe() == 3;
    });
    F->Vai(3, Descrizione);
    QVERIFY2(!F->Griglia_->RigaCorrente(), "la riga vuota non è una riga");
    Digita(u"quarta"_s);
    QCOMPARE(F->Righe.Righe(), 3);
    Premi(Qt::Key_Return);
    QCOMPARE(ChiestaRiga, 3);
    QCOMPARE(F->Righe.Righe(), 4);
    QCOMPARE(F->Griglia_->Righe(), 4);
    QCOMPARE(F->Righe(3, Descrizione).toString(), u"quarta"_s);
    QCOMPARE(F->Griglia_->RigaCorrente(), std::optional(3));
    QCOMPARE(Scritte.size(), 1);
    QCOMPARE(Cambiata.last(), QVariantList({3}));
    QCOMPARE(F->Vista()->model()->rowCount(), 5);
}

void TestGriglia::laRigaNuovaVuotaNonNasce()
{
    F->Griglia_->ConsentiNuove(true);
    F->Vai(3, Descrizione);
    Digita(u"x"_s);
    Premi(Qt::Key_Backspace);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Righe.Righe(), 3);
    Premi(Qt::Key_F2);
    Premi(Qt::Key_Escape);
    QCOMPARE(F->Righe.Righe(), 3);
}

void TestGriglia::tabDallUltimaCellaVaAllaRigaNuova()
{
    F->Griglia_->ConsentiNuove(true);
    F->Vai(2, Importo);
    Premi(Qt::Key_Tab);
    QCOMPARE(F->Vista()->currentIndex(), F->Vista()->model()->index(3, Data));
    Digita(u"01012020"_s);
    Premi(Qt::Key_Tab);
    Premi(Qt::Key_Tab);
    Premi(Qt::Key_Tab);
    QCOMPARE(F->Vista()->currentIndex(), F->Vista()->model()->index(4, Data));
    QCOMPARE(F->Righe.Righe(), 4);
    Premi(Qt::Key_Tab);
    Premi(Qt::Key_Tab);
    Premi(Qt::Key_Tab);
    QVERIFY2(F->Dopo->hasFocus(), "dalla riga vuota in fondo si esce");
    QCOMPARE(F->Righe.Righe(), 4);
}

void TestGriglia::concludiSenzaCellaAperta()
{
    QVERIFY(F->Griglia_->Concludi());
    F->Vai(0, Descrizione);
    Digita(u"x"_s);
    QVERIFY(ConcludiCampo());
    QCOMPARE(F->Righe(0, Descrizione).toString(), u"x"_s);
    QVERIFY(!F->Griglia_->InModifica());
}

void TestGriglia::testoCambiatoDalCodiceSiVede()
{
    const QModelIndex Cella = F->Vista()->model()->index(0, Descrizione);
    F->Righe(0, Descrizione) = u"cambiata"_s;
    QCOMPARE(Cella.data().toString(), u"cambiata"_s);
    // The source shrinks before the grid is told.
    F->Righe.Azzera(4);
    QVERIFY(Cella.data().toString().isEmpty());
    F->grab();
    F->Griglia_->Rilega();
    QCOMPARE(F->Griglia_->Righe(), 0);
    QVERIFY(!F->Griglia_->RigaCorrente());
}

void TestGriglia::grigliaSenzaCelleScrivibili()
{
    QList<ColonnaGriglia> Colonne = QuattroColonne();
    for (ColonnaGriglia& C : Colonne)
        C.Modificabile = false;
    F->Griglia_->ImpostaColonne(Colonne);
    QSignalSpy Doppio(F->Griglia_, &Griglia::DoppioClic);
    F->Vai(1, Descrizione);
    Digita(u"t"_s);
    QVERIFY(!F->Griglia_->InModifica());
    QCOMPARE(F->Griglia_->RigaCorrente(), std::optional(1));
    Premi(Qt::Key_Return);
    QCOMPARE(Doppio.size(), 1);
    QCOMPARE(Doppio[0], QVariantList({1}));
    F->Clic(2, Descrizione);
    QTest::mouseDClick(F->Vista()->viewport(), Qt::LeftButton, Qt::NoModifier, F->Centro(2, Descrizione));
    QCOMPARE(Doppio.last(), QVariantList({2}));
    Premi(Qt::Key_Tab);
    QVERIFY2(F->Dopo->hasFocus(), "Tab esce subito");
}

void TestGriglia::canc()
{
    QSignalSpy Cancella(F->Griglia_, &Griglia::Cancella);
    F->Vai(1, Descrizione);
    Premi(Qt::Key_Delete);
    QCOMPARE(Cancella.size(), 1);
    Premi(Qt::Key_F2);
    Premi(Qt::Key_Delete);
    QCOMPARE(Cancella.size(), 1);
    QVERIFY2(F->Cella()->text().isEmpty(), "nella cella Canc toglie il testo");
    Premi(Qt::Key_Escape);
    F->Righe.Azzera(4);
    F->Griglia_->Rilega();
    Premi(Qt::Key_Delete);
    QVERIFY2(Cancella.size() == 1, "senza righe non c'è nulla da cancellare");
}

void TestGriglia::copiaIlTestoMostrato()
{
    QList<ColonnaGriglia> Colonne = QuattroColonne();
    Colonne[Importo].Mostra = [](const QVariant& Valore, int Riga) {
        return u"%1 in riga %2"_s.arg(Valore.toDouble()).arg(Riga);
    };
    F->Griglia_->ImpostaColonne(Colonne);
    F->Righe(1, Importo) = 3.0;
    F->Vai(1, Importo);
    Premi(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), u"3 in riga 1"_s);
    Premi(Qt::Key_F2);
    QVERIFY(F->Cella());
    QCOMPARE(F->Cella()->text(), u"3"_s);
}

void TestGriglia::comandiSulleRighe()
{
    QList<ComandoRighe> Dati;
    QObject::connect(F->Griglia_, &Griglia::Comando, F->Griglia_,
                     [&](ComandoRighe Quale) { Dati.append(Quale); });
    F->Vai(1, Importo);
    const auto PremiTutti = [] {
        for (const Qt::Key Tasto : {Qt::Key_X, Qt::Key_C, Qt::Key_V, Qt::Key_Z})
            Premi(Tasto, Qt::ControlModifier);
    };
    PremiTutti();
    QVERIFY2(Dati.isEmpty(), "chi non li vuole non li riceve");
    F->Griglia_->ConsentiComandi(true);
    PremiTutti();
    QCOMPARE(Dati, (QList{ComandoRighe::Taglia, ComandoRighe::Incolla, ComandoRighe::Annulla}));
    Dati.clear();
    F->Griglia_->Seleziona(0);
    Premi(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(Dati, QList{ComandoRighe::Copia});
    Premi(Qt::Key_F2);
    QVERIFY(F->Cella());
    PremiTutti();
    QVERIFY2(Dati.size() == 1, "nella cella aperta sono i suoi");
}

void TestGriglia::clicSuCella()
{
    F->Griglia_->ConsentiNuove(true);
    QSignalSpy Clic(F->Griglia_, &Griglia::ClicCella);
    F->Clic(1, Nota);
    QCOMPARE(Clic.last(), QVariantList({1, int(Nota)}));
    Digita(u" "_s);
    QVERIFY2(Clic.size() == 2, "lo spazio vale un clic sulla cella che non si scrive");
    F->Clic(3, Nota);
    QVERIFY2(Clic.size() == 2, "la riga vuota non ha celle da cliccare");
}

void TestGriglia::ilDoppioClicSonoDueClic()
{
    // A form that gives a cell its next value at a click finds the old one in the cell that opens.
    QSignalSpy Clic(F->Griglia_, &Griglia::ClicCella);
    F->Clic(2, Descrizione);
    QTest::mouseDClick(F->Vista()->viewport(), Qt::LeftButton, Qt::NoModifier, F->Centro(2, Descrizione));
    QVERIFY(F->Cella());
    QCOMPARE(Clic.size(), 2);
    QCOMPARE(Clic.last(), QVariantList({2, int(Descrizione)}));
    QTest::mouseRelease(F->Vista()->viewport(), Qt::LeftButton, Qt::NoModifier, F->Centro(2, Descrizione));
    QVERIFY2(Clic.size() == 2, "sulla cella aperta non si clicca");
}

void TestGriglia::menuContestuale()
{
    QSignalSpy Menu(F->Griglia_, &Griglia::MenuContestuale);
    const QPoint Punto = F->Centro(1, Descrizione);
    QContextMenuEvent Mouse(QContextMenuEvent::Mouse, Punto, F->Vista()->viewport()->mapToGlobal(Punto));
    QCoreApplication::sendEvent(F->Vista()->viewport(), &Mouse);
    QCOMPARE(Menu.size(), 1);
    QCOMPARE(Menu[0][0].toInt(), 1);
    QCOMPARE(Menu[0][1].toPoint(), F->Vista()->viewport()->mapToGlobal(Punto));
    F->Vai(2, Descrizione);
    QContextMenuEvent Tastiera(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(F->Vista()->viewport(), &Tastiera);
    QCOMPARE(Menu.last()[0].toInt(), 2);
}

void TestGriglia::distruttaConLaCellaAperta()
{
    int Chieste = 0;
    F->Convalida([&](int, const QString&) { return ++Chieste > 0; });
    F->Vai(0, Descrizione);
    Digita(u"x"_s);
    delete F->Griglia_;
    QCOMPARE(Chieste, 0);
    QCOMPARE(F->Righe(0, Descrizione).toString(), u"prima"_s);
}

void TestGriglia::laVistaHaIlNomeDellaGriglia()
{
    Griglia Sola;
    Sola.setAccessibleName(u"Acconti ricevuti"_s);
    Sola.show();
    QCOMPARE(Sola.Vista()->accessibleName(), u"Acconti ricevuti"_s);
    Sola.hide();
    Sola.setAccessibleName(u"Spese"_s);
    Sola.show();
    QCOMPARE(Sola.Vista()->accessibleName(), u"Spese"_s);
}

void TestGriglia::f6EsceDallaGriglia()
{
    F->Griglia_->ConsentiNuove(true);
    F->Vai(0, Descrizione);
    Premi(Qt::Key_F6);
    QCOMPARE(QApplication::focusWidget(), F->Dopo);
    F->Vai(0, Descrizione);
    Digita(u"scritta"_s);
    QVERIFY(F->Cella());
    Premi(Qt::Key_F6);
    QVERIFY(!F->Griglia_->InModifica());
    QCOMPARE(F->Righe(0, Descrizione).toString(), u"scritta"_s);
    QCOMPARE(QApplication::focusWidget(), F->Dopo);
    // The box stands before the grid too: the two are all there is.
    F->Vai(0, Descrizione);
    Premi(Qt::Key_F6, Qt::ShiftModifier);
    QCOMPARE(QApplication::focusWidget(), F->Dopo);
}

#include "TestGriglia.moc"
