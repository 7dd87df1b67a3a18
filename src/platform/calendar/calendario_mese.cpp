#include "platform/calendar/calendario_mese.h"

#include "platform/base/nomidate.h"
#include "platform/kit/aspetto.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int Colonne = 7;
constexpr int RigheGiorni = 6;  // a month of 31 days that begins on a Sunday touches six weeks
constexpr int LargaCasella = 34;
constexpr int Aria = 10;
constexpr double Raggio = 4.0;

QDate PrimoGiorno()
{
    return QDate(100, 1, 1);
}

QDate UltimoGiorno()
{
    return QDate(9999, 12, 31);
}

/// The band of the suspension: a tint, and strokes for whoever does not see the tint.
void DipingiSospensione(QPainter& Pennello, const QRect& Riquadro)
{
    constexpr double Tinta = 0.22;
    constexpr double Tratto = 0.45;
    const QColor Ambra(0xD9, 0x9A, 0x2B);
    const QColor Base = QApplication::palette().color(QPalette::Base);
    Pennello.fillRect(Riquadro, aspetto::Mischia(Ambra, Base, Tinta));
    Pennello.fillRect(Riquadro, QBrush(aspetto::Mischia(Ambra, Base, Tratto), Qt::BDiagPattern));
}

/// A kind of the caller's own: its tint over the day, its letter in the corner, alone in the middle of a
/// sample.
void DipingiSegno(QPainter& Pennello, const QRect& Riquadro, const SegnoCalendario& Segno, bool DaSolo)
{
    constexpr double Tinta = 0.25;
    constexpr double Piccolo = 0.65;
    const QPalette Colori = QApplication::palette();
    Pennello.fillRect(Riquadro.adjusted(0, 1, 0, -1),
                      aspetto::Mischia(Segno.Tinta, Colori.color(QPalette::Base), Tinta));
    Pennello.save();
    QFont Carattere = Pennello.font();
    if (!DaSolo)
        Carattere.setPointSizeF(Carattere.pointSizeF() * Piccolo);
    Pennello.setFont(Carattere);
    Pennello.setPen(Colori.color(QPalette::Text));
    Pennello.drawText(Riquadro.adjusted(0, 0, -2, 0),
                      DaSolo ? Qt::AlignCenter : Qt::AlignRight | Qt::AlignTop, Segno.Lettera);
    Pennello.restore();
}

QColor ColoreNumero(const AspettoGiorno& Aspetto)
{
    if (Aspetto.Scadenza)
        return QApplication::palette().color(QPalette::Base);
    if (Aspetto.Domenica || Aspetto.Festivo)
        return aspetto::Sbagliato();
    return QApplication::palette().color(QPalette::Text);
}

/// The plate under the number: a holiday's, the filled one of a due date, the ring of the start.
void DipingiPiastra(QPainter& Pennello, const QRectF& Piastra, const AspettoGiorno& Aspetto)
{
    constexpr double TintaFesta = 0.24;
    const QColor Base = QApplication::palette().color(QPalette::Base);
    const QColor Fondo =
        Aspetto.Scadenza ? aspetto::Accento() : aspetto::Mischia(aspetto::Sbagliato(), Base, TintaFesta);
    Pennello.setPen(Qt::NoPen);
    Pennello.setBrush(Fondo);
    if (Aspetto.Scadenza || Aspetto.Festivo)
        Pennello.drawRoundedRect(Piastra, Raggio, Raggio);
    if (!Aspetto.Inizio)
        return;
    constexpr double Spessore = 2.0;
    Pennello.setPen(QPen(aspetto::Accento(), Spessore));
    Pennello.setBrush(Qt::NoBrush);
    Pennello.drawRoundedRect(Piastra, Raggio, Raggio);
}

}  // namespace

void DipingiCasella(QPainter& Pennello, const QRect& Riquadro, const QString& Numero,
                    const AspettoGiorno& Aspetto)
{
    Pennello.save();
    if (Aspetto.Sospeso)
        DipingiSospensione(Pennello, Riquadro);
    if (Aspetto.Segno)
        DipingiSegno(Pennello, Riquadro, *Aspetto.Segno, Numero.isEmpty());
    Pennello.setRenderHint(QPainter::Antialiasing);
    DipingiPiastra(Pennello, QRectF(Riquadro).adjusted(3, 2, -3, -2), Aspetto);
    QFont Carattere = Pennello.font();
    Carattere.setBold(Aspetto.Festivo || Aspetto.Scadenza || Aspetto.Inizio);
    Carattere.setUnderline(Aspetto.Oggi);
    Pennello.setFont(Carattere);
    Pennello.setPen(ColoreNumero(Aspetto));
    Pennello.drawText(Riquadro, Qt::AlignCenter, Numero);
    Pennello.restore();
}

