#include "creadati/tariffa55.h"

#include "creadati/colonne.h"
#include "creadati/tabellatesto.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using colonne::Categoria;
using colonne::Da;
using colonne::Numero;
const auto Articolo = u"articolo"_s;
const auto Frase = u"frase"_s;
const auto Ultimo = u"ultimo"_s;
const auto Terzi = u"terzi"_s;
const auto Voci = u"voci"_s;
const auto Uffici = u"uffici"_s;
const auto Genere = u"genere"_s;

/// Numbers up to here are the options of the tariff of 2012.
constexpr int PrimoNumero = 101;
constexpr int MassimoAssistiti = 999;

QString LeggiCategoria(const TabellaTesto& Tabella, int Riga)
{
    QString Letta = Tabella.Testo(Riga, Categoria);
    if (Letta != Civile && Letta != Penale && Letta != Stragiudiziale)
        Tabella.Rifiuta(Riga, Categoria, u"«%1» non è fra CIV, PEN, STR"_s.arg(Letta));
    return Letta;
}

// ---- Name ----------------------------------------------------------------------------------------

IdentitaTariffa LeggiIdentita(const QString& Cartella)
{
    const TabellaTesto Tabella(Cartella + u"tariffa55.csv"_s,
                               {u"codice"_s, u"nome"_s, u"esteso"_s, u"dal"_s, u"versione"_s});
    if (Tabella.Righe() != 1)
        Tabella.RifiutaInFondo(u"codice"_s, u"serve una riga sola"_s);
    return {Tabella.Testo(0, u"codice"_s, 4), Tabella.Testo(0, u"nome"_s, 40),
            Tabella.Testo(0, u"esteso"_s, 120), Tabella.Data(0, u"dal"_s),
            Tabella.Intero(0, u"versione"_s, 1, 32767)};
}

// ---- Variations ----------------------------------------------------------------------------------

/// "*", or numbers in commas, closed by commas, each known to `Noto`.
template <typename Conosciuto>
QString LeggiElenco(const TabellaTesto& Tabella, int Riga, const QString& Colonna, Conosciuto&& Noto)
{
    static const QRegularExpression Elenco(u"\\A,(?:[1-9][0-9]{0,4},)+\\z"_s);
    QString Letto = Tabella.Testo(Riga, Colonna, 60);
    if (Letto == u"*")
        return Letto;
    if (!Elenco.match(Letto).hasMatch())
        Tabella.Rifiuta(Riga, Colonna, u"serve * oppure un elenco di numeri chiuso fra virgole"_s);
    for (const QString& Cifra : Letto.split(u',', Qt::SkipEmptyParts))
        if (!Noto(Cifra.toInt()))
            Tabella.Rifiuta(Riga, Colonna, u"il numero %1 non è della categoria"_s.arg(Cifra));
    return Letto;
}

/// The first limit is the one that is proposed; none lies farther from nothing.
void LeggiLimiti(const TabellaTesto& Tabella, int Riga, OpzioneTariffa& Letta)
{
    const QString Segno = Tabella.Testo(Riga, u"segno"_s);
    if (Segno != u"+" && Segno != u"-")
        Tabella.Rifiuta(Riga, u"segno"_s, u"«%1» non è né + né -"_s.arg(Segno));
    Letta.Terzi = Tabella.Testo(Riga, Terzi).isEmpty() ? 0 : Tabella.Intero(Riga, Terzi, 1, 9);
    const int Verso = Segno == u"+" ? 1 : -1;
    Letta.Proposto = Verso * Tabella.Intero(Riga, u"proposto"_s, 1, 300);
    Letta.Ultimo = Verso * Tabella.Intero(Riga, Ultimo, 1, 300);
    if (std::abs(Letta.Ultimo) > std::abs(Letta.Proposto))
        Tabella.Rifiuta(Riga, Ultimo, u"il limite supera la percentuale proposta"_s);
    if (Letta.Terzi > 0 && std::abs(Letta.Proposto) != 100 * Letta.Terzi / 3)
        Tabella.Rifiuta(Riga, Terzi, u"i terzi non fanno la percentuale proposta"_s);
}

