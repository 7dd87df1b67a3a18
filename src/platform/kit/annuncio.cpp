#include "platform/kit/annuncio.h"

#include "platform/kit/collega.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

const QString NomeAnnuncio = u"annuncio"_s;
const QString NomePausa = u"pausaAnnuncio"_s;

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

QString Mostrato(const QWidget* Risultato)
{
    if (const auto* Cifra = qobject_cast<const QLabel*>(Risultato))
        return Cifra->text();
    const auto* Casella = qobject_cast<const QLineEdit*>(Risultato);
    return Casella ? Casella->text() : QString();
}

QString Detto(const QWidget* Risultato)
{
    const QString Testo = Mostrato(Risultato).simplified();
    const QString Nome = Risultato->accessibleName().simplified();
    if (Testo.isEmpty())
        return {};
    return Nome.contains(Testo) ? Nome : (Nome + u' ' + Testo).trimmed();
}

}  // namespace

void AnnunciaRisultato(QWidget* Risultato)
{
    QWidget* Finestra = Risultato->window();
    delete Finestra->findChild<QTimer*>(NomePausa, Qt::FindDirectChildrenOnly);
    auto* Pausa = new QTimer(Finestra);
    Pausa->setObjectName(NomePausa);
    Pausa->setSingleShot(true);
    Collega(Pausa, &QTimer::timeout, Risultato, [Pausa, Risultato] {
        Pausa->deleteLater();
        AnnunciaTesto(Risultato, Detto(Risultato));
    });
    Pausa->start(PausaAnnuncioMs);
}

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
