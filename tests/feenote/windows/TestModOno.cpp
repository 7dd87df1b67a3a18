// The modification panel of tab 1: when it opens and closes, what it shows, its room.
#include "bancomodono.h"

#include <QHeaderView>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScopeGuard>
#include <QScrollBar>
#include <QSlider>

using namespace Qt::StringLiterals;

class TestModOno : public QObject, private BancoModOno
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { T.reset(); }
    void apreSullaRigaCorrente();
    void voceNonPrevista();
    void senzaRigaSiRilascia();
    void rigaVuotaSiRilascia();
    void laCellaRifiutataNonLoApre();
    void seguendoLaRiga();
    void confermaSoloDopoUnaScelta();
    void invioConferma();
    void escAnnulla();
    void annullaNonCambia();
    void annullaTornaAUna();
    void chiudeColBottone();
    void laCellaScrittaSiVede();
    void leRigheSpostateSiSeguono();
    void siChiudeUscendo();
    void unAltraNotaLoChiude();
    void titoloConSegni();
    void nonCopreLeRighe();
    void minimoEMassimoRestanoInVista();
    void gliImportiGrandiSiVedonoInteri();
    void ancheAllaSecondaAperturaSiArrivaAlMassimo_data();
    void ancheAllaSecondaAperturaSiArrivaAlMassimo();
    void lAmbitoGiaSceltoNonSiRicarica();
    void effeSeiArrivaAlPannello();
};
PROVA(TestModOno);

void TestModOno::apreSullaRigaCorrente()
{
    Apri(0);
    QVERIFY(Pannello()->isVisible() && Variaz()->isChecked());
    QCOMPARE(Testo("lblOnoDesc"), u"Onorari inseriti: Fase 1"_s);
    QCOMPARE(Testo("lblImp").remove(u'&'), u"Importo onorario:"_s);
    QCOMPARE(Testo("lblImpOno"), u"1.200,00"_s);
    QCOMPARE(Fasce()->item(0)->text(), u"MINIMO      (600,00)"_s);
    QCOMPARE(Fasce()->item(1)->text(), u"MEDIO       (1.200,00)"_s);
    QCOMPARE(Fasce()->item(2)->text(), u"MASSIMO  (1.920,00)"_s);
    QCOMPARE(Evidenziata(), int(FasciaMedio));
    QCOMPARE(Cursore()->value(), 50);
    QVERIFY(!Conferma()->isEnabled());
    QCOMPARE(QApplication::focusWidget(), Cursore());
    QCOMPARE(Cursore()->toolTip(), u"Gradua l'importo tra il valore minimo e quello massimo"_s);
}

void TestModOno::voceNonPrevista()
{
    T->Voce.Attendi(u"L'onorario 'Voce non prevista' non è variabile percentualmente!"_s, vbOK,
                    u"Messaggio:"_s);
    Apri(2);
    QVERIFY(!Pannello()->isVisible() && !Variaz()->isChecked());
}

void TestModOno::senzaRigaSiRilascia()
{
    F->Nota.xOnorari.Azzera(OnoColonne);
    F->MostraTutto();
    Clic(Variaz());
    QVERIFY(!Pannello()->isVisible() && !Variaz()->isChecked());
}

void TestModOno::rigaVuotaSiRilascia()
{
    ClicCella(Righe, 3, OnoDescr);
    QVERIFY(!Righe->RigaCorrente());
    Clic(Variaz());
    QVERIFY(!Pannello()->isVisible() && !Variaz()->isChecked());
}

void TestModOno::laCellaRifiutataNonLoApre()
{
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, OnoImporto);
    Premi(Qt::Key_F2);
    Incolla(LaCella(Righe), u"abc"_s);
    T->Voce.Attendi(u"Immettere un valore numerico!"_s, vbOK, u"Errore:"_s);
    Clic(Variaz());
    QVERIFY(!Pannello()->isVisible() && !Variaz()->isChecked());
    QVERIFY(Righe->InModifica());
    Premi(Qt::Key_Escape);
}

