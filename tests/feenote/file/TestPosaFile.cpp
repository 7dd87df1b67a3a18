// How the file of a note takes its place: whose it is, what it replaces, what killed programs have left
// beside it.
#include "file_prova.h"

#include "core/sessione.h"
#include "feenote/file/improntanota.h"
#include "feenote/file/modSalvataggio.h"
#include "feenote/modStato.h"
#include "platform/system/attese.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "supporto/guasti.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QSysInfo>

#include <filesystem>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

int Modo(const QString& File)
{
    struct stat Suo = {};
    return ::stat(QFile::encodeName(File).constData(), &Suo) == 0 ? int(Suo.st_mode & 0777) : 0;
}

void ImpostaModo(const QString& File, mode_t Nuovo)
{
    QVERIFY(::chmod(QFile::encodeName(File).constData(), Nuovo) == 0);
}

const QByteArray DiUnMorto = "99999999\ncalcanova\n" + QSysInfo::machineHostName().toUtf8() + "\n";
const QByteArray DiAltraMacchina = "4321\ncalcanova\nsegreteria\n";

}  // namespace

class TestPosaFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void diChiENuova_data();
    void diChiENuova();
    void restaDiChiEra_data();
    void restaDiChiEra();
    void ilTuboNonSiSostituisce();
    void ilCollegamentoResta();
    void unSecondoNomeTieneQuelCheAveva();
    void ilModelloNasceProtetto();
    void protettaEVecchia();
    void protettaEVecchiaADiscoPieno();
    void restiDiAltreNote();
    void unMortoNonSiAspetta();
    void ilTurnoLasciatoSiDice();
    void ilTurnoLasciatoSiToglie_data();
    void ilTurnoLasciatoSiToglie();
    void ilGiornaleLasciato_data();
    void ilGiornaleLasciato();
    void ilGiornaleCheNonSiLegge();
    void ilGiornaleOrfanoNonTornaNellaNota_data();
    void ilGiornaleOrfanoNonTornaNellaNota();
    void ilGiornaleOrfanoCheNonSiScosta();
    void ilGiornaleCheNonSiToglieFerma();
    void ilGiornaleFreddoNonSiTiene_data();
    void ilGiornaleFreddoNonSiTiene();
    void ilGiornaleDiUnAltroNonSiButta();
    void ilGiornaleDiChiScriveResta();
    void loStatoNonCambiaLaCopia();

private:
    /// A template from before a column came.
    void Invecchia() const;
    /// The journal by which the engine would undo a write into the note.
    [[nodiscard]] QByteArray GiornaleCaldo() const;

    QString Cartella;
    QString File;
    mode_t Prima = 022;
};
PROVA(TestPosaFile);

void TestPosaFile::init()
{
    attese::TurnoMs = 200;
    Cartella = NuovaCartella();
    File = Cartella + u"nota.mdb"_s;
    Prima = ::umask(0);
}

void TestPosaFile::cleanup()
{
    attese::TurnoMs = 3000;
    guasti::LimitePagine = 0;
    guasti::FileTrattenuti.clear();
    guasti::PrimaDellaCartella = {};
    ::umask(Prima);
}

void TestPosaFile::Invecchia() const
{
    ScriviNota(File, NotaPiena());
    EseguiSu(File, u"ALTER TABLE ParcellaParam DROP COLUMN SpeseGen"_s);
    ImpostaModo(File, 0444);
}

QByteArray TestPosaFile::GiornaleCaldo() const
{
    ScriviNota(File, NotaPiena());
    const Database Aperto = OpenDatabase(File);
    Aperto.Execute(u"PRAGMA cache_size=1"_s);
    const Transazione Aperta(Aperto);
    Aperto.Execute(u"UPDATE ParcellaParam SET Oggetto='altro'"_s);
    Aperto.Execute(u"UPDATE ParcellaRighe SET Descr=printf('%.4000c', 'x')"_s);
    return LeggiFile(File + u"-journal"_s);
}

