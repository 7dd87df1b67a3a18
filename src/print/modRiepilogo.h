// The summary block: the rows of the tax chain and the table they make.
#pragma once

#include "feenote/modTotali.h"
#include "platform/document/superficie.h"

#include <QList>

/// The amount format of all documents.
[[nodiscard]] QString ImportoStampa(double Euro);

/// A rate's row: its name and "22%", as the rate is written in the note.
[[nodiscard]] QString ConPercento(const QString& Nome, const Aliquota& Tassa);

/// One row of the summary.
struct RigaRiepilogo
{
    enum Genere {
        Titolo,   ///< "RIEPILOGO: "
        Voce,     ///< label and amount; the label of a subtotal is empty
        Filetto,  ///< the rule over a sum, as its amount
        Lettere,  ///< the amount in words, in brackets, over both columns
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

/// The three lines of the subsidised regime (D.L. 98/2011 art. 27) below a blank line, as one text.
void StampaRegimeAgevolato(Superficie& vp);

/// "label=amount" joined by "|", subtotals with an empty label, the amount in words last, without brackets.
/// Title, rules and blank rows are left out; the closing sentence is a label without amount before the words.
[[nodiscard]] QString RiepilogoInRiga(const Catena& Conti);
