// The summary block: the rows of the tax chain and the table they make.
#pragma once

#include "feenote/modTotali.h"
#include "platform/superficie.h"

#include <QList>

/// The amount format of all documents: "#,##0.00;-#,##0.00;0".
[[nodiscard]] QString ImportoStampa(double Euro);

/// One row of the summary.
struct RigaRiepilogo
{
    enum Genere {
        Titolo,    ///< "RIEPILOGO: "
        Voce,      ///< label and amount; the label of a subtotal is empty
        Filetto,   ///< the rule over a sum
        Lettere,   ///< the amount in words, in brackets, over both columns
        Vuota,
        Chiusura,  ///< closing sentence over both columns
    };
    Genere Tipo = Voce;
    QString Etichetta;
    QString Importo;  ///< formatted, sign included

    friend bool operator==(const RigaRiepilogo&, const RigaRiepilogo&) = default;
};

/// The rows in printing order.
[[nodiscard]] QList<RigaRiepilogo> RigheRiepilogo(const Catena& Conti);

/// Writes sentence of the variation, table, and the sentence of the subsidised regime where it is due.
void StampaRiepilogo(Superficie& vp, const Parcella& Nota, int Tipo);

/// "label=amount" joined by "|", subtotals with an empty label, the amount in words last.
[[nodiscard]] QString RiepilogoInRiga(const Catena& Conti);
