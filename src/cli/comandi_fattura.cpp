// The commands of calcanova-cli on electronic invoices.
#include "cli/comandi.h"

#include "core/modTrasmissioni.h"
#include "feenote/einvoice/adattatori.h"
#include "feenote/einvoice/composizione.h"
#include "feenote/einvoice/controlli.h"
#include "feenote/einvoice/scrittura.h"
#include "feenote/file/memorianota.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/modEmessi.h"
#include "feenote/modFatturaXml.h"
#include "feenote/modParti.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/database/database.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "platform/system/sincrono.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

QStringList Frasi(const QList<MancanzaFattura>& Tutte)
{
    QStringList Testi;
    for (const MancanzaFattura& Voce : Tutte)
        Testi += Voce.Messaggio;
    return Testi;
}

QJsonObject Descritto(const EsitoControllo& Esito)
{
    return {{u"codice"_s, Esito.Codice},
            {u"rifiuto"_s, Esito.Gravita == GravitaControllo::Rifiuto},
            {u"frase"_s, Esito.Frase},
            {u"elemento"_s, Esito.Elemento},
            {u"linea"_s, Esito.Linea}};
}

/// "2 rifiuti, 1 avviso", the last row of an answer.
QString Conto(const QList<EsitoControllo>& Esiti)
{
    const auto Rifiuti = std::ranges::count(Esiti, GravitaControllo::Rifiuto, &EsitoControllo::Gravita);
    const auto Avvisi = std::ssize(Esiti) - Rifiuti;
    return u"%1 %2, %3 %4"_s.arg(QString::number(Rifiuti), Rifiuti == 1 ? u"rifiuto"_s : u"rifiuti"_s,
                                 QString::number(Avvisi), Avvisi == 1 ? u"avviso"_s : u"avvisi"_s);
}

/// The note's file while an invoice is written of it: nobody else writes one meanwhile, and it keeps which
/// file that was, as the window has it do. Nothing else of it changes.
class NotaInTurno
{
public:
    /// @throws Errore 3260 another program is writing to it
    NotaInTurno(const QString& Percorso, const Parcella& Letta)
    {
        if (EDiAccess(Percorso))
            Perche = u"è un file di Access"_s;
        else if (SolaLettura(Percorso))
            Perche = u"è di sola lettura"_s;
        else if (!Letta.Psw.isEmpty())
            Perche = u"è protetta da password"_s;
        else
            Apri(Percorso);
    }

    /// The note says that its invoice was written by now.
    [[nodiscard]] Parcella Adesso(const Parcella& Letta) const
    {
        Parcella Ora = Letta;
        if (Turno)
            ApplicaMemoria(Ora, LeggiMemoria(File));
        return Ora;
    }
    /// Puts the mark of the file into the note before the file is there: whoever is killed in between has
    /// written no invoice that its note does not know.
    /// @throws Errore 3260 somebody keeps reading it
    void Segna(const Parcella& Scritta)
    {
        if (!Turno)
            return;
        try {
            Era = AnnotaFattura(File, Scritta);
            Turno->Conferma();
            Segnata = Scritta.FatturaXml.File;
        } catch (const Errore& Guasto) {
            if (Guasto.Numero == errori::DatiBloccati)
                throw;
            Perche = Guasto.Descrizione;
        }
        Turno.reset();
    }
    /// Takes the mark of a file back that was not written. @return false where it stays
    [[nodiscard]] bool Ritira(const Parcella& Letta)
    {
        if (Segnata.isEmpty())
            return true;
        try {
            Turno.emplace(File);
            if (Adesso(Letta).FatturaXml.File == Segnata)
                RimettiFattura(File, Era);
            Turno->Conferma();
            return true;
        } catch (const Errore&) {
            return false;
        }
    }
    /// What to say of a note that could not keep it; empty: it has.
    [[nodiscard]] QString NonRicorda() const
    {
        return Perche.isEmpty() ? QString() : u"La parcella non ricorda il file scritto: %1."_s.arg(Perche);
    }

private:
    void Apri(const QString& Percorso)
    {
        try {
            SeparaNomi(Percorso);
            File = OpenDatabase(Percorso);
            Turno.emplace(File);
        } catch (const Errore& Guasto) {
            if (Guasto.Numero == errori::DatiBloccati)
                throw;
            Perche = Guasto.Descrizione;
        }
    }

    Database File;
    std::optional<Transazione> Turno;
    MemoriaFile Era;  ///< what the note kept before the mark
    QString Segnata;  ///< the file that it has been marked with
    QString Perche;
};

/// The note as its invoice takes it: the client's block as the print has it. A note that was printed together
/// with another one is no invoice by itself.
Parcella NotaDaFatturare(const QString& Percorso, const NotaMultipla& Altra)
{
    Parcella Nota = LeggiNota(Percorso, Altra);
    // What is sent to the exchange system does not come back: no 0 that nobody has written goes there.
    if (Nota.Modificata || Nota.Multi.Illeggibili > 0)
        throw Errore(
            NumeroFatturaRifiutata,
            u"Non tutti gli importi della parcella si leggono: aprirla, scriverli di nuovo e salvarla"_s);
    if (!Nota.Multipla() && !Nota.txtPathParcMult.isEmpty())
        throw Errore(
            NumeroFatturaRifiutata,
            u"La parcella è associata a %1: indicarla con --multipla, o togliere l'associazione"_s.arg(
                Nota.txtPathParcMult));
    RicomponiBlocco(Nota);
    return Nota;
}

