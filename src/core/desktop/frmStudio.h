// The desktop: background, icons, and the way out of the program.
#pragma once

#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <vector>

class IconaStudio;
class PannelloRecenti;
class QToolButton;

namespace Ui {
class frmStudio;
}

class frmStudio : public QWidget
{
    Q_OBJECT

public:
    /// Argument of Menu that marks none.
    static constexpr int NessunaIcona = 999;

    frmStudio();
    ~frmStudio() override;

    /// How much the board grows with the letters: as far as the screen has room for all rows of the program's
    /// icons, with the strip of the last notes beside them.
    /// @param Lettere the letters' size to the design's
    /// @return 1 or more
    [[nodiscard]] static double ScalaDelQuadro(const QSize& Schermo, double Lettere);

    /// Shows the desktop in front, where it was left.
    void Mostra();

    /// Paints the desktop anew from the session: background, the user's icons, colours, version.
    void LoadGraph();
    /// LoadGraph is due at the next activation, or as soon as events are dealt with while the desktop is on
    /// view.
    void SegnaRidisegno();

    /// Fills IconeUtente from its file and builds the icons.
    void LoadIconsFromIniFile();
    /// Makes one icon of the user's.
    /// @param Riga row of IconeUtente
    /// @param X,Y upper left corner of the picture, in pixels of the design: they grow with larger letters
    void DrawNewIcon(const QString& Etichetta, const QString& Destinazione, const QString& Figura, int Riga,
                     int X, int Y);

    /// Marks an icon by the colour of its label; NessunaIcona takes the mark away.
    void Menu(int Indice);
    [[nodiscard]] int Marcata() const { return IconaMarcata; }

    /// An element of imgMenu (and lblIcone), null outside.
    [[nodiscard]] IconaStudio* imgMenu(int Indice) const;
    [[nodiscard]] int NumeroIcone() const { return int(Icone.size()); }

    /// What the activation of the desktop does: unfinished set-up is shown, the frame of the last note goes.
    void Form_Activate();

Q_SIGNALS:
    /// The first activation has come to its end, with the boxes and settings that it showed.
    void PrimaAttivazione();

protected:
    bool event(QEvent* Evento) override;
    void closeEvent(QCloseEvent* Evento) override;
    void keyPressEvent(QKeyEvent* Evento) override;
    void paintEvent(QPaintEvent* Evento) override;
    void resizeEvent(QResizeEvent* Evento) override;

private:
    IconaStudio* NuovaIcona(const QString& Etichetta, const QString& Tag, const QPoint& Dove);
    void CreaIconeFisse();
    void TogliIconeUtente();
    void CreaTasti();
    void CreaApri(QToolButton* Bottone);
    void DisponiRecenti();
    [[nodiscard]] int LarghezzaRecenti() const;
    void MostraRecenti();
    void imgMenu_Click(const QString& Tag);
    void Sposta(int Da, int Tasto);
    void AdattaQuadro();
    [[nodiscard]] QSize MisuraSfondo() const;
    void StendiSfondo();
    void DipingiSfondo();
    void MostraTracciaDebug(const QString& Testo);
    void VerificaPreparazione();
    void AttivaInCoda();
    void DopoLaPrima();
    void AbilitaIcone();
    void UnSoloCarattere();

    std::unique_ptr<Ui::frmStudio> ui;
    PannelloRecenti* Recenti = nullptr;
    double Scala = 1;                 ///< pixels of the board to one of the design
    std::vector<IconaStudio*> Icone;  // children of the board
    QString Sfondo;                   ///< picture, full path; empty: the plain colour
    QString SfondoGuasto;             ///< the picture that could not be read, once the user was told
    QPixmap SfondoSteso;              ///< at the size of the window
    QTimer SfondoDaStendere;          ///< runs while the picture is not at that size
    int IconaMarcata = NessunaIcona;
    bool DaRidisegnare = false;
    bool Dipinta = false;
    bool InAttivazione = false;
    bool PrimaPassata = false;      ///< the first activation has come to its end
    bool AttesaDalSistema = false;  ///< the first activation ran before the system's own event
    int PerLaTraccia = 0;           ///< pixels that the trace has added to the window's height
    bool Coperta = false;           ///< a box of our own lies over the desktop: its going is no activation
};
