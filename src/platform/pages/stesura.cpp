#include "platform/pages/stesura.h"

#include "platform/pages/stesura_tabella.h"

#include <QTextOption>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr double TabulazioneMm = 12.5;

Qt::Alignment AllineamentoQt(Allineamento Come)
{
    switch (Come) {
    case Allineamento::Centro:
        return Qt::AlignHCenter;
    case Allineamento::Destra:
        return Qt::AlignRight | Qt::AlignAbsolute;
    case Allineamento::Giustificato:
        return Qt::AlignJustify;
    case Allineamento::AltoSinistra:
    case Allineamento::Sinistra:
        break;
    }
    return Qt::AlignLeft | Qt::AlignAbsolute;
}

QTextOption Opzioni(Allineamento Come, double Tabulazione)
{
    QTextOption Sue(AllineamentoQt(Come));
    Sue.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    Sue.setTextDirection(Qt::LeftToRight);
    Sue.setUseDesignMetrics(true);
    Sue.setTabStopDistance(Tabulazione);
    return Sue;
}

/// Where the lines of a paragraph stand, in dots.
struct Posizione
{
    double X = 0.0;          ///< of the line that stands farthest to the left, on the sheet
    double Larghezza = 0.0;  ///< from there to the right edge
    double Prima = 0.0;      ///< from X to the first line
    double Altre = 0.0;      ///< from X to the others
    double Sopra = 0.0;
    double Sotto = 0.0;
};

Posizione PosizioneDi(const Rientri& Suoi, const AreaStampa& Area)
{
    constexpr double MmPerCm = 10.0;
    constexpr double MinimoMm = 20.0;
    constexpr double PuntiPerPuntoTipografico = PuntiPerPollice / 72.0;
    const auto Lungo = [&](double Cm, double Concesso) {
        return std::clamp(Cm * MmPerCm * PuntiPerMm, 0.0, std::max(Concesso, 0.0));
    };
    const double Concesso = Area.Larghezza - MinimoMm * PuntiPerMm;
    const double Altre = Lungo(Suoi.SinistroCm, Concesso);
    const double Prima = Lungo(Suoi.SinistroCm + Suoi.PrimaRigaCm, Concesso);
    const double Bordo = std::min(Prima, Altre);
    const double Destro = Lungo(Suoi.DestroCm, Concesso - std::max(Prima, Altre));
    return {Area.Sinistra + Bordo,
            Area.Larghezza - Bordo - Destro,
            Prima - Bordo,
            Altre - Bordo,
            Suoi.SopraPunti * PuntiPerPuntoTipografico,
            Suoi.SottoPunti * PuntiPerPuntoTipografico};
}

void Spezza(QTextLayout& Disposto, const Posizione& Dove)
{
    Disposto.beginLayout();
    double Rientro = Dove.Prima;
    for (QTextLine Riga = Disposto.createLine(); Riga.isValid(); Riga = Disposto.createLine()) {
        Riga.setLeadingIncluded(true);
        Riga.setPosition(QPointF(Rientro, 0.0));
        Riga.setLineWidth(Dove.Larghezza - Rientro);
        Rientro = Dove.Altre;
    }
    Disposto.endLayout();
}

qsizetype BianchiInTesta(QStringView Testo)
{
    return std::find_if(Testo.begin(), Testo.end(), [](QChar C) { return C != u' '; }) - Testo.begin();
}

/// Leading blanks push a number or a signature to the right. Where its text would be broken they give way,
/// down to a quarter of the line: less is a paragraph's indent and stays.
std::optional<QTextLayout::FormatRange> StringiBianchi(const QString& Testo, const FontMisurato& Font,
                                                       double Larghezza)
{
    constexpr double QuotaRientro = 0.25;
    const qsizetype Quanti = BianchiInTesta(Testo);
    const double Larghi = static_cast<double>(Quanti) * Font.Bianco;
    const double Minimo = std::min(Larghi, Larghezza * QuotaRientro);
    const QStringView Prima = QStringView(Testo).sliced(Quanti).split(QChar::LineSeparator).first();
    const double Resto = Larghezza - Font.Larghezza(Prima);
    if (Quanti < 2 || Larghi <= std::max(Resto, Minimo))
        return std::nullopt;

    const double Restano = std::clamp(Resto, Minimo, Larghi);
    QFont Stretto = Font.Font;
    // Qt reckons in sixty-fourths, of the percentage and of each blank: a little less than there is room for.
    const double Scarto = 1.0 + static_cast<double>(Quanti) / 32.0;
    Stretto.setLetterSpacing(QFont::PercentageSpacing, 100.0 * std::max(Restano - Scarto, 0.0) / Larghi);
    QTextLayout::FormatRange Tratto;
    Tratto.start = 0;
    Tratto.length = static_cast<int>(Quanti);
    Tratto.format.setFont(Stretto);
    return Tratto;
}

