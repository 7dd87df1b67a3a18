// Text and fonts as rich text has them.
#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace rtf {

/// A control word with its number.
[[nodiscard]] QByteArray Parola(const char* Nome, int Valore);

/// Appends a text. Every other blank of a run is a hard one; line breaks stay within their row.
void ScriviTesto(const QString& Testo, QByteArray& Uscita);

/// The families of a document, by the number that they take in the file.
class TabellaFont
{
public:
    int operator()(const QString& Nome);
    [[nodiscard]] QByteArray Scritta() const;

private:
    std::vector<QString> Nomi;
};

}  // namespace rtf
