// Tab 2 by mouse and keyboard: expense items and the amounts typed into them.
#include "core/posti.h"
#include "platform/base/regionale.h"
#include "tavolo.h"

using namespace Qt::StringLiterals;

class TestSchedaSpese : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void senzaPassareDagliOnorari();
    void doppioClicInserisce();
    void laSpesaInseritaAspettaLImporto_data();
    void laSpesaInseritaAspettaLImporto();
    void effeSeiFraGliElenchi();
    void laStessaVocePiuVolte();
    void importiEPiedi();
    void rigaScrittaAMano();
    void rigaSenzaImporti();
    void celleSbagliate_data();
    void celleSbagliate();
    void battutoAltroCheUnNumero_data();
    void battutoAltroCheUnNumero();
    void cercaNelCatalogo();
    void modoRigaSelezionata();

private:
    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    Griglia* Lista = nullptr;
    Griglia* Righe = nullptr;
};
PROVA(TestSchedaSpese);

void TestSchedaSpese::init()
{
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
    CompilaCivile(F);
    ClicScheda(F, SchedaListaSpese);
    QCOMPARE(F->Scheda(), int(SchedaListaSpese));
    Lista = Controllo<Griglia>(F, "tdbListaDir");
    Righe = Controllo<Griglia>(F, "tdbDir");
}

void TestSchedaSpese::cleanup()
{
    T.reset();
}

void TestSchedaSpese::senzaPassareDagliOnorari()
{
    QVERIFY(Lista->Righe() > 0);
    QVERIFY(F->Nota.xOnorari.Vuota());
}

void TestSchedaSpese::doppioClicInserisce()
{
    DoppioClic(Lista, 0);
    QCOMPARE(F->Nota.xDiritti.Righe(), 1);
    QCOMPARE(F->Nota.xDiritti(0, DirDescr).toString(), u"Contributo unificato di iscrizione a ruolo"_s);
    QCOMPARE(CStr(F->Nota.xDiritti(0, DirQta)), u"1"_s);
    QVERIFY(CStr(F->Nota.xDiritti(0, DirData)).isEmpty());
    QCOMPARE(F->Nota.xDiritti(0, DirImponibile).toDouble(), 0.0);
    QVERIFY(CStr(F->Nota.xDiritti(0, DirEsente)).isEmpty());
    QCOMPARE(CStr(F->Nota.xDiritti(0, DirNVoce)), u"1"_s);
    QCOMPARE(CStr(F->Nota.xDiritti(0, DirIDDir)), u"1"_s);
    QVERIFY(InfoParcelle[1].Modificata);
}

void TestSchedaSpese::laSpesaInseritaAspettaLImporto_data()
{
    QTest::addColumn<bool>("DaTastiera");
    QTest::newRow("doppio clic") << false;
    QTest::newRow("Invio") << true;
}

void TestSchedaSpese::laSpesaInseritaAspettaLImporto()
{
    QFETCH(bool, DaTastiera);
    if (DaTastiera) {
        Lista->setFocus();
        Lista->ImpostaRigaCorrente(1);
        Premi(Qt::Key_Return);
    } else {
        DoppioClic(Lista, 1);
    }
    QCOMPARE(QApplication::focusWidget(), LaCella(Righe));
    Digita(u"98,50"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Nota.xDiritti(0, DirImponibile).toDouble(), 98.5);
}

