// The form of an electronic invoice, held to the schema's tables.
#pragma once

#include "feenote/einvoice/controlli.h"
#include "feenote/einvoice/lettura.h"

/// The namespace of the element that everything stands in; those within have none.
inline constexpr QStringView SpazioFattura = u"http://ivaservizi.agenziaentrate.gov.it/docs/xsd/fatture/v1.2";
/// That of a signature.
inline constexpr QStringView SpazioFirma = u"http://www.w3.org/2000/09/xmldsig#";

/// What of the tree is not as the schema has it: elements and their order, attributes, values. A signature is
/// not looked into. No more than MassimoErroriForma, with one that says so behind them.
[[nodiscard]] QList<EsitoControllo> ControllaForma(const AlberoXml& Albero);

/// Errors of form behind which the exchange system looks no further.
inline constexpr int MassimoErroriForma = 50;
