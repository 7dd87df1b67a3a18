#include "supporto/guasti.h"
#include "supporto/prova.h"
#include "supporto/registratore.h"

#include "core/modIcone.h"
#include "core/sessione.h"
#include "platform/base/numerierrore.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QDir>

#include <utility>

using namespace Qt::StringLiterals;

class TestIcone : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void legge_data();
    void legge();
    void fileGuasto_data();
    void fileGuasto();
    void fileIlleggibile();
    void senzaFile();
    void nellaCartellaUtente();
    void rilegge();
    void scriveERilegge();
    void quelCheStaOltreUnVuotoResta_data();
    void quelCheStaOltreUnVuotoResta();
    void scriveSoloRigheIntere();
    void scriveDoveLegge_data();
    void scriveDoveLegge();
    void scriveNellaCartellaUtenteSeRifiutata_data();
    void scriveNellaCartellaUtenteSeRifiutata();
    void nessunaDelleDueScrivibile();
    void discoPieno();
    void cento();
    void link_data();
    void link();
    void conservabile();
    void apre_data();
    void apre();
    void apreConAssociazioneCioCheNonParte();
    void apreNulla();
    void posti_data();
    void posti();
    void postiFissi();
};
PROVA(TestIcone);

namespace {

TabellaRighe Tabella(const QList<QStringList>& Righe)
{
    TabellaRighe Icone(ColonneIcona);
    for (const QStringList& Riga : Righe) {
        const int Numero = Icone.AggiungiRiga();
        for (int c = 0; c < ColonneIcona; ++c)
            Icone(Numero, c) = Riga[c];
    }
    return Icone;
}

const QList<QStringList> Due{{u"Sito"_s, u"www.x.example/Pagina"_s, u"sito.gif"_s},
                             {u"Città"_s, u"/opt/città"_s, u"a.gif"_s}};

QByteArray Programma()
{
    return LeggiFile(sessione::PercorsoProg + u"kr5.ini"_s);
}

}  // namespace

void TestIcone::init()
{
    AzzeraSessione();
    IconeUtente.Azzera(ColonneIcona);
    sessione::PercorsoProg = NuovaCartella();
}

void TestIcone::legge_data()
{
    QTest::addColumn<QByteArray>("Righe");
    QTest::addColumn<QStringList>("Titoli");

    const QByteArray Prima = "L0=A\nL0_c=/a\nL0_i=a.gif\n";
    const QByteArray Terza = "L2=C\nL2_c=/c\nL2_i=c.gif\n";
    QTest::newRow("one") << Prima << QStringList{u"A"_s};
    QTest::newRow("two") << Prima + "L1=B\nL1_c=/b\nL1_i=b.gif\n" << QStringList{u"A"_s, u"B"_s};
    QTest::newRow("a picture is missing") << Prima + "L1=B\nL1_c=/b\n" + Terza << QStringList{u"A"_s};
    QTest::newRow("a target is missing") << Prima + "L1=B\nL1_i=b.gif\n" + Terza << QStringList{u"A"_s};
    QTest::newRow("a label is empty") << Prima + "L1=\nL1_c=/b\nL1_i=b.gif\n" + Terza << QStringList{u"A"_s};
    QTest::newRow("a gap in the numbers") << Prima + Terza << QStringList{u"A"_s};
    QTest::newRow("none begins at zero") << Terza << QStringList{};
}

void TestIcone::legge()
{
    QFETCH(QByteArray, Righe);
    ScriviFile(sessione::PercorsoProg + u"KR5.INI"_s, "[altro]\nL0=X\n[desktop]\n" + Righe);
    LeggiIconeUtente();
    QStringList Titoli;
    for (int Riga = 0; Riga < IconeUtente.Righe(); ++Riga)
        Titoli << IconeUtente(Riga, IconaTitolo).toString();
    QTEST(Titoli, "Titoli");
    QCOMPARE(IconeUtente.Colonne(), int(ColonneIcona));
    if (!Titoli.isEmpty()) {
        QCOMPARE(IconeUtente(0, IconaCollegamento).toString(), u"/a"_s);
        QCOMPARE(IconeUtente(0, IconaFigura).toString(), u"a.gif"_s);
    }
}