void TestPosaFile::diChiENuova_data()
{
    QTest::addColumn<int>("DellaCartella");
    QTest::addColumn<int>("Atteso");
    QTest::newRow("the user's folder") << 0755 << 0600;
    QTest::newRow("an office's folder") << 0770 << 0660;
}

void TestPosaFile::diChiENuova()
{
    QFETCH(int, DellaCartella);
    const Studio Ufficio;
    const Registratore Messaggi;
    ImpostaModo(Cartella, mode_t(DellaCartella));
    ScriviNota(File, NotaCivile());
    QTEST(Modo(File), "Atteso");
    ScriviNota(Cartella + u"copia.mdb"_s, NotaCivile(), false, Lettori::SoloUtente);
    QCOMPARE(Modo(Cartella + u"copia.mdb"_s), 0600);
}

void TestPosaFile::restaDiChiEra_data()
{
    QTest::addColumn<int>("Era");
    QTest::newRow("the user's") << 0600;
    QTest::newRow("an office's") << 0664;
}

void TestPosaFile::restaDiChiEra()
{
    QFETCH(int, Era);
    const Studio Ufficio;
    const Registratore Messaggi;
    ScriviNota(File, NotaCivile());
    ImpostaModo(File, mode_t(Era));
    ScriviNota(File, NotaCivile());
    QCOMPARE(Modo(File), Era);
}

/// A save replaces a fee note, never anything else.
void TestPosaFile::ilTuboNonSiSostituisce()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    QCOMPARE(::mkfifo(QFile::encodeName(File).constData(), 0600), 0);
    QCOMPARE(NumeroErrore([&] { ScriviNota(File, NotaCivile()); }), 75);
    struct stat Suo = {};
    QCOMPARE(::stat(QFile::encodeName(File).constData(), &Suo), 0);
    QVERIFY(S_ISFIFO(Suo.st_mode));
}

void TestPosaFile::ilCollegamentoResta()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    ScriviNota(File, NotaCivile());
    const QString Altrove = NuovaCartella();
    const QString Nome = Altrove + u"link.mdb"_s;
    QVERIFY(QFile::link(File, Nome));
    Parcella Cambiata = NotaCivile();
    Cambiata.txtCliente.Testo = u"Cambiato"_s;
    ScriviNota(Nome, Cambiata);
    QVERIFY(QFileInfo(Nome).isSymLink());
    QCOMPARE(Parametro(File, u"Cliente"_s).toString(), u"Cambiato"_s);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"nota.mdb"_s});
    QCOMPARE(ContenutoDi(Altrove), QStringList{u"link.mdb"_s});
}

/// The copies of a backup may be second names of the same file: a save changes the one that it was asked for.
void TestPosaFile::unSecondoNomeTieneQuelCheAveva()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    ScriviNota(File, NotaCivile());
    const QString Copia = NuovaCartella() + u"copia.mdb"_s;
    std::filesystem::create_hard_link(File.toStdString(), Copia.toStdString());
    const QByteArray Tenuto = LeggiFile(Copia);
    Parcella Cambiata = NotaCivile();
    Cambiata.txtCliente.Testo = u"Cambiato"_s;
    ScriviNota(File, Cambiata);
    QCOMPARE(Parametro(File, u"Cliente"_s).toString(), u"Cambiato"_s);
    QVERIFY(LeggiFile(Copia) == Tenuto);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"nota.mdb"_s});
}

void TestPosaFile::ilModelloNasceProtetto()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    ScriviNota(File, NotaCivile(), true);
    QCOMPARE(Modo(File), 0400);
    QCOMPARE(NumeroErrore([&] { ScriviNota(File, NotaCivile()); }), 70);
}

void TestPosaFile::protettaEVecchia()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    Invecchia();
    const auto Numero = QFileInfo(File).size();
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.txtCliente.Testo, u"Rossi Mario"_s);
    QVERIFY(!DaAggiornare(File));
    QCOMPARE(Modo(File), 0444);
    QVERIFY(Numero > 0);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"nota.mdb"_s});
}

