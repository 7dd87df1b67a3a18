// Names of columns that stand in more than one table.
#pragma once

#include <QString>

namespace colonne {

inline const QString Categoria = QStringLiteral("categoria");
inline const QString Codice = QStringLiteral("codice");
inline const QString Da = QStringLiteral("da");
inline const QString Gruppo = QStringLiteral("gruppo");
inline const QString Medio = QStringLiteral("medio");
inline const QString Numero = QStringLiteral("numero");
inline const QString Scaglione = QStringLiteral("scaglione");

}  // namespace colonne
