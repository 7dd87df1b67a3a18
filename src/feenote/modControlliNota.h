// What is worth a look before a note is printed. A list, never a refusal: an ordinary finished note has none.
#pragma once

#include "feenote/modRighe.h"
#include "feenote/parcella.h"

#include <QDate>
#include <QList>
#include <QString>

#include <optional>

struct DatiCliente;

/// What a remark is about.
enum class GenereRilievo {
    SenzaCliente,
    ClienteAssente,       ///< the row that the note is linked to is not in the archive
    ClienteSenzaCodici,   ///< neither tax code nor VAT number
    CodiceFiscaleErrato,  ///< its check character does not agree
    PartitaIvaErrata,
    ControparteSenzaNome,  ///< or without words on a document that prints them alone
    NumeroMancante,        ///< of an invoice
    DataMancante,
    DataNonValida,
    DataFutura,
    TermineScaduto,  ///< twelve days have passed since the payment, or since the invoice's date
    DaRicalcolare,   ///< the lines are older than the parameters
    FuoriLimiti,     ///< an amount above its maximum or below its minimum
    OnorarioAZero,   ///< a line without a range
    SpesaAZero,
    AccontiEccedenti,  ///< more was paid than is charged
    AccontiDopo,       ///< the invoice has gone out before payments that its paper takes away
    CartaDiFattura,    ///< a credit note, whose paper is headed as an invoice
    CitataIgnota,      ///< it cites an invoice that is none of the note's
    AliquotaDiversa,   ///< not the rate in force
    AliquotaMancante,  ///< ticked, without a percentage
};

enum class GravitaRilievo {
    Avviso,  ///< it may be meant so
    Errore,  ///< the document cannot go out like this
};

/// Where a remark leads.
enum class LuogoRilievo {
    Cliente,            ///< on the first tab
    Controparte,        ///< on the first tab
    BloccoCliente,      ///< the client as it prints
    BloccoControparte,  ///< the counterparty as it prints
    CodiceFiscale,      ///< of the client's card
    PartitaIva,         ///< of the client's card
    NumeroFattura,
    DataFattura,
    DataDocumento,  ///< of pro-forma note and estimate
    Documento,      ///< the list of documents
    FatturaXml,     ///< the panel of the electronic invoice
    Ricalcolo,      ///< the button that recalculates
    Onorari,        ///< the amount of a line
    Spese,          ///< the amount of a line
    Acconti,        ///< a column of the payments
    Imposta,        ///< the percent box of a tax
};

/// A row of the list.
struct Rilievo
{
    GenereRilievo Genere;
    GravitaRilievo Gravita = GravitaRilievo::Avviso;
    QString Frase;
    LuogoRilievo Luogo;
    int Riga = 0;     ///< of lines and payments
    int Colonna = 0;  ///< a ColonnaOnorari, ColonnaDiritti or ColonnaAcconti; of a tax its Imposta

    friend bool operator==(const Rilievo&, const Rilievo&) = default;
};

/// What the checks take from outside the note.
struct DatiControllo
{
    QDate Oggi;
    const DatiCliente* Cliente = nullptr;  ///< the row that the note is linked to; null: there is none
    bool ArchivioLetto = true;             ///< false: whether there is such a row is not known
    bool Numera = false;                   ///< the office numbers its invoices with this program
    bool ScriveXml = false;                ///< the office writes its electronic invoices with this program
};

/// How many lines of one kind are listed one by one; a last row says how many others there are.
constexpr int MassimoRilieviDiRighe = 10;
/// Days in which an invoice is issued, from the payment of the fees, and sent from its date.
/// Legal source: D.P.R. 633/1972, articles 6 and 21, paragraph 4, as in force since 1 July 2019.
constexpr int GiorniEmissione = 12;

/// Everything worth a look in the note as its document shows it, errors first; without a document what
/// concerns a pro-forma note. It costs a walk through the lines and reads no file.
[[nodiscard]] QList<Rilievo> ControllaNota(const Parcella& Nota, const DatiControllo& Dati);

/// A limit of a line that its amount lies beyond.
struct LimitePassato
{
    bool Massimo = false;  ///< else the minimum
    double Limite = 0.0;   ///< euro
};
/// The limit that a line's amount lies beyond, by the minimum and maximum that the line shows: they have the
/// quantity and the variation in them. A line outside the tariff, and one whose limits are not known (0, or
/// the wrong way round), has none.
[[nodiscard]] std::optional<LimitePassato> LimiteDiRiga(const TabellaRighe& Onorari, int Riga);
/// "oltre il massimo di 1.920,00", "sotto il minimo di 600,00".
[[nodiscard]] QString FraseLimite(const LimitePassato& Passato);
/// The same of a line, empty where its amount is within its limits, or the row does not exist.
[[nodiscard]] QString FraseLimite(const TabellaRighe& Onorari, int Riga);
