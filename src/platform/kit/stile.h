// The program's own style: Fusion, with what it draws too small or too loud put right.
#pragma once

#include <QProxyStyle>

class StileProgramma : public QProxyStyle
{
    Q_OBJECT

public:
    StileProgramma();

    int styleHint(StyleHint Quale, const QStyleOption* Opzioni, const QWidget* Oggetto,
                  QStyleHintReturn* Ritorno) const override;
    QSize sizeFromContents(ContentsType Quale, const QStyleOption* Opzioni, const QSize& Dentro,
                           const QWidget* Oggetto) const override;
    void drawPrimitive(PrimitiveElement Quale, const QStyleOption* Opzioni, QPainter* Pennello,
                       const QWidget* Oggetto) const override;
    void drawControl(ControlElement Quale, const QStyleOption* Opzioni, QPainter* Pennello,
                     const QWidget* Oggetto) const override;
};
