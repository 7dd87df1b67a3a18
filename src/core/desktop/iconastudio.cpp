#include "core/desktop/iconastudio.h"

#include "platform/kit/aspetto.h"
#include "platform/kit/testobordo.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int LatoDisegno = 34;
constexpr int Arrotondamento = 12;
constexpr int SpazioEtichetta = 5;

constexpr int MargineEtichetta = 1;  // the room of the border
constexpr int BandiereEtichetta = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;

QRect SpazioDellEtichetta(double Scala)
{
    return QRect(0, 0, qRound(IconaStudio::Larghezza * Scala), qRound(IconaStudio::Altezza * Scala))
        .adjusted(MargineEtichetta, qRound((IconaStudio::Immagine + SpazioEtichetta) * Scala),
                  -MargineEtichetta, -MargineEtichetta);
}

/// As much of a label as has room, with dots where it was cut; words too long for a line are cut too.
QString Abbreviata(const QFontMetrics& Misure, const QString& Etichetta, const QRect& Spazio)
{
    QStringList Parole = Etichetta.split(u' ');
    for (QString& Parola : Parole)
        Parola = Misure.elidedText(Parola, Qt::ElideRight, Spazio.width());
    QString Scritta = Parole.join(u' ');
    const QString Intera = Scritta;
    for (qsizetype Resto = Intera.size() - 1;
         Resto > 0 && Misure.boundingRect(Spazio, BandiereEtichetta, Scritta).height() > Spazio.height();
         --Resto)
        Scritta = Intera.first(Resto).trimmed() + u'…';
    return Scritta;
}

}  // namespace

IconaStudio::IconaStudio(const QString& Etichetta, QString Parola, double Scala, QWidget* Padre)
    : QAbstractButton(Padre), Comando(std::move(Parola)), Scala(Scala)
{
    setText(Etichetta);
    setShortcut({});  // a title's "&" is a letter like others
    setAccessibleName(Etichetta);
    setFixedSize(Misura(Larghezza), Misura(Altezza));
    setCursor(Qt::PointingHandCursor);
    // A click opens and leaves no mark behind: the focus comes by the keyboard.
    setFocusPolicy(Qt::TabFocus);
}

void IconaStudio::MettiImmagine(const QPoint& Dove)
{
    move(Misura(Dove.x()) - Misura((Larghezza - Immagine) / 2), Misura(Dove.y()) - 1);
}

int IconaStudio::AltezzaCarattere(const QFont& Base, const QString& Etichetta, double Scala)
{
    constexpr int Minima = 9;
    const QRect Spazio = SpazioDellEtichetta(Scala);
    QFont Carattere = Base;
    int Altezza = QFontInfo(Base).pixelSize();
    const auto NonEntra = [&] {
        const QFontMetrics Misure(Carattere);
        const QStringList Parole = Etichetta.split(u' ');
        return Misure.boundingRect(Spazio, BandiereEtichetta, Etichetta).height() > Spazio.height() ||
               std::ranges::any_of(Parole, [&](const QString& Parola) {
                   return Misure.horizontalAdvance(Parola) > Spazio.width();
               });
    };
    Carattere.setPixelSize(Altezza);
    while (Altezza > Minima && NonEntra())
        Carattere.setPixelSize(--Altezza);
    return Altezza;
}

void IconaStudio::ImpostaAltezzaCarattere(int Pixel)
{
    PixelCarattere = Pixel;
    update();
}

void IconaStudio::ImpostaIcona(const QIcon& Nuova)
{
    Icona = Nuova;
    update();
}

void IconaStudio::ImpostaFigura(const QPixmap& Nuova)
{
    Figura = Nuova;
    update();
}

void IconaStudio::Colora(const QColor& NuovoTesto, const QColor& NuovoBordo, bool Marcata)
{
    if (Testo == NuovoTesto && Bordo == NuovoBordo && ConTarga == Marcata)
        return;
    Testo = NuovoTesto;
    Bordo = NuovoBordo;
    ConTarga = Marcata;
    update();
}

