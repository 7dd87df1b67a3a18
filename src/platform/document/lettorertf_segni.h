// The signs that a rich text is made of.
#pragma once

#include <QStringView>

#include <optional>

struct SegnoRtf
{
    enum Tipo {
        Fine,
        Apre,     ///< "{"
        Chiude,   ///< "}"
        Parola,   ///< a control word: its name and its number
        Simbolo,  ///< a backslash and one sign
        Byte,     ///< a character as two hexadecimal digits
        Brano,    ///< plain characters
    };
    Tipo Quale = Fine;
    QStringView Testo{};              ///< of a word or of plain characters
    std::optional<int> Numero{};      ///< of a word; one beyond 32 bits is the nearest of them
    QChar Segno{};                    ///< of a symbol
    std::optional<char> Carattere{};  ///< of a byte; none where two digits were not there
};

/// Cuts a rich text into its signs. Line ends and zeros of the file are none; raw bytes ("\bin") go with
/// their word. Never reads beyond the end.
class SegniRtf
{
public:
    explicit SegniRtf(QStringView Tutto) : Testo(Tutto) {}

    [[nodiscard]] SegnoRtf Prossimo();

private:
    SegnoRtf Comando();
    SegnoRtf Parola();
    std::optional<int> LeggiNumero();
    SegnoRtf ByteEsadecimale();
    SegnoRtf Brano();

    QStringView Testo;
    qsizetype Posto = 0;
};
