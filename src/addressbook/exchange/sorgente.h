// A file of names, whatever has written it: a spreadsheet's rows, cards, an archive.
#pragma once

#include "addressbook/exchange/csv.h"
#include "addressbook/exchange/tabellaestranea.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

enum class GenereSorgente { Csv, Vcard, Archivio };

/// How a source is to be read.
struct OpzioniSorgente
{
    OpzioniCsv Csv = {};
    std::optional<bool> PrimaRigaTitoli = {};  ///< of a spreadsheet's rows; none: as they look
    QString Tabella = {};                      ///< of an archive
};

/// A source that is open. Nothing is ever written to it.
class SorgenteNominativi
{
public:
    /// @param Prosegui asked now and then while the file, or an archive of Access, is read; false stops it
    /// @throws Errore NumeroFileRifiutato when it is no source, or larger than a program may ask for; 53, 75;
    /// Interrotto when it was stopped
    explicit SorgenteNominativi(const QString& DiFile, const AvanzamentoLettura& Prosegui = {});
    ~SorgenteNominativi();
    SorgenteNominativi(const SorgenteNominativi&) = delete;
    SorgenteNominativi& operator=(const SorgenteNominativi&) = delete;

    [[nodiscard]] const QString& File() const { return Percorso; }
    [[nodiscard]] GenereSorgente Genere() const { return Che; }
    /// The tables of an archive that hold names, as far as their names say so first; none of a text.
    [[nodiscard]] const QStringList& Tabelle() const { return NomiTabelle; }
    /// The rows. What a spreadsheet's file was read as is told in `Come`.
    /// @param Prosegui asked now and then; false stops it, and `Come` is as it was
    /// @throws Errore as LeggiCsv, LeggiVcard, Database::OpenRecordset; Interrotto when it was stopped
    [[nodiscard]] TabellaEstranea Leggi(OpzioniSorgente& Come, const AvanzamentoLettura& Prosegui = {}) const;

private:
    struct Nativo;
    QString Percorso;
    GenereSorgente Che = GenereSorgente::Csv;
    QByteArray Byte;
    QStringList NomiTabelle;
    std::unique_ptr<Nativo> Archivio;
};
