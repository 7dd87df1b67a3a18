// "Da controllare": what is worth a look before the note is printed, above the preview.
#pragma once

#include "addressbook/modClienti.h"
#include "feenote/modControlliNota.h"

#include <QDeadlineTimer>
#include <QFrame>
#include <QTimer>

#include <optional>

class CorniceNota;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QToolButton;

/// One line that says how many remarks there are and opens their list, or that there are none. A row leads to
/// its field by a click, Enter or Space. The list is never higher than a few rows, so that the page keeps its
/// room, and stays open or closed as the user left it last.
///
/// It is reckoned behind the events at hand, and only while it is on view: a key pays nothing for it.
class ElencoControlli : public QFrame
{
    Q_OBJECT

public:
    /// @param Dati the note looked at, @param Finestra its window: both live as long as the list
    ElencoControlli(const Parcella& Dati, CorniceNota& Finestra, QWidget* Padre);

    /// Tab goes from the one through the line and the rows to the other.
    void MettiInGiro(QWidget* Prima, QWidget* Dopo);

    /// The note has changed.
    void Segui();
    /// The client's row or the settings may have changed besides: they are read again.
    void Rileggi();

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

protected:
    void showEvent(QShowEvent* Evento) override;
    void changeEvent(QEvent* Evento) override;

private:
    void CollegaTasti();
    void Calcola();
    void LeggiArchivio();
    void Mostra();
    void MostraTesta();
    void MostraVoci();
    void MostraAltezza();
    void Apri(bool Si);
    void VaiAllaVoce(const QListWidgetItem* Voce);

    const Parcella& Nota;
    CorniceNota& Cornice;
    QToolButton* cmdControlli;
    QLabel* lblControlli;
    QListWidget* lstControlli;
    QTimer Attesa;
    QList<Rilievo> Trovati;
    std::optional<DatiCliente> Cliente;
    bool Aperto = true;  ///< the rows are shown, where there are any
    bool ArchivioLetto = true;
    QDeadlineTimer RitentaArchivio{0};
    std::optional<int> ClienteLetto;  ///< key of the row that was read last; none: to be read again
    bool ScriveXml = false;
};
