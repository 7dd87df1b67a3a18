// The electronic invoice as data: what it is made of, what is missing to it, the composed document.
#pragma once

#include "core/mancanza.h"
#include "core/modSede.h"

#include <QDate>
#include <QList>
#include <QString>

#include <optional>

// ---- What it is made of: all by value, whoever has it from settings, archive or window.

/// Where a party has its seat, as the file wants it split.
struct Sede
{
    QString Indirizzo;  ///< street, without the number of the house
    QString NumeroCivico;
    QString Cap;  ///< five digits; abroad it is left out
    QString Comune;
    QString Provincia;                    ///< two letters; abroad it is left out
    QString Nazione = Italia.toString();  ///< two letters, ISO 3166; empty: Italy

    friend bool operator==(const Sede&, const Sede&) = default;
};

/// What the office is; the kind of its withholding tax follows.
enum class GenereStudio {
    PersonaFisica,  ///< RT01
    Associazione,   ///< RT02
    Societa,        ///< RT02
};

/// Who sells: the office.
struct Cedente
{
    GenereStudio Genere = GenereStudio::PersonaFisica;
    QString PartitaIva;  ///< eleven digits, with or without "IT"
    QString CodiceFiscale;
    QString Denominazione;  ///< or the two below
    QString Nome, Cognome;
    Sede Indirizzo;
    QString Regime;  ///< RF01, RF19, ...; see regimi::Voci
    QString Iban;    ///< empty: the payment names no account
    QString Email;   ///< empty: none is written

    friend bool operator==(const Cedente&, const Cedente&) = default;
};

/// What the client is. A foreign one is told by the country of its seat.
enum class GenereCliente { Persona, Societa, PubblicaAmministrazione };

/// Who buys: the client of the note.
struct Cessionario
{
    GenereCliente Genere = GenereCliente::Persona;
    QString
        PartitaIva;  ///< Italian: eleven digits; foreign: up to 28 characters, with or without the country
    QString CodiceFiscale;
    QString Denominazione;  ///< or the two below
    QString Nome, Cognome;
    Sede Indirizzo;
    QString CodiceDestinatario;  ///< seven characters, six for an office of the administration; empty: none
    QString Pec;

    [[nodiscard]] bool Estero() const
    {
        const QString Nazione = Indirizzo.Nazione.trimmed().toUpper();
        return !Nazione.isEmpty() && Nazione != Italia;
    }
    friend bool operator==(const Cessionario&, const Cessionario&) = default;
};

/// Whether the invoice bears stamp duty. It is due where what bears no VAT is more than 77,47 euro together.
enum class BolloFattura { SeDovuto, Dovuto, NonDovuto };

/// Another document that the invoice cites.
struct DocumentoCitato
{
    QString Numero;  ///< up to 20 characters
    QDate Data;      ///< null: none
    QString Cup, Cig;

    friend bool operator==(const DocumentoCitato&, const DocumentoCitato&) = default;
};

/// What the user chooses on the invoice's tab; SceltaDaNota fills in what the note itself says.
struct SceltaFattura
{
    QString Tipo = QStringLiteral("TD01");      ///< see TipiFattura
    QString Formato = QStringLiteral("FPR12");  ///< FPA12 towards the public administration
    int Documento = 0;  ///< print type whose rows become lines: one of the two invoices
    QString Numero;     ///< as it is written, "12/2026"
    QDate Data;
    QString Progressivo;              ///< of the file, see ProgressivoFile
    bool ScissionePagamenti = false;  ///< the client pays the VAT to the treasury; only without withholding
    BolloFattura Bollo = BolloFattura::SeDovuto;
    bool BolloAddebitato = false;  ///< one of the note's exempt expenses is the duty, charged to the client
    QString Natura;  ///< of fees without VAT, see NatureSenzaIva; empty: as regime and client say
    QDate Scadenza;  ///< of the payment; null: none is written
    QString Modalita = QStringLiteral("MP05");  ///< see ModalitaPagamento; empty: no payment data
    QList<DocumentoCitato> Collegate;           ///< earlier invoices; a credit note needs one
    std::optional<DocumentoCitato> Contratto;   ///< with the codes that an administration asks for

    friend bool operator==(const SceltaFattura&, const SceltaFattura&) = default;
};

// ---- What is missing, what is told.

