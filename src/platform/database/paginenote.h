// One row of a file read from its pages: a list of ten thousand files spends most of its time on the session
// that the engine makes around each, above all on reading the same schema again.
//
// The engine stays the judge. A schema is read directly only after it has read a file of the very same one,
// byte by byte, and whatever is not as plain as a note that is at rest (another schema or size of page, a
// journal, a lock, a long row, a number out of its place) is left to it.
#pragma once

#include "platform/database/primariga.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class Connessione;

/// What is asked of one file.
struct DomandaRiga
{
    QString Tabella;
    QStringList Colonne;
    int MassimoCaratteri = 0;
    AnnotazioniChieste* Anche = nullptr;  ///< may be null

    [[nodiscard]] bool ConAnnotazioni() const { return Anche && !Anche->Nomi.isEmpty(); }
};

/// Annotations that are looked at: a note has a few dozens.
inline constexpr int MassimeAnnotazioni = 200;

/// The first row of a file, its annotations in `Anche`, both as the engine would give them. May run in
/// several threads. It takes the engine's lock for the look, and keeps those that this process has on the
/// file.
/// @param File as the system names it, absolute
/// @return nothing where the engine must be asked
[[nodiscard]] std::optional<QStringList> RigaDallePagine(const QString& File, const DomandaRiga& Che);

/// Keeps where a file of this schema has what was asked, once the engine has answered; a schema that the
/// pages alone do not answer is not kept. The connection is in the middle of reading, so that the file stands
/// still.
void ImparaSchema(const Connessione& Conn, const DomandaRiga& Che);
