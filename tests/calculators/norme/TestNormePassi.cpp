// The terms a second time, day by day, by the norms in these tests' own words, and compared with the program
// on random cases under both sets; and what a road has to be, whatever the case.
#include "banconorme.h"
#include "supporto/guasti.h"

#include "calculators/norme/terminiricorrenti.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

/// Easter Sunday: behind the Paschal full moon of the golden number, which is good from 1900 to 2199.
QDate Pasqua(int Anno)
{
    constexpr std::array Plenilunio{45, 34, 23, 42, 31, 49, 39, 28, 47, 36,
                                    25, 44, 33, 22, 41, 30, 48, 38, 27};
    QDate Qui = QDate(Anno, 3, 1).addDays(Plenilunio[size_t(Anno % 19)] - 1);
    do
        Qui = Qui.addDays(1);
    while (Qui.dayOfWeek() != 7);
    return Qui;
}

/// The law of a day, from 1970 on.
struct Legge
{
    static bool Agosto(const QDate& G)
    {
        const int Chiave = G.month() * 100 + G.day();
        return Chiave >= 801 && Chiave <= (G.year() < 2015 ? 915 : 831);
    }
    static bool Festa(const QDate& G)
    {
        switch (G.month() * 100 + G.day()) {
        case 101:
        case 106:
        case 425:
        case 501:
        case 815:
        case 1101:
        case 1208:
        case 1225:
        case 1226:
            return true;
        case 602:
            return G.year() > 2000;
        case 1004:
            return G.year() > 2025;
        default:
            return G.month() <= 5 && G == Pasqua(G.year()).addDays(1);
        }
    }
    static bool SabatoFestivo(const QDate& G) { return G.dayOfWeek() == 6 && G >= QDate(2006, 3, 1); }
};

/// One term, walked.
class Cammino
{
public:
    Cammino(const QDate& Partenza, const OpzioniTermine& Scelte)
        : Passo(Scelte.Antecedente ? -1 : 1), Opzioni(Scelte), Qui(Partenza)
    {}

    void Conta(int Numero, int Tipo)
    {
        while (Fermo(Qui) && Fermo(Accanto(Qui)))
            Qui = Accanto(Qui);
        if (Tipo != TipoGiorni) {
            const QDate Da = Qui;
            Salta(Tipo == TipoMesi ? Numero : Numero * 12);
            Numero = 0;
            for (QDate G = Da; G != Qui;) {
                G = Accanto(G);
                Numero += Fermo(G);
            }
            Spostata = Spostata || Numero > 0;
        }
        Cammina(Numero);
        if (Opzioni.Libero)
            Cammina(1);
        while (Fermo(Qui) || Legge::Festa(Qui) || Qui.dayOfWeek() == 7 ||
               (Opzioni.Sabato && Legge::SabatoFestivo(Qui))) {
            Spostata = true;
            Qui = Accanto(Qui);
        }
    }

    [[nodiscard]] QDate Arrivo() const { return Qui; }
    [[nodiscard]] bool Mossa() const { return Spostata; }

private:
    bool Fermo(const QDate& G) const { return Opzioni.Sospensione && Legge::Agosto(G); }
    QDate Accanto(const QDate& G) const { return G.addDays(Passo); }

    void Cammina(int Giorni)
    {
        while (Giorni > 0) {
            Qui = Accanto(Qui);
            if (Fermo(Qui))
                Spostata = true;
            else
                --Giorni;
        }
    }

    /// So many months away, on the same day or the last of the month.
    void Salta(int Mesi)
    {
        const int Conto = Qui.year() * 12 + Qui.month() - 1 + Passo * Mesi;
        int Giorno = Qui.day();
        while (!QDate::isValid(Conto / 12, Conto % 12 + 1, Giorno))
            --Giorno;
        Qui = QDate(Conto / 12, Conto % 12 + 1, Giorno);
    }

