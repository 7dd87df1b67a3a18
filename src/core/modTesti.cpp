#include "core/modTesti.h"

#include "platform/base/nomidate.h"
#include "platform/base/regionale.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double LirePerEuro = 1936.27;

/// The number behind the place of its sign, as the classic conversion writes it.
QString ConPostoDelSegno(int Valore)
{
    return u' ' + QString::number(Valore);
}

}  // namespace

double LireEuro(double Lire)
{
    return Round(Lire / LirePerEuro, 2);
}

QString DataLunga(const QDate& Data)
{
    if (!Data.isValid())
        return {};
    const QString Giorno = NomiGiorni.at(static_cast<std::size_t>(Data.dayOfWeek())).toString();
    const QString Mese = NomiMesi.at(static_cast<std::size_t>(Data.month())).toString();
    return Giorno + u", "_s + ConPostoDelSegno(Data.day()) + u' ' + Mese + u' ' +
           ConPostoDelSegno(Data.year());
}

QString Sostituisci(const QString& Testo, const QString& Cercato, const QString& Nuovo)
{
    // Nothing sought, nothing replaced; QString would put the new text between all characters.
    return Cercato.isEmpty() ? Testo : QString(Testo).replace(Cercato, Nuovo);
}

namespace {

constexpr QStringView VietatiNeiNomi = u"\\/:*?<>\"|";

}  // namespace

bool NomeValido(const QString& Nome, const QString& Vietati)
{
    const QStringView Lista = Vietati.isEmpty() ? VietatiNeiNomi : Vietati;
    return std::ranges::none_of(Nome, [&](QChar Carattere) { return Lista.contains(Carattere); });
}

QString NomePerFile(QString Nome)
{
    for (QChar& Carattere : Nome)
        if (VietatiNeiNomi.contains(Carattere) || Carattere.category() == QChar::Other_Control)
            Carattere = u'-';
    // Whole names that mean a folder or, on some systems, a device, whatever comes behind a dot.
    static const QRegularExpression DelSistema(u"^(\\.{1,2}|(con|prn|aux|nul|com[0-9]|lpt[0-9])(\\..*)?)$"_s,
                                               QRegularExpression::CaseInsensitiveOption);
    return DelSistema.match(Nome).hasMatch() ? u'-' + Nome : Nome;
}

QString UnaRiga(const QString& Testo, qsizetype Massimo)
{
    QString Pulito;
    for (const QChar Segno : Testo) {
        const QChar::Category Specie = Segno.category();
        const bool Nascosto = Specie == QChar::Other_Control || Specie == QChar::Other_Format ||
                              Specie == QChar::Separator_Line || Specie == QChar::Separator_Paragraph;
        Pulito += Nascosto ? QChar(u' ') : Segno;
    }
    // Half a pair of surrogates is no text: it would not come back from a file.
    Pulito = QString::fromUtf8(Pulito.toUtf8()).simplified();
    if (Pulito.size() <= Massimo)
        return Pulito;
    const bool InMezzo = Pulito[Massimo - 2].isHighSurrogate();
    return Pulito.first(Massimo - (InMezzo ? 2 : 1)).trimmed() + u'…';
}

bool EVuoto(const QVariant& Valore)
{
    if (!Valore.isValid() || Valore.isNull())
        return true;
    if (ENumero(Valore))
        return Valore.toDouble() == 0.0;
    switch (Valore.metaType().id()) {
    case QMetaType::QDate:
        return !Valore.toDate().isValid();
    case QMetaType::QDateTime:
        return !Valore.toDateTime().isValid();
    default:
        break;
    }
    const QString Testo = Valore.toString().trimmed();
    return Testo.isEmpty() || Testo == u"0" || Testo == u"/  /";
}
