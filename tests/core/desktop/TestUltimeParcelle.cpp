// The last notes on the desktop and in the frame: strip, menu and keys, what is gone, what does not answer.
#include "studio.h"

#include "core/aperture.h"
#include "core/desktop/pannellorecenti.h"
#include "core/desktop/recenti.h"
#include "core/parametri.h"
#include "core/posti.h"
#include "platform/system/attese.h"
#include "supporto/cartellaferma.h"
#include "supporto/danni.h"

#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QScopeGuard>
#include <QToolButton>

class TestUltimeParcelle : public QObject, private BancoStudio
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { Sgombra(); }
    void senzaNoteLoDice();
    void alBuioSiLegge();
    void ogniRigaDiceTutto();
    void invioEClicAprono();
    void dueClicUnaNotaSola();
    void cancTogliEMenu();
    void laNotaSparitaLoDiceEVa();
    void laNotaSparitaSiDiceAncheSeIlNomeResta_data();
    void laNotaSparitaSiDiceAncheSeIlNomeResta();
    void laCartellaSparitaChiede_data();
    void laCartellaSparitaChiede();
    void laCartellaMutaNonFerma();
    void lAvvioNonGuardaLeNote();
    void siAggiornaTornando();
    void ctrlR();
    void ctrlRSenzaPosto();
    void siDisponeDoveCePosto();
    void apriEISuoiModi();
    void ogniTastoVaAncheQui();
    void ctrlQChiede();
    void ilMenuDellaCornice();
    void ilNomeLungoSiAccorcia();
    void ctrlRNellaCornice();
    void iTastiSiVedono();

private:
    QString Scritta(const QString& Nome, const QString& Cliente = u"Rossi"_s);
    QListView* Elenco() { return SeCaricato<frmStudio>->findChild<QListView*>(u"lstRecenti"_s); }
    QStringList Voci(const QMenu* Tendina);
    /// What the icons need, however many there are, and the strip beside them.
    static int LargheIcone(const frmStudio& Scrivania)
    {
        return Scrivania.findChild<QWidget*>(u"quadro"_s)->minimumWidth();
    }
    static constexpr int Accanto = 280;
    /// A desktop with room for the strip beside its icons.
    static frmStudio& Apri()
    {
        frmStudio& Scrivania = BancoStudio::Apri();
        Scrivania.resize(LargheIcone(Scrivania) + Accanto, 360);
        Respiro();
        return Scrivania;
    }
    QString Cartella;
};
PROVA(TestUltimeParcelle);

void TestUltimeParcelle::init()
{
    Prepara();
    Cartella = NuovaCartella();
    Aperture.MostraParcella = [this](const QString& File) { S->Annota(u"apri "_s + NomeFile(File)); };
    Aperture.TrovaParcella = [this](int Selettore, const QString&, int, const QString&) {
        S->Annota(u"trova %1"_s.arg(Selettore));
        return QString();
    };
}

/// A note of the list, with its file. @return its path
QString TestUltimeParcelle::Scritta(const QString& Nome, const QString& Cliente)
{
    const QString File = PercorsoNativo(Cartella + Nome + u".mdb"_s);
    ScriviFile(File, "x");
    RicordaRecente({.Percorso = File,
                    .Cliente = Cliente,
                    .Documento = u"Prenotula"_s,
                    .Netto = 1190.70,
                    .Data = QDate(2026, 11, 21)});
    return File;
}

QStringList TestUltimeParcelle::Voci(const QMenu* Tendina)
{
    QStringList Testi;
    for (const QAction* Voce : Tendina->actions())
        Testi << (Voce->isSeparator() ? u"-"_s : Voce->text());
    return Testi;
}

void TestUltimeParcelle::senzaNoteLoDice()
{
    const frmStudio& Scrivania = Apri();
    QVERIFY(Scrivania.findChild<QWidget*>(u"fraRecenti"_s)->isVisible());
    QVERIFY(!Elenco()->isVisible());
    QVERIFY(Scrivania.findChild<QWidget*>(u"lblNessunaRecente"_s)->isVisible());
    Scritta(u"prima"_s);
    Singola<frmStudio>().Form_Activate();
    QVERIFY(Elenco()->isVisible());
    QVERIFY(!Scrivania.findChild<QWidget*>(u"lblNessunaRecente"_s)->isVisible());
}

