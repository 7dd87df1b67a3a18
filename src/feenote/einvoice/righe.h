// The lines of an electronic invoice: the rows of the note, their taxes, what was paid on account.
#pragma once

#include "feenote/einvoice/fattura.h"
#include "feenote/modTotali.h"

/// What the taxable amounts of a note bear.
struct TrattamentoFiscale
{
    double AliquotaIva = 0.0;  ///< percent
    QString Natura;            ///< while the VAT is 0
    bool Ritenuta = false;
    /// What a charge of the stamp duty bears instead of a VAT: the subsidised regime counts it as income.
    QString NaturaBollo;
};

/// The stamp duty of an invoice without VAT, and the sum beyond which it is due, euro.
/// Legal source: D.P.R. 642/1972, tariff, part I, article 13, with its note 2; D.L. 43/2013, article 7-bis.
inline constexpr double ImportoBollo = 2.0;
inline constexpr double SogliaBollo = 77.47;

/// The expense of the note, or of the one associated with it, that is the stamp duty charged to the client:
/// two euro exempt, "bollo" in its description; "imposta di bollo" wins over what may be stamps of an act.
struct AddebitoBollo
{
    const TabellaRighe* Spese = nullptr;  ///< null: there is none
    int Riga = 0;

    [[nodiscard]] explicit operator bool() const { return Spese; }
    [[nodiscard]] QString Descrizione() const;
};
[[nodiscard]] AddebitoBollo TrovaAddebitoBollo(const Parcella& Nota);

/// True when an amount that becomes a line has parts of a cent.
[[nodiscard]] bool HaFrazioni(const Parcella& Nota, int Tipo);

/// The lines in the order of the document, amounts of 0 left out. Each payment on account is one negative
/// line for each base that it reduces. Their sum is the chain's base with the exempt amounts.
///
/// @param Conti the chain of the note for the print type whose rows become lines
/// @param ConBollo the expense of TrovaAddebitoBollo is the duty
[[nodiscard]] QList<LineaFattura> LineeFattura(const Parcella& Nota, const Catena& Conti,
                                               const TrattamentoFiscale& Fisco, bool ConBollo);
