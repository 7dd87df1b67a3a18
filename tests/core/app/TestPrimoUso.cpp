#include "scena.h"

#include "core/app/primouso.h"
#include "platform/base/numerierrore.h"
#include "platform/database/database.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

#include <cerrno>
#include <memory>

#include <sys/stat.h>

class TestPrimoUso : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void preparaCartelleEArchivio();
    void quelCheCeResta();
    void nonSostituisceUnArchivio_data();
    void nonSostituisceUnArchivio();
    void archivioDiSolaLettura();
    void archivioDelSoloUtente();
    void senzaArchivioVuoto();
    void parcelleAccantoAlProgramma_data();
    void parcelleAccantoAlProgramma();
    void archivioInUso_data();
    void archivioInUso();
    void laCartellaPropriaSiRifa();
    void tassiSeMancano();
    void tassiSenzaLaLoroData();
    void tassiGuasti_data();
    void tassiGuasti();
    void cartellaUtenteSparita();
    void cartellaRifiutata();
    void impostazioniIlleggibili();
    void impostazioniNonScrivibili();

private:
    std::unique_ptr<Scena> S;
    QString Documenti;
    QString Programma;
};
PROVA(TestPrimoUso);

namespace {

/// The one message of a first use that could not write.
QString NonPreparate(const QStringList& Cose, const QString& Perche = DescrizioneErrore(75))
{
    const QString Testo = u"Non è stato possibile preparare:\n- %1: %2 (75)\n"_s.arg(
        Cose.join(u", "), Perche.left(1).toLower() + Perche.mid(1));
    return Testo +
           u"Il programma si apre, ma ciò che vi si salva può andare perduto: verificare i permessi delle cartelle\n"_s +
           CartellaSpeciale(5) + u'\n' + CartellaFile(Scena::FileImpostazioni());
}

}  // namespace

void TestPrimoUso::init()
{
    S = std::make_unique<Scena>();
    Documenti = CartellaSpeciale(5);
    QDir(Documenti).removeRecursively();
    Programma = NuovaCartella();
    Scena::Salva(u"PercorsoProcedura"_s, Programma);
    // Whatever databases the program comes with: none of them is a note.
    const QStringList Fornite = QDir(ProgrammaDiProva()).entryList({u"*.mdb"_s}, QDir::Files);
    QVERIFY(Fornite.size() >= 4);
    for (const QString& Nome : Fornite)
        QVERIFY(QFile::copy(ProgrammaDiProva() + Nome, Programma + Nome));
}

void TestPrimoUso::cleanup()
{
    S.reset();
}

void TestPrimoUso::preparaCartelleEArchivio()
{
    const Registratore Box;
    PrimoUso();
    const QString Cartella = Documenti + Barra(u"Calcanova"_s);
    QCOMPARE(Scena::Parametro(u"UserFolder"_s), Documenti + Barra(u"KR5"_s));
    QCOMPARE(Scena::Parametro(u"ParcellePath"_s), Cartella + Barra(u"Parcelle"_s));
    QCOMPARE(Scena::Parametro(u"ArchivioCliCon"_s), Cartella + u"DatiStudio.mdb"_s);
    QVERIFY(EsisteCartella(Documenti + u"KR5"_s));
    QVERIFY(EsisteCartella(Cartella + u"Parcelle/Modelli"_s));
    QCOMPARE(LeggiFile(Cartella + u"DatiStudio.mdb"_s), LeggiFile(Programma + u"DatiStudio.mdb"_s));
    ImpostaVariabili();
    QCOMPARE(sessione::ParcellePath, Cartella + Barra(u"Parcelle"_s));
    QCOMPARE(sessione::ModelliPath, Cartella + Barra(u"Parcelle"_s) + Barra(u"Modelli"_s));
}

void TestPrimoUso::quelCheCeResta()
{
    const Registratore Box;
    const QList<std::pair<QString, QString>> Scelte{
        {u"UserFolder"_s, u"/miei/dati"_s},
        {u"ParcellePath"_s, u"/mie/parcelle"_s},
        {u"ArchivioCliCon"_s, u"/miei/clienti.mdb"_s},
    };
    for (const auto& [Chiave, Valore] : Scelte)
        Scena::Salva(Chiave, Valore);
    PrimoUso();
    for (const auto& [Chiave, Valore] : Scelte)
        QCOMPARE(Scena::Parametro(Chiave), Valore);
    QVERIFY(!EsisteCartella(Documenti + u"Calcanova"_s));
    QVERIFY(!EsisteCartella(Documenti + u"KR5"_s));
}

