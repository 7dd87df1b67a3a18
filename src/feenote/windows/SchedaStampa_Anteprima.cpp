// Composition, the preview and its toolbar.
#include "feenote/windows/SchedaStampa.h"

#include "core/comandi.h"
#include "core/modErrori.h"
#include "core/posti.h"
#include "core/sessione.h"
#include "feenote/companion/modPV2.h"
#include "feenote/modDatiStampa.h"
#include "feenote/modNomiProposti.h"
#include "feenote/modParti.h"
#include "feenote/windows/PannelloFattura.h"
#include "feenote/windows/bottoniesporta.h"
#include "feenote/windows/cornicenota.h"
#include "feenote/windows/elencocontrolli.h"
#include "feenote/windows/guidacontestuale.h"
#include "feenote/windows/mostra.h"
#include "feenote/windows/ui_SchedaStampa.h"
#include "platform/base/errore.h"
#include "platform/preview/barraanteprima.h"
#include "platform/preview/stampante.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/esportato.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "print/modClausole.h"
#include "print/modEsporta.h"
#include "print/modStampe.h"

#include <QEvent>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

/// The setting holds "-1" until somebody names an editor.
bool HaEditor()
{
    return !sessione::WP.isEmpty() && sessione::WP != u"-1";
}

/// Number of the failure that the user knows of; 0: none.
int GiaDetto(const Parcella& Nota)
{
    return Nota.ArchivioNonLetto ? Nota.ArchivioNonLetto->Numero : 0;
}

}  // namespace

void SchedaStampa::CollegaAnteprima()
{
    constexpr int LatoIcona = 18;
    BarraAnteprima* Barra = ui->barPrint;
    Barra->setIconSize({LatoIcona, LatoIcona});
    Barra->ImpostaVista(ui->vp);
    Barra->AggiungiPagine();
    Barra->AggiungiZoom();
    Barra->addSeparator();
    Barra->Aggiungi(u"print"_s, u"Stampa parcella"_s, [this] { StampaParcella(); });
    Barra->Aggiungi(u"pdf"_s, u"Salva in PDF"_s, [this] { SalvaPdf(); });
    Barra->Aggiungi(u"invia"_s, u"Invia per posta"_s, [this] { Invia(); });
    Barra->Aggiungi(u"word"_s, u"Esporta in Word"_s, [this] { EsportaDocumento(); });
    cmdEditor = Barra->Aggiungi(u"wp"_s, u"Avvia editor alternativo"_s, [this] { ApriNellEditor(); });
    Barra->addSeparator();
    cmdGuida = Barra->Aggiungi(u"help"_s, u"Guida contestuale"_s,
                               [this] { EseguiComando(u"guida"_s, Cornice.Indice(), {}); });
    SeguiGuida(Barra, cmdGuida);
    auto* Spazio = new QWidget(Barra);  // pushes the number to the right end
    Spazio->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    Barra->addWidget(Spazio);
    Barra->AggiungiNumero();
}

void SchedaStampa::NuovaNota()
{
    ui->vp->Svuota();
    ui->lblUnaPagina->hide();
    ClausoleComposte.clear();
    NonConsegnata = false;
    ui->cmdFatturaXml->setChecked(false);
    Elettronica->NuovaNota();
}

void SchedaStampa::Entra()
{
    AbilitaBarra();  // the settings may have named another editor meanwhile
    Controlli->Rileggi();
    (void)RileggiArchivio();
    Ricomponi();
    ui->vp->ImpostaPreviewPage(1);
}

bool SchedaStampa::RileggiArchivio()
{
    if (!AspettaArchivio(Nota))
        return true;
    const bool Letto = RiprovaArchivio(Nota);
    Cornice.Riordinata();  // what the archive has given is no step of the user's
    Cornice.MostraTutto();
    return Letto;
}

