// What the program writes, as scenarios of the bench.
#pragma once

#include "guasti/banco.h"

[[nodiscard]] QList<Scenario> ScenariNote();
[[nodiscard]] QList<Scenario> ScenariDocumenti();
[[nodiscard]] QList<Scenario> ScenariImpostazioni();
[[nodiscard]] QList<Scenario> ScenariArchivi();
[[nodiscard]] QList<Scenario> ScenariAggiornamenti();
[[nodiscard]] QList<Scenario> ScenariImporta();

/// Runs an act as the command line runs a command: what is critical goes to the error stream and is a
/// failure, a question is answered Yes, an input box with `Risposta`.
/// @return 0 when nothing was refused
int Svolgi(const std::function<void()>& Fai, const QString& Risposta = {});

/// Lays a file out for everybody.
void Posa(const QString& File, const QByteArray& Contenuto);
/// The whole content; empty for what cannot be read.
[[nodiscard]] QByteArray Contenuto(const QString& File);