    int Passo;
    OpzioniTermine Opzioni;
    QDate Qui;
    bool Spostata = false;
};

/// What is wrong with a road; empty when nothing is.
class Esame
{
public:
    Esame(const RichiestaTermine& Chiesto, const EsitoTermine& Avuto)
        : Richiesta(Chiesto), Esito(Avuto), Passo(Chiesto.Opzioni.Antecedente ? -1 : 1)
    {}

    QString Difetto()
    {
        if (Esito.Passi.size() < 2)
            return u"troppo corta"_s;
        const PassoStrada& Primo = Esito.Passi.first();
        const PassoStrada& Ultimo = Esito.Passi.last();
        if (Primo.Genere != GenerePasso::GiornoIniziale || Primo.Da != Richiesta.Decorrenza)
            return u"il primo passo non è il giorno iniziale"_s;
        if (Ultimo.Genere != GenerePasso::GiornoFinale || Ultimo.Da != Esito.Scadenza)
            return u"l'ultimo passo non è la scadenza"_s;
        Qui = Primo.Da;
        for (qsizetype i = 1; i < Esito.Passi.size() - 1; ++i)
            if (const QString Detto = DelPasso(Esito.Passi[i]); !Detto.isEmpty())
                return u"passo %1: %2"_s.arg(i).arg(Detto);
        // A count ends on its last day, a move on the day behind what it leaves.
        const QDate Dove = Mosso ? Qui.addDays(Passo) : Qui;
        if (Dove != Esito.Scadenza)
            return u"non arriva alla scadenza"_s;
        if (Richiesta.Tipo == TipoGiorni ? Contati != Richiesta.Numero : Recuperati != Sospesi)
            return u"giorni contati %1, recuperati %2 di %3"_s.arg(Contati).arg(Recuperati).arg(Sospesi);
        if (Liberi != (Richiesta.Opzioni.Libero ? 1 : 0))
            return u"giorni liberi %1"_s.arg(Liberi);
        return {};
    }

private:
    QString DelPasso(const PassoStrada& P)
    {
        const int Lunghi = int(Passo * P.Da.daysTo(P.A)) + 1;
        if (P.Genere == GenerePasso::SenzaSospensione || P.Genere == GenerePasso::SabatoFermo)
            return P.Giorni == 0 ? QString() : u"ha giorni"_s;
        if (P.Genere == GenerePasso::Calendario) {
            DopoCalendario = P.A;
            DalCalendario = Qui;
            const bool Attaccato = P.Da == Qui && P.Giorni == 0;
            Qui = P.A;
            return Attaccato ? QString() : u"il calendario non comincia dove si è"_s;
        }
        if (P.Giorni != Lunghi || Lunghi < 1)
            return u"%1 giorni invece di %2"_s.arg(P.Giorni).arg(Lunghi);
        if (P.Genere == GenerePasso::Sospensione && DopoCalendario &&
            Passo * P.A.daysTo(*DopoCalendario) >= 0) {
            Sospesi += P.Giorni;
            const bool Fuori = Passo * DalCalendario.daysTo(P.Da) <= 0;
            return Fuori || !TuttiSospesi(P) ? u"sospesi che non lo sono"_s : QString();
        }
        // A suspension on which the date stands is left as a holiday is.
        const bool Lascia =
            Ferma(P.Genere) || (P.Genere == GenerePasso::Sospensione && (Mosso || P.Da == Qui));
        if (P.Da != Qui.addDays(Mosso || P.Da != Qui ? Passo : 0) || (P.Da == Qui && !Lascia))
            return u"comincia il %1"_s.arg(P.Da.toString(Qt::ISODate));
        if (Ferma(P.Genere) && !Mosso && P.Da != Qui)
            return u"lascia un giorno su cui non è"_s;
        Qui = P.A;
        Mosso = Lascia;
        return DelGenere(P);
    }

