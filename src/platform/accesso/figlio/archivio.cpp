#include "platform/accesso/figlio/archivio.h"

#include "platform/base/errore.h"
#include "platform/base/paginacodice.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QtEndian>

#include <mdbtools.h>

#include <array>
#include <cstring>
#include <set>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 MassimaCella = qint64(16) << 20;
constexpr int MassimeTabelle = 1000;
constexpr int MassimeColonne = 255;  // as Access has it
constexpr int LinkAccess = 6;

struct ChiudiFile
{
    void operator()(MdbHandle* Aperto) const noexcept { mdb_close(Aperto); }
};
struct ChiudiTabella
{
    void operator()(MdbTableDef* Aperta) const noexcept { mdb_free_tabledef(Aperta); }
};
struct Libera
{
    void operator()(void* Byte) const noexcept { std::free(Byte); }
};

Errore Danneggiato(const QString& Come)
{
    return Errore(errori::FormatoDatabase, Come);
}

QString FileCorto()
{
    return u"Il file non è intero: copiarlo di nuovo dall'originale"_s;
}

/// A name as this program shows it: without the characters that nobody can type.
QString NomePulito(const QString& Nome)
{
    QString Pulito = SenzaControlli(Nome);
    Pulito.replace(u'\n', u' ').replace(u'\t', u' ');
    return Pulito.trimmed();
}

/// This program's type of a column; a sentence for one that it has not.
std::optional<TipoCampo> TipoDi(int Codice)
{
    switch (Codice) {
    case MDB_BOOL:
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT:
    case MDB_MONEY:
    case MDB_FLOAT:
    case MDB_DOUBLE:
    case MDB_DATETIME:
    case MDB_TEXT:
    case MDB_MEMO:
        return TipoCampo(Codice);
    case MDB_NUMERIC:
    case 0x13:  // a whole number of 64 bits
        return TipoCampo::Doppio;
    case MDB_REPID:
        return TipoCampo::Testo;
    default:
        return std::nullopt;
    }
}

QString PercheNo(int Codice)
{
    switch (Codice) {
    case MDB_BINARY:
        return u"campo binario"_s;
    case MDB_OLE:
        return u"oggetto OLE"_s;
    case MDB_COMPLEX:
        return u"allegati o valori multipli"_s;
    default:
        return u"tipo di campo sconosciuto (%1)"_s.arg(Codice);
    }
}

}  // namespace

struct ArchivioAccess::Dati
{
    std::unique_ptr<MdbHandle, ChiudiFile> File;
    QList<MdbCatalogEntry*> Voci;
    std::unique_ptr<MdbTableDef, ChiudiTabella> Tabella;
    TabellaLetta Letta;
    quint32 Pagine = 0;
    QByteArray PezzoMemo;

    [[nodiscard]] Formato Come() const { return IS_JET3(File.get()) ? Formato::Jet3 : Formato::Jet4; }
    [[nodiscard]] int Codici() const { return File->f->code_page; }
    [[nodiscard]] qsizetype BytePerPagina() const { return File->fmt->pg_size; }
    [[nodiscard]] QByteArray Pagina(quint32 Numero) const;
    [[nodiscard]] QByteArray Definizione(quint32 Prima) const;
    [[nodiscard]] std::optional<std::vector<quint32>> PagineProprie() const;
    [[nodiscard]] std::optional<QByteArray> Memo(const CellaAccess& Cella, qsizetype Posto, bool& Enorme);
    void LeggiPagina(quint32 Numero, const std::function<void(QByteArrayView)>& Prendi, qint64& Rotte) const;
    [[nodiscard]] bool HaPagine(const MdbCatalogEntry& Voce) const;
    [[nodiscard]] bool HaMappa(QByteArrayView Tabella) const;
    [[nodiscard]] QList<ColonnaLetta> LeggiColonne() const;
    void Descrivi(Campo& Nuovo, const MdbColumn& Colonna, TipoCampo Tipo) const;
};

/// A page, deciphered; empty where there is none.
QByteArray ArchivioAccess::Dati::Pagina(quint32 Numero) const
{
    if (Numero >= Pagine || mdb_read_alt_pg(File.get(), Numero) != File->fmt->pg_size)
        return {};
    return QByteArray(reinterpret_cast<const char*>(File->alt_pg_buf), BytePerPagina());
}

/// The whole definition of a table: its first page, and what follows the heads of the others.
QByteArray ArchivioAccess::Dati::Definizione(quint32 Prima) const
{
    constexpr qsizetype Testata = 8;
    constexpr int MassimePagine = 64;
    QByteArray Tutta;
    std::set<quint32> Viste;
    for (quint32 Numero = Prima; Numero != 0 && int(Viste.size()) < MassimePagine;) {
        const QByteArray Una = Pagina(Numero);
        if (Una.isEmpty() || Una[0] != MDB_PAGE_TABLE || !Viste.insert(Numero).second)
            break;
        Tutta += Tutta.isEmpty() ? Una : Una.sliced(Testata);
        Numero = qFromLittleEndian<quint32>(Una.constData() + 4);
    }
    return Tutta;
}

