#include "platform/accesso/figlio/conversione.h"

#include "platform/accesso/figlio/archivio.h"
#include "platform/base/errore.h"
#include "platform/database/connessione.h"
#include "platform/database/criterio.h"

#include <QJsonArray>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Names that the engine keeps for its own tables.
bool Riservato(const QString& Nome)
{
    return Nome.startsWith("sqlite_"_L1, Qt::CaseInsensitive) ||
           Nome.compare("_Campi"_L1, Qt::CaseInsensitive) == 0 ||
           Nome.compare("_Calcanova"_L1, Qt::CaseInsensitive) == 0;
}

/// The copy while it is written, and the report on it.
class Copiatura
{
public:
    Copiatura(const QString& A, const std::function<void(qint64)>& DaAvvisare)
        : Db(CreateDatabase(A)), Conn(Connessione::Condivisa(A)), Avvisa(DaAvvisare)
    {
        // Nobody else has the file yet, and what fails is thrown away: no journal beside it, no waiting.
        Conn->Esegui(u"PRAGMA locking_mode=EXCLUSIVE"_s);
        Conn->Esegui(u"PRAGMA journal_mode=MEMORY"_s);
        Conn->Esegui(u"PRAGMA synchronous=OFF"_s);
    }

    void Tutto(ArchivioAccess& Da)
    {
        Blocco Copiate(*Conn);
        for (qsizetype i = 0; i < Da.Tabelle(); ++i)
            Una(Da, i);
        Copiate.Conferma();
    }

    [[nodiscard]] QJsonObject Rapporto() const
    {
        return {{u"errore"_s, 0}, {u"tabelle"_s, Tabelle}, {u"tralasciati"_s, Tralasciati}};
    }

private:
    void Tralascia(const QString& Cosa, const QString& Perche)
    {
        Tralasciati.append(QJsonObject{{u"cosa"_s, Cosa}, {u"perche"_s, Perche}});
    }

    void Una(ArchivioAccess& Da, qsizetype Posto)
    {
        TabellaLetta Tabella = Da.Apri(Posto);
        if (Tabella.Perche.isEmpty())
            Tabella.Perche = Impossibile(Tabella);
        if (!Tabella.Perche.isEmpty()) {
            Tralascia(Tabella.Nome, Tabella.Perche);
            return;
        }
        Colonne.clear();
        for (const ColonnaLetta& Colonna : std::as_const(Tabella.Colonne)) {
            if (Colonna.Perche.isEmpty())
                Colonne.append(Colonna.Come);
            else
                Tralascia(Tabella.Nome + u'.' + Colonna.Come.Name, Colonna.Perche);
        }
        // The engine fills one counter, and it must be a key: Access has no two, a damaged file may.
        bool Contatore = false;
        for (Campo& C : Colonne) {
            C.Contatore = C.Contatore && !Contatore;
            Contatore = Contatore || C.Contatore;
        }
        if (!Righe(Da, Tabella)) {
            Tralascia(Tabella.Nome, u"il contatore ha valori doppi o mancanti: resta come numero"_s);
            Db.Execute(u"DROP TABLE "_s + Identificatore(Tabella.Nome));
            for (Campo& C : Colonne)
                C.Contatore = false;
            (void)Righe(Da, Tabella);
        } else if (Contatore) {
            ContinuaDa(Tabella);
        }
        Indici(Tabella);
        Tabelle.append(QJsonObject{{u"nome"_s, Tabella.Nome}, {u"righe"_s, Scritte}});
    }

    [[nodiscard]] QString Impossibile(const TabellaLetta& Tabella) const
    {
        if (Tabella.Nome.isEmpty())
            return u"tabella senza un nome leggibile"_s;
        if (Riservato(Tabella.Nome))
            return u"nome riservato al programma"_s;
        if (Db.EsisteTabella(Tabella.Nome))
            return u"nome già usato da un'altra tabella"_s;
        const bool Vuota = std::ranges::none_of(
            Tabella.Colonne, [](const ColonnaLetta& Colonna) { return Colonna.Perche.isEmpty(); });
        return Vuota ? u"nessun campo che si possa leggere"_s : QString();
    }

    /// The table with its columns, and what writes a row of it.
    [[nodiscard]] Istruzione CreaTabella(const QString& Nome)
    {
        Db.CreaTabella(Nome, Colonne);
        QStringList Nomi;
        for (const Campo& C : std::as_const(Colonne))
            Nomi << Identificatore(C.Name);
        const QString Posti = QStringList(Nomi.size(), u"?"_s).join(u',');
        return {*Conn, u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(Identificatore(Nome), Nomi.join(u','), Posti),
                QVariantList(Nomi.size())};
    }

    /// What was left out of the cells of a table, by column.
    struct Omesse
    {
        QMap<int, qint64> Enormi;
        QMap<int, qint64> Illeggibili;

        void Conta(const RigaLetta& Riga)
        {
            for (const int Colonna : Riga.Enormi)
                ++Enormi[Colonna];
            for (const int Colonna : Riga.Illeggibili)
                ++Illeggibili[Colonna];
        }
    };

