// What the composition of an electronic invoice finds missing, and the texts that it makes fit.
#pragma once

#include "feenote/einvoice/fattura.h"
#include "feenote/einvoice/testi.h"

/// A text of the document: what a sentence calls it, the room that it has.
struct CampoDiTesto
{
    CampoFattura Dove = CampoFattura::Nessuno;
    QStringView Nome;  ///< "la denominazione del cliente"
    qsizetype Massimo = 0;
};

/// Gathers sentences while a document is composed.
class Raccolta
{
public:
    void Manca(CampoFattura Dove, const QString& Frase);
    void Avvisa(CampoFattura Dove, const QString& Frase);

    /// A text that may be shortened, which is told.
    [[nodiscard]] QString Testo(const QString& Scritto, const CampoDiTesto& Campo);
    /// The same, as long as it is.
    [[nodiscard]] QString TestoIntero(const QString& Scritto, const CampoDiTesto& Campo);
    /// A text of the first 128 characters alone that nobody may shorten, a number for instance.
    [[nodiscard]] QString Sigla(const QString& Scritto, const CampoDiTesto& Campo);

    /// One sentence for all characters that were written otherwise.
    void ChiudiTesti();

    QList<MancanzaFattura> Mancanze;
    QList<AvvisoFattura> Avvisi;

private:
    [[nodiscard]] QString Pulisci(const QString& Scritto, const CampoDiTesto& Campo,
                                  AlfabetoFattura Alfabeto);

    QString Cambiati;
};
