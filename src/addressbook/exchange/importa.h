// Rows of a foreign file into a table of the archive: counted first, then written, all of them or none.
#pragma once

#include "addressbook/exchange/rigaimporta.h"
#include "addressbook/exchange/tabellaestranea.h"
#include "platform/database/database.h"

#include <QDateTime>
#include <QHash>
#include <QMultiHash>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

/// What is done with a row that the archive has already.
enum class Doppioni {
    Salta,     ///< it stays as it is
    Completa,  ///< its empty fields are filled
    Aggiungi,  ///< the row is added all the same
};

/// Long work tells how far it is. @return false when it is to stop
using Avanzamento = std::function<bool(int Fatte, int Tutte)>;

/// What becomes of the rows.
struct ContoImporta
{
    int Righe = 0;        ///< of the file
    int Aggiunti = 0;     ///< new rows
    int Completati = 0;   ///< rows of the archive that get something
    int GiaPresenti = 0;  ///< rows that the archive has, and that change nothing in it
    int SenzaNome = 0;    ///< left out

    friend bool operator==(const ContoImporta&, const ContoImporta&) = default;
};

/// One sentence: what will be done, or was.
[[nodiscard]] QString FraseImporta(const ContoImporta& Conto, bool Fatto);

/// One import. A row is in the archive already when one of its tax codes is, or its name without case,
/// accents and blanks, unless both rows have codes and these differ: two people may have one name. Rows of
/// the file itself count too.
class ImportaNominativi
{
public:
    /// @param Chiavi as AbbinaColonne gives them
    /// @throws Errore as ComposizioneRighe, Database::Campi
    ImportaNominativi(const Database& DiArchivio, const QString& DiTabella, TabellaEstranea DaFile,
                      const QStringList& Chiavi, Doppioni Scelti);

    /// Looks at all rows; nothing is written. @return false when it was stopped
    /// @throws Errore as Database::Execute
    [[nodiscard]] bool Prepara(const Avanzamento& Prosegui = {});
    [[nodiscard]] const ContoImporta& Conto() const { return Contati; }
    /// False when the archive would stay as it is.
    [[nodiscard]] bool DaScrivere() const { return !Mosse.empty(); }
    /// What of single rows goes elsewhere or nowhere, a line each; the last one counts those beyond a
    /// thousand.
    [[nodiscard]] const QStringList& Avvisi() const { return Annotati; }

    /// Keeps a copy of the archive, which AnnullaImportazione puts back, and writes what Prepara has counted.
    /// Where there is nothing to write there is no copy.
    /// @param Sorgente name of the file, as it is told later
    /// @return false when it was stopped: the archive is as it was
    /// @throws Errore NumeroFileRifiutato when another program has written meanwhile, as Database::Execute
    /// and CopiaFile; the archive is as it was
    [[nodiscard]] bool Scrivi(const QString& Sorgente, const Avanzamento& Prosegui = {});

    /// The report of a finished import, or of a count, line by line.
    [[nodiscard]] QString Resoconto(const QString& Sorgente, bool Fatto) const;

private:
    /// A row of the archive, or one that comes into it, as others are compared with it.
    struct Presente
    {
        qint64 Chiave = 0;  ///< 0: not written yet
        int Mossa = -1;     ///< place in Mosse of one that is not
        QString CodFis;
        QString PIva;
        std::vector<bool> Pieni;  ///< fields that hold something
    };
    /// What is to be written: a new row, or fields of one that is there.
    struct Mossa
    {
        std::optional<qint64> Chiave;  ///< of the row that is there; none: a new one
        QVariantList Valori;
    };
    bool LeggiPresenti(const Avanzamento& Prosegui);
    void Registra(Presente Nuovo, const QString& Nome);
    [[nodiscard]] int Trova(const RigaComposta& Riga) const;
    void Valuta(const RigaComposta& Riga, int Numero);
    void Aggiungi(const RigaComposta& Riga);
    [[nodiscard]] bool Completa(Presente& Vecchio, const RigaComposta& Riga);
    void Annota(int Numero, const QString& Frase);
    bool ScriviMosse(const Avanzamento& Prosegui);
    [[nodiscard]] QString Codice(const RigaComposta& Riga, int Posto) const;

    Database Archivio;
    QString Tabella;
    TabellaEstranea Da;
    QStringList Mete;
    Doppioni Modo;
    ComposizioneRighe Composizione;
    int PostoCodFis;
    int PostoPIva;

    std::optional<quint64> Versione;  ///< of the archive that was counted to the end
    std::vector<Presente> Presenti;
    QHash<QString, int> PerCodice;
    QMultiHash<QString, int> PerNome;
    std::vector<Mossa> Mosse;
    ContoImporta Contati;
    QStringList Annotati;
    QStringList Lasciati;  ///< rows that the archive has already, as the report names them
    int Taciuti = 0;
    QString RigheSenzaNome;
    QString Copia;
};
