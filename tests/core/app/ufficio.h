// The office that most tests of the program's end start from.
#pragma once

#include "core/app/scena.h"

#include "platform/system/file.h"

/// Stores the settings of an office that has a name and has read the notice, with a folder of notes of its
/// own.
/// @return that folder
inline QString SalvaUfficio()
{
    const QString Note = NuovaCartella();
    const QString Utente = NuovaCartella();
    Scena::Salva(u"PercorsoProcedura"_s, ProgrammaDiProva());
    Scena::Salva(u"StudioNome"_s, u"Studio Bianchi"_s);
    Scena::Salva(u"CercaAgg"_s, u"N"_s);
    Scena::Salva(u"ParcellePath"_s, Note);
    Scena::Salva(u"UserFolder"_s, Utente);
    ScriviFile(Utente + u"avvisokr5.ini"_s, "[avvisokr5]\nletto=21/11/2026\n");
    return Note;
}
