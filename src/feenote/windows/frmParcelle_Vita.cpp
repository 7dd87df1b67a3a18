// Life of the window: new, load, save, protect, close.
#include "core/posti.h"
#include "feenote/modNomiProposti.h"
#include "feenote/modNuovaParcella.h"
#include "feenote/modTotali.h"
#include "feenote/windows/frmParcelle.h"

#include "core/aperture.h"
#include "core/modErrori.h"
#include "core/parametri.h"
#include "core/rapportiunici.h"
#include "core/sessione.h"
#include "feenote/companion/modRichiesta.h"
#include "feenote/file/errorecarico.h"
#include "feenote/file/modLettura.h"
#include "feenote/file/modPosaFile.h"
#include "feenote/file/modRecupero.h"
#include "feenote/file/modSalvataggio.h"
#include "feenote/file/nomenota.h"
#include "feenote/windows/PannelloCatena.h"
#include "feenote/windows/SchedaAcconti.h"
#include "feenote/windows/SchedaDatiBase.h"
#include "feenote/windows/SchedaOnorari.h"
#include "feenote/windows/SchedaSpese.h"
#include "feenote/windows/SchedaStampa.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/notarecente.h"
#include "feenote/windows/noteaperte.h"
#include "feenote/windows/ui_frmParcelle.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/grid/griglia.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/system/attese.h"
#include "platform/system/messaggi.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"
#include "platform/system/sincrono.h"
#include "tariffs/modTariffe.h"

#include <QApplication>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Where a window keeps how its splitter or its columns stand.
QString ChiaveDisposizione(const QObject* Di)
{
    return u"Disposizione_"_s + Di->objectName();
}

/// Property of a splitter that the user has moved.
constexpr auto Mosso = "mosso";

QString LeggiDisposizione(const QObject* Di)
{
    return Impostazione(ChiaveDisposizione(Di));
}

void SalvaDisposizione(const QObject* Di, const QString& Valore)
{
    if (Valore != LeggiDisposizione(Di))
        RicordaImpostazioni({{ChiaveDisposizione(Di), Valore}});
}

/// True when the reference database, with which a note is read, can be.
bool TariffeLeggibili(const Decreto& Legge)
{
    try {
        return ApriTariffe(Legge).EsisteTabella(u"Autorità"_s);
    } catch (const Errore&) {
        return false;
    }
}

/// Reads a note. A file that is something else says so by its name.
void LeggiParcella(Parcella& Nota, const QString& Percorso, const std::function<void()>& Aperta)
{
    try {
        CaricaDati(Nota, Percorso, Aperta);
    } catch (const ErroreCarico& Guasto) {
        constexpr std::array NessunaParcella{errori::FormatoDatabase, errori::TabellaMancante,
                                             errori::ElementoMancante};
        // A note is not to blame for what its tariff lacks.
        if (std::ranges::find(NessunaParcella, Guasto.Numero) == NessunaParcella.end() ||
            !TariffeLeggibili(*Guasto.Tariffa))
            throw;
        throw Errore(Guasto.Numero, NomeFile(Percorso) + u" non è una parcella di Calcanova"_s);
    }
}

/// A copy of a version that kept no stamp: a file no younger than the copy is the one that it was made from.
ImprontaNota ImprontaDellaCopia(const CopiaRecupero& Copia)
{
    const ImprontaNota Ora = ImprontaDi(Copia.Percorso);
    return Copia.Impronta.Byte < 0 && Ora.Quando <= Copia.Quando ? Ora : Copia.Impronta;
}

