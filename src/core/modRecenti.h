// The notes that were worked on last, so that yesterday's work is one key away.
//
// The list stands in the program's settings, which this user alone may read, and says of each note what was
// known of it when it was opened or saved last: no note is looked at to show it.
#pragma once

#include <QDate>
#include <QList>
#include <QString>

/// A note as the list shows it.
struct NotaRecente
{
    QString Percorso;    ///< full path, with the platform's separators
    QString Cliente;     ///< its name; empty: none was given
    QString Documento;   ///< the kind of document that was chosen; empty: none
    double Netto = 0.0;  ///< of that document, euro
    QDate Data;          ///< the day on which it was opened or saved last

    friend bool operator==(const NotaRecente&, const NotaRecente&) = default;
};

/// As many as the list holds.
inline constexpr int MassimoRecenti = 10;

/// The list, the last one first. What a damaged or foreign store holds in its place is left out: paths that
/// are none of a note's, other than single lines of text, amounts and days that are none, whatever is too
/// long, and what comes beyond the tenth.
[[nodiscard]] QList<NotaRecente> NoteRecenti();

/// Puts a note at the head of the list; one of the same path goes. Long texts are cut.
/// @throws Errore as RicordaImpostazioni
void RicordaRecente(const NotaRecente& Nota);

/// Takes a note out of the list. @throws Errore as SalvaImpostazione, also of a damaged store: who
/// wants a name gone is told each time that it stays
void DimenticaRecente(const QString& Percorso);
/// Takes all of them out. @throws Errore as DimenticaRecente
void SvuotaRecenti();

/// A note's file is no more: its line goes too. @throws Errore as RicordaImpostazioni; nothing of a damaged
/// store in which no such line can be read
void DimenticaCancellata(const QString& Percorso);
/// The same of a note that was picked in the list: a damaged store refuses whatever can be read of it.
/// @throws Errore as RicordaImpostazioni
void DimenticaSparita(const QString& Percorso);
/// A note's file bears another name, or lies elsewhere: its line keeps its place.
/// @throws Errore as DimenticaCancellata
void SpostaRecente(const QString& Vecchio, const QString& Nuovo);

/// The name of a note, that of its file without its ending.
[[nodiscard]] QString NomeRecente(const NotaRecente& Nota);
/// The name, behind the client where it does not say him already.
[[nodiscard]] QString TitoloRecente(const NotaRecente& Nota);
/// The folder of its file, without what stands above it.
[[nodiscard]] QString CartellaRecente(const NotaRecente& Nota);
/// What is known of a note in one line, for lists that have no columns and for those who hear them.
[[nodiscard]] QString FraseRecente(const NotaRecente& Nota);
