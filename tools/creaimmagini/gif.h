// A picture as the bytes of a GIF file, which Qt reads and does not write.
#pragma once

#include <QByteArray>

class QImage;

/// One still picture with a table of at most 256 colours. A point that is less than half opaque is
/// transparent, any other is fully opaque; beyond 255 colours the nearest ones are joined.
/// @return empty for a null picture or one with a side over 65535
[[nodiscard]] QByteArray Gif(const QImage& Immagine);
