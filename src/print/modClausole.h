// The clauses of contract and statement, which stand in files that the office edits.
#pragma once

#include "feenote/parcella.h"
#include "platform/base/errore.h"
#include "platform/document/superficie.h"

#include <QString>

/// Most text that a document takes from a file, in bytes; pictures in it do not count.
constexpr qint64 MassimoTesto = qint64(8) << 20;

/// How the clauses of a file were read.
enum class EsitoClausole {
    Lette,
    Mancano,      ///< no file
    SenzaParole,  ///< rich text without a word, as a word processor saves an empty page
    Vuote,        ///< no byte, or blanks alone
    Tronche,      ///< the file breaks off
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
/// where there is one, else the one in "doc" of the program folder. It need not be there.
[[nodiscard]] QString FileClausole(const QString& Nome);

/// The office's own file of that name, for its word processor. Where there is none yet, it begins as a copy
/// of the one that the program came with.
/// @throws Errore 53 neither is there, 75 or 61 when it cannot be written
[[nodiscard]] QString ClausoleDaModificare(const QString& Nome);

/// A file of clauses that is there and cannot be printed whole: the document is not composed, since nobody
/// who signs it could see what it lacks. The description names the file and the reason.
struct ClausoleGuaste : Errore
{
    using Errore::Errore;
};

/// Appends the clauses of a document for the note's kind of client and a blank row; nothing where there are
/// none.
/// @param Tipo StampaContratto or StampaInformativa
/// @throws ClausoleGuaste 75 the file cannot be read, 321 it is no whole text
void StampaClausole(Superficie& vp, const Parcella& Nota, int Tipo);

/// Shows the user which files without a word documents were composed with since the last call. A file that
/// was shown is not shown again until its clauses have been printed; a missing file is nothing to be shown.
void AvvisaClausole();
