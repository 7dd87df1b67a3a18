// Terms for the calendar of the office: a file that any calendar program reads, and a text to be pasted.
//
// The file is RFC 5545: one event of a whole day for each term, with alarms at 7, 3 and 1 days.
#pragma once

#include <QByteArray>
#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

#include <array>

/// A term as a calendar keeps it.
struct VoceAgenda
{
    QDate Giorno;      ///< from 01/01/0100 to 31/12/9999
    QString Atto;      ///< what is to be done by then
    QString Articolo;  ///< that asks for it; empty: none
    QString Pratica;   ///< whose matter it is, in the user's words; empty: none
    QStringList Note;  ///< lines of the description, such as the day it is counted from
    /// What the term is counted from and how, in a form that stays the same from one reckoning to the next.
    QString Chiave;

    friend bool operator==(const VoceAgenda&, const VoceAgenda&) = default;
};

/// Days before a term on which a calendar gives notice of it.
inline constexpr std::array PreavvisiAgenda{7, 3, 1};

/// "Rossi - Appello (art. 325 c.p.c.)": how a calendar calls a term.
[[nodiscard]] QString TitoloAgenda(const VoceAgenda& Voce);

/// The terms as a calendar file: UTF-8, lines of 75 bytes at most, CR LF.
///
/// A term has the same identity each time that it is written: act, article, matter and `Chiave` make it, and
/// not its day, so that a date reckoned anew takes the place of the former one. Terms alike in one list are
/// numbered.
/// @throws Errore 5 for an empty list and for a day outside the calendar
[[nodiscard]] QByteArray ScriviIcs(const QList<VoceAgenda>& Voci);

/// A path as it is written: without an ending it gets ".ics".
[[nodiscard]] QString ConEstensioneIcs(const QString& Percorso);

/// Writes that file, whole or not at all; a path without an ending gets ".ics".
/// @return the path written. @throws Errore as ScriviIcs and ScriviFile
QString SalvaIcs(const QString& Percorso, const QList<VoceAgenda>& Voci);

/// The terms as lines to be pasted, the earliest first: "lunedì 24/09/2012: Appello (art. 325 c.p.c.)".
[[nodiscard]] QString TestoAgenda(QList<VoceAgenda> Voci);

/// A name for the file that is proposed, with its ending: the matter and the act of the first term.
[[nodiscard]] QString NomeFileIcs(const QList<VoceAgenda>& Voci);
