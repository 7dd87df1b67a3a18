// The clauses of contract and statement, which stand in files that the office edits.
#pragma once

#include "feenote/parcella.h"
#include "platform/document/superficie.h"

#include <QString>

/// Most text that a document takes from a file, in bytes; pictures in it do not count.
constexpr qint64 MassimoTesto = qint64(8) << 20;

/// Why the clauses of a file are not printed.
enum class EsitoClausole {
    Lette,
    Mancano,      ///< no file, or an empty one
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

/// Appends the clauses of a document for the note's kind of client and a blank row; nothing where there are
/// none.
/// @param Documento the first part of the file's name
void StampaClausole(Superficie& vp, const Parcella& Nota, const QString& Documento);

/// Shows the user which files' clauses were not printed since the last call, and why. A file that was shown
/// is not shown again until its clauses have been printed; missing clauses are nothing to be shown.
void AvvisaClausole();
