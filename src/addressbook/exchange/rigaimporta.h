// A row of a foreign file as a row of the archive.
#pragma once

#include "addressbook/exchange/tabellaestranea.h"
#include "platform/database/database.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <vector>

/// What becomes of a row.
struct RigaComposta
{
    QVariantList Valori;  ///< one for each field of ComposizioneRighe::Campi, invalid where the row has none
    QString Nominativo;   ///< empty: the row has no name
    QStringList Avvisi;   ///< what has gone elsewhere, or nowhere
};

/// Makes rows of an archive from rows of a file.
class ComposizioneRighe
{
public:
    /// @param Titoli of the file
    /// @param Chiavi for each title where it goes, as AbbinaColonne gives them
    /// @throws Errore NumeroFileRifiutato when nothing goes into the name
    ComposizioneRighe(const QStringList& Titoli, const QStringList& Chiavi, const QList<Campo>& DiArchivio);

    /// The fields that rows are written to, in the archive's order.
    [[nodiscard]] const QList<Campo>& Campi() const { return Scritti; }
    /// Place of a field among them, -1 for none.
    [[nodiscard]] int Posto(QStringView Nome) const;

    /// The name is the one of its own column, else family name and name, else the organisation; of two names
    /// the other one goes into the notes. What a field cannot hold, a date that is none, goes whole into the
    /// notes behind its heading.
    [[nodiscard]] RigaComposta Componi(const QStringList& Celle) const;

private:
    struct Testi;
    struct Colonna
    {
        int DalFile = 0;
        int Campo = -1;     ///< place in Scritti; -1 a part
        QString Parte;      ///< key of a part
        QString Etichetta;  ///< before the text in the notes; empty in the notes' own column
    };
    [[nodiscard]] Testi Raccogli(const QStringList& Celle) const;
    [[nodiscard]] QString NomeDi(Testi& Pezzi) const;
    [[nodiscard]] QString NomeCheEntra(const QString& Nome, Testi& Pezzi) const;
    [[nodiscard]] QVariant NoteCheEntrano(Testi& Pezzi) const;
    void CompletaCap(QVariantList& Valori) const;
    [[nodiscard]] QVariant ValorePer(const Campo& In, const QString& Testo, Testi& Pezzi) const;

    QList<Campo> Scritti;
    std::vector<Colonna> Colonne;
    int PostoNome = -1;
    int PostoNote = -1;
    int PostoControp = -1;
};

/// A code as two of them are compared: capitals without blanks, a VAT number without its country "IT". Empty
/// for what stands in the place of one, noughts or a hyphen: many have that.
[[nodiscard]] QString CodicePiano(const QString& Codice);
/// A name as two of them are compared: without case, accents and blanks.
[[nodiscard]] QString NomePiano(const QString& Nome);
