#include "platform/stesura.h"

#include "platform/stesura_tabella.h"

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

QTextOption Opzioni(Allineamento Come)
{
    QTextOption Sue(AllineamentoQt(Come));
    Sue.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    Sue.setTextDirection(Qt::LeftToRight);
    Sue.setUseDesignMetrics(true);
    Sue.setTabStopDistance(TabulazioneMm * PuntiPerMm);
    return Sue;
}

void Spezza(QTextLayout& Disposto, double Larghezza)
{
    Disposto.beginLayout();
    for (QTextLine Riga = Disposto.createLine(); Riga.isValid(); Riga = Disposto.createLine()) {
        Riga.setLeadingIncluded(true);
        Riga.setLineWidth(Larghezza);
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
        if (Questo.Rtf)
            return;
        const QString Testo = InLinee(Questo.Testo());
        if (Testo.trimmed().isEmpty())
            Bianco(Questo, Testo);
        else
            Righe(Questo, Testo);
        Fatta.Testo += Testo + u'\n';
    }

    void operator()(const Tabella& Questa) { StendiTabella(Fatta, Questa, Area, Font); }

private:
    void Bianco(const Paragrafo& Questo, const QString& Testo)
    {
        const FontMisurato& Suo = Font(Questo.Tratti.empty() ? Questo.Font : Questo.Tratti.front().Font);
        Pezzo Nuovo;
        Nuovo.DiTesto = true;
        Nuovo.Misure = {Suo.Altezza, true, false, 0.0};
        Nuovo.Righe.push_back({-1, 0, QRectF(Area.Sinistra, 0.0, 0.0, Suo.Altezza), Suo.Ascesa,
                               Fatta.Testo.size(), Testo.size()});
        Fatta.Pezzi.push_back(std::move(Nuovo));
    }

    void Righe(const Paragrafo& Questo, const QString& Testo)
    {
        Brano Nuovo;
        Nuovo.Inizio = Fatta.Testo.size();
        Nuovo.X = Area.Sinistra;
        Nuovo.Larghezza = Area.Larghezza;
        Nuovo.Disposto = Disposto(Questo, Testo);
        const int Quale = static_cast<int>(Fatta.Brani.size());
        Fatta.Brani.push_back(std::move(Nuovo));
        const std::vector<RigaStesa> Sue = RigheDi(Fatta.Brani.back(), Quale);
        for (std::size_t i = 0; i < Sue.size(); ++i) {
            Pezzo Uno;
            Uno.DiTesto = true;
            // Two lines at least stand together on either side of a break.
            Uno.Misure = {Sue[i].Dove.height(), false, i > 0 && (i == 1 || i + 1 == Sue.size()), 0.0};
            Uno.Righe.push_back(Sue[i]);
            Uno.Righe.front().Dove.moveTop(0.0);
            Fatta.Pezzi.push_back(std::move(Uno));
        }
    }

    std::unique_ptr<QTextLayout> Disposto(const Paragrafo& Questo, const QString& Testo)
    {
        const FontMisurato& Primo = Font(Questo.Tratti.front().Font);
        const QList<QTextLayout::FormatRange> Altri = Formati(Questo, Font);
        if (Altri.isEmpty())
            return Disponi(Testo, Primo, Questo.Allinea, Area.Larghezza);
        auto Nuovo = std::make_unique<QTextLayout>(Testo, Primo.Font, DispositivoStampa());
        Nuovo->setTextOption(Opzioni(Questo.Allinea));
        Nuovo->setFormats(Altri);
        Spezza(*Nuovo, Area.Larghezza);
        return Nuovo;
    }

    Stesura& Fatta;
    const AreaStampa& Area;
    FontDocumento& Font;
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
    auto Nuovo = std::make_unique<QTextLayout>(Testo, Font.Font, DispositivoStampa());
    Nuovo->setTextOption(Opzioni(Come));
    if (const auto Stretti = StringiBianchi(Testo, Font, Larghezza))
        Nuovo->setFormats({*Stretti});
    Spezza(*Nuovo, Larghezza);
    return Nuovo;
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