MeseCalendario::MeseCalendario(CalendarioMensile* Di) : QWidget(Di), Padrone(Di)
{
    setObjectName(u"mese"_s);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize MeseCalendario::sizeHint() const
{
    const int Larga = std::max(LargaCasella, fontMetrics().horizontalAdvance(u"00"_s) + 2 * Aria);
    return {Larga * Colonne, (fontMetrics().height() + Aria) * (RigheGiorni + 1)};
}

void MeseCalendario::ImpostaData(const QDate& Data)
{
    const QDate Dentro = std::clamp(Data, PrimoGiorno(), UltimoGiorno());
    if (!Data.isValid() || Dentro == Corrente)
        return;
    Corrente = Dentro;
    Nomina();
    update();
}

void MeseCalendario::Sposta(const QDate& Data)
{
    ImpostaData(Data);
    if (Spostato)
        Spostato();
}

void MeseCalendario::SpostaMesi(int Quanti)
{
    Sposta(Corrente.addMonths(Quanti));
}

/// The screen reader speaks the selected day, as no child of this widget could.
void MeseCalendario::Nomina()
{
    setAccessibleName(u"Calendario, "_s + Padrone->Descrizione(Corrente));
}

QRect MeseCalendario::Casella(int Riga, int Colonna) const
{
    const int Alta = height() / (RigheGiorni + 1);
    const int Da = width() * Colonna / Colonne;
    return {Da, Riga * Alta, width() * (Colonna + 1) / Colonne - Da, Alta};
}

QRect MeseCalendario::Riquadro(const QDate& Giorno) const
{
    if (Giorno.year() != Corrente.year() || Giorno.month() != Corrente.month())
        return {};
    const int Vuote = QDate(Giorno.year(), Giorno.month(), 1).dayOfWeek() - 1;
    const int Posto = Vuote + Giorno.day() - 1;
    return Casella(1 + Posto / Colonne, Posto % Colonne);
}

QDate MeseCalendario::GiornoIn(const QPoint& Punto) const
{
    for (int Giorno = 1; Giorno <= Corrente.daysInMonth(); ++Giorno)
        if (const QDate Data(Corrente.year(), Corrente.month(), Giorno); Riquadro(Data).contains(Punto))
            return Data;
    return {};
}

bool MeseCalendario::event(QEvent* Evento)
{
    if (Evento->type() != QEvent::ToolTip)
        return QWidget::event(Evento);
    const auto* Aiuto = static_cast<const QHelpEvent*>(Evento);
    const QDate Giorno = GiornoIn(Aiuto->pos());
    if (Giorno.isValid())
        QToolTip::showText(Aiuto->globalPos(), Padrone->Descrizione(Giorno), this, Riquadro(Giorno));
    else
        QToolTip::hideText();
    return true;
}

void MeseCalendario::DipingiGiorno(QPainter& Pennello, const QDate& Giorno) const
{
    const QRect Dove = Riquadro(Giorno);
    DipingiCasella(Pennello, Dove, QString::number(Giorno.day()), Padrone->Aspetto(Giorno));
    if (Giorno != Corrente)
        return;
    Pennello.setBrush(Qt::NoBrush);
    Pennello.setPen(hasFocus() ? QPen(palette().color(QPalette::Text), 1, Qt::DotLine)
                               : QPen(aspetto::Filo(), 1));
    Pennello.drawRect(Dove.adjusted(0, 0, -1, -1));
}

void MeseCalendario::paintEvent(QPaintEvent*)
{
    QPainter Pennello(this);
    constexpr double Sbiadito = 0.7;
    Pennello.setPen(
        aspetto::Mischia(palette().color(QPalette::Text), palette().color(QPalette::Base), Sbiadito));
    for (int i = 0; i < Colonne; ++i)
        Pennello.drawText(Casella(0, i), Qt::AlignCenter, NomeGiorno(i + 1).left(2).toLower());
    for (int Giorno = 1; Giorno <= Corrente.daysInMonth(); ++Giorno)
        DipingiGiorno(Pennello, QDate(Corrente.year(), Corrente.month(), Giorno));
}

void MeseCalendario::keyPressEvent(QKeyEvent* Evento)
{
    const int Mesi = Evento->modifiers().testFlag(Qt::ControlModifier) ? 12 : 1;
    switch (Evento->key()) {
    case Qt::Key_Left:
        Sposta(Corrente.addDays(-1));
        break;
    case Qt::Key_Right:
        Sposta(Corrente.addDays(1));
        break;
    case Qt::Key_Up:
        Sposta(Corrente.addDays(-Colonne));
        break;
    case Qt::Key_Down:
        Sposta(Corrente.addDays(Colonne));
        break;
    case Qt::Key_PageUp:
        SpostaMesi(-Mesi);
        break;
    case Qt::Key_PageDown:
        SpostaMesi(Mesi);
        break;
    case Qt::Key_Home:
        Sposta(QDate(Corrente.year(), Corrente.month(), 1));
        break;
    case Qt::Key_End:
        Sposta(QDate(Corrente.year(), Corrente.month(), Corrente.daysInMonth()));
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (Scelto)
            Scelto(Corrente);
        break;
    default:
        QWidget::keyPressEvent(Evento);
    }
}

void MeseCalendario::mousePressEvent(QMouseEvent* Evento)
{
    Premuto = Evento->button() == Qt::LeftButton ? GiornoIn(Evento->pos()) : QDate();
    if (Premuto.isValid())
        Sposta(Premuto);
}

void MeseCalendario::mouseReleaseEvent(QMouseEvent* Evento)
{
    const QDate Giorno = GiornoIn(Evento->pos());
    if (Premuto.isValid() && Giorno == Premuto && Scelto)
        Scelto(Giorno);
    Premuto = {};
}

void MeseCalendario::focusInEvent(QFocusEvent* Evento)
{
    Nomina();
    QWidget::focusInEvent(Evento);
    update();
}

void MeseCalendario::focusOutEvent(QFocusEvent* Evento)
{
    QWidget::focusOutEvent(Evento);
    update();
}
