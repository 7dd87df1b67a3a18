#include "core/parametri.h"

#include "core/dannoricordato.h"
#include "platform/base/errore.h"
#include "platform/system/impostazioni.h"

#include <utility>

namespace {

/// A refusal of what nobody has asked for was told.
bool RifiutoDetto = false;

/// Does it, and notes the damage that a refusal tells of: the user may take the file away upon it.
template <class Azione>
void NotandoIlDanno(Azione&& Fai)
{
    try {
        Fai();
    } catch (const Errore&) {
        (void)FraseDelDannoRicordato();
        throw;
    }
}

}  // namespace

QString Impostazione(const QString& Chiave, const QString& Predefinito)
{
    return GetSetting(NomeApplicazione.toString(), SezioneParametri.toString(), Chiave, Predefinito);
}

QString ImpostazioneSicura(const QString& Chiave)
{
    return GetSettingSicuro(NomeApplicazione.toString(), SezioneParametri.toString(), Chiave);
}

QString ImpostazioneDi(const QString& Applicazione, const QString& Chiave)
{
    return GetSetting(Applicazione, SezioneParametri.toString(), Chiave);
}

QString FraseImpostazioniGuaste()
{
    const std::optional<Errore> Guasto = GuastoImpostazioni(NomeApplicazione.toString());
    return Guasto ? Guasto->Descrizione : QString();
}

void SalvaImpostazione(const QString& Chiave, const QString& Valore)
{
    MutaImpostazione(Chiave, [&](const QString&) { return Valore; });
}

void MutaImpostazione(const QString& Chiave, const std::function<QString(const QString& Prima)>& Dopo)
{
    NotandoIlDanno(
        [&] { MutaSetting(NomeApplicazione.toString(), SezioneParametri.toString(), Chiave, Dopo); });
    RifiutoDetto = false;
}

void SalvaImpostazioni(const QList<std::pair<QString, QString>>& Valori,
                       const std::function<bool(const QString& Chiave, const QString& Ora)>& SiScrive)
{
    NotandoIlDanno(
        [&] { SaveSettings(NomeApplicazione.toString(), SezioneParametri.toString(), Valori, SiScrive); });
    RifiutoDetto = false;
}

namespace {

/// A refusal is told once, and again only behind a success.
void DettoUnaVolta(const std::function<void()>& Salva)
{
    try {
        if (const QString Frase = FraseDelDannoRicordato(); !Frase.isEmpty())
            throw Errore(errori::Accesso, Frase);
        Salva();
    } catch (const Errore&) {
        if (!std::exchange(RifiutoDetto, true))
            throw;
    }
}

}  // namespace

void ImpostazioniGuasteDette()
{
    RifiutoDetto = true;
}

void RicordaImpostazioni(const QList<std::pair<QString, QString>>& Valori)
{
    DettoUnaVolta([&] { SalvaImpostazioni(Valori); });
}

void RicordaMutata(const QString& Chiave, const std::function<QString(const QString& Prima)>& Dopo)
{
    DettoUnaVolta([&] { MutaImpostazione(Chiave, Dopo); });
}

int MisuraTwip(const QString& Chiave, int Predefinita)
{
    bool Letta = false;
    const int Valore = Impostazione(Chiave).toInt(&Letta);
    return Letta && Valore > 0 ? Valore : Predefinita;
}
