#include "calculators/windows/graficoindici.h"

#include "core/sessione.h"
#include "platform/base/nomidate.h"
#include "platform/base/regionale.h"
#include "platform/kit/aspetto.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int Aria = 8;

/// "gen 2012"
QString Mese(const PuntoIndice& Punto)
{
    constexpr int Lettere = 3;
    const bool Noto = Punto.Mese >= 1 && Punto.Mese < int(NomiMesi.size());
    const QString Nome = Noto ? NomiMesi[size_t(Punto.Mese)].toString().left(Lettere).toLower() : QString();
    return Nome + u' ' + QString::number(Punto.Anno);
}

QString Valore(double Indice)
{
    return Format(Indice, u"#,##0.0");
}

QColor Tenue(const QPalette& Colori)
{
    constexpr double Parte = 0.65;
    return aspetto::Mischia(Colori.color(QPalette::Text), Colori.color(QPalette::Base), Parte);
}

}  // namespace

GraficoIndici::GraficoIndici(QWidget* Padre) : QWidget(Padre)
{
    setMouseTracking(true);
    setAccessibleName(u"Andamento dell'indice"_s);
}

void GraficoIndici::Imposta(const QList<PuntoIndice>& Punti)
{
    Punti_ = Punti;
    QString Racconto;
    if (!Punti.isEmpty()) {
        const auto [Basso, Alto] = std::ranges::minmax(Punti, {}, &PuntoIndice::Valore);
        Minimo = Basso.Valore;
        Massimo = Alto.Valore;
        Racconto = u"Da %1 (%2) a %3 (%4)"_s.arg(Valore(Punti.first().Valore), Mese(Punti.first()),
                                                 Valore(Punti.last().Valore), Mese(Punti.last()));
    }
    setAccessibleDescription(Racconto);
    update();
}

QSize GraficoIndici::sizeHint() const
{
    const int Riga = fontMetrics().height();
    return {Riga * 18, Riga * 11};
}

QSize GraficoIndici::minimumSizeHint() const
{
    const int Riga = fontMetrics().height();
    return {Riga * 14, Riga * 8};
}

/// Where the line is drawn: the values stand at its left, the title above it, the months below.
QRectF GraficoIndici::Campo() const
{
    const int Riga = fontMetrics().height();
    const int Sinistra = Aria + fontMetrics().horizontalAdvance(Valore(Massimo)) + Aria;
    return QRectF(rect()).adjusted(Sinistra, Aria + Riga + Aria, -2 * Aria, -(Riga + 2 * Aria));
}

QPointF GraficoIndici::Dove(qsizetype i) const
{
    const QRectF Area = Campo();
    const double Passi = double(std::max<qsizetype>(1, Punti_.size() - 1));
    const double Escursione = Massimo - Minimo;
    const double Quota = Escursione > 0 ? (Punti_[i].Valore - Minimo) / Escursione : 0.5;
    return {Area.left() + Area.width() * double(i) / Passi, Area.bottom() - Area.height() * Quota};
}

void GraficoIndici::DisegnaCornice(QPainter& Pennello) const
{
    const QRectF Area = Campo();
    const double Riga = fontMetrics().height();
    Pennello.setPen(aspetto::Filo());
    Pennello.drawLine(Area.topLeft(), Area.topRight());
    Pennello.drawLine(Area.bottomLeft(), Area.bottomRight());

    Pennello.setPen(Tenue(palette()));
    const auto Quota = [&](double Y, double Indice) {
        const QRectF Posto(0, Y - Riga / 2, Area.left() - Aria, Riga);
        Pennello.drawText(Posto, Qt::AlignRight | Qt::AlignVCenter, Valore(Indice));
    };
    Quota(Area.bottom(), Minimo);
    if (Massimo > Minimo)
        Quota(Area.top(), Massimo);
    const QRectF Sotto(Area.left(), Area.bottom() + Aria, Area.width(), Riga);
    Pennello.drawText(Sotto, Qt::AlignLeft, Mese(Punti_.first()));
    if (Punti_.size() > 1)
        Pennello.drawText(Sotto, Qt::AlignRight, Mese(Punti_.last()));
    const QRectF Sopra(Aria, Aria, width() - 2 * Aria, Riga);
    Pennello.setPen(palette().color(QPalette::Text));
    Pennello.drawText(Sopra, Qt::AlignLeft, u"Indice F.O.I. (base %1)"_s.arg(Mese(Punti_.first())));
}

void GraficoIndici::DisegnaLinea(QPainter& Pennello) const
{
    constexpr double Spessore = 1.5;
    constexpr double Raggio = 2.5;
    constexpr double Velo = 0.12;
    QPainterPath Linea(Dove(0));
    for (qsizetype i = 1; i < Punti_.size(); ++i)
        Linea.lineTo(Dove(i));
    QPainterPath Sotto = Linea;
    Sotto.lineTo(Dove(Punti_.size() - 1).x(), Campo().bottom());
    Sotto.lineTo(Dove(0).x(), Campo().bottom());
    Pennello.fillPath(Sotto, aspetto::Mischia(aspetto::Accento(), palette().color(QPalette::Base), Velo));
    Pennello.setPen(QPen(aspetto::Accento(), Spessore, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    Pennello.drawPath(Linea);
    Pennello.setBrush(aspetto::Accento());
    Pennello.drawEllipse(Dove(0), Raggio, Raggio);
    Pennello.drawEllipse(Dove(Punti_.size() - 1), Raggio, Raggio);
}

void GraficoIndici::paintEvent(QPaintEvent*)
{
    QPainter Pennello(this);
    Pennello.setRenderHint(QPainter::Antialiasing);
    Pennello.fillRect(rect(), palette().color(QPalette::Base));
    if (Punti_.isEmpty()) {
        Pennello.setPen(Tenue(palette()));
        Pennello.drawText(rect().adjusted(Aria, Aria, -Aria, -Aria), Qt::AlignCenter | Qt::TextWordWrap,
                          u"Dopo il calcolo qui compare l'andamento dell'indice fra le due date."_s);
    } else {
        DisegnaLinea(Pennello);
        DisegnaCornice(Pennello);
    }
    Pennello.setRenderHint(QPainter::Antialiasing, false);
    Pennello.setBrush(Qt::NoBrush);
    Pennello.setPen(aspetto::Filo());
    Pennello.drawRect(rect().adjusted(0, 0, -1, -1));
}

void GraficoIndici::mouseMoveEvent(QMouseEvent* Evento)
{
    QWidget::mouseMoveEvent(Evento);
    if (Punti_.isEmpty())
        return;
    const QRectF Area = Campo();
    const double Parte =
        std::clamp((Evento->position().x() - Area.left()) / std::max(1.0, Area.width()), 0.0, 1.0);
    const PuntoIndice& Vicino = Punti_[qsizetype(std::lround(Parte * double(Punti_.size() - 1)))];
    QToolTip::showText(Evento->globalPosition().toPoint(), Mese(Vicino) + u": "_s + Valore(Vicino.Valore),
                       this);
}

#include "moc_graficoindici.cpp"
