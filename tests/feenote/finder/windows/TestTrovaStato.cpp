// The finder by states: the list that filters, what is open of the rows on view, the accountant's file.
#include "bancotrova.h"
#include "supporto/maschera.h"

#include "feenote/finder/scadenzario.h"
#include "feenote/modStato.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/guasti.h"

#include <QMenu>
#include <QScopeGuard>
#include <QSemaphore>
#include <QTimer>

using namespace Qt::StringLiterals;

class TestTrovaStato : public QObject, private BancoTrova
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { Sgombra(); }

    void laColonna();
    void siFiltraColMouse();
    void siFiltraDaTastiera();
    void nessunaInQuelloStato();
    void nomeConSegni();
    void ilFiltroResisteAlRinfresco();
    void ilFiltroRicomincia();
    void lAperto();
    void lApertoSegueLeRighe();
    void perCliente();
    void perClienteDaTastiera();
    void unClienteSolo();
    void unClienteEUnaCartellaCheNonSiLegge();
    void unClienteDalNomeLungo();
    void ilSuggerimento();
    void laCorrenteResta();
    void mentreSiCerca();
    void senzaNome();
    void copiaFuoriDalFiltro();
    void senzaIModelli();
    void archivioCheNonSiLegge();
    void laStornata();
    void nonTutteLette();
    void unaCartellaNonLetta();
    void moltiClienti_data();
    void moltiClienti();
    void esporta_data();
    void esporta();
    void esportaSopra();
    void esportaSenzaRighe();
    void ordinaDaTastiera();

private:
    void Salva(const QString& Nome, const QString& Cliente, StatoNota Stato, double Onorari)
    {
        Parcella Nota;
        NuovaParcella(Nota);
        Nota.txtCliente.Testo = Cliente;
        Nota.chkIva.Attiva = Nota.chkCP.Attiva = false;
        RicordaStampa(Nota);
        Nota.xOnorari(Nota.xOnorari.AggiungiRiga(), OnoImporto) = Onorari;
        if (Stato >= StatoNota::Inviata)
            (void)NotaInviata(Nota, StampaPrenotula);
        (void)ScegliStato(Nota, Stato);
        ScriviNota(Note + Nome + u".mdb"_s, Nota);
    }
    [[nodiscard]] QComboBox* ListaStati() const { return Controllo<QComboBox>(F.get(), "cmbStato"); }
    [[nodiscard]] QString Aperto() const { return Controllo<QLabel>(F.get(), "lblAperto")->text(); }
    [[nodiscard]] QToolButton* UnCliente() const { return Controllo<QToolButton>(F.get(), "cmdUnCliente"); }
    [[nodiscard]] QToolButton* PerCliente() const { return Controllo<QToolButton>(F.get(), "cmdPerCliente"); }
    /// The three notes that the bench has saved, and the four of this class.
    const QStringList Tutte{u"[vecchie]"_s, u"a"_s,       u"b"_s,        u"c"_s,
                            u"d"_s,         u"rossi 9"_s, u"rossi 10"_s, u"verdi"_s};
};
PROVA(TestTrovaStato);

void TestTrovaStato::init()
{
    Prepara();
    Salva(u"a"_s, u"Alfa & figli"_s, StatoNota::Inviata, 1000);
    Salva(u"b"_s, u"Beta"_s, StatoNota::Fatturata, 200.5);
    Salva(u"c"_s, u"Beta"_s, StatoNota::Inviata, 100);
    Salva(u"d"_s, u"Alfa & figli"_s, StatoNota::Pagata, 5000);
    EseguiSu(Note + u"verdi.mdb"_s, u"DROP TABLE \"_Calcanova\""_s);
    Apri();
}

void TestTrovaStato::laColonna()
{
    QCOMPARE(Nomi(), Tutte);
    QStringList Stati;
    for (int Riga = 0; Riga < Lista()->Righe(); ++Riga)
        Stati += Cella(Riga, TrovaStato);
    QCOMPARE(Stati, (QStringList{QString(), u"Inviata"_s, u"Fatturata"_s, u"Inviata"_s, u"Pagata"_s,
                                 u"Bozza"_s, u"Bozza"_s, QString()}));
}

