#include "core/dannoricordato.h"

#include "core/parametri.h"
#include "platform/base/errore.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView ParolaPerse = "perse";

/// Larger than both words that it ever holds.
constexpr qint64 MassimoNota = 64;

QString FileDelDanno()
{
    return PercorsoImpostazioni(NomeApplicazione.toString()) + u".danno"_s;
}

/// What the note says; nothing where it cannot be read.
std::optional<DannoImpostazioni> DannoLetto()
{
    const QString File = FileDelDanno();
    if (!EsisteFile(File))
        return DannoImpostazioni::Nessuno;
    try {
        return LeggiFile(File, MassimoNota).trimmed() == ParolaPerse ? DannoImpostazioni::Perse
                                                                     : DannoImpostazioni::FuoriPortata;
    } catch (const Errore&) {
        return std::nullopt;
    }
}

}  // namespace

DannoImpostazioni DannoDi(const DepositoGuasto& Guasto)
{
    return Guasto.Genere == GuastoDeposito::Vuoto || Guasto.Genere == GuastoDeposito::Rovinato
               ? DannoImpostazioni::Perse
               : DannoImpostazioni::FuoriPortata;
}

DannoImpostazioni DannoRicordato()
{
    // A note that nobody can read may be the heavier one: to ask once too often repeats no number.
    return DannoLetto().value_or(DannoImpostazioni::Perse);
}

bool ContatorePerso(QStringView Chiave)
{
    const DannoImpostazioni Danno = DannoRicordato();
    if (Danno == DannoImpostazioni::Nessuno || !FraseImpostazioniGuaste().isEmpty())
        return false;
    if (Danno == DannoImpostazioni::FuoriPortata && !Impostazione(u"StudioNome"_s).isEmpty())
        return false;  // whether or not anybody has looked since
    return Impostazione(Chiave.toString()).trimmed().isEmpty();
}

void RicordaDanno(const DepositoGuasto& Guasto)
{
    const DannoImpostazioni Danno = DannoDi(Guasto);
    if (Danno <= DannoRicordato())
        return;
    try {
        ScriviFile(FileDelDanno(),
                   Danno == DannoImpostazioni::Perse ? ParolaPerse.toByteArray() : "fuori portata"_ba,
                   Lettori::SoloUtente);
    } catch (const Errore&) {
        // The advice was told all the same.
    }
}

QString FraseDelDannoRicordato()
{
    const std::optional<DepositoGuasto> Guasto = EsaminaImpostazioni(NomeApplicazione.toString());
    if (!Guasto) {
        DimenticaDannoPassato();
        return {};
    }
    RicordaDanno(*Guasto);
    return Guasto->Frase;
}

void DimenticaDannoPassato()
{
    if (DannoLetto() == DannoImpostazioni::FuoriPortata && !Impostazione(u"StudioNome"_s).isEmpty())
        DimenticaDanno();
}

void DimenticaDanno()
{
    ScartaFile(FileDelDanno());
}
