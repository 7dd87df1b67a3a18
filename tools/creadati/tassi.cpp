#include "creadati/tassi.h"

#include "creadati/tabellatesto.h"
#include "platform/base/regionale.h"

#include <array>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int DecimaliTasso = 2;
constexpr int DecimaliIndice = 2;
constexpr int DecimaliRaccordo = 4;
constexpr int DecimaliCoefficiente = 10;

QStringList ColonneMesi()
{
    return {u"gennaio"_s, u"febbraio"_s, u"marzo"_s,     u"aprile"_s,  u"maggio"_s,   u"giugno"_s,
            u"luglio"_s,  u"agosto"_s,   u"settembre"_s, u"ottobre"_s, u"novembre"_s, u"dicembre"_s};
}

/// The period of a row; `AlPrecedente` is the last day of the row above, null for the first row.
std::pair<QDate, QDate> LeggiPeriodo(const TabellaTesto& Tabella, int Riga, const QDate& AlPrecedente)
{
    const QDate Dal = Tabella.Data(Riga, u"dal"_s);
    const QDate Al = Tabella.Data(Riga, u"al"_s);
    if (AlPrecedente.isValid() && Dal != AlPrecedente.addDays(1))
        Tabella.Rifiuta(
            Riga, u"dal"_s,
            u"il periodo doveva cominciare il %1"_s.arg(AlPrecedente.addDays(1).toString(u"yyyy-MM-dd"_s)));
    if (Al < Dal)
        Tabella.Rifiuta(Riga, u"al"_s, u"il periodo finisce prima di cominciare"_s);
    return {Dal, Al};
}

QList<TassoPeriodo> LeggiPeriodi(const QString& Percorso)
{
    const TabellaTesto Tabella(Percorso, {u"dal"_s, u"al"_s, u"tasso"_s});
    QList<TassoPeriodo> Periodi;
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        const auto [Dal, Al] = LeggiPeriodo(Tabella, Riga, Periodi.isEmpty() ? QDate() : Periodi.last().Al);
        const double Tasso = Tabella.Decimale(Riga, u"tasso"_s, DecimaliTasso);
        // The computation takes a rate of zero for a missing one and stops.
        if (Tasso == 0.0)
            Tabella.Rifiuta(Riga, u"tasso"_s, u"il tasso è zero"_s);
        Periodi.append({Dal, Al, Tasso});
    }
    if (Periodi.isEmpty())
        Tabella.RifiutaInFondo(u"dal"_s, u"la tabella è vuota"_s);
    return Periodi;
}

QList<BaseIndici> LeggiBasi(const QString& Percorso)
{
    const TabellaTesto Tabella(Percorso, {u"base"_s, u"dal"_s, u"al"_s, u"raccordo"_s});
    QList<BaseIndici> Basi;
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        const auto [Dal, Al] = LeggiPeriodo(Tabella, Riga, Basi.isEmpty() ? QDate() : Basi.last().Al);
        if (Dal.day() != 1 || Al.addDays(1).day() != 1)
            Tabella.Rifiuta(Riga, u"dal"_s, u"una base va da un primo a un ultimo del mese"_s);
        const double Raccordo = Tabella.Decimale(Riga, u"raccordo"_s, DecimaliRaccordo);
        if (Raccordo == 0.0 || (Riga == 0 && Raccordo != 1.0))
            Tabella.Rifiuta(Riga, u"raccordo"_s, u"il raccordo della prima base è 1, nessuno è zero"_s);
        Basi.append({Dal, Al, Raccordo});
    }
    if (Basi.isEmpty())
        Tabella.RifiutaInFondo(u"base"_s, u"la tabella è vuota"_s);
    return Basi;
}

QList<IndiceMese> LeggiIndici(const QString& Percorso, const QList<BaseIndici>& Basi)
{
    const QStringList Mesi = ColonneMesi();
    const TabellaTesto Tabella(Percorso, QStringList{u"anno"_s} + Mesi);
    QList<IndiceMese> Indici;
    QDate Atteso = Basi.first().Dal;
    bool Finiti = false;
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        const int Anno = Tabella.Intero(Riga, u"anno"_s, 1, 9999);
        for (int Mese = 1; Mese <= 12; ++Mese) {
            const QString& Colonna = Mesi[Mese - 1];
            const bool Vuoto = Tabella.Testo(Riga, Colonna).isEmpty();
            Finiti = Finiti || (Vuoto && Riga == Tabella.Righe() - 1);
            if (Finiti && Vuoto)
                continue;
            if (Vuoto || Finiti || QDate(Anno, Mese, 1) != Atteso)
                Tabella.Rifiuta(Riga, Colonna, u"manca l'indice di %1"_s.arg(Atteso.toString(u"yyyy-MM"_s)));
            if (Atteso > Basi.last().Al)
                Tabella.Rifiuta(Riga, Colonna, u"nessuna base arriva a questo mese"_s);
            Indici.append({Anno, Mese, Tabella.Decimale(Riga, Colonna, DecimaliIndice)});
            if (Indici.last().Indice == 0.0)
                Tabella.Rifiuta(Riga, Colonna, u"l'indice è zero"_s);
            Atteso = Atteso.addMonths(1);
        }
    }
    if (Indici.isEmpty())
        Tabella.RifiutaInFondo(u"anno"_s, u"la tabella è vuota"_s);
    return Indici;
}

}  // namespace

Tassi LeggiTassi(const QString& Cartella)
{
    Tassi Letti;
    Letti.Legali = LeggiPeriodi(Cartella + u"tassi_legali.csv"_s);
    Letti.Mora = LeggiPeriodi(Cartella + u"tassi_mora.csv"_s);
    Letti.Basi = LeggiBasi(Cartella + u"basi_foi.csv"_s);
    Letti.Indici = LeggiIndici(Cartella + u"indici_foi.csv"_s, Letti.Basi);
    return Letti;
}

QDate DataDeiTassi(const Tassi& Dati)
{
    QDate Ultima;
    for (const QList<TassoPeriodo>* Tabella : {&Dati.Legali, &Dati.Mora})
        for (const TassoPeriodo& Periodo : *Tabella)
            Ultima = Ultima.isValid() ? std::max(Ultima, Periodo.Dal) : Periodo.Dal;
    for (const IndiceMese& Mese : Dati.Indici) {
        const QDate Primo(Mese.Anno, Mese.Mese, 1);
        const QDate Fine(Mese.Anno, Mese.Mese, Primo.daysInMonth());
        Ultima = Ultima.isValid() ? std::max(Ultima, Fine) : Fine;
    }
    return Ultima;
}

QList<CoefficienteRaccordo> Coefficienti(const QList<BaseIndici>& Basi)
{
    QList<CoefficienteRaccordo> Tutti;
    for (qsizetype Iniziale = 0; Iniziale < Basi.size(); ++Iniziale) {
        double Prodotto = 1.0;
        for (qsizetype Finale = Iniziale; Finale < Basi.size(); ++Finale) {
            if (Finale > Iniziale)
                Prodotto *= Basi[Finale].Raccordo;
            Tutti.append({Round(Prodotto, DecimaliCoefficiente), Basi[Iniziale], Basi[Finale]});
        }
    }
    return Tutti;
}