void TestTrovaStato::siFiltraColMouse()
{
    Scegli(ListaStati(), int(FiltroStato::DaIncassare));
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"a"_s, u"b"_s, u"c"_s}));
    QCOMPARE(Mostrate(), u"Mostrate 3 di 7"_s);
    QCOMPARE(Corrente(), u"a"_s);
    Scrivi(Testo(), u"beta"_s);
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"b"_s, u"c"_s}));
    Scegli(ListaStati(), int(FiltroStato::Tutte));
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"b"_s, u"c"_s}));
    Scrivi(Testo(), QString());
    QCOMPARE(Nomi(), Tutte);
    QCOMPARE(Mostrate(), QString());
}

void TestTrovaStato::siFiltraDaTastiera()
{
    VaiSu(u"c"_s);
    ListaStati()->setFocus(Qt::TabFocusReason);
    ScegliConFrecce(ListaStati(), int(FiltroStato::Inviata));
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"a"_s, u"c"_s}));
    QVERIFY(ListaStati()->hasFocus());
    ScegliDaTastiera(ListaStati(), int(FiltroStato::SenzaStato));
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"verdi"_s}));
}

void TestTrovaStato::nessunaInQuelloStato()
{
    QDir(Note + u"vecchie"_s).removeRecursively();
    F->RinfrescaTrova();
    Finita();
    for (const QString& Nome : {u"a"_s, u"c"_s})
        QFile::remove(Note + Nome + u".mdb"_s);
    F->RinfrescaTrova();
    Finita();
    Scegli(ListaStati(), int(FiltroStato::Inviata));
    QCOMPARE(Lista()->Righe(), 0);
    QCOMPARE(Aperto(), u"Niente da incassare tra le parcelle mostrate."_s);
    QVERIFY(!PerCliente()->isEnabled());
}

/// A client's name is no markup: its hint shows it as it is written, and loads nothing.
void TestTrovaStato::nomeConSegni()
{
    Salva(u"segni"_s, u"Rossi <b>& figli</b>"_s, StatoNota::Inviata, 5);
    F->RinfrescaTrova();
    Finita();
    QVERIFY(Aperto().contains(u"Rossi <b>& figli</b> "_s));
    // As it is written; the kit shows every hint so.
    QCOMPARE(Controllo<QLabel>(F.get(), "lblAperto")->toolTip(), Aperto());
}

void TestTrovaStato::ilFiltroResisteAlRinfresco()
{
    Scegli(ListaStati(), int(FiltroStato::Pagata));
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"d"_s}));
    Salva(u"e"_s, u"Beta"_s, StatoNota::Pagata, 1);
    F->RinfrescaTrova();
    Finita();
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"d"_s, u"e"_s}));
    Doppio(u"[vecchie]"_s);
    QCOMPARE(Nomi(), QStringList{VoceTorna.toString()});
}

void TestTrovaStato::ilFiltroRicomincia()
{
    Scegli(ListaStati(), int(FiltroStato::Pagata));
    Apri();
    QCOMPARE(ListaStati()->currentIndex(), int(FiltroStato::Tutte));
    QCOMPARE(Nomi(), Tutte);
}

void TestTrovaStato::lAperto()
{
    QCOMPARE(
        Aperto(),
        u"Aperto: 1.300,50 in 3 parcelle; 1 parcella senza importo noto; Alfa & figli 1.000,00; Beta 300,50"_s);
    QVERIFY(PerCliente()->isEnabled());
}

void TestTrovaStato::lApertoSegueLeRighe()
{
    Scrivi(Testo(), u"beta"_s);
    QCOMPARE(Aperto(), u"Aperto: 300,50 in 2 parcelle; Beta 300,50"_s);
    VaiSu(u"b"_s);
    T->Voce.Attendi(u"Confermi la cancellazione della parcella: 'b'?"_s, vbYes);
    T->Voce.Attendi(u"La parcella è stata eliminata!"_s);
    Premi(Qt::Key_Delete);
    Respiro();
    QCOMPARE(Aperto(), u"Aperto: 100,00 in 1 parcella; Beta 100,00"_s);
}

