#include "platform/document/tabellaaperta.h"

#include "platform/base/errore.h"
#include "platform/base/paginacodice.h"
#include "platform/base/regionale.h"
#include "platform/document/misura.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;
using tabella::Attributi;
using tabella::Intervallo;

namespace {

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

// ---- values as they come from a caller

int Intero(const QVariant& Valore)
{
    bool Riuscito = false;
    const int Numero = Valore.toInt(&Riuscito);
    if (!Riuscito)
        throw Errore(errori::Tipo);
    return Numero;
}

int InteroDa(const QVariant& Valore, int Minimo)
{
    const int Numero = Intero(Valore);
    if (Numero < Minimo)
        throw Errore(errori::Argomento);
    return Numero;
}

double Punti(const QVariant& Valore)
{
    bool Riuscito = false;
    const double Numero = Valore.toDouble(&Riuscito);
    if (!Riuscito)
        throw Errore(errori::Tipo);
    if (!(Numero > 0.0) || !std::isfinite(Numero))
        throw Errore(errori::Argomento);
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
    throw Errore(errori::Argomento);
}

QString Misura(const QVariant& Valore)
{
    const QString Testo = CStr(Valore);
    (void)CentimetriDi(Testo);
    return Testo;
}

/// A set with this value alone.
Attributi SoloCon(AttrTabella Attributo, const QVariant& Valore)
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
        Nuovo.Testo = TestoRegistrato(CStr(Valore));
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
    throw Errore(errori::Argomento);
}

/// @param Completi a set with every value
QVariant ValoreDi(const Attributi& Completi, AttrTabella Attributo)
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
    throw Errore(errori::Argomento);
}

// ---- indices

/// The run that two indices from 1 name; none when the first is empty.
std::optional<Intervallo> IntervalloDi(std::optional<int> Primo, std::optional<int> Ultimo,
                                       std::size_t Quanti)
{
    if (!Primo)
        return {};
    const int Fine = Ultimo.value_or(*Primo);
    if (*Primo < 1 || Fine < *Primo || static_cast<std::size_t>(Fine) > Quanti)
        throw Errore(errori::Indice);
    return Intervallo{static_cast<std::size_t>(*Primo) - 1, static_cast<std::size_t>(Fine)};
}

}  // namespace

QString TestoRegistrato(QString Testo)
{
    return SenzaControlli(Testo.replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n'));
}

TabellaAperta::TabellaAperta(const Carattere& Font)
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

void TabellaAperta::Ridimensiona(std::size_t Righe, std::size_t Quante)
{
    // A table grows by one row at a time: those that have their columns are left alone.
    const std::size_t Pronte = Quante == Colonne.size() ? std::min(Righe, Celle.size()) : 0;
    Colonne.resize(Quante);
    Celle.resize(Righe);
    for (std::size_t Riga = Pronte; Riga < Righe; ++Riga)
        Celle[Riga].resize(Quante);
}

void TabellaAperta::Applica(const Attributi& Nuovi, std::optional<Intervallo> Righe,
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

Attributi TabellaAperta::DiColonna(std::size_t Colonna) const
{
    Attributi Insieme = Tutta;
    Copri(Insieme, Colonne[Colonna]);
    return Insieme;
}

Attributi TabellaAperta::DiCella(std::size_t Riga, std::size_t Colonna) const
{
    Attributi Insieme = DiColonna(Colonna);
    Copri(Insieme, Celle[Riga][Colonna]);
    return Insieme;
}

std::vector<Cella> TabellaAperta::RigaRisolta(std::size_t Riga) const
{
    std::vector<Cella> Risolte;
    Risolte.reserve(Colonne.size());
    std::size_t CoperteFino = 0;
    for (std::size_t Colonna = 0; Colonna < Colonne.size(); ++Colonna) {
        const Attributi Propri = DiCella(Riga, Colonna);
        Cella Nuova{*Propri.Testo,
                    *Propri.Allinea,
                    {*Propri.FontNome, *Propri.FontPunti, *Propri.Grassetto, *Propri.Corsivo},
                    1};
        if (Colonna < CoperteFino) {
            Nuova.Testo.clear();
        } else {
            Nuova.Unione = static_cast<int>(
                std::min(static_cast<std::size_t>(*Propri.Unione), Colonne.size() - Colonna));
            CoperteFino = Colonna + static_cast<std::size_t>(Nuova.Unione);
        }
        Risolte.push_back(std::move(Nuova));
    }
    return Risolte;
}

Tabella TabellaAperta::Risolta() const
{
    Tabella Intera;
    Intera.Bordo = Bordo;
    for (std::size_t Colonna = 0; Colonna < Colonne.size(); ++Colonna)
        Intera.LarghezzeCm.push_back(CentimetriDi(*DiColonna(Colonna).Larghezza));
    for (std::size_t Riga = 0; Riga < Celle.size(); ++Riga)
        Intera.Righe.push_back(RigaRisolta(Riga));
    return Intera;
}

void TabellaAperta::Imposta(AttrTabella Attributo, std::optional<int> PrimaRiga, std::optional<int> Colonna,
                            std::optional<int> UltimaRiga, std::optional<int> UltimaColonna,
                            const QVariant& Valore)
{
    if (Attributo == AttrTabella::Righe) {
        Ridimensiona(static_cast<std::size_t>(InteroDa(Valore, 0)), Colonne.size());
    } else if (Attributo == AttrTabella::Colonne) {
        Ridimensiona(Celle.size(), static_cast<std::size_t>(InteroDa(Valore, 0)));
    } else {
        const auto QualiRighe = IntervalloDi(PrimaRiga, UltimaRiga, Celle.size());
        const auto QualiColonne = IntervalloDi(Colonna, UltimaColonna, Colonne.size());
        Applica(SoloCon(Attributo, Valore), QualiRighe, QualiColonne);
    }
}

QVariant TabellaAperta::Valore(AttrTabella Attributo, std::optional<int> Riga,
                               std::optional<int> Colonna) const
{
    if (Attributo == AttrTabella::Righe)
        return static_cast<int>(Celle.size());
    if (Attributo == AttrTabella::Colonne)
        return static_cast<int>(Colonne.size());

    const auto QualeRiga = IntervalloDi(Riga, {}, Celle.size());
    const auto QualeColonna = IntervalloDi(Colonna, {}, Colonne.size());
    if (!QualeRiga && !QualeColonna)
        return ValoreDi(Tutta, Attributo);
    if (!QualeColonna)
        throw Errore(errori::Indice);  // a whole row has no value of its own
    if (!QualeRiga)
        return ValoreDi(DiColonna(QualeColonna->Da), Attributo);
    return ValoreDi(DiCella(QualeRiga->Da, QualeColonna->Da), Attributo);
}
