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

/// A drawing of the system's, by the file of the source.
struct DisegnoDiSistema
{
    QStringView Origine;
    QStringView Cartella;  ///< of the theme, below that of the size
    QStringView Nome;
};
constexpr std::array DisegniDiSistema{
    DisegnoDiSistema{u"calcanova", u"apps", u"calcanova"},
    DisegnoDiSistema{u"parcella", u"mimetypes", u"application-x-calcanova-parcella"},
};

QByteArray Png(const QImage& Immagine)
{
    QByteArray Contenuto;
    QBuffer Memoria(&Contenuto);
    return Immagine.save(&Memoria, "png") ? Contenuto : QByteArray();
}

void CreaDiSistema(const QString& Origine, const QString& Tema, QString& InCorso)
{
    for (const DisegnoDiSistema& Disegno : DisegniDiSistema) {
        InCorso = Origine + Disegno.Origine.toString() + u".svg"_s;
        const auto Scrivi = [&](const QString& Misura, const QString& Fine, const QByteArray& Contenuto) {
            const QString Cartella = Tema + Barra(Misura) + Barra(Disegno.Cartella.toString());
            CreaCartella(Cartella);
            ScriviFile(Cartella + Disegno.Nome.toString() + Fine, Contenuto);
        };
        for (const int Lato : LatiDiSistema)
            Scrivi(u"%1x%1"_s.arg(Lato), u".png"_s, Png(Disegna(InCorso, {Lato, Lato})));
        Scrivi(u"scalable"_s, u".svg"_s, LeggiFile(InCorso));
    }
}

void CreaDelProgramma(const QString& Origine, const QString& Meta, QString& InCorso)
{
    const std::array Generi{
        Genere{u"sfondi"_s, u"jpg"_s, {LarghezzaSfondo, AltezzaSfondo}, Jpeg},
        Genere{u"icone"_s, u"gif"_s, {LatoIcona, LatoIcona}, Gif},
    };
    for (const Genere& Fatto : Generi)
        CreaGenere(Origine, Meta, Fatto, InCorso);
    InCorso = Origine + u"templates.ini"_s;
    ScriviFile(Meta + Barra(u"sfondi"_s) + u"templates.ini"_s, LeggiFile(InCorso));
}

}  // namespace

int CreaImmagini(const QStringList& Argomenti, QTextStream& Errori)
{
    const bool DiSistema = !Argomenti.isEmpty() && Argomenti[0] == u"--sistema";
    const QStringList Cartelle = Argomenti.mid(DiSistema ? 1 : 0);
    if (Cartelle.size() != 2) {
        Errori << u"creaimmagini <folder of the drawings> <program folder>\n"
                  "creaimmagini --sistema <folder of the drawings> <folder of the theme>\n"_s;
        return 2;
    }
    const QString Origine = Barra(Cartelle[0]);
    QString InCorso = Origine;
    try {
        (DiSistema ? CreaDiSistema : CreaDelProgramma)(Origine, Barra(Cartelle[1]), InCorso);
    } catch (const Errore& Guasto) {
        Errori << InCorso << u": "_s << Guasto.Descrizione << u'\n';
        return 1;
    }
    return 0;
}