/// What a copy takes along of the payments, before the end of its sentence; empty where there are none. They
/// belong to the other matter more often than not.
QString AccontiDellaCopia(const Parcella& Nota)
{
    if (Nota.xAcconti.Vuota())
        return {};
    const SommeAcconti Somme = SommaAcconti(Nota.xAcconti);
    const QString Euro =
        Format(Somme.AccontiCorrispettivi + Somme.AccontiSpeseImp + Somme.AccontiSpeseEsenti, ModelloImporto);
    return Nota.xAcconti.Righe() == 1 ? u"anche l'acconto, di %1 euro, ma "_s.arg(Euro)
                                      : u"anche gli acconti: %1, per %2 euro, ma "_s.arg(
                                            QString::number(Nota.xAcconti.Righe()), Euro);
}

/// Pause after a copy, in times of what the last one took: those of a very long note stay a small part of the
/// user's time.
constexpr int PausaPerCopia = 20;

}  // namespace

void frmParcelle::Nuova(const QString& /*ID*/)
{
    TornaAllaBase();
    CambiaNota(true);
    const RapportiUnici UnaVolta;
    NuovaParcella(Nota);
    PrendiPratica();
    RilegaRighe();
    SetModificata(false);
    CominciaNota(true);
    MostraTutto();
}

void frmParcelle::PrendiPratica()
{
    if (!sessione::RichiestaPV2.ID.isEmpty())
        ApplicaRichiesta(Nota, sessione::RichiestaPV2);
}

bool frmParcelle::Carica(const QString& Percorso)
{
    TornaAllaBase();
    CambiaNota(true);
    const RapportiUnici UnaVolta;
    ImprontaNota Trovata;
    const bool Letta =
        Protetta([&] { LeggiParcella(Nota, Percorso, [&] { Trovata = ImprontaDi(Percorso); }); });
    if (Letta)
        ImprontaMia = Trovata;
    else
        PrendiPratica();
    AdottaRiferimento(Nota);
    RilegaRighe();
    const bool Diversa = Nota.Modificata;  // not all of the file could be read
    SetModificata(false);
    CominciaNota(!Diversa);  // no step back leads to what the file holds
    if (Diversa)
        SetModificata(true);
    MostraTutto();
    return Letta;
}

void frmParcelle::FuocoIniziale()
{
    QWidget* Primo = Base->CasellaIniziale();
    for (const QScrollArea* Scorre : findChildren<QScrollArea*>())
        Scorre->verticalScrollBar()->setValue(0);
    Primo->setFocus(Qt::OtherFocusReason);
    MettiInVista(Primo);
}

void frmParcelle::RimettiDisposizione()
{
    for (QSplitter* Divisore : findChildren<QSplitter*>()) {
        Divisore->restoreState(QByteArray::fromBase64(LeggiDisposizione(Divisore).toLatin1()));
        Collega(Divisore, &QSplitter::splitterMoved, Divisore,
                [Divisore] { Divisore->setProperty(Mosso, true); });
    }
    for (Griglia* Elenco : findChildren<Griglia*>())
        Elenco->ImpostaLarghezze(LeggiDisposizione(Elenco));
}

void frmParcelle::RicordaDisposizione() const
{
    for (const QSplitter* Divisore : findChildren<QSplitter*>())
        if (Divisore->property(Mosso).toBool())
            SalvaDisposizione(Divisore, QString::fromLatin1(Divisore->saveState().toBase64()));
    for (const Griglia* Elenco : findChildren<Griglia*>())
        if (Elenco->ColonneMosse())
            SalvaDisposizione(Elenco, Elenco->Larghezze());
}

void frmParcelle::RilegaRighe()
{
    Comune.Voci = {};
    Comune.Cliccata = nullptr;
    SvuotaAppunti(Comune.Copiate);
    Onorari->NuovaNota();
    Spese->NuovaNota();
    Acconti->NuovaNota();
    Stampa->NuovaNota();
    DimenticaOgniLettera();
}

