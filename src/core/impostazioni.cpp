#include "core/impostazioni.h"

#include "core/indirizzi.h"
#include "core/modAvvio.h"
#include "core/modLogo.h"
#include "core/modRegimi.h"
#include "core/parametri.h"
#include "core/sessione.h"
#include "core/versione.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

using enum GenereImpostazione;

QString ArchivioSenzaImpostazione()
{
    const QString Ritrovato = RitrovatoDelPrimoUso(chiavi::ArchivioCliCon);
    return !Ritrovato.isEmpty() ? Ritrovato : CartellaProgramma() + u"DatiStudio.mdb"_s;
}

QString ParcelleOProgramma()
{
    const QString Cartella = CartellaParcelleProposta();
    return EsisteCartella(Cartella) ? Cartella : CartellaProgramma();
}

/// What a mail says of the document that it brings; a line whose place-holders are all empty goes.
constexpr QStringView OggettoPosta = u"{documento} {numero} - {oggetto}";
constexpr QStringView TestoPosta = u"Gentile {cliente},\n\n"
                                   "si trasmette in allegato il seguente documento.\n\n"
                                   "Documento: {documento} {numero}\n"
                                   "Data: {data}\n"
                                   "Oggetto: {oggetto}\n"
                                   "Importo netto: euro {netto}\n\n"
                                   "Cordiali saluti\n"
                                   "{studio}";

constexpr std::array Voci{
    VoceImpostazione{chiavi::PercorsoProcedura, u"", Testo, &sessione::PercorsoProg, CartellaEseguibile,
                     Barra},
    VoceImpostazione{chiavi::ArchivioCliCon, u"", Testo, &sessione::ArchivioCliCon, ArchivioSenzaImpostazione,
                     PercorsoArchivio},
    VoceImpostazione{u"StudioNome", u"", Testo, &sessione::StudioNome},
    VoceImpostazione{u"StudioIndir", u"", Testo, &sessione::StudioIndir},
    VoceImpostazione{u"StudioCitta", u"", Testo, &sessione::StudioCitta},
    VoceImpostazione{u"StudioCodFisc", u"", Testo, &sessione::StudioCodFisc},
    VoceImpostazione{u"StudioMail", u"", Testo, &sessione::StudioMail},
    VoceImpostazione{u"StudioPIva", u"", Testo, &sessione::StudioPIva},
    VoceImpostazione{u"Firma", u"", Testo, &sessione::Firma},
    VoceImpostazione{u"FirmaDigit", u"", Testo, {}},
    VoceImpostazione{chiavi::ParcellePath, u"", Testo, &sessione::ParcellePath, ParcelleOProgramma, Barra},
    VoceImpostazione{u"IVA", u"21", Percentuale, &sessione::IVA},
    VoceImpostazione{u"RA", u"20", Percentuale, &sessione::RA},
    VoceImpostazione{u"SpeseGen", u"12,5", Percentuale, &sessione::SpeseGen},
    VoceImpostazione{u"CP", u"4", Percentuale, &sessione::CP},
    VoceImpostazione{chiavi::Tariffa, u"", Testo, &sessione::Tariffa},
    VoceImpostazione{chiavi::NormeDiPartenza, NormeDelProgramma, Testo, &sessione::NormeDiPartenza},
    VoceImpostazione{chiavi::RicordaCalcoli, u"S", SiNo, &sessione::RicordaCalcoli},
    VoceImpostazione{u"Iban", u"", Testo, &sessione::Iban},
    VoceImpostazione{u"TipoStudio", u"P", Testo, &sessione::TipoStudio, {}, tipostudio::Noto},
    VoceImpostazione{u"StudioTitolareNome", u"", Testo, &sessione::StudioTitolareNome},
    VoceImpostazione{u"StudioTitolareCognome", u"", Testo, &sessione::StudioTitolareCognome},
    VoceImpostazione{u"RegimeFiscale", u"RF01", Testo, &sessione::RegimeFiscale, {}, regimi::Noto},
    VoceImpostazione{u"StudioVia", u"", Testo, &sessione::StudioVia},
    VoceImpostazione{u"StudioCivico", u"", Testo, &sessione::StudioCivico},
    VoceImpostazione{u"StudioCap", u"", Testo, &sessione::StudioCap},
    VoceImpostazione{u"StudioComune", u"", Testo, &sessione::StudioComune},
    VoceImpostazione{u"StudioProv", u"", Testo, &sessione::StudioProv},
    VoceImpostazione{u"StudioPec", u"", Testo, &sessione::StudioPec},
    // Read where it steps, in turn with other programs: what a session remembers of it may be old.
    VoceImpostazione{chiavi::ProgTrasm, u"0", Testo, {}},
    VoceImpostazione{chiavi::CercaAgg, u"S", SiNo, &sessione::CercaAgg},
    VoceImpostazione{chiavi::WP, u"-1", Testo, &sessione::WP},
    VoceImpostazione{chiavi::ProgFatt, u"0", Intero16, &sessione::ProgFatt},
    VoceImpostazione{chiavi::UserFolder, u"", Testo, &sessione::UserFolder},
    VoceImpostazione{chiavi::SfondoDesktop, u"lex.jpg", Testo, &sessione::SfondoDesktop},
    VoceImpostazione{u"ColoreSfondoDesktop", u"2508052", Intero32, &sessione::ColoreSfondoDesktop},
    VoceImpostazione{u"ColoreEtichette", u"16777215", Intero32, &sessione::ColoreEtichette},
    // Written by the settings as ColoreEtichetteBordo: the store does not look at the case.
    VoceImpostazione{u"ColoreEtichettebordo", u"0", Intero32, &sessione::ColoreEtichetteBordo},
    VoceImpostazione{u"ColoreEtichettaSel", u"255", Intero32, &sessione::ColoreEtichettaSel},
    VoceImpostazione{chiavi::PostaOggetto, OggettoPosta, Testo, &sessione::PostaOggetto},
    VoceImpostazione{chiavi::PostaTesto, TestoPosta, Testo, &sessione::PostaTesto},
    VoceImpostazione{chiavi::LogoImpronta, u"", Testo, &sessione::LogoImpronta},
    VoceImpostazione{chiavi::LogoPosto, u"", Testo, &sessione::LogoPosto, {}, logo::PostoNoto},
    VoceImpostazione{chiavi::LogoAltezza, u"2", Percentuale, &sessione::LogoAltezza},
    VoceImpostazione{chiavi::LogoDocumenti, logo::DocumentiIniziali, Testo, &sessione::LogoDocumenti},
    VoceImpostazione{u"ServerAggiornamenti", u"", Testo, &sessione::ServerAggiornamenti, ServerCostruito,
                     indirizzi::Normalizzato},
};

