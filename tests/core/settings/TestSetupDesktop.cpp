#include "core/settings/tavolosetup.h"

#include "core/desktop/iconastudio.h"
#include "core/modAspetto.h"
#include "core/settings/anteprimasfondo.h"
#include "core/settings/frmIcons.h"
#include "platform/base/numerierrore.h"
#include "platform/grid/griglia.h"
#include "platform/system/guasti.h"
#include "platform/system/profilo.h"

#include <QHeaderView>
#include <QImage>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>

#include <memory>

class TestSetupDesktop : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { T.reset(); }

    void sfondiSenzaEstensione();
    void sfondiDelloStudio();
    void modelloInVigore();
    void modello_data();
    void modello();
    void modelloIncompleto();
    void senzaModelli();
    void modelliIlleggibili();
    void sfondoScelto();
    void nessunoSfondo();
    void sfondoCheMancaResta();
    void immagineGuasta();
    void colore();
    void coloreMalConservato();

    void iconaNuova();
    void iconaModificata();
    void iconaEliminata();
    void eliminazioneRifiutata();
    void chiudereNonToccaLeIcone();
    void iconeSpostate();
    void iconeTrascinate_data();
    void iconeTrascinate();
    void scritturaRifiutata();
    void discoPieno();

    void aiuto();
    void tuttoCiSta();
    void tasti();
    void stradaDellIcona();

private:
    Griglia* Grigl() { return T->Trova<Griglia>(u"tdbIcone"_s); }
    QComboBox* Modelli() { return T->Trova<QComboBox>(u"cmbTemplates"_s); }
    QComboBox* Sfondi() { return T->Trova<QComboBox>(u"cmbSfondi"_s); }
    static void Scegli(QComboBox* Lista, const QString& Voce);
    QByteArray Ini() { return LeggiFile(T->Programma + u"kr5.ini"_s); }

    std::unique_ptr<TavoloSetup> T;
};
PROVA(TestSetupDesktop);

void TestSetupDesktop::init()
{
    T = std::make_unique<TavoloSetup>();
    ScriviFile(T->Programma + u"kr5.ini"_s, TavoloSetup::DueIcone());
}

void TestSetupDesktop::Scegli(QComboBox* Lista, const QString& Voce)
{
    const int Indice = Lista->findText(Voce);
    QVERIFY2(Indice >= 0, qPrintable(Voce));
    ::Scegli(Lista, Indice);
}

void TestSetupDesktop::sfondiDelloStudio()
{
    // What the office has put into its user folder is offered beside the delivered pictures, and wins over
    // one of the same name; so do its templates.
    CreaCartella(T->Utente + u"sfondi"_s);
    const QByteArray Figura = LeggiFile(T->Programma + u"sfondi/colline.jpg"_s);
    for (const QString& Nome : {u"AULA.jpg"_s, u"mare.jpg"_s})
        ScriviFile(T->Utente + u"sfondi/"_s + Nome, Figura);
    ScriviFile(T->Utente + u"sfondi/templates.ini"_s, "[modello1]\nNome=Del mare\nSfImg=mare.jpg\n");
    const QStringList Sfondi = LeggiSfondi();
    QVERIFY(Sfondi.contains(u"mare.jpg"_s) && Sfondi.contains(u"lex.jpg"_s));
    QCOMPARE(Sfondi.filter(QRegularExpression(u"^aula[.]jpg$"_s, QRegularExpression::CaseInsensitiveOption)),
             QStringList{u"AULA.jpg"_s});
    QVERIFY(std::ranges::is_sorted(
        Sfondi, [](const QString& A, const QString& B) { return A.compare(B, Qt::CaseInsensitive) < 0; }));
    QCOMPARE(FileSfondo(u"aula.jpg"_s), T->Utente + u"sfondi/AULA.jpg"_s);
    QCOMPARE(FileSfondo(u"lex.jpg"_s), T->Programma + u"sfondi/lex.jpg"_s);
    QCOMPARE(FileSfondo(u"manca.jpg"_s), QString());
    QCOMPARE(LeggiModelli().size(), 1);
    QCOMPARE(LeggiModelli()[0].Nome, u"Del mare"_s);
}

