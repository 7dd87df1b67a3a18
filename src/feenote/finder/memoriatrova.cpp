#include "feenote/finder/memoriatrova.h"

#include <QMutexLocker>

namespace {

/// Disks that tell the time of a change only to two seconds are the coarsest in use.
constexpr qint64 GranaMs = 2000;

/// More files than an office has; beyond it all begins anew.
constexpr qsizetype MassimoRicordi = 300'000;

}  // namespace

std::optional<MemoriaTrova::Ricordo> MemoriaTrova::Cerca(const QString& File, const ImprontaFile& Ora) const
{
    const QMutexLocker Mio(&Turno);
    const auto Trovato = Visti.constFind(File);
    if (Trovato == Visti.constEnd() || Trovato->Impronta != Ora)
        return std::nullopt;
    return *Trovato;
}

void MemoriaTrova::Ricorda(const QString& File, const Ricordo& Nuovo, qint64 AdessoMs)
{
    if (AdessoMs - Nuovo.Impronta.Modificata <= GranaMs)
        return;
    const QMutexLocker Mio(&Turno);
    if (Visti.size() >= MassimoRicordi)
        Visti.clear();
    Visti.insert(File, Nuovo);
}

int MemoriaTrova::Quanti() const
{
    const QMutexLocker Mio(&Turno);
    return int(Visti.size());
}

void MemoriaTrova::Dimentica()
{
    const QMutexLocker Mio(&Turno);
    Visti.clear();
}

const std::shared_ptr<MemoriaTrova>& MemoriaDelTrova()
{
    static const auto Una = std::make_shared<MemoriaTrova>();
    return Una;
}
