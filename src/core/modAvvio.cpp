#include "core/modAvvio.h"

#include "core/aperture.h"
#include "core/dannoricordato.h"
#include "core/impostazioni.h"
#include "core/modErrori.h"
#include "platform/base/nomidate.h"
#include "platform/system/aparte.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;

namespace {

void Fase(const QString& Testo)
{
    if (sessione::ModoDebug)
        TraceDebug(Testo);
}

/// Reads the settings up to that key. One that does not convert is reported and keeps what it was: the others
/// are read all the same.
void LeggiFino(std::span<const VoceImpostazione>& Resto, QStringView Ultima)
{
    bool Fatta = false;
    while (!Resto.empty() && !Fatta) {
        const VoceImpostazione& Voce = Resto.front();
        Protetta([&Voce] { LeggiInSessione(Voce); });
        Fatta = Voce.Chiave == Ultima;
        Resto = Resto.subspan(1);
    }
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
    std::span<const VoceImpostazione> Resto = VociImpostazioni();
    LeggiFino(Resto, chiavi::ArchivioCliCon);
    Fase(u"avvio impostazione variabili1"_s);
    LeggiFino(Resto, chiavi::ParcellePath);
    // Stored empty it would be whatever folder the process happens to be in.
    if (ParcellePath.isEmpty())
        ParcellePath = PredefinitoDi(VoceDi(chiavi::ParcellePath));
    const QString Modelli = Barra(ParcellePath + u"Modelli"_s);
    // On a share that does not answer the start goes on; what is opened there says so.
    ModelliPath = EsisteCartellaEntro(Modelli) ? Modelli : PercorsoProg;
    Fase(u"avvio impostazione variabili2"_s);
    LeggiFino(Resto, u"Iban");
    Fase(u"avvio impostazione variabili3"_s);
    LeggiFino(Resto, {});
    Fase(u"avvio impostazione variabili4"_s);
    VerificaCartellaUtente();
    std::ranges::transform(NomiGiorni, GiorniSett.begin(), &QStringView::toString);
    std::ranges::transform(NomiMesi, Mesi.begin(), &QStringView::toString);
    Fase(u"fine impostazione variabili"_s);
}

/// What the user is to do; a file that cannot be read is none that a save could replace.
QString ConsiglioPer(GuastoDeposito Guasto)
{
    const QString Ambiti = u"anche nei numeri, nelle cartelle e nell'archivio"_s;
    QString Memorizzarle =
        u"Quel che vi manca vale come mai impostato: prima di stampare e di numerare fatture controllare le "
        u"impostazioni, "_s +
        Ambiti + u", e memorizzarle."_s;
    const QString Inerti = u"Nessuna impostazione vale e nessuna si può memorizzare: "_s;
    switch (Guasto) {
    case GuastoDeposito::Vuoto:
        return Memorizzarle;
    case GuastoDeposito::Rovinato:
        return Memorizzarle + u" Il file di ora resta accanto, con «.guasto» in fondo al nome."_s;
    case GuastoDeposito::Illeggibile:
        return Inerti +
               u"rendere leggibile il file e riavviare il programma. Se invece lo si toglie, rifare "
               u"le impostazioni, "_s +
               Ambiti + u'.';
    case GuastoDeposito::Enorme:
        return Inerti + u"togliere il file, riavviare il programma e rifare le impostazioni, "_s + Ambiti +
               u'.';
    case GuastoDeposito::Cartella:
        return Inerti + u"togliere la cartella, riavviare il programma e rifare le impostazioni, "_s +
               Ambiti + u'.';
    }
    return {};
}

}  // namespace

void ImpostaVariabili()
{
    Protetta(LeggiParametri);
}

void RileggiVariabili()
{
    const QString Conservata = ValoreConservato(chiavi::UserFolder);
    const QString Prossima = Conservata.isEmpty() ? CartellaUtente(LeggiVersioneSistema()) : Conservata;
    if (Barra(Prossima) != Barra(sessione::UserFolder))
        Invoca(Aperture.LasciaCartellaUtente);
    ImpostaVariabili();
}

bool AvvisaImpostazioniGuaste()
{
    const std::optional<DepositoGuasto> Guasto = EsaminaImpostazioni(NomeApplicazione.toString());
    if (!Guasto) {
        DimenticaDannoPassato();
        return false;
    }
    ImpostazioniGuasteDette();
    RicordaDanno(*Guasto);
    MsgErrore(Guasto->Frase + u".\n"_s + ConsiglioPer(Guasto->Genere));
    return true;
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