void TestIcone::fileGuasto_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    QTest::addColumn<int>("Icone");
    QTest::addColumn<bool>("Detto");

    const QByteArray Prima = "[desktop]\nL0=A\nL0_c=/a\nL0_i=a.gif\n";
    QTest::newRow("empty") << QByteArray() << 0 << true;
    QTest::newRow("zeros") << QByteArray(4096, '\0') << 0 << true;
    QTest::newRow("no text at all") << "\xFF\xFE\x01[[[==\n=\n\r\r]"_ba << 0 << true;
    QTest::newRow("zeros behind a good icon") << Prima + QByteArray(512, '\0') << 1 << true;
    QTest::newRow("cut in the second icon") << Prima + "L1=B\nL1_c=/b\nL1" << 1 << true;
    QTest::newRow("a heading left open") << "[desktop\nL0=A\nL0_c=/a\nL0_i=a.gif\n"_ba << 0 << true;
    // What somebody has written by hand is his.
    QTest::newRow("one endless line") << "[desktop]\nL0=" + QByteArray(200000, 'x') + "\nL0_c=/a\n"
                                      << 0 << false;
    QTest::newRow("no icon") << "[desktop]\r\n"_ba << 0 << false;
    QTest::newRow("the last line has no end") << Prima + "L1=B\nL1_c=/b\nL1_i=b.gif" << 2 << false;
    QTest::newRow("begun and ended") << Prima + "L1=B\n" << 1 << false;
}

void TestIcone::fileGuasto()
{
    QFETCH(QByteArray, Contenuto);
    QFETCH(bool, Detto);
    Registratore Box;
    const QString File = sessione::PercorsoProg + u"kr5.ini"_s;
    ScriviFile(File, Contenuto);
    if (Detto)
        Box.Attendi(
            u"Il file \"%1\" è danneggiato o incompleto: le icone che mancano sulla scrivania vi erano "
            "scritte. Rimetterlo da una copia, o rifarle nelle impostazioni, scheda \"Desktop\"."_s.arg(
                File));
    LeggiIconeUtente();
    QTEST(IconeUtente.Righe(), "Icone");
    QCOMPARE(LeggiFile(sessione::PercorsoProg + u"kr5.ini"_s), Contenuto);
}

void TestIcone::fileIlleggibile()
{
    Registratore Box;
    const QString File = sessione::PercorsoProg + u"kr5.ini"_s;
    ScriviFile(File, "[desktop]\nL0=A\nL0_c=/a\nL0_i=a.gif\n");
    QVERIFY(QFile::setPermissions(File, {}));
    const QString Frase = u"75 %1: %2"_s.arg(DescrizioneErrore(75), File);
    Box.Attendi(Frase);  // once, not for each key
    LeggiIconeUtente();
    QVERIFY(IconeUtente.Vuota());
    // A folder of that name keeps the icons away as well.
    QVERIFY(QFile::remove(File));
    QVERIFY(QDir().mkpath(File));
    Box.Attendi(Frase);
    LeggiIconeUtente();
    QVERIFY(IconeUtente.Vuota());
}

void TestIcone::senzaFile()
{
    LeggiIconeUtente();
    QVERIFY(IconeUtente.Vuota());
}

void TestIcone::nellaCartellaUtente()
{
    sessione::UserFolder = NuovaCartella().chopped(1);
    ScriviFile(Barra(sessione::UserFolder) + u"kr5.ini"_s, "[desktop]\nL0=Mia\nL0_c=/m\nL0_i=m.gif\n");
    LeggiIconeUtente();
    QCOMPARE(IconeUtente.Righe(), 1);
    // One beside the program, come with an update, does not hide what the user has saved.
    ScriviFile(sessione::PercorsoProg + u"kr5.ini"_s, "[desktop]\nL0=A\nL0_c=/a\nL0_i=a.gif\n"
                                                      "L1=B\nL1_c=/b\nL1_i=b.gif\n");
    LeggiIconeUtente();
    QCOMPARE(IconeUtente(0, IconaTitolo).toString(), u"Mia"_s);
    QVERIFY(QFile::remove(Barra(sessione::UserFolder) + u"kr5.ini"_s));
    LeggiIconeUtente();
    QCOMPARE(IconeUtente.Righe(), 2);
}

