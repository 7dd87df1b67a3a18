#include "calculators/norme/computatermine.h"

#include "calculators/norme/regolenorme.h"
#include "calculators/norme/rifiuto.h"
#include "calculators/norme/terminiricorrenti.h"
#include "platform/base/regionale.h"

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

const QDate UltimoGiorno(9999, 12, 31);

QString Unita(int Numero, int Tipo)
{
    const bool Uno = Numero == 1;
    const QString Nome = Tipo == TipoGiorni ? (Uno ? u"giorno"_s : u"giorni"_s)
                         : Tipo == TipoMesi ? (Uno ? u"mese"_s : u"mesi"_s)
                                            : (Uno ? u"anno"_s : u"anni"_s);
    return u"%1 %2"_s.arg(Numero).arg(Nome);
}

/// One computation by the norms in force.
class ContoVigente
{
public:
    ContoVigente(const Norme& DiLegge, const RichiestaTermine& Chiesto)
        : Insieme(DiLegge), Richiesta(Chiesto), Passo(Chiesto.Opzioni.Antecedente ? -1 : 1)
    {}

    EsitoTermine Esegui();

private:
    /// What a norm says, and whether it was confirmed for that day.
    struct Detto
    {
        QString Norma;
        bool NonRiscontrato = false;
    };

    Detto DiRegola(QStringView Codice, const QDate& Giorno) const;
    Detto NormaTermine() const;

    /// The suspension's days do not count. That they are left out of backward counts too has not been
    /// confirmed.
    Detto DiSospensione(const Sospensione& Periodo) const;
    void Aggiungi(const QDate& Da, const QDate& A, int Giorni, GenerePasso Genere, const Detto& Chi,
                  const QString& Nota = {});

    /// A day that the norms reach and the calendar has.
    QDate Controllata(const QDate& Giorno) const;
    QDate Spostata(const QDate& Giorno, qint64 Giorni) const;
    void ScegliSospensione();

    /// The suspension that a day falls into, when it counts.
    std::optional<Sospensione> PeriodoDi(const QDate& Giorno) const;
    const QDate& PrimoIncontrato(const Sospensione& Periodo) const;
    const QDate& UltimoIncontrato(const Sospensione& Periodo) const;

    /// Days from one to the other in the direction of the count, both included; below 1 when it runs away.
    int Inclusi(const QDate& Da, const QDate& A) const { return int(Passo * Da.daysTo(A)) + 1; }

    /// An event in the suspension: the term begins at its end.
    QDate Comincia(const QDate& Evento);

    /// Leaves the rest of a suspension; the date given lies in it.
    QDate Salta(const QDate& Primo, const Sospensione& Periodo);

    /// How many days from `Primo` on lie before the next suspension; `Massimo` when none does.
    qint64 Liberi(const QDate& Primo, qint64 Massimo) const;

    /// So many days behind a date, those of the suspension left out.
    QDate Conta(QDate Qui, qint64 Giorni, GenerePasso Genere, const Detto& Chi);

    /// Months and years by the common calendar, all at once: a day that a month lacks is its last one. Days
    /// of the suspension on the way are counted behind the end.
    QDate ContaCalendario(const QDate& Inizio);

    /// Days of suspensions behind `Inizio`, up to `Fine`, with a step for each.
    int SospesiFra(const QDate& Inizio, const QDate& Fine);

    /// What a due date that moves off a day rests on: that the day is a holiday, and that it moves.
    Detto DiSpostamento(const Detto& Giorno, QStringView CodiceAvanti, const QDate& Quando) const;

    /// Adds the step that moves a due date off a day on which it may not be.
    bool DaSpostare(const QDate& Qui);

    /// Off holidays and out of the suspension, until the date stands.
    QDate Assesta(QDate Qui);
    void SpiegaSabato(const QDate& Qui);

    /// Suspensions that lie on the way and do not count are told behind the first day, in the order of the
    /// count.
    void SpiegaSospensione();

    /// Why the suspension does not count: the matter, the term's own norm, nobody says, or a choice.
    PassoStrada PercheNonConta() const;
    void Annota();

    const Norme& Insieme;
    const RichiestaTermine& Richiesta;
    int Passo;
    bool Sospende = false;
    const NormaMateria* Materia = nullptr;
    EsitoTermine Esito;
};

