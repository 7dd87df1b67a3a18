// The commands of calcanova-cli that stand for the calculators without norms by date; the others are in
// comandi_norme.cpp.
#include "cli/comandi.h"
#include "cli/letture.h"
#include "cli/righecomandi.h"

#include "calculators/modCodFis.h"
#include "calculators/modComuni.h"
#include "calculators/modInteressi.h"
#include "calculators/modIstat.h"
#include "calculators/modLeggiCodFis.h"
#include "calculators/modTassi.h"
#include "calculators/norme/etadati.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"

#include <QJsonArray>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// A script is asked nothing about updates: the calculation goes on as after "No", and where it cannot, the
/// question is the reason.
class SenzaAggiornare
{
public:
    SenzaAggiornare()
    {
        Messaggi Nuovi;
        Nuovi.Box = [this](const QString& Testo, int Bandiere, const QString& Titolo) {
            if ((Bandiere & vbYesNo) == 0)
                return Precedenti.Box ? Precedenti.Box(Testo, Bandiere, Titolo) : vbOK;
            Domanda = Testo.section(u'\n', 0, 0).trimmed();
            return vbNo;
        };
        Precedenti = InstallaMessaggi(std::move(Nuovi));
    }
    ~SenzaAggiornare() { InstallaMessaggi(std::move(Precedenti)); }
    SenzaAggiornare(const SenzaAggiornare&) = delete;
    SenzaAggiornare& operator=(const SenzaAggiornare&) = delete;

    [[noreturn]] void Fallisci() const
    {
        throw Errore(errori::Argomento,
                     Domanda.isEmpty() ? u"L'archivio dei tassi ha un tasso a zero"_s : Domanda);
    }

private:
    Messaggi Precedenti;
    QString Domanda;
};

/// The user's rate archive, or the one that the program is delivered with.
QString ArchivioDiChiunque()
{
    const QString Utente = ArchivioTassi();
    const QString Programma = TrovaFile(Barra(sessione::PercorsoProg) + u"Tassi.dat"_s);
    return EsisteFile(Utente) || !EsisteFile(Programma) ? Utente : Programma;
}

/// "Euro" and "Lire", or their first letters and signs.
int LeggiValuta(const QString& Valore)
{
    static const QStringList Parole{u"euro"_s, u"lire"_s, u"e"_s, u"l"_s, u"€"_s, u"£"_s};
    return LeggiParola(u"valuta"_s, Valore, Parole) % 2;
}

// ---- interest -------------------------------------------------------------------------------------

QJsonArray RigheJson(const TabellaRighe& Righe)
{
    QJsonArray Tutte;
    for (int i = 0; i < Righe.Righe(); ++i)
        Tutte.append(QJsonObject{{u"dal"_s, Giorno(Righe(i, IntDal).toDate())},
                                 {u"al"_s, Giorno(Righe(i, IntAl).toDate())},
                                 {u"tasso"_s, Righe(i, IntTasso).toDouble()},
                                 {u"giorni"_s, Righe(i, IntGiorni).toInt()},
                                 {u"interessi"_s, Righe(i, IntImporto).toDouble()}});
    return Tutte;
}

/// "dal;al;tasso;giorni;interessi" of each line, joined by "|".
QString RigheTesto(const TabellaRighe& Righe)
{
    QStringList Tutte;
    for (int i = 0; i < Righe.Righe(); ++i)
        Tutte << QStringList{Giorno(Righe(i, IntDal).toDate()), Giorno(Righe(i, IntAl).toDate()),
                             CStr(Righe(i, IntTasso)), CStr(Righe(i, IntGiorni)),
                             Format(Righe(i, IntImporto).toDouble(), ModelloImporto)}
                     .join(u';');
    return Tutte.join(u'|');
}

