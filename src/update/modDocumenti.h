// The documents that the program works with: which of them a folder offers, how they are opened.
#pragma once

#include <QList>
#include <QString>

/// A document as a row shows it.
struct VoceDocumento
{
    QString File;  ///< full path
    QString Nome;  ///< of the file, without its extension
    QString Tipo;  ///< the extension in capitals; empty where there is none

    friend bool operator==(const VoceDocumento&, const VoceDocumento&) = default;
};

/// The folder of the documents, with the separator at its end.
[[nodiscard]] QString CartellaDocum();

/// The documents of a folder. With a catalogue, "elenco.txt" (one name a line, Windows-1252 or UTF-8): those
/// of its lines whose file stands in the folder, in its order, each file once. A line that names anything but
/// a file of this very folder, by separators, dots or links, counts for nothing. Without a catalogue: the
/// files whose last three letters stand in "DOC_XLS_PDF", by name. No folder gives no documents.
/// @throws Errore 75 folder or catalogue cannot be read, 7 a catalogue over 1 MiB
[[nodiscard]] QList<VoceDocumento> ElencoDocumenti(const QString& Cartella);

/// Whether a document has every word of a text in its name or type, whatever case and accents.
[[nodiscard]] bool TrovatoNelDocumento(const VoceDocumento& Voce, const QString& Testo);

/// "1 documento", "12 documenti"; "3 di 12 documenti" while some are filtered out.
[[nodiscard]] QString ContoDocumenti(qsizetype Mostrati, qsizetype Tutti);

/// Opens a document with the system's program for it.
/// @throws Errore 53 it has gone, 31 no program opens it, each naming it; any other number the system answers
void ApriDocumento(const VoceDocumento& Voce);
