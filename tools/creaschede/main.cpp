#include "creaschede/creaschede.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication Applicazione(argc, argv);
    QTextStream Errori(stderr);
    return CreaSchede(QCoreApplication::arguments().mid(1), Errori);
}
