#include "scena.h"

#include "core/aperture.h"
#include "core/app/avvio.h"
#include "core/app/paginaavviso.h"
#include "platform/base/numerierrore.h"
#include "platform/system/aparte.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/percorsi.h"
#include "supporto/cartellaferma.h"
#include "supporto/danni.h"

#include <QDir>
#include <QScopeGuard>
#include <QSysInfo>

#include <memory>

class TestMain : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void basso();
    void bassoConFinestra();
    void bassoOffreIlRecupero();
    void impostazioniDellaCompagnaGuaste_data();
    void impostazioniDellaCompagnaGuaste();
    void normale_data();
    void normale();
    void fileNominato_data();
    void fileNominato();
    void comandoNominato_data();
    void comandoNominato();
    void richiestaNuova();
    void richiestaIlleggibile_data();
    void richiestaIlleggibile();
    void richiestaConUnNumeroIlleggibile();
    void richiestaSuFile();
    void richiestaIgnota_data();
    void richiestaIgnota();
    void aggiornamentiPrimaDellaRichiesta_data();
    void aggiornamentiPrimaDellaRichiesta();
    void avviso();
    void avvisoLetto_data();
    void avvisoLetto();
    void avvisoTornaSenzaMarcatore();
    void impostazioniDanneggiate();
    void percorsoDelProgrammaPrecedente();
    void leNoteSuUnaReteMuta();
    void iRestiDegliUccisi();

private:
    QString
        Programma;  ///< a folder of the test's own: the built one has a marker once its user ticked the box
    std::unique_ptr<Scena> S;
    QList<PaginaAvviso> Avvisi;
};
PROVA(TestMain);

namespace {

constexpr int AttesaMs = 10000;

bool ScrivaniaVisibile()
{
    return SeCaricato<frmStudio> && SeCaricato<frmStudio>->isVisible();
}

}  // namespace

void TestMain::init()
{
    S = std::make_unique<Scena>();
    Avvisi.clear();
    Programma = NuovaCartella();
    const QString Tariffa = u"parcelle.mdb"_s;
    QVERIFY(QFile::link(ProgrammaDiProva() + Tariffa, Programma + Tariffa));
    Scena::Salva(u"PercorsoProcedura"_s, Programma);
    Scena::Salva(u"StudioNome"_s, u"Studio Bianchi"_s);
    Scena::Salva(u"CercaAgg"_s, u"N"_s);
    SaveSetting(u"Praxivo"_s, u"Parametri"_s, u"CartellaLocale"_s, u"/praxivo/locale"_s);
    SaveSetting(u"Praxivo"_s, u"Parametri"_s, u"ArchivioPrat"_s, u"/praxivo/pratiche.mdb"_s);
    Aperture.ApriParcella = [this](const QString& Percorso, int Socio, const QString& ID) {
        S->Annota(u"parcella [%1] %2 [%3] %4"_s.arg(Percorso).arg(Socio).arg(ID, sessione::CartellaLocale));
    };
    Aperture.Avviso = [this](const PaginaAvviso& Pagina) { Avvisi << Pagina; };
    Aperture.CercaAggiornamenti = [this] { S->Annota(u"aggiornamenti"_s); };
}

void TestMain::cleanup()
{
    S.reset();
}

void TestMain::basso()
{
    const Registratore Box;
    Main(u"-low"_s);
    QVERIFY(sessione::ModoLow);
    QVERIFY(!SeCaricato<frmStudio>);
    // No window came up, so that nothing would end the process later.
    QCOMPARE(S->Eventi, (QStringList{u"parcella [] 0 [] "_s, u"fine"_s}));
    QVERIFY(Avvisi.isEmpty());
}

void TestMain::bassoConFinestra()
{
    const Registratore Box;
    QWidget Nota;
    Aperture.ApriParcella = [&](const QString&, int, const QString&) { Nota.show(); };
    Main(u"-low"_s);
    QCOMPARE(S->Eventi, QStringList());
}

