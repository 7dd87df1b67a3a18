// Windows of notes in their frame: places, captions, pairs, sizes.
#include "tavolo.h"

#include "core/aperture.h"
#include "core/parametri.h"
#include "core/posti.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"

#include <QDir>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScopeGuard>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QSplitter>

using namespace Qt::StringLiterals;

namespace {

QString Misura(const QString& Chiave)
{
    return GetSetting(u"KR5"_s, u"Parametri"_s, Chiave);
}

}  // namespace

class TestFinestre : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void laPrimaIntattaSiRiusa();
    void laPrimaToccataNo();
    void conDueSeNeApreSempreUna();
    void ilPostoLiberatoTieneIlNumero();
    void titoloConLaPratica();
    void dimensioniPredefinite();
    void inCascata();
    void inUnoSchermoPiccoloStaTutta();
    void leDimensioniSiRicordano();
    void massimizzataSiRicordaLaNormale();
    void laDisposizioneDiNessunoNonSiRicorda();
    void laDisposizioneSiRicorda();
    void ilTagPrimaDiMostrarsi();
    void laChiusuraDalSistema();
    void chiusaERiapertaNellaCornice();
    void coppiaCollegata();
    void compagnaInesistente_data();
    void compagnaInesistente();
    void chiudendoLaPrincipaleVaLaCompagna();
    void chiudendoLaCompagnaRestaLaPrincipale();
    void laCompagnaRifiutaEAllora();
    void dallaTerzaSchedaAllaCompagna();
    void ilPostoRiusatoScioglieLaCoppia();
    void lUltimaChiama();
    void leMisureCheNonSiScrivono();
    void ilSocioEAvvisato();
    void minimizzataTornaSu();
    void minimizzataEChiusaSiRiapreNormale();
    void laCorniceChiusaMentreSiChiede();
    void massimizzataRestaDovE();
    void chiusaUnaTornaLAltra_data();
    void chiusaUnaTornaLAltra();
    void chiusaQuellaDietroNonCambiaNulla();
    void chiusaLaMassimizzataLAltraLoEAncora();
    void chiSiChiedeStaDavanti();
    void laCascataNonRimpicciolisce();
    void siRicordaSoloQuelCheHaSceltoLUtente();
    void unLatoDellUtenteLasciaCrescereLAltro();
    void massimizzataLaCorniceNonSiRicorda();
    void senzaPostoRiempieLaCornice();
    void unaCornicePiuBassaDellaCascata();
    void cheRiempiaLaCorniceNonSiRicorda();
    void ilFuocoNelPrimoTestoVuoto_data();
    void ilFuocoNelPrimoTestoVuoto();
    void riusataCominciaDaCapo();
    void ilTastoPortaInVistaIlCampo();
    void riempitaPrimaDiMostrarsi();

private:
    [[nodiscard]] static QMdiSubWindow* Sotto(int Posto)
    {
        return qobject_cast<QMdiSubWindow*>(Parcelle(Posto)->parentWidget());
    }

    std::unique_ptr<Tavolo> T;
    std::unique_ptr<QMainWindow> Cornice;
    QMdiArea* Area = nullptr;
};
PROVA(TestFinestre);

void TestFinestre::init()
{
    T = std::make_unique<Tavolo>();
    for (const QString& Chiave : {u"FormWidth"_s, u"FormHeight"_s, u"FormState"_s})
        SaveSetting(u"KR5"_s, u"Parametri"_s, Chiave, {});
    Cornice = std::make_unique<QMainWindow>();
    Area = new QMdiArea(Cornice.get());
    Cornice->setCentralWidget(Area);
    Cornice->resize(1300, 740);
    QVERIFY(MostraAttiva(*Cornice));
    Aperture.AreaParcelle = [this] { return Area; };
}

void TestFinestre::cleanup()
{
    AzzeraFinestre();
    Cornice.reset();
    T.reset();
}

void TestFinestre::laPrimaIntattaSiRiusa()
{
    ApriParcella({}, 0, {});
    ApriParcella({}, 0, {});
    QCOMPARE(UltimaParcella(), 1);
    QCOMPARE(Parcelle(1)->windowTitle(), u"Nuova parcella"_s);
}

