// Measures how long things take and compares them with what they should take. It asserts nothing: times
// belong to the machine, and a slow one is no fault of the program.
//
// A new measure is a function that prepares what it needs and returns MedianaMs of the part that counts,
// and a RegistraMisura with its name and target below it.
#pragma once

#include <QString>

#include <functional>

/// One row of the table.
struct Misura
{
    QString Cosa;
    double ObiettivoMs = 0.0;
    std::function<double()> Esegui;  ///< milliseconds
};

/// Adds a measure to the table; stands as a static object below its function.
struct RegistraMisura
{
    RegistraMisura(const QString& Cosa, double ObiettivoMs, std::function<double()> Esegui);
};

/// Median duration in milliseconds of `Volte` runs, after one that only warms the caches.
///
/// @param Volte from 1 up; of an even number of runs the slower of the two in the middle
[[nodiscard]] double MedianaMs(int Volte, const std::function<void()>& Azione);

/// Keeps the compiler from dropping a computation whose result nobody reads.
void Consuma(double Valore);
