// A search that finds nothing among the names of a large office: it has to look at all of them.
#include "misura.h"

#include "addressbook/modRicerca.h"
#include "addressbook/modScheda.h"
#include "platform/database/database.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

QString Archivio(int Nominativi)
{
    static const QTemporaryDir Cartella;
    const QString File = Cartella.filePath(u"Nominativi %1.mdb"_s.arg(Nominativi));
    if (QFile::exists(File))
        return File;
    QFile::copy(QStringLiteral(CARTELLA_PROGRAMMA "/DatiStudio.mdb"), File);
    QFile::setPermissions(File, QFile::ReadOwner | QFile::WriteOwner);
    OpenDatabase(File).Execute(
        u"INSERT INTO clienti (Nominativo, Indirizzo, Citta, CodFis, Email) "
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<?), "
        "c(k, v) AS (VALUES (0,'Rossi'),(1,'bianchi'),(2,'D''Agostino'),(3,'Nicolò'),(4,'VERDI')) "
        "SELECT c.v || ' Mario ' || (i*7919 % 1000003), 'Via Garibaldi ' || (i % 400), 'Forlì', "
        "printf('RSSMRA%02dA01H%03dX', i % 100, i % 1000), 'mario' || i || '@esempio.it' "
        "FROM n JOIN c ON c.k = i % 5"_s,
        {Nominativi});
    return File;
}

constexpr std::array Operatori{UgualeA, MinoreDi, IniziaPer, TerminaPer, Contiene};

/// The slowest operator, in rows just opened or in rows that were searched before.
double SenzaEsito(int Nominativi, const QString& Ordine, bool Ancora)
{
    const Database Db = OpenDatabase(Archivio(Nominativi));
    double Peggiore = 0.0;
    for (const OperatoreRicerca Operatore : Operatori) {
        Recordset Righe;
        const auto Cerca = [&] {
            const Campo Nominativo = *TrovaCampo(Righe.Campi(), u"Nominativo"_s);
            // Nothing stands before a blank, and no name has this word.
            const QString Testo = Operatore == MinoreDi ? u" "_s : u"nessuno"_s;
            Consuma(CercaRiga(Righe, CriterioRicerca(Nominativo, Operatore, Testo), PassoRicerca::Primo));
        };
        QList<double> Durate;
        for (int i = 0; i < 3; ++i) {
            if (i == 0 || !Ancora) {
                Righe = Db.OpenRecordset(u"SELECT * FROM clienti"_s + Ordine);
                if (Ancora)
                    Cerca();
            }
            Durate.append(DurataMs(Cerca));
        }
        Peggiore = std::max(Peggiore, Mediana(std::move(Durate)));
    }
    return Peggiore;
}

const QString Ordinati = u" ORDER BY Nominativo DESC"_s;

const RegistraMisura PrimaPiccolo(u"search: 100,000 names, none found"_s, 50.0,
                                  [] { return SenzaEsito(100'000, {}, false); });
const RegistraMisura OrdinatiPiccolo(u"search: 100,000 sorted names, none found"_s, 50.0,
                                     [] { return SenzaEsito(100'000, Ordinati, false); });
const RegistraMisura AncoraPiccolo(u"search: 100,000 sorted names, again"_s, 50.0,
                                   [] { return SenzaEsito(100'000, Ordinati, true); });
const RegistraMisura PrimaGrande(u"search: 1,000,000 names, none found"_s, 300.0,
                                 [] { return SenzaEsito(1'000'000, {}, false); });
const RegistraMisura OrdinatiGrande(u"search: 1,000,000 sorted names, none found"_s, 300.0,
                                    [] { return SenzaEsito(1'000'000, Ordinati, false); });
const RegistraMisura AncoraGrande(u"search: 1,000,000 sorted names, again"_s, 300.0,
                                  [] { return SenzaEsito(1'000'000, Ordinati, true); });

}  // namespace
