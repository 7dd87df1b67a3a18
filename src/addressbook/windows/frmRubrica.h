// The browser of one table of an archive: clients or counterparties.
#pragma once

#include "addressbook/modRubrica.h"
#include "addressbook/richiesta.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmRubrica;
}

class frmRubrica : public QDialog
{
    Q_OBJECT

public:
    explicit frmRubrica(const RichiestaRubrica& Chiesta);
    ~frmRubrica() override;

    /// Builds the columns of the grid from the fields of the rows.
    void GridFromDB(const Database& Archivio, const Recordset& Nominativi);
    /// Appends one column to those of the grid.
    void AddGrigCol(const QString& Nome, const QString& Titolo, int Size, const QString& Formato,
                    const QString& Maschera);

private:
    void ApriTabella();

    RichiestaRubrica Richiesta;
    Database Archivio;
    Recordset Righe;
    QList<ColonnaRubrica> Colonne;
    std::unique_ptr<Ui::frmRubrica> ui;
};
