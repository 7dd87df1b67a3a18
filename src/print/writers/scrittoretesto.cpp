#include "print/writers/scrittoretesto.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double CaratteriPerCm = 5.0;

bool Spazio(QChar C)
{
    return C == u' ' || C == u'\t';
}

/// First place from `Da` on that is (or is not) a blank, the end when there is none.
qsizetype Cerca(QStringView Testo, qsizetype Da, bool UnoSpazio)
{
    while (Da < Testo.size() && Spazio(Testo[Da]) != UnoSpazio)
        ++Da;
    return Da;
}

QStringView SenzaCoda(QStringView Testo)
{
    while (!Testo.isEmpty() && Spazio(Testo.back()))
        Testo.chop(1);
    return Testo;
}

// ---- wrapping ---------------------------------------------------------------------------------------

/// The blank where a line too long for `Larghezza` ends: the last one that fits after some text, else the
/// first one beyond; -1 when the line is one word. Blanks that lead the line are no place to break it.
qsizetype PuntoDiTaglio(QStringView Riga, qsizetype Larghezza)
{
    const qsizetype PrimaParola = Cerca(Riga, 0, false);
    for (qsizetype Posto = Larghezza; Posto > PrimaParola; --Posto)
        if (Spazio(Riga[Posto]))
            return Posto;
    const qsizetype Oltre = Cerca(Riga, std::max(Larghezza, PrimaParola), true);
    return Oltre < Riga.size() ? Oltre : -1;
}

/// @param Sporge what the first line is longer
void AvvolgiRiga(QStringView Riga, qsizetype Larghezza, QStringList& Fatte, qsizetype Sporge = 0)
{
    Riga = SenzaCoda(Riga);
    if (Sporge > 0 && Riga.size() > Larghezza + Sporge) {
        if (const qsizetype Taglio = PuntoDiTaglio(Riga, Larghezza + Sporge); Taglio >= 0) {
            Fatte += SenzaCoda(Riga.first(Taglio)).toString();
            Riga = Riga.sliced(Cerca(Riga, Taglio, false));
        }
    } else if (Sporge > 0) {
        Fatte += Riga.toString();
        return;
    }
    while (Riga.size() > Larghezza) {
        const qsizetype Taglio = PuntoDiTaglio(Riga, Larghezza);
        if (Taglio < 0)
            break;
        Fatte += SenzaCoda(Riga.first(Taglio)).toString();
        Riga = Riga.sliced(Cerca(Riga, Taglio, false));
    }
    Fatte += Riga.toString();
}

QStringList Avvolgi(QStringView Testo, qsizetype Larghezza)
{
    QStringList Fatte;
    for (const QStringView Riga : Testo.split(u'\n'))
        AvvolgiRiga(Riga, Larghezza, Fatte);
    return Fatte;
}

/// Width that a text needs for no piece of it to be cut. Blanks that lead a line belong to its first word.
qsizetype LarghezzaMinima(QStringView Testo)
{
    qsizetype Minima = 0;
    for (const QStringView Riga : Testo.split(u'\n')) {
        qsizetype Inizio = 0;
        qsizetype Parola = Cerca(Riga, 0, false);
        while (Parola < Riga.size()) {
            const qsizetype Fine = Cerca(Riga, Parola, true);
            Minima = std::max(Minima, Fine - Inizio);
            Inizio = Parola = Cerca(Riga, Fine, false);
        }
    }
    return Minima;
}

/// Blanks before a line of this length.
qsizetype Rientro(Allineamento Come, qsizetype Lunghezza, qsizetype Larghezza)
{
    const qsizetype Resto = std::max<qsizetype>(Larghezza - Lunghezza, 0);
    switch (Come) {
    case Allineamento::Centro:
        return Resto / 2;
    case Allineamento::Destra:
        return Resto;
    case Allineamento::AltoSinistra:
    case Allineamento::Sinistra:
    case Allineamento::Giustificato:
        break;
    }
    return 0;
}

// ---- paragraphs -------------------------------------------------------------------------------------

/// Blanks for tabs, to stops that stand so far apart.
QString SenzaTabulazioni(const QString& Testo, qsizetype Distanza)
{
    QString Fatto;
    qsizetype Colonna = 0;
    for (const QChar C : Testo) {
        const qsizetype Bianchi = C == u'\t' ? Distanza - Colonna % Distanza : 0;
        Fatto += Bianchi > 0 ? QString(Bianchi, u' ') : QString(C);
        Colonna = C == u'\n' ? 0 : Colonna + std::max<qsizetype>(Bianchi, 1);
    }
    return Fatto;
}

