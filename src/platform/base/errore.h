// What this program throws: a classic error number with its Italian description, and the sign that somebody
// has stopped what was under way.
#pragma once

#include "platform/base/numerierrore.h"

#include <QByteArray>
#include <QString>

#include <exception>

/// A failure, shown to the user as "Errore: <Descrizione> (<Numero>)".
/// The number is one of the classic ones: below 1000 the language's, 3xxx the database engine's.
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

/// Long work that its user has stopped. He knows, so that whoever catches it tells nobody.
struct Interrotto
{};

/// Inside a catch block: the exception in flight as an Errore (bad_alloc is 7, anything unknown 1000).
[[nodiscard]] Errore ErroreCorrente();
