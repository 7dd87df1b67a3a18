// What a fiscal code says of its person: birth, sex, town, and whether its last letter agrees with the rest.
//
// Letters that the ministry has put in the place of digits, so that two persons do not share a code, are read
// as the digits that they stand for.
#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

/// What was read of a code.
struct LetturaCodFis
{
    QString Codice;   ///< what was typed, in capitals and without blanks
    QString Difetto;  ///< the sentence on what is wrong; empty: nothing. The last letter has one of its own

    // Of a code without such a defect:
    QString Base;          ///< digits in their places, and the last letter that this gives
    bool Omocodo = false;  ///< it has letters in the places of digits
    QChar Controllo;       ///< the last letter that the others ask for
    bool Torna = false;    ///< the code has it
    QString Cognome;       ///< its three letters
    QString Nome;
    bool Donna = false;
    QList<QDate> Nascite;  ///< the latest first: the year has two figures only
    QString CodiceComune;

    [[nodiscard]] bool Letto() const { return !Codice.isEmpty() && Difetto.isEmpty(); }
};

/// Reads a code of sixteen characters, whatever its case, with or without blanks. An empty text has neither a
/// reading nor a defect.
///
/// The year of birth has two figures: it is of those of the last 120 years, so that it may be of two.
/// @param Oggi nobody is born later
[[nodiscard]] LetturaCodFis LeggiCodFis(const QString& Testo, const QDate& Oggi);

/// True for the beginning of a code, each of whose characters can stand where it does.
[[nodiscard]] bool CodFisInCorso(const QString& Codice);

/// "05/08/1985", or "05/08/2012 oppure 05/08/1912".
[[nodiscard]] QString FraseNascita(const LetturaCodFis& Lettura);
/// "maschio" or "femmina".
[[nodiscard]] QString FraseSesso(const LetturaCodFis& Lettura);
/// What is to be known of the last letter and of letters in the place of digits, a sentence a line.
[[nodiscard]] QStringList NoteLettura(const LetturaCodFis& Lettura);