    /// Makes the table and copies its rows.
    /// @return false when its counter is no key
    bool Righe(ArchivioAccess& Da, const TabellaLetta& Tabella)
    {
        Istruzione Scrive = CreaTabella(Tabella.Nome);
        const qsizetype Chiave = std::ranges::find(Colonne, true, &Campo::Contatore) - Colonne.begin();
        const bool Contatore = Chiave < Colonne.size();
        Scritte = 0;
        Omesse Celle;
        bool Buona = true;
        qint64 Rotte = Da.Righe([&](const RigaLetta& Riga) {
            constexpr qint64 Ogni = 2000;
            // The engine would give a row without its number one of its own.
            if (Buona && Contatore && Riga.Valori[Chiave].isNull())
                Buona = false;
            if (!Buona)
                return;
            Celle.Conta(Riga);
            for (qsizetype i = 0; i < Riga.Valori.size(); ++i)
                Scrive.Lega(int(i) + 1, Riga.Valori[i]);
            try {
                Scrive.Avanza();
            } catch (const Errore& Guasto) {
                if (Guasto.Numero != errori::ValoreDoppio || !Contatore)
                    throw;
                Buona = false;
            }
            Scrive.Azzera();
            ++Scritte;
            if (++Totale % Ogni == 0)
                Avvisa(Totale);
        });
        if (!Buona)
            return false;
        Racconta(Tabella, Celle.Enormi, u"oltre 16 MB: %1 celle"_s);
        Racconta(Tabella, Celle.Illeggibili, u"valori illeggibili: %1"_s);
        // A file that was never closed says nothing of how many there are.
        Rotte = std::max(Rotte, Tabella.RigheDichiarate - Scritte);
        if (Rotte > 0)
            Tralascia(Tabella.Nome, u"righe illeggibili: %1"_s.arg(Rotte));
        return true;
    }

    void Racconta(const TabellaLetta& Tabella, const QMap<int, qint64>& Contate, const QString& Frase)
    {
        for (auto Voce = Contate.begin(); Voce != Contate.end(); ++Voce)
            Tralascia(Tabella.Nome + u'.' + Tabella.Colonne[Voce.key()].Come.Name, Frase.arg(Voce.value()));
    }

    /// A key that a row has had is never given out again: old notes may name it.
    void ContinuaDa(const TabellaLetta& Tabella)
    {
        constexpr qint64 Massimo = qint64(1) << 30;
        if (Tabella.UltimoContatore <= 0 || Tabella.UltimoContatore > Massimo)
            return;
        if (Db.Execute(u"UPDATE sqlite_sequence SET seq=max(seq, ?) WHERE name=?"_s,
                       {Tabella.UltimoContatore, Tabella.Nome}) == 0)
            Db.Execute(u"INSERT INTO sqlite_sequence (name, seq) VALUES (?, ?)"_s,
                       {Tabella.Nome, Tabella.UltimoContatore});
    }

    void Indici(const TabellaLetta& Tabella)
    {
        QStringList Fatti;
        for (const IndiceAccess& Indice : Tabella.Indici) {
            QStringList Nomi;
            bool Intero = true;
            bool Proprio = false;  // the counter is the key of its table
            for (const int Numero : Indice.Colonne) {
                const auto Trovata = std::ranges::find_if(Tabella.Colonne, [&](const ColonnaLetta& Colonna) {
                    return Colonna.Perche.isEmpty() && Colonna.Dove.Numero == Numero;
                });
                Intero = Intero && Trovata != Tabella.Colonne.end();
                if (!Intero)
                    break;
                Nomi << Trovata->Come.Name;
                Proprio = std::ranges::any_of(std::as_const(Colonne), [&](const Campo& C) {
                    return C.Contatore && C.Name == Trovata->Come.Name;
                });
            }
            if ((Proprio && Nomi.size() == 1) || Indice.Nome.isEmpty() ||
                Fatti.contains(Indice.Nome, Qt::CaseInsensitive))
                continue;
            if (!Intero) {
                Tralascia(Tabella.Nome, u"indice «%1»: un suo campo non c'è"_s.arg(Indice.Nome));
                continue;
            }
            Fatti.append(Indice.Nome);
            Crea(Tabella.Nome, Indice, Nomi);
        }
    }

    void Crea(const QString& Tabella, const IndiceAccess& Indice, QStringList Nomi)
    {
        Nomi.removeDuplicates();
        try {
            Db.CreaIndice(Tabella, Indice.Nome, Nomi, Indice.Unico);
        } catch (const Errore& Guasto) {
            if (Guasto.Numero != errori::ValoreDoppio)
                throw;
            Tralascia(Tabella, u"indice «%1»: ha valori doppi, non è più unico"_s.arg(Indice.Nome));
            Db.CreaIndice(Tabella, Indice.Nome, Nomi, false);
        }
    }

    Database Db;
    std::shared_ptr<Connessione> Conn;
    std::function<void(qint64)> Avvisa;
    QList<Campo> Colonne;
    qint64 Scritte = 0;
    qint64 Totale = 0;
    QJsonArray Tabelle;
    QJsonArray Tralasciati;
};

}  // namespace

QJsonObject CopiaTutto(const QString& Da, const QString& A, const std::function<void()>& Chiusa,
                       const std::function<void(qint64 Righe)>& Avanzate)
{
    ArchivioAccess Archivio(Da);
    Copiatura Copia(A, Avanzate);
    Chiusa();
    Archivio.LeggiElenco();
    Copia.Tutto(Archivio);
    return Copia.Rapporto();
}
