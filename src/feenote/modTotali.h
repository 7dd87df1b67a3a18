// Sums of the lines and the tax chain. Computed afresh each time; nothing of it is stored.
//
// Law behind the chain: L. 247/2012 art. 13 and D.m. 140/2012 (fees, general expenses), L. 576/1980
// art. 11 (pension-fund contribution), D.P.R. 633/1972 (VAT; exempt expenses art. 15), D.P.R. 600/1973
// art. 25 (withholding tax on fees, pension fund excluded).
#pragma once

#include "feenote/parcella.h"

/// Sums of the line tables of one note, in euro; no tax in them.
struct Somme
{
    double TotOnorari = 0.0;
    double TotMed = 0.0;
    double TotMin = 0.0;
    double TotMax = 0.0;
    double TotSpeseImp = 0.0;
    double TotSpeseEsenti = 0.0;

    friend bool operator==(const Somme&, const Somme&) = default;
};
[[nodiscard]] Somme CalcolaSomme(const Parcella& Nota);

/// Texts of the four panels of the status bar, keys onora, spimp, spese, total; with an associated note
/// its sums are added.
struct PannelliRiep
{
    QString Onora, SpImp, Spese, Total;

    friend bool operator==(const PannelliRiep&, const PannelliRiep&) = default;
};
[[nodiscard]] PannelliRiep TestiRiep(const Parcella& Nota);

/// What has been paid on account, in euro, by what it reduces.
struct SommeAcconti
{
    double AccontiCorrispettivi = 0.0;
    double AccontiSpeseImp = 0.0;
    double AccontiSpeseEsenti = 0.0;

    friend bool operator==(const SommeAcconti&, const SommeAcconti&) = default;
};
/// Payments of the note, and of the associated one while there is one; lire converted one by one. They count
/// whether or not the document lists them. All 0 for the court costs note, which knows no payments, and for
/// a short invoice that does not list them: its total is the sum of its rows. See AccontiDelDocumento.
[[nodiscard]] SommeAcconti CalcolaAcconti(const Parcella& Nota, int Tipo);
/// Those of one list, whatever document they are for.
[[nodiscard]] SommeAcconti SommaAcconti(const TabellaRighe& Acconti);

/// A percentage that may apply: switch on (and enabled, where the switch can be disabled) and box above 0.
struct Aliquota
{
    bool Vale = false;
    double Perc = 0.0;    ///< percent
    QString Testo;        ///< as typed, trimmed: what the row's label shows
    bool Attiva = false;  ///< the tick alone

    friend bool operator==(const Aliquota&, const Aliquota&) = default;
};

/// Everything the chain starts from.
struct DatiCatena
{
    double Onorari = 0.0;  ///< own note plus associated one
    double SpeseImp = 0.0;
    double SpeseEsenti = 0.0;
    SommeAcconti Acconti;
    Aliquota SpeseGen, CP, IVA, RA;
    int Tipo = 0;  ///< print type
    bool RegimeAgevolato = false;
    bool Multipla = false;  ///< the summary is the third section
};
[[nodiscard]] DatiCatena RaccogliCatena(const Parcella& Nota, int Tipo);

/// The figures of the chain, euro. Each tax is rounded by Arrotonda2 as it arises; the base is not, but a tax
/// looks at six of its decimals alone, so that taxes agree with the printed rows for every amount in cents.
struct Catena
{
    DatiCatena Dati;
    double SpeseGen = 0.0;
    double Imponibile = 0.0;  ///< fees - paid + taxable expenses - paid + general expenses, in this order
    double CP = 0.0;
    double IVA = 0.0;  ///< on base and pension fund
    double Totale = 0.0;
    double RA = 0.0;     ///< on the base without pension fund; stored positive
    double Netto = 0.0;  ///< Totale - RA, rounded
};
[[nodiscard]] Catena CatenaFiscale(const DatiCatena& Dati);
/// The same chain with another taxable base before payments, euro: as it is where its lines make that base
/// but for a cent, else the base alone stands for fees, expenses that are taxed and general expenses. Of
/// lines with half cents, nearly all of them paid before, what was asked for and those payments may sum to a
/// cent less. Expenses that are not taxed stay as they are.
[[nodiscard]] DatiCatena ConImponibile(const DatiCatena& Dati, double Base);
[[nodiscard]] Catena CatenaFiscale(const Parcella& Nota, int Tipo);

/// "lblRiep" and the number after the one given.
[[nodiscard]] QString Riep(int n);
