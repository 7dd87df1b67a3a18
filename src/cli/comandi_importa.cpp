// The command of calcanova-cli that makes a native file of one of Access, and takes the names of any file
// into the archive.
#include "cli/comandi.h"

#include "addressbook/exchange/colonneimporta.h"
#include "addressbook/exchange/importa.h"
#include "addressbook/exchange/sorgente.h"
#include "addressbook/modRubrica.h"
#include "core/sessione.h"
#include "platform/accesso/accesso.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

/// Behind a dialog or a script nobody waits for a note.
constexpr int SecondiDiLettura = 120;

}  // namespace

Risposta ComandoImporta(const QStringList& Valori)
{
    const RapportoAccess Rapporto =
        ConvertiAccess(Valori[0], Valori[1],
                       {.Secondi = SecondiDiLettura, .Prosegui = [](qint64) { return true; }})
            .value();
    QStringList Testi;
    QJsonArray Tabelle;
    for (const TabellaAccess& Tabella : Rapporto.Tabelle) {
        Testi += Tabella.Nome + u'=' + QString::number(Tabella.Righe);
        Tabelle.append(QJsonObject{{u"nome"_s, Tabella.Nome}, {u"righe"_s, Tabella.Righe}});
    }
    QJsonArray Tralasciati;
    for (const TralasciatoAccess& Voce : Rapporto.Tralasciati)
        Tralasciati.append(QJsonObject{{u"cosa"_s, Voce.Cosa}, {u"perche"_s, Voce.Perche}});
    return {Testi.join(u';'), {{u"tabelle"_s, Tabelle}, {u"tralasciati"_s, Tralasciati}}, false};
}

Risposta ComandoImportaIn(const QStringList& Valori, const QString& Tabella, bool Prova)
{
    const Database Archivio = ApriArchivio(FileRubrica(sessione::ArchivioCliCon), Prova);
    const QList<Campo> Campi = Archivio.Campi(Tabella);
    const SorgenteNominativi Da(Valori[0]);
    OpzioniSorgente Come;
    Come.Tabella = Tabella;
    const TabellaEstranea Lette = Da.Leggi(Come);
    const QStringList Chiavi = AbbinaColonne(Lette.Titoli, Campi);
    ImportaNominativi Opera(Archivio, Tabella, Lette, Chiavi, Doppioni::Salta);
    (void)Opera.Prepara();
    if (!Prova)
        (void)Opera.Scrivi(Valori[0]);
    const ContoImporta& Conto = Opera.Conto();
    QJsonObject Colonne;
    for (qsizetype i = 0; i < Chiavi.size(); ++i)
        Colonne[Lette.Titoli[i]] = Chiavi[i];
    return {FraseImporta(Conto, !Prova),
            {{u"righe"_s, Conto.Righe},
             {u"aggiunti"_s, Conto.Aggiunti},
             {u"presenti"_s, Conto.GiaPresenti},
             {u"senzaNome"_s, Conto.SenzaNome},
             {u"colonne"_s, Colonne},
             {u"avvisi"_s, QJsonArray::fromStringList(Lette.Avvisi + Opera.Avvisi())},
             {u"prova"_s, Prova}},
            false};
}
