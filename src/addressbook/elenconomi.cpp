#include "addressbook/elenconomi.h"

#include "addressbook/modRubrica.h"
#include "core/sessione.h"
#include "platform/accesso/accesso.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/percorsi.h"

#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <limits>
#include <string_view>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int RighePerPezzo = 5000;
constexpr int MassimoNome = 200;  ///< characters of a name that are offered
constexpr int PausaDopoUnGuastoMs = 30'000;

constexpr char16_t FraCampi = 0x1f;
constexpr char16_t FraRighe = 0x1e;

std::string_view Vista(QByteArrayView Byte)
{
    return {Byte.data(), size_t(Byte.size())};
}

bool IniziaParola(std::string_view Riga, size_t Posto)
{
    constexpr std::string_view Stacchi = " '\"-/(.,&";
    return Posto == 0 || Stacchi.find(Riga[Posto - 1]) != std::string_view::npos;
}

/// True when a word of the row begins with this one.
bool HaInizio(std::string_view Riga, std::string_view Parola)
{
    for (size_t Posto = Riga.find(Parola); Posto != std::string_view::npos;
         Posto = Riga.find(Parola, Posto + 1))
        if (IniziaParola(Riga, Posto))
            return true;
    return false;
}

/// How near a name is to what was typed, the nearest first.
enum RangoNome {
    Inizia,  ///< begins with the text
    Parole,  ///< its words begin with the text's words
    Dentro,
};

struct Trovato
{
    RangoNome Rango = Dentro;
    int Posto = 0;
};

/// The best so far by an order, the worst of them on top.
template <class Ordine>
class Migliori
{
public:
    Migliori(int Massimo, Ordine DiChi) : Quanti(size_t(std::max(Massimo, 0))), Prima(std::move(DiChi)) {}

    void Prendi(const Trovato& Uno)
    {
        if (Presi.size() < Quanti) {
            Presi.push_back(Uno);
            std::ranges::push_heap(Presi, Prima);
        } else if (Quanti > 0 && Uno.Rango != Dentro && Prima(Uno, Presi.front())) {
            // Of those that hold the words somewhere inside, the first ones will do.
            std::ranges::pop_heap(Presi, Prima);
            Presi.back() = Uno;
            std::ranges::push_heap(Presi, Prima);
        }
    }
    /// From the best on; nothing is taken behind that.
    [[nodiscard]] const std::vector<Trovato>& InOrdine()
    {
        std::ranges::sort_heap(Presi, Prima);
        return Presi;
    }

private:
    size_t Quanti;
    Ordine Prima;
    std::vector<Trovato> Presi;
};

}  // namespace

ElencoNomi::ElencoNomi(const QString& Nome) : Tabella(Nome)
{}

std::shared_ptr<ElencoNomi> ElencoNomi::Di(const QString& Tabella)
{
    static QHash<QString, std::weak_ptr<ElencoNomi>> Presenti;
    std::shared_ptr<ElencoNomi> Trovati = Presenti.value(Tabella).lock();
    if (!Trovati) {
        Trovati = std::make_shared<ElencoNomi>(Tabella);
        Presenti.insert(Tabella, Trovati);
    }
    return Trovati;
}

ElencoNomi::Impronta ElencoNomi::Guarda()
{
    const QFileInfo Info(PercorsoNativo(FileRubrica(sessione::ArchivioCliCon)));
    return {Info.filePath(), Info.isFile() ? Info.size() : -1, Info.lastModified()};
}

void ElencoNomi::Segui()
{
    const Impronta Ora = Guarda();
    if (Ora == Letta && !(Mancata && Ritenta.hasExpired()))
        return;
    if (Ora.File != Letta.File)
        Letti = {};  // another office's names
    Letta = Ora;
    Nuovi = {};
    Ultima = 0;
    InLettura = true;
    Mancata = false;
    Archivio = {};
}

bool ElencoNomi::Avanza()
{
    if (!InLettura)
        return false;
    try {
        if (!Archivio.Aperto()) {
            Archivio = ApriArchivio(FileRubrica(sessione::ArchivioCliCon), true);
            ConCitta = Archivio.EsisteCampo(Tabella, u"Citta"_s);
        }
        LeggiPezzo();
    } catch (const Errore&) {
        Nuovi = {};
        Archivio = {};
        InLettura = false;
        // A locked archive is waited for at each try.
        Ritenta = QDeadlineTimer(PausaDopoUnGuastoMs);
        Mancata = true;
    }
    return InLettura;
}

