#include "core/tasti.h"

#include "core/comandi.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

// Elsewhere a room names its own controls, by members. This is the one table that names those of all rooms by
// their text, since keys, hints and the page of keys are one thing to the user: TestTutteLeFinestre walks
// every window and fails on a row whose control or key it has not met, TestTastiPremuti presses what a
// control answers by itself.
constexpr bool Interno = true;

constexpr std::array Gruppi{
    GruppoTasti{u"", u"Dappertutto"},
    GruppoTasti{u"frmMain", u"Dalla scrivania e dalla finestra delle parcelle"},
    GruppoTasti{u"frmStudio", u"La scrivania"},
    GruppoTasti{u"cornice", u"La parcella davanti"},
    GruppoTasti{u"frmParcelle", u"Nella parcella"},
    GruppoTasti{u"SchedaDatiBase", u"Cliente e controparte"},
    GruppoTasti{u"SchedaOnorari", u"Onorari"},
    GruppoTasti{u"SchedaSpese", u"Spese"},
    GruppoTasti{u"SchedaAcconti", u"Acconti e imposte"},
    GruppoTasti{u"PannelloModOno", u"Modifica degli importi"},
    GruppoTasti{u"PannelloCatena", u"I conti del documento"},
    GruppoTasti{u"ElencoControlli", u"Da controllare prima di stampare"},
    GruppoTasti{u"Griglia", u"Nelle righe e negli elenchi"},
    GruppoTasti{u"VistaStampa", u"Nel documento"},
    GruppoTasti{u"frmPrint", u"La stampa di un calcolo"},
    GruppoTasti{u"frmTrovaParcella", u"Le parcelle salvate"},
    GruppoTasti{u"frmRubrica", u"La rubrica"},
    GruppoTasti{u"frmScheda", u"La scheda di un nominativo"},
    GruppoTasti{u"frmRicerche", u"La ricerca per campo"},
    GruppoTasti{u"frmTermini", u"Computo termini"},
    GruppoTasti{u"frmTerminiSeq", u"Termini sequenziali"},
    GruppoTasti{u"frmRicorrenti", u"Termini ricorrenti"},
    GruppoTasti{u"frmStrada", u"Perché questa data"},
    GruppoTasti{u"frmAgenda", u"Aggiungi al calendario"},
    GruppoTasti{u"frmUltimiCalcoli", u"Ultimi calcoli"},
    GruppoTasti{u"Calendario", u"Il calendario"},
    GruppoTasti{u"frmDocumenti", u"Documentazione normativa"},
    GruppoTasti{u"frmWeb", u"La guida e le schede informative"},
    GruppoTasti{u"frmSetup", u"Impostazioni"},
    GruppoTasti{u"SchedaDesktop", u"Le icone personali"},
    GruppoTasti{u"frmSfoglia", u"La scelta di una cartella"},
};

