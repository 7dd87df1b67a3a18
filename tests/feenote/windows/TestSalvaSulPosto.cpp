// The save without a dialog, the one that proposes a name, the copy.
#include "salvataggi.h"

#include "core/parametri.h"
#include "feenote/file/modPosaFile.h"
#include "platform/kit/rigachesvanisce.h"
#include "platform/system/blocco.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/impostazioni.h"
#include "platform/system/orologio.h"

#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QThread>

#include <thread>
#include <utility>

using namespace Qt::StringLiterals;
using namespace salvataggi;

class TestSalvaSulPosto : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void scriveSenzaDialogo();
    void laRigaSvanisce();
    void unaNuovaChiedeEPropone();
    void ilComandoNonPropone();
    void ilNomePresoHaUnNumero();
    void conLaPratica_data();
    void conLaPratica();
    void unModelloRestaIntatto();
    void ilFileNonCePiu();
    void laProtettaChiede();
    void diSolaLettura();
    void cambiataDaAltriChiede();
    void cambiataMentreSiApre();
    void cambiataMentreSiChiede();
    void cambiataMentreSiLegge();
    void cambiataMentreSiAspettaIlTurno_data();
    void cambiataMentreSiAspettaIlTurno();
    void nonSiScrive();
    void nomeCheIlDialogoRifiuta();
    void salvaConNomeAncheIntatta();

    void duplica_data();
    void duplica();
    void duplicaSenzaClienteNonChiede();
    void laCopiaComincia();
    void laCopiaSegueIBottoni();
    void duplicaRinuncia();
    void laCopiaNonCopreLOriginale();

private:
    QString Salvata_(const QString& Nome, const QString& Cliente = u"Rossi"_s);
    std::unique_ptr<Tavolo> T;
    frmParcelle* F = nullptr;
    std::function<QDateTime()> Orologio;
};
PROVA(TestSalvaSulPosto);

void TestSalvaSulPosto::init()
{
    QFile::remove(PercorsoImpostazioni(NomeApplicazione.toString()));
    Orologio = InstallaOrologio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 42)); });
    T = std::make_unique<Tavolo>();
    F = T->Apri();
    QVERIFY(F);
}

void TestSalvaSulPosto::cleanup()
{
    guasti::LimitePagine = 0;
    T.reset();
    InstallaOrologio(Orologio);
}

/// The note on screen saved by the dialog under a name of the folder of notes. @return its file
QString TestSalvaSulPosto::Salvata_(const QString& Nome, const QString& Cliente)
{
    if (!MostraAttiva(*F))
        return {};
    ClicScheda(F, SchedaBase);
    Tocca(F, Cliente);
    return SalvaCome(*T, Nome);
}

void TestSalvaSulPosto::scriveSenzaDialogo()
{
    const QString File = Salvata_(u"rossi.mdb"_s);
    Tocca(F, u"Verdi"_s);
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(Cliente(File), u"Verdi"_s);
    QVERIFY(!F->Nota.Modificata && !InfoParcelle[1].Modificata);
    QVERIFY(!Controllo(F, "pctSave")->isVisible());
    const auto* Riga = Controllo<QLabel>(F, "lblSalvata");
    QVERIFY(Riga->isVisible());
    QCOMPARE(Riga->text(), u"Salvata alle 10:42"_s);
}

void TestSalvaSulPosto::laRigaSvanisce()
{
    const QScopedValueRollback Ferma(RigaCheSvanisce::FermaMs, 400);
    const QScopedValueRollback Svanisce(RigaCheSvanisce::SvanisceMs, 100);
    const int Prima = F->minimumSizeHint().height();
    auto* Riga = Controllo<RigaCheSvanisce>(F, "lblSalvata");
    Riga->Mostra(u"Salvata alle 10:42"_s);
    QCOMPARE(F->minimumSizeHint().height(), Prima);
    QTest::qWait(100);
    QVERIFY(Riga->isVisible());
    QTRY_VERIFY(!Riga->isVisible());
    QCOMPARE(Riga->text(), QString());
}

void TestSalvaSulPosto::unaNuovaChiedeEPropone()
{
    Tocca(F, u"Rossi/Bianchi"_s);
    Scrivi(F, "txtOggetto", u"appalto: \"opere\""_s);
    const QString File = sessione::ParcellePath + u"mia.mdb"_s;
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(Salvata(u"mia.mdb"_s));
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(T->Voce.InizioDialogo(), sessione::ParcellePath + u"Rossi-Bianchi - appalto opere"_s);
    QCOMPARE(F->Nota.Percorso, File);
}

