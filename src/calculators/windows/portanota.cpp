#include "calculators/windows/portanota.h"

#include "core/aperture.h"
#include "platform/base/regionale.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/rigachesvanisce.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

const QString Suggerimento = u"Porta nella parcella, fra le spese esenti"_s;
const QString SenzaNote = u"Porta nella parcella: nessuna parcella è aperta"_s;

QList<NotaInVista> Note()
{
    return Aperture.NoteInVista && Aperture.PortaSpese ? Aperture.NoteInVista() : QList<NotaInVista>();
}

}  // namespace

QString TestoSpese(const QList<SpesaDiLegge>& Spese)
{
    QStringList Parti;
    for (const SpesaDiLegge& Spesa : Spese)
        Parti << (Spesa.Voce == VoceDiLegge::Contributo ? u"contributo "_s : u"anticipazione "_s) +
                     Format(Spesa.Euro, ModelloImporto);
    return Parti.join(u", "_s);
}

PortaNota::PortaNota(QDialog* Modulo, RigaCheSvanisce* Detto) : QObject(Modulo), Finestra(Modulo), Riga(Detto)
{
    Modulo->installEventFilter(this);
    // A note that opens or closes beside this window moves the focus.
    Collega(qApp, &QApplication::focusChanged, this, [this] {
        if (Finestra->isVisible())
            Aggiorna();
    });
}

void PortaNota::Aggiungi(QAbstractButton* Bottone, std::function<bool()> Pronto,
                         std::function<QList<SpesaDiLegge>()> Spese, std::function<QString()> Fuori)
{
    Bottone->setIcon(aspetto::Icona(u"portanota"_s));
    Porte.append({Bottone, std::move(Pronto), std::move(Spese), std::move(Fuori)});
    Collega(Bottone, &QAbstractButton::clicked, this,
            [this, Quale = Porte.size() - 1] { Chiedi(Porte[Quale]); });
    Aggiorna();
}

void PortaNota::Accompagna(QWidget* Controllo)
{
    Accompagnano.append(Controllo);
    Aggiorna();
}

void PortaNota::Aggiorna()
{
    const bool Aperte = !Note().isEmpty();
    for (QWidget* Controllo : std::as_const(Accompagnano))
        Controllo->setEnabled(Aperte);
    for (const Porta& Una : std::as_const(Porte)) {
        Una.Bottone->setEnabled(Aperte && Una.Pronto());
        Una.Bottone->setToolTip(Aperte ? Suggerimento : SenzaNote);
    }
}

bool PortaNota::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    if (Evento->type() == QEvent::WindowActivate || Evento->type() == QEvent::Show)
        Aggiorna();
    return QObject::eventFilter(Oggetto, Evento);
}

void PortaNota::Chiedi(const Porta& Quale)
{
    const QList<SpesaDiLegge> Spese = Quale.Spese();
    const QString Fuori = Quale.Fuori ? Quale.Fuori() : QString();
    const QList<NotaInVista> Aperte = Note();
    if (Spese.isEmpty() || Aperte.isEmpty()) {
        Aggiorna();
        return;
    }
    if (Aperte.size() == 1) {
        PortaIn(Aperte.constFirst(), Spese, Fuori);
        return;
    }
    auto* Menu = new QMenu(Finestra);
    Menu->setObjectName(u"menuNote"_s);
    Menu->setAccessibleName(u"In quale parcella"_s);
    Menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const NotaInVista& Nota : Aperte)
        Collega(Menu->addAction(QString(Nota.Titolo).replace(u'&', u"&&"_s)), &QAction::triggered, this,
                [=, this] { PortaIn(Nota, Spese, Fuori); });
    Menu->setActiveAction(Menu->actions().constFirst());
    Menu->popup(Quale.Bottone->mapToGlobal(Quale.Bottone->rect().bottomLeft()));
}

void PortaNota::PortaIn(const NotaInVista& Nota, const QList<SpesaDiLegge>& Spese, const QString& Fuori)
{
    const QString Perche = Aperture.PortaSpese(Nota, Spese);
    Riga->Mostra(Perche.isEmpty() ? u"Portato in «%1»: %2"_s.arg(Nota.Titolo, TestoSpese(Spese) + Fuori)
                                  : u"Non portato in «%1»: %2"_s.arg(Nota.Titolo, Perche));
    Aggiorna();
}

#include "moc_portanota.cpp"