/// Desktops that give dark colours often leave that of hints black.
void TestUltimeParcelle::alBuioSiLegge()
{
    const QPalette Solita = QApplication::palette();
    const auto Rimetti = qScopeGuard([&] { QApplication::setPalette(Solita); });
    QPalette Scura = Solita;
    Scura.setColor(QPalette::Base, QColor(27, 30, 32));
    Scura.setColor(QPalette::Text, QColor(252, 252, 252));
    Scura.setColor(QPalette::PlaceholderText, Qt::black);
    QApplication::setPalette(Scura);
    const PannelloRecenti Pannello(nullptr);
    const auto* Vuoto = Pannello.findChild<QLabel*>(u"lblNessunaRecente"_s);
    const QPalette Sua = Vuoto->palette();
    QCOMPARE(Vuoto->foregroundRole(), QPalette::PlaceholderText);
    QVERIFY(Sua.color(QPalette::PlaceholderText).lightness() > Sua.color(QPalette::Base).lightness() + 80);
}

void TestUltimeParcelle::ogniRigaDiceTutto()
{
    Scritta(u"appalto"_s, u"Rossi & figli"_s);
    Scritta(u"Bianchi - sfratto"_s, u"Bianchi"_s);
    Apri();
    QCOMPARE(Elenco()->model()->rowCount(), 2);
    const QString Dove = QDir(Cartella).dirName();
    QCOMPARE(Elenco()->model()->index(0, 0).data(Qt::AccessibleTextRole).toString(),
             u"Bianchi - sfratto, Bianchi, Prenotula, netto 1.190,70 €, 21/11/2026, cartella "_s + Dove);
    QStringList Disegnate;
    for (int Ruolo = Qt::UserRole; Ruolo < Qt::UserRole + 4; ++Ruolo)
        Disegnate << Elenco()->model()->index(1, 0).data(Ruolo).toString();
    QCOMPARE(Disegnate, (QStringList{u"Rossi & figli - appalto"_s, u"1.190,70 €"_s, u"Prenotula · "_s + Dove,
                                     u"21/11/2026"_s}));
}

void TestUltimeParcelle::invioEClicAprono()
{
    const Registratore Box;
    Scritta(u"a"_s);
    Scritta(u"b"_s);
    Apri();
    QTest::mouseClick(Elenco()->viewport(), Qt::LeftButton, {},
                      Elenco()->visualRect(Elenco()->model()->index(1, 0)).center());
    QTRY_COMPARE(S->Eventi, QStringList{u"apri a.mdb"_s});
    Elenco()->setFocus();
    QTest::keyClick(Elenco(), Qt::Key_Up);
    QTest::keyClick(Elenco(), Qt::Key_Return);
    QTRY_COMPARE(S->Eventi, (QStringList{u"apri a.mdb"_s, u"apri b.mdb"_s}));
}

/// The hand that clicks twice means one note: the second finds it open.
void TestUltimeParcelle::dueClicUnaNotaSola()
{
    const Registratore Box;
    Scritta(u"a"_s);
    Apri();
    const QPoint Dove = Elenco()->visualRect(Elenco()->model()->index(0, 0)).center();
    QTest::mouseClick(Elenco()->viewport(), Qt::LeftButton, {}, Dove);
    QTest::mouseDClick(Elenco()->viewport(), Qt::LeftButton, {}, Dove);
    Respiro();
    QVERIFY(!S->Eventi.isEmpty());
    for (const QString& Evento : S->Eventi)
        QCOMPARE(Evento, u"apri a.mdb"_s);
}

