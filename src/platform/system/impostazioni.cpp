#include "platform/system/impostazioni.h"

#include "platform/base/errore.h"
#include "platform/system/deposito.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/turno.h"

#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

/// What no settings reach; a larger file is somebody else's.
constexpr qint64 MassimoByte = qint64(4) << 20;

/// The store as it is, empty where none is. @throws Errore 75 when it cannot be read, 7 when it is too large
QByteArray LeggiDeposito(const QString& File)
{
    return EsisteFile(File) ? LeggiFile(File, MassimoByte) : QByteArray();
}

/// @throws Errore why not
void Scrivi(const QString& File, const QString& Sezione, const QList<std::pair<QString, QString>>& Valori)
{
    CreaCartellaDiUtente(CartellaFile(File));
    // Two programs that store at one moment would each put back what the other has changed.
    ATurno(File, NomeFile(File) + u".lock"_s, [&] {
        const QByteArray Prima = LeggiDeposito(File);
        const QByteArray Dopo = ConValoriNelDeposito(Prima, Sezione, Valori);
        if (Dopo != Prima || !EsisteFile(File))
            ScriviFile(File, Dopo, Lettori::SoloUtente);
    });
}

}  // namespace

QString PercorsoImpostazioni(const QString& Applicazione)
{
#ifdef Q_OS_WIN
    const QString Cartella = qEnvironmentVariable("APPDATA");
#else
    const QString Cartella = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
#endif
    return PercorsoNativo(Cartella + u"/Calcanova/"_s + Applicazione + u".ini"_s);
}

QString GetSetting(const QString& Applicazione, const QString& Sezione, const QString& Chiave,
                   const QString& Predefinito)
{
    try {
        return ValoreDelDeposito(LeggiDeposito(PercorsoImpostazioni(Applicazione)), Sezione, Chiave)
            .value_or(Predefinito);
    } catch (const Errore&) {
        return Predefinito;
    }
}

void SaveSetting(const QString& Applicazione, const QString& Sezione, const QString& Chiave,
                 const QString& Valore)
{
    SaveSettings(Applicazione, Sezione, {{Chiave, Valore}});
}

void SaveSettings(const QString& Applicazione, const QString& Sezione,
                  const QList<std::pair<QString, QString>>& Valori)
{
    const QString File = PercorsoImpostazioni(Applicazione);
    try {
        Scrivi(File, Sezione, Valori);
    } catch (const Errore& Guasto) {
        throw Errore(errori::Accesso,
                     u"Impossibile scrivere le impostazioni nel file %1: %2"_s.arg(File, Guasto.Descrizione));
    }
}
