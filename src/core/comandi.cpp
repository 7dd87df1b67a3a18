#include "core/comandi.h"

#include "core/aperture.h"
#include "core/indirizzi.h"
#include "core/modErrori.h"
#include "core/modLancio.h"
#include "core/modTesti.h"
#include "core/posti.h"
#include "core/sessione.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int SchedaStampa = 4;
constexpr int SchedaSetupIcone = 3;

/// What a command is called with.
struct Chiamata
{
    int Indice;
    const QString& Par;
};

/// What the system answered, an error when it is not 0.
void Verifica(int Esito)
{
    if (Esito != 0)
        throw Errore(Esito);
}

template <class F, class... A>
void Apri(const F& Apritore, A&&... Valori)
{
    if (Apritore)
        Apritore(std::forward<A>(Valori)...);
}

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
        Apri(Aperture.ApriParcella, QString(), C.Indice, QString());
    else
        Apri(Aperture.ApriParcella, QString(), 0, C.Par);
}

template <int Selettore>
void Trova(const Chiamata&)
{
    Apri(Aperture.TrovaParcella, Selettore);
}

template <bool ComeModello>
void Salva(const Chiamata& C)
{
    Apri(Aperture.SalvaParcella, C.Indice, ComeModello);
}

void Stampa(const Chiamata& C)
{
    Apri(Aperture.VaiAllaScheda, C.Indice, SchedaStampa);
}

void StampaWord(const Chiamata& C)
{
    Verifica(ApriConSistema(FileDocumento(C.Indice)));
}

void Kr2(const Chiamata&)
{
    const QString Programma = TrovaFile(sessione::PercorsoVDM + u"calcaprima.exe"_s);
    if (!sessione::PercorsoVDM.isEmpty() && EsisteFile(Programma)) {
        Verifica(AvviaProgramma(Programma, {}, sessione::PercorsoVDM));
        return;
    }
    QString Testo = u"Non è stato rilevato il programma Calcanova 2.0!"_s;
    if (!sessione::PercorsoVDM.isEmpty())
        Testo += u"Percorso: \n"_s + sessione::PercorsoVDM;
    MsgBox(Testo);
}

void Recupera(const Chiamata&)
{
    Apri(Aperture.Impostazioni, SchedaSetupIcone, false);
}

void Setup(const Chiamata&)
{
    Apri(Aperture.Impostazioni, 0, false);
}

void Novita(const Chiamata&)
{
    ApriPDF(sessione::PercorsoProg + u"NovitaKR5.pdf"_s);
}

void Aiuto(const Chiamata&)
{
    ApriPDF(sessione::PercorsoProg + u"GuidaOperativa.pdf"_s);
}

/// Every note is closed, asking; an answer of Cancel saves nothing but does not stop the shutdown.
void Spegni(const Chiamata&)
{
    for (int i = 1; i <= UltimaParcella(); ++i) {
        if (InfoParcelle[size_t(i)].Libera || !Aperture.ChiudiParcella)
            continue;
        // The note of a matter has ended the process by itself: the others are not asked about any more.
        if (Aperture.ChiudiParcella(i) && !sessione::RichiestaPV2.ID.isEmpty())
            return;
    }
    Termina();
}

void Proteggi(const Chiamata& C)
{
    if (Occupato(C))
        Apri(Aperture.Proteggi, C.Indice);
    else
        MsgErrore(u"Occorre prima selezionare una parcella!"_s);
}

void Guida(const Chiamata& C)
{
    static constexpr std::array Pagine{2, 13, 15, 17, 18};  // by the tab in view
    const int Scheda = Occupato(C) && Aperture.SchedaCorrente ? Aperture.SchedaCorrente(C.Indice) : -1;
    const bool Nota = Scheda >= 0 && Scheda < int(Pagine.size());
    ApriPDF(sessione::PercorsoProg + u"GuidaGiuridica.pdf"_s, Nota ? Pagine[size_t(Scheda)] : 0);
}

void Leggimi(const Chiamata&)
{
    const QString Atteso = sessione::PercorsoProg + u"avvertenze.doc"_s;
    const QString File = TrovaFile(Atteso);
    if (EsisteFile(File))
        ApriDocWord(File);
    else
        MsgBox(Atteso + u" non è stato trovato!"_s);
}

template <auto Apritore>
void Apertura(const Chiamata&)
{
    Apri(Aperture.*Apritore);
}

void Pagina(QStringView Percorso)
{
    ApriUrl(indirizzi::Server.toString() + Percorso.toString());
}

void Rilascio(const Chiamata&)
{
    Pagina(u"/vdm/setup/notes.htm");
}

void Collegamenti(const Chiamata&)
{
    Pagina(u"/vdm/link.htm");
}

void Assistenza(const Chiamata&)
{
    Pagina(u"/vdm.asp");
}

/// A word, when it acts, and what it does.
struct Voce
{
    QStringView Parola;
    bool (*Guardia)(const Chiamata&);
    void (*Azione)(const Chiamata&);
};

constexpr std::array Tabella{
    Voce{u"new", Sempre, Nuova},
    Voce{u"open", Sempre, Trova<0>},
    Voce{u"openpar", Sempre, Trova<0>},
    Voce{u"openmod", Sempre, Trova<1>},
    Voce{u"save", DaSalvare, Salva<false>},
    Voce{u"savepar", DaSalvare, Salva<false>},
    Voce{u"savemod", DaSalvare, Salva<true>},
    Voce{u"print", Occupato, Stampa},
    Voce{u"printopz", Occupato, Stampa},
    Voce{u"printword", HaPosto, StampaWord},
    Voce{u"kr2", Sempre, Kr2},
    Voce{u"clienti", Sempre, Apertura<&Apritori::Rubrica>},
    Voce{u"codfis", Sempre, Apertura<&Apritori::CodiceFiscale>},
    Voce{u"setup", Sempre, Setup},
    Voce{u"recupera", Sempre, Recupera},
    Voce{u"contrib", Sempre, Apertura<&Apritori::Contributo>},
    Voce{u"termini", Sempre, Apertura<&Apritori::Termini>},
    Voce{u"sequenz", Sempre, Apertura<&Apritori::TerminiSequenziali>},
    Voce{u"inter", Sempre, Apertura<&Apritori::Interessi>},
    Voce{u"istat", Sempre, Apertura<&Apritori::Istat>},
    Voce{u"novita", Sempre, Novita},
    Voce{u"help", Sempre, Aiuto},
    Voce{u"off", Sempre, Spegni},
    Voce{u"lock", HaPosti, Proteggi},
    Voce{u"upgrade", Sempre, Apertura<&Apritori::Aggiorna>},
    Voce{u"docum", Sempre, Apertura<&Apritori::Documenti>},
    Voce{u"release", Sempre, Rilascio},
    Voce{u"readme", Sempre, Leggimi},
    Voce{u"guida", Sempre, Guida},
    Voce{u"about", Sempre, Apertura<&Apritori::Informazioni>},
    Voce{u"link", Sempre, Collegamenti},
    Voce{u"assistenza", Sempre, Assistenza},
};

}  // namespace

void EseguiComando(const QString& Comando, int Indice, const QString& Par)
{
    const auto Trovata = std::ranges::find(Tabella, Comando, &Voce::Parola);
    const Chiamata C{Indice, Par};
    if (Trovata == Tabella.end() || !Trovata->Guardia(C))
        return;
    Protetta([&] { Trovata->Azione(C); });
}

std::vector<QString> ParoleComando()
{
    std::vector<QString> Parole;
    for (const Voce& Una : Tabella)
        Parole.push_back(Una.Parola.toString());
    return Parole;
}
