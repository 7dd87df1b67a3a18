// What is done with selected lines by mouse and keyboard: cut, copy, paste, undo, delete, drag.
#include "selettore.h"

#include "core/aperture.h"
#include "platform/system/shell.h"

using namespace Qt::StringLiterals;

namespace {

const QString NienteScelto = u"Evidenziare prima la prestazione cliccando sulla colonna di selezione!"_s;
const QString NienteDaIncollare = u"Non è presente alcuna voce da incollare!"_s;
const QString TagliarneUna = u"Confermi la cancellazione della voce selezionata?"_s;
const QString TagliarnePiu = u"Confermi la cancellazione delle voci selezionate?"_s;

}  // namespace

class TestRigheScelte : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
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
    void canc();
    void cancSenzaScelta();
    void cancConLaCellaAperta_data();
    void cancConLaCellaAperta();
    void onorariFraLeSpese();
    void lontanoDagliOnorariGliAppuntiRestano();
    void unAltraNotaNonEreditaGliAppunti();
    void trascina_data();
    void trascina();
    void trascinaNo();
    void trascinaFuoriDalleRighe();
    void trascinaSenzaScelta();
    void trascinaConLaCellaAperta();
    void trascinaConLaCellaRifiutata();
    void trascinaSoloCoiParametriInOrdine();
    void laGuidaDellaScheda();
    void laRigaSceltaHaIlSuoColore();
    void nuovaRigaIncollataSiSalva();

private:
    [[nodiscard]] QToolButton* Tasto(const char* Chiave) const
    {
        const QByteArray Nome = QByteArray("barListaOnoDir_") + Chiave;
        return PaginaIn(F)->findChild<QToolButton*>(QString::fromLatin1(Nome));
    }
    /// The lines by their letters.
    [[nodiscard]] QString Nomi() const { return Testi(F->Nota.xOnorari, {OnoDescr}).join(QString()); }

    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    Griglia* Righe = nullptr;
    Griglia* Spese = nullptr;
};
PROVA(TestRigheScelte);

void TestRigheScelte::init()
{
    T = std::make_unique<Tavolo>();
    F = ApriSenzaRighe(*T);
    QVERIFY(F);
    for (int i = 0; i < 5; ++i)
        RigaOnorario(F->Nota, QString(QChar(u'a' + i)), 100.0 * (i + 1), i + 1, i + 1);
    F->MostraTutto();
    Righe = Controllo<Griglia>(F, "tdbOnor");
    Spese = Controllo<Griglia>(F, "tdbDir");
    QCOMPARE(Nomi(), u"abcde"_s);
    F->SetModificata(false);
}

void TestRigheScelte::cleanup()
{
    T.reset();
}

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

