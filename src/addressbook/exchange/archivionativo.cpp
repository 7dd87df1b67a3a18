#include "addressbook/exchange/archivionativo.h"

#include "addressbook/exchange/tabellaestranea.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/database/copiaintera.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/sincrono.h"

#include <QMap>
#include <QRegularExpression>
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
                                    const std::function<bool(qint64)>& Prosegui, Lettori Chi,
                                    const QDateTime& Data)
{
    try {
        const auto Rapporto = ConvertiAccess(
            Da, A, {.Secondi = SecondiDiLettura, .Prosegui = Prosegui, .Chi = Chi, .Data = Data});
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
                                 const std::function<bool(qint64)>& Prosegui, Lettori Chi,
                                 const QDateTime& Data)
{
    try {
        return CopiaIntera(Da, A, Prosegui, Chi, Data) ? std::optional(QStringList()) : std::nullopt;
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

QString FileTurno(const QString& Sigla)
{
    return CartellaDiLavoro() + Sigla + u".blocco"_s;
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
                                        const std::function<bool(qint64)>& Prosegui, Lettori Chi,
                                        const QDateTime& Data)
{
    if (EsisteFile(A))
        throw Errore(errori::DatabasePresente);
    if (ENativo(Da))
        return Copia(Da, A, Prosegui, Chi, Data);
    if (!EDiAccess(Da))
        RifiutaFile(u"Il file \"%1\" non è un archivio: sceglierne un altro."_s.arg(NomeFile(Da)));
    return Converti(Da, A, Prosegui, Chi, Data);
}

void TogliRestiDiSorgenti()
{
    // All that belongs to one of them has its sign in the name, wherever its making has been cut off.
    static const QRegularExpression Sigla(u"[0-9a-f]{32}"_s);
    const QString Cartella = CartellaDiLavoro();
    QMap<QString, QStringList> Resti;
    for (const QString& Nome : NomiDeiFile(Cartella))
        if (const auto Trovata = Sigla.match(Nome); Trovata.hasMatch())
            Resti[Trovata.captured()].append(Nome);
    for (const auto& [Quale, Nomi] : Resti.asKeyValueRange()) {
        FileBlocco Turno(FileTurno(Quale));
        if (Turno.Prendi(0) != FileBlocco::Esito::Preso)
            continue;
        for (const QString& Nome : Nomi)
            if (Cartella + Nome != Turno.Percorso())
                ScartaFile(Cartella + Nome);
    }
}

ArchivioNativo::ArchivioNativo(const QString& DiFile, const std::function<bool(qint64)>& Prosegui)
    : Nativo(DiFile)
{
    if (ENativo(DiFile) && LeggibileDoveSta(DiFile))
        return;
    CreaCartellaPrivata(CartellaDiLavoro());
    TogliRestiDiSorgenti();
    const QString Sigla = QUuid::createUuid().toString(QUuid::Id128);
    const QString Copia = CartellaDiLavoro() + Sigla + u".mdb"_s;
    Turno = std::make_unique<FileBlocco>(FileTurno(Sigla));
    (void)Turno->Prendi(0);  // a name that nobody else has
    try {
        const auto Detti = ScriviNativo(DiFile, Copia, Prosegui, Lettori::SoloUtente);
        if (!Detti)
            throw Interrotto();
        Fuori = *Detti;
    } catch (const NonConfermato& Guasto) {
        throw Errore(Guasto.Numero);  // the place of what is only worked with is nobody's concern
    }
    Nativo = Provvisorio = Copia;
}

ArchivioNativo::~ArchivioNativo()
{
    if (!Provvisorio.isEmpty())
        ScartaFile(Provvisorio);
}
