// What others ask of the address book.
#pragma once

#include <QString>

/// What a fee note asks of the address book, in the session's archive of clients and counterparties.
struct RichiestaRubrica
{
    int Indice = 0;     ///< place of the window that takes the choice
    QString Tabella;    ///< "clienti" or "controparti"
    QString Parola;     ///< comes back with the choice
    QString MenuStart;  ///< command to run at once; empty none
    QString KeyStart;   ///< criterion of the row to begin on; empty none

    friend bool operator==(const RichiestaRubrica&, const RichiestaRubrica&) = default;
};
