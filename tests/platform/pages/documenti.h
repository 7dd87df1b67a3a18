// Documents written by hand, for the tests of layout.
#pragma once

#include "platform/document/superficie.h"

#include <QString>

namespace documenti {

using namespace Qt::StringLiterals;

inline void PreparaPagina(Superficie& vp)
{
    vp.MarginLeft(u"2cm"_s);
    vp.MarginRight(u"1.4cm"_s);
    vp.MarginTop(u"1.5cm"_s);
    vp.MarginBottom(u"3.2cm"_s);
    vp.StartDoc();
}

inline Documento Finito(Superficie& vp)
{
    vp.EndDoc();
    return vp.Contenuto();
}

inline void RigheBianche(Superficie& vp, int Quante)
{
    for (int i = 0; i < Quante; ++i)
        vp.Paragraph({});
}

/// A table of texts, a row to each list, columns as wide as told and aligned as told.
inline void ScriviTabella(Superficie& vp, const QStringList& Larghezze, const QList<Allineamento>& Allineate,
                          const QList<QStringList>& Righe)
{
    vp.StartTable();
    vp.TableCell(AttrTabella::Colonne, int(Larghezze.size()));
    vp.TableCell(AttrTabella::Righe, int(Righe.size()));
    for (int Colonna = 1; Colonna <= Larghezze.size(); ++Colonna) {
        vp.ColonnaTabella(AttrTabella::LarghezzaColonna, Colonna, Larghezze[Colonna - 1]);
        vp.ColonnaTabella(AttrTabella::Allinea, Colonna, int(Allineate[Colonna - 1]));
    }
    for (int Riga = 1; Riga <= Righe.size(); ++Riga)
        for (int Colonna = 1; Colonna <= Righe[Riga - 1].size(); ++Colonna)
            vp.CellaTabella(AttrTabella::Testo, Riga, Colonna, Righe[Riga - 1][Colonna - 1]);
    vp.EndTable();
}

/// A list as the notes have it: headings, a blank row, so many lines, rule, total.
inline void ScriviElenco(Superficie& vp, int Voci, const QString& Voce = u"Voce %1"_s)
{
    QList<QStringList> Righe{{u"ONORARI"_s, u"Importo"_s}, {}};
    for (int i = 1; i <= Voci; ++i)
        Righe.append({Voce.contains(u"%1"_s) ? Voce.arg(i) : Voce, u"%1,00"_s.arg(1000 + i)});
    Righe.append({{}, u"________"_s});
    Righe.append({{}, u"99.999,99"_s});
    ScriviTabella(vp, {u"9cm"_s, u"2cm"_s}, {Allineamento::Sinistra, Allineamento::Destra}, Righe);
}

inline QString Parole(int Quante)
{
    QStringList Tutte;
    for (int i = 0; i < Quante; ++i)
        Tutte += u"parola%1"_s.arg(i);
    return Tutte.join(u' ');
}

}  // namespace documenti
