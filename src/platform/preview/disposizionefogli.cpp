#include "platform/preview/disposizionefogli.h"

#include "platform/document/misura.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double PuntiPollice = 96.0;
constexpr double Cento = 100.0;

}  // namespace

DisposizioneFogli::DisposizioneFogli(QSizeF FoglioMm, int Pagine, double Percento, QSize Finestra)
    : Quanti(std::max(Pagine, 1)), Fattore(PixelPerMm(Percento))
{
    Lati = {std::max(1, static_cast<int>(std::lround(FoglioMm.width() * Fattore))),
            std::max(1, static_cast<int>(std::lround(FoglioMm.height() * Fattore)))};
    Sinistra = std::max(Margine, (Finestra.width() - Lati.width()) / 2);
}

double DisposizioneFogli::PixelPerMm(double Percento)
{
    return PuntiPollice / MmPerPollice * Percento / Cento;
}

double DisposizioneFogli::PercentoAdatto(QSizeF FoglioMm, QSize Finestra)
{
    const double Altezza = std::max(1, Finestra.height() - 2 * Margine) / FoglioMm.height();
    return std::min(PercentoLarghezza(FoglioMm, Finestra), Altezza / PixelPerMm(1.0));
}

double DisposizioneFogli::PercentoLarghezza(QSizeF FoglioMm, QSize Finestra)
{
    return std::max(1, Finestra.width() - 2 * Margine) / FoglioMm.width() / PixelPerMm(1.0);
}

QSize DisposizioneFogli::Misura() const
{
    return {Lati.width() + 2 * Margine, 2 * Margine + Quanti * Lati.height() + (Quanti - 1) * Luce};
}

QRect DisposizioneFogli::Foglio(int Pagina) const
{
    return {QPoint(Sinistra, Margine + (Pagina - 1) * (Lati.height() + Luce)), Lati};
}

int DisposizioneFogli::PaginaA(int Y) const
{
    // Above each sheet stands the gap that belongs to it.
    const double Passo = Lati.height() + Luce;
    return std::clamp(1 + static_cast<int>(std::floor((Y - Margine + Luce) / Passo)), 1, Quanti);
}

int DisposizioneFogli::PiuVisibile(int Da, int A) const
{
    int Migliore = PaginaA(Da);
    int Massimo = -1;
    for (int Pagina = Migliore, Ultima = PaginaA(A); Pagina <= Ultima; ++Pagina) {
        const QRect Suo = Foglio(Pagina);
        const int Tratto = std::min(A, Suo.bottom() + 1) - std::max(Da, Suo.top());
        if (Tratto > Massimo) {
            Massimo = Tratto;
            Migliore = Pagina;
        }
    }
    return Migliore;
}

PuntoFoglio DisposizioneFogli::InMm(QPointF Punto) const
{
    const int Pagina = PaginaA(static_cast<int>(std::floor(Punto.y())));
    return {Pagina, (Punto - QPointF(Foglio(Pagina).topLeft())) / Fattore};
}

QPointF DisposizioneFogli::InPixel(const PuntoFoglio& Punto) const
{
    return QPointF(Foglio(Punto.Pagina).topLeft()) + Punto.Mm * Fattore;
}
