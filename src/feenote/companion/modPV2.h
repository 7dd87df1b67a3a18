// The companion application Praxivo: what a composed invoice leaves for it, its row in the companion's
// archive, and the signal that data have changed.
#pragma once

#include "feenote/parcella.h"

#include <QString>

/// What the last composition left for the transfer to the companion application.
struct UltimaStampa
{
    double Importo = 0.0;  ///< sum of honoraria in euro, the associated note's included
    QString Numero;
    QString Data;
    bool Acconto = false;

    friend bool operator==(const UltimaStampa&, const UltimaStampa&) = default;
};
[[nodiscard]] const UltimaStampa& LeggiUltimaStampa();
void MemorizzaUltimaStampa(const UltimaStampa& Dati);
/// The same from a note whose chosen document was just composed, only while a request of the companion
/// application runs. Documents without a summary leave what was there.
void MemorizzaUltimaStampa(const Parcella& Nota);

/// The companion's folder of fee notes, without the separator at its end; empty when its settings name none.
[[nodiscard]] QString CartellaCompagna();

/// The hand-over behind a save, once the document was composed for the companion application. An invoice
/// without a number is told, one with a number is offered to the user, and on his yes transferred and
/// signalled. Documents that are no invoice hand nothing over.
/// @return false where the transfer that the user wanted has failed
[[nodiscard]] bool ConsegnaFattura(const Parcella& Nota);

/// The accounting counter that goes with the note's invoice: that of its own request, 0 while the session
/// runs for another matter than the note's.
[[nodiscard]] int ContatoreDi(const Parcella& Nota);

/// Writes what the last composition left into the table `Fatture` of the companion's archive: the row of this
/// matter and number is changed (date and amount alone), or added where there is none. Case plays no part in
/// the two. Nothing without an archive in the companion's settings; a failure is told and changes nothing.
/// @param IDContab the accounting counter of a row that is added; one that stands already keeps its own
/// @return false after a failure
bool SalvaFatturaPV2(int IDContab);

/// Tells the companion application that data have changed. Whether it runs is nobody's concern.
void InvioMsgPV2();
