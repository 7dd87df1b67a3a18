#include "core/parametri.h"

#include "platform/base/errore.h"
#include "platform/system/impostazioni.h"

#include <utility>

QString Impostazione(const QString& Chiave, const QString& Predefinito)
{
    return GetSetting(NomeApplicazione.toString(), SezioneParametri.toString(), Chiave, Predefinito);
}

QString ImpostazioneDi(const QString& Applicazione, const QString& Chiave)
{
    return GetSetting(Applicazione, SezioneParametri.toString(), Chiave);
}

void SalvaImpostazione(const QString& Chiave, const QString& Valore)
{
    SaveSetting(NomeApplicazione.toString(), SezioneParametri.toString(), Chiave, Valore);
}

void SalvaImpostazioni(const QList<std::pair<QString, QString>>& Valori)
{
    SaveSettings(NomeApplicazione.toString(), SezioneParametri.toString(), Valori);
}

void RicordaImpostazioni(const QList<std::pair<QString, QString>>& Valori)
{
    static bool Detto = false;
    try {
        SalvaImpostazioni(Valori);
        Detto = false;
    } catch (const Errore&) {
        if (!std::exchange(Detto, true))
            throw;
    }
}

int MisuraTwip(const QString& Chiave, int Predefinita)
{
    bool Letta = false;
    const int Valore = Impostazione(Chiave).toInt(&Letta);
    return Letta && Valore > 0 ? Valore : Predefinita;
}
