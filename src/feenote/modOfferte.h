// Amounts that the law fixes, for the expenses of a note. Nothing comes into a note by itself: what is known
// is offered, and taken by the user.
#pragma once

#include "core/spesedilegge.h"
#include "feenote/parcella.h"

#include <QDate>

/// True where the lump sum for notifications (D.P.R. 115/2002, art. 30) is owed at all: in civil proceedings,
/// labour and social security left out, and so are cases before a justice of the peace of a value known to
/// be small. An office of a mixed list, and a value that is not known, count as ones where it is.
[[nodiscard]] bool AnticipazioneDovuta(const Parcella& Nota);
/// What the note alone cannot tell, for the user: "Non fino a ... davanti al giudice di pace".
[[nodiscard]] QString LimiteAnticipazione();

/// True while a line of expenses has neither a taxable nor an exempt amount.
[[nodiscard]] bool SenzaImporti(const Parcella& Nota, int Riga);

/// The amount in force on a day for a line of expenses: for one of the lump sum for notifications that has no
/// amount yet, in a proceeding where it is owed. Nothing for any other line.
[[nodiscard]] std::optional<ImportoDiLegge> ImportoOfferto(const Parcella& Nota, int Riga,
                                                           const QDate& Giorno);

/// Writes the amount as the user would: exempt, the taxable one 0. An amount that the line names between
/// brackets becomes this one. The note is marked as modified.
void AccettaImporto(Parcella& Nota, int Riga, const ImportoDiLegge& Importo);

/// Writes exempt expenses, each with its day, in their order from where RowIns says. The items are named and
/// numbered as the catalogue has them; without it they have their usual names.
/// @return the row of the first one; -1 when there are none
int PortaSpese(Parcella& Nota, const Recordset& Catalogo, const QList<SpesaDiLegge>& Nuove,
               std::optional<int> Corrente = {});
