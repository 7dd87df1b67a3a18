// What is done with selected lines by mouse and keyboard: cut, copy, paste, undo.
#include "righescelte.h"

using namespace Qt::StringLiterals;

namespace {

const QString NienteDaIncollare = u"Non è presente alcuna voce da incollare!"_s;

const QString TagliarnePiu = u"Confermi la cancellazione delle voci selezionate?"_s;

}  // namespace

class TestRigheScelte : public QObject, private BancoRigheScelte
{
    Q_OBJECT
private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void tagliaColBottone();
    void tagliaSenzaScelta();
    void ilClicSceglieLaRigaPerLaBarra_data();
    void ilClicSceglieLaRigaPerLaBarra();
    void laRigaLasciataNonEPiuScelta();
    void ilClicNonSceglieLaRigaPerITasti();
    void ilClicAltroveLasciaLaSelezione();
    void tagliaNo();
    void tagliaDalBassoInAlto();
    void tagliaTutteEIncolla();
    void copiaEIncolla();
    void laCellaSiCopiaComeTesto();
    void tastiera();
    void laCellaApertaTieneISuoiTasti();
    void neiTestiCtrlZAnnullaIlTesto();
    void laCellaRifiutataFermaIlTaglio();
    void incollaAllaRigaSelezionata();
    void linserimentoNonSpostaLaSelezione_data();
    void linserimentoNonSpostaLaSelezione();
    void incollaDueVolte();
    void annullaNelPostoDiPrima_data();
    void annullaNelPostoDiPrima();
    void annullaSenzaTaglio();
    void onorariFraLeSpese();
    void lontanoDagliOnorariGliAppuntiRestano();
    void unAltraNotaNonEreditaGliAppunti();
    void unAltraNotaNonEreditaIlClic();
};
PROVA(TestRigheScelte);

void TestRigheScelte::tagliaColBottone()
{
    QVERIFY(!Tasto("incolla")->isEnabled() && !Tasto("annulla")->isEnabled());
    ClicSelettore(Righe, 1);
    ClicSelettore(Righe, 3, Qt::ControlModifier);
    T->Voce.Attendi(TagliarnePiu, vbYes, u"Domanda:"_s);
    Clic(Tasto("taglia"));
    QCOMPARE(Nomi(), u"ace"_s);
    QVERIFY(Righe->Selezione().isEmpty());
    QVERIFY(Tasto("incolla")->isEnabled() && Tasto("annulla")->isEnabled());
    QVERIFY(F->Nota.Modificata);
    QTRY_VERIFY(Righe->isAncestorOf(QApplication::focusWidget()));
    QCOMPARE(Controllo<QLabel>(F, "lblOnora")->text(), u"Onor.: 900,00"_s);
    QCOMPARE(Righe->TestoPie(OnoImporto), u"900,00"_s);
}

void TestRigheScelte::tagliaSenzaScelta()
{
    T->Voce.Attendi(NienteScelto, vbOK, u"Errore:"_s);
    Clic(Tasto("taglia"));
    T->Voce.Attendi(NienteScelto, vbOK, u"Errore:"_s);
    Clic(Tasto("copia"));
    QCOMPARE(Nomi(), u"abcde"_s);
    QVERIFY(!F->Nota.Modificata);
}

void TestRigheScelte::ilClicSceglieLaRigaPerLaBarra_data()
{
    QTest::addColumn<bool>("FraLeSpese");
    QTest::newRow("onorari") << false;
    QTest::newRow("spese") << true;
}

