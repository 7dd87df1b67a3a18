// The tax chain of the document in view, at the foot of the note's window.
#pragma once

#include "feenote/modTotali.h"

#include <QAbstractButton>

#include <functional>

/// Taxable base, fund, VAT, total, withholding and net in one line, as many of them as there is room for, the
/// net always. A click asks for the whole chain.
///
/// The chain is reckoned when it is painted: a change costs nothing before the eye can see it.
class PiedeCatena : public QAbstractButton
{
    Q_OBJECT

public:
    explicit PiedeCatena(QWidget* Padre = nullptr);

    /// Where the chain comes from.
    void Segui(std::function<Catena()> Fonte);
    /// The note has changed.
    void Cambiata();
    /// The chain as the note is now.
    [[nodiscard]] const Catena& Conti();
    /// What the line shows at a width, its parts divided by two blanks.
    [[nodiscard]] QString Scritta(int Larghezza);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// Other figures than before.
    void Ricalcolata();

protected:
    void paintEvent(QPaintEvent* Evento) override;
    bool event(QEvent* Evento) override;

private:
    struct Voce;
    [[nodiscard]] QList<Voce> Voci(int Larghezza);
    [[nodiscard]] int Larga(const QList<Voce>& Tutte) const;
    [[nodiscard]] QFont Marcato() const;

    std::function<Catena()> Da;
    Catena Ultima;
    bool Vecchia = true;
};