/// The command keeps its empty name.
void TestSalvaSulPosto::ilComandoNonPropone()
{
    Tocca(F, u"Rossi"_s);
    T->Voce.AttendiSalva(QString());
    EseguiComando(u"save"_s, 1, {});
    QCOMPARE(T->Voce.InizioDialogo(), sessione::ParcellePath);
    QVERIFY(F->Nota.Modificata);
}

void TestSalvaSulPosto::ilNomePresoHaUnNumero()
{
    Tocca(F, u"Rossi"_s);
    for (const QString& Nome : {u"Rossi.mdb"_s, u"Rossi 2.mdb"_s})
        ScriviFile(sessione::ParcellePath + Nome, "x");
    T->Voce.AttendiSalva(QString());
    QVERIFY(!F->SalvaConNome());
    QCOMPARE(T->Voce.InizioDialogo(), sessione::ParcellePath + u"Rossi 3"_s);
}

void TestSalvaSulPosto::conLaPratica_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<bool>("Diretto");
    QTest::newRow("it bears the code") << u"ab12-rossi.mdb"_s << true;
    QTest::newRow("it does not") << u"rossi.mdb"_s << false;
}

void TestSalvaSulPosto::conLaPratica()
{
    QFETCH(QString, Nome);
    QFETCH(bool, Diretto);
    const QString File = Salvata_(Nome);
    sessione::RichiestaPV2.ID = u"AB12"_s;
    Tocca(F, u"Verdi"_s);
    if (!Diretto)
        T->Voce.AttendiSalva(QString());
    QCOMPARE(F->SalvaSulPosto(), Diretto);
    QCOMPARE(Cliente(File), Diretto ? u"Verdi"_s : u"Rossi"_s);
}

void TestSalvaSulPosto::unModelloRestaIntatto()
{
    Tocca(F);
    const QString Modello = SalvaCome(*T, u"base.mdb"_s, true);
    Tocca(F, u"Verdi"_s);
    T->Voce.AttendiSalva(QString());
    QVERIFY(!F->SalvaSulPosto());
    QCOMPARE(T->Voce.InizioDialogo(), sessione::ParcellePath + u"Verdi"_s);
    QCOMPARE(Cliente(Modello), u"Rossi"_s);
}

/// Whoever has moved the file decides where the note goes.
void TestSalvaSulPosto::ilFileNonCePiu()
{
    const QString File = Salvata_(u"rossi.mdb"_s);
    QVERIFY(QFile::remove(File));
    Tocca(F, u"Verdi"_s);
    T->Voce.AttendiSalva(QString());
    QVERIFY(!F->SalvaSulPosto());
    QVERIFY(!EsisteFile(File));
    QVERIFY(F->Nota.Modificata);
}

void TestSalvaSulPosto::laProtettaChiede()
{
    Tocca(F);
    F->Nota.Psw = u"->>abc"_s;
    const QString File = SalvaCome(*T, u"rossi.mdb"_s);
    Tocca(F, u"Verdi"_s);
    T->Voce.AttendiImmissione(u"Specificare la password"_s, u"xyz"_s);
    T->Voce.Attendi(u"La password immessa non è corretta!\nL'operazione non è stata effettuata."_s, vbOK,
                    u"Errore:"_s);
    QVERIFY(!F->SalvaSulPosto());
    QCOMPARE(Cliente(File), u"Rossi"_s);
    QVERIFY(F->Nota.Modificata);
    QVERIFY(!Controllo(F, "lblSalvata")->isVisible());
    T->Voce.AttendiImmissione(u"Specificare la password"_s, u"abc"_s);
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(Cliente(File), u"Verdi"_s);
    QCOMPARE(Parametro(File, u"Psw"_s).toString(), u"097098099"_s);
}

void TestSalvaSulPosto::diSolaLettura()
{
    const QString File = Salvata_(u"rossi.mdb"_s);
    ImpostaSolaLettura(File, true);
    Tocca(F, u"Verdi"_s);
    T->Voce.Attendi(NonSovrascrivibile(u"rossi.mdb"_s), vbOK, u"Errore:"_s);
    QVERIFY(!F->SalvaSulPosto());
    QCOMPARE(Cliente(File), u"Rossi"_s);
    QVERIFY(F->Nota.Modificata);
}

