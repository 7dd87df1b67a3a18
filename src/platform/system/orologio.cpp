#include "platform/system/orologio.h"

#include <utility>

namespace {

std::function<QDateTime()>& Fonte()
{
    static std::function<QDateTime()> Installata;
    return Installata;
}

}  // namespace

QDateTime Adesso()
{
    return Fonte() ? Fonte()() : QDateTime::currentDateTime();
}

QDate Oggi()
{
    return Adesso().date();
}

std::function<QDateTime()> InstallaOrologio(std::function<QDateTime()> Nuovo)
{
    return std::exchange(Fonte(), std::move(Nuovo));
}
