#include "addressbook/exchange/archivionativo.h"

#include "addressbook/exchange/tabellaestranea.h"
#include "core/sessione.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QUuid>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

QByteArray Inizio(const QString& File)
{
    constexpr qsizetype Guardati = 32;
    QByteArray Letto;
    LeggiAPezzi(File, [&](QByteArrayView Pezzo) {
        Letto += Pezzo.first(std::min(Pezzo.size(), Guardati));
        return Letto.size() < Guardati;
    });
    return Letto;
}

bool ENativo(const QByteArray& Inizio)
{
    return Inizio.startsWith("SQLite format 3");
}

bool EDelMotoreClassico(const QByteArray& Inizio)
{
    const QByteArray Marca = Inizio.mid(4, 15);
    return Marca == "Standard Jet DB" || Marca == "Standard ACE DB";
}

}  // namespace

bool EArchivio(const QString& File)
{
    const QByteArray Primi = Inizio(File);
    return ENativo(Primi) || EDelMotoreClassico(Primi);
}

std::optional<QStringList> ScriviNativo(const QString& Da, const QString& A,
                                        const std::function<bool(qint64)>& Prosegui)
{
    if (!ENativo(Inizio(Da)))
        RifiutaFile(u"Il file \"%1\" non è un archivio: sceglierne un altro."_s.arg(NomeFile(Da)));
    if (EsisteFile(A))
        throw Errore(errori::DatabasePresente);
    try {
        if (CopiaFile(Da, A, std::numeric_limits<qint64>::max(), Prosegui))
            return QStringList();
    } catch (const Errore&) {
        ScartaFile(A);
        throw;
    }
    ScartaFile(A);
    return std::nullopt;
}

ArchivioNativo::ArchivioNativo(const QString& DiFile) : Nativo(DiFile)
{
    if (ENativo(Inizio(DiFile)))
        return;
    Provvisorio =
        Barra(sessione::UserFolder) + u".importa-"_s + QUuid::createUuid().toString(QUuid::Id128) + u".mdb"_s;
    Fuori = ScriviNativo(DiFile, Provvisorio).value_or(QStringList());
    Nativo = Provvisorio;
}

ArchivioNativo::~ArchivioNativo()
{
    if (!Provvisorio.isEmpty())
        ScartaFile(Provvisorio);
}
