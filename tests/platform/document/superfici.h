// A surface seen by its blocks.
#pragma once

#include "platform/document/superficie.h"

#include <QStringList>

namespace superfici {

inline const Paragrafo& ParagrafoDi(const Superficie& vp, std::size_t Posto)
{
    return std::get<Paragrafo>(vp.Contenuto().Blocchi.at(Posto));
}

inline const Tabella& TabellaDi(const Superficie& vp, std::size_t Posto = 0)
{
    return std::get<Tabella>(vp.Contenuto().Blocchi.at(Posto));
}

/// The rows of text one to a line, tables as "[rows x columns]".
inline QString Ricalco(const Superficie& vp)
{
    QStringList Righe;
    for (const BloccoDocumento& Uno : vp.Contenuto().Blocchi) {
        if (const auto* Testo = std::get_if<Paragrafo>(&Uno)) {
            Righe += Testo->Testo();
            continue;
        }
        const auto& Tab = std::get<Tabella>(Uno);
        Righe += QStringLiteral("[%1 x %2]").arg(Tab.Righe.size()).arg(Tab.LarghezzeCm.size());
    }
    return Righe.join(u'|');
}

inline void ApriTabella(Superficie& vp, int Righe, int Colonne)
{
    vp.StartTable();
    vp.TableCell(AttrTabella::Righe, Righe);
    vp.TableCell(AttrTabella::Colonne, Colonne);
}

}  // namespace superfici