void frmParcelle::Recupera(const CopiaRecupero& Trovata)
{
    TornaAllaBase();
    CambiaNota(true);
    const RapportiUnici UnaVolta;
    const bool Letta = Protetta([&] { RecuperaNota(Nota, Trovata); });
    if (Letta && !Nota.Percorso.isEmpty())
        ImprontaMia = ImprontaDellaCopia(Trovata);
    if (!Letta)
        PrendiPratica();
    AdottaRiferimento(Nota);
    RilegaRighe();
    SetModificata(Letta);
    CominciaNota(!Letta);
    MostraTutto();
    if (Letta && ScriviCopia())
        EliminaCopia(Trovata);
}

bool frmParcelle::Salva(const std::function<std::optional<FileSalvato>()>& Scrivi,
                        const std::function<void(const QString& Percorso)>& Dillo)
{
    if (DialogoAperto || !ConcludiCampo())
        return false;
    const QString Prima = Nota.Percorso;
    return InDialogo([&] {
        try {
            const std::optional<FileSalvato> Scritta = Scrivi();
            if (!Scritta)
                return false;
            ImpostaNome(Nota.Nome);
            ImpostaTitolo(Nota.Nome);
            ImprontaMia = ImprontaDi(Nota.Percorso);
            // There is nothing left to recover, though the mark stays until the user has read.
            TogliCopia(Posto);
            // What comes late, behind the message, is not in the file: the click of a key with Alt takes its
            // time.
            Nota.Modificata = false;
            Storia.SegnaSalvata(Nota);
            Protetta([this] { RicordaNota(Nota); });
            Dillo(Scritta->Percorso);
            DiScostato(*Scritta);
            SetModificata(Nota.Modificata);
            SegueSalvataggio(*this, Prima);
            ControllaMulti();
            MostraTutto();
            Stampa->DopoSalvataggio();
            Invoca(Aperture.RinfrescaTrova);
            return true;
        } catch (const NonConfermato& Guasto) {
            // The file is this note's, and is saved again while the disk has not confirmed it.
            ImpostaNome(Nota.Nome);
            ImpostaTitolo(Nota.Nome);
            ImprontaMia = ImprontaDi(Nota.Percorso);
            SetModificata(true);
            SegueSalvataggio(*this, Prima);
            MsgErrore(u"Codice errore: %1\n%2"_s.arg(Guasto.Numero).arg(Guasto.Descrizione));
            return false;
        } catch (const Errore& Guasto) {
            MsgErrore(u"Codice errore: %1\n%2"_s.arg(Guasto.Numero).arg(Guasto.Descrizione));
            return false;
        }
    });
}

bool frmParcelle::SalvaParcella(bool ComeModello)
{
    return Salva([&] { return SalvaConDialogo(Nota, ComeModello); }, DiSalvata);
}

bool frmParcelle::SalvaConNome()
{
    return Salva([this] { return SalvaConDialogo(Nota, false, NomeProposto(Nota)); }, DiSalvata);
}

bool frmParcelle::DettoSalvata()
{
    if (Nota.Modificata || Stampa->RiprovaConsegna())
        return false;
    QString Detto = u"Niente da salvare"_s;
    if (!Nota.Percorso.isEmpty() && !NellaCartellaModelli(Nota.Percorso)) {
        const ImprontaNota Ora = ImprontaDi(Nota.Percorso);
        if (Ora == ImprontaNota())
            return false;
        if (ImprontaMia != Ora)
            Detto = u"Il file è stato cambiato da altri"_s;
        else if (Stampa->DaConsegnare())
            Detto = u"Già salvata; scegliere la fattura per consegnarla"_s;
        else
            Detto = u"Già salvata"_s;
    }
    ui->lblSalvata->Mostra(Detto);
    return true;
}

