// The rate archive as the text tables tell it, checked against itself: what Tassi.dat is written from.
//
// Tables (dati/FONTI.md tells where the figures come from):
//   tassi_legali.csv, tassi_mora.csv   dal;al;tasso              (percent a year)
//   indici_foi.csv                     anno;gennaio;...;dicembre (empty behind the latest month)
//   basi_foi.csv                       base;dal;al;raccordo      (from the former base to this one)
#pragma once

#include <QDate>
#include <QList>
#include <QString>

/// A rate and the days it holds for, both included.
struct TassoPeriodo
{
    QDate Dal;
    QDate Al;
    double TassoPerc = 0.0;
};

/// The index of one month.
struct IndiceMese
{
    int Anno = 0;
    int Mese = 0;
    double Indice = 0.0;
};

/// The months whose indices stand on one base.
struct BaseIndici
{
    QDate Dal;
    QDate Al;
    double Raccordo = 1.0;  ///< times an index of this base gives one of the former base
};

/// What carries an index of the final period to the base of the initial one.
struct CoefficienteRaccordo
{
    double Coefficiente = 1.0;
    BaseIndici Iniziale;
    BaseIndici Finale;
};

struct Tassi
{
    QList<TassoPeriodo> Legali;
    QList<TassoPeriodo> Mora;
    QList<IndiceMese> Indici;
    QList<BaseIndici> Basi;
};

/// How new the figures are: the last day of the latest month with an index, or the first day of the latest
/// rate, whichever is later.
[[nodiscard]] QDate DataDeiTassi(const Tassi& Dati);

/// Reads and checks the tables of a folder: periods follow one another without gap or overlap, no month is
/// missing between the first and the latest, every index has a base.
/// @throws Errore 53 a table is missing, 5 a table is refused: the sentence names file, row and column
[[nodiscard]] Tassi LeggiTassi(const QString& Cartella);

/// One coefficient for each pair of bases, the final one not before the initial one: the product of the links
/// between them, with 10 decimals, so that every pair of days in order falls on exactly one.
[[nodiscard]] QList<CoefficienteRaccordo> Coefficienti(const QList<BaseIndici>& Basi);
