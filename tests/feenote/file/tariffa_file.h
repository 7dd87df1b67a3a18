// What the tests of notes under D.m. 55/2014 in their files share.
#pragma once

#include "file_prova.h"

#include "feenote/modVariazione.h"
#include "feenote/tariffa_prova.h"

constexpr int Telematici = 101;

/// A court at 30.000 euro, an increase, three parties, an amount of the user's own.
inline Parcella NotaScritta()
{
    Parcella Nota = Nota55(CategCivile, IDTribunale55, QStringLiteral("30000"));
    Nota.txtCliente.Testo = QStringLiteral("Rossi Mario");
    ScegliAumRid(Nota, Telematici);
    CambiaTestoAumRid(Nota, QStringLiteral("20"));
    LasciaAumRid(Nota);
    CaricaParti(Nota, 3);
    Catalogo Voci;
    EntraOnorari(Nota, Voci);
    Nota.xOnorari(1, OnoImporto) = 1234.56;
    return Nota;
}

inline QString Salvata(const Studio& Ufficio, const Parcella& Nota)
{
    const QString File = Ufficio.File(QStringLiteral("nota.mdb"));
    ScriviNota(File, Nota);
    return File;
}
