#include "platform/document/superficie.h"

#include "platform/base/errore.h"
#include "platform/base/paginacodice.h"
#include "platform/base/regionale.h"
#include "platform/document/lettorertf.h"

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr double CmPerPollice = 2.54;
constexpr double TwipPerPollice = 1440.0;

/// What a table, a column or a cell says of itself. What it leaves open comes from the wider one; the
/// table's own set has every value.
struct Attributi
{
    std::optional<QString> Testo;
    std::optional<Allineamento> Allinea;
    std::optional<QString> FontNome;
    std::optional<double> FontPunti;
    std::optional<bool> Grassetto;
    std::optional<bool> Corsivo;
    std::optional<int> Unione;
    std::optional<QString> Larghezza;
};

template <class T>
void Copri(std::optional<T>& Sotto, const std::optional<T>& Sopra)
{
    if (Sopra)
        Sotto = Sopra;
}

/// Lays the values that `Sopra` has over those of `Sotto`.
void Copri(Attributi& Sotto, const Attributi& Sopra)
{
    Copri(Sotto.Testo, Sopra.Testo);
    Copri(Sotto.Allinea, Sopra.Allinea);
    Copri(Sotto.FontNome, Sopra.FontNome);
    Copri(Sotto.FontPunti, Sopra.FontPunti);
    Copri(Sotto.Grassetto, Sopra.Grassetto);
    Copri(Sotto.Corsivo, Sopra.Corsivo);
    Copri(Sotto.Unione, Sopra.Unione);
    Copri(Sotto.Larghezza, Sopra.Larghezza);
}

/// Text as a document holds it.
QString Registrato(QString Testo)
{
    return TestoPulito(Testo.replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n'));
}

// ---- values as they come from a caller

int Intero(const QVariant& Valore)
{
    bool Riuscito = false;
    const int Numero = Valore.toInt(&Riuscito);
    if (!Riuscito)
        throw Errore(13);
    return Numero;
}

int InteroDa(const QVariant& Valore, int Minimo)
{
    const int Numero = Intero(Valore);
    if (Numero < Minimo)
        throw Errore(5);
    return Numero;
}

double Punti(const QVariant& Valore)
{
    bool Riuscito = false;
    const double Numero = Valore.toDouble(&Riuscito);
    if (!Riuscito)
        throw Errore(13);
    if (!(Numero > 0.0) || !std::isfinite(Numero))
        throw Errore(5);
    return Numero;
}

/// A truth value or a number; QVariant would take any text for true.
bool Vero(const QVariant& Valore)
{
    if (Valore.typeId() == QMetaType::Bool)
        return Valore.toBool();
    return Intero(Valore) != 0;
}

Allineamento AllineamentoDi(const QVariant& Valore)
{
    const auto Scelto = static_cast<Allineamento>(Intero(Valore));
    switch (Scelto) {
    case Allineamento::AltoSinistra:
    case Allineamento::Sinistra:
    case Allineamento::Centro:
    case Allineamento::Destra:
        return Scelto;
    case Allineamento::Giustificato:
        break;
    }
    throw Errore(5);
}

QString Misura(const QVariant& Valore)
{
    const QString Testo = CStr(Valore);
    (void)CentimetriDi(Testo);
    return Testo;
}

/// A set with this one value.
Attributi Uno(AttrTabella Attributo, const QVariant& Valore)
{
    Attributi Nuovo;
    switch (Attributo) {
    case AttrTabella::LarghezzaColonna:
        Nuovo.Larghezza = Misura(Valore);
        return Nuovo;
    case AttrTabella::Unione:
        Nuovo.Unione = InteroDa(Valore, 1);
        return Nuovo;
    case AttrTabella::Testo:
        Nuovo.Testo = Registrato(CStr(Valore));
        return Nuovo;
    case AttrTabella::Allinea:
    case AttrTabella::AllineaTesto:
        Nuovo.Allinea = AllineamentoDi(Valore);
        return Nuovo;
    case AttrTabella::FontNome:
        Nuovo.FontNome = CStr(Valore);
        return Nuovo;
    case AttrTabella::FontDimensione:
        Nuovo.FontPunti = Punti(Valore);
        return Nuovo;
    case AttrTabella::Grassetto:
        Nuovo.Grassetto = Vero(Valore);
        return Nuovo;
    case AttrTabella::Corsivo:
        Nuovo.Corsivo = Vero(Valore);
        return Nuovo;
    case AttrTabella::Righe:
    case AttrTabella::Colonne:
        break;
    }
    throw Errore(5);
}

/// @param Completi a set with every value
QVariant Letto(const Attributi& Completi, AttrTabella Attributo)
{
    switch (Attributo) {
    case AttrTabella::LarghezzaColonna:
        return Completi.Larghezza.value();
    case AttrTabella::Unione:
        return Completi.Unione.value();
    case AttrTabella::Testo:
        return Completi.Testo.value();
    case AttrTabella::Allinea:
    case AttrTabella::AllineaTesto:
        return static_cast<int>(Completi.Allinea.value());
    case AttrTabella::FontNome:
        return Completi.FontNome.value();
    case AttrTabella::FontDimensione:
        return Completi.FontPunti.value();
    case AttrTabella::Grassetto:
        return Completi.Grassetto.value();
    case AttrTabella::Corsivo:
        return Completi.Corsivo.value();
    case AttrTabella::Righe:
    case AttrTabella::Colonne:
        break;
    }
    throw Errore(5);
}

// ---- indices

/// A run of rows or columns, from 0, the end not included.
struct Intervallo
{
    std::size_t Da = 0;
    std::size_t A = 0;
};

/// The run that two indices from 1 name; none when the first is empty.
std::optional<Intervallo> IntervalloDi(std::optional<int> Primo, std::optional<int> Ultimo,
                                       std::size_t Quanti)
{
    if (!Primo)
        return {};
    const int Fine = Ultimo.value_or(*Primo);
    if (*Primo < 1 || Fine < *Primo || static_cast<std::size_t>(Fine) > Quanti)
        throw Errore(9);
    return Intervallo{static_cast<std::size_t>(*Primo) - 1, static_cast<std::size_t>(Fine)};
}

}  // namespace

