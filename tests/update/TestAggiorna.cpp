// The check: what versioni.txt leaves in the session, what is said of it.
#include "banco.h"
#include "supporto/guasti.h"

#include "core/impostazioni.h"
#include "core/indirizzi.h"
#include "core/modErrori.h"
#include "core/parametri.h"
#include "core/versione.h"

#include <QScopeGuard>

class TestAggiorna : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void controllo_data();
    void controllo();
    void iValoriDiPrimaNonRestano();
    void versioneIllegibileInSilenzio();
    void nonSiSalva_data();
    void nonSiSalva();
    void laCartellaSiCrea();
    void senzaConnessioneRestaIlFileDiPrima();
    void serverOstile_data();
    void serverOstile();
    void daUnaCartella();
    void cartellaSenzaElenco();
    void gliAvanziVecchiVannoVia();
    void tassiVecchi_data();
    void tassiVecchi();
    void tassiMancanti();
    void tassiInMaiuscolo();
    void ricercaFallita();
    void proposta_data();
    void proposta();
    void laTraccia();
    void unSoloServer_data();
    void unSoloServer();

private:
    std::unique_ptr<BancoAggiornamenti> B;
};
PROVA(TestAggiorna);

namespace {

const QString VersioneIllegibile =
    u"Errore (Invalid Version) nel recupero delle informazioni di aggiornamento."_s;

}  // namespace

void TestAggiorna::init()
{
    B = std::make_unique<BancoAggiornamenti>();
}

void TestAggiorna::cleanup()
{
    B.reset();
}

void TestAggiorna::controllo_data()
{
    QTest::addColumn<QByteArray>("File");
    QTest::addColumn<bool>("Riuscito");
    QTest::addColumn<QString>("Versione");
    QTest::addColumn<bool>("Illegibile");

    const auto Riga = [](const char* Nome, const QByteArray& File, bool Riuscito, const QString& Versione,
                         bool Illegibile = false) {
        QTest::newRow(Nome) << File << Riuscito << Versione << Illegibile;
    };
    Riga("stated", "versione=[3.0.15]\r\n01/12/2026\r\nnota=x\r\n", true, u"3.0.15"_s);
    Riga("the first line is empty", "\n01/12/2026\nnota=x", true, u""_s);
    Riga("no date", "versione=[3.0.15]\ndomani mattina\nnota=x", false, u"3.0.15"_s);
    Riga("one line", "versione=[3.0.15]", false, u"3.0.15"_s);
    Riga("no file at all", "", false, u""_s);
    Riga("a page", "<html><body>Not found</body></html>\n01/12/2026\nnota=x", false, u""_s, true);
    Riga("not closed", "versione=[3.0.15\n01/12/2026\nnota=x", false, u""_s, true);
    Riga("a path in the version", "versione=[3.0.15/../../x]\n01/12/2026\nnota=x", false, u""_s, true);
    Riga("one line of 64 KiB", QByteArray(MassimoVersioni, 'x'), false, u""_s, true);
}

void TestAggiorna::controllo()
{
    QFETCH(QByteArray, File);
    QFETCH(QString, Versione);
    QFETCH(bool, Riuscito);
    QFETCH(bool, Illegibile);
    B->Annunciate(File, false);
    if (Illegibile)
        B->Voce.Attendi(VersioneIllegibile, vbOK, u"Errore:"_s);
    if (File.isEmpty())
        B->Voce.Attendi(u"Il file \"versioni.txt\" è vuoto o danneggiato."_s, vbOK, u"Avvertenza:"_s);
    Annuncio Trovato;
    QCOMPARE(ControlloVersioni(DalServer(), true, Trovato), Riuscito);
    QCOMPARE(sessione::VersioneDisp, Versione);
    QCOMPARE(sessione::DataTassiDisp.has_value(), Riuscito);
    QCOMPARE(sessione::NotaAgg, Riuscito ? u"x"_s : sessione::NotaAgg);
    QCOMPARE(LeggiFile(sessione::UserFolder + u"versioni.txt"_s), File);
    QCOMPARE(Trovato.Byte, File);
    QCOMPARE(B->Clessidre, u"+-"_s);
    QCOMPARE(B->Avanzi(), QStringList());
}