constexpr std::array Proprie{
    RigaTasti{u"", u"", u"F1", u"la pagina della guida sulla finestra in uso", Interno},
    RigaTasti{u"", u"cmdTasti menu_tasti", u"Ctrl+?", u"questa pagina, con tutti i tasti", Interno},

    RigaTasti{u"frmMain", u"tastiRecenti", u"Ctrl+R", u"le ultime parcelle"},
    RigaTasti{u"frmMain", u"tastiUscita", u"Ctrl+Q",
              u"chiude il programma, chiedendo delle parcelle non salvate"},

    RigaTasti{u"frmStudio", u"", u"Home", u"la prima icona", Interno},
    RigaTasti{u"frmStudio", u"", u"End", u"l'ultima icona", Interno},
    RigaTasti{u"frmStudio", u"", u"Return", u"apre l'icona, o la parcella segnata tra le ultime", Interno},
    RigaTasti{u"frmStudio", u"", u"Del", u"toglie una parcella dalle ultime", Interno},

    RigaTasti{u"cornice", u"menu_salva", u"Ctrl+S", u"salva al suo posto"},
    RigaTasti{u"cornice", u"menu_savemod", u"Ctrl+Shift+M", u"salva come modello"},
    RigaTasti{u"cornice", u"menu_duplica", u"Ctrl+D", u"duplica"},
    RigaTasti{u"cornice", u"", u"Ctrl+W Ctrl+F4", u"chiude la parcella"},
    RigaTasti{u"cornice", u"", u"Ctrl+Tab", u"la parcella usata prima; tenendo Ctrl, una dopo l'altra",
              Interno},

    RigaTasti{u"frmParcelle", u"imgNext", u"Ctrl+PgDown", u"scheda seguente"},
    RigaTasti{u"frmParcelle", u"imgPrev", u"Ctrl+PgUp", u"scheda precedente"},
    RigaTasti{u"frmParcelle", u"cmdAnnulla", u"Ctrl+Z", u"annulla l'ultima modifica"},
    RigaTasti{u"frmParcelle", u"cmdRipeti", u"Ctrl+Y Ctrl+Shift+Z", u"ripete la modifica annullata"},
    RigaTasti{u"frmParcelle", u"pieCatena", u"Ctrl+T", u"tutti i conti del documento"},
    RigaTasti{u"frmParcelle", u"barPrint_print", u"Ctrl+P", u"va alla stampa, e da lì stampa"},

    RigaTasti{u"SchedaDatiBase", u"", u"F4", u"apre la rubrica", Interno},
    RigaTasti{u"SchedaDatiBase", u"", u"Alt+Down", u"apre la rubrica", Interno},
    RigaTasti{u"SchedaDatiBase", u"cmdScaglione", u"Ctrl+Return",
              u"apre la scheda del nominativo collegato; nel valore esatto prende lo scaglione offerto",
              Interno},

    RigaTasti{u"SchedaOnorari", u"", u"F6", u"dalla ricerca al catalogo, alle righe, al pannello"},
    RigaTasti{u"SchedaOnorari", u"", u"Shift+F6", u"indietro per la stessa via"},
    RigaTasti{u"SchedaSpese", u"cmdOfferta", u"Ctrl+Return Ctrl+Enter",
              u"scrive fra le esenti l'importo in vigore che è offerto"},
    RigaTasti{u"SchedaSpese", u"", u"F6", u"dalla ricerca al catalogo, alle righe"},
    RigaTasti{u"SchedaSpese", u"", u"Shift+F6", u"indietro per la stessa via"},

    RigaTasti{u"SchedaAcconti", u"", u"Ctrl+Return", u"nel nome della parcella associata, la apre", Interno},
    RigaTasti{u"SchedaAcconti", u"", u"Del", u"nel nome della parcella associata, toglie l'associazione",
              Interno},

    RigaTasti{u"PannelloModOno", u"cmdModOno", u"Return", u"conferma gli importi"},
    RigaTasti{u"PannelloModOno", u"cmdAnnModOno", u"Esc", u"chiude il pannello"},
    RigaTasti{u"PannelloModOno", u"", u"Space", u"sceglie la riga segnata"},

    RigaTasti{u"PannelloCatena", u"", u"Ctrl+T", u"chiude la finestrella"},
    RigaTasti{u"PannelloCatena", u"cmdChiudiCatena", u"Esc", u"torna alla parcella", Interno},
    RigaTasti{u"PannelloCatena", u"cmdCopiaCatena", u"Ctrl+C", u"copia la tabella", Interno},

    RigaTasti{u"ElencoControlli", u"", u"Return", u"porta al campo da guardare", Interno},

    RigaTasti{u"Griglia", u"", u"F2", u"apre la cella per scrivervi", Interno},
    RigaTasti{u"Griglia", u"", u"Return",
              u"passa alla cella seguente; negli elenchi apre o inserisce la voce", Interno},
    RigaTasti{u"Griglia", u"", u"F6", u"esce, verso il comando seguente", Interno},
    RigaTasti{u"Griglia", u"", u"Shift+F6", u"esce, verso il comando precedente", Interno},
    RigaTasti{u"Griglia", u"", u"Del", u"elimina le righe selezionate; negli elenchi, la voce segnata",
              Interno},
    RigaTasti{u"Griglia", u"", u"Shift+Space", u"seleziona la riga, o toglie la selezione", Interno},
    RigaTasti{u"Griglia", u"", u"Shift+Down", u"seleziona una riga dopo l'altra", Interno},
    RigaTasti{u"Griglia", u"", u"Shift+Up", u"seleziona una riga dopo l'altra, all'indietro", Interno},
    RigaTasti{u"Griglia", u"", u"Ctrl+A", u"seleziona tutte le righe", Interno},
    RigaTasti{u"Griglia", u"", u"Esc", u"toglie la selezione", Interno},
    RigaTasti{u"Griglia", u"barListaOnoDir_taglia", u"Ctrl+X", u"taglia le righe selezionate della parcella",
              Interno},
    RigaTasti{u"Griglia", u"barListaOnoDir_copia", u"Ctrl+C",
              u"copia le righe selezionate, o il testo della cella", Interno},
    RigaTasti{u"Griglia", u"barListaOnoDir_incolla", u"Ctrl+V", u"incolla le righe nella parcella", Interno},
    RigaTasti{u"Griglia", u"barListaOnoDir_annulla", u"Ctrl+Z", u"rimette nella parcella le righe tagliate",
              Interno},
    RigaTasti{u"Griglia", u"", u"Menu", u"i comandi sulla riga", Interno},

    RigaTasti{u"VistaStampa", u"", u"Ctrl+F", u"cerca nel documento", Interno},
    RigaTasti{u"VistaStampa", u"cmdRicerca_down", u"F3", u"il risultato seguente", Interno},
    RigaTasti{u"VistaStampa", u"cmdRicerca_up", u"Shift+F3", u"il risultato precedente", Interno},
    RigaTasti{u"VistaStampa", u"", u"Return", u"nella ricerca, il risultato seguente", Interno},
    RigaTasti{u"VistaStampa", u"", u"Shift+Return", u"nella ricerca, il risultato precedente", Interno},
    RigaTasti{u"VistaStampa", u"cmdRicerca_chiudi", u"Esc", u"chiude la ricerca", Interno},
    RigaTasti{u"VistaStampa", u"", u"Ctrl++", u"ingrandisce", Interno},
    RigaTasti{u"VistaStampa", u"", u"Ctrl+-", u"riduce", Interno},
    RigaTasti{u"VistaStampa", u"", u"Ctrl+0", u"torna alla grandezza normale", Interno},
    RigaTasti{u"VistaStampa", u"", u"Ctrl+1", u"la pagina intera nella finestra", Interno},
    RigaTasti{u"VistaStampa", u"", u"Ctrl+2", u"la pagina larga quanto la finestra", Interno},
    RigaTasti{u"VistaStampa", u"", u"Ctrl+C", u"copia il testo selezionato", Interno},
    RigaTasti{u"VistaStampa", u"", u"Ctrl+A", u"seleziona tutto il testo", Interno},
    RigaTasti{u"frmPrint", u"barPrint_print", u"Ctrl+P", u"stampa"},

    RigaTasti{u"frmTrovaParcella", u"", u"Ctrl+F", u"va alla casella di ricerca"},
    RigaTasti{u"frmTrovaParcella", u"barTrova_open barTrova_selez", u"Return", u"apre la parcella", Interno},
    RigaTasti{u"frmTrovaParcella", u"", u"Backspace", u"la cartella superiore", Interno},
    RigaTasti{u"frmTrovaParcella", u"barTrova_rename", u"F2", u"rinomina", Interno},
    RigaTasti{u"frmTrovaParcella", u"barTrova_delete", u"Del", u"elimina", Interno},
    RigaTasti{u"frmTrovaParcella", u"", u"F5", u"rilegge la cartella"},
    RigaTasti{u"frmTrovaParcella", u"", u"Ctrl+1", u"ordina per la prima colonna, e così fino a Ctrl+7"},
    RigaTasti{u"frmTrovaParcella", u"barTrova_csv", u"Ctrl+E",
              u"scrive le parcelle mostrate in un foglio di calcolo"},
    RigaTasti{u"frmTrovaParcella", u"", u"Esc", u"interrompe la ricerca, o chiude", Interno},

    RigaTasti{u"frmRubrica", u"barRubr_selez", u"Return",
              u"sceglie il nominativo per la parcella; senza parcella ne apre la scheda", Interno},
    RigaTasti{u"frmRubrica", u"barRubr_new", u"Ins", u"nuovo nominativo"},
    RigaTasti{u"frmRubrica", u"barRubr_edit", u"F2", u"modifica"},
    RigaTasti{u"frmRubrica", u"barRubr_delete", u"Del", u"elimina"},
    RigaTasti{u"frmRubrica", u"barRubr_rimetti", u"Ctrl+Z", u"rimette il nominativo eliminato"},
    RigaTasti{u"frmRubrica", u"barRubr_search", u"Ctrl+F", u"cerca per campo"},
    RigaTasti{u"frmRubrica", u"", u"F3", u"ripete la ricerca"},
    RigaTasti{u"frmRubrica", u"", u"Shift+F3", u"ripete la ricerca all'indietro"},
    RigaTasti{u"frmRubrica", u"barRubr_importa", u"Ctrl+I", u"importa"},
    RigaTasti{u"frmRubrica", u"barRubr_esporta", u"Ctrl+E", u"esporta"},
    RigaTasti{u"frmRubrica", u"", u"F5", u"rilegge l'archivio"},
    RigaTasti{u"frmRubrica", u"", u"Esc", u"svuota la ricerca, poi chiude", Interno},

    RigaTasti{u"frmScheda", u"barScheda_do", u"F10 Ctrl+S Ctrl+Return Ctrl+Enter", u"salva e chiude"},
    RigaTasti{u"frmScheda", u"", u"PgDown", u"scheda seguente, se è aperta in sola lettura"},
    RigaTasti{u"frmScheda", u"", u"PgUp", u"scheda precedente, se è aperta in sola lettura"},
    RigaTasti{u"frmScheda", u"barScheda_off", u"Esc", u"chiude", Interno},

    RigaTasti{u"frmRicerche", u"cmdExit", u"Esc", u"chiude la ricerca", Interno},
    RigaTasti{u"frmRicerche", u"", u"Down", u"nel testo, gli ultimi cercati", Interno},
    RigaTasti{u"frmRicerche", u"cmdFind_1", u"F3", u"trova il successivo"},
    RigaTasti{u"frmRicerche", u"", u"Shift+F3", u"trova il precedente"},

    RigaTasti{u"frmTermini", u"cmdRicorrenti", u"Ctrl+T", u"termini ricorrenti"},
    RigaTasti{u"frmTermini", u"cmdStrada", u"Ctrl+D", u"perché questa data"},
    RigaTasti{u"frmTermini", u"cmdAgenda", u"Ctrl+G", u"aggiungi al calendario"},
    RigaTasti{u"frmTermini", u"mnuScheda", u"Ctrl+Shift+P", u"stampa la scheda"},
    RigaTasti{u"frmTermini", u"mnuStampa", u"Ctrl+P", u"stampa"},
    RigaTasti{u"frmTerminiSeq", u"cmdStrada", u"Ctrl+D", u"perché queste date"},
    RigaTasti{u"frmTerminiSeq", u"cmdAgenda", u"Ctrl+G", u"aggiungi al calendario"},
    RigaTasti{u"frmTerminiSeq", u"mnuScheda", u"Ctrl+Shift+P", u"stampa la scheda"},
    RigaTasti{u"frmTerminiSeq", u"mnuPrint", u"Ctrl+P", u"stampa"},
    RigaTasti{u"frmRicorrenti", u"txtCerca", u"Ctrl+F", u"va alla casella di ricerca"},
    RigaTasti{u"frmRicorrenti", u"cmdScegli", u"Return", u"riporta il termine nel computo", Interno},
    RigaTasti{u"frmStrada", u"cmdCopia", u"Ctrl+C", u"copia i passi"},
    RigaTasti{u"frmStrada", u"cmdStampa", u"Ctrl+P", u"stampa i passi"},
    RigaTasti{u"frmAgenda", u"cmdCopia", u"Ctrl+C", u"copia le scadenze come testo"},
    RigaTasti{u"frmContrib", u"", u"Ctrl+C", u"copia il contributo"},
    RigaTasti{u"frmUltimiCalcoli", u"cmdRiprendi", u"Return", u"rimette i dati nella finestra e ricalcola",
              Interno},
    RigaTasti{u"frmUltimiCalcoli", u"cmdRinomina", u"F2", u"rinomina il calcolo"},
    RigaTasti{u"frmUltimiCalcoli", u"cmdElimina", u"Del", u"toglie il calcolo dall'elenco", Interno},
    RigaTasti{u"Calendario", u"cmdMesePrima", u"PgUp", u"mese precedente", Interno},
    RigaTasti{u"Calendario", u"cmdMeseDopo", u"PgDown", u"mese seguente", Interno},
    RigaTasti{u"Calendario", u"cmdAnnoPrima", u"Ctrl+PgUp", u"anno precedente", Interno},
    RigaTasti{u"Calendario", u"cmdAnnoDopo", u"Ctrl+PgDown", u"anno seguente", Interno},
    RigaTasti{u"Calendario", u"", u"Home", u"il primo del mese", Interno},
    RigaTasti{u"Calendario", u"", u"End", u"l'ultimo del mese", Interno},
    RigaTasti{u"Calendario", u"", u"Return", u"sceglie il giorno", Interno},

    RigaTasti{u"frmDocumenti", u"txtCerca", u"Ctrl+F", u"va alla casella di ricerca"},
    RigaTasti{u"frmDocumenti", u"", u"F5", u"rilegge l'elenco"},
    RigaTasti{u"frmDocumenti", u"", u"Esc", u"svuota la ricerca, poi chiude", Interno},
    RigaTasti{u"frmWeb", u"txtGuida", u"Ctrl+Shift+F", u"cerca in tutta la guida"},
    RigaTasti{u"frmWeb", u"cmdCerca", u"Ctrl+F", u"cerca nella pagina"},
    RigaTasti{u"frmWeb", u"cmdSuccessivo", u"F3", u"il risultato seguente"},
    RigaTasti{u"frmWeb", u"cmdPrecedente", u"Shift+F3", u"il risultato precedente"},
    RigaTasti{u"frmWeb", u"cmdIndietro", u"Alt+Left", u"la pagina vista prima"},
    RigaTasti{u"frmWeb", u"cmdAvanti", u"Alt+Right", u"la pagina vista dopo"},
    RigaTasti{u"frmWeb", u"", u"Ctrl++", u"ingrandisce"},
    RigaTasti{u"frmWeb", u"", u"Ctrl+-", u"riduce"},
    RigaTasti{u"frmWeb", u"", u"Ctrl+0", u"torna alla grandezza normale"},
    RigaTasti{u"frmWeb", u"cmdStampa", u"Ctrl+P", u"stampa la pagina"},
    RigaTasti{u"frmSetup", u"cmdSaveImpost", u"Ctrl+S", u"memorizza le impostazioni"},
    RigaTasti{u"frmSetup", u"", u"Ctrl+PgDown Ctrl+Tab", u"scheda seguente"},
    RigaTasti{u"frmSetup", u"", u"Ctrl+PgUp Ctrl+Shift+Tab", u"scheda precedente"},
    RigaTasti{u"frmSetup", u"cmdHelp", u"Shift+F1", u"mostra o nasconde l'aiuto della scheda"},
    RigaTasti{u"SchedaDesktop", u"cmdModIco", u"Return", u"modifica l'icona", Interno},
    RigaTasti{u"SchedaDesktop", u"cmdDelIco", u"Del", u"elimina l'icona", Interno},
    RigaTasti{u"SchedaDesktop", u"", u"Alt+Up", u"sposta l'icona in su"},
    RigaTasti{u"SchedaDesktop", u"", u"Alt+Down", u"sposta l'icona in giù"},

    RigaTasti{u"frmSfoglia", u"", u"Return", u"entra nella cartella", Interno},
    RigaTasti{u"frmSfoglia", u"", u"Backspace", u"la cartella superiore", Interno},
};

