#include "platform/pages/senzaschermo.h"

#include <QGuiApplication>

namespace {

QtMessageHandler Precedente = nullptr;

/// The platform looks for the folder of a login session. That a service or a script has none is no news.
void TaceSullaSessione(QtMsgType Tipo, const QMessageLogContext& Dove, const QString& Testo)
{
    if (!Testo.startsWith(QLatin1StringView("QStandardPaths:")) && Precedente)
        Precedente(Tipo, Dove, Testo);
}

}  // namespace

std::unique_ptr<QCoreApplication> ApplicazioneSenzaSchermo(int& argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Precedente = qInstallMessageHandler(TaceSullaSessione);
    auto Nuova = std::make_unique<QGuiApplication>(argc, argv);
    qInstallMessageHandler(Precedente);
    return Nuova;
}
