#include "feenote/file/modDescrizione.h"

#include "feenote/file/colonne.h"
#include "feenote/file/lettorejson.h"
#include "feenote/file/modPassword.h"
#include "feenote/modAcconti.h"
#include "feenote/modDatiStampa.h"
#include "feenote/modInterruttori.h"
#include "feenote/modNuovaParcella.h"
#include "feenote/modOnorari.h"
#include "feenote/modParametri.h"
#include "feenote/modQuantita.h"
#include "feenote/modSpese.h"
#include "feenote/modVariazione.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"

#include <QJsonDocument>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// Characters of a line's text; the file keeps the first 60 of a description.
constexpr int MassimoTestoRiga = MassimoBreve;

constexpr QStringView GruppoStampa = u"stampa";

// ---- parameters ---------------------------------------------------------------------------------

/// The field's value, a number or a text; anything else is refused.
QJsonValue NumeroOTesto(OggettoJson& Dati, const QString& Campo)
{
    QJsonValue Letto = Dati.Valore(Campo);
    if (!Letto.isUndefined() && !Letto.isDouble() && !Letto.isString())
        throw OggettoJson::Rifiuto(errori::Tipo, Dati.Nome(Campo), u"deve essere un numero o un testo"_s);
    return Letto;
}

QString Mostra(const QJsonValue& Valore)
{
    return Valore.isDouble() ? CStr(Valore.toDouble()) : Valore.toString().left(60);
}

/// The decree of the note: a description from before there were two names none, and means the first.
const Decreto& LeggiTariffa(OggettoJson& Dati)
{
    const QJsonValue Letta = NumeroOTesto(Dati, u"tariffa"_s);
    if (Letta.isUndefined())
        return *Decreti.front();
    if (const Decreto* Trovato = DecretoDi(Mostra(Letta)))
        return *Trovato;
    throw OggettoJson::Rifiuto(errori::Argomento, Dati.Nome(u"tariffa"_s),
                               u"«%1» non è una tariffa (140, 55)"_s.arg(Mostra(Letta)));
}

void LeggiCategoria(Parcella& Nota, OggettoJson& Dati)
{
    const QString Testo = Dati.Testo(u"categoria"_s, 60);
    const QStringList Voci = VociCategoria();
    for (int i = 0; i < Voci.size(); ++i) {
        if (Testo.compare(Voci[i], Qt::CaseInsensitive) == 0 ||
            Testo.toUpper() == Voci[i].left(3).toUpper()) {
            CambiaCategoria(Nota, i);
            return;
        }
    }
    throw OggettoJson::Rifiuto(errori::Argomento, Dati.Nome(u"categoria"_s),
                               u"«%1» non è una categoria (CIV, PEN, STR)"_s.arg(Testo));
}

/// Position of a list entry given by its number or its text.
template <class Elenco, class NumeroDiVoce, class TestoDiVoce>
int CercaVoce(const QJsonValue& Cercato, const Elenco& Voci, NumeroDiVoce Numero, TestoDiVoce Testo)
{
    for (int i = 0; i < Voci.size(); ++i) {
        if (Cercato.isDouble() ? Cercato.toDouble() == Numero(Voci[i])
                               : Testo(Voci[i]).compare(Cercato.toString(), Qt::CaseInsensitive) == 0)
            return i;
    }
    return NessunaVoce;
}

void LeggiAutorita(Parcella& Nota, OggettoJson& Dati)
{
    const QJsonValue Cercata = NumeroOTesto(Dati, u"autorita"_s);
    if (Cercata.isUndefined())
        return;
    const int Indice = CercaVoce(
        Cercata, Nota.ListaAutorita, [](const Autorita& Voce) { return double(Voce.IDAut); },
        [](const Autorita& Voce) { return Voce.DesAut; });
    if (Indice == NessunaVoce)
        throw OggettoJson::Rifiuto(errori::Argomento, Dati.Nome(u"autorita"_s),
                                   u"«%1» non è un'autorità della categoria"_s.arg(Mostra(Cercata)));
    CambiaAutorita(Nota, Indice);
}

