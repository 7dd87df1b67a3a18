#include "feenote/modClienti.h"

#include "core/sessione.h"
#include "platform/database.h"
#include "platform/errore.h"

using namespace Qt::StringLiterals;

namespace {

/// A missing or unreadable archive answers like a missing row: the note keeps the names it holds, and the
/// user is told that the link does not resolve.
std::optional<QString> CercaNome(const QString& Tabella, int Chiave, const QString& Colonna)
{
    try {
        const Database Archivio = OpenDatabase(sessione::ArchivioCliCon, true);
        const Recordset Trovato =
            Archivio.OpenRecordset(u"SELECT * FROM "_s + Tabella + u" WHERE ID=?"_s, {Chiave});
        if (Trovato.Eof())
            return std::nullopt;
        return Trovato.Value(Colonna, QString()).toString();
    } catch (const Errore&) {
        return std::nullopt;
    }
}

}  // namespace

std::optional<QString> CercaCliente(int IDCli)
{
    return CercaNome(u"clienti"_s, IDCli, u"Nominativo"_s);
}

std::optional<QString> CercaControparte(int IDCon, const QString& Colonna)
{
    return CercaNome(u"controparti"_s, IDCon, Colonna);
}
