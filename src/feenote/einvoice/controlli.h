// What is wrong with the file of an electronic invoice, whoever has written it.
#pragma once

#include <QByteArray>
#include <QDate>
#include <QList>
#include <QString>

/// What a finding means.
enum class GravitaControllo {
    Rifiuto,  ///< the exchange system sends the file back
    Avviso,   ///< it may, or something looks wrong that it does not look at
};

/// One finding.
struct EsitoControllo
{
    QString Codice;  ///< of the exchange system, "00423"; empty: a check of this program's
    GravitaControllo Gravita = GravitaControllo::Rifiuto;
    QString Frase;
    QString Elemento;  ///< "DatiBeniServizi/DettaglioLinee[2]/PrezzoTotale"; empty: the file as a whole
    qint64 Linea = 0;  ///< of the file, from 1; 0: none

    friend bool operator==(const EsitoControllo&, const EsitoControllo&) = default;
};

/// All findings, in the order of the file: first its form, by schema 1.2.3; where that is in order, sums and
/// codes. Any bytes are taken; it never fails.
///
/// @param Nome of the file, without folders; empty: it has none yet, and none is looked at
[[nodiscard]] QList<EsitoControllo> ControllaFattura(const QByteArray& Byte, const QString& Nome,
                                                     const QDate& Oggi);

/// What the checks have to see of a file: of one that is too large a byte more than any may have.
/// @throws Errore 53 missing, 75 unreadable or a folder
[[nodiscard]] QByteArray ByteFattura(const QString& File);

/// True when nothing refuses the file.
[[nodiscard]] bool Accettabile(const QList<EsitoControllo>& Esiti);

/// "Linea 12: ... (00423)", for a list or the command line.
[[nodiscard]] QString TestoEsito(const EsitoControllo& Esito);

/// Bytes that a channel of the exchange system takes at most.
inline constexpr qint64 MassimoByteFattura = qint64(5) << 20;
