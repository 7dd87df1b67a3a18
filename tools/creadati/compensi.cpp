#include "creadati/compensi.h"

#include "creadati/colonne.h"
#include "creadati/importi.h"
#include "creadati/tabellatesto.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using colonne::Categoria;
using colonne::Da;
using colonne::Medio;
using colonne::Scaglione;
const auto A = u"a"_s;
const auto Unita = u"unità"_s;
const auto Aumento = u"aumento"_s;
const auto Diminuzione = u"diminuzione"_s;
const auto Fonte = u"fonte"_s;

/// The source that needs no other.
const auto Gazzetta = u"Gazzetta"_s;
/// The upper limit of a bracket that has none.
constexpr double SenzaLimite = 999999999999.99;

/// A medium with what may be added to it and taken from it. Whole cents, so that no product is a hair off.
struct Compenso
{
    qint64 Centesimi = 0;
    int AumentoPerc = 0;
    int DiminuzionePerc = 0;
    bool Dubbio = false;
};
using Compensi = std::map<ChiaveImporto, Compenso>;

qint64 InCentesimi(double Euro)
{
    return std::llround(Euro * 100);
}

/// So much in the hundred of an amount, half a cent up.
qint64 Cento(qint64 Centesimi, int Perc)
{
    return (Centesimi * Perc + 50) / 100;
}

/// A number with the decimals that it needs.
QString Decimali(qint64 Cifre, int Quanti)
{
    QString Testo = QString::number(Cifre).rightJustified(Quanti + 1, u'0');
    Testo.insert(Testo.size() - Quanti, u'.');
    while (Testo.endsWith(u'0'))
        Testo.chop(1);
    if (Testo.endsWith(u'.'))
        Testo.chop(1);
    return Testo;
}

Terna TernaDi(const Compenso& Figura)
{
    return {double(Cento(Figura.Centesimi, 100 - Figura.DiminuzionePerc)) / 100,
            double(Figura.Centesimi) / 100, double(Cento(Figura.Centesimi, 100 + Figura.AumentoPerc)) / 100};
}

// ---- Rows of the decree's tables -----------------------------------------------------------------

/// The values of the case that a row is for.
struct Estremi
{
    double DaEuro = 0.0;
    double AEuro = 0.0;

    [[nodiscard]] bool Comprende(const ScaglioneValore& Gradino) const
    {
        return Gradino.AVal > 0 && InCentesimi(Gradino.DaVal) >= InCentesimi(DaEuro) &&
               InCentesimi(Gradino.AVal) <= InCentesimi(AEuro);
    }
};

/// Limits that are no bracket's would leave a part of the bracket without its figure.
Estremi LeggiEstremi(const TabellaTesto& Tabella, int Riga, const QList<ScaglioneValore>& Scaglioni)
{
    const bool Aperto = Tabella.Testo(Riga, A, 20, true).isEmpty();
    const Estremi Letti{Tabella.Importo(Riga, Da), Aperto ? SenzaLimite : Tabella.Importo(Riga, A)};
    const auto Limite = [&](const QString& Colonna, double ScaglioneValore::*Estremo, double Valore) {
        if (std::ranges::none_of(Scaglioni, [&](const ScaglioneValore& Gradino) {
                return InCentesimi(Gradino.*Estremo) == InCentesimi(Valore);
            }))
            Tabella.Rifiuta(Riga, Colonna, u"nessuno scaglione ha questo limite"_s);
    };
    Limite(Da, &ScaglioneValore::DaVal, Letti.DaEuro);
    Limite(A, &ScaglioneValore::AVal, Letti.AEuro);
    if (Letti.DaEuro > Letti.AEuro)
        Tabella.Rifiuta(Riga, Da, u"il limite inferiore supera quello superiore"_s);
    return Letti;
}

Compenso LeggiCompenso(const TabellaTesto& Tabella, int Riga)
{
    Compenso Letto;
    Letto.Centesimi = InCentesimi(Tabella.Importo(Riga, Medio));
    Letto.AumentoPerc = Tabella.Intero(Riga, Aumento, 0, 300);
    Letto.DiminuzionePerc = Tabella.Intero(Riga, Diminuzione, 0, 100);
    Letto.Dubbio = Tabella.Testo(Riga, Fonte, 20) != Gazzetta;
    return Letto;
}