/// The pages with the table's rows; nothing where the file does not say.
std::optional<std::vector<quint32>> ArchivioAccess::Dati::PagineProprie() const
{
    const QByteArrayView Mappa(Tabella->usage_map, qsizetype(Tabella->map_sz));
    return PagineDiMappa(Mappa, BytePerPagina(), Pagine, [this](quint32 Numero) { return Pagina(Numero); });
}

/// The rows of a page, each whole: one that has outgrown its page stands in another one, and its place here
/// says where. What is marked as deleted is such a row of another page, or none any more.
void ArchivioAccess::Dati::LeggiPagina(quint32 Numero, const std::function<void(QByteArrayView)>& Prendi,
                                       qint64& Rotte) const
{
    constexpr int Tolta = 0x8000;
    constexpr int Altrove = 0x4000;
    constexpr int Posizione = 0x1fff;
    const QByteArray Byte = Pagina(Numero);
    if (Byte.isEmpty())
        throw Danneggiato(FileCorto());
    if (Byte[0] != MDB_PAGE_DATA ||
        qFromLittleEndian<quint32>(Byte.constData() + 4) != quint32(Tabella->entry->table_pg))
        return;
    const qsizetype Conto = File->fmt->row_count_offset;
    const int Quante = qFromLittleEndian<quint16>(Byte.constData() + Conto);
    int Fine = int(Byte.size());
    for (int i = 0; i < Quante; ++i) {
        const qsizetype Posto = Conto + 2 + qsizetype(2) * i;
        if (Posto + 2 > Byte.size()) {
            Rotte += Quante - i;
            return;
        }
        const int Segnata = qFromLittleEndian<quint16>(Byte.constData() + Posto);
        const int Inizio = Segnata & Posizione;
        const int Ultima = std::exchange(Fine, Inizio);
        if ((Segnata & Tolta) != 0)
            continue;
        if (Inizio > Ultima || Ultima > Byte.size()) {
            ++Rotte;
            continue;
        }
        QByteArrayView Riga = QByteArrayView(Byte).sliced(Inizio, Ultima - Inizio);
        QByteArray Lontana;
        if ((Segnata & Altrove) != 0) {
            void* Pagina = nullptr;
            int Da = 0;
            size_t Lunga = 0;
            if (Riga.size() < 4 || mdb_find_pg_row(File.get(), int(qFromLittleEndian<quint32>(Riga.data())),
                                                   &Pagina, &Da, &Lunga) != 0) {
                ++Rotte;
                continue;
            }
            Lontana = QByteArray(static_cast<const char*>(Pagina) + Da, qsizetype(Lunga));
            Riga = Lontana;
        }
        Prendi(Riga);
    }
}

/// The bytes of a memo; nothing for one that cannot be read, or holds more than a cell may.
std::optional<QByteArray> ArchivioAccess::Dati::Memo(const CellaAccess& Cella, qsizetype Posto, bool& Enorme)
{
    const std::optional<MemoAccess> Testata = LeggiMemo(*Cella);
    if (!Testata)
        return std::nullopt;
    Enorme = Testata->Byte > MassimaCella;
    if (Enorme)
        return std::nullopt;
    if (Testata->Dentro)
        return Cella->sliced(TestataMemo).toByteArray();
    if (Testata->Byte == 0)
        return QByteArray();
    // The library takes the head of the memo from the place where it then puts each piece of it.
    PezzoMemo.fill('\0', BytePerPagina() + TestataMemo);
    std::memcpy(PezzoMemo.data(), Cella->data(), size_t(TestataMemo));
    auto* Colonna = static_cast<MdbColumn*>(g_ptr_array_index(Tabella->columns, Posto));
    Colonna->bind_ptr = PezzoMemo.data();
    Colonna->cur_value_start = 0;
    Colonna->cur_value_len = int(TestataMemo);
    size_t Letti = 0;
    const std::unique_ptr<void, Libera> Byte(mdb_ole_read_full(File.get(), Colonna, &Letti));
    Colonna->bind_ptr = nullptr;
    if (!Byte || qint64(Letti) < Testata->Byte)
        return std::nullopt;
    return QByteArray(static_cast<const char*>(Byte.get()), Testata->Byte);
}

/// A table whose pages lie behind the end is none that is damaged: the file is short.
bool ArchivioAccess::Dati::HaPagine(const MdbCatalogEntry& Voce) const
{
    const QByteArray Prima = Pagina(quint32(Voce.table_pg));
    return !Prima.isEmpty() &&
           qFromLittleEndian<quint32>(Prima.constData() + File->fmt->tab_usage_map_offset) >> 8 < Pagine;
}

