// An address written in one line, taken apart as an electronic invoice wants it.
#pragma once

#include <QString>
#include <QStringView>

/// The country of whoever says none, ISO 3166.
inline constexpr QStringView Italia = u"IT";

/// The parts of an address. What could not be told is empty.
struct PartiIndirizzo
{
    QString Via;
    QString Civico;  ///< "12", "12/A", "SNC"
    QString Cap;     ///< five digits
    QString Comune;
    QString Prov;  ///< two capitals

    friend bool operator==(const PartiIndirizzo&, const PartiIndirizzo&) = default;
};

/// Street and house number of "Via Roma, 12/A" or "Via Roma n. 12". A number that may belong to the street's
/// name ("Via 4 Novembre") stays there.
[[nodiscard]] PartiIndirizzo SpezzaVia(const QString& Indirizzo);
/// Postal code, town and province of "20121 Milano (MI)", "20121 - Milano MI", "Milano".
[[nodiscard]] PartiIndirizzo SpezzaCitta(const QString& Citta);
/// The whole of it, from the two lines in which an office writes its address; a street that ends with the
/// town of the second line, or stands there with everything, is told apart too.
[[nodiscard]] PartiIndirizzo SpezzaIndirizzo(const QString& Indirizzo, const QString& Citta);
