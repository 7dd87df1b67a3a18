#include "platform/preview/barraanteprima.h"

#include "platform/kit/aspetto.h"
#include "platform/kit/barra.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/tastimostrati.h"
#include "platform/preview/vistastampa.h"

#include <QLabel>
#include <QMenu>
#include <QToolButton>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int MisuraVera = 100;
/// The number of the entry that fits the page to the window.
constexpr int AlFoglio = 999;

struct VoceZoom
{
    QStringView Scritta;
    int Numero;  ///< percent, or AlFoglio; its key is "z" and the number
};

constexpr std::array VociZoom{
    VoceZoom{u"120%", 120}, VoceZoom{u"100%", 100}, VoceZoom{u"90%", 90},
    VoceZoom{u"80%", 80},   VoceZoom{u"70%", 70},   VoceZoom{u"Adatta", AlFoglio},
};

/// A fit to the window that lasts: the window remembers it.
struct VoceAdattamento
{
    QStringView Scritta;
    QStringView Chiave;
    int Modo;
    QKeyCombination Tasto;
};

constexpr std::array VociAdattamento{
    VoceAdattamento{u"Pagina intera", u"paginaintera", VistaStampa::ZoomIntera, Qt::CTRL | Qt::Key_1},
    VoceAdattamento{u"Larghezza pagina", u"larghezzapagina", VistaStampa::ZoomLarghezza,
                    Qt::CTRL | Qt::Key_2},
};

}  // namespace

BarraAnteprima::BarraAnteprima(QWidget* Padre) : QToolBar(Padre)
{}

void BarraAnteprima::ImpostaVista(VistaStampa* Anteprima)
{
    Vista = Anteprima;
    Collega(Vista, &VistaStampa::PaginaCambiata, this, [this](int Pagina) { MostraPagina(Pagina); });
}

QAction* BarraAnteprima::Aggiungi(const QString& Chiave, const QString& Suggerimento,
                                  std::function<void()> Comando)
{
    QAction* Tasto = AggiungiTasto(this, Chiave, Suggerimento);
    Collega(Tasto, &QAction::triggered, this, [Comando = std::move(Comando)] {
        if (ConcludiCampo())
            Comando();
    });
    return Tasto;
}

void BarraAnteprima::AggiungiPagine()
{
    Aggiungi(u"up"_s, u"Pagina precedente"_s,
             [this] { Vista->ImpostaPreviewPage(Vista->PaginaInVista() - 1); });
    Aggiungi(u"down"_s, u"Pagina successiva"_s,
             [this] { Vista->ImpostaPreviewPage(Vista->PaginaInVista() + 1); });
}

void BarraAnteprima::AggiungiZoom()
{
    QAction* Tasto = Aggiungi(u"zoom"_s, u"Dimensioni preview"_s, [this] {
        ImpostaScala(AlFoglio);
        ImpostaScala(MisuraVera);
    });
    auto* Menu = new QMenu(this);
    Menu->setObjectName(u"menuZoom"_s);
    for (const VoceZoom& Voce : VociZoom) {
        QAction* Scelta = Menu->addAction(Voce.Scritta.toString());
        Scelta->setObjectName(u'z' + QString::number(Voce.Numero));
        Collega(Scelta, &QAction::triggered, this, [this, Voce] {
            if (ConcludiCampo())
                ImpostaScala(Voce.Numero);
        });
    }
    Menu->addSeparator();
    for (const VoceAdattamento& Voce : VociAdattamento) {
        QAction* Scelta = Menu->addAction(Voce.Scritta.toString());
        Scelta->setObjectName(Voce.Chiave.toString());
        MostraTasti(Scelta, QKeySequence(Voce.Tasto));  // the preview answers them
        Scelta->setCheckable(true);
        Collega(Scelta, &QAction::triggered, this, [this, Voce] {
            if (!ConcludiCampo())
                return;
            if (Vista->ZoomMode() == Voce.Modo)
                Vista->LasciaAdattamento();
            else
                Vista->ScegliAdattamento(Voce.Modo);
        });
        const auto Segna = [this, Scelta, Voce] { Scelta->setChecked(Vista->ZoomMode() == Voce.Modo); };
        Collega(Menu, &QMenu::aboutToShow, Scelta, Segna);
    }
    Tasto->setMenu(Menu);
    qobject_cast<QToolButton*>(widgetForAction(Tasto))->setPopupMode(QToolButton::MenuButtonPopup);
}

void BarraAnteprima::AggiungiNumero()
{
    // cppcheck-suppress publicAllocationError ; the toolbar owns it, and is asked for it once
    txtPage = new QLabel(this);
    txtPage->setObjectName(u"txtPage"_s);
    txtPage->setToolTip(u"Pagina in vista e numero di pagine"_s);
    txtPage->setAccessibleName(u"Pagina"_s);
    txtPage->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    txtPage->setContentsMargins(aspetto::TraCampi, 0, aspetto::TraCampi, 0);
    txtPage->setMinimumWidth(txtPage->fontMetrics().horizontalAdvance(u"999/999"_s) + 2 * aspetto::TraCampi);
    addWidget(txtPage);
}

void BarraAnteprima::ImpostaScala(int Percento)
{
    if (Percento == AlFoglio)
        Vista->ImpostaZoomMode(VistaStampa::ZoomAdatta);
    else
        Vista->ImpostaZoom(Percento);
}

void BarraAnteprima::MostraPagina()
{
    MostraPagina(Vista->PaginaInVista());
}

void BarraAnteprima::MostraPagina(int Pagina)
{
    txtPage->setText(u"%1/%2"_s.arg(Pagina).arg(Vista->NumeroPagine()));
}

void BarraAnteprima::NascondiPagina()
{
    txtPage->clear();
}

#include "moc_barraanteprima.cpp"
