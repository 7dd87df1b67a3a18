#include "platform/base/datatesto.h"

#include "platform/base/regionale.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype LungoSenzaSecolo = 8;

}  // namespace

QString SenzaSecolo(const QString& Testo)
{
    return Testo.endsWith(u"__") ? Testo.left(LungoSenzaSecolo) : Testo;
}

QString ConSecolo(const QString& Testo)
{
    const auto Data = Testo.endsWith(u"__") ? LeggiData(SenzaSecolo(Testo)) : std::nullopt;
    return Data ? Format(*Data, u"dd/mm/yyyy") : Testo;
}
