#include "addressbook/chiavi.h"

#include "addressbook/modRubrica.h"
#include "platform/base/errore.h"

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

qint64 UltimaTrattenuta(const Database& Db, const QString& Tabella)
{
    return Db.Annotazioni().value(NomeAnnotazione(Tabella)).toLongLong();
}

}  // namespace

qint64 UltimaChiaveData(const Database& Db, const QString& Tabella)
{
    return std::max({UltimaChiave(Db.OpenRecordset(Tabella)), UltimaTrattenuta(Db, Tabella),
                     UltimaDelMotore(Db, Tabella).value_or(0)});
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

std::optional<qint64> PrimaChiaveLibera(const Database& Db, const QString& Tabella)
{
    const QList<Campo> Campi = Db.Campi(Tabella);
    if (std::ranges::none_of(Campi, EChiave))
        return std::nullopt;
    if (std::ranges::any_of(Campi, &Campo::Contatore) &&
        UltimaDelMotore(Db, Tabella).value_or(0) >= UltimaTrattenuta(Db, Tabella))
        return std::nullopt;
    return UltimaChiaveData(Db, Tabella) + 1;
}
