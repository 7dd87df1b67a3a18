// calcanova-cli: the program's logic without a window.
#include "cli/comandi.h"

#include "platform/pages/senzaschermo.h"
#include "platform/system/diagnosi.h"
#include "platform/system/shell.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <memory>
#include <string>

namespace {

/// Pages need fonts, and these an application that takes longer to start than all that most commands do.
bool VuolePagine(int argc, char** argv)
{
    QStringList Parole;
    for (int i = 1; i < argc; ++i)
        Parole += QString::fromLocal8Bit(argv[i]);
    return Parole.contains(u"stampa") &&
           (Parole.contains(u"--batch") || std::ranges::any_of(Parole, [](const QString& Parola) {
                return Parola.endsWith(u".pdf", Qt::CaseInsensitive) ||
                       Parola.endsWith(u".doc", Qt::CaseInsensitive);
            }));
}

}  // namespace

int main(int argc, char** argv)
{
    TaciAiProgrammatori();
    ImponiUtf8();
    const std::unique_ptr<QCoreApplication> Applicazione =
        VuolePagine(argc, argv) ? ApplicazioneSenzaSchermo(argc, argv)
                                : std::make_unique<QCoreApplication>(argc, argv);
    const auto Ingresso = [] {
        std::string Riga;
        return std::getline(std::cin, Riga) ? QByteArray(Riga.data(), qsizetype(Riga.size())) : QByteArray();
    };
    const auto Scrivi = [](std::FILE* Dove) {
        return [Dove](const QByteArray& Testo) {
            std::fwrite(Testo.constData(), 1, size_t(Testo.size()), Dove);
        };
    };
    const int Esito =
        EseguiCli(QCoreApplication::arguments().mid(1), Ingresso, Scrivi(stdout), Scrivi(stderr));
    // Part of an answer must not pass for the whole of it.
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return Esito;
    std::fputs("Errore: la risposta non è stata scritta per intero (61)\n", stderr);
    return Esito == 0 ? 1 : Esito;
}
