#include "feenote/einvoice/codici.h"

#include "feenote/codicifattura.h"

#include <QList>

#include <algorithm>
#include <array>

namespace {

constexpr std::array Tipi{
    VoceCodificata{codici::Fattura, u"Fattura"},
    VoceCodificata{u"TD06", u"Parcella"},
    VoceCodificata{codici::NotaDiCredito, u"Nota di credito"},
};

constexpr std::array Modalita{
    VoceCodificata{codici::Bonifico, u"Bonifico"},
    VoceCodificata{u"MP01", u"Contanti"},
    VoceCodificata{u"MP02", u"Assegno"},
    VoceCodificata{u"MP03", u"Assegno circolare"},
    VoceCodificata{u"MP08", u"Carta di pagamento"},
    VoceCodificata{u"MP22", u"Trattenuta su somme riscosse"},
    VoceCodificata{u"MP23", u"PagoPA"},
};

constexpr std::array Nature{
    VoceCodificata{codici::FuoriTerritorio, u"Fuori campo per territorialità"},
    VoceCodificata{codici::NonSoggetta, u"Non soggetta, altri casi"},
    VoceCodificata{codici::DichiarazioneIntento, u"Non imponibile, dichiarazione d'intento"},
    VoceCodificata{codici::Esente, u"Esente"},
};

constexpr QStringView Nazioni = u"AD AE AF AG AI AL AM AO AQ AR AS AT AU AW AX AZ BA BB BD BE BF BG BH BI BJ "
                                u"BL BM BN BO BQ BR BS BT BV BW "
                                "BY BZ CA CC CD CF CG CH CI CK CL CM CN CO CR CU CV CW CX CY CZ DE DJ DK DM "
                                "DO DZ EC EE EG EH ER ES ET FI FJ "
                                "FK FM FO FR GA GB GD GE GF GG GH GI GL GM GN GP GQ GR GS GT GU GW GY HK HM "
                                "HN HR HT HU ID IE IL IM IN IO IQ "
                                "IR IS IT JE JM JO JP KE KG KH KI KM KN KP KR KW KY KZ LA LB LC LI LK LR LS "
                                "LT LU LV LY MA MC MD ME MF MG MH "
                                "MK ML MM MN MO MP MQ MR MS MT MU MV MW MX MY MZ NA NC NE NF NG NI NL NO NP "
                                "NR NU NZ OM PA PE PF PG PH PK PL "
                                "PM PN PR PS PT PW PY QA RE RO RS RU RW SA SB SC SD SE SG SH SI SJ SK SL SM "
                                "SN SO SR SS ST SV SX SY SZ TC TD "
                                "TF TG TH TJ TK TL TM TN TO TR TT TV TW TZ UA UG UM US UY UZ VA VC VE VG VI "
                                "VN VU WF WS XK YE YT ZA ZM ZW";
constexpr QStringView Unione =
    u"AT BE BG CY CZ DE DK EE ES FI FR GR HR HU IE IT LT LU LV MT NL PL PT RO SE SI SK";

bool Contiene(QStringView Elenco, QStringView Sigla)
{
    const auto Parole = Elenco.split(u' ');
    return std::ranges::find(Parole, Sigla) != Parole.end();
}

}  // namespace

std::span<const VoceCodificata> TipiFattura()
{
    return Tipi;
}

std::span<const VoceCodificata> ModalitaPagamento()
{
    return Modalita;
}

std::span<const VoceCodificata> NatureSenzaIva()
{
    return Nature;
}

bool RegimeSenzaIva(QStringView Regime)
{
    return Regime == regimi::Forfettario || Regime == regimi::Minimi || Regime == regimi::Franchigia;
}

bool NazioneEsistente(QStringView Sigla)
{
    return Contiene(Nazioni, Sigla);
}

bool NazioneDellUnione(QStringView Sigla)
{
    return Contiene(Unione, Sigla);
}

QString ConNome(std::span<const VoceCodificata> Voci, QStringView Codice)
{
    const auto Voce = std::ranges::find(Voci, Codice, &VoceCodificata::Codice);
    return Voce == Voci.end() ? Codice.toString() : Voce->Codice.toString() + u' ' + Voce->Nome.toString();
}
