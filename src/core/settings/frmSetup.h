// The settings of the program.
#pragma once

#include "core/dannoricordato.h"
#include "core/schedeimpostazioni.h"
#include "core/settings/valorischeda.h"

#include <QDialog>
#include <QMap>
#include <QSet>

#include <memory>

class QLineEdit;
class SchedaCartelle;
class SchedaContabili;
class SchedaDesktop;
class SchedaDocumenti;
class SchedaFattura;

namespace Ui {
class frmSetup;
}

class frmSetup : public QDialog
{
    Q_OBJECT

public:
    using enum impostazioni::Scheda;

    frmSetup();
    ~frmSetup() override;

    /// Shows the form on a tab, filled from the settings store unless it is open already.
    void Mostra(int Indice);
    /// The same, holding all other windows back until it is closed. One that is open already comes to the
    /// front.
    void MostraModale(int Indice);

    /// Shows it with the focus in a box.
    void MostraCasella(impostazioni::CasellaStudio Quale);

    /// Selects a tab; an index outside the range changes nothing.
    void ChangeTab(int Indice);

    /// Reads the settings store, not the session, into the fields.
    void LoadValori();
    /// Tells the first field that must not be empty and is, and gives it the focus. @return false then
    [[nodiscard]] bool CheckValori();

    /// The archive was changed beside the form: the box of its path follows, unless something was typed
    /// there.
    void SegueArchivio();

    /// Checks, writes the icons, stores every setting in one write, and brings them into force.
    void cmdSaveImpost_Click();

    /// Shows what the current tab is for, or hides it again.
    void ShowHelp(bool Si);

    /// The editor of an icon, by its row on the desktop, on the tab of the desktop. One that the form has
    /// changed or taken away meanwhile does nothing.
    void ModificaIcona(int Riga);
    /// The question whether to take an icon away, there too.
    void EliminaIcona(int Riga);

protected:
    void keyPressEvent(QKeyEvent* Evento) override;

private:
    void Prepara(int Indice);
    void CreaTasti();
    bool Rifiuta(const QString& Messaggio, int Indice, QWidget* Campo);
    /// Leads to a box that has to be looked at. @return false
    bool Porta(int Indice, QWidget* Campo);
    [[nodiscard]] bool CheckNumero();
    [[nodiscard]] bool ConfermaPersi();
    [[nodiscard]] ValoriScheda Valori() const;
    /// Something was written, ticked or chosen since the settings were read or stored.
    [[nodiscard]] bool Cambiate() const;
    void SegnaLetti();
    void CaricaStudio();
    void SalvaValori();
    void SegnaControlli();

    std::unique_ptr<Ui::frmSetup> ui;
    SchedaContabili* Contabili;  // pages of tabSetup
    SchedaCartelle* Cartelle;
    SchedaDesktop* Desktop;
    SchedaFattura* Fattura;
    SchedaDocumenti* Documenti;
    ValoriScheda Letti;                 ///< what the form showed when it had nothing to store
    QMap<QString, QString> Conservati;  ///< what the store held when the form read it, or wrote into it
    QSet<QString> ContatoriPersi;       ///< those that a damaged store did not give when the form read it
    bool PortatoDavanti = false;        ///< the tab in view is none that the user has turned to
    DannoImpostazioni DannoLetto{};     ///< of the store, when the form read it or before
};
