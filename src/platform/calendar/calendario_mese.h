// The days of the month that a calendar shows: painted, clicked, walked over.
#pragma once

#include "platform/calendar/calendario.h"

class QPainter;

/// The grid of a CalendarioMensile. The selected day lies in the month on view.
class MeseCalendario : public QWidget
{
public:
    explicit MeseCalendario(CalendarioMensile* Di);

    std::function<void()> Spostato;                   ///< the selected day has changed
    std::function<void(const QDate& Giorno)> Scelto;  ///< the user has picked one

    [[nodiscard]] QDate Data() const { return Corrente; }
    /// Selects a day, moved into the calendar's range.
    void ImpostaData(const QDate& Data);
    void SpostaMesi(int Mesi);
    [[nodiscard]] QRect Riquadro(const QDate& Giorno) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent* Evento) override;
    void paintEvent(QPaintEvent* Evento) override;
    void keyPressEvent(QKeyEvent* Evento) override;
    void mousePressEvent(QMouseEvent* Evento) override;
    void mouseReleaseEvent(QMouseEvent* Evento) override;
    void focusInEvent(QFocusEvent* Evento) override;
    void focusOutEvent(QFocusEvent* Evento) override;

private:
    void DipingiGiorno(QPainter& Pennello, const QDate& Giorno) const;
    [[nodiscard]] QRect Casella(int Riga, int Colonna) const;
    [[nodiscard]] QDate GiornoIn(const QPoint& Punto) const;  ///< invalid outside the month
    void Sposta(const QDate& Data);
    void Nomina();

    CalendarioMensile* Padrone;
    QDate Corrente;
    QDate Premuto;
};

/// Paints a day, or a sample of it in the legend.
void DipingiCasella(QPainter& Pennello, const QRect& Riquadro, const QString& Numero,
                    const AspettoGiorno& Aspetto);
