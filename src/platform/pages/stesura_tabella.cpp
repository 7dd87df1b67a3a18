#include "platform/pages/stesura_tabella.h"

#include "platform/document/larghezzecolonne.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using RigaTabella = std::vector<Cella>;

constexpr double MargineCella = 0.75 * PuntiPerMm;  // on either side of a column
constexpr double MargineBordo = 0.5 * PuntiPerMm;   // above and below the text of a table with lines
constexpr double QuotaIntera = 0.5;  // of a page: a table without headings is kept whole up to it

// ---- what a row is

bool Vuota(const Cella& Questa)
{
    return std::all_of(Questa.Testo.begin(), Questa.Testo.end(), [](QChar C) { return C.isSpace(); });
}

bool Vuota(const RigaTabella& Riga)
{
    return std::all_of(Riga.begin(), Riga.end(), [](const Cella& Una) { return Vuota(Una); });
}

bool Filetto(const Cella& Questa)
{
    return !Questa.Testo.isEmpty() &&
           std::all_of(Questa.Testo.begin(), Questa.Testo.end(), [](QChar C) { return C == u'_'; });
}

/// Nothing but rules: the figures below belong to those above.
bool Filetti(const RigaTabella& Riga)
{
    return !Vuota(Riga) &&
           std::all_of(Riga.begin(), Riga.end(), [](const Cella& Una) { return Vuota(Una) || Filetto(Una); });
}

/// The shape that the lists of fees, expenses and payments have: headings, a blank row, lines.
bool ConTitoli(const Tabella& Questa)
{
    return Questa.Righe.size() > 2 && !Vuota(Questa.Righe[0]) && Vuota(Questa.Righe[1]) &&
           !Vuota(Questa.Righe[2]);
}

std::size_t Coperte(const RigaTabella& Riga, std::size_t Colonna)
{
    return std::clamp<std::size_t>(static_cast<std::size_t>(std::max(Riga[Colonna].Unione, 1)), 1,
                                   Riga.size() - Colonna);
}

// ---- widths

/// A column's margins. Without lines the whole gap stands before a column: amounts end where their column
/// does, and those of one table stand under those of another, whatever columns follow.
struct Margini
{
    double Prima = 0.0;
    double Dopo = 0.0;
};

Margini MarginiDi(std::size_t Colonna, int Bordo)
{
    if (Bordo != 0)
        return {MargineCella, MargineCella};
    return {Colonna == 0 ? 0.0 : 2.0 * MargineCella, 0.0};
}

/// Columns of amounts stand to the right or in the middle.
bool DiImporti(const Cella& Questa)
{
    return Questa.Allinea == Allineamento::Destra || Questa.Allinea == Allineamento::Centro;
}

/// A number as a note may hold one; what is longer is a code, and may be broken like a word.
bool Numero(QStringView Parola)
{
    constexpr qsizetype MassimoSegni = 18;  // twelve digits with their points and two decimals
    return Parola.size() <= MassimoSegni && std::all_of(Parola.begin(), Parola.end(), [](QChar C) {
               return C.isDigit() || C == u'.' || C == u',';
           });
}

/// A broken number would be read wrong: columns of amounts ask for room for all that they hold, the others
/// for their numbers. Words may be broken.
double LarghezzaNecessaria(const Cella& Questa, FontDocumento& Font)
{
    const FontMisurato& Suo = Font(Questa.Font);
    const bool Tutte = DiImporti(Questa);
    double Massima = 0.0;
    qsizetype Inizio = 0;
    for (qsizetype i = 0; i <= Questa.Testo.size(); ++i) {
        if (i < Questa.Testo.size() && !Questa.Testo[i].isSpace())
            continue;
        const QStringView Parola = QStringView(Questa.Testo).sliced(Inizio, i - Inizio);
        if (Tutte || Numero(Parola))
            Massima = std::max(Massima, Suo.Larghezza(Parola));
        Inizio = i + 1;
    }
    return Massima;
}