void TestFinestre::laPrimaToccataNo()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 0, {});
    QCOMPARE(UltimaParcella(), 2);
    QCOMPARE(Parcelle(2)->windowTitle(), u"Nuova parcella:2"_s);
    QCOMPARE(InfoParcelle[2].Nome, u"Nuova parcella:2"_s);
}

void TestFinestre::conDueSeNeApreSempreUna()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(false);
    ApriParcella({}, 0, {});
    QCOMPARE(UltimaParcella(), 3);
    QCOMPARE(Parcelle(3)->windowTitle(), u"Nuova parcella:3"_s);
}

void TestFinestre::ilPostoLiberatoTieneIlNumero()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 0, {});
    QVERIFY(ChiudiParcella(2));
    ApriParcella({}, 0, {});
    QCOMPARE(UltimaParcella(), 2);
    QCOMPARE(Parcelle(2)->windowTitle(), u"Nuova parcella:2"_s);
}

void TestFinestre::titoloConLaPratica()
{
    sessione::RichiestaPV2.ID = u"AB12"_s;
    ApriParcella({}, 0, u"AB12"_s);
    QCOMPARE(Parcelle(1)->windowTitle(), u"[AB12] Nuova parcella"_s);
    QCOMPARE(InfoParcelle[1].Nome, u"Nuova parcella"_s);
    QVERIFY(Controllo(Parcelle(1), "lblRif_0")->isVisible());
    QCOMPARE(Controllo<QLabel>(Parcelle(1), "lblRif_1")->text(), u"AB12"_s);
}

void TestFinestre::dimensioniPredefinite()
{
    ApriParcella({}, 0, {});
    Respiro();
    QCOMPARE(Sotto(1)->geometry(), QRect(15, 10, 853, 587));  // 220, 150, 12800, 8800 twips
}

void TestFinestre::inCascata()
{
    for (int i = 1; i <= 3; ++i) {
        ApriParcella({}, 0, {});
        Parcelle(i)->SetModificata(true);
    }
    QCOMPARE(Sotto(3)->pos() - Sotto(2)->pos(), QPoint(9, 26));  // 140 and 380 twips, of the two sums
    for (int i = 1; i <= 3; ++i)
        Parcelle(i)->SetModificata(false);
}

void TestFinestre::inUnoSchermoPiccoloStaTutta()
{
    // A screen of 1366 x 768 at 150 % leaves the frame about this much.
    Cornice->resize(910, 430);
    Respiro();
    ApriParcella({}, 0, {});
    Respiro();
    QVERIFY(Area->viewport()->rect().contains(Sotto(1)->geometry()));
    QCOMPARE(Sotto(1)->width(), 853);
}

void TestFinestre::leDimensioniSiRicordano()
{
    ApriParcella({}, 0, {});
    Sotto(1)->resize(900, 620);
    Respiro();
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Misura(u"FormWidth"_s), u"13500"_s);
    QCOMPARE(Misura(u"FormHeight"_s), u"9300"_s);
    QCOMPARE(Misura(u"FormState"_s), u"0"_s);
    ApriParcella({}, 0, {});
    QCOMPARE(Sotto(1)->size(), QSize(900, 620));
}

void TestFinestre::massimizzataSiRicordaLaNormale()
{
    ApriParcella({}, 0, {});
    Sotto(1)->resize(900, 620);
    Respiro();
    Sotto(1)->showMaximized();
    Respiro();
    QVERIFY(Sotto(1)->isMaximized());
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Misura(u"FormWidth"_s), u"13500"_s);
    QCOMPARE(Misura(u"FormState"_s), u"2"_s);
    AzzeraFinestre();
    ApriParcella({}, 0, {});
    QVERIFY(Sotto(1)->isMaximized());
}

void TestFinestre::laDisposizioneDiNessunoNonSiRicorda()
{
    ApriParcella({}, 0, {});
    CompilaCivile(Parcelle(1));
    ClicScheda(Parcelle(1), SchedaListaOnorari);
    Parcelle(1)->resize(Parcelle(1)->size() + QSize(60, 40));
    Controllo<Griglia>(Parcelle(1), "tdbOnor")->Vista()->setColumnWidth(OnoData, 123);
    Parcelle(1)->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    for (const char* Nome : {"tdbOnor", "tdbListaOno", "divisoreOno"})
        QCOMPARE(Impostazione(u"Disposizione_"_s + QLatin1String(Nome)), QString());
}

