#include "cli/comandi.h"

#include "cli/letture.h"
#include "cli/righecomandi.h"
#include "core/dannoricordato.h"
#include "core/modAvvio.h"
#include "core/modErrori.h"
#include "core/rapportiunici.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/impostazioni.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "print/modLettere.h"
#include "print/modRiepilogo.h"
#include "tariffs/decreto.h"
#include "tariffs/modEvaluate.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

Risposta SoloTesto(const QString& Testo)
{
    return {Testo, {{u"risultato"_s, Testo}}, false};
}

// ---- values -------------------------------------------------------------------------------------

/// A percentage; an empty one is a switch that is off.
Aliquota LeggiAliquota(const QString& Nome, const QString& Valore)
{
    Aliquota Letta;
    Letta.Testo = Valore.trimmed();
    Letta.Attiva = !Letta.Testo.isEmpty();
    Letta.Perc = NumeroOZero(Nome, Valore);
    Letta.Vale = Letta.Attiva && Letta.Perc > 0;
    return Letta;
}

// ---- commands without a file --------------------------------------------------------------------

Risposta ComandoLettere(const QStringList& Valori)
{
    constexpr double MassimoInLettere = 1e12;  // the words know thousands of millions, and no more
    const double Importo = Numero(u"importo"_s, Valori[0]);
    if (std::abs(Importo) >= MassimoInLettere)
        MsgBox(u"Avvertenza: in lettere vanno solo le prime 12 cifre dell'importo."_s, vbExclamation);
    return SoloTesto(NumeroInLettere(Importo));
}

Risposta ComandoEspressione(const QStringList& Valori)
{
    int Codice = 0;
    const double Valore = ValutaEspressione(Valori[0], NumeroOZero(u"x"_s, Valori.value(1)), Codice);
    if (Codice == 0)
        return SoloTesto(CStr(Valore));
    Risposta Fallita = SoloTesto(u"errore %1: %2"_s.arg(Codice).arg(MessaggioErrore(Codice)));
    Fallita.Record[u"errore"_s] = Codice;
    Fallita.Fallita = true;
    return Fallita;
}

bool ModelloDiData(const QString& Modello)
{
    return Modello.contains(u"dd") || Modello.contains(u"mm") || Modello.contains(u"yy");
}

Risposta ComandoFormato(const QStringList& Valori)
{
    if (ModelloDiData(Valori[0]))
        return SoloTesto(Format(CDate(Valori[1]), Valori[0]));
    return SoloTesto(Format(Numero(u"valore"_s, Valori[1]), Valori[0]));
}

Risposta ComandoTasse(const QStringList& Valori)
{
    DatiCatena Dati;
    Dati.Onorari = NumeroOZero(u"onorari"_s, Valori[0]);
    Dati.SpeseImp = NumeroOZero(u"spese imponibili"_s, Valori[1]);
    Dati.SpeseEsenti = NumeroOZero(u"spese esenti"_s, Valori[2]);
    Dati.Acconti.AccontiCorrispettivi = NumeroOZero(u"acconti corrispettivi"_s, Valori[3]);
    Dati.Acconti.AccontiSpeseImp = NumeroOZero(u"acconti spese imponibili"_s, Valori[4]);
    Dati.Acconti.AccontiSpeseEsenti = NumeroOZero(u"acconti spese esenti"_s, Valori[5]);
    Dati.SpeseGen = LeggiAliquota(u"spese generali %"_s, Valori[6]);
    Dati.CP = LeggiAliquota(u"CP %"_s, Valori[7]);
    Dati.IVA = LeggiAliquota(u"IVA %"_s, Valori[8]);
    Dati.RA = LeggiAliquota(u"RA %"_s, Valori[9]);
    Dati.Tipo = LeggiTipo(Valori.value(10, u"0"_s));
    Dati.RegimeAgevolato = LeggiBit(u"regime agevolato"_s, Valori.value(11));
    if (TipoDi(Dati.Tipo).Acconti == UsoAcconti::Mai)
        Dati.Acconti = {};
    if (Dati.RegimeAgevolato)
        Dati.IVA.Vale = Dati.RA.Vale = false;
    return RispostaRiepilogo(CatenaFiscale(Dati));
}

