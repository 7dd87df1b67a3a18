#include "platform/pages/stesura_paragrafo.h"

#include <QTextCharFormat>
#include <QTextOption>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr double TabulazioneMm = 12.5;
constexpr double DotPerPunto = PuntiPerPollice / 72.0;  // of a point of type

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

/// @param Bianche part that is left of the room above and below
Posizione PosizioneDi(const Rientri& Spazi, const AreaStampa& Area, double Bianche)
{
    constexpr double MinimoMm = 20.0;
    const auto Lungo = [&](double Cm, double Concesso) {
        return std::clamp(Cm * MmPerCm * PuntiPerMm, 0.0, std::max(Concesso, 0.0));
    };
    const double Concesso = Area.Larghezza - MinimoMm * PuntiPerMm;
    const double Altre = Lungo(Spazi.SinistroCm, Concesso);
    const double Prima = Lungo(Spazi.SinistroCm + Spazi.PrimaRigaCm, Concesso);
    const double Bordo = std::min(Prima, Altre);
    const double Destro = Lungo(Spazi.DestroCm, Concesso - std::max(Prima, Altre));
    return {Area.Sinistra + Bordo,
            Area.Larghezza - Bordo - Destro,
            Prima - Bordo,
            Altre - Bordo,
            Spazi.SopraPunti * DotPerPunto * Bianche,
            Spazi.SottoPunti * DotPerPunto * Bianche};
}

