// The card of one row of the address book: a label and a box for each column of the browser.
#pragma once

#include "addressbook/modScheda.h"
#include "platform/database/database.h"
#include "platform/grid/griglia.h"

#include <QDialog>
#include <QList>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QAction;
class QLineEdit;
class QPlainTextEdit;

namespace Ui {
class frmScheda;
}

/// One card, for one showing: it goes when it is closed. The browser hands its recordset over, shared: the
/// card moves it, writes to it and leaves it where it is.
///
///     auto* Scheda = new frmScheda(this);
///     Scheda->ImpostaModalità(u"edit"_s);
///     Scheda->Consegna(Righe, Colonne);
///     Collega(Scheda, &frmScheda::Chiusa, this, [this](bool Salvata) { ... });
///     Scheda->Carica();
class frmScheda : public QDialog
{
    Q_OBJECT

public:
    /// @param Parent the browser, whose window is closed to keys and mouse meanwhile
    explicit frmScheda(QWidget* Parent);
    ~frmScheda() override;

    /// "new", "edit" or "view"; set before Carica.
    [[nodiscard]] QString Modalità() const { return Modo; }
    void ImpostaModalità(const QString& Parola) { Modo = Parola; }
    /// The rows, and the columns of the browser's grid as it was given them: those that the user has hidden
    /// since are on the card too.
    void Consegna(const Recordset& Condivise, const QList<ColonnaGriglia>& DellaGriglia);
    /// Gives the key of a new row.
    DatoreDiChiavi ChiaveNuova;

    /// Begins the new row or the edit, fills the boxes and shows the card. What hinders it is reported;
    /// the card goes then without having been seen, and Chiusa comes.
    /// @return false when no card is on view
    bool Carica();

    /// Number of the box that was changed and is not yet written to the row, counted from 1; 0 none.
    [[nodiscard]] int IndiceModificato() const { return Indice; }

    /// Gives the focus to the box of a column; nothing where the card has none.
    void FuocoSul(const QString& Campo);

    void barScheda_ButtonClick(const QString& Chiave);

    /// For a browser that is about to close, or to take other rows: asks about changes, once, and closes the
    /// card. No edit is left open by it.
    /// @return false when the user stays on the card
    [[nodiscard]] bool Congeda();

    /// Moves the rows by one, forwards or backwards, for PgDn and PgUp in "view"; false where there is no
    /// further one. Without it the recordset's own order counts; a browser that shows a part of it sets this.
    std::function<bool(bool Avanti)> Sposta;

public Q_SLOTS:
    /// Esc and the close box.
    void reject() override;

Q_SIGNALS:
    /// The card has gone. An edit may be open still on the recordset, see Recordset::EditMode.
    /// @param Salvata true when the row was written; it is the current one of the recordset
    void Chiusa(bool Salvata);
    /// The current row of the recordset is another one.
    void RigaSpostata();

protected:
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

private:
    /// A label and its box, which is the first or, for a memo, the second of the two.
    struct Coppia
    {
        Campo Colonna;
        bool Bloccata = false;
        QLineEdit* Riga = nullptr;
        QPlainTextEdit* Memo = nullptr;
        QAction* Segno = nullptr;  ///< the picture of a hint, inside the box

        [[nodiscard]] QWidget* Box() const;
        [[nodiscard]] QString Testo() const;
        void Mostra(const QString& Testo) const;
    };

    void CostruisciBarra();
    void CollegaTasti();
    void CollegaVicine();
    void Comincia();
    void CreaCoppie();
    void CreaCoppia(const Campo& Colonna, const QString& Titolo);
    [[nodiscard]] static QLineEdit* CreaRiga(const Campo& Colonna);
    [[nodiscard]] static QPlainTextEdit* CreaMemo();
    void OrdinaFuoco();
    void Dimensiona();
    void Riempi();
    void RiempiCoppia(const Coppia& Di);
    void MostraAvvisi();
    void RitiraAvviso(int Numero);
    void Titola();
    void Cambiata(int Numero);
    bool ScriviPendente();
    void PassaOltre(const QObject* Da);
    void Vicina(bool Avanti);
    bool SpostaRecordset(bool Avanti);
    bool Salva();
    void Annulla();
    bool Lascia(bool Comunque);
    bool Domanda(bool BrowserVia);
    void Scarica(bool Salvata);
    [[nodiscard]] bool InScrittura() const { return Modo != u"view"; }

    QString Modo;
    Recordset Righe;
    QList<ColonnaGriglia> Colonne;
    std::vector<Coppia> Coppie;
    int Indice = 0;
    bool InRiempimento = false;
    std::unique_ptr<Ui::frmScheda> ui;
};
