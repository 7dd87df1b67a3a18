#include "creaimmagini/creaimmagini.h"

#include <QGuiApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    // Pictures are painted in memory; no display is asked for.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "minimal");
    const QGuiApplication Applicazione(argc, argv);
    QTextStream Errori(stderr);
    return CreaImmagini(QCoreApplication::arguments().mid(1), Errori);
}
