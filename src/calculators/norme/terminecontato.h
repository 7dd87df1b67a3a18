// Due dates that somebody has asked for: what they are called, for the calendar, the sheet and the road.
#pragma once

#include "calculators/agenda.h"
#include "calculators/modSchedaStrada.h"
#include "calculators/norme/terminiricorrenti.h"

/// A due date on view, with what was asked and how it came about.
struct TermineContato
{
    QString Atto;      ///< empty: a term that the catalogue does not name
    QString Articolo;  ///< of the law that sets it; empty: none
    QString Evento;    ///< from what it runs; empty: unknown
    QString Misura;    ///< "30 giorni", "20 giorni prima"
    QString Codice;    ///< in the catalogue; empty: none
    QDate Decorrenza;
    QDate
        Origine;  ///< the event of its chain, which a link keeps whatever date it runs from; none: Decorrenza
    bool Antecedente = false;
    EsitoTermine Esito;
};

/// What a row of the catalogue gives to a due date.
[[nodiscard]] TermineContato ContatoDi(const TermineRicorrente& Termine);

/// What was asked and what came of it. @param Da what a catalogue says of it already
[[nodiscard]] TermineContato ContatoDi(const RichiestaTermine& Richiesta, const EsitoTermine& Esito,
                                       TermineContato Da = {});

/// "30 giorni", "2 mesi prima", "20 giorni liberi".
[[nodiscard]] QString MisuraRichiesta(const RichiestaTermine& Richiesta);

/// "Appello (art. 325 c.p.c.)", or "Termine di 30 giorni".
[[nodiscard]] QString NomeTermine(const TermineContato& Termine);

/// All dates of a chain from the day of its event. The program's own rules know neither matter
/// nor the day on which the proceeding began.
/// @throws Errore those of ComputaCatena
[[nodiscard]] QList<TermineContato> ContaCatena(InsiemeNorme Insieme, const Norme& DiLegge,
                                                const CatenaTermini& Catena, const QDate& Evento,
                                                const QString& Materia = {},
                                                const std::optional<QDate>& Inizio = {});

/// "Lunedì, 5 Ottobre 2026 (Posticipata)".
[[nodiscard]] QString TestoScadenza(const TermineContato& Termine);

/// "lun 05/10/2026: Appello (art. 325 c.p.c.) (Posticipata)".
[[nodiscard]] QString RigaScadenza(const TermineContato& Termine);

/// The entry for the calendar of the office. @param Pratica whose matter it is; empty: none
[[nodiscard]] VoceAgenda AgendaDi(const TermineContato& Termine, InsiemeNorme Insieme,
                                  const QString& Pratica = {});

/// The same for sheet and road.
[[nodiscard]] ParteStrada ParteDi(const TermineContato& Termine);

/// "Norme: in vigore", for sheets and calendars.
[[nodiscard]] QString RigaNorme(InsiemeNorme Insieme);
