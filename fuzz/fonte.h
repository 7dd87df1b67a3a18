// An input taken apart line by line, so that the first inputs can be written by hand.
#pragma once

#include "platform/base/errore.h"

#include "bersaglio.h"

#include <QByteArrayView>
#include <QString>

/// What an input has not yet given.
class Fonte
{
public:
    explicit Fonte(const QByteArray& Dati) : Resto(Dati) {}

    [[nodiscard]] bool Finita() const { return Resto.isEmpty(); }
    /// The next line, "\n" in it an end of line and "\\" a backslash; empty behind the last one.
    QString Riga();
    /// The number that the next line begins with, brought into these bounds.
    int Intero(int Da, int A);
    /// All that is left.
    QByteArray Tutto();

private:
    QByteArray Grezza();
    QByteArray Resto;
};

/// Runs what may throw the program's own errors and nothing else.
/// @return true when it came to its end
template <class F>
bool Riesce(F&& Procedura)
{
    try {
        Procedura();
        return true;
    } catch (const Errore& Guasto) {
        Pretendi(Guasto.Numero > 0 && !Guasto.Descrizione.isEmpty());
        return false;
    }
}
