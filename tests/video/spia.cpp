// A plugin that a test loads into the unmodified program: it answers, over a local socket, what is on view
// and what has the focus. It only looks; keys and mouse come from the display server.
//
// One question a line, one answer a line ("\n" in an answer is written as "\\n"):
//   fuoco            name of what has the focus, or of the nearest named widget around it
//   pulsante         "1" when what has the focus is a button, which Enter or Space would press
//   acceso           name of the default button of the active window, or its text, where it is lit as one
//   attiva           title of the active window, "|" and that of its active document
//   finestra         name of the active window
//   dipinta          "1" when the active window has been painted
//   messaggio        text of the message box on view
//   davanti          "1" when that message box has the keyboard
//   popup            name of the open list or menu
//   valori           names of what holds a value on view in the active window: boxes, lists, numbers, sliders
//   liste            those of them that are lists
//   tagliati         what in the active window has no room for its text, as NAME=text, one beside the other
//   larghe           the pages of the active window that scroll sideways, one beside the other
//   testo NAME       what a widget shows; a check box or option "1" or "0"
//   visto NAME       "1" on view and enabled, "0" on view, empty elsewhere
//   posto NAME       x y width height on the screen, in its own pixels
//   cella NAME R C   the same of a cell of a grid, then its text; column -1 is the row selector
//   barra NAME       "1" while a grid's own horizontal bar is on view, and the last place that it reaches
//   corse NAME       how far a scrolled area goes, across and down: "0 0" when all of it is on view
//   nomi             what a screen reader would find wrong with the active window, one beside the other
//   contati          key presses and wheel turns that have reached the program
#include "supporto/accessibili.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QGenericPlugin>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocalServer>
#include <QLocalSocket>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSet>
#include <QTabWidget>
#include <QTableView>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>
#include <QWindow>

