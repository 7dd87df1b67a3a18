// Tables, columns and their side table `_Campi`, which keeps what SQLite has no place for: the engine's
// type code, the size and the description of each field.
#include "platform/database/database.h"

#include "platform/base/errore.h"
#include "platform/database/connessione.h"
#include "platform/database/criterio.h"
#include "platform/database/valori.h"

#include <QHash>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// Tables of the engine's own: they stand beside those of the file, and nobody sees them.
constexpr std::array TabelleProprie{"_Campi"_L1, "_Calcanova"_L1};

bool EPropria(const QString& Nome)
{
    return Nome.startsWith("sqlite_"_L1, Qt::CaseInsensitive) ||
           std::ranges::any_of(TabelleProprie, [&](QLatin1StringView Tabella) { return Nome == Tabella; });
}

bool Uguali(const QString& A, const QString& B)
{
    return A.compare(B, Qt::CaseInsensitive) == 0;
}

QStringList TabelleDi(Connessione& Conn)
{
    // Virtual tables are code chosen by the file; they do not count.
    Istruzione Schema(Conn,
                      u"SELECT name FROM sqlite_schema WHERE type='table' AND rootpage>0 ORDER BY rowid"_s);
    QStringList Nomi;
    while (Schema.Avanza()) {
        const QString Nome = Schema.Testo(0);
        if (!EPropria(Nome))
            Nomi.append(Nome);
    }
    return Nomi;
}

/// What the side table says of a column.
struct NotaCampo
{
    std::optional<TipoCampo> Tipo;
    int Dimensione = 0;
    QString Descrizione;
};

// A file of another origin has no side table, or a table of that name with other columns: then the
// declarations decide.
QHash<QString, NotaCampo> NoteDi(Connessione& Conn, const QString& Tabella)
{
    constexpr qint64 Massima = 1'000'000;
    QHash<QString, NotaCampo> Note;
    try {
        Istruzione Righe(Conn,
                         u"SELECT Colonna, Tipo, Dimensione, Descrizione FROM \"_Campi\" WHERE Tabella=?"_s,
                         {Tabella});
        while (Righe.Avanza()) {
            const int Dimensione = int(std::clamp<qint64>(Righe.Intero(2), 0, Massima));
            Note.insert(Righe.Testo(0).toCaseFolded(),
                        {TipoDaCodice(Righe.Intero(1)), Dimensione, Righe.Testo(3)});
        }
    } catch (const Errore& E) {
        if (E.Numero != errori::TabellaMancante && E.Numero != errori::CampoSconosciuto)
            throw;
    }
    return Note;
}

/// Notes columns, the first of which stands at a place of its table.
void AggiungiNote(Connessione& Conn, const QString& Tabella, const QList<Campo>& Colonne, int Posto)
{
    // Files of another origin get the side table with the first table, or column, that we make in them.
    Conn.Esegui(SqlTabellaCampi());
    Istruzione Nota(Conn, u"INSERT OR REPLACE INTO \"_Campi\" VALUES (?,?,?,?,?,?)"_s,
                    {Tabella, QVariant(), QVariant(), QVariant(), QVariant(), QVariant()});
    for (int i = 0; i < Colonne.size(); ++i) {
        Nota.Lega(2, Colonne[i].Name);
        Nota.Lega(3, int(Colonne[i].Type));
        Nota.Lega(4, Colonne[i].Size);
        Nota.Lega(5, Colonne[i].Description);
        Nota.Lega(6, Posto + i);
        Nota.Avanza();
        Nota.Azzera();
    }
}

void AnnotaCampi(Connessione& Conn, const QString& Tabella, const QList<Campo>& Colonne)
{
    Conn.Esegui(SqlTabellaCampi());
    Conn.Esegui(u"DELETE FROM \"_Campi\" WHERE Tabella=?"_s, {Tabella});
    AggiungiNote(Conn, Tabella, Colonne, 0);
}

