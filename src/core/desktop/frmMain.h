// The main frame: toolbar and client area of the fee-note windows.
#pragma once

#include <QMainWindow>
#include <QPixmap>

#include <memory>

class QMdiArea;
class QMdiSubWindow;

namespace Ui {
class frmMain;
}

class frmMain : public QMainWindow
{
    Q_OBJECT

public:
    frmMain();
    ~frmMain() override;

    /// The client area of the note windows; brings the frame up and in front.
    [[nodiscard]] QMdiArea* Area();

    /// Index of the note window activated last, empty when there is none: the target of the toolbar.
    [[nodiscard]] QString Tag() const { return Bersaglio; }
    void ImpostaTag(const QString& Indice) { Bersaglio = Indice; }

    /// Gives the client area a picture, stretched to its size; a null one takes it away.
    void BackImage(const QPixmap& Immagine);

    /// Gives it the session's picture.
    void CaricaSfondo();

    /// Shows a sheet of the legal guide, by the name of its page.
    void ShowGuida(const QString& Nome);

    /// Saves MainWidth and MainHeight, in twips, of the frame when it is not maximised. A size that the user
    /// has not changed is saved as it was asked for, even where the screen had less room.
    /// @throws Errore 75
    void SalvaMisure() const;

    /// Hides the frame by a queued call, unless a note is open again by then; its next use loads it anew.
    void ScaricaInCoda();

    /// Closes the notes by the road of the frame's own close, and the program behind them; a note that stays
    /// keeps both.
    void Esci();

    /// A click on a button of the toolbar, by its key: runs the command on the target window, after the open
    /// field was left.
    void barParcelle_ButtonClick(const QString& Chiave);
    /// A choice in the menu of a button. "savemod" makes a template of an unmodified note too.
    void barParcelle_ButtonMenuClick(const QString& Chiave);

protected:
    void changeEvent(QEvent* Evento) override;
    void closeEvent(QCloseEvent* Evento) override;
    void resizeEvent(QResizeEvent* Evento) override;

private:
    void CreaBarra();
    void CreaMenu(QAction* Pulsante, const QString& Chiave);
    void CreaProcedure();
    void CreaProcedura(const QString& Parola, QStringView Tasti);
    void AbilitaComandi();
    void SalvaModello();
    bool ChiudiParcelle();  ///< false when a note refuses, or has ended the process
    void SalvaSulPosto();
    void SalvaConNome();
    void Duplica();
    void MostraRecenti();
    template <class Azione>
    void SuParcella(Azione Fai);  ///< on the note in front, after its open field was left
    void Form_Load();
    void Riscala();
    void RiempiLaCornice();
    void AllaScelta(QMdiSubWindow* Finestra);
    void NominaParcella();

    std::unique_ptr<Ui::frmMain> ui;
    QString Bersaglio;
    QString Prodotto;  ///< the caption without a note
    QPixmap Sfondo;
    QSize MisuraVoluta;  ///< asked for at the load, in twips
    QSize MisuraData;    ///< what the screen had room for, in pixels
};
