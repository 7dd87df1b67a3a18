// Client, counterparty and subject: as they stand on the first tab, as they print, and in the address book.
#pragma once

#include "feenote/parcella.h"

#include <QString>

struct Errore;

/// The texts that the first tab and the print data both show.
enum class ParteNota { Cliente, Controparte, Oggetto };

/// Characters that a party or the subject may have.
[[nodiscard]] int MassimoParte(ParteNota Parte);
/// Key of the row that a party is linked to, 0 none; the subject is never linked.
[[nodiscard]] int LegameParte(const Parcella& Nota, ParteNota Parte);
/// The name of that row as the archive gave it last; empty without a link, and where no row was found.
[[nodiscard]] QString NomeLegato(const Parcella& Nota, ParteNota Parte);
/// As it stands on the first tab, and as it will print.
[[nodiscard]] const Casella& ParteScritta(const Parcella& Nota, ParteNota Parte);
[[nodiscard]] const Casella& ParteStampata(const Parcella& Nota, ParteNota Parte);
/// Typed on the first tab: it will print so, in every form of the client block, whatever was written there.
/// A linked party that is emptied is linked no more, which the user is told.
void CambiaParte(Parcella& Nota, ParteNota Parte, const QString& Testo);
/// Drops the link of a party, which the user is told; its text stays, as his own.
void ScollegaParte(Parcella& Nota, ParteNota Parte);
/// Typed in the print data; a longer text is cut.
void CambiaParteStampata(Parcella& Nota, ParteNota Parte, const QString& Testo);
/// The box of the print data was left: the subject goes back to the first tab, a party only while it is free
/// text. A linked one keeps its name, whatever is printed. Of a client block goes back the line of the name;
/// of a sentence nothing.
void LasciaParteStampata(Parcella& Nota, ParteNota Parte);

/// How the chosen document words the client.
[[nodiscard]] FormaBlocco FormaDelBlocco(const Parcella& Nota);
/// Words the client for the chosen document. A form that the user has written in shows his text, kept in
/// BlocchiScritti; a document without a client leaves the block. For an agreement the row of a newly linked
/// client first says whether it is a person or a company.
///
/// Where that takes an archive that cannot be read the user is told, and ArchivioNonLetto stays until it can:
/// a document without the client's address and codes is none.
void RicomponiBlocco(Parcella& Nota);
/// The archive of clients could not be read for one of the note's links. Nothing is left to wait for where
/// what prints does not come from there; the client stands then as the user has written him.
void SegnaNonLetto(Parcella& Nota, const Errore& Guasto);
/// The archive has still to give something: the names, or what a document waits for.
[[nodiscard]] bool AspettaArchivio(const Parcella& Nota);
/// Waits no more for what the note does without: what the user has written himself comes from no archive, and
/// a party that is not linked has no name there.
void NonAspetta(Parcella& Nota);
/// Reads once more what the archive has not given, the names as at the opening and the client's wording, and
/// tells nobody where it still does not; nothing while it has given all. What the user has written meanwhile
/// stays, and the note is not marked as changed. The user is told of a party that the archive turns out to
/// lack.
/// @return false while a document has to wait; names may be missing still
bool RiprovaArchivio(Parcella& Nota);
/// The same for a record that is kept of a note: of a party that the archive lacks nothing is said, since
/// the note in view has said it.
bool RiprovaTenuta(Parcella& Tenuta);

/// The address book's answer to "cli", "con" (first tab) or "c_cli", "c_con" (print data); any other word
/// does nothing. The first tab links the party. So does the print data for one that is not linked yet; for
/// any other only what is printed changes: a client is worded from its row, a counterparty by its name.
void RiceviDaRubrica(Parcella& Nota, const QString& Parola, int Chiave, const QString& Nome);

/// The row of a key was written to: a party that is linked to it takes its name, where that is another than
/// before and than the note's, as a choice would give it, but for what the user has taken out of the print;
/// the client is worded anew, and his representative followed (SegueRappresentante). A row without a name, or
/// one that is gone, changes nothing.
/// @return true when the note shows something else than before
/// @throws Errore the archive cannot be read; the note stays as it is
bool SegueArchivio(Parcella& Nota, ParteNota Parte, int Chiave);

/// The client is a person (0) or a company (1).
void CambiaContrTipo(Parcella& Nota, int Tipo);

/// The boxes of the representative, by member.
void CambiaRappresentante(Parcella& Nota, QString Rappresentante::*Dato, const QString& Testo);
