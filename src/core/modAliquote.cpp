#include "core/modAliquote.h"

#include "platform/base/errore.h"
#include "platform/system/file.h"

using namespace Qt::StringLiterals;

namespace {

AliquotaDatata Riga(const QString& Testo)
{
    const QStringList Campi = Testo.split(u';');
    constexpr qsizetype Colonne = 5;
    if (Campi.size() != Colonne)
        throw Errore(errori::Imprevisto, u"aliquote.csv: "_s + Testo);
    return {Campi[0], QDate::fromString(Campi[1], Qt::ISODate), QDate::fromString(Campi[2], Qt::ISODate),
            Campi[3].toDouble(), Campi[4]};
}

/// The table comes with the program itself: a file beside it could be missing or of another release.
QList<AliquotaDatata> LeggiTabella()
{
    QList<AliquotaDatata> Tabella;
    const QStringList Righe =
        QString::fromUtf8(LeggiRisorsa(u":/dati/aliquote.csv"_s)).split(u'\n', Qt::SkipEmptyParts);
    for (qsizetype i = 1; i < Righe.size(); ++i)
        Tabella << Riga(Righe[i].trimmed());
    return Tabella;
}

}  // namespace

QList<AliquotaDatata> AliquoteAl(const QDate& Giorno)
{
    QList<AliquotaDatata> InVigore;
    for (const AliquotaDatata& Aliquota : LeggiTabella())
        if (Aliquota.Dal <= Giorno && (!Aliquota.Al.isValid() || Giorno <= Aliquota.Al))
            InVigore << Aliquota;
    return InVigore;
}
