// How the cells of a grid are drawn.
#pragma once

#include <QProxyStyle>
#include <QStyledItemDelegate>

class VistaGriglia;

/// Room between the edge of a cell and its text, in pixels: cells, titles and footer alike.
constexpr int MargineCella = 5;

/// The titles' style: their text stands above that of the cells.
class StileTitoli : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;
    int pixelMetric(PixelMetric Misura, const QStyleOption* Opzioni, const QWidget* Oggetto) const override;
};

/// Draws a cell: barely tinted alternate rows, selected rows in the warm colour, a light rule below.
class DisegnoCelle : public QStyledItemDelegate
{
public:
    explicit DisegnoCelle(VistaGriglia* DiVista);

    void paint(QPainter* Pennello, const QStyleOptionViewItem& Opzioni,
               const QModelIndex& Cella) const override;
    bool helpEvent(QHelpEvent* Evento, QAbstractItemView* Da, const QStyleOptionViewItem& Opzioni,
                   const QModelIndex& Cella) override;

private:
    [[nodiscard]] QColor Fondo(const QModelIndex& Cella) const;

    VistaGriglia* Vista;
};
