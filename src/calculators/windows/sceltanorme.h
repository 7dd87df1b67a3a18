// The choice "Norme:" of a calculator: the program's own rules or those in force, until the window is closed.
#pragma once

#include "calculators/norme/norme.h"

#include <functional>
#include <memory>

class QComboBox;

/// The list of the two sets in a window, with the norms in force as they were read for it. The setting says
/// with which one the window begins.
class SceltaNorme
{
public:
    /// Fills the list. `AlCambio` runs when another set counts, whoever chose it.
    SceltaNorme(QComboBox* Lista, std::function<void()> AlCambio);
    SceltaNorme(const SceltaNorme&) = delete;
    SceltaNorme& operator=(const SceltaNorme&) = delete;

    /// The set that the settings name.
    void Comincia();
    /// Another set; as if it had been picked in the list.
    void Scegli(InsiemeNorme Insieme);

    [[nodiscard]] InsiemeNorme Insieme() const { return Quale; }
    [[nodiscard]] bool InVigore() const { return Quale == InsiemeNorme::Vigenti; }
    /// The norms in force, whichever set counts; their failure is reported and gives null.
    [[nodiscard]] std::shared_ptr<const Norme> Lette();

    /// Days that the calendars tell apart, by the set that counts.
    [[nodiscard]] bool Festivo(const QDate& Giorno) const;
    [[nodiscard]] bool Sospeso(const QDate& Giorno) const;

private:
    void Cambia();

    QComboBox* Elenco;
    std::function<void()> Cambiata;
    InsiemeNorme Quale = InsiemeNorme::Programma;
    std::shared_ptr<const Norme> Vigenti;
};

/// The set with which the windows begin, by the settings.
[[nodiscard]] InsiemeNorme NormeDelleImpostazioni();
