#include "addressbook/windows/rubriche.h"

#include "addressbook/modRubrica.h"
#include "addressbook/windows/frmRubrica.h"
#include "platform/kit/trattieni.h"

#include <QApplication>
#include <QHash>
#include <QPointer>

#include <algorithm>

namespace {

QHash<int, QPointer<frmRubrica>>& Aperte()
{
    static QHash<int, QPointer<frmRubrica>> PerPosto;
    return PerPosto;
}

frmRubrica* Nuova()
{
    auto* Rubrica = new frmRubrica;
    Rubrica->setAttribute(Qt::WA_DeleteOnClose);
    TrattieniDietroIBox(Rubrica);
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, Rubrica, &QObject::deleteLater);
    return Rubrica;
}

/// Those too whose note has gone while a card was open.
QList<QPointer<frmRubrica>> Tutte()
{
    QList<QPointer<frmRubrica>> Trovate;
    for (QWidget* Finestra : QApplication::topLevelWidgets())
        if (auto* Rubrica = qobject_cast<frmRubrica*>(Finestra))
            Trovate.append(Rubrica);
    return Trovate;
}

}  // namespace

frmRubrica* RubricaDi(int Indice)
{
    frmRubrica* Rubrica = Aperte().value(Indice);
    return Rubrica && Rubrica->isVisible() ? Rubrica : nullptr;  // a closed one goes with the next events
}

void ApriRubrica(const RichiestaRubrica& Chiesta)
{
    frmRubrica* Presente = RubricaDi(Chiesta.Indice);
    // One that belongs to a former note in this place takes no choice for the new one.
    if (Presente && Presente->Chiesta().Numero != Chiesta.Numero) {
        Presente->LasciaNota();
        Aperte().remove(Chiesta.Indice);
        Presente = nullptr;
    }
    frmRubrica* Rubrica = Presente ? Presente : Nuova();
    Aperte()[Chiesta.Indice] = Rubrica;
    if (!Rubrica->Apri(Chiesta) && !Presente)
        Rubrica->deleteLater();
}

void ChiudiRubricaDi(int Indice, int Numero)
{
    frmRubrica* Presente = RubricaDi(Indice);
    if (!Presente || Presente->Chiesta().Numero != Numero)
        return;
    Aperte().remove(Indice);
    Presente->LasciaNota();
}

bool ChiudiRubriche()
{
    return std::ranges::all_of(Tutte(), [](const QPointer<frmRubrica>& Rubrica) {
        return !Rubrica || !Rubrica->isVisible() || Rubrica->close();
    });
}

void ChiudiRubricheAltrui()
{
    for (const QPointer<frmRubrica>& Rubrica : Tutte())
        if (Rubrica && Rubrica->isVisible() && !DellaSessione(Rubrica->Chiesta().DataSource))
            Rubrica->close();
}

bool CongedaRubriche()
{
    return std::ranges::all_of(Tutte(), [](const QPointer<frmRubrica>& Rubrica) {
        return !Rubrica || !Rubrica->isVisible() || Rubrica->Congeda();
    });
}

void RileggiRubriche(bool StessaTabella)
{
    for (const QPointer<frmRubrica>& Rubrica : Tutte())
        if (Rubrica && Rubrica->isVisible())
            Rubrica->RileggiTabella(StessaTabella);
}
