// guasti [--breve | --controllo] [--chiamata NAME] [SCENARIO...]: every call of the system that the program
// makes to write its files fails, one after the other. See docs/testing.md.
#include "guasti/banco.h"
#include "guasti/scenari.h"
#include "supporto/prova.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cstdio>
#include <dlfcn.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// The shim has to be there before the program is: it starts itself again with it.
void PretendiSpia(char** Argomenti)
{
    if (dlsym(RTLD_DEFAULT, NomeGuastoArma))
        return;
    if (qEnvironmentVariable("LD_PRELOAD") == QStringLiteral(LIBRERIA_GUASTO)) {
        std::fprintf(stderr, "%s non si carica\n", LIBRERIA_GUASTO);
        std::exit(2);
    }
    qputenv("LD_PRELOAD", LIBRERIA_GUASTO);
    qputenv("ASAN_OPTIONS", qgetenv("ASAN_OPTIONS") + ":verify_asan_link_order=0");
    ::execv("/proc/self/exe", Argomenti);
    std::perror("execv");
    std::exit(2);
}

/// Nothing of the machine's user is read or written.
void CasaPropria()
{
    const QByteArray Casa = QFile::encodeName(CartellaDiProva());
    qputenv("HOME", Casa);
    qputenv("XDG_CONFIG_HOME", Casa + "config");
    qputenv("XDG_DATA_HOME", Casa + "data");
    qputenv("XDG_DOCUMENTS_DIR", Casa + "Documenti");
    qputenv("XDG_RUNTIME_DIR", Casa + "sessione");
    QDir().mkpath(CartellaDiProva() + u"Documenti"_s);
}

}  // namespace

int main(int argc, char** argv)
{
    PretendiSpia(argv);
    CasaPropria();
    const QCoreApplication Programma(argc, argv);
    QStringList Argomenti = QCoreApplication::arguments().mid(1);
    if (Argomenti.contains(u"--controllo"_s)) {
        const QStringList Sbagliate = ControllaBanco();
        for (const QString& Una : Sbagliate)
            std::printf("%s\n", Una.toUtf8().constData());
        return Sbagliate.isEmpty() ? 0 : 1;
    }
    const bool Breve = Argomenti.removeAll(u"--breve"_s) > 0;
    QString Chiamata;
    if (const qsizetype Dove = Argomenti.indexOf(u"--chiamata"_s); Dove >= 0 && Dove + 1 < Argomenti.size()) {
        Chiamata = Argomenti.takeAt(Dove + 1);
        Argomenti.removeAt(Dove);
    }
    const QList<Scenario> Tutti = ScenariNote() + ScenariDocumenti() + ScenariImpostazioni() +
                                  ScenariArchivi() + ScenariAggiornamenti() + ScenariImporta() +
                                  ScenariNellaNota() + ScenariUscite();
    for (const QString& Nome : std::as_const(Argomenti)) {
        const bool Noto = std::ranges::any_of(Tutti, [&](const Scenario& Uno) { return Uno.Nome == Nome; });
        if (!Noto) {
            std::fprintf(stderr, "Nessuno scenario si chiama %s\n", qPrintable(Nome));
            return 2;
        }
    }
    return EseguiScenari(Tutti, Breve, Argomenti, Chiamata) == 0 ? 0 : 1;
}
