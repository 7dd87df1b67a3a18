// The one door to the desktop system: opening files and addresses, special folders, pointer, beep.
//
// Plain functions over an installable table. Without a table nothing is opened and every opener says so.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// What the system does for the program. An empty function means "not available here".
struct Shell
{
    /// Opens a file with the program the system associates with it; 0, or an error number.
    std::function<int(const QString& File)> ApriFile;
    /// Opens an address (mailto:, http:, https:); 0, or an error number.
    std::function<int(const QString& Indirizzo)> ApriIndirizzo;
    /// True when the system knows a program for the file.
    std::function<bool(const QString& File)> HaProgramma;
    /// Opens a PDF at a page (0: no page asked for). A viewer that knows no page opens the document.
    std::function<int(const QString& File, int Pagina)> ApriPdf;
    /// Starts a program with arguments in a folder; 0, or an error number.
    std::function<int(const QString& Programma, const QStringList& Argomenti, const QString& Cartella)> Avvia;
    /// Starts a program with arguments beside this one, which it may outlive. 0, or an error number where it
    /// does not start. `AllaFine` gets its exit status when it ends, -1 where it broke down; nothing where it
    /// has not started, or goes on when this program ends.
    std::function<int(const QString& Programma, const QStringList& Argomenti,
                      std::function<void(int Esito)> AllaFine)>
        Segui;
    std::function<void(bool Attiva)> Clessidra;  ///< busy pointer on or off
    std::function<void()> Campanello;
    std::function<void()> ProssimoCampo;  ///< moves the focus on, as the Tab key does
    std::function<bool()> Connesso;       ///< the system's "connected" state
    /// Sends a text to the program whose window has exactly this title; nothing while there is none.
    std::function<void(const QString& Titolo, const QString& Testo)> Segnala;
    std::function<void(int Esito)> Termina;
};

/// Installs the services and returns the former ones.
Shell InstallaShell(Shell Nuova);

int ApriConSistema(const QString& File);  ///< Shell::ApriFile, and so on below; 0, or an error number
int ApriIndirizzoConSistema(const QString& Indirizzo);
bool HaProgramma(const QString& File);  ///< false without a table
int ApriPdfConSistema(const QString& File, int Pagina);
int AvviaProgramma(const QString& Programma, const QStringList& Argomenti, const QString& Cartella);
int SeguiProgramma(const QString& Programma, const QStringList& Argomenti,
                   std::function<void(int Esito)> AllaFine);
void Clessidra(bool Attiva);  ///< this and the next two do nothing without a table
void Campanello();
void ProssimoCampo();
bool InternetConnesso();  ///< false without a table
/// Nothing waits for an answer, and nobody learns whether the text has arrived.
void Segnala(const QString& Titolo, const QString& Testo);

/// The busy pointer, as long as this lives.
class ClessidraAccesa
{
public:
    ClessidraAccesa() { Clessidra(true); }
    ~ClessidraAccesa() { Clessidra(false); }
    ClessidraAccesa(const ClessidraAccesa&) = delete;
    ClessidraAccesa& operator=(const ClessidraAccesa&) = delete;
};

/// Folder of the running executable, with the separator at its end.
[[nodiscard]] QString CartellaEseguibile();

/// True for a file that the system runs.
[[nodiscard]] bool EProgramma(const QString& File);

/// What this system's installers end in: ".exe", or ".deb" for a package.
[[nodiscard]] QString EstensioneInstallatore();

/// A program found by its bare name in the folders where the system looks; empty when there is none, and for
/// a name with a folder.
[[nodiscard]] QString TrovaProgramma(const QString& Nome);

/// Code of the user's Documents for CartellaSpeciale.
inline constexpr int CartellaDocumenti = 5;

/// A system folder with the separator at its end.
/// @param Codice CartellaDocumenti the user's Documents, 12 temporary files, 36 the system's root folder
/// ("Windows"),
///        37 the system folder; any other code gives the user's home
[[nodiscard]] QString CartellaSpeciale(int Codice);

/// Family and major number of the operating system as VersioneWindows and the user-folder rule read it.
struct VersioneSistema
{
    bool Windows = false;
    int Maggiore = 0;  ///< 6 and more for every present system, Linux included
    int Minore = 0;
    bool Nt = true;  ///< false for the 9x family
};
[[nodiscard]] VersioneSistema LeggiVersioneSistema();

/// The system as a person calls it, with the processor that the program was made for in brackets:
/// "Debian GNU/Linux 12 (bookworm) (x86_64)".
[[nodiscard]] QString NomeSistema();

/// Has the standard streams and the names of files read and written in UTF-8, whatever the locale of whoever
/// calls. Before the application object is made, which asks for it once.
void ImponiUtf8();

/// The one way the process ends: the event loop is left with this exit status; tests record it.
void Termina(int Esito = 0);
