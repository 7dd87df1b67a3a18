// One icon of the desktop: its picture on a soft tile, its outlined label below.
#pragma once

#include <QAbstractButton>
#include <QIcon>

class QPainter;

/// Picture and label of an icon (one element of imgMenu and of lblIcone). Its `Tag` is the command.
class IconaStudio : public QAbstractButton
{
    Q_OBJECT

public:
    /// Size of the whole icon at the letters of the design; its picture stands at the top, centred.
    static constexpr int Larghezza = 98;
    static constexpr int Altezza = 94;
    /// Side of the picture.
    static constexpr int Immagine = 56;

    /// @param Scala how much larger than the design the icon is, 1 or more: a board of larger letters has
    /// larger icons in larger steps
    IconaStudio(const QString& Etichetta, QString Comando, double Scala, QWidget* Padre);

    [[nodiscard]] QString Tag() const { return Comando; }

    /// Puts the upper left corner of the picture there, a place of the design.
    void MettiImmagine(const QPoint& Dove);

    /// The largest size of a font, in pixels, at which a label has room, but no larger than the font itself.
    [[nodiscard]] static int AltezzaCarattere(const QFont& Base, const QString& Etichetta, double Scala);
    /// Size of the label, in pixels; 0: as large as it has room.
    void ImpostaAltezzaCarattere(int Pixel);
    [[nodiscard]] int AltezzaCarattere() const { return PixelCarattere; }

    void ImpostaIcona(const QIcon& Nuova);
    /// A picture of the user's, in the place of an icon of the program.
    void ImpostaFigura(const QPixmap& Nuova);

    /// Colours of the label. A marked one stands on a plate of the border's colour, which makes any colour of
    /// its text readable that the border serves.
    void Colora(const QColor& Testo, const QColor& Bordo, bool Marcata);
    [[nodiscard]] QColor ColoreTesto() const { return Testo; }

Q_SIGNALS:
    /// The pointer or the focus came onto the icon, or went.
    void Puntata(bool Sopra);
    /// An arrow key (or Home, End) that asks for another icon.
    void Freccia(int Tasto);

protected:
    void paintEvent(QPaintEvent* Evento) override;
    void enterEvent(QEnterEvent* Evento) override;
    void leaveEvent(QEvent* Evento) override;
    void focusInEvent(QFocusEvent* Evento) override;
    void focusOutEvent(QFocusEvent* Evento) override;
    void keyPressEvent(QKeyEvent* Evento) override;

private:
    [[nodiscard]] int Misura(int Disegno) const { return qRound(Disegno * Scala); }
    void DisegnaTessera(QPainter& Pennello) const;
    void DisegnaFigura(QPainter& Pennello, const QRect& Posto) const;
    void DisegnaEtichetta(QPainter& Pennello) const;
    void DisegnaTarga(QPainter& Pennello, const QRect& Scritta) const;

    QString Comando;
    double Scala;
    QIcon Icona;
    QPixmap Figura;
    QColor Testo = Qt::white;
    QColor Bordo = Qt::black;
    int PixelCarattere = 0;
    bool ConTarga = false;
};
