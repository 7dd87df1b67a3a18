#include "supporto/prova.h"

#include "architettura/regole.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

/// The house is as its table says; and each rule is seen to fail on a house that breaks it.
class TestArchitettura : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void gliIncludeSonoQuelliAmmessi();
    void ilDisegnoELaTavola();
    void nessunaFrecciaSale();
    void ogniFrecciaSiUsa();
    void leLibrerieStannoNelleLoroStanze();
    void soloLaPiattaformaToccaIlDisco();
    void soloLaPiattaformaChiamaIlSistema();
    void soloLaPiattaformaSaIComandiDelDesktop();
    void gliErroriHannoUnNome();
    void unNomeDiceUnaCosaSola();
    void unNomeProprioStaInUnSorgenteSolo();
    void ogniSorgenteHaLaSuaIntestazione();
    void nessunaStanzaTieneUnDecimo();
    void leProveSeguonoLeStanze();
    void nessunaProvaDietroUnaCondizione();
    void ogniMisuraDettaSiRipete();
    void ogniPaginaDeiDocumentiSiTrova();

    void unaSondaSiScopre_data();
    void unaSondaSiScopre();
    void chiToccaIlDiscoSiScopre_data();
    void chiToccaIlDiscoSiScopre();
    void chiChiamaIlSistemaSiScopre();
    void iNomiDoppiSiScoprono();
    void ogniDichiarazioneConta_data();
    void ogniDichiarazioneConta();
    void ilNomeDiDueSorgentiSiScopre_data();
    void ilNomeDiDueSorgentiSiScopre();
    void unaFrecciaInSuSiScopre();
    void unaFrecciaSenzaUsoSiScopre();
    void unaStanzaGrandeSiScopre();
    void laProvaCondizionataSiScopre();

private:
    Casa Vera;
};
PROVA(TestArchitettura);

namespace {

const QString IntestazioniQt = QStringLiteral(INTESTAZIONI_QT);

void Scrivi(const QString& Percorso, const QByteArray& Testo)
{
    QDir().mkpath(QFileInfo(Percorso).path());
    QFile Nuovo(Percorso);
    QVERIFY(Nuovo.open(QIODevice::WriteOnly));
    Nuovo.write(Testo);
}

/// A small house in order: the engine below, logic, its windows.
Casa CasaDiProva()
{
    const QString Cartella = NuovaCartella();
    Scrivi(Cartella + u"stanze.txt"_s, "# a comment\nplatform/base||\nplatform/database|platform/base|\n"
                                       "conti|platform/base|\nconti/windows|platform/base conti|Widgets\n");
    Scrivi(Cartella + u"src/platform/base/numero.h"_s, "#pragma once\nint Numero();\n");
    Scrivi(Cartella + u"src/platform/database/tabella.h"_s,
           "#pragma once\nstruct Tabella\n{\n    int Numero;\n};\n");
    Scrivi(Cartella + u"src/conti/somma.h"_s,
           "#pragma once\n#include \"platform/base/numero.h\"\nint Somma();\n");
    Scrivi(Cartella + u"src/conti/somma.cpp"_s, "#include \"conti/somma.h\"\n");
    Scrivi(Cartella + u"src/conti/windows/frmSomma.cpp"_s,
           "#include \"conti/somma.h\"\n#include <QWidget>\n#include \"conti/windows/ui_frmSomma.h\"\n");
    Scrivi(Cartella + u"src/conti/windows/frmSomma.ui"_s, "<ui>\n</ui>\n");
    return LeggiCasa(Cartella + u"src/"_s, Cartella + u"stanze.txt"_s);
}

QString UnaPerRiga(const QStringList& Frasi)
{
    return Frasi.join(u'\n');
}

/// Fails with every sentence, where QCOMPARE would cut the first.
void Nessuna(const QStringList& Frasi)
{
    QVERIFY2(Frasi.isEmpty(), qPrintable(u'\n' + UnaPerRiga(Frasi)));
}

}  // namespace

void TestArchitettura::initTestCase()
{
    Vera = LeggiCasa(SorgenteDiProva(u"src/"_s), QStringLiteral(REGISTRO_STANZE));
    QVERIFY(Vera.Ordine.size() > 20);
    QCOMPARE(Vera.Ordine.first(), u"platform/base"_s);
    QVERIFY(QFileInfo::exists(IntestazioniQt + u"/QtWidgets/QWidget"_s));
}

