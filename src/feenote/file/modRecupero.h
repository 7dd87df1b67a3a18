// Recovery copies: what a note with unsaved changes would lose if the program were killed.
//
// The folder "recupero" of the user folder holds, for each such note, a copy named by process and place and a
// side file beside it; a lock file tells the copies of living processes from those left behind.
#pragma once

#include "feenote/file/improntanota.h"
#include "feenote/parcella.h"
#include "platform/system/blocco.h"

#include <QDateTime>
#include <QList>
#include <QString>

/// A copy left by a process that is no more.
struct CopiaRecupero
{
    QString File;            ///< the copy, full path
    QString Percorso;        ///< file of the note itself, empty when it was never saved
    QString Nome;            ///< as its window was captioned
    QDateTime Quando;        ///< last change that it holds
    ImprontaNota Impronta;   ///< the note's file as the lost window knew it
    bool Ricalcolo = false;  ///< its parameters had changed and its lines were still to be recalculated

    friend bool operator==(const CopiaRecupero&, const CopiaRecupero&) = default;
};

/// Writes the copy of a note anew. The former copy stays until the new one is complete. A session without a
/// user folder keeps no copies.
/// @param Posto place of the note's window
/// @param Impronta the note's file as it was read or written last
/// @throws Errore as ScriviNota and CreaCartella; 70 when the folder refuses this process's lock
void AggiornaCopia(const Parcella& Nota, int Posto, const ImprontaNota& Impronta = {});

/// Removes the copy of a place, if there is one. It cannot fail.
void TogliCopia(int Posto);

/// The copies of dead processes, the oldest first. Empty when the folder cannot be read. What those processes
/// left half-written is removed.
[[nodiscard]] QList<CopiaRecupero> NoteDaRecuperare();

/// Keeps a copy to one program while it lives, so that two started together do not offer it both.
class PrenotazioneCopia
{
public:
    explicit PrenotazioneCopia(const CopiaRecupero& Copia);
    /// False while another program has the copy, and when it has dealt with it since.
    [[nodiscard]] explicit operator bool() const { return Ottenuta; }

private:
    FileBlocco Segno;
    bool Ottenuta = false;
};

/// Loads a copy as an unsaved note: its file is the original one's, and it counts as modified. The copy
/// stays. Messages as CaricaDati.
/// @throws Errore as CaricaDati: the note is then a new one
void RecuperaNota(Parcella& Nota, const CopiaRecupero& Copia);

/// Removes a copy and its side file, once it was taken over or given up.
void EliminaCopia(const CopiaRecupero& Copia);

/// Lets go of this process's lock, as its end does; serves tests.
void LasciaRecupero();
