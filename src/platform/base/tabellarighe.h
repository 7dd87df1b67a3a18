// A two-dimensional in-memory table: rows from 0, columns from 0.
#pragma once

#include <QList>
#include <QVariant>

/// The one table class of the program: behind grids, the clipboard of lines, the finder, the icons.
/// A cell never written is Null (an invalid QVariant). Copied by value (rows are shared until written).
///
/// Every row has a key of its own, which no other row of the program ever bears and which stays with it while
/// rows come and go around it: who keeps hold of a row keeps its key, since its number is only a place. A
/// copied table has the keys of the first; for the comparison of two tables keys count for nothing.
class TabellaRighe
{
public:
    using Riga = QList<QVariant>;

    TabellaRighe() = default;
    explicit TabellaRighe(int Colonne) : NumColonne(Colonne) {}

    /// Empties the table and gives it a width.
    void Azzera(int Colonne);

    /// Last index of a dimension: 1 are the rows (-1 when empty), 2 the columns.
    /// @throws Errore 9 for another dimension
    [[nodiscard]] int UpperBound(int Dimensione) const;
    [[nodiscard]] int Righe() const { return int(Dati.size()); }
    [[nodiscard]] int Colonne() const { return NumColonne; }
    [[nodiscard]] bool Vuota() const { return Dati.isEmpty(); }

    /// @throws Errore 9 when the cell is outside the table
    [[nodiscard]] const QVariant& operator()(int Riga, int Colonna) const;
    [[nodiscard]] QVariant& operator()(int Riga, int Colonna);

    /// Inserts an empty row before `Riga`; UpperBound(1) + 1 appends. @throws Errore 9
    void InserisciRiga(int Riga);
    /// The same for several rows. @throws Errore 9
    void InserisciRighe(int Riga, int Quante);
    /// Appends an empty row and returns its index.
    int AggiungiRiga();
    /// @throws Errore 9
    void EliminaRiga(int Riga);

    /// Key of a row, never 0. @throws Errore 9
    [[nodiscard]] quint64 Chiave(int Riga) const;
    /// The numbers that the rows of these keys have now, in the order of the keys; a row that has gone is
    /// left out. It looks at every row once.
    [[nodiscard]] QList<int> RigheDi(const QList<quint64>& Chiavi) const;

    /// True when a row has the same cells in both tables; at once where it is shared. The row must exist in
    /// both.
    [[nodiscard]] bool StessaRiga(const TabellaRighe& Altra, int Numero) const
    {
        return Dati.at(Numero) == Altra.Dati.at(Numero);
    }

    friend bool operator==(const TabellaRighe& Prima, const TabellaRighe& Seconda)
    {
        return Prima.NumColonne == Seconda.NumColonne && Prima.Dati == Seconda.Dati;
    }

private:
    void Controlla(int Riga, int Colonna) const;

    int NumColonne = 0;
    QList<Riga> Dati;
    QList<quint64> Chiavi;  ///< of the rows, in their order
};
