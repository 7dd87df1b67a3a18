// The search on one field of a recordset: its criterion in the engine's dialect, and what it finds.
#pragma once

#include "platform/database/database.h"

#include <QString>
#include <QStringView>

#include <array>

/// Places in the table of operators.
enum OperatoreRicerca {
    UgualeA,
    DiversoDa,
    MaggioreDi,
    MaggioreOUgualeA,
    MinoreDi,
    MinoreOUgualeA,
    CampoVuoto,
    CampoNonVuoto,
    IniziaPer,
    TerminaPer,
    Contiene,
    NonContiene,
    OperatoriRicerca,  ///< how many there are
};

/// Captions first, behind them the engine's operators in the same order.
inline constexpr std::array<QStringView, size_t{2} * OperatoriRicerca> TabellaOperatori{
    u"Uguale a",    u"Diverso da",
    u"Maggiore di", u"Maggiore o uguale a",
    u"Minore di",   u"Minore o uguale a",
    u"Vuoto",       u"Non vuoto",
    u"Inizia per",  u"Termina per",
    u"Contiene",    u"Non contiene",
    u"=",           u"<>",
    u">",           u">=",
    u"<",           u"<=",
    u"=",           u"<>",
    u"Like",        u"Like",
    u"Like",        u"Not Like",
};

/// Number of operators, counted from the first, that a field of this type offers: all for text and dates.
[[nodiscard]] int OperatoriDi(TipoCampo Tipo);
/// Longest text that may be typed for a field, in characters.
[[nodiscard]] int LunghezzaRicerca(const Campo& Colonna);
/// False for a character that may not be typed for a field of this type.
[[nodiscard]] bool TastoRicerca(TipoCampo Tipo, QChar Carattere);
/// True for the two operators that ask for no text.
[[nodiscard]] bool SenzaValore(int Operatore);

/// The criterion, "<field> <operator> <value>"; a name that is no plain word stands in brackets. What a field
/// cannot hold goes in as it was typed, and the engine says so.
/// @param Operatore a place of OperatoreRicerca
[[nodiscard]] QString CriterioRicerca(const Campo& Colonna, int Operatore, const QString& Testo);

/// Where a search begins and which way it goes.
enum class PassoRicerca { Primo, Successivo, Precedente };

/// Makes the row current that meets a criterion: the first one, or the nearest behind (before) the current
/// one; with no current row the first (last) one. When there is none the current row stays.
/// @return false when none was found
/// @throws Errore as Recordset::FindFirst; the current row stays
[[nodiscard]] bool CercaRiga(Recordset& Righe, const QString& Criterio, PassoRicerca Passo);