/// What the menus of all calculators have; a row above for the same entry of one of them wins.
constexpr std::array DelleCalcolatrici{
    RigaTasti{u"", u"mnuNew", u"Ctrl+N", u"nuovo calcolo"},
    RigaTasti{u"", u"mnuScheda", u"Ctrl+P", u"stampa il calcolo"},
    RigaTasti{u"", u"mnuCopiaTabella", u"Ctrl+Shift+C", u"copia il calcolo come tabella"},
    RigaTasti{u"", u"mnuUltimi", u"Ctrl+L", u"ultimi calcoli"},
};

/// The calculators in the order of their icons.
std::vector<const Comando*> Calcolatrici()
{
    std::vector<const Comando*> Tutte = ComandiDellaScrivania();
    std::erase_if(Tutte, [](const Comando* Riga) { return Riga->Finestra.isEmpty(); });
    return Tutte;
}

/// The rows of a calculator: its buttons, its menu as all have it, then what is its own there.
void AggiungiCalcolatrice(std::vector<RigaTasti>& Tutte, const Comando& Riga)
{
    std::vector<RigaTasti> Sue;
    std::ranges::copy_if(Proprie, std::back_inserter(Sue),
                         [&](const RigaTasti& Una) { return Una.Finestra == Riga.Finestra; });
    const auto NelMenu =
        std::ranges::find_if(Sue, [](const RigaTasti& Una) { return Una.Comando.startsWith(u"mnu"); });
    if (!Riga.Copia.isEmpty())
        Tutte.push_back({Riga.Finestra, u"cmdCopia", u"Ctrl+C", Riga.Copia});
    Tutte.insert(Tutte.end(), Sue.begin(), NelMenu);
    Sue.erase(Sue.begin(), NelMenu);
    for (RigaTasti Comune : DelleCalcolatrici) {
        Comune.Finestra = Riga.Finestra;
        const auto Sua = std::ranges::find(Sue, Comune.Comando, &RigaTasti::Comando);
        Tutte.push_back(Sua == Sue.end() ? Comune : *Sua);
        if (Sua != Sue.end())
            Sue.erase(Sua);
    }
    Tutte.insert(Tutte.end(), Sue.begin(), Sue.end());
}

