#include "addressbook/elencorubrica.h"

#include "addressbook/testirubrica.h"
#include "platform/accesso/accesso.h"

namespace {

/// The rows that a filter leaves of a table.
Recordset Filtrate(const Database& Archivio, const Recordset& Tutte, const QString& Testo)
{
    const Filtro Parole(Testo);
    if (Parole.Vuoto())
        return Tutte;
    TestiRubrica Testi;
    Testi.Imposta(Archivio, Tutte, ColonneRubrica(Tutte.Campi()));
    return Tutte.Ristretto(Testi.Cerca(Parole));
}

}  // namespace

Recordset RigheRubrica(const QString& DataSource, const QString& Tabella, const QString& Testo)
{
    const Database Archivio = ApriArchivio(FileRubrica(DataSource), true);
    return Filtrate(Archivio, Archivio.OpenRecordset(SqlRubrica(Tabella)), Testo);
}

ElencoRubrica ElencaRubrica(const QString& DataSource, const QString& Tabella, const QString& Testo)
{
    const Database Archivio = ApriArchivio(FileRubrica(DataSource), true);
    const Recordset Tutte = Archivio.OpenRecordset(SqlRubrica(Tabella));
    const QList<ColonnaRubrica> Colonne = ColonneRubrica(Tutte.Campi());
    ElencoRubrica Elenco;
    Elenco.Tutte = Tutte.RecordCount();
    for (const ColonnaRubrica& Colonna : Colonne)
        Elenco.Campi.append(Colonna.Nome);
    for (Recordset Righe = Filtrate(Archivio, Tutte, Testo); !Righe.Eof(); Righe.MoveNext()) {
        QStringList Celle;
        for (const ColonnaRubrica& Colonna : Colonne)
            Celle.append(TestoCella(Righe.Value(Colonna.Nome), Colonna));
        Elenco.Righe.append(Celle);
    }
    return Elenco;
}