// ---- texts ----------------------------------------------------------------------------------------

QString Paragrafo::Testo() const
{
    QString Intero;
    for (const Tratto& Pezzo : Tratti)
        Intero += Pezzo.Testo;
    return Intero;
}

double CentimetriDi(QStringView Misura)
{
    const QStringView Tutta = Misura.trimmed();
    const auto FineNumero = std::find_if_not(Tutta.begin(), Tutta.end(), [](QChar C) {
        return (C >= u'0' && C <= u'9') || C == u'.' || C == u',';
    });
    const QString Cifre = Tutta.first(FineNumero - Tutta.begin()).toString().replace(u',', u'.');
    const QString Unita = Tutta.sliced(FineNumero - Tutta.begin()).trimmed().toString().toLower();

    bool Riuscito = false;
    const double Numero = Cifre.toDouble(&Riuscito);  // two decimal signs or no digit make none
    if (!Riuscito)
        throw Errore(13);
    if (Unita == "cm"_L1)
        return Numero;
    if (Unita == "mm"_L1)
        return Numero / 10.0;
    if (Unita == "in"_L1)
        return Numero * CmPerPollice;
    if (Unita.isEmpty())
        return Numero / TwipPerPollice * CmPerPollice;
    throw Errore(13);
}

// ---- the open table -------------------------------------------------------------------------------

struct Superficie::TabellaAperta
{
    explicit TabellaAperta(const Carattere& Font);

    void Ridimensiona(std::size_t Righe, std::size_t Colonne);
    void Applica(const Attributi& Nuovi, std::optional<Intervallo> Righe, std::optional<Intervallo> Colonne);
    [[nodiscard]] Attributi DiColonna(std::size_t Colonna) const;
    [[nodiscard]] Attributi DiCella(std::size_t Riga, std::size_t Colonna) const;
    [[nodiscard]] std::vector<Cella> RigaRisolta(std::size_t Riga) const;
    [[nodiscard]] Tabella Risolta() const;

    Attributi Tutta;
    std::vector<Attributi> Colonne;
    std::vector<std::vector<Attributi>> Celle;
    int Bordo = 0;
};

Superficie::TabellaAperta::TabellaAperta(const Carattere& Font)
{
    Tutta.Testo = QString();
    Tutta.Allinea = Allineamento::Sinistra;
    Tutta.FontNome = Font.Nome;
    Tutta.FontPunti = Font.Punti;
    Tutta.Grassetto = Font.Grassetto;
    Tutta.Corsivo = Font.Corsivo;
    Tutta.Unione = 1;
    Tutta.Larghezza = u"1in"_s;
}

void Superficie::TabellaAperta::Ridimensiona(std::size_t Righe, std::size_t Quante)
{
    Colonne.resize(Quante);
    Celle.resize(Righe);
    for (std::vector<Attributi>& Riga : Celle)
        Riga.resize(Quante);
}

void Superficie::TabellaAperta::Applica(const Attributi& Nuovi, std::optional<Intervallo> Righe,
                                        std::optional<Intervallo> QualiColonne)
{
    if (!Righe && !QualiColonne) {
        Copri(Tutta, Nuovi);
        return;
    }
    const Intervallo Larghe = QualiColonne.value_or(Intervallo{0, Colonne.size()});
    for (std::size_t Colonna = Larghe.Da; Colonna < Larghe.A; ++Colonna) {
        if (!Righe || Nuovi.Larghezza) {
            Copri(Colonne[Colonna], Nuovi);
            continue;
        }
        for (std::size_t Riga = Righe->Da; Riga < Righe->A; ++Riga)
            Copri(Celle[Riga][Colonna], Nuovi);
    }
}

Attributi Superficie::TabellaAperta::DiColonna(std::size_t Colonna) const
{
    Attributi Insieme = Tutta;
    Copri(Insieme, Colonne[Colonna]);
    return Insieme;
}

