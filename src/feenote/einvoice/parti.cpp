#include "feenote/einvoice/parti.h"

#include "core/modControlli.h"
#include "feenote/einvoice/codici.h"
#include "feenote/einvoice/schematipi.h"
#include "platform/base/segni.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A VAT number without the country in front of it; Greece has one of its own for it.
QString SenzaPaese(const QString& Codice, const QString& Paese)
{
    QString Testo = CodiceInUnPezzo(Codice);
    for (const QString& Davanti : {Paese, Paese == u"GR" ? u"EL"_s : Paese})
        // A Swiss number begins with CHE, of which CH is no country put in front.
        if (!Davanti.isEmpty() && Testo.startsWith(Davanti) && !Testo.startsWith(u"CHE"))
            return Testo.sliced(Davanti.size());
    return Testo;
}

/// A text that says nothing once signs that nobody sees are gone.
bool Vuoto(const QString& Testo)
{
    const TestoPulito Pulito = PulisciTesto(Testo, AlfabetoFattura::Latino);
    return Pulito.Testo.isEmpty() && Pulito.Rifiutati.isEmpty();
}

/// How a party is called in a sentence, and the fields that its sentences lead to.
struct Soggetto
{
    QStringView Di;     ///< "dello studio"
    QStringView Posto;  ///< "Impostazioni"
    CampoFattura Nome, PartitaIva, CodiceFiscale, Indirizzo, Civico, Cap, Comune, Provincia, Nazione;
};

constexpr Soggetto Studio{
    u"dello studio",
    u"nelle impostazioni",
    CampoFattura::StudioNome,
    CampoFattura::StudioPartitaIva,
    CampoFattura::StudioCodiceFiscale,
    CampoFattura::StudioIndirizzo,
    CampoFattura::StudioCivico,
    CampoFattura::StudioCap,
    CampoFattura::StudioComune,
    CampoFattura::StudioProvincia,
    CampoFattura::StudioIndirizzo,
};
constexpr Soggetto Cliente{
    u"del cliente",
    u"nell'archivio",
    CampoFattura::ClienteNome,
    CampoFattura::ClientePartitaIva,
    CampoFattura::ClienteCodiceFiscale,
    CampoFattura::ClienteIndirizzo,
    CampoFattura::ClienteCivico,
    CampoFattura::ClienteCap,
    CampoFattura::ClienteComune,
    CampoFattura::ClienteProvincia,
    CampoFattura::ClienteNazione,
};

/// One party while it is composed.
class Parte
{
public:
    Parte(const Soggetto& Quale, Raccolta& Frasi) : Chi(Quale), Note(Frasi) {}

    void Manca(CampoFattura Dove, const QString& Cosa) const
    {
        Note.Manca(Dove, u"Manca %1 %2 (%3)"_s.arg(Cosa, Chi.Di, Chi.Posto));
    }
    void NonValido(CampoFattura Dove, const QString& Cosa, const QString& Valore) const
    {
        const QString Detto = Cosa.startsWith(u"la ") ? u"valida"_s : u"valido"_s;
        Note.Manca(Dove, u"Non è %1 %2 %3: %4"_s.arg(Detto, Cosa, Chi.Di, Valore));
    }
    [[nodiscard]] QString Testo(const QString& Scritto, CampoFattura Dove, QStringView Cosa,
                                qsizetype Massimo) const
    {
        const QString Nome = Cosa.toString() + u' ' + Chi.Di.toString();
        return Note.Testo(Scritto, {Dove, Nome, Massimo});
    }

    void Nomi(ParteFattura& Scritta, const QString& Denominazione, const QString& Nome,
              const QString& Cognome) const
    {
        constexpr qsizetype MassimoNome = 60;
        constexpr qsizetype MassimoDenominazione = 80;
        if (!Vuoto(Nome) && !Vuoto(Cognome)) {
            Scritta.Nome = Testo(Nome, Chi.Nome, u"il nome", MassimoNome);
            Scritta.Cognome = Testo(Cognome, Chi.Nome, u"il cognome", MassimoNome);
            return;
        }
        const QString Intero = Vuoto(Denominazione) ? Nome + u' ' + Cognome : Denominazione;
        Scritta.Denominazione = Testo(Intero, Chi.Nome, u"la denominazione", MassimoDenominazione);
        if (Vuoto(Intero))
            Manca(Chi.Nome, u"il nome"_s);
    }