void TestPosaFile::protettaEVecchiaADiscoPieno()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    Invecchia();
    const QByteArray Intera = LeggiFile(File);
    Parcella Letta;
    {
        const LimiteDiScrittura Pieno{rlim_t(Intera.size() / 2)};
        QVERIFY(NumeroErrore([&] { CaricaDati(Letta, File); }) != 0);
    }
    QVERIFY(LeggiFile(File) == Intera);
    QCOMPARE(Modo(File), 0444);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"nota.mdb"_s});
    CaricaDati(Letta, File);
    QCOMPARE(Letta.txtCliente.Testo, u"Rossi Mario"_s);
}

void TestPosaFile::restiDiAltreNote()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    const QStringList Resti{u".~altra.mdb.tmp"_s,
                            u".~altra.mdb.tmp-journal"_s,
                            u".~altra.mdb.turno"_s,
                            u".~altra.mdb.turno.rmlock"_s,
                            u".~terza.mdb.tmp"_s,
                            u".~.~quarta.mdb.tmp.tmp"_s,
                            u".~.~quinta.mdb.tmp-access.tmp"_s,
                            u".~Tassi.dat.turno"_s,
                            u".~Tassi.dat.tmp-journal"_s,
                            u".~Altri.dat.tmp-journal"_s};
    for (const QString& Resto : Resti)
        ScriviFile(Cartella + Resto, DiUnMorto);
    const QStringList DiAltri{u".~appunti.tmp"_s,  u".~Tassi.dat.tmp"_s,      u"altra.mdb.tmp"_s,
                              u".~viva.mdb.tmp"_s, u".~.~viva.mdb.tmp.tmp"_s, u".~viva.mdb.turno"_s};
    for (const QString& Altrui : DiAltri)
        if (!Altrui.endsWith(u"turno"))
            ScriviFile(Cartella + Altrui, "x");
    FileBlocco Viva(Cartella + u".~viva.mdb.turno"_s);
    QCOMPARE(Viva.Prendi(0), FileBlocco::Esito::Preso);
    ScriviNota(File, NotaCivile());
    QStringList Rimasti = DiAltri + QStringList{u"nota.mdb"_s};
    Rimasti.sort();
    QStringList Trovati = ContenutoDi(Cartella);
    Trovati.sort();
    QVERIFY2(Trovati == Rimasti, qPrintable(Trovati.join(u' ')));
}

void TestPosaFile::unMortoNonSiAspetta()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    attese::TurnoMs = 20000;
    for (const QString& Resto : {u".~nota.mdb.tmp"_s, u".~nota.mdb.tmp-journal"_s, u".~nota.mdb.turno"_s})
        ScriviFile(Cartella + Resto, DiUnMorto);
    ScriviFile(Cartella + u".~nota.mdb.turno.rmlock"_s, {});
    QElapsedTimer Orologio;
    Orologio.start();
    ScriviNota(File, NotaCivile());
    QVERIFY2(Orologio.elapsed() < 10000, qPrintable(QString::number(Orologio.elapsed())));
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"nota.mdb"_s});
}

void TestPosaFile::ilTurnoLasciatoSiDice()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    const QString Turno = Cartella + u".~nota.mdb.turno"_s;
    ScriviFile(Turno, DiAltraMacchina);
    QVERIFY2(!TurnoAbbandonato(File), "perhaps somebody saves there just now");
    ImpostaDataFile(Turno, QDateTime(QDate(2020, 1, 3), QTime(10, 30)));
    const ErroreVisto Guasto = ErroreDi([&] { ScriviNota(File, NotaCivile()); });
    QCOMPARE(Guasto.Numero, 3260);
    QCOMPARE(Guasto.Descrizione,
             u"Il salvataggio è trattenuto dal file .~nota.mdb.turno, nella cartella "_s + Cartella +
                 u", lasciato dal computer segreteria il 03/01/2020 alle 10:30: se nessuno sta salvando, si "
                 u"può eliminare"_s);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u".~nota.mdb.turno"_s});
}

