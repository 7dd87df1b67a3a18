// The engine behind the program's icons.
#pragma once

#include <QByteArray>
#include <QIconEngine>
#include <QString>

/// Draws an SVG line drawing in the colours of the palette in use at the moment of painting: strokes of
/// "currentColor" in the text's colour, "#1F4E79" in the accent.
class MotoreIcona : public QIconEngine
{
public:
    explicit MotoreIcona(const QString& Nome);

    void paint(QPainter* Pennello, const QRect& Riquadro, QIcon::Mode Modo, QIcon::State Stato) override;
    QPixmap pixmap(const QSize& Misura, QIcon::Mode Modo, QIcon::State Stato) override;
    QIconEngine* clone() const override;
    bool isNull() override { return Disegno.isEmpty(); }

private:
    struct Colori
    {
        QByteArray Tratto;
        QByteArray Segno;
    };
    [[nodiscard]] static Colori ColoriDi(QIcon::Mode Modo);

    QString NomeDisegno;
    QByteArray Disegno;
};
