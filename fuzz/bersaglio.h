// What every target stands on: how it is found, what it demands, where it works.
#pragma once

#include <QByteArray>
#include <QString>

/// Ends the process where a promise is broken: the input that did it is then kept.
void Pretendi(bool Vero);

/// A folder of this process, with the separator at its end; home and settings stand in it too, and it goes
/// with the process.
[[nodiscard]] QString CartellaDiLavoro();

/// The program folder as built, with the separator at its end.
[[nodiscard]] QString CartellaCostruita();

/// Speaks to nobody, reads the program folder as built.
void PreparaSessione();

/// Replaces a file of the working folder. @return its full path
QString Posa(const QString& Nome, const QByteArray& Contenuto);

/// The bytes of a file that is there.
[[nodiscard]] QByteArray Contenuto(const QString& File);

/// Takes one input.
using ProvaDiDati = void (*)(const QByteArray& Dati);

#ifdef CON_LIBFUZZER

/// Names the procedure that takes one input; stands once in each target.
#define BERSAGLIO(Nome, Procedura)                                                                           \
    extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Dati, size_t Quanti)                                \
    {                                                                                                        \
        Procedura(QByteArray(reinterpret_cast<const char*>(Dati), static_cast<qsizetype>(Quanti)));          \
        return 0;                                                                                            \
    }                                                                                                        \
    static_assert(true)

#else

struct RegistraBersaglio
{
    RegistraBersaglio(const char* Nome, ProvaDiDati Procedura);
};
#define BERSAGLIO(Nome, Procedura) static const RegistraBersaglio Registrato_##Nome(#Nome, Procedura)

#endif
