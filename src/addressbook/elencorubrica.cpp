#include "addressbook/elencorubrica.h"

#include "addressbook/testirubrica.h"
#include "platform/accesso/accesso.h"

ElencoRubrica ElencaRubrica(const QString& DataSource, const QString& Tabella, const QString& Testo)
{
    const Database Archivio = ApriArchivio(FileRubrica(DataSource), true);
    const Recordset Tutte = Archivio.OpenRecordset(SqlRubrica(Tabella));
    const QList<ColonnaRubrica> Colonne = ColonneRubrica(Tutte.Campi());
    ElencoRubrica Elenco;
    Elenco.Tutte = Tutte.RecordCount();
    for (const ColonnaRubrica& Colonna : Colonne)
        Elenco.Campi.append(Colonna.Nome);
    Recordset Righe = Tutte;
    if (const Filtro Parole(Testo); !Parole.Vuoto()) {
        TestiRubrica Testi;
        Testi.Imposta(Archivio, Tutte, Colonne);
        Righe = Tutte.Ristretto(Testi.Cerca(Parole));
    }
    for (; !Righe.Eof(); Righe.MoveNext()) {
        QStringList Celle;
        for (const ColonnaRubrica& Colonna : Colonne)
            Celle.append(TestoCella(Righe.Value(Colonna.Nome), Colonna));
        Elenco.Righe.append(Celle);
    }
    return Elenco;
}
