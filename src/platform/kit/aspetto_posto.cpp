#include "platform/kit/aspetto.h"
#include "platform/system/impostazioni.h"

#include <QCursor>
#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <QStringList>
#include <QWidget>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString Applicativo = u"KR5"_s;
const QString Sezione = u"Parametri"_s;
const QString Massimizzata = u"max"_s;

/// Where a window was: "x,y,width,height", and ",max" when it filled the screen.
struct Posto
{
    QRect Riquadro;
    bool Massima = false;
};

std::optional<Posto> LeggiPosto(const QString& Nome)
{
    const QStringList Parti = GetSetting(Applicativo, Sezione, u"Posto_"_s + Nome).split(u',');
    constexpr qsizetype Numeri = 4;
    if (Parti.size() < Numeri)
        return std::nullopt;
    int Valori[Numeri] = {};
    for (qsizetype i = 0; i < Numeri; ++i) {
        bool Buono = false;
        Valori[i] = Parti[i].toInt(&Buono);
        if (!Buono)
            return std::nullopt;
    }
    if (Valori[2] <= 0 || Valori[3] <= 0)
        return std::nullopt;
    return Posto{QRect(Valori[0], Valori[1], Valori[2], Valori[3]), Parti.value(Numeri) == Massimizzata};
}

QRect SchermoDelPuntatore()
{
    const QScreen* Schermo = QGuiApplication::screenAt(QCursor::pos());
    if (!Schermo)
        Schermo = QGuiApplication::primaryScreen();
    return Schermo->availableGeometry();
}

/// The rectangle moved, and if need be shrunk, so that it lies inside.
QRect Dentro(QRect Riquadro, const QRect& Schermo)
{
    Riquadro.setSize(Riquadro.size().boundedTo(Schermo.size()));
    Riquadro.moveLeft(std::clamp(Riquadro.left(), Schermo.left(), Schermo.right() - Riquadro.width() + 1));
    Riquadro.moveTop(std::clamp(Riquadro.top(), Schermo.top(), Schermo.bottom() - Riquadro.height() + 1));
    return Riquadro;
}

}  // namespace

namespace aspetto {

void RimettiAlPosto(QWidget* Finestra, const QString& Nome)
{
    const QRect Schermo = SchermoDelPuntatore();
    const auto Ultimo = LeggiPosto(Nome);
    QRect Riquadro = Ultimo ? Ultimo->Riquadro : QRect(QPoint(), Finestra->size());
    if (!Ultimo || !Schermo.contains(Riquadro.center()))
        Riquadro.moveCenter(Schermo.center());
    Finestra->setGeometry(Dentro(Riquadro, Schermo));
    if (Ultimo && Ultimo->Massima)
        Finestra->setWindowState(Finestra->windowState() | Qt::WindowMaximized);
}

void RicordaPosto(const QWidget* Finestra, const QString& Nome)
{
    const QRect Normale = Finestra->normalGeometry();
    const QRect Riquadro = Normale.isValid() ? Normale : Finestra->geometry();
    QStringList Parti;
    for (const int Numero : {Riquadro.x(), Riquadro.y(), Riquadro.width(), Riquadro.height()})
        Parti += QString::number(Numero);
    if (Finestra->isMaximized())
        Parti += Massimizzata;
    SaveSetting(Applicativo, Sezione, u"Posto_"_s + Nome, Parti.join(u','));
}

}  // namespace aspetto
