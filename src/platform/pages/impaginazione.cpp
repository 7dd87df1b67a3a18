#include "platform/pages/impaginazione.h"

#include "platform/pages/impaginata.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImageReader>

#include <algorithm>
#include <utility>

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

/// A document on strips, and where they stand.
struct Distesa
{
    Stesura Steso;
    std::vector<PostoStriscia> Posti;
    int Grado = 0;

    [[nodiscard]] int Pagine() const { return Posti.empty() ? 1 : Posti.back().Pagina; }
};

Distesa DistesaA(const Documento& Doc, const AreaStampa& Area, int Grado, FontDocumento& Font)
{
    Distesa Fatta;
    Fatta.Steso = Stendi(Doc, Area, Font);
    Fatta.Posti = SpezzaPagine(Fatta.Steso.Strisce(), Area.Altezza, Area.Scesa);
    Fatta.Grado = Grado;
    return Fatta;
}

/// A document as it is, and tightened. What has smaller letters is laid out from nothing; what is only nearer
/// keeps the lines that were laid out.
class Tentativi
{
public:
    Tentativi(const Documento& Quale, const AreaStampa& Dove) : Doc(Quale), Area(Dove), Font(Quale.Stretta)
    {
        Larga = DistesaA(Doc, Area, 0, Font);
    }

    /// Tightened by the least that takes it to one page; as it was where nothing does.
    [[nodiscard]] Distesa InUnaPagina() &&
    {
        if (Larga.Pagine() != 2)
            return std::move(Larga);  // on one it stands already, and no three become one
        // The steps that cost next to nothing first: most documents need no smaller letters.
        constexpr int Ultimo = 2 * PassiStrettezza;
        int NonBasta = Ultimo;
        Distesa Riuscita = Prova(Ultimo);
        if (Riuscita.Pagine() == 1)
            NonBasta = 0;
        else
            Riuscita = Prova(GradoMassimo);
        if (Riuscita.Pagine() > 1)
            return std::move(Larga);
        while (Riuscita.Grado - NonBasta > 1) {
            Distesa Mezza = Prova((NonBasta + Riuscita.Grado) / 2);
            if (Mezza.Pagine() == 1)
                Riuscita = std::move(Mezza);
            else
                NonBasta = Mezza.Grado;
        }
        return Riuscita;
    }
    [[nodiscard]] Distesa ComeEra() && { return std::move(Larga); }

private:
    Distesa Prova(int Grado)
    {
        const Strettezza Quanto = StrettezzaDi(Grado);
        if (Quanto.Corpo != Doc.Stretta.Corpo) {
            FontDocumento Minori(Quanto);
            return DistesaA(Doc, Area, Grado, Minori);
        }
        Font.Stretta = Quanto;
        Font.Disposti = &Larga.Steso.Brani;
        return DistesaA(Doc, Area, Grado, Font);
    }

    const Documento& Doc;
    const AreaStampa& Area;
    FontDocumento Font;
    Distesa Larga;
};

/// The picture of a document, read once: it is laid out anew at each change. It is bounded before its dots
/// are read, whatever it says of itself.
QImage LeggiTesta(const QByteArray& Png)
{
    constexpr int MassimoLato = 6000;
    constexpr qint64 MassimoPunti = qint64(16) << 20;
    static QByteArray Letta;
    static QImage Figura;
    if (Png == Letta)
        return Figura;
    QBuffer Byte;
    Byte.setData(Png);
    Byte.open(QIODevice::ReadOnly);
    QImageReader Lettore(&Byte, "png");
    const QSize Lati = Lettore.size();
    const bool Ammessa = !Lati.isEmpty() && Lati.width() <= MassimoLato && Lati.height() <= MassimoLato &&
                         qint64(Lati.width()) * Lati.height() <= MassimoPunti;
    Figura = Ammessa ? Lettore.read() : QImage();
    Letta = Png;
    return Figura;
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
    PosaTesta(Doc);
    Tentativi Prove(Doc, Area);
    Distesa Fatta = Doc.UnaPagina ? std::move(Prove).InUnaPagina() : std::move(Prove).ComeEra();
    Grado = Fatta.Grado;
    Steso = std::move(Fatta.Steso);
    Posa(Fatta.Posti);
    CreaIndice();
}

/// A picture that cannot be read leaves no room behind. On a sheet that is too small for it, it is smaller.
void Impaginazione::Impaginata::PosaTesta(const Documento& Doc)
{
    if (!Doc.Testa)
        return;
    Testa = LeggiTesta(Doc.Testa->Png);
    if (Testa.isNull() || Doc.Testa->LarghezzaCm <= 0.0 || Doc.Testa->AltezzaCm <= 0.0) {
        Testa = {};
        return;
    }
    constexpr double PuntiPerCm = 10.0 * PuntiPerMm;
    const QSizeF Lati = QSizeF(Doc.Testa->LarghezzaCm, Doc.Testa->AltezzaCm) * PuntiPerCm *
                        ParteDellaTesta(*Doc.Testa, Area.Larghezza / PuntiPerCm, Area.Altezza / PuntiPerCm);
    const double Alto = AltoDellaTesta(Area.Alto / PuntiPerCm) * PuntiPerCm;
    const double Libera = Area.Larghezza - Lati.width();
    const double Spostata = Doc.Testa->Allinea == Allineamento::Centro   ? Libera / 2.0
                            : Doc.Testa->Allinea == Allineamento::Destra ? Libera
                                                                         : 0.0;
    DoveTesta = QRectF({Area.Sinistra + Spostata, Alto}, Lati);
    Area.Scesa = std::max(0.0, DoveTesta.bottom() + FiguraTesta::SottoCm * PuntiPerCm - Area.Alto);
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

int Impaginazione::Grado() const
{
    return Dati->Grado;
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
