#include "update/viewer/stilepagina.h"

#include "platform/kit/aspetto.h"

#include <QGuiApplication>
#include <QPalette>

using namespace Qt::StringLiterals;

namespace {

constexpr double TintaTestata = 0.14;
constexpr double TintaNota = 0.07;
constexpr double TintaAttenzione = 0.12;
constexpr double TintaPiede = 0.65;

/// The colours of a page: those of the palette, or of ink on paper.
struct Colori
{
    QColor Fondo;
    QColor Testo;
    QColor Accento;
    QColor Sbagliato;
    QColor Filo;

    /// One of them laid thinly over the page.
    [[nodiscard]] QString Tinta(const QColor& Colore, double Parte) const
    {
        return aspetto::Mischia(Colore, Fondo, Parte).name();
    }
};

// Sizes are words: they follow the zoom, which points and pixels do not.
QString Foglio(const Colori& Di)
{
    const QString Accento = Di.Accento.name();
    const QString Piede = Di.Tinta(Di.Testo, TintaPiede);
    return u"h1 { font-size: x-large; font-weight: bold; color: %1; margin-top: 4px; margin-bottom: 8px; }"
           u"h2 { font-size: large; font-weight: bold; color: %1; margin-top: 16px; margin-bottom: 4px; }"
           u"h3 { font-size: medium; font-weight: bold; margin-top: 14px; margin-bottom: 2px; }"
           u"p { margin-top: 4px; margin-bottom: 8px; }"
           u"li { margin-bottom: 4px; }"
           u"a { color: %1; text-decoration: underline; }"
           u"table { border-collapse: collapse; border-style: solid; border-color: %6; margin-top: 8px;"
           u" margin-bottom: 8px; }"
           u"th { background-color: %2; font-weight: bold; text-align: left; }"
           u"td.cifre, th.cifre { text-align: right; }"
           u"td.nota { background-color: %3; }"
           u"td.attenzione { background-color: %4; }"
           u".piede { color: %5; font-size: small; }"_s.arg(
               Accento, Di.Tinta(Di.Accento, TintaTestata), Di.Tinta(Di.Accento, TintaNota),
               Di.Tinta(Di.Sbagliato, TintaAttenzione), Piede, Di.Filo.name());
}

}  // namespace

QString FoglioDiStile()
{
    const QPalette Palette = QGuiApplication::palette();
    return Foglio({Palette.color(QPalette::Base), Palette.color(QPalette::Text), aspetto::Accento(),
                   aspetto::Sbagliato(), aspetto::Filo()});
}

QString FoglioDiStileSuCarta()
{
    constexpr QRgb Inchiostro = 0xFF1F4E79;
    constexpr QRgb Rosso = 0xFF800000;
    constexpr QRgb Grigio = 0xFFC0C0C0;
    return Foglio({Qt::white, Qt::black, QColor(Inchiostro), QColor(Rosso), QColor(Grigio)});
}
