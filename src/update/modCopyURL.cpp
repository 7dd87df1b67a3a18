#include "update/modCopyURL.h"

#include "core/modErrori.h"
#include "core/versione.h"
#include "platform/base/errore.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView SenzaInternet = u"Errore di connessione ad Internet.\nControllare se la connessione è "
                                      u"attiva o verificare le impostazioni "
                                      u"di eventuali firewall presenti.";

/// The number of a failure, and the message that goes with it.
Errore Guasto(FineRete Fine)
{
    if (Fine == FineRete::Disco)
        return Errore(errori::DiscoPieno,
                      u"Impossibile salvare il file ricevuto: controllare lo spazio libero "
                      u"su disco."_s);
    return Errore(errori::Imprevisto, SenzaInternet.toString());
}

}  // namespace

RichiestaRete RichiestaCopia(const QString& Indirizzo, const QString& File, qint64 MassimoByte)
{
    RichiestaRete Chiesta;
    Chiesta.Indirizzo = Indirizzo;
    Chiesta.File = File;
    Chiesta.Agente = "Calcanova/" + VersioneProgramma().toLatin1();
    Chiesta.MassimoByte = MassimoByte;
    return Chiesta;
}

int CopiaURL(const QString& Indirizzo, const QString& File, const OpzioniCopia& Opzioni, QString* Dettaglio)
{
    constexpr int OgniMs = 20;
    const auto Corrente = AvviaTrasferimento(RichiestaCopia(Indirizzo, File, Opzioni.MassimoByte));
    while (!Corrente->Attendi(OgniMs)) {
        const bool Prosegui =
            Opzioni.Passo ? Opzioni.Passo(Corrente->Ricevuti(), Corrente->Totale()) : RespiroRete();
        if (!Prosegui)
            Corrente->Annulla();
    }
    const FineRete Fine = Corrente->Fine();
    if (Dettaglio)
        *Dettaglio = DescriviFine(Fine);
    if (Fine == FineRete::Completa)
        return 0;
    const Errore Trovato = Guasto(Fine);
    if (!Opzioni.Silenziosa && Fine != FineRete::Annullata)
        MsgErrore(Trovato.Descrizione);
    return Trovato.Numero;
}