EsitoTermine ContoVigente::Esegui()
{
    ScegliSospensione();
    QDate Qui = Controllata(Richiesta.Decorrenza);
    Aggiungi(Qui, Qui, 0, GenerePasso::GiornoIniziale, NormaTermine());
    Qui = Comincia(Qui);
    Qui = Richiesta.Tipo == TipoGiorni
              ? Conta(Qui, std::max(Richiesta.Numero, 0), GenerePasso::GiorniContati, NormaTermine())
              : ContaCalendario(Qui);
    if (Richiesta.Opzioni.Libero)
        Qui = Conta(Qui, 1, GenerePasso::GiornoLibero,
                    Richiesta.Norma.isEmpty() ? DiRegola(regole::Libero, Qui) : NormaTermine());
    Qui = Assesta(Qui);
    Aggiungi(Qui, Qui, 0, GenerePasso::GiornoFinale, NormaTermine());
    Esito.Scadenza = Qui;
    SpiegaSospensione();
    Annota();
    return Esito;
}

ContoVigente::Detto ContoVigente::DiRegola(QStringView Codice, const QDate& Giorno) const
{
    const NormaRegola& Regola = Insieme.Regola(Codice);
    return {Regola.Norma, !Regola.Riscontrata || !Regola.Quando.Contiene(Giorno)};
}

ContoVigente::Detto ContoVigente::NormaTermine() const
{
    return Richiesta.Norma.isEmpty() ? DiRegola(regole::Computo, Richiesta.Decorrenza)
                                     : Detto{Richiesta.Norma};
}

ContoVigente::Detto ContoVigente::DiSospensione(const Sospensione& Periodo) const
{
    if (Passo > 0)
        return {Periodo.Norma};
    return {Periodo.Norma, DiRegola(regole::SospensioneRitroso, Periodo.Dal).NonRiscontrato};
}

void ContoVigente::Aggiungi(const QDate& Da, const QDate& A, int Giorni, GenerePasso Genere, const Detto& Chi,
                            const QString& Nota)
{
    Esito.Passi.append({Da, A, Giorni, Genere, Chi.Norma, Chi.NonRiscontrato, Nota});
}

QDate ContoVigente::Controllata(const QDate& Giorno) const
{
    const QDate Primo = Insieme.NoteDal(Sospende);
    if (!Giorno.isValid() || Giorno > UltimoGiorno)
        Rifiuta(u"Il termine va oltre il %1"_s.arg(Format(UltimoGiorno, ModelloData)));
    if (Giorno < Primo)
        Rifiuta(u"Le norme note cominciano dal %1: il termine tocca un giorno precedente"_s.arg(
            Format(Primo, ModelloData)));
    return Giorno;
}

QDate ContoVigente::Spostata(const QDate& Giorno, qint64 Giorni) const
{
    return Controllata(Giorno.addDays(Passo * Giorni));
}

void ContoVigente::ScegliSospensione()
{
    Sospende = Richiesta.Opzioni.Sospensione && Richiesta.Materia.isEmpty();
    if (Richiesta.Materia.isEmpty())
        return;
    const auto Trovata = std::ranges::find_if(Insieme.Materie(), [&](const NormaMateria& Una) {
        return Una.Codice.compare(Richiesta.Materia, Qt::CaseInsensitive) == 0;
    });
    if (Trovata == Insieme.Materie().end())
        Rifiuta(u"Nessuna materia risparmiata dalla sospensione si chiama «%1»"_s.arg(
            Richiesta.Materia.left(40)));
    if (!Trovata->Quando.Contiene(Richiesta.Decorrenza))
        Rifiuta(u"%1: la norma vale %2"_s.arg(Trovata->Testo, TestoVigenza(Trovata->Quando)));
    Materia = &*Trovata;
}

std::optional<Sospensione> ContoVigente::PeriodoDi(const QDate& Giorno) const
{
    const auto Periodo = Sospende ? Insieme.SospensioneDel(Giorno.year()) : std::nullopt;
    return Periodo && Giorno >= Periodo->Dal && Giorno <= Periodo->Al ? Periodo : std::nullopt;
}

const QDate& ContoVigente::PrimoIncontrato(const Sospensione& Periodo) const
{
    return Passo > 0 ? Periodo.Dal : Periodo.Al;
}

const QDate& ContoVigente::UltimoIncontrato(const Sospensione& Periodo) const
{
    return Passo > 0 ? Periodo.Al : Periodo.Dal;
}

QDate ContoVigente::Comincia(const QDate& Evento)
{
    const auto Periodo = PeriodoDi(Evento);
    if (!Periodo || UltimoIncontrato(*Periodo) == Evento)
        return Evento;
    const QDate Primo = Evento.addDays(Passo);
    const QDate Fine = Controllata(UltimoIncontrato(*Periodo));
    const Detto Chi =
        Passo > 0 ? DiRegola(regole::Differito, Evento) : DiRegola(regole::SospensioneRitroso, Evento);
    Aggiungi(Primo, Fine, Inclusi(Primo, Fine), GenerePasso::InizioDifferito, Chi);
    return Fine;
}