/// One row of the engine's holds all of the piece: rows by themselves would take many times as long.
void ElencoNomi::LeggiPezzo()
{
    const auto Pulita = [](const QString& Colonna) {
        return u"replace(replace(substr(ifnull(%1,''),1,%2),char(30),' '),char(31),' ')"_s.arg(
            Colonna, QString::number(MassimoNome));
    };
    const Recordset Pezzo = Archivio.OpenRecordset(
        u"SELECT group_concat(ID||char(31)||Nome||char(31)||Citta, char(30)) AS Righe, max(ID) AS Ultima, "
        "count(*) AS Quante FROM (SELECT ID, %1 AS Nome, %2 AS Citta FROM %3 "
        "WHERE ID>? AND ID<=? ORDER BY ID LIMIT ?)"_s.arg(Pulita(u"Nominativo"_s),
                                                          ConCitta ? Pulita(u"Citta"_s) : u"''"_s, Tabella),
        {Ultima, std::numeric_limits<int>::max(), RighePerPezzo});
    const QString Testo = CStr(Pezzo.Value(u"Righe"_s));
    for (const QStringView Riga : QStringView(Testo).split(FraRighe, Qt::SkipEmptyParts)) {
        const QList<QStringView> Campi = Riga.split(FraCampi);
        const int Chiave = Campi.first().toInt();
        const QString Nome = Campi.value(1).toString().simplified();
        if (Chiave <= 0 || Nome.isEmpty())
            continue;
        Nuovi.Piani.Aggiungi(RigaPiana({Nome}));
        Nuovi.Chiavi.push_back(Chiave);
        Nuovi.Inizi.push_back(size_t(Nuovi.Testi.size()));
        Nuovi.Testi.append(Nome.toUtf8()).append(char(FraCampi)).append(Campi.value(2).toUtf8());
    }
    Ultima = int(NumeroDi(Pezzo.Value(u"Ultima"_s)));
    if (NumeroDi(Pezzo.Value(u"Quante"_s)) < RighePerPezzo)
        Finisci();
}

void ElencoNomi::Finisci()
{
    InLettura = false;
    Archivio = {};
    Letti = std::exchange(Nuovi, {});
}

NomeOfferto ElencoNomi::Offerto(size_t Posto) const
{
    const size_t Fine = Posto + 1 < Letti.Inizi.size() ? Letti.Inizi[Posto + 1] : size_t(Letti.Testi.size());
    const std::string_view Riga = Vista(Letti.Testi).substr(Letti.Inizi[Posto], Fine - Letti.Inizi[Posto]);
    const size_t Meta = Riga.find(char(FraCampi));
    const auto Parte = [](std::string_view Byte) {
        return QString::fromUtf8(Byte.data(), qsizetype(Byte.size()));
    };
    return {Letti.Chiavi[Posto], Parte(Riga.substr(0, Meta)), Parte(Riga.substr(Meta + 1))};
}

QList<NomeOfferto> ElencoNomi::Proponi(const QString& Testo, int Massimo) const
{
    const Filtro Per(Testo);
    if (Per.Vuoto())
        return {};
    const QByteArray Intero = RigaPiana({Testo.simplified()});
    const bool Sola = Per.ParolePiane().size() == 1;
    const auto Rango = [&](std::string_view Riga, size_t Dove) {
        if (Riga.starts_with(Vista(Intero)))
            return Inizia;
        if (Sola && IniziaParola(Riga, Dove))
            return Parole;
        const auto Comincia = [Riga](const QByteArray& Parola) { return HaInizio(Riga, Vista(Parola)); };
        return std::ranges::all_of(Per.ParolePiane(), Comincia) ? Parole : Dentro;
    };
    const auto Prima = [this](const Trovato& A, const Trovato& B) {
        if (A.Rango != B.Rango)
            return A.Rango < B.Rango;
        const int Ordine = Vista(Letti.Piani.Riga(A.Posto)).compare(Vista(Letti.Piani.Riga(B.Posto)));
        return Ordine != 0 ? Ordine < 0 : A.Posto < B.Posto;
    };
    Migliori Trovati(Massimo, Prima);
    Letti.Piani.PerOgni(Per, [&](int Posto, size_t Dove) {
        Trovati.Prendi({Rango(Vista(Letti.Piani.Riga(Posto)), Dove), Posto});
    });
    QList<NomeOfferto> Offerti;
    for (const Trovato& Uno : Trovati.InOrdine())
        Offerti.append(Offerto(size_t(Uno.Posto)));
    return Offerti;
}