void TestFinestre::laDisposizioneSiRicorda()
{
    ApriParcella({}, 0, {});
    CompilaCivile(Parcelle(1));
    ClicScheda(Parcelle(1), SchedaListaOnorari);
    auto* Divisore = Controllo<QSplitter>(Parcelle(1), "divisoreOno");
    QVERIFY2(Divisore->sizes()[0] * 3 < Divisore->sizes()[1] * 2, "il catalogo parte da un terzo");
    TrascinaCon(Divisore->handle(1), QPoint(2, 2), QPoint(2, 122));
    const QList<int> Scelte = Divisore->sizes();
    QHeaderView* Testata = Controllo<Griglia>(Parcelle(1), "tdbOnor")->Vista()->horizontalHeader();
    const int Prima = Testata->sectionSize(OnoData);
    const QPoint Orlo(Testata->sectionViewportPosition(OnoData) + Prima - 1, Testata->height() / 2);
    TrascinaCon(Testata->viewport(), Orlo, Orlo + QPoint(31, 0));
    QCOMPARE(Testata->sectionSize(OnoData), Prima + 31);
    Parcelle(1)->SetModificata(false);
    QVERIFY(ChiudiParcella(1));

    AzzeraFinestre();
    ApriParcella({}, 0, {});
    CompilaCivile(Parcelle(1));
    ClicScheda(Parcelle(1), SchedaListaOnorari);
    QCOMPARE(Controllo<QSplitter>(Parcelle(1), "divisoreOno")->sizes(), Scelte);
    QCOMPARE(Controllo<Griglia>(Parcelle(1), "tdbOnor")->Vista()->columnWidth(OnoData), Prima + 31);
    Parcelle(1)->SetModificata(false);
}

void TestFinestre::ilTagPrimaDiMostrarsi()
{
    QStringList Visti;
    QObject::connect(Area, &QMdiArea::subWindowActivated, this, [&](const QMdiSubWindow* Quale) {
        if (Quale)
            Visti.append(Quale->property("Tag").toString());
    });
    QList<int> Attivate;
    Aperture.ParcellaAttivata = [&](int Indice) { Attivate.append(Indice); };
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 0, {});
    QCOMPARE(Attivate, (QList{1, 2}));
    QVERIFY(!Visti.isEmpty());
    QVERIFY2(!Visti.contains(QString()), "nessuna attivazione senza indice");
    QCOMPARE(Visti.last(), u"2"_s);
    Parcelle(1)->SetModificata(false);
}

void TestFinestre::laChiusuraDalSistema()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    T->Voce.Attendi(u"Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, vbCancel);
    Sotto(1)->close();
    QVERIFY(Sotto(1)->isVisible() && Parcelle(1)->isVisible());
    T->Voce.Attendi(u"Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, vbNo);
    Sotto(1)->close();
    QVERIFY(!Sotto(1)->isVisible());
    QVERIFY(InfoParcelle[1].Libera);
}

void TestFinestre::chiusaERiapertaNellaCornice()
{
    ApriParcella({}, 0, {});
    frmParcelle* Prima = Parcelle(1);
    Sotto(1)->close();
    Respiro();
    ApriParcella({}, 0, {});
    QCOMPARE(Parcelle(1), Prima);
    QVERIFY(Sotto(1)->isVisible() && Prima->isVisible());
    QCOMPARE(Sotto(1)->size(), QSize(853, 587));
}

void TestFinestre::coppiaCollegata()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 1, {});
    QCOMPARE(Parcelle(2)->Socio(), 1);
    QCOMPARE(Parcelle(1)->Socio(), 2);
    QVERIFY(!Parcelle(2)->HaStampa());
    QVERIFY(Parcelle(1)->HaStampa());
    Parcelle(1)->SetModificata(false);
}

