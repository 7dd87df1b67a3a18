#include "creaguide/composizione.h"

using namespace Qt::StringLiterals;

namespace {

using Genere = BloccoGuida::Genere;

constexpr double RientroVoceCm = 0.6;
constexpr double DopoParagrafoPunti = 6.0;
constexpr double DopoVocePunti = 3.0;
constexpr double PrimaCapitoloPunti = 6.0;
constexpr double PrimaPaginaPunti = 18.0;
constexpr double PrimaSezionePunti = 12.0;
constexpr double PrimaParagrafoPunti = 8.0;
constexpr double DopoTitoloPunti = 14.0;

Carattere Corpo()
{
    return {u"Times New Roman"_s, 11.0};
}

Carattere FontTitolo()
{
    return {u"Arial"_s, 17.0, true};
}

Carattere FontPagina()
{
    return {u"Arial"_s, 14.0, true};
}

Carattere FontSezione()
{
    return {u"Arial"_s, 12.0, true};
}

Carattere FontParagrafo()
{
    return {u"Arial"_s, 10.5, true};
}

Carattere FontTabella(bool Testata)
{
    return {u"Arial"_s, 9.0, Testata};
}

std::vector<Tratto> Tratti(const std::vector<ParoleGuida>& Parole, const Carattere& Font)
{
    std::vector<Tratto> Fatti;
    for (const ParoleGuida& Parola : Parole) {
        Carattere Suo = Font;
        Suo.Grassetto = Suo.Grassetto || Parola.Grassetto;
        Suo.Corsivo = Suo.Corsivo || Parola.Corsivo;
        // A reference has nowhere to lead on paper: it goes on in the form of what stands before it.
        if (!Fatti.empty() && Fatti.back().Font == Suo)
            Fatti.back().Testo += Parola.Testo;
        else
            Fatti.push_back({Parola.Testo, Suo});
    }
    return Fatti;
}

void Titolo(Documento& Doc, const BloccoGuida& Blocco, const Carattere& Font, const Rientri& Spazi)
{
    Paragrafo Nuovo{Allineamento::Sinistra, Tratti(Blocco.Parole, Font), Font, Spazi, Blocco.NuovaPagina};
    Nuovo.ConSeguente = true;
    Doc.Blocchi.emplace_back(std::move(Nuovo));
}

void Parole(Documento& Doc, const BloccoGuida& Blocco)
{
    Paragrafo Nuovo{Allineamento::Giustificato,
                    Tratti(Blocco.Parole, Corpo()),
                    Corpo(),
                    {.SottoPunti = DopoParagrafoPunti},
                    Blocco.NuovaPagina};
    if (!Blocco.Segno.isEmpty()) {
        Nuovo.Tratti.insert(Nuovo.Tratti.begin(), {Blocco.Segno + u'\t', Corpo()});
        if (Nuovo.Tratti.size() > 1 && Nuovo.Tratti[1].Font == Corpo()) {
            Nuovo.Tratti[0].Testo += Nuovo.Tratti[1].Testo;
            Nuovo.Tratti.erase(Nuovo.Tratti.begin() + 1);
        }
        Nuovo.Spazi = {
            .SinistroCm = RientroVoceCm, .PrimaRigaCm = -RientroVoceCm, .SottoPunti = DopoVocePunti};
    }
    Doc.Blocchi.emplace_back(std::move(Nuovo));
}

std::vector<Cella> Celle(const QStringList& Testi, const TabellaDati& Dati, bool Testata)
{
    std::vector<Cella> Fatte;
    for (const QString& Testo : Testi) {
        const bool Destra = Dati.ADestra[Fatte.size()];
        Fatte.push_back(
            {Testo, Destra ? Allineamento::Destra : Allineamento::Sinistra, FontTabella(Testata)});
    }
    return Fatte;
}

/// A long table without rules has a blank row below its headings, which are then repeated on each page.
void Tavola(Documento& Doc, const BloccoGuida& Blocco)
{
    Tabella Nuova;
    Nuova.LarghezzeCm = Blocco.Dati.LarghezzeCm;
    Nuova.Bordo = Blocco.Lineata ? 1 : 0;
    for (const QStringList& Riga : Blocco.Dati.Righe) {
        const bool Testata = Nuova.Righe.empty();
        Nuova.Righe.push_back(Celle(Riga, Blocco.Dati, Testata));
        if (Testata && !Blocco.Lineata)
            Nuova.Righe.push_back(Celle(QStringList(Riga.size()), Blocco.Dati, false));
    }
    Doc.Blocchi.emplace_back(std::move(Nuova));
    Doc.Blocchi.emplace_back(Paragrafo{Allineamento::Sinistra, {}, {u"Times New Roman"_s, 6.0}});
}

void Componi(Documento& Doc, const BloccoGuida& Blocco, Rango Sua)
{
    const bool Pagina = Sua == Rango::Pagina;
    switch (Blocco.Che) {
    case Genere::Titolo:
        if (Pagina)
            Titolo(Doc, Blocco, FontPagina(),
                   {.SopraPunti = PrimaPaginaPunti, .SottoPunti = DopoParagrafoPunti});
        else
            Titolo(Doc, Blocco, FontTitolo(), {.SottoPunti = DopoTitoloPunti});
        break;
    case Genere::Sezione:
        Titolo(Doc, Blocco, Pagina ? FontParagrafo() : FontSezione(),
               {.SopraPunti = Pagina ? PrimaParagrafoPunti : PrimaSezionePunti, .SottoPunti = DopoVocePunti});
        break;
    case Genere::Parte:
        Titolo(Doc, Blocco, FontParagrafo(),
               {.SopraPunti = PrimaParagrafoPunti, .SottoPunti = DopoVocePunti});
        break;
    case Genere::Tabella:
        Tavola(Doc, Blocco);
        break;
    case Genere::Testo:
    case Genere::Voce:
        Parole(Doc, Blocco);
        break;
    }
}

}  // namespace

void ComponiTesto(Documento& Doc, const TestoGuida& Testo, Rango Sua)
{
    for (const BloccoGuida& Blocco : Testo.Blocchi)
        if (Blocco.Dove != BloccoGuida::Posto::Schermo)
            Componi(Doc, Blocco, Sua);
    Doc.PiePagina = u"Pagina %d"_s;
}

void ComponiCapitolo(Documento& Doc, const QString& Titolo)
{
    Paragrafo Nuovo{Allineamento::Sinistra,
                    {{Titolo, FontTitolo()}},
                    FontTitolo(),
                    {.SopraPunti = PrimaCapitoloPunti, .SottoPunti = DopoParagrafoPunti},
                    true};
    Nuovo.ConSeguente = true;
    Doc.Blocchi.emplace_back(std::move(Nuovo));
}

Guida LeggiGuida(const QString& Nome, const QString& Testo, const FonteTabelle& Tabelle)
{
    const TestoGuida Letto = LeggiTesto(Nome, Testo, Tabelle);
    Guida Fatta{Letto.Titolo, {}};
    ComponiTesto(Fatta.Doc, Letto);
    return Fatta;
}
