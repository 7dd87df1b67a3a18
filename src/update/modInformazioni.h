// What the program says of itself: version, folders, age of its data, licences of its parts.
#pragma once

#include <QList>
#include <QString>

/// A line: what it is about and what there is to say.
struct RigaInformazione
{
    QString Nome;
    QString Valore;

    friend bool operator==(const RigaInformazione&, const RigaInformazione&) = default;
};

struct GruppoInformazioni
{
    QString Titolo;
    QList<RigaInformazione> Righe;
};

/// Everything, read as it is now. An archive that is missing or cannot be read is told so in its line.
[[nodiscard]] QList<GruppoInformazioni> Informazioni();

/// The same as plain text, a line each, groups apart: what is sent to who assists the office.
[[nodiscard]] QString TestoInformazioni(const QList<GruppoInformazioni>& Gruppi);