// ---- one call -----------------------------------------------------------------------------------

const ComandoCli* CercaComando(const QString& Nome)
{
    const std::span<const ComandoCli> Tabella = ComandiCli();
    const auto Trovato = std::ranges::find(Tabella, Nome, &ComandoCli::Nome);
    return Trovato == Tabella.end() ? nullptr : &*Trovato;
}

QString Aiuto()
{
    QString Testo = u"Uso: calcanova-cli"_s;
    for (const RigaOpzione& Una : Opzioni())
        if (Una.Codice != Opzione::Aiuto)
            Testo += u" [%1]"_s.arg(u"%1 %2"_s.arg(Una.Parola, ValoreNellAiuto(Una)).trimmed());
    Testo += u" COMANDO VALORI...\n\n"_s;
    for (const ComandoCli& Comando : ComandiCli())
        Testo += u"  "_s + Comando.Nome.toString().leftJustified(12) + Comando.Valori.toString() + u'\n';
    return Testo +
           u"\nCon --batch i casi arrivano dallo standard input, uno per riga, i valori separati da \";\".\n"_s;
}

/// Where the names of a file go into the archive, or a file or a code is looked at, nothing further is named.
void ControllaNumero(const ComandoCli& Comando, const QStringList& Valori, const RigaComando& Chiamata)
{
    const bool UnFile =
        Chiamata.Ha(Opzione::In) || Chiamata.Ha(Opzione::Controlla) || Chiamata.Ha(Opzione::Leggi);
    if (Valori.size() < (UnFile ? 1 : Comando.Minimo) || Valori.size() > (UnFile ? 1 : Comando.Massimo))
        throw ErroreUso{u"Uso: calcanova-cli %1 %2"_s.arg(Comando.Nome, Comando.Valori)};
}

/// The session of a script: the stored settings, and the two folders where the call names them.
void PreparaSessione(const RigaComando& Riga)
{
    ImpostaVariabili();
    const auto Salvato = [](const QString& Chiave) {
        return GetSetting(NomeApplicazione.toString(), SezioneParametri.toString(), Chiave);
    };
    if (Riga.Ha(Opzione::Programma)) {
        sessione::PercorsoProg = Barra(Riga.Di(Opzione::Programma));
        if (Salvato(u"ArchivioCliCon"_s).isEmpty())
            sessione::ArchivioCliCon = sessione::PercorsoProg + u"DatiStudio.mdb"_s;
    }
    if (Riga.Ha(Opzione::Archivio))
        sessione::ArchivioCliCon = Riga.Di(Opzione::Archivio);
    if (Riga.Ha(Opzione::Utente))
        sessione::UserFolder = Barra(Riga.Di(Opzione::Utente));
}

/// The command speaks for the office: its letterhead and rates, its archive, the numbers of its invoices.
bool ParlaDelloStudio(const ComandoCli& Comando, const RigaComando& Chiamata)
{
    if (Comando.Nome == u"importa")
        return Chiamata.Ha(Opzione::In);
    return Comando.Nome == u"crea" ||
           (Comando.Opzioni.contains(Opzione::Archivio) && !Chiamata.Ha(Opzione::Controlla));
}

/// Without the office's settings nothing is said in its name; the calculators tell that a choice of theirs
/// may be missing.
/// @throws Errore 75
void ControllaImpostazioni(const ComandoCli& Comando, const RigaComando& Chiamata)
{
    const QString Frase = FraseDelDannoRicordato();
    if (Frase.isEmpty())
        return;
    if (ParlaDelloStudio(Comando, Chiamata))
        throw Errore(errori::Accesso, Frase);
    MsgBox(u"Avvertenza: "_s + Frase, vbExclamation);
}

QByteArray Riga(const Risposta& Esito, const RigaComando& Chiamata)
{
    if (Chiamata.Ha(Opzione::Json))
        return QJsonDocument(Esito.Record).toJson(QJsonDocument::Compact) + '\n';
    const QString Righe =
        Chiamata.Ha(Opzione::Righe) && !Esito.Righe.isEmpty() ? u'|' + Esito.Righe : QString();
    return (Esito.Testo + Righe).toUtf8() + '\n';
}

