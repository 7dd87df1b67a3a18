// Keys as they are called on an Italian keyboard.
#pragma once

#include <QString>

/// A sequence in the portable form ("Ctrl+Shift+PgDown") as texts for the user call it ("Ctrl+Maiusc+Pag
/// giù").
[[nodiscard]] QString NomeTasti(QStringView Portabili);

/// A hint with the keys of its command: "Salva (Ctrl+S)". Without keys the hint alone.
[[nodiscard]] QString SuggerimentoConTasti(const QString& Suggerimento, QStringView Portabili);
