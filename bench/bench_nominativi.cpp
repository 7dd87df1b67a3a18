// The names that the client box of a note offers while one is typed, out of the archive of a large office.
#include "archiviogrande.h"
#include "misura.h"

#include "addressbook/elenconomi.h"
#include "core/sessione.h"

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

const ElencoNomi& Nomi(int Quanti)
{
    static std::map<int, ElencoNomi> Letti;
    const auto [Posto, Nuovo] = Letti.try_emplace(Quanti, u"clienti"_s);
    if (Nuovo) {
        sessione::ArchivioCliCon = ArchivioGrande(Quanti);
        Posto->second.Segui();
        while (Posto->second.Avanza()) {
        }
    }
    return Posto->second;
}

/// The slowest key of the names that are typed.
double Tasto(int Quanti)
{
    constexpr int VociOfferte = 50;
    const ElencoNomi& Letti = Nomi(Quanti);
    double Peggiore = 0.0;
    for (const QString& Testo : {u"ros"_s, u"ross"_s, u"rossi mar"_s, u"nic"_s, u"nicolo"_s, u"ari"_s,
                                 u"mario ross"_s, u"de luca carla 12"_s, u"nessuno"_s})
        Peggiore = std::max(Peggiore,
                            MedianaMs(3, [&] { Consuma(double(Letti.Proponi(Testo, VociOfferte).size())); }));
    return Peggiore;
}

/// The longest piece of the reading, for which a key may have to wait.
double Pezzo(int Quanti)
{
    sessione::ArchivioCliCon = ArchivioGrande(Quanti);
    ElencoNomi Elenco(u"clienti"_s);
    Elenco.Segui();
    double Peggiore = 0.0;
    for (bool Ancora = true; Ancora;)
        Peggiore = std::max(Peggiore, DurataMs([&] { Ancora = Elenco.Avanza(); }));
    return Peggiore;
}

constexpr int Centomila = 100'000;
constexpr int Milione = 1'000'000;
const RegistraMisura TastoCentomila(u"client box: a key, 100,000 names"_s, 50.0,
                                    [] { return Tasto(Centomila); });
const RegistraMisura TastoMilione(
    u"client box: a key, 1,000,000 names"_s, 50.0, [] { return Tasto(Milione); }, 115.0);
const RegistraMisura PezzoMilione(
    u"client box: while 1,000,000 names are read, the longest wait"_s, 50.0, [] { return Pezzo(Milione); },
    125.0);

}  // namespace
