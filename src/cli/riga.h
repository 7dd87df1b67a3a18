// The command line of calcanova-cli, taken apart.
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

#include <span>

/// What may stand beside a command; Opzioni() has a row for each.
enum class Opzione {
    Programma,
    Utente,
    Json,
    Batch,
    Righe,
    Multipla,
    Prima,
    Archivio,
    In,
    Prova,
    Csv,
    Vcard,
    Stato,
    Tariffa,
    Norme,
    Spiega,
    Ics,
    Controlla,
    Leggi,
    Aiuto,
};

struct RigaOpzione
{
    Opzione Codice;
    QStringView Parola;            ///< "--csv"
    QStringView Valore{};          ///< what follows, as the help calls it; empty: a switch; "|": its words
    QStringView Manca{};           ///< what is missing where nothing follows, with its article
    bool Ovunque = false;          ///< any command takes it
    bool Percorso = false;         ///< what follows is a file, in the system's own writing
    QStringList (*Parole)() = {};  ///< the only words that may follow, in any case; none: any text
    QStringView Sconosciuta{};     ///< what to say of another one, behind which the words stand
};

/// The table of options, in the order of the help.
[[nodiscard]] std::span<const RigaOpzione> Opzioni();
/// What follows an option in the help: its name, or the words that it knows, "140|55".
[[nodiscard]] QString ValoreNellAiuto(const RigaOpzione& Una);
/// As it is written, "--csv".
[[nodiscard]] QString ParolaDi(Opzione Codice);

/// A command line. Options may stand anywhere; "--" ends them, so that a value may begin with "--".
struct RigaComando
{
    QString Comando;
    QStringList Valori;
    QMap<Opzione, QString> Date;  ///< the options given, with what follows them

    [[nodiscard]] bool Ha(Opzione Codice) const { return Date.contains(Codice); }
    [[nodiscard]] QString Di(Opzione Codice) const { return Date.value(Codice); }
};

/// @throws ErroreUso for an unknown option, one without its value or with a word that it does not know, and
///         for two that exclude each other or one that needs another
[[nodiscard]] RigaComando LeggiRiga(const QStringList& Argomenti);

/// A command that was called the wrong way: exit status 2.
struct ErroreUso
{
    QString Testo;
};

/// One case of --batch: values separated by ";". A command whose first value may hold that sign itself
/// (an expression, a pattern) is split at the last one only.
[[nodiscard]] QStringList DividiCaso(const QString& Riga, bool AllUltimo);
