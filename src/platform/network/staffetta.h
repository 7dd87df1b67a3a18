// The hand-over of a file from a program that has just been started to one that is running.
//
// Both are the same user's and go by the same settings: the running one listens on a local socket in the
// user's run-time folder whose name is made from the path of the settings, readable and writable for this
// user alone, and each side looks who owns the other. The path is handed over in three steps, so that a file
// is opened by one of the two: the newcomer offers it, the other accepts, the newcomer confirms and ends. Who
// is not answered in time opens the file by himself, and an offer that was not confirmed is dropped.
#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

class QFileSystemWatcher;
class QLocalServer;
class QLocalSocket;

/// Longest path that is handed over, in bytes of UTF-8.
inline constexpr int MassimoPercorso = 4096;

/// Full name of the socket for these settings; empty where the user has no run-time folder of his own.
[[nodiscard]] QString PresaStaffetta(const QString& Impostazioni);

/// Offers a file to the program that listens for these settings.
/// @param Percorso the whole path
/// @return true when the other one opens it; false, within about two seconds, when nobody does
[[nodiscard]] bool PassaFile(const QString& Impostazioni, const QString& Percorso);

/// The turn of a start with a file: whoever has it is the one that begins to listen, or finds the listener.
/// Several starts at one moment, as of a file manager that opens what is selected, make one session so.
class TurnoStaffetta
{
public:
    explicit TurnoStaffetta(const QString& Impostazioni);
    ~TurnoStaffetta();
    TurnoStaffetta(const TurnoStaffetta&) = delete;
    TurnoStaffetta& operator=(const TurnoStaffetta&) = delete;

    /// Offers the file to the one that listens; where nobody does takes the turn, which is then held until
    /// the object goes: let it go once the session is up. While another start has the turn, it is asked again
    /// and again, for half a minute at most.
    /// @return true when the other one opens the file; false when this start has to, turn or not
    [[nodiscard]] bool Passa(const QString& Percorso);

private:
    struct Interno;
    std::unique_ptr<Interno> Dati;
};

/// Listens for files as long as it lives. Where another program of the user's listens already, that one goes
/// on alone, and this one takes its place when it ends.
class Staffetta : public QObject
{
public:
    /// @param Apri is handed each file whose hand-over was confirmed, from the event loop
    Staffetta(const QString& Impostazioni, std::function<void(const QString& Percorso)> Apri,
              QObject* Padre = nullptr);
    ~Staffetta() override;

    [[nodiscard]] bool InAscolto() const;

    /// Listens no longer. What it has accepted it still waits for, for a moment: who confirms ends, and would
    /// leave a file that nobody opens.
    void Concludi();

private:
    void Ascolta();
    void AttendiLaFine();
    void Accogli();
    void Leggi(QLocalSocket* Presa);

    QString Nome;  ///< of the socket
    std::function<void(const QString&)> Apri;
    QLocalServer* Servitore = nullptr;  ///< null where nobody can listen, or another program does
    QFileSystemWatcher* Sentinella = nullptr;
};
