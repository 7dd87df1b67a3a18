#include "platform/pages/fontstampa.h"

#include <QFontMetricsF>
#include <QImage>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// A family of documents, the one of the package that has its widths, and one that is nearly everywhere.
struct Sostituto
{
    QStringView Famiglia;
    QStringView Uguale;
    QStringView Ripiego;
    QFont::StyleHint Genere;
};

constexpr std::array Sostituti{
    Sostituto{u"Times New Roman", u"Liberation Serif", u"DejaVu Serif", QFont::Serif},
    Sostituto{u"Arial", u"Liberation Sans", u"DejaVu Sans", QFont::SansSerif},
    Sostituto{u"Courier New", u"Liberation Mono", u"DejaVu Sans Mono", QFont::TypeWriter},
};

const Sostituto* SostitutoDi(const QString& Famiglia)
{
    const auto Suo = std::find_if(Sostituti.begin(), Sostituti.end(), [&](const Sostituto& Uno) {
        return Famiglia.compare(Uno.Famiglia, Qt::CaseInsensitive) == 0;
    });
    return Suo == Sostituti.end() ? nullptr : &*Suo;
}

QStringList Famiglie(const QString& Chiesta)
{
    const Sostituto* Suo = SostitutoDi(Chiesta);
    if (Suo)
        return {Suo->Uguale.toString(), Suo->Famiglia.toString(), Suo->Ripiego.toString()};
    return {Chiesta, Sostituti.front().Uguale.toString(), Sostituti.front().Ripiego.toString()};
}

QFont::StyleHint Genere(const QString& Chiesta)
{
    const Sostituto* Suo = SostitutoDi(Chiesta);
    return Suo ? Suo->Genere : QFont::Serif;
}

}  // namespace

QPaintDevice* DispositivoStampa()
{
    static QImage Dispositivo = [] {
        constexpr int PuntiPerMetro = static_cast<int>(PuntiPerMm * 1000.0);
        QImage Nuovo(1, 1, QImage::Format_ARGB32_Premultiplied);
        Nuovo.setDotsPerMeterX(PuntiPerMetro);
        Nuovo.setDotsPerMeterY(PuntiPerMetro);
        return Nuovo;
    }();
    return &Dispositivo;
}

QFont FontStampa(const Carattere& Quale)
{
    constexpr double MassimoPunti = 500.0;  // beyond it no sheet holds a line
    const double Punti = std::clamp(Quale.Punti, 1.0, MassimoPunti);
    QFont Font;
    Font.setFamilies(Famiglie(Quale.Nome));
    Font.setStyleHint(Genere(Quale.Nome), QFont::PreferOutline);
    Font.setPixelSize(static_cast<int>(std::lround(Punti * PuntiPerPollice / PuntiTipograficiPerPollice)));
    Font.setBold(Quale.Grassetto);
    Font.setItalic(Quale.Corsivo);
    Font.setUnderline(Quale.Sottolineato);
    Font.setStrikeOut(Quale.Barrato);
    Font.setHintingPreference(QFont::PreferNoHinting);
    Font.setKerning(true);
    return QFont(Font, DispositivoStampa());
}

// ---- measures -------------------------------------------------------------------------------------

FontMisurato::FontMisurato(const Carattere& Quale) : Chiesto(Quale), Font(FontStampa(Quale))
{
    QTextOption Come;
    Come.setUseDesignMetrics(true);
    QTextLayout Prova(u"x"_s, Font, DispositivoStampa());
    Prova.setTextOption(Come);
    Prova.beginLayout();
    QTextLine Riga = Prova.createLine();
    Riga.setLeadingIncluded(true);
    Riga.setNumColumns(1);
    Prova.endLayout();
    Ascesa = Riga.ascent();
    Altezza = Riga.height();

    const QFontMetricsF Metrica(Font, DispositivoStampa());
    for (char16_t C = PrimoNoto; C <= UltimoNoto; ++C)
        Noti[static_cast<std::size_t>(C - PrimoNoto)] = Metrica.horizontalAdvance(QChar(C));
    Bianco = Noti.front();
    const QRectF Basso = Metrica.boundingRect(QChar(u'_'));
    Trattino = Basso.center().y();
    SpessoreTrattino = Basso.height();
}

double FontMisurato::Larghezza(QStringView Testo) const
{
    const bool Note =
        std::all_of(Testo.begin(), Testo.end(), [](QChar C) { return C >= PrimoNoto && C <= UltimoNoto; });
    if (!Note)
        return QFontMetricsF(Font, DispositivoStampa()).horizontalAdvance(Testo.toString());
    double Somma = 0.0;
    for (const QChar C : Testo)
        Somma += Noti[static_cast<std::size_t>(C.unicode() - PrimoNoto)];
    return Somma;
}

const FontMisurato& FontDocumento::operator()(const Carattere& Quale)
{
    const auto Suo = std::find_if(Tutti.begin(), Tutti.end(),
                                  [&](const FontMisurato& Uno) { return Uno.Chiesto == Quale; });
    if (Suo != Tutti.end())
        return *Suo;
    Carattere Stretto = Quale;
    Stretto.Punti = PuntiStretti(Quale.Punti, Stretta);
    FontMisurato& Nuovo = Tutti.emplace_back(Stretto);
    Nuovo.Chiesto = Quale;
    return Nuovo;
}
