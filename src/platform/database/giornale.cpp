#include "platform/database/giornale.h"

#include "platform/base/errore.h"
#include "platform/database/connessione.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/permessi.h"
#include "platform/system/sincrono.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// With these bytes every journal begins, and one that names another ends.
QByteArray SegnoDelGiornale()
{
    static constexpr std::array<unsigned char, 8> Segno{0xd9, 0xd5, 0x05, 0xf9, 0x20, 0xa1, 0x63, 0xd7};
    return {reinterpret_cast<const char*>(Segno.data()), qsizetype(Segno.size())};
}

/// Of which nothing had reached the file: the engine writes the first byte when the rest is on the disk, and
/// looks at no other.
bool GiornaleFreddo(const QString& Giornale)
{
    QFile Aperto(Giornale);
    char Primo = 1;
    return Aperto.open(QIODevice::ReadOnly) && Aperto.read(&Primo, 1) >= 0 &&
           (Aperto.pos() == 0 || Primo == 0);
}

}  // namespace

SpecieGiornale GiornaleAccanto(const QString& File)
{
    constexpr qsizetype LungaTestata = 28;
    const QByteArray Segno = SegnoDelGiornale();
    QFile Aperto(File + u"-journal"_s);
    if (!Aperto.open(QIODevice::ReadOnly))
        return SpecieGiornale::Suo;
    const QByteArray Testata = Aperto.read(LungaTestata);
    const qint64 Lungo = Aperto.size();
    if (Lungo > Segno.size() && Aperto.seek(Lungo - Segno.size()) && Aperto.read(Segno.size()) == Segno)
        return SpecieGiornale::DiPiuDatabase;
    if (Testata.size() < LungaTestata || !Testata.startsWith(Segno))
        return SpecieGiornale::Suo;
    const auto Numero = [&](int Posto) { return qFromBigEndian<quint32>(Testata.constData() + Posto); };
    // A write never makes the file shorter before its journal has gone.
    constexpr qint64 MassimaPagina = 65536;
    const qint64 Pagina = Numero(24) == 0 ? MassimaPagina : std::min<qint64>(Numero(24), MassimaPagina);
    return Pagina * qint64(Numero(16)) > QFileInfo(File).size() + Lungo ? SpecieGiornale::NonGliCorrisponde
                                                                        : SpecieGiornale::Suo;
}

void TogliGiornale(const QString& Percorso)
{
    // The engine looks beside the file that a link leads to.
    const QString Vero = FileVero(Percorso);
    const QString Giornale = Vero + u"-journal"_s;
    if (!EsisteFile(Giornale) || SolaLettura(Vero) || GiornaleAltrui(Vero))
        return;
    try {
        Connessione Conn(Vero, Connessione::Modo::Scrittura);
        // The engine has undone what was half written before it gives the turn; from then on nobody writes.
        const Blocco Sola(Conn);
        ScartaFile(Giornale);
    } catch (const Errore&) {
        return;  // somebody is at work, or it is none of the engine's
    }
}

QString ScostaGiornale(const QString& File)
{
    const QString Giornale = File + u"-journal"_s;
    if (!EsisteFile(Giornale))
        return {};
    if (GiornaleFreddo(Giornale)) {
        ScartaFile(Giornale);
        return {};
    }
    QString Libero = Giornale + u".orfano"_s;
    for (int Numero = 2; QFileInfo(Libero).exists() || QFileInfo(Libero).isSymLink(); ++Numero)
        Libero = Giornale + u".orf%1"_s.arg(Numero);
    RinominaFile(Giornale, Libero);
    try {
        SincronizzaCartellaDi(Libero);
    } catch (const NonConfermato& Guasto) {
        RimettiGiornale(File, NomeFile(Libero));
        throw Errore(Guasto.Numero);  // nothing stands in the file's place
    }
    return NomeFile(Libero);
}

void RimettiGiornale(const QString& File, const QString& Scostato)
{
    if (Scostato.isEmpty())
        return;
    try {
        RinominaFile(CartellaFile(File) + Scostato, File + u"-journal"_s);
    } catch (const Errore&) {
        return;  // what has kept the database from its name is what is to be said
    }
}
