#include "platform/kit/suggerimento.h"

#include "platform/kit/aspetto.h"

#include <QPalette>
#include <QTextDocument>
#include <QWidget>

QString AllaLettera(const QString& Testo)
{
    return Qt::mightBeRichText(Testo) ? QStringLiteral("<p style='white-space:pre-wrap'>") +
                                            Testo.toHtmlEscaped() + QStringLiteral("</p>")
                                      : Testo;
}

void SuggerisciLeggibile(QWidget* Box)
{
    constexpr double Grigio = 0.6;
    QPalette Colori = Box->palette();
    Colori.setColor(QPalette::PlaceholderText,
                    aspetto::Mischia(Colori.color(QPalette::Text), Colori.color(QPalette::Base), Grigio));
    Box->setPalette(Colori);
}