/// @param DaCapo the first line of the text is the first one of its paragraph
void Spezza(QTextLayout& Disposto, const Posizione& Dove, bool DaCapo = true)
{
    Disposto.beginLayout();
    double Rientro = DaCapo ? Dove.Prima : Dove.Altre;
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

// ---- tabs

/// Qt multiplies each measure of tabs by what the layout's dots are to the screen's, which is found out by a
/// tab.
double ScalaTabulazioni(const FontMisurato& Font)
{
    constexpr double Provata = 1000.0;
    constexpr double Larga = 200.0 * Provata;  // whatever the screen, the stop stands on the line
    QTextLayout Prova(u"\t"_s, Font.Font, DispositivoStampa());
    Prova.setTextOption(Opzioni(Allineamento::Sinistra, Provata));
    Spezza(Prova, {0.0, Larga});
    return Provata / std::max(Prova.lineAt(0).cursorToX(1), 1.0);
}

QTextOption::TabType TipoDi(Fermo::Verso Come)
{
    switch (Come) {
    case Fermo::Centro:
        return QTextOption::CenterTab;
    case Fermo::Destra:
        return QTextOption::RightTab;
    case Fermo::Decimale:
        return QTextOption::DelimiterTab;
    case Fermo::Sinistra:
        break;
    }
    return QTextOption::LeftTab;
}

/// Tab stops in dots from the left edge of the paragraph's lines, its left indent among them where the first
/// line hangs out of it.
std::vector<Fermo> FermiEntro(const std::vector<Fermo>& Chiesti, const Posizione& Dove,
                              const AreaStampa& Area)
{
    std::vector<Fermo> Tutti;
    for (const Fermo& Chiesto : Chiesti) {
        Fermo Nuovo = Chiesto;
        Nuovo.Cm = std::min(Chiesto.Cm * MmPerCm * PuntiPerMm, Area.Larghezza) - (Dove.X - Area.Sinistra);
        if (Nuovo.Cm > 0.0)
            Tutti.push_back(Nuovo);
    }
    if (!Tutti.empty() && Dove.Altre > 0.0)
        Tutti.insert(std::ranges::lower_bound(Tutti, Dove.Altre, {}, &Fermo::Cm), Fermo{Dove.Altre});
    return Tutti;
}

/// @param Fermi in dots; without any the stops are evenly spaced, or stand at the hanging indent
void ImpostaTabulazioni(QTextOption& Opzioni, const QString& Testo, const FontMisurato& Font,
                        const Posizione& Dove, const std::vector<Fermo>& Fermi)
{
    if (!Testo.contains(u'\t'))
        return;
    const double Scala = ScalaTabulazioni(Font);
    const bool Sporge = Fermi.empty() && Dove.Altre > 0.0;
    Opzioni.setTabStopDistance((Sporge ? Dove.Altre : TabulazioneMm * PuntiPerMm) * Scala);
    QList<QTextOption::Tab> Tutti;
    for (const Fermo& Singolo : Fermi)
        Tutti.append({Singolo.Cm * Scala, TipoDi(Singolo.Come), u','});
    Opzioni.setTabs(Tutti);
}

/// What fills the way to the tab stops of a line, from the corner of its rectangle.
std::vector<QRectF> Riempimenti(const Brano& Questo, const RigaStesa& Stesa, const FontMisurato& Font,
                                const std::vector<Fermo>& Fermi)
{
    constexpr double PassoEm = 0.25;
    constexpr double PuntoEm = 0.08;
    std::vector<QRectF> Tutti;
    const QTextLine Riga = Questo.Disposto->lineAt(Stesa.Riga);
    const QString Testo = Questo.Disposto->text();
    const double Em = Font.Font.pixelSize();
    const double Spostamento = Questo.X - Stesa.Dove.left();
    for (int Posto = Riga.textStart(); Posto < Riga.textStart() + Riga.textLength(); ++Posto) {
        if (Testo[Posto] != u'\t')
            continue;
        const double Da = Riga.cursorToX(Posto);
        const double A = Riga.cursorToX(Posto + 1);
        const auto Fin = std::ranges::find_if(Fermi, [Da](const Fermo& Uno) { return Uno.Cm > Da; });
        if (Fin == Fermi.end() || Fin->Riempie == 0)
            continue;
        if (Fin->Riempie == u'_') {
            Tutti.emplace_back(Da + Spostamento, Stesa.Ascesa + Font.Trattino - Font.SpessoreTrattino / 2.0,
                               A - Da, Font.SpessoreTrattino);
            continue;
        }
        // Dots stand below those of other lines, whatever the text before them.
        const double Passo = PassoEm * Em;
        const double Lato = PuntoEm * Em;
        for (double X = std::ceil(Da / Passo) * Passo; X + Lato < A; X += Passo)
            Tutti.emplace_back(X + Spostamento, Stesa.Ascesa - Lato, Lato, Lato);
    }
    return Tutti;
}

/// An amount and its sign of currency stand on one line. The text stream keeps its plain blank.
QString ConValutaUnita(QString Testo)
{
    for (qsizetype Segno = Testo.indexOf(u'€'); Segno >= 0; Segno = Testo.indexOf(u'€', Segno + 1))
        if (Segno > 1 && Testo[Segno - 1] == u' ' && Testo[Segno - 2].isDigit())
            Testo[Segno - 1] = QChar::Nbsp;
    return Testo;
}

/// How the text of a paragraph is laid out.
struct Veste
{
    const FontMisurato& Font;
    Allineamento Come;
    Posizione Dove;
    QList<QTextLayout::FormatRange> Formati = {};  ///< of runs in other fonts
    std::vector<Fermo> Fermi = {};
};

/// A part of a text, on lines of its own.
std::unique_ptr<QTextLayout> Disponi(const QString& Testo, const Veste& Questa, bool DaCapo = true)
{
    auto Nuovo = std::make_unique<QTextLayout>(ConValutaUnita(Testo), Questa.Font.Font, DispositivoStampa());
    QTextOption Scelte = Opzioni(Questa.Come, TabulazioneMm * PuntiPerMm);
    ImpostaTabulazioni(Scelte, Testo, Questa.Font, Questa.Dove, Questa.Fermi);
    Nuovo->setTextOption(Scelte);
    if (!Questa.Formati.isEmpty())
        Nuovo->setFormats(Questa.Formati);
    else if (DaCapo)
        if (const auto Stretti =
                StringiBianchi(Testo, Questa.Font, Questa.Dove.Larghezza - Questa.Dove.Prima))
            Nuovo->setFormats({*Stretti});
    Spezza(*Nuovo, Questa.Dove, DaCapo);
    return Nuovo;
}

/// The formats of a stretch of the text, by their places in it.
QList<QTextLayout::FormatRange> Ritagliati(const QList<QTextLayout::FormatRange>& Tutti, qsizetype Da,
                                           qsizetype Lungo)
{
    QList<QTextLayout::FormatRange> Dentro;
    for (QTextLayout::FormatRange Tratto : Tutti) {
        const qsizetype Inizio = std::max<qsizetype>(Tratto.start - Da, 0);
        const qsizetype Fine = std::min<qsizetype>(Tratto.start + Tratto.length - Da, Lungo);
        Tratto.start = static_cast<int>(Inizio);
        Tratto.length = static_cast<int>(Fine - Inizio);
        if (Fine > Inizio)
            Dentro.append(Tratto);
    }
    return Dentro;
}

/// Where a line may end before the word that follows.
bool Spazio(QChar C)
{
    constexpr QChar DiCifre(0x2007);
    constexpr QChar Stretto(0x202f);
    return C.isSpace() && C != QChar::Nbsp && C != DiCifre && C != Stretto;
}

/// The end of what can be laid out at once from a place on: that of the text, or within its next endless
/// word.
qsizetype FineDelPezzo(QStringView Testo, qsizetype Da, qsizetype Massimo)
{
    qsizetype Parola = Da;
    for (qsizetype i = Da; i < Testo.size(); ++i) {
        if (Spazio(Testo[i]))
            Parola = i + 1;
        else if (i - Parola >= Massimo)
            return i;
    }
    return Testo.size();
}

/// What was laid out of a stretch of the text stream.
std::vector<Brano> Ritrovati(const std::vector<Brano>& Tutti, qsizetype Da, qsizetype A)
{
    const auto Prima = std::ranges::lower_bound(Tutti, Da, {}, &Brano::Inizio);
    return {Prima, std::ranges::lower_bound(Prima, Tutti.end(), A, {}, &Brano::Inizio)};
}

/// The last line of a part that ends within a word is laid out again with what follows it: the lines are
/// those of the whole text.
std::vector<Brano> Dividi(const QString& Testo, const Veste& Questa, qsizetype Inizio)
{
    std::vector<Brano> Tutti;
    qsizetype Massimo = MassimoParola;
    for (qsizetype Da = 0; Da < Testo.size();) {
        const qsizetype Fine = FineDelPezzo(Testo, Da, Massimo);
        const bool Intero = Da == 0 && Fine == Testo.size();
        Veste Sua = Questa;
        if (!Intero)
            Sua.Formati = Ritagliati(Questa.Formati, Da, Fine - Da);
        Brano Nuovo;
        Nuovo.Disposto = Disponi(Intero ? Testo : Testo.sliced(Da, Fine - Da), Sua, Da == 0);
        Nuovo.Inizio = Inizio + Da;
        Nuovo.X = Questa.Dove.X;
        Nuovo.Larghezza = Questa.Dove.Larghezza;
        Nuovo.Righe = Nuovo.Disposto->lineCount() - (Fine < Testo.size() ? 1 : 0);
        if (Nuovo.Righe == 0) {
            Massimo *= 2;  // letters so small that one line holds them
            continue;
        }
        Da = Fine < Testo.size() ? Da + Nuovo.Disposto->lineAt(Nuovo.Righe).textStart() : Fine;
        Tutti.push_back(std::move(Nuovo));
    }
    return Tutti;
}

QTextCharFormat::VerticalAlignment PostoVerticale(PostoRigo Come)
{
    switch (Come) {
    case PostoRigo::Apice:
        return QTextCharFormat::AlignSuperScript;
    case PostoRigo::Pedice:
        return QTextCharFormat::AlignSubScript;
    case PostoRigo::Normale:
        break;
    }
    return QTextCharFormat::AlignNormal;
}

/// Fonts of the runs beyond the first one's, and of raised and lowered ones; empty while the paragraph has
/// one font.
QList<QTextLayout::FormatRange> Formati(const Paragrafo& Questo, FontDocumento& Font)
{
    QList<QTextLayout::FormatRange> Tutti;
    int Inizio = 0;
    for (const Tratto& Singolo : Questo.Tratti) {
        const int Lungo = static_cast<int>(Singolo.Testo.size());
        if (!(Singolo.Font == Questo.Tratti.front().Font) || Singolo.Font.Posto != PostoRigo::Normale) {
            QTextLayout::FormatRange Nuovo{Inizio, Lungo, {}};
            Nuovo.format.setFont(Font(Singolo.Font).Font);
            Nuovo.format.setVerticalAlignment(PostoVerticale(Singolo.Font.Posto));
            Tutti.append(Nuovo);
        }
        Inizio += Lungo;
    }
    return Tutti;
}

/// A line's strip: its height, and where in it the line stands. Room that lines ask for below each other is
/// below them, room that they ask for themselves is above, as word processors have it.
struct PostoRiga
{
    double Altezza = 0.0;
    double Sopra = 0.0;
};

PostoRiga PostoDi(const Interlinea& Righe, double Propria)
{
    if (Righe.EsattaPunti > 0.0) {
        const double Esatta = Righe.EsattaPunti * DotPerPunto;
        return {Esatta, Esatta - Propria};
    }
    const double Almeno = Righe.AlmenoPunti * DotPerPunto;
    if (Almeno > Propria)
        return {Almeno, Almeno - Propria};
    return {Propria * std::max(Righe.Multipla, 1.0), 0.0};
}

ParagrafoSteso StendiBianco(const Paragrafo& Questo, const QString& Testo, const AreaStampa& Area,
                            const FontMisurato& Font, double Bianche, qsizetype Inizio)
{
    const Posizione Dove = PosizioneDi(Questo.Spazi, Area, Bianche);
    const PostoRiga Posto = PostoDi(Questo.Righe, Font.Altezza * Bianche);
    RigaInStriscia Bianca;
    Bianca.Altezza = Dove.Sopra + Posto.Altezza + Dove.Sotto;
    Bianca.Riga.Dove = QRectF(Area.Sinistra, Dove.Sopra + Posto.Sopra, 0.0, Font.Altezza * Bianche);
    Bianca.Riga.Ascesa = Font.Ascesa;
    Bianca.Riga.Inizio = Inizio;
    Bianca.Riga.Lunghezza = Testo.size();
    ParagrafoSteso Fatto;
    Fatto.Righe.push_back(std::move(Bianca));
    return Fatto;
}

}  // namespace