QDate ContoVigente::Salta(const QDate& Primo, const Sospensione& Periodo)
{
    const QDate Fine = Controllata(UltimoIncontrato(Periodo));
    Aggiungi(Primo, Fine, Inclusi(Primo, Fine), GenerePasso::Sospensione, DiSospensione(Periodo));
    Esito.Spostata = true;
    return Fine;
}

qint64 ContoVigente::Liberi(const QDate& Primo, qint64 Massimo) const
{
    if (!Sospende)
        return Massimo;
    for (const int Anno : {Primo.year(), Primo.year() + Passo}) {
        const auto Periodo = Insieme.SospensioneDel(Anno);
        const int Fra = Periodo ? Inclusi(Primo, PrimoIncontrato(*Periodo)) - 1 : 0;
        if (Fra > 0)
            return std::min<qint64>(Fra, Massimo);
    }
    return Massimo;
}

QDate ContoVigente::Conta(QDate Qui, qint64 Giorni, GenerePasso Genere, const Detto& Chi)
{
    while (Giorni > 0) {
        const QDate Primo = Spostata(Qui, 1);
        if (const auto Periodo = PeriodoDi(Primo)) {
            Qui = Salta(Primo, *Periodo);
            continue;
        }
        const qint64 Quanti = Liberi(Primo, Giorni);
        Qui = Spostata(Primo, Quanti - 1);
        Aggiungi(Primo, Qui, int(Quanti), Genere, Chi);
        Giorni -= Quanti;
    }
    return Qui;
}

QDate ContoVigente::ContaCalendario(const QDate& Inizio)
{
    const int Numero = std::max(Richiesta.Numero, 0) * Passo;
    const QDate Fine =
        Controllata(Richiesta.Tipo == TipoMesi ? Inizio.addMonths(Numero) : Inizio.addYears(Numero));
    Aggiungi(Inizio, Fine, 0, GenerePasso::Calendario, NormaTermine(),
             Unita(Richiesta.Numero, Richiesta.Tipo));
    const int Sospesi = SospesiFra(Inizio, Fine);
    if (Sospesi == 0)
        return Fine;
    Esito.Spostata = true;
    Detto Chi = DiRegola(regole::AMesi, Fine);
    Chi.NonRiscontrato |= Passo < 0;
    return Conta(Fine, Sospesi, GenerePasso::GiorniRecuperati, Chi);
}

int ContoVigente::SospesiFra(const QDate& Inizio, const QDate& Fine)
{
    int Somma = 0;
    for (int Anno = Inizio.year(); Sospende && Passo * Anno <= Passo * Fine.year(); Anno += Passo) {
        const auto Periodo = Insieme.SospensioneDel(Anno);
        if (!Periodo)
            continue;
        const QDate Dopo = Inizio.addDays(Passo);
        const bool GiaDentro = Passo * PrimoIncontrato(*Periodo).daysTo(Dopo) > 0;
        const QDate Da = GiaDentro ? Dopo : PrimoIncontrato(*Periodo);
        const bool OltreFine = Passo * UltimoIncontrato(*Periodo).daysTo(Fine) < 0;
        const QDate A = OltreFine ? Fine : UltimoIncontrato(*Periodo);
        const int Giorni = Inclusi(Da, A);
        if (Giorni <= 0)
            continue;
        Aggiungi(Da, A, Giorni, GenerePasso::Sospensione, DiSospensione(*Periodo));
        Somma += Giorni;
    }
    return Somma;
}

ContoVigente::Detto ContoVigente::DiSpostamento(const Detto& Giorno, QStringView CodiceAvanti,
                                                const QDate& Quando) const
{
    const Detto Moto = DiRegola(Passo > 0 ? CodiceAvanti : regole::Ritroso, Quando);
    return {Giorno.Norma.isEmpty() ? Moto.Norma : Giorno.Norma + u"; "_s + Moto.Norma,
            Giorno.NonRiscontrato || Moto.NonRiscontrato};
}

bool ContoVigente::DaSpostare(const QDate& Qui)
{
    if (const NormaFesta* Festa = Insieme.Festa(Qui)) {
        Aggiungi(Qui, Qui, 1, GenerePasso::Festivo,
                 DiSpostamento({Festa->Norma, !Festa->Riscontrata}, regole::Festivo, Qui), Festa->Nome);
        return true;
    }
    if (Qui.dayOfWeek() == Qt::Sunday) {
        Aggiungi(Qui, Qui, 1, GenerePasso::Domenica,
                 DiSpostamento(DiRegola(regole::Domenica, Qui), regole::Festivo, Qui));
        return true;
    }
    if (Qui.dayOfWeek() != Qt::Saturday || !Richiesta.Opzioni.Sabato ||
        !Insieme.Regola(regole::Sabato).Quando.Contiene(Qui))
        return false;
    Aggiungi(Qui, Qui, 1, GenerePasso::Sabato,
             DiSpostamento({{}, Richiesta.SabatoIgnoto}, regole::Sabato, Qui));
    return true;
}

