#include "platform/system/sincrono.h"

#include "platform/system/codici.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"

#include <QFile>

#include <cerrno>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

bool Sincronizza(int Descrittore)
{
#ifdef Q_OS_WIN
    return _commit(Descrittore) == 0;
#else
    int Esito = fsync(Descrittore);
    while (Esito != 0 && errno == EINTR)
        Esito = fsync(Descrittore);
    return Esito == 0;
#endif
}

}  // namespace

NonConfermato::NonConfermato(const Errore& Guasto, const QString& File)
    : Errore(Guasto.Numero, Guasto.Descrizione + u"; "_s + FraseAlSuoPosto.toString().arg(NomeFile(File)))
{}

void ScriviSulDisco(const QString& File)
{
    QFile Aperto(PercorsoNativo(File));
    if (!Aperto.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        throw Errore(errori::Accesso);
    if (guasti::PrimaDelDisco && !guasti::PrimaDelDisco(File))
        throw Errore(errori::DiscoPieno);
    if (!Sincronizza(Aperto.handle()))
        throw ErroreDelSistema(errno);
}

void SincronizzaCartellaDi(const QString& File)
{
#ifndef Q_OS_WIN
    if (guasti::PrimaDellaCartella && !guasti::PrimaDellaCartella(File))
        throw NonConfermato(Errore(errori::Periferica), File);
    const QString Percorso = CartellaFile(PercorsoNativo(File));
    const QByteArray Nome = Percorso.isEmpty() ? "."_ba : QFile::encodeName(Percorso);
    const int Cartella = ::open(Nome.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    // A folder that may be written but not read cannot be waited for.
    if (Cartella < 0 && errno != EIO && errno != ENOSPC)
        return;
    const bool Fatto = Cartella >= 0 && Sincronizza(Cartella);
    const int Codice = errno;
    if (Cartella >= 0)
        ::close(Cartella);
    if (!Fatto && (Codice == EIO || Codice == ENOSPC || Codice == EDQUOT))
        throw NonConfermato(ErroreDelSistema(Codice), File);
#else
    Q_UNUSED(File)
#endif
}