void TestSetupDesktop::sfondiSenzaEstensione()
{
    ScriviFile(T->Programma + u"sfondi/Mare.JPG"_s, "x");
    ScriviFile(T->Programma + u"sfondi/nota.png"_s, "x");
    T->Apri(3);
    QStringList Voci;
    for (int i = 0; i < Sfondi()->count(); ++i)
        Voci << Sfondi()->itemText(i);
    QVERIFY2(Voci.contains(u"lex"_s) && Voci.contains(u"Mare"_s), qPrintable(Voci.join(u' ')));
    QVERIFY(!Voci.contains(u"nota"_s) && !Voci.contains(u"templates"_s));
    QCOMPARE(Sfondi()->currentText(), u"lex"_s);
    QVERIFY(T->Trova<AnteprimaSfondo>(u"imgPreview"_s)->HaImmagine());
}

void TestSetupDesktop::modelloInVigore()
{
    T->Apri(3);
    QCOMPARE(Modelli()->currentIndex(), -1);  // the defaults are nobody's template: red for the marked label
    Scegli(Modelli(), u"Portico"_s);
    Registratore Box;
    T->Memorizza(Box);
    T->Modulo->close();
    T->Apri(3);
    QCOMPARE(Modelli()->currentText(), u"Portico"_s);
}

void TestSetupDesktop::modello_data()
{
    QTest::addColumn<int>("Numero");
    for (int n = 1; n <= 6; ++n)
        QTest::newRow(qPrintable(QString::number(n))) << n;
}

void TestSetupDesktop::modello()
{
    QFETCH(int, Numero);
    Registratore Box;
    const QList<ModelloAspetto> Letti = LeggiModelli();
    QVERIFY(Letti.size() >= Numero);
    const ModelloAspetto& Scelto = Letti[Numero - 1];
    T->Apri(3);
    Scegli(Modelli(), Scelto.Nome);
    QCOMPARE(Modelli()->currentText(), Scelto.Nome);
    QCOMPARE(Sfondi()->currentText() + u".jpg"_s, Scelto.Immagine);
    QCOMPARE(T->Parametro(u"SfondoDesktop"_s), QString());
    T->Memorizza(Box);
    QCOMPARE(sessione::SfondoDesktop, Scelto.Immagine);
    QCOMPARE(sessione::ColoreSfondoDesktop, *Scelto.Colori[ColoreSfondo]);
    QCOMPARE(sessione::ColoreEtichette, *Scelto.Colori[ColoreTesto]);
    QCOMPARE(sessione::ColoreEtichetteBordo, *Scelto.Colori[ColoreBordo]);
    QCOMPARE(sessione::ColoreEtichettaSel, *Scelto.Colori[ColoreSelezione]);
}

void TestSetupDesktop::modelloIncompleto()
{
    Registratore Box;
    ScriviFile(T->Programma + u"sfondi/templates.ini"_s,
               "[modello1]\r\nNome=Zoppo\r\nSfCol=rosso\r\nSfImg=manca\r\nEtCol=1\r\nEtBor=16777216\r\n");
    T->Apri(3);
    Scegli(Modelli(), u"Zoppo"_s);
    QCOMPARE(Sfondi()->currentText(), u"lex"_s);
    T->Memorizza(Box);
    QCOMPARE(sessione::ColoreSfondoDesktop, 2508052);
    QCOMPARE(sessione::ColoreEtichette, 1);
    QCOMPARE(sessione::ColoreEtichetteBordo, 0);
    QCOMPARE(sessione::ColoreEtichettaSel, 255);
}

void TestSetupDesktop::senzaModelli()
{
    const Registratore Box;
    QVERIFY(QFile::remove(T->Programma + u"sfondi/templates.ini"_s));
    T->Apri(3);
    QCOMPARE(Modelli()->count(), 0);
    QVERIFY(!Modelli()->isEnabled());
}

