// Runs the test class named first on the command line; QtTest reads the rest.
#include "supporto/prova.h"

#include "platform/accesso/accesso.h"

#include <QCoreApplication>
#include <QDir>
#include <QSettings>

#ifdef PROVE_CON_FINESTRE
#include "platform/kit/aspetto.h"
#include "platform/kit/servizi_qt.h"
#include "supporto/finestre.h"
#include "supporto/registratore.h"
#elif defined(PROVE_CON_PAGINE)
#include <QGuiApplication>
#endif

#include <cstdio>
#include <memory>

int main(int argc, char** argv)
{
    // Nothing of the machine's user is read or written: home and settings are this process's own.
    const QByteArray Casa = QFile::encodeName(CartellaDiProva());
    qputenv("HOME", Casa);
    qputenv("XDG_CONFIG_HOME", Casa + "config");
    qputenv("XDG_DATA_HOME", Casa + "data");
    qputenv("XDG_CACHE_HOME", Casa + "cache");
    qputenv("XDG_DOCUMENTS_DIR", Casa + "Documenti");
    qputenv("XDG_RUNTIME_DIR", Casa + "sessione");
    accesso::Programma = ProgrammaDiProva() + QStringLiteral("calcanova-accesso");

#ifdef PROVE_CON_FINESTRE
    Applicazione Programma(argc, argv);
    aspetto::Prepara();
    Registratore::AlMostrare() = BoxDavanti;
#elif defined(PROVE_CON_PAGINE)
    QGuiApplication Programma(argc, argv);
#else
    QCoreApplication Programma(argc, argv);
#endif
    const QStringList Argomenti = QCoreApplication::arguments();
    const auto Trovata = Argomenti.size() > 1 ? ClassiDiProva().find(Argomenti[1]) : ClassiDiProva().end();
    if (Trovata == ClassiDiProva().end()) {
        for (const auto& [Nome, Crea] : ClassiDiProva())
            std::fprintf(stderr, "%s\n", qPrintable(Nome));
        return 2;
    }
    // What is written by a path without a folder would stay in the checkout of whoever runs the tests.
    const QString Lavoro = CartellaDiProva() + QStringLiteral("lavoro");
    QDir().mkpath(Lavoro);
    QDir::setCurrent(Lavoro);
    const std::unique_ptr<QObject> Prova(Trovata->second());
    QStringList Resto = Argomenti;
    Resto.removeAt(1);
    const int Esito = QTest::qExec(Prova.get(), Resto);
    const QStringList Lasciati =
        QDir(Lavoro).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    if (Lasciati.isEmpty())
        return Esito;
    std::fprintf(stderr, "FAIL!  : nella cartella di lavoro resta %s\n",
                 qPrintable(Lasciati.join(QStringLiteral(", "))));
    return Esito == 0 ? 1 : Esito;
}
