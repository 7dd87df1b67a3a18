// The catalogue of recurring terms: found by a word or an article, picked for the window that asked.
#pragma once

#include "calculators/norme/terminiricorrenti.h"
#include "platform/base/tabellarighe.h"

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class frmRicorrenti;
}

class frmRicorrenti : public QDialog
{
    Q_OBJECT

public:
    /// @param DaNorme the catalogue, which this window keeps
    frmRicorrenti(QWidget* Padre, std::shared_ptr<const Norme> DaNorme);
    ~frmRicorrenti() override;

    /// What a pick does; the window is closed before.
    std::function<void(const TermineRicorrente& Termine)> TermineScelto;
    std::function<void(const CatenaTermini& Catena)> CatenaScelta;

    void Mostra();
    /// Takes the current row; a rule, which counts nothing, is not taken.
    void cmdScegli_Click();

protected:
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

private:
    /// A row: one of the two.
    struct Voce
    {
        const CatenaTermini* Catena = nullptr;
        const TermineRicorrente* Termine = nullptr;
    };

    void Colonne();
    void Collegamenti();
    void Elenca();
    void Aggiungi(const Voce& Nuova);
    void MostraVoce();
    [[nodiscard]] Voce Corrente() const;
    [[nodiscard]] QString Descrizione(const Voce& Quale) const;
    [[nodiscard]] QString Articoli(const CatenaTermini& Catena) const;

    std::unique_ptr<Ui::frmRicorrenti> ui;
    std::shared_ptr<const Norme> Insieme;
    QList<Voce> Voci;  ///< on view
    TabellaRighe Righe;
};
