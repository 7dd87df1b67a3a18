// The table of settings: one row a key, with its default, its kind and the session variable that it fills.
//
// The start reads by it, the settings form shows and saves by it, tests go back to its defaults.
#pragma once

#include <QString>
#include <QStringView>

#include <optional>
#include <span>
#include <variant>

/// How the text of a setting becomes a value.
enum class GenereImpostazione {
    Testo,
    Percentuale,  ///< 32-bit float; a text that is no number leaves the value in force, in silence
    Intero16,     ///< -32768 to 32767
    Intero32,     ///< a colour, 0xBBGGRR
    SiNo,         ///< "S" is true, any other text false
};

/// A row. `Derivato` gives the default where it depends on other settings; `Adatta` changes the stored text
/// on its way into the session.
struct VoceImpostazione
{
    QStringView Chiave;
    QStringView Predefinito;
    GenereImpostazione Genere = GenereImpostazione::Testo;
    std::variant<std::monostate, QString*, float*, int*, bool*> Variabile;  ///< monostate: no variable
    QString (*Derivato)() = nullptr;
    QString (*Adatta)(const QString&) = nullptr;
};

namespace chiavi {

inline constexpr QStringView PercorsoProcedura = u"PercorsoProcedura";
inline constexpr QStringView ArchivioCliCon = u"ArchivioCliCon";
inline constexpr QStringView ParcellePath = u"ParcellePath";
inline constexpr QStringView UserFolder = u"UserFolder";
inline constexpr QStringView ProgFatt = u"ProgFatt";
inline constexpr QStringView ProgTrasm = u"ProgTrasm";
inline constexpr QStringView Tariffa = u"Tariffa";
inline constexpr QStringView NormeDiPartenza = u"Norme";
inline constexpr QStringView RicordaCalcoli = u"RicordaCalcoli";
inline constexpr QStringView CercaAgg = u"CercaAgg";
inline constexpr QStringView WP = u"WP";
inline constexpr QStringView SfondoDesktop = u"SfondoDesktop";
inline constexpr QStringView PostaOggetto = u"PostaOggetto";
inline constexpr QStringView PostaTesto = u"PostaTesto";
inline constexpr QStringView LogoImpronta = u"LogoImpronta";
inline constexpr QStringView LogoPosto = u"LogoPosto";
inline constexpr QStringView LogoAltezza = u"LogoAltezza";
inline constexpr QStringView LogoDocumenti = u"LogoDocumenti";

}  // namespace chiavi

/// The text of the key Norme with which the calculators begin by the law in force; any other, and none, is
/// the program's own rules.
inline constexpr QStringView NormeInVigore = u"vigenti";
inline constexpr QStringView NormeDelProgramma = u"programma";

/// Every setting, in the order in which the start reads them.
[[nodiscard]] std::span<const VoceImpostazione> VociImpostazioni();

/// The row of a key, compared without case. @throws Errore 5 for a key without a row
[[nodiscard]] const VoceImpostazione& VoceDi(QStringView Chiave);

/// The default of a row, as text.
[[nodiscard]] QString PredefinitoDi(const VoceImpostazione& Voce);

/// The stored text of a key, or its default.
[[nodiscard]] QString ValoreConservato(QStringView Chiave);

/// Reads a row from the store into its variable. @throws Errore 6 or 13 for a number that is none; the
/// variable is then as before
void LeggiInSessione(const VoceImpostazione& Voce);

/// The counter of invoices as the start reads it from its text, where that is a number that an invoice can
/// have: whole, 0 to 32767, in Italian form ("41", "41,0", "1.233"). None for any other text, an empty one
/// too.
[[nodiscard]] std::optional<int> LeggiProgFatt(const QString& Testo);

/// Gives each variable of a row its default; folders, which have none of their own, become empty.
void AzzeraImpostazioni();

/// The program folder by the stored key, or the executable's, with the separator at its end.
[[nodiscard]] QString CartellaProgramma();

/// The folder among the user's documents where a first use puts notes and archive; it need not be there.
[[nodiscard]] QString CartellaDelPrimoUso();

/// What a first use has made for ArchivioCliCon or ParcellePath, where damaged settings may have lost the
/// key: beside the program there is an empty archive then, and none of the office's notes. Empty while the
/// settings are sound, where nothing is there, and for any other key.
[[nodiscard]] QString RitrovatoDelPrimoUso(QStringView Chiave);

/// Folder of saved notes when none is stored: "Parcelle" in the program folder, or behind damaged settings
/// that of the first use.
[[nodiscard]] QString CartellaParcelleProposta();