void TestIcone::rilegge()
{
    ScriviFile(sessione::PercorsoProg + u"kr5.ini"_s, "[desktop]\nL0=A\nL0_c=/a\nL0_i=a.gif\n");
    LeggiIconeUtente();
    LeggiIconeUtente();
    QCOMPARE(IconeUtente.Righe(), 1);
}

void TestIcone::posti_data()
{
    QTest::addColumn<int>("Riga");
    QTest::addColumn<QPoint>("Posto");

    QTest::newRow("first") << 0 << QPoint(136, 312);
    QTest::newRow("second") << 1 << QPoint(236, 312);
    QTest::newRow("sixth") << 5 << QPoint(636, 312);
    QTest::newRow("seventh") << 6 << QPoint(32, 412);
    QTest::newRow("eighth") << 7 << QPoint(132, 412);
    QTest::newRow("last of the second row") << 12 << QPoint(632, 412);
    QTest::newRow("first of the third row") << 13 << QPoint(32, 512);
}

void TestIcone::posti()
{
    QFETCH(int, Riga);
    QTEST(PostoIcona(Riga), "Posto");
}

/// However many the program has, up to the width of a screen, none covers another or comes upon the user's.
void TestIcone::postiFissi()
{
    constexpr QSize Passo(100, 100);
    for (int Quante = 1; Quante <= 24; ++Quante) {
        QList<QRect> Presi;
        for (int i = 0; i < Quante; ++i) {
            const QRect Suo(PostoFisso(i, Quante), Passo);
            for (const QRect& Altro : std::as_const(Presi))
                QVERIFY2(!Suo.intersects(Altro), qPrintable(u"%1 di %2"_s.arg(i).arg(Quante)));
            for (int Riga = 0; Riga < 20; ++Riga)
                QVERIFY2(!Suo.intersects(QRect(PostoIcona(Riga), Passo)),
                         qPrintable(u"%1 di %2 e %3 dell'utente"_s.arg(i).arg(Quante).arg(Riga)));
            Presi << Suo;
        }
    }
    // Fifteen stand in rows of five.
    QCOMPARE(PostoFisso(4, 15), QPoint(536, 12));
    QCOMPARE(PostoFisso(5, 15), QPoint(136, 112));
    QCOMPARE(PostoFisso(14, 15), QPoint(536, 212));
    // The sixteenth makes a column, as wide as the user's first row.
    QCOMPARE(PostoFisso(5, 16), QPoint(636, 12));
    QCOMPARE(PostoFisso(15, 16), QPoint(436, 212));
}

void TestIcone::scriveERilegge()
{
    const Registratore Box;
    ScriviFile(sessione::PercorsoProg + u"kr5.ini"_s,
               "; a note\r\n[desktop]\r\nL0=Vecchia\r\nL0_c=/v\r\nL0_i=v.gif\r\nL12=x\r\nlargo=1\r\n"
               "[altro]\r\nL0=resta\r\n");
    QVERIFY(ScriviIconeUtente(Tabella(Due)));
    QCOMPARE(LeggiIcone(), Tabella(Due));
    const QByteArray Scritto = Programma();
    QVERIFY(!Scritto.contains("Vecchia"));
    QVERIFY(!Scritto.contains("L12"));
    QVERIFY(Scritto.contains("largo=1\r\n"));
    QVERIFY(Scritto.startsWith("; a note\r\n"));
    QVERIFY(Scritto.endsWith("[altro]\r\nL0=resta\r\n"));
    QVERIFY(ScriviIconeUtente(Tabella({})));
    QVERIFY(LeggiIcone().Vuota());
    QVERIFY(Programma().contains("L0=resta"));
}

void TestIcone::quelCheStaOltreUnVuotoResta_data()
{
    QTest::addColumn<QByteArray>("Oltre");
    QTest::addColumn<bool>("Copia");

    QTest::newRow("none") << QByteArray() << false;
    QTest::newRow("a missing number") << "L2=C\nL2_c=/c\nL2_i=c.gif\n"_ba << true;
    QTest::newRow("small letters") << "l7_C=/c\n"_ba << true;
    QTest::newRow("no picture") << "L1=B\nL1_c=/b\n"_ba << true;
    QTest::newRow("no text") << "L1=\nL2_c= \n"_ba << false;
    QTest::newRow("another key") << "largo=1\nL1_x=1\n"_ba << false;
    QTest::newRow("another section") << "[altro]\nL1=B\n"_ba << false;
}

