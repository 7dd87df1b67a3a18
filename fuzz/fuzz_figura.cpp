// Pictures that a user has put among the icons or chosen for the background: any bytes give a picture of the
// size that was asked for, or none, within moments. One that he has chosen for print gives a picture within
// its bounds or a sentence.
#include "finestre.h"
#include "fonte.h"

#include "platform/kit/aspetto.h"
#include "platform/kit/figurascelta.h"

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
    constexpr QSize Massima(400, 200);
    const FiguraScelta Scelta = LeggiFigura(Dati, Massima);
    Pretendi(Scelta.Immagine.isNull() != Scelta.Difetto.isEmpty());
    Pretendi(Scelta.Immagine.width() <= Massima.width() && Scelta.Immagine.height() <= Massima.height());
    Pretendi(std::clock() - Inizio < MassimiSecondi * CLOCKS_PER_SEC);
}

}  // namespace

BERSAGLIO(fuzz_figura, Prova);
