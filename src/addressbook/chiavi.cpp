#include "addressbook/chiavi.h"

#include "addressbook/modRubrica.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/permessi.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString NomeAnnotazione(const QString& Tabella)
{
    return u"UltimaChiave."_s + Tabella.toLower();
}

/// The last key of a counter that the engine keeps even behind a deleted row; none where it keeps none.
std::optional<qint64> UltimaDelMotore(const Database& Db, const QString& Tabella)
{
    try {
        const Recordset Riga = Db.OpenRecordset(
            u"SELECT max(seq) AS Ultima FROM sqlite_sequence WHERE name=? COLLATE NOCASE GROUP BY name"_s,
            {Tabella});
        return Riga.Eof() ? std::nullopt : std::optional(Riga.Value(u"Ultima"_s).toLongLong());
    } catch (const Errore& Guasto) {
        if (Guasto.Numero != errori::TabellaMancante)
            throw;
        return std::nullopt;
    }
}

constexpr qint64 MassimoAccanto = 64 << 10;

/// Numbers of such a file are whole up to here.
constexpr qint64 MassimaChiave = qint64(1) << 53;

QString FileAccantoA(const QString& Archivio)
{
    return FileVero(Archivio) + u".chiavi"_s;
}

[[noreturn]] void NonSiLeggono(const QString& File, int Numero)
{
    throw Errore(Numero,
                 u"Il file \"%1\" ricorda le chiavi già date dell'archivio e non si può leggere: una nuova "
                 "potrebbe essere quella di un'altra persona. Verificare i permessi del file, o rimetterlo "
                 "da una copia"_s.arg(File));
}

/// Empty where nothing is kept beside an archive. @throws Errore of a file that is there and cannot be read
QJsonObject TenuteAccanto(const QString& Archivio)
{
    const QString File = FileAccantoA(Archivio);
    if (Archivio.isEmpty() || !QFileInfo::exists(File))
        return {};
    QByteArray Byte;
    try {
        Byte = LeggiFile(File, MassimoAccanto);
    } catch (const Errore& Guasto) {
        if (Guasto.Numero == errori::FileMancante)
            return {};
        NonSiLeggono(File, Guasto.Numero);
    }
    const QJsonDocument Letto = QJsonDocument::fromJson(Byte);
    QJsonObject Tenute = Letto.object();
    // A key that no row has is as damaged as half a text.
    const bool Buone = std::all_of(Tenute.begin(), Tenute.end(), [](const auto& Chiave) {
        return Chiave.toInteger(-1) >= 0 && Chiave.toInteger(-1) <= MassimaChiave;
    });
    if (!Letto.isObject() || !Buone)
        NonSiLeggono(File, errori::Accesso);
    return Tenute;
}

/// The last key that the archive itself keeps.
qint64 UltimaTrattenuta(const Database& Db, const QString& Tabella)
{
    return Db.Annotazioni().value(NomeAnnotazione(Tabella)).toLongLong();
}

qint64 UltimaAccanto(const Database& Db, const QString& Tabella)
{
    return TenuteAccanto(Db.Percorso())[Tabella.toLower()].toInteger();
}

}  // namespace

qint64 UltimaChiaveData(const Database& Db, const QString& Tabella)
{
    return std::max({UltimaChiave(Db.OpenRecordset(Tabella)), UltimaTrattenuta(Db, Tabella),
                     UltimaAccanto(Db, Tabella), UltimaDelMotore(Db, Tabella).value_or(0)});
}

void TrattieniChiavi(const Database& Db, const QString& Tabella, qint64 Fino)
{
    if (std::max(UltimaTrattenuta(Db, Tabella), UltimaDelMotore(Db, Tabella).value_or(0)) >= Fino)
        return;
    const QString Nome = NomeAnnotazione(Tabella);
    try {
        Db.RitoccaAnnotazioni({Nome}, {{Nome, QString::number(Fino)}});
    } catch (const Errore& Guasto) {
        if (Guasto.Numero != errori::Imprevisto)
            throw;
    }
}

void TrattieniAccanto(const QString& Archivio, const QString& Tabella, qint64 Fino)
{
    QJsonObject Tenute = TenuteAccanto(Archivio);
    if (Tenute[Tabella.toLower()].toInteger() >= Fino)
        return;
    Tenute[Tabella.toLower()] = Fino;
    const QString File = FileAccantoA(Archivio);
    ScriviFile(File, QJsonDocument(Tenute).toJson(), Lettori::Cartella);
    // Whoever may add names to the archive has to know them.
    if (!SolaLettura(Archivio))
        DaiPermessi(File, FileVero(Archivio), Lettori::Cartella);
}

std::optional<qint64> PrimaChiaveLibera(const Database& Db, const QString& Tabella)
{
    const QList<Campo> Campi = Db.Campi(Tabella);
    if (std::ranges::none_of(Campi, EChiave))
        return std::nullopt;
    if (std::ranges::any_of(Campi, &Campo::Contatore) &&
        UltimaDelMotore(Db, Tabella).value_or(0) >=
            std::max(UltimaTrattenuta(Db, Tabella), UltimaAccanto(Db, Tabella)))
        return std::nullopt;
    const qint64 Ultima = UltimaChiaveData(Db, Tabella);
    if (Ultima >= MassimaChiave)
        throw Errore(errori::Eccedenza);  // there is no next one that could be kept
    return Ultima + 1;
}
