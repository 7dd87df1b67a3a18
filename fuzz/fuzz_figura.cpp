// Pictures that a user has put among the icons or chosen for the background: any bytes give a picture of the
// size that was asked for, or none, within moments.
#include "finestre.h"
#include "fonte.h"

#include "platform/kit/aspetto.h"

#include <QPixmap>

#include <ctime>

using namespace Qt::StringLiterals;

namespace {

constexpr std::clock_t MassimiSecondi = 8;

void Prova(const QByteArray& Dati)
{
    PreparaFinestre();
    const std::clock_t Inizio = std::clock();  // of this process alone: the machine may have other work
    const QSize Misura(64, 64);
    for (const QString& Nome : {u"icona.gif"_s, u"sfondo.jpg"_s}) {
        const QPixmap Letta = aspetto::LeggiImmagine(Posa(Nome, Dati), Misura);
        Pretendi(Letta.isNull() || Letta.size() == Misura);
    }
    Pretendi(std::clock() - Inizio < MassimiSecondi * CLOCKS_PER_SEC);
}

}  // namespace

BERSAGLIO(fuzz_figura, Prova);
