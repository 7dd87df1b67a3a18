#include "core/app/avvio.h"

#include "addressbook/exchange/annullo.h"
#include "addressbook/exchange/archiviointero.h"
#include "addressbook/exchange/archivionativo.h"
#include "core/aperture.h"
#include "core/app/altriavvii.h"
#include "core/app/paginaavviso.h"
#include "core/app/primouso.h"
#include "core/comandi.h"
#include "core/desktop/frmMain.h"
#include "core/desktop/frmStudio.h"
#include "core/modAvvio.h"
#include "core/modErrori.h"
#include "core/modInvii.h"
#include "core/posti.h"
#include "feenote/companion/modRichiesta.h"
#include "feenote/file/modPosaFile.h"
#include "platform/base/errore.h"
#include "platform/kit/collega.h"
#include "platform/kit/singola.h"
#include "platform/system/aparte.h"
#include "platform/system/blocco.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QApplication>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView PrefissoPV2 = u"PV2|";
constexpr qsizetype LetteraPV2 = 4;    // the fifth character
constexpr qsizetype RichiestaPV2 = 6;  // what follows "PV2|N|"
constexpr QStringView ParolaDebug = u"debug";
constexpr QStringView ParolaLow = u"-low";

/// Opens what the companion application asks for.
/// @return false when its request cannot be read, and the process ends
bool ApriRichiesta(const QString& Riga)
{
    const QChar Lettera = Riga.size() > LetteraPV2 ? Riga[LetteraPV2] : QChar();
    if (Lettera == u'N') {
        if (!LeggiRichiestaPV2(Riga.mid(RichiestaPV2))) {
            MsgBox(u"Errore di automazione programma VDM!"_s);
            return false;
        }
        EseguiComando(u"new"_s, 0, sessione::RichiestaPV2.ID);
    } else if (Lettera == u'E' && Aperture.ApriParcella) {
        Aperture.ApriParcella(Riga.mid(RichiestaPV2), 0, {});
    }
    return true;
}

bool AvvioAutomazione(const QString& Riga)
{
    if (RicercaDaFare() && InternetConnesso())
        RicercaAllAvvio();
    if (!ApriRichiesta(Riga))
        return false;
    // Without its settings an invoice would be handed over to nobody, and nobody would know.
    if (const std::optional<Errore> Guasto = GuastoImpostazioni(u"Praxivo"_s))
        MsgErrore(Guasto->Descrizione);
    sessione::CartellaLocale = Barra(ImpostazioneDi(u"Praxivo"_s, u"CartellaLocale"_s));
    sessione::ArchivioPrat = ImpostazioneDi(u"Praxivo"_s, u"ArchivioPrat"_s);
    return true;
}

void MostraAvviso()
{
    constexpr int LarghezzaTwip = 10200;
    constexpr int AltezzaTwip = 7600;
    if (AvvisoDaMostrare() && Aperture.Avviso)
        Aperture.Avviso({sessione::PercorsoProg + u"avvisokr6.htm"_s, u"KR5 - Avviso agli abbonati"_s,
                         u"avvisokr5"_s, LarghezzaTwip, AltezzaTwip});
}

bool RigaDiDebug(const QString& Riga)
{
    return Riga.startsWith(ParolaDebug, Qt::CaseInsensitive);
}

/// The word behind "--comando ", of a command that the desktop has an icon for; empty when there is none.
QString ComandoDellaRiga(const QString& Riga)
{
    constexpr QStringView Opzione = u"--comando ";
    if (!Riga.startsWith(Opzione))
        return {};
    const QString Parola = Riga.sliced(Opzione.size());
    const std::vector<const Comando*> Icone = ComandiDellaScrivania();
    const bool Mostrato =
        std::ranges::any_of(Icone, [&](const Comando* Icona) { return Icona->Parola == Parola; });
    return Mostrato ? Parola : QString();
}

