// Italian names of days and months.
#pragma once

#include <QString>
#include <QStringView>

#include <array>

/// Days by QDate::dayOfWeek(), 1 Monday to 7 Sunday; element 0 is empty.
inline constexpr std::array<QStringView, 8> NomiGiorni{
    u"", u"Lunedì", u"Martedì", u"Mercoledì", u"Giovedì", u"Venerdì", u"Sabato", u"Domenica",
};
/// Months by their number, 1 to 12; element 0 is empty.
inline constexpr std::array<QStringView, 13> NomiMesi{
    u"",       u"Gennaio", u"Febbraio",  u"Marzo",   u"Aprile",   u"Maggio",   u"Giugno",
    u"Luglio", u"Agosto",  u"Settembre", u"Ottobre", u"Novembre", u"Dicembre",
};

/// Name of a month, 1 to 12. @throws Errore 9 for any other number
[[nodiscard]] QString NomeMese(int Mese);
/// Name of a day of the week, 1 Monday to 7 Sunday. @throws Errore 9 for any other number
[[nodiscard]] QString NomeGiorno(int Giorno);
