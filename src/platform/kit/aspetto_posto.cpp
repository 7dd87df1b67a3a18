#include "platform/base/errore.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/lettere.h"
#include "platform/system/impostazioni.h"

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <QStringList>
#include <QWidget>

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString Applicativo = u"KR5"_s;
const QString Sezione = u"Parametri"_s;
const QString Massimizzata = u"max"_s;

/// Where a window was: "x,y,width,height", and ",max" when it filled the screen.
struct Posto
{
    QRect Riquadro;
    bool Massima = false;

    friend bool operator==(const Posto&, const Posto&) = default;
};

std::optional<Posto> LeggiPosto(const QString& Nome)
{
    const QStringList Parti = GetSetting(Applicativo, Sezione, u"Posto_"_s + Nome).split(u',');
    constexpr qsizetype Numeri = 4;
    if (Parti.size() < Numeri)
        return std::nullopt;
    int Valori[Numeri] = {};
    for (qsizetype i = 0; i < Numeri; ++i) {
        bool Buono = false;
        Valori[i] = Parti[i].toInt(&Buono);
        // No screen lies farther, and sums of larger numbers are none.
        constexpr int Massimo = 1'000'000;
        if (!Buono || Valori[i] < -Massimo || Valori[i] > Massimo)
            return std::nullopt;
    }
    if (Valori[2] <= 0 || Valori[3] <= 0)
        return std::nullopt;
    return Posto{QRect(Valori[0], Valori[1], Valori[2], Valori[3]), Parti.value(Numeri) == Massimizzata};
}

QRect SchermoDelPuntatore()
{
    const QScreen* Schermo = QGuiApplication::screenAt(QCursor::pos());
    if (!Schermo)
        Schermo = QGuiApplication::primaryScreen();
    return Schermo->availableGeometry();
}

/// What the window manager draws around a window: measured once it has drawn it, guessed amply before.
QMargins BordiFinestra(const QWidget* Finestra)
{
    constexpr int TitoloComune = 32;
    constexpr int BordoComune = 4;
    if (Finestra->windowFlags().testFlag(Qt::FramelessWindowHint))
        return {};
    const QRect Fuori = Finestra->frameGeometry();
    const QRect Dentro = Finestra->geometry();
    if (Fuori != Dentro)
        return {Dentro.left() - Fuori.left(), Dentro.top() - Fuori.top(), Fuori.right() - Dentro.right(),
                Fuori.bottom() - Dentro.bottom()};
    return {BordoComune, TitoloComune, BordoComune, BordoComune};
}

/// The rectangle moved, and if need be shrunk, so that it lies inside.
QRect Dentro(QRect Riquadro, const QRect& Schermo)
{
    Riquadro.setSize(Riquadro.size().boundedTo(Schermo.size()));
    Riquadro.moveLeft(std::clamp(Riquadro.left(), Schermo.left(), Schermo.right() - Riquadro.width() + 1));
    Riquadro.moveTop(std::clamp(Riquadro.top(), Schermo.top(), Schermo.bottom() - Riquadro.height() + 1));
    return Riquadro;
}

/// Where a window is when it is neither maximised nor minimised.
QRect Normale(const QWidget* Finestra)
{
    const QRect Riquadro = Finestra->normalGeometry();
    return Riquadro.isValid() ? Riquadro : Finestra->geometry();
}

/// Where the letters are larger than those that a form was drawn for, so is the window at first, as far as
/// the screen goes: else its columns would be cut beside room that nobody uses.
void Ingrandisci(QWidget* Finestra)
{
    if (!Finestra->testAttribute(Qt::WA_Resized))
        return;
    const QSize Schermo = SchermoDelPuntatore().marginsRemoved(BordiFinestra(Finestra)).size();
    const QSizeF Cresciuta = QSizeF(Finestra->size()) * aspetto::RapportoDelleLettere(Finestra);
    Finestra->resize(Cresciuta.toSize().boundedTo(Schermo).expandedTo(Finestra->size()));
}

/// Knows how the program showed a window, so that what differs from it later is the user's doing.
class GuardaPosto : public QObject
{
public:
    GuardaPosto(QWidget* DiFinestra, QString ConNome)
        : QObject(DiFinestra), Finestra(DiFinestra), Nome(std::move(ConNome))
    {
        Finestra->installEventFilter(this);
    }

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        switch (Evento->type()) {
        case QEvent::Show:
            if (!Evento->spontaneous()) {
                aspetto::RimettiAlPosto(Finestra, Nome);
                Dato = Adesso();
                Dipinta = false;
            }
            break;
        case QEvent::Paint:
        case QEvent::UpdateRequest:
            Dipinta = true;
            break;
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::WindowStateChange:
            // Until it is painted, layout and window manager are still at it.
            if (!Dipinta)
                Dato = Adesso();
            break;
        case QEvent::Hide:
            if (!Evento->spontaneous())
                Ricorda();
            break;
        default:
            break;
        }
        return QObject::eventFilter(Oggetto, Evento);
    }

private:
    [[nodiscard]] Posto Adesso() const { return {Normale(Finestra), Finestra->isMaximized()}; }

    void Ricorda()
    {
        if (Adesso() == Dato)
            return;
        Dato = Adesso();
        try {
            aspetto::RicordaPosto(Finestra, Nome);
        } catch (const Errore& Guasto) {
            // No message where the store refuses: the user wanted to close.
            if (Guasto.Numero != errori::Accesso)
                RiportaEccezione();
        }
    }

    QWidget* Finestra;
    QString Nome;
    Posto Dato;  ///< as the program made it
    bool Dipinta = false;
};

}  // namespace

namespace aspetto {

void RicordaPostoDi(QWidget* Finestra, const QString& Nome)
{
    for (QObject* Figlio : Finestra->children())
        if (dynamic_cast<GuardaPosto*>(Figlio))
            return;
    Ingrandisci(Finestra);
    new GuardaPosto(Finestra, Nome);
}

void RimettiAlPosto(QWidget* Finestra, const QString& Nome)
{
    const QRect Schermo = SchermoDelPuntatore().marginsRemoved(BordiFinestra(Finestra));
    const auto Ultimo = LeggiPosto(Nome);
    QRect Riquadro = Ultimo ? Ultimo->Riquadro : QRect(QPoint(), Finestra->size());
    // A larger font, or another scale, wants more room than was remembered, or than the design had counted
    // on.
    const QSize Minima = Finestra->minimumSizeHint().boundedTo(Schermo.size());
    Finestra->setMinimumSize(Finestra->minimumSize().expandedTo(Minima).boundedTo(Schermo.size()));
    Riquadro.setSize(Riquadro.size().expandedTo(Minima));
    if (!Ultimo || !Schermo.contains(Riquadro.center()))
        Riquadro.moveCenter(Schermo.center());
    Finestra->setGeometry(Dentro(Riquadro, Schermo));
    if (Ultimo && Ultimo->Massima)
        Finestra->setWindowState(Finestra->windowState() | Qt::WindowMaximized);
}

void RicordaPosto(const QWidget* Finestra, const QString& Nome)
{
    // Nobody takes a damaged store for a sound one because windows were closed.
    if (GuastoImpostazioni(Applicativo))
        return;
    const QRect Riquadro = Normale(Finestra);
    QStringList Parti;
    for (const int Numero : {Riquadro.x(), Riquadro.y(), Riquadro.width(), Riquadro.height()})
        Parti += QString::number(Numero);
    if (Finestra->isMaximized())
        Parti += Massimizzata;
    SaveSetting(Applicativo, Sezione, u"Posto_"_s + Nome, Parti.join(u','));
}

}  // namespace aspetto
