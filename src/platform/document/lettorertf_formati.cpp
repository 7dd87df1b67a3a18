// What the words of a rich text do.
#include "platform/document/lettorertf.h"

#include "platform/document/lettorertf_classe.h"

#include "platform/document/misura.h"

#include <algorithm>
#include <utility>

using rtf::FormatoCarattere;
using rtf::FormatoParagrafo;
using rtf::Gruppo;

namespace {

constexpr int MassimoSostituti = 255;
constexpr double MassimoCm = 12.0;      // of an indent
constexpr double MassimoPunti = 100.0;  // of the room around a paragraph

}  // namespace

Interlinea rtf::FormatoParagrafo::Righe() const
{
    constexpr double MassimeRighe = 5.0;
    const double Punti = std::clamp(DistanzaRighe / TwipPerPunto, -MassimoPunti, MassimoPunti);
    Interlinea Fatta;
    if (InMultipli)
        Fatta.Multipla = std::clamp(DistanzaRighe / RigaSemplice, 1.0, MassimeRighe);
    else if (Punti > 0.0)
        Fatta.AlmenoPunti = Punti;
    else
        Fatta.EsattaPunti = -Punti;
    return Fatta;
}

void LettoreRtf::EseguiParola(const ParolaRtf& Parola, std::optional<int> Numero)
{
    if (Corrente().Dove == Gruppo::Niente)
        return;
    if (Parola.Azione < AzioneRtf::Salta)
        EseguiTesto(Parola, Numero);
    else if (Parola.Azione < AzioneRtf::Semplice)
        EseguiTabelle(Parola, Numero);
    else if (Parola.Azione < AzioneRtf::ParagrafoSemplice)
        EseguiCarattere(Parola, Numero);
    else if (Parola.Azione < AzioneRtf::NuovaRiga)
        EseguiParagrafo(Parola, Numero);
    else
        EseguiRiga(Parola, Numero);
}

void LettoreRtf::EseguiTesto(const ParolaRtf& Parola, std::optional<int> Numero)
{
    switch (Parola.Azione) {
    case AzioneRtf::Carattere:
        ScriviUno(static_cast<char16_t>(Parola.Valore));
        break;
    case AzioneRtf::Paragrafo:
        FineParagrafo();
        break;
    case AzioneRtf::Pagina:
        if (!Riga.Tratti.empty())
            FineParagrafo();
        NuovaPagina = true;
        break;
    case AzioneRtf::Cella:
        FineCella();
        break;
    case AzioneRtf::Riga:
        FineRiga();
        break;
    case AzioneRtf::Unicode:
        if (Numero) {
            ScriviCodice(static_cast<char16_t>(*Numero));
            DaSaltare = Corrente().Sostituti;
        }
        break;
    case AzioneRtf::Sostituti:
        Corrente().Sostituti = std::clamp(Numero.value_or(1), 0, MassimoSostituti);
        break;
    default:
        break;
    }
}

void LettoreRtf::EseguiTabelle(const ParolaRtf& Parola, std::optional<int> Numero)
{
    const bool InFont = Corrente().Dove == Gruppo::Font;
    switch (Parola.Azione) {
    case AzioneRtf::Salta:
        SaltaGruppo();
        break;
    case AzioneRtf::TabellaFont:
        Corrente().Dove = Gruppo::Font;
        break;
    case AzioneRtf::Codifica:
        PaginaDocumento = Numero.value_or(PaginaWindows);
        break;
    case AzioneRtf::CodificaFissa:
        PaginaDocumento = Parola.Valore;
        break;
    case AzioneRtf::FontIniziale:
        FontIniziale = Numero.value_or(0);
        Corrente().Caratteri.NumeroFont = FontIniziale;
        FontCambiato = true;
        break;
    case AzioneRtf::SetCaratteri:
        if (InFont)
            Font.ImpostaPagina(PaginaDelSet(Numero.value_or(0)));
        break;
    case AzioneRtf::CodificaFont:
        if (InFont)
            Font.ImpostaPagina(Numero.value_or(0));
        break;
    default:
        break;
    }
}

void LettoreRtf::EseguiCarattere(const ParolaRtf& Parola, std::optional<int> Numero)
{
    FormatoCarattere& Come = Corrente().Caratteri;
    const bool Acceso = Numero.value_or(1) != 0;
    FontCambiato = true;
    switch (Parola.Azione) {
    case AzioneRtf::Semplice:
        Come = {};
        Come.NumeroFont = FontIniziale;
        break;
    case AzioneRtf::Font:
        if (Corrente().Dove == Gruppo::Font)
            Font.Chiudi(Come.NumeroFont);
        Come.NumeroFont = Numero.value_or(FontIniziale);
        break;
    case AzioneRtf::Dimensione:
        Come.Punti = std::clamp(Numero.value_or(24) / 2.0, 1.0, 200.0);
        break;
    case AzioneRtf::Grassetto:
        Come.Grassetto = Acceso;
        break;
    case AzioneRtf::Corsivo:
        Come.Corsivo = Acceso;
        break;
    case AzioneRtf::Sottolineato:
        Come.Sottolineato = Acceso;
        break;
    case AzioneRtf::NonSottolineato:
        Come.Sottolineato = false;
        break;
    case AzioneRtf::Barrato:
        Come.Barrato = Acceso;
        break;
    case AzioneRtf::Rigo:
        Come.Posto = Acceso ? static_cast<PostoRigo>(Parola.Valore) : PostoRigo::Normale;
        break;
    case AzioneRtf::Alzato:
        Come.Posto = Numero.value_or(6) > 0 ? static_cast<PostoRigo>(Parola.Valore) : PostoRigo::Normale;
        break;
    case AzioneRtf::Maiuscole:
        Come.Maiuscole = Acceso;
        break;
    case AzioneRtf::Nascosto:
        Come.Nascosto = Acceso;
        break;
    default:
        break;
    }
}