void LeggiScaglione(Parcella& Nota, OggettoJson& Dati)
{
    const QJsonValue Cercato = NumeroOTesto(Dati, u"scaglione"_s);
    if (Cercato.isUndefined())
        return;
    const int Indice = CercaVoce(
        Cercato, Nota.ListaScaglioni, [](const ScaglioneValore& Voce) { return double(Voce.NumSca); },
        [](const ScaglioneValore& Voce) { return Voce.DesVal; });
    if (Indice == NessunaVoce || Nota.CodCateg != Civile)
        throw OggettoJson::Rifiuto(errori::Argomento, Dati.Nome(u"scaglione"_s),
                                   u"«%1» non è uno scaglione della categoria"_s.arg(Mostra(Cercato)));
    CambiaScaglione(Nota, Indice);
}

void LeggiValore(Parcella& Nota, OggettoJson& Dati)
{
    const std::optional<double> Valore = Dati.Positivo(u"valore"_s);
    if (!Valore || *Valore == 0)
        return;
    if (!Nota.txtImporto.Abilitata)
        throw OggettoJson::Rifiuto(errori::Argomento, Dati.Nome(u"valore"_s),
                                   u"in materia penale il valore non si indica"_s);
    const int ScaglioneChiesto = Nota.cmbValore;
    Nota.txtImporto.Testo = CStr(*Valore);
    LasciaImporto(Nota);
    if (Nota.cmbValore == NessunaVoce ||
        (ScaglioneChiesto != NessunaVoce && Nota.cmbValore != ScaglioneChiesto))
        throw OggettoJson::Rifiuto(errori::Argomento, Dati.Nome(u"valore"_s),
                                   u"Il valore della causa specificato non è compreso nello scaglione!"_s);
}

/// Which options a note takes, for a refusal.
QString FraseOpzioni(const QList<OpzioneAumRid>& Offerte)
{
    if (Offerte == OpzioniAumRid())
        return u"le opzioni vanno da 0 a 10"_s;
    QStringList Numeri;
    for (const OpzioneAumRid& Opzione : Offerte)
        Numeri += QString::number(Opzione.Numero);
    return u"le opzioni sono "_s + Numeri.join(u", "_s);
}

void LeggiVariazione(Parcella& Nota, OggettoJson& Dati)
{
    std::optional<OggettoJson> Variazione = Dati.Oggetto(u"variazione"_s);
    if (!Variazione)
        return;
    const int Opzione = Variazione->Intero(u"opzione"_s).value_or(AumRidLibera);
    const QList<OpzioneAumRid> Offerte = OpzioniAumRid(Nota);
    if (std::ranges::find(Offerte, Opzione, &OpzioneAumRid::Numero) == Offerte.end())
        throw OggettoJson::Rifiuto(errori::Argomento, Variazione->Nome(u"opzione"_s), FraseOpzioni(Offerte));
    ScegliAumRid(Nota, Opzione);

    const std::optional<int> Percento = Variazione->Intero(u"percento"_s);
    if (Percento && *Percento != 0) {
        const QString Campo = Variazione->Nome(u"percento"_s);
        if (std::abs(*Percento) > 999)
            throw OggettoJson::Rifiuto(errori::Eccedenza, Campo, u"la percentuale ha al più tre cifre"_s);
        if (Opzione == AumRidLibera)
            CambiaSegnoAumRid(Nota, *Percento < 0 ? 1 : 0);
        else if ((*Percento < 0) != (Nota.cmbAumRid == 1))
            throw OggettoJson::Rifiuto(errori::Argomento, Campo, u"il segno non è quello dell'opzione"_s);
        CambiaTestoAumRid(Nota, QString::number(std::abs(*Percento)));
        if (!CheckVarPerc(Nota, false))
            throw OggettoJson::Rifiuto(errori::Argomento, Campo,
                                       u"la variazione è fuori dai limiti dell'opzione"_s);
        LasciaAumRid(Nota);
    }
    if (const std::optional<int> Parti = Variazione->Intero(u"partiAssistite"_s)) {
        const QString Campo = Variazione->Nome(u"partiAssistite"_s);
        if (*Parti < 1 || *Parti > MassimoParti)
            throw OggettoJson::Rifiuto(errori::Argomento, Campo,
                                       u"il numero va da 1 a %1"_s.arg(MassimoParti));
        if (*Parti > 1 && !PartiContano(Nota))
            throw OggettoJson::Rifiuto(errori::Argomento, Campo,
                                       u"per questa tariffa o categoria le parti non contano"_s);
        CaricaParti(Nota, *Parti);
    }
    Variazione->Finisci();
}