    /// A step that leaves the day on which the date stands.
    static bool Ferma(GenerePasso Genere)
    {
        return Genere == GenerePasso::Festivo || Genere == GenerePasso::Domenica ||
               Genere == GenerePasso::Sabato;
    }

    QString DelGenere(const PassoStrada& P)
    {
        switch (P.Genere) {
        case GenerePasso::GiorniContati:
            Contati += P.Giorni;
            return {};
        case GenerePasso::GiorniRecuperati:
            Recuperati += P.Giorni;
            return {};
        case GenerePasso::GiornoLibero:
            Liberi += P.Giorni;
            return {};
        case GenerePasso::Sospensione:
        case GenerePasso::InizioDifferito:
            return TuttiSospesi(P) ? QString() : u"sospesi che non lo sono"_s;
        case GenerePasso::Festivo:
            // The program's own rules know the holidays of today for every year, and another Easter in some.
            return Legge::Festa(P.Da) || P.Norma == CriterioDelProgramma ? QString() : u"non è festivo"_s;
        case GenerePasso::Domenica:
            return P.Da.dayOfWeek() == 7 ? QString() : u"non è domenica"_s;
        case GenerePasso::Sabato:
            return P.Da.dayOfWeek() == 6 ? QString() : u"non è sabato"_s;
        default:
            return {};
        }
    }

    static bool TuttiSospesi(const PassoStrada& P)
    {
        const auto [Dal, Al] = std::minmax(P.Da, P.A);
        for (QDate G = Dal; G <= Al; G = G.addDays(1))
            if (G.month() != 8 && !(G.month() == 9 && G.day() <= 15))
                return false;
        return true;
    }

    const RichiestaTermine& Richiesta;
    const EsitoTermine& Esito;
    int Passo;
    QDate Qui;
    std::optional<QDate> DopoCalendario;
    QDate DalCalendario;
    bool Mosso = false;
    int Contati = 0, Recuperati = 0, Sospesi = 0, Liberi = 0;
};

/// What a row of the catalogue asks for, by its columns: where nobody says, the earlier date.
OpzioniTermine OpzioniDi(const TermineRicorrente& Termine)
{
    return {Termine.Sospeso ? *Termine.Sospeso : Termine.Antecedente, Termine.Libero,
            Termine.Sabato ? *Termine.Sabato : Termine.Antecedente, Termine.Antecedente};
}

/// The due date of a row from its event, or a null one where the row is not in force.
QDate ScadenzaDi(const TermineRicorrente& Termine, int Quantita, const QDate& Evento,
                 const std::optional<QDate>& Inizio)
{
    const auto Prima = [&](const QDate& G) { return !Termine.Quando.Dal.isNull() && G < Termine.Quando.Dal; };
    const auto Dopo = [&](const QDate& G) { return !Termine.Quando.Al.isNull() && G > Termine.Quando.Al; };
    if (Termine.Misura == MisuraVigenza::Evento) {
        if (Inizio || Prima(Evento) || Dopo(Evento))
            return {};
    } else if (Prima(Evento) || (Inizio && (Prima(*Inizio) || Dopo(*Inizio)))) {
        return {};
    }
    Cammino Passi(Evento, OpzioniDi(Termine));
    Passi.Conta(Quantita, Termine.Tipo);
    return Passi.Arrivo();
}

/// A day on which reforms are near, and sometimes the day on which the proceeding began.
QDate Evento(QRandomGenerator& Sorte)
{
    return QDate(1990, 1, 1).addDays(Sorte.bounded(int(QDate(1990, 1, 1).daysTo({2035, 1, 1}))));
}

std::optional<QDate> Inizio(QRandomGenerator& Sorte, const QDate& Evento)
{
    return Sorte.bounded(3) == 0 ? std::optional(Evento.addDays(-Sorte.bounded(4000))) : std::nullopt;
}

