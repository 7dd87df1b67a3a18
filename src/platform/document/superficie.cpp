#include "platform/document/superficie.h"

#include "platform/base/errore.h"
#include "platform/document/lettorertf.h"

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

// ---- document -------------------------------------------------------------------------------------

Superficie::Superficie() = default;
Superficie::~Superficie() = default;
Superficie::Superficie(Superficie&&) noexcept = default;
Superficie& Superficie::operator=(Superficie&&) noexcept = default;

void Superficie::StartDoc()
{
    Doc.Blocchi.clear();
    Manca.clear();
    Riga.reset();
    Aperta.reset();
    SopraSeguente = 0.0;
    Aperto = true;
    ++Inizi;
}

void Superficie::EndDoc()
{
    EndTable();
    ChiudiRiga();
    Aperto = false;
}

void Superficie::ApriSeServe()
{
    if (!Aperto)
        StartDoc();
}

void Superficie::ChiudiRiga()
{
    if (!Riga)
        return;
    Doc.Blocchi.emplace_back(std::move(*Riga));
    Riga.reset();
}

// ---- text -----------------------------------------------------------------------------------------

void Superficie::Accoda(const QString& Testo)
{
    ApriSeServe();
    if (!Riga) {
        Riga.emplace();
        Riga->Allinea = Allinea;
        Riga->Font = Font;
        Riga->Spazi.SopraPunti = std::exchange(SopraSeguente, 0.0);
    }
    if (!Testo.isEmpty())
        Riga->Tratti.push_back({Testo, Font});
}

void Superficie::Paragraph(const QString& Testo)
{
    if (ComeRtf(Testo)) {
        ApriSeServe();
        ChiudiRiga();
        std::ranges::move(LeggiRtf(Testo), std::back_inserter(Doc.Blocchi));
        return;
    }
    Accoda(TestoRegistrato(Testo));
    ChiudiRiga();
}

void Superficie::Text(const QString& Testo)
{
    const QString Pulito = TestoRegistrato(Testo);
    if (!Pulito.isEmpty())
        Accoda(Pulito);
}

void Superficie::SpaceBefore(double Punti)
{
    SopraSeguente = Punti;
}

void Superficie::SpaceAfter(double Punti)
{
    if (Riga)
        Riga->Spazi.SottoPunti = Punti;
}

void Superficie::KeepNext()
{
    if (Riga)
        Riga->ConSeguente = true;
    else if (!Doc.Blocchi.empty())
        std::visit([](auto& Ultimo) { Ultimo.ConSeguente = true; }, Doc.Blocchi.back());
}

void Superficie::KeepTogether()
{
    if (Riga)
        Riga->Intera = true;
}

void Superficie::FontName(const QString& Nome)
{
    Font.Nome = Nome;
}

void Superficie::FontSize(double Punti)
{
    Font.Punti = Punti;
}

void Superficie::FontBold(bool Attivo)
{
    Font.Grassetto = Attivo;
}

void Superficie::FontUnderline(bool Attivo)
{
    Font.Sottolineato = Attivo;
}

void Superficie::TextAlign(Allineamento Valore)
{
    Allinea = Valore;
}

// ---- page set-up ----------------------------------------------------------------------------------

void Superficie::MarginTop(const QString& Misura)
{
    Doc.MargineAltoCm = CentimetriDi(Misura);
}

void Superficie::MarginLeft(const QString& Misura)
{
    Doc.MargineSinistroCm = CentimetriDi(Misura);
}

void Superficie::MarginBottom(const QString& Misura)
{
    Doc.MargineBassoCm = CentimetriDi(Misura);
}

void Superficie::MarginRight(const QString& Misura)
{
    Doc.MargineDestroCm = CentimetriDi(Misura);
}

void Superficie::PageFooter(const QString& Testo)
{
    Doc.PiePagina = Testo;
}

void Superficie::HdrFontName(const QString& Nome)
{
    Doc.FontPiePagina.Nome = Nome;
}

void Superficie::HdrFontSize(double Punti)
{
    Doc.FontPiePagina.Punti = Punti;
}

void Superficie::Author(const QString& Nome)
{
    Doc.DiSe.Autore = TestoRegistrato(Nome).simplified();
}

void Superficie::Subject(const QString& Testo)
{
    Doc.DiSe.Oggetto = TestoRegistrato(Testo).simplified();
}

void Superficie::HeadPicture(std::optional<FiguraTesta> Figura)
{
    Doc.Testa = std::move(Figura);
}

void Superficie::OnePage(bool Si)
{
    Doc.UnaPagina = Si;
}

// ---- tables ---------------------------------------------------------------------------------------

void Superficie::StartTable()
{
    ApriSeServe();
    EndTable();
    ChiudiRiga();
    Aperta = std::make_unique<TabellaAperta>(Font);
}

void Superficie::EndTable()
{
    if (!Aperta)
        return;
    ChiudiRiga();
    if (!Aperta->Vuota())
        Doc.Blocchi.emplace_back(Aperta->Risolta());
    Aperta.reset();
}

void Superficie::TableBorder(int Bordo)
{
    if (Aperta)
        Aperta->Bordo = Bordo;
}

TabellaAperta& Superficie::Corrente() const
{
    if (!Aperta)
        throw Errore(errori::Argomento);
    return *Aperta;
}

void Superficie::TableCell(AttrTabella Attributo, std::optional<int> PrimaRiga, std::optional<int> Colonna,
                           std::optional<int> UltimaRiga, std::optional<int> UltimaColonna,
                           const QVariant& Valore)
{
    Corrente().Imposta(Attributo, PrimaRiga, Colonna, UltimaRiga, UltimaColonna, Valore);
}

void Superficie::TableCell(AttrTabella Attributo, const QVariant& Valore)
{
    TableCell(Attributo, {}, {}, {}, {}, Valore);
}

void Superficie::ColonnaTabella(AttrTabella Attributo, int Colonna, const QVariant& Valore)
{
    TableCell(Attributo, {}, Colonna, {}, {}, Valore);
}

void Superficie::CellaTabella(AttrTabella Attributo, int RigaCella, int Colonna, const QVariant& Valore)
{
    TableCell(Attributo, RigaCella, Colonna, {}, {}, Valore);
}

QVariant Superficie::TableCell(AttrTabella Attributo, std::optional<int> RigaCella,
                               std::optional<int> Colonna) const
{
    return Corrente().Valore(Attributo, RigaCella, Colonna);
}

// ---- preview --------------------------------------------------------------------------------------

int Superficie::PageCount() const
{
    return Aperto || !Impaginatore ? 0 : Impaginatore(Doc);
}
