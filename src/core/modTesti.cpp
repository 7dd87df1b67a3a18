#include "core/modTesti.h"

#include "core/sessione.h"
#include "platform/base/nomidate.h"
#include "platform/system/shell.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double LirePerEuro = 1936.27;

constexpr qsizetype MassimoCoppie = 100;

bool Numero(const QVariant& Valore)
{
    switch (Valore.metaType().id()) {
    case QMetaType::Bool:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

bool Minore(const QVariant& Primo, const QVariant& Secondo)
{
    if (Numero(Primo) && Numero(Secondo))
        return Primo.toDouble() < Secondo.toDouble();
    if (Primo.metaType().id() == QMetaType::QDate && Secondo.metaType().id() == QMetaType::QDate)
        return Primo.toDate() < Secondo.toDate();
    return CStr(Primo) < CStr(Secondo);
}

/// The number behind the place of its sign, as the classic conversion writes it.
QString ConPostoDelSegno(int Valore)
{
    return u' ' + QString::number(Valore);
}

int VersioneNt(const VersioneSistema& Sistema)
{
    switch (Sistema.Maggiore) {
    case 5:
        return Sistema.Minore == 0 ? 5 : Sistema.Minore == 1 ? 6 : 0;
    case 6:
        return 7;
    default:
        return Sistema.Maggiore <= 4 ? 4 : 0;
    }
}

int Versione9x(const VersioneSistema& Sistema)
{
    if (Sistema.Maggiore != 4)
        return 0;
    switch (Sistema.Minore) {
    case 0:
        return 1;
    case 10:
        return 2;
    case 90:
        return 3;
    default:
        return 0;
    }
}

}  // namespace

double LireEuro(double Lire)
{
    return Round(Lire / LirePerEuro, 2);
}

QString LireEuroFormattato(double Lire)
{
    return Format(LireEuro(Lire), u"#,##0.00");
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

QString PrimaMaiuscola(const QString& Testo)
{
    return Testo.left(1).toUpper() + Testo.mid(1).toLower();
}

int PosUltima(const QString& Testo, const QString& Cercato)
{
    return Cercato.isEmpty() ? 0 : static_cast<int>(Testo.lastIndexOf(Cercato)) + 1;
}

QString Sostituisci(const QString& Testo, const QString& Cercato, const QString& Nuovo)
{
    // Nothing sought, nothing replaced; QString would put the new text between all characters.
    return Cercato.isEmpty() ? Testo : QString(Testo).replace(Cercato, Nuovo);
}

QVariant Massimo(const QVariant& Primo, const QVariant& Secondo)
{
    return Minore(Primo, Secondo) ? Secondo : Primo;
}

QVariant Minimo(const QVariant& Primo, const QVariant& Secondo)
{
    return Minore(Secondo, Primo) ? Secondo : Primo;
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
        if (VietatiNeiNomi.contains(Carattere))
            Carattere = u'-';
    return Nome;
}

bool EVuoto(const QVariant& Valore)
{
    if (!Valore.isValid() || Valore.isNull())
        return true;
    if (Numero(Valore))
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

QList<std::pair<QString, QString>> ParseCoppie(const QString& Testo)
{
    QList<std::pair<QString, QString>> Coppie;
    for (const QString& Pezzo : Testo.split(u',', Qt::SkipEmptyParts)) {
        if (Coppie.size() == MassimoCoppie)
            break;
        const qsizetype Uguale = Pezzo.indexOf(u'=');
        Coppie.emplace_back(Pezzo.left(Uguale), Uguale < 0 ? QString() : Pezzo.mid(Uguale + 1));
    }
    return Coppie;
}

int VersioneWindows(const VersioneSistema& Sistema)
{
    if (!Sistema.Windows)
        return 0;
    return Sistema.Nt ? VersioneNt(Sistema) : Versione9x(Sistema);
}

int VersioneWindows()
{
    return VersioneWindows(LeggiVersioneSistema());
}
