// The parties and the choices of an electronic invoice as settings, archive and note hold them.
#pragma once

#include "feenote/einvoice/composizione.h"

#include <utility>

struct DatiCliente;

/// The office, by the settings in force. A part of the address that they lack is empty: nothing is guessed.
/// Its certified mail, where there is one, stands in the place of the other.
[[nodiscard]] Cedente CedenteDaImpostazioni();

/// The client, by its row. The house number is taken off the street where it is plain; a person whose code
/// tells the two names apart has both, anybody else one; a country that the row does not say is the one in
/// front of its VAT number.
[[nodiscard]] Cessionario CessionarioDaRiga(const DatiCliente& Riga);

/// The client of a note; without a link, or with one that leads nowhere, nothing is known of it.
[[nodiscard]] Cessionario CessionarioDellaNota(const Parcella& Nota);

/// What SceltaDaNota says, with the choices that the note keeps; the format follows the client where none is
/// chosen. A date that is none is left out: MancanzeDelleScelte tells of it.
[[nodiscard]] SceltaFattura SceltaDellaNota(const Parcella& Nota, const Cessionario& Cliente);

/// The kind of document is another one. Of an invoice that was written as a file a credit note cites it: its
/// number and date go there, and those of the note, which become the credit note's, are to be written. Back
/// from there, as long as they are not, they are the invoice's again.
/// @return true when the note was changed
bool CambiaTipoFattura(Parcella& Nota, const QString& Tipo);

/// What is wrong with the texts that the note keeps of its choices: a date that is none, half of a cited
/// invoice.
[[nodiscard]] QList<MancanzaFattura> MancanzeDelleScelte(const Parcella& Nota);

/// The electronic invoice of a note by settings, archive and its own choices, with all that is missing.
[[nodiscard]] Composizione ComponiDellaNota(const Parcella& Nota, const QString& Progressivo,
                                            const QDate& Oggi);

/// Family and first name out of a whole one, in either order, as a person's fiscal code confirms them; both
/// empty where it confirms none, or more than one.
[[nodiscard]] std::pair<QString, QString> CognomeENome(const QString& Nominativo, const QString& CodFis);
