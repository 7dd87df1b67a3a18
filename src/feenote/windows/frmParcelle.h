// The window of one fee note: five tabs over one record.
//
// The record is the truth. A user's change goes into it through the rules of feenote, then MostraTutto writes
// the controls with their signals held back.
#pragma once

#include "core/posti.h"
#include "feenote/file/improntanota.h"
#include "feenote/file/modSalvataggio.h"
#include "feenote/modCronologia.h"
#include "feenote/modStato.h"
#include "feenote/parcella.h"
#include "feenote/windows/comandirighe.h"
#include "feenote/windows/cornicenota.h"
#include "tariffs/modTariffe.h"

#include <QDateTime>
#include <QScopedValueRollback>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

struct CopiaRecupero;
struct RichiestaRubrica;
struct SpesaDiLegge;
enum class CasellaNota;
class PannelloCatena;
class SchedaAcconti;
class SchedaDatiBase;
class SchedaOnorari;
class SchedaSpese;
class SchedaStampa;

namespace Ui {
class frmParcelle;
}

class frmParcelle : public QWidget, private CorniceNota
{
    Q_OBJECT

public:
    explicit frmParcelle(int Indice, QWidget* Padre = nullptr);
    ~frmParcelle() override;

    Parcella Nota;  ///< the record: DatiParcelle(i)

    [[nodiscard]] int Indice() const override { return Posto; }
    [[nodiscard]] int Scheda() const;

    // ---- life (frmParcelle_Vita.cpp)
    /// A new note. In the session of a matter it is the matter's, whoever has asked for it: `ID` is what the
    /// opener was given, and belongs to the caption.
    void Nuova(const QString& ID);
    /// Reads a file. A failure is reported and leaves a new note. @return true when the note was read
    bool Carica(const QString& Percorso);
    /// The focus goes to the first of the texts on the base tab that is empty, client in front.
    void FuocoIniziale();
    /// Takes over a recovery copy, which goes once this window has one of its own. A failure is reported,
    /// leaves a new note, and the copy stays.
    void Recupera(const CopiaRecupero& Trovata);
    /// Drops the recovery copy; one of unsaved changes is written anew soon, in the user folder of then.
    void SpostaCopia();
    /// The whole save, with its dialog and messages. @return true when the file was written
    bool SalvaParcella(bool ComeModello);
    /// The same, unmodified notes too; the dialog proposes a name for one that has none.
    bool SalvaConNome();
    /// Writes a note over its own file, with a line that says when in the place of the message; one without a
    /// file, or whose file has gone, goes the way of SalvaConNome. Of one without changes the line says that
    /// there is nothing to save. @return false when something was to be written and was not
    bool SalvaSulPosto();
    /// Asks whether a copy of the note keeps its client; nothing when the user gives up, and while another
    /// question waits.
    [[nodiscard]] std::optional<bool> ChiediCliente();
    /// Takes over a note as one that was never saved.
    void Prendi(const Parcella& Copia);
    void Proteggi();
    /// Asks about unsaved changes and saves, and about an invoice that the companion did not get.
    /// @return false when the close is refused: by the user, or because a question is still open
    [[nodiscard]] bool ChiediChiusura();
    /// Unloads after ChiediChiusura: place free, sizes saved, frame told.
    void Scarica();
    /// The mark, with what follows it: the pictogram, a recovery copy while it is set, the partner told.
    void SetModificata(bool Valore);
    /// Serial number of the note in this window, another one for each that comes into any; 0 while there is
    /// none.
    [[nodiscard]] int Numero() const override { return NumeroNota; }
    /// The answer of the address book: the word that it was asked with, and the row's values, the key first
    /// and the name second. The box of the first tab gets the focus while it is the one in use.
    void oRubrica_SelDone(const QString& Parent, const QVariantList& Valori);
    /// The settings were saved: a note without lines that has led there follows the tariff chosen, and what
    /// says that none was chosen goes.
    void SegueTariffa();
    /// The settings were closed: what is saved there from now on was not asked for here.
    void LasciaScelta() { TariffaChiestaDa = 0; }
    void ScegliTariffa() override;
    void VaiAlCampo(CampoFattura Dove) override;
    void VaiAlRilievo(const Rilievo& Detto) override;
    /// A row of the address book was written to; see SegueArchivio.
    void NominativoCambiato(const QString& RecordSource, int ID);
    /// Opens the address book, once the field in edit was left; nothing while there is none. See CorniceNota.
    void CliCon(int Elemento, bool DaStampa, const QString& MenuStart) override;
    void ScegliNome(int Elemento, int Chiave) override;
    /// Writes exempt expenses that come from another window, as one step.
    /// @return why it could not be done, in lower case; empty when it was
    [[nodiscard]] QString PortaSpese(const QList<SpesaDiLegge>& Nuove);
    /// The window of the associated note has changed: its figures are taken anew.
    void SocioCambiato();
    /// The note's name, in the record and in its place; the title is the window's own.
    void ImpostaNome(const QString& Nome);
    /// What the window is called: its caption, which says besides with which note a partner is printed.
    [[nodiscard]] const QString& Titolo() const { return TitoloProprio; }
    void ImpostaTitolo(const QString& Titolo);
    /// The other window of a linked pair, 0 none.
    void Associa(int Socio);
    [[nodiscard]] int Socio() const { return Nota.IDMultipla; }
    /// True for the main window of a pair, and for one without a partner.
    [[nodiscard]] bool HaStampa() const override;