void AvvioNormale(const QString& Riga)
{
    if (RigaDiDebug(Riga))
        sessione::ModoDebug = true;
    auto& Scrivania = Singola<frmStudio>();
    // Behind the questions of a first use, which would cover the notice.
    Collega(&Scrivania, &frmStudio::PrimaAttivazione, qApp, MostraAvviso);
    if (const QString Parola = ComandoDellaRiga(Riga); !Parola.isEmpty())
        Collega(&Scrivania, &frmStudio::PrimaAttivazione, qApp, [Parola] { EseguiComando(Parola, 0, {}); });
    Scrivania.Mostra();
}

/// @return false when the process is to end at once
bool Avvia(const QString& Riga)
{
    if (Riga == ParolaLow) {
        sessione::ModoLow = true;
        EseguiComando(u"new"_s, 0, {});
        // No desktop will offer what an earlier session left.
        Invoca(Aperture.OffriRecupero);
    } else if (Riga.startsWith(PrefissoPV2)) {
        if (!AvvioAutomazione(Riga))
            return false;
        MostraAvviso();
    } else if (const QString File = FileDellaRiga(Riga); !File.isEmpty()) {
        (void)AvvioAutomazione(PrefissoPV2.toString() + u"E|"_s + File);
        MostraAvviso();
    } else {
        AvvioNormale(Riga);
    }
    return true;
}

/// What killed programs left beside notes, templates, archive, rates and icons; the folder of recovery copies
/// is swept when they are offered. Notes may lie on a share that does not answer: what comes behind them
/// waits with them, so they come last.
void TogliResti()
{
    const QString Utente = Barra(sessione::UserFolder);
    const QString Archivio = sessione::ArchivioCliCon;
    FaiAParte([=, Cartelle = QStringList{Utente, CartellaFile(PercorsoNativo(Archivio)),
                                         sessione::ModelliPath, sessione::ParcellePath}] {
        ScartaBlocco(Utente + u".~kr5.ini.lock"_s);
        SpazzaInvii();
        TogliRestiDiImportazioni(Archivio);
        TogliRestiDiSorgenti();
        TogliRestiDiArchivi(Utente);
        for (const QString& Cartella : Cartelle)
            if (!Cartella.isEmpty())
                TogliRestiDiNote(Cartella);
    });
}

}  // namespace

void Main(const QString& RigaDiComando)
{
    bool Avviato = true;
    Protetta([&] {
        AzzeraParcelle();
        sessione::PercorsoVDM = Barra(ImpostazioneDi(u"VDM2"_s, u"PercorsoProcedura"_s));
        // Keys that a damaged file has lost make no first use.
        if (!AvvisaImpostazioniGuaste())
            PrimoUso();
        ImpostaVariabili();
        Avviato = Avvia(RigaDiComando);
        TogliResti();
    });
    if (Avviato)
        FineSenzaFinestre();
    else
        Termina();
}

bool RigaDiAltri(const QString& Riga)
{
    return Riga == ParolaLow || Riga.startsWith(PrefissoPV2);
}

QString FileDellaRiga(const QString& Riga)
{
    // A file may be called "debug.mdb", but the word is older.
    if (RigaDiAltri(Riga) || RigaDiDebug(Riga) || Riga.isEmpty() || !EsisteFile(Riga))
        return {};
    return QFileInfo(PercorsoNativo(Riga)).absoluteFilePath();
}

bool AvvisoDaMostrare()
{
    if (sessione::ModoLow)
        return false;
    // The viewer writes the marker into the user folder where the program folder refuses it.
    const QString Nome = u"avvisokr5.ini"_s;
    return !EsisteFile(TrovaFile(sessione::PercorsoProg + Nome)) &&
           !EsisteFile(TrovaFile(Barra(sessione::UserFolder) + Nome));
}

void FineSenzaFinestre()
{
    const QWidgetList Finestre = QApplication::topLevelWidgets();
    if (!FileInArrivo() &&
        std::ranges::none_of(Finestre, [](const QWidget* Finestra) { return Finestra->isVisible(); }))
        Termina();
}

void DopoUltimaParcella()
{
    auto& Cornice = Singola<frmMain>();
    Protetta([&] { Cornice.SalvaMisure(); });
    if (sessione::ModoLow) {
        if (!Aperture.ChiudiRubriche || Aperture.ChiudiRubriche())
            Termina();
        return;
    }
    Singola<frmStudio>().Mostra();
    Cornice.ScaricaInCoda();
}
