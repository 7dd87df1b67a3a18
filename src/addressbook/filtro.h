// What a typed text leaves of many rows: every word stands in one of their cells, whatever case and accents.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <string_view>
#include <vector>

/// The cells of a row as a filter compares them, in UTF-8. No word runs from one cell into the next.
[[nodiscard]] QByteArray RigaPiana(const QStringList& Celle);

/// Appends one cell to a row that is composed from its cells in UTF-8; no word runs from one into the next.
void AccodaCella(QByteArray& Riga, QByteArrayView Utf8);

/// The words of a filter.
class Filtro
{
public:
    Filtro() = default;
    explicit Filtro(const QString& Testo);

    /// As RigaPiana writes them, the longest first.
    [[nodiscard]] const QList<QByteArray>& ParolePiane() const { return Parole; }
    /// No word: every row passes.
    [[nodiscard]] bool Vuoto() const { return Parole.isEmpty(); }
    /// @param Riga a row made by RigaPiana
    [[nodiscard]] bool Passa(QByteArrayView Riga) const;

    friend bool operator==(const Filtro&, const Filtro&) = default;

private:
    QList<QByteArray> Parole;  ///< the longest first, since it leaves the fewest rows
};

/// Many rows ready for filters. They lie in one piece, so that a million of names is gone through in a few
/// milliseconds; beside the texts a row takes 8 bytes.
class RighePiane
{
public:
    void Azzera();
    /// Appends a row made by RigaPiana. @return its place, from 0
    int Aggiungi(QByteArrayView Riga);
    [[nodiscard]] int Righe() const { return int(Inizi.size()); }
    /// A row by its place; the view is good until the rows change.
    [[nodiscard]] QByteArrayView Riga(int Posto) const;
    /// Places of the rows that pass, ascending.
    [[nodiscard]] std::vector<int> Cerca(const Filtro& Per) const;
    /// The same, handed out one by one, with where in the row its longest word stands first; nothing for a
    /// filter without a word.
    template <class F>
    void PerOgni(const Filtro& Per, F Prendi) const;

private:
    QByteArray Testi;           ///< each row with a line break behind it
    std::vector<size_t> Inizi;  ///< where each row begins
};

/// The longest word is looked for in all texts at once: of rows without it nothing else is touched.
template <class F>
void RighePiane::PerOgni(const Filtro& Per, F Prendi) const
{
    if (Per.Vuoto())
        return;
    const std::string_view Tutto(Testi.constData(), size_t(Testi.size()));
    const QByteArray& Lunga = Per.ParolePiane().first();
    const std::string_view Prima(Lunga.constData(), size_t(Lunga.size()));
    size_t Posto = 0;
    for (size_t Dove = Tutto.find(Prima); Dove != std::string_view::npos;) {
        // The row of the find lies a few rows on, most often: it is not looked for among all of them.
        size_t Passo = 1;
        while (Posto + Passo < Inizi.size() && Inizi[Posto + Passo] <= Dove)
            Passo *= 2;
        const auto Da = Inizi.cbegin() + std::ptrdiff_t(Posto + Passo / 2);
        const auto A = Inizi.cbegin() + std::ptrdiff_t(std::min(Posto + Passo, Inizi.size()));
        const auto Dopo = std::upper_bound(Da, A, Dove);
        Posto = size_t(Dopo - Inizi.cbegin()) - 1;
        if (Per.ParolePiane().size() == 1 || Per.Passa(Riga(int(Posto))))
            Prendi(int(Posto), Dove - Inizi[Posto]);
        Dove = Dopo == Inizi.cend() ? std::string_view::npos : Tutto.find(Prima, *Dopo);
    }
}
