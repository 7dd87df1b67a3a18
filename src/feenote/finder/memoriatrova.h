// What the files of the finder were seen to hold, so that a second list of ten thousand opens none of them.
#pragma once

#include "feenote/finder/modTrova.h"

#include <QHash>
#include <QMutex>
#include <QString>

#include <memory>
#include <optional>

/// How a file stands on the disk: where this is the same, its contents are.
struct ImprontaFile
{
    qint64 Byte = 0;
    qint64 Modificata = 0;  ///< milliseconds from 1970, UTC

    friend bool operator==(const ImprontaFile&, const ImprontaFile&) = default;
};

/// Holds until the program ends; walks in several threads share it.
class MemoriaTrova
{
public:
    /// What was read; the inner one is empty for a file that is no note.
    struct Ricordo
    {
        ImprontaFile Impronta;
        std::optional<DatiNota> Dati;
    };

    /// Nothing for a file that was not seen, or has changed since.
    [[nodiscard]] std::optional<Ricordo> Cerca(const QString& File, const ImprontaFile& Ora) const;
    /// @param AdessoMs the present: a file that has changed just now may change again without its date
    /// showing it, and is not kept
    void Ricorda(const QString& File, const Ricordo& Nuovo, qint64 AdessoMs);
    [[nodiscard]] int Quanti() const;
    void Dimentica();

private:
    mutable QMutex Turno;
    QHash<QString, Ricordo> Visti;
};

/// The one of this process.
[[nodiscard]] const std::shared_ptr<MemoriaTrova>& MemoriaDelTrova();
