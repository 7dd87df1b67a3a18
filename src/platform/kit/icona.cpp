#include "platform/kit/icona.h"

#include "platform/kit/aspetto.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

MotoreIcona::MotoreIcona(const QString& Nome)
{
    QFile File(u":/icone/"_s + Nome + u".svg"_s);
    if (File.open(QIODevice::ReadOnly))
        Disegno = File.readAll();
}

void MotoreIcona::paint(QPainter* Pennello, const QRect& Riquadro, QIcon::Mode Modo, QIcon::State)
{
    const QPalette Colori = QGuiApplication::palette();
    const bool Spenta = Modo == QIcon::Disabled;
    const QColor Tratto = Modo == QIcon::Selected ? Colori.color(QPalette::HighlightedText)
                                                  : Colori.color(QPalette::Active, QPalette::ButtonText);
    const QColor Segno = Modo == QIcon::Selected ? Tratto : aspetto::Accento();
    QByteArray Colorato = Disegno;
    Colorato.replace("currentColor", Tratto.name().toLatin1());
    Colorato.replace("#1F4E79", Segno.name().toLatin1());
    QSvgRenderer Disegnatore(Colorato);
    constexpr double OpacitaSpenta = 0.35;
    Pennello->save();
    if (Spenta)
        Pennello->setOpacity(Pennello->opacity() * OpacitaSpenta);
    Disegnatore.render(Pennello, Riquadro);
    Pennello->restore();
}

QPixmap MotoreIcona::pixmap(const QSize& Misura, QIcon::Mode Modo, QIcon::State Stato)
{
    QPixmap Immagine(Misura);
    Immagine.fill(Qt::transparent);
    if (isNull())
        return Immagine;
    QPainter Pennello(&Immagine);
    Pennello.setRenderHint(QPainter::Antialiasing);
    paint(&Pennello, QRect(QPoint(), Misura), Modo, Stato);
    return Immagine;
}

QIconEngine* MotoreIcona::clone() const
{
    return new MotoreIcona(*this);
}