void TestModOno::seguendoLaRiga()
{
    Apri(0);
    ClicCella(Righe, 1, OnoDescr);
    QCOMPARE(Testo("lblOnoDesc"), u"Onorari inseriti: Fase 2"_s);
    QCOMPARE(Testo("lblImpOno"), u"777,00"_s);
    QVERIFY2(Evidenziata() == NessunaFascia, "777 non è nessuno dei tre");
    QVERIFY2(Cursore()->value() == 50, "il cursore resta dov'era");
    ClicCella(Righe, 2, OnoDescr);
    QVERIFY2(Testo("lblOnoDesc") == u"Onorari inseriti: Fase 2"_s, "la voce libera non si mostra");
    QVERIFY(Pannello()->isVisible());
    // What is confirmed then is the line that the panel shows.
    ClicFascia(FasciaMax);
    Clic(Conferma());
    QCOMPARE(Importo(1), 1000.0);
    QCOMPARE(Importo(2), 90.0);
}

void TestModOno::confermaSoloDopoUnaScelta()
{
    Apri(1);
    Cursore()->setFocus();
    Premi(Qt::Key_Return);
    QVERIFY(Pannello()->isVisible());
    QCOMPARE(Importo(1), 777.0);
}

void TestModOno::invioConferma()
{
    Apri(1);
    ClicFascia(FasciaMin);
    Cursore()->setFocus();
    QTest::keyClick(Cursore(), Qt::Key_Return);
    QVERIFY(!Pannello()->isVisible());
    QCOMPARE(Importo(1), 300.0);
    QVERIFY(Righe->isAncestorOf(QApplication::focusWidget()));
    Apri(1);
    ClicFascia(FasciaMax);
    Controllo(F, "cmdAnnModOno")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(!Pannello()->isVisible());
    QVERIFY2(Importo(1) == 300.0, "Invio su Annulla annulla");
}

void TestModOno::escAnnulla()
{
    Apri(0);
    ClicFascia(FasciaMax);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!Pannello()->isVisible());
    QCOMPARE(Importo(0), 1200.0);
    QVERIFY(!F->Nota.Modificata);
    QVERIFY(Righe->isAncestorOf(QApplication::focusWidget()));
}

void TestModOno::annullaNonCambia()
{
    const TabellaRighe Prima = F->Nota.xOnorari;
    Apri(0);
    Righe->Seleziona(1);
    ClicFascia(FasciaMin);
    Clic(Controllo(F, "cmdAnnModOno"));
    QCOMPARE(F->Nota.xOnorari, Prima);
    QVERIFY(!Pannello()->isVisible() && !Variaz()->isChecked());
    QVERIFY(Righe->Selezione().isEmpty());
    QVERIFY(!F->Nota.Modificata);
}

void TestModOno::annullaTornaAUna()
{
    Apri(0);
    Clic(Controllo(F, "optModAll_1"));
    Clic(Controllo(F, "cmdAnnModOno"));
    Apri(0);
    QVERIFY(Controllo<QRadioButton>(F, "optModAll_0")->isChecked());
    QCOMPARE(Testo("lblOnoDesc"), u"Onorari inseriti: Fase 1"_s);
}

void TestModOno::chiudeColBottone()
{
    Apri(0);
    Clic(Variaz());
    QVERIFY(!Pannello()->isVisible() && !Variaz()->isChecked());
    QCOMPARE(Importo(0), 1200.0);
}

void TestModOno::laCellaScrittaSiVede()
{
    Apri(0);
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, OnoImporto);
    Digita(u"600"_s);
    ClicCella(Righe, 0, OnoDescr);
    QCOMPARE(Testo("lblImpOno"), u"600,00"_s);
    QCOMPARE(Evidenziata(), int(FasciaMin));
    QCOMPARE(Cursore()->value(), 0);
}

void TestModOno::leRigheSpostateSiSeguono()
{
    Apri(1);
    Righe->Seleziona(0);
    Righe->setFocus();
    T->Voce.Attendi(u"Confermi la cancellazione della voce selezionata?"_s, vbYes);
    Premi(Qt::Key_Delete);
    QVERIFY(Pannello()->isVisible());
    QCOMPARE(Testo("lblOnoDesc"), u"Onorari inseriti: Fase 2"_s);
    ClicFascia(FasciaMax);
    Clic(Conferma());
    QCOMPARE(Importo(0), 1000.0);
    // With only the free item left there is nothing to graduate.
    Apri(0);
    Righe->Seleziona(0);
    Righe->setFocus();
    T->Voce.Attendi(u"Confermi la cancellazione della voce selezionata?"_s, vbYes);
    Premi(Qt::Key_Delete);
    QVERIFY(!Pannello()->isVisible());
}

