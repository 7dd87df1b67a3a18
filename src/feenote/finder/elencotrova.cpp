#include "feenote/finder/elencotrova.h"

#include "feenote/file/nomenota.h"
#include "platform/base/errore.h"
#include "platform/base/ordineitaliano.h"
#include "platform/base/regionale.h"
#include "platform/base/testopiano.h"
#include "platform/system/percorsi.h"

#include <QDateTime>

#include <algorithm>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString Cercabile(const VoceTrova& Voce)
{
    return TestoPiano(Voce.Nome + u'\n' + Voce.Cliente + u'\n' + Voce.Controparte);
}

QDate DataDi(const VoceTrova& Voce)
{
    return QDateTime::fromMSecsSinceEpoch(Voce.Modificata).date();
}

/// What stands above and below the notes, whatever they are sorted by.
int Strato(GenereVoce Genere, bool CartelleInFondo)
{
    if (Genere == GenereVoce::Torna)
        return 0;
    if (Genere == GenereVoce::Nota)
        return 2;
    return CartelleInFondo ? 3 : 1;
}

}  // namespace

QString CellaTrova(const VoceTrova& Voce, int Colonna)
{
    if (Colonna == TrovaNome || Voce.Genere == GenereVoce::Torna)
        return Colonna == TrovaNome ? Voce.Nome : QString();
    const bool Nota = Voce.Genere == GenereVoce::Nota;
    switch (Colonna) {
    case TrovaData:
        return Format(DataDi(Voce), ModelloData);
    case TrovaCliente:
        return Voce.Cliente;
    case TrovaControparte:
        return Voce.Controparte;
    case TrovaDimensione:
        return Nota ? KByte(Voce.Byte) + u" KB"_s : QString();
    case TrovaCartella:
        return Voce.Cartella;
    case TrovaStato:
        return ParolaStato(Voce);
    default:
        return {};
    }
}

void ElencoTrova::Azzera(bool InFondo)
{
    Tutte.clear();
    Mostrate.clear();
    Griglia.Azzera(TrovaColonne);
    CartelleInFondo = InFondo;
    ContaNote = 0;
}

bool ElencoTrova::Passa(const Elemento& Una) const
{
    return Una.Voce.Genere != GenereVoce::Nota ||
           (PassaStato(Stati, Una.Voce) && (!Solo || ClienteDi(Una.Voce) == *Solo) &&
            std::ranges::all_of(Parole,
                                [&](const QString& Parola) { return Una.Cercabile.contains(Parola); }));
}

void ElencoTrova::Aggiungi(VoceTrova&& Voce)
{
    ContaNote += Voce.Genere == GenereVoce::Nota;
    QString Testo = Cercabile(Voce);
    Tutte.push_back({std::move(Voce), std::move(Testo), {}});
    if (!Passa(Tutte.back()))
        return;
    Mostrate.push_back(int(Tutte.size()) - 1);
    Griglia.InserisciRiga(Griglia.Righe());
}

void ElencoTrova::Rimostra()
{
    Mostrate.clear();
    const bool Incassi = Stati == FiltroStato::DaIncassare;
    const QSet<const VoceTrova*> Aperte = Incassi ? NoteDaIncassare(NoteTutte()) : QSet<const VoceTrova*>();
    for (size_t i = 0; i < Tutte.size(); ++i) {
        const VoceTrova& Voce = Tutte[i].Voce;
        if (Passa(Tutte[i]) && (!Incassi || Voce.Genere != GenereVoce::Nota || Aperte.contains(&Voce)))
            Mostrate.push_back(int(i));
    }
    Griglia.Azzera(TrovaColonne);
    Griglia.InserisciRighe(0, int(Mostrate.size()));
}

void ElencoTrova::Filtra(const QString& Testo)
{
    TestoFiltro = Testo;
    Parole = TestoPiano(Testo).simplified().split(u' ', Qt::SkipEmptyParts);
    Rimostra();
}

void ElencoTrova::FiltraStato(FiltroStato Quali)
{
    Stati = Quali;
    Rimostra();
}

void ElencoTrova::FiltraCliente(const std::optional<ClienteNota>& Chi)
{
    Solo = Chi;
    Rimostra();
}

std::vector<const VoceTrova*> ElencoTrova::NoteMostrate() const
{
    std::vector<const VoceTrova*> Note;
    for (const int Posto : Mostrate)
        if (const VoceTrova& Una = Tutte[size_t(Posto)].Voce; Una.Genere == GenereVoce::Nota)
            Note.push_back(&Una);
    return Note;
}

std::vector<const VoceTrova*> ElencoTrova::NoteTutte() const
{
    std::vector<const VoceTrova*> Note;
    for (const Elemento& Una : Tutte)
        if (Una.Voce.Genere == GenereVoce::Nota)
            Note.push_back(&Una.Voce);
    return Note;
}

QString ElencoTrova::FraseVuota() const
{
    const QString Soggetto = u"Nessuna parcella"_s + (Solo ? u" del cliente scelto"_s : QString());
    const bool PerTesto = !TestoFiltro.trimmed().isEmpty();
    const bool PerStato = Stati != FiltroStato::Tutte;
    if (PerTesto)
        return Soggetto + (PerStato ? u" nello stato scelto"_s : QString()) +
               u" contiene il testo scritto."_s;
    if (PerStato)
        return Soggetto + u" è nello stato scelto."_s;
    return Solo ? u"In questa cartella non ci sono parcelle del cliente scelto."_s
                : u"In questa cartella non ci sono parcelle."_s;
}