void TestSalvaSulPosto::cambiataDaAltriChiede()
{
    const QString File = Salvata_(u"rossi.mdb"_s);
    EseguiSu(File, u"UPDATE ParcellaParam SET Cliente='Bianchi'"_s);
    ImpostaDataFile(File, DataFile(File).addSecs(60));
    Tocca(F, u"Verdi"_s);
    const QString Domanda =
        u"La parcella rossi.mdb è stata cambiata da altri dopo che è stata aperta.\nSostituirla con questa?"_s;
    T->Voce.Attendi(Domanda, vbNo, u"Domanda:"_s);
    QVERIFY(!F->SalvaSulPosto());
    QCOMPARE(Cliente(File), u"Bianchi"_s);
    QVERIFY(F->Nota.Modificata);
    T->Voce.Attendi(Domanda, vbYes, u"Domanda:"_s);
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(Cliente(File), u"Verdi"_s);
    Tocca(F, u"Neri"_s);
    QVERIFY(F->SalvaSulPosto());
}

/// A message of the opening waits until the user is back; what a colleague has saved meanwhile is not on
/// screen.
void TestSalvaSulPosto::cambiataMentreSiApre()
{
    const QString File = Salvata_(u"rossi.mdb"_s);
    EseguiSu(File, u"UPDATE ParcellaParam SET IDCli=12345"_s);
    const auto Mostra = Registratore::AlMostrare();
    {
        const QScopedValueRollback Collega(Registratore::AlMostrare(), std::function<void()>([&] {
                                               EseguiSu(File,
                                                        u"UPDATE ParcellaParam SET Cliente='Bianchi'"_s);
                                               ImpostaDataFile(File, DataFile(File).addSecs(60));
                                               Mostra();
                                           }));
        T->Voce.Attendi(u"Il cliente associato alla parcella non è stato trovato!"_s, vbOK, u"Errore:"_s);
        F = T->Apri(File, 2);
    }
    QVERIFY(F);
    Tocca(F, u"Verdi"_s);
    T->Voce.Attendi(
        u"La parcella rossi.mdb è stata cambiata da altri dopo che è stata aperta.\nSostituirla con questa?"_s,
        vbNo, u"Domanda:"_s);
    QVERIFY(!F->SalvaSulPosto());
    QCOMPARE(Cliente(File), u"Bianchi"_s);
}

/// The question about the password waits as long as its user; the one about the others comes behind it, and
/// again.
void TestSalvaSulPosto::cambiataMentreSiChiede()
{
    const QString File = Salvata_(u"rossi.mdb"_s);
    F->Nota.Psw = u"abc"_s;
    F->SetModificata(true);
    QVERIFY(F->SalvaSulPosto());
    Tocca(F, u"Verdi"_s);
    int Mostrati = 0;
    const auto Mostra = Registratore::AlMostrare();
    const QScopedValueRollback Collega(Registratore::AlMostrare(), std::function<void()>([&] {
                                           if (++Mostrati < 3)
                                               ImpostaDataFile(File, DataFile(File).addSecs(60));
                                           Mostra();
                                       }));
    const QString Domanda =
        u"La parcella rossi.mdb è stata cambiata da altri dopo che è stata aperta.\nSostituirla con questa?"_s;
    T->Voce.AttendiImmissione(u"Specificare la password"_s, u"abc"_s);
    T->Voce.Attendi(Domanda, vbYes, u"Domanda:"_s);
    T->Voce.Attendi(Domanda, vbNo, u"Domanda:"_s);
    QVERIFY(!F->SalvaSulPosto());
    QCOMPARE(Cliente(File), u"Rossi"_s);
}