void TestMain::bassoOffreIlRecupero()
{
    // No desktop will come up to offer it; the other starts leave it to the desktop.
    const Registratore Box;
    Aperture.OffriRecupero = [this] { S->Annota(u"recupero"_s); };
    Main(u"-low"_s);
    QCOMPARE(S->Eventi, (QStringList{u"parcella [] 0 [] "_s, u"recupero"_s, u"fine"_s}));
    S->Eventi.clear();
    sessione::ModoLow = false;
    Main(u"PV2|E|/nota.mdb"_s);
    QCOMPARE(S->Eventi, (QStringList{u"parcella [/nota.mdb] 0 [] "_s, u"fine"_s}));
}

void TestMain::impostazioniDellaCompagnaGuaste_data()
{
    QTest::addColumn<int>("Come");
    for (const int Come : DanniVisibili())
        if (Come != Troncato)  // another program's text has no mark of its end
            QTest::newRow(NomiDanni[size_t(Come)]) << Come;
}

/// Her folder and her archive are not known: who does not hear it hands his invoices to nobody.
void TestMain::impostazioniDellaCompagnaGuaste()
{
    QFETCH(int, Come);
    const QString File = PercorsoImpostazioni(u"Praxivo"_s);
    const QByteArray Sano = LeggiFile(File);
    Rovina(File, Come);
    Registratore Box;
    Box.Tollera();
    Main(u"PV2|E|/nota.mdb"_s);
    QCOMPARE(S->Eventi, (QStringList{u"parcella [/nota.mdb] 0 [] "_s, u"fine"_s}));
    QCOMPARE(sessione::ArchivioPrat, QString());
    if (Come == Cartella)
        QVERIFY(QDir().rmdir(File));
    else
        QVERIFY(QFile::remove(File));
    QCOMPARE(Box.Mostrati().size(), 1);
    QVERIFY2(Box.UltimoTesto().count(File) == 1, qPrintable(Box.UltimoTesto()));
}

void TestMain::normale_data()
{
    QTest::addColumn<QString>("Riga");
    QTest::addColumn<bool>("Debug");

    QTest::newRow("no arguments") << u""_s << false;
    QTest::newRow("low in capitals") << u"-LOW"_s << false;
    QTest::newRow("low with a blank behind") << u"-low "_s << false;
    QTest::newRow("low with a blank in front") << u" -low"_s << false;
    QTest::newRow("low and more") << u"-low debug"_s << false;
    QTest::newRow("debug") << u"debug"_s << true;
    QTest::newRow("debug in capitals") << u"DEBUG"_s << true;
    QTest::newRow("a word that begins so") << u"debugging now"_s << true;
    QTest::newRow("debug with a blank in front") << u" debug"_s << false;
    QTest::newRow("four of its letters") << u"debu"_s << false;
    QTest::newRow("request in small letters") << u"pv2|N|P|1|2|3|4|5|6|"_s << false;
    QTest::newRow("request with a blank in front") << u" PV2|N|P|1|2|3|4|5|6|"_s << false;
    QTest::newRow("request without its bar") << u"PV2"_s << false;
}

void TestMain::normale()
{
    QFETCH(QString, Riga);
    const Registratore Box;
    Main(Riga);
    QVERIFY(ScrivaniaVisibile());
    QVERIFY(!SeCaricato<frmMain>);
    QVERIFY(!sessione::ModoLow);
    QTEST(sessione::ModoDebug, "Debug");
    QCOMPARE(S->Eventi, QStringList());
    QCOMPARE(sessione::ArchivioPrat, QString());
}

