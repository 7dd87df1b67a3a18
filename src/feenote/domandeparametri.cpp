#include "feenote/domandeparametri.h"

#include "core/modErrori.h"
#include "platform/system/messaggi.h"

using namespace Qt::StringLiterals;

bool HaRighe(const Parcella& Nota)
{
    return !Nota.xOnorari.Vuota() || !Nota.xDiritti.Vuota();
}

bool ConfermaModifica(QStringList Righe)
{
    Righe += u"Confermi la modifica?"_s;
    return MsgBox(Righe.join(u'\n'), vbYesNo + vbQuestion, TitoloDomanda.toString()) == vbYes;
}

bool ConfermaRicalcolo(const QStringList& Perdite)
{
    return ConfermaModifica(
        QStringList{u"Sono state già inserite delle prestazioni e la modifica comporterà il "
                    u"ricalcolo con i nuovi parametri."_s} +
        Perdite);
}

void AvvisaPerdite(const QStringList& Perdite)
{
    if (!Perdite.isEmpty())
        MsgBox(Perdite.join(u'\n'), vbInformation, TitoloMessaggio.toString());
}