void TestArchitettura::gliIncludeSonoQuelliAmmessi()
{
    Nessuna(IncludiProibiti(Vera));
}

/// The picture of the rooms that the documents show has the arrows of the table, no other and no fewer.
void TestArchitettura::ilDisegnoELaTavola()
{
    QFile Aperta(SorgenteDiProva(u"docs/architecture.md"_s));
    QVERIFY(Aperta.open(QIODevice::ReadOnly));
    const QString Capitolo = QString::fromUtf8(Aperta.readAll()).section(u"\n## The rooms\n"_s, 1);
    const QStringList Disegnate = Capitolo.section(u"\n```\n"_s, 1, 1).split(u'\n', Qt::SkipEmptyParts);
    QVERIFY2(Disegnate == Disegno(Vera),
             qPrintable(u"docs/architecture.md, expected:\n"_s + UnaPerRiga(Disegno(Vera))));
    Casa Piccola = CasaDiProva();
    Piccola.Stanze[u"conti/windows"_s].PuoConoscere += u"platform/database"_s;
    QCOMPARE(UnaPerRiga(Disegno(Piccola)), u"conti/windows           conti  platform/database\n"
                                           "conti                   platform/base\n"
                                           "platform/database       platform/base\n"
                                           "platform/base"_s);
}

void TestArchitettura::nessunaFrecciaSale()
{
    Nessuna(FrecceInSu(Vera));
}

void TestArchitettura::ogniFrecciaSiUsa()
{
    Nessuna(FrecceSenzaUso(Vera));
}

void TestArchitettura::leLibrerieStannoNelleLoroStanze()
{
    Nessuna(LibrerieProibite(Vera, IntestazioniQt));
}

void TestArchitettura::soloLaPiattaformaToccaIlDisco()
{
    Nessuna(DiscoToccato(Vera));
}

void TestArchitettura::soloLaPiattaformaChiamaIlSistema()
{
    Nessuna(AmbienteToccato(Vera));
}

void TestArchitettura::soloLaPiattaformaSaIComandiDelDesktop()
{
    Nessuna(ComandiDelDesktop(Vera));
    const Casa Piccola = CasaDiProva();
    Scrivi(Piccola.Radice + u"conti/posta.cpp"_s, "int x;\nauto Nome = u\"xdg-email\";\n");
    Scrivi(Piccola.Radice + u"platform/base/posta.cpp"_s, "auto Nome = u\"xdg-email\";\n");
    QCOMPARE(ComandiDelDesktop(Piccola).join(u'\n'),
             u"src/conti/posta.cpp:2 names a command of the desktop: that is for platform/ alone"_s);
}

void TestArchitettura::gliErroriHannoUnNome()
{
    Nessuna(ErroriSenzaNome(Vera));
    const Casa Piccola = CasaDiProva();
    Scrivi(Piccola.Radice + u"conti/somma.cpp"_s,
           "throw Errore(errori::Tipo);\nthrow Errore(13, Frase);\nthrow OggettoJson::Rifiuto(5, Campo);\n"
           "QString Uno = DescrizioneErrore(70);\nint Numero = ErroreNumero(5);\n");
    QCOMPARE(UnaPerRiga(ErroriSenzaNome(Piccola)),
             u"src/conti/somma.cpp:2 says Errore(13: the numbers have names\n"
             "src/conti/somma.cpp:3 says Rifiuto(5: the numbers have names\n"
             "src/conti/somma.cpp:4 says DescrizioneErrore(70: the numbers have names"_s);
}

void TestArchitettura::unNomeDiceUnaCosaSola()
{
    Nessuna(NomiDoppi(Vera));
}

/// Else the release build would fail on the day that a new file of the room brings the two together.
void TestArchitettura::unNomeProprioStaInUnSorgenteSolo()
{
    Nessuna(NomiDiDueSorgenti(Vera));
}

