// What a monkey does next: gestures as rows of events, each of them one that a user can cause.
#pragma once

#include "scimmia/caso.h"
#include "scimmia/mani.h"

#include <QStringList>

#include <deque>
#include <functional>

/// One event, and how it is told.
struct Evento
{
    QString Detto;
    std::function<void()> Fai;
};

class Gesti
{
public:
    /// @param SuNote new notes are opened and saved more than by chance alone, and windows stay open longer
    Gesti(Caso& Chi, Mani& Con, bool SuNote) : Sorte(Chi), Tocco(Con), Parcelle(SuNote) {}

    /// The events of the next gesture. None where nothing can be done just now.
    [[nodiscard]] std::deque<Evento> Prossimo();

private:
    [[nodiscard]] std::deque<Evento> Mouse();
    [[nodiscard]] std::deque<Evento> Trascina();
    [[nodiscard]] std::deque<Evento> Rotella();
    [[nodiscard]] std::deque<Evento> UnTasto();
    [[nodiscard]] std::deque<Evento> Parola();
    [[nodiscard]] std::deque<Evento> Riempi();
    [[nodiscard]] std::deque<Evento> Comando();
    [[nodiscard]] std::deque<Evento> Finestra();
    [[nodiscard]] std::deque<Evento> Appunti();

    [[nodiscard]] std::deque<Evento> Battuta(int Codice, Qt::KeyboardModifiers Con, const QString& Testo);
    [[nodiscard]] std::deque<Evento> Clic(const Posto& Dove, const QString& Cosa, Qt::MouseButton Tasto,
                                          Qt::KeyboardModifiers Con, bool Doppio);
    [[nodiscard]] Posto Bersaglio(QString* Cosa);
    [[nodiscard]] Posto DentroA(const QWidget* Controllo);

    Caso& Sorte;
    Mani& Tocco;
    const bool Parcelle;
};

/// The windows of the program that are on view, popups included.
[[nodiscard]] QWidgetList FinestreInVista();
/// False for a window that a modal one holds back.
[[nodiscard]] bool Libera(const QWidget* Finestra);
/// A widget by its class and its name.
[[nodiscard]] QString NomeDi(const QObject* Oggetto);
