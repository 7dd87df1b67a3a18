// The state of a note in its file: entries of the hidden table, for the note itself and for lists of notes.
//
// The figures of a document that has gone out are kept as it asked for them: lists and the note itself reckon
// from them what is open and what was paid. Those of a draft are for lists alone, and the note takes none of
// them back.
#pragma once

#include "feenote/file/memorianota.h"
#include "feenote/statonota.h"

#include <QString>
#include <QStringList>

#include <optional>

/// A document of a file that another one has followed.
struct EmessoLetto
{
    DocumentoEmesso Che;
    double Resto = 0.0;   ///< of its net after all payments, euro
    bool Importi = true;  ///< false: the file holds the document, but no figures of it that can be read

    friend bool operator==(const EmessoLetto&, const EmessoLetto&) = default;
};

/// What a list of notes takes from a file. Values that are none (an unknown word, an amount that is no number
/// or has no limits, a day of no calendar) count as missing.
struct StatoLetto
{
    StatoNota Stato = StatoNota::Ignoto;
    int Documento = -1;   ///< that has gone out, a TipoStampa; -1 none
    bool Storno = false;  ///< it was a credit note
    QString Dal;          ///< since when, dd/mm/yyyy
    QString UscitoIl;  ///< the day on which it went out as an invoice or a credit note, whatever came since
    QString PagatoIl;  ///< the day of the word "paid", or of the payments; empty where it is not paid
    std::optional<ImportiDocumento> Importi;
    double Resto = 0.0;                  ///< of the net after all payments, euro; only with figures
    QString Numero, Data;                ///< of pro-forma note and estimate
    QString Scadenza;                    ///< of the payment, as typed
    QString CitataNumero, CitataData;    ///< of the invoice that a credit note takes back
    QString FatturaNumero, FatturaData;  ///< of the invoice or credit note that has gone out, as it did
    QList<EmessoLetto> Emessi;           ///< those before it, the oldest first

    friend bool operator==(const StatoLetto&, const StatoLetto&) = default;
};

/// The entries that LeggiStatoLetto looks at.
[[nodiscard]] const QStringList& VociStatoLetto();
[[nodiscard]] StatoLetto LeggiStatoLetto(const MemoriaFile& Memoria);

/// The entries of a note.
void ScriviStato(const Parcella& Nota, MemoriaFile& Memoria);
/// Gives a note its state; without an entry, or with a word of no state, it is Ignoto.
void LeggiStato(Parcella& Nota, const MemoriaFile& Memoria);
/// The names of all entries of the state.
[[nodiscard]] const QStringList& VociDiStato();
/// True for the name of an entry of the state.
[[nodiscard]] bool EVoceDiStato(const QString& Nome);
