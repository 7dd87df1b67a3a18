// The whole tax chain of the document in view, in a small window beside the note's.
#pragma once

#include "feenote/modTotali.h"

#include <QDialog>

class QLabel;
class QTableWidget;

class PannelloCatena : public QDialog
{
    Q_OBJECT

public:
    explicit PannelloCatena(QWidget* Padre);

    /// Shows these figures; where the same are on view already nothing moves.
    void Mostra(const Catena& Conti);
    /// Comes up above a part of the note's window, or goes; the focus is on the rows.
    void Alterna(const QWidget* Sopra);
    /// The rows as a table of text: name, tabulator, amount.
    [[nodiscard]] QString Testo() const;

protected:
    void keyPressEvent(QKeyEvent* Evento) override;

private:
    void Copia() const;

    QLabel* Documento;
    QTableWidget* Righe;
    QLabel* Lettere;
};
