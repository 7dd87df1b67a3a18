// The strip of the desktop beside its icons: the notes worked on last.
#pragma once

#include "core/modRecenti.h"

#include <QFrame>

class QLabel;
class QListView;
class QMenu;
class QStandardItemModel;
class QToolButton;

class PannelloRecenti : public QFrame
{
    Q_OBJECT

public:
    /// Room that it wants at least, in pixels.
    static constexpr int LarghezzaMinima = 260;
    static constexpr int AltezzaMinima = 150;

    explicit PannelloRecenti(QWidget* Padre);

    /// Shows the list as it stands in the settings now; the current line stays current.
    void Aggiorna();
    [[nodiscard]] int Quante() const { return int(Note.size()); }
    /// The focus on the first line, where there is one.
    bool PrendiFuoco();
    /// The button "Apri", which has the menu of what can be opened.
    [[nodiscard]] QToolButton* cmdApri() const { return Apri; }

protected:
    void paintEvent(QPaintEvent* Evento) override;
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

private:
    [[nodiscard]] QLayout* Testata();
    void PreparaElenco();
    void ApriRiga(int Riga);
    void TogliRiga(int Riga);
    void MenuRiga(const QPoint& Dove);

    QList<NotaRecente> Note;
    QToolButton* Apri;
    QListView* Elenco;
    QStandardItemModel* Righe;
    QLabel* Vuoto;
};