void TestUltimeParcelle::cancTogliEMenu()
{
    const Registratore Box;
    Scritta(u"a"_s);
    const QString File = Scritta(u"b"_s);
    Apri();
    Elenco()->setFocus();
    QTest::keyClick(Elenco(), Qt::Key_Delete);
    QCOMPARE(Elenco()->model()->rowCount(), 1);
    QCOMPARE(NoteRecenti().size(), 1);
    QVERIFY2(EsisteFile(File), "the list loses it, the disk does not");
    // The menu of a row, and of the empty room below it.
    const auto ScegliNelMenu = [&](const QPoint& Dove, const QString& Testo) {
        QTimer::singleShot(0, this, [Testo] {
            auto* Tendina = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            QVERIFY(Tendina);
            for (QAction* Voce : Tendina->actions())
                if (Voce->text().startsWith(Testo)) {
                    Tendina->setActiveAction(Voce);
                    QTest::keyClick(Tendina, Qt::Key_Return);
                    return;
                }
            Tendina->close();
            QFAIL("no such entry");
        });
        Q_EMIT Elenco()->customContextMenuRequested(Dove);
    };
    ScegliNelMenu(Elenco()->visualRect(Elenco()->model()->index(0, 0)).center(), u"Apri"_s);
    QTRY_COMPARE(S->Eventi, QStringList{u"apri a.mdb"_s});
    Scritta(u"c"_s);
    Singola<frmStudio>().Form_Activate();
    ScegliNelMenu(Elenco()->visualRect(Elenco()->model()->index(0, 0)).center(), u"Togli"_s);
    QCOMPARE(NomeRecente(NoteRecenti().constFirst()), u"a"_s);
    ScegliNelMenu(Elenco()->visualRect(Elenco()->model()->index(0, 0)).center(), u"Svuota"_s);
    QCOMPARE(NoteRecenti().size(), 0);
    QVERIFY(!Elenco()->isVisible());
}

void TestUltimeParcelle::laNotaSparitaLoDiceEVa()
{
    Registratore Box;
    Scritta(u"a"_s);
    QVERIFY(QFile::remove(Scritta(u"b"_s)));
    Apri();
    Box.Attendi(u"La parcella b non si trova più nella cartella %1\ne non compare più tra le ultime."_s.arg(
                    PercorsoNativo(Cartella)),
                vbOK, u"Avvertenza:"_s);
    Elenco()->setFocus();
    QTest::keyClick(Elenco(), Qt::Key_Return);
    QTRY_COMPARE(Elenco()->model()->rowCount(), 1);
    QCOMPARE(S->Eventi, QStringList());
    QCOMPARE(NomeRecente(NoteRecenti().constFirst()), u"a"_s);
}

void TestUltimeParcelle::laNotaSparitaSiDiceAncheSeIlNomeResta_data()
{
    QTest::addColumn<int>("Come");    // Danni: the last row is cut off, the list stands above it
    QTest::addColumn<bool>("Detto");  // the damage, at the start
    QTest::newRow("told at the start") << int(Danni) << true;
    QTest::newRow("damaged since") << int(Danni) << false;
    for (const int Come : {Svuotato, ::Cartella}) {
        QTest::addRow("%s, told at the start", NomiDanni[size_t(Come)]) << Come << true;
        QTest::addRow("%s since", NomiDanni[size_t(Come)]) << Come << false;
    }
}

/// Damaged settings keep the name; why the note does not open is told all the same, each time, and in one
/// sentence with the damage that nobody has told yet.
void TestUltimeParcelle::laNotaSparitaSiDiceAncheSeIlNomeResta()
{
    QFETCH(int, Come);
    QFETCH(bool, Detto);
    Registratore Box;
    QVERIFY(QFile::remove(Scritta(u"b"_s)));
    const NotaRecente Nota = NoteRecenti().constFirst();
    Apri();
    const QString File = Scena::FileImpostazioni();
    const QByteArray Intero = LeggiFile(File);
    if (Come == Danni)
        ScriviFile(File, Intero.first(Intero.lastIndexOf('\n', Intero.size() - 2) + 1));
    else
        Rovina(File, Come);
    const QString Guasto = FraseImpostazioniGuaste();
    QVERIFY(!Guasto.isEmpty());
    if (Detto)
        ImpostazioniGuasteDette();
    QCOMPARE(NoteRecenti().size(), Come == Danni ? 1 : 0);
    const QString Sparita =
        u"La parcella b non si trova più nella cartella %1."_s.arg(PercorsoNativo(Cartella));
    for (int Volta = 1; Volta <= 2; ++Volta) {
        Box.Attendi(Detto || Volta == 2 ? Sparita : Sparita + u'\n' + Guasto, vbOK, u"Avvertenza:"_s);
        ApriRecente(Nota);
        QCOMPARE(Box.Mostrati().size(), Volta);
    }
    // It is back with the settings.
    if (Come == ::Cartella)
        QVERIFY(QDir().rmdir(File));
    ScriviFile(File, Intero);
    QCOMPARE(NoteRecenti().size(), 1);
}

void TestUltimeParcelle::laCartellaSparitaChiede_data()
{
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<int>("Restano");
    QTest::newRow("take it out") << vbYes << 0;
    QTest::newRow("the stick will be back") << vbNo << 1;
}

