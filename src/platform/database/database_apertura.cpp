// How a table's name or a SELECT becomes a set of rows.
#include "platform/database/database.h"

#include "platform/base/errore.h"
#include "platform/database/criterio.h"
#include "platform/database/insieme.h"
#include "platform/database/selezione.h"
#include "platform/database/valori.h"

using namespace Qt::StringLiterals;

namespace {

/// The table, or those of its columns that are asked for; none when it cannot be shown row by row.
std::optional<Sorgente> SorgenteDi(const std::shared_ptr<Connessione>& Conn, const QString& Tabella,
                                   const QStringList& Volute)
{
    Sorgente Da;
    Da.Conn = Conn;
    Da.NomeTabella = NomeVero(*Conn, Tabella);
    if (Da.NomeTabella.isEmpty())
        return std::nullopt;
    Da.Tabella = Identificatore(Da.NomeTabella);
    const QList<Campo> Tutte = LeggiCampi(*Conn, Da.NomeTabella);
    Da.Chiave = ChiaveRiga(*Conn, Da.NomeTabella, Tutte);
    for (const Campo& C : Tutte)
        if (Volute.isEmpty())
            Da.Aggiungi(C, Identificatore(C.Name));
    for (const QString& Nome : Volute) {
        const auto Trovata = std::ranges::find_if(
            Tutte, [&](const Campo& C) { return C.Name.compare(Nome, Qt::CaseInsensitive) == 0; });
        if (Trovata == Tutte.end())
            return std::nullopt;
        Da.Aggiungi(*Trovata, Identificatore(Trovata->Name));
    }
    return Da.Chiave.isEmpty() ? std::nullopt : std::optional(Da);
}

/// The columns of a query's answer; one without a declaration takes the type of its first value.
QList<Campo> ColonneDi(const Istruzione& Query, bool HaRiga)
{
    QList<Campo> Colonne;
    for (int i = 0; i < Query.Colonne(); ++i) {
        const QString Dichiarata = Query.TipoDichiarato(i);
        Campo C = CampoDaDichiarazione(Query.NomeColonna(i), Dichiarata);
        if (Dichiarata.isEmpty())
            C.Type = (HaRiga ? Query.TipoSpontaneo(i) : std::nullopt).value_or(TipoCampo::Memo);
        Colonne.append(C);
    }
    return Colonne;
}

/// Rows that belong to no single table go into a database of their own in memory, where moves, finds and
/// bookmarks work as on a table.
Sorgente CopiaFissa(Connessione& Conn, const QString& Sql, const QVariantList& Valori)
{
    Istruzione Query(Conn, Sql, Valori);
    if (!Query.Legge() || Query.Colonne() == 0)
        throw Errore(errori::SintassiSql);
    Sorgente Da;
    Da.Conn = std::make_shared<Connessione>(u":memory:"_s, Connessione::Modo::Memoria);
    Da.NomeTabella = Da.Tabella = u"copia"_s;
    Da.Chiave = u"rowid"_s;
    bool HaRiga = Query.Avanza();
    QStringList Dichiarate;
    for (const Campo& C : ColonneDi(Query, HaRiga)) {
        const QString NomeSql = u"c%1"_s.arg(Da.Colonne.size());
        const bool Dichiarata = !Query.TipoDichiarato(int(Da.Colonne.size())).isEmpty();
        Dichiarate << (Dichiarata ? NomeSql + u' ' + Dichiarazione(C) : NomeSql);
        Da.Aggiungi(C, NomeSql);
    }
    Da.Conn->Esegui(u"CREATE TABLE copia (%1)"_s.arg(Dichiarate.join(u',')));
    Blocco Tutto(*Da.Conn);
    const QString Posti = QStringList(Da.Colonne.size(), u"?"_s).join(u',');
    Istruzione Scrive(*Da.Conn, u"INSERT INTO copia VALUES (%1)"_s.arg(Posti),
                      QVariantList(Da.Colonne.size()));
    for (; HaRiga; HaRiga = Query.Avanza()) {
        for (int i = 0; i < Da.Colonne.size(); ++i)
            Scrive.LegaCella(i + 1, Query, i);
        Scrive.Avanza();
        Scrive.Azzera();
    }
    Tutto.Conferma();
    return Da;
}

}  // namespace

Recordset Database::OpenRecordset(const QString& Origine, const QVariantList& Valori) const
{
    const Sguardo Uno(PerLeggere());
    const bool Query = ESelezione(Origine);
    const std::optional<SelezioneSemplice> Semplice =
        Query ? LeggiSelezione(Origine) : SelezioneSemplice{Origine, {}, {}, false};
    std::optional<Sorgente> Da =
        Semplice ? SorgenteDi(Conn, Semplice->Tabella, Semplice->Colonne) : std::nullopt;
    if (!Da && !Query && NomeVero(*Conn, Origine).isEmpty())
        throw ErroreSenzaTabella(Conn->Percorso());
    auto Nuovo = std::make_shared<Recordset::Dati>();
    if (Da) {
        Nuovo->Da = *Da;
        Nuovo->Da.Scrivibile = !Lettura && Conn->Scrivibile();
        Nuovo->Da.Intera = !Query;
        // Rows without an order of their own come as they were added, whatever index the engine walks.
        const QString Ordine = (Semplice->Ordinata ? u", "_s : u" ORDER BY "_s) + Da->Chiave;
        const auto Piano = Semplice->Ordinata ? LeggiOrdinePiano(Semplice->Resto) : std::nullopt;
        if (const QString Colonna = Piano ? Da->Identifica(Piano->Colonna) : QString(); !Colonna.isEmpty())
            Nuovo->LeggiChiaviOrdinate(Colonna, Piano->Discendente);
        else
            Nuovo->LeggiChiavi(Semplice->Resto + Ordine, Valori);
    } else {
        const QString Sql = Query ? Origine : u"SELECT * FROM "_s + Identificatore(NomeVero(*Conn, Origine));
        Nuovo->Da = CopiaFissa(*Conn, Sql, Valori);
        Nuovo->LeggiChiavi(u"ORDER BY rowid"_s);
    }
    return Recordset(std::move(Nuovo));
}