/// Icons that somebody has numbered by hand: they are not read, and the write takes them out.
void TestIcone::quelCheStaOltreUnVuotoResta()
{
    QFETCH(QByteArray, Oltre);
    QFETCH(bool, Copia);
    const QString File = sessione::PercorsoProg + u"kr5.ini"_s;
    const QByteArray Prima = "[desktop]\nL0=A\nL0_c=/a\nL0_i=a.gif\n" + Oltre;
    ScriviFile(File, Prima);
    QCOMPARE(LeggiIcone().Righe(), 1);
    // A write that is refused leaves nothing: the file is as it was.
    QVERIFY(!ScriviIconeUtente(Tabella({{QString(2 << 20, u'A'), u"/a"_s, u"a.gif"_s}})));
    QCOMPARE(LeggiFile(File), Prima);
    QVERIFY(!EsisteFile(File + u".guasto"_s));
    for (int Volta = 0; Volta < 2; ++Volta)
        QVERIFY(ScriviIconeUtente(Tabella(Due)));
    QCOMPARE(LeggiIcone(), Tabella(Due));
    QCOMPARE(EsisteFile(File + u".guasto"_s), Copia);
    if (Copia)
        QCOMPARE(LeggiFile(File + u".guasto"_s), Prima);
    QVERIFY(!EsisteFile(File + u".guasto2"_s));
    // Fewer icons are no gap.
    QVERIFY(ScriviIconeUtente(Tabella({Due[0]})));
    QVERIFY(!EsisteFile(File + u".guasto2"_s));
}

void TestIcone::scriveSoloRigheIntere()
{
    QVERIFY(ScriviIconeUtente(Tabella({{u"A"_s, u"/a"_s, u""_s},
                                       {u"  "_s, u"/b"_s, u"b.gif"_s},
                                       {u"C"_s, u""_s, u"c.gif"_s},
                                       {u"D"_s, u"/d"_s, u"d.gif"_s}})));
    QCOMPARE(LeggiIcone(), Tabella({{u"A"_s, u"/a"_s, u"icona.gif"_s}, {u"D"_s, u"/d"_s, u"d.gif"_s}}));
}

void TestIcone::scriveDoveLegge_data()
{
    QTest::addColumn<bool>("NelProgramma");
    QTest::addColumn<bool>("Utente");
    QTest::addColumn<QString>("Atteso");

    QTest::newRow("none yet") << false << false << u"programma"_s;
    QTest::newRow("the program's") << true << false << u"programma"_s;
    QTest::newRow("the user's") << false << true << u"utente"_s;
    QTest::newRow("both") << true << true << u"utente"_s;
}

void TestIcone::scriveDoveLegge()
{
    QFETCH(bool, NelProgramma);
    QFETCH(bool, Utente);
    QFETCH(QString, Atteso);
    sessione::UserFolder = NuovaCartella();
    const QString FileProgramma = sessione::PercorsoProg + u"kr5.ini"_s;
    const QString FileUtente = sessione::UserFolder + u"kr5.ini"_s;
    if (NelProgramma)
        ScriviFile(FileProgramma, "[desktop]\n");
    if (Utente)
        ScriviFile(FileUtente, "[desktop]\n");
    QVERIFY(ScriviIconeUtente(Tabella(Due)));
    const QString Scritto = Atteso == u"utente" ? FileUtente : FileProgramma;
    const QString Altro = Atteso == u"utente" ? FileProgramma : FileUtente;
    QVERIFY(LeggiFile(Scritto).contains("L1_i"));
    QVERIFY(!EsisteFile(Altro) || LeggiFile(Altro) == "[desktop]\n");
    QCOMPARE(LeggiIcone(), Tabella(Due));
}

void TestIcone::scriveNellaCartellaUtenteSeRifiutata_data()
{
    QTest::addColumn<QList<QStringList>>("Icone");
    QTest::addColumn<bool>("Cambiate");

    const QList<QStringList> Fornita{{u"Fornita"_s, u"/f"_s, u"f.gif"_s}};
    QTest::newRow("others") << Due << true;
    QTest::newRow("all taken away") << QList<QStringList>() << true;
    QTest::newRow("as they were read") << Fornita << false;
    QTest::newRow("none, and none was read") << QList<QStringList>() << false;
}