void TestSetupDesktop::modelliIlleggibili()
{
    Registratore Box;
    const QString File = T->Programma + u"sfondi/templates.ini"_s;
    QVERIFY(QFile::setPermissions(File, {}));
    Box.Attendi(u"75 %1: %2"_s.arg(DescrizioneErrore(75), File));
    T->Apri(3);
    QCOMPARE(Modelli()->count(), 0);
}

void TestSetupDesktop::sfondoScelto()
{
    Registratore Box;
    QVERIFY(QFile::rename(T->Programma + u"sfondi/aula.jpg"_s, T->Programma + u"sfondi/Aula.JPG"_s));
    T->Apri(3);
    Scegli(Sfondi(), u"Aula"_s);
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"SfondoDesktop"_s), u"Aula.JPG"_s);
}

void TestSetupDesktop::nessunoSfondo()
{
    Registratore Box;
    T->Apri(3);
    T->Premi(u"cmdNessuna"_s);
    QCOMPARE(Sfondi()->currentIndex(), -1);
    QVERIFY(!T->Trova<AnteprimaSfondo>(u"imgPreview"_s)->HaImmagine());
    T->Memorizza(Box);
    QCOMPARE(GetSetting(u"KR5"_s, u"Parametri"_s, u"SfondoDesktop"_s, u"manca"_s), QString());
}

void TestSetupDesktop::sfondoCheMancaResta()
{
    Registratore Box;
    T->Salva(u"SfondoDesktop"_s, u"mio.jpg"_s);
    T->Apri(3);
    QCOMPARE(Sfondi()->currentIndex(), -1);
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"SfondoDesktop"_s), u"mio.jpg"_s);
}

void TestSetupDesktop::immagineGuasta()
{
    const Registratore Box;
    ScriviFile(T->Programma + u"sfondi/rotta.jpg"_s, "no picture");
    T->Apri(3);
    Scegli(Sfondi(), u"rotta"_s);
    QVERIFY(!T->Trova<AnteprimaSfondo>(u"imgPreview"_s)->HaImmagine());
}

void TestSetupDesktop::colore()
{
    Registratore Box;
    Messaggi Tavola = InstallaMessaggi({});
    std::optional<int> Risposta;
    QList<int> Iniziali;
    Messaggi Nuovi = Tavola;
    Nuovi.ScegliColore = [&](int Iniziale) {
        Iniziali << Iniziale;
        return Risposta;
    };
    InstallaMessaggi(Nuovi);
    T->Apri(3);
    T->Premi(u"cmdColor_0"_s);  // cancelled
    Risposta = 0x0000FF;
    auto* Pulsante = T->Trova<QAbstractButton>(u"cmdColor_3"_s);
    Pulsante->setFocus();
    QTest::keyClick(Pulsante, Qt::Key_Space);
    Risposta = 0x112233;
    T->Premi(u"cmdColor_2"_s);
    QCOMPARE(Iniziali, (QList<int>{2508052, 255, 0}));
    const auto* Campione = T->Trova<QWidget>(u"lblSfondo_2"_s);
    QCOMPARE(Campione->palette().color(Campione->backgroundRole()), QColor(0x33, 0x22, 0x11));
    const auto* Bordo = T->Trova<QWidget>(u"cmdColor_2"_s);
    QCOMPARE(Bordo->accessibleName(), u"Colore bordo icone"_s);
    QCOMPARE(Bordo->accessibleDescription(), u"#332211"_s);
    T->Memorizza(Box);
    InstallaMessaggi(Tavola);
    QCOMPARE(sessione::ColoreEtichetteBordo, 0x112233);
    QCOMPARE(sessione::ColoreSfondoDesktop, 2508052);
    QVERIFY(LeggiFile(Scena::FileImpostazioni()).contains("1122867"));
}

void TestSetupDesktop::coloreMalConservato()
{
    Registratore Box;
    T->Salva(u"ColoreEtichette"_s, u"bianco"_s);
    T->Apri(3);
    T->Memorizza(Box);
    QCOMPARE(T->Parametro(u"ColoreEtichette"_s), u"16777215"_s);
}

// ---- icons --------------------------------------------------------------------------------------

