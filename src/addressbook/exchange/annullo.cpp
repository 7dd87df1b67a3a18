#include "addressbook/exchange/annullo.h"

#include "addressbook/chiavi.h"
#include "addressbook/exchange/tabellaestranea.h"
#include "addressbook/exchange/turnoarchivio.h"
#include "platform/base/errore.h"
#include "platform/database/primariga.h"
#include "platform/system/blocco.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/sincrono.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 MassimoRegistro = qint64{64} * 1024;

/// A copy of an archive, and what is known of the import behind it.
struct Coppia
{
    QString Copia;
    QString Registro;
};

/// Where a copy may lie, beside the file itself, whatever link it was opened by. There are two places,
/// because the copy of the import before stays until the next import is confirmed; and none is moved behind
/// that, so that nothing can fail there.
std::array<Coppia, 2> Posti(const QString& Archivio)
{
    const QString File = FileVero(Archivio);
    return {Coppia{File + u".prima"_s, File + u".prima.json"_s},
            Coppia{File + u".prima.2"_s, File + u".prima.2.json"_s}};
}

void Scarta(const Coppia& Quale)
{
    ScartaFile(Quale.Registro);
    ScartaFile(Quale.Copia);
}

/// What the head of a database says of how often the engine has written to it; nothing for one without a
/// head.
std::optional<qint64> Scritture(QByteArrayView Testata)
{
    constexpr qsizetype Posto = 24;
    if (Testata.size() < Posto + qsizetype(sizeof(quint32)))
        return std::nullopt;
    return qFromBigEndian<quint32>(Testata.data() + Posto);
}

/// What a file holds, in short.
struct Somma
{
    QString Impronta;
    std::optional<qint64> Scritture;
};

Somma SommaDi(const QString& File)
{
    QCryptographicHash Conto(QCryptographicHash::Sha256);
    QByteArray Inizio;
    LeggiAPezzi(File, [&](QByteArrayView Pezzo) {
        if (Inizio.isEmpty())
            Inizio = Pezzo.toByteArray();
        Conto.addData(Pezzo);
        return true;
    });
    return {QString::fromLatin1(Conto.result().toHex()), Scritture(Inizio)};
}

/// Empty for one that cannot be read.
QString ImprontaLeggibile(const QString& File)
{
    try {
        return SommaDi(File).Impronta;
    } catch (const Errore&) {
        return {};
    }
}

/// What the rows of a table hold, whoever asks: the program that is writing them, or another one behind it.
QString ImprontaRighe(const Database& Db, const QString& Tabella)
{
    constexpr int Porzione = 4000;
    const Recordset Righe = Db.OpenRecordset(Tabella);
    QStringList Nomi;
    for (const Campo& Uno : Righe.Campi())
        Nomi.append(Uno.Name);
    QCryptographicHash Conto(QCryptographicHash::Sha256);
    std::optional<qint64> Letta;
    do
        Letta = Righe.Scorri(Nomi, Letta, Porzione, [&](const RigaScorsa& Riga) {
            Conto.addData(QByteArray::number(Riga.Chiave()));
            for (int i = 0; i < Nomi.size(); ++i) {
                Conto.addData(QByteArrayView("\0", 1));
                Conto.addData(Riga.Utf8(i));
            }
        });
    while (Letta);
    return QString::fromLatin1(Conto.result().toHex());
}

constexpr int ByteTestata = 100;

/// @throws Errore as LeggiFile
QJsonObject LeggiRegistro(const Coppia& Quale)
{
    return QJsonDocument::fromJson(LeggiFile(Quale.Registro, MassimoRegistro)).object();
}

/// The import of this record was never confirmed: nobody has written to the archive since it was announced.
/// An archive that cannot say so is taken at the record's word.
bool NonConfermata(const QString& Archivio, const QJsonObject& Detto)
{
    const std::optional<qint64> Ora = Scritture(InizioDelFile(Archivio, ByteTestata));
    return Ora && *Ora < Detto[u"scritture"_s].toInteger();
}

/// The record of an import into the archive; empty where there is none, or one of an import that was never
/// confirmed.
QJsonObject Registro(const QString& Archivio, const Coppia& Quale)
{
    if (!EsisteFile(Quale.Registro) || !EsisteFile(Quale.Copia))
        return {};
    try {
        const QJsonObject Detto = LeggiRegistro(Quale);
        return NonConfermata(Archivio, Detto) ? QJsonObject() : Detto;
    } catch (const Errore&) {
        return {};  // a record that cannot be read is none
    }
}

