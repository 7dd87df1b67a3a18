// The values of the electronic invoice: what the schema lets stand in an element.
#pragma once

#include <QString>
#include <QStringView>

#include <span>

/// The forms that a value has.
enum class FormaValore {
    Libero,         ///< any characters, their number between two limits
    Normale,        ///< the same; line ends count as blanks
    Latino,         ///< of western European languages
    Base,           ///< the first 128 alone
    Titolo,         ///< the same without blanks around
    Elenco,         ///< one of some codes
    Maiuscole,      ///< capital letters
    Alfanumerico,   ///< capital letters and digits
    Cifre,          ///< digits
    Decimale,       ///< digits, a point, decimals
    Intero,         ///< a whole number between two limits
    Data,           ///< a day
    DataOra,        ///< a day and a time
    Base64,         ///< bytes
    Iban,           ///< as far as its form goes
    Bic,            ///< of a bank
    Posta,          ///< an address of certified mail
    PostaContatti,  ///< an address of mail, less strictly
};

/// A kind of value.
struct TipoValore
{
    QStringView Nome;
    FormaValore Forma;
    int Minimo = 0;  ///< characters, digits before the point, or the number itself
    int Massimo = 0;
    int MinimoDecimali = 0;
    int MassimoDecimali = 0;
    bool Segno = false;       ///< a minus may stand before it
    int ValoreMassimo = 0;    ///< of a decimal; 0: none
    QStringView Codici = {};  ///< those of Elenco, divided by blanks
};

/// All of them.
[[nodiscard]] std::span<const TipoValore> TipiValore();
/// One of them; null for a name that is none.
[[nodiscard]] const TipoValore* TipoValoreDi(QStringView Nome);

/// Whether a value is of a kind.
[[nodiscard]] bool ValoreValido(const TipoValore& Tipo, const QString& Valore);
/// The same by the kind's name; false for a name that is none.
[[nodiscard]] bool ValoreValido(QStringView Tipo, const QString& Valore);

/// What a kind asks for, to go behind "vuole": "un numero con 2 decimali".
[[nodiscard]] QString RichiestaDi(const TipoValore& Tipo);
