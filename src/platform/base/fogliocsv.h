// Rows as Italian spreadsheets open them.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <vector>

/// True for a text that a spreadsheet might run: a sign of formulas behind any number of apostrophes.
[[nodiscard]] bool ComeFormula(QStringView Testo);

/// A cell as it is written: an apostrophe keeps a text from being a formula, quotes stand where they must.
[[nodiscard]] QString CellaCsv(const QString& Testo);

/// A row as it is written: ";" between its cells, CRLF behind it, in UTF-8.
/// @param Cifre columns of amounts, whose figures stand as they are: a minus before them is no formula
[[nodiscard]] QByteArray RigaCsv(const QStringList& Celle, const QList<int>& Cifre = {});

/// Rows as a spreadsheet opens them by a double click, behind the mark of UTF-8. @param Cifre as RigaCsv
[[nodiscard]] QByteArray ScriviCsv(const std::vector<QStringList>& Righe, const QList<int>& Cifre = {});