void Assegna(const VoceImpostazione& Voce, const QString& Valore)
{
    switch (Voce.Genere) {
    case Testo:
        if (auto* const* Variabile = std::get_if<QString*>(&Voce.Variabile))
            **Variabile = Voce.Adatta ? Voce.Adatta(Valore) : Valore;
        break;
    case Percentuale:
        *std::get<float*>(Voce.Variabile) = CSng(Valore);
        break;
    case Intero16:
        *std::get<int*>(Voce.Variabile) = CInt(Valore);
        break;
    case Intero32:
        *std::get<int*>(Voce.Variabile) = CLng(Valore);
        break;
    case SiNo:
        *std::get<bool*>(Voce.Variabile) = Valore == u"S";
        break;
    }
}

}  // namespace

std::span<const VoceImpostazione> VociImpostazioni()
{
    return Voci;
}

const VoceImpostazione& VoceDi(QStringView Chiave)
{
    const auto* const Trovata = std::ranges::find_if(Voci, [Chiave](const VoceImpostazione& Voce) {
        return Voce.Chiave.compare(Chiave, Qt::CaseInsensitive) == 0;
    });
    if (Trovata == Voci.end())
        throw Errore(errori::Argomento);
    return *Trovata;
}

QString PredefinitoDi(const VoceImpostazione& Voce)
{
    return Voce.Derivato ? Voce.Derivato() : Voce.Predefinito.toString();
}

QString ValoreConservato(QStringView Chiave)
{
    const VoceImpostazione& Voce = VoceDi(Chiave);
    return Impostazione(Voce.Chiave.toString(), PredefinitoDi(Voce));
}

void LeggiInSessione(const VoceImpostazione& Voce)
{
    const QString Valore = Impostazione(Voce.Chiave.toString(), PredefinitoDi(Voce));
    try {
        Assegna(Voce, Valore);
    } catch (const Errore&) {
        // A slip of the pen in a percentage never blocks the start.
        if (Voce.Genere != Percentuale)
            throw;
    }
}

std::optional<int> LeggiProgFatt(const QString& Testo)
{
    try {
        const int Numero = CInt(Testo);
        return Numero >= 0 && CDbl(Testo) == Numero ? std::optional(Numero) : std::nullopt;
    } catch (const Errore&) {
        return std::nullopt;
    }
}

void AzzeraImpostazioni()
{
    for (const VoceImpostazione& Voce : Voci)
        Assegna(Voce, Voce.Predefinito.toString());
}

QString CartellaProgramma()
{
    return Barra(Impostazione(chiavi::PercorsoProcedura.toString(), CartellaEseguibile()));
}

QString CartellaParcelleProposta()
{
    const QString Ritrovata = RitrovatoDelPrimoUso(chiavi::ParcellePath);
    return !Ritrovata.isEmpty() ? Ritrovata : CartellaProgramma() + Barra(u"Parcelle"_s);
}

QString CartellaDelPrimoUso()
{
    constexpr int Documenti = 5;
    return CartellaSpeciale(Documenti) + Barra(u"Calcanova"_s);
}

QString RitrovatoDelPrimoUso(QStringView Chiave)
{
    const bool Archivio = Chiave == chiavi::ArchivioCliCon;
    if ((!Archivio && Chiave != chiavi::ParcellePath) || FraseImpostazioniGuaste().isEmpty())
        return {};
    const QString Posto = CartellaDelPrimoUso() + (Archivio ? u"DatiStudio.mdb"_s : Barra(u"Parcelle"_s));
    const bool Presente = Archivio ? EsisteFile(TrovaFile(Posto)) : EsisteCartella(Posto);
    return Presente ? Posto : QString();
}
