// The rows of one table of Norme.mdb, cell by cell, with refusals that name table, row and column.
#pragma once

#include "calculators/norme/norme.h"
#include "platform/database/database.h"

/// A table read row after row in the order in which it was written.
class RigheNorme
{
public:
    RigheNorme(const Database& Db, const QString& Nome);

    [[nodiscard]] bool Finite() const { return Righe.Eof(); }
    void Avanti();

    // Cells of the current row. All throw Errore 5 with the place.
    [[nodiscard]] QString Testo(const QString& Colonna, bool AncheVuoto = false) const;
    [[nodiscard]] int Intero(const QString& Colonna, int Minimo, int Massimo) const;
    [[nodiscard]] double Importo(const QString& Colonna) const;
    [[nodiscard]] std::optional<double> ImportoOVuoto(const QString& Colonna) const;
    [[nodiscard]] bool SiNo(const QString& Colonna) const;
    [[nodiscard]] std::optional<bool> SiNoOVuoto(const QString& Colonna) const;
    /// Position of a word among those allowed.
    [[nodiscard]] int Parola(const QString& Colonna, const QStringList& Parole) const;
    /// Dal and Al, in order.
    [[nodiscard]] Vigenza Periodo() const;
    /// "mm-gg", a day of a leap year.
    [[nodiscard]] GiornoDellAnno Giorno(const QString& Colonna) const;

    [[noreturn]] void Rifiuta(const QString& Colonna, const QString& Motivo) const;

private:
    [[nodiscard]] QVariant Cella(const QString& Colonna) const;
    [[nodiscard]] QDate Data(const QString& Colonna) const;

    QString Tabella;
    Recordset Righe;
    int Numero = 1;
};
