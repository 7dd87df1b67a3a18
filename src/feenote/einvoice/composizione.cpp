#include "feenote/einvoice/composizione.h"

#include "core/modControlli.h"
#include "feenote/codicifattura.h"
#include "feenote/einvoice/cifrefattura.h"
#include "feenote/einvoice/codici.h"
#include "feenote/einvoice/parti.h"
#include "feenote/einvoice/righe.h"
#include "feenote/einvoice/schematipi.h"
#include "feenote/modControlliNota.h"
#include "feenote/modNumeraFattura.h"
#include "feenote/modStorno.h"
#include "platform/base/regionale.h"
#include "platform/base/segni.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// Characters of a document number, of this one or of one that is cited.
constexpr qsizetype MassimoNumero = 20;

/// The rule by which an amount bears no VAT, as the file cites it.
struct RiferimentoNatura
{
    QStringView Natura;
    QStringView Regime;  ///< empty: any
    QStringView Testo;
};
constexpr std::array Riferimenti{
    RiferimentoNatura{codici::NaturaEsenti, u"", u"Art. 15 DPR 633/1972"},
    RiferimentoNatura{codici::FuoriTerritorio, u"", u"Artt. da 7 a 7-septies DPR 633/1972"},
    RiferimentoNatura{codici::NonSoggetta, regimi::Forfettario, u"Art. 1 c. 54-89 L. 190/2014"},
    RiferimentoNatura{codici::NonSoggetta, regimi::Minimi, u"Art. 27 c. 1-2 DL 98/2011"},
    RiferimentoNatura{codici::NonSoggetta, regimi::Franchigia, u"Direttiva UE 2020/285"},
    RiferimentoNatura{codici::NonSoggetta, u"", u"Operazione non soggetta a IVA"},
    RiferimentoNatura{codici::DichiarazioneIntento, u"", u"Art. 8 c. 1 lett. c DPR 633/1972"},
    RiferimentoNatura{codici::Esente, u"", u"Art. 10 DPR 633/1972"},
};

QString RiferimentoDi(const QString& Natura, const QString& Regime)
{
    for (const RiferimentoNatura& Riga : Riferimenti)
        if (Riga.Natura == Natura && (Riga.Regime.isEmpty() || Riga.Regime == Regime))
            return Riga.Testo.toString();
    return {};
}

/// What an invoice of a regime without VAT says of itself.
struct FraseRegime
{
    QStringView Regime;
    QStringView Testo;
};
constexpr std::array FrasiRegime{
    FraseRegime{regimi::Forfettario,
                u"Operazione in regime forfettario, art. 1 commi da 54 a 89 L. 190/2014: senza IVA e senza "
                "ritenuta d'acconto (comma 67)."},
    FraseRegime{regimi::Minimi,
                u"Operazione effettuata ai sensi dell'art. 27, commi 1 e 2, DL 98/2011: non soggetta a "
                "ritenuta d'acconto."},
    FraseRegime{regimi::Franchigia,
                u"Operazione in regime transfrontaliero di franchigia, direttiva UE 2020/285."},
};

class Compositore
{
public:
    Compositore(const Parcella& DiNota, const Cedente& DiStudio, const Cessionario& DiCliente,
                const SceltaFattura& DiScelta, const QDate& Giorno)
        : Nota(DiNota), Studio(DiStudio), Cliente(DiCliente), Scelta(DiScelta), Oggi(Giorno),
          Conti(CatenaFiscale(RaccogliFattura(DiNota, DiScelta.Documento)))
    {}

    Composizione Componi();

private:
    Composizione Chiudi();

    /// The figures with the regime that the office's part has brought.
    [[nodiscard]] CifreFattura Cifre() const { return {Nota, Conti, Scelta, Fattura.Regime}; }
    [[nodiscard]] bool NotaDiCredito() const { return Scelta.Tipo == codici::NotaDiCredito; }