/// What is said of a note whose invoice was written. One that was marked and never written, because the
/// program was killed in between, can be written again where its user decides it.
/// @param Cartelle where the file is looked for
QString FraseGiaScritta(const Parcella& Scritta, const QStringList& Cartelle)
{
    const QString Nome = Scritta.FatturaXml.File;
    QString Frase = FraseGiaScritta(Scritta);
    if (!Frase.endsWith(Nome))  // the file of an invoice before the last one
        return Frase;
    if (std::ranges::any_of(Cartelle, [&](const QString& Cartella) { return EsisteFile(Cartella + Nome); }))
        return Frase;
    return Frase + u", che qui non si trova: se la scrittura è stata interrotta, la si ripete dalla finestra "
                   u"della parcella"_s;
}

/// A paid one that was discarded can be sent again in its own place alone, which its user decides.
QStringList AlPostoDellaScartata(const Parcella& Nota)
{
    const auto Prima = ForseScartato(Nota);
    if (!Prima)
        return {};
    Parcella Sua = Nota;
    PrendiIlPosto(Sua);
    if (!ComponiDellaNota(Sua, ProgressivoFile(ProssimaTrasmissione()), Oggi()).Completa())
        return {};
    return {u"se la fattura %1 del %2 è stata scartata, questa si salva al suo posto dalla finestra della "
            u"parcella"_s.arg(Prima->Numero, Prima->Data)};
}

/// Sentences one after the other, on one line.
QString InRiga(QStringList Testi)
{
    for (QString& Testo : Testi)
        if (Testo.endsWith(u'.'))
            Testo.chop(1);
    return Testi.join(u"; "_s);
}

}  // namespace

Risposta ComandoFattura(const QStringList& Valori, const NotaMultipla& Altra)
{
    const Parcella Nota = NotaDaFatturare(Valori[0], Altra);
    const QString Uscita = PercorsoNativo(Valori[1]);
    // Whatever can be known before is, so that no number is taken in vain.
    const Composizione Prova = ComponiDellaNota(Nota, ProgressivoFile(ProssimaTrasmissione()), Oggi());
    if (!Prova.Completa())
        throw Errore(NumeroFatturaRifiutata, InRiga(Frasi(Prova.Mancanze) + AlPostoDellaScartata(Nota)));
    if (EsisteFile(Uscita))
        throw Errore(errori::FilePresente, u"Il file %1 esiste già"_s.arg(NomeFile(Uscita)));
    NotaInTurno Turno(PercorsoNativo(Valori[0]), Nota);
    Parcella Scritta = Turno.Adesso(Nota);
    if (FatturaGiaScritta(Scritta))
        throw Errore(
            NumeroFatturaRifiutata,
            FraseGiaScritta(Scritta, {CartellaFile(Uscita), CartellaFile(PercorsoNativo(Valori[0]))}));
    // Another program may have taken the number that was tried: nothing but the number differs then.
    FatturaElettronica Fattura = Prova.Fattura;
    Fattura.Progressivo = ProgressivoFile(PrendiTrasmissione());
    const QString Nome = NomeFileFattura(Fattura);
    SegnaFatturaScritta(Scritta, Nome, Fattura.Progressivo);
    Turno.Segna(Scritta);
    try {
        SalvaFattura(Uscita, Fattura, Oggi());
    } catch (const NonConfermato&) {
        throw;  // it is there: the note keeps its mark
    } catch (const Errore& Guasto) {
        if (Turno.Ritira(Nota))
            throw;
        throw Errore(Guasto.Numero, Guasto.Descrizione + u"; la parcella la dà per scritta"_s);
    }
    QStringList Avvisi = Frasi(Prova.Avvisi);
    if (const QString Frase = Turno.NonRicorda(); !Frase.isEmpty())
        Avvisi += Frase;
    if (NomeFile(Uscita) != Nome)
        Avvisi += u"Per trasmetterlo il file va chiamato %1."_s.arg(Nome);
    for (const QString& Avviso : Avvisi)
        MsgBox(Avviso, vbInformation);
    return {Uscita,
            {{u"file"_s, Uscita},
             {u"nome"_s, Nome},
             {u"totale"_s, Fattura.Totale},
             {u"daPagare"_s, Fattura.Pagamento ? Fattura.Pagamento->Importo : 0.0},
             {u"avvisi"_s, QJsonArray::fromStringList(Avvisi)}},
            false};
}

Risposta ComandoControllaFattura(const QStringList& Valori)
{
    const QString File = PercorsoNativo(Valori[0]);
    const QList<EsitoControllo> Esiti = ControllaFattura(ByteFattura(File), NomeFile(File), Oggi());
    QStringList Righe;
    QJsonArray Descritti;
    for (const EsitoControllo& Esito : Esiti) {
        Righe += TestoEsito(Esito);
        Descritti.append(Descritto(Esito));
    }
    Righe += Conto(Esiti);
    return {Righe.join(u'\n'), {{u"esiti"_s, Descritti}, {u"conto"_s, Conto(Esiti)}}, !Accettabile(Esiti)};
}
