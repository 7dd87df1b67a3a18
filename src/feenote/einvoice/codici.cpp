#include "feenote/einvoice/codici.h"

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

QString ConNome(std::span<const VoceCodice> Voci, QStringView Codice)
{
    const auto Voce = std::ranges::find(Voci, Codice, &VoceCodice::Codice);
    return Voce == Voci.end() ? Codice.toString() : Voce->Codice.toString() + u' ' + Voce->Nome.toString();
}
