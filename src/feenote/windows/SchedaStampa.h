// The page of the print: the document, its data, the preview.
#pragma once

#include "feenote/parcella.h"

#include <QWidget>

#include <memory>
#include <optional>

enum class CasellaNota;
struct Errore;
class CorniceNota;
class ElencoControlli;
class PannelloFattura;
class QAction;
class QButtonGroup;

namespace Ui {
class SchedaStampa;
}

class SchedaStampa : public QWidget
{
    Q_OBJECT

public:
    /// @param Dati the note shown, which lives as long as the page
    SchedaStampa(Parcella& Dati, CorniceNota& Finestra, QWidget* Padre);
    ~SchedaStampa() override;

    /// The page comes into view: the document as the note and the settings are now, from its first page on.
    void Entra();
    /// Another note is in the window, or none: nothing of the former one's document stays.
    void NuovaNota();
    /// Writes the controls from the record; call it with the window's guard.
    void Mostra();
    /// A control of this page; null for one of another.
    [[nodiscard]] QWidget* Casella(CasellaNota Quale) const;
    void MostraRubrica();  ///< the buttons of the address book
    /// A line in the preview's margin; empty: none.
    void ImpostaAvviso(const QString& Testo);
    /// Composes the chosen document; nothing while none is.
    void Ricomponi();
    /// The note has changed, and its client's row or the settings with it: the list "Da controllare" follows.
    void SeguonoControlli();
    void RileggiControlli();
    /// The note goes before it is known whether the mails that were asked for have opened: they have.
    void ConcludiInvii();
    /// What follows a save: the document, seen or not, and the companion application.
    void DopoSalvataggio();
    /// A save could not hand the invoice to the companion.
    [[nodiscard]] bool DaConsegnare() const { return NonConsegnata; }
    /// The next save tries again, though the note was not changed since: the document chosen is an invoice.
    [[nodiscard]] bool RiprovaConsegna() const;
    /// The panel of the electronic invoice in the place of the page, or the page again. Nothing for a
    /// document that is no invoice.
    void MostraFattura(bool Si);
    /// The button "print": asks for printer and pages, then prints. Nothing while no document is chosen.
    void StampaParcella();

    /// An element of the boxes of the print data, by DatoStampa: a QLineEdit or, for the two free texts, a
    /// QPlainTextEdit.
    [[nodiscard]] QWidget* txtDatiPar(int Indice) const;

protected:
    bool event(QEvent* Evento) override;

private:
    /// A mail that has been asked for.
    struct Invio
    {
        Parcella Uscita;  ///< the note as its document says it
        int Tipo = 0;
        int Numero = 0;                         ///< of the note
        std::optional<StatoTenuto> Prima, Poi;  ///< the state before and behind it, once it has opened
    };
    using InvioChiesto = std::shared_ptr<Invio>;
    void Inviato(const InvioChiesto& Questo);
    void NonInviato(const InvioChiesto& Questo);

    // ---- SchedaStampa.cpp: document and data
    void CollegaDocumento();
    void CollegaDati();
    void CollegaParti();
    void CollegaSegni();
    void MostraDati();
    void MostraParti();
    void cmbTipoStampa_Click(int Tipo);
    void cmdProgFatt_Click();
    void cmdClausole_Click();
    void CollegaFattura();
    void CollegaControlli();
    [[nodiscard]] bool FatturaInVista() const;

    // ---- SchedaStampa_Anteprima.cpp: composition, preview and its toolbar
    void CollegaAnteprima();
    void MostraAnteprima();
    void AbilitaBarra();
    void EsportaDocumento();
    void ApriNellEditor();
    /// The invoice for the companion. What kept the document from being composed is told, once.
    void Consegna(const std::optional<Errore>& Guasto);
    void SalvaPdf();
    /// The file of the document's clauses, and when it was last written; empty for a document without any.
    [[nodiscard]] QString StatoClausole() const;
    void CollegaPagina();
    void MostraPagina();
    void RicordaAdattamento(int Modo);
    /// A new mail with the document in view.
    void Invia();
    /// What a composition fills: the page on view alone, the document's file too, or the companion's.
    enum class Uscita { Pagina, File, Compagna };
    /// @return what kept the document's file from being written
    std::optional<Errore> Componi(Uscita Dove = Uscita::File);
    /// @return what kept it from being composed
    std::optional<Errore> Composta(Uscita Dove);
    /// Reads the client once more where his row could not be read. @return false while it cannot
    bool RileggiArchivio();
    /// The same for a document that is to go out, which waits for that: the user is told why. Whether one
    /// goes out without its clauses is for the user to say.
    bool SiCompone();
    void MostraAvviso();

    Parcella& Nota;
    CorniceNota& Cornice;
    std::unique_ptr<Ui::SchedaStampa> ui;
    PannelloFattura* Elettronica = nullptr;
    ElencoControlli* Controlli = nullptr;
    QButtonGroup* optContrTipo = nullptr;
    QAction* cmdEditor = nullptr;  ///< in barPrint, like the next
    QAction* cmdGuida = nullptr;
    QString Avviso;            ///< for the preview's margin
    QString ClausoleComposte;  ///< StatoClausole when the document on view was composed
    QList<InvioChiesto> Attesi;
    bool NonConsegnata = false;
};
