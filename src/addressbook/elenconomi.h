// The names of a table of the archive, to be offered while one is typed.
#pragma once

#include "addressbook/filtro.h"
#include "platform/database/database.h"

#include <QByteArray>
#include <QDateTime>
#include <QDeadlineTimer>
#include <QList>
#include <QString>

#include <memory>
#include <vector>

/// A row as it is offered.
struct NomeOfferto
{
    int Chiave = 0;
    QString Nome;
    QString Citta;  ///< tells people of one name apart; empty where the row or the archive has none

    friend bool operator==(const NomeOfferto&, const NomeOfferto&) = default;
};

/// The names of the session's archive. They are kept in memory, since a key must not wait for a million of
/// rows, and read in pieces between the keys. Rows without a name are no names to offer. An archive that is
/// missing, locked or of another make offers nothing, which is no message: the name is typed as it is.
class ElencoNomi
{
public:
    /// @param Tabella "clienti" or "controparti"
    explicit ElencoNomi(const QString& Tabella);
    /// The list of a table that all windows share.
    [[nodiscard]] static std::shared_ptr<ElencoNomi> Di(const QString& Tabella);

    /// Looks at the archive: another one, or one that was written to since, is to be read anew. What was read
    /// before stays on offer until the new list is complete.
    void Segui();
    /// Reads some thousand rows more. @return false when there is nothing left to read
    bool Avanza();
    [[nodiscard]] bool Completo() const { return !InLettura; }
    [[nodiscard]] int Quanti() const { return int(Letti.Chiavi.size()); }

    /// The names in which every word of the text stands, whatever case and accents, at most so many: first
    /// those that begin with the text, then those whose words begin with its words, each in order.
    [[nodiscard]] QList<NomeOfferto> Proponi(const QString& Testo, int Massimo) const;

private:
    struct Nomi
    {
        RighePiane Piani;
        std::vector<int> Chiavi;
        std::vector<size_t> Inizi;  ///< of each in Testi
        QByteArray Testi;           ///< name and town as they are written, UTF-8
    };
    /// How an archive stood when it was read.
    struct Impronta
    {
        QString File;
        qint64 Byte = -1;
        QDateTime Quando;

        friend bool operator==(const Impronta&, const Impronta&) = default;
    };
    [[nodiscard]] static Impronta Guarda();
    void LeggiPezzo();
    void Finisci();
    [[nodiscard]] NomeOfferto Offerto(size_t Posto) const;

    QString Tabella;
    Nomi Letti;
    Nomi Nuovi;  ///< being read
    Impronta Letta;
    bool InLettura = false;
    bool Mancata = false;  ///< the last reading came to no end
    QDeadlineTimer Ritenta;
    Database Archivio;  ///< open while it is read
    bool ConCitta = false;
    int Ultima = 0;  ///< highest key read
};