/// Distance of tab stops as Qt takes it for a text that has any. It multiplies it by what the layout's dots
/// are to the screen's, which is found out by a tab; without one it does not matter.
double Tabulazione(const QString& Testo, const FontMisurato& Font, const Posizione& Dove)
{
    constexpr double Provata = 1000.0;
    constexpr double Larga = 200.0 * Provata;  // whatever the screen, the stop stands on the line
    const double Voluta = Dove.Altre > 0.0 ? Dove.Altre : TabulazioneMm * PuntiPerMm;
    if (!Testo.contains(u'\t'))
        return Voluta;
    QTextLayout Prova(u"\t"_s, Font.Font, DispositivoStampa());
    Prova.setTextOption(Opzioni(Allineamento::Sinistra, Provata));
    Spezza(Prova, {0.0, Larga});
    return Voluta * Provata / std::max(Prova.lineAt(0).cursorToX(1), 1.0);
}

/// An amount and its sign of currency stand on one line. The text stream keeps its plain blank.
QString ConValutaUnita(QString Testo)
{
    for (qsizetype Segno = Testo.indexOf(u'€'); Segno >= 0; Segno = Testo.indexOf(u'€', Segno + 1))
        if (Segno > 1 && Testo[Segno - 1] == u' ' && Testo[Segno - 2].isDigit())
            Testo[Segno - 1] = QChar::Nbsp;
    return Testo;
}

/// @param Formati of runs in other fonts
std::unique_ptr<QTextLayout> Disponi(const QString& Testo, const FontMisurato& Font, Allineamento Come,
                                     const Posizione& Dove,
                                     const QList<QTextLayout::FormatRange>& Formati = {})
{
    auto Nuovo = std::make_unique<QTextLayout>(ConValutaUnita(Testo), Font.Font, DispositivoStampa());
    Nuovo->setTextOption(Opzioni(Come, Tabulazione(Testo, Font, Dove)));
    if (!Formati.isEmpty())
        Nuovo->setFormats(Formati);
    else if (const auto Stretti = StringiBianchi(Testo, Font, Dove.Larghezza - Dove.Prima))
        Nuovo->setFormats({*Stretti});
    Spezza(*Nuovo, Dove);
    return Nuovo;
}

QString InLinee(QString Testo)
{
    return Testo.replace(u'\n', QChar(QChar::LineSeparator));
}

/// Fonts of the runs beyond the first one's; empty while the paragraph has one font.
QList<QTextLayout::FormatRange> Formati(const Paragrafo& Questo, FontDocumento& Font)
{
    QList<QTextLayout::FormatRange> Tutti;
    int Inizio = 0;
    for (const Tratto& Uno : Questo.Tratti) {
        const int Lungo = static_cast<int>(Uno.Testo.size());
        if (!(Uno.Font == Questo.Tratti.front().Font)) {
            QTextLayout::FormatRange Sua{Inizio, Lungo, {}};
            Sua.format.setFont(Font(Uno.Font).Font);
            Tutti.append(Sua);
        }
        Inizio += Lungo;
    }
    return Tutti;
}

/// Writes the paragraphs of a document below each other.
class Scrivano
{
public:
    Scrivano(Stesura& Dove, const AreaStampa& SuoArea, FontDocumento& Tutti)
        : Fatta(Dove), Area(SuoArea), Font(Tutti)
    {}

    void operator()(const Paragrafo& Questo)
    {
        const std::size_t Primo = Fatta.Pezzi.size();
        const QString Testo = InLinee(Questo.Testo());
        if (Testo.trimmed().isEmpty())
            Bianco(Questo, Testo);
        else
            Righe(Questo, Testo);
        Unisci(Primo);
        Fatta.Testo += Testo + u'\n';
        Trattenuto = Questo.ConSeguente ? Fatta.Pezzi.size() : 0;
    }

    void operator()(const Tabella& Questa)
    {
        const std::size_t Primo = Fatta.Pezzi.size();
        StendiTabella(Fatta, Questa, Area, Font);
        Unisci(Primo);
        Trattenuto = Questa.ConSeguente ? Fatta.Pezzi.size() : 0;
    }

private:
    /// What begins with this piece stands on the page of the block above that asks for it.
    void Unisci(std::size_t Primo)
    {
        if (Trattenuto > 0 && Trattenuto == Primo && Primo < Fatta.Pezzi.size())
            Fatta.Pezzi[Primo].Misure.Unita = true;
    }