/// The fields of a description behind the boxes that a check may refuse.
constexpr std::array NomiCampi{
    std::pair(CampoNota::Categoria, u"categoria"),
    std::pair(CampoNota::Autorita, u"autorita"),
    std::pair(CampoNota::Valore, u"valore"),
    std::pair(CampoNota::Variazione, u"variazione"),
};

QString NomeDi(CampoNota Campo)
{
    const auto Trovato = std::ranges::find(NomiCampi, Campo, &std::pair<CampoNota, const char16_t*>::first);
    return Trovato == NomiCampi.end() ? QString() : QString::fromUtf16(Trovato->second);
}

/// The check that the window makes on leaving the parameters; the refusal names the field behind the box.
void VerificaParametri(const Parcella& Nota)
{
    if (const auto Trovata = PrimaMancanza(Nota))
        throw OggettoJson::Rifiuto(errori::Argomento, NomeDi(Trovata->Dove), Trovata->Messaggio);
}

// ---- lines --------------------------------------------------------------------------------------

/// Moves a catalogue to the item named by its number or its description.
void VaiAllaVoce(Recordset& Voci, OggettoJson& Riga, const QString& ColonnaDescr)
{
    const QJsonValue Cercata = NumeroOTesto(Riga, u"voce"_s);
    if (Cercata.isUndefined())
        throw OggettoJson::Rifiuto(errori::Argomento, Riga.Nome(u"voce"_s), u"manca"_s);
    for (Voci.MoveFirst(); !Voci.Eof(); Voci.MoveNext()) {
        if (Cercata.isDouble() ? NumeroDi(Voci.Value(u"NVoce"_s)) == Cercata.toDouble()
                               : Voci.Value(ColonnaDescr, QString())
                                         .toString()
                                         .compare(Cercata.toString(), Qt::CaseInsensitive) == 0)
            return;
    }
    throw OggettoJson::Rifiuto(errori::Argomento, Riga.Nome(u"voce"_s),
                               u"«%1» non è nel catalogo"_s.arg(Mostra(Cercata)));
}

/// Quantity of an honorarium as the prompt would take it: above 0, whole by the item's own rule.
std::optional<double> LeggiQuantita(OggettoJson& Riga, const QString& QtaOno)
{
    const std::optional<double> Letta = Riga.Positivo(u"quantita"_s);
    const QString Campo = Riga.Nome(u"quantita"_s);
    if (!Letta && !QtaOno.isEmpty())
        throw OggettoJson::Rifiuto(errori::Argomento, Campo, u"la voce chiede una quantità"_s);
    if (!Letta)
        return 1.0;
    const double Quantita = QuantitaContata(QtaOno, CStr(*Letta));
    if (Quantita <= 0)
        throw OggettoJson::Rifiuto(errori::Argomento, Campo, u"la quantità deve essere maggiore di zero"_s);
    return Quantita;
}

void LeggiOnorario(Parcella& Nota, Catalogo& Voci, OggettoJson& Riga)
{
    VaiAllaVoce(Voci.datOno, Riga, u"DescrOno"_s);
    const QString QtaOno = Voci.datOno.Value(u"QtaOno"_s, QString()).toString();
    const std::optional<int> Scritta =
        InserisciOnorario(Nota, Voci, std::nullopt, LeggiQuantita(Riga, QtaOno));
    if (!Scritta)
        throw OggettoJson::Rifiuto(errori::Argomento, Riga.Nome(u"voce"_s),
                                   u"la voce non può essere inserita"_s);

    TabellaRighe& Righe = Nota.xOnorari;
    Righe(*Scritta, OnoData) = Riga.Data(u"data"_s);
    if (Riga.Ha(u"descrizione"_s))
        Righe(*Scritta, OnoDescr) = Riga.Testo(u"descrizione"_s, MassimoTestoRiga);
    if (const std::optional<double> Importo = Riga.Numero(u"importo"_s)) {
        Righe(*Scritta, OnoImporto) = *Importo;
        // The free item has no tariff amounts of its own: they follow the typed one.
        if (NumeroDi(Righe(*Scritta, OnoNVoce)) == VoceLibera)
            for (const int Colonna : {OnoMedio, OnoMin, OnoMax})
                Righe(*Scritta, Colonna) = *Importo;
    }
    Riga.Finisci();
}