namespace {

QString NomeVicino(const QWidget* Da)
{
    for (; Da; Da = Da->parentWidget())
        if (!Da->objectName().isEmpty() && !Da->objectName().startsWith(QStringLiteral("qt_")))
            return Da->objectName();
    return {};
}

QMdiSubWindow* DocumentoAttivo(const QWidget* Finestra)
{
    const auto* Area = Finestra ? Finestra->findChild<QMdiArea*>() : nullptr;
    return Area ? Area->activeSubWindow() : nullptr;
}

/// The widget of a name that the user means: in the document in front, in the active window, anywhere.
QWidget* Trova(const QString& Nome)
{
    QWidget* Attiva = QApplication::activeWindow();
    const QWidget* Documento = DocumentoAttivo(Attiva);
    QWidget* Trovato = nullptr;
    int Merito = -1;
    for (QWidget* Oggetto : QApplication::allWidgets()) {
        if (Oggetto->objectName() != Nome)
            continue;
        int Suo = Oggetto->isVisible() ? 1 : 0;
        if (Suo && Attiva && Attiva->isAncestorOf(Oggetto))
            Suo = Documento && Documento->isAncestorOf(Oggetto) ? 3 : 2;
        if (Suo > Merito) {
            Merito = Suo;
            Trovato = Oggetto;
        }
    }
    return Trovato;
}

QString Riquadro(const QWidget* Oggetto, const QRect& Dentro)
{
    const qreal Scala = Oggetto->devicePixelRatioF();
    const QPoint Alto = Oggetto->mapToGlobal(Dentro.topLeft());
    return QStringLiteral("%1 %2 %3 %4")
        .arg(qRound(Alto.x() * Scala))
        .arg(qRound(Alto.y() * Scala))
        .arg(qRound(Dentro.width() * Scala))
        .arg(qRound(Dentro.height() * Scala));
}

QString TestoDi(const QWidget* Oggetto)
{
    if (const auto* Riga = qobject_cast<const QLineEdit*>(Oggetto))
        return Riga->displayText();
    if (const auto* Lista = qobject_cast<const QComboBox*>(Oggetto))
        return Lista->currentText();
    if (const auto* Etichetta = qobject_cast<const QLabel*>(Oggetto))
        return Etichetta->text();
    if (const auto* Pulsante = qobject_cast<const QAbstractButton*>(Oggetto))
        return Pulsante->isCheckable() ? QString::number(Pulsante->isChecked()) : Pulsante->text();
    if (const auto* Schede = qobject_cast<const QTabWidget*>(Oggetto))
        return Schede->tabText(Schede->currentIndex()).remove(u'&');
    if (const auto* Cursore = qobject_cast<const QAbstractSlider*>(Oggetto))
        return QString::number(Cursore->value());
    if (const auto* Elenco = qobject_cast<const QListWidget*>(Oggetto)) {
        QStringList Voci;
        for (int i = 0; i < Elenco->count(); ++i)
            Voci += Elenco->item(i)->text();
        return Voci.join(QStringLiteral(" | "));
    }
    if (const auto* Numero = qobject_cast<const QAbstractSpinBox*>(Oggetto))
        return Numero->text();
    if (const auto* Testo = qobject_cast<const QTextEdit*>(Oggetto))
        return Testo->toPlainText();
    const auto* Piano = qobject_cast<const QPlainTextEdit*>(Oggetto);
    return Piano ? Piano->toPlainText() : QString();
}

QString Messaggio()
{
    for (const QWidget* Finestra : QApplication::topLevelWidgets())
        if (const auto* Box = qobject_cast<const QMessageBox*>(Finestra); Box && Box->isVisible())
            return Box->text();
    return {};
}

QString Attiva()
{
    const QWidget* Finestra = QApplication::activeWindow();
    const QMdiSubWindow* Documento = DocumentoAttivo(Finestra);
    return Finestra ? Finestra->windowTitle() + (Documento ? u'|' + Documento->windowTitle() : QString())
                    : QString();
}

QList<QWidget*> InVista()
{
    QList<QWidget*> Trovati;
    const QWidget* Finestra = QApplication::activeWindow();
    for (QWidget* Oggetto : Finestra ? Finestra->findChildren<QWidget*>() : QList<QWidget*>())
        if (Oggetto->isVisible() && !Oggetto->visibleRegion().isEmpty())
            Trovati += Oggetto;
    return Trovati;
}

bool TieneUnValore(const QWidget* Oggetto)
{
    return qobject_cast<const QComboBox*>(Oggetto) || qobject_cast<const QAbstractSpinBox*>(Oggetto) ||
           qobject_cast<const QLineEdit*>(Oggetto) || qobject_cast<const QPlainTextEdit*>(Oggetto) ||
           (qobject_cast<const QAbstractSlider*>(Oggetto) && !qobject_cast<const QScrollBar*>(Oggetto));
}

QString Valori(bool SoloListe)
{
    QStringList Nomi;
    for (const QWidget* Oggetto : InVista())
        if (Oggetto->isEnabled() &&
            (SoloListe ? qobject_cast<const QComboBox*>(Oggetto) != nullptr : TieneUnValore(Oggetto)) &&
            NomeVicino(Oggetto) == Oggetto->objectName())
            Nomi += Oggetto->objectName();
    return Nomi.join(u' ');
}

/// The text of a label or a button for which there is no room, as it shows it.
QString TestoTagliato(const QWidget* Oggetto)
{
    constexpr int Arrotondamento = 1;
    if (const auto* Etichetta = qobject_cast<const QLabel*>(Oggetto)) {
        // One that is shortened on purpose says the whole of it in its tool tip.
        if (Etichetta->text().isEmpty() || !Etichetta->toolTip().isEmpty())
            return {};
        const int Largo = Etichetta->width() + Arrotondamento;
        const int Alto = Etichetta->hasHeightForWidth() ? Etichetta->heightForWidth(Etichetta->width())
                                                        : Etichetta->sizeHint().height();
        const bool Stretta = !Etichetta->wordWrap() && Etichetta->sizeHint().width() > Largo;
        return Stretta || Alto > Etichetta->height() + Arrotondamento ? Etichetta->text() : QString();
    }
    if (const auto* Pulsante = qobject_cast<const QAbstractButton*>(Oggetto)) {
        const bool ConTesto = !Pulsante->text().isEmpty() && !Pulsante->inherits("QToolButton");
        return ConTesto && Pulsante->sizeHint().width() > Pulsante->width() + Arrotondamento
                   ? Pulsante->text()
                   : QString();
    }
    return {};
}

QString Tagliati()
{
    QStringList Trovati;
    for (const QWidget* Oggetto : InVista()) {
        if (const QString Testo = TestoTagliato(Oggetto); !Testo.isEmpty())
            Trovati += NomeVicino(Oggetto) + u'=' + Testo;
    }
    return Trovati.join(QStringLiteral(", "));
}

QString PagineLarghe()
{
    QStringList Trovate;
    for (const QWidget* Oggetto : InVista()) {
        const auto* Pagina = qobject_cast<const QScrollArea*>(Oggetto);
        if (Pagina && Pagina->horizontalScrollBar()->maximum() > 0)
            Trovate += NomeVicino(Pagina->widget());
    }
    return Trovate.join(QStringLiteral(", "));
}

QTableView* VistaDi(QWidget* Griglia)
{
    auto* Vista = qobject_cast<QTableView*>(Griglia);
    return Vista || !Griglia ? Vista : Griglia->findChild<QTableView*>();
}

/// The row selector takes the place of a column before the first.
QString Cella(QWidget* Griglia, int Riga, int Colonna)
{
    QTableView* Vista = VistaDi(Griglia);
    if (!Vista || !Vista->model())
        return {};
    if (Colonna < 0) {
        const QHeaderView* Selettore = Vista->verticalHeader();
        if (Riga >= Selettore->count())
            return {};
        return Riquadro(Selettore->viewport(), {0, Selettore->sectionViewportPosition(Riga),
                                                Selettore->width(), Selettore->sectionSize(Riga)});
    }
    const QModelIndex Indice = Vista->model()->index(Riga, Colonna);
    if (!Indice.isValid())
        return {};
    return Riquadro(Vista->viewport(), Vista->visualRect(Indice)) + u' ' +
           Indice.data().toString().replace(u'\n', u' ');
}

/// What is lit is what is drawn otherwise than the same button without the default.
QString Acceso()
{
    const QWidget* Finestra = QApplication::activeWindow();
    for (QPushButton* Pulsante : Finestra ? Finestra->findChildren<QPushButton*>() : QList<QPushButton*>()) {
        if (!Pulsante->isVisible() || !Pulsante->isDefault())
            continue;
        const QImage Disegno = Pulsante->grab().toImage();
        Pulsante->setDefault(false);
        const bool Diverso = Pulsante->grab().toImage() != Disegno;
        Pulsante->setDefault(true);
        if (Diverso)
            return Pulsante->objectName().isEmpty() ? Pulsante->text().remove(u'&') : Pulsante->objectName();
    }
    return {};
}

/// A grid shows a bar of its own, below its footer, in the view's place.
QString BarraDi(QWidget* Griglia)
{
    const QTableView* Vista = VistaDi(Griglia);
    for (const auto* Barra :
         Griglia ? Griglia->findChildren<QScrollBar*>(Qt::FindDirectChildrenOnly) : QList<QScrollBar*>())
        if (Vista && Barra->orientation() == Qt::Horizontal)
            return QStringLiteral("%1 %2")
                .arg(Barra->isVisible() ? 1 : 0)
                .arg(Vista->horizontalScrollBar()->maximum());
    return {};
}

/// Counts what comes from the display server, once each: at the window, before a widget has it.
class Contatore : public QObject
{
public:
    int Tasti = 0;
    int Rotelle = 0;
    QSet<const QObject*> Dipinte;  ///< windows that the display has asked to paint themselves

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        if (Evento->type() == QEvent::Expose)
            Dipinte.insert(Oggetto);
        if (!qobject_cast<QWindow*>(Oggetto))
            return false;
        // Every key asks first whether it may be a shortcut; only those that are none come as a press.
        Tasti += Evento->type() == QEvent::ShortcutOverride;
        Rotelle += Evento->spontaneous() && Evento->type() == QEvent::Wheel;
        return false;
    }
};

