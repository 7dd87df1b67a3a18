// Printing and PDF of what a preview shows.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QPrinter;
class VistaStampa;

/// Lets the user choose printer, paper, pages and copies for the document on view. Without a printer on the
/// machine it says so instead. The printer and its paper are remembered until the program ends; pages and
/// copies are asked anew.
///
/// @return 0 cancelled
int PrintDialog(VistaStampa& Vista);

/// Prints the document on view as the last PrintDialog has chosen, laid out anew for the printer's paper; the
/// preview follows to that paper. Does nothing without a choice; a choice serves once. A PDF that the dialog
/// asks for is whole before it takes its place, and open to whom its folder is.
///
/// @param Titolo name of the job in the printer's queue
/// @return true when pages went to the printer
/// @throws Errore 482 when the printer is gone or refuses, and 7, 55, 57, 61, 70, 75, 76 as the file system
/// refuses a PDF; preview, paper and a file that was there are then as they were. NonConfermato as
/// ScriviFile: the PDF stands there, to be printed again
bool PrintDoc(VistaStampa& Vista, const QString& Titolo);

/// Asks for a place and writes the document on view there as a PDF, which has Nome as its title. An existing
/// file is replaced only after a question; a missing ".pdf" is added.
///
/// @param Cartella where the dialog begins
/// @param Nome file name without extension that the dialog proposes
/// @return the path written, empty when the user gave up
/// @throws Errore 61, 70, 75, 76 as the file system refuses; a file that was there stays
QString EsportaPdf(const VistaStampa& Vista, const QString& Cartella, const QString& Nome);

/// The machine's printers as the program sees them; a test installs its own.
struct Stampanti
{
    std::function<QStringList()> Nomi;                     ///< of the printers that are there now
    std::function<bool(const QPrinter& Scelta)> Risponde;  ///< true while a chosen printer can be printed on
};

/// Installs another view of the printers and returns the former one.
Stampanti InstallaStampanti(Stampanti Nuove);