QString InLinee(QString Testo)
{
    return Testo.replace(u'\n', QChar(QChar::LineSeparator));
}

ParagrafoSteso StendiParagrafo(const Paragrafo& Questo, const QString& Testo, const AreaStampa& Area,
                               FontDocumento& Font, qsizetype Inizio, int Quale)
{
    const FontMisurato& Primo = Font(Questo.Tratti.empty() ? Questo.Font : Questo.Tratti.front().Font);
    if (Testo.trimmed().isEmpty())
        return StendiBianco(Questo, Testo, Area, Primo, Font.Stretta.Bianche, Inizio);
    const Posizione Dove = PosizioneDi(Questo.Spazi, Area, Font.Stretta.Bianche);
    const std::vector<Fermo> Fermi = FermiEntro(Questo.Fermi, Dove, Area);
    ParagrafoSteso Fatto;
    Fatto.Brani = Font.Disposti
                      ? Ritrovati(*Font.Disposti, Inizio, Inizio + Testo.size())
                      : Dividi(Testo, {Primo, Questo.Allinea, Dove, Formati(Questo, Font), Fermi}, Inizio);
    std::vector<RigaStesa> Righe = RigheDi(Fatto.Brani, Quale);
    StringiRighe(Righe, Font.Stretta.Interlinea);
    for (RigaStesa& Stesa : Righe) {
        const PostoRiga Posto = PostoDi(Questo.Righe, Stesa.Dove.height());
        const double Sopra = Fatto.Righe.empty() ? Dove.Sopra : 0.0;
        Stesa.Dove.moveTop(Sopra + Posto.Sopra);
        if (!Fermi.empty())
            Stesa.Pieni =
                Riempimenti(Fatto.Brani[static_cast<std::size_t>(Stesa.Brano - Quale)], Stesa, Primo, Fermi);
        Fatto.Righe.push_back({std::move(Stesa), Sopra + Posto.Altezza});
    }
    Fatto.Righe.back().Altezza += Dove.Sotto;
    return Fatto;
}

