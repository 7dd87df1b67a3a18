#include "calculators/modTermini.h"

#include "core/modTesti.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/messaggi.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct GiornoMese
{
    int Giorno = 0;
    int Mese = 0;

    friend constexpr bool operator==(const GiornoMese&, const GiornoMese&) = default;
};

// L. 260/1949 as in force, Easter Monday apart. The patron saint's day is no holiday for terms.
constexpr std::array FesteFisse{
    GiornoMese{1, 1},  GiornoMese{6, 1},  GiornoMese{25, 4}, GiornoMese{1, 5},   GiornoMese{2, 6},
    GiornoMese{15, 8}, GiornoMese{1, 11}, GiornoMese{8, 12}, GiornoMese{25, 12}, GiornoMese{26, 12},
};

// One period for all years, kept on purpose although the law has shortened it (D.L. 132/2014): the notices of
// the form say so.
constexpr GiornoMese InizioSospensione{1, 8};
constexpr GiornoMese FineSospensione{15, 9};
// Where the law in force lets the terms run again, and from which year on.
constexpr GiornoMese RipresaDiLegge{1, 9};
constexpr int AnnoRipresa = 2015;

constexpr qsizetype LungoData = 10;
constexpr GiornoMese SenzaPasquetta{31, 12};
constexpr int AnnoSenzaPasquetta = 1999;
constexpr int PrimoAnno = 100;
constexpr int UltimoAnno = 9999;
const QDate PrimoGiorno(PrimoAnno, 1, 1);
const QDate UltimoGiorno(UltimoAnno, 12, 31);

QDate InAnno(const GiornoMese& Quando, int Anno)
{
    return {Anno, Quando.Mese, Quando.Giorno};
}

constexpr GiornoMese GiornoPasquetta(int Anno)
{
    const int a = Anno % 19;
    const int b = Anno % 4;
    const int c = Anno % 7;
    const int d = (19 * a + 24) % 30;
    const int e = (4 * c + 2 * b + 6 * d + 5) % 7;
    const int Giorno = d + e + 23;  // of March: the day behind the Sunday d + e + 22
    return Giorno < 32 ? GiornoMese{Giorno, 3} : GiornoMese{d + e - 8, 4};
}
static_assert(GiornoPasquetta(2012) == GiornoMese{9, 4});
static_assert(GiornoPasquetta(2049) == GiornoMese{26, 4}, "no correction for April");

QDate NelCalendario(const QDate& Data)
{
    if (Data < PrimoGiorno || Data > UltimoGiorno)
        throw Errore(errori::Argomento);
    return Data;
}

QDate Avanti(const QDate& Data, qint64 Giorni)
{
    return NelCalendario(Data.addDays(Giorni));
}

/// The suspension that a count meets next: `Inizio` is the end it meets first, `Fine` the one it meets last.
/// "Past" and "reached" follow the direction of the count.
class Finestra
{
public:
    Finestra(int AnnoPrimo, bool Indietro) : Passo(Indietro ? -1 : 1), Anno(AnnoPrimo) { Calcola(); }

    [[nodiscard]] const QDate& Fine() const { return Ultimo; }
    [[nodiscard]] const QDate& Inizio() const { return Primo; }
    [[nodiscard]] int Verso() const { return Passo; }
    [[nodiscard]] bool Raggiunta(const QDate& d) const { return Passo > 0 ? d >= Primo : d <= Primo; }
    [[nodiscard]] bool Superata(const QDate& d) const { return Passo > 0 ? d >= Ultimo : d <= Ultimo; }
    [[nodiscard]] bool Contiene(const QDate& d) const
    {
        return Raggiunta(d) && (!Superata(d) || d == Ultimo);
    }
    /// Days of it between two dates, the earlier of the count left out.
    [[nodiscard]] int Sovrapposti(const QDate& Da, const QDate& A) const
    {
        const QDate Prima = Primo.addDays(-Passo);
        const qint64 Giorni = Passo > 0 ? std::max(Da, Prima).daysTo(std::min(Ultimo, A))
                                        : std::min(Da, Prima).daysTo(std::max(Ultimo, A));
        return int(std::abs(Giorni));
    }
    /// True when a stretch of suspended days, one end to the other, has some that the law lets run.
    [[nodiscard]] bool HaSettembre(const QDate& Da, const QDate& A) const
    {
        const auto [Dal, Al] = std::minmax(Da, A);
        return Anno >= AnnoRipresa && Dal <= InAnno(FineSospensione, Anno) &&
               Al >= InAnno(RipresaDiLegge, Anno);
    }
    void PassaAllAltra()
    {
        Anno += Passo;
        Calcola();
    }

private:
    void Calcola()
    {
        const QDate Agosto = InAnno(InizioSospensione, Anno);
        const QDate Settembre = InAnno(FineSospensione, Anno);
        Primo = Passo > 0 ? Agosto : Settembre;
        Ultimo = Passo > 0 ? Settembre : Agosto;
    }