/// A colleague saves the new note while its words are still being read. The date is set, as elsewhere: two
/// writings within one tick of the file system's clock bear the same one.
void TestSalvaSulPosto::cambiataMentreSiLegge()
{
    QVERIFY(MostraAttiva(*F));
    ClicScheda(F, SchedaBase);
    Tocca(F, u"Rossi"_s);
    const QString File = sessione::ParcellePath + u"rossi.mdb"_s;
    ScriviFile(File + u"-journal"_s, "caldo");
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(Salvata(u"rossi.mdb"_s));
    T->Voce.Attendi(FraseScostato(File, u"rossi.mdb-journal.orfano"_s));
    {
        bool Vista = false;
        const auto Mostra = Registratore::AlMostrare();
        const QScopedValueRollback Collega(Registratore::AlMostrare(), std::function<void()>([&] {
                                               if (EsisteFile(File) && !std::exchange(Vista, true)) {
                                                   EseguiSu(File,
                                                            u"UPDATE ParcellaParam SET Cliente='Bianchi'"_s);
                                                   ImpostaDataFile(File, DataFile(File).addSecs(60));
                                               }
                                               Mostra();
                                           }));
        QVERIFY(F->SalvaConNome());
        QVERIFY(Vista);
    }
    Tocca(F, u"Verdi"_s);
    T->Voce.Attendi(
        u"La parcella rossi.mdb è stata cambiata da altri dopo che è stata aperta.\nSostituirla con questa?"_s,
        vbNo, u"Domanda:"_s);
    QVERIFY(!F->SalvaSulPosto());
    QCOMPARE(Cliente(File), u"Bianchi"_s);
}

void TestSalvaSulPosto::cambiataMentreSiAspettaIlTurno_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<QString>("Resta");
    QTest::newRow("kept") << int(vbNo) << u"Bianchi"_s;
    QTest::newRow("replaced") << int(vbYes) << u"Verdi"_s;
}

/// A colleague is saving the note: his file comes while this save waits for its turn.
void TestSalvaSulPosto::cambiataMentreSiAspettaIlTurno()
{
    QFETCH(int, Risposta);
    QFETCH(QString, Resta);
    const QString File = Salvata_(u"rossi.mdb"_s);
    const QString Sua = NuovaCartella() + u"sua.mdb"_s;
    QVERIFY(QFile::copy(File, Sua));
    EseguiSu(Sua, u"UPDATE ParcellaParam SET Cliente='Bianchi'"_s);
    ImpostaDataFile(Sua, DataFile(File).addSecs(60));
    Tocca(F, u"Verdi"_s);
    auto Turno = std::make_unique<FileBlocco>(CartellaFile(File) + u".~rossi.mdb.turno"_s);
    QCOMPARE(Turno->Prendi(0), FileBlocco::Esito::Preso);
    std::thread Collega([&] {
        QThread::msleep(300);
        SostituisciFile(Sua, File);
        Turno.reset();
    });
    const auto Finito = qScopeGuard([&] { Collega.join(); });
    T->Voce.Attendi(
        u"La parcella rossi.mdb è stata cambiata da altri dopo che è stata aperta.\nSostituirla con questa?"_s,
        Risposta, u"Domanda:"_s);
    QCOMPARE(F->SalvaSulPosto(), Risposta == vbYes);
    QCOMPARE(Cliente(File), Resta);
    QCOMPARE(F->Nota.Modificata, Risposta != vbYes);
}

void TestSalvaSulPosto::nonSiScrive()
{
    const QString File = Salvata_(u"rossi.mdb"_s);
    Tocca(F, u"Verdi"_s);
    const Parcella Prima = F->Nota;
    guasti::LimitePagine = 3;
    T->Voce.Attendi(Guasto(3026), vbOK, u"Errore:"_s);
    QVERIFY(!F->SalvaSulPosto());
    guasti::LimitePagine = 0;
    QCOMPARE(Cliente(File), u"Rossi"_s);
    QVERIFY(F->Nota == Prima);
    QVERIFY(InfoParcelle[1].Modificata && Controllo(F, "pctSave")->isVisible());
    QVERIFY(!Controllo(F, "lblSalvata")->isVisible());
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(Cliente(File), u"Verdi"_s);
}

/// A name is refused where it is chosen; a file that bears it is written like another.
void TestSalvaSulPosto::nomeCheIlDialogoRifiuta()
{
    const QString File = sessione::ParcellePath + u"rossi 1.2.mdb"_s;
    QVERIFY(QFile::rename(Salvata_(u"rossi.mdb"_s), File));
    F = T->Apri(File, 2);
    QVERIFY(F);
    Tocca(F, u"Verdi"_s);
    QVERIFY(F->SalvaSulPosto());
    QCOMPARE(Cliente(File), u"Verdi"_s);
    QCOMPARE(F->windowTitle(), u"rossi 1.2"_s);
}

