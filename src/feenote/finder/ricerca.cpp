#include "feenote/finder/ricerca.h"

#include "feenote/finder/memoriatrova.h"
#include "platform/base/errore.h"
#include "platform/system/aparte.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace {

/// How long the end of a window waits for its walk: what reads a disk stops at the next file.
constexpr std::chrono::milliseconds Pazienza{200};

}  // namespace

/// What the two threads share. It outlives the object where a folder does not answer.
struct RicercaNote::Stato
{
    std::atomic<bool> Ferma = false;
    mutable std::mutex Turno;
    std::condition_variable Detto;
    std::vector<VoceTrova> Pronte;
    ContoTrova Conto;
    std::optional<Errore> Guasto;
    bool Finita = false;

    void Percorri(const CriterioTrova& Criterio, std::shared_ptr<MemoriaTrova> Memoria)
    {
        CamminoTrova Cammino(
            Criterio,
            [this](VoceTrova&& Voce) {
                const std::lock_guard Mio(Turno);
                if (Ferma)
                    return;
                Conta(Voce);
                Pronte.push_back(std::move(Voce));
            },
            [this] { return !Ferma; }, std::move(Memoria));
        std::optional<Errore> Trovato;
        ContoTrova Contati;
        try {
            Contati = Cammino.TrovaParc(Criterio.Cartella);
        } catch (...) {
            Trovato = ErroreCorrente();
        }
        const std::lock_guard Mio(Turno);
        Guasto = Trovato;
        if (!Trovato && !Conto.Interrotta)
            Conto = Contati;
        Finita = true;
        Detto.notify_all();
    }

    /// What is known before the end, for a walk that is stopped.
    void Conta(const VoceTrova& Voce)
    {
        if (Voce.Genere != GenereVoce::Nota)
            return;
        ++Conto.Archivi;
        Conto.Byte += Voce.Byte;
    }
};

/// A walk that has no thread, on a machine without room for one, ends all the same.
struct RicercaNote::Congedo
{
    explicit Congedo(std::shared_ptr<Stato> Di) : Comune(std::move(Di)) {}
    ~Congedo()
    {
        const std::lock_guard Mio(Comune->Turno);
        if (Comune->Finita)
            return;
        Comune->Guasto = Errore(errori::Memoria);
        Comune->Finita = true;
        Comune->Detto.notify_all();
    }
    Congedo(const Congedo&) = delete;
    Congedo& operator=(const Congedo&) = delete;

private:
    std::shared_ptr<Stato> Comune;
};

RicercaNote::RicercaNote(const CriterioTrova& Criterio) : Comune(std::make_shared<Stato>())
{
    Comune->Conto.Cartelle = 1;
    // It counts among the work that the end of the program waits for: what it reads stands until then.
    FaiAParte([Insieme = Comune, Criterio, Memoria = MemoriaDelTrova(),
               Fine = std::make_shared<Congedo>(Comune)] { Insieme->Percorri(Criterio, Memoria); });
}

RicercaNote::~RicercaNote()
{
    Ferma();
    std::unique_lock Mio(Comune->Turno);
    (void)Comune->Detto.wait_for(Mio, Pazienza, [this] { return Comune->Finita; });
}

std::vector<VoceTrova> RicercaNote::Prendi()
{
    const std::lock_guard Mio(Comune->Turno);
    return std::exchange(Comune->Pronte, {});
}

void RicercaNote::Ferma()
{
    const std::lock_guard Mio(Comune->Turno);
    if (Comune->Finita)
        return;
    Comune->Ferma = true;
    Comune->Conto.Interrotta = true;
}

bool RicercaNote::Finita() const
{
    const std::lock_guard Mio(Comune->Turno);
    return Comune->Finita || Comune->Ferma;
}

ContoTrova RicercaNote::Conto() const
{
    const std::lock_guard Mio(Comune->Turno);
    return Comune->Conto;
}

std::optional<Errore> RicercaNote::Guasto() const
{
    const std::lock_guard Mio(Comune->Turno);
    return Comune->Guasto;
}