/// The archive is as the import of this record has left it: nobody has written to it since, and the rows are
/// those. The record of an import that was not confirmed speaks of rows that are not there.
/// @throws Errore of an archive that cannot be read now, as OpenDatabase and Recordset::Scorri
bool ComeAllora(const QString& Archivio, const QJsonObject& Detto)
{
    if (Detto.isEmpty())
        return false;
    try {
        const Database Db = OpenDatabase(Archivio, true);
        return Scritture(InizioDelFile(Archivio, ByteTestata)) == Detto[u"scritture"_s].toInteger(-1) &&
               ImprontaRighe(Db, Detto[u"tabella"_s].toString()) == Detto[u"righe"_s].toString();
    } catch (const Errore& Guasto) {
        if (!NonEQuello(Guasto))
            throw;
        return false;
    }
}

/// The place of the last import: that which has left the archive as it is; where somebody has written since,
/// the older one, because the younger one may never have been confirmed. The first place where there is none.
/// @throws Errore as ComeAllora, when only the archive could say which of two it is
size_t PostoUltimo(const QString& Archivio)
{
    const std::array<Coppia, 2> Tutti = Posti(Archivio);
    const std::array Detti{Registro(Archivio, Tutti[0]), Registro(Archivio, Tutti[1])};
    if (Detti[0].isEmpty() || Detti[1].isEmpty())
        return Detti[0].isEmpty() && !Detti[1].isEmpty() ? 1 : 0;
    for (size_t i = 0; i < Tutti.size(); ++i)
        if (ComeAllora(Archivio, Detti[i]))
            return i;
    return Detti[1][u"quando"_s].toString() < Detti[0][u"quando"_s].toString() ? 1 : 0;
}

}  // namespace

struct CopiaDiPrima::Stato
{
    explicit Stato(const QString& DiArchivio) : Archivio(DiArchivio), Turno(FileDelTurno(DiArchivio)) {}
    [[nodiscard]] Coppia Mia() const { return Posti(Archivio)[Posto]; }

    QString Archivio;
    FileBlocco Turno;
    size_t Posto = 0;
    bool Presa = false;
    bool Annunciata = false;
    bool Tenuta = false;
};

CopiaDiPrima::CopiaDiPrima(const QString& DiArchivio) : Dati(std::make_unique<Stato>(DiArchivio))
{
    PrendiTurno(Dati->Turno);
    // What an interrupted import has left goes; the last one stays.
    Dati->Posto = 1 - PostoUltimo(DiArchivio);
    Scarta(Dati->Mia());
    if (const Coppia Scorsa = Posti(DiArchivio)[1 - Dati->Posto]; Registro(DiArchivio, Scorsa).isEmpty()) {
        Scarta(Scorsa);
        Dati->Posto = 0;
    }
}

void CopiaDiPrima::Prendi()
{
    const Coppia Mia = Dati->Mia();
    Dati->Presa = true;
    CopiaFile(Dati->Archivio, Mia.Copia, std::numeric_limits<qint64>::max(), {}, Lettori::SoloUtente);
}

CopiaDiPrima::~CopiaDiPrima()
{
    if (!Dati->Presa || Dati->Tenuta)
        return;
    // Something has failed behind the confirmation: the way back is needed all the same.
    try {
        if (!Dati->Annunciata || !ComeAllora(Dati->Archivio, Registro(Dati->Archivio, Dati->Mia())))
            Scarta(Dati->Mia());
    } catch (const Errore&) {
        return;  // nobody can say now whether it is needed: the next import finds out
    }
}

void CopiaDiPrima::Annuncia(const Database& InScrittura, const ImportazioneFatta& Fatta)
{
    const Coppia Mia = Dati->Mia();
    const Somma Prima = SommaDi(Mia.Copia);
    if (!Prima.Scritture)
        throw Errore(errori::FormatoDatabase);
    Dati->Annunciata = true;
    const QJsonObject Detto{{u"quando"_s, Fatta.Quando.toString(Qt::ISODateWithMs)},
                            {u"tabella"_s, Fatta.Tabella},
                            {u"sorgente"_s, Fatta.Sorgente},
                            {u"aggiunti"_s, Fatta.Aggiunti},
                            {u"completati"_s, Fatta.Completati},
                            {u"scritture"_s, *Prima.Scritture + 1},
                            {u"righe"_s, ImprontaRighe(InScrittura, Fatta.Tabella)},
                            {u"prima"_s, Prima.Impronta}};
    ScriviAppoggio(Mia.Registro, QJsonDocument(Detto).toJson(), Lettori::SoloUtente);
}

QString CopiaDiPrima::Tieni()
{
    Dati->Tenuta = true;
    Scarta(Posti(Dati->Archivio)[1 - Dati->Posto]);
    return Dati->Mia().Copia;
}

