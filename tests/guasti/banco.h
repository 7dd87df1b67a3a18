// A scenario is one thing that the program writes; the bench does it again and again, each time with another
// call of the system failing, and judges what it finds afterwards.
#pragma once

#include "guasti/registro.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

/// Where a scenario stands. Both end in a separator.
struct Posto
{
    QString Cartella;  ///< whose files meet faults; empty before each attempt
    QString Fuori;     ///< what no fault meets
};

/// What stands in the folder behind an attempt.
enum class Trovato { Prima, Nuovo, Rotto };

/// What an attempt has said and how it has ended.
struct Uscita
{
    int Esito = 0;  ///< 0: it says that it is done
    bool Caduta = false;
    bool Appesa = false;
    QString Detto;  ///< standard output
    QString Frasi;  ///< standard error
    registro::Conti Conti{};
};

struct Scenario
{
    QString Nome;
    /// Calls without which the scenario would prove nothing.
    QList<registro::Chiamata> Attese;
    /// Lays out the folder as it is before.
    std::function<void(const Posto&)> Prepara;
    /// Does it, in a process of its own; 0 when it is done. It may call `Comincia` first, where something
    /// comes before.
    std::function<int(const Posto&, const std::function<void()>& Comincia)> Atto = {};
    /// The program and its arguments, instead of an act.
    std::function<QStringList(const Posto&)> Comando = {};
    std::function<Trovato(const Posto&, const Uscita&)> Guarda;
    /// Patterns of the paths below the folder that may stand there afterwards.
    QStringList Ammessi;
    /// What the next start does with the leftovers of a removal that has failed, where the next attempt does
    /// not.
    std::function<void(const Posto&)> Spazza = {};
    /// One of the selection that ctest runs.
    bool InBreve = false;
    /// A disk without room is called so, whichever call has met it.
    bool DicePerche = false;
    /// What is found is right although a flush has failed unnoticed: the file is no promise of the program.
    bool SenzaPromessa = false;
    /// What is written comes along with something else, of which alone a refusal speaks.
    bool DiPassaggio = false;
    /// Its sentence is given and tells no more: where the disk fails for ever, what stands there cannot be
    /// taken back.
    bool FraseFissa = false;
    /// What it does answers by a value and says nothing itself; the reason stands by the scenario.
    bool SenzaFrase = false;
    /// The warning of what is done in spite of a disk that has refused a part of it.
    QString Avverte = {};
};

/// A way to fail.
struct Guasto
{
    registro::Chiamata Chiamata;
    const char* Errore;
    bool Sempre;
};

/// What is wrong with an attempt; empty: nothing.
struct Giudizio
{
    Trovato Stato = Trovato::Prima;
    QString Rotto;            ///< neither the former nor the new, a crash, a hang
    QString Taciuto;          ///< said to be done and is not
    QString Negato;           ///< said not to be done, and stands there all the same
    QString Muto;             ///< refused without a sentence in Italian
    bool SenzaFrase = false;  ///< refused, and no sentence was asked for
    QString Resti;            ///< left beside, and not swept by the next attempt
    QString Bloccato;         ///< the next attempt, without a fault, fails

    [[nodiscard]] QStringList Difetti() const;
};

/// Sums of a scenario and a call.
struct Somme
{
    int Prove = 0;
    int Prima = 0;
    int Nuovo = 0;
    int Rotti = 0;
    int Taciuti = 0;
    int Negati = 0;
    int Muti = 0;
    int SenzaFrase = 0;
    int Resti = 0;
    int Bloccati = 0;
};

class Banco
{
public:
    /// @param Chi the scenario; it outlives the bench
    explicit Banco(const Scenario& Chi);
    ~Banco();
    Banco(const Banco&) = delete;
    Banco& operator=(const Banco&) = delete;

    /// Does it without a fault and counts. @return what is wrong: it fails, it is not seen, a call is missing
    [[nodiscard]] QStringList Conta();
    /// Calls that the count has met.
    [[nodiscard]] unsigned Viste(registro::Chiamata Quale) const { return Contate[Quale]; }
    /// One attempt with the nth call failing. @param Accaduto false when no such call came
    [[nodiscard]] Giudizio Prova(const Guasto& Come, unsigned Numero, bool& Accaduto, Uscita& Vista);

private:
    [[nodiscard]] Uscita Esegui(const Guasto& Come, unsigned Numero);
    [[nodiscard]] QStringList Estranei() const;
    [[nodiscard]] Giudizio Giudica(const Guasto& Come, const Uscita& Vista, const QStringList& Accanto);

    const Scenario& Cosa;
    Posto Dove;
    QString FileConti;
    registro::Conti* Registro = nullptr;
    std::array<std::uint32_t, registro::Chiamate> Contate{};
};

/// The ways in which a call fails, in the order of the table.
[[nodiscard]] QList<Guasto> GuastiDi(registro::Chiamata Quale);

/// Every n of every way, or a short selection. Writes the table and what is wrong to the standard output.
/// @return how many attempts were wrong
int EseguiScenari(const QList<Scenario>& Tutti, bool Breve, const QStringList& Soli,
                  const QString& SolaChiamata);

/// The program's own checks of the bench: scenarios that break a rule, each of which must be found out.
[[nodiscard]] QStringList ControllaBanco();