void TestPrimoUso::nonSostituisceUnArchivio_data()
{
    QTest::addColumn<QString>("Nome");

    QTest::newRow("same name") << u"DatiStudio.mdb"_s;
    QTest::newRow("name in capitals") << u"DATISTUDIO.MDB"_s;
}

void TestPrimoUso::nonSostituisceUnArchivio()
{
    QFETCH(QString, Nome);
    const Registratore Box;
    const QString Cartella = Documenti + Barra(u"Calcanova"_s);
    CreaCartella(Cartella);
    ScriviFile(Cartella + Nome, "dell'utente");
    PrimoUso();
    QCOMPARE(QDir(Cartella).entryList(QDir::Files), QStringList{Nome});
    QCOMPARE(LeggiFile(Cartella + Nome), "dell'utente");
}

void TestPrimoUso::archivioDiSolaLettura()
{
    const Registratore Box;
    ImpostaSolaLettura(Programma + u"DatiStudio.mdb"_s, true);
    PrimoUso();
    QVERIFY(!SolaLettura(Documenti + u"Calcanova/DatiStudio.mdb"_s));
}

/// An archive of clients is the user's from its first moment on: one for all to read, that a refusal or a
/// kill leaves, would be taken for his at the next start.
void TestPrimoUso::archivioDelSoloUtente()
{
    const mode_t Umask = ::umask(022);
    const auto Rimetti = qScopeGuard([Umask] { ::umask(Umask); });
    Registratore Box;
    const QString File = Documenti + u"Calcanova/DatiStudio.mdb"_s;
    PrimoUso();
    QCOMPARE(QFileInfo(File).permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    QVERIFY(QFile::remove(File));
    Scena::Salva(u"ArchivioCliCon"_s, QString());
    {
        const QScopedValueRollback Rifiuta(guasti::PermessiRifiutati, EACCES);
        Box.Attendi(NonPreparate({u"l'archivio dei clienti"_s}), vbOK, u"Errore:"_s);
        PrimoUso();
        QVERIFY(!EsisteFile(File));
    }
    PrimoUso();
    QCOMPARE(QFileInfo(File).permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    QCOMPARE(Scena::Parametro(u"ArchivioCliCon"_s), File);
}

void TestPrimoUso::senzaArchivioVuoto()
{
    const Registratore Box;
    QVERIFY(QFile::remove(Programma + u"DatiStudio.mdb"_s));
    PrimoUso();
    QCOMPARE(Scena::Parametro(u"ArchivioCliCon"_s), Documenti + u"Calcanova/DatiStudio.mdb"_s);
    QVERIFY(!EsisteFile(Documenti + u"Calcanova/DatiStudio.mdb"_s));
}

void TestPrimoUso::parcelleAccantoAlProgramma_data()
{
    QTest::addColumn<QString>("File");
    QTest::addColumn<bool>("Restano");

    QTest::newRow("notes in their folder") << u"Parcelle/uno.mdb"_s << true;
    QTest::newRow("a name in capitals") << u"Parcelle/UNO.MDB"_s << true;
    QTest::newRow("templates alone") << u"Parcelle/Modelli/appalto.mdb"_s << true;
    QTest::newRow("notes in the program's folder") << u"uno.mdb"_s << true;
    QTest::newRow("templates there") << u"Modelli/appalto.mdb"_s << true;
    QTest::newRow("what the program comes with") << u"Parcelle.mdb"_s << false;
    QTest::newRow("municipalities") << u"comuni.mdb"_s << false;
    QTest::newRow("another file") << u"Parcelle/leggimi.txt"_s << false;
}

void TestPrimoUso::parcelleAccantoAlProgramma()
{
    QFETCH(QString, File);
    QFETCH(bool, Restano);
    const Registratore Box;
    CreaCartella(CartellaFile(Programma + File));
    ScriviFile(Programma + File, "x");
    PrimoUso();
    QCOMPARE(Scena::Parametro(u"ParcellePath"_s).isEmpty(), Restano);
    ImpostaVariabili();
    const QString Accanto = Programma + (File.startsWith(u"Parcelle/") ? Barra(u"Parcelle"_s) : QString());
    QCOMPARE(sessione::ParcellePath == Accanto, Restano);
    // The archive is another matter: it is empty, and the user gets his own.
    QCOMPARE(Scena::Parametro(u"ArchivioCliCon"_s), Documenti + u"Calcanova/DatiStudio.mdb"_s);
}

void TestPrimoUso::archivioInUso_data()
{
    QTest::addColumn<QString>("Sql");

    QTest::newRow("a client") << u"INSERT INTO clienti (Nominativo) VALUES ('Rossi')"_s;
    QTest::newRow("a counterparty") << u"INSERT INTO controparti (Nominativo) VALUES ('Bianchi')"_s;
    QTest::newRow("not to be read") << QString();
}

void TestPrimoUso::archivioInUso()
{
    QFETCH(QString, Sql);
    const Registratore Box;
    const QString File = Programma + u"DatiStudio.mdb"_s;
    if (Sql.isEmpty())
        ScriviFile(File, "rumore");
    else
        OpenDatabase(File).Execute(Sql);
    PrimoUso();
    QCOMPARE(Scena::Parametro(u"ArchivioCliCon"_s), QString());
    QVERIFY(!EsisteFile(Documenti + u"Calcanova/DatiStudio.mdb"_s));
    ImpostaVariabili();
    QCOMPARE(sessione::ArchivioCliCon, File);
    QCOMPARE(Scena::Parametro(u"ParcellePath"_s), Documenti + Barra(u"Calcanova"_s) + Barra(u"Parcelle"_s));
}

void TestPrimoUso::laCartellaPropriaSiRifa()
{
    const Registratore Box;
    PrimoUso();
    const QString Utente = Scena::Parametro(u"UserFolder"_s);
    QVERIFY(QDir(Utente).removeRecursively());
    PrimoUso();
    QVERIFY(EsisteCartella(Utente));
    ImpostaVariabili();  // without a word
    QCOMPARE(sessione::UserFolder, Utente);
}

void TestPrimoUso::tassiSeMancano()
{
    const Registratore Box;
    const QString Utente = NuovaCartella();
    Scena::Salva(u"UserFolder"_s, Utente.chopped(1));
    PrimoUso();
    QVERIFY2(!EsisteFile(Utente + u"Tassi.dat"_s), "the program has none to give");
    const QByteArray Forniti = LeggiFile(ProgrammaDiProva() + u"Tassi.dat"_s);
    ScriviFile(Programma + u"tassi.dat"_s, Forniti);
    const QDateTime Quando(QDate(2026, 8, 31), QTime(12, 0));
    ImpostaDataFile(Programma + u"tassi.dat"_s, Quando);
    PrimoUso();
    QCOMPARE(LeggiFile(Utente + u"Tassi.dat"_s), Forniti);
    QCOMPARE(DataFile(Utente + u"Tassi.dat"_s), Quando);  // the copy of an old archive is no new one
    ScriviFile(Programma + u"tassi.dat"_s, "2");
    PrimoUso();
    QCOMPARE(LeggiFile(Utente + u"Tassi.dat"_s), Forniti);
}

/// Rates that look new would be asked for no update; the archive's age means nothing.
void TestPrimoUso::tassiSenzaLaLoroData()
{
    Registratore Box;
    const QString Utente = NuovaCartella();
    Scena::Salva(u"UserFolder"_s, Utente.chopped(1));
    for (const QString& Nome : {u"Tassi.dat"_s, u"DatiStudio.mdb"_s})
        ScriviFile(Programma + Nome, LeggiFile(ProgrammaDiProva() + Nome));
    const QDateTime Quando(QDate(2026, 8, 31), QTime(12, 0));
    ImpostaDataFile(Programma + u"Tassi.dat"_s, Quando);
    {
        const QScopedValueRollback Fissa(guasti::DateRifiutate, true);
        Box.Tollera();
        // At the start, and where the settings have named the folder: no permission is at fault.
        for (const bool AllAvvio : {true, false}) {
            Box.Sparecchia();
            AllAvvio ? PrimoUso() : (void)Protetta(PreparaTassi);
            QCOMPARE(Box.Mostrati().size(), 1);
            QVERIFY2(Box.UltimoTesto().contains(u"archivio dei tassi non è stato copiato nella cartella "_s +
                                                Utente),
                     qPrintable(Box.UltimoTesto()));
            QVERIFY(!Box.UltimoTesto().contains(u"permessi"_s));
        }
        QVERIFY(!EsisteFile(Utente + u"Tassi.dat"_s));
        QVERIFY(EsisteFile(Scena::Parametro(u"ArchivioCliCon"_s)));
    }
    PrimoUso();
    QCOMPARE(DataFile(Utente + u"Tassi.dat"_s), Quando);
}

void TestPrimoUso::tassiGuasti_data()
{
    QTest::addColumn<QByteArray>("Forniti");
    QTest::addColumn<int>("Numero");

    const QByteArray Sani = LeggiFile(ProgrammaDiProva() + u"Tassi.dat"_s);
    QTest::newRow("empty") << QByteArray() << 3343;
    QTest::newRow("cut in half") << Sani.first(Sani.size() / 2) << 3343;
    QTest::newRow("another archive") << LeggiFile(ProgrammaDiProva() + u"parcelle.mdb"_s) << 3078;
}

// A copy would stay for good, and nobody would know where it came from.
void TestPrimoUso::tassiGuasti()
{
    QFETCH(QByteArray, Forniti);
    QFETCH(int, Numero);
    Registratore Box;
    const QString Utente = NuovaCartella();
    Scena::Salva(u"UserFolder"_s, Utente.chopped(1));
    const QString File = Programma + u"Tassi.dat"_s;
    ScriviFile(File, Forniti);
    Box.Attendi(u"Errore: %1%2%3 (%4)"_s
                    .arg(DescrizioneErrore(Numero), Numero == 3078 ? u" nel file "_s : u": "_s, File)
                    .arg(Numero),
                vbOK, u"Errore:"_s);
    PrimoUso();
    QVERIFY(!EsisteFile(Utente + u"Tassi.dat"_s));
    ScriviFile(File, LeggiFile(ProgrammaDiProva() + u"Tassi.dat"_s));
    PrimoUso();
    QVERIFY(EsisteFile(Utente + u"Tassi.dat"_s));
}

void TestPrimoUso::cartellaUtenteSparita()
{
    const Registratore Box;
    const QString Utente = NuovaCartella() + u"sparita"_s;
    ScriviFile(Programma + u"Tassi.dat"_s, "1");
    Scena::Salva(u"UserFolder"_s, Utente);
    PrimoUso();
    QVERIFY2(!EsisteCartella(Utente), "a folder of the user's choice is his to make");
}

void TestPrimoUso::cartellaRifiutata()
{
    Registratore Box;
    CreaCartella(Documenti);
    // A file stands where the folder should be.
    ScriviFile(Documenti + u"Calcanova"_s, "");
    Box.Attendi(NonPreparate({u"la cartella delle parcelle"_s, u"l'archivio dei clienti"_s}), vbOK,
                u"Errore:"_s);
    PrimoUso();
    QCOMPARE(Scena::Parametro(u"ParcellePath"_s), QString());
    QCOMPARE(Scena::Parametro(u"ArchivioCliCon"_s), QString());
    QCOMPARE(Scena::Parametro(u"UserFolder"_s), Documenti + Barra(u"KR5"_s));
    // The next start, with the folder free again, makes up for it.
    QVERIFY(QFile::remove(Documenti + u"Calcanova"_s));
    PrimoUso();
    QVERIFY(EsisteFile(Scena::Parametro(u"ArchivioCliCon"_s)));
}

/// What the user has chosen is there, and cannot be read just now: nothing is chosen in its place.
void TestPrimoUso::impostazioniIlleggibili()
{
    Registratore Box;
    Scena::Salva(u"ArchivioCliCon"_s, u"/miei/clienti.mdb"_s);
    QVERIFY(QFile::setPermissions(Scena::FileImpostazioni(), {}));
    Box.Attendi(NonPreparate({u"la cartella dei dati dell'utente"_s, u"la cartella delle parcelle"_s,
                              u"l'archivio dei clienti"_s, u"l'archivio dei tassi"_s},
                             u"Impossibile leggere le impostazioni nel file %1: %2"_s.arg(
                                 Scena::FileImpostazioni(), DescrizioneErrore(75))),
                vbOK, u"Errore:"_s);
    PrimoUso();
    QVERIFY(QFile::setPermissions(Scena::FileImpostazioni(), QFile::ReadOwner | QFile::WriteOwner));
    QVERIFY(!EsisteCartella(Documenti + u"Calcanova"_s));
    QCOMPARE(Scena::Parametro(u"ArchivioCliCon"_s), u"/miei/clienti.mdb"_s);
}

void TestPrimoUso::impostazioniNonScrivibili()
{
    Registratore Box;
    // A folder stands where the store should be.
    QVERIFY(QFile::remove(Scena::FileImpostazioni()));
    QVERIFY(QDir().mkpath(Scena::FileImpostazioni() + u"/x"_s));
    Box.Attendi(NonPreparate({u"la cartella dei dati dell'utente"_s, u"la cartella delle parcelle"_s,
                              u"l'archivio dei clienti"_s},
                             Scena::PercheImpostazioni()),
                vbOK, u"Errore:"_s);
    PrimoUso();
    ImpostaVariabili();
    QVERIFY(QDir(Scena::FileImpostazioni()).removeRecursively());
    // The session works in the user's folder all the same.
    QCOMPARE(sessione::UserFolder, Documenti + Barra(u"KR5"_s));
    QVERIFY(EsisteCartella(sessione::UserFolder));
}

#include "TestPrimoUso.moc"
