// A monkey at the program: events by chance, one at a time, and a look after each at what must hold.
#pragma once

#include "scimmia/caso.h"
#include "scimmia/controlli.h"
#include "scimmia/gesti.h"
#include "scimmia/mani.h"
#include "scimmia/ufficio.h"

#include <QObject>
#include <QPointer>

#include <deque>
#include <functional>
#include <vector>

/// Its events come from a timer of the event loop that runs just now, that of a box among them, and only when
/// that loop begins a new turn: a user is slower than the program that closes a box. What follows a key that
/// opens a box meets the box.
class Scimmia : public QObject
{
public:
    /// @param Annota is handed each event before it happens
    /// @param Fermati is told what is wrong, and ends the process
    /// @param SuNote see Gesti
    Scimmia(Caso& Chi, int Quanti, bool SuNote, std::function<void(const QString&)> Annota,
            std::function<void(const QString&)> Fermati);

    void Parti();
    /// True once it has made all its events and said good-bye.
    [[nodiscard]] bool HaFinito() const { return Congedo; }
    [[nodiscard]] int Fatti() const { return Eventi; }
    [[nodiscard]] const NoteSalvate& Salvate() const { return Note; }

    Risposte Come = Risposte::ACaso;

protected:
    void timerEvent(QTimerEvent* Evento) override;

private:
    void Riarma();
    void Passo();
    void GestoreFinestre();
    void Controlla();
    void Gesto();
    void LasciaPassare();
    void FineSessione();
    void Saluta();

    Caso& Sorte;
    const int Quanti;
    std::function<void(const QString&)> Annota;
    std::function<void(const QString&)> Fermati;
    Mani Tocco;
    Gesti Idee;
    NoteSalvate Note;
    std::deque<Evento> Coda;
    std::vector<QPointer<QWidget>> Storia;  ///< windows that were in front, the last one behind
    int Timer = 0;
    int Eventi = 0;
    int Saluti = 0;
    int SenzaFuoco = 0;
    bool GiroNuovo = false;
    bool Congedo = false;
};
