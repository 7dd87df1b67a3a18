// The command of calcanova-cli that makes a native file of one of Access.
#include "cli/comandi.h"

#include "platform/accesso/accesso.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

/// Behind a dialog or a script nobody waits for a note.
constexpr int SecondiDiLettura = 120;

}  // namespace

Risposta ComandoImporta(const QStringList& Valori)
{
    const RapportoAccess Rapporto =
        ConvertiAccess(Valori[0], Valori[1],
                       {.Secondi = SecondiDiLettura, .Prosegui = [](qint64) { return true; }})
            .value();
    QStringList Testi;
    QJsonArray Tabelle;
    for (const TabellaAccess& Tabella : Rapporto.Tabelle) {
        Testi += u"%1=%2"_s.arg(Tabella.Nome).arg(Tabella.Righe);
        Tabelle.append(QJsonObject{{u"nome"_s, Tabella.Nome}, {u"righe"_s, Tabella.Righe}});
    }
    QJsonArray Tralasciati;
    for (const TralasciatoAccess& Voce : Rapporto.Tralasciati)
        Tralasciati.append(QJsonObject{{u"cosa"_s, Voce.Cosa}, {u"perche"_s, Voce.Perche}});
    return {Testi.join(u';'), {{u"tabelle"_s, Tabelle}, {u"tralasciati"_s, Tralasciati}}, false};
}
