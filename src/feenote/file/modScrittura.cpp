#include "feenote/file/modScrittura.h"

#include "feenote/file/colonne.h"
#include "feenote/file/memorianota.h"

using namespace Qt::StringLiterals;

namespace {

void ScriviParam(const Database& File, const Parcella& Nota)
{
    Recordset Param = File.OpenRecordset(TabellaParam.toString());
    Param.AddNew();
    for (const ColonnaParam& Colonna : ColonneParam())
        Param.ImpostaValue(Colonna.Nome.toString(), Colonna.Scrivi(Nota));
    Param.Update();
}

/// @param Genere "O" or "D" for a line, empty for a payment
void ScriviLinee(Recordset& Righe, const TabellaRighe& Tabella, std::span<const ColonnaLinea> Colonne,
                 CellaDi Cella, const QString& Genere)
{
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        Righe.AddNew();
        if (!Genere.isEmpty())
            Righe.ImpostaValue(u"OnoDir"_s, Genere);
        for (const ColonnaLinea& Colonna : Colonne) {
            const CellaNota& Come = Colonna.*Cella;
            if (Come.Forma != FormaCella::Assente)
                Righe.ImpostaValue(Colonna.Nome.toString(),
                                   CellaPerFile(Colonna, Come, Tabella(Riga, Come.Colonna)));
        }
        Righe.Update();
    }
}

}  // namespace

void ScriviDati(const Database& File, const Parcella& Nota)
{
    Transazione Insieme(File);
    ScriviParam(File, Nota);
    Recordset Righe = File.OpenRecordset(TabellaRigheNota.toString());
    ScriviLinee(Righe, Nota.xOnorari, ColonneRighe(), &ColonnaLinea::Prima, u"O"_s);
    ScriviLinee(Righe, Nota.xDiritti, ColonneRighe(), &ColonnaLinea::Seconda, u"D"_s);
    Recordset Acconti = File.OpenRecordset(TabellaAccontiNota.toString());
    ScriviLinee(Acconti, Nota.xAcconti, ColonneAcconti(), &ColonnaLinea::Prima, {});
    ScriviMemoria(File, Nota);
    File.ImpostaSpecie(SpecieNota);
    Insieme.Conferma();
}
