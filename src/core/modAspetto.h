// The looks of the desktop: backgrounds and pictures, templates of colours and picture. They stand beside the
// program, in "sfondi" and "icone"; what an office has put into folders of those names in its user folder
// wins over a file of the same name there.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>

/// The colours of the desktop, in the order of their buttons in the settings.
enum ColoreDesktop { ColoreSfondo, ColoreTesto, ColoreBordo, ColoreSelezione, ColoriDesktop };

/// A template of templates.ini. What it lacks, or what is no colour, is empty and changes nothing.
struct ModelloAspetto
{
    QString Nome;
    std::array<std::optional<int>, ColoriDesktop> Colori;  ///< 0xBBGGRR
    QString Immagine;                                      ///< with or without ".jpg"
};

/// The session's background, or one of another name; full path in any case of its letters, empty when there
/// is none.
[[nodiscard]] QString FileSfondo();
[[nodiscard]] QString FileSfondo(const QString& Nome);

/// The backgrounds, names of files that end in ".jpg" in any case, sorted as a reader would.
[[nodiscard]] QStringList LeggiSfondi();

/// The background of a name with or without ".jpg", in any case; empty when it is not there.
[[nodiscard]] QString TrovaSfondo(const QStringList& Sfondi, const QString& Nome);

/// The templates, in the order of their numbers from 1, up to the first one without a name.
[[nodiscard]] QList<ModelloAspetto> LeggiModelli();

/// A colour as the settings store it; nothing for a text that is none.
[[nodiscard]] std::optional<int> LeggiColore(const QString& Testo);

/// Pictures for icons, names without ".gif", sorted likewise.
[[nodiscard]] QStringList LeggiFigure();

/// Full path of an icon's picture; empty when there is none.
[[nodiscard]] QString FileFigura(const QString& Nome);
