#include "update/modAggiorna.h"

#include "calculators/modTassi.h"
#include "core/cartellautente.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "core/versione.h"
#include "platform/base/errore.h"
#include "platform/system/blocco.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "platform/system/permessi.h"
#include "platform/system/shell.h"
#include "platform/system/sincrono.h"
#include "update/modCopyURL.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView Avanzo = u".parziale";

QString FileVersioni()
{
    return Barra(sessione::UserFolder) + ElencoVersioni.toString();
}

void SvuotaSessione()
{
    sessione::VersioneDisp.clear();
    sessione::DataTassiDisp.reset();
    sessione::NotaAgg.clear();
}

/// What has come takes the place of the former file, which counts for nothing: its readers are the folder's.
/// @return false where there is none, or it cannot be put there
bool Posa(const QString& Arrivato)
{
    try {
        DaiPermessi(Arrivato, {}, Lettori::Cartella);
        SostituisciFile(Arrivato, FileVersioni());
        return true;
    } catch (const NonConfermato&) {
        return true;  // it stands there, and the next one comes with the next check
    } catch (const Errore&) {
        ScartaFile(Arrivato);
        return false;
    }
}

/// Versioni.txt by way of a file of its own. @return false when it has not come; then it was told, and
/// `Difetto` says why
bool Porta(const RichiestaRete& Chiesta, const Provenienza& Da, bool Interattivo,
           const PassoAggiornamento& Passo, QString& Difetto)
{
    if (Da.Indirizzo.isEmpty()) {
        try {
            return CopiaFile(TrovaFile(Da.Cartella + ElencoVersioni.toString()), Chiesta.File,
                             MassimoVersioni);
        } catch (const Errore& Guasto) {
            ScartaFile(Chiesta.File);
            const QString Origine = Da.Cartella + ElencoVersioni.toString();
            throw Errore(Guasto.Numero, Guasto.Descrizione.contains(Origine)
                                            ? Guasto.Descrizione
                                            : Guasto.Descrizione + u": "_s + Origine);
        }
    }
    if (CopiaURL(Chiesta.Indirizzo, Chiesta.File, {!Interattivo, MassimoVersioni, Passo}, &Difetto) == 0)
        return true;
    ScartaFile(Chiesta.File);
    return false;
}

void Traccia(const QString& Testo)
{
    if (sessione::ModoDebug)
        TraceDebug(Testo);
}

}  // namespace

Provenienza DalServer()
{
    return {sessione::ServerAggiornamenti, {}};
}

Provenienza DallaCartella(const QString& FileVersioni)
{
    return {{}, CartellaFile(FileVersioni)};
}

QString CartellaUpgrade()
{
    return CartellaUtente(u"upgrade"_s);
}

QString Provvisorio(const QString& File)
{
    static int Numero = 0;
    // A path may hold what looks like a place of another argument.
    return File + u".%1-%2"_s.arg(QCoreApplication::applicationPid()).arg(++Numero) + Avanzo.toString();
}

void TogliAvanzi()
{
    // A transfer that lives writes within fifteen seconds, or ends: of another machine's nobody knows more.
    constexpr qint64 DaQuantoSecondi = 60;
    // Whatever else ends so is the user's.
    static const QRegularExpression Forma(u".\\.(\\d+)-\\d+\\.parziale\\z"_s);
    for (const QString& Cartella : {Barra(sessione::UserFolder), CartellaUpgrade()}) {
        // A finished one has the date of what it is, which says nothing of its writer.
        for (const QString& Nome : NomiDeiFile(Cartella, Avanzo.toString()))
            if (const auto Sua = Forma.match(Nome);
                Sua.hasMatch() && !ProcessoVivo(Sua.captured(1).toLongLong()) &&
                std::abs(DataFile(Cartella + Nome).secsTo(QDateTime::currentDateTime())) > DaQuantoSecondi)
                ScartaFile(Cartella + Nome);
    }
}

