#include "addressbook/windows/camporubrica.h"

#include "addressbook/elenconomi.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"

#include <QAction>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype LettereMinime = 3;
constexpr int VociOfferte = 50;
constexpr int RigheInVista = 12;
constexpr int LarghezzaMassima = 520;
constexpr int AriaVoce = 6;

bool ApreRubrica(const QKeyEvent& Tasto)
{
    const Qt::KeyboardModifiers Con = Tasto.modifiers() & ~Qt::KeypadModifier;
    return (Tasto.key() == Qt::Key_F4 && Con == Qt::NoModifier) ||
           (Tasto.key() == Qt::Key_Down && Con == Qt::AltModifier);
}

bool ApreScheda(const QKeyEvent& Tasto)
{
    return EInvio(Tasto.key()) && (Tasto.modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier;
}

}  // namespace

CampoRubrica::CampoRubrica(QLineEdit* Campo, const QString& Tabella, QToolButton* Modifica,
                           AzioniRubrica Chieste)
    : QObject(Campo), Box(Campo), Azioni(std::move(Chieste)), Nomi(ElencoNomi::Di(Tabella))
{
    CreaSegno(Modifica);
    CreaElenco();
    Box->installEventFilter(this);
    Collega(Box, &QLineEdit::textEdited, this, &CampoRubrica::Digitato);
    TimerLettura.setInterval(0);
    Collega(&TimerLettura, &QTimer::timeout, this, &CampoRubrica::TimerLettura_Timer);
}

CampoRubrica::~CampoRubrica() = default;

// ---- the link

void CampoRubrica::CreaSegno(QToolButton* Modifica)
{
    Segno = Box->addAction(QIcon(), QLineEdit::TrailingPosition);
    Segno->setObjectName(u"segno_"_s + Box->objectName());
    Segno->setText(u"Scollega dall'archivio"_s);
    Segno->setVisible(false);
    Collega(Segno, &QAction::triggered, this, [this] {
        if (Diverso)
            Azioni.Scollega();
    });

    auto* Menu = new QMenu(Modifica);
    Menu->setObjectName(u"menu_"_s + Modifica->objectName());
    auto* Edita = Menu->addAction(Modifica->toolTip());
    auto* Scollega = Menu->addAction(Segno->text());
    Collega(Edita, &QAction::triggered, this, [this] { Azioni.Scheda(); });
    Collega(Scollega, &QAction::triggered, this, [this] { Azioni.Scollega(); });
    Modifica->setMenu(Menu);
    Modifica->setPopupMode(QToolButton::MenuButtonPopup);
    // Beside the button, and under the right button of the mouse.
    Modifica->setContextMenuPolicy(Qt::CustomContextMenu);
    Collega(Modifica, &QToolButton::customContextMenuRequested, Modifica, &QToolButton::showMenu);
}

void CampoRubrica::Mostra(int Chiave, const QString& Nome)
{
    Diverso = Chiave > 0 && Box->text() != Nome;
    Segno->setVisible(Chiave > 0);
    Segno->setIcon(aspetto::Icona(Diverso ? u"linkdiverso"_s : u"link"_s));
    QString Frase;
    if (Chiave > 0 && Nome.isEmpty())
        Frase = u"Collegato all'archivio, ma il nominativo non è stato trovato"_s;
    else if (Chiave > 0)
        Frase = u"Collegato all'archivio: "_s + Nome;
    if (Diverso && !Nome.isEmpty())
        Frase += u"\nIl testo è diverso, ma alla riapertura tornerà il nome dell'archivio.\n"
                 u"Un clic sul segno lo scollega."_s;
    else if (Chiave > 0 && !Nome.isEmpty())
        Frase += u"\nPer scollegarlo c'è il menu del pulsante di modifica."_s;
    // A screen reader says it of the box; the mark itself is reached by the mouse alone.
    Box->setAccessibleDescription(Frase);
    Segno->setToolTip(Frase);
}

// ---- the names

void CampoRubrica::CreaElenco()
{
    // No popup, which would take keys and clicks: whoever pays no heed to the list types and clicks on.
    Elenco = new QListWidget(Box);
    Elenco->setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    Elenco->setAttribute(Qt::WA_ShowWithoutActivating);
    Elenco->setFocusPolicy(Qt::NoFocus);
    Elenco->setObjectName(u"lstNomi_"_s + Box->objectName());
    Elenco->setAccessibleName(u"Nominativi dell'archivio"_s);
    Elenco->setUniformItemSizes(true);
    Elenco->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Elenco->setTextElideMode(Qt::ElideRight);
    Elenco->hide();
    Collega(Elenco, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* Voce) { Scegli(Elenco->row(Voce)); });
}

bool CampoRubrica::ElencoInVista() const
{
    return Elenco->isVisible();
}

void CampoRubrica::Digitato()
{
    if (Box->text().trimmed().size() < LettereMinime) {
        Atteso = false;
        NascondiElenco();
        return;
    }
    if (!ElencoInVista() && !TimerLettura.isActive())
        Nomi->Segui();
    Atteso = !Nomi->Completo();
    if (Atteso)
        TimerLettura.start();
    MostraElenco();
}

void CampoRubrica::TimerLettura_Timer()
{
    if (Nomi->Avanza())
        return;
    TimerLettura.stop();
    if (std::exchange(Atteso, false))
        MostraElenco();
}

