// Fonts of the printed page on the one device that all pages are laid out on.
#pragma once

#include "platform/document/documento.h"
#include "platform/document/misura.h"

#include <QFont>

#include <array>
#include <deque>
#include <vector>

struct Brano;

/// Resolution of the layout device. A length in its dots is a double.
constexpr double PuntiPerPollice = 1200.0;
constexpr double PuntiPerMm = PuntiPerPollice / MmPerPollice;

/// The device: no screen, no printer, so that nothing of the machine enters the measures.
[[nodiscard]] QPaintDevice* DispositivoStampa();

/// The font that a document's font is set in: pixel size in dots, kerning, no hinting. "Times New Roman",
/// "Arial" and "Courier New" are set in their equals of the package even where they exist. A family that is
/// on no machine, or the package's own where it is not installed, gives way to the nearest one at hand.
[[nodiscard]] QFont FontStampa(const Carattere& Quale);

/// A font with what layout asks of it again and again.
class FontMisurato
{
public:
    explicit FontMisurato(const Carattere& Quale);

    /// Width of a text on one line, kerning left aside; no text is wider than this when it is laid out.
    [[nodiscard]] double Larghezza(QStringView Testo) const;

    Carattere Chiesto;
    QFont Font;
    double Ascesa = 0.0;    ///< from the top of a line to its baseline
    double Altezza = 0.0;   ///< of a line
    double Bianco = 0.0;    ///< width of a blank
    double Trattino = 0.0;  ///< from the baseline down to the middle of a "_"
    double SpessoreTrattino = 0.0;

private:
    static constexpr char16_t PrimoNoto = 0x20;
    static constexpr char16_t UltimoNoto = 0x7e;
    std::array<double, UltimoNoto - PrimoNoto + 1>
        Noti{};  ///< widths of the characters of amounts and most words
};

/// The few fonts of a document, each measured once, and what was laid out in them already.
class FontDocumento
{
public:
    explicit FontDocumento(const Strettezza& Quanto = {}) : Stretta(Quanto) {}

    /// Valid for the life of this object.
    [[nodiscard]] const FontMisurato& operator()(const Carattere& Quale);

    /// Of the document that is laid out in them. Its letters stay as they are once a font was asked for.
    Strettezza Stretta;
    /// The passages of this document in these very fonts, from another time: lines that come nearer to each
    /// other break where they did. Null: none.
    const std::vector<Brano>* Disposti = nullptr;

private:
    std::deque<FontMisurato> Tutti;
};
