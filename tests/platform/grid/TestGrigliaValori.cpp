// What a cell of a grid takes and what it refuses, by keyboard and mouse on the real widget.
#include "celle.h"

#include "platform/base/errore.h"

using namespace Qt::StringLiterals;

class TestGrigliaValori : public QObject, private BancoCelle
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void f6NonLasciaCioCheSiRifiuta();
    void unTastoFiltratoNonApre();
    void ilPuntoDelTastierinoFaVirgola();
    void laDataSenzaSeparatori_data();
    void laDataSenzaSeparatori();
    void laDataRifiutataRidaQuellaDiPrima();
    void ilTestoPiuLungoDellaCellaRestaIntero();
    void ilNumeroSiScriveComeNumero();
    void lunghezzaMassima();
    void rifiutoTieneApertaLaCella();
    void rifiutoAlClicAltrove();
    void rifiutoAllUscita();
    void ilMessaggioNonRientra();
    void unErroreNellaRegolaRifiuta();
    void lettereAccentate();
    void rigaNuovaRiempitaDallaRegola();
    void laRigaCheNonSiLascia();
    void laRigaToccataSiChiedeUscendo();
    void valoreDelModulo();
    void soloMaiuscole();
};
PROVA(TestGrigliaValori);

void TestGrigliaValori::unTastoFiltratoNonApre()
{
    F->Righe(0, Importo) = 12.5;
    F->Vai(0, Importo);
    Digita(u"x"_s);
    QVERIFY2(!F->Griglia_->InModifica(), "una lettera non vuota la cella di un importo");
    QCOMPARE(F->Righe(0, Importo).toDouble(), 12.5);
    Digita(u"3x4"_s);
    QVERIFY(F->Cella());
    QCOMPARE(F->Cella()->text(), u"34"_s);
}

void TestGrigliaValori::ilPuntoDelTastierinoFaVirgola()
{
    F->Vai(0, Importo);
    Digita(u"1"_s);
    Digita(u"."_s, Qt::KeypadModifier);
    Digita(u"5"_s);
    QCOMPARE(F->Cella()->text(), u"1,5"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Righe(0, Importo).toDouble(), 1.5);
}

void TestGrigliaValori::laDataSenzaSeparatori_data()
{
    QTest::addColumn<QString>("Digitato");
    QTest::addColumn<QString>("Scritto");
    QTest::newRow("otto cifre") << u"31122012"_s << u"31/12/2012"_s;
    QTest::newRow("sei cifre, secolo nuovo") << u"010229"_s << u"01/02/2029"_s;
    QTest::newRow("sei cifre, secolo vecchio") << u"010230"_s << u"01/02/1930"_s;
    QTest::newRow("cifre sole") << u"1/2/2013"_s << u"01/02/2013"_s;
    QTest::newRow("trattini") << u"1-2-13"_s << u"01/02/2013"_s;
    QTest::newRow("giorno che non esiste: resta") << u"31022012"_s << u"31022012"_s;
    QTest::newRow("sette cifre non sono una data") << u"3112201"_s << u"3112201"_s;
}

void TestGrigliaValori::laDataSenzaSeparatori()
{
    QFETCH(QString, Digitato);
    F->Vai(0, Data);
    Digita(Digitato);
    Premi(Qt::Key_Return);
    QTEST(F->Righe(0, Data).toString(), "Scritto");
}

void TestGrigliaValori::ilNumeroSiScriveComeNumero()
{
    F->Vai(0, Importo);
    Digita(u"1.234,5"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Righe(0, Importo), QVariant(1234.5));
    F->Vai(0, Descrizione);
    Digita(u"1234"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Righe(0, Descrizione), QVariant(u"1234"_s));
}

void TestGrigliaValori::lunghezzaMassima()
{
    F->Vai(0, Descrizione);
    Digita(QString(30, u'a'));
    Premi(Qt::Key_Return);
    QCOMPARE(F->Righe(0, Descrizione).toString(), QString(20, u'a'));
}

void TestGrigliaValori::rifiutoTieneApertaLaCella()
{
    F->Convalida([](int, const QString& Testo) { return Testo != u"no"; });
    F->Vai(0, Descrizione);
    Digita(u"no"_s);
    Premi(Qt::Key_Return);
    QVERIFY(F->Cella());
    QCOMPARE(F->Cella()->text(), u"no"_s);
    QCOMPARE(F->Righe(0, Descrizione).toString(), u"prima"_s);
    QVERIFY(!F->Griglia_->Concludi());
    Respiro();
    QVERIFY(F->Cella()->hasFocus());
    Premi(Qt::Key_End);
    Digita(u"rma"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Righe(0, Descrizione).toString(), u"norma"_s);
}

