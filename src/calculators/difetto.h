// What a check of the boxes of a calculator finds wrong.
#pragma once

#include <QString>

/// The sentence to show (title "Errore:") and the control that gets the focus.
struct Difetto
{
    QString Messaggio;
    QString Controllo;

    friend bool operator==(const Difetto&, const Difetto&) = default;
};
