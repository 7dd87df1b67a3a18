#include "platform/pages/stesura_tabella.h"

#include "platform/document/larghezzecolonne.h"
#include "platform/document/righetabella.h"
#include "platform/pages/stesura_paragrafo.h"

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr double MargineCella = 0.75 * PuntiPerMm;  // on either side of a column
constexpr double MargineBordo = 0.5 * PuntiPerMm;   // above and below the text of a table with lines

// ---- widths

/// A column's margins. Without lines the whole gap stands before a column: amounts end where their column
/// does, and those of one table stand under those of another, whatever columns follow.
struct Margini
{
    double Prima = 0.0;
    double Dopo = 0.0;
};

Margini MarginiDi(std::size_t Colonna, bool Linee)
{
    if (Linee)
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
    if (Questa.Letterale)
        return Tutte;
    const bool Linee = ConLinee(Questa);
    for (const RigaTabella& Riga : Questa.Righe)
        for (std::size_t Colonna = 0; Colonna < Riga.size(); ++Colonna)
            if (Riga[Colonna].Unione == 1)
                Tutte[Colonna] = std::max(Tutte[Colonna], LarghezzaNecessaria(Riga[Colonna], Font));
    for (std::size_t Colonna = 0; Colonna < Tutte.size(); ++Colonna) {
        const Margini Suoi = MarginiDi(Colonna, Linee);
        if (Tutte[Colonna] > 0.0)
            Tutte[Colonna] += Suoi.Prima + Suoi.Dopo + 1.0;
    }
    return Tutte;
}

std::vector<double> Larghezze(const Tabella& Questa, const AreaStampa& Area, FontDocumento& Font)
{
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
    for (const RigaStesa& Stesa : Riga.Righe) {
        const auto Quale = static_cast<std::size_t>(Stesa.NellaCella);
        if (Strisce.size() <= Quale)
            Strisce.resize(Quale + 1);
        Pezzo& Striscia = Strisce[Quale];
        RigaStesa Spostata = Stesa;
        Spostata.Dove.moveTop(0.0);
        Striscia.Misure.Altezza = std::max(Striscia.Misure.Altezza, Stesa.Dove.height());
        Striscia.Righe.push_back(std::move(Spostata));
    }
    return Strisce;
}

/// A row of rules takes less height than one of text, and its rules stand halfway between the figures above
/// and those below: nearer to the row above, since the rule hangs at the foot of its line of text. They are
/// drawn: as text they would join the figures of the row above for whoever reads the page by its letters.
void AlzaFiletti(Pezzo& Riga, const RigaTabella& Celle, FontDocumento& Font)
{
    constexpr double QuotaFiletto = 0.4;
    if (std::ranges::any_of(Riga.Righe, [](const RigaStesa& Stesa) { return Stesa.NellaCella > 0; }))
        return;  // a column too narrow for its rule: it has several lines
    const FontMisurato& Primo = Font(std::ranges::find_if(Celle, CellaFiletto)->Font);
    Riga.Misure.Altezza *= QuotaRigaFiletti;
    const double Mezzo = Riga.Misure.Altezza * QuotaFiletto;
    for (RigaStesa& Stesa : Riga.Righe) {
        Stesa.Scarto = Mezzo - Stesa.Ascesa - Primo.Trattino;
        Stesa.Dove.setTop(0.0);
        Stesa.Dove.setHeight(Riga.Misure.Altezza);
        Stesa.Muta = true;
        Stesa.Pieni = {
            QRectF(0.0, Mezzo - Primo.SpessoreTrattino / 2.0, Stesa.Dove.width(), Primo.SpessoreTrattino)};
    }
}

// ---- the table

class StenditoreTabella
{
public:
    StenditoreTabella(Stesura& Dove, const Tabella& Quale, const AreaStampa& Spazio, FontDocumento& Tutti);