template <typename Valore>
void AggiungiCompenso(const TabellaTesto& Tabella, int Riga, std::map<ChiaveImporto, Valore>& Importi,
                      const ChiaveImporto& Chiave, const Valore& Letto)
{
    if (!Importi.emplace(Chiave, Letto).second)
        Tabella.Rifiuta(Riga, Medio, u"la voce %1 ha già un importo qui"_s.arg(Chiave.Codice));
}

/// What an out-of-court item is worth at the upper limit of the rows read so far.
struct Raggiunto
{
    double LimiteEuro = 0.0;
    qint64 Centesimi = 0;
};

/// Formulas in x of a share of the value beyond a limit, on top of what is worth up to there.
Formule FormuleQuota(const Raggiunto& Sotto, const Compenso& Quota)
{
    // The figure is a percentage with two decimals: with that of the variation it has six as a factor.
    const auto Formula = [&](int Perc) {
        return u"%1+(x-%2)*%3"_s.arg(Decimali(Cento(Sotto.Centesimi, Perc), 2),
                                     Decimali(InCentesimi(Sotto.LimiteEuro), 2),
                                     Decimali(Quota.Centesimi * Perc, 6));
    };
    return {Formula(100 - Quota.DiminuzionePerc), Formula(100 + Quota.AumentoPerc)};
}

Formule FormuleFisse(const Compenso& Figura)
{
    return {Decimali(Cento(Figura.Centesimi, 100 - Figura.DiminuzionePerc), 2),
            Decimali(Cento(Figura.Centesimi, 100 + Figura.AumentoPerc), 2)};
}

/// The decree's tables, row by row.
class LettoreCompensi
{
public:
    LettoreCompensi(const QString& Cartella, Tariffe& Tutte)
        : Tabella(Cartella + u"compensi55.csv"_s, {Categoria, u"gruppo"_s, u"tabella"_s, u"codice"_s, Da, A,
                                                   Medio, Unita, Aumento, Diminuzione, Fonte}),
          Dati(Tutte)
    {}

    /// Gives the civil ones, which other brackets follow from.
    Compensi Leggi()
    {
        for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
            const QString Categ = Tabella.Testo(Riga, Categoria);
            const bool Quota = LeggiUnita(Riga) == u"percento";
            if (Quota && Categ != Stragiudiziale)
                Tabella.Rifiuta(Riga, Unita, u"una quota del valore è soltanto stragiudiziale"_s);
            if (Categ == Civile)
                Civile55(Riga);
            else if (Categ == Penale)
                Penale55(Riga);
            else if (Categ == Stragiudiziale)
                Stragiudiziale55(Riga, Quota);
            else
                Tabella.Rifiuta(Riga, Categoria, u"«%1» non è fra CIV, PEN, STR"_s.arg(Categ));
        }
        return Civili;
    }

