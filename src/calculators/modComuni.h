// The municipalities, and the lookup that completes a name while it is typed.
#pragma once

#include "platform/database/database.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

struct Errore;

/// A row of Comuni.mdb.
struct Comune
{
    QString Nome;
    QString Provincia;  ///< two letters, EE for a foreign state
    QString Codice;     ///< cadastral code, four characters

    friend bool operator==(const Comune&, const Comune&) = default;
};

/// Comuni.mdb, open for as long as the object lives. A form keeps one.
class ArchivioComuni
{
public:
    /// @throws Errore those of OpenDatabase and Recordset
    explicit ArchivioComuni(const QString& Percorso);

    /// The first row whose name is not below the text, in the order of the index COMUNI2L, where case plays
    /// no part and an accented letter stands behind all plain ones; none behind the last name.
    /// @throws Errore those of Recordset
    [[nodiscard]] std::optional<Comune> Cerca(const QString& Testo);
    /// The row of a whole name: without regard to case, else the only one that is equal without accents too
    /// ("Forli'" and "Forli" give Forlì).
    [[nodiscard]] std::optional<Comune> Trova(const QString& Nome);
    /// Names for a list beside the field: those that begin like the text without regard to case and accents,
    /// in alphabetical order, at most so many. The first call reads all names (some 10 ms).
    [[nodiscard]] QStringList Proponi(const QString& Testo, int Massimo);
    /// The rows of a cadastral code in alphabetical order: a town keeps it under every name that it has had.
    /// Empty for a code in no row.
    [[nodiscard]] QList<Comune> DelCodice(const QString& Codice) const;
    /// Until when the list goes, "gg/mm/aaaa"; empty for one that does not say it.
    [[nodiscard]] QString Al() const;

private:
    struct NomePiano
    {
        QString Nome;
        QString Piano;  ///< without case and accents
    };
    const QList<NomePiano>& Nomi();

    Database Archivio;
    Recordset Comuni;
    QList<NomePiano> Elenco;  ///< in the order of the plain names, read when first asked for
};

/// "Abano / Abano Terme (PD)", "Francia (stato estero)"; empty for no rows.
[[nodiscard]] QString FraseComuni(const QList<Comune>& Comuni);

/// How this calculator tells a failure: "FasMsg: ", number, blank and description.
void FasMsg(const Errore& Guasto);

/// Full path of Comuni.mdb in the program folder.
[[nodiscard]] QString PercorsoComuni();

/// What the municipality field knows and shows.
struct CampoComune
{
    QString Testo;  ///< txtComune
    QString Tag;    ///< the last text typed, trimmed
    int Selezione =
        -1;  ///< first character to select, to the end of the text; -1: the selection is left alone
    bool Rosso = false;       ///< text in dark red: no such municipality; black otherwise
    bool RidaiFuoco = false;  ///< the field gets the focus back

    QString CodComune;  ///< "?" after a failed lookup, empty at the start
    QString Provincia;

    friend bool operator==(const CampoComune&, const CampoComune&) = default;
};

/// The lookup after a key that changed the text of the field: completes the name, or tells once that there is
/// none.
///
/// A text that is not longer than the last one completes nothing and leaves the codes; a text behind the last
/// name leaves the codes and says nothing. A failure is told as "FasMsg: " with number and description.
void CercaComune(ArchivioComuni& Archivio, CampoComune& Campo);
