// What the programs that are killed were writing: a row of a table each.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

/// One thing that is written, and what may be there behind a kill.
struct Impresa
{
    QString Nome;
    /// Lays out what is there before.
    std::function<void(const QString& Cartella)> Prepara;
    /// What the victim does. It does no harm to do it again, also where it was done.
    std::function<void(const QString& Cartella)> Fa;
    /// Empty for what was there before or what the victim makes of it; a sentence for anything else.
    std::function<QString(const QString& Cartella)> Difetto;
    /// What a later run of the program leaves in the folder, and nothing else.
    QStringList Rimane;
    /// What calcanova-cli is called with where it is the victim; "%1" stands for the folder.
    QStringList Riga = {};
    /// Comes before the program runs once more: the time that passes, what its user does.
    std::function<void(const QString& Cartella)> Poi = {};
    /// Behind that run: what must be there now, and no longer may be; empty, or a sentence.
    std::function<QString(const QString& Cartella)> Infine = {};
    /// It is done once: a repetition begins with the folder laid out anew.
    bool DaCapo = false;
    /// What it writes with is tried by others in an ordinary run, which leaves it out.
    bool SoloChieste = false;
    /// What comes over the network comes in as many pieces as it likes: of two runs one may make fewer calls.
    bool APezzi = false;
};

[[nodiscard]] QList<Impresa> ImpreseNote();
[[nodiscard]] QList<Impresa> ImpreseArchivi();
[[nodiscard]] QList<Impresa> ImpreseUscite();
[[nodiscard]] QList<Impresa> ImpreseProgramma();

/// A sentence unless it is one of these.
[[nodiscard]] QString NonUna(const QString& Trovata, const QStringList& Ammesse);

/// Settings and data of the user stand in the folder of a row.
void ConCasaIn(const QString& Cartella);
/// The home as it was.
void CasaDiPrima();

/// Time has passed since whatever was left half-done in a folder was written.
void Invecchia(const QString& Cartella, int Secondi = 3600);

/// Rows of a note, so that half of them would show.
inline constexpr int Linee = 60;
