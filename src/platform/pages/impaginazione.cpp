#include "platform/pages/impaginazione.h"

#include "platform/pages/impaginata.h"

#include <QGuiApplication>

#include <algorithm>

namespace {

QRectF InMm(const QRectF& Punti)
{
    return {Punti.x() / PuntiPerMm, Punti.y() / PuntiPerMm, Punti.width() / PuntiPerMm,
            Punti.height() / PuntiPerMm};
}

/// What two margins leave of a side. A pair that leaves less than two centimetres is made narrower in
/// proportion; a sheet smaller than that is all text.
struct Luce
{
    double Prima = 0.0;
    double Spazio = 0.0;
};

Luce LuceDi(double LatoMm, double PrimaCm, double DopoCm)
{
    constexpr double MinimoMm = 20.0;
    constexpr double MmPerCm = 10.0;
    const double Margini = (PrimaCm + DopoCm) * MmPerCm;
    const double Concessi = std::clamp(LatoMm - MinimoMm, 0.0, Margini);
    const double Quota = Margini > 0.0 ? Concessi / Margini : 0.0;
    return {PrimaCm * MmPerCm * Quota * PuntiPerMm, (LatoMm - Concessi) * PuntiPerMm};
}

AreaStampa AreaDi(const Documento& Doc, const Carta& Foglio)
{
    const Luce Orizzontale = LuceDi(Foglio.LarghezzaMm, Doc.MargineSinistroCm, Doc.MargineDestroCm);
    const Luce Verticale = LuceDi(Foglio.AltezzaMm, Doc.MargineAltoCm, Doc.MargineBassoCm);
    return {Orizzontale.Prima, Verticale.Prima, Orizzontale.Spazio, Verticale.Spazio};
}

/// A sheet without size is none: the usual one is taken.
Carta CartaValida(const Carta& Chiesta)
{
    return Chiesta.LarghezzaMm > 0.0 && Chiesta.AltezzaMm > 0.0 ? Chiesta : Carta();
}

}  // namespace

// ---- layout ---------------------------------------------------------------------------------------

Impaginazione::Impaginata::Impaginata(const Documento& Doc, const Carta& SuaCarta)
    : Foglio(CartaValida(SuaCarta)), Area(AreaDi(Doc, Foglio)), PiePagina(Doc.PiePagina), Proprieta(Doc.DiSe),
      FontPiePagina(Doc.FontPiePagina)
{
    FontDocumento Font;
    Steso = Stendi(Doc, Area, Font);
    Posa(SpezzaPagine(Steso.Strisce(), Area.Altezza));
    CreaIndice();
}

void Impaginazione::Impaginata::Posa(const std::vector<PostoStriscia>& Posti)
{
    Pagine.resize(Posti.empty() ? 1 : static_cast<std::size_t>(Posti.back().Pagina));
    for (std::size_t i = 0; i < Posti.size(); ++i) {
        const Pezzo& Questo = Steso.Pezzi[i];
        if (Posti[i].ConTitoli)
            PosaTitoli(Pagine[static_cast<std::size_t>(Posti[i].Pagina) - 1], Questo.Titoli);
        PosaPezzo(Questo, Posti[i]);
    }
}

void Impaginazione::Impaginata::PosaTitoli(PaginaPosata& Dove, int Titoli) const
{
    double Y = Area.Alto;
    for (const auto Quale : {static_cast<std::size_t>(Titoli), static_cast<std::size_t>(Titoli) + 1}) {
        const Pezzo& Titolo = Steso.Pezzi[Quale];
        for (const RigaStesa& Stesa : Titolo.Righe)
            Dove.Ripetute.push_back(
                {Stesa.Brano, Stesa.Riga, Y + Stesa.Dove.top() + Stesa.Scarto, Stesa.Muta});
        for (const QLineF& Linea : Titolo.Linee)
            Dove.Linee.push_back(Linea.translated(0.0, Y));
        Y += Titolo.Misure.Altezza;
    }
}

void Impaginazione::Impaginata::PosaPezzo(const Pezzo& Questo, const PostoStriscia& Posto)
{
    PaginaPosata& Dove = Pagine[static_cast<std::size_t>(Posto.Pagina) - 1];
    const double Y = Area.Alto + Posto.Y;
    const double Altezza = Posto.InFondo ? 0.0 : Questo.Misure.Altezza;
    Dove.Fasce.push_back(
        {Y / PuntiPerMm, (Y + Altezza) / PuntiPerMm, Dove.Righe.size(), Questo.Righe.size()});
    for (const RigaStesa& Stesa : Questo.Righe) {
        QRectF Rettangolo = Stesa.Dove.translated(0.0, Y);
        if (Posto.InFondo)
            Rettangolo.setHeight(0.0);
        const double Base = Rettangolo.top() + Stesa.Scarto + (Posto.InFondo ? 0.0 : Stesa.Ascesa);
        Dove.Righe.push_back({InMm(Rettangolo), Base / PuntiPerMm, Stesa.Inizio, Stesa.Lunghezza});
        Dove.Posate.push_back({Stesa.Brano, Stesa.Riga, Rettangolo.top() + Stesa.Scarto, Stesa.Muta});
        for (const QRectF& Pieno : Stesa.Pieni)
            Dove.Pieni.push_back(Pieno.translated(Rettangolo.topLeft()));
    }
    for (const QLineF& Linea : Questo.Linee)
        Dove.Linee.push_back(Linea.translated(0.0, Y));
}

void Impaginazione::Impaginata::CreaIndice()
{
    for (std::size_t Pagina = 0; Pagina < Pagine.size(); ++Pagina)
        for (std::size_t Riga = 0; Riga < Pagine[Pagina].Righe.size(); ++Riga)
            Indice.push_back({Pagine[Pagina].Righe[Riga].Inizio, static_cast<int>(Pagina) + 1, Riga});
    // Only the cells of a row cut over pages are out of order.
    std::ranges::stable_sort(Indice, {}, &VoceIndice::Inizio);
}

const PaginaPosata* Impaginazione::Impaginata::Pagina(int Quale) const
{
    return Quale < 1 || Quale > static_cast<int>(Pagine.size())
               ? nullptr
               : &Pagine[static_cast<std::size_t>(Quale) - 1];
}

// ---- pages ----------------------------------------------------------------------------------------

Impaginazione::Impaginazione() : Impaginazione(Documento())
{}

Impaginazione::Impaginazione(const Documento& Doc, const Carta& Foglio)
{
    Q_ASSERT_X(qobject_cast<QGuiApplication*>(QCoreApplication::instance()), "Impaginazione",
               "fonts need a QGuiApplication");
    Dati = std::make_unique<Impaginata>(Doc, Foglio);
}

Impaginazione::~Impaginazione() = default;
Impaginazione::Impaginazione(Impaginazione&&) noexcept = default;
Impaginazione& Impaginazione::operator=(Impaginazione&&) noexcept = default;

int Impaginazione::NumeroPagine() const
{
    return static_cast<int>(Dati->Pagine.size());
}

Carta Impaginazione::Foglio() const
{
    return Dati->Foglio;
}

QSizeF Impaginazione::DimensioneMm() const
{
    return {Dati->Foglio.LarghezzaMm, Dati->Foglio.AltezzaMm};
}

QRectF Impaginazione::AreaTestoMm() const
{
    const AreaStampa& Area = Dati->Area;
    return InMm({Area.Sinistra, Area.Alto, Area.Larghezza, Area.Altezza});
}
