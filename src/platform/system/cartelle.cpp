#include "platform/system/cartelle.h"

#include "platform/base/errore.h"
#include "platform/system/codici.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"
#include "platform/system/permessi.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QStorageInfo>

#include <algorithm>
#include <cerrno>

#ifdef Q_OS_UNIX
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

namespace {

VoceCartella VoceDi(const QFileInfo& Info, bool Collegamento)
{
    VoceCartella Voce;
    Voce.Nome = Info.fileName();
    Voce.Cartella = Info.isDir();
    Voce.Collegamento = Collegamento;
    Voce.Byte = Voce.Cartella ? 0 : Info.size();
    Voce.Modificata = Info.lastModified().toMSecsSinceEpoch();
    Voce.SolaLettura = !Info.permission(QFile::WriteOwner);
    return Voce;
}

void ControllaLeggibile(const QString& Cartella)
{
    const QFileInfo Info(Cartella);
    if (!Info.isDir())
        throw Errore(errori::PercorsoMancante);
    if (!Leggibile(Info) || !Info.isReadable() || !Info.isExecutable())
        throw Errore(errori::Accesso);
}

#ifdef Q_OS_UNIX
/// Goes through the names as the disk has them, because the toolkit's walk passes over those that are no text
/// and takes a disk that fails for the end of the list.
bool ScorriNomi(const QString& Nativa, const std::function<bool(VoceCartella&&)>& Prendi,
                const std::function<void(const VoceCartella&)>& NonLegge)
{
    DIR* const Aperta = ::opendir(QFile::encodeName(Nativa).constData());
    if (!Aperta)
        throw ErroreDelSistema(errno);
    const auto Chiusa = qScopeGuard([Aperta] { ::closedir(Aperta); });
    const auto Prossima = [&] {
        errno = 0;
        return ::readdir(Aperta);
    };
    while (const dirent* Trovata = Prossima()) {
        const QByteArrayView Byte(Trovata->d_name);
        if (Byte.startsWith('.'))
            continue;
        const QString Nome = QString::fromUtf8(Byte);
        if (!Byte.isValidUtf8()) {
            struct stat Cosa = {};
            const bool Presente = ::fstatat(::dirfd(Aperta), Trovata->d_name, &Cosa, 0) == 0;
            VoceCartella Voce;
            Voce.Nome = Nome;
            Voce.Cartella = Presente && S_ISDIR(Cosa.st_mode);
            if (NonLegge && Presente && (Voce.Cartella || S_ISREG(Cosa.st_mode)))
                NonLegge(Voce);
            continue;
        }
        const QFileInfo Info(Nativa + Nome);
        if (!Info.isDir() && !Info.isFile())
            continue;
        const bool Collegamento =
            Trovata->d_type == DT_LNK || (Trovata->d_type == DT_UNKNOWN && Info.isSymLink());
        if (!Prendi(VoceDi(Info, Collegamento)))
            return false;
    }
    if (errno != 0)
        throw ErroreDelSistema(errno);
    return true;
}
#else
bool ScorriNomi(const QString& Nativa, const std::function<bool(VoceCartella&&)>& Prendi,
                const std::function<void(const VoceCartella&)>&)
{
    QDirIterator Cammino(Nativa, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot);
    while (Cammino.hasNext()) {
        Cammino.next();
        const QFileInfo Info = Cammino.fileInfo();
        const bool Collegamento = Info.isSymLink() || Info.isJunction();
        if ((Info.isDir() || Info.isFile()) && !Prendi(VoceDi(Info, Collegamento)))
            return false;
    }
    return true;
}
#endif

/// Where the system mounts what belongs to itself, not to a user.
bool DelSistema(const QString& Percorso)
{
    static constexpr QStringView Proprie[] = {u"/proc", u"/sys", u"/dev", u"/run", u"/boot",
                                              u"/snap", u"/etc", u"/usr", u"/var", u"/tmp"};
    return !Percorso.startsWith(u"/run/media/") && std::ranges::any_of(Proprie, [&](QStringView Propria) {
        return Percorso == Propria || Percorso.startsWith(Propria.toString() + u'/');
    });
}

bool StaSotto(const QString& Nativo, const QString& Cartella)
{
    return !Cartella.isEmpty() && Nativo.startsWith(PercorsoNativo(Cartella));
}

/// The path by which the disk finds what a path asks for.
QString ComeRisponde(const QString& Nativo)
{
    return StaSotto(Nativo, guasti::SenzaMaiuscole) ? TrovaFile(Nativo) : Nativo;
}

/// Whether both names lead to one file without any link's help.
bool StessoFile(const QString& Uno, const QString& Altro)
{
#ifdef Q_OS_UNIX
    struct stat Primo = {};
    struct stat Secondo = {};
    return ::lstat(QFile::encodeName(ComeRisponde(Uno)).constData(), &Primo) == 0 &&
           ::lstat(QFile::encodeName(ComeRisponde(Altro)).constData(), &Secondo) == 0 &&
           Primo.st_dev == Secondo.st_dev && Primo.st_ino == Secondo.st_ino;
#else
    const QFileInfo Primo(Uno);
    const QFileInfo Secondo(Altro);
    return !Primo.isSymLink() && !Secondo.isSymLink() && Primo.exists() && Primo == Secondo;
#endif
}

#ifdef Q_OS_LINUX
/// @return the system's code, 0 when it is done
int RinominaSeLibero(const QString& Da, const QString& A)
{
    const QByteArray Vecchio = QFile::encodeName(ComeRisponde(Da));
    const QByteArray Nuovo = QFile::encodeName(A);
    if (ComeRisponde(A) != A)
        return EEXIST;
    if (::renameat2(AT_FDCWD, Vecchio.constData(), AT_FDCWD, Nuovo.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    // A disk that does not know the condition gets a look instead.
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    if (NomePreso(A))
        return EEXIST;
    return ::rename(Vecchio.constData(), Nuovo.constData()) == 0 ? 0 : errno;
}

/// A free name beside a file for the moment between two others. It ends as the file's and is as plain to see:
/// a note whose program is killed just then is found.
QString NomeDiPassaggio(const QString& Percorso)
{
    constexpr qsizetype Massimo = 60;
    const QFileInfo Info(Percorso);
    QString Base = Info.completeBaseName().left(Massimo);
    if (!Base.isEmpty() && Base.back().isHighSurrogate())
        Base.chop(1);
    for (int Numero = 1;; ++Numero) {
        QString Libero =
            CartellaFile(Percorso) + u"%1 (cambio nome %2).%3"_s.arg(Base).arg(Numero).arg(Info.suffix());
        if (!NomePreso(Libero))
            return Libero;
    }
}
#endif

/// Gives another name where there is none yet. (The toolkit copies the file where the system refuses: the
/// copy has other permissions, and half of it may be all that there is.)
/// @return the system's code, 0 when it is done
int Rinomina(const QString& Da, const QString& A)
{
#ifdef Q_OS_LINUX
    const int Codice = RinominaSeLibero(Da, A);
    if (Codice != EEXIST || !StessaVoce(Da, A))
        return Codice;
    // The system does nothing, and calls it done, where both names are one file's.
    const QString Passaggio = NomeDiPassaggio(Da);
    if (const int Prima = RinominaSeLibero(Da, Passaggio))
        return Prima;
    const int Poi =
        guasti::SecondoNomeRifiutato ? guasti::SecondoNomeRifiutato : RinominaSeLibero(Passaggio, A);
    if (Poi != 0 && RinominaSeLibero(Passaggio, Da) != 0)
        throw Errore(errori::Accesso, u"Il file non ha potuto prendere il nome %1: ora si chiama %2"_s.arg(
                                          NomeFile(A), NomeFile(Passaggio)));
    return Poi;
#else
    return QFile::rename(Da, A) ? 0 : EACCES;
#endif
}

}  // namespace

bool ScorriCartella(const QString& Cartella, const std::function<bool(VoceCartella&&)>& Prendi,
                    const std::function<void(const VoceCartella&)>& NonLegge)
{
    const QString Nativa = Barra(Cartella);
    if (const auto Attesa = guasti::PrimaDiScorrere)
        Attesa(Nativa);
    ControllaLeggibile(Nativa);
    if (!ScorriNomi(Nativa, Prendi, NonLegge))
        return false;
    // A folder that goes meanwhile ends the list like a complete one.
    if (!EsisteCartella(Nativa))
        throw Errore(errori::PercorsoMancante);
    return true;
}

QStringList NomiDeiFile(const QString& Cartella, const QString& Fine)
{
    if (Cartella.isEmpty())
        return {};
    if (const auto Attesa = guasti::PrimaDiScorrere)
        Attesa(Barra(Cartella));
    return QDir(Barra(Cartella))
        .entryList({u'*' + Fine}, QDir::Files | QDir::Hidden | QDir::System,
                   QDir::Name | QDir::IgnoreCase | QDir::LocaleAware);
}

QStringList NomiDentro(const QString& Cartella)
{
    return QDir(PercorsoNativo(Cartella))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

namespace {

/// A path without a folder means the one where the process is.
bool CartellaSuaScrivibile(const QString& Nativo)
{
    return CartellaScrivibile(QFileInfo(Nativo).path());
}

}  // namespace

bool NomePreso(const QString& Percorso)
{
    const QFileInfo Info(ComeRisponde(PercorsoNativo(Percorso)));
    return Info.exists() || Info.isSymLink();
}

bool StessaVoce(const QString& Uno, const QString& Altro)
{
    const QString Primo = PercorsoNativo(Uno);
    const QString Secondo = PercorsoNativo(Altro);
    const auto SoloMaiuscole = [Nome = NomeFile(Secondo)](const QString& Presente) {
        return Presente.compare(Nome, Qt::CaseInsensitive) == 0;
    };
    if (CartellaFile(Primo) != CartellaFile(Secondo) || !SoloMaiuscole(NomeFile(Primo)) ||
        !StessoFile(Primo, Secondo))
        return false;
    // Where the disk knows case a file may bear both names, as links of either kind: the folder tells.
    return std::ranges::count_if(NomiDentro(QFileInfo(Primo).path()), SoloMaiuscole) == 1;
}

void EliminaFile(const QString& Percorso)
{
    const QString Nativo = PercorsoNativo(Percorso);
    if (!EsisteFile(Nativo))
        throw Errore(errori::FileMancante);
    const bool Trattenuto =
        StaSotto(Nativo, guasti::FileTrattenuti) || StaSotto(Nativo, guasti::SupportoBloccato);
    if (Trattenuto || !CartellaSuaScrivibile(Nativo) || !QFile::remove(Nativo))
        throw Errore(errori::Accesso);
}

void ScartaFile(const QString& Percorso)
{
    const QString Nativo = PercorsoNativo(Percorso);
    if (!StaSotto(Nativo, guasti::FileTrattenuti))
        QFile::remove(Nativo);
}

bool CreaCartellaNuova(const QString& Cartella)
{
    const QString Nativa = PercorsoNativo(Cartella);
    constexpr QFile::Permissions Sue = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    if (QDir().mkdir(Nativa, Sue))
        return true;
    const QFileInfo Trovata(Nativa);
    if (!Trovata.exists() && !Trovata.isSymLink())
        throw Errore(errori::Accesso);
    return false;
}

void ScartaCartella(const QString& Cartella)
{
    (void)QDir().rmdir(PercorsoNativo(Cartella));
}

void RinominaFile(const QString& Vecchio, const QString& Nuovo)
{
    const QString Nativo = PercorsoNativo(Vecchio);
    if (!EsisteFile(ComeRisponde(Nativo)))
        throw Errore(errori::FileMancante);
    if (!CartellaSuaScrivibile(Nativo))
        throw Errore(errori::Accesso);
    const int Codice =
        guasti::RinominaRifiutata ? guasti::RinominaRifiutata : Rinomina(Nativo, PercorsoNativo(Nuovo));
    if (Codice != 0)
        throw ErroreDelSistema(Codice);
}

QString CartellaPersonale()
{
    return Barra(QDir::homePath());
}

QString CartellaDati()
{
    return Barra(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)) +
           Barra(u"Calcanova"_s);
}

QString CartellaSuperiore(const QString& Cartella)
{
    const QString Intera = Barra(Cartella);
    if (Intera.isEmpty() || QDir(Intera).isRoot())
        return {};
    return CartellaFile(Intera.chopped(1));
}

QList<Volume> VolumiVisibili()
{
    QList<Volume> Trovati;
    const auto Aggiungi = [&](const QString& Percorso, const QString& Nome) {
        const QString Con = Barra(Percorso);
        const bool Presente =
            std::ranges::any_of(Trovati, [&](const Volume& Uno) { return Uno.Percorso == Con; });
        if (!Presente && EsisteCartella(Con))
            Trovati.append({Con, Nome});
    };
#ifdef Q_OS_WIN
    for (const QFileInfo& Unita : QDir::drives())
        Aggiungi(Unita.absoluteFilePath(), PercorsoNativo(Unita.absoluteFilePath()));
#else
    Aggiungi(u"/"_s, u"/"_s);
    Aggiungi(QDir::homePath(), QDir::homePath());
    for (const QStorageInfo& Uno : QStorageInfo::mountedVolumes())
        if (Uno.isValid() && !DelSistema(Uno.rootPath()) && QFileInfo(Uno.rootPath()).isDir())
            Aggiungi(Uno.rootPath(), Uno.rootPath());
#endif
    return Trovati;
}

int VolumeDi(const QList<Volume>& Volumi, const QString& Cartella)
{
    const QString Intera = Barra(Cartella);
    int Migliore = -1;
    for (int i = 0; i < Volumi.size(); ++i)
        if (Intera.startsWith(Volumi[i].Percorso) &&
            (Migliore < 0 || Volumi[i].Percorso.size() > Volumi[Migliore].Percorso.size()))
            Migliore = i;
    return Migliore;
}
