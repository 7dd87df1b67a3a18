#include "calculators/agenda.h"

#include "core/modTesti.h"
#include "platform/base/errore.h"
#include "platform/base/nomidate.h"
#include "platform/base/regionale.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"

#include <QCryptographicHash>
#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype ByteRiga = 75;  // RFC 5545, 3.1: without the line break, with the blank of a further line

const QString Estensione = u".ics"_s;

/// A text as the value of a property (RFC 5545, 3.3.11); characters of control have no place in one.
QString Valore(QString Testo)
{
    Testo.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    QString Fatto;
    for (const QChar Lettera : std::as_const(Testo)) {
        if (Lettera == u'\n')
            Fatto += u"\\n"_s;
        else if (Lettera == u'\t')
            Fatto += u' ';
        else if (Lettera.unicode() >= u' ' && Lettera.unicode() != 0x7F) {
            if (Lettera == u'\\' || Lettera == u';' || Lettera == u',')
                Fatto += u'\\';
            Fatto += Lettera;
        }
    }
    return Fatto;
}

/// True for a byte of a letter that has begun before it.
bool Prosegue(char Byte)
{
    return (static_cast<unsigned char>(Byte) & 0xC0U) == 0x80U;
}

/// A content line and its break; a long one goes on behind a blank, no letter is cut.
void Riga(QByteArray& Dove, const QString& Testo)
{
    const QByteArray Byte = Testo.toUtf8();
    qsizetype Da = 0;
    qsizetype Spazio = ByteRiga;
    while (Byte.size() - Da > Spazio) {
        qsizetype Fino = Da + Spazio;
        while (Prosegue(Byte[Fino]))
            --Fino;
        Dove += Byte.mid(Da, Fino - Da) + "\r\n ";
        Da = Fino;
        Spazio = ByteRiga - 1;
    }
    Dove += Byte.mid(Da) + "\r\n";
}

bool InQuattroCifre(const QDate& Data)
{
    return Data.isValid() && Data >= QDate(100, 1, 1) && Data <= QDate(9999, 12, 31);
}

QString Giorno(const QDate& Data)
{
    return Data.toString(u"yyyyMMdd"_s);
}

/// The same term gives the same identity, whatever day it was moved to.
QString Identita(const VoceAgenda& Voce)
{
    // Parts that no text of a box can run into one another.
    const QString Parti = QStringList{Voce.Pratica, Voce.Atto, Voce.Articolo, Voce.Chiave}.join(QChar(0x1F));
    return QString::fromLatin1(
        QCryptographicHash::hash(Parti.toUtf8(), QCryptographicHash::Sha256).toHex().left(32));
}

void Avviso(QByteArray& Dove, int Giorni, const QString& Titolo)
{
    Riga(Dove, u"BEGIN:VALARM"_s);
    Riga(Dove, u"ACTION:DISPLAY"_s);
    Riga(Dove, u"TRIGGER:-P%1D"_s.arg(Giorni));
    const QString Quando = Giorni == 1 ? u"Domani: "_s : u"Tra %1 giorni: "_s.arg(Giorni);
    Riga(Dove, u"DESCRIPTION:"_s + Valore(Quando + Titolo));
    Riga(Dove, u"END:VALARM"_s);
}

void Evento(QByteArray& Dove, const VoceAgenda& Voce, const QString& Uid, const QString& Timbro)
{
    const QString Titolo = TitoloAgenda(Voce);
    Riga(Dove, u"BEGIN:VEVENT"_s);
    Riga(Dove, u"UID:"_s + Uid);
    Riga(Dove, u"DTSTAMP:"_s + Timbro);
    Riga(Dove, u"DTSTART;VALUE=DATE:"_s + Giorno(Voce.Giorno));
    // The day after the last one of the calendar has no date; an event without an end lasts its day.
    if (const QDate Dopo = Voce.Giorno.addDays(1); InQuattroCifre(Dopo))
        Riga(Dove, u"DTEND;VALUE=DATE:"_s + Giorno(Dopo));
    Riga(Dove, u"SUMMARY:"_s + Valore(Titolo));
    if (!Voce.Note.isEmpty())
        Riga(Dove, u"DESCRIPTION:"_s + Valore(Voce.Note.join(u'\n')));
    Riga(Dove, u"TRANSP:TRANSPARENT"_s);
    for (const int Giorni : PreavvisiAgenda)
        Avviso(Dove, Giorni, Titolo);
    Riga(Dove, u"END:VEVENT"_s);
}

}  // namespace

QString TitoloAgenda(const VoceAgenda& Voce)
{
    QString Titolo = Voce.Atto.simplified();
    if (!Voce.Articolo.isEmpty())
        Titolo += u" (%1)"_s.arg(Voce.Articolo.simplified());
    return Voce.Pratica.trimmed().isEmpty() ? Titolo : Voce.Pratica.simplified() + u" - "_s + Titolo;
}

QByteArray ScriviIcs(const QList<VoceAgenda>& Voci)
{
    if (Voci.isEmpty() || !std::ranges::all_of(Voci, InQuattroCifre, &VoceAgenda::Giorno))
        throw Errore(errori::Argomento);
    const QString Timbro = Adesso().toUTC().toString(u"yyyyMMdd'T'HHmmss'Z'"_s);
    QHash<QString, int> Visti;
    QByteArray Byte;
    Riga(Byte, u"BEGIN:VCALENDAR"_s);
    Riga(Byte, u"VERSION:2.0"_s);
    Riga(Byte, u"PRODID:-//Calcanova//Calcanova 3//IT"_s);
    Riga(Byte, u"CALSCALE:GREGORIAN"_s);
    for (const VoceAgenda& Voce : Voci) {
        QString Uid = Identita(Voce);
        if (const int Uguali = ++Visti[Uid]; Uguali > 1)
            Uid += u'-' + QString::number(Uguali);
        Evento(Byte, Voce, Uid + u"@calcanova"_s, Timbro);
    }
    Riga(Byte, u"END:VCALENDAR"_s);
    return Byte;
}

QString ConEstensioneIcs(const QString& Percorso)
{
    return NomeFile(Percorso).endsWith(Estensione, Qt::CaseInsensitive) ? Percorso : Percorso + Estensione;
}

QString SalvaIcs(const QString& Percorso, const QList<VoceAgenda>& Voci)
{
    QString File = ConEstensioneIcs(Percorso);
    ScriviFile(File, ScriviIcs(Voci), Lettori::Cartella);
    return File;
}

QString TestoAgenda(QList<VoceAgenda> Voci)
{
    std::ranges::stable_sort(Voci, {}, &VoceAgenda::Giorno);
    QStringList Righe;
    for (const VoceAgenda& Voce : std::as_const(Voci))
        Righe << NomeGiorno(Voce.Giorno.dayOfWeek()).toLower() + u' ' + Format(Voce.Giorno, ModelloData) +
                     u": "_s + TitoloAgenda(Voce);
    return Righe.join(u'\n');
}

QString NomeFileIcs(const QList<VoceAgenda>& Voci)
{
    constexpr qsizetype Lungo = 80;
    QString Nome = Voci.isEmpty() ? u"scadenze"_s : TitoloAgenda(Voci.first()).left(Lungo);
    if (Nome.back().isHighSurrogate())
        Nome.chop(1);  // half a letter at the cut
    return NomePerFile(Nome.trimmed()) + Estensione;
}
