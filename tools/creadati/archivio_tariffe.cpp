#include "creadati/archivio_tariffe.h"

#include "creadati/formule.h"
#include "creadati/scrittura.h"
#include "feenote/file/colonne.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto Lungo = TipoCampo::Lungo;
constexpr auto Intero = TipoCampo::Intero;
constexpr auto Doppio = TipoCampo::Doppio;
constexpr auto Booleano = TipoCampo::Booleano;

/// The type of the columns nMin and nMax is the catalogue's own; nMed is a number in all three.
QList<Campo> ColonneImporti(const QList<int>& Numeri, const Campo& MinMax)
{
    QList<Campo> Colonne;
    for (const int Numero : Numeri) {
        Colonne.append(CampoDi(Doppio, QString::number(Numero) + u"Med"_s));
        for (const auto& Estremo : {u"Min"_s, u"Max"_s}) {
            Colonne.append(MinMax);
            Colonne.last().Name = QString::number(Numero) + Estremo;
        }
    }
    return Colonne;
}

/// What follows the keys in every catalogue.
QList<Campo> ColonneVoce()
{
    return {CampoTesto(u"NVoce"_s, 10), CampoDi(Intero, u"NVis"_s), CampoTesto(u"DescrOno"_s, 60),
            CampoTesto(u"QtaOno"_s, 20)};
}

QVariantList CelleVoce(const VoceTariffa& Voce)
{
    return {QString::number(Voce.NVoce), Voce.NVis, Voce.Descrizione, Voce.Quantita};
}

/// An item without an amount has Null; the free one, whose amount is typed, has nothing.
QVariantList CelleTerna(const std::map<ChiaveImporto, Terna>& Importi, const ChiaveImporto& Chiave,
                        const VoceTariffa& Voce)
{
    const auto Trovata = Importi.find(Chiave);
    if (Trovata != Importi.end())
        return {Trovata->second.Medio, Trovata->second.Minimo, Trovata->second.Massimo};
    const QVariant Vuota = Voce.NVoce == VoceLibera ? QVariant(0.0) : QVariant();
    return {Vuota, Vuota, Vuota};
}

QList<int> NumeriScaglioni(const Tariffe& Dati, const QString& Materia)
{
    QList<int> Numeri;
    for (const ScaglioneValore& Uno : Dati.Scaglioni[Materia])
        Numeri.append(Uno.NumSca);
    return Numeri;
}

QList<AutoritaTariffa> EntiDi(const Tariffe& Dati, QStringView Categ)
{
    QList<AutoritaTariffa> Enti;
    std::ranges::copy_if(Dati.Enti, std::back_inserter(Enti),
                         [&](const AutoritaTariffa& Ente) { return Ente.Categ == Categ; });
    return Enti;
}

void ScriviEnti(const Database& Db, const Tariffe& Dati, const TabellaNuova& Tabella)
{
    for (const AutoritaTariffa& Ente : Dati.Enti)
        AggiungiRiga(
            Db, Tabella,
            {Ente.Dati.IDAut, Ente.Dati.DesAut, Ente.Categ, Ente.Dati.PreLoad, Ente.Compatib, Ente.IDX});
}

void ScriviScaglioni(const Database& Db, const Tariffe& Dati, const TabellaNuova& Tabella)
{
    for (const auto& Materia : {u"C"_s, u"S"_s}) {
        for (const ScaglioneValore& Uno : Dati.Scaglioni[Materia])
            AggiungiRiga(Db, Tabella, {Materia, Uno.NumSca, Uno.DesVal, Uno.DaVal, Uno.AVal, Uno.RicValore});
    }
}