    // ---- the associated note (frmParcelle_Multipla.cpp); see CorniceNota
    void ScegliMulti() override;
    void AssociaNota(const QString& Percorso) override;
    void ApriMulti() override;
    void EliminaMulti() override;
    /// The window whose figures the association shows: the linked one, else the one that holds the file; null
    /// when the file itself counts.
    [[nodiscard]] frmParcelle* FinestraMulti() const;
    /// Reads the associated note again where its figures may be others: it is open, or its file has changed.
    void ControllaMulti();
    /// The linked partner was saved, perhaps under another name: the association goes on with that file.
    void SegueMulti(const QString& Percorso);
    /// Another note was saved over this one's file: nothing but this window holds it now.
    void FileSostituito();

    // ---- tabs (frmParcelle.cpp)
    /// Moves to a tab as a user would: open field committed, parameters checked. A closed tab stays closed.
    void VaiAllaScheda(int Indice);
    /// Writes every control from the record, signals held back, and gives the focus that a rule asked for.
    void MostraTutto() override;
    /// Sums in the status bar and in the footers of the tab in view.
    void RefreshGrid() override;
    /// Banner and colours of the parameters.
    void RefreshDatiBase();

protected:
    void closeEvent(QCloseEvent* Evento) override;
    /// Whatever may turn the page first leaves the field in edit.
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

private:
    // ---- frmParcelle.cpp: frame, tabs, status bar, arrows
    void CostruisciSchede();
    void StringiSeBasso();
    void CollegaCornice();
    void tabParcelle_Change(int Nuova);
    bool LasciaBase(int Verso);
    void TornaAllaBase();  ///< by code: nothing is tested
    void imgPrev_Click();
    void imgNext_Click();
    void CollegaCatena();
    void MostraCatena();                ///< the whole chain in its panel, or without it again
    void MostraSegni();                 ///< padlock and diskette
    void MostraTitolo();                ///< the caption
    void MettiInVista(QWidget* Campo);  ///< scrolls a page that has no room for all its fields

    // ---- frmParcelle_Multipla.cpp
    void CollegaMulti();
    /// Takes the figures of a note. @return false when it was refused or could not be read, which was told
    bool LeggiAssociata(const QString& Percorso, const frmParcelle* Aperta);
    bool PrendiDallaFinestra();  ///< the figures of the window that holds it; true when they are others
    void MultiCambiata();        ///< shows whatever depends on the associated note
    void SegueSocio();           ///< has the state follow what the associated note has been paid

    // ---- frmParcelle_Fattura.cpp
    /// The client's card with the focus in a column's box; without a link the address book, to choose one.
    void ApriCliente(const QString& Colonna);

    // ---- frmParcelle_Controlli.cpp
    /// Shows the page that has a control. @return the control; null where the page in view is not left
    QWidget* ScopriCasella(CasellaNota Quale);
    void VaiAllaCella(CasellaNota Lista, int Riga, int Colonna);
    void VaiAllaCasella(CasellaNota Quale);

    // ---- frmParcelle_CliCon.cpp
    /// What the address book is asked for a party of the first tab: to choose one.
    [[nodiscard]] RichiestaRubrica RichiestaCliente() const;
    void CollegaRubrica();
    void MostraRubrica();                     ///< the buttons and the links, on both pages
    [[nodiscard]] bool InPrimoPiano() const;  ///< no other note is in front of this one

    // ---- frmParcelle_Ricalcolo.cpp: lines that are older than the parameters
    void CollegaRicalcolo();
    void MostraRicalcolo();
    void cmdRicalcola_Click();

    // ---- frmParcelle_Annulla.cpp
    void CollegaAnnulla();
    void MostraAnnulla();         ///< what the two buttons would do
    void Passo(bool Avanti);      ///< a step back, or again
    void DimenticaOgniLettera();  ///< no box takes back what was typed into it so far
    [[nodiscard]] bool TestoHaAnnulla(const QObject* Campo, bool Avanti) const;