void TestMain::fileNominato_data()
{
    QTest::addColumn<QString>("Riga");
    QTest::addColumn<bool>("Apre");

    QTest::newRow("whole path") << u"%1nota.mdb"_s << true;
    QTest::newRow("blanks and accents") << u"%1Però già così.mdb"_s << true;
    QTest::newRow("from the folder at hand") << u"nota.mdb"_s << true;
    QTest::newRow("from the folder above") << u"../%2/nota.mdb"_s << true;
    QTest::newRow("no ending") << u"%1senza"_s << true;
    QTest::newRow("no file") << u"%1manca.mdb"_s << false;
    QTest::newRow("a folder") << u"%1cartella"_s << false;
    QTest::newRow("a blank behind") << u"%1nota.mdb "_s << false;
    QTest::newRow("two files") << u"%1nota.mdb %1senza"_s << false;
    QTest::newRow("a word that begins with debug") << u"debug.mdb"_s << false;
    QTest::newRow("the same with its folder") << u"./debug.mdb"_s << true;
    QTest::newRow("called as the low mode") << u"-low"_s << false;
}

void TestMain::fileNominato()
{
    QFETCH(QString, Riga);
    QFETCH(bool, Apre);
    const QString Note = NuovaCartella();
    for (const QString& Nome :
         {u"nota.mdb"_s, u"Però già così.mdb"_s, u"senza"_s, u"debug.mdb"_s, u"-low"_s, u"PV2|X"_s})
        ScriviFile(Note + Nome, "x");
    CreaCartella(Note + u"cartella"_s);
    const QString Prima = QDir::currentPath();
    const auto Ritorna = qScopeGuard([&] { QDir::setCurrent(Prima); });
    QVERIFY(QDir::setCurrent(Note));
    const Registratore Box;
    Riga.replace(u"%1"_s, Note).replace(u"%2"_s, QFileInfo(Note.chopped(1)).fileName());
    Main(Riga);
    if (!Apre) {
        for (const QString& Evento : std::as_const(S->Eventi))
            QVERIFY2(!Evento.startsWith(u"parcella [/"), qPrintable(Evento));
        return;
    }
    // As the companion's request for a file: the same note, the same settings read behind it, no desktop.
    const QString File = QDir::cleanPath(QDir(Note).absoluteFilePath(Riga));
    QCOMPARE(S->Eventi.size(), 2);
    const QString Aperto = S->Eventi[0].section(u'[', 1).section(u']', 0, 0);
    QVERIFY(QFileInfo(Aperto).isAbsolute());
    QCOMPARE(QDir::cleanPath(Aperto), File);
    QCOMPARE(S->Eventi[1], u"fine"_s);  // no window came up
    QCOMPARE(sessione::ArchivioPrat, u"/praxivo/pratiche.mdb"_s);
    QVERIFY(!SeCaricato<frmStudio>);
    QVERIFY(!sessione::ModoDebug);
}

void TestMain::comandoNominato_data()
{
    QTest::addColumn<QString>("Riga");
    QTest::addColumn<QString>("Aperta");

    QTest::newRow("terms") << u"--comando termini"_s << u"termini"_s;
    QTest::newRow("interest") << u"--comando inter"_s << u"inter"_s;
    QTest::newRow("a word without an icon") << u"--comando off"_s << u""_s;
    QTest::newRow("no word") << u"--comando"_s << u""_s;
    QTest::newRow("an unknown word") << u"--comando parcelle"_s << u""_s;
    QTest::newRow("two words") << u"--comando termini inter"_s << u""_s;
    QTest::newRow("the word alone") << u"termini"_s << u""_s;
}

void TestMain::comandoNominato()
{
    // The desktop as ever; behind its own questions what the icon opens.
    QFETCH(QString, Riga);
    QFETCH(QString, Aperta);
    const Registratore Box;
    for (const QString& Parola : {u"termini"_s, u"inter"_s, u"off"_s})
        Aperture.Finestre[Parola] = [this, Parola] { S->Annota(Parola); };
    Main(Riga);
    QVERIFY(ScrivaniaVisibile());
    QTRY_COMPARE(Avvisi.size(), 1);
    Respiro();
    QCOMPARE(S->Eventi, Aperta.isEmpty() ? QStringList() : QStringList{Aperta});
}