    [[nodiscard]] Sede Indirizzo(const Sede& Scritta) const
    {
        constexpr qsizetype MassimoIndirizzo = 60;
        constexpr qsizetype MassimoCivico = 8;
        Sede Pulita;
        if (!Scritta.Nazione.trimmed().isEmpty())
            Pulita.Nazione = CodiceInUnPezzo(Scritta.Nazione);
        const bool ConLettere =
            std::ranges::any_of(Pulita.Nazione, [](QChar C) { return C >= u'A' && C <= u'Z'; });
        if (!ConLettere)
            Manca(Chi.Nazione, u"la nazione"_s);
        else if (!NazioneEsistente(Pulita.Nazione))
            NonValido(Chi.Nazione, u"la sigla della nazione"_s, Pulita.Nazione);
        const bool Estera = Pulita.Nazione != Italia;
        Pulita.Indirizzo = Testo(Scritta.Indirizzo, Chi.Indirizzo, u"l'indirizzo", MassimoIndirizzo);
        if (Vuoto(Scritta.Indirizzo))
            Manca(Chi.Indirizzo, u"l'indirizzo"_s);
        const QString Civico = u"il numero civico "_s + Chi.Di.toString();
        Pulita.NumeroCivico = Note.Sigla(Scritta.NumeroCivico, {Chi.Civico, Civico, MassimoCivico});
        Pulita.Comune = Testo(Scritta.Comune, Chi.Comune, u"il comune", MassimoIndirizzo);
        if (Vuoto(Scritta.Comune))
            Manca(Chi.Comune, u"il comune"_s);
        // Foreign codes of places have no form of their own: the exchange system takes five zeros.
        Pulita.Cap = Estera ? u"00000"_s : CodiceInUnPezzo(Scritta.Cap);
        if (Pulita.Cap.isEmpty())
            Manca(Chi.Cap, u"il CAP"_s);
        else if (!ValoreValido(u"CAPType", Pulita.Cap))
            NonValido(Chi.Cap, u"il CAP"_s, Pulita.Cap);
        Pulita.Provincia = Estera ? QString() : CodiceInUnPezzo(Scritta.Provincia);
        if (!Pulita.Provincia.isEmpty() && !ValoreValido(u"ProvinciaType", Pulita.Provincia))
            NonValido(Chi.Provincia, u"la sigla della provincia"_s, Pulita.Provincia);
        return Pulita;
    }

    /// @return an Italian VAT number, empty when there is none or a wrong one
    [[nodiscard]] std::optional<IdFiscale> PartitaIva(const QString& Scritta) const
    {
        const QString Codice = SenzaPaese(Scritta, Italia.toString());
        if (Codice.isEmpty())
            return std::nullopt;
        if (!PartitaIvaTorna(Codice))
            NonValido(Chi.PartitaIva, u"la partita IVA"_s, Codice);
        return IdFiscale{Italia.toString(), Codice};
    }

    [[nodiscard]] QString CodiceFiscale(const QString& Scritto) const
    {
        QString Codice = CodiceInUnPezzo(Scritto);
        if (!Codice.isEmpty() && !CodiceFiscaleTorna(Codice))
            NonValido(Chi.CodiceFiscale, u"il codice fiscale"_s, Codice);
        return Codice;
    }

private:
    const Soggetto& Chi;
    Raccolta& Note;
};

bool RegimeAmmesso(const QString& Regime)
{
    return ValoreValido(u"RegimeFiscaleType", Regime);
}

/// What a foreign client is known by; who buys as a person and has no code takes the one for whoever has
/// none.
IdFiscale CodiceEstero(const Cessionario& Scritto, const QString& Paese, const Parte& Chi, Raccolta& Note)
{
    constexpr qsizetype MassimoCodice = 28;
    const QString Nessuno = u"0000000"_s;
    QString Codice = SenzaPaese(Scritto.PartitaIva, Paese);
    if (Codice.isEmpty())
        Codice = CodiceInUnPezzo(Scritto.CodiceFiscale);
    if (Codice.isEmpty() && Scritto.Genere == GenereCliente::Persona) {
        Note.Avvisa(CampoFattura::ClientePartitaIva,
                    u"Il cliente estero non ha codici: nel file il suo codice è %1."_s.arg(Nessuno));
        Codice = Nessuno;
    }
    const bool Giusto = std::ranges::all_of(Codice, [](QChar C) { return ECifra(C) || EMaiuscola(C); });
    if (Codice.isEmpty())
        Chi.Manca(CampoFattura::ClientePartitaIva, u"la partita IVA o il codice"_s);
    else if (!Giusto || Codice.size() > MassimoCodice)
        Chi.NonValido(CampoFattura::ClientePartitaIva, u"la partita IVA"_s, Codice);
    return {Paese, Codice};
}

