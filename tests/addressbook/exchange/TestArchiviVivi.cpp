// Archives and notes that another program keeps in its own way, has open, or was killed over: what is taken
// of them is whole, and they stay as they are.
#include "studio.h"

#include "addressbook/exchange/archiviointero.h"
#include "addressbook/exchange/archivionativo.h"
#include "addressbook/exchange/notevecchie.h"
#include "addressbook/exchange/turnoarchivio.h"
#include "platform/base/errore.h"
#include "platform/database/connessione.h"
#include "platform/system/blocco.h"
#include "platform/system/cartelle.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"
#include "supporto/guasti.h"
#include "supporto/maschera.h"
#include "supporto/scrittoreaccess.h"

#include <QDateTime>
#include <QDir>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

constexpr int Nomi = 3000;

/// How another program has left an archive.
enum class Lasciato { Chiuso, ColGiornale, ColLog, Aperto };

/// An archive of some names, in a folder of its own; another program's way to keep it.
class Altrui
{
public:
    explicit Altrui(Lasciato Come)
        : Cartella(NuovaCartella() + u"altri/"_s), File(Cartella + u"archivio.mdb"_s)
    {
        QDir().mkpath(Cartella);
        const Studio S;
        {
            const Database Db = OpenDatabase(S.File);
            Transazione Insieme(Db);
            for (int i = 1; i <= Nomi; ++i)
                Db.Execute(u"INSERT INTO clienti (Nominativo, Citta) VALUES (?, 'Lucca')"_s,
                           {u"Cliente numero %1"_s.arg(i)});
            Insieme.Conferma();
        }
        if (Come == Lasciato::ColGiornale)
            Interrotto(S.File);
        else if (Come != Lasciato::Chiuso)
            InUnLog(S.File, Come == Lasciato::Aperto);
        else
            QVERIFY(QFile::copy(S.File, File));
    }
    /// Everything in the folder but the engine's own scratch.
    [[nodiscard]] QMap<QString, QByteArray> Stato() const
    {
        QMap<QString, QByteArray> Tutto;
        for (const QString& Nome : ContenutoDi(Cartella))
            Tutto.insert(Nome, Nome.endsWith(u"-shm") ? QByteArray() : LeggiFile(Cartella + Nome));
        return Tutto;
    }

    const QString Cartella;
    const QString File;
    std::unique_ptr<Connessione> Aperta;

private:
    /// A write of which half has reached the file.
    void Interrotto(const QString& Vero) const
    {
        Connessione Conn(Vero, Connessione::Modo::Scrittura);
        Conn.Esegui(u"PRAGMA cache_size=4"_s);
        Conn.Esegui(u"BEGIN IMMEDIATE"_s);
        Conn.Esegui(u"UPDATE clienti SET Nominativo='x' || Nominativo, Citta='altrove'"_s);
        Conn.Esegui(u"DELETE FROM clienti WHERE ID % 2 = 0"_s);
        QVERIFY(QFileInfo(Vero + u"-journal"_s).size() > 0);
        QVERIFY(QFile::copy(Vero, File));
        QVERIFY(QFile::copy(Vero + u"-journal"_s, File + u"-journal"_s));
        Conn.Esegui(u"ROLLBACK"_s);
    }
    /// Half of the names stand in the log alone.
    void InUnLog(const QString& Vero, bool RestaAperto)
    {
        const QString Dove = RestaAperto ? File : Vero;
        if (RestaAperto)
            QVERIFY(QFile::copy(Vero, File));
        Aperta = std::make_unique<Connessione>(Dove, Connessione::Modo::Scrittura);
        Aperta->Esegui(u"DELETE FROM clienti WHERE ID > %1"_s.arg(Nomi / 2));
        Aperta->Esegui(u"PRAGMA journal_mode=WAL"_s);
        Aperta->Esegui(
            u"WITH RECURSIVE n(i) AS (SELECT %1 UNION ALL SELECT i+1 FROM n WHERE i<%2) INSERT INTO "
            "clienti (Nominativo, Citta) SELECT 'Cliente numero ' || i, 'Lucca' FROM n"_s.arg(
                QString::number(Nomi / 2 + 1), QString::number(Nomi)));
        if (RestaAperto)
            return;
        QVERIFY(QFile::copy(Dove, File));
        QVERIFY(QFile::copy(Dove + u"-wal"_s, File + u"-wal"_s));
        Aperta.reset();
    }
};

