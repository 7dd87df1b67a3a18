#include "core/comandi.h"

#include "core/aperture.h"
#include "core/indirizzi.h"
#include "core/modErrori.h"
#include "core/modLancio.h"
#include "core/modTesti.h"
#include "core/posti.h"
#include "core/schedeimpostazioni.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/messaggi.h"
#include "platform/system/shell.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// ---- guards -------------------------------------------------------------------------------------

bool Sempre(const Chiamata&)
{
    return true;
}

/// The index names a place; element 0 is none.
bool HaPosto(const Chiamata& C)
{
    return C.Indice >= 1 && C.Indice <= UltimaParcella();
}

bool Occupato(const Chiamata& C)
{
    return HaPosto(C) && !InfoParcelle[size_t(C.Indice)].Libera;
}

/// An unmodified note is not saved again.
bool DaSalvare(const Chiamata& C)
{
    return Occupato(C) && InfoParcelle[size_t(C.Indice)].Modificata;
}

bool HaPosti(const Chiamata&)
{
    return UltimaParcella() >= 1;
}

// ---- actions ------------------------------------------------------------------------------------

void Nuova(const Chiamata& C)
{
    if (C.Par.isEmpty())
        Invoca(Aperture.ApriParcella, QString(), C.Indice, QString());
    else
        Invoca(Aperture.ApriParcella, QString(), 0, C.Par);
}

template <int Selettore>
void Trova(const Chiamata& C)
{
    Invoca(Aperture.TrovaParcella, Selettore, QString(), C.Indice, QString());
}

template <bool ComeModello>
void Salva(const Chiamata& C)
{
    Invoca(Aperture.SalvaParcella, C.Indice, ComeModello);
}

void Stampa(const Chiamata& C)
{
    Invoca(Aperture.VaiAllaScheda, C.Indice, SchedaDiStampa);
}

void StampaWord(const Chiamata& C)
{
    VerificaEsito(ApriConSistema(FileDocumento(C.Indice)));
}

void Kr2(const Chiamata&)
{
    const QString Programma = TrovaFile(sessione::PercorsoVDM + u"calcaprima.exe"_s);
    if (!sessione::PercorsoVDM.isEmpty() && EsisteFile(Programma)) {
        VerificaEsito(AvviaProgramma(Programma, {}, sessione::PercorsoVDM));
        return;
    }
    QString Testo = u"Non è stato rilevato il programma Calcanova 2.0!"_s;
    if (!sessione::PercorsoVDM.isEmpty())
        Testo += u"Percorso: \n"_s + sessione::PercorsoVDM;
    else if (const std::optional<Errore> Guasto = GuastoImpostazioni(u"VDM2"_s))
        Testo += u'\n' + Guasto->Descrizione;
    MsgErrore(Testo);
}

void Recupera(const Chiamata&)
{
    Invoca(Aperture.Impostazioni, impostazioni::SchedaPersonalizza, false);
}

void Setup(const Chiamata&)
{
    Invoca(Aperture.Impostazioni, impostazioni::SchedaDatiStudio, false);
}

void Novita(const Chiamata&)
{
    ApriPDF(sessione::PercorsoProg + u"NovitaKR5.pdf"_s);
}

void Aiuto(const Chiamata&)
{
    ApriPDF(sessione::PercorsoProg + u"GuidaOperativa.pdf"_s);
}

/// Every note and every address book is closed, asking; an answer of Cancel saves nothing but does not stop
/// the shutdown.
void Spegni(const Chiamata&)
{
    for (int i = 1; i <= UltimaParcella(); ++i) {
        if (InfoParcelle[size_t(i)].Libera || !Aperture.ChiudiParcella)
            continue;
        // The note of a matter has ended the process by itself: the others are not asked about any more.
        if (Aperture.ChiudiParcella(i) && !sessione::RichiestaPV2.ID.isEmpty())
            return;
    }
    Invoca(Aperture.ChiudiRubriche);
    Termina();
}

/// A closed window keeps its record, which is asked for a password before it is asked whether it is on
/// screen.
void Proteggi(const Chiamata& C)
{
    if (HaPosto(C))
        Invoca(Aperture.Proteggi, C.Indice);
    else
        MsgErrore(u"Occorre prima selezionare una parcella!"_s);
}

