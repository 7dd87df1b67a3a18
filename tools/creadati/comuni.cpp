#include "creadati/comuni.h"

#include "creadati/scrittura.h"
#include "creadati/tabellatesto.h"
#include "platform/base/regionale.h"
#include "platform/database/somiglianza.h"

#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr int MassimoNome = 60;

ComuneTabella LeggiRiga(const TabellaTesto& Tabella, int Riga)
{
    static const QRegularExpression Sigla(u"\\A[A-Z]{2}\\z"_s);
    static const QRegularExpression Catastale(u"\\A[A-Z][0-9]{3}\\z"_s);
    ComuneTabella Uno{Tabella.Testo(Riga, u"nome"_s, MassimoNome), Tabella.Testo(Riga, u"provincia"_s),
                      Tabella.Testo(Riga, u"codice"_s)};
    if (!Sigla.match(Uno.Provincia).hasMatch())
        Tabella.Rifiuta(Riga, u"provincia"_s, u"la provincia ha due lettere maiuscole"_s);
    if (!Catastale.match(Uno.Codice).hasMatch())
        Tabella.Rifiuta(Riga, u"codice"_s, u"il codice ha una lettera maiuscola e tre cifre"_s);
    return Uno;
}

/// Names in UTF-8 beside their rows: the engine's comparison works on bytes.
using NomeERiga = std::pair<QByteArray, ComuneTabella>;

bool Precede(const NomeERiga& Primo, const NomeERiga& Secondo)
{
    return ConfrontaSenzaMaiuscole(Primo.first, Secondo.first) < 0;
}

}  // namespace

QList<ComuneTabella> LeggiComuni(const QString& Cartella)
{
    const TabellaTesto Tabella(Cartella + u"comuni.csv"_s, {u"nome"_s, u"provincia"_s, u"codice"_s});
    QSet<QString> Nomi;
    QList<NomeERiga> Righe;
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        const ComuneTabella Uno = LeggiRiga(Tabella, Riga);
        if (Nomi.contains(Uno.Nome.toCaseFolded()))
            Tabella.Rifiuta(Riga, u"nome"_s, u"il nome è già in una riga precedente"_s);
        Nomi.insert(Uno.Nome.toCaseFolded());
        Righe.append({Uno.Nome.toUtf8(), Uno});
    }
    std::ranges::sort(Righe, Precede);
    QList<ComuneTabella> Ordinati;
    for (const NomeERiga& Una : Righe)
        Ordinati.append(Una.second);
    return Ordinati;
}

QDate LeggiStatoComuni(const QString& Cartella)
{
    const TabellaTesto Righe(Cartella + u"comuni_stato.csv"_s, {u"al"_s});
    if (Righe.Righe() != 1)
        Righe.RifiutaInFondo(u"al"_s, u"occorre una riga sola"_s);
    return Righe.Data(0, u"al"_s);
}

void ScriviComuni(const QList<ComuneTabella>& Comuni, const QDate& Al, const QString& Percorso)
{
    const TabellaNuova Tabella{u"Comuni"_s,
                               {CampoTesto(u"COMU_DESCR"_s, MassimoNome), CampoTesto(u"COMU_PROV"_s, 2),
                                CampoTesto(u"COMU_COD"_s, 4)}};
    const Database Db = CreateDatabase(Percorso);
    Transazione Tutto(Db);
    Crea(Db, Tabella);
    Db.CreaIndice(Tabella.Nome, u"COMUNI2L"_s, {u"COMU_DESCR"_s});
    for (const ComuneTabella& Uno : Comuni)
        AggiungiRiga(Db, Tabella, {Uno.Nome, Uno.Provincia, Uno.Codice});
    Tutto.Conferma();
    Db.Annota({{u"Al"_s, Format(Al, ModelloData)}});
}