void TestModOno::siChiudeUscendo()
{
    Apri(0);
    ClicScheda(F, SchedaListaSpese);
    ClicScheda(F, SchedaListaOnorari);
    QVERIFY(!Pannello()->isVisible() && !Variaz()->isChecked());
}

void TestModOno::unAltraNotaLoChiude()
{
    Apri(0);
    F->Nuova({});
    CompilaCivile(F);
    ClicScheda(F, SchedaListaOnorari);
    QVERIFY(!Pannello()->isVisible());
}

void TestModOno::titoloConSegni()
{
    F->Nota.xOnorari(0, OnoDescr) =
        u"<b>Studio</b> & <img src='x'> dell'atto più lungo che si sia mai scritto"_s;
    F->MostraTutto();
    Apri(0);
    auto* Titolo = Controllo<QLabel>(F, "lblOnoDesc");
    QCOMPARE(Titolo->text(), u"Onorari inseriti: "_s + CStr(F->Nota.xOnorari(0, OnoDescr)));
    QCOMPARE(Titolo->textFormat(), Qt::PlainText);
}

void TestModOno::nonCopreLeRighe()
{
    Apri(0);
    const QRect Suo(Pannello()->mapTo(F, QPoint()), Pannello()->size());
    for (const char* Nome : {"tdbOnor", "tdbListaOno"}) {
        const QWidget* Altro = Controllo(F, Nome);
        QVERIFY(!Suo.intersects(QRect(Altro->mapTo(F, QPoint()), Altro->size())));
    }
}

/// At the size that a note opens with, and the columns come back to their widths behind it.
void TestModOno::minimoEMassimoRestanoInVista()
{
    F->resize(845, 555);
    F->RefreshGrid();
    Righe->Pie(OnoMin, u"22.010,00"_s);
    Respiro();
    const QString Prima = Righe->Larghezze();
    Apri(0);
    Respiro();
    const QTableView* Vista = Righe->Vista();
    QCOMPARE(Vista->horizontalScrollBar()->maximum(), 0);
    QVERIFY(Vista->columnViewportPosition(OnoMax) + Vista->columnWidth(OnoMax) <= Vista->viewport()->width());
    QVERIFY(Vista->columnWidth(OnoMax) > Vista->fontMetrics().horizontalAdvance(u"1.920,00"_s));
    QFont Grassetto = Righe->font();
    Grassetto.setBold(true);
    for (const int Colonna : {OnoImporto, OnoMedio, OnoMin, OnoMax}) {
        const int Totale = QFontMetrics(Grassetto).horizontalAdvance(Righe->TestoPie(Colonna));
        QVERIFY(Totale > 0);
        QVERIFY2(Vista->columnWidth(Colonna) > Totale + 8, qPrintable(Righe->TestoPie(Colonna)));
    }
    QVERIFY(!Righe->ColonneMosse());
    Premi(Qt::Key_Escape);
    Respiro();
    QVERIFY(!Pannello()->isVisible());
    QCOMPARE(Righe->Larghezze(), Prima);
}

void TestModOno::gliImportiGrandiSiVedonoInteri()
{
    Apri(0);
    const int Solita = Pannello()->width();
    Clic(Controllo(F, "cmdAnnModOno"));
    Riga(999999999999, 999999999999, 999999999999, 999999999999, 3);
    F->MostraTutto();
    Apri(0);
    QCOMPARE(Pannello()->width(), Solita);
    Clic(Controllo(F, "optModAll_1"));
    for (int i = 0; i < 5; ++i)
        Respiro();
    const auto* Totale = Controllo<QLabel>(F, "lblImpOno");
    QCOMPARE(Totale->text(), u"1.000.000.000.989,00"_s);
    QVERIFY(Totale->width() >= Totale->sizeHint().width());
    for (int Quale = 0; Quale < NumFasce; ++Quale)
        QVERIFY(Fasce()->fontMetrics().horizontalAdvance(Fasce()->item(Quale)->text()) <
                Fasce()->viewport()->width());
}

