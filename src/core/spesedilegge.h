// Expenses whose amount the law fixes: what a note is offered, and what another window brings into one.
#pragma once

#include <QDate>
#include <QString>

/// The items of the catalogue of expenses that such amounts belong to; the value is the item's key there.
enum class VoceDiLegge {
    Contributo = 1,     ///< the court filing fee
    Anticipazione = 2,  ///< the lump sum for notifications, D.P.R. 115/2002, art. 30
};

/// An amount in force on a day.
struct ImportoDiLegge
{
    double Euro = 0.0;
    QString Norma;   ///< "D.P.R. 115/2002, art. 30"
    QString Nota{};  ///< what limits it, a sentence; often empty

    friend bool operator==(const ImportoDiLegge&, const ImportoDiLegge&) = default;
};

/// An exempt expense to be written into a note.
struct SpesaDiLegge
{
    VoceDiLegge Voce = VoceDiLegge::Contributo;
    double Euro = 0.0;
    QDate Giorno;

    friend bool operator==(const SpesaDiLegge&, const SpesaDiLegge&) = default;
};

/// A note on screen.
struct NotaInVista
{
    int Indice = 0;  ///< its place
    int Numero = 0;  ///< its serial number: another note may take the place
    QString Titolo;

    friend bool operator==(const NotaInVista&, const NotaInVista&) = default;
};