void TestPosaFile::ilTurnoLasciatoSiToglie_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    QTest::addColumn<QString>("DaChi");
    QTest::addColumn<int>("Risposta");
    QTest::addColumn<bool>("Salvata");
    QTest::newRow("another machine's, yes")
        << DiAltraMacchina << u"dal computer segreteria"_s << int(vbYes) << true;
    QTest::newRow("another machine's, no")
        << DiAltraMacchina << u"dal computer segreteria"_s << int(vbNo) << false;
    QTest::newRow("nobody can read it") << QByteArray("@@@") << u"non si sa da chi"_s << int(vbYes) << true;
}

void TestPosaFile::ilTurnoLasciatoSiToglie()
{
    QFETCH(QByteArray, Contenuto);
    QFETCH(QString, DaChi);
    QFETCH(int, Risposta);
    QFETCH(bool, Salvata);
    const Studio Ufficio;
    Registratore Messaggi;
    const QString Turno = Cartella + u".~nota.mdb.turno"_s;
    ScriviFile(Turno, Contenuto);
    ImpostaDataFile(Turno, QDateTime(QDate(2020, 1, 3), QTime(10, 30)));
    Parcella Nota = NotaCivile();
    Messaggi.AttendiSalva(File);
    Messaggi.Attendi(u"Il salvataggio è trattenuto dal file .~nota.mdb.turno, nella cartella "_s + Cartella +
                         u", lasciato "_s + DaChi +
                         u" il 03/01/2020 alle 10:30.\nSe nessuno sta salvando la parcella, il file si può "
                         u"eliminare.\nEliminarlo e salvare?"_s,
                     Risposta, u"Domanda:"_s);
    QCOMPARE(SalvaConDialogo(Nota, false).has_value(), Salvata);
    QCOMPARE(EsisteFile(File), Salvata);
    QCOMPARE(EsisteFile(Turno), !Salvata);
}

void TestPosaFile::ilGiornaleLasciato_data()
{
    QTest::addColumn<bool>("GiaNelFile");
    QTest::newRow("nothing had reached the file") << false;
    QTest::newRow("half of it had") << true;
}

/// What the former note is mended by is not thrown away because it cannot be read at the moment.
void TestPosaFile::ilGiornaleCheNonSiLegge()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    ScriviNota(File, NotaPiena());
    const QByteArray Byte = LeggiFile(File);
    QVERIFY(QDir().mkdir(File + u"-journal"_s));  // the system opens it, and reads nothing
    QCOMPARE(NumeroErrore([&] { ScriviNota(File, NotaPiena()); }), errori::DiscoORete);
    QCOMPARE(LeggiFile(File), Byte);
    QVERIFY(QDir().rmdir(File + u"-journal"_s));
    // What is no database has none.
    ScriviFile(File, QByteArray(5000, 'x'));
    ScriviNota(File, NotaPiena());
    QCOMPARE(Parametro(File, u"Oggetto"_s).toString(), NotaPiena().txtOggetto.Testo);
}

/// A program that is killed while it writes a note in place leaves its journal.
void TestPosaFile::ilGiornaleLasciato()
{
    QFETCH(bool, GiaNelFile);
    const Studio Ufficio;
    const Registratore Messaggi;
    ScriviNota(File, NotaPiena());
    const QString Oggetto = Parametro(File, u"Oggetto"_s).toString();
    const QString Morta = Cartella + u"morta.mdb"_s;
    const QString Giornale = u"-journal"_s;
    {
        const Database Nota = OpenDatabase(File);
        if (GiaNelFile)
            Nota.Execute(u"PRAGMA cache_size=1"_s);
        const Transazione Aperta(Nota);
        Nota.Execute(u"UPDATE ParcellaParam SET Oggetto='altro'"_s);
        Nota.Execute(u"UPDATE ParcellaRighe SET Descr=printf('%.4000c', 'x')"_s);
        QVERIFY(QFile::copy(File, Morta));
        QVERIFY(QFile::copy(File + Giornale, Morta + Giornale));
    }
    const QByteArray Testa = LeggiFile(Morta + Giornale).left(1);
    QCOMPARE(Testa != QByteArray(1, '\0'), GiaNelFile);  // a hot journal says what it is
    // One that stands beside nothing may be somebody's who moves files about.
    ScriviFile(Cartella + u"sola.mdb"_s + Giornale, "x");
    TogliRestiDiNote(Cartella);
    QVERIFY(!EsisteFile(Morta + Giornale));
    QVERIFY(EsisteFile(Cartella + u"sola.mdb"_s + Giornale));
    QCOMPARE(Parametro(Morta, u"Oggetto"_s).toString(), Oggetto);
}