/// Whether the table of this first page says which pages are its own. The library, which walks them through
/// the list of tables, looks into the map without asking how long it is.
bool ArchivioAccess::Dati::HaMappa(QByteArrayView Tabella) const
{
    constexpr size_t TipoConUnNumero = 5;
    const auto Dove = qFromLittleEndian<quint32>(Tabella.data() + File->fmt->tab_usage_map_offset);
    void* Pagina = nullptr;
    int Inizio = 0;
    size_t Lunga = 0;
    return mdb_find_pg_row(File.get(), int(Dove), &Pagina, &Inizio, &Lunga) == 0 && Lunga >= TipoConUnNumero;
}

/// The columns of the table that is open, each with the reason why it is left out.
QList<ColonnaLetta> ArchivioAccess::Dati::LeggiColonne() const
{
    QList<ColonnaLetta> Lette;
    QSet<QString> Nomi;
    for (unsigned int i = 0; i < Tabella->columns->len; ++i) {
        const auto& Colonna = *static_cast<const MdbColumn*>(g_ptr_array_index(Tabella->columns, i));
        ColonnaLetta Nuova;
        Nuova.Dove = {.Tipo = Colonna.col_type,
                      .Dimensione = Colonna.col_size,
                      .Numero = Colonna.col_num,
                      .Fissa = Colonna.is_fixed != 0,
                      .PostoFisso = Colonna.fixed_offset,
                      .PostoVariabile = int(Colonna.var_col_num),
                      // The library has the two numbers of a decimal column the other way round.
                      .Scala = Colonna.col_prec};
        Nuova.Come.Name = NomePulito(QString::fromUtf8(Colonna.name));
        if (Nuova.Come.Name.isEmpty())
            Nuova.Come.Name = u"Campo%1"_s.arg(i + 1);
        const QString Minuscolo = Nuova.Come.Name.toLower();
        if (const std::optional<TipoCampo> Tipo = TipoDi(Colonna.col_type); !Tipo) {
            Nuova.Perche = PercheNo(Colonna.col_type);
        } else if (Nomi.contains(Minuscolo)) {
            Nuova.Perche = u"nome già usato da un altro campo"_s;
        } else {
            Nomi.insert(Minuscolo);
            Descrivi(Nuova.Come, Colonna, *Tipo);
        }
        Lette.append(Nuova);
    }
    return Lette;
}

/// Type, size and description of a column that is read.
void ArchivioAccess::Dati::Descrivi(Campo& Nuovo, const MdbColumn& Colonna, TipoCampo Tipo) const
{
    constexpr int CaratteriGuid = 38;
    Nuovo.Type = Tipo;
    Nuovo.Contatore = Colonna.is_long_auto && Tipo == TipoCampo::Lungo;
    if (Colonna.col_type == MDB_REPID)
        Nuovo.Size = CaratteriGuid;
    else if (Tipo == TipoCampo::Testo)
        Nuovo.Size = Come() == Formato::Jet3 ? Colonna.col_size : Colonna.col_size / 2;
    if (const char* Descrizione = mdb_col_get_prop(&Colonna, "Description"))
        Nuovo.Description = NomePulito(QString::fromUtf8(Descrizione));
}

ArchivioAccess::ArchivioAccess(const QString& Nome) : Stato(std::make_unique<Dati>())
{
    if (!QFileInfo(Nome).isFile())
        throw Danneggiato(u"Il file non è un archivio di Access"_s);
    Stato->File.reset(mdb_open(QFile::encodeName(Nome).constData(), MDB_NOFLAGS));
    if (!Stato->File)
        throw Danneggiato(u"Il file è danneggiato, o di una versione di Access che non si legge"_s);
    Stato->Pagine = quint32(QFileInfo(Nome).size() / Stato->BytePerPagina());
}

ArchivioAccess::~ArchivioAccess()
{
    Stato->Tabella.reset();
}