int Lucchesi(const QString& File)
{
    const Recordset Righe =
        OpenDatabase(File, true)
            .OpenRecordset(u"SELECT ID FROM clienti WHERE Nominativo LIKE 'Cliente numero "
                           "%' AND Citta='Lucca'"_s);
    return Righe.RecordCount();
}

void Forme()
{
    QTest::addColumn<Lasciato>("Come");
    QTest::newRow("closed") << Lasciato::Chiuso;
    QTest::newRow("killed in a write") << Lasciato::ColGiornale;
    QTest::newRow("killed, with a log") << Lasciato::ColLog;
    QTest::newRow("open, with a log") << Lasciato::Aperto;
}

}  // namespace

class TestArchiviVivi : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unArchivioIntero_data() { Forme(); }
    void unArchivioIntero();
    void leVecchieParcelle_data() { Forme(); }
    void leVecchieParcelle();
    void iNominativi_data() { Forme(); }
    void iNominativi();
    void mentreUnAltroScrive();
    void unLogIlleggibile();
    void unoDanneggiato();
    void ilTurnoNegato();
    void iRestiDiUnAltro();
    void leCopieDiLavoro();
    void ilDiscoNonConferma();
    void laCopiaNonConfermata();
    void iRestiDiPrima();
};
PROVA(TestArchiviVivi);

void TestArchiviVivi::unArchivioIntero()
{
    QFETCH(Lasciato, Come);
    const Altrui Da(Come);
    const auto Prima = Da.Stato();
    const QString Cartella = NuovaCartella();
    const auto Preso = PrendiArchivio(Da.File, Cartella);
    QVERIFY(Preso);
    QCOMPARE(Preso->Clienti, Nomi);
    QCOMPARE(Lucchesi(Preso->File), Nomi);
    QCOMPARE(Da.Stato(), Prima);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"DatiStudio.mdb"_s});
    QCOMPARE(LeggiFile(Preso->File).sliced(18, 2), QByteArray("\1\1"));
}

void TestArchiviVivi::leVecchieParcelle()
{
    QFETCH(Lasciato, Come);
    const Altrui Da(Come);
    const auto Prima = Da.Stato();
    const QString A = NuovaCartella() + u"nuove/"_s;
    const auto Esiti = CopiaNote(Da.Cartella, A);
    QVERIFY(Esiti);
    QVERIFY2(Esiti->first().Copiata, qPrintable(Esiti->first().Detto));
    QCOMPARE(Lucchesi(A + u"archivio.mdb"_s), Nomi);
    QCOMPARE(Da.Stato(), Prima);
    QCOMPARE(ContenutoDi(A), QStringList{u"archivio.mdb"_s});
}

/// To look at another program's names changes nothing of it.
void TestArchiviVivi::iNominativi()
{
    QFETCH(Lasciato, Come);
    const Altrui Da(Come);
    const auto Prima = Da.Stato();
    {
        const SorgenteNominativi Aperta(Da.File);
        OpzioniSorgente Quali;
        const TabellaEstranea Lette = Aperta.Leggi(Quali);
        QCOMPARE(Lette.Righe.size(), size_t(Nomi));
        QCOMPARE(Lette.Righe.back()[Lette.Titoli.indexOf(u"Nominativo"_s)], u"Cliente numero %1"_s.arg(Nomi));
        QCOMPARE(Da.Stato(), Prima);
    }
    QCOMPARE(Da.Stato(), Prima);
}