void Scrivi(const Paragrafo& Questo, QString& Uscita)
{
    constexpr qsizetype Tabulazione = 6;  // 12.5 mm
    const auto Colonne = [](double Cm) {
        return std::clamp(qRound(Cm * CaratteriPerCm), 0, ColonneTesto / 2);
    };
    const int Sinistro = Colonne(Questo.Spazi.SinistroCm);
    const int Prima = Colonne(Questo.Spazi.SinistroCm + Questo.Spazi.PrimaRigaCm);
    const int Sporge = std::max(Sinistro - Prima, 0);
    const qsizetype Larga =
        std::max(ColonneTesto - Sinistro - Colonne(Questo.Spazi.DestroCm), ColonneTesto / 4);

    const QString Testo = SenzaTabulazioni(Questo.Testo(), Sporge > 0 ? Sporge : Tabulazione);
    QStringList Fatte;
    for (const QStringView Riga : QString(QString(std::max(Prima - Sinistro, 0), u' ') + Testo).split(u'\n'))
        AvvolgiRiga(Riga, Larga, Fatte, Fatte.isEmpty() ? Sporge : 0);
    for (qsizetype i = 0; i < Fatte.size(); ++i) {
        if (!Fatte[i].isEmpty())
            Uscita += QString(i == 0 ? std::min(Prima, Sinistro) : Sinistro, u' ') +
                      QString(Rientro(Questo.Allinea, Fatte[i].size(), Larga), u' ') + Fatte[i];
        Uscita += u'\n';
    }
}

// ---- tables -----------------------------------------------------------------------------------------

/// Widths of a table's columns in characters, the blank that ends each included.
using Larghezze = std::vector<qsizetype>;

/// Columns that the cell at this place covers; at least itself.
std::size_t Coperte(const std::vector<Cella>& Riga, std::size_t Colonna)
{
    return std::clamp<std::size_t>(static_cast<std::size_t>(std::max(Riga[Colonna].Unione, 1)), 1,
                                   Riga.size() - Colonna);
}

qsizetype Somma(const Larghezze& Tutte, std::size_t Da, std::size_t Quante)
{
    qsizetype Totale = 0;
    for (std::size_t Colonna = Da; Colonna < Da + Quante; ++Colonna)
        Totale += Tutte[Colonna];
    return Totale;
}

/// Widens the last of the columns of a cell until its widest word and a blank fit. Looks at single cells
/// or at spanning ones.
void Allarga(Larghezze& Tutte, const std::vector<Cella>& Riga, bool Unite)
{
    for (std::size_t Colonna = 0; Colonna < Riga.size(); Colonna += Coperte(Riga, Colonna)) {
        const std::size_t Quante = Coperte(Riga, Colonna);
        const qsizetype Minima = LarghezzaMinima(Riga[Colonna].Testo);
        if ((Quante > 1) != Unite || Minima == 0)
            continue;
        const qsizetype Manca = Minima + 1 - Somma(Tutte, Colonna, Quante);
        Tutte[Colonna + Quante - 1] += std::max<qsizetype>(Manca, 0);
    }
}

Larghezze LarghezzeDi(const Tabella& Questa)
{
    Larghezze Tutte;
    for (const double Cm : Questa.LarghezzeCm)
        Tutte.push_back(qRound(Cm * CaratteriPerCm));
    for (const bool Unite : {false, true})  // what spans is measured on columns that have their width
        for (const std::vector<Cella>& Riga : Questa.Righe)
            Allarga(Tutte, Riga, Unite);
    return Tutte;
}

/// Puts the lines of a cell below each other from the left edge `Da`.
void Posa(QStringList& Righe, const QStringList& Testi, Allineamento Come, qsizetype Da, qsizetype Larghezza)
{
    while (Righe.size() < Testi.size())
        Righe += QString();
    for (qsizetype Posto = 0; Posto < Testi.size(); ++Posto) {
        if (Testi[Posto].isEmpty())
            continue;
        const qsizetype Inizio = Da + Rientro(Come, Testi[Posto].size(), Larghezza);
        Righe[Posto] = Righe[Posto].leftJustified(Inizio) + Testi[Posto];
    }
}

void Scrivi(const std::vector<Cella>& Riga, const Larghezze& Tutte, QString& Uscita)
{
    QStringList Righe{QString()};
    qsizetype Da = 0;
    for (std::size_t Colonna = 0; Colonna < Riga.size(); Colonna += Coperte(Riga, Colonna)) {
        const qsizetype Larga = Somma(Tutte, Colonna, Coperte(Riga, Colonna));
        const qsizetype Utile = std::max<qsizetype>(Larga - 1, 0);
        Posa(Righe, Avvolgi(Riga[Colonna].Testo, Utile), Riga[Colonna].Allinea, Da, Utile);
        Da += Larga;
    }
    for (const QString& Una : std::as_const(Righe))
        Uscita += Una + u'\n';
}

void Scrivi(const Tabella& Questa, QString& Uscita)
{
    const Larghezze Tutte = LarghezzeDi(Questa);
    for (const std::vector<Cella>& Riga : Questa.Righe)
        Scrivi(Riga, Tutte, Uscita);
}

}  // namespace

QString ScriviTesto(const Documento& Doc)
{
    QString Uscita;
    for (const BloccoDocumento& Uno : Doc.Blocchi)
        std::visit([&](const auto& Questo) { Scrivi(Questo, Uscita); }, Uno);
    return Uscita;
}