    // ---- the document itself

    void ComponiProgressivo();
    void ComponiDocumento();
    void ComponiCitati();
    DocumentoCitato Pulito(const DocumentoCitato& Scritto, CampoFattura Dove, QStringView Nome);
    void ComponiCausali();

    // ---- lines and sums

    [[nodiscard]] bool Imprenditore() const;

    /// The rule behind a reason. Towards a business of the Union the client owes the VAT, which the invoice
    /// says: D.P.R. 633/1972, art. 21 c. 6-bis.
    [[nodiscard]] QString Riferimento(const QString& Natura) const;

    /// The reason why fees bear no VAT.
    QString NaturaCompensi();

    /// What taxable amounts bear.
    TrattamentoFiscale Tratta();

    /// Whether one of the note's expenses is the stamp duty, charged to the client.
    bool AddebitaBollo();
    void ComponiImporti(const TrattamentoFiscale& Fisco, bool Addebito);
    void PulisciLinee();
    void ComponiRiepiloghi();

    /// The file says what the paper says, to the cent, or it is not written: amounts with parts of a cent,
    /// which the paper rounds in its total alone, have no place in it.
    void ControllaTotali();
    void AvvisaRitenuta();

    // ---- stamp duty

    [[nodiscard]] double SommeSenzaIva(bool Addebito) const;

    /// The duty on sums without VAT.
    double Bollo(double Somme);

    // ---- payment

    /// What the client has to pay, and how; none where nothing is to be said of it.
    std::optional<PagamentoFattura> Pagamento();
    QString Iban();

    const Parcella& Nota;
    const Cedente& Studio;
    const Cessionario& Cliente;
    const SceltaFattura& Scelta;
    QDate Oggi;
    Catena Conti;
    FatturaElettronica Fattura;
    Raccolta Note;
};

Composizione Compositore::Componi()
{
    if (!TipoDi(Scelta.Documento).EFattura) {
        Note.Manca(CampoFattura::NotaTipoStampa,
                   u"La fattura elettronica si fa dalla Fattura sintetica o dalla Fattura analitica."_s);
        return Chiudi();
    }
    Fattura.Formato = Scelta.Formato;
    Fattura.Progressivo = Scelta.Progressivo;
    if (Scelta.Formato != FormatoPrivati && Scelta.Formato != FormatoPubblica)
        Note.Manca(CampoFattura::SceltaFormato, u"Il formato è FPR12 o FPA12."_s);
    ComponiProgressivo();
    ComponiCedente(Fattura, Studio, Note);
    ComponiCessionario(Fattura, Cliente, Note);
    ComponiDocumento();
    ComponiCitati();
    if (ControllaCifre(Cifre(), Note)) {
        const TrattamentoFiscale Fisco = Tratta();
        const bool Addebito = AddebitaBollo();
        ComponiImporti(Fisco, Addebito);
        ControllaTotali();
        Fattura.Bollo = Bollo(SommeSenzaIva(Addebito));
        Fattura.Pagamento = Pagamento();
    }
    ComponiCausali();
    return Chiudi();
}

Composizione Compositore::Chiudi()
{
    Note.ChiudiTesti();
    return {Fattura, Note.Mancanze, Note.Avvisi};
}

void Compositore::ComponiProgressivo()
{
    constexpr qsizetype Massimo = 5;
    const bool Giusto = !Scelta.Progressivo.isEmpty() && Scelta.Progressivo.size() <= Massimo &&
                        std::ranges::all_of(Scelta.Progressivo, [](QChar C) {
                            return ECifra(C) || EMaiuscola(C) || (C >= u'a' && C <= u'z');
                        });
    if (!Giusto)
        Note.Manca(
            CampoFattura::SceltaProgressivo,
            u"Il progressivo del file ha da una a cinque lettere e cifre: «%1»"_s.arg(Scelta.Progressivo));
}