QString FileGuida()
{
    return sessione::PercorsoProg + u"GuidaGiuridica.pdf"_s;
}

void Guida(const Chiamata& C)
{
    static constexpr std::array Pagine{2, 13, 15, 17, 18};  // by the tab in view
    static_assert(Pagine.size() == SchedaDiStampa + 1);
    const int Scheda = Occupato(C) && Aperture.SchedaCorrente ? Aperture.SchedaCorrente(C.Indice) : -1;
    const bool Nota = Scheda >= 0 && Scheda < int(Pagine.size());
    ApriPDF(FileGuida(), Nota ? Pagine[size_t(Scheda)] : 0);
}

void Leggimi(const Chiamata&)
{
    const QString Atteso = sessione::PercorsoProg + u"avvertenze.doc"_s;
    const QString File = TrovaFile(Atteso);
    if (EsisteFile(File))
        ApriDocWord(File);
    else
        MsgErrore(Atteso + u" non è stato trovato!"_s);
}

/// A page of the program's own, which stands in where there is no server.
QString PaginaPropria(QStringView Nome)
{
    return sessione::PercorsoProg + Nome.toString();
}

constexpr QStringView PaginaCollegamenti = u"link.htm";
constexpr QStringView PaginaAssistenza = u"assistenza.htm";

void Rilascio(const Chiamata& C)
{
    if (const QString Server = indirizzi::Server(); !Server.isEmpty())
        ApriUrl(Server + u"/vdm/setup/notes.htm"_s);
    else
        Novita(C);
}

void Collegamenti(const Chiamata&)
{
    if (const QString Server = indirizzi::Server(); !Server.isEmpty())
        ApriUrl(Server + u"/vdm/link.htm"_s);
    else
        Invoca(Aperture.PaginaWeb, PaginaPropria(PaginaCollegamenti), u"Elenco siti web utili"_s);
}

void Assistenza(const Chiamata&)
{
    if (const QString Server = indirizzi::Server(); !Server.isEmpty())
        ApriUrl(Server + u"/vdm.asp"_s);
    else
        Invoca(Aperture.PaginaWeb, PaginaPropria(PaginaAssistenza), u"Assistenza tecnica"_s);
}

// ---- what keeps a command from working ----------------------------------------------------------

QString SenzaFinestra(QStringView Parola)
{
    return Aperture.Ha(Parola) ? QString() : u"non ancora disponibile in questa versione"_s;
}

QString SenzaPagina(QStringView Parola)
{
    const QStringView Nome = Parola == u"link" ? PaginaCollegamenti : PaginaAssistenza;
    const bool Mostrabile = !indirizzi::Server().isEmpty() || EsisteFile(TrovaFile(PaginaPropria(Nome)));
    return Mostrabile ? QString() : u"la pagina manca dalla cartella del programma"_s;
}

QString SenzaGuida(QStringView)
{
    return EsisteFile(TrovaFile(FileGuida())) ? QString()
                                              : u"il documento manca dalla cartella del programma"_s;
}

enum GruppoBarra { Parcelle, Archivi, Calcoli, Aiuti, Opzioni, Guide };

