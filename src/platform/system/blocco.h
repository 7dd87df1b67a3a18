// Lock files that only the end of their process frees.
#pragma once

#include <QDateTime>
#include <QString>

#include <memory>

/// Who has signed a lock file, and when.
struct FirmaBlocco
{
    qint64 Processo = 0;  ///< 0 where no signature can be read
    QString Macchina;
    QDateTime Quando;
};

/// A lock file, held from its taking until the object goes.
///
/// Not QLockFile, whose form of a signature it keeps: that class decides by the process's number, which may
/// be another's of the same name by now, keeps the empty file of a killed program for ever where no age makes
/// it old, and says of a full disk what it says of any failure.
///
/// Its signature names process and machine. On this machine the system says whether the process lives; of
/// another machine nobody can tell, so that its lock counts until it is too old for any save.
class FileBlocco
{
public:
    /// Why a lock was not taken.
    enum class Esito {
        Preso,
        Altrui,       ///< a living process has it, or one of another machine
        Abbandonato,  ///< of another machine and older than five minutes, or without a signature that can be
                      ///< read
        Rifiutato,    ///< the folder lets nobody write
        Impedito,     ///< no room for its few bytes, or another failure of the disk
    };

    explicit FileBlocco(const QString& Percorso);
    ~FileBlocco();
    FileBlocco(const FileBlocco&) = delete;
    FileBlocco& operator=(const FileBlocco&) = delete;

    /// Takes the lock, waiting for its holder at most that long. That of a dead process is taken at once; an
    /// empty one, left by a process that was killed while it made it, is nobody's once it is a second old.
    [[nodiscard]] Esito Prendi(int AttesaMs);

    /// The signature of the one who kept the lock from being taken.
    [[nodiscard]] FirmaBlocco Titolare() const;

    [[nodiscard]] QString Percorso() const;

private:
    struct Presa;
    std::unique_ptr<Presa> Dentro;
};

/// Whether a process of this machine bears the number; who asks for another machine's gets any answer.
[[nodiscard]] bool ProcessoVivo(qint64 Numero);

/// Takes away a lock file that a killed program of this machine has left, if one is there. It cannot fail.
void ScartaBlocco(const QString& Percorso);

/// Removes a lock file, whose ever it is, but for one whose process lives on this machine.
/// @return true when no such file is there any more
bool TogliBlocco(const QString& Percorso);
