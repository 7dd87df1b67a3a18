// Codes of the electronic invoice that a rule asks for by what they mean. The lists that are offered stand in
// feenote/einvoice/codici.h, tax regimes and kinds of withholding in core/modRegimi.h.
#pragma once

#include <QStringView>

namespace codici {

inline constexpr QStringView Fattura = u"TD01";
inline constexpr QStringView NotaDiCredito = u"TD04";
inline constexpr QStringView AutofatturaSplafonamento = u"TD21";

/// The pension fund of lawyers.
inline constexpr QStringView CassaForense = u"TC01";

inline constexpr QStringView Bonifico = u"MP05";

/// What stands for expenses laid out in the client's name, D.P.R. 633/1972 art. 15.
inline constexpr QStringView NaturaEsenti = u"N1";
/// Outside the territory, D.P.R. 633/1972 artt. 7 to 7-septies.
inline constexpr QStringView FuoriTerritorio = u"N2.1";
/// Not subject for another reason: what a regime without VAT bears.
inline constexpr QStringView NonSoggetta = u"N2.2";
inline constexpr QStringView DichiarazioneIntento = u"N3.5";
inline constexpr QStringView Esente = u"N4";

}  // namespace codici
