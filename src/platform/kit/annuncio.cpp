#include "platform/kit/annuncio.h"

#include "platform/kit/collega.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QTimer>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

const QString NomeAnnuncio = u"annuncio"_s;

/// Readers speak what a notification says as it comes up, wherever the focus is.
QAccessibleInterface* Fabbrica(const QString& Classe, QObject* Oggetto)
{
    if (Classe != u"QWidget" || !Oggetto || Oggetto->objectName() != NomeAnnuncio)
        return nullptr;
    return new QAccessibleWidget(static_cast<QWidget*>(Oggetto), QAccessible::Notification);
}

/// The widget of a window that bears its announcements; made at the first of them.
QWidget* AnnuncioDi(QWidget* Finestra)
{
    if (auto* Pronto = Finestra->findChild<QWidget*>(NomeAnnuncio, Qt::FindDirectChildrenOnly))
        return Pronto;
    static const bool Installata = [] {
        QAccessible::installFactory(Fabbrica);
        return true;
    }();
    Q_UNUSED(Installata)
    auto* Nuovo = new QWidget(Finestra);
    Nuovo->setObjectName(NomeAnnuncio);
    Nuovo->setAttribute(Qt::WA_TransparentForMouseEvents);
    Nuovo->setGeometry(0, 0, 1, 1);  // a hidden one would be passed over
    auto* Fine = new QTimer(Nuovo);
    Fine->setSingleShot(true);
    Collega(Fine, &QTimer::timeout, Nuovo, [Nuovo] {
        Nuovo->hide();
        Nuovo->setAccessibleName({});
    });
    return Nuovo;
}

}  // namespace

void AnnunciaTesto(QWidget* Presso, const QString& Testo)
{
    if (Testo.isEmpty())
        return;
    QWidget* Annuncio = AnnuncioDi(Presso->window());
    Annuncio->setAccessibleName(Testo);
    Annuncio->show();
    Annuncio->findChild<QTimer*>()->start(DurataAnnuncioMs);
    // Bridges differ in which of these they hand on.
    for (const QAccessible::Event Evento : {QAccessible::ObjectShow, QAccessible::Alert}) {
        QAccessibleEvent Detto(Annuncio, Evento);
        QAccessible::updateAccessibility(&Detto);
    }
}
