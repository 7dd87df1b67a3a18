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

/// A colour laid thinly over the page.
QString Tinta(const QColor& Colore, double Parte)
{
    return aspetto::Mischia(Colore, QGuiApplication::palette().color(QPalette::Base), Parte).name();
}

}  // namespace

// Sizes are words: they follow the zoom, which points and pixels do not.
QString FoglioDiStile()
{
    const QString Accento = aspetto::Accento().name();
    const QString Piede = Tinta(QGuiApplication::palette().color(QPalette::Text), TintaPiede);
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
               Accento, Tinta(aspetto::Accento(), TintaTestata), Tinta(aspetto::Accento(), TintaNota),
               Tinta(aspetto::Sbagliato(), TintaAttenzione), Piede, aspetto::Filo().name());
}
