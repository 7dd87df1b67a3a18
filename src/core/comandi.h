// The commands: one table of words, and the dispatcher that toolbars, menus, icons and the command line use.
#pragma once

#include <QString>

#include <span>
#include <vector>

/// What a command is called with.
struct Chiamata
{
    QStringView Parola;
    int Indice;  ///< window concerned, 0 none
    const QString& Par;
};

/// A button of the toolbar; its picture is called as the word.
struct PulsanteComando
{
    int Posto = 0;   ///< from the left; 0: there is none
    int Gruppo = 0;  ///< a separator stands where it changes
    QStringView Scritta;
    QStringView Suggerimento;
};

/// An icon of the desktop; its picture is called as the word.
struct IconaComando
{
    int Posto = 0;  ///< in reading order; 0: there is none
    QStringView Etichetta;
};

/// A word, when it acts, what it does, and the controls that send it.
struct Comando
{
    QStringView Parola;
    bool (*Guardia)(const Chiamata&) = nullptr;
    void (*Azione)(const Chiamata&) = nullptr;       ///< null: see ApreFinestra
    QString (*Manca)(QStringView Parola) = nullptr;  ///< see Impedimento; null: nothing but a window
    QStringView Tasti = u"";                         ///< of the procedure, else of the button
    QStringView Effetto = u"";                       ///< what the keys do, on the page of keys
    bool Procedura = false;                          ///< the frame sends it by itself too, with no window
    PulsanteComando Pulsante = {};
    IconaComando Icona = {};
    QStringView Finestra = u"";  ///< of a calculator: class of its window; the keys that all of them have and
                                 ///< the help's page of it follow
    QStringView Copia = u"";  ///< what the button of its result copies, on the page of keys; empty: none does
};

/// Runs a command. Exact case; an unknown word does nothing and reports nothing; a failure of a branch is
/// reported.
/// @param Indice window concerned, 0 none; a command that names one does nothing outside 1..UltimaParcella()
/// @param Par extra text, the reference of the companion's request
void EseguiComando(const QString& Parola, int Indice, const QString& Par);

/// The table, in the order of the dispatcher.
[[nodiscard]] std::span<const Comando> Comandi();
/// True for a word whose window is registered under it in `Aperture`: the command opens that.
[[nodiscard]] bool ApreFinestra(const Comando& Riga);
/// The rows with a button, from the left; those with an icon, in reading order.
[[nodiscard]] std::vector<const Comando*> ComandiDellaBarra();
[[nodiscard]] std::vector<const Comando*> ComandiDellaScrivania();

/// Why a command cannot work in this installation, in the user's words; empty when it can. Its controls are
/// disabled then.
[[nodiscard]] QString Impedimento(QStringView Parola);
