// The desktop as a window: what its activation tests, brings up and asks, its trace, its end.
#include "studio.h"

#include "core/aperture.h"
#include "core/posti.h"
#include "platform/base/errore.h"

#include <QPlainTextEdit>

#include <algorithm>

class TestFrmStudio : public QObject, private BancoStudio
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Prepara(); }
    void cleanup() { Sgombra(); }
    void ridottaTornaInVista();
    void archivioParcelleMancante_data();
    void archivioParcelleMancante();
    void studioSenzaNome();
    void laRispostaNonRiattiva();
    void laCorniceSparisce();
    void ordineDellAttivazione();
    void nascostaSiRidisegnaTornando();
    void aggiornamentiUnaVolta();
    void recuperoOffertoUnaVolta();
    void traccia();
    void tracciaPrimaDiUnErrore();
    void chiusura();
    void chiusuraConLaRubricaAperta();
    void chiusuraSenzaImpostazioniScrivibili();
    void uscita();
    void ilPrimoFuocoEDellaPrimaIcona();
    void unaSolaPrimaAttivazione();
    void laTracciaNonAllargaLaProssima();
    void ricordaIlPosto();
    void laPrimaAttivazioneFinisceUnaVolta();
};
PROVA(TestFrmStudio);

void TestFrmStudio::ridottaTornaInVista()
{
    frmStudio& Scrivania = Apri();
    Scrivania.showMinimized();
    Scrivania.Mostra();
    QVERIFY(!Scrivania.isMinimized());
    QVERIFY(Scrivania.isVisible());
}

void TestFrmStudio::archivioParcelleMancante_data()
{
    QTest::addColumn<bool>("Vuoto");

    QTest::newRow("no program folder") << true;
    QTest::newRow("a folder without the archive") << false;
}

void TestFrmStudio::archivioParcelleMancante()
{
    QFETCH(bool, Vuoto);
    Registratore Box;
    sessione::PercorsoProg = Vuoto ? QString() : NuovaCartella();
    sessione::StudioNome.clear();  // the archive comes first
    Box.Attendi(u"Impostare la cartella dell'archivio parcelle!"_s, vbOK, u"Errore:"_s);
    const ChiudeImpostazioni Chiude;
    Apri();
    QTRY_COMPARE(Chiude.Aperte(), 1);
    QCOMPARE(Box.Mostrato(0).Bandiere, vbCritical);
}

void TestFrmStudio::studioSenzaNome()
{
    Registratore Box;
    sessione::StudioNome.clear();
    Box.Attendi(u"Il programma non è stato ancora personalizzato. E' pertanto necessario procedere\n"
                u"all'inserimento dei dati identificativi dello studio."_s,
                vbOK, u"Messaggio:"_s);
    const ChiudeImpostazioni Chiude;
    Apri();
    QTRY_COMPARE(Chiude.Aperte(), 1);
    QCOMPARE(Box.Mostrato(0).Bandiere, vbInformation);
}

void TestFrmStudio::laRispostaNonRiattiva()
{
    // Whoever closes the settings without a name is not asked again by the desktop that comes back.
    Registratore Box;
    Box.Tollera();
    sessione::StudioNome.clear();
    const ChiudeImpostazioni Chiude;
    frmStudio& Scrivania = Apri();
    QTRY_VERIFY(SeCaricato<frmSetup> && !SeCaricato<frmSetup>->isVisible());
    QApplication::setActiveWindow(&Scrivania);
    QTest::qWait(50);
    QCOMPARE(Box.Mostrati().size(), 1);
}

void TestFrmStudio::laCorniceSparisce()
{
    frmMain& Cornice = Singola<frmMain>();
    QVERIFY(Cornice.Area());
    Scena::ApriPosti(1);
    frmStudio& Scrivania = Apri();
    Scrivania.Form_Activate();
    Respiro();
    QVERIFY2(Cornice.isVisible(), "a note is open");
    InfoParcelle[1].Libera = true;
    Scrivania.Form_Activate();
    QVERIFY2(Cornice.isVisible(), "it may be closing its child still");
    QTRY_VERIFY(!Cornice.isVisible());
}

