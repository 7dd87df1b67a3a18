// A folder that does not answer for a while, as on a share whose server is gone.
#pragma once

#include "platform/system/aparte.h"
#include "platform/system/guasti.h"

#include <QString>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

/// A folder that does not answer as long as the object lives, as one on a network that is gone.
class CartellaFerma
{
public:
    explicit CartellaFerma(const QString& Cartella)
    {
        guasti::PrimaDiScorrere = [Cartella, Insieme = Comune](const QString& Chiesta) {
            if (Chiesta != Cartella)
                return;
            ++Insieme->Dentro;
            while (!Insieme->Risponde)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            --Insieme->Dentro;
        };
    }
    /// Those who wait are let go first, and are through.
    ~CartellaFerma()
    {
        Comune->Risponde = true;
        while (Attesa())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        // Work that has yet to begin reads the hook too.
        constexpr int AttesaMs = 10000;
        (void)AttendiLavoriAParte(AttesaMs);
        guasti::PrimaDiScorrere = {};
    }
    CartellaFerma(const CartellaFerma&) = delete;
    CartellaFerma& operator=(const CartellaFerma&) = delete;

    /// True while somebody waits for it.
    [[nodiscard]] bool Attesa() const { return Comune->Dentro > 0; }

private:
    struct Stato
    {
        std::atomic<int> Dentro = 0;
        std::atomic<bool> Risponde = false;
    };
    std::shared_ptr<Stato> Comune = std::make_shared<Stato>();
};
