#include "scimmia/gesti.h"

#include "core/comandi.h"
#include "scimmia/ufficio.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QKeySequence>
#include <QLineEdit>
#include <QRegularExpression>
#include <QToolBar>
#include <QWidget>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The window that a widget is drawn in, null while it is on no screen.
QWindow* Sotto(const QWidget* Controllo)
{
    QWindow* Trovata = Controllo->window()->windowHandle();
    return Trovata && Trovata->isExposed() ? Trovata : nullptr;
}

QList<QWidget*> ControlliDi(const QWidget* Finestra, bool SoloAttivi)
{
    QList<QWidget*> Trovati;
    for (QWidget* Controllo : Finestra->findChildren<QWidget*>()) {
        if (!Controllo->isVisible() || Controllo->window() != Finestra)
            continue;
        const bool Attivo = Controllo->isEnabled() && (Controllo->focusPolicy() != Qt::NoFocus ||
                                                       qobject_cast<const QAbstractButton*>(Controllo));
        if (Attivo || !SoloAttivi)
            Trovati.append(Controllo);
    }
    return Trovati;
}

template <class... Altri>
std::deque<Evento> Uniti(std::deque<Evento> Primi, Altri... Poi)
{
    (std::move(Poi.begin(), Poi.end(), std::back_inserter(Primi)), ...);
    return Primi;
}

QString Nome(Qt::KeyboardModifiers Con, const QString& Tasto)
{
    return (Con & Qt::ControlModifier ? u"Ctrl+"_s : QString()) +
           (Con & Qt::AltModifier ? u"Alt+"_s : QString()) +
           (Con & Qt::ShiftModifier ? u"Shift+"_s : QString()) + Tasto;
}

}  // namespace

QWidgetList FinestreInVista()
{
    QWidgetList Trovate;
    for (QWidget* Finestra : QApplication::topLevelWidgets())
        if (Finestra->isVisible() && Finestra->windowType() != Qt::ToolTip && Sotto(Finestra))
            Trovate.append(Finestra);
    // In an order of their own: that of the toolkit is the order of their addresses.
    std::ranges::sort(Trovate, {},
                      [](const QWidget* Finestra) { return std::pair(NomeDi(Finestra), Finestra->winId()); });
    return Trovate;
}

bool Libera(const QWidget* Finestra)
{
    const QWidget* Modale = QApplication::activeModalWidget();
    if (!Modale || Modale == Finestra)
        return true;
    if (Modale->windowModality() != Qt::WindowModal)
        return false;
    // A modal window holds back its own ancestors.
    for (const QWidget* Sopra = Modale->parentWidget(); Sopra; Sopra = Sopra->parentWidget())
        if (Sopra->window() == Finestra)
            return false;
    return true;
}

QString NomeDi(const QObject* Oggetto)
{
    return Oggetto ? QString::fromLatin1(Oggetto->metaObject()->className()) + u'/' + Oggetto->objectName()
                   : u"-"_s;
}

// ---- where
// -------------------------------------------------------------------------------------------------

Posto Gesti::DentroA(const QWidget* Controllo)
{
    const QRect Vista = Controllo->visibleRegion().boundingRect();
    if (Vista.isEmpty())
        return {};
    QPoint Dove = Vista.topLeft() + QPoint(Sorte.Fino(Vista.width()), Sorte.Fino(Vista.height()));
    if (Sorte.Su(40))
        Dove = Vista.center();
    return {Sotto(Controllo), Controllo->mapTo(Controllo->window(), Dove)};
}