void TestFrmStudio::ordineDellAttivazione()
{
    Registratore Box;
    const QString Buona = sessione::PercorsoProg;
    frmStudio& Scrivania = Singola<frmStudio>();
    frmMain& Cornice = Singola<frmMain>();
    QVERIFY(Cornice.Area());
    sessione::PercorsoProg = NuovaCartella();
    ScriviFile(sessione::PercorsoProg + u"kr5.ini"_s, "[desktop]\r\nL0=A\r\nL0_c=/a\r\nL0_i=a.gif\r\n");
    sessione::ModoDebug = true;
    sessione::CercaAgg = true;
    sessione::ServerAggiornamenti = u"https://aggiorna.example"_s;
    const auto Segna = [&](const QString& Passo) {
        // What a step has put off is done before it is looked at.
        Respiro();
        S->Annota(u"%1: %2 personali, cornice %3"_s.arg(Passo)
                      .arg(Scrivania.NumeroIcone() - int(Fisse.size()))
                      .arg(Cornice.isVisible()));
    };
    Aperture.MostraTraccia = [this, &Scrivania](const QString& Testo) {
        S->Annota(u"%1: %2 personali"_s.arg(Testo.trimmed().section(u"- "_s, -1))
                      .arg(Scrivania.NumeroIcone() - int(Fisse.size())));
    };
    Aperture.Impostazioni = [&](int Scheda, bool) {
        Segna(u"impostazioni %1"_s.arg(Scheda));
        sessione::PercorsoProg = Buona;
    };
    Aperture.CercaAggiornamenti = [&] {
        Segna(u"aggiornamenti"_s);
        sessione::CercaAgg = false;
    };
    Aperture.OffriRecupero = [&] { S->Annota(u"recupero"_s); };
    Box.Attendi(u"Impostare la cartella dell'archivio parcelle!"_s, vbOK, u"Errore:"_s);
    // Hidden, it keeps what it shows until it is activated.
    Scrivania.SegnaRidisegno();
    Respiro();
    Apri();
    QCOMPARE(S->Eventi,
             (QStringList{u"avvio form programma: 0 personali"_s, u"impostazioni 2: 1 personali, cornice 1"_s,
                          u"aggiornamenti: 1 personali, cornice 0"_s, u"fine form programma: 1 personali"_s,
                          u"recupero"_s}));
}

void TestFrmStudio::nascostaSiRidisegnaTornando()
{
    sessione::PercorsoProg = ProgrammaConIcone("L0=A\r\nL0_c=/a\r\nL0_i=a.gif\r\n");
    frmStudio& Scrivania = Apri();
    QCOMPARE(Scrivania.NumeroIcone(), int(Fisse.size()) + 1);
    QWidget Altra;
    QVERIFY(MostraAttiva(Altra));
    Scrivania.hide();
    QVERIFY(QFile::remove(sessione::PercorsoProg + u"kr5.ini"_s));
    Scrivania.SegnaRidisegno();
    Respiro();
    QCOMPARE(Scrivania.NumeroIcone(), int(Fisse.size()) + 1);
    Apri();
    QCOMPARE(Scrivania.NumeroIcone(), int(Fisse.size()));
}

void TestFrmStudio::aggiornamentiUnaVolta()
{
    sessione::CercaAgg = true;
    sessione::ServerAggiornamenti = u"https://aggiorna.example"_s;
    // The search itself lowers the flag.
    Aperture.CercaAggiornamenti = [this] {
        S->Annota(u"aggiornamenti"_s);
        sessione::CercaAgg = false;
    };
    frmStudio& Scrivania = Apri();
    QTRY_COMPARE(S->Eventi, QStringList{u"aggiornamenti"_s});
    Scrivania.Form_Activate();
    QCOMPARE(S->Eventi.size(), 1);
    // A save of the settings brings the flag back, not the search.
    sessione::CercaAgg = true;
    Scrivania.Form_Activate();
    QCOMPARE(S->Eventi.size(), 1);
}

void TestFrmStudio::recuperoOffertoUnaVolta()
{
    Aperture.OffriRecupero = [this] {
        S->Annota(SeCaricato<frmStudio>->isVisible() ? u"recupero"_s : u"senza scrivania"_s);
    };
    frmStudio& Scrivania = Apri();
    QTRY_COMPARE(S->Eventi, QStringList{u"recupero"_s});
    Scrivania.hide();
    Scrivania.Mostra();
    (void)QTest::qWaitForWindowActive(&Scrivania);
    Respiro();
    QCOMPARE(S->Eventi.size(), 1);
}

void TestFrmStudio::traccia()
{
    frmStudio& Scrivania = Apri();
    const auto* Riquadro = Scrivania.findChild<QPlainTextEdit*>(u"txtTraceError"_s);
    QVERIFY(!Riquadro->isVisible());
    QCOMPARE(sessione::TestoDebug, QString());
    sessione::ModoDebug = true;
    Scrivania.Form_Activate();
    QVERIFY(Riquadro->isVisible());
    QCOMPARE(Riquadro->toPlainText(), u"FINESTRA DEBUG:\n- avvio form programma- fine form programma\n"_s);
}

