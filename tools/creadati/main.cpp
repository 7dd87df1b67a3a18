#include "creadati/creadati.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication Applicazione(argc, argv);
    QTextStream Errori(stderr);
    return CreaDati(QCoreApplication::arguments().mid(1), Errori);
}