/// One row for each authority and item of its group. The free item stands once, under no authority:
/// the catalogue's query shows it for all.
void ScriviCivili(const Database& Db, const Tariffe& Dati, const TabellaNuova& Tabella)
{
    const QList<int> Numeri = NumeriScaglioni(Dati, u"C"_s);
    const auto Riga = [&](const VoceTariffa& Voce, int IDAutor, const QString& Gruppo) {
        QVariantList Celle = QVariantList{QString::number(Voce.Codice), IDAutor} + CelleVoce(Voce);
        for (const int Numero : Numeri)
            Celle += CelleTerna(Dati.Civili, {Gruppo, Voce.Codice, Numero}, Voce);
        AggiungiRiga(Db, Tabella, Celle);
    };
    for (const AutoritaTariffa& Ente : EntiDi(Dati, Civile)) {
        for (const VoceTariffa& Voce : Dati.Voci[Ente.Categ]) {
            if (Dati.Civili.contains({Ente.Gruppo, Voce.Codice, Numeri.first()}))
                Riga(Voce, Ente.Dati.IDAut, Ente.Gruppo);
        }
    }
    for (const VoceTariffa& Voce : Dati.Voci[Civile.toString()]) {
        if (Voce.NVoce == VoceLibera)
            Riga(Voce, 0, {});
    }
}

void ScriviPenali(const Database& Db, const Tariffe& Dati, const TabellaNuova& Tabella)
{
    for (const VoceTariffa& Voce : Dati.Voci[Penale.toString()]) {
        QVariantList Celle = QVariantList{Voce.Codice, QString::number(Voce.Codice)} + CelleVoce(Voce);
        for (const AutoritaTariffa& Ente : EntiDi(Dati, Penale))
            Celle += CelleTerna(Dati.Penali, {Ente.Gruppo, Voce.Codice, 0}, Voce);
        AggiungiRiga(Db, Tabella, Celle);
    }
}

/// nMed stays Null: the medium is the mid-point of the two formulas' values. The free item has none.
void ScriviStragiudiziali(const Database& Db, const Tariffe& Dati, const TabellaNuova& Tabella)
{
    for (const VoceTariffa& Voce : Dati.Voci[Stragiudiziale.toString()]) {
        QVariantList Celle = QVariantList{Voce.Codice, QString::number(Voce.Codice)} + CelleVoce(Voce);
        for (const int Numero : NumeriScaglioni(Dati, u"S"_s)) {
            const auto Trovate = Dati.Stragiudiziali.find({QString(), Voce.Codice, Numero});
            const Formule Lette = Trovate == Dati.Stragiudiziali.end() ? Formule{} : Trovate->second;
            Celle += QVariantList{QVariant(), Lette.Minimo, Lette.Massimo};
        }
        AggiungiRiga(Db, Tabella, Celle);
    }
}

void ScriviSpese(const Database& Db, const Tariffe& Dati, const TabellaNuova& Tabella)
{
    for (const VoceTariffa& Voce : Dati.Spese)
        AggiungiRiga(Db, Tabella, {Voce.Codice, QString::number(Voce.NVoce), Voce.Descrizione, Voce.NVis});
}

/// Notes saved when the catalogues had keys in common find their items by this.
void ScriviPrecedenti(const Database& Db, const Tariffe& Dati, const TabellaNuova& Tabella)
{
    for (const ChiavePrecedente& Chiave : Dati.Precedenti)
        AggiungiRiga(Db, Tabella,
                     {Chiave.Categ, QString::number(Chiave.Precedente), QString::number(Chiave.Codice)});
}

// ---- What the tariff of 2014 has beside ----------------------------------------------------------

void ScriviIdentita(const Database& Db, const Tariffe& Dati, const TabellaNuova& Tabella)
{
    const IdentitaTariffa& Identita = Dati.Identita;
    AggiungiRiga(Db, Tabella,
                 {Identita.Codice, Identita.Nome, Identita.Esteso, Identita.Dal.toString(u"dd/MM/yyyy"_s),
                  Identita.Versione});
}

