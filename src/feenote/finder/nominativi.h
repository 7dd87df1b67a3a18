// The names of clients and counterparties for a list of notes.
#pragma once

#include "feenote/finder/modTrova.h"
#include "feenote/finder/scadenzario.h"
#include "platform/database/recordset.h"

#include <QHash>
#include <QString>

#include <array>
#include <exception>

/// Two recordsets on the session's archive, positioned by the key. They are open from the first key of a list
/// to Chiudi; what was found is kept until the archive changes. It belongs to one thread.
class Nominativi
{
public:
    /// Writes the two names of a note's row: those of the archive or, where the key leads nowhere, the name
    /// is empty, or there is no archive, as the file spells them. Nothing of it is told.
    void Completa(VoceTrova& Voce);
    /// Fiscal code and VAT number of a client; empty ones where the key leads nowhere or there is no archive.
    [[nodiscard]] CodiciCliente Codici(int IDCli);
    /// True when the archive of this list could not be read; it is there, then.
    [[nodiscard]] bool Guasto() const { return NonLetto != nullptr; }
    /// The archive of the last list, full path.
    [[nodiscard]] const QString& FileArchivio() const { return Archivio; }
    /// Throws why it could not; nothing happens while it could.
    void PretendiLetto() const;
    /// A list is complete: nothing is open any more, and the next one begins without the failure of this one.
    void Chiudi();

private:
    struct Tabella
    {
        QString Nome;
        Recordset Righe;
        bool Aperta = false;
        QHash<int, QString> Trovati;
    };
    [[nodiscard]] QString Nome(Tabella& Da, int Chiave);
    /// Moves a table to a row. @return false where there is none
    [[nodiscard]] bool Vai(Tabella& Da, int Chiave);
    void SeguiArchivio();

    std::array<Tabella, 2> Tabelle{Tabella{QStringLiteral("Clienti"), {}, false, {}},
                                   Tabella{QStringLiteral("Controparti"), {}, false, {}}};
    QHash<int, CodiciCliente> CodiciTrovati;
    QString Archivio;
    qint64 Byte = -1;
    qint64 Modificata = 0;
    bool Guardato = false;  ///< the archive was looked at for this list
    std::exception_ptr NonLetto;
    bool Assente = false;  ///< it is not there, or cannot be read: this list does without
};