RichiestaRete InizioControllo(const Provenienza& Da)
{
    SvuotaSessione();
    CreaCartellaDiUtente(sessione::UserFolder);
    TogliAvanzi();
    return RichiestaCopia(Da.Indirizzo + CartellaServer.toString() + ElencoVersioni.toString(),
                          Provvisorio(FileVersioni()), MassimoVersioni);
}

bool FineControllo(const RichiestaRete& Chiesta, const Provenienza& Da, bool Interattivo, Annuncio& Trovato)
{
    if (!Posa(Chiesta.File)) {
        Trovato.Difetto = u"file delle versioni non salvato"_s;
        if (Interattivo)
            MsgBox(u"Errore nel salvataggio del file delle versioni."_s, vbExclamation,
                   TitoloAvvertenza.toString());
        return false;
    }
    Trovato.Da = Da;
    Trovato.Byte = LeggiFile(FileVersioni(), MassimoVersioni);
    Trovato.Lette = LeggiVersioni(Trovato.Byte);
    if (!Trovato.Lette.RigaVuota && Trovato.Lette.Versione.isEmpty()) {
        Trovato.Difetto = u"file delle versioni illeggibile"_s;
        if (Interattivo)
            MsgErrore(u"Errore (Invalid Version) nel recupero delle informazioni di aggiornamento."_s);
        return false;
    }
    if (Trovato.Lette.RigaVuota && !Trovato.Lette.DataTassi) {
        // Nothing is said of the program, and nothing of the rates: who is told so is not up to date.
        Trovato.Difetto = u"file delle versioni vuoto o danneggiato"_s;
        if (Interattivo)
            MsgBox(u"Il file \"%1\" è vuoto o danneggiato."_s.arg(ElencoVersioni), vbExclamation,
                   TitoloAvvertenza.toString());
        return false;
    }
    Trovato.Letto = true;
    sessione::VersioneDisp = Trovato.Lette.Versione;
    sessione::DataTassiDisp = Trovato.Lette.DataTassi;
    sessione::NotaAgg = Trovato.Lette.Nota;
    return sessione::DataTassiDisp.has_value();
}

bool ControlloVersioni(const Provenienza& Da, bool Interattivo, Annuncio& Trovato,
                       const PassoAggiornamento& Passo)
{
    const ClessidraAccesa Attesa;
    Trovato = {};
    const RichiestaRete Chiesta = InizioControllo(Da);
    return Porta(Chiesta, Da, Interattivo, Passo, Trovato.Difetto) &&
           FineControllo(Chiesta, Da, Interattivo, Trovato);
}

bool TassiVecchi(const std::optional<QDate>& Data)
{
    const auto Presente = DataArchivio(ArchivioTassi());
    if (!Presente) {
        MsgBox(u"Errore: archivio Indici Istat non trovato nella cartella "_s + sessione::UserFolder,
               vbExclamation, TitoloAvvertenza.toString());
        return false;
    }
    return Data && *Presente < *Data;
}

void DiRicercaFallita()
{
    MsgBox(u"Se la postazione non è mai collegata ad internet, è possibile disattivare la ricerca automatica "
           u"degli aggiornamenti nel pannello \"Personalizzazioni programma->Setup\""_s,
           vbInformation, TitoloMessaggio.toString());
}

bool ProponiAggiornamento()
{
    Traccia(u"controllo versione programma"_s);
    const bool Programma = VersioneNuova(sessione::VersioneDisp, VersioneProgramma());
    Traccia(u"controllo indici Istat"_s);
    const bool Tassi = TassiVecchi(sessione::DataTassiDisp);
    if (!Programma && !Tassi)
        return false;
    QString Domanda = u"Sono presenti dei nuovi aggiornamenti del programma."_s;
    if (!sessione::NotaAgg.isEmpty())
        Domanda += u'\n' + sessione::NotaAgg;
    Domanda += u"\nVuoi procedere con l'aggiornamento?"_s;
    return MsgBox(Domanda, vbYesNo + vbQuestion, TitoloDomanda.toString()) == vbYes;
}