void CampoRubrica::MostraElenco()
{
    const QList<NomeOfferto> Offerti =
        Box->hasFocus() ? Nomi->Proponi(Box->text(), VociOfferte) : QList<NomeOfferto>();
    if (Offerti.isEmpty()) {
        NascondiElenco();
        return;
    }
    Elenco->clear();
    for (const NomeOfferto& Offerto : Offerti) {
        const QString Citta = Offerto.Citta.isEmpty() ? QString() : u" – "_s + Offerto.Citta;
        auto* Voce = new QListWidgetItem(Offerto.Nome + Citta, Elenco);
        Voce->setData(Qt::UserRole, Offerto.Chiave);
        Voce->setSizeHint({0, Elenco->fontMetrics().height() + AriaVoce});
    }
    Elenco->setCurrentRow(-1);
    int Larghezza = 0;
    for (int i = 0; i < Elenco->count(); ++i)
        Larghezza = std::max(Larghezza, Elenco->fontMetrics().horizontalAdvance(Elenco->item(i)->text()));
    Larghezza += 2 * AriaVoce + Elenco->verticalScrollBar()->sizeHint().width();
    const int Righe = std::min(int(Offerti.size()), RigheInVista);
    const int Altezza = Elenco->sizeHintForRow(0) * Righe + 2 * Elenco->frameWidth();
    QRect Posto(Box->mapToGlobal(QPoint(0, Box->height())),
                QSize(std::max(Box->width(), std::min(Larghezza, LarghezzaMassima)), Altezza));
    const QRect Schermo = Box->screen()->availableGeometry();
    if (Posto.bottom() > Schermo.bottom())
        Posto.moveBottom(Box->mapToGlobal(QPoint(0, 0)).y() - 1);
    Posto.moveLeft(std::max(Schermo.left(), std::min(Posto.left(), Schermo.right() - Posto.width() + 1)));
    Elenco->setGeometry(Posto);
    // The list stands on the screen by itself: it goes when what the box stands in moves.
    if (Cornici.isEmpty())
        for (QWidget* Padre = Box->parentWidget(); Padre; Padre = Padre->parentWidget()) {
            Padre->installEventFilter(this);
            Cornici.append(Padre);
        }
    Elenco->show();
    Elenco->raise();
}

void CampoRubrica::NascondiElenco()
{
    Elenco->hide();
    for (const QPointer<QWidget>& Cornice : std::exchange(Cornici, {}))
        if (Cornice)
            Cornice->removeEventFilter(this);
}

void CampoRubrica::Scegli(int Riga)
{
    const QListWidgetItem* Voce = Elenco->item(Riga);
    const int Chiave = Voce ? Voce->data(Qt::UserRole).toInt() : 0;
    Atteso = false;
    NascondiElenco();
    if (Chiave <= 0)
        return;
    Azioni.Scegli(Chiave);
    Box->end(false);  // what is typed next goes behind the name, and not in its place
}

// ---- the keys

bool CampoRubrica::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    const QEvent::Type Tipo = Evento->type();
    if (Tipo == QEvent::Move || Tipo == QEvent::Resize || Tipo == QEvent::WindowDeactivate ||
        Tipo == QEvent::Hide)
        NascondiElenco();
    if (Oggetto != Box)
        return QObject::eventFilter(Oggetto, Evento);
    switch (Tipo) {
    case QEvent::FocusOut:
        Atteso = false;
        NascondiElenco();
        break;
    case QEvent::ShortcutOverride: {
        const auto& Premuto = *static_cast<QKeyEvent*>(Evento);
        if (ApreRubrica(Premuto) || ApreScheda(Premuto) ||
            (ElencoInVista() && Premuto.key() == Qt::Key_Escape)) {
            Evento->accept();
            return true;
        }
        break;
    }
    case QEvent::KeyPress:
        if (Tasto(*static_cast<QKeyEvent*>(Evento))) {
            Evento->accept();
            return true;
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(Oggetto, Evento);
}

bool CampoRubrica::Tasto(const QKeyEvent& Premuto)
{
    if (ApreRubrica(Premuto) || ApreScheda(Premuto)) {
        NascondiElenco();
        // What opens may close this window: the key is not worked on inside it.
        QMetaObject::invokeMethod(this, ApreRubrica(Premuto) ? Azioni.Apri : Azioni.Scheda,
                                  Qt::QueuedConnection);
        return true;
    }
    return ElencoInVista() && TastoElenco(Premuto);
}

bool CampoRubrica::TastoElenco(const QKeyEvent& Premuto)
{
    const int Righe = Elenco->count();
    const int Riga = Elenco->currentRow();
    switch (Premuto.key()) {
    case Qt::Key_Down:
        Elenco->setCurrentRow(std::min(Riga + 1, Righe - 1));
        return true;
    case Qt::Key_Up:
        Elenco->setCurrentRow(Riga - 1);  // above the first none is marked
        return true;
    case Qt::Key_PageDown:
        Elenco->setCurrentRow(std::min(std::max(Riga, 0) + RigheInVista - 1, Righe - 1));
        return true;
    case Qt::Key_PageUp:
        Elenco->setCurrentRow(std::max(Riga - RigheInVista + 1, 0));
        return true;
    case Qt::Key_Escape:
        NascondiElenco();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (Riga < 0)
            return false;
        Scegli(Riga);
        return true;
    default:
        return false;
    }
}

#include "moc_camporubrica.cpp"