/// An Italian VAT number, of somebody whose seat is abroad.
bool HaPartitaItaliana(const Cessionario& Scritto)
{
    const QString Codice = CodiceInUnPezzo(Scritto.PartitaIva);
    return Scritto.Estero() && Codice.startsWith(Italia) && PartitaIvaTorna(Codice);
}

/// Who lives abroad with an Italian tax code is known by it, and finds the invoice in his own area.
bool HaCodiceItaliano(const Cessionario& Scritto)
{
    return Scritto.Estero() && Scritto.PartitaIva.trimmed().isEmpty() &&
           CodiceInUnPezzo(Scritto.CodiceFiscale).size() == LettereCodFis &&
           CodiceFiscaleTorna(CodiceInUnPezzo(Scritto.CodiceFiscale));
}

bool Sconosciuto(const Cessionario& Scritto)
{
    for (const QString& Testo :
         {Scritto.PartitaIva, Scritto.CodiceFiscale, Scritto.Denominazione, Scritto.Nome, Scritto.Cognome,
          Scritto.Indirizzo.Indirizzo, Scritto.Indirizzo.Comune})
        if (!Testo.trimmed().isEmpty())
            return false;
    return true;
}

void ComponiDestinatarioPubblico(FatturaElettronica& Fattura, const QString& Codice,
                                 const Cessionario& Scritto, Raccolta& Note)
{
    constexpr qsizetype CaratteriUfficio = 6;
    if (Scritto.Estero())
        Note.Manca(CampoFattura::SceltaFormato,
                   u"Il formato FPA12 è per le pubbliche amministrazioni italiane: il "
                   "cliente è estero."_s);
    if (Codice.isEmpty())
        Note.Manca(CampoFattura::ClienteDestinatario,
                   u"Manca il codice dell'ufficio della pubblica amministrazione (nell'archivio)"_s);
    else if (Codice.size() != CaratteriUfficio || !ValoreValido(u"CodiceDestinatarioType", Codice))
        Note.Manca(CampoFattura::ClienteDestinatario,
                   u"Il codice dell'ufficio della pubblica amministrazione ha sei lettere e cifre: %1"_s.arg(
                       Codice));
    Fattura.CodiceDestinatario = Codice;
}

void ComponiDestinatario(FatturaElettronica& Fattura, const QString& Codice, const Cessionario& Scritto,
                         Raccolta& Note)
{
    constexpr qsizetype CaratteriCanale = 7;
    if (!Codice.isEmpty() &&
        (Codice.size() != CaratteriCanale || !ValoreValido(u"CodiceDestinatarioType", Codice)))
        Note.Manca(CampoFattura::ClienteDestinatario,
                   u"Il codice destinatario del cliente ha sette lettere e cifre: %1"_s.arg(Codice));
    if (!Scritto.Estero() && Codice == DestinatarioEstero)
        Note.Manca(CampoFattura::ClienteDestinatario,
                   u"Il codice destinatario %1 è per i clienti esteri: il cliente è italiano."_s.arg(Codice));
    const QStringView Proprio = Scritto.Estero() && !HaCodiceItaliano(Scritto) && !HaPartitaItaliana(Scritto)
                                    ? DestinatarioEstero
                                    : DestinatarioIgnoto;
    Fattura.CodiceDestinatario = Codice.isEmpty() ? Proprio.toString() : Codice;
    if (Fattura.CodiceDestinatario != DestinatarioIgnoto)
        return;
    Fattura.PecDestinatario = Scritto.Pec.trimmed();
    if (Fattura.PecDestinatario.isEmpty())
        Note.Avvisa(
            CampoFattura::ClienteDestinatario,
            u"Senza codice destinatario e senza PEC il cliente trova la fattura nella sua area riservata: va "
            "avvisato."_s);
    else if (!ValoreValido(u"EmailType", Fattura.PecDestinatario))
        Note.Manca(CampoFattura::ClientePec,
                   u"Non è valida la PEC del cliente: %1"_s.arg(Fattura.PecDestinatario));
}

}  // namespace

