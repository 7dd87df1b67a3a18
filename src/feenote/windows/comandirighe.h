// What is done with the selected lines of a page: cut, copy, paste, undo, drag.
#pragma once

#include "feenote/modAppunti.h"
#include "feenote/windows/barrarighe.h"
#include "tariffs/modTariffe.h"

#include <QList>
#include <QObject>

class CorniceNota;
class Griglia;
enum class ComandoRighe;
struct Parcella;

/// What the pages of honoraria and expenses share.
struct RigheInComune
{
    Catalogo Voci;                      ///< open once one of the two pages was entered
    AppuntiRighe Copiate;               ///< one clipboard for both lists
    const Griglia* Cliccata = nullptr;  ///< its current line was clicked, and no other since
};

/// The commands on the lines of a grid, by toolbar, keys and mouse.
class ComandiRighe : public QObject
{
    Q_OBJECT

public:
    /// @param Elenco the grid, which owns the object
    /// @param Quali which lines of the note it shows
    ComandiRighe(Griglia* Elenco, TipoRiga Quali, Parcella& Dati, RigheInComune& Condivise,
                 CorniceNota& Finestra);

    /// Builds the page's toolbar: the page's own commands, then those of the lines, which work on the lines
    /// selected or, with none, on the one that was clicked last.
    /// @return the buttons that change their state
    TastiRighe CostruisciBarra(QToolBar* Barra, ComandiBarra Comandi);
    /// Lines came or went: marks the note, shows it all, and makes a line current.
    void RigheMutate(int Riga);
    /// Whether there is something to paste, to undo.
    void MostraAppunti();

Q_SIGNALS:
    void Mutate();  ///< lines came, went or moved; all is on view

private:
    void Esegui(ComandoRighe Quale, const QList<int>& Scelte);
    [[nodiscard]] QList<int> ScelteDaBarra() const;
    void TagliaVoci(const QList<int>& Scelte);
    void CopiaVoci(const QList<int>& Scelte);
    /// @param Riga RigaDiPosto: where a new line goes
    void IncollaVoci(int Riga);
    void AnnullaTaglio();
    void SpostaVoci(int Destinazione);
    void SeguiClic(int Riga);

    Griglia* Grid;
    TipoRiga Tipo;
    Parcella& Nota;
    TabellaRighe& Tabella;
    RigheInComune& Comune;
    CorniceNota& Cornice;
    TastiRighe Tasti;
};
