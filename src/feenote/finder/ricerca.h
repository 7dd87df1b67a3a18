// A walk in a thread of its own, so that neither ten thousand files nor a network that hangs hold up a
// window.
#pragma once

#include "feenote/finder/modTrova.h"

#include <memory>
#include <optional>
#include <vector>

struct Errore;

/// Begins with the object. Rows are handed over when they are asked for; only what a key means is left to
/// whoever takes them.
class RicercaNote
{
public:
    explicit RicercaNote(const CriterioTrova& Criterio);
    /// Stops. A folder that does not answer is not waited for: its thread ends by itself when it does.
    ~RicercaNote();
    RicercaNote(const RicercaNote&) = delete;
    RicercaNote& operator=(const RicercaNote&) = delete;

    /// Rows found since the last call.
    [[nodiscard]] std::vector<VoceTrova> Prendi();
    /// Ends it; what was found so far can still be taken.
    void Ferma();
    /// True when no row will come any more: it has come to its end or was stopped.
    [[nodiscard]] bool Finita() const;
    /// What was found, complete once it has ended; after Ferma what was handed over.
    [[nodiscard]] ContoTrova Conto() const;
    /// Why it could not go on.
    [[nodiscard]] std::optional<Errore> Guasto() const;

private:
    struct Stato;
    struct Congedo;
    std::shared_ptr<Stato> Comune;
};
