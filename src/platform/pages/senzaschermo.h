// An application that has fonts and no windows.
#pragma once

#include <QCoreApplication>

#include <memory>

/// Lays out pages on a machine without a display as on one with it: whatever display there is stays out of
/// it. Stands for the one application object of the process.
[[nodiscard]] std::unique_ptr<QCoreApplication> ApplicazioneSenzaSchermo(int& argc, char** argv);
