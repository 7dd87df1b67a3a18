#include "update/windows/installatore.h"

#include "core/aperture.h"
#include "core/modErrori.h"
#include "core/posti.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "update/scarico.h"

using namespace Qt::StringLiterals;

namespace {

/// Notes that are not saved, and the address books. @return false when the user has kept one of them
bool ChiudiModificate()
{
    for (int i = 1; i <= UltimaParcella(); ++i) {
        const InfoParcella& Posto = InfoParcelle[size_t(i)];
        if (!Posto.Libera && Posto.Modificata && Aperture.ChiudiParcella && !Aperture.ChiudiParcella(i))
            return false;
    }
    return !Aperture.ChiudiRubriche || Aperture.ChiudiRubriche();
}

bool EPacchetto(const QString& File)
{
    return File.endsWith(u".deb");
}

/// 0, or an error number.
int Apri(const QString& File)
{
    return EPacchetto(File) ? ApriConSistema(File) : AvviaProgramma(File, {}, CartellaUpgrade());
}

}  // namespace

bool SiInstallaDaSe(const QString& File)
{
    return !EPacchetto(File) || HaProgramma(File);
}

QString InstallaEdEsci(const Annuncio& Trovato, const QString& File)
{
    const bool DaSe = SiInstallaDaSe(File);
    if (DaSe && !ChiudiModificate())
        return {};
    // The file that is started is the one that is looked at, however long the questions have taken.
    const QString Nome = NomeFile(File);
    if (const QString Difetto = DifettoFile(Trovato, Nome, File); !Difetto.isEmpty()) {
        MsgErrore(FraseDownloadFallito(Nome, Difetto));
        return {};
    }
    if (!DaSe) {
        const QString Comando = u"sudo apt install \"%1\""_s.arg(File);
        MsgBox(u"Per installare la nuova versione, chiudere il programma ed eseguire:\n"_s + Comando,
               vbInformation, TitoloMessaggio.toString());
        return Comando;
    }
    if (Apri(File) == 0)
        Termina();
    else
        MsgBox(u"Si è verificato un errore nell'apertura"_s, vbCritical, u"Errore!"_s);
    return {};
}
