// A guide as a page of the program's viewer: structure and class names, never a colour or a size.
#pragma once

#include "creaguide/marcatura.h"

/// What stands around the text of a page: file names without their extension, and titles.
struct CorniceAiuto
{
    QString Capitolo;
    QString Prima;  ///< page before, empty at the first
    QString TitoloPrima;
    QString Dopo;
    QString TitoloDopo;
};

/// The anchor that a title has on its page: its letters and digits without case and accents, "-" between
/// words.
[[nodiscard]] QString AncoraDi(const QString& Titolo);

/// The words of a text that stand on the screen, section by section: the anchor of each ("" for what stands
/// before the first), its title, what is written in it on one line.
struct SezioneAiuto
{
    QString Ancora;
    QString Titolo;
    QString Testo;
};
[[nodiscard]] std::vector<SezioneAiuto> SezioniDi(const TestoGuida& Testo);

/// The page as HTML. A reference "pagina#sezione" leads to another page of the help, "#sezione" stays on the
/// page, "pdf:Nome" opens a document of the program folder, "comando:parola" runs a command.
[[nodiscard]] QByteArray PaginaAiuto(const TestoGuida& Testo, const CorniceAiuto& Cornice);

/// The same for a title and ready HTML.
[[nodiscard]] QByteArray PaginaIntera(const QString& Titolo, const QString& Corpo);
