#include "core/modRegimi.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array Regimi{
    VoceCodificata{regimi::Ordinario, u"Ordinario"},
    VoceCodificata{regimi::Forfettario, u"Forfettario"},
    VoceCodificata{regimi::Minimi, u"Contribuenti minimi"},
    VoceCodificata{u"RF04", u"Agricoltura, attività connesse e pesca"},
    VoceCodificata{u"RF05", u"Vendita di sali e tabacchi"},
    VoceCodificata{u"RF06", u"Commercio dei fiammiferi"},
    VoceCodificata{u"RF07", u"Editoria"},
    VoceCodificata{u"RF08", u"Telefonia pubblica"},
    VoceCodificata{u"RF09", u"Documenti di trasporto e di sosta"},
    VoceCodificata{u"RF10", u"Intrattenimenti e giochi"},
    VoceCodificata{u"RF11", u"Agenzie di viaggi e turismo"},
    VoceCodificata{u"RF12", u"Agriturismo"},
    VoceCodificata{u"RF13", u"Vendite a domicilio"},
    VoceCodificata{u"RF14", u"Beni usati, arte, antiquariato"},
    VoceCodificata{u"RF15", u"Vendite all'asta di arte e antiquariato"},
    VoceCodificata{regimi::CassaPubblica, u"IVA per cassa verso la P.A."},
    VoceCodificata{regimi::Cassa, u"IVA per cassa"},
    VoceCodificata{u"RF18", u"Altro"},
    VoceCodificata{regimi::Franchigia, u"Franchigia IVA transfrontaliera"},
};

constexpr std::array Tipi{
    VoceCodificata{tipostudio::Persona, u"Persona fisica"},
    VoceCodificata{tipostudio::Associazione, u"Associazione professionale"},
    VoceCodificata{tipostudio::Societa, u"Società"},
};

QString FraLeVoci(std::span<const VoceCodificata> Voci, const QString& Codice)
{
    const QString Nudo = Codice.trimmed();
    const auto Trovata = std::ranges::find_if(Voci, [&](const VoceCodificata& Voce) {
        return Voce.Codice.compare(Nudo, Qt::CaseInsensitive) == 0;
    });
    return (Trovata != Voci.end() ? *Trovata : Voci.front()).Codice.toString();
}

}  // namespace

std::span<const VoceCodificata> regimi::Voci()
{
    return Regimi;
}

QString regimi::Noto(const QString& Codice)
{
    const QString Nudo = Codice.trimmed().toUpper();
    return Nudo.isEmpty() ? Ordinario.toString() : Nudo;
}

std::span<const VoceCodificata> tipostudio::Voci()
{
    return Tipi;
}

QString tipostudio::Noto(const QString& Codice)
{
    return FraLeVoci(Tipi, Codice);
}

QString tipostudio::Ritenuta(const QString& Codice)
{
    return (Noto(Codice) == Persona ? RitenutaPersona : RitenutaAltri).toString();
}
