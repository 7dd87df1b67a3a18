// The rows of a grid as Qt's views want them: a window on a table or a recordset, with no copy of its own.
#pragma once

#include "platform/grid/griglia.h"

#include <QAbstractTableModel>
#include <QDeadlineTimer>

/// Besides the rows of the source there may be one empty row behind them, for new ones.
class ModelloGriglia : public QAbstractTableModel
{
public:
    using QAbstractTableModel::QAbstractTableModel;

    void ImpostaColonne(const QList<ColonnaGriglia>& Nuove);
    [[nodiscard]] const QList<ColonnaGriglia>& Colonne() const { return ListaColonne; }
    void Lega(TabellaRighe* Nuova);
    void Lega(const Recordset& Nuove);
    /// Tells the views of the rows that have come or gone at the end, and that all may have changed.
    void Rilega();
    void ConsentiNuove(bool Si);

    /// Rows of the source, as of the last Rilega.
    [[nodiscard]] int RigheVere() const { return Vere; }
    [[nodiscard]] bool ConRigaNuova() const { return rowCount() > Vere; }
    [[nodiscard]] bool RigaVuota(int Riga) const { return Riga >= Vere; }
    [[nodiscard]] bool Modificabile(int Colonna) const;
    [[nodiscard]] bool HaModificabili() const;
    [[nodiscard]] QVariant Valore(int Riga, int Colonna) const;
    /// As it is shown.
    [[nodiscard]] QString Testo(int Riga, int Colonna) const;
    /// What is amiss with a cell; empty for nothing.
    [[nodiscard]] QString Segno(int Riga, int Colonna) const;

    /// What stays with a row while others come and go: a key of the table, the place of a recordset's row.
    /// 0 for the empty row and for no row.
    [[nodiscard]] quint64 Chiave(int Riga) const;
    /// The numbers of the rows of these keys, in the order of the keys; rows that have gone are left out.
    [[nodiscard]] QList<int> RigheDi(const QList<quint64>& Chiavi) const;

    /// Makes the row behind the last one in the table. @return its number
    int AggiungiRiga();
    void Scrivi(int Riga, int Colonna, const QVariant& Valore);

    [[nodiscard]] int rowCount(const QModelIndex& Padre = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& Padre = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& Cella, int Ruolo = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int Sezione, Qt::Orientation Verso, int Ruolo) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& Cella) const override;

private:
    [[nodiscard]] int RigheFonte() const;
    void MostraRighe(int NuoveVere);

    QList<ColonnaGriglia> ListaColonne;
    TabellaRighe* Tabella = nullptr;
    Recordset Origine;
    mutable Recordset Lettura;        ///< own cursor over the same keys: painting moves it
    mutable QDeadlineTimer Pausa{0};  ///< a file that is locked is not asked again for each cell
    bool Nuove = false;
    int Vere = 0;
};
