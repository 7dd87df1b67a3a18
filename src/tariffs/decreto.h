// The decrees that fix the parameters of fees, each a value that a note hands down.
//
// Nothing asks which decree a note follows: what differs between them is a member here, or rows of the
// decree's own reference database.
#pragma once

#include <QStringView>

#include <array>

/// A decree of parameters.
struct Decreto
{
    QStringView Sigla;           ///< how settings, files of notes and descriptions name it: "140"
    QStringView Nome;            ///< how the windows and documents do: "D.m. 140/2012"
    QStringView NomeIntero;      ///< with its date, for a sentence
    QStringView File;            ///< its reference database, in the program folder
    QStringView Schede;          ///< folder of the information sheets of its items, in the program folder
    int Decimali = 0;            ///< of the amounts of a line; see ArrotondaRiga
    double SpeseGen = 0.0;       ///< general expenses of a new note, percent; 0: off, the office decides
    QStringView InVigore = u"";  ///< to which services it applies today, for a sentence; empty: to none
    /// What lies beyond the last bracket is told as such.
    bool ScaglioniFiniti = false;
    /// Its reference database says whose it is; the banner, the documents and the files of its notes name it.
    /// The decree that names itself nowhere is the one of every note from before there were two.
    bool Dichiarato = false;
};

/// D.m. 140/2012: the tariff that the program was built on.
inline constexpr Decreto Dm140{
    .Sigla = u"140",
    .Nome = u"D.m. 140/2012",
    .NomeIntero = u"D.m. 20 luglio 2012, n. 140",
    .File = u"parcelle.mdb",
    .Schede = u"note",
};

/// D.m. 55/2014 as the decrees 37/2018 and 147/2022 left it: in force for services ended after 23/10/2022.
inline constexpr Decreto Dm55{
    .Sigla = u"55",
    .Nome = u"D.m. 55/2014",
    .NomeIntero = u"D.m. 10 marzo 2014, n. 55",
    .File = u"parcelle55.mdb",
    .Schede = u"note",
    .Decimali = 2,
    .SpeseGen = 15.0,  // art. 2: owed in any case
    .InVigore = u"per le prestazioni esaurite dopo il 23/10/2022",
    .ScaglioniFiniti = true,
    .Dichiarato = true,
};

/// All of them, in the order in which lists show them. The first is the one of whatever names none.
inline constexpr std::array Decreti{&Dm140, &Dm55};

/// The decree of a short name; null for a name that none has.
[[nodiscard]] const Decreto* DecretoDi(QStringView Sigla);

/// The decree of new notes: the office's choice, D.m. 140/2012 until it has made one.
[[nodiscard]] const Decreto& DecretoNuove();

/// True once the office has chosen the decree of its new notes.
[[nodiscard]] bool DecretoScelto();
