// The clauses of contract and statement, which stand in files that the office edits.
#pragma once

#include "feenote/parcella.h"
#include "platform/document/superficie.h"

#include <QString>

/// Most text that a document takes from a file, in bytes; pictures in it do not count.
constexpr qint64 MassimoTesto = qint64(8) << 20;

/// Why the clauses of a file are not printed, or not all of them.
enum class EsitoClausole {
    Lette,
    Mancano,      ///< no file
    Bianche,      ///< rich text without a word: what a word processor saves of an empty page
    Vuote,        ///< no byte, or blanks alone
    Tronche,      ///< they are printed as far as the file goes, which breaks off
    Spezzate,     ///< they are printed up to where the rich text ends, and words stand behind it
    Illeggibili,  ///< it cannot be opened
    Troppe,       ///< more text than MassimoTesto
    NonTesto,     ///< a document of another kind, or a damaged one
};

struct Clausole
{
    EsitoClausole Esito = EsitoClausole::Mancano;
    QString Testo;  ///< rich text without its pictures, or plain text (Windows-1252, or UTF-8)
};

/// Reads a file of clauses; never fails.
[[nodiscard]] Clausole LeggiClausole(const QString& Percorso);

/// Name of the file whose clauses a document of the note prints; empty for a document without any.
/// @param Tipo a TipoStampa
[[nodiscard]] QString NomeClausole(int Tipo, const Parcella& Nota);

/// The file of that name that is printed: the office's own, in the folder "clausole" of the user folder,
/// where there is one or where it cannot be told, else the one in "doc" of the program folder. It need not be
/// there.
[[nodiscard]] QString FileClausole(const QString& Nome);

/// The office's own file of that name, for its word processor. Where there is none yet, it begins as a copy
/// of the one that the program came with.
/// @throws Errore 53 neither is there, 75 or 61 when it cannot be written
[[nodiscard]] QString ClausoleDaModificare(const QString& Nome);

/// Appends the clauses of a document for the note's kind of client and a blank row; nothing where there are
/// none. What keeps them from being printed whole is left in Superficie::Manca, but for an empty page of the
/// office's own and a file that is not there.
/// @param Tipo StampaContratto or StampaInformativa
void StampaClausole(Superficie& vp, const Parcella& Nota, int Tipo);

/// Shows the user which files' clauses were not printed since the last call, or not to their end, and why. A
/// file that was shown is not shown again until its clauses have been printed whole; a missing file is
/// nothing to be shown.
void AvvisaClausole();
