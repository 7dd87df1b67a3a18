// The terms a second time, written day by day over a calendar that is itself walked day by day, and compared
// with the program on random cases.
#include "supporto/alcaso.h"
#include "supporto/prova.h"

#include "calculators/modTermini.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

constexpr int Primo = 1900;
constexpr int Ultimo = 2099;

struct Giorno
{
    int Anno = 0;
    int Mese = 0;
    int DelMese = 0;
    int Settimana = 0;  ///< 1 Monday .. 7 Sunday
    bool Festa = false;
    bool Sospeso = false;
};

bool Bisestile(int Anno)
{
    return Anno % 4 == 0 && (Anno % 100 != 0 || Anno % 400 == 0);
}

int LungoMese(int Anno, int Mese)
{
    constexpr std::array Lunghi{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return Mese == 2 && Bisestile(Anno) ? 29 : Lunghi[size_t(Mese - 1)];
}

/// Days behind the end of February of the Paschal full moon of the golden numbers, 1900-2199: the church's
/// table.
constexpr std::array PlenilunioDaMarzo{45, 34, 23, 42, 31, 49, 39, 28, 47, 36,
                                       25, 44, 33, 22, 41, 30, 48, 38, 27};

/// Years in which the rule without corrections comes a week later than the church.
constexpr std::array SettimanaDopo{1954, 1981, 2049, 2076};

class Calendario
{
public:
    Calendario()
    {
        int Settimana = 1;  // 1 January 1900 was a Monday
        for (int Anno = Primo; Anno <= Ultimo; ++Anno)
            for (int Mese = 1; Mese <= 12; ++Mese) {
                PrimiDelMese.push_back(int(Giorni.size()));
                for (int G = 1; G <= LungoMese(Anno, Mese); ++G) {
                    Giorni.push_back({Anno, Mese, G, Settimana, Fissa(G, Mese), Dentro(G, Mese)});
                    Settimana = Settimana % 7 + 1;
                }
            }
        for (int Anno = Primo; Anno <= Ultimo; ++Anno)
            Giorni[size_t(Pasqua(Anno) + 1)].Festa = true;
    }

    [[nodiscard]] const Giorno& operator[](int Posto) const { return Giorni[size_t(Posto)]; }
    [[nodiscard]] int Posto(int Anno, int Mese, int G) const
    {
        return PrimiDelMese[size_t((Anno - Primo) * 12 + Mese - 1)] + G - 1;
    }
    /// First Sunday behind the full moon of the year, found by walking.
    [[nodiscard]] int Pasqua(int Anno) const
    {
        int Qui = Posto(Anno, 3, 1) + PlenilunioDaMarzo[size_t(Anno % 19)] - 1;
        do
            ++Qui;
        while (Giorni[size_t(Qui)].Settimana != 7);
        return std::ranges::find(SettimanaDopo, Anno) != SettimanaDopo.end() ? Qui + 7 : Qui;
    }

private:
    static bool Fissa(int G, int Mese)
    {
        const int Chiave = Mese * 100 + G;
        return Chiave == 101 || Chiave == 106 || Chiave == 425 || Chiave == 501 || Chiave == 602 ||
               Chiave == 815 || Chiave == 1101 || Chiave == 1208 || Chiave == 1225 || Chiave == 1226;
    }
    static bool Dentro(int G, int Mese) { return Mese == 8 || (Mese == 9 && G <= 15); }

    std::vector<Giorno> Giorni;
    std::vector<int> PrimiDelMese;
};

const Calendario& Anni()
{
    static const Calendario Uno;
    return Uno;
}

QDate Data(int Posto)
{
    const Giorno& G = Anni()[Posto];
    return QDate(G.Anno, G.Mese, G.DelMese);
}

/// One term, walked.
class Cammino
{
public:
    Cammino(int Partenza, const OpzioniTermine& Scelte)
        : Passo(Scelte.Antecedente ? -1 : 1), Opzioni(Scelte), Qui(Partenza)
    {}

    void Conta(int Numero, int Tipo)
    {
        EsciDalPeriodo();
        if (Tipo != TipoGiorni) {
            const int Da = Qui;
            for (int i = 0; i < Numero; ++i)
                Salta(Tipo == TipoMesi ? 1 : 12);
            const int Sospesi = SospesiFino(Da);
            if (Sospesi > 0) {
                Spostato = true;
                EsciDalPeriodo();
                Numero = Sospesi;
                Cammina(Numero);
            }
        } else {
            Cammina(Numero);
        }
        if (Opzioni.Libero)
            Qui += Passo;
        Assesta();
    }

    [[nodiscard]] int Arrivo() const { return Qui; }
    [[nodiscard]] bool Prorogato() const { return Spostato; }

private:
    [[nodiscard]] bool Sospeso(int Posto) const { return Opzioni.Sospensione && Anni()[Posto].Sospeso; }

    /// To the last day of the period, as the count meets it.
    void EsciDalPeriodo()
    {
        while (Sospeso(Qui) && Sospeso(Qui + Passo))
            Qui += Passo;
    }

    void Cammina(int Numero)
    {
        for (int i = 0; i < Numero; ++i) {
            Qui += Passo;
            for (; Sospeso(Qui); Qui += Passo)
                Spostato = true;
        }
    }

    /// Twelve months at a time are a year: a 29 February loses its day at once.
    void Salta(int Mesi)
    {
        const Giorno& G = Anni()[Qui];
        const int Conto = G.Anno * 12 + G.Mese - 1 + Passo * Mesi;
        const int Anno = Conto / 12;
        const int Mese = Conto % 12 + 1;
        Qui = Anni().Posto(Anno, Mese, std::min(G.DelMese, LungoMese(Anno, Mese)));
    }

    [[nodiscard]] int SospesiFino(int Da) const
    {
        int Quanti = 0;
        for (int i = Da; i != Qui; i += Passo)
            Quanti += Sospeso(i + Passo);
        return Quanti;
    }

    void Assesta()
    {
        for (;;) {
            const int Prima = Qui;
            const Giorno& G = Anni()[Qui];
            if (G.Festa || G.Settimana == 7 || (Opzioni.Sabato && G.Settimana == 6)) {
                Spostato = true;
                Qui += Passo;
            }
            while (Sospeso(Qui))
                Qui += Passo;
            if (Qui == Prima)
                return;
        }
    }

    int Passo;
    OpzioniTermine Opzioni;
    int Qui;
    bool Spostato = false;
};

}  // namespace