void IconaStudio::paintEvent(QPaintEvent*)
{
    QPainter Pennello(this);
    Pennello.setRenderHint(QPainter::Antialiasing);
    constexpr double Spenta = 0.45;
    if (!isEnabled())
        Pennello.setOpacity(Spenta);
    DisegnaTessera(Pennello);
    DisegnaEtichetta(Pennello);
}

void IconaStudio::DisegnaTessera(QPainter& Pennello) const
{
    const QRect Tessera(Misura((Larghezza - Immagine) / 2), 1, Misura(Immagine), Misura(Immagine));
    const bool Viva = isEnabled() && (underMouse() || hasFocus());
    QColor Fondo = palette().color(QPalette::Base);
    constexpr double Soffice = 0.88;
    Fondo.setAlphaF(Viva ? 1.0F : float(Soffice));
    Pennello.setBrush(Fondo);
    Pennello.setPen(hasFocus() ? QPen(aspetto::Accento(), 2) : QPen(Qt::NoPen));
    Pennello.drawRoundedRect(Tessera, Arrotondamento, Arrotondamento);
    QRect Disegno(0, 0, Misura(LatoDisegno), Misura(LatoDisegno));
    Disegno.moveCenter(Tessera.center() + (isDown() ? QPoint(1, 1) : QPoint()));
    if (Figura.isNull())
        Icona.paint(&Pennello, Disegno);
    else
        DisegnaFigura(Pennello, Disegno);
}

void IconaStudio::DisegnaFigura(QPainter& Pennello, const QRect& Posto) const
{
    QRect Intera(QPoint(), Figura.size().scaled(Posto.size(), Qt::KeepAspectRatio));
    Intera.moveCenter(Posto.center());
    Pennello.setRenderHint(QPainter::SmoothPixmapTransform);
    Pennello.drawPixmap(Intera, Figura);
}

void IconaStudio::DisegnaEtichetta(QPainter& Pennello) const
{
    const QRect Spazio = SpazioDellEtichetta(Scala);
    QFont Carattere = font();
    Carattere.setPixelSize(PixelCarattere > 0 ? PixelCarattere : AltezzaCarattere(font(), text(), Scala));
    Pennello.setFont(Carattere);
    const QString Scritta = Abbreviata(Pennello.fontMetrics(), text(), Spazio);
    if (ConTarga)
        DisegnaTarga(Pennello, Pennello.fontMetrics().boundingRect(Spazio, BandiereEtichetta, Scritta));
    TextBorder(Pennello, Spazio, BandiereEtichetta, Scritta, Testo, Bordo);
}

void IconaStudio::DisegnaTarga(QPainter& Pennello, const QRect& Scritta) const
{
    constexpr int Spazio = 4;
    constexpr int Smusso = 5;
    constexpr double Coprente = 0.85;
    QColor Fondo = Bordo;
    Fondo.setAlphaF(float(Coprente));
    Pennello.setPen(Qt::NoPen);
    Pennello.setBrush(Fondo);
    Pennello.drawRoundedRect(Scritta.adjusted(-Spazio, -1, Spazio, 1) & rect(), Smusso, Smusso);
}

void IconaStudio::enterEvent(QEnterEvent* Evento)
{
    QAbstractButton::enterEvent(Evento);
    Q_EMIT Puntata(true);
    update();
}

void IconaStudio::leaveEvent(QEvent* Evento)
{
    QAbstractButton::leaveEvent(Evento);
    Q_EMIT Puntata(false);
    update();
}

void IconaStudio::focusInEvent(QFocusEvent* Evento)
{
    QAbstractButton::focusInEvent(Evento);
    Q_EMIT Puntata(true);
}

void IconaStudio::focusOutEvent(QFocusEvent* Evento)
{
    QAbstractButton::focusOutEvent(Evento);
    Q_EMIT Puntata(false);
}

void IconaStudio::keyPressEvent(QKeyEvent* Evento)
{
    switch (Evento->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        break;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
        Q_EMIT Freccia(Evento->key());
        break;
    default:
        QAbstractButton::keyPressEvent(Evento);
    }
}

#include "moc_iconastudio.cpp"
