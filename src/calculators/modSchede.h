// The sheets of the single calculators.
#pragma once

#include "calculators/modContributo.h"
#include "calculators/modInteressi.h"
#include "calculators/modIstat.h"
#include "calculators/modLeggiCodFis.h"
#include "calculators/modScheda.h"

/// A typed amount as "1.000,00", with all the decimals that it was reckoned with ("1.000,005"); a text that
/// is no number as it is.
[[nodiscard]] QString ImportoScritto(const QString& Testo);

/// The interest lines of a calculation that was carried out; no lines make a sheet without a result.
/// @param Note under the total, such as that it reaches beyond the rates
[[nodiscard]] SchedaCalcolo SchedaInteressi(const DatiInteressi& Dati, const TabellaRighe& Righe,
                                            const QString& Totale, const QStringList& Note,
                                            const QStringList& EtaDati);

/// The elements of a revaluation, each with its name; one that came to no end makes a sheet without a result.
[[nodiscard]] SchedaCalcolo SchedaIstat(const DatiIstat& Dati, const RisultatiIstat& Risultati,
                                        const QStringList& Note, const QStringList& EtaDati);

/// Whose code was computed.
struct PersonaCodFis
{
    QString Cognome;
    QString Nome;
    QString Nascita;  ///< as the box shows it
    QString Sesso;
    QString Comune;
    QString Codice;  ///< the result
};
/// @param Avvertenza the window's standing note
[[nodiscard]] SchedaCalcolo SchedaCodFis(const PersonaCodFis& Persona, const QString& Avvertenza,
                                         const QStringList& EtaDati);

/// What a code says of its person.
/// @param Comune the town in words
[[nodiscard]] SchedaCalcolo SchedaLettura(const LetturaCodFis& Lettura, const QString& Comune,
                                          const QStringList& EtaDati);
/// The same as lines "Data di nascita: 05/08/1985", for window and sheet.
[[nodiscard]] QStringList RigheLettura(const LetturaCodFis& Lettura, const QString& Comune);

/// What a field of the page is for, in a few words: the section, and the number in it.
[[nodiscard]] QString TitoloCampo(int Campo);
/// The fees of the page, a row for each field that has one.
[[nodiscard]] SchedaCalcolo SchedaContributo(const TestiContributo& Valori,
                                             const TestiContributo& Contributi);
