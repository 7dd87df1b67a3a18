// The documents of a list of notes, and how they hang together by their invoices: copies of one in several
// files, credit notes and what they take back.
#pragma once

#include "feenote/finder/modTrova.h"

#include <QHash>
#include <QString>

#include <deque>
#include <vector>

/// Whom a note is for: a client with a key is known by it, any other by the name.
struct ClienteNota
{
    int IDCli = 0;  ///< 0 none
    QString Nome;   ///< empty with a key

    friend bool operator==(const ClienteNota&, const ClienteNota&) = default;
};
[[nodiscard]] ClienteNota ClienteDi(const VoceTrova& Nota);

/// The document that a list names for a note, a TipoStampa; -1 none.
[[nodiscard]] int DocumentoDi(const DatiNota& Dati);

/// The file of a credit note was written: what it takes back is owed no more.
[[nodiscard]] bool EStorno(const StatoLetto& Stato);

/// Number and date of the invoice that has gone out. The record loses them as soon as it begins its credit
/// note.
struct NumeroFattura
{
    QString Numero, Data;
};
[[nodiscard]] NumeroFattura NumeroUscito(const DatiNota& Dati);

/// Earlier documents count while the note's own does.
[[nodiscard]] bool HaEmessi(const VoceTrova& Nota);

/// The documents of a list of notes: one each, and before it those that have gone out of its file earlier.
class DocumentiNote
{
public:
    /// @param Note must outlive the object
    explicit DocumentiNote(const std::vector<const VoceTrova*>& Note);
    DocumentiNote(const DocumentiNote&) = delete;
    DocumentiNote& operator=(const DocumentiNote&) = delete;

    [[nodiscard]] const std::vector<const VoceTrova*>& Tutti() const { return Voci; }
    /// The note in whose file a document of Tutti stands, by its place there.
    [[nodiscard]] const VoceTrova* NotaDi(size_t Posto) const { return Note[Posto]; }

private:
    std::deque<VoceTrova> Prima;  // their addresses stay
    std::vector<const VoceTrova*> Voci;
    std::vector<const VoceTrova*> Note;
};

/// How a document of a list hangs together with the others by its invoice.
struct LegameFattura
{
    bool Copia = false;                  ///< a file saved later holds the same one: this one does not count
    const VoceTrova* Contata = nullptr;  ///< of a copy: the one that counts
    bool Sola = false;                   ///< of a copy: it stands for that one, which is not shown
    double Stornato = 0.0;               ///< of it by credit notes, euro
    double StornatoPrima = 0.0;          ///< of that by its own file, or by another one before it was paid
    bool StornoIgnoto = false;           ///< one of them has no figures that can be read
    bool Citata = false;                 ///< of a credit note: the invoice that it takes back is in the list
    const VoceTrova* Ripresa = nullptr;  ///< that invoice
    friend bool operator==(const LegameFattura&, const LegameFattura&) = default;
};
/// An invoice is known by client, number and date, to the credit note of its own file by standing before it.
/// Documents that hang together with none are left out.
[[nodiscard]] QHash<const VoceTrova*, LegameFattura>
LegamiFatture(const std::vector<const VoceTrova*>& Documenti);