void TestRigheScelte::ilClicSceglieLaRigaPerLaBarra()
{
    QFETCH(bool, FraLeSpese);
    if (FraLeSpese) {
        for (const QChar Nome : u"abcde"_s)
            F->Nota.xDiritti(RigaSpesa(F->Nota, 1.0, {}), DirDescr) = QString(Nome);
        ClicScheda(F, SchedaListaSpese);
    }
    const TabellaRighe& Tabella = FraLeSpese ? F->Nota.xDiritti : F->Nota.xOnorari;
    const Griglia* Elenco = FraLeSpese ? Spese : Righe;
    const auto Rimaste = [&] { return Testi(Tabella, {1}).join(QString()); };
    ClicCella(Elenco, 3, 1);
    T->Voce.Attendi(TagliarneUna, vbYes, u"Domanda:"_s);
    Clic(Tasto("taglia"));
    QCOMPARE(Rimaste(), u"abce"_s);
    ClicCella(Elenco, 0, 1);
    Clic(Tasto("copia"));
    ClicSelettore(Elenco, 2);
    Clic(Tasto("incolla"));
    QCOMPARE(Rimaste(), u"abcea"_s);
}

void TestRigheScelte::laRigaLasciataNonEPiuScelta()
{
    ClicCella(Righe, 3, OnoDescr);
    Premi(Qt::Key_Up);
    T->Voce.Attendi(NienteScelto, vbOK, u"Errore:"_s);
    Clic(Tasto("taglia"));
    // After a cut another line has come to the place of the one clicked.
    ClicCella(Righe, 1, OnoDescr);
    T->Voce.Attendi(TagliarneUna, vbYes);
    Clic(Tasto("taglia"));
    T->Voce.Attendi(NienteScelto, vbOK, u"Errore:"_s);
    Clic(Tasto("taglia"));
    QCOMPARE(Nomi(), u"acde"_s);
}

void TestRigheScelte::ilClicNonSceglieLaRigaPerITasti()
{
    ClicCella(Righe, 3, OnoMedio);
    for (int i = 0; i < 2; ++i)
        T->Voce.Attendi(NienteScelto, vbOK, u"Errore:"_s);
    Premi(Qt::Key_Delete);
    Premi(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(Nomi(), u"abcde"_s);
}

void TestRigheScelte::ilClicAltroveLasciaLaSelezione()
{
    ClicSelettore(Righe, 0);
    ClicSelettore(Righe, 1, Qt::ControlModifier);
    ClicCella(Righe, 1, OnoDescr);
    QVERIFY2(Righe->Selezione() == (QList{0, 1}), "su una riga scelta non cambia nulla");
    ClicCella(Righe, 4, OnoDescr);
    QVERIFY(Righe->Selezione().isEmpty());
    T->Voce.Attendi(NienteScelto, vbOK, u"Errore:"_s);
    Premi(Qt::Key_Delete);
    QCOMPARE(Nomi(), u"abcde"_s);
}

void TestRigheScelte::tagliaNo()
{
    ClicSelettore(Righe, 0);
    T->Voce.Attendi(TagliarneUna, vbNo, u"Domanda:"_s);
    Clic(Tasto("taglia"));
    QCOMPARE(Nomi(), u"abcde"_s);
    QCOMPARE(Righe->Selezione(), QList{0});
    QVERIFY(!F->Nota.Modificata && !Tasto("annulla")->isEnabled());
}

void TestRigheScelte::tagliaDalBassoInAlto()
{
    ClicSelettore(Righe, 4);
    ClicSelettore(Righe, 2, Qt::ControlModifier);
    ClicSelettore(Righe, 0, Qt::ControlModifier);
    T->Voce.Attendi(TagliarnePiu, vbYes);
    Clic(Tasto("taglia"));
    QCOMPARE(Nomi(), u"bd"_s);
    QVERIFY2(Righe->RigaCorrente() == std::optional(0), "corrente è il posto del taglio");
    Clic(Tasto("incolla"));
    QVERIFY2(Nomi() == u"bdeca"_s, "in ordine di selezione");
}

void TestRigheScelte::tagliaTutteEIncolla()
{
    Righe->setFocus();
    Premi(Qt::Key_A, Qt::ControlModifier);
    T->Voce.Attendi(TagliarnePiu, vbYes);
    Clic(Tasto("taglia"));
    QCOMPARE(F->Nota.xOnorari.UpperBound(1), -1);
    Clic(Tasto("incolla"));
    QCOMPARE(Nomi(), u"abcde"_s);
    QCOMPARE(Righe->RigaCorrente(), std::optional(0));
}

void TestRigheScelte::copiaEIncolla()
{
    ClicSelettore(Righe, 1);
    Clic(Tasto("copia"));
    QVERIFY(Righe->Selezione().isEmpty());
    QVERIFY(!F->Nota.Modificata);
    QVERIFY(Tasto("incolla")->isEnabled() && !Tasto("annulla")->isEnabled());
    Clic(Tasto("incolla"));
    QCOMPARE(Nomi(), u"abcdeb"_s);
    QCOMPARE(Importi(F->Nota, 5), Importi(F->Nota, 1));
    QCOMPARE(Base(F->Nota, 5), Base(F->Nota, 1));
    QVERIFY(F->Nota.Modificata);
    QVERIFY(!Tasto("incolla")->isEnabled());
}

void TestRigheScelte::laCellaSiCopiaComeTesto()
{
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(1, OnoImporto);
    Premi(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), u"200,00"_s);
    QVERIFY2(!Tasto("incolla")->isEnabled(), "senza righe scelte si copia il testo della cella");
}

