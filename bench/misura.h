// Measures how long things take and compares them with what they should take. Beside each time stands what
// the process has held at most beyond what it had before, or the largest of the processes that were run for
// it. It asserts nothing: times belong to the machine, and a slow one is no fault of the program.
//
// A new measure is a function that prepares what it needs and returns MedianaMs of the part that counts,
// and a RegistraMisura with its name and target below it.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// One row of the table.
struct Misura
{
    QString Cosa;
    double Obiettivo = 0.0;
    std::function<double()>
        Esegui;  ///< the quantity, not a number where the machine does not let it be measured
    QString Unita;
    double MassimiMega = 0.0;  ///< of memory; 0: no limit
};

/// Adds a measure to the table; stands as a static object below its function.
struct RegistraMisura
{
    /// @param MassimiMega what it may hold of memory at most, in MB; 0: no limit
    RegistraMisura(const QString& Cosa, double Obiettivo, std::function<double()> Esegui,
                   const QString& Unita = QStringLiteral("ms"), double MassimiMega = 0.0);
    /// The same of a time.
    RegistraMisura(const QString& Cosa, double Obiettivo, std::function<double()> Esegui, double MassimiMega);
};

/// A role that the benchmark plays as a process of its own, named by the first argument of its command line.
struct RegistraRuolo
{
    RegistraRuolo(const QString& Nome, std::function<int(int& argc, char** argv)> Esegui);
};

/// What a role run as a process of its own writes on its first line.
///
/// @param Fine when not null, the milliseconds from the start of the process to that line
/// @return the line, empty when the role gave none within a minute
QString EseguiRuolo(const QStringList& Argomenti, double* Fine = nullptr);

/// Milliseconds that an action takes.
[[nodiscard]] double DurataMs(const std::function<void()>& Azione);

/// Median of the values; not a number of an empty list.
[[nodiscard]] double Mediana(QList<double> Valori);

/// Median duration in milliseconds of `Volte` runs, after one that only warms the caches.
///
/// @param Volte from 1 up; of an even number of runs the slower of the two in the middle
[[nodiscard]] double MedianaMs(int Volte, const std::function<void()>& Azione);

/// Keeps the compiler from dropping a computation whose result nobody reads.
void Consuma(double Valore);