/// @param Insieme whether an empty last value is filled by the rule of the first day
DatiInteressi LeggiDatiInteressi(const QStringList& Valori, InsiemeNorme Insieme)
{
    DatiInteressi Dati;
    Dati.Tipo = LeggiParola(u"tipo"_s, Valori[0], {u"legali"_s, u"mora"_s});
    Dati.Capitale = Valori[1].trimmed();
    Dati.Valuta = LeggiValuta(Valori[2]);
    Dati.Aumento = Valori[3].trimmed();
    Dati.DataIni = Valori[4];
    Dati.DataFin = Valori[5];
    const bool Proposta = Dati.Tipo == InteressiMora &&
                          ProponiMora(Insieme, LeggiData(Dati.DataIni).value_or(QDate())).Dopo2012;
    Dati.Dopo2012 = LeggiBit(u"dopo il 2012"_s, Valori.value(6), Proposta);
    RifiutaMancanza(CheckInteressi(Dati));
    (void)Numero(u"capitale"_s, Dati.Capitale);
    (void)NumeroOZero(u"aumento"_s, Dati.Aumento);
    return Dati;
}

// ---- fiscal code ----------------------------------------------------------------------------------

/// The municipalities stay open from case to case of --batch.
ArchivioComuni& Comuni()
{
    static QString Percorso;
    static std::optional<ArchivioComuni> Aperto;
    if (!Aperto || Percorso != PercorsoComuni()) {
        Aperto.reset();
        Aperto.emplace(PercorsoComuni());
        Percorso = PercorsoComuni();
    }
    return *Aperto;
}

/// A code is taken as it is; a name must be in the table; nothing is nothing, as in the form.
QString LeggiComune(const QString& Valore)
{
    static const QRegularExpression Codice(u"\\A[A-Z][0-9]{3}\\z"_s);
    const QString Testo = Valore.trimmed();
    if (Testo.isEmpty() || Codice.match(Testo.toUpper()).hasMatch())
        return Testo.toUpper();
    const auto Trovato = Comuni().Trova(Testo);
    if (!Trovato)
        throw Errore(errori::Argomento, u"Comune non in elenco: «%1»"_s.arg(Testo.left(60)));
    return Trovato->Codice;
}

Risposta ComandoCodFis(const QStringList& Valori)
{
    const auto Nascita = LeggiData(Valori[2]);
    if (!Nascita)
        throw Errore(errori::Tipo, u"La data di nascita non e' valida."_s);
    const int Sesso = LeggiParola(u"sesso"_s, Valori[3], {u"m"_s, u"f"_s});
    const QString Codice =
        CalcoloCodFis(Valori[0], Valori[1], *Nascita, Sesso == 1 ? u"F"_s : u"M"_s, LeggiComune(Valori[4]));
    return {Codice, {{u"codice"_s, Codice}}, false};
}

Risposta ComandoLeggiCodFis(const QStringList& Valori)
{
    const LetturaCodFis Lettura = LeggiCodFis(Valori[0], Oggi());
    if (!Lettura.Letto())
        throw Errore(errori::Argomento,
                     Lettura.Difetto.isEmpty() ? u"Manca il codice fiscale"_s : Lettura.Difetto);
    const QList<Comune> Righe = Comuni().DelCodice(Lettura.CodiceComune);
    const QString Luogo =
        Righe.isEmpty() ? u"il codice %1 non è in elenco"_s.arg(Lettura.CodiceComune) : FraseComuni(Righe);
    QJsonArray Nascite;
    for (const QDate& Nascita : Lettura.Nascite)
        Nascite.append(Giorno(Nascita));
    QJsonArray Luoghi;
    for (const Comune& Uno : Righe)
        Luoghi.append(QJsonObject{{u"nome"_s, Uno.Nome}, {u"provincia"_s, Uno.Provincia}});
    return {
        (QStringList{FraseNascita(Lettura), FraseSesso(Lettura), Luogo} + NoteLettura(Lettura)).join(u"; "_s),
        {{u"nascita"_s, Nascite},
         {u"sesso"_s, Lettura.Donna ? u"F"_s : u"M"_s},
         {u"codiceComune"_s, Lettura.CodiceComune},
         {u"comuni"_s, Luoghi},
         {u"torna"_s, Lettura.Torna},
         {u"controllo"_s, QString(Lettura.Controllo)},
         {u"omocodo"_s, Lettura.Omocodo},
         {u"base"_s, Lettura.Base}},
        !Lettura.Torna};
}