void TestPosaFile::ilGiornaleOrfanoNonTornaNellaNota_data()
{
    QTest::addColumn<bool>("RimastaAccess");
    QTest::newRow("the note was taken away") << false;
    QTest::newRow("one of the former program stands in its place") << true;
}

/// The note of a crash was taken away without its journal; what is saved under its name then is no part of
/// it.
void TestPosaFile::ilGiornaleOrfanoNonTornaNellaNota()
{
    QFETCH(bool, RimastaAccess);
    const Studio Ufficio;
    const Registratore Messaggi;
    Parcella Nota = NotaPiena();
    const QString Morta = Cartella + u"morta.mdb"_s;
    const QString Giornale = Morta + u"-journal"_s;
    const QByteArray Caldo = GiornaleCaldo();
    QVERIFY2(!Caldo.isEmpty() && Caldo.front() != '\0', "the engine would play it back");
    for (const QString& Orfano : {u".orfano"_s, u".orf2"_s}) {
        QFile::remove(Morta);
        ScriviFile(Giornale, Caldo);
        if (RimastaAccess)
            ScriviFile(Morta, QByteArray("\0\1\0\0Standard Jet DB\0", 20).leftJustified(4096, '\0'));
        Nota.txtOggetto.Testo = u"salvata dopo"_s + Orfano;
        ScriviNota(Morta, Nota);
        TogliRestiDiNote(Cartella);
        QCOMPARE(Parametro(Morta, u"Oggetto"_s).toString(), Nota.txtOggetto.Testo);
        QVERIFY(!EsisteFile(Giornale));
        QCOMPARE(LeggiFile(Giornale + Orfano), Caldo);
        QCOMPARE(EsisteFile(Morta + u".access"_s), RimastaAccess);
    }
}

/// Whoever is told that the disk has not confirmed a file believes that it is there.
void TestPosaFile::ilGiornaleOrfanoCheNonSiScosta()
{
    const Studio Ufficio;
    Registratore Messaggi;
    const QString Morta = Cartella + u"morta.mdb"_s;
    const QByteArray Caldo = GiornaleCaldo();
    ScriviFile(Morta + u"-journal"_s, Caldo);
    Parcella Nota = NotaPiena();
    guasti::PrimaDellaCartella = [](const QString& Quale) { return !Quale.endsWith(u".orfano"); };
    Messaggi.AttendiSalva(Morta);
    const ErroreVisto Guasto = ErroreDi([&] { (void)SalvaConDialogo(Nota, false); });
    QCOMPARE(Guasto.Numero, errori::Periferica);
    QCOMPARE(Guasto.Descrizione, DescrizioneErrore(errori::Periferica));
    QCOMPARE(Nota.Percorso, QString());
    QCOMPARE(Nota.Nome, NotaPiena().Nome);
    QVERIFY(!EsisteFile(Morta));
    QCOMPARE(LeggiFile(Morta + u"-journal"_s), Caldo);
    QCOMPARE(ContenutoDi(Cartella), (QStringList{u"morta.mdb-journal"_s, u"nota.mdb"_s}));
}

/// A journal that stands there once the way was free is a colleague's, who has begun to write since.
void TestPosaFile::ilGiornaleCheNonSiToglieFerma()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    ScriviNota(File, NotaPiena());
    const QByteArray Byte = LeggiFile(File);
    const QByteArray Giornale(512, '\0');
    ScriviFile(File + u"-journal"_s, Giornale);
    guasti::FileTrattenuti = File + u"-journal"_s;  // as where the system deletes nothing that is open
    QCOMPARE(NumeroErrore([&] { ScriviNota(File, NotaPiena()); }), errori::DatiBloccati);
    QCOMPARE(LeggiFile(File), Byte);
    QCOMPARE(LeggiFile(File + u"-journal"_s), Giornale);
    QCOMPARE(ContenutoDi(Cartella), (QStringList{u"nota.mdb"_s, u"nota.mdb-journal"_s}));
    guasti::FileTrattenuti.clear();
    ScriviNota(File, NotaPiena());
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"nota.mdb"_s});
}