void TestAggiorna::iValoriDiPrimaNonRestano()
{
    Annuncio Trovato;
    B->Annunciate(TutteNuove);
    QVERIFY(ControlloVersioni(DalServer(), true, Trovato));
    QCOMPARE(sessione::NotaAgg, u"Nuovi tassi"_s);
    B->Server.Ferma();
    QVERIFY(!ControlloVersioni(DalServer(), false, Trovato));
    QCOMPARE(sessione::VersioneDisp, QString());
    QCOMPARE(sessione::NotaAgg, QString());
    QVERIFY(!sessione::DataTassiDisp);
    QVERIFY(Trovato.Byte.isEmpty());
}

void TestAggiorna::versioneIllegibileInSilenzio()
{
    B->Annunciate("<html>", false);
    Annuncio Trovato;
    QVERIFY(!ControlloVersioni(DalServer(), false, Trovato));
    QVERIFY(B->Voce.Mostrati().isEmpty());
    QCOMPARE(B->Clessidre, u"+-"_s);
}

void TestAggiorna::nonSiSalva_data()
{
    QTest::addColumn<bool>("Interattivo");
    QTest::newRow("asked for") << true;
    QTest::newRow("silent") << false;
}

void TestAggiorna::nonSiSalva()
{
    QFETCH(bool, Interattivo);
    B->Annunciate(TutteNuove);
    // Nothing can take the place of a folder that holds something.
    CreaCartella(sessione::UserFolder + u"versioni.txt/piena"_s);
    if (Interattivo)
        B->Voce.Attendi(u"Errore nel salvataggio del file delle versioni."_s, vbOK, u"Avvertenza:"_s);
    Annuncio Trovato;
    QVERIFY(!ControlloVersioni(DalServer(), Interattivo, Trovato));
    if (Interattivo)
        QCOMPARE(B->Voce.Mostrato(0).Bandiere, vbExclamation);
    QCOMPARE(B->Avanzi(), QStringList());
}

void TestAggiorna::laCartellaSiCrea()
{
    B->Annunciate(TutteNuove);
    sessione::UserFolder = NuovaCartella() + u"non/ancora"_s;  // and no separator at its end
    Annuncio Trovato;
    QVERIFY(ControlloVersioni(DalServer(), true, Trovato));
    QVERIFY(EsisteFile(sessione::UserFolder + u"/versioni.txt"_s));
}

void TestAggiorna::senzaConnessioneRestaIlFileDiPrima()
{
    ScriviFile(sessione::UserFolder + u"versioni.txt"_s, "prima");
    B->Server.Ferma();
    B->Voce.Attendi(SenzaConnessione, vbOK, u"Errore:"_s);
    Annuncio Trovato;
    QVERIFY(!ControlloVersioni(DalServer(), true, Trovato));
    QCOMPARE(LeggiFile(sessione::UserFolder + u"versioni.txt"_s), "prima"_ba);
    QCOMPARE(B->Clessidre, u"+-"_s);
}

void TestAggiorna::serverOstile_data()
{
    QTest::addColumn<QString>("Modo");
    QTest::addColumn<QString>("Messaggio");

    for (const char* Modo : {"spezza", "infinito", "enorme", "altrove", "rinvia4", "chiude"})
        QTest::newRow(Modo) << QString::fromLatin1(Modo) << SenzaConnessione;
    for (const char* Modo : {"pagina404", "pagina500", "chiave"})
        QTest::newRow(Modo) << QString::fromLatin1(Modo) << VersioneIllegibile;
}

void TestAggiorna::serverOstile()
{
    QFETCH(QString, Modo);
    QFETCH(QString, Messaggio);
    B->Annunciate(TutteNuove);
    B->Voce.Attendi(Messaggio, vbOK, u"Errore:"_s);
    Annuncio Trovato;
    QVERIFY(!ControlloVersioni({B->Server.Indirizzo(Modo), {}}, true, Trovato));
    QCOMPARE(B->Avanzi(), QStringList());
    QCOMPARE(sessione::VersioneDisp, QString());
    QVERIFY(!sessione::DataTassiDisp);
}

