#include "feenote/modRighe.h"

#include "feenote/parcella.h"
#include "platform/base/regionale.h"

int RowIns(const Parcella& Nota, TipoRiga Tipo, std::optional<int> Corrente)
{
    const bool Ultima = Tipo == TipoRiga::Diritti ? Nota.InsUltimaDir : Nota.InsUltimaOno;
    const TabellaRighe& Tabella = Tipo == TipoRiga::Diritti ? Nota.xDiritti : Nota.xOnorari;
    const int Dopo = Tabella.UpperBound(1) + 1;
    if (Ultima || !Corrente)
        return Dopo;
    return std::clamp(*Corrente, 0, Dopo);
}

double ArrotondaRiga(double Euro, int Decimali)
{
    constexpr int ConCentesimi = 2;
    return Decimali == ConCentesimi ? Arrotonda2(Euro) : Round(Euro, Decimali);
}

double SommaColonna(const TabellaRighe& Tabella, int Colonna)
{
    double Somma = 0.0;
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga)
        Somma += NumeroDi(Tabella(Riga, Colonna));
    return Somma;
}

QString TestoImporto(double Euro)
{
    return Format(Euro, u"#,##0.00;-#,##0.00;0");
}
