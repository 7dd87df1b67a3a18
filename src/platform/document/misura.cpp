#include "platform/document/misura.h"

#include "platform/base/errore.h"
#include "platform/base/segni.h"

#include <QString>

#include <algorithm>

using namespace Qt::StringLiterals;

double CentimetriDi(QStringView Misura)
{
    const QStringView Tutta = Misura.trimmed();
    const auto FineNumero = std::find_if_not(Tutta.begin(), Tutta.end(),
                                             [](QChar C) { return ECifra(C) || C == u'.' || C == u','; });
    const QString Cifre = Tutta.first(FineNumero - Tutta.begin()).toString().replace(u',', u'.');
    const QString Unita = Tutta.sliced(FineNumero - Tutta.begin()).trimmed().toString().toLower();

    bool Riuscito = false;
    const double Numero = Cifre.toDouble(&Riuscito);  // two decimal signs or no digit make none
    if (!Riuscito)
        throw Errore(errori::Tipo);
    if (Unita == "cm"_L1)
        return Numero;
    if (Unita == "mm"_L1)
        return Numero / 10.0;
    if (Unita == "in"_L1)
        return Numero * CmPerPollice;
    if (Unita.isEmpty())
        return Numero / TwipPerPollice * CmPerPollice;
    throw Errore(errori::Tipo);
}
