// Lock files that only the end of their process frees.
#pragma once

#include <QString>

#include <memory>

class QLockFile;

/// A lock file, held from its taking until the object goes.
class FileBlocco
{
public:
    /// Why a lock was not taken.
    enum class Esito {
        Preso,
        Altrui,     ///< a living process has it
        Rifiutato,  ///< the folder lets nobody write
        Impedito,   ///< no room for its few bytes, or another failure of the disk
    };

    explicit FileBlocco(const QString& Percorso);
    ~FileBlocco();
    FileBlocco(const FileBlocco&) = delete;
    FileBlocco& operator=(const FileBlocco&) = delete;

    /// Takes the lock, waiting for it at most that long. A lock file that bears no process, left by a program
    /// that was killed while it made it, is nobody's once it is a second old.
    [[nodiscard]] Esito Prendi(int AttesaMs);

    [[nodiscard]] QString Percorso() const;

private:
    std::unique_ptr<QLockFile> File;
};