void TestIcone::scriveNellaCartellaUtenteSeRifiutata()
{
    QFETCH(QList<QStringList>, Icone);
    QFETCH(bool, Cambiate);
    sessione::UserFolder = NuovaCartella();
    const QString Fornito = sessione::PercorsoProg + u"kr5.ini"_s;
    ScriviFile(Fornito, "[desktop]\nL0=Fornita\nL0_c=/f\nL0_i=f.gif\n");
    ImpostaSolaLettura(Fornito, true);
    QCOMPARE(ScriviIconeUtente(Tabella(Icone), Cambiate), Cambiate);
    QVERIFY(LeggiFile(Fornito).contains("Fornita"));
    QCOMPARE(EsisteFile(sessione::UserFolder + u"kr5.ini"_s), Cambiate);
    if (Cambiate)
        QCOMPARE(LeggiIcone(), Tabella(Icone));
}

void TestIcone::nessunaDelleDueScrivibile()
{
    sessione::UserFolder = NuovaCartella() + u"manca"_s;
    const QString Fornito = sessione::PercorsoProg + u"kr5.ini"_s;
    ScriviFile(Fornito, "[desktop]\nL0=Fornita\nL0_c=/f\nL0_i=f.gif\n");
    ImpostaSolaLettura(Fornito, true);
    QVERIFY(!ScriviIconeUtente(Tabella(Due)));
    QCOMPARE(LeggiIcone().Righe(), 1);
    sessione::UserFolder.clear();
    sessione::PercorsoProg.clear();
    QVERIFY(!ScriviIconeUtente(Tabella(Due)));
}

void TestIcone::discoPieno()
{
    const QByteArray Prima = "[desktop]\nL0=A\nL0_c=/a\nL0_i=a.gif\n";
    ScriviFile(sessione::PercorsoProg + u"kr5.ini"_s, Prima);
    guasti::LimiteFile = 20;
    const bool Scritto = ScriviIconeUtente(Tabella(Due));
    guasti::LimiteFile = 0;
    QVERIFY(!Scritto);
    QCOMPARE(Programma(), Prima);
}

void TestIcone::cento()
{
    QList<QStringList> Molte;
    for (int i = 0; i < 100; ++i)
        Molte << QStringList{u"Icona %1"_s.arg(i), u"/opt/%1"_s.arg(i), u"a.gif"_s};
    QVERIFY(ScriviIconeUtente(Tabella(Molte)));
    QCOMPARE(LeggiIcone(), Tabella(Molte));
}

void TestIcone::link_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<bool>("Link");

    QTest::newRow("http") << u"http://x"_s << true;
    QTest::newRow("https in capitals") << u"HTTPS://x"_s << true;
    QTest::newRow("www in mixed case") << u"Www.x"_s << true;
    QTest::newRow("mail") << u"mailto:a@b"_s << false;
    QTest::newRow("path") << u"/opt/http"_s << false;
    QTest::newRow("empty") << u""_s << false;
}

void TestIcone::link()
{
    QFETCH(QString, Testo);
    QTEST(ELink(Testo), "Link");
}

void TestIcone::conservabile()
{
    QVERIFY(Conservabile(u"Città – €"_s));
    QVERIFY(!Conservabile(u"Łódź"_s));
    QVERIFY(!Conservabile(u"/opt/日本"_s));
    QVERIFY(Conservabile(u"perché?"_s));
}

namespace {

/// What the system was asked to open, and what it answers.
class SistemaDiProva
{
public:
    SistemaDiProva()
    {
        Shell Nuova;
        Nuova.ApriIndirizzo = [this](const QString& Indirizzo) {
            return Annota(u"indirizzo "_s + Indirizzo);
        };
        Nuova.ApriFile = [this](const QString& File) { return Annota(u"file "_s + File); };
        Nuova.Avvia = [this](const QString& Programma, const QStringList& Argomenti,
                             const QString& Cartella) {
            Annota(u"avvia "_s + Programma + Argomenti.join(u' ') + u" in "_s + Cartella);
            return EsitoAvvio;
        };
        Precedente = InstallaShell(std::move(Nuova));
    }
    ~SistemaDiProva() { InstallaShell(std::move(Precedente)); }
    SistemaDiProva(const SistemaDiProva&) = delete;
    SistemaDiProva& operator=(const SistemaDiProva&) = delete;

