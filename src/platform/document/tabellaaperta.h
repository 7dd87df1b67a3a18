// A table while it is being written: what a table, its columns and its cells say of themselves.
#pragma once

#include "platform/document/documento.h"

#include <QVariant>

#include <optional>
#include <vector>

/// Attributes of a table, a column or a cell, by their number in the surface's interface.
enum class AttrTabella {
    Righe = 1,
    Colonne = 2,
    LarghezzaColonna = 13,  ///< text with a unit, "9cm"
    Unione = 17,            ///< columns that a cell spans
    Testo = 18,
    Allinea = 19,
    FontNome = 23,
    FontDimensione = 24,  ///< points
    Grassetto = 25,
    Corsivo = 26,
    AllineaTesto = 31,  ///< of a whole column
};

namespace tabella {

/// What a table, a column or a cell says of itself. What it leaves open comes from the wider one; the table's
/// own set has every value.
struct Attributi
{
    std::optional<QString> Testo;
    std::optional<Allineamento> Allinea;
    std::optional<QString> FontNome;
    std::optional<double> FontPunti;
    std::optional<bool> Grassetto;
    std::optional<bool> Corsivo;
    std::optional<int> Unione;
    std::optional<QString> Larghezza;
};

/// A run of rows or columns, from 0, the end not included.
struct Intervallo
{
    std::size_t Da = 0;
    std::size_t A = 0;
};

}  // namespace tabella

/// Text as a document holds it: "\n" alone ends a line, control characters are left out.
[[nodiscard]] QString TestoRegistrato(QString Testo);

/// The open table of a surface. Rows and columns count from 1, an empty index means all of them.
class TabellaAperta
{
public:
    /// @param Font of every cell that says nothing else
    explicit TabellaAperta(const Carattere& Font);

    /// @throws Errore 9 outside the table, 13 a value of the wrong type, 5 a number that means nothing to the
    ///         attribute; the table is then unchanged
    void Imposta(AttrTabella Attributo, std::optional<int> Riga, std::optional<int> Colonna,
                 std::optional<int> UltimaRiga, std::optional<int> UltimaColonna, const QVariant& Valore);
    /// @throws Errore 9, 5
    [[nodiscard]] QVariant Valore(AttrTabella Attributo, std::optional<int> Riga,
                                  std::optional<int> Colonna) const;
    [[nodiscard]] bool Vuota() const { return Celle.empty() || Colonne.empty(); }
    /// The table with every attribute resolved.
    [[nodiscard]] Tabella Risolta() const;

    int Bordo = 0;

private:
    void Ridimensiona(std::size_t Righe, std::size_t Quante);
    void Applica(const tabella::Attributi& Nuovi, std::optional<tabella::Intervallo> Righe,
                 std::optional<tabella::Intervallo> QualiColonne);
    [[nodiscard]] tabella::Attributi DiColonna(std::size_t Colonna) const;
    [[nodiscard]] tabella::Attributi DiCella(std::size_t Riga, std::size_t Colonna) const;
    [[nodiscard]] std::vector<Cella> RigaRisolta(std::size_t Riga) const;

    tabella::Attributi Tutta;
    std::vector<tabella::Attributi> Colonne;
    std::vector<std::vector<tabella::Attributi>> Celle;
};