void TestMain::richiestaNuova()
{
    const Registratore Box;
    Main(u"PV2|N|P12|1|2|1500,5|7|8|3|"_s);
    QCOMPARE(S->Eventi, (QStringList{u"parcella [] 0 [P12] "_s, u"fine"_s}));
    QVERIFY(sessione::RichiestaPV2 == (Richiesta{u"P12"_s, 1, 2, 1500.5, 7, 8, 3}));
    QCOMPARE(sessione::CartellaLocale, Barra(u"/praxivo/locale"_s));
    QCOMPARE(sessione::ArchivioPrat, u"/praxivo/pratiche.mdb"_s);
    QVERIFY(!SeCaricato<frmStudio>);
    QCOMPARE(Avvisi.size(), 1);
}

void TestMain::richiestaIlleggibile_data()
{
    QTest::addColumn<QString>("Riga");

    QTest::newRow("six fields") << u"PV2|N|P12|1|2|1500|7|8|"_s;
    QTest::newRow("last field not closed") << u"PV2|N|P12|1|2|1500|7|8|3"_s;
    QTest::newRow("nothing behind the letter") << u"PV2|N"_s;
}

void TestMain::richiestaIlleggibile()
{
    QFETCH(QString, Riga);
    Registratore Box;
    Box.Attendi(u"Errore di automazione programma VDM!"_s, vbOK, u"Calcanova"_s);
    Main(Riga);
    QCOMPARE(Box.Mostrato(0).Bandiere, vbOKOnly);
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    QCOMPARE(sessione::ArchivioPrat, QString());
    QVERIFY(Avvisi.isEmpty());
    QVERIFY(!SeCaricato<frmStudio>);
}

void TestMain::richiestaConUnNumeroIlleggibile()
{
    Registratore Box;
    Box.Attendi(u"Errore: "_s + DescrizioneErrore(13) + u" (13)"_s, vbOK, u"Errore:"_s);
    Box.Attendi(u"Errore di automazione programma VDM!"_s, vbOK, u"Calcanova"_s);
    Main(u"PV2|N|P12|civile|2|1500|7|8|3|"_s);
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    QVERIFY(sessione::RichiestaPV2 == Richiesta());
}

void TestMain::richiestaSuFile()
{
    const Registratore Box;
    Main(u"PV2|E|/note/rossi contro bianchi.mdb"_s);
    QCOMPARE(S->Eventi, (QStringList{u"parcella [/note/rossi contro bianchi.mdb] 0 [] "_s, u"fine"_s}));
    QCOMPARE(sessione::RichiestaPV2.ID, QString());
    QCOMPARE(sessione::ArchivioPrat, u"/praxivo/pratiche.mdb"_s);
    QVERIFY(!SeCaricato<frmStudio>);
}

void TestMain::richiestaIgnota_data()
{
    QTest::addColumn<QString>("Riga");

    QTest::newRow("another letter") << u"PV2|X|P12|1|2|3|4|5|6|"_s;
    QTest::newRow("small letter") << u"PV2|n|P12|1|2|3|4|5|6|"_s;
    QTest::newRow("no letter") << u"PV2|"_s;
}

void TestMain::richiestaIgnota()
{
    QFETCH(QString, Riga);
    const Registratore Box;
    Main(Riga);
    QCOMPARE(S->Eventi, QStringList{u"fine"_s});
    QCOMPARE(sessione::CartellaLocale, Barra(u"/praxivo/locale"_s));
    QCOMPARE(sessione::ArchivioPrat, u"/praxivo/pratiche.mdb"_s);
    QCOMPARE(Avvisi.size(), 1);
    QVERIFY(!SeCaricato<frmStudio>);
}