void TestArchitettura::ogniSorgenteHaLaSuaIntestazione()
{
    Nessuna(SenzaIntestazione(Vera));
    const Casa Piccola = CasaDiProva();
    Scrivi(Piccola.Radice + u"conti/windows/frmSomma.cpp"_s, "#include \"conti/windows/frmSomma.h\"\n");
    Scrivi(Piccola.Radice + u"conti/somma_fine_riga.cpp"_s, "#include \"conti/somma.h\"\n");
    Scrivi(Piccola.Radice + u"conti/main.cpp"_s, "int main() {}\n");
    QCOMPARE(UnaPerRiga(SenzaIntestazione(Piccola)), QString());
    Scrivi(Piccola.Radice + u"conti/sommare.cpp"_s, "#include \"conti/somma.h\"\n");
    Scrivi(Piccola.Radice + u"conti/somma_altra.cpp"_s, "#include \"conti/windows/somma.h\"\n");
    QCOMPARE(UnaPerRiga(SenzaIntestazione(Piccola)),
             u"src/conti/somma_altra.cpp includes no header of its name\n"
             "src/conti/sommare.cpp includes no header of its name"_s);
}

void TestArchitettura::nessunaStanzaTieneUnDecimo()
{
    Nessuna(StanzeTroppoGrandi(Vera));
}

