// The one door to the user: message boxes, questions, input boxes and the common dialogs.
//
// Plain functions over an installable table, so that logic may speak to the user without knowing how:
// the windows install Qt's boxes, the tests a recorder, the command line its error stream.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class QPrinter;

// Flags of a box, to be added up: one set of buttons, one icon, one default button.
constexpr int vbOKOnly = 0;
constexpr int vbOKCancel = 1;
constexpr int vbYesNoCancel = 3;
constexpr int vbYesNo = 4;
constexpr int vbCritical = 16;
constexpr int vbQuestion = 32;
constexpr int vbExclamation = 48;
constexpr int vbInformation = 64;
constexpr int vbDefaultButton2 = 256;

/// The set of buttons among the flags of a box, and its icon.
[[nodiscard]] constexpr int PulsantiDi(int Bandiere)
{
    return Bandiere & 0x07;
}
[[nodiscard]] constexpr int IconaDi(int Bandiere)
{
    return Bandiere & 0x70;
}

// Answers of a box.
constexpr int vbOK = 1;
constexpr int vbCancel = 2;
constexpr int vbYes = 6;
constexpr int vbNo = 7;

// The fixed titles.
inline constexpr QStringView TitoloErrore = u"Errore:";
inline constexpr QStringView TitoloDomanda = u"Domanda:";
inline constexpr QStringView TitoloMessaggio = u"Messaggio:";
inline constexpr QStringView TitoloAvvertenza = u"Avvertenza:";
inline constexpr QStringView TitoloInformazione = u"Informazione:";

/// How the program speaks to whoever uses it. An empty function behaves as the safe answer: nothing is
/// shown, a box is answered Cancel/No/OK by its buttons, a dialog is cancelled.
struct Messaggi
{
    std::function<int(const QString& Testo, int Bandiere, const QString& Titolo)> Box;
    std::function<int(const QString& Testo, int Bandiere, const QString& Titolo, const QStringList& Pulsanti)>
        BoxPulsanti;
    std::function<QString(const QString& Testo, const QString& Titolo, const QString& Predefinito)>
        Immissione;
    std::function<QString(const QString& Titolo, const QString& Iniziale, const QString& Filtro)> ApriFile;
    std::function<QString(const QString& Titolo, const QString& Iniziale, const QString& Filtro)> SalvaFile;
    std::function<std::optional<int>(int Iniziale)> ScegliColore;  ///< colours as 0xBBGGRR
    /// Lets the user set a printer up; false when cancelled. Only windows know what a printer is.
    std::function<bool(QPrinter& Scelta)> ScegliStampante;
};

/// Installs a way of speaking and returns the former one.
Messaggi InstallaMessaggi(Messaggi Nuovi);

/// @return the answer, one of vbOK, vbCancel, vbYes, vbNo
int MsgBox(const QString& Testo, int Bandiere = vbOKOnly,
           const QString& Titolo = QStringLiteral("Calcanova"));

/// The same box with captions of the caller's own, in the order of the standard buttons.
int MsgBoxPulsanti(const QString& Testo, int Bandiere, const QString& Titolo, const QStringList& Pulsanti);

/// @return the text typed, empty when cancelled
QString InputBox(const QString& Testo, const QString& Titolo = QStringLiteral("Calcanova"),
                 const QString& Predefinito = {});

// The common dialogs; an empty path means cancelled.
QString DialogoApri(const QString& Titolo, const QString& Iniziale, const QString& Filtro);
QString DialogoSalva(const QString& Titolo, const QString& Iniziale, const QString& Filtro);
std::optional<int> DialogoColore(int Iniziale);
bool DialogoStampante(QPrinter& Scelta);  ///< false means cancelled
