#include "calculators/windows/sceltanorme.h"

#include "calculators/modTermini.h"
#include "core/impostazioni.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/kit/collega.h"

#include <QComboBox>
#include <QSignalBlocker>

SceltaNorme::SceltaNorme(QComboBox* Lista, std::function<void()> AlCambio)
    : Elenco(Lista), Cambiata(std::move(AlCambio))
{
    for (const QStringView Voce : VociNorme)
        Elenco->addItem(Voce.toString());
    Elenco->setCurrentIndex(int(Quale));
    Collega(Elenco, &QComboBox::currentIndexChanged, Elenco, [this] { Cambia(); });
}

void SceltaNorme::Comincia()
{
    Scegli(NormeDelleImpostazioni());
}

void SceltaNorme::Scegli(InsiemeNorme Insieme)
{
    Elenco->setCurrentIndex(int(Insieme));
}

std::shared_ptr<const Norme> SceltaNorme::Lette()
{
    if (!Vigenti)
        Protetta([this] { Vigenti = NormeVigenti(); });
    return Vigenti;
}

void SceltaNorme::Cambia()
{
    // Norms that cannot be read leave the program's own.
    if (Elenco->currentIndex() == int(InsiemeNorme::Vigenti) && !Lette()) {
        const QSignalBlocker Zitta(Elenco);
        Elenco->setCurrentIndex(int(InsiemeNorme::Programma));
    }
    const auto Nuova = InsiemeNorme(Elenco->currentIndex());
    if (Nuova == Quale)
        return;
    Quale = Nuova;
    Cambiata();
}

bool SceltaNorme::Festivo(const QDate& Giorno) const
{
    return InVigore() ? Vigenti->Festa(Giorno) != nullptr : IsFestivo(Giorno);
}

bool SceltaNorme::Sospeso(const QDate& Giorno) const
{
    return InVigore() ? Vigenti->GiornoSospeso(Giorno) : GiornoSospeso(Giorno);
}

InsiemeNorme NormeDelleImpostazioni()
{
    return sessione::NormeDiPartenza == NormeInVigore ? InsiemeNorme::Vigenti : InsiemeNorme::Programma;
}
