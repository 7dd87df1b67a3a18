#include "calculators/modCodFis.h"

#include "core/modControlli.h"

using namespace Qt::StringLiterals;

namespace {

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
                           codfis::LettereMesi[DataNascita.month() - 1] +
                           DueCifre(DataNascita.day() + (Donna ? codfis::GiornoDonne : 0)) + CodiceComune;
    return Codice + ControlloCodFis(Codice);
}