/// A colleague who saves in the middle of it waits, or is told to.
void TestArchiviVivi::mentreUnAltroScrive()
{
    const Altrui Da(Lasciato::Chiuso);
    Connessione Collega(Da.File, Connessione::Modo::Scrittura);
    int Provato = 0;
    const auto Preso = PrendiArchivio(Da.File, NuovaCartella(), [&](qint64) {
        if (Provato == 0)
            Provato = NumeroErrore([&] { Collega.Esegui(u"UPDATE clienti SET Citta='altrove'"_s); });
        return true;
    });
    QCOMPARE(Provato, errori::DatiBloccati);
    QCOMPARE(Lucchesi(Preso->File), Nomi);
    Collega.Esegui(u"UPDATE clienti SET Citta='altrove'"_s);
}

void TestArchiviVivi::unLogIlleggibile()
{
    const Altrui Da(Lasciato::ColLog);
    QVERIFY(QFile::setPermissions(Da.File + u"-wal"_s, {}));
    const QString Cartella = NuovaCartella();
    QCOMPARE(DescrizioneErroreDi([&] { (void)PrendiArchivio(Da.File, Cartella); }),
             u"Il file \"archivio.mdb\" è di un altro programma, e ciò che questo vi ha scritto per ultimo "
             "(\"archivio.mdb-wal\") non si può leggere: chiudere il programma e riprovare"_s);
    QCOMPARE(ContenutoDi(Cartella), QStringList());
    QVERIFY(QFile::setPermissions(Da.File + u"-wal"_s, QFile::ReadOwner));
}

/// Of a file with a page of nothing no copy is called whole.
void TestArchiviVivi::unoDanneggiato()
{
    const Altrui Da(Lasciato::Chiuso);
    constexpr qint64 Pagina = 4096;
    QFile File(Da.File);
    QVERIFY(File.open(QIODevice::ReadWrite) && File.seek(File.size() / 2 / Pagina * Pagina));
    QVERIFY(File.write(QByteArray(Pagina, '\xff')) == Pagina);
    File.close();
    const QString Cartella = NuovaCartella();
    QCOMPARE(
        DescrizioneErroreDi([&] { (void)PrendiArchivio(Da.File, Cartella); }),
        u"Il file \"archivio.mdb\" non si può leggere: il file è danneggiato, e non tutto ciò che contiene "
        "si può leggere."_s);
    QCOMPARE(ContenutoDi(Cartella), QStringList());
    const auto Esiti = CopiaNote(Da.Cartella, Cartella);
    QVERIFY(!Esiti->first().Copiata);
    QCOMPARE(ContenutoDi(Cartella), QStringList());
}

/// Whoever has not got the turn does not go on as if he had.
void TestArchiviVivi::ilTurnoNegato()
{
    const Studio Vecchio;
    const QString Cartella = NuovaCartella();
    const QString Turno = FileDelTurno(Cartella + u"DatiStudio.mdb"_s);
    ScriviFile(Turno, "4321\ncalcanova\nsegreteria\n");
    ImpostaDataFile(Turno, QDateTime::currentDateTime().addSecs(-3600));
    QCOMPARE(DescrizioneErroreDi([&] { (void)PrendiArchivio(Vecchio.File, Cartella); }),
             u"Un altro computer ha cominciato un'importazione nello stesso archivio, e non si sa se l'abbia "
             u"finita: "
             "se nessuno sta importando, eliminare il file \"%1\" e riprovare."_s.arg(Turno));
    QCOMPARE(ContenutoDi(Cartella), QStringList{NomeFile(Turno)});
    // Without a signature it may be this computer's.
    ScriviFile(Turno, "x");
    ImpostaDataFile(Turno, QDateTime::currentDateTime().addSecs(-3600));
    QCOMPARE(DescrizioneErroreDi([&] { (void)PrendiArchivio(Vecchio.File, Cartella); }),
             u"Qualcuno, non si sa da quale computer, ha cominciato un'importazione nello stesso archivio, e "
             u"non si sa se l'abbia finita: "
             "se nessuno sta importando, eliminare il file \"%1\" e riprovare."_s.arg(Turno));
    QVERIFY(QFile::remove(Turno));
    QVERIFY(PrendiArchivio(Vecchio.File, Cartella));
    // Where none can be made there is none to be had.
    FileBlocco Nessuno(FileDelTurno(Cartella + u"manca/DatiStudio.mdb"_s));
    QCOMPARE(NumeroErrore([&] { PrendiTurno(Nessuno); }), errori::SpazioDatabase);
}

