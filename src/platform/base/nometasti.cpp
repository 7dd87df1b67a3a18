#include "platform/base/nometasti.h"

#include <QStringList>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct NomeTasto
{
    QStringView Portabile;
    QStringView Italiano;
};

constexpr std::array Nomi{
    NomeTasto{u"Shift", u"Maiusc"},
    NomeTasto{u"PgUp", u"Pag su"},
    NomeTasto{u"PgDown", u"Pag giù"},
    NomeTasto{u"Del", u"Canc"},
    NomeTasto{u"Return", u"Invio"},
    NomeTasto{u"Enter", u"Invio"},
    NomeTasto{u"Space", u"Spazio"},
    NomeTasto{u"Up", u"Freccia su"},
    NomeTasto{u"Down", u"Freccia giù"},
    NomeTasto{u"Left", u"Freccia sinistra"},
    NomeTasto{u"Right", u"Freccia destra"},
    NomeTasto{u"Home", u"Inizio"},
    NomeTasto{u"End", u"Fine"},
    NomeTasto{u"Menu", u"Menu"},
};

QString NomeDi(const QString& Tasto)
{
    const auto Trovato = std::ranges::find(Nomi, QStringView(Tasto), &NomeTasto::Portabile);
    return Trovato == Nomi.end() ? Tasto : Trovato->Italiano.toString();
}

}  // namespace

QString NomeTasti(QStringView Portabili)
{
    // The last one may be "+" itself.
    const qsizetype Taglio = Portabili.isEmpty() ? -1 : Portabili.chopped(1).lastIndexOf(u'+');
    QStringList Parti;
    if (Taglio > 0)
        for (const QStringView Parte : Portabili.first(Taglio).split(u'+'))
            Parti << NomeDi(Parte.toString());
    Parti << NomeDi(Portabili.mid(Taglio + 1).toString());
    return Parti.join(u'+');
}

QString SuggerimentoConTasti(const QString& Suggerimento, QStringView Portabili)
{
    return Portabili.isEmpty() ? Suggerimento : u"%1 (%2)"_s.arg(Suggerimento, NomeTasti(Portabili));
}