std::vector<RigaTasti> Componi()
{
    std::vector<RigaTasti> Tutte;
    for (const Comando& Riga : Comandi())
        if (!Riga.Tasti.isEmpty())
            Tutte.push_back({.Finestra = Riga.Parola == u"lock" ? QStringView(u"cornice") : u"frmMain",
                             .Comando = Riga.Parola,
                             .Tasti = Riga.Tasti,
                             .Effetto = Riga.Effetto});
    const std::vector<const Comando*> Loro = Calcolatrici();
    std::ranges::copy_if(Proprie, std::back_inserter(Tutte), [&](const RigaTasti& Una) {
        return std::ranges::find(Loro, Una.Finestra, &Comando::Finestra) == Loro.end();
    });
    for (const Comando* Una : Loro)
        AggiungiCalcolatrice(Tutte, *Una);
    return Tutte;
}

/// A calculator without a part above has one before that of their last calculations.
std::vector<GruppoTasti> ComponiGruppi()
{
    std::vector<GruppoTasti> Tutti;
    for (const GruppoTasti& Gruppo : Gruppi) {
        if (Gruppo.Finestra == u"frmUltimiCalcoli")
            for (const Comando* Una : Calcolatrici())
                if (std::ranges::find(Gruppi, Una->Finestra, &GruppoTasti::Finestra) == Gruppi.end())
                    Tutti.push_back({Una->Finestra, Una->Icona.Etichetta});
        Tutti.push_back(Gruppo);
    }
    return Tutti;
}

}  // namespace

const std::vector<RigaTasti>& TabellaTasti()
{
    static const std::vector<RigaTasti> Tutte = Componi();
    return Tutte;
}

std::span<const GruppoTasti> GruppiTasti()
{
    static const std::vector<GruppoTasti> Tutti = ComponiGruppi();
    return Tutti;
}

QString TastiDi(QStringView Finestra, QStringView Comando)
{
    for (const RigaTasti& Riga : TabellaTasti())
        if (Riga.Finestra == Finestra && Riga.Comando.toString().split(u' ').contains(Comando))
            return Riga.Tasti.toString().section(u' ', 0, 0);
    return {};
}