void TestTrovaStato::perCliente()
{
    QStringList Voci;
    QTimer::singleShot(0, this, [&] {
        QMenu* Menu = PerCliente()->menu();
        QVERIFY(Menu->isVisible());
        for (const QAction* Voce : Menu->actions())
            Voci += Voce->text();
        QTest::mouseClick(Menu, Qt::LeftButton, Qt::NoModifier,
                          Menu->actionGeometry(Menu->actions().at(0)).center());
    });
    Clic(PerCliente());
    Respiro();
    QCOMPARE(Voci,
             (QStringList{u"Alfa && figli\t1.000,00 in 1 parcella"_s, u"Beta\t300,50 in 2 parcelle"_s}));
    QCOMPARE(Testo()->text(), QString());
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"a"_s, u"d"_s}));
    QCOMPARE(F->focusWidget(), Lista()->Vista());
    QVERIFY(UnCliente()->isVisible());
    QCOMPARE(UnCliente()->text(), u"Solo Alfa && figli"_s);
    QCOMPARE(Mostrate(), u"Mostrate 2 di 7"_s);
    QCOMPARE(Aperto(), u"Aperto: 1.000,00 in 1 parcella; Alfa & figli 1.000,00"_s);
    Clic(UnCliente());
    QCOMPARE(Nomi(), Tutte);
    QVERIFY(!UnCliente()->isVisible());
    QCOMPARE(F->focusWidget(), Lista()->Vista());
}

/// Neither a like name nor a counterparty, nor another client of the same name; the state filters besides.
void TestTrovaStato::unClienteSolo()
{
    const int Primo = T->Ufficio.AggiungiCliente(u"Beta"_s);
    const int Altro = T->Ufficio.AggiungiCliente(u"Beta"_s);
    for (const int Chi : {Primo, Altro}) {
        Parcella Nota;
        NuovaParcella(Nota);
        Nota.IDCli = Chi;
        Nota.txtCliente.Testo = u"Beta"_s;
        Nota.txtControp.Testo = u"Alfa & figli"_s;
        Nota.chkIva.Attiva = Nota.chkCP.Attiva = false;
        RicordaStampa(Nota);
        Nota.xOnorari(Nota.xOnorari.AggiungiRiga(), OnoImporto) = Chi == Primo ? 10.0 : 20.0;
        (void)NotaInviata(Nota, StampaPrenotula);
        ScriviNota(Note + u"k%1.mdb"_s.arg(Chi == Primo ? 1 : 2), Nota);
    }
    Salva(u"betania"_s, u"Betania"_s, StatoNota::Inviata, 7);
    F->RinfrescaTrova();
    Finita();
    const auto Sceglie = [this](const QString& Voce) {
        for (QAction* Una : PerCliente()->menu()->actions())
            if (Una->text() == Voce)
                return Una->trigger(), true;
        return false;
    };
    QVERIFY(Sceglie(u"Beta\t300,50 in 2 parcelle"_s));
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"b"_s, u"c"_s}));
    QVERIFY(Sceglie(u"Tutti i clienti"_s));
    QVERIFY(Sceglie(u"Beta\t10,00 in 1 parcella"_s));
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"k1"_s}));
    // It holds while the list is read anew, and with the other filters.
    F->RinfrescaTrova();
    Finita();
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"k1"_s}));
    F->TrovaParc(Note);
    Finita();
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"k1"_s}));
    Scegli(ListaStati(), int(FiltroStato::Pagata));
    QCOMPARE(Nomi(), QStringList{u"[vecchie]"_s});
    Clic(UnCliente());
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"d"_s}));
    // Opened anew it shows all.
    Scegli(ListaStati(), int(FiltroStato::Tutte));
    QVERIFY(Sceglie(u"Alfa && figli\t1.000,00 in 1 parcella"_s));
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"a"_s, u"d"_s}));
    Apri();
    QVERIFY(!UnCliente()->isVisible());
    QVERIFY(Nomi().contains(u"betania"_s));
}