    void Stendi();

private:
    void StendiRiga(std::size_t Quale);
    void Accoda(Pezzo Nuovo, const RigaTabella& Riga);
    void AccodaStrisce(const Pezzo& Riga);
    [[nodiscard]] double AltezzaTitoli() const;
    [[nodiscard]] bool RipeteTitoli() const;
    void TieniIntera();
    void TrattieniTitolo();
    [[nodiscard]] double AltezzaMinima(const RigaTabella& Riga) const;
    [[nodiscard]] Pezzo RigaVuota(const RigaTabella& Riga) const;
    [[nodiscard]] Pezzo RigaPiena(const RigaTabella& Riga);
    [[nodiscard]] AreaStampa AreaDi(const RigaTabella& Riga, std::size_t Colonna) const;
    void StendiCella(Pezzo& Nuovo, const RigaTabella& Riga, std::size_t Colonna, double Ascesa);
    void StendiParagrafi(Pezzo& Nuovo, const std::vector<Paragrafo>& Paragrafi, const AreaStampa& Spazio);
    [[nodiscard]] std::vector<QLineF> Linee(const RigaTabella& Riga, double Altezza) const;

    Stesura& Fatta;
    const Tabella& Questa;
    const AreaStampa& Area;
    FontDocumento& Font;
    std::vector<double> Bordi;  ///< x of the edges of the columns, one more than these
    std::size_t Primo = 0;      ///< first piece of the table
    int Titoli = -1;
    bool Lineata = false;  ///< some of its cells are drawn
};

StenditoreTabella::StenditoreTabella(Stesura& Dove, const Tabella& Quale, const AreaStampa& Spazio,
                                     FontDocumento& Tutti)
    : Fatta(Dove), Questa(Quale), Area(Spazio), Font(Tutti), Lineata(ConLinee(Quale))
{
    Bordi.push_back(Area.Sinistra);
    for (const double Larga : Larghezze(Questa, Area, Font))
        Bordi.push_back(Bordi.back() + Larga);
}

void StenditoreTabella::Stendi()
{
    const qsizetype Da = Fatta.Testo.size();
    Primo = Fatta.Pezzi.size();
    Titoli = RigheDiTitoli(Questa) > 0 ? static_cast<int>(Primo) : -1;
    for (std::size_t Riga = 0; Riga < Questa.Righe.size(); ++Riga)
        StendiRiga(Riga);
    Fatta.Tabelle.push_back({Da, Fatta.Testo.size()});
    TieniIntera();
    if (Fatta.Pezzi.size() > Primo)
        TrattieniTitolo();
}

void StenditoreTabella::StendiRiga(std::size_t Quale)
{
    const RigaTabella& Riga = Questa.Righe[Quale];
    Pezzo Nuovo = RigaBianca(Riga) && !Questa.Letterale ? RigaVuota(Riga) : RigaPiena(Riga);
    if (RigaDiFiletti(Questa, Quale))
        AlzaFiletti(Nuovo, Riga, Font);
    Nuovo.Misure.Unita = UnitaAllaPrecedente(Questa, Quale, false);
    Nuovo.Misure.Altezza += Lineata ? 2.0 * MargineBordo : 0.0;
    if (Quale > 2 && RipeteTitoli()) {
        Nuovo.Titoli = Titoli;
        Nuovo.Misure.TitoliSopra = AltezzaTitoli();
    }
    Fatta.Testo += u'\n';
    if (Nuovo.Misure.Altezza + AltezzaTitoli() > Area.Altezza - Area.Scesa && !Nuovo.Misure.Bianca)
        AccodaStrisce(Nuovo);
    else
        Accoda(std::move(Nuovo), Riga);
}

void StenditoreTabella::Accoda(Pezzo Nuovo, const RigaTabella& Riga)
{
    if (Lineata) {
        for (RigaStesa& Stesa : Nuovo.Righe)
            Stesa.Dove.translate(0.0, MargineBordo);
        Nuovo.Linee = Linee(Riga, Nuovo.Misure.Altezza);
    }
    Fatta.Pezzi.push_back(std::move(Nuovo));
}

