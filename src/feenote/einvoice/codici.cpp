#include "feenote/einvoice/codici.h"

#include <QList>

#include <algorithm>
#include <array>

namespace {

constexpr std::array Tipi{
    VoceCodice{u"TD01", u"Fattura"},
    VoceCodice{u"TD06", u"Parcella"},
    VoceCodice{u"TD04", u"Nota di credito"},
};

// The regimes in which a law office can be; those of single trades are left out.
constexpr std::array Regimi{
    VoceCodice{u"RF01", u"Ordinario"},
    VoceCodice{u"RF19", u"Forfettario (L. 190/2014)"},
    VoceCodice{u"RF02", u"Contribuenti minimi (L. 244/2007)"},
    VoceCodice{u"RF17", u"IVA per cassa (D.L. 83/2012)"},
    VoceCodice{u"RF16", u"IVA per cassa verso la P.A. (D.P.R. 633/1972, art. 6)"},
    VoceCodice{u"RF20", u"Franchigia transfrontaliera (dir. UE 2020/285)"},
    VoceCodice{u"RF18", u"Altro"},
};

constexpr std::array Modalita{
    VoceCodice{u"MP05", u"Bonifico"},
    VoceCodice{u"MP01", u"Contanti"},
    VoceCodice{u"MP02", u"Assegno"},
    VoceCodice{u"MP03", u"Assegno circolare"},
    VoceCodice{u"MP08", u"Carta di pagamento"},
    VoceCodice{u"MP22", u"Trattenuta su somme riscosse"},
    VoceCodice{u"MP23", u"PagoPA"},
};

constexpr std::array Nature{
    VoceCodice{u"N2.1", u"Fuori campo per territorialità"},
    VoceCodice{u"N2.2", u"Non soggetta, altri casi"},
    VoceCodice{u"N3.5", u"Non imponibile, dichiarazione d'intento"},
    VoceCodice{u"N4", u"Esente"},
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

std::span<const VoceCodice> TipiFattura()
{
    return Tipi;
}

std::span<const VoceCodice> RegimiFiscali()
{
    return Regimi;
}

std::span<const VoceCodice> ModalitaPagamento()
{
    return Modalita;
}

std::span<const VoceCodice> NatureSenzaIva()
{
    return Nature;
}

bool RegimeSenzaIva(QStringView Regime)
{
    return Regime == u"RF19" || Regime == u"RF02" || Regime == u"RF20";
}

bool NazioneEsistente(QStringView Sigla)
{
    return Contiene(Nazioni, Sigla);
}

bool NazioneDellUnione(QStringView Sigla)
{
    return Contiene(Unione, Sigla);
}

QString ConNome(std::span<const VoceCodice> Voci, QStringView Codice)
{
    const auto Voce = std::ranges::find(Voci, Codice, &VoceCodice::Codice);
    return Voce == Voci.end() ? Codice.toString() : Voce->Codice.toString() + u' ' + Voce->Nome.toString();
}
