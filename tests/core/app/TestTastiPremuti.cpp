#include "bancotasti.h"
#include "tastirighe.h"

#include "core/desktop/recenti.h"
#include "core/modRecenti.h"
#include "core/tasti.h"
#include "platform/calendar/calendario.h"

#include <QDir>
#include <QListView>
#include <QListWidget>
#include <QMdiArea>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTextBrowser>
#include <QToolButton>

#include <map>

/// The keys that a control answers by itself: each row of the page of keys that no shortcut of a window makes
/// true is pressed in the control that it speaks of, and does there what it says.
class TestTastiPremuti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { InstallaTastoGuida(); }
    void ognuno_data();
    void ognuno();
    void nessunoDiTroppo();
};
PROVA(TestTastiPremuti);

namespace {

using Prova = void (*)(BancoTasti& B);

void LaGuida(BancoTasti& B)
{
    const bool Tutti = B.Tasti != u"F1";
    (void)B.Apri(u"contrib"_s);
    B.Batti();
    const QWidget* Visore = InVistaDi(u"frmWeb"_s);
    QVERIFY(Visore);
    QCOMPARE(Controllo<QTextBrowser>(Visore, "Web1")->source().fileName(),
             Tutti ? u"tastiera.htm"_s : u"frmContrib.htm"_s);
}

void UnIcona(BancoTasti& B)
{
    auto& Scrivania = Singola<frmStudio>();
    Scrivania.Mostra();
    QVERIFY(MostraAttiva(Scrivania));
    Controllo<QWidget>(&Scrivania, "imgMenu_3")->setFocus();
    B.Batti();
    const int Meta = B.Tasti == u"Home" ? 0 : Scrivania.NumeroIcone() - 1;
    QCOMPARE(NomeFuoco(), u"imgMenu_%1"_s.arg(Meta));
}

void LaRecente(BancoTasti& B)
{
    const QString File = sessione::ParcellePath + u"rossi.mdb"_s;
    SalvaNota(File, u"Rossi"_s);
    RicordaRecente({.Percorso = PercorsoNativo(File),
                    .Cliente = u"Rossi"_s,
                    .Documento = u"Prenotula"_s,
                    .Netto = 1190.70,
                    .Data = QDate(2026, 11, 21)});
    auto& Scrivania = Singola<frmStudio>();
    Scrivania.Mostra();
    Scrivania.resize(920, 360);
    QVERIFY(MostraAttiva(Scrivania));
    QCOMPARE(NoteRecenti().size(), 1);
    Controllo<QListView>(&Scrivania, "lstRecenti")->setFocus();
    B.Batti();
    if (B.Tasti == u"Del") {
        QCOMPARE(NoteRecenti().size(), 0);
        QVERIFY(EsisteFile(File));
    } else {
        QTRY_VERIFY(Parcelle(1));
        QTRY_COMPARE(TestoDi(Parcelle(1), "txtCliente"), u"Rossi"_s);
    }
}

void LaParcellaAccanto(BancoTasti& B)
{
    for (const QString& Nome : {u"prima"_s, u"seconda"_s, u"terza"_s})
        Aperture.ApriParcella(PercorsoNativo(SalvaNota(sessione::ParcellePath + Nome + u".mdb"_s)), 0, {});
    QVERIFY(MostraAttiva(Singola<frmMain>()));
    Respiro();
    const auto* Area = Singola<frmMain>().findChild<QMdiArea*>();
    QCOMPARE(Area->activeSubWindow()->widget(), Parcelle(3));
    B.Batti();
    QCOMPARE(Area->activeSubWindow()->widget(), Parcelle(2));
}

void LaRubrica(BancoTasti& B)
{
    Controllo<QWidget>(B.Nota(), "txtCliente")->setFocus();
    B.Batti();
    QVERIFY(InVistaDi(u"frmRubrica"_s));
}

void SchedaOScaglione(BancoTasti& B)
{
    frmParcelle* Nota = B.Collegata();
    B.Batti();
    QWidget* Scheda = InVistaDi(u"frmScheda"_s);
    QVERIFY(Scheda);
    Scheda->close();
    if (QWidget* Libro = InVistaDi(u"frmRubrica"_s))
        Libro->close();
    QVERIFY(MostraAttiva(Singola<frmMain>()));
    ::Scegli(Controllo<QComboBox>(Nota, "cmbCateg"), 0);
    ::Scegli(Controllo<QComboBox>(Nota, "cmbAutor"), 1);
    Scrivi(Nota, "txtImporto", u"60000"_s);
    QVERIFY(Controllo<QWidget>(Nota, "cmdScaglione")->isVisible());
    QCOMPARE(TestoScaglione(Nota->Nota), QString());
    B.Batti();
    QVERIFY(!TestoScaglione(Nota->Nota).isEmpty());
}

void LaCatena(BancoTasti& B)
{
    frmParcelle* Nota = B.Nota(SchedaListaOnorari);
    QTest::mouseClick(Controllo<QWidget>(Nota, "pieCatena"), Qt::LeftButton);
    Respiro();
    QWidget* Conti = InVistaDi(u"PannelloCatena"_s);
    QVERIFY(Conti && MostraAttiva(*Conti));
    B.Batti();
    QCOMPARE(Conti->isVisible(), B.Tasti != u"Esc");
    if (B.Tasti != u"Esc")
        QVERIFY2(Appunti().contains(u'\t'), qPrintable(Appunti()));
}

void RicercaAperta(BancoTasti& B)
{
    const VistaStampa* Vista = B.Fattura();
    B.Batti();
    QVERIFY(Controllo<QWidget>(Vista, "txtRicerca")->hasFocus());
}

void RicercaVicina(BancoTasti& B)
{
    const VistaStampa* Vista = B.Cercata();
    const int Prima = B.Occorrenza(Vista);
    const int Quante = B.Occorrenza(Vista, 1);
    QVERIFY(Prima > 0 && Quante > 2);
    if (B.Tasti.contains(u"Return"))
        Controllo<QWidget>(Vista, "txtRicerca")->setFocus();
    B.Batti();
    const int Passo = B.Tasti.startsWith(u"Shift") ? Quante - 1 : 1;
    QCOMPARE(B.Occorrenza(Vista), (Prima - 1 + Passo) % Quante + 1);
}

void RicercaChiusa(BancoTasti& B)
{
    const VistaStampa* Vista = B.Cercata();
    B.Batti();
    QVERIFY(!Controllo<QWidget>(Vista, "txtRicerca")->isVisible());
}

void Grandezza(BancoTasti& B)
{
    VistaStampa* Vista = B.Fattura();
    Vista->ImpostaZoom(90);
    B.Batti();
    if (B.Tasti == u"Ctrl++")
        QVERIFY(Vista->Zoom() > 90);
    else if (B.Tasti == u"Ctrl+-")
        QVERIFY(Vista->Zoom() < 90);
    else if (B.Tasti == u"Ctrl+0")
        QCOMPARE(Vista->Zoom(), 100);
    else
        QCOMPARE(Vista->ZoomMode(),
                 B.Tasti == u"Ctrl+1" ? VistaStampa::ZoomIntera : VistaStampa::ZoomLarghezza);
}

void TestoDelDocumento(BancoTasti& B)
{
    const VistaStampa* Vista = B.Fattura();
    B.Batti(u"Ctrl+A"_s);
    QVERIFY(!Vista->TestoScelto().isEmpty());
    if (B.Tasti == u"Ctrl+A")
        return;
    B.Batti();
    QVERIFY(!Appunti().isEmpty());
    QCOMPARE(Appunti(), Vista->TestoScelto());
}

void ParcellaTrovata(BancoTasti& B)
{
    const frmTrovaParcella* Modulo = B.Trova();
    B.Batti();
    QTRY_VERIFY(Parcelle(1));
    QCOMPARE(TestoDi(Parcelle(1), "txtCliente"), u"Rossi"_s);
    QVERIFY(!Modulo->isVisible());
}

void CartellaSuperiore(BancoTasti& B)
{
    const frmTrovaParcella* Modulo = B.Trova();
    Controllo<Griglia>(Modulo, "tdbParcelle")
        ->ImpostaRigaCorrente(int(B.Nomi(Modulo).indexOf(u"[vecchie]"_s)));
    B.Batti(u"Return"_s);
    B.Ferma(Modulo);
    QVERIFY(B.Nomi(Modulo).contains(u"neri"));
    B.Batti();
    B.Ferma(Modulo);
    QVERIFY(B.Nomi(Modulo).contains(u"rossi"));
}

void FileTrovato(BancoTasti& B)
{
    (void)B.Trova();
    if (B.Tasti == u"F2") {
        B.Box.AttendiImmissione(u"Immettere il nuovo nome"_s, u"blu"_s);
        B.Box.Attendi(u"La parcella è stata rinominata!"_s);
    } else {
        B.Box.Attendi(u"Confermi la cancellazione della parcella: 'rossi'?"_s, vbYes);
        B.Box.Attendi(u"La parcella è stata eliminata!"_s);
    }
    B.Batti();
    QVERIFY(!EsisteFile(sessione::ParcellePath + u"rossi.mdb"_s));
    QCOMPARE(EsisteFile(sessione::ParcellePath + u"blu.mdb"_s), B.Tasti == u"F2");
}

void TrovaChiusa(BancoTasti& B)
{
    const frmTrovaParcella* Modulo = B.Trova();
    B.Batti();
    QVERIFY(!Modulo->isVisible());
}

/// For a note, and opened by itself.
void NominativoScelto(BancoTasti& B)
{
    frmParcelle* Nota = B.Nota();
    Controllo<QWidget>(Nota, "txtCliente")->setFocus();
    B.Batti(u"F4"_s);
    QWidget* Libro = InVistaDi(u"frmRubrica"_s);
    QVERIFY(Libro && MostraAttiva(*Libro));
    Controllo<QWidget>(Libro, "tdbRubrica")->setFocus();
    B.Batti();
    QTRY_COMPARE(TestoDi(Nota, "txtCliente"), u"Bianchi Mario"_s);
    QVERIFY(!InVistaDi(u"frmRubrica"_s));
    AzzeraFinestre();
    Singola<frmMain>().hide();
    (void)B.Apri(u"clienti"_s);
    B.Batti();
    QVERIFY(InVistaDi(u"frmScheda"_s));
}

void CasellaVuota(const BancoTasti& B, const QString& Parola, const char* Casella)
{
    const QPointer<QWidget> Finestra = BancoTasti::Apri(Parola);
    Scrivi(Finestra, Casella, u"zzz"_s);
    B.Batti();
    QVERIFY(Finestra->isVisible());
    QCOMPARE(TestoDi(Finestra, Casella), QString());
    B.Batti();
    QVERIFY(!Finestra || !Finestra->isVisible());
}

void FiltroVuoto(BancoTasti& B)
{
    CasellaVuota(B, u"clienti"_s, "txtFiltro");
}

void RicercaVuota(BancoTasti& B)
{
    CasellaVuota(B, u"docum"_s, "txtCerca");
}

void TestiDiPrima(BancoTasti& B)
{
    QWidget* Libro = B.Apri(u"clienti"_s);
    QWidget* Ricerca = B.Figlia(Libro, "barRubr_search", u"frmRicerche"_s);
    Scrivi(Ricerca, "txtValore", u"Bianchi Mario"_s);
    QTest::mouseClick(Controllo<QWidget>(Ricerca, "cmdFind_0"), Qt::LeftButton);
    Respiro();
    QVERIFY(MostraAttiva(*Ricerca));
    Controllo<QWidget>(Ricerca, "txtValore")->setFocus();
    B.Batti();
    QWidget* Tendina = QApplication::activePopupWidget();
    QVERIFY(Tendina);
    QCOMPARE(Tendina->objectName(), u"tendinaTesti"_s);
    Tendina->close();
}

void ParcellaAssociata(BancoTasti& B)
{
    const QString Altra = PercorsoNativo(sessione::ParcellePath + u"altra.mdb"_s);
    SalvaNota(Altra, u"Rossi"_s);
    frmParcelle* Nota = B.Nota(SchedaImposte);
    Aperture.TrovaParcella = [Altra](int, const QString&, int, const QString&) { return Altra; };
    QTest::mouseClick(Controllo<QWidget>(Nota, "cmdOpenPar"), Qt::LeftButton);
    Respiro();
    QVERIFY(Nota->Nota.Multipla());
    Controllo<QWidget>(Nota, "txtParcMultipla")->setFocus();
    B.Batti();
    if (B.Tasti == u"Del")
        QVERIFY(!Nota->Nota.Multipla());
    else
        QCOMPARE(TestoDi(Parcelle(2), "txtCliente"), u"Rossi"_s);
}

void CampoDaGuardare(BancoTasti& B)
{
    (void)B.Fattura();
    auto* Elenco = Controllo<QListWidget>(Parcelle(1), "lstControlli");
    QTRY_VERIFY(Elenco->isVisible() && Elenco->count() > 0);
    Elenco->setFocus();
    Elenco->setCurrentRow(0);
    B.Batti();
    QVERIFY(!Elenco->hasFocus());
    QVERIFY2(qobject_cast<QLineEdit*>(QApplication::focusWidget()) ||
                 qobject_cast<QPlainTextEdit*>(QApplication::focusWidget()) ||
                 qobject_cast<QComboBox*>(QApplication::focusWidget()),
             qPrintable(NomeFuoco()));
}

/// A folder with another one in it: one goes in, the other out.
void CartellaScelta(BancoTasti& B)
{
    const QString Fuori = NuovaCartella();
    QVERIFY(QDir(Fuori).mkpath(u"dentro/fondo"_s));
    frmSfoglia Modulo;
    QString Scritta;
    QTimer::singleShot(0, qApp, [&] {
        if (!MostraAttiva(Modulo))
            QTest::qFail("scelta della cartella", __FILE__, __LINE__);
        if (B.Tasti == u"Return")
            B.Batti(u"Down"_s);
        B.Batti();
        Scritta = TestoDi(&Modulo, "txtCartella");
        Modulo.close();
    });
    QCOMPARE(Modulo.Scegli(u"Prova"_s, Fuori + u"dentro/"_s), QString());
    QCOMPARE(Scritta, B.Tasti == u"Return" ? Fuori + u"dentro/fondo/"_s : Fuori);
}

void FiglieDellaRubrica(BancoTasti& B, const char* Bottone, const QString& Classe)
{
    QWidget* Libro = B.Apri(u"clienti"_s);
    (void)B.Figlia(Libro, Bottone, Classe);
    B.Batti();
    QVERIFY(!InVistaDi(Classe));
}

void SchedaChiusa(BancoTasti& B)
{
    FiglieDellaRubrica(B, "barRubr_view", u"frmScheda"_s);
}

void RicercaDiRubrica(BancoTasti& B)
{
    FiglieDellaRubrica(B, "barRubr_search", u"frmRicerche"_s);
}

void TermineUsato(BancoTasti& B)
{
    QWidget* Termini = B.Apri(u"termini"_s);
    const QWidget* Elenco = B.Figlia(Termini, "cmdRicorrenti", u"frmRicorrenti"_s);
    Scrivi(Elenco, "txtCerca", u"appello"_s);
    auto* Righe = Controllo<Griglia>(Elenco, "tdbRicorrenti");
    const QAbstractItemModel* Voci = Righe->Vista()->model();
    int Riga = 0;
    while (Riga < Righe->Righe() && !Voci->index(Riga, 1).data().toString().contains(u"giorni"))
        ++Riga;
    Righe->ImpostaRigaCorrente(Riga);
    B.Batti();
    QVERIFY(!InVistaDi(u"frmRicorrenti"_s));
    QVERIFY(!TestoDi(Termini, "txtIncrNum").isEmpty());
}

void CalcoloRipreso(BancoTasti& B)
{
    (void)B.Ultimi();
    B.Batti();
    QVERIFY(!InVistaDi(u"frmUltimiCalcoli"_s));
    QCOMPARE(TestoDi(InVistaDi(u"frmTermini"_s), "txtIncrNum"), u"60"_s);
}

void CalcoloTolto(BancoTasti& B)
{
    const QWidget* Elenco = B.Ultimi();
    const auto* Righe = Controllo<Griglia>(Elenco, "tdbCalcoli");
    QCOMPARE(Righe->Righe(), 1);
    B.Batti();
    QCOMPARE(Righe->Righe(), 0);
    QVERIFY(Elenco->isVisible());
}

void GiornoSpostato(BancoTasti& B)
{
    QWidget* Termini = B.Apri(u"termini"_s);
    auto* Mesi = Controllo<CalendarioMensile>(Termini, "Calendario");
    Mesi->ImpostaData({2026, 7, 15});
    Controllo<QWidget>(Mesi, "mese")->setFocus();
    static const QMap<QString, QDate> Mete{{u"PgUp"_s, {2026, 6, 15}},      {u"PgDown"_s, {2026, 8, 15}},
                                           {u"Ctrl+PgUp"_s, {2025, 7, 15}}, {u"Ctrl+PgDown"_s, {2027, 7, 15}},
                                           {u"Home"_s, {2026, 7, 1}},       {u"End"_s, {2026, 7, 31}}};
    B.Batti();
    QCOMPARE(Mesi->Data(), Mete[B.Tasti]);
}

void GiornoScelto(BancoTasti& B)
{
    QWidget* Termini = B.Apri(u"termini"_s);
    auto* Mesi = Controllo<CalendarioMensile>(Termini, "Calendario");
    Mesi->ImpostaData({2026, 7, 15});
    Controllo<QWidget>(Mesi, "mese")->setFocus();
    B.Batti();
    QCOMPARE(TestoDi(Termini, "mskDecorr"), u"15/07/2026"_s);
}

void IconaModificata(BancoTasti& B)
{
    (void)B.Icone();
    QCOMPARE(B.Aperta(), u"frmIcons"_s);
}

void IconaEliminata(BancoTasti& B)
{
    const Griglia* Righe = B.Icone();
    QCOMPARE(Righe->Righe(), 1);
    B.Box.Attendi(u"Confermi la cancellazione dell'icona Sito?"_s, vbYes);
    B.Batti();
    QCOMPARE(Righe->Righe(), 0);
    Singola<frmSetup>().hide();
}

/// What is done with each row.
const std::map<QString, Prova>& Prove()
{
    static const std::map<QString, Prova> Tutte{
        {u" F1"_s, LaGuida},
        {u" Ctrl+?"_s, LaGuida},
        {u"frmStudio Home"_s, UnIcona},
        {u"frmStudio End"_s, UnIcona},
        {u"frmStudio Return"_s, LaRecente},
        {u"frmStudio Del"_s, LaRecente},
        {u"cornice Ctrl+Tab"_s, LaParcellaAccanto},
        {u"SchedaDatiBase F4"_s, LaRubrica},
        {u"SchedaDatiBase Alt+Down"_s, LaRubrica},
        {u"SchedaDatiBase Ctrl+Return"_s, SchedaOScaglione},
        {u"SchedaAcconti Ctrl+Return"_s, ParcellaAssociata},
        {u"SchedaAcconti Del"_s, ParcellaAssociata},
        {u"PannelloCatena Esc"_s, LaCatena},
        {u"PannelloCatena Ctrl+C"_s, LaCatena},
        {u"ElencoControlli Return"_s, CampoDaGuardare},
        {u"Griglia F2"_s, tastirighe::LaCella},
        {u"Griglia Return"_s, tastirighe::LaCella},
        {u"Griglia F6"_s, tastirighe::FuoriDalleRighe},
        {u"Griglia Shift+F6"_s, tastirighe::FuoriDalleRighe},
        {u"Griglia Del"_s, tastirighe::RigheVia},
        {u"Griglia Shift+Space"_s, tastirighe::UnaRigaScelta},
        {u"Griglia Shift+Down"_s, tastirighe::RigheScelte},
        {u"Griglia Shift+Up"_s, tastirighe::RigheScelte},
        {u"Griglia Ctrl+A"_s, tastirighe::TutteLeRighe},
        {u"Griglia Esc"_s, tastirighe::NessunaRiga},
        {u"Griglia Ctrl+X"_s, tastirighe::RigheVia},
        {u"Griglia Ctrl+C"_s, tastirighe::CopiaDelleRighe},
        {u"Griglia Ctrl+V"_s, tastirighe::RigheIncollate},
        {u"Griglia Ctrl+Z"_s, tastirighe::RigheDiNuovo},
        {u"Griglia Menu"_s, tastirighe::IlMenu},
        {u"VistaStampa Ctrl+F"_s, RicercaAperta},
        {u"VistaStampa F3"_s, RicercaVicina},
        {u"VistaStampa Shift+F3"_s, RicercaVicina},
        {u"VistaStampa Return"_s, RicercaVicina},
        {u"VistaStampa Shift+Return"_s, RicercaVicina},
        {u"VistaStampa Esc"_s, RicercaChiusa},
        {u"VistaStampa Ctrl++"_s, Grandezza},
        {u"VistaStampa Ctrl+-"_s, Grandezza},
        {u"VistaStampa Ctrl+0"_s, Grandezza},
        {u"VistaStampa Ctrl+1"_s, Grandezza},
        {u"VistaStampa Ctrl+2"_s, Grandezza},
        {u"VistaStampa Ctrl+C"_s, TestoDelDocumento},
        {u"VistaStampa Ctrl+A"_s, TestoDelDocumento},
        {u"frmTrovaParcella Return"_s, ParcellaTrovata},
        {u"frmTrovaParcella Backspace"_s, CartellaSuperiore},
        {u"frmTrovaParcella F2"_s, FileTrovato},
        {u"frmTrovaParcella Del"_s, FileTrovato},
        {u"frmTrovaParcella Esc"_s, TrovaChiusa},
        {u"frmRubrica Return"_s, NominativoScelto},
        {u"frmRubrica Esc"_s, FiltroVuoto},
        {u"frmScheda Esc"_s, SchedaChiusa},
        {u"frmRicerche Esc"_s, RicercaDiRubrica},
        {u"frmRicerche Down"_s, TestiDiPrima},
        {u"frmRicorrenti Return"_s, TermineUsato},
        {u"frmUltimiCalcoli Return"_s, CalcoloRipreso},
        {u"frmUltimiCalcoli Del"_s, CalcoloTolto},
        {u"Calendario PgUp"_s, GiornoSpostato},
        {u"Calendario PgDown"_s, GiornoSpostato},
        {u"Calendario Ctrl+PgUp"_s, GiornoSpostato},
        {u"Calendario Ctrl+PgDown"_s, GiornoSpostato},
        {u"Calendario Home"_s, GiornoSpostato},
        {u"Calendario End"_s, GiornoSpostato},
        {u"Calendario Return"_s, GiornoScelto},
        {u"frmDocumenti Esc"_s, RicercaVuota},
        {u"SchedaDesktop Return"_s, IconaModificata},
        {u"SchedaDesktop Del"_s, IconaEliminata},
        {u"frmSfoglia Return"_s, CartellaScelta},
        {u"frmSfoglia Backspace"_s, CartellaScelta},
    };
    return Tutte;
}

/// The rows that no shortcut of a window makes true, as "window keys".
QStringList RigheInterne()
{
    QStringList Tutte;
    for (const RigaTasti& Riga : TabellaTasti())
        for (const QString& Tasti : Riga.Tasti.toString().split(u' '))
            if (Riga.Interno)
                Tutte << Riga.Finestra.toString() + u' ' + Tasti;
    return Tutte;
}

}  // namespace

void TestTastiPremuti::ognuno_data()
{
    QTest::addColumn<QString>("Riga");
    for (const QString& Riga : RigheInterne())
        QTest::newRow(qPrintable(Riga)) << Riga;
}

void TestTastiPremuti::ognuno()
{
    QFETCH(QString, Riga);
    const auto Trovata = Prove().find(Riga);
    QVERIFY2(Trovata != Prove().end(), "nessuno la preme");
    BancoTasti B(Riga.section(u' ', 1));
    Trovata->second(B);
}

void TestTastiPremuti::nessunoDiTroppo()
{
    const QStringList Righe = RigheInterne();
    for (const auto& [Riga, Premuta] : Prove())
        QVERIFY2(Righe.contains(Riga), qPrintable(Riga));
    QVERIFY(Righe.size() > 65);
}

#include "TestTastiPremuti.moc"
