// Tax codes and VAT numbers in a text that somebody has written: the head of a letter, the client of a note
// that is linked to no card.
#pragma once

#include <QDate>
#include <QList>
#include <QString>

#include <optional>

/// A code of a text.
struct CodiceScritto
{
    QString Codice;         ///< in one piece
    bool Partita = false;   ///< a VAT number, else a tax code
    bool Torna = false;     ///< it agrees with its check character
    bool Nominato = false;  ///< the text calls it so; else its form alone tells

    friend bool operator==(const CodiceScritto&, const CodiceScritto&) = default;
};

struct CodiciScritti
{
    QList<CodiceScritto> Codici;
    bool Esteri = false;  ///< there is a number of another country, whose rules are its own
};

/// The codes of a text, as far as it names them ("C.F.", "partita IVA"), in one piece or in groups; those
/// that it does not name where their form is plain: sixteen characters of a person's, eleven digits that
/// agree with the last of them. Any other digits may be a telephone.
[[nodiscard]] CodiciScritti LeggiCodici(const QString& Testo);

/// The day of a payment in the words that tell of it: the last date behind a word of paying; in a text
/// without such a word the last date that belongs to no invoice, estimate or pro-forma note.
/// @param Massimo dates behind this day are none of a payment that was made
[[nodiscard]] std::optional<QDate> GiornoPagato(const QString& Testo, const QDate& Massimo);
