// Lists and options that act when the user has chosen something else, and only then.
#pragma once

#include <functional>

class QButtonGroup;
class QComboBox;

/// How the user came to the entry of a list.
enum class ModoScelta {
    Scelta,  ///< picked in the open list, or confirmed by Enter, Tab or leaving
    Passo,   ///< an arrow or a letter in the closed list: he may be on his way to another one
};

/// Runs with the new entry when the user has chosen another one than before: with the mouse or Enter in the
/// open list at once; in the closed list each arrow or letter acts as long as `Attende` answers false (or is
/// not given), else only Enter, Tab or leaving it does. What code writes is no choice, nor is the entry that
/// stood there already.
///
/// `Attende` is asked at each step: true where acting is dear or asks questions.
void AlScegliere(QComboBox* Lista, std::function<void(int Voce, ModoScelta Come)> Procedura,
                 std::function<bool()> Attende = {});

/// Runs with the id of the option that the user has chosen, unless it was chosen already.
void AlScegliere(QButtonGroup* Opzioni, std::function<void(int)> Procedura);
