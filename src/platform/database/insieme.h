// What stands behind a Recordset: where its rows come from, their keys, and the cursor.
#pragma once

#include "platform/database/connessione.h"
#include "platform/database/recordset.h"

#include <QHash>
#include <QList>
#include <QMap>

#include <memory>
#include <optional>

class TestiColonna;

/// The rows of one table: of the file, or of a private database in memory that holds a fixed copy.
struct Sorgente
{
    std::shared_ptr<Connessione> Conn;
    QString Tabella;      ///< quoted
    QString NomeTabella;  ///< as the file spells it
    QString Chiave;       ///< the word for the row key
    QList<Campo> Colonne;
    QStringList NomiSql;  ///< quoted, one per column
    bool Scrivibile = false;
    bool Intera = false;  ///< opened by the table's name: it has indices

    /// @throws Errore 3265
    [[nodiscard]] int Posto(const QString& Colonna) const;
    /// Quoted column, empty when there is none.
    [[nodiscard]] QString Identifica(const QString& Colonna) const;
    void Aggiungi(const Campo& Colonna, const QString& NomeSql);

private:
    QHash<QString, int> Posti;
};

/// A set of keys and the cursor over it.
struct Insieme
{
    enum class Lavoro { Nessuno = 0, Modifica = 1, Nuovo = 2 };  // as EditMode says

    Sorgente Da;
    QList<qint64> Chiavi;
    bool Crescenti = true;  ///< the keys ascend: a row's place is found by bisection

    qsizetype Posto = 0;  ///< -1 in front of the first, size behind the last
    /// The current row was deleted: the place is that of the row that followed it.
    bool Buco = false;
    bool SenzaEsito = false;

    Lavoro Aperto = Lavoro::Nessuno;
    QMap<int, QVariant> Cambiati;
    QVariantList Originale;  ///< the row as Edit found it

    QStringList ColonneIndice;  ///< of the index chosen for Seek
    QList<int> PostiIndice;

    void Aggiungi(qint64 Chiave);
    /// Place of a key, -1 when it is not of this set.
    [[nodiscard]] qsizetype Trova(qint64 Chiave) const;
    /// @throws Errore 3021 no row, 3167 deleted
    [[nodiscard]] qint64 ChiaveCorrente() const;
    /// Place of the current row. @throws Errore 3021 no row, 3167 deleted
    [[nodiscard]] qsizetype PostoCorrente() const;
    /// The current row. @throws Errore 3021, 3167
    [[nodiscard]] const QVariantList& Riga();
    /// Moves and drops what was being added or edited.
    void Vai(qsizetype Nuovo);
    /// @throws Errore 3027
    void EsigiScrivibile() const;
    /// Reads the keys to the end; `Resto` is what stands behind the table in their SELECT.
    void LeggiChiavi(const QString& Resto, const QVariantList& Valori = {});
    /// The same in the order of a text column, without regard to case and accents: Null before all texts,
    /// ties by their keys. The texts are held in memory while it sorts; of each the first 255 characters
    /// count.
    void LeggiChiaviOrdinate(const QString& Colonna, bool Discendente);
    // The changes of one row; each writes at once. @throws Errore as Recordset::Update
    void Inserisci(const std::function<void()>& Prima = {});
    void Aggiorna();
    void Elimina();
    /// Moves to the row that the chosen index finds; behind the last when there is none.
    void Cerca(const QString& Operatore, const QVariantList& Chiave, bool Indietro);
    /// " ORDER BY ..." of the chosen index, the row key last.
    [[nodiscard]] QString OrdineIndice(bool Indietro) const;

    /// Texts that a search has read, kept for the next one.
    std::shared_ptr<TestiColonna> TestiLetti;

private:
    void SeguiChiave();

    std::optional<Istruzione> Lettura;
    QVariantList Tenuta;  ///< the row last read
    qint64 ChiaveTenuta = 0;
    std::optional<quint64> ScrittureViste;
};

struct Recordset::Dati : Insieme
{};