void TestMain::aggiornamentiPrimaDellaRichiesta_data()
{
    QTest::addColumn<bool>("Connesso");
    QTest::addColumn<QString>("CercaAgg");
    QTest::addColumn<QString>("Server");
    QTest::addColumn<bool>("Cerca");

    const QString Uno = u"https://aggiorna.example"_s;
    QTest::newRow("wanted and connected") << true << u"S"_s << Uno << true;
    QTest::newRow("not connected") << false << u"S"_s << Uno << false;
    QTest::newRow("not wanted") << true << u"N"_s << Uno << false;
    QTest::newRow("no server is named") << true << u"S"_s << u""_s << false;
}

void TestMain::aggiornamentiPrimaDellaRichiesta()
{
    QFETCH(QString, CercaAgg);
    QFETCH(bool, Cerca);
    const Registratore Box;
    QFETCH(bool, Connesso);
    S->Connesso = Connesso;
    Scena::Salva(u"CercaAgg"_s, CercaAgg);
    QFETCH(QString, Server);
    Scena::Salva(u"ServerAggiornamenti"_s, Server);
    Main(u"PV2|E|/nota.mdb"_s);
    QStringList Attesi{u"parcella [/nota.mdb] 0 [] "_s, u"fine"_s};
    if (Cerca)
        Attesi.prepend(u"aggiornamenti"_s);
    QCOMPARE(S->Eventi, Attesi);
}

void TestMain::avviso()
{
    const Registratore Box;
    Main(u""_s);
    QTRY_COMPARE(Avvisi.size(), 1);
    QCOMPARE(Avvisi[0].Pagina, Programma + u"avvisokr6.htm"_s);
    QCOMPARE(Avvisi[0].Titolo, u"KR5 - Avviso agli abbonati"_s);
    QCOMPARE(Avvisi[0].Marcatore, u"avvisokr5"_s);
    QCOMPARE(Avvisi[0].LarghezzaTwip, 10200);
    QCOMPARE(Avvisi[0].AltezzaTwip, 7600);
}

void TestMain::avvisoLetto_data()
{
    QTest::addColumn<QString>("Dove");
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<bool>("Mostra");

    QTest::newRow("no marker") << u""_s << u""_s << true;
    QTest::newRow("beside the program") << u"PercorsoProcedura"_s << u"avvisokr5.ini"_s << false;
    QTest::newRow("in the user folder") << u"UserFolder"_s << u"avvisokr5.ini"_s << false;
    QTest::newRow("in other letters") << u"UserFolder"_s << u"AVVISOKR5.INI"_s << false;
    QTest::newRow("another file") << u"UserFolder"_s << u"avvisokr6.ini"_s << true;
}

void TestMain::avvisoLetto()
{
    QFETCH(QString, Dove);
    QFETCH(QString, Nome);
    QFETCH(bool, Mostra);
    const Registratore Box;
    for (const QString& Chiave : {u"PercorsoProcedura"_s, u"UserFolder"_s}) {
        const QString Cartella = NuovaCartella();
        Scena::Salva(Chiave, Cartella);
        if (Chiave == Dove)
            ScriviFile(Cartella + Nome, {});
    }
    Main(u"PV2|X"_s);
    QCOMPARE(Avvisi.size(), Mostra ? 1 : 0);
}

void TestMain::avvisoTornaSenzaMarcatore()
{
    const Registratore Box;
    const QString Utente = NuovaCartella();
    Scena::Salva(u"UserFolder"_s, Utente);
    // What stands in the marker is never read.
    ScriviFile(Utente + u"avvisokr5.ini"_s, QByteArray(100, '\0'));
    Main(u"PV2|X"_s);
    QCOMPARE(Avvisi.size(), 0);
    QVERIFY(QFile::remove(Utente + u"avvisokr5.ini"_s));
    Main(u"PV2|X"_s);
    QCOMPARE(Avvisi.size(), 1);
}