/// A folder of test classes bears the name of a room, or of a tool.
void TestArchitettura::leProveSeguonoLeStanze()
{
    const QDir Prove(FileDiProva(QString()));
    QStringList Estranee;
    QDirIterator Cammino(Prove.path(), {u"Test*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (Cammino.hasNext()) {
        const QString Cartella = Prove.relativeFilePath(QFileInfo(Cammino.next()).path());
        const QString Attrezzo = SorgenteDiProva(u""_s) + Cartella;
        if (!Vera.Stanze.contains(Cartella) && Cartella != u"architettura"_s && Cartella != u"video"_s &&
            Cartella != u"uccisioni"_s && !(Cartella.startsWith(u"tools/") && QFileInfo::exists(Attrezzo)))
            Estranee += Cartella;
    }
    Estranee.removeDuplicates();
    Nessuna(Estranee);
}

void TestArchitettura::nessunaProvaDietroUnaCondizione()
{
    Nessuna(ProveCondizionate(FileDiProva(QString())));
}

/// What the documents say to be measured is asked of the benchmarks by the name that it has there.
void TestArchitettura::ogniMisuraDettaSiRipete()
{
    const auto Testo = [](const QString& File) {
        QFile Aperto(SorgenteDiProva(File));
        return Aperto.open(QIODevice::ReadOnly) ? QString::fromUtf8(Aperto.readAll()) : QString();
    };
    QString Misure;
    const QDir Cartella(SorgenteDiProva(u"bench"_s));
    for (const QString& File : Cartella.entryList({u"*.cpp"_s}, QDir::Files))
        Misure += Testo(u"bench/"_s + File);
    const QStringList Dette =
        Testo(u"docs/velocita.md"_s).split(u'\n').filter(QRegularExpression(u"^\\| [a-z0-9]"_s));
    QVERIFY(Dette.size() > 20);
    QStringList Estranee;
    for (const QString& Riga : Dette)
        if (const QString Nome = Riga.section(u'|', 1, 1).trimmed(); !Misure.contains(u"u\"%1\""_s.arg(Nome)))
            Estranee += u"docs/velocita.md: no benchmark is called \"%1\""_s.arg(Nome);
    Nessuna(Estranee);
}

/// A page of the documents that no other names is read by nobody, and a link leads to a file.
void TestArchitettura::ogniPaginaDeiDocumentiSiTrova()
{
    const QDir Radice(SorgenteDiProva(QString()));
    QStringList Pagine = Radice.entryList({u"*.md"_s}, QDir::Files);
    QDirIterator Cammino(Radice.filePath(u"docs"_s), {u"*.md"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (Cammino.hasNext())
        Pagine += Radice.relativeFilePath(Cammino.next());
    QVERIFY(Pagine.contains(u"docs/decisions/numbers.md"));
    static const QRegularExpression Rimando(u"\\]\\(([^)#:]+)"_s);
    QSet<QString> Nominate = {u"README.md"_s};
    QStringList Estranee;
    for (const QString& Pagina : std::as_const(Pagine)) {
        QFile Aperta(Radice.filePath(Pagina));
        QVERIFY(Aperta.open(QIODevice::ReadOnly));
        const QString Testo = QString::fromUtf8(Aperta.readAll());
        for (const QRegularExpressionMatch& Trovato : Rimando.globalMatch(Testo)) {
            const QString Meta = QDir::cleanPath(QFileInfo(Pagina).path() + u'/' + Trovato.captured(1));
            if (!Radice.exists(Meta))
                Estranee += u"%1: no file \"%2\""_s.arg(Pagina, Meta);
            else if (Meta != Pagina)
                Nominate += Meta;
        }
    }
    for (const QString& Pagina : std::as_const(Pagine))
        if (!Nominate.contains(Pagina))
            Estranee += u"%1: no page leads there"_s.arg(Pagina);
    Nessuna(Estranee);
}

void TestArchitettura::unaSondaSiScopre_data()
{
    QTest::addColumn<QString>("File");
    QTest::addColumn<QByteArray>("Testo");
    QTest::addColumn<QString>("Frase");

    const auto Riga = [](const char* Nome, const QString& File, const QByteArray& Testo,
                         const QString& Frase) { QTest::newRow(Nome) << File << Testo << Frase; };
    Riga("dal basso in alto", u"platform/base/numero.cpp"_s,
         "#include \"platform/base/numero.h\"\n#include \"conti/somma.h\"\n",
         u"src/platform/base/numero.cpp:2 includes conti/somma.h, which platform/base may not know"_s);
    Riga("di fianco", u"conti/altra.h"_s, "#pragma once\n\n#include \"platform/database/tabella.h\"\n",
         u"src/conti/altra.h:3 includes platform/database/tabella.h, which conti may not know"_s);
    Riga(
        "in un disegno", u"conti/windows/frmAltra.ui"_s,
        "<ui>\n<header>platform/database/tabella.h</header>\n",
        u"src/conti/windows/frmAltra.ui:2 includes platform/database/tabella.h, which conti/windows may not know"_s);
    Riga("un file che non c'è", u"conti/altra.cpp"_s, "#include \"platform/base/nulla.h\"\n",
         u"src/conti/altra.cpp:1 includes platform/base/nulla.h, which is not there"_s);
    Riga("un modulo che non c'è", u"conti/windows/frmAltra.cpp"_s,
         "#include \"conti/windows/ui_frmAltra.h\"\n",
         u"src/conti/windows/frmAltra.cpp:1 includes conti/windows/ui_frmAltra.h, which is not there"_s);
    Riga("fuori dalle stanze", u"altrove/prova.cpp"_s, "int x;\n",
         u"src/altrove/prova.cpp stands in a folder that is no room of src/CMakeLists.txt"_s);
    Riga("il motore", u"conti/altra.cpp"_s, "#include <sqlite3.h>\n",
         u"src/conti/altra.cpp:1 includes sqlite3.h, which is for platform/database alone"_s);
    Riga("la rete", u"conti/altra.cpp"_s, "#include <QNetworkAccessManager>\n",
         u"src/conti/altra.cpp:1 includes QNetworkAccessManager, which is for platform/network alone"_s);
    Riga("le firme", u"conti/altra.cpp"_s, "#include <sodium.h>\n",
         u"src/conti/altra.cpp:1 includes sodium.h, which is for platform/network alone"_s);
    Riga("una finestra nella logica", u"conti/altra.cpp"_s, "#include <QMessageBox>\n",
         u"src/conti/altra.cpp:1 includes QMessageBox, and conti is a room without windows"_s);
    Riga("il sistema", u"conti/windows/altra.cpp"_s, "#include <QProcess>\n",
         u"src/conti/windows/altra.cpp:1 includes QProcess: only platform/ calls the operating system"_s);
    Riga("nostro fra parentesi angolari", u"conti/altra.cpp"_s, "#include <platform/database/tabella.h>\n",
         u"src/conti/altra.cpp:1 includes platform/database/tabella.h, which conti may not know"_s);
    Riga("il motore fra virgolette", u"conti/altra.cpp"_s, "#include \"sqlite3.h\"\n",
         u"src/conti/altra.cpp:1 includes sqlite3.h, which is for platform/database alone"_s);
    Riga("una finestra col suo modulo", u"conti/altra.cpp"_s, "#include <QtWidgets/QMessageBox>\n",
         u"src/conti/altra.cpp:1 includes QtWidgets/QMessageBox, and conti is a room without windows"_s);
    Riga("una finestra in minuscolo", u"conti/altra.cpp"_s, "#include <qmessagebox.h>\n",
         u"src/conti/altra.cpp:1 includes qmessagebox.h, and conti is a room without windows"_s);
    Riga("il sistema fra virgolette", u"conti/altra.cpp"_s, "#include \"unistd.h\"\n",
         u"src/conti/altra.cpp:1 includes unistd.h: only platform/ calls the operating system"_s);
    Riga("il sistema col suo modulo", u"conti/altra.cpp"_s, "#include <QtCore/QProcess>\n",
         u"src/conti/altra.cpp:1 includes QtCore/QProcess: only platform/ calls the operating system"_s);
    Riga("il sistema in minuscolo", u"conti/altra.cpp"_s, "#include <qsettings.h>\n",
         u"src/conti/altra.cpp:1 includes qsettings.h: only platform/ calls the operating system"_s);
    Riga(
        "il desktop", u"conti/windows/altra.cpp"_s, "#include <QDesktopServices>\n",
        u"src/conti/windows/altra.cpp:1 includes QDesktopServices: only platform/ calls the operating system"_s);
    Riga("il nome del sistema", u"conti/altra.cpp"_s, "#include <QSysInfo>\n",
         u"src/conti/altra.cpp:1 includes QSysInfo: only platform/ calls the operating system"_s);
    Riga("i segnali", u"conti/altra.cpp"_s, "#include <csignal>\n",
         u"src/conti/altra.cpp:1 includes csignal: only platform/ calls the operating system"_s);
    Riga("gli utenti", u"conti/altra.cpp"_s, "#include <pwd.h>\n",
         u"src/conti/altra.cpp:1 includes pwd.h: only platform/ calls the operating system"_s);
    Riga("una libreria aperta", u"conti/altra.cpp"_s, "#include <dlfcn.h>\n",
         u"src/conti/altra.cpp:1 includes dlfcn.h: only platform/ calls the operating system"_s);
    Riga("un carattere nella logica", u"conti/altra.cpp"_s, "#include <QtGui/QFont>\n",
         u"src/conti/altra.cpp:1 includes QtGui/QFont, and conti is a room without windows"_s);
    Riga("una stampante nella logica", u"conti/altra.cpp"_s, "#include <QPrinter>\n",
         u"src/conti/altra.cpp:1 includes QPrinter, and conti is a room without windows"_s);
    Riga("un disegno nella logica", u"conti/altra.cpp"_s, "#include <QSvgRenderer>\n",
         u"src/conti/altra.cpp:1 includes QSvgRenderer, and conti is a room without windows"_s);
    Riga("una chiamata del nucleo", u"conti/altra.cpp"_s, "#include <sys/stat.h>\n",
         u"src/conti/altra.cpp:1 includes sys/stat.h: only platform/ calls the operating system"_s);
}

void TestArchitettura::unaSondaSiScopre()
{
    QFETCH(QString, File);
    QFETCH(QByteArray, Testo);
    QFETCH(QString, Frase);
    const Casa Piccola = CasaDiProva();
    const auto Frasi = [&] {
        return UnaPerRiga(IncludiProibiti(Piccola) + LibrerieProibite(Piccola, IntestazioniQt));
    };
    QCOMPARE(Frasi(), QString());
    Scrivi(Piccola.Radice + File, Testo);
    QCOMPARE(Frasi(), Frase);
}

void TestArchitettura::chiToccaIlDiscoSiScopre_data()
{
    QTest::addColumn<QString>("File");
    QTest::addColumn<QByteArray>("Testo");
    QTest::addColumn<QString>("Frase");

    const auto Riga = [](const char* Nome, const QString& File, const QByteArray& Testo,
                         const QString& Frase) { QTest::newRow(Nome) << File << Testo << Frase; };
    Riga("una cancellazione", u"conti/altra.cpp"_s, "int x;\nbool Via = QFile::remove(Nome);\n",
         u"src/conti/altra.cpp:2 names QFile: only platform/ touches the disk"_s);
    Riga("un elenco in una finestra", u"conti/windows/altra.cpp"_s, "auto Nomi = QDir(Dove).entryList();\n",
         u"src/conti/windows/altra.cpp:1 names QDir: only platform/ touches the disk"_s);
    Riga("la sola intestazione", u"conti/altra.h"_s, "#include <QTemporaryFile>\n",
         u"src/conti/altra.h:1 names QTemporaryFile: only platform/ touches the disk"_s);
    Riga("la libreria del linguaggio", u"conti/altra.cpp"_s, "std::filesystem::remove(Nome);\n",
         u"src/conti/altra.cpp:1 names std::filesystem: only platform/ touches the disk"_s);
    Riga("nomi e proprietà", u"conti/altra.cpp"_s, "QFileInfo Info(Nome);  // no QFile\n", QString());
    Riga("la piattaforma", u"platform/base/disco.cpp"_s, "QFile::remove(Nome);\n", QString());
}

void TestArchitettura::chiToccaIlDiscoSiScopre()
{
    QFETCH(QString, File);
    QFETCH(QByteArray, Testo);
    const Casa Piccola = CasaDiProva();
    QCOMPARE(UnaPerRiga(DiscoToccato(Piccola)), QString());
    Scrivi(Piccola.Radice + File, Testo);
    QTEST(UnaPerRiga(DiscoToccato(Piccola)), "Frase");
}

void TestArchitettura::chiChiamaIlSistemaSiScopre()
{
    const Casa Piccola = CasaDiProva();
    QCOMPARE(UnaPerRiga(AmbienteToccato(Piccola)), QString());
    Scrivi(Piccola.Radice + u"platform/base/ambiente.cpp"_s, "auto Dove = qgetenv(Nome);\n");
    Scrivi(Piccola.Radice + u"conti/somma.cpp"_s,
           "int x;  // not by getenv\nauto Dove = getenv(Nome);\nqputenv(Nome, Dove);\n"
           "if (qEnvironmentVariableIsSet(Nome))\n    std::system(Nome);\n");
    QCOMPARE(
        UnaPerRiga(AmbienteToccato(Piccola)),
        u"src/conti/somma.cpp:2 calls getenv: only platform/ calls the operating system\n"
        "src/conti/somma.cpp:3 calls qputenv: only platform/ calls the operating system\n"
        "src/conti/somma.cpp:4 calls qEnvironmentVariableIsSet: only platform/ calls the operating system\n"
        "src/conti/somma.cpp:5 calls std::system: only platform/ calls the operating system"_s);
}

void TestArchitettura::iNomiDoppiSiScoprono()
{
    const Casa Piccola = CasaDiProva();
    QCOMPARE(UnaPerRiga(NomiDoppi(Piccola)), QString());
    // A member and a forward declaration are no second meaning.
    Scrivi(Piccola.Radice + u"conti/altra.h"_s,
           "#pragma once\nstruct Tabella;\nstruct Voce\n{\n    int Somma();\n};\n");
    QCOMPARE(UnaPerRiga(NomiDoppi(Piccola)), QString());
    Scrivi(Piccola.Radice + u"conti/terza.h"_s,
           "#pragma once\nenum class Tabella { Prima };\n[[nodiscard]] QString Numero(int Quale);\n");
    QCOMPARE(UnaPerRiga(NomiDoppi(Piccola)),
             u"Numero is declared in src/conti/terza.h and in src/platform/base/numero.h\n"
             "Tabella is declared in src/conti/terza.h and in src/platform/database/tabella.h"_s);
}

void TestArchitettura::ogniDichiarazioneConta_data()
{
    QTest::addColumn<QByteArray>("Sotto");
    QTest::addColumn<QByteArray>("Sopra");
    QTest::addColumn<QString>("Nome");

    QTest::newRow("variabile") << QByteArray("inline int Aliquota = 4;\n")
                               << QByteArray("extern double Aliquota;\n") << u"Aliquota"_s;
    QTest::newRow("alias") << QByteArray("using Riga = int;\n") << QByteArray("struct Riga\n{\n};\n")
                           << u"Riga"_s;
    QTest::newRow("spazi annidati") << QByteArray("namespace a::b {\nint Voce();\n}\n")
                                    << QByteArray("namespace a {\nnamespace b {\nint Voce();\n}\n}\n")
                                    << u"Voce"_s;
    QTest::newRow("uno spazio e nessuno")
        << QByteArray("int Voce();\n") << QByteArray("namespace conti {\nint Voce();\n}\n") << u"Voce"_s;
    QTest::newRow("due spazi") << QByteArray("namespace a {\nint Voce();\n}\n")
                               << QByteArray("namespace b {\nint Voce();\n}\n") << u"Voce"_s;
}

/// Whatever its form, a declaration outside every class takes its name.
void TestArchitettura::ogniDichiarazioneConta()
{
    QFETCH(QByteArray, Sotto);
    QFETCH(QByteArray, Sopra);
    QFETCH(QString, Nome);
    const Casa Piccola = CasaDiProva();
    Scrivi(Piccola.Radice + u"platform/base/sotto.h"_s, "#pragma once\n" + Sotto);
    QCOMPARE(UnaPerRiga(NomiDoppi(Piccola)), QString());
    Scrivi(Piccola.Radice + u"conti/sopra.h"_s, "#pragma once\n" + Sopra);
    QCOMPARE(UnaPerRiga(NomiDoppi(Piccola)),
             Nome + u" is declared in src/conti/sopra.h and in src/platform/base/sotto.h"_s);
}

void TestArchitettura::ilNomeDiDueSorgentiSiScopre_data()
{
    QTest::addColumn<QByteArray>("Primo");
    QTest::addColumn<QByteArray>("Secondo");
    QTest::addColumn<QString>("Detto");  // line and name; empty where the two get along

    const auto Riga = [](const char* Nome, const QByteArray& Primo, const QByteArray& Secondo,
                         const QString& Detto = {}) { QTest::newRow(Nome) << Primo << Secondo << Detto; };
    const auto Senza = [](const QByteArray& Testo) {
        return "namespace {\n\n" + Testo + "\n}  // namespace\n";
    };
    Riga("one function", Senza("int Doppio(int Numero)\n{\n    return 2 * Numero;\n}\n"),
         Senza("int Doppio(int Quale)\n{\n    return Quale + Quale;\n}\n"), u"3 Doppio(int)"_s);
    Riga("one of them static", Senza("bool Vale(const QString& Nome, int Quanti = 1)\n{\n}\n"),
         "static bool Vale(const QString& Altro,\n                 int)\n{\n}\n",
         u"1 Vale(const QString&, int)"_s);
    Riga("one pattern", Senza("template <class F>\nvoid Prova(F&& Fai)\n{\n}\n"),
         Senza("template <class F>\nvoid Prova(F&& Altro)\n{\n}\n"), u"3 Prova(F&&)"_s);
    Riga("one type", Senza("struct Voce\n{\n    int Numero;\n};\n"),
         Senza("class Voce : public Altra\n{\n};\n"), u"3 Voce"_s);
    Riga("one constant", Senza("constexpr int Massimo = 3;\n"),
         Senza("constexpr std::array Massimo{\n    1,\n};\n"), u"3 Massimo"_s);
    Riga("in one further namespace",
         "namespace conti {\nnamespace {\n\nint Uno();\n\n}  // namespace\n}  // namespace conti\n",
         "namespace conti {\nnamespace {\n\nint Uno();\n\n}  // namespace\n}  // namespace conti\n",
         u"4 conti::Uno()"_s);
    Riga("behind a body full of brackets",
         Senza("QString Testo()\n{\n    return u\"{{\" + u'{';  // }\n}\nint Due = 2;\n"),
         Senza("int Due = 3;\n"), u"3 Due"_s);
    Riga("other parameters", Senza("int Doppio(int Numero)\n{\n}\n"),
         Senza("int Doppio(double Numero)\n{\n}\n"));
    Riga("in another namespace", Senza("int Doppio(int Numero)\n{\n}\n"),
         "namespace conti {\nnamespace {\n\nint Doppio(int Numero);\n\n}  // namespace\n}  // namespace "
         "conti\n");
    Riga("announced and written", Senza("int Uno();\n\nint Uno()\n{\n    int Due = 1;\n}\n"),
         Senza("struct Altra;\n\nvoid Tre()\n{\n    int Uno = 1;\n    int Due = 1;\n}\n"));
    Riga("for everybody", "int Doppio(int Numero)\n{\n}\n", "int Doppio(int Numero)\n{\n}\n");
}

void TestArchitettura::ilNomeDiDueSorgentiSiScopre()
{
    QFETCH(QByteArray, Primo);
    QFETCH(QByteArray, Secondo);
    QFETCH(QString, Detto);
    const Casa Piccola = CasaDiProva();
    Scrivi(Piccola.Radice + u"conti/a.cpp"_s, Primo);
    Scrivi(Piccola.Radice + u"conti/windows/a.cpp"_s, Secondo);
    QCOMPARE(UnaPerRiga(NomiDiDueSorgenti(Piccola)), QString());  // rooms are compiled each by itself
    Scrivi(Piccola.Radice + u"conti/b.cpp"_s, Secondo);
    const QString Frase =
        u"src/conti/b.cpp:%1 has %2 for itself, and so has src/conti/a.cpp: sources of a room are "
        "compiled together"_s;
    QCOMPARE(UnaPerRiga(NomiDiDueSorgenti(Piccola)),
             Detto.isEmpty() ? QString() : Frase.arg(Detto.section(u' ', 0, 0), Detto.section(u' ', 1)));
}

void TestArchitettura::unaFrecciaInSuSiScopre()
{
    Casa Piccola = CasaDiProva();
    QCOMPARE(UnaPerRiga(FrecceInSu(Piccola)), QString());
    Piccola.Stanze[u"platform/base"_s].PuoConoscere += u"conti"_s;
    Piccola.Stanze[u"conti"_s].PuoConoscere += u"conti/nulla"_s;
    QCOMPARE(UnaPerRiga(FrecceInSu(Piccola)),
             u"platform/base may know conti, which does not stand above it in the table\n"
             "conti may know conti/nulla, which does not stand above it in the table"_s);
}

void TestArchitettura::unaFrecciaSenzaUsoSiScopre()
{
    Casa Piccola = CasaDiProva();
    // The engine includes nothing of the room below it, the form nothing but its own logic.
    const QString Ferme = u"platform/database may know platform/base and includes nothing of it\n"
                          "conti/windows may know platform/base and includes nothing of it"_s;
    QCOMPARE(UnaPerRiga(FrecceSenzaUso(Piccola)), Ferme);
    Piccola.Stanze[u"conti"_s].PuoConoscere += u"platform/database"_s;
    QCOMPARE(FrecceSenzaUso(Piccola)[1], u"conti may know platform/database and includes nothing of it"_s);
    Scrivi(Piccola.Radice + u"conti/altra.cpp"_s, "#include \"platform/database/tabella.h\"\n");
    QCOMPARE(UnaPerRiga(FrecceSenzaUso(Piccola)), Ferme);
    // A form of the designer counts as well.
    Scrivi(Piccola.Radice + u"conti/windows/frmAltra.ui"_s,
           "<ui>\n<header>platform/base/numero.h</header>\n</ui>\n");
    QCOMPARE(UnaPerRiga(FrecceSenzaUso(Piccola)), Ferme.section(u'\n', 0, 0));
}

void TestArchitettura::unaStanzaGrandeSiScopre()
{
    const Casa Piccola = CasaDiProva();
    for (const QStringView Altra : {u"platform/base", u"platform/database", u"conti"})
        Scrivi(Piccola.Radice + Altra.toString() + u"/lungo.h"_s, QByteArray("\n").repeated(300));
    QCOMPARE(StanzeTroppoGrandi(Piccola).size(), 3);
    Scrivi(Piccola.Radice + u"conti/windows/lungo.h"_s, QByteArray("\n").repeated(3000));
    QVERIFY(StanzeTroppoGrandi(Piccola).filter(u"conti/windows holds 3003 of "_s).size() == 1);
}

void TestArchitettura::laProvaCondizionataSiScopre()
{
    const QString Cartella = NuovaCartella();
    const QByteArray Classe = "class TestX : public QObject\n{\n    Q_OBJECT\n";
    Scrivi(Cartella + u"TestIntera.cpp"_s,
           "#ifdef A\nint A;\n#endif\n" + Classe + "};\n#ifdef B\nint B;\n#endif\n");
    QCOMPARE(ProveCondizionate(Cartella), QStringList());
    Scrivi(Cartella + u"TestFunzione.cpp"_s, Classe + "#ifdef A\n    void a();\n#endif\n};\n");
    Scrivi(Cartella + u"TestTutta.cpp"_s, "#ifdef A\n" + Classe + "};\n#endif\n");
    QCOMPARE(ProveCondizionate(Cartella).size(), 2);
}

#include "TestArchitettura.moc"
