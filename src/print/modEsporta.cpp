#include "print/modEsporta.h"

#include "core/comandi.h"
#include "core/modErrori.h"
#include "core/posti.h"
#include "core/sessione.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"
#include "print/modStampe.h"
#include "print/writers/scrittorehtml.h"
#include "print/writers/scrittorertf.h"

using namespace Qt::StringLiterals;

namespace {

bool Uguale(const QString& File, const QByteArray& Byte)
{
    try {
        return EsisteFile(File) && LeggiFile(File, Byte.size()) == Byte;
    } catch (const Errore&) {
        return false;  // what cannot be read, or is longer, is another one
    }
}

/// What an action failed with.
std::optional<Errore> Guasto(const std::function<void()>& Azione)
{
    try {
        Azione();
        return std::nullopt;
    } catch (...) {
        return ErroreCorrente();
    }
}

QString TitoloDi(int Tipo, int Indice)
{
    return VociTipoStampa().value(Tipo) + u" - "_s + SteloDocumento(Indice);
}

/// What keeps the document from being brought up to date and opened; nothing is told yet.
std::optional<Errore> Aggiorna(const std::function<std::optional<Errore>()>& Ricomponi)
{
    std::optional<Errore> Esito;
    if (const auto Composizione = Guasto([&] { Esito = Ricomponi(); }))
        return Composizione;
    return Esito;
}

}  // namespace

// ---- files ----------------------------------------------------------------------------------------

QByteArray DocumentoEsportato(const Documento& Doc, FormatoEsportazione Formato, const QString& Titolo,
                              const Carta& Foglio)
{
    switch (Formato) {
    case FormatoEsportazione::Html:
        return ScriviHtml(Doc, Titolo, Foglio);
    case FormatoEsportazione::Word:
        return ScriviRtf(Doc, Titolo, Foglio);
    }
    throw Errore(5);
}

bool EsportaDocumento(const Documento& Doc, const QString& File, FormatoEsportazione Formato,
                      const QString& Titolo, const Carta& Foglio)
{
    const QByteArray Byte = DocumentoEsportato(Doc, Formato, Titolo, Foglio);
    if (Uguale(File, Byte))
        return false;
    // Whoever has it open would be left with a file that is no longer there.
    if (!SolaLettura(File) && FileInUso(File))
        throw Errore(70);
    ScriviFile(File, Byte);
    return true;
}

// ---- one composition ------------------------------------------------------------------------------

void PreparaEsportazione(Superficie& vp, int Indice, const std::optional<QString>& Invio)
{
    if (!Invio) {
        vp.ExportFile = FileDocumento(Indice);
        vp.ExportFormat = int(FormatoEsportazione::Word);
        return;
    }
    if (Invio->isEmpty()) {
        MsgErrore(u"Non trovato percorso cartella Parcelle PV2!\n"
                  u"Verificare le impostazioni nel pannello 'Personalizzazione' di PV2"_s);
        return;
    }
    vp.ExportFile = Barra(*Invio) + SteloDocumento(Indice) + u".htm"_s;
    vp.ExportFormat = int(FormatoEsportazione::Html);
}

std::optional<Errore> AnteprimaConEsportazione(Superficie& vp, const Parcella& Nota, int Tipo, int Indice,
                                               const std::optional<QString>& Invio, const Carta& Foglio)
{
    if (!Nota.Pronta)
        return std::nullopt;
    const auto SenzaCartella = Guasto([] { CreaCartella(Barra(sessione::UserFolder) + u"doc"_s); });
    PreparaEsportazione(vp, Indice, Invio);
    if (!Anteprima(vp, Nota, Tipo) || vp.ExportFile.isEmpty())
        return std::nullopt;
    auto Esito = Guasto([&] {
        (void)EsportaDocumento(vp.Contenuto(), vp.ExportFile, FormatoEsportazione(vp.ExportFormat),
                               TitoloDi(Tipo, Indice), Foglio);
    });
    if (Esito && SenzaCartella && !Invio)
        Esito = SenzaCartella;  // the reason of the other one
    if (Esito && Invio)
        GestioneErrori(*Esito);
    return Esito;
}

// ---- buttons --------------------------------------------------------------------------------------

void EsportaInWord(int Indice, const std::function<std::optional<Errore>()>& Ricomponi)
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
        EseguiComando(u"printword"_s, Indice, QString());
}

void AvviaEditor(int Indice)
{
    if (sessione::WP.isEmpty())
        return;
    const QString File = FileDocumento(Indice);
    if (AvviaProgramma(sessione::WP, {File}, CartellaFile(File)) != 0)
        MsgBox(u"Si è verificato un errore nell'apertura"_s, vbCritical, u"Errore!"_s);
}
