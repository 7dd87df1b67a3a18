// The mail that brings a document: its subject and text, made of the office's templates.
#pragma once

#include "feenote/parcella.h"

#include <QMap>
#include <QString>

/// What place-holders stand for, by their names without the braces.
using ValoriLettera = QMap<QString, QString>;

/// Names of the place-holders, in the order in which they are shown.
[[nodiscard]] QStringList SegnapostiLettera();

/// The values for a document of a note. What it does not have is empty: a contract has no number and no sum.
/// @param Tipo a TipoStampa
[[nodiscard]] ValoriLettera ValoriDi(const Parcella& Nota, int Tipo);

/// A template with its place-holders "{name}" replaced, in one pass: what a value holds is text. Unknown ones
/// stay as they are written. A line that has known ones, and all of them empty, goes.
[[nodiscard]] QString ScriviModello(const QString& Modello, const ValoriLettera& Valori);

/// A mail as it is handed to the mail program.
struct Lettera
{
    QString Indirizzo;  ///< empty: the user writes it
    QString Oggetto;    ///< one line
    QString Testo;
    QString Escluso;  ///< what the user is told where the client's address stays out; else empty
};

/// The mail of a document, by the templates of the session. The address is the linked client's, if the
/// archive has one that can be handed over.
[[nodiscard]] Lettera LetteraDi(const Parcella& Nota, int Tipo);

/// An address by its form (PostaTorna) that can be handed to a mail program too: no sign that ends an
/// argument or begins another, none by which mail programs part what they are handed.
[[nodiscard]] bool EIndirizzo(const QString& Testo);
