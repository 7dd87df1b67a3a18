// A picture that a user has chosen for print, from a file that anybody may have made.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

/// Most bytes of such a file, and of one that is a drawing.
inline constexpr qint64 MassimoByteFigura = qint64(16) << 20;
inline constexpr qsizetype MassimoByteDisegno = qsizetype(1) << 19;

struct FiguraScelta
{
    QImage Immagine;  ///< on white, without transparent parts; null with a defect
    QString Difetto;  ///< a whole sentence for the user; empty: none
};

/// A PNG, JPEG or SVG, told by its bytes, as an image of at most this size; photographs are made smaller,
/// never larger, a drawing is as large as fits. What would take more than moments or memory has is refused
/// before its dots are read, and so is a drawing that names anything outside itself.
[[nodiscard]] FiguraScelta LeggiFigura(const QByteArray& Byte, const QSize& Massima);

/// The image as the bytes of a PNG; the same image gives the same bytes.
[[nodiscard]] QByteArray ComePng(const QImage& Immagine);
