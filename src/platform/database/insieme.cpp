#include "platform/database/insieme.h"

#include "platform/base/errore.h"
#include "platform/database/criterio.h"

using namespace Qt::StringLiterals;

int Sorgente::Posto(const QString& Colonna) const
{
    const auto Trovato = Posti.constFind(Colonna.toCaseFolded());
    if (Trovato == Posti.constEnd())
        throw Errore(errori::ElementoMancante,
                     DescrizioneErrore(errori::ElementoMancante) + u": "_s + Colonna);
    return *Trovato;
}

QString Sorgente::Identifica(const QString& Colonna) const
{
    const auto Trovato = Posti.constFind(Colonna.toCaseFolded());
    return Trovato != Posti.constEnd() ? NomiSql[*Trovato] : QString();
}

void Sorgente::Aggiungi(const Campo& Colonna, const QString& NomeSql)
{
    const QString Nome = Colonna.Name.toCaseFolded();
    if (!Posti.contains(Nome))
        Posti.insert(Nome, int(Colonne.size()));
    Colonne.append(Colonna);
    NomiSql.append(NomeSql);
}

void Insieme::Aggiungi(qint64 Chiave)
{
    Crescenti = Crescenti && (Chiavi.isEmpty() || Chiavi.last() < Chiave);
    Chiavi.append(Chiave);
}

qsizetype Insieme::Trova(qint64 Chiave) const
{
    const auto Trovata =
        Crescenti ? std::ranges::lower_bound(Chiavi, Chiave) : std::ranges::find(Chiavi, Chiave);
    return Trovata != Chiavi.end() && *Trovata == Chiave ? Trovata - Chiavi.begin() : -1;
}

qsizetype Insieme::PostoCorrente() const
{
    if (Buco)
        throw Errore(errori::RecordEliminato);
    if (Posto < 0 || Posto >= Chiavi.size())
        throw Errore(errori::NessunRecord);
    return Posto;
}

qint64 Insieme::ChiaveCorrente() const
{
    return Chiavi[PostoCorrente()];
}

const QVariantList& Insieme::Riga()
{
    const qint64 Chiave = ChiaveCorrente();
    if (ScrittureViste == Da.Conn->Scritture() && ChiaveTenuta == Chiave)
        return Tenuta;
    ScrittureViste.reset();
    if (!Lettura)
        Lettura.emplace(*Da.Conn,
                        u"SELECT %1 FROM %2 WHERE %3=?"_s.arg(Da.NomiSql.join(u','), Da.Tabella, Da.Chiave),
                        QVariantList(1));
    Lettura->Azzera();
    Lettura->Lega(1, Chiave);
    if (!Lettura->Avanza())
        throw Errore(errori::RecordEliminato);
    Tenuta.clear();
    for (int i = 0; i < Da.Colonne.size(); ++i)
        Tenuta.append(Lettura->Valore(i, Da.Colonne[i].Type));
    Lettura->Azzera();  // a statement halfway through would hold a lock
    ChiaveTenuta = Chiave;
    ScrittureViste = Da.Conn->Scritture();
    return Tenuta;
}

void Insieme::Vai(qsizetype Nuovo)
{
    Aperto = Lavoro::Nessuno;
    Cambiati.clear();
    Buco = false;
    Posto = std::clamp<qsizetype>(Nuovo, -1, Chiavi.size());
    // A row is read anew each time it is come to, so that it shows what others have written meanwhile.
    ScrittureViste.reset();
}

void Insieme::EsigiScrivibile() const
{
    if (!Da.Scrivibile)
        throw Errore(errori::DatabaseSolaLettura);
}

void Insieme::LeggiChiavi(const QString& Resto, const QVariantList& Valori)
{
    Istruzione Righe(*Da.Conn, u"SELECT %1 FROM %2 "_s.arg(Da.Chiave, Da.Tabella) + Resto, Valori);
    Chiavi.clear();
    Crescenti = true;
    while (Righe.Avanza())
        Aggiungi(Righe.Intero(0));
}

QString Insieme::OrdineIndice(bool Indietro) const
{
    const QString Verso = Indietro ? u" DESC"_s : QString();
    return u" ORDER BY "_s + ColonneIndice.join(Verso + u", "_s) + Verso + u", "_s + Da.Chiave + Verso;
}

namespace {

/// "a=?, b=?" or "a, b", in the order of the values.
QString Elenco(const Sorgente& Da, const QList<int>& Posti, const QString& Dopo = {})
{
    QStringList Nomi;
    for (const int Posto : Posti)
        Nomi << Da.NomiSql[Posto] + Dopo;
    return Nomi.join(u',');
}

}  // namespace

void Insieme::Inserisci(const std::function<void()>& Prima)
{
    std::optional<Blocco> Tutto;
    if (Prima) {
        Tutto.emplace(*Da.Conn);
        Prima();
    }
    const QString Valori = QStringList(Cambiati.size(), u"?"_s).join(u',');
    const QString Sql =
        Cambiati.isEmpty()
            ? u"INSERT INTO %1 DEFAULT VALUES"_s.arg(Da.Tabella)
            : u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(Da.Tabella, Elenco(Da, Cambiati.keys()), Valori);
    Da.Conn->Esegui(Sql, Cambiati.values());
    const qint64 Chiave = Da.Conn->UltimaChiave();
    if (Tutto)
        Tutto->Conferma();
    Aggiungi(Chiave);
    Vai(Chiavi.size() - 1);
}

void Insieme::Aggiorna()
{
    const qint64 Chiave = ChiaveCorrente();
    if (!Cambiati.isEmpty()) {
        const QString Sql =
            u"UPDATE %1 SET %2 WHERE %3=?"_s.arg(Da.Tabella, Elenco(Da, Cambiati.keys(), u"=?"_s), Da.Chiave);
        if (Da.Conn->Esegui(Sql, Cambiati.values() << Chiave) == 0)
            throw Errore(errori::RecordEliminato);
        SeguiChiave();
    }
    Vai(Posto);
}

// A counter is the row's key itself: a new value for it is a new key.
void Insieme::SeguiChiave()
{
    for (auto Cambiato = Cambiati.cbegin(); Cambiato != Cambiati.cend(); ++Cambiato) {
        if (!Da.Colonne[Cambiato.key()].Contatore || Cambiato->isNull())
            continue;
        Chiavi[Posto] = Cambiato->toLongLong();
        Crescenti = std::ranges::is_sorted(Chiavi);
    }
}

void Insieme::Elimina()
{
    const qint64 Chiave = ChiaveCorrente();
    const int Tolte = Da.Conn->Esegui(u"DELETE FROM %1 WHERE %2=?"_s.arg(Da.Tabella, Da.Chiave), {Chiave});
    if (Tolte == 0)
        throw Errore(errori::RecordEliminato);
    Chiavi.removeAt(Posto);
    Vai(Posto);
    Buco = true;
}