void Compositore::ComponiDocumento()
{
    Fattura.Tipo = Scelta.Tipo;
    if (std::ranges::none_of(TipiFattura(),
                             [&](const VoceCodificata& Voce) { return Voce.Codice == Scelta.Tipo; }))
        Note.Manca(CampoFattura::SceltaTipo,
                   u"Il tipo di documento è TD01, TD06 o TD04: %1"_s.arg(Scelta.Tipo));
    Fattura.Numero =
        Note.Sigla(Scelta.Numero, {CampoFattura::NotaNumero, u"il numero della fattura", MassimoNumero});
    if (Fattura.Numero.isEmpty())
        Note.Manca(CampoFattura::NotaNumero, u"Manca il numero della fattura."_s);
    else if (std::ranges::none_of(Fattura.Numero, ECifra))
        Note.Manca(CampoFattura::NotaNumero,
                   u"Il numero della fattura non ha cifre: %1"_s.arg(Fattura.Numero));
    // The paper has the year of the day on which it is printed, and the file that of the invoice.
    const QString Carta = Nota.DatiPar(DatoNumFatt).trimmed() + u'/' + QString::number(Oggi.year());
    if (!Nota.DatiPar(DatoNumFatt).trimmed().isEmpty() && !Fattura.Numero.isEmpty() &&
        Carta != Fattura.Numero)
        Note.Avvisa(CampoFattura::NotaNumero,
                    u"Nel file la fattura è la n. %1, sulla carta stampata oggi la n. %2."_s.arg(
                        Fattura.Numero, Carta));
    Fattura.Data = Scelta.Data;
    const QDate Prima(1970, 1, 1);
    if (!Scelta.Data.isValid())
        Note.Manca(CampoFattura::NotaData, u"Manca la data della fattura."_s);
    else if (Scelta.Data > Oggi)
        Note.Manca(CampoFattura::NotaData, u"La data della fattura deve ancora venire."_s);
    else if (Scelta.Data < Prima)
        Note.Manca(CampoFattura::NotaData, u"La data della fattura è anteriore al 1970."_s);
    else if (Scelta.Data.daysTo(Oggi) > GiorniEmissione)
        Note.Avvisa(CampoFattura::NotaData,
                    u"La fattura è di più di %1 giorni fa: il termine per trasmetterla è passato."_s.arg(
                        GiorniEmissione));
}

void Compositore::ComponiCitati()
{
    for (const DocumentoCitato& Citata : Scelta.Collegate) {
        if (Citata.Numero.trimmed().isEmpty() || !Citata.Data.isValid()) {
            Note.Manca(CampoFattura::SceltaCollegata,
                       u"Della fattura citata servono il numero e la data, oppure nessuno dei due."_s);
            continue;
        }
        if (NotaDiCredito() && Citata.Data == Scelta.Data &&
            Citata.Numero.trimmed() == Scelta.Numero.trimmed())
            Note.Manca(
                CampoFattura::NotaNumero,
                u"La nota di credito ha il numero e la data della fattura che storna: darle i suoi."_s);
        if (NotaDiCredito() && Citata.Data > Scelta.Data)
            Note.Manca(CampoFattura::SceltaCollegata,
                       u"La nota di credito è anteriore alla fattura che storna."_s);
        Fattura.Collegate += Pulito(Citata, CampoFattura::SceltaCollegata, u"il numero della fattura citata");
    }
    if (NotaDiCredito() && Scelta.Collegate.isEmpty())
        Note.Manca(CampoFattura::SceltaCollegata,
                   u"Una nota di credito vuole il numero e la data della fattura che storna."_s);
    if (!Scelta.Contratto)
        return;
    if (Scelta.Contratto->Numero.trimmed().isEmpty())
        Note.Manca(CampoFattura::SceltaContratto, u"I codici CIG e CUP vogliono il numero del contratto o "
                                                  "dell'incarico."_s);
    Fattura.Contratto = Pulito(*Scelta.Contratto, CampoFattura::SceltaContratto, u"il numero del contratto");
}

