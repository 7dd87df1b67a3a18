// What a decree's reference database says of the variations of the fees, and of the items and offices that
// another decree has too.
#pragma once

#include "tariffs/modTariffe.h"

#include <QHash>
#include <QList>
#include <QString>

#include <memory>
#include <optional>

struct Errore;

/// The numbers of options up to here are those of the list that the program itself has; a database counts
/// from above it.
inline constexpr int MassimoNumeroFisso = 10;

/// Everything that a list of keys or offices may hold.
inline constexpr QStringView OgniNumero = u"*";

/// An option of the percent variation.
struct OpzioneAumRid
{
    int Numero = 0;      ///< how a note's file names it
    QString Didascalia;  ///< caption of its button
    QString Limiti;      ///< two limits in percent joined by ";", the proposed one first; negative ones are a
                         ///< reduction. Empty: the free variation
    QString Gruppo = {};  ///< caption of its frame, empty for the free one
    QString Frase = {};   ///< printed, "%1" standing for the percent; empty: worded from the caption
    QString Voci = OgniNumero.toString();    ///< keys of the only items that it touches, in commas; "*": all
    QString Uffici = OgniNumero.toString();  ///< authorities that it is meant for, in commas; "*": all
    double Esatto = 0.0;  ///< exact percent behind the first limit where that is no whole one; 0: the limit

    friend bool operator==(const OpzioneAumRid&, const OpzioneAumRid&) = default;
};

inline constexpr QStringView GruppoAumenti = u" Aumenti ";
inline constexpr QStringView GruppoRiduzioni = u" Riduzioni ";

/// What each party from one number to another, both included, adds to the fees of the first.
struct FasciaParti
{
    int Da = 0;
    int A = 0;
    int Percento = 0;
    QString Articolo;

    friend bool operator==(const FasciaParti&, const FasciaParti&) = default;
};

/// The variations of a category.
struct VariazioniLette
{
    std::optional<QList<OpzioneAumRid>> Opzioni;  ///< in display order; nothing: the database has no list
    QList<FasciaParti> Parti;                     ///< empty: the number of parties changes nothing
    std::shared_ptr<const Errore> Guasto;         ///< what could not be read; rows that make no sense too
};

[[nodiscard]] VariazioniLette LeggiVariazioni(const Decreto& Legge, const QString& Categ);

/// True when a list of keys or offices ("*" or ",301,304,") holds a number.
[[nodiscard]] bool Comprende(const QString& Elenco, const QString& Numero);

/// What two decrees have in common.
enum class GenereComune { Ufficio, Voce };

/// Numbers of one decree by those of another, for what both have: authorities, or keys of items.
/// @return empty where neither database says so
/// @throws Errore as ApriTariffe
[[nodiscard]] QHash<QString, QString> LeggiCorrispondenze(const Decreto& Da, const Decreto& Verso,
                                                          const QString& Categ, GenereComune Genere);