void TestFinestre::compagnaInesistente_data()
{
    QTest::addColumn<int>("Socio");
    QTest::newRow("se stessa") << 1;
    QTest::newRow("mai aperta") << 7;
    QTest::newRow("negativa") << -1;
}

void TestFinestre::compagnaInesistente()
{
    QFETCH(int, Socio);
    ApriParcella({}, Socio, {});
    QCOMPARE(Parcelle(1)->Socio(), 0);
    QVERIFY(Parcelle(1)->HaStampa());
}

void TestFinestre::chiudendoLaPrincipaleVaLaCompagna()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 1, {});
    Parcelle(1)->SetModificata(false);
    int Ultime = 0;
    Aperture.UltimaParcellaChiusa = [&] { ++Ultime; };
    QVERIFY(ChiudiParcella(1));
    QVERIFY(InfoParcelle[1].Libera && InfoParcelle[2].Libera);
    QCOMPARE(Ultime, 1);
}

void TestFinestre::chiudendoLaCompagnaRestaLaPrincipale()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 1, {});
    QVERIFY(ChiudiParcella(2));
    QVERIFY(!InfoParcelle[1].Libera && InfoParcelle[2].Libera);
    QCOMPARE(Parcelle(1)->Socio(), 0);
    Parcelle(1)->SetModificata(false);
}

void TestFinestre::laCompagnaRifiutaEAllora()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 1, {});
    Parcelle(2)->SetModificata(true);
    T->Voce.Attendi(u"Nuova parcella\nVuoi salvare la parcella prima di chiudere?"_s, vbNo);
    T->Voce.Attendi(u"Nuova parcella:2\nVuoi salvare la parcella prima di chiudere?"_s, vbCancel);
    QVERIFY(!ChiudiParcella(1));
    QVERIFY2(!InfoParcelle[1].Libera && !InfoParcelle[2].Libera, "nessuna delle due se ne va");
    QCOMPARE(Parcelle(1)->Socio(), 2);
    Parcelle(1)->SetModificata(false);
    Parcelle(2)->SetModificata(false);
}

void TestFinestre::dallaTerzaSchedaAllaCompagna()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 1, {});
    CompilaCivile(Parcelle(2));
    ClicScheda(Parcelle(2), SchedaImposte);
    QCOMPARE(Parcelle(2)->Scheda(), int(SchedaImposte));
    Clic(Controllo(Parcelle(2), "imgNext"));
    QCOMPARE(Area->activeSubWindow(), Sotto(1));
    QCOMPARE(Parcelle(2)->Scheda(), int(SchedaImposte));
    for (const int i : {1, 2})
        Parcelle(i)->SetModificata(false);
}

void TestFinestre::ilPostoRiusatoScioglieLaCoppia()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 1, {});
    QVERIFY(ChiudiParcella(2));
    ApriParcella({}, 0, {});
    QCOMPARE(Parcelle(2)->Socio(), 0);
    QVERIFY2(Parcelle(2)->HaStampa(), "la stampa torna");
    Parcelle(1)->SetModificata(false);
}

void TestFinestre::lUltimaChiama()
{
    int Ultime = 0;
    Aperture.UltimaParcellaChiusa = [&] { ++Ultime; };
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 0, {});
    QVERIFY(ChiudiParcella(2));
    QCOMPARE(Ultime, 0);
    Parcelle(1)->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Ultime, 1);
}

void TestFinestre::leMisureCheNonSiScrivono()
{
    // A folder stands where the settings' file should be.
    const QString File =
        QSettings(QSettings::IniFormat, QSettings::UserScope, u"Calcanova"_s, u"KR5"_s).fileName();
    ApriParcella({}, 0, {});
    Respiro();
    const QByteArray Contenuto = QFile::exists(File) ? LeggiFile(File) : QByteArray();
    QFile::remove(File);
    QDir().mkpath(File);
    T->Voce.Tollera();
    int Ultime = 0;
    Aperture.UltimaParcellaChiusa = [&] { ++Ultime; };
    QVERIFY(ChiudiParcella(1));
    QDir(File).removeRecursively();
    ScriviFile(File, Contenuto);
    QVERIFY2(!T->Voce.Mostrati().isEmpty(), "si dice");
    QCOMPARE(Ultime, 1);
}

