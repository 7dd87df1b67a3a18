#include "update/versioni.h"

#include "platform/base/paginacodice.h"
#include "platform/base/regionale.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView InizioVersione = u"versione=[";
constexpr qsizetype MassimaNota = 500;
constexpr qsizetype RigheFisse = 3;

QStringList Righe(QString Testo)
{
    Testo.replace(u"\r\n"_s, u"\n"_s);
    Testo.replace(u'\r', u'\n');
    return Testo.split(u'\n');
}

/// The version between its brackets. What is no three numbers is none: it becomes part of a path.
QString Versione(const QString& Riga)
{
    const qsizetype Inizio = Riga.indexOf(InizioVersione);
    if (Inizio < 0)
        return {};
    const qsizetype Da = Inizio + InizioVersione.size();
    const qsizetype Fine = Riga.indexOf(u']', Da);
    if (Fine < 0)
        return {};
    static const QRegularExpression Forma(u"^[0-9]{1,5}(\\.[0-9]{1,5}){2}\\z"_s);
    const QString Trovata = Riga.mid(Da, Fine - Da);
    return Forma.match(Trovata).hasMatch() ? Trovata : QString();
}

/// The date at the head of a line of more than eight characters. Ten of them are looked at for a year of four
/// digits first, because eight would cut it to its century.
std::optional<QDate> Data(const QString& Riga)
{
    constexpr qsizetype Corta = 8;
    constexpr qsizetype Lunga = 10;
    if (Riga.size() <= Corta)
        return std::nullopt;
    static const QRegularExpression AnnoIntero(u"[0-9]{4}\\z"_s);
    const QString Intera = Riga.left(Lunga).trimmed();
    if (AnnoIntero.match(Intera).hasMatch())
        if (const auto Letta = LeggiData(Intera))
            return Letta;
    return LeggiData(Riga.left(Corta));
}

QString Nota(const QString& Riga)
{
    const qsizetype Uguale = Riga.indexOf(u'=');
    if (Uguale < 0)
        return {};
    QString Resto = Riga.mid(Uguale + 1);
    Resto.removeIf([](QChar Segno) { return Segno.category() == QChar::Other_Control; });
    Resto = SenzaControlli(Resto).left(MassimaNota);
    if (!Resto.isEmpty() && Resto.back().isHighSurrogate())
        Resto.chop(1);
    return Resto;
}

std::optional<FileElencato> Elencato(const QString& Riga)
{
    static const QRegularExpression Forma(
        u"^sha256=([0-9A-Fa-f]{64}) ([0-9]{1,12}) ([A-Za-z0-9_-][A-Za-z0-9._-]{0,99})\\z"_s);
    const QRegularExpressionMatch Trovata = Forma.match(Riga);
    if (!Trovata.hasMatch())
        return std::nullopt;
    return FileElencato{Trovata.captured(3), Trovata.captured(2).toLongLong(),
                        QByteArray::fromHex(Trovata.captured(1).toLatin1())};
}

}  // namespace

const FileElencato* Versioni::Elencato(const QString& Nome) const
{
    const auto Trovato = std::ranges::find_if(
        File, [&](const FileElencato& Voce) { return Voce.Nome.compare(Nome, Qt::CaseInsensitive) == 0; });
    return Trovato == File.end() ? nullptr : &*Trovato;
}

Versioni LeggiVersioni(const QByteArray& Contenuto)
{
    const QStringList Tutte = Righe(DaMarca(Contenuto));
    Versioni Lette;
    Lette.RigaVuota = Tutte.value(0).isEmpty();
    Lette.Versione = Versione(Tutte.value(0));
    Lette.DataTassi = Data(Tutte.value(1));
    Lette.Nota = Nota(Tutte.value(2));
    for (qsizetype i = RigheFisse; i < Tutte.size(); ++i)
        if (const auto Voce = Elencato(Tutte[i]))
            Lette.File.append(*Voce);
    return Lette;
}

QString RigaElenco(const FileElencato& File)
{
    return u"sha256=%1 %2 %3"_s.arg(QString::fromLatin1(File.Sha256.toHex())).arg(File.Byte).arg(File.Nome);
}

bool VersioneNuova(const QString& Remota, const QString& Locale)
{
    if (Remota.isEmpty() || Locale.isEmpty())
        return false;
    constexpr qsizetype Numeri = 3;
    const QStringList Nuova = Remota.split(u'.');
    const QStringList Presente = Locale.split(u'.');
    for (qsizetype i = 0; i < Numeri; ++i) {
        const int Sopra = Nuova.value(i).toInt();
        const int Sotto = Presente.value(i).toInt();
        if (Sopra != Sotto)
            return Sopra > Sotto;
    }
    return false;
}