    // ---- frmParcelle_Stato.cpp: how far the note has come
    void CollegaStato();
    void MostraStato();
    /// Another note is here, with no steps yet. @param Salvata it is what its file holds
    void CominciaNota(bool Salvata);
    /// The state follows what has become of the record. @return true when it has changed
    bool RivediStato();
    /// A document of a note without changes has gone out: its file takes the state at once, so that a print
    /// leaves nothing to be saved. @return false when it could not, and the note is to be marked
    bool TieniStato();
    /// What is written of a note by itself, without the rest of it.
    using ScritturaSola = EsitoStato (*)(const Parcella& Nota, const std::function<bool()>& Immutata);
    EsitoStato Tieni(ScritturaSola Scrivi);
    void SegnaTenuta();  ///< the note is what its file holds

    // ---- frmParcelle_Vita.cpp
    void RimettiDisposizione();  ///< splitters and columns as the last window left them
    void RicordaDisposizione() const;
    void RilegaRighe();    ///< the grids forget the note that was here before
    void PrendiPratica();  ///< a new note of a matter's session is the matter's
    /// The note of before has gone, with its address book; another one comes, or none.
    void CambiaNota(bool Viene);
    /// A message or a dialog holds this window back; a card that is modal to its address book does not.
    [[nodiscard]] bool Impedita() const;
    /// @return false when the user stays for the sake of an invoice that the companion did not get
    bool LasciaConsegna();
    void CollegaCopia();
    void TimerCopia_Timer();
    /// @param Scrivi asks, writes, and gives what was written
    /// @param Dillo tells the user that the file was written
    bool Salva(const std::function<std::optional<FileSalvato>()>& Scrivi,
               const std::function<void(const QString& Percorso)>& Dillo);
    bool ScriviCopia();    ///< the recovery copy; false when it could not be written
    void CopiaInAttesa();  ///< the copy that is due, at once

    // ---- for the pages
    void Cambiata() override { CambiataDa({}); }
    void CambiataDa(const QString& Passo) override;
    void Riordinata() override { Storia.Allinea(Nota); }
    void Ricomponi() override;
    void ComponiInAttesa() override;
    [[nodiscard]] bool BaseValida() const override { return BaseVista; }
    bool AnnullaPasso() override;
    void DocumentoUscito(int Tipo) override;
    void DocumentoUscitoPrima(const StatoTenuto& Stato) override;
    void SegueUscita(bool Intatta);
    /// A note without changes: the line says so, and whether its file is still its own. @return false for any
    /// other, and where the file has gone
    bool DettoSalvata();
    bool FatturaScritta(bool Intatta) override;
    bool FatturaNonScritta(const DatiFatturaXml& Prima, const StatoTenuto& Stato, bool Intatta,
                           bool Tenuta) override;
    void SegnaRimessa() override { Storia.SegnaRimessa(); }
    [[nodiscard]] bool InDomanda() const override { return DialogoAperto; }
    [[nodiscard]] QScopedValueRollback<bool> ApriDomanda() override;

    int Posto;
    QString TitoloProprio;
    int NumeroNota = 0;
    std::optional<ImprontaNota> ImprontaMia;  ///< of the note's own file, as it was read or written last
    std::optional<ImprontaNota>
        ImprontaMulti;  ///< of the associated note; nothing: it was read from a window
    QTimer TimerMulti;  ///< runs while the partner is being changed
    QTimer TimerCopia;  ///< runs from the first change that the recovery copy does not hold
    qint64 DurataCopiaMs = 0;
    Recordset DirittiValori;  ///< open while the window lives, as it always was; no rule reads it
    RigheInComune Comune;
    Cronologia Storia;
    Copertura AccontiVisti;  ///< as the state has followed them last
    int SchedaInVista = 0;   ///< the tab before a change
    bool BaseVista = true;   ///< answer of the last CheckOK on leaving the base tab
    bool InMostra = false;   ///< controls are being written by code
    bool CambioScheda = false;
    bool DialogoAperto = false;   ///< a question of this window waits for its answer
    bool RubricaInVista = false;  ///< the buttons of the address book are shown
    int TariffaChiestaDa = 0;  ///< serial number of the note that has led to the choice of a tariff, 0 none

    SchedaDatiBase* Base = nullptr;
    SchedaOnorari* Onorari = nullptr;
    SchedaSpese* Spese = nullptr;
    SchedaAcconti* Acconti = nullptr;
    SchedaStampa* Stampa = nullptr;

    PannelloCatena* Importi = nullptr;  ///< made at its first use

    std::unique_ptr<Ui::frmParcelle> ui;
};
