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
// The tariff of 2014 has tables of its own, with 55 behind their names: offices, brackets and items in the
// same form, and in place of the amounts the decree's figures, from which they follow (compensi.h,
// tariffa55.h):
//   compensi55.csv     categoria;gruppo;tabella;codice;da;a;medio;unità;aumento;diminuzione;fonte
//   gradini55.csv      scaglione;da;aumento
//   variazioni55.csv
//   numero;categoria;ordine;didascalia;frase;articolo;segno;proposto;ultimo;terzi;voci;uffici parti55.csv
//   categoria;da;a;percento;articolo corrispondenze55.csv  genere;categoria;precedente;codice      (A an
//   office, V an item) tariffa55.csv      codice;nome;esteso;dal;versione
// A group is a set of authorities with the same amounts; it has a name of its own in each category.
#pragma once

#include "tariffs/modTariffe.h"

#include <QDate>
#include <QHash>
#include <QList>
#include <QString>

#include <map>
#include <set>
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

/// How a tariff calls itself.
struct IdentitaTariffa
{
    QString Codice;  ///< empty: the tariff of 2012, whose database does not say
    QString Nome;
    QString Esteso;
    QDate Dal;  ///< first day of services that its figures are for
    int Versione = 0;
};

/// An increase or reduction that a tariff gives a name.
struct OpzioneTariffa
{
    int Numero = 0;
    QString Categ;
    int Ordine = 0;
    QString Didascalia;
    QString Frase;  ///< as documents print it, with %1 where the percent stands
    QString Articolo;
    int Proposto = 0;  ///< signed percent, the limit farthest from nothing
    int Ultimo = 0;    ///< the other limit, of the same sign
    int Terzi = 0;     ///< thirds of the whole that the proposed percent stands for; 0: it is exact
    QString Voci;      ///< "*", or keys of the items that it touches in commas, closed by commas
    QString Uffici;    ///< "*", or offices that it is meant for in the same form
};

/// Percent for each party from one to another, both counted.
struct PartiTariffa
{
    QString Categ;
    int Da = 0;
    int A = 0;
    int Perc = 0;
    QString Articolo;
};

/// The same office, or the same item, in the tariff of 2012 and in this one.
struct CorrispondenzaTariffa
{
    bool Ufficio = false;  ///< an office, otherwise an item
    QString Categ;
    int Precedente = 0;  ///< number or key of 2012
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
    IdentitaTariffa Identita;
    QList<OpzioneTariffa> Variazioni;
    QList<PartiTariffa> Parti;
    QList<CorrispondenzaTariffa> Corrispondenze;  ///< of several for one, the first is meant
    std::set<ChiaveImporto> Dubbi;                ///< amounts that the official text was not read for
};

/// Reads and checks the tables of a folder.
///
/// @throws Errore 53 a table is missing, 5 a table is refused: the sentence names file, row and column
[[nodiscard]] Tariffe LeggiTariffe(const QString& Cartella);
/// The same for the tariff of 2014; its expenses are those of the other.
[[nodiscard]] Tariffe LeggiTariffa55(const QString& Cartella);

/// The two tariffs against each other. A line of a note tells its tariff by its key alone: no key of an item
/// and no number of an office is in both, and what corresponds to something of 2012 finds it there.
///
/// @throws Errore 5 the first one that does not
void ConfrontaTariffe(const Tariffe& Del2012, const Tariffe& Del2014);