bool frmParcelle::SalvaSulPosto()
{
    if (DialogoAperto || !ConcludiCampo())
        return false;
    if (DettoSalvata())
        return true;
    if (!HaFileSuo(Nota))
        return SalvaConNome();
    // Keys pressed by habit replace nothing that somebody else has saved since, nor while that is being
    // asked.
    std::optional<ImprontaNota> Vista = ImprontaMia;
    const auto Immutata = [&] { return Vista == ImprontaDi(Nota.Percorso); };
    const auto Chiedi = [&] {
        const ImprontaNota Ora = ImprontaDi(Nota.Percorso);
        if (MsgBox(u"La parcella %1 è stata cambiata da altri dopo che è stata aperta.\n"
                   u"Sostituirla con questa?"_s.arg(NomeFile(Nota.Percorso)),
                   vbYesNo + vbQuestion + vbDefaultButton2, TitoloDomanda.toString()) != vbYes)
            return false;
        Vista = Ora;
        return true;
    };
    return Salva(
        [&] {
            return SalvaSulFile(Nota, {Immutata, Chiedi});
        },
        [this](const QString&) {
            ui->lblSalvata->Mostra(u"Salvata alle "_s + Adesso().toString(u"HH:mm"_s));
        });
}

std::optional<bool> frmParcelle::ChiediCliente()
{
    if (DialogoAperto || !ConcludiCampo())
        return std::nullopt;
    const int Risposta = InDialogo([this] {
        return MsgBoxPulsanti(
            u"La copia avrà righe, parametri e testi di questa parcella,\n%1senza numero, data e "
            u"password.\nMantenere anche il cliente %2?"_s.arg(AccontiDellaCopia(Nota),
                                                               Nota.txtCliente.Testo),
            vbYesNoCancel + vbQuestion, TitoloDomanda.toString(),
            {u"Mantieni"_s, u"Senza cliente"_s, u"Annulla"_s});
    });
    if (Risposta != vbYes && Risposta != vbNo)
        return std::nullopt;
    return Risposta == vbYes;
}

void frmParcelle::Prendi(const Parcella& Copia)
{
    TornaAllaBase();
    CambiaNota(true);
    // Name and modes of insertion belong to the window, whose buttons show them.
    const Parcella Sua = Nota;
    Nota = Copia;
    Nota.Nome = Sua.Nome;
    Nota.InsUltimaOno = Sua.InsUltimaOno;
    Nota.InsUltimaDir = Sua.InsUltimaDir;
    RilegaRighe();
    SetModificata(true);
    CominciaNota(false);
    MostraTutto();
}

void frmParcelle::ImpostaNome(const QString& Nome)
{
    Nota.Nome = Nome;
    InfoParcelle[size_t(Posto)].Nome = Nome;
}

void frmParcelle::Proteggi()
{
    if (DialogoAperto)
        return;
    const bool InVista = !InfoParcelle[size_t(Posto)].Libera;
    InDialogo([&] { ProteggiNota(Nota, InVista); });
    if (!InVista)
        return;
    SetModificata(Nota.Modificata);
    MostraTutto();
}

bool frmParcelle::Impedita() const
{
    const QWidget* Modale = QApplication::activeModalWidget();
    if (!Modale || Modale->windowModality() != Qt::WindowModal)
        return Modale;
    const QWidget* Padre = Modale->parentWidget();
    while (Padre && Padre->window() != window())
        Padre = Padre->window()->parentWidget();
    return Padre;
}

bool frmParcelle::ChiediChiusura()
{
    // Whoever asked goes on in this window when he has his answer.
    if (DialogoAperto || Impedita() || !ConcludiCampo())
        return false;
    Stampa->ConcludiInvii();
    if (!Nota.Modificata)
        return LasciaConsegna();
    PortaNotaDavanti(Posto);
    const int Risposta = InDialogo([this] {
        return MsgBox(Titolo() + u"\nVuoi salvare la parcella prima di chiudere?"_s,
                      vbYesNoCancel + vbQuestion, TitoloDomanda.toString());
    });
    if (Risposta == vbNo)
        return LasciaConsegna();
    if (Risposta != vbYes)
        return false;
    SalvaParcella(false);
    // A save that was cancelled or refused keeps the note on screen.
    return !Nota.Modificata && LasciaConsegna();
}

