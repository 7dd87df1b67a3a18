// A table in the clipboard, so that a letter takes it as a table and a text box as text.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

class QMimeData;

/// Rows of cells in the forms that programs paste: the plain text as it is given, the rows as an HTML table
/// and as one of rich text. A row with fewer cells than the others has a wider last one; amounts and numbers
/// stand at the right. Without rows there is the plain text alone.
[[nodiscard]] std::unique_ptr<QMimeData> DatiTabella(const QString& Piano, const QList<QStringList>& Righe);

/// Puts them into the clipboard.
void CopiaTabella(const QString& Piano, const QList<QStringList>& Righe);
