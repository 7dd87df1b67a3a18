// The file of an electronic invoice as a tree, whoever has written it.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <utility>
#include <vector>

/// An element of the file.
struct NodoXml
{
    QString Nome;
    QString Spazio;                                ///< namespace; empty: none
    QString Testo;                                 ///< its own, without that of the elements in it
    QList<std::pair<QString, QString>> Attributi;  ///< name with its namespace in front, value
    qint64 Linea = 0;                              ///< from 1
    int Padre = -1;
    int Primo = -1;     ///< its first element, -1: none
    int Seguente = -1;  ///< the next element of the same parent, -1: none
};

/// The elements in the order of the file; the first is the one that all stand in.
class AlberoXml
{
public:
    static constexpr int Nessuno = -1;

    [[nodiscard]] int Quanti() const { return int(Nodi.size()); }
    [[nodiscard]] const NodoXml& operator[](int Nodo) const { return Nodi[size_t(Nodo)]; }

    /// The elements in another, those of a name or all; none in Nessuno.
    [[nodiscard]] QList<int> Figli(int Nodo, QStringView Nome = {}) const;
    /// The first element of a path below another ("DatiGenerali/DatiGeneraliDocumento/Data"), or Nessuno.
    [[nodiscard]] int Trova(int Nodo, QStringView Percorso) const;
    /// Its text without blanks around; empty when it is not there.
    [[nodiscard]] QString Valore(int Nodo, QStringView Percorso) const;
    /// The names from the root down, a number behind those that stand more than once: "DettaglioLinee[2]".
    [[nodiscard]] QString PercorsoDi(int Nodo) const;

    std::vector<NodoXml> Nodi;
};

/// What a reading has given.
struct LetturaXml
{
    AlberoXml Albero;
    QString Guasto;  ///< why there is no tree, as a sentence; empty: there is one
    qint64 Linea = 0;
};

/// Reads bytes that may be anything. Refused, each with its sentence: no XML, declarations of a document type
/// and what they name, elements too deep or too many.
[[nodiscard]] LetturaXml LeggiXml(const QByteArray& Byte);

namespace limiti_fattura {

inline constexpr int Profondita = 24;
inline constexpr int Elementi = 300'000;
/// Of one element; the names that the whole file declares among them.
inline constexpr int AttributiPerElemento = 64;

}  // namespace limiti_fattura
