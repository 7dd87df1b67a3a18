// The tariff as the text tables tell it, checked against itself: what parcelle.mdb is written from.
//
// Tables (dati/FONTI.md tells where the figures come from):
//   autorita.csv                categoria;ordine;numero;nome;gruppo;precarica;compatibili
//   scaglioni.csv               materia;numero;da;a;valore richiesto;testo
//   voci.csv                    categoria;codice;voce;ordine;descrizione;quantità
//   onorari_civili.csv          gruppo;codice;scaglione;minimo;medio;massimo
//   onorari_penali.csv          gruppo;codice;minimo;medio;massimo
//   onorari_stragiudiziali.csv  codice;scaglione;minimo;massimo      (formulas in x)
//   spese.csv                   codice;voce;ordine;descrizione
//   chiavi_precedenti.csv       categoria;precedente;codice
// A group is a set of authorities with the same amounts; it has a name of its own in each category.
#pragma once

#include "tariffs/modTariffe.h"

#include <QHash>
#include <QList>
#include <QString>

#include <map>
#include <tuple>

/// An authority with all that its row in the database needs.
struct AutoritaTariffa
{
    QString Categ;
    int IDX = 0;
    Autorita Dati;
    QString Gruppo;    ///< empty for extrajudicial bodies, whose amounts hang on the value alone
    QString Compatib;  ///< "*", or numbers in commas, closed by commas
};

/// A catalogue item.
struct VoceTariffa
{
    int Codice = 0;  ///< key; no other category has it, but for the free item, which is the same in all
    int NVoce = 0;
    int NVis = 0;  ///< display order; 0 hides the item where the catalogue filters on it
    QString Descrizione;
    QString Quantita;  ///< quantity rule, empty for none
};

/// Amounts in euro.
struct Terna
{
    double Minimo = 0.0;
    double Medio = 0.0;
    double Massimo = 0.0;
};

/// Texts in the variable x, the value of the case in euro.
struct Formule
{
    QString Minimo;
    QString Massimo;
};

/// Place of an amount: group, item, bracket. Criminal amounts have no bracket (0), formulas no group.
struct ChiaveImporto
{
    QString Gruppo;
    int Codice = 0;
    int Scaglione = 0;

    friend bool operator<(const ChiaveImporto& A, const ChiaveImporto& B)
    {
        return std::tie(A.Gruppo, A.Codice, A.Scaglione) < std::tie(B.Gruppo, B.Codice, B.Scaglione);
    }
};

/// The key that an item had when those of the categories were not apart.
struct ChiavePrecedente
{
    QString Categ;
    int Precedente = 0;
    int Codice = 0;
};

struct Tariffe
{
    QList<AutoritaTariffa> Enti;
    QHash<QString, QList<ScaglioneValore>> Scaglioni;  ///< by matter, in the table's order
    QHash<QString, QList<VoceTariffa>> Voci;           ///< by category
    std::map<ChiaveImporto, Terna> Civili;
    std::map<ChiaveImporto, Terna> Penali;
    std::map<ChiaveImporto, Formule> Stragiudiziali;
    QList<VoceTariffa> Spese;
    QList<ChiavePrecedente> Precedenti;
};

/// Reads and checks the tables of a folder.
///
/// @throws Errore 53 a table is missing, 5 a table is refused: the sentence names file, row and column
[[nodiscard]] Tariffe LeggiTariffe(const QString& Cartella);
