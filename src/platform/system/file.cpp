#include "platform/system/file.h"

#include "platform/base/errore.h"
#include "platform/base/paginacodice.h"
#include "platform/system/cartelle.h"
#include "platform/system/codici.h"
#include "platform/system/fileaccanto.h"
#include "platform/system/fileapezzi.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"
#include "platform/system/permessi.h"
#include "platform/system/sincrono.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <cerrno>
#include <filesystem>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <time.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

/// The folder where a file stands, fit for the system: "." when the path names none.
QString CartellaDi(const QString& File)
{
    const QString Cartella = CartellaFile(File);
    return Cartella.isEmpty() ? u"."_s : Cartella;
}

/// The deepest folder of the path that is there already.
QString AntenatoEsistente(const QString& Cartella)
{
    QString Antenato = QDir::cleanPath(QDir::current().absoluteFilePath(Cartella));
    while (!QFileInfo::exists(Antenato) && !QDir(Antenato).isRoot())
        Antenato = QFileInfo(Antenato).path();
    return Antenato;
}

#ifndef Q_OS_WIN
/// Office programs lock no file here: beside the one that they have open they put another, named after it,
/// and take it away when they close it. One from before the machine was started was left by a crash.
bool ConSegnoDiApertura(const QString& Nativo)
{
    const QFileInfo File(Nativo);
    const QFileInfo Segno(File.path() + u"/.~lock."_s + File.fileName() + u'#');
    if (!Segno.exists())
        return false;
    timespec DallAvvio = {};
    ::clock_gettime(CLOCK_BOOTTIME, &DallAvvio);
    return Segno.lastModified().secsTo(QDateTime::currentDateTime()) <= DallAvvio.tv_sec;
}
#endif

/// Whether somebody else keeps the file from being opened for writing alone.
bool Bloccato(const QString& Nativo)
{
#ifdef Q_OS_WIN
    const HANDLE File = CreateFileW(reinterpret_cast<const wchar_t*>(Nativo.utf16()),
                                    GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (File == INVALID_HANDLE_VALUE)
        return true;
    CloseHandle(File);
    return false;
#else
    const int File = ::open(QFile::encodeName(Nativo).constData(), O_RDWR | O_CLOEXEC);
    // A disk that fails keeps nobody's file; whoever writes next says what is wrong.
    if (File < 0)
        return errno != ENOSPC && errno != EIO;
    // Programs lock in one of two ways that do not see each other, so both are asked.
    struct flock Blocco = {};
    Blocco.l_type = F_WRLCK;
    Blocco.l_whence = SEEK_SET;
    const bool DiTratto = ::fcntl(File, F_GETLK, &Blocco) == 0 && Blocco.l_type != F_UNLCK;
    const bool DiFile = ::flock(File, LOCK_EX | LOCK_NB) != 0;
    ::close(File);
    return DiTratto || DiFile || ConSegnoDiApertura(Nativo);
#endif
}

/// @throws Errore 53 missing, 75 unreadable or a folder; what the disk says where it is the disk that fails
void ApriInLettura(QFile& File, const QString& Percorso)
{
    const QFileInfo Info(PercorsoNativo(Percorso));
    if (Percorso.isEmpty() || !Info.exists())
        throw Errore(errori::FileMancante);
    File.setFileName(Info.filePath());
    if (!Info.isFile() || !Leggibile(Info))
        throw Errore(errori::Accesso);
    errno = 0;
    if (!File.open(QIODevice::ReadOnly))
        throw ErroreDelSistema(errno);
}

}  // namespace

