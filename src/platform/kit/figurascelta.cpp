#include "platform/kit/figurascelta.h"

#include "platform/base/paginacodice.h"
#include "platform/kit/disegnoammesso.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int MassimoLato = 12000;
constexpr qint64 MassimiPunti = 30'000'000;  // the toolkit reads no more of sixteen bits a colour
constexpr double MassimoRapporto = 100.0;    // of the longer side to the shorter one

FiguraScelta Rifiutata(const QString& Perche)
{
    return {{}, u"L'immagine non si può usare: "_s + Perche + u'.'};
}

/// A stretched strip is no logo, and one of its sides would be less than a dot.
bool Sproporzionata(const QSizeF& Lati)
{
    return Lati.width() > Lati.height() * MassimoRapporto || Lati.height() > Lati.width() * MassimoRapporto;
}

QImage SuBianco(const QSize& Lati)
{
    QImage Carta(Lati, QImage::Format_RGB32);
    Carta.fill(Qt::white);
    return Carta;
}

FiguraScelta LeggiDisegno(const QByteArray& Byte, const QSize& Massima)
{
    if (Byte.size() > MassimoByteDisegno)
        return Rifiutata(u"il disegno SVG è troppo grande"_s);
    if (const QString Difetto = DifettoDisegno(Byte); !Difetto.isEmpty())
        return Rifiutata(u"il disegno SVG "_s + Difetto + u"; salvarlo come PNG"_s);
    QSvgRenderer Disegno(Byte);
    const QSizeF Lati =
        Disegno.viewBoxF().isEmpty() ? QSizeF(Disegno.defaultSize()) : Disegno.viewBoxF().size();
    if (!Disegno.isValid() || Lati.isEmpty() || !std::isfinite(Lati.width()) || !std::isfinite(Lati.height()))
        return Rifiutata(u"il disegno SVG è danneggiato"_s);
    if (Sproporzionata(Lati))
        return Rifiutata(u"è troppo stretta e lunga"_s);
    QImage Carta = SuBianco(Lati.scaled(Massima, Qt::KeepAspectRatio).toSize().expandedTo({1, 1}));
    QPainter Pittore(&Carta);
    Disegno.render(&Pittore);
    Pittore.end();
    return {Carta, {}};
}

/// The last mark of a JPEG: what ends before it is filled with grey by its readers. Cameras write more behind
/// it; a small picture of the whole has one of its own, at the beginning.
bool JpegIntero(const QByteArray& Byte)
{
    return Byte.lastIndexOf("\xFF\xD9") > Byte.size() / 2;
}

FiguraScelta LeggiFotografia(const QByteArray& Byte, const QSize& Massima)
{
    QBuffer Fonte;
    Fonte.setData(Byte);
    Fonte.open(QIODevice::ReadOnly);
    QImageReader Lettore(&Fonte);
    const QByteArray Formato = Lettore.format();
    if (Formato != "png" && Formato != "jpeg" && Formato != "jpg")
        return Rifiutata(u"non è un file PNG, JPEG o SVG"_s);
    const QSize Lati = Lettore.size();
    if (Lati.isEmpty() || (Formato != "png" && !JpegIntero(Byte)))
        return Rifiutata(u"il file è danneggiato"_s);
    if (Lati.width() > MassimoLato || Lati.height() > MassimoLato ||
        qint64(Lati.width()) * Lati.height() > MassimiPunti)
        return Rifiutata(u"ha troppi punti (%1 x %2)"_s.arg(Lati.width()).arg(Lati.height()));
    if (Sproporzionata(Lati))
        return Rifiutata(u"è troppo stretta e lunga"_s);
    Lettore.setAutoTransform(true);
    QImage Letta = Lettore.read();
    if (Letta.isNull())
        return Rifiutata(u"il file è danneggiato"_s);
    if (Letta.width() > Massima.width() || Letta.height() > Massima.height())
        Letta = Letta.scaled(Massima, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QImage Carta = SuBianco(Letta.size());
    QPainter Pittore(&Carta);
    Pittore.drawImage(Carta.rect(), Letta);
    Pittore.end();
    return {Carta, {}};
}

/// A drawing begins with a mark of XML, behind blanks or the mark of its encoding.
bool ComeDisegno(const QByteArray& Byte)
{
    constexpr qsizetype Testata = 64;
    QByteArray Inizio = Byte.first(std::min(Testata, Byte.size()));
    if (Inizio.startsWith(MarcaUtf8))
        Inizio.remove(0, MarcaUtf8.size());
    return Inizio.trimmed().startsWith('<');
}

}  // namespace

FiguraScelta LeggiFigura(const QByteArray& Byte, const QSize& Massima)
{
    if (Byte.size() > MassimoByteFigura)
        return Rifiutata(u"il file è troppo grande"_s);
    return ComeDisegno(Byte) ? LeggiDisegno(Byte, Massima) : LeggiFotografia(Byte, Massima);
}

QByteArray ComePng(const QImage& Immagine)
{
    QByteArray Byte;
    QBuffer Uscita(&Byte);
    Uscita.open(QIODevice::WriteOnly);
    Immagine.save(&Uscita, "png");
    return Byte;
}
