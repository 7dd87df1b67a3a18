#include "platform/system/diagnosi.h"

Q_LOGGING_CATEGORY(Diario, "calcanova")

namespace {

QtMessageHandler Precedente = nullptr;

void SoloIlDiario(QtMsgType Tipo, const QMessageLogContext& Dove, const QString& Testo)
{
    if (Tipo == QtFatalMsg || QByteArrayView(Dove.category) == QByteArrayView(Diario().categoryName()))
        Precedente(Tipo, Dove, Testo);
}

}  // namespace

void TaciAiProgrammatori()
{
    const bool Cercate =
        qEnvironmentVariableIsSet("QT_LOGGING_RULES") || qEnvironmentVariableIsSet("QT_FATAL_WARNINGS");
    if (!Cercate && !Precedente)
        Precedente = qInstallMessageHandler(SoloIlDiario);
}
