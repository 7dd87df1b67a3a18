#include "feenote/einvoice/controlli.h"

#include "feenote/einvoice/esame.h"
#include "feenote/einvoice/forma.h"
#include "feenote/einvoice/regole.h"
#include "platform/system/file.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using enum GravitaControllo;

/// A code of its own and no place: what is wrong with the file before anybody reads it.
EsitoControllo DelFile(QStringView Codice, GravitaControllo Gravita, const QString& Frase)
{
    return {Codice.toString(), Gravita, Frase, {}, 0};
}

/// Why the bytes are no file that is read here; nothing where they may be one.
QList<EsitoControllo> GuardaByte(const QByteArray& Byte, const QString& Nome)
{
    if (Byte.trimmed().isEmpty())
        return {DelFile(u"00106", Rifiuto, u"Il file è vuoto."_s)};
    // A signed file is a sequence of the rules that certificates are written by, or the same in base 64.
    if (Byte.startsWith('\x30') || Nome.endsWith(u".p7m", Qt::CaseInsensitive))
        return {DelFile(
            u"", Rifiuto,
            u"I file firmati (.p7m) non si possono controllare qui: aprire quello che contengono."_s)};
    if (Byte.startsWith("PK\x03\x04"))
        return {DelFile(u"", Rifiuto,
                        u"Il file è un archivio compresso: controllare a uno a uno quelli che contiene."_s)};
    if (Byte.size() > MassimoByteFattura)
        return {DelFile(u"00003", Rifiuto, u"Il file è più grande di 5 MB."_s)};
    return {};
}

/// The name is a matter of whoever sends the file: here it may have another one.
QList<EsitoControllo> GuardaNome(const QString& Nome)
{
    static const QRegularExpression Forma(u"^[A-Z]{2}[A-Za-z0-9]{1,28}_[A-Za-z0-9]{1,5}\\.xml$"_s);
    if (Nome.isEmpty() || Forma.match(Nome).hasMatch())
        return {};
    return {DelFile(
        u"00001", Avviso,
        u"Per trasmetterlo il file va chiamato con il codice di chi lo trasmette e un progressivo, per "
        "esempio IT01234567897_00001.xml: %1"_s.arg(Nome))};
}

}  // namespace

QList<EsitoControllo> ControllaFattura(const QByteArray& Byte, const QString& Nome, const QDate& Oggi)
{
    if (QList<EsitoControllo> Subito = GuardaByte(Byte, Nome); !Subito.isEmpty())
        return Subito;
    const LetturaXml Letto = LeggiXml(Byte);
    if (!Letto.Guasto.isEmpty())
        return {{u"00200"_s, Rifiuto, Letto.Guasto, {}, Letto.Linea}};
    QList<EsitoControllo> Esiti = GuardaNome(Nome);
    if (const QList<EsitoControllo> Forma = ControllaForma(Letto.Albero); !Forma.isEmpty())
        return Esiti + Forma;  // sums of what is no invoice say nothing
    Esame File(Letto.Albero, Oggi);
    RegoleSoggetti(File);
    RegoleImporti(File);
    std::ranges::stable_sort(File.Esiti, {}, &EsitoControllo::Linea);
    return Esiti + File.Esiti;
}

QByteArray ByteFattura(const QString& File)
{
    QByteArray Byte;
    LeggiAPezzi(File, [&](QByteArrayView Pezzo) {
        Byte += Pezzo.first(std::min(Pezzo.size(), qsizetype(MassimoByteFattura + 1 - Byte.size())));
        return Byte.size() <= MassimoByteFattura;
    });
    return Byte;
}

bool Accettabile(const QList<EsitoControllo>& Esiti)
{
    return std::ranges::none_of(Esiti, [](const EsitoControllo& Esito) { return Esito.Gravita == Rifiuto; });
}

QString TestoEsito(const EsitoControllo& Esito)
{
    const QString Dove = Esito.Linea > 0 ? u", linea %1"_s.arg(Esito.Linea) : QString();
    const QString Codice = Esito.Codice.isEmpty() ? QString() : u" ("_s + Esito.Codice + u')';
    return (Esito.Gravita == Rifiuto ? u"Rifiuto"_s : u"Avviso"_s) + Dove + u": "_s + Esito.Frase + Codice;
}
