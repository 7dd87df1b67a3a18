#include "addressbook/exchange/archivionativo.h"

#include "addressbook/exchange/tabellaestranea.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/database/copiaintera.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

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
                                    const std::function<bool(qint64)>& Prosegui, Lettori Chi)
{
    try {
        const auto Rapporto =
            ConvertiAccess(Da, A, {.Secondi = SecondiDiLettura, .Prosegui = Prosegui, .Chi = Chi});
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
                                 const std::function<bool(qint64)>& Prosegui, Lettori Chi)
{
    try {
        return CopiaIntera(Da, A, Prosegui, Chi) ? std::optional(QStringList()) : std::nullopt;
    } catch (const Errore& Guasto) {
        if (Guasto.Numero != errori::FormatoDatabase)
            throw;
        NonSiLegge(Da, Guasto.Descrizione);
    }
}

/// A native form that is opened in a file's place, as long as somebody works with it.
QString CartellaDiLavoro()
{
    return CartellaDati() + Barra(u"importa"_s);
}

const QString FineTurno = u".blocco"_s;

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
                                        const std::function<bool(qint64)>& Prosegui, Lettori Chi)
{
    if (EsisteFile(A))
        throw Errore(errori::DatabasePresente);
    if (ENativo(Da))
        return Copia(Da, A, Prosegui, Chi);
    if (!EDiAccess(Da))
        RifiutaFile(u"Il file \"%1\" non è un archivio: sceglierne un altro."_s.arg(NomeFile(Da)));
    return Converti(Da, A, Prosegui, Chi);
}

void TogliRestiDiSorgenti()
{
    const QString Cartella = CartellaDiLavoro();
    for (const QString& Nome : NomiDeiFile(Cartella, u".mdb"_s)) {
        if (Nome.startsWith(u'.'))  // one that is being made has a turn of another name
            continue;
        FileBlocco Turno(Cartella + Nome + FineTurno);
        if (Turno.Prendi(0) == FileBlocco::Esito::Preso)
            ScartaFile(Cartella + Nome);
    }
    for (const QString& Nome : NomiDeiFile(Cartella, FineTurno))
        ScartaBlocco(Cartella + Nome);
}

ArchivioNativo::ArchivioNativo(const QString& DiFile, const std::function<bool(qint64)>& Prosegui)
    : Nativo(DiFile)
{
    if (ENativo(DiFile) && LeggibileDoveSta(DiFile))
        return;
    const QString Cartella = CartellaDiLavoro();
    CreaCartellaPrivata(Cartella);
    TogliRestiDiSorgenti();
    const QString Copia = Cartella + QUuid::createUuid().toString(QUuid::Id128) + u".mdb"_s;
    Turno = std::make_unique<FileBlocco>(Copia + FineTurno);
    (void)Turno->Prendi(0);  // a name that nobody else has
    const auto Detti = ScriviNativo(DiFile, Copia, Prosegui, Lettori::SoloUtente);
    if (!Detti)
        throw Interrotto();
    Fuori = *Detti;
    Nativo = Provvisorio = Copia;
}

ArchivioNativo::~ArchivioNativo()
{
    if (!Provvisorio.isEmpty())
        ScartaFile(Provvisorio);
}
