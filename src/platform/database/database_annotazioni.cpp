// What the program keeps in a file beside its tables: the number of its kind, and values in a table of the
// engine's own kind.
#include "platform/database/database.h"

#include "platform/base/errore.h"
#include "platform/database/connessione.h"

using namespace Qt::StringLiterals;

namespace {

/// A file of another origin may hold anything under that name: more than these is nothing of the program's.
constexpr int MassimeVoci = 1000;
/// Bytes of all the values together.
constexpr qsizetype MassimoTesto = qsizetype(64) << 20;

enum class FormaTabella {
    Manca,
    Altrui,
    Leggibile,  ///< a newer version may keep more beside each value
    Propria,
};

/// What stands under the name of the annotations. A view of that name is code chosen by the file, and is not
/// run; nor is a column that the engine reckons, whose values may be as long as the file likes.
FormaTabella FormaAnnotazioni(const Connessione& Conn)
{
    Istruzione Tabella(
        Conn,
        u"SELECT type='table' AND rootpage>0 FROM sqlite_schema WHERE name='_Calcanova' COLLATE NOCASE"_s);
    if (!Tabella.Avanza())
        return FormaTabella::Manca;
    if (Tabella.Intero(0) == 0)
        return FormaTabella::Altrui;
    Istruzione Colonne(Conn, u"SELECT lower(name), hidden FROM pragma_table_xinfo('_Calcanova')"_s);
    int Tutte = 0;
    int Sue = 0;
    while (Colonne.Avanza()) {
        const QString Nome = Colonne.Testo(0);
        ++Tutte;
        Sue += Colonne.Intero(1) == 0 && (Nome == u"nome" || Nome == u"valore");
    }
    if (Sue != 2)
        return FormaTabella::Altrui;
    return Tutte == 2 ? FormaTabella::Propria : FormaTabella::Leggibile;
}

QString SqlTabellaAnnotazioni()
{
    return u"CREATE TABLE IF NOT EXISTS \"_Calcanova\" (Nome TEXT PRIMARY KEY, Valore TEXT) WITHOUT ROWID"_s;
}

/// Makes the table of the annotations where there is none. @throws Errore 1000 it is another program's
void PreparaTabella(Connessione& Conn)
{
    const FormaTabella Trovata = FormaAnnotazioni(Conn);
    if (Trovata == FormaTabella::Manca)
        Conn.Esegui(SqlTabellaAnnotazioni());
    else if (Trovata != FormaTabella::Propria)
        throw Errore(errori::Imprevisto, u"Nel file un altro programma tiene dati suoi"_s);
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
    const FormaTabella Trovata = FormaAnnotazioni(*Conn);
    if (Trovata != FormaTabella::Propria && Trovata != FormaTabella::Leggibile)
        return Lette;
    Istruzione Righe(*Conn, u"SELECT Nome, Valore FROM \"_Calcanova\" LIMIT %1"_s.arg(MassimeVoci));
    qsizetype Byte = 0;
    while (Righe.Avanza()) {
        Byte += Righe.Byte(0) + Righe.Byte(1);
        if (Byte > MassimoTesto)
            throw Errore(errori::RecordGrande, u"I dati che il programma conserva nel file sono troppi"_s);
        Lette.insert(Righe.Testo(0), Righe.Testo(1));
    }
    return Lette;
}

void Database::Annota(const QMap<QString, QString>& Valori) const
{
    Blocco Tutto(PerScrivere());
    PreparaTabella(*Conn);
    Conn->Esegui(u"DELETE FROM \"_Calcanova\""_s);
    for (auto Voce = Valori.begin(); Voce != Valori.end(); ++Voce)
        Conn->Esegui(u"INSERT INTO \"_Calcanova\" VALUES (?,?)"_s, {Voce.key(), Voce.value()});
    Tutto.Conferma();
}

void Database::RitoccaAnnotazioni(const QStringList& Nomi, const QMap<QString, QString>& Valori) const
{
    Blocco Tutto(PerScrivere());
    PreparaTabella(*Conn);
    for (const QString& Nome : Nomi) {
        if (const auto Valore = Valori.constFind(Nome); Valore != Valori.constEnd())
            Conn->Esegui(u"INSERT OR REPLACE INTO \"_Calcanova\" (Nome, Valore) VALUES (?,?)"_s,
                         {Nome, *Valore});
        else
            Conn->Esegui(u"DELETE FROM \"_Calcanova\" WHERE Nome=?"_s, {Nome});
    }
    Tutto.Conferma();
}
