// A text table: UTF-8, fields separated by ";", a heading row, points before the decimals.
#pragma once

#include <QDate>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

/// A small, strict reader. Whatever is wrong is refused with a sentence that names file, row and column,
/// so that the author of the table finds the place: "voci.csv, riga 7, colonna voce: ...".
///
/// A field may stand in double quotes, doubled inside; then it may hold ";" but no line break. A byte
/// order mark and empty lines are passed over. Characters outside Windows-1252 and control characters are
/// refused, since prints and exports could not carry them.
class TabellaTesto
{
public:
    /// Bounds of a table; a larger file is none of ours.
    static constexpr qint64 MassimoByte = 1024 * 1024;
    static constexpr int MassimoRighe = 20'000;

    /// @param Colonne the headings the table must have, in any order, and no other
    /// @throws Errore 53 no such file, 5 the table is refused
    TabellaTesto(const QString& Percorso, const QStringList& Colonne);
    /// The same for bytes already read; `Nome` stands for the file in the sentences.
    TabellaTesto(const QString& Nome, const QByteArray& Contenuto, const QStringList& Colonne);

    [[nodiscard]] int Righe() const { return int(Corpo.size()); }

    // Cells: `Riga` from 0, `Colonna` one of the headings asked for. All throw Errore 5.
    [[nodiscard]] QString Testo(int Riga, const QString& Colonna) const;
    /// At most `Massimo` characters and, unless allowed, not empty.
    [[nodiscard]] QString Testo(int Riga, const QString& Colonna, int Massimo, bool AncheVuoto = false) const;
    /// A whole number without a sign, both limits inclusive.
    [[nodiscard]] int Intero(int Riga, const QString& Colonna, int Minimo, int Massimo) const;
    /// An amount: up to 12 digits, at most 2 decimals behind a point, no sign.
    [[nodiscard]] double Importo(int Riga, const QString& Colonna) const;
    /// A number without a sign, with at most so many decimals behind a point.
    [[nodiscard]] double Decimale(int Riga, const QString& Colonna, int Decimali) const;
    /// A day of the calendar, "aaaa-mm-gg".
    [[nodiscard]] QDate Data(int Riga, const QString& Colonna) const;
    /// "sì" or "no".
    [[nodiscard]] bool SiNo(int Riga, const QString& Colonna) const;

    /// @throws Errore 5 with the place and the reason
    [[noreturn]] void Rifiuta(int Riga, const QString& Colonna, const QString& Motivo) const;
    /// For what is missing rather than wrong: the place is the last row (the heading of an empty table).
    [[noreturn]] void RifiutaInFondo(const QString& Colonna, const QString& Motivo) const;

private:
    struct RigaTesto
    {
        int Numero = 0;  ///< line of the file, from 1
        QStringList Celle;
    };
    void Carica(const QByteArray& Contenuto, const QStringList& Colonne);
    void LeggiIntestazione(const RigaTesto& Intestazione, const QStringList& Colonne);
    [[nodiscard]] QStringList TagliaCelle(int Numero, const QString& Riga) const;
    [[noreturn]] void RifiutaIn(int Numero, const QString& Colonna, const QString& Motivo) const;

    QString File;
    QStringList Titoli;
    QHash<QString, int> Posizioni;
    QList<RigaTesto> Corpo;
    int NumeroIntestazione = 1;
};
