// A folder of old notes and templates, copied in native form into another folder.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// What became of a file, or of a folder that was not looked into.
struct EsitoNota
{
    QString Nome;  ///< path below the folder
    bool Copiata = false;
    QString Detto;  ///< why not, or what of it was left out; may be empty
    bool Cartella = false;
};

/// How many, as one looks at them.
struct ContoNote
{
    int File = 0;
    int Copiate = 0;
    int CartelleSaltate = 0;
};

[[nodiscard]] ContoNote Conta(const QList<EsitoNota>& Esiti);
/// One sentence: how many were copied, and whether folders were left out.
[[nodiscard]] QString FraseNote(const ContoNote& Conto);

/// What a copy that was stopped has left of what it had made by then.
struct CopiaFermata
{
    int Tolte = 0;        ///< copies that it has taken away again
    QStringList Salvate;  ///< those that somebody has saved since: they are his, and stay; paths of the files
    QStringList Rimaste;  ///< those that could not be taken away
};
/// "La copia è stata interrotta: ...", what has become of the copies.
[[nodiscard]] QString FraseFermata(const CopiaFermata& Come);

namespace notevecchie {

/// Folders below the first one that are looked into; what lies deeper is told.
inline constexpr int MassimoFondo = 16;
/// Files that one copy takes; a folder with more of them is refused. The tests set it.
inline int MassimoFile = 50'000;

}  // namespace notevecchie

/// Copies the databases of a folder and of those below it into another one, in the same tree. A file that is
/// there already is never replaced; the old ones are only read. A folder that is not looked into, because it
/// lies too deep, is a link, or cannot be read, is named behind the files, and so is what has a name that is
/// no text.
/// @param Prosegui asked between files and while one is copied; false stops it, and what was copied goes
/// again
/// @param Fermata gets what was left of the copies where it was stopped
/// @return what became of each file; none when it was stopped
/// @throws Errore NumeroFileRifiutato when the two folders are one, or hold no databases or too
/// many, 76, 75
[[nodiscard]] std::optional<QList<EsitoNota>>
CopiaNote(const QString& Da, const QString& A, const std::function<bool(int Fatte, int Tutte)>& Prosegui = {},
          CopiaFermata* Fermata = nullptr);

/// The report, file by file.
[[nodiscard]] QString ResocontoNote(const QString& Da, const QString& A, const QList<EsitoNota>& Esiti);