std::vector<double> Necessarie(const Tabella& Questa, FontDocumento& Font)
{
    std::vector<double> Tutte(Questa.LarghezzeCm.size());
    for (const RigaTabella& Riga : Questa.Righe)
        for (std::size_t Colonna = 0; Colonna < Riga.size(); ++Colonna)
            if (Riga[Colonna].Unione == 1)
                Tutte[Colonna] = std::max(Tutte[Colonna], LarghezzaNecessaria(Riga[Colonna], Font));
    for (std::size_t Colonna = 0; Colonna < Tutte.size(); ++Colonna) {
        const Margini Suoi = MarginiDi(Colonna, Questa.Bordo);
        if (Tutte[Colonna] > 0.0)
            Tutte[Colonna] += Suoi.Prima + Suoi.Dopo + 1.0;
    }
    return Tutte;
}

std::vector<double> Larghezze(const Tabella& Questa, const AreaStampa& Area, FontDocumento& Font)
{
    constexpr double MmPerCm = 10.0;
    std::vector<double> Chieste;
    Chieste.reserve(Questa.LarghezzeCm.size());
    for (const double Cm : Questa.LarghezzeCm)
        Chieste.push_back(Cm * MmPerCm * PuntiPerMm);
    return LarghezzeColonne(Chieste, Necessarie(Questa, Font), Area.Larghezza);
}

// ---- rows

/// Cuts a row that no page holds into one strip for each line; the cells go on side by side.
std::vector<Pezzo> InStrisce(const Pezzo& Riga)
{
    std::vector<Pezzo> Strisce;
    for (const RigaStesa& Una : Riga.Righe) {
        const auto Quale = static_cast<std::size_t>(Una.Riga);
        if (Strisce.size() <= Quale)
            Strisce.resize(Quale + 1);
        Pezzo& Sua = Strisce[Quale];
        RigaStesa Spostata = Una;
        Spostata.Dove.moveTop(0.0);
        Sua.Misure.Altezza = std::max(Sua.Misure.Altezza, Una.Dove.height());
        Sua.Righe.push_back(Spostata);
    }
    return Strisce;
}

/// A row of rules takes less height than one of text, and its rules stand halfway between the figures above
/// and those below: nearer to the row above, since the rule hangs at the foot of its line of text.
void AlzaFiletti(Pezzo& Riga, const RigaTabella& Celle, FontDocumento& Font)
{
    constexpr double QuotaAltezza = 0.6;
    constexpr double QuotaFiletto = 0.4;
    if (std::any_of(Riga.Righe.begin(), Riga.Righe.end(), [](const RigaStesa& Una) { return Una.Riga > 0; }))
        return;  // a column too narrow for its rule: it has several lines
    const auto Prima =
        std::find_if(Celle.begin(), Celle.end(), [](const Cella& Una) { return Filetto(Una); });
    const double Trattino = Font(Prima->Font).Trattino;
    Riga.Misure.Altezza *= QuotaAltezza;
    for (RigaStesa& Una : Riga.Righe) {
        Una.Scarto = Riga.Misure.Altezza * QuotaFiletto - Una.Ascesa - Trattino;
        Una.Dove.setTop(0.0);
        Una.Dove.setHeight(Riga.Misure.Altezza);
    }
}

class StenditoreTabella
{
public:
    StenditoreTabella(Stesura& Dove, const Tabella& Quale, const AreaStampa& SuoArea, FontDocumento& Tutti)
        : Fatta(Dove), Questa(Quale), Area(SuoArea), Font(Tutti), Larghe(Larghezze(Quale, SuoArea, Tutti))
    {
        Bordi.reserve(Larghe.size() + 1);
        Bordi.push_back(Area.Sinistra);
        for (const double Larga : Larghe)
            Bordi.push_back(Bordi.back() + Larga);
    }

    void Stendi()
    {
        const qsizetype Da = Fatta.Testo.size();
        Primo = Fatta.Pezzi.size();
        Titoli = ConTitoli(Questa) ? static_cast<int>(Primo) : -1;
        for (std::size_t Riga = 0; Riga < Questa.Righe.size(); ++Riga)
            StendiRiga(Riga);
        Fatta.Tabelle.push_back({Da, Fatta.Testo.size()});
        TieniIntera();
        if (Fatta.Pezzi.size() > Primo)
            TrattieniTitolo();
    }

private:
    void StendiRiga(std::size_t Quale)
    {
        const RigaTabella& Riga = Questa.Righe[Quale];
        Pezzo Nuovo = Vuota(Riga) ? RigaBianca(Riga) : RigaPiena(Riga);
        if (Filetti(Riga))
            AlzaFiletti(Nuovo, Riga, Font);
        Nuovo.Misure.Unita = Unita(Quale);
        Nuovo.Misure.Altezza += Questa.Bordo > 0 ? 2.0 * MargineBordo : 0.0;
        if (Quale > 2 && RipeteTitoli()) {
            Nuovo.Titoli = Titoli;
            Nuovo.Misure.TitoliSopra = AltezzaTitoli();
        }
        Fatta.Testo += u'\n';
        if (Nuovo.Misure.Altezza + AltezzaTitoli() > Area.Altezza && !Nuovo.Misure.Bianca)
            AccodaStrisce(Nuovo);
        else
            Accoda(std::move(Nuovo), Riga);
    }