void TestGrigliaValori::rifiutoAlClicAltrove()
{
    int Chieste = 0;
    F->Convalida([&](int, const QString&) { return ++Chieste > 99; });
    QSignalSpy Clic(F->Griglia_, &Griglia::ClicCella);
    F->Vai(0, Descrizione);
    Digita(u"no"_s);
    F->Clic(2, Importo);
    Respiro();
    QCOMPARE(Chieste, 1);
    QCOMPARE(F->Griglia_->RigaCorrente(), std::optional(0));
    QVERIFY2(Clic.isEmpty(), "il clic non arriva a una cella che non diventa corrente");
    QVERIFY(F->Cella() && F->Cella()->hasFocus());
    QCOMPARE(F->Cella()->text(), u"no"_s);
    QTest::mouseClick(F->Vista()->verticalHeader()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(5, F->Centro(1, 0).y()));
    QCOMPARE(Chieste, 2);
    QVERIFY2(F->Griglia_->Selezione().isEmpty(), "nemmeno il selettore passa");
}

void TestGrigliaValori::rifiutoAllUscita()
{
    F->Convalida([](int, const QString&) { return false; });
    F->Vai(0, Descrizione);
    Digita(u"no"_s);
    F->Dopo->setFocus(Qt::MouseFocusReason);
    Respiro();
    QVERIFY(F->Cella() && F->Cella()->hasFocus());
    QVERIFY2(!ConcludiCampo(), "nessun comando passa");
    QCOMPARE(F->Righe(0, Descrizione).toString(), u"prima"_s);
}

void TestGrigliaValori::ilMessaggioNonRientra()
{
    int Chieste = 0;
    F->Convalida([&](int, const QString&) {
        ++Chieste;
        // What a message box does to the focus.
        F->Dopo->setFocus();
        return false;
    });
    F->Vai(0, Descrizione);
    Digita(u"no"_s);
    Premi(Qt::Key_Return);
    Respiro();
    QCOMPARE(Chieste, 1);
    QVERIFY(F->Cella() && F->Cella()->hasFocus());
}

void TestGrigliaValori::unErroreNellaRegolaRifiuta()
{
    int Numero = 0;
    const auto Precedente = InstallaUltimaRete([&](const Errore& E) { Numero = E.Numero; });
    F->Convalida([](int, const QString&) -> bool { throw Errore(13); });
    F->Vai(0, Descrizione);
    Digita(u"x"_s);
    Premi(Qt::Key_Return);
    InstallaUltimaRete(Precedente);
    QCOMPARE(Numero, 13);
    QVERIFY(F->Griglia_->InModifica());
    QCOMPARE(F->Righe(0, Descrizione).toString(), u"prima"_s);
}

void TestGrigliaValori::lettereAccentate()
{
    F->Vai(0, Descrizione);
    Digita(u"è già così"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Righe(0, Descrizione).toString(), u"è già così"_s);
    QInputMethodEvent Composto;
    Composto.setCommitString(u"ò"_s);
    F->Vai(1, Descrizione);
    QCoreApplication::sendEvent(F->Vista(), &Composto);
    QVERIFY(F->Cella());
    QCOMPARE(F->Cella()->text(), u"ò"_s);
}

void TestGrigliaValori::rigaNuovaRiempitaDallaRegola()
{
    F->Griglia_->ConsentiNuove(true);
    F->Griglia_->NuovaRiga = [&](int Riga) {
        F->Righe(Riga, Nota) = u"E"_s;
        F->Righe(Riga, Descrizione) = u"da sostituire"_s;
    };
    F->Vai(3, Descrizione);
    Digita(u"mia"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Righe(3, Nota).toString(), u"E"_s);
    QCOMPARE(F->Righe(3, Descrizione).toString(), u"mia"_s);
}

void TestGrigliaValori::laRigaCheNonSiLascia()
{
    QList<int> Chieste;
    bool Lascia = false;
    F->Griglia_->LasciaRiga = [&](int Riga) {
        Chieste += Riga;
        return Lascia;
    };
    F->Vai(0, Data);
    Chieste.clear();
    F->Clic(2, Descrizione);
    QCOMPARE(Chieste, QList<int>{0});
    QCOMPARE(F->Griglia_->RigaCorrente(), std::optional(0));
    Premi(Qt::Key_Down);
    QCOMPARE(F->Griglia_->RigaCorrente(), std::optional(0));
    Chieste.clear();
    Premi(Qt::Key_Right);
    QVERIFY2(Chieste.isEmpty(), "nella stessa riga non si chiede");
    QCOMPARE(F->Griglia_->ColonnaCorrente(), int(Descrizione));
    Lascia = true;
    Premi(Qt::Key_Down);
    QCOMPARE(F->Griglia_->RigaCorrente(), std::optional(1));
    Lascia = false;
    F->Griglia_->ImpostaRigaCorrente(2);
    QVERIFY2(F->Griglia_->RigaCorrente() == 2, "il codice non chiede");
}

