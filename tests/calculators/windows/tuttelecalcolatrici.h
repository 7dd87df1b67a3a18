// Every calculator once, for what all of them have in common: how it is opened and filled, and what it
// answers.
#pragma once

#include "bancocalcoli.h"

#include "calculators/calcolatrici.h"
#include "calculators/windows/frmCodFis.h"
#include "calculators/windows/frmContrib.h"
#include "calculators/windows/frmInteressi.h"
#include "calculators/windows/frmIstat.h"
#include "calculators/windows/frmTermini.h"
#include "calculators/windows/frmTerminiSeq.h"

#include <algorithm>
#include <array>

inline void CalcolaTermine(QDialog* F, int Quale)
{
    Scrivi(F, "mskDecorr", QStringLiteral("20072012"));
    Scrivi(F, "txtIncrNum", QString::number(20 + Quale));
    Clic(Controllo(F, "cmdEsegui"));
}

inline void CalcolaSequenza(QDialog* F, int Quale)
{
    Scegli(F, "cmbArticolo", Quale % 2);
    Scrivi(F, "mskDecorr", Quale < 2 ? QStringLiteral("12112012") : QStringLiteral("10072012"));
    Clic(Controllo(F, "cmdEsegui"));
}

inline void CalcolaInteressi(QDialog* F, int Quale)
{
    Scegli(F, "cmbInteressi", Quale % 2);
    Scrivi(F, "txtCapitale", QString::number(1000 * (Quale + 1)));
    Scrivi(F, "mskDataIni", QStringLiteral("01012012"));
    Scrivi(F, "mskDataFin", QStringLiteral("31122012"));
    Clic(Controllo(F, "cmdCalcola"));
}

inline void CalcolaIstat(QDialog* F, int Quale)
{
    Scrivi(F, "mskDataIni", QStringLiteral("01012020"));
    Scrivi(F, "mskDataFin", QStringLiteral("01012024"));
    Scrivi(F, "txtImporto", QString::number(1000 * (Quale + 1)));
    Clic(Controllo(F, "cmdCalcola"));
}

inline void CalcolaCodice(QDialog* F, int Quale)
{
    Scrivi(F, "txtCognome", Quale == 0 ? QStringLiteral("Rossi") : QStringLiteral("Fo"));
    Scrivi(F, "txtNome", Quale == 0 ? QStringLiteral("Mario") : QStringLiteral("Anna"));
    Scrivi(F, "txtDataNascita", QStringLiteral("01011980"));
    Scegli(F, "cboSesso", Quale % 2);
    Scrivi(F, "txtComune", QStringLiteral("roma"));
    Premi(Qt::Key_Return);
}

inline void CalcolaContributo(QDialog* F, int Quale)
{
    Scrivi(F, "txtValore_0", QString::number(1000 * (Quale + 1)));
    Premi(Qt::Key_Return);
}

/// A calculator in the words of the tests. `Calcola` makes another calculation of each number; the answers
/// are those of number 0.
struct CalcolatriceProvata
{
    Calcolatrice Quale;
    QDialog* (*Apri)();
    void (*Calcola)(QDialog* F, int Numero);
    const char* Chiede;  ///< button that asks in a box for what an empty window lacks; null: none does
    const char* Risultato;
    QStringView Atteso;  ///< what the result shows
    QStringView Nome;    ///< in the list of the last calculations
    QStringView Esito;   ///< there too
    QStringView Detto;   ///< part of what a screen reader is told
};

template <class Modulo>
QDialog* ApriCalcolatrice()
{
    return Apri<Modulo>();
}