/// A folder that cannot be listed gives back the rows of before, filtered as the button says.
void TestTrovaStato::unClienteEUnaCartellaCheNonSiLegge()
{
    PerCliente()->menu()->actions().first()->trigger();
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"a"_s, u"d"_s}));
    QSemaphore Rete;
    guasti::PrimaDiScorrere = [&Rete](const QString&) { Rete.acquire(); };
    const auto Fine = qScopeGuard([&] { guasti::PrimaDiScorrere = {}; });
    F->TrovaParc(Note + u"manca"_s);
    Clic(UnCliente());
    T->Voce.Attendi(u"Errore: Percorso non trovato (76)"_s, vbCritical, u"Errore:"_s);
    Rete.release(10);
    Finita();
    QCOMPARE(Nomi(), Tutte);
}

/// A name of any length leaves the row of the filters as wide as it is.
void TestTrovaStato::unClienteDalNomeLungo()
{
    const QString Lungo = QString(u"Società cooperativa "_s).repeated(10).trimmed();
    Salva(u"l"_s, Lungo, StatoNota::Inviata, 9000);
    F->RinfrescaTrova();
    Finita();
    PerCliente()->menu()->actions().first()->trigger();
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"l"_s}));
    QCOMPARE(UnCliente()->text(), u"Solo Società cooperativa Società…"_s);
    QVERIFY(UnCliente()->toolTip().contains(Lungo));
}

void TestTrovaStato::perClienteDaTastiera()
{
    PerCliente()->setFocus(Qt::TabFocusReason);
    QTimer::singleShot(0, this, [this] {
        QTest::keyClick(PerCliente()->menu(), Qt::Key_Down);
        QTest::keyClick(PerCliente()->menu(), Qt::Key_Down);
        QTest::keyClick(PerCliente()->menu(), Qt::Key_Return);
    });
    QTest::keyClick(PerCliente(), Qt::Key_Space);
    Respiro();
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"b"_s, u"c"_s}));
}

void TestTrovaStato::ilSuggerimento()
{
    const QString Inviata = Lista()->Suggerimento(RigaDi(u"a"_s));
    QVERIFY2(Inviata.contains(u"Inviata dal "_s) && Inviata.contains(u"Aperto: 1.000,00"_s),
             qPrintable(Inviata));
    QVERIFY(Lista()
                ->Suggerimento(RigaDi(u"verdi"_s))
                .contains(u"È di una versione precedente: il suo stato non è noto"_s));
    QVERIFY(!Lista()->Suggerimento(RigaDi(u"d"_s)).contains(u"Aperto"_s));
    EseguiSu(Note + u"a.mdb"_s, u"UPDATE \"_Calcanova\" SET Valore='x' WHERE Nome='Stato.Importi'"_s);
    F->RinfrescaTrova();
    Finita();
    QVERIFY(Lista()
                ->Suggerimento(RigaDi(u"a"_s))
                .contains(u"Aperto: non noto, gli importi nel file non si leggono"_s));
}

/// The current row stays where the filter leaves it.
void TestTrovaStato::laCorrenteResta()
{
    VaiSu(u"b"_s);
    Scegli(ListaStati(), int(FiltroStato::DaIncassare));
    QCOMPARE(Corrente(), u"b"_s);
    Scegli(ListaStati(), int(FiltroStato::Pagata));
    QCOMPARE(Corrente(), u"d"_s);
}

/// A sum of the rows that have come so far is none.
void TestTrovaStato::mentreSiCerca()
{
    QSemaphore Rete;
    guasti::PrimaDiScorrere = [&Rete](const QString&) { Rete.acquire(); };
    const auto Fine = qScopeGuard([&] { guasti::PrimaDiScorrere = {}; });
    F->TrovaParc(Note);
    QVERIFY(F->InRicerca());
    Scegli(ListaStati(), int(FiltroStato::Inviata));
    const QString Detto = Aperto();
    const bool Premibile = PerCliente()->isEnabled();
    Rete.release(10);
    Finita();
    QCOMPARE(Detto, QString());
    QVERIFY(!Premibile);
    QVERIFY(Aperto().startsWith(u"Aperto: 1.100,00 in 2 parcelle"_s));
}

