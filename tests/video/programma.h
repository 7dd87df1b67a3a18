// The real program as a child, with a home of its own; keys and mouse as the display server sends them.
#pragma once

#include "supporto/prova.h"

#include <QLocalSocket>
#include <QPoint>
#include <QProcess>
#include <QRect>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>

/// Waits until a question has this answer; the failure shows both.
#define ATTENDI(Domanda, Valore) QTRY_COMPARE_WITH_TIMEOUT(P->Chiedi(Domanda), QStringLiteral(Valore), 15000)
/// Waits until something holds.
#define ATTENDI_CHE(Condizione) QTRY_VERIFY2_WITH_TIMEOUT((Condizione), qPrintable(P->Stato()), 15000)

/// One run of the program. It is ended with the object, however the test went.
class Programma
{
public:
    /// Starts it and waits for its first window. An office is named, and the notice to subscribers is read.
    /// @param Impostazioni further lines "key=value" of the settings
    explicit Programma(const QStringList& Argomenti = {}, const QString& Impostazioni = {});
    ~Programma();
    Programma(const Programma&) = delete;
    Programma& operator=(const Programma&) = delete;

    [[nodiscard]] bool InVita() const { return Processo.state() == QProcess::Running; }
    /// Asks the program what it shows (see spia.cpp). An empty answer when it is gone.
    QString Chiedi(const QString& Domanda);
    /// Where it stands, for the message of a failure.
    QString Stato();
    QString Fuoco() { return Chiedi(QStringLiteral("fuoco")); }
    QString Testo(const QString& Nome) { return Chiedi(QStringLiteral("testo ") + Nome); }
    QString Messaggio() { return Chiedi(QStringLiteral("messaggio")); }
    QRect Posto(const QString& Nome);
    /// A cell on the screen; column -1 is the row selector.
    QRect Cella(const QString& Griglia, int Riga, int Colonna);
    /// What a cell shows.
    QString TestoCella(const QString& Griglia, int Riga, int Colonna);
    /// What the message box, if there is one, the list and the focus say: nothing has come up, nothing has
    /// left.
    [[nodiscard]] bool Fermo(const QString& Fuoco);
    /// Waits for a good answer. @return false when it does not come
    [[nodiscard]] bool Attendi(const QString& Domanda, const std::function<bool(const QString&)>& Buona);
    /// Waits until the active window, or the document in it, has this title and is painted.
    [[nodiscard]] bool Aperta(const QString& Titolo);
    /// Waits until the desktop is in front and painted; the frame of the notes has its title too.
    [[nodiscard]] bool AllaScrivania();
    /// From the desktop to the frame with a new note in it.
    [[nodiscard]] bool NuovaParcella();
    /// Gives the note on view category, authority and value, so that its other tabs may be entered.
    [[nodiscard]] bool CompilaDatiBase();
    /// Turns the pages of the note on view by keys until this one comes.
    [[nodiscard]] bool AllaScheda(const QString& Titolo);
    /// Opens the settings from the frame, and turns to one of their tabs by keys.
    [[nodiscard]] bool AlleImpostazioni(const QString& Titolo);
    /// Tab until a widget has the focus. @return false where Tab does not lead to it
    [[nodiscard]] bool VaiA(const QString& Nome);
    [[nodiscard]] QString Casa() const { return Cartella.path(); }

    // ---- the keyboard and the mouse; each returns when the program has had what was sent
    /// Keys by their names of the display server: "Return", "ctrl+shift+t", "Control_L".
    void Premi(const QStringList& Tasti);
    void Premi(const QString& Tasto) { Premi(QStringList{Tasto}); }
    /// Answers the message box on view with a key, once it has the keyboard.
    void Rispondi(const QString& Tasto);
    void Digita(const QString& Testo);
    void Giu(const QString& Tasto);
    void Su(const QString& Tasto);
    /// Presses and releases a modifier by itself.
    void Sfiora(const QString& Modificatore);
    void Clic(const QRect& Dove, int Volte = 1);
    void Clic(const QString& Nome, int Volte = 1) { Clic(Posto(Nome), Volte); }
    void ClicDestro(const QRect& Dove);
    void Trascina(const QPoint& Da, const QPoint& A);
    /// Turns the wheel by notches over a place, positive towards the user.
    void Rotella(const QRect& Dove, int Scatti);

    /// A picture of the whole screen in the folder of pictures.
    void Fotografa(const QString& Nome);

private:
    void Xdotool(const QStringList& Argomenti);
    int Contati(int Quale);
    void AttendiContati(int Quale, int Almeno);

    QTemporaryDir Cartella;
    QProcess Processo;
    QLocalSocket Filo;
};

/// Text of the clipboard, read by another program.
QString Appunti();
