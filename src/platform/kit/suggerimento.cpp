#include "platform/kit/suggerimento.h"

#include "platform/kit/aspetto.h"

#include <QLineEdit>
#include <QPalette>

void SuggerisciLeggibile(QLineEdit* Box)
{
    constexpr double Grigio = 0.6;
    QPalette Colori = Box->palette();
    Colori.setColor(QPalette::PlaceholderText,
                    aspetto::Mischia(Colori.color(QPalette::Text), Colori.color(QPalette::Base), Grigio));
    Box->setPalette(Colori);
}