void StenditoreTabella::AccodaStrisce(const Pezzo& Riga)
{
    for (Pezzo& Striscia : InStrisce(Riga)) {
        Striscia.Titoli = Riga.Titoli;
        Striscia.Misure.TitoliSopra = Riga.Misure.TitoliSopra;
        Fatta.Pezzi.push_back(std::move(Striscia));
    }
}

double StenditoreTabella::AltezzaTitoli() const
{
    return Titoli < 0 || Fatta.Pezzi.size() < Primo + 2
               ? 0.0
               : Fatta.Pezzi[Primo].Misure.Altezza + Fatta.Pezzi[Primo + 1].Misure.Altezza;
}

/// Headings that would leave little room for what they head are not repeated.
bool StenditoreTabella::RipeteTitoli() const
{
    constexpr double QuotaTitoli = 0.25;
    return Titoli >= 0 && AltezzaTitoli() <= Area.Altezza * QuotaTitoli;
}

/// The office's head, the summary and a few payments are read in one piece.
void StenditoreTabella::TieniIntera()
{
    double Altezza = 0.0;
    for (std::size_t i = Primo; i < Fatta.Pezzi.size(); ++i)
        Altezza += Fatta.Pezzi[i].Misure.Altezza;
    if (!PuoStareIntera(Questa) || Altezza > Area.Altezza * QuotaTabellaIntera)
        return;
    for (std::size_t i = Primo + 1; i < Fatta.Pezzi.size(); ++i)
        Fatta.Pezzi[i].Misure.Unita = true;
}

/// The lines right above a table, the title of its section, go with it.
void StenditoreTabella::TrattieniTitolo()
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

double StenditoreTabella::AltezzaMinima(const RigaTabella& Riga) const
{
    double Altezza = 0.0;
    for (const Cella& Singola : Riga)
        Altezza = std::max(Altezza, Font(Singola.Font).Altezza);
    return Altezza;
}

Pezzo StenditoreTabella::RigaVuota(const RigaTabella& Riga) const
{
    const double Altezza = AltezzaMinima(Riga) * Font.Stretta.Bianche;
    RigaStesa Bianca;
    Bianca.Dove = QRectF(Area.Sinistra, 0.0, 0.0, Altezza);
    Bianca.Ascesa = Riga.empty() ? 0.0 : Font(Riga.front().Font).Ascesa;
    Bianca.Inizio = Fatta.Testo.size();
    Pezzo Nuovo;
    Nuovo.Misure = {Altezza, true, false, 0.0};
    Nuovo.Righe.push_back(std::move(Bianca));
    return Nuovo;
}

/// Cells of unlike sizes stand on one baseline.
Pezzo StenditoreTabella::RigaPiena(const RigaTabella& Riga)
{
    Pezzo Nuovo;
    Nuovo.Misure.Altezza = Questa.Letterale ? 0.0 : AltezzaMinima(Riga) * Font.Stretta.Interlinea;
    double Ascesa = 0.0;
    for (const Cella& Singola : Riga)
        if (!CellaBianca(Singola))
            Ascesa = std::max(Ascesa, Font(Singola.Font).Ascesa);
    for (std::size_t Colonna = 0; Colonna < Riga.size(); Colonna += ColonneCoperte(Riga, Colonna)) {
        if (Colonna > 0)
            Fatta.Testo += u'\t';
        if (Riga[Colonna].Paragrafi.empty())
            StendiCella(Nuovo, Riga, Colonna, Ascesa);
        else
            StendiParagrafi(Nuovo, Riga[Colonna].Paragrafi, AreaDi(Riga, Colonna));
    }
    return Nuovo;
}

/// Where the text of a cell stands; it has no height of its own.
AreaStampa StenditoreTabella::AreaDi(const RigaTabella& Riga, std::size_t Colonna) const
{
    const Margini Spazi = MarginiDi(Colonna, Lineata);
    const double X = Bordi[Colonna] + Spazi.Prima;
    const double Fine = Bordi[Colonna + ColonneCoperte(Riga, Colonna)] - Spazi.Dopo;
    return {X, 0.0, std::max(Fine - X, Font(Riga[Colonna].Font).Bianco), 0.0};
}

