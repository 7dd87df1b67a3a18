// What a typed text leaves of many rows: every word stands in one of their cells, whatever case and accents.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QStringList>

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

private:
    QByteArray Testi;           ///< each row with a line break behind it
    std::vector<size_t> Inizi;  ///< where each row begins
};
