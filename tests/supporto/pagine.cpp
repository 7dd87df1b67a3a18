#include "supporto/pagine.h"

#include "platform/system/file.h"
#include "supporto/prova.h"

#include <QProcess>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace pagine {

namespace {

/// Lines touch where columns and rows meet, and a glyph may hang over its place by a hair.
constexpr double TolleranzaMm = 0.05;

QString FuoriArea(const Impaginazione& Fatta, int Pagina)
{
    const QRectF Area =
        Fatta.AreaTestoMm().adjusted(-TolleranzaMm, -TolleranzaMm, TolleranzaMm, TolleranzaMm);
    for (const RigaImpaginata& Riga : Fatta.Righe(Pagina))
        if (!Area.contains(Riga.Mm.center()) || Riga.Mm.left() < Area.left() ||
            Riga.Mm.right() > Area.right() || Riga.Mm.top() < Area.top() || Riga.Mm.bottom() > Area.bottom())
            return u"page %1: outside: %2 at %3, %4 - %5, %6"_s.arg(Pagina)
                .arg(TestoDi(Fatta, Riga).left(40))
                .arg(Riga.Mm.left())
                .arg(Riga.Mm.top())
                .arg(Riga.Mm.right())
                .arg(Riga.Mm.bottom());
    return {};
}

QString Sovrapposte(const Impaginazione& Fatta, int Pagina)
{
    const std::vector<RigaImpaginata>& Righe = Fatta.Righe(Pagina);
    const auto Interno = [](const QRectF& Mm) {
        return Mm.adjusted(TolleranzaMm, TolleranzaMm, -TolleranzaMm, -TolleranzaMm);
    };
    for (std::size_t i = 0; i < Righe.size(); ++i)
        for (std::size_t j = i + 1; j < Righe.size(); ++j)
            if (!Righe[i].Mm.isEmpty() && !Righe[j].Mm.isEmpty() &&
                Interno(Righe[i].Mm).intersects(Interno(Righe[j].Mm)))
                return u"page %1: overlap: %2 / %3"_s.arg(Pagina).arg(TestoDi(Fatta, Righe[i]).left(40),
                                                                      TestoDi(Fatta, Righe[j]).left(40));
    return {};
}

/// Everything but the marks between cells and rows stands on exactly one line.
QString Perduti(const Impaginazione& Fatta)
{
    const QString& Testo = Fatta.Testo();
    std::vector<int> Volte(static_cast<std::size_t>(Testo.size()));
    for (int Pagina = 1; Pagina <= Fatta.NumeroPagine(); ++Pagina)
        for (const RigaImpaginata& Riga : Fatta.Righe(Pagina))
            for (qsizetype i = Riga.Inizio; i < Riga.Inizio + Riga.Lunghezza; ++i)
                ++Volte[static_cast<std::size_t>(i)];
    for (qsizetype i = 0; i < Testo.size(); ++i) {
        const bool Segno = Testo[i] == u'\n' || Testo[i] == u'\t';
        if (Volte[static_cast<std::size_t>(i)] != (Segno ? 0 : 1) && !Testo[i].isSpace())
            return u"place %1 stands on %2 lines"_s.arg(i).arg(Volte[static_cast<std::size_t>(i)]);
    }
    return {};
}

}  // namespace

QString Leggi(const QString& Programma, const QStringList& Argomenti, const QByteArray& Pdf)
{
    const QString File = NuovaCartella() + u"pagine.pdf"_s;
    ScriviFile(File, Pdf);
    QStringList Veri = Argomenti;
    Veri.replaceInStrings(u"%"_s, File);
    QProcess Processo;
    Processo.start(Programma, Veri);
    if (!Processo.waitForFinished() || Processo.exitCode() != 0)
        return {};
    return QString::fromUtf8(Processo.readAllStandardOutput());
}

QStringList ParoleDiPagina(const QByteArray& Pdf, int Pagina)
{
    const QString Numero = QString::number(Pagina);
    return Leggi(u"pdftotext"_s, {u"-raw"_s, u"-f"_s, Numero, u"-l"_s, Numero, u"%"_s, u"-"_s}, Pdf)
        .simplified()
        .split(u' ', Qt::SkipEmptyParts);
}

QStringList FontMancanti(const QByteArray& Pdf)
{
    const QStringList Righe = Leggi(u"pdffonts"_s, {u"%"_s}, Pdf).split(u'\n', Qt::SkipEmptyParts);
    if (Righe.size() < 3)
        return {u"(none)"_s};
    QStringList Mancano;
    const qsizetype Colonna = Righe[0].indexOf(u"emb"_s);
    for (const QString& Riga : Righe.mid(2))
        if (Riga.mid(Colonna, 3) != u"yes")
            Mancano += Riga;
    return Mancano;
}

QString TestoDi(const Impaginazione& Fatta, const RigaImpaginata& Riga)
{
    return Fatta.Testo().mid(Riga.Inizio, Riga.Lunghezza);
}

RigaTrovata CercaRiga(const Impaginazione& Fatta, const QString& Parte)
{
    for (int Pagina = 1; Pagina <= Fatta.NumeroPagine(); ++Pagina)
        for (const RigaImpaginata& Riga : Fatta.Righe(Pagina))
            if (TestoDi(Fatta, Riga).contains(Parte))
                return {Pagina, Riga};
    return {};
}

QString Difetto(const Impaginazione& Fatta)
{
    for (int Pagina = 1; Pagina <= Fatta.NumeroPagine(); ++Pagina) {
        if (const QString Fuori = FuoriArea(Fatta, Pagina); !Fuori.isEmpty())
            return Fuori;
        if (const QString Due = Sovrapposte(Fatta, Pagina); !Due.isEmpty())
            return Due;
    }
    return Perduti(Fatta);
}

}  // namespace pagine