    int Passo;
    int Anno;
    QDate Primo;
    QDate Ultimo;
};

/// Writes a step down where somebody reads it; a stretch without days is none.
void Registra(const ContoTermine& Conto, const QDate& Da, const QDate& A, GenerePasso Genere)
{
    const int Passo = Conto.Opzioni.Antecedente ? -1 : 1;
    const int Giorni = int(Passo * Da.daysTo(A)) + 1;
    if (Conto.Passi && Giorni > 0)
        Conto.Passi->append({Da, A, Giorni, Genere, CriterioDelProgramma.toString(), false, {}});
}

/// Days one by one would do the same: until the suspension is reached nothing can happen.
/// @param Genere what the days are called in the road
QDate ContaGiorni(ContoTermine& Conto, Finestra& Sospensione, QDate d, int Numero, GenerePasso Genere)
{
    const int Passo = Sospensione.Verso();
    qint64 Restano = std::max(Numero, 0);
    QDate PrimoContato = d.addDays(Passo);
    while (Conto.Opzioni.Sospensione && Restano > 0) {
        const qint64 FinoAlla = std::abs(d.daysTo(Sospensione.Inizio()));
        if (FinoAlla > Restano)
            break;
        Conto.Prorogato = true;
        Conto.SettembreSospeso |= Sospensione.HaSettembre(Sospensione.Inizio(), Sospensione.Fine());
        Restano -= FinoAlla;
        Registra(Conto, PrimoContato, Sospensione.Inizio().addDays(-Passo), Genere);
        Registra(Conto, Sospensione.Inizio(), Sospensione.Fine(), GenerePasso::Sospensione);
        d = PrimoContato = Avanti(Sospensione.Fine(), Passo);
        Sospensione.PassaAllAltra();
    }
    d = Avanti(d, Passo * Restano);
    Registra(Conto, PrimoContato, d, Genere);
    return d;
}

/// The calendar's months or years, and the suspended days on the way, stretches that touch joined.
class RegistroMesi
{
public:
    RegistroMesi(const ContoTermine& DelConto, const QDate& Primo) : Conto(DelConto), Inizio(Primo) {}

    void Sospesi(const Finestra& Sospensione, const QDate& Da, const QDate& A)
    {
        if (!Conto.Passi)
            return;
        const int Passo = Sospensione.Verso();
        const auto Dopo = [&](const QDate& Uno, const QDate& Altro) {
            return Passo > 0 ? Uno > Altro : Uno < Altro;
        };
        const QDate Primo = Da.addDays(Passo);
        const QDate Dal = Dopo(Primo, Sospensione.Inizio()) ? Primo : Sospensione.Inizio();
        const QDate Al = Dopo(A, Sospensione.Fine()) ? Sospensione.Fine() : A;
        if (!Tratti.isEmpty() && Tratti.last().second.addDays(Passo) == Dal)
            Tratti.last().second = Al;
        else
            Tratti.append({Dal, Al});
    }
    void Scrivi(const QDate& Fine, int Numero, int Tipo) const
    {
        if (!Conto.Passi)
            return;
        const QString Unita = VociIncremento[Tipo == TipoMesi ? 1 : 2].toString().toLower();
        Conto.Passi->append({Inizio, Fine, 0, GenerePasso::Calendario, CriterioDelProgramma.toString(), false,
                             u"%1 %2"_s.arg(Numero).arg(Unita)});
        for (const auto& [Dal, Al] : Tratti)
            Registra(Conto, Dal, Al, GenerePasso::Sospensione);
    }

private:
    const ContoTermine& Conto;
    QDate Inizio;
    QList<std::pair<QDate, QDate>> Tratti;
};

