// Finding rows of a set: criteria, indices and bookmarks.
//
// A find asks the engine for the keys of the rows that meet the criterion and looks which of them comes
// first in the set's own order; no row is fetched. A single comparison with a text is asked of the texts in
// memory instead: whoever searches once searches again.
#include "platform/database/recordset.h"

#include "platform/base/errore.h"
#include "platform/database/criterio.h"
#include "platform/database/insieme.h"
#include "platform/database/testicolonna.h"
#include "platform/database/valori.h"

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// The places to look at, both included, and the end to begin from.
struct Tratto
{
    qsizetype Da = 0;
    qsizetype A = -1;
    bool Indietro = false;
};

// The set is in the order of its keys: the engine walks them in that order and stops at the first.
qsizetype CercaCrescente(const Insieme& Tra, const Condizione& Cond, const Tratto& Dove)
{
    const QString Sql = u"SELECT %1 FROM %2 WHERE %1>=? AND %1<=? AND (%3) ORDER BY %1"_s.arg(
                            Tra.Da.Chiave, Tra.Da.Tabella, Cond.Sql) +
                        (Dove.Indietro ? u" DESC"_s : QString());
    Istruzione Righe(*Tra.Da.Conn, Sql, QVariantList{Tra.Chiavi[Dove.Da], Tra.Chiavi[Dove.A]} + Cond.Valori);
    while (Righe.Avanza())
        if (const qsizetype Posto = Tra.Trova(Righe.Intero(0)); Posto >= 0)
            return Posto;
    return -1;
}

/// The place in the set's own order of the first row that has one of the keys.
/// @param Buone ascending
qsizetype PrimaFra(const std::vector<qint64>& Buone, const Insieme& Tra, const Tratto& Dove)
{
    const auto EBuona = [&](qint64 Chiave) { return std::ranges::binary_search(Buone, Chiave); };
    const auto Inizio = Tra.Chiavi.cbegin() + Dove.Da;
    const auto Fine = Tra.Chiavi.cbegin() + Dove.A + 1;
    if (Buone.empty())
        return -1;
    if (!Dove.Indietro) {
        const auto Trovata = std::find_if(Inizio, Fine, EBuona);
        return Trovata != Fine ? Trovata - Tra.Chiavi.cbegin() : -1;
    }
    const auto Prima = std::make_reverse_iterator(Inizio);
    const auto Trovata = std::find_if(std::make_reverse_iterator(Fine), Prima, EBuona);
    return Trovata != Prima ? Trovata.base() - Tra.Chiavi.cbegin() - 1 : -1;
}

qsizetype CercaOrdinata(const Insieme& Tra, const Condizione& Cond, const Tratto& Dove)
{
    const QString Sql = u"SELECT %1 FROM %2 WHERE (%3)"_s.arg(Tra.Da.Chiave, Tra.Da.Tabella, Cond.Sql);
    Istruzione Righe(*Tra.Da.Conn, Sql, Cond.Valori);
    std::vector<qint64> Buone;
    while (Righe.Avanza())
        Buone.push_back(Righe.Intero(0));
    std::ranges::sort(Buone);
    return PrimaFra(Buone, Tra, Dove);
}

/// The texts of the column, good for now; null when the engine must be asked.
TestiColonna* TestiPer(Insieme& Tra, const Condizione& Cond)
{
    if (!Cond.Solo)
        return nullptr;
    const int Colonna = int(Tra.Da.NomiSql.indexOf(Cond.Solo->Colonna));
    if (!EDiTesto(Tra.Da.Colonne[Colonna].Type))
        return nullptr;
    if (!Tra.TestiLetti || !Tra.TestiLetti->EDi(Colonna))
        Tra.TestiLetti = std::make_shared<TestiColonna>(Tra.Da, Colonna);
    Tra.TestiLetti->Verifica(Tra.Chiavi.size());
    return Tra.TestiLetti->Usabili() ? Tra.TestiLetti.get() : nullptr;
}