/// The limits are written as the program reads those of its own options: the proposed one, ";", the other.
void ScriviVariazioni(const Database& Db, const Tariffe& Dati, const TabellaNuova& Tabella)
{
    for (const OpzioneTariffa& Opzione : Dati.Variazioni)
        AggiungiRiga(Db, Tabella,
                     {Opzione.Numero, Opzione.Categ, Opzione.Ordine, Opzione.Didascalia, Opzione.Frase,
                      Opzione.Articolo, u"%1;%2"_s.arg(Opzione.Proposto).arg(Opzione.Ultimo), Opzione.Voci,
                      Opzione.Uffici, Opzione.Terzi > 0 ? QVariant(100.0 * Opzione.Terzi / 3) : QVariant()});
}

void ScriviParti(const Database& Db, const Tariffe& Dati, const TabellaNuova& Tabella)
{
    for (const PartiTariffa& Parti : Dati.Parti)
        AggiungiRiga(Db, Tabella, {Parti.Categ, Parti.Da, Parti.A, Parti.Perc, Parti.Articolo});
}

void ScriviCorrispondenze(const Database& Db, const Tariffe& Dati, const TabellaNuova& Tabella)
{
    for (const CorrispondenzaTariffa& Pari : Dati.Corrispondenze)
        AggiungiRiga(Db, Tabella, {Pari.Ufficio ? u"A"_s : u"V"_s, Pari.Categ, Pari.Precedente, Pari.Codice});
}

TabellaNuova TabellaIdentita()
{
    return {u"Tariffa"_s,
            {CampoTesto(u"Codice"_s, 4), CampoTesto(u"Nome"_s, 40), CampoTesto(u"Esteso"_s, 120),
             CampoTesto(u"Dal"_s, 10), CampoDi(Intero, u"Versione"_s)}};
}

TabellaNuova TabellaVariazioni()
{
    return {u"Variazioni"_s,
            {CampoDi(Lungo, u"IDVar"_s), CampoTesto(u"Categ"_s, 3), CampoDi(Intero, u"Ordine"_s),
             CampoTesto(u"Didascalia"_s, 60), CampoTesto(u"Frase"_s, 150), CampoTesto(u"Articolo"_s, 40),
             CampoTesto(u"Limiti"_s, 10), CampoTesto(u"Voci"_s, 60), CampoTesto(u"Uffici"_s, 60),
             CampoDi(Doppio, u"Esatto"_s)}};
}

TabellaNuova TabellaParti()
{
    return {u"PartiAssistite"_s,
            {CampoTesto(u"Categ"_s, 3), CampoDi(Intero, u"Da"_s), CampoDi(Intero, u"A"_s),
             CampoDi(Intero, u"Perc"_s), CampoTesto(u"Articolo"_s, 40)}};
}

TabellaNuova TabellaCorrispondenze()
{
    return {u"Corrispondenze"_s,
            {CampoTesto(u"Genere"_s, 1), CampoTesto(u"Categ"_s, 3), CampoDi(Lungo, u"Codice140"_s),
             CampoDi(Lungo, u"Codice"_s)}};
}

// ---- Tables --------------------------------------------------------------------------------------

TabellaNuova TabellaEnti()
{
    return {u"Autorità"_s,
            {CampoDi(Lungo, u"IDAut"_s), CampoTesto(u"DesAut"_s, 100), CampoTesto(u"TipoAut"_s, 3),
             CampoDi(Booleano, u"PreLoad"_s), CampoTesto(u"Compatib"_s, 255), CampoDi(Intero, u"IDX"_s)}};
}

TabellaNuova TabellaScaglioni()
{
    return {u"Scaglioni"_s,
            {CampoTesto(u"Materia"_s, 1), CampoDi(Intero, u"NumSca"_s), CampoTesto(u"DesVal"_s, 100),
             CampoDi(Doppio, u"DaVal"_s), CampoDi(Doppio, u"AVal"_s), CampoDi(Booleano, u"RicValore"_s)}};
}