bool SchedaStampa::SiCompone()
{
    Cornice.ComponiInAttesa();
    const bool Aspettava = AspettaArchivio(Nota);
    if (Aspettava && !RileggiArchivio()) {
        GestioneErrori(Errore(Nota.ArchivioNonLetto->Numero, Nota.ArchivioNonLetto->Descrizione));
        return false;
    }
    if (Nota.cmbTipoStampa == NessunaVoce)
        return true;
    // The clauses may have been mended since the page was composed, or damaged. Who looks takes nothing of
    // what was written in the document's file.
    const QString& Manca = ui->vp->Foglio().Manca;
    if (Aspettava || !Manca.isEmpty() || StatoClausole() != ClausoleComposte)
        if (const std::optional<Errore> Guasto = Composta(Aspettava ? Uscita::File : Uscita::Pagina)) {
            GestioneErrori(*Guasto);
            return false;
        }
    if (Manca.isEmpty())
        return true;
    // Nobody who signs it sees what it lacks.
    return Cornice.InDialogo([&] {
        return MsgBox(u"Attenzione, "_s + Manca + u"\nFare uscire lo stesso il documento?"_s,
                      vbYesNo + vbQuestion + vbDefaultButton2, TitoloDomanda.toString());
    }) == vbYes;
}

void SchedaStampa::Ricomponi()
{
    // A file that cannot be written is no message here: the page on view is whole. An archive that cannot be
    // read was told when it was asked, and stands in the page's margin.
    if (Nota.cmbTipoStampa != NessunaVoce)
        Protetta([this] { (void)Componi(); }, GiaDetto(Nota));
}

QString SchedaStampa::StatoClausole() const
{
    const QString Nome = NomeClausole(Nota.cmbTipoStampa, Nota);
    if (Nome.isEmpty())
        return {};
    const QString File = FileClausole(Nome);
    return File + u'|' + QString::number(DataFile(File).toMSecsSinceEpoch());
}

bool SchedaStampa::event(QEvent* Evento)
{
    if (Evento->type() == QEvent::WindowActivate && isVisible() && FatturaInVista() && !Cornice.InDomanda())
        Elettronica->Mostra();  // card and settings may have been completed meanwhile
    if (Evento->type() == QEvent::WindowActivate && isVisible())
        Controlli->Rileggi();
    // Who comes back from the word processor sees what he has saved there.
    if (Evento->type() == QEvent::WindowActivate && isVisible() && !Cornice.InDomanda() &&
        StatoClausole() != ClausoleComposte)
        Cornice.Ricomponi();
    return QWidget::event(Evento);
}

std::optional<Errore> SchedaStampa::Componi(Uscita Dove)
{
    VistaStampa* vp = ui->vp;
    ClausoleComposte = StatoClausole();
    // What was drawn before a failure is shown.
    const auto AllaFine = qScopeGuard([this, vp] {
        vp->Aggiorna();
        if (vp->PaginaInVista() != 1)
            vp->ImpostaPreviewPage(1);
        MostraPagina();
        MostraAvviso();
        ui->barPrint->MostraPagina();
    });
    if (TogliIbanAssente(Nota))
        mostra::Segno(ui->chkIBAN, Nota.chkIBAN);
    if (Dove == Uscita::Pagina) {
        (void)Anteprima(vp->Foglio(), Nota, Nota.cmbTipoStampa);
        return std::nullopt;
    }
    const auto Cartella = Dove == Uscita::Compagna ? std::optional(CartellaCompagna()) : std::nullopt;
    auto Esito = AnteprimaConEsportazione(vp->Foglio(), Nota, Nota.cmbTipoStampa,
                                          SteloDocumento(Cornice.Indice()), Cartella, vp->CartaInUso());
    MemorizzaUltimaStampa(Nota);
    return Esito;
}

void SchedaStampa::DopoSalvataggio()
{
    if (Nota.cmbTipoStampa != NessunaVoce) {
        const bool Compagna = !sessione::RichiestaPV2.ID.isEmpty();
        if (Compagna)
            (void)RileggiArchivio();
        std::optional<Errore> Guasto = Composta(Uscita::File);
        if (!Guasto && Compagna)
            Guasto = Composta(Uscita::Compagna);
        if (Compagna)
            Consegna(Guasto);
        else if (Guasto && Guasto->Numero != GiaDetto(Nota))
            GestioneErrori(*Guasto);
    }
    InvioMsgPV2();
}

std::optional<Errore> SchedaStampa::Composta(Uscita Dove)
{
    try {
        (void)Componi(Dove);
        return std::nullopt;
    } catch (...) {
        return ErroreCorrente();
    }
}