OpzioneTariffa LeggiOpzione(const TabellaTesto& Tabella, int Riga, const Tariffe& Dati)
{
    OpzioneTariffa Letta;
    Letta.Numero = Tabella.Intero(Riga, Numero, PrimoNumero, 32767);
    Letta.Categ = LeggiCategoria(Tabella, Riga);
    Letta.Ordine = Tabella.Intero(Riga, u"ordine"_s, 1, 32767);
    Letta.Didascalia = Tabella.Testo(Riga, u"didascalia"_s, 60);
    Letta.Frase = Tabella.Testo(Riga, Frase, 150);
    if (Letta.Frase.count(u"%1"_s) != 1)
        Tabella.Rifiuta(Riga, Frase, u"la frase vuole una volta %1"_s);
    Letta.Articolo = Tabella.Testo(Riga, Articolo, 40);
    LeggiLimiti(Tabella, Riga, Letta);
    Letta.Voci = LeggiElenco(Tabella, Riga, Voci, [&](int Codice) {
        return std::ranges::any_of(Dati.Voci[Letta.Categ], [&](const VoceTariffa& Voce) {
            return Voce.Codice == Codice && Voce.NVoce != VoceLibera;
        });
    });
    Letta.Uffici = LeggiElenco(Tabella, Riga, Uffici, [&](int IDAut) {
        return std::ranges::any_of(Dati.Enti, [&](const AutoritaTariffa& Ente) {
            return Ente.Categ == Letta.Categ && Ente.Dati.IDAut == IDAut;
        });
    });
    return Letta;
}

QList<OpzioneTariffa> LeggiVariazioni(const QString& Cartella, const Tariffe& Dati)
{
    const TabellaTesto Tabella(Cartella + u"variazioni55.csv"_s,
                               {Numero, Categoria, u"ordine"_s, u"didascalia"_s, Frase, Articolo, u"segno"_s,
                                u"proposto"_s, Ultimo, Terzi, Voci, Uffici});
    QList<OpzioneTariffa> Lette;
    QSet<int> Viste;
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        Lette.append(LeggiOpzione(Tabella, Riga, Dati));
        if (Viste.contains(Lette.last().Numero))
            Tabella.Rifiuta(Riga, Numero,
                            u"il numero %1 è già in una riga precedente"_s.arg(Lette.last().Numero));
        Viste.insert(Lette.last().Numero);
    }
    return Lette;
}

// ---- Parties -------------------------------------------------------------------------------------

/// The second party is the first that raises anything; from there on the rows of a category leave none out.
QList<PartiTariffa> LeggiParti(const QString& Cartella)
{
    const TabellaTesto Tabella(Cartella + u"parti55.csv"_s, {Categoria, Da, u"a"_s, u"percento"_s, Articolo});
    QList<PartiTariffa> Lette;
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        PartiTariffa Letta;
        Letta.Categ = LeggiCategoria(Tabella, Riga);
        Letta.Da = Tabella.Intero(Riga, Da, 2, MassimoAssistiti);
        Letta.A = Tabella.Intero(Riga, u"a"_s, Letta.Da, MassimoAssistiti);
        Letta.Perc = Tabella.Intero(Riga, u"percento"_s, 1, 100);
        Letta.Articolo = Tabella.Testo(Riga, Articolo, 40);
        int Attesa = 2;
        for (const PartiTariffa& Prima : Lette)
            if (Prima.Categ == Letta.Categ)
                Attesa = Prima.A + 1;
        if (Letta.Da != Attesa)
            Tabella.Rifiuta(Riga, Da, u"doveva cominciare da %1"_s.arg(Attesa));
        Lette.append(Letta);
    }
    return Lette;
}

// ---- What corresponds to what --------------------------------------------------------------------

QList<CorrispondenzaTariffa> LeggiCorrispondenze(const QString& Cartella, const Tariffe& Dati)
{
    const TabellaTesto Tabella(Cartella + u"corrispondenze55.csv"_s,
                               {Genere, Categoria, u"precedente"_s, u"codice"_s});
    QList<CorrispondenzaTariffa> Lette;
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        const QString Letto = Tabella.Testo(Riga, Genere);
        if (Letto != u"A" && Letto != u"V")
            Tabella.Rifiuta(Riga, Genere, u"«%1» non è né A né V"_s.arg(Letto));
        const CorrispondenzaTariffa Pari{Letto == u"A", LeggiCategoria(Tabella, Riga),
                                         Tabella.Intero(Riga, u"precedente"_s, 1, 32767),
                                         Tabella.Intero(Riga, u"codice"_s, 1, 32767)};
        const bool Noto =
            Pari.Ufficio
                ? std::ranges::any_of(Dati.Enti,
                                      [&](const AutoritaTariffa& Ente) {
                                          return Ente.Categ == Pari.Categ && Ente.Dati.IDAut == Pari.Codice;
                                      })
                : std::ranges::any_of(Dati.Voci[Pari.Categ],
                                      [&](const VoceTariffa& Voce) { return Voce.Codice == Pari.Codice; });
        if (!Noto)
            Tabella.Rifiuta(Riga, u"codice"_s, u"il numero %1 non è della categoria"_s.arg(Pari.Codice));
        Lette.append(Pari);
    }
    return Lette;
}

}  // namespace

void LeggiParticolari(const QString& Cartella, Tariffe& Dati)
{
    Dati.Identita = LeggiIdentita(Cartella);
    Dati.Variazioni = LeggiVariazioni(Cartella, Dati);
    Dati.Parti = LeggiParti(Cartella);
    Dati.Corrispondenze = LeggiCorrispondenze(Cartella, Dati);
}
