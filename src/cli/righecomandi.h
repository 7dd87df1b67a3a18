// What the rows of the table of commands call: a command with what it takes of its options.
#pragma once

#include "cli/comandi.h"

template <Risposta (*Comando)(const QStringList&)>
Risposta DaSolo(const QStringList& Valori, const RigaComando&)
{
    return Comando(Valori);
}

inline NotaMultipla MultiplaDi(const RigaComando& Chiamata)
{
    return {Chiamata.Di(Opzione::Multipla), Chiamata.Ha(Opzione::Prima)};
}

template <Risposta (*Comando)(const QStringList&, const NotaMultipla&)>
Risposta ConMultipla(const QStringList& Valori, const RigaComando& Chiamata)
{
    return Comando(Valori, MultiplaDi(Chiamata));
}

template <Risposta (*Comando)(const QStringList&, const NormeChieste&)>
Risposta PerNorme(const QStringList& Valori, const RigaComando& Chiamata)
{
    return Comando(
        Valori, {Chiamata.Di(Opzione::Norme) == u"vigenti" ? InsiemeNorme::Vigenti : InsiemeNorme::Programma,
                 Chiamata.Ha(Opzione::Spiega), Chiamata.Di(Opzione::Ics),
                 !Chiamata.Ha(Opzione::Json) && !Chiamata.Ha(Opzione::Spiega)});
}
