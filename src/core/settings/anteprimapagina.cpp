#include "core/settings/anteprimapagina.h"

#include "core/modLogoStampa.h"
#include "platform/document/superficie.h"
#include "platform/kit/aspetto.h"
#include "platform/system/orologio.h"
#include "print/modCorpo.h"
#include "print/modPrenotula.h"
#include "print/modStampe.h"

#include <QPainter>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int LarghezzaIniziale = 232;
constexpr double LatiFoglio = 297.0 / 210.0;

/// A note as anybody might write it, with the office of the session.
Parcella NotaDiEsempio()
{
    Parcella Nota;
    Nota.txtDatiStaCli.Testo = u"Cliente Rossi\nVia Roma 1\n00100 Roma\nC.F. RSSMRA80A01H501U"_s;
    Nota.txtDatiStaOgg.Testo = u"recupero del credito"_s;
    Nota.txtImporto.Testo = u"20.000,00"_s;
    Nota.txtDatiPar[DatoNumero] = u"1"_s;
    Nota.txtDatiPar[DatoData] = Oggi().toString(u"dd/MM/yyyy"_s);
    constexpr std::array Fasi{u"Fase di studio della controversia", u"Fase introduttiva del giudizio",
                              u"Fase decisionale"};
    for (const QStringView Fase : Fasi) {
        constexpr double Importo = 600.0;
        const int Riga = Nota.xOnorari.AggiungiRiga();
        Nota.xOnorari(Riga, OnoDescr) = Fase.toString();
        Nota.xOnorari(Riga, OnoImporto) = Importo;
    }
    return Nota;
}

}  // namespace

AnteprimaPagina::AnteprimaPagina(QWidget* Padre) : QWidget(Padre)
{
    QSizePolicy Misure(QSizePolicy::Preferred, QSizePolicy::Preferred);
    Misure.setHeightForWidth(true);
    setSizePolicy(Misure);
    setMinimumWidth(LarghezzaIniziale / 2);
}

QSize AnteprimaPagina::sizeHint() const
{
    return {LarghezzaIniziale, heightForWidth(LarghezzaIniziale)};
}

int AnteprimaPagina::heightForWidth(int Larghezza) const
{
    return qRound(Larghezza * LatiFoglio);
}

void AnteprimaPagina::Mostra(const QByteArray& Png, double AltezzaCm, Allineamento Dove)
{
    Superficie vp;
    ImpostaMargini(vp, StampaPrenotula);
    vp.HeadPicture(FiguraDi(Png, AltezzaCm, Dove));
    vp.StartDoc();
    StatoStampa Stato;
    ComponiPrenotula(vp, Stato, NotaDiEsempio());
    vp.EndDoc();
    Impaginata = Impaginazione(vp.Contenuto());
    Fatta = {};
    update();
}

QRect AnteprimaPagina::SulFoglio() const
{
    const QSize Lati = QSizeF(1.0, LatiFoglio).scaled(size() - QSize(2, 2), Qt::KeepAspectRatio).toSize();
    return {QPoint((width() - Lati.width()) / 2, 1), Lati};
}

void AnteprimaPagina::paintEvent(QPaintEvent*)
{
    const QRect Dove = SulFoglio();
    const QSize Punti = (QSizeF(Dove.size()) * devicePixelRatioF()).toSize();
    if (Fatta.size() != Punti && !Punti.isEmpty()) {
        Fatta = QImage(Punti, QImage::Format_RGB32);
        Fatta.fill(Qt::white);
        QPainter Pittore(&Fatta);
        const double Scala = Punti.width() / Impaginata.DimensioneMm().width();
        Pittore.scale(Scala, Scala);
        Impaginata.DisegnaPagina(Pittore, 1);
    }
    QPainter Pittore(this);
    Pittore.drawImage(Dove, Fatta);
    Pittore.setPen(aspetto::Filo());
    Pittore.drawRect(Dove.adjusted(0, 0, -1, -1));
}

#include "moc_anteprimapagina.cpp"
