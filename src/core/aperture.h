// The one table of hooks from below up to the windows.
#pragma once

#include "core/schedeimpostazioni.h"
#include "core/spesedilegge.h"

#include <QList>
#include <QString>
#include <QVariant>

#include <functional>
#include <map>
#include <optional>
#include <utility>

class QMdiArea;
struct PaginaAvviso;
struct RichiestaRubrica;

/// What is asked of windows that the asker may not know. core/app fills it; an empty member does nothing.
struct Apritori
{
    /// The windows that a command opens by its word alone. A word that is not here has no window yet.
    std::map<QString, std::function<void()>, std::less<>> Finestre;
    [[nodiscard]] bool Ha(QStringView Parola) const;
    /// Opens the window of a word; nothing where there is none.
    void Apri(QStringView Parola) const;

    // ---- the notes and their windows

    std::function<void(const QString& Percorso, int Socio, const QString& ID)> ApriParcella;
    /// The note of a file: the window that holds it comes to the front, else one opens.
    std::function<void(const QString& Percorso)> MostraParcella;
    std::function<void(int Indice, bool ComeModello)> SalvaParcella;
    /// Saves a note over its own file, without a dialog; see frmParcelle::SalvaSulPosto.
    std::function<void(int Indice)> SalvaSulPosto;
    std::function<void(int Indice)> SalvaConNome;     ///< asks for a file, and proposes a name
    std::function<void(int Indice)> DuplicaParcella;  ///< a new note made of the one of a place, asking
    std::function<void(int Indice, bool Si)> SegnaModificata;  ///< sets or clears the mark of a note
    std::function<void(int Indice, int Scheda)> VaiAllaScheda;
    std::function<int(int Indice)> SchedaCorrente;  ///< current tab of a window, -1 none
    std::function<void(int Indice)> Proteggi;
    std::function<bool(int Indice)> ChiudiParcella;  ///< unloads a window, asking; its answer is not heeded
    /// A window was opened or activated by code: from then on it is the toolbar's target, even while another
    /// program has the focus.
    std::function<void(int Indice)> ParcellaAttivata;
    std::function<QList<NotaInVista>()> NoteInVista;  ///< the notes on screen, the one in front first
    /// Writes exempt expenses into a note. @return why it could not be done, empty when it was
    std::function<QString(const NotaInVista& Dove, const QList<SpesaDiLegge>& Spese)> PortaSpese;
    std::function<void()> UltimaParcellaChiusa;  ///< the last note has closed: the desktop comes back
    std::function<void()> OffriRecupero;         ///< the notes that a killed program left unsaved

    // ---- the finder

    /// The finder: on the folder of notes (0), of templates (1) or on the given one (2), for the window of a
    /// place, 0 none. `Parent` "multiple" asks for a note to go with that window's: the call comes back with
    /// its path when it is chosen, empty when none is. Else the finder opens what is chosen by itself.
    std::function<QString(int Selettore, const QString& Cartella, int Indice, const QString& Parent)>
        TrovaParcella;
    std::function<void()> RinfrescaTrova;  ///< a note has closed or was saved: a finder on screen looks again

    // ---- the address book

    std::function<void(const RichiestaRubrica& Chiesta)> RubricaParcella;  ///< the address book, for a note
    /// A row chosen in the address book goes to the note that asked: its place, its serial number, the word
    /// that it asked with, the values of the row (key, name, the other visible columns). Nothing happens to a
    /// place that holds another note by now, and a row without a name is refused.
    std::function<void(int Indice, int Numero, const QString& Parent, const QVariantList& Valori)>
        SceltaDaRubrica;
    /// A card of a table ("clienti", "controparti") was saved: the notes linked to the row follow its name.
    std::function<void(const QString& RecordSource, int ID)> NominativoCambiato;
    std::function<void(int Indice, int Numero)> ParcellaChiusa;  ///< a note has closed: its address book goes
    /// The program is about to end: every address book is closed, asking about what is not saved. False: the
    /// user stays with one.
    std::function<bool()> ChiudiRubriche;
    /// Offers to make an archive of another program's one of this program's, beginning with this file.
    std::function<void(const QString& File)> ImportaArchivio;

    // ---- norms and rates

    /// The lump sum for notifications in force on a day; nothing where the norms cannot be read, or say none.
    std::function<std::optional<ImportoDiLegge>(const QDate& Giorno)> AnticipazioneNotifiche;
    std::function<void()>
        TassiCambiati;  ///< another rate archive is in place: the calculators on view show it

    // ---- the settings

    std::function<void(int Scheda, bool Modale)> Impostazioni;  ///< modal: until they are closed
    std::function<void()> ImpostazioniChiuse;                   ///< who has led to them waits no longer
    /// The settings with the focus in a box.
    std::function<void(impostazioni::CasellaStudio Quale)> CasellaImpostazioni;
    std::function<void()> ImpostazioniCambiate;  ///< they were saved: desktop and address books follow
    std::function<void()> LasciaCartellaUtente;  ///< the session is about to take another user folder
    /// Edits or, asking, deletes an icon of the user's, by its row on the desktop: the settings open for it.
    std::function<void(int Riga, bool Elimina)> IconaPersonale;

    // ---- pages and updates

    /// A page by its path, which may name an anchor behind a "#".
    std::function<void(const QString& Pagina, const QString& Titolo)> PaginaWeb;
    /// Another page in place of the one on view under this title. Where none is, nothing opens; the window
    /// neither comes to the front nor takes the focus.
    std::function<void(const QString& Pagina, const QString& Titolo)> PaginaSegue;
    std::function<void(const PaginaAvviso& Avviso)> Avviso;
    std::function<void()> PaginaTasti;         ///< the page of keys
    std::function<void()> CercaAggiornamenti;  ///< the search for updates at the start
    /// The form of updates; with the word "run" it begins its check by itself.
    std::function<void(const QString& Parola)> Aggiorna;

    // ---- frame, folders, trace

    std::function<QMdiArea*()> AreaParcelle;  ///< where note windows live; asking for it brings the frame up
    /// Asks for a folder, beginning at another; empty when cancelled.
    std::function<QString(const QString& Titolo, const QString& Inizio)> ScegliCartella;
    /// How the debug trace is shown ("FINESTRA DEBUG:", line break, trace).
    std::function<void(const QString& Testo)> MostraTraccia;
};
inline Apritori Aperture;

/// Asks it of whoever can do it: nothing where the hook is empty.
template <class F, class... A>
void Invoca(const std::function<F>& Apritore, A&&... Valori)
{
    if (Apritore)
        (void)Apritore(std::forward<A>(Valori)...);
}

/// True until the search for updates of this session has run, if the user wants it and a server is named.
[[nodiscard]] bool RicercaDaFare();
/// Shows the page of keys.
void MostraPaginaTasti();

/// Looks for updates once in a session, where RicercaDaFare says so.
void RicercaAllAvvio();
