// What tests of rich text share: its paragraphs and tables apart.
#pragma once

#include "platform/document/lettorertf.h"

#include <QString>

#include <vector>

namespace letture {

/// The paragraphs outside tables.
inline std::vector<Paragrafo> Paragrafi(const std::vector<BloccoDocumento>& Letti)
{
    std::vector<Paragrafo> Soli;
    for (const BloccoDocumento& Blocco : Letti)
        if (const auto* Singolo = std::get_if<Paragrafo>(&Blocco))
            Soli.push_back(*Singolo);
    return Soli;
}

inline std::vector<Paragrafo> ParagrafiRtf(QStringView Testo)
{
    return Paragrafi(LeggiRtf(Testo));
}

/// Texts of blocks: a paragraph ends with "|", a cell with "/", a row of a table with "#"; a covered cell is
/// left out.
inline QString Testi(const std::vector<BloccoDocumento>& Letti)
{
    QString Tutti;
    for (const BloccoDocumento& Blocco : Letti) {
        if (const auto* Singolo = std::get_if<Paragrafo>(&Blocco)) {
            Tutti += Singolo->Testo() + u'|';
            continue;
        }
        for (const std::vector<Cella>& Riga : std::get<Tabella>(Blocco).Righe) {
            for (std::size_t i = 0; i < Riga.size(); i += static_cast<std::size_t>(Riga[i].Unione))
                Tutti += Riga[i].Testo + u'/';
            Tutti += u'#';
        }
    }
    return Tutti;
}

}  // namespace letture