    void Bianco(const Paragrafo& Questo, const QString& Testo)
    {
        const FontMisurato& Suo = Font(Questo.Tratti.empty() ? Questo.Font : Questo.Tratti.front().Font);
        Pezzo Nuovo;
        Nuovo.DiTesto = true;
        const Posizione Dove = PosizioneDi(Questo.Spazi, Area);
        Nuovo.Misure = {Dove.Sopra + Suo.Altezza + Dove.Sotto, true, false, 0.0, Questo.NuovaPagina};
        Nuovo.Righe.push_back({-1, 0, QRectF(Area.Sinistra, Dove.Sopra, 0.0, Suo.Altezza), Suo.Ascesa,
                               Fatta.Testo.size(), Testo.size()});
        Fatta.Pezzi.push_back(std::move(Nuovo));
    }

    void Righe(const Paragrafo& Questo, const QString& Testo)
    {
        const Posizione Dove = PosizioneDi(Questo.Spazi, Area);
        Brano Nuovo;
        Nuovo.Inizio = Fatta.Testo.size();
        Nuovo.X = Dove.X;
        Nuovo.Larghezza = Dove.Larghezza;
        Nuovo.Disposto =
            Disponi(Testo, Font(Questo.Tratti.front().Font), Questo.Allinea, Dove, Formati(Questo, Font));
        const int Quale = static_cast<int>(Fatta.Brani.size());
        Fatta.Brani.push_back(std::move(Nuovo));
        const std::vector<RigaStesa> Sue = RigheDi(Fatta.Brani.back(), Quale);
        for (std::size_t i = 0; i < Sue.size(); ++i) {
            Pezzo Uno;
            Uno.DiTesto = true;
            // Two lines at least stand together on either side of a break.
            const bool Unita = i > 0 && (Questo.Intera || i == 1 || i + 1 == Sue.size());
            Uno.Misure = {Sue[i].Dove.height(), false, Unita, 0.0};
            Uno.Righe.push_back(Sue[i]);
            const double Sopra = i == 0 ? Dove.Sopra : 0.0;
            Uno.Misure.Altezza += Sopra + (i + 1 == Sue.size() ? Dove.Sotto : 0.0);
            Uno.Misure.NuovaPagina = i == 0 && Questo.NuovaPagina;
            Uno.Righe.front().Dove.moveTop(Sopra);
            Fatta.Pezzi.push_back(std::move(Uno));
        }
    }

    Stesura& Fatta;
    const AreaStampa& Area;
    FontDocumento& Font;
    std::size_t Trattenuto = 0;  ///< the piece that is to stand with the one above it, 0 none
};

/// The last line of a document, a signature or a date, does not stand alone on a page: it takes the text
/// before it along.
void TrattieniUltima(std::vector<Pezzo>& Pezzi)
{
    const auto Pieno = [](const Pezzo& Uno) { return !Uno.Misure.Bianca; };
    const auto Ultimo = std::find_if(Pezzi.rbegin(), Pezzi.rend(), Pieno);
    if (Ultimo == Pezzi.rend() || !Ultimo->DiTesto)
        return;
    const auto Precedente = std::find_if(std::next(Ultimo), Pezzi.rend(), Pieno);
    if (Precedente == Pezzi.rend())
        return;
    for (auto Uno = Ultimo; Uno != Precedente; ++Uno)
        Uno->Misure.Unita = true;
}

}  // namespace

std::unique_ptr<QTextLayout> Disponi(const QString& Testo, const FontMisurato& Font, Allineamento Come,
                                     double Larghezza)
{
    Posizione Dove;
    Dove.Larghezza = Larghezza;
    return Disponi(Testo, Font, Come, Dove);
}

std::vector<RigaStesa> RigheDi(const Brano& Questo, int Quale)
{
    std::vector<RigaStesa> Tutte;
    const int Quante = Questo.Disposto->lineCount();
    Tutte.reserve(static_cast<std::size_t>(Quante));
    double Y = 0.0;
    for (int i = 0; i < Quante; ++i) {
        const QTextLine Riga = Questo.Disposto->lineAt(i);
        QRectF Dove = Riga.naturalTextRect();
        Dove.moveTo(Questo.X + Dove.x(), Y);
        Dove.setHeight(Riga.height());
        Tutte.push_back({Quale, i, Dove, Riga.ascent(), Questo.Inizio + Riga.textStart(), Riga.textLength()});
        Y += Riga.height();
    }
    return Tutte;
}

std::vector<Striscia> Stesura::Strisce() const
{
    std::vector<Striscia> Tutte;
    Tutte.reserve(Pezzi.size());
    for (const Pezzo& Uno : Pezzi)
        Tutte.push_back(Uno.Misure);
    return Tutte;
}

Stesura Stendi(const Documento& Doc, const AreaStampa& Area, FontDocumento& Font)
{
    Stesura Fatta;
    Scrivano Scrivi(Fatta, Area, Font);
    for (const BloccoDocumento& Uno : Doc.Blocchi)
        std::visit(Scrivi, Uno);
    TrattieniUltima(Fatta.Pezzi);
    return Fatta;
}