/// A popup takes nearly all of the mouse, then a modal window, then the one in front. Of a window more often
/// what answers than what is only looked at.
Posto Gesti::Bersaglio(QString* Cosa)
{
    const QWidgetList Tutte = FinestreInVista();
    if (Tutte.isEmpty())
        return {};
    const QWidget* Scelta = QApplication::activePopupWidget();
    if (!Scelta)
        Scelta = QApplication::activeModalWidget();
    if (!Scelta)
        Scelta = QApplication::activeWindow();
    constexpr int DoveSiLavora = 85;
    const auto Cornice =
        std::ranges::find_if(Tutte, [](const QWidget* Una) { return Una->inherits("frmMain"); });
    const bool AltroDavanti = !Scelta || (Scelta == QApplication::activeWindow() && !Scelta->isModal());
    if (Parcelle && Cornice != Tutte.end() && AltroDavanti && Sorte.Su(60))
        Scelta = *Cornice;
    else if (!Scelta || !Scelta->isVisible() || !Sotto(Scelta) || !Sorte.Su(DoveSiLavora))
        Scelta = Sorte.Fra(Tutte);
    const QList<QWidget*> Controlli = ControlliDi(Scelta, Sorte.Su(75));
    const QWidget* Preso = Controlli.isEmpty() ? Scelta : Sorte.Fra(Controlli);
    *Cosa = NomeDi(Scelta) + u' ' + NomeDi(Preso);
    return DentroA(Preso);
}

// ---- with what
// ---------------------------------------------------------------------------------------------

std::deque<Evento> Gesti::Battuta(int Codice, Qt::KeyboardModifiers Con, const QString& Testo)
{
    static constexpr std::array Modificatori{
        std::pair(Qt::ShiftModifier, Qt::Key_Shift),
        std::pair(Qt::ControlModifier, Qt::Key_Control),
        std::pair(Qt::AltModifier, Qt::Key_Alt),
    };
    std::deque<Evento> Giu;
    std::deque<Evento> Su;
    Qt::KeyboardModifiers Tenuti;
    for (const auto& [Modificatore, Suo] : Modificatori) {
        if (!Con.testFlag(Modificatore))
            continue;
        Giu.push_back({u"giù "_s + QKeySequence(Suo).toString(),
                       [Suo = Suo, Prima = Tenuti] { Mani::Tasto(QEvent::KeyPress, Suo, Prima, {}); }});
        Su.push_front({u"su "_s + QKeySequence(Suo).toString(),
                       [Suo = Suo, Resto = Tenuti] { Mani::Tasto(QEvent::KeyRelease, Suo, Resto, {}); }});
        Tenuti |= Modificatore;
    }
    const QString Detto = Nome(Con, QKeySequence(Codice).toString(QKeySequence::PortableText)) +
                          (Testo.isEmpty() ? QString() : u" \""_s + Testo.trimmed() + u'"');
    Giu.push_back({u"tasto "_s + Detto, [=] { Mani::Tasto(QEvent::KeyPress, Codice, Con, Testo); }});
    Giu.push_back({u"su"_s, [=] { Mani::Tasto(QEvent::KeyRelease, Codice, Con, Testo); }});
    return Uniti(std::move(Giu), std::move(Su));
}

std::deque<Evento> Gesti::Clic(const Posto& Dove, const QString& Cosa, Qt::MouseButton Tasto,
                               Qt::KeyboardModifiers Con, bool Doppio)
{
    if (!Dove.Finestra)
        return {};
    std::deque<Evento> Serie;
    // A window manager brings the window that is clicked to the front.
    if (Dove.Finestra != QGuiApplication::focusWindow() && !QApplication::activePopupWidget())
        Serie.push_back({u"davanti"_s, [Dove] {
                             if (Dove.Finestra && Dove.Finestra->isVisible())
                                 Dove.Finestra->requestActivate();
                         }});
    const QString Punto = u" %1,%2 "_s.arg(Dove.Dove.x()).arg(Dove.Dove.y()) + Cosa;
    Serie.push_back({u"mouse"_s + Punto, [this, Dove] { Tocco.Muovi(Dove); }});
    Serie.push_back({Nome(Con, u"premi "_s + QString::number(Tasto)) + Punto,
                     [=, this] { Tocco.Premi(Dove, Tasto, Con); }});
    Serie.push_back({u"lascia"_s, [this, Dove] { Tocco.Lascia(Dove); }});
    if (Doppio) {
        Serie.push_back({u"premi ancora"_s, [=, this] {
                             Tocco.Affrettati();
                             Tocco.Premi(Dove, Tasto, Con);
                         }});
        Serie.push_back({u"lascia"_s, [this, Dove] { Tocco.Lascia(Dove); }});
    }
    return Serie;
}

