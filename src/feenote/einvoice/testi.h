// Texts as the file of an electronic invoice may hold them.
#pragma once

#include <QString>
#include <QStringList>

/// The characters that an element of the file takes.
enum class AlfabetoFattura {
    Base,    ///< the first 128
    Latino,  ///< and those of western European languages
};

/// A text in the characters of an alphabet.
struct TestoPulito
{
    QString Testo;
    QString Cambiati;   ///< characters that are written otherwise, each once
    QString Rifiutati;  ///< characters that no rule writes, each once; the text is without them

    friend bool operator==(const TestoPulito&, const TestoPulito&) = default;
};

/// Writes a text in an alphabet: blanks and line ends become single spaces, quotes, dashes and letters with
/// foreign accents what they resemble. What has no likeness (other scripts, pictures) is refused.
[[nodiscard]] TestoPulito PulisciTesto(const QString& Testo, AlfabetoFattura Alfabeto);

/// A text cut behind a word, where that is possible; no pair of surrogates is divided.
[[nodiscard]] QString TagliaTesto(const QString& Testo, qsizetype Massimo);

/// A text in pieces of so many characters at most, divided between words.
[[nodiscard]] QStringList DividiTesto(const QString& Testo, qsizetype Massimo);
