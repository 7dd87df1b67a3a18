#include "platform/database/fileincopia.h"

#include "platform/base/errore.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/sincrono.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString Assoluto(const QString& Percorso)
{
    return QFileInfo(PercorsoNativo(Percorso)).absoluteFilePath();
}

/// Of this process's own: two programs that copy under one name are in nobody's way until the end.
QString Radice(const QString& Finale)
{
    return CartellaFile(Finale) + u".~%1."_s.arg(QCoreApplication::applicationPid()) + NomeFile(Finale);
}

void ScartaConCode(const QString& File)
{
    for (const QString& Coda : {u""_s, u"-journal"_s, u"-wal"_s, u"-shm"_s})
        ScartaFile(File + Coda);
}

}  // namespace

FileInCopia::FileInCopia(const QString& DiFinale)
    : Finale(Assoluto(DiFinale)), Provvisorio(Radice(Finale) + u".tmp"_s), Turno(Radice(Finale) + u".turno"_s)
{
    const QFileInfo Info(Finale);
    if (Info.exists() || Info.isSymLink())
        throw Errore(errori::DatabasePresente);
    // It would be played into the file that takes this name.
    if (QFileInfo(Finale + u"-journal"_s).size() > 0)
        throw Errore(
            errori::DatabasePresente,
            u"Al posto del file \"%1\" c'è il giornale di uno che manca (\"%1-journal\"): spostarlo e "
            "riprovare"_s.arg(Info.fileName()));
    if (!EsisteCartella(Info.path()))
        throw Errore(errori::CartellaMancante);
    if (!CartellaScrivibile(Info.path()))
        throw Errore(errori::Accesso);
    switch (Turno.Prendi(0)) {
    case FileBlocco::Esito::Preso:
    case FileBlocco::Esito::Abbandonato:  // another machine's process had this very number
        break;
    case FileBlocco::Esito::Altrui:
        throw Errore(errori::DatiBloccati);
    case FileBlocco::Esito::Rifiutato:
        throw Errore(errori::Accesso);
    case FileBlocco::Esito::Impedito:
        throw Errore(errori::SpazioDatabase);
    }
    Togli();
}

FileInCopia::~FileInCopia()
{
    Togli();
}

QString FileInCopia::Letto() const
{
    return Provvisorio + u".letto"_s;
}

void FileInCopia::Togli() const
{
    TogliScritto();
    ScartaConCode(Letto());
}

void FileInCopia::TogliScritto() const
{
    ScartaConCode(Provvisorio);
}

void FileInCopia::Posa(Lettori Chi, bool SulDisco, const QDateTime& Data) const
{
    try {
        if (Data.isValid())
            ImpostaDataFile(Provvisorio, Data);
    } catch (const Errore&) {
        // Shares with an owner of their own let nobody set a date; who cares for it looks at it.
    }
    DaiPermessi(Provvisorio, Finale, Chi);
    if (SulDisco)
        ScriviSulDisco(Provvisorio);
    RinominaFile(Provvisorio, Finale);
    if (!SulDisco)
        return;
    try {
        SincronizzaCartellaDi(Finale);
    } catch (const NonConfermato& Guasto) {
        ScartaFile(Finale);  // what is said not to be there is not
        if (EsisteFile(Finale))
            throw;
        throw Errore(Guasto.Numero);
    }
}