/// Rows of the table that the set does not have are passed over.
qsizetype CercaTestiCrescente(TestiColonna& Testi, const DomandaTesto& Domanda, const Insieme& Tra,
                              const Tratto& Dove)
{
    const qint64 Prima = Tra.Chiavi[Dove.Da];
    const qint64 Ultima = Tra.Chiavi[Dove.A];
    qsizetype Riga = Dove.Indietro ? Testi.Indietro(Domanda, Ultima) : Testi.Avanti(Domanda, Prima);
    while (Riga >= 0 && Testi.Chiave(Riga) >= Prima && Testi.Chiave(Riga) <= Ultima) {
        if (const qsizetype Posto = Tra.Trova(Testi.Chiave(Riga)); Posto >= 0)
            return Posto;
        Riga = Dove.Indietro ? Testi.PrimaDi(Domanda, Riga) : Testi.Oltre(Domanda, Riga);
    }
    return -1;
}

qsizetype CercaTestiOrdinata(TestiColonna& Testi, const DomandaTesto& Domanda, const Insieme& Tra,
                             const Tratto& Dove)
{
    std::vector<qint64> Buone;
    qsizetype Riga = Testi.Indietro(Domanda, std::numeric_limits<qint64>::max());
    for (; Riga >= 0; Riga = Testi.PrimaDi(Domanda, Riga))
        Buone.push_back(Testi.Chiave(Riga));
    std::ranges::reverse(Buone);
    return PrimaFra(Buone, Tra, Dove);
}

qsizetype CercaCondizione(Insieme& Tra, const Condizione& Cond, const Tratto& Dove)
{
    const Sguardo Uno(*Tra.Da.Conn);
    if (TestiColonna* Testi = TestiPer(Tra, Cond)) {
        const DomandaTesto Domanda(*Cond.Solo);
        const qsizetype Trovato = Tra.Crescenti ? CercaTestiCrescente(*Testi, Domanda, Tra, Dove)
                                                : CercaTestiOrdinata(*Testi, Domanda, Tra, Dove);
        if (Testi->Usabili())
            return Trovato;
    }
    return Tra.Crescenti ? CercaCrescente(Tra, Cond, Dove) : CercaOrdinata(Tra, Cond, Dove);
}

void Cerca(Insieme& Tra, const QString& Criterio, const Tratto& Dove)
{
    const Condizione Cond =
        LeggiCriterio(Criterio, [&](const QString& Nome) { return Tra.Da.Identifica(Nome); });
    const bool Vuoto = Dove.Da > Dove.A;
    const qsizetype Trovato = Vuoto ? -1 : CercaCondizione(Tra, Cond, Dove);
    Tra.SenzaEsito = Trovato < 0;
    if (Trovato >= 0)
        Tra.Vai(Trovato);
}

}  // namespace

void Recordset::FindFirst(const QString& Criterio)
{
    Cerca(Corrente(), Criterio, {0, Stato->Chiavi.size() - 1, false});
}

void Recordset::FindLast(const QString& Criterio)
{
    Cerca(Corrente(), Criterio, {0, Stato->Chiavi.size() - 1, true});
}

void Recordset::FindNext(const QString& Criterio)
{
    const qsizetype Da = Corrente().Posto + (Stato->Buco ? 0 : 1);
    Cerca(*Stato, Criterio, {Da, Stato->Chiavi.size() - 1, false});
}

void Recordset::FindPrevious(const QString& Criterio)
{
    Dati& Insieme = Corrente();
    Cerca(Insieme, Criterio, {0, Insieme.Posto - 1, true});
}

bool Recordset::NoMatch() const
{
    return Stato && Stato->SenzaEsito;
}

// ---- Indices ------------------------------------------------------------------------------------

namespace {

/// The index under the name that CreaIndice gives it, or as another tool named it.
QString TrovaIndice(const Sorgente& Da, const QString& Nome)
{
    Istruzione Indici(*Da.Conn, u"SELECT name FROM pragma_index_list(?) WHERE origin='c' AND partial=0"_s,
                      {Da.NomeTabella});
    QString Altro;
    while (Indici.Avanza()) {
        const QString Qui = Indici.Testo(0);
        if (Qui.compare(NomeIndice(Da.NomeTabella, Nome), Qt::CaseInsensitive) == 0)
            return Qui;
        if (Qui.compare(Nome, Qt::CaseInsensitive) == 0)
            Altro = Qui;
    }
    return Altro;
}

struct Relazione
{
    QStringView Operatore;
    bool Indietro;  ///< the row sought is the last in index order
};

constexpr std::array Relazioni{Relazione{u"=", false}, Relazione{u">=", false}, Relazione{u">", false},
                               Relazione{u"<=", true}, Relazione{u"<", true}};

}  // namespace

