// The program's own settings: one application, one section, keys and texts.
#pragma once

#include <QList>
#include <QString>

#include <functional>
#include <utility>

/// Name of the program's settings and of the one section that every application has.
inline constexpr QStringView NomeApplicazione = u"KR5";
inline constexpr QStringView SezioneParametri = u"Parametri";

/// A setting of the program, or the default when the key is missing.
[[nodiscard]] QString Impostazione(const QString& Chiave, const QString& Predefinito = {});

/// A setting of the program, empty when the key is missing, for whoever stores one then.
/// @throws Errore of settings that are there and cannot be read
[[nodiscard]] QString ImpostazioneSicura(const QString& Chiave);

/// A setting of another application; empty when it has none.
[[nodiscard]] QString ImpostazioneDi(const QString& Applicazione, const QString& Chiave);

/// Why the program's settings are not what was stored, one sentence with their file; empty while they are,
/// and before a first use. It is told at the start, and nothing that the program stores by itself takes the
/// place of a damaged file: its user saves the settings when he has looked at them, at the counters above
/// all.
[[nodiscard]] QString FraseImpostazioniGuaste();
/// That was told: what the program would remember meanwhile is dropped without a second word.
void ImpostazioniGuasteDette();

/// Stores a setting of the program; one that is missing is as good as an empty one. @throws Errore 75 when
/// the store is damaged or cannot be written
void SalvaImpostazione(const QString& Chiave, const QString& Valore);

/// Stores several settings of the program, all of them or none, in the place of a damaged store too, of which
/// a copy stays. @throws Errore 75 when the store cannot be written
/// @param SiScrive as SaveSettings
void SalvaImpostazioni(const QList<std::pair<QString, QString>>& Valori,
                       const std::function<bool(const QString& Chiave, const QString& Ora)>& SiScrive = {});

/// Makes another text of a setting that the user has asked to change, in turn with other programs.
/// @param Dopo is given the stored text, empty where none is; it touches no settings
/// @throws Errore as SalvaImpostazione, each time
void MutaImpostazione(const QString& Chiave, const std::function<QString(const QString& Prima)>& Dopo);

/// Stores what the program remembers by itself: sizes, widths, places. A store that refuses is told once and
/// not again before it has taken something, since nobody has asked for it. A damaged one refuses too, and
/// stays as it is: one that was told at the start is not told again. @throws Errore 75 as above, the first
/// time
void RicordaImpostazioni(const QList<std::pair<QString, QString>>& Valori);

/// Makes another text of a setting that the program remembers by itself, in turn with other programs.
/// @param Dopo is given the stored text, empty where none is; it touches no settings
/// @throws Errore 75 as above, the first time
void RicordaMutata(const QString& Chiave, const std::function<QString(const QString& Prima)>& Dopo);

/// A size in twips; the default where the setting is missing or no positive number.
[[nodiscard]] int MisuraTwip(const QString& Chiave, int Predefinita);