DocumentoCitato Compositore::Pulito(const DocumentoCitato& Scritto, CampoFattura Dove, QStringView Nome)
{
    constexpr qsizetype MassimoCodice = 15;
    return {Note.Sigla(Scritto.Numero, {Dove, Nome, MassimoNumero}), Scritto.Data,
            Note.Sigla(Scritto.Cup, {Dove, u"il codice CUP", MassimoCodice}),
            Note.Sigla(Scritto.Cig, {Dove, u"il codice CIG", MassimoCodice})};
}

void Compositore::ComponiCausali()
{
    constexpr qsizetype MassimoCausale = 200;
    const QString Oggetto = Nota.txtDatiStaOgg.Testo.trimmed();
    if (!Oggetto.isEmpty())
        Fattura.Causali += DividiTesto(
            Note.TestoIntero(u"Oggetto: "_s + Oggetto, {CampoFattura::NotaOggetto, u"l'oggetto", 0}),
            MassimoCausale);
    for (const FraseRegime& Frase : FrasiRegime)
        if (Frase.Regime == Fattura.Regime)
            Fattura.Causali += Frase.Testo.toString();
    if (PerCassa(Cifre()) && Fattura.Regime == regimi::CassaPubblica)
        Fattura.Causali += u"IVA a esigibilità differita, art. 6 c. 5 DPR 633/1972."_s;
    else if (PerCassa(Cifre()))
        Fattura.Causali += u"IVA per cassa ai sensi dell'art. 32-bis del DL 83/2012."_s;
}

bool Compositore::Imprenditore() const
{
    return Cliente.Genere != GenereCliente::Persona || !Cliente.PartitaIva.trimmed().isEmpty();
}

QString Compositore::Riferimento(const QString& Natura) const
{
    if (Natura == codici::FuoriTerritorio && Cliente.Estero() && Imprenditore() &&
        NazioneDellUnione(Fattura.Cessionario.Indirizzo.Nazione))
        return u"Inversione contabile, art. 7-ter DPR 633/1972"_s;
    return RiferimentoDi(Natura, Fattura.Regime);
}

QString Compositore::NaturaCompensi()
{
    const bool Agevolato = RegimeSenzaIva(Fattura.Regime);
    if (std::ranges::any_of(NatureSenzaIva(),
                            [&](const VoceCodificata& Voce) { return Voce.Codice == Scelta.Natura; }))
        return Scelta.Natura;
    if (Scelta.Natura.isEmpty() && Agevolato) {
        if (Cliente.Estero() && Imprenditore())
            Note.Avvisa(CampoFattura::SceltaNatura,
                        u"Verso un'impresa estera di regola la natura è N2.1: nel file è N2.2."_s);
        return codici::NonSoggetta.toString();
    }
    if (Scelta.Natura.isEmpty() && Cliente.Estero())
        return codici::FuoriTerritorio.toString();
    Note.Manca(Scelta.Natura.isEmpty() ? CampoFattura::NotaIva : CampoFattura::SceltaNatura,
               u"La fattura è senza IVA: spuntare l'IVA, o scegliere per quale motivo non c'è."_s);
    return {};
}

TrattamentoFiscale Compositore::Tratta()
{
    const DatiCatena& Dati = Conti.Dati;
    TrattamentoFiscale Fisco;
    Fisco.AliquotaIva = Dati.IVA.Vale ? Arrotonda2(Dati.IVA.Perc) : 0.0;
    Fisco.Natura = Dati.IVA.Vale || Centesimi(Conti.Imponibile) == 0 ? QString() : NaturaCompensi();
    Fisco.Ritenuta = Dati.RA.Vale;
    // The duty that such an office charges is income of its own, not an expense in the client's name.
    Fisco.NaturaBollo =
        (RegimeSenzaIva(Fattura.Regime) ? codici::NonSoggetta : codici::NaturaEsenti).toString();
    if (!Dati.IVA.Vale && Fisco.Natura.isEmpty())
        Fisco.Natura = Fisco.NaturaBollo;  // nothing taxable remains: lines that cancel each other
    return Fisco;
}

