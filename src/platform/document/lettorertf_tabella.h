// The rows of a table of a rich text, gathered until the table ends.
//
// The text says where the cells of each row end, row by row; the table gets one column between any two of
// these ends, and a cell covers as many as it needs.
#pragma once

#include "platform/document/documento.h"

#include <cstddef>
#include <optional>
#include <vector>

class TabellaRtf
{
public:
    // ---- what the text says of the row; twips
    void IniziaRiga() { Definita = {}; }
    void ImpostaSinistra(int Twip) { Definita.Sinistra = Twip; }
    /// The next cell ends here.
    void AggiungiCella(int Destra);
    /// The next cell belongs to the one before it.
    void UnisciCella() { Prossima.Continua = true; }
    /// What draws lines next: a Cella::Lato of the next cell, of the row's outline, or between its cells.
    enum class Bordo { Cella, Riga, Interno };
    void ScegliLato(Bordo Dove, Cella::Lato Quale) { Lato = Scelta{Dove, Quale}; }
    void NessunLato() { Lato.reset(); }  ///< lines that follow are a paragraph's, or a page's
    void Traccia(bool Presente);

    // ---- what stands in it
    void AggiungiParagrafo(Paragrafo Testo) { Aperta.push_back(std::move(Testo)); }
    void ChiudiCella();
    /// @return false when there was no cell
    bool ChiudiRiga();
    [[nodiscard]] bool Vuota() const { return Righe.empty() && Celle.empty(); }
    /// Takes the paragraphs of a row that no cell has ended: they stand behind the table, not in it.
    [[nodiscard]] std::vector<Paragrafo> Sciolti();
    /// As many cells as the table would have now; it should end before they are too many.
    [[nodiscard]] std::size_t Peso() const { return (Righe.size() + 1) * (Bordi.size() + 1); }
    /// The table, a row that was left open included; what was gathered is then forgotten.
    [[nodiscard]] Tabella Chiudi();

private:
    struct CellaDefinita
    {
        int Destra = 0;
        int Linee = 0;  ///< Cella::Lato
        bool Continua = false;
    };
    struct RigaDefinita
    {
        int Sinistra = 0;
        int Linee = 0;    ///< around the row, Cella::Lato
        int Interne = 0;  ///< Cella::Sinistro between cells, Cella::Alto between rows
        std::vector<CellaDefinita> Celle;
    };
    struct RigaLetta
    {
        RigaDefinita Come;
        std::vector<std::vector<Paragrafo>> Testi;
    };
    struct Scelta
    {
        Bordo Dove;
        Cella::Lato Quale;
    };
    void Adatta(RigaLetta& Riga) const;
    void RaccogliBordi(const RigaDefinita& Riga);
    [[nodiscard]] std::size_t Colonna(int Twip) const;
    [[nodiscard]] std::vector<Cella> Risolta(const RigaLetta& Riga, bool Prima, bool Ultima) const;

    RigaDefinita Definita;
    CellaDefinita Prossima;
    std::optional<Scelta> Lato;
    std::vector<Paragrafo> Aperta;              ///< paragraphs of the cell being read
    std::vector<std::vector<Paragrafo>> Celle;  ///< of the row being read
    std::vector<RigaLetta> Righe;
    std::vector<int> Bordi;  ///< where cells end, in order
};
