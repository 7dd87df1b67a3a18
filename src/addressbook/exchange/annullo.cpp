#include "addressbook/exchange/annullo.h"

#include "addressbook/exchange/tabellaestranea.h"
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

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 MassimoRegistro = 64 * 1024;

/// A copy of an archive, and what is known of the import behind it.
struct Coppia
{
    QString Copia;
    QString Registro;
};

/// Of the last import that was kept; beside the file itself, whatever link it was opened by.
Coppia Ultima(const QString& Archivio)
{
    const QString File = FileVero(Archivio);
    return {File + u".prima"_s, File + u".prima.json"_s};
}

/// Of one that is not kept yet: that of the import before stays meanwhile.
Coppia Nuova(const QString& Archivio)
{
    const QString File = FileVero(Archivio);
    return {File + u".prima.nuova"_s, File + u".prima.nuova.json"_s};
}

void Scarta(const Coppia& Quale)
{
    ScartaFile(Quale.Registro);
    ScartaFile(Quale.Copia);
}

QString ImprontaDi(const QString& File)
{
    QCryptographicHash Conto(QCryptographicHash::Sha256);
    LeggiAPezzi(File, [&](QByteArrayView Pezzo) {
        Conto.addData(Pezzo);
        return true;
    });
    return QString::fromLatin1(Conto.result().toHex());
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

/// How often the engine has written to a file, as its head says.
qint64 Scritture(const QString& File)
{
    constexpr int Posto = 24;
    const QByteArray Inizio = InizioDelFile(File, Posto + int(sizeof(quint32)));
    return Inizio.size() < Posto + int(sizeof(quint32)) ? 0
                                                        : qFromBigEndian<quint32>(Inizio.constData() + Posto);
}

QJsonObject Registro(const Coppia& Quale)
{
    if (!EsisteFile(Quale.Registro) || !EsisteFile(Quale.Copia))
        return {};
    try {
        return QJsonDocument::fromJson(LeggiFile(Quale.Registro, MassimoRegistro)).object();
    } catch (const Errore&) {
        return {};  // a record that cannot be read is none
    }
}

/// The archive is as the import of this record has left it.
bool ComeAllora(const QString& Archivio, const QJsonObject& Detto)
{
    if (const QString Dopo = Detto[u"dopo"_s].toString(); !Dopo.isEmpty())
        return ImprontaDi(Archivio) == Dopo;
    // The record was written before the import was confirmed, and the program ended there.
    if (Scritture(Archivio) != Detto[u"scritture"_s].toInteger())
        return false;
    try {
        return ImprontaRighe(OpenDatabase(Archivio, true), Detto[u"tabella"_s].toString()) ==
               Detto[u"righe"_s].toString();
    } catch (const Errore&) {
        return false;  // an archive that cannot be read is none that was left so
    }
}

/// A copy whose import is in the archive becomes the last one; the last one stays where it cannot.
void Assesta(const QString& Archivio)
{
    const Coppia Fatta = Nuova(Archivio);
    const Coppia Scorsa = Ultima(Archivio);
    ScartaFile(Scorsa.Registro);
    SostituisciFile(Fatta.Copia, Scorsa.Copia);
    SostituisciFile(Fatta.Registro, Scorsa.Registro);
}

/// The copy that leads back from the archive as it is: a new one, where nobody could make it the last one.
Coppia InVigore(const QString& Archivio)
{
    const Coppia Fatta = Nuova(Archivio);
    const QJsonObject Detto = Registro(Fatta);
    return !Detto.isEmpty() && ComeAllora(Archivio, Detto) ? Fatta : Ultima(Archivio);
}

}  // namespace

/// One program at a time imports into an archive: two would take each other's copy.
struct CopiaDiPrima::Turno
{
    explicit Turno(const QString& Archivio) : Blocco(FileVero(Archivio) + u".prima.blocco"_s) {}
    FileBlocco Blocco;
};

CopiaDiPrima::CopiaDiPrima(const QString& DiArchivio)
    : Archivio(DiArchivio), Mio(std::make_unique<Turno>(DiArchivio))
{
    constexpr int AttesaMs = 500;
    if (Mio->Blocco.Prendi(AttesaMs) == FileBlocco::Esito::Altrui)
        RifiutaFile(u"Un altro programma sta importando nello stesso archivio: riprovare fra poco."_s);
    const Coppia Mia = Nuova(Archivio);
    if (InVigore(Archivio).Copia == Mia.Copia)
        Assesta(Archivio);
    Scarta(Mia);
    try {
        CopiaFile(Archivio, Mia.Copia, std::numeric_limits<qint64>::max(), {}, Lettori::SoloUtente);
    } catch (const Errore&) {
        Scarta(Mia);
        throw;
    }
}

CopiaDiPrima::~CopiaDiPrima()
{
    if (!Tenuta)
        Scarta(Nuova(Archivio));
}

void CopiaDiPrima::Annuncia(const Database& InScrittura, const ImportazioneFatta& Fatta)
{
    const Coppia Mia = Nuova(Archivio);
    const QJsonObject Detto{{u"quando"_s, Fatta.Quando.toString(Qt::ISODate)},
                            {u"tabella"_s, Fatta.Tabella},
                            {u"sorgente"_s, Fatta.Sorgente},
                            {u"aggiunti"_s, Fatta.Aggiunti},
                            {u"completati"_s, Fatta.Completati},
                            {u"scritture"_s, Scritture(Mia.Copia) + 1},
                            {u"righe"_s, ImprontaRighe(InScrittura, Fatta.Tabella)},
                            {u"prima"_s, ImprontaDi(Mia.Copia)}};
    ScriviFile(Mia.Registro, QJsonDocument(Detto).toJson(), Lettori::SoloUtente);
}

QString CopiaDiPrima::Tieni()
{
    Tenuta = true;
    try {
        Assesta(Archivio);
        const Coppia Mia = Ultima(Archivio);
        QJsonObject Detto = Registro(Mia);
        Detto[u"dopo"_s] = ImprontaDi(Archivio);
        ScriviFile(Mia.Registro, QJsonDocument(Detto).toJson(), Lettori::SoloUtente);
    } catch (const Errore&) {
        // The record that was announced serves as it is, where it is.
    }
    return InVigore(Archivio).Copia;
}

std::optional<ImportazioneFatta> UltimaImportazione(const QString& Archivio)
{
    const QJsonObject Detto = Registro(InVigore(Archivio));
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
    const Coppia Quale = InVigore(Archivio);
    const QJsonObject Detto = Registro(Quale);
    const QString Copia = Quale.Copia;
    if (Detto.isEmpty())
        RifiutaFile(u"Non c'è un'importazione da annullare."_s);
    if (!ComeAllora(Archivio, Detto))
        RifiutaFile(u"Dopo l'importazione l'archivio è stato modificato: annullandola si perderebbero le "
                    "modifiche, perciò resta com'è. La copia di prima è il file \"%1\"."_s.arg(Copia));
    if (ImprontaDi(Copia) != Detto[u"prima"_s].toString())
        RifiutaFile(u"La copia dell'archivio \"%1\" è cambiata o rovinata: l'importazione non si può "
                    "annullare e l'archivio resta com'è."_s.arg(Copia));
    DaiPermessi(Copia, Archivio, Lettori::Tutti);
    ScriviSulDisco(Copia);
    SostituisciFile(Copia, FileVero(Archivio));
    ScartaFile(Quale.Registro);
}
