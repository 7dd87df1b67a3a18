#include "core/app/apritori.h"

#include "addressbook/exchange/archiviointero.h"
#include "addressbook/richiesta.h"
#include "addressbook/windows/frmImporta.h"
#include "addressbook/windows/rubriche.h"
#include "calculators/norme/contributovigente.h"
#include "calculators/windows/frmCodFis.h"
#include "calculators/windows/frmContrib.h"
#include "calculators/windows/frmInteressi.h"
#include "calculators/windows/frmIstat.h"
#include "calculators/windows/frmTermini.h"
#include "calculators/windows/frmTerminiSeq.h"
#include "core/aperture.h"
#include "core/app/altriavvii.h"
#include "core/app/avvio.h"
#include "core/app/paginaavviso.h"
#include "core/app/primouso.h"
#include "core/app/tastoguida.h"
#include "core/desktop/frmMain.h"
#include "core/desktop/frmStudio.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "core/settings/frmSetup.h"
#include "core/settings/frmSfoglia.h"
#include "feenote/finder/windows/frmTrovaParcella.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "feenote/windows/noteaperte.h"
#include "platform/base/errore.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/singola.h"
#include "platform/kit/trattieni.h"
#include "platform/system/aparte.h"
#include "update/viewer/frmWeb.h"
#include "update/windows/frmAbout.h"
#include "update/windows/frmDocumenti.h"
#include "update/windows/frmUpgrade.h"
#include "update/windows/ricerca.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

/// Runs something on the window of a place, if it was ever made.
template <class Azione>
void Su(int Indice, Azione Fai)
{
    if (frmParcelle* Finestra = Parcelle(Indice))
        Fai(*Finestra);
}

/// Opens a note in the frame, which may have gone with the last one while its windows were kept for reuse.
void ApriNellaCornice(const QString& Percorso, int Socio, const QString& ID)
{
    (void)Singola<frmMain>().Area();
    ApriParcella(Percorso, Socio, ID);
}

void RiempiParcelle()
{
    Aperture.ApriParcella = ApriNellaCornice;
    Aperture.MostraParcella = MostraParcella;
    Aperture.TrovaParcella = [](int Selettore, const QString& Cartella, int Indice, const QString& Parent) {
        return Singola<frmTrovaParcella>().OpenParcMod(Selettore, Cartella, Indice, Parent);
    };
    Aperture.RinfrescaTrova = [] {
        if (const auto& Trova = SeCaricato<frmTrovaParcella>)
            Trova->RinfrescaTrova();
    };
    Aperture.ScegliCartella = [](const QString& Titolo, const QString& Inizio) {
        return frmSfoglia(QApplication::activeWindow()).Scegli(Titolo, Inizio);
    };
    Aperture.ChiudiParcella = ChiudiParcella;
    Aperture.SalvaParcella = [](int Indice, bool ComeModello) {
        Su(Indice, [=](frmParcelle& Finestra) { (void)Finestra.SalvaParcella(ComeModello); });
    };
    Aperture.SalvaSulPosto = [](int Indice) {
        Su(Indice, [](frmParcelle& Finestra) { (void)Finestra.SalvaSulPosto(); });
    };
    Aperture.SalvaConNome = [](int Indice) {
        Su(Indice, [](frmParcelle& Finestra) { (void)Finestra.SalvaConNome(); });
    };
    Aperture.DuplicaParcella = DuplicaParcella;
    Aperture.VaiAllaScheda = [](int Indice, int Scheda) {
        Su(Indice, [=](frmParcelle& Finestra) { Finestra.VaiAllaScheda(Scheda); });
    };
    Aperture.SegnaModificata = [](int Indice, bool Si) {
        Su(Indice, [=](frmParcelle& Finestra) { Finestra.SetModificata(Si); });
    };
    Aperture.Proteggi = [](int Indice) { Su(Indice, [](frmParcelle& Finestra) { Finestra.Proteggi(); }); };
    Aperture.SceltaDaRubrica = ConsegnaScelta;
    Aperture.NominativoCambiato = SegueNominativo;
    Aperture.OffriRecupero = OffriRecupero;
    Aperture.NoteInVista = NoteInVista;
    Aperture.PortaSpese = PortaNellaNota;
    Aperture.AnticipazioneNotifiche = AnticipazioneInVigore;
    Aperture.SchedaCorrente = [](int Indice) {
        const frmParcelle* Finestra = Parcelle(Indice);
        return Finestra ? Finestra->Scheda() : -1;
    };
}

void RiempiRubrica()
{
    Aperture.RubricaParcella = ApriRubrica;
    Aperture.Finestre[u"clienti"_s] = [] {
        ApriRubrica({.DataSource = sessione::ArchivioCliCon,
                     .RecordSource = u"clienti"_s,
                     .Parent = u"cli"_s,
                     .MenuStart = {},
                     .KeyStart = {}});
    };
    Aperture.Finestre[u"importa"_s] = [] { Singola<frmImporta>().Mostra(); };
    Aperture.ImportaArchivio = [](const QString& File) {
        Singola<frmImporta>().Mostra({}, {}, frmImporta::ArchivioIntero, File);
    };
    Aperture.ParcellaChiusa = ChiudiRubricaDi;
    Aperture.ChiudiRubriche = ChiudiRubriche;
}

