// Every kept input once more, through the targets as the program's own compiler builds them: so a target is
// compiled with each change of what it calls, and an input that once broke something stays mended.
//
//   semi <target> <folder or file>...
#include "bersaglio.h"

#include "platform/kit/aspetto.h"
#include "platform/kit/servizi_qt.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <cstdio>
#include <map>

namespace {

std::map<QString, ProvaDiDati>& Bersagli()
{
    static std::map<QString, ProvaDiDati> Tutti;
    return Tutti;
}

QStringList FileDi(const QString& Percorso)
{
    if (!QFileInfo(Percorso).isDir())
        return {Percorso};
    QStringList Trovati;
    for (const QString& Nome : QDir(Percorso).entryList(QDir::Files, QDir::Name))
        Trovati += Percorso + QLatin1Char('/') + Nome;
    return Trovati;
}

}  // namespace

RegistraBersaglio::RegistraBersaglio(const char* Nome, ProvaDiDati Procedura)
{
    Bersagli()[QString::fromLatin1(Nome)] = Procedura;
}

int main(int argc, char** argv)
{
    (void)CartellaDiLavoro();
    Applicazione Programma(argc, argv);
    aspetto::Prepara();
    const QStringList Argomenti = QCoreApplication::arguments();
    const auto Scelto = Argomenti.size() > 2 ? Bersagli().find(Argomenti[1]) : Bersagli().end();
    if (Scelto == Bersagli().end()) {
        for (const auto& [Nome, Procedura] : Bersagli())
            std::fprintf(stderr, "%s\n", qPrintable(Nome));
        return 2;
    }
    int Provati = 0;
    for (const QString& Percorso : Argomenti.mid(2)) {
        for (const QString& File : FileDi(Percorso)) {
            // The name comes first: of an input that ends the process it is all that is left.
            std::fprintf(stderr, "%s ", qPrintable(QFileInfo(File).fileName()));
            std::fflush(stderr);
            QElapsedTimer Tempo;
            Tempo.start();
            Scelto->second(Contenuto(File));
            std::fprintf(stderr, "%lld ms\n", static_cast<long long>(Tempo.elapsed()));
            ++Provati;
        }
    }
    // A target whose inputs are gone proves nothing.
    return Provati > 0 ? 0 : 1;
}