void TestModOno::ancheAllaSecondaAperturaSiArrivaAlMassimo_data()
{
    QTest::addColumn<int>("Larghezza");
    QTest::addColumn<QByteArray>("Chiude");
    QTest::addColumn<bool>("NelQuadro");
    for (const bool NelQuadro : {false, true})
        for (const int Larghezza : {620, 760, 853})
            for (const char* Bottone : {"barListaOnoDir_variaz", "cmdModOno", ""})
                QTest::addRow("%d, %s%s", Larghezza, *Bottone ? Bottone : "altra scheda",
                              NelQuadro ? ", nel quadro" : "")
                    << Larghezza << QByteArray(Bottone) << NelQuadro;
}

void TestModOno::ancheAllaSecondaAperturaSiArrivaAlMassimo()
{
    QFETCH(int, Larghezza);
    QFETCH(QByteArray, Chiude);
    QFETCH(bool, NelQuadro);
    QMdiArea Quadro;
    Quadro.resize(1300, 700);
    QMdiSubWindow* Sotto = NelQuadro ? Quadro.addSubWindow(F) : nullptr;
    if (Sotto) {
        QVERIFY(MostraAttiva(Quadro));
        Sotto->show();
    }
    const auto Riporta = qScopeGuard([&] {
        if (Sotto)
            F->setParent(nullptr);
    });
    (Sotto ? static_cast<QWidget*>(Sotto) : F)->resize(Larghezza, 480);
    Respiro();
    auto* Barra = Righe->findChild<QScrollBar*>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(Barra);
    const QTableView* Vista = Righe->Vista();
    for (int Volta = 1; Volta <= 3; ++Volta) {
        const QByteArray Quale = QByteArray::number(Volta);
        Apri(0);
        QVERIFY(Pannello()->isVisible());
        const int Oltre = Vista->horizontalHeader()->length() - Vista->viewport()->width();
        QVERIFY2(Barra->isVisible() == (Oltre > 0), Quale);
        Barra->setValue(Barra->maximum());
        const QRect Massimo = Vista->visualRect(Vista->model()->index(0, OnoMax));
        QVERIFY2(Massimo.left() >= 0 && Massimo.right() <= Vista->viewport()->width(), Quale);
        const QWidget* Pagina = PaginaIn(F);
        QVERIFY2(Pannello()->mapTo(Pagina, Pannello()->rect().bottomRight()).x() < Pagina->width(), Quale);
        QVERIFY2(Righe->mapTo(Pagina, QPoint(Righe->width(), 0)).x() <=
                     Pannello()->mapTo(Pagina, QPoint()).x(),
                 Quale);
        if (Chiude.isEmpty()) {
            ClicScheda(F, SchedaListaSpese);
            ClicScheda(F, SchedaListaOnorari);
        } else {
            Conferma()->setEnabled(true);
            Clic(Controllo(Pagina, Chiude.constData()));
            Respiro();
        }
        QVERIFY(!Pannello()->isVisible());
    }
}

void TestModOno::lAmbitoGiaSceltoNonSiRicarica()
{
    Apri(0);
    Cursore()->setFocus();
    Premi(Qt::Key_PageUp);
    const QString Graduato = Testo("lblImpOno");
    QVERIFY(Graduato != u"1.200,00" && Conferma()->isEnabled());
    Clic(Controllo<QRadioButton>(F, "optModAll_0"));
    QCOMPARE(Testo("lblImpOno"), Graduato);
    QVERIFY(Conferma()->isEnabled());
}

void TestModOno::effeSeiArrivaAlPannello()
{
    Righe->setFocus();
    Premi(Qt::Key_F6);
    QVERIFY2(QApplication::focusWidget() == Controllo(F, "txtCercaOno"), "chiuso non conta");
    Apri(0);
    Righe->setFocus();
    Premi(Qt::Key_F6);
    QCOMPARE(QApplication::focusWidget(), Cursore());
    Conferma()->setEnabled(true);
    Conferma()->setFocus();
    Premi(Qt::Key_F6);
    QCOMPARE(QApplication::focusWidget(), Controllo(F, "txtCercaOno"));
}

#include "TestModOno.moc"
