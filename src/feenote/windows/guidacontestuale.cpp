#include "feenote/windows/guidacontestuale.h"

#include "core/comandi.h"

#include <QAction>
#include <QEvent>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

class GuidaPresente : public QObject
{
public:
    GuidaPresente(QToolBar* Barra, QAction* Bottone)
        : QObject(Barra), Tasto(Bottone), Scritta(Bottone->toolTip())
    {
        Barra->installEventFilter(this);
        Aggiorna();
    }

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        if (Evento->type() == QEvent::Show)
            Aggiorna();
        return QObject::eventFilter(Oggetto, Evento);
    }

private:
    void Aggiorna()
    {
        const QString Motivo = Impedimento(u"guida");
        Tasto->setEnabled(Motivo.isEmpty());
        Tasto->setToolTip(Motivo.isEmpty() ? Scritta : Scritta + u": "_s + Motivo);
    }

    QAction* Tasto;
    QString Scritta;
};

}  // namespace

void SeguiGuida(QToolBar* Barra, QAction* Tasto)
{
    new GuidaPresente(Barra, Tasto);
}
