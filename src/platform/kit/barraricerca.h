// The slim bar to search a document.
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QToolButton;

/// A field, the two directions, what was found. It searches nothing itself.
class BarraRicerca : public QWidget
{
    Q_OBJECT

public:
    explicit BarraRicerca(QWidget* Padre);

    [[nodiscard]] QString Testo() const;
    /// Opens with the field ready to be typed over; a text that is not empty is put into it.
    void Apri(const QString& Proposto);
    void Dimentica();                     ///< closed, with an empty field
    [[nodiscard]] bool NelCampo() const;  ///< true while the field has the focus
    /// "2 di 7", "Nessun risultato", or nothing while nothing is sought.
    void MostraConto(qsizetype Quale, qsizetype Quante);

Q_SIGNALS:
    void Cercato(const QString& Testo);
    void Successivo();
    void Precedente();
    void Chiusa();

protected:
    void paintEvent(QPaintEvent* Evento) override;

private:
    QToolButton* Tasto(const QString& Icona, const QString& Scritta, const QString& Suggerimento);

    QLineEdit* Campo;
    QLabel* Conto;
    QToolButton* Indietro;
    QToolButton* Avanti;
};