// What a new calculator needs besides its row here: docs/architecture.md, "What to touch". Places leave room
// between them.
constexpr std::array TabellaComandi{
    Comando{.Parola = u"new",
            .Guardia = Sempre,
            .Azione = Nuova,
            .Tasti = u"Ctrl+N",
            .Effetto = u"parcella nuova",
            .Procedura = true,
            .Pulsante = {10, Parcelle, u"Nuova", u"Nuova parcella"},
            .Icona = {10, u"Parcellazione nuove tariffe"}},
    Comando{.Parola = u"open",
            .Guardia = Sempre,
            .Azione = Trova<0>,
            .Pulsante = {20, Parcelle, u"Apri", u"Apri parcella"}},
    Comando{.Parola = u"openpar",
            .Guardia = Sempre,
            .Azione = Trova<0>,
            .Tasti = u"Ctrl+O",
            .Effetto = u"parcelle salvate",
            .Procedura = true},
    Comando{.Parola = u"openmod",
            .Guardia = Sempre,
            .Azione = Trova<1>,
            .Tasti = u"Ctrl+Shift+O",
            .Effetto = u"modelli",
            .Procedura = true},
    Comando{.Parola = u"save",
            .Guardia = DaSalvare,
            .Azione = Salva<false>,
            .Pulsante = {30, Parcelle, u"Salva", u"Salva parcella"}},
    Comando{.Parola = u"savepar", .Guardia = DaSalvare, .Azione = Salva<false>},
    Comando{.Parola = u"savemod", .Guardia = DaSalvare, .Azione = Salva<true>},
    Comando{.Parola = u"print", .Guardia = Occupato, .Azione = Stampa},
    Comando{.Parola = u"printopz", .Guardia = Occupato, .Azione = Stampa},
    Comando{.Parola = u"printword", .Guardia = HaPosto, .Azione = StampaWord},
    Comando{
        .Parola = u"kr2", .Guardia = Sempre, .Azione = Kr2, .Icona = {20, u"Parcellazione vecchie tariffe"}},
    Comando{.Parola = u"clienti",
            .Guardia = Sempre,
            .Tasti = u"Ctrl+Shift+R",
            .Effetto = u"rubrica",
            .Procedura = true,
            .Pulsante = {50, Archivi, u"Rubrica", u"Rubrica clienti e controparti"},
            .Icona = {30, u"Rubrica clienti"}},
    Comando{.Parola = u"codfis",
            .Guardia = Sempre,
            .Tasti = u"Ctrl+Shift+F",
            .Effetto = u"codice fiscale",
            .Procedura = true,
            .Icona = {80, u"Codice fiscale"},
            .Finestra = u"frmCodFis",
            .Copia = u"copia il codice"},
    Comando{.Parola = u"setup",
            .Guardia = Sempre,
            .Azione = Setup,
            .Tasti = u"Ctrl+Shift+P",
            .Effetto = u"impostazioni",
            .Procedura = true,
            .Pulsante = {130, Opzioni, u"Opzioni", u"Impostazioni programma"},
            .Icona = {150, u"Impostazioni"}},
    Comando{.Parola = u"recupera", .Guardia = Sempre, .Azione = Recupera, .Procedura = true},
    Comando{.Parola = u"contrib",
            .Guardia = Sempre,
            .Tasti = u"Ctrl+Shift+C",
            .Effetto = u"contributo unificato",
            .Procedura = true,
            .Pulsante = {60, Calcoli, u"Contributo", u"Calcolo contributo unificato"},
            .Icona = {90, u"Contributo unificato"},
            .Finestra = u"frmContrib"},
    Comando{.Parola = u"termini",
            .Guardia = Sempre,
            .Tasti = u"Ctrl+Shift+T",
            .Effetto = u"computo termini",
            .Procedura = true,
            .Pulsante = {90, Calcoli, u"Termini", u"Calcolo dei termini"},
            .Icona = {40, u"Computo termini"},
            .Finestra = u"frmTermini",
            .Copia = u"copia la scadenza"},
    Comando{.Parola = u"sequenz",
            .Guardia = Sempre,
            .Tasti = u"Ctrl+Shift+S",
            .Effetto = u"termini sequenziali",
            .Procedura = true,
            .Pulsante = {100, Calcoli, u"Sequenze", u"Calcolo dei termini sequenziali"},
            .Icona = {50, u"Termini sequenziali"},
            .Finestra = u"frmTerminiSeq",
            .Copia = u"copia le scadenze"},
    Comando{.Parola = u"inter",
            .Guardia = Sempre,
            .Tasti = u"Ctrl+Shift+I",
            .Effetto = u"interessi",
            .Procedura = true,
            .Pulsante = {70, Calcoli, u"Interessi", u"Calcolo interessi legali e comm.li"},
            .Icona = {60, u"Calcolo interessi"},
            .Finestra = u"frmInteressi",
            .Copia = u"copia il totale, o le righe selezionate"},
    Comando{.Parola = u"istat",
            .Guardia = Sempre,
            .Tasti = u"Ctrl+Shift+V",
            .Effetto = u"rivalutazione Istat",
            .Procedura = true,
            .Pulsante = {80, Calcoli, u"Istat", u"Rivalutazione istat"},
            .Icona = {70, u"Rivalutazione Istat"},
            .Finestra = u"frmIstat",
            .Copia = u"copia l'importo rivalutato"},
    Comando{.Parola = u"novita", .Guardia = Sempre, .Azione = Novita, .Icona = {130, u"Novità"}},
    Comando{.Parola = u"help",
            .Guardia = Sempre,
            .Azione = Aiuto,
            .Tasti = u"Ctrl+F1",
            .Effetto = u"la guida operativa in PDF",
            .Procedura = true,
            .Pulsante = {140, Guide, u"Aiuto", u"Guida in linea"}},
    Comando{.Parola = u"off", .Guardia = Sempre, .Azione = Spegni, .Procedura = true},
    Comando{.Parola = u"lock",
            .Guardia = HaPosti,
            .Azione = Proteggi,
            .Tasti = u"Ctrl+Shift+L",
            .Effetto = u"protegge la parcella",
            .Pulsante = {40, Parcelle, u"Proteggi", u"Proteggi parcella"}},
    Comando{
        .Parola = u"upgrade", .Guardia = Sempre, .Procedura = true, .Icona = {140, u"Aggiorna programma"}},
    Comando{.Parola = u"docum",
            .Guardia = Sempre,
            .Tasti = u"Ctrl+Shift+D",
            .Effetto = u"documentazione normativa",
            .Pulsante = {120, Aiuti, u"Norme", u"Documentazione normativa"},
            .Icona = {100, u"Documentazione normativa"}},
    Comando{.Parola = u"release", .Guardia = Sempre, .Azione = Rilascio},
    Comando{.Parola = u"readme", .Guardia = Sempre, .Azione = Leggimi},
    Comando{.Parola = u"guida",
            .Guardia = Sempre,
            .Azione = Guida,
            .Manca = SenzaGuida,
            .Tasti = u"Shift+F1",
            .Effetto = u"la guida giuridica in PDF, al capitolo della scheda",
            .Pulsante = {110, Aiuti, u"Guida", u"Guida giuridica alle funzioni del quadro"},
            .Icona = {110, u"Guida giuridica"}},
    Comando{.Parola = u"about", .Guardia = Sempre, .Procedura = true},
    Comando{.Parola = u"link",
            .Guardia = Sempre,
            .Azione = Collegamenti,
            .Manca = SenzaPagina,
            .Icona = {120, u"Elenco siti web utili"}},
    Comando{.Parola = u"assistenza",
            .Guardia = Sempre,
            .Azione = Assistenza,
            .Manca = SenzaPagina,
            .Procedura = true},
};

