// Life of the window: a save, the moves between its tabs, the close with its questions.
#include "salvataggi.h"

#include "core/aperture.h"
#include "core/comandi.h"
#include "core/posti.h"
#include "platform/database/database.h"
#include "platform/kit/messaggi_qt.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/shell.h"

#include <QDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace salvataggi;

namespace {

/// Somebody who does something while a box is open, before it is answered.
class Intruso
{
public:
    Intruso(const std::function<void()>& Fai, int Risposta, const QString& Percorso)
    {
        Messaggi Suoi;
        Suoi.Box = [=](const QString&, int, const QString&) {
            Fai();
            return Risposta;
        };
        Suoi.Immissione = [=](const QString&, const QString&, const QString&) {
            Fai();
            return QString();
        };
        Suoi.SalvaFile = [=](const QString&, const QString&, const QString&) { return Percorso; };
        Prima = InstallaMessaggi(Suoi);
    }
    ~Intruso() { InstallaMessaggi(Prima); }
    Intruso(const Intruso&) = delete;
    Intruso& operator=(const Intruso&) = delete;

private:
    Messaggi Prima;
};

}  // namespace

class TestVita : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void salvaUnaNotaNuova();
    void annullatoNonCambiaNulla();
    void incompletaSiSalva();
    void nonModificataNonSiSalva();
    void chiMuoreNonSiVede();
    void chiudiIntatta();
    void chiudiConRisposta_data();
    void chiudiConRisposta();
    void chiudiSalvando();
    void chiudiESalvataggioAnnullato();
    void chiudiESalvataggioFallito();
    void chiudiConLaCellaSbagliata();
    void frecciaIndietroChiude();
    void frecciaIndietroNo();
    void riaprendoIlTitoloEIlNome();
    void fileCheNonSiApre_data();
    void fileCheNonSiApre();
    void ilTitoloCambiaPrimaDelMessaggio();
    void chiusaDalCodiceMentreChiede_data();
    void chiusaDalCodiceMentreChiede();
    void chiusaDalCodiceConIlMessaggioVero();
    void chiusaDalCodiceConUnAltraFinestraModale();
    void laNotaDiUnaPraticaFinisceIlProgramma();
    void laPraticaDopoUnFileGuasto_data();
    void laPraticaDopoUnFileGuasto();
    void lUltimaInModoBassoFinisceIlProgramma();
    void lUltimaFrecciaSalva();

private:
    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
};
PROVA(TestVita);

void TestVita::init()
{
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
}

void TestVita::cleanup()
{
    guasti::LimitePagine = 0;
    T.reset();
}

void TestVita::salvaUnaNotaNuova()
{
    Tocca(F);
    const QString File = SalvaCome(*T, u"Rossi Mario.mdb"_s);
    QCOMPARE(T->Voce.TitoloDialogo(), u"Salva parcella"_s);
    QCOMPARE(T->Voce.InizioDialogo(), sessione::ParcellePath);
    QVERIFY(T->Voce.Ultimo().Bandiere & vbInformation);
    QCOMPARE(F->Nota.Percorso, File);
    QCOMPARE(F->windowTitle(), u"rossi mario"_s);
    QCOMPARE(InfoParcelle[1].Nome, u"rossi mario"_s);
    QVERIFY(!InfoParcelle[1].Modificata && !F->Nota.Modificata);
    QVERIFY(!Controllo(F, "pctSave")->isVisible());
    QCOMPARE(Cliente(File), u"Rossi"_s);
}

void TestVita::annullatoNonCambiaNulla()
{
    Tocca(F);
    const Parcella Prima = F->Nota;
    T->Voce.AttendiSalva({});
    EseguiComando(u"save"_s, 1, {});
    QVERIFY(F->Nota == Prima);
    QCOMPARE(F->windowTitle(), u"Nuova parcella"_s);
    QVERIFY(InfoParcelle[1].Modificata);
}

void TestVita::incompletaSiSalva()
{
    Tocca(F);  // no category at all
    const QString File = SalvaCome(*T, u"incompleta.mdb"_s);
    QVERIFY(QFile::exists(File));
}

void TestVita::nonModificataNonSiSalva()
{
    for (const QString& Comando : {u"save"_s, u"savepar"_s, u"savemod"_s})
        EseguiComando(Comando, 1, {});  // a dialog would fail the test
    Tocca(F);
    SalvaCome(*T, u"una.mdb"_s);
    EseguiComando(u"savemod"_s, 1, {});
}