/// What a page shows of itself can be told from how far it scrolls.
QString Corse(const QWidget* Oggetto)
{
    const auto* Area = qobject_cast<const QAbstractScrollArea*>(Oggetto);
    return Area ? QStringLiteral("%1 %2")
                      .arg(Area->horizontalScrollBar()->maximum())
                      .arg(Area->verticalScrollBar()->maximum())
                : QString();
}

class Spia : public QObject
{
public:
    explicit Spia(const QString& Indirizzo)
    {
        // The program's own start comes first.
        QTimer::singleShot(0, this, [this, Indirizzo] {
            QCoreApplication::instance()->installEventFilter(&Contati);
            connect(&Porta, &QLocalServer::newConnection, this,
                    [this] { Accogli(Porta.nextPendingConnection()); });
            Porta.listen(Indirizzo);
        });
    }

private:
    void Accogli(QLocalSocket* Filo)
    {
        connect(Filo, &QLocalSocket::readyRead, this, [this, Filo] {
            while (Filo->canReadLine()) {
                const QString Domanda = QString::fromUtf8(Filo->readLine()).trimmed();
                Filo->write(Risposta(Domanda.split(u' ')).replace(u'\n', QStringLiteral("\\n")).toUtf8() +
                            '\n');
            }
        });
    }

