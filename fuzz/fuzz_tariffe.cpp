// The reference database of the tariff: lists, catalogues and the formulas in their cells.
#include "basedati.h"
#include "fonte.h"

#include "core/sessione.h"
#include "feenote/modNuovaParcella.h"
#include "feenote/modParametri.h"
#include "feenote/parcella.h"
#include "tariffs/modEvaluate.h"
#include "tariffs/modTariffe.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int MassimeRighe = 60;

void Sfoglia(const Catalogo& Aperto)
{
    int Viste = 0;
    for (Recordset Voci = Aperto.datOno; !Voci.Eof() && Viste < MassimeRighe; Voci.MoveNext(), ++Viste)
        for (const QString& Estremo : {u"Min"_s, u"Max"_s, u"Med"_s}) {
            Riesce([&] { Pretendi(std::isfinite(ImportoCatalogo(Voci, 1, Estremo))); });
            Riesce([&] {
                int Codice = 0;
                Pretendi(std::isfinite(ValutaEspressione(FormulaCatalogo(Voci, 1, Estremo), 5000.0, Codice)));
            });
        }
    Viste = 0;
    for (Recordset Voci = Aperto.datDir; !Voci.Eof() && Viste < MassimeRighe; Voci.MoveNext(), ++Viste)
        (void)Voci.Value(u"DescrDir"_s);
}

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    static const QByteArray Sana = Contenuto(CartellaCostruita() + u"parcelle.mdb"_s);
    sessione::PercorsoProg = CartellaDiLavoro();
    (void)PosaDatabase(u"parcelle.mdb"_s, Sana, Dati);
    for (const QStringView Categ : {Civile, Penale, Stragiudiziale}) {
        const QString Codice = Categ.toString();
        (void)LeggiAutorita(Dm140, Codice);
        Pretendi(LeggiScaglioni(Dm140, Codice).Voci.size() <= MassimoScaglioni);
        Riesce([&] { (void)LeggiCompatib(Dm140, 1, Codice); });
        Riesce([&] { Sfoglia(ApriCatalogo(Dm140, Codice, 1)); });
        Riesce([&] { (void)LeggiChiaviPrecedenti(Dm140, Codice); });
    }
    Riesce([&] { (void)ApriDirittiValori(Dm140); });
    Riesce([&] { (void)HaChiaviPrecedenti(Dm140); });
    // A note on these lists, as its window fills it.
    Riesce([&] {
        Parcella Nota;
        NuovaParcella(Nota);
        for (int Categoria = 0; Categoria < 3; ++Categoria) {
            CambiaCategoria(Nota, Categoria);
            if (!Nota.ListaAutorita.isEmpty())
                CambiaAutorita(Nota, 0);
            if (!Nota.ListaScaglioni.isEmpty())
                (void)CambiaScaglione(Nota, 0);
        }
        (void)CheckAutorCompatib(Nota);
        (void)TestoDatiBase(Nota);
    });
    sessione::PercorsoProg = CartellaCostruita();
}

}  // namespace

BERSAGLIO(fuzz_tariffe, Prova);
