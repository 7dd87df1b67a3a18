// The desktop in small: its background, a label and a marked one.
#pragma once

#include "core/modAspetto.h"

#include <QPixmap>
#include <QWidget>

class QPainter;

class AnteprimaSfondo : public QWidget
{
    Q_OBJECT

public:
    explicit AnteprimaSfondo(QWidget* Padre = nullptr);

    /// Shows these looks.
    /// @param File picture, full path; empty, or one that is no picture, leaves the plain colour
    /// @param Colori 0xBBGGRR, in the order of ColoreDesktop
    void Mostra(const QString& File, const std::array<int, ColoriDesktop>& Colori);
    /// False while no picture is shown.
    [[nodiscard]] bool HaImmagine() const { return !Immagine.isNull(); }

protected:
    void paintEvent(QPaintEvent* Evento) override;

private:
    void DisegnaEtichetta(QPainter& Pennello, int Centro, const QString& Testo, bool Marcata) const;

    QString FileLetto;
    QPixmap Immagine;
    std::array<int, ColoriDesktop> Tinte{};
};
