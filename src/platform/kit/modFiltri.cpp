#include "platform/kit/modFiltri.h"

#include "platform/system/shell.h"

#include <QChar>

using namespace Qt::StringLiterals;

namespace {

bool Contiene(const QString& Lista, int Tasto)
{
    const auto Carattere = static_cast<char32_t>(Tasto);
    return Lista.contains(QString::fromUcs4(&Carattere, 1));
}

/// The characters that a type lets in; nothing for a single character that names no type.
QString Ammessi(const QString& Tipo)
{
    if (Tipo == u"d")
        return u"1234567890/-"_s;
    if (Tipo == u"n")
        return u"1234567890-"_s;
    if (Tipo == u",")
        return u"1234567890-,."_s;
    return Tipo.size() >= 2 ? Tipo : QString();
}

}  // namespace

int FiltroTasti(int Tasto, const QString& Tipo)
{
    switch (Tasto) {
    case TastoInvio:
        ProssimoCampo();
        return 0;
    case TastoEsc:
    case TastoBackspace:
    case 0:
        return Tasto;
    default:
        return Tipo.isEmpty() || Contiene(Ammessi(Tipo), Tasto) ? Tasto : 0;
    }
}

int FiltroCaratteri(int Tasto, const QString& Lista, bool InvioTab)
{
    if (Tasto == TastoInvio && InvioTab)
        ProssimoCampo();
    const bool Passa = Tasto == 0 || Tasto == TastoBackspace || Lista.isEmpty() || Contiene(Lista, Tasto);
    return Passa ? Tasto : 0;
}
