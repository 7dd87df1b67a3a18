#include "platform/system/permessi.h"

#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

#ifndef Q_OS_WIN
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

#ifndef Q_OS_WIN
namespace {

constexpr mode_t BitPermessi = 0777;

/// Permissions of a new file. A folder that others may write into is shared with them; that of a user alone
/// is not, nor a sticky one, where everybody keeps his own and no colleague could save a file of another's
/// again.
mode_t ModoNuovo(const struct stat& Cartella)
{
    mode_t Modo = 0600;
    if (Cartella.st_mode & S_ISVTX)
        return Modo;
    if (Cartella.st_mode & S_IWGRP)
        Modo |= 0060;
    if (Cartella.st_mode & S_IWOTH)
        Modo |= 0006;
    return Modo;
}

}  // namespace
#endif

QString FileVero(const QString& Percorso)
{
    constexpr int MassimiSalti = 40;  // as many as the system follows
    QString Vero = PercorsoNativo(Percorso);
    for (int i = 0; i < MassimiSalti && QFileInfo(Vero).isSymLink(); ++i)
        Vero = QFileInfo(Vero).symLinkTarget();
    return Vero;
}

void DaiPermessi(const QString& File, const QString& Destinazione, Lettori Chi)
{
#ifdef Q_OS_WIN
    Q_UNUSED(File)
    Q_UNUSED(Destinazione)
    Q_UNUSED(Chi)
#else
    if (!guasti::SupportoBloccato.isEmpty() &&
        PercorsoNativo(File).startsWith(PercorsoNativo(guasti::SupportoBloccato)))
        throw Errore(errori::Accesso);
    const QByteArray Nome = QFile::encodeName(PercorsoNativo(File));
    const QString Meta = PercorsoNativo(Destinazione.isEmpty() ? File : Destinazione);
    struct stat Prima = {};
    struct stat Intorno = {};
    mode_t Modo = 0600;
    const bool CEra = !Destinazione.isEmpty() && ::stat(QFile::encodeName(Meta).constData(), &Prima) == 0;
    if (Chi != Lettori::SoloUtente && CEra) {
        Modo = Prima.st_mode & BitPermessi;
        // Where the system refuses the former group, its rights would be another group's.
        if (::chown(Nome.constData(), Prima.st_uid, Prima.st_gid) != 0 &&
            ::chown(Nome.constData(), uid_t(-1), Prima.st_gid) != 0)
            Modo &= ~mode_t(0070);
    } else if (Chi == Lettori::Tutti) {
        return;
    } else if (Chi == Lettori::Cartella &&
               ::stat(QFile::encodeName(QFileInfo(Meta).path()).constData(), &Intorno) == 0) {
        Modo = ModoNuovo(Intorno);
        if ((Modo & 0060) && ::chown(Nome.constData(), uid_t(-1), Intorno.st_gid) != 0)
            Modo &= ~mode_t(0060);
    }
    struct stat Ora = {};
    if (::stat(Nome.constData(), &Ora) == 0 && S_ISDIR(Ora.st_mode))
        Modo |= (Modo & 0444) >> 2 | (Ora.st_mode & S_ISGID);
    if (::chmod(Nome.constData(), Modo) != 0)
        throw Errore(errori::Accesso);
#endif
}

void CreaCartellaDiUtente(const QString& Percorso)
{
    QStringList Mancanti;
    for (QString Livello = QDir::cleanPath(QDir::current().absoluteFilePath(PercorsoNativo(Percorso)));
         !EsisteCartella(Livello) && !QDir(Livello).isRoot(); Livello = QFileInfo(Livello).path())
        Mancanti.prepend(Livello);
    CreaCartella(Percorso);
    for (const QString& Livello : std::as_const(Mancanti))
        DaiPermessi(Livello, {}, Lettori::Cartella);
}

bool DiQuestoUtente(const QString& Percorso)
{
#ifdef Q_OS_WIN
    return QFileInfo::exists(PercorsoNativo(Percorso));
#else
    const QFileInfo Info(PercorsoNativo(Percorso));
    return Info.exists() && Info.ownerId() == ::geteuid();
#endif
}