void TestTrovaStato::senzaNome()
{
    Salva(u"z"_s, {}, StatoNota::Inviata, 5);
    F->RinfrescaTrova();
    Finita();
    const QAction* Voce = PerCliente()->menu()->actions().last();
    QCOMPARE(Voce->text(), u"Senza cliente\t5,00 in 1 parcella"_s);
    PerCliente()->menu()->actions().last()->trigger();
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"z"_s}));
    QCOMPARE(UnCliente()->text(), u"Solo Senza cliente"_s);
}

/// An invoice that was paid in the file that was saved last is not owed in the other one, which alone passes.
void TestTrovaStato::copiaFuoriDalFiltro()
{
    for (const QString& Nome : {u"x1"_s, u"x2"_s}) {
        Parcella Nota;
        NuovaParcella(Nota);
        Nota.txtCliente.Testo = u"Gamma"_s;
        Nota.xOnorari(Nota.xOnorari.AggiungiRiga(), OnoImporto) = 700.0;
        Nota.txtDatiPar[DatoNumFatt] = u"7"_s;
        Nota.txtDatiPar[DatoDataFatt] = u"01/11/2026"_s;
        ScegliTipoStampa(Nota, StampaFatturaAnalitica);
        (void)NotaInviata(Nota, StampaFatturaAnalitica);
        (void)ScegliStato(Nota, Nome == u"x1" ? StatoNota::Fatturata : StatoNota::Pagata);
        ScriviNota(Note + Nome + u".mdb"_s, Nota);
    }
    QFile Prima(Note + u"x1.mdb"_s);
    QVERIFY(Prima.open(QIODevice::ReadWrite));
    QVERIFY(Prima.setFileTime(QDateTime::currentDateTime().addDays(-9), QFileDevice::FileModificationTime));
    Prima.close();
    F->RinfrescaTrova();
    Finita();
    Scegli(ListaStati(), int(FiltroStato::Fatturata));
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"b"_s, u"x1"_s}));
    QCOMPARE(Aperto(), u"Aperto: 200,50 in 1 parcella; Beta 200,50"_s);
    QCOMPARE(Cella(RigaDi(u"x1"_s), TrovaStato), u"Copia"_s);
    QVERIFY(Lista()
                ->Suggerimento(RigaDi(u"x1"_s))
                .contains(u"È una copia: i suoi importi contano in "_s + Note + u"x2.mdb"_s));
    const QString File = CartellaDiProva() + u"copia.csv"_s;
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(u"2 parcelle esportate in \"copia.csv\"."_s, vbNo, u"Messaggio:"_s);
    F->EsportaCsv();
    const QByteArray Foglio = LeggiFile(File);
    QVERIFY(Foglio.contains("Gamma;;;Fattura analitica (copia);7;01/11/2026;Fatturata;"));
    QVERIFY(Foglio.contains(";0,00;x1\r\n"));
    Scegli(ListaStati(), int(FiltroStato::DaIncassare));
    QVERIFY(!Nomi().contains(u"x1"_s));
}

void TestTrovaStato::senzaIModelli()
{
    ImpostaSolaLettura(Note + u"a.mdb"_s, true);
    F->RinfrescaTrova();
    Finita();
    T->Voce.AttendiSalva(CartellaDiProva() + u"senza.csv"_s);
    T->Voce.Attendi(u"6 parcelle esportate in \"senza.csv\"."_s, vbNo, u"Messaggio:"_s);
    F->EsportaCsv();
    ImpostaSolaLettura(Note + u"a.mdb"_s, false);
    QCOMPARE(LeggiFile(CartellaDiProva() + u"senza.csv"_s).count("\r\n"), 7);
}

void TestTrovaStato::archivioCheNonSiLegge()
{
    sessione::ArchivioCliCon = Note + u"archivio"_s;
    ScriviFile(sessione::ArchivioCliCon, QByteArray(5000, 'x'));
    Parcella Nota;
    NuovaParcella(Nota);
    Nota.IDCli = 3;
    Nota.txtCliente.Testo = u"Gamma"_s;
    ScriviNota(Note + u"g.mdb"_s, Nota);
    F->RinfrescaTrova();
    Finita();
    T->Voce.AttendiSalva(CartellaDiProva() + u"codici.csv"_s);
    T->Voce.Attendi(
        u"8 parcelle esportate in \"codici.csv\".\nAttenzione, il foglio non è completo: mancano "
        u"codici fiscali e "
        u"partite IVA, perché l'archivio dei clienti %1 non si legge."_s.arg(sessione::ArchivioCliCon),
        vbNo, u"Messaggio:"_s);
    F->EsportaCsv();
}