void TestSalvaSulPosto::salvaConNomeAncheIntatta()
{
    const QString File = Salvata_(u"rossi.mdb"_s);
    QVERIFY(!F->Nota.Modificata);
    const QString Altro = sessione::ParcellePath + u"altro.mdb"_s;
    T->Voce.AttendiSalva(Altro);
    T->Voce.Attendi(Salvata(u"altro.mdb"_s));
    QVERIFY(F->SalvaConNome());
    QCOMPARE(T->Voce.InizioDialogo(), File);
    QVERIFY(EsisteFile(Altro));
    QCOMPARE(F->Nota.Percorso, Altro);
}

// ---- the copy -----------------------------------------------------------------------------------

namespace {

QString DomandaCopia(const QString& Nome)
{
    return u"La copia avrà righe, parametri e testi di questa parcella,\nsenza numero, data e password.\n"
           u"Mantenere anche il cliente %1?"_s.arg(Nome);
}

}  // namespace

void TestSalvaSulPosto::duplica_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<QString>("Cliente");
    QTest::newRow("with the client") << vbYes << u"Rossi"_s;
    QTest::newRow("without him") << vbNo << QString();
}

void TestSalvaSulPosto::duplica()
{
    QFETCH(int, Risposta);
    QFETCH(QString, Cliente);
    CompilaCivile(F);
    ClicScheda(F, SchedaListaOnorari);
    QVERIFY(F->Nota.xOnorari.Righe() > 0);
    Tocca(F);
    F->Nota.txtDatiPar[DatoNumFatt] = u"12"_s;
    F->Nota.Psw = u"->>abc"_s;
    const QString File = SalvaCome(*T, u"rossi.mdb"_s);
    T->Voce.Attendi(DomandaCopia(u"Rossi"_s), Risposta, u"Domanda:"_s);
    DuplicaParcella(1);
    frmParcelle* Copia = Parcelle(2);
    QVERIFY(Copia);
    QCOMPARE(Copia->windowTitle(), u"Nuova parcella:2"_s);
    QCOMPARE(InfoParcelle[2].Nome, u"Nuova parcella:2"_s);
    QVERIFY(InfoParcelle[2].Modificata);
    QCOMPARE(Copia->Nota.Percorso, QString());
    QCOMPARE(Copia->Nota.Psw, QString());
    QCOMPARE(Copia->Nota.DatiPar(DatoNumFatt), QString());
    QVERIFY(Copia->Nota.xOnorari == F->Nota.xOnorari);
    QCOMPARE(Controllo<QLineEdit>(Copia, "txtCliente")->text(), Cliente);
    QVERIFY(!Controllo(Copia, "pctLock")->isVisible());
    QVERIFY2(!Controllo(Copia, "cmdAnnulla")->isEnabled(), "its steps begin here");
    // The other one is as it was.
    QCOMPARE(F->Nota.Percorso, File);
    QCOMPARE(F->Nota.DatiPar(DatoNumFatt), u"12"_s);
    QVERIFY(!InfoParcelle[1].Modificata);
    // And the copy can be worked on and saved by itself.
    T->Voce.AttendiSalva(sessione::ParcellePath + u"copia.mdb"_s);
    T->Voce.Attendi(Salvata(u"copia.mdb"_s));
    QVERIFY(Copia->SalvaSulPosto());
    QCOMPARE(::Cliente(File), u"Rossi"_s);
    QCOMPARE(::Cliente(sessione::ParcellePath + u"copia.mdb"_s), Cliente);
}

void TestSalvaSulPosto::duplicaSenzaClienteNonChiede()
{
    Scrivi(F, "txtOggetto", u"appalto"_s);
    DuplicaParcella(1);
    QVERIFY(Parcelle(2));
    QCOMPARE(Parcelle(2)->Nota.txtOggetto.Testo, u"appalto"_s);
    QVERIFY(T->Voce.Mostrati().isEmpty());
    DuplicaParcella(7);
    QCOMPARE(UltimaParcella(), 2);
}