void TestUltimeParcelle::laCartellaSparitaChiede()
{
    QFETCH(int, Risposta);
    QFETCH(int, Restano);
    Registratore Box;
    Scritta(u"a"_s);
    QVERIFY(QDir(Cartella).removeRecursively());
    Apri();
    Box.Attendi(u"La cartella %1 non si trova: la parcella a non si può aprire.\n"
                u"Togliere la parcella dalle ultime?"_s.arg(PercorsoNativo(Cartella)),
                Risposta, u"Domanda:"_s);
    Elenco()->setFocus();
    QTest::keyClick(Elenco(), Qt::Key_Return);
    QTRY_COMPARE(Box.Mostrati().size(), 1);
    QCOMPARE(int(NoteRecenti().size()), Restano);
}

void TestUltimeParcelle::laCartellaMutaNonFerma()
{
    Registratore Box;
    Scritta(u"a"_s);
    const auto Prima = std::exchange(attese::CartellaMs, 50);
    const auto Torna = qScopeGuard([&] { attese::CartellaMs = Prima; });
    const CartellaFerma Muta(PercorsoNativo(Cartella));
    Apri();
    Box.Attendi(u"La cartella %1 non risponde: la parcella a non si può aprire adesso."_s.arg(
                    PercorsoNativo(Cartella)),
                vbOK, u"Avvertenza:"_s);
    Elenco()->setFocus();
    QTest::keyClick(Elenco(), Qt::Key_Return);
    QTRY_COMPARE(Box.Mostrati().size(), 1);
    QCOMPARE(NoteRecenti().size(), 1);
    QCOMPARE(S->Eventi, QStringList());
}

/// Nothing of the disks is asked for to show the list.
void TestUltimeParcelle::lAvvioNonGuardaLeNote()
{
    const Registratore Box;
    Scritta(u"a"_s);
    QVERIFY(QDir(Cartella).removeRecursively());
    const CartellaFerma Muta(PercorsoNativo(Cartella));
    Apri();
    QCOMPARE(Elenco()->model()->rowCount(), 1);
    QVERIFY(!Muta.Attesa());
    QVERIFY(Elenco()->isVisible());
}

void TestUltimeParcelle::siAggiornaTornando()
{
    frmStudio& Scrivania = Apri();
    QCOMPARE(Elenco()->model()->rowCount(), 0);
    Scritta(u"a"_s);
    Scrivania.Form_Activate();
    QCOMPARE(Elenco()->model()->rowCount(), 1);
}

