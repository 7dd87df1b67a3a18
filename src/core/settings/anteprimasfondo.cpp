#include "core/settings/anteprimasfondo.h"

#include "platform/kit/aspetto.h"
#include "platform/kit/testobordo.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize Misura(240, 128);

}  // namespace

AnteprimaSfondo::AnteprimaSfondo(QWidget* Padre) : QWidget(Padre)
{
    setMinimumSize(Misura);
    setMaximumHeight(Misura.height() + Misura.height() / 2);
}

void AnteprimaSfondo::Mostra(const QString& File, const std::array<int, ColoriDesktop>& Colori)
{
    Tinte = Colori;
    if (File != FileLetto) {
        FileLetto = File;
        // Twice the size is sharp on a dense screen, and read in no time.
        Immagine = aspetto::LeggiImmagine(File, Misura * 2);
    }
    update();
}

void AnteprimaSfondo::paintEvent(QPaintEvent*)
{
    QPainter Pennello(this);
    Pennello.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    if (Immagine.isNull())
        Pennello.fillRect(rect(), aspetto::DaBgr(Tinte[ColoreSfondo]));
    else
        Pennello.drawPixmap(rect(), Immagine);
    DisegnaEtichetta(Pennello, width() / 4, u"Scritta"_s, false);
    DisegnaEtichetta(Pennello, width() * 3 / 4, u"Selezionata"_s, true);
    Pennello.setBrush(Qt::NoBrush);
    Pennello.setPen(aspetto::Filo());
    Pennello.drawRect(rect().adjusted(0, 0, -1, -1));
}

void AnteprimaSfondo::DisegnaEtichetta(QPainter& Pennello, int Centro, const QString& Testo,
                                       bool Marcata) const
{
    constexpr int Tessera = 56;
    constexpr int Smusso = 12;
    constexpr double Soffice = 0.88;
    const int Alto = (height() - Tessera) / 2 - fontMetrics().height();
    QColor Fondo = palette().color(QPalette::Base);
    Fondo.setAlphaF(Marcata ? 1.0F : float(Soffice));
    Pennello.setPen(Qt::NoPen);
    Pennello.setBrush(Fondo);
    Pennello.drawRoundedRect(Centro - Tessera / 2, Alto, Tessera, Tessera, Smusso, Smusso);
    constexpr int Lato = 34;
    aspetto::Icona(u"new"_s).paint(&Pennello,
                                   QRect(Centro - Lato / 2, Alto + (Tessera - Lato) / 2, Lato, Lato));

    const int Largo = width() / 2;
    const QRect Riga(Centro - Largo / 2, Alto + Tessera + aspetto::TraCampi, Largo, fontMetrics().height());
    if (Marcata) {
        QColor Targa = aspetto::DaBgr(Tinte[ColoreBordo]);
        constexpr double Coprente = 0.85;
        Targa.setAlphaF(float(Coprente));
        Pennello.setPen(Qt::NoPen);
        Pennello.setBrush(Targa);
        const int Scritta = fontMetrics().horizontalAdvance(Testo) + aspetto::TraCampi;
        Pennello.drawRoundedRect(QRect(Centro - Scritta / 2, Riga.top(), Scritta, Riga.height()), 4, 4);
    }
    TextBorder(Pennello, Riga, Qt::AlignCenter, Testo,
               aspetto::DaBgr(Tinte[Marcata ? ColoreSelezione : ColoreTesto]),
               aspetto::DaBgr(Tinte[ColoreBordo]));
}

#include "moc_anteprimasfondo.cpp"
