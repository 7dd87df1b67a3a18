#include "platform/kit/icona.h"

#include "platform/kit/aspetto.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

MotoreIcona::MotoreIcona(const QString& Nome) : NomeDisegno(Nome)
{
    QFile File(u":/icone/"_s + Nome + u".svg"_s);
    if (File.open(QIODevice::ReadOnly))
        Disegno = File.readAll();
}

MotoreIcona::Colori MotoreIcona::ColoriDi(QIcon::Mode Modo)
{
    const QPalette Vigenti = QGuiApplication::palette();
    const bool Scelta = Modo == QIcon::Selected;
    const QColor Tratto = Scelta ? Vigenti.color(QPalette::HighlightedText)
                                 : Vigenti.color(QPalette::Active, QPalette::ButtonText);
    return {Tratto.name().toLatin1(), (Scelta ? Tratto : aspetto::Accento()).name().toLatin1()};
}

void MotoreIcona::paint(QPainter* Pennello, const QRect& Riquadro, QIcon::Mode Modo, QIcon::State)
{
    const bool Spenta = Modo == QIcon::Disabled;
    const Colori Usati = ColoriDi(Modo);
    QByteArray Colorato = Disegno;
    Colorato.replace("currentColor", Usati.Tratto);
    Colorato.replace("#1F4E79", Usati.Segno);
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
    // A bar asks for the same one at each painting, and reading the drawing takes longer than painting it.
    // The colours stand in its name, so that another palette has others.
    const Colori Usati = ColoriDi(Modo);
    const QString Chiave = u"icona %1 %2x%3 %4 %5%6"_s.arg(NomeDisegno)
                               .arg(Misura.width())
                               .arg(Misura.height())
                               .arg(QLatin1StringView(Usati.Tratto), QLatin1StringView(Usati.Segno),
                                    Modo == QIcon::Disabled ? u" spenta"_s : QString());
    QPixmap Immagine;
    if (QPixmapCache::find(Chiave, &Immagine))
        return Immagine;
    Immagine = QPixmap(Misura);
    Immagine.fill(Qt::transparent);
    if (isNull())
        return Immagine;
    QPainter Pennello(&Immagine);
    Pennello.setRenderHint(QPainter::Antialiasing);
    paint(&Pennello, QRect(QPoint(), Misura), Modo, Stato);
    Pennello.end();
    QPixmapCache::insert(Chiave, Immagine);
    return Immagine;
}

QIconEngine* MotoreIcona::clone() const
{
    return new MotoreIcona(*this);
}