void TestRigheScelte::tastiera()
{
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(1);
    Premi(Qt::Key_Space, Qt::ShiftModifier);
    T->Voce.Attendi(TagliarneUna, vbYes);
    Premi(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(Nomi(), u"acde"_s);
    Premi(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Nomi(), u"abcde"_s);
    Premi(Qt::Key_Space, Qt::ShiftModifier);
    Premi(Qt::Key_C, Qt::ControlModifier);
    Premi(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Nomi(), u"abcdeb"_s);
    T->Voce.Attendi(NienteDaIncollare, vbOK, u"Errore:"_s);
    Premi(Qt::Key_V, Qt::ControlModifier);
    T->Voce.Attendi(NienteScelto, vbOK, u"Errore:"_s);
    Premi(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(Nomi(), u"abcdeb"_s);
}

void TestRigheScelte::laCellaApertaTieneISuoiTasti()
{
    ClicSelettore(Righe, 0);
    Righe->ImpostaRigaCorrente(1, OnoDescr);
    Premi(Qt::Key_F2);
    QVERIFY(LaCella(Righe));
    Premi(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), u"b"_s);
    Premi(Qt::Key_V, Qt::ControlModifier);
    Premi(Qt::Key_V, Qt::ControlModifier);
    Premi(Qt::Key_Return);
    QCOMPARE(Nomi(), u"abbcde"_s);
    QCOMPARE(F->Nota.xOnorari.Righe(), 5);
}

void TestRigheScelte::neiTestiCtrlZAnnullaIlTesto()
{
    ClicSelettore(Righe, 1);
    T->Voce.Attendi(TagliarneUna, vbYes);
    Clic(Tasto("taglia"));
    Righe->ImpostaRigaCorrente(0, OnoDescr);
    Premi(Qt::Key_F2);
    Premi(Qt::Key_Z, Qt::ControlModifier);  // nothing typed yet
    Premi(Qt::Key_Delete);
    Premi(Qt::Key_Delete);
    QVERIFY(LaCella(Righe) && LaCella(Righe)->text().isEmpty());
    Premi(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(LaCella(Righe)->text(), u"a"_s);
    Premi(Qt::Key_Escape);

    auto* Cerca = Controllo<QLineEdit>(F, "txtCercaOno");
    Cerca->setFocus();
    Digita(u"studio"_s);
    Premi(Qt::Key_Z, Qt::ControlModifier);
    Premi(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(Cerca->text().isEmpty());
    QVERIFY2(Nomi() == u"acde"_s, "il taglio si annulla solo dalle righe");
    Righe->setFocus();
    Premi(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Nomi(), u"abcde"_s);
}

void TestRigheScelte::laCellaRifiutataFermaIlTaglio()
{
    ClicSelettore(Righe, 0);
    Righe->ImpostaRigaCorrente(1, OnoImporto);
    Premi(Qt::Key_F2);
    Incolla(LaCella(Righe), u"abc"_s);
    T->Voce.Attendi(u"Immettere un valore numerico!"_s, vbOK, u"Errore:"_s);
    Clic(Tasto("taglia"));
    QCOMPARE(Nomi(), u"abcde"_s);
    QVERIFY(Righe->InModifica());
    Premi(Qt::Key_Escape);
}

void TestRigheScelte::incollaAllaRigaSelezionata()
{
    T->Voce.Attendi(u"Le nuove prestazioni saranno inserite nella riga selezionata!"_s, vbOK,
                    u"Avvertenza:"_s);
    Clic(Tasto("currentrow"));
    ClicSelettore(Righe, 4);
    Clic(Tasto("copia"));
    Righe->ImpostaRigaCorrente(2);
    Clic(Tasto("incolla"));
    QCOMPARE(Nomi(), u"abecde"_s);
    QCOMPARE(Righe->RigaCorrente(), std::optional(2));
}

void TestRigheScelte::linserimentoNonSpostaLaSelezione_data()
{
    QTest::addColumn<bool>("FraLeSpese");
    QTest::newRow("onorari") << false;
    QTest::newRow("spese") << true;
}

/// Lines come in before those that are selected: the same lines stay selected, and go.
void TestRigheScelte::linserimentoNonSpostaLaSelezione()
{
    QFETCH(bool, FraLeSpese);
    if (FraLeSpese) {
        for (const QChar Nome : u"abcde"_s)
            F->Nota.xDiritti(RigaSpesa(F->Nota, 1.0, {}), DirDescr) = QString(Nome);
        F->Nota.InsUltimaDir = false;
        ClicScheda(F, SchedaListaSpese);
    } else {
        F->Nota.InsUltimaOno = false;
    }
    const TabellaRighe& Tabella = FraLeSpese ? F->Nota.xDiritti : F->Nota.xOnorari;
    const Griglia* Elenco = FraLeSpese ? Spese : Righe;
    const auto* Catalogo = Controllo<Griglia>(F, FraLeSpese ? "tdbListaDir" : "tdbListaOno");
    ClicSelettore(Elenco, 0);
    ClicSelettore(Elenco, 2, Qt::ControlModifier);
    ClicSelettore(Elenco, 1, Qt::ControlModifier);
    ClicSelettore(Elenco, 1, Qt::ControlModifier);  // current, and not selected
    DoppioClic(Catalogo, Catalogo->Righe() - 1);
    QCOMPARE(Tabella.Righe(), 6);
    QCOMPARE(Elenco->Selezione(), (QList{0, 3}));
    T->Voce.Attendi(TagliarnePiu, vbYes);
    Clic(Tasto("taglia"));
    QStringList Rimaste = Testi(Tabella, {1});
    Rimaste.removeFirst();  // the one inserted
    QCOMPARE(Rimaste.join(QString()), u"bde"_s);
}

void TestRigheScelte::incollaDueVolte()
{
    ClicSelettore(Righe, 0);
    Clic(Tasto("copia"));
    Clic(Tasto("incolla"));
    QVERIFY2(!Tasto("incolla")->isEnabled(), "ciò che si è incollato non si incolla due volte");
    Righe->setFocus();
    T->Voce.Attendi(NienteDaIncollare, vbOK, u"Errore:"_s);
    Premi(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Nomi(), u"abcdea"_s);
}

void TestRigheScelte::annullaNelPostoDiPrima_data()
{
    QTest::addColumn<QList<int>>("Scelte");
    QTest::addColumn<QString>("Restano");
    QTest::newRow("la prima") << QList{0} << u"bcde"_s;
    QTest::newRow("in mezzo") << QList{1, 2} << u"ade"_s;
    QTest::newRow("l'ultima torna ultima") << QList{4} << u"abcd"_s;
    QTest::newRow("tutte") << QList{0, 1, 2, 3, 4} << QString();
}

void TestRigheScelte::annullaNelPostoDiPrima()
{
    QFETCH(QList<int>, Scelte);
    for (const int Riga : Scelte)
        ClicSelettore(Righe, Riga, Qt::ControlModifier);
    T->Voce.Attendi(Scelte.size() == 1 ? TagliarneUna : TagliarnePiu, vbYes);
    Clic(Tasto("taglia"));
    QTEST(Nomi(), "Restano");
    Clic(Tasto("annulla"));
    QCOMPARE(Nomi(), u"abcde"_s);
    QVERIFY(!Tasto("annulla")->isEnabled() && !Tasto("incolla")->isEnabled());
    QCOMPARE(Righe->RigaCorrente(), std::optional(Scelte.first()));
}

/// A note as its file has it: there is neither a cut nor any other step to take back.
void TestRigheScelte::annullaSenzaTaglio()
{
    const QString File = T->Ufficio.File(u"riaperta.mdb"_s);
    ScriviNota(File, F->Nota);
    QVERIFY(F->Carica(File));
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(Nomi(), u"abcde"_s);
    Righe->setFocus();
    T->Voce.Attendi(u"Impossibile annullare!"_s, vbOK, u"Errore:"_s);
    Premi(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Nomi(), u"abcde"_s);
    QVERIFY(!F->Nota.Modificata);
}

void TestRigheScelte::onorariFraLeSpese()
{
    ClicSelettore(Righe, 1);
    Clic(Tasto("copia"));
    ClicScheda(F, SchedaListaSpese);
    QVERIFY(Tasto("incolla")->isEnabled());
    Clic(Tasto("incolla"));
    QCOMPARE(F->Nota.xDiritti.Righe(), 1);
    QCOMPARE(CStr(F->Nota.xDiritti(0, DirDescr)), u"b"_s);
    QCOMPARE(F->Nota.xDiritti(0, DirImponibile).toDouble(), 200.0);
    QCOMPARE(F->Nota.xDiritti(0, DirEsente).toDouble(), 200.0);
    QCOMPARE(Spese->TestoPie(DirImponibile), u"200,00"_s);
    QCOMPARE(Nomi(), u"abcde"_s);
    // On their own tab the expenses are cut, and undone, like the honoraria.
    ClicSelettore(Spese, 0);
    T->Voce.Attendi(TagliarneUna, vbYes);
    Clic(Tasto("taglia"));
    QVERIFY(F->Nota.xDiritti.Vuota());
    Clic(Tasto("annulla"));
    QCOMPARE(F->Nota.xDiritti.Righe(), 1);
}

void TestRigheScelte::lontanoDagliOnorariGliAppuntiRestano()
{
    ClicSelettore(Righe, 1);
    Clic(Tasto("copia"));
    ClicScheda(F, SchedaImposte);
    ClicScheda(F, SchedaListaSpese);
    QVERIFY(Tasto("incolla")->isEnabled());
    ClicScheda(F, SchedaListaOnorari);
    QVERIFY2(!Tasto("incolla")->isEnabled(), "entrando negli onorari si svuotano");
    Righe->setFocus();
    T->Voce.Attendi(NienteDaIncollare, vbOK, u"Errore:"_s);
    Premi(Qt::Key_V, Qt::ControlModifier);
}

void TestRigheScelte::unAltraNotaNonEreditaGliAppunti()
{
    ClicSelettore(Righe, 1);
    T->Voce.Attendi(TagliarneUna, vbYes);
    Clic(Tasto("taglia"));
    F->Nuova({});
    CompilaCivile(F);
    ClicScheda(F, SchedaListaSpese);
    QVERIFY(!Tasto("incolla")->isEnabled() && !Tasto("annulla")->isEnabled());
}

void TestRigheScelte::unAltraNotaNonEreditaIlClic()
{
    const QString File = T->Ufficio.File(u"altra.mdb"_s);
    Parcella Altra = NotaCivile();
    RigaOnorario(Altra, u"f"_s, 100.0);
    ScriviNota(File, Altra);
    ClicCella(Righe, 0, OnoDescr);
    QVERIFY(F->Carica(File));
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(Righe->RigaCorrente(), std::optional(0));
    T->Voce.Attendi(NienteScelto, vbOK, u"Errore:"_s);
    Clic(Tasto("taglia"));
    QCOMPARE(Nomi(), u"f"_s);
}

#include "TestRigheScelte.moc"
