#include "creaguide/creaguide.h"
#include "platform/pages/senzaschermo.h"

#include <cstdio>

int main(int argc, char** argv)
{
    const auto Applicazione = ApplicazioneSenzaSchermo(argc, argv);
    QTextStream Errori(stderr);
    return CreaGuide(QCoreApplication::arguments().mid(1), Errori);
}
