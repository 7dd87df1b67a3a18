// Chance, the same for the same seed on every machine.
#pragma once

#include <QtGlobal>

#include <random>

class Caso
{
public:
    Caso(quint32 Seme, int Sessione) : Sorgente(Miscela(Seme, Sessione)) {}

    /// A number from 0 to one less than this, at least 1.
    [[nodiscard]] int Fino(int Quanti) { return Quanti <= 1 ? 0 : int(Sorgente() % unsigned(Quanti)); }
    [[nodiscard]] bool Su(int Cento) { return Fino(100) < Cento; }
    /// One of a list, which is not empty.
    template <class Lista>
    [[nodiscard]] auto Fra(const Lista& Voci)
    {
        return Voci[decltype(std::size(Voci))(Fino(int(std::size(Voci))))];
    }

private:
    static quint32 Miscela(quint32 Seme, int Sessione)
    {
        return Seme * 2654435761U + quint32(Sessione) * 40503U;
    }

    std::mt19937 Sorgente;
};
