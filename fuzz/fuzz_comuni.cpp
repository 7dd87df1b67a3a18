// The municipalities: what completes a name while it is typed, and the names that are offered beside it.
#include "basedati.h"
#include "fonte.h"

#include "calculators/modComuni.h"

using namespace Qt::StringLiterals;

namespace {

/// Few rows in the delivered form: the whole list has eleven thousand.
const QByteArray& Sana()
{
    static const QByteArray Letta = [] {
        const QString File = CartellaDiLavoro() + u"pochi.mdb"_s;
        {
            const Database Nuovo = CreateDatabase(File);
            Nuovo.CreaTabella(u"Comuni"_s, {{u"COMU_DESCR"_s, TipoCampo::Testo, 60, {}},
                                            {u"COMU_PROV"_s, TipoCampo::Testo, 2, {}},
                                            {u"COMU_COD"_s, TipoCampo::Testo, 4, {}}});
            Nuovo.CreaIndice(u"Comuni"_s, u"COMUNI2L"_s, {u"COMU_DESCR"_s});
            for (const QString& Nome : {u"Roma"_s, u"Romagnano"_s, u"Forlì"_s, u"Milano"_s, u"Zeme"_s})
                Nuovo.Execute(u"INSERT INTO Comuni VALUES (?,?,?)"_s, {Nome, u"XX"_s, u"H501"_s});
        }
        return Contenuto(File);
    }();
    return Letta;
}

void Prova(const QByteArray& Dati)
{
    PreparaSessione();
    const QString File = PosaDatabase(u"Comuni.mdb"_s, Sana(), Dati);
    Riesce([&] {
        ArchivioComuni Archivio(File);
        for (const QString& Scritto : {u"R"_s, u"forli'"_s, u"\u00FF\u00FF"_s, u"'\"%"_s}) {
            Riesce([&] { (void)Archivio.Cerca(Scritto); });
            Riesce([&] { (void)Archivio.Trova(Scritto); });
            Riesce([&] {
                constexpr int Massimo = 12;
                Pretendi(Archivio.Proponi(Scritto, Massimo).size() <= Massimo);
            });
            CampoComune Campo;
            Campo.Testo = Scritto;
            CercaComune(Archivio, Campo);
            Pretendi(Campo.Tag == Scritto && Campo.Selezione <= int(Campo.Testo.size()));
        }
    });
}

}  // namespace

BERSAGLIO(fuzz_comuni, Prova);