QString TestoErrore(const Errore& Guasto)
{
    return u"%1 (%2)"_s.arg(Guasto.Descrizione, QString::number(Guasto.Numero));
}

/// Speaks to a script: what the program tells goes to the error stream, questions are answered Yes, since
/// whoever wrote the command line or the description has already decided.
class VoceCli
{
public:
    explicit VoceCli(std::function<void(const QByteArray&)> Guasti) : Scrivi(std::move(Guasti))
    {
        Messaggi Nuovi;
        Nuovi.Box = [this](const QString& Testo, int Bandiere, const QString&) {
            return Box(Testo, Bandiere);
        };
        Precedenti = InstallaMessaggi(std::move(Nuovi));
    }
    ~VoceCli() { InstallaMessaggi(std::move(Precedenti)); }
    VoceCli(const VoceCli&) = delete;
    VoceCli& operator=(const VoceCli&) = delete;

    /// True when something critical was told since the last call.
    bool Guasto() { return std::exchange(Critico, false); }

private:
    int Box(const QString& Testo, int Bandiere)
    {
        if (PulsantiDi(Bandiere) == vbYesNo)
            return vbYes;
        Scrivi(Testo.toUtf8() + '\n');
        Critico = Critico || IconaDi(Bandiere) == vbCritical;
        return vbOK;
    }

    std::function<void(const QByteArray&)> Scrivi;
    Messaggi Precedenti;
    bool Critico = false;
};

// ---- rows of the table ------------------------------------------------------------------------------

Risposta Fattura(const QStringList& Valori, const RigaComando& Chiamata)
{
    return Chiamata.Ha(Opzione::Controlla) ? ComandoControllaFattura(Valori)
                                           : ComandoFattura(Valori, MultiplaDi(Chiamata));
}

Risposta Scadenzario(const QStringList& Valori, const RigaComando& Chiamata)
{
    return ComandoScadenzario(Valori, Chiamata.Di(Opzione::Stato), Chiamata.Di(Opzione::Csv));
}

Risposta Rubrica(const QStringList& Valori, const RigaComando& Chiamata)
{
    if (Chiamata.Ha(Opzione::Csv))
        return ComandoEsporta(Valori, Chiamata.Di(Opzione::Csv), false);
    if (Chiamata.Ha(Opzione::Vcard))
        return ComandoEsporta(Valori, Chiamata.Di(Opzione::Vcard), true);
    return ComandoRubrica(Valori);
}

Risposta Importa(const QStringList& Valori, const RigaComando& Chiamata)
{
    return Chiamata.Ha(Opzione::In)
               ? ComandoImportaIn(Valori, Chiamata.Di(Opzione::In), Chiamata.Ha(Opzione::Prova))
               : ComandoImporta(Valori);
}

Risposta Voci(const QStringList& Valori, const RigaComando& Chiamata)
{
    const Decreto* Legge = DecretoDi(Chiamata.Di(Opzione::Tariffa));
    return ComandoVoci(Valori, Legge ? *Legge : *Decreti.front());
}

/// A copy has nothing to do with the office's archive.
void ArchivioSoloConIn(const RigaComando& Chiamata)
{
    if (Chiamata.Ha(Opzione::Archivio) && !Chiamata.Ha(Opzione::In))
        throw ErroreUso{
            u"Con il comando %1 l'opzione --archivio vale solo con --in."_s.arg(Chiamata.Comando)};
}

/// What of a call would mean nothing to its command. @throws ErroreUso
void ControllaOpzioni(const ComandoCli& Comando, const RigaComando& Chiamata)
{
    for (const RigaOpzione& Una : Opzioni())
        if (Chiamata.Ha(Una.Codice) && !Una.Ovunque && !Comando.Opzioni.contains(Una.Codice))
            throw ErroreUso{u"L'opzione %1 non vale per il comando %2"_s.arg(Una.Parola, Comando.Nome)};
    if (Comando.Rifiuta)
        Comando.Rifiuta(Chiamata);
}