void TestSchedaSpese::effeSeiFraGliElenchi()
{
    QWidget* Cerca = Controllo(F, "txtCercaDir");
    QWidget* Bottone = Controllo(PaginaIn(F), "barListaOnoDir_select");
    const QList<QWidget*> Giro{Cerca, Lista->Vista(), Righe->Vista(), Cerca};
    Cerca->setFocus();
    for (qsizetype i = 1; i < Giro.size(); ++i) {
        Premi(Qt::Key_F6);
        QCOMPARE(QApplication::focusWidget(), Giro[i]);
    }
    for (qsizetype i = Giro.size() - 1; i-- > 0;) {
        Premi(Qt::Key_F6, Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget(), Giro[i]);
    }
    Bottone->setFocus();
    Premi(Qt::Key_F6);
    QCOMPARE(QApplication::focusWidget(), Righe->Vista());
    Bottone->setFocus();
    Premi(Qt::Key_F6, Qt::ShiftModifier);
    QCOMPARE(QApplication::focusWidget(), Lista->Vista());

    // An open cell is written before, and one that refuses keeps the focus.
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, DirDescr);
    Digita(u"Bolli"_s);
    Premi(Qt::Key_F6);
    QCOMPARE(QApplication::focusWidget(), Cerca);
    QCOMPARE(F->Nota.xDiritti(0, DirDescr).toString(), u"Bolli"_s);
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, DirImponibile);
    Premi(Qt::Key_F2);
    Incolla(LaCella(Righe), u"abc"_s);
    T->Voce.Attendi(u"Immettere un valore numerico!"_s, vbOK, u"Errore:"_s);
    Premi(Qt::Key_F6);
    Respiro();
    QVERIFY(Righe->InModifica());
    QCOMPARE(QApplication::focusWidget(), LaCella(Righe));
}

void TestSchedaSpese::laStessaVocePiuVolte()
{
    DoppioClic(Lista, 2);
    DoppioClic(Lista, 2);
    QCOMPARE(F->Nota.xDiritti.Righe(), 2);
    QCOMPARE(Righe->RigaCorrente(), std::optional(1));
}

void TestSchedaSpese::importiEPiedi()
{
    DoppioClic(Lista, 0);
    DoppioClic(Lista, 1);
    ScriviCella(Righe, 0, DirImponibile, u"1098,5"_s);
    ScriviCella(Righe, 1, DirEsente, u"27"_s);
    ScriviCella(Righe, 1, DirData, u"06032024"_s);
    QCOMPARE(Righe->TestoPie(DirDescr), u"Totali "_s);
    QCOMPARE(Righe->TestoPie(DirImponibile), u"1.098,50"_s);
    QCOMPARE(Righe->TestoPie(DirEsente), u"27,00"_s);
    QCOMPARE(Controllo<QLabel>(F, "lblSpImp")->text(), u"Sp.Imp: 1.098,50"_s);
    QCOMPARE(Controllo<QLabel>(F, "lblSpese")->text(), u"Esenti: 27,00"_s);
    QCOMPARE(Controllo<QLabel>(F, "lblTotal")->text(), u"Totale: 1.125,50"_s);
    QCOMPARE(CStr(F->Nota.xDiritti(1, DirData)), u"06/03/2024"_s);
}

void TestSchedaSpese::rigaScrittaAMano()
{
    ScriviCella(Righe, 0, DirDescr, u"Fotocopie"_s);
    ScriviCella(Righe, 0, DirImponibile, u"12,30"_s);
    QCOMPARE(F->Nota.xDiritti.Righe(), 1);
    QVERIFY(!F->Nota.xDiritti(0, DirNVoce).isValid());
    QVERIFY(!F->Nota.xDiritti(0, DirIDDir).isValid());
    QCOMPARE(CalcolaSomme(F->Nota).TotSpeseImp, 12.3);
}

void TestSchedaSpese::rigaSenzaImporti()
{
    ScriviCella(Righe, 0, DirDescr, u"Da quantificare"_s);
    QCOMPARE(CalcolaSomme(F->Nota), Somme());
    QCOMPARE(Righe->TestoPie(DirImponibile), u"0"_s);
}

void TestSchedaSpese::celleSbagliate_data()
{
    QTest::addColumn<int>("Colonna");
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QString>("Messaggio");
    const QString Data = u"La data inserita non è valida!\nFormato valido: gg/mm/aaaa"_s;
    const QString Numero = u"Immettere un valore numerico!"_s;
    QTest::newRow("data") << int(DirData) << u"31/02/2012"_s << Data;
    QTest::newRow("imponibile") << int(DirImponibile) << u"12.5"_s << Numero;
    QTest::newRow("esente") << int(DirEsente) << u"abc"_s << Numero;
    QTest::newRow("quantità") << int(DirQta) << u"due"_s << Numero;
}

