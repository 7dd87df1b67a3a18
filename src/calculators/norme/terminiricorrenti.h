// Recurring terms: a catalogue of the law's own, and chains of them.
#pragma once

#include "calculators/norme/computatermine.h"

/// What the days of validity of a term are compared with.
enum class MisuraVigenza {
    Evento,        ///< the day from which it runs
    Procedimento,  ///< the day on which the proceeding began; a later event alone refuses nothing
};

/// A row of the catalogue.
struct TermineRicorrente
{
    QString Codice;    ///< "CPC-166"
    QString Articolo;  ///< "art. 166 c.p.c."
    QString Rito;
    QString Atto;
    QString Evento;  ///< from what it runs
    int Quantita = 0;
    int Tipo = TipoGiorni;  ///< TipoGiorni, TipoMesi, or TipoAnni
    bool Regola = false;    ///< a rule without a count of its own: it is shown, never computed
    bool Antecedente = false;
    bool Libero = false;
    std::optional<bool> Sospeso;  ///< by the summer suspension; none: no source says so
    QString Materia;              ///< code of the matter that spares it; empty: none
    std::optional<bool> Sabato;   ///< a Saturday moves it (civil rites, acts outside hearings); none: no
                                  ///< source says so for its rite
    MisuraVigenza Misura = MisuraVigenza::Evento;
    Vigenza Quando;
    QString Nota;
};

/// How a link of a chain begins.
enum class InizioAnello {
    Evento,    ///< from the event of the chain
    Scadenza,  ///< from the due date of another link
    Aumento,   ///< adds its days to those of another link
};

struct AnelloCatena
{
    QString Termine;  ///< code in the catalogue
    InizioAnello Inizio = InizioAnello::Evento;
    QString Da;  ///< code of the other link, which stands before this one; empty for the event
};

/// Terms that are computed together.
struct CatenaTermini
{
    QString Codice;
    QString Titolo;
    QString Evento;
    QList<AnelloCatena> Anelli;
};

/// The text of a row for a list: quantity with unit and direction ("70 giorni prima", "20 giorni liberi").
[[nodiscard]] QString MisuraTermine(const TermineRicorrente& Termine);
/// "dal gg/mm/aaaa al gg/mm/aaaa", or the part of it that is there.
[[nodiscard]] QString TestoVigenza(const Vigenza& Quando);
/// By code, whatever its case; nullptr for none.
[[nodiscard]] const TermineRicorrente* TrovaTermine(const Norme& Insieme, QStringView Codice);
[[nodiscard]] const CatenaTermini* TrovaCatena(const Norme& Insieme, QStringView Codice);
/// True when every word of the search stands in code, article, rite, act, event or note, without regard to
/// case and accents; an empty search finds all. A number is found as a whole one: "16" is not in "166".
[[nodiscard]] bool TermineRisponde(const TermineRicorrente& Termine, const QString& Cercato);
[[nodiscard]] QList<const TermineRicorrente*> CercaTermini(const Norme& Insieme, const QString& Cercato);

/// What a row of the catalogue asks: fills the boxes of a window. @throws Errore 5 it is a rule
[[nodiscard]] RichiestaTermine RichiestaTermineDi(const TermineRicorrente& Termine, const QDate& Decorrenza);

/// One date of a chain.
struct ScadenzaCatena
{
    const TermineRicorrente* Termine = nullptr;  ///< of the set that computed it, which must live on
    RichiestaTermine Richiesta;                  ///< what was counted: with an increase, the days of both
    QString Evento;  ///< from what: the chain's event, or the due date that comes before
    EsitoTermine Esito;
};

/// A row of the catalogue from the day of its event.
/// @param Inizio the day on which the proceeding began, none when it is not known
/// @param Scelte suspension and Saturday as somebody has them; none: as the row has them
/// @throws Errore 5 with a sentence: a rule, not in force on that day, those of ComputaTermine
[[nodiscard]] EsitoTermine ComputaRicorrente(const Norme& Insieme, const TermineRicorrente& Termine,
                                             const QDate& Evento, const QString& Materia = {},
                                             const std::optional<QDate>& Inizio = {},
                                             const std::optional<OpzioniTermine>& Scelte = {});
/// All dates of a chain from the day of its event. @throws Errore the same
[[nodiscard]] QList<ScadenzaCatena> ComputaCatena(const Norme& Insieme, const CatenaTermini& Catena,
                                                  const QDate& Evento, const QString& Materia = {},
                                                  const std::optional<QDate>& Inizio = {});
