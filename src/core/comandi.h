// The one command dispatcher: words from toolbars, menus, icons and the command line.
#pragma once

#include <QString>

#include <functional>
#include <span>
#include <vector>

/// A place for a fee-note window. Element 0 of the array stays unused.
struct InfoParcella
{
    bool Libera = false;      ///< the place's window was closed
    bool Modificata = false;  ///< unsaved changes
    QString Nome;             ///< in lower case without ".mdb", or "Nuova parcella"
};

/// The places, grown together with the windows; upper bound 0 at the start.
inline std::vector<InfoParcella> InfoParcelle{1};
/// Upper bound of the array: the highest place.
[[nodiscard]] inline int UltimaParcella()
{
    return int(InfoParcelle.size()) - 1;
}
/// True when any place is not free.
[[nodiscard]] bool ParcellaAperta();
/// Takes a place for a new window: a free one, the untouched first note, or a new one.
/// @param Intatta tells whether the window of place 1 is captioned exactly "Nuova parcella"
[[nodiscard]] int TrovaPostoParcella(const std::function<bool()>& Intatta);
/// Back to upper bound 0; serves tests.
void AzzeraParcelle();

/// Name of the documents of the note in a place, without path and extension: the note's own, with "-" for
/// what no file's name may hold ("Nuova parcella:2" is a caption). Empty outside 1..UltimaParcella().
[[nodiscard]] QString SteloDocumento(int Indice);
/// The word-processor document of that note, in the user folder's "doc"; the file "printword" opens.
[[nodiscard]] QString FileDocumento(int Indice);

/// The notice page of the start, with the box that silences it.
struct PaginaAvviso
{
    QString Pagina;  ///< file
    QString Titolo;
    QString Marcatore;  ///< stem of the ".ini" file whose existence silences the page
    int LarghezzaTwip = 0;
    int AltezzaTwip = 0;
};

/// What a fee note asks of the address book, in the session's archive of clients and counterparties.
struct RichiestaRubrica
{
    int Indice = 0;     ///< place of the window that takes the choice
    QString Tabella;    ///< "clienti" or "controparti"
    QString Parola;     ///< comes back with the choice
    QString MenuStart;  ///< command to run at once; empty none
    QString KeyStart;   ///< criterion of the row to begin on; empty none

    friend bool operator==(const RichiestaRubrica&, const RichiestaRubrica&) = default;
};

/// Everything that opens or acts on a window. One file fills it; an empty member does nothing.
struct Apritori
{
    std::function<void(const QString& Percorso, int Socio, const QString& ID)> ApriParcella;
    std::function<void(int Selettore)> TrovaParcella;  ///< 0 notes, 1 templates
    std::function<void()> RinfrescaTrova;              ///< a note has closed: a finder on screen looks again
    std::function<void(int Indice, bool ComeModello)> SalvaParcella;
    std::function<void(int Indice, int Scheda)> VaiAllaScheda;
    std::function<int(int Indice)> SchedaCorrente;  ///< current tab of a window, -1 none
    std::function<void(int Indice)> Proteggi;
    std::function<bool(int Indice)> ChiudiParcella;  ///< unloads a window, asking; its answer is not heeded
    std::function<void()> Rubrica;
    std::function<void(const RichiestaRubrica& Chiesta)> RubricaParcella;  ///< the address book, for a note
    std::function<void()> CodiceFiscale;
    std::function<void(int Scheda)> Impostazioni;  ///< settings on a tab
    std::function<void()> Contributo;
    std::function<void()> Termini;
    std::function<void()> TerminiSequenziali;
    std::function<void()> Interessi;
    std::function<void()> Istat;
    std::function<void()> Aggiorna;
    std::function<void()> Documenti;
    std::function<void()> Informazioni;  ///< the about box
    std::function<void(const QString& Pagina, const QString& Titolo)> PaginaWeb;
    /// Another page in place of the one on view under this title. Where none is, nothing opens; the window
    /// neither comes to the front nor takes the focus.
    std::function<void(const QString& Pagina, const QString& Titolo)> PaginaSegue;
    std::function<void(const PaginaAvviso& Avviso)> Avviso;
    std::function<void()> CercaAggiornamenti;  ///< the search for updates at the start
    std::function<void()> OffriRecupero;       ///< the notes that a killed program left unsaved
};
inline Apritori Aperture;

/// Runs a command. Exact case; an unknown word does nothing and reports nothing; a failure of a branch is
/// reported.
/// @param Indice window concerned, 0 none; a command that names one does nothing outside 1..UltimaParcella()
/// @param Par extra text, the reference of the companion's request
void EseguiComando(const QString& Comando, int Indice, const QString& Par);

/// The words in the order of the table; serves tests.
[[nodiscard]] std::vector<QString> ParoleComando();
