// Hands on the column at the left of a grid, by which rows are selected and dragged.
#pragma once

#include "tavolo.h"

#include <QHeaderView>
#include <QMouseEvent>

inline QWidget* Selettore(const Griglia* Righe)
{
    return Righe->Vista()->verticalHeader()->viewport();
}

inline QPoint SulSelettore(const Griglia* Righe, int Riga)
{
    return {8, CentroCella(Righe, Riga, 1).y()};
}

inline void ClicSelettore(const Griglia* Righe, int Riga, Qt::KeyboardModifiers Con = Qt::NoModifier)
{
    QTest::mouseClick(Selettore(Righe), Qt::LeftButton, Con, SulSelettore(Righe, Riga));
}

/// QTest's own moves carry no button.
inline void Muovi(const Griglia* Righe, const QPoint& Dove)
{
    QMouseEvent Evento(QEvent::MouseMove, Dove, Selettore(Righe)->mapToGlobal(Dove), Qt::NoButton,
                       Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(Selettore(Righe), &Evento);
}

inline void Trascina(const Griglia* Righe, int Da, const QPoint& A,
                     Qt::KeyboardModifiers Con = Qt::NoModifier)
{
    QTest::mousePress(Selettore(Righe), Qt::LeftButton, Con, SulSelettore(Righe, Da));
    Muovi(Righe, A);
    QTest::mouseRelease(Selettore(Righe), Qt::LeftButton, Qt::NoModifier, A);
    Respiro();
}
