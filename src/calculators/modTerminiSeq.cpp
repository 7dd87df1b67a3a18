#include "calculators/modTerminiSeq.h"

#include "core/modTesti.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array Memorie{
    Anello{30, u"  1° termine (30 giorni):  "},
    Anello{30, u"  2° termine (30 giorni):  "},
    Anello{20, u"  3° termine (20 giorni):  "},
};
constexpr std::array Conclusionali{
    Anello{60, u"  1° termine (60 giorni):  "},
    Anello{20, u"  2° termine (20 giorni):  "},
};
constexpr std::array TabellaArticoli{
    ArticoloTermini{183, u"Art. 183, 6° co. cpc (deposito memorie)", Memorie},
    ArticoloTermini{190, u"Art. 190 cpc (deposito conclusionale e repliche)", Conclusionali},
};

std::span<const Anello> Catena(int Articolo)
{
    if (Articolo < 0 || Articolo >= int(TabellaArticoli.size()))
        throw Errore(errori::Indice);
    return TabellaArticoli[size_t(Articolo)].Catena;
}

}  // namespace

std::span<const ArticoloTermini> Articoli()
{
    return TabellaArticoli;
}

std::optional<Mancanza<CampoTermine>> DifettoUdienza(const QString& Udienza)
{
    const QString Testo = SenzaSecolo(Udienza);
    if (Testo == u"__/__/__")
        return Mancanza{u"Non è stata specificata la Data udienza!"_s, CampoTermine::Decorrenza};
    if (!IsDate(Testo))
        return Mancanza{u"La Data udienza indicata non è valida!"_s, CampoTermine::Decorrenza};
    return std::nullopt;
}

QList<ScadenzaAnello> CalcolaSequenza(const QString& Udienza, int Articolo, OpzioniTermine Opzioni)
{
    Opzioni.Libero = Opzioni.Antecedente = false;
    ContoTermine Conto;
    Conto.Opzioni = Opzioni;
    Conto.DataCorrente = CDate(SenzaSecolo(Udienza));
    QList<ScadenzaAnello> Scadenze;
    for (const Anello& Termine : Catena(Articolo)) {
        Conto.Prorogato = Conto.SettembreSospeso = false;
        ContaTermine(Conto, Termine.Giorni, TipoGiorni);
        Scadenze.append({Conto.DataCorrente, Conto.Prorogato, Conto.SettembreSospeso});
    }
    return Scadenze;
}

bool SettembreSospeso(const QList<ScadenzaAnello>& Scadenze)
{
    return std::ranges::any_of(Scadenze, &ScadenzaAnello::SettembreSospeso);
}

QString TestoSequenza(int Articolo, const QList<ScadenzaAnello>& Scadenze)
{
    const std::span<const Anello> Anelli = Catena(Articolo);
    const QString ACapo = u"\r\n"_s;
    QStringList Righe;
    for (qsizetype i = 0; i < std::min(Scadenze.size(), qsizetype(Anelli.size())); ++i)
        Righe << Anelli[size_t(i)].Didascalia.toString() + DataLunga(Scadenze[i].Data) +
                     (Scadenze[i].Prorogata ? u" (Posticipato)"_s : QString());
    return ACapo + Righe.join(ACapo + ACapo);
}
