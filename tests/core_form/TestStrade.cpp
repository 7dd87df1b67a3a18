#include "scena.h"

#include "core/Main.h"
#include "core/apritori.h"
#include "core/iconastudio.h"
#include "feenote/finestre.h"
#include "feenote/frmParcelle.h"

#include <QMdiArea>
#include <QMdiSubWindow>

#include <memory>

/// The start with the program's own windows, from the icon to the frame and back.
class TestStrade : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void dallIconaAllaCorniceERitorno();
    void dueParcelleEIlBersaglio();
    void ultimaChiusaDallaSuaFinestra();
    void basso();
    void pratica();
    void apriChiedeIlFile_data();
    void apriChiedeIlFile();

private:
    static frmMain& Cornice() { return Singola<frmMain>(); }
    static frmStudio& Scrivania() { return Singola<frmStudio>(); }

    std::unique_ptr<Scena> S;
};
PROVA(TestStrade);

void TestStrade::init()
{
    S = std::make_unique<Scena>();
    Scena::Salva(u"PercorsoProcedura"_s, ProgrammaDiProva());
    Scena::Salva(u"StudioNome"_s, u"Studio Bianchi"_s);
    Scena::Salva(u"CercaAgg"_s, u"N"_s);
    RiempiApritori();
}

void TestStrade::cleanup()
{
    AzzeraFinestre();
    S.reset();
    AreaParcelle = nullptr;
    ParcellaAttivata = nullptr;
    UltimaParcellaChiusa = nullptr;
}

void TestStrade::dallIconaAllaCorniceERitorno()
{
    const Registratore Box;
    Main(u""_s);
    QVERIFY(MostraAttiva(Scrivania()));
    QTest::mouseClick(Scrivania().imgMenu(0), Qt::LeftButton);
    QVERIFY(Cornice().isVisible());
    QVERIFY2(Scrivania().isVisible(), "the desktop stays where it is");
    QVERIFY(Parcelle(1) && Parcelle(1)->isVisible());
    QTRY_COMPARE(Cornice().Tag(), u"1"_s);
    Cornice().close();
    QTRY_VERIFY(!Cornice().isVisible());
    QVERIFY(Scrivania().isVisible());
    QVERIFY(!ParcellaAperta());
    QVERIFY(!Scena::Parametro(u"MainWidth"_s).isEmpty());
    QVERIFY(!Scena::Parametro(u"FormWidth"_s).isEmpty());
    // The closed window is used again.
    QTest::mouseClick(Scrivania().imgMenu(0), Qt::LeftButton);
    QVERIFY(Cornice().isVisible() && Parcelle(1)->isVisible());
    QCOMPARE(UltimaParcella(), 1);
    QTRY_COMPARE(Cornice().Tag(), u"1"_s);
}

void TestStrade::dueParcelleEIlBersaglio()
{
    const Registratore Box;
    Main(u""_s);
    Cornice().barParcelle_ButtonClick(u"new"_s);
    Parcelle(1)->SetModificata(true);  // or the untouched first note would be used again
    Cornice().barParcelle_ButtonClick(u"new"_s);
    QCOMPARE(UltimaParcella(), 2);
    QCOMPARE(Cornice().Tag(), u"2"_s);
    QCOMPARE(Parcelle(2)->Socio(), 0);
    auto* Prima = qobject_cast<QMdiSubWindow*>(Parcelle(1)->parentWidget());
    QVERIFY(Prima);
    Cornice().Area()->setActiveSubWindow(Prima);
    QCOMPARE(Cornice().Tag(), u"1"_s);
    Parcelle(1)->SetModificata(false);
    QVERIFY(ChiudiParcella(1));
    Respiro();
    QVERIFY2(Cornice().isVisible(), "a note is open still");
    QTRY_COMPARE(Cornice().Tag(), u"2"_s);
}

void TestStrade::ultimaChiusaDallaSuaFinestra()
{
    Registratore Box;
    Main(u""_s);
    EseguiComando(u"new"_s, 0, {});
    Parcelle(1)->SetModificata(true);
    Box.Attendi(Parcelle(1)->windowTitle() + u"\nVuoi salvare la parcella prima di chiudere?"_s, vbCancel);
    Box.Attendi(Parcelle(1)->windowTitle() + u"\nVuoi salvare la parcella prima di chiudere?"_s, vbNo);
    Parcelle(1)->parentWidget()->close();
    Respiro();
    QVERIFY2(Cornice().isVisible() && Parcelle(1)->isVisible(), "refused");
    Parcelle(1)->parentWidget()->close();
    QTRY_VERIFY(!Cornice().isVisible());
    QVERIFY(Scrivania().isVisible());
}

void TestStrade::basso()
{
    const Registratore Box;
    Main(u"-low"_s);
    QVERIFY(Cornice().isVisible() && Parcelle(1)->isVisible());
    QVERIFY(!Cornice().findChild<QWidget*>(u"barParcelle_new"_s)->isVisible());
    QVERIFY(!SeCaricato<frmStudio>);
    QCOMPARE(S->Eventi, QStringList());
    Cornice().close();
    Respiro();
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    QVERIFY(!SeCaricato<frmStudio>);
}

void TestStrade::pratica()
{
    const Registratore Box;
    Main(u"PV2|N|P12|0|0|0|0|0|0|"_s);
    QCOMPARE(Parcelle(1)->windowTitle(), u"[P12] Nuova parcella"_s);
    Parcelle(1)->SetModificata(false);
    QCOMPARE(S->Eventi, QStringList());
    QVERIFY(ChiudiParcella(1));
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    // The sizes are those of a session of the office's own.
    QCOMPARE(Scena::Parametro(u"MainWidth"_s), QString());
}

void TestStrade::apriChiedeIlFile_data()
{
    QTest::addColumn<QString>("Comando");
    QTest::addColumn<QString>("Titolo");
    QTest::addColumn<bool>("Modelli");

    QTest::newRow("open") << u"open"_s << u"Apri da parcelle salvate"_s << false;
    QTest::newRow("notes") << u"openpar"_s << u"Apri da parcelle salvate"_s << false;
    QTest::newRow("templates") << u"openmod"_s << u"Apri da modelli"_s << true;
}

void TestStrade::apriChiedeIlFile()
{
    QFETCH(QString, Comando);
    QFETCH(QString, Titolo);
    QFETCH(bool, Modelli);
    const Registratore Box;
    Messaggi Mie = InstallaMessaggi({});
    const Messaggi Precedenti = Mie;
    Mie.ApriFile = [this](const QString& T, const QString& Iniziale, const QString& Filtro) {
        S->Annota(T + u'|' + Iniziale + u'|' + Filtro);
        return QString();
    };
    InstallaMessaggi(Mie);
    Main(u""_s);
    EseguiComando(Comando, 0, {});
    InstallaMessaggi(Precedenti);
    const QString Cartella = Modelli ? sessione::ModelliPath : sessione::ParcellePath;
    QCOMPARE(S->Eventi, QStringList{Titolo + u'|' + Cartella + u"|Parcelle (*.mdb)|*.mdb"_s});
    QVERIFY2(!ParcellaAperta(), "cancelled");
}

#include "TestStrade.moc"
