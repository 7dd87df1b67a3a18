#include "pubblica/pubblica.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication Applicazione(argc, argv);
    QTextStream Detto(stdout);
    QTextStream Errori(stderr);
    return Pubblica(QCoreApplication::arguments().mid(1), Detto, Errori);
}