/// The list of notes that a calculator shows is asked for while the last window goes, with its children.
void TestVita::chiMuoreNonSiVede()
{
    int Morti = 0;
    int Visti = 0;
    connect(F->findChild<QTabWidget*>(), &QObject::destroyed, this, [&] {
        ++Morti;
        Visti += Parcelle(1) ? 1 : 0;
    });
    delete F;
    QCOMPARE(Morti, 1);
    QCOMPARE(Visti, 0);
    QVERIFY(!Parcelle(1));
}

void TestVita::chiudiIntatta()
{
    QVERIFY(F->close());
    QVERIFY(InfoParcelle[1].Libera);
    QVERIFY(!F->isVisible());
}

void TestVita::chiudiConRisposta_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<bool>("Chiusa");
    QTest::newRow("no") << vbNo << true;
    QTest::newRow("annulla") << vbCancel << false;
}

void TestVita::chiudiConRisposta()
{
    QFETCH(int, Risposta);
    QFETCH(bool, Chiusa);
    Tocca(F);
    T->Voce.Attendi(u"Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, Risposta,
                    u"Domanda:"_s);
    QCOMPARE(F->close(), Chiusa);
    QCOMPARE(InfoParcelle[1].Libera, Chiusa);
    QCOMPARE(F->isVisible(), !Chiusa);
    QCOMPARE(F->Nota.Modificata, !Chiusa);
    QCOMPARE(Controllo<QLineEdit>(F, "txtCliente")->text(), u"Rossi"_s);
}