int EseguiUno(const ComandoCli& Comando, const RigaComando& Chiamata, VoceCli& Voce,
              const std::function<void(const QByteArray&)>& Uscita)
{
    ControllaNumero(Comando, Chiamata.Valori, Chiamata);
    const RapportiUnici UnaVolta;
    try {
        const Risposta Esito = Comando.Esegui(Chiamata.Valori, Chiamata);
        Uscita(Riga(Esito, Chiamata));
        return Esito.Fallita || Voce.Guasto() ? 1 : 0;
    } catch (...) {
        RiferisciCorrente(0);
        return 1;
    }
}

/// One answer per line, errors included; a wrong case never stops the others.
Risposta RispostaCaso(const ComandoCli& Comando, const RigaComando& Chiamata, const QString& Caso)
{
    try {
        const QStringList Valori = DividiCaso(Caso, Comando.DivideAllUltimo);
        ControllaNumero(Comando, Valori, Chiamata);
        return Comando.Esegui(Valori, Chiamata);
    } catch (const ErroreUso& Uso) {
        return {u"errore: "_s + Uso.Testo, {{u"errore"_s, Uso.Testo}}, true};
    } catch (...) {
        const QString Testo = TestoErrore(ErroreCorrente());
        return {u"errore: "_s + Testo, {{u"errore"_s, Testo}}, true};
    }
}

int EseguiTutti(const ComandoCli& Comando, const RigaComando& Chiamata,
                const std::function<QByteArray()>& Ingresso,
                const std::function<void(const QByteArray&)>& Uscita)
{
    if (!Chiamata.Valori.isEmpty())
        throw ErroreUso{u"Con --batch i valori arrivano dallo standard input."_s};
    for (QByteArray Letta = Ingresso(); !Letta.isNull(); Letta = Ingresso()) {
        while (Letta.endsWith('\n') || Letta.endsWith('\r'))
            Letta.chop(1);
        // An empty line is a case too: the answers stand beside their cases.
        Uscita(Riga(RispostaCaso(Comando, Chiamata, QString::fromUtf8(Letta)), Chiamata));
    }
    return 0;
}

/// Those that are no calculators.
std::span<const ComandoCli> ComandiDiBase()
{
    using enum Opzione;
    static const std::array Tabella{
        ComandoCli{u"lettere", u"IMPORTO", 1, 1, DaSolo<ComandoLettere>},
        ComandoCli{.Nome = u"espressione",
                   .Valori = u"TESTO [X]",
                   .Minimo = 1,
                   .Massimo = 2,
                   .Esegui = DaSolo<ComandoEspressione>,
                   .DivideAllUltimo = true},
        ComandoCli{.Nome = u"formato",
                   .Valori = u"MODELLO VALORE",
                   .Minimo = 2,
                   .Massimo = 2,
                   .Esegui = DaSolo<ComandoFormato>,
                   .DivideAllUltimo = true},
        ComandoCli{
            u"tasse",
            u"ONORARI SPESE_IMP SPESE_ESENTI ACC_CORR ACC_SPESE_IMP ACC_SPESE_ESENTI SPESE_GEN% CP% IVA% RA% "
            u"[TIPO [REGIME]]",
            10, 12, DaSolo<ComandoTasse>},
        ComandoCli{u"riepilogo",
                   u"NOTA.mdb [TIPO]",
                   1,
                   2,
                   ConMultipla<ComandoRiepilogo>,
                   {Multipla, Prima, Archivio}},
        ComandoCli{u"crea", u"DESCRIZIONE.json NOTA.mdb", 2, 2, DaSolo<ComandoCrea>},
        ComandoCli{u"nota", u"NOTA.mdb", 1, 1, DaSolo<ComandoNota>, {Archivio}},
        ComandoCli{u"stampa",
                   u"NOTA.mdb TIPO USCITA.txt|.pdf|.doc|.htm",
                   3,
                   3,
                   ConMultipla<ComandoStampa>,
                   {Multipla, Prima, Archivio}},
        ComandoCli{u"fattura",
                   u"NOTA.mdb USCITA.xml | --controlla FILE.xml",
                   2,
                   2,
                   Fattura,
                   {Multipla, Prima, Archivio, Controlla}},
        ComandoCli{u"trova", u"CARTELLA [TESTO [SOTTOCARTELLE]]", 1, 3, DaSolo<ComandoTrova>, {Archivio}},
        ComandoCli{u"scadenzario", u"CARTELLA [SOTTOCARTELLE]", 1, 2, Scadenzario, {Archivio, Stato, Csv}},
        ComandoCli{u"rubrica", u"TABELLA [TESTO]", 1, 2, Rubrica, {Archivio, Csv, Vcard}},
        ComandoCli{.Nome = u"importa",
                   .Valori = u"FILE USCITA | FILE --in TABELLA",
                   .Minimo = 2,
                   .Massimo = 2,
                   .Esegui = Importa,
                   .Opzioni = {Archivio, In, Prova},
                   .Rifiuta = ArchivioSoloConIn},
        ComandoCli{u"voci", u"CATEGORIA AUTORITA VALORE", 3, 3, Voci, {Tariffa}},
    };
    return Tabella;
}

}  // namespace

