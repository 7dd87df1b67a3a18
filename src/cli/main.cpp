// calcanova-cli: the program's logic without a window.
#include "cli/comandi.h"

#include <QCoreApplication>

#include <cstdio>
#include <iostream>
#include <string>

int main(int argc, char** argv)
{
    // UTF-8 in and out whatever the locale of whoever calls.
    qputenv("LC_ALL", "C.UTF-8");
    QCoreApplication Applicazione(argc, argv);
    const auto Ingresso = [] {
        std::string Riga;
        return std::getline(std::cin, Riga) ? QByteArray(Riga.data(), qsizetype(Riga.size())) : QByteArray();
    };
    const auto Scrivi = [](std::FILE* Dove) {
        return [Dove](const QByteArray& Testo) { std::fwrite(Testo.constData(), 1, size_t(Testo.size()), Dove); };
    };
    return EseguiCli(QCoreApplication::arguments().mid(1), Ingresso, Scrivi(stdout), Scrivi(stderr));
}
