// Notes whose print data hold a block.
#pragma once

#include "feenote/modDatiStampa.h"
#include "feenote/modParti.h"
#include "file_prova.h"

using namespace Qt::StringLiterals;

/// Clicks of the documents one after the other, then the block written by the user in the first one.
inline Parcella ConBlocco(int Tipo, const QString& Blocco)
{
    Parcella Nota = NotaCivile();
    CambiaParte(Nota, ParteNota::Cliente, u"Rossi Mario"_s);
    Nota.IDCli = 7;  // so that the block does not go back to the first tab
    Nota.cmbTipoStampa = Tipo;
    CambiaParteStampata(Nota, ParteNota::Cliente, Blocco);
    return Nota;
}