QDate ContoVigente::Assesta(QDate Qui)
{
    for (;;) {
        if (const auto Periodo = PeriodoDi(Qui)) {
            Qui = Spostata(Salta(Qui, *Periodo), 1);
        } else if (DaSpostare(Qui)) {
            Esito.Spostata = true;
            Qui = Spostata(Qui, 1);
        } else {
            break;
        }
    }
    if (Qui.dayOfWeek() == Qt::Saturday)
        SpiegaSabato(Qui);
    return Qui;
}

void ContoVigente::SpiegaSabato(const QDate& Qui)
{
    const NormaRegola& Regola = Insieme.Regola(regole::Sabato);
    if (Richiesta.SabatoIgnoto && !Richiesta.Opzioni.Sabato)
        Aggiungi(Qui, Qui, 0, GenerePasso::SabatoFermo, {QString(), true});
    else if (Richiesta.Opzioni.Sabato)
        Aggiungi(Qui, Qui, 0, GenerePasso::SabatoFermo, {Regola.Norma},
                 u"la norma vale "_s + TestoVigenza(Regola.Quando));
}

void ContoVigente::SpiegaSospensione()
{
    if (Sospende)
        return;
    const auto [Dal, Al] = std::minmax(Richiesta.Decorrenza, Esito.Scadenza);
    Strada Saltate;
    for (int Anno = Dal.year(); Anno <= Al.year(); ++Anno) {
        const auto Periodo = Insieme.SospensioneDel(Anno);
        if (!Periodo || Periodo->Al < Dal || Periodo->Dal > Al)
            continue;
        PassoStrada Detta = PercheNonConta();
        Detta.Da = PrimoIncontrato(*Periodo);
        Detta.A = UltimoIncontrato(*Periodo);
        Saltate.insert(Passo > 0 ? Saltate.size() : 0, Detta);
    }
    for (qsizetype i = 0; i < Saltate.size(); ++i)
        Esito.Passi.insert(1 + i, Saltate[i]);
}

PassoStrada ContoVigente::PercheNonConta() const
{
    PassoStrada Detta{{}, {}, 0, GenerePasso::SenzaSospensione, {}, false, {}};
    if (Materia) {
        Detta.Norma = Materia->Norma;
        Detta.Nota = Materia->Testo;
    } else if (Richiesta.SospensioneIgnota) {
        Detta.NonRiscontrato = true;
    } else if (Richiesta.MaiSospeso) {
        Detta.Norma = Richiesta.Norma;
    } else {
        Detta.Nota = u"per scelta"_s;
    }
    return Detta;
}

void ContoVigente::Annota()
{
    const QDate Ultimo = std::max(Richiesta.Decorrenza, Esito.Scadenza);
    const QString Oltre = Insieme.AvvisoOltre(Ultimo);
    if (!Oltre.isEmpty())
        Esito.Note << Oltre;
    Esito.Note << Insieme.Avvisi(AmbitoTermini, std::min(Richiesta.Decorrenza, Esito.Scadenza));
    if (NonRiscontrata(Esito.Passi))
        Esito.Note << NotaNonRiscontrato.toString();
}

/// The program's own computation, with the steps that it has written down.
EsitoTermine DelProgramma(const RichiestaTermine& Richiesta)
{
    EsitoTermine Esito;
    const auto Singolo = [&](const QDate& Giorno, GenerePasso Genere) {
        Esito.Passi.append({Giorno, Giorno, 0, Genere, CriterioDelProgramma.toString(), false, {}});
    };
    Singolo(Richiesta.Decorrenza, GenerePasso::GiornoIniziale);
    ContoTermine Conto;
    Conto.Opzioni = Richiesta.Opzioni;
    Conto.DataCorrente = Richiesta.Decorrenza;
    Conto.Passi = &Esito.Passi;
    ContaTermine(Conto, Richiesta.Numero, Richiesta.Tipo);
    Singolo(Conto.DataCorrente, GenerePasso::GiornoFinale);
    Esito.Scadenza = Conto.DataCorrente;
    Esito.Spostata = Conto.Prorogato;
    if (Conto.SettembreSospeso)
        Esito.Note << AvvisoSettembre.toString();
    return Esito;
}

}  // namespace

EsitoTermine ComputaTermine(const Norme& Insieme, const RichiestaTermine& Richiesta)
{
    return ContoVigente(Insieme, Richiesta).Esegui();
}

EsitoTermine ComputaTermine(InsiemeNorme Insieme, const RichiestaTermine& Richiesta)
{
    return Insieme == InsiemeNorme::Programma ? DelProgramma(Richiesta)
                                              : ComputaTermine(*NormeVigenti(), Richiesta);
}
