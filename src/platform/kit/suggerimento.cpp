#include "platform/kit/suggerimento.h"

#include "platform/kit/aspetto.h"

#include <QWidget>
#include <QPalette>

void SuggerisciLeggibile(QWidget* Box)
{
    constexpr double Grigio = 0.6;
    QPalette Colori = Box->palette();
    Colori.setColor(QPalette::PlaceholderText,
                    aspetto::Mischia(Colori.color(QPalette::Text), Colori.color(QPalette::Base), Grigio));
    Box->setPalette(Colori);
}