void Crea(Connessione& Conn, const QString& Tabella, const QList<Campo>& Colonne)
{
    if (!NomeVero(Conn, Tabella).isEmpty())
        throw Errore(errori::TabellaPresente);
    QStringList Dichiarate;
    for (const Campo& C : Colonne)
        // A key is never given out twice: the note of a deleted client must not find another one.
        Dichiarate << Identificatore(C.Name) + u' ' +
                          (C.Contatore ? u"INTEGER PRIMARY KEY AUTOINCREMENT"_s : Dichiarazione(C));
    Conn.Esegui(u"CREATE TABLE %1 (%2)"_s.arg(Identificatore(Tabella), Dichiarate.join(u", "_s)));
    AnnotaCampi(Conn, Tabella, Colonne);
}

void CopiaRighe(Connessione& Da, Connessione& A, const QString& Tabella, const QList<Campo>& Colonne)
{
    QStringList Nomi;
    for (const Campo& C : Colonne)
        Nomi << Identificatore(C.Name);
    const QString Elenco = Nomi.join(u',');
    const QString Chiave = ChiaveRiga(Da, Tabella, Colonne);
    const QString Ordine = Chiave.isEmpty() ? QString() : u" ORDER BY "_s + Chiave;
    Istruzione Legge(Da, u"SELECT %1 FROM %2"_s.arg(Elenco, Identificatore(Tabella)) + Ordine);
    const QString Posti = QStringList(Nomi.size(), u"?"_s).join(u',');
    Istruzione Scrive(A, u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(Identificatore(Tabella), Elenco, Posti),
                      QVariantList(Nomi.size()));
    while (Legge.Avanza()) {
        for (int i = 0; i < Nomi.size(); ++i)
            Scrive.LegaCella(i + 1, Legge, i);
        Scrive.Avanza();
        Scrive.Azzera();
    }
}

}  // namespace

QString SqlTabellaCampi()
{
    return u"CREATE TABLE IF NOT EXISTS \"_Campi\" (Tabella TEXT, Colonna TEXT, Tipo INTEGER, "
           u"Dimensione INTEGER, Descrizione TEXT, Ordine INTEGER, PRIMARY KEY (Tabella, Colonna))"_s;
}

QString NomeVero(Connessione& Conn, const QString& Tabella)
{
    const QStringList Nomi = TabelleDi(Conn);
    const auto Trovato = std::ranges::find_if(Nomi, [&](const QString& N) { return Uguali(N, Tabella); });
    return Trovato != Nomi.end() ? *Trovato : QString();
}

QList<Campo> LeggiCampi(Connessione& Conn, const QString& Tabella)
{
    const QHash<QString, NotaCampo> Note = NoteDi(Conn, Tabella);
    Istruzione Info(Conn, u"SELECT name, type, pk FROM pragma_table_info(?)"_s, {Tabella});
    QList<Campo> Colonne;
    int Chiavi = 0;
    while (Info.Avanza()) {
        Campo C = CampoDaDichiarazione(Info.Testo(0), Info.Testo(1));
        const bool InChiave = Info.Intero(2) > 0;
        Chiavi += InChiave;
        C.Contatore = InChiave && Uguali(Info.Testo(1), u"INTEGER"_s);
        if (const auto Nota = Note.find(C.Name.toCaseFolded()); Nota != Note.end()) {
            C.Description = Nota->Descrizione;
            if (Nota->Tipo) {
                C.Type = *Nota->Tipo;
                C.Size = C.Type == TipoCampo::Testo ? Nota->Dimensione : 0;
            }
        }
        Colonne.append(C);
    }
    // Only a key of one column is filled by the engine.
    if (Chiavi > 1)
        for (Campo& C : Colonne)
            C.Contatore = false;
    return Colonne;
}

