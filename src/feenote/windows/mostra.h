// Writing controls from the record: signals held back, nothing touched that shows the right thing already.
#pragma once

#include "feenote/parcella.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>

namespace mostra {

/// The cursor and the edited mark of a box that already shows the text stay as they are.
inline void Testo(QLineEdit* Box, const Casella& Dato)
{
    if (Box->text() != Dato.Testo) {
        const QSignalBlocker Zitto(Box);
        Box->setText(Dato.Testo);
        Box->setCursorPosition(0);  // of a long text one reads the beginning
    }
    Box->setEnabled(Dato.Abilitata);
}

/// The same of a box of several lines.
inline void Testo(QPlainTextEdit* Box, const QString& Dato)
{
    if (Box->toPlainText() == Dato)
        return;
    const QSignalBlocker Zitto(Box);
    Box->setPlainText(Dato);
}

/// As high as so many lines of text.
inline void AltezzaRighe(QPlainTextEdit* Box, int Righe)
{
    const double Testo = Box->fontMetrics().lineSpacing() * Righe + 2 * Box->document()->documentMargin();
    Box->setFixedHeight(int(Testo) + 2 * Box->frameWidth());
}

/// As wide as the largest amount that a cell takes.
inline void LarghezzaImporto(QLineEdit* Box)
{
    constexpr int BordoCasella = 16;
    Box->setFixedWidth(Box->fontMetrics().horizontalAdvance(QStringLiteral("999.999.999.999,99")) +
                       BordoCasella);
}

/// Wide enough for a date.
inline void LarghezzaData(QLineEdit* Box)
{
    constexpr int BordoCasella = 16;
    Box->setMinimumWidth(Box->fontMetrics().horizontalAdvance(QStringLiteral("99/99/9999")) + BordoCasella);
}

inline void Segno(QAbstractButton* Box, const Spunta& Dato)
{
    const QSignalBlocker Zitto(Box);
    Box->setChecked(Dato.Attiva);
    Box->setEnabled(Dato.Abilitata);
}

/// Tab stops at the chosen option; the arrows go through the others.
inline void SceltaTra(const QButtonGroup* Gruppo, int Scelta)
{
    for (QAbstractButton* Opzione : Gruppo->buttons()) {
        const QSignalBlocker Zitto(Opzione);
        const bool Sua = Gruppo->id(Opzione) == Scelta;
        Opzione->setChecked(Sua);
        Opzione->setFocusPolicy(Sua ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

/// Fills a list only when its entries changed; an empty selection is index -1.
inline void Elenco(QComboBox* Lista, const QStringList& Voci, int Indice, bool Abilitata)
{
    const QSignalBlocker Zitto(Lista);
    bool Uguali = Lista->count() == Voci.size();
    for (int i = 0; Uguali && i < Voci.size(); ++i)
        Uguali = Lista->itemText(i) == Voci[i];
    if (!Uguali) {
        Lista->clear();
        Lista->addItems(Voci);
    }
    Lista->setCurrentIndex(Indice);
    Lista->setEnabled(Abilitata);
}

}  // namespace mostra