void TestSetupDesktop::iconaNuova()
{
    Registratore Box;
    T->Apri(3);
    QCOMPARE(Grigl()->Righe(), 2);
    TavoloSetup::NellEditor([](frmIcons& Modulo) {
        TavoloSetup::Riempi(Modulo, u"Tribunale"_s, u"https://tribunale.example"_s);
        Modulo.cmdSalvaIco_Click();
    });
    T->Premi(u"cmdAddIco"_s);
    QCOMPARE(Grigl()->Righe(), 3);
    QCOMPARE(Grigl()->RigaCorrente(), std::optional(2));
    QCOMPARE(Ini(), TavoloSetup::DueIcone());
    T->Memorizza(Box);
    QCOMPARE(LeggiIcone()(2, IconaTitolo).toString(), u"Tribunale"_s);
    QCOMPARE(IconeUtente.Righe(), 3);
}

void TestSetupDesktop::iconaModificata()
{
    Registratore Box;
    T->Apri(3);
    TavoloSetup::NellEditor([](frmIcons& Modulo) {
        QCOMPARE(Modulo.findChild<QLineEdit*>(u"txtTitIco"_s)->text(), u"Agenda"_s);
        TavoloSetup::Riempi(Modulo, u"Agenda nuova"_s, u"/opt/agenda2"_s);
        QTest::keyClick(&Modulo, Qt::Key_Return);
    });
    Q_EMIT Grigl()->DoppioClic(1);
    T->Memorizza(Box);
    QCOMPARE(LeggiIcone()(1, IconaTitolo).toString(), u"Agenda nuova"_s);
    QCOMPARE(LeggiIcone()(1, IconaCollegamento).toString(), u"/opt/agenda2"_s);
    QCOMPARE(LeggiIcone()(1, IconaFigura).toString(), u"agenda.gif"_s);
    QCOMPARE(LeggiIcone().Righe(), 2);
}

void TestSetupDesktop::iconaEliminata()
{
    Registratore Box;
    T->Apri(3);
    Grigl()->ImpostaRigaCorrente(0);
    Grigl()->Vista()->setFocus();
    Box.Attendi(u"Confermi la cancellazione dell'icona Sito?"_s, vbYes, u"Domanda:"_s);
    Premi(Qt::Key_Delete);
    QCOMPARE(Grigl()->Righe(), 1);
    T->Memorizza(Box);
    QCOMPARE(LeggiIcone().Righe(), 1);
    QCOMPARE(LeggiIcone()(0, IconaTitolo).toString(), u"Agenda"_s);
    QVERIFY(!Ini().contains("L1"));
}

void TestSetupDesktop::eliminazioneRifiutata()
{
    Registratore Box;
    T->Apri(3);
    Grigl()->ImpostaRigaCorrente(1);
    Box.Attendi(u"Confermi la cancellazione dell'icona Agenda?"_s, vbNo);
    T->Premi(u"cmdDelIco"_s);
    QCOMPARE(Grigl()->Righe(), 2);
}

void TestSetupDesktop::chiudereNonToccaLeIcone()
{
    Registratore Box;
    LeggiIconeUtente();
    T->Apri(3);
    Grigl()->ImpostaRigaCorrente(0);
    Box.Attendi(u"Confermi la cancellazione dell'icona Sito?"_s, vbYes);
    T->Premi(u"cmdDelIco"_s);
    // A click on the desktop meanwhile opens what its icon shows.
    QCOMPARE(IconeUtente(0, IconaTitolo).toString(), u"Sito"_s);
    T->Modulo->close();
    QCOMPARE(Ini(), TavoloSetup::DueIcone());
    QCOMPARE(IconeUtente.Righe(), 2);
    T->Apri(3);
    QCOMPARE(Grigl()->Righe(), 2);
}

