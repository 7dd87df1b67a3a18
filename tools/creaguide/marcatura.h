// The plain text that the guides are written in, read into blocks that know neither sheet nor screen.
//
//   # Titolo            the title, once, at the top
//   ## Sezione          a section
//   ### Paragrafo       a part of one
//   testo               a paragraph; its lines are joined, a blank line ends it
//   - voce  1. voce     items, with a bullet or with the number as it stands
//   |= 6 4> 4>          opens a table: widths in centimetres, ">" for columns flush right
//   | a | b | c         a row of it, the first one its headings; a blank line ends the table
//   %tabella nome       a table made from the data of the program
//   %tasti              every part of the program's keys that no table above shows, with its title
//   %pagina             what follows begins a page, on paper
//   %solo carta         what follows is for the paper alone; "%solo schermo" for the screen alone, "%solo"
//   ends it %prova a b => x; y  shown nowhere: a call of the command line whose answer holds x and y, which
//   stand in the
//                       section too
//   %capitoli           the chapters of the help follow, on paper
//   **grassetto** __corsivo__ [parole](pagina#sezione)   within a line of any kind but a title
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

/// A table of the program's data: headings first.
struct TabellaDati
{
    std::vector<double> LarghezzeCm;
    std::vector<bool> ADestra;
    QList<QStringList> Righe;
};

/// Words in one form.
struct ParoleGuida
{
    QString Testo;
    bool Grassetto = false;
    bool Corsivo = false;
    QString Rimando;  ///< where they lead, as it is written; empty: nowhere
};

/// A piece of a guide.
struct BloccoGuida
{
    enum class Genere { Titolo, Sezione, Parte, Testo, Voce, Tabella };
    enum class Posto { Ovunque, Carta, Schermo };

    Genere Che = Genere::Testo;
    Posto Dove = Posto::Ovunque;
    std::vector<ParoleGuida> Parole;
    QString Segno;  ///< of an item: a bullet, or its number
    TabellaDati Dati;
    bool Lineata = false;      ///< a table with rules between its cells
    bool NuovaPagina = false;  ///< a page begins with it
    int Riga = 0;              ///< of the text, for the sentences of errors

    /// Its words alone, those of a table too.
    [[nodiscard]] QString Testo() const;
};

/// A worked example that the program can reckon again.
struct ProvaGuida
{
    QString Chiamata;    ///< what the command line is called with
    QStringList Attesi;  ///< what its answer holds
    size_t Blocco = 0;   ///< that it stands before
    int Riga = 0;
};

struct TestoGuida
{
    QString Nome;  ///< of the file, for the sentences of errors
    QString Titolo;
    std::vector<BloccoGuida> Blocchi;
    std::vector<ProvaGuida> Prove;
    bool Capitoli = false;  ///< the chapters of the help follow it on paper

    /// The words of the section that a block stands in, its title first.
    [[nodiscard]] QString TestoDellaSezione(size_t Blocco) const;
};

/// Gives a table by the name that the text calls it. @throws Errore 5 no such table
using FonteTabelle = std::function<TabellaDati(const QString& Nome)>;

/// Reads a guide.
/// @param Nome of the file, for the sentences of the errors
/// @throws Errore 5 "nome, riga n: motivo" for a text without a title or with one too many, an unknown
///         directive, a row that does not fit its table, marks that are not closed
[[nodiscard]] TestoGuida LeggiTesto(const QString& Nome, const QString& Testo, const FonteTabelle& Tabelle);

/// @throws Errore 5 "nome, riga n: motivo", the form of all that is wrong with a guide
[[noreturn]] void RifiutaGuida(const QString& Nome, int Riga, const QString& Motivo);
