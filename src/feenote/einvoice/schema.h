// The schema of the electronic invoice, version 1.2.3, as tables: what stands in what, how often, and what a
// value may be.
#pragma once

#include "feenote/einvoice/schematipi.h"

#include <limits>
#include <span>

/// How often an element stands.
struct VolteElemento
{
    int Minimo = 1;
    int Massimo = 1;
};
inline constexpr VolteElemento Uno{1, 1};
inline constexpr VolteElemento Facoltativo{0, 1};
inline constexpr VolteElemento UnoOPiu{1, std::numeric_limits<int>::max()};
inline constexpr VolteElemento Molti{0, std::numeric_limits<int>::max()};

/// An element of a group, in its place.
struct ElementoSchema
{
    QStringView Nome;
    QStringView Tipo;  ///< of TipoComplesso or TipoValore
    VolteElemento Volte;
    int Alternativa = 0;  ///< 1, 2: the elements of one of the two stand, those of the other do not
};

/// A group of elements in their order.
struct TipoComplesso
{
    QStringView Nome;
    std::span<const ElementoSchema> Elementi;
};

/// All groups.
[[nodiscard]] std::span<const TipoComplesso> TipiComplessi();
/// One of them; null for a name that is none, a value's for instance.
[[nodiscard]] const TipoComplesso* TipoComplessoDi(QStringView Nome);

/// Of the element that everything stands in.
inline constexpr QStringView TipoRadice = u"FatturaElettronicaType";
/// What belongs to the other schema, of signatures, and is not looked into.
inline constexpr QStringView TipoFirma = u"ds:Signature";
