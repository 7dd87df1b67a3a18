// How old the data of the calculators are, in words and in three grades, and what they do not reach.
#pragma once

#include "calculators/norme/norme.h"

/// Fresh: nothing is missing that has been published. Old: something may be out. Stale: it is out for long.
enum class GradoEta { Fresco, Vecchio, Stantio };

struct EtaDati
{
    GradoEta Grado = GradoEta::Fresco;
    QDate FinoAl;    ///< the last day that the data cover
    QString Frase;   ///< "Tassi legali fino al 31/12/2026."
    QString Attesa;  ///< what is not published yet or may be out: "Saggio 2027 non ancora pubblicato."; may
                     ///< be empty
};

/// The last days that the rate archive covers. @throws Errore those of OpenDatabase and Recordset
struct CoperturaTassi
{
    QDate Legali;  ///< last day of the last row; null: no row
    QDate Mora;
    QDate Indici;  ///< last day of the last month with an index
};
[[nodiscard]] CoperturaTassi LeggiCopertura(const QString& Archivio);

[[nodiscard]] EtaDati EtaLegali(const CoperturaTassi& Tassi, const QDate& Oggi);
[[nodiscard]] EtaDati EtaMora(const CoperturaTassi& Tassi, const QDate& Oggi);
[[nodiscard]] EtaDati EtaIndici(const CoperturaTassi& Tassi, const QDate& Oggi);
[[nodiscard]] EtaDati EtaNorme(const Norme& Insieme, const QDate& Oggi);

/// The note under a result that reaches beyond the data, empty when it does not:
/// "Il risultato va oltre i dati: tassi legali fino al 31/12/2026."
[[nodiscard]] QString NotaOltre(const EtaDati& Eta, const QDate& Fine);

/// What the set "in vigore" proposes for default interest.
struct PropostaMora
{
    bool Dopo2012 = false;  ///< transaction concluded after 31/12/2012, one point more
    QString Nota;           ///< the rule of that day, for the user
};
/// @param DataIni first day of the interest
[[nodiscard]] PropostaMora ProponiMora(InsiemeNorme Insieme, const QDate& DataIni);
