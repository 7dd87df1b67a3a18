// What others ask of the address book.
#pragma once

#include <QString>

/// How the address book is to open: one table of an archive, for whom, and with what.
struct RichiestaRubrica
{
    int Indice = 0;          ///< place of the note window that takes the choice; 0: the desktop asks
    int Numero = 0;          ///< serial number of the note in that place: another note there takes no choice
    QString DataSource;      ///< archive, full path; empty: "rubrica" in the program's folder
    QString RecordSource;    ///< table, "clienti" or "controparti"
    bool Modifiche = true;   ///< rows can be made, edited and deleted
    bool Selezione = false;  ///< a row can be chosen and comes back to the note
    QString Parent;          ///< comes back with the choice
    QString MenuStart;       ///< command to run at once; empty none
    QString KeyStart;        ///< criterion of the row on which MenuStart runs; empty none
    QString CampoStart =
        {};      ///< column whose box has the focus in the card that MenuStart opens; empty: the first
    int ID = 0;  ///< key of the row to begin on, the one that the note is linked to; 0 none

    friend bool operator==(const RichiestaRubrica&, const RichiestaRubrica&) = default;
};