void TestFinestre::ilSocioEAvvisato()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 1, {});
    Parcelle(1)->Nota.txtParcMultipla = u"compagna"_s;
    const auto* Onorari = Controllo<QLabel>(Parcelle(1), "lblOnora");
    QCOMPARE(Onorari->text(), u"Onor.: 0"_s);
    RigaOnorario(Parcelle(2)->Nota, u"Studio"_s, 1234);
    Scrivi(Controllo<QLineEdit>(Parcelle(2), "txtCliente"), u"Rossi"_s);
    QCOMPARE(Onorari->text(), u"Onor.: 1.234,00"_s);
    for (const int i : {1, 2})
        Parcelle(i)->SetModificata(false);
}

void TestFinestre::minimizzataTornaSu()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 0, {});
    Sotto(1)->showMinimized();
    Respiro();
    QVERIFY(Sotto(1)->isMinimized());
    AttivaParcella(1);
    QVERIFY(!Sotto(1)->isMinimized());
    QCOMPARE(Area->activeSubWindow(), Sotto(1));
    Parcelle(1)->SetModificata(false);
}

void TestFinestre::minimizzataEChiusaSiRiapreNormale()
{
    ApriParcella({}, 0, {});
    Respiro();
    Sotto(1)->move(50, 60);
    Sotto(1)->showMinimized();
    Respiro();
    QVERIFY(ChiudiParcella(1));
    ApriParcella({}, 0, {});
    QVERIFY(!Sotto(1)->isMinimized());
    QCOMPARE(Sotto(1)->geometry(), QRect(15, 10, 853, 587));
    QVERIFY(Parcelle(1)->isVisible());
}

void TestFinestre::laCorniceChiusaMentreSiChiede()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    Messaggi Suoi;
    int Mostrati = 0;
    Suoi.Box = [&](const QString&, int, const QString&) {
        ++Mostrati;
        Area->closeAllSubWindows();
        return vbCancel;
    };
    const Messaggi Prima = InstallaMessaggi(Suoi);
    QVERIFY(!ChiudiParcella(1));
    InstallaMessaggi(Prima);
    QCOMPARE(Mostrati, 1);
    QVERIFY(Sotto(1)->isVisible() && Parcelle(1)->isVisible() && Parcelle(1)->Nota.Modificata);
    Parcelle(1)->SetModificata(false);
}

void TestFinestre::massimizzataRestaDovE()
{
    ApriParcella({}, 0, {});
    Respiro();
    Sotto(1)->showMaximized();
    Respiro();
    const QRect Massima = Sotto(1)->geometry();
    ApriParcella({}, 0, {});  // the untouched first one once more
    Respiro();
    QVERIFY(Sotto(1)->isMaximized());
    QCOMPARE(Sotto(1)->geometry(), Massima);
}

void TestFinestre::chiusaUnaTornaLAltra_data()
{
    QTest::addColumn<int>("Chiusa");
    QTest::addColumn<bool>("DallaCroce");
    QTest::addColumn<bool>("InUnCampo");
    for (const int Chiusa : {1, 2})
        for (const bool DallaCroce : {true, false})
            for (const bool InUnCampo : {true, false})
                QTest::addRow("la %d, %s, %s", Chiusa, DallaCroce ? "dalla croce" : "dal comando",
                              InUnCampo ? "con un campo" : "senza campo")
                    << Chiusa << DallaCroce << InUnCampo;
}

void TestFinestre::chiusaUnaTornaLAltra()
{
    QFETCH(int, Chiusa);
    QFETCH(bool, DallaCroce);
    QFETCH(bool, InUnCampo);
    QList<int> Bersagli;
    Aperture.ParcellaAttivata = [&](int Indice) { Bersagli.append(Indice); };
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 0, {});
    const int Rimasta = 3 - Chiusa;
    Parcelle(Rimasta)->SetModificata(true);
    Parcelle(Chiusa)->SetModificata(false);
    AttivaParcella(Chiusa);
    QVERIFY(Cornice->isActiveWindow());
    if (InUnCampo)
        Controllo(Parcelle(Chiusa), "txtOggetto")->setFocus();
    else if (QWidget* Campo = QApplication::focusWidget())
        Campo->clearFocus();
    if (DallaCroce)
        Sotto(Chiusa)->close();
    else
        QVERIFY(ChiudiParcella(Chiusa));
    Respiro();
    QVERIFY(!Sotto(Chiusa)->isVisible());
    QCOMPARE(Area->activeSubWindow(), Sotto(Rimasta));
    QCOMPARE(Bersagli.last(), Rimasta);
    QVERIFY2(QApplication::focusWidget() && Parcelle(Rimasta)->isAncestorOf(QApplication::focusWidget()),
             "i tasti vanno alla parcella che si vede");
    Parcelle(Rimasta)->SetModificata(false);
}