    QStringList Chieste;
    int Esito = 0;
    int EsitoAvvio = 0;

private:
    int Annota(const QString& Chiesta)
    {
        Chieste << Chiesta;
        return Esito;
    }
    Shell Precedente;
};

void CreaEseguibile(const QString& File)
{
    ScriviFile(File, "#!/bin/sh\n");
    QVERIFY(QFile::setPermissions(File, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

}  // namespace

void TestIcone::apre_data()
{
    QTest::addColumn<QString>("Destinazione");
    QTest::addColumn<QString>("Atteso");

    QTest::newRow("address, its letters kept")
        << u"https://x.example/Una/Pagina"_s << u"indirizzo https://x.example/Una/Pagina"_s;
    QTest::newRow("www") << u"WWW.x.example/Pagina"_s << u"indirizzo http://WWW.x.example/Pagina"_s;
    QTest::newRow("mail") << u"mailto:Mario@x.example"_s << u"indirizzo mailto:Mario@x.example"_s;
    QTest::newRow("program") << u"%1agenda.exe"_s << u"avvia %1agenda.exe in %1"_s;
    QTest::newRow("program of the program folder") << u"agenda.exe"_s << u"avvia %1agenda.exe in %1"_s;
    QTest::newRow("document") << u"%1lettera.doc"_s << u"file %1lettera.doc"_s;
    QTest::newRow("document of a folder inside") << u"sotto\\atto.pdf"_s << u"file %1sotto/atto.pdf"_s;
    QTest::newRow("folder") << u"%1sotto"_s << u"file %1sotto"_s;
}

void TestIcone::apre()
{
    QFETCH(QString, Destinazione);
    QFETCH(QString, Atteso);
    const QString Cartella = sessione::PercorsoProg;
    CreaEseguibile(Cartella + u"agenda.exe"_s);
    ScriviFile(Cartella + u"lettera.doc"_s, "x");
    CreaCartella(Cartella + u"sotto"_s);
    ScriviFile(Cartella + u"sotto/atto.pdf"_s, "x");
    const SistemaDiProva Sistema;
    ApriDestinazione(Destinazione.replace(u"%1"_s, Cartella));
    QCOMPARE(Sistema.Chieste, QStringList{Atteso.replace(u"%1"_s, Cartella)});
}

void TestIcone::apreConAssociazioneCioCheNonParte()
{
    CreaEseguibile(sessione::PercorsoProg + u"foglio.ods"_s);
    SistemaDiProva Sistema;
    Sistema.EsitoAvvio = 5;
    ApriDestinazione(u"foglio.ods"_s);
    QCOMPARE(Sistema.Chieste.size(), 2);
    QCOMPARE(Sistema.Chieste[1], u"file "_s + sessione::PercorsoProg + u"foglio.ods"_s);
    // A name found where the system looks for programs.
    Sistema.EsitoAvvio = 0;
    ApriDestinazione(u"sh"_s);
    QVERIFY2(Sistema.Chieste[2].startsWith(u"avvia /") && Sistema.Chieste[2].contains(u"/sh in "),
             qPrintable(Sistema.Chieste[2]));
}

void TestIcone::apreNulla()
{
    SistemaDiProva Sistema;
    const auto Guasto = [](const QString& Destinazione) {
        const ErroreVisto Visto = ErroreDi([&] { ApriDestinazione(Destinazione); });
        return QString::number(Visto.Numero) + u' ' + Visto.Descrizione;
    };
    QCOMPARE(Guasto(u"/opt/non/esiste"_s), u"53 "_s + DescrizioneErrore(53) + u": /opt/non/esiste"_s);
    QCOMPARE(Guasto(u"nessun_programma_così"_s),
             u"53 "_s + DescrizioneErrore(53) + u": nessun_programma_così"_s);
    Sistema.Esito = 31;
    QCOMPARE(Guasto(u"www.x.example"_s), u"31 "_s + DescrizioneErrore(31) + u": www.x.example"_s);
}

#include "TestIcone.moc"
