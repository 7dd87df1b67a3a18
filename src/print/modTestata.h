// What stands around the body of a document: office head, items of the heading, bank details, signature.
//
// A blank line ends a row that text has begun; with no row begun it gives one blank row. Hence the blank
// lines that stand in front of most lines here.
#pragma once

#include "feenote/parcella.h"
#include "platform/document/superficie.h"

#include <QString>

/// Room that rows leave where no blank one stands between them, in points: between the items of a heading,
/// and between one part of a document and the next.
constexpr double SpazioVoce = 3.0;
constexpr double SpazioBlocco = 12.0;

/// The text of a cell of the table that is open.
void TestoInCella(Superficie& vp, int Riga, int Colonna, const QString& Testo);

/// Blank lines.
void RigaVuota(Superficie& vp, int Quante = 1);

/// The office of the session on the left, the client block of the note on the right, whatever the type.
void IntestazioneStudio(Superficie& vp, const Parcella& Nota, int Tipo);
/// A blank line and the text; nothing where the text that decides is empty.
void VoceIntestazione(Superficie& vp, const QString& Decide, const QString& Testo);
/// "Controparte: " and who it is; empty without one, and where the box of the print was emptied.
[[nodiscard]] QString RigaControparte(const Parcella& Nota);
/// "Valore: " and the value of the case; empty for a penal matter, and with an associated note, where each
/// section title shows its own.
[[nodiscard]] QString RigaValore(const Parcella& Nota);

/// The bank details, while their switch is on: two blank lines and the sentence.
void StampaIban(Superficie& vp, const Parcella& Nota);
/// A blank line and, where the session has a signature, the signature to the right.
void StampaFirma(Superficie& vp);
/// The session's signature on as many lines as it takes, each behind so many blanks; the first one's are the
/// caller's.
[[nodiscard]] QString FirmaSuRighe(int Bianchi);