const Comando* Cerca(QStringView Parola)
{
    const auto Trovato = std::ranges::find(TabellaComandi, Parola, &Comando::Parola);
    return Trovato == TabellaComandi.end() ? nullptr : &*Trovato;
}

/// The rows that have a control of a kind, in the order of its places.
template <class Controllo>
std::vector<const Comando*> InOrdine(Controllo Comando::*Tipo)
{
    std::vector<const Comando*> Trovati;
    for (const Comando& Riga : TabellaComandi)
        if ((Riga.*Tipo).Posto > 0)
            Trovati.push_back(&Riga);
    std::ranges::sort(Trovati, {}, [Tipo](const Comando* Riga) { return (Riga->*Tipo).Posto; });
    return Trovati;
}

}  // namespace

void EseguiComando(const QString& Parola, int Indice, const QString& Par)
{
    const Comando* Riga = Cerca(Parola);
    const Chiamata C{Parola, Indice, Par};
    if (!Riga || !Riga->Guardia(C))
        return;
    Protetta([&] {
        if (ApreFinestra(*Riga))
            Aperture.Apri(C.Parola);
        else
            Riga->Azione(C);
    });
}

std::span<const Comando> Comandi()
{
    return TabellaComandi;
}

bool ApreFinestra(const Comando& Riga)
{
    return !Riga.Azione;
}

std::vector<const Comando*> ComandiDellaBarra()
{
    return InOrdine(&Comando::Pulsante);
}

std::vector<const Comando*> ComandiDellaScrivania()
{
    return InOrdine(&Comando::Icona);
}

QString Impedimento(QStringView Parola)
{
    const Comando* Riga = Cerca(Parola);
    if (Riga && ApreFinestra(*Riga))
        return SenzaFinestra(Parola);
    return Riga && Riga->Manca ? Riga->Manca(Parola) : QString();
}
