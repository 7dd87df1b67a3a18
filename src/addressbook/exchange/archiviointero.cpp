#include "addressbook/exchange/archiviointero.h"

#include "addressbook/exchange/archivionativo.h"
#include "addressbook/exchange/tabellaestranea.h"
#include "addressbook/exchange/turnoarchivio.h"
#include "addressbook/modRubrica.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/database/database.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "platform/system/sincrono.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

const QString Clienti = u"clienti"_s;
const QString Controparti = u"controparti"_s;

int RigheDi(const Database& Db, const QString& Tabella)
{
    return Db.EsisteTabella(Tabella) ? Db.OpenRecordset(Tabella).RecordCount() : 0;
}

/// True for an archive as it is delivered, or where none is; one that cannot be read may hold anything. A
/// journal whose file has gone would be played into the one that takes its name.
bool Libero(const QString& File)
{
    if (!EsisteFile(File))
        return !EsisteFile(File + u"-journal"_s);
    try {
        const Database Db = OpenDatabase(File, true);
        return std::ranges::all_of(std::array{Clienti, Controparti},
                                   [&](const QString& Tabella) { return RigheDi(Db, Tabella) == 0; });
    } catch (const Errore&) {
        return false;
    }
}

QString Radice(const QString& Cartella)
{
    return Barra(Cartella) + u"DatiStudio"_s;
}

QString Destinazione(const QString& Cartella)
{
    QString File = TrovaFile(Radice(Cartella) + u".mdb"_s);
    for (int i = 2; !Libero(File); ++i)
        File = TrovaFile(Radice(Cartella) + u' ' + QString::number(i) + u".mdb"_s);
    return File;
}

/// Where the archive is made; whoever has the turn of the folder's archive makes it.
QString FileNuovo(const QString& Cartella)
{
    return Radice(Cartella) + u".mdb.nuovo"_s;
}

/// With what the engine leaves beside it, which would be played into the next one of that name.
void ScartaNuovo(const QString& Nuovo)
{
    for (const QString& Coda : {u"-journal"_s, u"-wal"_s, u"-shm"_s, u""_s})
        ScartaFile(Nuovo + Coda);
}

/// Names of people that imports of earlier versions have left in a user's folder when they were killed. Such
/// a version may be at work still, so that only the old ones go.
void TogliCopieDiPrima(const QString& Cartella)
{
    static const QRegularExpression Forma(u"^\\.importa-[0-9a-f]{32}\\.mdb(-journal|-wal|-shm)?\\z"_s);
    const QDateTime Ieri = Adesso().addDays(-1);
    for (const QString& Nome : NomiDeiFile(Cartella, u".i*"_s))
        if (Forma.match(Nome).hasMatch() && DataFile(Barra(Cartella) + Nome) < Ieri)
            ScartaFile(Barra(Cartella) + Nome);
}

/// Puts a complete archive into a folder, under the first name that nobody uses. The name is chosen last,
/// with the file there held: while a long archive was copied somebody may have typed the first clients into
/// it.
QString MettiAlPosto(const QString& Nuovo, const QString& Cartella)
{
    QString File;
    std::optional<ArchivioFermo> Fermo;
    do {
        Fermo.reset();
        File = Destinazione(Cartella);
        if (EsisteFile(File))
            Fermo.emplace(File);
    } while (!Libero(File));
    DaiPermessi(Nuovo, File, Lettori::Cartella);
    try {
        SostituisciFile(Nuovo, File);
    } catch (const Errore& Guasto) {
        if (EsisteFile(Nuovo))
            throw;
        // It has taken its place, which the reason says by its name, and another try would make a second one.
        throw Errore(
            Guasto.Numero,
            u"L'archivio è stato copiato nella cartella \"%1\", ma il disco non lo conferma: %2"_s.arg(
                CartellaFile(File), Guasto.Descrizione));
    }
    return File;
}