void TestAggiorna::daUnaCartella()
{
    B->Annunciate(TutteNuove);
    Annuncio Trovato;
    QVERIFY(ControlloVersioni(B->Cartella(), true, Trovato));
    QCOMPARE(sessione::VersioneDisp, u"3.0.15"_s);
    QVERIFY(B->Server.Uditi().isEmpty());
    QCOMPARE(B->Avanzi(), QStringList());
}

void TestAggiorna::cartellaSenzaElenco()
{
    Annuncio Trovato;
    QVERIFY(NumeroErrore([&] { (void)ControlloVersioni(B->Cartella(), true, Trovato); }) != 0);
    QCOMPARE(B->Clessidre, u"+-"_s);
}

void TestAggiorna::gliAvanziVecchiVannoVia()
{
    B->Annunciate(TutteNuove);
    CreaCartella(CartellaUpgrade());
    const QString Vecchio = sessione::UserFolder + u"Tassi.dat.999999977-1.parziale"_s;
    const QString Futuro = CartellaUpgrade() + u"upgrade3.0.15.exe.999999977-2.parziale"_s;
    const QString Vivo = sessione::UserFolder + u"Tassi.dat.999999978-1.parziale"_s;
    const QString DellUtente = sessione::UserFolder + u"Relazione.parziale"_s;
    // Whole by now and with the date of its content, which is old: its program is about to put it in place.
    const QString Finito = Provvisorio(sessione::UserFolder + u"Tassi.dat"_s);
    for (const QString& File : {Vecchio, Futuro, Vivo, DellUtente, Finito})
        ScriviFile(File, "meta'");
    for (const QString& File : {Vecchio, DellUtente, Finito})
        ImpostaDataFile(File, QDateTime::currentDateTime().addSecs(-120));
    ImpostaDataFile(Futuro, QDateTime::currentDateTime().addYears(1));
    Annuncio Trovato;
    QVERIFY(ControlloVersioni(DalServer(), true, Trovato));
    QStringList Rimasti = B->Avanzi();
    Rimasti.sort();
    QStringList Attesi{NomeFile(DellUtente), NomeFile(Vivo), NomeFile(Finito)};
    Attesi.sort();
    QCOMPARE(Rimasti, Attesi);
}

void TestAggiorna::tassiVecchi_data()
{
    QTest::addColumn<QDateTime>("Archivio");
    QTest::addColumn<std::optional<QDate>>("Server");
    QTest::addColumn<bool>("Vecchi");

    const std::optional<QDate> Primo(QDate(2026, 12, 1));
    const auto Quando = [](int Mese, int Giorno, int Ora) {
        return QDateTime(QDate(2026, Mese, Giorno), QTime(Ora, 59));
    };
    QTest::newRow("the day before, late") << Quando(11, 30, 23) << Primo << true;
    QTest::newRow("the same day, early") << Quando(12, 1, 0) << Primo << false;
    QTest::newRow("the day after") << Quando(12, 2, 0) << Primo << false;
    QTest::newRow("nothing announced") << Quando(1, 1, 0) << std::optional<QDate>() << false;
}

void TestAggiorna::tassiVecchi()
{
    QFETCH(QDateTime, Archivio);
    QFETCH(std::optional<QDate>, Server);
    ImpostaDataFile(B->Archivio(), Archivio);
    QTEST(TassiVecchi(Server), "Vecchi");
}

void TestAggiorna::tassiMancanti()
{
    QVERIFY(QFile::remove(B->Archivio()));
    B->Voce.Attendi(u"Errore: archivio Indici Istat non trovato nella cartella "_s + sessione::UserFolder,
                    vbOK, u"Avvertenza:"_s);
    QVERIFY(!TassiVecchi(QDate(2026, 12, 1)));
    QCOMPARE(B->Voce.Mostrato(0).Bandiere, vbExclamation);
}

void TestAggiorna::tassiInMaiuscolo()
{
    QVERIFY(QFile::rename(B->Archivio(), sessione::UserFolder + u"TASSI.DAT"_s));
    QVERIFY(TassiVecchi(QDate(2026, 12, 1)));
}

