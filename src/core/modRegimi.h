// What an electronic invoice says of the office: its kind and its tax regime.
#pragma once

#include <QString>
#include <QStringView>

#include <span>

/// A code and what it means, as lists show it.
struct VoceCodificata
{
    QStringView Codice;
    QStringView Nome;
};

namespace regimi {

inline constexpr QStringView Ordinario = u"RF01";
inline constexpr QStringView Forfettario = u"RF19";
inline constexpr QStringView Minimi = u"RF02";
inline constexpr QStringView CassaPubblica = u"RF16";
inline constexpr QStringView Cassa = u"RF17";
inline constexpr QStringView Franchigia = u"RF20";

/// Every tax regime of the invoice's schema, 1.2.3; the two of nearly all law offices come first.
[[nodiscard]] std::span<const VoceCodificata> Voci();
/// The code in capitals without blanks; the ordinary one for an empty text. One that is none stays: who
/// writes an invoice of it is told, and nobody gets a regime that was not chosen.
[[nodiscard]] QString Noto(const QString& Codice);

}  // namespace regimi

namespace tipostudio {

inline constexpr QStringView Persona = u"P";
inline constexpr QStringView Associazione = u"A";
inline constexpr QStringView Societa = u"S";

/// Kinds of withholding tax: from a person, from anybody else.
inline constexpr QStringView RitenutaPersona = u"RT01";
inline constexpr QStringView RitenutaAltri = u"RT02";

[[nodiscard]] std::span<const VoceCodificata> Voci();
/// The kind, without regard to case and blanks; a person for a text that is none.
[[nodiscard]] QString Noto(const QString& Codice);
/// The kind of withholding tax that clients keep back.
[[nodiscard]] QString Ritenuta(const QString& Codice);

}  // namespace tipostudio
