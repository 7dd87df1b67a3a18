#include "core/modAvvio.h"

#include "core/modErrori.h"
#include "platform/base/nomidate.h"
#include "platform/base/regionale.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

void Fase(const QString& Testo)
{
    if (sessione::ModoDebug)
        TraceDebug(Testo);
}

/// The folder when it exists, else the program folder.
QString CartellaOProgramma(const QString& Cartella)
{
    return EsisteCartella(Cartella) ? Barra(Cartella) : sessione::PercorsoProg;
}

void LeggiStudio()
{
    using namespace sessione;
    StudioNome = Impostazione(u"StudioNome"_s);
    StudioIndir = Impostazione(u"StudioIndir"_s);
    StudioCitta = Impostazione(u"StudioCitta"_s);
    StudioCodFisc = Impostazione(u"StudioCodFisc"_s);
    StudioMail = Impostazione(u"StudioMail"_s);
    StudioPIva = Impostazione(u"StudioPIva"_s);
    Firma = Impostazione(u"Firma"_s);
}

void LeggiCartelleParcelle()
{
    using namespace sessione;
    ParcellePath = Barra(Impostazione(u"ParcellePath"_s, CartellaOProgramma(PercorsoProg + u"Parcelle"_s)));
    ModelliPath = CartellaOProgramma(ParcellePath + u"Modelli"_s);
}

/// A malformed percentage leaves the one in force, so that a slip of the pen never blocks the start.
void LeggiAliquota(float& Aliquota, const QString& Chiave, const QString& Predefinito)
{
    try {
        Aliquota = CSng(Impostazione(Chiave, Predefinito));
    } catch (const Errore&) {
        return;
    }
}

void LeggiAliquote()
{
    LeggiAliquota(sessione::IVA, u"IVA"_s, u"21"_s);
    LeggiAliquota(sessione::RA, u"RA"_s, u"20"_s);
    LeggiAliquota(sessione::SpeseGen, u"SpeseGen"_s, u"12,5"_s);
    LeggiAliquota(sessione::CP, u"CP"_s, u"4"_s);
    sessione::Iban = Impostazione(u"Iban"_s);
}

void LeggiScrivania()
{
    using namespace sessione;
    SfondoDesktop = Impostazione(u"SfondoDesktop"_s, u"lex.jpg"_s);
    ColoreSfondoDesktop = CLng(Impostazione(u"ColoreSfondoDesktop"_s, u"2508052"_s));
    ColoreEtichette = CLng(Impostazione(u"ColoreEtichette"_s, u"16777215"_s));
    // Written by the settings as ColoreEtichetteBordo: the store does not look at the case.
    ColoreEtichetteBordo = CLng(Impostazione(u"ColoreEtichettebordo"_s, u"0"_s));
    ColoreEtichettaSel = CLng(Impostazione(u"ColoreEtichettaSel"_s, u"255"_s));
}

void VerificaCartellaUtente()
{
    using namespace sessione;
    if (UserFolder.isEmpty()) {
        UserFolder = CartellaUtente(LeggiVersioneSistema());
    } else if (!EsisteCartella(UserFolder)) {
        MsgErrore(u"Attenzione la cartella "_s + UserFolder + u" non è stata trovata!\n"_s +
                  u"Verificare la corretta impostazione nel menu Personalizzazioni->Setup quindi creare la "
                  u"cartella se necessario."_s);
    }
}

void LeggiParametri()
{
    using namespace sessione;
    Fase(u"avvio impostazione variabili"_s);
    TitoloProdotto = u"Calcanova 3"_s;
    PrefissoOdbc = u"DRIVER=Microsoft Access Driver (*.mdb);DBQ="_s;
    PercorsoProg = Barra(Impostazione(u"PercorsoProcedura"_s, CartellaEseguibile()));
    ArchivioCliCon = PercorsoArchivio(Impostazione(u"ArchivioCliCon"_s, PercorsoProg + u"DatiStudio.mdb"_s));
    Fase(u"avvio impostazione variabili1"_s);
    LeggiStudio();
    LeggiCartelleParcelle();
    Fase(u"avvio impostazione variabili2"_s);
    LeggiAliquote();
    Fase(u"avvio impostazione variabili3"_s);
    CercaAgg = Impostazione(u"CercaAgg"_s, u"S"_s) == u"S";
    WP = Impostazione(u"WP"_s, u"-1"_s);
    ProgFatt = CInt(Impostazione(u"ProgFatt"_s, u"0"_s));
    UserFolder = Impostazione(u"UserFolder"_s);
    LeggiScrivania();
    Fase(u"avvio impostazione variabili4"_s);
    VerificaCartellaUtente();
    std::ranges::transform(NomiGiorni, GiorniSett.begin(), &QStringView::toString);
    std::ranges::transform(NomiMesi, Mesi.begin(), &QStringView::toString);
    Fase(u"fine impostazione variabili"_s);
}

}  // namespace

void ImpostaVariabili()
{
    Protetta(LeggiParametri);
}

QString PercorsoArchivio(const QString& Valore)
{
    if (Valore.isEmpty() || Valore.endsWith(u".mdb", Qt::CaseInsensitive))
        return Valore;
    return Barra(Valore) + u"DatiStudio.mdb"_s;
}

QString CartellaUtente(const VersioneSistema& Sistema)
{
    constexpr int Vista = 6;
    return Barra(Sistema.Maggiore >= Vista ? CartellaSpeciale(CartellaDocumenti) + u"KR5"_s
                                           : sessione::PercorsoProg);
}