void LeggiSpesa(Parcella& Nota, Catalogo& Voci, OggettoJson& Riga)
{
    int Scritta = 0;
    if (Riga.Ha(u"voce"_s)) {
        VaiAllaVoce(Voci.datDir, Riga, u"DescrDir"_s);
        Scritta = InserisciSpesa(Nota, Voci);
    } else if (!Riga.Testo(u"descrizione"_s, MassimoTestoRiga).isEmpty()) {
        Scritta = AddDiritti(Nota, {}, {}, u"1"_s, {}, {});
    } else {
        throw OggettoJson::Rifiuto(errori::Argomento, Riga.Nome(u"voce"_s),
                                   u"manca la voce o la descrizione"_s);
    }
    TabellaRighe& Righe = Nota.xDiritti;
    Righe(Scritta, DirData) = Riga.Data(u"data"_s);
    if (Riga.Ha(u"descrizione"_s))
        Righe(Scritta, DirDescr) = Riga.Testo(u"descrizione"_s, MassimoTestoRiga);
    if (const std::optional<double> Quantita = Riga.Positivo(u"quantita"_s))
        Righe(Scritta, DirQta) = CStr(*Quantita);
    if (const std::optional<double> Importo = Riga.Numero(u"imponibili"_s))
        Righe(Scritta, DirImponibile) = *Importo;
    if (const std::optional<double> Importo = Riga.Numero(u"esenti"_s))
        Righe(Scritta, DirEsente) = *Importo;
    Riga.Finisci();
}

void LeggiAcconto(Parcella& Nota, OggettoJson& Riga)
{
    const int Scritta = NuovoAcconto(Nota);
    TabellaRighe& Righe = Nota.xAcconti;
    Righe(Scritta, AccDescr) = Riga.Testo(u"descrizione"_s, MassimoTestoRiga);
    if (Riga.Ha(u"valuta"_s)) {
        const QString Valuta = Riga.Testo(u"valuta"_s, 4).toUpper();
        if (Valuta != u"E" && Valuta != u"L" && Valuta != u"EURO" && Valuta != u"LIRE")
            throw OggettoJson::Rifiuto(errori::Argomento, Riga.Nome(u"valuta"_s), u"Immettere L o E"_s);
        Righe(Scritta, AccValuta) = Valuta.left(1);
    }
    Righe(Scritta, AccCorrispettivi) = Arrotonda2(Riga.Numero(u"corrispettivi"_s).value_or(0.0));
    Righe(Scritta, AccSpeseImp) = Arrotonda2(Riga.Numero(u"speseImponibili"_s).value_or(0.0));
    Righe(Scritta, AccSpeseEsenti) = Arrotonda2(Riga.Numero(u"speseEsenti"_s).value_or(0.0));
    Riga.Finisci();
}

void LeggiRighe(Parcella& Nota, OggettoJson& Dati)
{
    Catalogo Voci;
    const bool Precarica = Dati.Booleano(u"precarica"_s).value_or(true);
    if (Precarica)
        EntraOnorari(Nota, Voci);
    else
        LoadOnoDir(Nota, Voci);
    for (OggettoJson& Riga : Dati.Lista(u"onorari"_s))
        LeggiOnorario(Nota, Voci, Riga);
    for (OggettoJson& Riga : Dati.Lista(u"spese"_s))
        LeggiSpesa(Nota, Voci, Riga);
    for (OggettoJson& Riga : Dati.Lista(u"acconti"_s))
        LeggiAcconto(Nota, Riga);
}

// ---- rates, parties, print data -----------------------------------------------------------------

/// A rate: a number switches it on, null or 0 off; a missing one stays as a new note has it.
void LeggiPercentuale(Parcella& Nota, OggettoJson& Dati, const QString& Campo, Imposta Quale)
{
    const bool Spenta = Dati.Nullo(Campo);
    const std::optional<double> Perc = Dati.Positivo(Campo);
    if (!Spenta && !Perc)
        return;
    if (Perc && *Perc > MassimoPercento)
        throw OggettoJson::Rifiuto(errori::Argomento, Dati.Nome(Campo), u"la percentuale va da 0 a 100"_s);
    const double Valore = Perc.value_or(0.0);
    (void)ClicImposta(Nota, Quale, Valore > 0);
    if (Valore > 0)
        CambiaPercento(Nota, Quale, CStr(Valore));
}