/// A row for each calculator of the program, in its order: a new one does not compile without its row.
inline constexpr std::array TutteLeCalcolatrici{
    CalcolatriceProvata{.Quale = Calcolatrice::Termini,
                        .Apri = ApriCalcolatrice<frmTermini>,
                        .Calcola = CalcolaTermine,
                        .Chiede = "cmdEsegui",
                        .Risultato = "lblRisult",
                        .Atteso = u"La scadenza è Lunedì,  24 Settembre  2012\n(Posticipata)",
                        .Nome = u"Termine di 20 giorni dal 20/07/2012",
                        .Esito = u"Lunedì, 24 Settembre 2012 (Posticipata)",
                        .Detto = u"2012"},
    CalcolatriceProvata{.Quale = Calcolatrice::Sequenziali,
                        .Apri = ApriCalcolatrice<frmTerminiSeq>,
                        .Calcola = CalcolaSequenza,
                        .Chiede = "cmdEsegui",
                        .Risultato = "lblRisult",
                        .Atteso = u"\n  1° termine (30 giorni):  Mercoledì,  12 Dicembre  2012\n\n"
                                  "  2° termine (30 giorni):  Venerdì,  11 Gennaio  2013\n\n"
                                  "  3° termine (20 giorni):  Giovedì,  31 Gennaio  2013",
                        .Nome = u"Art. 183, 6° co. cpc (deposito memorie), udienza del 12/11/2012",
                        .Esito = u"12/12/2012, 11/01/2013, 31/01/2013",
                        .Detto = u"201"},
    CalcolatriceProvata{.Quale = Calcolatrice::Interessi,
                        .Apri = ApriCalcolatrice<frmInteressi>,
                        .Calcola = CalcolaInteressi,
                        .Chiede = "cmdCalcola",
                        .Risultato = "lblTotale",
                        .Atteso = u"25,07",
                        .Nome = u"Legali, 1.000,00 euro dal 01/01/2012 al 31/12/2012",
                        .Esito = u"25,07 euro",
                        .Detto = u"25,07"},
    CalcolatriceProvata{.Quale = Calcolatrice::Istat,
                        .Apri = ApriCalcolatrice<frmIstat>,
                        .Calcola = CalcolaIstat,
                        .Chiede = "cmdCalcola",
                        .Risultato = "lblImpRival",
                        .Atteso = u"1.161,64  ",
                        .Nome = u"1.000,00 euro dal 01/01/2020 al 01/01/2024",
                        .Esito = u"1.161,64 euro",
                        .Detto = u"1.1"},
    CalcolatriceProvata{.Quale = Calcolatrice::CodiceFiscale,
                        .Apri = ApriCalcolatrice<frmCodFis>,
                        .Calcola = CalcolaCodice,
                        .Chiede = nullptr,
                        .Risultato = "txtCodiceFiscale",
                        .Atteso = u"RSSMRA80A01H501U",
                        .Nome = u"Rossi Mario",
                        .Esito = u"RSSMRA80A01H501U",
                        .Detto = u"RSSMRA80A01H501U"},
    CalcolatriceProvata{.Quale = Calcolatrice::Contributo,
                        .Apri = ApriCalcolatrice<frmContrib>,
                        .Calcola = CalcolaContributo,
                        .Chiede = "cmdSkImpugn",
                        .Risultato = "lblContr_0",
                        .Atteso = u"43,00",
                        .Nome = u"Contributo ordinario, valore 1.000,00",
                        .Esito = u"43,00 euro",
                        .Detto = u"43,00"},
};
static_assert(TutteLeCalcolatrici.size() == TabellaCalcolatrici.size());
static_assert(std::ranges::equal(TutteLeCalcolatrici, TabellaCalcolatrici, {}, &CalcolatriceProvata::Quale,
                                 &NomiCalcolatrice::Quale));

/// A row of a test for each of them, its place in the column "Quale".
/// @param CheChiedono those alone that ask in a box
inline void RigheCalcolatrici(bool CheChiedono = false)
{
    QTest::addColumn<int>("Quale");
    for (size_t i = 0; i < TutteLeCalcolatrici.size(); ++i)
        if (TutteLeCalcolatrici[i].Chiede || !CheChiedono)
            QTest::newRow(qPrintable(TabellaCalcolatrici[i].NelFile.toString())) << int(i);
}

/// The one of the row that runs.
inline const CalcolatriceProvata& QuestaCalcolatrice()
{
    return TutteLeCalcolatrici[size_t(*static_cast<const int*>(QTest::qData("Quale", QMetaType::Int)))];
}