TabellaNuova TabellaCivili(const Tariffe& Dati)
{
    return {u"OnorariCiv"_s, QList<Campo>{CampoTesto(u"CodOno"_s, 10), CampoDi(Lungo, u"IDAutor"_s)} +
                                 ColonneVoce() +
                                 ColonneImporti(NumeriScaglioni(Dati, u"C"_s), CampoDi(Doppio, {}))};
}

TabellaNuova TabellaPenali(const Tariffe& Dati)
{
    QList<int> Numeri;
    for (const AutoritaTariffa& Ente : EntiDi(Dati, Penale))
        Numeri.append(Ente.Dati.IDAut);
    return {u"OnorariPen"_s, QList<Campo>{CampoDi(Lungo, u"IDOno"_s), CampoTesto(u"CodOno"_s, 10)} +
                                 ColonneVoce() + ColonneImporti(Numeri, CampoDi(Doppio, {}))};
}

TabellaNuova TabellaStragiudiziali(const Tariffe& Dati)
{
    return {u"OnorariStra"_s,
            QList<Campo>{CampoDi(Lungo, u"IDOno"_s), CampoTesto(u"CodOno"_s, 10)} + ColonneVoce() +
                ColonneImporti(NumeriScaglioni(Dati, u"S"_s), CampoTesto({}, MassimoFormula))};
}

TabellaNuova TabellaSpese()
{
    return {u"Diritti"_s,
            {CampoDi(Lungo, u"IDDir"_s), CampoTesto(u"NVoce"_s, 10), CampoTesto(u"DescrDir"_s, 60),
             CampoDi(Intero, u"NVis"_s)}};
}

TabellaNuova TabellaChiaviPrecedenti()
{
    return {u"ChiaviPrecedenti"_s,
            {CampoTesto(u"Categoria"_s, 3), CampoTesto(u"Precedente"_s, 10), CampoTesto(u"Chiave"_s, 10)}};
}

/// Values of the rights of tariffs before this decree: none are delivered, the program only opens it.
TabellaNuova TabellaDirittiValori()
{
    return {u"DirittiValori"_s,
            {CampoDi(Lungo, u"CodDir"_s), CampoDi(Intero, u"NumSca"_s), CampoDi(Doppio, u"Valore"_s)}};
}

}  // namespace

void ScriviTariffe(const Tariffe& Dati, const QString& Percorso)
{
    using Scrittore = void (*)(const Database&, const Tariffe&, const TabellaNuova&);
    QList<std::pair<TabellaNuova, Scrittore>> Tabelle{
        {TabellaEnti(), ScriviEnti},
        {TabellaScaglioni(), ScriviScaglioni},
        {TabellaCivili(Dati), ScriviCivili},
        {TabellaPenali(Dati), ScriviPenali},
        {TabellaStragiudiziali(Dati), ScriviStragiudiziali},
        {TabellaSpese(), ScriviSpese},
        {TabellaChiaviPrecedenti(), ScriviPrecedenti},
    };
    if (!Dati.Identita.Codice.isEmpty())
        Tabelle += {{TabellaIdentita(), ScriviIdentita},
                    {TabellaVariazioni(), ScriviVariazioni},
                    {TabellaParti(), ScriviParti},
                    {TabellaCorrispondenze(), ScriviCorrispondenze}};
    const Database Db = CreateDatabase(Percorso);
    for (const auto& [Tabella, Scrivi] : std::as_const(Tabelle))
        Crea(Db, Tabella);
    Crea(Db, TabellaDirittiValori());
    Db.CreaIndice(u"DirittiValori"_s, u"CodDir"_s, {u"CodDir"_s});
    // The empty tables that every note's file is copied from.
    for (const TabellaNota& Modello : TabelleNota())
        Db.CreaTabella(Modello.Nome, Modello.Colonne);

    Transazione Tutto(Db);
    for (const auto& [Tabella, Scrivi] : std::as_const(Tabelle))
        Scrivi(Db, Dati, Tabella);
    Tutto.Conferma();
}