    QString Risposta(const QStringList& Parole)
    {
        const QString& Cosa = Parole.first();
        if (Cosa == u"fuoco")
            return NomeVicino(QApplication::focusWidget());
        if (Cosa == u"acceso")
            return Acceso();
        if (Cosa == u"attiva")
            return Attiva();
        if (Cosa == u"dipinta") {
            const QWidget* Finestra = QApplication::activeWindow();
            return Finestra && Contati.Dipinte.contains(Finestra->windowHandle()) ? QStringLiteral("1")
                                                                                  : QString();
        }
        if (Cosa == u"finestra")
            return QApplication::activeWindow() ? QApplication::activeWindow()->objectName() : QString();
        if (Cosa == u"messaggio")
            return Messaggio();
        if (Cosa == u"davanti")
            return qobject_cast<QMessageBox*>(QApplication::activeWindow()) ? QStringLiteral("1") : QString();
        if (Cosa == u"popup")
            return NomeVicino(QApplication::activePopupWidget());
        if (Cosa == u"pulsante")
            return qobject_cast<QPushButton*>(QApplication::focusWidget()) ||
                           qobject_cast<QToolButton*>(QApplication::focusWidget())
                       ? QStringLiteral("1")
                       : QString();
        if (Cosa == u"valori" || Cosa == u"liste")
            return Valori(Cosa == u"liste");
        if (Cosa == u"tagliati")
            return Tagliati();
        if (Cosa == u"larghe")
            return PagineLarghe();
        if (Cosa == u"nomi") {
            QWidget* Finestra = QApplication::activeWindow();
            return Finestra ? accessibili::Difetti(Finestra).join(QStringLiteral(", "))
                            : QStringLiteral("nessuna");
        }
        if (Cosa == u"contati")
            return QStringLiteral("%1 %2").arg(Contati.Tasti).arg(Contati.Rotelle);
        QWidget* Oggetto = Trova(Parole.value(1));
        if (!Oggetto)
            return {};
        if (Cosa == u"testo")
            return TestoDi(Oggetto);
        if (Cosa == u"visto")
            return Oggetto->isVisible() ? QString::number(Oggetto->isEnabled()) : QString();
        if (Cosa == u"posto" && Oggetto->isVisible())
            return Riquadro(Oggetto, Oggetto->rect());
        if (Cosa == u"barra")
            return BarraDi(Oggetto);
        if (Cosa == u"corse")
            return Corse(Oggetto);
        if (Cosa == u"cella")
            return Cella(Oggetto, Parole.value(2).toInt(), Parole.value(3).toInt());
        return {};
    }

    QLocalServer Porta;
    Contatore Contati;
};

}  // namespace

class PluginSpia : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "spia.json")

public:
    QObject* create(const QString& Nome, const QString&) override
    {
        const QString Indirizzo = qEnvironmentVariable("CALCANOVA_SPIA");
        return Nome == u"spia" && !Indirizzo.isEmpty() ? new Spia(Indirizzo) : nullptr;
    }
};

#include "spia.moc"
