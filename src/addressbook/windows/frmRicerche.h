// The search dialog of an open recordset: the first or the next row that meets one condition on one field.
#pragma once

#include "addressbook/modRicerca.h"
#include "platform/database/database.h"

#include <QDialog>
#include <QList>
#include <QRect>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace Ui {
class frmRicerche;
}

/// Modeless beside its browser, which keeps it: hidden it still repeats the last search. It closes with the
/// browser's window.
class frmRicerche : public QDialog
{
    Q_OBJECT

public:
    /// @param Parent the browser
    explicit frmRicerche(QWidget* Parent);
    ~frmRicerche() override;

    /// The rows to search, shared with whoever shows them. Another recordset may be given at any time: the
    /// fields stay where it has them too, else the list begins anew.
    [[nodiscard]] const Recordset& RecordSource() const { return Righe; }
    void ImpostaRecordSource(const Recordset& Nuove);

    /// Both empty the list of fields.
    void InitCampi();
    void ClearArray();
    /// Appends a field to the list.
    void AddCampi(const QString& Campo, const QString& Titolo);
    /// The fields of the list, in order, by their names.
    [[nodiscard]] QStringList NomiCampi() const;
    /// Shows the list of fields; an empty one takes every field of the recordset first. The field of the last
    /// use is chosen again, the first one where there was none yet.
    void LoadCampi();
    /// Enables what can be used now.
    void CheckButton();

    /// Shows the dialog, or brings it to the front, ready for a text.
    void Apri();
    /// Puts the dialog beside a rectangle of the screen, such as the grid, where the screen has room for it.
    void Accosta(const QRect& Occupato);
    /// Moves the dialog away when it covers this rectangle of the screen, such as the row that was found.
    void Scopri(const QRect& Trovata);

    /// While a card holds the rows nothing can be searched: the dialog stays on view, disabled.
    void Sospendi(bool Si);

    /// True when there was a search since the recordset was given, on a field that it has.
    [[nodiscard]] bool PuoRipetere() const { return !UltimoCriterio.isEmpty(); }
    /// Repeats the last search behind the current row, or before it, with the dialog on view or not; opens
    /// the dialog when there is none to repeat.
    void Ripeti(bool Indietro);

    void cmbCampo_Click();
    /// Finds the first row (0) or the next one (1).
    void cmdFind_Click(int Indice);

    /// Asked before the recordset moves: false leaves it where it is.
    std::function<bool()> PrimaDiMuovere;

Q_SIGNALS:
    /// The recordset stands on the row that was found.
    void Trovata();

protected:
    void showEvent(QShowEvent* Evento) override;
    void hideEvent(QHideEvent* Evento) override;
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

private:
    /// A row of the field list.
    struct CampoElencato
    {
        QString Nome;
        QString Titolo;
    };

    void Attiva();
    void Cerca(PassoRicerca Passo);
    void RicordaTesto();
    void OffriTesti();
    [[nodiscard]] bool HaTutti(const QList<Campo>& Campi) const;
    [[nodiscard]] const Campo* CampoScelto() const;

    Recordset Righe;
    QList<Campo> Campi;  ///< of the recordset
    QList<CampoElencato> Elenco;
    QString UltimoCriterio;
    QString UltimoCampo;
    std::unique_ptr<Ui::frmRicerche> ui;
};
