#include "core/app/suggerimenti.h"

#include "core/tasti.h"
#include "platform/kit/tastimostrati.h"

#include <QApplication>
#include <QEvent>
#include <QKeySequence>
#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool StaIn(const QWidget* Controllo, QStringView Finestra)
{
    for (const QWidget* Padre = Controllo; Padre; Padre = Padre->parentWidget())
        if (Padre->objectName() == Finestra ||
            QLatin1StringView(Padre->metaObject()->className()) == Finestra)
            return true;
    return false;
}

/// Of the grids' keys the bar beside them has the buttons.
bool SiChiama(const QWidget* Controllo, const RigaTasti& Riga)
{
    const QString Nome = Controllo->objectName();
    for (const QString& Suo : Riga.Comando.toString().split(u' ', Qt::SkipEmptyParts))
        if (Nome == u"barParcelle_"_s + Suo ||
            (Nome == Suo &&
             (Riga.Finestra == u"Griglia" || Riga.Finestra.isEmpty() || StaIn(Controllo, Riga.Finestra))))
            return true;
    return false;
}

class Suggerimenti : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        if (Evento->type() == QEvent::ToolTip && Oggetto->isWidgetType())
            PreparaSuggerimento(static_cast<QWidget*>(Oggetto));
        return false;
    }
};

}  // namespace

const RigaTasti* TastiDelControllo(const QWidget* Controllo)
{
    if (Controllo->objectName().isEmpty())
        return nullptr;
    const auto& Tutti = TabellaTasti();
    const auto Trovata =
        std::ranges::find_if(Tutti, [Controllo](const RigaTasti& Riga) { return SiChiama(Controllo, Riga); });
    return Trovata == Tutti.end() ? nullptr : &*Trovata;
}

void PreparaSuggerimento(QWidget* Controllo)
{
    if (const RigaTasti* Riga = TastiDelControllo(Controllo))
        MostraTasti(Controllo,
                    QKeySequence(Riga->Tasti.toString().section(u' ', 0, 0), QKeySequence::PortableText));
}

void InstallaSuggerimenti()
{
    qApp->installEventFilter(new Suggerimenti(qApp));
}
