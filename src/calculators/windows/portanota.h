// "Porta nella parcella": the fees of a window go among the expenses of an open note.
#pragma once

#include "core/spesedilegge.h"

#include <QList>
#include <QObject>

#include <functional>

class QAbstractButton;
class QDialog;
class RigaCheSvanisce;

/// The buttons of a window that bring something into a note. With one note open a click goes to it; with
/// several it asks which, the one in front standing first. Without any they are disabled, and say why.
class PortaNota : public QObject
{
    Q_OBJECT

public:
    /// @param Detto says where it went
    PortaNota(QDialog* Modulo, RigaCheSvanisce* Detto);

    /// Makes a button one of them.
    /// @param Pronto whether there is something to bring, or may be once its box is left
    /// @param Spese what is brought, asked at the click
    /// @param Fuori what the amount on view holds and is not brought, for the line that says where it went
    void Aggiungi(QAbstractButton* Bottone, std::function<bool()> Pronto,
                  std::function<QList<SpesaDiLegge>()> Spese, std::function<QString()> Fuori = {});
    /// A control that means something only while a note is open.
    void Accompagna(QWidget* Controllo);
    /// Enables what can be done now.
    void Aggiorna();

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

private:
    struct Porta
    {
        QAbstractButton* Bottone;
        std::function<bool()> Pronto;
        std::function<QList<SpesaDiLegge>()> Spese;
        std::function<QString()> Fuori;
    };
    void Chiedi(const Porta& Quale);
    void PortaIn(const NotaInVista& Nota, const QList<SpesaDiLegge>& Spese, const QString& Fuori);

    QDialog* Finestra;
    RigaCheSvanisce* Riga;
    QList<Porta> Porte;
    QList<QWidget*> Accompagnano;
};

/// "contributo 237,00, anticipazione 27,00"
[[nodiscard]] QString TestoSpese(const QList<SpesaDiLegge>& Spese);
