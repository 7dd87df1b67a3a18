#include "calculators/modCodFis.h"

#include "core/modControlli.h"

#include <QStringView>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView Mesi = u"ABCDEHLMPRST";
constexpr int GiornoDonne = 40;
QString DueCifre(int Numero)
{
    return u"%1"_s.arg(Numero, 2, 10, QChar(u'0'));
}

}  // namespace

QString CalcoloCodFis(const QString& Cognome, const QString& Nome, const QDate& DataNascita,
                      const QString& Sesso, const QString& CodiceComune)
{
    const bool Donna = Sesso.compare(u"F", Qt::CaseInsensitive) == 0;
    const QString Codice = SiglaCognome(Cognome) + SiglaNome(Nome) + DueCifre(DataNascita.year() % 100) +
                           Mesi[DataNascita.month() - 1] +
                           DueCifre(DataNascita.day() + (Donna ? GiornoDonne : 0)) + CodiceComune;
    return Codice + ControlloCodFis(Codice);
}
