// The office that a monkey is let into: a home with settings, notes, clients, and the seams that lead out of
// it.
#pragma once

#include "scimmia/caso.h"

#include <QString>

#include <functional>

/// What an office of the seed has before the first start: settings, notes, a template, clients. Every eighth
/// seed is somebody's first use and finds none of it.
/// @param Casa folder of everything, with the separator at its end
void ArredaUfficio(const QString& Casa, quint32 Seme);

/// The words that the program is started with.
[[nodiscard]] QString RigaDiComandoDi(quint32 Seme, int Sessione);

/// How the boxes of the program are answered.
enum class Risposte {
    ACaso,   ///< some are real boxes, which the monkey meets as any window, the others are answered at once
    Subito,  ///< every one at once, and nothing is saved or kept
};

/// Puts answers at random behind the seams of messages and of the desktop. Nothing is opened, nobody is asked
/// over the network.
/// @param Sentito is handed title and text of every box
void RispondiACaso(const QString& Casa, Caso& Sorte, const Risposte& Come,
                   const std::function<void(const QString& Testo)>& Sentito);

/// A text to type or to find in the clipboard: names, dates, amounts, and what people paste by mistake.
[[nodiscard]] QString ParolaACaso(Caso& Sorte);
