// The viewer of pages: a sheet of the program, the notice that the user may silence, the guide with its
// contents.
#pragma once

#include <QDialog>

#include <functional>
#include <memory>

class QKeySequence;

namespace Ui {
class frmWeb;
}

class frmWeb : public QDialog
{
    Q_OBJECT

public:
    frmWeb();
    ~frmWeb() override;

    // Set before the viewer is shown.
    QString Indirizzo;  ///< path of a page of the program, or an address for the user's browser
    QString Titolo;     ///< caption of the window
    QString Marcatore;  ///< stem of the ".ini" file that silences a notice; empty: no box
    QString Guida;      ///< folder of the guide that the page belongs to; empty: neither contents nor search

    /// Shows the page; a viewer that is on view already comes to the front with it and takes no focus.
    /// @throws Errore as Pagina::Naviga; the viewer then stays as it was
    void Mostra();
    /// Changes the page alone: the window stays where and as it is, closed too. @throws Errore as Mostra
    void Aggiorna();

    /// Every end of the viewer: the marker of a notice is written when the box is ticked, beside the program
    /// or, where that folder refuses it, in the user folder.
    void done(int Esito) override;

    void cmdIndietro_Click();
    void cmdAvanti_Click();
    void cmdCerca_Click();
    void cmdStampa_Click();
    void txtCerca_Change();
    /// A page of the guide by its file, with "#" and an anchor; what was looked for is marked on it.
    void pnlGuida_Chiesta(const QString& Meta, const QString& Cercato);

protected:
    void keyPressEvent(QKeyEvent* Evento) override;
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

private:
    void CollegaComandi();
    void ApparecchiaGuida();
    void MostraTitolo();
    void CollegaTasti();
    void Tasto(const QKeySequence& Quale, std::function<void()> Procedura);
    void Trova(bool Indietro);
    void ChiudiRicerca();

    std::unique_ptr<Ui::frmWeb> ui;
    bool Apparecchiata = false;  ///< the guide has come up at its own size once
};
