// What is open, in words.
#include "feenote/finder/scadenzario.h"

#include "platform/base/regionale.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString Euro(double Valore)
{
    return Format(Valore, u"#,##0.00");
}

/// "1 parcella", "2 parcelle".
QString Quante(int Note)
{
    return Format(Note, u"#,##0") + (Note == 1 ? u" parcella"_s : u" parcelle"_s);
}

}  // namespace

QString FraseAperto(const ApertoCliente& Somma)
{
    return Euro(Somma.Aperto) + u" in "_s + Quante(Somma.Note);
}

QString FraseAperto(const ApertoTutto& Somma)
{
    constexpr qsizetype MassimiClienti = 12;  // no line is longer
    if (Somma.Note == 0 && Somma.Ignote > 0)
        return u"Aperto non noto: "_s + Quante(Somma.Ignote) + u" senza importo"_s;
    QStringList Parti{u"Aperto: "_s + Euro(Somma.Aperto) + u" in "_s + Quante(Somma.Note)};
    if (Somma.Ignote > 0)
        Parti += Quante(Somma.Ignote) + u" senza importo noto"_s;
    if (Somma.Copie > 0)
        Parti += Somma.Copie == 1 ? u"1 copia non contata"_s
                                  : Format(Somma.Copie, u"#,##0") + u" copie non contate"_s;
    for (const ApertoCliente& Uno : Somma.Clienti.first(std::min(MassimiClienti, Somma.Clienti.size())))
        Parti += (Uno.Cliente.isEmpty() ? u"senza cliente"_s : Uno.Cliente) + u' ' + Euro(Uno.Aperto);
    return Parti.join(u"; "_s);
}