void TestUltimeParcelle::ctrlR()
{
    const Registratore Box;
    Scritta(u"a"_s);
    Scritta(u"b"_s);
    frmStudio& Scrivania = Apri();
    QCOMPARE(QApplication::focusWidget(), Scrivania.imgMenu(0));
    QTest::keyClick(&Scrivania, Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(QApplication::focusWidget(), Elenco());
    QTest::keyClick(Elenco(), Qt::Key_Return);
    QTRY_COMPARE(S->Eventi, QStringList{u"apri b.mdb"_s});
}

void TestUltimeParcelle::ctrlRSenzaPosto()
{
    const Registratore Box;
    Scritta(u"a"_s);
    frmStudio& Scrivania = Apri();
    Scrivania.resize(500, 300);
    Respiro();
    QVERIFY(!Scrivania.findChild<QWidget*>(u"fraRecenti"_s)->isVisible());
    QTest::keyClick(&Scrivania, Qt::Key_R, Qt::ControlModifier);
    auto* Tendina = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(Tendina);
    QTest::keyClick(Tendina, Qt::Key_Return);
    QTRY_COMPARE(S->Eventi, QStringList{u"apri a.mdb"_s});
}

void TestUltimeParcelle::siDisponeDoveCePosto()
{
    frmStudio& Scrivania = Apri();
    const auto* Striscia = Scrivania.findChild<QWidget*>(u"fraRecenti"_s);
    const auto* Quadro = Scrivania.findChild<QWidget*>(u"areaQuadro"_s);
    const auto* Piede = Scrivania.findChild<QWidget*>(u"cmdApriPiede"_s);
    const auto Misura = [&](int Larga, int Alta) {
        Scrivania.resize(Larga, Alta);
        Respiro();
    };
    Misura(LargheIcone(Scrivania) + Accanto, 360);
    QVERIFY(Striscia->isVisible() && !Piede->isVisible());
    QVERIFY(Striscia->geometry().left() > Quadro->geometry().right());
    QVERIFY(Quadro->width() >= LargheIcone(Scrivania));
    Misura(LargheIcone(Scrivania) + 5, 560);
    QVERIFY(Striscia->isVisible() && !Piede->isVisible());
    QVERIFY(Striscia->geometry().top() > Quadro->geometry().bottom());
    Misura(LargheIcone(Scrivania) + 5, 340);
    QVERIFY(!Striscia->isVisible() && Piede->isVisible());
    QCOMPARE(Quadro->width(), Scrivania.width());
}

void TestUltimeParcelle::apriEISuoiModi()
{
    const Registratore Box;
    Scritta(u"sfratto"_s);
    const frmStudio& Scrivania = Apri();
    auto* Apri = Scrivania.findChild<QToolButton*>(u"cmdApri"_s);
    QVERIFY(Apri && Apri->isVisible());
    QTest::mouseClick(Apri, Qt::LeftButton, {}, QPoint(8, Apri->height() / 2));
    QCOMPARE(S->Eventi, QStringList{u"trova 0"_s});
    Q_EMIT Apri->menu()->aboutToShow();
    QCOMPARE(Voci(Apri->menu()),
             (QStringList{u"Apri da parcelle salvate\tCtrl+O"_s, u"Apri da modelli\tCtrl+Maiusc+O"_s, u"-"_s,
                          u"&1  Rossi - sfratto, Prenotula, %1\t1.190,70 €   21/11/2026"_s.arg(
                              QDir(Cartella).dirName())}));
    Apri->menu()->actions().at(1)->trigger();
    Apri->menu()->actions().at(3)->trigger();
    QCOMPARE(S->Eventi, (QStringList{u"trova 0"_s, u"trova 1"_s, u"apri sfratto.mdb"_s}));
    SvuotaRecenti();
    Q_EMIT Apri->menu()->aboutToShow();
    QCOMPARE(Voci(Apri->menu()),
             (QStringList{u"Apri da parcelle salvate\tCtrl+O"_s, u"Apri da modelli\tCtrl+Maiusc+O"_s, u"-"_s,
                          u"Nessuna parcella recente"_s}));
    QVERIFY(!Apri->menu()->actions().constLast()->isEnabled());
}

void TestUltimeParcelle::ogniTastoVaAncheQui()
{
    const Registratore Box;
    Aperture.ApriParcella = [this](const QString&, int, const QString&) { S->Annota(u"nuova"_s); };
    Aperture.Impostazioni = [this](int, bool) { S->Annota(u"setup"_s); };
    QStringList Attesi;
    QList<std::pair<QKeySequence, QString>> Tasti{
        {QKeySequence(u"Ctrl+N"_s), u"nuova"_s},
        {QKeySequence(u"Ctrl+O"_s), u"trova 0"_s},
        {QKeySequence(u"Ctrl+Shift+O"_s), u"trova 1"_s},
        {QKeySequence(u"Ctrl+Shift+P"_s), u"setup"_s},
    };
    for (const Comando& Riga : Comandi())
        if (const QString Parola = Riga.Parola.toString(); ApreFinestra(Riga) && !Riga.Tasti.isEmpty()) {
            Aperture.Finestre[Parola] = [this, Parola] { S->Annota(Parola); };
            Tasti.append({QKeySequence(Riga.Tasti.toString()), Parola});
        }
    frmStudio& Scrivania = Apri();
    for (const auto& [Sequenza, Evento] : Tasti) {
        QTest::keySequence(&Scrivania, Sequenza);
        Attesi << Evento;
        QVERIFY2(S->Eventi == Attesi, qPrintable(Sequenza.toString() + u": "_s + S->Eventi.join(u", "_s)));
    }
    // What has no window yet does nothing.
    Aperture.Finestre.erase(u"termini"_s);
    QTest::keySequence(&Scrivania, QKeySequence(u"Ctrl+Shift+T"_s));
    QCOMPARE(S->Eventi, Attesi);
}

void TestUltimeParcelle::ctrlQChiede()
{
    const Registratore Box;
    frmStudio& Scrivania = Apri();
    QVERIFY(Singola<frmMain>().Area());
    Scena::ApriPosti(1);
    bool Concesso = false;
    Aperture.ChiudiParcella = [&](int) {
        S->Annota(u"chiudi"_s);
        InfoParcelle[1].Libera = Concesso;
        return Concesso;
    };
    Scrivania.Mostra();
    (void)QTest::qWaitForWindowActive(&Scrivania);
    QTest::keySequence(&Scrivania, QKeySequence(u"Ctrl+Q"_s));
    QCOMPARE(S->Eventi, QStringList{u"chiudi"_s});
    QVERIFY(Scrivania.isVisible());
    Concesso = true;
    QTest::keySequence(&Scrivania, QKeySequence(u"Ctrl+Q"_s));
    QCOMPARE(S->Eventi, (QStringList{u"chiudi"_s, u"chiudi"_s, u"fine"_s}));
}

void TestUltimeParcelle::ilMenuDellaCornice()
{
    const Registratore Box;
    Scritta(u"Rossi - a&b"_s);
    frmMain& Cornice = Singola<frmMain>();
    QVERIFY(Cornice.Area());
    QMenu* Tendina = Cornice.findChild<QToolButton*>(u"barParcelle_open"_s)->defaultAction()->menu();
    for (int Volta = 0; Volta < 2; ++Volta) {
        Q_EMIT Tendina->aboutToShow();
        QCOMPARE(
            Voci(Tendina),
            (QStringList{u"Apri da parcelle salvate\tCtrl+O"_s, u"Apri da modelli\tCtrl+Maiusc+O"_s, u"-"_s,
                         u"&1  Rossi - a&&b, Prenotula, %1\t1.190,70 €   21/11/2026"_s.arg(
                             QDir(Cartella).dirName())}));
    }
    Tendina->actions().constLast()->trigger();
    QCOMPARE(S->Eventi, QStringList{u"apri Rossi - a&b.mdb"_s});
}

void TestUltimeParcelle::ilNomeLungoSiAccorcia()
{
    const Registratore Box;
    Scritta(u"sfratto"_s, QString(100, u'm'));
    frmMain& Cornice = Singola<frmMain>();
    QVERIFY(Cornice.Area());
    QMenu* Tendina = Cornice.findChild<QToolButton*>(u"barParcelle_open"_s)->defaultAction()->menu();
    Q_EMIT Tendina->aboutToShow();
    const QString Voce = Voci(Tendina).constLast();
    QVERIFY2(Voce.startsWith(u"&1  mmmm") && Voce.contains(u"…, Prenotula, "), qPrintable(Voce));
    QVERIFY(Tendina->sizeHint().width() < Cornice.screen()->availableSize().width());
}

void TestUltimeParcelle::ctrlRNellaCornice()
{
    const Registratore Box;
    Scritta(u"a"_s);
    Scritta(u"b"_s);
    frmMain& Cornice = Singola<frmMain>();
    QVERIFY(Cornice.Area());
    QVERIFY(MostraAttiva(Cornice));
    QTest::keyClick(&Cornice, Qt::Key_R, Qt::ControlModifier);
    auto* Tendina = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(Tendina);
    QTest::keyClick(Tendina, Qt::Key_Down);
    QTest::keyClick(Tendina, Qt::Key_Return);
    QTRY_COMPARE(S->Eventi, QStringList{u"apri a.mdb"_s});
    QTest::keyClick(&Cornice, Qt::Key_R, Qt::ControlModifier);
    Tendina = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(Tendina);
    QTest::keyClick(Tendina, Qt::Key_1);
    QTRY_COMPARE(S->Eventi.size(), 2);
    QCOMPARE(S->Eventi.constLast(), u"apri b.mdb"_s);
}

void TestUltimeParcelle::iTastiSiVedono()
{
    frmMain& Cornice = Singola<frmMain>();
    QVERIFY(Cornice.Area());
    QStringList Mostrati;
    for (const QString& Nome : {u"menu_salva"_s, u"menu_salvacome"_s, u"menu_savemod"_s, u"menu_duplica"_s,
                                u"menu_openpar"_s, u"menu_openmod"_s, u"menu_help"_s})
        Mostrati << Cornice.findChild<QAction*>(Nome)->text().section(u'\t', 1);
    QCOMPARE(Mostrati, (QStringList{u"Ctrl+S"_s, QString(), u"Ctrl+Maiusc+M"_s, u"Ctrl+D"_s, u"Ctrl+O"_s,
                                    u"Ctrl+Maiusc+O"_s, u"Ctrl+F1"_s}));
}

#include "TestUltimeParcelle.moc"