/// An invoice that its own file takes back says both documents, and waits for no money.
void TestTrovaStato::laStornata()
{
    Parcella Nota;
    NuovaParcella(Nota);
    Nota.txtCliente.Testo = u"Gamma"_s;
    Nota.chkIva.Attiva = Nota.chkCP.Attiva = false;
    RicordaStampa(Nota);
    Nota.xOnorari(Nota.xOnorari.AggiungiRiga(), OnoImporto) = 700.0;
    ScegliTipoStampa(Nota, StampaFatturaAnalitica);
    for (const bool Credito : {false, true}) {
        Nota.FatturaXml.Tipo = Credito ? u"TD04"_s : QString();
        Nota.txtDatiPar[DatoNumFatt] = Credito ? u"8"_s : u"7"_s;
        Nota.txtDatiPar[DatoDataFatt] = u"01/11/2026"_s;
        (void)NotaInviata(Nota, StampaFatturaAnalitica);
    }
    ScriviNota(Note + u"s.mdb"_s, Nota);
    F->RinfrescaTrova();
    Finita();
    QCOMPARE(Cella(RigaDi(u"s"_s), TrovaStato), u"Stornata"_s);
    const QString Detto = Lista()->Suggerimento(RigaDi(u"s"_s));
    QVERIFY2(Detto.contains(u"\nStornata dal "_s), qPrintable(Detto));
    QVERIFY2(
        Detto.contains(
            u"\nFattura analitica 7 del 01/11/2026: 700,00\nNota di credito 8 del 01/11/2026: -700,00\n"_s),
        qPrintable(Detto));
    Scegli(ListaStati(), int(FiltroStato::DaIncassare));
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"a"_s, u"b"_s, u"c"_s}));
}

/// A damaged file may hold anything: sum and export say that it is missing.
void TestTrovaStato::nonTutteLette()
{
    QFile Tagliata(Note + u"d.mdb"_s);
    QVERIFY(Tagliata.resize(Tagliata.size() - 4096));
    F->RinfrescaTrova();
    Finita();
    QVERIFY2(Aperto().endsWith(u"; Beta 300,50; 1 file non letto"_s), qPrintable(Aperto()));
    T->Voce.AttendiSalva(CartellaDiProva() + u"parziale.csv"_s);
    T->Voce.Attendi(
        u"6 parcelle esportate in \"parziale.csv\".\nAttenzione, il foglio non è completo: 1 file non letto."_s,
        vbNo, u"Messaggio:"_s);
    F->EsportaCsv();
    Scegli(ListaStati(), int(FiltroStato::Pagata));
    QCOMPARE(Aperto(), u"Niente da incassare tra le parcelle mostrate; 1 file non letto."_s);
}