QString ChiaveRiga(Connessione& Conn, const QString& Tabella, const QList<Campo>& Colonne)
{
    for (const QString& Nome : {u"rowid"_s, u"_rowid_"_s, u"oid"_s}) {
        if (std::ranges::any_of(Colonne, [&](const Campo& C) { return Uguali(C.Name, Nome); }))
            continue;
        try {
            Istruzione(Conn, u"SELECT %1 FROM %2"_s.arg(Nome, Identificatore(Tabella)));
            return Nome;
        } catch (const Errore& E) {
            if (E.Numero != errori::CampoSconosciuto)
                throw;
            return {};  // a table WITHOUT ROWID
        }
    }
    return {};
}

QStringList Database::Tabelle() const
{
    return TabelleDi(PerLeggere());
}

bool Database::EsisteTabella(const QString& Tabella) const
{
    return !NomeVero(PerLeggere(), Tabella).isEmpty();
}

bool Database::EsisteCampo(const QString& Tabella, const QString& Colonna) const
{
    const QString Vero = NomeVero(PerLeggere(), Tabella);
    if (Vero.isEmpty())
        return false;
    return std::ranges::any_of(LeggiCampi(*Conn, Vero),
                               [&](const Campo& C) { return Uguali(C.Name, Colonna); });
}

QList<Campo> Database::Campi(const QString& Tabella) const
{
    const QString Vero = NomeVero(PerLeggere(), Tabella);
    if (Vero.isEmpty())
        throw ErroreSenzaTabella(Conn->Percorso());
    return LeggiCampi(*Conn, Vero);
}

void Database::CreaTabella(const QString& Tabella, const QList<Campo>& Colonne) const
{
    Blocco Tutto(PerScrivere());
    Crea(*Conn, Tabella, Colonne);
    Tutto.Conferma();
}

void Database::AggiungiColonne(const QString& Tabella, const QList<Campo>& Colonne) const
{
    Blocco Tutto(PerScrivere());
    const QString Vero = NomeVero(*Conn, Tabella);
    if (Vero.isEmpty())
        throw ErroreSenzaTabella(Conn->Percorso());
    const QList<Campo> Presenti = LeggiCampi(*Conn, Vero);
    QList<Campo> Nuove = Colonne;
    Nuove.removeIf([&](const Campo& Nuova) {
        return std::ranges::any_of(Presenti, [&](const Campo& C) { return Uguali(C.Name, Nuova.Name); });
    });
    for (const Campo& C : std::as_const(Nuove))
        Conn->Esegui(u"ALTER TABLE %1 ADD COLUMN %2 %3"_s.arg(Identificatore(Vero), Identificatore(C.Name),
                                                              Dichiarazione(C)));
    if (!Nuove.isEmpty())
        AggiungiNote(*Conn, Vero, Nuove, int(Presenti.size()));
    Tutto.Conferma();
}

void Database::CreaIndice(const QString& Tabella, const QString& Nome, const QStringList& Colonne,
                          bool Unico) const
{
    const QString Vero = NomeVero(PerScrivere(), Tabella);
    if (Vero.isEmpty())
        throw ErroreSenzaTabella(Conn->Percorso());
    QStringList Nomi;
    for (const QString& C : Colonne)
        Nomi << Identificatore(C);
    Conn->Esegui(u"CREATE %1INDEX %2 ON %3 (%4)"_s.arg(Unico ? u"UNIQUE "_s : QString(),
                                                       Identificatore(NomeIndice(Vero, Nome)),
                                                       Identificatore(Vero), Nomi.join(u',')));
}

void Database::CopiaTabella(const QString& Tabella, const Database& Destinazione) const
{
    const QString Vero = NomeVero(PerLeggere(), Tabella);
    if (Vero.isEmpty())
        throw ErroreSenzaTabella(Conn->Percorso());
    const QList<Campo> Colonne = LeggiCampi(*Conn, Vero);
    Connessione& Arrivo = Destinazione.PerScrivere();
    Blocco Tutto(Arrivo);
    Crea(Arrivo, Vero, Colonne);
    CopiaRighe(*Conn, Arrivo, Vero, Colonne);
    Tutto.Conferma();
}