void LettoreRtf::EseguiParagrafo(const ParolaRtf& Parola, std::optional<int> Numero)
{
    FormatoParagrafo& Come = Corrente().Paragrafi;
    const bool Acceso = Numero.value_or(1) != 0;
    switch (Parola.Azione) {
    case AzioneRtf::ParagrafoSemplice:
        Come = {};
        break;
    case AzioneRtf::Allinea:
        Come.Allinea = static_cast<Allineamento>(Parola.Valore);
        break;
    case AzioneRtf::PaginaPrima:
        Come.PaginaPrima = Acceso;
        break;
    case AzioneRtf::ConSeguente:
        Come.ConSeguente = Acceso;
        break;
    case AzioneRtf::Intera:
        Come.Intera = Acceso;
        break;
    case AzioneRtf::Interlinea:
        Come.DistanzaRighe = Numero.value_or(0);
        break;
    case AzioneRtf::Multipla:
        Come.InMultipli = Acceso;
        break;
    case AzioneRtf::InTabella:
        Come.InTabella = true;
        break;
    case AzioneRtf::VersoFermo:
        Come.Prossimo.Come = static_cast<Fermo::Verso>(Parola.Valore);
        break;
    case AzioneRtf::RiempieFermo:
        Come.Prossimo.Riempie = static_cast<char16_t>(Parola.Valore);
        break;
    case AzioneRtf::Fermo:
        AggiungiFermo(Numero.value_or(0));
        break;
    default:
        EseguiRientri(Parola.Azione, Numero.value_or(0));
    }
}

void LettoreRtf::EseguiRientri(AzioneRtf Azione, int Twip)
{
    const double Cm = Twip / TwipPerCm;
    const double Punti = std::clamp(Twip / TwipPerPunto, 0.0, MassimoPunti);
    Rientri& Spazi = Corrente().Paragrafi.Spazi;
    switch (Azione) {
    case AzioneRtf::RientroSinistro:
        Spazi.SinistroCm = std::clamp(Cm, 0.0, MassimoCm);
        break;
    case AzioneRtf::RientroDestro:
        Spazi.DestroCm = std::clamp(Cm, 0.0, MassimoCm);
        break;
    case AzioneRtf::PrimaRiga:
        Spazi.PrimaRigaCm = std::clamp(Cm, -MassimoCm, MassimoCm);
        break;
    case AzioneRtf::Sopra:
        Spazi.SopraPunti = Punti;
        break;
    case AzioneRtf::Sotto:
        Spazi.SottoPunti = Punti;
        break;
    default:
        break;
    }
}

/// Stops stand from the left to the right, two at one place are one.
void LettoreRtf::AggiungiFermo(int Twip)
{
    constexpr double FoglioCm = 55.0;
    constexpr double MinimoCm = 0.01;
    FormatoParagrafo& Come = Corrente().Paragrafi;
    Fermo Nuovo = std::exchange(Come.Prossimo, {});
    Nuovo.Cm = Twip / TwipPerCm;
    if (Nuovo.Cm < MinimoCm || Nuovo.Cm > FoglioCm || Come.Fermi.size() >= MassimoFermiRtf)
        return;
    const auto Dopo = std::ranges::lower_bound(Come.Fermi, Nuovo.Cm, {}, &Fermo::Cm);
    if (Dopo != Come.Fermi.end() && Dopo->Cm - Nuovo.Cm < MinimoCm)
        *Dopo = Nuovo;
    else
        Come.Fermi.insert(Dopo, Nuovo);
}

void LettoreRtf::EseguiRiga(const ParolaRtf& Parola, std::optional<int> Numero)
{
    switch (Parola.Azione) {
    case AzioneRtf::NuovaRiga:
        Tab.IniziaRiga();
        break;
    case AzioneRtf::Sinistra:
        Tab.ImpostaSinistra(Numero.value_or(0));
        break;
    case AzioneRtf::DestraCella:
        Tab.AggiungiCella(Numero.value_or(0));
        break;
    case AzioneRtf::CellaUnita:
        Tab.UnisciCella();
        break;
    case AzioneRtf::LatoCella:
        Tab.ScegliLato(TabellaRtf::Bordo::Cella, static_cast<Cella::Lato>(Parola.Valore));
        break;
    case AzioneRtf::LatoRiga:
        Tab.ScegliLato(TabellaRtf::Bordo::Riga, static_cast<Cella::Lato>(Parola.Valore));
        break;
    case AzioneRtf::LatoInterno:
        Tab.ScegliLato(TabellaRtf::Bordo::Interno, static_cast<Cella::Lato>(Parola.Valore));
        break;
    case AzioneRtf::LatoEstraneo:
        Tab.NessunLato();
        break;
    case AzioneRtf::Linea:
        Tab.Traccia(true);
        break;
    case AzioneRtf::SenzaLinea:
        Tab.Traccia(false);
        break;
    default:
        break;
    }
}
