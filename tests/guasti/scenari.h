// What the program writes, as scenarios of the bench.
#pragma once

#include "guasti/banco.h"
#include "guasti/posa.h"

[[nodiscard]] QList<Scenario> ScenariNote();
[[nodiscard]] QList<Scenario> ScenariDocumenti();
[[nodiscard]] QList<Scenario> ScenariImpostazioni();
[[nodiscard]] QList<Scenario> ScenariArchivi();
[[nodiscard]] QList<Scenario> ScenariAggiornamenti();
[[nodiscard]] QList<Scenario> ScenariImporta();
[[nodiscard]] QList<Scenario> ScenariUscite();
[[nodiscard]] QList<Scenario> ScenariNellaNota();

/// Thrown by an act whose program answers by a value.
struct Rifiuto
{
    QString Frase;  ///< the program's own words, which its window shows; empty: it has none
};

/// Runs an act as the command line runs a command: what is critical goes to the error stream and is a
/// failure, a question is answered Yes, an input box with `Risposta`.
/// @return 0 when nothing was refused
int Svolgi(const std::function<void()>& Fai, const QString& Risposta = {});

/// Settings that a failing disk has kept from being read count as lost, and they are whole.
/// @param Deposito their file, below the scenario's folder
[[nodiscard]] bool DannoFalso(const Posto& Dove,
                              const QString& Deposito = QStringLiteral("Calcanova/KR5.ini"));