void TestMain::impostazioniDanneggiate()
{
    // Not one message: what can be read holds, the rest is as at the first use.
    const Registratore Box;
    ScriviFile(Scena::FileImpostazioni(),
               "[Parametri]\npercorsoprocedura=" + Programma.toUtf8() +
                   "\nstudionome=Bianchi\ncercaagg=N\n\xFF\xFE[[=\niva=ventidue\nstudioi");
    Main(u""_s);
    QVERIFY(ScrivaniaVisibile());
    QCOMPARE(sessione::StudioNome, u"Bianchi"_s);
    QCOMPARE(sessione::IVA, 21.0F);
    QCOMPARE(Scena::Parametro(u"StudioNome"_s), u"Bianchi"_s);
    QVERIFY(EsisteCartella(Scena::Parametro(u"UserFolder"_s)));
}

/// A share whose server is gone holds whoever lists it: the start does not wait for it, and sweeps there when
/// it answers.
void TestMain::leNoteSuUnaReteMuta()
{
    const Registratore Box;
    const QString Note = NuovaCartella();
    const QString Resto = Note + u".~vecchia.mdb.tmp"_s;
    ScriviFile(Resto, "a meta'");
    Scena::Salva(u"ParcellePath"_s, Note);
    QVERIFY(AttendiLavoriAParte(AttesaMs));
    {
        const CartellaFerma Rete(Note);
        Main(u""_s);
        QVERIFY(ScrivaniaVisibile());
        QTRY_VERIFY(Rete.Attesa());
        QVERIFY(!AttendiLavoriAParte(0));
        QVERIFY(EsisteFile(Resto));
    }
    QVERIFY(AttendiLavoriAParte(AttesaMs));
    QVERIFY(!EsisteFile(Resto));
}

/// Beside notes, archive, rates and icons: whatever the next start would find again and again.
void TestMain::iRestiDegliUccisi()
{
    const Registratore Box;
    const QString Archivio = Scena::AllestisciStudio();
    Scena::Salva(u"PercorsoProcedura"_s, Programma);
    const QString Note = NuovaCartella();
    Scena::Salva(u"ParcellePath"_s, Note);
    const QString Utente = Scena::Parametro(u"UserFolder"_s);
    const QByteArray DiUnMorto = "99999999\ncalcanova\n" + QSysInfo::machineHostName().toUtf8() + "\n";
    const QStringList Resti{Utente + u".~kr5.ini.lock"_s,
                            Utente + u".~Tassi.dat.turno"_s,
                            Utente + u".~Tassi.dat.tmp-journal"_s,
                            Archivio + u".prima.blocco"_s,
                            Archivio + u".prima.2"_s,
                            CartellaFile(Archivio) + u".~DatiStudio.mdb.turno"_s,
                            CartellaFile(Archivio) + u".~DatiStudio.mdb.tmp"_s,
                            Note + u".~nota.mdb.tmp"_s,
                            Note + u".~99999999.vecchia.mdb.tmp.letto"_s,
                            Utente + u"DatiStudio.mdb.nuovo"_s,
                            Utente + u".~99999999.DatiStudio.mdb.nuovo.tmp"_s,
                            CartellaDati() + u"importa/%1.mdb"_s.arg(QString(32, u'a'))};
    CreaCartellaPrivata(CartellaDati() + u"importa"_s);
    for (const QString& Resto : Resti)
        ScriviFile(Resto, DiUnMorto);
    const QByteArray Prima = LeggiFile(Archivio);
    Main(u""_s);
    QVERIFY(AttendiLavoriAParte(AttesaMs));
    for (const QString& Resto : Resti)
        QVERIFY2(!EsisteFile(Resto), qPrintable(Resto));
    QCOMPARE(LeggiFile(Archivio), Prima);
}

void TestMain::percorsoDelProgrammaPrecedente()
{
    const Registratore Box;
    SaveSetting(u"VDM2"_s, u"Parametri"_s, u"PercorsoProcedura"_s, u"/vdm2"_s);
    Main(u"PV2|X"_s);
    QCOMPARE(sessione::PercorsoVDM, Barra(u"/vdm2"_s));
}

#include "TestMain.moc"
