// First use of the program by a user: folders and data of his own.
#pragma once

/// Sets the folders of user data, fee notes and archive, in the user's Documents, where the settings hold
/// none; creates them and copies the empty archive into its own. An office that has its notes, or an archive
/// with rows, in the program's folder goes on there: of these nothing is set. A rate archive missing from the
/// user folder is taken from the program folder, and a user folder in the Documents is made again, at every
/// start. Nothing ever replaces a file.
///
/// What fails is told in one message; its setting then stays unset, so that the next start tries again, and
/// the program goes on.
void PrimoUso();

/// What the first use does for a user folder, for settings that have just been saved: one that they leave
/// empty is set and made, and a missing rate archive comes into it. @throws Errore as PreparaTassi, and 75
/// when the store cannot be written
void PreparaDatiUtente();

/// Takes a rate archive that is missing from the stored user folder from the program folder. Nothing where
/// that folder is missing. @throws Errore as LeggiFile and CreaFile, and as OpenDatabase for an archive that
/// cannot be read, of which no copy is made
void PreparaTassi();
