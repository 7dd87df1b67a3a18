#include "calculators/modCodFis.h"

#include "core/modControlli.h"

#include <QStringView>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView Mesi = u"ABCDEHLMPRST";
constexpr QStringView PostiDispari = u"B1A0KKPPLLC2QQD3RRE4VVOOSSF5TTG6UUH7MMI8NNJ9WWZZYYXX";
constexpr QStringView PostiPari = u"A0B1C2D3E4F5G6H7I8J9KKLLMMNNOOPPQQRRSSTTUUVVWWXXYYZZ";
constexpr QStringView Controllo = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ";
static_assert(PostiDispari.size() == 2 * Controllo.size() && PostiPari.size() == PostiDispari.size());

constexpr int PostiControllati = 15;
constexpr int GiornoDonne = 40;
/// A character in no table: its place -1, masked with 32766, halved.
constexpr int ValoreIgnoto = (-1 & 32766) / 2;
static_assert(ValoreIgnoto == 16383);

int ValoreCarattere(QChar Carattere, bool Dispari)
{
    const qsizetype Posto = (Dispari ? PostiDispari : PostiPari).indexOf(Carattere);
    return Posto < 0 ? ValoreIgnoto : int(Posto) / 2;
}

QString DueCifre(int Numero)
{
    return u"%1"_s.arg(Numero, 2, 10, QChar(u'0'));
}

}  // namespace

QChar ControlloCodFis(const QString& Codice)
{
    int Somma = 0;
    for (qsizetype i = 0; i < std::min<qsizetype>(Codice.size(), PostiControllati); ++i)
        Somma += ValoreCarattere(Codice[i], i % 2 == 0);  // the first place is an odd one
    return Controllo[Somma % Controllo.size()];
}

QString CalcoloCodFis(const QString& Cognome, const QString& Nome, const QDate& DataNascita,
                      const QString& Sesso, const QString& CodiceComune)
{
    const bool Donna = Sesso.compare(u"F", Qt::CaseInsensitive) == 0;
    const QString Codice = SiglaCognome(Cognome) + SiglaNome(Nome) + DueCifre(DataNascita.year() % 100) +
                           Mesi[DataNascita.month() - 1] +
                           DueCifre(DataNascita.day() + (Donna ? GiornoDonne : 0)) + CodiceComune;
    return Codice + ControlloCodFis(Codice);
}