void ElencoTrova::SegnaCopie()
{
    const QHash<const VoceTrova*, const VoceTrova*> Copie = NoteCopie(NoteTutte());
    for (Elemento& Una : Tutte) {
        const VoceTrova* const Contata = Copie.value(&Una.Voce);
        Una.CopiaDi = Contata ? Contata->Percorso : QString();
    }
}

void ElencoTrova::Ordina(int Colonna, bool Crescente)
{
    ScegliOrdine(Colonna, Crescente);
    const auto Chiavi = [this](const auto& Testo) {
        const QCollator Ordine = OrdineItaliano();
        std::vector<QCollatorSortKey> Trovate;
        Trovate.reserve(Tutte.size());
        for (const Elemento& Una : Tutte)
            Trovate.push_back(Ordine.sortKey(Testo(Una.Voce)));
        return Trovate;
    };
    const auto PerNome = Chiavi([](const VoceTrova& Voce) { return Voce.Nome; });
    std::vector<size_t> Posti(Tutte.size());
    std::iota(Posti.begin(), Posti.end(), size_t(0));
    const auto Metti = [&](const auto& Prima) {
        std::ranges::stable_sort(Posti, [&](size_t A, size_t B) {
            const int StratoA = Strato(Tutte[A].Voce.Genere, CartelleInFondo);
            const int StratoB = Strato(Tutte[B].Voce.Genere, CartelleInFondo);
            if (StratoA != StratoB || Tutte[A].Voce.Genere != GenereVoce::Nota)
                return StratoA < StratoB;
            return InSu ? Prima(A, B) : Prima(B, A);
        });
    };
    std::ranges::stable_sort(Posti, [&](size_t A, size_t B) { return PerNome[A] < PerNome[B]; });
    if (Colonna == TrovaNome) {
        Metti([&](size_t A, size_t B) { return PerNome[A] < PerNome[B]; });
    } else if (Colonna == TrovaData) {
        Metti([&](size_t A, size_t B) { return Tutte[A].Voce.Modificata < Tutte[B].Voce.Modificata; });
    } else if (Colonna == TrovaDimensione) {
        Metti([&](size_t A, size_t B) { return Tutte[A].Voce.Byte < Tutte[B].Voce.Byte; });
    } else if (Colonna == TrovaStato) {
        Metti(
            [&](size_t A, size_t B) { return StatoMostrato(Tutte[A].Voce) < StatoMostrato(Tutte[B].Voce); });
    } else {
        const auto PerTesto = Chiavi([&](const VoceTrova& Voce) { return CellaTrova(Voce, Colonna); });
        Metti([&](size_t A, size_t B) { return PerTesto[A] < PerTesto[B]; });
    }
    std::vector<Elemento> Ordinate;
    Ordinate.reserve(Tutte.size());
    for (const size_t Posto : Posti)
        Ordinate.push_back(std::move(Tutte[Posto]));
    Tutte = std::move(Ordinate);
    SegnaCopie();
    Rimostra();
}

int ElencoTrova::Note() const
{
    return int(std::ranges::count_if(
        Mostrate, [this](int Posto) { return Tutte[size_t(Posto)].Voce.Genere == GenereVoce::Nota; }));
}

const VoceTrova& ElencoTrova::Voce(int Riga) const
{
    if (Riga < 0 || Riga >= Righe())
        throw Errore(errori::Indice);
    return Tutte[size_t(Mostrate[size_t(Riga)])].Voce;
}

QString ElencoTrova::Cella(int Riga, int Colonna) const
{
    return Colonna == TrovaStato && !CopiaDi(Riga).isEmpty() ? u"Copia"_s : CellaTrova(Voce(Riga), Colonna);
}

QString ElencoTrova::CopiaDi(int Riga) const
{
    return Riga >= 0 && Riga < Righe() ? Tutte[size_t(Mostrate[size_t(Riga)])].CopiaDi : QString();
}

std::optional<int> ElencoTrova::RigaDi(const QString& Percorso) const
{
    for (int Riga = 0; Riga < Righe(); ++Riga)
        if (Voce(Riga).Percorso == Percorso && Voce(Riga).Genere != GenereVoce::Torna)
            return Riga;
    return std::nullopt;
}

std::optional<int> ElencoTrova::CercaIniziali(const QString& Lettere, int Da) const
{
    const QString Cercate = TestoPiano(Lettere);
    for (int Passo = 0; Passo < Righe(); ++Passo) {
        const int Riga = (std::max(Da, 0) + Passo) % Righe();
        const VoceTrova& Una = Voce(Riga);
        const QStringView Nome = Una.Genere == GenereVoce::Cartella ? QStringView(Una.Nome).mid(1) : Una.Nome;
        if (Una.Genere != GenereVoce::Torna && TestoPiano(Nome.toString()).startsWith(Cercate))
            return Riga;
    }
    return std::nullopt;
}

void ElencoTrova::Togli(const QString& Percorso)
{
    const auto Via = std::ranges::find_if(Tutte, [&](const Elemento& Una) {
        return Una.Voce.Genere == GenereVoce::Nota && Una.Voce.Percorso == Percorso;
    });
    if (Via == Tutte.end())
        return;
    Tutte.erase(Via);
    --ContaNote;
    SegnaCopie();
    Rimostra();
}

void ElencoTrova::Rinomina(const QString& Percorso, const QString& Nuovo)
{
    for (Elemento& Una : Tutte) {
        if (Una.Voce.Genere != GenereVoce::Nota || Una.Voce.Percorso != Percorso)
            continue;
        Una.Voce.Percorso = Nuovo;
        Una.Voce.Nome = NomeMostrato(Nuovo);
        Una.Cercabile = ::Cercabile(Una.Voce);
    }
    SegnaCopie();
}
