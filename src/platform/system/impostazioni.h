// The settings store: application, section, key. Keys are compared without case.
//
// One text file per application in the user's configuration folder; nothing of the system's or of
// another application is looked at.
#pragma once

#include <QList>
#include <QString>

#include <functional>
#include <optional>
#include <utility>

struct Errore;

/// What is wrong with a store, for the advice about it.
enum class GuastoDeposito {
    Vuoto,        ///< what is stored takes its place
    Rovinato,     ///< the same, and a copy stays beside it
    Illeggibile,  ///< nothing can be stored in its place
    Enorme,       ///< the same: larger than any settings, and somebody else's
    Cartella,     ///< the same
};

/// A damaged store as it was found, in one look.
struct DepositoGuasto
{
    GuastoDeposito Genere;
    QString Frase;  ///< one sentence with its path
};

/// The file of an application's settings, full path; it need not be there yet.
[[nodiscard]] QString PercorsoImpostazioni(const QString& Applicazione);

/// Why the store of an application cannot be what was written into it: something else stands in its place, it
/// cannot be read, it is empty or cut short. The description is one sentence with its path. None for a sound
/// store, and where there is none, as before a first use.
[[nodiscard]] std::optional<Errore> GuastoImpostazioni(const QString& Applicazione);
/// The same with what is wrong as one of few cases.
[[nodiscard]] std::optional<DepositoGuasto> EsaminaImpostazioni(const QString& Applicazione);

/// The stored text, or the default when the key is missing or the store cannot be read.
[[nodiscard]] QString GetSetting(const QString& Applicazione, const QString& Sezione, const QString& Chiave,
                                 const QString& Predefinito = {});

/// The same for whoever stores something where nothing is stored.
/// @throws Errore 75 and others of a store that is there and cannot be read, with its path
[[nodiscard]] QString GetSettingSicuro(const QString& Applicazione, const QString& Sezione,
                                       const QString& Chiave);

/// Stores a text; it stands on the disk when this returns. What else the store holds is kept, damaged lines
/// too; of a damaged one a copy stays beside it, its name followed by ".guasto".
/// @throws Errore 75 with file and reason when the store cannot be written
void SaveSetting(const QString& Applicazione, const QString& Sezione, const QString& Chiave,
                 const QString& Valore);

/// The same for several keys and their texts, in one write: either all of them are stored or none is.
/// @throws Errore 75 when the store cannot be written; every key is as before then
/// @param SiScrive is asked of each key that a sound store holds now, with its text; it touches no settings.
/// Without it every key is written, and so is one that is missing, or that a damaged store has kept
void SaveSettings(const QString& Applicazione, const QString& Sezione,
                  const QList<std::pair<QString, QString>>& Valori,
                  const std::function<bool(const QString& Chiave, const QString& Ora)>& SiScrive = {});

/// Makes another text of what the store holds under a key, in turn with other programs: what one of them has
/// stored meanwhile is what it is made of.
/// @param Dopo is given the stored text, empty where none is; it touches no settings
/// @throws Errore 75 a store that is damaged, or cannot be read or written; it is then as before
void MutaSetting(const QString& Applicazione, const QString& Sezione, const QString& Chiave,
                 const std::function<QString(const QString& Prima)>& Dopo);

/// Brings a counter that the store holds under a key to a number, and never back: what another program has
/// stored meanwhile, if it is larger, stays. A stored text that is no number gives way.
/// @return the counter as it stands on the disk now
/// @throws Errore 75 a store that is damaged, or cannot be read or written; the counter is then as before
int PortaNumero(const QString& Applicazione, const QString& Sezione, const QString& Chiave, int Almeno);

/// Takes the next number of a counter that the store holds under a key: it stands on the disk when this
/// returns, and no two programs take the same one. A counter that is missing begins behind 0.
/// @param Massimo the last number that it can give
/// @throws Errore 6 past the last number, 13 a stored text that is no number of it, 75 a store that is
/// damaged (its counter would begin again), or cannot be read or written; the counter is then as before
[[nodiscard]] int PrendiNumero(const QString& Applicazione, const QString& Sezione, const QString& Chiave,
                               int Massimo);