void TestFrmStudio::tracciaPrimaDiUnErrore()
{
    Registratore Box;
    frmStudio& Scrivania = Apri();
    sessione::TestoDebug = u"- qualcosa"_s;
    Box.Attendi(u"Errore: "_s + DescrizioneErrore(7) + u" (7)"_s);
    GestioneErrori(Errore(7));
    QCOMPARE(Scrivania.findChild<QPlainTextEdit*>(u"txtTraceError"_s)->toPlainText(),
             u"FINESTRA DEBUG:\n- qualcosa"_s);
}

void TestFrmStudio::chiusura()
{
    const Registratore Box;
    frmStudio& Scrivania = Apri();
    Scena::ApriPosti(2);
    InfoParcelle[1].Modificata = true;
    Aperture.ChiudiParcella = [this](int) { return S->Annota(u"chiudi"_s) == 0; };
    Scrivania.close();
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
}

/// A card of the address book that is not saved keeps the program from ending.
void TestFrmStudio::chiusuraConLaRubricaAperta()
{
    const Registratore Box;
    frmStudio& Scrivania = Apri();
    bool Resta = true;
    Aperture.ChiudiRubriche = [&] {
        S->Annota(u"rubriche"_s);
        return !Resta;
    };
    Scrivania.close();
    QCOMPARE(S->Eventi, QStringList{u"rubriche"_s});
    QVERIFY(Scrivania.isVisible());
    Resta = false;
    Scrivania.close();
    QCOMPARE(S->Eventi, (QStringList{u"rubriche"_s, u"rubriche"_s, u"fine"_s}));
}

void TestFrmStudio::chiusuraSenzaImpostazioniScrivibili()
{
    const Registratore Box;
    frmStudio& Scrivania = Apri();
    QFile::remove(Scena::FileImpostazioni());
    QVERIFY(QDir().mkpath(Scena::FileImpostazioni() + u"/x"_s));
    Scrivania.close();
    QVERIFY(QDir(Scena::FileImpostazioni()).removeRecursively());
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
}

void TestFrmStudio::uscita()
{
    const Registratore Box;
    const frmStudio& Scrivania = Apri();
    QTest::mouseClick(Scrivania.findChild<QWidget*>(u"imgClose"_s), Qt::LeftButton);
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
}

void TestFrmStudio::ilPrimoFuocoEDellaPrimaIcona()
{
    const frmStudio& Scrivania = Apri();
    QCOMPARE(QApplication::focusWidget(), Scrivania.imgMenu(0));
}

void TestFrmStudio::unaSolaPrimaAttivazione()
{
    sessione::ModoDebug = true;
    frmStudio& Scrivania = Apri();
    QTRY_VERIFY(!sessione::TestoDebug.isEmpty());
    QTest::qWait(50);
    QCOMPARE(sessione::TestoDebug, u"- avvio form programma- fine form programma\n"_s);
    QVERIFY(Scrivania.isVisible());
}

void TestFrmStudio::laTracciaNonAllargaLaProssima()
{
    frmStudio& Scrivania = Apri();
    const QSize Prima = Scrivania.size();
    Aperture.MostraTraccia(u"FINESTRA DEBUG:\n- prova"_s);
    Respiro();
    QVERIFY(Scrivania.height() > Prima.height());
    Scrivania.close();
    QVERIFY2(Scena::Parametro(u"Posto_frmStudio"_s).isEmpty(), "nobody has touched it");
}

void TestFrmStudio::ricordaIlPosto()
{
    ProvaPosto(u"frmStudio"_s, [this] {
        frmStudio& Scrivania = Apri();
        Scrivania.Mostra();
        return &Scrivania;
    });
    frmStudio& Scrivania = Apri();
    SpostaDaUtente(Scrivania, QRect(12, 54, 700, 400));
    Aperture.MostraTraccia(u"FINESTRA DEBUG:\n- prova"_s);
    Respiro();
    Scrivania.close();
    QCOMPARE(Scena::Parametro(u"Posto_frmStudio"_s), u"12,54,700,400"_s);
}

void TestFrmStudio::laPrimaAttivazioneFinisceUnaVolta()
{
    Registratore Box;
    sessione::StudioNome.clear();
    Box.Tollera();
    const ChiudeImpostazioni Chiude([this] { S->Annota(u"impostazioni chiuse"_s); });
    QObject::connect(&Singola<frmStudio>(), &frmStudio::PrimaAttivazione, this,
                     [this] { S->Annota(u"pronta"_s); });
    frmStudio& Scrivania = Apri();
    QTRY_COMPARE(S->Eventi, (QStringList{u"impostazioni chiuse"_s, u"pronta"_s}));
    sessione::StudioNome = u"Studio Bianchi"_s;
    Scrivania.Form_Activate();
    QCOMPARE(S->Eventi.size(), 2);
}

#include "TestFrmStudio.moc"
