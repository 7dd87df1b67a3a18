#include "platform/kit/collega.h"

#include "platform/base/errore.h"
#include "platform/system/diagnosi.h"

#include <QDebug>

using namespace Qt::StringLiterals;

namespace {

std::function<void(const Errore&)>& UltimaRete()
{
    static std::function<void(const Errore&)> Installata;
    return Installata;
}

}  // namespace

std::function<void(const Errore&)> InstallaUltimaRete(std::function<void(const Errore&)> Nuova)
{
    return std::exchange(UltimaRete(), std::move(Nuova));
}

void RiportaEccezione() noexcept
{
    try {
        const Errore Guasto = ErroreCorrente();
        // Copied: while the report is open another net may be installed.
        if (const auto Rete = UltimaRete())
            Rete(Guasto);
        else
            qCCritical(Diario).noquote() << u"Errore:"_s << Guasto.Descrizione << Guasto.Numero;
    } catch (...) {
        // The report itself failed: there is nobody left to tell.
        qCCritical(Diario, "Errore nella segnalazione di un errore");
    }
}