void SchedaStampa::Consegna(const std::optional<Errore>& Guasto)
{
    // An invoice that waits does so whatever document is saved meanwhile.
    const bool Fattura = TipoDi(Nota.cmbTipoStampa).EFattura;
    if (!Guasto) {
        if (Fattura)
            NonConsegnata = !ConsegnaFattura(Nota);
        return;
    }
    // What could not be composed leaves nothing to hand over: the last figures are another document's.
    NonConsegnata = NonConsegnata || Fattura;
    GestioneErrori(
        Fattura ? Errore(Guasto->Numero, Guasto->Descrizione +
                                             u";\nla fattura non è stata consegnata a Praxivo: salvare di "
                                             u"nuovo la parcella"_s)
                : *Guasto);
}

bool SchedaStampa::RiprovaConsegna() const
{
    return NonConsegnata && TipoDi(Nota.cmbTipoStampa).EFattura;
}

void SchedaStampa::StampaParcella()
{
    VistaStampa* vp = ui->vp;
    // The keys come while the button is disabled, too.
    if (!ETipoStampa(Nota.cmbTipoStampa) || Cornice.InDomanda())
        return;
    if (!SiCompone())
        return;
    if (Cornice.InDialogo([vp] { return PrintDialog(*vp); }) == 0)
        return;
    if (PrintDoc(*vp, Nota.Nome))
        Cornice.DocumentoUscito(Nota.cmbTipoStampa);
    ui->barPrint->MostraPagina();  // another paper may have given other pages
}

void SchedaStampa::EsportaDocumento()
{
    if (Cornice.InDomanda() || !SiCompone())
        return;
    if (EsportaInWord(Cornice.Indice(), [&] { return Componi(); }))
        Cornice.DocumentoUscito(Nota.cmbTipoStampa);
}

/// Only a file that is another composition's is brought up to date: the button leads back to a document that
/// is open in the editor, and what was written there stays.
void SchedaStampa::ApriNellEditor()
{
    if (Cornice.InDomanda())
        return;
    if (!SiCompone())
        return;
    const bool Pronto = EsportazioneAllaPari(ui->vp->Foglio(), Nota, Nota.cmbTipoStampa,
                                             SteloDocumento(Cornice.Indice()), ui->vp->CartaInUso());
    if (Pronto || AggiornaDocumento(Cornice.Indice(), [&] { return Componi(); }))
        AvviaEditor(Cornice.Indice());
}

void SchedaStampa::SalvaPdf()
{
    if (Cornice.InDomanda())
        return;
    if (!SiCompone())
        return;
    const QString File = Cornice.InDialogo([this] {
        return EsportaPdf(*ui->vp, sessione::ParcellePath, NomeDocumentoProposto(Nota, Nota.cmbTipoStampa));
    });
    if (File.isEmpty())
        return;
    Cornice.DocumentoUscito(Nota.cmbTipoStampa);
    MostraEsportato(u"Il documento "_s + NomeFile(File) + u" è stato salvato correttamente!"_s, File);
}

void SchedaStampa::ImpostaAvviso(const QString& Testo)
{
    Avviso = Testo;
    MostraAvviso();
}

void SchedaStampa::MostraAvviso()
{
    QString Margine = Avviso;
    if (Nota.ArchivioNonLetto)
        Margine = u"L'archivio dei clienti non si legge: il documento non si compone"_s;
    else if (const QString& Manca = ui->vp->Foglio().Manca; !Manca.isEmpty())
        Margine = Manca.left(1).toUpper() + Manca.mid(1).chopped(1);
    ui->vp->ImpostaAvviso(Margine);
}

void SchedaStampa::MostraAnteprima()
{
    const bool Scelto = Nota.cmbTipoStampa != NessunaVoce;
    if (!TipoDi(Nota.cmbTipoStampa).EFattura)
        ui->cmdFatturaXml->setChecked(false);
    Elettronica->setVisible(FatturaInVista());
    ui->barPrint->setVisible(!FatturaInVista());
    ui->vp->setVisible(Scelto && !FatturaInVista());
    Controlli->setVisible(Scelto && !FatturaInVista());
    ui->lblSenzaDocumento->setVisible(!Scelto);
    AbilitaBarra();
    if (!Scelto)
        ui->barPrint->NascondiPagina();
}

void SchedaStampa::AbilitaBarra()
{
    const bool Scelto = Nota.cmbTipoStampa != NessunaVoce;
    for (QAction* Tasto : ui->barPrint->actions())
        if (Tasto != cmdGuida)
            Tasto->setEnabled(Scelto);
    cmdEditor->setEnabled(Scelto && HaEditor());
}
