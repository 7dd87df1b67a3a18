// Cards of people: vCard 2.1, 3.0 and 4.0 read, 4.0 written.
#pragma once

#include "addressbook/exchange/tabellaestranea.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <utility>

/// The cards of a file as rows. Columns bear the names of the archive's fields where a property means one
/// ("Nominativo", "CodFis", "Pec"), else the property's; a second telephone or address has a column of its
/// own
/// ("Telefono 2"). A name is the family name and the given ones behind it, or the organisation's; what a
/// card writes before and behind a name ("Avv.") is the column "Titolo". Pictures,
/// sounds and keys are left out.
/// @throws Errore NumeroFileRifiutato for what is no text or holds no card, ends within a card, or passes the
/// limits; Interrotto when `Prosegui` stopped it
[[nodiscard]] TabellaEstranea LeggiVcard(const QByteArray& Byte, const AvanzamentoLettura& Prosegui = {});

/// The values of a row by the archive's names of its fields, the visible ones in their order.
using ValoriNominativo = QList<std::pair<QString, QString>>;

/// Cards of RFC 6350, one for each row that has a name. Values that no property of the standard means stand
/// in X- properties by their names, tax codes as X-CODICEFISCALE and X-PARTITAIVA.
/// @param Societa the row is a company's
[[nodiscard]] QByteArray SchedaVcard(const ValoriNominativo& Valori, bool Societa);
