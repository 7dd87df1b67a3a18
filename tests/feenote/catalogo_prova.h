// The catalogue of a note, at one of its items.
#pragma once

#include "feenote/modVariazione.h"
#include "nota_prova.h"

using namespace Qt::StringLiterals;

using Euro = QList<double>;

/// The catalogue of the note, and its item with this key current.
inline Catalogo CatalogoSu(Parcella& Nota, int Chiave)
{
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    if (!VaiAVoce(Voci, Chiave))
        QTest::qFail("voce assente dal catalogo", __FILE__, __LINE__);
    return Voci;
}