Attributi Superficie::TabellaAperta::DiCella(std::size_t Riga, std::size_t Colonna) const
{
    Attributi Insieme = DiColonna(Colonna);
    Copri(Insieme, Celle[Riga][Colonna]);
    return Insieme;
}

std::vector<Cella> Superficie::TabellaAperta::RigaRisolta(std::size_t Riga) const
{
    std::vector<Cella> Fatta;
    Fatta.reserve(Colonne.size());
    std::size_t CoperteFino = 0;
    for (std::size_t Colonna = 0; Colonna < Colonne.size(); ++Colonna) {
        const Attributi Suoi = DiCella(Riga, Colonna);
        Cella Una{
            *Suoi.Testo, *Suoi.Allinea, {*Suoi.FontNome, *Suoi.FontPunti, *Suoi.Grassetto, *Suoi.Corsivo}, 1};
        if (Colonna < CoperteFino) {
            Una.Testo.clear();
        } else {
            Una.Unione =
                static_cast<int>(std::min(static_cast<std::size_t>(*Suoi.Unione), Colonne.size() - Colonna));
            CoperteFino = Colonna + static_cast<std::size_t>(Una.Unione);
        }
        Fatta.push_back(std::move(Una));
    }
    return Fatta;
}

Tabella Superficie::TabellaAperta::Risolta() const
{
    Tabella Fatta;
    Fatta.Bordo = Bordo;
    for (std::size_t Colonna = 0; Colonna < Colonne.size(); ++Colonna)
        Fatta.LarghezzeCm.push_back(CentimetriDi(*DiColonna(Colonna).Larghezza));
    for (std::size_t Riga = 0; Riga < Celle.size(); ++Riga)
        Fatta.Righe.push_back(RigaRisolta(Riga));
    return Fatta;
}

// ---- document -------------------------------------------------------------------------------------

Superficie::Superficie() = default;
Superficie::~Superficie() = default;
Superficie::Superficie(Superficie&&) noexcept = default;
Superficie& Superficie::operator=(Superficie&&) noexcept = default;

void Superficie::StartDoc()
{
    Doc.Blocchi.clear();
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
    if (Testo.startsWith("{\\rtf"_L1)) {
        ApriSeServe();
        ChiudiRiga();
        std::ranges::move(LeggiRtf(Testo), std::back_inserter(Doc.Blocchi));
        return;
    }
    Accoda(Registrato(Testo));
    ChiudiRiga();
}

void Superficie::Text(const QString& Testo)
{
    const QString Suo = Registrato(Testo);
    if (!Suo.isEmpty())
        Accoda(Suo);
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
    if (!Aperta->Celle.empty() && !Aperta->Colonne.empty())
        Doc.Blocchi.emplace_back(Aperta->Risolta());
    Aperta.reset();
}

void Superficie::TableBorder(int Bordo)
{
    if (Aperta)
        Aperta->Bordo = Bordo;
}

Superficie::TabellaAperta& Superficie::Corrente() const
{
    if (!Aperta)
        throw Errore(5);
    return *Aperta;
}

void Superficie::TableCell(AttrTabella Attributo, std::optional<int> PrimaRiga, std::optional<int> Colonna,
                           std::optional<int> UltimaRiga, std::optional<int> UltimaColonna,
                           const QVariant& Valore)
{
    TabellaAperta& Tab = Corrente();
    if (Attributo == AttrTabella::Righe) {
        Tab.Ridimensiona(static_cast<std::size_t>(InteroDa(Valore, 0)), Tab.Colonne.size());
    } else if (Attributo == AttrTabella::Colonne) {
        Tab.Ridimensiona(Tab.Celle.size(), static_cast<std::size_t>(InteroDa(Valore, 0)));
    } else {
        const auto Righe = IntervalloDi(PrimaRiga, UltimaRiga, Tab.Celle.size());
        const auto Colonne = IntervalloDi(Colonna, UltimaColonna, Tab.Colonne.size());
        Tab.Applica(Uno(Attributo, Valore), Righe, Colonne);
    }
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
    const TabellaAperta& Tab = Corrente();
    if (Attributo == AttrTabella::Righe)
        return static_cast<int>(Tab.Celle.size());
    if (Attributo == AttrTabella::Colonne)
        return static_cast<int>(Tab.Colonne.size());

    const auto Righe = IntervalloDi(RigaCella, {}, Tab.Celle.size());
    const auto Colonne = IntervalloDi(Colonna, {}, Tab.Colonne.size());
    if (!Righe && !Colonne)
        return Letto(Tab.Tutta, Attributo);
    if (!Colonne)
        throw Errore(9);  // a whole row has no value of its own
    if (!Righe)
        return Letto(Tab.DiColonna(Colonne->Da), Attributo);
    return Letto(Tab.DiCella(Righe->Da, Colonne->Da), Attributo);
}

// ---- preview --------------------------------------------------------------------------------------

int Superficie::PageCount() const
{
    return Aperto || !Impaginatore ? 0 : Impaginatore(Doc);
}
