// The places of the fee-note windows, and the names that follow from them.
#pragma once

#include <QString>

#include <functional>
#include <vector>

/// A place for a fee-note window. Element 0 of the array stays unused.
struct InfoParcella
{
    bool Libera = false;      ///< the place's window was closed
    bool Modificata = false;  ///< unsaved changes
    QString Nome;             ///< in lower case without ".mdb", or "Nuova parcella"
};

/// Tabs of a note's window.
enum SchedaParcella {
    SchedaBase = 0,
    SchedaListaOnorari = 1,
    SchedaListaSpese = 2,
    SchedaImposte = 3,
    SchedaDiStampa = 4,
};

/// A property of the area of the notes: true while they fill it because the frame was maximised, or has no
/// room for them as they are. That they are maximised then is nobody's choice.
inline constexpr const char* RiempionoLaCornice = "RiempionoLaCornice";

/// The places, grown together with the windows; upper bound 0 at the start.
inline std::vector<InfoParcella> InfoParcelle{1};
/// Upper bound of the array: the highest place.
[[nodiscard]] inline int UltimaParcella()
{
    return int(InfoParcelle.size()) - 1;
}
/// True when any place is not free.
[[nodiscard]] bool ParcellaAperta();
/// Takes a place for a new window: a free one, the untouched first note, or a new one.
/// @param Intatta tells whether the window of place 1 is captioned exactly "Nuova parcella"
[[nodiscard]] int TrovaPostoParcella(const std::function<bool()>& Intatta);
/// Back to upper bound 0; serves tests.
void AzzeraParcelle();

/// Name of the documents of the note in a place, without path and extension: the note's own, with "-" for
/// what no file's name may hold ("Nuova parcella:2" is a caption). Empty outside 1..UltimaParcella().
[[nodiscard]] QString SteloDocumento(int Indice);
/// The word-processor document of such a name, in the user folder's "doc".
[[nodiscard]] QString FileDocumento(const QString& Stelo);
/// That of the note in a place; the file "printword" opens.
[[nodiscard]] QString FileDocumento(int Indice);
