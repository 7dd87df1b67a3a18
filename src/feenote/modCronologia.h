// The steps of the user in one note, to be taken back and done again.
#pragma once

#include "feenote/parcella.h"

#include <QList>
#include <QString>

#include <optional>

/// Keeps the record as it was before each of the last changes. Whoever lets the user change the record says
/// so by Segna; what is the file's or the window's own (path, password, partner, state, what was written of
/// the electronic invoice) belongs to no step.
///
/// Records are kept as copies: their lines are shared with the note until one of both is written to.
class Cronologia
{
public:
    /// Steps that are kept; older ones are forgotten.
    static constexpr qsizetype Massimo = 50;

    /// Another note: there is nothing to take back. @param Salvata the record is what its file holds
    void Comincia(const Parcella& Nota, bool Salvata);
    /// The record may have changed by the user's hand. One that has not makes no step; the letters of one
    /// text are a single one until ChiudiTesto.
    /// @param Nome what the step is called; empty: what differs names it
    void Segna(const Parcella& Nota, const QString& Nome = {});
    /// The record is shown otherwise (another document in view): that is no step.
    void Allinea(const Parcella& Nota);
    /// The record has changed by itself (its row of the address book, the tariff of new notes). That is no
    /// step, and no step leads back behind it.
    void Dimentica(const Parcella& Nota);
    /// The text in edit was left: what is typed from now on is another step.
    void ChiudiTesto() { InEdit = 0; }
    /// The record is what its file holds now.
    void SegnaSalvata(const Parcella& Nota);
    /// Another record has taken the file: nowhere is this one kept.
    void SegnaSenzaFile() { InFile.reset(); }
    /// True when the record is what its file holds, in every respect but its association, which marks no
    /// note.
    [[nodiscard]] bool ESalvata(const Parcella& Nota) const;

    /// The last step has put lines back that were cut: a key pressed once too often does not cut them again.
    void SegnaRimessa();
    [[nodiscard]] bool UltimaRimessa() const;

    /// What the next step back is called, in lower case ("importo"); empty without one.
    [[nodiscard]] QString NomeAnnulla() const;
    /// The same for the next step forward.
    [[nodiscard]] QString NomeRipeti() const;

    /// Takes a step back, or does it again. The mark of unsaved changes goes only where ESalvata is true. A
    /// step of when the archive of clients could not be read gets from it what it lacks.
    /// @return false when there is none
    bool Annulla(Parcella& Nota);
    bool Ripeti(Parcella& Nota);

private:
    struct Passo
    {
        QString Nome;
        Parcella Nota;
        bool Rimessa = false;
    };
    bool Passa(Parcella& Nota, QList<Passo>& Da, QList<Passo>& A);
    void SegueDocumento(const Parcella& Nota);

    Parcella Attuale;
    QList<Passo> Indietro, Avanti;
    std::optional<Parcella> InFile;
    int InEdit = 0;  ///< which letters the last step consists of, while their box is in edit; 0 none
};

/// What a change is called, from the records before and behind it; empty when nothing of the user's differs.
[[nodiscard]] QString NomeModifica(const Parcella& Prima, const Parcella& Dopo);

/// True when the parameters differ: tariff, category, authority, bracket, value, parties, variation.
[[nodiscard]] bool ParametriDiversi(const Parcella& Prima, const Parcella& Dopo);
