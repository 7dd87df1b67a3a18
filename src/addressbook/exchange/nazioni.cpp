#include "addressbook/exchange/nazioni.h"

#include "platform/base/testopiano.h"

#include <QList>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// Names without case and accents, between blanks; what stands in them as a blank is left out.
struct Nazione
{
    QStringView Sigla;
    QStringView Nomi;
};

// The Union and the countries that are near it, or that offices write to.
constexpr std::array Nazioni{
    Nazione{u"IT", u"italia italy italie italien"},
    Nazione{u"AT", u"austria osterreich oesterreich"},
    Nazione{u"BE", u"belgio belgium belgique belgie"},
    Nazione{u"BG", u"bulgaria"},
    Nazione{u"CH", u"svizzera switzerland schweiz suisse"},
    Nazione{u"CY", u"cipro cyprus"},
    Nazione{u"CZ", u"cechia repubblicaceca czechia czechrepublic"},
    Nazione{u"DE", u"germania germany deutschland"},
    Nazione{u"DK", u"danimarca denmark danmark"},
    Nazione{u"EE", u"estonia"},
    Nazione{u"ES", u"spagna spain espana"},
    Nazione{u"FI", u"finlandia finland suomi"},
    Nazione{u"FR", u"francia france"},
    Nazione{u"GB", u"regnounito granbretagna inghilterra unitedkingdom greatbritain england uk"},
    Nazione{u"GR", u"grecia greece"},
    Nazione{u"HR", u"croazia croatia hrvatska"},
    Nazione{u"HU", u"ungheria hungary magyarorszag"},
    Nazione{u"IE", u"irlanda ireland eire"},
    Nazione{u"LI", u"liechtenstein"},
    Nazione{u"LT", u"lituania lithuania"},
    Nazione{u"LU", u"lussemburgo luxembourg luxemburg"},
    Nazione{u"LV", u"lettonia latvia"},
    Nazione{u"MC", u"monaco principatodimonaco"},
    Nazione{u"MT", u"malta"},
    Nazione{u"NL", u"paesibassi olanda netherlands holland nederland"},
    Nazione{u"NO", u"norvegia norway norge"},
    Nazione{u"PL", u"polonia poland polska"},
    Nazione{u"PT", u"portogallo portugal"},
    Nazione{u"RO", u"romania"},
    Nazione{u"SE", u"svezia sweden sverige"},
    Nazione{u"SI", u"slovenia"},
    Nazione{u"SK", u"slovacchia slovakia slovensko"},
    Nazione{u"SM", u"sanmarino repubblicadisanmarino"},
    Nazione{u"VA", u"vaticano cittadelvaticano vaticancity"},
    Nazione{u"AL", u"albania"},
    Nazione{u"RS", u"serbia"},
    Nazione{u"TR", u"turchia turkey turkiye"},
    Nazione{u"UA", u"ucraina ukraine"},
    Nazione{u"US", u"statiuniti statiunitidamerica usa unitedstates unitedstatesofamerica"},
    Nazione{u"CN", u"cina china"},
    Nazione{u"JP", u"giappone japan"},
    Nazione{u"BR", u"brasile brazil brasil"},
    Nazione{u"AR", u"argentina"},
    Nazione{u"CA", u"canada"},
    Nazione{u"AU", u"australia"},
};

}  // namespace

QString SiglaNazione(const QString& Testo)
{
    QString Nudo = TestoPiano(Testo);
    Nudo.removeIf([](QChar C) { return !C.isLetterOrNumber(); });
    if (Nudo.isEmpty())
        return Testo;
    const auto Trovata = std::ranges::find_if(
        Nazioni, [&](const Nazione& Una) { return Una.Nomi.split(u' ').contains(QStringView(Nudo)); });
    if (Trovata != Nazioni.end())
        return Trovata->Sigla.toString();
    return Nudo.size() == 2 ? Nudo.toUpper() : Testo;
}
