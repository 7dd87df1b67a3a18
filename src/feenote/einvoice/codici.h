// The code lists of the electronic invoice that the program offers or shows.
#pragma once

#include "core/modRegimi.h"

#include <QString>
#include <QStringView>

#include <span>

/// Kinds of document that the program writes.
[[nodiscard]] std::span<const VoceCodificata> TipiFattura();
/// How an invoice is paid.
[[nodiscard]] std::span<const VoceCodificata> ModalitaPagamento();
/// Reasons for fees without VAT that a user may choose.
[[nodiscard]] std::span<const VoceCodificata> NatureSenzaIva();

/// A regime in which an office shows neither VAT nor withholding.
[[nodiscard]] bool RegimeSenzaIva(QStringView Regime);

/// The two letters of a country, ISO 3166-1.
[[nodiscard]] bool NazioneEsistente(QStringView Sigla);
/// One of the European Union.
[[nodiscard]] bool NazioneDellUnione(QStringView Sigla);

/// "TD01 Fattura"; the code alone where the program knows no more of it.
[[nodiscard]] QString ConNome(std::span<const VoceCodificata> Voci, QStringView Codice);
