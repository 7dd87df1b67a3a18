// Whether a drawing in SVG may be handed to the toolkit.
#pragma once

#include <QByteArray>
#include <QString>

/// What keeps a drawing from being drawn, as the end of a sentence ("contiene ..."); empty where nothing
/// does.
///
/// Refused are: what is no well-formed XML, declarations of a document type with entities, pictures, scripts
/// and whatever else is not the drawing's own, names of anything outside it, dashes (a minute of work in one
/// attribute) and parts that repeat each other without end.
[[nodiscard]] QString DifettoDisegno(const QByteArray& Svg);