void TestRigheScelte::canc()
{
    ClicSelettore(Righe, 2);
    Righe->setFocus();
    T->Voce.Attendi(TagliarneUna, vbNo, u"Domanda:"_s);
    Premi(Qt::Key_Delete);
    QCOMPARE(Nomi(), u"abcde"_s);
    T->Voce.Attendi(TagliarneUna, vbYes, u"Domanda:"_s);
    Premi(Qt::Key_Delete);
    QCOMPARE(Nomi(), u"abde"_s);
    Premi(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY2(Nomi() == u"abcde"_s, "anche una cancellazione si annulla");
}

void TestRigheScelte::cancSenzaScelta()
{
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(1);
    T->Voce.Attendi(NienteScelto, vbOK, u"Errore:"_s);
    Premi(Qt::Key_Delete);
    QCOMPARE(Nomi(), u"abcde"_s);
}

void TestRigheScelte::cancConLaCellaAperta_data()
{
    QTest::addColumn<bool>("SulTitolo");
    QTest::newRow("premendo il selettore della sua riga") << false;
    QTest::newRow("premendo il titolo di una colonna") << true;
}

void TestRigheScelte::cancConLaCellaAperta()
{
    QFETCH(bool, SulTitolo);
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, OnoDescr);
    Premi(Qt::Key_Space, Qt::ShiftModifier);
    Digita(u"z"_s);
    QVERIFY(Righe->InModifica());
    if (SulTitolo) {
        const QHeaderView* Testata = Righe->Vista()->horizontalHeader();
        const QPoint Titolo(Testata->sectionViewportPosition(OnoDescr) + 30, 5);
        QTest::mouseClick(Testata->viewport(), Qt::LeftButton, Qt::NoModifier, Titolo);
    } else {
        ClicSelettore(Righe, 0, Qt::ShiftModifier);
    }
    T->Voce.Attendi(TagliarneUna, vbYes, u"Domanda:"_s);
    Premi(Qt::Key_Delete);
    (void)Righe->Concludi();
    QVERIFY2(Nomi() == u"bcde"_s, "la riga che prende il posto resta com'era");
    Premi(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY2(Nomi() == u"zbcde"_s, "ciò che si è scritto è nella sua riga");
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

void TestRigheScelte::trascina_data()
{
    QTest::addColumn<QList<int>>("Scelte");
    QTest::addColumn<int>("SuRiga");
    QTest::addColumn<QString>("Dopo");
    QTest::newRow("in giù") << QList{0} << 3 << u"bcdae"_s;
    QTest::newRow("in su") << QList{4} << 1 << u"aebcd"_s;
    QTest::newRow("in fondo, sulla riga vuota") << QList{1} << 5 << u"acdeb"_s;
    QTest::newRow("due insieme") << QList{3, 4} << 0 << u"deabc"_s;
}

void TestRigheScelte::trascina()
{
    QFETCH(QList<int>, Scelte);
    QFETCH(int, SuRiga);
    const bool Una = Scelte.size() == 1;
    if (!Una)
        for (const int Riga : Scelte)
            ClicSelettore(Righe, Riga, Qt::ControlModifier);
    T->Voce.Attendi(Una ? u"Confermi lo spostamento della riga?"_s
                        : u"Confermi lo spostamento delle righe?"_s,
                    vbYes, u"Domanda:"_s);
    Trascina(Righe, Scelte.last(), SulSelettore(Righe, SuRiga));
    QTEST(Nomi(), "Dopo");
    QVERIFY(F->Nota.Modificata);
    QVERIFY(!Tasto("annulla")->isEnabled());
    QVERIFY(Righe->Selezione().isEmpty());
}

void TestRigheScelte::trascinaNo()
{
    T->Voce.Attendi(u"Confermi lo spostamento della riga?"_s, vbNo, u"Domanda:"_s);
    Trascina(Righe, 0, SulSelettore(Righe, 3));
    QCOMPARE(Nomi(), u"abcde"_s);
    QVERIFY(!F->Nota.Modificata);
}

void TestRigheScelte::trascinaFuoriDalleRighe()
{
    T->Voce.Attendi(u"Riga non valida: selezionare con il puntatore l'interno della riga di destinazione!"_s,
                    vbOK, u"Errore:"_s);
    Trascina(Righe, 0, {8, Selettore(Righe)->height() - 2});
    QCOMPARE(Nomi(), u"abcde"_s);
    Trascina(Righe, 0, {8, Selettore(Righe)->height() + 300});
    QVERIFY2(T->Voce.Mostrati().size() == 1, "fuori dalla griglia non si dice nulla");
}

void TestRigheScelte::trascinaSenzaScelta()
{
    ClicSelettore(Righe, 0);
    T->Voce.Attendi(u"Selezionare la riga cliccando nella colonna di selezione!"_s, vbOK, u"Errore:"_s);
    Trascina(Righe, 0, SulSelettore(Righe, 2), Qt::ControlModifier);  // the press lets the row go
    QCOMPARE(T->Voce.Ultimo().Bandiere, vbCritical);
    QCOMPARE(Nomi(), u"abcde"_s);
}

void TestRigheScelte::trascinaConLaCellaAperta()
{
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, OnoDescr);
    Digita(u"z"_s);
    QVERIFY(Righe->InModifica());
    T->Voce.Attendi(u"Confermi lo spostamento della riga?"_s, vbYes, u"Domanda:"_s);
    Trascina(Righe, 0, SulSelettore(Righe, 3));
    QVERIFY2(Nomi() == u"bcdze"_s, "il testo va nella sua riga, non in quella che ne prende il posto");
    QVERIFY(!Righe->InModifica());

    // Typed while the button is down.
    QTest::mousePress(Selettore(Righe), Qt::LeftButton, Qt::NoModifier, SulSelettore(Righe, 0));
    Righe->setFocus();
    Righe->ImpostaRigaCorrente(0, OnoDescr);
    Digita(u"y"_s);
    Muovi(Righe, SulSelettore(Righe, 2));
    T->Voce.Attendi(u"Confermi lo spostamento della riga?"_s, vbYes, u"Domanda:"_s);
    QTest::mouseRelease(Selettore(Righe), Qt::LeftButton, Qt::NoModifier, SulSelettore(Righe, 2));
    QCOMPARE(Nomi(), u"cdyze"_s);
}

void TestRigheScelte::trascinaConLaCellaRifiutata()
{
    Righe->ImpostaRigaCorrente(0, OnoImporto);
    Righe->setFocus();
    Premi(Qt::Key_F2);
    Incolla(LaCella(Righe), u"abc"_s);
    T->Voce.Attendi(u"Immettere un valore numerico!"_s, vbOK, u"Errore:"_s);
    Trascina(Righe, 0, SulSelettore(Righe, 3));
    QCOMPARE(Nomi(), u"abcde"_s);
    QVERIFY(Righe->InModifica());
    Premi(Qt::Key_Escape);
}

void TestRigheScelte::trascinaSoloCoiParametriInOrdine()
{
    ClicScheda(F, SchedaBase);
    const int Autorita = std::exchange(F->Nota.cmbAutor, NessunaVoce);
    T->Voce.Attendi(u"Non è stato specificato il campo Autorità"_s);
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(F->Scheda(), int(SchedaBase));
    // The lines cannot be reached by hand then; whoever drags them by other ways is not heard.
    Righe->Seleziona(0);
    Q_EMIT Righe->Trascinata(3);
    QCOMPARE(Nomi(), u"abcde"_s);
    F->Nota.cmbAutor = Autorita;
    ClicScheda(F, SchedaListaOnorari);
    QCOMPARE(F->Scheda(), int(SchedaListaOnorari));
    Righe->Seleziona(0);
    T->Voce.Attendi(u"Confermi lo spostamento della riga?"_s, vbYes, u"Domanda:"_s);
    Q_EMIT Righe->Trascinata(3);
    QCOMPARE(Nomi(), u"bcdae"_s);
}

void TestRigheScelte::laGuidaDellaScheda()
{
    QWidget* Barra = Tasto("help")->parentWidget();
    const auto Rimostra = [Barra] {
        Barra->hide();
        Barra->show();
    };
    QVERIFY2(Tasto("help")->isEnabled(), "the program brings its guide");
    sessione::PercorsoProg = T->Ufficio.Cartella();
    Rimostra();
    QVERIFY2(!Tasto("help")->isEnabled(), "there is no guide");
    QFile Guida(T->Ufficio.File(u"GuidaGiuridica.pdf"_s));
    QVERIFY(Guida.open(QIODevice::WriteOnly));
    Guida.close();
    Rimostra();
    Aperture.SchedaCorrente = [this](int) { return F->Scheda(); };
    int Pagina = 0;
    Shell Finta;
    Finta.HaProgramma = [](const QString&) { return true; };
    Finta.ApriPdf = [&](const QString&, int Quale) {
        Pagina = Quale;
        return 0;
    };
    const Shell Vera = InstallaShell(Finta);
    Clic(Tasto("help"));
    QCOMPARE(Pagina, 13);
    ClicScheda(F, SchedaListaSpese);
    Clic(Tasto("help"));
    QCOMPARE(Pagina, 15);
    InstallaShell(Vera);
}

void TestRigheScelte::laRigaSceltaHaIlSuoColore()
{
    ClicSelettore(Righe, 2);
    const QImage Foto = Righe->Vista()->viewport()->grab().toImage();
    const QPoint Angolo = Righe->Vista()->visualRect(Righe->Vista()->model()->index(2, OnoDescr)).topLeft();
    QCOMPARE(Foto.pixelColor(Angolo + QPoint(2, 2)), QColor(247, 223, 111));
}

void TestRigheScelte::nuovaRigaIncollataSiSalva()
{
    ClicSelettore(Righe, 1);
    Clic(Tasto("copia"));
    ClicScheda(F, SchedaListaSpese);
    Clic(Tasto("incolla"));
    const QString File = T->Ufficio.File(u"incollata.mdb"_s);
    T->Voce.AttendiSalva(File);
    T->Voce.Tollera();
    QVERIFY(F->SalvaParcella(false));
    F->Carica(File);
    QCOMPARE(F->Nota.xDiritti.Righe(), 1);
    QCOMPARE(F->Nota.xDiritti(0, DirImponibile).toDouble(), 200.0);
    QCOMPARE(CStr(F->Nota.xDiritti(0, DirDescr)), u"b"_s);
}

#include "TestRigheScelte.moc"
