// What the windows of the two calculators of terms and their panel share: the row of the proceeding's start,
// the words of a result, the notices.
#pragma once

#include "calculators/norme/terminecontato.h"

#include <QDate>
#include <QList>
#include <QString>

#include <functional>

class MascheraData;
class QComboBox;
class QDialog;
class QFormLayout;
class QLabel;

/// A hidden widget keeps its room, so that nothing moves when it comes.
void NonSpostare(QWidget* Oggetto);

/// The focus on a date with nothing selected: the next date is typed over it, and Ctrl+C means the result.
void VaiSullaData(MascheraData* Data);

/// Whether there is a viewer for the notices on terms.
[[nodiscard]] bool HaAvvertenze();
void ApriAvvertenze(const QString& Titolo);

/// The day on which the proceeding began, in a row of its own that shows only where a term asks for it.
class RigaInizio
{
public:
    /// Puts the row into a form. `Cambiato` runs at each edit.
    RigaInizio(QFormLayout* Modulo, int Riga, const std::function<void()>& Cambiato);
    ~RigaInizio() = default;
    RigaInizio(const RigaInizio&) = delete;
    RigaInizio& operator=(const RigaInizio&) = delete;

    /// A hidden row keeps no day.
    void Mostra(bool Serve);
    void Svuota();
    /// False for a text that is no date, which a message says before the box gets the focus.
    [[nodiscard]] bool Valida() const;
    /// None while it is hidden, empty or no date.
    [[nodiscard]] std::optional<QDate> Data() const;
    [[nodiscard]] MascheraData* Casella() const { return mskInizio; }

private:
    QLabel* lblInizio;
    MascheraData* mskInizio;
};

/// Whether a row of the catalogue, or one of a chain, is valid by the day on which the proceeding began.
[[nodiscard]] bool ChiedeInizio(const TermineRicorrente& Termine);
[[nodiscard]] bool ChiedeInizio(const Norme& Insieme, const CatenaTermini& Catena);

/// The notes of all terms, each once, one a line.
[[nodiscard]] QString NoteDi(const QList<TermineContato>& Termini);

/// A line for each term: "Appello (art. 325 c.p.c.): Lunedì, 5 Ottobre 2026 (Posticipata)", or where there is
/// little room "lun 05/10/2026: Appello (art. 325 c.p.c.) (Posticipata)".
[[nodiscard]] QString TestoCatena(const QList<TermineContato>& Termini, bool Breve = false);

/// The result in a line: the date in words, of a chain the days of all its terms. Empty for none.
[[nodiscard]] QString EsitoInRiga(const QList<TermineContato>& Termini);

[[nodiscard]] QList<ParteStrada> PartiDi(const QList<TermineContato>& Termini);

/// A list of long entries takes the room of so many letters and no more.
void LimitaLista(QComboBox* Lista, int Lettere);

/// Ctrl and a letter in the window.
void TastoRapido(QDialog* Modulo, Qt::Key Lettera, const std::function<void()>& Procedura);