void ComponiCedente(FatturaElettronica& Fattura, const Cedente& Scritto, Raccolta& Note)
{
    const Parte Chi(Studio, Note);
    ParteFattura& Parti = Fattura.Cedente;
    Parti.IdFiscaleIva = Chi.PartitaIva(Scritto.PartitaIva);
    if (!Parti.IdFiscaleIva) {
        Chi.Manca(CampoFattura::StudioPartitaIva, u"la partita IVA"_s);
        Parti.IdFiscaleIva = IdFiscale{Italia.toString(), {}};
    }
    Parti.CodiceFiscale = Chi.CodiceFiscale(Scritto.CodiceFiscale);
    // Whoever transmits is known by the tax code, and a person's is not the VAT number.
    if (Scritto.Genere == GenereStudio::PersonaFisica) {
        if (Parti.CodiceFiscale.isEmpty())
            Chi.Manca(CampoFattura::StudioCodiceFiscale, u"il codice fiscale"_s);
        else if (Parti.CodiceFiscale.size() != LettereCodFis)
            Note.Manca(CampoFattura::StudioCodiceFiscale,
                       u"Il codice fiscale di una persona fisica ha sedici caratteri: %1"_s.arg(
                           Parti.CodiceFiscale));
    }
    Chi.Nomi(Parti, Scritto.Denominazione, Scritto.Nome, Scritto.Cognome);
    Sede Indirizzo = Scritto.Indirizzo;
    Indirizzo.Nazione = Italia.toString();
    Parti.Indirizzo = Chi.Indirizzo(Indirizzo);
    Fattura.Trasmittente = {Italia.toString(),
                            Parti.CodiceFiscale.isEmpty() ? Parti.IdFiscaleIva->Codice : Parti.CodiceFiscale};
    Fattura.Regime = CodiceInUnPezzo(Scritto.Regime);
    if (Fattura.Regime.isEmpty())
        Chi.Manca(CampoFattura::StudioRegime, u"il regime fiscale"_s);
    else if (!RegimeAmmesso(Fattura.Regime))
        Chi.NonValido(CampoFattura::StudioRegime, u"il regime fiscale"_s, Fattura.Regime);
    Fattura.EmailCedente = Scritto.Email.trimmed();
    if (!Fattura.EmailCedente.isEmpty() && !ValoreValido(u"EmailContattiType", Fattura.EmailCedente)) {
        Note.Avvisa(CampoFattura::StudioEmail,
                    u"L'indirizzo e-mail dello studio non è valido e nel file non c'è: %1"_s.arg(
                        Fattura.EmailCedente));
        Fattura.EmailCedente.clear();
    }
}

void ComponiCessionario(FatturaElettronica& Fattura, const Cessionario& Scritto, Raccolta& Note)
{
    if (Sconosciuto(Scritto)) {
        Note.Manca(CampoFattura::Cliente,
                   u"Collegare la parcella a un cliente dell'archivio: la fattura elettronica "
                   "vuole i suoi codici e il suo indirizzo."_s);
        return;
    }
    const Parte Chi(Cliente, Note);
    ParteFattura& Parti = Fattura.Cessionario;
    Chi.Nomi(Parti, Scritto.Denominazione, Scritto.Nome, Scritto.Cognome);
    Parti.Indirizzo = Chi.Indirizzo(Scritto.Indirizzo);
    if (HaCodiceItaliano(Scritto)) {
        Parti.CodiceFiscale = Chi.CodiceFiscale(Scritto.CodiceFiscale);
    } else if (Scritto.Estero() && !HaPartitaItaliana(Scritto)) {
        Parti.IdFiscaleIva = CodiceEstero(Scritto, Parti.Indirizzo.Nazione, Chi, Note);
    } else {
        Parti.IdFiscaleIva = Chi.PartitaIva(Scritto.PartitaIva);
        Parti.CodiceFiscale = Chi.CodiceFiscale(Scritto.CodiceFiscale);
        if (!Parti.IdFiscaleIva && Parti.CodiceFiscale.isEmpty())
            Note.Manca(CampoFattura::ClienteCodiceFiscale,
                       u"Manca il codice fiscale o la partita IVA del cliente (nell'archivio)"_s);
    }
    const bool Pubblico = Fattura.Formato == FormatoPubblica;
    if (!Pubblico && Scritto.Genere == GenereCliente::PubblicaAmministrazione)
        Note.Manca(CampoFattura::SceltaFormato, u"Verso una pubblica amministrazione il formato è FPA12."_s);
    const QString Codice = CodiceInUnPezzo(Scritto.CodiceDestinatario);
    if (Pubblico)
        ComponiDestinatarioPubblico(Fattura, Codice, Scritto, Note);
    else
        ComponiDestinatario(Fattura, Codice, Scritto, Note);
    const bool Stessi =
        (Parti.IdFiscaleIva && !Parti.IdFiscaleIva->Codice.isEmpty() &&
         Parti.IdFiscaleIva == Fattura.Cedente.IdFiscaleIva) ||
        (!Parti.CodiceFiscale.isEmpty() && Parti.CodiceFiscale == Fattura.Cedente.CodiceFiscale);
    if (Stessi)
        Note.Manca(CampoFattura::ClientePartitaIva,
                   u"Lo studio e il cliente hanno lo stesso codice: non è una "
                   "fattura."_s);
}
