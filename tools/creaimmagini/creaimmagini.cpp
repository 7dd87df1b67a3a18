#include "creaimmagini/creaimmagini.h"

#include "creaimmagini/gif.h"
#include "platform/base/errore.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>

#include <array>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// What a folder of drawings becomes.
struct Genere
{
    QString Cartella;
    QString Estensione;
    QSize Misura;
    std::function<QByteArray(const QImage&)> Scrivi;
};

/// A drawing as a picture. @throws Errore 5 when it is no drawing
QImage Disegna(const QString& File, const QSize& Misura)
{
    QSvgRenderer Disegno(LeggiFile(File));
    if (!Disegno.isValid())
        throw Errore(errori::Argomento, u"il disegno non si legge"_s);
    QImage Immagine(Misura, QImage::Format_ARGB32_Premultiplied);
    Immagine.fill(Qt::transparent);
    QPainter Pennello(&Immagine);
    Disegno.render(&Pennello, QRectF(QPointF(), QSizeF(Misura)));
    return Immagine;
}

QByteArray Jpeg(const QImage& Immagine)
{
    constexpr int Qualita = 94;
    QByteArray Contenuto;
    QBuffer Memoria(&Contenuto);
    QImageWriter Scrittore(&Memoria, "jpg");
    Scrittore.setQuality(Qualita);
    return Scrittore.write(Immagine.convertToFormat(QImage::Format_RGB32)) ? Contenuto : QByteArray();
}

void CreaGenere(const QString& Origine, const QString& Meta, const Genere& Fatto, QString& InCorso)
{
    const QDir Cartella(Origine + Fatto.Cartella);
    CreaCartella(Meta + Fatto.Cartella);
    for (const QString& Nome : Cartella.entryList({u"*.svg"_s}, QDir::Files, QDir::Name)) {
        InCorso = Cartella.filePath(Nome);
        const QByteArray Contenuto = Fatto.Scrivi(Disegna(InCorso, Fatto.Misura));
        if (Contenuto.isEmpty())
            throw Errore(errori::Argomento, u"la figura non si scrive"_s);
        ScriviFile(Barra(Meta + Fatto.Cartella) + Nome.chopped(3) + Fatto.Estensione, Contenuto);
    }
}

}  // namespace

int CreaImmagini(const QStringList& Argomenti, QTextStream& Errori)
{
    if (Argomenti.size() != 2) {
        Errori << u"creaimmagini <folder of the drawings> <program folder>\n"_s;
        return 2;
    }
    const std::array Generi{
        Genere{u"sfondi"_s, u"jpg"_s, {LarghezzaSfondo, AltezzaSfondo}, Jpeg},
        Genere{u"icone"_s, u"gif"_s, {LatoIcona, LatoIcona}, Gif},
    };
    const QString Origine = Barra(Argomenti[0]);
    const QString Meta = Barra(Argomenti[1]);
    QString InCorso = Origine;
    try {
        for (const Genere& Fatto : Generi)
            CreaGenere(Origine, Meta, Fatto, InCorso);
        InCorso = Origine + u"templates.ini"_s;
        ScriviFile(Meta + Barra(u"sfondi"_s) + u"templates.ini"_s, LeggiFile(InCorso));
    } catch (const Errore& Guasto) {
        Errori << InCorso << u": "_s << Guasto.Descrizione << u'\n';
        return 1;
    }
    return 0;
}