namespace {

bool Presente(const QString& File)
{
    return EsisteFile(File) || EsisteCartella(File);
}

/// Of a copy and its record the one that cannot be read, while both are there; empty where both can.
QString FileGuasto(const Coppia& Quale)
{
    if (!Presente(Quale.Registro) || !Presente(Quale.Copia))
        return {};
    if (!EsisteFile(Quale.Copia))
        return Quale.Copia;
    try {
        const bool Valido =
            QDateTime::fromString(LeggiRegistro(Quale)[u"quando"_s].toString(), Qt::ISODate).isValid();
        return Valido ? QString() : Quale.Registro;
    } catch (const Errore&) {
        return Quale.Registro;
    }
}

/// What an import has left that came to no end: a copy without its record, or the other way round, or the
/// record of an import that was never confirmed. What cannot be read now is left alone.
bool MaiFinita(const QString& Archivio, const Coppia& Quale)
{
    if (Presente(Quale.Registro) != Presente(Quale.Copia))
        return true;
    if (!EsisteFile(Quale.Copia))
        return false;
    try {
        return NonConfermata(Archivio, LeggiRegistro(Quale));
    } catch (const Errore&) {
        return false;
    }
}

}  // namespace

void TogliRestiDiImportazioni(const QString& Archivio)
{
    try {
        const std::array<Coppia, 2> Tutti = Posti(Archivio);
        const bool Turno = EsisteFile(FileDelTurno(Archivio));
        const auto Resto = [&](const Coppia& Quale) { return MaiFinita(Archivio, Quale); };
        if (!EsisteFile(Archivio) || (!Turno && std::ranges::none_of(Tutti, Resto)))
            return;
        FileBlocco Mio(FileDelTurno(Archivio));
        if (Mio.Prendi(0) != FileBlocco::Esito::Preso)
            return;
        for (const Coppia& Quale : Tutti)
            if (Resto(Quale))
                Scarta(Quale);
    } catch (const Errore&) {
        return;  // the next import finds it
    }
}

std::optional<QString> ImportazioneIlleggibile(const QString& Archivio)
{
    for (const Coppia& Quale : Posti(Archivio))
        if (const QString Guasto = FileGuasto(Quale); !Guasto.isEmpty()) {
            const QString Frase =
                u"L'ultima importazione non si può annullare, perché il file \"%1\" è danneggiato: "
                "l'archivio resta com'è."_s.arg(Guasto);
            return Guasto == Quale.Copia ? Frase
                                         : Frase + u" La copia di prima è il file \"%1\"."_s.arg(Quale.Copia);
        }
    return std::nullopt;
}

std::optional<ImportazioneFatta> UltimaImportazione(const QString& Archivio)
{
    const QJsonObject Detto = Registro(Archivio, Posti(Archivio)[PostoUltimo(Archivio)]);
    const QDateTime Quando = QDateTime::fromString(Detto[u"quando"_s].toString(), Qt::ISODate);
    if (!Quando.isValid())
        return std::nullopt;
    return ImportazioneFatta{.Quando = Quando,
                             .Tabella = Detto[u"tabella"_s].toString(),
                             .Sorgente = Detto[u"sorgente"_s].toString(),
                             .Aggiunti = Detto[u"aggiunti"_s].toInt(),
                             .Completati = Detto[u"completati"_s].toInt()};
}

void AnnullaImportazione(const QString& Archivio)
{
    FileBlocco Turno(FileDelTurno(Archivio));
    PrendiTurno(Turno);
    const ArchivioFermo Fermo(Archivio);
    const Coppia Ultima = Posti(Archivio)[PostoUltimo(Archivio)];
    const QJsonObject Detto = Registro(Archivio, Ultima);
    const QString Copia = Ultima.Copia;
    if (Detto.isEmpty())
        RifiutaFile(ImportazioneIlleggibile(Archivio).value_or(u"Non c'è un'importazione da annullare."_s));
    if (!ComeAllora(Archivio, Detto))
        RifiutaFile(u"Dopo l'importazione l'archivio è stato modificato: annullandola si perderebbero le "
                    "modifiche, perciò resta com'è. La copia di prima è il file \"%1\"."_s.arg(Copia));
    if (ImprontaLeggibile(Copia) != Detto[u"prima"_s].toString())
        RifiutaFile(u"La copia dell'archivio \"%1\" è cambiata o rovinata: l'importazione non si può "
                    "annullare e l'archivio resta com'è."_s.arg(Copia));
    // A note may be linked to a name of the import already: its key must find nobody else.
    if (const QString Tabella = Detto[u"tabella"_s].toString(); Detto[u"aggiunti"_s].toInt() > 0)
        TrattieniAccanto(Archivio, Tabella, UltimaChiaveData(OpenDatabase(Archivio, true), Tabella));
    DaiPermessi(Copia, Archivio, Lettori::Tutti);
    ScriviSulDisco(Copia);
    SostituisciFile(Copia, FileVero(Archivio));
    ScartaFile(Ultima.Registro);
}