QDate ContaMesiOAnni(ContoTermine& Conto, Finestra& Sospensione, QDate d, int Numero, int Tipo)
{
    const int Passo = Sospensione.Verso();
    RegistroMesi Registro(Conto, d);
    for (int i = 0; i < Numero; ++i) {
        const QDate Precedente = d;
        d = NelCalendario(Tipo == TipoMesi ? d.addMonths(Passo) : d.addYears(Passo));
        if (!Conto.Opzioni.Sospensione || !Sospensione.Raggiunta(d))
            continue;
        Conto.Prorogato = true;
        Conto.GiorniSospesi += Sospensione.Sovrapposti(Precedente, d);
        Conto.SettembreSospeso |= Sospensione.HaSettembre(Precedente, d);
        Registro.Sospesi(Sospensione, Precedente, d);
        if (Sospensione.Superata(d))
            Sospensione.PassaAllAltra();
    }
    Registro.Scrivi(d, Numero, Tipo);
    return d;
}

/// Why a term may not end on a day; none: it may.
std::optional<GenerePasso> DaSpostare(const QDate& d, const OpzioniTermine& Opzioni)
{
    const int Settimana = d.dayOfWeek();
    if (IsFestivo(d))
        return GenerePasso::Festivo;
    if (Settimana == Qt::Sunday)
        return GenerePasso::Domenica;
    return Opzioni.Sabato && Settimana == Qt::Saturday ? std::optional(GenerePasso::Sabato) : std::nullopt;
}

/// Off holidays and out of the suspension, until the date stands still.
QDate Assesta(ContoTermine& Conto, const Finestra& Sospensione, QDate d)
{
    for (;;) {
        const QDate Prima = d;
        if (const auto Perche = DaSpostare(d, Conto.Opzioni)) {
            Conto.Prorogato = true;
            Registra(Conto, d, d, *Perche);
            d = Avanti(d, Sospensione.Verso());
        }
        // This alone sets no flag: the term itself did not meet the suspension.
        if (Conto.Opzioni.Sospensione && Sospensione.Contiene(d)) {
            Conto.SettembreSospeso |= Sospensione.HaSettembre(d, Sospensione.Fine());
            Registra(Conto, d, Sospensione.Fine(), GenerePasso::Sospensione);
            d = Avanti(Sospensione.Fine(), Sospensione.Verso());
        }
        if (d == Prima)
            return d;
    }
}

/// @param Genere what days counted are called in the road
/// @param PerLaSospensione how the road calls the end of the period that a start inside it waits for
QDate Conta(ContoTermine& Conto, int Numero, int Tipo, GenerePasso Genere, GenerePasso PerLaSospensione)
{
    QDate d = NelCalendario(Conto.DataCorrente);
    Conto.GiorniSospesi = 0;
    Finestra Sospensione(d.year(), Conto.Opzioni.Antecedente);
    if (Conto.Opzioni.Sospensione && Sospensione.Raggiunta(d)) {
        // A start inside the period counts from its end; the move sets no flag.
        if (Sospensione.Contiene(d)) {
            Conto.SettembreSospeso |= Sospensione.HaSettembre(d, Sospensione.Fine());
            Registra(Conto, d.addDays(Sospensione.Verso()), Sospensione.Fine(), PerLaSospensione);
            d = Sospensione.Fine();
        }
        Sospensione.PassaAllAltra();
    }
    d = Tipo == TipoGiorni ? ContaGiorni(Conto, Sospensione, d, Numero, Genere)
                           : ContaMesiOAnni(Conto, Sospensione, d, Numero, Tipo);
    if (Conto.GiorniSospesi != 0)
        return d;
    if (Conto.Opzioni.Libero) {
        d = Avanti(d, Sospensione.Verso());
        Registra(Conto, d, d, GenerePasso::GiornoLibero);
    }
    return Assesta(Conto, Sospensione, d);
}

}  // namespace