/// Only the window knows of an invoice that was not handed over: opened again, the note has nothing to save.
bool frmParcelle::LasciaConsegna()
{
    if (!Stampa->DaConsegnare())
        return true;
    PortaNotaDavanti(Posto);
    // The save of another document hands nothing over.
    const QString Come =
        Stampa->RiprovaConsegna()
            ? QString()
            : u": per consegnarla occorre sceglierla come documento e salvare di nuovo la parcella"_s;
    return InDialogo([&] {
               return MsgBox(
                   u"%1\nLa fattura non è stata consegnata a Praxivo%2.\nChiudere ugualmente?"_s.arg(Titolo(),
                                                                                                     Come),
                   vbYesNo + vbQuestion + vbDefaultButton2, TitoloDomanda.toString());
           }) == vbYes;
}

void frmParcelle::Scarica()
{
    Protetta([this] { RicordaDisposizione(); });
    SetModificata(false);
    if (Importi)
        Importi->hide();
    RilegaRighe();
    Storia = {};  // a client's texts do not wait here for the next note
    InfoParcelle[size_t(Posto)].Libera = true;
    CambiaNota(false);
}

void frmParcelle::CambiaNota(bool Viene)
{
    ImprontaMia.reset();
    ui->lblSalvata->Togli();
    static int Ultimo = 0;
    const int Prima = std::exchange(NumeroNota, Viene ? ++Ultimo : 0);
    if (Prima > 0 && Aperture.ParcellaChiusa)
        Protetta([&] { Aperture.ParcellaChiusa(Posto, Prima); });
}

void frmParcelle::SetModificata(bool Valore)
{
    ::SetModificata(Nota, Valore);
    InfoParcelle[size_t(Posto)].Modificata = Valore;
    MostraSegni();
    if (!Valore) {
        TimerCopia.stop();
        TogliCopia(Posto);
    } else if (!TimerCopia.isActive()) {
        TimerCopia.start(int(std::max<qint64>(attese::CopiaMs, DurataCopiaMs * PausaPerCopia)));
    }
    AvvisaAssociate(*this);
}

void frmParcelle::CambiataDa(const QString& Passo)
{
    (void)RivediStato();
    SetModificata(Nota.Modificata);
    ui->pieCatena->Cambiata();
    Stampa->SeguonoControlli();
    Storia.Segna(Nota, Passo);
    MostraAnnulla();
}

QScopedValueRollback<bool> frmParcelle::ApriDomanda()
{
    CopiaInAttesa();
    return QScopedValueRollback<bool>(DialogoAperto, true);
}

void frmParcelle::CollegaCopia()
{
    TimerCopia.setSingleShot(true);
    Collega(&TimerCopia, &QTimer::timeout, this, [this] { TimerCopia_Timer(); });
    // An end that asks about nothing leaves the copy behind, complete: it is offered at the next start.
    Collega(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, [this] { CopiaInAttesa(); });
}

void frmParcelle::SpostaCopia()
{
    TogliCopia(Posto);
    if (Nota.Modificata)
        TimerCopia.start(attese::CopiaMs);
}

void frmParcelle::CopiaInAttesa()
{
    if (TimerCopia.isActive())
        (void)ScriviCopia();
}

void frmParcelle::TimerCopia_Timer()
{
    // While a message is up the rule that shows it has not come to its end.
    if (Impedita()) {
        TimerCopia.start();
        return;
    }
    QElapsedTimer Orologio;
    Orologio.start();
    (void)ScriviCopia();
    DurataCopiaMs = Orologio.elapsed();
}

bool frmParcelle::ScriviCopia()
{
    TimerCopia.stop();
    try {
        AggiornaCopia(Nota, Posto, ImprontaMia.value_or(ImprontaNota()));
        return true;
    } catch (const Errore&) {
        return false;  // a disk without room for the copy is no reason to stop the user's work
    }
}

void frmParcelle::closeEvent(QCloseEvent* Evento)
{
    Evento->setAccepted(ChiudiParcella(Posto));
}