/// A folder below that cannot be read is told at the end of the search, beside the sum and with the file.
void TestTrovaStato::unaCartellaNonLetta()
{
    QVERIFY(QFile::setPermissions(Note + u"vecchie"_s, {}));
    const auto Fine = qScopeGuard([&] {
        (void)QFile::setPermissions(Note + u"vecchie"_s,
                                    QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    });
    Clic(Controllo(F.get(), "chkSubDir"));
    Finita();
    QVERIFY2(Stato().endsWith(u" KBytes; 1 cartella non letta"_s), qPrintable(Stato()));
    QVERIFY2(Aperto().endsWith(u"; Beta 300,50; 1 cartella non letta"_s), qPrintable(Aperto()));
    T->Voce.AttendiSalva(CartellaDiProva() + u"cartella.csv"_s);
    T->Voce.Attendi(u"7 parcelle esportate in \"cartella.csv\".\nAttenzione, il foglio non è completo: "
                    u"1 cartella non letta."_s,
                    vbNo, u"Messaggio:"_s);
    F->EsportaCsv();
}

void TestTrovaStato::moltiClienti_data()
{
    QTest::addColumn<int>("Quanti");
    QTest::addColumn<QString>("Ultima");
    QTest::newRow("as many as the menu shows") << 28 << u"Cliente 28\t1,00 in 1 parcella"_s;
    QTest::newRow("one more") << 29 << u"e un altro"_s;
    QTest::newRow("two more") << 30 << u"e altri 2"_s;
}

/// The menu ends where no screen would show more; with the two of the bench.
void TestTrovaStato::moltiClienti()
{
    QFETCH(int, Quanti);
    for (int i = 1; i <= Quanti; ++i)
        Salva(u"m%1"_s.arg(i), u"Cliente %1"_s.arg(i, 2, 10, QChar(u'0')), StatoNota::Inviata, 1);
    F->RinfrescaTrova();
    Finita();
    QTEST(PerCliente()->menu()->actions().last()->text(), "Ultima");
}

void TestTrovaStato::esporta_data()
{
    QTest::addColumn<bool>("DaTastiera");
    QTest::newRow("the button") << false;
    QTest::newRow("Ctrl+E") << true;
}

void TestTrovaStato::esporta()
{
    QFETCH(bool, DaTastiera);
    Scegli(ListaStati(), int(FiltroStato::DaIncassare));
    const QString File = NuovaCartella() + u"due"_s;
    ApriAlGruppo(CartellaFile(File));
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(u"3 parcelle esportate in \"due.csv\"."_s, vbNo, u"Messaggio:"_s);
    if (DaTastiera)
        QTest::keyClick(Testo(), Qt::Key_E, Qt::ControlModifier);
    else
        Clic(Controllo(F.get(), "barTrova_csv"));
    QVERIFY(T->Voce.InizioDialogo().contains(u"Scadenzario "_s));
    QCOMPARE(T->Voce.Ultimo().Bandiere,
             vbYesNo + vbInformation + vbDefaultButton2);  // the folder's own button
    const QList<QByteArray> Righe = LeggiFile(File + u".csv"_s).split('\n');
    QCOMPARE(Righe.size(), 5);
    QVERIFY(Righe[0].startsWith("\xEF\xBB\xBF"
                                "Cliente;Codice fiscale;"));
    QVERIFY2(Righe[1].startsWith("Alfa & figli;;;Prenotula;;;Inviata;"), Righe[1].constData());
    QVERIFY(Righe[1].contains(";1000,00;0,00;0,00;0,00;1000,00;1000,00;0,00;1000,00;a\r"));
    QVERIFY(Righe[2].contains(";200,50;b\r"));
    QVERIFY(!(QFile::permissions(File + u".csv"_s) & DiAltri));
}

void TestTrovaStato::esportaSopra()
{
    const QString File = CartellaDiProva() + u"due.csv"_s;
    ScriviFile(File, "mio", Lettori::SoloUtente);
    T->Voce.AttendiSalva(File);
    T->Voce.Attendi(u"Il file due.csv esiste già: si vuole sostituirlo?"_s, vbNo, u"Domanda:"_s);
    F->EsportaCsv();
    QCOMPARE(LeggiFile(File), QByteArray("mio"));
    T->Voce.AttendiSalva({});
    F->EsportaCsv();
    QCOMPARE(LeggiFile(File), QByteArray("mio"));
}

void TestTrovaStato::esportaSenzaRighe()
{
    Scrivi(Testo(), u"nessuna così"_s);
    QVERIFY(!Controllo(F.get(), "barTrova_csv")->isEnabled());
    F->EsportaCsv();  // no dialog
}

void TestTrovaStato::ordinaDaTastiera()
{
    QTest::keyClick(Testo(), Qt::Key_7, Qt::ControlModifier);
    QCOMPARE(Nomi(), (QStringList{u"[vecchie]"_s, u"verdi"_s, u"rossi 9"_s, u"rossi 10"_s, u"a"_s, u"c"_s,
                                  u"b"_s, u"d"_s}));
}

#include "TestTrovaStato.moc"
