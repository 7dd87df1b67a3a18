// The order of names: as an Italian index has them, digits as numbers, so that "nota 9" stands before
// "nota 10".
#pragma once

#include <QCollator>
#include <QLocale>

#include <algorithm>
#include <numeric>
#include <vector>

/// Case plays no part.
[[nodiscard]] inline QCollator OrdineItaliano()
{
    QCollator Ordine(QLocale(QLocale::Italian, QLocale::Italy));
    Ordine.setNumericMode(true);
    Ordine.setCaseSensitivity(Qt::CaseInsensitive);
    return Ordine;
}

/// Puts a list into the order of the names that `Nome` gives. Equal ones stay as they were.
template <class Lista, class F>
void OrdinaItaliano(Lista& Elenco, F Nome)
{
    const QCollator Ordine = OrdineItaliano();
    std::vector<QCollatorSortKey> Chiavi;
    Chiavi.reserve(size_t(Elenco.size()));
    for (const auto& Elemento : std::as_const(Elenco))
        Chiavi.push_back(Ordine.sortKey(Nome(Elemento)));
    std::vector<size_t> Posti(Chiavi.size());
    std::iota(Posti.begin(), Posti.end(), size_t(0));
    std::ranges::stable_sort(Posti, [&](size_t A, size_t B) { return Chiavi[A] < Chiavi[B]; });
    Lista Ordinata;
    Ordinata.reserve(Elenco.size());
    for (const size_t Posto : Posti)
        Ordinata.push_back(std::move(Elenco[qsizetype(Posto)]));
    Elenco = std::move(Ordinata);
}
