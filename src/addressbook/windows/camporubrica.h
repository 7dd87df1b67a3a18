// A box of the first tab that names a party: its link to the address book, and the names offered in it.
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <functional>
#include <memory>

class ElencoNomi;
class QAction;
class QKeyEvent;
class QLineEdit;
class QListWidget;
class QToolButton;

/// What the box asks of the note.
struct AzioniRubrica
{
    std::function<void()> Apri;    ///< the address book, to choose
    std::function<void()> Scheda;  ///< the card of the linked row, or a new one
    std::function<void(int Chiave)> Scegli;
    std::function<void()> Scollega;
};

/// While a name is typed the archive's names that match it are listed below the box, from the third letter
/// on; typing goes on whether or not the list is there, and only a row that is picked, by Enter on a row
/// marked with the arrows or by the mouse, is taken. A linked box bears a mark, which is another one while
/// the text is not the row's; a click on that one drops the link, the menu of the button that edits the row
/// drops any.
///
/// F4 and Alt+Down open the address book, Ctrl+Enter the card.
class CampoRubrica : public QObject
{
    Q_OBJECT

public:
    /// @param Tabella whose names are offered
    /// @param Modifica the button that edits the linked row
    CampoRubrica(QLineEdit* Campo, const QString& Tabella, QToolButton* Modifica, AzioniRubrica Chieste);
    ~CampoRubrica() override;

    /// Shows the link. @param Nome of the linked row as the archive has it; empty where it was not found
    void Mostra(int Chiave, const QString& Nome);

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

private:
    void CreaSegno(QToolButton* Modifica);
    void CreaElenco();
    void Digitato();
    void TimerLettura_Timer();
    void MostraElenco();
    void NascondiElenco();
    void Scegli(int Riga);
    [[nodiscard]] bool ElencoInVista() const;
    /// True for a key that goes no further.
    [[nodiscard]] bool Tasto(const QKeyEvent& Premuto);
    [[nodiscard]] bool TastoElenco(const QKeyEvent& Premuto);

    QLineEdit* Box;
    AzioniRubrica Azioni;
    QAction* Segno = nullptr;
    bool Diverso = false;  ///< the text is not the linked row's name
    QListWidget* Elenco = nullptr;
    QList<QPointer<QWidget>> Cornici;  ///< what the box stands in, while the list is on view
    std::shared_ptr<ElencoNomi> Nomi;
    QTimer TimerLettura;  ///< runs while names are being read
    bool Atteso = false;  ///< the list comes up when they are
};