void TestAggiorna::ricercaFallita()
{
    B->Voce.Attendi(u"Se la postazione non è mai collegata ad internet, è possibile disattivare la ricerca "
                    u"automatica degli aggiornamenti nel pannello \"Personalizzazioni programma->Setup\""_s,
                    vbOK, u"Messaggio:"_s);
    DiRicercaFallita();
}

void TestAggiorna::proposta_data()
{
    QTest::addColumn<QString>("Versione");
    QTest::addColumn<std::optional<QDate>>("Data");
    QTest::addColumn<QString>("Nota");
    QTest::addColumn<QString>("Domanda");
    QTest::addColumn<int>("Risposta");

    const QString Ci = u"Sono presenti dei nuovi aggiornamenti del programma."_s;
    const QString Vuoi = u"\nVuoi procedere con l'aggiornamento?"_s;
    const std::optional<QDate> Vecchia(QDate(2026, 1, 1));
    const std::optional<QDate> Nuova(QDate(2026, 12, 1));
    QTest::newRow("the program") << u"3.0.15"_s << Vecchia << u""_s << Ci + Vuoi << vbYes;
    QTest::newRow("the rates") << u"3.0.14"_s << Nuova << u""_s << Ci + Vuoi << vbNo;
    QTest::newRow("both, with a note")
        << u"3.0.15"_s << Nuova << u"<b>Nuovi</b> tassi"_s << Ci + u"\n<b>Nuovi</b> tassi"_s + Vuoi << vbYes;
    QTest::newRow("neither") << u"3.0.14"_s << Vecchia << u"Nota"_s << u""_s << vbNo;
    QTest::newRow("no version") << u""_s << Vecchia << u""_s << u""_s << vbNo;
}

void TestAggiorna::proposta()
{
    QFETCH(QString, Domanda);
    QFETCH(int, Risposta);
    QFETCH(QString, Versione);
    QFETCH(std::optional<QDate>, Data);
    QFETCH(QString, Nota);
    sessione::VersioneDisp = Versione;
    sessione::DataTassiDisp = Data;
    sessione::NotaAgg = Nota;
    if (!Domanda.isEmpty())
        B->Voce.Attendi(Domanda, Risposta, u"Domanda:"_s);
    QCOMPARE(ProponiAggiornamento(), !Domanda.isEmpty() && Risposta == vbYes);
    if (!Domanda.isEmpty())
        QCOMPARE(B->Voce.Mostrato(0).Bandiere, vbYesNo + vbQuestion);
    QCOMPARE(sessione::TestoDebug, QString());
}

void TestAggiorna::laTraccia()
{
    sessione::ModoDebug = true;
    QVERIFY(!ProponiAggiornamento());
    QCOMPARE(sessione::TestoDebug, u"- controllo versione programma- controllo indici Istat\n"_s);
}

void TestAggiorna::unSoloServer_data()
{
    QTest::addColumn<QString>("Impostato");
    QTest::addColumn<QString>("Atteso");

    const QString Studio = u"https://aggiorna.studio.example"_s;
    QTest::newRow("as it stands") << Studio << Studio;
    QTest::newRow("blanks and slashes") << u" https://aggiorna.studio.example// "_s << Studio;
    QTest::newRow("no scheme") << u"aggiorna.studio.example/"_s << Studio;
    QTest::newRow("this machine") << u"http://127.0.0.1:8000"_s << u"http://127.0.0.1:8000"_s;
    // An empty text is as good as none: the build's own.
    QTest::newRow("stored empty") << u""_s << ServerCostruito();
    QTest::newRow("blanks") << u"  "_s << ServerCostruito();
    QTest::newRow("a slash") << u"/"_s << QString();
}

void TestAggiorna::unSoloServer()
{
    QFETCH(QString, Impostato);
    QFETCH(QString, Atteso);
    const QString Chiave = indirizzi::ChiaveServer.toString();
    SalvaImpostazione(Chiave, Impostato);
    const auto Ripristino = qScopeGuard([&] { SalvaImpostazione(Chiave, {}); });
    LeggiInSessione(VoceDi(Chiave));
    QCOMPARE(DalServer().Indirizzo, Atteso);
    QCOMPARE(indirizzi::Server(), Atteso);
}

#include "TestAggiorna.moc"
