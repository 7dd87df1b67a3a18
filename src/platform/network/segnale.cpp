#include "platform/network/segnale.h"

#include "platform/base/paginacodice.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QStandardPaths>

#include <utility>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <QLocalSocket>
#endif

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

void Manda(const QString& Titolo, const QByteArray& Byte)
{
    const QString Nome = PresaSegnale(Titolo);
    if (Nome.isEmpty())
        return;
    QLocalSocket Presa;
    Presa.connectToServer(Nome, QIODevice::WriteOnly);
    if (!Presa.waitForConnected(AttesaMs))
        return;
    Presa.write(Byte);
    Presa.waitForBytesWritten(AttesaMs);
    Presa.abort();  // what was written is on its way; what was not would only keep the user waiting
}

#endif

}  // namespace

QString PresaSegnale(const QString& Titolo)
{
    const QString Cartella = Barra(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation));
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
