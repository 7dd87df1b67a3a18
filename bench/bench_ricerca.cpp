// A search that finds nothing among the names of a large office: it has to look at all of them.
#include "archiviogrande.h"
#include "misura.h"

#include "addressbook/modRicerca.h"
#include "addressbook/modScheda.h"
#include "platform/database/database.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array Operatori{UgualeA, MinoreDi, IniziaPer, TerminaPer, Contiene};

/// The slowest operator, in rows just opened or in rows that were searched before.
double SenzaEsito(int Nominativi, const QString& Ordine, bool Ancora)
{
    const Database Db = OpenDatabase(ArchivioGrande(Nominativi));
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
const RegistraMisura PrimaGrande(
    u"search: 1,000,000 names, none found"_s, 300.0, [] { return SenzaEsito(1'000'000, {}, false); }, 60.0);
const RegistraMisura OrdinatiGrande(
    u"search: 1,000,000 sorted names, none found"_s, 300.0,
    [] { return SenzaEsito(1'000'000, Ordinati, false); }, 90.0);
const RegistraMisura AncoraGrande(
    u"search: 1,000,000 sorted names, again"_s, 300.0, [] { return SenzaEsito(1'000'000, Ordinati, true); },
    80.0);

}  // namespace
