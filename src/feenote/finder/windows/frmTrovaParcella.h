// The finder of saved notes: folders walked, each file looked into, notes opened, renamed, deleted.
#pragma once

#include "feenote/finder/elencotrova.h"
#include "feenote/finder/nominativi.h"
#include "feenote/finder/ricerca.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QSet>
#include <QString>
#include <QTimer>

#include <deque>
#include <memory>
#include <optional>

class QAction;
class QLabel;
class QRadioButton;

namespace Ui {
class frmTrovaParcella;
}

/// There is one; it stays loaded while it is hidden. The walk goes on beside it: rows appear as they are
/// found, and what is typed meanwhile counts.
class frmTrovaParcella : public QDialog
{
    Q_OBJECT

public:
    /// Element of optFolder.
    enum Selettore { Parcelle = 0, Modelli = 1, Libera = 2 };

    frmTrovaParcella();
    ~frmTrovaParcella() override;

    /// Prepares the form and lists: the notes, the templates, or the given folder.
    /// @param Destinazione place of the window for which a note is chosen, 0 none
    /// @param Chiamata "multiple" chooses a note for another one, with the form modal; empty opens notes
    /// @return the note chosen for another one; empty when none was, and always where notes are opened
    QString OpenParcMod(int Quale, const QString& Cartella, int Destinazione, const QString& Chiamata);
    /// Lists a folder by the text in force. The search goes on when this comes back.
    void TrovaParc(const QString& Cartella);
    /// The form on view lists its folder once more; current row and place stay, and rows of before remain
    /// where it fails. While a search runs it follows that one.
    void RinfrescaTrova();

    void cmdTrova_Click();
    void optFolder_Click(int Indice);
    void cmdSfoglia_Click();
    void barTrova_ButtonClick(const QString& Chiave);
    void barTrova_ButtonMenuClick(const QString& Chiave);
    void tdbParcelle_DblClick(int Riga);
    void tdbParcelle_HeadClick(int Colonna);
    void txtDesPar_Change();
    /// The states whose notes are left; an element of cmbStato.
    void cmbStato_Click(int Quale);
    /// The rows on view into a file for the accountant, which this user alone may read.
    void EsportaCsv();
    /// Deletes, or renames, the note of the current row, asking what must be asked.
    void Cancella();
    void Rename();

    [[nodiscard]] bool InRicerca() const { return bool(Ricerca); }
    [[nodiscard]] const ElencoTrova& Elenco() const { return Righe; }
    [[nodiscard]] int Destinazione() const { return IndiceDestinazione; }

    QString Parent;  ///< empty, or "multiple"

public Q_SLOTS:
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* Evento) override;
    void showEvent(QShowEvent* Evento) override;
    void hideEvent(QHideEvent* Evento) override;
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

private:
    /// Why the disk is walked.
    enum class Scopo { Elenca, Trova, Rinfresca };
    /// What is on view, to be taken back when a folder cannot be listed.
    struct Veduta
    {
        ElencoTrova Righe;
        ContoTrova Conto;
        QString ArchivioMuto;
        QString Cartella;
        QString Radice;
        QString Cercato;
        int Selezionato = Parcelle;
    };

    // ---- frmTrovaParcella.cpp: controls and keys
    void CostruisciBarra();
    void CostruisciGriglia();
    void CollegaControlli();
    void CollegaTasti();
    [[nodiscard]] QRadioButton* optFolder(int Indice) const;
    void ImpostaSelettore(int Indice);
    void AbilitaBarra();
    void VaiAllaRadice(int Quale, const QString& Cartella);
    void Sali();
    void OrdinaPer(int Colonna);  ///< the same column again: the other way round
    void EntraIn(const QString& Cartella);
    void Scegli(const QString& File);
    bool TastoGriglia(const QKeyEvent& Evento);
    bool TastoTesto(const QKeyEvent& Evento);
    [[nodiscard]] QString SuggerimentoDi(int Riga) const;
    [[nodiscard]] QIcon ImmagineDi(int Riga) const;

    // ---- frmTrovaParcella_Elenco.cpp: the walk and its rows
    void Avvia(Scopo Perche);
    void Raccogli();
    void Fine();
    void FineFallita(const Errore& Guasto);
    void Interrompi();
    void SmettiRicerca();
    void RicordaVeduta();
    void Elenca(const QString& Cartella);
    void Filtra();
    void Rimostra(const QString& Corrente, int PrimaRiga);
    /// The same behind a filter: the current note stays where it is left, else the first one comes.
    void MostraFiltrate(const QString& Corrente);
    void SegnaOrdine();  ///< the arrow in the titles
    void MostraConto(const QString& Frase);
    void MostraEsito();  ///< of the walk whose rows are on view
    void VaiAllaPrimaNota();
    // ---- frmTrovaParcella_Stato.cpp: states, what is open, the accountant's file
    void CollegaStato();
    /// Sums of the rows on view; none while they are still arriving.
    void MostraAperto();
    void RiempiPerCliente(const ApertoTutto& Somma);
    /// Leaves the notes of a client and shows the button that lifts it; nothing: those of all.
    /// @param Nome as it is shown
    void SoloDelCliente(const std::optional<ClienteNota>& Chi, const QString& Nome);
    void FiltraSolo(const std::optional<ClienteNota>& Chi, const QString& Nome);

    [[nodiscard]] QString PercorsoCorrente() const;
    [[nodiscard]] const VoceTrova* NotaCorrente() const;

    ElencoTrova Righe;
    std::optional<ClienteNota> Solo;  ///< the client whose notes alone are left
    ElencoTrova Arrivate;             ///< those of a refresh, until it is complete
    std::unique_ptr<RicercaNote> Ricerca;
    std::deque<VoceTrova> DaMostrare;
    Nominativi Nomi;
    QTimer Raccolta;
    QElapsedTimer UltimaMostra;
    Scopo Motivo = Scopo::Elenca;
    Veduta Prima;
    ContoTrova Conto;
    QString ArchivioMuto;  ///< name of the archive that could not give the names on view; empty: it could
    QSet<QString> Aperte;  ///< files of the notes on screen, as the rows are marked
    int Selezionato = Parcelle;  ///< element of optFolder whose folder is listed
    QString Presente;            ///< the folder that is listed
    QString Radice;              ///< where the search began
    QString Cercato;             ///< what the names were last asked for; else the text filters rows on view
    QString RigaAttesa;          ///< the row that becomes the current one at the end
    QString FileScelto;          ///< what a choice for another note gives back
    int IndiceDestinazione = 0;
    bool RifaiDopo = false;  ///< notes were saved, closed, renamed or deleted while a walk went on
    bool Mosso = false;      ///< the user has gone to a row since the walk began
    bool InMostra = false;   ///< rows are being shown by code

    QAction* Seleziona = nullptr;
    QAction* Apri = nullptr;
    QLabel* panRicerca = nullptr;
    QLabel* panMostrate = nullptr;
    std::unique_ptr<Ui::frmTrovaParcella> ui;
};
