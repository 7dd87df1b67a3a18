// A document on its way to the client: the new mail that it is attached to.
#pragma once

#include "feenote/parcella.h"

#include <QString>

#include <functional>

/// The name of an attached PDF, without its extension: the proposed one without the signs by which mail
/// programs part what they are handed.
[[nodiscard]] QString NomeAllegato(const Parcella& Nota, int Tipo);

/// Opens a new mail with a document of the note, by the templates of the settings, in the user's mail
/// program. Where none opens, the user is offered the folder of the PDF.
/// @param Risposto called perhaps later: true when the program that opens the mail has ended well, or still
/// stands after a while; false when no mail has opened, which may show behind a true
/// @param ScriviPdf writes the document into the file of this path, under this title
/// @throws Errore where the PDF cannot be written
void InviaDocumento(const Parcella& Nota, int Tipo,
                    const std::function<void(const QString& File, const QString& Titolo)>& ScriviPdf,
                    std::function<void(bool Partito)> Risposto);
