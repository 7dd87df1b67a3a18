#include "platform/system/permessi.h"

#include "platform/base/errore.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <utility>

#ifndef Q_OS_WIN
#include <cerrno>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
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

/// As the system's call.
int CambiaModo(const QByteArray& Nome, mode_t Modo)
{
    if (guasti::PermessiRifiutati != 0) {
        errno = guasti::PermessiRifiutati;
        return -1;
    }
    return ::chmod(Nome.constData(), Modo);
}

/// As the system's call; who is not the superuser may keep the owner and give the groups that are his.
bool DaiGruppo(const QByteArray& Nome, uid_t Utente, gid_t Gruppo)
{
    return !guasti::GruppoRifiutato && ::chown(Nome.constData(), Utente, Gruppo) == 0;
}

/// Without the rights of a group that the system refused: those of the group that the file has instead are
/// everybody's. With fewer its members, who are colleagues more often than not, would be shut out of what all
/// the others read.
mode_t SenzaGruppo(mode_t Modo)
{
    return (Modo & ~mode_t(0070)) | (Modo & 0007) << 3;
}

/// Whether the medium has its own say on the permissions of its files, as shares of other systems and network
/// drives: there nobody can ask for others, and what is written is for whom the medium is.
bool DecideIlSupporto(const QByteArray& Nome, int Codice)
{
    constexpr std::array NonNeSa{EOPNOTSUPP, ENOTSUP, ENOSYS, EINVAL};
    struct stat Suo = {};
    return std::ranges::find(NonNeSa, Codice) != NonNeSa.end() ||
           (Codice == EPERM && ::stat(Nome.constData(), &Suo) == 0 && Suo.st_uid == ::geteuid());
}

}  // namespace
#endif

QString FileVero(const QString& Percorso)
{
    constexpr int MassimiSalti = 40;  // as many as the system follows
#ifdef Q_OS_WIN
    QString Vero = PercorsoNativo(Percorso);
    for (int i = 0; i < MassimiSalti && QFileInfo(Vero).isSymLink(); ++i)
        Vero = QFileInfo(Vero).symLinkTarget();
    return Vero;
#else
    namespace fs = std::filesystem;
    const QString Nativo = PercorsoNativo(Percorso);
    std::error_code Guasto;
    fs::path Vero(QFile::encodeName(Nativo).toStdString());
    if (!fs::is_symlink(fs::symlink_status(Vero, Guasto)))
        return Nativo;
    // The text of a link counts from the folder where the link truly stands: ".." taken away by its letters
    // would lead out of a linked folder to another file.
    for (int i = 0; i < MassimiSalti && fs::is_symlink(fs::symlink_status(Vero, Guasto)); ++i) {
        const fs::path Detto = fs::read_symlink(Vero, Guasto);
        if (Guasto)
            break;
        Vero = Vero.parent_path() / Detto;
    }
    const fs::path Pulito = fs::weakly_canonical(Vero, Guasto);
    // A folder on the way whose true name is no text has one that is, by which it was reached.
    if (Guasto || !QByteArrayView(Pulito.native()).isValidUtf8())
        return QFile::decodeName(QByteArray::fromStdString(Vero.string()));
    return QFile::decodeName(QByteArray::fromStdString(Pulito.string()));
#endif
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
        if (!DaiGruppo(Nome, Prima.st_uid, Prima.st_gid) && !DaiGruppo(Nome, uid_t(-1), Prima.st_gid))
            Modo = SenzaGruppo(Modo);
    } else if (Chi == Lettori::Tutti) {
        return;
    } else if (Chi == Lettori::Cartella &&
               ::stat(QFile::encodeName(QFileInfo(Meta).path()).constData(), &Intorno) == 0) {
        Modo = ModoNuovo(Intorno);
        if ((Modo & 0060) && !DaiGruppo(Nome, uid_t(-1), Intorno.st_gid))
            Modo = SenzaGruppo(Modo);
    }
    struct stat Ora = {};
    if (::stat(Nome.constData(), &Ora) == 0 && S_ISDIR(Ora.st_mode))
        Modo |= (Modo & 0444) >> 2 | (Ora.st_mode & S_ISGID);
    if (CambiaModo(Nome, Modo) != 0 && !DecideIlSupporto(Nome, errno))
        throw Errore(errori::Accesso);
#endif
}

void CreaCartellaDiUtente(const QString& Percorso)
{
    QStringList Mancanti;
    for (QString Livello = QDir::cleanPath(QDir::current().absoluteFilePath(PercorsoNativo(Percorso)));
         !EsisteCartella(Livello) && !QDir(Livello).isRoot(); Livello = QFileInfo(Livello).path())
        Mancanti.prepend(Livello);
    if (!Mancanti.isEmpty() && !CartellaScrivibile(QFileInfo(Mancanti.first()).path()))
        throw Errore(errori::Accesso);
    for (const QString& Livello : std::as_const(Mancanti)) {
        // The user's alone from its first moment: who is stopped before the next line leaves nothing open.
        if (!CreaCartellaNuova(Livello) && !EsisteCartella(Livello))
            throw Errore(errori::Accesso);  // a file is there, and stays as open as its owner has made it
        DaiPermessi(Livello, {}, Lettori::Cartella);
    }
    CreaCartella(Percorso);
}

bool Leggibile(const QFileInfo& Info)
{
    return Info.permissions() & (QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
}

bool DiQuestoUtente(const QString& Percorso)
{
#ifdef Q_OS_WIN
    return QFileInfo::exists(PercorsoNativo(Percorso));
#else
    QString Nome = PercorsoNativo(Percorso);
    if (Nome.size() > 1 && Nome.endsWith(u'/'))
        Nome.chop(1);  // else a link is looked through
    struct stat Suo = {};
    struct stat Sotto = {};
    const QByteArray Byte = QFile::encodeName(Nome);
    return ::lstat(Byte.constData(), &Suo) == 0 && Suo.st_uid == ::geteuid() &&
           ::stat(Byte.constData(), &Sotto) == 0 && Sotto.st_uid == ::geteuid();
#endif
}
