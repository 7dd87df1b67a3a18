// A file for who can only write to a name.
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

/// An empty file that nobody else reads while a library writes it by its name. It stands in memory where the
/// system has such files, so that nothing of it is left behind a kill; elsewhere it is a temporary file of
/// the user's alone. It goes with the object.
class FileInMemoria
{
public:
    /// @throws Errore 75 when it cannot be made
    FileInMemoria();
    ~FileInMemoria();
    FileInMemoria(const FileInMemoria&) = delete;
    FileInMemoria& operator=(const FileInMemoria&) = delete;

    [[nodiscard]] QString Nome() const;  ///< by which this process opens it
    [[nodiscard]] QByteArray
    Contenuto() const;  ///< as it stands by now. @throws Errore 57 when it cannot be read

private:
    struct Interno;
    std::unique_ptr<Interno> Dati;
};
