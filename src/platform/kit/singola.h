// Forms of which there is one: made at their first use, kept until the program ends.
#pragma once

#include <QCoreApplication>
#include <QPointer>

/// The instance if it was made, null otherwise.
template <class Modulo>
inline QPointer<Modulo> SeCaricato;

/// The one instance of a form. The application owns it: it goes when the event loop is left.
template <class Modulo>
Modulo& Singola()
{
    QPointer<Modulo>& Istanza = SeCaricato<Modulo>;
    if (!Istanza) {
        Istanza = new Modulo;
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, Istanza.data(), &QObject::deleteLater);
    }
    return *Istanza;
}
