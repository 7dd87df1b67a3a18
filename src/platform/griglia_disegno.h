// How the cells of a grid are drawn.
#pragma once

#include <QStyledItemDelegate>

class VistaGriglia;

/// Draws a cell: barely tinted alternate rows, selected rows in the warm colour, a light rule below.
class DisegnoCelle : public QStyledItemDelegate
{
public:
    explicit DisegnoCelle(VistaGriglia* DiVista);

    void paint(QPainter* Pennello, const QStyleOptionViewItem& Opzioni, const QModelIndex& Cella) const override;
    bool helpEvent(QHelpEvent* Evento, QAbstractItemView* Da, const QStyleOptionViewItem& Opzioni,
                   const QModelIndex& Cella) override;

private:
    [[nodiscard]] QColor Fondo(const QModelIndex& Cella) const;

    VistaGriglia* Vista;
};