void TestGrigliaValori::laRigaToccataSiChiedeUscendo()
{
    int Chieste = 0;
    bool Lascia = false;
    F->Griglia_->LasciaRiga = [&](int) {
        ++Chieste;
        return Lascia;
    };
    F->Vai(0, Descrizione);
    F->Dopo->setFocus();
    QVERIFY2(Chieste == 0 && F->Dopo->hasFocus(), "una riga intatta si lascia uscendo dalla griglia");
    F->Vai(0, Descrizione);
    Digita(u"x"_s);
    F->Dopo->setFocus(Qt::MouseFocusReason);
    Respiro();
    QCOMPARE(Chieste, 1);
    QCOMPARE(F->Righe(0, Descrizione).toString(), u"x"_s);
    QVERIFY2(F->Vista()->hasFocus(), "il fuoco torna alla riga rifiutata");
    QVERIFY(!F->Griglia_->Concludi());
    Lascia = true;
    QVERIFY(F->Griglia_->Concludi());
    Chieste = 0;
    QVERIFY2(F->Griglia_->Concludi() && Chieste == 0, "una volta accettata non si richiede");
}

void TestGrigliaValori::valoreDelModulo()
{
    QList<ColonnaGriglia> Colonne = QuattroColonne();
    Colonne[Descrizione].Valore = [](const QString& Testo) { return QVariant(Testo.toUpper()); };
    F->Griglia_->ImpostaColonne(Colonne);
    F->Vai(0, Descrizione);
    Digita(u"le"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Righe(0, Descrizione).toString(), u"LE"_s);
}

void TestGrigliaValori::soloMaiuscole()
{
    QList<ColonnaGriglia> Colonne = QuattroColonne();
    Colonne[Descrizione].Maiuscole = true;
    F->Griglia_->ImpostaColonne(Colonne);
    F->Vai(1, Descrizione);
    Digita(u"aBc"_s);
    QCOMPARE(F->Cella()->text(), u"ABC"_s);
    F->Cella()->insert(u"d"_s);
    Premi(Qt::Key_Return);
    QCOMPARE(F->Righe(1, Descrizione).toString(), u"ABCD"_s);
}

void TestGrigliaValori::f6NonLasciaCioCheSiRifiuta()
{
    F->Convalida([](int, const QString&) { return false; });
    F->Vai(0, Descrizione);
    Digita(u"x"_s);
    Premi(Qt::Key_F6);
    Respiro();
    QVERIFY(F->Griglia_->InModifica());
    QCOMPARE(QApplication::focusWidget(), F->Cella());
}

void TestGrigliaValori::laDataRifiutataRidaQuellaDiPrima()
{
    F->Righe(0, Data) = u"05/03/2024"_s;
    F->Convalida([](int, const QString&) { return false; });
    F->Vai(0, Data);
    Digita(u"3102"_s);
    Premi(Qt::Key_Return);
    Respiro();
    QVERIFY(F->Griglia_->InModifica());
    QCOMPARE(F->Cella()->text(), u"05/03/2024"_s);
    QCOMPARE(F->Cella()->selectedText(), u"05/03/2024"_s);
    Premi(Qt::Key_Return);
    QVERIFY2(!F->Griglia_->InModifica(), "quella di prima non si domanda");
}

void TestGrigliaValori::ilTestoPiuLungoDellaCellaRestaIntero()
{
    const QString Lunga = u"trenta caratteri di descrizione"_s;
    F->Righe(0, Descrizione) = Lunga;
    QSignalSpy Scritta(F->Griglia_, &Griglia::CellaScritta);
    F->Vai(0, Descrizione);
    Premi(Qt::Key_F2);
    QCOMPARE(F->Cella()->text(), Lunga.left(20));
    Premi(Qt::Key_Return);
    QCOMPARE(F->Righe(0, Descrizione).toString(), Lunga);
    QVERIFY(Scritta.isEmpty());
}

#include "TestGrigliaValori.moc"
