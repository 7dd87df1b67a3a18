// The save of a note as the user meets it: dialog, name, checks, overwriting, messages.
#pragma once

#include "feenote/parcella.h"

#include <QString>

#include <functional>
#include <optional>

/// Characters that the name of a note may not hold, and what is said of one that does.
inline constexpr QStringView VietatiNeiNomi = u"[]!.";
inline constexpr QStringView FraseNomeNonValido =
    u"Il nome specificato non è valido: non usare i caratteri [ ] ! .";
/// True for a name, without its folder and ".mdb", that a note may have.
[[nodiscard]] bool NomeDiNotaValido(const QString& Nome);

/// What a save has written.
struct FileSalvato
{
    QString Percorso;
    QString Scostato;  ///< the former journal's name by now, as ScriviNota; said with DiScostato
};

/// Asks where, checks the name, asks about overwriting, writes the file.
///
/// On success the note has its path and name (lower case, without ".mdb") and its password is saved; the
/// caller says so with DiSalvata and takes the mark away. Otherwise it is as before.
/// @param Proposto name, without ending, that the dialog begins with where the note has none; one that is
///     taken gets a number
/// @return what was written, empty when the user cancelled or a check refused, which it has shown
/// @throws Errore when the file could not be written; a former file is then as it was
[[nodiscard]] std::optional<FileSalvato> SalvaConDialogo(Parcella& Nota, bool ComeModello,
                                                         const QString& Proposto = {});

/// True for a note that a save without a dialog may write where it stands: its file is there, is no template,
/// and bears the code of the session's matter.
[[nodiscard]] bool HaFileSuo(const Parcella& Nota);

/// What keeps a save from replacing unasked what somebody else has saved.
struct GuardiaFile
{
    std::function<bool()> Immutata;  ///< the file is the one that may be replaced
    std::function<bool()> Chiedi;    ///< it is not: true when the user lets the one replace that is there now
};

/// Writes a note over its own file. It asks as SalvaConDialogo does, but for the name: the password of a
/// protected note, and a lock that nobody frees.
/// @param Guardia asked behind those questions, at which a user may sit for long, and again while nobody else
///     can save
/// @return as SalvaConDialogo, without a journal; empty when a check refused, which it has shown
/// @throws Errore as SalvaConDialogo
[[nodiscard]] std::optional<FileSalvato> SalvaSulFile(Parcella& Nota, const GuardiaFile& Guardia);

/// What became of a state, or of the memory of an invoice, that was to be written by itself.
enum class EsitoStato {
    Scritto,
    NonSiTiene,  ///< the file takes nothing unasked: a template, a read-only one, one of Access
    Fallito,
};
/// Writes the state of a note without other changes into its own file, without a word and without its
/// password: all else in the file stays as it is.
/// @param Immutata asked while nobody else can write: whether the file is still the one that was read
[[nodiscard]] EsitoStato ScriviSoloStato(const Parcella& Nota, const std::function<bool()>& Immutata);

/// Writes in the same way what a note keeps of its electronic invoice, with its state.
[[nodiscard]] EsitoStato ScriviSoloFattura(const Parcella& Nota, const std::function<bool()>& Immutata);

/// What the note's own file keeps of its electronic invoice by now, whoever has written it; nothing where it
/// cannot be read.
[[nodiscard]] DatiFatturaXml FatturaNelFile(const Parcella& Nota);

/// Tells the user that the file was written.
void DiSalvata(const QString& Percorso);
/// Tells him of the journal that was put aside, if one was. What the caller does with the written file comes
/// first: while the user reads, a colleague may save the note.
void DiScostato(const FileSalvato& Scritta);

/// Asks about the changes that an end, or another note in the same window, would lose.
/// @param Chiusura the note is about to be closed; else another one is about to be opened
/// @return the answer, vbNo unasked for an unmodified note. Whoever asks does the saving.
[[nodiscard]] int CheckModInCorso(const Parcella& Nota, bool Chiusura);

/// Asks for the password of a file, if it has one. Whoever replaces, deletes or renames a note asks it first.
/// @return true when that may be done; a wrong answer was shown as such, an empty one ends quietly
/// @throws Errore when the file cannot be read as a note
[[nodiscard]] bool ControllaPsw(const QString& Percorso);

/// Sets a password on the note, asked in an input box; it works from the next save on. A note that has one is
/// refused, then one that is not on screen.
void ProteggiNota(Parcella& Nota, bool InVista);
