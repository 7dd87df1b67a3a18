// The command of calcanova-cli that lists saved notes as the finder does.
#include "cli/comandi.h"

#include "cli/letture.h"
#include "core/modErrori.h"
#include "feenote/finder/elencotrova.h"
#include "feenote/finder/memoriatrova.h"
#include "feenote/finder/nominativi.h"
#include "platform/system/percorsi.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

QJsonValue Descritta(const VoceTrova& Voce)
{
    if (Voce.Genere == GenereVoce::Cartella)
        return Voce.Percorso;
    return QJsonObject{{u"nome"_s, Voce.Nome},
                       {u"file"_s, Voce.Percorso},
                       {u"cartella"_s, Voce.Cartella},
                       {u"data"_s, CellaTrova(Voce, TrovaData)},
                       {u"cliente"_s, Voce.Cliente},
                       {u"controparte"_s, Voce.Controparte},
                       {u"oggetto"_s, Voce.Dati.Oggetto},
                       {u"stato"_s, NomeStato(StatoMostrato(Voce)).toLower()},
                       {u"byte"_s, Voce.Byte},
                       {u"modello"_s, Voce.Modello},
                       {u"inUso"_s, Voce.Illeggibile}};
}

/// The row as it stands in the finder, its cells joined by "|". The state is for `scadenzario`: scripts count
/// the cells.
QString RigaDi(const VoceTrova& Voce)
{
    QStringList Celle;
    for (int Colonna = 0; Colonna <= TrovaCartella; ++Colonna)
        Celle += CellaTrova(Voce, Colonna);
    return CelleInRiga(Celle);
}

}  // namespace

Risposta ComandoTrova(const QStringList& Valori)
{
    const QString Cartella = Barra(PercorsoIntero(Valori[0]));
    const CriterioTrova Criterio{Cartella, Cartella, Valori.value(1),
                                 LeggiBit(u"sottocartelle"_s, Valori.value(2))};
    ElencoTrova Elenco;
    Elenco.Azzera(Criterio.CartelleInFondo());
    Nominativi Nomi;
    CamminoTrova Cammino(
        Criterio,
        [&](VoceTrova&& Voce) {
            Nomi.Completa(Voce);
            Elenco.Aggiungi(std::move(Voce));
        },
        [] { return true; }, MemoriaDelTrova());
    const ContoTrova Conto = Cammino.TrovaParc(Cartella);
    Elenco.Ordina();
    Protetta([&] { Nomi.PretendiLetto(); });  // the names are those of the notes

    QStringList Righe;
    QJsonArray Note;
    QJsonArray Cartelle;
    for (int Riga = 0; Riga < Elenco.Righe(); ++Riga) {
        const VoceTrova& Voce = Elenco.Voce(Riga);
        Righe += RigaDi(Voce);
        (Voce.Genere == GenereVoce::Cartella ? Cartelle : Note).append(Descritta(Voce));
    }
    Righe += FraseEsito(Conto);
    return {Righe.join(u'\n'),
            {{u"note"_s, Note},
             {u"cartelle"_s, Cartelle},
             {u"archivi"_s, Conto.Archivi},
             {u"percorse"_s, Conto.Cartelle},
             {u"byte"_s, Conto.Byte},
             {u"esito"_s, FraseEsito(Conto)}},
            false};
}
