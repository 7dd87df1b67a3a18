// The texts of an archive's rows as the filter of its browser looks through them.
#pragma once

#include "addressbook/filtro.h"
#include "addressbook/modRubrica.h"

#include <optional>
#include <vector>

/// They are read in portions, so that nobody waits for them, and read anew once anybody has written to the
/// archive.
class TestiRubrica
{
public:
    /// Forgets what was read; from now on it is these columns of these rows.
    void Imposta(const Database& DiArchivio, const Recordset& DiRighe,
                 const QList<ColonnaRubrica>& DiColonne);

    /// Reads a portion more. @return true once all are read
    /// @throws Errore as Recordset::Scorri
    bool Leggi();
    /// True when all are read and nobody has written since.
    [[nodiscard]] bool Pronti() const;
    /// Keys of the rows that pass, ascending; reads what is missing.
    [[nodiscard]] std::vector<qint64> Cerca(const Filtro& Per);

private:
    void Azzera();
    void Accoda(const RigaScorsa& Riga);

    Database Archivio;
    Recordset Righe;
    QList<ColonnaRubrica> Colonne;
    QStringList Nomi;
    RighePiane Testi;
    std::vector<qint64> Chiavi;  ///< of the texts
    std::optional<qint64> Ultima;
    quint64 Versione = 0;
    bool Finita = false;
    QByteArray Composta;  ///< the row being read
};