void TestFinestre::chiusaQuellaDietroNonCambiaNulla()
{
    for (int i = 1; i <= 3; ++i) {
        ApriParcella({}, 0, {});
        Parcelle(i)->SetModificata(true);
    }
    Controllo(Parcelle(3), "txtControp")->setFocus();
    Parcelle(1)->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    Respiro();
    QCOMPARE(Area->activeSubWindow(), Sotto(3));
    QCOMPARE(QApplication::focusWidget(), Controllo(Parcelle(3), "txtControp"));
    // The one that was in front before it, not the next place.
    AttivaParcella(2);
    ApriParcella({}, 0, {});  // in place 1
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Area->activeSubWindow(), Sotto(2));
    for (const int i : {2, 3})
        Parcelle(i)->SetModificata(false);
}

void TestFinestre::chiusaLaMassimizzataLAltraLoEAncora()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 0, {});
    Sotto(2)->showMaximized();
    Respiro();
    Sotto(2)->close();
    Respiro();
    QCOMPARE(Area->activeSubWindow(), Sotto(1));
    QVERIFY(Sotto(1)->isMaximized());
    Parcelle(1)->SetModificata(false);
}

void TestFinestre::chiSiChiedeStaDavanti()
{
    ApriParcella({}, 0, {});
    Parcelle(1)->SetModificata(true);
    ApriParcella({}, 0, {});
    QCOMPARE(Area->activeSubWindow(), Sotto(2));
    QMdiSubWindow* Davanti = nullptr;
    Messaggi Suoi;
    Suoi.Box = [&](const QString&, int, const QString&) {
        Davanti = Area->activeSubWindow();
        return vbCancel;
    };
    const Messaggi Prima = InstallaMessaggi(Suoi);
    QVERIFY(!ChiudiParcella(1));
    InstallaMessaggi(Prima);
    QCOMPARE(Davanti, Sotto(1));
    Parcelle(1)->SetModificata(false);
}

void TestFinestre::laCascataNonRimpicciolisce()
{
    Cornice->resize(1366, 620);
    Respiro();
    for (int i = 1; i <= 6; ++i) {
        ApriParcella({}, 0, {});
        Parcelle(i)->SetModificata(true);
    }
    Respiro();
    QVERIFY2(Sotto(6)->height() < 587, "non ci sta tutta");
    for (int i = 1; i <= 6; ++i) {
        Parcelle(i)->SetModificata(false);
        QVERIFY(ChiudiParcella(i));
    }
    QCOMPARE(Misura(u"FormWidth"_s), u"12800"_s);
    QCOMPARE(Misura(u"FormHeight"_s), u"8800"_s);
}

void TestFinestre::siRicordaSoloQuelCheHaSceltoLUtente()
{
    Cornice->resize(1366, 430);
    Respiro();
    ApriParcella({}, 0, {});
    Respiro();
    QVERIFY(Sotto(1)->height() < 587);
    Sotto(1)->resize(900, Sotto(1)->height());
    Respiro();
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Misura(u"FormWidth"_s), u"13500"_s);
    QCOMPARE(Misura(u"FormHeight"_s), u"8800"_s);
}

