#include "feenote/windows/barrastampa.h"

#include "feenote/windows/barrarighe.h"
#include "platform/kit/collega.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// A button; a separator stands where the group changes.
struct Bottone
{
    QStringView Chiave;
    QStringView Suggerimento;
    int Gruppo;
};

enum GruppoBarra { Vista, Uscita, Guida };

constexpr std::array Bottoni{
    Bottone{u"up", u"Pagina precedente", Vista},
    Bottone{u"down", u"Pagina successiva", Vista},
    Bottone{u"zoom", u"Dimensioni preview", Vista},
    Bottone{u"print", u"Stampa parcella", Uscita},
    Bottone{u"pdf", u"Salva in PDF", Uscita},
    Bottone{u"word", u"Esporta in Word", Uscita},
    Bottone{u"wp", u"Avvia editor alternativo", Uscita},
    Bottone{u"help", u"Guida contestuale", Guida},
};

struct VoceZoom
{
    QStringView Testo;
    int Numero;
};

constexpr std::array VociZoom{
    VoceZoom{u"120%", 120}, VoceZoom{u"100%", 100}, VoceZoom{u"90%", 90},
    VoceZoom{u"80%", 80},   VoceZoom{u"70%", 70},   VoceZoom{u"Adatta", ZoomAlFoglio},
};

QMenu* MenuZoom(QWidget* Padre, const std::function<void(const QString&)>& Clic)
{
    auto* Tendina = new QMenu(Padre);
    for (const VoceZoom& Voce : VociZoom) {
        const QString Chiave = TastoZoom + QString::number(Voce.Numero);
        QAction* Azione = Tendina->addAction(Voce.Testo.toString());
        Azione->setObjectName(Chiave);
        Collega(Azione, &QAction::triggered, Padre, [Clic, Chiave] { Clic(Chiave); });
    }
    return Tendina;
}

/// Pushes what follows to the right end.
void AggiungiSpazio(QToolBar* Barra)
{
    auto* Spazio = new QWidget(Barra);
    Spazio->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    Barra->addWidget(Spazio);
}

QLabel* AggiungiPagina(QToolBar* Barra)
{
    auto* Pagina = new QLabel(Barra);
    Pagina->setObjectName(u"txtPage"_s);
    Pagina->setToolTip(u"Pagina in vista e numero di pagine"_s);
    Pagina->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Pagina->setMinimumWidth(Pagina->fontMetrics().horizontalAdvance(u"999/999"_s));
    Barra->addWidget(Pagina);
    return Pagina;
}

}  // namespace

QLabel* CostruisciBarraStampa(QToolBar* Barra, const std::function<void(const QString& Chiave)>& Clic)
{
    constexpr int LatoIcona = 18;
    Barra->setIconSize({LatoIcona, LatoIcona});
    int Gruppo = Bottoni.front().Gruppo;
    for (const Bottone& Uno : Bottoni) {
        if (Uno.Gruppo != Gruppo)
            Barra->addSeparator();
        Gruppo = Uno.Gruppo;
        const QString Chiave = Uno.Chiave.toString();
        QAction* Tasto = AggiungiTasto(Barra, Chiave, Uno.Suggerimento.toString());
        Collega(Tasto, &QAction::triggered, Barra, [Clic, Chiave] { Clic(Chiave); });
        if (Uno.Chiave != u"zoom")
            continue;
        Tasto->setMenu(MenuZoom(Barra, Clic));
        qobject_cast<QToolButton*>(Barra->widgetForAction(Tasto))->setPopupMode(QToolButton::MenuButtonPopup);
    }
    AggiungiSpazio(Barra);
    return AggiungiPagina(Barra);
}
