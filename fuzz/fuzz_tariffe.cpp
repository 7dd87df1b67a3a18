// The reference databases of the tariffs: lists, catalogues, the formulas in their cells, the variations.
#include "basedati.h"
#include "fonte.h"

#include "core/sessione.h"
#include "feenote/modCambioTariffa.h"
#include "feenote/modNuovaParcella.h"
#include "feenote/modParametri.h"
#include "feenote/parcella.h"
#include "tariffs/modEvaluate.h"
#include "tariffs/modTariffe.h"
#include "tariffs/variazioni.h"

#include <QFile>

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

/// Everything that is asked of one decree's database, spoilt as the input says.
void ProvaTariffa(const Decreto& Legge, const QByteArray& Sana, const QByteArray& Dati)
{
    (void)PosaDatabase(Legge.File.toString(), Sana, Dati);
    for (const QStringView Categ : {Civile, Penale, Stragiudiziale}) {
        const QString Codice = Categ.toString();
        (void)LeggiAutorita(Legge, Codice);
        Pretendi(LeggiScaglioni(Legge, Codice).Voci.size() <= MassimoScaglioni);
        const VariazioniLette Variazioni = LeggiVariazioni(Legge, Codice);
        for (const OpzioneAumRid& Opzione : Variazioni.Opzioni.value_or(QList<OpzioneAumRid>()))
            Pretendi(std::isfinite(Opzione.Esatto));
        Riesce([&] { (void)LeggiCompatib(Legge, 1, Codice); });
        Riesce([&] { Sfoglia(ApriCatalogo(Legge, Codice, 1)); });
        Riesce([&] { Sfoglia(ApriCatalogo(Legge, Codice, 102)); });
        Riesce([&] { (void)LeggiChiaviPrecedenti(Legge, Codice); });
        for (const GenereComune Genere : {GenereComune::Ufficio, GenereComune::Voce})
            Riesce([&] { (void)LeggiCorrispondenze(Dm140, Dm55, Codice, Genere); });
    }
    Riesce([&] { (void)ApriDirittiValori(Legge); });
    Riesce([&] { (void)HaChiaviPrecedenti(Legge); });
    // A note on these lists, as its window fills it.
    Riesce([&] {
        Parcella Nota;
        NuovaParcella(Nota);
        PortaSuTariffa(Nota, Legge);
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
    QFile::remove(CartellaDiLavoro() + Legge.File.toString());
}

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    static const QList<QByteArray> Sane = [] {
        QList<QByteArray> Lette;
        for (const Decreto* Legge : Decreti)
            Lette += Contenuto(CartellaCostruita() + Legge->File.toString());
        return Lette;
    }();
    sessione::PercorsoProg = CartellaDiLavoro();
    for (size_t i = 0; i < Decreti.size(); ++i)
        ProvaTariffa(*Decreti[i], Sane[qsizetype(i)], Dati);
    sessione::PercorsoProg = CartellaCostruita();
}

}  // namespace

BERSAGLIO(fuzz_tariffe, Prova);