    void Accoda(Pezzo Nuovo, const RigaTabella& Riga)
    {
        if (Questa.Bordo > 0) {
            for (RigaStesa& Una : Nuovo.Righe)
                Una.Dove.translate(0.0, MargineBordo);
            Nuovo.Linee = Linee(Riga, Nuovo.Misure.Altezza);
        }
        Fatta.Pezzi.push_back(std::move(Nuovo));
    }

    void AccodaStrisce(const Pezzo& Riga)
    {
        for (Pezzo& Una : InStrisce(Riga)) {
            Una.Titoli = Riga.Titoli;
            Una.Misure.TitoliSopra = Riga.Misure.TitoliSopra;
            Fatta.Pezzi.push_back(std::move(Una));
        }
    }

    /// The headings do not end a page, nor does the first line of a table nor the last one begin one, be it
    /// set off as a sum by a blank row. A rule stands between the row above and the row below.
    [[nodiscard]] bool Unita(std::size_t Quale) const
    {
        if (Quale == 0)
            return false;
        if (Titoli >= 0 && Quale <= 2)
            return true;
        const std::size_t Sotto = Questa.Righe.size() - Quale - 1;
        const bool Ultima = Sotto == 0 || (Sotto == 1 && Vuota(Questa.Righe[Quale]));
        const bool Estrema = Titoli < 0 && (Quale == 1 || Ultima);
        return Estrema || Filetti(Questa.Righe[Quale]) || Filetti(Questa.Righe[Quale - 1]);
    }

    [[nodiscard]] double AltezzaTitoli() const
    {
        return Titoli < 0 || Fatta.Pezzi.size() < Primo + 2
                   ? 0.0
                   : Fatta.Pezzi[Primo].Misure.Altezza + Fatta.Pezzi[Primo + 1].Misure.Altezza;
    }

    /// Headings that would leave little room for what they head are not repeated.
    [[nodiscard]] bool RipeteTitoli() const
    {
        constexpr double QuotaTitoli = 0.25;
        return Titoli >= 0 && AltezzaTitoli() <= Area.Altezza * QuotaTitoli;
    }

    /// The office's head and the summary are read in one piece.
    void TieniIntera()
    {
        double Altezza = 0.0;
        for (std::size_t i = Primo; i < Fatta.Pezzi.size(); ++i)
            Altezza += Fatta.Pezzi[i].Misure.Altezza;
        if (Titoli >= 0 || Altezza > Area.Altezza * QuotaIntera)
            return;
        for (std::size_t i = Primo + 1; i < Fatta.Pezzi.size(); ++i)
            Fatta.Pezzi[i].Misure.Unita = true;
    }

    /// The lines right above a table, the title of its section, go with it.
    void TrattieniTitolo()
    {
        constexpr int MassimoRighe = 3;
        std::size_t Sopra = Primo;
        while (Sopra > 0 && Fatta.Pezzi[Sopra - 1].DiTesto && Fatta.Pezzi[Sopra - 1].Misure.Bianca)
            --Sopra;
        int Righe = 0;
        while (Sopra > 0 && Fatta.Pezzi[Sopra - 1].DiTesto && !Fatta.Pezzi[Sopra - 1].Misure.Bianca &&
               Righe < MassimoRighe) {
            --Sopra;
            ++Righe;
        }
        for (std::size_t i = Sopra + 1; Righe > 0 && i <= Primo; ++i)
            Fatta.Pezzi[i].Misure.Unita = true;
    }

