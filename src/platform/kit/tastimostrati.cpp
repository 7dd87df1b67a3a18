#include "platform/kit/tastimostrati.h"

#include "platform/base/nometasti.h"

#include <QAbstractButton>
#include <QAction>
#include <QHelpEvent>
#include <QKeySequence>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

/// Shows the hint of a button in its place.
class TastiNelSuggerimento : public QObject
{
public:
    explicit TastiNelSuggerimento(QWidget* Padre) : QObject(Padre) { Padre->installEventFilter(this); }

    QKeySequence Tasti;

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        auto* Bottone = qobject_cast<QWidget*>(Oggetto);
        if (Evento->type() != QEvent::ToolTip || !Bottone || Tasti.isEmpty())
            return QObject::eventFilter(Oggetto, Evento);
        QToolTip::showText(static_cast<QHelpEvent*>(Evento)->globalPos(), SuggerimentoMostrato(Bottone),
                           Bottone);
        return true;
    }
};

const QString NomeFiltro = u"tastiMostrati"_s;

TastiNelSuggerimento* FiltroDi(const QWidget* Bottone)
{
    return static_cast<TastiNelSuggerimento*>(
        Bottone->findChild<QObject*>(NomeFiltro, Qt::FindDirectChildrenOnly));
}

}  // namespace

QString SuggerimentoMostrato(const QWidget* Bottone)
{
    QString Testo = Bottone->toolTip();
    if (Testo.isEmpty())
        if (const auto* Premibile = qobject_cast<const QAbstractButton*>(Bottone))
            Testo = Premibile->text().remove(u'&');
    const TastiNelSuggerimento* Filtro = FiltroDi(Bottone);
    const QString Tasti = Filtro ? Filtro->Tasti.toString(QKeySequence::PortableText) : QString();
    const QString Intero = SuggerimentoConTasti(Testo, Tasti);
    // Hints that were written with their keys name them once.
    const QString Coda = Intero.mid(Testo.size());
    return !Coda.isEmpty() && Testo.endsWith(Coda) ? Testo : Intero;
}

void MostraTasti(QWidget* Bottone, const QKeySequence& Tasti)
{
    TastiNelSuggerimento* Filtro = FiltroDi(Bottone);
    if (!Filtro) {
        Filtro = new TastiNelSuggerimento(Bottone);
        Filtro->setObjectName(NomeFiltro);
    }
    Filtro->Tasti = Tasti;
}

void MostraTasti(QAction* Voce, const QKeySequence& Tasti)
{
    // Behind a tab they are words. A shortcut of the entry would be one of the button that has the menu, too,
    // and in its window nobody would answer it while that button has the focus.
    const QString Testo = Voce->text().section(u'\t', 0, 0);
    Voce->setText(Tasti.isEmpty() ? Testo
                                  : Testo + u'\t' + NomeTasti(Tasti.toString(QKeySequence::PortableText)));
}
