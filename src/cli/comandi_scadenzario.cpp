// The command of calcanova-cli that lists saved notes by what is due of them.
#include "cli/comandi.h"

#include "cli/letture.h"
#include "core/modErrori.h"
#include "feenote/finder/elencotrova.h"
#include "feenote/finder/memoriatrova.h"
#include "feenote/finder/nominativi.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

/// The notes of a folder that a state leaves, in the order of their names.
ElencoTrova Elencate(const QStringList& Valori, const QString& Stato, Nominativi& Nomi, ContoTrova& Conto)
{
    const QString Cartella = Barra(PercorsoIntero(Valori[0]));
    const CriterioTrova Criterio{Cartella, Cartella, {}, LeggiBit(u"sottocartelle"_s, Valori.value(1))};
    ElencoTrova Elenco;
    Elenco.Azzera(true);
    if (!Stato.isEmpty())
        Elenco.FiltraStato(FiltroStato(LeggiParola(u"stato"_s, Stato, ParoleFiltroStato())));
    CamminoTrova Cammino(
        Criterio,
        [&](VoceTrova&& Voce) {
            Nomi.Completa(Voce);
            Elenco.Aggiungi(std::move(Voce));
        },
        [] { return true; }, MemoriaDelTrova());
    Conto = Cammino.TrovaParc(Cartella);
    Elenco.Ordina();
    return Elenco;
}

/// The fields of a record are called by the titles of the columns.
QJsonObject Descritta(const QStringList& Celle)
{
    QJsonObject Record;
    const QStringList Titoli = TitoliScadenzario();
    for (qsizetype i = 0; i < Titoli.size(); ++i)
        Record[Titoli[i]] = Celle[i];
    return Record;
}

QJsonArray Descritti(const ApertoTutto& Somma)
{
    QJsonArray Clienti;
    for (const ApertoCliente& Uno : Somma.Clienti)
        Clienti.append(
            QJsonObject{{u"cliente"_s, Uno.Cliente}, {u"aperto"_s, Uno.Aperto}, {u"note"_s, Uno.Note}});
    return Clienti;
}

}  // namespace

Risposta ComandoScadenzario(const QStringList& Valori, const QString& Stato, const QString& File)
{
    if (!File.isEmpty())
        ControllaUscita(File);
    Nominativi Nomi;
    ContoTrova Conto;
    const ElencoTrova Elenco = Elencate(Valori, Stato, Nomi, Conto);
    const QString Parziale = FraseParziale(Conto);
    const std::vector<const VoceTrova*> Note = Elenco.NoteMostrate();
    const auto Codici = [&](int IDCli) { return Nomi.Codici(IDCli); };
    QStringList Righe;
    QJsonArray Record;
    for (QStringList& Celle : RigheScadenzario(Note, Codici, Elenco.NoteTutte())) {
        Record.append(Descritta(Celle));
        Righe += CelleInRiga(std::move(Celle));
    }
    const qsizetype Quante = Righe.size();
    if (!File.isEmpty()) {
        Nomi.PretendiLetto();  // names and codes would be missing
        ScriviFile(File, CsvScadenzario(Note, Codici, Elenco.NoteTutte()), Lettori::SoloUtente);
        return {Parziale.isEmpty() ? QString::number(Quante) : QString::number(Quante) + u"; "_s + Parziale,
                {{u"esportate"_s, Quante},
                 {u"file"_s, File},
                 {u"nonLetti"_s, Conto.NonLetti},
                 {u"cartelleNonLette"_s, Conto.CartelleNonLette},
                 {u"nomiIlleggibili"_s, Conto.NomiIlleggibili}},
                !Parziale.isEmpty()};
    }
    Protetta([&] { Nomi.PretendiLetto(); });  // names are those of the notes, codes are missing
    const ApertoTutto Somma = SommaAperto(Note, Elenco.NoteTutte());
    Righe += Parziale.isEmpty() ? FraseAperto(Somma) : FraseAperto(Somma) + u"; "_s + Parziale;
    return {Righe.join(u'\n'),
            {{u"note"_s, Record},
             {u"aperto"_s, Somma.Aperto},
             {u"aperte"_s, Somma.Note},
             {u"ignote"_s, Somma.Ignote},
             {u"copie"_s, Somma.Copie},
             {u"nonLetti"_s, Conto.NonLetti},
             {u"cartelleNonLette"_s, Conto.CartelleNonLette},
             {u"nomiIlleggibili"_s, Conto.NomiIlleggibili},
             {u"clienti"_s, Descritti(Somma)}},
            false};
}