bool Compositore::AddebitaBollo()
{
    const AddebitoBollo Trovato = TrovaAddebitoBollo(Nota);
    const bool Addebito = Scelta.BolloAddebitato && Trovato;
    if (Scelta.BolloAddebitato && !Addebito)
        Note.Manca(CampoFattura::NotaSpese,
                   u"Per addebitare il bollo mettere fra le spese una riga «Imposta di "
                   "bollo» con %1 euro esenti."_s.arg(FormatNum(ImportoBollo)));
    if (Addebito && !Trovato.Descrizione().contains(u"imposta di bollo"_s, Qt::CaseInsensitive))
        Note.Avvisa(CampoFattura::SceltaBollo,
                    u"Per il bollo della fattura vale la spesa «%1»."_s.arg(Trovato.Descrizione()));
    if (!Scelta.BolloAddebitato && Trovato && RegimeSenzaIva(Fattura.Regime))
        Note.Avvisa(CampoFattura::SceltaBollo,
                    u"La spesa «%1» è scritta come anticipazione (N1): se è il bollo della fattura, indicare "
                    "che è addebitato."_s.arg(Trovato.Descrizione()));
    return Addebito;
}

void Compositore::ComponiImporti(const TrattamentoFiscale& Fisco, bool Addebito)
{
    const DatiCatena& Dati = Conti.Dati;
    Fattura.Linee = LineeFattura(Nota, Conti, Fisco, Addebito);
    PulisciLinee();
    const bool Tassate = std::ranges::any_of(Fattura.Linee, &LineaFattura::Ritenuta);
    if (Dati.CP.Vale && Centesimi(Conti.Imponibile) != 0)
        Fattura.Cassa = CassaFattura{codici::CassaForense.toString(),
                                     Arrotonda2(Dati.CP.Perc),
                                     Conti.CP,
                                     Arrotonda2(Conti.Imponibile),
                                     Fisco.AliquotaIva,
                                     false,
                                     Fisco.Natura};
    if (Dati.RA.Vale && Tassate)
        Fattura.Ritenuta =
            RitenutaFattura{(Studio.Genere == GenereStudio::PersonaFisica ? tipostudio::RitenutaPersona
                                                                          : tipostudio::RitenutaAltri)
                                .toString(),
                            Conti.RA, Arrotonda2(Dati.RA.Perc), u"A"_s};
    Fattura.Totale = Conti.Totale;
    if (CatenaFiscale(Nota, Scelta.Documento).Totale != Conti.Totale)
        Note.Avvisa(CampoFattura::NotaAcconti, FraseAccontiDopo(Nota, Scelta.Documento, Conti.Totale));
    if (CitataAltrove(Nota))
        Note.Avvisa(CampoFattura::SceltaCollegata, FraseCitataAltrove.toString() + u'.');
    ComponiRiepiloghi();
    AvvisaRitenuta();
}

void Compositore::PulisciLinee()
{
    constexpr qsizetype MassimoDescrizione = 1000;
    constexpr qsizetype MassimoLinee = 9999;
    if (Fattura.Linee.size() > MassimoLinee)
        Note.Manca(CampoFattura::NotaOnorari,
                   u"Le righe sono più di %1: usare la Fattura sintetica."_s.arg(MassimoLinee));
    for (LineaFattura& Linea : Fattura.Linee) {
        const CampoFattura Dove = Linea.Importo < 0                      ? CampoFattura::NotaAcconti
                                  : Linea.Natura == codici::NaturaEsenti ? CampoFattura::NotaSpese
                                                                         : CampoFattura::NotaOnorari;
        // A text of signs that nobody sees says nothing.
        if (const TestoPulito Pulito = PulisciTesto(Linea.Descrizione, AlfabetoFattura::Latino);
            Pulito.Testo.isEmpty() && Pulito.Rifiutati.isEmpty())
            Linea.Descrizione = u"Prestazione professionale"_s;
        Linea.Descrizione =
            Note.Testo(Linea.Descrizione, {Dove, u"la descrizione di una riga", MassimoDescrizione});
    }
}