QString TrovaFile(const QString& Percorso)
{
    QString Esatto = PercorsoNativo(Percorso);
    if (EsisteFile(Esatto))
        return Esatto;
    const QString Nome = NomeFile(Esatto);
    const QStringList Presenti = QDir(CartellaDi(Esatto)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    for (const QString& Presente : Presenti) {
        if (Presente.compare(Nome, Qt::CaseInsensitive) == 0)
            return CartellaFile(Esatto) + Presente;
    }
    return Esatto;
}

bool EsisteCartella(const QString& Percorso)
{
    return !Percorso.isEmpty() && QFileInfo(PercorsoNativo(Percorso)).isDir();
}

bool EsisteFile(const QString& Percorso)
{
    return !Percorso.isEmpty() && QFileInfo(PercorsoNativo(Percorso)).isFile();
}

void CreaCartella(const QString& Percorso)
{
    if (EsisteCartella(Percorso))
        return;
    const QString Nativo = PercorsoNativo(Percorso);
    if (Nativo.isEmpty() || !CartellaScrivibile(AntenatoEsistente(Nativo)) || !QDir().mkpath(Nativo))
        throw Errore(errori::Accesso);
}

bool SolaLettura(const QString& Percorso)
{
    const QFileInfo Info(PercorsoNativo(Percorso));
    return Info.exists() && !Info.permission(QFile::WriteOwner);
}

void ImpostaSolaLettura(const QString& Percorso, bool Attiva)
{
    QFile File(PercorsoNativo(Percorso));
    if (!File.exists())
        throw Errore(errori::FileMancante);
    if (!guasti::SupportoBloccato.isEmpty() &&
        File.fileName().startsWith(PercorsoNativo(guasti::SupportoBloccato)))
        throw Errore(errori::Accesso);
    constexpr QFile::Permissions Scritture =
        QFile::WriteOwner | QFile::WriteUser | QFile::WriteGroup | QFile::WriteOther;
    const QFile::Permissions Presenti = File.permissions();
    if (!File.setPermissions(Attiva ? Presenti & ~Scritture : Presenti | QFile::WriteOwner))
        throw Errore(errori::Accesso);
}

AttributoSospeso::AttributoSospeso(const QString& File, std::function<void(const Errore&)> AlGuasto)
    : Percorso(File), Segnala(std::move(AlGuasto)), Era(SolaLettura(File))
{
    if (Era)
        ImpostaSolaLettura(Percorso, false);
}

AttributoSospeso::~AttributoSospeso()
{
    try {
        if (Era && EsisteFile(Percorso))
            ImpostaSolaLettura(Percorso, true);
    } catch (const Errore& Guasto) {
        Segnala(Guasto);
    }
}

bool CartellaScrivibile(const QString& Cartella)
{
    if (!EsisteCartella(Cartella))
        return false;
#ifdef Q_OS_WIN
    // The attribute of a folder says nothing there; its access list shows in the attempt alone.
    return QTemporaryFile(Barra(Cartella) + u"XXXXXX"_s).open();
#else
    const QFileInfo Info(PercorsoNativo(Cartella));
    return Info.permission(QFile::WriteOwner | QFile::ExeOwner) && Info.isWritable();
#endif
}

bool FileInUso(const QString& Percorso)
{
    return EsisteFile(Percorso) && (SolaLettura(Percorso) || Bloccato(PercorsoNativo(Percorso)));
}

void LeggiAPezzi(const QString& Percorso, const std::function<bool(QByteArrayView)>& Prendi)
{
    constexpr qint64 Pezzo = qint64(64) << 10;
    QFile File;
    ApriInLettura(File, Percorso);
    for (QByteArray Letti = File.read(Pezzo); !Letti.isEmpty(); Letti = File.read(Pezzo))
        if (!Prendi(Letti))
            break;
    if (File.error() != QFile::NoError)
        throw Errore(errori::Accesso);
}

QByteArray LeggiFile(const QString& Percorso, qint64 MassimoByte)
{
    QFile File;
    ApriInLettura(File, Percorso);
    if (File.size() > MassimoByte)
        throw Errore(errori::Memoria);
    QByteArray Contenuto = File.readAll();
    if (File.error() != QFile::NoError)
        throw Errore(errori::Accesso);
    return Contenuto;
}

QString LeggiFileTesto(const QString& Percorso)
{
    try {
        return DaMarca(LeggiFile(TrovaFile(PercorsoNativo(Percorso))));
    } catch (const Errore&) {
        return {};
    }
}

QByteArray LeggiRisorsa(const QString& Nome)
{
    QFile Risorsa(Nome);
    if (!Risorsa.open(QIODevice::ReadOnly))
        throw Errore(errori::FileMancante, Nome + u" non trovato"_s);
    return Risorsa.readAll();
}

void ScriviFile(const QString& Percorso, const QByteArray& Contenuto, Lettori Chi)
{
    FileAPezzi Nuovo(Percorso, Chi);
    Nuovo.Scrivi(Contenuto);
    Nuovo.Posa();
}

void ScriviAppoggio(const QString& Percorso, const QByteArray& Contenuto, Lettori Chi)
{
    try {
        ScriviFile(Percorso, Contenuto, Chi);
    } catch (const NonConfermato& Guasto) {
        throw Errore(Guasto.Numero);
    }
}

bool CreaFile(const QString& Percorso, const QByteArray& Contenuto, Lettori Chi, const QDateTime& Data)
{
    const QString Nativo = PercorsoNativo(Percorso);
    if (QFileInfo::exists(Nativo))
        return false;
    if (guasti::LimiteFile > 0 && Contenuto.size() > guasti::LimiteFile)
        throw Errore(errori::DiscoPieno);
    FileAccanto Nuovo(Nativo, Chi);
    Nuovo.Scrivi(Contenuto);
    if (Data.isValid())
        Nuovo.ImpostaData(Data);
    return Nuovo.PosaSeLibero();
}

void ConservaGuasto(const QString& Percorso, const QByteArray& Contenuto, Lettori Chi)
{
    const QString Accanto = Percorso + u".guasto"_s;
    QString Copia = Accanto;
    for (int n = 2; !CreaFile(Copia, Contenuto, Chi); ++n) {
        if (EsisteFile(Copia) && LeggiFile(Copia) == Contenuto)
            return;
        Copia = Accanto + QString::number(n);
    }
}

bool CopiaFile(const QString& Da, const QString& A, qint64 MassimoByte,
               const std::function<bool(qint64)>& Prosegui, Lettori Chi)
{
    const QString Nativo = FileVero(A);
    if (!CartellaScrivibile(CartellaDi(Nativo)))
        throw Errore(errori::Accesso);
    FileAccanto Copia(Nativo, Chi);
    qint64 Copiati = 0;
    bool Intera = true;
    LeggiAPezzi(Da, [&](QByteArrayView Pezzo) {
        Copiati += Pezzo.size();
        if (Copiati > MassimoByte)
            throw Errore(errori::Memoria);
        if (guasti::LimiteFile > 0 && Copiati > guasti::LimiteFile)
            throw Errore(errori::DiscoPieno);
        Copia.Scrivi(Pezzo);
        Intera = !Prosegui || Prosegui(Copiati);
        return Intera;
    });
    try {
        if (Intera)
            Copia.Posa();
    } catch (const NonConfermato& Guasto) {
        ScartaFile(Nativo);  // half sure is no copy: what it was made for does not follow
        throw Errore(Guasto.Numero);
    }
    return Intera;
}

QDateTime DataFile(const QString& Percorso)
{
    const QFileInfo Info(PercorsoNativo(Percorso));
    return Info.isFile() ? Info.lastModified() : QDateTime();
}

void ImpostaDataFile(const QString& Percorso, const QDateTime& Quando)
{
    QFile File(PercorsoNativo(Percorso));
    if (!File.exists())
        throw Errore(errori::FileMancante);
    if (guasti::DateRifiutate || !File.open(QIODevice::ReadWrite) ||
        !File.setFileTime(Quando, QFileDevice::FileModificationTime))
        throw Errore(errori::Accesso);
}

void CreaCartellaPrivata(const QString& Percorso)
{
    CreaCartellaDiUtente(Percorso);
    DaiPermessi(Percorso, {}, Lettori::SoloUtente);
}

void SostituisciFile(const QString& Nuovo, const QString& Vecchio)
{
    if (!EsisteFile(Nuovo))
        throw Errore(errori::FileMancante);
    std::error_code Esito;
    std::filesystem::rename(QFileInfo(PercorsoNativo(Nuovo)).filesystemFilePath(),
                            QFileInfo(PercorsoNativo(Vecchio)).filesystemFilePath(), Esito);
    if (Esito)
        throw ErroreDelSistema(Esito.value());
    SincronizzaCartellaDi(Vecchio);
}