/// What a killed program has left of an archive: names of people, and a journal that would be played into the
/// next one.
void TestArchiviVivi::iRestiDiUnAltro()
{
    const Studio Vecchio;
    Vecchio.Esegui(u"INSERT INTO clienti (Nominativo) VALUES ('Rossi'), ('Verdi')"_s);
    const QString Cartella = NuovaCartella();
    const QString Nuovo = Cartella + u"DatiStudio.mdb.nuovo"_s;
    // Half of a write of the killed program stands in the file, what was there before in its journal.
    const auto Lascia = [&] {
        const Studio Altro;
        Altro.Esegui(
            u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<3000) INSERT INTO "
            "clienti (Nominativo) SELECT 'Altrui ' || i FROM n"_s);
        Connessione Conn(Altro.File, Connessione::Modo::Scrittura);
        Conn.Esegui(u"PRAGMA cache_size=4"_s);
        Conn.Esegui(u"BEGIN IMMEDIATE"_s);
        Conn.Esegui(u"DELETE FROM clienti"_s);
        Conn.Esegui(u"CREATE TABLE altra (a)"_s);
        for (const QString& Coda : {u""_s, u"-journal"_s})
            ScriviFile(Nuovo + Coda, LeggiFile(Altro.File + Coda));
        QVERIFY(!LeggiFile(Nuovo + u"-journal"_s).startsWith('\0'));
        Conn.Esegui(u"ROLLBACK"_s);
    };
    Lascia();
    TogliRestiDiArchivi(Cartella);
    QCOMPARE(ContenutoDi(Cartella), QStringList());
    Lascia();
    {
        FileBlocco DiUnVivo(FileDelTurno(Cartella + u"DatiStudio.mdb"_s));
        QCOMPARE(DiUnVivo.Prendi(0), FileBlocco::Esito::Preso);
        TogliRestiDiArchivi(Cartella);
        QVERIFY(EsisteFile(Nuovo));
    }
    const auto Preso = PrendiArchivio(Vecchio.File, Cartella);
    QVERIFY(Preso);
    QCOMPARE(Preso->Clienti, 2);
    QCOMPARE(OpenDatabase(Preso->File, true).OpenRecordset(u"clienti"_s).RecordCount(), 2);
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"DatiStudio.mdb"_s});
    // One of an archive that has gone stays, and no archive takes its name.
    QVERIFY(QFile::remove(Preso->File));
    ScriviFile(Preso->File + u"-journal"_s, "x");
    QCOMPARE(PrendiArchivio(Vecchio.File, Cartella)->File, Cartella + u"DatiStudio 2.mdb"_s);
    QDir(Cartella).mkdir(u"copie"_s);
    ScriviFile(Cartella + u"copie/DatiStudio.mdb-journal"_s, "x");
    QCOMPARE(CopiaNote(Vecchio.Cartella, Cartella + u"copie"_s)->first().Detto,
             u"Al posto del file \"DatiStudio.mdb\" c'è il giornale di uno che manca "
             "(\"DatiStudio.mdb-journal\"): spostarlo e riprovare"_s);
}

/// What a program that was ended has left goes with the next one; another program's may be in use.
void TestArchiviVivi::leCopieDiLavoro()
{
    const QString Lavoro = CartellaDati() + u"importa/"_s;
    CreaCartellaPrivata(Lavoro);
    const QString Morta = u"a"_s.repeated(32);
    const QString Viva = u"b"_s.repeated(32);
    for (const QString& Nome :
         {Morta + u".mdb"_s, Morta + u".mdb-journal"_s, u".~7."_s + Morta + u".mdb.tmp"_s,
          u".~7."_s + Morta + u".mdb.tmp.letto"_s, Viva + u".mdb"_s})
        ScriviFile(Lavoro + Nome, "x");
    FileBlocco DiUnVivo(Lavoro + Viva + u".blocco"_s);
    QCOMPARE(DiUnVivo.Prendi(0), FileBlocco::Esito::Preso);
    const Studio S;
    const QString File =
        ScriviAccess(S.Cartella + u"vecchio.mdb"_s,
                     {.Tabelle = {{.Nome = u"clienti"_s, .Colonne = {{.Nome = u"Nominativo"_s}}}}});
    {
        const SenzaMaschera Aperta;
        const ArchivioNativo Aperto(File);
        QVERIFY(Aperto.File().startsWith(Lavoro));
        QCOMPARE(QFile::permissions(Aperto.File()) & DiAltri, QFile::Permissions());
        QCOMPARE(QFile::permissions(Lavoro) & DiAltri, QFile::Permissions());
        TogliRestiDiSorgenti();
        QVERIFY(EsisteFile(Aperto.File()));
    }
    QCOMPARE(ContenutoDi(Lavoro), (QStringList{Viva + u".blocco"_s, Viva + u".mdb"_s}));
    QCOMPARE(ContenutoDi(S.Cartella), (QStringList{u"DatiStudio.mdb"_s, u"vecchio.mdb"_s}));
}