class TestTerminiPassi : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void calendario();
    void pasquetteDelSecolo();
    void terminiACaso();
};
PROVA(TestTerminiPassi);

// The walked calendar against the library's, or the rest would prove nothing.
void TestTerminiPassi::calendario()
{
    for (int Posto = 0; Posto < Anni().Posto(Ultimo, 12, 31); ++Posto) {
        const QDate Giusta = QDate(Primo, 1, 1).addDays(Posto);
        if (Data(Posto) != Giusta || Anni()[Posto].Settimana != Giusta.dayOfWeek())
            QFAIL(qPrintable(Giusta.toString(Qt::ISODate)));
    }
}

void TestTerminiPassi::pasquetteDelSecolo()
{
    for (int Anno = Primo; Anno <= Ultimo; ++Anno)
        QCOMPARE(Pasquetta(Anno), Data(Anni().Pasqua(Anno) + 1).toString(u"dd/MM/yyyy"_s));
}

void TestTerminiPassi::terminiACaso()
{
    const int Casi = CasiAlCaso(10'000);
    QRandomGenerator Sorte(20260801);
    const int Inizio = Anni().Posto(1940, 1, 1);
    const int Fine = Anni().Posto(2060, 12, 31);
    constexpr std::array Massimi{400, 40, 12};
    for (int i = 0; i < Casi; ++i) {
        const int Partenza = Sorte.bounded(Inizio, Fine);
        const int Tipo = Sorte.bounded(3);
        const int Numero = 1 + Sorte.bounded(Massimi[size_t(Tipo)]);
        const int Bit = Sorte.bounded(16);
        ContoTermine Conto;
        Conto.Opzioni = {(Bit & 1) != 0, (Bit & 2) != 0, (Bit & 4) != 0, (Bit & 8) != 0};
        Conto.DataCorrente = Data(Partenza);
        Cammino Passi(Partenza, Conto.Opzioni);
        Passi.Conta(Numero, Tipo);
        ContaTermine(Conto, Numero, Tipo);
        if (Conto.DataCorrente != Data(Passi.Arrivo()) || Conto.Prorogato != Passi.Prorogato())
            QFAIL(qPrintable(u"%1 %2 %3 %4: %5, %6"_s.arg(Data(Partenza).toString(Qt::ISODate))
                                 .arg(Numero)
                                 .arg(Tipo)
                                 .arg(Bit)
                                 .arg(Conto.DataCorrente.toString(Qt::ISODate),
                                      Data(Passi.Arrivo()).toString(Qt::ISODate))));
    }
}

#include "TestTerminiPassi.moc"
