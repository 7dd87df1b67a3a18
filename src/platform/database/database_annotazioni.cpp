// What the program keeps in a file beside its tables: the number of its kind, and values in a table of the
// engine's own kind.
#include "platform/base/errore.h"
#include "platform/database/connessione.h"

using namespace Qt::StringLiterals;

namespace {

/// A file of another origin may hold anything under that name: more than these is nothing of the program's.
constexpr int MassimeAnnotazioni = 1000;

QString SqlTabellaAnnotazioni()
{
    return u"CREATE TABLE IF NOT EXISTS \"_Calcanova\" (Nome TEXT PRIMARY KEY, Valore TEXT) WITHOUT ROWID"_s;
}

}  // namespace

int Database::Specie() const
{
    Istruzione Testa(PerLeggere(), u"PRAGMA application_id"_s);
    return Testa.Avanza() ? int(Testa.Intero(0)) : 0;
}

void Database::ImpostaSpecie(int Numero) const
{
    PerScrivere().Esegui(u"PRAGMA application_id = %1"_s.arg(Numero));
}

QMap<QString, QString> Database::Annotazioni() const
{
    QMap<QString, QString> Lette;
    const Sguardo Insieme(PerLeggere());
    try {
        // A view of that name is code chosen by the file, and is not run.
        Istruzione Tabella(
            *Conn, u"SELECT 1 FROM sqlite_schema WHERE type='table' AND rootpage>0 AND name='_Calcanova'"_s);
        if (!Tabella.Avanza())
            return Lette;
        Istruzione Righe(*Conn,
                         u"SELECT Nome, Valore FROM \"_Calcanova\" LIMIT %1"_s.arg(MassimeAnnotazioni));
        while (Righe.Avanza())
            Lette.insert(Righe.Testo(0), Righe.Testo(1));
    } catch (const Errore& Guasto) {
        if (Guasto.Numero != errori::CampoSconosciuto)  // a table of that name with other columns
            throw;
        Lette.clear();
    }
    return Lette;
}

void Database::Annota(const QMap<QString, QString>& Valori) const
{
    Blocco Tutto(PerScrivere());
    Conn->Esegui(SqlTabellaAnnotazioni());
    Conn->Esegui(u"DELETE FROM \"_Calcanova\""_s);
    for (auto Voce = Valori.begin(); Voce != Valori.end(); ++Voce)
        Conn->Esegui(u"INSERT INTO \"_Calcanova\" VALUES (?,?)"_s, {Voce.key(), Voce.value()});
    Tutto.Conferma();
}
