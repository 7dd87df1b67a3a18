// The looks of the desktop: backgrounds that stand beside the program, templates of colours and picture.
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

/// Folder of the backgrounds, with the separator at its end.
[[nodiscard]] QString CartellaSfondi();

/// The session's background, full path in any case of its letters; empty when there is none.
[[nodiscard]] QString FileSfondo();

/// The backgrounds in it, names of files that end in ".jpg" in any case, sorted as a reader would.
[[nodiscard]] QStringList LeggiSfondi();

/// The background of a name with or without ".jpg", in any case; empty when it is not there.
[[nodiscard]] QString TrovaSfondo(const QStringList& Sfondi, const QString& Nome);

/// The templates, in the order of their numbers from 1, up to the first one without a name.
[[nodiscard]] QList<ModelloAspetto> LeggiModelli();

/// A colour as the settings store it; nothing for a text that is none.
[[nodiscard]] std::optional<int> LeggiColore(const QString& Testo);

/// Pictures for icons, names without ".gif", of the program's and the user's folder "icone".
[[nodiscard]] QStringList LeggiFigure();

/// Full path of an icon's picture, the program's before the user's; empty when neither is there.
[[nodiscard]] QString FileFigura(const QString& Nome);
