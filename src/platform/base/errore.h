// The one thing this program throws: a classic error number with its Italian description.
#pragma once

#include <QString>

#include <exception>

/// A failure, shown to the user as "Errore: <Descrizione> (<Numero>)".
///
/// Numbers: 5 invalid argument, 6 overflow, 7 out of memory, 9 index out of range, 11 division by zero,
/// 13 type mismatch, 52/53 bad name/file not found, 55 file in use, 61 disk full, 70 permission denied,
/// 75 path/file access, 76 path not found, 1000 unexpected, 3xxx the database engine's.
struct Errore : std::exception
{
    int Numero = 0;
    QString Descrizione;

    /// The description comes from the table of DescrizioneErrore.
    explicit Errore(int Numero);
    Errore(int Numero, const QString& Descrizione);

    const char* what() const noexcept override;

private:
    QByteArray Utf8;  ///< what() must hand out bytes that live as long as the error
};

/// Italian sentence of a number, without a full stop; a general one for unknown numbers.
[[nodiscard]] QString DescrizioneErrore(int Numero);

/// Inside a catch block: the exception in flight as an Errore (bad_alloc is 7, anything unknown 1000).
[[nodiscard]] Errore ErroreCorrente();