void LeggiPercentuali(Parcella& Nota, OggettoJson& Dati)
{
    std::optional<OggettoJson> Perc = Dati.Oggetto(u"percentuali"_s);
    if (!Perc)
        return;
    LeggiPercentuale(Nota, *Perc, u"speseGenerali"_s, Imposta::SpeseGen);
    LeggiPercentuale(Nota, *Perc, u"cassa"_s, Imposta::CP);
    LeggiPercentuale(Nota, *Perc, u"iva"_s, Imposta::IVA);
    LeggiPercentuale(Nota, *Perc, u"ritenuta"_s, Imposta::RA);
    Perc->Finisci();
}

/// The fields of one group that are taken as they stand, whatever the columns that hold them.
void LeggiCampi(Parcella& Nota, OggettoJson& Dati, QStringView Gruppo)
{
    for (const ColonnaParam& Colonna : ColonneParam()) {
        if (Colonna.DaJson && GruppoJson(Colonna.Json) == Gruppo)
            Colonna.DaJson(Nota, Dati, CampoJson(Colonna.Json));
    }
}

void LeggiParti(Parcella& Nota, OggettoJson& Dati)
{
    LeggiCampi(Nota, Dati, {});
    Nota.txtDatiStaCli.Testo = Nota.txtCliente.Testo;
    Nota.txtDatiStaControp.Testo = Nota.txtControp.Testo;
    Nota.txtDatiStaOgg.Testo = Nota.txtOggetto.Testo;
}

void LeggiStampa(Parcella& Nota, OggettoJson& Dati)
{
    std::optional<OggettoJson> Stampa = Dati.Oggetto(GruppoStampa.toString());
    if (!Stampa)
        return;
    LeggiCampi(Nota, *Stampa, GruppoStampa);
    const std::optional<bool> EsponiAcconti = Stampa->Booleano(u"esponiAcconti"_s);
    CambiaAcconti(Nota, EsponiAcconti.value_or(false));

    if (const std::optional<int> Tipo = Stampa->Intero(u"tipo"_s)) {
        if (!ETipoStampa(*Tipo))
            throw OggettoJson::Rifiuto(errori::Argomento, Stampa->Nome(u"tipo"_s), FraseTipiStampa());
        ScegliTipoStampa(Nota, *Tipo);
        // A short invoice lists the payments by itself, unless it is told not to.
        if (*Tipo == StampaFatturaSintetica && EsponiAcconti)
            CambiaAcconti(Nota, *EsponiAcconti);
    }
    Stampa->Finisci();
}

QJsonValue LeggiJson(const QByteArray& Json)
{
    if (Json.size() > MassimoDescrizione)
        throw Errore(errori::FileRifiutato, u"La descrizione supera %1 byte"_s.arg(MassimoDescrizione));
    QJsonParseError Esito;
    const QJsonDocument Documento = QJsonDocument::fromJson(Json, &Esito);
    if (Esito.error != QJsonParseError::NoError)
        throw Errore(errori::FileRifiutato,
                     u"La descrizione non è un JSON valido (carattere %1)"_s.arg(Esito.offset));
    if (!Documento.isObject())
        throw OggettoJson::Rifiuto(errori::Tipo, {}, u"deve essere un oggetto"_s);
    return Documento.object();
}

}  // namespace

Parcella CreaDaDescrizione(const QByteArray& Json)
{
    OggettoJson Dati({}, LeggiJson(Json));
    const Decreto& Legge = LeggiTariffa(Dati);
    (void)ApriTariffe(Legge);  // a missing reference database is reported here, once
    Parcella Nota;
    NuovaParcella(Nota, Legge);
    LeggiCategoria(Nota, Dati);
    LeggiAutorita(Nota, Dati);
    LeggiScaglione(Nota, Dati);
    LeggiValore(Nota, Dati);
    LeggiVariazione(Nota, Dati);
    VerificaParametri(Nota);
    LeggiRighe(Nota, Dati);
    LeggiPercentuali(Nota, Dati);
    LeggiParti(Nota, Dati);
    LeggiStampa(Nota, Dati);
    const QString Psw = Dati.Testo(u"password"_s, MassimoBreve);
    if (!Psw.isEmpty())
        Nota.Psw = PswDaSalvare.toString() + TagliaPsw(Psw);
    Dati.Finisci();
    return Nota;
}
