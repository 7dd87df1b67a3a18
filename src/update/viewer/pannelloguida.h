// Contents and search of the guide, beside the page on view.
#pragma once

#include "update/viewer/elencoguida.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;
class QStackedWidget;
class QTreeWidget;
class QTreeWidgetItem;

/// Shows the contents of a guide, or what a search has found in it while one is typed.
class PannelloGuida : public QWidget
{
    Q_OBJECT

public:
    explicit PannelloGuida(QWidget* Padre = nullptr);

    /// Reads the list of a guide; the same one is read once. @throws Errore as ElencoGuida
    void Prepara(const QString& Cartella);
    /// Marks the page on view in the contents, by its file; one that is not there marks none.
    void Segna(const QString& File);
    /// Gives the box the focus, with a text in place of its own where one is given.
    void Cerca(const QString& Testo = {});

Q_SIGNALS:
    /// A page was chosen; `Cercato` is what was looked for, empty from the contents.
    void Chiesta(const QString& Meta, const QString& Cercato);

protected:
    void keyPressEvent(QKeyEvent* Evento) override;

private:
    void RiempiIndice();
    void txtGuida_Change();
    void ApriVoce(QTreeWidgetItem* Voce);  ///< a chapter opens or closes
    void ApriTrovato(int Riga);

    ElencoGuida Letto;
    QString Letta;  ///< folder that the list was read from
    QLineEdit* txtGuida = nullptr;
    QTreeWidgetItem* Aperto = nullptr;  ///< chapter that was opened for its page, and closes with it
    QStackedWidget* Fogli = nullptr;
    QTreeWidget* treIndice = nullptr;
    QListWidget* lstTrovati = nullptr;
    QLabel* lblTrovati = nullptr;
};
