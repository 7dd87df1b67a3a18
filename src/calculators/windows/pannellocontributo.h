// The page of the filing fee as a panel: its sections in two columns, the value fields in their rows.
#pragma once

#include "calculators/modContributo.h"
#include "calculators/paginacontributo.h"

#include <QWidget>

#include <array>

class QGridLayout;
class QLabel;
class QLineEdit;
class QToolButton;

/// The window in the wall through which a part of the panel is seen.
class Finestrella : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

Q_SIGNALS:
    void Misurata();
    void Rotella(int Gradi);  ///< eighths of a degree, positive away from the user

protected:
    void resizeEvent(QResizeEvent* Evento) override;
    void wheelEvent(QWheelEvent* Evento) override;
};

class PannelloContributo : public QWidget
{
    Q_OBJECT

public:
    explicit PannelloContributo(QWidget* Padre);

    [[nodiscard]] QLineEdit* txtValore(int Indice) const { return Valori[size_t(Indice)]; }
    [[nodiscard]] QLabel* lblContr(int Indice) const { return Contributi[size_t(Indice)]; }
    [[nodiscard]] QToolButton* cmdPorta(int Indice) const { return Porte[size_t(Indice)]; }
    [[nodiscard]] QToolButton* cmdCopia(int Indice) const { return Copie[size_t(Indice)]; }
    /// Takes this width and the height that its text needs there.
    void Allarga(int Larghezza);

private:
    void Sezione(QGridLayout* Griglia, const SezionePagina& Una);
    void Voce(QGridLayout* Griglia, const VocePagina& Una, const QString& Nome);
    [[nodiscard]] QWidget* RigaValore(int Indice, const QString& Nome);

    std::array<QLineEdit*, CampiContributo> Valori{};
    std::array<QLabel*, CampiContributo> Contributi{};
    std::array<QToolButton*, CampiContributo> Copie{};
    std::array<QToolButton*, CampiContributo> Porte{};
};
