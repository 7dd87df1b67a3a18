// What the shim and who starts a program under it know of each other: names in the environment, and a file of
// counts that both see, so that a program that crashes or is killed has written down all the same what it
// met.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace registro {

/// The calls that can be made to fail. Those of one purpose are one: `open` is openat and creat too, `write`
/// every way to write, `fsync` fdatasync too.
enum Chiamata : std::uint32_t {
    Apri,
    Scrivi,
    Sincronizza,
    Rinomina,
    Togli,
    Permessi,
    Chiudi,
    Tronca,
    Cartella,
    Collega,
    Leggi,
    Data,
    Chiamate  ///< how many there are
};

inline constexpr std::array<std::string_view, Chiamate> Nomi{"open",   "write", "fsync", "rename",
                                                             "unlink", "chmod", "close", "ftruncate",
                                                             "mkdir",  "link",  "read",  "utimens"};

inline constexpr std::size_t ByteNome = 512;

/// The file of counts, mapped by both sides.
struct Conti
{
    std::array<std::uint32_t, Chiamate> Viste;  ///< under the folder, failed ones too
    std::uint32_t Guasti;                       ///< how many were made to fail
    std::uint32_t Rinomine;    ///< at the first fault, a rename that no flush of its folder has followed
    std::uint32_t SuCartella;  ///< the first fault met a folder
    std::array<char, ByteNome> Vittima;  ///< path that the first fault met
};

/// Folder whose files count, without a separator at its end.
inline constexpr auto VarCartella = "CALCANOVA_GUASTO_CARTELLA";
/// File of counts. A program that works under the shim names it too, for those it starts.
inline constexpr auto VarConti = "CALCANOVA_GUASTO_CONTI";
/// Name of the call that fails; none: calls are counted.
inline constexpr auto VarChiamata = "CALCANOVA_GUASTO_CHIAMATA";
/// Which one of them fails, from 1.
inline constexpr auto VarNumero = "CALCANOVA_GUASTO_NUMERO";
/// "ENOSPC", "EIO", "EACCES", "EINTR", or "corto": half of what was asked.
inline constexpr auto VarErrore = "CALCANOVA_GUASTO_ERRORE";
/// Set: no call counts before the program's driver has called NomeGuastoComincia.
inline constexpr auto VarPoi = "CALCANOVA_GUASTO_POI";
/// "1": every further one fails too.
inline constexpr auto VarSempre = "CALCANOVA_GUASTO_SEMPRE";

}  // namespace registro

/// What the shim offers to a program that knows of it and works under it without a program of its own in
/// between: the same as the environment says, from now on. No folder: nothing counts any more.
using GuastoArma = void (*)(const char* Cartella, registro::Conti* Registro, registro::Chiamata Quale,
                            unsigned Numero, const char* Errore, bool Sempre);
inline constexpr auto NomeGuastoArma = "guasto_arma";
inline constexpr auto NomeGuastoComincia = "guasto_comincia";
