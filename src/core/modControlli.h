// Codes and addresses that an office writes down: whether they agree with their check characters and form.
#pragma once

#include <QString>

/// Characters of a person's fiscal code, and figures of a VAT number, which is a company's fiscal code too.
inline constexpr int LettereCodFis = 16;
inline constexpr int CifrePartitaIva = 11;

/// A person's fiscal code of 16 characters, one with letters for digits too, or a company's of 11 digits;
/// blanks and case count for nothing.
[[nodiscard]] bool CodiceFiscaleTorna(const QString& Testo);

/// The check character of the first fifteen places of a fiscal code, D.M. 23 December 1976: what stands
/// behind them counts for nothing, a place without a character counts 0, a character in no table 16383.
[[nodiscard]] QChar ControlloCodFis(const QString& Codice);

/// A VAT number of 11 digits, with or without "IT" in front.
[[nodiscard]] bool PartitaIvaTorna(const QString& Testo);

/// A bank account of any country, written in one piece or in groups.
[[nodiscard]] bool IbanTorna(const QString& Testo);

/// A code in capitals without the blanks, points and dashes that part it.
[[nodiscard]] QString CodiceInUnPezzo(const QString& Testo);

/// An address of electronic mail as far as its form says: something on either side of one "@", no blank.
/// What a mail program can be handed is narrower: EIndirizzo of feenote/modLettera.h.
[[nodiscard]] bool PostaTorna(const QString& Testo);

/// The three letters that a family name gives to a fiscal code: consonants, then vowels, then "X". What is no
/// letter of the plain alphabet counts for nothing, accented ones too.
/// Legal source: D.M. 23 December 1976.
[[nodiscard]] QString SiglaCognome(const QString& Cognome);
/// The same of a first name; of four consonants or more the second one is passed over.
[[nodiscard]] QString SiglaNome(const QString& Nome);
