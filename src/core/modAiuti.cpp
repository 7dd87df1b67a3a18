#include "core/modAiuti.h"

#include "core/modTesti.h"
#include "platform/base/regionale.h"
#include "platform/system/shell.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype MassimoCoppie = 100;

bool Minore(const QVariant& Primo, const QVariant& Secondo)
{
    if (ENumero(Primo) && ENumero(Secondo))
        return Primo.toDouble() < Secondo.toDouble();
    if (Primo.metaType().id() == QMetaType::QDate && Secondo.metaType().id() == QMetaType::QDate)
        return Primo.toDate() < Secondo.toDate();
    return CStr(Primo) < CStr(Secondo);
}

int VersioneNt(const VersioneSistema& Sistema)
{
    switch (Sistema.Maggiore) {
    case 5:
        return Sistema.Minore == 0 ? 5 : Sistema.Minore == 1 ? 6 : 0;
    case 6:
        return 7;
    default:
        return Sistema.Maggiore <= 4 ? 4 : 0;
    }
}

int Versione9x(const VersioneSistema& Sistema)
{
    if (Sistema.Maggiore != 4)
        return 0;
    switch (Sistema.Minore) {
    case 0:
        return 1;
    case 10:
        return 2;
    case 90:
        return 3;
    default:
        return 0;
    }
}

}  // namespace

QString LireEuroFormattato(double Lire)
{
    return Format(LireEuro(Lire), ModelloImporto);
}

QString PrimaMaiuscola(const QString& Testo)
{
    return Testo.left(1).toUpper() + Testo.mid(1).toLower();
}

int PosUltima(const QString& Testo, const QString& Cercato)
{
    return Cercato.isEmpty() ? 0 : static_cast<int>(Testo.lastIndexOf(Cercato)) + 1;
}

QVariant Massimo(const QVariant& Primo, const QVariant& Secondo)
{
    return Minore(Primo, Secondo) ? Secondo : Primo;
}

QVariant Minimo(const QVariant& Primo, const QVariant& Secondo)
{
    return Minore(Secondo, Primo) ? Secondo : Primo;
}

QList<std::pair<QString, QString>> ParseCoppie(const QString& Testo)
{
    QList<std::pair<QString, QString>> Coppie;
    for (const QString& Pezzo : Testo.split(u',', Qt::SkipEmptyParts)) {
        if (Coppie.size() == MassimoCoppie)
            break;
        const qsizetype Uguale = Pezzo.indexOf(u'=');
        Coppie.emplace_back(Pezzo.left(Uguale), Uguale < 0 ? QString() : Pezzo.mid(Uguale + 1));
    }
    return Coppie;
}

int VersioneWindows(const VersioneSistema& Sistema)
{
    if (!Sistema.Windows)
        return 0;
    return Sistema.Nt ? VersioneNt(Sistema) : Versione9x(Sistema);
}

int VersioneWindows()
{
    return VersioneWindows(LeggiVersioneSistema());
}