std::deque<Evento> Gesti::Mouse()
{
    QString Cosa;
    const Posto Dove = Bersaglio(&Cosa);
    const Qt::MouseButton Tasto = Sorte.Su(85)   ? Qt::LeftButton
                                  : Sorte.Su(80) ? Qt::RightButton
                                                 : Qt::MiddleButton;
    const Qt::KeyboardModifiers Con = Sorte.Su(90)   ? Qt::NoModifier
                                      : Sorte.Su(50) ? Qt::ControlModifier
                                                     : Qt::ShiftModifier;
    return Clic(Dove, Cosa, Tasto, Con, Sorte.Su(20));
}

std::deque<Evento> Gesti::Trascina()
{
    constexpr int Passi = 5;
    constexpr int Lontano = 160;
    QString Cosa;
    const Posto Da = Bersaglio(&Cosa);
    if (!Da.Finestra)
        return {};
    const QPoint Corsa(Sorte.Fino(2 * Lontano) - Lontano, Sorte.Fino(2 * Lontano) - Lontano);
    std::deque<Evento> Serie;
    Serie.push_back({u"trascina "_s + Cosa, [this, Da] { Tocco.Premi(Da, Qt::LeftButton, Qt::NoModifier); }});
    Posto Fin = Da;
    for (int i = 1; i <= Passi; ++i) {
        Fin.Dove = Da.Dove + Corsa * i / Passi;
        Serie.push_back(
            {u"fino a %1,%2"_s.arg(Fin.Dove.x()).arg(Fin.Dove.y()), [this, Fin] { Tocco.Muovi(Fin); }});
    }
    Serie.push_back({u"lascia"_s, [this, Fin] { Tocco.Lascia(Fin); }});
    return Serie;
}

std::deque<Evento> Gesti::Rotella()
{
    QString Cosa;
    const Posto Dove = Bersaglio(&Cosa);
    const int Scatti = Sorte.Fino(9) - 4;
    const Qt::KeyboardModifiers Con = Sorte.Su(80) ? Qt::NoModifier : Qt::ControlModifier;
    return {{u"rotella %1 "_s.arg(Scatti) + Cosa, [=] { Mani::Gira(Dove, Scatti, Con); }}};
}

std::deque<Evento> Gesti::UnTasto()
{
    struct Voce
    {
        int Codice;
        const char16_t* Testo;
    };
    static constexpr std::array Comuni{
        Voce{Qt::Key_Tab, u"\t"},      Voce{Qt::Key_Return, u"\r"},    Voce{Qt::Key_Escape, u"\x1b"},
        Voce{Qt::Key_Delete, u"\x7f"}, Voce{Qt::Key_Backspace, u"\b"}, Voce{Qt::Key_Space, u" "},
        Voce{Qt::Key_Up, u""},         Voce{Qt::Key_Down, u""},        Voce{Qt::Key_Left, u""},
        Voce{Qt::Key_Right, u""},      Voce{Qt::Key_Home, u""},        Voce{Qt::Key_End, u""},
        Voce{Qt::Key_PageUp, u""},     Voce{Qt::Key_PageDown, u""},    Voce{Qt::Key_Insert, u""},
        Voce{Qt::Key_Menu, u""},       Voce{Qt::Key_Enter, u"\r"},     Voce{Qt::Key_Tab, u"\t"},
        Voce{Qt::Key_Return, u"\r"},   Voce{Qt::Key_Pause, u""},
    };
    const int Quale = Sorte.Fino(100);
    if (Quale < 50) {
        const Voce Scelta = Sorte.Fra(Comuni);
        const Qt::KeyboardModifiers Con = Sorte.Su(80)   ? Qt::NoModifier
                                          : Sorte.Su(50) ? Qt::ShiftModifier
                                          : Sorte.Su(70) ? Qt::ControlModifier
                                                         : Qt::AltModifier;
        if (Scelta.Codice == Qt::Key_Tab && Con == Qt::ShiftModifier)
            return Battuta(Qt::Key_Backtab, Con, {});
        return Battuta(Scelta.Codice, Con, QString::fromUtf16(Scelta.Testo));
    }
    if (Quale < 60)
        return Battuta(Qt::Key_F1 + Sorte.Fino(12), Sorte.Su(70) ? Qt::NoModifier : Qt::ShiftModifier, {});
    const int Lettera = Qt::Key_A + Sorte.Fino(26);
    if (Quale < 75)
        return Battuta(Lettera, Sorte.Su(70) ? Qt::ControlModifier : Qt::ControlModifier | Qt::ShiftModifier,
                       QString(QChar(Lettera - Qt::Key_A + 1)));
    if (Quale < 82)
        return Battuta(Lettera, Qt::AltModifier, QString(QChar(Lettera).toLower()));
    return Battuta(Lettera, Qt::NoModifier, QString(QChar(Lettera).toLower()));
}