/// What has been taken away is not said to stand.
void TestArchiviVivi::ilDiscoNonConferma()
{
    const Altrui Da(Lasciato::ColGiornale);
    const QString Cartella = NuovaCartella();
    const QString Guasto = DescrizioneErrore(errori::Periferica);
    const QScopedValueRollback<std::function<bool(const QString&)>> Disco(
        guasti::PrimaDellaCartella, [](const QString& Quale) {
            return !Quale.endsWith(u".nuovo") && !Quale.contains(u"/importa/") &&
                   !Quale.endsWith(u"/archivio.mdb");
        });
    QCOMPARE(DescrizioneErroreDi([&] { (void)PrendiArchivio(Da.File, Cartella); }), Guasto);
    QCOMPARE(DescrizioneErroreDi([&] { (void)SorgenteNominativi(Da.File); }), Guasto);
    const auto Esiti = CopiaNote(Da.Cartella, Cartella);
    QVERIFY(Esiti && !Esiti->first().Copiata);
    QCOMPARE(Esiti->first().Detto, Guasto);
    QCOMPARE(ContenutoDi(Cartella), QStringList());
}

/// The archive itself stands, and that is said once.
void TestArchiviVivi::laCopiaNonConfermata()
{
    const Studio Vecchio;
    const QString Cartella = NuovaCartella();
    const QScopedValueRollback<std::function<bool(const QString&)>> Disco(
        guasti::PrimaDellaCartella, [](const QString& Quale) { return !Quale.endsWith(u"/DatiStudio.mdb"); });
    QCOMPARE(DescrizioneErroreDi([&] { (void)PrendiArchivio(Vecchio.File, Cartella); }),
             u"L'archivio è stato copiato nella cartella \"%1\", ma il disco non lo conferma: %2; il file "
             "DatiStudio.mdb è però al suo posto"_s.arg(Cartella, DescrizioneErrore(errori::Periferica)));
    QCOMPARE(ContenutoDi(Cartella), QStringList{u"DatiStudio.mdb"_s});
}

/// Names of people that a killed import of an earlier version has left among the user's data.
void TestArchiviVivi::iRestiDiPrima()
{
    const QString Cartella = NuovaCartella();
    const auto Lascia = [&](const QString& Nome, int Giorni) {
        ScriviFile(Cartella + Nome, "x");
        ImpostaDataFile(Cartella + Nome, QDateTime::currentDateTime().addDays(-Giorni));
    };
    const QString Vecchio = u".importa-"_s + u"a"_s.repeated(32);
    const QString DiOra = u".importa-"_s + u"b"_s.repeated(32);
    Lascia(Vecchio + u".mdb"_s, 2);
    Lascia(Vecchio + u".mdb-journal"_s, 2);
    Lascia(DiOra + u".mdb"_s, 0);
    Lascia(u".importa-mia.mdb"_s, 2);
    Lascia(u"nota.mdb"_s, 2);
    TogliRestiDiArchivi(Cartella);
    QCOMPARE(ContenutoDi(Cartella), (QStringList{DiOra + u".mdb"_s, u".importa-mia.mdb"_s, u"nota.mdb"_s}));
}

#include "TestArchiviVivi.moc"
