// The first page of a document in small, with the logo as it is being placed.
#pragma once

#include "platform/pages/impaginazione.h"

#include <QByteArray>
#include <QImage>
#include <QWidget>

class AnteprimaPagina : public QWidget
{
    Q_OBJECT

public:
    explicit AnteprimaPagina(QWidget* Padre = nullptr);

    /// @param Png the logo; empty: none
    void Mostra(const QByteArray& Png, double AltezzaCm, Allineamento Dove);

    [[nodiscard]] const Impaginazione& Pagine() const { return Impaginata; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int Larghezza) const override;

protected:
    void paintEvent(QPaintEvent* Evento) override;

private:
    [[nodiscard]] QRect SulFoglio() const;

    Impaginazione Impaginata;
    QImage Fatta;  ///< the page as it was painted last
};
