// The one cell of a grid that is open for editing.
#pragma once

#include <QLineEdit>
#include <QObject>
#include <QPersistentModelIndex>
#include <QPointer>

class Griglia;
class VistaGriglia;

/// Opens, moves, commits and cancels the editor. Qt's own delegate editors commit on their own when the
/// current cell changes and cannot refuse, so that the grid does without them.
class CellaAperta : public QObject
{
public:
    CellaAperta(Griglia* Intera, VistaGriglia* DiVista);

    [[nodiscard]] bool Aperta() const { return Campo; }
    [[nodiscard]] QModelIndex Cella() const { return Posto; }
    /// Opens a cell with its text selected.
    void Apri(const QModelIndex& Dove);
    /// The same for a cell that the program opens: what the user does next may be another thing.
    void ApriOfferta(const QModelIndex& Dove);
    /// Opens it empty and types the key into it; a key that the cell's filter swallows opens nothing.
    void ApriDigitando(const QModelIndex& Dove, const QKeyEvent& Tasto);
    /// Commits. @return false when the text is refused; the cell stays open and gets the focus back
    [[nodiscard]] bool Concludi();
    void Annulla();
    /// Puts the editor where its cell is now.
    void Riposiziona();

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

private:
    void Crea(const QModelIndex& Dove, const QString& Testo);
    void Chiudi();
    [[nodiscard]] QString Normalizzato() const;
    [[nodiscard]] bool Accettato(const QString& Testo);
    void Rifiuta();
    void Scrivi(const QString& Testo);
    bool Tasto(const QKeyEvent& Evento);
    bool LasciaFuoco(const QFocusEvent& Evento);

    Griglia* Padrona;
    VistaGriglia* Vista;
    QPointer<QLineEdit> Campo;
    QPersistentModelIndex Posto;
    QString Iniziale;
    bool InCorso = false;
    bool Offerta = false;  ///< the program has opened it
};