    [[nodiscard]] double AltezzaMinima(const RigaTabella& Riga) const
    {
        double Altezza = 0.0;
        for (const Cella& Una : Riga)
            Altezza = std::max(Altezza, Font(Una.Font).Altezza);
        return Altezza;
    }

    [[nodiscard]] Pezzo RigaBianca(const RigaTabella& Riga) const
    {
        const double Altezza = AltezzaMinima(Riga);
        Pezzo Nuovo;
        Nuovo.Misure = {Altezza, true, false, 0.0};
        const double Ascesa = Riga.empty() ? 0.0 : Font(Riga.front().Font).Ascesa;
        Nuovo.Righe.push_back(
            {-1, 0, QRectF(Area.Sinistra, 0.0, 0.0, Altezza), Ascesa, Fatta.Testo.size(), 0});
        return Nuovo;
    }

    /// Cells of unlike sizes stand on one baseline.
    [[nodiscard]] Pezzo RigaPiena(const RigaTabella& Riga)
    {
        Pezzo Nuovo;
        Nuovo.Misure.Altezza = AltezzaMinima(Riga);
        double Ascesa = 0.0;
        for (const Cella& Una : Riga)
            if (!Vuota(Una))
                Ascesa = std::max(Ascesa, Font(Una.Font).Ascesa);
        for (std::size_t Colonna = 0; Colonna < Riga.size(); Colonna += Coperte(Riga, Colonna)) {
            if (Colonna > 0)
                Fatta.Testo += u'\t';
            StendiCella(Nuovo, Riga, Colonna, Ascesa);
        }
        return Nuovo;
    }

    void StendiCella(Pezzo& Nuovo, const RigaTabella& Riga, std::size_t Colonna, double Ascesa)
    {
        const Cella& Una = Riga[Colonna];
        // A tab would divide cells in the text stream, and none of the documents has a use for it in a cell.
        const QString Testo =
            QString(Una.Testo).replace(u'\n', QChar(QChar::LineSeparator)).replace(u'\t', u' ');
        if (!Vuota(Una)) {
            const std::size_t Fine = Colonna + Coperte(Riga, Colonna);
            const Margini Suoi = MarginiDi(Colonna, Questa.Bordo);
            const FontMisurato& Suo = Font(Una.Font);
            Brano Nuova;
            Nuova.Inizio = Fatta.Testo.size();
            Nuova.X = Bordi[Colonna] + Suoi.Prima;
            Nuova.Larghezza = std::max(Bordi[Fine] - Suoi.Dopo - Nuova.X, Suo.Bianco);
            Nuova.Disposto = Disponi(Testo, Suo, Una.Allinea, Nuova.Larghezza);
            const int Numero = static_cast<int>(Fatta.Brani.size());
            Fatta.Brani.push_back(std::move(Nuova));
            for (RigaStesa& Linea : RigheDi(Fatta.Brani.back(), Numero)) {
                Linea.Dove.translate(0.0, Ascesa - Suo.Ascesa);
                Nuovo.Misure.Altezza = std::max(Nuovo.Misure.Altezza, Linea.Dove.bottom());
                Nuovo.Righe.push_back(Linea);
            }
        }
        Fatta.Testo += Testo;
    }

    [[nodiscard]] std::vector<QLineF> Linee(const RigaTabella& Riga, double Altezza) const
    {
        std::vector<QLineF> Tutte{{Bordi.front(), 0.0, Bordi.back(), 0.0},
                                  {Bordi.front(), Altezza, Bordi.back(), Altezza},
                                  {Bordi.back(), 0.0, Bordi.back(), Altezza}};
        for (std::size_t Colonna = 0; Colonna < Riga.size(); Colonna += Coperte(Riga, Colonna))
            Tutte.emplace_back(Bordi[Colonna], 0.0, Bordi[Colonna], Altezza);
        return Tutte;
    }

    Stesura& Fatta;
    const Tabella& Questa;
    const AreaStampa& Area;
    FontDocumento& Font;
    std::vector<double> Larghe;
    std::vector<double> Bordi;  ///< x of the edges of the columns, one more than these
    std::size_t Primo = 0;      ///< first piece of the table
    int Titoli = -1;
};

}  // namespace

void StendiTabella(Stesura& Fatta, const Tabella& Questa, const AreaStampa& Area, FontDocumento& Font)
{
    StenditoreTabella(Fatta, Questa, Area, Font).Stendi();
}