/// Looks at the copy, and completes it with the table that the browser could not open.
void Completa(const QString& File, const QString& Origine, ArchivioPreso& Preso)
{
    const Database Db = OpenDatabase(File);
    if (!Db.EsisteTabella(Clienti) || !HaColonna(Db.Campi(Clienti), u"ID"_s) ||
        !HaColonna(Db.Campi(Clienti), u"Nominativo"_s))
        RifiutaFile(
            u"L'archivio \"%1\" non ha una tabella di clienti con le colonne ID e Nominativo: con "
            "\"Aggiungi i nominativi\" si scelgono la tabella e le colonne."_s.arg(NomeFile(Origine)));
    if (!Db.EsisteTabella(Controparti)) {
        Db.CreaTabella(Controparti, Db.Campi(Clienti));
        Preso.Tralasciati.append(u"controparti: l'archivio non ha questa tabella, che nasce vuota"_s);
    }
    Preso.Clienti = RigheDi(Db, Clienti);
    Preso.Controparti = RigheDi(Db, Controparti);
}

}  // namespace

std::optional<ArchivioPreso> PrendiArchivio(const QString& Da, const QString& Cartella,
                                            const std::function<bool(qint64)>& Prosegui)
{
    if (!EArchivio(Da))
        RifiutaFile(u"Il file \"%1\" non è un archivio: per un foglio di calcolo o una rubrica scegliere "
                    "\"Aggiungi i nominativi\"."_s.arg(NomeFile(Da)));
    CreaCartellaDiUtente(Cartella);
    const QString Primo = Radice(Cartella) + u".mdb"_s;
    FileBlocco Turno(FileDelTurno(Primo));
    PrendiTurno(Turno);
    const QString Nuovo = FileNuovo(Cartella);
    ScartaNuovo(Nuovo);
    ArchivioPreso Preso;
    try {
        const auto Fuori = ScriviNativo(Da, Nuovo, Prosegui);
        if (!Fuori)
            return std::nullopt;
        Preso.Tralasciati = *Fuori;
        Preso.Tralasciati.removeIf(TabellaDiSistema);
        ImpostaSolaLettura(Nuovo, false);
        Completa(Nuovo, Da, Preso);
        Preso.File = MettiAlPosto(Nuovo, Cartella);
    } catch (const NonConfermato& Guasto) {
        ScartaNuovo(Nuovo);
        throw Errore(Guasto.Numero);  // the place of what is only worked with is nobody's concern
    } catch (...) {
        ScartaNuovo(Nuovo);
        throw;
    }
    return Preso;
}

void TogliRestiDiArchivi(const QString& Cartella)
{
    TogliCopieDiPrima(Cartella);
    const QString Nuovo = FileNuovo(Cartella);
    const QString DelTurno = FileDelTurno(Radice(Cartella) + u".mdb"_s);
    if (!EsisteFile(Nuovo) && !EsisteFile(Nuovo + u"-journal"_s) && !EsisteFile(DelTurno))
        return;
    FileBlocco Turno(DelTurno);
    if (Turno.Prendi(0) == FileBlocco::Esito::Preso)
        ScartaNuovo(Nuovo);
}

QString ResocontoArchivio(const QString& Da, const ArchivioPreso& Preso)
{
    QStringList Righe{u"Archivio preso intero il "_s + Adesso().toString(u"dd/MM/yyyy HH:mm"),
                      u"Da: "_s + Da,
                      u"Archivio in uso da ora: "_s + Preso.File,
                      QString(),
                      u"Clienti: "_s + Format(Preso.Clienti, u"#,##0"),
                      u"Controparti: "_s + Format(Preso.Controparti, u"#,##0"),
                      QString(),
                      u"Il file d'origine è rimasto com'era: il programma di prima può usarlo ancora."_s};
    if (!Preso.Tralasciati.isEmpty()) {
        Righe.append(QString());
        Righe.append(u"Non importati:"_s);
        Righe += Preso.Tralasciati;
    }
    return Righe.join(u'\n') + u'\n';
}
