// What versioni.txt says: the newest version, the date of the newest rates, a note; then what is signed.
//
//   1  ... versione=[3.0.15] ...
//   2  01/12/2026 or 01/12/26, more text behind it allowed
//   3  ... = the note
//   4  sha256=<64 hexadecimal digits> <bytes> <name>    for each file, in this line and the next ones
#pragma once

#include <QByteArray>
#include <QDate>
#include <QList>
#include <QString>

#include <optional>

/// A file that the list vouches for.
struct FileElencato
{
    QString Nome;  ///< a plain name: letters, digits, ".", "-", "_"
    qint64 Byte = 0;
    QByteArray Sha256;  ///< 32 bytes

    friend bool operator==(const FileElencato&, const FileElencato&) = default;
};

/// The file as it was read; what is missing or malformed is empty.
struct Versioni
{
    bool RigaVuota = true;  ///< the first line is empty: nothing is said of a version
    QString Versione;       ///< three numbers of one to five digits, with points
    std::optional<QDate> DataTassi;
    QString Nota;  ///< plain text, 500 characters at most, no control characters
    QList<FileElencato> File;

    [[nodiscard]] const FileElencato* Elencato(const QString& Nome) const;  ///< null where there is none
};

/// The announcement and its signature, and where they stand on a server.
inline constexpr QStringView ElencoVersioni = u"versioni.txt";
inline constexpr QStringView FirmaVersioni = u"versioni.txt.sig";
inline constexpr QStringView CartellaServer = u"/kr5/setup/";

/// Largest versioni.txt that is read, in bytes.
inline constexpr qint64 MassimoVersioni = qint64(64) << 10;

/// Reads the file: Windows-1252, UTF-8 behind its mark, lines by CR, LF or both. Never fails.
[[nodiscard]] Versioni LeggiVersioni(const QByteArray& Contenuto);

/// The line of a file, as LeggiVersioni reads it.
[[nodiscard]] QString RigaElenco(const FileElencato& File);

/// True if the remote version is newer than the local one: three numbers each, compared in order. False when
/// one of them is empty.
[[nodiscard]] bool VersioneNuova(const QString& Remota, const QString& Locale);
