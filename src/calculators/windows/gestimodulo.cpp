#include "calculators/windows/gestimodulo.h"

#include "core/aperture.h"

#include <QApplication>

void PreparaCifra(QWidget* Cifra)
{
    constexpr double Ingrandimento = 1.75;
    constexpr int Aria = 4;
    QFont Grande = Cifra->font();
    Grande.setPointSizeF(Grande.pointSizeF() * Ingrandimento);
    Grande.setBold(true);
    Cifra->setFont(Grande);
    Cifra->setMinimumHeight(QFontMetrics(Grande).height() + Aria);
}

void SfondoPannello(QWidget* Pannello)
{
    Pannello->setBackgroundRole(QPalette::Base);
    Pannello->setAutoFillBackground(true);
}

void MostraCifra(QLabel* Cifra, const QLabel* Didascalia, const QString& Testo)
{
    Cifra->setText(Testo);
    Cifra->setAccessibleName((Didascalia->text() + u' ' + Testo).simplified());
}

void LasciaSelezione()
{
    if (auto* Casella = qobject_cast<QLineEdit*>(QApplication::focusWidget()))
        Casella->deselect();
}

void ApriAggiornamento()
{
    if (Aperture.Aggiorna)
        Aperture.Aggiorna();
}