QDate Conteggio(ContoTermine& Conto, int Numero, int Tipo)
{
    return Conta(Conto, Numero, Tipo, GenerePasso::GiorniContati, GenerePasso::InizioDifferito);
}

void ContaTermine(ContoTermine& Conto, int Numero, int Tipo)
{
    Conto.DataCorrente = Conteggio(Conto, Numero, Tipo);
    if (Conto.GiorniSospesi > 0)
        Conto.DataCorrente = Conta(Conto, Conto.GiorniSospesi, TipoGiorni, GenerePasso::GiorniRecuperati,
                                   GenerePasso::Sospensione);
}

bool IsFestivo(const QDate& Data)
{
    int Anno = 0;
    GiornoMese Qui;
    Data.getDate(&Anno, &Qui.Mese, &Qui.Giorno);
    return std::ranges::find(FesteFisse, Qui) != FesteFisse.end() || Qui == GiornoPasquetta(Anno);
}

bool IsFestivo(const QString& Data)
{
    const auto Letta = Data.size() == LungoData ? LeggiData(Data) : std::nullopt;
    return Letta && IsFestivo(*Letta);
}

QString Pasquetta(int Anno)
{
    const bool Valido = Anno >= PrimoAnno && Anno <= UltimoAnno;
    const GiornoMese Quando = Valido ? GiornoPasquetta(Anno) : SenzaPasquetta;
    return Format(QDate(Valido ? Anno : AnnoSenzaPasquetta, Quando.Mese, Quando.Giorno), ModelloData);
}

bool GiornoSospeso(const QDate& Data)
{
    const Finestra Sospensione(Data.year(), false);
    return Sospensione.Contiene(Data);
}

// ---- the form frmTermini --------------------------------------------------------------------------

std::optional<bool> SabatoAmmesso(const QString& Decorrenza)
{
    const auto Data = LeggiData(Decorrenza);
    return Data ? std::optional(*Data >= QDate(2006, 3, 2)) : std::nullopt;
}

bool TogliSabatoARitroso(OpzioniTermine& Opzioni)
{
    if (!Opzioni.Sabato || !Opzioni.Antecedente)
        return false;
    MsgBox(u"La proroga del sabato (art. 155, 5° comma, c.p.c.) non si applica ai termini da calcolarsi a "
           u"ritroso.\n"
           "Per maggiori informazioni leggere le Avvertenze"_s,
           vbExclamation, TitoloAvvertenza.toString());
    Opzioni.Sabato = false;
    return true;
}

std::optional<Mancanza<CampoTermine>> DifettoTermine(const DatiTermine& Dati)
{
    const QString Testo = SenzaSecolo(Dati.Decorrenza);
    if (Testo == u"__/__/__")
        return Mancanza{u"Non è stata specificata la Data di Decorrenza!"_s, CampoTermine::Decorrenza};
    if (!IsDate(Testo))
        return Mancanza{u"La Data di Decorrenza indicata non è una data valida!"_s, CampoTermine::Decorrenza};
    if (NumeroDi(Dati.Numero) == 0.0)
        return Mancanza{u"Non è stato indicato il Numero di incremento!"_s, CampoTermine::Numero};
    return std::nullopt;
}

QString TestoTermine(const ContoTermine& Conto)
{
    QString Testo = u"La scadenza è "_s + DataLunga(Conto.DataCorrente);
    if (!Conto.Prorogato)
        return Testo;
    return Testo + (Conto.Opzioni.Antecedente ? u"\n(Anticipata)"_s : u"\n(Posticipata)"_s);
}