/// In a window that held another note: nothing of that one comes back by a step.
void TestSalvaSulPosto::laCopiaComincia()
{
    Tocca(F, u"Rossi"_s);
    const frmParcelle* Altra = T->Apri({}, 2);
    QVERIFY(Altra);
    Tocca(Altra, u"Bianchi"_s);
    QVERIFY(Controllo(Altra, "cmdAnnulla")->isEnabled());
    T->Voce.Attendi(u"Nuova parcella:2\nVuoi salvare la parcella prima di chiudere?"_s, vbNo, u"Domanda:"_s);
    QVERIFY(ChiudiParcella(2));
    T->Voce.Attendi(DomandaCopia(u"Rossi"_s), vbYes);
    DuplicaParcella(1);
    frmParcelle* Copia = Parcelle(2);
    QCOMPARE(Copia, Altra);
    QCOMPARE(Copia->Nota.txtCliente.Testo, u"Rossi"_s);
    QVERIFY(!Controllo(Copia, "cmdAnnulla")->isEnabled());
    QVERIFY(MostraAttiva(*Copia));
    Scrivi(Controllo<QLineEdit>(Copia, "txtOggetto"), u"x"_s);
    QVERIFY(Controllo(Copia, "cmdAnnulla")->isEnabled());
    Clic(Controllo(Copia, "cmdAnnulla"));
    QCOMPARE(Copia->Nota.txtCliente.Testo, u"Rossi"_s);
    QCOMPARE(Copia->Nota.txtOggetto.Testo, QString());
    QVERIFY2(InfoParcelle[2].Modificata, "it was never saved");
}

/// Where new lines go is what the two buttons of the copy's own window show.
void TestSalvaSulPosto::laCopiaSegueIBottoni()
{
    CompilaCivile(F);
    ClicScheda(F, SchedaListaOnorari);
    T->Voce.Attendi(u"Le nuove prestazioni saranno inserite nella riga selezionata!"_s);
    Clic(Controllo(PaginaIn(F), "barListaOnoDir_currentrow"));
    DuplicaParcella(1);
    frmParcelle* Copia = Parcelle(2);
    QVERIFY(Copia && MostraAttiva(*Copia));
    ClicScheda(Copia, SchedaListaOnorari);
    QVERIFY(Controllo<QToolButton>(PaginaIn(Copia), "barListaOnoDir_lastrow")->isChecked());
    QVERIFY(Copia->Nota.InsUltimaOno);
    QVERIFY(!F->Nota.InsUltimaOno);
    // And the other way round, into a window that was left in the mode of the current line.
    T->Voce.Attendi(u"Le nuove prestazioni saranno inserite nell'ultima riga!"_s);
    Clic(Controllo(PaginaIn(F), "barListaOnoDir_lastrow"));
    T->Voce.Attendi(u"Le nuove prestazioni saranno inserite nella riga selezionata!"_s);
    Clic(Controllo(PaginaIn(Copia), "barListaOnoDir_currentrow"));
    T->Voce.Attendi(u"Nuova parcella:2\nVuoi salvare la parcella prima di chiudere?"_s, vbNo, u"Domanda:"_s);
    QVERIFY(ChiudiParcella(2));
    DuplicaParcella(1);
    QCOMPARE(Parcelle(2), Copia);
    QVERIFY(MostraAttiva(*Copia));
    ClicScheda(Copia, SchedaListaOnorari);
    QVERIFY(Controllo<QToolButton>(PaginaIn(Copia), "barListaOnoDir_currentrow")->isChecked());
    QVERIFY(!Copia->Nota.InsUltimaOno);
}

void TestSalvaSulPosto::duplicaRinuncia()
{
    Tocca(F);
    T->Voce.Attendi(DomandaCopia(u"Rossi"_s), vbCancel);
    DuplicaParcella(1);
    QCOMPARE(UltimaParcella(), 1);
    QVERIFY(!Parcelle(2));
}

/// The copy of a note that was saved under the proposed name would propose the same.
void TestSalvaSulPosto::laCopiaNonCopreLOriginale()
{
    const QString File = Salvata_(u"Rossi.mdb"_s);
    T->Voce.Attendi(DomandaCopia(u"Rossi"_s), vbYes);
    DuplicaParcella(1);
    T->Voce.AttendiSalva(QString());
    QVERIFY(!Parcelle(2)->SalvaSulPosto());
    QCOMPARE(T->Voce.InizioDialogo(), sessione::ParcellePath + u"Rossi 2"_s);
    QVERIFY(EsisteFile(File));
}

#include "TestSalvaSulPosto.moc"