std::deque<Evento> Gesti::Parola()
{
    std::deque<Evento> Serie;
    const QString Testo = ParolaACaso(Sorte).left(40);
    for (const QChar Lettera : Testo) {
        if (Lettera == u'\n' || Lettera == u'\t')
            continue;  // keys of their own
        const int Codice = Lettera.toUpper().unicode();
        Serie.push_back({u"tasto \""_s + Lettera + u'"',
                         [=] { Mani::Tasto(QEvent::KeyPress, Codice, Qt::NoModifier, Lettera); }});
        Serie.push_back({u"su"_s, [=] { Mani::Tasto(QEvent::KeyRelease, Codice, Qt::NoModifier, Lettera); }});
    }
    return Serie;
}

/// What most users do most of the time: a box is clicked, typed over, and left.
std::deque<Evento> Gesti::Riempi()
{
    const QWidget* Davanti = QApplication::activeModalWidget();
    if (!Davanti)
        Davanti = QApplication::activeWindow();
    if (!Davanti || QApplication::activePopupWidget())
        return {};
    QList<QLineEdit*> Caselle;
    for (QLineEdit* Casella : Davanti->findChildren<QLineEdit*>())
        if (Casella->isVisible() && Casella->isEnabled() && Casella->window() == Davanti)
            Caselle.append(Casella);
    if (Caselle.isEmpty())
        return {};
    const QLineEdit* Scelta = Sorte.Fra(Caselle);
    std::deque<Evento> Tutto;
    if (Sorte.Su(70))
        Tutto = Battuta(Qt::Key_A, Qt::ControlModifier, u"\x01"_s);
    std::deque<Evento> Lascia;
    if (Sorte.Su(85))
        Lascia = Sorte.Su(50) ? Battuta(Qt::Key_Tab, Qt::NoModifier, u"\t"_s)
                              : Battuta(Qt::Key_Return, Qt::NoModifier, u"\r"_s);
    return Uniti(Clic(DentroA(Scelta), u"casella "_s + NomeDi(Scelta), Qt::LeftButton, Qt::NoModifier, false),
                 std::move(Tutto), Parola(), std::move(Lascia));
}

/// A command by what sends it: an icon of the desktop, a button of the frame, its keys.
std::deque<Evento> Gesti::Comando()
{
    QList<QWidget*> Mittenti;
    for (const QWidget* Finestra : FinestreInVista()) {
        for (QWidget* Parte : Finestra->findChildren<QWidget*>())
            if (Parte->isVisible() && Parte->isEnabled() && Parte->inherits("IconaStudio"))
                Mittenti.append(Parte);
        for (const QToolBar* Barra : Finestra->findChildren<QToolBar*>())
            for (QAbstractButton* Bottone : Barra->findChildren<QAbstractButton*>())
                if (Bottone->isVisible() && Bottone->isEnabled())
                    Mittenti.append(Bottone);
    }
    if (Parcelle && Sorte.Su(50)) {
        static const QRegularExpression DiNote(u"imgMenu_0|Nuova|Apri|Salva"_s);
        QList<QWidget*> Note = Mittenti;
        Note.removeIf([](const QWidget* Parte) {
            const auto* Bottone = qobject_cast<const QAbstractButton*>(Parte);
            return !(Parte->objectName() + (Bottone ? Bottone->text() : QString())).contains(DiNote);
        });
        if (!Note.isEmpty())
            Mittenti = Note;
    }
    if (!Mittenti.isEmpty() && Sorte.Su(70)) {
        const QWidget* Scelto = Sorte.Fra(Mittenti);
        return Clic(DentroA(Scelto), u"comando "_s + NomeDi(Scelto), Qt::LeftButton, Qt::NoModifier, false);
    }
    QStringList Tasti;
    for (const ::Comando& Voce : Comandi())
        if (!Voce.Tasti.isEmpty())
            Tasti += Voce.Tasti.toString();
    const QKeyCombination Combinazione = QKeySequence(Sorte.Fra(Tasti))[0];
    return Battuta(Combinazione.key(), Combinazione.keyboardModifiers(), {});
}