void TestVita::chiudiSalvando()
{
    Tocca(F);
    T->Voce.Attendi(u"Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, vbYes);
    T->Voce.AttendiSalva(T->Ufficio.File(u"ultima.mdb"_s));
    T->Voce.Attendi(Salvata(u"ultima.mdb"_s));
    QVERIFY(F->close());
    QCOMPARE(Cliente(T->Ufficio.File(u"ultima.mdb"_s)), u"Rossi"_s);
}

void TestVita::chiudiESalvataggioAnnullato()
{
    Tocca(F);
    T->Voce.Attendi(u"Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, vbYes);
    T->Voce.AttendiSalva({});
    QVERIFY(!F->close());
    QVERIFY(F->isVisible() && F->Nota.Modificata && !InfoParcelle[1].Libera);
}

void TestVita::chiudiESalvataggioFallito()
{
    Tocca(F);
    guasti::LimitePagine = 3;
    T->Voce.Attendi(u"Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, vbYes);
    T->Voce.AttendiSalva(T->Ufficio.File(u"nota.mdb"_s));
    T->Voce.Attendi(Guasto(3026));
    QVERIFY(!F->close());
    guasti::LimitePagine = 0;
    QVERIFY(F->isVisible() && F->Nota.Modificata);
}

void TestVita::chiudiConLaCellaSbagliata()
{
    CompilaCivile(F);
    ClicScheda(F, SchedaBase);
    Incolla(Controllo<QLineEdit>(F, "txtImporto"), u"abc"_s);
    T->Voce.Attendi(u"Immettere un valore numerico!"_s);
    QVERIFY(!F->close());
    QTRY_COMPARE(QApplication::focusWidget(), Controllo(F, "txtImporto"));
}

void TestVita::frecciaIndietroChiude()
{
    CompilaCivile(F);
    ClicScheda(F, SchedaListaOnorari);
    Clic(Controllo(F, "imgPrev"));
    QCOMPARE(F->Scheda(), int(SchedaBase));
    F->SetModificata(false);
    T->Voce.Attendi(u"Confermi il ritorno al menu iniziale?"_s, vbYes, u"Domanda:"_s);
    bool Ultima = false;
    Aperture.UltimaParcellaChiusa = [&] { Ultima = true; };
    Clic(Controllo(F, "imgPrev"));
    QVERIFY(InfoParcelle[1].Libera);
    QVERIFY2(Ultima, "dopo l'ultima torna il menu");
}

void TestVita::frecciaIndietroNo()
{
    T->Voce.Attendi(u"Confermi il ritorno al menu iniziale?"_s, vbNo);
    Clic(Controllo(F, "imgPrev"));
    QVERIFY(F->isVisible());
}

void TestVita::riaprendoIlTitoloEIlNome()
{
    Tocca(F);
    const QString File = SalvaCome(*T, u"Rossi Mario.mdb"_s);
    QVERIFY(F->close());
    frmParcelle* Riaperta = T->Apri(File);
    QVERIFY2(Riaperta == F, "il posto liberato si riusa");
    QCOMPARE(F->windowTitle(), u"rossi mario"_s);
    QCOMPARE(InfoParcelle[1].Nome, u"rossi mario"_s);
    QCOMPARE(F->Scheda(), int(SchedaBase));
    QVERIFY(!F->Nota.Modificata);
    QCOMPARE(Controllo<QLineEdit>(F, "txtCliente")->text(), u"Rossi"_s);
}

void TestVita::fileCheNonSiApre_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    const Studio Ufficio;
    ScriviNota(Ufficio.File(u"nota.mdb"_s), NotaCivile());
    {
        const Database Estraneo = CreateDatabase(Ufficio.File(u"estraneo.mdb"_s));
        Estraneo.Execute(u"CREATE TABLE Ricette (Nome TEXT, Dose REAL)"_s);
        Estraneo.Execute(u"INSERT INTO Ricette VALUES ('Ragù', 1.5)"_s);
    }
    const QByteArray Intera = LeggiFile(Ufficio.File(u"nota.mdb"_s));
    QTest::newRow("vuoto") << QByteArray();
    QTest::newRow("non è un archivio") << QByteArray(5000, 'x');
    QTest::newRow("solo l'intestazione") << Intera.left(100);
    QTest::newRow("troncato") << Intera.left(Intera.size() / 2);
    QTest::newRow("guasto nel mezzo") << Intera.left(4096) + QByteArray(Intera.size() - 4096, 'x');
    QTest::newRow("archivio di altri") << LeggiFile(Ufficio.File(u"estraneo.mdb"_s));
}

void TestVita::fileCheNonSiApre()
{
    QFETCH(QByteArray, Contenuto);
    const QString Strano = T->Ufficio.File(u"Strano.mdb"_s);
    ScriviFile(Strano, Contenuto);
    T->Voce.Tollera();
    frmParcelle* Aperta = T->Apri(Strano);
    QVERIFY(Aperta);
    QVERIFY2(LeggiFile(Strano) == Contenuto, "il file resta com'è");
    QCOMPARE(T->Voce.Mostrati().size(), 1);
    QVERIFY(T->Voce.UltimoTesto().startsWith(u"Errore: "_s));
    QCOMPARE(InfoParcelle[1].Nome, u"strano"_s);
    QVERIFY2(Aperta->Nota.Percorso.isEmpty(), "un salvataggio non lo rimpiazza");
    CompilaCivile(Aperta);
    QCOMPARE(Aperta->Nota.ImportoPrec, 30000.0);
}

void TestVita::ilTitoloCambiaPrimaDelMessaggio()
{
    Tocca(F);
    int Mostrati = 0;
    const Intruso Curioso(
        [&] {
            ++Mostrati;
            QCOMPARE(F->windowTitle(), u"rossi"_s);
            QCOMPARE(InfoParcelle[1].Nome, u"rossi"_s);
            QVERIFY2(InfoParcelle[1].Modificata, "il segno va via dopo");
            QVERIFY(QFile::exists(T->Ufficio.File(u"Rossi.mdb"_s)));
        },
        vbOK, T->Ufficio.File(u"Rossi.mdb"_s));
    QVERIFY(F->SalvaParcella(false));
    QCOMPARE(Mostrati, 1);
    QVERIFY(!InfoParcelle[1].Modificata);
}

void TestVita::chiusaDalCodiceMentreChiede_data()
{
    QTest::addColumn<QString>("Domanda");
    QTest::newRow("salvando") << u"salva"_s;
    QTest::newRow("chiudendo") << u"chiudi"_s;
    QTest::newRow("tornando al menu") << u"menu"_s;
    QTest::newRow("proteggendo") << u"proteggi"_s;
}

void TestVita::chiusaDalCodiceMentreChiede()
{
    QFETCH(QString, Domanda);
    Tocca(F);
    int Mostrati = 0;
    const auto Chiudi = [&] {
        ++Mostrati;
        (void)F->close();  // a window that is already closing answers true and does nothing
        QVERIFY(!ChiudiParcella(1));
        QVERIFY(F->isVisible() && !InfoParcelle[1].Libera);
        QVERIFY(!F->SalvaParcella(false));
        F->Proteggi();
    };
    {
        const Intruso Frettoloso(Chiudi, Domanda == u"menu" ? vbNo : vbCancel,
                                 T->Ufficio.File(u"Rossi.mdb"_s));
        if (Domanda == u"salva")
            QVERIFY(F->SalvaParcella(false));
        else if (Domanda == u"chiudi")
            QVERIFY(!F->close());
        else if (Domanda == u"menu")
            Clic(Controllo(F, "imgPrev"));
        else
            F->Proteggi();
    }
    QCOMPARE(Mostrati, 1);
    QVERIFY(F->isVisible() && !InfoParcelle[1].Libera);
    QCOMPARE(Controllo<QLineEdit>(F, "txtCliente")->text(), u"Rossi"_s);
    F->SetModificata(false);
    QVERIFY2(F->close(), "con la risposta si torna a chiudere");
}

void TestVita::chiusaDalCodiceConIlMessaggioVero()
{
    Tocca(F);
    const Messaggi Prima = InstallaMessaggi(MessaggiQt());
    bool Chiusa = true;
    QTimer::singleShot(0, this, [&] {
        auto* Box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        QVERIFY(Box);
        Chiusa = ChiudiParcella(1);
        QVERIFY2(Box->isVisible(), "la domanda resta");
        Box->button(QMessageBox::Cancel)->click();
    });
    QVERIFY(!F->close());
    InstallaMessaggi(Prima);
    QVERIFY(!Chiusa);
    QVERIFY(F->isVisible() && F->Nota.Modificata);
}

void TestVita::chiusaDalCodiceConUnAltraFinestraModale()
{
    // A rule of the note may be waiting behind it for its answer.
    QDialog Modale;
    Modale.setModal(true);
    Modale.show();
    QVERIFY(!ChiudiParcella(1));
    QVERIFY(F->isVisible() && !InfoParcelle[1].Libera);
    Modale.close();
    QVERIFY(ChiudiParcella(1));
}

void TestVita::laNotaDiUnaPraticaFinisceIlProgramma()
{
    int Fini = 0;
    int Ultime = 0;
    Shell Suo;
    Suo.Termina = [&](int) { ++Fini; };
    const Shell Prima = InstallaShell(Suo);
    Aperture.UltimaParcellaChiusa = [&] { ++Ultime; };
    sessione::RichiestaPV2.ID = u"AB12"_s;
    Tocca(F);
    T->Voce.Attendi(u"Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, vbCancel);
    QVERIFY(!F->close());
    QCOMPARE(Fini, 0);
    T->Voce.Attendi(u"Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, vbNo);
    QVERIFY(F->close());
    InstallaShell(Prima);
    QCOMPARE(Fini, 1);
    QVERIFY2(Ultime == 0, "né misure né menu");
}

void TestVita::laPraticaDopoUnFileGuasto_data()
{
    QTest::addColumn<bool>("Copia");
    QTest::newRow("a note") << false;
    QTest::newRow("a recovery copy") << true;
}

/// The new note that stands in for what could not be read is saved and closed as the matter's: it is.
void TestVita::laPraticaDopoUnFileGuasto()
{
    QFETCH(bool, Copia);
    sessione::RichiestaPV2.ID = u"P12"_s;
    sessione::RichiestaPV2.Scelta = 11;
    sessione::RichiestaPV2.IDCli = T->Ufficio.AggiungiCliente(u"Verdi Ada"_s);
    const QString Guasto = T->Ufficio.File(u"P12-guasta.mdb"_s);
    ScriviFile(Guasto, QByteArray(5000, 'x'));
    T->Voce.Tollera();
    CopiaRecupero Trovata;
    Trovata.File = Guasto;
    Copia ? F->Recupera(Trovata) : void(F->Carica(Guasto));
    QVERIFY2(T->Voce.UltimoTesto().startsWith(u"Errore: "_s), qPrintable(T->Voce.UltimoTesto()));
    QCOMPARE(TestoDi(F, "txtCliente"), u"Verdi Ada"_s);
    QCOMPARE(TestoDi(F, "lblRif_1"), u"P12"_s);
    QCOMPARE(F->Nota.Scelta, 11);
    QVERIFY(F->Nota.Percorso.isEmpty());
    QVERIFY(!F->Nota.Modificata && !InfoParcelle[1].Modificata);
}

void TestVita::lUltimaInModoBassoFinisceIlProgramma()
{
    int Fini = 0;
    Shell Suo;
    Suo.Termina = [&](int) { ++Fini; };
    const Shell Prima = InstallaShell(Suo);
    sessione::ModoLow = true;
    F->SetModificata(true);
    ApriParcella({}, 0, {});
    QVERIFY(ChiudiParcella(2));
    QVERIFY2(Fini == 0, "ce n'è ancora una");
    F->SetModificata(false);
    QVERIFY(F->close());
    InstallaShell(Prima);
    QCOMPARE(Fini, 1);
}

void TestVita::lUltimaFrecciaSalva()
{
    CompilaCivile(F);
    ClicScheda(F, SchedaDiStampa);
    T->Voce.AttendiSalva(T->Ufficio.File(u"dalla freccia.mdb"_s));
    T->Voce.Attendi(Salvata(u"dalla freccia.mdb"_s));
    Clic(Controllo(F, "imgNext"));
    QVERIFY(QFile::exists(T->Ufficio.File(u"dalla freccia.mdb"_s)));
    QCOMPARE(F->Scheda(), int(SchedaDiStampa));
    Clic(Controllo(F, "imgNext"));  // and an unmodified note asks nothing
}

#include "TestVita.moc"