private:
    [[nodiscard]] QString LeggiUnita(int Riga) const
    {
        QString Letta = Tabella.Testo(Riga, Unita, 10);
        if (Letta != u"euro" && Letta != u"percento")
            Tabella.Rifiuta(Riga, Unita, u"«%1» non è né euro né percento"_s.arg(Letta));
        return Letta;
    }

    void Civile55(int Riga)
    {
        const QString Gruppo = LeggiGruppo(Tabella, Riga, Dati, Civile);
        const int Codice = LeggiCodice(Tabella, Riga, Dati, Civile);
        const Compenso Letto = LeggiCompenso(Tabella, Riga);
        const QList<ScaglioneValore> Scaglioni = Dati.Scaglioni[u"C"_s];
        const Estremi Limiti = LeggiEstremi(Tabella, Riga, Scaglioni);
        for (const ScaglioneValore& Gradino : Scaglioni)
            if (Limiti.Comprende(Gradino))
                AggiungiCompenso(Tabella, Riga, Civili, {Gruppo, Codice, Gradino.NumSca}, Letto);
    }

    void Penale55(int Riga)
    {
        if (!Tabella.Testo(Riga, Da).isEmpty() || !Tabella.Testo(Riga, A).isEmpty())
            Tabella.Rifiuta(Riga, Da, u"nel penale il valore non conta"_s);
        const ChiaveImporto Chiave{LeggiGruppo(Tabella, Riga, Dati, Penale),
                                   LeggiCodice(Tabella, Riga, Dati, Penale), 0};
        const Compenso Letto = LeggiCompenso(Tabella, Riga);
        AggiungiCompenso(Tabella, Riga, Dati.Penali, Chiave, TernaDi(Letto));
        if (Letto.Dubbio)
            Dati.Dubbi.insert(Chiave);
    }

    void Stragiudiziale55(int Riga, bool Quota)
    {
        const int Codice = LeggiCodice(Tabella, Riga, Dati, Stragiudiziale);
        const Compenso Letto = LeggiCompenso(Tabella, Riga);
        const QList<ScaglioneValore> Scaglioni = Dati.Scaglioni[u"S"_s];
        const Estremi Limiti = LeggiEstremi(Tabella, Riga, Scaglioni);
        Raggiunto& Sotto = Cime[Codice];
        if (Quota && InCentesimi(Limiti.DaEuro) != InCentesimi(Sotto.LimiteEuro) + 1)
            Tabella.Rifiuta(Riga, Da, u"la quota non segue la riga che la precede"_s);
        for (const ScaglioneValore& Gradino : Scaglioni) {
            if (!Limiti.Comprende(Gradino))
                continue;
            const ChiaveImporto Chiave{QString(), Codice, Gradino.NumSca};
            AggiungiCompenso(Tabella, Riga, Dati.Stragiudiziali, Chiave,
                             Quota ? FormuleQuota(Sotto, Letto) : FormuleFisse(Letto));
            if (Letto.Dubbio)
                Dati.Dubbi.insert(Chiave);
        }
        const qint64 Quanto = InCentesimi(Limiti.AEuro - Sotto.LimiteEuro) / 100 * Letto.Centesimi / 100;
        Sotto = {Limiti.AEuro, Quota ? Sotto.Centesimi + Quanto : Letto.Centesimi};
    }

    const TabellaTesto Tabella;
    Tariffe& Dati;
    Compensi Civili;
    std::map<int, Raggiunto> Cime;  ///< by item
};

// ---- Brackets that follow from others ------------------------------------------------------------

int LeggiNumero(const TabellaTesto& Tabella, int Riga, const QString& Colonna, const Tariffe& Dati)
{
    const int Numero = Tabella.Intero(Riga, Colonna, 1, MassimoScaglioni);
    if (std::ranges::none_of(Dati.Scaglioni[u"C"_s],
                             [&](const ScaglioneValore& Gradino) { return Gradino.NumSca == Numero; }))
        Tabella.Rifiuta(Riga, Colonna, u"la materia C non ha lo scaglione %1"_s.arg(Numero));
    return Numero;
}

void LeggiGradini(const QString& Cartella, const Tariffe& Dati, Compensi& Civili)
{
    const TabellaTesto Tabella(Cartella + u"gradini55.csv"_s, {Scaglione, Da, Aumento});
    for (int Riga = 0; Riga < Tabella.Righe(); ++Riga) {
        const int Nuovo = LeggiNumero(Tabella, Riga, Scaglione, Dati);
        const int Vecchio = LeggiNumero(Tabella, Riga, Da, Dati);
        const int Perc = Tabella.Intero(Riga, Aumento, 0, 100);
        for (const auto& [Chiave, Figura] : Compensi(Civili)) {
            if (Chiave.Scaglione == Nuovo)
                Tabella.Rifiuta(Riga, Scaglione, u"lo scaglione %1 ha già importi"_s.arg(Nuovo));
            if (Chiave.Scaglione != Vecchio)
                continue;
            Compenso Derivato = Figura;
            Derivato.Centesimi = Cento(Figura.Centesimi, 100 + Perc);
            Civili.emplace(ChiaveImporto{Chiave.Gruppo, Chiave.Codice, Nuovo}, Derivato);
        }
    }
}

}  // namespace

void LeggiCompensi(const QString& Cartella, Tariffe& Dati)
{
    Compensi Civili = LettoreCompensi(Cartella, Dati).Leggi();
    LeggiGradini(Cartella, Dati, Civili);
    for (const auto& [Chiave, Figura] : Civili) {
        Dati.Civili.emplace(Chiave, TernaDi(Figura));
        if (Figura.Dubbio)
            Dati.Dubbi.insert(Chiave);
    }
}