void Compositore::ComponiRiepiloghi()
{
    const auto Di = [this](double Aliquota, const QString& Natura) -> RiepilogoFattura& {
        const auto Suo = std::ranges::find_if(Fattura.Riepiloghi, [&](const RiepilogoFattura& Voce) {
            return Voce.AliquotaIva == Aliquota && Voce.Natura == Natura;
        });
        if (Suo != Fattura.Riepiloghi.end())
            return *Suo;
        Fattura.Riepiloghi.append({Aliquota, Natura, 0.0, 0.0, {}, Riferimento(Natura)});
        return Fattura.Riepiloghi.last();
    };
    for (const LineaFattura& Linea : Fattura.Linee) {
        RiepilogoFattura& Suo = Di(Linea.AliquotaIva, Linea.Natura);
        Suo.Imponibile = Arrotonda2(Suo.Imponibile + Linea.Importo);
    }
    if (Fattura.Cassa) {
        RiepilogoFattura& Suo = Di(Fattura.Cassa->AliquotaIva, Fattura.Cassa->Natura);
        Suo.Imponibile = Arrotonda2(Suo.Imponibile + Fattura.Cassa->Contributo);
    }
    for (RiepilogoFattura& Voce : Fattura.Riepiloghi) {
        if (Voce.AliquotaIva == 0)
            continue;
        Voce.Imposta = Conti.IVA;
        Voce.Esigibilita = Scelta.ScissionePagamenti ? u"S"_s : PerCassa(Cifre()) ? u"D"_s : u"I"_s;
        Voce.RiferimentoNormativo = Scelta.ScissionePagamenti
                                        ? u"Scissione dei pagamenti, art. 17-ter DPR 633/1972"_s
                                    : PerCassa(Cifre()) && Fattura.Regime == regimi::CassaPubblica
                                        ? u"IVA a esigibilità differita, art. 6 c. 5 DPR 633/1972"_s
                                    : PerCassa(Cifre()) ? u"IVA per cassa, art. 32-bis DL 83/2012"_s
                                                        : QString();
    }
}

void Compositore::ControllaTotali()
{
    qint64 Somma = 0;
    qint64 Base = 0;
    for (const RiepilogoFattura& Voce : Fattura.Riepiloghi)
        Somma += Centesimi(Voce.Imponibile) + Centesimi(Voce.Imposta);
    for (const LineaFattura& Linea : Fattura.Linee)
        Base += Centesimi(Linea.Importo);
    const qint64 Attesa = Centesimi(Conti.Totale) - Centesimi(Conti.CP) - Centesimi(Conti.IVA);
    if (Somma != Centesimi(Conti.Totale) || Base != Attesa || HaFrazioni(Nota, Scelta.Documento))
        Note.Manca(CampoFattura::NotaOnorari,
                   u"Un importo della parcella ha frazioni di centesimo, che la fattura "
                   "elettronica non ammette: correggere le righe."_s);
}

void Compositore::AvvisaRitenuta()
{
    const bool Privato = Cliente.Genere == GenereCliente::Persona && Cliente.PartitaIva.trimmed().isEmpty();
    if (Conti.Dati.RA.Vale && (Privato || Cliente.Estero()))
        Note.Avvisa(CampoFattura::NotaRA,
                    u"Di regola non opera la ritenuta un cliente estero, o una persona senza "
                    "partita IVA."_s);
}

