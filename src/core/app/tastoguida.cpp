#include "core/app/tastoguida.h"

#include "core/app/avvio.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/kit/collega.h"
#include "platform/kit/servizi_qt.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "update/viewer/frmWeb.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPointer>
#include <QPrintDialog>
#include <QScrollArea>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView Indice = u"indice";

QString Cartella()
{
    return sessione::PercorsoProg + Barra(u"aiuto"_s);
}

QString FileDi(const QString& Pagina)
{
    return Cartella() + Pagina + u".htm"_s;
}

/// The page that bears the name of a widget or of its class, empty where there is none.
QString PaginaPropria(const QWidget* Di)
{
    for (const QString& Nome : {Di->objectName(), QString::fromLatin1(Di->metaObject()->className())})
        if (!Nome.isEmpty() && EsisteFile(FileDi(Nome)))
            return Nome;
    return {};
}

/// The dialogs of the toolkit have no names of the program's.
QString PaginaDiDialogo(const QWidget* Finestra)
{
    if (qobject_cast<const QMessageBox*>(Finestra))
        return u"messaggi"_s;
    if (qobject_cast<const QInputDialog*>(Finestra))
        return u"domande"_s;
    if (qobject_cast<const QFileDialog*>(Finestra))
        return u"sceltafile"_s;
    if (qobject_cast<const QColorDialog*>(Finestra))
        return u"sceltacolore"_s;
    if (qobject_cast<const QAbstractPrintDialog*>(Finestra))
        return u"stampante"_s;
    return {};
}

/// What a window shows: the note in front, the tab on view.
QString PaginaContenuta(const QWidget* Finestra)
{
    if (const auto* Area = Finestra->findChild<QMdiArea*>())
        if (const QMdiSubWindow* Davanti = Area->currentSubWindow(); Davanti && Davanti->widget()) {
            const QString Sua = PaginaContenuta(Davanti->widget());
            return Sua.isEmpty() ? PaginaPropria(Davanti->widget()) : Sua;
        }
    for (const QTabWidget* Schede : Finestra->findChildren<QTabWidget*>()) {
        const QWidget* Scheda = Schede->isVisible() ? Schede->currentWidget() : nullptr;
        while (Scheda) {
            if (QString Sua = PaginaPropria(Scheda); !Sua.isEmpty())
                return Sua;
            const auto* Cornice = qobject_cast<const QScrollArea*>(Scheda);
            Scheda = Cornice ? Cornice->widget() : nullptr;
        }
    }
    return {};
}

/// The viewer of the guide. It belongs to the dialog that it was opened above, and may go with it.
QPointer<frmWeb>& VisoreGuida()
{
    static QPointer<frmWeb> Visore;
    return Visore;
}

/// True when a window was opened by another one, across windows too.
bool Discende(const QWidget* Figlia, const QWidget* Da)
{
    while (Figlia && Figlia != Da)
        Figlia = Figlia->parentWidget();
    return Figlia != nullptr;
}

frmWeb& PreparaVisore(QWidget* Sopra)
{
    QPointer<frmWeb>& Visore = VisoreGuida();
    if (!Visore) {
        Visore = new frmWeb;
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, Visore.data(), &QObject::deleteLater);
        Collega(Visore.data(), &QDialog::finished, qApp, FineSenzaFinestre);
    }
    // A box of the viewer's own cannot be its parent: it is read once the box is answered.
    if (Visore->parentWidget() != Sopra && !Discende(Sopra, Visore))
        Visore->setParent(Sopra, Visore->windowFlags());
    return *Visore;
}

/// Ctrl+?, which is Ctrl+Shift with another key on every keyboard.
bool ChiedeITasti(const QKeyEvent& Premuto)
{
    const Qt::KeyboardModifiers Con = Premuto.modifiers() & ~Qt::ShiftModifier;
    return Premuto.key() == Qt::Key_Question && Con == Qt::ControlModifier;
}

class TastoGuida : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        if (Evento->type() != QEvent::KeyPress || !Oggetto->isWidgetType() || RespiroInCorso())
            return false;
        const auto* Premuto = static_cast<QKeyEvent*>(Evento);
        const bool Tasti = ChiedeITasti(*Premuto);
        if (!Tasti && (Premuto->key() != Qt::Key_F1 || Premuto->modifiers() != Qt::NoModifier))
            return false;
        if (!Premuto->isAutoRepeat())
            Protetta([&] {
                const QString Pagina =
                    Tasti ? PaginaDeiTasti.toString() : PaginaDellaGuida(static_cast<QWidget*>(Oggetto));
                // An open list or menu keeps mouse and keys to itself.
                while (QWidget* Aperto = QApplication::activePopupWidget())
                    if (!Aperto->close())
                        break;
                ApriGuida(Pagina);
            });
        return true;
    }
};

}  // namespace

QString PaginaDellaGuida(const QWidget* Dove)
{
    for (const QWidget* Qui = Dove; Qui; Qui = Qui->parentWidget()) {
        QString Sua = PaginaContenuta(Qui);
        if (Sua.isEmpty())
            Sua = PaginaPropria(Qui);
        if (Sua.isEmpty())
            Sua = PaginaDiDialogo(Qui);
        if (!Sua.isEmpty())
            return Sua;
    }
    return Indice.toString();
}

void ApriGuida(const QString& Pagina)
{
    if (!EsisteFile(TrovaFile(FileDi(Pagina)))) {
        MsgErrore(u"La guida manca dalla cartella del programma: reinstallarlo la rimette al suo posto."_s);
        return;
    }
    frmWeb& Visore = PreparaVisore(QApplication::activeModalWidget());
    Visore.Guida = Cartella();
    Visore.Indirizzo = FileDi(Pagina);
    Visore.Titolo = u"Calcanova - Guida"_s;
    Visore.Mostra();
}

void InstallaTastoGuida()
{
    qApp->installEventFilter(new TastoGuida(qApp));
}
