#include "platform/pages/stesura.h"

#include "platform/pages/stesura_paragrafo.h"
#include "platform/pages/stesura_tabella.h"

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

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
        ParagrafoSteso Steso = StendiParagrafo(Questo, Testo, Area, Font, Fatta.Testo.size(),
                                               static_cast<int>(Fatta.Brani.size()));
        const bool Bianco = Steso.Brani.empty();
        std::ranges::move(Steso.Brani, std::back_inserter(Fatta.Brani));
        for (std::size_t i = 0; i < Steso.Righe.size(); ++i) {
            Pezzo Nuovo;
            Nuovo.DiTesto = true;
            // Two lines at least stand together on either side of a break.
            const bool Unita = i > 0 && (Questo.Intera || i == 1 || i + 1 == Steso.Righe.size());
            Nuovo.Misure = {Steso.Righe[i].Altezza, Bianco, Unita, 0.0, i == 0 && Questo.NuovaPagina};
            Nuovo.Righe.push_back(std::move(Steso.Righe[i].Riga));
            Fatta.Pezzi.push_back(std::move(Nuovo));
        }
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
