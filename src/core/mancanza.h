// What a check of boxes finds wrong.
#pragma once

#include <QString>

/// The sentence to show (title "Errore:") and the box that gets the focus, as the checking room numbers its
/// boxes.
template <class Campo>
struct Mancanza
{
    QString Messaggio;
    Campo Dove{};

    friend bool operator==(const Mancanza&, const Mancanza&) = default;
};
template <class Campo>
Mancanza(QString, Campo) -> Mancanza<Campo>;
