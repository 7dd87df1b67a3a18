// What is due: saved notes by their state, what is open of them by client, the rows of the accountant's file.
//
// Nothing is reckoned here: each save leaves the figures of its document in the note's file. A note of an
// older version has none, and what is open of it is not known; it is never taken for 0.
#pragma once

#include "feenote/finder/legamifatture.h"
#include "feenote/finder/modTrova.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

/// Which notes a list shows.
enum class FiltroStato {
    Tutte,
    DaIncassare,  ///< asked for and not paid: sent or invoiced
    Bozza,
    Inviata,
    Fatturata,
    Pagata,
    SenzaStato,  ///< of older versions, in use at the moment, templates
};

/// Entries of a list of them, in order.
[[nodiscard]] QStringList VociFiltroStato();
/// The words of a command line, in the same order: "tutte", "aperte", "bozza" and so on.
[[nodiscard]] QStringList ParoleFiltroStato();
/// True for a note that the filter leaves, as far as the note itself tells: see NoteDaIncassare.
[[nodiscard]] bool PassaStato(FiltroStato Filtro, const VoceTrova& Nota);

/// The state as a list shows it: that of a note; empty for a template and where it is not known.
[[nodiscard]] StatoNota StatoMostrato(const VoceTrova& Voce);

/// What is open of a note, euro: 0 for a draft, for a paid one, for a document that asks nobody for money; of
/// an invoice and its credit note in one file what the credit note leaves. Nothing where it is not known. A
/// template is no note.
[[nodiscard]] std::optional<double> ApertoDi(const VoceTrova& Nota);

/// The state in the words of a list: "Stornata" for an invoice that a credit note of its own file has taken
/// back whole.
[[nodiscard]] QString ParolaStato(const VoceTrova& Voce);

/// Of a note that has gone out as a credit note: what its file has sent out, a line each with number, day and
/// net. Nothing of any other.
[[nodiscard]] QStringList FrasiDocumenti(const VoceTrova& Nota);

/// What is open of a client.
struct ApertoCliente
{
    QString Cliente;
    double Aperto = 0.0;  ///< euro
    int Note = 0;
    int IDCli = 0;

    [[nodiscard]] ClienteNota Chi() const { return {IDCli, IDCli > 0 ? QString() : Cliente}; }

    friend bool operator==(const ApertoCliente&, const ApertoCliente&) = default;
};

/// What is open of a list of notes.
struct ApertoTutto
{
    double Aperto = 0.0;           ///< euro
    int Note = 0;                  ///< of which something is open
    int Ignote = 0;                ///< of which it is not known
    int Copie = 0;                 ///< of an invoice that counts already
    QList<ApertoCliente> Clienti;  ///< the largest first, equal ones by name

    friend bool operator==(const ApertoTutto&, const ApertoTutto&) = default;
};
/// @param Tutte the list that the notes are taken of: an invoice is owed once, and less its credit note,
/// whether or not a filter shows the other file. A copy that is shown without the one that counts stands for
/// it. Empty: the notes are all
[[nodiscard]] ApertoTutto SommaAperto(const std::vector<const VoceTrova*>& Note,
                                      const std::vector<const VoceTrova*>& Tutte = {});
/// Of a whole list what a filter "Da incassare" leaves: what was asked for and is not paid, taken back or
/// paid in another file.
[[nodiscard]] QSet<const VoceTrova*> NoteDaIncassare(const std::vector<const VoceTrova*>& Tutte);
/// The notes of a list that hold what another one holds too, with that one, which counts.
[[nodiscard]] QHash<const VoceTrova*, const VoceTrova*> NoteCopie(const std::vector<const VoceTrova*>& Tutte);
/// "Aperto: 12.480,00 in 7 parcelle; Rossi 3.200,00; ...; 2 parcelle senza importo noto".
[[nodiscard]] QString FraseAperto(const ApertoTutto& Somma);
/// "3.200,00 in 2 parcelle".
[[nodiscard]] QString FraseAperto(const ApertoCliente& Somma);

/// Fiscal code and VAT number.
struct CodiciCliente
{
    QString CodFis;
    QString PIva;
};

/// The titles of the accountant's rows.
[[nodiscard]] QStringList TitoliScadenzario();
/// The row of a document. Amounts and dates are Italian; a figure that is not known is empty.
/// Those of a copy are empty as well, unless it stands for the one that counts, and those of a credit note
/// whose invoice is not in the list: a sum of the column counts each invoice once, and takes none away that
/// it does not hold.
[[nodiscard]] QStringList RigaScadenzario(const VoceTrova& Nota, const CodiciCliente& Codici,
                                          const LegameFattura& Legame = {});
/// The rows of the documents of notes, templates left out.
/// @param Tutte as for SommaAperto
[[nodiscard]] std::vector<QStringList> RigheScadenzario(const std::vector<const VoceTrova*>& Note,
                                                        const std::function<CodiciCliente(int IDCli)>& Codici,
                                                        const std::vector<const VoceTrova*>& Tutte = {});
/// The file: titles and rows.
/// @param Codici what the archive has for the key of a client
[[nodiscard]] QByteArray CsvScadenzario(const std::vector<const VoceTrova*>& Note,
                                        const std::function<CodiciCliente(int IDCli)>& Codici,
                                        const std::vector<const VoceTrova*>& Tutte = {});