Risposta CodFis(const QStringList& Valori, const RigaComando& Chiamata)
{
    return Chiamata.Ha(Opzione::Leggi) ? ComandoLeggiCodFis(Valori) : ComandoCodFis(Valori);
}

Risposta ComandoInteressi(const QStringList& Valori, const NormeChieste& Scelta)
{
    const DatiInteressi Dati = LeggiDatiInteressi(Valori, Scelta.Insieme);
    QString UltimoAumento = Dati.Aumento;  // whoever wrote the increase needs no warning of it
    const SenzaAggiornare Script;
    const EsitoInteressi Esito = CalcolaInteressi(ArchivioDiChiunque(), Dati, UltimoAumento);
    if (Esito.Fine != FineInteressi::Completa)
        Script.Fallisci();
    Risposta Tutto{Format(Esito.TotaleInteressi, ModelloImporto),
                   {{u"totale"_s, Round(Esito.TotaleInteressi, 2)}, {u"righe"_s, RigheJson(Esito.Righe)}},
                   false};
    Tutto.Righe = RigheTesto(Esito.Righe);
    return Tutto;
}

Risposta ComandoIstat(const QStringList& Valori)
{
    DatiIstat Dati;
    Dati.Importo = Valori[0].trimmed();
    Dati.Valuta = LeggiValuta(Valori[1]);
    Dati.DataIni = Valori[2];
    Dati.DataFin = Valori[3];
    RifiutaMancanza(CheckIstat(Dati));
    (void)Numero(u"importo"_s, Dati.Importo);

    const SenzaAggiornare Script;
    bool AggiornamentoChiesto = false;
    RisultatiIstat Etichette;
    if (CalcolaRivalutazione(ArchivioDiChiunque(), Dati, AggiornamentoChiesto, Etichette) !=
        FineIstat::Completa)
        Script.Fallisci();
    const QString Rivalutato = Etichette.lblImpRival.trimmed();
    const QString Rivalutazione = Etichette.lblRivalutaz.trimmed();
    return {QStringList{Etichette.lblCoeffRiv, Rivalutato, Rivalutazione, Etichette.lblVarPerc}.join(u"; "_s),
            {{u"coefficiente"_s, CDbl(Etichette.lblCoeffRiv)},
             {u"rivalutato"_s, CDbl(Rivalutato)},
             {u"rivalutazione"_s, CDbl(Rivalutazione)},
             {u"percento"_s, CDbl(Etichette.lblVarPerc)},
             {u"indiceIniziale"_s, Etichette.lblIndIni.section(u'\n', 0, 0)},
             {u"indiceFinale"_s, Etichette.lblIndFin.section(u'\n', 0, 0)},
             {u"raccordo"_s, Etichette.lblCoeffRacc}},
            false};
}

}  // namespace

std::span<const ComandoCli> ComandiCalcoli()
{
    using enum Opzione;
    static const std::array Tabella{
        ComandoCli{u"codfis", u"COGNOME NOME NASCITA SESSO COMUNE | --leggi CODICE", 5, 5, CodFis, {Leggi}},
        ComandoCli{u"contributo",
                   u"VALORE [TABELLA [DEPOSITO [GRADO [VARIANTI [RICORRENTI]]]]]",
                   1,
                   6,
                   PerNorme<ComandoContributo>,
                   {Norme, Spiega}},
        ComandoCli{u"interessi",
                   u"TIPO CAPITALE VALUTA AUMENTO DAL AL [DOPO2012]",
                   6,
                   7,
                   PerNorme<ComandoInteressi>,
                   {Righe, Norme}},
        ComandoCli{u"istat", u"IMPORTO VALUTA DAL AL", 4, 4, DaSolo<ComandoIstat>},
    };
    return Tabella;
}