void TestSetupDesktop::iconeSpostate()
{
    Registratore Box;
    T->Apri(3);
    Grigl()->ImpostaRigaCorrente(1);
    Grigl()->Vista()->setFocus();
    QTest::keyClick(Grigl()->Vista(), Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(Grigl()->RigaCorrente(), std::optional(0));
    QTest::keyClick(Grigl()->Vista(), Qt::Key_Up, Qt::AltModifier);
    T->Memorizza(Box);
    QCOMPARE(LeggiIcone()(0, IconaTitolo).toString(), u"Agenda"_s);
    QCOMPARE(LeggiIcone()(1, IconaTitolo).toString(), u"Sito"_s);
}

void TestSetupDesktop::iconeTrascinate_data()
{
    QTest::addColumn<QList<int>>("Scelte");
    QTest::addColumn<int>("SuRiga");
    QTest::addColumn<QString>("Ordine");
    QTest::addColumn<int>("Corrente");
    QTest::newRow("in giù: prende il posto di quella") << QList{0} << 2 << u"BCAD"_s << 2;
    QTest::newRow("in fondo") << QList{0} << 3 << u"BCDA"_s << 3;
    QTest::newRow("in cima") << QList{3} << 0 << u"DABC"_s << 0;
    QTest::newRow("due tengono il loro ordine") << QList{3, 1} << 0 << u"BDAC"_s << 0;
    QTest::newRow("due in fondo") << QList{0, 1} << 3 << u"CDAB"_s << 2;
}

void TestSetupDesktop::iconeTrascinate()
{
    QFETCH(QList<int>, Scelte);
    QFETCH(int, SuRiga);
    QFETCH(QString, Ordine);
    QFETCH(int, Corrente);
    Registratore Box;
    QByteArray Quattro = "[desktop]\r\n";
    for (int i = 0; i < 4; ++i) {
        const QByteArray Chiave = "L" + QByteArray::number(i);
        const char Nome = char('A' + i);
        Quattro += Chiave + '=' + Nome + "\r\n" + Chiave + "_c=www." + Nome + ".example\r\n" + Chiave +
                   "_i=" + Nome + ".gif\r\n";
    }
    ScriviFile(T->Programma + u"kr5.ini"_s, Quattro);
    LeggiIconeUtente();
    T->Apri(3);
    QTableView* Vista = Grigl()->Vista();
    QWidget* Selettore = Vista->verticalHeader()->viewport();
    const auto SuRigaNumero = [Vista](int Riga) {
        constexpr int Dentro = 8;
        return QPoint(Dentro, Vista->visualRect(Vista->model()->index(Riga, 0)).center().y());
    };
    for (const int Riga : Scelte.first(Scelte.size() - 1))
        QTest::mouseClick(Selettore, Qt::LeftButton, Qt::ControlModifier, SuRigaNumero(Riga));
    const bool Altre = Scelte.size() > 1;
    QTest::mousePress(Selettore, Qt::LeftButton, Altre ? Qt::ControlModifier : Qt::NoModifier,
                      SuRigaNumero(Scelte.last()));
    // QTest's own moves carry no button.
    QMouseEvent Mossa(QEvent::MouseMove, SuRigaNumero(SuRiga), Selettore->mapToGlobal(SuRigaNumero(SuRiga)),
                      Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(Selettore, &Mossa);
    QTest::mouseRelease(Selettore, Qt::LeftButton, Qt::NoModifier, SuRigaNumero(SuRiga));

    QCOMPARE(Grigl()->RigaCorrente(), std::optional(Corrente));
    // Until the save the order is the form's own.
    QCOMPARE(IconeUtente(0, IconaTitolo).toString(), u"A"_s);
    QCOMPARE(Ini(), Quattro);
    T->Memorizza(Box);
    const TabellaRighe Salvate = LeggiIcone();
    QCOMPARE(Salvate.Righe(), 4);
    QVERIFY(IconeUtente == Salvate);
    QString Trovato;
    for (int Riga = 0; Riga < Salvate.Righe(); ++Riga) {
        const QString Nome = Salvate(Riga, IconaTitolo).toString();
        Trovato += Nome;
        QCOMPARE(Salvate(Riga, IconaCollegamento).toString(), u"www."_s + Nome + u".example"_s);
        QCOMPARE(Salvate(Riga, IconaFigura).toString(), Nome + u".gif"_s);
    }
    QCOMPARE(Trovato, Ordine);
}

void TestSetupDesktop::scritturaRifiutata()
{
    Registratore Box;
    ImpostaSolaLettura(T->Programma + u"kr5.ini"_s, true);
    T->Apri(3);
    T->Campo(u"txtCartellaUtente"_s)->setText(T->Utente);
    sessione::UserFolder = T->Utente + u"manca"_s;
    Grigl()->ImpostaRigaCorrente(0);
    Box.Attendi(u"Confermi la cancellazione dell'icona Sito?"_s, vbYes);
    T->Premi(u"cmdDelIco"_s);
    T->Campo(u"txtNomeStudio"_s)->setText(u"Nuovo"_s);
    Box.Attendi(u"Errore scrittura .ini"_s, vbOK, u"Errore:"_s);
    T->Memorizza(Box);
    // The rest is saved, and what was asked of the icons is not lost from the form.
    QCOMPARE(sessione::StudioNome, u"Nuovo"_s);
    QCOMPARE(Ini(), TavoloSetup::DueIcone());
    QCOMPARE(Grigl()->Righe(), 1);
    // Now the user folder is there again, and takes what the program folder refuses.
    T->Memorizza(Box);
    QCOMPARE(LeggiIcone().Righe(), 1);
}

void TestSetupDesktop::discoPieno()
{
    Registratore Box;
    T->Apri(3);
    sessione::UserFolder.clear();
    Grigl()->ImpostaRigaCorrente(0);
    Box.Attendi(u"Confermi la cancellazione dell'icona Sito?"_s, vbYes);
    T->Premi(u"cmdDelIco"_s);
    guasti::LimiteFile = 4;
    Box.Attendi(u"Errore scrittura .ini"_s);
    Box.Attendi(
        u"Errore: Impossibile scrivere le impostazioni nel file %1/Calcanova/KR5.ini: Disco pieno (75)"_s.arg(
            qEnvironmentVariable("XDG_CONFIG_HOME")),
        vbOK, u"Errore:"_s);
    T->Premi(u"cmdSaveImpost"_s);
    guasti::LimiteFile = 0;
    QCOMPARE(Ini(), TavoloSetup::DueIcone());
}

// ---- form ---------------------------------------------------------------------------------------

void TestSetupDesktop::aiuto()
{
    T->Apri(3);
    const auto* Pannello = T->Trova<QLabel>(u"pctHelp"_s);
    QVERIFY(!Pannello->isVisible());
    QTest::keyClick(T->Modulo, Qt::Key_F1, Qt::ShiftModifier);
    QVERIFY(Pannello->isVisible());
    QStringList Testi;
    for (int i = 0; i < 4; ++i) {
        T->Modulo->ChangeTab(i);
        QVERIFY(!Testi.contains(Pannello->text()));
        Testi << Pannello->text();
    }
    // Esc closes it first, then the form.
    QTest::keyClick(T->Modulo, Qt::Key_Escape);
    QVERIFY(!Pannello->isVisible());
    QVERIFY(T->Modulo->isVisible());
    T->Premi(u"cmdHelp"_s);
    QVERIFY(Pannello->isVisible());
    T->Premi(u"cmdHelp"_s);
    QTest::keyClick(T->Modulo, Qt::Key_Escape);
    QVERIFY(!T->Modulo->isVisible());
}

void TestSetupDesktop::tuttoCiSta()
{
    // Letters half as large again, as some set them for every program.
    const QFont Solita = QApplication::font();
    const auto Rimetti = qScopeGuard([&] { QApplication::setFont(Solita); });
    QFont Grande = Solita;
    Grande.setPointSizeF(Solita.pointSizeF() * 1.5);
    QApplication::setFont(Grande);
    T->Apri(3);
    T->Modulo->resize(T->Modulo->sizeHint());
    Respiro();
    const QTableView* Vista = Grigl()->Vista();
    QVERIFY(!Vista->horizontalScrollBar()->isVisible());
    for (int c = 0; c < ColonneIcona; ++c) {
        const QString Titolo = Vista->model()->headerData(c, Qt::Horizontal).toString();
        QVERIFY(Vista->columnWidth(c) > Vista->horizontalHeader()->fontMetrics().horizontalAdvance(Titolo));
    }
    // However narrow the page, the grid keeps room for the three columns.
    const QFontMetrics Lettere = Vista->horizontalHeader()->fontMetrics();
    QVERIFY(Grigl()->minimumWidth() >
            Lettere.horizontalAdvance(u"Programma/Link"_s) + Lettere.horizontalAdvance(QString(23, u'0')));
    // A low screen takes a bar at the side, and no other one for the room that it takes.
    const auto* Foglio = qobject_cast<QScrollArea*>(T->Trova<QTabWidget>(u"tabSetup"_s)->currentWidget());
    QCOMPARE(Foglio->sizeHint().width(),
             Foglio->widget()->sizeHint().width() + Foglio->verticalScrollBar()->sizeHint().width());
    const int Avanza = Foglio->height() - Foglio->widget()->sizeHint().height();  // other pages are higher
    T->Modulo->resize(T->Modulo->size() - QSize(0, Avanza + 100));
    QTRY_VERIFY(Foglio->verticalScrollBar()->isVisible());
    Respiro();
    QVERIFY(!Foglio->horizontalScrollBar()->isVisible());
}

void TestSetupDesktop::tasti()
{
    Registratore Box;
    T->Apri(4);
    const auto* Schede = T->Trova<QTabWidget>(u"tabSetup"_s);
    QTest::keyClick(T->Modulo, Qt::Key_PageDown, Qt::ControlModifier);
    QCOMPARE(Schede->currentIndex(), 5);
    QCOMPARE(Schede->count(), 6);
    QTest::keyClick(T->Modulo, Qt::Key_PageDown, Qt::ControlModifier);
    QCOMPARE(Schede->currentIndex(), 0);
    QTest::keyClick(T->Modulo, Qt::Key_PageUp, Qt::ControlModifier);
    QCOMPARE(Schede->currentIndex(), 5);
    QTest::keyClick(T->Modulo, Qt::Key_PageUp, Qt::ControlModifier);
    QCOMPARE(Schede->currentIndex(), 4);
    Box.Attendi(u"Le impostazioni sono state memorizzate!"_s);
    QTest::keyClick(T->Modulo, Qt::Key_S, Qt::ControlModifier);
}

void TestSetupDesktop::stradaDellIcona()
{
    Registratore Box;
    QVERIFY(QFile::remove(T->Programma + u"kr5.ini"_s));
    sessione::CercaAgg = false;
    T->Salva(u"CercaAgg"_s, u"N"_s);
    frmStudio* Scrivania = &Singola<frmStudio>();
    Scrivania->Mostra();
    const int Fisse = Scrivania->NumeroIcone();
    // Made and saved: the desktop behind the form has it at once.
    T->Apri(3);
    TavoloSetup::NellEditor([](frmIcons& Modulo) {
        TavoloSetup::Riempi(Modulo, u"Tribunale"_s, u"www.tribunale.example/Atti"_s);
        Modulo.cmdSalvaIco_Click();
    });
    T->Premi(u"cmdAddIco"_s);
    T->Memorizza(Box);
    Respiro();
    QCOMPARE(Scrivania->NumeroIcone(), Fisse + 1);
    T->Modulo->close();
    // Another start, from the files alone.
    delete Scrivania;
    IconeUtente.Azzera(ColonneIcona);
    AzzeraSessione();
    ImpostaVariabili();
    Scrivania = &Singola<frmStudio>();
    Scrivania->Mostra();
    QCOMPARE(Scrivania->NumeroIcone(), Fisse + 1);
    QCOMPARE(Scrivania->imgMenu(Fisse)->text(), u"Tribunale"_s);
    Scrivania->imgMenu(Fisse)->click();
    QCOMPARE(T->S().Eventi, QStringList{u"indirizzo http://www.tribunale.example/Atti"_s});
    // Removed.
    T->Apri(3);
    Grigl()->ImpostaRigaCorrente(0);
    Box.Attendi(u"Confermi la cancellazione dell'icona Tribunale?"_s, vbYes);
    T->Premi(u"cmdDelIco"_s);
    T->Memorizza(Box);
    Respiro();
    QCOMPARE(Scrivania->NumeroIcone(), Fisse);
}

#include "TestSetupDesktop.moc"