RichiestaTermine ACaso(QRandomGenerator& Sorte)
{
    constexpr std::array Massimi{400, 40, 12};
    RichiestaTermine Chiesto;
    Chiesto.Decorrenza =
        QDate(1984, 1, 1).addDays(Sorte.bounded(int(QDate(1984, 1, 1).daysTo({2150, 1, 1}))));
    // Half of the cases begin where the rules change hands: summer and the years in which laws changed.
    if (Sorte.bounded(2) == 0)
        Chiesto.Decorrenza = QDate(2005 + Sorte.bounded(24), 1 + Sorte.bounded(12), 1 + Sorte.bounded(28));
    Chiesto.Tipo = Sorte.bounded(3);
    Chiesto.Numero = 1 + Sorte.bounded(Massimi[size_t(Chiesto.Tipo)]);
    const int Bit = Sorte.bounded(16);
    Chiesto.Opzioni = {(Bit & 1) != 0, (Bit & 2) != 0, (Bit & 4) != 0, (Bit & 8) != 0};
    return Chiesto;
}

QString Descrizione(const RichiestaTermine& Chiesto, const EsitoTermine& Avuto)
{
    return u"%1 %2 %3 f%4 l%5 s%6 r%7: %8\n%9"_s.arg(Chiesto.Decorrenza.toString(Qt::ISODate))
        .arg(Chiesto.Numero)
        .arg(Chiesto.Tipo)
        .arg(Chiesto.Opzioni.Sospensione)
        .arg(Chiesto.Opzioni.Libero)
        .arg(Chiesto.Opzioni.Sabato)
        .arg(Chiesto.Opzioni.Antecedente)
        .arg(Avuto.Scadenza.toString(Qt::ISODate), TestoStrada(Avuto.Passi));
}

}  // namespace

class TestNormePassi : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void giorniDiLegge();
    void vigenti();
    void programma();
    void ricorrenti();
    void catene();
};
PROVA(TestNormePassi);

// Each day of two centuries: holiday and suspension as these tests have them.
void TestNormePassi::giorniDiLegge()
{
    for (QDate G(1970, 1, 1); G < QDate(2150, 1, 1); G = G.addDays(1)) {
        if (NormeConsegnate().GiornoSospeso(G) != Legge::Agosto(G))
            QFAIL(qPrintable(G.toString(Qt::ISODate)));
        if ((NormeConsegnate().Festa(G) != nullptr) != Legge::Festa(G))
            QFAIL(qPrintable(G.toString(Qt::ISODate)));
    }
}

void TestNormePassi::vigenti()
{
    QRandomGenerator Sorte(20261122);
    for (int i = CasiAlCaso(4000); i > 0; --i) {
        const RichiestaTermine Chiesto = ACaso(Sorte);
        const EsitoTermine Avuto = ComputaTermine(NormeConsegnate(), Chiesto);
        Cammino Passi(Chiesto.Decorrenza, Chiesto.Opzioni);
        Passi.Conta(Chiesto.Numero, Chiesto.Tipo);
        if (Avuto.Scadenza != Passi.Arrivo() || Avuto.Spostata != Passi.Mossa())
            QFAIL(
                qPrintable(Passi.Arrivo().toString(Qt::ISODate) + u", non "_s + Descrizione(Chiesto, Avuto)));
        const QString Difetto = Esame(Chiesto, Avuto).Difetto();
        if (!Difetto.isEmpty())
            QFAIL(qPrintable(Difetto + u": "_s + Descrizione(Chiesto, Avuto)));
    }
}