std::unique_ptr<QTextLayout> Disponi(const QString& Testo, const FontMisurato& Font, Allineamento Come,
                                     double Larghezza)
{
    Posizione Dove;
    Dove.Larghezza = Larghezza;
    return Disponi(Testo, {Font, Come, Dove});
}

std::vector<Brano> BraniDi(const QString& Testo, const Carattere& Quale, FontDocumento& Font,
                           Allineamento Come, double X, double Larghezza, qsizetype Inizio)
{
    if (Font.Disposti)
        return Ritrovati(*Font.Disposti, Inizio, Inizio + Testo.size());
    Posizione Dove;
    Dove.X = X;
    Dove.Larghezza = Larghezza;
    return Dividi(Testo, {Font(Quale), Come, Dove}, Inizio);
}

std::vector<RigaStesa> RigheDi(std::span<const Brano> Questi, int Quale)
{
    std::vector<RigaStesa> Tutte;
    double Y = 0.0;
    for (const Brano& Questo : Questi) {
        for (int i = 0; i < Questo.Righe; ++i) {
            const QTextLine Riga = Questo.Disposto->lineAt(i);
            QRectF Dove = Riga.naturalTextRect();
            Dove.moveTo(Questo.X + Dove.x(), Y);
            Dove.setHeight(Riga.height());
            Tutte.push_back(
                {Quale, i, Dove, Riga.ascent(), Questo.Inizio + Riga.textStart(), Riga.textLength()});
            Y += Riga.height();
        }
        ++Quale;
    }
    return Tutte;
}

void StringiRighe(std::vector<RigaStesa>& Righe, double Interlinea)
{
    for (RigaStesa& Stesa : Righe) {
        const double Propria = Stesa.Dove.height();
        Stesa.Dove.moveTop(Stesa.Dove.top() * Interlinea);
        Stesa.Dove.setHeight(Propria * Interlinea);
        Stesa.Scarto = (Stesa.Dove.height() - Propria) / 2.0;
    }
}
