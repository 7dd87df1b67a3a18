// The toolbar between a catalogue and its lines, and the search in a catalogue.
#pragma once

#include "platform/database/recordset.h"

#include <QList>
#include <QString>

#include <functional>

class Griglia;
class QAction;
class QLineEdit;
class QSplitter;
class QToolBar;
class QWidget;

/// What the buttons of barListaOnoDir do. An empty one leaves its button out.
struct ComandiBarra
{
    std::function<void()> Inserisci;  ///< "select": the catalogue's current row
    std::function<void()> Informa;    ///< "info"
    std::function<void()> Varia;      ///< "variaz", which stays down while its panel is open
    std::function<void()> Taglia;
    std::function<void()> Copia;
    std::function<void()> Incolla;
    std::function<void()> Annulla;
    std::function<void()> Aiuto;  ///< "help"
};

/// The buttons of barListaOnoDir that change their state; null where there is no such button.
struct TastiRighe
{
    QAction* Varia = nullptr;
    QAction* Incolla = nullptr;
    QAction* Annulla = nullptr;
    QAction* Aiuto = nullptr;
};

/// Builds barListaOnoDir; behind the commands "lastrow" and "currentrow" choose where new lines go and say
/// so. A command runs once the open cell and the box in edit are left, and not when one of them refuses.
/// @param InsUltima the list's mode, which the two buttons show and set
TastiRighe CostruisciBarraRighe(QToolBar* Barra, bool& InsUltima, const ComandiBarra& Comandi);

/// Puts the buttons of a toolbar between two grids in the tab order.
void SeguiBarra(const Griglia* Prima, const QToolBar* Barra, const Griglia* Dopo);

/// F6 goes through the places of a page in order (search, catalogue, lines and what stands behind them) and
/// round, Shift+F6 back. From the toolbar, which stands between catalogue and lines, either way leads to the
/// list on that side.
void CollegaZone(QWidget* Pagina, const QList<QWidget*>& Zone);

/// A third for the catalogue, the rest for the lines, now and when the window grows.
void DividiLista(QSplitter* Divisore);

/// Moves a recordset to a row by its number. @return false when there is no such row
bool VaiARiga(Recordset& Righe, int Riga);

/// Typing in the box moves the catalogue to the first row whose text contains it. Enter inserts nothing: like
/// the down arrow it goes to the list.
void CollegaRicerca(QLineEdit* Box, Griglia* Lista, std::function<Recordset()> Righe, const QString& Colonna);
