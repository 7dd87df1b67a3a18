#include "platform/pages/senzaschermo.h"

#include <QGuiApplication>

std::unique_ptr<QCoreApplication> ApplicazioneSenzaSchermo(int& argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(argc, argv);
}