void Recordset::ImpostaIndex(const QString& Nome)
{
    Dati& Insieme = Corrente();
    const QString Indice = Insieme.Da.Intera ? TrovaIndice(Insieme.Da, Nome) : QString();
    if (Indice.isEmpty())
        throw Errore(errori::IndiceMancante, DescrizioneErrore(errori::IndiceMancante) + u": "_s + Nome);
    QStringList Colonne;
    QList<int> Posti;
    Istruzione Info(*Insieme.Da.Conn, u"SELECT name FROM pragma_index_info(?) ORDER BY seqno"_s, {Indice});
    while (Info.Avanza()) {
        const int Posto = Insieme.Da.Posto(Info.Testo(0));
        Posti << Posto;
        // The engine's own order for text is by byte; text is compared without regard to case.
        const bool Testo = EDiTesto(Insieme.Da.Colonne[Posto].Type);
        Colonne << Insieme.Da.NomiSql[Posto] +
                       (Testo ? u" COLLATE "_s + QLatin1StringView(Collazione) : QString());
    }
    Insieme.ColonneIndice = Colonne;
    Insieme.PostiIndice = Posti;
    Insieme.LeggiChiavi(Insieme.OrdineIndice(false));
    Insieme.Vai(0);
}

void Recordset::Seek(const QString& Operatore, const QVariant& Chiave)
{
    Dati& Insieme = Corrente();
    if (Insieme.ColonneIndice.isEmpty())
        throw Errore(errori::SenzaIndice);
    const auto Come = std::ranges::find(Relazioni, Operatore, &Relazione::Operatore);
    if (Come == Relazioni.end())
        throw Errore(errori::Argomento);
    Insieme.Cerca(Operatore,
                  Chiave.typeId() == QMetaType::QVariantList ? Chiave.toList() : QVariantList{Chiave},
                  Come->Indietro);
}

void Insieme::Cerca(const QString& Operatore, const QVariantList& Chiave, bool Indietro)
{
    if (Chiave.isEmpty() || Chiave.size() > ColonneIndice.size())
        throw Errore(errori::Argomento);
    QVariantList Valori;
    for (int i = 0; i < Chiave.size(); ++i) {
        Campo SenzaMisura = Da.Colonne[PostiIndice[i]];
        SenzaMisura.Size = 0;  // a key may be longer than any that is there
        Valori << PerColonna(SenzaMisura, Chiave[i]);
    }
    const QString Posti = QStringList(Valori.size(), u"?"_s).join(u',');
    Istruzione Riga(*Da.Conn,
                    u"SELECT %1 FROM %2 WHERE (%3) %4 (%5)%6 LIMIT 1"_s.arg(
                        Da.Chiave, Da.Tabella, ColonneIndice.mid(0, Valori.size()).join(u','), Operatore,
                        Posti, OrdineIndice(Indietro)),
                    Valori);
    SenzaEsito = !Riga.Avanza();
    if (SenzaEsito)
        return Vai(Chiavi.size());
    const qint64 Trovata = Riga.Intero(0);
    if (Trova(Trovata) < 0)  // added since by somebody else
        LeggiChiavi(OrdineIndice(false));
    Vai(Trova(Trovata));
}

// ---- Bookmarks ----------------------------------------------------------------------------------

QVariant Recordset::Bookmark() const
{
    return Corrente().ChiaveCorrente();
}

void Recordset::ImpostaBookmark(const QVariant& Segno)
{
    Dati& Insieme = Corrente();
    const bool Intero = Segno.typeId() == QMetaType::LongLong;
    const qsizetype Posto = Intero ? Insieme.Trova(Segno.toLongLong()) : -1;
    if (Posto < 0)
        throw Errore(errori::Segnalibro);
    Insieme.Vai(Posto);
}
