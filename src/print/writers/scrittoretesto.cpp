#include "print/writers/scrittoretesto.h"

#include "platform/document/righetabella.h"

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
/// What is as short as a quantity or the heading of a column is one piece: "n." above "120" would be two.
qsizetype LarghezzaMinima(QStringView Testo)
{
    constexpr qsizetype Breve = 12;
    qsizetype Minima = 0;
    for (const QStringView Riga : Testo.split(u'\n')) {
        if (Riga.size() <= Breve) {
            Minima = std::max(Minima, SenzaCoda(Riga).size());
            continue;
        }
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

/// The text of a paragraph. What is struck out is said to be, since plain text cannot show it: a clause that
/// the parties have crossed out must not be read as agreed.
QString ConBarrature(const Paragrafo& Questo)
{
    QString Testo;
    bool Barrato = false;
    const auto Passa = [&](bool Nuovo) {
        if (Nuovo != Barrato)
            Testo += Nuovo ? u"[barrato: "_s : u"]"_s;
        Barrato = Nuovo;
    };
    for (const Tratto& Singolo : Questo.Tratti) {
        Passa(Singolo.Font.Barrato);
        Testo += Singolo.Testo;
    }
    Passa(false);
    return Testo;
}

qsizetype InColonne(double Cm)
{
    return qRound(Cm * CaratteriPerCm);
}

/// The stop that a tab in this column leads to; none behind the last one of the paragraph.
const Fermo* FermoDopo(qsizetype Colonna, const Paragrafo& Questo)
{
    const qsizetype Sinistra = InColonne(Questo.Spazi.SinistroCm);
    const auto Dopo = std::ranges::find_if(Questo.Fermi, [&](const Fermo& Singolo) {
        return InColonne(Singolo.Cm) - Sinistra > Colonna && InColonne(Singolo.Cm) < ColonneTesto;
    });
    return Dopo == Questo.Fermi.end() ? nullptr : &*Dopo;
}

/// Columns that a tab takes when what follows it stands at the stop as the stop asks.
qsizetype ColonneDiTabulazione(const Fermo& Verso, qsizetype Libere, QStringView Seguente)
{
    const auto Fine =
        std::find_if(Seguente.begin(), Seguente.end(), [](QChar C) { return C == u'\t' || C == u'\n'; });
    const qsizetype Lungo = Fine - Seguente.begin();
    qsizetype Arretra = 0;
    if (Verso.Come == Fermo::Destra)
        Arretra = Lungo;
    else if (Verso.Come == Fermo::Centro)
        Arretra = Lungo / 2;
    else if (Verso.Come == Fermo::Decimale)
        Arretra = Seguente.first(Lungo).contains(u',') ? Seguente.indexOf(u',') : Lungo;
    return std::max<qsizetype>(Libere - Arretra, 1);
}

/// Blanks for tabs, or what fills the way to their stops; without stops they stand so far apart.
QString SenzaTabulazioni(const QString& Testo, const Paragrafo& Questo, qsizetype Distanza)
{
    QString Fatto;
    qsizetype Colonna = 0;
    for (qsizetype i = 0; i < Testo.size(); ++i) {
        if (Testo[i] != u'\t') {
            Fatto += Testo[i];
            Colonna = Testo[i] == u'\n' ? 0 : Colonna + 1;
            continue;
        }
        qsizetype Quante = Distanza - Colonna % Distanza;
        char16_t Riempie = 0;
        if (const Fermo* Verso = FermoDopo(Colonna, Questo)) {
            const qsizetype Libere = InColonne(Verso->Cm) - InColonne(Questo.Spazi.SinistroCm) - Colonna;
            Quante = ColonneDiTabulazione(*Verso, Libere, QStringView(Testo).sliced(i + 1));
            Riempie = Verso->Riempie;
        }
        Fatto += QString(Quante, Riempie == 0 ? QChar(u' ') : QChar(Riempie));
        Colonna += Quante;
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

    const QString Testo = SenzaTabulazioni(ConBarrature(Questo), Questo, Sporge > 0 ? Sporge : Tabulazione);
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

qsizetype Somma(const Larghezze& Tutte, std::size_t Da, std::size_t Quante)
{
    qsizetype Totale = 0;
    for (std::size_t Colonna = Da; Colonna < Da + Quante; ++Colonna)
        Totale += Tutte[Colonna];
    return Totale;
}

/// Widens the last of the columns of a cell until its widest word and a blank fit. Looks at single cells
/// or at spanning ones.
void Allarga(Larghezze& Tutte, const RigaTabella& Riga, bool Unite)
{
    for (std::size_t Colonna = 0; Colonna < Riga.size(); Colonna += ColonneCoperte(Riga, Colonna)) {
        const std::size_t Quante = ColonneCoperte(Riga, Colonna);
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
        for (const RigaTabella& Riga : Questa.Righe)
            Allarga(Tutte, Riga, Unite);
    return Tutte;
}

/// The text of a cell, with what is struck out in its paragraphs.
QString TestoCella(const Cella& Questa)
{
    if (Questa.Paragrafi.empty())
        return Questa.Testo;
    QStringList Testi;
    for (const Paragrafo& Singolo : Questa.Paragrafi)
        Testi += ConBarrature(Singolo);
    return Testi.join(u'\n');
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

void Scrivi(const RigaTabella& Riga, const Larghezze& Tutte, QString& Uscita)
{
    QStringList Righe{QString()};
    qsizetype Da = 0;
    for (std::size_t Colonna = 0; Colonna < Riga.size(); Colonna += ColonneCoperte(Riga, Colonna)) {
        const qsizetype Larga = Somma(Tutte, Colonna, ColonneCoperte(Riga, Colonna));
        const qsizetype Utile = std::max<qsizetype>(Larga - 1, 0);
        Posa(Righe, Avvolgi(TestoCella(Riga[Colonna]), Utile), Riga[Colonna].Allinea, Da, Utile);
        Da += Larga;
    }
    for (const QString& Una : std::as_const(Righe))
        Uscita += Una + u'\n';
}

void Scrivi(const Tabella& Questa, QString& Uscita)
{
    const Larghezze Tutte = LarghezzeDi(Questa);
    for (const RigaTabella& Riga : Questa.Righe)
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
