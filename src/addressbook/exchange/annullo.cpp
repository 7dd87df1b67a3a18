#include "addressbook/exchange/annullo.h"

#include "addressbook/exchange/tabellaestranea.h"
#include "platform/base/errore.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/sincrono.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QJsonObject>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 MassimoRegistro = 64 * 1024;

/// Beside the file itself, whatever link it was opened by.
QString CopiaDi(const QString& Archivio)
{
    return FileVero(Archivio) + u".prima"_s;
}

/// The copy until its import is done: that of the import before stays meanwhile.
QString CopiaNuovaDi(const QString& Archivio)
{
    return FileVero(Archivio) + u".prima.nuova"_s;
}

QString RegistroDi(const QString& Archivio)
{
    return FileVero(Archivio) + u".prima.json"_s;
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

QJsonObject Registro(const QString& Archivio)
{
    const QString File = RegistroDi(Archivio);
    if (!EsisteFile(File) || !EsisteFile(CopiaDi(Archivio)))
        return {};
    try {
        return QJsonDocument::fromJson(LeggiFile(File, MassimoRegistro)).object();
    } catch (const Errore&) {
        return {};  // a record that cannot be read is none
    }
}

}  // namespace

CopiaDiPrima::CopiaDiPrima(const QString& DiArchivio) : Archivio(DiArchivio)
{
    try {
        CopiaFile(Archivio, CopiaNuovaDi(Archivio), std::numeric_limits<qint64>::max(), {},
                  Lettori::SoloUtente);
    } catch (const Errore&) {
        ScartaFile(CopiaNuovaDi(Archivio));
        throw;
    }
}

CopiaDiPrima::~CopiaDiPrima()
{
    if (!Tenuta)
        ScartaFile(CopiaNuovaDi(Archivio));
}

QString CopiaDiPrima::Tieni(const ImportazioneFatta& Fatta)
{
    Tenuta = true;
    ScartaFile(RegistroDi(Archivio));
    SostituisciFile(CopiaNuovaDi(Archivio), CopiaDi(Archivio));
    const QJsonObject Detto{{u"quando"_s, Fatta.Quando.toString(Qt::ISODate)},
                            {u"tabella"_s, Fatta.Tabella},
                            {u"sorgente"_s, Fatta.Sorgente},
                            {u"aggiunti"_s, Fatta.Aggiunti},
                            {u"completati"_s, Fatta.Completati},
                            {u"dopo"_s, ImprontaDi(Archivio)},
                            {u"prima"_s, ImprontaDi(CopiaDi(Archivio))}};
    ScriviFile(RegistroDi(Archivio), QJsonDocument(Detto).toJson(), Lettori::SoloUtente);
    return CopiaDi(Archivio);
}

std::optional<ImportazioneFatta> UltimaImportazione(const QString& Archivio)
{
    const QJsonObject Detto = Registro(Archivio);
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
    const QJsonObject Detto = Registro(Archivio);
    const QString Copia = CopiaDi(Archivio);
    if (Detto.isEmpty())
        RifiutaFile(u"Non c'è un'importazione da annullare."_s);
    if (ImprontaDi(Archivio) != Detto[u"dopo"_s].toString())
        RifiutaFile(u"Dopo l'importazione l'archivio è stato modificato: annullandola si perderebbero le "
                    "modifiche, perciò resta com'è. La copia di prima è il file \"%1\"."_s.arg(Copia));
    if (ImprontaDi(Copia) != Detto[u"prima"_s].toString())
        RifiutaFile(u"La copia dell'archivio \"%1\" è cambiata o rovinata: l'importazione non si può "
                    "annullare e l'archivio resta com'è."_s.arg(Copia));
    DaiPermessi(Copia, Archivio, Lettori::Tutti);
    ScriviSulDisco(Copia);
    SostituisciFile(Copia, FileVero(Archivio));
    ScartaFile(RegistroDi(Archivio));
}