/// In large letters a note whose height alone was dragged comes up as wide as it was.
void TestFinestre::unLatoDellUtenteLasciaCrescereLAltro()
{
    const QFont Prima = QApplication::font();
    const auto Rimetti = qScopeGuard([&] { QApplication::setFont(Prima); });
    QFont Grande = Prima;
    Grande.setPointSize(14);
    QApplication::setFont(Grande);
    Cornice->resize(1900, 1400);
    Respiro();
    ApriParcella({}, 0, {});
    Respiro();
    const int Larga = Sotto(1)->width();
    QVERIFY(Larga > 853 + 100);  // the design's
    Sotto(1)->resize(Larga, 700);
    Respiro();
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Misura(u"FormHeight"_s), u"10500"_s);
    AzzeraFinestre();
    ApriParcella({}, 0, {});
    Respiro();
    QCOMPARE(Sotto(1)->size(), QSize(Larga, 700));
}

void TestFinestre::massimizzataLaCorniceNonSiRicorda()
{
    ApriParcella({}, 0, {});
    Respiro();
    Sotto(1)->showMaximized();
    Respiro();
    for (const QSize& Ampia : {QSize(1500, 900), QSize(960, 720)}) {
        Cornice->resize(Ampia);
        Respiro();
    }
    Cornice->showMaximized();
    Respiro();
    QVERIFY(Sotto(1)->isMaximized());
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Misura(u"FormWidth"_s), u"12800"_s);
    QCOMPARE(Misura(u"FormHeight"_s), u"8800"_s);
    QCOMPARE(Misura(u"FormState"_s), u"2"_s);
}

/// A frame at 200 % on a small screen: one pair of bars, not two.
void TestFinestre::senzaPostoRiempieLaCornice()
{
    Cornice->resize(560, 260);
    Respiro();
    ApriParcella({}, 0, {});
    Respiro();
    QVERIFY(Sotto(1)->isMaximized());
    // The user's own change of it is kept.
    Sotto(1)->showNormal();
    Respiro();
    QVERIFY(!Area->property(RiempionoLaCornice).toBool());
    Sotto(1)->showMaximized();
    Respiro();
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Misura(u"FormState"_s), u"2"_s);
}

/// In a low frame the notes behind the first stand higher than their place, and none is maximised.
void TestFinestre::unaCornicePiuBassaDellaCascata()
{
    Cornice->resize(1300, 480);
    Respiro();
    const QRect Vista = Area->viewport()->rect();
    for (int Posto = 1; Posto <= 6; ++Posto) {
        ApriParcella({}, 0, {});
        Respiro();
        Parcelle(Posto)->SetModificata(true);  // an untouched note would be taken for the next
        QVERIFY2(Sotto(Posto)->minimumSizeHint().height() <= Vista.height(), "the frame has room for a note");
        for (int Altra = 1; Altra <= Posto; ++Altra) {
            QVERIFY2(!Sotto(Altra)->isMaximized(), qPrintable(QString::number(Posto)));
            QVERIFY2(Vista.contains(Sotto(Altra)->geometry()), qPrintable(QString::number(Altra)));
        }
    }
    for (int Posto = 1; Posto <= 6; ++Posto)
        Parcelle(Posto)->SetModificata(false);
}

void TestFinestre::cheRiempiaLaCorniceNonSiRicorda()
{
    Cornice->resize(560, 260);
    Respiro();
    ApriParcella({}, 0, {});
    Respiro();
    QVERIFY(Sotto(1)->isMaximized());
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(Misura(u"FormState"_s), u"0"_s);
    AzzeraFinestre();
    Cornice->resize(1300, 740);
    Respiro();
    ApriParcella({}, 0, {});
    QVERIFY(!Sotto(1)->isMaximized());
}

void TestFinestre::ilFuocoNelPrimoTestoVuoto_data()
{
    QTest::addColumn<QString>("Cliente");
    QTest::addColumn<QString>("Controparte");
    QTest::addColumn<QString>("Oggetto");
    QTest::addColumn<QString>("Campo");
    QTest::newRow("nuova") << u""_s << u""_s << u""_s << u"txtCliente"_s;
    QTest::newRow("col cliente") << u"Rossi"_s << u""_s << u""_s << u"txtControp"_s;
    QTest::newRow("manca l'oggetto") << u"Rossi"_s << u"Bianchi"_s << u""_s << u"txtOggetto"_s;
    QTest::newRow("completa") << u"Rossi"_s << u"Bianchi"_s << u"appalto"_s << u"txtCliente"_s;
}