// The road changes nothing in the program's own result, whose second formulation is TestTerminiPassi, and is
// a whole one too.
void TestNormePassi::programma()
{
    QRandomGenerator Sorte(20261123);
    for (int i = CasiAlCaso(4000); i > 0; --i) {
        const RichiestaTermine Chiesto = ACaso(Sorte);
        const EsitoTermine Avuto = ComputaTermine(InsiemeNorme::Programma, Chiesto);
        ContoTermine Conto;
        Conto.Opzioni = Chiesto.Opzioni;
        Conto.DataCorrente = Chiesto.Decorrenza;
        ContaTermine(Conto, Chiesto.Numero, Chiesto.Tipo);
        if (Avuto.Scadenza != Conto.DataCorrente || Avuto.Spostata != Conto.Prorogato)
            QFAIL(qPrintable(Descrizione(Chiesto, Avuto)));
        const QString Difetto = Esame(Chiesto, Avuto).Difetto();
        if (!Difetto.isEmpty())
            QFAIL(qPrintable(Difetto + u": "_s + Descrizione(Chiesto, Avuto)));
    }
}

void TestNormePassi::ricorrenti()
{
    const QList<TermineRicorrente>& Tutti = NormeConsegnate().Termini();
    QRandomGenerator Sorte(20261124);
    int Contati = 0;
    for (int i = CasiAlCaso(4000); i > 0; --i) {
        const TermineRicorrente& Termine = Tutti[Sorte.bounded(int(Tutti.size()))];
        const QDate Quando = Evento(Sorte);
        const auto Cominciato = Inizio(Sorte, Quando);
        const QDate Attesa =
            Termine.Regola ? QDate() : ScadenzaDi(Termine, Termine.Quantita, Quando, Cominciato);
        QDate Avuta;
        (void)DescrizioneErroreDi(
            [&] { Avuta = ComputaRicorrente(NormeConsegnate(), Termine, Quando, {}, Cominciato).Scadenza; });
        if (Avuta != Attesa)
            QFAIL(qPrintable(u"%1 dal %2, inizio %3: %4, non %5"_s.arg(
                Termine.Codice, Quando.toString(Qt::ISODate),
                Cominciato.value_or(QDate()).toString(Qt::ISODate), Avuta.toString(Qt::ISODate),
                Attesa.toString(Qt::ISODate))));
        Contati += Attesa.isValid();
    }
    QVERIFY2(Contati > CasiAlCaso(4000) / 3, qPrintable(QString::number(Contati)));
}

void TestNormePassi::catene()
{
    const QList<CatenaTermini>& Tutte = NormeConsegnate().Catene();
    QRandomGenerator Sorte(20261125);
    int Contate = 0;
    for (int i = CasiAlCaso(4000) / 4; i > 0; --i) {
        const CatenaTermini& Catena = Tutte[Sorte.bounded(int(Tutte.size()))];
        const QDate Quando = Evento(Sorte);
        const auto Cominciato = Inizio(Sorte, Quando);
        QMap<QString, QDate> Date;
        QMap<QString, int> Giorni;
        QList<QDate> Attese;
        for (const AnelloCatena& Anello : Catena.Anelli) {
            const TermineRicorrente& Termine = *TrovaTermine(NormeConsegnate(), Anello.Termine);
            const QDate Da = Anello.Inizio == InizioAnello::Scadenza ? Date[Anello.Da] : Quando;
            Giorni[Anello.Termine] =
                Termine.Quantita + (Anello.Inizio == InizioAnello::Aumento ? Giorni[Anello.Da] : 0);
            Date[Anello.Termine] = ScadenzaDi(Termine, Giorni[Anello.Termine], Da, Cominciato);
            Attese << Date[Anello.Termine];
            if (!Attese.last().isValid())
                break;
        }
        if (!Attese.last().isValid())
            Attese.clear();
        QList<QDate> Avute;
        (void)DescrizioneErroreDi([&] {
            for (const ScadenzaCatena& Una : ComputaCatena(NormeConsegnate(), Catena, Quando, {}, Cominciato))
                Avute << Una.Esito.Scadenza;
        });
        if (Avute != Attese)
            QFAIL(qPrintable(Catena.Codice + u" dal "_s + Quando.toString(Qt::ISODate)));
        Contate += !Attese.isEmpty();
    }
    QVERIFY(Contate > 200);
}

#include "TestNormePassi.moc"
