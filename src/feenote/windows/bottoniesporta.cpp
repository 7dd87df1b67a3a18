#include "feenote/windows/bottoniesporta.h"

#include "core/comandi.h"
#include "core/modErrori.h"
#include "core/posti.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/system/esportato.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

using namespace Qt::StringLiterals;

namespace {

/// What keeps the document from being brought up to date and opened; nothing is shown yet.
std::optional<Errore> Aggiorna(const std::function<std::optional<Errore>()>& Ricomponi)
{
    try {
        return Ricomponi();
    } catch (...) {
        return ErroreCorrente();
    }
}

/// The desktop says nothing of a document that no program opens.
void MostraInWord(int Indice)
{
    const QString File = FileDocumento(Indice);
    EseguiComando(u"printword"_s, Indice, QString());
    if (!HaProgramma(File))
        MostraEsportato(u"Nessun programma di questo computer apre i documenti di testo.\nIl documento "_s +
                            NomeFile(File) + u" è stato scritto nella cartella "_s + CartellaFile(File),
                        File);
}

}  // namespace

bool AggiornaDocumento(int Indice, const std::function<std::optional<Errore>()>& Ricomponi)
{
    const QString File = FileDocumento(Indice);
    const QString Nome = SteloDocumento(Indice) + u".doc"_s;
    std::optional<Errore> Esito;
    bool InUso = false;
    {
        const ClessidraAccesa Occupato;
        InUso = FileInUso(File);
        if (!InUso)
            Esito = Aggiorna(Ricomponi);
    }
    if (InUso)
        MsgErrore(u"Attenzione, il documento "_s + Nome +
                  u" è già aperto da un'altra applicazione e non può essere aggiornato.\n"
                  u"Chiudere il documento e riprovare."_s);
    else if (!EsisteFile(File))
        MsgErrore(u"Attenzione, il documento "_s + Nome + u" non è stato trovato!"_s);
    else if (Esito)
        GestioneErrori(*Esito);
    else
        return true;
    return false;
}

bool EsportaInWord(int Indice, const std::function<std::optional<Errore>()>& Ricomponi)
{
    if (!AggiornaDocumento(Indice, Ricomponi))
        return false;
    MostraInWord(Indice);
    return true;
}

void AvviaEditor(int Indice)
{
    if (sessione::WP.isEmpty())
        return;
    const QString File = FileDocumento(Indice);
    if (AvviaProgramma(sessione::WP, {File}, CartellaFile(File)) != 0)
        MsgBox(u"Si è verificato un errore nell'apertura"_s, vbCritical, u"Errore!"_s);
}
