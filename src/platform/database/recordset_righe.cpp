// Rows of a set read in one go, chosen by their keys, taken out and put back whole.
#include "platform/database/recordset.h"

#include "platform/base/errore.h"
#include "platform/database/insieme.h"

#include <algorithm>

using namespace Qt::StringLiterals;

qint64 RigaScorsa::Chiave() const
{
    return Righe.Intero(0);
}

QByteArrayView RigaScorsa::Utf8(int Colonna) const
{
    return Righe.Utf8(Colonna + 1);
}

qsizetype RigaScorsa::Byte(int Colonna) const
{
    return Righe.Byte(Colonna + 1);
}

QVariant RigaScorsa::Valore(int Colonna) const
{
    return Righe.Valore(Colonna + 1, Colonne[Colonna].Type);
}

std::optional<qint64> Recordset::Scorri(const QStringList& Colonne, std::optional<qint64> Dopo, int Massimo,
                                        const std::function<void(const RigaScorsa& Riga)>& Prendi) const
{
    const Sorgente& Da = Corrente().Da;
    QList<Campo> Chieste;
    QStringList Nomi{Da.Chiave};
    for (const QString& Colonna : Colonne) {
        const int Posto = Da.Posto(Colonna);
        Chieste.append(Da.Colonne[Posto]);
        Nomi.append(Da.NomiSql[Posto]);
    }
    const QString Inizio = Dopo ? u" WHERE %1>?"_s.arg(Da.Chiave) : QString();
    Istruzione Righe(
        *Da.Conn,
        u"SELECT %1 FROM %2%3 ORDER BY %4 LIMIT ?"_s.arg(Nomi.join(u','), Da.Tabella, Inizio, Da.Chiave),
        Dopo ? QVariantList{*Dopo, Massimo} : QVariantList{Massimo});
    const RigaScorsa Riga(Righe, Chieste);
    std::optional<qint64> Ultima;
    int Lette = 0;
    while (Righe.Avanza()) {
        Prendi(Riga);
        Ultima = Riga.Chiave();
        ++Lette;
    }
    return Lette == Massimo ? Ultima : std::nullopt;
}

namespace {

/// Whether keys are among those of an ascending list. Keys that lie close together cost a bit each.
class Presenti
{
public:
    explicit Presenti(const std::vector<qint64>& Ordinate) : Lista(Ordinate)
    {
        constexpr quint64 MassimoBit = quint64(1) << 28;
        if (Lista.empty())
            return;
        const quint64 Ampiezza = quint64(Lista.back()) - quint64(Lista.front());
        if (Ampiezza >= MassimoBit)
            return;
        Bit.resize(size_t(Ampiezza) + 1);
        for (const qint64 Chiave : Lista)
            Bit[size_t(Chiave - Lista.front())] = true;
    }

    [[nodiscard]] bool Ha(qint64 Chiave) const
    {
        if (Lista.empty() || Chiave < Lista.front() || Chiave > Lista.back())
            return false;
        return Bit.empty() ? std::ranges::binary_search(Lista, Chiave) : Bit[size_t(Chiave - Lista.front())];
    }

private:
    const std::vector<qint64>& Lista;
    std::vector<bool> Bit;
};

}  // namespace

Recordset Recordset::Ristretto(const std::vector<qint64>& Chiavi) const
{
    auto Nuovo = std::make_shared<Dati>();
    if (Stato) {
        Nuovo->Da = Stato->Da;
        const Presenti Volute(Chiavi);
        for (const qint64 Chiave : std::as_const(Stato->Chiavi))
            if (Volute.Ha(Chiave))
                Nuovo->Aggiungi(Chiave);
    }
    return Recordset(std::move(Nuovo));
}

QVariantList Recordset::Grezza() const
{
    const Dati& Insieme = Corrente();
    Istruzione Riga(*Insieme.Da.Conn,
                    u"SELECT %1 FROM %2 WHERE %3=?"_s.arg(Insieme.Da.NomiSql.join(u','), Insieme.Da.Tabella,
                                                          Insieme.Da.Chiave),
                    {Insieme.ChiaveCorrente()});
    if (!Riga.Avanza())
        throw Errore(errori::RecordEliminato);
    QVariantList Celle;
    for (int i = 0; i < Insieme.Da.NomiSql.size(); ++i)
        Celle.append(Riga.Grezzo(i));
    return Celle;
}

void Recordset::Rimetti(const QVariantList& Celle)
{
    Dati& Insieme = Corrente();
    Insieme.EsigiScrivibile();
    Insieme.Aperto = Dati::Lavoro::Nuovo;
    Insieme.Cambiati.clear();
    for (int i = 0; i < Celle.size(); ++i)
        if (!Celle[i].isNull())
            Insieme.Cambiati.insert(i, Celle[i]);
    try {
        Insieme.Inserisci();
    } catch (...) {
        CancelUpdate();
        throw;
    }
}
