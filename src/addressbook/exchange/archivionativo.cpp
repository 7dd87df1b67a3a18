#include "addressbook/exchange/archivionativo.h"

#include "addressbook/exchange/tabellaestranea.h"
#include "core/sessione.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/database/copiaintera.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QDateTime>
#include <QFileInfo>
#include <QUuid>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int SecondiDiLettura = 120;  // somebody looks at how far it is

bool ENativo(const QString& File)
{
    constexpr QByteArrayView Marca("SQLite format 3");
    QByteArray Letto;
    LeggiAPezzi(File, [&](QByteArrayView Pezzo) {
        Letto += Pezzo.first(std::min(Pezzo.size(), Marca.size()));
        return Letto.size() < Marca.size();
    });
    return Letto.startsWith(Marca);
}

[[noreturn]] void NonSiLegge(const QString& File, const QString& Perche)
{
    RifiutaFile(u"Il file \"%1\" non si può leggere: %2."_s.arg(NomeFile(File), Perche));
}

std::optional<QStringList> Converti(const QString& Da, const QString& A,
                                    const std::function<bool(qint64)>& Prosegui)
{
    try {
        const auto Rapporto = ConvertiAccess(Da, A, {.Secondi = SecondiDiLettura, .Prosegui = Prosegui});
        if (!Rapporto)
            return std::nullopt;
        QStringList Fuori;
        for (const TralasciatoAccess& Voce : Rapporto->Tralasciati)
            Fuori.append(Voce.Cosa + u": "_s + Voce.Perche);
        return Fuori;
    } catch (const Errore& Guasto) {
        if (Guasto.Numero != errori::FormatoDatabase)
            throw;
        NonSiLegge(Da, Guasto.Descrizione);
    }
}

std::optional<QStringList> Copia(const QString& Da, const QString& A,
                                 const std::function<bool(qint64)>& Prosegui)
{
    try {
        return CopiaIntera(Da, A, Prosegui) ? std::optional(QStringList()) : std::nullopt;
    } catch (const Errore& Guasto) {
        if (Guasto.Numero != errori::FormatoDatabase)
            throw;
        NonSiLegge(Da, Guasto.Descrizione);
    }
}

const QString InizioProvvisori = u".importa-"_s;

/// Deletes the working copies that a program which was ended has left: they hold names of people.
void SpazzaProvvisori(const QString& Cartella)
{
    constexpr qint64 SecondiPerGiorno = qint64(24) * 60 * 60;
    const QDateTime Ora = QDateTime::currentDateTimeUtc();
    for (const QString& Nome : NomiDeiFile(Cartella))
        if (Nome.startsWith(InizioProvvisori) &&
            QFileInfo(Cartella + Nome).lastModified().secsTo(Ora) > SecondiPerGiorno)
            ScartaFile(Cartella + Nome);
}

}  // namespace

bool EArchivio(const QString& File)
{
    return ENativo(File) || EDiAccess(File);
}

bool TabellaDiSistema(const QString& Detto)
{
    return Detto.startsWith(u"MSys", Qt::CaseInsensitive);
}

std::optional<QStringList> ScriviNativo(const QString& Da, const QString& A,
                                        const std::function<bool(qint64)>& Prosegui)
{
    if (EsisteFile(A))
        throw Errore(errori::DatabasePresente);
    if (ENativo(Da))
        return Copia(Da, A, Prosegui);
    if (!EDiAccess(Da))
        RifiutaFile(u"Il file \"%1\" non è un archivio: sceglierne un altro."_s.arg(NomeFile(Da)));
    return Converti(Da, A, Prosegui);
}

ArchivioNativo::ArchivioNativo(const QString& DiFile, const std::function<bool(qint64)>& Prosegui)
    : Nativo(DiFile)
{
    if (ENativo(DiFile))
        return;
    CreaCartella(sessione::UserFolder);
    SpazzaProvvisori(Barra(sessione::UserFolder));
    Provvisorio = Barra(sessione::UserFolder) + InizioProvvisori +
                  QUuid::createUuid().toString(QUuid::Id128) + u".mdb"_s;
    const auto Detti = ScriviNativo(DiFile, Provvisorio, Prosegui);
    if (!Detti)
        throw Interrotto();
    Fuori = *Detti;
    Nativo = Provvisorio;
}

ArchivioNativo::~ArchivioNativo()
{
    if (!Provvisorio.isEmpty())
        ScartaFile(Provvisorio);
}
