// Hands that use real windows: clicks, keys, choices, cells. Whatever they do not find ends the script.
#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

class Griglia;
class QComboBox;
class QLineEdit;

namespace mani {

/// @throws Errore 1000 with the sentence
[[noreturn]] void Ferma(const QString& Perche);

/// A control of a window by its name.
/// @throws Errore 1000 when the window has none of that name and kind
template <class T = QWidget>
T& Controllo(const QWidget& Finestra, const QString& Nome)
{
    T* Trovato = Finestra.findChild<T*>(Nome);
    if (!Trovato)
        Ferma(QStringLiteral("manca il controllo %1").arg(Nome));
    return *Trovato;
}

/// Lets layouts, queued calls and painting run; the control lets nothing pass of what it has left to do.
void Lascia();

/// Shows a window in front and waits until it has the focus.
/// @throws Errore 1000 when it does not get it within some seconds
void Attiva(QWidget& Finestra);

/// A click where the control listens: boxes with a sign have it at the left.
/// @throws Errore 1000 for a control that is hidden or disabled
void Clic(QWidget& Bottone);
void Clic(QWidget& Bottone, QPoint Dove);

/// Types into whatever has the focus.
void Digita(const QString& Testo);
void Premi(Qt::Key Tasto);

/// Types into a box over what it holds, and leaves it.
void Scrivi(QLineEdit& Box, const QString& Testo);

/// Chooses an entry in the list that drops down.
/// @throws Errore 1000 when no entry has the text
void Scegli(QComboBox& Lista, const QString& Voce);

/// Types into a cell and closes it with Enter.
void ScriviCella(Griglia& Righe, int Riga, int Colonna, const QString& Testo);
void ClicCella(const Griglia& Righe, int Riga, int Colonna);
void DoppioClic(const Griglia& Righe, int Riga);

}  // namespace mani
