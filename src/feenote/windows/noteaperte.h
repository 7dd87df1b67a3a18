// What happens to a file that is open in windows of notes.
#pragma once

#include "core/spesedilegge.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QVariant>

class frmParcelle;

/// The window of a note on screen that holds a file, null when none does.
[[nodiscard]] frmParcelle* FinestraConFile(const QString& Percorso);

/// Lets the windows that take figures from this one take them anew.
void AvvisaAssociate(const frmParcelle& Cambiata);

/// Lets every window look whether its associated note is still the one that it has read.
void ControllaAssociate();

/// A note has been saved, perhaps under another name: the window that is linked to it follows, the others
/// look at their associated notes. One whose file it has taken has unsaved changes from now on.
/// @param Prima the note's file before it was saved; empty where it had none
void SegueSalvataggio(const frmParcelle& Salvata, const QString& Prima);

/// What the address book hands over goes to the note that has asked, by its place and serial number; nothing
/// where that one has gone. A row without a name is refused, and the user told.
void ConsegnaScelta(int Indice, int Numero, const QString& Parent, const QVariantList& Valori);

/// A row of the address book was written to: the notes on screen that are linked to it follow its name.
void SegueNominativo(const QString& RecordSource, int ID);

/// The settings were saved: see frmParcelle::SegueTariffa.
void SegueTariffaScelta();
/// The settings were closed: a note that has led there follows nothing that is saved later.
void LasciaSceltaTariffa();

/// The files of the notes on screen.
[[nodiscard]] QSet<QString> NoteAperte();

/// The notes on screen for whoever brings something into one: the one in front first, the others as they were
/// in front before.
[[nodiscard]] QList<NotaInVista> NoteInVista();

/// Writes exempt expenses into a note. @return why it could not be done, in lower case; empty when it was
[[nodiscard]] QString PortaNellaNota(const NotaInVista& Dove, const QList<SpesaDiLegge>& Spese);

/// A file bears another name: the windows that hold it go on with it under that name, and so do those of
/// notes with which it is associated.
void NotaRinominata(const QString& Vecchio, const QString& Nuovo);

/// A file has gone: the windows that hold it keep their note, as one that was never saved, so that nothing on
/// screen is lost.
void NotaCancellata(const QString& Percorso);