void TestSchedaSpese::celleSbagliate()
{
    QFETCH(int, Colonna);
    QFETCH(QString, Testo);
    QFETCH(QString, Messaggio);
    DoppioClic(Lista, 0);
    const QStringList Prima = Testi(F->Nota.xDiritti, {DirData, DirDescr, DirQta, DirImponibile, DirEsente});
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, Colonna);
    Premi(Qt::Key_F2);
    Incolla(LaCella(Righe), Testo);
    T->Voce.Attendi(Messaggio, vbOK, u"Errore:"_s);
    Premi(Qt::Key_Tab);
    Respiro();
    QVERIFY(Righe->InModifica());
    QCOMPARE(Testi(F->Nota.xDiritti, {DirData, DirDescr, DirQta, DirImponibile, DirEsente}), Prima);
}

void TestSchedaSpese::battutoAltroCheUnNumero_data()
{
    QTest::addColumn<int>("Colonna");
    QTest::addColumn<QString>("Battuto");
    QTest::addColumn<QString>("Messaggio");
    QTest::addColumn<QString>("Valore");
    QTest::newRow("data fra gli importi")
        << int(DirImponibile) << u"1/3/26"_s
        << u"In questa casella non si può scrivere «/»: controllare il valore «1326»!"_s << u"1326"_s;
    QTest::newRow("lettere nella quantità")
        << int(DirQta) << u"2bis"_s
        << u"In questa casella non si può scrivere «bis»: controllare il valore «2»!"_s << u"2"_s;
    QTest::newRow("valuta e spazi") << int(DirEsente) << u"€ 1 200,50"_s << QString() << u"1200,5"_s;
}

void TestSchedaSpese::battutoAltroCheUnNumero()
{
    QFETCH(int, Colonna);
    QFETCH(QString, Battuto);
    QFETCH(QString, Messaggio);
    DoppioClic(Lista, 0);
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, Colonna);
    Premi(Qt::Key_F2);
    LaCella(Righe)->clear();
    const QString Prima = CStr(F->Nota.xDiritti(0, Colonna));
    Digita(Battuto);
    if (!Messaggio.isEmpty()) {
        T->Voce.Attendi(Messaggio, vbOK, u"Errore:"_s);
        Premi(Qt::Key_Return);
        Respiro();
        QVERIFY2(Righe->InModifica(), "il valore resta da guardare");
        QCOMPARE(CStr(F->Nota.xDiritti(0, Colonna)), Prima);
    }
    Premi(Qt::Key_Return);
    QTEST(CStr(F->Nota.xDiritti(0, Colonna)), "Valore");
}

void TestSchedaSpese::cercaNelCatalogo()
{
    Controllo(F, "txtCercaDir")->setFocus();
    Digita(u"bollo"_s);
    QCOMPARE(Lista->RigaCorrente(), std::optional(2));
}

void TestSchedaSpese::modoRigaSelezionata()
{
    DoppioClic(Lista, 0);
    DoppioClic(Lista, 1);
    T->Voce.Attendi(u"Le nuove prestazioni saranno inserite nella riga selezionata!"_s, vbOK,
                    u"Avvertenza:"_s);
    Clic(Controllo(PaginaIn(F), "barListaOnoDir_currentrow"));
    QVERIFY(!F->Nota.InsUltimaDir);
    QVERIFY2(F->Nota.InsUltimaOno, "ogni elenco ha il suo modo");
    Righe->ImpostaRigaCorrente(0);
    DoppioClic(Lista, 2);
    QCOMPARE(CStr(F->Nota.xDiritti(0, DirIDDir)), u"3"_s);
}

#include "TestSchedaSpese.moc"
