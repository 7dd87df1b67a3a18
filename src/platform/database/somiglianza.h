// The patterns of Like: * any run, ? one character, # one digit, [a-c] one of a list, [!a-c] none of it.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <vector>

/// Next character of UTF-8 text, without regard to case; a broken byte counts as one replacement
/// character. Moves the position on; it must stand before the end.
[[nodiscard]] char32_t ProssimoCarattere(const char*& Posto, const char* Fine);

/// Appends a text to another without its case, character by character: equal for two texts that
/// ConfrontaSenzaMaiuscole finds equal, and in its order.
void AccodaSenzaMaiuscole(QByteArray& A, QByteArrayView Utf8);

/// Compares without regard to case, by code point: À equals à, à differs from a.
/// @return below, at or above 0
[[nodiscard]] int ConfrontaSenzaMaiuscole(QByteArrayView Primo, QByteArrayView Secondo);

/// A pattern made ready. A "[" without its "]" stands for itself; "[]" stands for nothing.
class Somiglianza
{
public:
    explicit Somiglianza(const QString& Modello);

    /// True when the whole text meets the pattern. The time grows with length of text by length of
    /// pattern at most, whatever the number of "*".
    [[nodiscard]] bool Corrisponde(QByteArrayView Utf8) const;

private:
    enum class Tipo { Carattere, Uno, Cifra, Lista, Molti };
    struct Intervallo
    {
        char32_t Da = 0;
        char32_t A = 0;
    };
    struct Elemento
    {
        Tipo Che = Tipo::Carattere;
        char32_t Carattere = 0;
        bool Negata = false;
        std::vector<Intervallo> Lista;
    };
    void AggiungiLista(QStringView Interno);
    [[nodiscard]] static bool Vale(const Elemento& Voce, char32_t Carattere);

    std::vector<Elemento> Elementi;
};