void ArchivioAccess::LeggiElenco()
{
    MdbHandle* File = Stato->File.get();
    constexpr quint32 Elenco = 2;
    const QByteArray Prima = Stato->Pagina(Elenco);
    if (Prima.isEmpty())
        throw Danneggiato(FileCorto());
    if (Prima[0] != MDB_PAGE_TABLE) {
        if (File->f->jet_version >= MDB_VER_ACCDB_2007)
            throw Danneggiato(
                u"Il file è cifrato con una password di Access: toglierla con Access e ripetere"_s);
        throw Danneggiato(u"Il file è danneggiato: ripararlo con Access, o copiarlo di nuovo"_s);
    }
    if (!Stato->HaMappa(Prima) || !mdb_read_catalog(File, MDB_ANY))
        throw Danneggiato(u"Il file è danneggiato: ripararlo con Access, o copiarlo di nuovo"_s);
    int Proprie = 0;
    for (unsigned int i = 0; i < File->catalog->len; ++i) {
        auto* Voce = static_cast<MdbCatalogEntry*>(g_ptr_array_index(File->catalog, i));
        if (Voce->object_type != MDB_TABLE && Voce->object_type != LinkAccess)
            continue;
        Proprie += int(mdb_is_user_table(Voce) != 0);
        Stato->Voci.append(Voce);
    }
    if (Proprie > MassimeTabelle)
        throw Danneggiato(u"Il file ha più di 1000 tabelle: non è un archivio di questo programma"_s);
}

qsizetype ArchivioAccess::Tabelle() const
{
    return Stato->Voci.size();
}

TabellaLetta ArchivioAccess::Apri(qsizetype Posto)
{
    Dati& S = *Stato;
    MdbCatalogEntry* Voce = S.Voci[Posto];
    S.Tabella.reset();
    S.Letta = {};
    TabellaLetta& Letta = S.Letta;
    Letta.Nome = NomePulito(QString::fromUtf8(Voce->object_name));
    if (Voce->object_type == LinkAccess) {
        Letta.Perche = u"tabella collegata a un altro file"_s;
        return Letta;
    }
    if (mdb_is_system_table(Voce) || Letta.Nome.startsWith(u'~')) {
        Letta.Perche = u"tabella di sistema"_s;
        return Letta;
    }
    if (!S.HaPagine(*Voce))
        throw Danneggiato(FileCorto());
    S.Tabella.reset(mdb_read_table(Voce));
    if (!S.Tabella) {
        Letta.Perche = u"tabella danneggiata"_s;
        return Letta;
    }
    if (S.Tabella->num_cols == 0 || S.Tabella->num_cols > MassimeColonne) {
        Letta.Perche = u"tabella danneggiata: %1 campi"_s.arg(S.Tabella->num_cols);
        return Letta;
    }
    if (!mdb_read_columns(S.Tabella.get())) {
        Letta.Perche = u"tabella danneggiata"_s;
        return Letta;
    }
    Letta.Colonne = S.LeggiColonne();
    const QByteArray Definizione = S.Definizione(quint32(Voce->table_pg));
    Letta.Indici = IndiciAccess(Definizione, S.Come(), S.Codici());
    Letta.UltimoContatore = ContatoreAccess(Definizione, S.Come());
    Letta.RigheDichiarate = S.Tabella->num_rows;
    return Letta;
}

qint64 ArchivioAccess::Righe(const std::function<void(const RigaLetta&)>& Prendi)
{
    Dati& S = *Stato;
    std::vector<ColonnaAccess> Colonne;
    for (const ColonnaLetta& Colonna : S.Letta.Colonne)
        Colonne.push_back(Colonna.Dove);
    const bool Variabili = S.Tabella->num_var_cols > 0;
    qint64 Rotte = 0;
    const auto Riga = [&](QByteArrayView Byte) {
        // The bytes are the caller's own: a memo reads other pages meanwhile.
        const std::optional<std::vector<CellaAccess>> Celle = SpezzaRiga(Byte, S.Come(), Colonne, Variabili);
        if (!Celle) {
            ++Rotte;
            return;
        }
        RigaLetta Nuova;
        for (qsizetype i = 0; i < S.Letta.Colonne.size(); ++i) {
            const ColonnaLetta& Colonna = S.Letta.Colonne[i];
            if (!Colonna.Perche.isEmpty())
                continue;
            const CellaAccess& Cella = (*Celle)[size_t(i)];
            std::optional<QVariant> Valore;
            bool Enorme = false;
            if (Colonna.Dove.Tipo == MDB_MEMO && Cella) {
                if (const auto Byte16 = S.Memo(Cella, i, Enorme))
                    Valore = TestoAccess(*Byte16, S.Come(), S.Codici());
            } else {
                Valore = ValoreAccess(Cella, Colonna.Dove, S.Come(), S.Codici());
            }
            if (Enorme)
                Nuova.Enormi.append(int(i));
            else if (!Valore)
                Nuova.Illeggibili.append(int(i));
            Nuova.Valori.append(Valore.value_or(QVariant()));
        }
        Prendi(Nuova);
    };
    if (const auto Pagine = S.PagineProprie()) {
        for (const quint32 Numero : *Pagine)
            S.LeggiPagina(Numero, Riga, Rotte);
    } else {
        for (quint32 Numero = 1; Numero < S.Pagine; ++Numero)
            S.LeggiPagina(Numero, Riga, Rotte);
    }
    return Rotte;
}