void TestPosaFile::ilGiornaleFreddoNonSiTiene_data()
{
    QTest::addColumn<QByteArray>("Byte");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("the engine had not finished it") << QByteArray(512, '\0') + QByteArray(600, 'x');
}

/// What the engine itself would not look at mends no note.
void TestPosaFile::ilGiornaleFreddoNonSiTiene()
{
    QFETCH(QByteArray, Byte);
    const Studio Ufficio;
    const Registratore Messaggi;
    ScriviFile(File + u"-journal"_s, Byte);
    ScriviNota(File, NotaPiena());
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"nota.mdb"_s});
    QCOMPARE(Parametro(File, u"Oggetto"_s).toString(), NotaPiena().txtOggetto.Testo);
}

/// A back-up, shorter than the note of the crash, stands beside the journal of it.
void TestPosaFile::ilGiornaleDiUnAltroNonSiButta()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    ScriviNota(File, NotaPiena());
    const QByteArray Byte = LeggiFile(File);
    // Its page is 4096 bytes, of which the file had 65536.
    const QByteArray Giornale = QByteArray::fromHex("d9d505f920a163d7"
                                                    "00000000"
                                                    "00000000"
                                                    "00010000"
                                                    "00000200"
                                                    "00001000")
                                    .leftJustified(512, '\0');
    ScriviFile(File + u"-journal"_s, Giornale);
    QCOMPARE(NumeroErrore([&] { ScriviNota(File, NotaPiena()); }), int(errori::FormatoDatabase));
    QCOMPARE(LeggiFile(File), Byte);
    QCOMPARE(LeggiFile(File + u"-journal"_s), Giornale);
    QVERIFY(QFile::remove(File + u"-journal"_s));
    ScriviNota(File, NotaPiena());
}

void TestPosaFile::ilGiornaleDiChiScriveResta()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    ScriviNota(File, NotaPiena());
    const Database Nota = OpenDatabase(File);
    Transazione Aperta(Nota);
    Nota.Execute(u"UPDATE ParcellaParam SET Oggetto='altro'"_s);
    QVERIFY(EsisteFile(File + u"-journal"_s));
    TogliRestiDiNote(Cartella);
    QVERIFY(EsisteFile(File + u"-journal"_s));
    Aperta.Conferma();
    QCOMPARE(Parametro(File, u"Oggetto"_s).toString(), u"altro"_s);
}

/// A backup of hard links holds what it held, although the state is written in place.
void TestPosaFile::loStatoNonCambiaLaCopia()
{
    const Studio Ufficio;
    const Registratore Messaggi;
    ScriviNota(File, NotaPiena());
    ImpostaModo(File, 0640);
    Parcella Nota;
    CaricaDati(Nota, File);
    const QString Copia = Cartella + u"copia"_s;
    std::filesystem::create_hard_link(File.toStdString(), Copia.toStdString());
    const QByteArray Era = LeggiFile(Copia);
    QVERIFY(NotaInviata(Nota, StampaPrenotula));
    const ImprontaNota Aperta = ImprontaDi(File);
    const auto Immutata = [&] { return ImprontaDi(File) == Aperta; };
    QCOMPARE(ScriviSoloStato(Nota, Immutata), EsitoStato::Scritto);
    QCOMPARE(LeggiFile(Copia), Era);
    QVERIFY(LeggiFile(File) != Era);
    QCOMPARE(Modo(File), 0640);
    QCOMPARE(ContenutoDi(Cartella), (QStringList{u"copia"_s, u"nota.mdb"_s}));
    Parcella Letta;
    CaricaDati(Letta, File);
    QCOMPARE(Letta.Stato.Stato, StatoNota::Inviata);
}

#include "TestPosaFile.moc"
