#include "platform/network/segnale.h"

#include "platform/base/paginacodice.h"
#include "platform/network/presautente.h"
#include "platform/system/percorsi.h"
#include "platform/system/permessi.h"
#include "platform/system/shell.h"

#include <utility>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>

#include <pwd.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

/// The user waits for his own program, not for another one.
constexpr int AttesaMs = 250;

#ifdef Q_OS_WIN

/// What the receiver knows the signal by.
constexpr ULONG_PTR Aggiornamento = 3;

void Manda(const QString& Titolo, QByteArray Byte)
{
    const HWND Finestra = FindWindowW(nullptr, reinterpret_cast<LPCWSTR>(Titolo.utf16()));
    if (!Finestra)
        return;
    COPYDATASTRUCT Dati{Aggiornamento, DWORD(Byte.size()), Byte.data()};
    SendMessageTimeoutW(Finestra, WM_COPYDATA, reinterpret_cast<WPARAM>(GetActiveWindow()),
                        reinterpret_cast<LPARAM>(&Dati), SMTO_ABORTIFHUNG, 2 * AttesaMs, nullptr);
}

#else

/// The folder of this user's session, made where it is missing; empty where there is none that is his alone.
QString CartellaSessione()
{
    QString Cartella = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (Cartella.isEmpty()) {
        const passwd* Utente = ::getpwuid(::geteuid());
        Cartella = QDir::tempPath() + u"/runtime-"_s +
                   (Utente ? QFile::decodeName(Utente->pw_name) : QString::number(::geteuid()));
    }
    if (!QFileInfo::exists(Cartella) &&
        !QDir().mkdir(Cartella, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
        return {};
    const QFileInfo Info(Cartella);
    constexpr QFile::Permissions DiAltri = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                           QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    const bool Sua =
        Info.isDir() && !Info.isSymLink() && DiQuestoUtente(Cartella) && !(Info.permissions() & DiAltri);
    return Sua ? Barra(Cartella) : QString();
}

void Manda(const QString& Titolo, const QByteArray& Byte)
{
    const QString Nome = PresaSegnale(Titolo);
    if (Nome.isEmpty())
        return;
    QLocalSocket Presa;
    Presa.connectToServer(Nome, QIODevice::WriteOnly);
    // The folder keeps others out, and the system knows better still.
    if (!Presa.waitForConnected(AttesaMs) || !PresaDiQuestoUtente(Presa))
        return;
    Presa.write(Byte);
    Presa.waitForBytesWritten(AttesaMs);
    Presa.abort();  // what was written is on its way; what was not would only keep the user waiting
}

#endif

}  // namespace

QString PresaSegnale(const QString& Titolo)
{
#ifdef Q_OS_WIN
    const QString Cartella;
#else
    const QString Cartella = CartellaSessione();
#endif
    return Cartella.isEmpty() ? QString() : Cartella + Titolo;
}

void InstallaSegnale()
{
    Shell Tavola = InstallaShell({});
    Tavola.Segnala = [](const QString& Titolo, const QString& Testo) {
        // The receiver takes a text that ends with its null.
        Manda(Titolo, Cp1252(Testo) + '\0');
    };
    InstallaShell(std::move(Tavola));
}