/// What a window manager lets a user do with a window: bring it to the front, close it, place it.
std::deque<Evento> Gesti::Finestra()
{
    QWidgetList Tutte = FinestreInVista();
    Tutte.removeIf([](const QWidget* Una) { return Una->windowType() == Qt::Popup || !Libera(Una); });
    if (Tutte.isEmpty() || QApplication::activePopupWidget())
        return {};
    const QPointer<QWidget> Scelta = Sorte.Fra(Tutte);
    const QString Chi = NomeDi(Scelta);
    const auto Su = [Scelta](auto Fai) {
        return [Scelta, Fai] {
            if (Scelta && Scelta->isVisible() && Libera(Scelta))
                Fai(*Scelta);
        };
    };
    const int Quale = Sorte.Fino(100);
    if (Quale < (Parcelle ? 70 : 45))
        return {{u"davanti "_s + Chi, Su([](QWidget& Una) { Una.windowHandle()->requestActivate(); })}};
    if (Quale < 75)
        return {{u"chiudi "_s + Chi, Su([](QWidget& Una) { Una.windowHandle()->close(); })}};
    if (Quale < 90) {
        const QRect Dove(Sorte.Fino(300), Sorte.Fino(200), 80 + Sorte.Fino(1300), 60 + Sorte.Fino(800));
        return {{u"misura "_s + Chi, Su([Dove](QWidget& Una) {
                     Una.setGeometry(QRect(Dove.topLeft(), Dove.size().expandedTo(Una.minimumSizeHint())));
                 })}};
    }
    const Qt::WindowState Stato = Sorte.Fra(std::array{Qt::WindowMaximized, Qt::WindowNoState});
    return {{u"stato %1 "_s.arg(Stato) + Chi, Su([Stato](QWidget& Una) { Una.setWindowState(Stato); })}};
}

/// Another program has copied something.
std::deque<Evento> Gesti::Appunti()
{
    const QString Testo = ParolaACaso(Sorte);
    return {{u"appunti"_s, [Testo] { QApplication::clipboard()->setText(Testo); }}};
}

std::deque<Evento> Gesti::Prossimo()
{
    struct Voce
    {
        int Peso;
        std::deque<Evento> (Gesti::*Gesto)();
    };
    static constexpr std::array Tutti{
        Voce{48, &Gesti::Mouse},   Voce{5, &Gesti::Trascina}, Voce{5, &Gesti::Rotella},
        Voce{20, &Gesti::UnTasto}, Voce{4, &Gesti::Parola},   Voce{8, &Gesti::Riempi},
        Voce{8, &Gesti::Comando},  Voce{4, &Gesti::Finestra}, Voce{1, &Gesti::Appunti},
    };
    static constexpr int Somma = [] {
        int Pesi = 0;
        for (const Voce& Gesto : Tutti)
            Pesi += Gesto.Peso;
        return Pesi;
    }();
    int Quale = Sorte.Fino(Somma);
    for (const Voce& Gesto : Tutti) {
        if (Quale < Gesto.Peso)
            return (this->*Gesto.Gesto)();
        Quale -= Gesto.Peso;
    }
    return {};
}
