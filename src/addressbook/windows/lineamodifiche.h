// The line of a browser that says that a card was left with its changes unsaved.
#pragma once

#include "addressbook/modScheda.h"
#include "platform/database/recordset.h"

#include <QFrame>

/// "Modifiche non salvate:" with the buttons "Salva" and "Annulla", on view while an edit is open on the
/// browser's recordset and no card is. The browser places it, calls Aggiorna whenever a card has closed or
/// the rows have moved, and asks Consenti before anything that would drop the edit.
class LineaModifiche : public QFrame
{
    Q_OBJECT

public:
    explicit LineaModifiche(QWidget* Padre = nullptr);

    /// The recordset of the moment, shared with the browser.
    void Segui(const Recordset& Nuove);
    /// Gives the key of a new row.
    DatoreDiChiavi ChiaveNuova;
    /// Shows the line when an edit is open, hides it when none is.
    void Aggiorna();

    /// For a command that would drop the edit: asks whether its changes are to be saved. Where nothing is
    /// open, or nothing was changed, nothing is asked.
    /// @return true when no edit is open any more; false when the user stays, or saving has failed
    [[nodiscard]] bool Consenti();

    void Salva();
    void Annulla();

Q_SIGNALS:
    /// The edit is over. @param Salvata true when the row was written; it is the current one
    void Conclusa(bool Salvata);

private:
    void Chiudi(bool Salvata);

    Recordset Righe;
};
