#include "platform/kit/rigachesvanisce.h"

#include "platform/kit/annuncio.h"
#include "platform/kit/collega.h"

#include <QGraphicsOpacityEffect>
#include <QPropertyAnimation>
#include <QStyle>

RigaCheSvanisce::RigaCheSvanisce(QWidget* Padre) : QLabel(Padre), Svanire(nullptr)
{
    auto* Velo = new QGraphicsOpacityEffect(this);
    Velo->setOpacity(1);
    Velo->setEnabled(false);  // a text at rest is painted as any other
    setGraphicsEffect(Velo);
    setTextFormat(Qt::PlainText);
    hide();
    Svanire = new QPropertyAnimation(Velo, "opacity", this);
    Collega(Svanire, &QVariantAnimation::valueChanged, this, [Velo](const QVariant& Ora) {
        constexpr double Intera = 0.999;
        Velo->setEnabled(Ora.toDouble() < Intera);
    });
    Collega(Svanire, &QAbstractAnimation::finished, this, [this] { Togli(); });
}

void RigaCheSvanisce::Togli()
{
    Svanire->stop();
    hide();
    clear();
}

void RigaCheSvanisce::Mostra(const QString& Testo)
{
    Svanire->stop();
    graphicsEffect()->setEnabled(false);
    setText(Testo);
    show();
    const bool Ferme = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) == 0;
    Svanire->setDuration(FermaMs + SvanisceMs);
    Svanire->setKeyValues(
        {{0.0, 1.0}, {double(FermaMs) / (FermaMs + SvanisceMs), 1.0}, {1.0, Ferme ? 1.0 : 0.0}});
    Svanire->start();
    AnnunciaTesto(this, Testo);
}

#include "moc_rigachesvanisce.cpp"