void TestFinestre::ilFuocoNelPrimoTestoVuoto()
{
    QFETCH(QString, Cliente);
    QFETCH(QString, Controparte);
    QFETCH(QString, Oggetto);
    QFETCH(QString, Campo);
    QString File;
    if (!Cliente.isEmpty()) {
        Parcella Nota;
        NuovaParcella(Nota);
        Nota.txtCliente.Testo = Cliente;
        Nota.txtControp.Testo = Controparte;
        Nota.txtOggetto.Testo = Oggetto;
        File = T->Ufficio.File(u"rossi.mdb"_s);
        ScriviNota(File, Nota);
    }
    ApriParcella(File, 0, {});
    QVERIFY(QApplication::focusWidget());
    QCOMPARE(QApplication::focusWidget()->objectName(), Campo);
    QVERIFY(Parcelle(1)->isAncestorOf(QApplication::focusWidget()));
    Digita(u"xyz"_s);
    QVERIFY(Controllo<QLineEdit>(Parcelle(1), qPrintable(Campo))->text().contains(u"xyz"_s));
    Parcelle(1)->SetModificata(false);
}

void TestFinestre::riusataCominciaDaCapo()
{
    Cornice->resize(910, 300);
    Respiro();
    ApriParcella({}, 0, {});
    Respiro();
    QScrollArea* Scorre = nullptr;
    for (QWidget* Padre = Controllo(Parcelle(1), "txtCliente"); Padre && !Scorre;
         Padre = Padre->parentWidget())
        Scorre = qobject_cast<QScrollArea*>(Padre);
    QVERIFY(Scorre);
    Scorre->verticalScrollBar()->setValue(Scorre->verticalScrollBar()->maximum());
    QVERIFY(Scorre->verticalScrollBar()->value() > 0);
    Controllo(Parcelle(1), "txtOggetto")->setFocus();
    QVERIFY(ChiudiParcella(1));
    ApriParcella({}, 0, {});
    Respiro();
    QCOMPARE(Scorre->verticalScrollBar()->value(), 0);
    QCOMPARE(QApplication::focusWidget(), Controllo(Parcelle(1), "txtCliente"));
}

void TestFinestre::ilTastoPortaInVistaIlCampo()
{
    Cornice->resize(910, 300);
    Respiro();
    ApriParcella({}, 0, {});
    Respiro();
    QWidget* Ultima = Controllo(Parcelle(1), "optAumRid_10");
    QVERIFY2(Ultima->visibleRegion().isEmpty(), "sta sotto");
    Ultima->setFocus(Qt::ShortcutFocusReason);
    QCOMPARE(QApplication::focusWidget(), Ultima);
    QCOMPARE(QRegion(Ultima->rect()), Ultima->visibleRegion());
}

void TestFinestre::riempitaPrimaDiMostrarsi()
{
    // What is said while a file is read lies over no unfinished window, and leaves no note named as the file.
    const QString File = T->Ufficio.File(u"rotta.mdb"_s);
    ScriviFile(File, "rumore");
    QStringList Detti;
    bool InVista = false;
    Messaggi Suoi;
    Suoi.Box = [&](const QString& Testo, int, const QString&) {
        Detti << Testo;
        InVista = InVista || (Parcelle(1) && Parcelle(1)->isVisible());
        return vbOK;
    };
    const Messaggi Prima = InstallaMessaggi(Suoi);
    ApriParcella(File, 0, {});
    InstallaMessaggi(Prima);
    QCOMPARE(Detti, QStringList{u"Errore: rotta.mdb non è una parcella di Calcanova (3343)"_s});
    QVERIFY(!InVista);
    QVERIFY(Parcelle(1)->isVisible() && Parcelle(1)->Nota.Percorso.isEmpty());
    QCOMPARE(Parcelle(1)->windowTitle(), u"Nuova parcella"_s);
    QCOMPARE(InfoParcelle[1].Nome, u"rotta"_s);
    // Untouched, it is the one that the next note takes.
    ApriParcella({}, 0, {});
    QCOMPARE(UltimaParcella(), 1);
}

#include "TestFinestre.moc"