double Compositore::SommeSenzaIva(bool Addebito) const
{
    double Somma = 0.0;
    for (const LineaFattura& Linea : Fattura.Linee)
        if (Linea.AliquotaIva == 0)
            Somma += Linea.Importo;
    if (Fattura.Cassa && Fattura.Cassa->AliquotaIva == 0)
        Somma += Fattura.Cassa->Contributo;
    // The duty itself is none of the sums that it is due on.
    return Addebito ? Somma - ImportoBollo : Somma;
}

double Compositore::Bollo(double Somme)
{
    const bool Oltre = Centesimi(Somme) > Centesimi(SogliaBollo);
    const bool Dovuto =
        Scelta.Bollo == BolloFattura::Dovuto || (Scelta.Bollo == BolloFattura::SeDovuto && Oltre);
    if (Scelta.BolloAddebitato && !Dovuto)
        Note.Avvisa(CampoFattura::SceltaBollo,
                    u"Il bollo è addebitato ma non è dovuto: le somme senza IVA non superano %1 euro."_s.arg(
                        FormatNum(SogliaBollo)));
    return Dovuto ? ImportoBollo : 0.0;
}

std::optional<PagamentoFattura> Compositore::Pagamento()
{
    const double Scissa = Scelta.ScissionePagamenti ? Conti.IVA : 0.0;
    const double DaPagare = Arrotonda2(Conti.Netto - Scissa);
    if (Scissa != 0)
        Note.Avvisa(
            CampoFattura::SceltaScissione,
            u"Con la scissione dei pagamenti il cliente paga %1 euro: la stampa espone anche l'IVA."_s.arg(
                FormatNum(DaPagare)));
    if (NotaDiCredito() || Scelta.Modalita.isEmpty() || Centesimi(DaPagare) == 0)
        return std::nullopt;
    if (Centesimi(DaPagare) < 0) {
        Note.Manca(CampoFattura::NotaRA,
                   u"L'importo da pagare è negativo: %1 euro."_s.arg(FormatNum(DaPagare)));
        return std::nullopt;
    }
    if (!ValoreValido(u"ModalitaPagamentoType", Scelta.Modalita))
        Note.Manca(CampoFattura::SceltaModalita,
                   u"Il modo di pagamento non è fra quelli previsti: %1"_s.arg(Scelta.Modalita));
    PagamentoFattura Detto{Scelta.Modalita, Scelta.Scadenza, DaPagare, {}};
    if (Scelta.Scadenza.isValid() && Scelta.Scadenza < Scelta.Data)
        Note.Avvisa(CampoFattura::SceltaScadenza, u"La scadenza del pagamento è anteriore alla fattura."_s);
    if (Scelta.Modalita == codici::Bonifico)
        Detto.Iban = Iban();
    return Detto;
}

QString Compositore::Iban()
{
    QString Codice = Studio.Iban.toUpper();
    Codice.removeIf([](QChar C) { return C.isSpace(); });
    if (!Codice.isEmpty() && (!IbanTorna(Codice) || !ValoreValido(u"IBANType", Codice)))
        Note.Manca(CampoFattura::StudioIban, u"Non è valido l'IBAN dello studio: %1"_s.arg(Codice));
    return Codice;
}

}  // namespace

SceltaFattura SceltaDaNota(const Parcella& Nota)
{
    SceltaFattura Scelta;
    Scelta.Documento = Nota.cmbTipoStampa;
    Scelta.Data = LeggiData(Nota.DatiPar(DatoDataFatt)).value_or(QDate());
    Scelta.Numero = NumeroDellaFattura(Nota);
    return Scelta;
}

Composizione ComponiFatturaElettronica(const Parcella& Nota, const Cedente& Studio,
                                       const Cessionario& Cliente, const SceltaFattura& Scelta,
                                       const QDate& Oggi)
{
    return Compositore(Nota, Studio, Cliente, Scelta, Oggi).Componi();
}
