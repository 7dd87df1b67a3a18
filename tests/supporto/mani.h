// The hands of the tests: they use a window as its user does, by mouse and keyboard. A control that is not
// there fails the test with its name.
#pragma once

#include "supporto/finestre.h"

#include <QPoint>
#include <QString>
#include <QStringList>
#include <QTest>
#include <QWidget>

class Griglia;
class QComboBox;
class QLineEdit;

// ---- what a window shows

/// A control of a window by its name.
template <class T = QWidget>
T* Controllo(const QWidget* Finestra, const char* Nome)
{
    T* Trovato = Finestra->findChild<T*>(QString::fromLatin1(Nome));
    if (!Trovato)
        QTest::qFail(Nome, __FILE__, __LINE__);
    return Trovato;
}

/// The text of a label or a box; a date box with "_" in the places that are not filled.
QString TestoDi(const QWidget* Finestra, const char* Nome);

/// Those of the captions that no label, button, frame or entry of the menu of a window shows.
QStringList SenzaDidascalia(const QWidget* Finestra, QStringList Attese);

/// The controls that a user can reach and a screen reader could not name.
QStringList SenzaNome(const QWidget* Finestra);

/// The name of what has the focus; that of the control around it for parts without one.
QString NomeFuoco();

/// The controls met by Tab from a first one on.
QStringList OrdineTab(QWidget* Primo, int Quanti);

/// What the clipboard holds.
QString Appunti();

// ---- buttons, lists, boxes

/// Drags with the left button from one point of a widget to another, by steps.
void TrascinaCon(QWidget* Dove, QPoint Da, QPoint A);

/// A click where a button listens: the indicator of an option or of a check box stands at the left.
void Clic(QWidget* Bottone);

/// Chooses an entry of the menu of the window.
void DalMenu(const QWidget* Finestra, const char* Nome);

/// Ctrl+C as the user types it: the key goes by the shortcuts of the window.
void CopiaConTasti();

/// Chooses an entry with the mouse in the list that drops down.
void Scegli(QComboBox* Lista, int Indice);
/// The same by keyboard: the list dropped down, its first entry, down, Enter.
void ScegliDaTastiera(QComboBox* Lista, int Indice);
/// The same without dropping the list down, by the arrows.
void ScegliConFrecce(QComboBox* Lista, int Indice);

/// Types into a box over what it holds; an empty text empties it.
void Scrivi(QLineEdit* Box, const QString& Testo);
void Scrivi(const QWidget* Finestra, const char* Nome, const QString& Testo);

/// Pastes into a box over what it holds.
void Incolla(QLineEdit* Box, const QString& Testo);

// ---- grids

QPoint CentroCella(const Griglia* Righe, int Riga, int Colonna);
void ClicCella(const Griglia* Righe, int Riga, int Colonna);
void DoppioClic(const Griglia* Righe, int Riga);

/// The box of the open cell, null when none is.
QLineEdit* LaCella(const Griglia* Righe);

/// Types a text into a cell and closes it with Enter.
void ScriviCella(Griglia* Righe, int Riga, int Colonna, const QString& Testo);

// ---- windows

/// Closes a window and waits until it has gone.
void Chiudi(QWidget* Finestra);