void StenditoreTabella::StendiCella(Pezzo& Nuovo, const RigaTabella& Riga, std::size_t Colonna, double Ascesa)
{
    const Cella& Singola = Riga[Colonna];
    // A tab would divide cells in the text stream, and none of the documents has a use for it in a cell.
    const QString Testo = InLinee(Singola.Testo).replace(u'\t', u' ');
    if (!CellaBianca(Singola)) {
        const AreaStampa Spazio = AreaDi(Riga, Colonna);
        const FontMisurato& Misurato = Font(Singola.Font);
        std::vector<Brano> Brani = BraniDi(Testo, Singola.Font, Font, Singola.Allinea, Spazio.Sinistra,
                                           Spazio.Larghezza, Fatta.Testo.size());
        int Ordine = 0;
        std::vector<RigaStesa> Linee = RigheDi(Brani, static_cast<int>(Fatta.Brani.size()));
        StringiRighe(Linee, Font.Stretta.Interlinea);
        for (RigaStesa& Linea : Linee) {
            Linea.Dove.translate(0.0, Ascesa - Misurato.Ascesa);
            Linea.NellaCella = Ordine++;
            Nuovo.Misure.Altezza = std::max(Nuovo.Misure.Altezza, Linea.Dove.bottom());
            Nuovo.Righe.push_back(std::move(Linea));
        }
        std::ranges::move(Brani, std::back_inserter(Fatta.Brani));
    }
    Fatta.Testo += Testo;
}

/// Paragraphs of a cell below each other, divided by line breaks in the text stream.
void StenditoreTabella::StendiParagrafi(Pezzo& Nuovo, const std::vector<Paragrafo>& Paragrafi,
                                        const AreaStampa& Spazio)
{
    double Y = 0.0;
    int Ordine = 0;
    for (const Paragrafo& Singolo : Paragrafi) {
        if (&Singolo != &Paragrafi.front())
            Fatta.Testo += QChar(QChar::LineSeparator);
        const QString Testo = InLinee(Singolo.Testo());
        ParagrafoSteso Steso = StendiParagrafo(Singolo, Testo, Spazio, Font, Fatta.Testo.size(),
                                               static_cast<int>(Fatta.Brani.size()));
        std::ranges::move(Steso.Brani, std::back_inserter(Fatta.Brani));
        for (RigaInStriscia& Linea : Steso.Righe) {
            Linea.Riga.Dove.translate(0.0, Y);
            Linea.Riga.NellaCella = Ordine++;
            Y += Linea.Altezza;
            Nuovo.Righe.push_back(std::move(Linea.Riga));
        }
        Fatta.Testo += QString(Testo).replace(u'\t', u' ');  // a tab divides cells
    }
    Nuovo.Misure.Altezza = std::max(Nuovo.Misure.Altezza, Y);
}

std::vector<QLineF> StenditoreTabella::Linee(const RigaTabella& Riga, double Altezza) const
{
    std::vector<QLineF> Tutte;
    for (std::size_t Colonna = 0; Colonna < Riga.size(); Colonna += ColonneCoperte(Riga, Colonna)) {
        const int Lati = LineeDi(Questa, Riga[Colonna]);
        const double Da = Bordi[Colonna];
        const double A = Bordi[Colonna + ColonneCoperte(Riga, Colonna)];
        const auto Traccia = [&](Cella::Lato Lato, const QLineF& Linea) {
            if (Lati & Lato)
                Tutte.push_back(Linea);
        };
        Traccia(Cella::Alto, {Da, 0.0, A, 0.0});
        Traccia(Cella::Basso, {Da, Altezza, A, Altezza});
        Traccia(Cella::Sinistro, {Da, 0.0, Da, Altezza});
        Traccia(Cella::Destro, {A, 0.0, A, Altezza});
    }
    return Tutte;
}

}  // namespace

void StendiTabella(Stesura& Fatta, const Tabella& Questa, const AreaStampa& Area, FontDocumento& Font)
{
    StenditoreTabella(Fatta, Questa, Area, Font).Stendi();
}