/// A sheet, in the one viewer of sheets: the next one takes its place.
void ApriPagina(const QString& Pagina, const QString& Titolo)
{
    auto& Visore = Singola<frmWeb>();
    Visore.Indirizzo = Pagina;
    Visore.Titolo = Titolo;
    Visore.Mostra();
}

/// The sheet of another item, where one is on view.
void SeguiPagina(const QString& Pagina, const QString& Titolo)
{
    frmWeb* Visore = SeCaricato<frmWeb>;
    if (!Visore || !Visore->isVisible() || Visore->windowTitle() != Titolo || Visore->Indirizzo == Pagina)
        return;
    Visore->Indirizzo = Pagina;
    try {
        Visore->Aggiorna();
    } catch (const Errore&) {
        return;  // shown when the sheet is asked for, not at each step in the catalogue
    }
}

/// The notice has a viewer of its own, so that no sheet comes into the window with its box. Where it was the
/// only window, the process ends with it.
void ApriAvviso(const PaginaAvviso& Avviso)
{
    auto Visore = std::make_unique<frmWeb>();
    Visore->Indirizzo = Avviso.Pagina;
    Visore->Titolo = Avviso.Titolo;
    Visore->Marcatore = Avviso.Marcatore;
    Visore->resize(aspetto::Pixel(Avviso.LarghezzaTwip), aspetto::Pixel(Avviso.AltezzaTwip));
    Visore->Mostra();
    Visore->setAttribute(Qt::WA_DeleteOnClose);
    TrattieniDietroIBox(Visore.get());
    Collega(Visore.get(), &QDialog::finished, qApp, FineSenzaFinestre);
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, Visore.get(), &QObject::deleteLater);
    (void)Visore.release();  // from here on its closing deletes it
}

/// The one window of its kind opens by the word of a command.
template <class Finestra>
void Registra(const QString& Parola)
{
    Aperture.Finestre[Parola] = [] { Singola<Finestra>().Mostra(); };
}

void RiempiAggiornamenti()
{
    Aperture.CercaAggiornamenti = CercaAggiornamenti;
    Aperture.Aggiorna = [](const QString& Parola) { Singola<frmUpgrade>().Mostra(Parola); };
    Aperture.Finestre[u"upgrade"_s] = [] { Aperture.Aggiorna({}); };
    Aperture.TassiCambiati = [] {
        if (frmInteressi* Modulo = SeCaricato<frmInteressi>)
            Modulo->MostraDataArchivio();
        if (frmIstat* Modulo = SeCaricato<frmIstat>)
            Modulo->MostraDataArchivio();
    };
}

}  // namespace

void RiempiApritori()
{
    RiempiParcelle();
    RiempiRubrica();
    RiempiAggiornamenti();
    Aperture.PaginaWeb = ApriPagina;
    Aperture.PaginaSegue = SeguiPagina;
    Aperture.Avviso = ApriAvviso;
    Aperture.PaginaTasti = [] { ApriGuida(PaginaDeiTasti.toString()); };
    Registra<frmTermini>(u"termini"_s);
    Registra<frmTerminiSeq>(u"sequenz"_s);
    Registra<frmInteressi>(u"inter"_s);
    Registra<frmIstat>(u"istat"_s);
    Registra<frmCodFis>(u"codfis"_s);
    Registra<frmContrib>(u"contrib"_s);
    Registra<frmDocumenti>(u"docum"_s);
    Registra<frmAbout>(u"about"_s);
    Aperture.Impostazioni = [](int Scheda, bool Modale) {
        auto& Modulo = Singola<frmSetup>();
        Modale ? Modulo.MostraModale(Scheda) : Modulo.Mostra(Scheda);
    };
    Aperture.ImpostazioniChiuse = LasciaSceltaTariffa;
    Aperture.CasellaImpostazioni = [](impostazioni::CasellaStudio Quale) {
        Singola<frmSetup>().MostraCasella(Quale);
    };
    Aperture.ImpostazioniCambiate = [] {
        // A user folder that has just been chosen, or left to the program, is made ready as at the first use.
        Protetta(PreparaDatiUtente);
        if (const auto& Studio = SeCaricato<frmStudio>)
            Studio->SegnaRidisegno();
        if (const auto& Setup = SeCaricato<frmSetup>)
            Setup->SegueArchivio();
        SegueTariffaScelta();
        ChiudiRubricheAltrui();
    };
    Aperture.IconaPersonale = [](int Riga, bool Elimina) {
        auto& Modulo = Singola<frmSetup>();
        Modulo.Mostra(frmSetup::SchedaPersonalizza);
        Elimina ? Modulo.EliminaIcona(Riga) : Modulo.ModificaIcona(Riga);
    };
    Aperture.LasciaCartellaUtente = [] {
        LasciaCopie();
        // No later start looks there; the folder may be on a share that does not answer.
        FaiAParte([Cartella = sessione::UserFolder] { TogliRestiDiArchivi(Cartella); });
    };

    Aperture.AreaParcelle = [] { return Singola<frmMain>().Area(); };
    Aperture.ParcellaAttivata = [](int Indice) { Singola<frmMain>().ImpostaTag(QString::number(Indice)); };
    Aperture.UltimaParcellaChiusa = DopoUltimaParcella;
}