std::span<const ComandoCli> ComandiCli()
{
    static const QList<ComandoCli> Tutti = [] {
        QList<ComandoCli> Uniti;
        for (const std::span<const ComandoCli> Parte : {ComandiDiBase(), ComandiTermini(), ComandiCalcoli()})
            for (const ComandoCli& Uno : Parte)
                Uniti.append(Uno);
        return Uniti;
    }();
    return Tutti;
}

Risposta RispostaRiepilogo(const Catena& Conti)
{
    Risposta Tutto;
    Tutto.Testo = RiepilogoInRiga(Conti);
    QJsonArray Righe;
    for (const RigaRiepilogo& Riga : RigheRiepilogo(Conti))
        if (Riga.Tipo == RigaRiepilogo::Voce)
            Righe.append(QJsonObject{{u"etichetta"_s, Riga.Etichetta}, {u"importo"_s, Riga.Importo}});
    Tutto.Record = {
        {u"righe"_s, Righe},
        {u"imponibile"_s, Arrotonda2(Conti.Imponibile)},
        {u"totale"_s, Conti.Totale},
        {u"netto"_s, Conti.Netto},
        {u"lettere"_s, NumeroInLettere(Conti.Netto)},
    };
    return Tutto;
}

int LeggiTipo(const QString& Valore)
{
    const double Tipo = Numero(u"tipo"_s, Valore);
    if (Tipo != std::floor(Tipo) || std::abs(Tipo) > double(TipiDocumento.size()) || !ETipoStampa(int(Tipo)))
        throw Errore(errori::Argomento, u"tipo: «%1»: "_s.arg(Valore.left(40)) + FraseTipiStampa());
    return int(Tipo);
}

int EseguiCli(const QStringList& Argomenti, const std::function<QByteArray()>& Ingresso,
              const std::function<void(const QByteArray&)>& Uscita,
              const std::function<void(const QByteArray&)>& Guasti)
{
    try {
        const RigaComando Chiamata = LeggiRiga(Argomenti);
        if (Chiamata.Ha(Opzione::Aiuto)) {
            Uscita(Aiuto().toUtf8());
            return 0;
        }
        const ComandoCli* Comando = CercaComando(Chiamata.Comando);
        if (!Comando)
            throw ErroreUso{Chiamata.Comando.isEmpty() ? Aiuto()
                                                       : u"Comando sconosciuto: %1"_s.arg(Chiamata.Comando)};
        ControllaOpzioni(*Comando, Chiamata);
        VoceCli Voce(Guasti);
        ControllaImpostazioni(*Comando, Chiamata);
        PreparaSessione(Chiamata);
        (void)Voce.Guasto();  // a setting that is off is told, but is no failure of the command
        return Chiamata.Ha(Opzione::Batch) ? EseguiTutti(*Comando, Chiamata, Ingresso, Uscita)
                                           : EseguiUno(*Comando, Chiamata, Voce, Uscita);
    } catch (const ErroreUso& Uso) {
        Guasti(Uso.Testo.toUtf8() + '\n');
        return 2;
    } catch (const Errore& Guasto) {
        Guasti(u"Errore: %1\n"_s.arg(TestoErrore(Guasto)).toUtf8());
        return 1;
    }
}