/// The field that a sentence leads to.
enum class CampoFattura {
    Nessuno,
    // settings of the office
    StudioGenere,
    StudioNome,
    StudioPartitaIva,
    StudioCodiceFiscale,
    StudioIndirizzo,
    StudioCivico,
    StudioCap,
    StudioComune,
    StudioProvincia,
    StudioRegime,
    StudioIban,
    StudioEmail,
    // row of the archive
    Cliente,  ///< the note is linked to none
    ClienteGenere,
    ClienteNome,
    ClientePartitaIva,
    ClienteCodiceFiscale,
    ClienteIndirizzo,
    ClienteCivico,
    ClienteCap,
    ClienteComune,
    ClienteProvincia,
    ClienteNazione,
    ClienteDestinatario,
    ClientePec,
    // the note
    NotaTipoStampa,
    NotaOggetto,
    NotaOnorari,
    NotaSpese,
    NotaAcconti,
    NotaSpeseGen,
    NotaCP,
    NotaIva,
    NotaRA,
    NotaRegime,
    NotaIvaDifferita,
    NotaNumero,
    NotaData,
    // the choice
    SceltaTipo,
    SceltaFormato,
    SceltaProgressivo,
    SceltaScissione,
    SceltaBollo,
    SceltaNatura,
    SceltaScadenza,
    SceltaModalita,
    SceltaCollegata,
    SceltaContratto,
};

/// What keeps the file from being written: one Italian sentence, and where it leads.
using MancanzaFattura = Mancanza<CampoFattura>;
/// What is told and keeps nothing from being written.
using AvvisoFattura = Mancanza<CampoFattura>;

// ---- The composed document: the parts of the file that this program writes, amounts in euro.

struct IdFiscale
{
    QString Paese;
    QString Codice;

    friend bool operator==(const IdFiscale&, const IdFiscale&) = default;
};

/// A party as the file names it.
struct ParteFattura
{
    std::optional<IdFiscale> IdFiscaleIva;
    QString CodiceFiscale;
    QString Denominazione;  ///< or the two below
    QString Nome, Cognome;
    Sede Indirizzo;

    /// The name in one piece.
    [[nodiscard]] QString NomeIntero() const
    {
        return Denominazione.isEmpty() ? (Nome + u' ' + Cognome).trimmed() : Denominazione;
    }
    friend bool operator==(const ParteFattura&, const ParteFattura&) = default;
};

struct RitenutaFattura
{
    QString Tipo;  ///< RT01, RT02
    double Importo = 0.0;
    double Aliquota = 0.0;  ///< percent
    QString Causale;

    friend bool operator==(const RitenutaFattura&, const RitenutaFattura&) = default;
};

struct CassaFattura
{
    QString Tipo;           ///< TC01
    double Aliquota = 0.0;  ///< percent
    double Contributo = 0.0;
    double Imponibile = 0.0;
    double AliquotaIva = 0.0;
    bool Ritenuta = false;
    QString Natura;  ///< while the VAT is 0

    friend bool operator==(const CassaFattura&, const CassaFattura&) = default;
};

struct LineaFattura
{
    QString Descrizione;
    double Importo = 0.0;  ///< negative for what was paid on account
    double AliquotaIva = 0.0;
    bool Ritenuta = false;
    QString Natura;  ///< while the VAT is 0

    friend bool operator==(const LineaFattura&, const LineaFattura&) = default;
};

/// The sums of one rate, or of one reason to have none.
struct RiepilogoFattura
{
    double AliquotaIva = 0.0;
    QString Natura;
    double Imponibile = 0.0;
    double Imposta = 0.0;
    QString Esigibilita;  ///< I, D, S; empty without VAT
    QString RiferimentoNormativo;

    friend bool operator==(const RiepilogoFattura&, const RiepilogoFattura&) = default;
};

struct PagamentoFattura
{
    QString Modalita;
    QDate Scadenza;  ///< null: none
    double Importo = 0.0;
    QString Iban;

    friend bool operator==(const PagamentoFattura&, const PagamentoFattura&) = default;
};

struct FatturaElettronica
{
    QString Formato;
    IdFiscale Trasmittente;
    QString Progressivo;
    QString CodiceDestinatario;
    QString PecDestinatario;

    ParteFattura Cedente;
    QString Regime;
    QString EmailCedente;
    ParteFattura Cessionario;

    QString Tipo;
    QDate Data;
    QString Numero;
    std::optional<RitenutaFattura> Ritenuta;
    double Bollo = 0.0;  ///< 0: none is due
    std::optional<CassaFattura> Cassa;
    double Totale = 0.0;
    QStringList Causali;
    std::optional<DocumentoCitato> Contratto;
    QList<DocumentoCitato> Collegate;
    QList<LineaFattura> Linee;
    QList<RiepilogoFattura> Riepiloghi;
    std::optional<PagamentoFattura> Pagamento;

    friend bool operator==(const FatturaElettronica&, const FatturaElettronica&) = default;
};
